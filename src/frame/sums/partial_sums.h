// The layouts in which the float reductions keep partial sums. Every operation rounds once in the current direction and
// none is fused. Unless a family says otherwise element k belongs to sum k mod n, the rest that fills no row of n
// included.
#pragma once

#include "frame/sums/rows.h"
#include "zors/types.h"

namespace zors::sums {

using simd::Vec;

template <class T> ZORS_INLINE std::ptrdiff_t elementsToBoundary(const T* p, unsigned boundary) {
  return std::ptrdiff_t((boundary - reinterpret_cast<std::uintptr_t>(p) % boundary) % boundary / sizeof(T));
}
template <class T> ZORS_INLINE bool aligned(const T* p, unsigned boundary) {
  return reinterpret_cast<std::uintptr_t>(p) % boundary == 0;
}

// In binary64: binary32 widened, exact integers too, binary64 as it is.
template <class T, int L> ZORS_INLINE Vec<Zor64f, L> widened(Vec<T, L> x) {
  if constexpr (std::is_same_v<T, Zor64f>)
    return x;
  else
    return simd::toDouble(x);
}
// L lanes loaded and widened half a register at a time: a load converts as it goes.
template <int L> ZORS_INLINE Vec<Zor64f, L> loadWide(const Zor32f* p) {
  return simd::build<Vec<Zor64f, L>>([&](auto i)
                                         ZORS_INLINE_LAMBDA { return _mm256_cvtps_pd(_mm_loadu_ps(p + 4 * i)); });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> loadWide(const Zor64f* p) { return simd::load<L>(p); }

// Half as many sums: j and j + L / 2 become one.
template <int L, class T>
requires(Vec<T, L>::registers > 1) ZORS_INLINE Vec<T, L / 2> halved(Vec<T, L> x) {
  return simd::build<Vec<T, L / 2>>([&](auto i) ZORS_INLINE_LAMBDA {
    constexpr int half = Vec<T, L>::registers / 2;
    return simd::add(Vec<T, simd::lanesOf<T>>{{x.r[i]}}, Vec<T, simd::lanesOf<T>>{{x.r[i + half]}}).r[0];
  });
}

// The sums of even and of odd lanes of n, each of halves joined to the last: (p0 + p4) + (p2 + p6) and (p1 + p5) + (p3
// + p7).
template <class T> struct Pair { T even, odd; };
template <int L> ZORS_INLINE Pair<Zor64f> joined(Vec<Zor64f, L> x) {
  if constexpr (L > 4)
    return joined(halved(x));
  else {
    const __m128d both = _mm_add_pd(_mm256_castpd256_pd128(x.r[0]), _mm256_extractf128_pd(x.r[0], 1));
    return {_mm_cvtsd_f64(both), _mm_cvtsd_f64(_mm_unpackhi_pd(both, both))};
  }
}
ZORS_INLINE Pair<Zor32f> joinedFour(__m128 four) {
  const __m128 both = _mm_add_ps(four, _mm_movehl_ps(four, four));
  return {_mm_cvtss_f32(both), _mm_cvtss_f32(_mm_shuffle_ps(both, both, 1))};
}
template <int L> ZORS_INLINE Pair<Zor32f> joined(Vec<Zor32f, L> x) {
  if constexpr (L > 8)
    return joined(halved(x));
  else
    return joinedFour(_mm_add_ps(_mm256_castps256_ps128(x.r[0]), _mm256_extractf128_ps(x.r[0], 1)));
}
// All in one: the even sums, then the odd ones.
template <class T, int L> ZORS_INLINE T folded(Vec<T, L> x) {
  const auto [even, odd] = joined(x);
  return even + odd;
}

// lanes, all zero but the first ones.
template <class T, int L> ZORS_INLINE Vec<T, L> seeded(T first, T second = 0) {
  auto lanes = simd::splat<Vec<T, L>>(0);
  if constexpr (sizeof(T) == 8)
    lanes.r[0] = _mm256_setr_pd(first, second, 0, 0);
  else
    lanes.r[0] = _mm256_setr_ps(first, second, 0, 0, 0, 0, 0, 0);
  return lanes;
}

}  // namespace zors::sums
