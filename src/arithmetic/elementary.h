// Elementary functions of vectors: sine, cosine and the two-argument arc tangent.
//
// Binary32 functions are evaluated in binary64 and narrowed at the end, which leaves little more than that rounding.
// Binary64 functions carry what the reduction cut off in a second word. Lanes that the vector code does not cover
// (arguments beyond its reduction, infinities, quotients near the ends of the exponent range) go one by one to the
// scalar function, and only where a block has such a lane.
//
// Polynomials are minimax fits (relative error, Sollya's fpminimax, coefficients in binary64) over the reduced range.
#pragma once

#include <cmath>

#include "frame/simd.h"

namespace zors::simd {

template <class V> struct Lanes {
  typename V::Element lane[V::lanes];
  explicit Lanes(V x) { store(lane, x); }
};

// y with the lanes of the mask replaced by function(x...) of that lane.
template <class V, class F, class... X> [[gnu::noinline]] V replaceLanes(V y, V mask, F function, X... x) {
  Lanes<V> result(y);
  const Lanes<V> chosen(mask);
  [&](const auto&... argument) {
    for (int i = 0; i < V::lanes; ++i)
      if (std::signbit(chosen.lane[i])) result.lane[i] = function(argument.lane[i]...);
  }(Lanes<X>(x)...);
  return load<V::lanes>(result.lane);
}

// The polynomial c[0] + z * (c[1] + z * (c[2] + ...)), every step fused.
template <class V, class C, std::size_t n> ZORS_INLINE V horner(V z, const C (&c)[n]) {
  V sum = same(z, c[n - 1]);
  unrolled<int{n} - 1>([&](auto i) ZORS_INLINE_LAMBDA { sum = fma(sum, z, same(z, c[int{n} - 2 - i])); });
  return sum;
}

// pi / 2 as the sum of three binary64 numbers.
inline constexpr Zor64f halfPi[] = {0x1.921fb54442d18p0, 0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110};
inline constexpr Zor64f twoByPi = 0x1.45f306dc9c883p-1;

template <class V> struct SineCosine { V sine, cosine; };

namespace elementary {

// From the sine and the cosine of r and the quadrant n: those of |x| = r + n * pi / 2, the sine with the sign of x.
template <class V, class N> ZORS_INLINE SineCosine<V> turned(SineCosine<V> of, N n, V x) {
  using I = typename N::Element;
  constexpr int toSign = int{sizeof(I)} * 8 - 2;
  const auto odd = sub(same(n, 0), both(n, same(n, 1)));
  const auto sineSign = as<typename V::Element>(shiftLeft(both(n, same(n, 2)), toSign));
  const auto cosineSign = as<typename V::Element>(shiftLeft(both(add(n, same(n, 1)), same(n, 2)), toSign));
  return {differing(select(odd, of.sine, of.cosine), differing(sineSign, signOf(x))),
          differing(select(odd, of.cosine, of.sine), cosineSign)};
}

}  // namespace elementary

// Sine and cosine, at most 0.53 ulp.
template <int L> ZORS_INLINE SineCosine<Vec<Zor32f, L>> sineCosine(Vec<Zor32f, L> x) {
  static constexpr Zor64f s[] = {-0x1.555545240a148p-3, 0x1.110739fa9c914p-7, -0x1.99438783d9b13p-13};
  static constexpr Zor64f c[] = {1.0, -0x1.ffffffd0bc7cep-2, 0x1.55553e0cd959ap-5, -0x1.6c087d15ac343p-10,
                                 0x1.9933d66fa1335p-16};
  const auto ax = magnitude(x);
  const auto wide = toDouble(ax);
  const auto n = nearestIntegral(mul(wide, same(wide, twoByPi)));
  const auto r = fnma(n, same(n, halfPi[1]), fnma(n, same(n, halfPi[0]), wide));
  const auto z = mul(r, r);
  SineCosine<Vec<Zor32f, L>> y{toFloat(fma(mul(r, z), horner(z, s), r)), toFloat(horner(z, c))};
  y = elementary::turned(y, toIntegerCurrent(n), x);
  const auto beyond = notBelow(ax, same(ax, 0x1p30f));  // where quadrants leave 32 bits
  if (any(beyond)) [[unlikely]] {
    y.sine = replaceLanes(
        y.sine, beyond, [](Zor32f a) { return static_cast<Zor32f>(std::sin(Zor64f{a})); }, x);
    y.cosine = replaceLanes(
        y.cosine, beyond, [](Zor32f a) { return static_cast<Zor32f>(std::cos(Zor64f{a})); }, x);
  }
  return y;
}

// Sine and cosine, below 0.6 ulp.
template <int L> ZORS_INLINE SineCosine<Vec<Zor64f, L>> sineCosine(Vec<Zor64f, L> x) {
  static constexpr Zor64f s[] = {-0x1.5555555555548p-3, 0x1.111111110f75ep-7,   -0x1.a01a019bf2523p-13,
                                 0x1.71de355f3628cp-19, -0x1.ae5e549c421c4p-26, 0x1.5d8e4234a0139p-33};
  static constexpr Zor64f c[] = {0x1.555555555554cp-5,   -0x1.6c16c16c15221p-10, 0x1.a01a019cbfa52p-16,
                                 -0x1.27e4f812e7a89p-22, 0x1.1ee9f1714b279p-29,  -0x1.8fb13e9524cbap-37};
  const auto ax = magnitude(x);
  const auto n = nearestIntegral(mul(ax, same(ax, twoByPi)));
  // r + rest = ax - n * pi / 2. The first difference is exact; it is a multiple of the last place of the product below,
  // so the error of the second difference is exact too.
  const auto first = fnma(n, same(n, halfPi[0]), ax);
  const auto product = mul(n, same(n, halfPi[1]));
  const auto r = sub(first, product);
  const auto rest = fnma(n, same(n, halfPi[2]), sub(sub(sub(first, r), product), fms(n, same(n, halfPi[1]), product)));
  const auto z = mul(r, r), halfZ = mul(z, same(z, 0.5)), one = same(z, 1.0), w = sub(one, halfZ);
  // sin = r + (rest * cos r + r z S(z)), cos = w + ((1 - w - z / 2) + (z z C(z) - r rest)).
  const SineCosine<Vec<Zor64f, L>> reduced{
      add(r, fma(mul(r, z), horner(z, s), mul(rest, w))),
      add(w, add(sub(sub(one, w), halfZ), fnma(r, rest, mul(mul(z, z), horner(z, c)))))};
  const auto quadrant = as<Zor64s>(add(n, same(n, 0x1.8p52)));  // the low bits hold n
  auto y = elementary::turned(reduced, quadrant, x);
  const auto beyond = notBelow(ax, same(ax, 0x1p39));  // where n may miss the nearest by more than 2^-13
  if (any(beyond)) [[unlikely]] {
    y.sine = replaceLanes(
        y.sine, beyond, [](Zor64f a) { return std::sin(a); }, x);
    y.cosine = replaceLanes(
        y.cosine, beyond, [](Zor64f a) { return std::cos(a); }, x);
  }
  return y;
}

template <class V> ZORS_INLINE V sine(V x) { return sineCosine(x).sine; }
template <class V> ZORS_INLINE V cosine(V x) { return sineCosine(x).cosine; }

namespace elementary {

// The arc tangent of y / x from that of a quotient of magnitudes at most 1: turns * pi / 2 + atan(numerator /
// denominator), and then the sign of y. A NaN stays in one of the two.
template <class V> struct Octant { V numerator, denominator, turns; };
template <class V> ZORS_INLINE Octant<V> octant(V y, V x) {
  using T = typename V::Element;
  using I = std::conditional_t<sizeof(T) == 4, Zor32s, Zor64s>;
  const auto ax = magnitude(x), ay = magnitude(y), steep = below(ax, ay);
  const auto negative = above(same(as<I>(x), 0), as<I>(x));  // -0 too
  return {differing(min(ay, ax), signOf(differing(steep, x))), max(ax, ay),
          select(steep, both(as<T>(negative), same(x, T(2))), same(x, T(1)))};
}

}  // namespace elementary

// The angle of (x, y) in [-pi, pi] with the conventions of atan2, at most 0.51 ulp.
template <int L> ZORS_INLINE Vec<Zor32f, L> arcTangent(Vec<Zor32f, L> y, Vec<Zor32f, L> x) {
  static constexpr Zor64f c[] = {-0x1.55555104052c5p-2, 0x1.9997e0308d673p-3,  -0x1.247373801a368p-3,
                                 0x1.c4f1e169dbe94p-4,  -0x1.68e6fe5938699p-4, 0x1.1422c79a896f9p-4,
                                 -0x1.6e19a18795e91p-5, 0x1.714b1bc02e61fp-6,  -0x1.df970ad26c093p-8,
                                 0x1.23f92f28a78f3p-10};
  auto [numerator, denominator, turns] = elementary::octant(y, x);
  denominator = max(same(x, 0x1p-149f), denominator);                                   // 0 / 0 counts as 0
  const auto one = same(x, 1.0f), diagonal = equal(magnitude(numerator), denominator);  // infinities among them
  numerator = select(diagonal, numerator, either(one, signOf(numerator)));
  denominator = select(diagonal, denominator, one);
  const auto q = div(toDouble(numerator), toDouble(denominator)), z = mul(q, q);
  const auto angle = fma(toDouble(turns), same(z, halfPi[0]), fma(mul(q, z), horner(z, c), q));
  return either(toFloat(angle), signOf(y));
}

// The same, below 0.6 ulp.
template <int L> ZORS_INLINE Vec<Zor64f, L> arcTangent(Vec<Zor64f, L> y, Vec<Zor64f, L> x) {
  static constexpr Zor64f c[] = {-0x1.555555555553cp-2, 0x1.9999999995664p-3,  -0x1.24924922a149ap-3,
                                 0x1.c71c70e177554p-4,  -0x1.745cf85a30998p-4, 0x1.3b11102094096p-4,
                                 -0x1.10eb527a843f8p-4, 0x1.df098263b9f79p-5,  -0x1.9cb8a32239cd3p-5,
                                 0x1.379326af7c425p-5,  -0x1.24d832d8c5b66p-6};
  const auto [numerator, denominator, turns] = elementary::octant(y, x);
  const auto smallest = same(x, 0x1p-400), greatest = same(x, 0x1p400), zero = same(x, 0.0), one = same(x, 1.0);
  const auto sign = signOf(numerator), low = magnitude(numerator), high = max(smallest, denominator);
  const auto special = either(notBelow(denominator, greatest), both(below(low, smallest), unequal(low, zero)));
  // Above tan(pi / 8): atan(low / high) = pi / 4 - atan((high - low) / (high + low)), with what these two round off.
  const auto far = below(mul(high, same(x, 0x1.a827999fcef32p-2)), low);
  const auto difference = sub(low, high), total = add(high, low);
  const auto top = select(far, low, difference), bottom = select(far, high, total);
  const auto topRest = both(far, sub(low, add(difference, high))), bottomRest = both(far, sub(low, sub(total, high)));
  // q + rest = the quotient.
  const auto reciprocal = div(one, bottom), q = mul(top, reciprocal);
  const auto rest = mul(fnma(q, bottomRest, add(fnma(q, bottom, top), topRest)), reciprocal);
  // atan(q + rest) = q + (q z C(z) + rest / (1 + z)), where 1 / (1 + z) is 1 - z as far as it matters.
  const auto z = mul(q, q);
  const auto curve = fma(mul(q, z), horner(z, c), fnma(z, rest, rest));
  const auto octants = add(add(turns, turns), differing(both(far, one), sign));
  const auto offset = mul(octants, same(x, halfPi[0] / 2));  // exact: that constant ends in three zero bits
  const auto signedQ = differing(q, sign), sum = add(offset, signedQ), error = add(sub(offset, sum), signedQ);
  const auto angle = add(sum, add(error, fma(octants, same(x, halfPi[1] / 2), differing(curve, sign))));
  auto result = either(angle, signOf(y));
  if (any(special)) [[unlikely]]
    result = replaceLanes(
        result, special, [](Zor64f b, Zor64f a) { return std::atan2(b, a); }, y, x);
  return result;
}

}  // namespace zors::simd
