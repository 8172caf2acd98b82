// The greatest and the smallest element of a vector, and where they first stand.
//
// The running extreme starts at element 0 and is replaced only by an element that compares greater (or less): a NaN
// counts only as element 0, where it stays, and of equal elements the first is the one found, also of zeros of both
// signs. All lanes start at element 0, so this holds for any number of them; and as meeting an element twice changes
// nothing, the rest of a vector is one more vector that overlaps.
#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <limits>
#include <tuple>

#include "frame/map.h"
#include "frame/sums/rows.h"
#include "zors/types.h"

namespace zors::extremes {

struct Max {
  template <class V> ZORS_INLINE static V pick(V next, V best) { return simd::max(next, best); }
  template <class T> static bool better(T next, T best) { return next > best; }
};
struct Min {
  template <class V> ZORS_INLINE static V pick(V next, V best) { return simd::min(next, best); }
  template <class T> static bool better(T next, T best) { return next < best; }
};

// What is compared: elements as they are, or their magnitudes, that of the lowest integer saturated.
struct AsIs {
  template <class T, int L> ZORS_INLINE simd::Vec<T, L> operator()(simd::Vec<T, L> x) const { return x; }
  template <class T> ZORS_INLINE T operator()(T x) const { return x; }
};
struct Magnitude {
  template <int L> ZORS_INLINE simd::Vec<Zor16s, L> operator()(simd::Vec<Zor16s, L> x) const {
    return simd::max(x, simd::subSaturated(simd::same(x, 0), x));
  }
  template <int L> ZORS_INLINE simd::Vec<Zor32s, L> operator()(simd::Vec<Zor32s, L> x) const {
    const auto magnitude = simd::as<Zor32u>(simd::max(x, simd::sub(simd::same(x, 0), x)));  // the lowest stays, as 2^31
    return simd::as<Zor32s>(
        simd::min(simd::sub(magnitude, simd::as<Zor32u>(simd::shiftRight(simd::as<Zor32s>(magnitude), 31))),
                  simd::same(magnitude, INT32_MAX)));
  }
  template <std::integral T> ZORS_INLINE T operator()(T x) const {
    return x >= 0 ? x : x == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : T(-x);
  }
};

// f over the lanes of a register, pairwise, until all lanes hold the result.
template <class T, class F> ZORS_INLINE T foldLanes(simd::Vec<T, simd::lanesOf<T>> x, F f) {
  using V = decltype(x);
  using R = typename V::Register;
  const auto folded = [&](__m256i other) ZORS_INLINE_LAMBDA { x = f(V{{simd::fromBits<R>(other)}}, x); };
  folded(_mm256_permute4x64_epi64(simd::bits(x.r[0]), 0x4E));
  folded(_mm256_shuffle_epi32(simd::bits(x.r[0]), 0x4E));
  if constexpr (sizeof(T) <= 4) folded(_mm256_shuffle_epi32(simd::bits(x.r[0]), 0xB1));
  if constexpr (sizeof(T) <= 2) folded(_mm256_alignr_epi8(simd::bits(x.r[0]), simd::bits(x.r[0]), 2));
  if constexpr (sizeof(T) == 1) folded(_mm256_alignr_epi8(simd::bits(x.r[0]), simd::bits(x.r[0]), 1));
  T out;
  const __m128i low = _mm256_castsi256_si128(simd::bits(x.r[0]));
  if constexpr (std::same_as<T, Zor32f>)
    out = _mm_cvtss_f32(_mm_castsi128_ps(low));
  else if constexpr (std::same_as<T, Zor64f>)
    out = _mm_cvtsd_f64(_mm_castsi128_pd(low));
  else
    out = T(_mm_cvtsi128_si64(low));
  return out;
}

// Running extremes of one side in four registers.
template <class Side, class T> class Running {
 public:
  static constexpr int registers = 4, step = simd::lanesOf<T>;
  using V = simd::Vec<T, step>;

  ZORS_INLINE explicit Running(T first) {
    for (V& lanes : best_) lanes = simd::splat<V>(first);
  }
  ZORS_INLINE void take(int at, V x) { best_[at] = Side::pick(x, best_[at]); }
  ZORS_INLINE T best() const {
    const auto pick = [](V next, V best) ZORS_INLINE_LAMBDA { return Side::pick(next, best); };
    return foldLanes<T>(pick(pick(best_[1], best_[0]), pick(best_[3], best_[2])), pick);
  }

 private:
  V best_[registers];
};

// Shows all elements of a vector to the running extremes, some more than once.
template <class Read, class T, class... R> ZORS_INLINE void show(const T* src, std::ptrdiff_t len, R&... running) {
  constexpr int step = simd::lanesOf<T>, round = 4 * step;
  const auto take = [&](int at, simd::Vec<T, step> x) ZORS_INLINE_LAMBDA { (running.take(at, Read{}(x)), ...); };
  const auto takeRound = [&](std::ptrdiff_t i) ZORS_INLINE_LAMBDA {
    simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA { take(k, simd::load<step>(src + i + k * step)); });
  };
  if (len >= round) {
    takeRound(0);
    for (std::ptrdiff_t i = detail::toBoundary<step>(src); i < len - round; i += round) takeRound(i);
    takeRound(len - round);
  } else if (len >= step) {
    for (std::ptrdiff_t i = 0; i < len - step; i += step) take(0, simd::load<step>(src + i));
    take(1, simd::load<step>(src + len - step));
  } else {
    take(0, simd::loadPart<step>(src, int(len)));
  }
}

// The index of the first element that is val; there is one.
template <class Read, class T> std::ptrdiff_t firstEqual(const T* src, std::ptrdiff_t len, T val) {
  constexpr int step = simd::lanesOf<T>;
  const auto wanted = simd::splat<simd::Vec<T, step>>(val);
  std::ptrdiff_t i = 0;
  for (; i + step <= len; i += step) {
    const auto x = Read{}(simd::load<step>(src + i));
    unsigned found;
    if constexpr (std::same_as<T, Zor32f>)
      found = unsigned(_mm256_movemask_ps(_mm256_cmp_ps(x.r[0], wanted.r[0], _CMP_EQ_OQ)));
    else if constexpr (std::same_as<T, Zor64f>)
      found = unsigned(_mm256_movemask_pd(_mm256_cmp_pd(x.r[0], wanted.r[0], _CMP_EQ_OQ)));
    else
      found = unsigned(_mm256_movemask_epi8(simd::equal(x, wanted).r[0]));
    constexpr int bitsPerElement = std::floating_point<T> ? 1 : int{sizeof(T)};
    if (found != 0) return i + std::countr_zero(found) / bitsPerElement;
  }
  while (i < len - 1 && Read{}(readAt(src + i)) != val) ++i;
  return i;
}

// One side's extreme and its first index.
template <class T> struct Place {
  T val;
  std::ptrdiff_t index;
};

// The extremes of all sides in one pass. A block in which a side improves is remembered and searched afterwards.
template <class Read, class... Side, class T> [[gnu::flatten]] auto places(const T* src, std::ptrdiff_t len) {
  constexpr std::ptrdiff_t block = 4096 / sizeof(T);
  const T first = Read{}(readAt(src));
  std::tuple<Running<Side, T>...> running{Running<Side, T>(first)...};
  std::array<Place<T>, sizeof...(Side)> found;
  found.fill({first, 0});
  for (std::ptrdiff_t at = 0; at < len; at += block) {
    std::apply([&](auto&... side) ZORS_INLINE_LAMBDA { show<Read>(src + at, std::min(block, len - at), side...); },
               running);
    [&]<std::size_t... k>(std::index_sequence<k...>) ZORS_INLINE_LAMBDA {
      (
          [&] {
            const T best = std::get<k>(running).best();
            if (Side::better(best, found[k].val)) found[k] = {best, at};
          }(),
          ...);
    }
    (std::index_sequence_for<Side...>{});
  }
  for (auto& [val, index] : found)
    if (val == val) index += firstEqual<Read>(src + index, std::min(block, len - index), val);
  return found;
}

// The extremes alone. Of zeros the first is looked for, as they may differ in sign.
template <class Read, class... Side, class T>
[[gnu::flatten]] std::array<T, sizeof...(Side)> values(const T* src, std::ptrdiff_t len) {
  const T first = Read{}(readAt(src));
  std::tuple<Running<Side, T>...> running{Running<Side, T>(first)...};
  return std::apply(
      [&](auto&... side) ZORS_INLINE_LAMBDA {
        show<Read>(src, len, side...);
        const auto value = [&](T best) {
          if constexpr (std::floating_point<T>) {
            if (best == 0) [[unlikely]]
              return readAt(src + firstEqual<Read>(src, len, best));
          }
          return best;
        };
        return std::array<T, sizeof...(Side)>{value(side.best())...};
      },
      running);
}

}  // namespace zors::extremes
