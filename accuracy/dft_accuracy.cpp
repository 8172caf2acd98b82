// Errors of the transforms of any length and of the cosine transforms, by method, beside FFTW's on the same inputs: the
// root mean square of the error over that of the exact result, and the largest error of a term over the same, in units
// of the element type's rounding (2^-24, 2^-53); for each method the mean and the worst of its lengths from 2 to 200.
// Then the root mean square of longer transforms, over some of their terms.
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdio>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "zors.h"

#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using Exact = std::complex<long double>;
using Points = std::vector<Exact>;

Points roots(std::size_t n) {
  Points w(n);
  for (std::size_t k = 0; k < n; ++k)
    w[k] = std::polar(1.0L, -2 * std::numbers::pi_v<long double> * (long double)(k) / (long double)(n));
  return w;
}
// Every so manieth of the first `terms` terms.
Points exactTransform(const Points& x, std::size_t terms, std::size_t step = 1) {
  const std::size_t n = x.size();
  const Points w = roots(n);
  Points out;
  for (std::size_t k = 0; k < terms; k += step) {
    long double re = 0, im = 0;
    for (std::size_t i = 0, at = 0; i < n; ++i, at = at + k < n ? at + k : at + k - n) {
      re += x[i].real() * w[at].real() - x[i].imag() * w[at].imag();
      im += x[i].real() * w[at].imag() + x[i].imag() * w[at].real();
    }
    out.emplace_back(re, im);
  }
  return out;
}
Points every(const Points& x, std::size_t step) {
  Points out;
  for (std::size_t k = 0; k < x.size(); k += step) out.push_back(x[k]);
  return out;
}
Points exactCosines(const Points& x) {
  const std::size_t n = x.size();
  const Points w = roots(4 * n);
  Points out(n);
  for (std::size_t m = 0; m < n; ++m)
    for (std::size_t i = 0; i < n; ++i)
      out[m] +=
          std::sqrt((m == 0 ? 1.0L : 2.0L) / (long double)(n)) * x[i].real() * w[(2 * i + 1) * m % (4 * n)].real();
  return out;
}

struct Error {
  double rms = 0, largest = 0;
};
Error errorOf(const Points& got, const Points& exact, double unit) {
  long double wrong = 0, size = 0, largest = 0;
  for (std::size_t i = 0; i < exact.size(); ++i) {
    wrong += std::norm(got[i] - exact[i]);
    size += std::norm(exact[i]);
    largest = std::max(largest, std::abs(got[i] - exact[i]));
  }
  const long double root = std::sqrt(size), mean = root / std::sqrt((long double)(exact.size()));
  return {double(std::sqrt(wrong) / root) / unit, double(largest / mean) / unit};
}

template <class T> struct Kind;
template <> struct Kind<Zor32f> {
  using C = Zor32fc;
  static constexpr const char* name = "32-bit";
  static constexpr double unit = 0x1p-24;
  static Points transform(std::vector<C> x) {
    ZorsDFTSpec_C_32fc* spec = nullptr;
    zorsDFTInitAlloc_C_32fc(&spec, int(x.size()), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTFwd_CToC_32fc(x.data(), x.data(), spec, nullptr);
    zorsDFTFree_C_32fc(spec);
    return wide(x);
  }
  static Points cosines(std::vector<Zor32f> x) {
    ZorsDCTFwdSpec_32f* spec = nullptr;
    zorsDCTFwdInitAlloc_32f(&spec, int(x.size()), zorAlgHintNone);
    zorsDCTFwd_32f_I(x.data(), spec, nullptr);
    zorsDCTFwdFree_32f(spec);
    return Points(x.begin(), x.end());
  }
  static Points byFftw(std::vector<C> x) {
#ifdef HAVE_FFTW
    auto* both = reinterpret_cast<fftwf_complex*>(x.data());
    const auto plan = fftwf_plan_dft_1d(int(x.size()), both, both, FFTW_FORWARD, FFTW_ESTIMATE);
    fftwf_execute(plan);
    fftwf_destroy_plan(plan);
#endif
    return wide(x);
  }
  static Points spectrum(std::vector<Zor32f> x) {
    std::vector<C> y(x.size() / 2 + 1);
    ZorsDFTSpec_R_32f* spec = nullptr;
    zorsDFTInitAlloc_R_32f(&spec, int(x.size()), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTFwd_RToCCS_32f(x.data(), &y[0].re, spec, nullptr);
    zorsDFTFree_R_32f(spec);
    return wide(y);
  }
  static Points spectrumByFftw(std::vector<Zor32f> x) {
    std::vector<C> y(x.size() / 2 + 1);
#ifdef HAVE_FFTW
    const auto plan =
        fftwf_plan_dft_r2c_1d(int(x.size()), x.data(), reinterpret_cast<fftwf_complex*>(y.data()), FFTW_ESTIMATE);
    fftwf_execute(plan);
    fftwf_destroy_plan(plan);
#endif
    return wide(y);
  }
  static Points wide(const std::vector<C>& x) {
    Points out;
    for (const C& v : x) out.emplace_back(v.re, v.im);
    return out;
  }
};
template <> struct Kind<Zor64f> {
  using C = Zor64fc;
  static constexpr const char* name = "64-bit";
  static constexpr double unit = 0x1p-53;
  static Points transform(std::vector<C> x) {
    ZorsDFTSpec_C_64fc* spec = nullptr;
    zorsDFTInitAlloc_C_64fc(&spec, int(x.size()), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTFwd_CToC_64fc(x.data(), x.data(), spec, nullptr);
    zorsDFTFree_C_64fc(spec);
    return wide(x);
  }
  static Points cosines(std::vector<Zor64f> x) {
    ZorsDCTFwdSpec_64f* spec = nullptr;
    zorsDCTFwdInitAlloc_64f(&spec, int(x.size()), zorAlgHintNone);
    zorsDCTFwd_64f_I(x.data(), spec, nullptr);
    zorsDCTFwdFree_64f(spec);
    return Points(x.begin(), x.end());
  }
  static Points byFftw(std::vector<C> x) {
#ifdef HAVE_FFTW
    auto* both = reinterpret_cast<fftw_complex*>(x.data());
    const auto plan = fftw_plan_dft_1d(int(x.size()), both, both, FFTW_FORWARD, FFTW_ESTIMATE);
    fftw_execute(plan);
    fftw_destroy_plan(plan);
#endif
    return wide(x);
  }
  static Points spectrum(std::vector<Zor64f> x) {
    std::vector<C> y(x.size() / 2 + 1);
    ZorsDFTSpec_R_64f* spec = nullptr;
    zorsDFTInitAlloc_R_64f(&spec, int(x.size()), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTFwd_RToCCS_64f(x.data(), &y[0].re, spec, nullptr);
    zorsDFTFree_R_64f(spec);
    return wide(y);
  }
  static Points spectrumByFftw(std::vector<Zor64f> x) {
    std::vector<C> y(x.size() / 2 + 1);
#ifdef HAVE_FFTW
    const auto plan =
        fftw_plan_dft_r2c_1d(int(x.size()), x.data(), reinterpret_cast<fftw_complex*>(y.data()), FFTW_ESTIMATE);
    fftw_execute(plan);
    fftw_destroy_plan(plan);
#endif
    return wide(y);
  }
  static Points wide(const std::vector<C>& x) {
    Points out;
    for (const C& v : x) out.emplace_back(v.re, v.im);
    return out;
  }
};

struct Row {
  double rms = 0, worst = 0, largest = 0;
  int count = 0;
  void add(const Error& e) {
    rms += e.rms;
    worst = std::max(worst, e.rms);
    largest = std::max(largest, e.largest);
    ++count;
  }
  void print() const { std::printf(" %.2f | %.2f | %.2f |", rms / count, worst, largest); }
};
bool prime(int n) {
  for (int p = 2; p * p <= n; ++p)
    if (n % p == 0) return false;
  return n > 1;
}
int largestFactor(int n) {
  int largest = 1;
  for (int p = 2; p <= n; ++p)
    for (; n % p == 0; n /= p) largest = p;
  return largest;
}

template <class T> void measure(std::mt19937_64& random) {
  using K = Kind<T>;
  enum { straight, fft, chain, direct, chirp, methods };
  const char* const names[methods] = {"up to 16 points", "powers of two", "chains", "direct", "chirps"};
  Row ours[methods], fftw[methods], real, realFftw, cosines;
  std::uniform_real_distribution<double> uniform(-1, 1);
  for (int n = 2; n <= 200; ++n) {
    const int largest = largestFactor(n);
    const bool chained = !prime(n) && largest <= (n % 4 == 0 ? 150 : 50);
    const int method = n <= 16 ? straight : (n & (n - 1)) == 0 ? fft : chained ? chain : n < 51 ? direct : chirp;
    std::vector<typename K::C> x(static_cast<std::size_t>(n));
    std::vector<T> values(static_cast<std::size_t>(n));
    Points exact, exactValues;
    for (std::size_t i = 0; i < x.size(); ++i) {
      x[i] = {T(uniform(random)), T(uniform(random))};
      values[i] = x[i].re;
      exact.emplace_back(x[i].re, x[i].im);
      exactValues.emplace_back(values[i], 0);
    }
    exact = exactTransform(exact, exact.size());
    const Points exactReal = exactTransform(exactValues, exactValues.size() / 2 + 1);
    ours[method].add(errorOf(K::transform(x), exact, K::unit));
    fftw[method].add(errorOf(K::byFftw(x), exact, K::unit));
    real.add(errorOf(K::spectrum(values), exactReal, K::unit));
    realFftw.add(errorOf(K::spectrumByFftw(values), exactReal, K::unit));
    cosines.add(errorOf(K::cosines(values), exactCosines(exactValues), K::unit));
  }
  for (int method = 0; method < methods; ++method) {
    std::printf("| %s, %s |", names[method], K::name);
    ours[method].print();
    fftw[method].print();
    std::printf("\n");
  }
  std::printf("| real to CCS, %s |", K::name);
  real.print();
  realFftw.print();
  std::printf("\n| DCT, %s |", K::name);
  cosines.print();
  std::printf(" | | |\n");
}

template <class T> void measureLong(std::mt19937_64& random, std::size_t n) {
  using K = Kind<T>;
  std::uniform_real_distribution<double> uniform(-1, 1);
  std::vector<typename K::C> x(n);
  std::vector<T> values(n);
  Points exact, exactValues;
  for (std::size_t i = 0; i < n; ++i) {
    x[i] = {T(uniform(random)), T(uniform(random))};
    values[i] = x[i].re;
    exact.emplace_back(x[i].re, x[i].im);
    exactValues.emplace_back(values[i], 0);
  }
  const std::size_t step = std::max<std::size_t>(1, n / 300);
  exact = exactTransform(exact, n, step);
  exactValues = exactTransform(exactValues, n / 2 + 1, step);
  const auto print = [&](const Points& got, const Points& right) {
    std::printf(" %.2f |", errorOf(every(got, step), right, K::unit).rms);
  };
  print(K::transform(x), exact);
  print(K::byFftw(x), exact);
  print(K::spectrum(values), exactValues);
  print(K::spectrumByFftw(values), exactValues);
}

}  // namespace

int main() {
  std::printf(
      "| lengths 2 to 200 | mean RMS | worst RMS | largest | FFTW | worst | largest "
      "|\n|---|---|---|---|---|---|---|\n");
  std::mt19937_64 random(1);
  measure<Zor32f>(random);
  measure<Zor64f>(random);
  std::printf(
      "\n| points | CToC_32fc | FFTW | RToCCS_32f | FFTW | CToC_64fc | FFTW | RToCCS_64f | FFTW "
      "|\n|---|---|---|---|---|---|---|---|---|\n");
  for (const std::size_t n : {240, 480, 960, 1000, 1009, 1152, 1920, 1999, 4800, 10007, 44100, 48000, 1000000}) {
    std::printf("| %zu |", n);
    measureLong<Zor32f>(random, n);
    measureLong<Zor64f>(random, n);
    std::printf("\n");
  }
}
