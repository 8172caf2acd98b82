/** @file
 *  Replacement of elements below, above or between levels. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_THRESHOLDS_H
#define ZORS_THRESHOLDS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Threshold by selector
 *  RelOp zorCmpLess is LT below, zorCmpGreater is GT, any other zorStatusBadArgument, which is
 *  tested after pointers and len and before the level. In place: srcDst instead of src and dst, here and below.
 *  @{ */
ZorStatus zorsThreshold_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp);
/** @} */

/** @name LT
 *  dst[i] = src[i] < level ? level : src[i]; GT: src[i] > level ? level : src[i]. As the processor's maximum and
 *  minimum with level as the second operand: a NaN element becomes level.
 *  @{ */
ZorStatus zorsThreshold_LT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
/** @} */

/** @name LTAbs
 *  Where |src[i]| < level, level with the sign of src[i]; GTAbs: where |src[i]| > level. Other elements, NaN
 *  too, are kept. Integer zeros are positive, float zeros have their sign. Checks: pointers, len, then a level
 *  below 0, zorStatusNegativeThresholdLevel.
 *  @{ */
ZorStatus zorsThreshold_LTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
/** @} */

/** @name LTVal
 *  Where src[i] < level, value; GTVal: where src[i] > level. A NaN is kept by LTVal and replaced by GTVal.
 *  @{ */
ZorStatus zorsThreshold_LTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_LTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_LTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_LTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_LTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_LTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_GTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_GTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_GTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_GTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_GTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_GTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value);
/** @} */

/** @name LTValGTVal
 *  Where src[i] < levelLT, valueLT; where src[i] > levelGT, valueGT. NaN is kept. Checks: pointers, len,
 *  then levelLT above levelGT, zorStatusThresholdLevelsCrossed.
 *  @{ */
ZorStatus zorsThreshold_LTValGTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s levelLT, Zor16s valueLT,
                                       Zor16s levelGT, Zor16s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s levelLT, Zor32s valueLT,
                                       Zor32s levelGT, Zor32s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f levelLT, Zor32f valueLT,
                                       Zor32f levelGT, Zor32f valueGT);
ZorStatus zorsThreshold_LTValGTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f levelLT, Zor64f valueLT,
                                       Zor64f levelGT, Zor64f valueGT);
ZorStatus zorsThreshold_LTValGTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s levelLT, Zor16s valueLT, Zor16s levelGT,
                                         Zor16s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32s_I(Zor32s* srcDst, Zor32s len, Zor32s levelLT, Zor32s valueLT, Zor32s levelGT,
                                         Zor32s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f levelLT, Zor32f valueLT, Zor32f levelGT,
                                         Zor32f valueGT);
ZorStatus zorsThreshold_LTValGTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f levelLT, Zor64f valueLT, Zor64f levelGT,
                                         Zor64f valueGT);
/** @} */

/** @name LT, GT of complex elements
 *  One whose magnitude is below (above) level is drawn to the magnitude level, its phase
 *  kept; by LT a zero becomes (level, 0). Level 0: LT copies, GT gives zeros. Checks: pointers, len, then a level
 *  below 0, zorStatusNegativeThresholdLevel.
 *  Numerics: m = round(round(re^2) + round(im^2)), of 16sc exact, against round(level^2); LT replaces unless m is
 *  at least that, so NaN too, GT where m is greater. An element whose m is 0 is a zero. 32fc: both parts times (0.5
 *  * level * r) * (3 - m * r * r), each operation rounded, with the processor's estimate r of 1 / sqrt(m); of four
 *  elements from element 0 on, if one is replaced, the kept ones are multiplied by the factor that level^2 gives,
 *  and may change in the last bit. 64fc: times sqrt(level^2 / m). 16sc: that factor in binary64 times each part's
 *  magnitude, plus 0.99999999999 (LT) or 1.25e-11 (GT), truncated: so the magnitude stays at or above (below)
 *  level.
 *  @{ */
ZorStatus zorsThreshold_LT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);
/** @} */

/** @name LTVal, GTVal of complex elements
 *  One whose magnitude is below (above) level becomes value. Squares as above; a NaN
 *  is kept by LTVal and replaced by GTVal. Checks: pointers, len, then a level below 0,
 *  zorStatusNegativeThresholdLevel.
 *  @{ */
ZorStatus zorsThreshold_LTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_LTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_LTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_LTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_LTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_LTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_GTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_GTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_GTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_GTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_GTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_GTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value);
/** @} */

/** @name LTInv
 *  1 / src[i] after the magnitude has been raised to level at least, the sign or phase kept; a NaN counts as
 *  the level. With level 0 a zero gives infinity, of its sign if real, and the result is zorWarningInverseOfZero.
 *  Checks: pointers, len, then a level below 0, zorStatusNegativeThresholdLevel. All exceptions are masked for the
 *  call.
 *  Numerics: 32f, with m the raised magnitude: r * (2 - m * r), each operation rounded, with the processor's
 *  estimate r of 1 / m, 0 for the largest m; the reciprocal of a denormal is at most the largest finite number.
 *  32fc: conj(src[i]) times the same of m = max(|src[i]|^2, level^2), a zero gives (1 / level, 0). 64f, 64fc:
 *  divisions.
 *  @{ */
ZorStatus zorsThreshold_LTInv_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
