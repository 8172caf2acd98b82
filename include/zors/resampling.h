/** @file
 *  Rate changes by integer factors, polyphase resampling. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_RESAMPLING_H
#define ZORS_RESAMPLING_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name SampleUp, SampleDown
 *  SampleUp: *phase zeros, a sample, factor - 1 - *phase zeros, for each sample; *dstLen = srcLen * factor, *phase stays.
 *  SampleDown: dst[k] = src[*phase + k * factor] as far as src goes; *dstLen is their number, and *phase becomes the
 *  first index not taken less srcLen, so that the next block of the stream goes on. A *phase from srcLen on takes
 *  nothing and shrinks by srcLen. A factor of 1 copies. Samples move bit for bit. Checks: pointers; srcLen; factor below
 *  1, zorStatusBadSampleFactor; *phase outside 0 to factor - 1, zorStatusBadPhase; of SampleUp a *dstLen beyond 32 bits,
 *  zorStatusNoMemory.
 *  @{ */
ZorStatus zorsSampleUp_16s(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleUp_16sc(const Zor16sc* src, Zor32s srcLen, Zor16sc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleUp_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleUp_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleUp_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleUp_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_16s(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_16sc(const Zor16sc* src, Zor32s srcLen, Zor16sc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_32f(const Zor32f* src, Zor32s srcLen, Zor32f* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_32fc(const Zor32fc* src, Zor32s srcLen, Zor32fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_64f(const Zor64f* src, Zor32s srcLen, Zor64f* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
ZorStatus zorsSampleDown_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase);
/** @} */

typedef struct ZorResampleState ZorResampleState;
typedef struct ZorResampleFixedState ZorResampleFixedState;

/** @name Resampling by any factor
 *  Band-limited interpolation with a Kaiser-windowed sinc: the response of window samples' length in all is tabulated
 *  at a spacing of 1/nStep and interpolated linearly between entries. rollf is the cut-off in units of the lower Nyquist
 *  frequency, above 0 and up to 1; alpha, at least 1, the window's parameter. GetSize writes the bytes of a state,
 *  Init builds it at the given address (any alignment), and nothing is released. Hint 2 asks for sums in binary64, every
 *  other value for binary32; 16s without hint 2 has 16-bit taps.
 *  A run gives outputs at *time, *time + 1/factor, ... below trunc(*time) + len, in units of input samples from src[0];
 *  below a factor of 1 the response is stretched by 1/factor. norm multiplies every output. *outLen is their number,
 *  *time the place of the next one; a caller who moves on by n samples subtracts n. src must be readable from
 *  trunc(*time) - H to trunc(*time) + len - 1 + H with H = ceil(L / (nStep * min(1, factor))), L = trunc(window / 2 *
 *  nStep) + 1. A *time of 2^31 - 1 or more, or not finite, gives no output. A state is only read: threads may share it.
 *  16s results saturate and round to nearest, with hint 2 halves away from zero, else to even.
 *  Checks: GetSize, Init: pointers; nStep, zorStatusBadSize; window below 2/nStep or a table above 0xFFFFFFE, rollf, alpha,
 *  zorStatusBadArgument. Runs: pointers; factor not above 0 or not finite, len, zorStatusBadSize. A size above 32 bits:
 *  zorStatusNoMemory.
 *  @{ */
ZorStatus zorsResamplePolyphaseGetSize_32f(Zor32f window, Zor32s nStep, Zor32s* size);
ZorStatus zorsResamplePolyphaseGetSize_16s(Zor32f window, Zor32s nStep, Zor32s* size, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseInit_32f(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, ZorResampleState* state, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseInit_16s(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, ZorResampleState* state, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphase_32f(const Zor32f* src, Zor32s len, Zor32f* dst, Zor64f factor, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleState* state);
ZorStatus zorsResamplePolyphase_16s(const Zor16s* src, Zor32s len, Zor16s* dst, Zor64f factor, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleState* state);
/** @} */

/** @name Resampling by a rational factor
 *  The same for outRate/inRate, which are divided by their common factors, with one row of taps for each of the outRate
 *  places that an output can have behind an input sample, and no interpolation. len is the number of taps, rounded up to a
 *  multiple of 4, lenOut; height the number of rows. Row p > 0 weighs the lenOut samples around a place p/outRate behind
 *  sample i, from i + 1 - lenOut/2 on; row 0 the lenOut + 1 samples around sample i. The rows of Init all
 *  have the same sum, 1, or inRate/outRate where that is above 1: a run multiplies by norm and by min(1, outRate/inRate),
 *  rows of SetFixedFilter too.
 *  A run starts at the place nearest to *time, keeps the difference, and otherwise follows the runs above, with
 *  H = lenOut/2; 16s results round to nearest even.
 *  GetFixedFilter and SetFixedFilter move rows of min(lenOut + 4, step) taps, step apart in filter, and ignore a height above the number of
 *  rows; taps behind a row's own
 *  weigh nothing. 16s: taps as 16-bit integers, of which the largest of Init is 16,383; with hint 2 the state keeps float
 *  taps, and setting what was got leaves them as they are.
 *  Checks: GetSize, Init: pointers; inRate, outRate, len, zorStatusBadSize; rollf, alpha, and a size above 0x7FFFFFFE,
 *  zorStatusBadArgument. Runs: pointers; len. Filters: pointers; step, height.
 *  @{ */
ZorStatus zorsResamplePolyphaseFixedGetSize_32f(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32s* size, Zor32s* lenOut, Zor32s* height, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseFixedGetSize_16s(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32s* size, Zor32s* lenOut, Zor32s* height, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseFixedInit_32f(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, ZorResampleFixedState* state, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseFixedInit_16s(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, ZorResampleFixedState* state, ZorHintAlgorithm hint);
ZorStatus zorsResamplePolyphaseFixed_32f(const Zor32f* src, Zor32s len, Zor32f* dst, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleFixedState* state);
ZorStatus zorsResamplePolyphaseFixed_16s(const Zor16s* src, Zor32s len, Zor16s* dst, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleFixedState* state);
ZorStatus zorsResamplePolyphaseGetFixedFilter_32f(Zor32f* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state);
ZorStatus zorsResamplePolyphaseGetFixedFilter_16s(Zor16s* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state);
ZorStatus zorsResamplePolyphaseSetFixedFilter_32f(const Zor32f* filter, Zor32s step, Zor32s height, ZorResampleFixedState* state);
ZorStatus zorsResamplePolyphaseSetFixedFilter_16s(const Zor16s* filter, Zor32s step, Zor32s height, ZorResampleFixedState* state);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
