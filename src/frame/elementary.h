// Elementary functions of vectors: sine, cosine, the two-argument arc tangent, exponential and natural logarithm.
//
// The binary32 exponential and logarithm have fast polynomials of a few ulp. The other functions carry what a reduction
// or a quotient rounds off in a second word, and one kernel serves both types. Lanes that the vector code does not
// cover (arguments beyond its reduction, infinities, quotients near the ends of the exponent range) go one by one to
// the scalar function, and only where a block has such a lane.
//
// Polynomials are minimax fits (relative error, Sollya's fpminimax, coefficients in the type computed in) over the
// reduced range.
#pragma once

#include <cmath>
#include <limits>

#include "frame/simd.h"
#include "zors/types.h"

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

// pi / 2 as the sum of three numbers.
template <class F> inline constexpr F halfPi[] = {0x1.921fb54442d18p0, 0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110};
template <> inline constexpr Zor32f halfPi<Zor32f>[] = {0x1.921fb6p0f, -0x1.777a5cp-25f, -0x1.ee59dap-50f};
template <class F> inline constexpr F twoByPi = F(0x1.45f306dc9c883p-1);

template <class V> struct SineCosine { V sine, cosine; };

namespace elementary {

// S in sin r = r + r^3 S(r^2), C in cos r = 1 - r^2 / 2 + r^4 C(r^2).
template <class F>
inline constexpr F sinePolynomial[] = {-0x1.5555555555548p-3, 0x1.111111110f75ep-7,   -0x1.a01a019bf2523p-13,
                                       0x1.71de355f3628cp-19, -0x1.ae5e549c421c4p-26, 0x1.5d8e4234a0139p-33};
template <class F>
inline constexpr F cosinePolynomial[] = {0x1.555555555554cp-5,   -0x1.6c16c16c15221p-10, 0x1.a01a019cbfa52p-16,
                                         -0x1.27e4f812e7a89p-22, 0x1.1ee9f1714b279p-29,  -0x1.8fb13e9524cbap-37};
template <>
inline constexpr Zor32f sinePolynomial<Zor32f>[] = {-0x1.555556p-3f, 0x1.111198p-7f, -0x1.a082bp-13f, 0x1.874334p-19f};
template <> inline constexpr Zor32f cosinePolynomial<Zor32f>[] = {0x1.555554p-5f, -0x1.6c1294p-10f, 0x1.9bc162p-16f};
// From here on the nearest multiple of pi / 2 may be missed by more than some 2^-12.
template <class F> inline constexpr F circularLimit = sizeof(F) == 4 ? F(0x1p12) : F(0x1p39);

// From the sine and the cosine of r and the quadrant n: those of |x| = r + n * pi / 2, the sine with the sign of x.
template <class V, class N> ZORS_INLINE SineCosine<V> turned(SineCosine<V> of, N n, V x) {
  using F = typename V::Element;
  constexpr int toSign = int{sizeof(F)} * 8 - 1;
  const auto odd = as<F>(shiftLeft(n, toSign)), second = as<F>(shiftLeft(n, toSign - 1));  // bits 0 and 1 of n
  return {differing(selectBySign(odd, of.sine, of.cosine), signOf(differing(second, x))),
          differing(selectBySign(odd, of.cosine, of.sine), signOf(differing(second, odd)))};
}

// For |x| below the limit.
template <class V> ZORS_INLINE SineCosine<V> reducedSineCosine(V x) {
  using F = typename V::Element;
  constexpr auto& words = halfPi<F>;
  const auto ax = magnitude(x), one = same(x, F(1));
  const auto n = nearestIntegral(mul(ax, same(ax, twoByPi<F>)));
  // r + rest = ax - n * pi / 2. The first difference is exact; it is a multiple of the last place of the product below,
  // so the error of the second difference is exact too.
  const auto first = fnma(n, same(n, words[0]), ax);
  const auto product = mul(n, same(n, words[1]));
  const auto r = sub(first, product);
  const auto rest = fnma(n, same(n, words[2]), sub(sub(sub(first, r), product), fms(n, same(n, words[1]), product)));
  const auto z = mul(r, r), halfZ = mul(z, same(z, F(0.5))), w = sub(one, halfZ);
  // sin = r + (rest * cos r + r z S(z)), cos = w + ((1 - w - z / 2) + (z z C(z) - r rest)).
  const SineCosine<V> reduced{
      add(r, fma(mul(r, z), horner(z, sinePolynomial<F>), mul(rest, w))),
      add(w, add(sub(sub(one, w), halfZ), fnma(r, rest, mul(mul(z, z), horner(z, cosinePolynomial<F>)))))};
  using Bits = std::conditional_t<sizeof(F) == 4, Zor32s, Zor64s>;
  constexpr F bias = sizeof(F) == 4 ? F(0x1.8p23) : F(0x1.8p52);
  return turned(reduced, as<Bits>(add(n, same(n, bias))), x);  // the low bits of the sum hold n
}

// Of binary32 numbers below 2^30, evaluated in binary64.
template <int L> [[gnu::noinline]] SineCosine<Vec<Zor32f, L>> wideSineCosine(Vec<Zor32f, L> x) {
  const auto y = reducedSineCosine(toDouble(x));
  return {toFloat(y.sine), toFloat(y.cosine)};
}

}  // namespace elementary

// Sine and cosine, below 0.8 ulp.
template <class V> ZORS_INLINE SineCosine<V> sineCosine(V x) {
  using F = typename V::Element;
  auto y = elementary::reducedSineCosine(x);
  const auto ax = magnitude(x), far = notBelow(ax, same(ax, elementary::circularLimit<F>));
  if (any(far)) [[unlikely]] {
    auto beyond = far;
    if constexpr (sizeof(F) == 4) {
      const auto wide = elementary::wideSineCosine(x);
      y = {select(far, y.sine, wide.sine), select(far, y.cosine, wide.cosine)};
      beyond = notBelow(ax, same(ax, 0x1p30f));
      if (!any(beyond)) return y;
    }
    y.sine = replaceLanes(
        y.sine, beyond, [](F a) { return static_cast<F>(std::sin(Zor64f{a})); }, x);
    y.cosine = replaceLanes(
        y.cosine, beyond, [](F a) { return static_cast<F>(std::cos(Zor64f{a})); }, x);
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

namespace elementary {

// pi / 4 as the sum of two numbers, the first with so many zeros at its end that its multiples up to pi are exact.
template <class F> inline constexpr F quarterPi[] = {0x1.921fb54442d18p-1, 0x1.1a62633145c07p-55};
template <> inline constexpr Zor32f quarterPi<Zor32f>[] = {0x1.921fbp-1f, 0x1.5110b4p-23f};
// C in atan q = q + q^3 C(q^2), for q up to tan(pi / 8).
template <class F>
inline constexpr F arcTangentPolynomial[] = {-0x1.555555555553cp-2, 0x1.9999999995664p-3,  -0x1.24924922a149ap-3,
                                             0x1.c71c70e177554p-4,  -0x1.745cf85a30998p-4, 0x1.3b11102094096p-4,
                                             -0x1.10eb527a843f8p-4, 0x1.df098263b9f79p-5,  -0x1.9cb8a32239cd3p-5,
                                             0x1.379326af7c425p-5,  -0x1.24d832d8c5b66p-6};
template <>
inline constexpr Zor32f arcTangentPolynomial<Zor32f>[] = {-0x1.555554p-2f, 0x1.99970ap-3f, -0x1.241d42p-3f,
                                                          0x1.b7e4d6p-4f, -0x1.07d9a8p-4f};
// Quotients are formed of numbers from its reciprocal up to this one: what they round off is then a normal number.
template <class F> inline constexpr F largestOperand = sizeof(F) == 4 ? F(0x1p100) : F(0x1p400);

// turns * pi / 2 + atan(numerator / denominator) without its sign; the numerator is 0 or not far below the
// denominator's range.
template <class V> ZORS_INLINE V angleOf(V numerator, V denominator, V turns) {
  using F = typename V::Element;
  const auto one = same(numerator, F(1)), sign = signOf(numerator), low = magnitude(numerator), high = denominator;
  // Above tan(pi / 8): atan(low / high) = pi / 4 - atan((high - low) / (high + low)), with what these two round off.
  const auto far = below(mul(high, same(high, F(0x1.a827999fcef32p-2))), low);
  const auto difference = sub(low, high), total = add(high, low);
  const auto top = select(far, low, difference), bottom = select(far, high, total);
  const auto topRest = both(far, sub(low, add(difference, high))), bottomRest = both(far, sub(low, sub(total, high)));
  // q + rest = the quotient.
  const auto reciprocal = div(one, bottom), q = mul(top, reciprocal);
  const auto rest = mul(fnma(q, bottomRest, add(fnma(q, bottom, top), topRest)), reciprocal);
  // atan(q + rest) = q + (q z C(z) + rest / (1 + z)), where 1 / (1 + z) is 1 - z as far as it matters.
  const auto z = mul(q, q);
  const auto curve = fma(mul(q, z), horner(z, arcTangentPolynomial<F>), fnma(z, rest, rest));
  const auto octants = add(add(turns, turns), differing(both(far, one), sign));
  const auto offset = mul(octants, same(q, quarterPi<F>[0]));
  const auto signedQ = differing(q, sign), sum = add(offset, signedQ), error = add(sub(offset, sum), signedQ);
  return add(sum, add(error, fma(octants, same(q, quarterPi<F>[1]), differing(curve, sign))));
}

}  // namespace elementary

// The angle of (x, y) in [-pi, pi] with the conventions of atan2, below 0.7 ulp.
template <class V> ZORS_INLINE V arcTangent(V y, V x) {
  using F = typename V::Element;
  const auto [numerator, denominator, turns] = elementary::octant(y, x);
  const auto largest = same(x, elementary::largestOperand<F>), smallest = same(x, 1 / elementary::largestOperand<F>);
  const auto low = magnitude(numerator);
  const auto special = either(notBelow(denominator, largest), both(below(low, smallest), unequal(low, same(x, F(0)))));
  // Of zeros some directions would change the sign.
  auto angle = either(magnitude(elementary::angleOf(numerator, max(smallest, denominator), turns)), signOf(y));
  if (any(special)) [[unlikely]]
    angle = replaceLanes(
        angle, special, [](F b, F a) { return static_cast<F>(std::atan2(Zor64f{b}, Zor64f{a})); }, y, x);
  return angle;
}

// The arc tangent of one binary64 argument, below 0.7 ulp.
template <int L> ZORS_INLINE Vec<Zor64f, L> arcTangent(Vec<Zor64f, L> x) {
  const auto [numerator, denominator, turns] = elementary::octant(x, same(x, 1.0));
  const auto largest = same(x, elementary::largestOperand<Zor64f>);
  return either(magnitude(elementary::angleOf(numerator, min(largest, denominator), turns)), signOf(x));
}

// e^x for arguments whose result is a normal number, 3 ulp: x = n ln 2 + r, a polynomial in r, n added to its exponent.
template <int L> ZORS_INLINE Vec<Zor32f, L> exponential(Vec<Zor32f, L> x) {
  static constexpr Zor32f c[] = {1.0f,
                                 0.9999998807907104f,
                                 0.4999939203262329f,
                                 0.16667431592941284f,
                                 0.041873522102832794f,
                                 0.008291719481348991f};
  const auto magic = same(x, 12582912.0f);  // 1.5 * 2^23: the low bits of the sum hold n
  const auto sum = fma(x, same(x, 1.4426950216293335f), magic), n = sub(sum, magic);
  const auto r = fnma(n, same(x, 1.428606765330187e-06f), fnma(n, same(x, 0.693145751953125f), x));
  auto y = as<Zor32f>(add(as<Zor32s>(horner(r, c)), shiftLeft(as<Zor32s>(sum), 23)));
  const auto beyond = notBelow(magnitude(x), same(x, 87.33654022216797f));
  if (any(beyond)) [[unlikely]]
    y = replaceLanes(
        y, beyond, [](Zor32f a) { return static_cast<Zor32f>(std::exp(Zor64f{a})); }, x);
  return y;
}

// The same, below 0.9 ulp.
template <int L> ZORS_INLINE Vec<Zor64f, L> exponential(Vec<Zor64f, L> x) {
  static constexpr Zor64f c[] = {0x1.000000000000cp-1,  0x1.5555555555561p-3,  0x1.555555554fdf1p-5,
                                 0x1.111111110d63ap-7,  0x1.6c16c1860e367p-10, 0x1.a01a01bae3c6fp-13,
                                 0x1.a01995a2b6de3p-16, 0x1.71dddfc5e6183p-19, 0x1.28b1101739729p-22,
                                 0x1.af85943d128dcp-26};
  const auto n = nearestIntegral(mul(x, same(x, 1.4426950408889634)));
  // r + rest = x - n ln 2; the first difference is exact.
  const auto low = same(x, 1.9082149292705877e-10), first = fnma(n, same(x, 0.6931471803691238), x);
  const auto r = fnma(n, low, first), rest = fnma(n, low, sub(first, r));
  const auto p = add(add(fma(mul(r, r), horner(r, c), rest), r), same(x, 1.0));
  const auto exponent = shiftLeft(as<Zor64s>(add(n, same(x, 0x1.8p52))), 52);
  auto y = as<Zor64f>(add(as<Zor64s>(p), exponent));
  const auto beyond = notBelow(magnitude(x), same(x, 708.3964185322641));
  if (any(beyond)) [[unlikely]]
    y = replaceLanes(
        y, beyond, [](Zor64f a) { return std::exp(a); }, x);
  return y;
}

// The first argument that a logarithm met among those that `watched` names.
struct LogArguments {
  enum Kind { ordinary = 0, zero = 2, negative = 4, notANumber = 8 };
  int watched = zero | negative;
  Kind first = ordinary;
};

namespace elementary {

template <class F> F logarithmOfLane(F x, LogArguments& arguments) {
  using Kind = LogArguments::Kind;
  const Kind kind = std::isnan(x) ? Kind::notANumber : x == 0 ? Kind::zero : x < 0 ? Kind::negative : Kind::ordinary;
  if (arguments.first == Kind::ordinary && (kind & arguments.watched) != 0) arguments.first = kind;
  if (kind == Kind::zero) return -std::numeric_limits<F>::infinity();  // denormals too where they count as zeros
  return static_cast<F>(std::log(Zor64f{x}));
}

// y with the logarithms of zeros, negative numbers, denormals, infinities and NaN.
template <class V> ZORS_INLINE V withSpecialLogarithms(V y, V x, LogArguments& arguments) {
  using F = typename V::Element;
  constexpr F smallest = std::numeric_limits<F>::min(), infinity = std::numeric_limits<F>::infinity();
  const auto special = either(below(x, same(x, smallest)), notBelow(x, same(x, infinity)));
  if (any(special)) [[unlikely]]
    y = replaceLanes(
        y, special, [&arguments](F a) { return logarithmOfLane(a, arguments); }, x);
  return y;
}

}  // namespace elementary

// The natural logarithm, 4 ulp: x = m 2^e with m in [2/3, 4/3), ln x = e ln 2 + (y + y^2 Q(y)) with y = m - 1.
template <int L> ZORS_INLINE Vec<Zor32f, L> logarithm(Vec<Zor32f, L> x, LogArguments& arguments) {
  static constexpr Zor32f c[] = {-0.5f,
                                 0.33336564898490906f,
                                 -0.25004664063453674f,
                                 0.19822503626346588f,
                                 -0.16462457180023193f,
                                 0.16964881122112274f,
                                 -0.15177205204963684f};
  const auto lowest = same(as<Zor32s>(x), 0x3F2AAAAB);  // 2/3
  const auto above = sub(as<Zor32s>(x), lowest);
  const auto e = toFloat(shiftRight(above, 23));
  const auto y = sub(as<Zor32f>(add(both(above, same(above, 0x7FFFFF)), lowest)), same(x, 1.0f));
  const auto curve = fma(mul(y, y), horner(y, c), y);
  return elementary::withSpecialLogarithms(fma(e, same(x, 0.6931471824645996f), curve), x, arguments);
}

// The same, below 0.9 ulp: m in [sqrt(1/2), sqrt(2)), f = m - 1, s = f / (2 + f), ln m = f - f^2/2 + s (f^2/2 +
// R(s^2)).
template <int L> ZORS_INLINE Vec<Zor64f, L> logarithm(Vec<Zor64f, L> x, LogArguments& arguments) {
  static constexpr Zor64f c[] = {0x1.5555555555593p-1, 0x1.999999997fa96p-2, 0x1.249249421c5fap-2, 0x1.c71c51e5ff94fp-3,
                                 0x1.74664653034p-3,   0x1.39a0f5a91369dp-3, 0x1.2f0d672e90b84p-3};
  const auto bits = as<Zor64s>(x), lowest = same(bits, 0x3FE6A09E667F3BCD);           // sqrt(1/2)
  const auto above = sub(bits, same(bits, 0x3FE6A09E667F3BCD - 0x3FF0000000000000));  // its exponent field: e + 1023
  const auto e =
      sub(as<Zor64f>(either(shiftRight(as<Zor64u>(above), 52), as<Zor64u>(same(x, 0x1p52)))), same(x, 0x1p52 + 1023));
  const auto f = sub(as<Zor64f>(add(both(above, same(bits, 0xFFFFFFFFFFFFF)), lowest)), same(x, 1.0));
  const auto s = div(f, add(same(x, 2.0), f)), z = mul(s, s);
  const auto half = mul(mul(same(x, 0.5), f), f);
  const auto low = fma(s, fma(z, horner(z, c), half), mul(e, same(x, 5.497923018708371e-14)));
  const auto result = fma(e, same(x, 0x1.62e42fefa38p-1), sub(f, sub(half, low)));  // that product is exact
  return elementary::withSpecialLogarithms(result, x, arguments);
}

}  // namespace zors::simd
