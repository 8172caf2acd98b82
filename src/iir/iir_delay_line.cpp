// zorsIIRGetDlyLine*, zorsIIRSetDlyLine*: the registers of IIR states.
#include "iir/iir_state.h"

#include <algorithm>

namespace zors {
namespace {

// The integers' first form has calls of its own.
template <class Kind>
constexpr Tag thirdTag = std::is_integral_v<typename Kind::Sample> ? Kind::tags[1] : Kind::tags[2];

template <class Kind> ZorStatus get(const ZorIIRState* state, typename Kind::Value* dly) {
  return check().pointers(state, dly).state(state, Kind::tags[0], Kind::tags[1], thirdTag<Kind>).then([&] {
    return by_type::copy(static_cast<const typename Kind::Value*>(state->dlyLine), dly, state->dlyLen);
  });
}
template <class Kind> ZorStatus set(ZorIIRState* state, const typename Kind::Value* dly) {
  using Value = typename Kind::Value;
  return check().pointers(state).state(state, Kind::tags[0], Kind::tags[1], thirdTag<Kind>).then([&] {
    auto* dlyLine = static_cast<Value*>(state->dlyLine);
    if (dly == nullptr)
      std::fill_n(dlyLine, state->dlyLen, Value{});
    else
      by_type::copy(dly, dlyLine, state->dlyLen);
  });
}

}  // namespace

// clang-format off
#define DLY_LINE(GET, SET, Kind)                                                                     \
  ZorStatus GET(const ZorIIRState* state, Kind::Value* dly) { return get<Kind>(state, dly); }        \
  ZorStatus SET(ZorIIRState* state, const Kind::Value* dly) { return set<Kind>(state, dly); }
DLY_LINE(zorsIIRGetDlyLine_32f, zorsIIRSetDlyLine_32f, Iir32f)
DLY_LINE(zorsIIRGetDlyLine_32fc, zorsIIRSetDlyLine_32fc, Iir32fc)
DLY_LINE(zorsIIRGetDlyLine32f_16s, zorsIIRSetDlyLine32f_16s, Iir32f_16s)
DLY_LINE(zorsIIRGetDlyLine32fc_16sc, zorsIIRSetDlyLine32fc_16sc, Iir32fc_16sc)
DLY_LINE(zorsIIRGetDlyLine32s_16s, zorsIIRSetDlyLine32s_16s, Iir32s_16s)
DLY_LINE(zorsIIRGetDlyLine32sc_16sc, zorsIIRSetDlyLine32sc_16sc, Iir32sc_16sc)
DLY_LINE(zorsIIRGetDlyLine_64f, zorsIIRSetDlyLine_64f, Iir64f)
DLY_LINE(zorsIIRGetDlyLine_64fc, zorsIIRSetDlyLine_64fc, Iir64fc)
DLY_LINE(zorsIIRGetDlyLine64f_32f, zorsIIRSetDlyLine64f_32f, Iir64f_32f)
DLY_LINE(zorsIIRGetDlyLine64fc_32fc, zorsIIRSetDlyLine64fc_32fc, Iir64fc_32fc)
DLY_LINE(zorsIIRGetDlyLine64f_32s, zorsIIRSetDlyLine64f_32s, Iir64f_32s)
DLY_LINE(zorsIIRGetDlyLine64fc_32sc, zorsIIRSetDlyLine64fc_32sc, Iir64fc_32sc)
DLY_LINE(zorsIIRGetDlyLine64f_16s, zorsIIRSetDlyLine64f_16s, Iir64f_16s)
DLY_LINE(zorsIIRGetDlyLine64fc_16sc, zorsIIRSetDlyLine64fc_16sc, Iir64fc_16sc)
#undef DLY_LINE
// clang-format on

// Samples are integers here, the registers doubles that keep their fractions: only Get rounds.
ZorStatus zorsIIRGetDlyLine64f_DF1_32s(const ZorIIRState* state, Zor32s* dly) {
  return check().pointers(state, dly).state(state, tag("II30")).then([&] {
    return by_type::narrow(static_cast<const Zor64f*>(state->dlyLine), dly, state->dlyLen);
  });
}
ZorStatus zorsIIRSetDlyLine64f_DF1_32s(ZorIIRState* state, const Zor32s* dly) {
  return check().pointers(state).state(state, tag("II30")).then([&] {
    auto* dlyLine = static_cast<Zor64f*>(state->dlyLine);
    if (dly == nullptr)
      std::fill_n(dlyLine, state->dlyLen, 0.0);
    else
      by_type::widen(dly, dlyLine, state->dlyLen);
  });
}

}  // namespace zors
