// zorsFindNearestOne_16u, zorsFindNearest_16u: the nearest entry of an ascending table.
#include "exports/statistics.h"
#include "frame/check.h"

namespace zors {
namespace {

Zor32s nearestEntry(Zor16u val, const Zor16u* table, Zor32s tableLen) {
  const Zor32s top = tableLen - 1;
  if (top < 1 || val <= table[0]) return 0;
  if (val >= table[top]) return top;
  Zor32s index = 0;  // table[index] <= val; of index + count on the entries are greater
  for (Zor32s count = top; count > 1;) {
    const Zor32s half = count / 2;
    index = table[index + half] <= val ? index + half : index;
    count -= half;
  }
  return val - table[index] > table[index + 1] - val ? index + 1 : index;
}

}  // namespace

ZorStatus zorsFindNearestOne_16u(Zor16u val, Zor16u* nearest, Zor32s* index, const Zor16u* table, Zor32s tableLen) {
  return check().pointers(nearest, index, table).size(tableLen).then([&] {
    *index = nearestEntry(val, table, tableLen);
    *nearest = table[*index];
  });
}

ZorStatus zorsFindNearest_16u(const Zor16u* src, Zor16u* dst, Zor32s* dstIndex, Zor32s len, const Zor16u* table,
                              Zor32s tableLen) {
  return check().pointers(src, dst, dstIndex, table).size(len).size(tableLen).then([&] {
    for (Zor32s i = 0; i < len; ++i) {
      dstIndex[i] = nearestEntry(src[i], table, tableLen);
      dst[i] = table[dstIndex[i]];
    }
  });
}

}  // namespace zors
