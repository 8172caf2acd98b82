// zorsSqr_*: squares.
#include "exports/functions.h"
#include "frame/products.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

struct Sqr {
  template <class V> ZORS_INLINE V operator()(V x) const { return mul(x, x); }
};
template <class T> ZorStatus squares(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    map<mapStep<T>>(Sqr{}, len, dst, src);
  });
}

template <class T> ZorStatus squaresScaled(const T* src, T* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then(
      [&] { mapScaled([](auto x) ZORS_INLINE_LAMBDA { return Times{}(x, x); }, scaleFactor, len, dst, src); });
}

}  // namespace

// clang-format off
ZorStatus zorsSqr_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_32f_I(Zor32f* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_64f_I(Zor64f* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_32fc_I(Zor32fc* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_64fc_I(Zor64fc* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return squaresScaled(srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
