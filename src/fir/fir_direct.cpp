// zorsFIR*_Direct_*, zorsFIROne*_Direct_*: filtering with the caller's taps and delay line.
#include <cstring>

#include "exports/fir.h"
#include "exports/memory.h"
#include "fir/fir_direct.h"
#include "fir/fir_integer.h"
#include "fir/fir_windows.h"
#include "frame/delay_line.h"
#include "frame/dot_kernels.h"
#include "frame/map.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// The delay line is a doubled ring of 2 * tapsLen samples. Puts in val and returns the window of the newest tapsLen
// ones, oldest first.
template <class T> const T* push(T val, T* dly, Zor32s* dlyIndex, Zor32s tapsLen) {
  const Zor32s at = *dlyIndex;
  dly[at + tapsLen] = val;
  dly[at] = val;
  *dlyIndex = at + 1 < tapsLen ? at + 1 : 0;
  return dly + *dlyIndex;
}

// ---- Blocks and single samples ------------------------------------------------------------------

// Where a block's samples come from and go to; one sample is a block by value.
template <class T>
Checks blockChecks(const T* src, T* dst, Zor32s len, const void* taps, Zor32s tapsLen, const T* dly,
                   const Zor32s* dlyIndex) {
  return check()
      .pointers(src, dst)
      .size(len)
      .pointers(taps)
      .require(tapsLen >= 1, zorStatusBadTapsLength)
      .pointers(dly, dlyIndex);
}
template <class T>
Checks oneChecks(const T* dst, const void* taps, Zor32s tapsLen, const T* dly, const Zor32s* dlyIndex) {
  return check().pointers(dst, taps).require(tapsLen >= 1, zorStatusBadTapsLength).pointers(dly, dlyIndex);
}

template <class Sum, class Tap, class T>
void filterEach(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex,
                Zor32s scaleFactor) {
  for (Zor32s i = 0; i < len; ++i)
    dst[i] = resultOf<T>(fir::windowSum<Sum>(taps, tapsLen, push(src[i], dly, dlyIndex, tapsLen)), scaleFactor);
}

// A window that is read right after its newest sample was stored waits for the store, so a block goes through a line of
// its own: the ring's history, then the block a chunk at a time. The ring is as if each sample had been pushed.
constexpr std::size_t lineBytes = 8192;
template <class T> constexpr Zor32s lineLen = lineBytes / sizeof(T);
constexpr Zor32s lineSlack = 64;  // zeros on either side: kernels read whole vectors, and one a sample more in front

// The tapsLen - 1 samples before a block, oldest first, if the ring shows the same to all of the block's windows: its
// halves agree where windows reach both. Null where they differ or the index is outside.
template <class T> const T* history(const T* dly, Zor32s at, Zor32s tapsLen) {
  if (at < 0 || at >= tapsLen) return nullptr;
  if (at + 1 == tapsLen) return dly;
  return std::memcmp(dly, dly + tapsLen, std::size_t(at) * sizeof(T)) == 0 ? dly + at + 1 : nullptr;
}
// As after push() of each sample.
template <class T> void pushAll(const T* src, Zor32s len, T* dly, Zor32s* dlyIndex, Zor32s tapsLen) {
  const Zor32s kept = std::min(len, tapsLen);
  Zor32s at = static_cast<Zor32s>((Zor64s{*dlyIndex} + (len - kept)) % tapsLen);
  for (Zor32s i = len - kept; i < len; ++i) push(src[i], dly, &at, tapsLen);
  *dlyIndex = at;
}

// filter(line, i, count) takes count windows from the line on, whose newest samples are those from i on; dst may be
// src. False, and nothing done, where the ring or the number of taps does not suit.
template <class Value, class T, class Filter>
bool throughLine(const T* src, Zor32s len, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Filter filter) {
  const Zor32s older = tapsLen - 1;
  const T* const before = tapsLen <= lineLen<Value> / 2 ? history(dly, *dlyIndex, tapsLen) : nullptr;
  if (before == nullptr) return false;
  alignas(32) Value memory[lineLen<Value> + 2 * lineSlack];
  std::fill_n(memory, lineSlack, Value{});
  Value* const line = memory + lineSlack;
  if (older > 0) by_type::widen(before, line, older);
  pushAll(src, len, dly, dlyIndex, tapsLen);
  for (Zor32s i = 0, count = 0; i < len; i += count) {
    count = std::min(len - i, lineLen<Value> - older);
    by_type::widen(src + i, line + older, count);
    std::fill_n(line + older + count, lineSlack, Value{});
    filter(line, i, count);
    std::copy(line + count, line + count + older, line);
  }
  return true;
}

template <class Sum, class Tap, class T>
void filterBlock(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex,
                 Zor32s scaleFactor) {
  const auto filter = [&](const Tap* line, Zor32s i, Zor32s count) {
    alignas(32) Sum sums[lineLen<Tap> + lineSlack];
    fir::windowSums(taps, tapsLen, line, sums, count);
    narrowAway(sums, dst + i, count, scaleFactor);
  };
  if (!throughLine<Tap>(src, len, tapsLen, dly, dlyIndex, filter))
    filterEach<Sum>(src, dst, len, taps, tapsLen, dly, dlyIndex, scaleFactor);
}
template <class Sum, class Tap, class T>
ZorStatus block(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex,
                Zor32s scaleFactor = 0) {
  return blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    filterBlock<Sum>(src, dst, len, taps, tapsLen, dly, dlyIndex, scaleFactor);
  });
}
// val may be dst: it is read after the checks.
template <class Sum, class Tap, class T>
ZorStatus one(const T* val, T* dst, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Zor32s scaleFactor = 0) {
  return oneChecks(dst, taps, tapsLen, dly, dlyIndex).then([&] {
    filterEach<Sum>(val, dst, 1, taps, tapsLen, dly, dlyIndex, scaleFactor);
  });
}

// ---- Integer sums -------------------------------------------------------------------------------

template <class Tap, class T> T integerResult(const Tap* taps, Zor32s tapsLen, const T* window, int shift) {
  const Tap* last = taps + tapsLen - 1;
  const auto times = [](auto a, auto b) { return static_cast<Zor32u>(a) * static_cast<Zor32u>(Zor32s{b}); };
  if constexpr (Complex<T>) {
    Zor32u re = 0, im = 0;
    for (Zor32s j = 0; j < tapsLen; ++j) {
      re += times(last[-j].re, window[j].re) - times(last[-j].im, window[j].im);
      im += times(last[-j].re, window[j].im) + times(last[-j].im, window[j].re);
    }
    return {fir::scaledResult(static_cast<Zor32s>(re), shift), fir::scaledResult(static_cast<Zor32s>(im), shift)};
  } else {
    Zor32u sum = 0;
    for (Zor32s j = 0; j < tapsLen; ++j) sum += times(last[-j], window[j]);
    return fir::scaledResult(static_cast<Zor32s>(sum), shift);
  }
}
template <class Tap, class T>
bool narrowBlock(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex,
                 int shift) {
  constexpr Zor32s most = 512;
  if (tapsLen > most) return false;
  T stored[2 * most];
  const Zor32s ahead = fir::zerosAhead<T>(tapsLen);
  for (Zor32s j = 0; j < tapsLen; ++j) fir::storeTap(stored, tapsLen, j, valueAs<T>(taps[tapsLen - 1 - j]));
  return throughLine<T>(src, len, tapsLen, dly, dlyIndex, [&](const T* line, Zor32s i, Zor32s count) {
    fir::integerBlock(stored, tapsLen + ahead, line - ahead, dst + i, count, {shift});
  });
}
template <class Tap, class T>
ZorStatus integerBlock(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor, T* dly,
                       Zor32s* dlyIndex, Zor32s scaleFactor) {
  return blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex).then([&] {
    const int shift = fir::integerShift(tapsFactor, scaleFactor);
    if (fit16(taps, tapsLen) && narrowBlock(src, dst, len, taps, tapsLen, dly, dlyIndex, shift)) return;
    for (Zor32s i = 0; i < len; ++i) dst[i] = integerResult(taps, tapsLen, push(src[i], dly, dlyIndex, tapsLen), shift);
  });
}
template <class Tap, class T>
ZorStatus integerOne(const T* val, T* dst, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor, T* dly, Zor32s* dlyIndex,
                     Zor32s scaleFactor) {
  return oneChecks(dst, taps, tapsLen, dly, dlyIndex).then([&] {
    *dst = integerResult(taps, tapsLen, push(*val, dly, dlyIndex, tapsLen), fir::integerShift(tapsFactor, scaleFactor));
  });
}

// Taps of 16 bits are fractions with 15 fractional bits. These members alone test the index, last of all.
constexpr Zor32s q15 = -15;
Checks indexWithin(Checks checks, const Zor32s* dlyIndex, Zor32s tapsLen) {
  if (checks.then([] {}) != zorStatusOk) return checks;
  return checks.require(*dlyIndex >= 0 && *dlyIndex < tapsLen, zorStatusBadDelayIndex);
}
ZorStatus q15One(const Zor16s* val, Zor16s* dst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex,
                 Zor32s scaleFactor) {
  return indexWithin(oneChecks(dst, taps, tapsLen, dly, dlyIndex), dlyIndex, tapsLen).then([&] {
    *dst = integerResult(taps, tapsLen, push(*val, dly, dlyIndex, tapsLen), fir::integerShift(q15, scaleFactor));
  });
}
// Deviation, kept: the block runs through a record of its own, which takes the delay samples from the index on as
// newest first, the opposite of the one-sample form, and gives them back so from place 0 on.
ZorStatus q15Block(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly,
                   Zor32s* dlyIndex, Zor32s scaleFactor) {
  return indexWithin(blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex), dlyIndex, tapsLen)
      .then([&]() -> ZorStatus {
        const Scratch memory(firIntegerStateSize<Fir32s_16s>(tapsLen));
        if (!memory) return zorStatusNoMemory;
        ZorFIRState* state = firBuildInteger<Fir32s_16s>(memory.data(), tapsLen);
        for (Zor32s k = 0; k < tapsLen; ++k) firStoreTap<Fir32s_16s>(state, tapsLen - 1 - k, taps[k]);
        state->tapsFactor = q15;
        zors::zorsFIRSetDlyLine32s_16s(state, dly + *dlyIndex);
        const ZorStatus status = src == dst ? zors::zorsFIR32s_16s_ISfs(dst, len, state, scaleFactor)
                                            : zors::zorsFIR32s_16s_Sfs(src, dst, len, state, scaleFactor);
        *dlyIndex = 0;
        zors::zorsFIRGetDlyLine32s_16s(state, dly);
        return status;
      });
}

// ---- Forms with a choice of regime --------------------------------------------------------------

struct Direct32fc : Fir32fc {
  static constexpr Zor32s stateFrom = 32;
  static constexpr bool alwaysFromThere = true;  // however short the block is
  static constexpr auto flip = &zors::zorsFlip_32fc_I;
  static constexpr auto initAlloc = &zors::zorsFIRInitAlloc_32fc;
  static constexpr auto filter = &zors::zorsFIR_32fc;
  static constexpr auto free = &zors::zorsFIRFree_32fc;
};
struct Direct64f : Fir64f {
  static constexpr Zor32s stateFrom = 32;
  static constexpr bool alwaysFromThere = false;
  static constexpr auto flip = &zors::zorsFlip_64f_I;
  static constexpr auto initAlloc = &zors::zorsFIRInitAlloc_64f;
  static constexpr auto filter = &zors::zorsFIR_64f;
  static constexpr auto free = &zors::zorsFIRFree_64f;
};
struct Direct64fc : Fir64fc {
  static constexpr Zor32s stateFrom = 16;
  static constexpr bool alwaysFromThere = false;
  static constexpr auto flip = &zors::zorsFlip_64fc_I;
  static constexpr auto initAlloc = &zors::zorsFIRInitAlloc_64fc;
  static constexpr auto filter = &zors::zorsFIR_64fc;
  static constexpr auto free = &zors::zorsFIRFree_64fc;
};

// The in-place forms take this way always. A state for the length of the call, from the window and back into it; the
// index stays.
template <class Form, class T = typename Form::Value>
ZorStatus byState(const T* src, T* dst, Zor32s len, const T* taps, Zor32s tapsLen, T* dly, const Zor32s* dlyIndex) {
  T* window = dly + *dlyIndex;
  Form::flip(window, tapsLen);
  ZorFIRState* state = nullptr;
  const ZorStatus built = Form::initAlloc(&state, taps, tapsLen, window);
  if (built != zorStatusOk) return built;
  const ZorStatus status = Form::filter(src, dst, len, state);
  by_type::copy(firDlyLine<Form>(state), window, tapsLen);
  Form::free(state);
  return status;
}

// The outputs that reach back before the block one by one, the others straight from the source.
template <class Form, class T = typename Form::Value>
void byKernel(const T* src, T* dst, Zor32s len, const T* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex) {
  const Zor32s first = std::min(tapsLen - 1, len);
  if (first > 0) filterBlock<T>(src, dst, first, taps, tapsLen, dly, dlyIndex, 0);
  if (tapsLen > len) return;
  T reversedTaps[Form::stateFrom], padded[Form::stateFrom + 2 * Form::row] = {};
  std::reverse_copy(taps, taps + tapsLen, reversedTaps);
  const Zor32s count = len - first;
  const T* in = src;
  if (count < Form::row) {  // the kernel takes a whole vector of outputs
    std::copy(src, src + len, padded);
    in = padded;
  }
  dot::slide(dot::TapRow<T>{reversedTaps}, tapsLen, in, dst + first, count);
  std::copy(src + len - first, src + len, dly);
  *dlyIndex = tapsLen - 1;
}

template <class Form, class T = typename Form::Value>
ZorStatus chosenBlock(const T* src, T* dst, Zor32s len, const T* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex) {
  return blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex).then([&]() -> ZorStatus {
    const RoundingScope nearest(RoundingScope::nearest);
    // Ways that read the source after they wrote results get a copy of it, so that dst may be src.
    const Scratch copy(src == dst ? std::size_t(len) * sizeof(T) : 0);
    if (!copy) return zorStatusNoMemory;
    const T* in = src;
    if (src == dst) {
      by_type::copy(src, copy.as<T>(), len);
      in = copy.as<T>();
    }
    const bool many = tapsLen >= Form::stateFrom;
    if (many && (Form::alwaysFromThere || len > tapsLen))
      return byState<Form>(in, dst, len, taps, tapsLen, dly, dlyIndex);
    if (many)
      filterBlock<T>(in, dst, len, taps, tapsLen, dly, dlyIndex, 0);
    else
      byKernel<Form>(in, dst, len, taps, tapsLen, dly, dlyIndex);
    return zorStatusOk;
  });
}
template <class Form, class T = typename Form::Value>
ZorStatus inPlaceBlock(T* srcDst, Zor32s len, const T* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex) {
  return blockChecks(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    return byState<Form>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex);
  });
}

}  // namespace

// clang-format off
// The binary32 block sums its products in binary64, the single sample in binary32.
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct32fc>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return inPlaceBlock<Direct32fc>(srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64f(const Zor64f* src, Zor64f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64f>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64f_I(Zor64f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex) { return inPlaceBlock<Direct64f>(srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64fc>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64fc_I(Zor64fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly, Zor32s* dlyIndex) { return inPlaceBlock<Direct64fc>(srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return q15Block(src, dst, len, taps, tapsLen, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIR_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return q15Block(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return q15One(&val, dst, taps, tapsLen, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne_Direct_16s_ISfs(Zor16s* srcDst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return q15One(srcDst, srcDst, taps, tapsLen, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIR64f_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR64f_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR64fc_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return block<Zor64fc>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR64fc_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return block<Zor64fc>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }

#define ONE(ONE, ONE_I, Tap, T)                                                                                                                                                            \
  ZorStatus ONE(T val, T* dst, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex) { return one<Tap>(&val, dst, taps, tapsLen, dly, dlyIndex); }                                     \
  ZorStatus ONE_I(T* srcDst, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex) { return one<Tap>(srcDst, srcDst, taps, tapsLen, dly, dlyIndex); }
ONE(zorsFIROne_Direct_32f, zorsFIROne_Direct_32f_I, Zor32f, Zor32f)
ONE(zorsFIROne_Direct_32fc, zorsFIROne_Direct_32fc_I, Zor32fc, Zor32fc)
ONE(zorsFIROne_Direct_64f, zorsFIROne_Direct_64f_I, Zor64f, Zor64f)
ONE(zorsFIROne_Direct_64fc, zorsFIROne_Direct_64fc_I, Zor64fc, Zor64fc)
ONE(zorsFIROne64f_Direct_32f, zorsFIROne64f_Direct_32f_I, Zor64f, Zor32f)
ONE(zorsFIROne64fc_Direct_32fc, zorsFIROne64fc_Direct_32fc_I, Zor64fc, Zor32fc)
#undef ONE

#define SCALED(FIR, FIR_I, ONE, ONE_I, Tap, T)                                                                                                                                             \
  ZorStatus FIR(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return block<Tap>(src, dst, len, taps, tapsLen, dly, dlyIndex, scaleFactor); } \
  ZorStatus FIR_I(T* srcDst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return block<Tap>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex, scaleFactor); }    \
  ZorStatus ONE(T val, T* dst, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return one<Tap>(&val, dst, taps, tapsLen, dly, dlyIndex, scaleFactor); }   \
  ZorStatus ONE_I(T* srcDst, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return one<Tap>(srcDst, srcDst, taps, tapsLen, dly, dlyIndex, scaleFactor); }
SCALED(zorsFIR32f_Direct_16s_Sfs, zorsFIR32f_Direct_16s_ISfs, zorsFIROne32f_Direct_16s_Sfs, zorsFIROne32f_Direct_16s_ISfs, Zor32f, Zor16s)
SCALED(zorsFIR32fc_Direct_16sc_Sfs, zorsFIR32fc_Direct_16sc_ISfs, zorsFIROne32fc_Direct_16sc_Sfs, zorsFIROne32fc_Direct_16sc_ISfs, Zor32fc, Zor16sc)
SCALED(zorsFIR64f_Direct_16s_Sfs, zorsFIR64f_Direct_16s_ISfs, zorsFIROne64f_Direct_16s_Sfs, zorsFIROne64f_Direct_16s_ISfs, Zor64f, Zor16s)
SCALED(zorsFIR64f_Direct_32s_Sfs, zorsFIR64f_Direct_32s_ISfs, zorsFIROne64f_Direct_32s_Sfs, zorsFIROne64f_Direct_32s_ISfs, Zor64f, Zor32s)
SCALED(zorsFIR64fc_Direct_16sc_Sfs, zorsFIR64fc_Direct_16sc_ISfs, zorsFIROne64fc_Direct_16sc_Sfs, zorsFIROne64fc_Direct_16sc_ISfs, Zor64fc, Zor16sc)
SCALED(zorsFIR64fc_Direct_32sc_Sfs, zorsFIR64fc_Direct_32sc_ISfs, zorsFIROne64fc_Direct_32sc_Sfs, zorsFIROne64fc_Direct_32sc_ISfs, Zor64fc, Zor32sc)
#undef SCALED

ZorStatus zorsFIR32s_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerBlock(src, dst, len, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIR32s_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerBlock(srcDst, srcDst, len, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIR32sc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerBlock(src, dst, len, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIR32sc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerBlock(srcDst, srcDst, len, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne32s_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerOne(&val, dst, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne32s_Direct_16s_ISfs(Zor16s* srcDst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerOne(srcDst, srcDst, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne32sc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerOne(&val, dst, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
ZorStatus zorsFIROne32sc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor) { return integerOne(srcDst, srcDst, taps, tapsLen, tapsFactor, dly, dlyIndex, scaleFactor); }
// clang-format on

}  // namespace zors
