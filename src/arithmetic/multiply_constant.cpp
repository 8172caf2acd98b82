// zorsMulC_*: products of a vector and a constant.
#include <algorithm>
#include <cmath>

#include "arithmetic/signed_64.h"
#include "exports/arithmetic.h"
#include "frame/convert_round.h"
#include "frame/products.h"

namespace zors {
namespace {

using namespace simd;

ZorStatus inDouble(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    const Zor64f factor = productFactor(scaleFactor) * val;  // exact, whichever operand the power of two joins
    map<mapStep<Zor32s>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto y = toDouble(x);
          return toSaturated32s(mul(y, same(y, factor)));
        },
        len, dst, src);
  });
}

using Wide = unsigned __int128;

// scale() of the products' magnitudes. No vector unit multiplies 64 bits by 64; the scalar one does so every cycle.
template <class Scale> void scaleProducts(Zor64s val, Zor64s* data, Zor32u len, Scale scale) {
  const Zor64u factor = magnitudeOf(val);
  mapMagnitudes([=](Zor64u x) { return scale(Wide{x} * factor); }, val, data, len);
}

void scaleProducts(Zor64s val, Zor64s* data, Zor32u len, Zor32s scaleFactor) {
  if (scaleFactor > 126) {
    std::fill_n(data, len, 0);
  } else if (scaleFactor > 0) {
    const Wide half = Wide{1} << (scaleFactor - 1), cut = (Wide{1} << scaleFactor) - 1;
    scaleProducts(val, data, len, [=](Wide t) {
      const Wide quotient = t >> scaleFactor;
      return quotient + ((t & cut) > half - (quotient & 1));
    });
  } else {  // from -63 on every value but 0 saturates
    const int up = scaleFactor < -63 ? 63 : -scaleFactor;
    const Wide most = (Wide{1} << 63) >> up;  // every greater magnitude saturates
    scaleProducts(val, data, len, [=](Wide t) { return std::min(t, most + 1) << up; });
  }
}

}  // namespace

ZorStatus zorsMulC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor) {
  return check().pointers(srcDst).require(len != 0, zorStatusBadSize).then([&] {
    scaleProducts(val, srcDst, len, scaleFactor);
  });
}

// The exponent of val joins the scale factor; what is left is a 53-bit integer.
ZorStatus zorsMulC_64f64s_ISfs(Zor64f val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor) {
  return check().pointers(srcDst).require(len != 0, zorStatusBadSize).then([&] {
    const auto bits = std::bit_cast<Zor64u>(val);
    const auto exponent = static_cast<Zor32s>(bits >> 52 & 0x7FF);
    const auto fraction = static_cast<Zor64s>(bits & ((Zor64u{1} << 52) - 1));
    const Zor64s mantissa = exponent == 0 ? fraction : fraction | Zor64s{1} << 52;
    const Zor64s factor = std::signbit(val) ? -mantissa : mantissa;
    if (std::isinf(val))  // every element but 0 saturates
      scaleProducts(factor, srcDst, len, -63);
    else
      scaleProducts(factor, srcDst, len,
                    std::clamp(scaleFactor, -4096, 4096) - exponent + (exponent == 0 ? 1074 : 1075));
  });
}

// The factor val * 2^-scaleFactor is rounded once.
ZorStatus zorsMulC_32f16s_Sfs(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    const auto factor = static_cast<Zor32f>(inScope(val * exactPower(scaleFactor, -512, 512)));
    map<mapStep<Zor16s>>([=](auto x) ZORS_INLINE_LAMBDA { return to16s<Rounding::nearestEven>(mul(x, same(x, factor))); },
                       len, dst, src);
  });
}

// In the current rounding direction; products past 32 bits convert to 0x80000000.
ZorStatus zorsMulC_Low_32f16s(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    map<mapStep<Zor16s>>([=](auto x)
                           ZORS_INLINE_LAMBDA { return saturate<Zor16s>(toIntegerCurrent(mul(x, same(x, val)))); },
                       len, dst, src);
  });
}

// clang-format off
ZorStatus zorsMulC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return inDouble(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(src, val, dst, len, scaleFactor); }
ZorStatus zorsMulC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return inDouble(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Times>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsMulC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len) { return withConstant<TimesSaturated>(srcDst, val, srcDst, len); }

ZorStatus zorsMulC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return withConstant<Times>(src, val, dst, len); }
ZorStatus zorsMulC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return withConstant<Times>(src, val, dst, len); }
ZorStatus zorsMulC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len) { return withConstant<Times>(src, val, dst, len); }
ZorStatus zorsMulC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len) { return withConstant<Times>(src, val, dst, len); }
ZorStatus zorsMulC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return withConstant<Times>(srcDst, val, srcDst, len); }
ZorStatus zorsMulC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return withConstant<Times>(srcDst, val, srcDst, len); }
ZorStatus zorsMulC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len) { return withConstant<Times>(srcDst, val, srcDst, len); }
ZorStatus zorsMulC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len) { return withConstant<Times>(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
