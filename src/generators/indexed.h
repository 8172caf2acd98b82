// Elements that follow from their index alone; sines and cosines that have the bits of the C library's.
#pragma once

#include <array>
#include <limits>

#include "frame/elementary.h"
#include "frame/part.h"

namespace zors::generators {

// dst[i] = kernel(first + i), with the indices counted in F, where all of them are exact. In the last vector the lanes
// beyond the end repeat the last index.
template <int L, class F, class D, class Kernel>
[[gnu::flatten]] void fromIndices(Zor64s first, std::ptrdiff_t len, D* dst, Kernel kernel) {
  using namespace simd;
  static constexpr auto counts = [] {
    std::array<F, L> n{};
    for (int i = 0; i < L; ++i) n[std::size_t(i)] = F(i);
    return n;
  }();
  auto n = load<L>(counts.data());
  n = add(n, same(n, static_cast<F>(first)));
  std::ptrdiff_t i = 0;
  for (; i <= len - L; i += L) {
    store(dst + i, kernel(n));
    n = add(n, same(n, F(L)));
  }
  if (i < len) storePart(dst + i, kernel(min(n, same(n, static_cast<F>(first + len - 1)))), int(len - i));
}

// sin x or cos x for |x| below 2^39, within 1.6 ulp. One polynomial serves: x = n pi + r for the sine and
// x = (n + 1/2) pi + r for the cosine, |r| <= pi / 2, give sin r with the sign of (-1)^n and of -(-1)^n.
enum class Circular { sine, cosine };

// S in sin r = r + r^3 S(r^2), relative error 2^-61: least squares at Chebyshev nodes, rounded one by one.
inline constexpr Zor64f sineCurve[] = {-0x1.5555555555555p-3,  0x1.11111111110c9p-7,   -0x1.a01a01a014eb5p-13,
                                       0x1.71de3a52aaa8dp-19,  -0x1.ae6454d954317p-26, 0x1.6123ce4cd8a06p-33,
                                       -0x1.ae43db2686768p-41, 0x1.883beccccdca2p-49};

template <Circular of, int L> ZORS_INLINE simd::Vec<Zor64f, L> circular(simd::Vec<Zor64f, L> x) {
  using namespace simd;
  constexpr bool sine = of == Circular::sine;
  const auto byPi = same(x, 0x1.45f306dc9c883p-2), half = same(x, 0.5);
  const auto n = nearestIntegral(sine ? mul(x, byPi) : fms(x, byPi, half)), halves = sine ? n : add(n, half);
  // The first difference is exact, so what the second rounds off is below a unit of r however small r is.
  const auto first = fnma(halves, same(x, 2 * halfPi<Zor64f>[0]), x);
  const auto r = fnma(halves, same(x, 2 * halfPi<Zor64f>[2]), fnma(halves, same(x, 2 * halfPi<Zor64f>[1]), first));
  const auto z = mul(r, r), y = fma(mul(r, z), horner(z, sineCurve), r);
  const auto parity = as<Zor64s>(add(n, same(x, sine ? 0x1.8p52 : 0x1.8p52 + 1)));  // its lowest bit
  return differing(y, as<Zor64f>(shiftLeft(parity, 63)));
}

// All ones where some units in the last place of x decide which binary32 number it is narrowed to, in any direction.
// Wherever such a number or the middle of two stands, the last 28 bits of x are zeros.
template <int L> ZORS_INLINE simd::Vec<Zor64f, L> nearNarrowing(simd::Vec<Zor64f, L> x) {
  constexpr Zor64s units = 16, mask = (1 << 28) - 1;
  const auto bits = simd::as<Zor64s>(x),
             past = simd::both(simd::add(bits, simd::same(bits, units)), simd::same(bits, mask));
  return simd::as<Zor64f>(simd::above(simd::same(bits, 2 * units + 1), past));
}
// All ones where an error of that size decides the integer that x is cut to.
template <int L> ZORS_INLINE simd::Vec<Zor64f, L> nearInteger(simd::Vec<Zor64f, L> x, simd::Vec<Zor64f, L> error) {
  using namespace simd;
  return below(magnitude(sub(x, nearestIntegral(x))), error);
}

// height times a vector sine or cosine, x, such that its element of type D is the one that the C library's function
// gives: lanes where some units in the last place decide are again(argument) of that lane. 64-bit elements stay within
// the height.
template <class D, class V, class Again> ZORS_INLINE V settled(V x, Zor64f height, Again again, V argument) {
  if constexpr (std::is_same_v<D, Zor64f>) {
    return max(same(x, -height), min(same(x, height), x));  // of zeros, x
  } else {
    constexpr Zor64f units = sizeof(D) == 4 ? 0x1p-17 : 0x1p-33;  // some of the largest product's
    V open;
    if constexpr (std::is_same_v<D, Zor32f>)
      open = nearNarrowing(x);
    else
      open = nearInteger(x, same(x, height == 0 ? 0.0 : units));
    if (any(open)) [[unlikely]]
      x = replaceLanes(x, open, again, argument);
    return x;
  }
}

// Integers of 32 bits in elements of type D, of which they keep the low bits.
template <class D, int L> ZORS_INLINE simd::Vec<D, L> lowBits(simd::Vec<Zor32s, L> x) {
  using namespace simd;
  if constexpr (sizeof(D) == 4) {
    return as<D>(x);
  } else {
    using U = std::make_unsigned_t<D>;
    return as<D>(saturate<U>(both(x, same(x, Zor32s{std::numeric_limits<U>::max()}))));
  }
}

}  // namespace zors::generators
