/** @file
 *  FIR filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_FIR_H
#define ZORS_FIR_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorFIRState ZorFIRState;

/** @name FIR states
 *  State of a FIR filter y[i] = sum over k of taps[k] * x[i-k], k from 0 to tapsLen - 1.
 *  Names: zorsFIR<taps>_<samples>; one type where they agree. 32f_16s, 32fc_16sc compute in binary32, 64f_* and 64fc_*
 *  in binary64; 16s, 32s_16s and 32sc_16sc in 16-bit taps and samples with 32-bit sums that wrap, the result times
 *  2^tapsFactor; 32s_16s32f and 32sc_16sc32fc are the same state built from float taps. 32s is a 64f_32s state with
 *  integer taps. GetStateSize writes the bytes of the state. Init builds it inside buffer (any alignment) and writes its
 *  address to state; InitAlloc allocates it; Free releases what InitAlloc allocated. dly holds the last tapsLen inputs,
 *  the newest first; null: zeros. GetDlyLine and SetDlyLine have the same order; integers from a float delay line are
 *  cut toward zero. SetTaps replaces the taps, their number stays. Integer taps are normalised to 16 bits: 16s taps with
 *  a -32768 among them are halved, 32s taps shifted right until the largest magnitude is at most 32,766, and tapsFactor
 *  grows by the shift; float taps are scaled so that the largest ends in 16,384 to 32,767. GetTaps returns what is
 *  stored, and the factor; as floats, the products of both. SetTaps32f_16s keeps a deviation: it writes the taps in the
 *  layout of 32f over the state's own, history included; build a new state instead. Checks: pointers; then tapsLen below
 *  1, zorStatusBadTapsLength, or the state's tag. A size that 32 bits do not hold: GetStateSize, Init and InitAlloc give
 *  zorStatusNoMemory. InitAlloc: zorStatusNoMemory leaves *state alone; where only the FFT cannot be had, the filter is a
 *  direct one (InitAlloc_32s returns the status of a transform of the taps that fails). Free clears the tag in the memory
 *  that it releases; a state from Init stays as it is.
 *  @{ */
ZorStatus zorsFIRGetStateSize_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_64f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_64fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_32s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32f_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32fc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_32s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_32sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32s_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32sc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32s_16s32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32sc_16sc32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor64fc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_32s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor32s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32fc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly,
                          Zor8u* buffer);
ZorStatus zorsFIRInit32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                             const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                               const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly,
                                Zor8u* buffer);
ZorStatus zorsFIRInit32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                                   Zor8u* buffer);
ZorStatus zorsFIRInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly);
ZorStatus zorsFIRInitAlloc_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor32fc* dly);
ZorStatus zorsFIRInitAlloc_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor64f* dly);
ZorStatus zorsFIRInitAlloc_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor64fc* dly);
ZorStatus zorsFIRInitAlloc_32s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor32s* dly);
ZorStatus zorsFIRInitAlloc32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32f* dly);
ZorStatus zorsFIRInitAlloc64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32s* dly);
ZorStatus zorsFIRInitAlloc64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32fc* dly);
ZorStatus zorsFIRInitAlloc64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32sc* dly);
ZorStatus zorsFIRInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                               const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                  const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                    const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRFree_32f(ZorFIRState* state);
ZorStatus zorsFIRFree_32fc(ZorFIRState* state);
ZorStatus zorsFIRFree_64f(ZorFIRState* state);
ZorStatus zorsFIRFree_64fc(ZorFIRState* state);
ZorStatus zorsFIRFree_32s(ZorFIRState* state);
ZorStatus zorsFIRFree32f_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32fc_16sc(ZorFIRState* state);
ZorStatus zorsFIRFree64f_16s(ZorFIRState* state);
ZorStatus zorsFIRFree64f_32f(ZorFIRState* state);
ZorStatus zorsFIRFree64f_32s(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_16sc(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_32fc(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_32sc(ZorFIRState* state);
ZorStatus zorsFIRFree_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32s_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32sc_16sc(ZorFIRState* state);
ZorStatus zorsFIRGetTaps_32f(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps_32fc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRGetTaps_64f(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps_64fc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps_32s(const ZorFIRState* state, Zor32s* taps);
ZorStatus zorsFIRGetTaps32f_16s(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps32fc_16sc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRGetTaps64f_16s(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64f_32f(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64f_32s(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64fc_16sc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps64fc_32fc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps64fc_32sc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps_16s(const ZorFIRState* state, Zor16s* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32s_16s(const ZorFIRState* state, Zor32s* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32sc_16sc(const ZorFIRState* state, Zor32sc* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32s_16s32f(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps32sc_16sc32fc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRSetTaps_32f(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_32fc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_64f(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_64fc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_32s(const Zor32s* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32f_16s(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32fc_16sc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_16s(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_32f(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_32s(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_16sc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_32fc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_32sc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_16s(const Zor16s* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32s_16s(const Zor32s* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32sc_16sc(const Zor32sc* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32s_16s32f(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32sc_16sc32fc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRGetDlyLine_32f(const ZorFIRState* state, Zor32f* dly);
ZorStatus zorsFIRGetDlyLine_32fc(const ZorFIRState* state, Zor32fc* dly);
ZorStatus zorsFIRGetDlyLine_64f(const ZorFIRState* state, Zor64f* dly);
ZorStatus zorsFIRGetDlyLine_64fc(const ZorFIRState* state, Zor64fc* dly);
ZorStatus zorsFIRGetDlyLine32f_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32fc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRGetDlyLine64f_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine64f_32f(const ZorFIRState* state, Zor32f* dly);
ZorStatus zorsFIRGetDlyLine64f_32s(const ZorFIRState* state, Zor32s* dly);
ZorStatus zorsFIRGetDlyLine64fc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRGetDlyLine64fc_32fc(const ZorFIRState* state, Zor32fc* dly);
ZorStatus zorsFIRGetDlyLine64fc_32sc(const ZorFIRState* state, Zor32sc* dly);
ZorStatus zorsFIRGetDlyLine_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32s_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32sc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine_32f(ZorFIRState* state, const Zor32f* dly);
ZorStatus zorsFIRSetDlyLine_32fc(ZorFIRState* state, const Zor32fc* dly);
ZorStatus zorsFIRSetDlyLine_64f(ZorFIRState* state, const Zor64f* dly);
ZorStatus zorsFIRSetDlyLine_64fc(ZorFIRState* state, const Zor64fc* dly);
ZorStatus zorsFIRSetDlyLine32f_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32fc_16sc(ZorFIRState* state, const Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine64f_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine64f_32f(ZorFIRState* state, const Zor32f* dly);
ZorStatus zorsFIRSetDlyLine64f_32s(ZorFIRState* state, const Zor32s* dly);
ZorStatus zorsFIRSetDlyLine64fc_16sc(ZorFIRState* state, const Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine64fc_32fc(ZorFIRState* state, const Zor32fc* dly);
ZorStatus zorsFIRSetDlyLine64fc_32sc(ZorFIRState* state, const Zor32sc* dly);
ZorStatus zorsFIRSetDlyLine_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32s_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32sc_16sc(ZorFIRState* state, const Zor16sc* dly);
/** @} */

/** @name FIR filtering with a state
 *  A call continues where the last one ended, whatever the lengths of the calls, and never
 *  allocates. Long blocks of many taps go through the FFT: from 512 real or 256 complex samples on, where the filter has
 *  at least 64 taps (32fc: 16, 64fc: 32); in place and without conversion by chunks of 4,224 samples, of which those
 *  with that many left behind them do. Integer arithmetic is always direct. One: a single sample. Numerics:
 *  docs/numerics.md has the sums. Scaled results are rounded to nearest even and saturated; integer sums are shifted by
 *  tapsFactor - scaleFactor, limited to -31..31, to the right with ties to even, and saturated. Blocks round to nearest
 *  whatever the current direction. Checks: pointers, len, the state's tag (single-rate).
 *  @{ */
ZorStatus zorsFIR_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32fc_I(Zor32fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64f(const Zor64f* src, Zor64f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64f_I(Zor64f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64fc_I(Zor64fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_32s_ISfs(Zor32s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64f_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64f_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_32s_ISfs(Zor32s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64fc_32fc_I(Zor32fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64fc_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_32sc_ISfs(Zor32sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32s_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32s_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne_32f(Zor32f val, Zor32f* dst, ZorFIRState* state);
ZorStatus zorsFIROne_32fc(Zor32fc val, Zor32fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne_64f(Zor64f val, Zor64f* dst, ZorFIRState* state);
ZorStatus zorsFIROne_64fc(Zor64fc val, Zor64fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne_32s_Sfs(Zor32s val, Zor32s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32f_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_32f(Zor32f val, Zor32f* dst, ZorFIRState* state);
ZorStatus zorsFIROne64f_32s_Sfs(Zor32s val, Zor32s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_32fc(Zor32fc val, Zor32fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne64fc_32sc_Sfs(Zor32sc val, Zor32sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);
/** @} */

/** @name FIR with the caller's delay line
 *  FIR filtering with the caller's delay line dly of 2 * tapsLen samples and *dlyIndex, 0 at first: a doubled ring, each
 *  input at dly[*dlyIndex] and dly[*dlyIndex + tapsLen]. One: a single sample. Numerics: products in the taps' type.
 *  FIR_Direct_32f sums them in binary64, FIROne_Direct_32f in binary32, the others in the taps' type. Results of float
 *  sums for integer samples are multiplied by 2^-scaleFactor, limited, and rounded with ties away from zero. 32s and
 *  32sc taps: 32-bit sums that wrap, shifted by tapsFactor - scaleFactor as above; 16s taps have 15 fractional bits, a
 *  tapsFactor of -15. FIR_Direct_32fc, _64f, _64fc run long filters (32, 32, 16 taps), and their _I forms all, through a
 *  state made for the call (zorStatusNoMemory, with that span of dly left in reverse order); *dlyIndex stays then, and
 *  tapsLen samples from it on are the history. dst may be src: all results are those of separate arrays, for which the
 *  three copy the source (zorStatusNoMemory, nothing changed).
 *  FIR_Direct_16s works through a state too: it reads the history from dly[*dlyIndex] on, newest first, leaves it so at
 *  dly[0] and sets *dlyIndex to 0; FIROne_Direct_16s works on the ring. The two do not mix. Checks: src, dst, len, taps,
 *  tapsLen, dly, dlyIndex; One: dst, taps, tapsLen, dly, dlyIndex; of 16s at last *dlyIndex outside 0 to tapsLen - 1,
 *  zorStatusBadDelayIndex.
 *  @{ */
ZorStatus zorsFIR_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s tapsLen,
                                 Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly,
                                  Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen,
                             Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly,
                               Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen,
                              Zor32fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64f(const Zor64f* src, Zor64f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                             Zor64f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64f_I(Zor64f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly,
                               Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                              Zor64fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64fc_I(Zor64fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIR32f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen,
                                    Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen,
                                      Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32s_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor32s* taps, Zor32s tapsLen,
                                    Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32s_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                     Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen,
                                      Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen,
                                       Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                    Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR64f_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly,
                                  Zor32s* dlyIndex);
ZorStatus zorsFIR64f_Direct_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                    Zor32s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_32s_ISfs(Zor32s* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                      Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                  Zor32fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR64fc_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                    Zor32s* dlyIndex);
ZorStatus zorsFIR64fc_Direct_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                      Zor32sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_32sc_ISfs(Zor32sc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly,
                                    Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_16s_ISfs(Zor16s* srcDst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex,
                                     Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_32f(Zor32f val, Zor32f* dst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32f_I(Zor32f* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32fc(Zor32fc val, Zor32fc* dst, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                 Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32fc_I(Zor32fc* srcDst, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64f(Zor64f val, Zor64f* dst, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64f_I(Zor64f* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64fc(Zor64fc val, Zor64fc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                 Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64fc_I(Zor64fc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne32f_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32f_Direct_16s_ISfs(Zor16s* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                       Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_Direct_16s_ISfs(Zor16s* srcDst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                        Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor32sc* taps, Zor32s tapsLen,
                                         Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                          Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_16s_ISfs(Zor16s* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_32f(Zor32f val, Zor32f* dst, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne64f_Direct_32f_I(Zor32f* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne64f_Direct_32s_Sfs(Zor32s val, Zor32s* dst, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_32s_ISfs(Zor32s* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_32fc(Zor32fc val, Zor32fc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                     Zor32s* dlyIndex);
ZorStatus zorsFIROne64fc_Direct_32fc_I(Zor32fc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                       Zor32s* dlyIndex);
ZorStatus zorsFIROne64fc_Direct_32sc_Sfs(Zor32sc val, Zor32sc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_32sc_ISfs(Zor32sc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
