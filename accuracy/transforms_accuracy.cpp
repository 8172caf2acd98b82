// Errors of the power-of-two transforms, by order, beside FFTW's on the same inputs: the root mean square of the error
// over that of the exact result, in units of the element type's rounding (2^-24, 2^-53).
#include <cmath>
#include <complex>
#include <cstdio>
#include <numbers>
#include <random>
#include <vector>

#include "zors.h"

#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using Exact = std::complex<long double>;

// By halves, decimation in frequency, natural order on both sides; each factor evaluated directly.
std::vector<Exact> exactTransform(std::vector<Exact> x) {
  const std::size_t n = x.size();
  std::vector<Exact> turns(n / 2), out(n);
  for (std::size_t k = 0; k < n / 2; ++k)
    turns[k] = std::polar(1.0L, -2 * std::numbers::pi_v<long double> * (long double)(k) / (long double)(n));
  for (std::size_t span = 1; span < n; span *= 2) {
    for (std::size_t g = 0; g < n / (2 * span); ++g)
      for (std::size_t k = 0; k < span; ++k) {
        const Exact a = x[g * span + k], b = x[g * span + k + n / 2];
        out[2 * g * span + k] = a + b;
        out[2 * g * span + k + span] = (a - b) * turns[g * span];
      }
    std::swap(x, out);
  }
  return x;
}

template <class C> double error(const std::vector<C>& got, const std::vector<Exact>& exact, std::size_t count) {
  using T = decltype(C::re);
  long double wrong = 0, size = 0;
  for (std::size_t i = 0; i < count; ++i) {
    wrong += std::norm(Exact(got[i].re, got[i].im) - exact[i]);
    size += std::norm(exact[i]);
  }
  return double(std::sqrt(wrong / size)) / (std::numeric_limits<T>::epsilon() / 2);
}

#ifdef HAVE_FFTW
void transformByFftw(const std::vector<Zor32fc>& x, std::vector<Zor32fc>& y) {
  auto* from = reinterpret_cast<fftwf_complex*>(const_cast<Zor32fc*>(x.data()));
  const auto plan =
      fftwf_plan_dft_1d(int(x.size()), from, reinterpret_cast<fftwf_complex*>(y.data()), FFTW_FORWARD, FFTW_ESTIMATE);
  fftwf_execute(plan);
  fftwf_destroy_plan(plan);
}
void transformByFftw(const std::vector<Zor64fc>& x, std::vector<Zor64fc>& y) {
  auto* from = reinterpret_cast<fftw_complex*>(const_cast<Zor64fc*>(x.data()));
  const auto plan =
      fftw_plan_dft_1d(int(x.size()), from, reinterpret_cast<fftw_complex*>(y.data()), FFTW_FORWARD, FFTW_ESTIMATE);
  fftw_execute(plan);
  fftw_destroy_plan(plan);
}
void transformByFftw(const std::vector<Zor32f>& x, std::vector<Zor32fc>& y) {
  const auto plan = fftwf_plan_dft_r2c_1d(int(x.size()), const_cast<Zor32f*>(x.data()),
                                          reinterpret_cast<fftwf_complex*>(y.data()), FFTW_ESTIMATE);
  fftwf_execute(plan);
  fftwf_destroy_plan(plan);
}
void transformByFftw(const std::vector<Zor64f>& x, std::vector<Zor64fc>& y) {
  const auto plan = fftw_plan_dft_r2c_1d(int(x.size()), const_cast<Zor64f*>(x.data()),
                                         reinterpret_cast<fftw_complex*>(y.data()), FFTW_ESTIMATE);
  fftw_execute(plan);
  fftw_destroy_plan(plan);
}
#else
void transformByFftw(const auto&, auto&) {}
#endif

struct Errors {
  double ours, fftw;
};

template <class S, class T, class C, class Init, class Free>
Errors measure(int order, Init init, Free release, ZorStatus (*forward)(const T*, C*, const S*, Zor8u*)) {
  const std::size_t n = std::size_t{1} << order;
  constexpr bool real = std::is_floating_point_v<T>;
  const std::size_t count = real ? n / 2 + 1 : n;
  std::mt19937_64 random(static_cast<unsigned>(order));
  std::uniform_real_distribution<double> uniform(-1, 1);
  std::vector<T> x(n);
  std::vector<Exact> exact(n);
  for (std::size_t i = 0; i < n; ++i) {
    if constexpr (real)
      exact[i] = x[i] = T(uniform(random));
    else {
      x[i] = {decltype(T::re)(uniform(random)), decltype(T::re)(uniform(random))};
      exact[i] = {x[i].re, x[i].im};
    }
  }
  exact = exactTransform(exact);
  std::vector<C> y(count);
  S* spec = nullptr;
  init(&spec, order, ZOR_FFT_DIVIDE_NONE, 0);
  forward(x.data(), y.data(), spec, nullptr);
  release(spec);
  const double ours = error(y, exact, count);
  transformByFftw(x, y);
  return {ours, error(y, exact, count)};
}

ZorStatus real32(const Zor32f* x, Zor32fc* y, const ZorsFFTSpec_R_32f* spec, Zor8u* buffer) {
  return zorsFFTFwd_RToCCS_32f(x, &y->re, spec, buffer);
}
ZorStatus real64(const Zor64f* x, Zor64fc* y, const ZorsFFTSpec_R_64f* spec, Zor8u* buffer) {
  return zorsFFTFwd_RToCCS_64f(x, &y->re, spec, buffer);
}

}  // namespace

int main() {
  std::puts("| order | CToC_32fc | FFTW | CToC_64fc | FFTW | RToCCS_32f | FFTW | RToCCS_64f | FFTW |");
  std::puts("|---|---|---|---|---|---|---|---|---|");
  for (int order = 1; order <= 20; ++order) {
    const Errors e[] = {
        measure<ZorsFFTSpec_C_32fc>(order, zorsFFTInitAlloc_C_32fc, zorsFFTFree_C_32fc, zorsFFTFwd_CToC_32fc),
        measure<ZorsFFTSpec_C_64fc>(order, zorsFFTInitAlloc_C_64fc, zorsFFTFree_C_64fc, zorsFFTFwd_CToC_64fc),
        measure<ZorsFFTSpec_R_32f>(order, zorsFFTInitAlloc_R_32f, zorsFFTFree_R_32f, real32),
        measure<ZorsFFTSpec_R_64f>(order, zorsFFTInitAlloc_R_64f, zorsFFTFree_R_64f, real64)};
    std::printf("| %d |", order);
    for (const Errors& x : e) std::printf(" %.2f | %.2f |", x.ours, x.fftw);
    std::putchar('\n');
    std::fflush(stdout);
  }
}
