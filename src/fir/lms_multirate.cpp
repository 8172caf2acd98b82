// zorsFIRLMSMR*: integer adaptive filters whose output, feed and update are calls of their own.
#include <algorithm>

#include "exports/adaptive.h"
#include "frame/delay_line.h"
#include "frame/object.h"

struct ZorFIRLMSMRState {
  zors::Tag tag;
  Zor32s tapsLen, dlyStep, dlyLen, updateDelay, dlyIndex;
  Zor32s mu;
  Zor8u* owned;
  void* taps;     // Zor32s or Zor32sc, reversed
  void* dlyLine;  // Zor16s or Zor16sc, a doubled ring of dlyLen
};

namespace zors {
namespace {

struct Real {
  using Tap = Zor32s;
  using Sample = Zor16s;
  static constexpr Tag tag = zors::tag("LMSR");
};
struct Pairs {
  using Tap = Zor32sc;
  using Sample = Zor16sc;
  static constexpr Tag tag = zors::tag("LMSC");
};

template <class Kind> auto* tapsOf(const ZorFIRLMSMRState* state) {
  return static_cast<typename Kind::Tap*>(state->taps);
}

// ---- Arithmetic of 32 bits that wrap ------------------------------------------------------------

Zor32s wrapped(Zor32u x) { return static_cast<Zor32s>(x); }
Zor32s product(Zor32s a, Zor32s b) { return wrapped(static_cast<Zor32u>(a) * static_cast<Zor32u>(b)); }
Zor32s sum(Zor32s a, Zor32s b) { return wrapped(static_cast<Zor32u>(a) + static_cast<Zor32u>(b)); }
Zor32s difference(Zor32s a, Zor32s b) { return wrapped(static_cast<Zor32u>(a) - static_cast<Zor32u>(b)); }

Zor32s plusProduct(Zor32s to, Zor32s tap, Zor16s x) { return sum(to, product(tap, x)); }
Zor32sc plusProduct(Zor32sc to, Zor32sc tap, Zor16sc x) {
  return {sum(to.re, difference(product(tap.re, x.re), product(tap.im, x.im))),
          sum(to.im, sum(product(tap.re, x.im), product(tap.im, x.re)))};
}
// mu * err to nearest in units of 2^15, ties up.
Zor32s step(Zor32s mu, Zor32s err) { return sum(product(mu, err), 16384) >> 15; }
Zor32sc step(Zor32s mu, Zor32sc err) { return {step(mu, err.re), step(mu, err.im)}; }
// A tap moved by the step times a sample, of complex ones by the step times the conjugate sample.
Zor32s moved(Zor32s tap, Zor32s e, Zor16s x) { return plusProduct(tap, e, x); }
Zor32sc moved(Zor32sc tap, Zor32sc e, Zor16sc x) {
  return {sum(tap.re, sum(product(x.re, e.re), product(x.im, e.im))),
          sum(tap.im, difference(product(x.re, e.im), product(x.im, e.re)))};
}

// A place that a caller has set outside the ring counts as its start.
Zor32s legalPlace(const ZorFIRLMSMRState* state) {
  return state->dlyIndex >= 0 && state->dlyIndex < state->dlyLen ? state->dlyIndex : 0;
}
template <class Kind> const typename Kind::Sample* historyOf(const ZorFIRLMSMRState* state) {
  return static_cast<const typename Kind::Sample*>(state->dlyLine) + legalPlace(state);
}

// visit(k, newest[-k * dlyStep]) for each stored tap k.
template <class Sample, class Visit> void forWindow(const ZorFIRLMSMRState* state, const Sample* newest, Visit visit) {
  const std::ptrdiff_t n = state->tapsLen, distance = state->dlyStep;
  if (distance == 1)  // neighbours, for the compiler's vectors
    for (std::ptrdiff_t k = 0; k < n; ++k) visit(k, newest[-k]);
  else
    for (std::ptrdiff_t k = 0; k < n; ++k) visit(k, newest[-k * distance]);
}

// ---- Lifecycle ----------------------------------------------------------------------------------

template <class Kind> void setTapsOf(ZorFIRLMSMRState* state, const typename Kind::Tap* taps) {
  if (taps == nullptr)
    std::fill_n(tapsOf<Kind>(state), state->tapsLen, typename Kind::Tap{});
  else
    reverseInto(tapsOf<Kind>(state), taps, state->tapsLen);
}
template <class Kind> void setRing(ZorFIRLMSMRState* state, const typename Kind::Sample* dly, Zor32s dlyIndex) {
  auto* line = static_cast<typename Kind::Sample*>(state->dlyLine);
  const std::ptrdiff_t len = state->dlyLen;
  if (dly == nullptr) {
    std::fill_n(line, 2 * len, typename Kind::Sample{});
  } else {
    std::copy_n(dly, len, line);
    std::copy_n(dly, len, line + len);
  }
  state->dlyIndex = dlyIndex;
}

template <class Kind>
ZorStatus initAlloc(ZorFIRLMSMRState** state, const typename Kind::Tap* taps, Zor32s tapsLen,
                    const typename Kind::Sample* dly, Zor32s dlyIndex, Zor32s dlyStep, Zor32s updateDelay, Zor32s mu) {
  const Zor64s dlyLen = Zor64s{tapsLen} * dlyStep + updateDelay;
  return check()
      .pointers(state)
      .size(tapsLen)
      .size(dlyStep)
      .require(updateDelay >= 0 && dlyIndex >= 0 && dlyIndex < dlyLen, zorStatusBadSize)
      .then([&]() -> ZorStatus {
        using Sample = typename Kind::Sample;
        if (dlyLen > INT32_MAX / Zor64s{2 * sizeof(Sample)}) return zorStatusNoMemory;
        OwnMemory record(sizeof(ZorFIRLMSMRState));
        OwnMemory tapsMemory(static_cast<std::size_t>(tapsLen) * sizeof(typename Kind::Tap));
        OwnMemory line(2 * static_cast<std::size_t>(dlyLen) * sizeof(Sample));
        if (!record || !tapsMemory || !line) return zorStatusNoMemory;
        auto* built = reinterpret_cast<ZorFIRLMSMRState*>(record.data());
        *built = {.tag = Kind::tag,
                  .tapsLen = tapsLen,
                  .dlyStep = dlyStep,
                  .dlyLen = static_cast<Zor32s>(dlyLen),
                  .updateDelay = updateDelay,
                  .dlyIndex = dlyIndex,
                  .mu = mu,
                  .owned = record.giveAway(),
                  .taps = tapsMemory.giveAway(),
                  .dlyLine = line.giveAway()};
        setTapsOf<Kind>(built, taps);
        setRing<Kind>(built, dly, dlyIndex);
        *state = built;
        return zorStatusOk;
      });
}
template <class Kind> ZorStatus release(ZorFIRLMSMRState* state) {
  return check().pointers(state).state(state, Kind::tag).then([&] {
    zors::zorsFree(state->taps);
    zors::zorsFree(state->dlyLine);
    releaseOwned(state);
  });
}

// ---- Taps and delay line ------------------------------------------------------------------------

// Pointers first, then the tag.
template <class Kind, class... P> Checks checked(const ZorFIRLMSMRState* state, const P*... more) {
  return check().pointers(state, more...).state(state, Kind::tag);
}
template <class Kind> ZorStatus setMu(ZorFIRLMSMRState* state, Zor32s mu) {
  return checked<Kind>(state).then([&] { state->mu = mu; });
}
template <class Kind> ZorStatus setTaps(ZorFIRLMSMRState* state, const typename Kind::Tap* taps) {
  return checked<Kind>(state).then([&] { setTapsOf<Kind>(state, taps); });
}
template <class Kind> ZorStatus getTaps(const ZorFIRLMSMRState* state, typename Kind::Tap* taps) {
  return checked<Kind>(state, taps).then([&] { reverseInto(taps, tapsOf<Kind>(state), state->tapsLen); });
}
template <class Kind> ZorStatus getTapsPointer(const ZorFIRLMSMRState* state, typename Kind::Tap** taps) {
  return checked<Kind>(state, taps).then([&] { *taps = tapsOf<Kind>(state); });
}
template <class Kind> ZorStatus setDlyLine(ZorFIRLMSMRState* state, const typename Kind::Sample* dly, Zor32s dlyIndex) {
  return checked<Kind>(state).then([&] { setRing<Kind>(state, dly, dlyIndex); });
}
template <class Kind>
ZorStatus getDlyLine(const ZorFIRLMSMRState* state, typename Kind::Sample* dly, Zor32s* dlyIndex) {
  return checked<Kind>(state, dly, dlyIndex).then([&] {
    std::copy_n(static_cast<const typename Kind::Sample*>(state->dlyLine), state->dlyLen, dly);
    *dlyIndex = state->dlyIndex;
  });
}
// Index 0 is the newest sample; from index 1 on the ring's oldest ones follow.
template <class Kind> ZorStatus getDlyVal(const ZorFIRLMSMRState* state, typename Kind::Sample* dst, Zor32s index) {
  const Checks checks = checked<Kind>(state, dst);
  if (checks.then([] {}) != zorStatusOk) return checks.then([] {});
  return checks.require(index >= 0 && index < state->dlyStep, zorStatusBadArgument).then([&] {
    const Zor64s place = (Zor64s{legalPlace(state)} + state->dlyLen + index - 1) % state->dlyLen;
    *dst = static_cast<const typename Kind::Sample*>(state->dlyLine)[place];
  });
}

// ---- Feed, output, update -----------------------------------------------------------------------

template <class Kind> typename Kind::Tap output(const ZorFIRLMSMRState* state) {
  typename Kind::Tap result{};
  const auto* taps = tapsOf<Kind>(state);
  forWindow(state, historyOf<Kind>(state) + state->dlyLen - 1,
            [&](std::ptrdiff_t k, auto x) { result = plusProduct(result, taps[k], x); });
  return result;
}
template <class Kind> ZorStatus putVal(typename Kind::Sample val, ZorFIRLMSMRState* state) {
  return checked<Kind>(state).then([&] {
    state->dlyIndex = legalPlace(state);
    DelayLine(static_cast<typename Kind::Sample*>(state->dlyLine), state->dlyLen, &state->dlyIndex).put(val);
  });
}
template <class Kind> ZorStatus one(typename Kind::Tap* dst, const ZorFIRLMSMRState* state) {
  return checked<Kind>(state, dst).then([&] { *dst = output<Kind>(state); });
}
template <class Kind> ZorStatus oneVal(typename Kind::Sample val, typename Kind::Tap* dst, ZorFIRLMSMRState* state) {
  return checked<Kind>(state, dst).then([&] {
    putVal<Kind>(val, state);
    *dst = output<Kind>(state);
  });
}
// By the window of updateDelay samples ago.
template <class Kind> ZorStatus updateTaps(typename Kind::Tap err, ZorFIRLMSMRState* state) {
  return checked<Kind>(state).then([&] {
    const auto e = step(state->mu, err);
    auto* taps = tapsOf<Kind>(state);
    forWindow(state, historyOf<Kind>(state) + state->dlyLen - state->updateDelay - 1,
              [&](std::ptrdiff_t k, auto x) { taps[k] = moved(taps[k], e, x); });
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRLMSMRInitAlloc32s_16s  (ZorFIRLMSMRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor16s* dly, Zor32s dlyIndex, Zor32s dlyStep, Zor32s updateDelay, Zor32s mu) { return initAlloc<Real>(state, taps, tapsLen, dly, dlyIndex, dlyStep, updateDelay, mu); }
ZorStatus zorsFIRLMSMRInitAlloc32sc_16sc(ZorFIRLMSMRState** state, const Zor32sc* taps, Zor32s tapsLen, const Zor16sc* dly, Zor32s dlyIndex, Zor32s dlyStep, Zor32s updateDelay, Zor32s mu) { return initAlloc<Pairs>(state, taps, tapsLen, dly, dlyIndex, dlyStep, updateDelay, mu); }
ZorStatus zorsFIRLMSMRFree32s_16s  (ZorFIRLMSMRState* state) { return release<Real>(state); }
ZorStatus zorsFIRLMSMRFree32sc_16sc(ZorFIRLMSMRState* state) { return release<Pairs>(state); }
ZorStatus zorsFIRLMSMRSetMu32s_16s  (ZorFIRLMSMRState* state, Zor32s mu) { return setMu<Real>(state, mu); }
ZorStatus zorsFIRLMSMRSetMu32sc_16sc(ZorFIRLMSMRState* state, Zor32s mu) { return setMu<Pairs>(state, mu); }
ZorStatus zorsFIRLMSMRSetTaps32s_16s  (ZorFIRLMSMRState* state, const Zor32s* taps) { return setTaps<Real>(state, taps); }
ZorStatus zorsFIRLMSMRSetTaps32sc_16sc(ZorFIRLMSMRState* state, const Zor32sc* taps) { return setTaps<Pairs>(state, taps); }
ZorStatus zorsFIRLMSMRGetTaps32s_16s  (const ZorFIRLMSMRState* state, Zor32s* taps) { return getTaps<Real>(state, taps); }
ZorStatus zorsFIRLMSMRGetTaps32sc_16sc(const ZorFIRLMSMRState* state, Zor32sc* taps) { return getTaps<Pairs>(state, taps); }
ZorStatus zorsFIRLMSMRGetTapsPointer32s_16s  (ZorFIRLMSMRState* state, Zor32s** taps) { return getTapsPointer<Real>(state, taps); }
ZorStatus zorsFIRLMSMRGetTapsPointer32sc_16sc(ZorFIRLMSMRState* state, Zor32sc** taps) { return getTapsPointer<Pairs>(state, taps); }
ZorStatus zorsFIRLMSMRSetDlyLine32s_16s  (ZorFIRLMSMRState* state, const Zor16s* dly, Zor32s dlyIndex) { return setDlyLine<Real>(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSMRSetDlyLine32sc_16sc(ZorFIRLMSMRState* state, const Zor16sc* dly, Zor32s dlyIndex) { return setDlyLine<Pairs>(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSMRGetDlyLine32s_16s  (const ZorFIRLMSMRState* state, Zor16s* dly, Zor32s* dlyIndex) { return getDlyLine<Real>(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSMRGetDlyLine32sc_16sc(const ZorFIRLMSMRState* state, Zor16sc* dly, Zor32s* dlyIndex) { return getDlyLine<Pairs>(state, dly, dlyIndex); }
ZorStatus zorsFIRLMSMRGetDlyVal32s_16s  (const ZorFIRLMSMRState* state, Zor16s* dst, Zor32s index) { return getDlyVal<Real>(state, dst, index); }
ZorStatus zorsFIRLMSMRGetDlyVal32sc_16sc(const ZorFIRLMSMRState* state, Zor16sc* dst, Zor32s index) { return getDlyVal<Pairs>(state, dst, index); }
ZorStatus zorsFIRLMSMRPutVal32s_16s  (Zor16s val, ZorFIRLMSMRState* state) { return putVal<Real>(val, state); }
ZorStatus zorsFIRLMSMRPutVal32sc_16sc(Zor16sc val, ZorFIRLMSMRState* state) { return putVal<Pairs>(val, state); }
ZorStatus zorsFIRLMSMROne32s_16s  (Zor32s* dst, const ZorFIRLMSMRState* state) { return one<Real>(dst, state); }
ZorStatus zorsFIRLMSMROne32sc_16sc(Zor32sc* dst, const ZorFIRLMSMRState* state) { return one<Pairs>(dst, state); }
ZorStatus zorsFIRLMSMROneVal32s_16s  (Zor16s val, Zor32s* dst, ZorFIRLMSMRState* state) { return oneVal<Real>(val, dst, state); }
ZorStatus zorsFIRLMSMROneVal32sc_16sc(Zor16sc val, Zor32sc* dst, ZorFIRLMSMRState* state) { return oneVal<Pairs>(val, dst, state); }
ZorStatus zorsFIRLMSMRUpdateTaps32s_16s  (Zor32s err, ZorFIRLMSMRState* state) { return updateTaps<Real>(err, state); }
ZorStatus zorsFIRLMSMRUpdateTaps32sc_16sc(Zor32sc err, ZorFIRLMSMRState* state) { return updateTaps<Pairs>(err, state); }
// clang-format on

}  // namespace zors
