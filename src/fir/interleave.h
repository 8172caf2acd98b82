// Columns of outputs interleaved into a stream of them.
#pragma once

#include <algorithm>

#include "frame/part.h"

namespace zors::fir {

// Cell i of each row in turn, i from 0 on: 2, 4 or 8 rows, at most as many as a row has cells.
template <int rows, class T, int L> ZORS_INLINE simd::Vec<T, L> interleaved(simd::Vec<T, L> x) {
  using V = simd::Vec<T, L>;
  using Register = typename V::Register;
  static_assert(V::registers == rows && rows <= simd::lanesOf<T>);
  constexpr int low = 0, high = 1;
  // Of cells of so many bytes, those of one half of each half of two registers in turn.
  const auto unpacked = []<int bytes>(std::integral_constant<int, bytes>, Register p, Register q,
                                      int half) ZORS_INLINE_LAMBDA {
    const __m256i a = simd::bits(p), b = simd::bits(q);
    if constexpr (bytes == 4)
      return simd::fromBits<Register>(half == low ? _mm256_unpacklo_epi32(a, b) : _mm256_unpackhi_epi32(a, b));
    else
      return simd::fromBits<Register>(half == low ? _mm256_unpacklo_epi64(a, b) : _mm256_unpackhi_epi64(a, b));
  };
  const auto halves = [](Register p, Register q, int half) ZORS_INLINE_LAMBDA {
    const __m256i a = simd::bits(p), b = simd::bits(q);
    return simd::fromBits<Register>(half == low ? _mm256_permute2x128_si256(a, b, 0x20)
                                                : _mm256_permute2x128_si256(a, b, 0x31));
  };
  const auto& r = x.r;
  constexpr std::integral_constant<int, 4> four{};
  constexpr std::integral_constant<int, 8> eight{};
  if constexpr (sizeof(T) == 16) {
    return {{halves(r[0], r[1], low), halves(r[0], r[1], high)}};
  } else if constexpr (rows == 2) {
    constexpr std::integral_constant<int, sizeof(T)> cell{};
    const Register even = unpacked(cell, r[0], r[1], low), odd = unpacked(cell, r[0], r[1], high);
    return {{halves(even, odd, low), halves(even, odd, high)}};
  } else if constexpr (sizeof(T) == 8) {
    const Register a = unpacked(eight, r[0], r[1], low), b = unpacked(eight, r[2], r[3], low),
                   c = unpacked(eight, r[0], r[1], high), d = unpacked(eight, r[2], r[3], high);
    return {{halves(a, b, low), halves(c, d, low), halves(a, b, high), halves(c, d, high)}};
  } else {
    // Register k: cells k and k + 4 of four rows.
    const auto ofFour = [&](int first) ZORS_INLINE_LAMBDA {
      const Register a = unpacked(four, r[first], r[first + 1], low),
                     b = unpacked(four, r[first + 2], r[first + 3], low),
                     c = unpacked(four, r[first], r[first + 1], high),
                     d = unpacked(four, r[first + 2], r[first + 3], high);
      return simd::Vec<T, 32>{{unpacked(eight, a, b, low), unpacked(eight, a, b, high), unpacked(eight, c, d, low),
                               unpacked(eight, c, d, high)}};
    };
    const auto u = ofFour(0);
    if constexpr (rows == 4) {
      return {{halves(u.r[0], u.r[1], low), halves(u.r[2], u.r[3], low), halves(u.r[0], u.r[1], high),
               halves(u.r[2], u.r[3], high)}};
    } else {
      const auto v = ofFour(4);
      return {{halves(u.r[0], v.r[0], low), halves(u.r[1], v.r[1], low), halves(u.r[2], v.r[2], low),
               halves(u.r[3], v.r[3], low), halves(u.r[0], v.r[0], high), halves(u.r[1], v.r[1], high),
               halves(u.r[2], v.r[2], high), halves(u.r[3], v.r[3], high)}};
    }
  }
}

// out[i * up + r] = columns[r * stride + i] for i < count, r < up.
template <class T>
[[gnu::flatten]] void interleave(const T* columns, std::ptrdiff_t stride, std::ptrdiff_t up, std::ptrdiff_t count,
                                 T* out) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  std::ptrdiff_t done = 0;
  const auto byRows = [&]<int rows>(std::integral_constant<int, rows>) {
    if constexpr (rows <= lanes)
      for (; done + lanes <= count; done += lanes)
        store(out + done * rows, interleaved<rows>(build<Vec<T, rows * lanes>>([&](auto r) ZORS_INLINE_LAMBDA {
                return load<lanes>(columns + r * stride + done).r[0];
              })));
  };
  if (up == 2) byRows(std::integral_constant<int, 2>{});
  if (up == 4) byRows(std::integral_constant<int, 4>{});
  if (up == 8) byRows(std::integral_constant<int, 8>{});
  // Squares of cells; a narrower rectangle repeats its last row, and where it stands alone its rows are stored whole as
  // far as what they cover is written later.
  for (; done + lanes <= count; done += lanes)
    for (std::ptrdiff_t first = 0; first < up; first += lanes) {
      const int wide = int(std::min<std::ptrdiff_t>(lanes, up - first));
      const auto square = interleaved<lanes>(build<Vec<T, lanes * lanes>>([&](auto r) ZORS_INLINE_LAMBDA {
        return load<lanes>(columns + (first + std::min<int>(r, wide - 1)) * stride + done).r[0];
      }));
      unrolled<lanes>([&](auto i) ZORS_INLINE_LAMBDA {
        const Vec<T, lanes> row{{square.r[i]}};
        const std::ptrdiff_t at = (done + i) * up + first;
        if (wide == lanes || (up < lanes && at + lanes <= count * up))
          store(out + at, row);
        else
          storePart(out + at, row, wide);
      });
    }
  for (; done < count; ++done)
    for (std::ptrdiff_t r = 0; r < up; ++r) out[done * up + r] = columns[r * stride + done];
}

}  // namespace zors::fir
