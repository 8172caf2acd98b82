// Part of a vector: fewer elements than it has lanes, without a byte read or written beyond them.
#pragma once

#include <array>
#include <cstring>

#include "frame/simd.h"
#include "zors/types.h"

namespace zors::simd {
namespace part {

// Shuffles for n bytes in elements of `size`, of which the first and the last 8, 4, 2 or 1 bytes were read as two
// adjacent pieces: byte i < n to its place, then the last element again and again.
template <int size> consteval auto joinTable() {
  std::array<std::array<Zor8u, 16>, 17> table{};
  for (int n = 1; n <= 16; ++n) {
    const int piece = n >= 8 ? 8 : n >= 4 ? 4 : n >= 2 ? 2 : 1;
    for (int i = 0; i < 16; ++i) {
      const int element = n < size ? n : size;
      const int wanted = i < n ? i : n - element + i % element;
      table[size_t(n)][size_t(i)] = Zor8u(n == 1 ? 0 : wanted < piece ? wanted : wanted + 2 * piece - n);
    }
  }
  return table;
}
template <int size> alignas(64) inline constexpr auto joinTables = joinTable<size>();

template <class Piece> ZORS_INLINE Piece piece(const char* p) {
  Piece value;
  std::memcpy(&value, p, sizeof value);
  return value;
}

// n bytes from 1 to 16, then the last element repeated.
template <int size> ZORS_INLINE __m128i load16(const char* p, int n) {
  __m128i x;
  if (n >= 8)
    x = _mm_set_epi64x(piece<Zor64s>(p + n - 8), piece<Zor64s>(p));
  else if (n >= 4)
    x = _mm_insert_epi32(_mm_cvtsi32_si128(piece<Zor32s>(p)), piece<Zor32s>(p + n - 4), 1);
  else if (n >= 2)
    x = _mm_cvtsi32_si128(int(piece<Zor16u>(p)) | int(piece<Zor16u>(p + n - 2)) << 16);
  else
    x = _mm_cvtsi32_si128(*p);
  return _mm_shuffle_epi8(x, _mm_load_si128(reinterpret_cast<const __m128i*>(joinTables<size>[size_t(n)].data())));
}
ZORS_INLINE void store16(char* p, __m128i x, int n) {  // n from 1 to 16
  if (n >= 16) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), x);
    return;
  }
  if (n & 8) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), x);
    x = _mm_srli_si128(x, 8);
    p += 8;
  }
  auto rest = static_cast<Zor64u>(_mm_cvtsi128_si64(x));
  if (n & 4) {
    std::memcpy(p, &rest, 4);
    rest >>= 32;
    p += 4;
  }
  if (n & 2) {
    std::memcpy(p, &rest, 2);
    rest >>= 16;
    p += 2;
  }
  if (n & 1) std::memcpy(p, &rest, 1);
}

// The last element of a register in all lanes.
template <int size> ZORS_INLINE __m256i lastElement(__m128i x) {
  __m128i last = x;
  if constexpr (size < 16) {
    last = _mm_shuffle_epi8(x, _mm_load_si128(reinterpret_cast<const __m128i*>([] {
                              alignas(16) static constexpr auto control = [] {
                                std::array<Zor8u, 16> c{};
                                for (int i = 0; i < 16; ++i) c[size_t(i)] = Zor8u(16 - size + i % size);
                                return c;
                              }();
                              return control.data();
                            }())));
  }
  return _mm256_broadcastsi128_si256(last);
}

}  // namespace part

// count elements, from 1 to L; the other lanes repeat the last one, so that none raises a flag that no element raises.
template <int L, class T> ZORS_INLINE Vec<T, L> loadPart(const T* p, int count) {
  using V = Vec<T, L>;
  constexpr int size = sizeof(T);
  const char* from = reinterpret_cast<const char*>(p);
  int left = count * size;
  __m256i r = _mm256_setzero_si256();
  V out;
  unrolled<V::registers>([&](auto i) ZORS_INLINE_LAMBDA {
    if (left >= 32) {
      r = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
    } else if (left > 16) {
      const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
      r = _mm256_set_m128i(part::load16<size>(from + 16, left - 16), low);
    } else if (left > 0) {
      const __m128i low = part::load16<size>(from, left);
      r = _mm256_inserti128_si256(part::lastElement<size>(low), low, 0);
    } else if (left > -32) {
      r = part::lastElement<size>(_mm256_extracti128_si256(r, 1));
    }
    from += 32;
    left -= 32;
    out.r[i] = fromBits<typename V::Register>(r);
  });
  return out;
}
template <class T, int L> ZORS_INLINE void storePart(T* p, Vec<T, L> x, int count) {
  char* to = reinterpret_cast<char*>(p);
  int left = count * int{sizeof(T)};
  unrolled<Vec<T, L>::registers>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i r = bits(x.r[i]);
    if (left >= 32) {
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), r);
    } else if (left > 16) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(r));
      part::store16(to + 16, _mm256_extracti128_si256(r, 1), left - 16);
    } else if (left > 0) {
      part::store16(to, _mm256_castsi256_si128(r), left);
    }
    to += 32;
    left -= 32;
  });
}

// count elements, from 0 to one less than a register holds, and zeros behind them.
template <class T> ZORS_INLINE Vec<T, lanesOf<T>> loadThenZeros(const T* p, int count) {
  alignas(64) static constexpr Zor32s window[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  const __m256i mask = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(window + 8 - count * int{sizeof(T)} / 4));
  return {{fromBits<typename RegisterOf<T>::type>(_mm256_maskload_epi32(reinterpret_cast<const int*>(p), mask))}};
}

}  // namespace zors::simd
