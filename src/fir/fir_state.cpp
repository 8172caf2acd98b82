// zorsFIRGetStateSize*, zorsFIRInit*, zorsFIRInitAlloc*, zorsFIRFree*, zorsFIRGetTaps*, zorsFIRSetTaps*,
// zorsFIRGetDlyLine*, zorsFIRSetDlyLine* of the kinds with floating arithmetic.
#include "fir/fir_state.h"
#include "exports/fft.h"
#include "exports/fir.h"
#include "exports/memory.h"

#include <algorithm>

namespace zors {
namespace {

template <class Kind> ZorStatus getStateSize(Zor32s tapsLen, Zor32s* size) {
  // Taps of Zor32s get an FFT only where InitAlloc makes room for it.
  const auto plan = [&] { return std::is_same_v<Kind, Fir32s> ? FirFftPlan{} : firFftPlan<Kind>(tapsLen); };
  return check().pointers(size).require(tapsLen >= 1, zorStatusBadTapsLength).then([&] {
    return tellSize(firStateSize<Kind>(tapsLen, plan()), size);
  });
}

template <class Kind> ZorStatus makeSpectrum(ZorFIRState* state, const typename Kind::Tap* taps) {
  using Value = typename Kind::Value;
  auto* spectrum = static_cast<Value*>(state->tapsSpectrum);
  std::fill(std::transform(taps, taps + state->tapsLen, spectrum, valueAs<Value, typename Kind::Tap>),
            spectrum + state->fftLen, Value{});
  return Kind::Fft::forward(spectrum, spectrum, firFftSpec<Kind>(state), state->fftWork);
}

void dropFft(ZorFIRState* state) {
  state->fftLen = -1;
  state->tapsSpectrum = nullptr;
  state->fftWork = nullptr;
}

// Each tap so many times in a row, forward order.
template <class T> void writeRows(T* rows, const T* taps, Zor32s tapsLen, int repeats) {
  for (Zor32s j = 0; j < tapsLen; ++j) rows = std::fill_n(rows, repeats, taps[j]);
}

template <class Kind> void writeTaps(ZorFIRState* state, const typename Kind::Tap* taps) {
  reverseInto(firTaps<Kind>(state), taps, state->tapsLen);
  if constexpr (Kind::fourLaneRows) {
    if (state->tapsRows != nullptr)
      writeRows(static_cast<typename Kind::Value*>(state->tapsRows), taps, state->tapsLen, 4);
  }
}

// Fills the parts; makeSpec builds the FFT specification and whatever it returns, a filter whose FFT cannot be had is a
// direct one. The spectrum's status comes back.
template <class Kind, class MakeSpec>
ZorStatus build(const FirParts& parts, const FirFftPlan& plan, const typename Kind::Tap* taps, Zor32s tapsLen,
                const typename Kind::Sample* dly, MakeSpec makeSpec) {
  const bool hasFft = plan.fftLen > 0;
  ZorFIRState* state = parts.state;
  *state = {.tag = Kind::tags[0],
            .tapsLen = tapsLen,
            .dlyLen = tapsLen,
            .dlyBlock = static_cast<Zor32s>(firDlyBlock<Kind>(tapsLen, plan)),
            .fftLen = hasFft ? plan.fftLen : -1,
            .tapsReversed = parts.tapsReversed,
            .tapsRows = parts.tapsRows,
            .dlyLine = parts.dlyLine,
            .tapsSpectrum = hasFft ? parts.tapsSpectrum : nullptr,
            .fftBuffer = parts.fftBuffer,
            .fftWork = plan.workSize > 0 ? parts.fftWork : nullptr,
            .blockScratch = parts.blockScratch};
  writeTaps<Kind>(state, taps);
  std::fill_n(firDlyLine<Kind>(state), firDlyLineLen<Kind>(tapsLen, state->dlyBlock), typename Kind::Value{});
  firDelay<Kind>(state).set(dly);
  if (!hasFft) return zorStatusOk;
  typename Kind::Fft::Spec* spec = nullptr;
  if (makeSpec(&spec) != zorStatusOk) {
    dropFft(state);
    return zorStatusOk;
  }
  state->fftSpec = spec;
  const ZorStatus status = makeSpectrum<Kind>(state, taps);
  if (status != zorStatusOk) dropFft(state);
  return status;
}

template <class Kind>
ZorStatus init(ZorFIRState** state, const typename Kind::Tap* taps, Zor32s tapsLen, const typename Kind::Sample* dly,
               Zor8u* buffer) {
  return check().pointers(state, taps, buffer).require(tapsLen >= 1, zorStatusBadTapsLength).then([&]() -> ZorStatus {
    const FirFftPlan plan = std::is_same_v<Kind, Fir32s> ? FirFftPlan{} : firFftPlan<Kind>(tapsLen);
    if (firStateSize<Kind>(tapsLen, plan) > INT32_MAX) return zorStatusNoMemory;
    Layout block = firLayout<Kind>(buffer);
    const FirParts parts = layFir<Kind>(block, tapsLen, plan);
    build<Kind>(parts, plan, taps, tapsLen, dly, [&](auto** spec) {
      return Kind::Fft::init(spec, plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone, parts.fftSpec, parts.fftInit);
    });
    *state = parts.state;
    return zorStatusOk;
  });
}

template <class Kind> void freeFft(const ZorFIRState* state) {
  if (state->fftSpec != nullptr) Kind::Fft::free(firFftSpec<Kind>(state));
}

template <class Kind>
ZorStatus initAlloc(ZorFIRState** state, const typename Kind::Tap* taps, Zor32s tapsLen,
                    const typename Kind::Sample* dly) {
  return check().pointers(state, taps).require(tapsLen >= 1, zorStatusBadTapsLength).then([&]() -> ZorStatus {
    // Taps of Zor32s take an FFT from 32 taps on, beyond the stated size, and are no filter without it.
    constexpr bool wide = std::is_same_v<Kind, Fir32s>;
    const FirFftPlan plan = firFftPlan<Kind>(tapsLen, wide ? 32 : Kind::leastTaps);
    std::size_t size = firStateSize<Kind>(tapsLen, plan);
    if (size > INT32_MAX) return zorStatusNoMemory;
    if constexpr (wide) {
      Layout account = firLayout<Kind>();
      layFir<Kind>(account, tapsLen, plan);
      size = std::max(size, account.size());
    }
    return initAllocated(state, size, [&](Zor8u* memory, ZorFIRState** built) -> ZorStatus {
      Layout block = firLayout<Kind>(memory);
      const FirParts parts = layFir<Kind>(block, tapsLen, plan);
      const ZorStatus status = build<Kind>(parts, plan, taps, tapsLen, dly, [&](auto** spec) {
        return Kind::Fft::initAlloc(spec, plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone);
      });
      *built = parts.state;
      if (!wide || status == zorStatusOk) return zorStatusOk;
      freeFft<Kind>(parts.state);
      return status;
    });
  });
}

template <class Kind> ZorStatus release(ZorFIRState* state) {
  return firState<Kind>(check().pointers(state), state).then([&] {
    if (state->owned != nullptr) freeFft<Kind>(state);
    releaseOwned(state);
  });
}

template <class Kind> ZorStatus getTaps(const ZorFIRState* state, typename Kind::Tap* taps) {
  return firState<Kind>(check().pointers(state, taps), state).then([&] {
    reverseInto(taps, firTaps<Kind>(state), state->tapsLen);
  });
}

template <class Kind> ZorStatus renewSpectrum(const typename Kind::Tap* taps, ZorFIRState* state) {
  if (state->fftLen < 1 || state->fftSpec == nullptr) return zorStatusOk;
  const ZorStatus status = makeSpectrum<Kind>(state, taps);
  if (status != zorStatusOk) {
    Kind::Fft::free(firFftSpec<Kind>(state));
    state->fftSpec = nullptr;
    // Deviation, kept: the 32f form leaves the FFT's length and spectrum as they were. Its long blocks then end in the
    // transform's status.
    if constexpr (!std::is_same_v<Kind, Fir32f>) dropFft(state);
  }
  return status;
}

// The tap count, the delay line and its index stay.
template <class Kind> ZorStatus setTaps(const typename Kind::Tap* taps, ZorFIRState* state) {
  return firState<Kind>(check().pointers(taps, state), state).then([&] {
    writeTaps<Kind>(state, taps);
    firSplitTaps<Kind>(state);
    return renewSpectrum<Kind>(taps, state);
  });
}

// Deviation, kept: taps of a single-rate state with rows of four lanes are set in the layout for eight: nine reversed
// rows, zeroed and written, which run over the delay line, and eight copies of each tap where the kernels read four.
// All of it lies inside the state's block. What the filter then gives is what follows.
ZorStatus setTapsInEightLanes(const Zor32f* taps, ZorFIRState* state) {
  return firState<Fir32f_16s>(check().pointers(taps, state), state).then([&] {
    if (state->rates != nullptr) return setTaps<Fir32f_16s>(taps, state);
    const auto n = static_cast<std::size_t>(state->tapsLen), stride = firDown(n + 16, 8);
    auto* reversed = firTaps<Fir32f_16s>(state);
    std::fill_n(reversed, 9 * stride, 0.0f);
    reverseInto(reversed, taps, state->tapsLen);
    for (std::size_t lane = 0; lane < 8; ++lane)
      for (std::size_t j = 0; j < n; ++j) reversed[stride + 9 * lane + 8 * j] = reversed[j];
    writeRows(static_cast<Zor32f*>(state->tapsRows), taps, state->tapsLen, 8);
    return renewSpectrum<Fir32f_16s>(taps, state);
  });
}

template <class Kind> ZorStatus getDlyLine(const ZorFIRState* state, typename Kind::Sample* dly) {
  return firState<Kind>(check().pointers(state, dly), state).then([&] { firDelay<Kind>(state).get(dly); });
}

template <class Kind> ZorStatus setDlyLine(ZorFIRState* state, const typename Kind::Sample* dly) {
  return firState<Kind>(check().pointers(state), state).then([&] { firDelay<Kind>(state).set(dly); });
}

}  // namespace

// clang-format off
#define ROWS(STATE_SIZE, INIT, INIT_ALLOC, FREE, GET_TAPS, SET_TAPS, Kind)                                                                       \
  ZorStatus STATE_SIZE(Zor32s tapsLen, Zor32s* size) { return getStateSize<Kind>(tapsLen, size); }                                                \
  ZorStatus INIT(ZorFIRState** state, const Kind::Tap* taps, Zor32s tapsLen, const Kind::Sample* dly, Zor8u* buffer) { return init<Kind>(state, taps, tapsLen, dly, buffer); } \
  ZorStatus INIT_ALLOC(ZorFIRState** state, const Kind::Tap* taps, Zor32s tapsLen, const Kind::Sample* dly) { return initAlloc<Kind>(state, taps, tapsLen, dly); } \
  ZorStatus FREE(ZorFIRState* state) { return release<Kind>(state); }                                                                            \
  ZorStatus GET_TAPS(const ZorFIRState* state, Kind::Tap* taps) { return getTaps<Kind>(state, taps); }                                           \
  ZorStatus SET_TAPS(const Kind::Tap* taps, ZorFIRState* state) { return setTaps<Kind>(taps, state); }
#define DLY_LINE(GET, SET, Kind)                                                                                                                 \
  ZorStatus GET(const ZorFIRState* state, Kind::Sample* dly) { return getDlyLine<Kind>(state, dly); }                                            \
  ZorStatus SET(ZorFIRState* state, const Kind::Sample* dly) { return setDlyLine<Kind>(state, dly); }
ROWS(zorsFIRGetStateSize_32f, zorsFIRInit_32f, zorsFIRInitAlloc_32f, zorsFIRFree_32f, zorsFIRGetTaps_32f, zorsFIRSetTaps_32f, Fir32f)
ROWS(zorsFIRGetStateSize_32fc, zorsFIRInit_32fc, zorsFIRInitAlloc_32fc, zorsFIRFree_32fc, zorsFIRGetTaps_32fc, zorsFIRSetTaps_32fc, Fir32fc)
ROWS(zorsFIRGetStateSize_64f, zorsFIRInit_64f, zorsFIRInitAlloc_64f, zorsFIRFree_64f, zorsFIRGetTaps_64f, zorsFIRSetTaps_64f, Fir64f)
ROWS(zorsFIRGetStateSize_64fc, zorsFIRInit_64fc, zorsFIRInitAlloc_64fc, zorsFIRFree_64fc, zorsFIRGetTaps_64fc, zorsFIRSetTaps_64fc, Fir64fc)
ROWS(zorsFIRGetStateSize_32s, zorsFIRInit_32s, zorsFIRInitAlloc_32s, zorsFIRFree_32s, zorsFIRGetTaps_32s, zorsFIRSetTaps_32s, Fir32s)
ROWS(zorsFIRGetStateSize32fc_16sc, zorsFIRInit32fc_16sc, zorsFIRInitAlloc32fc_16sc, zorsFIRFree32fc_16sc, zorsFIRGetTaps32fc_16sc, zorsFIRSetTaps32fc_16sc, Fir32fc_16sc)
ROWS(zorsFIRGetStateSize64f_16s, zorsFIRInit64f_16s, zorsFIRInitAlloc64f_16s, zorsFIRFree64f_16s, zorsFIRGetTaps64f_16s, zorsFIRSetTaps64f_16s, Fir64f_16s)
ROWS(zorsFIRGetStateSize64f_32f, zorsFIRInit64f_32f, zorsFIRInitAlloc64f_32f, zorsFIRFree64f_32f, zorsFIRGetTaps64f_32f, zorsFIRSetTaps64f_32f, Fir64f_32f)
ROWS(zorsFIRGetStateSize64f_32s, zorsFIRInit64f_32s, zorsFIRInitAlloc64f_32s, zorsFIRFree64f_32s, zorsFIRGetTaps64f_32s, zorsFIRSetTaps64f_32s, Fir64f_32s)
ROWS(zorsFIRGetStateSize64fc_16sc, zorsFIRInit64fc_16sc, zorsFIRInitAlloc64fc_16sc, zorsFIRFree64fc_16sc, zorsFIRGetTaps64fc_16sc, zorsFIRSetTaps64fc_16sc, Fir64fc_16sc)
ROWS(zorsFIRGetStateSize64fc_32fc, zorsFIRInit64fc_32fc, zorsFIRInitAlloc64fc_32fc, zorsFIRFree64fc_32fc, zorsFIRGetTaps64fc_32fc, zorsFIRSetTaps64fc_32fc, Fir64fc_32fc)
ROWS(zorsFIRGetStateSize64fc_32sc, zorsFIRInit64fc_32sc, zorsFIRInitAlloc64fc_32sc, zorsFIRFree64fc_32sc, zorsFIRGetTaps64fc_32sc, zorsFIRSetTaps64fc_32sc, Fir64fc_32sc)
DLY_LINE(zorsFIRGetDlyLine_32f, zorsFIRSetDlyLine_32f, Fir32f)
DLY_LINE(zorsFIRGetDlyLine_32fc, zorsFIRSetDlyLine_32fc, Fir32fc)
DLY_LINE(zorsFIRGetDlyLine_64f, zorsFIRSetDlyLine_64f, Fir64f)
DLY_LINE(zorsFIRGetDlyLine_64fc, zorsFIRSetDlyLine_64fc, Fir64fc)
DLY_LINE(zorsFIRGetDlyLine32f_16s, zorsFIRSetDlyLine32f_16s, Fir32f_16s)
DLY_LINE(zorsFIRGetDlyLine32fc_16sc, zorsFIRSetDlyLine32fc_16sc, Fir32fc_16sc)
DLY_LINE(zorsFIRGetDlyLine64f_16s, zorsFIRSetDlyLine64f_16s, Fir64f_16s)
DLY_LINE(zorsFIRGetDlyLine64f_32f, zorsFIRSetDlyLine64f_32f, Fir64f_32f)
DLY_LINE(zorsFIRGetDlyLine64f_32s, zorsFIRSetDlyLine64f_32s, Fir64f_32s)
DLY_LINE(zorsFIRGetDlyLine64fc_16sc, zorsFIRSetDlyLine64fc_16sc, Fir64fc_16sc)
DLY_LINE(zorsFIRGetDlyLine64fc_32fc, zorsFIRSetDlyLine64fc_32fc, Fir64fc_32fc)
DLY_LINE(zorsFIRGetDlyLine64fc_32sc, zorsFIRSetDlyLine64fc_32sc, Fir64fc_32sc)
#undef ROWS
#undef DLY_LINE
ZorStatus zorsFIRGetStateSize32f_16s(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32f_16s>(tapsLen, size); }
ZorStatus zorsFIRInit32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer) { return init<Fir32f_16s>(state, taps, tapsLen, dly, buffer); }
ZorStatus zorsFIRInitAlloc32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly) { return initAlloc<Fir32f_16s>(state, taps, tapsLen, dly); }
ZorStatus zorsFIRFree32f_16s(ZorFIRState* state) { return release<Fir32f_16s>(state); }
ZorStatus zorsFIRGetTaps32f_16s(const ZorFIRState* state, Zor32f* taps) { return getTaps<Fir32f_16s>(state, taps); }
ZorStatus zorsFIRSetTaps32f_16s(const Zor32f* taps, ZorFIRState* state) { return setTapsInEightLanes(taps, state); }
// clang-format on

}  // namespace zors
