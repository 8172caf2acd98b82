// The scale-factor rule: an exact integer t divided by 2^scaleFactor, to nearest, ties to even, saturated to type D.
// withScale picks one of three policies once per call; a policy takes vectors of t in a width in which t is exact.
#pragma once

#include <algorithm>
#include <limits>
#include <type_traits>

#include "frame/simd.h"

namespace zors {

template <class D> struct ScaleNone {
  template <class V> ZORS_INLINE auto operator()(V t) const { return simd::saturate<D>(t); }
};

// t / 2^shift to nearest, ties to even. Nothing is added to t, so nothing overflows; 1 <= shift < width of t. An
// unsigned t is compared as a signed one below its top bit, which no cut part reaches.
template <class T, int L, simd::Order O> ZORS_INLINE simd::Vec<T, L, O> roundedShift(simd::Vec<T, L, O> t, int shift) {
  using namespace simd;
  using S = std::make_signed_t<T>;
  using U = std::make_unsigned_t<T>;
  const auto half = same(as<S>(t), S(U{1} << (shift - 1))), cutMask = same(as<S>(t), S((U{1} << shift) - 1));
  const auto quotient = shiftRight(t, shift);
  const auto odd = both(as<S>(quotient), same(as<S>(t), S{1}));
  const auto roundUp = above(both(as<S>(t), cutMask), sub(half, odd));  // -1 or 0
  return as<T>(sub(as<S>(quotient), roundUp));
}

template <class D> struct ScaleDown {
  int shift;
  template <class V> ZORS_INLINE auto operator()(V t) const { return simd::saturate<D>(roundedShift(t, shift)); }
};

template <class D> struct ScaleUp {  // t is drawn in to the nearest value that still saturates, then shifted
  int shift;
  template <class T, int L, simd::Order O> ZORS_INLINE auto operator()(simd::Vec<T, L, O> t) const {
    using namespace simd;
    constexpr T low = std::numeric_limits<D>::min(), high = std::numeric_limits<D>::max();
    const int distance = std::min(shift, std::numeric_limits<D>::digits + 1);
    const T lowest = T((low >> distance) - (low < 0)), highest = T((high >> distance) + 1);
    return saturate<D>(shiftLeft(min(max(t, same(t, lowest)), same(t, highest)), distance));
  }
};

// run(scale) with the policy of scaleFactor; a positive one must leave shift within what ScaleDown allows.
template <class D, class Run> ZORS_INLINE void withScale(Zor32s scaleFactor, Run&& run) {
  if (scaleFactor == 0)
    run(ScaleNone<D>{});
  else if (scaleFactor > 0)
    run(ScaleDown<D>{scaleFactor});
  else
    run(ScaleUp<D>{scaleFactor < -64 ? 64 : -scaleFactor});
}

}  // namespace zors
