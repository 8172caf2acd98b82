// Polyphase filtering: an iteration takes `down` samples and gives `up` outputs, each the dot product of its own row of
// taps and a window of samples. Every output sums in one and the same order, whatever its place.
#pragma once

#include <algorithm>

#include "fir/fir_integer.h"
#include "frame/dot_kernels.h"

namespace zors::fir {

// Output r of an iteration: len taps from `taps` on, against samples from `start` on, counted from the iteration's
// first.
struct PhaseRow {
  Zor32s taps, len, start;
};

// What becomes of integer sums.
struct Finish {
  int shift = 0;
  ZorRoundMode roundMode = zorRoundNearestEven;
};

// ---- Sums across registers ----------------------------------------------------------------------

ZORS_INLINE __m256 sumOfHalves(__m256 a, __m256 b) {  // of a below, of b above
  return _mm256_add_ps(_mm256_blend_ps(a, b, 0xF0), _mm256_permute2f128_ps(a, b, 0x21));
}
ZORS_INLINE __m256d sumOfHalves(__m256d a, __m256d b) {
  return _mm256_add_pd(_mm256_blend_pd(a, b, 0xC), _mm256_permute2f128_pd(a, b, 0x21));
}
ZORS_INLINE __m256i sumOfHalves(__m256i a, __m256i b) {
  return _mm256_add_epi32(_mm256_blend_epi32(a, b, 0xF0), _mm256_permute2x128_si256(a, b, 0x21));
}
// Within halves the sums of a's 64-bit quarters, then of b's.
template <class Register, class Add> ZORS_INLINE Register sumOfQuarters(Register a, Register b, Add add) {
  const __m256d x = simd::fromBits<__m256d>(simd::bits(a)), y = simd::fromBits<__m256d>(simd::bits(b));
  const auto as = [](__m256d r) ZORS_INLINE_LAMBDA { return simd::fromBits<Register>(simd::bits(r)); };
  return add(as(_mm256_unpacklo_pd(x, y)), as(_mm256_unpackhi_pd(x, y)));
}
// Register r's lanes summed into lane r.
ZORS_INLINE __m256 laneSums(const simd::Vec<Zor32f, 64>& s) {
  const auto add = [](__m256 a, __m256 b) ZORS_INLINE_LAMBDA { return _mm256_add_ps(a, b); };
  const __m256 low = sumOfQuarters(sumOfHalves(s.r[0], s.r[4]), sumOfHalves(s.r[1], s.r[5]), add),
               high = sumOfQuarters(sumOfHalves(s.r[2], s.r[6]), sumOfHalves(s.r[3], s.r[7]), add);
  return _mm256_add_ps(_mm256_shuffle_ps(low, high, 0x88), _mm256_shuffle_ps(low, high, 0xDD));
}
ZORS_INLINE __m256i laneSums(const simd::Vec<Zor32s, 64>& s) {
  const auto add = [](__m256i a, __m256i b) ZORS_INLINE_LAMBDA { return _mm256_add_epi32(a, b); };
  const __m256 low = _mm256_castsi256_ps(sumOfQuarters(sumOfHalves(s.r[0], s.r[4]), sumOfHalves(s.r[1], s.r[5]), add)),
               high = _mm256_castsi256_ps(sumOfQuarters(sumOfHalves(s.r[2], s.r[6]), sumOfHalves(s.r[3], s.r[7]), add));
  return _mm256_add_epi32(_mm256_castps_si256(_mm256_shuffle_ps(low, high, 0x88)),
                          _mm256_castps_si256(_mm256_shuffle_ps(low, high, 0xDD)));
}
ZORS_INLINE __m256d laneSums(const simd::Vec<Zor64f, 16>& s) {
  return sumOfQuarters(sumOfHalves(s.r[0], s.r[2]), sumOfHalves(s.r[1], s.r[3]),
                       [](__m256d a, __m256d b) ZORS_INLINE_LAMBDA { return _mm256_add_pd(a, b); });
}
ZORS_INLINE __m256 laneSums(const simd::Vec<Zor32fc, 16>& s) {
  return sumOfQuarters(sumOfHalves(s.r[0], s.r[2]), sumOfHalves(s.r[1], s.r[3]),
                       [](__m256 a, __m256 b) ZORS_INLINE_LAMBDA { return _mm256_add_ps(a, b); });
}
ZORS_INLINE __m256d laneSums(const simd::Vec<Zor64fc, 4>& s) { return sumOfHalves(s.r[0], s.r[1]); }

// ---- Tiles: one row of taps and as many windows as a register has lanes -------------------------

// The windows of a tile, `stride` samples apart; beyond the count of those wanted the last one again.
template <int lanes, class T> struct Windows {
  const T* at[lanes];
  ZORS_INLINE Windows(const T* first, std::ptrdiff_t stride, int count) {
    simd::unrolled<lanes>([&](auto l) ZORS_INLINE_LAMBDA { at[l] = first + std::min<int>(l, count - 1) * stride; });
  }
};

// Cell: what a tile gives for an output; Output: what is stored of it. tap(j) is tap j in forward order of the row.
template <class T> struct PhaseArithmetic {  // Zor32f, Zor64f
  using Cell = T;
  using Output = T;
  static constexpr int lanes = simd::lanesOf<T>, planes = 1;

  static constexpr std::ptrdiff_t stored(std::ptrdiff_t len) { return len; }
  ZORS_INLINE static simd::Vec<T, lanes> tile(const T* taps, std::ptrdiff_t, std::ptrdiff_t len, const T* in,
                                              std::ptrdiff_t stride, int count, Finish) {
    using namespace simd;
    const Windows<lanes, T> x(in, stride, count);
    Vec<T, lanes* lanes> sum = splat<Vec<T, lanes * lanes>>(0);
    using One = Vec<T, lanes>;
    std::ptrdiff_t k = 0;
    for (; k + lanes <= len; k += lanes) {
      const One t = held(load<lanes>(taps + k));
      unrolled<lanes>([&](auto l)
                          ZORS_INLINE_LAMBDA { sum.r[l] = fma(t, load<lanes>(x.at[l] + k), One{{sum.r[l]}}).r[0]; });
    }
    if (k < len) {
      const int rest = int(len - k);
      const One t = held(loadThenZeros(taps + k, rest));
      unrolled<lanes>([&](auto l) ZORS_INLINE_LAMBDA {
        sum.r[l] = fma(t, loadThenZeros(x.at[l] + k, rest), One{{sum.r[l]}}).r[0];
      });
    }
    return {{laneSums(sum)}};
  }
  static Output output(Cell cell) { return cell; }
};

template <Complex C> struct PhaseArithmetic<C> {  // Zor32fc, Zor64fc
  using Cell = C;
  using Output = C;
  static constexpr int lanes = simd::lanesOf<C>, planes = 1;

  static constexpr std::ptrdiff_t stored(std::ptrdiff_t len) { return len; }
  ZORS_INLINE static simd::Vec<C, lanes> tile(const C* taps, std::ptrdiff_t, std::ptrdiff_t len, const C* in,
                                              std::ptrdiff_t stride, int count, Finish) {
    using namespace simd;
    using Arithmetic = dot::ComplexArithmetic<C>;
    using T = typename Arithmetic::Part;
    constexpr int parts = 2 * lanes;
    using One = Vec<T, parts>;
    const Windows<lanes, C> x(in, stride, count);
    Vec<T, parts*lanes> byRe = splat<Vec<T, parts * lanes>>(0), byIm = byRe;
    const auto accumulate = [&](One t, auto&& window) ZORS_INLINE_LAMBDA {
      const One re = held(One{{Arithmetic::evens(t.r[0])}}), im = held(One{{Arithmetic::odds(t.r[0])}});
      unrolled<lanes>([&](auto l) ZORS_INLINE_LAMBDA {
        const One samples = held(window(&x.at[l]->re));
        byRe.r[l] = fma(re, samples, One{{byRe.r[l]}}).r[0];
        byIm.r[l] = fma(im, samples, One{{byIm.r[l]}}).r[0];
      });
    };
    std::ptrdiff_t k = 0;
    for (; k + lanes <= len; k += lanes)
      accumulate(load<parts>(&taps[k].re), [k](const T* p) ZORS_INLINE_LAMBDA { return load<parts>(p + 2 * k); });
    if (k < len) {
      const int rest = int(2 * (len - k));
      accumulate(loadThenZeros(&taps[k].re, rest),
                 [k, rest](const T* p) ZORS_INLINE_LAMBDA { return loadThenZeros(p + 2 * k, rest); });
    }
    return {{laneSums(build<Vec<C, lanes * lanes>>(
        [&](auto l) ZORS_INLINE_LAMBDA { return Arithmetic::join(byRe.r[l], byIm.r[l]); }))}};
  }
  static Output output(Cell cell) { return cell; }
};

ZORS_INLINE Sums finished(Sums sum, Finish finish) {
  using namespace simd;
  if (finish.shift >= 0 || finish.roundMode == zorRoundNearestEven) return scaledResults(sum, finish.shift);
  const int shift = -finish.shift;
  sum = finish.roundMode == zorRoundHalfAway ? roundedShiftBy<zorRoundHalfAway>(sum, shift)
                                             : roundedShiftBy<zorRoundTowardZero>(sum, shift);
  return min(max(sum, same(sum, INT16_MIN)), same(sum, INT16_MAX));
}
// Sums of 16-bit products of 16-bit items, an even number of them, in 32 bits that wrap.
ZORS_INLINE Sums pairSums(const Zor16s* taps, std::ptrdiff_t len, const Windows<8, Zor16s>& x) {
  using namespace simd;
  Vec<Zor32s, 64> sum = splat<Vec<Zor32s, 64>>(0);
  std::ptrdiff_t k = 0;
  for (; k + 16 <= len; k += 16) {
    const __m256i t = loadSamples(taps + k);
    unrolled<8>([&](auto l) ZORS_INLINE_LAMBDA { accumulate(sum, l, t, loadSamples(x.at[l] + k)); });
  }
  if (k < len) {
    const int rest = int(len - k);
    const __m256i t = loadThenZeros(taps + k, rest).r[0];
    unrolled<8>([&](auto l) ZORS_INLINE_LAMBDA { accumulate(sum, l, t, loadThenZeros(x.at[l] + k, rest).r[0]); });
  }
  return {{laneSums(sum)}};
}

// Rows are of an even length, those of an odd one behind a zero that meets the sample before the window.
template <> struct PhaseArithmetic<Zor16s> {
  using Cell = Zor32s;
  using Output = Zor16s;
  static constexpr int lanes = 8, planes = 1;

  static constexpr std::ptrdiff_t stored(std::ptrdiff_t len) { return (len + 1) / 2 * 2; }
  ZORS_INLINE static simd::Vec<Zor32s, 8> tile(const Zor16s* taps, std::ptrdiff_t, std::ptrdiff_t len, const Zor16s* in,
                                               std::ptrdiff_t stride, int count, Finish finish) {
    return finished(pairSums(taps, len, Windows<8, Zor16s>(in, stride, count)), finish);
  }
  static Output output(Cell cell) { return static_cast<Zor16s>(cell); }
};

// A plane of taps (re, -im) gives the real parts, one of (im, re) the imaginary ones.
template <> struct PhaseArithmetic<Zor16sc> {
  using Cell = Zor16sc;
  using Output = Zor16sc;
  static constexpr int lanes = 8, planes = 2;

  static constexpr std::ptrdiff_t stored(std::ptrdiff_t len) { return len; }
  ZORS_INLINE static simd::Vec<Zor16sc, 8> tile(const Zor16sc* taps, std::ptrdiff_t plane, std::ptrdiff_t len,
                                                const Zor16sc* in, std::ptrdiff_t stride, int count, Finish finish) {
    const Windows<8, Zor16s> x(&in->re, 2 * stride, count);
    return {{interleaveLow(finished(pairSums(&taps->re, 2 * len, x), finish),
                           finished(pairSums(&taps[plane].re, 2 * len, x), finish))}};
  }
  static Output output(Cell cell) { return cell; }
};

// ---- Blocks -------------------------------------------------------------------------------------

// Rows and columns of a square of cells change places.
template <class T, int L> ZORS_INLINE simd::Vec<T, L> transposed(simd::Vec<T, L> x) {
  using V = simd::Vec<T, L>;
  if constexpr (sizeof(T) == 16) {
    return {
        {simd::fromBits<typename V::Register>(_mm256_permute2x128_si256(simd::bits(x.r[0]), simd::bits(x.r[1]), 0x20)),
         simd::fromBits<typename V::Register>(
             _mm256_permute2x128_si256(simd::bits(x.r[0]), simd::bits(x.r[1]), 0x31))}};
  } else {
    // Neighbouring cells of rows a half of the square apart, then the same until every cell has moved: a perfect
    // shuffle of the rows at each step.
    constexpr int rows = V::registers;
    const auto step = [](V in) ZORS_INLINE_LAMBDA {
      return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
        const __m256i a = simd::bits(in.r[i / 2]), b = simd::bits(in.r[i / 2 + rows / 2]);
        __m256i low, high;
        if constexpr (sizeof(T) == 4)
          low = _mm256_unpacklo_epi32(a, b), high = _mm256_unpackhi_epi32(a, b);
        else
          low = _mm256_unpacklo_epi64(a, b), high = _mm256_unpackhi_epi64(a, b);
        return simd::fromBits<typename V::Register>(_mm256_permute2x128_si256(low, high, i % 2 == 0 ? 0x20 : 0x31));
      });
    };
    if constexpr (rows == 4) return step(step(x));
    if constexpr (rows == 8) return step(step(step(x)));
  }
}

template <class Value> struct Polyphase {
  using Arithmetic = PhaseArithmetic<Value>;
  using Cell = typename Arithmetic::Cell;
  using Output = typename Arithmetic::Output;
  static constexpr int lanes = Arithmetic::lanes;
  using Cells = simd::Vec<Cell, lanes>;

  const Value* taps;
  std::ptrdiff_t plane;  // from a tap to its second form
  const PhaseRow* rows;
  Zor32s up, down;

  // Output r of iteration 0 and of the count - 1 iterations behind it.
  ZORS_INLINE Cells tile(const Value* in, std::ptrdiff_t r, int count, Finish finish) const {
    const PhaseRow& row = rows[r];
    return Arithmetic::tile(taps + row.taps, plane, row.len, in + row.start, down, count, finish);
  }

  // The outputs of `iterations`, whose first sample is in[0]. out may not overlap what is read.
  [[gnu::flatten]] void run(const Value* in, std::ptrdiff_t iterations, Output* out, Finish finish) const {
    const std::ptrdiff_t total = iterations * up;
    for (std::ptrdiff_t i = 0; i < iterations; i += lanes) {
      const int count = int(std::min<std::ptrdiff_t>(lanes, iterations - i));
      const Value* from = in + i * down;
      if (up == 1) {
        put(out + i, tile(from, 0, count, finish), count);
        continue;
      }
      for (std::ptrdiff_t first = 0; first < up; first += lanes) {
        const int wide = int(std::min<std::ptrdiff_t>(lanes, up - first));
        alignas(32) Cell cells[lanes * lanes];
        for (int r = 0; r < wide; ++r) simd::store(cells + r * lanes, tile(from, first + r, count, finish));
        for (int r = wide; r < lanes; ++r) simd::store(cells + r * lanes, simd::splat<Cells>(Cell{}));
        const auto byIteration = transposed(simd::load<lanes * lanes>(cells));
        alignas(32) Cell rowsOfOutputs[lanes * lanes];
        simd::store(rowsOfOutputs, byIteration);
        for (int l = 0; l < count; ++l) {
          // A whole register where what it covers beyond the outputs of this iteration is written after it.
          const std::ptrdiff_t at = (i + l) * up + first;
          const bool whole = wide == lanes || (up < lanes && at + lanes <= total);
          put(out + at, simd::load<lanes>(rowsOfOutputs + l * lanes), whole ? lanes : wide);
        }
      }
    }
  }

  // One output by itself.
  Output one(const Value* in, std::ptrdiff_t r, Finish finish) const {
    Cell cells[lanes];
    simd::store(cells, tile(in, r, 1, finish));
    return Arithmetic::output(cells[0]);
  }

 private:
  ZORS_INLINE static void put(Output* out, Cells cells, int count) {
    if constexpr (std::is_same_v<Output, Zor16s>) {
      const __m256i packed = _mm256_permute4x64_epi64(_mm256_packs_epi32(cells.r[0], cells.r[0]), 0x08);
      if (count == lanes)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(packed));
      else
        simd::storePart(out, simd::Vec<Zor16s, 16>{{packed}}, count);
    } else if (count == lanes) {
      simd::store(out, cells);
    } else {
      simd::storePart(out, cells, count);
    }
  }
};

}  // namespace zors::fir
