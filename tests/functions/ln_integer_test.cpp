#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::firstBadLogarithm;
using transcendental::withStatus;
using transcendental::withStatusInPlace;

enum class Log { natural, decibels };

// The logarithm in binary32 for scales below 0: x = m 2^e with m around 1, s = (m - 1) / (m + 1).
Zor32f kernel(Log log, Zor32s x) {
  const auto bits = std::bit_cast<Zor32u>(static_cast<Zor32f>(x));
  Zor32u field = bits & 0x7FFFFF, exponent = 127;
  int e = static_cast<int>(bits >> 23) - 127;
  if (field > 0x3504F2) {
    exponent = 126;
    ++e;
  }
  const auto m = std::bit_cast<Zor32f>(exponent << 23 | field);
  const Zor32f s = (m - 1) / (m + 1), z = s * s;
  Zor32f p = 0.23762455582618713f;
  for (Zor32f c : {0.2852538228034973f, 0.400005966424942f, 0.6666666269302368f, 2.0f}) p = std::fma(p, z, c);
  const Zor32f y = std::fma(static_cast<Zor32f>(e), 0.6931471824645996f, s * p);
  return log == Log::natural ? y : y * 4.3429446f;
}
template <class D> D logarithm(Log log, Zor32s x, Zor32s scale) {
  using L = std::numeric_limits<D>;
  if (x <= 0) return L::min();
  Zor64s value;
  if (scale >= 0) {
    const long double exact = log == Log::natural ? logl(x) : 10 * log10l(x);
    value = lrintl(exact) >> (scale & 31);
  } else {
    const Zor32f y = kernel(log, x);
    if (y == 0) return 0;
    const Zor64f scaled = std::ldexp(static_cast<Zor64f>(y), -std::max(scale, -127));
    value = static_cast<Zor64s>(std::nearbyint(std::min(scaled, 2147483520.0)));
  }
  return static_cast<D>(std::min<Zor64s>(value, L::max()));
}

const std::vector<Zor32s> scales = {INT_MIN, -200, -128, -127, -31, -30, -26, -25, -13, -12, -4,  -1,
                                    0,       1,    2,    4,    5,   31,  32,  33,  34,  64,  100, INT_MAX};

template <class S, class D> void logarithms(const char* name, Log log, ZorStatus (*f)(const S*, D*, Zor32s, Zor32s)) {
  for (Zor32s scale : scales)
    sweep<D, S>(
        name, withStatus(firstBadLogarithm, f, scale), [=](S x) { return logarithm<D>(log, x, scale); },
        scale == 0 || scale == -4 ? kit::sweepLengths() : kit::fewLengths());
}
template <class T> void logarithmsInPlace(const char* name, Log log, ZorStatus (*f)(T*, Zor32s, Zor32s)) {
  for (Zor32s scale : scales)
    sweepInPlace<T>(
        name, withStatusInPlace(firstBadLogarithm, f, scale), [=](T x) { return logarithm<T>(log, x, scale); },
        kit::fewLengths());
}
TEST(LnOfIntegers, RoundsThenShiftsOrScalesABinary32Logarithm) {
  logarithms("zorsLn_16s_Sfs", Log::natural, zorsLn_16s_Sfs);
  logarithms("zorsLn_32s_Sfs", Log::natural, zorsLn_32s_Sfs);
  logarithms("zorsLn_32s16s_Sfs", Log::natural, zorsLn_32s16s_Sfs);
  logarithms("zors10Log10_32s_Sfs", Log::decibels, zors10Log10_32s_Sfs);
  logarithmsInPlace("zorsLn_16s_ISfs", Log::natural, zorsLn_16s_ISfs);
  logarithmsInPlace("zorsLn_32s_ISfs", Log::natural, zorsLn_32s_ISfs);
  logarithmsInPlace("zors10Log10_32s_ISfs", Log::decibels, zors10Log10_32s_ISfs);
}

// Both sides of every boundary, powers of two and their neighbours.
std::vector<Zor32s> criticalElements() {
  std::vector<Zor32s> x;
  const auto around = [&](long double value) {
    for (int d = -2; d <= 2; ++d)
      if (value + d >= 1 && value + d <= INT32_MAX) x.push_back(static_cast<Zor32s>(value + d));
  };
  for (int k = 1; k < 23; ++k) around(expl(k - 0.5L));
  for (int k = 1; k < 95; ++k) around(powl(10, (k - 0.5L) / 10));
  for (int k = 0; k <= 31; ++k) around(std::ldexp(1.0L, k));
  return x;
}
TEST(LnOfIntegers, EveryBoundaryFallsWhereTheRoundedLogarithmSteps) {
  const auto x = criticalElements();
  std::vector<Zor32s> y(x.size()), decibels(x.size());
  std::vector<Zor16s> narrow(x.size());
  const auto len = static_cast<Zor32s>(x.size());
  for (Zor32s scale : {0, 1, 3}) {
    ASSERT_EQ(zorsLn_32s_Sfs(x.data(), y.data(), len, scale), zorStatusOk);
    ASSERT_EQ(zorsLn_32s16s_Sfs(x.data(), narrow.data(), len, scale), zorStatusOk);
    ASSERT_EQ(zors10Log10_32s_Sfs(x.data(), decibels.data(), len, scale), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) {
      EXPECT_EQ(y[i], logarithm<Zor32s>(Log::natural, x[i], scale)) << x[i];
      EXPECT_EQ(narrow[i], y[i]) << x[i];
      EXPECT_EQ(decibels[i], logarithm<Zor32s>(Log::decibels, x[i], scale)) << x[i];
    }
  }
}
TEST(LnOfIntegers, EverySixteenBitElement) {
  std::vector<Zor16s> all(65536), got(65536);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<Zor16s>(i);
  for (Zor32s scale : {0, 1, -1, -8, -11, -12}) {
    ASSERT_EQ(zorsLn_16s_Sfs(all.data(), got.data(), 65536, scale), zorWarningLogOfZero);
    for (std::size_t i = 0; i < all.size(); ++i)
      ASSERT_EQ(got[i], logarithm<Zor16s>(Log::natural, all[i], scale)) << all[i] << " " << scale;
  }
}
TEST(LnOfIntegers, FourGivesOneFiveGivesTwoOneGivesZeroAndZeroTheLowestValue) {
  Zor32s x[] = {4, 5, 1, 0};
  EXPECT_EQ(zorsLn_32s_ISfs(x, 4, 0), zorWarningLogOfZero);
  EXPECT_EQ(x[0], 1);
  EXPECT_EQ(x[1], 2);
  EXPECT_EQ(x[2], 0);
  EXPECT_EQ(x[3], INT32_MIN);
}
TEST(LnOfIntegers, OneGivesZeroAtEveryScale) {
  for (Zor32s scale : scales) {
    Zor32s x[] = {1};
    Zor16s y[] = {1};
    zors10Log10_32s_ISfs(x, 1, scale);
    zorsLn_16s_ISfs(y, 1, scale);
    EXPECT_EQ(x[0], 0) << scale;
    EXPECT_EQ(y[0], 0) << scale;
  }
}
TEST(LnOfIntegers, TheFirstZeroOrNegativeElementDecidesAtEveryScale) {
  for (Zor32s scale : {-5, 0, 3})
    for (const std::size_t first : {0u, 5u, 17u, 255u, 256u, 600u})
      for (std::size_t second : {first + 1, first + 13, first + 300}) {
        std::vector<Zor32s> x(1000, 9), y(1000);
        x[first] = 0;
        x[second] = -4;
        EXPECT_EQ(zorsLn_32s_Sfs(x.data(), y.data(), 1000, scale), zorWarningLogOfZero);
        std::swap(x[first], x[second]);
        EXPECT_EQ(zorsLn_32s_Sfs(x.data(), y.data(), 1000, scale), zorWarningLogOfNegative);
        EXPECT_TRUE(y[first] == INT32_MIN && y[second] == INT32_MIN);
      }
}
TEST(LnOfIntegers, DoesNotDependOnTheRoundingDirection) {
  const auto x = criticalElements();
  for (unsigned direction : kit::allDirections) {
    auto y = x;
    {
      const kit::Direction scope(direction);
      ASSERT_EQ(zorsLn_32s_ISfs(y.data(), static_cast<Zor32s>(y.size()), -20), zorStatusOk);
    }
    for (std::size_t i = 0; i < x.size(); ++i) ASSERT_EQ(y[i], logarithm<Zor32s>(Log::natural, x[i], -20)) << x[i];
  }
}
TEST(LnOfIntegers, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  for (Zor32s scale : {-3, 0}) {
    checksPointersThenLength("zorsLn_16s_Sfs", zorsLn_16s_Sfs, scale);
    checksPointersThenLength("zorsLn_32s_Sfs", zorsLn_32s_Sfs, scale);
    checksPointersThenLength("zorsLn_32s16s_Sfs", zorsLn_32s16s_Sfs, scale);
    checksPointersThenLength("zors10Log10_32s_Sfs", zors10Log10_32s_Sfs, scale);
    checksPointerThenLength("zorsLn_16s_ISfs", zorsLn_16s_ISfs, scale);
    checksPointerThenLength("zorsLn_32s_ISfs", zorsLn_32s_ISfs, scale);
    checksPointerThenLength("zors10Log10_32s_ISfs", zors10Log10_32s_ISfs, scale);
  }
}

}  // namespace
