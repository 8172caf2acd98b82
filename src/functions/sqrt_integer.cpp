// zorsSqrt_* of integers: roots divided by 2^scaleFactor, exactly rounded to nearest, ties to even, saturated. A
// negative element gives 0 and zorWarningSqrtOfNegative; complex elements have no such thing.
#include <algorithm>
#include <cmath>
#include <limits>

#include "exports/functions.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// ---- 8, 16 and 32 bits: the root of the processor, times a power of two, converted. A scaled root that is no tie
// stays away from one by more than binary64 rounds off, and by more than binary32 does from roots of 16 bits that are
// not scaled up. A tie is exact.

template <class V> ZORS_INLINE auto toFloats(V x, Zor32f) { return toFloat(x); }
template <int L> ZORS_INLINE auto toFloats(Vec<Zor8u, L> x, Zor64f) { return toDouble(extend<Zor32s>(x)); }
template <int L> ZORS_INLINE auto toFloats(Vec<Zor16u, L> x, Zor64f) { return toDouble(extend<Zor32s>(x)); }
template <int L> ZORS_INLINE auto toFloats(Vec<Zor16s, L> x, Zor64f) { return toDouble(x); }
template <int L> ZORS_INLINE auto toFloats(Vec<Zor32s, L> x, Zor64f) { return toDouble(x); }

template <class D, class F, int L, class S> struct Roots {
  Zor64f factor;
  Vec<S, L> seen = splat<Vec<S, L>>(0);  // its sign bits tell of negative elements

  ZORS_INLINE auto operator()(Vec<S, L> x) {
    seen = either(seen, x);
    const auto y = sqrt(toFloats(max(x, same(x, 0)), F{}));
    return saturate<D>(toIntegerCurrent(min(mul(y, same(y, static_cast<F>(factor))), same(y, F(0x1p20)))));
  }
  ZorStatus warning() const { return any(above(splat<Vec<S, L>>(0), seen)) ? zorWarningSqrtOfNegative : zorStatusOk; }
};

template <class F, class S, class D> ZorStatus runRoots(const S* src, D* dst, Zor32s len, Zor32s scaleFactor) {
  constexpr int L = mapStep<S, D>;
  const auto kernel = map<L>(Roots<D, F, L, S>{exactPower(scaleFactor)}, len, dst, src);
  if constexpr (std::is_signed_v<S>)
    return kernel.warning();
  else
    return zorStatusOk;
}
template <class S, class D> ZorStatus roots(const S* src, D* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    const bool narrow = sizeof(S) <= 2 && scaleFactor >= 0;
    return narrow ? runRoots<Zor32f>(src, dst, len, scaleFactor) : runRoots<Zor64f>(src, dst, len, scaleFactor);
  });
}

// The principal root in binary64: r = sqrt((|z| + |re|) / 2) is the greater part, |im| / 2r the other.
ZorStatus complexRoots(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    const Zor64f factor = exactPower(scaleFactor);
    map<2 * mapStep<Zor16sc>>(
        [=](auto z) ZORS_INLINE_LAMBDA {
          const auto re = toDouble(realPart(z)), im = toDouble(imagPart(z));
          const auto half = same(re, 0.5), zero = same(re, 0.0);
          const auto r = sqrt(mul(add(sqrt(fma(re, re, mul(im, im))), magnitude(re)), half));
          const auto other = div(mul(magnitude(im), half), select(equal(r, zero), r, same(r, 1.0)));
          const auto left = below(re, zero);
          const auto scaled = [=](auto part)
                                  ZORS_INLINE_LAMBDA { return min(mul(part, same(part, factor)), same(part, 0x1p20)); };
          const auto resultIm = either(scaled(select(left, other, r)), signOf(im));
          return toComplex(saturate<Zor16s>(toIntegerCurrent(scaled(select(left, r, other)))),
                           saturate<Zor16s>(toIntegerCurrent(resultIm)));
        },
        len, dst, src);
  });
}

// ---- 64 bits: an estimate in binary64 and one comparison with the square of a midpoint ----------

constexpr Zor64s highest = std::numeric_limits<Zor64s>::max();

Zor64f estimateOf(Zor64u x) { return std::sqrt(static_cast<Zor64f>(static_cast<Zor64s>(x))); }

// A root r that is one off at a perfect square changes nothing: the comparison corrects it.
Zor64s root(Zor64u x) {
  const auto r = static_cast<Zor64u>(static_cast<Zor64s>(estimateOf(x)));
  return static_cast<Zor64s>(r + (x > r * (r + 1)));
}
Zor64s rootScaledDown(Zor64u x, int scale) {  // scale from 1 to 32
  const auto q = static_cast<Zor64u>(static_cast<Zor64s>(estimateOf(x))) >> scale;
  const Zor64u middle = (q << scale) + (Zor64u{1} << (scale - 1)), square = middle * middle;
  return static_cast<Zor64s>(q + ((x > square) | ((x == square) & (q & 1))));
}
Zor64s rootScaledUp(Zor64u x, int shift, Zor64f factor) {  // by 2^shift, from 1 to 63; there are no ties
  const Zor64f estimate = estimateOf(x) * factor;
  if (x == 0 || estimate > 0x1.0001p63) return x == 0 ? 0 : highest;
  using Wide = __int128;
  const auto square = static_cast<unsigned __int128>(x) << (2 * shift);
  auto q = static_cast<Zor64u>(estimate);
  const auto rest = [&] { return static_cast<Wide>(square - static_cast<unsigned __int128>(q) * q); };
  q += static_cast<Zor64u>(static_cast<Zor64s>(static_cast<Zor64f>(rest()) / (2 * estimate)));  // now one off at most
  const Wide left = rest();
  q += left > static_cast<Wide>(q) ? 1 : left <= -static_cast<Wide>(q) ? ~Zor64u{0} : 0;
  return q > static_cast<Zor64u>(highest) ? highest : static_cast<Zor64s>(q);
}

template <class D, class Root> ZorStatus eachRoot(const Zor64s* src, D* dst, Zor32s len, Root function) {
  Zor64s seen = 0;
  for (Zor32s i = 0; i < len; ++i) {
    const Zor64s x = src[i];
    seen |= x;
    dst[i] =
        static_cast<D>(std::min<Zor64s>(x < 0 ? 0 : function(static_cast<Zor64u>(x)), std::numeric_limits<D>::max()));
  }
  return seen < 0 ? zorWarningSqrtOfNegative : zorStatusOk;
}
template <class D> ZorStatus roots64(const Zor64s* src, D* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    if (scaleFactor > 32) return eachRoot(src, dst, len, [](Zor64u) { return Zor64s{0}; });
    if (scaleFactor > 0) return eachRoot(src, dst, len, [=](Zor64u x) { return rootScaledDown(x, scaleFactor); });
    if (scaleFactor == 0) return eachRoot(src, dst, len, root);
    const int shift = scaleFactor < -63 ? 63 : -scaleFactor;
    return eachRoot(src, dst, len,
                    [=, factor = std::ldexp(1.0, shift)](Zor64u x) { return rootScaledUp(x, shift, factor); });
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSqrt_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return roots(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return roots(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return roots(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return roots(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return roots(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqrt_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return roots(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqrt_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return roots(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqrt_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return complexRoots(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return complexRoots(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqrt_64s16s_Sfs(const Zor64s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return roots64(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor) { return roots64(src, dst, len, scaleFactor); }
ZorStatus zorsSqrt_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor) { return roots64(srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
