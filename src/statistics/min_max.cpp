// zorsMinMax_*, zorsMinMaxIndx_*: both extremes in one pass.
#include "exports/statistics.h"
#include "frame/check.h"
#include "statistics/extremes.h"

namespace zors {
namespace {

using namespace extremes;

template <class T> ZorStatus minMax(const T* src, Zor32s len, T* min, T* max) {
  return check().pointers(src, min, max).size(len).then([&] {
    const auto found = values<AsIs, Min, Max>(src, len);
    *min = found[0], *max = found[1];
  });
}
template <class T> ZorStatus minMaxIndex(const T* src, Zor32s len, T* min, Zor32s* minIndex, T* max, Zor32s* maxIndex) {
  return check().pointers(src, min, minIndex, max, maxIndex).size(len).then([&] {
    const auto found = places<AsIs, Min, Max>(src, len);
    *min = readAt(src + found[0].index), *minIndex = Zor32s(found[0].index);
    *max = readAt(src + found[1].index), *maxIndex = Zor32s(found[1].index);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsMinMax_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor8u* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor16u* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor16s* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32u* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32f* max) { return minMax(src, len, min, max); }
ZorStatus zorsMinMax_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor64f* max) { return minMax(src, len, min, max); }

ZorStatus zorsMinMaxIndx_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor32s* minIndex, Zor8u* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor32s* minIndex, Zor16u* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* minIndex, Zor16s* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32s* minIndex, Zor32u* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* minIndex, Zor32s* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* minIndex, Zor32f* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
ZorStatus zorsMinMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* minIndex, Zor64f* max, Zor32s* maxIndex) { return minMaxIndex(src, len, min, minIndex, max, maxIndex); }
// clang-format on

}  // namespace zors
