// zorsMulC_*: products of a vector and a constant.
#include "arithmetic/elementwise.h"

namespace zors {
namespace {

struct Mul {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::mul(a, b); }
};

}  // namespace

// clang-format off
ZorStatus zorsMulC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return withConstant<Mul>(src, val, dst, len); }
ZorStatus zorsMulC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return withConstant<Mul>(src, val, dst, len); }
ZorStatus zorsMulC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return withConstant<Mul>(srcDst, val, srcDst, len); }
ZorStatus zorsMulC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return withConstant<Mul>(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
