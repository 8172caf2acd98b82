/** @file
 *  Sums, means, norms, dot products, deviations; extremes and counters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_STATISTICS_H
#define ZORS_STATISTICS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Max, Min
 *  The greatest, the smallest element. MaxIndx, MinIndx: and the index of the first one; a null index asks for
 *  the extreme alone. MaxAbs, MinAbs: of the magnitudes, that of the lowest integer taken as the highest one. NaN: the
 *  running extreme starts at src[0] and is replaced by what compares greater (less): NaNs count only as src[0], which
 *  then is the result. Of zeros of both signs the first is found. No dependence on alignment.
 *  @{ */
ZorStatus zorsMax_16s(const Zor16s* src, Zor32s len, Zor16s* max);
ZorStatus zorsMax_32s(const Zor32s* src, Zor32s len, Zor32s* max);
ZorStatus zorsMax_32f(const Zor32f* src, Zor32s len, Zor32f* max);
ZorStatus zorsMax_64f(const Zor64f* src, Zor32s len, Zor64f* max);
ZorStatus zorsMin_16s(const Zor16s* src, Zor32s len, Zor16s* min);
ZorStatus zorsMin_32s(const Zor32s* src, Zor32s len, Zor32s* min);
ZorStatus zorsMin_32f(const Zor32f* src, Zor32s len, Zor32f* min);
ZorStatus zorsMin_64f(const Zor64f* src, Zor32s len, Zor64f* min);
ZorStatus zorsMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* max, Zor32s* index);
ZorStatus zorsMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* max, Zor32s* index);
ZorStatus zorsMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* max, Zor32s* index);
ZorStatus zorsMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* max, Zor32s* index);
ZorStatus zorsMinIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* index);
ZorStatus zorsMinIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* index);
ZorStatus zorsMinIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* index);
ZorStatus zorsMinIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* index);
ZorStatus zorsMaxAbs_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs);
ZorStatus zorsMaxAbs_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs);
ZorStatus zorsMinAbs_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs);
ZorStatus zorsMinAbs_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs);
ZorStatus zorsMaxAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs, Zor32s* index);
ZorStatus zorsMaxAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs, Zor32s* index);
ZorStatus zorsMinAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs, Zor32s* index);
ZorStatus zorsMinAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs, Zor32s* index);
/** @} */

/** @name MinMax, MinMaxIndx
 *  Both extremes in one pass, as Min and Max find them. All result pointers are required.
 *  @{ */
ZorStatus zorsMinMax_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor8u* max);
ZorStatus zorsMinMax_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor16u* max);
ZorStatus zorsMinMax_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor16s* max);
ZorStatus zorsMinMax_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32u* max);
ZorStatus zorsMinMax_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* max);
ZorStatus zorsMinMax_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32f* max);
ZorStatus zorsMinMax_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor64f* max);
ZorStatus zorsMinMaxIndx_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor32s* minIndex, Zor8u* max, Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor32s* minIndex, Zor16u* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* minIndex, Zor16s* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32s* minIndex, Zor32u* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* minIndex, Zor32s* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* minIndex, Zor32f* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* minIndex, Zor64f* max,
                             Zor32s* maxIndex);
/** @} */

/** @name MaxEvery, MinEvery
 *  dst[i] is the greater (smaller) of src1[i] and src2[i], in place of src[i] and srcDst[i]. Floats:
 *  the second operand where the two compare equal or one is NaN.
 *  @{ */
ZorStatus zorsMaxEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsMaxEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMaxEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMaxEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMinEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsMinEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMinEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMinEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMaxEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMinEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsMinEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsMinEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMinEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsMinEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMinEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
/** @} */

/** @name FindNearest
 *  The entry of an ascending table nearest to a value, and its index; the lower of two entries equally
 *  near. Checks: pointers, len, tableLen below 1 (zorStatusBadSize).
 *  @{ */
ZorStatus zorsFindNearestOne_16u(Zor16u val, Zor16u* nearest, Zor32s* index, const Zor16u* table, Zor32s tableLen);
ZorStatus zorsFindNearest_16u(const Zor16u* src, Zor16u* dst, Zor32s* dstIndex, Zor32s len, const Zor16u* table,
                              Zor32s tableLen);
/** @} */

/** @name CountInRange
 *  How many elements are above lowerBound and below upperBound; neither bound counts.
 *  @{ */
ZorStatus zorsCountInRange_32s(const Zor32s* src, Zor32s len, Zor32s* count, Zor32s lowerBound, Zor32s upperBound);
/** @} */

/** @name ZeroCrossing, over neighbouring pairs
 *  Mode 0: pairs whose product is negative; 1: pairs whose sign bits differ; 2:
 *  half the sum of the distances of their signs -1, 0, 1 (of integers rounded down). Checks: pointers; len of 0
 *  (zorStatusBadSize; a negative one has no pairs); another mode (zorStatusBadModeOption).
 *  @{ */
ZorStatus zorsZeroCrossing_16s32f(const Zor16s* src, Zor32s len, Zor32f* result, Zor32s mode);
ZorStatus zorsZeroCrossing_32f(const Zor32f* src, Zor32s len, Zor32f* result, Zor32s mode);
/** @} */

/** @name Sum of floats; complex components apart
 *  Hint 1 selects the fast sums of 32f and 32fc, every other value the accurate
 *  ones. Results depend on src's alignment: elements before the first 32-byte boundary are added first, one by one, and
 *  seed sum 0. Numerics, 32f: accurate sums are binary64, one sequence below 32 elements (and from 57 on where src is
 *  not aligned to 4 bytes), else eight sums, joined as ((p0 + p4) + (p2 + p6)) + ((p1 + p5) + (p3 + p7)), the rest in
 *  four sums, then one by one; the prefix is taken from 57 elements on. Fast sums run in binary32 within blocks of
 *  8,192, 32 sums each, and binary64 across. 32fc: the same over interleaved components. 64f: 16 sums; one sequence
 *  where src is not aligned to 8 bytes.
 *  @{ */
ZorStatus zorsSum_32f(const Zor32f* src, Zor32s len, Zor32f* sum, ZorHintAlgorithm hint);
ZorStatus zorsSum_32fc(const Zor32fc* src, Zor32s len, Zor32fc* sum, ZorHintAlgorithm hint);
ZorStatus zorsSum_64f(const Zor64f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSum_64fc(const Zor64fc* src, Zor32s len, Zor64fc* sum);
/** @} */

/** @name Sum of integers
 *  Exact, divided by 2^scaleFactor. 16s and 16sc: as a binary64 product, rounded in the current
 *  direction and saturated; the exponent is limited to what binary64 has (a scale of 0 from 1,023 on, of infinity from
 *  -1,024 down, with which a sum of 0 gives the lowest value). 32s: to nearest, ties to even.
 *  @{ */
ZorStatus zorsSum_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16sc32sc_Sfs(const Zor16sc* src, Zor32s len, Zor32sc* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* sum, Zor32s scaleFactor);
ZorStatus zorsSum_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor);
/** @} */

/** @name Mean of floats
 *  The sum divided by len in binary64. 32f divides the sum as narrowed to 32 bits; 32fc does not narrow
 *  before; 64fc multiplies by 1 / len.
 *  @{ */
ZorStatus zorsMean_32f(const Zor32f* src, Zor32s len, Zor32f* mean, ZorHintAlgorithm hint);
ZorStatus zorsMean_32fc(const Zor32fc* src, Zor32s len, Zor32fc* mean, ZorHintAlgorithm hint);
ZorStatus zorsMean_64f(const Zor64f* src, Zor32s len, Zor64f* mean);
ZorStatus zorsMean_64fc(const Zor64fc* src, Zor32s len, Zor64fc* mean);
/** @} */

/** @name Mean of integers
 *  16s, 16sc: (sum / len) * 2^-scaleFactor in binary64, rounded in the current direction and
 *  saturated. 32s: the exact sum divided to nearest, ties to even; scaling down rounds a second time, halves away from
 *  zero; scaling up multiplies the sum where it fits 32 bits, else the quotient, and saturates. Its scale factors act
 *  modulo 64, those above 0 as shifts of scaleFactor mod 64 bits.
 *  @{ */
ZorStatus zorsMean_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor32s scaleFactor);
ZorStatus zorsMean_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* mean, Zor32s scaleFactor);
ZorStatus zorsMean_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* mean, Zor32s scaleFactor);
/** @} */

/** @name Norms of floats
 *  Inf: the greatest magnitude; L1: the sum of the magnitudes; L2: the root of the sum of squares.
 *  Complex forms take the magnitude of each element. Numerics: 32f and 32fc run in binary32, the sums of 32fc64f are
 *  widened only when complete. Elements go to 8 sums (64-bit types: 4), element k to sum k mod 8, L2 of pairs its
 *  components to 16 (8); the sums are joined in halves, j with j + n / 2, at last even ones and odd ones. Inf of pairs
 *  roots the greatest re^2 + im^2. A NaN counts in Inf only as the last element of its lane k mod 8 (4). No dependence
 *  on alignment.
 *  @{ */
ZorStatus zorsNorm_Inf_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_Inf_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_Inf_32fc32f(const Zor32fc* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_Inf_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L1_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L2_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);
/** @} */

/** @name NormDiff of floats
 *  Norms of src1 - src2, the difference rounded to the element type; otherwise as the norms of one vector.
 *  @{ */
ZorStatus zorsNormDiff_Inf_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_Inf_32fc32f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L1_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L2_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);
/** @} */

/** @name Norm of 16-bit integers to floats
 *  Norms of 16-bit integers, exact; the result converted to a float, L2 after a root in binary64.
 *  @{ */
ZorStatus zorsNorm_Inf_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L1_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L2_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);
/** @} */

/** @name Norm of 16-bit integers under a scale factor
 *  Norms of 16-bit integers, exact, divided by 2^scaleFactor and saturated. Scaling down truncates; 64 and more give 0.
 *  L2_16s32s: the root in binary64, divided (multiplied) by 2^(scaleFactor mod 32) held in a signed 32-bit integer, so
 *  that 31 gives a negative result and 32 divides by 1; then truncated. L2Sqr: the sum of squares.
 *  @{ */
ZorStatus zorsNorm_Inf_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L1_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L2_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L1_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L2Sqr_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor);
/** @} */

/** @name NormDiff of 16-bit integers
 *  Norms of the exact differences src1 - src2, up to 65,535 each; otherwise as the norms of one vector.
 *  @{ */
ZorStatus zorsNormDiff_Inf_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L1_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L2_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                      Zor32s scaleFactor);
ZorStatus zorsNormDiff_L1_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L2_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L1_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L2Sqr_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm,
                                        Zor32s scaleFactor);
/** @} */

/** @name Dot products of floats
 *  The plain sum of src1[n] * src2[n]; no operand is conjugated. Products and sums round apart.
 *  Numerics: 32f binary32 throughout: one sequence below 16 elements (and from 57 on where src2 is not aligned to 4
 *  bytes), else 16 sums joined to 8, the rest in a group of 8, then one by one; from 57 on the elements before src2's
 *  32-byte boundary first, which seed sum 0. 64f: element k to sum k mod 8 where both sources are aligned to 16 bytes,
 *  else k mod 6. 32f64f: 8 sums. Real by complex: 16 sums of components in binary32, 8 in binary64. Complex: the sums of
 *  re1 * src2 and of im1 * src2 apart, in 4 lanes over 2 elements (binary64: 8 over 4). Forms with a wider result widen
 *  before they multiply. Only 32f and 64f depend on alignment.
 *  @{ */
ZorStatus zorsDotProd_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* dotProd);
ZorStatus zorsDotProd_32f64f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor64f* dotProd);
ZorStatus zorsDotProd_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* dotProd);
ZorStatus zorsDotProd_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_32f32fc64fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_64f64fc(const Zor64f* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_32fc64fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd);
/** @} */

/** @name Dot products of 16-bit integers
 *  Exact, stored as they are or converted to a float.
 *  @{ */
ZorStatus zorsDotProd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* dotProd);
ZorStatus zorsDotProd_16s64s(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* dotProd);
ZorStatus zorsDotProd_16s16sc32fc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_16s16sc64sc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd);
ZorStatus zorsDotProd_16sc32fc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_16sc64sc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd);
/** @} */

/** @name Scaled
 *  Exact, divided by 2^scaleFactor (at most 31; multiplied by at most 2^15 for 16-bit results, 2^31 for 32-bit
 *  ones) to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsDotProd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor16s* dotProd, Zor32s scaleFactor);
ZorStatus zorsDotProd_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* dotProd,
                                 Zor32s scaleFactor);
ZorStatus zorsDotProd_16s16sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd,
                                  Zor32s scaleFactor);
ZorStatus zorsDotProd_16s16sc32sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd,
                                      Zor32s scaleFactor);
ZorStatus zorsDotProd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd,
                               Zor32s scaleFactor);
ZorStatus zorsDotProd_16sc32sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd,
                                   Zor32s scaleFactor);
/** @} */

/** @name Dot products with 32-bit integers
 *  Products and sums in binary64 (32s and 16s32s32s: 4 sums; else as complex floats),
 *  times 2^-scaleFactor, the factor limited to -31 and 93, rounded to nearest, ties to even, in every direction of the
 *  caller, saturated.
 *  @{ */
ZorStatus zorsDotProd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd, Zor32s scaleFactor);
ZorStatus zorsDotProd_16s32s32s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd,
                                    Zor32s scaleFactor);
ZorStatus zorsDotProd_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                                  Zor32s scaleFactor);
ZorStatus zorsDotProd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                               Zor32s scaleFactor);
/** @} */

/** @name Deviation of a sample, and its mean
 *  With n = len, S the sum and Q the sum of squares, the root of V / (n * (n - 1)),
 *  where V = Q * n - S * S is not below 0. A len below 2 is zorStatusBadSize. Numerics: binary64, element k to sum k mod
 *  8, nothing fused. StdDev_32f narrows V and n * (n - 1) to binary32 before the division and the root; its hint 1 sums
 *  blocks of 8,192 in binary32, 16 sums each. MeanStdDev_32f ignores its hint. No dependence on alignment.
 *  @{ */
ZorStatus zorsStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* stdDev, ZorHintAlgorithm hint);
ZorStatus zorsStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* stdDev);
ZorStatus zorsMeanStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* mean, Zor32f* stdDev, ZorHintAlgorithm);
ZorStatus zorsMeanStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* mean, Zor64f* stdDev);
/** @} */

/** @name Of 16-bit integers
 *  S and Q exact, the rest in binary64, times 2^-scaleFactor as in Sum, rounded in the current
 *  direction and saturated to 32 bits; the 16s forms saturate that to 16 bits.
 *  @{ */
ZorStatus zorsStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* stdDev, Zor32s scaleFactor);
ZorStatus zorsStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* stdDev, Zor32s scaleFactor);
ZorStatus zorsMeanStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* mean, Zor32s* stdDev, Zor32s scaleFactor);
ZorStatus zorsMeanStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor16s* stdDev, Zor32s scaleFactor);
/** @} */

/** @name SumWindow
 *  dst[i] = src[i] + ... + src[i + maskSize - 1]; src holds len + maskSize - 1 elements.
 *  Checks: pointers, len, maskSize below 1 (zorStatusBadMaskSize).
 *  Numerics: binary32. The first window is summed one by one, from 64 elements on in 16 sums, seeded by the elements
 *  before the first 32-byte boundary; each next one is the one before plus what enters less what leaves, so roundings
 *  accumulate once sums pass 2^24.
 *  @{ */
ZorStatus zorsSumWindow_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len, Zor32s maskSize);
ZorStatus zorsSumWindow_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s maskSize);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
