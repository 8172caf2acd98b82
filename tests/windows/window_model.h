// Weights of the windows in extended precision, by their formulas.
#pragma once

#include <cmath>
#include <iterator>
#include <numbers>

namespace windows {

enum class Curve { bartlett, hann, hamming, blackman, kaiserCoarse, kaiserFine };

inline long double horner(long double z, const long double* c, std::size_t n) {
  long double sum = 0;
  while (n-- > 0) sum = sum * z + c[n];
  return sum;
}

// I0 by the two fits in use.
inline long double besselCoarse(long double x) {
  static const long double low[] = {1, 3.5156229L, 3.0899424L, 1.2067492L, 0.2659732L, 0.0360768L, 0.0045813L};
  static const long double high[] = {0.39894228L,  0.01328592L, 0.00225319L,  -0.00157565L, 0.00916281L,
                                     -0.02057706L, 0.02635537L, -0.01647633L, 0.00392377L};
  const long double t = x / 3.75L;
  return x < 3.75L ? horner(t * t, low, std::size(low))
                   : std::exp(x) / std::sqrt(x) * horner(1 / t, high, std::size(high));
}
inline long double besselFine(long double x) {
  static const long double low[] = {0.9999999985L, 4.0000001935L, 3.9999959541L, 1.777809969L,
                                    0.4443189384L, 0.0713758187L, 0.0075942968L, 0.0008267816L};
  static const long double high[] = {0.3989422809L,  0.0124667783L,  0.0017623668L,  0.00026L,      0.0022585672L,
                                     -0.0128314822L, 0.0495811118L,  -0.1209940805L, 0.1895476618L, -0.1867783276L,
                                     0.1113315511L,  -0.0366694767L, 0.0051246015L};
  const long double t = x / 4;
  return x < 4 ? horner(t * t, low, std::size(low)) : std::exp(x) / std::sqrt(x) * horner(1 / t, high, std::size(high));
}
// I0 by its series: sum of ((x / 2)^k / k!)^2.
inline long double besselSeries(long double x) {
  long double term = 1, sum = 1;
  for (int k = 1; k < 2000 && term > sum * 1e-20L; ++k) {
    term *= (x / 2 / k) * (x / 2 / k);
    sum += term;
  }
  return sum;
}

inline long double weight(Curve curve, long n, long len, long double alpha) {
  const long double last = static_cast<long double>(len - 1),
                    t = 2 * std::numbers::pi_v<long double> * static_cast<long double>(n) / last;
  const auto kaiser = [&](auto bessel) {
    return bessel(std::fabs(alpha) * std::sqrt(static_cast<long double>(n) * static_cast<long double>(len - 1 - n))) /
           bessel(std::fabs(alpha) * last / 2);
  };
  switch (curve) {
    case Curve::bartlett:
      return 2 * static_cast<long double>(n < len - 1 - n ? n : len - 1 - n) / last;
    case Curve::hann:
      return 0.5L - 0.5L * std::cos(t);
    case Curve::hamming:
      return 0.54L - 0.46L * std::cos(t);
    case Curve::blackman:
      return (alpha + 1) / 2 - 0.5L * std::cos(t) - alpha / 2 * std::cos(2 * t);
    case Curve::kaiserCoarse:
      return kaiser(besselCoarse);
    default:
      return kaiser(besselFine);
  }
}

}  // namespace windows
