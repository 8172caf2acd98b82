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
