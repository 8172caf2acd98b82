// zorsIIRGenLowpass_64f, zorsIIRGenHighpass_64f: Butterworth and Chebyshev filters by the bilinear transform.
#include <cmath>
#include <numbers>

#include "exports/design.h"
#include "frame/check.h"

namespace zors {
namespace {

enum class Band { low, high };
constexpr Zor32s butterworth = 0, chebyshev = 1;
constexpr Zor32s maxOrder = 12;

// A polynomial in 1/z of growing degree, c[0] + c[1]/z + ...
struct Polynomial {
  Zor64f c[maxOrder + 1] = {1};
  Zor32s degree = 0;

  void multiply(Zor64f linear, Zor64f square, Zor32s by) {  // by 1 + linear/z + square/z^2
    degree += by;
    for (Zor32s i = degree; i > 0; --i) c[i] += linear * c[i - 1] + (i > 1 ? square * c[i - 2] : 0);
  }
  Zor64f at(Band band) const {  // at z = 1, or at z = -1
    Zor64f sum = 0;
    for (Zor32s i = 0; i <= degree; ++i) sum += band == Band::high && i % 2 == 1 ? -c[i] : c[i];
    return sum;
  }
};

// The analogue poles lie on a circle, or on the ellipse of the axes sinh(mu) and cosh(mu).
struct Ellipse {
  Zor64f real = 1, imag = 1;
};
Ellipse ellipse(Zor32s filterType, Zor64f ripple, Zor32s order) {
  if (filterType == butterworth) return {};
  const Zor64f e = std::sqrt(std::pow(10, ripple / 10) - 1);
  const Zor64f mu = std::log(1 / e + std::sqrt(1 / (e * e) + 1)) / order;
  return {std::sinh(mu), std::cosh(mu)};
}

// Poles p at the edge frequency 1 go to z = (1 + q) / (1 - q) with q = t p, or t / p for a highpass, t = tan(pi freq):
// the transform with the constant 2 of a pole prewarped to 4 t p. Pairs stay pairs, so all arithmetic is real.
void design(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType, Band band) {
  const Zor64f t = std::tan(std::numbers::pi * freq);
  const Ellipse axes = ellipse(filterType, ripple, order);
  Polynomial denominator, numerator;
  for (Zor32s k = 0; k < order / 2; ++k) {
    const Zor64f angle = std::numbers::pi / 2 + std::numbers::pi * (2 * k + 1) / (2 * order);
    const Zor64f re = axes.real * std::cos(angle), im = axes.imag * std::sin(angle);
    const Zor64f scale = band == Band::low ? t : t / (re * re + im * im);
    const Zor64f u = scale * re, v = scale * im;
    const Zor64f norm = (1 - u) * (1 - u) + v * v;
    denominator.multiply(-2 * (1 - u * u - v * v) / norm, ((1 + u) * (1 + u) + v * v) / norm, 2);
  }
  if (order % 2 == 1) {
    const Zor64f q = band == Band::low ? -t * axes.real : -t / axes.real;
    denominator.multiply(-(1 + q) / (1 - q), 0, 1);
  }
  const Zor64f zero = band == Band::low ? -1 : 1;
  for (Zor32s k = 0; k < order; ++k) numerator.multiply(-zero, 0, 1);

  Zor64f gain = denominator.at(band) / numerator.at(band);
  if (filterType == chebyshev && order % 2 == 0) gain *= std::pow(10, -ripple / 20);
  for (Zor32s i = 0; i <= order; ++i) taps[i] = gain * numerator.c[i];
  for (Zor32s i = 0; i <= order; ++i) taps[order + 1 + i] = denominator.c[i];
}

ZorStatus checkedDesign(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType, Band band) {
  return check()
      .pointers(taps)
      .require(freq > 0 && freq < 0.5, zorStatusBadIirGenFrequency)
      .require(order >= 1 && order <= maxOrder, zorStatusBadIirGenOrder)
      .require(filterType != chebyshev || (ripple > 0 && ripple <= 29), zorStatusBadIirGenRipple)
      .then([&] {
        if (filterType == butterworth || filterType == chebyshev) design(freq, ripple, order, taps, filterType, band);
      });
}

}  // namespace

ZorStatus zorsIIRGenLowpass_64f(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType) {
  return checkedDesign(freq, ripple, order, taps, filterType, Band::low);
}
ZorStatus zorsIIRGenHighpass_64f(Zor64f freq, Zor64f ripple, Zor32s order, Zor64f* taps, Zor32s filterType) {
  return checkedDesign(freq, ripple, order, taps, filterType, Band::high);
}

}  // namespace zors
