// zorsSortRadixAscend_*, zorsSortRadixDescend_*: elements by the digits of their keys, the least significant first.
#include <array>
#include <limits>
#include <numeric>

#include "exports/memory.h"
#include "exports/sorting.h"
#include "frame/check.h"
#include "sorting/counting.h"
#include "sorting/quicksort.h"
#include "sorting/sort_keys.h"

namespace zors {
namespace {

using namespace sorting;

struct Digit {
  int shift, bits;
  template <class U> ZORS_INLINE size_t of(U key) const { return size_t(key >> shift & ((U{1} << bits) - 1)); }
};
template <int bytes> inline constexpr auto digitsOf = std::array{Digit{0, 8}, Digit{8, 8}};
template <> inline constexpr auto digitsOf<4> = std::array{Digit{0, 11}, Digit{11, 11}, Digit{22, 10}};
// Below this length a pass costs more for its counters than for its elements, and 64-bit keys would take six passes.
// Equal keys are equal elements, so any sort by the same keys has the same result.
template <int bytes> inline constexpr Zor32s shortestRadix = bytes == 2 ? 500 : 4000;

// All counters are built while the keys are made; an odd number of passes starts from tmp, so that all end in data.
template <class T, bool descending> void radixSort(KeyOf<T>* data, KeyOf<T>* tmp, Zor32s len) {
  using Key = KeyOf<T>;
  using U = std::make_unsigned_t<Key>;
  using Order = sorting::Order<T, descending>;
  constexpr auto digits = digitsOf<sizeof(T)>;
  constexpr int passes = int{digits.size()};
  constexpr U top = U(U{1} << (8 * sizeof(T) - 1));  // signed keys to unsigned ones
  Zor32u counters[passes][size_t{1} << digits[0].bits];
  zors::zorsZero_32s(reinterpret_cast<Zor32s*>(counters), Zor32s(sizeof counters / sizeof(Zor32u)));
  Key *from = passes % 2 == 0 ? data : tmp, *to = passes % 2 == 0 ? tmp : data;
  for (Zor32s i = 0; i < len; ++i) {
    const U key = U(U(Order::toKey(data[i])) ^ top);
    from[i] = Key(key);
    unrolled<passes>([&](auto pass) ZORS_INLINE_LAMBDA { ++counters[pass][digits[pass].of(key)]; });
  }
  unrolled<passes>([&](auto pass) {
    auto& starts = counters[pass];
    std::exclusive_scan(std::begin(starts), std::end(starts), std::begin(starts), Zor32u{0});
    for (Zor32s i = 0; i < len; ++i) {
      const U key = U(from[i]);
      const Key moved = pass == passes - 1 ? Order::fromKey(Key(key ^ top)) : Key(key);
      to[starts[digits[pass].of(key)]++] = moved;
    }
    std::swap(from, to);
  });
}

template <bool descending, class T> ZorStatus sortRadix(T* srcDst, T* tmp, Zor32s len) {
  return check().pointers(srcDst, tmp).size(len).then([&] {
    if constexpr (sizeof(T) == 1) {
      countingSort<descending>(srcDst, len);
    } else {
      using Order = sorting::Order<T, descending>;
      using Key = typename Order::Key;
      Key* const data = reinterpret_cast<Key*>(srcDst);
      if constexpr (sizeof(T) < 8)
        if (len >= shortestRadix<sizeof(T)>) return radixSort<T, descending>(data, reinterpret_cast<Key*>(tmp), len);
      if constexpr (!Order::isKey) Order::toKeys(data, data, len);
      quicksort(Keys<Key>{data}, len);
      if constexpr (!Order::isKey) Order::fromKeys(data, data, len);
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSortRadixAscend_8u_I(Zor8u* srcDst, Zor8u* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_16s_I(Zor16s* srcDst, Zor16s* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_16u_I(Zor16u* srcDst, Zor16u* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_32s_I(Zor32s* srcDst, Zor32s* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_32u_I(Zor32u* srcDst, Zor32u* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_32f_I(Zor32f* srcDst, Zor32f* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixAscend_64f_I(Zor64f* srcDst, Zor64f* tmp, Zor32s len) { return sortRadix<false>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_8u_I(Zor8u* srcDst, Zor8u* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_16s_I(Zor16s* srcDst, Zor16s* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_16u_I(Zor16u* srcDst, Zor16u* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_32s_I(Zor32s* srcDst, Zor32s* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_32u_I(Zor32u* srcDst, Zor32u* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_32f_I(Zor32f* srcDst, Zor32f* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
ZorStatus zorsSortRadixDescend_64f_I(Zor64f* srcDst, Zor64f* tmp, Zor32s len) { return sortRadix<true>(srcDst, tmp, len); }
// clang-format on

}  // namespace zors
