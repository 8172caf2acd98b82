// zorsVectorJaehne_*, zorsVectorRamp_*, zorsVectorSlope_*: a chirp and straight lines.
#include <cmath>

#include "exports/generators.h"
#include "frame/check.h"
#include "generators/indexed.h"

namespace zors {
namespace {

using namespace simd;
using namespace generators;

// The elements of one register of the narrower type; of floats four registers, so that no sum waits for the one before.
template <class D> inline constexpr int lineStep = std::is_floating_point_v<D> ? 4 * lanesOf<D> : lanesOf<D>;

// A straight line in binary64, saturated and cut toward zero. Where it stays within 32 bits all along, the narrowing
// saturates; further out conversions would give no bound.
template <class D, bool within> struct Line {
  Zor64f offset, slope;

  template <int L> ZORS_INLINE Vec<D, L> operator()(Vec<Zor64f, L> n) const {
    const auto y = fma(n, same(n, slope), same(n, offset));
    using Bounds = std::numeric_limits<D>;
    if constexpr (std::is_same_v<D, Zor64f>) {
      return y;
    } else if constexpr (std::is_same_v<D, Zor32f>) {
      return toFloat(y);
    } else if constexpr (within) {
      const auto integers = toIntegerTowardZero(y);
      if constexpr (sizeof(D) == 4)
        return integers;
      else
        return saturate<D>(integers);
    } else {
      const auto bounded = min(max(y, same(y, Zor64f{Bounds::min()})), same(y, Zor64f{Bounds::max()}));
      if constexpr (std::is_same_v<D, Zor32u>) {
        const auto integers = toIntegerTowardZero(sub(integralTowardZero(bounded), same(y, 0x1p31)));
        return as<Zor32u>(differing(integers, same(integers, INT32_MIN)));
      } else if constexpr (sizeof(D) == 4) {
        return toIntegerTowardZero(bounded);
      } else {
        return saturate<D>(toIntegerTowardZero(bounded));
      }
    }
  }
};

template <class D> void line(Zor32s first, Zor32s len, D* dst, Zor64f offset, Zor64f slope) {
  constexpr int L = lineStep<D>;
  if constexpr (std::is_integral_v<D> && !std::is_same_v<D, Zor32u>) {
    const Zor64f begin = std::fma(slope, first, offset), end = std::fma(slope, first + (len - 1), offset);
    if (std::fabs(begin) < 0x1p31 && std::fabs(end) < 0x1p31)
      return fromIndices<L, Zor64f>(first, len, dst, Line<D, true>{offset, slope});
  }
  fromIndices<L, Zor64f>(first, len, dst, Line<D, false>{offset, slope});
}

template <class D, class A> ZorStatus straight(D* dst, Zor32s len, A offset, A slope) {
  return check().pointers(dst).size(len).then([&] {
    Zor32s begin = 0;
    if constexpr (std::is_same_v<D, Zor32f> && std::is_same_v<A, Zor32f>) {
      begin = std::min(len, Zor32s{1} << 24);  // up to there a binary32 number holds the index
      fromIndices<lineStep<D>, Zor32f>(
          0, begin, dst, [=](auto n) ZORS_INLINE_LAMBDA { return fma(n, same(n, slope), same(n, offset)); });
      if (begin == len) return;
    }
    line(begin, len - begin, dst + begin, Zor64f{offset}, Zor64f{slope});
  });
}

template <class D> ZorStatus chirp(D* dst, Zor32s len, D magn) {
  return check().pointers(dst).size(len).require(!(magn < 0), zorStatusBadMagnitude).then([&] {
    if (len == 1) {
      *dst = 0;
      return;
    }
    const Zor64f factor = 1.5707963267948966 / len, height = magn;
    constexpr int L = std::max(lanesOf<D>, 8);
    fromIndices<L, Zor64f>(0, len, dst, [=](auto n) ZORS_INLINE_LAMBDA {
      const auto x = mul(mul(n, n), same(n, factor));
      const auto again = [=](Zor64f angle) { return height * std::sin(angle); };
      const auto y = settled<D>(mul(circular<Circular::sine>(x), same(x, height)), height, again, x);
      if constexpr (std::is_same_v<D, Zor64f>)
        return y;
      else if constexpr (std::is_same_v<D, Zor32f>)
        return toFloat(y);
      else if constexpr (std::is_same_v<D, Zor32u>)
        return lowWords(integralTowardZero(y));
      else
        return lowBits<D>(toIntegerTowardZero(y));
    });
  });
}

}  // namespace

// clang-format off
#define JAEHNE(name, T) ZorStatus name(T* dst, Zor32s len, T magn) { return chirp(dst, len, magn); }
JAEHNE(zorsVectorJaehne_8u, Zor8u)
JAEHNE(zorsVectorJaehne_8s, Zor8s)
JAEHNE(zorsVectorJaehne_16u, Zor16u)
JAEHNE(zorsVectorJaehne_16s, Zor16s)
JAEHNE(zorsVectorJaehne_32u, Zor32u)
JAEHNE(zorsVectorJaehne_32s, Zor32s)
JAEHNE(zorsVectorJaehne_32f, Zor32f)
JAEHNE(zorsVectorJaehne_64f, Zor64f)
#undef JAEHNE

#define STRAIGHT(name, T, A) ZorStatus name(T* dst, Zor32s len, A offset, A slope) { return straight(dst, len, offset, slope); }
STRAIGHT(zorsVectorRamp_8u, Zor8u, Zor32f)
STRAIGHT(zorsVectorRamp_8s, Zor8s, Zor32f)
STRAIGHT(zorsVectorRamp_16u, Zor16u, Zor32f)
STRAIGHT(zorsVectorRamp_16s, Zor16s, Zor32f)
STRAIGHT(zorsVectorRamp_32u, Zor32u, Zor32f)
STRAIGHT(zorsVectorRamp_32s, Zor32s, Zor32f)
STRAIGHT(zorsVectorRamp_32f, Zor32f, Zor32f)
STRAIGHT(zorsVectorRamp_64f, Zor64f, Zor32f)
STRAIGHT(zorsVectorSlope_8u, Zor8u, Zor64f)
STRAIGHT(zorsVectorSlope_8s, Zor8s, Zor64f)
STRAIGHT(zorsVectorSlope_16u, Zor16u, Zor64f)
STRAIGHT(zorsVectorSlope_16s, Zor16s, Zor64f)
STRAIGHT(zorsVectorSlope_32u, Zor32u, Zor64f)
STRAIGHT(zorsVectorSlope_32s, Zor32s, Zor64f)
STRAIGHT(zorsVectorSlope_32f, Zor32f, Zor64f)
STRAIGHT(zorsVectorSlope_64f, Zor64f, Zor64f)
#undef STRAIGHT
// clang-format on

}  // namespace zors
