#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::noWarning;
using transcendental::withStatus;
using transcendental::withStatusInPlace;

// The binary64 exponential, divided by 2^scale, to nearest even, saturated; an infinite one saturates.
template <class T> T exponential(T x, Zor32s scale) {
  const Zor64f power = std::exp(static_cast<Zor64f>(x));
  const long double value = rintl(std::ldexp(static_cast<long double>(power), -std::clamp(scale, -9000, 9000)));
  const auto highest = std::numeric_limits<T>::max();
  return value >= static_cast<long double>(highest) ? highest : static_cast<T>(value);
}
Zor16s exponential16(Zor16s x, Zor32s scale) { return scale > 16 ? Zor16s{0} : exponential(x, scale); }

const std::vector<Zor32s> scales = {INT_MIN, -3000, -1100, -1075, -1074, -1000, -64, -40, -15, -14, -3, -1,   0,      1,
                                    2,       5,     15,    16,    17,    18,    31,  32,  63,  64,  65, 1100, INT_MAX};

// Arguments around those whose results are neither 0 nor saturated.
template <class T> std::vector<T> arguments() {
  std::vector<T> x;
  for (int k = -800; k <= 800; ++k) x.push_back(T(k));
  for (T extreme : {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()}) x.push_back(extreme);
  return x;
}
template <class T>
void exponentials(const char* name, ZorStatus (*f)(const T*, T*, Zor32s, Zor32s),
                  ZorStatus (*inPlace)(T*, Zor32s, Zor32s), T (*model)(T, Zor32s)) {
  const auto x = arguments<T>();
  std::vector<T> y(x.size());
  for (Zor32s scale : scales) {
    const auto one = [=](T a) { return model(a, scale); };
    const auto& lengths = scale == 0 || scale == -3 ? kit::sweepLengths() : kit::fewLengths();
    sweep<T, T>(name, withStatus(noWarning, f, scale), one, lengths);
    sweepInPlace<T>(name, withStatusInPlace(noWarning, inPlace, scale), one, kit::fewLengths());
  }
  for (Zor32s scale = -1100; scale <= 1100; scale += scale < -40 || scale > 40 ? 53 : 1) {
    ASSERT_EQ(f(x.data(), y.data(), static_cast<Zor32s>(x.size()), scale), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) ASSERT_EQ(y[i], model(x[i], scale)) << name << x[i] << " " << scale;
  }
}
TEST(ExpOfIntegers, RoundsTheScaledExponentialAndSaturates) {
  exponentials("zorsExp_16s_Sfs, zorsExp_16s_ISfs", zorsExp_16s_Sfs, zorsExp_16s_ISfs, exponential16);
  exponentials("zorsExp_32s_Sfs, zorsExp_32s_ISfs", zorsExp_32s_Sfs, zorsExp_32s_ISfs, exponential<Zor32s>);
  exponentials("zorsExp_64s_Sfs, zorsExp_64s_ISfs", zorsExp_64s_Sfs, zorsExp_64s_ISfs, exponential<Zor64s>);
}
TEST(ExpOfIntegers, SixteenBitsAtScaleZeroGiveOneForZeroAndZeroBelow) {
  Zor16s x[] = {0, -1, 25, 10, 11, 24};
  ASSERT_EQ(zorsExp_16s_ISfs(x, 6, 0), zorStatusOk);
  const Zor16s wanted[] = {1, 0, 32767, 22026, 32767, 32767};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(x[i], wanted[i]);
}
TEST(ExpOfIntegers, TheOnlyTieGoesToEven) {
  Zor16s x[] = {0};
  Zor32s y[] = {0};
  Zor64s z[] = {0};
  zorsExp_16s_ISfs(x, 1, 1);
  zorsExp_32s_ISfs(y, 1, 1);
  zorsExp_64s_ISfs(z, 1, 1);
  EXPECT_EQ(x[0], 0);
  EXPECT_EQ(y[0], 0);
  EXPECT_EQ(z[0], 0);
}
TEST(ExpOfIntegers, DoNotDependOnTheRoundingDirection) {
  for (unsigned direction : kit::allDirections) {
    Zor16s x[] = {-1, 3, 7};
    Zor32s y[] = {-1, 3, 20};
    Zor64s z[] = {-1, 3, 43};
    {
      const kit::Direction scope(direction);
      zorsExp_16s_ISfs(x, 3, -3);
      zorsExp_32s_ISfs(y, 3, -1);
      zorsExp_64s_ISfs(z, 3, 0);
    }
    EXPECT_TRUE(x[0] == exponential16(-1, -3) && x[1] == exponential16(3, -3) && x[2] == exponential16(7, -3));
    EXPECT_TRUE(y[0] == exponential<Zor32s>(-1, -1) && y[2] == exponential<Zor32s>(20, -1));
    EXPECT_EQ(z[2], exponential<Zor64s>(43, 0));
  }
}
TEST(ExpOfIntegers, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  for (Zor32s scale : {-3, 0, 20}) {
    checksPointersThenLength("zorsExp_16s_Sfs", zorsExp_16s_Sfs, scale);
    checksPointersThenLength("zorsExp_32s_Sfs", zorsExp_32s_Sfs, scale);
    checksPointersThenLength("zorsExp_64s_Sfs", zorsExp_64s_Sfs, scale);
    checksPointerThenLength("zorsExp_16s_ISfs", zorsExp_16s_ISfs, scale);
    checksPointerThenLength("zorsExp_32s_ISfs", zorsExp_32s_ISfs, scale);
    checksPointerThenLength("zorsExp_64s_ISfs", zorsExp_64s_ISfs, scale);
  }
}

}  // namespace
