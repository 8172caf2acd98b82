// zorsMul_*: products of two vectors.
#include "frame/products.h"

#include "exports/arithmetic.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

struct TimesExtended {  // 8u to 16u
  ZORS_INLINE auto operator()(auto a, auto b) const { return mul(extend<Zor16u>(a), extend<Zor16u>(b)); }
};
struct TimesToFloat {
  ZORS_INLINE auto operator()(auto a, auto b) const { return toFloat(TimesWide{}(a, b).t); }
};

ZorStatus inDouble(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    map<mapStep<Zor32s>>(TimesInDouble{productFactor(scaleFactor)}, len, dst, src1, src2);
  });
}

// Shifts of the 64-bit product that cut or overflow, its low half taken as it is.
template <class Shift> ZORS_INLINE auto lowHalves(Vec<Zor32s, 8> a, Vec<Zor32s, 8> b, Shift shift) {
  const auto [even, odd] = Times{}(a, b);
  const auto low = shift(even), high = shift(odd);
  return build<Vec<Zor32s, 8>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_blend_epi32(low.r[i], _mm256_slli_epi64(high.r[i], 32), 0xAA); });
}

}  // namespace

ZorStatus zorsMul_Low_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    if (scaleFactor < -31 || scaleFactor > 62)  // by the rule: bounds of the product's sign, or zeros
      return mapScaled(Times{}, scaleFactor < 0 ? scaleFactor : 64, len, dst, src1, src2);
    const int down = std::max(scaleFactor, 0), up = std::max(-scaleFactor, 0);
    if (scaleFactor > 0)
      map<mapStep<Zor32s>>(
          [=](auto a, auto b) ZORS_INLINE_LAMBDA {
            return lowHalves(a, b, [=](auto t) ZORS_INLINE_LAMBDA { return shiftRight(t, down); });
          },
          len, dst, src1, src2);
    else
      map<mapStep<Zor32s>>([=](auto a, auto b) ZORS_INLINE_LAMBDA { return shiftLeft(mul(a, b), up); }, len, dst, src1,
                         src2);
  });
}

// clang-format off
ZorStatus zorsMul_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_16u16s_Sfs(const Zor16u* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<TimesWide>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return inDouble(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMul_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_32s32sc_ISfs(const Zor32s* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Times>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMul_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return inDouble(src, srcDst, srcDst, len, scaleFactor); }

ZorStatus zorsMul_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len) { return binary<TimesSaturated>(src1, src2, dst, len); }
ZorStatus zorsMul_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len) { return binary<TimesSaturated>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len) { return binary<TimesExtended>(src1, src2, dst, len); }
ZorStatus zorsMul_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len) { return binary<TimesToFloat>(src1, src2, dst, len); }

ZorStatus zorsMul_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return binary<Times>(src1, src2, dst, len); }
ZorStatus zorsMul_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return binary<Times>(src1, src2, dst, len); }
ZorStatus zorsMul_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return binary<Times>(src1, src2, dst, len); }
ZorStatus zorsMul_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len) { return binary<Times>(src1, src2, dst, len); }
ZorStatus zorsMul_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return binary<TimesParts>(src1, src2, dst, len); }
ZorStatus zorsMul_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return binary<Times>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return binary<Times>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return binary<Times>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return binary<Times>(src, srcDst, srcDst, len); }
ZorStatus zorsMul_32f32fc_I(const Zor32f* src, Zor32fc* srcDst, Zor32s len) { return binary<TimesParts>(src, srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
