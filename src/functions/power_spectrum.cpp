// zorsPowerSpectr_*, zorsMagSquared_*: squared magnitudes.
#include "exports/functions.h"
#include "frame/complex_squares.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// An element is one complex source or a pair of real ones.
struct Fused {
  ZORS_INLINE auto operator()(auto... parts) const { return fusedSquares(parts...); }
};
struct FusedWide {
  template <class V> ZORS_INLINE auto operator()(V z) const {
    return fusedSquares(as<Zor64fc>(toDouble(as<Zor32f>(z))));
  }
};
struct Exact {
  ZORS_INLINE auto operator()(auto... parts) const { return exactSquares(parts...); }
};
struct ExactAsFloat {  // one rounding
  ZORS_INLINE auto operator()(auto... parts) const { return toFloat(toDouble(inOrder(exactSquares(parts...)))); }
};

template <class Op, class D, class... S> ZorStatus power(D* dst, Zor32s len, const S*... src) {
  return check().pointers(src..., dst).size(len).then([&] { map<mapStep<D, S...>>(Op{}, len, dst, src...); });
}
template <class D, class... S> ZorStatus powerScaled(D* dst, Zor32s len, Zor32s scaleFactor, const S*... src) {
  return check().pointers(src..., dst).size(len).then([&] { mapScaled(Exact{}, scaleFactor, len, dst, src...); });
}

}  // namespace

// clang-format off
ZorStatus zorsPowerSpectr_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len) { return power<Fused>(dst, len, src); }
ZorStatus zorsPowerSpectr_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len) { return power<Fused>(dst, len, src); }
ZorStatus zorsPowerSpectr_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len) { return power<Fused>(dst, len, srcRe, srcIm); }
ZorStatus zorsPowerSpectr_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len) { return power<Fused>(dst, len, srcRe, srcIm); }
ZorStatus zorsPowerSpectr_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len) { return power<ExactAsFloat>(dst, len, src); }
ZorStatus zorsPowerSpectr_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len) { return power<ExactAsFloat>(dst, len, srcRe, srcIm); }
ZorStatus zorsPowerSpectr_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return powerScaled(dst, len, scaleFactor, src); }
ZorStatus zorsPowerSpectr_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return powerScaled(dst, len, scaleFactor, srcRe, srcIm); }

ZorStatus zorsMagSquared_32fc64f(const Zor32fc* src, Zor64f* dst, Zor32s len) { return power<FusedWide>(dst, len, src); }
ZorStatus zorsMagSquared_32sc32s_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return powerScaled(dst, len, scaleFactor, src); }
// clang-format on

}  // namespace zors
