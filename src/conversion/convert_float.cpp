// zorsConvert_32f*_Sfs, zorsConvert_64f*_Sfs: floats to integers of 8, 16, 32 and 64 bits.
#include <algorithm>
#include <cmath>
#include <limits>

#include "exports/conversion.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

// 2^-scaleFactor, down to zero and up to infinity; exact, so no rounding direction matters.
template <class F> F powerOfTwo(Zor32s scaleFactor) {
  using L = std::numeric_limits<F>;
  if (scaleFactor > L::digits - L::min_exponent) return 0;
  return scaleFactor < -(L::max_exponent - 1) ? L::infinity() : std::ldexp(F(1), -scaleFactor);
}

// Each gives integers of its type for a product with the factor: the limit, and where NaN goes, are its own.
template <class D> struct Narrow;

template <> struct Narrow<Zor8s> {  // NaN converts to 0x80000000 and packs low
  static Zor32f factor(Zor32s scaleFactor) { return powerOfTwo<Zor32f>(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor8s>(toInteger<r>(limitAboveKeepNan(x, 127.0f)));
  }
};
template <> struct Narrow<Zor8u> {
  static Zor32f factor(Zor32s scaleFactor) { return wrappingPower<Zor32f>(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor8u>(toInteger<r>(limitAboveKeepNan(x, 255.0f)));
  }
};
template <> struct Narrow<Zor16s> {
  static Zor32f factor(Zor32s scaleFactor) { return wrappingPower<Zor32f>(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) { return to16s<r>(x); }
};
template <> struct Narrow<Zor16u> {  // NaN goes to the lower bound
  static Zor32f factor(Zor32s scaleFactor) { return wrappingPower<Zor32f>(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor16u>(toInteger<r>(limitNanToLow(x, 0.0f, 65535.0f)));
  }
};
template <> struct Narrow<Zor32s> {
  static Zor32f factor(Zor32s scaleFactor) { return wrappingPower<Zor32f>(scaleFactor); }
  // No limit before: 0x80000000 is turned to 0x7FFFFFFF where the bits, read as an integer, are those of 2^31 or more,
  // of positive infinity or a positive NaN.
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    const auto positiveOverflow = above(as<Zor32s>(x), same(as<Zor32s>(x), 0x4EFFFFFF));
    return differing(toInteger<r>(x), positiveOverflow);
  }
};
struct NarrowDouble {
  static Zor64f factor(Zor32s scaleFactor) { return exactPower(scaleFactor, -1008, 1022); }
};
// NaN and what is below the range convert to 0x80000000, the lower bound or what packs to it.
struct Double16s : NarrowDouble {
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor16s>(toInteger<r>(limitAboveKeepNan(x, 32767.0)));
  }
};
struct Double32s : NarrowDouble {
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return toInteger<r>(limitAboveKeepNan(x, 2147483647.0));
  }
};

template <class Narrowing, class D, class S>
ZorStatus convert(const S* src, D* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    withRounding(rnd, [&]<Rounding rounding>() {
      if (scaleFactor == 0) {
        map<mapStep<D, S>>([](auto x) ZORS_INLINE_LAMBDA { return Narrowing::template convert<rounding>(x); }, len, dst,
                           src);
      } else {
        const S factor = Narrowing::factor(scaleFactor);
        map<mapStep<D, S>>(
            [factor](auto x)
                ZORS_INLINE_LAMBDA { return Narrowing::template convert<rounding>(mul(x, same(x, factor))); },
            len, dst, src);
      }
    });
  });
}

// Rounded and limited to 64 bits; NaN goes to the lower bound.
template <Rounding r, class V> ZORS_INLINE auto to64s(V x) {
  V whole;
  if constexpr (r == Rounding::nearestEven) {
    whole = nearestIntegral(x);
  } else {
    whole = integralTowardZero(x);
    if constexpr (r == Rounding::halfAway) {
      const auto away = notBelow(magnitude(sub(x, whole)), same(x, 0.5));
      whole = add(whole, both(away, either(signOf(x), same(x, 1.0))));
    }
  }
  const auto limited = max(whole, same(x, -0x1p63));
  const auto top = splat<Vec<Zor64s, V::lanes>>(std::numeric_limits<Zor64s>::max());
  return select(notBelow(limited, same(x, 0x1p63)), integralToInteger(limited), top);
}

}  // namespace

// clang-format off
ZorStatus zorsConvert_32f8s_Sfs (const Zor32f* src, Zor8s*  dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Narrow<Zor8s>>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_32f8u_Sfs (const Zor32f* src, Zor8u*  dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Narrow<Zor8u>>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_32f16s_Sfs(const Zor32f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Narrow<Zor16s>>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_32f16u_Sfs(const Zor32f* src, Zor16u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Narrow<Zor16u>>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_32f32s_Sfs(const Zor32f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Narrow<Zor32s>>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_64f16s_Sfs(const Zor64f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Double16s>(src, dst, len, rnd, scaleFactor); }
ZorStatus zorsConvert_64f32s_Sfs(const Zor64f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return convert<Double32s>(src, dst, len, rnd, scaleFactor); }
// clang-format on

ZorStatus zorsConvert_64f64s_Sfs(const Zor64f* src, Zor64s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).require(len != 0, zorStatusBadSize).then([&] {
    withRounding(rnd, [&]<Rounding rounding>() {
      if (scaleFactor == 0) {
        map<mapStep<Zor64f>>([](auto x) ZORS_INLINE_LAMBDA { return to64s<rounding>(x); }, len, dst, src);
      } else {  // what the factor takes below the normal numbers is 0, an infinity too where the factor itself is 0
        const auto factor = powerOfTwo<Zor64f>(scaleFactor);
        const auto tiny = std::bit_cast<Zor64s>(std::numeric_limits<Zor64f>::min() / factor);
        map<mapStep<Zor64f>>(
            [factor, tiny](auto x) ZORS_INLINE_LAMBDA {
              const auto size = as<Zor64s>(magnitude(x));
              return to64s<rounding>(both(as<Zor64f>(above(size, same(size, tiny))), mul(x, same(x, factor))));
            },
            len, dst, src);
      }
    });
  });
}

}  // namespace zors
