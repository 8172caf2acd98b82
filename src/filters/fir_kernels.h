// Direct FIR kernels: out[i] = sum over j of taps[j] * in[i + j], taps reversed. Every output sums in one and the same
// order, whatever its place in a block.
#pragma once

#include <array>
#include <cmath>

#include "frame/part.h"

namespace zors::fir {

// registers of outputs at once. Taps go in pairs a register's lanes apart, so that a vector of samples, once loaded, serves
// two registers of outputs: loads then stay below one per multiply-add. reads in[0 .. registers * lanes + tapsLen - 2].
template <int registers, class T> ZORS_INLINE simd::Vec<T, registers * simd::lanesOf<T>> outputs(const T* taps, std::ptrdiff_t tapsLen, const T* in) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  using All = Vec<T, registers * lanes>;
  All sum = splat<All>(0);
  const auto accumulate = [&](auto r, One tap, One x) ZORS_INLINE_LAMBDA { sum.r[r] = fma(tap, x, One{{sum.r[r]}}).r[0]; };
  std::ptrdiff_t j = 0;
  for (; j + 2 * lanes <= tapsLen; j += 2 * lanes) {
    for (int lane = 0; lane < lanes; ++lane) {
      const One near = splat<One>(taps[j + lane]), far = splat<One>(taps[j + lanes + lane]);
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
    const One tap = splat<One>(taps[j]);
    unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA { accumulate(r, tap, load<lanes>(in + j + r * lanes)); });
  }
  return sum;
}

template <int registers, class T> [[gnu::flatten]] void tile(const T* taps, std::ptrdiff_t tapsLen, const T* in, T* out) {
  simd::store(out, outputs<registers>(taps, tapsLen, in));
}

// len outputs; reads in[0 .. len + tapsLen - 2], or, where len is less than a register's lanes, as if it were those.
template <class T> void block(const T* taps, std::ptrdiff_t tapsLen, const T* in, T* out, std::ptrdiff_t len) {
  constexpr int lanes = simd::lanesOf<T>, widest = 12;
  using Tile = void (*)(const T*, std::ptrdiff_t, const T*, T*);
  static constexpr auto tiles = []<int... i>(std::integer_sequence<int, i...>) {
    return std::array<Tile, widest>{tile<i + 1, T>...};
  }(std::make_integer_sequence<int, widest>{});
  const auto run = [&](std::ptrdiff_t registers, std::ptrdiff_t at) { tiles[std::size_t(registers - 1)](taps, tapsLen, in + at, out + at); };
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

// One output whose newest sample is val, behind the tapsLen - 1 samples of `older`. val itself is not read from memory: it was
// stored there just before, and a vector across a fresh store waits for it.
template <class T> [[gnu::flatten]] T dotNewest(const T* taps, std::ptrdiff_t tapsLen, const T* older, T val) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  using One = Vec<T, lanes>;
  const std::ptrdiff_t count = tapsLen - 1;
  std::ptrdiff_t j = count % lanes;
  One folded = mul(loadThenZeros(taps, int(j)), loadThenZeros(older, int(j)));
  if (count - j >= 4 * lanes) {
    Vec<T, 4 * lanes> sum = splat<Vec<T, 4 * lanes>>(0);
    for (; j + 4 * lanes <= count; j += 4 * lanes) sum = fma(load<4 * lanes>(taps + j), load<4 * lanes>(older + j), sum);
    folded = add(folded, add(add(One{{sum.r[0]}}, One{{sum.r[1]}}), add(One{{sum.r[2]}}, One{{sum.r[3]}})));
  }
  for (; j < count; j += lanes) folded = fma(load<lanes>(taps + j), load<lanes>(older + j), folded);
  return std::fma(taps[count], val, sumOfLanes(folded));
}

}  // namespace zors::fir
