/** @file
 *  Tones, triangles, random numbers, test vectors. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_GENERATORS_H
#define ZORS_GENERATORS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Jaehne
 *  A chirp from frequency 0 to half the sample rate: dst[n] = magn * sin(pi / (2 len) * n^2); of one element, 0.
 *  Checks: dst; len; magn below 0, zorStatusBadMagnitude.
 *  Numerics: the argument is round(round(1.5707963267948966 / len) * n^2), the product with magn is rounded once, in
 *  binary64. 32f is narrowed; integers are cut toward zero, and unsigned ones keep the low bits of a negative product.
 *  The sine of 64f is within 0.8 ulp; the other types have the bits that the C library's sine gives.
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
