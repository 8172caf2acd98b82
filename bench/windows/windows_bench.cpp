// Windows beside plain loops with the library's cosine, and liquid-dsp where it is installed.
#include <cmath>
#include <numbers>

#include "kit/bench.h"
#include "zors/windows.h"
#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#include <complex>
#endif

namespace {

using bench::array, bench::workload;

constexpr long sizes[] = {256, 4096, 65536};

template <class T> const T* ramp(long n) {
  T* x = array<T>(n);
  for (long i = 0; i < n; ++i) {
    if constexpr (requires { x[i].re; })
      x[i] = {decltype(T::re)(i % 100), 1};
    else
      x[i] = T(i % 100);
  }
  return x;
}

template <class F> F raised(long n, long last, F offset, F amplitude) {
  return offset - amplitude * std::cos(F(2 * std::numbers::pi) * F(n) / F(last));
}
template <class F> F doubleCosine(long n, long last) {
  const F t = F(2 * std::numbers::pi) * F(n) / F(last);
  return F(0.42) - F(0.5) * std::cos(t) + F(0.08) * std::cos(2 * t);
}

template <class T, class Run, class Weight> void against(const char* name, int bytes, Run run, Weight weight) {
  for (long n : sizes) {
    const T* x = ramp<T>(n);
    T* y = array<T>(n);
    workload(name, n)
        .zors([=] { run(x, y, int(n)); })
        .peer("loop",
              [=] {
                for (long i = 0; i < n; ++i) {
                  const auto w = weight(i, n - 1);
                  if constexpr (requires { x[i].re; }) {
                    y[i].re = x[i].re * w;
                    y[i].im = x[i].im * w;
                  } else {
                    y[i] = T(x[i] * w);
                  }
                }
              })
        .bound(bench::streams(bytes, bytes));
  }
}

void cosines() {
  const auto hannF = [](long n, long last) { return raised<float>(n, last, 0.5F, 0.5F); };
  const auto hann = [](long n, long last) { return raised<double>(n, last, 0.5, 0.5); };
  const auto hammingF = [](long n, long last) { return raised<float>(n, last, 0.54F, 0.46F); };
  const auto blackmanF = [](long n, long last) { return doubleCosine<float>(n, last); };
  against<Zor32f>("zorsWinHann_32f", 4, zorsWinHann_32f, hannF);
  against<Zor64f>("zorsWinHann_64f", 8, zorsWinHann_64f, hann);
  against<Zor32fc>("zorsWinHann_32fc", 8, zorsWinHann_32fc, hannF);
  against<Zor64fc>("zorsWinHann_64fc", 16, zorsWinHann_64fc, hann);
  against<Zor16s>("zorsWinHann_16s", 2, zorsWinHann_16s, hannF);
  against<Zor16sc>("zorsWinHann_16sc", 4, zorsWinHann_16sc, [=](long n, long last) { return short(hannF(n, last)); });
  against<Zor32f>("zorsWinHamming_32f", 4, zorsWinHamming_32f, hammingF);
  against<Zor16s>("zorsWinHamming_16s", 2, zorsWinHamming_16s, hammingF);
  against<Zor32f>("zorsWinBlackmanStd_32f", 4, zorsWinBlackmanStd_32f, blackmanF);
  against<Zor16s>("zorsWinBlackmanStd_16s", 2, zorsWinBlackmanStd_16s, blackmanF);
}
bench::Registration registerCosines(cosines);

void triangles() {
  const auto ramp32 = [](long n, long last) { return 2 * float(n < last - n ? n : last - n) / float(last); };
  const auto ramp64 = [](long n, long last) { return 2 * double(n < last - n ? n : last - n) / double(last); };
  against<Zor32f>("zorsWinBartlett_32f", 4, zorsWinBartlett_32f, ramp32);
  against<Zor64f>("zorsWinBartlett_64f", 8, zorsWinBartlett_64f, ramp64);
  against<Zor32fc>("zorsWinBartlett_32fc", 8, zorsWinBartlett_32fc, ramp32);
  against<Zor16s>("zorsWinBartlett_16s", 2, zorsWinBartlett_16s, ramp32);
}
bench::Registration registerTriangles(triangles);

double besselSeries(double x) {
  double term = 1, sum = 1;
  for (int k = 1; term > sum * 1e-8; ++k) {
    term *= (x / 2 / k) * (x / 2 / k);
    sum += term;
  }
  return sum;
}
template <class T, class Run> void kaisers(const char* name, Run run) {
  constexpr long n = 1024;
  constexpr double alpha = 0.02;
  const T* x = ramp<T>(n);
  T* y = array<T>(n);
  auto row = workload(name, n);
  row.zors([=] { run(x, y, int(n), alpha); }).peer("loop", [=] {
    const double inverse = 1 / besselSeries(alpha * (n - 1) / 2);
    for (long i = 0; i < n; ++i)
      y[i] = T(double(x[i]) * besselSeries(alpha * std::sqrt(double(i) * double(n - 1 - i))) * inverse);
  });
#ifdef HAVE_LIQUID
  row.peer("liquid", [=] {
    for (unsigned i = 0; i < n; ++i) y[i] = T(float(x[i]) * liquid_kaiser(i, n, float(alpha * (n - 1) / 2)));
  });
#endif
}
void kaiser() {
  kaisers<Zor32f>("zorsWinKaiser_32f",
                  [](const Zor32f* x, Zor32f* y, int n, double a) { zorsWinKaiser_32f(x, y, n, float(a)); });
  kaisers<Zor64f>("zorsWinKaiser_64f", zorsWinKaiser_64f);
  kaisers<Zor16s>("zorsWinKaiser_16s",
                  [](const Zor16s* x, Zor16s* y, int n, double a) { zorsWinKaiser_16s(x, y, n, float(a)); });
}
bench::Registration registerKaiser(kaiser);

}  // namespace
