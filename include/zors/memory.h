/** @file
 *  Version, memory, blocks of memory. The conventions of all functions stand in zors.h. */
/* clang-format off */
#ifndef ZORS_MEMORY_H
#define ZORS_MEMORY_H

#include "zors/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name The version record
 *  Constant data, the same pointer at every call.
 *  @{ */
const ZorLibraryVersion* zorsGetLibVersion(void);
/** @} */

/** @name Malloc
 *  len elements aligned to 64 bytes, to be released by zorsFree. Null where len is below 1 or memory is
 *  exhausted. The byte count is formed in 32 bits and wraps unnoticed from 2^32 on. zorsFree of null does nothing.
 *  @{ */
Zor8u* zorsMalloc_8u(Zor32s len);
Zor8s* zorsMalloc_8s(Zor32s len);
Zor8sc* zorsMalloc_8sc(Zor32s len);
Zor16u* zorsMalloc_16u(Zor32s len);
Zor16s* zorsMalloc_16s(Zor32s len);
Zor16sc* zorsMalloc_16sc(Zor32s len);
Zor32u* zorsMalloc_32u(Zor32s len);
Zor32s* zorsMalloc_32s(Zor32s len);
Zor32sc* zorsMalloc_32sc(Zor32s len);
Zor32f* zorsMalloc_32f(Zor32s len);
Zor32fc* zorsMalloc_32fc(Zor32s len);
Zor64s* zorsMalloc_64s(Zor32s len);
Zor64sc* zorsMalloc_64sc(Zor32s len);
Zor64f* zorsMalloc_64f(Zor32s len);
Zor64fc* zorsMalloc_64fc(Zor32s len);
void zorsFree(void* ptr);
/** @} */

/** @name Zero
 *  dst[i] = 0. The byte count must be below 2^31. Vectors above 2 MiB that exceed the largest cache are written
 *  past it.
 *  @{ */
ZorStatus zorsZero_8u(Zor8u* dst, Zor32s len);
ZorStatus zorsZero_16s(Zor16s* dst, Zor32s len);
ZorStatus zorsZero_16sc(Zor16sc* dst, Zor32s len);
ZorStatus zorsZero_32s(Zor32s* dst, Zor32s len);
ZorStatus zorsZero_32sc(Zor32sc* dst, Zor32s len);
ZorStatus zorsZero_32f(Zor32f* dst, Zor32s len);
ZorStatus zorsZero_32fc(Zor32fc* dst, Zor32s len);
ZorStatus zorsZero_64s(Zor64s* dst, Zor32s len);
ZorStatus zorsZero_64sc(Zor64sc* dst, Zor32s len);
ZorStatus zorsZero_64f(Zor64f* dst, Zor32s len);
ZorStatus zorsZero_64fc(Zor64fc* dst, Zor32s len);
/** @} */

/** @name Set
 *  dst[i] = val. 64sc and 64fc take val by pointer. Large vectors are written past the caches as by Zero, if dst is
 *  aligned to the element.
 *  @{ */
ZorStatus zorsSet_8u(Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsSet_16s(Zor16s val, Zor16s* dst, Zor32s len);
ZorStatus zorsSet_16sc(Zor16sc val, Zor16sc* dst, Zor32s len);
ZorStatus zorsSet_32s(Zor32s val, Zor32s* dst, Zor32s len);
ZorStatus zorsSet_32sc(Zor32sc val, Zor32sc* dst, Zor32s len);
ZorStatus zorsSet_32f(Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsSet_32fc(Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsSet_64s(Zor64s val, Zor64s* dst, Zor32s len);
ZorStatus zorsSet_64sc(const Zor64sc* val, Zor64sc* dst, Zor32s len);
ZorStatus zorsSet_64f(Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsSet_64fc(const Zor64fc* val, Zor64fc* dst, Zor32s len);
/** @} */

/** @name Copy
 *  dst[i] = src[i] for vectors that do not overlap. Any length, beyond 2^31 bytes too. Raw bits: signalling NaNs
 *  stay.
 *  @{ */
ZorStatus zorsCopy_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsCopy_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsCopy_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsCopy_32s(const Zor32s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsCopy_32sc(const Zor32sc* src, Zor32sc* dst, Zor32s len);
ZorStatus zorsCopy_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsCopy_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsCopy_64s(const Zor64s* src, Zor64s* dst, Zor32s len);
ZorStatus zorsCopy_64sc(const Zor64sc* src, Zor64sc* dst, Zor32s len);
ZorStatus zorsCopy_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsCopy_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
/** @} */

/** @name Move
 *  dst[i] = src[i] as if src were first copied aside; any overlap. The byte count must be below 2^31.
 *  @{ */
ZorStatus zorsMove_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsMove_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsMove_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsMove_32s(const Zor32s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsMove_32sc(const Zor32sc* src, Zor32sc* dst, Zor32s len);
ZorStatus zorsMove_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMove_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsMove_64s(const Zor64s* src, Zor64s* dst, Zor32s len);
ZorStatus zorsMove_64sc(const Zor64sc* src, Zor64sc* dst, Zor32s len);
ZorStatus zorsMove_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsMove_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
/** @} */

/** @name Flip
 *  dst[i] = src[len - 1 - i]; raw bits, complex pairs stay in order. src may be dst (tested before the checks).
 *  @{ */
ZorStatus zorsFlip_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsFlip_16u(const Zor16u* src, Zor16u* dst, Zor32s len);
ZorStatus zorsFlip_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsFlip_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsFlip_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsFlip_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsFlip_8u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsFlip_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsFlip_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsFlip_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsFlip_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsFlip_64fc_I(Zor64fc* srcDst, Zor32s len);
/** @} */

/** @name SwapBytes
 *  The bytes of each element in reverse. The len of 24u counts 3-byte elements. src may be dst.
 *  @{ */
ZorStatus zorsSwapBytes_16u(const Zor16u* src, Zor16u* dst, Zor32s len);
ZorStatus zorsSwapBytes_24u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsSwapBytes_32u(const Zor32u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsSwapBytes_64u(const Zor64u* src, Zor64u* dst, Zor32s len);
ZorStatus zorsSwapBytes_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_24u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_32u_I(Zor32u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_64u_I(Zor64u* srcDst, Zor32s len);
/** @} */

/** @name Copy of bit strings
 *  len bits from bit srcBitOffset of src to bit dstBitOffset of dst; all other bits of dst stay.
 *  Bits of a byte are numbered from the 0x80 bit down; zorsCopyBE_1u numbers them from the 0x01 bit up, zorsCopyLE_1u is
 *  zorsCopy_1u. Only the low three bits of an offset count. Checks: pointers; then len below 1 or an offset below 0,
 *  zorStatusBadSize. No byte is touched beyond those that hold a wanted bit. No overlap.
 *  @{ */
ZorStatus zorsCopy_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);
ZorStatus zorsCopyLE_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);
ZorStatus zorsCopyBE_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
