// Arithmetic of single values, real and complex alike.
#pragma once

#include <cmath>

#include "frame/by_type.h"

namespace zors::iir {

template <class T> T zero() { return T{}; }
template <class T> bool isZero(T x) {
  if constexpr (Complex<T>)
    return x.re == 0 && x.im == 0;
  else
    return x == 0;
}
template <class T> T negated(T x) {
  if constexpr (Complex<T>)
    return {-x.re, -x.im};
  else
    return -x;
}
// a * b + c; complex: each part in two fused steps.
template <class T> T mulAdd(T a, T b, T c) {
  if constexpr (Complex<T>)
    return {std::fma(a.re, b.re, std::fma(-a.im, b.im, c.re)), std::fma(a.re, b.im, std::fma(a.im, b.re, c.im))};
  else
    return std::fma(a, b, c);
}
template <class T> T mul(T a, T b) {
  if constexpr (Complex<T>)
    return {std::fma(a.re, b.re, -(a.im * b.im)), std::fma(a.re, b.im, a.im * b.re)};
  else
    return a * b;
}

// The same value in double precision, and back.
template <class T> auto wide(T x) {
  if constexpr (Complex<T>)
    return Zor64fc{Zor64f(x.re), Zor64f(x.im)};
  else
    return Zor64f(x);
}
template <class T> using Wide = decltype(wide(T{}));
template <class T> T narrowed(Wide<T> x) {
  if constexpr (Complex<T>)
    return {decltype(T::re)(x.re), decltype(T::re)(x.im)};
  else
    return T(x);
}

// 1 / x in T's precision. Complex: by the quotient of the smaller part and the larger, so that nothing overflows on the
// way, in double precision.
inline Zor64fc reciprocalOf(Zor64fc x) {
  if (std::fabs(x.re) >= std::fabs(x.im)) {
    const Zor64f t = x.im / x.re, d = std::fma(x.im, t, x.re);
    return {1 / d, -t / d};
  }
  const Zor64f t = x.re / x.im, d = std::fma(x.re, t, x.im);
  return {t / d, -1 / d};
}
template <class T> T reciprocal(T x) {
  if constexpr (Complex<T>)
    return narrowed<T>(reciprocalOf(wide(x)));
  else
    return 1 / x;
}

}  // namespace zors::iir
