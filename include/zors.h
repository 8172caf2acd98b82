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
 *   NaN          a result that is NaN has the payload of one of its operands, or the default one: which, is not stated.
 *   Threads      every function is re-entrant on separate data. A specification of a transform may be shared by threads
 *                that give work buffers of their own; a filter's or generator's state serves one caller at a time.
 *   Environment  the caller's floating-point control word holds, unless a family says that it sets a direction for the
 *                call; then the word is as before on return. Sticky flags may be set.
 */
/* clang-format off */
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

typedef struct {
  Zor8s re, im;
} Zor8sc;
typedef struct {
  Zor16s re, im;
} Zor16sc;
typedef struct {
  Zor32s re, im;
} Zor32sc;
typedef struct {
  Zor64s re, im;
} Zor64sc;
typedef struct {
  Zor32f re, im;
} Zor32fc;
typedef struct {
  Zor64f re, im;
} Zor64fc;

/* Further forms, addressed through Zor8u pointers: 24u, 24s three bytes an element, least significant first, no gaps;
   1u a bit string, a pointer and a bit offset. */

typedef int32_t ZorStatus;
enum {
  zorStatusOk = 0,                       /* success */
  zorStatusBadArgument = -5,             /* a selector is out of range */
  zorStatusBadSize = -6,                 /* a length or count is below 1 */
  zorStatusBadModeOption = -7,           /* ZeroCrossing: unknown mode */
  zorStatusNullPointer = -8,             /* a required pointer is null */
  zorStatusNoMemory = -9,                /* memory is exhausted */
  zorStatusDivideByZero = -10,           /* the constant divisor is zero */
  zorStatusBadCauchyConstant = -11,      /* Cauchy: the constant is out of range */
  zorStatusBadDataType = -12,            /* unsupported element type code */
  zorStatusNegativeTapShift = -13,       /* 16-bit IIR: the shift count among the taps is negative */
  zorStatusBadOrder = -15,               /* the FFT order is out of range */
  zorStatusBadFlag = -16,                /* the normalisation flag is not one of the allowed */
  zorStatusBadContext = -17,             /* the state or specification is not of the kind expected */
  zorStatusThresholdLevelsCrossed = -18, /* the lower level is above the upper one */
  zorStatusNegativeThresholdLevel = -19, /* the level is negative */
  zorStatusBadDelayIndex = -24,          /* the delay line index is out of range */
  zorStatusBadFilterOrder = -25,         /* the filter order is out of range */
  zorStatusBadTapsLength = -26,          /* the tap count is below 1 */
  zorStatusBadRelativeFrequency = -27,   /* Goertzel: the relative frequency is out of range */
  zorStatusBadMultiRatePhase = -28,      /* a phase is outside 0 to factor - 1 */
  zorStatusBadMultiRateFactor = -29,     /* a rate factor is below 1 */
  zorStatusBadSampleFactor = -30,        /* SampleUp, SampleDown: the factor is below 1 */
  zorStatusBadPhase = -31,               /* SampleUp, SampleDown: the phase is out of range */
  zorStatusBadShift = -32,               /* the shift count is negative */
  zorStatusBadMaskSize = -33,            /* the window is not shorter than the vector */
  zorStatusBadWaveletFilter = -35,       /* a wavelet filter length or offset is out of range */
  zorStatusBadMagnitude = -38,           /* VectorJaehne: the magnitude is negative */
  zorStatusBadAlpha = -39,               /* WinKaiser: alpha is out of range */
  zorStatusBadTriangleAsym = -40,        /* the asymmetry is outside [-pi, pi) */
  zorStatusBadTrianglePhase = -41,       /* the phase is outside [0, 2 pi) */
  zorStatusBadTriangleFrequency = -42,   /* the relative frequency is outside [0, 0.5) */
  zorStatusBadTriangleMagnitude = -43,   /* the magnitude is not positive */
  zorStatusBadTonePhase = -44,           /* the phase is outside [0, 2 pi) */
  zorStatusBadToneFrequency = -45,       /* the relative frequency is outside [0, 0.5) */
  zorStatusBadToneMagnitude = -46,       /* the magnitude is not positive */
  zorStatusBadChannelCountScaled = -47,  /* IIR64f_32s_P: the channel count is below 1 */
  zorStatusBadChannelCountFloat = -53,   /* IIR_32f_P: the channel count is below 1 */
  zorStatusBadSparsePositions = -194,    /* the tap positions are negative or do not increase */
  zorStatusBadIirGenOrder = -206,        /* IIRGen: the order is outside 1 to 12 */
  zorStatusBadIirGenFrequency = -208,    /* IIRGen: the cut-off is outside (0, 0.5) */
  zorStatusBadIirGenRipple = -209,       /* IIRGen: the ripple is outside (0, 29] */
  zorStatusBadRoundMode = -213,          /* the rounding mode is not accepted */
  zorStatusBadAlgorithmType = -228,      /* the algorithm type is not accepted */
  zorWarningSqrtOfNegative = 3,          /* an argument of a square root is negative */
  zorWarningInverseOfZero = 4,           /* a zero was inverted */
  zorStatusEvenMedianMaskSize = 5,       /* an even mask was reduced by one */
  zorWarningDivideByZero = 6,            /* a divisor is zero */
  zorWarningLogOfZero = 7,               /* an argument of a logarithm is zero */
  zorWarningLogOfNegative = 8,           /* an argument of a logarithm is negative */
  zorWarningNotANumber = 9,              /* the input holds a NaN */
  zorWarningBitWidthClamped = 27,        /* a bit width outside 0 to 32 was clamped */
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

/* Add: dst[i] = src1[i] + src2[i]; in place srcDst[i] += src[i].
   Integers: the exact sum, scaled (scaleFactor 0 where there is none) and saturated; 8u16u exact; 16s32f exact, then
   converted in the current rounding direction. Exception: 64s at scale factors of 2 to 63, with operands that are not
   both positive and a sum that is not negative, takes ties to 0; from 64 on all results are 0.
   Floats: one addition a component in the current rounding direction.
   Complex members (but Mul's) test len before the pointers. */
ZorStatus zorsAdd_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_64s_Sfs(const Zor64s* src1, const Zor64s* src2, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAdd_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsAdd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAdd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsAdd_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsAdd_16s32s_I(const Zor16s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsAdd_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAdd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsAdd_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsAdd_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsAdd_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAdd_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAdd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsAdd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsAdd_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAdd_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);

/* Sub: dst[i] = src2[i] - src1[i], the second operand less the first; in place srcDst[i] -= src[i]. Otherwise as Add; a
   negative difference of unsigned elements gives 0. */
ZorStatus zorsSub_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSub_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsSub_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsSub_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsSub_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsSub_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsSub_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSub_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSub_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsSub_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsSub_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSub_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);

/* Mul: dst[i] = src1[i] * src2[i]; in place srcDst[i] *= src[i].
   Integers: the exact product, complex ones part for part, scaled and saturated; 8u16u exact; 16s32f exact, then
   converted in the current rounding direction. Exceptions: 32s goes through binary64, whatever the caller's rounding
   direction: (a * 2^-scaleFactor) * b rounded to 53 bits, limited to 32 bits, rounded to nearest even. Low_32s gives
   the low 32 bits of the product shifted by scaleFactor, cut, not rounded or saturated, for scale factors of -31 to 62;
   above, 0; below, the bound of the product's sign.
   Floats: one multiplication a component in the current rounding direction. Two complex operands, with a = src1, b =
   src2 (src, srcDst in place): re = fma(b.re, a.re, -round(b.im * a.im)), im = fma(b.re, a.im, round(b.im * a.re)). */
ZorStatus zorsMul_Low_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u16s_Sfs(const Zor16u* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32sc_ISfs(const Zor32sc* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s32sc_ISfs(const Zor32s* src, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMul_16s(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len);
ZorStatus zorsMul_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMul_8u16u(const Zor8u* src1, const Zor8u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMul_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMul_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMul_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMul_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsMul_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsMul_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsMul_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMul_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMul_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsMul_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);
ZorStatus zorsMul_32f32fc_I(const Zor32f* src, Zor32fc* srcDst, Zor32s len);

/* AddC: dst[i] = src[i] + val; in place srcDst[i] += val. Numerics as Add. Exception: 8u at a scale factor of 9 gives 0.
   64s and 64u: the exact sum divided by 2^scaleFactor, rounded by rnd (other values than 0 and 1 as zorRoundHalfAway)
   and saturated; only a length of 0 is zorStatusBadSize. */
ZorStatus zorsAddC_64s_Sfs(const Zor64s* src, Zor64s val, Zor64s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsAddC_64u_Sfs(const Zor64u* src, Zor64u val, Zor64u* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsAddC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsAddC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsAddC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsAddC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsAddC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsAddC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAddC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAddC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);

/* SubC: dst[i] = src[i] - val, SubCRev: dst[i] = val - src[i]; in place likewise. Numerics as Sub. */
ZorStatus zorsSubC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsSubC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsSubC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsSubC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsSubC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsSubC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSubC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSubC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSubC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);
ZorStatus zorsSubCRev_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSubCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsSubCRev_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsSubCRev_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsSubCRev_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsSubCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsSubCRev_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsSubCRev_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSubCRev_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);

/* MulC: dst[i] = src[i] * val; in place srcDst[i] *= val. Numerics as Mul, with a = src and b = val for complex floats.
   64s: the exact product of 64-bit integers, scaled and saturated. 64f64s: the exact product with a binary64 number,
   scaled and saturated; an infinite val gives the bound of the product's sign, and 0 for 0; a NaN val counts as the
   number of exponent 1024 that its sign and fraction would make. Only a length of 0 is zorStatusBadSize in these two.
   32f16s: the factor val * 2^-scaleFactor rounded to binary32, one product, rounded to nearest even and saturated as by
   Convert_32f16s. Low_32f16s: the product rounded in the current direction and saturated; beyond 32 bits, and for NaN,
   -32768. */
ZorStatus zorsMulC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor);
ZorStatus zorsMulC_64f64s_ISfs(Zor64f val, Zor64s* srcDst, Zor32u len, Zor32s scaleFactor);
ZorStatus zorsMulC_32f16s_Sfs(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_Low_32f16s(const Zor32f* src, Zor32f val, Zor16s* dst, Zor32s len);
ZorStatus zorsMulC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32s_Sfs(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32sc_Sfs(const Zor32sc* src, Zor32sc val, Zor32sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32s_ISfs(Zor32s val, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_32sc_ISfs(Zor32sc val, Zor32sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMulC_16s_I(Zor16s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMulC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsMulC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsMulC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsMulC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsMulC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMulC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMulC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsMulC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);

/* AddProduct: srcDst[i] += src1[i] * src2[i]; AddProductC: srcDst[i] += src[i] * val.
   Integers: the exact product is scaled and saturated to the destination's type, then added with saturation. 16s at
   scale factors above 31 clears srcDst.
   Floats: one fused multiply-add an element. Complex, with a = src1, b = src2, c = srcDst: re = fma(b.re, a.re,
   -fma(b.im, a.im, -c.re)), im = fma(b.re, a.im, fma(b.im, a.re, c.im)). */
ZorStatus zorsAddProduct_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProduct_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProduct_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsAddProductC_32f(const Zor32f* src, Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* srcDst, Zor32s len);
ZorStatus zorsAddProduct_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsAddProduct_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* srcDst, Zor32s len);

/* Div: dst[i] = src2[i] / src1[i], the first operand is the divisor; in place srcDst[i] /= src[i]. A zero divisor gives
   zorWarningDivideByZero; the vector is complete.
   Numerics: integers are the exact quotient divided by 2^scaleFactor, to nearest, ties to even, saturated, in every
   rounding direction; complex ones n * conj(d) / |d|^2, both parts alike. By zero, at every scale: zero for a zero,
   else the bound of the dividend's sign. scaleFactor below -15 (8u, 16u), -29 (16s, 32s16s), -62 (32s), -32 (16sc): all
   but zero quotients take the bound of their sign. 32s16s: src1 is the 16-bit divisor. Floats are one division in the
   current rounding direction. 32fc, 64fc: the product n * conj(d) of zorsMul, each part divided by round(round(d.re *
   d.re) + round(d.im * d.im)). */
ZorStatus zorsDiv_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s16s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDiv_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsDiv_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsDiv_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len);
ZorStatus zorsDiv_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len);
ZorStatus zorsDiv_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsDiv_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsDiv_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsDiv_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len);

/* Div_Round: Div with a rounding mode: toward zero, to nearest even, or half away. Any other rnd is zorStatusBadRoundMode,
   tested last. scaleFactor below -30: all but zero quotients take the bound of their sign; above the range of Div the
   rule goes on. */
ZorStatus zorsDiv_Round_8u_Sfs(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len, ZorRoundMode rnd,
                               Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, ZorRoundMode rnd,
                                Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, ZorRoundMode rnd,
                                Zor32s scaleFactor);
ZorStatus zorsDiv_Round_8u_ISfs(const Zor8u* src, Zor8u* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsDiv_Round_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);

/* DivC: dst[i] = src[i] / val; in place srcDst[i] /= val. A zero val is zorStatusDivideByZero, tested after pointers and
   len; 64s warns instead and saturates by sign. For 32fc and 64fc the test is on |val|^2 in their own precision.
   Numerics: integers as Div. scaleFactor above 8 (8u) or 15 (16s, 16u): zeros; below -15 (8u), -30 (16s, 16u), -16
   (16sc): the bounds. Floats are multiplied by 1 / val, rounded once; 32fc and 64fc by conj(val) / |val|^2. The norm,
   the reciprocal and the products round in the current direction. */
ZorStatus zorsDivC_8u_Sfs(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_8u_ISfs(Zor8u val, Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsDivC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsDivC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len);
ZorStatus zorsDivC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len);
ZorStatus zorsDivC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len);
ZorStatus zorsDivC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);
ZorStatus zorsDivC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len);
ZorStatus zorsDivC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len);
ZorStatus zorsDivC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len);

/* DivCRev: dst[i] = val / src[i]; in place srcDst[i] = val / srcDst[i]. Zero elements warn as in Div.
   Numerics: 16u to nearest even, by zero 65535, or 0 for a zero val; 32f one division in the current direction. */
ZorStatus zorsDivCRev_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsDivCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len);
ZorStatus zorsDivCRev_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsDivCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len);

/* And, Or, Xor: dst[i] = src1[i] op src2[i], bit by bit; in place srcDst[i] op= src[i]. */
ZorStatus zorsAnd_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsAnd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsAnd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsAnd_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsAnd_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsAnd_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);
ZorStatus zorsOr_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsOr_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsOr_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsOr_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsOr_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsOr_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);
ZorStatus zorsXor_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsXor_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsXor_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len);
ZorStatus zorsXor_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsXor_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsXor_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len);

/* AndC, OrC, XorC: dst[i] = src[i] op val; in place srcDst[i] op= val.
   Checks: a val of 0 decides before them: AndC then tests src and ends in zorsZero, OrC and XorC end in zorsCopy. */
ZorStatus zorsAndC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsAndC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsAndC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsAndC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsAndC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsAndC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);
ZorStatus zorsOrC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsOrC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsOrC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsOrC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsOrC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsOrC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);
ZorStatus zorsXorC_8u(const Zor8u* src, Zor8u val, Zor8u* dst, Zor32s len);
ZorStatus zorsXorC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len);
ZorStatus zorsXorC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len);
ZorStatus zorsXorC_8u_I(Zor8u val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsXorC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsXorC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len);

/* Not: dst[i] = ~src[i]; in place srcDst[i] = ~srcDst[i]. */
ZorStatus zorsNot_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsNot_16u(const Zor16u* src, Zor16u* dst, Zor32s len);
ZorStatus zorsNot_32u(const Zor32u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsNot_8u_I(Zor8u* srcDst, Zor32s len);
ZorStatus zorsNot_16u_I(Zor16u* srcDst, Zor32s len);
ZorStatus zorsNot_32u_I(Zor32u* srcDst, Zor32s len);

/* LShiftC, RShiftC: dst[i] = src[i] shifted by val bits. To the left and, unsigned, to the right zeros move in, and a
   val of the element's width or more gives zeros; signed elements move their sign in, to -1 or 0.
   Checks: a val of 0 ends in zorsCopy, one that gives all zeros tests src and ends in zorsZero; else pointers, len,
   and a val below 0 is zorStatusBadShift. */
ZorStatus zorsLShiftC_8u(const Zor8u* src, Zor32s val, Zor8u* dst, Zor32s len);
ZorStatus zorsLShiftC_16s(const Zor16s* src, Zor32s val, Zor16s* dst, Zor32s len);
ZorStatus zorsLShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len);
ZorStatus zorsLShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len);
ZorStatus zorsLShiftC_8u_I(Zor32s val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsLShiftC_16s_I(Zor32s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsLShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsLShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len);
ZorStatus zorsRShiftC_8u(const Zor8u* src, Zor32s val, Zor8u* dst, Zor32s len);
ZorStatus zorsRShiftC_16s(const Zor16s* src, Zor32s val, Zor16s* dst, Zor32s len);
ZorStatus zorsRShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len);
ZorStatus zorsRShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len);
ZorStatus zorsRShiftC_8u_I(Zor32s val, Zor8u* srcDst, Zor32s len);
ZorStatus zorsRShiftC_16s_I(Zor32s val, Zor16s* srcDst, Zor32s len);
ZorStatus zorsRShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len);
ZorStatus zorsRShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len);

/* ---- Powers, roots, exponentials, logarithms ----------------------------------------------------------------- */

/* Abs: dst[i] = |src[i]|. Floats lose the sign bit; the lowest integer gives the highest. */
ZorStatus zorsAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsAbs_16s_I(Zor16s* srcDst, Zor32s len);
ZorStatus zorsAbs_32s_I(Zor32s* srcDst, Zor32s len);
ZorStatus zorsAbs_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsAbs_64f_I(Zor64f* srcDst, Zor32s len);

/* Sqr: dst[i] = src[i]^2.
   Numerics: floats one multiplication, complex floats as Mul of equal operands, in the current direction. Integers
   exact, scaled and saturated by the common rule. */
ZorStatus zorsSqr_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsSqr_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsSqr_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsSqr_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsSqr_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSqr_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsSqr_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSqr_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsSqr_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqr_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);

/* Sqrt of floats, correctly rounded. A negative element gives the default NaN and zorWarningSqrtOfNegative; a signalling
   NaN, too, gives the warning. Exceptions are masked during the call and the sticky flags are as before on return.
   Complex: the principal root, real part at or above 0, imaginary part with the sign of the element's. With a and b
   half the parts, the greater part is r = sqrt(|a| + sqrt(fma(a, a, b^2))), the other |b| / r; the squares may
   overflow. No warning. */
ZorStatus zorsSqrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsSqrt_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsSqrt_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsSqrt_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsSqrt_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsSqrt_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsSqrt_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsSqrt_64fc_I(Zor64fc* srcDst, Zor32s len);

/* Sqrt of integers: the root divided by 2^scaleFactor, exactly rounded to nearest, ties to even, saturated. A negative
   element gives 0 and zorWarningSqrtOfNegative, at every scale. 16sc: the principal root, its parts scaled apart,
   without a warning. */
ZorStatus zorsSqrt_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s16s_Sfs(const Zor64s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsSqrt_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);

/* Cubrt: dst[i] is the cube root of src[i], rounded to nearest in every direction but for rare cases near a tie; signed
   zeros, infinities and NaN stay. 32s16s: the root of the element as a binary32 number, times 2^-scaleFactor with the
   exponent taken modulo 128, to nearest even, saturated. */
ZorStatus zorsCubrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsCubrt_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);

/* Exp: dst[i] = e^src[i]. 32f64f computes in binary64. +infinity stays, -infinity gives 0, NaN stays NaN; overflow gives
   +infinity, small results are denormal or 0. Exceptions are masked during the call, as in all functions of floats
   here.
   Numerics: steps round in the current direction; the errors that numerics.md tells are those of rounding to nearest.
   In the other directions 32f, whose reduction rounds too, is only good to some 12 bits. */
ZorStatus zorsExp_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsExp_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsExp_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsExp_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsExp_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len);

/* Exp of integers: e^src[i] divided by 2^scaleFactor, to nearest, ties to even, saturated. 16s above scale 16 gives
   zeros. 32s and 64s take the binary64 exponential: beyond its range it saturates, or gives 0, at every scale. */
ZorStatus zorsExp_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_64s_Sfs(const Zor64s* src, Zor64s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsExp_64s_ISfs(Zor64s* srcDst, Zor32s len, Zor32s scaleFactor);

/* Ln: dst[i] = ln src[i]. A zero, -0 too, gives -infinity and zorWarningLogOfZero, a negative element NaN and
   zorWarningLogOfNegative; the first of them decides. NaN stays NaN without a warning. 64f32f computes in binary64. */
ZorStatus zorsLn_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsLn_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsLn_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsLn_64f_I(Zor64f* srcDst, Zor32s len);
ZorStatus zorsLn_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len);

/* Ln, 10Log10 of integers: ln src[i], 10 lg src[i]. From scale 0 on, rounded to an integer and then shifted right by
   scaleFactor modulo 32; below, computed in binary32, times 2^-scaleFactor, at most 2147483520, to nearest even,
   saturated. Zero and negative elements give the destination's lowest value; the first of them decides between
   zorWarningLogOfZero and zorWarningLogOfNegative. */
ZorStatus zorsLn_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsLn_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);
ZorStatus zors10Log10_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zors10Log10_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor);

/* SumLn: the sum of ln src[i], each as by Ln of the source's type (16s as 32f), added in binary64. The first element
   that is zero, negative or NaN decides: sum is then -infinity with zorWarningLogOfZero, NaN with
   zorWarningLogOfNegative, NaN with zorStatusOk. */
ZorStatus zorsSumLn_32f(const Zor32f* src, Zor32s len, Zor32f* sum);
ZorStatus zorsSumLn_64f(const Zor64f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSumLn_32f64f(const Zor32f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSumLn_16s32f(const Zor16s* src, Zor32s len, Zor32f* sum);

/* Arctan: dst[i] = atan src[i]; infinities give half of pi with their sign, -0 stays, NaN stays NaN. */
ZorStatus zorsArctan_32f(const Zor32f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsArctan_64f(const Zor64f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsArctan_32f_I(Zor32f* srcDst, Zor32s len);
ZorStatus zorsArctan_64f_I(Zor64f* srcDst, Zor32s len);

/* ---- Conversion ---------------------------------------------------------------------------------------------- */

/* Convert to wider types and between float types: dst[i] = src[i]. 24s and 24u elements have three bytes, least
   significant first. All exact but 32s32f, 64f32f and 64s64f, which round in the current direction, and 32s16s, which
   saturates. 64s64f takes an unsigned len: only 0 is zorStatusBadSize. */
ZorStatus zorsConvert_8s16s(const Zor8s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsConvert_16s32s(const Zor16s* src, Zor32s* dst, Zor32s len);
ZorStatus zorsConvert_8s32f(const Zor8s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_16u32f(const Zor16u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32s32f(const Zor32s* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len);
ZorStatus zorsConvert_32s64f(const Zor32s* src, Zor64f* dst, Zor32s len);
ZorStatus zorsConvert_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_64s64f(const Zor64s* src, Zor64f* dst, Zor32u len);
ZorStatus zorsConvert_32s16s(const Zor32s* src, Zor16s* dst, Zor32s len);
ZorStatus zorsConvert_24s32s(const Zor8u* src, Zor32s* dst, Zor32s len);
ZorStatus zorsConvert_24u32u(const Zor8u* src, Zor32u* dst, Zor32s len);
ZorStatus zorsConvert_24s32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_24u32f(const Zor8u* src, Zor32f* dst, Zor32s len);

/* Convert, integer to float, scaled: dst[i] = src[i] * 2^-scaleFactor.
   Numerics: the integer to the float type, then one product, both in the current direction. Scale factors are limited
   to -112..126 (16s32f), -96..126 (32s32f), -1008..1022 (16s64f), -992..1022 (32s64f). */
ZorStatus zorsConvert_16s32f_Sfs(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32s32f_Sfs(const Zor32s* src, Zor32f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_16s64f_Sfs(const Zor16s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32s64f_Sfs(const Zor32s* src, Zor64f* dst, Zor32s len, Zor32s scaleFactor);

/* Convert, float to integer: dst[i] = src[i] * 2^-scaleFactor, rounded by rnd and saturated.
   rnd: zorRoundTowardZero, zorRoundNearestEven, any other value nearest with ties away from zero; the 24-bit members
   round to nearest even. None depends on the current direction. Numerics: from 32f the factor is the binary32 with the
   bits 0x3F800000 - (scaleFactor << 23) in 32 bits, which wrap outside an exponent's range; 32f8s takes 2^-scaleFactor
   down to 0 and up to infinity; 24-bit members limit scaleFactor to -127..127, 64f16s and 64f32s to -1008..1022. NaN
   gives the lower bound, of 32f8u and 32f16u 0; of 32f32s the bound of its sign. Where the factor is infinite a zero
   counts as NaN, but not in 64f64s, which gives 0 for every element but NaN at scale factors where the factor is 0, and
   takes an unsigned len. */
ZorStatus zorsConvert_32f8s_Sfs(const Zor32f* src, Zor8s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f8u_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f16s_Sfs(const Zor32f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f16u_Sfs(const Zor32f* src, Zor16u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f32s_Sfs(const Zor32f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f16s_Sfs(const Zor64f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f32s_Sfs(const Zor64f* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_64f64s_Sfs(const Zor64f* src, Zor64s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32f24s_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32f24u_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);

/* Convert, integer to narrower integer, scaled and saturated. 16s8s and 64s32s round by rnd as above, the others by the
   scale rule. Scale factors are limited to -15..31 (32s16s), -30..31 (24-bit), -30..63 (64s32s). 16s8s takes an
   unsigned len. */
ZorStatus zorsConvert_16s8s_Sfs(const Zor16s* src, Zor8s* dst, Zor32u len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_64s32s_Sfs(const Zor64s* src, Zor32s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);
ZorStatus zorsConvert_32s24s_Sfs(const Zor32s* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsConvert_32u24u_Sfs(const Zor32u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor);

/* Convert, binary16. rnd: zorRoundNearestEven, or zorRoundTowardZero and every other value; zorRoundHalfAway is
   zorStatusBadRoundMode, after pointers and len. 16f16s: NaN gives 0. The same results with and without the processor's
   conversion instructions. */
ZorStatus zorsConvert_16f32f(const Zor16f* src, Zor32f* dst, Zor32s len);
ZorStatus zorsConvert_32f16f(const Zor32f* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd);
ZorStatus zorsConvert_16s16f(const Zor16s* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd);
ZorStatus zorsConvert_16f16s_Sfs(const Zor16f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor);

/* Real, Imag, CplxToReal: the parts of complex vectors; RealToCplx: the way back, where either source may be null and
   the part is zero then. Checks of RealToCplx: dst, both sources null, len. Plain moves. */
ZorStatus zorsReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor32s len);
ZorStatus zorsReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32s len);
ZorStatus zorsReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor32s len);
ZorStatus zorsImag_16sc(const Zor16sc* src, Zor16s* dstIm, Zor32s len);
ZorStatus zorsImag_32fc(const Zor32fc* src, Zor32f* dstIm, Zor32s len);
ZorStatus zorsImag_64fc(const Zor64fc* src, Zor64f* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor16s* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32f* dstIm, Zor32s len);
ZorStatus zorsCplxToReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor64f* dstIm, Zor32s len);
ZorStatus zorsRealToCplx_16s(const Zor16s* srcRe, const Zor16s* srcIm, Zor16sc* dst, Zor32s len);
ZorStatus zorsRealToCplx_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32fc* dst, Zor32s len);
ZorStatus zorsRealToCplx_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64fc* dst, Zor32s len);

/* Conj: dst[i] = conj(src[i]); ConjFlip: dst[i] = conj(src[len - 1 - i]), dst not src. Floats flip the sign bit of the
   imaginary part, of zeros and NaN too; 16-bit parts negate with saturation. */
ZorStatus zorsConj_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConj_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConj_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);
ZorStatus zorsConj_16sc_I(Zor16sc* srcDst, Zor32s len);
ZorStatus zorsConj_32fc_I(Zor32fc* srcDst, Zor32s len);
ZorStatus zorsConj_64fc_I(Zor64fc* srcDst, Zor32s len);
ZorStatus zorsConjFlip_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len);
ZorStatus zorsConjFlip_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len);
ZorStatus zorsConjFlip_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len);

/* Normalize: dst[i] = (src[i] - vSub) / vDiv.
   Numerics: floats one subtraction, then one product with the reciprocal, which is formed once. Integers: the
   difference is exact, goes to binary32, is multiplied by the binary32 reciprocal, then by 2^-scaleFactor with the
   exponent modulo 128, rounded to nearest even and saturated, all whatever the current direction. Checks: pointers,
   len, then zorStatusDivideByZero: a float vDiv below the least normal magnitude, an integer 0. */
ZorStatus zorsNormalize_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f vSub, Zor32f vDiv);
ZorStatus zorsNormalize_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32fc vSub, Zor32f vDiv);
ZorStatus zorsNormalize_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f vSub, Zor64f vDiv);
ZorStatus zorsNormalize_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64fc vSub, Zor64f vDiv);
ZorStatus zorsNormalize_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s vSub, Zor32s vDiv,
                                Zor32s scaleFactor);
ZorStatus zorsNormalize_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16sc vSub, Zor32s vDiv,
                                 Zor32s scaleFactor);

/* JoinScaled: nChannels float vectors of chanLen elements to interleaved samples, sample i of channel c at i *
   nChannels + c; SplitScaled: the way back. -1 and 1 are the lowest and the highest sample; x * 32767.5 - 0.5 (16s, in
   binary32), or x * 8388607.5 - 0.5 (24s, in binary64, three bytes a sample), each operation rounded, then to nearest
   even, all under nearest; x is limited to [-1, 1] first, NaN is -1. Back: x * (1 / 32767.5) + 0.5 / 32767.5 (16s, in
   binary32), the like in binary64 narrowed at the end (24s), each operation in the current direction.
   Checks: dst (src), nChannels and chanLen, src (dst), each channel's pointer. */
ZorStatus zorsJoinScaled_32f16s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor16s* dst);
ZorStatus zorsJoinScaled_32f24s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor8u* dst);
ZorStatus zorsSplitScaled_16s32f_D2L(const Zor16s* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen);
ZorStatus zorsSplitScaled_24s32f_D2L(const Zor8u* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen);

/* PackBits: the low widths[i] bits of each src[i], most significant first, without gaps, from bit dstBitOffset & 7 of
   dst on, counted from the 0x80 bit. All other bits stay. A width outside 0 to 32 is limited, and the result then is
   zorWarningBitWidthClamped. dstBitLen receives the number of bits written. Checks: pointers; then len below 1 or
   dstBitOffset below 0, zorStatusBadSize. */
ZorStatus zorsPackBits_32u8u(const Zor32u* src, const Zor32s* widths, Zor32s len, Zor8u* dst, Zor32s dstBitOffset,
                             Zor32s* dstBitLen);

/* ---- Complex vectors ------------------------------------------------------------------------------------------- */

/* Magnitude: the absolute values of complex elements, interleaved or as two planes; all forms of one type give the
   same bits.
   Numerics: floats sqrt(fma(re, re, round(im * im))); the squares may overflow to infinity. 16-bit sources: the
   exact sum of squares, unsigned, and its exactly rounded root; 16s32f, 16sc32f as binary32 in the current
   direction, _Sfs times 2^-scaleFactor to nearest, ties to even, saturated. 32sc_Sfs: likewise. */
ZorStatus zorsMagnitude_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsMagnitude_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsMagnitude_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsMagnitude_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMagnitude_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsMagnitude_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);

/* MagSquared: squared magnitudes. 32fc64f: fma(re, re, im * im) in binary64. 32sc32s_Sfs: exact, scaled and
   saturated. */
ZorStatus zorsMagSquared_32fc64f(const Zor32fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsMagSquared_32sc32s_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);

/* PowerSpectr: squared magnitudes, interleaved or as two planes. Floats fma(re, re, round(im * im)); 16-bit sources
   exact, to binary32 by one rounding, or scaled and saturated. */
ZorStatus zorsPowerSpectr_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPowerSpectr_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPowerSpectr_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len,
                                  Zor32s scaleFactor);

/* Phase: the angles of complex elements, in [-pi, pi] as far as the direction lets pi round, with the conventions of
   atan2 for zeros and infinities; all forms of one type give the same bits. 16s32f, 16sc32f: as 32f of the converted
   parts.
   Numerics: errors below 0.7 ulp in rounding to nearest. _Sfs: the binary32 angle, at scales below -28 and above 1 the
   binary64 angle, times 2^-scaleFactor, to nearest, ties to even, saturated, in every direction; the parts of 32sc are
   converted to that float type first. */
ZorStatus zorsPhase_32fc(const Zor32fc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_64fc(const Zor64fc* src, Zor64f* dst, Zor32s len);
ZorStatus zorsPhase_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dst, Zor32s len);
ZorStatus zorsPhase_16sc32f(const Zor16sc* src, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_16s32f(const Zor16s* srcRe, const Zor16s* srcIm, Zor32f* dst, Zor32s len);
ZorStatus zorsPhase_16sc_Sfs(const Zor16sc* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPhase_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len, Zor32s scaleFactor);
ZorStatus zorsPhase_32sc_Sfs(const Zor32sc* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor);

/* CartToPolar: magnitudes and phases in one pass, with the bits of Magnitude and Phase. 16sc_Sfs: Magnitude with
   magnScaleFactor and Phase with phaseScaleFactor. */
ZorStatus zorsCartToPolar_32fc(const Zor32fc* src, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_64fc(const Zor64fc* src, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstMagn, Zor32f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstMagn, Zor64f* dstPhase, Zor32s len);
ZorStatus zorsCartToPolar_16sc_Sfs(const Zor16sc* src, Zor16s* dstMagn, Zor16s* dstPhase, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor);

/* PolarToCart: re = magn * cos(phase), im = magn * sin(phase), for phases of any size.
   Numerics: sine and cosine, each with an error below 0.8 ulp in rounding to nearest, then one product. NaN phases give
   NaN parts. 16sc, 32sc take binary32 and round to nearest, ties to even, saturated, in every direction; NaN is the
   lowest integer. 16sc_Sfs: binary64, the phase is srcPhase[i] * 2^-phaseScaleFactor radians (below -1008 as -1008),
   the parts are divided by 2^magnScaleFactor. */
ZorStatus zorsPolarToCart_32fc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32fc* dst, Zor32s len);
ZorStatus zorsPolarToCart_64fc(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64fc* dst, Zor32s len);
ZorStatus zorsPolarToCart_32f(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32f* dstRe, Zor32f* dstIm, Zor32s len);
ZorStatus zorsPolarToCart_64f(const Zor64f* srcMagn, const Zor64f* srcPhase, Zor64f* dstRe, Zor64f* dstIm, Zor32s len);
ZorStatus zorsPolarToCart_16sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor16sc* dst, Zor32s len);
ZorStatus zorsPolarToCart_32sc(const Zor32f* srcMagn, const Zor32f* srcPhase, Zor32sc* dst, Zor32s len);
ZorStatus zorsPolarToCart_16sc_Sfs(const Zor16s* srcMagn, const Zor16s* srcPhase, Zor16sc* dst, Zor32s len,
                                   Zor32s magnScaleFactor, Zor32s phaseScaleFactor);

/* ---- Thresholds ------------------------------------------------------------------------------------------------ */

/* Threshold by selector: relOp zorCmpLess is LT below, zorCmpGreater is GT, any other zorStatusBadArgument, which is
   tested after pointers and len and before the level. In place: srcDst instead of src and dst, here and below. */
ZorStatus zorsThreshold_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, ZorCmpOp relOp);
ZorStatus zorsThreshold_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, ZorCmpOp relOp);
ZorStatus zorsThreshold_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, ZorCmpOp relOp);

/* LT: dst[i] = src[i] < level ? level : src[i]; GT: src[i] > level ? level : src[i]. As the processor's maximum and
   minimum with level as the second operand: a NaN element becomes level. */
ZorStatus zorsThreshold_LT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GT_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GT_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);

/* LTAbs: where |src[i]| < level, level with the sign of src[i]; GTAbs: where |src[i]| > level. Other elements, NaN
   too, are kept. Integer zeros are positive, float zeros have their sign. Checks: pointers, len, then a level
   below 0, zorStatusNegativeThresholdLevel. */
ZorStatus zorsThreshold_LTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_LTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GTAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GTAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GTAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GTAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GTAbs_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GTAbs_32s_I(Zor32s* srcDst, Zor32s len, Zor32s level);
ZorStatus zorsThreshold_GTAbs_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GTAbs_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);

/* LTVal: where src[i] < level, value; GTVal: where src[i] > level. A NaN is kept by LTVal and replaced by GTVal. */
ZorStatus zorsThreshold_LTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_LTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_LTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_LTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_LTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_LTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_GTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_GTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_GTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level, Zor64f value);
ZorStatus zorsThreshold_GTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s level, Zor16s value);
ZorStatus zorsThreshold_GTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level, Zor32f value);
ZorStatus zorsThreshold_GTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level, Zor64f value);

/* LTValGTVal: where src[i] < levelLT, valueLT; where src[i] > levelGT, valueGT. NaN is kept. Checks: pointers, len,
   then levelLT above levelGT, zorStatusThresholdLevelsCrossed. */
ZorStatus zorsThreshold_LTValGTVal_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor16s levelLT, Zor16s valueLT,
                                       Zor16s levelGT, Zor16s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s levelLT, Zor32s valueLT,
                                       Zor32s levelGT, Zor32s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f levelLT, Zor32f valueLT,
                                       Zor32f levelGT, Zor32f valueGT);
ZorStatus zorsThreshold_LTValGTVal_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f levelLT, Zor64f valueLT,
                                       Zor64f levelGT, Zor64f valueGT);
ZorStatus zorsThreshold_LTValGTVal_16s_I(Zor16s* srcDst, Zor32s len, Zor16s levelLT, Zor16s valueLT, Zor16s levelGT,
                                         Zor16s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32s_I(Zor32s* srcDst, Zor32s len, Zor32s levelLT, Zor32s valueLT, Zor32s levelGT,
                                         Zor32s valueGT);
ZorStatus zorsThreshold_LTValGTVal_32f_I(Zor32f* srcDst, Zor32s len, Zor32f levelLT, Zor32f valueLT, Zor32f levelGT,
                                         Zor32f valueGT);
ZorStatus zorsThreshold_LTValGTVal_64f_I(Zor64f* srcDst, Zor32s len, Zor64f levelLT, Zor64f valueLT, Zor64f levelGT,
                                         Zor64f valueGT);

/* LT, GT of complex elements: one whose magnitude is below (above) level is drawn to the magnitude level, its phase
   kept; by LT a zero becomes (level, 0). Level 0: LT copies, GT gives zeros. Checks: pointers, len, then a level
   below 0, zorStatusNegativeThresholdLevel.
   Numerics: m = round(round(re^2) + round(im^2)), of 16sc exact, against round(level^2); LT replaces unless m is
   at least that, so NaN too, GT where m is greater. An element whose m is 0 is a zero. 32fc: both parts times (0.5
   * level * r) * (3 - m * r * r), each operation rounded, with the processor's estimate r of 1 / sqrt(m); of four
   elements from element 0 on, if one is replaced, the kept ones are multiplied by the factor that level^2 gives,
   and may change in the last bit. 64fc: times sqrt(level^2 / m). 16sc: that factor in binary64 times each part's
   magnitude, plus 0.99999999999 (LT) or 1.25e-11 (GT), truncated: so the magnitude stays at or above (below)
   level. */
ZorStatus zorsThreshold_LT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_LT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_GT_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level);
ZorStatus zorsThreshold_GT_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_GT_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);

/* LTVal, GTVal of complex elements: one whose magnitude is below (above) level becomes value. Squares as above; a NaN
   is kept by LTVal and replaced by GTVal. Checks: pointers, len, then a level below 0,
   zorStatusNegativeThresholdLevel. */
ZorStatus zorsThreshold_LTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_LTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_LTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_LTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_LTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_LTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_GTVal_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_GTVal_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_GTVal_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level, Zor64fc value);
ZorStatus zorsThreshold_GTVal_16sc_I(Zor16sc* srcDst, Zor32s len, Zor16s level, Zor16sc value);
ZorStatus zorsThreshold_GTVal_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level, Zor32fc value);
ZorStatus zorsThreshold_GTVal_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level, Zor64fc value);

/* LTInv: 1 / src[i] after the magnitude has been raised to level at least, the sign or phase kept; a NaN counts as
   the level. With level 0 a zero gives infinity, of its sign if real, and the result is zorWarningInverseOfZero.
   Checks: pointers, len, then a level below 0, zorStatusNegativeThresholdLevel. All exceptions are masked for the
   call.
   Numerics: 32f, with m the raised magnitude: r * (2 - m * r), each operation rounded, with the processor's
   estimate r of 1 / m, 0 for the largest m; the reciprocal of a denormal is at most the largest finite number.
   32fc: conj(src[i]) times the same of m = max(|src[i]|^2, level^2), a zero gives (1 / level, 0). 64f, 64fc:
   divisions. */
ZorStatus zorsThreshold_LTInv_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level);
ZorStatus zorsThreshold_LTInv_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level);
ZorStatus zorsThreshold_LTInv_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level);

/* ---- Companding and small functions ---------------------------------------------------------------------------- */

/* ALawToLin, MuLawToLin: ITU-T G.711 codes to samples. 16s: the values of the standard at 16 bits, A-law times 8, mu-
   law times 4; 32f: those times 2^-15. */
ZorStatus zorsALawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len);
ZorStatus zorsALawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);
ZorStatus zorsMuLawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len);
ZorStatus zorsMuLawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len);

/* LinToALaw, LinToMuLaw: samples to codes. 32f: the 16-bit sample is 32768 * src[i], plus one half with its sign,
   limited to -32768 and 32767 and truncated; NaN is the lowest. The sign of a code is that of the 16-bit sample. */
ZorStatus zorsLinToALaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToALaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToMuLaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len);
ZorStatus zorsLinToMuLaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len);

/* From law to law by the conversion tables of G.711: the nearest magnitude of the same power. dst may be src. */
ZorStatus zorsALawToMuLaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len);
ZorStatus zorsMuLawToALaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len);

/* Preemphasize: srcDst[n] = x[n] - val * x[n - 1] with the elements x as they were, x[-1] = 0.
   Numerics: binary32, the product and the difference rounded; 16s all to nearest, then to the nearest integer,
   ties to even, saturated. */
ZorStatus zorsPreemphasize_32f(Zor32f* srcDst, Zor32s len, Zor32f val);
ZorStatus zorsPreemphasize_16s(Zor16s* srcDst, Zor32s len, Zor32f val);

/* Cauchy: srcDst[i] = ln(1 + (x / C)^2) / 2. CauchyD: srcDst[i] = x * (r + r - r * d * r) with d = x^2 + C^2, each
   operation rounded, and the processor's estimate r of 1 / d; d must be in the range of normal numbers. CauchyDD2:
   with r = 1 / fma(x, x, C^2): srcDst[i] = x * r, dst2[i] = -fma(x, x, -C^2) * r * r.
   Numerics of Cauchy: u = round(x * round(1 / C)), fma(u, u, 1), zorsLn_32f_I, times 0.5.
   Checks: pointers, len, then C not above 0, zorStatusBadCauchyConstant. */
ZorStatus zorsCauchy_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C);
ZorStatus zorsCauchyD_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C);
ZorStatus zorsCauchyDD2_32f_I(Zor32f* srcDst, Zor32f* dst2, Zor32s len, Zor32f C);

/* UpdateLinear, UpdatePower: one state over a vector, s = alpha * s + (1 - alpha) * x for each sample, where x is
   src[i] >> shift (shift limited to 0 to 15), or src[i]^2 >> shift (0 to 31). srcDst holds s before and after.
   alpha is an integer.
   Numerics: s stays in binary64 over the vector and is then limited to 32 bits and rounded to nearest, ties to
   even.
   hint 1: in binary32, limited to 2147483520; Linear so only for alpha from -6 to 8. */
ZorStatus zorsUpdateLinear_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                    ZorHintAlgorithm hint);
ZorStatus zorsUpdatePower_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                   ZorHintAlgorithm hint);

/* MaxOrder: how many significant bits the greatest magnitude has, 0 for a vector of zeros: of integers the position
   of its highest set bit plus 1, of floats its exponent plus 1, as if denormals were normalised, and one more than
   the largest finite number's for an infinity. A NaN element gives zorWarningNotANumber and an order without meaning.
   Checks: len, then pointers. */
ZorStatus zorsMaxOrder_16s(const Zor16s* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_32s(const Zor32s* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_32f(const Zor32f* src, Zor32s len, Zor32s* order);
ZorStatus zorsMaxOrder_64f(const Zor64f* src, Zor32s len, Zor32s* order);

/* ---- Statistics ---------------------------------------------------------------------------------------------- */

/* Max, Min: the greatest, the smallest element. MaxIndx, MinIndx: and the index of the first one; a null index asks for
   the extreme alone. MaxAbs, MinAbs: of the magnitudes, that of the lowest integer taken as the highest one. NaN: the
   running extreme starts at src[0] and is replaced by what compares greater (less): NaNs count only as src[0], which
   then is the result. Of zeros of both signs the first is found. No dependence on alignment. */
ZorStatus zorsMax_16s(const Zor16s* src, Zor32s len, Zor16s* max);
ZorStatus zorsMax_32s(const Zor32s* src, Zor32s len, Zor32s* max);
ZorStatus zorsMax_32f(const Zor32f* src, Zor32s len, Zor32f* max);
ZorStatus zorsMax_64f(const Zor64f* src, Zor32s len, Zor64f* max);
ZorStatus zorsMin_16s(const Zor16s* src, Zor32s len, Zor16s* min);
ZorStatus zorsMin_32s(const Zor32s* src, Zor32s len, Zor32s* min);
ZorStatus zorsMin_32f(const Zor32f* src, Zor32s len, Zor32f* min);
ZorStatus zorsMin_64f(const Zor64f* src, Zor32s len, Zor64f* min);
ZorStatus zorsMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* max, Zor32s* index);
ZorStatus zorsMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* max, Zor32s* index);
ZorStatus zorsMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* max, Zor32s* index);
ZorStatus zorsMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* max, Zor32s* index);
ZorStatus zorsMinIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* index);
ZorStatus zorsMinIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* index);
ZorStatus zorsMinIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* index);
ZorStatus zorsMinIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* index);
ZorStatus zorsMaxAbs_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs);
ZorStatus zorsMaxAbs_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs);
ZorStatus zorsMinAbs_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs);
ZorStatus zorsMinAbs_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs);
ZorStatus zorsMaxAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* maxAbs, Zor32s* index);
ZorStatus zorsMaxAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* maxAbs, Zor32s* index);
ZorStatus zorsMinAbsIndx_16s(const Zor16s* src, Zor32s len, Zor16s* minAbs, Zor32s* index);
ZorStatus zorsMinAbsIndx_32s(const Zor32s* src, Zor32s len, Zor32s* minAbs, Zor32s* index);

/* MinMax, MinMaxIndx: both extremes in one pass, as Min and Max find them. All result pointers are required. */
ZorStatus zorsMinMax_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor8u* max);
ZorStatus zorsMinMax_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor16u* max);
ZorStatus zorsMinMax_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor16s* max);
ZorStatus zorsMinMax_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32u* max);
ZorStatus zorsMinMax_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* max);
ZorStatus zorsMinMax_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32f* max);
ZorStatus zorsMinMax_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor64f* max);
ZorStatus zorsMinMaxIndx_8u(const Zor8u* src, Zor32s len, Zor8u* min, Zor32s* minIndex, Zor8u* max, Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_16u(const Zor16u* src, Zor32s len, Zor16u* min, Zor32s* minIndex, Zor16u* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_16s(const Zor16s* src, Zor32s len, Zor16s* min, Zor32s* minIndex, Zor16s* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32u(const Zor32u* src, Zor32s len, Zor32u* min, Zor32s* minIndex, Zor32u* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32s(const Zor32s* src, Zor32s len, Zor32s* min, Zor32s* minIndex, Zor32s* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_32f(const Zor32f* src, Zor32s len, Zor32f* min, Zor32s* minIndex, Zor32f* max,
                             Zor32s* maxIndex);
ZorStatus zorsMinMaxIndx_64f(const Zor64f* src, Zor32s len, Zor64f* min, Zor32s* minIndex, Zor64f* max,
                             Zor32s* maxIndex);

/* MaxEvery, MinEvery: dst[i] is the greater (smaller) of src1[i] and src2[i], in place of src[i] and srcDst[i]. Floats:
   the second operand where the two compare equal or one is NaN. */
ZorStatus zorsMaxEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsMaxEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMaxEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMaxEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMinEvery_8u(const Zor8u* src1, const Zor8u* src2, Zor8u* dst, Zor32s len);
ZorStatus zorsMinEvery_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len);
ZorStatus zorsMinEvery_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len);
ZorStatus zorsMinEvery_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len);
ZorStatus zorsMaxEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMaxEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);
ZorStatus zorsMinEvery_8u_I(const Zor8u* src, Zor8u* srcDst, Zor32s len);
ZorStatus zorsMinEvery_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len);
ZorStatus zorsMinEvery_16s_I(const Zor16s* src, Zor16s* srcDst, Zor32s len);
ZorStatus zorsMinEvery_32s_I(const Zor32s* src, Zor32s* srcDst, Zor32s len);
ZorStatus zorsMinEvery_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len);
ZorStatus zorsMinEvery_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len);

/* FindNearest: the entry of an ascending table nearest to a value, and its index; the lower of two entries equally
   near. Checks: pointers, len, tableLen below 1 (zorStatusBadSize). */
ZorStatus zorsFindNearestOne_16u(Zor16u val, Zor16u* nearest, Zor32s* index, const Zor16u* table, Zor32s tableLen);
ZorStatus zorsFindNearest_16u(const Zor16u* src, Zor16u* dst, Zor32s* dstIndex, Zor32s len, const Zor16u* table,
                              Zor32s tableLen);

/* CountInRange: how many elements are above lowerBound and below upperBound; neither bound counts. */
ZorStatus zorsCountInRange_32s(const Zor32s* src, Zor32s len, Zor32s* count, Zor32s lowerBound, Zor32s upperBound);

/* ZeroCrossing, over neighbouring pairs. mode 0: pairs whose product is negative; 1: pairs whose sign bits differ; 2:
   half the sum of the distances of their signs -1, 0, 1 (of integers rounded down). Checks: pointers; len of 0
   (zorStatusBadSize; a negative one has no pairs); another mode (zorStatusBadModeOption). */
ZorStatus zorsZeroCrossing_16s32f(const Zor16s* src, Zor32s len, Zor32f* result, Zor32s mode);
ZorStatus zorsZeroCrossing_32f(const Zor32f* src, Zor32s len, Zor32f* result, Zor32s mode);

/* Sum of floats; complex components apart. hint 1 selects the fast sums of 32f and 32fc, every other value the accurate
   ones. Results depend on src's alignment: elements before the first 32-byte boundary are added first, one by one, and
   seed sum 0. Numerics, 32f: accurate sums are binary64, one sequence below 32 elements (and from 57 on where src is
   not aligned to 4 bytes), else eight sums, joined as ((p0 + p4) + (p2 + p6)) + ((p1 + p5) + (p3 + p7)), the rest in
   four sums, then one by one; the prefix is taken from 57 elements on. Fast sums run in binary32 within blocks of
   8,192, 32 sums each, and binary64 across. 32fc: the same over interleaved components. 64f: 16 sums; one sequence
   where src is not aligned to 8 bytes. */
ZorStatus zorsSum_32f(const Zor32f* src, Zor32s len, Zor32f* sum, ZorHintAlgorithm hint);
ZorStatus zorsSum_32fc(const Zor32fc* src, Zor32s len, Zor32fc* sum, ZorHintAlgorithm hint);
ZorStatus zorsSum_64f(const Zor64f* src, Zor32s len, Zor64f* sum);
ZorStatus zorsSum_64fc(const Zor64fc* src, Zor32s len, Zor64fc* sum);

/* Sum of integers: exact, divided by 2^scaleFactor. 16s and 16sc: as a binary64 product, rounded in the current
   direction and saturated; the exponent is limited to what binary64 has (a scale of 0 from 1,023 on, of infinity from
   -1,024 down, with which a sum of 0 gives the lowest value). 32s: to nearest, ties to even. */
ZorStatus zorsSum_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16sc32sc_Sfs(const Zor16sc* src, Zor32s len, Zor32sc* sum, Zor32s scaleFactor);
ZorStatus zorsSum_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* sum, Zor32s scaleFactor);
ZorStatus zorsSum_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor);

/* Mean of floats: the sum divided by len in binary64. 32f divides the sum as narrowed to 32 bits; 32fc does not narrow
   before; 64fc multiplies by 1 / len. */
ZorStatus zorsMean_32f(const Zor32f* src, Zor32s len, Zor32f* mean, ZorHintAlgorithm hint);
ZorStatus zorsMean_32fc(const Zor32fc* src, Zor32s len, Zor32fc* mean, ZorHintAlgorithm hint);
ZorStatus zorsMean_64f(const Zor64f* src, Zor32s len, Zor64f* mean);
ZorStatus zorsMean_64fc(const Zor64fc* src, Zor32s len, Zor64fc* mean);

/* Mean of integers. 16s, 16sc: (sum / len) * 2^-scaleFactor in binary64, rounded in the current direction and
   saturated. 32s: the exact sum divided to nearest, ties to even; scaling down rounds a second time, halves away from
   zero; scaling up multiplies the sum where it fits 32 bits, else the quotient, and saturates. */
ZorStatus zorsMean_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor32s scaleFactor);
ZorStatus zorsMean_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* mean, Zor32s scaleFactor);
ZorStatus zorsMean_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* mean, Zor32s scaleFactor);

/* Norms of floats. Inf: the greatest magnitude; L1: the sum of the magnitudes; L2: the root of the sum of squares.
   Complex forms take the magnitude of each element. Numerics: 32f and 32fc run in binary32, the sums of 32fc64f are
   widened only when complete. Elements go to 8 sums (64-bit types: 4), element k to sum k mod 8, L2 of pairs its
   components to 16 (8); the sums are joined in halves, j with j + n / 2, at last even ones and odd ones. Inf of pairs
   roots the greatest re^2 + im^2. A NaN counts in Inf only as the last element of its lane k mod 8 (4). No dependence
   on alignment. */
ZorStatus zorsNorm_Inf_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_Inf_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_Inf_32fc32f(const Zor32fc* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_Inf_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L1_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L1_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_32f(const Zor32f* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L2_64f(const Zor64f* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm);
ZorStatus zorsNorm_L2_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm);

/* Norms of src1 - src2, the difference rounded to the element type; otherwise as the norms of one vector. */
ZorStatus zorsNormDiff_Inf_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_Inf_32fc32f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L1_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L1_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L2_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm);
ZorStatus zorsNormDiff_L2_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm);

/* Norms of 16-bit integers, exact; the result converted to a float, L2 after a root in binary64. */
ZorStatus zorsNorm_Inf_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L1_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);
ZorStatus zorsNorm_L2_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm);

/* Norms of 16-bit integers, exact, divided by 2^scaleFactor and saturated. Scaling down truncates; 64 and more give 0.
   L2_16s32s: the root in binary64, divided (multiplied) by 2^(scaleFactor mod 32) held in a signed 32-bit integer, so
   that 31 gives a negative result and 32 divides by 1; then truncated. L2Sqr: the sum of squares. */
ZorStatus zorsNorm_Inf_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L1_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L2_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L1_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor);
ZorStatus zorsNorm_L2Sqr_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor);

/* Norms of the exact differences src1 - src2, up to 65,535 each; otherwise as the norms of one vector. */
ZorStatus zorsNormDiff_Inf_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L1_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_L2_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm);
ZorStatus zorsNormDiff_Inf_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                      Zor32s scaleFactor);
ZorStatus zorsNormDiff_L1_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L2_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L1_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm,
                                     Zor32s scaleFactor);
ZorStatus zorsNormDiff_L2Sqr_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm,
                                        Zor32s scaleFactor);

/* Dot products of floats: the plain sum of src1[n] * src2[n]; no operand is conjugated. Products and sums round apart.
   Numerics: 32f binary32 throughout: one sequence below 16 elements (and from 57 on where src2 is not aligned to 4
   bytes), else 16 sums joined to 8, the rest in a group of 8, then one by one; from 57 on the elements before src2's
   32-byte boundary first, which seed sum 0. 64f: element k to sum k mod 8 where both sources are aligned to 16 bytes,
   else k mod 6. 32f64f: 8 sums. Real by complex: 16 sums of components in binary32, 8 in binary64. Complex: the sums of
   re1 * src2 and of im1 * src2 apart, in 4 lanes over 2 elements (binary64: 8 over 4). Forms with a wider result widen
   before they multiply. Only 32f and 64f depend on alignment. */
ZorStatus zorsDotProd_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* dotProd);
ZorStatus zorsDotProd_32f64f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor64f* dotProd);
ZorStatus zorsDotProd_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* dotProd);
ZorStatus zorsDotProd_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_32f32fc64fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_64f64fc(const Zor64f* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_32fc64fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd);
ZorStatus zorsDotProd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd);

/* Dot products of 16-bit integers: exact, stored as they are or converted to a float. */
ZorStatus zorsDotProd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* dotProd);
ZorStatus zorsDotProd_16s64s(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* dotProd);
ZorStatus zorsDotProd_16s16sc32fc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_16s16sc64sc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd);
ZorStatus zorsDotProd_16sc32fc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd);
ZorStatus zorsDotProd_16sc64sc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd);

/* Scaled: exact, divided by 2^scaleFactor (at most 31; multiplied by at most 2^15 for 16-bit results, 2^31 for 32-bit
   ones) to nearest, ties to even, saturated. */
ZorStatus zorsDotProd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor16s* dotProd, Zor32s scaleFactor);
ZorStatus zorsDotProd_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* dotProd,
                                 Zor32s scaleFactor);
ZorStatus zorsDotProd_16s16sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd,
                                  Zor32s scaleFactor);
ZorStatus zorsDotProd_16s16sc32sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd,
                                      Zor32s scaleFactor);
ZorStatus zorsDotProd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd,
                               Zor32s scaleFactor);
ZorStatus zorsDotProd_16sc32sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd,
                                   Zor32s scaleFactor);

/* Dot products with 32-bit integers: products and sums in binary64 (32s and 16s32s32s: 4 sums; else as complex floats),
   times 2^-scaleFactor, the factor limited to -31 and 93, rounded to nearest, ties to even, in every direction of the
   caller, saturated. */
ZorStatus zorsDotProd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd, Zor32s scaleFactor);
ZorStatus zorsDotProd_16s32s32s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd,
                                    Zor32s scaleFactor);
ZorStatus zorsDotProd_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                                  Zor32s scaleFactor);
ZorStatus zorsDotProd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                               Zor32s scaleFactor);

/* Deviation of a sample, and its mean: with n = len, S the sum and Q the sum of squares, the root of V / (n * (n - 1)),
   where V = Q * n - S * S is not below 0. A len below 2 is zorStatusBadSize. Numerics: binary64, element k to sum k mod
   8, nothing fused. StdDev_32f narrows V and n * (n - 1) to binary32 before the division and the root; its hint 1 sums
   blocks of 8,192 in binary32, 16 sums each. MeanStdDev_32f ignores its hint. No dependence on alignment. */
ZorStatus zorsStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* stdDev, ZorHintAlgorithm hint);
ZorStatus zorsStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* stdDev);
ZorStatus zorsMeanStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* mean, Zor32f* stdDev, ZorHintAlgorithm);
ZorStatus zorsMeanStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* mean, Zor64f* stdDev);

/* Of 16-bit integers: S and Q exact, the rest in binary64, times 2^-scaleFactor as in Sum, rounded in the current
   direction and saturated to 32 bits; the 16s forms saturate that to 16 bits. */
ZorStatus zorsStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* stdDev, Zor32s scaleFactor);
ZorStatus zorsStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* stdDev, Zor32s scaleFactor);
ZorStatus zorsMeanStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* mean, Zor32s* stdDev, Zor32s scaleFactor);
ZorStatus zorsMeanStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor16s* stdDev, Zor32s scaleFactor);

/* SumWindow: dst[i] = src[i] + ... + src[i + maskSize - 1]; src holds len + maskSize - 1 elements.
   Checks: pointers, len, maskSize below 1 (zorStatusBadMaskSize).
   Numerics: binary32. The first window is summed one by one, from 64 elements on in 16 sums, seeded by the elements
   before the first 32-byte boundary; each next one is the one before plus what enters less what leaves, so roundings
   accumulate once sums pass 2^24. */
ZorStatus zorsSumWindow_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len, Zor32s maskSize);
ZorStatus zorsSumWindow_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s maskSize);

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
   InitAlloc allocates and builds.
   Free      releases what InitAlloc allocated and invalidates the specification.
   GetBufSize writes the bytes of the work buffer, 64 for aligning it included; 0 where none is needed.
   Sizes are formed in 32 bits: at the largest orders of the integer kinds the work buffer's wraps below 0, GetBufSize
   then writes 0, and transforms want a buffer of the caller's.
   Numerics: twiddles come from one quarter-wave sine table, each entry evaluated directly. */
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

/* Complex transforms. Forward: X[k] = sum over n of x[n] exp(-2 pi i n k / N), inverse with the opposite sign; natural
   order in and out. buffer: a work buffer as GetBufSize tells, or null: the call then allocates one. src may be dst.
   Checks: spec null, its kind, data pointers, work buffer (zorStatusNoMemory).
   Numerics: every stage rounds as docs/numerics.md tells; results do not depend on alignment or on the place of dst. */
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

/* Real transforms. The spectrum X[k] = R[k] + i I[k] of N real values is conjugate-symmetric; its first half is stored as
     Pack   R[0]        R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2]      N values
     Perm   R[0] R[N/2] R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]              N values
     CCS    R[0] 0      R[1] I[1]  R[2] I[2]  ...  R[N/2-1] I[N/2-1]  R[N/2] 0    N + 2 values
   For odd N the R[N/2] term is absent, Perm is Pack and CCS has N + 1 values; N = 1: R[0], and R[0] 0 in CCS. Checks
   and buffer as for complex transforms. */
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

/* Integer transforms through floating point: values are converted, transformed as by the float kinds, and converted
   back: divided by 2^scaleFactor, rounded to nearest, ties to even, saturated. C_32sc and C_32s complex data, orders 0
   to 27, and R_32s real data, orders 0 to 28, in binary64; R_16s32s 16-bit real data and 32-bit spectra, orders 0 to
   29, in binary32. Specifications as those of the float kinds; every order needs a work buffer. Init tests orders only
   against 30 before the block has been cleared. */
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

/* Transforms of 16-bit integers: C_16sc and C_16s complex data, orders 0 to 28, R_16s real data, orders 0 to 29. With
   hint none or fast orders up to 3 run in fixed point: values widened to 32 bits, weights of 14 fraction bits, results
   divided by 2^scaleFactor with halves rounded up, and saturated; they may differ from the float path in the last bit.
   Else, and for all other orders and hints, through binary32 as the integer transforms above. One point is only scaled.
   Specifications and work buffers as above; Init needs initBuffer only for tables, from order 11 on. */
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

/* Products of packed spectra of len values, even or odd. Real terms by one product; pairs, with a = src1 and b = src2
   (src and srcDst in place): re = fma(a.re, b.re, -round(a.im * b.im)), im = fma(b.im, a.re, round(a.im * b.re)).
   MulPackConj: srcDst = src * conj(srcDst): the operand that is overwritten is the one conjugated; s = src, d = srcDst:
   re = fma(d.re, s.re, round(s.im * d.im)), im = fma(d.re, s.im, -round(s.re * d.im)).
   16s: exact products divided by 2^scaleFactor; real terms scaled down are cut, not rounded; pairs as Mul_16sc. */
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

/* Conj: a packed spectrum of len values' transform, even or odd len, to all len terms: X[len - k] = conj X[k]. The
   first term and, for even len, the middle one get zero imaginary parts; ConjCcs copies what its source has there. In
   place the packed values stand at the begin of srcDst, which has room for len pairs. src may be dst. Numerics: no
   rounding; 16sc negates with saturation. Checks: pointers, len. */
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
   Names: zorsFIR<taps>_<samples>; one type where they agree. 32f_16s, 32fc_16sc compute in binary32, 64f_* and 64fc_*
   in binary64; 16s, 32s_16s and 32sc_16sc in 16-bit taps and samples with 32-bit sums that wrap, the result times
   2^tapsFactor; 32s_16s32f and 32sc_16sc32fc are the same state built from float taps. 32s is a 64f_32s state with
   integer taps. GetStateSize writes the bytes of the state. Init builds it inside buffer (any alignment) and writes its
   address to state; InitAlloc allocates it; Free releases what InitAlloc allocated. dly holds the last tapsLen inputs,
   the newest first; null: zeros. GetDlyLine and SetDlyLine have the same order; integers from a float delay line are
   cut toward zero. SetTaps replaces the taps, their number stays. Integer taps are normalised to 16 bits: 16s taps with
   a -32768 among them are halved, 32s taps shifted right until the largest magnitude is at most 32,766, and tapsFactor
   grows by the shift; float taps are scaled so that the largest ends in 16,384 to 32,767. GetTaps returns what is
   stored, and the factor; as floats, the products of both. SetTaps32f_16s keeps a deviation: it writes the taps in the
   layout of 32f over the state's own, history included; build a new state instead. Checks: pointers; then tapsLen below
   1, zorStatusBadTapsLength, or the state's tag. InitAlloc: zorStatusNoMemory leaves *state alone; where only the FFT
   cannot be had, the filter is a direct one (32s: the failure is returned). */
ZorStatus zorsFIRGetStateSize_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_64f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_64fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_32s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32f_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32fc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64f_32s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize64fc_32sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32s_16s(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32sc_16sc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32s_16s32f(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRGetStateSize32sc_16sc32fc(Zor32s tapsLen, Zor32s* size);
ZorStatus zorsFIRInit_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor32fc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor64f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor64fc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit_32s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor32s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32f* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32fc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32sc* dly,
                               Zor8u* buffer);
ZorStatus zorsFIRInit_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor, const Zor16s* dly,
                          Zor8u* buffer);
ZorStatus zorsFIRInit32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                             const Zor16s* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                               const Zor16sc* dly, Zor8u* buffer);
ZorStatus zorsFIRInit32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly,
                                Zor8u* buffer);
ZorStatus zorsFIRInit32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly,
                                   Zor8u* buffer);
ZorStatus zorsFIRInitAlloc_32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor32f* dly);
ZorStatus zorsFIRInitAlloc_32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor32fc* dly);
ZorStatus zorsFIRInitAlloc_64f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor64f* dly);
ZorStatus zorsFIRInitAlloc_64fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor64fc* dly);
ZorStatus zorsFIRInitAlloc_32s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, const Zor32s* dly);
ZorStatus zorsFIRInitAlloc32f_16s(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32fc_16sc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc64f_16s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc64f_32f(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32f* dly);
ZorStatus zorsFIRInitAlloc64f_32s(ZorFIRState** state, const Zor64f* taps, Zor32s tapsLen, const Zor32s* dly);
ZorStatus zorsFIRInitAlloc64fc_16sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc64fc_32fc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32fc* dly);
ZorStatus zorsFIRInitAlloc64fc_32sc(ZorFIRState** state, const Zor64fc* taps, Zor32s tapsLen, const Zor32sc* dly);
ZorStatus zorsFIRInitAlloc_16s(ZorFIRState** state, const Zor16s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                               const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32s_16s(ZorFIRState** state, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                  const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32sc_16sc(ZorFIRState** state, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                    const Zor16sc* dly);
ZorStatus zorsFIRInitAlloc32s_16s32f(ZorFIRState** state, const Zor32f* taps, Zor32s tapsLen, const Zor16s* dly);
ZorStatus zorsFIRInitAlloc32sc_16sc32fc(ZorFIRState** state, const Zor32fc* taps, Zor32s tapsLen, const Zor16sc* dly);
ZorStatus zorsFIRFree_32f(ZorFIRState* state);
ZorStatus zorsFIRFree_32fc(ZorFIRState* state);
ZorStatus zorsFIRFree_64f(ZorFIRState* state);
ZorStatus zorsFIRFree_64fc(ZorFIRState* state);
ZorStatus zorsFIRFree_32s(ZorFIRState* state);
ZorStatus zorsFIRFree32f_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32fc_16sc(ZorFIRState* state);
ZorStatus zorsFIRFree64f_16s(ZorFIRState* state);
ZorStatus zorsFIRFree64f_32f(ZorFIRState* state);
ZorStatus zorsFIRFree64f_32s(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_16sc(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_32fc(ZorFIRState* state);
ZorStatus zorsFIRFree64fc_32sc(ZorFIRState* state);
ZorStatus zorsFIRFree_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32s_16s(ZorFIRState* state);
ZorStatus zorsFIRFree32sc_16sc(ZorFIRState* state);
ZorStatus zorsFIRGetTaps_32f(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps_32fc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRGetTaps_64f(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps_64fc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps_32s(const ZorFIRState* state, Zor32s* taps);
ZorStatus zorsFIRGetTaps32f_16s(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps32fc_16sc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRGetTaps64f_16s(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64f_32f(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64f_32s(const ZorFIRState* state, Zor64f* taps);
ZorStatus zorsFIRGetTaps64fc_16sc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps64fc_32fc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps64fc_32sc(const ZorFIRState* state, Zor64fc* taps);
ZorStatus zorsFIRGetTaps_16s(const ZorFIRState* state, Zor16s* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32s_16s(const ZorFIRState* state, Zor32s* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32sc_16sc(const ZorFIRState* state, Zor32sc* taps, Zor32s* tapsFactor);
ZorStatus zorsFIRGetTaps32s_16s32f(const ZorFIRState* state, Zor32f* taps);
ZorStatus zorsFIRGetTaps32sc_16sc32fc(const ZorFIRState* state, Zor32fc* taps);
ZorStatus zorsFIRSetTaps_32f(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_32fc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_64f(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_64fc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_32s(const Zor32s* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32f_16s(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32fc_16sc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_16s(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_32f(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64f_32s(const Zor64f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_16sc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_32fc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps64fc_32sc(const Zor64fc* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps_16s(const Zor16s* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32s_16s(const Zor32s* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32sc_16sc(const Zor32sc* taps, ZorFIRState* state, Zor32s tapsFactor);
ZorStatus zorsFIRSetTaps32s_16s32f(const Zor32f* taps, ZorFIRState* state);
ZorStatus zorsFIRSetTaps32sc_16sc32fc(const Zor32fc* taps, ZorFIRState* state);
ZorStatus zorsFIRGetDlyLine_32f(const ZorFIRState* state, Zor32f* dly);
ZorStatus zorsFIRGetDlyLine_32fc(const ZorFIRState* state, Zor32fc* dly);
ZorStatus zorsFIRGetDlyLine_64f(const ZorFIRState* state, Zor64f* dly);
ZorStatus zorsFIRGetDlyLine_64fc(const ZorFIRState* state, Zor64fc* dly);
ZorStatus zorsFIRGetDlyLine32f_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32fc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRGetDlyLine64f_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine64f_32f(const ZorFIRState* state, Zor32f* dly);
ZorStatus zorsFIRGetDlyLine64f_32s(const ZorFIRState* state, Zor32s* dly);
ZorStatus zorsFIRGetDlyLine64fc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRGetDlyLine64fc_32fc(const ZorFIRState* state, Zor32fc* dly);
ZorStatus zorsFIRGetDlyLine64fc_32sc(const ZorFIRState* state, Zor32sc* dly);
ZorStatus zorsFIRGetDlyLine_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32s_16s(const ZorFIRState* state, Zor16s* dly);
ZorStatus zorsFIRGetDlyLine32sc_16sc(const ZorFIRState* state, Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine_32f(ZorFIRState* state, const Zor32f* dly);
ZorStatus zorsFIRSetDlyLine_32fc(ZorFIRState* state, const Zor32fc* dly);
ZorStatus zorsFIRSetDlyLine_64f(ZorFIRState* state, const Zor64f* dly);
ZorStatus zorsFIRSetDlyLine_64fc(ZorFIRState* state, const Zor64fc* dly);
ZorStatus zorsFIRSetDlyLine32f_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32fc_16sc(ZorFIRState* state, const Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine64f_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine64f_32f(ZorFIRState* state, const Zor32f* dly);
ZorStatus zorsFIRSetDlyLine64f_32s(ZorFIRState* state, const Zor32s* dly);
ZorStatus zorsFIRSetDlyLine64fc_16sc(ZorFIRState* state, const Zor16sc* dly);
ZorStatus zorsFIRSetDlyLine64fc_32fc(ZorFIRState* state, const Zor32fc* dly);
ZorStatus zorsFIRSetDlyLine64fc_32sc(ZorFIRState* state, const Zor32sc* dly);
ZorStatus zorsFIRSetDlyLine_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32s_16s(ZorFIRState* state, const Zor16s* dly);
ZorStatus zorsFIRSetDlyLine32sc_16sc(ZorFIRState* state, const Zor16sc* dly);

/* FIR filtering with a state. A call continues where the last one ended, whatever the lengths of the calls, and never
   allocates. Long blocks of many taps go through the FFT: from 512 real or 256 complex samples on, where the filter has
   at least 64 taps (32fc: 16, 64fc: 32); in place and without conversion by chunks of 4,224 samples, of which those
   with that many left behind them do. Integer arithmetic is always direct. One: a single sample. Numerics:
   docs/numerics.md has the sums. Scaled results are rounded to nearest even and saturated; integer sums are shifted by
   tapsFactor - scaleFactor, limited to -31..31, to the right with ties to even, and saturated. Blocks round to nearest
   whatever the current direction. Checks: pointers, len, the state's tag (single-rate). */
ZorStatus zorsFIR_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32fc_I(Zor32fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64f(const Zor64f* src, Zor64f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64f_I(Zor64f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_64fc_I(Zor64fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_32s_ISfs(Zor32s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64f_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64f_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64f_32s_ISfs(Zor32s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64fc_32fc_I(Zor32fc* srcDst, Zor32s len, ZorFIRState* state);
ZorStatus zorsFIR64fc_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_32sc_ISfs(Zor32sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32s_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32s_16s_ISfs(Zor16s* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_16sc_ISfs(Zor16sc* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne_32f(Zor32f val, Zor32f* dst, ZorFIRState* state);
ZorStatus zorsFIROne_32fc(Zor32fc val, Zor32fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne_64f(Zor64f val, Zor64f* dst, ZorFIRState* state);
ZorStatus zorsFIROne_64fc(Zor64fc val, Zor64fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne_32s_Sfs(Zor32s val, Zor32s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32f_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_32f(Zor32f val, Zor32f* dst, ZorFIRState* state);
ZorStatus zorsFIROne64f_32s_Sfs(Zor32s val, Zor32s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_32fc(Zor32fc val, Zor32fc* dst, ZorFIRState* state);
ZorStatus zorsFIROne64fc_32sc_Sfs(Zor32sc val, Zor32sc* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_16s_Sfs(Zor16s val, Zor16s* dst, ZorFIRState* state, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_16sc_Sfs(Zor16sc val, Zor16sc* dst, ZorFIRState* state, Zor32s scaleFactor);

/* FIR filtering with the caller's delay line dly of 2 * tapsLen samples and *dlyIndex, 0 at first: a doubled ring, each
   input at dly[*dlyIndex] and dly[*dlyIndex + tapsLen]. One: a single sample. Numerics: products in the taps' type.
   FIR_Direct_32f sums them in binary64, FIROne_Direct_32f in binary32, the others in the taps' type. Results of float
   sums for integer samples are multiplied by 2^-scaleFactor, limited, and rounded with ties away from zero. 32s and
   32sc taps: 32-bit sums that wrap, shifted by tapsFactor - scaleFactor as above; 16s taps have 15 fractional bits, a
   tapsFactor of -15. FIR_Direct_32fc, _64f, _64fc run long filters (32, 32, 16 taps), and their _I forms all, through a
   state made for the call (zorStatusNoMemory); *dlyIndex stays then, and tapsLen samples from it on are the history.
   FIR_Direct_16s works through a state too: it reads the history from dly[*dlyIndex] on, newest first, leaves it so at
   dly[0] and sets *dlyIndex to 0; FIROne_Direct_16s works on the ring. The two do not mix. Checks: src, dst, len, taps,
   tapsLen, dly, dlyIndex; One: dst, taps, tapsLen, dly, dlyIndex; of 16s at last *dlyIndex outside 0 to tapsLen - 1,
   zorStatusBadDelayIndex. */
ZorStatus zorsFIR_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor16s* taps, Zor32s tapsLen,
                                 Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly,
                                  Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen,
                             Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly,
                               Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen,
                              Zor32fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64f(const Zor64f* src, Zor64f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                             Zor64f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64f_I(Zor64f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly,
                               Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                              Zor64fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR_Direct_64fc_I(Zor64fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIR32f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen,
                                    Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen,
                                      Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32s_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor32s* taps, Zor32s tapsLen,
                                    Zor32s tapsFactor, Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32s_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                     Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen,
                                      Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR32sc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor32sc* taps, Zor32s tapsLen,
                                       Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                    Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_16s_ISfs(Zor16s* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR64f_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly,
                                  Zor32s* dlyIndex);
ZorStatus zorsFIR64f_Direct_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, const Zor64f* taps, Zor32s tapsLen,
                                    Zor32s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64f_Direct_32s_ISfs(Zor32s* srcDst, Zor32s len, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                     Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                      Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_16sc_ISfs(Zor16sc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                  Zor32fc* dly, Zor32s* dlyIndex);
ZorStatus zorsFIR64fc_Direct_32fc_I(Zor32fc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                    Zor32s* dlyIndex);
ZorStatus zorsFIR64fc_Direct_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen,
                                      Zor32sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIR64fc_Direct_32sc_ISfs(Zor32sc* srcDst, Zor32s len, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly,
                                    Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_16s_ISfs(Zor16s* srcDst, const Zor16s* taps, Zor32s tapsLen, Zor16s* dly, Zor32s* dlyIndex,
                                     Zor32s scaleFactor);
ZorStatus zorsFIROne_Direct_32f(Zor32f val, Zor32f* dst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32f_I(Zor32f* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32fc(Zor32fc val, Zor32fc* dst, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                 Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_32fc_I(Zor32fc* srcDst, const Zor32fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64f(Zor64f val, Zor64f* dst, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly,
                                Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64f_I(Zor64f* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor64f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64fc(Zor64fc val, Zor64fc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                 Zor32s* dlyIndex);
ZorStatus zorsFIROne_Direct_64fc_I(Zor64fc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor64fc* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne32f_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32f_Direct_16s_ISfs(Zor16s* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor16s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32fc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor32fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                       Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32s_Direct_16s_ISfs(Zor16s* srcDst, const Zor32s* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                        Zor16s* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor32sc* taps, Zor32s tapsLen,
                                         Zor32s tapsFactor, Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne32sc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor32sc* taps, Zor32s tapsLen, Zor32s tapsFactor,
                                          Zor16sc* dly, Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_16s_Sfs(Zor16s val, Zor16s* dst, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_16s_ISfs(Zor16s* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor16s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_32f(Zor32f val, Zor32f* dst, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly,
                                   Zor32s* dlyIndex);
ZorStatus zorsFIROne64f_Direct_32f_I(Zor32f* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex);
ZorStatus zorsFIROne64f_Direct_32s_Sfs(Zor32s val, Zor32s* dst, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                       Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64f_Direct_32s_ISfs(Zor32s* srcDst, const Zor64f* taps, Zor32s tapsLen, Zor32s* dly,
                                        Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_16sc_Sfs(Zor16sc val, Zor16sc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_16sc_ISfs(Zor16sc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor16sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_32fc(Zor32fc val, Zor32fc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                     Zor32s* dlyIndex);
ZorStatus zorsFIROne64fc_Direct_32fc_I(Zor32fc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor32fc* dly,
                                       Zor32s* dlyIndex);
ZorStatus zorsFIROne64fc_Direct_32sc_Sfs(Zor32sc val, Zor32sc* dst, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                         Zor32s* dlyIndex, Zor32s scaleFactor);
ZorStatus zorsFIROne64fc_Direct_32sc_ISfs(Zor32sc* srcDst, const Zor64fc* taps, Zor32s tapsLen, Zor32sc* dly,
                                          Zor32s* dlyIndex, Zor32s scaleFactor);
#ifdef __cplusplus
}
#endif

#endif
