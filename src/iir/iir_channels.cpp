// zorsIIR_32f_P, zorsIIR_32f_IP, zorsIIR64f_32s_PSfs, zorsIIR64f_32s_IPSfs: several channels, a state each.
#include <algorithm>
#include <functional>

#include "iir/iir_run.h"
#include "iir/iir_together.h"

namespace zors {
namespace {

template <class Kind> struct Channels {
  const typename Kind::Sample* const* srcs;
  typename Kind::Sample* const* dsts;
  Zor32s len, count;
  ZorIIRState* const* states;

  Channels part(Zor32s first, Zor32s most) const {
    return {srcs + first, dsts + first, len, std::min(most, count - first), states + first};
  }
  bool equallyLong() const {
    return std::all_of(states, states + count, [&](const ZorIIRState* s) { return s->count == states[0]->count; });
  }
  // Whether none reads or writes what another writes, so that all at once is as good as one after the other.
  bool independent() const {
    const auto apart = [&](const auto* a, const auto* b) {
      return std::less_equal<>{}(a + len, b) || std::less_equal<>{}(b + len, a);
    };
    for (Zor32s c = 1; c < count; ++c)
      for (Zor32s other = 0; other < c; ++other)
        if (states[c] == states[other] || !apart(dsts[c], dsts[other]) || !apart(dsts[c], srcs[other]) ||
            !apart(srcs[c], dsts[other]))
          return false;
    return true;
  }
};

// Chunk by chunk, in the states' own memory where the samples are of another type.
template <class Kind, IirForm form, class ScaleOf> void filterGroup(const Channels<Kind>& group, ScaleOf scaleOf) {
  using Value = typename Kind::Value;
  if constexpr (!Kind::converts) {
    iir::filterTogether<Value, form>(group.srcs, group.dsts, group.len, group.count, group.states);
  } else {
    Value* chunks[iirLanes<Value>];
    for (Zor32s c = 0; c < group.count; ++c) chunks[c] = static_cast<Value*>(group.states[c]->scratch);
    for (Zor32s done = 0; done < group.len; done += iirChunk) {
      const Zor32s n = std::min(group.len - done, iirChunk);
      for (Zor32s c = 0; c < group.count; ++c) by_type::widen(group.srcs[c] + done, chunks[c], n);
      iir::filterTogether<Value, form>(chunks, chunks, n, group.count, group.states);
      for (Zor32s c = 0; c < group.count; ++c) iirNarrow<Kind>(chunks[c], group.dsts[c] + done, n, scaleOf(c));
    }
  }
}

template <class Kind, class ScaleOf> void filterAll(const Channels<Kind>& all, ScaleOf scaleOf) {
  using Value = typename Kind::Value;
  const IirForm form = all.states[0]->form;
  const bool together = form != IirForm::polynomial && all.count >= iir::fewestTogether<Value> && all.equallyLong();
  for (Zor32s c = 0; c < all.count; c += iirLanes<Value>) {
    const auto group = all.part(c, iirLanes<Value>);
    const auto scaleFrom = [&](Zor32s k) { return scaleOf(c + k); };
    if (!together || !group.independent())
      for (Zor32s k = 0; k < group.count; ++k)
        iirFilter<Kind>(group.srcs[k], group.dsts[k], group.len, group.states[k], scaleFrom(k));
    else if (form == IirForm::cascade)
      filterGroup<Kind, IirForm::cascade>(group, scaleFrom);
    else
      filterGroup<Kind, IirForm::firstForm>(group, scaleFrom);
  }
}

// A channel that fails ends the call: those before it are filtered, those from it on stay untouched.
template <class Kind, class ScaleOf, class... Tags>
ZorStatus filterChannels(Checks arrays, ZorStatus badCount, const Channels<Kind>& all, ScaleOf scaleOf,
                         Tags... accepted) {
  return arrays.size(all.len).require(all.count >= 1, badCount).then([&] {
    return check().pointers(all.states[0]).state(all.states[0], accepted...).then([&] {
      const Tag common = all.states[0]->tag;
      ZorStatus status = zorStatusOk;
      Zor32s good = 0;
      for (; good < all.count; ++good) {
        status =
            check().pointers(all.states[good], all.srcs[good], all.dsts[good]).state(all.states[good], common).then([] {
            });
        if (status != zorStatusOk) break;
      }
      if (good > 0) filterAll<Kind>(all.part(0, good), scaleOf);
      return status;
    });
  });
}

ZorStatus filter32f(const Zor32f* const* srcs, Zor32f* const* dsts, Zor32s len, Zor32s numChannels,
                    ZorIIRState* const* states) {
  return filterChannels<Iir32f>(
      check().pointers(srcs, dsts, states), zorStatusBadChannelCountFloat, {srcs, dsts, len, numChannels, states},
      [](Zor32s) { return 0; }, tag("II02"), tag("II29"));
}
ZorStatus filter32s(const Zor32s* const* srcs, Zor32s* const* dsts, Zor32s len, Zor32s numChannels,
                    ZorIIRState* const* states, const Zor32s* scaleFactors) {
  return filterChannels<Iir64f_32s>(
      check().pointers(srcs, dsts, states, scaleFactors), zorStatusBadChannelCountScaled,
      {srcs, dsts, len, numChannels, states}, [&](Zor32s c) { return scaleFactors[c]; }, tag("II21"), tag("II22"),
      tag("II30"));
}

}  // namespace

// clang-format off
ZorStatus zorsIIR_32f_P(const Zor32f* const* srcs, Zor32f* const* dsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states) { return filter32f(srcs, dsts, len, numChannels, states); }
ZorStatus zorsIIR_32f_IP(Zor32f* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states) { return filter32f(srcDsts, srcDsts, len, numChannels, states); }
ZorStatus zorsIIR64f_32s_PSfs(const Zor32s* const* srcs, Zor32s* const* dsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states, const Zor32s* scaleFactors) { return filter32s(srcs, dsts, len, numChannels, states, scaleFactors); }
ZorStatus zorsIIR64f_32s_IPSfs(Zor32s* const* srcDsts, Zor32s len, Zor32s numChannels, ZorIIRState* const* states, const Zor32s* scaleFactors) { return filter32s(srcDsts, srcDsts, len, numChannels, states, scaleFactors); }
// clang-format on

}  // namespace zors
