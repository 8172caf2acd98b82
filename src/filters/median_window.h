// Running medians: networks for short masks, many outputs at once; a sorted window for the others.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "frame/part.h"

namespace zors::median {

using simd::Vec;

// ---- Networks -----------------------------------------------------------------------------------

// Of the first count registers the least comes to the front and the greatest to the end.
template <int count, class V, class All> ZORS_INLINE void extremesOut(All& x) {
  const auto sort = [&](int low, int high) ZORS_INLINE_LAMBDA {
    const V a{{x.r[low]}}, b{{x.r[high]}};
    x.r[low] = min(a, b).r[0];
    x.r[high] = max(a, b).r[0];
  };
  simd::unrolled<count / 2>([&](auto i) ZORS_INLINE_LAMBDA { sort(i, count - 1 - i); });
  simd::unrolled<(count - 1) / 2>([&](auto i) ZORS_INLINE_LAMBDA { sort(0, i + 1); });
  simd::unrolled<(count - 1) / 2>([&](auto i) ZORS_INLINE_LAMBDA { sort(count / 2 + i, count - 1); });
}
template <int count, class V, class All, class More> ZORS_INLINE V selected(All& x, More more) {
  extremesOut<count, V>(x);
  if constexpr (count == 3) return V{{x.r[1]}};
  if constexpr (count > 3) {
    x.r[0] = more().r[0];
    return selected<count - 1, V>(x, more);
  }
}
// Medians of the windows in[i] to in[i + mask - 1]: of mask / 2 + 2 elements neither the least nor the greatest is the
// median; they go, one more element comes, and so on.
template <int mask, class T> ZORS_INLINE Vec<T, simd::lanesOf<T>> medians(const T* in) {
  constexpr int lanes = simd::lanesOf<T>, first = mask / 2 + 2;
  auto x =
      simd::build<Vec<T, lanes * first>>([&](auto i) ZORS_INLINE_LAMBDA { return simd::load<lanes>(in + i).r[0]; });
  const T* next = in + first;
  return selected<first, Vec<T, lanes>>(x, [&]() ZORS_INLINE_LAMBDA { return simd::load<lanes>(next++); });
}
// len windows; in has a register of lanes more where len is less than a register holds. Between the first register and
// the last one stores are aligned.
template <int mask, class T> [[gnu::flatten]] void network(const T* in, T* out, std::ptrdiff_t len) {
  constexpr int lanes = simd::lanesOf<T>;
  if (len < lanes) return simd::storePart(out, medians<mask>(in), int(len));
  simd::store(out, medians<mask>(in));
  const auto beyond = reinterpret_cast<std::uintptr_t>(out) % 32 / sizeof(T);
  std::ptrdiff_t i = lanes - static_cast<std::ptrdiff_t>(beyond);
  for (; i + 4 * lanes <= len; i += 4 * lanes)
    simd::unrolled<4>([&](auto k)
                          ZORS_INLINE_LAMBDA { simd::store(out + i + k * lanes, medians<mask>(in + i + k * lanes)); });
  for (; i < len - lanes; i += lanes) simd::store(out + i, medians<mask>(in + i));
  simd::store(out + len - lanes, medians<mask>(in + len - lanes));
}

// ---- Sorted windows -----------------------------------------------------------------------------

// Floats are sorted as integers of one order with them; the map is its own inverse.
template <class T>
using Key =
    std::conditional_t<std::is_same_v<T, Zor32f>, Zor32s, std::conditional_t<std::is_same_v<T, Zor64f>, Zor64s, T>>;
template <class T> Key<T> keyOf(T x) {
  Key<T> key;
  std::memcpy(&key, &x, sizeof key);
  if constexpr (std::is_floating_point_v<T>) key ^= (key >> (8 * sizeof key - 1)) & std::numeric_limits<Key<T>>::max();
  return key;
}
template <class T> T valueOf(Key<T> key) {
  if constexpr (std::is_floating_point_v<T>) key ^= (key >> (8 * sizeof key - 1)) & std::numeric_limits<Key<T>>::max();
  T x;
  std::memcpy(&x, &key, sizeof x);
  return x;
}

// An array of up to registers * lanes - 1 sorted keys around its middle, lowest keys before them, highest behind.
template <class K, int registers> class KeysInRegisters {
 public:
  KeysInRegisters(const K* sorted, std::ptrdiff_t count) {
    K keys[places];
    std::fill(keys, keys + half, std::numeric_limits<K>::min());
    std::fill(keys + half, keys + places, std::numeric_limits<K>::max());
    std::copy(sorted, sorted + count, keys + half - count / 2);
    keys_ = simd::load<places>(keys);
  }
  // Takes out a key that is there and puts in another. Keys from the old one on move down, then those above the new one
  // move up: key k becomes min(k, max(the one below k, the new one)).
  ZORS_INLINE void replace(K oldKey, K newKey) {
    const One old = simd::splat<One>(oldKey), entering = simd::splat<One>(newKey);
    const One lowest = simd::splat<One>(std::numeric_limits<K>::min()),
              highest = simd::splat<One>(std::numeric_limits<K>::max());
    const All left = simd::build<All>([&](auto r) ZORS_INLINE_LAMBDA {
      const One here{{keys_.r[r]}};
      One above = highest;
      if constexpr (r + 1 < registers) above = One{{keys_.r[r + 1]}};
      return simd::select(isBelow(here, old), movedDown(here, above), here).r[0];
    });
    keys_ = simd::build<All>([&](auto r) ZORS_INLINE_LAMBDA {
      const One here{{left.r[r]}};
      One under = lowest;
      if constexpr (r > 0) under = One{{left.r[r - 1]}};
      return lesser(here, greater(movedUpFrom(here, under), entering)).r[0];
    });
  }
  ZORS_INLINE K median() const {
    const __m128i at =
        registers > 1 ? _mm256_castsi256_si128(keys_.r[registers / 2]) : _mm256_extracti128_si256(keys_.r[0], 1);
    return static_cast<K>(_mm_cvtsi128_si64(at));
  }

 private:
  static constexpr int lanes = simd::lanesOf<K>, places = registers * lanes, half = places / 2;
  using One = Vec<K, lanes>;
  using All = Vec<K, places>;

  ZORS_INLINE static One isBelow(One a, One b) {  // all ones where a < b
    if constexpr (std::is_signed_v<K>)
      return simd::above(b, a);
    else
      return simd::differing(simd::atLeast(a, b), simd::same(a, K(~K{})));
  }
  ZORS_INLINE static One lesser(One a, One b) {
    if constexpr (sizeof(K) == 8)
      return simd::select(simd::above(a, b), a, b);
    else
      return min(a, b);
  }
  ZORS_INLINE static One greater(One a, One b) {
    if constexpr (sizeof(K) == 8)
      return simd::select(simd::above(a, b), b, a);
    else
      return max(a, b);
  }
  // One place down, the lowest key of above at the top; one place up, the highest key of under at the bottom.
  ZORS_INLINE static One movedDown(One x, One above) {
    if constexpr (sizeof(K) == 4)
      return {{_mm256_permutevar8x32_epi32(_mm256_blend_epi32(x.r[0], above.r[0], 1),
                                           _mm256_setr_epi32(1, 2, 3, 4, 5, 6, 7, 0))}};
    else if constexpr (sizeof(K) == 8)
      return {{_mm256_permute4x64_epi64(_mm256_blend_epi32(x.r[0], above.r[0], 3), 0x39)}};
    else
      return {{_mm256_alignr_epi8(_mm256_permute2x128_si256(x.r[0], above.r[0], 0x21), x.r[0], sizeof(K))}};
  }
  ZORS_INLINE static One movedUpFrom(One x, One under) {
    if constexpr (sizeof(K) == 4)
      return {{_mm256_permutevar8x32_epi32(_mm256_blend_epi32(x.r[0], under.r[0], 0x80),
                                           _mm256_setr_epi32(7, 0, 1, 2, 3, 4, 5, 6))}};
    else if constexpr (sizeof(K) == 8)
      return {{_mm256_permute4x64_epi64(_mm256_blend_epi32(x.r[0], under.r[0], 0xC0), 0x93)}};
    else
      return {{_mm256_alignr_epi8(x.r[0], _mm256_permute2x128_si256(under.r[0], x.r[0], 0x21), 16 - sizeof(K))}};
  }

  All keys_;
};

// A sorted array of any length in memory.
template <class K> class KeysInMemory {
 public:
  KeysInMemory(K* sorted, std::ptrdiff_t count) : keys_(sorted), count_(count) {}
  void replace(K oldKey, K newKey) {
    K* from = firstNotBelow(oldKey);
    K* to = firstNotBelow(newKey);
    if (to > from) {
      --to;
      std::memmove(from, from + 1, std::size_t(to - from) * sizeof(K));
    } else {
      std::memmove(to + 1, to, std::size_t(from - to) * sizeof(K));
    }
    *to = newKey;
  }
  K median() const { return keys_[count_ / 2]; }

 private:
  K* firstNotBelow(K key) const {  // without a branch on the data
    K* base = keys_;
    for (std::ptrdiff_t left = count_; left > 0;) {
      const std::ptrdiff_t step = (left + 1) / 2;
      base = base[step - 1] < key ? base + step : base;
      left -= step;
    }
    return base;
  }

  K* keys_;
  std::ptrdiff_t count_;
};

}  // namespace zors::median
