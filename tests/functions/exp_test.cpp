#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

// x = n ln 2 + r with n from the low bits of a sum, a polynomial in r, n added to its exponent; every step is fused.
Zor32f exponential(Zor32f x) {
  if (!(std::fabs(x) < 87.33654022216797f)) return static_cast<Zor32f>(std::exp(static_cast<Zor64f>(x)));
  const Zor32f sum = std::fma(x, 1.4426950216293335f, 12582912.0f), n = sum - 12582912.0f;
  const Zor32f r = std::fma(-n, 1.428606765330187e-06f, std::fma(-n, 0.693145751953125f, x));
  Zor32f p = 0.008291719481348991f;
  for (Zor32f c : {0.041873522102832794f, 0.16667431592941284f, 0.4999939203262329f, 0.9999998807907104f, 1.0f})
    p = std::fma(p, r, c);
  return std::ldexp(p, static_cast<int>(n));
}
TEST(Exp, Binary32IsTheStatedPolynomial) {
  sweep<Zor32f, Zor32f>("zorsExp_32f", zorsExp_32f, exponential);
  sweepInPlace<Zor32f>("zorsExp_32f_I", zorsExp_32f_I, exponential);
}
TEST(Exp, Binary32StaysWithinThreeUlp) {
  std::vector<Zor32f> x;
  for (Zor32f a = -110; a < 90; a += 0.0071f) x.push_back(a);
  std::vector<Zor32f> y(x.size());
  ASSERT_EQ(zorsExp_32f(x.data(), y.data(), static_cast<Zor32s>(x.size())), zorStatusOk);
  for (std::size_t i = 0; i < x.size(); ++i)
    ASSERT_LE(kit::ulps(y[i], expl(static_cast<long double>(x[i]))), 3.0) << x[i];
}

TEST(Exp, Binary64StaysWithinOneUlpWhateverTheNeighbours) {
  const auto exact = [](long double x) { return expl(x); };
  const auto wide = transcendental::alone(zorsExp_64f, exact, 1.0);
  const auto widened = transcendental::alone(zorsExp_32f64f, exact, 1.0);
  sweep<Zor64f, Zor64f>("zorsExp_64f", zorsExp_64f, wide);
  sweepInPlace<Zor64f>("zorsExp_64f_I", zorsExp_64f_I, wide);
  sweep<Zor64f, Zor32f>("zorsExp_32f64f", zorsExp_32f64f, widened);
  for (Zor64f x = -750; x < 715; x += 0.0371) wide(x);
}
TEST(Exp, BothWidthsHaveTheSameSpecialValues) {
  const auto inf = std::numeric_limits<Zor64f>::infinity();
  const Zor64f sources[] = {inf, -inf, 0.0, -0.0, -1e30, 1e30, NAN};
  const Zor64f wanted[] = {inf, 0, 1, 1, 0, inf, NAN};
  for (std::size_t i = 0; i < std::size(sources); ++i) {
    Zor64f x = sources[i], fromNarrow;
    auto narrow = static_cast<Zor32f>(x);
    ASSERT_EQ(zorsExp_32f64f(&narrow, &fromNarrow, 1), zorStatusOk);
    ASSERT_EQ(zorsExp_64f_I(&x, 1), zorStatusOk);
    ASSERT_EQ(zorsExp_32f_I(&narrow, 1), zorStatusOk);
    EXPECT_TRUE(kit::sameBits(x, wanted[i]) && kit::sameBits(fromNarrow, wanted[i])) << sources[i];
    EXPECT_TRUE(kit::sameBits(narrow, static_cast<Zor32f>(wanted[i]))) << sources[i];
  }
}
TEST(Exp, Of88point8OverflowsAndOfMinus88IsADenormal) {
  Zor32f x[] = {88.8f, -88.0f, 88.72283f, -104.5f, NAN};
  ASSERT_EQ(zorsExp_32f_I(x, 5), zorStatusOk);
  EXPECT_EQ(x[0], std::numeric_limits<Zor32f>::infinity());
  EXPECT_EQ(std::fpclassify(x[1]), FP_SUBNORMAL);
  EXPECT_EQ(x[1], static_cast<Zor32f>(std::exp(-88.0)));
  EXPECT_TRUE(std::isfinite(x[2]));
  EXPECT_EQ(x[3], 0.0f);
  EXPECT_TRUE(std::isnan(x[4]));
}
TEST(Exp, Binary64OverflowsAtTheTrueBound) {
  Zor64f x[] = {0x1.62e42fefa39efp9, 0x1.62e42fefa39f0p9, -0x1.74910d52d3051p9, -0x1.74910d52d3052p9, -708.4};
  ASSERT_EQ(zorsExp_64f_I(x, 5), zorStatusOk);
  EXPECT_TRUE(std::isfinite(x[0]) && std::isinf(x[1]));
  EXPECT_EQ(x[2], std::numeric_limits<Zor64f>::denorm_min());
  EXPECT_EQ(x[3], 0.0);
  EXPECT_EQ(std::fpclassify(x[4]), FP_SUBNORMAL);
}
TEST(Exp, UnmaskedExceptionsDoNotFireInside) {
  std::vector<Zor32f> narrow = {1, 1000, -1000, NAN, -88, 0, 2, 3, 4};
  std::vector<Zor64f> wide(narrow.begin(), narrow.end()), other(narrow.size());
  const unsigned before = _mm_getcsr();
  {
    const transcendental::Unmasked scope;
    zorsExp_32f64f(narrow.data(), other.data(), 9);
    zorsExp_32f_I(narrow.data(), 9);
    zorsExp_64f_I(wide.data(), 9);
  }
  EXPECT_EQ(_mm_getcsr() & _MM_MASK_MASK, before & _MM_MASK_MASK);
  EXPECT_TRUE(std::isinf(narrow[1]) && std::isinf(wide[1]) && std::isinf(other[1]));
}

TEST(Exp, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  checksPointersThenLength("zorsExp_32f", zorsExp_32f);
  checksPointersThenLength("zorsExp_64f", zorsExp_64f);
  checksPointersThenLength("zorsExp_32f64f", zorsExp_32f64f);
  checksPointerThenLength("zorsExp_32f_I", zorsExp_32f_I);
  checksPointerThenLength("zorsExp_64f_I", zorsExp_64f_I);
}

}  // namespace
