// Operations on vectors in C++: each element type reaches its C function with the right arguments; errors come before
// anything is written, as exceptions or as statuses.
#include <gtest/gtest.h>

#include <array>
#include <complex>
#include <numeric>
#include <vector>

#include "zors.hpp"

namespace {

using Complex = std::complex<float>;
using ComplexD = std::complex<double>;

template <class F> ZorStatus thrown(F f) {
  try {
    f();
  } catch (const zors::Error& error) {
    return error.status();
  }
  return zorStatusOk;
}
template <class F> std::string message(F f) {
  try {
    f();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(CppErrors, NameAndTextOfTheStatus) {
  const zors::Error error(zorStatusBadOrder);
  EXPECT_EQ(error.status(), zorStatusBadOrder);
  EXPECT_STREQ(error.what(), "zorStatusBadOrder: the FFT order is out of range");
  EXPECT_STREQ(zors::Error(-1000).what(), "unknown status: unknown status");
}

TEST(CppErrors, BadSizesThrowBeforeAnythingIsWritten) {
  const std::vector<float> three(3, 1), four(4, 1);
  std::vector<float> dst(3, 7);
  const auto untouched = dst;
  EXPECT_EQ(message([&] { zors::add(three, four, dst); }), "zorStatusBadSize: vectors of different lengths");
  EXPECT_EQ(thrown([&] { zors::add(four, four, dst); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::exp(four, dst); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::convert(std::vector<Zor16s>(4), dst); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::convolution(three, four, dst); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::dotProduct(three, four); }), zorStatusBadSize);
  EXPECT_EQ(zors::add(std::nothrow, three, four, dst), zorStatusBadSize);
  EXPECT_EQ(zors::convert(std::nothrow, std::vector<Zor16s>(4), dst), zorStatusBadSize);
  EXPECT_EQ(zors::convolution(std::nothrow, three, four, dst), zorStatusBadSize);
  EXPECT_EQ(dst, untouched);
  std::vector<float> none;
  EXPECT_EQ(message([&] { zors::zero(none); }), "zorStatusBadSize: a length or count is below 1");
  EXPECT_EQ(thrown([&] { zors::sum(none); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::autoCorrelation(three, none); }), zorStatusBadSize);
  const std::span<float> endless(dst.data(), std::size_t(1) << 31);
  EXPECT_EQ(message([&] { zors::zero(endless); }), "zorStatusBadSize: a vector of 2^31 elements or more");
  const std::span<float> wrapped(dst.data(), (std::size_t(1) << 32) + 3);
  EXPECT_EQ(zors::zero(std::nothrow, wrapped), zorStatusBadSize);
  EXPECT_EQ(dst, untouched);
}

TEST(CppErrors, WarningsAreReturnedAndFailuresOfTheCFunctionToo) {
  const std::vector<float> src = {1, 0, 2};
  std::vector<float> dst(3);
  EXPECT_EQ(zors::ln(src, dst), zorWarningLogOfZero);
  EXPECT_EQ(zors::ln(std::nothrow, src, dst), zorWarningLogOfZero);
  EXPECT_EQ(dst[1], -std::numeric_limits<float>::infinity());
  EXPECT_EQ(zors::median(src, dst, 2), zorStatusEvenMedianMaskSize);
  EXPECT_EQ(thrown([&] { zors::divide(src, 0, dst); }), zorStatusDivideByZero);
  EXPECT_EQ(zors::kaiser(std::nothrow, src, dst, 1000), zorStatusBadAlpha);
  const auto [status, value] = zors::standardDeviation(std::nothrow, std::vector<float>{1});
  EXPECT_EQ(status, zorStatusBadSize);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(thrown([&] { zors::dotProduct(src, src, 3); }), zorStatusBadArgument);
}

// All contiguous ranges serve, sources may be constant, and a source may be the destination.
TEST(CppVectors, AnyContiguousRange) {
  const std::array<float, 3> fixed = {1, 2, 3};
  float plain[3] = {4, 5, 6};
  std::vector<float> dst(5);
  zors::add(fixed, plain, std::span(dst).subspan(1, 3));
  EXPECT_EQ(dst, (std::vector<float>{0, 5, 7, 9, 0}));
  zors::multiply(plain, fixed, plain);
  EXPECT_EQ(plain[2], 18);
  zors::copy(std::span<const float>(fixed), plain);
  EXPECT_EQ(plain[2], 3);
}

// f(a, b) over operands of one type.
template <class T> class CppArithmetic : public testing::Test {};
using Elements = testing::Types<float, double, Complex, ComplexD, Zor8u, Zor16s, Zor16u, Zor32s>;
TYPED_TEST_SUITE(CppArithmetic, Elements);

TYPED_TEST(CppArithmetic, ReachesTheFunctionsOfTheElement) {
  using T = TypeParam;
  const std::vector<T> a = {T(3), T(8), T(2), T(5), T(1)}, b = {T(6), T(8), T(40), T(10), T(7)};
  std::vector<T> dst(5), wanted(5);
  const auto is = [&](auto model) {
    for (std::size_t i = 0; i < 5; ++i) wanted[i] = T(model(a[i], b[i]));
    return dst == wanted;
  };
  zors::add(a, b, dst);
  EXPECT_TRUE(is([](T x, T y) { return x + y; }));
  zors::subtract(a, b, dst);
  EXPECT_TRUE(is([](T x, T y) { return y - x; }));
  zors::multiply(a, b, dst);
  EXPECT_TRUE(is([](T x, T y) { return x * y; }));
  zors::divide(std::vector<T>(5, T(2)), std::vector<T>(5, T(6)), dst);
  EXPECT_TRUE(is([](T, T) { return T(3); }));
  zors::add(a, T(4), dst);
  EXPECT_TRUE(is([](T x, T) { return x + T(4); }));
  zors::subtract(b, T(4), dst);
  EXPECT_TRUE(is([](T, T y) { return y - T(4); }));
  zors::subtractFrom(a, T(9), dst);
  EXPECT_TRUE(is([](T x, T) { return T(9) - x; }));
  zors::multiply(a, T(4), dst);
  EXPECT_TRUE(is([](T x, T) { return x * T(4); }));
  if constexpr (zors::Integer<T>) {
    zors::add(a, b, dst, 1);
    EXPECT_EQ(dst, (std::vector<T>{4, 8, 21, 8, 4}));  // halves to even
    zors::multiply(a, T(3), dst, -1);
    EXPECT_EQ(dst, (std::vector<T>{18, 48, 12, 30, 6}));
    EXPECT_EQ(zors::add(std::nothrow, a, b, dst, 1), zorStatusOk);
  }
}

TEST(CppVectors, ComplexIntegersAndMixedOperands) {
  const std::vector<Zor16sc> a = {{3, 4}, {-5, 12}};
  std::vector<Zor16sc> sum(2);
  zors::add(a, a, sum);
  EXPECT_EQ(sum[1].im, 24);
  zors::multiply(a, Zor16sc{0, 1}, sum);
  EXPECT_EQ(sum[0].re, -4);
  std::vector<float> length(2);
  zors::magnitude(a, length);
  EXPECT_EQ(length, (std::vector<float>{5, 13}));
  std::vector<Zor16s> scaled(2);
  zors::magnitude(a, scaled, -2);
  EXPECT_EQ(scaled, (std::vector<Zor16s>{20, 52}));
  const std::vector<float> gains = {2, 3};
  std::vector<Complex> z = {{1, 2}, {3, 4}};
  zors::multiply(gains, z, z);
  EXPECT_EQ(z[1], Complex(9, 12));
  std::vector<float> acc = {1, 1};
  zors::addProduct(gains, gains, acc);
  EXPECT_EQ(acc, (std::vector<float>{5, 10}));
  zors::addProduct(gains, 0.5f, acc);
  EXPECT_EQ(acc, (std::vector<float>{6, 11.5f}));
}

template <class T> class CppFloats : public testing::Test {};
using Floats = testing::Types<float, double>;
TYPED_TEST_SUITE(CppFloats, Floats);

TYPED_TEST(CppFloats, FunctionsAndComplexParts) {
  using T = TypeParam;
  using Z = std::complex<T>;
  const T tolerance = 4 * std::numeric_limits<T>::epsilon();
  const std::vector<T> x = {T(0.25), 1, T(2.25)};
  std::vector<T> y(3), y2(3);
  const auto near = [&](auto operation, auto model) {
    operation(x, y);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(double(y[i]), double(model(x[i])), double(tolerance));
  };
  near(zors::abs, [](T v) { return std::abs(v); });
  near(zors::square, [](T v) { return v * v; });
  near(zors::sqrt, [](T v) { return std::sqrt(v); });
  near(zors::exp, [](T v) { return std::exp(v) * (1 + 0 * v); });
  near(zors::ln, [](T v) { return std::log(v); });
  near(zors::arctan, [](T v) { return std::atan(v); });
  std::vector<Z> z(3);
  zors::fromParts(x, std::vector<T>{4, 5, 6}, z);
  EXPECT_EQ(z[2], Z(T(2.25), 6));
  zors::conj(z, z);
  zors::toParts(z, y, y2);
  EXPECT_EQ(y, x);
  EXPECT_EQ(y2[0], -4);
  zors::real(z, y);
  zors::imag(z, y2);
  EXPECT_EQ(y2[1], -5);
  zors::power(z, y);
  EXPECT_NEAR(double(y[1]), 26, double(26 * tolerance));
  zors::toPolar(z, y, y2);
  zors::magnitude(y, y2, y);  // parts apart; only that it is accepted
  zors::toPolar(z, y, y2);
  std::vector<T> angle(3);
  zors::phase(z, angle);
  EXPECT_EQ(angle, y2);
  std::vector<Z> back(3);
  zors::fromPolar(y, y2, back);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(double(std::abs(back[i] - z[i])), 0, double(20 * tolerance));
  zors::greaterOf(x, std::vector<T>{1, 1, 1}, y);
  EXPECT_EQ(y, (std::vector<T>{1, 1, T(2.25)}));
  zors::lesserOf(x, std::vector<T>{1, 1, 1}, y);
  EXPECT_EQ(y, (std::vector<T>{T(0.25), 1, 1}));
}

TYPED_TEST(CppFloats, WholeVectorsAndThresholds) {
  using T = TypeParam;
  std::vector<T> x = {3, 1, 2, 5}, y(4);
  zors::flip(x, y);
  EXPECT_EQ(y, (std::vector<T>{5, 2, 1, 3}));
  zors::atLeast(x, y, 2);
  EXPECT_EQ(y, (std::vector<T>{3, 2, 2, 5}));
  zors::atMost(x, y, 2);
  EXPECT_EQ(y, (std::vector<T>{2, 1, 2, 2}));
  zors::replaceBelow(x, y, 2, 0);
  EXPECT_EQ(y, (std::vector<T>{3, 0, 2, 5}));
  zors::replaceAbove(x, y, 2, 0);
  EXPECT_EQ(y, (std::vector<T>{0, 1, 2, 0}));
  zors::median(x, y, 3);
  EXPECT_EQ(y, (std::vector<T>{3, 2, 2, 5}));
  zors::set(4, y);
  EXPECT_EQ(y, std::vector<T>(4, 4));
  zors::zero(y);
  EXPECT_EQ(y, std::vector<T>(4, 0));
  std::vector<Zor32s> index(4);
  y = x;
  zors::sortIndexDescending(y, index);
  EXPECT_EQ(index, (std::vector<Zor32s>{3, 0, 2, 1}));
  zors::sortAscending(x);
  EXPECT_EQ(x, (std::vector<T>{1, 2, 3, 5}));
  zors::sortDescending(x);
  EXPECT_EQ(x, y);
  zors::sortIndexAscending(y, index);
  EXPECT_EQ(y.front(), 1);
}

TYPED_TEST(CppFloats, Windows) {
  using T = TypeParam;
  constexpr std::size_t n = 9;
  const std::vector<T> ones(n, 1);
  std::vector<T> w(n);
  const auto is = [&](auto weight) {
    for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(double(w[i]), weight(2 * M_PI * double(i) / (n - 1)), 2e-6) << i;
  };
  zors::hann(ones, w);
  is([](double t) { return 0.5 - 0.5 * std::cos(t); });
  zors::hamming(ones, w);
  is([](double t) { return 0.54 - 0.46 * std::cos(t); });
  zors::blackmanStandard(ones, w);
  is([](double t) { return 0.42 - 0.5 * std::cos(t) + 0.08 * std::cos(2 * t); });
  zors::blackman(ones, w, -0.3);
  is([](double t) { return 0.35 - 0.5 * std::cos(t) + 0.15 * std::cos(2 * t); });
  zors::bartlett(ones, w);
  is([](double t) { return 1 - std::abs(t / M_PI - 1); });
  zors::kaiser(ones, w, 0.5);
  EXPECT_NEAR(double(w[4]), 1, 2e-7);
  EXPECT_LT(w[0], w[1]);
  std::vector<std::complex<T>> z(n, {1, 2});
  zors::hann(z, z);
  EXPECT_NEAR(double(z[2].imag()), 1, 1e-6);
}

TYPED_TEST(CppFloats, Statistics) {
  using T = TypeParam;
  const std::vector<T> x = {3, -4, 1, 4}, y = {1, 2, 3, 4};
  EXPECT_EQ(zors::sum(x), 4);
  EXPECT_EQ(zors::mean(x), 1);
  EXPECT_NEAR(double(zors::standardDeviation(x)), std::sqrt(38.0 / 3), 1e-6);
  const auto [mean, deviation] = zors::meanAndDeviation(x);
  EXPECT_EQ(mean, 1);
  EXPECT_NEAR(double(deviation), std::sqrt(38.0 / 3), 1e-6);
  EXPECT_EQ(zors::max(x), 4);
  EXPECT_EQ(zors::min(x), -4);
  EXPECT_EQ(zors::minMax(x), std::tuple(T(-4), T(4)));
  EXPECT_EQ(zors::maxIndex(x), std::tuple(T(4), 3));
  EXPECT_EQ(zors::minIndex(x), std::tuple(T(-4), 1));
  EXPECT_EQ(zors::peak(x), 4);
  EXPECT_EQ(zors::normL1(x), 12);
  EXPECT_NEAR(double(zors::normL2(x)), std::sqrt(42.0), 1e-6);
  EXPECT_EQ(zors::peakDifference(x, y), 6);
  EXPECT_NEAR(double(zors::normL2Difference(x, y)), std::sqrt(4.0 + 36 + 4), 1e-6);
  EXPECT_EQ(zors::dotProduct(x, y), 14);
  const auto [status, value] = zors::sum(std::nothrow, x, zorAlgHintFast * int(sizeof(T) == 4));
  EXPECT_EQ(status, zorStatusOk);
  EXPECT_EQ(value, 4);
  const std::vector<std::complex<T>> z = {{1, 2}, {3, 4}};
  EXPECT_EQ(zors::sum(z), (std::complex<T>(4, 6)));
  EXPECT_EQ(zors::dotProduct(z, z), (std::complex<T>(-10, 28)));
}

TEST(CppVectors, StatisticsOfIntegers) {
  const std::vector<Zor16s> x = {30000, 30000, -2, 6};
  EXPECT_EQ(zors::sum(x), 60004);
  EXPECT_EQ(zors::sum(x, 2), 15001);
  EXPECT_EQ(zors::mean(x), 15001);
  EXPECT_EQ(zors::peak(x), 30000.0f);
  EXPECT_EQ(zors::dotProduct(x, x), Zor64s(1800000040));
  EXPECT_EQ(zors::minMax(x), std::tuple(Zor16s(-2), Zor16s(30000)));
  EXPECT_EQ(zors::minMax(std::vector<Zor8u>{9, 200, 3}), std::tuple(Zor8u(3), Zor8u(200)));
}

TEST(CppVectors, Conversions) {
  const std::vector<float> x = {0.5f, 1.5f, -2.5f, 1e9f};
  std::vector<Zor16s> i(4);
  zors::convert(x, i);
  EXPECT_EQ(i, (std::vector<Zor16s>{0, 2, -2, 32767}));
  zors::convert(x, i, {.mode = zorRoundTowardZero});
  EXPECT_EQ(i, (std::vector<Zor16s>{0, 1, -2, 32767}));
  zors::convert(x, i, {.scaleFactor = -1});
  EXPECT_EQ(i, (std::vector<Zor16s>{1, 3, -5, 32767}));
  std::vector<float> f(4);
  zors::convert(i, f, {.scaleFactor = 15});
  EXPECT_EQ(f[1], 3.0f / 32768);
  std::vector<double> d(4);
  zors::convert(x, d);
  EXPECT_EQ(d[3], 1e9);
  EXPECT_EQ(zors::convert(std::nothrow, x, d, {.scaleFactor = 1}), zorStatusBadArgument);
  std::vector<Zor8u> bytes(4);
  zors::convert(x, bytes);
  EXPECT_EQ(bytes, (std::vector<Zor8u>{0, 2, 0, 255}));
  std::vector<Zor64s> wide(4);
  zors::convert(d, wide);
  EXPECT_EQ(wide[3], 1000000000);
  std::vector<Zor32s> middle(4);
  zors::convert(wide, middle);
  zors::convert(middle, i);
  EXPECT_EQ(i[3], 32767);
}

TEST(CppVectors, Companding) {
  const std::vector<Zor16s> x = {0, 100, -1000, 30000};
  std::vector<Zor8u> code(4);
  std::vector<Zor16s> back(4);
  zors::toALaw(x, code);
  zors::fromALaw(code, back);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(back[i], x[i], 8 + std::abs(x[i]) / 30.0);
  zors::toMuLaw(x, code);
  zors::fromMuLaw(code, back);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(back[i], x[i], 8 + std::abs(x[i]) / 30.0);
}

TYPED_TEST(CppFloats, CorrelationAndConvolution) {
  using T = TypeParam;
  const std::vector<T> a = {1, 2, 3}, b = {4, 5};
  std::vector<T> c(4);
  zors::convolution(a, b, c);
  EXPECT_EQ(c, (std::vector<T>{4, 13, 22, 15}));
  zors::autoCorrelation(a, c);
  EXPECT_EQ(c, (std::vector<T>{14, 8, 3, 0}));
  zors::autoCorrelationUnbiased(a, c);
  EXPECT_EQ(c[1], 4);
  zors::autoCorrelationBiased(a, c);
  EXPECT_NEAR(double(c[0]), 14.0 / 3, 1e-6);
  zors::crossCorrelation(a, b, c, -2);
  EXPECT_EQ(c, (std::vector<T>{12, 23, 14, 5}));
  zors::crossCorrelation(a, b, c);
  EXPECT_EQ(c, (std::vector<T>{14, 5, 0, 0}));
}

TEST(CppVectors, CorrelationOfIntegers) {
  const std::vector<Zor16s> a = {100, 200}, b = {300, 400};
  std::vector<Zor16s> c(3);
  zors::convolution(a, b, c, 4);
  EXPECT_EQ(c, (std::vector<Zor16s>{1875, 6250, 5000}));
  std::vector<Zor64s> wide(1);
  zors::crossCorrelation(a, b, wide);
  EXPECT_EQ(wide[0], 110000);
  zors::autoCorrelation(a, c, 4);
  EXPECT_EQ(c, (std::vector<Zor16s>{3125, 1250, 0}));
}

TEST(CppVectors, TestVectors) {
  std::vector<float> x(4);
  zors::ramp(x, 1, 0.5);
  EXPECT_EQ(x, (std::vector<float>{1, 1.5f, 2, 2.5f}));
  zors::chirp(x, 3);
  for (std::size_t n = 0; n < 4; ++n) EXPECT_NEAR(x[n], 3 * std::sin(M_PI / 8 * double(n * n)), 1e-6);
}

}  // namespace
