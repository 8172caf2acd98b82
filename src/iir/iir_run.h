// Samples through a state: widened to the type of its arithmetic, filtered, narrowed.
#pragma once

#include <algorithm>
#include <limits>

#include "frame/power_of_two.h"
#include "frame/simd.h"
#include "iir/iir_filter.h"

namespace zors {

// Results to samples; integers divided by 2^scaleFactor, whose exponent is drawn in to those of normal numbers, rounded
// and saturated, NaN to the lower bound. results change where the conversion's own range of exponents is narrower.
template <class Kind>
void iirNarrow(typename Kind::Value* results, typename Kind::Sample* dst, Zor32s len, Zor32s scaleFactor) {
  using Limits = std::numeric_limits<simd::Part<typename Kind::Value>>;
  Zor32s scale = std::clamp(scaleFactor, 1 - Limits::max_exponent, 1 - Limits::min_exponent);
  if constexpr (sizeof(simd::Part<typename Kind::Value>) == sizeof(Zor64f)) {
    constexpr Zor32s least = -1008;
    if (scale < least) {
      by_type::multiplyBy(exactPower(scale - least), results, len);
      scale = least;
    }
  }
  by_type::narrow(results, dst, len, scale);
}

// Deviation, kept: the first two results of a chunk of a cascade in single precision are cut, not rounded.
template <class Kind>
inline constexpr bool iirCutsFirst = std::is_same_v<simd::Part<typename Kind::Value>, Zor32f>&& Kind::converts;
template <class Kind>
void iirCutFirst(const typename Kind::Value* results, typename Kind::Sample* dst, Zor32s scaleFactor) {
  zors::zorsConvert_32f16s_Sfs(components(results), components(dst), componentsLen<typename Kind::Value>(2),
                               zorRoundTowardZero, std::clamp(scaleFactor, -127, 126));
}

// scratch: room for a chunk.
template <class Kind>
void iirFilter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorIIRState* state,
               typename Kind::Value* scratch, Zor32s scaleFactor) {
  using Value = typename Kind::Value;
  while (len > 0) {
    const Zor32s n = std::min(len, iirChunk);
    const auto lookAhead = [&] {
      if constexpr (Kind::converts) {
        by_type::widen(src, scratch, n);
        return iirLookAhead<Value>(state, scratch, scratch, n);
      } else {
        return iirLookAhead(state, src, scratch, n);
      }
    };
    if (iirTakesSteps(state, n) || !lookAhead()) {
      by_type::widen(src, scratch, n);
      iirStep(state, scratch, n);
    }
    iirNarrow<Kind>(scratch, dst, n, scaleFactor);
    if constexpr (iirCutsFirst<Kind>)
      if (!iirIsShort(state, n) && state->form == IirForm::cascade) iirCutFirst<Kind>(scratch, dst, scaleFactor);
    src += n;
    dst += n;
    len -= n;
  }
}
template <class Kind>
void iirFilter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorIIRState* state,
               Zor32s scaleFactor = 0) {
  using Value = typename Kind::Value;
  if (state->scratch != nullptr)
    return iirFilter<Kind>(src, dst, len, state, static_cast<Value*>(state->scratch), scaleFactor);
  if constexpr (Kind::hasFirstForm && !Kind::converts) {
    alignas(iirAlignment) Value local[iirChunk];
    iirFilter<Kind>(src, dst, len, state, local, scaleFactor);
  }
}

}  // namespace zors
