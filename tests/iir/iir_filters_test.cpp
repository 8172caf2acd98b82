// The table of all IIR filters, and the model's samples.
#include "iir/iir_filters.h"

#include <cmath>

#include "kit/guarded.h"

namespace iir {
namespace {

using kit::ComplexPair;
using kit::Edge;
using kit::Guarded;

template <class T> T toType(Number x) {
  if constexpr (ComplexPair<T>)
    return {decltype(T::re)(x.re), decltype(T::re)(x.im)};
  else
    return T(x.re);
}
template <class T> Number toNumber(T x) {
  if constexpr (ComplexPair<T>)
    return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
  else
    return {static_cast<long double>(x), 0};
}
template <class T> std::vector<T> toTypes(const Numbers& x) {
  std::vector<T> all;
  for (Number n : x) all.push_back(toType<T>(n));
  return all;
}
template <class T> Numbers toNumbers(std::span<const T> x) {
  Numbers all;
  for (T n : x) all.push_back(toNumber(n));
  return all;
}
// Guarded copies: reading one value too many is a fault.
template <class T> Guarded<T> guarded(const Numbers* x, std::size_t away = 0) {
  return x == nullptr ? Guarded<T>(0) : Guarded<T>(toTypes<T>(*x), Edge::end, away * sizeof(T));
}
template <class T> T* pointer(const Numbers* x, const Guarded<T>& copy) { return x == nullptr ? nullptr : copy.data(); }

template <class F, class... A> auto callScaled(F f, Zor32s scaleFactor, A... arguments) {
  if constexpr (std::is_invocable_v<F, A..., Zor32s>)
    return f(arguments..., scaleFactor);
  else
    return f(arguments...);
}

template <class> struct DlyOf;
template <class T> struct DlyOf<ZorStatus (*)(const ZorIIRState*, T*)> { using type = T; };

template <class Tap, class Sample, class Value, class Init, class InitAlloc, class SetTaps, class GetDly, class SetDly,
          class Run, class RunInPlace, class One>
Filter row(const char* name, Form form, Zor32u tag, ZorStatus (*size)(Zor32s, Zor32s*), Init init, InitAlloc initAlloc,
           ZorStatus (*free)(ZorIIRState*), SetTaps setTaps, GetDly getDly, SetDly setDly, Run run,
           RunInPlace runInPlace, One one) {
  using Dly = typename DlyOf<GetDly>::type;
  using SamplePart = decltype([] {
    if constexpr (ComplexPair<Sample>)
      return decltype(Sample::re){};
    else
      return Sample{};
  }());
  constexpr bool integerTaps = std::is_same_v<Tap, Zor32s> || std::is_same_v<Tap, Zor32sc>;
  Filter f{.name = name,
           .form = form,
           .tag = tag,
           .complex = ComplexPair<Value>,
           .single = std::is_same_v<Value, Zor32f> || std::is_same_v<Value, Zor32fc>,
           .integerTaps = integerTaps,
           .integerDly = std::is_same_v<Dly, Zor32s>,
           .sampleBits = std::is_integral_v<SamplePart> ? int{sizeof(SamplePart)} * 8 : 0,
           .valueBytes = sizeof(Value),
           .dlyBytes = sizeof(Dly),
           .size = size,
           .init = {},
           .initAlloc = {},
           .free = free,
           .setTaps = {},
           .getDly = {},
           .setDly = {},
           .run = {},
           .one = {},
           .call = {},
           .callInPlace = {},
           .callOne = {}};
  f.init = [init](ZorIIRState** state, const Numbers* taps, Zor32s count, const Numbers* dly, Zor8u* buffer,
                  Zor32s factor) {
    const auto t = guarded<Tap>(taps);
    const auto d = guarded<Dly>(dly);
    const Dly* dp = pointer(dly, d);
    if constexpr (integerTaps)
      return init(state, pointer(taps, t), count, factor, dp, buffer);
    else
      return init(state, pointer(taps, t), count, dp, buffer);
  };
  f.initAlloc = [initAlloc](ZorIIRState** state, const Numbers* taps, Zor32s count, const Numbers* dly, Zor32s factor) {
    const auto t = guarded<Tap>(taps);
    const auto d = guarded<Dly>(dly);
    const Dly* dp = pointer(dly, d);
    if constexpr (integerTaps)
      return initAlloc(state, pointer(taps, t), count, factor, dp);
    else
      return initAlloc(state, pointer(taps, t), count, dp);
  };
  f.setTaps = [setTaps](const Numbers* taps, ZorIIRState* state, Zor32s factor) {
    const auto t = guarded<Tap>(taps);
    return callScaled(setTaps, factor, static_cast<const Tap*>(pointer(taps, t)), state);
  };
  f.getDly = [getDly](const ZorIIRState* state, Numbers* dly) {
    const auto d = guarded<Dly>(dly);
    const ZorStatus status = getDly(state, pointer(dly, d));
    if (dly != nullptr) *dly = toNumbers<Dly>(d.span());
    return status;
  };
  f.setDly = [setDly](ZorIIRState* state, const Numbers* dly) {
    const auto d = guarded<Dly>(dly);
    return setDly(state, pointer(dly, d));
  };
  f.run = [run, runInPlace](const Numbers& x, ZorIIRState* state, Zor32s scaleFactor, bool inPlace, std::size_t away) {
    const auto src = guarded<Sample>(&x, away), dst = guarded<Sample>(&x, away * 3 % 8);
    const auto before = src.values();
    const auto len = static_cast<Zor32s>(x.size());
    const ZorStatus status =
        inPlace ? callScaled(runInPlace, scaleFactor, dst.data(), len, state)
                : callScaled(run, scaleFactor, static_cast<const Sample*>(src.data()), dst.data(), len, state);
    EXPECT_EQ(status, zorStatusOk);
    EXPECT_TRUE(dst.intact());
    EXPECT_EQ(kit::firstDifference<Sample>(src.span(), before), "") << "source changed";
    return toNumbers<Sample>(dst.span());
  };
  f.one = [one](Number x, ZorIIRState* state, Zor32s scaleFactor) {
    Sample y{};
    EXPECT_EQ(callScaled(one, scaleFactor, toType<Sample>(x), &y, state), zorStatusOk);
    return toNumber(y);
  };
  f.call = [run](const void* src, void* dst, Zor32s len, ZorIIRState* state) {
    return callScaled(run, 0, static_cast<const Sample*>(src), static_cast<Sample*>(dst), len, state);
  };
  f.callInPlace = [runInPlace](void* srcDst, Zor32s len, ZorIIRState* state) {
    return callScaled(runInPlace, 0, static_cast<Sample*>(srcDst), len, state);
  };
  f.callOne = [one](void* dst, ZorIIRState* state) {
    return callScaled(one, 0, Sample{}, static_cast<Sample*>(dst), state);
  };
  return f;
}

}  // namespace

const std::vector<Filter>& filters() {
  // clang-format off
  static const std::vector<Filter> all = {
    row<Zor32f, Zor32f, Zor32f>("zorsIIRGetStateSize_32f", Form::polynomial, 0x49493031, zorsIIRGetStateSize_32f, zorsIIRInit_32f, zorsIIRInitAlloc_32f, zorsIIRFree_32f, zorsIIRSetTaps_32f, zorsIIRGetDlyLine_32f, zorsIIRSetDlyLine_32f, zorsIIR_32f, zorsIIR_32f_I, zorsIIROne_32f),
    row<Zor32f, Zor32f, Zor32f>("zorsIIRGetStateSize_BiQuad_32f", Form::cascade, 0x49493032, zorsIIRGetStateSize_BiQuad_32f, zorsIIRInit_BiQuad_32f, zorsIIRInitAlloc_BiQuad_32f, zorsIIRFree_32f, zorsIIRSetTaps_32f, zorsIIRGetDlyLine_32f, zorsIIRSetDlyLine_32f, zorsIIR_32f, zorsIIR_32f_I, zorsIIROne_32f),
    row<Zor32fc, Zor32fc, Zor32fc>("zorsIIRGetStateSize_32fc", Form::polynomial, 0x49493033, zorsIIRGetStateSize_32fc, zorsIIRInit_32fc, zorsIIRInitAlloc_32fc, zorsIIRFree_32fc, zorsIIRSetTaps_32fc, zorsIIRGetDlyLine_32fc, zorsIIRSetDlyLine_32fc, zorsIIR_32fc, zorsIIR_32fc_I, zorsIIROne_32fc),
    row<Zor32fc, Zor32fc, Zor32fc>("zorsIIRGetStateSize_BiQuad_32fc", Form::cascade, 0x49493034, zorsIIRGetStateSize_BiQuad_32fc, zorsIIRInit_BiQuad_32fc, zorsIIRInitAlloc_BiQuad_32fc, zorsIIRFree_32fc, zorsIIRSetTaps_32fc, zorsIIRGetDlyLine_32fc, zorsIIRSetDlyLine_32fc, zorsIIR_32fc, zorsIIR_32fc_I, zorsIIROne_32fc),
    row<Zor32f, Zor16s, Zor32f>("zorsIIRGetStateSize32f_16s", Form::polynomial, 0x49493035, zorsIIRGetStateSize32f_16s, zorsIIRInit32f_16s, zorsIIRInitAlloc32f_16s, zorsIIRFree32f_16s, zorsIIRSetTaps32f_16s, zorsIIRGetDlyLine32f_16s, zorsIIRSetDlyLine32f_16s, zorsIIR32f_16s_Sfs, zorsIIR32f_16s_ISfs, zorsIIROne32f_16s_Sfs),
    row<Zor32f, Zor16s, Zor32f>("zorsIIRGetStateSize32f_BiQuad_16s", Form::cascade, 0x49493036, zorsIIRGetStateSize32f_BiQuad_16s, zorsIIRInit32f_BiQuad_16s, zorsIIRInitAlloc32f_BiQuad_16s, zorsIIRFree32f_16s, zorsIIRSetTaps32f_16s, zorsIIRGetDlyLine32f_16s, zorsIIRSetDlyLine32f_16s, zorsIIR32f_16s_Sfs, zorsIIR32f_16s_ISfs, zorsIIROne32f_16s_Sfs),
    row<Zor32fc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32fc_16sc", Form::polynomial, 0x49493037, zorsIIRGetStateSize32fc_16sc, zorsIIRInit32fc_16sc, zorsIIRInitAlloc32fc_16sc, zorsIIRFree32fc_16sc, zorsIIRSetTaps32fc_16sc, zorsIIRGetDlyLine32fc_16sc, zorsIIRSetDlyLine32fc_16sc, zorsIIR32fc_16sc_Sfs, zorsIIR32fc_16sc_ISfs, zorsIIROne32fc_16sc_Sfs),
    row<Zor32fc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32fc_BiQuad_16sc", Form::cascade, 0x49493038, zorsIIRGetStateSize32fc_BiQuad_16sc, zorsIIRInit32fc_BiQuad_16sc, zorsIIRInitAlloc32fc_BiQuad_16sc, zorsIIRFree32fc_16sc, zorsIIRSetTaps32fc_16sc, zorsIIRGetDlyLine32fc_16sc, zorsIIRSetDlyLine32fc_16sc, zorsIIR32fc_16sc_Sfs, zorsIIR32fc_16sc_ISfs, zorsIIROne32fc_16sc_Sfs),
    row<Zor32s, Zor16s, Zor32f>("zorsIIRGetStateSize32s_16s", Form::polynomial, 0x49493039, zorsIIRGetStateSize32s_16s, zorsIIRInit32s_16s, zorsIIRInitAlloc32s_16s, zorsIIRFree32s_16s, zorsIIRSetTaps32s_16s, zorsIIRGetDlyLine32s_16s, zorsIIRSetDlyLine32s_16s, zorsIIR32s_16s_Sfs, zorsIIR32s_16s_ISfs, zorsIIROne32s_16s_Sfs),
    row<Zor32s, Zor16s, Zor32f>("zorsIIRGetStateSize32s_BiQuad_16s", Form::cascade, 0x49493130, zorsIIRGetStateSize32s_BiQuad_16s, zorsIIRInit32s_BiQuad_16s, zorsIIRInitAlloc32s_BiQuad_16s, zorsIIRFree32s_16s, zorsIIRSetTaps32s_16s, zorsIIRGetDlyLine32s_16s, zorsIIRSetDlyLine32s_16s, zorsIIR32s_16s_Sfs, zorsIIR32s_16s_ISfs, zorsIIROne32s_16s_Sfs),
    row<Zor32f, Zor16s, Zor32f>("zorsIIRGetStateSize32s_16s32f", Form::polynomial, 0x49493039, zorsIIRGetStateSize32s_16s32f, zorsIIRInit32s_16s32f, zorsIIRInitAlloc32s_16s32f, zorsIIRFree32s_16s, zorsIIRSetTaps32s_16s32f, zorsIIRGetDlyLine32s_16s, zorsIIRSetDlyLine32s_16s, zorsIIR32s_16s_Sfs, zorsIIR32s_16s_ISfs, zorsIIROne32s_16s_Sfs),
    row<Zor32f, Zor16s, Zor32f>("zorsIIRGetStateSize32s_BiQuad_16s32f", Form::cascade, 0x49493130, zorsIIRGetStateSize32s_BiQuad_16s32f, zorsIIRInit32s_BiQuad_16s32f, zorsIIRInitAlloc32s_BiQuad_16s32f, zorsIIRFree32s_16s, zorsIIRSetTaps32s_16s32f, zorsIIRGetDlyLine32s_16s, zorsIIRSetDlyLine32s_16s, zorsIIR32s_16s_Sfs, zorsIIR32s_16s_ISfs, zorsIIROne32s_16s_Sfs),
    row<Zor32sc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32sc_16sc", Form::polynomial, 0x49493131, zorsIIRGetStateSize32sc_16sc, zorsIIRInit32sc_16sc, zorsIIRInitAlloc32sc_16sc, zorsIIRFree32sc_16sc, zorsIIRSetTaps32sc_16sc, zorsIIRGetDlyLine32sc_16sc, zorsIIRSetDlyLine32sc_16sc, zorsIIR32sc_16sc_Sfs, zorsIIR32sc_16sc_ISfs, zorsIIROne32sc_16sc_Sfs),
    row<Zor32sc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32sc_BiQuad_16sc", Form::cascade, 0x49493132, zorsIIRGetStateSize32sc_BiQuad_16sc, zorsIIRInit32sc_BiQuad_16sc, zorsIIRInitAlloc32sc_BiQuad_16sc, zorsIIRFree32sc_16sc, zorsIIRSetTaps32sc_16sc, zorsIIRGetDlyLine32sc_16sc, zorsIIRSetDlyLine32sc_16sc, zorsIIR32sc_16sc_Sfs, zorsIIR32sc_16sc_ISfs, zorsIIROne32sc_16sc_Sfs),
    row<Zor32fc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32sc_16sc32fc", Form::polynomial, 0x49493131, zorsIIRGetStateSize32sc_16sc32fc, zorsIIRInit32sc_16sc32fc, zorsIIRInitAlloc32sc_16sc32fc, zorsIIRFree32sc_16sc, zorsIIRSetTaps32sc_16sc32fc, zorsIIRGetDlyLine32sc_16sc, zorsIIRSetDlyLine32sc_16sc, zorsIIR32sc_16sc_Sfs, zorsIIR32sc_16sc_ISfs, zorsIIROne32sc_16sc_Sfs),
    row<Zor32fc, Zor16sc, Zor32fc>("zorsIIRGetStateSize32sc_BiQuad_16sc32fc", Form::cascade, 0x49493132, zorsIIRGetStateSize32sc_BiQuad_16sc32fc, zorsIIRInit32sc_BiQuad_16sc32fc, zorsIIRInitAlloc32sc_BiQuad_16sc32fc, zorsIIRFree32sc_16sc, zorsIIRSetTaps32sc_16sc32fc, zorsIIRGetDlyLine32sc_16sc, zorsIIRSetDlyLine32sc_16sc, zorsIIR32sc_16sc_Sfs, zorsIIR32sc_16sc_ISfs, zorsIIROne32sc_16sc_Sfs),
    row<Zor64f, Zor64f, Zor64f>("zorsIIRGetStateSize_64f", Form::polynomial, 0x49493133, zorsIIRGetStateSize_64f, zorsIIRInit_64f, zorsIIRInitAlloc_64f, zorsIIRFree_64f, zorsIIRSetTaps_64f, zorsIIRGetDlyLine_64f, zorsIIRSetDlyLine_64f, zorsIIR_64f, zorsIIR_64f_I, zorsIIROne_64f),
    row<Zor64f, Zor64f, Zor64f>("zorsIIRGetStateSize_BiQuad_64f", Form::cascade, 0x49493134, zorsIIRGetStateSize_BiQuad_64f, zorsIIRInit_BiQuad_64f, zorsIIRInitAlloc_BiQuad_64f, zorsIIRFree_64f, zorsIIRSetTaps_64f, zorsIIRGetDlyLine_64f, zorsIIRSetDlyLine_64f, zorsIIR_64f, zorsIIR_64f_I, zorsIIROne_64f),
    row<Zor64fc, Zor64fc, Zor64fc>("zorsIIRGetStateSize_64fc", Form::polynomial, 0x49493135, zorsIIRGetStateSize_64fc, zorsIIRInit_64fc, zorsIIRInitAlloc_64fc, zorsIIRFree_64fc, zorsIIRSetTaps_64fc, zorsIIRGetDlyLine_64fc, zorsIIRSetDlyLine_64fc, zorsIIR_64fc, zorsIIR_64fc_I, zorsIIROne_64fc),
    row<Zor64fc, Zor64fc, Zor64fc>("zorsIIRGetStateSize_BiQuad_64fc", Form::cascade, 0x49493136, zorsIIRGetStateSize_BiQuad_64fc, zorsIIRInit_BiQuad_64fc, zorsIIRInitAlloc_BiQuad_64fc, zorsIIRFree_64fc, zorsIIRSetTaps_64fc, zorsIIRGetDlyLine_64fc, zorsIIRSetDlyLine_64fc, zorsIIR_64fc, zorsIIR_64fc_I, zorsIIROne_64fc),
    row<Zor64f, Zor32f, Zor64f>("zorsIIRGetStateSize64f_32f", Form::polynomial, 0x49493137, zorsIIRGetStateSize64f_32f, zorsIIRInit64f_32f, zorsIIRInitAlloc64f_32f, zorsIIRFree64f_32f, zorsIIRSetTaps64f_32f, zorsIIRGetDlyLine64f_32f, zorsIIRSetDlyLine64f_32f, zorsIIR64f_32f, zorsIIR64f_32f_I, zorsIIROne64f_32f),
    row<Zor64f, Zor32f, Zor64f>("zorsIIRGetStateSize64f_BiQuad_32f", Form::cascade, 0x49493138, zorsIIRGetStateSize64f_BiQuad_32f, zorsIIRInit64f_BiQuad_32f, zorsIIRInitAlloc64f_BiQuad_32f, zorsIIRFree64f_32f, zorsIIRSetTaps64f_32f, zorsIIRGetDlyLine64f_32f, zorsIIRSetDlyLine64f_32f, zorsIIR64f_32f, zorsIIR64f_32f_I, zorsIIROne64f_32f),
    row<Zor64fc, Zor32fc, Zor64fc>("zorsIIRGetStateSize64fc_32fc", Form::polynomial, 0x49493139, zorsIIRGetStateSize64fc_32fc, zorsIIRInit64fc_32fc, zorsIIRInitAlloc64fc_32fc, zorsIIRFree64fc_32fc, zorsIIRSetTaps64fc_32fc, zorsIIRGetDlyLine64fc_32fc, zorsIIRSetDlyLine64fc_32fc, zorsIIR64fc_32fc, zorsIIR64fc_32fc_I, zorsIIROne64fc_32fc),
    row<Zor64fc, Zor32fc, Zor64fc>("zorsIIRGetStateSize64fc_BiQuad_32fc", Form::cascade, 0x49493230, zorsIIRGetStateSize64fc_BiQuad_32fc, zorsIIRInit64fc_BiQuad_32fc, zorsIIRInitAlloc64fc_BiQuad_32fc, zorsIIRFree64fc_32fc, zorsIIRSetTaps64fc_32fc, zorsIIRGetDlyLine64fc_32fc, zorsIIRSetDlyLine64fc_32fc, zorsIIR64fc_32fc, zorsIIR64fc_32fc_I, zorsIIROne64fc_32fc),
    row<Zor64f, Zor32s, Zor64f>("zorsIIRGetStateSize64f_32s", Form::polynomial, 0x49493231, zorsIIRGetStateSize64f_32s, zorsIIRInit64f_32s, zorsIIRInitAlloc64f_32s, zorsIIRFree64f_32s, zorsIIRSetTaps64f_32s, zorsIIRGetDlyLine64f_32s, zorsIIRSetDlyLine64f_32s, zorsIIR64f_32s_Sfs, zorsIIR64f_32s_ISfs, zorsIIROne64f_32s_Sfs),
    row<Zor64f, Zor32s, Zor64f>("zorsIIRGetStateSize64f_BiQuad_32s", Form::cascade, 0x49493232, zorsIIRGetStateSize64f_BiQuad_32s, zorsIIRInit64f_BiQuad_32s, zorsIIRInitAlloc64f_BiQuad_32s, zorsIIRFree64f_32s, zorsIIRSetTaps64f_32s, zorsIIRGetDlyLine64f_32s, zorsIIRSetDlyLine64f_32s, zorsIIR64f_32s_Sfs, zorsIIR64f_32s_ISfs, zorsIIROne64f_32s_Sfs),
    row<Zor64fc, Zor32sc, Zor64fc>("zorsIIRGetStateSize64fc_32sc", Form::polynomial, 0x49493233, zorsIIRGetStateSize64fc_32sc, zorsIIRInit64fc_32sc, zorsIIRInitAlloc64fc_32sc, zorsIIRFree64fc_32sc, zorsIIRSetTaps64fc_32sc, zorsIIRGetDlyLine64fc_32sc, zorsIIRSetDlyLine64fc_32sc, zorsIIR64fc_32sc_Sfs, zorsIIR64fc_32sc_ISfs, zorsIIROne64fc_32sc_Sfs),
    row<Zor64fc, Zor32sc, Zor64fc>("zorsIIRGetStateSize64fc_BiQuad_32sc", Form::cascade, 0x49493234, zorsIIRGetStateSize64fc_BiQuad_32sc, zorsIIRInit64fc_BiQuad_32sc, zorsIIRInitAlloc64fc_BiQuad_32sc, zorsIIRFree64fc_32sc, zorsIIRSetTaps64fc_32sc, zorsIIRGetDlyLine64fc_32sc, zorsIIRSetDlyLine64fc_32sc, zorsIIR64fc_32sc_Sfs, zorsIIR64fc_32sc_ISfs, zorsIIROne64fc_32sc_Sfs),
    row<Zor64f, Zor16s, Zor64f>("zorsIIRGetStateSize64f_16s", Form::polynomial, 0x49493235, zorsIIRGetStateSize64f_16s, zorsIIRInit64f_16s, zorsIIRInitAlloc64f_16s, zorsIIRFree64f_16s, zorsIIRSetTaps64f_16s, zorsIIRGetDlyLine64f_16s, zorsIIRSetDlyLine64f_16s, zorsIIR64f_16s_Sfs, zorsIIR64f_16s_ISfs, zorsIIROne64f_16s_Sfs),
    row<Zor64f, Zor16s, Zor64f>("zorsIIRGetStateSize64f_BiQuad_16s", Form::cascade, 0x49493236, zorsIIRGetStateSize64f_BiQuad_16s, zorsIIRInit64f_BiQuad_16s, zorsIIRInitAlloc64f_BiQuad_16s, zorsIIRFree64f_16s, zorsIIRSetTaps64f_16s, zorsIIRGetDlyLine64f_16s, zorsIIRSetDlyLine64f_16s, zorsIIR64f_16s_Sfs, zorsIIR64f_16s_ISfs, zorsIIROne64f_16s_Sfs),
    row<Zor64fc, Zor16sc, Zor64fc>("zorsIIRGetStateSize64fc_16sc", Form::polynomial, 0x49493237, zorsIIRGetStateSize64fc_16sc, zorsIIRInit64fc_16sc, zorsIIRInitAlloc64fc_16sc, zorsIIRFree64fc_16sc, zorsIIRSetTaps64fc_16sc, zorsIIRGetDlyLine64fc_16sc, zorsIIRSetDlyLine64fc_16sc, zorsIIR64fc_16sc_Sfs, zorsIIR64fc_16sc_ISfs, zorsIIROne64fc_16sc_Sfs),
    row<Zor64fc, Zor16sc, Zor64fc>("zorsIIRGetStateSize64fc_BiQuad_16sc", Form::cascade, 0x49493238, zorsIIRGetStateSize64fc_BiQuad_16sc, zorsIIRInit64fc_BiQuad_16sc, zorsIIRInitAlloc64fc_BiQuad_16sc, zorsIIRFree64fc_16sc, zorsIIRSetTaps64fc_16sc, zorsIIRGetDlyLine64fc_16sc, zorsIIRSetDlyLine64fc_16sc, zorsIIR64fc_16sc_Sfs, zorsIIR64fc_16sc_ISfs, zorsIIROne64fc_16sc_Sfs),
    row<Zor32f, Zor32f, Zor32f>("zorsIIRGetStateSize_BiQuad_DF1_32f", Form::firstForm, 0x49493239, zorsIIRGetStateSize_BiQuad_DF1_32f, zorsIIRInit_BiQuad_DF1_32f, zorsIIRInitAlloc_BiQuad_DF1_32f, zorsIIRFree_32f, zorsIIRSetTaps_32f, zorsIIRGetDlyLine_32f, zorsIIRSetDlyLine_32f, zorsIIR_32f, zorsIIR_32f_I, zorsIIROne_32f),
    row<Zor64f, Zor32s, Zor64f>("zorsIIRGetStateSize64f_BiQuad_DF1_32s", Form::firstForm, 0x49493330, zorsIIRGetStateSize64f_BiQuad_DF1_32s, zorsIIRInit64f_BiQuad_DF1_32s, zorsIIRInitAlloc64f_BiQuad_DF1_32s, zorsIIRFree64f_32s, zorsIIRSetTaps64f_32s, zorsIIRGetDlyLine64f_DF1_32s, zorsIIRSetDlyLine64f_DF1_32s, zorsIIR64f_32s_Sfs, zorsIIR64f_32s_ISfs, zorsIIROne64f_32s_Sfs),
  };
  // clang-format on
  return all;
}

long double toSample(long double y, int bits, Zor32s scaleFactor, bool cut) {
  const long double low = -std::ldexp(1.0L, bits - 1), high = -low - 1;
  if (std::isnan(y)) return low;
  const long double scaled = std::ldexp(y, scaleFactor < -20000 ? 20000 : scaleFactor > 20000 ? -20000 : -scaleFactor);
  const long double whole = cut ? std::trunc(scaled) : std::nearbyint(scaled);
  return std::fmin(std::fmax(whole, low), high);
}

Numbers expected(const Filter& filter, Model& model, const Numbers& x, int count, Zor32s scaleFactor) {
  Numbers y;
  for (std::size_t i = 0; i < x.size(); ++i) {
    y.push_back(model.step(x[i]));
    if (filter.sampleBits == 0) continue;
    const std::size_t chunk = std::min<std::size_t>(1024, x.size() - i / 1024 * 1024);
    const bool cut = filter.cutsFirst() && i % 1024 < 2 && chunk > 4 * std::size_t(count);
    y[i] = {toSample(y[i].re, filter.sampleBits, scaleFactor, cut),
            filter.complex ? toSample(y[i].im, filter.sampleBits, scaleFactor, cut) : 0};
  }
  return y;
}

Numbers integerTaps(const Filter& filter, int count, kit::Random& random) {
  const auto small = [&] { return static_cast<long double>(random() % 5) - 2; };
  const auto any = [&] { return Number{small(), filter.complex ? small() : 0}; };
  // Substituting i z for z turns the roots by a right angle: a[k] times i^k.
  const Number i = filter.complex ? Number{0, 1} : Number{1, 0}, two{2, 0};
  Numbers taps;
  if (filter.form == Form::polynomial) {
    for (int k = 0; k <= count; ++k) taps.push_back(two * any());
    Number power = two;
    for (int k = 0; k <= count; ++k, power = power * i) taps.push_back(power);
    return taps;
  }
  static constexpr int recursive[4][2] = {{1, 1}, {-1, 1}, {0, 1}, {0, -1}};
  for (int s = 0; s < count; ++s) {
    const bool plain = s >= 4;
    const int* a = recursive[s % 4];
    const Number sign{random() % 2 == 0 ? 1.0L : -1.0L, 0};
    taps.insert(taps.end(), {two * sign, plain ? Number{} : two * any(), plain ? Number{} : two * any(), two});
    const long double a1 = plain ? 0 : a[0], a2 = plain ? 0 : a[1];
    taps.insert(taps.end(), {two * i * Number{a1, 0}, two * i * i * Number{a2, 0}});
  }
  return taps;
}

Numbers integerSamples(const Filter& filter, std::size_t len, int largest, kit::Random& random) {
  const auto part = [&] {
    return static_cast<long double>(random() % static_cast<unsigned>(2 * largest + 1)) - largest;
  };
  Numbers x(len);
  for (Number& n : x) n = {part(), filter.complex ? part() : 0};
  return x;
}

TEST(IirFilters, TheTableHoldsEveryKindOnce) {
  EXPECT_EQ(filters().size(), 34u);
  for (const Filter& f : filters())
    for (const Filter& g : filters()) EXPECT_TRUE(&f == &g || f.name != g.name);
}

}  // namespace iir
