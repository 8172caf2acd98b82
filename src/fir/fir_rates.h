// Filters that change the rate: v[upPhase + m * up] = x[m] with zeros between, w = taps * v, y[k] = w[downPhase + k *
// down]. Their taps by phase, their record and their run.
#pragma once

#include <algorithm>

#include "fir/fir_state.h"
#include "fir/polyphase.h"

namespace zors {

struct FirRates {
  Zor32s up, upPhase, down, downPhase;
  Zor32s chunk;          // iterations that go through the delay line at a time
  fir::PhaseRow* rows;   // one for each output of an iteration
  void* taps;            // by phase
  std::ptrdiff_t plane;  // from a tap to its second form
  Zor32s together;       // neighbouring rows that have the same window
  void* columns;         // of the engine, where the record has them
  bool ahead;            // of a stream: windows begin at an output's place, otherwise they end there
};

namespace fir {

// The taps of phase f stand f, f + up, ... in the filter.
struct Phases {
  std::ptrdiff_t tapsLen, up;
  std::ptrdiff_t length(std::ptrdiff_t phase) const { return phase < tapsLen ? (tapsLen - 1 - phase) / up + 1 : 0; }
  std::ptrdiff_t longest() const { return length(0); }
};
// The length of a row of taps; and of all rows that have any, with a row of zeros behind them where some have none.
template <class Value> std::ptrdiff_t rowLen(const Phases& phases) {
  constexpr std::ptrdiff_t lanes = PhaseSums<Value>::lanes;
  return (phases.longest() + lanes - 1) / lanes * lanes;
}
template <class Value> std::ptrdiff_t tapsInAll(const Phases& phases) {
  return std::min(phases.tapsLen + 1, phases.up) * rowLen<Value>(phases);
}
inline Zor64s floorOfQuotient(Zor64s a, Zor64s b) { return a / b - (a % b < 0 ? 1 : 0); }

}  // namespace fir

// Samples before the history that whole registers may reach, where they weigh nothing.
inline constexpr std::size_t firSpare = 16;

template <class Value> struct RateParts {
  ZorFIRState* state;
  FirRates* rates;
  fir::PhaseRow* rows;
  Value *phaseTaps, *tapsReversed, *line, *results, *columns;
};
// Enough iterations that moving the history does not show, few enough that the chunk stays in the first-level cache.
inline Zor32s firChunkOf(const fir::Phases& phases, Zor32s down) {
  const auto fit = std::max<std::ptrdiff_t>(1024, phases.longest()) / std::max<std::ptrdiff_t>(phases.up, down);
  return static_cast<Zor32s>(std::max<std::ptrdiff_t>(8, fit));
}
template <class Value> std::size_t firLineLen(const fir::Phases& phases, Zor32s down) {
  return firSpare + static_cast<std::size_t>(phases.longest()) +
         static_cast<std::size_t>(firChunkOf(phases, down)) * static_cast<std::size_t>(down);
}
inline std::size_t firResultsLen(const fir::Phases& phases, Zor32s down) {
  return static_cast<std::size_t>(firChunkOf(phases, down)) * static_cast<std::size_t>(phases.up);
}
template <class Value> std::size_t firColumnsLen(const fir::Phases& phases) {
  if constexpr (!std::is_integral_v<simd::Part<Value>>)
    if (phases.up > 1) return static_cast<std::size_t>(phases.up * fir::columnLen<Value>(phases.up));
  return 0;
}
// What a record holds besides its rows and taps: a specification nothing, a stream the columns of the engine, a state a
// delay line too.
enum class RateRecord { specification, stream, state };
// The one account of it.
template <class Kind>
RateParts<typename Kind::Value> layRates(Layout& block, Zor32s tapsLen, Zor32s up, Zor32s down, RateRecord record) {
  using Value = typename Kind::Value;
  const fir::Phases phases{tapsLen, up};
  RateParts<Value> parts{};
  parts.state = block.take<ZorFIRState>(1);
  parts.rates = block.take<FirRates>(1);
  parts.rows = block.take<fir::PhaseRow>(static_cast<std::size_t>(up));
  parts.phaseTaps =
      block.take<Value>(static_cast<std::size_t>(fir::tapsInAll<Value>(phases)) * fir::PhaseSums<Value>::planes);
  parts.tapsReversed = block.take<Value>(static_cast<std::size_t>(tapsLen) * fir::PhaseSums<Value>::planes + 1);
  if (record != RateRecord::specification) parts.columns = block.take<Value>(firColumnsLen<Value>(phases));
  if (record == RateRecord::state) {
    Value* line = block.take<Value>(firLineLen<Value>(phases, down));
    parts.line = line == nullptr ? nullptr : line + firSpare;
    if constexpr (!std::is_same_v<typename Kind::Sample, Value>)
      parts.results = block.take<Value>(firResultsLen(phases, down));
  }
  return parts;
}

// Fills the record but for the taps, with a history of zeros; the caller sets the taps.
template <class Kind>
ZorFIRState* firBuildRates(Layout& block, Tag tag, Zor32s tapsLen, Zor32s up, Zor32s upPhase, Zor32s down,
                           Zor32s downPhase, RateRecord record) {
  const auto parts = layRates<Kind>(block, tapsLen, up, down, record);
  const bool withLine = record == RateRecord::state;
  const fir::Phases phases{tapsLen, up};
  *parts.rates = {.up = up,
                  .upPhase = upPhase,
                  .down = down,
                  .downPhase = downPhase,
                  .chunk = firChunkOf(phases, down),
                  .rows = parts.rows,
                  .taps = parts.phaseTaps,
                  .plane = fir::tapsInAll<typename Kind::Value>(phases),
                  .together = 1,
                  .columns = parts.columns,
                  .ahead = record == RateRecord::stream};
  *parts.state = {.tag = tag,
                  .tapsLen = tapsLen,
                  .dlyLen = withLine ? static_cast<Zor32s>(phases.longest()) : 0,
                  .tapsReversed = parts.tapsReversed,
                  .dlyLine = parts.line,
                  .blockScratch = parts.results,
                  .rates = parts.rates};
  if (withLine)
    std::fill_n(parts.line - firSpare, firLineLen<typename Kind::Value>(phases, down), typename Kind::Value{});
  return parts.state;
}

// Output r of an iteration stands at p = downPhase + r * down in v.
template <class Value> void firFillRows(FirRates& rates, Zor32s tapsLen) {
  using Arithmetic = fir::PhaseSums<Value>;
  const fir::Phases phases{tapsLen, rates.up};
  const std::ptrdiff_t rowLen = fir::rowLen<Value>(phases);
  for (Zor64s r = 0; r < rates.up; ++r) {
    const Zor64s place = rates.downPhase + r * rates.down - rates.upPhase;
    const Zor64s sample = fir::floorOfQuotient(place + (rates.ahead ? rates.up - 1 : 0), rates.up);
    const auto phase = static_cast<std::ptrdiff_t>(rates.ahead ? sample * rates.up - place : place - sample * rates.up);
    const std::ptrdiff_t len = phases.length(phase);
    rates.rows[r] = {static_cast<Zor32s>(std::min<std::ptrdiff_t>(phase, tapsLen) * rowLen),
                     static_cast<Zor32s>(std::max<std::ptrdiff_t>(len - (rowLen - Arithmetic::lanes), 0)),
                     static_cast<Zor32s>(rates.ahead ? sample + len : sample + 1)};
  }
  // What the grids of the engine take: all rows of an iteration, or as many as there are outputs in a tile.
  const Zor32s count = rates.up % Arithmetic::outputs == 0 ? Arithmetic::outputs : rates.up;
  rates.together = Arithmetic::outputs % count == 0 ? count : 1;
  for (Zor32s r = 0; r < rates.up; ++r)
    if (rates.rows[r].end != rates.rows[r - r % count].end) rates.together = 1;
}

// The engine of a record; columns: those of the record, or for a specification the caller's.
template <class Value> fir::Polyphase<Value> firEngine(const ZorFIRState* state, Value* columns) {
  const FirRates& rates = *state->rates;
  const fir::Phases phases{state->tapsLen, rates.up};
  const std::ptrdiff_t rowLen = fir::rowLen<Value>(phases);
  return {.taps = static_cast<const Value*>(rates.taps),
          .plane = rates.plane,
          .rowLen = rowLen,
          .rows = rates.rows,
          .up = rates.up,
          .down = rates.down,
          .wholeRows = std::is_integral_v<simd::Part<Value>> || rowLen * rates.up == state->tapsLen,
          .together = rates.together,
          .columns = columns};
}

template <class Value> fir::Finish firFinish(const ZorFIRState* state, Zor32s scaleFactor) {
  if constexpr (std::is_same_v<Value, Zor16s> || std::is_same_v<Value, Zor16sc>)
    return {fir::integerShift(state->tapsFactor, scaleFactor), state->roundMode};
  else
    return {};
}

// In place, where more is written than read or an iteration's outputs are many, the source is copied to memory of its
// own first: run(source) then reads that.
template <class Sample, class Run>
ZorStatus firFromCopy(const Sample* src, const Sample* dst, Zor32s numIters, Zor32s up, Zor32s down, Run run) {
  constexpr Zor32s mostOutputs = 4096;
  if (src != dst || (up <= down && up <= mostOutputs)) return run(src);
  const std::size_t bytes = static_cast<std::size_t>(numIters) * static_cast<std::size_t>(down) * sizeof(Sample);
  const Scratch copy(bytes);
  if (!copy) return zorStatusNoMemory;
  std::memcpy(copy.data(), src, bytes);
  return run(copy.as<Sample>());
}

// numIters iterations by way of a line, in which `history` samples stand before the first. Each chunk is read whole
// before its outputs are written. Samples that need no conversion go through the line only as far as windows reach into
// the history, unless results replace them. Others are narrowed by narrow(results, dst, count).
template <class Sample, class Value, class Narrow>
void firRunLine(const fir::Polyphase<Value>& engine, Zor32s chunk, Value* line, Zor32s history, Value* results,
                const Sample* src, Sample* dst, Zor32s numIters, fir::Finish finish, Narrow narrow) {
  Value* room = line + history;
  const auto throughLine = [&](Zor32s iterations) {
    for (Zor32s done = 0; done < iterations;) {
      const Zor32s count = std::min(iterations - done, chunk), taken = count * engine.down, made = count * engine.up;
      by_type::widen(src, room, taken);
      if constexpr (std::is_same_v<Sample, Value>) {
        engine.run(room, count, dst, finish);
      } else {
        engine.run(room, count, results, finish);
        narrow(results, dst, made);
      }
      std::copy(line + taken, line + taken + history, line);
      src += taken;
      dst += made;
      done += count;
    }
  };
  if constexpr (std::is_same_v<Sample, Value>) {
    // A register of integers may begin before its window.
    const std::ptrdiff_t before = std::ptrdiff_t{history} + (engine.integers ? engine.lanes : 0);
    const std::ptrdiff_t reaching = (before + engine.down - 1) / engine.down;
    if (src != dst && numIters > reaching) {
      throughLine(static_cast<Zor32s>(reaching));
      const auto left = static_cast<Zor32s>(numIters - reaching);
      engine.run(src, left, dst, finish);
      const Sample* end = src + std::ptrdiff_t{left} * engine.down;
      std::copy(end - history, end, line);
      return;
    }
  }
  throughLine(numIters);
}

// Results of states and specifications.
inline auto firNarrow(Zor32s scaleFactor) {
  return [=](const auto* results, auto* dst, Zor32s count) { by_type::narrow(results, dst, count, scaleFactor); };
}

}  // namespace zors
