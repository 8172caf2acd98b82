// zorsIIRGetStateSize*, zorsIIRInit*, zorsIIRInitAlloc*, zorsIIRFree*, zorsIIRSetTaps*: states and their taps.
#include "iir/iir_filter.h"

#include <algorithm>

namespace zors {
namespace {

// What a state takes lies in the stated size, wherever the block starts.
template <class Kind> consteval bool fits() {
  for (IirForm form : {IirForm::polynomial, IirForm::cascade, IirForm::firstForm})
    for (std::size_t count : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 100u, 101u, 102u, 103u, 1000u}) {
      if (form == IirForm::firstForm && !Kind::hasFirstForm) continue;
      Layout block(iirAlignment);
      layIir<typename Kind::Value>(block, form, count);
      const std::size_t last = iirRegistersLen(form, count) + iirTapsLen(form, count);
      const std::size_t behind = -last * sizeof(typename Kind::Value) % iirAlignment;  // counted, and never touched
      if (block.size() - behind > iirStateSize<Kind>(form, count)) return false;
    }
  return true;
}
template <class... Kinds> inline constexpr bool allFit = (fits<Kinds>() && ...);
static_assert(allFit<Iir32f, Iir32fc, Iir32f_16s, Iir32fc_16sc, Iir32s_16s, Iir32sc_16sc, Iir64f, Iir64fc, Iir64f_32f,
                     Iir64fc_32fc, Iir64f_32s, Iir64fc_32sc, Iir64f_16s, Iir64fc_16sc>);

template <class Kind, IirForm form> ZorStatus getStateSize(Zor32s count, Zor32s* size) {
  return check().pointers(size).require(count >= 1, zorStatusBadFilterOrder).then([&] {
    return tellSize(iirStateSize<Kind>(form, static_cast<std::size_t>(count)), size);
  });
}

// Taps as the arithmetic takes them: integers times 2^-tapsFactor, in an array of their own.
template <class Kind> ZorStatus storeTaps(ZorIIRState* state, const typename Kind::Tap* taps, Zor32s tapsFactor) {
  using Value = typename Kind::Value;
  if constexpr (Kind::integerTaps) {
    const auto count = static_cast<std::size_t>(state->count);
    const std::size_t tapsLen = state->form == IirForm::polynomial ? 2 * count + 2 : 6 * count;
    const OwnMemory memory(tapsLen * sizeof(Value));
    if (!memory) return zorStatusNoMemory;
    auto* converted = reinterpret_cast<Value*>(memory.data());
    zors::zorsConvert_32s32f_Sfs(components(taps), components(converted),
                                 componentsLen<Value>(static_cast<Zor32s>(tapsLen)), tapsFactor);
    return iirStoreTaps(state, static_cast<const Value*>(converted));
  } else {
    return iirStoreTaps(state, taps);
  }
}

// The registers as the caller has them: of the first form in 64 bits, the samples' integers.
template <class Kind, IirForm form>
using IirDly = std::conditional_t<form == IirForm::firstForm, typename Kind::Sample, typename Kind::Value>;

template <class Kind, IirForm form>
ZorStatus build(ZorIIRState** out, Zor8u* block, const typename Kind::Tap* taps, Zor32s count, Zor32s tapsFactor,
                const IirDly<Kind, form>* dly) {
  using Value = typename Kind::Value;
  Layout layout(iirAlignment, block);
  const IirParts parts = layIir<Value>(layout, form, static_cast<std::size_t>(count));
  ZorIIRState state = {.tag = Kind::tags[static_cast<int>(form)],
                       .form = form,
                       .count = count,
                       .dlyLen = static_cast<Zor32s>(iirDlyLen(form, static_cast<std::size_t>(count))),
                       .taps = parts.taps,
                       .dlyLine = parts.dlyLine,
                       .tables = parts.tables,
                       .scratch = parts.scratch};
  // Taps that are refused leave the block alone: it may hold a state in use.
  const ZorStatus status = storeTaps<Kind>(&state, taps, tapsFactor);
  if (status != zorStatusOk) return status;
  auto* dlyLine = static_cast<Value*>(state.dlyLine);
  if (dly == nullptr)
    std::fill_n(dlyLine, state.dlyLen, Value{});
  else
    by_type::widen(dly, dlyLine, state.dlyLen);
  if (form == IirForm::polynomial) dlyLine[count] = Value{};
  *parts.state = state;
  *out = parts.state;
  return zorStatusOk;
}

template <class Kind, IirForm form>
ZorStatus init(ZorIIRState** state, const typename Kind::Tap* taps, Zor32s count, Zor32s tapsFactor,
               const IirDly<Kind, form>* dly, Zor8u* buffer) {
  return check().pointers(taps, state, buffer).require(count >= 1, zorStatusBadFilterOrder).then([&]() -> ZorStatus {
    if (iirStateSize<Kind>(form, static_cast<std::size_t>(count)) > INT32_MAX) return zorStatusNoMemory;
    return build<Kind, form>(state, buffer, taps, count, tapsFactor, dly);
  });
}
template <class Kind, IirForm form>
ZorStatus initAlloc(ZorIIRState** state, const typename Kind::Tap* taps, Zor32s count, Zor32s tapsFactor,
                    const IirDly<Kind, form>* dly) {
  return check().pointers(taps, state).require(count >= 1, zorStatusBadFilterOrder).then([&] {
    return initAllocated(state, iirStateSize<Kind>(form, static_cast<std::size_t>(count)),
                         [&](Zor8u* block, ZorIIRState** object) {
                           return build<Kind, form>(object, block, taps, count, tapsFactor, dly);
                         });
  });
}

template <class Kind> ZorStatus release(ZorIIRState* state) {
  return freeObject(state, Kind::tags[0], Kind::tags[1], Kind::tags[2]);
}

template <class Kind> ZorStatus setTaps(const typename Kind::Tap* taps, ZorIIRState* state, Zor32s tapsFactor = 0) {
  return iirState<Kind>(check().pointers(taps, state), state).then([&] {
    return storeTaps<Kind>(state, taps, tapsFactor);
  });
}

}  // namespace

// clang-format off
#define FORM(STATE_SIZE, INIT, INIT_ALLOC, Kind, form)                                                                                                      \
  ZorStatus STATE_SIZE(Zor32s count, Zor32s* size) { return getStateSize<Kind, IirForm::form>(count, size); }                                             \
  ZorStatus INIT(ZorIIRState** state, const Kind::Tap* taps, Zor32s count, const IirDly<Kind, IirForm::form>* dly, Zor8u* buffer) { return init<Kind, IirForm::form>(state, taps, count, 0, dly, buffer); } \
  ZorStatus INIT_ALLOC(ZorIIRState** state, const Kind::Tap* taps, Zor32s count, const IirDly<Kind, IirForm::form>* dly) { return initAlloc<Kind, IirForm::form>(state, taps, count, 0, dly); }
#define FORM_FACTOR(STATE_SIZE, INIT, INIT_ALLOC, Kind, form)                                                                                               \
  ZorStatus STATE_SIZE(Zor32s count, Zor32s* size) { return getStateSize<Kind, IirForm::form>(count, size); }                                             \
  ZorStatus INIT(ZorIIRState** state, const Kind::Tap* taps, Zor32s count, Zor32s tapsFactor, const Kind::Value* dly, Zor8u* buffer) { return init<Kind, IirForm::form>(state, taps, count, tapsFactor, dly, buffer); } \
  ZorStatus INIT_ALLOC(ZorIIRState** state, const Kind::Tap* taps, Zor32s count, Zor32s tapsFactor, const Kind::Value* dly) { return initAlloc<Kind, IirForm::form>(state, taps, count, tapsFactor, dly); }
FORM(zorsIIRGetStateSize_32f, zorsIIRInit_32f, zorsIIRInitAlloc_32f, Iir32f, polynomial)
FORM(zorsIIRGetStateSize_BiQuad_32f, zorsIIRInit_BiQuad_32f, zorsIIRInitAlloc_BiQuad_32f, Iir32f, cascade)
FORM(zorsIIRGetStateSize_32fc, zorsIIRInit_32fc, zorsIIRInitAlloc_32fc, Iir32fc, polynomial)
FORM(zorsIIRGetStateSize_BiQuad_32fc, zorsIIRInit_BiQuad_32fc, zorsIIRInitAlloc_BiQuad_32fc, Iir32fc, cascade)
FORM(zorsIIRGetStateSize32f_16s, zorsIIRInit32f_16s, zorsIIRInitAlloc32f_16s, Iir32f_16s, polynomial)
FORM(zorsIIRGetStateSize32f_BiQuad_16s, zorsIIRInit32f_BiQuad_16s, zorsIIRInitAlloc32f_BiQuad_16s, Iir32f_16s, cascade)
FORM(zorsIIRGetStateSize32fc_16sc, zorsIIRInit32fc_16sc, zorsIIRInitAlloc32fc_16sc, Iir32fc_16sc, polynomial)
FORM(zorsIIRGetStateSize32fc_BiQuad_16sc, zorsIIRInit32fc_BiQuad_16sc, zorsIIRInitAlloc32fc_BiQuad_16sc, Iir32fc_16sc, cascade)
FORM_FACTOR(zorsIIRGetStateSize32s_16s, zorsIIRInit32s_16s, zorsIIRInitAlloc32s_16s, Iir32s_16s, polynomial)
FORM_FACTOR(zorsIIRGetStateSize32s_BiQuad_16s, zorsIIRInit32s_BiQuad_16s, zorsIIRInitAlloc32s_BiQuad_16s, Iir32s_16s, cascade)
FORM(zorsIIRGetStateSize32s_16s32f, zorsIIRInit32s_16s32f, zorsIIRInitAlloc32s_16s32f, Iir32s_16s32f, polynomial)
FORM(zorsIIRGetStateSize32s_BiQuad_16s32f, zorsIIRInit32s_BiQuad_16s32f, zorsIIRInitAlloc32s_BiQuad_16s32f, Iir32s_16s32f, cascade)
FORM_FACTOR(zorsIIRGetStateSize32sc_16sc, zorsIIRInit32sc_16sc, zorsIIRInitAlloc32sc_16sc, Iir32sc_16sc, polynomial)
FORM_FACTOR(zorsIIRGetStateSize32sc_BiQuad_16sc, zorsIIRInit32sc_BiQuad_16sc, zorsIIRInitAlloc32sc_BiQuad_16sc, Iir32sc_16sc, cascade)
FORM(zorsIIRGetStateSize32sc_16sc32fc, zorsIIRInit32sc_16sc32fc, zorsIIRInitAlloc32sc_16sc32fc, Iir32sc_16sc32fc, polynomial)
FORM(zorsIIRGetStateSize32sc_BiQuad_16sc32fc, zorsIIRInit32sc_BiQuad_16sc32fc, zorsIIRInitAlloc32sc_BiQuad_16sc32fc, Iir32sc_16sc32fc, cascade)
FORM(zorsIIRGetStateSize_64f, zorsIIRInit_64f, zorsIIRInitAlloc_64f, Iir64f, polynomial)
FORM(zorsIIRGetStateSize_BiQuad_64f, zorsIIRInit_BiQuad_64f, zorsIIRInitAlloc_BiQuad_64f, Iir64f, cascade)
FORM(zorsIIRGetStateSize_64fc, zorsIIRInit_64fc, zorsIIRInitAlloc_64fc, Iir64fc, polynomial)
FORM(zorsIIRGetStateSize_BiQuad_64fc, zorsIIRInit_BiQuad_64fc, zorsIIRInitAlloc_BiQuad_64fc, Iir64fc, cascade)
FORM(zorsIIRGetStateSize64f_32f, zorsIIRInit64f_32f, zorsIIRInitAlloc64f_32f, Iir64f_32f, polynomial)
FORM(zorsIIRGetStateSize64f_BiQuad_32f, zorsIIRInit64f_BiQuad_32f, zorsIIRInitAlloc64f_BiQuad_32f, Iir64f_32f, cascade)
FORM(zorsIIRGetStateSize64fc_32fc, zorsIIRInit64fc_32fc, zorsIIRInitAlloc64fc_32fc, Iir64fc_32fc, polynomial)
FORM(zorsIIRGetStateSize64fc_BiQuad_32fc, zorsIIRInit64fc_BiQuad_32fc, zorsIIRInitAlloc64fc_BiQuad_32fc, Iir64fc_32fc, cascade)
FORM(zorsIIRGetStateSize64f_32s, zorsIIRInit64f_32s, zorsIIRInitAlloc64f_32s, Iir64f_32s, polynomial)
FORM(zorsIIRGetStateSize64f_BiQuad_32s, zorsIIRInit64f_BiQuad_32s, zorsIIRInitAlloc64f_BiQuad_32s, Iir64f_32s, cascade)
FORM(zorsIIRGetStateSize64fc_32sc, zorsIIRInit64fc_32sc, zorsIIRInitAlloc64fc_32sc, Iir64fc_32sc, polynomial)
FORM(zorsIIRGetStateSize64fc_BiQuad_32sc, zorsIIRInit64fc_BiQuad_32sc, zorsIIRInitAlloc64fc_BiQuad_32sc, Iir64fc_32sc, cascade)
FORM(zorsIIRGetStateSize64f_16s, zorsIIRInit64f_16s, zorsIIRInitAlloc64f_16s, Iir64f_16s, polynomial)
FORM(zorsIIRGetStateSize64f_BiQuad_16s, zorsIIRInit64f_BiQuad_16s, zorsIIRInitAlloc64f_BiQuad_16s, Iir64f_16s, cascade)
FORM(zorsIIRGetStateSize64fc_16sc, zorsIIRInit64fc_16sc, zorsIIRInitAlloc64fc_16sc, Iir64fc_16sc, polynomial)
FORM(zorsIIRGetStateSize64fc_BiQuad_16sc, zorsIIRInit64fc_BiQuad_16sc, zorsIIRInitAlloc64fc_BiQuad_16sc, Iir64fc_16sc, cascade)
FORM(zorsIIRGetStateSize_BiQuad_DF1_32f, zorsIIRInit_BiQuad_DF1_32f, zorsIIRInitAlloc_BiQuad_DF1_32f, Iir32f, firstForm)
FORM(zorsIIRGetStateSize64f_BiQuad_DF1_32s, zorsIIRInit64f_BiQuad_DF1_32s, zorsIIRInitAlloc64f_BiQuad_DF1_32s, Iir64f_32s, firstForm)
#undef FORM
#undef FORM_FACTOR

#define FREE(name, Kind) ZorStatus name(ZorIIRState* state) { return release<Kind>(state); }
FREE(zorsIIRFree_32f, Iir32f)
FREE(zorsIIRFree_32fc, Iir32fc)
FREE(zorsIIRFree32f_16s, Iir32f_16s)
FREE(zorsIIRFree32fc_16sc, Iir32fc_16sc)
FREE(zorsIIRFree32s_16s, Iir32s_16s)
FREE(zorsIIRFree32sc_16sc, Iir32sc_16sc)
FREE(zorsIIRFree_64f, Iir64f)
FREE(zorsIIRFree_64fc, Iir64fc)
FREE(zorsIIRFree64f_32f, Iir64f_32f)
FREE(zorsIIRFree64fc_32fc, Iir64fc_32fc)
FREE(zorsIIRFree64f_32s, Iir64f_32s)
FREE(zorsIIRFree64fc_32sc, Iir64fc_32sc)
FREE(zorsIIRFree64f_16s, Iir64f_16s)
FREE(zorsIIRFree64fc_16sc, Iir64fc_16sc)
#undef FREE

#define TAPS(name, Kind) ZorStatus name(const Kind::Tap* taps, ZorIIRState* state) { return setTaps<Kind>(taps, state); }
TAPS(zorsIIRSetTaps_32f, Iir32f)
TAPS(zorsIIRSetTaps_32fc, Iir32fc)
TAPS(zorsIIRSetTaps32f_16s, Iir32f_16s)
TAPS(zorsIIRSetTaps32fc_16sc, Iir32fc_16sc)
TAPS(zorsIIRSetTaps32s_16s32f, Iir32s_16s32f)
TAPS(zorsIIRSetTaps32sc_16sc32fc, Iir32sc_16sc32fc)
TAPS(zorsIIRSetTaps_64f, Iir64f)
TAPS(zorsIIRSetTaps_64fc, Iir64fc)
TAPS(zorsIIRSetTaps64f_32f, Iir64f_32f)
TAPS(zorsIIRSetTaps64fc_32fc, Iir64fc_32fc)
TAPS(zorsIIRSetTaps64f_32s, Iir64f_32s)
TAPS(zorsIIRSetTaps64fc_32sc, Iir64fc_32sc)
TAPS(zorsIIRSetTaps64f_16s, Iir64f_16s)
TAPS(zorsIIRSetTaps64fc_16sc, Iir64fc_16sc)
#undef TAPS
ZorStatus zorsIIRSetTaps32s_16s(const Zor32s* taps, ZorIIRState* state, Zor32s tapsFactor) { return setTaps<Iir32s_16s>(taps, state, tapsFactor); }
ZorStatus zorsIIRSetTaps32sc_16sc(const Zor32sc* taps, ZorIIRState* state, Zor32s tapsFactor) { return setTaps<Iir32sc_16sc>(taps, state, tapsFactor); }
// clang-format on

}  // namespace zors
