// zorsWTInvInitAlloc_*, zorsWTInv_*, zorsWTInvGetDlyLine_*, zorsWTInvSetDlyLine_*, zorsWTInvFree_*.
#include "exports/wavelets.h"
#include "frame/by_type.h"
#include "wavelets/wavelet_bands.h"

namespace zors {
namespace {

using namespace wavelets;

// Sample m is the sum of taps[i] * up[m - i - d], where up holds the band's samples at even places and zeros between
// them, and d is the offset, but 1 at offset -1.
struct InverseBand {
  Line line;
  SubFilter ofEven, ofOdd;  // of the output's even and odd numbers
  std::ptrdiff_t delayLen;

  static InverseBand lay(Layout& block, BandSpec spec) {
    const std::ptrdiff_t tapsLen = spec.tapsLen, delay = spec.offset / 2, phase = spec.offset & 1;
    InverseBand band;
    band.line = Line::lay(block, delay + (tapsLen - 1 + phase) / 2);
    band.delayLen = (tapsLen + spec.offset - 1) / 2;  // at offset -1 one less than the history
    band.ofEven = everySecond(block, spec.taps, tapsLen, phase, 0);
    band.ofOdd = everySecond(block, spec.taps, tapsLen, 1 - phase, (tapsLen + phase) % 2);
    return band;
  }
  Zor32f& delayed(std::ptrdiff_t i) const { return line.samples[line.history - delayLen + i]; }
  void clear() const { line.clear(); }
};

}  // namespace
}  // namespace zors

struct ZorWTInvState : zors::Bank<zors::InverseBand> {};

namespace zors {
namespace {

// count pairs of samples from what stands in the lines' rooms, which then become the past.
void join(const InverseBand& low, const InverseBand& high, Zor32fc* dst, std::ptrdiff_t count) {
  inTiles<4>(count, [&](auto registers, std::ptrdiff_t at, std::ptrdiff_t len) ZORS_INLINE_LAMBDA {
    const auto sum = [&](const SubFilter& ofLow, const SubFilter& ofHigh) ZORS_INLINE_LAMBDA {
      return simd::add(outputsAt<registers>(at, ofLow, low.line), outputsAt<registers>(at, ofHigh, high.line));
    };
    const auto even = sum(low.ofEven, high.ofEven), odd = sum(low.ofOdd, high.ofOdd);
    const auto pairs = simd::toComplex(even, odd);
    if (len == pairs.lanes)
      simd::store(dst + at, pairs);
    else
      simd::storePart(dst + at, pairs, int(len));
  });
  low.line.advance(count);
  high.line.advance(count);
}

template <Tag tag, class D>
[[gnu::flatten]] ZorStatus inverse(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, D* dst,
                                   const ZorWTInvState* state) {
  return check().pointers(state).state(state, tag).pointers(srcLow, srcHigh, dst).size(srcLen).then([&] {
    const InverseBand &low = state->low, &high = state->high;
    for (std::ptrdiff_t done = 0; done < srcLen; done += blockLen) {
      const std::ptrdiff_t count = std::min(srcLen - done, blockLen);
      std::memcpy(low.line.room(), srcLow + done, std::size_t(count) * sizeof(Zor32f));
      std::memcpy(high.line.room(), srcHigh + done, std::size_t(count) * sizeof(Zor32f));
      if constexpr (std::is_same_v<D, Zor32f>) {
        join(low, high, reinterpret_cast<Zor32fc*>(dst) + done, count);
      } else {
        alignas(32) Zor32f joined[2 * blockLen];
        join(low, high, reinterpret_cast<Zor32fc*>(joined), count);
        by_type::narrow(joined, dst + 2 * done, Zor32s(2 * count));
      }
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsWTInvInitAlloc_32f(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(50)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTInvInitAlloc_32f8u(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(51)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTInvInitAlloc_32f8s(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(52)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTInvInitAlloc_32f16u(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(53)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTInvInitAlloc_32f16s(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh) { return initAllocBank<tag(54)>(stateOut, tapsLow, lenLow, offsLow, tapsHigh, lenHigh, offsHigh); }
ZorStatus zorsWTInv_32f(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor32f* dst, ZorWTInvState* state) { return inverse<tag(50)>(srcLow, srcHigh, srcLen, dst, state); }
ZorStatus zorsWTInv_32f8u(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor8u* dst, ZorWTInvState* state) { return inverse<tag(51)>(srcLow, srcHigh, srcLen, dst, state); }
ZorStatus zorsWTInv_32f8s(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor8s* dst, ZorWTInvState* state) { return inverse<tag(52)>(srcLow, srcHigh, srcLen, dst, state); }
ZorStatus zorsWTInv_32f16u(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor16u* dst, ZorWTInvState* state) { return inverse<tag(53)>(srcLow, srcHigh, srcLen, dst, state); }
ZorStatus zorsWTInv_32f16s(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor16s* dst, ZorWTInvState* state) { return inverse<tag(54)>(srcLow, srcHigh, srcLen, dst, state); }
ZorStatus zorsWTInvGetDlyLine_32f(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(50)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvGetDlyLine_32f8u(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(51)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvGetDlyLine_32f8s(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(52)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvGetDlyLine_32f16u(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(53)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvGetDlyLine_32f16s(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh) { return getDelayLines<tag(54)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvSetDlyLine_32f(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(50)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvSetDlyLine_32f8u(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(51)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvSetDlyLine_32f8s(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(52)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvSetDlyLine_32f16u(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(53)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvSetDlyLine_32f16s(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) { return setDelayLines<tag(54)>(state, dlyLow, dlyHigh); }
ZorStatus zorsWTInvFree_32f(ZorWTInvState* state) { return freeObject(state, tag(50)); }
ZorStatus zorsWTInvFree_32f8u(ZorWTInvState* state) { return freeObject(state, tag(51)); }
ZorStatus zorsWTInvFree_32f8s(ZorWTInvState* state) { return freeObject(state, tag(52)); }
ZorStatus zorsWTInvFree_32f16u(ZorWTInvState* state) { return freeObject(state, tag(53)); }
ZorStatus zorsWTInvFree_32f16s(ZorWTInvState* state) { return freeObject(state, tag(54)); }
// clang-format on

}  // namespace zors
