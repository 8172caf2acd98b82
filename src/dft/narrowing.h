// A single integer through a transform of one point.
#pragma once

#include <algorithm>

#include "zors/types.h"

namespace zors {

// x / 2^scaleFactor, halves up, saturated.
inline Zor16s narrowedHalfUp(Zor32s x, Zor32s scaleFactor) {
  const auto limited = [](Zor64s wide) { return static_cast<Zor16s>(std::clamp<Zor64s>(wide, -32768, 32767)); };
  if (scaleFactor > 31) return 0;
  if (scaleFactor > 0) return limited((Zor64s{x} + (Zor64s{1} << (scaleFactor - 1))) >> scaleFactor);
  return limited(Zor64s{x} * (Zor64s{1} << std::min<Zor64s>(-Zor64s{scaleFactor}, 16)));
}

}  // namespace zors
