// zorsSortIndexAscend_*, zorsSortIndexDescend_*: elements by comparison, with the places that they had.
#include <numeric>

#include "exports/sorting.h"
#include "frame/check.h"
#include "sorting/quicksort.h"
#include "sorting/sort_keys.h"

namespace zors {
namespace {

using namespace sorting;

template <class T, bool descending> void sortIndexLong(T* srcDst, Zor32s* dstIndex, Zor32s len) {
  if constexpr (sizeof(T) < 4) {  // narrow keys are extended with or without sign: the complement descends
    const auto complement = [&] {
      if constexpr (descending)
        for (Zor32s i = 0; i < len; ++i) srcDst[i] = T(~srcDst[i]);
    };
    complement();
    quicksort(IndexedKeys<T, false>{srcDst, dstIndex}, len);
    complement();
  } else {
    using Order = sorting::Order<T, descending>;
    using Key = typename Order::Key;
    Key* const keys = reinterpret_cast<Key*>(srcDst);
    if constexpr (!Order::isKey) Order::toKeys(keys, keys, len);
    if constexpr (sizeof(T) == 4)
      quicksort(IndexedKeys<Key, false>{keys, dstIndex}, len);
    else
      quicksort(IndexedWideKeys{keys, dstIndex}, len);
    if constexpr (!Order::isKey) Order::fromKeys(keys, keys, len);
  }
}

template <bool descending, class T> ZorStatus sortIndex(T* srcDst, Zor32s* dstIndex, Zor32s len) {
  return check().pointers(srcDst, dstIndex).size(len).then([&] {
    std::iota(dstIndex, dstIndex + len, 0);
    if (len <= longestSelection)
      selectionSort<descending>(srcDst, dstIndex, len);
    else
      sortIndexLong<T, descending>(srcDst, dstIndex, len);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSortIndexAscend_8u_I(Zor8u* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexAscend_16s_I(Zor16s* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexAscend_16u_I(Zor16u* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexAscend_32s_I(Zor32s* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexAscend_32f_I(Zor32f* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexAscend_64f_I(Zor64f* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<false>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_8u_I(Zor8u* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_16s_I(Zor16s* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_16u_I(Zor16u* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_32s_I(Zor32s* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_32f_I(Zor32f* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
ZorStatus zorsSortIndexDescend_64f_I(Zor64f* srcDst, Zor32s* dstIndex, Zor32s len) { return sortIndex<true>(srcDst, dstIndex, len); }
// clang-format on

}  // namespace zors
