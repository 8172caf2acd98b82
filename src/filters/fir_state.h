// The FIR state: one record for all kinds, a layout per kind, and what tells one kind from another.
#pragma once

#include <cstddef>
#include <cstdint>

#include "frame/check.h"
#include "frame/memory.h"

// Pointers lead into the state's own block; their element types are those of the kind. Delay-line samples stand oldest first.
struct ZorFIRState {
  zors::Tag tag = 0;
  Zor32s tapsLen = 0;
  Zor32s dlyLen = 0;       // samples that get and set of the delay line transfer
  Zor32s dlyIndex = 0;     // where the delay line starts; block calls leave 0, one-sample calls advance it
  Zor32s fftLen = 0;       // -1: no FFT path
  Zor32s fftWorkSize = 0;
  Zor32s ownsMemory = 0;   // built by InitAlloc: the block and the FFT specification are to be released
  Zor8u* block = nullptr;        // what InitAlloc allocated
  void* tapsReversed = nullptr;  // tapsReversed[j] = taps[tapsLen - 1 - j]
  void* dlyLine = nullptr;       // tapsLen samples of history, then room for a block; for one-sample calls a doubled ring
  void* fftSpec = nullptr;
  void* tapsSpectrum = nullptr;  // the transform of the zero-padded taps
  void* fftBuffer = nullptr;     // fftLen elements
  Zor8u* fftWork = nullptr;      // null where the transform needs none
  void* blockScratch = nullptr;  // a block on its way through an in-place call
};

namespace zors {

inline constexpr Zor32s firBlockScratch = 4224;  // samples

// Taps and samples in binary32.
struct Fir32f {
  using Tap = Zor32f;
  using Sample = Zor32f;
  using FftSpec = ZorsFFTSpec_R_32f;
  static constexpr Tag singleRate = tag("FI01"), multiRate = tag("FI03"), stream = tag("FI33"), multiRateStream = tag("FI34");
  static constexpr Zor32s leastTapsForFft = 64, leastBlockForFft = 512;
  static constexpr Zor32s row = 8;  // samples a vector

  static constexpr auto fftGetSize = &zors::zorsFFTGetSize_R_32f;
  static constexpr auto fftInit = &zors::zorsFFTInit_R_32f;
  static constexpr auto fftInitAlloc = &zors::zorsFFTInitAlloc_R_32f;
  static constexpr auto fftFree = &zors::zorsFFTFree_R_32f;
  static constexpr auto fftForward = &zors::zorsFFTFwd_RToPerm_32f;
  static constexpr auto fftInverse = &zors::zorsFFTInv_PermToR_32f;
  static constexpr auto multiplySpectra = &zors::zorsMulPerm_32f_I;
  static constexpr auto copy = &zors::zorsCopy_32f;
  static constexpr auto move = &zors::zorsMove_32f;
  static constexpr auto zero = &zors::zorsZero_32f;

  // The stated size of a state, in bytes, without what its FFT takes.
  static constexpr std::size_t sizeWithoutFft(std::size_t n) {
    return (((n + 16) & ~std::size_t{7}) * 36) + ((32 * n + 63) & ~std::size_t{31}) + ((32 * n + 120) & ~std::size_t{127}) + 17104;
  }
};

// A block of at most so many samples is filtered inside the delay line's own memory; a longer one leaves at least a vector
// of outputs to be computed straight from the source.
template <class Kind> constexpr Zor32s firRows(Zor32s tapsLen) { return (tapsLen + Kind::row - 1) / Kind::row * Kind::row; }
template <class Kind> constexpr Zor32s firDirectBlock(Zor32s tapsLen) { return firRows<Kind>(tapsLen) + Kind::row - 1; }

// ---- The block ----------------------------------------------------------------------------------------------------------

// What the FFT path of a filter takes; order 0 and no bytes where there is none.
struct FirFftPlan {
  Zor32s order = 0, fftLen = 0, specSize = 0, initSize = 0, workSize = 0;
};
template <class Kind> FirFftPlan firFftPlan(Zor32s tapsLen) {
  if (tapsLen < Kind::leastTapsForFft) return {};
  Zor32s o = 2;
  while ((std::int64_t{1} << o) <= tapsLen) ++o;
  FirFftPlan plan{.order = o + 1};
  if (Kind::fftGetSize(plan.order, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone, &plan.specSize, &plan.initSize, &plan.workSize) != zorStatusOk) return {};
  plan.fftLen = Zor32s{1} << plan.order;
  return plan;
}

struct FirParts {
  ZorFIRState* state;
  void *tapsReversed, *dlyLine, *blockScratch, *tapsSpectrum, *fftBuffer;
  Zor8u *fftWork, *fftSpec, *fftInit;
};

// The history may start at any place of a ring; a block follows it, and a vector that is read and not used.
template <class Kind> constexpr std::size_t firDlyLineLen(Zor32s tapsLen) {
  const auto n = static_cast<std::size_t>(tapsLen);
  return (n - 1) + n + static_cast<std::size_t>(firDirectBlock<Kind>(tapsLen)) + std::size_t{Kind::row};
}

// The one account of what a state holds.
template <class Kind> FirParts layFir(Layout& block, Zor32s tapsLen, const FirFftPlan& plan) {
  using Tap = typename Kind::Tap;
  using Sample = typename Kind::Sample;
  const auto n = static_cast<std::size_t>(tapsLen), fftLen = static_cast<std::size_t>(plan.fftLen);
  const auto bytes = [&](Zor32s size) { return block.take<Zor8u>(static_cast<std::size_t>(size)); };
  return {.state = block.take<ZorFIRState>(1),
          .tapsReversed = block.take<Tap>(n),
          .dlyLine = block.take<Sample>(firDlyLineLen<Kind>(tapsLen)),
          .blockScratch = block.take<Sample>(firBlockScratch),
          .tapsSpectrum = block.take<Tap>(fftLen),
          .fftBuffer = block.take<Tap>(fftLen),
          .fftWork = bytes(plan.workSize),
          .fftSpec = bytes(plan.specSize),
          .fftInit = bytes(plan.initSize)};
}
inline constexpr std::size_t firAlignment = 32;

// The stated size: at least what layFir takes, for every tap count.
template <class Kind> std::size_t firStateSize(Zor32s tapsLen, const FirFftPlan& plan) {
  const auto fftBytes = sizeof(typename Kind::Tap) * static_cast<std::size_t>(plan.fftLen);
  return Kind::sizeWithoutFft(static_cast<std::size_t>(tapsLen)) + static_cast<std::size_t>(plan.specSize) +
         static_cast<std::size_t>(plan.initSize) + (((fftBytes + 15) >> 4) << 5) + static_cast<std::size_t>(plan.workSize);
}

template <class Kind> typename Kind::FftSpec* firFftSpec(const ZorFIRState* state) { return static_cast<typename Kind::FftSpec*>(state->fftSpec); }
template <class Kind> const typename Kind::Tap* firTaps(const ZorFIRState* state) { return static_cast<const typename Kind::Tap*>(state->tapsReversed); }
template <class Kind> typename Kind::Sample* firDlyLine(const ZorFIRState* state) { return static_cast<typename Kind::Sample*>(state->dlyLine); }

}  // namespace zors
