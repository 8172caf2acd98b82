// zorsFIR*_Direct_*, zorsFIROne*_Direct_*: filtering with the caller's taps and delay line.
#include "fir/fir_direct.h"
#include "exports/fir.h"
#include "exports/memory.h"
#include "fir/fir_integer.h"
#include "frame/dot_kernels.h"
#include "frame/power_of_two.h"
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

// ---- Floating sums of a window ------------------------------------------------------------------

// Samples in the type of the taps.
template <class F, class T, int L> ZORS_INLINE auto samplesAs(Vec<T, L> x) {
  if constexpr (std::is_same_v<F, T>)
    return x;
  else if constexpr (Complex<F>)
    return as<F>(samplesAs<decltype(F::re)>(as<decltype(T::re)>(x)));
  else if constexpr (sizeof(F) == 4)
    return toFloat(x);
  else
    return toDouble(x);
}
// Products in the type of the taps, their sum in Sum.
template <class Sum, class Tap, class Sample>
[[gnu::flatten]] Sum windowSum(const Tap* taps, Zor32s tapsLen, const Sample* window) {
  constexpr int lanes = 16;
  using Parts =
      std::conditional_t<Complex<Sum>, std::remove_pointer_t<decltype(components(static_cast<Sum*>(nullptr)))>, Sum>;
  Vec<Parts, Complex<Sum> ? 2 * lanes : lanes> sum = splat<decltype(sum)>(0);
  const Tap* tapsEnd = taps + tapsLen;
  Zor32s j = 0;
  for (; j + lanes <= tapsLen; j += lanes) {
    const auto product = mul(reversed(load<lanes>(tapsEnd - j - lanes)), samplesAs<Tap>(load<lanes>(window + j)));
    if constexpr (sizeof(Sum) > sizeof(Tap))
      sum = add(sum, toDouble(product));
    else
      sum = add(sum, as<Parts>(product));
  }
  Sum y{};
  if (j > 0) {
    constexpr int parts = decltype(sum)::lanes, step = Complex<Sum> ? 2 : 1;
    Parts lane[parts];
    store(lane, sum);
    for (int distance = parts / 2; distance >= step; distance /= 2)
      for (int i = 0; i < distance; ++i) lane[i] += lane[i + distance];
    if constexpr (Complex<Sum>)
      y = {lane[0], lane[1]};
    else
      y = lane[0];
  }
  for (; j < tapsLen; ++j) y = addTerm(y, tapsEnd[-1 - j], sampleAs<Tap>(window[j]));
  return y;
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
    dst[i] = resultOf<T>(windowSum<Sum>(taps, tapsLen, push(src[i], dly, dlyIndex, tapsLen)), scaleFactor);
}
template <class Sum, class Tap, class T>
ZorStatus block(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, T* dly, Zor32s* dlyIndex,
                Zor32s scaleFactor = 0) {
  return blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    filterEach<Sum>(src, dst, len, taps, tapsLen, dly, dlyIndex, scaleFactor);
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
ZorStatus integerBlock(const T* src, T* dst, Zor32s len, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor, T* dly,
                       Zor32s* dlyIndex, Zor32s scaleFactor) {
  return blockChecks(src, dst, len, taps, tapsLen, dly, dlyIndex).then([&] {
    const int shift = fir::integerShift(tapsFactor, scaleFactor);
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

// A state for the length of the call, from the window and back into it; the index stays.
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
  filterEach<T>(src, dst, first, taps, tapsLen, dly, dlyIndex, 0);
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
    const bool many = tapsLen >= Form::stateFrom;
    if (src == dst || (many && (Form::alwaysFromThere || len > tapsLen)))
      return byState<Form>(src, dst, len, taps, tapsLen, dly, dlyIndex);
    if (many)
      filterEach<T>(src, dst, len, taps, tapsLen, dly, dlyIndex, 0);
    else
      byKernel<Form>(src, dst, len, taps, tapsLen, dly, dlyIndex);
    return zorStatusOk;
  });
}

}  // namespace

// clang-format off
// The binary32 block sums its products in binary64, the single sample in binary32.
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block<Zor64f>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct32fc>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct32fc>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64f(const Zor64f* src, Zor64f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64f>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64f_I(Zor64f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64f>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64fc>(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_64fc_I(Zor64fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly, Zor32s* dlyIndex) { return chosenBlock<Direct64fc>(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
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
