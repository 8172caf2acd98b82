// The FIR state: one record for all kinds, a layout per kind, and what tells one kind from another.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>
#include <utility>

#include "exports/fir.h"
#include "frame/delay_line.h"
#include "frame/fft_by_type.h"
#include "frame/object.h"
#include "frame/simd.h"
#include "zorcore.h"

namespace zors {
struct FirRates;
}

// Pointers lead into the state's own block; their element types are those of the kind. Delay-line samples stand oldest
// first.
struct ZorFIRState {
  zors::Tag tag = 0;
  Zor32s tapsLen = 0;
  Zor32s dlyLen = 0;      // samples that get and set of the delay line transfer
  Zor32s dlyIndex = 0;    // where the delay line starts; block calls leave 0, one-sample calls advance it
  Zor32s dlyBlock = 0;    // samples that fit behind the history
  Zor32s tapsFactor = 0;  // of integer kinds: the power of two that the taps are multiplied by
  Zor32s fftLen = -1;     // -1: no FFT path
  ZorRoundMode roundMode = zorRoundNearestEven;  // of integer streams
  Zor8u* owned = nullptr;        // built by InitAlloc: the block; the FFT specification is to be released with it
  void* tapsReversed = nullptr;  // tapsReversed[j] = taps[tapsLen - 1 - j]
  void* tapsRows = nullptr;      // of the kind that keeps a second copy
  void* dlyLine = nullptr;  // tapsLen samples of history, then room for a block; for one-sample calls a doubled ring
  void* fftSpec = nullptr;
  void* tapsSpectrum = nullptr;     // the transform of the zero-padded taps
  void* fftBuffer = nullptr;        // fftLen elements
  Zor8u* fftWork = nullptr;         // null where the transform needs none
  void* blockScratch = nullptr;     // a block on its way through an in-place call or a conversion
  zors::FirRates* rates = nullptr;  // of multi-rate states
};

namespace zors {

// ---- Kinds --------------------------------------------------------------------------------------

// The stated sizes of states, in bytes, without what an FFT takes.
constexpr std::size_t firDown(std::size_t x, std::size_t multiple) { return x & ~(multiple - 1); }
constexpr std::size_t firSize32f(std::size_t n) {
  return firDown(n + 16, 8) * 36 + firDown(32 * n + 63, 32) + firDown(32 * n + 120, 128) + 17104;
}
constexpr std::size_t firSize32fc(std::size_t n) {
  return firDown(24 * n + 47, 16) + 13 * firDown(8 * n + 15, 16) + 34080;
}
constexpr std::size_t firSize64f(std::size_t n) {
  return 32 * (((24 * n + 63) >> 5) + ((n + 2) >> 1) + firDown(n + 2, 2)) + 34048;
}
constexpr std::size_t firSize64fc(std::size_t n) {
  return firDown(48 * n + 95, 32) + firDown(16 * n + 31, 32) + (((16 * n + 31) >> 5) << 7) + 67792;
}
constexpr std::size_t firSize32s(std::size_t n) {
  return firDown(8 * n + 15, 16) + firDown(24 * n + 47, 16) + 33984 + ((8 * n + 15) >> 4 << 6) + 15;
}
// 32-bit arithmetic keeps two arrays of FFT length, 64-bit complex arithmetic likewise, each rounded as stated.
constexpr std::size_t firRoundedFft(std::size_t bytes) { return ((bytes + 15) >> 4) << 5; }

// A kind of floating arithmetic: the types of taps, samples and sums, and the tags of its states.
template <class TapType, class SampleType, class ValueType, std::size_t (*statedSize)(std::size_t), Tag... acceptedTags>
struct FirFloatKind {
  using Tap = TapType;
  using Sample = SampleType;
  using Value = ValueType;
  using Fft = FftOf<Value>;
  // Tap counts and blocks that are filtered by way of the FFT.
  static constexpr Zor32s leastTaps = !Complex<Value> ? 64 : sizeof(Value) == 8 ? 16 : 32;
  static constexpr Zor32s leastBlock = Complex<Value> ? 256 : 512;
  static constexpr Tag tags[] = {acceptedTags...};  // the single-rate tag first
  static constexpr bool converts = !std::is_same_v<Sample, Value>;
  static constexpr Zor32s row = 32 / Zor32s{sizeof(Value)};  // samples a vector
  static constexpr auto size = statedSize;
  static constexpr bool fourLaneRows = false;
  // The record starts at a boundary of so many bytes.
  static constexpr std::size_t alignment = sizeof(simd::Part<Value>) == 8 && !std::is_same_v<Tap, Zor32s> ? 32 : 16;
};
struct Fir32f : FirFloatKind<Zor32f, Zor32f, Zor32f, firSize32f, tag("FI01"), tag("FI03"), tag("FI33"), tag("FI34")> {};
struct Fir32fc : FirFloatKind<Zor32fc, Zor32fc, Zor32fc, firSize32fc, tag("FI02"), tag("FI04")> {};
struct Fir32f_16s : FirFloatKind<Zor32f, Zor16s, Zor32f, firSize32f, tag("FI05"), tag("FI07")> {
  static constexpr bool fourLaneRows = true;
};
struct Fir32fc_16sc : FirFloatKind<Zor32fc, Zor16sc, Zor32fc, firSize32fc, tag("FI06"), tag("FI08")> {};
struct Fir64f : FirFloatKind<Zor64f, Zor64f, Zor64f, firSize64f, tag("FI13"), tag("FI15")> {};
struct Fir64fc : FirFloatKind<Zor64fc, Zor64fc, Zor64fc, firSize64fc, tag("FI14"), tag("FI16")> {};
struct Fir64f_32f : FirFloatKind<Zor64f, Zor32f, Zor64f, firSize64f, tag("FI17"), tag("FI19")> {};
struct Fir64fc_32fc : FirFloatKind<Zor64fc, Zor32fc, Zor64fc, firSize64fc, tag("FI18"), tag("FI20")> {};
struct Fir64f_32s : FirFloatKind<Zor64f, Zor32s, Zor64f, firSize64f, tag("FI21"), tag("FI23")> {};
struct Fir32s : FirFloatKind<Zor32s, Zor32s, Zor64f, firSize32s, tag("FI21")> {};  // runs as the one before
struct Fir64fc_32sc : FirFloatKind<Zor64fc, Zor32sc, Zor64fc, firSize64fc, tag("FI22"), tag("FI24")> {};
struct Fir64f_16s : FirFloatKind<Zor64f, Zor16s, Zor64f, firSize64f, tag("FI25"), tag("FI27")> {};
struct Fir64fc_16sc : FirFloatKind<Zor64fc, Zor16sc, Zor64fc, firSize64fc, tag("FI26"), tag("FI28")> {};

// A kind of integer arithmetic, 16-bit taps and samples with 32-bit sums. Real taps go in pairs from the newest sample
// back, so an odd number has a zero in front; it meets a sample of the history that weighs nothing.
template <class TapType, class SampleType, Tag... acceptedTags> struct FirIntegerKind {
  using Tap = TapType;
  using Sample = SampleType;
  using Value = SampleType;  // taps are stored as, and samples are, this
  static constexpr Tag tags[] = {acceptedTags...};
  static constexpr Zor32s row = Complex<SampleType> ? 8 : 16;
  static constexpr std::size_t alignment = 16;
};
struct Fir16s : FirIntegerKind<Zor16s, Zor16s, tag("FI29"), tag("FI30"), tag("FI31"), tag("FI32")> {};
struct Fir32s_16s : FirIntegerKind<Zor32s, Zor16s, tag("FI09"), tag("FI11")> {};
struct Fir32sc_16sc : FirIntegerKind<Zor32sc, Zor16sc, tag("FI10"), tag("FI12")> {};

template <class Kind> Checks firState(Checks checks, const ZorFIRState* state) {
  return [&]<std::size_t... i>(std::index_sequence<i...>) { return checks.state(state, Kind::tags[i]...); }
  (std::make_index_sequence<std::size(Kind::tags)>{});
}

// ---- The block ----------------------------------------------------------------------------------

inline constexpr Zor32s firChunk = 4224;           // samples that an in-place call takes at a time
inline constexpr Zor32s firConvertedChunk = 8448;  // the same where samples are converted and an FFT filters them
inline constexpr Zor32s firTile = 1024;            // samples that are converted at a time

// A block of at most so many samples is filtered inside the delay line's own memory; a longer one leaves at least a
// vector of outputs to be computed straight from the source. Lengths are 64 bits wide until a size is known to fit.
template <class Kind> constexpr Zor64s firRows(Zor32s tapsLen) {
  return (Zor64s{tapsLen} + Kind::row - 1) / Kind::row * Kind::row;
}
template <class Kind> constexpr Zor64s firDirectBlock(Zor32s tapsLen) { return firRows<Kind>(tapsLen) + Kind::row - 1; }

// What the FFT path of a filter takes; order 0 and no bytes where there is none.
struct FirFftPlan {
  Zor32s order = 0, fftLen = 0, specSize = 0, initSize = 0, workSize = 0;
};
template <class Kind> FirFftPlan firFftPlan(Zor32s tapsLen, Zor32s leastTaps = Kind::leastTaps) {
  if (tapsLen < leastTaps) return {};
  Zor32s o = 2;
  while ((std::int64_t{1} << o) <= tapsLen) ++o;
  FirFftPlan plan{.order = o + 1};
  if (Kind::Fft::getSize(plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone, &plan.specSize, &plan.initSize,
                         &plan.workSize) != zorStatusOk)
    return {};
  plan.fftLen = Zor32s{1} << plan.order;
  return plan;
}

struct FirParts {
  ZorFIRState* state;
  void *tapsReversed, *dlyLine, *blockScratch, *tapsRows, *tapsSpectrum, *fftBuffer;
  Zor8u *fftWork, *fftSpec, *fftInit;
};

// Converted samples go through the delay line a tile at a time; a filter that has an FFT path keeps tiles short.
template <class Kind> constexpr Zor64s firTileLen(Zor32s tapsLen, bool hasFft) {
  return hasFft ? firDirectBlock<Kind>(tapsLen) : std::max(Zor64s{firTile}, firDirectBlock<Kind>(tapsLen));
}
template <class Kind> constexpr Zor64s firDlyBlock(Zor32s tapsLen, const FirFftPlan& plan) {
  if constexpr (Kind::converts)
    return firTileLen<Kind>(tapsLen, plan.fftLen > 0);
  else
    return firDirectBlock<Kind>(tapsLen);
}
// Room for the history, which may start at any place of a ring, a block, and a vector that is read and not used.
template <class Kind> constexpr std::size_t firDlyLineLen(Zor32s tapsLen, Zor64s blockLen) {
  const auto n = static_cast<std::size_t>(tapsLen);
  return (n - 1) + n + static_cast<std::size_t>(blockLen) + std::size_t{Kind::row};
}

// The place of a state in a block, or the account of one without a block.
template <class Kind> Layout firLayout(Zor8u* block = nullptr) {
  if constexpr (Kind::alignment == 32) {
    if (block != nullptr) block = static_cast<Zor8u*>(zorAlignPtr(block, Kind::alignment));
  }
  return Layout(Kind::alignment, block);
}

// The one account of what a state of floating arithmetic holds.
template <class Kind> FirParts layFir(Layout& block, Zor32s tapsLen, const FirFftPlan& plan) {
  using Value = typename Kind::Value;
  const auto n = static_cast<std::size_t>(tapsLen), fftLen = static_cast<std::size_t>(plan.fftLen);
  const Zor64s tile = firDlyBlock<Kind>(tapsLen, plan);
  const std::size_t scratch = !Kind::converts   ? firChunk * sizeof(Value)
                              : plan.fftLen > 0 ? std::max(firConvertedChunk * sizeof(typename Kind::Sample),
                                                           static_cast<std::size_t>(tile) * sizeof(Value))
                                                : static_cast<std::size_t>(tile) * sizeof(Value);
  const auto bytes = [&](Zor32s size) { return block.take<Zor8u>(static_cast<std::size_t>(size)); };
  return {.state = block.take<ZorFIRState>(1),
          .tapsReversed = block.take<Value>(Kind::fourLaneRows ? 4 * firDown(n + 6, 4) : n),
          .dlyLine = block.take<Value>(firDlyLineLen<Kind>(tapsLen, tile)),
          .blockScratch = block.take<Zor8u>(scratch),
          .tapsRows = block.take<Value>(Kind::fourLaneRows ? 8 * n : 0),
          .tapsSpectrum = block.take<Value>(fftLen),
          .fftBuffer = block.take<Value>(fftLen),
          .fftWork = bytes(plan.workSize),
          .fftSpec = bytes(plan.specSize),
          .fftInit = bytes(plan.initSize)};
}

// The stated size: at least what layFir takes, for every tap count.
template <class Kind> std::size_t firStateSize(Zor32s tapsLen, const FirFftPlan& plan) {
  return Kind::size(static_cast<std::size_t>(tapsLen)) + static_cast<std::size_t>(plan.specSize) +
         static_cast<std::size_t>(plan.initSize) +
         firRoundedFft(sizeof(typename Kind::Value) * static_cast<std::size_t>(plan.fftLen)) +
         static_cast<std::size_t>(plan.workSize);
}

// The same of integer arithmetic. A size is stated for the real kinds; that of the complex one is what it holds.
constexpr std::size_t firPairedTaps(Zor32s tapsLen) { return (static_cast<std::size_t>(tapsLen) + 1) / 2 * 2; }
template <class Kind> FirParts layFirInteger(Layout& block, Zor32s tapsLen) {
  using Value = typename Kind::Value;
  const auto taps = Complex<Value> ? 2 * static_cast<std::size_t>(tapsLen) : firPairedTaps(tapsLen);
  return {.state = block.take<ZorFIRState>(1),
          .tapsReversed = block.take<Value>(taps),
          .dlyLine = block.take<Value>(firDlyLineLen<Kind>(tapsLen, firDirectBlock<Kind>(tapsLen))),
          .blockScratch = block.take<Value>(firChunk),
          .tapsRows = nullptr,
          .tapsSpectrum = nullptr,
          .fftBuffer = nullptr,
          .fftWork = nullptr,
          .fftSpec = nullptr,
          .fftInit = nullptr};
}
template <class Kind> std::size_t firIntegerStateSize(Zor32s tapsLen) {
  if constexpr (Complex<typename Kind::Sample>) {
    Layout block = firLayout<Kind>();
    layFirInteger<Kind>(block, tapsLen);
    return block.size();
  } else {
    const auto n = static_cast<std::size_t>(tapsLen);
    return firDown(sizeof(typename Kind::Tap) * n + 15, 16) + firDown((firDown(n + 11, 8) + 2 * n) * 2 + 23, 16) +
           ((n + 11) >> 3 << 6) + 17024;
  }
}

template <class Kind> auto* firFftSpec(const ZorFIRState* state) {
  return static_cast<typename Kind::Fft::Spec*>(state->fftSpec);
}
template <class Kind> auto* firTaps(const ZorFIRState* state) {
  return static_cast<typename Kind::Value*>(state->tapsReversed);
}
template <class Kind> auto* firDlyLine(const ZorFIRState* state) {
  return static_cast<typename Kind::Value*>(state->dlyLine);
}
// The delay line: of single-rate states tapsLen samples, of which the oldest weighs nothing.
template <class Kind> DelayLine<typename Kind::Value> firDelay(ZorFIRState* state) {
  return {firDlyLine<Kind>(state), state->dlyLen, &state->dlyIndex};
}
// For reading alone.
template <class Kind> const DelayLine<typename Kind::Value> firDelay(const ZorFIRState* state) {
  return firDelay<Kind>(const_cast<ZorFIRState*>(state));
}

// ---- Several rates ------------------------------------------------------------------------------

// The run of a multi-rate or stream state: len iterations, of a stream at one rate samples. Arguments are checked.
template <class Kind>
ZorStatus firRunRates(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                      Zor32s scaleFactor);
// Splits the state's taps by phase, where it has several.
template <class Kind> void firSplitTaps(ZorFIRState* state);

}  // namespace zors
