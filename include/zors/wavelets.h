/** @file
 *  Wavelet transforms. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_WAVELETS_H
#define ZORS_WAVELETS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name WTHaarFwd
 *  One level of the Haar transform: from each pair x0, x1 of src one value of each band, (x0 + x1) / 2 to dstLow and
 *  (x1 - x0) / 2 to dstHigh. len counts the samples of src; dstLow receives (len + 1) / 2 values, dstHigh len / 2. The last
 *  sample of an odd len counts as a pair of equal ones and gives no value of dstHigh, whose pointer is tested all the same.
 *  Numerics: floats high = round(round(x1 - x0) * 0.5), low = round(x0 + high), in the current direction. Integers: the
 *  exact sum and difference over 2^(scaleFactor + 1) (without _Sfs: over 2), to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsWTHaarFwd_8s(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh);
ZorStatus zorsWTHaarFwd_16s(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh);
ZorStatus zorsWTHaarFwd_32s(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh);
ZorStatus zorsWTHaarFwd_64s(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh);
ZorStatus zorsWTHaarFwd_32f(const Zor32f* src, Zor32s len, Zor32f* dstLow, Zor32f* dstHigh);
ZorStatus zorsWTHaarFwd_64f(const Zor64f* src, Zor32s len, Zor64f* dstLow, Zor64f* dstHigh);
ZorStatus zorsWTHaarFwd_8s_Sfs(const Zor8s* src, Zor32s len, Zor8s* dstLow, Zor8s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* dstLow, Zor16s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* dstLow, Zor32s* dstHigh, Zor32s scaleFactor);
ZorStatus zorsWTHaarFwd_64s_Sfs(const Zor64s* src, Zor32s len, Zor64s* dstLow, Zor64s* dstHigh, Zor32s scaleFactor);
/** @} */

/** @name WTHaarInv
 *  The way back: srcLow - srcHigh and srcLow + srcHigh, one pair of dst after the other. len counts the samples of dst; the
 *  last sample of an odd len is the last value of srcLow.
 *  Numerics: floats one rounding, current. Integers: exact over 2^scaleFactor, to nearest, ties to even, saturated.
 *  @{ */
ZorStatus zorsWTHaarInv_8s(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_16s(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_32s(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_64s(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len);
ZorStatus zorsWTHaarInv_32f(const Zor32f* srcLow, const Zor32f* srcHigh, Zor32f* dst, Zor32s len);
ZorStatus zorsWTHaarInv_64f(const Zor64f* srcLow, const Zor64f* srcHigh, Zor64f* dst, Zor32s len);
ZorStatus zorsWTHaarInv_8s_Sfs(const Zor8s* srcLow, const Zor8s* srcHigh, Zor8s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_16s_Sfs(const Zor16s* srcLow, const Zor16s* srcHigh, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_32s_Sfs(const Zor32s* srcLow, const Zor32s* srcHigh, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsWTHaarInv_64s_Sfs(const Zor64s* srcLow, const Zor64s* srcHigh, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
