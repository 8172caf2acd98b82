// zorsCubrt_*: cube roots.
#include <limits>

#include "exports/functions.h"
#include "frame/convert_round.h"
#include "frame/elementary.h"

namespace zors {
namespace {

using namespace simd;

// z near |x|^(-1/3) from a third of the bits, refined by e = 1 - |x| z^3 in binary32; then |x| z^2 refined once more in
// binary64, where its error is below 2^-42: the result is rounded once, and cubes give their roots exactly.
template <int L> ZORS_INLINE Vec<Zor32f, L> cubeRoot(Vec<Zor32f, L> x) {
  static constexpr Zor32f c[] = {1.0f / 3, 2.0f / 9, 14.0f / 81};  // the binomial series of (1 - e)^(-1/3)
  const auto ax = magnitude(x), one = same(x, 1.0f);
  const auto third = fnma(toFloat(as<Zor32s>(ax)), same(x, 1.0f / 3), same(x, 1419898880.0f));
  const auto first = as<Zor32f>(toIntegerCurrent(third));
  const auto e = fnma(mul(ax, first), mul(first, first), one);
  const auto z = toDouble(fma(mul(first, e), horner(e, c), first)), wide = toDouble(ax);
  const auto y = mul(wide, mul(z, z)), rest = fnma(y, z, same(z, 1.0));
  const auto root = fma(mul(y, rest), fma(rest, same(z, 5.0 / 9), same(z, 2.0 / 3)), y);
  const auto smallest = same(x, std::numeric_limits<Zor32f>::min()), zero = same(x, 0.0f);
  const auto special = either(both(below(ax, smallest), unequal(ax, zero)),
                              notBelow(ax, same(x, std::numeric_limits<Zor32f>::infinity())));
  auto result = either(toFloat(root), signOf(x));
  if (any(special)) [[unlikely]]
    result = replaceLanes(
        result, special, [](Zor32f a) { return static_cast<Zor32f>(std::cbrt(Zor64f{a})); }, x);
  return result;
}

}  // namespace

ZorStatus zorsCubrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    map<mapStep<Zor32f>>([](auto x) ZORS_INLINE_LAMBDA { return cubeRoot(x); }, len, dst, src);
  });
}

ZorStatus zorsCubrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    const Zor32f factor = powerModulo128(scaleFactor);
    map<mapStep<Zor16s>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto y = cubeRoot(toFloat(x));
          return saturate<Zor16s>(toIntegerCurrent(limitAboveKeepNan(mul(y, same(y, factor)), 2147483520.0f)));
        },
        len, dst, src);
  });
}

}  // namespace zors
