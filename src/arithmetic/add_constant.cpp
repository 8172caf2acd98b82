// zorsAddC_*: sums of a vector and a constant.
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// From a scale factor of 9 on all results are 0, also where the rule would give 1.
ZorStatus add8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return withConstantScaled<Plus>(src, val, dst, len, scaleFactor == 9 ? 10 : scaleFactor);
}

// 65-bit sums divided by 2^shift, from 1 to largestShift, rounded as rnd says.
template <ZorRoundMode rnd> struct RoundWide {
  int shift;
  template <class V> ZORS_INLINE V operator()(Sum<V> t) const {
    using T = typename V::Element;
    const auto [half, last] = halved(t);
    const V zero = same(half, 0), one = same(half, 1);
    V negative = zero;
    if constexpr (std::is_signed_v<T>) negative = above(zero, half);
    const V quotient = shiftRight(half, shift - 1);
    if constexpr (rnd == zorRoundTowardZero && std::is_signed_v<T>) {
      const V cut = same(half, static_cast<T>((std::make_unsigned_t<T>{1} << (shift - 1)) - 1));
      const V exact = equal(either(both(half, cut), both(last, one)), zero);
      return sub(quotient, without(exact, negative));
    } else if constexpr (rnd == zorRoundTowardZero) {
      return quotient;
    } else {
      const V upAtTie = rnd == zorRoundNearestEven ? quotient : differing(negative, same(half, T(-1)));
      if (shift == 1) return add(half, both(both(last, upAtTie), one));
      return roundedShift(half, shift - 1, either(upAtTie, last));
    }
  }
};

// Sums are least at -2^64: divided by 2^65 a tie, which rounds away to -1. Everything else vanishes there.
struct RoundLeastAway {
  template <class V> ZORS_INLINE V operator()(Sum<V> t) const {
    const V least = same(t.a, static_cast<typename V::Element>(std::numeric_limits<Zor64s>::min()));
    return both(equal(t.a, least), equal(t.b, least));
  }
};

template <class T> ZorStatus addRounded(const T* src, T val, T* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).require(len != 0, zorStatusBadSize).then([&] {
    const auto exact = [=](auto x) ZORS_INLINE_LAMBDA { return Sum{x, same(x, val)}; };
    const auto run = [&](auto scale) {
      map<mapStep<T>>([=](auto x) ZORS_INLINE_LAMBDA { return scale(exact(x)); }, len, dst, src);
    };
    constexpr int largest = largestShift<Sum<Vec<T, mapStep<T>>>>;
    const bool even = rnd == zorRoundNearestEven, truncates = rnd == zorRoundTowardZero;
    if (scaleFactor == 0)
      run(ScaleNone<T>{});
    else if (scaleFactor < 0)
      run(ScaleUp<T>{scaleFactor < -64 ? 64 : -scaleFactor});
    else if (scaleFactor > largest && (std::is_unsigned_v<T> || scaleFactor > 65 || even || truncates))
      map<mapStep<T>>([]() ZORS_INLINE_LAMBDA { return splat<Vec<T, mapStep<T>>>(0); }, len, dst);
    else if (scaleFactor > largest)
      run(RoundLeastAway{});
    else if (truncates)
      run(RoundWide<zorRoundTowardZero>{scaleFactor});
    else if (even)
      run(RoundWide<zorRoundNearestEven>{scaleFactor});
    else
      run(RoundWide<zorRoundHalfAway>{scaleFactor});
  });
}

}  // namespace

ZorStatus zorsAddC_64s_Sfs(const Zor64s* src, Zor64s val, Zor64s* dst, Zor32u len, ZorRoundMode rnd,
                           Zor32s scaleFactor) {
  return addRounded(src, val, dst, len, rnd, scaleFactor);
}
ZorStatus zorsAddC_64u_Sfs(const Zor64u* src, Zor64u val, Zor64u* dst, Zor32u len, ZorRoundMode rnd,
                           Zor32s scaleFactor) {
  return addRounded(src, val, dst, len, rnd, scaleFactor);
}

// clang-format off
ZorStatus zorsAddC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return add8u(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(src, val, dst, len, scaleFactor); }
ZorStatus zorsAddC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return add8u(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor) { return withConstantScaled<Plus>(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsAddC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len) { return withConstant<PlusSaturated>(srcDst, val, srcDst, len); }

ZorStatus zorsAddC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return withConstant<Plus>(src, val, dst, len); }
ZorStatus zorsAddC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return withConstant<Plus>(src, val, dst, len); }
ZorStatus zorsAddC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len) { return withConstant<Plus>(src, val, dst, len); }
ZorStatus zorsAddC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len) { return withConstant<Plus>(src, val, dst, len); }
ZorStatus zorsAddC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return withConstant<Plus>(srcDst, val, srcDst, len); }
ZorStatus zorsAddC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return withConstant<Plus>(srcDst, val, srcDst, len); }
ZorStatus zorsAddC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len) { return withConstant<Plus>(srcDst, val, srcDst, len); }
ZorStatus zorsAddC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len) { return withConstant<Plus>(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
