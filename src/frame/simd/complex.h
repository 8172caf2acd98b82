// Complex elements: parts apart and together, products.
#pragma once

#include "frame/simd/lanes.h"

namespace zors::simd {

// ---- Complex elements ---------------------------------------------------------------------------

// The real parts of two registers' pairs, or the imaginary ones, memory order.
template <int part, int L> ZORS_INLINE Vec<Zor32f, L> partOf(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 halves = _mm256_shuffle_ps(z.r[2 * i], z.r[2 * i + 1], part == 0 ? 0x88 : 0xDD);
    return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(halves), 0xD8));
  });
}
template <int part, int L> ZORS_INLINE Vec<Zor64f, L> partOf(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_permute4x64_pd(_mm256_shuffle_pd(z.r[2 * i], z.r[2 * i + 1], part == 0 ? 0x0 : 0xF), 0xD8);
  });
}
template <int part, int L> ZORS_INLINE Vec<Zor16s, L> partOf(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto words = [&](__m256i x) ZORS_INLINE_LAMBDA {
      return part == 0 ? _mm256_srai_epi32(_mm256_slli_epi32(x, 16), 16) : _mm256_srai_epi32(x, 16);
    };
    return _mm256_permute4x64_epi64(_mm256_packs_epi32(words(z.r[2 * i]), words(z.r[2 * i + 1])), 0xD8);
  });
}
template <class V> ZORS_INLINE auto realPart(V z) { return partOf<0>(z); }
template <class V> ZORS_INLINE auto imagPart(V z) { return partOf<1>(z); }

// Pairs from two vectors.
template <int L> ZORS_INLINE Vec<Zor32fc, L> toComplex(Vec<Zor32f, L> re, Vec<Zor32f, L> im) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 low = _mm256_unpacklo_ps(re.r[i / 2], im.r[i / 2]),
                 high = _mm256_unpackhi_ps(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2f128_ps(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> toComplex(Vec<Zor64f, L> re, Vec<Zor64f, L> im) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d low = _mm256_unpacklo_pd(re.r[i / 2], im.r[i / 2]),
                  high = _mm256_unpackhi_pd(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2f128_pd(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
template <int L> ZORS_INLINE Vec<Zor16sc, L> toComplex(Vec<Zor16s, L> re, Vec<Zor16s, L> im) {
  return build<Vec<Zor16sc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i low = _mm256_unpacklo_epi16(re.r[i / 2], im.r[i / 2]),
                  high = _mm256_unpackhi_epi16(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2x128_si256(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
// The parts of 16-bit pairs in 32 bits.
template <int L> ZORS_INLINE Vec<Zor32s, L> wideReal(Vec<Zor16sc, L> z) {
  return shiftRight(shiftLeft(as<Zor32s>(z), 16), 16);
}
template <int L> ZORS_INLINE Vec<Zor32s, L> wideImag(Vec<Zor16sc, L> z) { return shiftRight(as<Zor32s>(z), 16); }

// Pairwise products: t1 = round(b.im * a.im), t2 = round(b.im * a.re), re = fma(b.re, a.re, -t1), im = fma(b.re, a.im,
// t2).
template <int L> ZORS_INLINE Vec<Zor32fc, L> mul(Vec<Zor32fc, L> a, Vec<Zor32fc, L> b) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 swapped = _mm256_permute_ps(a.r[i], 0xB1);
    return _mm256_fmaddsub_ps(_mm256_moveldup_ps(b.r[i]), a.r[i], _mm256_mul_ps(_mm256_movehdup_ps(b.r[i]), swapped));
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> mul(Vec<Zor64fc, L> a, Vec<Zor64fc, L> b) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d swapped = _mm256_permute_pd(a.r[i], 0x5);
    return _mm256_fmaddsub_pd(_mm256_movedup_pd(b.r[i]), a.r[i],
                              _mm256_mul_pd(_mm256_permute_pd(b.r[i], 0xF), swapped));
  });
}

// (im, re).
template <int L> ZORS_INLINE Vec<Zor16sc, L> swappedParts(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16sc, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(z.r[i], 0xB1), 0xB1); });
}
template <int L> ZORS_INLINE Vec<Zor32fc, L> swappedParts(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute_ps(z.r[i], 0xB1); });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> swappedParts(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute_pd(z.r[i], 0x5); });
}

// Floats change the sign bit, of zeros and NaN too; 16-bit parts negate with saturation.
template <int L> ZORS_INLINE Vec<Zor32fc, L> conjugate(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_xor_ps(z.r[i], _mm256_castsi256_ps(_mm256_set1_epi64x(INT64_MIN)));
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> conjugate(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64fc, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_xor_pd(z.r[i], _mm256_setr_pd(0.0, -0.0, 0.0, -0.0)); });
}
template <int L> ZORS_INLINE Vec<Zor16sc, L> conjugate(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16sc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_blend_epi16(z.r[i], _mm256_subs_epi16(_mm256_setzero_si256(), z.r[i]), 0xAA);
  });
}

// The elements in reverse.
template <class T, int L> ZORS_INLINE Vec<T, L> reversed(Vec<T, L> x) {
  using V = Vec<T, L>;
  return build<V>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i r = bits(x.r[V::registers - 1 - i]);
    if constexpr (sizeof(T) == 4)
      return fromBits<typename V::Register>(_mm256_permutevar8x32_epi32(r, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0)));
    else if constexpr (sizeof(T) == 8)
      return fromBits<typename V::Register>(_mm256_permute4x64_epi64(r, 0x1B));
    else {
      static_assert(sizeof(T) == 16);
      return fromBits<typename V::Register>(_mm256_permute4x64_epi64(r, 0x4E));
    }
  });
}

// The elements of one register moved up by one, with zero below them.
template <class T, int L> ZORS_INLINE Vec<T, L> movedUp(Vec<T, L> x) {
  static_assert(Vec<T, L>::registers == 1);
  const __m256i r = bits(x.r[0]), lowUp = _mm256_permute2x128_si256(r, r, 0x08);
  return {{fromBits<typename Vec<T, L>::Register>(_mm256_alignr_epi8(r, lowUp, 16 - int{sizeof(T)}))}};
}

// table[index] for indices below 16, and 0 for those with the top bit set.
template <int L> ZORS_INLINE Vec<Zor8u, L> lookUp(const Zor8u (&table)[16], Vec<Zor8u, L> index) {
  const __m256i entries = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table)));
  return build<Vec<Zor8u, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_shuffle_epi8(entries, index.r[i]); });
}

template <int part, int L> ZORS_INLINE Vec<Zor8s, L> partOf(Vec<Zor8sc, L> z) {
  return build<Vec<Zor8s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto bytes = [&](__m256i x) ZORS_INLINE_LAMBDA {
      return _mm256_srai_epi16(part == 0 ? _mm256_slli_epi16(x, 8) : x, 8);
    };
    return _mm256_permute4x64_epi64(_mm256_packs_epi16(bytes(z.r[2 * i]), bytes(z.r[2 * i + 1])), 0xD8);
  });
}
template <int part, int L> ZORS_INLINE Vec<Zor32s, L> partOf(Vec<Zor32sc, L> z) {
  return as<Zor32s>(partOf<part>(as<Zor32fc>(z)));
}
template <int part, int L> ZORS_INLINE Vec<Zor64s, L> partOf(Vec<Zor64sc, L> z) {
  return as<Zor64s>(partOf<part>(as<Zor64fc>(z)));
}
template <int L> ZORS_INLINE Vec<Zor8sc, L> toComplex(Vec<Zor8s, L> re, Vec<Zor8s, L> im) {
  return build<Vec<Zor8sc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i low = _mm256_unpacklo_epi8(re.r[i / 2], im.r[i / 2]),
                  high = _mm256_unpackhi_epi8(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2x128_si256(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
template <int L> ZORS_INLINE Vec<Zor32sc, L> toComplex(Vec<Zor32s, L> re, Vec<Zor32s, L> im) {
  return as<Zor32sc>(toComplex(as<Zor32f>(re), as<Zor32f>(im)));
}
template <int L> ZORS_INLINE Vec<Zor64sc, L> toComplex(Vec<Zor64s, L> re, Vec<Zor64s, L> im) {
  return as<Zor64sc>(toComplex(as<Zor64f>(re), as<Zor64f>(im)));
}

}  // namespace zors::simd
