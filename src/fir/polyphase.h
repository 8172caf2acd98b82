// Polyphase filtering: an iteration takes `down` samples and gives `up` outputs, each the dot product of its own row of
// taps and a window of samples. Every output sums in one and the same order, whatever its place and whichever kernel
// computes it.
#pragma once

#include <algorithm>

#include "fir/fir_integer.h"
#include "fir/interleave.h"
#include "frame/dot_kernels.h"

namespace zors::fir {

// Output r of an iteration. All rows are of the same number of registers of taps, those of the oldest samples first; of
// the first register the last `head` lanes hold taps and the others zeros, which meet no sample. The window ends before
// sample `end`, counted from the iteration's first.
struct PhaseRow {
  Zor32s taps, head, end;
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

// ---- Registers of samples -----------------------------------------------------------------------

// The last count lanes of a register at p, from none to all, behind zeros; the other lanes are not read.
template <class T> ZORS_INLINE simd::Vec<T, simd::lanesOf<T>> loadLast(const T* p, int count) {
  alignas(64) static constexpr Zor32s window[16] = {0, 0, 0, 0, 0, 0, 0, 0, -1, -1, -1, -1, -1, -1, -1, -1};
  const __m256i mask = simd::bits(simd::load<8>(window + count * int{sizeof(T)} / 4).r[0]);
  return {{simd::fromBits<typename simd::RegisterOf<T>::type>(
      _mm256_maskload_epi32(reinterpret_cast<const int*>(p), mask))}};
}

// ---- Arithmetic: the sums of some outputs, a register or two each -------------------------------

// outputs: how many are computed at once, enough that multiply-adds do not wait for each other. Cell: what they become
// in registers; Output: what is stored of it. A row of several planes is added up once for each.
template <class T> struct PhaseSums {  // Zor32f, Zor64f
  using Cell = T;
  using Output = T;
  static constexpr int lanes = simd::lanesOf<T>, outputs = 8, planes = 1;
  using One = simd::Vec<T, lanes>;
  using Samples = One;
  using Cells = simd::Vec<Cell, outputs>;

  ZORS_INLINE static One taps(const T* p) { return simd::held(simd::load<lanes>(p)); }
  ZORS_INLINE static One samples(const T* p) { return simd::load<lanes>(p); }
  ZORS_INLINE static One lastSamples(const T* p, int count) { return loadLast(p, count); }
  ZORS_INLINE void add(auto output, One tap, One x) { sums_.r[output] = fma(tap, x, One{{sums_.r[output]}}).r[0]; }
  ZORS_INLINE static Cells cells(const PhaseSums (&sums)[planes], Finish) {
    if constexpr (sizeof(T) == 4)
      return {{laneSums(sums[0].sums_)}};
    else
      return simd::build<Cells>([&](auto i) ZORS_INLINE_LAMBDA {
        const auto& r = sums[0].sums_.r;
        return laneSums(simd::Vec<T, 16>{{r[4 * i], r[4 * i + 1], r[4 * i + 2], r[4 * i + 3]}});
      });
  }

 private:
  using All = simd::Vec<T, outputs * lanes>;
  All sums_ = simd::splat<All>(0);
};

template <Complex C> struct PhaseSums<C> {  // Zor32fc, Zor64fc: by the real parts of the taps and by the imaginary ones
  using Cell = C;
  using Output = C;
  static constexpr int lanes = simd::lanesOf<C>, outputs = 4, planes = 1;
  using Arithmetic = dot::ComplexArithmetic<C>;
  using T = typename Arithmetic::Part;
  using One = simd::Vec<T, 2 * lanes>;
  using Samples = One;
  struct Pair {
    One re, im;
  };
  using Cells = simd::Vec<Cell, outputs>;

  ZORS_INLINE static Pair taps(const C* p) {
    const One t = simd::load<2 * lanes>(&p->re);
    return {simd::held(One{{Arithmetic::evens(t.r[0])}}), simd::held(One{{Arithmetic::odds(t.r[0])}})};
  }
  ZORS_INLINE static One samples(const C* p) { return simd::held(simd::load<2 * lanes>(&p->re)); }
  ZORS_INLINE static One lastSamples(const C* p, int count) { return simd::as<T>(loadLast(p, count)); }
  ZORS_INLINE void add(auto output, Pair tap, One x) {
    byRe_.r[output] = fma(tap.re, x, One{{byRe_.r[output]}}).r[0];
    byIm_.r[output] = fma(tap.im, x, One{{byIm_.r[output]}}).r[0];
  }
  ZORS_INLINE static Cells cells(const PhaseSums (&sums)[planes], Finish) {
    const auto joined = [&](auto i)
                            ZORS_INLINE_LAMBDA { return Arithmetic::join(sums[0].byRe_.r[i], sums[0].byIm_.r[i]); };
    return simd::build<Cells>([&](auto i) ZORS_INLINE_LAMBDA {
      constexpr int first = i * lanes;
      return laneSums(simd::build<simd::Vec<C, lanes * lanes>>(
          [&](auto k) ZORS_INLINE_LAMBDA { return joined(std::integral_constant<int, first + k>{}); }));
    });
  }

 private:
  using All = simd::Vec<T, outputs * 2 * lanes>;
  All byRe_ = simd::splat<All>(0), byIm_ = byRe_;
};

// 16-bit products in 32-bit sums that wrap. A zero tap silences any sample, so whole registers are read.
template <class Value, class CellType, int planesOfTaps> struct IntegerSums {
  using Cell = CellType;
  using Output = Value;
  static constexpr int lanes = simd::lanesOf<Value>, outputs = 8, planes = planesOfTaps;
  using Samples = Sums;
  using Cells = simd::Vec<Cell, outputs>;

  ZORS_INLINE static Sums taps(const Value* p) { return simd::held(samples(p)); }
  ZORS_INLINE static Sums samples(const Value* p) { return {{loadSamples(p)}}; }
  ZORS_INLINE static Sums lastSamples(const Value* p, int) { return samples(p); }
  ZORS_INLINE void add(auto output, Sums tap, Sums x) { accumulate(sums_, output, tap.r[0], x.r[0]); }
  template <class S> ZORS_INLINE static Cells cells(const S (&sums)[planes], Finish finish) {
    const auto results = [&](int plane)
                             ZORS_INLINE_LAMBDA { return finished(Sums{{laneSums(sums[plane].sums_)}}, finish); };
    if constexpr (planes == 1)
      return results(0);
    else
      return {{interleaveLow(results(0), results(1))}};
  }

 private:
  using All = simd::Vec<Zor32s, 8 * outputs>;
  All sums_ = simd::splat<All>(0);
};
template <> struct PhaseSums<Zor16s> : IntegerSums<Zor16s, Zor32s, 1> {};
// A plane of taps (re, -im) gives the real parts, one of (im, re) the imaginary ones.
template <> struct PhaseSums<Zor16sc> : IntegerSums<Zor16sc, Zor16sc, 2> {};

// ---- One rate -----------------------------------------------------------------------------------

// The sums of dot::outputs, in its order, for less than a register of outputs: reads in[0 .. count + tapsLen - 2].
template <class T>
ZORS_INLINE simd::Vec<T, simd::lanesOf<T>> slideShort(const T* taps, std::ptrdiff_t tapsLen, const T* in, int count) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  if constexpr (Complex<T>) {
    using Arithmetic = dot::ComplexArithmetic<T>;
    using One = Vec<typename Arithmetic::Part, 2 * lanes>;
    One byRe = splat<One>(0), byIm = byRe;
    for (std::ptrdiff_t j = 0; j < tapsLen; ++j) {
      const One x = loadThenZeros(&in[j].re, 2 * count);
      byRe = fma(splat<One>(taps[j].re), x, byRe);
      byIm = fma(splat<One>(taps[j].im), x, byIm);
    }
    return {{Arithmetic::join(byRe.r[0], byIm.r[0])}};
  } else {
    using One = Vec<T, lanes>;
    One sum = splat<One>(0);
    const auto add = [&](std::ptrdiff_t j)
                         ZORS_INLINE_LAMBDA { sum = fma(splat<One>(taps[j]), loadThenZeros(in + j, count), sum); };
    std::ptrdiff_t j = 0;
    for (; j + 2 * lanes <= tapsLen; j += 2 * lanes)
      for (int lane = 0; lane < lanes; ++lane) add(j + lane), add(j + lane + lanes);
    for (; j < tapsLen; ++j) add(j);
    return sum;
  }
}
// out[i] = the sum over j of taps[j] * in[i + j], which reads in[0 .. len + tapsLen - 2] alone. out may be in.
template <class T>
[[gnu::flatten]] void slide(const T* taps, std::ptrdiff_t tapsLen, const T* in, T* out, std::ptrdiff_t len) {
  constexpr int lanes = simd::lanesOf<T>;
  // In place no output is computed twice.
  const std::ptrdiff_t inRegisters = in != out && len >= lanes ? len : len / lanes * lanes;
  const int rest = int(len - inRegisters);
  if (inRegisters > 0) dot::slide(dot::TapRow<T>{taps}, tapsLen, in, out, inRegisters);
  if (rest > 0) simd::storePart(out + inRegisters, slideShort(taps, tapsLen, in + inRegisters, rest), rest);
}

// ---- Blocks -------------------------------------------------------------------------------------

// Several outputs an iteration are computed in columns, one for each of them, of so many iterations at a time that
// there is room in the first-level cache.
template <class Value> std::ptrdiff_t columnLen(std::ptrdiff_t up) {
  constexpr std::ptrdiff_t least = std::max(simd::lanesOf<Value>, PhaseSums<Value>::outputs),
                           widest = simd::lanesOf<Value> * dot::widestTile<Value>;
  const std::ptrdiff_t fit = 8192 / std::ptrdiff_t{sizeof(Value)} / up, step = fit >= widest ? widest : least;
  return std::max(fit / step * step, least);
}

// An order of addition belongs to a filter, not to a kernel or a place: where an iteration takes several samples an
// output is the sum of partial sums, of every lanes-th product each; where it takes one sample, that of slide().
template <class Value> struct Polyphase {
  using Arithmetic = PhaseSums<Value>;
  using Cell = typename Arithmetic::Cell;
  using Output = typename Arithmetic::Output;
  using Cells = typename Arithmetic::Cells;
  static constexpr int lanes = Arithmetic::lanes, outputs = Arithmetic::outputs, cellsInOne = simd::lanesOf<Cell>;
  static constexpr bool integers = std::is_integral_v<simd::Part<Value>>;

  const Value* taps;
  std::ptrdiff_t plane;   // from a tap to its second form
  std::ptrdiff_t rowLen;  // taps and zeros of a row
  const PhaseRow* rows;
  Zor32s up, down;
  bool wholeRows;   // no zeros in them
  Zor32s together;  // so many neighbouring rows have the same window; 1 where that helps no kernel
  Value* columns;   // up of them

  // The outputs of `iterations`, whose first sample is in[0]. out may not overlap what is read.
  void run(const Value* in, std::ptrdiff_t iterations, Output* out, Finish finish) const {
    if constexpr (!integers)
      if (up == 1 && down == 1) return slideRow(rows[0], in, out, iterations);
    const std::ptrdiff_t done =
        up == 1 ? oneRow(rows[0], sharing(), in, iterations, out, finish) : severalRows(in, iterations, out, finish);
    inOrder(in, done * up, iterations * up, out, finish);
  }

  // Output r of the iteration at in by itself.
  Output one(const Value* in, std::ptrdiff_t r, Finish finish) const {
    const PhaseRow& row = rows[r];
    Output result[outputs];
    if constexpr (!integers)
      if (down == 1) return slideRow(row, in, result, 1), result[0];
    Operands<1, outputs> operands;
    operands.setRow(*this, 0, row);
    for (int o = 0; o < outputs; ++o) operands.setWindow(*this, o, row, in);
    put(result, tile(operands, 0, finish), outputs);
    return result[0];
  }

 private:
  ZORS_INLINE std::ptrdiff_t lenOf(const PhaseRow& row) const { return rowLen - lanes + row.head; }
  ZORS_INLINE const Value* tapsOf(const PhaseRow& row) const { return taps + row.taps + lanes - row.head; }

  // ---- Several rows ----

  // Returns the iterations done.
  std::ptrdiff_t severalRows(const Value* in, std::ptrdiff_t iterations, Output* out, Finish finish) const {
    if constexpr (!integers)
      if (down == 1 || up <= outputs) return byColumns(in, iterations, out);
    if (together > 1) return rowsTogether(in, iterations, out, finish);
    std::ptrdiff_t i = 0;
    for (; i + outputs <= iterations; i += outputs) square(in + i * down, out + i * up, out + iterations * up, finish);
    return i;
  }
  void slideRow(const PhaseRow& row, const Value* in, Output* out, std::ptrdiff_t iterations) const
      requires(!integers) {
    slide(tapsOf(row), lenOf(row), in + row.end - lenOf(row), out, iterations);
  }
  std::ptrdiff_t byColumns(const Value* in, std::ptrdiff_t iterations, Output* out) const {
    std::ptrdiff_t i = 0;
    if constexpr (!integers) {
      const std::ptrdiff_t distance = sharing(), len = columnLen<Value>(up),
                           all = down == 1 ? iterations : iterations / outputs * outputs;
      for (; i < all; i += std::min(len, all - i)) {
        const std::ptrdiff_t count = std::min(len, all - i);
        const Value* from = in + i * down;
        for (std::ptrdiff_t r = 0; r < up; ++r) {
          if (down == 1)
            slideRow(rows[r], from, columns + r * len, count);
          else
            oneRow(rows[r], distance, from, count, columns + r * len, {});
        }
        interleave(columns, len, up, count, out + i * up);
      }
    }
    return i;
  }

  // ---- By tiles ----

  // Output o of a tile is that of row o % R and window o / R, or o where there are as many windows as outputs.
  template <int R, int W> struct Operands {
    const Value *taps[R], *samples[W];
    int heads[R];
    ZORS_INLINE void setRow(const Polyphase& engine, int r, const PhaseRow& row) {
      taps[r] = engine.taps + row.taps;
      heads[r] = row.head;
    }
    ZORS_INLINE void setWindow(const Polyphase& engine, int w, const PhaseRow& row, const Value* in) {
      samples[w] = in + row.end - engine.rowLen;
    }
  };

  // at: from the windows of the operands to those that are meant. shared: windows so many places apart stand a register
  // apart; 0 where that is none or no two of them.
  template <int R, int W, int shared = 0>
  ZORS_INLINE Cells tile(const Operands<R, W>& of, std::ptrdiff_t at, Finish finish) const {
    constexpr auto rowOf = [](int o) { return o % R; };
    constexpr auto windowOf = [](int o) { return W == outputs ? o : o / R; };
    using Samples = typename Arithmetic::Samples;
    Arithmetic sums[Arithmetic::planes];
    simd::unrolled<Arithmetic::planes>([&](auto p) ZORS_INLINE_LAMBDA {
      std::ptrdiff_t k = 0;
      const auto tapsAt = [&](int r) ZORS_INLINE_LAMBDA { return Arithmetic::taps(of.taps[r] + p * plane + k); };
      if (!wholeRows) {
        simd::unrolled<outputs>([&](auto o) ZORS_INLINE_LAMBDA {
          sums[p].add(o, tapsAt(rowOf(o)), Arithmetic::lastSamples(of.samples[windowOf(o)] + at, of.heads[rowOf(o)]));
        });
        k = lanes;
      }
      if constexpr (shared > 0) {
        // The samples of window o are those that window o + shared had before.
        constexpr int pairs = outputs / 2;
        constexpr auto firstOf = [](int pair) { return pair / shared * 2 * shared + pair % shared; };
        using All = simd::Vec<typename Samples::Element, pairs * Samples::lanes>;
        if (k == rowLen) return;
        All x = simd::build<All>(
            [&](auto i) ZORS_INLINE_LAMBDA { return Arithmetic::samples(of.samples[firstOf(i)] + (at + k)).r[0]; });
        for (; k < rowLen; k += lanes) {
          const auto tap = tapsAt(0);
          simd::unrolled<pairs>([&](auto i) ZORS_INLINE_LAMBDA {
            constexpr int o = firstOf(i);
            sums[p].add(std::integral_constant<int, o>{}, tap, Samples{{x.r[i]}});
            x.r[i] = simd::held(Arithmetic::samples(of.samples[o + shared] + (at + k))).r[0];
            sums[p].add(std::integral_constant<int, o + shared>{}, tap, Samples{{x.r[i]}});
          });
        }
      } else {
        for (; k < rowLen; k += lanes) {
          if constexpr (R == 1) {
            const auto tap = tapsAt(0);
            simd::unrolled<outputs>(
                [&](auto o) ZORS_INLINE_LAMBDA { sums[p].add(o, tap, Arithmetic::samples(of.samples[o] + (at + k))); });
          } else {
            simd::unrolled<W>([&](auto w) ZORS_INLINE_LAMBDA {
              const auto x = Arithmetic::samples(of.samples[w] + (at + k));
              constexpr int count = W == outputs ? 1 : R;
              simd::unrolled<count>([&](auto r) ZORS_INLINE_LAMBDA {
                constexpr int o = w * count + r;
                sums[p].add(std::integral_constant<int, o>{}, tapsAt(rowOf(o)), x);
              });
            });
          }
        }
      }
    });
    return Arithmetic::cells(sums, finish);
  }

  // How many windows of a row further on one stands a register further on; 0 where none does.
  std::ptrdiff_t sharing() const { return down <= lanes && lanes % down == 0 ? lanes / down : 0; }
  // Tiles of one row, whose windows stand `down` samples apart; returns the iterations done.
  std::ptrdiff_t oneRow(const PhaseRow& row, std::ptrdiff_t distance, const Value* in, std::ptrdiff_t iterations,
                        Output* out, Finish finish) const {
    if (distance == 1) return oneRowBy<1>(row, in, iterations, out, finish);
    if (distance == 2) return oneRowBy<2>(row, in, iterations, out, finish);
    if constexpr (outputs > 4)
      if (distance == 4) return oneRowBy<4>(row, in, iterations, out, finish);
    return oneRowBy<0>(row, in, iterations, out, finish);
  }
  template <int shared>
  [[gnu::flatten]] std::ptrdiff_t oneRowBy(const PhaseRow& row, const Value* in, std::ptrdiff_t iterations, Output* out,
                                           Finish finish) const {
    const auto operands = windowsOf(row, in);
    std::ptrdiff_t i = 0;
    for (; i + outputs <= iterations; i += outputs)
      put(out + i, tile<1, outputs, shared>(operands, i * down, finish), outputs);
    return i;
  }
  ZORS_INLINE Operands<1, outputs> windowsOf(const PhaseRow& row, const Value* in) const {
    Operands<1, outputs> operands;
    operands.setRow(*this, 0, row);
    for (int o = 0; o < outputs; ++o) operands.setWindow(*this, o, row, in + o * std::ptrdiff_t{down});
    return operands;
  }

  std::ptrdiff_t rowsTogether(const Value* in, std::ptrdiff_t iterations, Output* out, Finish finish) const {
    if (together == outputs) return grid<outputs>(in, iterations, out, finish);
    if (together == 4) return grid<4>(in, iterations, out, finish);
    return grid<2>(in, iterations, out, finish);
  }
  template <int R>
  [[gnu::flatten]] std::ptrdiff_t grid(const Value* in, std::ptrdiff_t iterations, Output* out, Finish finish) const {
    constexpr int windows = outputs / R;
    std::ptrdiff_t i = 0;
    for (; i + windows <= iterations; i += windows)
      for (std::ptrdiff_t r0 = 0; r0 < up; r0 += R) {
        Operands<R, windows> operands;
        for (int r = 0; r < R; ++r) operands.setRow(*this, r, rows[r0 + r]);
        for (int w = 0; w < windows; ++w) operands.setWindow(*this, w, rows[r0], in + (i + w) * std::ptrdiff_t{down});
        put(out + i * up + r0, tile(operands, 0, finish), outputs);
      }
    return i;
  }

  // As many iterations as a tile has outputs, row by row, then turned about.
  [[gnu::flatten]] void square(const Value* in, Output* out, const Output* end, Finish finish) const {
    for (std::ptrdiff_t r0 = 0; r0 < up; r0 += cellsInOne) {
      const int wide = int(std::min<std::ptrdiff_t>(cellsInOne, up - r0));
      alignas(32) Cell cells[cellsInOne][outputs];
      for (int r = 0; r < wide; ++r) simd::store(cells[r], tile(windowsOf(rows[r0 + r], in), 0, finish));
      for (int r = wide; r < cellsInOne; ++r) simd::store(cells[r], simd::splat<Cells>(Cell{}));
      for (int part = 0; part < outputs; part += cellsInOne) {
        using Square = simd::Vec<Cell, cellsInOne * cellsInOne>;
        const auto byIteration = interleaved<cellsInOne>(simd::build<Square>(
            [&](auto r) ZORS_INLINE_LAMBDA { return simd::load<cellsInOne>(cells[r] + part).r[0]; }));
        simd::unrolled<cellsInOne>([&](auto l) ZORS_INLINE_LAMBDA {
          // A whole register where what it covers beyond the outputs of this iteration is written after it.
          Output* to = out + (part + l) * up + r0;
          const bool whole = wide == cellsInOne || (up < cellsInOne && to + cellsInOne <= end);
          putOne(to, byIteration.r[l], whole ? cellsInOne : wide);
        });
      }
    }
  }

  // Outputs `from` to total - 1 of all, in order; the last tile begins earlier, where there are outputs before it.
  [[gnu::flatten]] void inOrder(const Value* in, std::ptrdiff_t from, std::ptrdiff_t total, Output* out,
                                Finish finish) const {
    for (; from < total; from += outputs) {
      if (from + outputs > total) from = std::max<std::ptrdiff_t>(total - outputs, 0);
      const int count = int(std::min<std::ptrdiff_t>(outputs, total - from));
      Operands<outputs, outputs> operands;
      std::ptrdiff_t r = from % up;
      const Value* x = in + from / up * down;
      for (int o = 0; o < outputs; ++o) {
        operands.setRow(*this, o, rows[r]);
        operands.setWindow(*this, o, rows[r], x);
        if (o + 1 < count && ++r == up) r = 0, x += down;
      }
      put(out + from, tile(operands, 0, finish), count);
    }
  }

  ZORS_INLINE static void put(Output* out, Cells cells, int count) {
    simd::unrolled<Cells::registers>([&](auto i) ZORS_INLINE_LAMBDA {
      const int left = count - i * cellsInOne;
      if (left > 0) putOne(out + i * cellsInOne, cells.r[i], std::min(left, cellsInOne));
    });
  }
  ZORS_INLINE static void putOne(Output* out, typename Cells::Register cells, int count) {
    if constexpr (std::is_same_v<Output, Zor16s>) {
      const __m256i packed = _mm256_permute4x64_epi64(_mm256_packs_epi32(cells, cells), 0x08);
      if (count == cellsInOne)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(packed));
      else
        simd::storePart(out, simd::Vec<Zor16s, 16>{{packed}}, count);
    } else if (count == cellsInOne) {
      simd::store(out, simd::Vec<Cell, cellsInOne>{{cells}});
    } else {
      simd::storePart(out, simd::Vec<Cell, cellsInOne>{{cells}}, count);
    }
  }
};

}  // namespace zors::fir
