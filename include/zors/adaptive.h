/** @file
 *  Adaptive FIR filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_ADAPTIVE_H
#define ZORS_ADAPTIVE_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorFIRLMSState ZorFIRLMSState;
typedef struct ZorFIRLMSMRState ZorFIRLMSMRState;

/** @name Least-mean-squares filters of blocks
 *  For each sample: dst[i] = y = sum over k of taps[k] * src[i-k], e = ref[i] - y, then taps[k] += 2 mu e src[i-k].
 *  32f_16s: the same in binary32 with 16-bit samples; results round to nearest even and saturate, e has y as it was.
 *  InitAlloc allocates the state, Free releases it. taps, the newest sample's first, or null for zeros. dly: tapsLen
 *  samples of a ring, dly[dlyIndex] the oldest, or null for zeros; GetDlyLine returns them and the index so (after a block
 *  index 0 and the newest samples), SetDlyLine replaces both. An index outside 0 to tapsLen - 1 is kept and counts as 0
 *  once the filter runs. Numerics: binary32; 2 mu is formed once, times e rounded, then multiply-adds, fused; the order
 *  of sums is free. dst may be src or ref. Checks: pointers, lengths, tag; InitAlloc: state, tapsLen, memory.
 *  @{ */
ZorStatus zorsFIRLMSInitAlloc_32f(ZorFIRLMSState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMSInitAlloc32f_16s(ZorFIRLMSState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMSFree_32f(ZorFIRLMSState* state);
ZorStatus zorsFIRLMSFree32f_16s(ZorFIRLMSState* state);
ZorStatus zorsFIRLMSGetTaps_32f(const ZorFIRLMSState* state, Zor32f* taps);
ZorStatus zorsFIRLMSGetTaps32f_16s(const ZorFIRLMSState* state, Zor32f* taps);
ZorStatus zorsFIRLMSGetDlyLine_32f(const ZorFIRLMSState* state, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSGetDlyLine32f_16s(const ZorFIRLMSState* state, Zor16s* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSSetDlyLine_32f(ZorFIRLMSState* state, const Zor32f* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMSSetDlyLine32f_16s(ZorFIRLMSState* state, const Zor16s* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMS_32f(const Zor32f* src, const Zor32f* ref, Zor32f* dst, Zor32s len, Zor32f mu, ZorFIRLMSState* state);
ZorStatus zorsFIRLMS32f_16s(const Zor16s* src, const Zor16s* ref, Zor16s* dst, Zor32s len, Zor32f mu, ZorFIRLMSState* state);
/** @} */

/** @name Least-mean-squares filters of one sample
 *  Without a state: src enters the doubled ring dly, of 2 * tapsLen samples, at *dlyIndex and *dlyIndex + tapsLen, and
 *  *dlyIndex advances. y = sum over k of taps[k] * w[k], where w is the newest tapsLen samples, oldest first: taps
 *  stand in the order of the window. *dst = y; taps[k] += 2 mu (ref - y) w[k]. 16s results round to nearest even and saturate.
 *  DirectQ15: taps have 15 fractional bits; in binary64, y = sum * 2^-15, taps[k] += muQ15 (ref - y) w[k] / energy of w, to
 *  nearest even and saturated. Where the window is all zeros *dst and taps stay.
 *  Checks: pointers; tapsLen, zorStatusBadSize; *dlyIndex, zorStatusBadDelayIndex.
 *  @{ */
ZorStatus zorsFIRLMSOne_Direct_32f(Zor32f src, Zor32f ref, Zor32f* dst, Zor32f* taps, Zor32s tapsLen, Zor32f mu, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSOne_Direct32f_16s(Zor16s src, Zor16s ref, Zor16s* dst, Zor32f* taps, Zor32s tapsLen, Zor32f mu, Zor16s* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSOne_DirectQ15_16s(Zor16s src, Zor16s ref, Zor16s* dst, Zor32s* taps, Zor32s tapsLen, Zor32s muQ15, Zor16s* dly, Zor32s* dlyIndex);
/** @} */

/** @name Integer multi-rate adaptive filters
 *  Output, feed and update are calls of their own. The ring holds dlyLen = tapsLen * dlyStep + updateDelay samples. PutVal
 *  puts a sample in; One gives, for the samples put in so far, the sum over k of r[k] * x[k * dlyStep], where r is the taps in
 *  reverse (GetTapsPointer's live array) and x[m] the sample m before the newest; OneVal does both. UpdateTaps, with the
 *  window of updateDelay samples ago: r[k] += e * x[k * dlyStep + updateDelay], e = (mu * err + 16384) >> 15; complex:
 *  times the conjugate sample. All in 32 bits that wrap. GetDlyVal gives x[0] for index 0, for index i the sample i - 1 places
 *  from the ring's oldest. dly is the ring in the order of its places, dly[dlyIndex] the oldest sample; null taps or dly
 *  are zeros. Checks: pointers, tag; InitAlloc: state; tapsLen, dlyStep, updateDelay below 0, dlyIndex outside the ring,
 *  zorStatusBadSize; GetDlyVal: index outside 0 to dlyStep - 1, zorStatusBadArgument.
 *  @{ */
ZorStatus zorsFIRLMSMRInitAlloc32s_16s(ZorFIRLMSMRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor16s* dly, Zor32s dlyIndex, Zor32s dlyStep, Zor32s updateDelay, Zor32s mu);
ZorStatus zorsFIRLMSMRInitAlloc32sc_16sc(ZorFIRLMSMRState** state, const Zor32sc* taps, Zor32s tapsLen, const Zor16sc* dly, Zor32s dlyIndex, Zor32s dlyStep, Zor32s updateDelay, Zor32s mu);
ZorStatus zorsFIRLMSMRFree32s_16s(ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMRFree32sc_16sc(ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMRSetMu32s_16s(ZorFIRLMSMRState* state, Zor32s mu);
ZorStatus zorsFIRLMSMRSetMu32sc_16sc(ZorFIRLMSMRState* state, Zor32s mu);
ZorStatus zorsFIRLMSMRSetTaps32s_16s(ZorFIRLMSMRState* state, const Zor32s* taps);
ZorStatus zorsFIRLMSMRSetTaps32sc_16sc(ZorFIRLMSMRState* state, const Zor32sc* taps);
ZorStatus zorsFIRLMSMRGetTaps32s_16s(const ZorFIRLMSMRState* state, Zor32s* taps);
ZorStatus zorsFIRLMSMRGetTaps32sc_16sc(const ZorFIRLMSMRState* state, Zor32sc* taps);
ZorStatus zorsFIRLMSMRGetTapsPointer32s_16s(ZorFIRLMSMRState* state, Zor32s** taps);
ZorStatus zorsFIRLMSMRGetTapsPointer32sc_16sc(ZorFIRLMSMRState* state, Zor32sc** taps);
ZorStatus zorsFIRLMSMRSetDlyLine32s_16s(ZorFIRLMSMRState* state, const Zor16s* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMSMRSetDlyLine32sc_16sc(ZorFIRLMSMRState* state, const Zor16sc* dly, Zor32s dlyIndex);
ZorStatus zorsFIRLMSMRGetDlyLine32s_16s(const ZorFIRLMSMRState* state, Zor16s* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSMRGetDlyLine32sc_16sc(const ZorFIRLMSMRState* state, Zor16sc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIRLMSMRGetDlyVal32s_16s(const ZorFIRLMSMRState* state, Zor16s* dst, Zor32s index);
ZorStatus zorsFIRLMSMRGetDlyVal32sc_16sc(const ZorFIRLMSMRState* state, Zor16sc* dst, Zor32s index);
ZorStatus zorsFIRLMSMRPutVal32s_16s(Zor16s val, ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMRPutVal32sc_16sc(Zor16sc val, ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMROne32s_16s(Zor32s* dst, const ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMROne32sc_16sc(Zor32sc* dst, const ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMROneVal32s_16s(Zor16s val, Zor32s* dst, ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMROneVal32sc_16sc(Zor16sc val, Zor32sc* dst, ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMRUpdateTaps32s_16s(Zor32s err, ZorFIRLMSMRState* state);
ZorStatus zorsFIRLMSMRUpdateTaps32sc_16sc(Zor32sc err, ZorFIRLMSMRState* state);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
