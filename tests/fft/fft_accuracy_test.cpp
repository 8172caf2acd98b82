// The transforms against exact ones, and what follows from linearity, shifts and round trips.
#include <complex>
#include <numbers>

#include "fft/fft_kinds.h"
#include "zors/fft.h"

namespace {

using Exact = std::complex<long double>;

// Recursion by halves in long double.
std::vector<Exact> exactTransform(std::vector<Exact> x) {
  const std::size_t n = x.size();
  std::vector<Exact> turns(n / 2), out(n);
  for (std::size_t k = 0; k < n / 2; ++k)
    turns[k] = std::polar(
        1.0L, -2 * std::numbers::pi_v<long double> * static_cast<long double>(k) / static_cast<long double>(n));
  for (std::size_t span = 1; span < n; span *= 2) {  // decimation in frequency with natural order on both sides
    const std::size_t groups = n / (2 * span);
    for (std::size_t g = 0; g < groups; ++g)
      for (std::size_t k = 0; k < span; ++k) {
        const Exact a = x[g * span + k], b = x[g * span + k + n / 2];
        out[2 * g * span + k] = a + b;
        out[2 * g * span + k + span] = (a - b) * turns[g * span];
      }
    std::swap(x, out);
  }
  return x;
}

// Root mean square of the error over that of the exact result.
template <class Got, class Want> double relativeError(std::size_t n, Got got, Want want) {
  long double error = 0, size = 0;
  for (std::size_t i = 0; i < n; ++i) {
    error += std::norm(Exact(got(i)) - Exact(want(i)));
    size += std::norm(Exact(want(i)));
  }
  return static_cast<double>(std::sqrt(error / size));
}

template <class K, class P>
void complexAccuracy(const K& kind, ZorStatus (*forward)(const P*, P*, const typename K::Spec*, Zor8u*),
                     ZorStatus (*inverse)(const P*, P*, const typename K::Spec*, Zor8u*), int last) {
  constexpr double epsilon = std::numeric_limits<decltype(P::re)>::epsilon();
  kit::Random random(7);
  for (int order = 1; order <= last; ++order) {
    const std::size_t n = std::size_t{1} << order;
    const auto x = kit::signal<P>(n, random);
    std::vector<P> y(n), back(n);
    typename K::Spec* spec = nullptr;
    ASSERT_EQ(kind.initAlloc(&spec, order, ZOR_FFT_DIVIDE_INVERSE, 0), zorStatusOk);
    ASSERT_EQ(forward(x.data(), y.data(), spec, nullptr), zorStatusOk);
    ASSERT_EQ(inverse(y.data(), back.data(), spec, nullptr), zorStatusOk);
    ASSERT_EQ(kind.free(spec), zorStatusOk);
    std::vector<Exact> exact(n);
    for (std::size_t i = 0; i < n; ++i) exact[i] = {x[i].re, x[i].im};
    exact = exactTransform(exact);
    const double bound = epsilon * 0.35 * std::sqrt(order + 1);
    const double error = relativeError(
        n, [&](std::size_t i) { return Exact(y[i].re, y[i].im); }, [&](std::size_t i) { return exact[i]; });
    const double round = relativeError(
        n, [&](std::size_t i) { return Exact(back[i].re, back[i].im); },
        [&](std::size_t i) { return Exact(x[i].re, x[i].im); });
    EXPECT_LT(error, bound) << kind.name << " order " << order;
    EXPECT_LT(round, 1.5 * bound) << kind.name << " order " << order << ", there and back";
    testing::Test::RecordProperty(std::string(kind.name).append(" order ").append(std::to_string(order)),
                                  std::to_string(error / epsilon));
  }
}

template <class K, class T>
void realAccuracy(const K& kind, ZorStatus (*forward)(const T*, T*, const typename K::Spec*, Zor8u*),
                  ZorStatus (*inverse)(const T*, T*, const typename K::Spec*, Zor8u*), int last) {
  constexpr double epsilon = std::numeric_limits<T>::epsilon();
  kit::Random random(8);
  for (int order = 1; order <= last; ++order) {
    const std::size_t n = std::size_t{1} << order;
    const auto x = kit::signal<T>(n, random);
    std::vector<T> y(n), back(n);
    typename K::Spec* spec = nullptr;
    ASSERT_EQ(kind.initAlloc(&spec, order, ZOR_FFT_DIVIDE_INVERSE, 0), zorStatusOk);
    ASSERT_EQ(forward(x.data(), y.data(), spec, nullptr), zorStatusOk);
    ASSERT_EQ(inverse(y.data(), back.data(), spec, nullptr), zorStatusOk);
    ASSERT_EQ(kind.free(spec), zorStatusOk);
    std::vector<Exact> exact(n);
    for (std::size_t i = 0; i < n; ++i) exact[i] = x[i];
    exact = exactTransform(exact);
    const double bound = epsilon * 0.4 * std::sqrt(order + 1);
    const auto term = [&](std::size_t k) { return k == 0 ? Exact(y[0], y[1]) : Exact(y[2 * k], y[2 * k + 1]); };
    const auto wanted = [&](std::size_t k) { return k == 0 ? Exact(exact[0].real(), exact[n / 2].real()) : exact[k]; };
    EXPECT_LT(relativeError(n / 2, term, wanted), bound) << kind.name << " order " << order;
    EXPECT_LT(relativeError(
                  n, [&](std::size_t i) { return Exact(back[i]); }, [&](std::size_t i) { return Exact(x[i]); }),
              1.5 * bound)
        << kind.name << " order " << order << ", there and back";
  }
}

TEST(FFTAccuracy, ComplexTransformsAreWithinAFewRoundingsOfExactOnes) {
  complexAccuracy(kinds::c32fc, zorsFFTFwd_CToC_32fc, zorsFFTInv_CToC_32fc, 20);
  complexAccuracy(kinds::c64fc, zorsFFTFwd_CToC_64fc, zorsFFTInv_CToC_64fc, 19);
}
TEST(FFTAccuracy, RealTransformsAreWithinAFewRoundingsOfExactOnes) {
  realAccuracy(kinds::r32f, zorsFFTFwd_RToPerm_32f, zorsFFTInv_PermToR_32f, 20);
  realAccuracy(kinds::r64f, zorsFFTFwd_RToPerm_64f, zorsFFTInv_PermToR_64f, 19);
}

TEST(FFTAccuracy, AnImpulseGivesTheTwiddlesOfItsPlace) {
  for (int order : {3, 6, 9, 12, 19}) {
    const std::size_t n = std::size_t{1} << order;
    ZorsFFTSpec_C_64fc* spec = nullptr;
    ASSERT_EQ(zorsFFTInitAlloc_C_64fc(&spec, order, ZOR_FFT_DIVIDE_NONE, 0), zorStatusOk);
    for (std::size_t place : {std::size_t{0}, std::size_t{1}, n / 2 + 1, n - 1}) {
      std::vector<Zor64fc> x(n, {0, 0});
      x[place] = {1, 0};
      ASSERT_EQ(zorsFFTFwd_CToC_64fc_I(x.data(), spec, nullptr), zorStatusOk);
      for (std::size_t k = 0; k < n; k += 1 + n / 64) {
        const long double angle = -2 * std::numbers::pi_v<long double> * static_cast<long double>(place * k % n) /
                                  static_cast<long double>(n);
        ASSERT_NEAR(x[k].re, static_cast<double>(std::cos(angle)), 1e-15 * order)
            << "order " << order << " place " << place << " k " << k;
        ASSERT_NEAR(x[k].im, static_cast<double>(std::sin(angle)), 1e-15 * order)
            << "order " << order << " place " << place << " k " << k;
      }
    }
    ASSERT_EQ(zorsFFTFree_C_64fc(spec), zorStatusOk);
  }
}

TEST(FFTAccuracy, PowersOfTwoFactorsPassThroughExactly) {
  kit::Random random(9);
  for (int order : {2, 5, 8, 11, 14}) {
    const std::size_t n = std::size_t{1} << order;
    ZorsFFTSpec_C_32fc* spec = nullptr;
    ASSERT_EQ(zorsFFTInitAlloc_C_32fc(&spec, order, ZOR_FFT_DIVIDE_NONE, 0), zorStatusOk);
    auto x = kit::signal<Zor32fc>(n, random), scaled = x;
    for (auto& z : scaled) z = {z.re * 1024, z.im * 1024};
    ASSERT_EQ(zorsFFTFwd_CToC_32fc_I(x.data(), spec, nullptr), zorStatusOk);
    ASSERT_EQ(zorsFFTFwd_CToC_32fc_I(scaled.data(), spec, nullptr), zorStatusOk);
    for (auto& z : x) z = {z.re * 1024, z.im * 1024};
    EXPECT_EQ(kit::firstDifference<Zor32fc>(scaled, x), "") << "order " << order;
    ASSERT_EQ(zorsFFTFree_C_32fc(spec), zorStatusOk);
  }
}

TEST(FFTAccuracy, AShiftedSignalHasATurnedSpectrum) {
  kit::Random random(10);
  const int order = 10;
  const std::size_t n = 1024, shift = 37;
  ZorsFFTSpec_C_64fc* spec = nullptr;
  ASSERT_EQ(zorsFFTInitAlloc_C_64fc(&spec, order, ZOR_FFT_DIVIDE_NONE, 0), zorStatusOk);
  auto x = kit::signal<Zor64fc>(n, random), shifted = x;
  std::rotate(shifted.begin(), shifted.begin() + shift, shifted.end());
  ASSERT_EQ(zorsFFTFwd_CToC_64fc_I(x.data(), spec, nullptr), zorStatusOk);
  ASSERT_EQ(zorsFFTFwd_CToC_64fc_I(shifted.data(), spec, nullptr), zorStatusOk);
  for (std::size_t k = 0; k < n; ++k) {
    const auto turn = std::polar(1.0, 2 * std::numbers::pi * static_cast<double>(shift * k % n) / 1024);
    const auto wanted = std::complex<double>(x[k].re, x[k].im) * turn;
    ASSERT_NEAR(shifted[k].re, wanted.real(), 1e-12);
    ASSERT_NEAR(shifted[k].im, wanted.imag(), 1e-12);
  }
  ASSERT_EQ(zorsFFTFree_C_64fc(spec), zorStatusOk);
}

TEST(FFTAccuracy, AllFlagsScaleAsTheySay) {
  kit::Random random(11);
  for (int order : {0, 1, 4, 6, 9, 12, 19}) {
    const std::size_t n = std::size_t{1} << order;
    const auto x = kit::signal<Zor32fc>(n, random);
    for (int flag : kinds::flags) {
      ZorsFFTSpec_C_32fc* spec = nullptr;
      ASSERT_EQ(zorsFFTInitAlloc_C_32fc(&spec, order, flag, 0), zorStatusOk);
      auto y = x;
      ASSERT_EQ(zorsFFTFwd_CToC_32fc_I(y.data(), spec, nullptr), zorStatusOk);
      ASSERT_EQ(zorsFFTInv_CToC_32fc_I(y.data(), spec, nullptr), zorStatusOk);
      const float factor = flag == ZOR_FFT_DIVIDE_NONE ? static_cast<float>(n) : 1.0f;
      for (std::size_t i = 0; i < n; ++i) {
        ASSERT_NEAR(y[i].re, x[i].re * factor, 2e-6f * factor) << "order " << order << " flag " << flag;
        ASSERT_NEAR(y[i].im, x[i].im * factor, 2e-6f * factor) << "order " << order << " flag " << flag;
      }
      ASSERT_EQ(zorsFFTFree_C_32fc(spec), zorStatusOk);
    }
  }
}

}  // namespace
