// zorsThreshold_LT_*, _GT_*, _LTVal_*, _GTVal_* of complex vectors: magnitudes against a level, by their squares.
#include <cmath>

#include "exports/thresholds.h"
#include "frame/complex_squares.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// Squares as they are compared. That of a 16-bit level is below 2^30, so 2^31, which no signed value is, may count as
// one less.
template <std::floating_point F, int L> ZORS_INLINE auto comparable(Pairwise<F, L> squares) { return squares; }
template <int L> ZORS_INLINE auto comparable(Vec<Zor32u, L> squares) {
  return as<Zor32s>(min(squares, same(squares, INT32_MAX)));
}
Zor32f squareOf(Zor32f level) { return level * level; }
Zor64f squareOf(Zor64f level) { return level * level; }
Zor32s squareOf(Zor16s level) { return level * level; }

template <int L> ZORS_INLINE auto notAtLeast(Vec<Zor32s, L> a, Vec<Zor32s, L> b) { return below(a, b); }

// Where squares m are replaced, by the square of the level.
struct LT {  // NaN too
  template <class V> ZORS_INLINE static auto replaced(V m, V level) { return notAtLeast(m, level); }
  template <class V> ZORS_INLINE static V byLevelZero(V z) { return z; }
  // The magnitude of a 16-bit part is rounded up, but not for what the rounding of the product has added.
  static constexpr Zor64f bias = 0.99999999999;
};
struct GT {
  template <class V> ZORS_INLINE static auto replaced(V m, V level) { return below(level, m); }
  template <class V> ZORS_INLINE static V byLevelZero(V z) { return same(z, {}); }
  // A product that rounding has left just below an integer keeps the integer.
  static constexpr Zor64f bias = 1.25e-11;
};
struct LTVal {
  template <class V> ZORS_INLINE static auto replaced(V m, V level) { return below(m, level); }
};
struct GTVal {  // NaN too
  template <class V> ZORS_INLINE static auto replaced(V m, V level) { return notAtLeast(level, m); }
};

// Elements of a step: two registers of floats make one of squares.
template <class C> inline constexpr int step = std::is_same_v<C, Zor16sc> ? mapStep<C> : 2 * mapStep<C>;

template <class R> Checks checks(const void* src, const void* dst, Zor32s len, R level) {
  return check().pointers(src, dst).size(len).require(!(level < 0), zorStatusNegativeThresholdLevel);
}

template <class Side, class C, class R> ZorStatus setValue(const C* src, C* dst, Zor32s len, R level, C value) {
  return checks(src, dst, len, level).then([&] {
    const auto bound = squareOf(level);
    map<step<C>>(
        [=](auto z) ZORS_INLINE_LAMBDA {
          const auto m = comparable(squares(z));
          return select(spread(Side::replaced(m, same(m, bound))), z, same(z, value));
        },
        len, dst, src);
  });
}

// Elements drawn to the level: each in its way gives what becomes of a step. The zero element has no phase to keep.
template <class Side, class C> struct Scale;

// The factor is (0.5 * level * r) * (3 - m * r * r) with the estimate r of 1 / sqrt(m). Four elements from element 0 on
// are a group: where one is replaced all are multiplied, the others by the factor that the level's own square has.
template <class Side> struct Scale<Side, Zor32fc> {
  using Z = Vec<Zor32fc, 8>;
  using M = Pairwise<Zor32f, 8>;

  explicit Scale(Zor32f l) : level(l), bound(squareOf(l)) {
    const Zor32f own = factor(splat<M>(bound)).r[0][0];
    kept = std::isfinite(own) ? own : 1;  // where the square leaves the normal numbers
  }
  ZORS_INLINE M factor(M m) const {
    const M r = reciprocalRootEstimate(m);
    return mul(mul(same(m, 0.5f * level), r), sub(same(m, 3.0f), mul(mul(m, r), r)));
  }
  ZORS_INLINE static M anyOfGroup(M mask) {  // lanes 0, 1, 4, 5 are a group, the others too
    const __m256 pairs = _mm256_or_ps(mask.r[0], _mm256_permute_ps(mask.r[0], 0xB1));
    return {{_mm256_or_ps(pairs, _mm256_permute2f128_ps(pairs, pairs, 1))}};
  }
  ZORS_INLINE Z operator()(Z z) const {
    const M m = squares(z), replaced = Side::replaced(m, same(m, bound)),
            zero = both(replaced, equal(m, same(m, 0.0f)));
    const M scaled = std::is_same_v<Side, LT> ? without(zero, replaced) : replaced;
    const M factors = select(scaled, same(m, kept), factor(select(scaled, same(m, 1.0f), m)));
    const Z product = as<Zor32fc>(mul(as<Zor32f>(z), as<Zor32f>(spread(factors))));
    const Z out = select(spread(anyOfGroup(replaced)), z, product);
    return std::is_same_v<Side, LT> ? select(spread(zero), out, same(z, {level, 0})) : out;
  }

  Zor32f level, bound, kept;
};

// The factor is sqrt(level^2 / m); it is formed only where an element of the step needs it.
template <class Side> struct Scale<Side, Zor64fc> {
  using Z = Vec<Zor64fc, 4>;
  using M = Pairwise<Zor64f, 4>;

  explicit Scale(Zor64f l) : level(l), bound(squareOf(l)) {}
  ZORS_INLINE Z operator()(Z z) const {
    const M m = squares(z), replaced = Side::replaced(m, same(m, bound));
    if (!any(replaced)) return z;
    const M zero = both(replaced, equal(m, same(m, 0.0)));
    const M scaled = std::is_same_v<Side, LT> ? without(zero, replaced) : replaced;
    const M factors = sqrt(div(same(m, bound), select(scaled, same(m, 1.0), m)));
    const Z product = as<Zor64fc>(mul(as<Zor64f>(z), as<Zor64f>(spread(factors))));
    const Z out = select(spread(replaced), z, product);
    return std::is_same_v<Side, LT> ? select(spread(zero), out, same(z, {level, 0})) : out;
  }

  Zor64f level, bound;
};

// The same factor; the magnitude of each part is multiplied, the bias added, the sum truncated.
template <class Side> struct Scale<Side, Zor16sc> {
  using Z = Vec<Zor16sc, 8>;

  explicit Scale(Zor16s l) : level(l), bound(squareOf(l)) {}
  ZORS_INLINE Z operator()(Z z) const {
    const auto m = squares(z);
    const auto replaced = Side::replaced(comparable(m), same(comparable(m), bound));
    if (!any(replaced)) return z;
    const auto square = toDouble(max(m, same(m, 1u)));
    const auto factor = sqrt(div(same(square, bound), square));
    const auto scaled = [&](auto part) ZORS_INLINE_LAMBDA {
      const auto magnitude = toIntegerTowardZero(add(mul(toDouble(abs(part)), factor), same(factor, Side::bias)));
      const auto sign = shiftRight(part, 31);
      return sub(differing(magnitude, sign), sign);
    };
    const Z out = select(replaced, z, as<Zor16sc>(saturated<Zor16s>(Parts{scaled(wideReal(z)), scaled(wideImag(z))})));
    if constexpr (std::is_same_v<Side, LT>) return select(equal(m, same(m, 0u)), out, same(z, {level, 0}));
    return out;
  }

  Zor16s level;
  Zor32s bound;
};

template <class Side, class C, class R> ZorStatus setMagnitude(const C* src, C* dst, Zor32s len, R level) {
  return checks(src, dst, len, level).then([&] {
    if (level == 0)
      map<mapStep<C>>([](auto z) ZORS_INLINE_LAMBDA { return Side::byLevelZero(z); }, len, dst, src);
    else if constexpr (std::is_same_v<C, Zor32fc>)
      mapInOrder<step<C>>(Scale<Side, C>(level), len, dst, src);  // steps from element 0 on
    else
      map<step<C>>(Scale<Side, C>(level), len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsThreshold_LT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level) { return setMagnitude<LT>(src, dst, len, level); }
ZorStatus zorsThreshold_LT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level) { return setMagnitude<LT>(src, dst, len, level); }
ZorStatus zorsThreshold_LT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level) { return setMagnitude<LT>(src, dst, len, level); }
ZorStatus zorsThreshold_LT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level) { return setMagnitude<LT>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_LT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level) { return setMagnitude<LT>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_LT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level) { return setMagnitude<LT>(srcDst, srcDst, len, level); }

ZorStatus zorsThreshold_GT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level) { return setMagnitude<GT>(src, dst, len, level); }
ZorStatus zorsThreshold_GT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level) { return setMagnitude<GT>(src, dst, len, level); }
ZorStatus zorsThreshold_GT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level) { return setMagnitude<GT>(src, dst, len, level); }
ZorStatus zorsThreshold_GT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level) { return setMagnitude<GT>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_GT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level) { return setMagnitude<GT>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_GT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level) { return setMagnitude<GT>(srcDst, srcDst, len, level); }

ZorStatus zorsThreshold_LTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value) { return setValue<LTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_LTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value) { return setValue<LTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_LTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value) { return setValue<LTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_LTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value) { return setValue<LTVal>(srcDst, srcDst, len, level, value); }
ZorStatus zorsThreshold_LTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value) { return setValue<LTVal>(srcDst, srcDst, len, level, value); }
ZorStatus zorsThreshold_LTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value) { return setValue<LTVal>(srcDst, srcDst, len, level, value); }

ZorStatus zorsThreshold_GTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value) { return setValue<GTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_GTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value) { return setValue<GTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_GTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value) { return setValue<GTVal>(src, dst, len, level, value); }
ZorStatus zorsThreshold_GTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value) { return setValue<GTVal>(srcDst, srcDst, len, level, value); }
ZorStatus zorsThreshold_GTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value) { return setValue<GTVal>(srcDst, srcDst, len, level, value); }
ZorStatus zorsThreshold_GTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value) { return setValue<GTVal>(srcDst, srcDst, len, level, value); }
// clang-format on

}  // namespace zors
