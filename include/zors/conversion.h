/** @file
 *  Conversion between element types; planes, channels, normalisation, bit packing. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_CONVERSION_H
#define ZORS_CONVERSION_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Convert to wider types and between float types
 *  dst[i] = src[i]. 24s and 24u elements have three bytes, least
 *  significant first. All exact but 32s32f, 64f32f and 64s64f, which round in the current direction, and 32s16s, which
 *  saturates. 64s64f takes an unsigned len: only 0 is zorStatusBadSize.
 *  @{ */
ZorStatus zorsConvert_8s16s(const Zor8s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsConvert_16s32s(const Zor16s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsConvert_8s32f(const Zor8s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_16u32f(const Zor16u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32s32f(const Zor32s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsConvert_32s64f(const Zor32s* src, Zor64f* dst, Zor32s len);
ZorStatus zorsConvert_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_64s64f(const Zor64s* src, Zor64f* dst, Zor32u len);
ZorStatus zorsConvert_32s16s(const Zor32s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsConvert_24s32s(const Zor8u* src, Zor32s* dst, Zor32s len);
ZorStatus zorsConvert_24u32u(const Zor8u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsConvert_24s32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_24u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
/** @} */

/** @name Convert, integer to float, scaled
 *  dst[i] = src[i] * 2^-scaleFactor.
 *  Numerics: the integer to the float type, then one product, both in the current direction. Scale factors are limited
 *  to -112..126 (16s32f), -96..126 (32s32f), -1008..1022 (16s64f), -992..1022 (32s64f).
 *  @{ */
ZorStatus zorsConvert_16s32f_Sfs(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32s32f_Sfs(const Zor32s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_16s64f_Sfs(const Zor16s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32s64f_Sfs(const Zor32s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Convert, float to integer
 *  dst[i] = src[i] * 2^-scaleFactor, rounded by rnd and saturated.
 *  rnd: zorRoundTowardZero, zorRoundNearestEven, any other value nearest with ties away from zero; the 24-bit members
 *  round to nearest even. None depends on the current direction. Numerics: from 32f the factor is the binary32 with the
 *  bits 0x3F800000 - (scaleFactor << 23) in 32 bits, which wrap outside an exponent's range; 32f8s takes 2^-scaleFactor
 *  down to 0 and up to infinity; 24-bit members limit scaleFactor to -127..127, 64f16s and 64f32s to -1008..1022. NaN
 *  gives the lower bound, of 32f8u and 32f16u 0; of 32f32s the bound of its sign. Where the factor is infinite a zero
 *  counts as NaN, but not in 64f64s, which gives 0 for every element but NaN at scale factors where the factor is 0, and
 *  takes an unsigned len.
 *  @{ */
ZorStatus zorsConvert_32f8s_Sfs(const Zor32f* src, Zor8s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f8u_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f16s_Sfs(const Zor32f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f16u_Sfs(const Zor32f* src, Zor16u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f32s_Sfs(const Zor32f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f16s_Sfs(const Zor64f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f32s_Sfs(const Zor64f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f64s_Sfs(const Zor64f* src, Zor64s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f24s_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32f24u_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Convert, integer to narrower integer, scaled and saturated
 *  16s8s and 64s32s round by rnd as above, the others by the
 *  scale rule. Scale factors are limited to -15..31 (32s16s), -30..31 (24-bit), -30..63 (64s32s). 16s8s takes an
 *  unsigned len.
 *  @{ */
ZorStatus zorsConvert_16s8s_Sfs(const Zor16s* src, Zor8s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_64s32s_Sfs(const Zor64s* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32s24s_Sfs(const Zor32s* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32u24u_Sfs(const Zor32u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name Convert, binary16
 *  Rnd: zorRoundNearestEven, or zorRoundTowardZero and every other value; zorRoundHalfAway is
 *  zorStatusBadRoundMode, after pointers and len. 16f16s: NaN gives 0. The same results with and without the processor's
 *  conversion instructions.
 *  @{ */
ZorStatus zorsConvert_16f32f(const Zor16f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32f16f(const Zor32f* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd);
ZorStatus zorsConvert_16s16f(const Zor16s* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd);
ZorStatus zorsConvert_16f16s_Sfs(const Zor16f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
/** @} */

/** @name Real, Imag, CplxToReal
 *  The parts of complex vectors; RealToCplx: the way back, where either source may be null and
 *  the part is zero then. Checks of RealToCplx: dst, both sources null, len. Plain moves.
 *  @{ */
ZorStatus zorsReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor32s len);
ZorStatus zorsReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32s len);
ZorStatus zorsReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor32s len);
ZorStatus zorsImag_16sc(const Zor16sc* src, Zor16s* dstIm, Zor32s len);
ZorStatus zorsImag_32fc(const Zor32fc* src, Zor32f* dstIm, Zor32s len);
ZorStatus zorsImag_64fc(const Zor64fc* src, Zor64f* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor16s* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32f* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor64f* dstIm, Zor32s len);
ZorStatus zorsRealToCplx_16s(const Zor16s* srcRe, const Zor16s* srcIm, Zor16sc* dst, Zor32s len);
ZorStatus zorsRealToCplx_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32fc* dst, Zor32s len);
ZorStatus zorsRealToCplx_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64fc* dst, Zor32s len);
/** @} */

/** @name Conj
 *  dst[i] = conj(src[i]); ConjFlip: dst[i] = conj(src[len - 1 - i]), dst not src. Floats flip the sign bit of the
 *  imaginary part, of zeros and NaN too; 16-bit parts negate with saturation.
 *  @{ */
ZorStatus zorsConj_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConj_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConj_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsConj_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsConj_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsConj_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsConjFlip_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConjFlip_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConjFlip_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
/** @} */

/** @name Normalize
 *  dst[i] = (src[i] - vSub) / vDiv.
 *  Numerics: floats one subtraction, then one product with the reciprocal, which is formed once. Integers: the
 *  difference is exact, goes to binary32, is multiplied by the binary32 reciprocal, then by 2^-scaleFactor with the
 *  exponent modulo 128, rounded to nearest even and saturated, all whatever the current direction. Checks: pointers,
 *  len, then zorStatusDivideByZero: a float vDiv below the least normal magnitude, an integer 0.
 *  @{ */
ZorStatus zorsNormalize_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f vSub, Zor32f vDiv);
ZorStatus zorsNormalize_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32fc vSub, Zor32f vDiv);
ZorStatus zorsNormalize_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f vSub, Zor64f vDiv);
ZorStatus zorsNormalize_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64fc vSub, Zor64f vDiv);
ZorStatus zorsNormalize_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s vSub, Zor32s vDiv,
                                Zor32s scaleFactor);
ZorStatus zorsNormalize_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16sc vSub, Zor32s vDiv,
                                 Zor32s scaleFactor);
/** @} */

/** @name JoinScaled
 *  NChannels float vectors of chanLen elements to interleaved samples, sample i of channel c at i *
 *  nChannels + c; SplitScaled: the way back. -1 and 1 are the lowest and the highest sample; x * 32767.5 - 0.5 (16s, in
 *  binary32), or x * 8388607.5 - 0.5 (24s, in binary64, three bytes a sample), each operation rounded, then to nearest
 *  even, all under nearest; x is limited to [-1, 1] first, NaN is -1. Back: x * (1 / 32767.5) + 0.5 / 32767.5 (16s, in
 *  binary32), the like in binary64 narrowed at the end (24s), each operation in the current direction.
 *  Checks: dst (src), nChannels and chanLen, src (dst), each channel's pointer.
 *  @{ */
ZorStatus zorsJoinScaled_32f16s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor16s* dst);
ZorStatus zorsJoinScaled_32f24s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor8u* dst);
ZorStatus zorsSplitScaled_16s32f_D2L(const Zor16s* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen);
ZorStatus zorsSplitScaled_24s32f_D2L(const Zor8u* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen);
/** @} */

/** @name PackBits
 *  The low widths[i] bits of each src[i], most significant first, without gaps, from bit dstBitOffset & 7 of
 *  dst on, counted from the 0x80 bit. All other bits stay. A width outside 0 to 32 is limited, and the result then is
 *  zorWarningBitWidthClamped. dstBitLen receives the number of bits written. Checks: pointers; then len below 1 or
 *  dstBitOffset below 0, zorStatusBadSize.
 *  @{ */
ZorStatus zorsPackBits_32u8u(const Zor32u* src, const Zor32s* widths, Zor32s len, Zor8u* dst, Zor32s dstBitOffset,
                             Zor32s* dstBitLen);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
