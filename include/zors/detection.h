/** @file
 *  Detection and decoding: trellis codes, tones, frequency modulation. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_DETECTION_H
#define ZORS_DETECTION_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Viterbi decoding of four-dimensional trellis codes
 *  One decoding step of a modem whose symbols are two consecutive points of a two-dimensional constellation: a
 *  measure of each point, a table of branch metrics, the step through the trellis, the path metrics brought down. The
 *  trellis has 16 or 32 states; other counts are computed alike. Only null pointers are refused. CalcStates and
 *  UpdatePathMetrics do nothing for counts below 1; the others take every stateCount but 16 for 32. What tables hold is
 *  trusted.
 *
 *  GetVarPoint: the constellation is a grid with spacing 256 whose coordinates are 128 modulo 256, its labels repeat
 *  every four points. nearest receives the grid point at or below the received one. Of the labels around it
 *  variance[label] receives the squared distance, the square of each coordinate over 16 and cut, in the low 16 bits, the number of the neighbour in the high
 *  ones: neighbours 0 to 3 are the corners of the cell; but for 16 states, four more labels take the nearer of two points
 *  farther out, 4 to 7 and 8 to 11, in a tie of the latter. labels[4 * row + column] is taken modulo 4 (16 states) or 8.
 *
 *  BuildSymblTable: variance holds the measures of two points, 8 words each. Entry e of table, of 32 (for 16 states of
 *  16): x = e ^ bitInversion, p = x >> 2 modulo 16, q = (x + p) mod 4, and of variance[p] + variance[q + 8] and
 *  variance[(p + 4) mod 8] + variance[q + 12] the lesser sum, in a tie the first. re holds the numbers of both
 *  neighbours, the first point's in the low byte, im the metric.
 *
 *  CalcStates: for states s in order, for branches k from 0 to 15, with target t = nextState[16 * s + k] and the entry
 *  2 * k + (s mod 2) of table: where pathError[s] + im, both unsigned, is below newPathError[t], it replaces it, and
 *  survivors[survivorOffset + t] = re | s << 16. The caller sets newPathError high before.
 *
 *  UpdatePathMetrics: *minPathError is the least of branchError, *minState the first state that has it,
 *  pathError[s] = branchError[s] - *minPathError. pathError may be branchError.
 *  @{ */
ZorStatus zorsGetVarPointDV_16sc(const Zor16sc* point, Zor16sc* nearest, Zor32u* variance, const Zor8u* labels, Zor32s stateCount);
ZorStatus zorsBuildSymblTableDV4D_16sc(const Zor32u* variance, Zor16sc* table, Zor32s stateCount, Zor32s bitInversion);
ZorStatus zorsCalcStatesDV_16sc(const Zor16u* pathError, const Zor8u* nextState, Zor16u* newPathError, const Zor16sc* table, Zor32u* survivors, Zor32s stateCount, Zor32s survivorOffset);
ZorStatus zorsUpdatePathMetricsDV_16u(const Zor16u* branchError, Zor16u* minPathError, Zor8u* minState, Zor16u* pathError, Zor32s stateCount);
/** @} */

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
