// Squared magnitudes of complex elements.
#pragma once

#include "frame/simd.h"
#include "zors/types.h"

namespace zors {

// ---- One lane an element, for tests and factors, and back to both parts -------------------------

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

// ---- Exact sums of squares of integers ----------------------------------------------------------

template <int L> ZORS_INLINE simd::Vec<Zor32u, L> exactSquares(simd::Vec<Zor16sc, L> z) { return squares(z); }
template <int L> ZORS_INLINE simd::Split<Zor32u, L> exactSquares(simd::Vec<Zor16s, L> re, simd::Vec<Zor16s, L> im) {
  return simd::build<simd::Split<Zor32u, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i pairs =
        i % 2 == 0 ? _mm256_unpacklo_epi16(re.r[i / 2], im.r[i / 2]) : _mm256_unpackhi_epi16(re.r[i / 2], im.r[i / 2]);
    return _mm256_madd_epi16(pairs, pairs);
  });
}
template <int L> ZORS_INLINE simd::Vec<Zor64u, L> exactSquares(simd::Vec<Zor32sc, L> z) {  // up to 2^63
  return simd::build<simd::Vec<Zor64u, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i re = z.r[i], im = _mm256_srli_epi64(re, 32);
    return _mm256_add_epi64(_mm256_mul_epi32(re, re), _mm256_mul_epi32(im, im));
  });
}
template <int L> ZORS_INLINE simd::Vec<Zor32u, L> inOrder(simd::Vec<Zor32u, L> x) { return x; }
template <int L> ZORS_INLINE simd::Vec<Zor32u, L> inOrder(simd::Split<Zor32u, L> x) { return simd::inOrder(x); }

// ---- Floats -------------------------------------------------------------------------------------

// fma(re, re, round(im^2)).
template <class V> ZORS_INLINE V fusedSquares(V re, V im) { return simd::fma(re, re, simd::mul(im, im)); }
// Interleaved elements, and the two parts in one operation.
template <class Z> ZORS_INLINE auto fusedSquares(Z z) { return fusedSquares(simd::realPart(z), simd::imagPart(z)); }

}  // namespace zors
