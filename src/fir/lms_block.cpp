// zorsFIRLMS*: adaptive filters over blocks, their states, taps and delay lines.
#include <algorithm>

#include "exports/adaptive.h"
#include "fir/lms_kernels.h"
#include "frame/delay_line.h"
#include "frame/object.h"

// Both kinds compute in binary32 and keep their samples in it.
struct ZorFIRLMSState {
  zors::Tag tag;
  Zor32s tapsLen;
  Zor32s dlyIndex;  // as the caller set it
  Zor8u* owned;
  Zor32f* taps;  // reversed
  Zor32f* dlyLine;
  Zor32f* results;  // of a chunk; the reference before that
};

namespace zors {
namespace {

template <class S> struct Kind;
template <> struct Kind<Zor32f> { static constexpr Tag tag = zors::tag("LMS1"); };
template <> struct Kind<Zor16s> { static constexpr Tag tag = zors::tag("LMS\0"); };

constexpr Zor32s chunkLen = 1024;

ZorFIRLMSState* lay(Layout& block, Zor32s tapsLen) {
  const auto n = static_cast<std::size_t>(tapsLen);
  auto* state = block.take<ZorFIRLMSState>(1);
  auto *taps = block.take<Zor32f>(n), *line = block.take<Zor32f>(2 * n + chunkLen),
       *results = block.take<Zor32f>(chunkLen);
  if (state != nullptr)
    *state = {.tag = 0,
              .tapsLen = tapsLen,
              .dlyIndex = 0,
              .owned = nullptr,
              .taps = taps,
              .dlyLine = line,
              .results = results};
  return state;
}

// The line as a doubled ring, in the order of its places.
template <class S> void setRing(ZorFIRLMSState* state, const S* dly, Zor32s dlyIndex) {
  const Zor32s n = state->tapsLen;
  state->dlyIndex = dlyIndex;
  std::fill_n(state->dlyLine, 2 * std::ptrdiff_t{n}, 0.0f);
  if (dly == nullptr) return;
  by_type::widen(dly, state->dlyLine, n);
  by_type::widen(dly, state->dlyLine + n, n);
}

template <class S>
ZorStatus initAlloc(ZorFIRLMSState** state, const Zor32f* taps, Zor32s tapsLen, const S* dly, Zor32s dlyIndex) {
  return check().pointers(state).size(tapsLen).then([&] {
    Layout account(64);
    lay(account, tapsLen);
    return initAllocated(state, account.size(), [&](Zor8u* memory, ZorFIRLMSState** built) -> ZorStatus {
      Layout block(64, memory);
      *built = lay(block, tapsLen);
      (*built)->tag = Kind<S>::tag;
      if (taps == nullptr)
        std::fill_n((*built)->taps, tapsLen, 0.0f);
      else
        reverseInto((*built)->taps, taps, tapsLen);
      setRing(*built, dly, dlyIndex);
      return zorStatusOk;
    });
  });
}
template <class S> ZorStatus getTaps(const ZorFIRLMSState* state, Zor32f* taps) {
  return check().pointers(state, taps).state(state, Kind<S>::tag).then([&] {
    reverseInto(taps, state->taps, state->tapsLen);
  });
}
template <class S> ZorStatus getDlyLine(const ZorFIRLMSState* state, S* dly, Zor32s* dlyIndex) {
  return check().pointers(state, dly, dlyIndex).state(state, Kind<S>::tag).then([&] {
    std::transform(state->dlyLine, state->dlyLine + state->tapsLen, dly, valueAs<S, Zor32f>);
    *dlyIndex = state->dlyIndex;
  });
}
template <class S> ZorStatus setDlyLine(ZorFIRLMSState* state, const S* dly, Zor32s dlyIndex) {
  return check().pointers(state).state(state, Kind<S>::tag).then([&] { setRing(state, dly, dlyIndex); });
}

// For each sample in turn: y = the sum of the window, e = ref - y, taps += 2 mu e times the window. The oldest sample
// of the history takes no part. The update by one window and the sum of the next are one pass.
void adapt(ZorFIRLMSState* state, const Zor32f* windows, Zor32f* results, Zor32s count, Zor32f gain) {
  const std::ptrdiff_t n = state->tapsLen;
  Zor32f y = lms::sumOf(state->taps, n, windows);
  for (Zor32s i = 0; i < count; ++i) {
    const Zor32f correction = gain * (results[i] - y);
    results[i] = y;
    if (i + 1 < count)
      y = lms::pass<true, true>(state->taps, n, correction, windows + i, windows + i + 1);
    else
      lms::update(state->taps, n, correction, windows + i);
  }
}

// A chunk is read whole before its results are written, so dst may be src or ref.
template <class S> ZorStatus filter(const S* src, const S* ref, S* dst, Zor32s len, Zor32f mu, ZorFIRLMSState* state) {
  return check().pointers(src, ref, dst, state).size(len).state(state, Kind<S>::tag).then([&] {
    const Zor32s n = state->tapsLen;
    if (state->dlyIndex < 0 || state->dlyIndex >= n) state->dlyIndex = 0;
    const DelayLine<Zor32f> delay(state->dlyLine, n, &state->dlyIndex);
    const Zor32f gain = mu + mu;
    for (Zor32s done = 0; done < len;) {
      const Zor32s count = std::min(len - done, chunkLen);
      const Zor32f* history = delay.history();
      by_type::widen(src + done, delay.room(), count);
      by_type::widen(ref + done, state->results, count);
      adapt(state, history + 1, state->results, count, gain);
      by_type::narrow(state->results, dst + done, count);
      delay.keep(history + n + count);
      done += count;
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRLMSInitAlloc_32f   (ZorFIRLMSState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor32s dlyIndex) { return initAlloc(state, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIRLMSInitAlloc32f_16s(ZorFIRLMSState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor32s dlyIndex) { return initAlloc(state, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIRLMSFree_32f   (ZorFIRLMSState* state) { return freeObject(state, Kind<Zor32f>::tag); }
ZorStatus zorsFIRLMSFree32f_16s(ZorFIRLMSState* state) { return freeObject(state, Kind<Zor16s>::tag); }
ZorStatus zorsFIRLMSGetTaps_32f   (const ZorFIRLMSState* state, Zor32f* taps) { return getTaps<Zor32f>(state, taps); }
ZorStatus zorsFIRLMSGetTaps32f_16s(const ZorFIRLMSState* state, Zor32f* taps) { return getTaps<Zor16s>(state, taps); }
ZorStatus zorsFIRLMSGetDlyLine_32f   (const ZorFIRLMSState* state, Zor32f* dly, Zor32s* dlyIndex) { return getDlyLine(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSGetDlyLine32f_16s(const ZorFIRLMSState* state, Zor16s* dly, Zor32s* dlyIndex) { return getDlyLine(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSSetDlyLine_32f   (ZorFIRLMSState* state, const Zor32f* dly, Zor32s dlyIndex) { return setDlyLine(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSSetDlyLine32f_16s(ZorFIRLMSState* state, const Zor16s* dly, Zor32s dlyIndex) { return setDlyLine(state, dly, dlyIndex); }
ZorStatus zorsFIRLMS_32f   (const Zor32f* src, const Zor32f* ref, Zor32f* dst, Zor32s len, Zor32f mu, ZorFIRLMSState* state) { return filter(src, ref, dst, len, mu, state); }
ZorStatus zorsFIRLMS32f_16s(const Zor16s* src, const Zor16s* ref, Zor16s* dst, Zor32s len, Zor32f mu, ZorFIRLMSState* state) { return filter(src, ref, dst, len, mu, state); }
// clang-format on

}  // namespace zors
