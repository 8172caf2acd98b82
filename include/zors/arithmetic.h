/** @file
 *  Sums, differences, products, quotients, bitwise logic and shifts of vectors and constants. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_ARITHMETIC_H
#define ZORS_ARITHMETIC_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Add
 *  dst[i] = src1[i] + src2[i]; in place srcDst[i] += src[i].
 *  Integers: the exact sum, scaled (scaleFactor 0 where there is none) and saturated; 8u16u exact; 16s32f exact, then
 *  converted in the current rounding direction. Exception: 64s at scale factors of 2 to 63, with operands that are not
 *  both positive and a sum that is not negative, takes ties to 0; from 64 on all results are 0.
 *  Floats: one addition a component in the current rounding direction.
 *  Complex members (but Mul's) test len before the pointers.
 *  @{ */
ZorStatus zorsAdd_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_64s_Sfs(const Zor64s* src1, const Zor64s* src2, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsAdd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAdd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsAdd_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsAdd_16s32s_I(const Zor16s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsAdd_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAdd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsAdd_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsAdd_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsAdd_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAdd_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAdd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsAdd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsAdd_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAdd_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Sub
 *  dst[i] = src2[i] - src1[i], the second operand less the first; in place srcDst[i] -= src[i]. Otherwise as Add; a
 *  negative difference of unsigned elements gives 0.
 *  @{ */
ZorStatus zorsSub_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsSub_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsSub_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsSub_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsSub_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsSub_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSub_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSub_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsSub_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsSub_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSub_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Mul
 *  dst[i] = src1[i] * src2[i]; in place srcDst[i] *= src[i].
 *  Integers: the exact product, complex ones part for part, scaled and saturated; 8u16u exact; 16s32f exact, then
 *  converted in the current rounding direction. Exceptions: 32s goes through binary64, whatever the caller's rounding
 *  direction: (a * 2^-scaleFactor) * b rounded to 53 bits, limited to 32 bits, rounded to nearest even. Low_32s gives
 *  the low 32 bits of the product shifted by scaleFactor, cut, not rounded or saturated, for scale factors of -31 to 62;
 *  above, 0; below, the bound of the product's sign.
 *  Floats: one multiplication a component in the current rounding direction. Two complex operands, with a = src1, b =
 *  src2 (src, srcDst in place): re = fma(b.re, a.re, -round(b.im * a.im)), im = fma(b.re, a.im, round(b.im * a.re)).
 *  @{ */
ZorStatus zorsMul_Low_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u16s_Sfs(const Zor16u* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s32sc_ISfs(const Zor32s* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsMul_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMul_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMul_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMul_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMul_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMul_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsMul_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsMul_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsMul_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMul_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMul_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsMul_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);
ZorStatus zorsMul_32f32fc_I(const Zor32f* src, Zor32fc* srcDst, Zor32s len);
/** @} */

/** @name AddC
 *  dst[i] = src[i] + val; in place srcDst[i] += val. Numerics as Add. Exception: 8u at a scale factor of 9 gives 0.
 *  64s and 64u: the exact sum divided by 2^scaleFactor, rounded by rnd (other values than 0 and 1 as zorRoundHalfAway)
 *  and saturated; only a length of 0 is zorStatusBadSize.
 *  @{ */
ZorStatus zorsAddC_64s_Sfs(const Zor64s* src, Zor64s val, Zor64s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsAddC_64u_Sfs(const Zor64u* src, Zor64u val, Zor64u* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsAddC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsAddC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsAddC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsAddC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsAddC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsAddC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAddC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAddC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name SubC
 *  dst[i] = src[i] - val, SubCRev: dst[i] = val - src[i]; in place likewise. Numerics as Sub.
 *  @{ */
ZorStatus zorsSubC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsSubC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsSubC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsSubC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsSubC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsSubC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSubC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSubC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSubC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
ZorStatus zorsSubCRev_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsSubCRev_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsSubCRev_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsSubCRev_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsSubCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSubCRev_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSubCRev_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSubCRev_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name MulC
 *  dst[i] = src[i] * val; in place srcDst[i] *= val. Numerics as Mul, with a = src and b = val for complex floats.
 *  64s: the exact product of 64-bit integers, scaled and saturated. 64f64s: the exact product with a binary64 number,
 *  scaled and saturated; an infinite val gives the bound of the product's sign, and 0 for 0; a NaN val counts as the
 *  number of exponent 1024 that its sign and fraction would make. Only a length of 0 is zorStatusBadSize in these two.
 *  32f16s: the factor val * 2^-scaleFactor rounded to binary32, one product, rounded to nearest even and saturated as by
 *  Convert_32f16s. Low_32f16s: the product rounded in the current direction and saturated; beyond 32 bits, and for NaN,
 *  -32768.
 *  @{ */
ZorStatus zorsMulC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor);
ZorStatus zorsMulC_64f64s_ISfs(Zor64f val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor);
ZorStatus zorsMulC_32f16s_Sfs(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_Low_32f16s(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len);
ZorStatus zorsMulC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMulC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsMulC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsMulC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsMulC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsMulC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMulC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsMulC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name AddProduct
 *  srcDst[i] += src1[i] * src2[i]; AddProductC: srcDst[i] += src[i] * val.
 *  Integers: the exact product is scaled and saturated to the destination's type, then added with saturation. 16s at
 *  scale factors above 31 clears srcDst.
 *  Floats: one fused multiply-add an element. Complex, with a = src1, b = src2, c = srcDst: re = fma(b.re, a.re,
 *  -fma(b.im, a.im, -c.re)), im = fma(b.re, a.im, fma(b.im, a.re, c.im)).
 *  @{ */
ZorStatus zorsAddProduct_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProduct_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProduct_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProductC_32f(const Zor32f* src, Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAddProduct_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Div
 *  dst[i] = src2[i] / src1[i], the first operand is the divisor; in place srcDst[i] /= src[i]. A zero divisor gives
 *  zorWarningDivideByZero; the vector is complete.
 *  Numerics: integers are the exact quotient divided by 2^scaleFactor, to nearest, ties to even, saturated, in every
 *  rounding direction; complex ones n * conj(d) / |d|^2, both parts alike. By zero, at every scale: zero for a zero,
 *  else the bound of the dividend's sign. scaleFactor below -15 (8u, 16u), -29 (16s, 32s16s), -62 (32s), -32 (16sc): all
 *  but zero quotients take the bound of their sign. 32s16s: src1 is the 16-bit divisor. Floats are one division in the
 *  current rounding direction. 32fc, 64fc: the product n * conj(d) of zorsMul, each part divided by round(round(d.re *
 *  d.re) + round(d.im * d.im)).
 *  @{ */
ZorStatus zorsDiv_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s16s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsDiv_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsDiv_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsDiv_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsDiv_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsDiv_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsDiv_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsDiv_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Div_Round
 *  Div with a rounding mode: toward zero, to nearest even, or half away. Any other rnd is zorStatusBadRoundMode,
 *  tested last. scaleFactor below -30: all but zero quotients take the bound of their sign; above the range of Div the
 *  rule goes on.
 *  @{ */
ZorStatus zorsDiv_Round_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, ZorRoundMode rnd,
                               Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, ZorRoundMode rnd,
                                Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, ZorRoundMode rnd,
                                Zor32s scaleFactor);
ZorStatus zorsDiv_Round_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
/** @} */

/** @name DivC
 *  dst[i] = src[i] / val; in place srcDst[i] /= val. A zero val is zorStatusDivideByZero, tested after pointers and
 *  len; 64s warns instead and saturates by sign. For 32fc and 64fc the test is on |val|^2 in their own precision.
 *  Numerics: integers as Div. scaleFactor above 8 (8u) or 15 (16s, 16u): zeros; below -15 (8u), -30 (16s, 16u), -16
 *  (16sc): the bounds. Floats are multiplied by 1 / val, rounded once; 32fc and 64fc by conj(val) / |val|^2. The norm,
 *  the reciprocal and the products round in the current direction.
 *  @{ */
ZorStatus zorsDivC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsDivC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsDivC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsDivC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsDivC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsDivC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsDivC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsDivC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name DivCRev
 *  dst[i] = val / src[i]; in place srcDst[i] = val / srcDst[i]. Zero elements warn as in Div.
 *  Numerics: 16u to nearest even, by zero 65535, or 0 for a zero val; 32f one division in the current direction.
 *  @{ */
ZorStatus zorsDivCRev_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsDivCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsDivCRev_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsDivCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
/** @} */

/** @name And, Or, Xor
 *  dst[i] = src1[i] op src2[i], bit by bit; in place srcDst[i] op= src[i].
 *  @{ */
ZorStatus zorsAnd_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsAnd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAnd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsAnd_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsAnd_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsAnd_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);
ZorStatus zorsOr_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsOr_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsOr_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsOr_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsOr_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsOr_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);
ZorStatus zorsXor_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsXor_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsXor_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsXor_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsXor_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsXor_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);
/** @} */

/** @name AndC, OrC, XorC
 *  dst[i] = src[i] op val; in place srcDst[i] op= val.
 *  Checks: a val of 0 decides before them: AndC then tests src and ends in zorsZero, OrC and XorC end in zorsCopy.
 *  @{ */
ZorStatus zorsAndC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsAndC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsAndC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsAndC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsAndC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsAndC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);
ZorStatus zorsOrC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsOrC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsOrC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsOrC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsOrC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsOrC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);
ZorStatus zorsXorC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsXorC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsXorC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsXorC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsXorC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsXorC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);
/** @} */

/** @name Not
 *  dst[i] = ~src[i]; in place srcDst[i] = ~srcDst[i].
 *  @{ */
ZorStatus zorsNot_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsNot_16u(const Zor16u* src, Zor16u* dst, Zor32s len);
ZorStatus zorsNot_32u(const Zor32u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsNot_8u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsNot_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsNot_32u_I(Zor32u* srcDst, Zor32s len);
/** @} */

/** @name LShiftC, RShiftC
 *  dst[i] = src[i] shifted by val bits. To the left and, unsigned, to the right zeros move in, and a
 *  val of the element's width or more gives zeros; signed elements move their sign in, to -1 or 0.
 *  Checks: a val of 0 ends in zorsCopy, one that gives all zeros tests src and ends in zorsZero; else pointers, len,
 *  and a val below 0 is zorStatusBadShift.
 *  @{ */
ZorStatus zorsLShiftC_8u(const Zor8u* src, Zor32s val, Zor8u* dst, Zor32s len);
ZorStatus zorsLShiftC_16s(const Zor16s* src, Zor32s val, Zor16s* dst, Zor32s len);
ZorStatus zorsLShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len);
ZorStatus zorsLShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len);
ZorStatus zorsLShiftC_8u_I(Zor32s val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsLShiftC_16s_I(Zor32s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsLShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsLShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len);
ZorStatus zorsRShiftC_8u(const Zor8u* src, Zor32s val, Zor8u* dst, Zor32s len);
ZorStatus zorsRShiftC_16s(const Zor16s* src, Zor32s val, Zor16s* dst, Zor32s len);
ZorStatus zorsRShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len);
ZorStatus zorsRShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len);
ZorStatus zorsRShiftC_8u_I(Zor32s val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsRShiftC_16s_I(Zor32s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsRShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsRShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
