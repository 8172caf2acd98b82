/* zorsl9: one-dimensional signal processing for x86-64 processors with AVX2 and FMA.
 *
 * Conventions of all functions
 *   Vectors      a pointer to the first element and a length in elements (a complex element counts once). No pointer
 *                needs an alignment beyond what the element type asks of the compiler, and none changes a result.
 *   Arguments    sources, destination, length, selectors, scale factor last. In non-commutative arithmetic the second
 *                operand comes first: Sub is src2 - src1.
 *   Suffixes     element types; _I in place (the last operand is also the destination); _Sfs integer result scaled
 *                by a power of two; _ISfs both.
 *   Status       0 success; negative an error, found before anything was written; positive a warning, the output is
 *                complete. Checks are made in the order: null pointers, state tags, lengths below 1, everything else.
 *                Families that differ say so.
 *   Scaling      scaleFactor is the base-2 exponent of a divisor: the exact result divided by 2^scaleFactor, rounded to
 *                nearest, ties to even, saturated to the destination's range. Every value is accepted.
 *   Aliasing     a source may be the destination itself; no other overlap, but where a family allows it.
 *   Threads      every function is re-entrant on separate data. A specification of a transform may be shared by threads
 *                that give work buffers of their own; a filter's or generator's state serves one caller at a time.
 *   Environment  the caller's floating-point control word holds, unless a family says that it sets a direction for the
 *                call; then the word is as before on return. Sticky flags may be set.
 */
#ifndef ZORS_H
#define ZORS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Types -------------------------------------------------------------------------------------------------- */

typedef uint8_t Zor8u;
typedef int8_t Zor8s;
typedef uint16_t Zor16u;
typedef int16_t Zor16s;
typedef uint32_t Zor32u;
typedef int32_t Zor32s;
typedef uint64_t Zor64u;
typedef int64_t Zor64s;
typedef uint16_t Zor16f; /* IEEE binary16 in a 16-bit word */
typedef float Zor32f;
typedef double Zor64f;

typedef struct { Zor8s re, im; } Zor8sc;
typedef struct { Zor16s re, im; } Zor16sc;
typedef struct { Zor32s re, im; } Zor32sc;
typedef struct { Zor64s re, im; } Zor64sc;
typedef struct { Zor32f re, im; } Zor32fc;
typedef struct { Zor64f re, im; } Zor64fc;

/* Further forms, addressed through Zor8u pointers: 24u, 24s three bytes an element, least significant first, no gaps;
   1u a bit string, a pointer and a bit offset. */

typedef int32_t ZorStatus;
enum {
  zorStatusOk = 0,                          /* success */
  zorStatusBadArgument = -5,                /* a selector is out of range */
  zorStatusBadSize = -6,                    /* a length or count is below 1 */
  zorStatusBadModeOption = -7,              /* ZeroCrossing: unknown mode */
  zorStatusNullPointer = -8,                /* a required pointer is null */
  zorStatusNoMemory = -9,                   /* memory is exhausted */
  zorStatusDivideByZero = -10,              /* the constant divisor is zero */
  zorStatusBadCauchyConstant = -11,         /* Cauchy: the constant is out of range */
  zorStatusBadDataType = -12,               /* unsupported element type code */
  zorStatusNegativeTapShift = -13,          /* 16-bit IIR: the shift count among the taps is negative */
  zorStatusBadOrder = -15,                  /* the FFT order is out of range */
  zorStatusBadFlag = -16,                   /* the normalisation flag is not one of the allowed */
  zorStatusBadContext = -17,                /* the state or specification is not of the kind expected */
  zorStatusThresholdLevelsCrossed = -18,    /* the lower level is above the upper one */
  zorStatusNegativeThresholdLevel = -19,    /* the level is negative */
  zorStatusBadDelayIndex = -24,             /* the delay line index is out of range */
  zorStatusBadFilterOrder = -25,            /* the filter order is out of range */
  zorStatusBadTapsLength = -26,             /* the tap count is below 1 */
  zorStatusBadRelativeFrequency = -27,      /* Goertzel: the relative frequency is out of range */
  zorStatusBadMultiRatePhase = -28,         /* a phase is outside 0 to factor - 1 */
  zorStatusBadMultiRateFactor = -29,        /* a rate factor is below 1 */
  zorStatusBadSampleFactor = -30,           /* SampleUp, SampleDown: the factor is below 1 */
  zorStatusBadPhase = -31,                  /* SampleUp, SampleDown: the phase is out of range */
  zorStatusBadShift = -32,                  /* the shift count is negative */
  zorStatusBadMaskSize = -33,               /* the window is not shorter than the vector */
  zorStatusBadWaveletFilter = -35,          /* a wavelet filter length or offset is out of range */
  zorStatusBadMagnitude = -38,              /* VectorJaehne: the magnitude is negative */
  zorStatusBadAlpha = -39,                  /* WinKaiser: alpha is out of range */
  zorStatusBadTriangleAsym = -40,           /* the asymmetry is outside [-pi, pi) */
  zorStatusBadTrianglePhase = -41,          /* the phase is outside [0, 2 pi) */
  zorStatusBadTriangleFrequency = -42,      /* the relative frequency is outside [0, 0.5) */
  zorStatusBadTriangleMagnitude = -43,      /* the magnitude is not positive */
  zorStatusBadTonePhase = -44,              /* the phase is outside [0, 2 pi) */
  zorStatusBadToneFrequency = -45,          /* the relative frequency is outside [0, 0.5) */
  zorStatusBadToneMagnitude = -46,          /* the magnitude is not positive */
  zorStatusBadChannelCountScaled = -47,     /* IIR64f_32s_P: the channel count is below 1 */
  zorStatusBadChannelCountFloat = -53,      /* IIR_32f_P: the channel count is below 1 */
  zorStatusBadSparsePositions = -194,       /* the tap positions are negative or do not increase */
  zorStatusBadIirGenOrder = -206,           /* IIRGen: the order is outside 1 to 12 */
  zorStatusBadIirGenFrequency = -208,       /* IIRGen: the cut-off is outside (0, 0.5) */
  zorStatusBadIirGenRipple = -209,          /* IIRGen: the ripple is outside (0, 29] */
  zorStatusBadRoundMode = -213,             /* the rounding mode is not accepted */
  zorStatusBadAlgorithmType = -228,         /* the algorithm type is not accepted */
  zorWarningSqrtOfNegative = 3,             /* an argument of a square root is negative */
  zorWarningInverseOfZero = 4,              /* a zero was inverted */
  zorStatusEvenMedianMaskSize = 5,          /* an even mask was reduced by one */
  zorWarningDivideByZero = 6,               /* a divisor is zero */
  zorWarningLogOfZero = 7,                  /* an argument of a logarithm is zero */
  zorWarningLogOfNegative = 8,              /* an argument of a logarithm is negative */
  zorWarningNotANumber = 9,                 /* the input holds a NaN */
  zorWarningBitWidthClamped = 27,           /* a bit width outside 0 to 32 was clamped */
};

typedef int32_t ZorRoundMode;
enum {
  zorRoundTowardZero = 0,
  zorRoundNearestEven = 1,
  zorRoundHalfAway = 2 /* nearest, ties away from zero */
};

/* Never validated: 1 selects the fast path where there is one, every other value the default. */
typedef int32_t ZorHintAlgorithm;
enum { zorAlgHintNone = 0, zorAlgHintFast = 1, zorAlgHintAccurate = 2 };

typedef int32_t ZorCmpOp;
enum { zorCmpLess = 0, zorCmpGreater = 4 };

typedef struct {
  Zor32s major, minor, majorBuild, build;
  char targetCpu[4];
  const char* Name;
  const char* Version;
  const char* BuildDate;
} ZorLibraryVersion;

/* ---- Version and memory ------------------------------------------------------------------------------------- */

/* The version record: constant data, the same pointer at every call. */
const ZorLibraryVersion* zorsGetLibVersion(void);

/* Malloc: len elements aligned to 64 bytes, to be released by zorsFree. Null where len is below 1 or memory is
   exhausted. The byte count is formed in 32 bits and wraps unnoticed from 2^32 on. zorsFree of null does nothing. */
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

/* ---- Memory blocks ------------------------------------------------------------------------------------------ */

/* Zero: dst[i] = 0. The byte count must be below 2^31. Vectors above 2 MiB that exceed the largest cache are written
   past it. */
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

/* Set: dst[i] = val. 64sc and 64fc take val by pointer. Large vectors are written past the caches as by Zero, if dst is
   aligned to the element. */
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

/* Copy: dst[i] = src[i] for vectors that do not overlap. Any length, beyond 2^31 bytes too. Raw bits: signalling NaNs
   stay. */
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

/* Move: dst[i] = src[i] as if src were first copied aside; any overlap. The byte count must be below 2^31. */
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

/* Flip: dst[i] = src[len - 1 - i]; raw bits, complex pairs stay in order. src may be dst (tested before the checks). */
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

/* SwapBytes: the bytes of each element in reverse. The len of 24u counts 3-byte elements. src may be dst. */
ZorStatus zorsSwapBytes_16u(const Zor16u* src, Zor16u* dst, Zor32s len);
ZorStatus zorsSwapBytes_24u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsSwapBytes_32u(const Zor32u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsSwapBytes_64u(const Zor64u* src, Zor64u* dst, Zor32s len);
ZorStatus zorsSwapBytes_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_24u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_32u_I(Zor32u* srcDst, Zor32s len);
ZorStatus zorsSwapBytes_64u_I(Zor64u* srcDst, Zor32s len);

/* Copy of bit strings: len bits from bit srcBitOffset of src to bit dstBitOffset of dst; all other bits of dst stay.
   Bits of a byte are numbered from the 0x80 bit down; zorsCopyBE_1u numbers them from the 0x01 bit up, zorsCopyLE_1u is
   zorsCopy_1u. Only the low three bits of an offset count. Checks: pointers; then len below 1 or an offset below 0,
   zorStatusBadSize. No byte is touched beyond those that hold a wanted bit. No overlap. */
ZorStatus zorsCopy_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);
ZorStatus zorsCopyLE_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);
ZorStatus zorsCopyBE_1u(const Zor8u* src, Zor32s srcBitOffset, Zor8u* dst, Zor32s dstBitOffset, Zor32s len);

/* ---- Element-wise arithmetic --------------------------------------------------------------------------------- */

/* Mul: dst[i] = src1[i] * src2[i]; in place srcDst[i] *= src[i].
   Numerics: one multiplication an element in the current rounding direction. */
ZorStatus zorsMul_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMul_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMul_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMul_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);

/* MulC: dst[i] = src[i] * val; in place srcDst[i] *= val.
   Numerics: one multiplication an element in the current rounding direction. */
ZorStatus zorsMulC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsMulC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsMulC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);

/* ---- Conversion ---------------------------------------------------------------------------------------------- */

/* Convert, integer to float: exact. */
ZorStatus zorsConvert_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len);

/* Convert, float to integer: dst[i] = src[i] * 2^-scaleFactor, rounded by rnd and saturated.
   Numerics: the factor is the binary32 with the bits 0x3F800000 - (scaleFactor << 23) in 32 bits; scale factors outside
   what an exponent holds wrap into other bits. rnd: zorRoundTowardZero, zorRoundNearestEven, any other value nearest with
   ties away from zero. Neither depends on the current direction. NaN gives -32768. */
ZorStatus zorsConvert_32f16s_Sfs(const Zor32f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);

/* ---- Fourier transforms -------------------------------------------------------------------------------------- */

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

/* Specifications of transforms of N = 2^order points. C_32fc interleaved and C_32f split complex data, orders 0 to 28;
   R_32f real data, orders 0 to 29; the 64-bit kinds one order less each.
   GetSize   writes the bytes of the specification block, of the buffer that Init needs (0: none) and of the work buffer
             that a transform needs. Checks: an order outside 0 to 30; pointers; flag (zorStatusBadFlag); the kind's
             largest order (zorStatusBadOrder).
   Init      builds the specification inside specBlock (any alignment), writes its address to specOut and never
             allocates. initBuffer may be null where its size was 0. Checks: specOut, order, specBlock, flag, initBuffer;
             from the flag on the block has been cleared. hint is stored and has no effect on float kinds.
   InitAlloc allocates and builds. Free releases what InitAlloc allocated and invalidates the specification.
   GetBufSize writes the bytes of the work buffer, 64 for aligning it included; 0 where none is needed.
   Numerics: twiddles come from one quarter-wave sine table, each entry evaluated directly. */
ZorStatus zorsFFTGetSize_C_32fc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_32f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_32f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_64fc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_C_64f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTGetSize_R_64f(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize);
ZorStatus zorsFFTInit_C_32fc(ZorsFFTSpec_C_32fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_32f(ZorsFFTSpec_C_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_32f(ZorsFFTSpec_R_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_64fc(ZorsFFTSpec_C_64fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_C_64f(ZorsFFTSpec_C_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
ZorStatus zorsFFTInit_R_64f(ZorsFFTSpec_R_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer);
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

/* Complex transforms. Forward: X[k] = sum over n of x[n] exp(-2 pi i n k / N), inverse with the opposite sign; natural
   order in and out. buffer: a work buffer as GetBufSize tells, or null: the call then allocates one. src may be dst.
   Checks: spec null, its kind, data pointers, work buffer (zorStatusNoMemory).
   Numerics: every stage rounds as docs/numerics.md tells; results do not depend on alignment or on the place of dst. */
ZorStatus zorsFFTFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTFwd_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);
ZorStatus zorsFFTInv_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer);

/* Real transforms. The spectrum X[k] = R[k] + i I[k] of N real values is conjugate-symmetric; its first half is stored as
     Pack  R[0]  R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2]               N values
     Perm  R[0] R[N/2]  R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]               N values
     CCS   R[0] 0  R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2] 0          N + 2 values
   For odd N the R[N/2] term is absent and Perm is Pack; N = 1: R[0], and R[0] 0 in CCS.
   Checks and buffer as for complex transforms. */
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

/* Products of packed spectra of len values, even or odd. Real terms by one product; pairs, with a = src1 and b = src2
   (src and srcDst in place): re = fma(a.re, b.re, -round(a.im * b.im)), im = fma(b.im, a.re, round(a.im * b.re)).
   MulPackConj: srcDst = src * conj(srcDst): the operand that is overwritten is the one conjugated; s = src, d = srcDst:
   re = fma(d.re, s.re, round(s.im * d.im)), im = fma(d.re, s.im, -round(s.re * d.im)). */
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

/* Conj: a packed spectrum of len values' transform, even or odd len, to all len terms: X[len - k] = conj X[k]. The first term
   and, for even len, the middle one get zero imaginary parts; ConjCcs copies what its source has there. In place the packed
   values stand at the begin of srcDst, which has room for len pairs. src may be dst.
   Numerics: no rounding; 16sc negates with saturation. Checks: pointers, len. */
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

/* ---- FIR filters --------------------------------------------------------------------------------------------- */

typedef struct ZorFIRState ZorFIRState;

/* State of a FIR filter y[i] = sum over k of taps[k] * x[i-k], k from 0 to tapsLen - 1.
   GetStateSize writes the bytes of the state. Init builds it inside buffer (any alignment; at most size bytes are used)
   and writes its address to state; InitAlloc allocates it; Free releases what InitAlloc allocated.
   dly holds the last tapsLen inputs, the newest first; null: zeros. GetDlyLine and SetDlyLine have the same order.
   SetTaps replaces the taps, their number stays.
   Checks: pointers; then tapsLen below 1, zorStatusBadTapsLength, or the state's tag. */
ZorStatus zorsFIRGetStateSize_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly);
ZorStatus zorsFIRFree_32f(ZorFIRState* state);
ZorStatus zorsFIRGetTaps_32f(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRSetTaps_32f(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRGetDlyLine_32f(const ZorFIRState* state, Zor32f* dly);
ZorStatus zorsFIRSetDlyLine_32f(ZorFIRState* state, const Zor32f* dly);

/* FIR filtering with a state. Blocks from 512 samples on go through the FFT where the filter has 64 taps or more, in place
   from 4,736 samples on. A call continues where the last one ended, whatever the lengths of the calls; never allocates.
   Checks: pointers, len, the state's tag. */
ZorStatus zorsFIR_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIROne_32f(Zor32f val, Zor32f* dst, ZorFIRState* state);

/* FIR filtering with the caller's delay line dly of 2 * tapsLen values and *dlyIndex, 0 at first: a doubled ring, each
   input at dly[*dlyIndex] and dly[*dlyIndex + tapsLen]. Products in binary32; FIR_Direct_32f sums them in binary64.
   Checks: src, dst, len, taps, tapsLen, dly, dlyIndex; of FIROne dst, taps, tapsLen, dly, dlyIndex. */
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32f(Zor32f val, Zor32f* dst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32f_I(Zor32f* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);

#ifdef __cplusplus
}
#endif

#endif
