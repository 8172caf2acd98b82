/** @file
 *  Tones, triangles, random numbers, test vectors. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_GENERATORS_H
#define ZORS_GENERATORS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorToneState ZorToneState;
typedef struct ZorTriangleState ZorTriangleState;

/** @name Tone
 *  Sinusoids: dst[n] = magnitude * cos(phase + n * w), w = 2 pi * rFreq with rFreq in cycles a sample; of complex types
 *  that is the real part, and magnitude * sin(phase + n * w) the imaginary one. *phase is replaced, before any sample is
 *  written, by the phase at which the next call goes on: phase + len * w less whole turns, 0 where it rounds to 2 pi.
 *  hint 1 is fast, any other value accurate.
 *  Accurate: cosines start the vector; x[n] = 2 cos(w) x[n - 1] - x[n - 2] gives two more elements,
 *  x[n] = 2 cos(2 w) x[n - 2] - x[n - 4] all others, in binary64.
 *  Fast: each block of 1,024 elements (64f, 64fc: 2,048) starts anew from cosines. The first 16 (8) elements follow in
 *  binary64, the others by x[n] = 2 cos(8 w) x[n - 8] - x[n - 16] in binary32 (2 cos(4 w), x[n - 4], x[n - 8] in
 *  binary64). 16s and 16sc are those of 32f and 32fc.
 *  Checks: phase; magnitude not above 0, zorStatusBadToneMagnitude; rFreq outside [0, 0.5), zorStatusBadToneFrequency;
 *  *phase outside [0, 2 pi), zorStatusBadTonePhase; dst; len.
 *  Numerics: recurrences are fused; integers are cut toward zero and saturate. Errors grow with the elements since the
 *  last cosine, and with 1 / sin(w) (fast: 1 / sin(8 w)).
 *  @{ */
ZorStatus zorsTone_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor32f rFreq, Zor32f* phase,
                              ZorHintAlgorithm hint);
ZorStatus zorsTone_Direct_16sc(Zor16sc* dst, Zor32s len, Zor16s magnitude, Zor32f rFreq, Zor32f* phase,
                               ZorHintAlgorithm hint);
ZorStatus zorsTone_Direct_32f(Zor32f* dst, Zor32s len, Zor32f magnitude, Zor32f rFreq, Zor32f* phase,
                              ZorHintAlgorithm hint);
ZorStatus zorsTone_Direct_32fc(Zor32fc* dst, Zor32s len, Zor32f magnitude, Zor32f rFreq, Zor32f* phase,
                               ZorHintAlgorithm hint);
ZorStatus zorsTone_Direct_64f(Zor64f* dst, Zor32s len, Zor64f magnitude, Zor64f rFreq, Zor64f* phase,
                              ZorHintAlgorithm hint);
ZorStatus zorsTone_Direct_64fc(Zor64fc* dst, Zor32s len, Zor64f magnitude, Zor64f rFreq, Zor64f* phase,
                               ZorHintAlgorithm hint);
/** @} */

/** @name ToneQ15
 *  The same of fixed-point arguments with 15 fractional bits: 205886 is 2 pi, 16384 half the sample rate. No recurrence:
 *  each sample is magnitude * cos(fma(w, n, phase)), rounded to nearest, ties away from zero; it has the bits that the C
 *  library's cosine gives. A state goes on from call to call with n a 32-bit count that wraps; GetStateSize: 48 bytes.
 *  Free releases what InitAlloc allocated, and leaves a caller's record alone.
 *  Checks: dst; len; magnitude below 1, zorStatusBadToneMagnitude; rFreqQ15 outside 0 to 16383, zorStatusBadToneFrequency;
 *  phaseQ15 above 205886, zorStatusBadTonePhase. Init, InitAlloc: the pointer, then these; zorStatusNoMemory leaves
 *  *stateOut. With a state: pointers; len; zorStatusBadContext.
 *  @{ */
ZorStatus zorsToneQ15_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15);
ZorStatus zorsToneGetStateSizeQ15_16s(Zor32s* size);
ZorStatus zorsToneInitQ15_16s(ZorToneState* state, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15);
ZorStatus zorsToneInitAllocQ15_16s(ZorToneState** stateOut, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15);
ZorStatus zorsToneFree(ZorToneState* state);
ZorStatus zorsToneQ15_16s(Zor16s* dst, Zor32s len, ZorToneState* state);
/** @} */

/** @name Triangle
 *  Waves that fall from magnitude to -magnitude over pi + asym radians and rise again over pi - asym. The imaginary part
 *  of complex types is the same wave (2 pi + (pi + asym)) / 2 radians ahead: 3 pi / 2 where asym is 0. *phase goes on as
 *  of Tone.
 *  Checks: phase; magnitude not above 0, zorStatusBadTriangleMagnitude; rFreq outside [0, 0.5),
 *  zorStatusBadTriangleFrequency; asym outside [-pi, pi), zorStatusBadTriangleAsym; *phase outside [0, 2 pi),
 *  zorStatusBadTrianglePhase; dst; len.
 *  Numerics: in binary64. A sample on a straight run is fma(steps, step, value at the run's start); beyond an end it is
 *  mirrored with the other side's slope. 32f is narrowed, 16s rounded to nearest, ties away from zero.
 *  @{ */
ZorStatus zorsTriangle_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor32f rFreq, Zor32f asym, Zor32f* phase);
ZorStatus zorsTriangle_Direct_16sc(Zor16sc* dst, Zor32s len, Zor16s magnitude, Zor32f rFreq, Zor32f asym, Zor32f* phase);
ZorStatus zorsTriangle_Direct_32f(Zor32f* dst, Zor32s len, Zor32f magnitude, Zor32f rFreq, Zor32f asym, Zor32f* phase);
ZorStatus zorsTriangle_Direct_32fc(Zor32fc* dst, Zor32s len, Zor32f magnitude, Zor32f rFreq, Zor32f asym, Zor32f* phase);
ZorStatus zorsTriangle_Direct_64f(Zor64f* dst, Zor32s len, Zor64f magnitude, Zor64f rFreq, Zor64f asym, Zor64f* phase);
ZorStatus zorsTriangle_Direct_64fc(Zor64fc* dst, Zor32s len, Zor64f magnitude, Zor64f rFreq, Zor64f asym, Zor64f* phase);
/** @} */

/** @name TriangleQ15
 *  The same of fixed-point arguments with 15 fractional bits: 102943 is pi. A state goes on from call to call, in pieces
 *  of any size with the samples of one call; GetStateSize: 136 bytes. Free as of ToneQ15.
 *  Checks: dst; len; magnitude below 1, rFreqQ15 outside 0 to 16383, phaseQ15 above 205886, asymQ15 outside -102943 to
 *  102943 with the statuses of Triangle. Init, InitAlloc: the pointer, then these; zorStatusNoMemory leaves *stateOut.
 *  With a state: pointers; len; zorStatusBadContext.
 *  @{ */
ZorStatus zorsTriangleQ15_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                     Zor32s asymQ15);
ZorStatus zorsTriangleGetStateSizeQ15_16s(Zor32s* size);
ZorStatus zorsTriangleInitQ15_16s(ZorTriangleState* state, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                  Zor32s asymQ15);
ZorStatus zorsTriangleInitAllocQ15_16s(ZorTriangleState** stateOut, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                       Zor32s asymQ15);
ZorStatus zorsTriangleFree(ZorTriangleState* state);
ZorStatus zorsTriangleQ15_16s(Zor16s* dst, Zor32s len, ZorTriangleState* state);
/** @} */

typedef struct ZorRandUniformState ZorRandUniformState;
typedef struct ZorRandGaussState ZorRandGaussState;

/** @name RandUniform
 *  Uniform random vectors. One generator of 32-bit words is behind all random functions. From the seed: a = seed,
 *  b = a * 69069 + 1013904243, c = b * 69069 + 1013904243, lcg = 1131199209, borrow = -1. A step: t = b - c + borrow;
 *  where t has its top bit set, t -= 18 and the next borrow is -1, else 0; lcg = lcg * 69069 + 1013904243; c = b, b = a,
 *  a = t; the word is t + lcg, taken as signed. All arithmetic is modulo 2^32.
 *  An element is fma(scale, word, mean) with mean = (low + high) * 0.5, scale = (high - low) * 2.3283064365387e-10; sum
 *  and difference are formed in 32-bit integers or binary32, for 64f in binary64. low may be above high.
 *  State forms go on from call to call. GetSize: 56 bytes; Init fills a record at any address, InitAlloc allocates one,
 *  Free releases what InitAlloc allocated. Direct forms start anew from *seed at each call and leave the newest a there:
 *  two calls are not one of twice the length.
 *  Checks: dst, then the state or seed pointer; len; the state's type, zorStatusBadContext. InitAlloc: zorStatusNoMemory
 *  leaves *stateOut.
 *  Numerics: in binary64; 32f is narrowed; integers are cut toward zero. Direct_16s keeps a deviation: all elements but
 *  a last odd one are rounded in the caller's direction.
 *  @{ */
ZorStatus zorsRandUniformGetSize_8u(Zor32s* size);
ZorStatus zorsRandUniformGetSize_16s(Zor32s* size);
ZorStatus zorsRandUniformGetSize_32f(Zor32s* size);
ZorStatus zorsRandUniformInit_8u(ZorRandUniformState* state, Zor8u low, Zor8u high, Zor32u seed);
ZorStatus zorsRandUniformInit_16s(ZorRandUniformState* state, Zor16s low, Zor16s high, Zor32u seed);
ZorStatus zorsRandUniformInit_32f(ZorRandUniformState* state, Zor32f low, Zor32f high, Zor32u seed);
ZorStatus zorsRandUniformInitAlloc_8u(ZorRandUniformState** stateOut, Zor8u low, Zor8u high, Zor32u seed);
ZorStatus zorsRandUniformInitAlloc_16s(ZorRandUniformState** stateOut, Zor16s low, Zor16s high, Zor32u seed);
ZorStatus zorsRandUniformInitAlloc_32f(ZorRandUniformState** stateOut, Zor32f low, Zor32f high, Zor32u seed);
ZorStatus zorsRandUniformFree_8u(ZorRandUniformState* state);
ZorStatus zorsRandUniformFree_16s(ZorRandUniformState* state);
ZorStatus zorsRandUniformFree_32f(ZorRandUniformState* state);
ZorStatus zorsRandUniform_8u(Zor8u* dst, Zor32s len, ZorRandUniformState* state);
ZorStatus zorsRandUniform_16s(Zor16s* dst, Zor32s len, ZorRandUniformState* state);
ZorStatus zorsRandUniform_32f(Zor32f* dst, Zor32s len, ZorRandUniformState* state);
ZorStatus zorsRandUniform_Direct_16s(Zor16s* dst, Zor32s len, Zor16s low, Zor16s high, Zor32u* seed);
ZorStatus zorsRandUniform_Direct_32f(Zor32f* dst, Zor32s len, Zor32f low, Zor32f high, Zor32u* seed);
ZorStatus zorsRandUniform_Direct_64f(Zor64f* dst, Zor32s len, Zor64f low, Zor64f high, Zor32u* seed);
/** @} */

/** @name RandGauss
 *  Normal random vectors by the polar method. Words r1, r2 of the generator give u1, u2 = 4.656612873077e-10 * r1, r2 and
 *  s = fma(u1, u1, u2 * u2), until 0 < s < 1; factor = sqrt(-2 * ln(s) / s). A pair gives an element from u2, then one
 *  from u1. A state keeps u1 and the factor of a pair that a call has used by half; direct forms drop them. Any stdDev,
 *  0 and below too. States as of RandUniform; GetSize: 64 bytes, 72 for 32f.
 *  Checks: as of RandUniform.
 *  Numerics: in binary64 with the bits that the C library's logarithm gives. 32f: mean + float((stdDev * factor) * u),
 *  the sum in binary32; Direct_32f: mean + float((u * stdDev) * factor); Direct_64f: the same in binary64. 8u, 16s:
 *  fma(u, stdDev * factor, mean), Direct_16s: fma(factor, u * stdDev, mean), cut toward zero and saturated.
 *  @{ */
ZorStatus zorsRandGaussGetSize_8u(Zor32s* size);
ZorStatus zorsRandGaussGetSize_16s(Zor32s* size);
ZorStatus zorsRandGaussGetSize_32f(Zor32s* size);
ZorStatus zorsRandGaussInit_8u(ZorRandGaussState* state, Zor8u mean, Zor8u stdDev, Zor32u seed);
ZorStatus zorsRandGaussInit_16s(ZorRandGaussState* state, Zor16s mean, Zor16s stdDev, Zor32u seed);
ZorStatus zorsRandGaussInit_32f(ZorRandGaussState* state, Zor32f mean, Zor32f stdDev, Zor32u seed);
ZorStatus zorsRandGaussInitAlloc_8u(ZorRandGaussState** stateOut, Zor8u mean, Zor8u stdDev, Zor32u seed);
ZorStatus zorsRandGaussInitAlloc_16s(ZorRandGaussState** stateOut, Zor16s mean, Zor16s stdDev, Zor32u seed);
ZorStatus zorsRandGaussInitAlloc_32f(ZorRandGaussState** stateOut, Zor32f mean, Zor32f stdDev, Zor32u seed);
ZorStatus zorsRandGaussFree_8u(ZorRandGaussState* state);
ZorStatus zorsRandGaussFree_16s(ZorRandGaussState* state);
ZorStatus zorsRandGaussFree_32f(ZorRandGaussState* state);
ZorStatus zorsRandGauss_8u(Zor8u* dst, Zor32s len, ZorRandGaussState* state);
ZorStatus zorsRandGauss_16s(Zor16s* dst, Zor32s len, ZorRandGaussState* state);
ZorStatus zorsRandGauss_32f(Zor32f* dst, Zor32s len, ZorRandGaussState* state);
ZorStatus zorsRandGauss_Direct_16s(Zor16s* dst, Zor32s len, Zor16s mean, Zor16s stdDev, Zor32u* seed);
ZorStatus zorsRandGauss_Direct_32f(Zor32f* dst, Zor32s len, Zor32f mean, Zor32f stdDev, Zor32u* seed);
ZorStatus zorsRandGauss_Direct_64f(Zor64f* dst, Zor32s len, Zor64f mean, Zor64f stdDev, Zor32u* seed);
/** @} */

/** @name Jaehne
 *  A chirp from frequency 0 to half the sample rate: dst[n] = magn * sin(pi / (2 len) * n^2); of one element, 0.
 *  Checks: dst; len; magn below 0, zorStatusBadMagnitude.
 *  Numerics: the argument is round(round(1.5707963267948966 / len) * n^2), the product with magn is rounded once, in
 *  binary64. 32f is narrowed; integers are cut toward zero, and unsigned ones keep the low bits of a negative product.
 *  The sine of 64f is within 1.7 ulp; the other types have the bits that the C library's sine gives.
 *  @{ */
ZorStatus zorsVectorJaehne_8u(Zor8u* dst, Zor32s len, Zor8u magn);
ZorStatus zorsVectorJaehne_8s(Zor8s* dst, Zor32s len, Zor8s magn);
ZorStatus zorsVectorJaehne_16u(Zor16u* dst, Zor32s len, Zor16u magn);
ZorStatus zorsVectorJaehne_16s(Zor16s* dst, Zor32s len, Zor16s magn);
ZorStatus zorsVectorJaehne_32u(Zor32u* dst, Zor32s len, Zor32u magn);
ZorStatus zorsVectorJaehne_32s(Zor32s* dst, Zor32s len, Zor32s magn);
ZorStatus zorsVectorJaehne_32f(Zor32f* dst, Zor32s len, Zor32f magn);
ZorStatus zorsVectorJaehne_64f(Zor64f* dst, Zor32s len, Zor64f magn);
/** @} */

/** @name Ramp, Slope
 *  A straight line: dst[n] = offset + slope * n, each element from its index alone.
 *  Numerics: fma(slope, n, offset) in binary64 with n exact; 32f is narrowed, integers saturate and are cut toward zero.
 *  Ramp_32f computes in binary32 as far as that holds the index, below n = 2^24.
 *  @{ */
ZorStatus zorsVectorRamp_8u(Zor8u* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_8s(Zor8s* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_16u(Zor16u* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_16s(Zor16s* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_32u(Zor32u* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_32s(Zor32s* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_32f(Zor32f* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorRamp_64f(Zor64f* dst, Zor32s len, Zor32f offset, Zor32f slope);
ZorStatus zorsVectorSlope_8u(Zor8u* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_8s(Zor8s* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_16u(Zor16u* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_16s(Zor16s* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_32u(Zor32u* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_32s(Zor32s* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_32f(Zor32f* dst, Zor32s len, Zor64f offset, Zor64f slope);
ZorStatus zorsVectorSlope_64f(Zor64f* dst, Zor32s len, Zor64f offset, Zor64f slope);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
