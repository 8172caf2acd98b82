// Quicksort by vectors: partitions in place until a network sorts what is left. It sorts sequences: the arrays of a
// call as rows of ascending signed keys. The order within equal keys is any, where the sequence does not make keys
// differ.
#pragma once

#include <bit>
#include <cstring>
#include <limits>

#include "sorting/sort_network.h"

namespace zors::sorting {

// ---- Sequences ----------------------------------------------------------------------------------

// Plain keys.
template <class T> struct Keys {
  using Rank = T;  // what the partitions compare
  using Row = sorting::Row<T>;
  struct Room {
    alignas(32) T keys[8 * Row::lanes];
  };
  static constexpr int groupSize = sizeof(T) == 2 ? 8 : Row::lanes;

  T* keys;

  static Keys in(Room& room) { return {room.keys}; }
  static T highestAlike(T rank) { return rank; }
  static T lowestAlike(T rank) { return rank; }
  ZORS_INLINE T rank(std::ptrdiff_t at) const { return keys[at]; }
  ZORS_INLINE void move(std::ptrdiff_t at, Keys to, std::ptrdiff_t toAt) const { to.keys[toAt] = keys[at]; }
  ZORS_INLINE void copy(std::ptrdiff_t at, std::ptrdiff_t count, Keys to, std::ptrdiff_t toAt) const {
    std::memcpy(to.keys + toAt, keys + at, size_t(count) * sizeof(T));
  }
  ZORS_INLINE Row loadRow(std::ptrdiff_t at) const {
    return {{_mm256_loadu_si256(reinterpret_cast<const __m256i*>(keys + at))}};
  }
  ZORS_INLINE void storeRow(std::ptrdiff_t at, Row x) const {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(keys + at), x.r[0]);
  }
  ZORS_INLINE auto loadGroup(std::ptrdiff_t at) const {
    if constexpr (sizeof(T) == 2)
      return _mm_loadu_si128(reinterpret_cast<const __m128i*>(keys + at));
    else
      return loadRow(at);
  }
  ZORS_INLINE void storeGroup(std::ptrdiff_t at, auto x) const {
    if constexpr (sizeof(T) == 2)
      _mm_storeu_si128(reinterpret_cast<__m128i*>(keys + at), x);
    else
      storeRow(at, x);
  }
};

// Keys K of up to 32 bits and their indices, as 64-bit keys: the index decides between equal ones. If not stable, the
// partitions take equal keys as equal and leave long runs of them alone.
template <class K, bool stable> struct IndexedKeys {
  using Rank = Zor64s;
  using Row = sorting::Row<Zor64s>;
  struct Room {
    alignas(32) K keys[8 * Row::lanes];
    Zor32s index[8 * Row::lanes];
  };
  static constexpr int groupSize = Row::lanes;
  static constexpr Zor64s indexBits = stable ? 0 : 0xFFFFFFFF;

  K* keys;
  Zor32s* index;

  static IndexedKeys in(Room& room) { return {room.keys, room.index}; }
  static Zor64s highestAlike(Zor64s rank) { return rank | indexBits; }
  static Zor64s lowestAlike(Zor64s rank) { return rank & ~indexBits; }
  ZORS_INLINE Zor64s rank(std::ptrdiff_t at) const { return Zor64s{keys[at]} * (Zor64s{1} << 32) | index[at]; }
  ZORS_INLINE void move(std::ptrdiff_t at, IndexedKeys to, std::ptrdiff_t toAt) const {
    to.keys[toAt] = keys[at];
    to.index[toAt] = index[at];
  }
  ZORS_INLINE void copy(std::ptrdiff_t at, std::ptrdiff_t count, IndexedKeys to, std::ptrdiff_t toAt) const {
    std::memcpy(to.keys + toAt, keys + at, size_t(count) * sizeof(K));
    std::memcpy(to.index + toAt, index + at, size_t(count) * sizeof(Zor32s));
  }
  ZORS_INLINE Row loadRow(std::ptrdiff_t at) const {
    __m256i key;
    if constexpr (sizeof(K) == 4) {
      key = _mm256_cvtepu32_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(keys + at)));
    } else if constexpr (sizeof(K) == 2) {
      const __m128i four = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(keys + at));
      key = std::is_signed_v<K> ? _mm256_cvtepi16_epi64(four) : _mm256_cvtepu16_epi64(four);
    } else {
      int four;
      std::memcpy(&four, keys + at, 4);
      key = _mm256_cvtepu8_epi64(_mm_cvtsi32_si128(four));
    }
    const __m256i place = _mm256_cvtepu32_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(index + at)));
    return {{_mm256_or_si256(_mm256_slli_epi64(key, 32), place)}};
  }
  ZORS_INLINE void storeRow(std::ptrdiff_t at, Row x) const {
    const __m256i apart = _mm256_permutevar8x32_epi32(x.r[0], _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(index + at), _mm256_castsi256_si128(apart));
    const __m128i key = _mm256_extracti128_si256(apart, 1);
    if constexpr (sizeof(K) == 4) {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(keys + at), key);
    } else if constexpr (sizeof(K) == 2) {
      const __m128i low = _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, 0, 0, 0, 0, 0, 0, 0, 0);
      _mm_storel_epi64(reinterpret_cast<__m128i*>(keys + at), _mm_shuffle_epi8(key, low));
    } else {
      const int four = _mm_cvtsi128_si32(_mm_shuffle_epi8(key, _mm_set1_epi32(0x0C080400)));
      std::memcpy(keys + at, &four, 4);
    }
  }
  ZORS_INLINE Row loadGroup(std::ptrdiff_t at) const { return loadRow(at); }
  ZORS_INLINE void storeGroup(std::ptrdiff_t at, Row x) const { storeRow(at, x); }
};

// 64-bit keys and their indices.
struct IndexedWideKeys {
  using Rank = Zor64s;
  using Row = sorting::Row<Zor64s, 2>;
  struct Room {
    alignas(32) Zor64s keys[8 * Row::lanes];
    Zor32s index[8 * Row::lanes];
  };
  static constexpr int groupSize = Row::lanes;

  Zor64s* keys;
  Zor32s* index;

  static IndexedWideKeys in(Room& room) { return {room.keys, room.index}; }
  static Zor64s highestAlike(Zor64s rank) { return rank; }
  static Zor64s lowestAlike(Zor64s rank) { return rank; }
  ZORS_INLINE Zor64s rank(std::ptrdiff_t at) const { return keys[at]; }
  ZORS_INLINE void move(std::ptrdiff_t at, IndexedWideKeys to, std::ptrdiff_t toAt) const {
    to.keys[toAt] = keys[at];
    to.index[toAt] = index[at];
  }
  ZORS_INLINE void copy(std::ptrdiff_t at, std::ptrdiff_t count, IndexedWideKeys to, std::ptrdiff_t toAt) const {
    std::memcpy(to.keys + toAt, keys + at, size_t(count) * sizeof(Zor64s));
    std::memcpy(to.index + toAt, index + at, size_t(count) * sizeof(Zor32s));
  }
  ZORS_INLINE Row loadRow(std::ptrdiff_t at) const {
    return {{_mm256_loadu_si256(reinterpret_cast<const __m256i*>(keys + at)),
             _mm256_cvtepi32_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(index + at)))}};
  }
  ZORS_INLINE void storeRow(std::ptrdiff_t at, Row x) const {
    const __m256i low = _mm256_permutevar8x32_epi32(x.r[1], _mm256_setr_epi32(0, 2, 4, 6, 0, 2, 4, 6));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(keys + at), x.r[0]);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(index + at), _mm256_castsi256_si128(low));
  }
  ZORS_INLINE Row loadGroup(std::ptrdiff_t at) const { return loadRow(at); }
  ZORS_INLINE void storeGroup(std::ptrdiff_t at, Row x) const { storeRow(at, x); }
};

// ---- Short sequences ----------------------------------------------------------------------------

// All ones in the lanes below count, which may be negative.
template <class T> ZORS_INLINE __m256i lanesBelow(std::ptrdiff_t count) {
  alignas(32) static constexpr auto numbers = [] {
    std::array<T, simd::lanesOf<T>> lanes{};
    for (int i = 0; i < simd::lanesOf<T>; ++i) lanes[size_t(i)] = T(i);
    return lanes;
  }();
  return greater<T>(simd::splatRegister(T(count)), _mm256_load_si256(reinterpret_cast<const __m256i*>(numbers.data())));
}

// size keys from more than half of R rows; what follows them in the last rows is read, and written as it was.
template <int R, class S> [[gnu::noinline]] void sortByRows(S s, std::ptrdiff_t first, std::ptrdiff_t size) {
  using Row = typename S::Row;
  using T = typename Row::Key;
  constexpr int full = R / 2;
  Row x[R];
  unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA {
    x[i] = s.loadRow(first + i * Row::lanes);
    if constexpr (i >= full) {
      const __m256i inside = lanesBelow<T>(size - i * Row::lanes);
      for (auto& r : x[i].r) r = _mm256_blendv_epi8(simd::splatRegister(std::numeric_limits<T>::max()), r, inside);
    }
  });
  sortRows(x);
  unrolled<R>([&](auto i) ZORS_INLINE_LAMBDA {
    if constexpr (i >= full) {
      const __m256i inside = lanesBelow<T>(size - i * Row::lanes);
      const Row before = s.loadRow(first + i * Row::lanes);
      for (int k = 0; k < int(std::size(x[i].r)); ++k) x[i].r[k] = _mm256_blendv_epi8(before.r[k], x[i].r[k], inside);
    }
    s.storeRow(first + i * Row::lanes, x[i]);
  });
}
template <class S> void sortShort(S s, std::ptrdiff_t first, std::ptrdiff_t size, std::ptrdiff_t end) {
  constexpr int lanes = S::Row::lanes;
  if (size <= 1) return;
  const int rows = size <= lanes ? 1 : size <= 2 * lanes ? 2 : size <= 4 * lanes ? 4 : 8;
  if (first + rows * lanes > end) {  // rows that would reach over the end are sorted elsewhere
    typename S::Room room{};
    const S spare = S::in(room);
    s.copy(first, size, spare, 0);
    sortShort(spare, 0, size, 8 * lanes);
    return spare.copy(0, size, s, first);
  }
  switch (rows) {
    case 1:
      return sortByRows<1>(s, first, size);
    case 2:
      return sortByRows<2>(s, first, size);
    case 4:
      return sortByRows<4>(s, first, size);
    default:
      return sortByRows<8>(s, first, size);
  }
}

// ---- Partitions ---------------------------------------------------------------------------------

// The order that brings the lanes whose bit is clear to the front and the others to the back.
alignas(64) inline constexpr auto partitionOrders = [] {
  std::array<std::array<Zor8u, 8>, 256> table{};
  for (unsigned mask = 0; mask < 256; ++mask) {
    size_t n = 0;
    for (unsigned above = 0; above < 2; ++above)
      for (unsigned lane = 0; lane < 8; ++lane)
        if ((mask >> lane & 1) == above) table[mask][n++] = Zor8u(lane);
  }
  return table;
}();
ZORS_INLINE __m128i partitionOrder(unsigned mask) {
  return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(partitionOrders[mask].data()));
}

// A bit for each eighth of a group that is above the pivot.
ZORS_INLINE unsigned maskAbove(__m128i group, Zor16s pivot) {
  const __m128i above = _mm_cmpgt_epi16(group, _mm_set1_epi16(pivot));
  return unsigned(_mm_movemask_epi8(_mm_packs_epi16(above, _mm_setzero_si128())));
}
template <class T, int W> ZORS_INLINE unsigned maskAbove(Row<T, W> group, T pivot) {
  return unsigned(_mm256_movemask_ps(_mm256_castsi256_ps(greater<T>(group.r[0], simd::splatRegister(pivot)))));
}
ZORS_INLINE __m128i ordered(__m128i group, unsigned mask) {
  const __m128i order = partitionOrder(mask), twice = _mm_add_epi8(order, order);
  return _mm_shuffle_epi8(group, _mm_unpacklo_epi8(twice, _mm_add_epi8(twice, _mm_set1_epi8(1))));
}
template <class T, int W> ZORS_INLINE Row<T, W> ordered(Row<T, W> group, unsigned mask) {
  const __m256i order = _mm256_cvtepu8_epi32(partitionOrder(mask));
  return eachRegister<T, W>([&](int k) ZORS_INLINE_LAMBDA { return _mm256_permutevar8x32_epi32(group.r[k], order); });
}

// Keys above the pivot to the end; returns how many are not. From both ends a step is set aside; then the next step is
// read at the side that has less room, so that both have room for a group at each store.
template <class S> std::ptrdiff_t partition(S s, std::ptrdiff_t first, std::ptrdiff_t size, typename S::Rank pivot) {
  constexpr int group = S::groupSize, groups = 4, step = groups * group;
  struct Aside {
    typename S::Room room[3];
  };
  static_assert(sizeof(S::Room::keys) >= step * sizeof(S::Room::keys[0]));
  Aside aside;
  const S head = S::in(aside.room[0]), tail = S::in(aside.room[1]), middle = S::in(aside.room[2]);
  std::ptrdiff_t left = first + step, right = first + size - step, toLeft = first, toRight = first + size;
  s.copy(first, step, head, 0);
  s.copy(right, step, tail, 0);
  const auto put = [&](auto x) ZORS_INLINE_LAMBDA {
    const unsigned mask = maskAbove(x, pivot);
    const int above = std::popcount(mask) * group / 8;
    x = ordered(x, mask);
    s.storeGroup(toLeft, x);
    s.storeGroup(toRight - group, x);
    toLeft += group - above;
    toRight -= above;
  };
  while (right - left >= step) {
    const bool fromLeft = left - toLeft <= toRight - right;
    const std::ptrdiff_t at = fromLeft ? left : right - step;
    left += fromLeft ? step : 0;
    right -= fromLeft ? 0 : step;
    decltype(s.loadGroup(at)) x[groups];
    unrolled<groups>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = s.loadGroup(at + i * group); });
    unrolled<groups>([&](auto i) ZORS_INLINE_LAMBDA { put(x[i]); });
  }
  // The rest, its single keys first: the room is one piece now, and the last groups fill it exactly.
  const std::ptrdiff_t rest = right - left, whole = rest / group * group;
  s.copy(left, rest, middle, 0);
  for (std::ptrdiff_t i = whole; i < rest; ++i) {
    const bool above = middle.rank(i) > pivot;
    middle.move(i, s, above ? toRight - 1 : toLeft);
    toLeft += !above;
    toRight -= above;
  }
  for (std::ptrdiff_t i = 0; i < whole; i += group) put(middle.loadGroup(i));
  for (int i = 0; i < step; i += group) put(head.loadGroup(i));
  for (int i = 0; i < step; i += group) put(tail.loadGroup(i));
  return toLeft - first;
}

// The median of keys at places that no simple pattern of the input meets.
template <class S> typename S::Rank sampledPivot(S s, std::ptrdiff_t first, std::ptrdiff_t size, Zor64u& random) {
  using T = typename S::Rank;
  typename Keys<T>::Room room;
  const int count = size > 2048 ? 8 * Keys<T>::Row::lanes : 16;
  for (int i = 0; i < count; ++i) {
    random = random * 6364136223846793005u + 1442695040888963407u;
    room.keys[i] = s.rank(first + std::ptrdiff_t((random >> 32) * Zor64u(size) >> 32));
  }
  sortShort(Keys<T>::in(room), 0, count, 8 * Keys<T>::Row::lanes);
  return room.keys[count / 2];
}
// Half the way between the lowest and the highest key: each such pivot halves the range, whatever the input.
template <class S> typename S::Rank middlePivot(S s, std::ptrdiff_t first, std::ptrdiff_t size) {
  using T = typename S::Rank;
  T low = s.rank(first), high = low;
  for (std::ptrdiff_t i = 1; i < size; ++i) {
    const T x = s.rank(first + i);
    low = x < low ? x : low;
    high = x > high ? x : high;
  }
  return T((low & high) + ((low ^ high) >> 1));
}

// ---- The sort -----------------------------------------------------------------------------------

template <class S> void quicksort(S s, std::ptrdiff_t len) {
  using T = typename S::Rank;
  constexpr std::ptrdiff_t blockSize = 8 * S::Row::lanes;
  struct Segment {
    std::ptrdiff_t first, size;
    bool halve;  // the pivot before it was a bad one
  };
  Segment open[64];  // the larger parts: each at most half as long as the one before
  int count = 0;
  Segment at{0, len, false};
  Zor64u random = 1;
  for (;;) {
    while (at.size > blockSize) {
      const T pivot = at.halve ? middlePivot(s, at.first, at.size) : sampledPivot(s, at.first, at.size, random);
      const std::ptrdiff_t below = partition(s, at.first, at.size, S::highestAlike(pivot));
      if (below == at.size) {  // no key is above the pivot: those like it are in place once they are at the end
        const T lowest = S::lowestAlike(pivot);
        at.size = lowest == std::numeric_limits<T>::min() ? 0 : partition(s, at.first, at.size, T(lowest - 1));
        at.halve = false;
        continue;
      }
      Segment low{at.first, below, false}, high{at.first + below, at.size - below, false};
      if (low.size > high.size) std::swap(low, high);
      high.halve = low.size < at.size / 16;
      open[count++] = high;
      at = low;
    }
    sortShort(s, at.first, at.size, len);
    if (count == 0) return;
    at = open[--count];
  }
}

}  // namespace zors::sorting
