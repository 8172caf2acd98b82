// zorsSortRadixIndexAscend_*, zorsSortRadixIndexDescend_*: the stable order of keys that stay where they are.
#include <cstring>
#include <numeric>

#include "exports/sorting.h"
#include "frame/check.h"
#include "sorting/quicksort.h"
#include "sorting/sort_keys.h"

namespace zors {
namespace {

using namespace sorting;

// Keys are read once, in order; the index makes them all different, so that the order is the stable one.
template <bool descending, class T>
ZorStatus sortRadixIndex(const T* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) {
  return check().pointers(src, dstIndex, tmpIndex).size(len).then([&] {
    const char* const keys = reinterpret_cast<const char*>(src);
    for (Zor32s i = 0; i < len; ++i) {
      KeyOf<T> bits;
      std::memcpy(&bits, keys + Zor64s{i} * srcStrideBytes, sizeof bits);
      tmpIndex[i] = Order<T, descending>::toKey(bits);
    }
    std::iota(dstIndex, dstIndex + len, 0);
    quicksort(IndexedKeys<Zor32s, true>{tmpIndex, dstIndex}, len);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSortRadixIndexAscend_8u(const Zor8u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexAscend_16s(const Zor16s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexAscend_16u(const Zor16u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexAscend_32s(const Zor32s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexAscend_32u(const Zor32u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexAscend_32f(const Zor32f* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<false>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_8u(const Zor8u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_16s(const Zor16s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_16u(const Zor16u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_32s(const Zor32s* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_32u(const Zor32u* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
ZorStatus zorsSortRadixIndexDescend_32f(const Zor32f* src, Zor32s srcStrideBytes, Zor32s* dstIndex, Zor32s* tmpIndex, Zor32s len) { return sortRadixIndex<true>(src, srcStrideBytes, dstIndex, tmpIndex, len); }
// clang-format on

}  // namespace zors
