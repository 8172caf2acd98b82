// Objects in C++: built from named arguments, they give what plain loops give, own what they hold, refuse what does not
// fit before anything is written, and leak nothing where memory is exhausted.
#include <gtest/gtest.h>

#include <array>
#include <complex>
#include <random>
#include <thread>
#include <vector>

#include "kit/services.h"
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
template <class T> std::vector<T> randomVector(std::size_t n, unsigned seed = 1) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> number(-1, 1);
  std::vector<T> v(n);
  for (T& x : v) {
    if constexpr (zors::ComplexFloat<T>) {
      x = T(typename T::value_type(number(engine)), typename T::value_type(number(engine)));
    } else {
      x = T(std::integral<T> ? 1000 * number(engine) : number(engine));
    }
  }
  return v;
}
template <class T> T numberOf(double v) {
  if constexpr (zors::ComplexFloat<T>) {
    return T(typename T::value_type(v));
  } else {
    return T(v);
  }
}
template <class V> auto wide(const V& v) {
  std::vector<std::complex<long double>> all;
  for (const auto& x : v) {
    const std::complex<double> z(x);
    all.emplace_back(z.real(), z.imag());
  }
  return all;
}
// The transform as its sum; sign -1 forward.
template <class V> auto sumsOf(const V& v, int sign) {
  const auto x = wide(v);
  const auto n = x.size();
  std::vector<std::complex<long double>> y(n);
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t i = 0; i < n; ++i)
      y[k] += x[i] * std::polar(1.0L, sign * 2 * 3.14159265358979323846L * (long double)(i * k % n) / (long double)(n));
  return y;
}
template <class A, class B> double distance(const A& a, const B& b, std::size_t n) {
  double most = 0;
  for (std::size_t i = 0; i < n; ++i)
    most = std::max(most, double(std::abs(std::complex<long double>(a[i]) - std::complex<long double>(b[i]))));
  return most;
}

template <class T> class CppTransforms : public testing::Test {};
using Floats = testing::Types<float, double>;
TYPED_TEST_SUITE(CppTransforms, Floats);

TYPED_TEST(CppTransforms, ComplexOfAnyLength) {
  using Z = std::complex<TypeParam>;
  for (const int length : {1, 12, 64, 97}) {
    const auto n = std::size_t(length);
    const double tolerance = 20.0 * length * double(std::numeric_limits<TypeParam>::epsilon());
    const auto x = randomVector<Z>(n);
    zors::Dft<Z> dft({.length = length});
    EXPECT_EQ(dft.size(), n);
    std::vector<Z> y(n), back(n);
    dft.forward(x, y);
    EXPECT_LT(distance(wide(y), sumsOf(x, -1), n), tolerance);
    dft.inverse(y, back);
    EXPECT_LT(distance(wide(back), wide(x), n), tolerance);
    std::vector<Zor8u> work(dft.workSize());
    const auto& shared = dft;
    shared.inverse(y, y, work);
    EXPECT_EQ(y, back);
    if (length == 64) {
      zors::Fft<Z> fft({.order = 6, .divide = zors::Divide::none});
      fft.forward(x, y);
      fft.inverse(y, back);
      for (auto& z : back) z /= TypeParam(64);
      EXPECT_LT(distance(wide(back), wide(x), n), tolerance);
    }
  }
}

TYPED_TEST(CppTransforms, RealAndItsPackedSpectra) {
  using T = TypeParam;
  using Z = std::complex<T>;
  for (const int length : {2, 7, 16, 30}) {
    const auto n = std::size_t(length);
    const double tolerance = 20.0 * length * double(std::numeric_limits<T>::epsilon());
    const auto x = randomVector<T>(n);
    const auto wanted = sumsOf(x, -1);
    zors::Dft<T> dft({.length = length});
    std::vector<Z> spectrum(dft.spectrumSize());
    std::vector<T> back(n);
    dft.forward(x, spectrum);
    EXPECT_LT(distance(wide(spectrum), wanted, n / 2 + 1), tolerance);
    dft.inverse(spectrum, back);
    EXPECT_LT(distance(wide(back), wide(x), n), tolerance);
    for (const auto packing : {zors::Packing::pack, zors::Packing::perm, zors::Packing::ccs}) {
      std::vector<T> packed(dft.packedSize(packing)), again(n);
      dft.forward(x, packed, packing);
      EXPECT_NEAR(double(packed[0]), double(wanted[0].real()), tolerance);
      dft.inverse(packed, again, packing);
      EXPECT_LT(distance(wide(again), wide(x), n), tolerance);
      std::vector<Zor8u> work(dft.workSize());
      EXPECT_EQ(std::as_const(dft).inverse(std::nothrow, packed, back, packing, work), zorStatusOk);
      EXPECT_EQ(back, again);
    }
  }
  zors::Fft<T> fft({.order = 3});
  const auto a = randomVector<T>(8, 2), b = randomVector<T>(8, 3);
  std::vector<T> p(8), q(8);
  fft.forward(a, p, zors::Packing::perm);
  fft.forward(b, q, zors::Packing::perm);
  zors::multiplyPerm(p, q, p);
  fft.inverse(p, p, zors::Packing::perm);
  for (std::size_t i = 0; i < 8; ++i) {
    T sum = 0;
    for (std::size_t k = 0; k < 8; ++k) sum += a[k] * b[(i + 8 - k) % 8];
    EXPECT_NEAR(double(p[i]), double(sum), 1e-5);
  }
}

TEST(CppTransforms, OfIntegersUnderScaleFactors) {
  const std::vector<Zor16sc> x(16, Zor16sc{160, -320});
  std::vector<Zor16sc> y(16);
  zors::Fft<Zor16sc> fft({.order = 4, .divide = zors::Divide::none, .forwardScale = 4, .inverseScale = 2});
  fft.forward(x, y);
  EXPECT_EQ(y[0].re, 160);
  EXPECT_EQ(y[0].im, -320);
  EXPECT_EQ(y[1].re, 0);
  fft.inverse(y, y);
  EXPECT_EQ(y[7].im, -80);
  zors::Dft<Zor16s> real({.length = 12, .divide = zors::Divide::none, .forwardScale = 2});
  std::vector<Zor16s> packed(12);
  real.forward(std::vector<Zor16s>(12, 100), packed, zors::Packing::pack);
  EXPECT_EQ(packed[0], 300);
  zors::Fft<float> refused;
  EXPECT_EQ(refused.build(std::nothrow, {.order = 4, .forwardScale = 1}), zorStatusBadArgument);
}

TEST(CppTransforms, RefuseOtherLengthsAndShortBuffers) {
  zors::Fft<Complex> fft({.order = 12});
  ASSERT_GT(fft.workSize(), 0u);
  std::vector<Complex> x(4096), y(4095, 7);
  const auto untouched = y;
  EXPECT_EQ(thrown([&] { fft.forward(x, y); }), zorStatusBadSize);
  EXPECT_EQ(fft.inverse(std::nothrow, y, x), zorStatusBadSize);
  std::vector<Zor8u> work(fft.workSize() - 1);
  EXPECT_EQ(thrown([&] { fft.forward(x, x, work); }), zorStatusBadSize);
  EXPECT_EQ(y, untouched);
  EXPECT_EQ(thrown([] { zors::Fft<float>({.order = -1}); }), zorStatusBadOrder);
  EXPECT_EQ(thrown([] { zors::Fft<float>({.order = 40}); }), zorStatusBadOrder);
  EXPECT_EQ(thrown([] { zors::Dft<float>({.length = 0}); }), zorStatusBadSize);
}

// Threads share a specification; each brings a work buffer.
TEST(CppTransforms, SharedByThreads) {
  zors::Fft<Complex> made({.order = 12});
  const auto& fft = made;
  const auto x = randomVector<Complex>(4096);
  std::vector<std::vector<Complex>> y(4, std::vector<Complex>(4096));
  std::vector<std::thread> threads;
  for (auto& dst : y)
    threads.emplace_back([&fft, &x, &dst] {
      std::vector<Zor8u> work(fft.workSize());
      fft.forward(x, dst, work);
    });
  for (auto& thread : threads) thread.join();
  for (const auto& dst : y) EXPECT_EQ(dst, y[0]);
}

TEST(CppTransforms, CosineAndHilbert) {
  constexpr std::size_t n = 24;
  const auto x = randomVector<double>(n);
  std::vector<double> y(n), back(n);
  zors::DctForward<double>({.length = n}).process(x, y);
  for (std::size_t m = 0; m < n; ++m) {
    double sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += x[i] * std::cos(M_PI * double((2 * i + 1) * m) / (2 * n));
    EXPECT_NEAR(y[m], sum * std::sqrt((m == 0 ? 1.0 : 2.0) / n), 1e-13);
  }
  zors::DctInverse<double>({.length = n}).process(y, back);
  EXPECT_LT(distance(wide(back), wide(x), n), 1e-13);
  std::vector<float> wave(n);
  std::vector<Complex> analytic(n);
  for (std::size_t i = 0; i < n; ++i) wave[i] = float(std::cos(2 * M_PI * 3 * double(i) / n));
  zors::Hilbert({.length = n}).process(wave, analytic);
  for (std::size_t i = 0; i < n; ++i) EXPECT_NEAR(analytic[i].imag(), std::sin(2 * M_PI * 3 * double(i) / n), 1e-6);
  EXPECT_EQ(zors::Hilbert({.length = n}).process(std::nothrow, wave, std::span(analytic).first(3)), zorStatusBadSize);
}

// FIR filters of all samples and taps against the sum, cut into blocks, in place and sample by sample.
template <class Sample, class Taps> void checkFir(int tapsFactor, int scaleFactor, double tolerance) {
  const auto taps = randomVector<Taps>(5, 3);
  const auto x = randomVector<Sample>(40), past = randomVector<Sample>(5, 9);
  const double scale = std::pow(2.0, tapsFactor - scaleFactor);
  zors::Fir<Sample, Taps> fir({.taps = taps, .history = past, .tapsFactor = tapsFactor, .scaleFactor = scaleFactor});
  EXPECT_EQ(fir.tapCount(), 5u);
  std::vector<Sample> y(40);
  fir.process(std::span(x).first(30), std::span(y).first(30));
  std::copy(x.begin() + 30, x.begin() + 39, y.begin() + 30);
  fir.process(std::span(y).subspan(30, 9));
  y[39] = fir.process(x[39]);
  for (int i = 0; i < 40; ++i) {
    ComplexD sum = 0;
    for (int k = 0; k < 5; ++k)
      sum += ComplexD(taps[std::size_t(k)]) * ComplexD(i >= k ? x[std::size_t(i - k)] : past[std::size_t(k - i - 1)]);
    EXPECT_LE(std::abs(ComplexD(y[std::size_t(i)]) - sum * scale), tolerance) << i;
  }
  std::vector<Sample> history(5);
  fir.history(history);
  EXPECT_EQ(history, std::vector<Sample>(x.rbegin(), x.rbegin() + 5));
  fir.setHistory(past);
  if constexpr (requires { fir.setTaps(taps); }) fir.setTaps(taps, tapsFactor);
  std::vector<Sample> again(30);
  fir.process(std::span(x).first(30), again);
  EXPECT_EQ(again, std::vector<Sample>(y.begin(), y.begin() + 30));
}
template <class Filter, class Taps> constexpr bool takesTaps = requires(Filter filter, std::vector<Taps> taps) {
  filter.setTaps(taps);
};

TEST(CppFilters, FirOfAllSamplesAndTaps) {
  checkFir<float, float>(0, 0, 1e-6);
  checkFir<double, double>(0, 0, 1e-14);
  checkFir<Complex, Complex>(0, 0, 2e-6);
  checkFir<ComplexD, ComplexD>(0, 0, 1e-14);
  checkFir<float, double>(0, 0, 1e-6);
  checkFir<Complex, ComplexD>(0, 0, 1e-6);
  checkFir<Zor16s, float>(0, 0, 0.51);
  static_assert(takesTaps<zors::Fir<Zor16s>, Zor16s> && !takesTaps<zors::Fir<Zor16s, float>, float>);
  checkFir<Zor16s, double>(0, 1, 0.51);
  checkFir<Zor16s, Zor16s>(-9, 0, 0.51);
  checkFir<Zor16s, Zor32s>(-10, 1, 0.51);
  checkFir<Zor32s, double>(0, 0, 0.51);
  checkFir<Zor32s, Zor32s>(0, 4, 0.51);
}

TEST(CppFilters, FirOfComplexIntegers) {
  const std::vector<Zor16sc> x = {{100, 0}, {0, 100}};
  std::vector<Zor16sc> y(2);
  zors::Fir<Zor16sc, Complex> fir({.taps = std::vector<Complex>{{1, 1}, {2, 0}}});
  fir.process(x, y);
  EXPECT_EQ(y[0].re, 100);
  EXPECT_EQ(y[1].re, 100);
  EXPECT_EQ(y[1].im, 100);
  zors::Fir<Zor16sc, Zor32sc> fixed({.taps = std::vector<Zor32sc>{{4, 4}, {8, 0}}, .tapsFactor = -2});
  std::vector<Zor16sc> z(2);
  fixed.process(x, z);
  EXPECT_EQ(z[1].re, y[1].re);
}

TEST(CppFilters, FirRefusesWhatDoesNotFit) {
  const std::vector<float> taps = {1, 2, 3};
  std::vector<float> x(4), y(3, 7);
  zors::Fir<float> fir({.taps = taps});
  EXPECT_EQ(thrown([&] { fir.process(x, y); }), zorStatusBadSize);
  EXPECT_EQ(fir.process(std::nothrow, std::span(x).first(0), std::span(y).first(0)), zorStatusBadSize);
  EXPECT_EQ(y, std::vector<float>(3, 7));
  EXPECT_EQ(thrown([&] { fir.setTaps(x); }), zorStatusBadTapsLength);
  EXPECT_EQ(thrown([&] { fir.setTaps(taps, 1); }), zorStatusBadArgument);
  EXPECT_EQ(thrown([&] { fir.history(x); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { fir.setHistory(x); }), zorStatusBadSize);
  EXPECT_EQ(thrown([] { zors::Fir<float>({.taps = {}}); }), zorStatusBadTapsLength);
  EXPECT_EQ(fir.build(std::nothrow, {.taps = taps, .history = x}), zorStatusBadSize);
  EXPECT_EQ(fir.build(std::nothrow, {.taps = taps, .scaleFactor = 1}), zorStatusBadArgument);
  EXPECT_EQ(fir.tapCount(), 3u);
  EXPECT_EQ(fir.process(std::nothrow, y), zorStatusOk);  // a build that fails leaves what there was
  fir.setHistory(std::vector<float>(3));
  EXPECT_EQ(fir.process(std::nothrow, 2.0f).value, 2);
  EXPECT_EQ(zors::Fir<float>().process(std::nothrow, 2.0f).status, zorStatusNullPointer);
}

TEST(CppFilters, MultiRate) {
  const auto taps = randomVector<float>(7, 4);
  const auto x = randomVector<float>(24);
  zors::FirMultiRate<float> rate({.taps = taps, .up = 2, .down = 3, .upPhase = 1, .downPhase = 2});
  EXPECT_EQ(rate.outputs(24), 16u);
  EXPECT_EQ(rate.historySize(), 4u);
  std::vector<float> y(16);
  rate.process(std::span(x).first(9), std::span(y).first(6));
  rate.process(std::span(x).subspan(9), std::span(y).subspan(6));
  for (int i = 0; i < 16; ++i) {
    const int p = 2 + 3 * i;
    float sum = 0;
    for (int k = 0; k < 7 && k <= p; ++k)
      if ((p - k) % 2 == 1) sum += taps[std::size_t(k)] * x[std::size_t((p - k) / 2)];
    EXPECT_NEAR(y[std::size_t(i)], sum, 1e-6) << i;
  }
  EXPECT_EQ(thrown([&] { rate.process(std::span(x).first(8), y); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { rate.process(std::span(x).first(9), y); }), zorStatusBadSize);
  EXPECT_EQ(rate.build(std::nothrow, {.taps = taps, .up = 0}), zorStatusBadMultiRateFactor);
  EXPECT_EQ(rate.build(std::nothrow, {.taps = taps, .down = -1}), zorStatusBadMultiRateFactor);
}

// The transposed second form, in long double.
template <class Sample, class Taps> void checkIir(int tapsFactor, int scaleFactor, double tolerance) {
  const double unit = std::pow(2.0, tapsFactor);
  std::vector<Taps> taps;
  for (const double t : {0.5, 0.25, 0.125, 1.0, -0.5, 0.25}) taps.push_back(numberOf<Taps>(t * unit));
  const auto x = randomVector<Sample>(50);
  for (const bool cascade : {false, true}) {
    zors::Iir<Sample, Taps> iir;
    zors::IirCascade<Sample, Taps> sections;
    std::vector<Taps> two = taps;
    two.insert(two.end(), taps.begin(), taps.end());
    if (cascade) {
      sections = zors::IirCascade<Sample, Taps>({.taps = two, .tapsFactor = tapsFactor, .scaleFactor = scaleFactor});
      EXPECT_EQ(sections.registerCount(), 4u);
    } else {
      iir = zors::Iir<Sample, Taps>({.taps = taps, .tapsFactor = tapsFactor, .scaleFactor = scaleFactor});
      EXPECT_EQ(iir.registerCount(), 2u);
    }
    std::vector<Sample> y(50);
    const auto run = [&](auto& filter) {
      filter.process(std::span(x).first(30), std::span(y).first(30));
      std::copy(x.begin() + 30, x.begin() + 49, y.begin() + 30);
      filter.process(std::span(y).subspan(30, 19));
      y[49] = filter.process(x[49]);
    };
    cascade ? run(sections) : run(iir);
    std::array<std::complex<long double>, 4> d{};
    for (std::size_t i = 0; i < 50; ++i) {
      std::complex<long double> v(wide(std::vector<Sample>{x[i]})[0]);
      for (std::size_t s = 0; s < (cascade ? 2u : 1u); ++s) {
        const auto out = 0.5L * v + d[2 * s];
        d[2 * s] = d[2 * s + 1] + 0.25L * v + 0.5L * out;
        d[2 * s + 1] = 0.125L * v - 0.25L * out;
        v = out;
      }
      v /= std::pow(2.0L, scaleFactor);
      EXPECT_LE(double(std::abs(v - wide(std::vector<Sample>{y[i]})[0])), tolerance) << i;
    }
  }
}
TEST(CppFilters, IirAndCascadesOfAllSamplesAndTaps) {
  checkIir<float, float>(0, 0, 2e-6);
  checkIir<double, double>(0, 0, 1e-14);
  checkIir<Complex, Complex>(0, 0, 4e-6);
  checkIir<ComplexD, ComplexD>(0, 0, 1e-14);
  checkIir<float, double>(0, 0, 1e-6);
  checkIir<Complex, ComplexD>(0, 0, 1e-6);
  checkIir<Zor16s, float>(0, 0, 1.01);
  checkIir<Zor16s, double>(0, 1, 0.51);
  checkIir<Zor16s, Zor32s>(4, 0, 1.01);
  checkIir<Zor32s, double>(0, 0, 0.51);
}

TEST(CppFilters, IirRegistersTapsAndRefusals) {
  const std::vector<float> taps = {1, 0, 0, 1, -0.5f, 0};
  zors::Iir<float> iir({.taps = taps, .registers = std::vector<float>{2, 0}});
  EXPECT_EQ(iir.process(1.0f), 3);
  std::vector<float> registers(2);
  iir.registers(registers);
  EXPECT_EQ(registers, (std::vector<float>{1.5f, 0}));
  iir.setRegisters(std::vector<float>{0, 0});
  iir.setTaps(std::vector<float>{2, 0, 0, 1, 0, 0});
  EXPECT_EQ(iir.process(1.0f), 2);
  EXPECT_EQ(iir.process(std::nothrow, 1.0f).value, 2);
  EXPECT_EQ(thrown([&] { iir.setTaps(std::vector<float>(4)); }), zorStatusBadTapsLength);
  EXPECT_EQ(thrown([&] { iir.registers(std::span(registers).first(1)); }), zorStatusBadSize);
  EXPECT_EQ(thrown([] { zors::Iir<float>({.taps = std::vector<float>(5)}); }), zorStatusBadFilterOrder);
  EXPECT_EQ(thrown([] { zors::IirCascade<float>({.taps = std::vector<float>(7)}); }), zorStatusBadFilterOrder);
  EXPECT_EQ(thrown([] { zors::Iir<float>({.taps = std::vector<float>(6)}); }), zorStatusDivideByZero);
}

TEST(CppFilters, Design) {
  std::vector<double> taps(31);
  const auto gain = [&](double frequency) {
    ComplexD sum = 0;
    for (std::size_t k = 0; k < taps.size(); ++k) sum += taps[k] * std::polar(1.0, -2 * M_PI * frequency * double(k));
    return std::abs(sum);
  };
  zors::designFirLowpass(taps, {.frequency = 0.2});
  EXPECT_NEAR(gain(0), 1, 1e-12);
  EXPECT_LT(gain(0.35), 0.01);
  zors::designFirHighpass(taps, {.frequency = 0.2});
  EXPECT_NEAR(gain(0.5), 1, 1e-12);
  EXPECT_LT(gain(0.05), 0.01);
  zors::designFirBandpass(taps, {.frequency = 0.15, .upperFrequency = 0.35, .window = zors::FirWindow::hann});
  EXPECT_NEAR(gain(0.25), 1, 1e-12);
  EXPECT_LT(gain(0), 0.01);
  zors::designFirBandstop(taps, {.frequency = 0.15, .upperFrequency = 0.35});
  EXPECT_LT(gain(0.25), 0.01);
  EXPECT_EQ(zors::designFirLowpass(std::nothrow, taps, {.frequency = 0.6}), zorStatusBadSize);
  std::vector<double> iir(10);
  const auto gainOfIir = [&](double frequency) {
    ComplexD b = 0, a = 0;
    for (std::size_t k = 0; k < 5; ++k) {
      b += iir[k] * std::polar(1.0, -2 * M_PI * frequency * double(k));
      a += iir[5 + k] * std::polar(1.0, -2 * M_PI * frequency * double(k));
    }
    return std::abs(b / a);
  };
  zors::designIirLowpass(iir, {.frequency = 0.1, .order = 4});
  EXPECT_NEAR(gainOfIir(0.1), std::sqrt(0.5), 1e-9);
  EXPECT_LT(gainOfIir(0.3), 0.01);
  zors::designIirHighpass(iir, {.frequency = 0.1, .order = 4, .ripple = 1});
  EXPECT_NEAR(gainOfIir(0.1), std::pow(10, -1 / 20.0), 1e-9);
  EXPECT_EQ(thrown([&] { zors::designIirLowpass(taps, {.frequency = 0.1, .order = 4}); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { zors::designIirLowpass(iir, {.frequency = 0.1, .order = 13}); }), zorStatusBadIirGenOrder);
}

TEST(CppFilters, AdaptiveAndSparse) {
  const std::vector<float> unknown = {0.5f, -0.25f, 0.125f};
  const auto x = randomVector<float>(4000);
  std::vector<float> reference(x.size()), y(x.size()), learnt(3);
  zors::Fir<float>({.taps = unknown}).process(x, reference);
  zors::Lms<float> lms({.tapCount = 3});
  lms.process(x, reference, y, 0.1f);
  lms.taps(learnt);
  for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(learnt[k], unknown[k], 1e-4);
  EXPECT_EQ(thrown([&] { lms.process(x, learnt, y, 0.1f); }), zorStatusBadSize);
  EXPECT_EQ(thrown([&] { lms.taps(y); }), zorStatusBadTapsLength);
  zors::SparseFir echo({.taps = std::vector<float>{1, 0.5f}, .positions = std::vector<Zor32s>{0, 100}});
  echo.process(std::span(x).first(60), std::span(y).first(60));
  echo.process(std::span(x).subspan(60), std::span(y).subspan(60));
  for (std::size_t i = 0; i < x.size(); ++i) EXPECT_NEAR(y[i], x[i] + (i >= 100 ? 0.5f * x[i - 100] : 0), 1e-6);
  EXPECT_EQ(thrown([] {
              zors::SparseFir({.taps = std::vector<float>{1, 1}, .positions = std::vector<Zor32s>{5, 2}});
            }),
            zorStatusBadSparsePositions);
}

// A sine at another rate is that sine, however the stream is cut.
TEST(CppResampler, SinesAndCuts) {
  for (const auto& [in, out] : {std::pair(44100, 48000), std::pair(48000, 8000), std::pair(44100, 47999)}) {
    constexpr std::size_t n = 6000;
    std::vector<float> x(n), whole(10000), cut(10000);
    for (std::size_t i = 0; i < n; ++i) x[i] = float(std::sin(2 * M_PI * 1000 * double(i) / in));
    zors::Resampler<float> resampler({.inRate = in, .outRate = out});
    std::size_t made = resampler.process(x, whole);
    made += resampler.finish(std::span(whole).subspan(made));
    EXPECT_EQ(made, std::size_t(std::ceil(double(n) * out / in)));
    const auto edge = std::size_t(double(resampler.reach()) * out / in) + 1;
    for (std::size_t i = edge; i + edge < made; ++i)
      ASSERT_NEAR(whole[i], std::sin(2 * M_PI * 1000 * double(i) / out), 2e-3) << in << " " << out << " " << i;
    std::size_t parts = 0, at = 0;
    for (const std::size_t size : {1u, 7u, 1000u, 2u, 3000u, 1990u}) {
      parts += resampler.process(std::span(x).subspan(at, size), std::span(cut).subspan(parts));
      at += size;
    }
    ASSERT_EQ(at, n);
    parts += resampler.finish(std::span(cut).subspan(parts));
    ASSERT_EQ(parts, made);
    EXPECT_LT(distance(wide(cut), wide(whole), made), 1e-5);
  }
}

TEST(CppResampler, IntegersAndRefusals) {
  zors::Resampler<Zor16s> resampler({.inRate = 1, .outRate = 2});
  const std::vector<Zor16s> x(400, 1000);
  std::vector<Zor16s> y(1000, 7);
  EXPECT_EQ(thrown([&] { resampler.process(x, std::span(y).first(400)); }), zorStatusBadSize);
  EXPECT_EQ(y, std::vector<Zor16s>(1000, 7));
  std::size_t made = resampler.process(x, y);
  made += resampler.finish(std::span(y).subspan(made));
  EXPECT_EQ(made, 800u);
  EXPECT_NEAR(y[400], 1000, 2);
  EXPECT_EQ(thrown([] { zors::Resampler<float>({.inRate = 0, .outRate = 1}); }), zorStatusBadSize);
  EXPECT_EQ(thrown([] { zors::Resampler<float>({.inRate = 1, .outRate = 2, .alpha = 0}); }), zorStatusBadArgument);
  zors::Resampler<float> empty;
  std::vector<float> f(10), g(100);
  EXPECT_EQ(empty.process(std::nothrow, f, g).status, zorStatusNullPointer);
}

TEST(CppGenerators, TonesGoOn) {
  zors::Tone<double> tone({.frequency = 0.01, .magnitude = 2, .phase = 0.5});
  zors::Tone<Complex> turning({.frequency = 0.01f});
  zors::Triangle<float> triangle({.frequency = 0.125f});
  std::vector<double> x(50);
  std::vector<Complex> z(50);
  tone.generate(std::span(x).first(20));
  tone.generate(std::span(x).subspan(20));
  turning.generate(z);
  for (std::size_t i = 0; i < 50; ++i) {
    EXPECT_NEAR(x[i], 2 * std::cos(0.5 + 2 * M_PI * 0.01 * double(i)), 1e-12);
    EXPECT_NEAR(z[i].imag(), std::sin(2 * M_PI * 0.01 * double(i)), 1e-5);
  }
  std::vector<float> t(8);
  triangle.generate(t);
  EXPECT_NEAR(t[2], 0, 1e-6);
  EXPECT_NEAR(t[4], -1, 1e-6);
  zors::Tone<Zor16s> loud({.frequency = 0.25f, .magnitude = 1000});
  std::vector<Zor16s> i(1);
  loud.generate(i);
  EXPECT_EQ(i[0], 1000);
  zors::Tone<float> bad({.frequency = 0.6f});
  std::vector<float> y(3, 7);
  EXPECT_EQ(thrown([&] { bad.generate(y); }), zorStatusBadToneFrequency);
  EXPECT_EQ(y, std::vector<float>(3, 7));
}

TEST(CppGenerators, RandomNumbersGoOnAndHaveTheirMoments) {
  zors::RandomUniform<float> uniform({.low = -1, .high = 3, .seed = 5}), same({.low = -1, .high = 3, .seed = 5});
  std::vector<float> x(20000), y(20000);
  uniform.generate(x);
  same.generate(std::span(y).first(777));
  same.generate(std::span(y).subspan(777));
  EXPECT_EQ(x, y);
  EXPECT_NEAR(zors::mean(x), 1, 0.05);
  EXPECT_GE(zors::min(x), -1);
  EXPECT_LE(zors::max(x), 3);
  zors::RandomGauss<float> gauss({.mean = 2, .deviation = 0.5f});
  gauss.generate(x);
  const auto [mean, deviation] = zors::meanAndDeviation(x);
  EXPECT_NEAR(mean, 2, 0.02);
  EXPECT_NEAR(deviation, 0.5, 0.02);
  zors::RandomUniform<Zor8u> bytes({.low = 10, .high = 20});
  std::vector<Zor8u> b(100);
  bytes.generate(b);
  EXPECT_GE(std::get<0>(zors::minMax(b)), 10);
}

TEST(CppDetection, GoertzelAndFm) {
  const auto x = randomVector<double>(200);
  const auto z = randomVector<Complex>(200);
  const auto bin = [](const auto& v, double f) {
    ComplexD sum = 0;
    for (std::size_t n = 0; n < v.size(); ++n) sum += ComplexD(v[n]) * std::polar(1.0, -2 * M_PI * f * double(n));
    return sum;
  };
  EXPECT_LT(std::abs(zors::goertzel(x, 0.123) - bin(x, 0.123)), 1e-11);
  EXPECT_LT(std::abs(ComplexD(zors::goertzel(z, 0.7f)) - bin(z, double(0.7f))), 1e-3);
  const auto two = zors::goertzel(x, 0.1, 0.2);
  EXPECT_LT(std::abs(two[1] - bin(x, 0.2)), 1e-11);
  EXPECT_EQ(zors::goertzel(std::nothrow, x, 1.5).status, zorStatusBadRelativeFrequency);
  EXPECT_EQ(thrown([] { zors::goertzel(std::vector<float>(), 0.1f); }), zorStatusBadSize);
  zors::FmDemodulator fm;
  const std::vector<Zor16s> re = {1000, 0, -1000}, im = {0, 1000, 0};
  std::vector<Zor16s> turn(3);
  fm.process(re, im, turn);
  EXPECT_EQ(turn[1], 16384);
  EXPECT_EQ(turn[2], 16384);
}

TEST(CppWavelets, HaarAndBanksRestoreTheirInput) {
  const auto x = randomVector<double>(9);
  std::vector<double> low(5), high(4), back(9);
  zors::haarForward(x, low, high);
  EXPECT_NEAR(low[1], (x[2] + x[3]) / 2, 1e-15);
  EXPECT_NEAR(high[1], (x[3] - x[2]) / 2, 1e-15);
  zors::haarInverse(low, high, back);
  EXPECT_LT(distance(wide(back), wide(x), 9), 1e-15);
  EXPECT_EQ(zors::haarForward(std::nothrow, x, high, low), zorStatusBadSize);
  std::vector<double> one = {3}, oneLow(1), none;
  zors::haarForward(one, oneLow, none);
  EXPECT_EQ(oneLow[0], 3);
  const float r = std::sqrt(0.5f);
  const std::vector<float> l = {r, r}, h = {r, -r}, hInverse = {-r, r};
  zors::WaveletForward forward({.low = l, .high = h, .lowOffset = -1, .highOffset = -1});
  zors::WaveletInverse inverse({.low = l, .high = hInverse});
  const auto s = randomVector<float>(64);
  std::vector<float> a(32), b(32), y(64);
  forward.process(std::span(s).first(20), std::span(a).first(10), std::span(b).first(10));
  forward.process(std::span(s).subspan(20), std::span(a).subspan(10), std::span(b).subspan(10));
  inverse.process(a, b, y);
  EXPECT_LT(distance(wide(y), wide(s), 64), 1e-6);
  EXPECT_EQ(thrown([&] { forward.process(s, a, y); }), zorStatusBadSize);
}

// Move-only: the object moved from is empty, what it held lives on; nothing is released twice, nothing leaks.
TEST(CppObjects, MoveAndRelease) {
  static_assert(!std::is_copy_constructible_v<zors::Fir<float>> && !std::is_copy_assignable_v<zors::Fft<float>>);
  static_assert(std::is_nothrow_move_constructible_v<zors::Fir<float>> &&
                std::is_nothrow_move_assignable_v<zors::Dft<Complex>> &&
                std::is_nothrow_move_constructible_v<zors::Iir<double>>);
  kit::ServicesScope scope;
  {
    const std::vector<float> taps = {1, 2};
    zors::Fir<float> first({.taps = taps}), second;
    EXPECT_EQ(first.process(1.0f), 1);
    second = std::move(first);
    EXPECT_EQ(second.process(0.0f), 2);
    std::vector<float> y(2, 7);
    EXPECT_EQ(thrown([&] { first.process(taps, y); }), zorStatusNullPointer);
    EXPECT_EQ(first.process(std::nothrow, taps, y), zorStatusNullPointer);
    EXPECT_EQ(y, std::vector<float>(2, 7));
    second = zors::Fir<float>({.taps = taps});
    zors::Fft<Complex> fft({.order = 10});
    auto moved = std::move(fft);
    std::vector<Complex> x(1024);
    moved.forward(x, x);
    EXPECT_EQ(fft.forward(std::nothrow, x, x), zorStatusNullPointer);
    zors::Iir<float> empty;
    EXPECT_EQ(empty.process(std::nothrow, y, y), zorStatusNullPointer);
    EXPECT_GT(scope->live, 0);
  }
  EXPECT_EQ(scope.leaked(), 0);
}

template <class Build> void checkExhausted(Build build) {
  const int allocations = kit::failEachAllocation(build, [](int n, ZorStatus status) {
    EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << n;
    EXPECT_EQ(kit::services().live, 0);
  });
  EXPECT_GT(allocations, 0);
}
TEST(CppObjects, ExhaustedMemoryIsAStatusAndLeaksNothing) {
  checkExhausted([] { return zors::Fft<Complex>().build(std::nothrow, {.order = 12}); });
  checkExhausted([] { return zors::Dft<double>().build(std::nothrow, {.length = 1009}); });
  checkExhausted([] { return zors::DctForward<float>().build(std::nothrow, {.length = 100}); });
  checkExhausted([] { return zors::Hilbert().build(std::nothrow, {.length = 100}); });
  const std::vector<float> taps = {1, 2, 3, 1, 0.5f, 0.5f};
  checkExhausted([&] { return zors::Fir<float>().build(std::nothrow, {.taps = taps}); });
  checkExhausted([&] { return zors::FirMultiRate<float>().build(std::nothrow, {.taps = taps, .down = 2}); });
  checkExhausted([&] { return zors::IirCascade<float>().build(std::nothrow, {.taps = taps}); });
  checkExhausted([] { return zors::Lms<float>().build(std::nothrow, {.tapCount = 8}); });
  checkExhausted([] { return zors::RandomUniform<float>().build(std::nothrow, {.low = 0, .high = 1}); });
  checkExhausted([] { return zors::Resampler<float>().build(std::nothrow, {.inRate = 2, .outRate = 3}); });
  checkExhausted([&] { return zors::WaveletForward().build(std::nothrow, {.low = taps, .high = taps}); });
}

}  // namespace
