/** @file
 *  Detection and decoding. The conventions of all functions stand in zors.h. */
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
 *  trellis has 16 or 32 states; other counts are computed alike. Only null pointers are refused; counts below 1 do
 *  nothing. What tables hold is trusted.
 *
 *  GetVarPoint: the constellation is a grid with spacing 256 whose coordinates are 128 modulo 256, its labels repeat
 *  every four points. nearest receives the grid point at or below the received one. Of the labels around it
 *  variance[label] receives the squared distance over 16 in the low 16 bits, the number of the neighbour in the high
 *  ones: neighbours 0 to 3 are the corners of the cell; but for 16 states, four more labels take the nearer of two points
 *  farther out, 4 to 7 and 8 to 11. labels[4 * row + column] is taken modulo 4 (16 states) or 8.
 *
 *  BuildSymblTable: variance holds the measures of two points, 8 words each. Entry e of table, of 32 (for 16 states of
 *  16): x = e ^ bitInversion, p = x >> 2 modulo 16, q = (x + p) mod 4, and of variance[p] + variance[q + 8] and
 *  variance[(p + 4) mod 8] + variance[q + 12] the lesser sum, in a tie the first. re holds the numbers of both
 *  neighbours, the first point's in the low byte, im the metric.
 *
 *  CalcStates: for states s in order, for branches k from 0 to 15, with target t = nextState[16 * s + k] and the entry
 *  2 * k + (s mod 2) of table: where pathError[s] + im is below newPathError[t], it replaces it, and
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

#ifdef __cplusplus
}
#endif

#endif
