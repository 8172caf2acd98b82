// zorsFIRLMSOne_Direct*: adaptive filters of one sample with the caller's taps and delay line.
#include <limits>

#include "exports/adaptive.h"
#include "fir/lms_kernels.h"
#include "frame/check.h"
#include "frame/delay_line.h"

namespace zors {
namespace {

using namespace simd;

// adapt(window) works on the newest tapsLen samples, oldest first, src among them.
template <class S, class Tap, class Adapt>
ZorStatus one(S src, const S* dst, const Tap* taps, Zor32s tapsLen, S* dly, Zor32s* dlyIndex, Adapt adapt) {
  const Checks checks = check().pointers(taps, dly, dlyIndex, dst).size(tapsLen);
  if (checks.then([] {}) != zorStatusOk) return checks.then([] {});
  if (*dlyIndex < 0 || *dlyIndex >= tapsLen) return zorStatusBadDelayIndex;
  adapt(DelayLine<S>(dly, tapsLen, dlyIndex).put(src));
  return zorStatusOk;
}

template <class S>
ZorStatus adaptFloat(S src, S ref, S* dst, Zor32f* taps, Zor32s tapsLen, Zor32f mu, S* dly, Zor32s* dlyIndex) {
  return one(src, dst, taps, tapsLen, dly, dlyIndex, [&](const S* window) {
    const Zor32f y = lms::sumOf(taps, tapsLen, window), e = static_cast<Zor32f>(ref) - y;
    by_type::narrow(&y, dst, 1);
    lms::update(taps, tapsLen, (mu + mu) * e, window);
  });
}

// Eight taps and their samples in binary64, from full arrays or with zeros behind the last ones.
struct Eight {
  Zor32s taps[8] = {};
  Zor16s window[8] = {};
};
// visit(taps, samples) for eights of them; it may change the taps.
template <class Visit>
ZORS_INLINE void forEights(Zor32s* taps, const Zor16s* window, std::ptrdiff_t tapsLen, Visit visit) {
  std::ptrdiff_t k = 0;
  for (; k + 8 <= tapsLen; k += 8) visit(taps + k, window + k);
  if (k == tapsLen) return;
  Eight rest;
  std::copy(taps + k, taps + tapsLen, rest.taps);
  std::copy(window + k, window + tapsLen, rest.window);
  visit(rest.taps, rest.window);
  std::copy_n(rest.taps, tapsLen - k, taps + k);
}

// The normalised form: the step is divided by the energy of the window.
ZorStatus adaptQ15(Zor16s src, Zor16s ref, Zor16s* dst, Zor32s* taps, Zor32s tapsLen, Zor32s muQ15, Zor16s* dly,
                   Zor32s* dlyIndex) {
  using Wide = Vec<Zor64f, 8>;
  const auto total = [](Wide x) { return sumOfLanes(add(Vec<Zor64f, 4>{{x.r[0]}}, Vec<Zor64f, 4>{{x.r[1]}})); };
  return one(src, dst, taps, tapsLen, dly, dlyIndex, [&](const Zor16s* window) {
    Wide sum = splat<Wide>(0), energy = sum;
    forEights(taps, window, tapsLen, [&](const Zor32s* t, const Zor16s* w) ZORS_INLINE_LAMBDA {
      const Wide x = toDouble(floatsAt(w));
      sum = fma(x, toDouble(load<8>(t)), sum);
      energy = fma(x, x, energy);
    });
    const Zor64f p = total(energy), y = total(sum) * 0x1p-15;
    if (p == 0) return;
    by_type::narrow(&y, dst, 1);
    const Zor64f gain = muQ15 * (ref - y) / p;
    forEights(taps, window, tapsLen, [&](Zor32s* t, const Zor16s* w) ZORS_INLINE_LAMBDA {
      const Wide x = toDouble(floatsAt(w)), moved = add(toDouble(load<8>(t)), mul(x, same(x, gain)));
      const Wide limited = max(min(moved, same(x, INT32_MAX)), same(x, INT32_MIN));
      store(t, toIntegerTowardZero(nearestIntegral(limited)));
    });
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRLMSOne_Direct_32f(Zor32f src, Zor32f ref, Zor32f* dst, Zor32f* taps, Zor32s tapsLen, Zor32f mu, Zor32f* dly, Zor32s* dlyIndex) { return adaptFloat(src, ref, dst, taps, tapsLen, mu, dly, dlyIndex); }
ZorStatus zorsFIRLMSOne_Direct32f_16s(Zor16s src, Zor16s ref, Zor16s* dst, Zor32f* taps, Zor32s tapsLen, Zor32f mu, Zor16s* dly, Zor32s* dlyIndex) { return adaptFloat(src, ref, dst, taps, tapsLen, mu, dly, dlyIndex); }
ZorStatus zorsFIRLMSOne_DirectQ15_16s(Zor16s src, Zor16s ref, Zor16s* dst, Zor32s* taps, Zor32s tapsLen, Zor32s muQ15, Zor16s* dly, Zor32s* dlyIndex) { return adaptQ15(src, ref, dst, taps, tapsLen, muQ15, dly, dlyIndex); }
// clang-format on

}  // namespace zors
