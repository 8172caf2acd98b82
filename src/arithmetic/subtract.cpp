// zorsSub_*: differences of two vectors, the second operand less the first.
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

using SecondMinusFirst = Reversed<Minus>;

struct MinusToFloat {
  ZORS_INLINE auto operator()(auto a, auto b) const { return toFloat(sub(extend<Zor32s>(b), extend<Zor32s>(a))); }
};

}  // namespace

// clang-format off
ZorStatus zorsSub_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSub_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSub_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSub_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSub_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<SecondMinusFirst>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsSub_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSub_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<SecondMinusFirst>(src, srcDst, srcDst, len, scaleFactor); }

ZorStatus zorsSub_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len) { return binary<Reversed<MinusSaturated>>(src1, src2, dst, len); }
ZorStatus zorsSub_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len) { return binary<Reversed<MinusSaturated>>(src, srcDst, srcDst, len); }
ZorStatus zorsSub_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len) { return binary<MinusToFloat>(src1, src2, dst, len); }

ZorStatus zorsSub_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return binary<SecondMinusFirst>(src1, src2, dst, len); }
ZorStatus zorsSub_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return binary<SecondMinusFirst>(src1, src2, dst, len); }
ZorStatus zorsSub_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return binary<SecondMinusFirst>(src, srcDst, srcDst, len); }
ZorStatus zorsSub_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return binary<SecondMinusFirst>(src, srcDst, srcDst, len); }
ZorStatus zorsSub_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return binaryOfParts<SecondMinusFirst>(src1, src2, dst, len); }
ZorStatus zorsSub_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len) { return binaryOfParts<SecondMinusFirst>(src1, src2, dst, len); }
ZorStatus zorsSub_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return binaryOfParts<SecondMinusFirst>(src, srcDst, srcDst, len); }
ZorStatus zorsSub_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return binaryOfParts<SecondMinusFirst>(src, srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
