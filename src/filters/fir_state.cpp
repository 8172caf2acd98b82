// zorsFIRGetStateSize_*, zorsFIRInit_*, zorsFIRInitAlloc_*, zorsFIRFree_*, zorsFIRGetTaps_*, zorsFIRSetTaps_*,
// zorsFIRGetDlyLine_*, zorsFIRSetDlyLine_*.
#include "filters/fir_state.h"

#include <algorithm>

namespace zors {
namespace {

template <class Kind> ZorStatus getStateSize(Zor32s tapsLen, Zor32s* size) {
  return check().pointers(size).require(tapsLen >= 1, zorStatusBadTapsLength).then([&] {
    *size = static_cast<Zor32s>(firStateSize<Kind>(tapsLen, firFftPlan<Kind>(tapsLen)));
  });
}

// The caller's order is newest first, ours oldest first, for taps and for samples alike.
template <class T> void reverseInto(T* to, const T* from, Zor32s count) { std::reverse_copy(from, from + count, to); }

template <class Kind> void setDlyLine(ZorFIRState* state, const typename Kind::Sample* dly) {
  auto* line = firDlyLine<Kind>(state);
  if (dly == nullptr) Kind::zero(line, state->dlyLen);
  else reverseInto(line, dly, state->dlyLen);
  state->dlyIndex = 0;
}

template <class Kind> ZorStatus makeSpectrum(ZorFIRState* state, const typename Kind::Tap* taps) {
  auto* spectrum = static_cast<typename Kind::Tap*>(state->tapsSpectrum);
  Kind::copy(taps, spectrum, state->tapsLen);
  Kind::zero(spectrum + state->tapsLen, state->fftLen - state->tapsLen);
  return Kind::fftForward(spectrum, spectrum, firFftSpec<Kind>(state), state->fftWork);
}

void dropFft(ZorFIRState* state) {
  state->fftLen = -1;
  state->tapsSpectrum = nullptr;
  state->fftWork = nullptr;
}

// Fills the parts; makeSpec builds the FFT specification. A filter whose FFT cannot be had is a direct one.
template <class Kind, class MakeSpec>
ZorFIRState* build(const FirParts& parts, const FirFftPlan& plan, const typename Kind::Tap* taps, Zor32s tapsLen,
                   const typename Kind::Sample* dly, MakeSpec makeSpec) {
  ZorFIRState* state = parts.state;
  *state = {.tag = Kind::singleRate,
            .tapsLen = tapsLen,
            .dlyLen = tapsLen,
            .fftLen = plan.fftLen > 0 ? plan.fftLen : -1,
            .fftWorkSize = plan.workSize,
            .tapsReversed = parts.tapsReversed,
            .dlyLine = parts.dlyLine,
            .tapsSpectrum = plan.fftLen > 0 ? parts.tapsSpectrum : nullptr,
            .fftBuffer = parts.fftBuffer,
            .fftWork = plan.workSize > 0 ? parts.fftWork : nullptr,
            .blockScratch = parts.blockScratch};
  reverseInto(static_cast<typename Kind::Tap*>(state->tapsReversed), taps, tapsLen);
  auto* line = firDlyLine<Kind>(state);
  std::fill_n(line, firDlyLineLen<Kind>(tapsLen), typename Kind::Sample{});
  setDlyLine<Kind>(state, dly);
  if (plan.fftLen > 0) {
    typename Kind::FftSpec* spec = nullptr;
    if (makeSpec(&spec) == zorStatusOk) state->fftSpec = spec;
    if (spec == nullptr || makeSpectrum<Kind>(state, taps) != zorStatusOk) dropFft(state);
  }
  return state;
}

template <class Kind>
ZorStatus init(ZorFIRState** state, const typename Kind::Tap* taps, Zor32s tapsLen, const typename Kind::Sample* dly, Zor8u* buffer) {
  return check().pointers(state, taps, buffer).require(tapsLen >= 1, zorStatusBadTapsLength).then([&] {
    const FirFftPlan plan = firFftPlan<Kind>(tapsLen);
    Layout block(firAlignment, buffer);
    const FirParts parts = layFir<Kind>(block, tapsLen, plan);
    *state = build<Kind>(parts, plan, taps, tapsLen, dly, [&](auto** spec) {
      return Kind::fftInit(spec, plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone, parts.fftSpec, parts.fftInit);
    });
  });
}

template <class Kind>
ZorStatus initAlloc(ZorFIRState** state, const typename Kind::Tap* taps, Zor32s tapsLen, const typename Kind::Sample* dly) {
  return check().pointers(state, taps).require(tapsLen >= 1, zorStatusBadTapsLength).then([&]() -> ZorStatus {
    const FirFftPlan plan = firFftPlan<Kind>(tapsLen);
    const std::size_t size = firStateSize<Kind>(tapsLen, plan);
    Zor8u* memory = size <= INT32_MAX ? zors::zorsMalloc_8u(static_cast<Zor32s>(size)) : nullptr;
    if (memory == nullptr) return zorStatusNoMemory;
    Layout block(firAlignment, memory);
    ZorFIRState* built = build<Kind>(layFir<Kind>(block, tapsLen, plan), plan, taps, tapsLen, dly, [&](auto** spec) {
      return Kind::fftInitAlloc(spec, plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone);
    });
    built->ownsMemory = 1;
    built->block = memory;
    *state = built;
    return zorStatusOk;
  });
}

template <class Kind> Checks withTags(Checks checks, const ZorFIRState* state) {
  return checks.state(state, Kind::singleRate, Kind::multiRate, Kind::stream, Kind::multiRateStream);
}

template <class Kind> ZorStatus release(ZorFIRState* state) {
  return withTags<Kind>(check().pointers(state), state).then([&] {
    if (state->ownsMemory == 0) return;
    if (state->fftSpec != nullptr) Kind::fftFree(firFftSpec<Kind>(state));
    zors::zorsFree(state->block);
  });
}

template <class Kind> ZorStatus getTaps(const ZorFIRState* state, typename Kind::Tap* taps) {
  return withTags<Kind>(check().pointers(state, taps), state).then([&] { reverseInto(taps, firTaps<Kind>(state), state->tapsLen); });
}

// The tap count, the delay line and its index stay. Where the transform fails the specification goes, and the caller hears.
template <class Kind> ZorStatus setTaps(const typename Kind::Tap* taps, ZorFIRState* state) {
  return withTags<Kind>(check().pointers(taps, state), state).then([&]() -> ZorStatus {
    reverseInto(static_cast<typename Kind::Tap*>(state->tapsReversed), taps, state->tapsLen);
    if (state->tapsLen < Kind::leastTapsForFft || state->fftLen < 1 || state->fftSpec == nullptr) return zorStatusOk;
    const ZorStatus status = makeSpectrum<Kind>(state, taps);
    if (status != zorStatusOk) {
      Kind::fftFree(firFftSpec<Kind>(state));
      state->fftSpec = nullptr;
    }
    return status;
  });
}

template <class Kind> ZorStatus getDlyLine(const ZorFIRState* state, typename Kind::Sample* dly) {
  return withTags<Kind>(check().pointers(state, dly), state).then([&] {
    reverseInto(dly, firDlyLine<Kind>(state) + state->dlyIndex, state->dlyLen);
  });
}

template <class Kind> ZorStatus setDlyLineChecked(ZorFIRState* state, const typename Kind::Sample* dly) {
  return withTags<Kind>(check().pointers(state), state).then([&] { setDlyLine<Kind>(state, dly); });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRGetStateSize_32f(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32f>(tapsLen, size); }
ZorStatus zorsFIRInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer) { return init<Fir32f>(state, taps, tapsLen, dly, buffer); }
ZorStatus zorsFIRInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly) { return initAlloc<Fir32f>(state, taps, tapsLen, dly); }
ZorStatus zorsFIRFree_32f(ZorFIRState* state) { return release<Fir32f>(state); }
ZorStatus zorsFIRGetTaps_32f(const ZorFIRState* state, Zor32f* taps) { return getTaps<Fir32f>(state, taps); }
ZorStatus zorsFIRSetTaps_32f(const Zor32f* taps, ZorFIRState* state) { return setTaps<Fir32f>(taps, state); }
ZorStatus zorsFIRGetDlyLine_32f(const ZorFIRState* state, Zor32f* dly) { return getDlyLine<Fir32f>(state, dly); }
ZorStatus zorsFIRSetDlyLine_32f(ZorFIRState* state, const Zor32f* dly) { return setDlyLineChecked<Fir32f>(state, dly); }
// clang-format on

}  // namespace zors
