// Signed 64-bit elements by their magnitudes, in general registers.
#pragma once

#include <cstddef>

#include "zors/types.h"


namespace zors {

constexpr Zor64u magnitudeOf(Zor64s x) { return x < 0 ? -static_cast<Zor64u>(x) : static_cast<Zor64u>(x); }

// data[i] = f(|data[i]|), of 64 or 128 bits, with the sign of data[i] * val, saturated.
template <class F> void mapMagnitudes(F f, Zor64s val, Zor64s* data, std::ptrdiff_t len) {
  for (std::ptrdiff_t i = 0; i < len; ++i) {
    const auto sign = static_cast<Zor64u>((data[i] ^ val) >> 63);  // 0 or all ones
    const Zor64u bound = (~Zor64u{0} >> 1) - sign;
    const auto result = f(magnitudeOf(data[i]));
    const Zor64u limited = result > bound ? bound : static_cast<Zor64u>(result);
    data[i] = static_cast<Zor64s>((limited ^ sign) - sign);
  }
}

}  // namespace zors
