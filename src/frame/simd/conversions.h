// Between integer and float elements.
#pragma once

#include "frame/simd/lanes.h"

namespace zors::simd {

// ---- Integer and float --------------------------------------------------------------------------

template <int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> toFloat(Vec<Zor32s, L, O> x) {
  return build<Vec<Zor32f, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvtepi32_ps(x.r[i]); });
}
template <class N, int L>
requires(sizeof(N) < 4) ZORS_INLINE Vec<Zor32f, L> toFloat(Vec<N, L> x) { return toFloat(extend<Zor32s>(x)); }
template <int L> ZORS_INLINE Vec<Zor32f, L> toFloat(Vec<Zor64f, L> x) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128(_mm256_cvtpd_ps(x.r[2 * i + 1]), _mm256_cvtpd_ps(x.r[2 * i]));
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32f, L> x) {  // exact
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_cvtps_pd(i % 2 == 0 ? _mm256_castps256_ps128(x.r[i / 2]) : _mm256_extractf128_ps(x.r[i / 2], 1));
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32s, L> x) {  // exact
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_cvtepi32_pd(i % 2 == 0 ? _mm256_castsi256_si128(x.r[i / 2])
                                         : _mm256_extracti128_si256(x.r[i / 2], 1));
  });
}
// Unsigned, exact: 2^52 + x, less 2^52. Zero is +0 in every direction.
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32u, L> x) {
  const __m256d bias = _mm256_set1_pd(0x1p52);
  return magnitude(build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i wide = _mm256_cvtepu32_epi64(lowPart<Zor64u>(x, i));
    return _mm256_sub_pd(_mm256_or_pd(_mm256_castsi256_pd(wide), bias), bias);
  }));
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor16s, L> x) { return toDouble(extend<Zor32s>(x)); }
// Two exact halves, 2^52 + low and high - 2^52, and their sum: one rounding. Zero is +0 in every direction.
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor64s, L> x) {
  const __m256i lowBias = _mm256_set1_epi64x(0x4330000000000000), highBias = _mm256_set1_epi64x(0x4530000080000000);
  const __m256d bias = _mm256_set1_pd(0x1p84 + 0x1p63 + 0x1p52);
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d low = _mm256_castsi256_pd(_mm256_blend_epi32(x.r[i], lowBias, 0xAA));
    const __m256d high = _mm256_castsi256_pd(_mm256_xor_si256(_mm256_srli_epi64(x.r[i], 32), highBias));
    const __m256d zero = _mm256_castsi256_pd(_mm256_cmpeq_epi64(x.r[i], _mm256_setzero_si256()));
    return _mm256_andnot_pd(zero, _mm256_add_pd(_mm256_sub_pd(high, bias), low));
  });
}
// To integers that stay floats: to nearest, ties to even, in every direction.
template <int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> nearestIntegral(Vec<Zor32f, L, O> x) {
  return build<Vec<Zor32f, L, O>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_round_ps(x.r[i], _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> nearestIntegral(Vec<Zor64f, L> x) {
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_round_pd(x.r[i], _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> integralTowardZero(Vec<Zor64f, L> x) {
  return build<Vec<Zor64f, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_round_pd(x.r[i], _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC); });
}
// Of integral values from -2^63 to below 2^63, by halves that the mantissa holds; exact in every direction.
template <int L> ZORS_INLINE Vec<Zor64s, L> integralToInteger(Vec<Zor64f, L> x) {
  const auto bias = same(x, 0x1.8p52);
  const auto high = nearestIntegral(mul(x, same(x, 0x1p-32)));
  const auto low = fnma(high, same(x, 0x1p32), x);
  return add(shiftLeft(as<Zor64s>(add(high, bias)), 32), sub(as<Zor64s>(add(low, bias)), as<Zor64s>(bias)));
}
// NaN and values out of range give 0x80000000.
template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerCurrent(Vec<Zor32f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvtps_epi32(x.r[i]); });
}
template <int L, Order O> ZORS_INLINE Vec<Zor32s, L, O> toIntegerTowardZero(Vec<Zor32f, L, O> x) {
  return build<Vec<Zor32s, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvttps_epi32(x.r[i]); });
}

template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerCurrent(Vec<Zor64f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128i(_mm256_cvtpd_epi32(x.r[2 * i + 1]), _mm256_cvtpd_epi32(x.r[2 * i]));
  });
}
template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerTowardZero(Vec<Zor64f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128i(_mm256_cvttpd_epi32(x.r[2 * i + 1]), _mm256_cvttpd_epi32(x.r[2 * i]));
  });
}

// The low 32 bits of integral values below 2^51.
template <int L> ZORS_INLINE Vec<Zor32u, L> lowWords(Vec<Zor64f, L> x) {
  const auto words = add(x, same(x, 0x1.8p52));
  return build<Vec<Zor32u, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 halves =
        _mm256_shuffle_ps(_mm256_castpd_ps(words.r[2 * i]), _mm256_castpd_ps(words.r[2 * i + 1]), 0x88);
    return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
  });
}

}  // namespace zors::simd
