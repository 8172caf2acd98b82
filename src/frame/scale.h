// The scale-factor rule: an exact integer t divided by 2^scaleFactor, to nearest, ties to even, saturated to type D.
// withScale picks a policy once per call; a policy takes vectors of t, in any of the forms in which t is exact: a
// vector of a wide enough type, Parts, or a Sum or Difference that is never formed.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "frame/power_of_two.h"
#include "frame/simd.h"
#include "zors/types.h"

namespace zors {

// ---- Exact results ------------------------------------------------------------------------------

// t = a + b, one bit wider than its operands.
template <class V> struct Sum { V a, b; };
template <class V> Sum(V, V) -> Sum<V>;
// t = a - b of signed elements.
template <class V> struct Difference { V a, b; };
template <class V> Difference(V, V) -> Difference<V>;

// t with as much room above it that half of 2^shift can be added.
template <class V> struct Roomy { V t; };
template <class V> Roomy(V) -> Roomy<V>;

// Two wide results for each pair of neighbours: the parts of a complex element, or an even and an odd element.
template <class V> struct Parts { V even, odd; };
template <class V> Parts(V, V) -> Parts<V>;

// The largest shift at which t / 2^shift may round to anything but 0.
template <class T> inline constexpr int largestShift = 0;
template <class T, int L, simd::Order O>
inline constexpr int largestShift<simd::Vec<T, L, O>> = std::numeric_limits<T>::digits;
template <class V> inline constexpr int largestShift<Roomy<V>> = largestShift<V>;
template <class V> inline constexpr int largestShift<Parts<V>> = largestShift<V>;
template <class V> inline constexpr int largestShift<Sum<V>> = largestShift<V> + 1;
template <class V> inline constexpr int largestShift<Difference<V>> = largestShift<V> + 1;

// ---- Saturation ---------------------------------------------------------------------------------

template <class D, class T, int L, simd::Order O> ZORS_INLINE auto saturated(simd::Vec<T, L, O> t) {
  if constexpr (std::is_same_v<T, D>)
    return t;
  else
    return simd::saturate<D>(t);
}
template <class D, class V> ZORS_INLINE auto saturated(Roomy<V> x) { return saturated<D>(x.t); }
template <class D, class V> ZORS_INLINE V saturated(Sum<V> t) { return simd::addSaturated(t.a, t.b); }
template <class D, class V> ZORS_INLINE V saturated(Difference<V> t) { return simd::subSaturated(t.a, t.b); }

template <class D, int L>
requires std::is_same_v<D, Zor16s> ZORS_INLINE simd::Vec<Zor16s, 2 * L> saturated(Parts<simd::Vec<Zor32s, L>> t) {
  const __m256i interleave =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15));
  return simd::build<simd::Vec<Zor16s, 2 * L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_shuffle_epi8(_mm256_packs_epi32(t.even.r[i], t.odd.r[i]), interleave);
  });
}
template <class D, int L>
requires std::is_same_v<D, Zor32s> ZORS_INLINE simd::Vec<Zor32s, 2 * L> saturated(Parts<simd::Vec<Zor64s, L>> t) {
  return simd::build<simd::Vec<Zor32s, 2 * L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i even = t.even.r[i], odd = t.odd.r[i];
    const __m256i low = _mm256_blend_epi32(even, _mm256_slli_epi64(odd, 32), 0xAA);
    const __m256i high = _mm256_blend_epi32(_mm256_srli_epi64(even, 32), odd, 0xAA);
    const __m256i fits = _mm256_cmpeq_epi32(high, _mm256_srai_epi32(low, 31));
    const __m256i bound = _mm256_xor_si256(_mm256_srai_epi32(high, 31), _mm256_set1_epi32(INT32_MAX));
    return _mm256_blendv_epi8(bound, low, fits);
  });
}

// x * 2^shift, saturated; 0 <= shift.
template <class T, int L> ZORS_INLINE simd::Vec<T, L> shiftLeftSaturated(simd::Vec<T, L> x, int shift) {
  using namespace simd;
  using N = std::numeric_limits<T>;
  const int distance = std::min(shift, N::digits);  // so far, or farther, everything but 0 and -1 saturates alike
  const auto shifted = shiftLeft(x, distance);
  if constexpr (std::is_signed_v<T>) {
    const T high = T(N::max() >> distance), low = T(N::min() >> distance);
    const auto limited = select(above(x, same(x, high)), shifted, same(x, N::max()));
    return select(above(same(x, low), x), limited, same(x, N::min()));
  } else {
    const T high = T(distance < N::digits ? N::max() >> distance : 0);
    return select(atLeast(same(x, high), x), same(x, N::max()), shifted);
  }
}

// ---- Rounding -----------------------------------------------------------------------------------

// t / 2^shift to nearest; a tie goes up where the lowest bit of upAtTie is set, else down. Nothing is added to t, so
// nothing overflows; 1 <= shift <= the digits of t.
template <class T, int L, simd::Order O>
ZORS_INLINE simd::Vec<T, L, O> roundedShift(simd::Vec<T, L, O> t, int shift, simd::Vec<T, L, O> upAtTie) {
  using namespace simd;
  using U = std::make_unsigned_t<T>;
  constexpr int width = std::numeric_limits<U>::digits;
  const auto one = same(t, T{1});
  if constexpr (std::is_same_v<T, Zor16s>) {  // the product takes ties up; it loses nothing where t - 1 saturates
    return mulRounded(subSaturated(t, without(upAtTie, one)), same(t, T(1 << (15 - shift))));
  } else {
    const U cut = U(U(~U{0}) >> (width - shift)), half = U(U{1} << (shift - 1));
    const auto quotient = shiftRight(t, shift), up = both(upAtTie, one), rest = both(t, same(t, T(cut)));
    if constexpr (std::is_signed_v<T>)
      return sub(quotient, above(rest, sub(same(t, T(half)), up)));
    else
      return sub(quotient, atLeast(rest, sub(same(t, T(half + 1)), up)));
  }
}
// Ties to even.
template <class T, int L, simd::Order O> ZORS_INLINE simd::Vec<T, L, O> roundedShift(simd::Vec<T, L, O> t, int shift) {
  return roundedShift(t, shift, simd::shiftRight(t, shift));
}
// From a shift of 2 on: (t + half - 1 + odd) / 2^shift, of which the average takes the first bit without overflow.
template <int L, simd::Order O>
ZORS_INLINE simd::Vec<Zor16u, L, O> roundedByAverage(simd::Vec<Zor16u, L, O> t, int shift) {
  using namespace simd;
  const auto odd = both(shiftRight(t, shift), same(t, 1));
  return shiftRight(average(t, add(odd, same(t, Zor16u((1 << (shift - 1)) - 2)))), shift - 1);
}
// The same of signed elements, as rnd says.
template <ZorRoundMode rnd, class T, int L, simd::Order O>
ZORS_INLINE simd::Vec<T, L, O> roundedShiftBy(simd::Vec<T, L, O> t, int shift) {
  using namespace simd;
  const auto zero = same(t, T{0}), negative = above(zero, t);
  if constexpr (rnd == zorRoundNearestEven) {
    return roundedShift(t, shift);
  } else if constexpr (rnd == zorRoundHalfAway) {
    return roundedShift(t, shift, equal(negative, zero));
  } else {
    const auto quotient = shiftRight(t, shift);
    return sub(quotient, without(equal(shiftLeft(quotient, shift), t), negative));
  }
}
template <class V> ZORS_INLINE V roundedShift(Roomy<V> x, int shift) {
  using namespace simd;
  using T = typename V::Element;
  const V odd = both(shiftRight(x.t, shift), same(x.t, T{1}));
  return shiftRight(add(add(x.t, same(x.t, T((T{1} << (shift - 1)) - 1))), odd), shift);
}
template <class V> ZORS_INLINE Parts<V> roundedShift(Parts<V> t, int shift) {
  return {roundedShift(t.even, shift), roundedShift(t.odd, shift)};
}

// t = 2 * half + the lowest bit of last.
template <class V> struct Halved { V half, last; };
template <class V> ZORS_INLINE Halved<V> halved(Sum<V> t) {
  using namespace simd;
  const V last = differing(t.a, t.b);
  if constexpr (requires { average(t.a, t.b); })
    return {sub(average(t.a, t.b), both(last, same(last, 1))), last};
  else
    return {add(both(t.a, t.b), shiftRight(last, 1)), last};
}
template <class V> ZORS_INLINE Halved<V> halved(Difference<V> t) {
  using namespace simd;
  const V last = differing(t.a, t.b);
  return {sub(shiftRight(last, 1), without(t.a, t.b)), last};
}

// ---- The rule -----------------------------------------------------------------------------------

template <class D> struct ScaleNone {
  template <class Exact> ZORS_INLINE auto operator()(Exact t) const { return saturated<D>(t); }
};

template <class D> struct ScaleHalf {  // a shift of 1
  template <class V> ZORS_INLINE auto operator()(Sum<V> t) const {
    const auto [half, last] = halved(t);
    return simd::add(half, up(half, last));
  }
  template <class V> ZORS_INLINE auto operator()(Difference<V> t) const {  // may round to one above the bound
    using namespace simd;
    const auto [half, last] = halved(t);
    return add(half, without(equal(half, same(half, std::numeric_limits<D>::max())), up(half, last)));
  }
  template <class V> ZORS_INLINE auto operator()(Parts<V> t) const {
    return saturated<D>(Parts{rounded(t.even), rounded(t.odd)});
  }
  template <class V> ZORS_INLINE auto operator()(Roomy<V> x) const { return saturated<D>(rounded(x.t)); }
  template <class V> ZORS_INLINE auto operator()(V t) const { return saturated<D>(rounded(t)); }

 private:
  // 1 where the last bit is cut and the half is odd.
  template <class V> ZORS_INLINE static V up(V half, V last) {
    return simd::both(simd::both(half, last), simd::same(half, 1));
  }
  template <class V> ZORS_INLINE static V rounded(V t) {
    const V half = simd::shiftRight(t, 1);
    return simd::add(half, up(half, t));
  }
};

template <class D> struct ScaleDown {  // a shift of 2 or more
  int shift;
  template <class Exact> ZORS_INLINE auto operator()(Exact t) const {
    if constexpr (requires { halved(t); }) {
      const auto [half, last] = halved(t);  // a tie of the half is none if last is set
      return roundedShift(half, shift - 1, simd::either(simd::shiftRight(half, shift - 1), last));
    } else if constexpr (requires { roundedByAverage(t, shift); }) {
      return saturated<D>(roundedByAverage(t, shift));
    } else {
      return saturated<D>(roundedShift(t, shift));
    }
  }
};

template <class D> struct ScaleUp {  // what saturates already saturates when enlarged
  int shift;
  template <class Exact> ZORS_INLINE auto operator()(Exact t) const {
    return shiftLeftSaturated(saturated<D>(t), shift);
  }
};

// run(scale) with the policy of scaleFactor, at most largestShift<Exact>, for results of the form Exact.
template <class D, class Exact, class Run> ZORS_INLINE void withScale(Zor32s scaleFactor, Run&& run) {
  if (scaleFactor == 0)
    run(ScaleNone<D>{});
  else if (scaleFactor < 0)
    run(ScaleUp<D>{scaleFactor < -64 ? 64 : -scaleFactor});
  else if (scaleFactor == 1)
    run(ScaleHalf<D>{});
  else
    run(ScaleDown<D>{scaleFactor});
}

}  // namespace zors
