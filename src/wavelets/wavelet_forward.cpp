// zorsWTFwdInitAlloc_*, zorsWTFwd_*, zorsWTFwdGetDlyLine_*, zorsWTFwdSetDlyLine_*, zorsWTFwdFree_*.
#include "exports/wavelets.h"
#include "frame/by_type.h"
#include "wavelets/wavelet_bands.h"

namespace zors {
namespace {

using namespace wavelets;

// Output k is the sum of taps[i] * x[2k + p - i - o], where at offset -1 p = 1 and o = 0, else p = 0 and o the offset.
// So tapsLen - 1 - p + o samples of the past count; where that number is odd, one more that no tap meets stands before
// them.
struct ForwardBand {
  Line even, odd;
  SubFilter ofEven, ofOdd;
  std::ptrdiff_t delayLen;

  static ForwardBand lay(Layout& block, BandSpec spec) {
    const std::ptrdiff_t past = std::ptrdiff_t{spec.tapsLen} - 1 + spec.offset;  // -1: one tap on the newest sample
    const std::ptrdiff_t half = (past + 1) / 2, lastTap = (spec.tapsLen - 1) % 2;
    const bool oneMore = past % 2 != 0;
    ForwardBand band;
    band.even = Line::lay(block, half);
    band.odd = Line::lay(block, half);
    band.delayLen = std::max<std::ptrdiff_t>(past, 0);
    const SubFilter ofOldest = everySecond(block, spec.taps, spec.tapsLen, lastTap, 0);
    const SubFilter ofNext = everySecond(block, spec.taps, spec.tapsLen, 1 - lastTap, oneMore ? 1 : 0);
    band.ofEven = oneMore ? ofNext : ofOldest;
    band.ofOdd = oneMore ? ofOldest : ofNext;
    return band;
  }
  Zor32f& delayed(std::ptrdiff_t i) const {
    const std::ptrdiff_t at = i + 2 * even.history - delayLen;
    return (at % 2 == 0 ? even : odd).samples[at / 2];
  }
  void clear() const {
    even.clear();
    odd.clear();
  }
  // count outputs from what stands in the lines' rooms, which then become the past.
  void filter(Zor32f* dst, std::ptrdiff_t count) const {
    inTiles<8>(count, [&](auto registers, std::ptrdiff_t at, std::ptrdiff_t len) ZORS_INLINE_LAMBDA {
      const auto sum = outputsAt<registers>(at, ofOdd, odd, outputsAt<registers>(at, ofEven, even));
      if (len == sum.lanes)
        simd::store(dst + at, sum);
      else
        simd::storePart(dst + at, sum, int(len));
    });
    even.advance(count);
    odd.advance(count);
  }
};

// Pairs of samples to the lines of both bands.
void split(const Zor32fc* src, std::ptrdiff_t count, const ForwardBand& low, const ForwardBand& high) {
  constexpr int lanes = lanesOf<Zor32f>;
  const auto put = [&](simd::Vec<Zor32fc, lanes> pairs, std::ptrdiff_t at) ZORS_INLINE_LAMBDA {
    const auto even = simd::realPart(pairs), odd = simd::imagPart(pairs);
    simd::store(low.even.room() + at, even);
    simd::store(low.odd.room() + at, odd);
    simd::store(high.even.room() + at, even);
    simd::store(high.odd.room() + at, odd);
  };
  std::ptrdiff_t i = 0;
  for (; i <= count - lanes; i += lanes) put(simd::load<lanes>(src + i), i);
  if (i < count) put(simd::loadPart<lanes>(src + i, int(count - i)), i);
}

}  // namespace
}  // namespace zors

struct ZorWTFwdState : zors::Bank<zors::ForwardBand> {};

namespace zors {
namespace {

template <Tag tag, class S>
[[gnu::flatten]] ZorStatus forward(const S* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen,
                                   const ZorWTFwdState* state) {
  return check().pointers(state).state(state, tag).pointers(src, dstLow, dstHigh).size(dstLen).then([&] {
    for (std::ptrdiff_t done = 0; done < dstLen; done += blockLen) {
      const std::ptrdiff_t count = std::min(dstLen - done, blockLen);
      if constexpr (std::is_same_v<S, Zor32f>) {
        split(reinterpret_cast<const Zor32fc*>(src) + done, count, state->low, state->high);
      } else {
        alignas(32) Zor32f converted[2 * blockLen];
        by_type::widen(src + 2 * done, converted, Zor32s(2 * count));
        split(reinterpret_cast<const Zor32fc*>(converted), count, state->low, state->high);
      }
      state->low.filter(dstLow + done, count);
      state->high.filter(dstHigh + done, count);
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsWTFwdInitAlloc_32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(41)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTFwdInitAlloc_8u32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(42)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTFwdInitAlloc_8s32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(43)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTFwdInitAlloc_16u32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(44)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTFwdInitAlloc_16s32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(45)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTFwd_32f(const Zor32f* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state) { return forward<tag(41)>(src, dstLow, dstHigh, dstLen, state); }
ZorStatus zorsWTFwd_8u32f(const Zor8u* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state) { return forward<tag(42)>(src, dstLow, dstHigh, dstLen, state); }
ZorStatus zorsWTFwd_8s32f(const Zor8s* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state) { return forward<tag(43)>(src, dstLow, dstHigh, dstLen, state); }
ZorStatus zorsWTFwd_16u32f(const Zor16u* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state) { return forward<tag(44)>(src, dstLow, dstHigh, dstLen, state); }
ZorStatus zorsWTFwd_16s32f(const Zor16s* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state) { return forward<tag(45)>(src, dstLow, dstHigh, dstLen, state); }
ZorStatus zorsWTFwdGetDlyLine_32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(41)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdGetDlyLine_8u32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(42)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdGetDlyLine_8s32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(43)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdGetDlyLine_16u32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(44)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdGetDlyLine_16s32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(45)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdSetDlyLine_32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(41)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdSetDlyLine_8u32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(42)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdSetDlyLine_8s32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(43)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdSetDlyLine_16u32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(44)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdSetDlyLine_16s32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(45)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTFwdFree_32f(ZorWTFwdState* state) { return freeObject(state, tag(41)); }
ZorStatus zorsWTFwdFree_8u32f(ZorWTFwdState* state) { return freeObject(state, tag(42)); }
ZorStatus zorsWTFwdFree_8s32f(ZorWTFwdState* state) { return freeObject(state, tag(43)); }
ZorStatus zorsWTFwdFree_16u32f(ZorWTFwdState* state) { return freeObject(state, tag(44)); }
ZorStatus zorsWTFwdFree_16s32f(ZorWTFwdState* state) { return freeObject(state, tag(45)); }
// clang-format on

}  // namespace zors
