// Elements as keys: signed integers of their width that ascend as the sort is to order them.
#pragma once

#include <cstddef>
#include <type_traits>

#include "zors/types.h"

namespace zors::sorting {

template <class T>
using KeyOf =
    std::conditional_t<sizeof(T) == 1, Zor8s,
                       std::conditional_t<sizeof(T) == 2, Zor16s, std::conditional_t<sizeof(T) == 4, Zor32s, Zor64s>>>;

// Floats order by sign and magnitude: NaN with the sign bit first, -0 before +0, other NaN last. A descending key is
// the complement of the ascending one.
template <class T, bool descending> struct Order {
  using Key = KeyOf<T>;
  static constexpr bool isKey = std::is_integral_v<T> && std::is_signed_v<T> && !descending;  // as it is

  static constexpr Key toKey(Key bits) { return complemented(ascending(bits)); }
  static constexpr Key fromKey(Key key) { return ascending(complemented(key)); }

  // Over a vector, in place or not.
  static void toKeys(const Key* bits, Key* keys, std::ptrdiff_t len) {
    for (std::ptrdiff_t i = 0; i < len; ++i) keys[i] = toKey(bits[i]);
  }
  static void fromKeys(const Key* keys, Key* bits, std::ptrdiff_t len) {
    for (std::ptrdiff_t i = 0; i < len; ++i) bits[i] = fromKey(keys[i]);
  }

 private:
  using Unsigned = std::make_unsigned_t<Key>;
  static constexpr Key complemented(Key key) { return Key(descending ? ~key : key); }
  static constexpr Key ascending(Key x) {  // its own inverse
    constexpr Unsigned top = Unsigned(Unsigned{1} << (8 * sizeof(Key) - 1));
    if constexpr (std::is_floating_point_v<T>)
      return Key(x ^ Key(Unsigned(x >> (8 * sizeof(Key) - 1)) & Unsigned(~top)));
    else if constexpr (std::is_unsigned_v<T>)
      return Key(Unsigned(x) ^ top);
    else
      return x;
  }
};

// Up to this length the order of the exchanges is part of the contract: of equal elements, zeros of both signs and NaN.
inline constexpr Zor32s longestSelection = 9;

// The greatest element (descending: the smallest), the first of equals, is exchanged with the last one; then the same
// with one element less. index may be null.
template <bool descending, class T> void selectionSort(T* x, Zor32s* index, Zor32s len) {
  for (Zor32s last = len - 1; last > 0; --last) {
    Zor32s best = 0;
    for (Zor32s i = 1; i <= last; ++i)
      if (descending ? x[i] < x[best] : x[i] > x[best]) best = i;
    std::swap(x[best], x[last]);
    if (index != nullptr) std::swap(index[best], index[last]);
  }
}

}  // namespace zors::sorting
