/** @file
 *  Correlation and convolution. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_CORRELATION_H
#define ZORS_CORRELATION_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/*  Sums are direct ones or go through Fourier transforms, by thresholds that every family names; the two differ by
 *  rounding only. Direct sums touch the elements that they consist of and no others: an infinity or a NaN reaches the
 *  results that it is part of. Numerics of floats: sums of fused multiply-adds in the element type, complex ones of real
 *  products, in an order that is not stated. Of 16-bit elements: sums in binary32, exact below 2^24, divided by
 *  2^scaleFactor, rounded to nearest even, saturated. dst is no operand. A heap that is exhausted gives
 *  zorStatusNoMemory; nothing of the sums is written then. */

/** @name Autocorrelation
 *  dst[k] = sum over n from 0 to srcLen - 1 - k of conj(src[n]) * src[n + k], for k below m = min(srcLen, dstLen); zeros
 *  from there on. NormA: divided by srcLen (times 1 / srcLen). NormB: dst[k] divided by srcLen - k; 16s likewise, before
 *  the conversion. By transforms from m = 1200 on, for 64f and 64fc from 128 on. Checks: pointers, srcLen and dstLen.
 *  The zeros of the 16s forms are written also where memory is exhausted.
 *  @{ */
ZorStatus zorsAutoCorr_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor);
ZorStatus zorsAutoCorr_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormA_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor);
ZorStatus zorsAutoCorr_NormA_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormA_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormA_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormA_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormB_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor);
ZorStatus zorsAutoCorr_NormB_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormB_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormB_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s dstLen);
ZorStatus zorsAutoCorr_NormB_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s dstLen);
/** @} */

/** @name Cross-correlation
 *  dst[n] = sum over k of conj(src1[k]) * src2[k + lowLag + n], over all k with both elements there; 0 where there are
 *  none. lowLag may be any value. With d the number of outputs that have products: by transforms where the integral part
 *  of min(len1, len2) * d / max(len1, len2), formed in binary32, is above 383, for 32fc above 255, for 64f and 64fc above
 *  511. 16s64s: exact, never by transforms. Checks: pointers, len1, len2 and dstLen.
 *  @{ */
ZorStatus zorsCrossCorr_16s64s(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor64s* dst,
                               Zor32s dstLen, Zor32s lowLag);
ZorStatus zorsCrossCorr_16s_Sfs(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor16s* dst,
                                Zor32s dstLen, Zor32s lowLag, Zor32s scaleFactor);
ZorStatus zorsCrossCorr_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                            Zor32s dstLen, Zor32s lowLag);
ZorStatus zorsCrossCorr_32fc(const Zor32fc* src1, Zor32s len1, const Zor32fc* src2, Zor32s len2, Zor32fc* dst,
                             Zor32s dstLen, Zor32s lowLag);
ZorStatus zorsCrossCorr_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst,
                            Zor32s dstLen, Zor32s lowLag);
ZorStatus zorsCrossCorr_64fc(const Zor64fc* src1, Zor32s len1, const Zor64fc* src2, Zor32s len2, Zor64fc* dst,
                             Zor32s dstLen, Zor32s lowLag);
/** @} */

/** @name Correlation in a caller's buffer
 *  The same sums, with nothing allocated. algType, bits 0 to 7, is the method: 0 by the thresholds above, 1 direct, 2 by
 *  transforms; bits 8 to 15 the normalisation: 0 none; 0x100 times 1 / srcLen, or 1 / the shorter length of two,
 *  rounded; 0x200 divided by the number of an output's products, cross-correlations with the shorter operand whole inside
 *  the longer times 1 / its length, rounded; other bits have no meaning. Anything else is
 *  zorStatusBadAlgorithmType. GetBufferSize: the bytes of the buffer for a call with the same arguments, 64 for direct
 *  sums; dataType is 13 for 32f, 14 for 32fc, 19 for 64f, 20 for 64fc, any other zorStatusBadDataType and a size of 0. A
 *  size beyond 32 bits is zorStatusNoMemory, an order of transforms beyond the kind's limit zorStatusBadOrder. Checks:
 *  pointers, lengths, algType, dataType.
 *  @{ */
ZorStatus zorsAutoCorrNormGetBufferSize(Zor32s srcLen, Zor32s dstLen, Zor32s dataType, Zor32s algType, Zor32s* size);
ZorStatus zorsAutoCorrNorm_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer);
ZorStatus zorsAutoCorrNorm_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer);
ZorStatus zorsAutoCorrNorm_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer);
ZorStatus zorsAutoCorrNorm_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer);
ZorStatus zorsCrossCorrNormGetBufferSize(Zor32s len1, Zor32s len2, Zor32s dstLen, Zor32s lowLag, Zor32s dataType,
                                         Zor32s algType, Zor32s* size);
ZorStatus zorsCrossCorrNorm_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                                Zor32s dstLen, Zor32s lowLag, Zor32s algType, Zor8u* buffer);
ZorStatus zorsCrossCorrNorm_32fc(const Zor32fc* src1, Zor32s len1, const Zor32fc* src2, Zor32s len2, Zor32fc* dst,
                                 Zor32s dstLen, Zor32s lowLag, Zor32s algType, Zor8u* buffer);
ZorStatus zorsCrossCorrNorm_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst,
                                Zor32s dstLen, Zor32s lowLag, Zor32s algType, Zor8u* buffer);
ZorStatus zorsCrossCorrNorm_64fc(const Zor64fc* src1, Zor32s len1, const Zor64fc* src2, Zor32s len2, Zor64fc* dst,
                                 Zor32s dstLen, Zor32s lowLag, Zor32s algType, Zor8u* buffer);
/** @} */

/** @name Convolution
 *  dst[n] = sum over k of src1[k] * src2[n - k], len1 + len2 - 1 results. By transforms where there are 512 or more of
 *  them and the shorter operand has 64 elements or more. Convolve: in a caller's buffer, with nothing allocated; algType
 *  is 0 for the same choice, 1 direct, 2 by transforms, any other zorStatusBadAlgorithmType; sizes as above, of 13 (32f)
 *  and 19 (64f). ConvBiased: the dstLen results from index bias on, which may lie anywhere; 0 outside of those that there
 *  are; always direct. Checks: pointers, lengths, algType, dataType.
 *  @{ */
ZorStatus zorsConv_16s_Sfs(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor16s* dst, Zor32s scaleFactor);
ZorStatus zorsConv_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst);
ZorStatus zorsConv_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst);
ZorStatus zorsConvBiased_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                             Zor32s dstLen, Zor32s bias);
ZorStatus zorsConvolve_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                           Zor32s algType, Zor8u* buffer);
ZorStatus zorsConvolve_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst,
                           Zor32s algType, Zor8u* buffer);
ZorStatus zorsConvolveGetBufferSize(Zor32s len1, Zor32s len2, Zor32s dataType, Zor32s algType, Zor32s* size);
/** @} */

/** @name Cyclic convolution
 *  y[n] = sum over k of x[k] * h[(n - k) mod N], N = 8, or 4 with real x and complex h. 16s: exact sums modulo 2^32, then
 *  the scale-factor rule with scaleFactor drawn into -31 .. 31. Nothing is checked, not even pointers. y may be an
 *  operand.
 *  @{ */
ZorStatus zorsConvCyclic4x4_32f32fc(const Zor32f* x, const Zor32fc* h, Zor32fc* y);
ZorStatus zorsConvCyclic8x8_16s_Sfs(const Zor16s* x, const Zor16s* h, Zor16s* y, Zor32s scaleFactor);
ZorStatus zorsConvCyclic8x8_32f(const Zor32f* x, const Zor32f* h, Zor32f* y);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
