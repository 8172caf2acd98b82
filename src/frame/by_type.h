// Operations by element type, over the exported ones: code that serves several types calls by_type::copy(src, dst, len)
// and gets the export of that type. Statuses are those of the exports; arguments are taken as checked.
#pragma once

#include <type_traits>

#include "exports/arithmetic.h"
#include "exports/conversion.h"
#include "exports/memory.h"

namespace zors {

template <class T>
concept Complex = requires(T z) {
  z.re, z.im;
};

// A vector of complex elements as the real numbers that it holds, and their count; one of real elements as it is.
template <class T> auto* components(T* p) {
  if constexpr (Complex<std::remove_const_t<T>>)
    return &p->re;
  else
    return p;
}
template <class T> constexpr Zor32s componentsLen(Zor32s len) { return Complex<T> ? 2 * len : len; }

namespace by_type {

// f on the vector's items as integers or floats of the element's size, whose copies, moves and zeros serve all types.
template <class T> auto* items(T* p) {
  using Item =
      std::conditional_t<sizeof(T) == 1, Zor8u,
                         std::conditional_t<sizeof(T) == 2, Zor16s,
                                            std::conditional_t<sizeof(T) == 4, Zor32f,
                                                               std::conditional_t<sizeof(T) == 8, Zor64f, Zor64fc>>>>;
  return reinterpret_cast<std::conditional_t<std::is_const_v<T>, const Item, Item>*>(p);
}

template <class T> ZorStatus copy(const T* src, T* dst, Zor32s len) {
  if constexpr (sizeof(T) == 1)
    return zors::zorsCopy_8u(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 2)
    return zors::zorsCopy_16s(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 4)
    return zors::zorsCopy_32f(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 8)
    return zors::zorsCopy_64f(items(src), items(dst), len);
  else
    return zors::zorsCopy_64fc(items(src), items(dst), len);
}
// Any overlap; the byte count below 2^31.
template <class T> ZorStatus move(const T* src, T* dst, Zor32s len) {
  if constexpr (sizeof(T) == 1)
    return zors::zorsMove_8u(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 2)
    return zors::zorsMove_16s(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 4)
    return zors::zorsMove_32f(items(src), items(dst), len);
  else if constexpr (sizeof(T) == 8)
    return zors::zorsMove_64f(items(src), items(dst), len);
  else
    return zors::zorsMove_64fc(items(src), items(dst), len);
}
// The byte count below 2^31.
template <class T> ZorStatus zero(T* dst, Zor32s len) {
  if constexpr (sizeof(T) == 1)
    return zors::zorsZero_8u(items(dst), len);
  else if constexpr (sizeof(T) == 2)
    return zors::zorsZero_16s(items(dst), len);
  else if constexpr (sizeof(T) == 4)
    return zors::zorsZero_32f(items(dst), len);
  else if constexpr (sizeof(T) == 8)
    return zors::zorsZero_64f(items(dst), len);
  else
    return zors::zorsZero_64fc(items(dst), len);
}

// ---- To the type of the arithmetic, exactly, and back -------------------------------------------

// Real numbers; a complex vector goes through components.
inline ZorStatus widenReal(const Zor8u* src, Zor32f* dst, Zor32s len) { return zors::zorsConvert_8u32f(src, dst, len); }
inline ZorStatus widenReal(const Zor8s* src, Zor32f* dst, Zor32s len) { return zors::zorsConvert_8s32f(src, dst, len); }
inline ZorStatus widenReal(const Zor16u* src, Zor32f* dst, Zor32s len) {
  return zors::zorsConvert_16u32f(src, dst, len);
}
inline ZorStatus widenReal(const Zor16s* src, Zor32f* dst, Zor32s len) {
  return zors::zorsConvert_16s32f(src, dst, len);
}
inline ZorStatus widenReal(const Zor16s* src, Zor64f* dst, Zor32s len) {
  return zors::zorsConvert_16s64f_Sfs(src, dst, len, 0);
}
inline ZorStatus widenReal(const Zor32s* src, Zor64f* dst, Zor32s len) {
  return zors::zorsConvert_32s64f(src, dst, len);
}
inline ZorStatus widenReal(const Zor32f* src, Zor64f* dst, Zor32s len) {
  return zors::zorsConvert_32f64f(src, dst, len);
}
template <class T> ZorStatus widenReal(const T* src, T* dst, Zor32s len) { return copy(src, dst, len); }

// Integers are divided by 2^scaleFactor, rounded to nearest even and saturated; floats have no scale.
inline ZorStatus narrowReal(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_32f8u_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor32f* src, Zor8s* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_32f8s_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor32f* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_32f16u_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor32f* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_32f16s_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor64f* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_64f16s_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor64f* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) {
  return zors::zorsConvert_64f32s_Sfs(src, dst, len, zorRoundNearestEven, scaleFactor);
}
inline ZorStatus narrowReal(const Zor64f* src, Zor32f* dst, Zor32s len, Zor32s) {
  return zors::zorsConvert_64f32f(src, dst, len);
}
template <class T> ZorStatus narrowReal(const T* src, T* dst, Zor32s len, Zor32s) { return copy(src, dst, len); }

template <class S, class D> ZorStatus widen(const S* src, D* dst, Zor32s len) {
  return widenReal(components(src), components(dst), componentsLen<S>(len));
}
template <class S, class D> ZorStatus narrow(const S* src, D* dst, Zor32s len, Zor32s scaleFactor = 0) {
  return narrowReal(components(src), components(dst), componentsLen<S>(len), scaleFactor);
}

// ---- Sums and products in place -----------------------------------------------------------------

inline ZorStatus add(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return zors::zorsAdd_32f_I(src, srcDst, len); }
inline ZorStatus add(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return zors::zorsAdd_64f_I(src, srcDst, len); }
inline ZorStatus add(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return zors::zorsAdd_32fc_I(src, srcDst, len); }
inline ZorStatus add(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return zors::zorsAdd_64fc_I(src, srcDst, len); }
inline ZorStatus multiply(const Zor32f* src, Zor32f* srcDst, Zor32s len) {
  return zors::zorsMul_32f_I(src, srcDst, len);
}
inline ZorStatus multiply(const Zor64f* src, Zor64f* srcDst, Zor32s len) {
  return zors::zorsMul_64f_I(src, srcDst, len);
}
inline ZorStatus multiply(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) {
  return zors::zorsMul_32fc_I(src, srcDst, len);
}
inline ZorStatus multiply(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) {
  return zors::zorsMul_64fc_I(src, srcDst, len);
}
inline ZorStatus multiplyBy(Zor32f val, Zor32f* srcDst, Zor32s len) { return zors::zorsMulC_32f_I(val, srcDst, len); }
inline ZorStatus multiplyBy(Zor64f val, Zor64f* srcDst, Zor32s len) { return zors::zorsMulC_64f_I(val, srcDst, len); }
inline ZorStatus multiplyBy(Zor32f val, Zor32fc* srcDst, Zor32s len) {
  return zors::zorsMulC_32f_I(val, components(srcDst), 2 * len);
}
inline ZorStatus multiplyBy(Zor64f val, Zor64fc* srcDst, Zor32s len) {
  return zors::zorsMulC_64f_I(val, components(srcDst), 2 * len);
}

}  // namespace by_type
}  // namespace zors
