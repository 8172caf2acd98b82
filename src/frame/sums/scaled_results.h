// The last steps of the integer reductions: from an exact sum, or a binary64 value, to the stored integer.
#pragma once

#include <immintrin.h>

#include <algorithm>
#include <bit>
#include <limits>

#include "frame/power_of_two.h"
#include "zors/types.h"

namespace zors {

// Limited to the range of D and converted in the current direction. NaN gives the lowest value.
template <class D> inline D toInteger(Zor64f x) {
  constexpr Zor64f low = std::numeric_limits<D>::min(), high = std::numeric_limits<D>::max();
  x = x > high ? high : x;
  x = x >= low ? x : low;
  return static_cast<D>(_mm_cvtsd_si32(_mm_set_sd(x)));
}

template <class D> constexpr D saturated(Zor64s x) {
  return static_cast<D>(std::clamp<Zor64s>(x, std::numeric_limits<D>::min(), std::numeric_limits<D>::max()));
}

// sum / 2^scaleFactor to nearest, ties to even, saturated to D; the factor is limited to -mostUp and mostDown first.
template <class D> constexpr D scaledToNearest(Zor64s sum, Zor32s scaleFactor, int mostUp, int mostDown) {
  if (scaleFactor > 0) {
    const int shift = std::min(scaleFactor, mostDown);
    return saturated<D>((sum + ((Zor64s{1} << (shift - 1)) - 1) + (sum >> shift & 1)) >> shift);
  }
  const int shift = scaleFactor < -mostUp ? mostUp : -scaleFactor;
  constexpr Zor64s low = std::numeric_limits<D>::min(), high = std::numeric_limits<D>::max();
  if (sum > high >> shift) return D(high);
  if (sum < low >> shift) return D(low);
  return D(sum << shift);
}

}  // namespace zors
