// Squared magnitudes of complex elements for tests and factors, one lane an element, and factors back to both parts.
#pragma once

#include "frame/simd.h"

namespace zors {

// One lane for each element of two registers, in the order that pairwise sums within 128-bit halves leave: it cannot be
// stored, and spread() undoes it.
template <class T, int L> using Pairwise = simd::Split<T, L>;

// round(round(re^2) + round(im^2)).
template <int L> ZORS_INLINE Pairwise<Zor32f, L> squares(simd::Vec<Zor32fc, L> z) {
  return simd::build<Pairwise<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 a = z.r[2 * i], b = z.r[2 * i + 1];
    return _mm256_hadd_ps(_mm256_mul_ps(a, a), _mm256_mul_ps(b, b));
  });
}
template <int L> ZORS_INLINE Pairwise<Zor64f, L> squares(simd::Vec<Zor64fc, L> z) {
  return simd::build<Pairwise<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d a = z.r[2 * i], b = z.r[2 * i + 1];
    return _mm256_hadd_pd(_mm256_mul_pd(a, a), _mm256_mul_pd(b, b));
  });
}
// Exact, up to 2^31; memory order.
template <int L> ZORS_INLINE simd::Vec<Zor32u, L> squares(simd::Vec<Zor16sc, L> z) {
  return simd::build<simd::Vec<Zor32u, L>>([&](auto i)
                                               ZORS_INLINE_LAMBDA { return _mm256_madd_epi16(z.r[i], z.r[i]); });
}

// Each lane twice, in the places of its element's parts.
template <int L> ZORS_INLINE simd::Vec<Zor32fc, L> spread(Pairwise<Zor32f, L> x) {
  return simd::build<simd::Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 r = x.r[i / 2];
    return i % 2 == 0 ? _mm256_unpacklo_ps(r, r) : _mm256_unpackhi_ps(r, r);
  });
}
template <int L> ZORS_INLINE simd::Vec<Zor64fc, L> spread(Pairwise<Zor64f, L> x) {
  return simd::build<simd::Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d r = x.r[i / 2];
    return i % 2 == 0 ? _mm256_unpacklo_pd(r, r) : _mm256_unpackhi_pd(r, r);
  });
}
template <int L> ZORS_INLINE simd::Vec<Zor32s, L> spread(simd::Vec<Zor32s, L> x) { return x; }

}  // namespace zors
