// The loop of the reductions: vectors go to a kernel in rows of L elements, the rest as a row whose other lanes are zero.
#pragma once

#include "frame/part.h"

namespace zors {

namespace detail {

// -1 in the first count lanes, else 0.
template <int bytes> ZORS_INLINE __m256i firstLanes(std::ptrdiff_t count) {
  if constexpr (bytes == 8) return _mm256_cmpgt_epi64(_mm256_set1_epi64x(count), _mm256_setr_epi64x(0, 1, 2, 3));
  else if constexpr (bytes == 4) return _mm256_cmpgt_epi32(_mm256_set1_epi32(int(count)), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  else return _mm256_cmpgt_epi16(_mm256_set1_epi16(short(count)), _mm256_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
}

}  // namespace detail

// The first count lanes from memory, from 1 to L, and zeros. Nothing beyond them is read.
template <int L, class T> ZORS_INLINE simd::Vec<T, L> loadFirst(const T* p, std::ptrdiff_t count) {
  using namespace simd;
  if constexpr (sizeof(T) == 2) {
    static_assert(Vec<T, L>::registers == 1);
    return both(loadPart<L>(p, int(count)), Vec<T, L>{{detail::firstLanes<2>(count)}});
  } else {
    constexpr int step = lanesOf<T>;
    return build<Vec<T, L>>([&](auto i) ZORS_INLINE_LAMBDA {
      const __m256i mask = detail::firstLanes<sizeof(T)>(count - i * step);
      const T* const at = p + i * step;
      if constexpr (std::is_same_v<T, Zor32f>) return _mm256_maskload_ps(at, mask);
      else if constexpr (std::is_same_v<T, Zor64f>) return _mm256_maskload_pd(at, mask);
      else return _mm256_maskload_epi32(reinterpret_cast<const int*>(at), mask);
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
