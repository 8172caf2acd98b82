// zorsFlip_*: vectors in reverse. Raw items: no value is looked at.
#include "exports/memory.h"
#include "frame/check.h"
#include "memory/blocks.h"

namespace zors {
namespace {

using namespace blocks;

// The items of a piece in reverse.
template <int size> ZORS_INLINE __m128i reversed(__m128i x) {
  if constexpr (size == 1)
    return _mm_shuffle_epi8(x, _mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
  else if constexpr (size == 2)
    return _mm_shuffle_epi8(x, _mm_setr_epi8(14, 15, 12, 13, 10, 11, 8, 9, 6, 7, 4, 5, 2, 3, 0, 1));
  else if constexpr (size == 4)
    return _mm_shuffle_epi32(x, 0x1B);
  else if constexpr (size == 8)
    return _mm_shuffle_epi32(x, 0x4E);
  else
    return x;
}
template <int size> ZORS_INLINE __m256i reversed(__m256i x) {
  if constexpr (size <= 2) {
    const __m128i control = reversed<size>(_mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(x, _mm256_broadcastsi128_si256(control)), 0x4E);
  } else if constexpr (size == 4)
    return _mm256_permutevar8x32_epi32(x, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
  else
    return _mm256_permute4x64_epi64(x, size == 8 ? 0x1B : 0x4E);
}
template <int size, int L> ZORS_INLINE auto reversed(simd::Vec<Zor8u, L> x) {
  constexpr int last = simd::Vec<Zor8u, L>::registers - 1;
  return simd::build<simd::Vec<Zor8u, L>>([&](auto i) ZORS_INLINE_LAMBDA { return reversed<size>(x.r[last - i]); });
}
template <int size, std::unsigned_integral T> ZORS_INLINE T reversed(T x) {
  return T(_mm_cvtsi128_si64(_mm_bsrli_si128(reversed<size>(_mm_cvtsi64_si128(Zor64s(x))), 16 - int{sizeof x})));
}

// At most two rounds: both ends are read before either is written, so dst may be src.
template <int size> ZORS_INLINE void flipShort(const Zor8u* src, Zor8u* dst, std::ptrdiff_t bytes) {
  withPiece<round>(bytes, [&](auto piece) ZORS_INLINE_LAMBDA {
    if constexpr (piece >= size) {
      const auto begin = reversed<size>(loadPiece<piece>(src)),
                 end = reversed<size>(loadPiece<piece>(src + bytes - piece));
      storePiece(dst, end);
      storePiece(dst + bytes - piece, begin);
    }
  });
}

template <class T> ZorStatus flipInPlace(T* srcDst, Zor32s len) {
  return check().pointers(srcDst).size(len).then([&] {
    auto begin = reinterpret_cast<Zor8u*>(srcDst), end = begin + std::ptrdiff_t{len} * std::ptrdiff_t{sizeof(T)};
    for (; end - begin > 2 * round; begin += round, end -= round) {
      const auto first = reversed<sizeof(T)>(loadPiece<round>(begin)),
                 last = reversed<sizeof(T)>(loadPiece<round>(end - round));
      storePiece(begin, last);
      storePiece(end - round, first);
    }
    flipShort<sizeof(T)>(begin, begin, end - begin);
  });
}

template <class T> ZorStatus flip(const T* src, T* dst, Zor32s len) {
  if (src == dst) return flipInPlace(dst, len);
  return check().pointers(src, dst).size(len).then([&] {
    const std::ptrdiff_t bytes = std::ptrdiff_t{len} * std::ptrdiff_t{sizeof(T)};
    const auto from = reinterpret_cast<const Zor8u*>(src);
    const auto to = reinterpret_cast<Zor8u*>(dst);
    if (bytes <= 2 * round) return flipShort<sizeof(T)>(from, to, bytes);
    for (std::ptrdiff_t i = 0; i < bytes - round; i += round)
      storePiece(to + i, reversed<sizeof(T)>(loadPiece<round>(from + bytes - round - i)));
    storePiece(to + bytes - round, reversed<sizeof(T)>(loadPiece<round>(from)));
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFlip_8u(const Zor8u* src, Zor8u* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_16u(const Zor16u* src, Zor16u* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return flip(src, dst, len); }
ZorStatus zorsFlip_8u_I(Zor8u* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
ZorStatus zorsFlip_16u_I(Zor16u* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
ZorStatus zorsFlip_32f_I(Zor32f* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
ZorStatus zorsFlip_32fc_I(Zor32fc* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
ZorStatus zorsFlip_64f_I(Zor64f* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
ZorStatus zorsFlip_64fc_I(Zor64fc* srcDst, Zor32s len) { return flipInPlace(srcDst, len); }
// clang-format on

}  // namespace zors
