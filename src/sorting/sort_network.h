// Sorting networks in registers: R rows of keys are sorted column by column, the sorted columns are merged pair by
// pair, and a transposition brings the whole into memory order. Only the lane permutations of the merges cost shuffles.
#pragma once

#include <array>
#include <utility>

#include "frame/simd.h"

namespace zors::sorting {

using simd::unrolled;

// A register of keys, signed integers of type T; with W = 2 a second register of 64-bit lanes that travel with the keys
// and decide between equal ones, so that padding is told from keys like it.
template <class T, int W = 1> struct Row {
  using Key = T;
  static constexpr int lanes = simd::lanesOf<T>;
  __m256i r[W];
};

template <class T, int W, class F> ZORS_INLINE Row<T, W> eachRegister(F f) {
  if constexpr (W == 1)
    return {{f(0)}};
  else
    return {{f(0), f(1)}};
}

// All ones where a is above b.
template <class T> ZORS_INLINE __m256i greater(__m256i a, __m256i b) {
  if constexpr (sizeof(T) == 2)
    return _mm256_cmpgt_epi16(a, b);
  else if constexpr (sizeof(T) == 4)
    return _mm256_cmpgt_epi32(a, b);
  else
    return _mm256_cmpgt_epi64(a, b);
}

// The lower of each pair of lanes to a, the higher to b.
template <class T, int W> ZORS_INLINE void exchange(Row<T, W>& a, Row<T, W>& b) {
  const Row<T, W> x = a, y = b;
  if constexpr (sizeof(T) == 2) {
    a.r[0] = _mm256_min_epi16(x.r[0], y.r[0]);
    b.r[0] = _mm256_max_epi16(x.r[0], y.r[0]);
  } else if constexpr (sizeof(T) == 4) {
    a.r[0] = _mm256_min_epi32(x.r[0], y.r[0]);
    b.r[0] = _mm256_max_epi32(x.r[0], y.r[0]);
  } else {
    __m256i swapped = greater<T>(x.r[0], y.r[0]);
    if constexpr (W == 2) {
      const __m256i tie = _mm256_cmpeq_epi64(x.r[0], y.r[0]);
      swapped = _mm256_or_si256(swapped, _mm256_and_si256(tie, _mm256_cmpgt_epi64(x.r[1], y.r[1])));
    }
    unrolled<W>([&](auto k) ZORS_INLINE_LAMBDA {
      const __m256i change = _mm256_and_si256(_mm256_xor_si256(x.r[k], y.r[k]), swapped);
      a.r[k] = _mm256_xor_si256(x.r[k], change);
      b.r[k] = _mm256_xor_si256(y.r[k], change);
    });
  }
}

// The control of a permutation of four by i ^ of.
constexpr int crossedFour(int of) { return (0 ^ of) | (1 ^ of) << 2 | (2 ^ of) << 4 | (3 ^ of) << 6; }

// Lane i from lane i ^ mask.
template <int mask, class T, int W> ZORS_INLINE Row<T, W> crossed(Row<T, W> x) {
  constexpr int bytes = mask * int{sizeof(T)}, inHalf = bytes & 15;
  return eachRegister<T, W>([&](int k) ZORS_INLINE_LAMBDA {
    __m256i y = x.r[k];
    if constexpr (bytes % 8 == 0) {
      constexpr int control = crossedFour(bytes / 8);
      return _mm256_permute4x64_epi64(y, control);
    }
    if constexpr (inHalf % 4 == 0) {
      constexpr int control = crossedFour(inHalf / 4);
      y = _mm256_shuffle_epi32(y, control);
    } else {
      const __m128i places = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
      y = _mm256_shuffle_epi8(y, _mm256_broadcastsi128_si256(_mm_xor_si128(places, _mm_set1_epi8(char(inHalf)))));
    }
    return bytes & 16 ? _mm256_permute4x64_epi64(y, 0x4E) : y;
  });
}
// The lanes of a, but of b those whose number has the bit.
template <int bit, class T, int W> ZORS_INLINE Row<T, W> mixed(Row<T, W> a, Row<T, W> b) {
  constexpr int bytes = bit * int{sizeof(T)};
  return eachRegister<T, W>([&](int k) ZORS_INLINE_LAMBDA {
    if constexpr (bytes == 2)
      return _mm256_blend_epi16(a.r[k], b.r[k], 0xAA);
    else
      return _mm256_blend_epi32(a.r[k], b.r[k], bytes == 16 ? 0xF0 : bytes == 8 ? 0xCC : 0xAA);
  });
}
// Each lane with its partner i ^ mask: the lower one where the bit is clear.
template <int mask, int bit, class R> ZORS_INLINE R exchangedLanes(R x) {
  R high = crossed<mask>(x);
  exchange(x, high);
  return mixed<bit>(x, high);
}

// The exchanges of an odd-even merge sort of R.
template <int R> consteval auto columnExchanges() {
  constexpr auto each = [](auto exchangeOf) {
    for (int p = 1; p < R; p *= 2)
      for (int k = p; k >= 1; k /= 2)
        for (int j = k % p; j + k < R; j += 2 * k)
          for (int i = j; i < j + k && i + k < R; ++i)
            if (i / (2 * p) == (i + k) / (2 * p)) exchangeOf(i, i + k);
  };
  constexpr int count = [each] {
    int n = 0;
    each([&](int, int) { ++n; });
    return n;
  }();
  std::array<std::pair<int, int>, size_t(count)> exchanges{};
  size_t n = 0;
  each([&](int a, int b) { exchanges[n++] = {a, b}; });
  return exchanges;
}

template <int distance, int R, class Row> ZORS_INLINE void mergeLanes(Row (&x)[R]) {
  if constexpr (distance >= 1) {
    unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = exchangedLanes<distance, distance>(x[i]); });
    mergeLanes<distance / 2>(x);
  }
}
template <int distance, int R, class Row> ZORS_INLINE void mergeRows(Row (&x)[R]) {
  if constexpr (distance >= 1) {
    unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA {
      if constexpr ((i & distance) == 0) exchange(x[i], x[i + distance]);
    });
    mergeRows<distance / 2>(x);
  }
}
// Sorted runs of `columns` columns to runs of twice as many: each run with the mirror image of its neighbour, then
// halves of halves.
template <int columns, int R, class Row> ZORS_INLINE void mergeColumns(Row (&x)[R]) {
  if constexpr (columns < Row::lanes) {
    constexpr int mirror = 2 * columns - 1;
    if constexpr (R == 1) x[0] = exchangedLanes<mirror, columns>(x[0]);
    unrolled<R / 2>([&](auto i) ZORS_INLINE_LAMBDA {
      Row low = x[i], high = crossed<mirror>(x[R - 1 - i]);
      exchange(low, high);
      x[i] = mixed<columns>(low, high);
      x[R - 1 - i] = crossed<mirror>(mixed<columns>(high, low));
    });
    mergeLanes<columns / 2>(x);
    mergeRows<R / 2>(x);
    mergeColumns<2 * columns>(x);
  }
}

// Interleaves the first half of the rows with the second, log2 R times, within 128-bit halves.
template <int stages, class T, int W, int R> ZORS_INLINE void interleave(Row<T, W> (&x)[R]) {
  if constexpr (stages > 1) {
    Row<T, W> y[R];
    unrolled<R / 2>([&](auto i) ZORS_INLINE_LAMBDA {
      unrolled<W>([&](auto k) ZORS_INLINE_LAMBDA {
        const __m256i a = x[i].r[k], b = x[i + R / 2].r[k];
        if constexpr (sizeof(T) == 2) {
          y[2 * i].r[k] = _mm256_unpacklo_epi16(a, b);
          y[2 * i + 1].r[k] = _mm256_unpackhi_epi16(a, b);
        } else if constexpr (sizeof(T) == 4) {
          y[2 * i].r[k] = _mm256_unpacklo_epi32(a, b);
          y[2 * i + 1].r[k] = _mm256_unpackhi_epi32(a, b);
        } else {
          y[2 * i].r[k] = _mm256_unpacklo_epi64(a, b);
          y[2 * i + 1].r[k] = _mm256_unpackhi_epi64(a, b);
        }
      });
    });
    unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = y[i]; });
    interleave<stages / 2>(x);
  }
}
template <class T, int W, int R> ZORS_INLINE void transpose(Row<T, W> (&x)[R]) {
  if constexpr (R > 1) {
    interleave<R>(x);
    Row<T, W> y[R];
    unrolled<R / 2>([&](auto i) ZORS_INLINE_LAMBDA {
      unrolled<W>([&](auto k) ZORS_INLINE_LAMBDA {
        y[i].r[k] = _mm256_permute2x128_si256(x[2 * i].r[k], x[2 * i + 1].r[k], 0x20);
        y[R / 2 + i].r[k] = _mm256_permute2x128_si256(x[2 * i].r[k], x[2 * i + 1].r[k], 0x31);
      });
    });
    unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = y[i]; });
  }
}

// All keys ascending, row after row.
template <class Row, int R> ZORS_INLINE void sortRows(Row (&x)[R]) {
  static constexpr auto exchanges = columnExchanges<R>();
  unrolled<int{exchanges.size()}>([&](auto k)
                                      ZORS_INLINE_LAMBDA { exchange(x[exchanges[k].first], x[exchanges[k].second]); });
  mergeColumns<1>(x);
  transpose(x);
}

}  // namespace zors::sorting
