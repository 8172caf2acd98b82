/** @file
 *  FIR filters that change the rate, filters that read ahead in their source, filters with a specification. The
 *  conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_MULTIRATE_H
#define ZORS_MULTIRATE_H

#include "zors/fir.h"
#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Multi-rate states
 *  A filter between a rise and a fall of the rate: v[upPhase + m * upFactor] = src[m] with zeros between, w[p] = sum over
 *  k of taps[k] * v[p-k], dst[i] = w[downPhase + i * downFactor]. No zero is multiplied. Names, taps and tapsFactor are
 *  those of the FIR states; the calls of fir.h for filtering, taps, delay line and release take these states too. A
 *  filter call's len counts iterations: downFactor samples are read and upFactor written in each, and every call
 *  starts with the phases of the build. In place: with more outputs than inputs, or more than 4,096 outputs an
 *  iteration, the source is copied to memory of its own first, and zorStatusNoMemory leaves everything as it was. SetTaps
 *  keeps factors, phases and history. The delay line has ceil(tapsLen / upFactor) samples, the newest first; null: zeros.
 *  Factors of 1 build a single-rate state. One-sample calls refuse multi-rate states.
 *  Checks: pointers; tapsLen, zorStatusBadTapsLength; factors, zorStatusBadMultiRateFactor; phases outside 0 to factor - 1,
 *  zorStatusBadMultiRatePhase.
 *  Numerics: sums in the arithmetic of the kind, multiply-adds fused; their order is free and the same for every place.
 *  @{ */
ZorStatus zorsFIRMRGetStateSize_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize_32f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize_32fc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize_64f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize_64fc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32f_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32fc_16sc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32s_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32s_16s32f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32sc_16sc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize32sc_16sc32fc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64f_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64f_32f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64f_32s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64fc_16sc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64fc_32fc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRGetStateSize64fc_32sc(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor64fc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32s* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInit64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32sc* dly, Zor8u* buffer);
ZorStatus zorsFIRMRInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly);
ZorStatus zorsFIRMRInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32f* dly);
ZorStatus zorsFIRMRInitAlloc_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32fc* dly);
ZorStatus zorsFIRMRInitAlloc_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor64f* dly);
ZorStatus zorsFIRMRInitAlloc_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor64fc* dly);
ZorStatus zorsFIRMRInitAlloc32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly);
ZorStatus zorsFIRMRInitAlloc32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly);
ZorStatus zorsFIRMRInitAlloc32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly);
ZorStatus zorsFIRMRInitAlloc32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly);
ZorStatus zorsFIRMRInitAlloc32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly);
ZorStatus zorsFIRMRInitAlloc32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly);
ZorStatus zorsFIRMRInitAlloc64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16s* dly);
ZorStatus zorsFIRMRInitAlloc64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32f* dly);
ZorStatus zorsFIRMRInitAlloc64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32s* dly);
ZorStatus zorsFIRMRInitAlloc64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor16sc* dly);
ZorStatus zorsFIRMRInitAlloc64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32fc* dly);
ZorStatus zorsFIRMRInitAlloc64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, const Zor32sc* dly);
/** @} */

/** @name Multi-rate filters without a state
 *  The same, with the caller's taps and delay line: dly holds the last ceil(tapsLen / upFactor) inputs, the newest first, and
 *  again so after the call. In place the source is copied to allocated memory first. Float sums in the type of the taps; integer
 *  results times 2^-scaleFactor, to nearest with ties away from zero, saturated. 32s and 32sc taps: 32-bit sums that wrap, times
 *  2^(tapsFactor - scaleFactor), the exponent limited to -31 .. 31, ties to even, saturated.
 *  Checks: src, dst; numIters, zorStatusBadSize; taps; tapsLen; factors; phases; dly.
 *  @{ */
ZorStatus zorsFIRMR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s numIters, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32f* dly);
ZorStatus zorsFIRMR_Direct_32f_I(Zor32f* srcDst, Zor32s numIters, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32f* dly);
ZorStatus zorsFIRMR_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s numIters, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32fc* dly);
ZorStatus zorsFIRMR_Direct_32fc_I(Zor32fc* srcDst, Zor32s numIters, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32fc* dly);
ZorStatus zorsFIRMR_Direct_64f(const Zor64f* src, Zor64f* dst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor64f* dly);
ZorStatus zorsFIRMR_Direct_64f_I(Zor64f* srcDst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor64f* dly);
ZorStatus zorsFIRMR_Direct_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor64fc* dly);
ZorStatus zorsFIRMR_Direct_64fc_I(Zor64fc* srcDst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor64fc* dly);
ZorStatus zorsFIRMR64f_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32f* dly);
ZorStatus zorsFIRMR64f_Direct_32f_I(Zor32f* srcDst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32f* dly);
ZorStatus zorsFIRMR64fc_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32fc* dly);
ZorStatus zorsFIRMR64fc_Direct_32fc_I(Zor32fc* srcDst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32fc* dly);
ZorStatus zorsFIRMR32f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s numIters, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s numIters, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s numIters, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s numIters, const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64f_Direct_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64f_Direct_32s_ISfs(Zor32s* srcDst, Zor32s numIters, const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64fc_Direct_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR64fc_Direct_32sc_ISfs(Zor32sc* srcDst, Zor32s numIters, const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor32sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32s_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s numIters, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32s_Direct_16s_ISfs(Zor16s* srcDst, Zor32s numIters, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16s* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32sc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s numIters, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
ZorStatus zorsFIRMR32sc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s numIters, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor16sc* dly, Zor32s scaleFactor);
/** @} */

/** @name Streams
 *  Filters without a history, which read ahead: dst[i] = sum over k of taps[k] * src[i + tapsLen - 1 - k], so src has
 *  tapsLen - 1 samples more than len. With rates: v as above, dst[i] = sum over k of taps[k] * v[p + tapsLen - 1 - k], p =
 *  downPhase + i * downFactor. zorsFIR_32f, zorsFIR_16s_Sfs and their in-place forms run them, zorsFIRFree_* releases
 *  them. In place outputs go in order, one by one. 16s: 32-bit sums that wrap, times 2^(tapsFactor - scaleFactor), the
 *  exponent limited to -31 .. 31, a right shift rounded by roundMode, then saturated.
 *  Checks: pointers; tapsLen; factors; phases; roundMode, zorStatusBadRoundMode.
 *  @{ */
ZorStatus zorsFIRStreamGetStateSize_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRStreamGetStateSize_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRStreamInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor8u* buffer);
ZorStatus zorsFIRStreamInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, ZorRoundMode roundMode, Zor8u* buffer);
ZorStatus zorsFIRStreamInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen);
ZorStatus zorsFIRStreamInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, ZorRoundMode roundMode);
ZorStatus zorsFIRMRStreamGetStateSize_32f(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRStreamGetStateSize_16s(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s* size);
ZorStatus zorsFIRMRStreamInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* buffer);
ZorStatus zorsFIRMRStreamInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, ZorRoundMode roundMode, Zor8u* buffer);
ZorStatus zorsFIRMRStreamInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase);
ZorStatus zorsFIRMRStreamInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, ZorRoundMode roundMode);
/** @} */

/** @name Filters with a specification
 *  The taps are kept in a specification, which runs only read; the history is the caller's, and a buffer of bufSize bytes
 *  serves one run at a time. GetSize: tapsType is the type of the taps, 13 (32f), 14 (32fc), 19 (64f), 20 (64fc); it writes
 *  the bytes of specification and buffer (any alignment). SR: one rate, numIters samples, a history of tapsLen - 1. MR: two rates, as
 *  multi-rate states, a history of ceil(tapsLen / upFactor). dlySrc and dlyDst: the last inputs, oldest first; null:
 *  zeros, or not wanted. dst may be src or dlySrc, dlyDst may be dlySrc. 16s and 16sc compute with 32f and 32fc taps and round
 *  to nearest even, saturated. algType from 0 to 2 makes no difference.
 *  Checks: SRGetSize: tapsLen, zorStatusBadSize; tapsType, zorStatusBadDataType; pointers. MRGetSize: tapsLen,
 *  zorStatusBadTapsLength; tapsType; pointers; factors. SRInit: tapsLen, zorStatusBadSize; pointers; algType,
 *  zorStatusBadAlgorithmType. MR_Init: tapsLen, zorStatusBadTapsLength; factors; phases; pointers. Runs: spec, src, dst, buffer;
 *  numIters.
 *  @{ */
ZorStatus zorsFIRSRGetSize(Zor32s tapsLen, Zor32s tapsType, Zor32s* specSize, Zor32s* bufSize);
ZorStatus zorsFIRMRGetSize(Zor32s tapsLen, Zor32s upFactor, Zor32s downFactor, Zor32s tapsType, Zor32s* specSize, Zor32s* bufSize);
ZorStatus zorsFIRSRInit_32f(const Zor32f* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec);
ZorStatus zorsFIRSRInit_32fc(const Zor32fc* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec);
ZorStatus zorsFIRSRInit_64f(const Zor64f* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec);
ZorStatus zorsFIRSRInit_64fc(const Zor64fc* taps, Zor32s tapsLen, Zor32s algType, Zor8u* spec);
ZorStatus zorsFIRMR_Init_32f(const Zor32f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* spec);
ZorStatus zorsFIRMR_Init_32fc(const Zor32fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* spec);
ZorStatus zorsFIRMR_Init_64f(const Zor64f* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* spec);
ZorStatus zorsFIRMR_Init_64fc(const Zor64fc* taps, Zor32s tapsLen, Zor32s upFactor, Zor32s upPhase, Zor32s downFactor, Zor32s downPhase, Zor8u* spec);
ZorStatus zorsFIRSR_16s(const Zor16s* src, Zor16s* dst, Zor32s numIters, const Zor8u* spec, const Zor16s* dlySrc, Zor16s* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRSR_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s numIters, const Zor8u* spec, const Zor16sc* dlySrc, Zor16sc* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRSR_32f(const Zor32f* src, Zor32f* dst, Zor32s numIters, const Zor8u* spec, const Zor32f* dlySrc, Zor32f* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRSR_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s numIters, const Zor8u* spec, const Zor32fc* dlySrc, Zor32fc* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRSR_64f(const Zor64f* src, Zor64f* dst, Zor32s numIters, const Zor8u* spec, const Zor64f* dlySrc, Zor64f* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRSR_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s numIters, const Zor8u* spec, const Zor64fc* dlySrc, Zor64fc* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_16s(const Zor16s* src, Zor16s* dst, Zor32s numIters, const Zor8u* spec, const Zor16s* dlySrc, Zor16s* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s numIters, const Zor8u* spec, const Zor16sc* dlySrc, Zor16sc* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_32f(const Zor32f* src, Zor32f* dst, Zor32s numIters, const Zor8u* spec, const Zor32f* dlySrc, Zor32f* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s numIters, const Zor8u* spec, const Zor32fc* dlySrc, Zor32fc* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_64f(const Zor64f* src, Zor64f* dst, Zor32s numIters, const Zor8u* spec, const Zor64f* dlySrc, Zor64f* dlyDst, Zor8u* buffer);
ZorStatus zorsFIRMR_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s numIters, const Zor8u* spec, const Zor64fc* dlySrc, Zor64fc* dlyDst, Zor8u* buffer);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
