/** @file
 *  Design of FIR and IIR filters. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_DESIGN_H
#define ZORS_DESIGN_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name FIR design
 *  Taps of a filter of linear phase, an ideal one cut to tapsLen and windowed, in the layout of zorsFIRInit_64f.
 *  Frequencies are relative to the sampling rate. window: 0 zorsWinBartlett_64f_I, 1 zorsWinBlackmanOpt_64f_I, 2
 *  zorsWinHamming_64f_I, 3 zorsWinHann_64f_I, any other value none. normalise, if not 0, makes the gain 1 at 0
 *  (lowpass, bandstop), in the middle of the band, or at half the sampling rate (highpass). With m = |i - (tapsLen - 1)
 *  / 2|: lowpass sin(2 pi f m) / (pi m), 2 f at m = 0; bandpass the difference of two such; highpass and bandstop the
 *  negative of a lowpass or bandpass, and 1 more at m = 0, of an even length without such a tap. An even highpass is
 *  antisymmetric instead, cos(2 pi f m) / (pi m) with the other sign on the right: its gain at 0 is 0.
 *  Numerics: binary64; sines by zorsTone_Direct_64f.
 *  Checks: taps; tapsLen below 5, a frequency not inside (0, 0.5), or lowFreq not below highFreq, zorStatusBadSize.
 *  Without memory for the tones, zorStatusNullPointer.
 *  @{ */
ZorStatus zorsFIRGenLowpass_64f(Zor64f freq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise);
ZorStatus zorsFIRGenHighpass_64f(Zor64f freq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise);
ZorStatus zorsFIRGenBandpass_64f(Zor64f lowFreq, Zor64f highFreq, Zor64f* taps, Zor32s tapsLen, Zor32s window,
                                 Zor32s normalise);
ZorStatus zorsFIRGenBandstop_64f(Zor64f lowFreq, Zor64f highFreq, Zor64f* taps, Zor32s tapsLen, Zor32s window,
                                 Zor32s normalise);
/** @} */

/** @name IIR design
 *  Taps of a recursive filter of order 1 to 12, by the bilinear transform of an analogue one, in the layout of
 *  zorsIIRInit_64f with a[0] = 1: 2 order + 2 values. freq, relative to the sampling rate, is the edge of the pass
 *  band: -3 dB of a Butterworth filter (filterType 0), -ripple dB of a Chebyshev filter of the first kind (1). The gain
 *  at 0, of a highpass at half the sampling rate, is 1, of a Chebyshev filter of even order 10^(-ripple/20). Any other
 *  filterType gives status 0 and writes nothing.
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
