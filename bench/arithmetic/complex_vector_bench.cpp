#include <immintrin.h>

#include <cmath>

#include "kit/bench.h"
#include "zors.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef HAVE_SLEEF
#include <sleef.h>
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

#ifdef HAVE_SLEEF
[[gnu::noinline]] void sleefPhase(const float* im, const float* re, float* d, long len) {
  for (long i = 0; i < len; i += 8)
    _mm256_storeu_ps(d + i, Sleef_atan2f8_u10avx2(_mm256_loadu_ps(im + i), _mm256_loadu_ps(re + i)));
}
[[gnu::noinline]] void sleefPhase(const double* im, const double* re, double* d, long len) {
  for (long i = 0; i < len; i += 4)
    _mm256_storeu_pd(d + i, Sleef_atan2d4_u10avx2(_mm256_loadu_pd(im + i), _mm256_loadu_pd(re + i)));
}
[[gnu::noinline]] void sleefPolar(const float* magn, const float* phase, float* re, float* im, long len) {
  for (long i = 0; i < len; i += 8) {
    const auto unit = Sleef_sincosf8_u10avx2(_mm256_loadu_ps(phase + i));
    _mm256_storeu_ps(re + i, _mm256_mul_ps(_mm256_loadu_ps(magn + i), unit.y));
    _mm256_storeu_ps(im + i, _mm256_mul_ps(_mm256_loadu_ps(magn + i), unit.x));
  }
}
[[gnu::noinline]] void sleefPolar(const double* magn, const double* phase, double* re, double* im, long len) {
  for (long i = 0; i < len; i += 4) {
    const auto unit = Sleef_sincosd4_u10avx2(_mm256_loadu_pd(phase + i));
    _mm256_storeu_pd(re + i, _mm256_mul_pd(_mm256_loadu_pd(magn + i), unit.y));
    _mm256_storeu_pd(im + i, _mm256_mul_pd(_mm256_loadu_pd(magn + i), unit.x));
  }
}
#endif

#ifdef HAVE_MVEC
// The C library's vector functions, at most 4 ulp, one call per function.
extern "C" {
__m256 _ZGVdN8v_cosf(__m256);
__m256 _ZGVdN8v_sinf(__m256);
__m256d _ZGVdN4v_cos(__m256d);
__m256d _ZGVdN4v_sin(__m256d);
__m256 _ZGVdN8vv_atan2f(__m256, __m256);
__m256d _ZGVdN4vv_atan2(__m256d, __m256d);
}
[[gnu::noinline]] void mvecPhase(const float* im, const float* re, float* d, long len) {
  for (long i = 0; i < len; i += 8)
    _mm256_storeu_ps(d + i, _ZGVdN8vv_atan2f(_mm256_loadu_ps(im + i), _mm256_loadu_ps(re + i)));
}
[[gnu::noinline]] void mvecPhase(const double* im, const double* re, double* d, long len) {
  for (long i = 0; i < len; i += 4)
    _mm256_storeu_pd(d + i, _ZGVdN4vv_atan2(_mm256_loadu_pd(im + i), _mm256_loadu_pd(re + i)));
}
[[gnu::noinline]] void mvecPolar(const float* magn, const float* phase, float* re, float* im, long len) {
  for (long i = 0; i < len; i += 8) {
    const __m256 m = _mm256_loadu_ps(magn + i), p = _mm256_loadu_ps(phase + i);
    _mm256_storeu_ps(re + i, _mm256_mul_ps(m, _ZGVdN8v_cosf(p)));
    _mm256_storeu_ps(im + i, _mm256_mul_ps(m, _ZGVdN8v_sinf(p)));
  }
}
[[gnu::noinline]] void mvecPolar(const double* magn, const double* phase, double* re, double* im, long len) {
  for (long i = 0; i < len; i += 4) {
    const __m256d m = _mm256_loadu_pd(magn + i), p = _mm256_loadu_pd(phase + i);
    _mm256_storeu_pd(re + i, _mm256_mul_pd(m, _ZGVdN4v_cos(p)));
    _mm256_storeu_pd(im + i, _mm256_mul_pd(m, _ZGVdN4v_sin(p)));
  }
}

#endif

// What magnitudes cannot be faster than.
[[gnu::noinline]] void roots(const float* a, float* d, long len) {
  for (long i = 0; i < len; i += 8) _mm256_storeu_ps(d + i, _mm256_sqrt_ps(_mm256_loadu_ps(a + i)));
}
[[gnu::noinline]] void roots(const double* a, double* d, long len) {
  for (long i = 0; i < len; i += 4) _mm256_storeu_pd(d + i, _mm256_sqrt_pd(_mm256_loadu_pd(a + i)));
}

void magnitudes() {
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

void phases() {
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
        .peer("SLEEF planes", [=] { sleefPhase(in.im, in.re, d, size); })
#endif
#ifdef HAVE_MVEC
        .peer("libmvec planes", [=] { mvecPhase(in.im, in.re, d, size); })
#endif
        ;
    workload("zorsPhase_64f", size)
        .zors([=] { zorsPhase_64f(in.re64, in.im64, d64, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF", [=] { sleefPhase(in.im64, in.re64, d64, size); })
#endif
#ifdef HAVE_MVEC
        .peer("libmvec", [=] { mvecPhase(in.im64, in.re64, d64, size); })
#endif
        ;
    workload("zorsPhase_64fc", size).zors([=] { zorsPhase_64fc(in.w, d64, len); });
    workload("zorsPhase_16sc_Sfs", size).zors([=] { zorsPhase_16sc_Sfs(in.s, d16, len, -13); });
    workload("zorsCartToPolar_32fc", size).zors([=] { zorsCartToPolar_32fc(in.z, d, e, len); });
    workload("zorsPolarToCart_32fc", size)
        .zors([=] { zorsPolarToCart_32fc(in.re, in.im, z, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF planes", [=] { sleefPolar(in.re, in.im, d, e, size); })
#endif
#ifdef HAVE_MVEC
        .peer("libmvec planes", [=] { mvecPolar(in.re, in.im, d, e, size); })
#endif
        ;
    workload("zorsPolarToCart_64f", size)
        .zors([=] { zorsPolarToCart_64f(in.re64, in.im64, d64, e64, len); })
#ifdef HAVE_SLEEF
        .peer("SLEEF", [=] { sleefPolar(in.re64, in.im64, d64, e64, size); })
#endif
#ifdef HAVE_MVEC
        .peer("libmvec", [=] { mvecPolar(in.re64, in.im64, d64, e64, size); })
#endif
        ;
  }
}

const bench::Registration registrations[] = {bench::Registration(magnitudes), bench::Registration(phases)};

}  // namespace
