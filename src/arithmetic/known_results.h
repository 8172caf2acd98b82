// Results that a constant decides without arithmetic: the source itself, or zeros. By element width, through the
// exports that move and clear raw bits, whose checks apply.
#pragma once

#include "exports/memory.h"
#include "frame/check.h"

namespace zors {

template <class T> ZorStatus copied(const T* src, T* dst, Zor32s len) {
  if (src == dst) return check().pointers(dst).size(len).then([] {});
  if constexpr (sizeof(T) == 1)
    return zors::zorsCopy_8u(reinterpret_cast<const Zor8u*>(src), reinterpret_cast<Zor8u*>(dst), len);
  else if constexpr (sizeof(T) == 2)
    return zors::zorsCopy_16s(reinterpret_cast<const Zor16s*>(src), reinterpret_cast<Zor16s*>(dst), len);
  else {
    static_assert(sizeof(T) == 4);
    return zors::zorsCopy_32s(reinterpret_cast<const Zor32s*>(src), reinterpret_cast<Zor32s*>(dst), len);
  }
}

template <class T> ZorStatus zeroed(T* dst, Zor32s len) {
  if constexpr (sizeof(T) == 1)
    return zors::zorsZero_8u(reinterpret_cast<Zor8u*>(dst), len);
  else if constexpr (sizeof(T) == 2)
    return zors::zorsZero_16s(reinterpret_cast<Zor16s*>(dst), len);
  else {
    static_assert(sizeof(T) == 4);
    return zors::zorsZero_32s(reinterpret_cast<Zor32s*>(dst), len);
  }
}
// The same for members that also refuse a null source.
template <class T> ZorStatus zeroed(const T* src, T* dst, Zor32s len) {
  return src == nullptr ? zorStatusNullPointer : zeroed(dst, len);
}

}  // namespace zors
