/** @file
 *  Running median, sparse filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_FILTERS_H
#define ZORS_FILTERS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Running median
 *  dst[i] = the median of src[i-h] to src[i+h], h = mask / 2; before the start stands src[0], behind the end src[len-1].
 *  An even mask counts as the odd one below it, and the status is the warning zorStatusEvenMedianMaskSize. Any odd mask,
 *  also one longer than the vector; a mask of 1 copies, and fewer than three elements stay as they are. Zeros of both
 *  signs are equal: which of them is the median is not stated. A NaN spoils the results of its windows, no others.
 *  Checks: pointers; len, mask below 1, zorStatusBadSize. Masks from 11 on allocate twice the mask: zorStatusNoMemory
 *  leaves the data alone, also where that is more than a 32-bit count of bytes.
 *  @{ */
ZorStatus zorsFilterMedian_8u(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_8u_I(Zor8u* srcDst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_16s_I(Zor16s* srcDst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_32s_I(Zor32s* srcDst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_32f_I(Zor32f* srcDst, Zor32s len, Zor32s mask);
ZorStatus zorsFilterMedian_64f_I(Zor64f* srcDst, Zor32s len, Zor32s mask);
/** @} */

typedef struct ZorFIRSparseState ZorFIRSparseState;
typedef struct ZorIIRSparseState ZorIIRSparseState;

/** @name Sparse filters
 *  Filters with few taps and far places, nzTaps[k] at nzTapPos[k], places strictly rising.
 *  FIR: dst[i] = sum over k of nzTaps[k] * src[i - nzTapPos[k]]. IIR: the same over the first nzTapsLen1 taps, to which
 *  the products of the following nzTapsLen2 taps and earlier outputs dst[i - nzTapPos[k]] are added as they are. src and
 *  dst may not overlap. GetStateSize writes the bytes of a state; order is the last place of each part, at least (a
 *  greater one gives a larger block). Init copies taps and places, builds the state inside buffer (any alignment) and
 *  writes its address to state; nothing is released. dly holds the last order inputs, the newest first, behind them,
 *  for IIR, the last order2 outputs likewise; null: zeros. States have no tag. Numerics: one fused multiply-add for each
 *  tap; FIR from the last tap to the first; IIR the first part in the caller's order, then the second from its last tap.
 *  Checks: pointers; counts below 1, zorStatusBadTapsLength (FIR, orders of its GetStateSize too) or zorStatusBadFilterOrder (IIR,
 *  where GetStateSize takes nzTapsLen2 = 0); places out of order, negative, or 0 for the first IIR tap of the second
 *  part, and negative orders, zorStatusBadSparsePositions. A size beyond 32 bits: zorStatusNoMemory.
 *  @{ */
ZorStatus zorsFIRSparseGetStateSize_32f(Zor32s nzTapsLen, Zor32s order, Zor32s* size);
ZorStatus zorsFIRSparseInit_32f(ZorFIRSparseState** state, const Zor32f* nzTaps, const Zor32s* nzTapPos, Zor32s nzTapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRSparseGetDlyLine_32f(const ZorFIRSparseState* state, Zor32f* dly);
ZorStatus zorsFIRSparseSetDlyLine_32f(ZorFIRSparseState* state, const Zor32f* dly);
ZorStatus zorsFIRSparse_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRSparseState* state);
ZorStatus zorsIIRSparseGetStateSize_32f(Zor32s nzTapsLen1, Zor32s nzTapsLen2, Zor32s order1, Zor32s order2, Zor32s* size);
ZorStatus zorsIIRSparseInit_32f(ZorIIRSparseState** state, const Zor32f* nzTaps, const Zor32s* nzTapPos, Zor32s nzTapsLen1, Zor32s nzTapsLen2, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsIIRSparse_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorIIRSparseState* state);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
