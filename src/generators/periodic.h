// What tones and triangles share: angles, the phase at which the next call goes on, 16-bit results.
#pragma once

#include <cmath>

#include "frame/simd.h"

namespace zors::generators {

inline constexpr Zor64f pi = 3.141592653589793, twoPi = 6.283185307179586;

// Fixed-point arguments have 15 fractional bits: 2 pi, pi, and the largest frequency below a half.
inline constexpr Zor32u phaseLimitQ15 = 205886;
inline constexpr Zor32s asymLimitQ15 = 102943, frequencyLimitQ15 = 16383;
inline constexpr Zor64f unitQ15 = 0x1p-15;

// The type of angles and frequencies beside a magnitude of type M.
template <class M> struct AngleOf { using type = Zor32f; };
template <> struct AngleOf<Zor64f> { using type = Zor64f; };
template <class M> using Angle = typename AngleOf<M>::type;

// Below 0 or from 2 pi up. A NaN is neither.
template <class F> bool outsideCircle(F phase) { return phase < 0 || Zor64f{phase} >= twoPi; }
template <class F> bool outsideBand(F rFreq) { return rFreq < 0 || rFreq >= F(0.5); }

// phase + len steps of w, brought into [0, 2 pi). What is rounded up to 2 pi, or below 0, is 0.
template <class F> F advancedPhase(F phase, Zor64f w, Zor32s len) {
  const Zor64f x = len * w + Zor64f{phase};
  const auto narrowed = static_cast<F>(x - std::floor(x * 0.15915494309189535) * twoPi);
  return narrowed >= 0 && Zor64f{narrowed} < twoPi ? narrowed : F(0);
}

// Half a unit away from zero: cut toward zero, the sum is x rounded, ties away.
template <class V> ZORS_INLINE V halfFurther(V x) {
  return simd::add(x, simd::either(simd::same(x, 0.5), simd::signOf(x)));
}

}  // namespace zors::generators
