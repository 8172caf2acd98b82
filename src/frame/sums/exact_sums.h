// Exact sums of integers.
#pragma once

#include <algorithm>

#include "frame/sums/rows.h"
#include "zors/types.h"

namespace zors::exact {

using simd::Vec;

// 32-bit lanes that cannot overflow within a block of 65,536 elements, and the 64-bit total of the blocks before.
class BlockSum {
 public:
  ZORS_INLINE void add(__m256i lanes) { lanes_ = _mm256_add_epi32(lanes_, lanes); }
  void endBlock() {
    alignas(32) Zor32s lanes[8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes), lanes_);
    for (const Zor32s lane : lanes) total_ += lane;
    lanes_ = _mm256_setzero_si256();
  }
  Zor64s total() const { return total_; }

 private:
  __m256i lanes_ = _mm256_setzero_si256();
  Zor64s total_ = 0;
};
inline constexpr std::ptrdiff_t block = 65536;

// kernel over all rows; endBlock() after each block.
template <int L, class Kernel, class EndBlock, class... S>
ZORS_INLINE void blocks(Kernel&& kernel, EndBlock&& endBlock, std::ptrdiff_t len, const S*... src) {
  for (std::ptrdiff_t at = 0; at < len; at += block) {
    rows<L>(kernel, std::min(block, len - at), src + at...);
    endBlock();
  }
}

// Sums of unsigned 32-bit lanes in 64 bits: of the pairs as they are, and of their upper halves. Sums of signed lanes:
// each is raised by a bias that is taken off again at the end.
class WideSum {
 public:
  ZORS_INLINE void add(__m256i lanes) {
    all_ = _mm256_add_epi64(all_, lanes);
    high_ = _mm256_add_epi64(high_, _mm256_srli_epi64(lanes, 32));
  }
  ZORS_INLINE void add(__m256i lanes, Zor32u bias) {
    add(_mm256_add_epi32(lanes, _mm256_set1_epi32(int(bias))));
    biases_ += Zor64u{8} * bias;
  }
  Zor64s total() const {
    alignas(32) Zor64u all[4], high[4];
    _mm256_store_si256(reinterpret_cast<__m256i*>(all), all_);
    _mm256_store_si256(reinterpret_cast<__m256i*>(high), high_);
    Zor64u sum = -biases_;
    for (int i = 0; i < 4; ++i) sum += all[i] - (high[i] << 32) + high[i];
    return Zor64s(sum);
  }

 private:
  __m256i all_ = _mm256_setzero_si256(), high_ = _mm256_setzero_si256();
  Zor64u biases_ = 0;
};
// Sums of two 16-bit products lie from -2 * 32768 * 32767 to 2^31: raised so that they fit 32 unsigned bits.
inline constexpr Zor32u productsBias = 2u * 32768 * 32767;

ZORS_INLINE __m256i ones() { return _mm256_set1_epi16(1); }

}  // namespace zors::exact
