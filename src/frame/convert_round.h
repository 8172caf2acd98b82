// What the conversions from float to integer share: the rounding modes, and the direction that each needs.
#pragma once

#include <bit>
#include <limits>

#include "frame/elementwise.h"
#include "frame/rounding.h"
#include "zors/types.h"

namespace zors {

enum class Rounding { nearestEven, towardZero, halfAway };

// x to 32-bit integers. Half-away adds the number just below one half, with the sign of x, and cuts: under rounding to
// nearest the sum reaches the next integer from one half on, and not from any number below it. NaN and values out of
// range give 0x80000000.
template <Rounding rounding, class V> ZORS_INLINE auto toInteger(V x) {
  using namespace simd;
  using F = typename V::Element;
  if constexpr (rounding == Rounding::nearestEven)
    return toIntegerCurrent(x);
  else if constexpr (rounding == Rounding::towardZero)
    return toIntegerTowardZero(x);
  else
    return toIntegerTowardZero(add(x, either(signOf(x), same(x, F(0.5) - std::numeric_limits<F>::epsilon() / 4))));
}

// run.operator()<rounding>() under the control word that it needs; the invalid-operation exception is masked.
template <class Run> void withRounding(ZorRoundMode rnd, Run&& run) {
  if (rnd == zorRoundNearestEven) {
    const RoundingScope scope(RoundingScope::nearest);
    run.template operator()<Rounding::nearestEven>();
  } else if (rnd == zorRoundTowardZero) {
    const InvalidMaskedScope scope;
    run.template operator()<Rounding::towardZero>();
  } else {
    const RoundingScope scope(RoundingScope::nearest);
    run.template operator()<Rounding::halfAway>();
  }
}

// Limits for the saturating pack that follows. A maximum or minimum gives its second operand where one is NaN.
template <class V> ZORS_INLINE V limitAboveKeepNan(V x, typename V::Element limit) {
  return simd::min(simd::same(x, limit), x);
}
template <class V> ZORS_INLINE V limitNanToLow(V x, typename V::Element low, typename V::Element high) {
  return simd::min(simd::max(x, simd::same(x, low)), simd::same(x, high));
}

// 32-bit floats to 16-bit integers, saturated; NaN converts to 0x80000000 and packs low.
template <Rounding rounding, class V> ZORS_INLINE auto to16s(V x) {
  return simd::saturate<Zor16s>(toInteger<rounding>(limitAboveKeepNan(x, 32767.0f)));
}

}  // namespace zors
