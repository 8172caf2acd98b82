// zorsConvert_16s8s_Sfs, zorsConvert_32s16s_Sfs, zorsConvert_64s32s_Sfs: integers to narrower integers, scaled.
#include <algorithm>

#include "exports/conversion.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// t / 2^shift; other modes than 0 and 1 take ties away from zero.
template <ZorRoundMode rnd> struct ShiftDown {
  int shift;
  template <class V> ZORS_INLINE V operator()(V t) const { return roundedShiftBy<rnd>(t, shift); }
};
template <class Run> void withShiftDown(ZorRoundMode rnd, int shift, Run&& run) {
  if (rnd == zorRoundTowardZero)
    run(ShiftDown<zorRoundTowardZero>{shift});
  else if (rnd == zorRoundNearestEven)
    run(ShiftDown<zorRoundNearestEven>{shift});
  else
    run(ShiftDown<zorRoundHalfAway>{shift});
}

// Left shifts saturate: the value is drawn in to the nearest that still does.
template <class D, class V> ZORS_INLINE auto shiftUp(V x, int shift) { return ScaleUp<D>{shift}(x); }

// 64-bit signed values limited to 32 bits, and their low halves together.
template <int L> ZORS_INLINE Vec<Zor32s, L> limit32(Vec<Zor64s, L> x) {
  const auto low = same(x, std::numeric_limits<Zor32s>::min()), high = same(x, std::numeric_limits<Zor32s>::max());
  x = select(above(x, high), x, high);
  x = select(above(low, x), x, low);
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 halves = _mm256_shuffle_ps(_mm256_castsi256_ps(x.r[2 * i]), _mm256_castsi256_ps(x.r[2 * i + 1]), 0x88);
    return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
  });
}

}  // namespace

ZorStatus zorsConvert_16s8s_Sfs(const Zor16s* src, Zor8s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).require(len != 0, zorStatusBadSize).then([&] {
    if (scaleFactor >= 18) {
      map<32>([](auto) ZORS_INLINE_LAMBDA { return splat<Vec<Zor8s, 32>>(0); }, len, dst, src);
    } else if (scaleFactor > 0) {
      withShiftDown(rnd, scaleFactor, [&](auto down) {
        if (scaleFactor > 15)  // as many bits as a sample has
          map<32>([down](auto x) ZORS_INLINE_LAMBDA { return saturate<Zor8s>(down(extend<Zor32s>(x))); }, len, dst,
                  src);
        else
          map<32>([down](auto x) ZORS_INLINE_LAMBDA { return saturate<Zor8s>(down(x)); }, len, dst, src);
      });
    } else {  // from -7 on every value but 0 saturates
      const int up = -std::max(scaleFactor, -7);
      map<32>([up](auto x) ZORS_INLINE_LAMBDA { return shiftUp<Zor8s>(x, up); }, len, dst, src);
    }
  });
}

// Scale factors beyond the clamps act as these.
ZorStatus zorsConvert_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    withScale<Zor16s, Vec<Zor32s, mapStep<Zor16s>>>(std::clamp(scaleFactor, -15, 31), [&](auto scale) {
      map<mapStep<Zor16s>>([scale](auto x) ZORS_INLINE_LAMBDA { return scale(x); }, len, dst, src);
    });
  });
}

ZorStatus zorsConvert_64s32s_Sfs(const Zor64s* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    if (scaleFactor > 0) {
      withShiftDown(rnd, std::min(scaleFactor, 63), [&](auto down) {
        map<mapStep<Zor32s>>([down](auto x) ZORS_INLINE_LAMBDA { return limit32(down(x)); }, len, dst, src);
      });
    } else {  // limited to 32 bits first, so that a shift by up to 30 stays in 64
      const int up = -std::max(scaleFactor, -30);
      map<mapStep<Zor32s>>([up](auto x)
                               ZORS_INLINE_LAMBDA { return limit32(shiftLeft(extend<Zor64s>(limit32(x)), up)); },
                           len, dst, src);
    }
  });
}

}  // namespace zors
