// The shapes of the element-wise families: checks, then one map over a kernel.
#pragma once

#include "frame/check.h"
#include "frame/map.h"
#include "frame/scale.h"

namespace zors {

// dst[i] = Op()(src1[i], src2[i]); in place the source-destination is the second operand.
template <class Op, class D, class S1, class S2> ZorStatus binary(const S1* src1, const S2* src2, D* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] { map<block<D, S1, S2>>(Op{}, len, dst, src1, src2); });
}

// dst[i] = Op()(src[i], val).
template <class Op, class T> ZorStatus withConstant(const T* src, T val, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then(
      [&] { map<block<T>>([=](auto x) ZORS_INLINE_LAMBDA { return Op{}(x, simd::same(x, val)); }, len, dst, src); });
}

}  // namespace zors
