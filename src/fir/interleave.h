// Columns of outputs interleaved into a stream of them.
#pragma once

#include <algorithm>

#include "frame/part.h"

namespace zors::fir {

// Cell i of each row in turn, i from 0 on; rows are a power of two of registers, at most as many as cells of a row.
template <int rows, class T, int L> ZORS_INLINE simd::Vec<T, L> interleaved(simd::Vec<T, L> x) {
  using V = simd::Vec<T, L>;
  using Register = typename V::Register;
  static_assert(V::registers == rows && rows <= simd::lanesOf<T>);
  // Neighbouring cells of rows a half of the rows apart, again and again: a perfect shuffle at each step.
  const auto step = [](V in) ZORS_INLINE_LAMBDA {
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
      const __m256i a = simd::bits(in.r[i / 2]), b = simd::bits(in.r[i / 2 + rows / 2]);
      __m256i low = a, high = b;
      if constexpr (sizeof(T) == 4)
        low = _mm256_unpacklo_epi32(a, b), high = _mm256_unpackhi_epi32(a, b);
      else if constexpr (sizeof(T) == 8)
        low = _mm256_unpacklo_epi64(a, b), high = _mm256_unpackhi_epi64(a, b);
      return simd::fromBits<Register>(_mm256_permute2x128_si256(low, high, i % 2 == 0 ? 0x20 : 0x31));
    });
  };
  if constexpr (rows == 2) return step(x);
  if constexpr (rows == 4) return step(step(x));
  if constexpr (rows == 8) return step(step(step(x)));
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
