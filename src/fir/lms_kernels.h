// Least-mean-squares adaptation: sums of a window and updates of the taps by a multiple of one.
#pragma once

#include "frame/float_samples.h"

namespace zors::lms {

using simd::Vec;
using Floats = Vec<Zor32f, 8>;

ZORS_INLINE __m256i firstLanes(int count) {  // all ones in these, 0 in the others
  alignas(64) static constexpr Zor32s window[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(window + 8 - count));
}

// One pass over the taps: updates them, taps[k] += gain * x[k], and returns the sum of taps[k] * next[k] with what they
// are then; or either of the two. What the idle lanes of a part would compute from an infinite gain is kept out.
template <bool updates, bool sums, class T>
[[gnu::flatten]] Zor32f pass(Zor32f* taps, std::ptrdiff_t tapsLen, Zor32f gain, const T* x, const T* next) {
  using namespace simd;
  const Floats by = splat<Floats>(gain);
  Vec<Zor32f, 32> sum = splat<Vec<Zor32f, 32>>(0);
  const auto lane = [&](auto r, std::ptrdiff_t k) ZORS_INLINE_LAMBDA {
    Floats t = load<8>(taps + k);
    if constexpr (updates) {
      t = fma(by, floatsAt(x + k), t);
      store(taps + k, t);
    }
    if constexpr (sums) sum.r[r] = fma(t, floatsAt(next + k), Floats{{sum.r[r]}}).r[0];
  };
  using First = std::integral_constant<int, 0>;
  std::ptrdiff_t k = tapsLen % 8;
  if (k > 0) {
    const int count = int(k);
    const __m256i lanes = firstLanes(count);
    Floats t = loadThenZeros(taps, count);
    if constexpr (updates) {
      t = both(fma(by, floatsThenZeros(x, count), t), Floats{{_mm256_castsi256_ps(lanes)}});
      _mm256_maskstore_ps(taps, lanes, t.r[0]);
    }
    if constexpr (sums) sum.r[0] = mul(t, floatsThenZeros(next, count)).r[0];
  }
  for (; k + 32 <= tapsLen; k += 32) unrolled<4>([&](auto r) ZORS_INLINE_LAMBDA { lane(r, k + 8 * r); });
  for (; k < tapsLen; k += 8) lane(First{}, k);
  if constexpr (!sums) return 0;
  return sumOfLanes(add(add(Floats{{sum.r[0]}}, Floats{{sum.r[1]}}), add(Floats{{sum.r[2]}}, Floats{{sum.r[3]}})));
}

template <class T> Zor32f sumOf(const Zor32f* taps, std::ptrdiff_t tapsLen, const T* window) {
  return pass<false, true>(const_cast<Zor32f*>(taps), tapsLen, 0, window, window);
}
template <class T> void update(Zor32f* taps, std::ptrdiff_t tapsLen, Zor32f gain, const T* window) {
  pass<true, false>(taps, tapsLen, gain, window, window);
}

}  // namespace zors::lms
