// The loop of the reductions: vectors go to a kernel in rows of L elements, the rest as a row whose other lanes are
// zero.
#pragma once

#include <cstring>

#include "frame/part.h"

namespace zors {

// An element at any address.
template <class T> ZORS_INLINE T readAt(const T* p) {
  T x;
  std::memcpy(&x, p, sizeof x);
  return x;
}

namespace detail {

// -1 in the first count lanes, else 0; of 16-byte lanes the two halves.
template <int bytes> ZORS_INLINE __m256i firstLanes(std::ptrdiff_t count) {
  if constexpr (bytes == 16)
    return firstLanes<8>(2 * count);
  else if constexpr (bytes == 8)
    return _mm256_cmpgt_epi64(_mm256_set1_epi64x(count), _mm256_setr_epi64x(0, 1, 2, 3));
  else if constexpr (bytes == 4)
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(int(count)), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  else
    return _mm256_cmpgt_epi16(_mm256_set1_epi16(short(count)),
                              _mm256_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

}  // namespace detail

// The first count lanes from memory, from 1 to L, and zeros. Nothing beyond them is read.
template <int L, class T> ZORS_INLINE simd::Vec<T, L> loadFirst(const T* p, std::ptrdiff_t count) {
  using V = simd::Vec<T, L>;
  constexpr int step = simd::lanesOf<T>;
  const auto present = [&](auto i) ZORS_INLINE_LAMBDA { return detail::firstLanes<sizeof(T)>(count - i * step); };
  if constexpr (sizeof(T) == 2) {
    const V x = simd::loadPart<L>(p, int(count));
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_and_si256(x.r[i], present(i)); });
  } else {
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
      return simd::fromBits<typename V::Register>(
          _mm256_maskload_epi32(reinterpret_cast<const int*>(p + i * step), present(i)));
    });
  }
}

// kernel(rows of src...) from the first element to the last. Sources of a narrower type are loaded as they are.
template <int L, class Kernel, class... S> ZORS_INLINE void rows(Kernel&& kernel, std::ptrdiff_t len, const S*... src) {
  constexpr int unroll = 4;
  std::ptrdiff_t i = 0;
  for (; i + unroll * L <= len; i += unroll * L)
    simd::unrolled<unroll>([&](auto k) ZORS_INLINE_LAMBDA { kernel(simd::load<L>(src + i + k * L)...); });
  for (; i + L <= len; i += L) kernel(simd::load<L>(src + i)...);
  if (i < len) kernel(loadFirst<L>(src + i, len - i)...);
}

}  // namespace zors
