// Kernels on blocks of raw bytes, and the pieces of 1 to 128 bytes that they move. A block shorter than two pieces is
// two pieces that overlap, both read before either is written: neither kernel has a loop for the rest.
#pragma once

#include <cstddef>
#include <cstring>

#include "frame/simd.h"
#include "zors/types.h"

namespace zors::blocks {

template <int bytes> ZORS_INLINE auto loadPiece(const Zor8u* p) {
  if constexpr (bytes >= 32)
    return simd::load<bytes>(p);
  else if constexpr (bytes == 16)
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  else {
    std::conditional_t<bytes == 8, Zor64u,
                       std::conditional_t<bytes == 4, Zor32u, std::conditional_t<bytes == 2, Zor16u, Zor8u>>>
        x;
    static_assert(sizeof x == bytes);
    std::memcpy(&x, p, bytes);
    return x;
  }
}
template <int L> ZORS_INLINE void storePiece(Zor8u* p, simd::Vec<Zor8u, L> x) { simd::store(p, x); }
ZORS_INLINE void storePiece(Zor8u* p, __m128i x) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), x); }
ZORS_INLINE void storePiece(Zor8u* p, std::unsigned_integral auto x) { std::memcpy(p, &x, sizeof x); }

// run(piece size) with the largest size from `most` down to 1 that is not above bytes; nothing for 0 bytes.
template <int most, class Run> ZORS_INLINE void withPiece(std::ptrdiff_t bytes, Run&& run) {
  if (bytes >= most)
    run(std::integral_constant<int, most>{});
  else if constexpr (most > 1)
    withPiece<most / 2>(bytes, run);
}

template <class T> ZORS_INLINE std::ptrdiff_t pastBoundary(const T* p, unsigned boundary) {
  return std::ptrdiff_t(reinterpret_cast<std::uintptr_t>(p) % boundary);
}

inline constexpr int round = 128;  // bytes a loop moves at a time

// Blocks of at most two rounds, overlapping or not.
ZORS_INLINE void moveShort(const Zor8u* src, Zor8u* dst, std::ptrdiff_t bytes) {
  withPiece<round>(bytes, [&](auto size) ZORS_INLINE_LAMBDA {
    const auto begin = loadPiece<size>(src), end = loadPiece<size>(src + bytes - size);
    storePiece(dst, begin);
    storePiece(dst + bytes - size, end);
  });
}

// From the first byte to the last: dst may also be anywhere below src.
ZORS_INLINE void moveForward(const Zor8u* src, Zor8u* dst, std::ptrdiff_t bytes) {
  if (bytes <= 2 * round) return moveShort(src, dst, bytes);
  const auto begin = loadPiece<32>(src);
  const auto end = loadPiece<round>(src + bytes - round);
  for (std::ptrdiff_t i = 32 - pastBoundary(dst, 32); i < bytes - round; i += round)
    storePiece(dst + i, loadPiece<round>(src + i));
  storePiece(dst, begin);
  storePiece(dst + bytes - round, end);
}

// From the last byte to the first: dst may also be anywhere above src.
ZORS_INLINE void moveBackward(const Zor8u* src, Zor8u* dst, std::ptrdiff_t bytes) {
  if (bytes <= 2 * round) return moveShort(src, dst, bytes);
  const auto begin = loadPiece<round>(src);
  const auto end = loadPiece<32>(src + bytes - 32);
  for (std::ptrdiff_t i = bytes - pastBoundary(dst + bytes, 32); i > round; i -= round)
    storePiece(dst + i - round, loadPiece<round>(src + i - round));
  storePiece(dst + bytes - 32, end);
  storePiece(dst, begin);
}

inline constexpr std::ptrdiff_t stringMoveFrom = 32768;

// The processor's string move, in the widest unit for which src and dst can both be aligned. dst may also be anywhere
// below src. The direction flag is clear by the calling convention; a caller that broke it gets it back as it was.
inline void stringMove(const Zor8u* src, Zor8u* dst, std::size_t bytes) {
  const bool backward = (__builtin_ia32_readeflags_u64() & 0x400) != 0;
  if (backward) __asm__ volatile("cld" ::: "cc");
  const auto difference = reinterpret_cast<std::uintptr_t>(src) ^ reinterpret_cast<std::uintptr_t>(dst);
  const std::size_t unit = difference % 8 == 0 ? 8 : difference % 4 == 0 ? 4 : difference % 2 == 0 ? 2 : 1;
  std::size_t head = -reinterpret_cast<std::uintptr_t>(dst) % unit, tail = (bytes - head) % unit,
              units = (bytes - head) / unit;
  __asm__ volatile("rep movsb" : "+S"(src), "+D"(dst), "+c"(head) : : "memory");
  if (unit == 8)
    __asm__ volatile("rep movsq" : "+S"(src), "+D"(dst), "+c"(units) : : "memory");
  else if (unit == 4)
    __asm__ volatile("rep movsl" : "+S"(src), "+D"(dst), "+c"(units) : : "memory");
  else if (unit == 2)
    __asm__ volatile("rep movsw" : "+S"(src), "+D"(dst), "+c"(units) : : "memory");
  else
    __asm__ volatile("rep movsb" : "+S"(src), "+D"(dst), "+c"(units) : : "memory");
  __asm__ volatile("rep movsb" : "+S"(src), "+D"(dst), "+c"(tail) : : "memory");
  if (backward) __asm__ volatile("std" ::: "cc");
}

// 32 bytes of items of 1, 2, 4, 8 or 16 bytes each.
using Pattern = simd::Vec<Zor8u, 32>;

// The pattern as it stands `bytes` further on: items repeat within 16 bytes.
ZORS_INLINE Pattern advanced(Pattern pattern, std::ptrdiff_t bytes) {
  const __m256i lane = _mm256_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7, 8,
                                        9, 10, 11, 12, 13, 14, 15);
  const __m256i index = _mm256_and_si256(_mm256_add_epi8(lane, _mm256_set1_epi8(char(bytes))), _mm256_set1_epi8(15));
  return {{_mm256_shuffle_epi8(pattern.r[0], index)}};
}
template <int bytes> ZORS_INLINE auto piece(Pattern pattern) {
  const __m128i low = _mm256_castsi256_si128(pattern.r[0]);
  if constexpr (bytes >= 32)
    return simd::build<simd::Vec<Zor8u, bytes>>([&](auto) ZORS_INLINE_LAMBDA { return pattern.r[0]; });
  else if constexpr (bytes == 16)
    return low;
  else
    return decltype(loadPiece<bytes>(nullptr))(_mm_cvtsi128_si64(low));
}

// bytes is a multiple of the item's size; a count below 1 writes nothing. dst need not be aligned to the item.
ZORS_INLINE void fill(Zor8u* dst, Pattern pattern, std::ptrdiff_t bytes) {
  if (bytes <= 2 * round) {
    withPiece<round>(bytes, [&](auto size) ZORS_INLINE_LAMBDA {
      storePiece(dst, piece<size>(pattern));
      storePiece(dst + bytes - size, piece<size>(pattern));
    });
    return;
  }
  storePiece(dst, pattern);
  std::ptrdiff_t i = 32 - pastBoundary(dst, 32);
  const Pattern aligned = advanced(pattern, i);
  for (; i < bytes - round; i += round) storePiece(dst + i, piece<round>(aligned));
  storePiece(dst + bytes - round, piece<round>(pattern));
}

// The same past the caches, for 64 bytes or more with dst aligned to the item.
ZORS_INLINE void fillStreaming(Zor8u* dst, Pattern pattern, std::ptrdiff_t bytes) {
  const auto stream = [&] {
    _mm256_stream_si256(reinterpret_cast<__m256i*>(dst), pattern.r[0]);
    dst += 32;
  };
  if (const auto past = pastBoundary(dst, 64); past != 0) {
    storePiece(dst, piece<64>(pattern));
    dst += 64 - past;
    bytes -= 64 - past;
  }
  for (; bytes >= 64; bytes -= 64) stream(), stream();
  if (bytes & 32) stream();
  const __m128i low = piece<16>(pattern);
  if (bytes & 16) _mm_stream_si128(reinterpret_cast<__m128i*>(dst), low), dst += 16;
  simd::unrolled<4>([&](auto i) ZORS_INLINE_LAMBDA {
    constexpr int size = 8 >> i;
    if (bytes & size) storePiece(dst, piece<size>(pattern)), dst += size;
  });
  _mm_sfence();
}

}  // namespace zors::blocks
