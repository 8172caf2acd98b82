/** @file
 *  Roots, exponentials, logarithms, arc tangents; magnitudes, phases, polar form; companding and small functions. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_FUNCTIONS_H
#define ZORS_FUNCTIONS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Abs
 *  dst[i] = |src[i]|. Floats lose the sign bit; the lowest integer gives the highest.
 *  @{ */
ZorStatus zorsAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsAbs_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsAbs_32s_I(Zor32s* srcDst, Zor32s len);
ZorStatus zorsAbs_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsAbs_64f_I(Zor64f* srcDst, Zor32s len);
/** @} */

/** @name Sqr
 *  dst[i] = src[i]^2.
 *  Numerics: floats one multiplication, complex floats as Mul of equal operands, in the current direction. Integers
 *  exact, scaled and saturated by the common rule.
 *  @{ */
ZorStatus zorsSqr_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsSqr_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsSqr_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsSqr_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsSqr_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSqr_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsSqr_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSqr_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsSqr_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Sqrt of floats, correctly rounded
 *  A negative element gives the default NaN and zorWarningSqrtOfNegative; a signalling
 *  NaN, too, gives the warning. Exceptions are masked during the call and the sticky flags are as before on return.
 *  Complex: the principal root, real part at or above 0, imaginary part with the sign of the element's. With a and b
 *  half the parts, the greater part is r = sqrt(|a| + sqrt(fma(a, a, b^2))), the other |b| / r; the squares may
 *  overflow. No warning.
 *  @{ */
ZorStatus zorsSqrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsSqrt_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsSqrt_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSqrt_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsSqrt_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsSqrt_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsSqrt_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSqrt_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Sqrt of integers
 *  The root divided by 2^scaleFactor, exactly rounded to nearest, ties to even, saturated. A negative
 *  element gives 0 and zorWarningSqrtOfNegative, at every scale. 16sc: the principal root, its parts scaled apart,
 *  without a warning.
 *  @{ */
ZorStatus zorsSqrt_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s16s_Sfs(const Zor64s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Cubrt
 *  dst[i] is the cube root of src[i], rounded to nearest in every direction but for rare cases near a tie; signed
 *  zeros, infinities and NaN stay. 32s16s: the root of the element as a binary32 number, times 2^-scaleFactor with the
 *  exponent taken modulo 128, to nearest even, saturated.
 *  @{ */
ZorStatus zorsCubrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsCubrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Exp
 *  dst[i] = e^src[i]. 32f64f computes in binary64. +infinity stays, -infinity gives 0, NaN stays NaN; overflow gives
 *  +infinity, small results are denormal or 0. Exceptions are masked during the call, as in all functions of floats
 *  here.
 *  Numerics: steps round in the current direction; the errors that numerics.md tells are those of rounding to nearest.
 *  In the other directions 32f, whose reduction rounds too, is only good to some 12 bits.
 *  @{ */
ZorStatus zorsExp_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsExp_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsExp_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsExp_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsExp_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len);
/** @} */

/** @name Exp of integers
 *  e^src[i] divided by 2^scaleFactor, to nearest, ties to even, saturated. 16s above scale 16 gives
 *  zeros. 32s and 64s take the binary64 exponential: beyond its range it saturates, or gives 0, at every scale.
 *  @{ */
ZorStatus zorsExp_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Ln
 *  dst[i] = ln src[i]. A zero, -0 too, gives -infinity and zorWarningLogOfZero, a negative element NaN and
 *  zorWarningLogOfNegative; the first of them decides. NaN stays NaN without a warning. 64f32f computes in binary64.
 *  @{ */
ZorStatus zorsLn_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsLn_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsLn_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsLn_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsLn_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len);
/** @} */

/** @name Ln, 10Log10 of integers
 *  ln src[i], 10 lg src[i]. From scale 0 on, rounded to an integer and then shifted right by
 *  scaleFactor modulo 32; below, computed in binary32, times 2^-scaleFactor, at most 2147483520, to nearest even,
 *  saturated. Zero and negative elements give the destination's lowest value; the first of them decides between
 *  zorWarningLogOfZero and zorWarningLogOfNegative.
 *  @{ */
ZorStatus zorsLn_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zors10Log10_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zors10Log10_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name SumLn
 *  The sum of ln src[i], each as by Ln of the source's type (16s as 32f), added in binary64. The first element
 *  that is zero, negative or NaN decides: sum is then -infinity with zorWarningLogOfZero, NaN with
 *  zorWarningLogOfNegative, NaN with zorStatusOk.
 *  @{ */
ZorStatus zorsSumLn_32f(const Zor32f* src, Zor32s len, Zor32f* sum);
ZorStatus zorsSumLn_64f(const Zor64f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSumLn_32f64f(const Zor32f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSumLn_16s32f(const Zor16s* src, Zor32s len, Zor32f* sum);
/** @} */

/** @name Arctan
 *  dst[i] = atan src[i]; infinities give half of pi with their sign, -0 stays, NaN stays NaN.
 *  @{ */
ZorStatus zorsArctan_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsArctan_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsArctan_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsArctan_64f_I(Zor64f* srcDst, Zor32s len);
/** @} */

/** @name Magnitude
 *  The absolute values of complex elements, interleaved or as two planes; all forms of one type give the
 *  same bits.
 *  Numerics: floats sqrt(fma(re, re, round(im * im))); the squares may overflow to infinity. 16-bit sources: the
 *  exact sum of squares, unsigned, and its exactly rounded root; 16s32f, 16sc32f as binary32 in the current
 *  direction, _Sfs times 2^-scaleFactor to nearest, ties to even, saturated. 32sc_Sfs: likewise.
 *  @{ */
ZorStatus zorsMagnitude_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsMagnitude_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsMagnitude_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMagnitude_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMagnitude_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name MagSquared
 *  Squared magnitudes. 32fc64f: fma(re, re, im * im) in binary64. 32sc32s_Sfs: exact, scaled and
 *  saturated.
 *  @{ */
ZorStatus zorsMagSquared_32fc64f(const Zor32fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsMagSquared_32sc32s_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name PowerSpectr
 *  Squared magnitudes, interleaved or as two planes. Floats fma(re, re, round(im * im)); 16-bit sources
 *  exact, to binary32 by one rounding, or scaled and saturated.
 *  @{ */
ZorStatus zorsPowerSpectr_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPowerSpectr_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len,
                                  Zor32s scaleFactor);
/** @} */

/** @name Phase
 *  The angles of complex elements, in [-pi, pi] as far as the direction lets pi round, with the conventions of
 *  atan2 for zeros and infinities; all forms of one type give the same bits. 16s32f, 16sc32f: as 32f of the converted
 *  parts.
 *  Numerics: errors below 0.7 ulp in rounding to nearest. _Sfs: the binary32 angle, at scales below -28 and above 1 the
 *  binary64 angle, times 2^-scaleFactor, to nearest, ties to even, saturated, in every direction; the parts of 32sc are
 *  converted to that float type first.
 *  @{ */
ZorStatus zorsPhase_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsPhase_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsPhase_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPhase_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPhase_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name CartToPolar
 *  Magnitudes and phases in one pass, with the bits of Magnitude and Phase. 16sc_Sfs: Magnitude with
 *  magnScaleFactor and Phase with phaseScaleFactor.
 *  @{ */
ZorStatus zorsCartToPolar_32fc(const Zor32fc* src, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_64fc(const Zor64fc* src, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_16sc_Sfs(const Zor16sc* src, Zor16s* dstMagn, Zor16s* dstPhase, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor);
/** @} */

/** @name PolarToCart
 *  re = magn * cos(phase), im = magn * sin(phase), for phases of any size.
 *  Numerics: sine and cosine, each with an error below 0.8 ulp in rounding to nearest, then one product. NaN phases give
 *  NaN parts. 16sc, 32sc take binary32 and round to nearest, ties to even, saturated, in every direction; NaN is the
 *  lowest integer. 16sc_Sfs: binary64, the phase is srcPhase[i] * 2^-phaseScaleFactor radians (below -1008 as -1008),
 *  the parts are divided by 2^magnScaleFactor.
 *  @{ */
ZorStatus zorsPolarToCart_32fc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32fc* dst, Zor32s len);
ZorStatus zorsPolarToCart_64fc(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64fc* dst, Zor32s len);
ZorStatus zorsPolarToCart_32f(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32f* dstRe, Zor32f* dstIm, Zor32s len);
ZorStatus zorsPolarToCart_64f(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64f* dstRe, Zor64f* dstIm, Zor32s len);
ZorStatus zorsPolarToCart_16sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor16sc* dst, Zor32s len);
ZorStatus zorsPolarToCart_32sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32sc* dst, Zor32s len);
ZorStatus zorsPolarToCart_16sc_Sfs(const Zor16s* srcMagn, const Zor16s* srcPhase, Zor16sc* dst, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor);
/** @} */

/** @name ALawToLin, MuLawToLin
 *  ITU-T G.711 codes to samples. 16s: the values of the standard at 16 bits, A-law times 8, mu-
 *  law times 4; 32f: those times 2^-15.
 *  @{ */
ZorStatus zorsALawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len);
ZorStatus zorsALawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMuLawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len);
ZorStatus zorsMuLawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
/** @} */

/** @name LinToALaw, LinToMuLaw
 *  Samples to codes. 32f: the 16-bit sample is 32768 * src[i], plus one half with its sign,
 *  limited to -32768 and 32767 and truncated; NaN is the lowest. The sign of a code is that of the 16-bit sample.
 *  @{ */
ZorStatus zorsLinToALaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToALaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToMuLaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToMuLaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len);
/** @} */

/** @name ALawToMuLaw, MuLawToALaw
 *  From law to law by the conversion tables of G.711: the nearest magnitude of the same power. dst may be src.
 *  @{ */
ZorStatus zorsALawToMuLaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsMuLawToALaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
/** @} */

/** @name Preemphasize
 *  srcDst[n] = x[n] - val * x[n - 1] with the elements x as they were, x[-1] = 0.
 *  Numerics: binary32, the product and the difference rounded; 16s all to nearest, then to the nearest integer,
 *  ties to even, saturated.
 *  @{ */
ZorStatus zorsPreemphasize_32f(Zor32f* srcDst, Zor32s len, Zor32f val);
ZorStatus zorsPreemphasize_16s(Zor16s* srcDst, Zor32s len, Zor32f val);
/** @} */

/** @name Cauchy
 *  srcDst[i] = ln(1 + (x / C)^2) / 2. CauchyD: srcDst[i] = x * (r + r - r * d * r) with d = x^2 + C^2, each
 *  operation rounded, and the processor's estimate r of 1 / d; d must be in the range of normal numbers. CauchyDD2:
 *  with r = 1 / fma(x, x, C^2): srcDst[i] = x * r, dst2[i] = -fma(x, x, -C^2) * r * r.
 *  Numerics of Cauchy: u = round(x * round(1 / C)), fma(u, u, 1), zorsLn_32f_I, times 0.5.
 *  Checks: pointers, len, then C not above 0, zorStatusBadCauchyConstant.
 *  @{ */
ZorStatus zorsCauchy_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C);
ZorStatus zorsCauchyD_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C);
ZorStatus zorsCauchyDD2_32f_I(Zor32f* srcDst, Zor32f* dst2, Zor32s len, Zor32f C);
/** @} */

/** @name UpdateLinear, UpdatePower
 *  One state over a vector, s = alpha * s + (1 - alpha) * x for each sample, where x is
 *  src[i] >> shift (shift limited to 0 to 15), or src[i]^2 >> shift (0 to 31). srcDst holds s before and after.
 *  alpha is an integer.
 *  Numerics: s stays in binary64 over the vector and is then limited to 32 bits and rounded to nearest, ties to
 *  even.
 *  hint 1: in binary32, limited to 2147483520; Linear so only for alpha from -6 to 8.
 *  @{ */
ZorStatus zorsUpdateLinear_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                    ZorHintAlgorithm hint);
ZorStatus zorsUpdatePower_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                   ZorHintAlgorithm hint);
/** @} */

/** @name MaxOrder
 *  How many significant bits the greatest magnitude has, 0 for a vector of zeros: of integers the position
 *  of its highest set bit plus 1, of floats its exponent plus 1, as if denormals were normalised, and one more than
 *  the largest finite number's for an infinity. A NaN element gives zorWarningNotANumber and an order without meaning.
 *  Checks: len, then pointers.
 *  @{ */
ZorStatus zorsMaxOrder_16s(const Zor16s* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_32s(const Zor32s* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_32f(const Zor32f* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_64f(const Zor64f* src, Zor32s len, Zor32s* order);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
