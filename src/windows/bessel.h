// The modified Bessel function I0 for Kaiser's window, by two fits: in powers below a threshold, from it on as
// exp(x) / sqrt(x) times powers of threshold / x.
#pragma once

#include "frame/simd.h"

namespace zors::simd {

// The fit of the 64-bit windows, to some 6e-6.
struct FineBessel {
  static constexpr Zor64f threshold = 4, inverse = 0.25;
  static constexpr Zor64f low[] = {0.9999999985, 4.0000001935, 3.9999959541, 1.777809969,
                                   0.4443189384, 0.0713758187, 0.0075942968, 0.0008267816};
  static constexpr Zor64f high[] = {0.3989422809,  0.0124667783,  0.0017623668,  0.00026,      0.0022585672,
                                    -0.0128314822, 0.0495811118,  -0.1209940805, 0.1895476618, -0.1867783276,
                                    0.1113315511,  -0.0366694767, 0.0051246015};
};
// Abramowitz and Stegun, 9.8.1 and 9.8.2, to some 2e-7.
struct CoarseBessel {
  static constexpr Zor64f threshold = 3.75, inverse = 0.26666666666666666;
  static constexpr Zor64f low[] = {1, 3.5156229, 3.0899424, 1.2067492, 0.2659732, 0.0360768, 0.0045813};
  static constexpr Zor64f high[] = {0.39894228,  0.01328592, 0.00225319,  -0.00157565, 0.00916281,
                                    -0.02057706, 0.02635537, -0.01647633, 0.00392377};
};

// c[0] + z * (c[1] + z * (c[2] + ...)) in the type of z, every step fused.
template <class V, std::size_t n> ZORS_INLINE V powers(V z, const Zor64f (&c)[n]) {
  using F = typename V::Element;
  V sum = same(z, F(c[n - 1]));
  unrolled<int{n} - 1>([&](auto i) ZORS_INLINE_LAMBDA { sum = fma(sum, z, same(z, F(c[int{n} - 2 - i]))); });
  return sum;
}

// e^x for x from 0 to 308, or 38 in binary32: x = n ln 2 + r, e^r = 1 + r + r R / (2 - R), where R = r - r^2 P(r^2)
// with the five terms of r coth(r / 2).
struct ReducedExponential {
  template <class V> ZORS_INLINE V operator()(V x) const {
    using F = typename V::Element;
    constexpr bool narrow = sizeof(F) == 4;
    using Bits = std::conditional_t<narrow, Zor32s, Zor64s>;
    constexpr F high = narrow ? F(0x1.62e3p-1) : F(0x1.62e42feep-1),
                low = narrow ? F(0x1.2fefa2p-17) : F(0x1.a39ef35793c76p-33);
    constexpr F integral = narrow ? F(0x1.8p23) : F(0x1.8p52);
    static constexpr Zor64f terms[] = {0x1.555555555553ep-3, -0x1.6c16c16bebd93p-9, 0x1.1566aaf25de2cp-14,
                                       -0x1.bbd41c5d26bf1p-20, 0x1.6376972bea4d0p-25};
    const V n = nearestIntegral(mul(x, same(x, F(0x1.71547652b82fep0))));
    const V first = fnma(n, same(x, high), x), rest = mul(n, same(x, low));
    const V r = sub(first, rest), z = mul(r, r), c = fnma(z, powers(z, terms), r);
    const V bulk = sub(rest, div(mul(r, c), sub(same(x, F(2)), c)));
    const V y = sub(same(x, F(1)), sub(bulk, first));
    return as<F>(add(as<Bits>(y), shiftLeft(as<Bits>(add(n, same(n, integral))), narrow ? 23 : 52)));
  }
};

// For x >= 0. Arguments mostly lie on one side of the threshold.
template <class Fit, class V, class Exponential> ZORS_INLINE V besselI0(V x, Exponential exponential) {
  using F = typename V::Element;
  const V threshold = same(x, F(Fit::threshold)), isHigh = notBelow(x, threshold);
  const V small = min(threshold, x), t = mul(small, same(x, F(Fit::inverse)));
  const V low = powers(mul(t, t), Fit::low);
  if (!any(isHigh)) return low;
  const V large = max(threshold, x), root = sqrt(large);
  const V high = div(mul(exponential(large), powers(div(threshold, large), Fit::high)), root);
  return select(isHigh, low, high);
}

}  // namespace zors::simd
