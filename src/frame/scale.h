// The scale-factor rule: an exact integer t divided by 2^scaleFactor, to nearest, ties to even, saturated to type D.
// withScale picks one of three policies once per call; a policy takes vectors of t in a width in which t is exact.
#pragma once

#include <algorithm>
#include <limits>

#include "frame/simd.h"

namespace zors {

template <class D> struct ScaleNone {
  template <class V> ZORS_INLINE auto operator()(V t) const { return simd::saturate<D>(t); }
};

template <class D> struct ScaleDown {  // nothing is added to t, so nothing overflows; 1 <= shift < width of t - 1
  int shift;
  template <class T, int L, simd::Order O> ZORS_INLINE auto operator()(simd::Vec<T, L, O> t) const {
    using namespace simd;
    const auto half = same(t, T(T{1} << (shift - 1))), cutMask = same(t, T((T{1} << shift) - 1));
    const auto quotient = shiftRight(t, shift);
    const auto roundUp = above(both(t, cutMask), sub(half, both(quotient, same(t, T{1}))));  // -1 or 0
    return saturate<D>(sub(quotient, roundUp));
  }
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
  if (scaleFactor == 0) run(ScaleNone<D>{});
  else if (scaleFactor > 0) run(ScaleDown<D>{scaleFactor});
  else run(ScaleUp<D>{scaleFactor < -64 ? 64 : -scaleFactor});
}

}  // namespace zors
