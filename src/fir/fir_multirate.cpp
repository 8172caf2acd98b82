// zorsFIRMRGetStateSize*, zorsFIRMRInit*, zorsFIRMRInitAlloc*: states of multi-rate filters; how they and streams run.
#include "exports/multirate.h"
#include "fir/fir_rates.h"

namespace zors {

// ---- Taps by phase ------------------------------------------------------------------------------

namespace {

// Tap j of the reversed filter as it is stored.
template <class Kind> auto reversedTap(const ZorFIRState* state, Zor32s j) {
  if constexpr (std::is_same_v<typename Kind::Value, Zor16s> || std::is_same_v<typename Kind::Value, Zor16sc>)
    return firStoredTap<Kind>(state, j);
  else
    return firTaps<Kind>(state)[j];
}

// One output of 16-bit samples by itself.
Zor16s outputOf(const Zor16s* taps, std::ptrdiff_t len, const Zor16s* window, fir::Finish finish) {
  Zor32u sum = 0;
  for (std::ptrdiff_t k = 0; k < len; ++k) sum += static_cast<Zor32u>(Zor32s{taps[k]} * window[k]);
  Zor32s results[8];
  simd::store(results, fir::finished(simd::splat<fir::Sums>(static_cast<Zor32s>(sum)), finish));
  return static_cast<Zor16s>(results[0]);
}

// A stream waits for no history: its samples are read where they stand. In place outputs go in order, one by one.
void runStream(const fir::Polyphase<Zor32f>& engine, const Zor32f* src, Zor32f* dst, Zor32s numIters,
               fir::Finish finish) {
  if (src != dst) return engine.run(src, numIters, dst, finish);
  for (std::ptrdiff_t i = 0; i < numIters; ++i)
    for (std::ptrdiff_t r = 0; r < engine.up; ++r) *dst++ = engine.one(src + i * engine.down, r, finish);
}
// The first outputs by themselves too, as their registers would begin before the source.
void runStream(const fir::Polyphase<Zor16s>& engine, const Zor16s* src, Zor16s* dst, Zor32s numIters,
               fir::Finish finish) {
  const std::ptrdiff_t atStart = (engine.lanes - 1) / engine.down + 1;
  const std::ptrdiff_t alone = src == dst ? numIters : std::min<std::ptrdiff_t>(atStart, numIters);
  const Zor16s* from = src;
  for (std::ptrdiff_t i = 0; i < alone; ++i, from += engine.down)
    for (std::ptrdiff_t r = 0; r < engine.up; ++r) {
      const fir::PhaseRow& row = engine.rows[r];
      const std::ptrdiff_t zeros = engine.lanes - row.head, len = engine.rowLen - zeros;
      *dst++ = outputOf(engine.taps + row.taps + zeros, len, from + row.end - len, finish);
    }
  if (alone < numIters) engine.run(from, numIters - alone, dst, finish);
}

// The same at one rate, which is a sliding dot product.
void runSingleStream(const Zor32f* taps, Zor32s tapsLen, const Zor32f* src, Zor32f* dst, Zor32s len, fir::Finish) {
  fir::slide(taps, tapsLen, src, dst, len);
}
// Taps go in pairs, an odd number of them behind a zero, whose sample would lie before the source for the first output.
// In place no output is computed twice, so those that fill no register go by themselves.
void runSingleStream(const Zor16s* taps, Zor32s tapsLen, const Zor16s* src, Zor16s* dst, Zor32s len,
                     fir::Finish finish) {
  constexpr Zor32s lanes = fir::RealKernel::lanes;
  const Zor32s ahead = fir::zerosAhead<Zor16s>(tapsLen);
  const auto byItself = [&](Zor32s i) { dst[i] = outputOf(taps + ahead, tapsLen, src + i, finish); };
  if (ahead > 0) byItself(0);
  const Zor32s left = len - ahead, inBlocks = left < lanes ? 0 : src == dst ? left / lanes * lanes : left;
  if (inBlocks > 0) fir::integerBlock(taps, tapsLen + ahead, src, dst + ahead, inBlocks, finish);
  for (Zor32s i = ahead + inBlocks; i < len; ++i) byItself(i);
}

}  // namespace

template <class Kind> void firSplitTaps(ZorFIRState* state) {
  using Value = typename Kind::Value;
  FirRates* rates = state->rates;
  if (rates == nullptr) return;
  const Zor32s n = state->tapsLen, up = rates->up;
  const fir::Phases phases{n, up};
  const std::ptrdiff_t rowLen = fir::rowLen<Value>(phases);
  auto* taps = static_cast<Value*>(rates->taps);
  std::fill_n(taps, rates->plane * fir::PhaseSums<Value>::planes, Value{});
  for (Zor32s phase = 0; phase < std::min(up, n); ++phase) {
    const std::ptrdiff_t len = phases.length(phase);
    Value* to = taps + (phase + 1) * rowLen - len;
    for (std::ptrdiff_t i = 0; i < len; ++i) {
      const auto j = static_cast<Zor32s>(rates->ahead ? phase + i * up : n - 1 - phase - (len - 1 - i) * up);
      const auto tap = reversedTap<Kind>(state, j);
      if constexpr (std::is_same_v<Value, Zor16sc>) {
        to[i] = {tap.re, static_cast<Zor16s>(-tap.im)};
        to[i + rates->plane] = {tap.im, tap.re};
      } else {
        to[i] = tap;
      }
    }
  }
}

template <class Kind>
ZorStatus firRunRates(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                      Zor32s scaleFactor) {
  using Value = typename Kind::Value;
  using Sample = typename Kind::Sample;
  const fir::Finish finish = firFinish<Value>(state, scaleFactor);
  if (state->dlyLine == nullptr) {
    if constexpr (std::is_same_v<Sample, Value> && (std::is_same_v<Value, Zor32f> || std::is_same_v<Value, Zor16s>)) {
      if (state->rates == nullptr)
        runSingleStream(static_cast<const Value*>(state->tapsReversed), state->tapsLen, src, dst, len, finish);
      else
        runStream(firEngine<Value>(state, static_cast<Value*>(state->rates->columns)), src, dst, len, finish);
    }
    return zorStatusOk;
  }
  const FirRates& rates = *state->rates;
  return firFromCopy(src, dst, len, rates.up, rates.down, [&](const Sample* from) -> ZorStatus {
    firRunLine(firEngine(state, static_cast<Value*>(rates.columns)), rates.chunk, firDlyLine<Kind>(state),
               state->dlyLen, static_cast<Value*>(state->blockScratch), from, dst, len, finish, firNarrow(scaleFactor));
    return zorStatusOk;
  });
}

// clang-format off
#define KIND(Kind)                                                                                                            \
  template void firSplitTaps<Kind>(ZorFIRState*);                                                                             \
  template ZorStatus firRunRates<Kind>(ZorFIRState*, const Kind::Sample*, Kind::Sample*, Zor32s, Zor32s);
KIND(Fir32f) KIND(Fir32fc) KIND(Fir64f) KIND(Fir64fc)
KIND(Fir32f_16s) KIND(Fir32fc_16sc) KIND(Fir64f_16s) KIND(Fir64f_32f) KIND(Fir64f_32s)
KIND(Fir64fc_16sc) KIND(Fir64fc_32fc) KIND(Fir64fc_32sc)
KIND(Fir16s) KIND(Fir32s_16s) KIND(Fir32sc_16sc)
#undef KIND
template void firSplitTaps<Fir32s>(ZorFIRState*);
// clang-format on

// ---- States -------------------------------------------------------------------------------------

namespace {

// The stated size of a multi-rate state in bytes, for taps that are kept in so many bytes.
std::size_t statedSize(std::size_t n, std::size_t u, std::size_t d, std::size_t tapBytes) {
  const std::size_t l = (n + 3 * d + u - 1) / u * u, perPhase = (n + u - 1) / u;
  const Zor64f share = static_cast<Zor32f>(n) / static_cast<Zor32f>(n + 3 * d);
  const bool byPhase = share > (u == 1 ? 0.5 : 0.3);
  const std::size_t x = byPhase ? l / u : perPhase;
  std::size_t m = (x / (4 * d) + 1) * 4 * d + 1;
  for (std::size_t w = u * ((d + perPhase - 1) / d); w % (4 * u) != 0; w += u) m += d;
  const std::size_t tables =
      byPhase ? ((4 * u + 19) & ~std::size_t{15}) + 176 : ((16 * u + 19) & ~std::size_t{15}) + 160;
  return ((tapBytes * n + 15) & ~std::size_t{15}) + 4 * tapBytes * l +
         tapBytes * std::max<std::size_t>((byPhase ? 4 : 8) * l, 4096) + tables +
         (((perPhase + m) * 4 + 19) & ~std::size_t{15});
}
template <class Kind> std::size_t stateSize(Zor32s tapsLen, Zor32s up, Zor32s down) {
  Layout account = firLayout<Kind>();
  layRates<Kind>(account, tapsLen, up, down, RateRecord::state);
  return std::max(account.size(), statedSize(static_cast<std::size_t>(tapsLen), static_cast<std::size_t>(up),
                                             static_cast<std::size_t>(down), sizeof(typename Kind::Value)));
}

Checks factorChecks(Checks checks, Zor32s tapsLen, Zor32s up, Zor32s down) {
  return checks.require(tapsLen >= 1, zorStatusBadTapsLength)
      .require(up >= 1 && down >= 1, zorStatusBadMultiRateFactor);
}
Checks rateChecks(Checks checks, Zor32s tapsLen, Zor32s up, Zor32s upPhase, Zor32s down, Zor32s downPhase) {
  return factorChecks(checks, tapsLen, up, down)
      .require(upPhase >= 0 && upPhase < up && downPhase >= 0 && downPhase < down, zorStatusBadMultiRatePhase);
}

// singleRate: the query for a state that changes no rate.
template <class Kind>
ZorStatus getStateSize(Zor32s tapsLen, Zor32s up, Zor32s down, Zor32s* size, ZorStatus (*singleRate)(Zor32s, Zor32s*)) {
  return factorChecks(check().pointers(size), tapsLen, up, down).then([&] {
    return up == 1 && down == 1 ? singleRate(tapsLen, size) : tellSize(stateSize<Kind>(tapsLen, up, down), size);
  });
}

// What a call is given besides the state and its memory.
template <class Kind> struct Given {
  Zor32s tapsLen, up, upPhase, down, downPhase;
  const typename Kind::Sample* dly;
};

// set(state) sets the taps, singleRate() builds a state that changes no rate.
template <class Kind, class Set, class SingleRate>
ZorStatus init(ZorFIRState** state, const void* taps, const Given<Kind>& given, Zor8u* buffer,
               ZorStatus (*setDlyLine)(ZorFIRState*, const typename Kind::Sample*), Set set, SingleRate singleRate) {
  return rateChecks(check().pointers(state, taps, buffer), given.tapsLen, given.up, given.upPhase, given.down,
                    given.downPhase)
      .then([&]() -> ZorStatus {
        if (given.up == 1 && given.down == 1) return singleRate();
        if (stateSize<Kind>(given.tapsLen, given.up, given.down) > INT32_MAX) return zorStatusNoMemory;
        Layout block = firLayout<Kind>(buffer);
        ZorFIRState* built = firBuildRates<Kind>(block, Kind::tags[1], given.tapsLen, given.up, given.upPhase,
                                                 given.down, given.downPhase, RateRecord::state);
        firFillRows<typename Kind::Value>(*built->rates, given.tapsLen);
        set(built);
        setDlyLine(built, given.dly);
        *state = built;
        return zorStatusOk;
      });
}
template <class Kind, class Set, class SingleRate>
ZorStatus initAlloc(ZorFIRState** state, const void* taps, const Given<Kind>& given,
                    ZorStatus (*setDlyLine)(ZorFIRState*, const typename Kind::Sample*), Set set,
                    SingleRate singleRate) {
  return rateChecks(check().pointers(state, taps), given.tapsLen, given.up, given.upPhase, given.down, given.downPhase)
      .then([&]() -> ZorStatus {
        if (given.up == 1 && given.down == 1) return singleRate();
        return initAllocated(state, stateSize<Kind>(given.tapsLen, given.up, given.down),
                             [&](Zor8u* memory, ZorFIRState** built) {
                               return init<Kind>(built, taps, given, memory, setDlyLine, set, singleRate);
                             });
      });
}

}  // namespace

// clang-format off
#define ROWS(STATE_SIZE, INIT, INIT_ALLOC, SINGLE_SIZE, SINGLE_INIT, SINGLE_INIT_ALLOC, SET_TAPS, SET_DLY, Kind)                                                                                     \
  ZorStatus STATE_SIZE(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size) { return getStateSize<Kind>(tapsLen, upFactor, downFactor, size, zors::SINGLE_SIZE); }                      \
  ZorStatus INIT(ZorFIRState** state, const TAP* taps, Zor32s tapsLen FACTOR, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Kind::Sample* dly, Zor8u* buffer) {         \
    return init<Kind>(state, taps, {tapsLen, upFactor, upPhase, downFactor, downPhase, dly}, buffer, zors::SET_DLY, [&](ZorFIRState* built) { zors::SET_TAPS(taps, built GIVEN); },                   \
                      [&] { return zors::SINGLE_INIT(state, taps, tapsLen GIVEN, dly, buffer); });                                                                                                   \
  }                                                                                                                                                                                                  \
  ZorStatus INIT_ALLOC(ZorFIRState** state, const TAP* taps, Zor32s tapsLen FACTOR, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Kind::Sample* dly) {                  \
    return initAlloc<Kind>(state, taps, {tapsLen, upFactor, upPhase, downFactor, downPhase, dly}, zors::SET_DLY, [&](ZorFIRState* built) { zors::SET_TAPS(taps, built GIVEN); },                      \
                           [&] { return zors::SINGLE_INIT_ALLOC(state, taps, tapsLen GIVEN, dly); });                                                                                                \
  }
#define FACTOR
#define GIVEN
#define TAP Zor32f
ROWS(zorsFIRMRGetStateSize_32f, zorsFIRMRInit_32f, zorsFIRMRInitAlloc_32f, zorsFIRGetStateSize_32f, zorsFIRInit_32f, zorsFIRInitAlloc_32f, zorsFIRSetTaps_32f, zorsFIRSetDlyLine_32f, Fir32f)
ROWS(zorsFIRMRGetStateSize32f_16s, zorsFIRMRInit32f_16s, zorsFIRMRInitAlloc32f_16s, zorsFIRGetStateSize32f_16s, zorsFIRInit32f_16s, zorsFIRInitAlloc32f_16s, zorsFIRSetTaps32f_16s, zorsFIRSetDlyLine32f_16s, Fir32f_16s)
ROWS(zorsFIRMRGetStateSize32s_16s32f, zorsFIRMRInit32s_16s32f, zorsFIRMRInitAlloc32s_16s32f, zorsFIRGetStateSize32s_16s32f, zorsFIRInit32s_16s32f, zorsFIRInitAlloc32s_16s32f, zorsFIRSetTaps32s_16s32f, zorsFIRSetDlyLine32s_16s, Fir32s_16s)
#undef TAP
#define TAP Zor32fc
ROWS(zorsFIRMRGetStateSize_32fc, zorsFIRMRInit_32fc, zorsFIRMRInitAlloc_32fc, zorsFIRGetStateSize_32fc, zorsFIRInit_32fc, zorsFIRInitAlloc_32fc, zorsFIRSetTaps_32fc, zorsFIRSetDlyLine_32fc, Fir32fc)
ROWS(zorsFIRMRGetStateSize32fc_16sc, zorsFIRMRInit32fc_16sc, zorsFIRMRInitAlloc32fc_16sc, zorsFIRGetStateSize32fc_16sc, zorsFIRInit32fc_16sc, zorsFIRInitAlloc32fc_16sc, zorsFIRSetTaps32fc_16sc, zorsFIRSetDlyLine32fc_16sc, Fir32fc_16sc)
ROWS(zorsFIRMRGetStateSize32sc_16sc32fc, zorsFIRMRInit32sc_16sc32fc, zorsFIRMRInitAlloc32sc_16sc32fc, zorsFIRGetStateSize32sc_16sc32fc, zorsFIRInit32sc_16sc32fc, zorsFIRInitAlloc32sc_16sc32fc, zorsFIRSetTaps32sc_16sc32fc, zorsFIRSetDlyLine32sc_16sc, Fir32sc_16sc)
#undef TAP
#define TAP Zor64f
ROWS(zorsFIRMRGetStateSize_64f, zorsFIRMRInit_64f, zorsFIRMRInitAlloc_64f, zorsFIRGetStateSize_64f, zorsFIRInit_64f, zorsFIRInitAlloc_64f, zorsFIRSetTaps_64f, zorsFIRSetDlyLine_64f, Fir64f)
ROWS(zorsFIRMRGetStateSize64f_16s, zorsFIRMRInit64f_16s, zorsFIRMRInitAlloc64f_16s, zorsFIRGetStateSize64f_16s, zorsFIRInit64f_16s, zorsFIRInitAlloc64f_16s, zorsFIRSetTaps64f_16s, zorsFIRSetDlyLine64f_16s, Fir64f_16s)
ROWS(zorsFIRMRGetStateSize64f_32f, zorsFIRMRInit64f_32f, zorsFIRMRInitAlloc64f_32f, zorsFIRGetStateSize64f_32f, zorsFIRInit64f_32f, zorsFIRInitAlloc64f_32f, zorsFIRSetTaps64f_32f, zorsFIRSetDlyLine64f_32f, Fir64f_32f)
ROWS(zorsFIRMRGetStateSize64f_32s, zorsFIRMRInit64f_32s, zorsFIRMRInitAlloc64f_32s, zorsFIRGetStateSize64f_32s, zorsFIRInit64f_32s, zorsFIRInitAlloc64f_32s, zorsFIRSetTaps64f_32s, zorsFIRSetDlyLine64f_32s, Fir64f_32s)
#undef TAP
#define TAP Zor64fc
ROWS(zorsFIRMRGetStateSize_64fc, zorsFIRMRInit_64fc, zorsFIRMRInitAlloc_64fc, zorsFIRGetStateSize_64fc, zorsFIRInit_64fc, zorsFIRInitAlloc_64fc, zorsFIRSetTaps_64fc, zorsFIRSetDlyLine_64fc, Fir64fc)
ROWS(zorsFIRMRGetStateSize64fc_16sc, zorsFIRMRInit64fc_16sc, zorsFIRMRInitAlloc64fc_16sc, zorsFIRGetStateSize64fc_16sc, zorsFIRInit64fc_16sc, zorsFIRInitAlloc64fc_16sc, zorsFIRSetTaps64fc_16sc, zorsFIRSetDlyLine64fc_16sc, Fir64fc_16sc)
ROWS(zorsFIRMRGetStateSize64fc_32fc, zorsFIRMRInit64fc_32fc, zorsFIRMRInitAlloc64fc_32fc, zorsFIRGetStateSize64fc_32fc, zorsFIRInit64fc_32fc, zorsFIRInitAlloc64fc_32fc, zorsFIRSetTaps64fc_32fc, zorsFIRSetDlyLine64fc_32fc, Fir64fc_32fc)
ROWS(zorsFIRMRGetStateSize64fc_32sc, zorsFIRMRInit64fc_32sc, zorsFIRMRInitAlloc64fc_32sc, zorsFIRGetStateSize64fc_32sc, zorsFIRInit64fc_32sc, zorsFIRInitAlloc64fc_32sc, zorsFIRSetTaps64fc_32sc, zorsFIRSetDlyLine64fc_32sc, Fir64fc_32sc)
#undef TAP
#undef FACTOR
#undef GIVEN
#define FACTOR , Zor32s tapsFactor
#define GIVEN , tapsFactor
#define TAP Zor16s
ROWS(zorsFIRMRGetStateSize_16s, zorsFIRMRInit_16s, zorsFIRMRInitAlloc_16s, zorsFIRGetStateSize_16s, zorsFIRInit_16s, zorsFIRInitAlloc_16s, zorsFIRSetTaps_16s, zorsFIRSetDlyLine_16s, Fir16s)
#undef TAP
#define TAP Zor32s
ROWS(zorsFIRMRGetStateSize32s_16s, zorsFIRMRInit32s_16s, zorsFIRMRInitAlloc32s_16s, zorsFIRGetStateSize32s_16s, zorsFIRInit32s_16s, zorsFIRInitAlloc32s_16s, zorsFIRSetTaps32s_16s, zorsFIRSetDlyLine32s_16s, Fir32s_16s)
#undef TAP
#define TAP Zor32sc
ROWS(zorsFIRMRGetStateSize32sc_16sc, zorsFIRMRInit32sc_16sc, zorsFIRMRInitAlloc32sc_16sc, zorsFIRGetStateSize32sc_16sc, zorsFIRInit32sc_16sc, zorsFIRInitAlloc32sc_16sc, zorsFIRSetTaps32sc_16sc, zorsFIRSetDlyLine32sc_16sc, Fir32sc_16sc)
#undef TAP
#undef FACTOR
#undef GIVEN
#undef ROWS
// clang-format on

}  // namespace zors
