// What the divisions share: zero divisors, and the exact quotient of integers by floating-point division.
#pragma once

#include <algorithm>
#include <bit>
#include <limits>

#include "frame/products.h"
#include "zors/types.h"

namespace zors {

// Whether a kernel has met a zero divisor.
class ZeroDivisors {
 public:
  // All ones in the lanes of a zero divisor.
  template <class V> ZORS_INLINE void see(V isZero) {
    for (const auto& r : isZero.r) seen_ = _mm256_or_si256(seen_, simd::bits(r));
  }
  ZorStatus status() const { return _mm256_testz_si256(seen_, seen_) ? zorStatusOk : zorWarningDivideByZero; }

 private:
  __m256i seen_ = _mm256_setzero_si256();
};

// The scale factors in which a member computes. Above `most` every quotient rounds to zero, as at most + 1; below
// `least` every one that is not zero takes the bound of its sign, as at `below`.
struct ScaleRange {
  int least, most, below;
  constexpr int drawnIn(Zor32s scaleFactor) const {
    return scaleFactor > most ? most + 1 : scaleFactor < least ? below : scaleFactor;
  }
};

template <class F> constexpr F powerOfTwo(int exponent) {  // of a normal number
  if constexpr (sizeof(F) == 4)
    return std::bit_cast<F>(static_cast<Zor32u>(127 + exponent) << 23);
  else
    return std::bit_cast<F>(static_cast<Zor64u>(1023 + exponent) << 52);
}

// The quotient dividend * 2^-scale / divisor of integers, rounded by rnd, as 32 bits that saturate to D; exact in every
// direction of the control word. A zero divisor counts as a tiny one: the quotient is beyond D on the side of the
// dividend's sign, or zero.
//
// With a dividend n * 2^-scale = N the quotient q is a half-integer h, or differs from each by at least
// 1 / (2 * divisor) = q / (2 * N). Division in F gives q itself where it can be represented, as half-integers and
// integers are, and else a value less than a unit in the last place of q away, which never is on the other side of h.
// It is not h either if
//  - N < 2^22 in binary32, N <= 2^51 in binary64, since then q / (2 * N) is at least that unit; or
//  - q is so small where it matters that 1 / (2 * divisor) is.
// Elsewhere, in a `corrected` quotient, it may be h: then the remainder tells. The other two modes cut at integers, or
// at half-integers toward a fixed side, which lie as far away.
template <class D, class F, ZorRoundMode rnd, bool corrected = false> class Quotient {
 public:
  explicit Quotient(int scale)
      : factor_(powerOfTwo<F>(-scale)), tiny_(powerOfTwo<F>(std::min(-scale - std::numeric_limits<D>::digits, -1))) {}

  // A zero divisor has no sign.
  template <int L, simd::Order O>
  ZORS_INLINE simd::Vec<Zor32s, L, O> operator()(simd::Vec<F, L, O> n, simd::Vec<F, L, O> divisor) const {
    using namespace simd;
    const auto scaled = mul(n, same(n, factor_));
    // Powers of two below 1 are less than all integers but zero as words of bits, too.
    const auto d = as<F>(max(as<Zor32u>(divisor), as<Zor32u>(same(divisor, tiny_))));
    auto q = rounded(div(scaled, d));
    if constexpr (corrected) q = add(q, correction(fnma(q, d, scaled), d));
    // Quotients of 16 unsigned bits and those in binary64 may not fit 32 bits.
    if constexpr (sizeof(F) == 8 || std::is_same_v<D, Zor16u>) q = min(q, same(q, F(std::numeric_limits<D>::max())));
    if constexpr (sizeof(F) == 8) q = max(q, same(q, F(std::numeric_limits<D>::min())));
    return toIntegerTowardZero(q);
  }

 private:
  // Half away: q + 0.5 is exact, or q is so far below 0.5 that the sum stays below 1. The conversion cuts the rest off.
  template <class V> ZORS_INLINE static V rounded(V q) {
    using namespace simd;
    if constexpr (rnd == zorRoundNearestEven)
      return nearestIntegral(q);
    else if constexpr (rnd == zorRoundHalfAway)
      return add(q, either(signOf(q), same(q, F(0.5))));
    else
      return q;
  }
  // One up or down where the remainder, exact, is more than half the divisor; at half, q was a tie and is even.
  template <class V> ZORS_INLINE static V correction(V remainder, V d) {
    using namespace simd;
    static_assert(rnd == zorRoundNearestEven);
    const auto isMore = below(magnitude(d), magnitude(add(remainder, remainder)));
    return both(isMore, either(signOf(differing(remainder, d)), same(d, F(1))));
  }

  F factor_, tiny_;
};

// 8- and 16-bit elements as wider ones in the order that unpacking leaves, and back with saturation.
template <class N, int L> ZORS_INLINE simd::Split<Zor32s, L> unpacked(simd::Vec<N, L> x) {
  using namespace simd;
  if constexpr (sizeof(N) == 1) {
    const auto words = widen(x);
    return widen(build<Vec<Zor16u, L>>([&](auto i) ZORS_INLINE_LAMBDA { return words.r[i]; }));
  } else {
    return widen(x);
  }
}
template <class D, int L> ZORS_INLINE simd::Vec<D, L> packed(simd::Split<Zor32s, L> x) {
  using namespace simd;
  if constexpr (sizeof(D) == 1) {
    const auto words = simd::saturate<Zor16s>(x);
    return simd::saturate<D>(build<Split<Zor16s, L>>([&](auto i) ZORS_INLINE_LAMBDA { return words.r[i]; }));
  } else {
    return simd::saturate<D>(x);
  }
}

// Elements of two vectors, or of one and a constant: kernels of `map`.
template <class D, class F, ZorRoundMode rnd, bool corrected = false> class IntegerDivision {
 public:
  explicit IntegerDivision(int scale) : quotient_(scale) {}

  template <class S1, class S2, int L>
  ZORS_INLINE simd::Vec<D, L> operator()(simd::Vec<S1, L> divisor, simd::Vec<S2, L> n) {
    using namespace simd;
    zeros_.see(equal(divisor, same(divisor, S1{0})));
    if constexpr (std::is_same_v<F, Zor32f>) {
      return packed<D>(quotient_(toFloat(unpacked(n)), toFloat(unpacked(divisor))));
    } else {
      const auto q = quotient_(doubles(n), doubles(divisor));
      if constexpr (sizeof(D) == 4)
        return q;
      else
        return simd::saturate<D>(q);
    }
  }
  ZorStatus status() const { return zeros_.status(); }

 private:
  template <class N, int L> ZORS_INLINE static simd::Vec<Zor64f, L> doubles(simd::Vec<N, L> x) {
    if constexpr (sizeof(N) == 4)
      return simd::toDouble(x);
    else
      return simd::toDouble(simd::extend<Zor32s>(x));
  }

  Quotient<D, F, rnd, corrected> quotient_;
  ZeroDivisors zeros_;
};

// The parts of n * conj(d) / |d|^2. For a real part of 2^31, of four parts of -32768, Times gives 2^31 - 1: the
// quotient, next to a power of two, rounds to the same at every scale.
class ComplexIntegerDivision {
 public:
  explicit ComplexIntegerDivision(int scale) : quotient_(scale) {}

  template <int L>
  ZORS_INLINE simd::Vec<Zor16sc, L> operator()(simd::Vec<Zor16sc, L> divisor, simd::Vec<Zor16sc, L> n) {
    using namespace simd;
    const auto words = as<Zor32s>(divisor);
    const auto isZero = equal(words, same(words, 0));
    zeros_.see(isZero);
    const auto d = as<Zor16sc>(sub(words, isZero));     // 1 for 0: the parts are those of n
    const auto [im, re] = Times{}(d, swappedParts(n));  // d.re * n.im - d.im * n.re, d.re * n.re + d.im * n.im
    const auto norm = squaredMagnitude(divisor);
    const auto part = [&](auto t) ZORS_INLINE_LAMBDA { return quotient_(toDouble(t), norm); };
    return as<Zor16sc>(saturated<Zor16s>(Parts{part(re), part(im)}));
  }
  ZorStatus status() const { return zeros_.status(); }

 private:
  // At most 2^31, which wraps: one less fits. Rounding downward, -1 + 1 is a zero with a sign.
  template <int L> ZORS_INLINE static simd::Vec<Zor64f, L> squaredMagnitude(simd::Vec<Zor16sc, L> z) {
    using namespace simd;
    const auto oneLess = toDouble(build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
      return _mm256_sub_epi32(_mm256_madd_epi16(z.r[i], z.r[i]), _mm256_set1_epi32(1));
    }));
    return simd::magnitude(add(oneLess, same(oneLess, 1.0)));
  }

  Quotient<Zor16s, Zor64f, zorRoundNearestEven> quotient_;
  ZeroDivisors zeros_;
};

// The kernel with its divisor, or its dividend, one value for all elements.
template <class Division, class T> struct DivisionBy {
  Division division;
  T divisor;
  template <class V> ZORS_INLINE auto operator()(V n) { return division(simd::same(n, divisor), n); }
};
template <class Division, class T> DivisionBy(Division, T) -> DivisionBy<Division, T>;
template <class Division, class T> struct DivisionOf {
  Division division;
  T dividend;
  template <class V> ZORS_INLINE auto operator()(V d) { return division(d, simd::same(d, dividend)); }
};
template <class Division, class T> DivisionOf(Division, T) -> DivisionOf<Division, T>;

// run(division) in the cheapest type that is exact. Of 8 bits, quotients that matter and divisors are below 2^8: their
// product is less than binary32 resolves. Of 16 bits, N is below 2^22 down to a scale of -6; for binary64 quotients
// that matter, below 2^16, are small. Of 32 bits, N is at most 2^51 down to -20; 16-bit quotients are small again.
template <class D, class S, ZorRoundMode rnd, class Run> ZORS_INLINE ZorStatus withDivision(int scale, Run&& run) {
  if constexpr (sizeof(S) == 1) {
    return run(IntegerDivision<D, Zor32f, rnd>(scale));
  } else if constexpr (sizeof(S) == 2) {
    return scale >= -6 ? run(IntegerDivision<D, Zor32f, rnd>(scale)) : run(IntegerDivision<D, Zor64f, rnd>(scale));
  } else if constexpr (sizeof(D) == 2) {
    return run(IntegerDivision<D, Zor64f, rnd>(scale));
  } else {
    return scale >= -20 ? run(IntegerDivision<D, Zor64f, rnd>(scale))
                        : run(IntegerDivision<D, Zor64f, rnd, true>(scale));
  }
}

}  // namespace zors
