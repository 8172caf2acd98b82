// Sums and results of stateless filters in floating arithmetic.
#pragma once

#include <algorithm>
#include <limits>
#include <type_traits>

#include "frame/by_type.h"
#include "frame/map.h"
#include "frame/power_of_two.h"

namespace zors {

// A sample in the type of the taps, and a sum with one product more.
template <class F, class T> F sampleAs(T x) {
  if constexpr (Complex<F>)
    return {static_cast<decltype(F::re)>(x.re), static_cast<decltype(F::im)>(x.im)};
  else
    return static_cast<F>(x);
}
// The four products of a complex one are rounded before they meet. g++ 12 fuses a * b - c * d beside a * d + c * b in
// spite of -ffp-contract=off, so each passes through a register of its own.
template <class C> C addTerm(C sum, C tap, C x) requires Complex<C> {
  const auto rounded = [](auto product) {
    __asm__("" : "+x"(product));
    return product;
  };
  return {sum.re + (rounded(tap.re * x.re) - rounded(tap.im * x.im)),
          sum.im + (rounded(tap.re * x.im) + rounded(tap.im * x.re))};
}
template <class Sum, class F> Sum addTerm(Sum sum, F tap, F x) {
  const F product = tap * x;
  return sum + static_cast<Sum>(product);
}

// A float sum times 2^-scaleFactor, the factor from exponent bits that wrap; limited to the integer's range, NaN to its
// lower bound; rounded with ties away from zero.
template <class D, class F> D awayFromZero(F sum, Zor32s scaleFactor) {
  constexpr auto low = std::numeric_limits<D>::min(), high = std::numeric_limits<D>::max();
  const Zor64f y = sum * wrappingPower<F>(scaleFactor);
  if (!(y >= low)) return low;
  if (y > high) return high;
  return static_cast<D>(std::clamp(y < 0 ? y - 0.5 : y + 0.5, Zor64f(low), Zor64f(high)));
}
template <class D, class F> D resultOf(F sum, Zor32s scaleFactor) {
  if constexpr (Complex<D>)
    return {resultOf<decltype(D::re)>(sum.re, scaleFactor), resultOf<decltype(D::im)>(sum.im, scaleFactor)};
  else if constexpr (std::is_integral_v<D>)
    return awayFromZero<D>(sum, scaleFactor);
  else
    return static_cast<D>(sum);
}

// The same in vectors.
template <class D> struct AwayFromZero {
  Zor32s scaleFactor;
  template <class F, int L> ZORS_INLINE auto operator()(simd::Vec<F, L> sum) const {
    using namespace simd;
    const auto scaled = mul(sum, splat<simd::Vec<F, L>>(wrappingPower<F>(scaleFactor)));
    const auto y = [&] {
      if constexpr (sizeof(F) == 4)
        return toDouble(scaled);
      else
        return scaled;
    }();
    const auto half = either(signOf(y), same(y, 0.5));
    const auto limited = min(max(add(y, half), same(y, Zor64f{std::numeric_limits<D>::min()})),
                             same(y, Zor64f{std::numeric_limits<D>::max()}));
    const auto integers = toIntegerTowardZero(limited);
    if constexpr (sizeof(D) == 2)
      return saturate<D>(integers);
    else
      return integers;
  }
};
template <class Sum, class T> void narrowAway(const Sum* sums, T* dst, Zor32s len, Zor32s scaleFactor) {
  using Part = std::remove_pointer_t<decltype(components(dst))>;
  if constexpr (std::is_integral_v<Part>)
    map<32 / int{sizeof(Part)}>(AwayFromZero<Part>{scaleFactor}, componentsLen<T>(len), components(dst),
                                components(sums));
  else
    by_type::narrow(sums, dst, len);
}

// ---- Integer taps -------------------------------------------------------------------------------

// Taps within 16 bits, as those of 16-bit filters mostly are, run on the kernels of states. The negative of an
// imaginary part has to fit too.
template <class Tap> bool fit16(const Tap* taps, Zor32s tapsLen) {
  const auto* parts = components(taps);
  Zor32s low = 0, high = 0;
  for (Zor32s i = 0; i < componentsLen<Tap>(tapsLen); ++i)
    low = std::min(low, parts[i]), high = std::max(high, parts[i]);
  return low > INT16_MIN && high <= INT16_MAX;
}

}  // namespace zors
