/** @file
 *  Windows: a vector times a symmetric weight curve. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_WINDOWS_H
#define ZORS_WINDOWS_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/*  All windows: dst[n] = src[n] * w[n], with N = len and t = 2 pi n / (N - 1). Elements n and N - 1 - n have the same
 *  weight; both parts of a complex element have it. Checks: pointers, then len, then alpha, where not said otherwise.
 *  Numerics: weights come from recurrences in binary64 and are used in the type of the elements, by one multiplication;
 *  those of 16-bit elements in binary32, the product rounded in the current direction and saturated. With odd N the
 *  centre, whose weight is 1, is copied (Kaiser's is multiplied). Aliasing: src may be dst. */

/** @name Bartlett
 *  w[n] = 2n / (N - 1) up to the centre, mirrored after it; the ends are 0 whatever the source holds. N from 3 on.
 *  Numerics: w[n] = round(n * round(2 / (N - 1))).
 *  @{ */
ZorStatus zorsWinBartlett_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsWinBartlett_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsWinBartlett_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsWinBartlett_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsWinBartlett_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsWinBartlett_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsWinBartlett_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsWinBartlett_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsWinBartlett_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsWinBartlett_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsWinBartlett_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsWinBartlett_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Hann
 *  w[n] = 0.5 - 0.5 cos t. N from 3 on. Floating ends are multiplied by a zero; integer ends are 0.
 *  @{ */
ZorStatus zorsWinHann_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsWinHann_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsWinHann_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsWinHann_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsWinHann_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsWinHann_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsWinHann_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsWinHann_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsWinHann_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsWinHann_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsWinHann_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsWinHann_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Hamming
 *  w[n] = 0.54 - 0.46 cos t. N from 3 on. Integer ends are truncated, not rounded.
 *  @{ */
ZorStatus zorsWinHamming_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsWinHamming_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsWinHamming_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsWinHamming_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsWinHamming_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsWinHamming_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsWinHamming_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsWinHamming_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsWinHamming_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsWinHamming_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsWinHamming_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsWinHamming_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name Blackman
 *  w[n] = (alpha + 1) / 2 - 0.5 cos t - alpha / 2 cos 2t, for any alpha. N from 3 on; with N = 3 the ends are 0
 *  whatever the source holds, as they are of integers for all N. Std: alpha = -0.16. Opt: alpha = -(0.5 / cos(pi / (N -
 *  1)))^2, N from 4 on, and len is tested before the pointers. Q15: alpha = alphaQ15 * 2^-15 in binary32; alphaQ15 has
 *  all 32 bits. ISfs: results times 2^-scaleFactor before their one rounding, the centre too.
 *  @{ */
ZorStatus zorsWinBlackman_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinBlackman_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinBlackman_16s_I(Zor16s* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_16sc_I(Zor16sc* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_32f_I(Zor32f* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinBlackman_64f_I(Zor64f* srcDst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinBlackman_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinBlackmanStd_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsWinBlackmanStd_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanStd_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanStd_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanStd_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanStd_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanStd_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanOpt_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsWinBlackmanQ15_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinBlackmanQ15_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinBlackmanQ15_16s_I(Zor16s* srcDst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinBlackmanQ15_16sc_I(Zor16sc* srcDst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinBlackmanQ15_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s alphaQ15, Zor32s scaleFactor);
/** @} */

/** @name Kaiser
 *  w[n] = I0(alpha * sqrt(n * (N - 1 - n))) / I0(alpha * (N - 1) / 2), the same for -alpha. N from 1 on; one element is
 *  copied. |alpha| * (N - 1) / 2 above 38 (32f, 32fc) or 308 (the others) is zorStatusBadAlpha. Q15: alpha = alphaQ15 *
 *  2^-15 in binary64.
 *  Numerics: I0 by polynomials, for 64f and 64fc to 6e-6, for the others by Abramowitz and Stegun 9.8.1, 9.8.2, to 5e-7;
 *  evaluated in the type of the elements, for 16-bit elements in binary64.
 *  @{ */
ZorStatus zorsWinKaiser_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinKaiser_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinKaiser_16s_I(Zor16s* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_16sc_I(Zor16sc* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_32f_I(Zor32f* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f alpha);
ZorStatus zorsWinKaiser_64f_I(Zor64f* srcDst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinKaiser_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f alpha);
ZorStatus zorsWinKaiserQ15_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinKaiserQ15_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinKaiserQ15_16s_I(Zor16s* srcDst, Zor32s len, Zor32s alphaQ15);
ZorStatus zorsWinKaiserQ15_16sc_I(Zor16sc* srcDst, Zor32s len, Zor32s alphaQ15);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
