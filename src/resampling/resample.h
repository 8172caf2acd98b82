// What both resamplers share: the Kaiser-windowed sinc, samples in the type of the sums, results.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "frame/check.h"
#include "frame/float_samples.h"
#include "frame/memory.h"

namespace zors::resample {

using simd::Vec;

// The modified Bessel function of order 0 by its power series; infinite where binary64 ends.
inline Zor64f besselI0(Zor64f x) {
  Zor64f sum = 1, term = 1;
  for (Zor64f i = 1;; ++i) {
    const Zor64f u = x / 2 / i;
    term *= u * u;
    sum += term;
    if (!(term >= sum * 1e-21) || std::isinf(sum)) return sum;
  }
}

// sin(k * delta * rollf) / (k * delta), windowed to its end at k = last, where a radicand below 0 counts as 0.
class WindowedSinc {
 public:
  WindowedSinc(Zor64f delta, Zor64f rollf, Zor64f alpha, Zor64f last)
      : delta_(delta), rollf_(rollf), alpha_(alpha), last_(last), atCentre_(besselI0(alpha)) {}
  Zor64f operator()(Zor64f k) const {
    if (k == 0) return rollf_;
    const Zor64f c = k / last_, radicand = 1 - c * c;
    const Zor64f window = besselI0(alpha_ * std::sqrt(radicand > 0 ? radicand : 0)) / atCentre_;
    return std::sin(k * delta_ * rollf_) / (delta_ * k) * window;
  }

 private:
  Zor64f delta_, rollf_, alpha_, last_, atCentre_;
};

// 16-bit taps: the largest magnitude becomes 16,383, halves away from zero.
inline constexpr Zor32f largestTap = 16383;
inline Zor64f halfAway(Zor64f x) { return std::trunc(x < 0 ? x - 0.5 : x + 0.5); }

// ---- Sums, results ---------------------------------------------------------------------

// The sum of products in Sum, Zor32f or Zor64f.
template <class Sum> class Products {
 public:
  ZORS_INLINE void add(Vec<Zor32f, 8> weights, Vec<Zor32f, 8> x) {
    if constexpr (sizeof(Sum) == 8)
      add(toDouble(weights), x);
    else
      sum_ = fma(weights, x, sum_);
  }
  ZORS_INLINE void add(Vec<Zor64f, 8> weights, Vec<Zor32f, 8> x) { sum_ = fma(weights, toDouble(x), sum_); }
  ZORS_INLINE Vec<Sum, 8> lanes() const { return sum_; }
  ZORS_INLINE Sum total() const {
    if constexpr (sizeof(Sum) == 8)
      return sumOfLanes(simd::add(Vec<Zor64f, 4>{{sum_.r[0]}}, Vec<Zor64f, 4>{{sum_.r[1]}}));
    else
      return sumOfLanes(sum_);
  }

 private:
  Vec<Sum, 8> sum_ = simd::splat<Vec<Sum, 8>>(0);
};

enum class Ties { even, away };
template <class Sample, Ties ties> Sample result(Zor64f value) {
  if constexpr (std::is_same_v<Sample, Zor32f>) {
    return static_cast<Zor32f>(value);
  } else {
    if (!(value > INT16_MIN)) return INT16_MIN;
    if (value > INT16_MAX) return INT16_MAX;
    if constexpr (ties == Ties::away) return static_cast<Zor16s>(halfAway(value));
    const __m128d x = _mm_set_sd(value);
    return static_cast<Zor16s>(_mm_cvttsd_si32(_mm_round_sd(x, x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC)));
  }
}

}  // namespace zors::resample
