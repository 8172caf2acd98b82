/* Names and texts of the status codes, for users' messages. Header only, C and C++. */
#ifndef ZORS_STATUS_H
#define ZORS_STATUS_H

#include "zors.h"

/* The name of a status as zors.h spells it, "unknown status" for any other value. */
static inline const char* zorsStatusName(ZorStatus status) {
  switch (status) {
    case zorStatusOk:
      return "zorStatusOk";
    case zorStatusBadArgument:
      return "zorStatusBadArgument";
    case zorStatusBadSize:
      return "zorStatusBadSize";
    case zorStatusBadModeOption:
      return "zorStatusBadModeOption";
    case zorStatusNullPointer:
      return "zorStatusNullPointer";
    case zorStatusNoMemory:
      return "zorStatusNoMemory";
    case zorStatusDivideByZero:
      return "zorStatusDivideByZero";
    case zorStatusBadCauchyConstant:
      return "zorStatusBadCauchyConstant";
    case zorStatusBadDataType:
      return "zorStatusBadDataType";
    case zorStatusNegativeTapShift:
      return "zorStatusNegativeTapShift";
    case zorStatusBadOrder:
      return "zorStatusBadOrder";
    case zorStatusBadFlag:
      return "zorStatusBadFlag";
    case zorStatusBadContext:
      return "zorStatusBadContext";
    case zorStatusThresholdLevelsCrossed:
      return "zorStatusThresholdLevelsCrossed";
    case zorStatusNegativeThresholdLevel:
      return "zorStatusNegativeThresholdLevel";
    case zorStatusBadDelayIndex:
      return "zorStatusBadDelayIndex";
    case zorStatusBadFilterOrder:
      return "zorStatusBadFilterOrder";
    case zorStatusBadTapsLength:
      return "zorStatusBadTapsLength";
    case zorStatusBadRelativeFrequency:
      return "zorStatusBadRelativeFrequency";
    case zorStatusBadMultiRatePhase:
      return "zorStatusBadMultiRatePhase";
    case zorStatusBadMultiRateFactor:
      return "zorStatusBadMultiRateFactor";
    case zorStatusBadSampleFactor:
      return "zorStatusBadSampleFactor";
    case zorStatusBadPhase:
      return "zorStatusBadPhase";
    case zorStatusBadShift:
      return "zorStatusBadShift";
    case zorStatusBadMaskSize:
      return "zorStatusBadMaskSize";
    case zorStatusBadWaveletFilter:
      return "zorStatusBadWaveletFilter";
    case zorStatusBadMagnitude:
      return "zorStatusBadMagnitude";
    case zorStatusBadAlpha:
      return "zorStatusBadAlpha";
    case zorStatusBadTriangleAsym:
      return "zorStatusBadTriangleAsym";
    case zorStatusBadTrianglePhase:
      return "zorStatusBadTrianglePhase";
    case zorStatusBadTriangleFrequency:
      return "zorStatusBadTriangleFrequency";
    case zorStatusBadTriangleMagnitude:
      return "zorStatusBadTriangleMagnitude";
    case zorStatusBadTonePhase:
      return "zorStatusBadTonePhase";
    case zorStatusBadToneFrequency:
      return "zorStatusBadToneFrequency";
    case zorStatusBadToneMagnitude:
      return "zorStatusBadToneMagnitude";
    case zorStatusBadChannelCountScaled:
      return "zorStatusBadChannelCountScaled";
    case zorStatusBadChannelCountFloat:
      return "zorStatusBadChannelCountFloat";
    case zorStatusBadSparsePositions:
      return "zorStatusBadSparsePositions";
    case zorStatusBadIirGenOrder:
      return "zorStatusBadIirGenOrder";
    case zorStatusBadIirGenFrequency:
      return "zorStatusBadIirGenFrequency";
    case zorStatusBadIirGenRipple:
      return "zorStatusBadIirGenRipple";
    case zorStatusBadRoundMode:
      return "zorStatusBadRoundMode";
    case zorStatusBadAlgorithmType:
      return "zorStatusBadAlgorithmType";
    case zorWarningSqrtOfNegative:
      return "zorWarningSqrtOfNegative";
    case zorWarningInverseOfZero:
      return "zorWarningInverseOfZero";
    case zorStatusEvenMedianMaskSize:
      return "zorStatusEvenMedianMaskSize";
    case zorWarningDivideByZero:
      return "zorWarningDivideByZero";
    case zorWarningLogOfZero:
      return "zorWarningLogOfZero";
    case zorWarningLogOfNegative:
      return "zorWarningLogOfNegative";
    case zorWarningNotANumber:
      return "zorWarningNotANumber";
    case zorWarningBitWidthClamped:
      return "zorWarningBitWidthClamped";
    default:
      return "unknown status";
  }
}

/* What a status means, in a few words. */
static inline const char* zorsStatusText(ZorStatus status) {
  switch (status) {
    case zorStatusOk:
      return "success";
    case zorStatusBadArgument:
      return "a selector is out of range";
    case zorStatusBadSize:
      return "a length or count is below 1";
    case zorStatusBadModeOption:
      return "ZeroCrossing: unknown mode";
    case zorStatusNullPointer:
      return "a required pointer is null";
    case zorStatusNoMemory:
      return "memory is exhausted";
    case zorStatusDivideByZero:
      return "the constant divisor is zero";
    case zorStatusBadCauchyConstant:
      return "Cauchy: the constant is out of range";
    case zorStatusBadDataType:
      return "unsupported element type code";
    case zorStatusNegativeTapShift:
      return "16-bit IIR: the shift count among the taps is negative";
    case zorStatusBadOrder:
      return "the FFT order is out of range";
    case zorStatusBadFlag:
      return "the normalisation flag is not one of the allowed";
    case zorStatusBadContext:
      return "the state or specification is not of the kind expected";
    case zorStatusThresholdLevelsCrossed:
      return "the lower level is above the upper one";
    case zorStatusNegativeThresholdLevel:
      return "the level is negative";
    case zorStatusBadDelayIndex:
      return "the delay line index is out of range";
    case zorStatusBadFilterOrder:
      return "the filter order is out of range";
    case zorStatusBadTapsLength:
      return "the tap count is below 1";
    case zorStatusBadRelativeFrequency:
      return "Goertzel: the relative frequency is out of range";
    case zorStatusBadMultiRatePhase:
      return "a phase is outside 0 to factor - 1";
    case zorStatusBadMultiRateFactor:
      return "a rate factor is below 1";
    case zorStatusBadSampleFactor:
      return "SampleUp, SampleDown: the factor is below 1";
    case zorStatusBadPhase:
      return "SampleUp, SampleDown: the phase is out of range";
    case zorStatusBadShift:
      return "the shift count is negative";
    case zorStatusBadMaskSize:
      return "the window is not shorter than the vector";
    case zorStatusBadWaveletFilter:
      return "a wavelet filter's offset is below -1";
    case zorStatusBadMagnitude:
      return "VectorJaehne: the magnitude is negative";
    case zorStatusBadAlpha:
      return "WinKaiser: alpha is out of range";
    case zorStatusBadTriangleAsym:
      return "the asymmetry is outside [-pi, pi)";
    case zorStatusBadTrianglePhase:
      return "the phase is outside [0, 2 pi)";
    case zorStatusBadTriangleFrequency:
      return "the relative frequency is outside [0, 0.5)";
    case zorStatusBadTriangleMagnitude:
      return "the magnitude is not positive";
    case zorStatusBadTonePhase:
      return "the phase is outside [0, 2 pi)";
    case zorStatusBadToneFrequency:
      return "the relative frequency is outside [0, 0.5)";
    case zorStatusBadToneMagnitude:
      return "the magnitude is not positive";
    case zorStatusBadChannelCountScaled:
      return "IIR64f_32s_P: the channel count is below 1";
    case zorStatusBadChannelCountFloat:
      return "IIR_32f_P: the channel count is below 1";
    case zorStatusBadSparsePositions:
      return "the tap positions are negative or do not increase";
    case zorStatusBadIirGenOrder:
      return "IIRGen: the order is outside 1 to 12";
    case zorStatusBadIirGenFrequency:
      return "IIRGen: the cut-off is outside (0, 0.5)";
    case zorStatusBadIirGenRipple:
      return "IIRGen: the ripple is outside (0, 29]";
    case zorStatusBadRoundMode:
      return "the rounding mode is not accepted";
    case zorStatusBadAlgorithmType:
      return "the algorithm type is not accepted";
    case zorWarningSqrtOfNegative:
      return "an argument of a square root is negative";
    case zorWarningInverseOfZero:
      return "a zero was inverted";
    case zorStatusEvenMedianMaskSize:
      return "an even mask was reduced by one";
    case zorWarningDivideByZero:
      return "a divisor is zero";
    case zorWarningLogOfZero:
      return "an argument of a logarithm is zero";
    case zorWarningLogOfNegative:
      return "an argument of a logarithm is negative";
    case zorWarningNotANumber:
      return "the input holds a NaN";
    case zorWarningBitWidthClamped:
      return "a bit width outside 0 to 32 was clamped";
    default:
      return "unknown status";
  }
}

#endif
