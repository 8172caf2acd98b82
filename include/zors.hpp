/** @file
 * zorsl9 for C++20: objects that own what the C interface builds, operations on vectors, errors as exceptions. Header
 * only; link with the library as from C. Nothing here costs more than the call of the C function behind it.
 *
 * Conventions
 *   Vectors   any contiguous range: std::vector, std::array, std::span. All vectors of an operation have one length,
 *             unless it says otherwise. A source may be the destination itself.
 *   Elements  those of zors/types.h; complex floats are std::complex<float> and std::complex<double>.
 *   Errors    what can fail throws zors::Error, before anything is written; with std::nothrow as first argument it
 *             returns the status instead. Warnings (a positive status: the output is complete) are returned by both.
 *   Objects   move-only; built from a structure of named arguments, Fir<float> fir({.taps = taps}). A default-built
 *             object is empty, build(std::nothrow, {...}) fills it and returns a status. Calls of an empty object fail.
 *   Names     what an operation computes stands with the C functions that it lists: zors/<section>.h.
 *
 * Contents
 *   zors/hpp/vectors.hpp
 *     add, subtract, subtractFrom, multiply, divide, addProduct, greaterOf, lesserOf
 *     abs, square, sqrt, exp, ln, arctan
 *     magnitude, power, phase, toPolar, fromPolar, real, imag, toParts, fromParts, conj
 *     zero, set, copy, flip, atLeast, atMost, replaceBelow, replaceAbove, median
 *     bartlett, hann, hamming, blackman, blackmanStandard, kaiser
 *     toALaw, fromALaw, toMuLaw, fromMuLaw, convert
 *     sortAscending, sortDescending, sortIndexAscending, sortIndexDescending
 *     sum, mean, standardDeviation, meanAndDeviation, max, min, minMax, maxIndex, minIndex
 *     peak, normL1, normL2, peakDifference, normL2Difference, dotProduct
 *     autoCorrelation, autoCorrelationBiased, autoCorrelationUnbiased, crossCorrelation, convolution
 *   zors/hpp/transforms.hpp
 *     Fft, Dft, DctForward, DctInverse, Hilbert, multiplyPack, multiplyPerm
 *   zors/hpp/filters.hpp
 *     Fir, FirMultiRate, Lms, SparseFir, Iir, IirCascade
 *     designFirLowpass, -Highpass, -Bandpass, -Bandstop, designIirLowpass, -Highpass
 *   zors/hpp/resampling.hpp
 *     Resampler
 *   zors/hpp/generators.hpp
 *     Tone, Triangle, RandomUniform, RandomGauss, ramp, chirp
 *   zors/hpp/detection.hpp
 *     goertzel, FmDemodulator
 *   zors/hpp/wavelets.hpp
 *     haarForward, haarInverse, WaveletForward, WaveletInverse
 *   What is not here is called as in C; get() of Fft, Dft, Fir, FirMultiRate, Iir, IirCascade is what C functions take.
 */
#ifndef ZORS_HPP
#define ZORS_HPP

#include "zors/hpp/core.hpp"

#include "zors/hpp/detection.hpp"
#include "zors/hpp/filters.hpp"
#include "zors/hpp/generators.hpp"
#include "zors/hpp/resampling.hpp"
#include "zors/hpp/transforms.hpp"
#include "zors/hpp/vectors.hpp"
#include "zors/hpp/wavelets.hpp"

#endif
