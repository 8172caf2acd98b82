// zorsFIRSR*, zorsFIRMRGetSize, zorsFIRMR_Init_*, zorsFIRMR_<samples>: filters with a specification, which runs only
// read; the history is the caller's.
#include "exports/fir.h"
#include "exports/multirate.h"
#include "fir/fir_rates.h"
#include "frame/rounding.h"

namespace zors {
namespace {

// The kind of a specification's taps.
template <class Value> struct Form;
template <> struct Form<Zor32f> : Fir32f { static constexpr auto setTaps = &zors::zorsFIRSetTaps_32f; };
template <> struct Form<Zor32fc> : Fir32fc { static constexpr auto setTaps = &zors::zorsFIRSetTaps_32fc; };
template <> struct Form<Zor64f> : Fir64f { static constexpr auto setTaps = &zors::zorsFIRSetTaps_64f; };
template <> struct Form<Zor64fc> : Fir64fc { static constexpr auto setTaps = &zors::zorsFIRSetTaps_64fc; };

// ---- Sizes --------------------------------------------------------------------------------------

constexpr std::size_t alignment = 64;

template <class Value> std::size_t specSizeOf(Zor32s tapsLen, Zor32s up, Zor32s down) {
  Layout account(alignment);
  layRates<Form<Value>>(account, tapsLen, up, down, RateRecord::specification);
  return account.size();
}
template <class Value> struct Buffer {
  Value *line, *results, *columns;
  static Buffer lay(Layout& block, const fir::Phases& phases, Zor32s down) {
    return {block.take<Value>(firLineLen<Value>(phases, down)), block.take<Value>(firResultsLen(phases, down)),
            block.take<Value>(firColumnsLen<Value>(phases))};
  }
};
template <class Value> std::size_t bufferSizeOf(Zor32s tapsLen, Zor32s up, Zor32s down) {
  Layout account(alignment);
  Buffer<Value>::lay(account, {tapsLen, up}, down);
  return account.size();
}

constexpr Zor32s type32f = 13, type32fc = 14, type64f = 19, type64fc = 20;

ZorStatus getSize(Checks checks, Zor32s tapsLen, Zor32s up, Zor32s down, Zor32s tapsType, Zor32s* specSize,
                  Zor32s* bufSize) {
  const auto tell = [&]<class Value>(Value) -> ZorStatus {
    const std::size_t spec = specSizeOf<Value>(tapsLen, up, down), buffer = bufferSizeOf<Value>(tapsLen, up, down);
    if (std::max(spec, buffer) > INT32_MAX) return zorStatusNoMemory;
    *specSize = static_cast<Zor32s>(spec);
    *bufSize = static_cast<Zor32s>(buffer);
    return zorStatusOk;
  };
  return checks.then([&]() -> ZorStatus {
    switch (tapsType) {
      case type32f:
        return tell(Zor32f{});
      case type32fc:
        return tell(Zor32fc{});
      case type64f:
        return tell(Zor64f{});
      default:
        return tell(Zor64fc{});
    }
  });
}
Checks typeChecks(Checks checks, Zor32s tapsType, const Zor32s* specSize, const Zor32s* bufSize) {
  return checks
      .require(tapsType == type32f || tapsType == type32fc || tapsType == type64f || tapsType == type64fc,
               zorStatusBadDataType)
      .pointers(specSize, bufSize);
}

// ---- Specifications -----------------------------------------------------------------------------

// The history of a filter at one rate is as long as it has to be; otherwise it is one sample more than that at up = 1.
template <class Value>
void build(const Value* taps, Zor32s tapsLen, Zor32s up, Zor32s upPhase, Zor32s down, Zor32s downPhase, Zor8u* spec,
           bool shortHistory) {
  using Kind = Form<Value>;
  Layout block(alignment, spec);
  ZorFIRState* state =
      firBuildRates<Kind>(block, Kind::tags[1], tapsLen, up, upPhase, down, downPhase, RateRecord::specification);
  firFillRows<Value>(*state->rates, tapsLen);
  Form<Value>::setTaps(taps, state);
  state->dlyLen = static_cast<Zor32s>(fir::Phases{tapsLen, up}.longest()) - (shortHistory ? 1 : 0);
}

template <class Value> ZorStatus initSingle(const Value* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec) {
  return check()
      .size(tapsLen)
      .pointers(taps, spec)
      .require(algType >= 0 && algType <= 2, zorStatusBadAlgorithmType)
      .then([&]() -> ZorStatus {
        if (specSizeOf<Value>(tapsLen, 1, 1) > INT32_MAX) return zorStatusNoMemory;
        build(taps, tapsLen, 1, 0, 1, 0, spec, true);
        return zorStatusOk;
      });
}
template <class Value>
ZorStatus initRates(const Value* taps, Zor32s tapsLen, Zor32s up, Zor32s upPhase, Zor32s down, Zor32s downPhase,
                    Zor8u* spec) {
  return check()
      .require(tapsLen >= 1, zorStatusBadTapsLength)
      .require(up >= 1 && down >= 1, zorStatusBadMultiRateFactor)
      .require(upPhase >= 0 && upPhase < up && downPhase >= 0 && downPhase < down, zorStatusBadMultiRatePhase)
      .pointers(taps, spec)
      .then([&]() -> ZorStatus {
        if (specSizeOf<Value>(tapsLen, up, down) > INT32_MAX) return zorStatusNoMemory;
        build(taps, tapsLen, up, upPhase, down, downPhase, spec, false);
        return zorStatusOk;
      });
}

// ---- Runs ---------------------------------------------------------------------------------------

// Everything that is overwritten has been read: the history first, a chunk of the source before its outputs.
template <class Value, class Sample>
ZorStatus filter(const Sample* src, Sample* dst, Zor32s numIters, const Zor8u* spec, const Sample* dlySrc,
                 Sample* dlyDst, Zor8u* buffer) {
  return check().pointers(spec, src, dst, buffer).size(numIters).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    const auto* state = reinterpret_cast<const ZorFIRState*>(alignUp(spec, alignment));
    const FirRates& rates = *state->rates;
    const Zor32s history = state->dlyLen;
    return firFromCopy(src, dst, numIters, rates.up, rates.down, [&](const Sample* from) -> ZorStatus {
      Layout block(alignment, buffer);
      const auto work = Buffer<Value>::lay(block, {state->tapsLen, rates.up}, rates.down);
      if (dlySrc == nullptr)
        std::fill_n(work.line, history, Value{});
      else if (history > 0)
        by_type::widen(dlySrc, work.line, history);
      firRunLine(firEngine<Value>(state, work.columns), rates.chunk, work.line, history, work.results, from, dst,
                 numIters, {}, firNarrow(0));
      if (dlyDst != nullptr && history > 0) by_type::narrow(work.line, dlyDst, history);
      return zorStatusOk;
    });
  });
}

}  // namespace

ZorStatus zorsFIRSRGetSize(Zor32s tapsLen, Zor32s tapsType, Zor32s* specSize, Zor32s* bufSize) {
  return getSize(typeChecks(check().size(tapsLen), tapsType, specSize, bufSize), tapsLen, 1, 1, tapsType, specSize,
                 bufSize);
}
ZorStatus zorsFIRMRGetSize(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s tapsType, Zor32s* specSize,
                           Zor32s* bufSize) {
  const Checks checks = typeChecks(check().require(tapsLen >= 1, zorStatusBadTapsLength), tapsType, specSize, bufSize)
                            .require(upFactor >= 1 && downFactor >= 1, zorStatusBadMultiRateFactor);
  return getSize(checks, tapsLen, upFactor, downFactor, tapsType, specSize, bufSize);
}

// clang-format off
#define SPEC(SR_INIT, MR_INIT, T)                                                                                                                                                 \
  ZorStatus SR_INIT(const T* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec) { return initSingle(taps, tapsLen, algType, spec); }                                              \
  ZorStatus MR_INIT(const T* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* spec) { return initRates(taps, tapsLen, upFactor, upPhase, downFactor, downPhase, spec); }
SPEC(zorsFIRSRInit_32f, zorsFIRMR_Init_32f, Zor32f)
SPEC(zorsFIRSRInit_32fc, zorsFIRMR_Init_32fc, Zor32fc)
SPEC(zorsFIRSRInit_64f, zorsFIRMR_Init_64f, Zor64f)
SPEC(zorsFIRSRInit_64fc, zorsFIRMR_Init_64fc, Zor64fc)
#undef SPEC
#define RUN(SR, MR, S, Value)                                                                                                                                                     \
  ZorStatus SR(const S* src, S* dst, Zor32s numIters, const Zor8u* spec, const S* dlySrc, S* dlyDst, Zor8u* buffer) { return filter<Value>(src, dst, numIters, spec, dlySrc, dlyDst, buffer); } \
  ZorStatus MR(const S* src, S* dst, Zor32s numIters, const Zor8u* spec, const S* dlySrc, S* dlyDst, Zor8u* buffer) { return filter<Value>(src, dst, numIters, spec, dlySrc, dlyDst, buffer); }
RUN(zorsFIRSR_16s, zorsFIRMR_16s, Zor16s, Zor32f)
RUN(zorsFIRSR_16sc, zorsFIRMR_16sc, Zor16sc, Zor32fc)
RUN(zorsFIRSR_32f, zorsFIRMR_32f, Zor32f, Zor32f)
RUN(zorsFIRSR_32fc, zorsFIRMR_32fc, Zor32fc, Zor32fc)
RUN(zorsFIRSR_64f, zorsFIRMR_64f, Zor64f, Zor64f)
RUN(zorsFIRSR_64fc, zorsFIRMR_64fc, Zor64fc, Zor64fc)
#undef RUN
// clang-format on

}  // namespace zors
