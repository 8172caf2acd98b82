#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::noWarning;
using transcendental::withStatus;

TEST(Cubrt, IsTheNearestNumberButForRareCasesNearATie) {
  const auto root = transcendental::alone(
      zorsCubrt_32f, [](long double x) { return cbrtl(x); }, 0.5001);
  sweep<Zor32f, Zor32f>("zorsCubrt_32f", zorsCubrt_32f, root);
  for (Zor32u bits = 1; bits < 0x7F800000; bits += 30011) root(std::bit_cast<Zor32f>(bits));
  for (Zor32f x = 0.5f; x < 16; x *= 1.0001f) root(-x);
}
TEST(Cubrt, OfMinus27IsMinus3AndOfEveryCubeItsRootInEveryDirection) {
  for (unsigned direction : kit::allDirections)
    for (int k = -255; k <= 255; ++k) {
      const kit::Direction scope(direction);
      Zor32f x[] = {static_cast<Zor32f>(k * k * k)};
      ASSERT_EQ(zorsCubrt_32f(x, x, 1), zorStatusOk);
      EXPECT_EQ(x[0], static_cast<Zor32f>(k));
    }
}
TEST(Cubrt, ZerosInfinitiesAndNanStay) {
  const auto inf = std::numeric_limits<Zor32f>::infinity();
  const Zor32f x[] = {0.0f, -0.0f, inf, -inf, NAN};
  Zor32f y[5];
  ASSERT_EQ(zorsCubrt_32f(x, y, 5), zorStatusOk);
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(kit::sameBits(y[i], x[i])) << x[i];
}
TEST(Cubrt, OfIntegersScalesByAnExponentModulo128) {
  for (Zor32s scale : {0, 1, 2, 5, 11, 126, 127, 128, 129, -1, -4, -20, -126, -127, -128, -129, INT32_MIN, INT32_MAX}) {
    const int exponent = scale >= 0 ? -(scale & 127) : static_cast<int>(-Zor64s{scale} & 127);
    const Zor32f factor = exponent == -127 ? 0.0f : std::ldexp(1.0f, exponent);
    const auto model = [factor](Zor32s x) {
      const auto root = static_cast<Zor32f>(cbrtl(static_cast<long double>(static_cast<Zor32f>(x))));
      const Zor64f value = std::nearbyint(static_cast<Zor64f>(root * factor));
      return static_cast<Zor16s>(value > 32767 ? 32767 : value < -32768 ? -32768 : value);
    };
    sweep<Zor16s, Zor32s>("zorsCubrt_32s16s_Sfs", withStatus(noWarning, zorsCubrt_32s16s_Sfs, scale), model,
                          scale == 0 ? kit::sweepLengths() : kit::fewLengths());
  }
}

// t N(t^2) / D(t^2) with t = |x| or, above 1, 1 / |x| and the result taken from pi / 2.
Zor32f arctangent(Zor32f x) {
  const Zor32f ax = std::fabs(x), t = ax > 1 ? 1 / ax : ax, z = t * t;
  Zor32f n = 0.008561189286410809f, d = 0.049017589539289474f;
  for (Zor32f c : {0.2805045545101166f, 1.1202340126037598f, 1.0f}) n = std::fma(n, z, c);
  for (Zor32f c : {0.5650309920310974f, 1.4535671472549438f, 1.0f}) d = std::fma(d, z, c);
  const Zor32f angle = t * n / d;
  return std::copysign(ax > 1 ? 1.5707963705062866f - angle : angle, x);
}
TEST(Arctan, Binary32IsTheStatedQuotient) {
  sweep<Zor32f, Zor32f>("zorsArctan_32f", zorsArctan_32f, arctangent);
  sweepInPlace<Zor32f>("zorsArctan_32f_I", zorsArctan_32f_I, arctangent);
}
TEST(Arctan, OfAZeroKeepsItsSignInEveryDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    Zor32f x[] = {0.0f, -0.0f};
    Zor64f y[] = {0.0, -0.0};
    EXPECT_EQ(zorsArctan_32f_I(x, 2), zorStatusOk);
    EXPECT_EQ(zorsArctan_64f_I(y, 2), zorStatusOk);
    EXPECT_TRUE(x[0] == 0 && !std::signbit(x[0]) && x[1] == 0 && std::signbit(x[1]));
    EXPECT_TRUE(y[0] == 0 && !std::signbit(y[0]) && y[1] == 0 && std::signbit(y[1]));
  }
}
TEST(Arctan, Binary64StaysWithinOneUlpWhateverTheNeighbours) {
  const auto wide = transcendental::alone(
      zorsArctan_64f, [](long double x) { return atanl(x); }, 1.0);
  sweep<Zor64f, Zor64f>("zorsArctan_64f", zorsArctan_64f, wide);
  sweepInPlace<Zor64f>("zorsArctan_64f_I", zorsArctan_64f_I, wide);
  for (Zor64f x = 0x1p-1070; x < 1e308; x *= 1.37) wide(-x);
  for (Zor64f x = 0.3; x < 4; x += 0.00037) wide(x);
}
TEST(Arctan, InfinitiesGiveHalfOfPiAndZerosKeepTheirSign) {
  const auto inf = std::numeric_limits<Zor64f>::infinity(), half = std::acos(0.0);
  const Zor64f x[] = {inf, -inf, 0.0, -0.0, 1.0, -1.0, NAN, 1e300, 5e-324};
  const Zor64f wanted[] = {half, -half, 0.0, -0.0, half / 2, -half / 2, NAN, half, 5e-324};
  Zor64f wide[9];
  Zor32f narrow[9];
  for (int i = 0; i < 9; ++i) narrow[i] = static_cast<Zor32f>(x[i]);
  ASSERT_EQ(zorsArctan_64f(x, wide, 9), zorStatusOk);
  ASSERT_EQ(zorsArctan_32f_I(narrow, 7), zorStatusOk);
  for (int i = 0; i < 9; ++i) EXPECT_TRUE(kit::sameBits(wide[i], wanted[i])) << x[i];
  for (int i = 0; i < 7; ++i) {
    if (i < 4 || i > 5) {
      EXPECT_TRUE(kit::sameBits(narrow[i], static_cast<Zor32f>(wanted[i]))) << x[i];
    }
  }
}
TEST(Arctan, UnmaskedExceptionsDoNotFireInside) {
  std::vector<Zor32f> narrow = {1, 0, -1, NAN, 1e-40f, 0.1f, 2, INFINITY, 4}, roots(9);
  std::vector<Zor64f> wide(narrow.begin(), narrow.end());
  {
    const transcendental::Unmasked scope;
    zorsCubrt_32f(narrow.data(), roots.data(), 9);
    zorsArctan_32f_I(narrow.data(), 9);
    zorsArctan_64f_I(wide.data(), 9);
  }
  EXPECT_TRUE(std::isinf(roots[7]) && std::isnan(narrow[3]) && std::isnan(wide[3]));
}

TEST(CubrtAndArctan, CheckPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  checksPointersThenLength("zorsCubrt_32f", zorsCubrt_32f);
  checksPointersThenLength("zorsCubrt_32s16s_Sfs", zorsCubrt_32s16s_Sfs, 3);
  checksPointersThenLength("zorsArctan_32f", zorsArctan_32f);
  checksPointersThenLength("zorsArctan_64f", zorsArctan_64f);
  checksPointerThenLength("zorsArctan_32f_I", zorsArctan_32f_I);
  checksPointerThenLength("zorsArctan_64f_I", zorsArctan_64f_I);
}

}  // namespace
