// Sums and results of stateless filters in floating arithmetic.
#pragma once

#include <algorithm>
#include <limits>
#include <type_traits>

#include "frame/by_type.h"
#include "frame/power_of_two.h"

namespace zors {

// A sample in the type of the taps, and a sum with one product more.
template <class F, class T> F sampleAs(T x) {
  if constexpr (Complex<F>)
    return {static_cast<decltype(F::re)>(x.re), static_cast<decltype(F::im)>(x.im)};
  else
    return static_cast<F>(x);
}
template <class C> C addTerm(C sum, C tap, C x) requires Complex<C> {
  return {sum.re + (tap.re * x.re - tap.im * x.im), sum.im + (tap.re * x.im + tap.im * x.re)};
}
template <class Sum, class F> Sum addTerm(Sum sum, F tap, F x) {
  const F product = tap * x;
  return sum + static_cast<Sum>(product);
}

// A float sum times 2^-scaleFactor, the factor from exponent bits that wrap; limited to the integer's range, NaN to its
// lower bound; rounded with ties away from zero.
template <class D, class F> D awayFromZero(F sum, Zor32s scaleFactor) {
  constexpr auto low = std::numeric_limits<D>::min(), high = std::numeric_limits<D>::max();
  const Zor64f y = sum * wrappingPower<F>(scaleFactor);
  if (!(y >= low)) return low;
  if (y > high) return high;
  return static_cast<D>(std::clamp(y < 0 ? y - 0.5 : y + 0.5, Zor64f(low), Zor64f(high)));
}
template <class D, class F> D resultOf(F sum, Zor32s scaleFactor) {
  if constexpr (Complex<D>)
    return {resultOf<decltype(D::re)>(sum.re, scaleFactor), resultOf<decltype(D::im)>(sum.im, scaleFactor)};
  else if constexpr (std::is_integral_v<D>)
    return awayFromZero<D>(sum, scaleFactor);
  else
    return static_cast<D>(sum);
}

}  // namespace zors
