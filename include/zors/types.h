/** @file
 *  Element types, status codes, selectors, the version record. */
/* clang-format off */
#ifndef ZORS_TYPES_H
#define ZORS_TYPES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

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
  zorStatusBadWaveletFilter = -35,       /* a wavelet filter's offset is below -1 */
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

#ifdef __cplusplus
}
#endif

#endif
