/** @file
 *  Fourier transforms of 2^order points, packed spectra. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_FFT_H
#define ZORS_FFT_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define ZOR_FFT_DIVIDE_FORWARD 1   /* the forward result is divided by N */
#define ZOR_FFT_DIVIDE_INVERSE 2   /* the inverse result is divided by N */
#define ZOR_FFT_DIVIDE_BOTH_ROOT 4 /* both are divided by the square root of N */
#define ZOR_FFT_DIVIDE_NONE 8      /* neither is divided */

typedef struct ZorsFFTSpec_C_32f ZorsFFTSpec_C_32f;
typedef struct ZorsFFTSpec_C_32fc ZorsFFTSpec_C_32fc;
typedef struct ZorsFFTSpec_R_32f ZorsFFTSpec_R_32f;
typedef struct ZorsFFTSpec_C_64f ZorsFFTSpec_C_64f;
typedef struct ZorsFFTSpec_C_64fc ZorsFFTSpec_C_64fc;
typedef struct ZorsFFTSpec_R_64f ZorsFFTSpec_R_64f;

/** @name Specifications of transforms of N = 2^order points
 *  C_32fc interleaved and C_32f split complex data, orders 0 to 28;
 *  R_32f real data, orders 0 to 29; the 64-bit kinds one order less each.
 *  GetSize   writes the bytes of the specification block, of the buffer that Init needs (0: none) and of the work buffer
 *            that a transform needs. Checks: an order outside 0 to 30; pointers; flag (zorStatusBadFlag); the kind's
 *            largest order (zorStatusBadOrder).
 *  Init      builds the specification inside specBlock (any alignment), writes its address to specOut and never
 *            allocates. initBuffer may be null where its size was 0. Checks: specOut, order, specBlock, flag, initBuffer;
 *            from the flag on the block has been cleared. hint is stored and has no effect on float kinds.
 *  InitAlloc allocates and builds.
 *  Free      releases what InitAlloc allocated and invalidates the specification.
 *  GetBufSize writes the bytes of the work buffer, 64 for aligning it included; 0 where none is needed.
 *  Sizes are formed in 32 bits: at the largest orders of the integer kinds the work buffer's wraps below 0, GetBufSize
 *  then writes 0, and transforms want a buffer of the caller's.
 *  Numerics: twiddles come from one quarter-wave sine table, each entry evaluated directly.
 *  @{ */
ZorStatus zorsFFTGetSize_C_32fc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                                Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_32f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_32f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_64fc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                                Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_64f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_64f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTInit_C_32fc(ZorsFFTSpec_C_32fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                             Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_32f(ZorsFFTSpec_C_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_32f(ZorsFFTSpec_R_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_64fc(ZorsFFTSpec_C_64fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                             Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_64f(ZorsFFTSpec_C_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_64f(ZorsFFTSpec_R_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInitAlloc_C_32fc(ZorsFFTSpec_C_32fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_C_32f(ZorsFFTSpec_C_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_R_32f(ZorsFFTSpec_R_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_C_64fc(ZorsFFTSpec_C_64fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_C_64f(ZorsFFTSpec_C_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_R_64f(ZorsFFTSpec_R_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTFree_C_32fc(ZorsFFTSpec_C_32fc* spec);
ZorStatus zorsFFTFree_C_32f(ZorsFFTSpec_C_32f* spec);
ZorStatus zorsFFTFree_R_32f(ZorsFFTSpec_R_32f* spec);
ZorStatus zorsFFTFree_C_64fc(ZorsFFTSpec_C_64fc* spec);
ZorStatus zorsFFTFree_C_64f(ZorsFFTSpec_C_64f* spec);
ZorStatus zorsFFTFree_R_64f(ZorsFFTSpec_R_64f* spec);
ZorStatus zorsFFTGetBufSize_C_32fc(const ZorsFFTSpec_C_32fc* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_C_32f(const ZorsFFTSpec_C_32f* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_R_32f(const ZorsFFTSpec_R_32f* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_C_64fc(const ZorsFFTSpec_C_64fc* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_C_64f(const ZorsFFTSpec_C_64f* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_R_64f(const ZorsFFTSpec_R_64f* spec, Zor32s* size);
/** @} */

/** @name Complex transforms
 *  Forward: X[k] = sum over n of x[n] exp(-2 pi i n k / N), inverse with the opposite sign; natural
 *  order in and out. buffer: a work buffer as GetBufSize tells, or null: the call then allocates one. src may be dst.
 *  Checks: spec null, its kind, data pointers, work buffer (zorStatusNoMemory).
 *  Numerics: every stage rounds as docs/numerics.md tells; results do not depend on alignment or on the place of dst.
 *  @{ */
ZorStatus zorsFFTFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm,
                              const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm,
                              const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm,
                              const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm,
                              const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
/** @} */

/** @name Real transforms
 *  The spectrum X[k] = R[k] + i I[k] of N real values is conjugate-symmetric; its first half is stored as
 *    Pack   R[0]        R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2]      N values
 *    Perm   R[0] R[N/2] R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]              N values
 *    CCS    R[0] 0      R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2] 0    N + 2 values
 *  For odd N the R[N/2] term is absent, Perm is Pack and CCS has N + 1 values; N = 1: R[0], and R[0] 0 in CCS. Checks
 *  and buffer as for complex transforms.
 *  @{ */
ZorStatus zorsFFTFwd_RToPack_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_32f(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_32f_I(Zor32f* srcDst, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_64f(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_64f_I(Zor64f* srcDst, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer);
/** @} */

/** @name Integer transforms through floating point
 *  Values are converted, transformed as by the float kinds, and converted
 *  back: divided by 2^scaleFactor, rounded to nearest, ties to even, saturated. C_32sc and C_32s complex data, orders 0
 *  to 27, and R_32s real data, orders 0 to 28, in binary64; R_16s32s 16-bit real data and 32-bit spectra, orders 0 to
 *  29, in binary32. Specifications as those of the float kinds; every order needs a work buffer. Init tests orders only
 *  against 30 before the block has been cleared.
 *  @{ */
typedef struct ZorsFFTSpec_C_32sc ZorsFFTSpec_C_32sc;
typedef struct ZorsFFTSpec_C_32s ZorsFFTSpec_C_32s;
typedef struct ZorsFFTSpec_R_32s ZorsFFTSpec_R_32s;
typedef struct ZorsFFTSpec_R_16s32s ZorsFFTSpec_R_16s32s;
ZorStatus zorsFFTGetSize_C_32sc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                                Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                               Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_16s32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize,
                                  Zor32s* workSize);
ZorStatus zorsFFTInit_C_32sc(ZorsFFTSpec_C_32sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                             Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_32s(ZorsFFTSpec_C_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_32s(ZorsFFTSpec_R_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                            Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_16s32s(ZorsFFTSpec_R_16s32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint,
                               Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInitAlloc_C_32sc(ZorsFFTSpec_C_32sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_C_32s(ZorsFFTSpec_C_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_R_32s(ZorsFFTSpec_R_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_R_16s32s(ZorsFFTSpec_R_16s32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTFree_C_32sc(ZorsFFTSpec_C_32sc* spec);
ZorStatus zorsFFTFree_C_32s(ZorsFFTSpec_C_32s* spec);
ZorStatus zorsFFTFree_R_32s(ZorsFFTSpec_R_32s* spec);
ZorStatus zorsFFTFree_R_16s32s(ZorsFFTSpec_R_16s32s* spec);
ZorStatus zorsFFTGetBufSize_C_32sc(const ZorsFFTSpec_C_32sc* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_C_32s(const ZorsFFTSpec_C_32s* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_R_32s(const ZorsFFTSpec_R_32s* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_R_16s32s(const ZorsFFTSpec_R_16s32s* spec, Zor32s* size);
ZorStatus zorsFFTFwd_CToC_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor,
                                   Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32sc_ISfs(Zor32sc* srcDst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32s_Sfs(const Zor32s* srcRe, const Zor32s* srcIm, Zor32s* dstRe, Zor32s* dstIm,
                                  const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32s_ISfs(Zor32s* srcDstRe, Zor32s* srcDstIm, const ZorsFFTSpec_C_32s* spec,
                                   Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor,
                                   Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32sc_ISfs(Zor32sc* srcDst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32s_Sfs(const Zor32s* srcRe, const Zor32s* srcIm, Zor32s* dstRe, Zor32s* dstIm,
                                  const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32s_ISfs(Zor32s* srcDstRe, Zor32s* srcDstIm, const ZorsFFTSpec_C_32s* spec,
                                   Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                     Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                     Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                    Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                     Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                     Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                                    Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_16s32s_Sfs(const Zor16s* src, Zor32s* dst, const ZorsFFTSpec_R_16s32s* spec,
                                       Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_32s16s_Sfs(const Zor32s* src, Zor16s* dst, const ZorsFFTSpec_R_16s32s* spec,
                                       Zor32s scaleFactor, Zor8u* buffer);
/** @} */

/** @name Transforms of 16-bit integers
 *  C_16sc and C_16s complex data, orders 0 to 28, R_16s real data, orders 0 to 29. With
 *  hint none or fast orders up to 3 run in fixed point: values widened to 32 bits, weights of 14 fraction bits, results
 *  divided by 2^scaleFactor with halves rounded up, and saturated; they may differ from the float path in the last bit.
 *  Else, and for all other orders and hints, through binary32 as the integer transforms above. One point is only scaled.
 *  Specifications and work buffers as above; Init needs initBuffer only for tables, from order 11 on.
 *  @{ */
typedef struct ZorsFFTSpec_C_16sc ZorsFFTSpec_C_16sc;
typedef struct ZorsFFTSpec_C_16s ZorsFFTSpec_C_16s;
typedef struct ZorsFFTSpec_R_16s ZorsFFTSpec_R_16s;
ZorStatus zorsFFTGetSize_C_16sc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_16s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_16s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTInit_C_16sc(ZorsFFTSpec_C_16sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_16s(ZorsFFTSpec_C_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_16s(ZorsFFTSpec_R_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInitAlloc_C_16sc(ZorsFFTSpec_C_16sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_C_16s(ZorsFFTSpec_C_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTInitAlloc_R_16s(ZorsFFTSpec_R_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint);
ZorStatus zorsFFTFree_C_16sc(ZorsFFTSpec_C_16sc* spec);
ZorStatus zorsFFTFree_C_16s(ZorsFFTSpec_C_16s* spec);
ZorStatus zorsFFTFree_R_16s(ZorsFFTSpec_R_16s* spec);
ZorStatus zorsFFTGetBufSize_C_16sc(const ZorsFFTSpec_C_16sc* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_C_16s(const ZorsFFTSpec_C_16s* spec, Zor32s* size);
ZorStatus zorsFFTGetBufSize_R_16s(const ZorsFFTSpec_R_16s* spec, Zor32s* size);
ZorStatus zorsFFTFwd_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_16sc_ISfs(Zor16sc* srcDst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_16s_ISfs(Zor16s* srcDstRe, Zor16s* srcDstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_16sc_ISfs(Zor16sc* srcDst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_16s_ISfs(Zor16s* srcDstRe, Zor16s* srcDstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPack_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToPerm_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTFwd_RToCCS_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PackToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_PermToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
ZorStatus zorsFFTInv_CCSToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer);
/** @} */

/** @name Products of packed spectra of len values, even or odd
 *  Real terms by one product; pairs, with a = src1 and b = src2
 *  (src and srcDst in place; dst = src1 acts as in place, with src2 as src): re = fma(a.re, b.re, -round(a.im * b.im)), im = fma(b.im, a.re, round(a.im * b.re)).
 *  MulPackConj: srcDst = src * conj(srcDst): the operand that is overwritten is the one conjugated; s = src, d = srcDst:
 *  re = fma(d.re, s.re, round(s.im * d.im)), im = fma(d.re, s.im, -round(s.re * d.im)).
 *  16s: exact products divided by 2^scaleFactor; real terms scaled down are cut, not rounded; pairs as Mul_16sc.
 *  @{ */
ZorStatus zorsMulPack_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulPack_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulPerm_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulPerm_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulPack_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMulPack_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulPack_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMulPack_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMulPerm_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMulPerm_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulPerm_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMulPerm_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMulPackConj_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulPackConj_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
/** @} */

/** @name Conj
 *  A packed spectrum of len values' transform, even or odd len, to all len terms: X[len - k] = conj X[k]. The
 *  first term and, for even len, the middle one get zero imaginary parts; ConjCcs copies what its source has there. In
 *  place the packed values stand at the begin of srcDst, which has room for len pairs. src may be dst. Numerics: no
 *  rounding; 16sc negates with saturation. Checks: pointers, len.
 *  @{ */
ZorStatus zorsConjPack_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConjPack_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsConjPack_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConjPack_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsConjPack_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsConjPack_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsConjPerm_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConjPerm_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsConjPerm_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConjPerm_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsConjPerm_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsConjPerm_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsConjCcs_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConjCcs_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsConjCcs_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConjCcs_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsConjCcs_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsConjCcs_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
