#include <immintrin.h>

#include <cmath>

#include "kit/bench.h"
#include "zors/functions.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef HAVE_SLEEF
#include <sleef.h>
#endif

#ifdef HAVE_MVEC
extern "C" {  // the C library's, at most 4 ulp
__m256 _ZGVdN8v_cosf(__m256);
__m256 _ZGVdN8v_sinf(__m256);
__m256d _ZGVdN4v_cos(__m256d);
__m256d _ZGVdN4v_sin(__m256d);
__m256 _ZGVdN8vv_atan2f(__m256, __m256);
__m256d _ZGVdN4vv_atan2(__m256d, __m256d);
}
#endif

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {8, 63, 1000, 100'000};

// Pairs and planes of a signal: all directions, magnitudes from 0 to 1.4.
struct Signal {
  explicit Signal(long size)
      : z(bench::array<Zor32fc>(size + 8)),
        w(bench::array<Zor64fc>(size + 8)),
        s(bench::array<Zor16sc>(size + 8)),
        re(bench::array<Zor32f>(size + 8)),
        im(bench::array<Zor32f>(size + 8)),
        re64(bench::array<Zor64f>(size + 8)),
        im64(bench::array<Zor64f>(size + 8)) {
    unsigned seed = 1;
    const auto next = [&] { return double(int(seed = seed * 1664525 + 1013904223)) / 0x1p31; };
    for (long i = 0; i < size; ++i) {
      re64[i] = next();
      im64[i] = next();
      w[i] = {re64[i], im64[i]};
      z[i] = {Zor32f(re64[i]), Zor32f(im64[i])};
      s[i] = {Zor16s(32767 * re64[i]), Zor16s(32767 * im64[i])};
      re[i] = z[i].re;
      im[i] = z[i].im;
    }
  }
  Zor32fc* z;
  Zor64fc* w;
  Zor16sc* s;
  Zor32f *re, *im;
  Zor64f *re64, *im64;
};

__m256 load(const float* p) { return _mm256_loadu_ps(p); }
__m256d load(const double* p) { return _mm256_loadu_pd(p); }
void store(float* p, __m256 x) { _mm256_storeu_ps(p, x); }
void store(double* p, __m256d x) { _mm256_storeu_pd(p, x); }
template <class T> constexpr long lanes = 32 / sizeof(T);

// Functions of others, over planes.
template <class T, class AngleOf> auto phases(const T* re, const T* im, T* d, long len, AngleOf angleOf) {
  return [=] {
    for (long i = 0; i < len; i += lanes<T>) store(d + i, angleOf(load(im + i), load(re + i)));
  };
}
template <class T, class SineOf, class CosineOf>
auto products(const T* magn, const T* phase, T* re, T* im, long len, SineOf sineOf, CosineOf cosineOf) {
  return [=] {
    for (long i = 0; i < len; i += lanes<T>) {
      const auto m = load(magn + i), p = load(phase + i);
      store(re + i, m * cosineOf(p));
      store(im + i, m * sineOf(p));
    }
  };
}
#ifdef HAVE_SLEEF
template <class T, class Pair> auto productsOfPair(const T* magn, const T* phase, T* re, T* im, long len, Pair unitOf) {
  return [=] {
    for (long i = 0; i < len; i += lanes<T>) {
      const auto m = load(magn + i);
      const auto unit = unitOf(load(phase + i));
      store(re + i, m * unit.y);
      store(im + i, m * unit.x);
    }
  };
}
#endif

// What magnitudes cannot be faster than.
[[gnu::noinline]] void roots(const float* a, float* d, long len) {
  for (long i = 0; i < len; i += 8) _mm256_storeu_ps(d + i, _mm256_sqrt_ps(_mm256_loadu_ps(a + i)));
}
[[gnu::noinline]] void roots(const double* a, double* d, long len) {
  for (long i = 0; i < len; i += 4) _mm256_storeu_pd(d + i, _mm256_sqrt_pd(_mm256_loadu_pd(a + i)));
}

void magnitudesAndPowers() {
  for (long size : sizes) {
    const int len = int(size);
    const Signal in(size);
    auto* d = bench::array<Zor32f>(size + 8);
    auto* d64 = bench::array<Zor64f>(size + 8);
    auto* d16 = bench::array<Zor16s>(size + 8);
    workload("zorsMagnitude_32fc", size)
        .zors([=] { zorsMagnitude_32fc(in.z, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32fc_magnitude_32f(d, reinterpret_cast<lv_32fc_t*>(in.z), unsigned(len)); })
#endif
        .bound([=] { roots(in.re, d, size); });
    workload("zorsMagnitude_32f", size).zors([=] { zorsMagnitude_32f(in.re, in.im, d, len); }).bound([=] {
      roots(in.re, d, size);
    });
    workload("zorsMagnitude_64fc", size).zors([=] { zorsMagnitude_64fc(in.w, d64, len); }).bound([=] {
      roots(in.re64, d64, size);
    });
    workload("zorsMagnitude_16sc_Sfs", size)
        .zors([=] { zorsMagnitude_16sc_Sfs(in.s, d16, len, 0); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_16ic_magnitude_16i(d16, reinterpret_cast<lv_16sc_t*>(in.s), unsigned(len)); })
#endif
        .bound([=] { roots(in.re, d, size); });
    workload("zorsMagnitude_16sc32f", size).zors([=] { zorsMagnitude_16sc32f(in.s, d, len); }).bound([=] {
      roots(in.re64, d64, size);
    });
    workload("zorsPowerSpectr_32fc", size)
        .zors([=] { zorsPowerSpectr_32fc(in.z, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32fc_magnitude_squared_32f(d, reinterpret_cast<lv_32fc_t*>(in.z), unsigned(len)); })
#endif
        .bound(streams(8, 4));
    workload("zorsPowerSpectr_32f", size).zors([=] { zorsPowerSpectr_32f(in.re, in.im, d, len); }).bound(streams(8, 4));
    workload("zorsPowerSpectr_16sc_Sfs", size)
        .zors([=] { zorsPowerSpectr_16sc_Sfs(in.s, d16, len, 16); })
        .bound(streams(4, 2));
  }
}

void anglesAndBack() {
  for (long size : sizes) {
    const int len = int(size);
    const Signal in(size);
    auto *d = bench::array<Zor32f>(size + 8), *e = bench::array<Zor32f>(size + 8);
    auto *d64 = bench::array<Zor64f>(size + 8), *e64 = bench::array<Zor64f>(size + 8);
    auto* d16 = bench::array<Zor16s>(size + 8);
    auto* z = bench::array<Zor32fc>(size + 8);
    workload("zorsPhase_32fc", size)
        .zors([=] { zorsPhase_32fc(in.z, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32fc_s32f_atan2_32f(d, reinterpret_cast<lv_32fc_t*>(in.z), 1, unsigned(len)); })
#endif
#ifdef HAVE_SLEEF
        .peer("SLEEF planes", phases(in.re, in.im, d, size, Sleef_atan2f8_u10avx2))
#endif
        ;
#ifdef HAVE_MVEC  // which errs by up to 4 ulp
    workload("zorsPhase_32fc beside 4 ulp", size)
        .zors([=] { zorsPhase_32fc(in.z, d, len); })
        .peer("libmvec planes", phases(in.re, in.im, d, size, _ZGVdN8vv_atan2f));
#endif
    workload("zorsPhase_64f", size)
        .zors([=] { zorsPhase_64f(in.re64, in.im64, d64, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF", phases(in.re64, in.im64, d64, size, Sleef_atan2d4_u10avx2))
#endif
        ;
#ifdef HAVE_MVEC  // which errs by up to 4 ulp
    workload("zorsPhase_64f beside 4 ulp", size)
        .zors([=] { zorsPhase_64f(in.re64, in.im64, d64, len); })
        .peer("libmvec", phases(in.re64, in.im64, d64, size, _ZGVdN4vv_atan2));
#endif
    workload("zorsPhase_64fc", size).zors([=] { zorsPhase_64fc(in.w, d64, len); });
    workload("zorsPhase_16sc_Sfs", size).zors([=] { zorsPhase_16sc_Sfs(in.s, d16, len, -13); });
    workload("zorsCartToPolar_32fc", size).zors([=] { zorsCartToPolar_32fc(in.z, d, e, len); });
    workload("zorsPolarToCart_32fc", size)
        .zors([=] { zorsPolarToCart_32fc(in.re, in.im, z, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF planes", productsOfPair(in.re, in.im, d, e, size, Sleef_sincosf8_u10avx2))
#endif
        ;
#ifdef HAVE_MVEC  // which errs by up to 4 ulp
    workload("zorsPolarToCart_32fc beside 4 ulp", size)
        .zors([=] { zorsPolarToCart_32fc(in.re, in.im, z, len); })
        .peer("libmvec planes", products(in.re, in.im, d, e, size, _ZGVdN8v_sinf, _ZGVdN8v_cosf));
#endif
    workload("zorsPolarToCart_64f", size)
        .zors([=] { zorsPolarToCart_64f(in.re64, in.im64, d64, e64, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF", productsOfPair(in.re64, in.im64, d64, e64, size, Sleef_sincosd4_u10avx2))
#endif
        ;
#ifdef HAVE_MVEC  // which errs by up to 4 ulp
    workload("zorsPolarToCart_64f beside 4 ulp", size)
        .zors([=] { zorsPolarToCart_64f(in.re64, in.im64, d64, e64, len); })
        .peer("libmvec", products(in.re64, in.im64, d64, e64, size, _ZGVdN4v_sin, _ZGVdN4v_cos));
#endif
  }
}

const bench::Registration registrations[] = {bench::Registration(magnitudesAndPowers),
                                             bench::Registration(anglesAndBack)};

}  // namespace
