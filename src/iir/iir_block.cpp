// zorsIIR_* and kin, zorsIIROne*: blocks and single samples through a state.
#include "iir/iir_run.h"
#include "iir/iir_step.h"

namespace zors {
namespace {

template <class Kind>
ZorStatus filter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorIIRState* state,
                 Zor32s scaleFactor = 0) {
  return iirState<Kind>(check().pointers(src, dst, state).size(len), state).then([&] {
    iirFilter<Kind>(src, dst, len, state, scaleFactor);
  });
}

template <class Kind>
ZorStatus filterOne(typename Kind::Sample val, typename Kind::Sample* dst, ZorIIRState* state, Zor32s scaleFactor = 0) {
  return iirState<Kind>(check().pointers(dst, state), state).then([&] {
    if constexpr (Kind::converts) {
      typename Kind::Value value;
      by_type::widen(&val, &value, 1);
      value = iir::step(state, value);
      iirNarrow<Kind>(&value, dst, 1, scaleFactor);
    } else {
      *dst = iir::step(state, val);
    }
  });
}

}  // namespace

// clang-format off
#define ROWS(IIR, IIR_I, ONE, Kind)                                                                                                             \
  ZorStatus IIR(const Kind::Sample* src, Kind::Sample* dst, Zor32s len, ZorIIRState* state) { return filter<Kind>(src, dst, len, state); }      \
  ZorStatus IIR_I(Kind::Sample* srcDst, Zor32s len, ZorIIRState* state) { return filter<Kind>(srcDst, srcDst, len, state); }                    \
  ZorStatus ONE(Kind::Sample val, Kind::Sample* dst, ZorIIRState* state) { return filterOne<Kind>(val, dst, state); }
#define ROWS_SFS(IIR, IIR_I, ONE, Kind)                                                                                                         \
  ZorStatus IIR(const Kind::Sample* src, Kind::Sample* dst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor) { return filter<Kind>(src, dst, len, state, scaleFactor); } \
  ZorStatus IIR_I(Kind::Sample* srcDst, Zor32s len, ZorIIRState* state, Zor32s scaleFactor) { return filter<Kind>(srcDst, srcDst, len, state, scaleFactor); } \
  ZorStatus ONE(Kind::Sample val, Kind::Sample* dst, ZorIIRState* state, Zor32s scaleFactor) { return filterOne<Kind>(val, dst, state, scaleFactor); }
ROWS(zorsIIR_32f, zorsIIR_32f_I, zorsIIROne_32f, Iir32f)
ROWS(zorsIIR_32fc, zorsIIR_32fc_I, zorsIIROne_32fc, Iir32fc)
ROWS(zorsIIR_64f, zorsIIR_64f_I, zorsIIROne_64f, Iir64f)
ROWS(zorsIIR_64fc, zorsIIR_64fc_I, zorsIIROne_64fc, Iir64fc)
ROWS(zorsIIR64f_32f, zorsIIR64f_32f_I, zorsIIROne64f_32f, Iir64f_32f)
ROWS(zorsIIR64fc_32fc, zorsIIR64fc_32fc_I, zorsIIROne64fc_32fc, Iir64fc_32fc)
ROWS_SFS(zorsIIR32f_16s_Sfs, zorsIIR32f_16s_ISfs, zorsIIROne32f_16s_Sfs, Iir32f_16s)
ROWS_SFS(zorsIIR32fc_16sc_Sfs, zorsIIR32fc_16sc_ISfs, zorsIIROne32fc_16sc_Sfs, Iir32fc_16sc)
ROWS_SFS(zorsIIR32s_16s_Sfs, zorsIIR32s_16s_ISfs, zorsIIROne32s_16s_Sfs, Iir32s_16s)
ROWS_SFS(zorsIIR32sc_16sc_Sfs, zorsIIR32sc_16sc_ISfs, zorsIIROne32sc_16sc_Sfs, Iir32sc_16sc)
ROWS_SFS(zorsIIR64f_16s_Sfs, zorsIIR64f_16s_ISfs, zorsIIROne64f_16s_Sfs, Iir64f_16s)
ROWS_SFS(zorsIIR64f_32s_Sfs, zorsIIR64f_32s_ISfs, zorsIIROne64f_32s_Sfs, Iir64f_32s)
ROWS_SFS(zorsIIR64fc_16sc_Sfs, zorsIIR64fc_16sc_ISfs, zorsIIROne64fc_16sc_Sfs, Iir64fc_16sc)
ROWS_SFS(zorsIIR64fc_32sc_Sfs, zorsIIR64fc_32sc_ISfs, zorsIIROne64fc_32sc_Sfs, Iir64fc_32sc)
#undef ROWS
#undef ROWS_SFS
// clang-format on

}  // namespace zors
