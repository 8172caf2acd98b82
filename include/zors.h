/** @file
 * zorsl9: one-dimensional signal processing for x86-64 processors with AVX2 and FMA.
 *
 * Conventions of all functions
 *   Vectors      a pointer to the first element and a length in elements (a complex element counts once). No pointer
 *                needs an alignment beyond what the element type asks of the compiler, and none changes a result,
 *                but of sums of floats that say so.
 *   Arguments    sources, destination, length, selectors, scale factor last. In non-commutative arithmetic the second
 *                operand comes first: Sub is src2 - src1.
 *   Suffixes     element types; _I in place (the last operand is also the destination); _Sfs integer result scaled
 *                by a power of two; _ISfs both.
 *   Status       0 success; negative an error, found before anything was written; positive a warning, the output is
 *                complete. Checks are made in the order: null pointers, state tags, lengths below 1, everything else.
 *                Families that differ say so. zors_status.h has the name and the text of each status.
 *   Scaling      scaleFactor is the base-2 exponent of a divisor: the exact result divided by 2^scaleFactor, rounded to
 *                nearest, ties to even, saturated to the destination's range. Every value is accepted.
 *   Aliasing     a source may be the destination itself; no other overlap, but where a family allows it,
 *                and none where it forbids it.
 *   NaN          a result that is NaN has the payload of one of its operands, or the default one: which, is not stated.
 *   Threads      every function is re-entrant on separate data. A specification of a transform may be shared by threads
 *                that give work buffers of their own; a filter's or generator's state serves one caller at a time.
 *   Environment  the caller's floating-point control word holds, unless a family says that it sets a direction for the
 *                call; then the word is as before on return. Sticky flags may be set.
 *   C++20        zors.hpp has objects, operations on ranges, exceptions.
 *   Sections     one header each; include this one for all of them, or those that you call.
 */
#ifndef ZORS_H
#define ZORS_H

#include "zors/types.h"

#include "zors/adaptive.h"
#include "zors/arithmetic.h"
#include "zors/conversion.h"
#include "zors/correlation.h"
#include "zors/design.h"
#include "zors/detection.h"
#include "zors/dft.h"
#include "zors/fft.h"
#include "zors/filters.h"
#include "zors/fir.h"
#include "zors/functions.h"
#include "zors/generators.h"
#include "zors/iir.h"
#include "zors/memory.h"
#include "zors/multirate.h"
#include "zors/resampling.h"
#include "zors/sorting.h"
#include "zors/statistics.h"
#include "zors/thresholds.h"
#include "zors/wavelets.h"
#include "zors/windows.h"

#endif
