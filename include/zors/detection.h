/** @file
 *  Detection and decoding: tones, frequency modulation. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_DETECTION_H
#define ZORS_DETECTION_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Goertz, GoertzTwo
 *  One bin of the discrete Fourier transform, at any relative frequency: val = sum of src[n] * exp(-2 pi i rFreq n).
 *  GoertzTwo: two bins in one pass through the data, val[k] at rFreq[k].
 *  Checks: pointers; len; frequencies outside [0, 1) and NaN (zorStatusBadRelativeFrequency), all before anything is
 *  written. The Q15 forms, rFreq = rFreqQ15 / 32768, test the array's pointer and a negative frequency first.
 *  Numerics: Horner's rule from the last sample to the first, in lanes of interleaved samples; 32f, 32fc and the integer
 *  kinds in binary32, 64f and 64fc in binary64. The rotation of a step comes from the cosine and sine of 2 pi rFreq in
 *  binary64, by doubling, rounded once; the lanes are joined in binary64. At frequency 0 the sum is plain: exact for
 *  integers below 2^24. Integer kinds: the joined value over 2^scaleFactor, to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsGoertz_32f(const Zor32f* src, Zor32s len, Zor32fc* val, Zor32f rFreq);
ZorStatus zorsGoertz_32fc(const Zor32fc* src, Zor32s len, Zor32fc* val, Zor32f rFreq);
ZorStatus zorsGoertz_64f(const Zor64f* src, Zor32s len, Zor64fc* val, Zor64f rFreq);
ZorStatus zorsGoertz_64fc(const Zor64fc* src, Zor32s len, Zor64fc* val, Zor64f rFreq);
ZorStatus zorsGoertz_16s_Sfs(const Zor16s* src, Zor32s len, Zor16sc* val, Zor32f rFreq, Zor32s scaleFactor);
ZorStatus zorsGoertz_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, Zor32f rFreq, Zor32s scaleFactor);
ZorStatus zorsGoertzQ15_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, Zor16s rFreqQ15, Zor32s scaleFactor);
ZorStatus zorsGoertzTwo_32f(const Zor32f* src, Zor32s len, Zor32fc* val, const Zor32f* rFreq);
ZorStatus zorsGoertzTwo_32fc(const Zor32fc* src, Zor32s len, Zor32fc* val, const Zor32f* rFreq);
ZorStatus zorsGoertzTwo_64f(const Zor64f* src, Zor32s len, Zor64fc* val, const Zor64f* rFreq);
ZorStatus zorsGoertzTwo_64fc(const Zor64fc* src, Zor32s len, Zor64fc* val, const Zor64f* rFreq);
ZorStatus zorsGoertzTwo_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, const Zor32f* rFreq, Zor32s scaleFactor);
ZorStatus zorsGoertzTwoQ15_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, const Zor16s* rFreqQ15, Zor32s scaleFactor);
/** @} */

/** @name DemodulateFM
 *  The turn from each point to the next in units of 2^-15 half turns: dst[n] = arg(p[n] * conj(p[n - 1])) * 32768 / pi,
 *  rounded to nearest, halves away from zero, saturated. p[-1] is *dlyPoint, which then holds the last point. A zero
 *  product has the angle 0. srcRe or srcIm may be dst.
 *  Numerics: products exact in 32 bits, but four parts of -32768 count as half a turn; with t the smaller magnitude over
 *  the larger and u = t * t, the arc tangent is (t + t * u * (1.120234 + u * (0.28050455 + u * 0.008561189))) /
 *  (1 + u * (1.4535671 + u * (0.565031 + u * 0.04901759))), every step rounded to binary32 in the current direction.
 *  @{ */
ZorStatus zorsDemodulateFM_CToR_16s(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor16sc* dlyPoint);
/** @} */

#ifdef __cplusplus
}
#endif
#endif
