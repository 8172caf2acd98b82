// The exact rational quotient, rounded and saturated: the model of the integer divisions.
#pragma once

#include <algorithm>
#include <limits>

#include "kit/elementwise.h"
#include "zors/types.h"

namespace quotient {

using Zor128u = unsigned __int128;
constexpr int infinite = INT32_MIN;  // a least scale factor that no scale factor is below

constexpr Zor128u magnitude(__int128 x) { return x < 0 ? -static_cast<Zor128u>(x) : static_cast<Zor128u>(x); }
constexpr int bitLength(Zor128u x) {
  int bits = 0;
  for (; x != 0; x >>= 1) ++bits;
  return bits;
}
// n / (d * 2^scale), d not zero, for magnitudes up to 2^63; 2^64 for anything larger than that.
template <class Wide> constexpr Zor128u rounded(Wide n, Wide d, int scale, ZorRoundMode rnd) {
  if (scale >= 0) {
    if (scale > 64) return 0;
    d <<= scale;
  } else {
    if (n == 0) return 0;
    if (scale < -200 || (sizeof(Wide) == 16 && bitLength(n) - scale - bitLength(d) > 64)) return Zor128u{1} << 64;
    n <<= -scale;
  }
  const Wide q = n / d, rest = n % d, toNext = d - rest;
  if (rnd == zorRoundTowardZero) return q;
  return q + (rest > toNext || (rest == toNext && (rnd == zorRoundHalfAway || q % 2 != 0)));
}
template <class D> constexpr D bounded(Zor128u q, bool isNegative) {
  using L = std::numeric_limits<D>;
  const Zor128u most = isNegative ? magnitude(L::min()) : magnitude(L::max());
  const Zor128u kept = std::min(q, most);
  return static_cast<D>(isNegative ? -static_cast<__int128>(kept) : static_cast<__int128>(kept));
}

// n / d * 2^-scale; below the scale `least` every quotient but zero takes the bound of its sign.
template <class D>
D exact(__int128 n, __int128 d, int scale, int least = infinite, ZorRoundMode rnd = zorRoundNearestEven) {
  const bool isNegative = (n < 0) != (d < 0);
  if (n == 0 || d == 0) return bounded<D>(n == 0 ? 0 : Zor128u{1} << 64, n < 0);
  if (scale < least) return bounded<D>(Zor128u{1} << 64, isNegative);
  const Zor128u a = magnitude(n), b = magnitude(d);
  if (a >> 32 == 0 && b >> 32 == 0 && scale >= -30 && scale <= 30)  // the same, sooner
    return bounded<D>(rounded<Zor64u>(Zor64u(a), Zor64u(b), scale, rnd), isNegative);
  return bounded<D>(rounded(a, b, scale, rnd), isNegative);
}
// n * conj(d) / |d|^2 * 2^-scale; by zero the parts of n decide.
inline Zor16sc exact(Zor16sc n, Zor16sc d, int scale, int least) {
  const auto part = [&](Zor64s t, Zor64s norm) { return exact<Zor16s>(t, norm, scale, least); };
  if (d.re == 0 && d.im == 0) return {part(n.re, 0), part(n.im, 0)};
  const Zor64s a = n.re, b = n.im, c = d.re, e = d.im;
  return {part(a * c + b * e, c * c + e * e), part(b * c - a * e, c * c + e * e)};
}

// A dividend n for which n * 2^shift / d is as close to a half-integer as an odd divisor d allows, 1 / (2 * d) off:
// n * 2^shift = (d +- 1) / 2 modulo d.
inline Zor64u nearHalf(Zor64u d, int shift, bool above) {
  Zor64u n = (d + (above ? 1 : 0)) / 2;
  for (int i = 0; i < shift; ++i) n = n % 2 == 0 ? n / 2 : n / 2 + d / 2 + 1;  // divided by 2, modulo d
  return n;
}

template <class T> bool isZero(T x) { return x == T{}; }
inline bool isZero(Zor16sc x) { return x.re == 0 && x.im == 0; }
template <class T> ZorStatus statusFor(const T* divisors, int len) {
  return std::any_of(divisors, divisors + len, [](T x) { return isZero(x); }) ? zorWarningDivideByZero : zorStatusOk;
}
// For sweeps, which expect success: success where the status is the wanted one.
inline ZorStatus successIf(ZorStatus got, ZorStatus wanted) {
  return got == wanted ? zorStatusOk : zorStatusBadArgument;
}

// Scale factors on both sides of all limits, and the extremes.
inline std::vector<int> allScales() {
  std::vector<int> scales{INT32_MIN, INT32_MIN + 1, -1000, -200, -128,          -127,
                          127,       128,           200,   1000, INT32_MAX - 1, INT32_MAX};
  for (int s = -70; s <= 70; ++s) scales.push_back(s);
  return scales;
}
// Scale factors around every limit of the 8- and 16-bit members.
inline std::vector<int> narrowScales() {
  std::vector<int> scales{INT32_MIN, -64, -40, 40, 64, INT32_MAX};
  for (int s = -33; s <= 19; ++s) scales.push_back(s);
  return scales;
}
template <class T> std::vector<T> everyValue() {
  static_assert(sizeof(T) <= 2);
  std::vector<T> all;
  for (int x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x) all.push_back(T(x));
  return all;
}
// Extremes, neighbours of powers of two, and odd ones between.
template <class T> std::vector<T> tellingValues() {
  using L = std::numeric_limits<T>;
  std::vector<T> values{0,
                        1,
                        2,
                        3,
                        5,
                        7,
                        10,
                        100,
                        255,
                        T(257),
                        T(10007),
                        T(21845),
                        T(32749),
                        L::max(),
                        T(L::max() - 1),
                        T(L::max() / 2),
                        T(L::max() / 2 + 1)};
  if (std::is_signed_v<T>)
    for (int x : {-1, -2, -3, -77, -1000, -12345, -32767, int{L::min()}}) values.push_back(T(x));
  return values;
}

}  // namespace quotient
