// zorsMax_*, zorsMin_*, zorsMaxIndx_*, zorsMinIndx_*, zorsMaxAbs_*, zorsMinAbs_*, zorsMaxAbsIndx_*, zorsMinAbsIndx_*.
#include "exports/statistics.h"
#include "frame/check.h"
#include "statistics/extremes.h"

namespace zors {
namespace {

using namespace extremes;

template <class Side, class Read = AsIs, class T> ZorStatus extreme(const T* src, Zor32s len, T* val) {
  return check().pointers(src, val).size(len).then([&] { *val = values<Read, Side>(src, len)[0]; });
}
// A null index asks for the extreme alone.
template <class Side, class Read = AsIs, class T> ZorStatus indexed(const T* src, Zor32s len, T* val, Zor32s* index) {
  if (index == nullptr) return extreme<Side, Read>(src, len, val);
  return check().pointers(src, val).size(len).then([&] {
    const auto place = places<Read, Side>(src, len)[0];
    *val = Read{}(readAt(src + place.index));
    *index = Zor32s(place.index);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsMax_16s(const Zor16s* src, Zor32s len, Zor16s* max) { return extreme<Max>(src, len, max); }
ZorStatus zorsMax_32s(const Zor32s* src, Zor32s len, Zor32s* max) { return extreme<Max>(src, len, max); }
ZorStatus zorsMax_32f(const Zor32f* src, Zor32s len, Zor32f* max) { return extreme<Max>(src, len, max); }
ZorStatus zorsMax_64f(const Zor64f* src, Zor32s len, Zor64f* max) { return extreme<Max>(src, len, max); }
ZorStatus zorsMin_16s(const Zor16s* src, Zor32s len, Zor16s* min) { return extreme<Min>(src, len, min); }
ZorStatus zorsMin_32s(const Zor32s* src, Zor32s len, Zor32s* min) { return extreme<Min>(src, len, min); }
ZorStatus zorsMin_32f(const Zor32f* src, Zor32s len, Zor32f* min) { return extreme<Min>(src, len, min); }
ZorStatus zorsMin_64f(const Zor64f* src, Zor32s len, Zor64f* min) { return extreme<Min>(src, len, min); }

ZorStatus zorsMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* max, Zor32s* index) { return indexed<Max>(src, len, max, index); }
ZorStatus zorsMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* max, Zor32s* index) { return indexed<Max>(src, len, max, index); }
ZorStatus zorsMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* max, Zor32s* index) { return indexed<Max>(src, len, max, index); }
ZorStatus zorsMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* max, Zor32s* index) { return indexed<Max>(src, len, max, index); }
ZorStatus zorsMinIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* index) { return indexed<Min>(src, len, min, index); }
ZorStatus zorsMinIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* index) { return indexed<Min>(src, len, min, index); }
ZorStatus zorsMinIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* index) { return indexed<Min>(src, len, min, index); }
ZorStatus zorsMinIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* index) { return indexed<Min>(src, len, min, index); }

ZorStatus zorsMaxAbs_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs) { return extreme<Max, Magnitude>(src, len, maxAbs); }
ZorStatus zorsMaxAbs_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs) { return extreme<Max, Magnitude>(src, len, maxAbs); }
ZorStatus zorsMinAbs_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs) { return extreme<Min, Magnitude>(src, len, minAbs); }
ZorStatus zorsMinAbs_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs) { return extreme<Min, Magnitude>(src, len, minAbs); }
ZorStatus zorsMaxAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs, Zor32s* index) { return indexed<Max, Magnitude>(src, len, maxAbs, index); }
ZorStatus zorsMaxAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs, Zor32s* index) { return indexed<Max, Magnitude>(src, len, maxAbs, index); }
ZorStatus zorsMinAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs, Zor32s* index) { return indexed<Min, Magnitude>(src, len, minAbs, index); }
ZorStatus zorsMinAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs, Zor32s* index) { return indexed<Min, Magnitude>(src, len, minAbs, index); }
// clang-format on

}  // namespace zors
