// zorsMagnitude_*: magnitudes of complex elements.
#include <algorithm>
#include <cmath>

#include "exports/functions.h"
#include "frame/complex_squares.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// An element is one complex source or a pair of real ones.
struct Root {
  ZORS_INLINE auto operator()(auto... parts) const { return sqrt(fusedSquares(parts...)); }
};
// The root in binary64 is so near that narrowing it rounds as the root itself would.
struct RootAsFloat {
  ZORS_INLINE auto operator()(auto... parts) const { return toFloat(sqrt(toDouble(inOrder(exactSquares(parts...))))); }
};

// Roots of integers to 16 bits, exactly rounded: the root in binary32 is less than one off, and its square tells where
// the true one lies. Results that saturate may be any from 32767 up.
struct RoundedRoot {
  ZORS_INLINE auto operator()(auto... parts) const {
    const auto square = exactSquares(parts...);
    const auto m = signedPart(min(square, same(square, INT32_MAX)));
    const auto r = min(nearbyRoot(m), same(m, 32767)), rest = sub(m, squareOf(r));
    const auto tooLow = above(rest, r), tooHigh = above(sub(same(m, 1), r), rest);  // -1 beyond r + 1/2, r - 1/2
    return saturate<Zor16s>(max(sub(add(r, tooHigh), tooLow), same(m, 0)));
  }

 private:
  template <int L, Order O> using Integers = Vec<Zor32s, L, O>;
  template <int L, Order O> ZORS_INLINE static Integers<L, O> signedPart(Vec<Zor32u, L, O> x) { return as<Zor32s>(x); }
  template <int L, Order O> ZORS_INLINE static Integers<L, O> nearbyRoot(Integers<L, O> m) {
    return build<Integers<L, O>>(
        [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvtps_epi32(_mm256_sqrt_ps(_mm256_cvtepi32_ps(m.r[i]))); });
  }
  template <int L, Order O> ZORS_INLINE static Integers<L, O> squareOf(Integers<L, O> r) {  // of 15 bits
    return build<Integers<L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_madd_epi16(r.r[i], r.r[i]); });
  }
};

// The same, scaled. A root that is not halfway between integers is farther from there than binary64 rounds.
struct ScaledRoot {
  Zor64f factor;
  ZORS_INLINE auto operator()(auto... parts) const {
    const auto root = sqrt(toDouble(inOrder(exactSquares(parts...))));
    const auto limited = min(mul(root, same(root, factor)), same(root, 32767.0));
    return saturate<Zor16s>(toIntegerTowardZero(nearestIntegral(limited)));
  }
};

// Sums of squares have up to 64 bits: where the root in binary64 may be on the wrong side of a half, integers decide.
struct WideScaledRoot {
  Zor32s scaleFactor;
  Zor64f factor = exactPower(scaleFactor);

  ZORS_INLINE auto operator()(auto z) const {
    const auto root = sqrt(fusedSquares(as<Zor64fc>(toDouble(as<Zor32s>(z)))));
    const auto y = min(mul(root, same(root, factor)), same(root, 2147483647.0));
    auto rounded = nearestIntegral(y);
    const auto doubtful = below(same(y, 0.5 - 0x1p-16), magnitude(sub(y, rounded)));
    if (any(doubtful)) [[unlikely]]
      rounded = replaceLanes(
          rounded, doubtful, [this](Zor32sc element, Zor64f near) { return exact(element, near); }, z, y);
    return toIntegerTowardZero(rounded);
  }

 private:
  Zor64f exact(Zor32sc z, Zor64f near) const {
    using Wide = unsigned __int128;
    const auto below = static_cast<Zor64u>(near);  // the root, scaled, against below + 1/2
    const Wide square = Wide(Zor64u(Zor64s{z.re} * z.re) + Zor64u(Zor64s{z.im} * z.im)) << 2;
    const Wide half = Wide(2 * below + 1) * (2 * below + 1);
    const Wide a = scaleFactor < 0 ? square << -2 * scaleFactor : square,
               b = scaleFactor > 0 ? half << 2 * scaleFactor : half;
    return static_cast<Zor64f>(below + (a > b || (a == b && below % 2 != 0) ? 1 : 0));
  }
};

template <class Op, class D, class... S> ZorStatus magnitudes(Op op, D* dst, Zor32s len, const S*... src) {
  return check().pointers(src..., dst).size(len).then([&] { map<mapStep<D, S...>>(op, len, dst, src...); });
}
template <class... S> ZorStatus magnitudesScaled(Zor16s* dst, Zor32s len, Zor32s scaleFactor, const S*... src) {
  return scaleFactor == 0 ? magnitudes(RoundedRoot{}, dst, len, src...)
                          : magnitudes(ScaledRoot{exactPower(scaleFactor)}, dst, len, src...);
}

}  // namespace

// clang-format off
ZorStatus zorsMagnitude_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len) { return magnitudes(Root{}, dst, len, src); }
ZorStatus zorsMagnitude_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len) { return magnitudes(Root{}, dst, len, src); }
ZorStatus zorsMagnitude_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len) { return magnitudes(Root{}, dst, len, srcRe, srcIm); }
ZorStatus zorsMagnitude_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len) { return magnitudes(Root{}, dst, len, srcRe, srcIm); }
ZorStatus zorsMagnitude_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len) { return magnitudes(RootAsFloat{}, dst, len, src); }
ZorStatus zorsMagnitude_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len) { return magnitudes(RootAsFloat{}, dst, len, srcRe, srcIm); }
ZorStatus zorsMagnitude_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return magnitudesScaled(dst, len, scaleFactor, src); }
ZorStatus zorsMagnitude_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return magnitudesScaled(dst, len, scaleFactor, srcRe, srcIm); }
ZorStatus zorsMagnitude_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return magnitudes(WideScaledRoot{scaleFactor}, dst, len, src); }
// clang-format on

}  // namespace zors
