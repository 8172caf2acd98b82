// Sliding dot products: out[i] = sum over j of taps[j] * in[i + j]. Every output sums in one and the same order,
// whatever its place in a block.
#pragma once

#include <array>
#include <cmath>

#include "frame/by_type.h"
#include "frame/part.h"
#include "zors/types.h"

namespace zors::dot {

// Taps in a row, or reversed from rows of four equal ones.
template <class T> struct TapRow {
  const T* first;
  ZORS_INLINE T operator()(std::ptrdiff_t j) const { return first[j]; }
};
template <class T> struct TapRowsOfFour {
  const T* last;
  ZORS_INLINE T operator()(std::ptrdiff_t j) const { return last[-4 * j]; }
};

// registers of outputs at once. Taps go in pairs a register's lanes apart, so that a vector of samples, once loaded,
// serves two registers of outputs: loads then stay below one per multiply-add. Reads in[0 .. registers * lanes +
// tapsLen - 2].
template <int registers, class T, class Taps>
ZORS_INLINE simd::Vec<T, registers * simd::lanesOf<T>> outputs(Taps taps, std::ptrdiff_t tapsLen, const T* in) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  using All = Vec<T, registers * lanes>;
  All sum = splat<All>(0);
  const auto accumulate = [&](auto r, One tap, One x)
                              ZORS_INLINE_LAMBDA { sum.r[r] = fma(tap, x, One{{sum.r[r]}}).r[0]; };
  std::ptrdiff_t j = 0;
  for (; j + 2 * lanes <= tapsLen; j += 2 * lanes) {
    for (int lane = 0; lane < lanes; ++lane) {
      const One near = splat<One>(taps(j + lane)), far = splat<One>(taps(j + lanes + lane));
      const T* at = in + j + lane;
      sum.r[0] = fma(near, load<lanes>(at), One{{sum.r[0]}}).r[0];
      unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
        const One x = held(load<lanes>(at + (r + 1) * lanes));
        if constexpr (r + 1 < registers) accumulate(std::integral_constant<int, r + 1>{}, near, x);
        accumulate(r, far, x);
      });
    }
  }
  for (; j < tapsLen; ++j) {
    const One tap = splat<One>(taps(j));
    unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA { accumulate(r, tap, load<lanes>(in + j + r * lanes)); });
  }
  return sum;
}

// Complex points: sums with the real parts of the taps and with the imaginary ones, joined at the end:
// re = round(sum of re * x.re - sum of im * x.im), im = round(sum of re * x.im + sum of im * x.re).
template <class C> struct ComplexArithmetic;
template <> struct ComplexArithmetic<Zor32fc> {
  static constexpr int widest = 6;
  using Part = Zor32f;
  ZORS_INLINE static __m256 join(__m256 byRe, __m256 byIm) {
    return _mm256_addsub_ps(byRe, _mm256_permute_ps(byIm, 0xB1));
  }
  ZORS_INLINE static __m256 evens(__m256 x) { return _mm256_moveldup_ps(x); }
  ZORS_INLINE static __m256 odds(__m256 x) { return _mm256_movehdup_ps(x); }
};
template <> struct ComplexArithmetic<Zor64fc> {
  static constexpr int widest = 6;
  using Part = Zor64f;
  ZORS_INLINE static __m256d join(__m256d byRe, __m256d byIm) {
    return _mm256_addsub_pd(byRe, _mm256_permute_pd(byIm, 0x5));
  }
  ZORS_INLINE static __m256d evens(__m256d x) { return _mm256_movedup_pd(x); }
  ZORS_INLINE static __m256d odds(__m256d x) { return _mm256_permute_pd(x, 0xF); }
};
template <int registers, Complex C, class Taps>
ZORS_INLINE simd::Vec<C, registers * simd::lanesOf<C>> outputs(Taps taps, std::ptrdiff_t tapsLen, const C* in) {
  using namespace simd;
  using Arithmetic = ComplexArithmetic<C>;
  using T = typename Arithmetic::Part;
  constexpr int lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  using All = Vec<T, registers * lanes>;
  All byRe = splat<All>(0), byIm = byRe;
  for (std::ptrdiff_t j = 0; j < tapsLen; ++j) {
    const C tap = taps(j);
    const One re = splat<One>(tap.re), im = splat<One>(tap.im);
    unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
      const One x = held(load<lanes>(&in[j].re + r * lanes));
      byRe.r[r] = fma(re, x, One{{byRe.r[r]}}).r[0];
      byIm.r[r] = fma(im, x, One{{byIm.r[r]}}).r[0];
    });
  }
  return build<Vec<C, registers * lanesOf<C>>>(
      [&](auto r) ZORS_INLINE_LAMBDA { return Arithmetic::join(byRe.r[r], byIm.r[r]); });
}

template <class T> constexpr int widestTile = 12;
template <Complex C> constexpr int widestTile<C> = ComplexArithmetic<C>::widest;

template <int registers, class T, class Taps>
[[gnu::flatten]] void tile(Taps taps, std::ptrdiff_t tapsLen, const T* in, T* out) {
  simd::store(out, outputs<registers>(taps, tapsLen, in));
}

// len outputs; reads in[0 .. len + tapsLen - 2], or, where len is less than a register's lanes, as if it were those.
template <class T, class Taps> void slide(Taps taps, std::ptrdiff_t tapsLen, const T* in, T* out, std::ptrdiff_t len) {
  constexpr int lanes = simd::lanesOf<T>, widest = widestTile<T>;
  using Tile = void (*)(Taps, std::ptrdiff_t, const T*, T*);
  static constexpr auto tiles = []<int... i>(std::integer_sequence<int, i...>) {
    return std::array<Tile, widest>{tile<i + 1, T, Taps>...};
  }
  (std::make_integer_sequence<int, widest>{});
  const auto run = [&](std::ptrdiff_t registers, std::ptrdiff_t at) {
    tiles[std::size_t(registers - 1)](taps, tapsLen, in + at, out + at);
  };
  if (len < lanes) {
    simd::storePart(out, outputs<1>(taps, tapsLen, in), int(len));
    return;
  }
  std::ptrdiff_t i = 0;
  for (; i + widest * lanes <= len; i += widest * lanes) tile<widest>(taps, tapsLen, in + i, out + i);
  if (i == 0) run(len / lanes, 0), i = len / lanes * lanes;
  // The rest overlaps outputs that are there already, with equal values.
  const std::ptrdiff_t registers = (len - i + lanes - 1) / lanes;
  if (registers > 0) run(registers, len - registers * lanes);
}

// One output whose newest sample is val, behind the tapsLen - 1 samples of `older`. val itself is not read from memory:
// it was stored there just before, and a vector across a fresh store waits for it.
template <class T> [[gnu::flatten]] T dotNewest(const T* taps, std::ptrdiff_t tapsLen, const T* older, T val) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  const std::ptrdiff_t count = tapsLen - 1;
  std::ptrdiff_t j = count % lanes;
  One folded = mul(loadThenZeros(taps, int(j)), loadThenZeros(older, int(j)));
  if (count - j >= 4 * lanes) {
    Vec<T, 4 * lanes> sum = splat<Vec<T, 4 * lanes>>(0);
    for (; j + 4 * lanes <= count; j += 4 * lanes)
      sum = fma(load<4 * lanes>(taps + j), load<4 * lanes>(older + j), sum);
    folded = add(folded, add(add(One{{sum.r[0]}}, One{{sum.r[1]}}), add(One{{sum.r[2]}}, One{{sum.r[3]}})));
  }
  for (; j < count; j += lanes) folded = fma(load<lanes>(taps + j), load<lanes>(older + j), folded);
  return std::fma(taps[count], val, sumOfLanes(folded));
}

// The same of complex points, by two sums as in a block.
template <Complex C> [[gnu::flatten]] C dotNewest(const C* taps, std::ptrdiff_t tapsLen, const C* older, C val) {
  using namespace simd;
  using Arithmetic = ComplexArithmetic<C>;
  using T = typename Arithmetic::Part;
  constexpr int points = lanesOf<C>, lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  const std::ptrdiff_t count = tapsLen - 1;
  std::ptrdiff_t j = count % points;
  const auto tapParts = [&](std::ptrdiff_t at) ZORS_INLINE_LAMBDA { return &taps[at].re; };
  const auto evens = [](One x) ZORS_INLINE_LAMBDA { return One{{Arithmetic::evens(x.r[0])}}; };
  const auto odds = [](One x) ZORS_INLINE_LAMBDA { return One{{Arithmetic::odds(x.r[0])}}; };
  const One firstTaps = loadThenZeros(tapParts(0), int(2 * j)), first = loadThenZeros(&older->re, int(2 * j));
  One byRe = mul(evens(firstTaps), first), byIm = mul(odds(firstTaps), first);
  One otherRe = splat<One>(0), otherIm = otherRe;
  for (; j + 2 * points <= count; j += 2 * points) {
    const One t0 = load<lanes>(tapParts(j)), t1 = load<lanes>(tapParts(j + points));
    const One x0 = load<lanes>(&older[j].re), x1 = load<lanes>(&older[j + points].re);
    byRe = fma(evens(t0), x0, byRe), byIm = fma(odds(t0), x0, byIm);
    otherRe = fma(evens(t1), x1, otherRe), otherIm = fma(odds(t1), x1, otherIm);
  }
  if (j < count) {
    const One t = load<lanes>(tapParts(j)), x = load<lanes>(&older[j].re);
    byRe = fma(evens(t), x, byRe), byIm = fma(odds(t), x, byIm);
  }
  T re[lanes], im[lanes];
  store(re, add(byRe, otherRe));
  store(im, add(byIm, otherIm));
  for (int distance = lanes / 2; distance > 1; distance /= 2)
    for (int i = 0; i < distance; ++i) re[i] += re[i + distance], im[i] += im[i + distance];
  const C tap = taps[count];
  return {std::fma(tap.re, val.re, re[0]) - std::fma(tap.im, val.im, im[1]),
          std::fma(tap.re, val.im, re[1]) + std::fma(tap.im, val.re, im[0])};
}

}  // namespace zors::dot
