// zorsAdd_*: sums of two vectors.
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

struct PlusWide {  // 8u to 16u
  ZORS_INLINE auto operator()(auto a, auto b) const { return add(extend<Zor16u>(a), extend<Zor16u>(b)); }
};
struct PlusToFloat {
  ZORS_INLINE auto operator()(auto a, auto b) const { return toFloat(add(extend<Zor32s>(a), extend<Zor32s>(b))); }
};
struct PlusExtended {  // 16s to 32s
  ZORS_INLINE auto operator()(auto a, auto b) const { return addSaturated(extend<Zor32s>(a), b); }
};

// Shifts of 2 to 63. Where the operands are not both positive and their sum is not negative, a tie gives 0 instead of
// the even neighbour.
struct ScaleDown64 {
  int shift;
  template <class V> ZORS_INLINE V operator()(Sum<V> t) const {
    const auto [half, last] = halved(t);
    const V zero = same(half, 0), one = same(half, 1);
    const V cut = same(half, (Zor64s{1} << (shift - 1)) - 1), tie = same(half, Zor64s{1} << (shift - 2));
    const V isTie = without(equal(both(last, one), one), equal(both(half, cut), tie));
    const V followsRule = either(above(zero, half), both(above(t.a, zero), above(t.b, zero)));
    return without(without(followsRule, isTie), ScaleDown<Zor64s>{shift}(t));
  }
};

ZorStatus add64(const Zor64s* src1, const Zor64s* src2, Zor64s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    if (scaleFactor < 2 || scaleFactor > 63)  // from 64 on zeros, also where the rule would give 1
      return mapScaled(Plus{}, scaleFactor == 64 ? 65 : scaleFactor, len, dst, src1, src2);
    const ScaleDown64 scale{scaleFactor};
    map<mapStep<Zor64s>>([=](auto a, auto b) ZORS_INLINE_LAMBDA { return scale(Sum{a, b}); }, len, dst, src1, src2);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsAdd_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<Plus>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsAdd_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return binaryOfPartsScaled<Plus>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsAdd_64s_Sfs(const Zor64s* src1, const Zor64s* src2, Zor64s* dst, Zor32s len, Zor32s scaleFactor) { return add64(src1, src2, dst, len, scaleFactor); }

ZorStatus zorsAdd_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len) { return binary<PlusSaturated>(src1, src2, dst, len); }
ZorStatus zorsAdd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return binary<PlusSaturated>(src1, src2, dst, len); }
ZorStatus zorsAdd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len) { return binary<PlusSaturated>(src1, src2, dst, len); }
ZorStatus zorsAdd_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len) { return binary<PlusSaturated>(src, srcDst, srcDst, len); }
ZorStatus zorsAdd_16s32s_I(const Zor16s* src, Zor32s* srcDst, Zor32s len) { return binary<PlusExtended>(src, srcDst, srcDst, len); }
ZorStatus zorsAdd_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len) { return binary<PlusWide>(src1, src2, dst, len); }
ZorStatus zorsAdd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len) { return binary<PlusToFloat>(src1, src2, dst, len); }

ZorStatus zorsAdd_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return binary<Plus>(src1, src2, dst, len); }
ZorStatus zorsAdd_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return binary<Plus>(src1, src2, dst, len); }
ZorStatus zorsAdd_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return binary<Plus>(src, srcDst, srcDst, len); }
ZorStatus zorsAdd_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return binary<Plus>(src, srcDst, srcDst, len); }
ZorStatus zorsAdd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return binaryOfParts<Plus>(src1, src2, dst, len); }
ZorStatus zorsAdd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len) { return binaryOfParts<Plus>(src1, src2, dst, len); }
ZorStatus zorsAdd_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return binaryOfParts<Plus>(src, srcDst, srcDst, len); }
ZorStatus zorsAdd_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return binaryOfParts<Plus>(src, srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
