// Butterworth and Chebyshev filters: their responses, computed from the taps, are the closed formulas' squares of
// magnitude.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <limits>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "zors/design.h"
#include "zors/iir.h"

namespace {

using kit::Edge;
using kit::Guarded;
using Complex = std::complex<long double>;
constexpr long double pi = 3.14159265358979323846264338327950288L;

struct Design {
  const char* name;
  ZorStatus (*call)(Zor64f, Zor64f, Zor32s, Zor64f*, Zor32s);
  bool highpass;
};
constexpr Design designs[] = {{"zorsIIRGenLowpass_64f", zorsIIRGenLowpass_64f, false},
                              {"zorsIIRGenHighpass_64f", zorsIIRGenHighpass_64f, true}};

Complex response(const Zor64f* taps, int order, long double frequency) {
  Complex b = 0, a = 0;
  for (int k = 0; k <= order; ++k) {
    const Complex turn = std::polar(1.0L, -2 * pi * frequency * k);
    b += static_cast<long double>(taps[k]) * turn;
    a += static_cast<long double>(taps[order + 1 + k]) * turn;
  }
  return b / a;
}
// cos(n arccos x), and beyond 1 what it grows to.
long double chebyshev(int n, long double x) {
  return std::fabs(x) <= 1 ? std::cos(static_cast<long double>(n) * std::acos(x))
                           : std::cosh(static_cast<long double>(n) * std::acosh(std::fabs(x)));
}
long double wantedSquare(const Design& d, int order, long double edge, long double ripple, int type,
                         long double frequency) {
  const long double there = std::tan(pi * frequency), here = std::tan(pi * edge);
  const long double x = d.highpass ? here / there : there / here;
  if (type == 0) return 1 / (1 + std::pow(x, 2.0L * order));
  const long double t = chebyshev(order, x);
  return 1 / (1 + (std::pow(10.0L, ripple / 10) - 1) * t * t);
}

TEST(IirDesign, ResponsesAreTheClosedFormulas) {
  for (const Design& d : designs)
    for (int order = 1; order <= 12; ++order)
      for (double edge : {0.05, 0.1, 0.2, 0.25, 0.33, 0.4, 0.45})
        for (auto [type, ripple] : {std::pair{0, 0.0}, {1, 0.1}, {1, 1.0}, {1, 3.0}, {1, 29.0}}) {
          const Guarded<Zor64f> taps(std::size_t(2 * order + 2), Edge::end);
          ASSERT_EQ(d.call(edge, ripple, order, taps.data(), type), zorStatusOk);
          ASSERT_TRUE(taps.intact());
          ASSERT_EQ(taps[std::size_t(order) + 1], 1.0);
          // What rounded denominators make of a response: the more their terms cancel, there and where the gain is set.
          const auto enlarged = [&](long double frequency) {
            std::complex<long double> sum = 0;
            long double magnitudes = 0;
            for (int k = 0; k <= order; ++k) {
              const long double a = taps[std::size_t(order + 1 + k)];
              sum += a * std::polar(1.0L, -2 * pi * frequency * k);
              magnitudes += std::fabs(a);
            }
            return magnitudes / std::abs(sum);
          };
          const long double atGain = enlarged(d.highpass ? 0.5L : 0);
          for (int i = 0; i <= 50; ++i) {
            const long double frequency = 0.4999L * i / 50 + (d.highpass ? 1e-4L : 0);
            const long double got = std::norm(response(taps.data(), order, frequency));
            const long double wanted = wantedSquare(d, order, edge, ripple, type, frequency);
            const long double tolerance = 1e-10L + 1e-15L * order * (atGain + enlarged(frequency)) * (1 + wanted);
            ASSERT_LE(std::fabs(got - wanted), tolerance) << d.name << " order " << order << " edge " << edge
                                                          << " ripple " << ripple << " at " << double(frequency);
          }
        }
}

TEST(IirDesign, GainAtZeroOrHalfIsOneOrTheRipplesBottom) {
  for (const Design& d : designs)
    for (int order = 1; order <= 12; ++order)
      for (double edge : {0.02, 0.05, 0.25, 0.48})
        for (auto [type, ripple] : {std::pair{0, -5.0}, {1, 0.5}, {1, 29.0}}) {
          std::vector<Zor64f> taps(26);
          ASSERT_EQ(d.call(edge, ripple, order, taps.data(), type), zorStatusOk);
          // By the sums that the gain is made from.
          double b = 0, a = 0;
          for (int k = 0; k <= order; ++k) {
            const double sign = d.highpass && k % 2 == 1 ? -1 : 1;
            b += sign * taps[std::size_t(k)];
            a += sign * taps[std::size_t(order + 1 + k)];
          }
          const double wanted = type == 1 && order % 2 == 0 ? std::pow(10, -ripple / 20) : 1;
          EXPECT_NEAR(b / a / wanted, 1, 1e-9) << d.name << " order " << order << " edge " << edge;
        }
}

TEST(IirDesign, DesignedFiltersRunAndAreStable) {
  for (const Design& d : designs)
    for (int order = 1; order <= 12; ++order)
      for (int type : {0, 1}) {
        std::vector<Zor64f> taps(26), x(5000), y(5000);
        ASSERT_EQ(d.call(0.2, 1, order, taps.data(), type), zorStatusOk);
        x[0] = 1;
        ZorIIRState* state = nullptr;
        ASSERT_EQ(zorsIIRInitAlloc_64f(&state, taps.data(), order, nullptr), zorStatusOk);
        zorsIIR_64f(x.data(), y.data(), 5000, state);
        zorsIIRFree_64f(state);
        for (std::size_t i = 3000; i < y.size(); ++i) ASSERT_LT(std::fabs(y[i]), 1e-9) << d.name << order;
      }
}

TEST(IirDesign, ChecksInTheirOrder) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
  for (const Design& d : designs) {
    std::vector<Zor64f> taps(26, 7.0);
    kit::Contract contract(d.call, 0.2, 1.0, 3, taps.data(), 1);
    contract.null<3>()
        .bad<0>({0.0, 0.5, -0.1, 0.6, nan, inf}, zorStatusBadIirGenFrequency)
        .bad<2>({0, -1, 13, INT32_MIN, INT32_MAX}, zorStatusBadIirGenOrder)
        .bad<1>({0.0, -1.0, 29.0001, nan, inf}, zorStatusBadIirGenRipple)
        .untouched(taps)
        .verify(d.name);
    // An unknown type is no error and writes nothing, after frequency and order were judged.
    for (int type : {2, -1, INT32_MAX, INT32_MIN}) {
      EXPECT_EQ(d.call(0.2, nan, 3, taps.data(), type), zorStatusOk);
      EXPECT_EQ(d.call(0.6, nan, 3, taps.data(), type), zorStatusBadIirGenFrequency);
      EXPECT_EQ(d.call(0.2, nan, 13, taps.data(), type), zorStatusBadIirGenOrder);
      EXPECT_EQ(d.call(0.2, nan, 3, nullptr, type), zorStatusNullPointer);
    }
    EXPECT_EQ(taps, std::vector<Zor64f>(26, 7.0));
    EXPECT_EQ(d.call(0.2, nan, 3, taps.data(), 0), zorStatusOk) << "Butterworth does not look at the ripple";
    EXPECT_EQ(d.call(0.2, 29, 12, taps.data(), 1), zorStatusOk);
    EXPECT_EQ(d.call(1e-300, 1, 12, taps.data(), 1), zorStatusOk);
    EXPECT_EQ(d.call(std::nextafter(0.5, 0.0), 1, 12, taps.data(), 1), zorStatusOk);
  }
}

}  // namespace
