// zorsFIRGetStateSize*, zorsFIRInit*, zorsFIRInitAlloc*, zorsFIRFree*, zorsFIRGetTaps*, zorsFIRSetTaps*,
// zorsFIRGetDlyLine*, zorsFIRSetDlyLine*, zorsFIR*_Sfs, zorsFIR*_ISfs, zorsFIROne*_Sfs of 16s, 32s_16s, 32s_16s32f and
// their complex kin.
#include "fir/fir_integer.h"

#include <bit>
#include <cmath>

#include "exports/fir.h"
#include "exports/memory.h"
#include "frame/rounding.h"

namespace zors {
namespace {

// All parts of the taps, one after another.
template <class T> Zor64s partCount(Zor32s tapsLen) { return Complex<T> ? 2 * Zor64s{tapsLen} : Zor64s{tapsLen}; }

// f(part) for each part of a tap.
template <class T, class F> auto eachPart(T tap, F f) {
  if constexpr (Complex<T>)
    return Zor16sc{f(tap.re), f(tap.im)};
  else
    return f(tap);
}

template <class Kind, class T, class F> void storeTaps(ZorFIRState* state, const T* taps, F f) {
  for (Zor32s k = 0; k < state->tapsLen; ++k) firStoreTap<Kind>(state, state->tapsLen - 1 - k, eachPart(taps[k], f));
}

// The lowest value has no negative: taps with one are halved.
void writeTaps(ZorFIRState* state, const Zor16s* taps, Zor32s tapsFactor) {
  const int shift = std::find(taps, taps + state->tapsLen, INT16_MIN) != taps + state->tapsLen ? 1 : 0;
  storeTaps<Fir16s>(state, taps, [shift](Zor16s tap) { return static_cast<Zor16s>(tap >> shift); });
  state->tapsFactor = static_cast<Zor32s>(static_cast<Zor32u>(tapsFactor) + static_cast<Zor32u>(shift));
}

// Integer taps are shifted right until the largest magnitude fits; small ones are not scaled up. One shift for all
// parts.
template <class Kind> void writeTaps(ZorFIRState* state, const typename Kind::Tap* taps, Zor32s tapsFactor) {
  const Zor32s* parts = components(taps);
  Zor64s largest = 0;
  for (Zor64s i = 0; i < partCount<typename Kind::Tap>(state->tapsLen); ++i)
    largest = std::max(largest, std::abs(Zor64s{parts[i]}));
  int shift = 0;
  for (; largest > 32766; largest >>= 1) ++shift;
  storeTaps<Kind>(state, taps, [shift](Zor32s tap) { return static_cast<Zor16s>(tap >> shift); });
  state->tapsFactor = static_cast<Zor32s>(static_cast<Zor32u>(tapsFactor) + static_cast<Zor32u>(shift));
}

// Float taps are scaled by a power of two so that the largest ends in 16,384 to 32,767, and rounded half away from
// zero.
template <class Kind, class T> void writeFloatTaps(ZorFIRState* state, const T* taps) {
  constexpr int mostSteps = 33;
  const Zor32f* parts = components(taps);
  Zor32f largest = 0;
  for (Zor64s i = 0; i < partCount<T>(state->tapsLen); ++i) largest = std::max(largest, std::fabs(parts[i]));
  int s = 0;
  if (largest > 32767) {
    for (; largest > 32767 && s < mostSteps; largest *= 0.5f) ++s;
  } else {
    for (Zor32f doubled = 2 * largest; doubled < 32767 && s > -mostSteps; doubled *= 2) --s;
  }
  const Zor64f scale = std::ldexp(1.0, -s);
  storeTaps<Kind>(state, taps, [scale](Zor32f tap) {
    const Zor64f x = tap * scale, rounded = std::trunc(x < 0 ? x - 0.5 : x + 0.5);
    return static_cast<Zor16s>(std::clamp(rounded, -32767.0, 32767.0));  // a tap beyond all halvings, or infinite
  });
  state->tapsFactor = s;
}

template <class Kind> ZorStatus getStateSize(Zor32s tapsLen, Zor32s* size) {
  return check().pointers(size).require(tapsLen >= 1, zorStatusBadTapsLength).then([&] {
    return tellSize(firIntegerStateSize<Kind>(tapsLen), size);
  });
}

// write(state) stores the taps.
template <class Kind, class Write>
ZorFIRState* build(Zor8u* memory, Zor32s tapsLen, const typename Kind::Sample* dly, Write write) {
  ZorFIRState* state = firBuildInteger<Kind>(memory, tapsLen);
  write(state);
  firDelay<Kind>(state).set(dly);
  return state;
}
template <class Kind, class T, class Write>
ZorStatus init(ZorFIRState** state, const T* taps, Zor32s tapsLen, const typename Kind::Sample* dly, Zor8u* buffer,
               Write write) {
  return check()
      .pointers(state, taps, buffer)
      .require(tapsLen >= 1, zorStatusBadTapsLength)
      .require(firIntegerStateSize<Kind>(tapsLen) <= INT32_MAX, zorStatusNoMemory)
      .then([&] { *state = build<Kind>(buffer, tapsLen, dly, write); });
}
template <class Kind, class T, class Write>
ZorStatus initAlloc(ZorFIRState** state, const T* taps, Zor32s tapsLen, const typename Kind::Sample* dly, Write write) {
  return check().pointers(state, taps).require(tapsLen >= 1, zorStatusBadTapsLength).then([&] {
    return initAllocated(state, firIntegerStateSize<Kind>(tapsLen),
                         [&](Zor8u* memory, ZorFIRState** built) -> ZorStatus {
                           *built = build<Kind>(memory, tapsLen, dly, write);
                           return zorStatusOk;
                         });
  });
}

template <class Kind> ZorStatus release(ZorFIRState* state) {
  return firState<Kind>(check().pointers(state), state).then([&] { releaseOwned(state); });
}

template <class Kind> ZorStatus getTaps(const ZorFIRState* state, typename Kind::Tap* taps, Zor32s* tapsFactor) {
  return firState<Kind>(check().pointers(state, taps, tapsFactor), state).then([&] {
    for (Zor32s k = 0; k < state->tapsLen; ++k) {
      const auto tap = firStoredTap<Kind>(state, state->tapsLen - 1 - k);
      if constexpr (Complex<typename Kind::Tap>)
        taps[k] = {tap.re, tap.im};
      else
        taps[k] = tap;
    }
    *tapsFactor = state->tapsFactor;
  });
}
// Each stored tap times 2^tapsFactor, exactly.
template <class Kind, class T> ZorStatus getFloatTaps(const ZorFIRState* state, T* taps) {
  return firState<Kind>(check().pointers(state, taps), state).then([&] {
    const auto asFloat = [state](Zor16s tap) { return std::ldexp(static_cast<Zor32f>(tap), state->tapsFactor); };
    for (Zor32s k = 0; k < state->tapsLen; ++k) {
      const auto tap = firStoredTap<Kind>(state, state->tapsLen - 1 - k);
      if constexpr (Complex<T>)
        taps[k] = {asFloat(tap.re), asFloat(tap.im)};
      else
        taps[k] = asFloat(tap);
    }
  });
}
template <class Kind, class T, class Write> ZorStatus setTaps(const T* taps, ZorFIRState* state, Write write) {
  return firState<Kind>(check().pointers(taps, state), state).then([&] {
    write(state);
    firSplitTaps<Kind>(state);
  });
}

template <class Kind> ZorStatus getDlyLine(const ZorFIRState* state, typename Kind::Sample* dly) {
  return firState<Kind>(check().pointers(state, dly), state).then([&] { firDelay<Kind>(state).get(dly); });
}
template <class Kind> ZorStatus setDlyLine(ZorFIRState* state, const typename Kind::Sample* dly) {
  return firState<Kind>(check().pointers(state), state).then([&] { firDelay<Kind>(state).set(dly); });
}

// ---- Filtering ----------------------------------------------------------------------------------

template <class Kind>
ZorStatus filter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorFIRState* state,
                 Zor32s scaleFactor) {
  return firState<Kind>(check().pointers(state, src, dst).size(len), state).then([&] {
    if (state->tag != Kind::tags[0]) return firRunRates<Kind>(state, src, dst, len, scaleFactor);
    const int shift = fir::integerShift(state->tapsFactor, scaleFactor);
    if (src != dst) {
      firFilterInteger<Kind>(state, src, dst, len, shift);
      return ZorStatus{zorStatusOk};
    }
    auto* scratch = static_cast<typename Kind::Sample*>(state->blockScratch);
    for (Zor32s done = 0; done < len;) {
      const Zor32s chunk = std::min(len - done, firChunk);
      firFilterInteger<Kind>(state, src + done, scratch, chunk, shift);
      by_type::copy(scratch, dst + done, chunk);
      done += chunk;
    }
    return ZorStatus{zorStatusOk};
  });
}

Zor32u product(Zor16s a, Zor16s b) { return static_cast<Zor32u>(Zor32s{a} * b); }

// The sum of a window, in 32 bits that wrap.
template <class Kind> auto windowSum(const ZorFIRState* state, const typename Kind::Sample* window) {
  const Zor32s n = state->tapsLen;
  if constexpr (Complex<typename Kind::Sample>) {
    Zor32u re = 0, im = 0;
    for (Zor32s j = 0; j < n; ++j) {
      const Zor16sc tap = firStoredTap<Kind>(state, j), x = window[j];
      re += product(tap.re, x.re) - product(tap.im, x.im);
      im += product(tap.re, x.im) + product(tap.im, x.re);
    }
    return Zor32sc{static_cast<Zor32s>(re), static_cast<Zor32s>(im)};
  } else {
    const Zor16s* taps = firTaps<Kind>(state) + (n & 1);
    Zor32u sum = 0;
    for (Zor32s j = 0; j < n; ++j) sum += product(taps[j], window[j]);
    return static_cast<Zor32s>(sum);
  }
}

template <class Kind>
ZorStatus filterOne(typename Kind::Sample val, typename Kind::Sample* dst, ZorFIRState* state, Zor32s scaleFactor) {
  return check().pointers(state, dst).state(state, Kind::tags[0]).then([&] {
    const int shift = fir::integerShift(state->tapsFactor, scaleFactor);
    const auto sum = windowSum<Kind>(state, firDelay<Kind>(state).put(val));
    if constexpr (Complex<typename Kind::Sample>)
      *dst = {fir::scaledResult(sum.re, shift), fir::scaledResult(sum.im, shift)};
    else
      *dst = fir::scaledResult(sum, shift);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRGetStateSize_16s(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir16s>(tapsLen, size); }
ZorStatus zorsFIRGetStateSize32s_16s(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32s_16s>(tapsLen, size); }
ZorStatus zorsFIRGetStateSize32s_16s32f(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32s_16s>(tapsLen, size); }
ZorStatus zorsFIRGetStateSize32sc_16sc(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32sc_16sc>(tapsLen, size); }
ZorStatus zorsFIRGetStateSize32sc_16sc32fc(Zor32s tapsLen, Zor32s* size) { return getStateSize<Fir32sc_16sc>(tapsLen, size); }

ZorStatus zorsFIRInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly, Zor8u* buffer) { return init<Fir16s>(state, taps, tapsLen, dly, buffer, [=](ZorFIRState* built) { writeTaps(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInit32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly, Zor8u* buffer) { return init<Fir32s_16s>(state, taps, tapsLen, dly, buffer, [=](ZorFIRState* built) { writeTaps<Fir32s_16s>(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInit32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer) { return init<Fir32s_16s>(state, taps, tapsLen, dly, buffer, [=](ZorFIRState* built) { writeFloatTaps<Fir32s_16s>(built, taps); }); }
ZorStatus zorsFIRInit32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16sc* dly, Zor8u* buffer) { return init<Fir32sc_16sc>(state, taps, tapsLen, dly, buffer, [=](ZorFIRState* built) { writeTaps<Fir32sc_16sc>(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInit32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly, Zor8u* buffer) { return init<Fir32sc_16sc>(state, taps, tapsLen, dly, buffer, [=](ZorFIRState* built) { writeFloatTaps<Fir32sc_16sc>(built, taps); }); }
ZorStatus zorsFIRInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly) { return initAlloc<Fir16s>(state, taps, tapsLen, dly, [=](ZorFIRState* built) { writeTaps(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInitAlloc32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly) { return initAlloc<Fir32s_16s>(state, taps, tapsLen, dly, [=](ZorFIRState* built) { writeTaps<Fir32s_16s>(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInitAlloc32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly) { return initAlloc<Fir32s_16s>(state, taps, tapsLen, dly, [=](ZorFIRState* built) { writeFloatTaps<Fir32s_16s>(built, taps); }); }
ZorStatus zorsFIRInitAlloc32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16sc* dly) { return initAlloc<Fir32sc_16sc>(state, taps, tapsLen, dly, [=](ZorFIRState* built) { writeTaps<Fir32sc_16sc>(built, taps, tapsFactor); }); }
ZorStatus zorsFIRInitAlloc32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly) { return initAlloc<Fir32sc_16sc>(state, taps, tapsLen, dly, [=](ZorFIRState* built) { writeFloatTaps<Fir32sc_16sc>(built, taps); }); }
ZorStatus zorsFIRFree_16s(ZorFIRState* state) { return release<Fir16s>(state); }
ZorStatus zorsFIRFree32s_16s(ZorFIRState* state) { return release<Fir32s_16s>(state); }
ZorStatus zorsFIRFree32sc_16sc(ZorFIRState* state) { return release<Fir32sc_16sc>(state); }

ZorStatus zorsFIRGetTaps_16s(const ZorFIRState* state, Zor16s* taps, Zor32s* tapsFactor) { return getTaps<Fir16s>(state, taps, tapsFactor); }
ZorStatus zorsFIRGetTaps32s_16s(const ZorFIRState* state, Zor32s* taps, Zor32s* tapsFactor) { return getTaps<Fir32s_16s>(state, taps, tapsFactor); }
ZorStatus zorsFIRGetTaps32sc_16sc(const ZorFIRState* state, Zor32sc* taps, Zor32s* tapsFactor) { return getTaps<Fir32sc_16sc>(state, taps, tapsFactor); }
ZorStatus zorsFIRGetTaps32s_16s32f(const ZorFIRState* state, Zor32f* taps) { return getFloatTaps<Fir32s_16s>(state, taps); }
ZorStatus zorsFIRGetTaps32sc_16sc32fc(const ZorFIRState* state, Zor32fc* taps) { return getFloatTaps<Fir32sc_16sc>(state, taps); }
ZorStatus zorsFIRSetTaps_16s(const Zor16s* taps, ZorFIRState* state, Zor32s tapsFactor) { return setTaps<Fir16s>(taps, state, [=](ZorFIRState* to) { writeTaps(to, taps, tapsFactor); }); }
ZorStatus zorsFIRSetTaps32s_16s(const Zor32s* taps, ZorFIRState* state, Zor32s tapsFactor) { return setTaps<Fir32s_16s>(taps, state, [=](ZorFIRState* to) { writeTaps<Fir32s_16s>(to, taps, tapsFactor); }); }
ZorStatus zorsFIRSetTaps32sc_16sc(const Zor32sc* taps, ZorFIRState* state, Zor32s tapsFactor) { return setTaps<Fir32sc_16sc>(taps, state, [=](ZorFIRState* to) { writeTaps<Fir32sc_16sc>(to, taps, tapsFactor); }); }
ZorStatus zorsFIRSetTaps32s_16s32f(const Zor32f* taps, ZorFIRState* state) { return setTaps<Fir32s_16s>(taps, state, [=](ZorFIRState* to) { writeFloatTaps<Fir32s_16s>(to, taps); }); }
ZorStatus zorsFIRSetTaps32sc_16sc32fc(const Zor32fc* taps, ZorFIRState* state) { return setTaps<Fir32sc_16sc>(taps, state, [=](ZorFIRState* to) { writeFloatTaps<Fir32sc_16sc>(to, taps); }); }
ZorStatus zorsFIRGetDlyLine_16s(const ZorFIRState* state, Zor16s* dly) { return getDlyLine<Fir16s>(state, dly); }
ZorStatus zorsFIRGetDlyLine32s_16s(const ZorFIRState* state, Zor16s* dly) { return getDlyLine<Fir32s_16s>(state, dly); }
ZorStatus zorsFIRGetDlyLine32sc_16sc(const ZorFIRState* state, Zor16sc* dly) { return getDlyLine<Fir32sc_16sc>(state, dly); }
ZorStatus zorsFIRSetDlyLine_16s(ZorFIRState* state, const Zor16s* dly) { return setDlyLine<Fir16s>(state, dly); }
ZorStatus zorsFIRSetDlyLine32s_16s(ZorFIRState* state, const Zor16s* dly) { return setDlyLine<Fir32s_16s>(state, dly); }
ZorStatus zorsFIRSetDlyLine32sc_16sc(ZorFIRState* state, const Zor16sc* dly) { return setDlyLine<Fir32sc_16sc>(state, dly); }

ZorStatus zorsFIR_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir16s>(src, dst, len, state, scaleFactor); }
ZorStatus zorsFIR_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir16s>(srcDst, srcDst, len, state, scaleFactor); }
ZorStatus zorsFIR32s_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir32s_16s>(src, dst, len, state, scaleFactor); }
ZorStatus zorsFIR32s_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir32s_16s>(srcDst, srcDst, len, state, scaleFactor); }
ZorStatus zorsFIR32sc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir32sc_16sc>(src, dst, len, state, scaleFactor); }
ZorStatus zorsFIR32sc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Fir32sc_16sc>(srcDst, srcDst, len, state, scaleFactor); }
ZorStatus zorsFIROne_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor) { return filterOne<Fir16s>(val, dst, state, scaleFactor); }
ZorStatus zorsFIROne32s_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor) { return filterOne<Fir32s_16s>(val, dst, state, scaleFactor); }
ZorStatus zorsFIROne32sc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor) { return filterOne<Fir32sc_16sc>(val, dst, state, scaleFactor); }
// clang-format on

}  // namespace zors
