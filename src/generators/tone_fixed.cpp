// zorsToneQ15_*: sinusoids of fixed-point arguments, each sample from its own cosine.
#include "exports/generators.h"
#include "frame/check.h"
#include "generators/indexed.h"
#include "generators/periodic.h"
#include "generators/record.h"

struct ZorToneState {
  zors::Tag tag;
  Zor32s sampleIndex, allocated;
  Zor64f magnitude, rFreq, phase;
  Zor32s started;
};
static_assert(sizeof(ZorToneState) == 48);

namespace zors {
namespace {

using namespace simd;
using namespace generators;

constexpr Tag toneTag = tag("CMAH");

ZorToneState stateOf(Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15, Zor32s allocated) {
  return {toneTag, 0, allocated, Zor64f(magnitude), rFreqQ15 * unitQ15, phaseQ15 * unitQ15, 0};
}
// The arguments, in the order in which they are tested.
Checks arguments(Checks before, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  return before.require(magnitude >= 1, zorStatusBadToneMagnitude)
      .require(rFreqQ15 >= 0 && rFreqQ15 <= frequencyLimitQ15, zorStatusBadToneFrequency)
      .require(phaseQ15 <= phaseLimitQ15, zorStatusBadTonePhase);
}

// len samples from sampleIndex on, which wraps.
void generate(ZorToneState& state, Zor16s* dst, Zor32s len) {
  const Zor64f w = twoPi * state.rFreq, phase = state.phase, magnitude = state.magnitude;
  const auto samples = [=](auto n) ZORS_INLINE_LAMBDA {
    const auto angle = fma(same(n, w), n, same(n, phase));
    const auto again = [=](Zor64f a) {
      const Zor64f y = magnitude * std::cos(a);
      return y + (y > 0 ? 0.5 : -0.5);
    };
    const auto y = halfFurther(mul(circular<Circular::cosine>(angle), same(n, magnitude)));
    return saturate<Zor16s>(toIntegerTowardZero(settled<Zor16s>(y, magnitude, again, angle)));
  };
  while (len > 0) {
    const Zor64s beforeWrap = Zor64s{INT32_MAX} - state.sampleIndex + 1;
    const auto count = static_cast<Zor32s>(std::min<Zor64s>(len, beforeWrap));
    fromIndices<lanesOf<Zor16s>, Zor64f>(state.sampleIndex, count, dst, samples);
    state.sampleIndex = static_cast<Zor32s>(static_cast<Zor32u>(state.sampleIndex) + static_cast<Zor32u>(count));
    dst += count;
    len -= count;
  }
}

}  // namespace

ZorStatus zorsToneQ15_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  return arguments(check().pointers(dst).size(len), magnitude, rFreqQ15, phaseQ15).then([&] {
    auto state = stateOf(magnitude, rFreqQ15, phaseQ15, 0);
    generate(state, dst, len);
  });
}

ZorStatus zorsToneGetStateSizeQ15_16s(Zor32s* size) {
  return check().pointers(size).then([&] { *size = sizeof(ZorToneState); });
}
ZorStatus zorsToneInitQ15_16s(ZorToneState* state, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  return arguments(check().pointers(state), magnitude, rFreqQ15, phaseQ15).then([&] {
    storeRecord(stateOf(magnitude, rFreqQ15, phaseQ15, 0), state);
  });
}
ZorStatus zorsToneInitAllocQ15_16s(ZorToneState** stateOut, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  return arguments(check().pointers(stateOut), magnitude, rFreqQ15, phaseQ15).then([&] {
    return storeInNewMemory(stateOf(magnitude, rFreqQ15, phaseQ15, 1), stateOut);
  });
}
ZorStatus zorsToneFree(ZorToneState* state) {
  return check().pointers(state).state(state, toneTag).then([&] {
    if (loadRecord<ZorToneState>(state).allocated == 1) releaseRecord(state);
  });
}

ZorStatus zorsToneQ15_16s(Zor16s* dst, Zor32s len, ZorToneState* state) {
  return check().pointers(dst, state).size(len).state(state, toneTag).then([&] {
    auto record = loadRecord<ZorToneState>(state);
    if (record.started == 0) record.sampleIndex = 0;
    record.started = 1;
    generate(record, dst, len);
    storeRecord(record, state);
  });
}

}  // namespace zors
