// zorsCartToPolar_*, zorsPolarToCart_*: complex elements to magnitudes and phases, and back.
#include <algorithm>
#include <cmath>

#include "exports/functions.h"
#include "frame/complex_squares.h"
#include "frame/convert_round.h"
#include "frame/elementary.h"
#include "frame/map_heavy.h"

namespace zors {
namespace {

using namespace simd;

// ---- To polar form ------------------------------------------------------------------------------

struct ToPolar {
  template <class V> ZORS_INLINE auto operator()(V re, V im) const {
    return Both{sqrt(fusedSquares(re, im)), arcTangent(im, re)};
  }
  template <class Z> ZORS_INLINE auto operator()(Z z) const { return (*this)(realPart(z), imagPart(z)); }
};
template <class D, class... S> ZorStatus toPolar(D* dstMagn, D* dstPhase, Zor32s len, const S*... src) {
  return check().pointers(src..., dstMagn, dstPhase).size(len).then([&] {
    mapToTwo<mapStep<D, S...>>(ToPolar{}, len, dstMagn, dstPhase, src...);
  });
}

// ---- And back -----------------------------------------------------------------------------------

template <class V> ZORS_INLINE auto cartesian(V magnitude, V phase) {
  const auto unit = sineCosine(phase);
  return Both{mul(magnitude, unit.cosine), mul(magnitude, unit.sine)};
}
struct ToComplex {
  template <class V> ZORS_INLINE auto operator()(V magnitude, V phase) const {
    const auto [re, im] = cartesian(magnitude, phase);
    return toComplex(re, im);
  }
};
// To the nearest integers, saturated; NaN is the lowest.
template <class V> ZORS_INLINE auto pairsOf16(V re, V im) {
  const auto whole = [](V x) ZORS_INLINE_LAMBDA { return toIntegerCurrent(limitAboveKeepNan(x, 32767)); };
  return as<Zor16sc>(saturated<Zor16s>(Parts{whole(re), whole(im)}));
}
struct To16sc {
  template <class V> ZORS_INLINE auto operator()(V magnitude, V phase) const {
    const auto [re, im] = cartesian(magnitude, phase);
    return pairsOf16(re, im);
  }
};
struct To32sc {
  template <class V> ZORS_INLINE auto operator()(V magnitude, V phase) const {
    const auto [re, im] = cartesian(magnitude, phase);
    const auto whole = [](V x) ZORS_INLINE_LAMBDA {  // an overflow converts to 0x80000000
      const auto positiveOverflow = as<Zor32s>(below(same(x, 2147483520.0f), x));
      return as<Zor32f>(differing(toIntegerCurrent(x), positiveOverflow));
    };
    return as<Zor32sc>(toComplex(whole(re), whole(im)));
  }
};
// 2^-scaleFactor as far as a 16-bit phase times it is a number: the angle shows every power.
Zor64f phasePower(Zor32s scaleFactor) { return std::ldexp(1.0, -std::clamp(scaleFactor, -1008, 1100)); }
struct To16scScaled {
  Zor64f magnitudeFactor, phaseFactor;
  template <class V> ZORS_INLINE auto operator()(V magnitude, V phase) const {
    const auto scaled = [](V x, Zor64f factor) ZORS_INLINE_LAMBDA {
      const auto wide = toDouble(x);
      return mul(wide, same(wide, factor));
    };
    const auto [re, im] = cartesian(scaled(magnitude, magnitudeFactor), scaled(phase, phaseFactor));
    const auto lowest = same(re, -32768.0);
    return pairsOf16(max(re, lowest), max(im, lowest));
  }
};

template <class Op, class D, class S>
ZorStatus toPairs(const S* srcMagn, const S* srcPhase, D* dst, Zor32s len, Op op) {
  return check().pointers(srcMagn, srcPhase, dst).size(len).then([&] {
    mapHeavy<mapStep<D, S>>(op, len, dst, srcMagn, srcPhase);
  });
}
template <class Op, class D, class S>
ZorStatus toIntegerPairs(const S* srcMagn, const S* srcPhase, D* dst, Zor32s len, Op op) {
  return check().pointers(srcMagn, srcPhase, dst).size(len).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    mapHeavy<mapStep<D, S>>(op, len, dst, srcMagn, srcPhase);
  });
}
template <class F> ZorStatus toPlanes(const F* srcMagn, const F* srcPhase, F* dstRe, F* dstIm, Zor32s len) {
  return check().pointers(srcMagn, srcPhase, dstRe, dstIm).size(len).then([&] {
    mapToTwo<mapStep<F>>([](auto magnitude, auto phase) ZORS_INLINE_LAMBDA { return cartesian(magnitude, phase); }, len,
                         dstRe, dstIm, srcMagn, srcPhase);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsCartToPolar_32fc(const Zor32fc* src, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len) { return toPolar(dstMagn, dstPhase, len, src); }
ZorStatus zorsCartToPolar_64fc(const Zor64fc* src, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len) { return toPolar(dstMagn, dstPhase, len, src); }
ZorStatus zorsCartToPolar_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len) { return toPolar(dstMagn, dstPhase, len, srcRe, srcIm); }
ZorStatus zorsCartToPolar_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len) { return toPolar(dstMagn, dstPhase, len, srcRe, srcIm); }

ZorStatus zorsPolarToCart_32fc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32fc* dst, Zor32s len) { return toPairs(srcMagn, srcPhase, dst, len, ToComplex{}); }
ZorStatus zorsPolarToCart_64fc(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64fc* dst, Zor32s len) { return toPairs(srcMagn, srcPhase, dst, len, ToComplex{}); }
ZorStatus zorsPolarToCart_32f(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32f* dstRe, Zor32f* dstIm, Zor32s len) { return toPlanes(srcMagn, srcPhase, dstRe, dstIm, len); }
ZorStatus zorsPolarToCart_64f(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64f* dstRe, Zor64f* dstIm, Zor32s len) { return toPlanes(srcMagn, srcPhase, dstRe, dstIm, len); }
ZorStatus zorsPolarToCart_16sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor16sc* dst, Zor32s len) { return toIntegerPairs(srcMagn, srcPhase, dst, len, To16sc{}); }
ZorStatus zorsPolarToCart_32sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32sc* dst, Zor32s len) { return toIntegerPairs(srcMagn, srcPhase, dst, len, To32sc{}); }
// clang-format on

ZorStatus zorsCartToPolar_16sc_Sfs(const Zor16sc* src, Zor16s* dstMagn, Zor16s* dstPhase, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor) {
  return check().pointers(src, dstMagn, dstPhase).size(len).then([&] {
    zors::zorsMagnitude_16sc_Sfs(src, dstMagn, len, magnScaleFactor);
    return zors::zorsPhase_16sc_Sfs(src, dstPhase, len, phaseScaleFactor);
  });
}

ZorStatus zorsPolarToCart_16sc_Sfs(const Zor16s* srcMagn, const Zor16s* srcPhase, Zor16sc* dst, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor) {
  return toIntegerPairs(srcMagn, srcPhase, dst, len,
                        To16scScaled{exactPower(magnScaleFactor), phasePower(phaseScaleFactor)});
}

}  // namespace zors
