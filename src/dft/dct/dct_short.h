// Short cosine transforms: straight lines for 2, 4 and 8 values, the folded sum for others.
#pragma once

#include "dft/dct/dct_spec.h"
#include "dft/dft_butterfly.h"
#include "frame/simd.h"

namespace zors::dct {

// ---- Straight lines -----------------------------------------------------------------------------

// The weights of y[2 m + parity] in the sum and the difference of x[k] and x[n - 1 - k], in rows of k.
template <class T, int n, int parity>
inline constexpr auto foldedWeights = [] {
  constexpr long double rootHalf = 0.70710678118654752440084436210484903928L;
  constexpr long double others = n == 2 ? 1 : n == 4 ? rootHalf : 0.5L;  // sqrt(2 / n)
  std::array<std::array<T, n / 2>, n / 2> rows{};
  for (int k = 0; k < n / 2; ++k)
    for (int m = 0; m < n / 2; ++m) {
      const int term = 2 * m + parity;
      const long double scale = term == 0 ? others * rootHalf : others;
      rows[std::size_t(k)][std::size_t(m)] = static_cast<T>(scale * dft::detail::unit((2 * k + 1) * term, 4 * n).re);
    }
  return rows;
}();

template <Direction direction, int n, class T> [[gnu::flatten]] void straightLine(const T* src, T* dst) {
  constexpr int h = n / 2;
  constexpr const auto &even = foldedWeights<T, n, 0>, &odd = foldedWeights<T, n, 1>;
  T a[h], b[h], first[h], second[h];
  for (int k = 0; k < h; ++k) {
    a[k] = direction == Direction::forward ? src[k] + src[n - 1 - k] : src[2 * k];
    b[k] = direction == Direction::forward ? src[k] - src[n - 1 - k] : src[2 * k + 1];
  }
  for (int m = 0; m < h; ++m) {
    first[m] = a[0] * (direction == Direction::forward ? even[0][std::size_t(m)] : even[std::size_t(m)][0]);
    second[m] = b[0] * (direction == Direction::forward ? odd[0][std::size_t(m)] : odd[std::size_t(m)][0]);
  }
  for (int k = 1; k < h; ++k)
    for (int m = 0; m < h; ++m) {
      const auto row = std::size_t(direction == Direction::forward ? k : m),
                 at = std::size_t(direction == Direction::forward ? m : k);
      first[m] = std::fma(a[k], even[row][at], first[m]);
      second[m] = std::fma(b[k], odd[row][at], second[m]);
    }
  for (int m = 0; m < h; ++m) {
    if constexpr (direction == Direction::forward) {
      dst[2 * m] = first[m];
      dst[2 * m + 1] = second[m];
    } else {
      dst[m] = first[m] + second[m];
      dst[n - 1 - m] = first[m] - second[m];
    }
  }
}
template <Direction direction, class T> void straightLine(Zor32s len, const T* src, T* dst) {
  if (len == 8)
    straightLine<direction, 8>(src, dst);
  else if (len == 4)
    straightLine<direction, 4>(src, dst);
  else if (len == 2)
    straightLine<direction, 2>(src, dst);
  else
    *dst = *src;
}

// ---- The folded sum -----------------------------------------------------------------------------

// By the masked instructions: the others start from a register that g++ takes for uninitialised.
ZORS_INLINE simd::Vec<Zor32f, 8> gathered(const Zor32f* table, __m256i places) {
  const __m256 all = _mm256_castsi256_ps(_mm256_set1_epi32(-1));
  return {{_mm256_mask_i32gather_ps(_mm256_setzero_ps(), table, places, all, 4)}};
}
ZORS_INLINE simd::Vec<Zor64f, 4> gathered(const Zor64f* table, __m256i places) {
  const __m256d all = _mm256_castsi256_pd(_mm256_set1_epi32(-1));
  return {{_mm256_mask_i32gather_pd(_mm256_setzero_pd(), table, _mm256_castsi256_si128(places), all, 8)}};
}

// For a register of outputs: the sum of terms[i] * cosines[(start + i * step) mod turn] for i below count, start and
// step by lane. Even i run in one sum, odd ones in another, products and sums rounded each; first plus second.
template <class T>
ZORS_INLINE auto cosineSums(const T* cosines, Zor32s turn, __m256i start, __m256i step, const T* terms, Zor32s count) {
  using namespace simd;
  using V = Vec<T, lanesOf<T>>;
  const __m256i turns = _mm256_set1_epi32(turn);
  V sum[2] = {splat<V>(0), splat<V>(0)};
  __m256i place = start;
  for (Zor32s i = 0; i < count; ++i) {
    const V product = mul(gathered(cosines, place), splat<V>(terms[i]));
    sum[i % 2] = i < 2 ? product : add(sum[i % 2], product);
    place = _mm256_add_epi32(place, step);
    place = _mm256_min_epu32(place, _mm256_sub_epi32(place, turns));
  }
  return count > 1 ? add(sum[0], sum[1]) : sum[0];
}
inline constexpr Zor32s longestDirect = 48;  // in full vectors

// scale * output + offset for a register of outputs from `first` on; lanes past the last output repeat it.
ZORS_INLINE __m256i lanePlaces(Zor32s first, Zor32s last, Zor32s scale, Zor32s offset) {
  const __m256i lanes = _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7);
  const __m256i outputs = _mm256_min_epi32(_mm256_add_epi32(lanes, _mm256_set1_epi32(first)), _mm256_set1_epi32(last));
  return _mm256_add_epi32(_mm256_mullo_epi32(outputs, _mm256_set1_epi32(scale)), _mm256_set1_epi32(offset));
}

// Sums of x[k] + x[N - 1 - k] make the even terms, differences the odd ones; the middle value of an odd N joins even
// terms alone, with alternating signs, at the end.
template <class T> [[gnu::flatten]] void directForward(const Spec<T>& spec, const T* src, T* dst, T* work) {
  using namespace simd;
  constexpr Zor32s L = lanesOf<T>;
  const Zor32s n = spec.len, h = n / 2, turn = 4 * n;
  T* const sums = work;
  T* const differences = work + h;
  const T middle = src[h];
  for (Zor32s k = 0; k < h; ++k) {
    sums[k] = src[k] + src[n - 1 - k];
    differences[k] = src[k] - src[n - 1 - k];
  }
  T even[longestDirect] = {}, odd[longestDirect] = {};
  for (Zor32s m = 0; 2 * m < n; m += L) {  // cos((2 k + 1) t) of the terms t = 2 m and 2 m + 1
    const auto places = [&](Zor32s scale, Zor32s offset) { return lanePlaces(m, (n - 1) / 2, scale, offset); };
    store(even + m, cosineSums(spec.cosines, turn, places(2, 0), places(4, 0), sums, h));
    store(odd + m, cosineSums(spec.cosines, turn, places(2, 1), places(4, 2), differences, h));
  }
  if (n % 2 == 1)
    for (Zor32s m = 0; m <= h; ++m) even[m] = m % 2 == 0 ? even[m] + middle : even[m] - middle;
  dst[0] = even[0] * spec.firstScale;
  for (Zor32s t = 1; t < n; ++t) dst[t] = (t % 2 == 0 ? even : odd)[t / 2] * spec.otherScale;
}

// The same transposed: even terms make what x[k] and x[N - 1 - k] have in common, odd terms what they differ by.
template <class T> [[gnu::flatten]] void directInverse(const Spec<T>& spec, const T* src, T* dst, T* work) {
  using namespace simd;
  constexpr Zor32s L = lanesOf<T>;
  const Zor32s n = spec.len, h = n / 2, evens = n - h, turn = 4 * n;
  T* const even = work;
  T* const odd = work + evens;
  for (Zor32s t = 0; t < n; ++t)
    (t % 2 == 0 ? even : odd)[t / 2] = src[t] * (t == 0 ? spec.firstScale : spec.otherScale);
  T common[longestDirect] = {}, different[longestDirect] = {};
  for (Zor32s k = 0; k < evens; k += L) {  // cos((2 k + 1) t), t in steps of two
    const __m256i angle = lanePlaces(k, evens - 1, 2, 1), step = lanePlaces(k, evens - 1, 4, 2);
    store(common + k, cosineSums(spec.cosines, turn, _mm256_setzero_si256(), step, even, evens));
    store(different + k, cosineSums(spec.cosines, turn, angle, step, odd, h));
  }
  for (Zor32s k = 0; k < h; ++k) {
    dst[k] = common[k] + different[k];
    dst[n - 1 - k] = common[k] - different[k];
  }
  if (n % 2 == 1) dst[h] = common[h];
}

}  // namespace zors::dct
