// Windowed ideal filters: taps against the formulas in long double, responses,
// symmetry, normalisation.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "zors/design.h"
#include "zors/windows.h"

namespace {

using kit::Edge;
using kit::Guarded;
constexpr long double pi = 3.14159265358979323846264338327950288L;

enum class Band { lowpass, highpass, bandpass, bandstop };
constexpr Band bands[] = {Band::lowpass, Band::highpass, Band::bandpass, Band::bandstop};
const char* nameOf(Band band) {
  static const char* const names[] = {"zorsFIRGenLowpass_64f", "zorsFIRGenHighpass_64f", "zorsFIRGenBandpass_64f",
                                      "zorsFIRGenBandstop_64f"};
  return names[int(band)];
}
bool hasTwo(Band band) { return band == Band::bandpass || band == Band::bandstop; }
ZorStatus design(Band band, double low, double high, Zor64f* taps, int len, int window, int normalise) {
  switch (band) {
    case Band::lowpass:
      return zorsFIRGenLowpass_64f(low, taps, len, window, normalise);
    case Band::highpass:
      return zorsFIRGenHighpass_64f(low, taps, len, window, normalise);
    case Band::bandpass:
      return zorsFIRGenBandpass_64f(low, high, taps, len, window, normalise);
    default:
      return zorsFIRGenBandstop_64f(low, high, taps, len, window, normalise);
  }
}

// The gain at a frequency of taps that are symmetric, or antisymmetric, about
// their middle: without the phase.
long double gainAt(const std::vector<Zor64f>& taps, long double frequency, bool antisymmetric) {
  long double sum = 0;
  for (std::size_t i = 0; i < taps.size(); ++i) {
    const long double angle =
        2 * pi * frequency * (static_cast<long double>(i) - static_cast<long double>(taps.size() - 1) / 2);
    sum += static_cast<long double>(taps[i]) * (antisymmetric ? std::sin(angle) : std::cos(angle));
  }
  return sum;
}

std::vector<Zor64f> model(Band band, double low, double high, int len, int window, bool normalise) {
  std::vector<Zor64f> taps(std::size_t(len), 0.0);
  const int h = len / 2;
  const bool odd = len % 2 == 1;
  for (int i = 0; i < h; ++i) {
    const long double m = static_cast<long double>(len - 1) / 2 - i;
    const auto sine = [&](long double f) { return std::sin(2 * pi * f * m) / (pi * m); };
    const long double tap = band == Band::lowpass    ? sine(low)
                            : band == Band::bandpass ? sine(high) - sine(low)
                            : band == Band::bandstop ? sine(low) - sine(high)
                            : odd                    ? -sine(low)
                                                     : std::cos(2 * pi * low * m) / (pi * m);
    taps[std::size_t(i)] = double(tap);
  }
  const double width = hasTwo(band) ? high - low : low;
  if (odd) taps[std::size_t(h)] = band == Band::lowpass || band == Band::bandpass ? 2 * width : 1 - 2 * width;
  if (window == 0) zorsWinBartlett_64f_I(taps.data(), len);
  if (window == 1) zorsWinBlackmanOpt_64f_I(taps.data(), len);
  if (window == 2) zorsWinHamming_64f_I(taps.data(), len);
  if (window == 3) zorsWinHann_64f_I(taps.data(), len);
  const bool antisymmetric = band == Band::highpass && !odd;
  for (int i = 0; i < h; ++i) taps[std::size_t(len - 1 - i)] = (antisymmetric ? -1 : 1) * taps[std::size_t(i)];
  if (normalise) {
    const long double at = band == Band::bandpass ? (low + high) / 2 : band == Band::highpass ? 0.5 : 0;
    const long double scale = 1 / std::fabs(gainAt(taps, at, antisymmetric));
    for (Zor64f& tap : taps) tap = double(tap * scale);
  }
  return taps;
}

TEST(FirDesign, TapsAreTheFormulas) {
  for (Band band : bands)
    for (int len : {5, 6, 7, 8, 9, 10, 31, 32, 33, 64, 101, 200, 501})
      for (auto [low, high] : {std::pair{0.1, 0.2}, {0.25, 0.4}, {0.24999, 0.3}, {1e-3, 0.499}, {0.3, 0.3001}})
        for (int window : {0, 1, 2, 3, 4, -1, INT32_MAX, INT32_MIN})
          for (int normalise : {0, 1, -7}) {
            const Guarded<Zor64f> taps(std::size_t(len), len % 3 == 0 ? Edge::begin : Edge::end);
            const std::string what = std::string(nameOf(band)) + ", len " + std::to_string(len) + ", window " +
                                     std::to_string(window) + ", " + std::to_string(low) + ", normalise " +
                                     std::to_string(normalise);
            kit::ServicesScope services;
            ASSERT_EQ(design(band, low, high, taps.data(), len, window, normalise), zorStatusOk) << what;
            EXPECT_EQ(services.leaked(), 0);
            ASSERT_TRUE(taps.intact()) << what;
            const auto wanted = model(band, low, high, len, window, normalise != 0);
            // A gain near 0, as that of a band stop without a middle tap, enlarges what rounding left.
            const auto largest = [](const std::vector<Zor64f>& all) {
              double most = 0;
              for (Zor64f tap : all) most = std::max(most, std::fabs(tap));
              return most;
            };
            const double most = largest(wanted);
            const double grown = most / largest(model(band, low, high, len, window, false));
            for (int i = 0; i < len; ++i)
              ASSERT_NEAR(taps[std::size_t(i)], wanted[std::size_t(i)], 1e-11 * most * std::max(1.0, grown))
                  << what << ", " << i;
          }
}

TEST(FirDesign, HalvesMirrorBitForBit) {
  for (Band band : bands)
    for (int len : {5, 6, 40, 41})
      for (int window : {1, 9}) {
        std::vector<Zor64f> taps(static_cast<std::size_t>(len));
        ASSERT_EQ(design(band, 0.11, 0.23, taps.data(), len, window, 1), zorStatusOk);
        const double sign = band == Band::highpass && len % 2 == 0 ? -1 : 1;
        double sum = 0;
        for (int i = 0; i < len / 2; ++i) {
          EXPECT_EQ(taps[std::size_t(len - 1 - i)], sign * taps[std::size_t(i)]) << nameOf(band);
          sum += taps[std::size_t(i)] + taps[std::size_t(len - 1 - i)];
        }
        if (sign < 0) {
          EXPECT_EQ(sum, 0) << "the gain at 0 of an even highpass";
        }
      }
}

TEST(FirDesign, NormalisedGainsAreOneAndBandsStopAndPass) {
  for (Band band : bands)
    for (int len : {101, 102})
      for (int window = 0; window <= 3; ++window) {
        std::vector<Zor64f> taps(static_cast<std::size_t>(len));
        const double low = 0.15, high = 0.3;
        ASSERT_EQ(design(band, low, high, taps.data(), len, window, 1), zorStatusOk);
        const bool antisymmetric = band == Band::highpass && len % 2 == 0;
        const double at = band == Band::bandpass ? (low + high) / 2 : band == Band::highpass ? 0.5 : 0;
        EXPECT_NEAR(double(std::fabs(gainAt(taps, at, antisymmetric))), 1,
                    band == Band::bandstop && len % 2 == 0 ? 1e-8 : 1e-12)
            << nameOf(band) << " " << window;
        // Without a middle tap, the delta of an ideal band stop, nothing is stopped.
        if (band == Band::bandstop && len % 2 == 0) continue;
        for (int i = 0; i <= 100; ++i) {
          const double frequency = 0.5 * i / 100, width = 0.045;
          const bool inside = frequency >= low && (frequency <= high || !hasTwo(band));
          const bool passes = inside == (band == Band::highpass || band == Band::bandpass);
          if (std::fabs(frequency - low) < width || (hasTwo(band) && std::fabs(frequency - high) < width)) continue;
          const double gain = double(std::fabs(gainAt(taps, frequency, antisymmetric)));
          const double ripple = window == 0 ? 0.06 : 0.011;
          ASSERT_NEAR(gain, passes ? 1 : 0, ripple) << nameOf(band) << ", window " << window << " at " << frequency;
        }
      }
}

TEST(FirDesign, ChecksInTheirOrder) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
  std::vector<Zor64f> taps(8, 7.0);
  for (auto* f : {zorsFIRGenLowpass_64f, zorsFIRGenHighpass_64f})
    kit::Contract(f, 0.2, taps.data(), 8, 2, 1)
        .null<1>()
        .bad<2>({4, 0, -1, INT32_MIN}, zorStatusBadSize)
        .bad<0>({0.0, 0.5, -0.1, 0.6, nan, inf, -inf}, zorStatusBadSize)
        .untouched(taps)
        .verify("one edge");
  for (auto* f : {zorsFIRGenBandpass_64f, zorsFIRGenBandstop_64f})
    kit::Contract(f, 0.2, 0.3, taps.data(), 8, 2, 1)
        .null<2>()
        .bad<3>({4, 0, -1, INT32_MIN}, zorStatusBadSize)
        .bad<0>({0.0, 0.5, -0.1, 0.3, 0.31, nan, inf}, zorStatusBadSize)
        .bad<1>({0.0, 0.5, -0.1, 0.2, 0.1, nan, inf}, zorStatusBadSize)
        .untouched(taps)
        .verify("two edges");
}

TEST(FirDesign, MemoryThatIsRefusedIsANullPointerAndNothingIsKept) {
  for (Band band : bands) {
    std::vector<Zor64f> taps(9, 7.0);
    const int taken = kit::failEachAllocation([&] { return design(band, 0.1, 0.2, taps.data(), 9, 2, 1); },
                                              [&](int n, ZorStatus status) {
                                                EXPECT_EQ(status, n >= 0 ? zorStatusNullPointer : zorStatusOk);
                                                EXPECT_EQ(taps == std::vector<Zor64f>(9, 7.0), n >= 0);
                                                EXPECT_EQ(kit::services().live, 0);
                                              });
    EXPECT_EQ(taken, hasTwo(band) ? 2 : 1) << nameOf(band);
    // Tones that no block of 32-bit size holds.
    EXPECT_EQ(design(band, 0.1, 0.2, taps.data(), INT32_MAX, 2, 1), zorStatusNullPointer);
  }
}

// Just below a quarter, and just below a half, a tone's phase may round to a
// whole turn.
TEST(FirDesign, EdgesWhereAPhaseRoundsToAWholeTurn) {
  for (int len : {9, 10})
    for (double f : {std::nextafter(0.25, 0.0), 0.25, std::nextafter(0.5, 0.0), std::nextafter(0.0, 1.0), 1e-300})
      for (Band band : {Band::lowpass, Band::highpass}) {
        std::vector<Zor64f> taps(static_cast<std::size_t>(len));
        ASSERT_EQ(design(band, f, 0, taps.data(), len, 9, 0), zorStatusOk);
        const auto wanted = model(band, f, 0, len, 9, false);
        for (std::size_t i = 0; i < taps.size(); ++i) ASSERT_NEAR(taps[i], wanted[i], 1e-12) << nameOf(band) << f;
      }
}

}  // namespace
