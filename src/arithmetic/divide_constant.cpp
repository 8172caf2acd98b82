// zorsDivC_* of integers of 8 and 16 bits, zorsDivCRev_16u.
#include "arithmetic/divide.h"
#include "arithmetic/known_results.h"
#include "exports/arithmetic.h"

namespace zors {
namespace {

template <class T>
[[gnu::flatten, gnu::noinline]] ZorStatus quotients(const T* src, T val, T* dst, Zor32s len, int scale) {
  return withDivision<T, T, zorRoundNearestEven>(scale, [&](auto division) {
    return map<mapStep<T>>(DivisionBy{division, val}, len, dst, src).division.status();
  });
}
// Above the range all elements are zeros, also the one that for 16u would round to 1.
template <class T> ZorStatus dividedBy(const T* src, T val, T* dst, Zor32s len, Zor32s scaleFactor, ScaleRange range) {
  return check().pointers(src, dst).size(len).require(val != 0, zorStatusDivideByZero).then([&] {
    if (scaleFactor > range.most) return zeroed(dst, len);
    return quotients(src, val, dst, len, range.drawnIn(scaleFactor));
  });
}
[[gnu::flatten]] ZorStatus dividedBy(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) {
  const bool isZero = val.re == 0 && val.im == 0;
  return check().pointers(src, dst).size(len).require(!isZero, zorStatusDivideByZero).then([&] {
    const ComplexIntegerDivision division(ScaleRange{-16, 32, -96}.drawnIn(scaleFactor));
    return map<mapStep<Zor16sc>>(DivisionBy{division, val}, len, dst, src).division.status();
  });
}

[[gnu::flatten]] ZorStatus dividedOf(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    return withDivision<Zor16u, Zor16u, zorRoundNearestEven>(0, [&](auto division) {
      return map<16>(DivisionOf{division, val}, len, dst, src).division.status();
    });
  });
}

constexpr ScaleRange range8u{-16, 8, -16}, range16{-30, 15, -96};

}  // namespace

// clang-format off
ZorStatus zorsDivC_8u_Sfs (const Zor8u*  src, Zor8u  val, Zor8u*  dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range8u); }
ZorStatus zorsDivC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor); }
ZorStatus zorsDivC_8u_ISfs (Zor8u  val, Zor8u*  srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range8u); }
ZorStatus zorsDivC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor); }

ZorStatus zorsDivCRev_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) { return dividedOf(src, val, dst, len); }
ZorStatus zorsDivCRev_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len) { return dividedOf(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
