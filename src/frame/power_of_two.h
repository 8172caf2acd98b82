// 2^-scaleFactor as a floating-point factor. Families differ in what becomes of scale factors that no exponent holds.
#pragma once

#include <algorithm>
#include <bit>
#include <type_traits>

#include "zors/types.h"

namespace zors {

namespace detail {
template <class F> struct ExponentField;
template <> struct ExponentField<Zor32f> {
  using Bits = Zor32u;
  static constexpr int shift = 23, one = 127, infinity = 255;
};
template <> struct ExponentField<Zor64f> {
  using Bits = Zor64u;
  static constexpr int shift = 52, one = 1023, infinity = 2047;
};
template <class F> F withExponent(Zor64s field) {
  using Field = ExponentField<F>;
  return std::bit_cast<F>(static_cast<typename Field::Bits>(field) << Field::shift);
}
}  // namespace detail

// Exact within the clamps, which lie where a result no longer changes.
template <class F = Zor64f> F exactPower(Zor32s scaleFactor, Zor32s least = -1000, Zor32s most = 1000) {
  return detail::withExponent<F>(detail::ExponentField<F>::one - std::clamp(scaleFactor, least, most));
}

// The exponent field limited to what there is: 0 above, infinity below.
template <class F = Zor64f> F limitedPower(Zor32s scaleFactor) {
  using Field = detail::ExponentField<F>;
  return detail::withExponent<F>(std::clamp<Zor64s>(Field::one - Zor64s{scaleFactor}, 0, Field::infinity));
}

// The exponent formed by a subtraction in the upper 32 bits that wraps: out of range it is another power, zero or
// infinity, of either sign.
template <class F> F wrappingPower(Zor32s scaleFactor) {
  if constexpr (sizeof(F) == 4)
    return std::bit_cast<Zor32f>(Zor32u{0x3F800000} - (static_cast<Zor32u>(scaleFactor) << 23));
  else
    return std::bit_cast<Zor64f>(static_cast<Zor64u>(Zor32u{0x3FF00000} - (static_cast<Zor32u>(scaleFactor) << 20))
                                 << 32);
}

// The exponent taken modulo 128; where nothing is left of it the factor is 0.
inline Zor32f powerModulo128(Zor32s scaleFactor) {
  const Zor32u exponent = static_cast<Zor32u>(scaleFactor) & 127;
  constexpr Zor32u one = 0x3F800000;
  return std::bit_cast<Zor32f>(scaleFactor >= 0 ? one - (exponent << 23) : one + ((-exponent & 127) << 23));
}

}  // namespace zors
