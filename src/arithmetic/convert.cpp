// zorsConvert_*: between element types.
#include <bit>

#include "arithmetic/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// 2^-scaleFactor with the exponent formed in 32 bits, wrapping: out of an exponent's range it is another power, zero or
// infinity, of either sign.
Zor32f wrappingFactor(Zor32s scaleFactor) {
  return std::bit_cast<Zor32f>(Zor32u{0x3F800000} - (static_cast<Zor32u>(scaleFactor) << 23));
}

// Limited from above, so that the saturating pack finishes the job: NaN passes, converts to 0x80000000 and packs low.
template <class V> ZORS_INLINE V limitAbove(V x, typename V::Element limit) { return min(same(x, limit), x); }

enum class Rounding { nearestEven, towardZero, halfAway };

template <Rounding rounding, bool scaled> struct FloatTo16s {
  Zor32f factor;
  template <int L> ZORS_INLINE Vec<Zor16s, L> operator()(Vec<Zor32f, L> x) const {
    if constexpr (scaled) x = mul(x, same(x, factor));
    if constexpr (rounding == Rounding::halfAway) {
      const auto sign = both(x, same(x, -0.0f));
      x = add(x, either(sign, same(x, 0.5f)));
    }
    x = limitAbove(x, 32767.0f);
    if constexpr (rounding == Rounding::nearestEven) return saturate<Zor16s>(toIntegerCurrent(x));
    else return saturate<Zor16s>(toIntegerTowardZero(x));
  }
};

// run(kernel) under the direction that the kernel's rounding needs.
template <template <Rounding, bool> class Kernel, class Run> void withRounding(ZorRoundMode rnd, Zor32s scaleFactor, Run&& run) {
  const auto scaledOrNot = [&]<Rounding rounding>() {
    if (scaleFactor == 0) run(Kernel<rounding, false>{1.0f});
    else run(Kernel<rounding, true>{wrappingFactor(scaleFactor)});
  };
  if (rnd == zorRoundNearestEven) {
    const RoundingScope scope(RoundingScope::nearest);
    scaledOrNot.template operator()<Rounding::nearestEven>();
  } else if (rnd == zorRoundTowardZero) {
    const InvalidMaskedScope scope;
    scaledOrNot.template operator()<Rounding::towardZero>();
  } else {
    const RoundingScope scope(RoundingScope::towardZero);  // so that 0.49999997 plus 0.5 stays below 1
    scaledOrNot.template operator()<Rounding::halfAway>();
  }
}

}  // namespace

ZorStatus zorsConvert_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    map<block<Zor16s>>([](auto x) ZORS_INLINE_LAMBDA { return toFloat(x); }, len, dst, src);
  });
}

ZorStatus zorsConvert_32f16s_Sfs(const Zor32f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    withRounding<FloatTo16s>(rnd, scaleFactor, [&](auto kernel) { map<block<Zor16s>>(kernel, len, dst, src); });
  });
}

}  // namespace zors
