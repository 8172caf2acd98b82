// zorsThreshold_<type>: thresholds by selector.
#include "exports/thresholds.h"
#include "frame/check.h"

namespace zors {
namespace {

template <class T, class R, class Threshold>
ZorStatus select(const T* src, T* dst, Zor32s len, R level, ZorCmpOp relOp, Threshold* below, Threshold* above) {
  return check()
      .pointers(src, dst)
      .size(len)
      .require(relOp == zorCmpLess || relOp == zorCmpGreater, zorStatusBadArgument)
      .then([&] { return (relOp == zorCmpLess ? below : above)(src, dst, len, level); });
}

}  // namespace

// clang-format off
ZorStatus zorsThreshold_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_16s, zors::zorsThreshold_GT_16s); }
ZorStatus zorsThreshold_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_32f, zors::zorsThreshold_GT_32f); }
ZorStatus zorsThreshold_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_64f, zors::zorsThreshold_GT_64f); }
ZorStatus zorsThreshold_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_16sc, zors::zorsThreshold_GT_16sc); }
ZorStatus zorsThreshold_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_32fc, zors::zorsThreshold_GT_32fc); }
ZorStatus zorsThreshold_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, ZorCmpOp relOp) { return select(src, dst, len, level, relOp, zors::zorsThreshold_LT_64fc, zors::zorsThreshold_GT_64fc); }
ZorStatus zorsThreshold_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_16s, zors::zorsThreshold_GT_16s); }
ZorStatus zorsThreshold_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_32f, zors::zorsThreshold_GT_32f); }
ZorStatus zorsThreshold_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_64f, zors::zorsThreshold_GT_64f); }
ZorStatus zorsThreshold_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_16sc, zors::zorsThreshold_GT_16sc); }
ZorStatus zorsThreshold_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_32fc, zors::zorsThreshold_GT_32fc); }
ZorStatus zorsThreshold_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp) { return select(srcDst, srcDst, len, level, relOp, zors::zorsThreshold_LT_64fc, zors::zorsThreshold_GT_64fc); }
// clang-format on

}  // namespace zors
