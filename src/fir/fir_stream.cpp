// zorsFIRStream*, zorsFIRMRStream*: states of filters without a history, which read ahead in their source.
#include "exports/fir.h"
#include "exports/multirate.h"
#include "fir/fir_rates.h"

namespace zors {
namespace {

struct Rates {
  Zor32s up, upPhase, down, downPhase;
};

Checks streamChecks(Checks checks, Zor32s tapsLen) { return checks.require(tapsLen >= 1, zorStatusBadTapsLength); }
Checks factorChecks(Checks checks, Zor32s tapsLen, Zor32s up, Zor32s down) {
  return streamChecks(checks, tapsLen).require(up >= 1 && down >= 1, zorStatusBadMultiRateFactor);
}
Checks phaseChecks(Checks checks, const Rates& rates) {
  return checks.require(
      rates.upPhase >= 0 && rates.upPhase < rates.up && rates.downPhase >= 0 && rates.downPhase < rates.down,
      zorStatusBadMultiRatePhase);
}
Checks roundChecks(Checks checks, ZorRoundMode roundMode) {
  return checks.require(roundMode >= zorRoundTowardZero && roundMode <= zorRoundHalfAway, zorStatusBadRoundMode);
}

// A record and its taps; set(state) sets these.
constexpr std::size_t streamAlignment = 8;
template <class Set> ZorFIRState* buildStream(Zor8u* memory, Tag tag, Zor32s tapsLen, std::size_t tapSize, Set set) {
  Layout block(streamAlignment, memory);
  auto* state = block.take<ZorFIRState>(1);
  *state = {.tag = tag, .tapsLen = tapsLen};
  state->tapsReversed = block.take<Zor8u>(firPairedTaps(tapsLen) * tapSize);
  set(state);
  return state;
}
std::size_t streamSize16s(Zor32s tapsLen) {
  return ((2 * static_cast<std::size_t>(tapsLen) + 15) & ~std::size_t{15}) + 128;
}

template <class Kind> std::size_t rateStreamSize(Zor32s tapsLen, Zor32s up, Zor32s down) {
  Layout account = firLayout<Kind>();
  layRates<Kind>(account, tapsLen, up, down, RateRecord::stream);
  return account.size();
}
template <class Kind, class Set>
ZorFIRState* buildRateStream(Zor8u* memory, Tag tag, Zor32s tapsLen, const Rates& rates, Set set) {
  Layout block = firLayout<Kind>(memory);
  ZorFIRState* state = firBuildRates<Kind>(block, tag, tapsLen, rates.up, rates.upPhase, rates.down, rates.downPhase,
                                           RateRecord::stream);
  firFillRows<typename Kind::Value>(*state->rates, tapsLen);
  set(state);
  return state;
}

// build(memory) gives the state in the caller's memory, or in memory of its own.
template <class Build>
ZorStatus finish(Checks checks, ZorFIRState** state, std::size_t size, Zor8u* buffer, Build build) {
  return checks.require(size <= INT32_MAX, zorStatusNoMemory).then([&] { *state = build(buffer); });
}
template <class Build> ZorStatus finishAlloc(Checks checks, ZorFIRState** state, std::size_t size, Build build) {
  return checks.then([&] {
    return initAllocated(state, size, [&](Zor8u* memory, ZorFIRState** built) -> ZorStatus {
      *built = build(memory);
      return zorStatusOk;
    });
  });
}

constexpr Tag stream16s = tag("FI31"), rates16s = tag("FI32"), stream32f = tag("FI33"), rates32f = tag("FI34");

auto build32f(const Zor32f* taps, Zor32s tapsLen) {
  return [=](Zor8u* memory) {
    return buildStream(memory, stream32f, tapsLen, sizeof(Zor32f),
                       [=](ZorFIRState* s) { zors::zorsFIRSetTaps_32f(taps, s); });
  };
}
auto build16s(const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, ZorRoundMode roundMode) {
  return [=](Zor8u* memory) {
    ZorFIRState* state = buildStream(memory, stream16s, tapsLen, sizeof(Zor16s),
                                     [=](ZorFIRState* s) { zors::zorsFIRSetTaps_16s(taps, s, tapsFactor); });
    state->roundMode = roundMode;
    return state;
  };
}
auto buildRates32f(const Zor32f* taps, Zor32s tapsLen, const Rates& rates) {
  return [=](Zor8u* memory) {
    return buildRateStream<Fir32f>(memory, rates32f, tapsLen, rates,
                                   [=](ZorFIRState* s) { zors::zorsFIRSetTaps_32f(taps, s); });
  };
}
auto buildRates16s(const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Rates& rates, ZorRoundMode roundMode) {
  return [=](Zor8u* memory) {
    ZorFIRState* state = buildRateStream<Fir16s>(
        memory, rates16s, tapsLen, rates, [=](ZorFIRState* s) { zors::zorsFIRSetTaps_16s(taps, s, tapsFactor); });
    state->roundMode = roundMode;
    return state;
  };
}

// A stream takes less than its state of one rate; of 16-bit samples the size is stated.
std::size_t size32f(Zor32s tapsLen) {
  Layout account(streamAlignment);
  account.take<ZorFIRState>(1);
  account.take<Zor32f>(firPairedTaps(tapsLen));
  return account.size();
}

}  // namespace

ZorStatus zorsFIRStreamGetStateSize_32f(Zor32s tapsLen, Zor32s* size) {
  return zors::zorsFIRGetStateSize_32f(tapsLen, size);
}
ZorStatus zorsFIRStreamGetStateSize_16s(Zor32s tapsLen, Zor32s* size) {
  return streamChecks(check().pointers(size), tapsLen).then([&] { return tellSize(streamSize16s(tapsLen), size); });
}
ZorStatus zorsFIRStreamInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor8u* buffer) {
  return finish(streamChecks(check().pointers(state, taps, buffer), tapsLen), state, size32f(tapsLen), buffer,
                build32f(taps, tapsLen));
}
ZorStatus zorsFIRStreamInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                ZorRoundMode roundMode, Zor8u* buffer) {
  return finish(roundChecks(streamChecks(check().pointers(state, taps, buffer), tapsLen), roundMode), state,
                streamSize16s(tapsLen), buffer, build16s(taps, tapsLen, tapsFactor, roundMode));
}
ZorStatus zorsFIRStreamInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen) {
  return finishAlloc(streamChecks(check().pointers(state, taps), tapsLen), state, size32f(tapsLen),
                     build32f(taps, tapsLen));
}
ZorStatus zorsFIRStreamInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                     ZorRoundMode roundMode) {
  return finishAlloc(roundChecks(streamChecks(check().pointers(state, taps), tapsLen), roundMode), state,
                     streamSize16s(tapsLen), build16s(taps, tapsLen, tapsFactor, roundMode));
}

ZorStatus zorsFIRMRStreamGetStateSize_32f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size) {
  return zors::zorsFIRMRGetStateSize_32f(tapsLen, upFactor, downFactor, size);
}
ZorStatus zorsFIRMRStreamGetStateSize_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size) {
  return factorChecks(check().pointers(size), tapsLen, upFactor, downFactor).then([&] {
    return tellSize(rateStreamSize<Fir16s>(tapsLen, upFactor, downFactor), size);
  });
}
ZorStatus zorsFIRMRStreamInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor,
                                  Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* buffer) {
  const Rates rates{upFactor, upPhase, downFactor, downPhase};
  const Checks checks =
      phaseChecks(factorChecks(check().pointers(state, taps, buffer), tapsLen, upFactor, downFactor), rates);
  return checks.then([&] {
    return finish(checks, state, rateStreamSize<Fir32f>(tapsLen, upFactor, downFactor), buffer,
                  buildRates32f(taps, tapsLen, rates));
  });
}
ZorStatus zorsFIRMRStreamInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                  Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase,
                                  ZorRoundMode roundMode, Zor8u* buffer) {
  const Rates rates{upFactor, upPhase, downFactor, downPhase};
  const Checks checks = roundChecks(
      phaseChecks(factorChecks(check().pointers(state, taps, buffer), tapsLen, upFactor, downFactor), rates),
      roundMode);
  return checks.then([&] {
    return finish(checks, state, rateStreamSize<Fir16s>(tapsLen, upFactor, downFactor), buffer,
                  buildRates16s(taps, tapsLen, tapsFactor, rates, roundMode));
  });
}
ZorStatus zorsFIRMRStreamInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor,
                                       Zor32s upPhase, Zor32s downFactor, Zor32s downPhase) {
  const Rates rates{upFactor, upPhase, downFactor, downPhase};
  const Checks checks = phaseChecks(factorChecks(check().pointers(state, taps), tapsLen, upFactor, downFactor), rates);
  return checks.then([&] {
    return finishAlloc(checks, state, rateStreamSize<Fir32f>(tapsLen, upFactor, downFactor),
                       buildRates32f(taps, tapsLen, rates));
  });
}
ZorStatus zorsFIRMRStreamInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                       Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase,
                                       ZorRoundMode roundMode) {
  const Rates rates{upFactor, upPhase, downFactor, downPhase};
  const Checks checks = roundChecks(
      phaseChecks(factorChecks(check().pointers(state, taps), tapsLen, upFactor, downFactor), rates), roundMode);
  return checks.then([&] {
    return finishAlloc(checks, state, rateStreamSize<Fir16s>(tapsLen, upFactor, downFactor),
                       buildRates16s(taps, tapsLen, tapsFactor, rates, roundMode));
  });
}

}  // namespace zors
