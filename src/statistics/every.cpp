// zorsMaxEvery_*, zorsMinEvery_*: the greater or the smaller of two elements; the second where neither is.
#include "exports/statistics.h"
#include "frame/check.h"
#include "statistics/extremes.h"

namespace zors {
namespace {

using extremes::Max;
using extremes::Min;

template <class Side, class T> ZorStatus every(const T* src1, const T* src2, T* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    map<mapStep<T>>([](auto a, auto b) ZORS_INLINE_LAMBDA { return Side::pick(a, b); }, len, dst, src1, src2);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsMaxEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len) { return every<Max>(src1, src2, dst, len); }
ZorStatus zorsMaxEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return every<Max>(src1, src2, dst, len); }
ZorStatus zorsMaxEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return every<Max>(src1, src2, dst, len); }
ZorStatus zorsMaxEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return every<Max>(src1, src2, dst, len); }
ZorStatus zorsMinEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len) { return every<Min>(src1, src2, dst, len); }
ZorStatus zorsMinEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return every<Min>(src1, src2, dst, len); }
ZorStatus zorsMinEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return every<Min>(src1, src2, dst, len); }
ZorStatus zorsMinEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return every<Min>(src1, src2, dst, len); }

ZorStatus zorsMaxEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMaxEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMaxEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMaxEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMaxEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMaxEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return every<Max>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
ZorStatus zorsMinEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return every<Min>(src, srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
