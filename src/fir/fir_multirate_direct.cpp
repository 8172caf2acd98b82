// zorsFIRMR*_Direct_*: multi-rate filters with the caller's taps and delay line.
#include <cstring>

#include "exports/multirate.h"
#include "fir/fir_direct.h"
#include "fir/fir_integer.h"
#include "fir/fir_rates.h"
#include "frame/rounding.h"

namespace zors {
namespace {

struct Rates {
  Zor32s up, upPhase, down, downPhase;
};

// Integer sums wrap.
struct WrappedSum {
  Zor32u re = 0, im = 0;
};
Zor32u wrappedProduct(Zor32s a, Zor16s b) { return static_cast<Zor32u>(a) * static_cast<Zor32u>(Zor32s{b}); }
Zor32u plusTerm(Zor32u sum, Zor32s tap, Zor16s x) { return sum + wrappedProduct(tap, x); }
WrappedSum plusTerm(WrappedSum sum, Zor32sc tap, Zor16sc x) {
  return {sum.re + wrappedProduct(tap.re, x.re) - wrappedProduct(tap.im, x.im),
          sum.im + wrappedProduct(tap.re, x.im) + wrappedProduct(tap.im, x.re)};
}
template <class F, class T> F plusTerm(F sum, F tap, T x) { return addTerm(sum, tap, sampleAs<F>(x)); }

Zor32u joined(Zor32u a, Zor32u b) { return a + b; }
WrappedSum joined(WrappedSum a, WrappedSum b) { return {a.re + b.re, a.im + b.im}; }
template <class F> F joined(F a, F b) {
  if constexpr (Complex<F>)
    return {a.re + b.re, a.im + b.im};
  else
    return a + b;
}

// count products of taps[k * step] and x[-k], in four sums at a time.
template <class Sum, class Tap, class T>
Sum addProducts(Sum sum, const Tap* taps, std::ptrdiff_t step, const T* x, std::ptrdiff_t count) {
  constexpr int ways = 4;
  Sum sums[ways]{};
  std::ptrdiff_t k = 0;
  for (; k + ways <= count; k += ways)
    for (int w = 0; w < ways; ++w) sums[w] = plusTerm(sums[w], taps[(k + w) * step], x[-k - w]);
  for (; k < count; ++k) sum = plusTerm(sum, taps[k * step], x[-k]);
  return joined(joined(sums[0], sums[1]), joined(joined(sums[2], sums[3]), sum));
}

// ---- By the engine of states --------------------------------------------------------------------

// The kind of state that computes as a stateless form does.
template <class Tap, class T> struct KindOf;
template <> struct KindOf<Zor32f, Zor32f> { using type = Fir32f; };
template <> struct KindOf<Zor32fc, Zor32fc> { using type = Fir32fc; };
template <> struct KindOf<Zor64f, Zor64f> { using type = Fir64f; };
template <> struct KindOf<Zor64fc, Zor64fc> { using type = Fir64fc; };
template <> struct KindOf<Zor64f, Zor32f> { using type = Fir64f_32f; };
template <> struct KindOf<Zor64fc, Zor32fc> { using type = Fir64fc_32fc; };
template <> struct KindOf<Zor32f, Zor16s> { using type = Fir32f_16s; };
template <> struct KindOf<Zor32fc, Zor16sc> { using type = Fir32fc_16sc; };
template <> struct KindOf<Zor64f, Zor16s> { using type = Fir64f_16s; };
template <> struct KindOf<Zor64fc, Zor16sc> { using type = Fir64fc_16sc; };
template <> struct KindOf<Zor64f, Zor32s> { using type = Fir64f_32s; };
template <> struct KindOf<Zor64fc, Zor32sc> { using type = Fir64fc_32sc; };
template <> struct KindOf<Zor32s, Zor16s> { using type = Fir32s_16s; };
template <> struct KindOf<Zor32sc, Zor16sc> { using type = Fir32sc_16sc; };

// Filters that are too large for it, by their taps and rates alone, go output by output.
constexpr std::size_t recordBytes = 49152;

// A record on the stack for the length of the call; false where it has no room.
template <class Tap, class T>
bool byEngine(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, const Rates& rates, T* dly,
              fir::Finish finish, Zor32s scaleFactor) {
  using Kind = typename KindOf<Tap, T>::type;
  using Value = typename Kind::Value;
  constexpr std::size_t alignment = 64;
  Layout account(alignment);
  layRates<Kind>(account, tapsLen, rates.up, rates.down, RateRecord::state);
  if (account.size() > recordBytes) return false;
  alignas(alignment) Zor8u memory[recordBytes];
  Layout block(alignment, memory);
  ZorFIRState* state = firBuildRates<Kind>(block, Kind::tags[1], tapsLen, rates.up, rates.upPhase, rates.down,
                                           rates.downPhase, RateRecord::state);
  firFillRows<Value>(*state->rates, tapsLen);
  for (Zor32s j = 0; j < tapsLen; ++j) {
    if constexpr (std::is_integral_v<simd::Part<Value>>)
      firStoreTap<Kind>(state, j, valueAs<T>(taps[tapsLen - 1 - j]));
    else
      firTaps<Kind>(state)[j] = taps[tapsLen - 1 - j];
  }
  firSplitTaps<Kind>(state);
  auto delay = firDelay<Kind>(state);
  delay.set(dly);
  firRunLine(firEngine(state, static_cast<Value*>(state->rates->columns)), state->rates->chunk, firDlyLine<Kind>(state),
             state->dlyLen, static_cast<Value*>(state->blockScratch), src, dst, numIters, finish,
             [=](const auto* sums, T* to, Zor32s count) { narrowAway(sums, to, count, scaleFactor); });
  delay.get(dly);
  return true;
}

// ---- Output by output ---------------------------------------------------------------------------

// result(sum) makes an output of a sum.
template <class Sum, class Tap, class T, class Result>
void filter(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, const Rates& rates, T* dly,
            Result result) {
  const fir::Phases phases{tapsLen, rates.up};
  const std::ptrdiff_t total = std::ptrdiff_t{numIters} * rates.down, outputs = std::ptrdiff_t{numIters} * rates.up;
  std::ptrdiff_t place = std::ptrdiff_t{rates.downPhase} - rates.upPhase;
  std::ptrdiff_t newest = fir::floorOfQuotient(place, rates.up), phase = place - newest * rates.up;
  for (std::ptrdiff_t k = 0; k < outputs; ++k) {
    const std::ptrdiff_t len = phases.length(phase), inSource = std::min(len, newest + 1);
    Sum sum = addProducts(Sum{}, taps + phase, rates.up, src + newest, inSource);
    // The rest from the delay line, whose first element is the sample before src[0].
    for (std::ptrdiff_t j = inSource; j < len; ++j)
      sum = plusTerm(sum, taps[phase + j * rates.up], dly[j - newest - 1]);
    dst[k] = result(sum);
    newest += rates.down / rates.up;
    phase += rates.down % rates.up;
    if (phase >= rates.up) phase -= rates.up, ++newest;
  }
  for (std::ptrdiff_t k = phases.longest() - 1; k >= 0; --k) dly[k] = k < total ? src[total - 1 - k] : dly[k - total];
}

// engine(src) is tried first.
template <class Sum, class Tap, class T, class Engine, class Result>
ZorStatus direct(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, const Rates& rates, T* dly,
                 Engine engine, Result result) {
  return check()
      .pointers(src, dst)
      .size(numIters)
      .pointers(taps)
      .require(tapsLen >= 1, zorStatusBadTapsLength)
      .require(rates.up >= 1 && rates.down >= 1, zorStatusBadMultiRateFactor)
      .require(rates.upPhase >= 0 && rates.upPhase < rates.up && rates.downPhase >= 0 && rates.downPhase < rates.down,
               zorStatusBadMultiRatePhase)
      .pointers(dly)
      .then([&]() -> ZorStatus {
        const RoundingScope nearest(RoundingScope::nearest);
        const std::size_t bytes =
            src == dst ? static_cast<std::size_t>(numIters) * static_cast<std::size_t>(rates.down) * sizeof(T) : 0;
        const Scratch copy(bytes);
        if (!copy) return zorStatusNoMemory;
        if (bytes > 0) std::memcpy(copy.data(), src, bytes);
        const T* from = bytes > 0 ? copy.as<T>() : src;
        if (!engine(from)) filter<Sum>(from, dst, numIters, taps, tapsLen, rates, dly, result);
        return zorStatusOk;
      });
}

template <class Tap, class T>
ZorStatus directFloat(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, const Rates& rates,
                      T* dly, Zor32s scaleFactor = 0) {
  return direct<Tap>(
      src, dst, numIters, taps, tapsLen, rates, dly,
      [&](const T* from) { return byEngine(from, dst, numIters, taps, tapsLen, rates, dly, {}, scaleFactor); },
      [=](Tap sum) { return resultOf<T>(sum, scaleFactor); });
}
template <class Tap, class T>
ZorStatus directInteger(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor,
                        const Rates& rates, T* dly, Zor32s scaleFactor) {
  const int shift = fir::integerShift(tapsFactor, scaleFactor);
  const auto part = [=](Zor32u sum) { return fir::scaledResult(static_cast<Zor32s>(sum), shift); };
  const auto engine = [&](const T* from) {
    return fit16(taps, tapsLen) && byEngine(from, dst, numIters, taps, tapsLen, rates, dly, {shift}, 0);
  };
  if constexpr (Complex<T>)
    return direct<WrappedSum>(src, dst, numIters, taps, tapsLen, rates, dly, engine, [=](WrappedSum sum) {
      return T{part(sum.re), part(sum.im)};
    });
  else
    return direct<Zor32u>(src, dst, numIters, taps, tapsLen, rates, dly, engine, part);
}

}  // namespace

// clang-format off
#define PLAIN(FIR, FIR_I, Tap, T)                                                                                                                                                                                     \
  ZorStatus FIR(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly) { return directFloat(src, dst, numIters, taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, dly); } \
  ZorStatus FIR_I(T* srcDst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly) { return directFloat(srcDst, srcDst, numIters, taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, dly); }
PLAIN(zorsFIRMR_Direct_32f, zorsFIRMR_Direct_32f_I, Zor32f, Zor32f)
PLAIN(zorsFIRMR_Direct_32fc, zorsFIRMR_Direct_32fc_I, Zor32fc, Zor32fc)
PLAIN(zorsFIRMR_Direct_64f, zorsFIRMR_Direct_64f_I, Zor64f, Zor64f)
PLAIN(zorsFIRMR_Direct_64fc, zorsFIRMR_Direct_64fc_I, Zor64fc, Zor64fc)
PLAIN(zorsFIRMR64f_Direct_32f, zorsFIRMR64f_Direct_32f_I, Zor64f, Zor32f)
PLAIN(zorsFIRMR64fc_Direct_32fc, zorsFIRMR64fc_Direct_32fc_I, Zor64fc, Zor32fc)
#undef PLAIN
#define SCALED(FIR, FIR_I, Tap, T)                                                                                                                                                                                    \
  ZorStatus FIR(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly, Zor32s scaleFactor) { return directFloat(src, dst, numIters, taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, dly, scaleFactor); } \
  ZorStatus FIR_I(T* srcDst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly, Zor32s scaleFactor) { return directFloat(srcDst, srcDst, numIters, taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, dly, scaleFactor); }
SCALED(zorsFIRMR32f_Direct_16s_Sfs, zorsFIRMR32f_Direct_16s_ISfs, Zor32f, Zor16s)
SCALED(zorsFIRMR32fc_Direct_16sc_Sfs, zorsFIRMR32fc_Direct_16sc_ISfs, Zor32fc, Zor16sc)
SCALED(zorsFIRMR64f_Direct_16s_Sfs, zorsFIRMR64f_Direct_16s_ISfs, Zor64f, Zor16s)
SCALED(zorsFIRMR64f_Direct_32s_Sfs, zorsFIRMR64f_Direct_32s_ISfs, Zor64f, Zor32s)
SCALED(zorsFIRMR64fc_Direct_16sc_Sfs, zorsFIRMR64fc_Direct_16sc_ISfs, Zor64fc, Zor16sc)
SCALED(zorsFIRMR64fc_Direct_32sc_Sfs, zorsFIRMR64fc_Direct_32sc_ISfs, Zor64fc, Zor32sc)
#undef SCALED
#define INTEGER(FIR, FIR_I, Tap, T)                                                                                                                                                                                   \
  ZorStatus FIR(const T* src, T* dst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly, Zor32s scaleFactor) { return directInteger(src, dst, numIters, taps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, dly, scaleFactor); } \
  ZorStatus FIR_I(T* srcDst, Zor32s numIters, const Tap* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, T* dly, Zor32s scaleFactor) { return directInteger(srcDst, srcDst, numIters, taps, tapsLen, tapsFactor, {upFactor, upPhase, downFactor, downPhase}, dly, scaleFactor); }
INTEGER(zorsFIRMR32s_Direct_16s_Sfs, zorsFIRMR32s_Direct_16s_ISfs, Zor32s, Zor16s)
INTEGER(zorsFIRMR32sc_Direct_16sc_Sfs, zorsFIRMR32sc_Direct_16sc_ISfs, Zor32sc, Zor16sc)
#undef INTEGER
// clang-format on

}  // namespace zors
