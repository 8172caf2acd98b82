// zorsPhase_*: the angles of complex elements, in [-pi, pi].
#include <algorithm>
#include <cmath>
#include <limits>

#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/map_heavy.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// Integers as floats of type F.
template <class F, class V> ZORS_INLINE auto floats(V x) {
  if constexpr (std::is_same_v<F, Zor32f>)
    return toFloat(x);
  else
    return toDouble(x);
}

// An element is one complex source or a pair of real ones.
template <class F> struct Phase {
  template <class T, int L> ZORS_INLINE auto operator()(Vec<T, L> re, Vec<T, L> im) const {
    if constexpr (std::is_same_v<T, F>)
      return arcTangent(im, re);
    else
      return arcTangent(floats<F>(im), floats<F>(re));
  }
  template <class Z> ZORS_INLINE auto operator()(Z z) const { return (*this)(realPart(z), imagPart(z)); }
  template <int L> ZORS_INLINE auto operator()(Vec<Zor16sc, L> z) const { return (*this)(wideReal(z), wideImag(z)); }
  template <int L> ZORS_INLINE auto operator()(Vec<Zor32sc, L> z) const {
    using C = std::conditional_t<std::is_same_v<F, Zor32f>, Zor32fc, Zor64fc>;
    return (*this)(as<C>(floats<F>(as<Zor32s>(z))));
  }
};

template <class D, class... S> ZorStatus phases(D* dst, Zor32s len, const S*... src) {
  return check().pointers(src..., dst).size(len).then([&] {
    mapHeavy<mapStep<D, S...>>(Phase<D>{}, len, dst, src...);
  });
}

// To integers of type D, rounded in the current direction.
template <class D, class F> struct PhaseTimes {
  F factor;
  ZORS_INLINE auto operator()(auto... parts) const {
    auto y = Phase<F>{}(parts...);
    y = mul(y, same(y, factor));
    if constexpr (std::is_same_v<F, Zor64f>)
      y = min(max(y, same(y, std::numeric_limits<D>::min())), same(y, std::numeric_limits<D>::max()));
    const auto whole = toIntegerCurrent(y);
    if constexpr (std::is_same_v<D, Zor16s>)
      return saturate<Zor16s>(whole);
    else
      return whole;
  }
};

// Binary32 reaches to a scale of -28, where results may have 30 bits.
template <class D, class... S> ZorStatus phasesScaled(D* dst, Zor32s len, Zor32s scaleFactor, const S*... src) {
  return check().pointers(src..., dst).size(len).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    if (scaleFactor >= -28 && scaleFactor <= 1)
      mapHeavy<mapStep<D, S...>>(PhaseTimes<D, Zor32f>{static_cast<Zor32f>(exactPower(scaleFactor))}, len, dst, src...);
    else
      mapHeavy<mapStep<D, S...>>(PhaseTimes<D, Zor64f>{exactPower(scaleFactor)}, len, dst, src...);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsPhase_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len) { return phases(dst, len, src); }
ZorStatus zorsPhase_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len) { return phases(dst, len, src); }
ZorStatus zorsPhase_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len) { return phases(dst, len, srcRe, srcIm); }
ZorStatus zorsPhase_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len) { return phases(dst, len, srcRe, srcIm); }
ZorStatus zorsPhase_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len) { return phases(dst, len, src); }
ZorStatus zorsPhase_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len) { return phases(dst, len, srcRe, srcIm); }
ZorStatus zorsPhase_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return phasesScaled(dst, len, scaleFactor, src); }
ZorStatus zorsPhase_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return phasesScaled(dst, len, scaleFactor, srcRe, srcIm); }
ZorStatus zorsPhase_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return phasesScaled(dst, len, scaleFactor, src); }
// clang-format on

}  // namespace zors
