// zorsIIR_32f_P, zorsIIR_32f_IP, zorsIIR64f_32s_PSfs, zorsIIR64f_32s_IPSfs: several channels, a state each.
#include "iir/iir_run.h"

namespace zors {
namespace {

// A channel that fails ends the call: those before it stay filtered, those from it on untouched.
template <class Kind, class ScaleOf, class... Tags>
ZorStatus filterChannels(Checks arrays, ZorStatus badCount, const typename Kind::Sample* const* srcs,
                         typename Kind::Sample* const* dsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states,
                         ScaleOf scaleOf, Tags... accepted) {
  return arrays.size(len).require(numChannels >= 1, badCount).then([&] {
    return check().pointers(states[0]).state(states[0], accepted...).then([&] {
      const Tag common = states[0]->tag;
      for (Zor32s c = 0; c < numChannels; ++c) {
        const ZorStatus status = check().pointers(states[c], srcs[c], dsts[c]).state(states[c], common).then([&] {
          iirFilter<Kind>(srcs[c], dsts[c], len, states[c], scaleOf(c));
        });
        if (status != zorStatusOk) return status;
      }
      return ZorStatus{zorStatusOk};
    });
  });
}

ZorStatus filter32f(const Zor32f* const* srcs, Zor32f* const* dsts, Zor32s len, Zor32s numChannels,
                    ZorIIRState* const* states) {
  return filterChannels<Iir32f>(
      check().pointers(srcs, dsts, states), zorStatusBadChannelCountFloat, srcs, dsts, len, numChannels, states,
      [](Zor32s) { return 0; }, tag("II02"), tag("II29"));
}
ZorStatus filter32s(const Zor32s* const* srcs, Zor32s* const* dsts, Zor32s len, Zor32s numChannels,
                    ZorIIRState* const* states, const Zor32s* scaleFactors) {
  return filterChannels<Iir64f_32s>(
      check().pointers(srcs, dsts, states, scaleFactors), zorStatusBadChannelCountScaled, srcs, dsts, len, numChannels,
      states, [&](Zor32s c) { return scaleFactors[c]; }, tag("II21"), tag("II22"), tag("II30"));
}

}  // namespace

// clang-format off
ZorStatus zorsIIR_32f_P(const Zor32f* const* srcs, Zor32f* const* dsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states) { return filter32f(srcs, dsts, len, numChannels, states); }
ZorStatus zorsIIR_32f_IP(Zor32f* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states) { return filter32f(srcDsts, srcDsts, len, numChannels, states); }
ZorStatus zorsIIR64f_32s_PSfs(const Zor32s* const* srcs, Zor32s* const* dsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states, const Zor32s* scaleFactors) { return filter32s(srcs, dsts, len, numChannels, states, scaleFactors); }
ZorStatus zorsIIR64f_32s_IPSfs(Zor32s* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states, const Zor32s* scaleFactors) { return filter32s(srcDsts, srcDsts, len, numChannels, states, scaleFactors); }
// clang-format on

}  // namespace zors
