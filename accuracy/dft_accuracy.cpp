// Errors of the transforms of any length and of the cosine transforms, by method, beside FFTW's on the same inputs: the
// root mean square of the error over that of the exact result, and the largest error of a term over the same, in units
// of the element type's rounding (2^-24, 2^-53); for each method the mean and the worst of its lengths from 2 to 200.
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
Points exactTransform(const Points& x) {
  const std::size_t n = x.size();
  const Points w = roots(n);
  Points out(n);
  for (std::size_t k = 0; k < n; ++k)
    for (std::size_t i = 0; i < n; ++i) out[k] += x[i] * w[i * k % n];
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
  Row ours[methods], fftw[methods], cosines;
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
    exact = exactTransform(exact);
    ours[method].add(errorOf(K::transform(x), exact, K::unit));
    fftw[method].add(errorOf(K::byFftw(x), exact, K::unit));
    cosines.add(errorOf(K::cosines(values), exactCosines(exactValues), K::unit));
  }
  for (int method = 0; method < methods; ++method) {
    std::printf("| %s, %s |", names[method], K::name);
    ours[method].print();
    fftw[method].print();
    std::printf("\n");
  }
  std::printf("| DCT, %s |", K::name);
  cosines.print();
  std::printf(" | | |\n");
}

}  // namespace

int main() {
  std::printf(
      "| lengths 2 to 200 | mean RMS | worst RMS | largest | FFTW | worst | largest "
      "|\n|---|---|---|---|---|---|---|\n");
  std::mt19937_64 random(1);
  measure<Zor32f>(random);
  measure<Zor64f>(random);
}
