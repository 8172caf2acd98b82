// zorsMul_*: products of two vectors.
#include "arithmetic/elementwise.h"

namespace zors {
namespace {

struct Mul {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::mul(a, b); }
};

}  // namespace

// clang-format off
ZorStatus zorsMul_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return binary<Mul>(src1, src2, dst, len); }
ZorStatus zorsMul_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return binary<Mul>(src1, src2, dst, len); }
ZorStatus zorsMul_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return binary<Mul>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return binary<Mul>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return binary<Mul>(src1, src2, dst, len); }
ZorStatus zorsMul_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len) { return binary<Mul>(src1, src2, dst, len); }
ZorStatus zorsMul_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return binary<Mul>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return binary<Mul>(src, srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
