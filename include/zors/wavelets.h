/** @file
 *  Wavelet transforms. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_WAVELETS_H
#define ZORS_WAVELETS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorWTFwdState ZorWTFwdState;
typedef struct ZorWTInvState ZorWTInvState;

/** @name WTHaarFwd
 *  One level of the Haar transform: from each pair x0, x1 of src one value of each band, (x0 + x1) / 2 to dstLow and
 *  (x1 - x0) / 2 to dstHigh. len counts the samples of src; dstLow receives (len + 1) / 2 values, dstHigh len / 2. The last
 *  sample of an odd len counts as a pair of equal ones and gives no value of dstHigh, whose pointer is tested all the same.
 *  Numerics: floats high = round(round(x1 - x0) * 0.5), low = round(x0 + high), in the current direction. Integers: the
 *  exact sum and difference over 2^(scaleFactor + 1) (without _Sfs: over 2), to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsWTHaarFwd_8s(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh);
ZorStatus zorsWTHaarFwd_16s(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh);
ZorStatus zorsWTHaarFwd_32s(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh);
ZorStatus zorsWTHaarFwd_64s(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh);
ZorStatus zorsWTHaarFwd_32f(const Zor32f* src, Zor32s len, Zor32f* dstLow, Zor32f* dstHigh);
ZorStatus zorsWTHaarFwd_64f(const Zor64f* src, Zor32s len, Zor64f* dstLow, Zor64f* dstHigh);
ZorStatus zorsWTHaarFwd_8s_Sfs(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_64s_Sfs(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh, Zor32s scaleFactor);
/** @} */

/** @name WTHaarInv
 *  The way back: srcLow - srcHigh and srcLow + srcHigh, one pair of dst after the other. len counts the samples of dst; the
 *  last sample of an odd len is the last value of srcLow. dst overlaps no source.
 *  Numerics: floats one rounding, current. Integers: exact over 2^scaleFactor, to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsWTHaarInv_8s(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_16s(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_32s(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_64s(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_32f(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32f* dst, Zor32s len);
ZorStatus zorsWTHaarInv_64f(const Zor64f* srcLow, const Zor64f* srcHigh, Zor64f* dst, Zor32s len);
ZorStatus zorsWTHaarInv_8s_Sfs(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_16s_Sfs(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_32s_Sfs(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_64s_Sfs(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

/** @name WTFwd: two bands of a stream
 *  A stream in pieces of any length: WTFwd reads 2 * dstLen samples and writes dstLen to each band. Output k of a band,
 *  counted from the stream's start, is the sum over i of taps[i] * x[2k + p - i - o]; at offset -1 p = 1, o = 0, from 0 on
 *  p = 0 and o is the offset. Samples before the start are zeros.
 *  InitAlloc copies the taps; a state belongs to one direction and one sample type, others are refused. A band's delay line
 *  has taps - 1 - p + o samples, oldest first: Get writes it, Set makes it the past, whatever passed before.
 *  Checks: InitAlloc stateOut, tapsLow; lenLow; tapsHigh; lenHigh; offsets below -1 (zorStatusBadWaveletFilter). Memory that
 *  is refused sets *stateOut to null. The others: state, its tag, data pointers, length. Free clears the tag.
 *  Numerics: sums by fused multiply-adds in binary32, in an order that depends on neither piece nor place; integers are
 *  converted exactly before. Current direction.
 *  @{ */
ZorStatus zorsWTFwdInitAlloc_32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTFwdInitAlloc_8u32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTFwdInitAlloc_8s32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTFwdInitAlloc_16u32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTFwdInitAlloc_16s32f(ZorWTFwdState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTFwd_32f(const Zor32f* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state);
ZorStatus zorsWTFwd_8u32f(const Zor8u* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state);
ZorStatus zorsWTFwd_8s32f(const Zor8s* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state);
ZorStatus zorsWTFwd_16u32f(const Zor16u* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state);
ZorStatus zorsWTFwd_16s32f(const Zor16s* src, Zor32f* dstLow, Zor32f* dstHigh, Zor32s dstLen, ZorWTFwdState* state);
ZorStatus zorsWTFwdGetDlyLine_32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTFwdGetDlyLine_8u32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTFwdGetDlyLine_8s32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTFwdGetDlyLine_16u32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTFwdGetDlyLine_16s32f(const ZorWTFwdState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTFwdSetDlyLine_32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTFwdSetDlyLine_8u32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTFwdSetDlyLine_8s32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTFwdSetDlyLine_16u32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTFwdSetDlyLine_16s32f(ZorWTFwdState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTFwdFree_32f(ZorWTFwdState* state);
ZorStatus zorsWTFwdFree_8u32f(ZorWTFwdState* state);
ZorStatus zorsWTFwdFree_8s32f(ZorWTFwdState* state);
ZorStatus zorsWTFwdFree_16u32f(ZorWTFwdState* state);
ZorStatus zorsWTFwdFree_16s32f(ZorWTFwdState* state);
/** @} */

/** @name WTInv: a stream of two bands
 *  The way back: reads srcLen samples of each band and writes 2 * srcLen. Sample m, counted from the stream's start, is the
 *  sum over both bands and i of taps[i] * up[m - i - d], where up[2k] is sample k of the band, zero between; d is the offset,
 *  but 1 at offset -1. A band's delay line has (taps + offset - 1) / 2 samples, oldest first; at offset -1 that is one less
 *  than count, and Set clears that one. Filters that match those of WTFwd restore its input, delayed.
 *  Checks: as by WTFwd.
 *  Numerics: as by WTFwd, the high band's sum added to the low band's; integers then to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsWTInvInitAlloc_32f(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTInvInitAlloc_32f8u(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTInvInitAlloc_32f8s(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTInvInitAlloc_32f16u(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTInvInitAlloc_32f16s(ZorWTInvState** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh, Zor32s lenHigh, Zor32s offsHigh);
ZorStatus zorsWTInv_32f(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor32f* dst, ZorWTInvState* state);
ZorStatus zorsWTInv_32f8u(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor8u* dst, ZorWTInvState* state);
ZorStatus zorsWTInv_32f8s(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor8s* dst, ZorWTInvState* state);
ZorStatus zorsWTInv_32f16u(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor16u* dst, ZorWTInvState* state);
ZorStatus zorsWTInv_32f16s(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32s srcLen, Zor16s* dst, ZorWTInvState* state);
ZorStatus zorsWTInvGetDlyLine_32f(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTInvGetDlyLine_32f8u(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTInvGetDlyLine_32f8s(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTInvGetDlyLine_32f16u(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTInvGetDlyLine_32f16s(const ZorWTInvState* state, Zor32f* dlyLow, Zor32f* dlyHigh);
ZorStatus zorsWTInvSetDlyLine_32f(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTInvSetDlyLine_32f8u(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTInvSetDlyLine_32f8s(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTInvSetDlyLine_32f16u(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTInvSetDlyLine_32f16s(ZorWTInvState* state, const Zor32f* dlyLow, const Zor32f* dlyHigh);
ZorStatus zorsWTInvFree_32f(ZorWTInvState* state);
ZorStatus zorsWTInvFree_32f8u(ZorWTInvState* state);
ZorStatus zorsWTInvFree_32f8s(ZorWTInvState* state);
ZorStatus zorsWTInvFree_32f16u(ZorWTInvState* state);
ZorStatus zorsWTInvFree_32f16s(ZorWTInvState* state);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
