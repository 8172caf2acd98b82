// zorsSubC_*, zorsSubCRev_*: differences of a vector and a constant, src - val and val - src.
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using FromConstant = Reversed<Minus>;

}  // namespace

// clang-format off
ZorStatus zorsSubC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Minus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len) { return withConstant<MinusSaturated>(srcDst, val, srcDst, len); }
ZorStatus zorsSubC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return withConstant<Minus>(src, val, dst, len); }
ZorStatus zorsSubC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return withConstant<Minus>(src, val, dst, len); }
ZorStatus zorsSubC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len) { return withConstant<Minus>(src, val, dst, len); }
ZorStatus zorsSubC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len) { return withConstant<Minus>(src, val, dst, len); }
ZorStatus zorsSubC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return withConstant<Minus>(srcDst, val, srcDst, len); }
ZorStatus zorsSubC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return withConstant<Minus>(srcDst, val, srcDst, len); }
ZorStatus zorsSubC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len) { return withConstant<Minus>(srcDst, val, srcDst, len); }
ZorStatus zorsSubC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len) { return withConstant<Minus>(srcDst, val, srcDst, len); }

ZorStatus zorsSubCRev_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(src, val, dst, len, scaleFactor); }
ZorStatus zorsSubCRev_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<FromConstant>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsSubCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return withConstant<FromConstant>(src, val, dst, len); }
ZorStatus zorsSubCRev_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return withConstant<FromConstant>(src, val, dst, len); }
ZorStatus zorsSubCRev_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len) { return withConstant<FromConstant>(src, val, dst, len); }
ZorStatus zorsSubCRev_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len) { return withConstant<FromConstant>(src, val, dst, len); }
ZorStatus zorsSubCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return withConstant<FromConstant>(srcDst, val, srcDst, len); }
ZorStatus zorsSubCRev_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return withConstant<FromConstant>(srcDst, val, srcDst, len); }
ZorStatus zorsSubCRev_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len) { return withConstant<FromConstant>(srcDst, val, srcDst, len); }
ZorStatus zorsSubCRev_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len) { return withConstant<FromConstant>(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
