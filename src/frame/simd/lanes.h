// Widening, narrowing, and moves across lanes.
#pragma once

#include "frame/simd/operations.h"

namespace zors::simd {

// ---- Widening and narrowing ---------------------------------------------------------------------

// Two registers for one, unpacked within 128-bit halves: the signed by their sign, the unsigned by zeros.
#define ZORS_WIDEN(N, W, suffix, highPart)                                                           \
  template <int L> ZORS_INLINE Split<W, L> widen(Vec<N, L> x) {                                      \
    return build<Split<W, L>>([&](auto i) ZORS_INLINE_LAMBDA {                                       \
      const __m256i low = x.r[i / 2], high = highPart;                                               \
      return i % 2 == 0 ? _mm256_unpacklo_##suffix(low, high) : _mm256_unpackhi_##suffix(low, high); \
    });                                                                                              \
  }
ZORS_WIDEN(Zor8u, Zor16s, epi8, _mm256_setzero_si256())
ZORS_WIDEN(Zor8s, Zor16s, epi8, _mm256_cmpgt_epi8(_mm256_setzero_si256(), low))
ZORS_WIDEN(Zor16u, Zor32s, epi16, _mm256_setzero_si256())
ZORS_WIDEN(Zor16s, Zor32s, epi16, _mm256_srai_epi16(low, 15))
ZORS_WIDEN(Zor32u, Zor64s, epi32, _mm256_setzero_si256())
ZORS_WIDEN(Zor32s, Zor64s, epi32, _mm256_srai_epi32(low, 31))
#undef ZORS_WIDEN

// Two registers for one, brought to memory order.
template <class T, int L> ZORS_INLINE Vec<T, L> inOrder(Split<T, L> x) {
  return build<Vec<T, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_permute2x128_si256(x.r[i / 2 * 2], x.r[i / 2 * 2 + 1], i % 2 == 0 ? 0x20 : 0x31);
  });
}

// Back to one register for two, saturated, memory order again.
#define ZORS_SATURATE(W, N, instruction)                                                                         \
  template <class D, int L>                                                                                      \
  requires std::is_same_v<D, N> ZORS_INLINE Vec<N, L> saturate(Split<W, L> x) {                                  \
    return build<Vec<N, L>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(x.r[2 * i], x.r[2 * i + 1]); }); \
  }
ZORS_SATURATE(Zor16s, Zor8u, _mm256_packus_epi16)
ZORS_SATURATE(Zor16s, Zor8s, _mm256_packs_epi16)
ZORS_SATURATE(Zor32s, Zor16s, _mm256_packs_epi32)
ZORS_SATURATE(Zor32s, Zor16u, _mm256_packus_epi32)
#undef ZORS_SATURATE

// From unsigned elements, which the instructions read as signed ones.
template <class D, class W, int L>
requires(std::is_unsigned_v<W> && sizeof(W) == 2 * sizeof(D)) ZORS_INLINE Vec<D, L> saturate(Split<W, L> x) {
  using S = std::make_signed_t<W>;
  return saturate<D>(as<S>(min(x, same(x, W{std::numeric_limits<D>::max()}))));
}

// The same from memory order.
template <class D, class W, int L>
requires(sizeof(W) == 2 * sizeof(D)) ZORS_INLINE Vec<D, L> saturate(Vec<W, L> x) {
  const Vec<D, L> halves =
      saturate<D>(Split<W, L>(build<Split<W, L>>([&](auto i) ZORS_INLINE_LAMBDA { return x.r[i]; })));
  return build<Vec<D, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute4x64_epi64(halves.r[i], 0xD8); });
}
template <class D, int L>
requires std::is_same_v<D, Zor32s> ZORS_INLINE Vec<Zor32s, L> saturate(Vec<Zor64u, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto limited = [&](__m256i r) ZORS_INLINE_LAMBDA {
      const __m256i over = _mm256_cmpgt_epi64(_mm256_srli_epi64(r, 31), _mm256_setzero_si256());
      return _mm256_castsi256_ps(_mm256_blendv_epi8(r, _mm256_set1_epi32(INT32_MAX), over));
    };
    const __m256 halves = _mm256_shuffle_ps(limited(x.r[2 * i]), limited(x.r[2 * i + 1]), 0x88);
    return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
  });
}
// Two steps down: 32 to 8 bits.
template <class D, int L>
requires(sizeof(D) == 1) ZORS_INLINE Vec<D, L> saturate(Vec<Zor32s, L> x) { return saturate<D>(saturate<Zor16s>(x)); }

// Elements i * 32 / sizeof(W) on, for register i of a vector of the wider type W: they stand at the bottom.
template <class W, class N, int L> ZORS_INLINE __m128i lowPart(Vec<N, L> x, int i) {
  constexpr int ratio = int{sizeof(W)} / int{sizeof(N)};
  const __m256i r = x.r[i / ratio];
  const int part = i % ratio;
  const __m128i half = part < ratio / 2 ? _mm256_castsi256_si128(r) : _mm256_extracti128_si256(r, 1);
  switch (part % (ratio / 2) * 8 / (ratio / 2)) {  // quarters of the half that is left, in 2 bytes
    case 0:
      return half;
    case 2:
      return _mm_srli_si128(half, 4);
    case 4:
      return _mm_srli_si128(half, 8);
    default:
      return _mm_srli_si128(half, 12);
  }
}
// Wider elements in memory order: the signed by their sign, the unsigned by zeros.
#define ZORS_EXTEND(N, W, instruction)                                                                 \
  template <class D, int L>                                                                            \
  requires std::is_same_v<D, W> ZORS_INLINE Vec<W, L> extend(Vec<N, L> x) {                            \
    return build<Vec<W, L>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(lowPart<W>(x, i)); }); \
  }
ZORS_EXTEND(Zor8u, Zor16u, _mm256_cvtepu8_epi16)
ZORS_EXTEND(Zor8s, Zor16s, _mm256_cvtepi8_epi16)
ZORS_EXTEND(Zor8s, Zor32s, _mm256_cvtepi8_epi32)
ZORS_EXTEND(Zor8u, Zor32s, _mm256_cvtepu8_epi32)
ZORS_EXTEND(Zor16s, Zor32s, _mm256_cvtepi16_epi32)
ZORS_EXTEND(Zor16u, Zor32s, _mm256_cvtepu16_epi32)
ZORS_EXTEND(Zor32s, Zor64s, _mm256_cvtepi32_epi64)
#undef ZORS_EXTEND

// ---- Across lanes -------------------------------------------------------------------------------

// The sum of a register's lanes, by halves: lanes half a register apart first.
ZORS_INLINE Zor32f sumOfLanes(Vec<Zor32f, 8> x) {
  const __m128 four = _mm_add_ps(_mm256_castps256_ps128(x.r[0]), _mm256_extractf128_ps(x.r[0], 1));
  const __m128 two = _mm_add_ps(four, _mm_movehl_ps(four, four));
  return _mm_cvtss_f32(_mm_add_ss(two, _mm_movehdup_ps(two)));
}
ZORS_INLINE Zor64f sumOfLanes(Vec<Zor64f, 4> x) {
  const __m128d two = _mm_add_pd(_mm256_castpd256_pd128(x.r[0]), _mm256_extractf128_pd(x.r[0], 1));
  return _mm_cvtsd_f64(_mm_add_sd(two, _mm_unpackhi_pd(two, two)));
}

}  // namespace zors::simd
