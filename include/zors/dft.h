/** @file
 *  Fourier transforms of any length, cosine transforms, analytic signals. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_DFT_H
#define ZORS_DFT_H

#include "zors/fft.h" /* the normalisation flags */
#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ZorsDFTSpec_C_32fc ZorsDFTSpec_C_32fc;
typedef struct ZorsDFTSpec_C_32f ZorsDFTSpec_C_32f;
typedef struct ZorsDFTSpec_R_32f ZorsDFTSpec_R_32f;
typedef struct ZorsDFTSpec_C_64fc ZorsDFTSpec_C_64fc;
typedef struct ZorsDFTSpec_C_64f ZorsDFTSpec_C_64f;
typedef struct ZorsDFTSpec_R_64f ZorsDFTSpec_R_64f;
typedef struct ZorsDFTSpec_C_16sc ZorsDFTSpec_C_16sc;
typedef struct ZorsDFTSpec_C_16s ZorsDFTSpec_C_16s;
typedef struct ZorsDFTSpec_R_16s ZorsDFTSpec_R_16s;

/** @name Specifications of transforms of any length
 *  C_32fc interleaved and C_32f split complex data, R_32f real data, the 64-bit kinds alike; 16-bit kinds by InitAlloc
 *  alone. Methods by length N: up to 16 straight-line kernels; powers of two the transforms of fft.h, to the bit; chains
 *  of radices where all prime factors are at most 50 (the last one of a length divisible by 4: 150); direct sums up to
 *  50; chirp convolutions. Real kinds of even N above 16 choose by N / 2.
 *  GetSize   writes the bytes of the specification block, of the buffer that Init needs (0: none) and of the work buffer.
 *            Checks: pointers; len; flag (zorStatusBadFlag); len that is no power of two above 0x7FFFFFF, or above 0x3FFFFFF
 *            where only a chirp serves (zorStatusBadSize); an order that fft.h refuses (zorStatusBadOrder); sizes beyond 32 bits
 *            (zorStatusNoMemory). Outputs are written on success alone.
 *  Init      builds the specification inside specBlock, of any alignment. It is not returned: pass specBlock wherever a
 *            specification is wanted, functions round the pointer up by themselves. Checks: specBlock, len; then as
 *            GetSize; initBuffer where its size is not 0. A bad flag leaves the tag set, the block is unusable.
 *  InitAlloc allocates and builds; statuses as GetSize; *specOut is written on success alone.
 *  Free      releases what InitAlloc allocated; specifications that Init built are not passed to it.
 *  hint      goes to the transforms of fft.h where they serve, and has no meaning else.
 *  GetBufSize writes the bytes of the work buffer, of any alignment, that transforms need; 0: none.
 *  Numerics: roots of unity by direct evaluation of an eighth of the turn in binary64, the rest by symmetry, rounded once.
 *  @{ */
ZorStatus zorsDFTGetSize_C_32fc(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTGetSize_C_32f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTGetSize_R_32f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTGetSize_C_64fc(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTGetSize_C_64f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTGetSize_R_64f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDFTInit_C_32fc(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInit_C_32f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInit_R_32f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInit_C_64fc(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInit_C_64f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInit_R_64f(Zor32s len, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDFTInitAlloc_C_32fc(ZorsDFTSpec_C_32fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_C_32f(ZorsDFTSpec_C_32f** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_R_32f(ZorsDFTSpec_R_32f** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_C_64fc(ZorsDFTSpec_C_64fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_C_64f(ZorsDFTSpec_C_64f** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_R_64f(ZorsDFTSpec_R_64f** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_C_16sc(ZorsDFTSpec_C_16sc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_C_16s(ZorsDFTSpec_C_16s** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTInitAlloc_R_16s(ZorsDFTSpec_R_16s** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTFree_C_32fc(ZorsDFTSpec_C_32fc* spec);
ZorStatus zorsDFTFree_C_32f(ZorsDFTSpec_C_32f* spec);
ZorStatus zorsDFTFree_R_32f(ZorsDFTSpec_R_32f* spec);
ZorStatus zorsDFTFree_C_64fc(ZorsDFTSpec_C_64fc* spec);
ZorStatus zorsDFTFree_C_64f(ZorsDFTSpec_C_64f* spec);
ZorStatus zorsDFTFree_R_64f(ZorsDFTSpec_R_64f* spec);
ZorStatus zorsDFTFree_C_16sc(ZorsDFTSpec_C_16sc* spec);
ZorStatus zorsDFTFree_C_16s(ZorsDFTSpec_C_16s* spec);
ZorStatus zorsDFTFree_R_16s(ZorsDFTSpec_R_16s* spec);
ZorStatus zorsDFTGetBufSize_C_32fc(const ZorsDFTSpec_C_32fc* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_C_32f(const ZorsDFTSpec_C_32f* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_R_32f(const ZorsDFTSpec_R_32f* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_C_64fc(const ZorsDFTSpec_C_64fc* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_C_64f(const ZorsDFTSpec_C_64f* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_R_64f(const ZorsDFTSpec_R_64f* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_C_16sc(const ZorsDFTSpec_C_16sc* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_C_16s(const ZorsDFTSpec_C_16s* spec, Zor32s* size);
ZorStatus zorsDFTGetBufSize_R_16s(const ZorsDFTSpec_R_16s* spec, Zor32s* size);
/** @} */

/** @name DFTFwd, DFTInv, complex
 *  Forward X[k] = sum of x[n] * exp(-2 pi i n k / N), inverse with the opposite sign; natural order. src may be dst, split
 *  arrays each its own. A null buffer is allocated where one is needed.
 *  Checks: spec, its kind, data pointers, memory.
 *  Numerics: butterflies as docs/numerics.md lays them out, scaled at the very end, one product a real; an inverse is the
 *  conjugate of the forward transform of the conjugate, by chirp the forward transform with X[1] to X[N - 1] reversed.
 *  16-bit kinds transform in binary32 and round to nearest, ties to even, whatever the direction; one point alone is
 *  divided by 2^scaleFactor, halves up.
 *  @{ */
ZorStatus zorsDFTFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsDFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsDFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsDFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTFwd_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsDFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsDFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsDFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsDFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTInv_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsDFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
/** @} */

/** @name DFTFwd, DFTInv, real
 *  To and from packed spectra, see fft.h; of odd N, Pack and Perm are R[0], then the pairs up to (N - 1) / 2, and CCS, of
 *  N + 1 values, has a zero behind R[0]. Zeros of CCS input are not read. The inverse gives N times the signal. Rules and
 *  checks as above. Even N above 16: the complex transform of N / 2 pairs, scaled, then parted as in fft.h.
 *  @{ */
ZorStatus zorsDFTFwd_RToPack_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToPack_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToPack_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToPerm_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToPerm_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToPerm_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToCCS_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToCCS_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTFwd_RToCCS_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTInv_PackToR_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_PackToR_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_PackToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTInv_PermToR_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_PermToR_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_PermToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDFTInv_CCSToR_32f(const Zor32f* src, Zor32f* dst, const ZorsDFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CCSToR_64f(const Zor64f* src, Zor64f* dst, const ZorsDFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsDFTInv_CCSToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
/** @} */

/** @name Hilbert
 *  The analytic signal of len real values: dst = src + i times its Hilbert transform. A real transform of the DFT family,
 *  the positive frequencies doubled, the negative ones cleared, a complex inverse that divides by len; of one or two
 *  values the values themselves. Specifications come from InitAlloc alone; temporary memory is allocated by each call.
 *  Checks: InitAlloc specOut, len, then as the DFT's; Free and the transforms all pointers, then the kind, memory.
 *  Where a transform fails in between, dst of 32f32fc may have been written; the 16-bit kinds write at the end.
 *  Numerics: binary32; 16s16sc_Sfs over 2^scaleFactor, to nearest, ties to even, saturated; one or two values truncated.
 *  @{ */
typedef struct ZorsHilbertSpec_32f32fc ZorsHilbertSpec_32f32fc;
typedef struct ZorsHilbertSpec_16s32fc ZorsHilbertSpec_16s32fc;
typedef struct ZorsHilbertSpec_16s16sc ZorsHilbertSpec_16s16sc;
ZorStatus zorsHilbertInitAlloc_32f32fc(ZorsHilbertSpec_32f32fc** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsHilbertInitAlloc_16s32fc(ZorsHilbertSpec_16s32fc** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsHilbertInitAlloc_16s16sc(ZorsHilbertSpec_16s16sc** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsHilbertFree_32f32fc(ZorsHilbertSpec_32f32fc* spec);
ZorStatus zorsHilbertFree_16s32fc(ZorsHilbertSpec_16s32fc* spec);
ZorStatus zorsHilbertFree_16s16sc(ZorsHilbertSpec_16s16sc* spec);
ZorStatus zorsHilbert_32f32fc(const Zor32f* src, Zor32fc* dst, const ZorsHilbertSpec_32f32fc* spec);
ZorStatus zorsHilbert_16s32fc(const Zor16s* src, Zor32fc* dst, const ZorsHilbertSpec_16s32fc* spec);
ZorStatus zorsHilbert_16s16sc_Sfs(const Zor16s* src, Zor16sc* dst, const ZorsHilbertSpec_16s16sc* spec, Zor32s scaleFactor);
/** @} */

/** @name Out-of-order DFT
 *  Forward transforms that leave the spectrum in digit-reversed order, inverse ones that take it so: for convolutions,
 *  which never look at the order. Lengths N from 2,000 on that are no power of two and whose prime factors are at most 50:
 *  with fours, a two in front of them, odd primes rising f[0], f[1], ... f[m], digit t_i below f[i], place
 *  t_m N / f[m] + t_(m-1) N / (f[m] f[m-1]) + ... + t_0 has term t_m + t_(m-1) f[m] + ... + t_0 f[m] ... f[1]. Other
 *  lengths give the natural order and the bits of the DFT family, by chirp where from 2,000 on there are no such factors.
 *  Forward then inverse of one specification gives natural order at any length. src may be dst.
 *  Checks: InitAlloc specOut, len, flag (zorStatusBadFlag), len above 0x7FFFFFF that is no power of two
 *  (zorStatusBadSize), then as the DFT's; transforms spec, its kind, src, dst, memory.
 *  Numerics: the butterflies and twiddle products of the DFT family; scaled at the very end.
 *  @{ */
typedef struct ZorsDFTOutOrdSpec_C_32fc ZorsDFTOutOrdSpec_C_32fc;
typedef struct ZorsDFTOutOrdSpec_C_64fc ZorsDFTOutOrdSpec_C_64fc;
ZorStatus zorsDFTOutOrdInitAlloc_C_32fc(ZorsDFTOutOrdSpec_C_32fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTOutOrdInitAlloc_C_64fc(ZorsDFTOutOrdSpec_C_64fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsDFTOutOrdFree_C_32fc(ZorsDFTOutOrdSpec_C_32fc* spec);
ZorStatus zorsDFTOutOrdFree_C_64fc(ZorsDFTOutOrdSpec_C_64fc* spec);
ZorStatus zorsDFTOutOrdGetBufSize_C_32fc(const ZorsDFTOutOrdSpec_C_32fc* spec, Zor32s* size);
ZorStatus zorsDFTOutOrdGetBufSize_C_64fc(const ZorsDFTOutOrdSpec_C_64fc* spec, Zor32s* size);
ZorStatus zorsDFTOutOrdFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTOutOrdSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsDFTOutOrdFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTOutOrdSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsDFTOutOrdInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTOutOrdSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsDFTOutOrdInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTOutOrdSpec_C_64fc* spec, Zor8u* buffer);
/** @} */

/** @name DCTFwd, DCTInv
 *  Orthonormal cosine transforms of len = N values: y[m] = c(m) * sum of x[n] cos(pi (2 n + 1) m / (2 N)) and its inverse
 *  x[n] = sum of c(m) y[m] cos(pi (2 n + 1) m / (2 N)), c(0) = 1/sqrt(N), c(m) = sqrt(2/N). srcDst forms are in place; src
 *  may be dst everywhere. A null buffer is allocated where one is needed.
 *  Methods: N = 1, 2, 4, 8 straight lines; other powers of two by a real transform of N; below 36 (64f: 46) sums; others
 *  by a chirp in the next power of two from 2 M - 1 on, M = N, or N / 2 where N is even.
 *  GetSize, Init, InitAlloc: len (zorStatusBadSize), pointers, then len above the limits: powers of two 0xFFFFFFF (64f:
 *  0x7FFFFFF), others 0x1FFFFFF (0xFFFFFF), which Init alone takes up to 0x3FFFFFF (0x1FFFFFF) where
 *  the specification stays below 2^31 bytes, else zorStatusNoMemory; Init's buffer where its size is not 0. Init writes the aligned
 *  specification to specOut; a failing one writes nothing. Free invalidates, and releases what InitAlloc allocated.
 *  GetBufSize adds 64 for aligning; 0: none.
 *  Checks of transforms: all pointers but buffer, then the kind, memory.
 *  Numerics: factors in the element's type from binary64 cosines; direct sums in two running sums, each product and sum
 *  rounded; after the real transform V, y[k] = fma(V.im, t.im, -round(V.re * t.re)), y[N - k] = fma(V.im, t.re,
 *  round(V.re * t.im)). 16s: in binary32, over 2^scaleFactor to nearest, ties to even, saturated; one value halves up.
 *  @{ */
typedef struct ZorsDCTFwdSpec_16s ZorsDCTFwdSpec_16s;
typedef struct ZorsDCTFwdSpec_32f ZorsDCTFwdSpec_32f;
typedef struct ZorsDCTFwdSpec_64f ZorsDCTFwdSpec_64f;
typedef struct ZorsDCTInvSpec_16s ZorsDCTInvSpec_16s;
typedef struct ZorsDCTInvSpec_32f ZorsDCTInvSpec_32f;
typedef struct ZorsDCTInvSpec_64f ZorsDCTInvSpec_64f;
ZorStatus zorsDCTFwdGetSize_16s(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTFwdGetSize_32f(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTFwdGetSize_64f(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTInvGetSize_16s(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTInvGetSize_32f(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTInvGetSize_64f(Zor32s len, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsDCTFwdInit_16s(ZorsDCTFwdSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTFwdInit_32f(ZorsDCTFwdSpec_32f** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTFwdInit_64f(ZorsDCTFwdSpec_64f** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTInvInit_16s(ZorsDCTInvSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTInvInit_32f(ZorsDCTInvSpec_32f** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTInvInit_64f(ZorsDCTInvSpec_64f** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsDCTFwdInitAlloc_16s(ZorsDCTFwdSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTFwdInitAlloc_32f(ZorsDCTFwdSpec_32f** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTFwdInitAlloc_64f(ZorsDCTFwdSpec_64f** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTInvInitAlloc_16s(ZorsDCTInvSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTInvInitAlloc_32f(ZorsDCTInvSpec_32f** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTInvInitAlloc_64f(ZorsDCTInvSpec_64f** specOut, Zor32s len, ZorHintAlgorithm hint);
ZorStatus zorsDCTFwdFree_16s(ZorsDCTFwdSpec_16s* spec);
ZorStatus zorsDCTFwdFree_32f(ZorsDCTFwdSpec_32f* spec);
ZorStatus zorsDCTFwdFree_64f(ZorsDCTFwdSpec_64f* spec);
ZorStatus zorsDCTInvFree_16s(ZorsDCTInvSpec_16s* spec);
ZorStatus zorsDCTInvFree_32f(ZorsDCTInvSpec_32f* spec);
ZorStatus zorsDCTInvFree_64f(ZorsDCTInvSpec_64f* spec);
ZorStatus zorsDCTFwdGetBufSize_16s(const ZorsDCTFwdSpec_16s* spec, Zor32s* size);
ZorStatus zorsDCTFwdGetBufSize_32f(const ZorsDCTFwdSpec_32f* spec, Zor32s* size);
ZorStatus zorsDCTFwdGetBufSize_64f(const ZorsDCTFwdSpec_64f* spec, Zor32s* size);
ZorStatus zorsDCTInvGetBufSize_16s(const ZorsDCTInvSpec_16s* spec, Zor32s* size);
ZorStatus zorsDCTInvGetBufSize_32f(const ZorsDCTInvSpec_32f* spec, Zor32s* size);
ZorStatus zorsDCTInvGetBufSize_64f(const ZorsDCTInvSpec_64f* spec, Zor32s* size);
ZorStatus zorsDCTFwd_32f(const Zor32f* src, Zor32f* dst, const ZorsDCTFwdSpec_32f* spec, Zor8u* buffer);
ZorStatus zorsDCTFwd_32f_I(Zor32f* srcDst, const ZorsDCTFwdSpec_32f* spec, Zor8u* buffer);
ZorStatus zorsDCTFwd_64f(const Zor64f* src, Zor64f* dst, const ZorsDCTFwdSpec_64f* spec, Zor8u* buffer);
ZorStatus zorsDCTFwd_64f_I(Zor64f* srcDst, const ZorsDCTFwdSpec_64f* spec, Zor8u* buffer);
ZorStatus zorsDCTFwd_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDCTFwdSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDCTFwd_16s_ISfs(Zor16s* srcDst, const ZorsDCTFwdSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDCTInv_32f(const Zor32f* src, Zor32f* dst, const ZorsDCTInvSpec_32f* spec, Zor8u* buffer);
ZorStatus zorsDCTInv_32f_I(Zor32f* srcDst, const ZorsDCTInvSpec_32f* spec, Zor8u* buffer);
ZorStatus zorsDCTInv_64f(const Zor64f* src, Zor64f* dst, const ZorsDCTInvSpec_64f* spec, Zor8u* buffer);
ZorStatus zorsDCTInv_64f_I(Zor64f* srcDst, const ZorsDCTInvSpec_64f* spec, Zor8u* buffer);
ZorStatus zorsDCTInv_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDCTInvSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsDCTInv_16s_ISfs(Zor16s* srcDst, const ZorsDCTInvSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
/** @} */

#ifdef __cplusplus
}
#endif
#endif
