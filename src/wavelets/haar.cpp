// zorsWTHaarFwd_*, zorsWTHaarInv_*: one level of the Haar transform. Two neighbours of the signal are a complex element
// of the vectors.
#include <algorithm>
#include <limits>

#include "exports/wavelets.h"
#include "frame/check.h"
#include "frame/map.h"
#include "frame/scale.h"

namespace zors {
namespace {

using namespace simd;

template <class T> struct PairOf;
template <> struct PairOf<Zor8s> { using type = Zor8sc; };
template <> struct PairOf<Zor16s> { using type = Zor16sc; };
template <> struct PairOf<Zor32s> { using type = Zor32sc; };
template <> struct PairOf<Zor64s> { using type = Zor64sc; };
template <> struct PairOf<Zor32f> { using type = Zor32fc; };
template <> struct PairOf<Zor64f> { using type = Zor64fc; };
template <class T> using Pair = typename PairOf<T>::type;

template <class T> constexpr int step = 2 * lanesOf<T>;  // values of a band at once

// run(bands, single): (low, high) of a pair's two vectors, and the low value of the sample that has no partner.
template <class T> void forward(const T* src, Zor32s len, T* dstLow, T* dstHigh, auto bands, auto single) {
  const Zor32s pairs = len / 2;
  if (pairs > 0) {
    mapToTwo<step<T>>([=](auto z) ZORS_INLINE_LAMBDA { return bands(realPart(z), imagPart(z)); }, pairs, dstLow,
                      dstHigh, reinterpret_cast<const Pair<T>*>(src));
  }
  if (len % 2 != 0) map<lanesOf<T>>(single, 1, dstLow + pairs, src + 2 * pairs);
}
template <class T> void inverse(const T* srcLow, const T* srcHigh, T* dst, Zor32s len, auto samples, auto single) {
  const Zor32s pairs = len / 2;
  if (pairs > 0) map<step<T>>(samples, pairs, reinterpret_cast<Pair<T>*>(dst), srcLow, srcHigh);
  if (len % 2 != 0) map<lanesOf<T>>(single, 1, dst + 2 * pairs, srcLow + pairs);
}

// Exact results of integers, of one bit more than a sample; bytes are widened.
template <class V> ZORS_INLINE auto exactSum(V a, V b) {
  if constexpr (sizeof(typename V::Element) == 1)
    return add(widen(a), widen(b));
  else
    return Sum{a, b};
}
template <class V> ZORS_INLINE auto exactDifference(V a, V b) {
  if constexpr (sizeof(typename V::Element) == 1)
    return sub(widen(a), widen(b));
  else
    return Difference{a, b};
}
template <class T> constexpr Zor32s mostShift = std::numeric_limits<T>::digits + 1;  // beyond it all results are 0
template <class T> using Exact = Sum<Vec<T, step<T>>>;

template <class T> ZorStatus haarForward(const T* src, Zor32s len, T* dstLow, T* dstHigh) {
  return check().pointers(src, dstLow, dstHigh).size(len).then([&] {
    forward(
        src, len, dstLow, dstHigh,
        [](auto x0, auto x1) ZORS_INLINE_LAMBDA {
          const auto high = mul(sub(x1, x0), same(x0, T{0.5}));
          return Both{add(x0, high), high};
        },
        [](auto x) ZORS_INLINE_LAMBDA { return x; });
  });
}
template <class T> ZorStatus haarInverse(const T* srcLow, const T* srcHigh, T* dst, Zor32s len) {
  return check().pointers(srcLow, srcHigh, dst).size(len).then([&] {
    inverse(
        srcLow, srcHigh, dst, len,
        [](auto low, auto high) ZORS_INLINE_LAMBDA { return toComplex(sub(low, high), add(low, high)); },
        [](auto low) ZORS_INLINE_LAMBDA { return low; });
  });
}

// The transform's own halving is a step of the scale. A sample without partner counts as its own.
template <class T> ZorStatus haarForwardScaled(const T* src, Zor32s len, T* dstLow, T* dstHigh, Zor32s scaleFactor) {
  return check().pointers(src, dstLow, dstHigh).size(len).then([&] {
    if (scaleFactor >= mostShift<T>) {
      std::fill_n(dstLow, len - len / 2, T{0});
      std::fill_n(dstHigh, len / 2, T{0});
      return;
    }
    withScale<T, Exact<T>>(scaleFactor + 1, [&](auto scale) {
      forward(
          src, len, dstLow, dstHigh,
          [=](auto x0, auto x1) ZORS_INLINE_LAMBDA {
            return Both{scale(exactSum(x0, x1)), scale(exactDifference(x1, x0))};
          },
          [=](auto x) ZORS_INLINE_LAMBDA { return scale(exactSum(x, x)); });
    });
  });
}
template <class T>
ZorStatus haarInverseScaled(const T* srcLow, const T* srcHigh, T* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(srcLow, srcHigh, dst).size(len).then([&] {
    if (scaleFactor > mostShift<T>) {
      std::fill_n(dst, len, T{0});
      return;
    }
    withScale<T, Exact<T>>(scaleFactor, [&](auto scale) {
      inverse(
          srcLow, srcHigh, dst, len,
          [=](auto low, auto high)
              ZORS_INLINE_LAMBDA { return toComplex(scale(exactDifference(low, high)), scale(exactSum(low, high))); },
          [=](auto low) ZORS_INLINE_LAMBDA { return scale(exactSum(low, same(low, 0))); });
    });
  });
}

}  // namespace

// clang-format off
ZorStatus zorsWTHaarFwd_8s(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh) { return haarForwardScaled(src, len, dstLow, dstHigh, 0); }
ZorStatus zorsWTHaarFwd_16s(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh) { return haarForwardScaled(src, len, dstLow, dstHigh, 0); }
ZorStatus zorsWTHaarFwd_32s(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh) { return haarForwardScaled(src, len, dstLow, dstHigh, 0); }
ZorStatus zorsWTHaarFwd_64s(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh) { return haarForwardScaled(src, len, dstLow, dstHigh, 0); }
ZorStatus zorsWTHaarFwd_32f(const Zor32f* src, Zor32s len, Zor32f* dstLow, Zor32f* dstHigh) { return haarForward(src, len, dstLow, dstHigh); }
ZorStatus zorsWTHaarFwd_64f(const Zor64f* src, Zor32s len, Zor64f* dstLow, Zor64f* dstHigh) { return haarForward(src, len, dstLow, dstHigh); }
ZorStatus zorsWTHaarFwd_8s_Sfs(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh, Zor32s scaleFactor) { return haarForwardScaled(src, len, dstLow, dstHigh, scaleFactor); }
ZorStatus zorsWTHaarFwd_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh, Zor32s scaleFactor) { return haarForwardScaled(src, len, dstLow, dstHigh, scaleFactor); }
ZorStatus zorsWTHaarFwd_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh, Zor32s scaleFactor) { return haarForwardScaled(src, len, dstLow, dstHigh, scaleFactor); }
ZorStatus zorsWTHaarFwd_64s_Sfs(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh, Zor32s scaleFactor) { return haarForwardScaled(src, len, dstLow, dstHigh, scaleFactor); }

ZorStatus zorsWTHaarInv_8s(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len) { return haarInverseScaled(srcLow, srcHigh, dst, len, 0); }
ZorStatus zorsWTHaarInv_16s(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len) { return haarInverseScaled(srcLow, srcHigh, dst, len, 0); }
ZorStatus zorsWTHaarInv_32s(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len) { return haarInverseScaled(srcLow, srcHigh, dst, len, 0); }
ZorStatus zorsWTHaarInv_64s(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len) { return haarInverseScaled(srcLow, srcHigh, dst, len, 0); }
ZorStatus zorsWTHaarInv_32f(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32f* dst, Zor32s len) { return haarInverse(srcLow, srcHigh, dst, len); }
ZorStatus zorsWTHaarInv_64f(const Zor64f* srcLow, const Zor64f* srcHigh, Zor64f* dst, Zor32s len) { return haarInverse(srcLow, srcHigh, dst, len); }
ZorStatus zorsWTHaarInv_8s_Sfs(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len, Zor32s scaleFactor) { return haarInverseScaled(srcLow, srcHigh, dst, len, scaleFactor); }
ZorStatus zorsWTHaarInv_16s_Sfs(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return haarInverseScaled(srcLow, srcHigh, dst, len, scaleFactor); }
ZorStatus zorsWTHaarInv_32s_Sfs(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return haarInverseScaled(srcLow, srcHigh, dst, len, scaleFactor); }
ZorStatus zorsWTHaarInv_64s_Sfs(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len, Zor32s scaleFactor) { return haarInverseScaled(srcLow, srcHigh, dst, len, scaleFactor); }
// clang-format on

}  // namespace zors
