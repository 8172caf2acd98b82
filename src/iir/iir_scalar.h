// Arithmetic of single values, real and complex alike.
#pragma once

#include <cmath>

#include "frame/by_type.h"

namespace zors::iir {

// For tables of complex values in binary64.
struct LongComplex {
  long double re, im;
};

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
// The processor fuses none of these.
inline long double mulAdd(long double a, long double b, long double c) { return a * b + c; }
inline LongComplex mulAdd(LongComplex a, LongComplex b, LongComplex c) {
  return {a.re * b.re - a.im * b.im + c.re, a.re * b.im + a.im * b.re + c.im};
}
inline LongComplex mul(LongComplex a, LongComplex b) { return mulAdd(a, b, {0, 0}); }

// The same value in the next wider type, in which tables are computed, and back.
inline Zor64f wide(Zor32f x) { return x; }
inline long double wide(Zor64f x) { return x; }
inline Zor64fc wide(Zor32fc x) { return {x.re, x.im}; }
inline LongComplex wide(Zor64fc x) { return {x.re, x.im}; }
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
  if constexpr (Complex<T>) {
    const Zor64fc r = reciprocalOf({x.re, x.im});
    return {decltype(T::re)(r.re), decltype(T::re)(r.im)};
  } else {
    return 1 / x;
  }
}

}  // namespace zors::iir
