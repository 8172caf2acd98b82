// zorsConvert_*: integers and floats to the same or a wider type, and between the float types.
#include <algorithm>
#include <bit>

#include "exports/conversion.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

template <class D> struct Extend {
  template <class V> ZORS_INLINE auto operator()(V x) const { return extend<D>(x); }
};
struct ToFloat {
  template <class V> ZORS_INLINE auto operator()(V x) const { return toFloat(x); }
};
struct ToDouble {
  template <class V> ZORS_INLINE auto operator()(V x) const { return toDouble(x); }
};
template <class D> struct Saturate {
  template <class V> ZORS_INLINE auto operator()(V x) const { return saturate<D>(x); }
};

template <class Op, class D, class S> ZorStatus convert(const S* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<mapStep<D, S>>(Op{}, len, dst, src); });
}

template <class Op, class D, class S>
ZorStatus convertScaled(const S* src, D* dst, Zor32s len, Zor32s scaleFactor, Zor32s low, Zor32s high) {
  return check().pointers(src, dst).size(len).then([&] {
    if (scaleFactor == 0) {
      map<mapStep<D, S>>(Op{}, len, dst, src);
    } else {
      const D f = exactPower<D>(scaleFactor, low, high);
      map<mapStep<D, S>>(
          [f](auto x) ZORS_INLINE_LAMBDA {
            const auto y = Op{}(x);
            return mul(y, same(y, f));
          },
          len, dst, src);
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsConvert_8s16s (const Zor8s*  src, Zor16s* dst, Zor32s len) { return convert<Extend<Zor16s>>(src, dst, len); }
ZorStatus zorsConvert_16s32s(const Zor16s* src, Zor32s* dst, Zor32s len) { return convert<Extend<Zor32s>>(src, dst, len); }
ZorStatus zorsConvert_8s32f (const Zor8s*  src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_8u32f (const Zor8u*  src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_16u32f(const Zor16u* src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_32s32f(const Zor32s* src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len) { return convert<ToFloat>(src, dst, len); }
ZorStatus zorsConvert_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len) { return convert<ToDouble>(src, dst, len); }
ZorStatus zorsConvert_32s64f(const Zor32s* src, Zor64f* dst, Zor32s len) { return convert<ToDouble>(src, dst, len); }
ZorStatus zorsConvert_32s16s(const Zor32s* src, Zor16s* dst, Zor32s len) { return convert<Saturate<Zor16s>>(src, dst, len); }

ZorStatus zorsConvert_16s32f_Sfs(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor) { return convertScaled<ToFloat>(src, dst, len, scaleFactor, -112, 126); }
ZorStatus zorsConvert_32s32f_Sfs(const Zor32s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor) { return convertScaled<ToFloat>(src, dst, len, scaleFactor, -96, 126); }
ZorStatus zorsConvert_16s64f_Sfs(const Zor16s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor) { return convertScaled<ToDouble>(src, dst, len, scaleFactor, -1008, 1022); }
ZorStatus zorsConvert_32s64f_Sfs(const Zor32s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor) { return convertScaled<ToDouble>(src, dst, len, scaleFactor, -992, 1022); }
// clang-format on

ZorStatus zorsConvert_64s64f(const Zor64s* src, Zor64f* dst, Zor32u len) {
  return check().pointers(src, dst).require(len != 0, zorStatusBadSize).then([&] {
    map<mapStep<Zor64f>>(ToDouble{}, len, dst, src);
  });
}

}  // namespace zors
