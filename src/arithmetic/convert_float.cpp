// zorsConvert_32f*_Sfs, zorsConvert_64f*_Sfs: floats to integers of 8, 16, 32 and 64 bits.
#include <algorithm>
#include <cmath>
#include <limits>

#include "arithmetic/convert_round.h"

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
  static Zor32f factor(Zor32s scaleFactor) { return wrappingFactor(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor8u>(toInteger<r>(limitAboveKeepNan(x, 255.0f)));
  }
};
template <> struct Narrow<Zor16s> {
  static Zor32f factor(Zor32s scaleFactor) { return wrappingFactor(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) { return to16s<r>(x); }
};
template <> struct Narrow<Zor16u> {  // NaN goes to the lower bound
  static Zor32f factor(Zor32s scaleFactor) { return wrappingFactor(scaleFactor); }
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor16u>(toInteger<r>(limitNanToLow(x, 0.0f, 65535.0f)));
  }
};
template <> struct Narrow<Zor32s> {
  static Zor32f factor(Zor32s scaleFactor) { return wrappingFactor(scaleFactor); }
  // No limit before: 0x80000000 is turned to 0x7FFFFFFF where the bits, read as an integer, are those of 2^31 or more,
  // of positive infinity or a positive NaN.
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    const auto positiveOverflow = above(as<Zor32s>(x), same(as<Zor32s>(x), 0x4EFFFFFF));
    return differing(toInteger<r>(x), positiveOverflow);
  }
};
struct NarrowDouble {
  static Zor64f factor(Zor32s scaleFactor) {
    return std::bit_cast<Zor64f>(static_cast<Zor64u>(1023 - std::clamp(scaleFactor, -1008, 1022)) << 52);
  }
};
struct Double16s : NarrowDouble {
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return saturate<Zor16s>(toInteger<r>(limitNanToLow(x, -32768.0, 32767.0)));
  }
};
struct Double32s : NarrowDouble {
  template <Rounding r, class V> ZORS_INLINE static auto convert(V x) {
    return toInteger<r>(limitNanToLow(x, -2147483648.0, 2147483647.0));
  }
};

template <class Narrowing, class D, class S>
ZorStatus convert(const S* src, D* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    withRounding(rnd, [&]<Rounding rounding>() {
      if (scaleFactor == 0) {
        map<block<D, S>>([](auto x) ZORS_INLINE_LAMBDA { return Narrowing::template convert<rounding>(x); }, len, dst,
                         src);
      } else {
        const S factor = Narrowing::factor(scaleFactor);
        map<block<D, S>>(
            [factor](auto x)
                ZORS_INLINE_LAMBDA { return Narrowing::template convert<rounding>(mul(x, same(x, factor))); },
            len, dst, src);
      }
    });
  });
}

// One element to 64 bits; products are exact where they count. tiny: values up to it give 0.
Zor64s to64s(Zor64f x, Zor64f factor, Zor64f tiny, ZorRoundMode rnd) {
  using L = std::numeric_limits<Zor64s>;
  if (std::isnan(x)) return L::min();
  if (std::fabs(x) <= tiny) return 0;
  const Zor64f product = x * factor;
  if (product >= 0x1p63) return L::max();
  if (product < -0x1p63) return L::min();
  const Zor64s truncated = static_cast<Zor64s>(product);
  if (rnd == zorRoundTowardZero) return truncated;
  const Zor64f cut = std::fabs(product - static_cast<Zor64f>(truncated));
  const bool away = rnd == zorRoundNearestEven ? cut > 0.5 || (cut == 0.5 && (truncated & 1) != 0) : cut >= 0.5;
  return away ? truncated + (product < 0 ? -1 : 1) : truncated;
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
    const InvalidMaskedScope scope;
    const auto factor = powerOfTwo<Zor64f>(scaleFactor);
    const Zor64f tiny = std::numeric_limits<Zor64f>::min() / factor;
    for (std::size_t i = 0; i < len; ++i) dst[i] = to64s(src[i], factor, tiny, rnd);
  });
}

}  // namespace zors
