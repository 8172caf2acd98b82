/** @file
 *  Design of FIR and IIR filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_DESIGN_H
#define ZORS_DESIGN_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name IIR design
 *  Taps of a recursive filter of order 1 to 12, by the bilinear transform of an analogue one, in the layout of zorsIIRInit_64f
 *  with a[0] = 1: 2 order + 2 values. freq, relative to the sampling rate, is the edge of the pass band: -3 dB of a
 *  Butterworth filter (filterType 0), -ripple dB of a Chebyshev filter of the first kind (1). The gain at 0, of a
 *  highpass at half the sampling rate, is 1, of a Chebyshev filter of even order 10^(-ripple/20). Any other filterType
 *  gives status 0 and writes nothing.
 *  Checks: taps; freq not inside (0, 0.5), zorStatusBadIirGenFrequency; order, zorStatusBadIirGenOrder; of a Chebyshev
 *  filter, ripple not inside (0, 29], zorStatusBadIirGenRipple. NaN is outside.
 *  @{ */
ZorStatus zorsIIRGenLowpass_64f(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType);
ZorStatus zorsIIRGenHighpass_64f(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
