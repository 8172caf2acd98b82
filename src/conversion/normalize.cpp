// zorsNormalize_*: dst[i] = (src[i] - vSub) / vDiv, the division by way of the reciprocal.
#include <cmath>
#include <limits>

#include "exports/conversion.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

template <class F> bool tooSmall(F vDiv) { return std::fabs(vDiv) < std::numeric_limits<F>::min(); }

// T is F, or a pair of F.
template <class T, class F> ZorStatus normalize(const T* src, T* dst, Zor32s len, T vSub, F vDiv) {
  return check().pointers(src, dst).size(len).require(!tooSmall(vDiv), zorStatusDivideByZero).then([&] {
    const F reciprocal = 1 / vDiv;
    map<mapStep<T>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto y = as<F>(sub(x, same(x, vSub)));
          return as<T>(mul(y, same(y, reciprocal)));
        },
        len, dst, src);
  });
}

template <class T>
ZorStatus normalizeIntegers(const T* src, T* dst, Zor32s len, T vSub, Zor32s vDiv, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).require(vDiv != 0, zorStatusDivideByZero).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    const Zor32f reciprocal = 1 / static_cast<Zor32f>(inScope(static_cast<Zor64f>(vDiv))),
                 factor = powerModulo128(scaleFactor);
    map<mapStep<T>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto y = toFloat(sub(extend<Zor32s>(as<Zor16s>(x)), extend<Zor32s>(as<Zor16s>(same(x, vSub)))));
          const auto product = mul(mul(y, same(y, reciprocal)), same(y, factor));
          return as<T>(saturate<Zor16s>(toIntegerCurrent(limitAboveKeepNan(product, 2147483520.0f))));
        },
        len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsNormalize_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f vSub, Zor32f vDiv) { return normalize(src, dst, len, vSub, vDiv); }
ZorStatus zorsNormalize_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f vSub, Zor64f vDiv) { return normalize(src, dst, len, vSub, vDiv); }
ZorStatus zorsNormalize_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32fc vSub, Zor32f vDiv) { return normalize(src, dst, len, vSub, vDiv); }
ZorStatus zorsNormalize_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64fc vSub, Zor64f vDiv) { return normalize(src, dst, len, vSub, vDiv); }
ZorStatus zorsNormalize_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s vSub, Zor32s vDiv, Zor32s scaleFactor) { return normalizeIntegers(src, dst, len, vSub, vDiv, scaleFactor); }
ZorStatus zorsNormalize_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16sc vSub, Zor32s vDiv, Zor32s scaleFactor) { return normalizeIntegers(src, dst, len, vSub, vDiv, scaleFactor); }
// clang-format on

}  // namespace zors
