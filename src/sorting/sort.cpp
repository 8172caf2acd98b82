// zorsSortAscend_*, zorsSortDescend_*: elements by comparison.
#include "exports/sorting.h"
#include "frame/check.h"
#include "sorting/counting.h"
#include "sorting/quicksort.h"
#include "sorting/sort_keys.h"

namespace zors {
namespace {

using namespace sorting;

template <class T, bool descending> void sortLong(T* srcDst, Zor32s len) {
  using Order = sorting::Order<T, descending>;
  using Key = typename Order::Key;
  Key* const keys = reinterpret_cast<Key*>(srcDst);
  if constexpr (!Order::isKey) Order::toKeys(keys, keys, len);
  quicksort(Keys<Key>{keys}, len);
  if constexpr (!Order::isKey) Order::fromKeys(keys, keys, len);
}
template <class T, bool descending>
requires(sizeof(T) == 1) void sortLong(T* srcDst, Zor32s len) {
  constexpr Zor32s shortest = 128;
  if (len >= shortest) return countingSort<descending>(srcDst, len);
  Keys<Zor16s>::Room room;
  constexpr Zor16s sign = descending ? -1 : 1;
  for (Zor32s i = 0; i < len; ++i) room.keys[i] = Zor16s(sign * srcDst[i]);
  sortShort(Keys<Zor16s>::in(room), 0, len, shortest);
  for (Zor32s i = 0; i < len; ++i) srcDst[i] = T(sign * room.keys[i]);
}

template <bool descending, class T> ZorStatus sort(T* srcDst, Zor32s len) {
  return check().pointers(srcDst).size(len).then([&] {
    if (len <= longestSelection)
      selectionSort<descending>(srcDst, nullptr, len);
    else
      sortLong<T, descending>(srcDst, len);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSortAscend_8u_I(Zor8u* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortAscend_16s_I(Zor16s* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortAscend_16u_I(Zor16u* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortAscend_32s_I(Zor32s* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortAscend_32f_I(Zor32f* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortAscend_64f_I(Zor64f* srcDst, Zor32s len) { return sort<false>(srcDst, len); }
ZorStatus zorsSortDescend_8u_I(Zor8u* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
ZorStatus zorsSortDescend_16s_I(Zor16s* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
ZorStatus zorsSortDescend_16u_I(Zor16u* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
ZorStatus zorsSortDescend_32s_I(Zor32s* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
ZorStatus zorsSortDescend_32f_I(Zor32f* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
ZorStatus zorsSortDescend_64f_I(Zor64f* srcDst, Zor32s len) { return sort<true>(srcDst, len); }
// clang-format on

}  // namespace zors
