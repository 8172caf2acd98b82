// Weights that are polynomials in the cosine of p, the angle from the centre: Hann, Hamming, Blackman.
#pragma once

#include <cmath>
#include <numbers>

#include "frame/check.h"
#include "windows/window_pairs.h"

namespace zors {

// ---- Shapes -------------------------------------------------------------------------------------

// Each gives the weight of a = amplitude * cos p, and what an end of an integer vector becomes.
struct Hann {
  static constexpr Zor64f amplitude = 0.5;
  template <class V> ZORS_INLINE V operator()(V a) const { return add(same(a, 0.5), a); }
  static Zor16s end(Zor16s) { return 0; }
};
struct Hamming {
  static constexpr Zor64f amplitude = 0.46;
  template <class V> ZORS_INLINE V operator()(V a) const { return add(same(a, 0.54), a); }
  static Zor16s end(Zor16s x) { return static_cast<Zor16s>(static_cast<Zor32f>(x) * (0.54f - 0.46f)); }
};
// (alpha + 1) / 2 + cos(p) / 2 - alpha / 2 * cos 2p, all of it times scale.
struct Blackman {
  static constexpr Zor64f amplitude = 0.5;
  Zor64f alpha, scale = 1;
  template <class V> ZORS_INLINE V operator()(V a) const {
    const auto w = fma(a, fma(same(a, -4 * alpha), a, same(a, 1.0)), same(a, 0.5 + alpha));
    return mul(w, same(w, scale));
  }
  static Zor16s end(Zor16s) { return 0; }
};

// ---- Cosines of equidistant angles --------------------------------------------------------------

struct Angle {
  Zor64f cosine, sine;
};
ZORS_INLINE Angle sum(Angle a, Angle b) {
  return {a.cosine * b.cosine - a.sine * b.sine, a.sine * b.cosine + a.cosine * b.sine};
}
ZORS_INLINE Angle twice(Angle a) { return {1 - 2 * a.sine * a.sine, 2 * a.sine * a.cosine}; }
ZORS_INLINE Angle negated(Angle a) { return {a.cosine, -a.sine}; }

struct FourAngles {
  simd::Vec<Zor64f, 4> cosine, sine;
  ZORS_INLINE FourAngles turned(Angle by) const {
    const auto c = same(cosine, by.cosine), s = same(sine, by.sine);
    return {fms(cosine, c, mul(sine, s)), fma(sine, c, mul(cosine, s))};
  }
};
ZORS_INLINE FourAngles fourAngles(Angle first, Angle step) {
  const Angle second = sum(first, step), third = sum(first, twice(step)), fourth = sum(second, twice(step));
  return {{{_mm256_setr_pd(first.cosine, second.cosine, third.cosine, fourth.cosine)}},
          {{_mm256_setr_pd(first.sine, second.sine, third.sine, fourth.sine)}}};
}

// L weights at a time, of W, for the angles first, first + step, ... With a[k] = amplitude * cos(first + k * step) and
// d[k] = a[k] - a[k - L] the recurrence a[k + L] = 2 cos(L * step) a[k] - a[k - L] runs as
//   d[k + L] = d[k] - 4 sin^2(L * step / 2) a[k],   a[k + L] = a[k] + d[k + L],
// whose errors stay in proportion to the number of steps where the angle is small.
template <class W, int L, class Shape> class CosineWeights {
 public:
  static constexpr int lanes = L;

  CosineWeights(Shape shape, Angle first, Angle step, Zor64f amplitude) : shape_(shape) {
    const Angle four = twice(twice(step)), half = L == 8 ? four : twice(four);
    const FourAngles start = fourAngles(first, step);
    FourAngles at = start;
    simd::unrolled<V::registers>([&](auto r) ZORS_INLINE_LAMBDA {
      a_.r[r] = mul(at.cosine, same(at.cosine, amplitude)).r[0];
      at = at.turned(four);
    });
    at = start.turned(negated(half));
    simd::unrolled<V::registers>([&](auto r) ZORS_INLINE_LAMBDA {
      d_.r[r] = mul(at.sine, same(at.sine, -2 * amplitude * half.sine)).r[0];
      at = at.turned(four);
    });
    pull_ = simd::splat<V>(-4 * half.sine * half.sine);
  }

  ZORS_INLINE simd::Vec<W, L> next() {
    const V w = shape_(a_);
    d_ = fma(a_, pull_, d_);
    a_ = add(a_, d_);
    if constexpr (std::is_same_v<W, Zor64f>)
      return w;
    else
      return simd::toFloat(w);
  }

 private:
  using V = simd::Vec<Zor64f, L>;
  static_assert(L == 8 || L == 16);
  V a_, d_, pull_;
  Shape shape_;
};

// ---- The window ---------------------------------------------------------------------------------

// For len from 3 on. Floats start at the ends, integers, whose ends are set apart, at the centre. An odd centre is
// copied.
template <class Shape, class T> void weighByCosine(const T* src, T* dst, Zor32s len, Shape shape) {
  using Weights = CosineWeights<Weight<T>, pairsAtOnce<T>, Shape>;
  const Zor64f halfStep = std::numbers::pi / (len - 1);
  const Angle half{std::cos(halfStep), std::sin(halfStep)}, step = twice(half);
  const Zor32s pairs = len / 2, odd = len % 2;
  if (odd != 0) dst[pairs] = src[pairs];
  if constexpr (isInteger<T>) {
    const auto end = [](T x) {
      if constexpr (Complex<T>)
        return T{Shape::end(x.re), Shape::end(x.im)};
      else
        return Shape::end(x);
    };
    dst[0] = end(src[0]);
    dst[len - 1] = end(src[len - 1]);
    weighPairs(src, dst, len, pairs + odd, pairs - 1, Weights(shape, odd != 0 ? step : half, step, Shape::amplitude));
  } else {
    weighPairs(src, dst, len, 0, pairs, Weights(shape, Angle{1, 0}, step, -Shape::amplitude));  // cos p = -cos t
  }
}

}  // namespace zors
