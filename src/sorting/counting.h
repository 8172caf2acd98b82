// Counting sorts of narrow elements.
#pragma once

#include <algorithm>
#include <cstring>

#include "frame/simd.h"

namespace zors::sorting {

// From `to` on count elements val; up to a register more may be written, but not beyond end.
template <class T> ZORS_INLINE T* writeRun(T* to, T* end, T val, std::ptrdiff_t count) {
  constexpr std::ptrdiff_t lanes = simd::lanesOf<T>;
  if (end - to >= lanes) [[likely]] {
    const auto run = simd::splat<simd::Vec<T, lanes>>(val);
    simd::store(to, run);
    for (std::ptrdiff_t i = lanes; i < count; i += lanes) simd::store(to + std::min(i, end - to - lanes), run);
  } else {
    std::fill(to, to + count, val);
  }
  return to + count;
}

// Counts of bytes: four tables, so that equal neighbours do not wait for each other.
inline void countBytes(const Zor8u* src, std::ptrdiff_t len, Zor32u (&counts)[256]) {
  Zor32u tables[4][256] = {};
  std::ptrdiff_t i = 0;
  for (; i <= len - 8; i += 8) {
    Zor64u eight;
    std::memcpy(&eight, src + i, 8);
    for (int k = 0; k < 8; ++k) ++tables[k % 4][eight >> (8 * k) & 0xFF];
  }
  for (; i < len; ++i) ++tables[0][src[i]];
  for (int value = 0; value < 256; ++value)
    counts[value] = tables[0][value] + tables[1][value] + tables[2][value] + tables[3][value];
}

template <bool descending> void countingSort(Zor8u* srcDst, Zor32s len) {
  Zor32u counts[256];
  countBytes(srcDst, len, counts);
  Zor8u *to = srcDst, *const end = srcDst + len;
  for (int i = 0; i < 256; ++i) {
    const int value = descending ? 255 - i : i;
    to = writeRun(to, end, Zor8u(value), counts[value]);
  }
}

}  // namespace zors::sorting
