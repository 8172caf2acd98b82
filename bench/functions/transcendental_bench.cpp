// Peers compute in 256-bit vectors too: SLEEF in the accuracy class of the row (u10 is 1 ulp, u35 3.5), the C library's
// vector functions in their only one (4 ulp).
#include <immintrin.h>

#include <type_traits>

#include "kit/bench.h"
#include "zors/functions.h"

#ifdef HAVE_SLEEF
#include <sleef.h>
#endif
#ifdef HAVE_MVEC
extern "C" {
__m256 _ZGVdN8v_expf(__m256);
__m256 _ZGVdN8v_logf(__m256);
__m256 _ZGVdN8v_atanf(__m256);
__m256 _ZGVdN8v_cbrtf(__m256);
__m256d _ZGVdN4v_exp(__m256d);
__m256d _ZGVdN4v_log(__m256d);
__m256d _ZGVdN4v_atan(__m256d);
}
#endif

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {8, 63, 1000, 100'000};

template <class T> T* spread(long size, double from, double to) {
  T* data = bench::array<T>(size);
  for (long i = 0; i < size; ++i) data[i] = T(from + (to - from) * double(i * 7919 % 10007) / 10007);  // in no order
  return data;
}

template <class F> auto over(const float* src, float* dst, long size, F vector) {
  return [=] {
    for (long i = 0; i + 8 <= size; i += 8) _mm256_storeu_ps(dst + i, vector(_mm256_loadu_ps(src + i)));
  };
}
template <class F> auto over(const double* src, double* dst, long size, F vector) {
  return [=] {
    for (long i = 0; i + 4 <= size; i += 4) _mm256_storeu_pd(dst + i, vector(_mm256_loadu_pd(src + i)));
  };
}
// The export, and its peers over the same elements; a null peer is left out. libmvec, which errs by up to 4 ulp, stands
// in a row of its own beside exports that stay below 1.
enum class Class { fewUlp, oneUlp };
template <class T, class Sleef, class Mvec>
void row(const std::string& name, ZorStatus (*f)(const T*, T*, Zor32s), Class accuracy, double from, double to,
         Sleef sleef, Mvec mvec) {
  for (long size : sizes) {
    T *src = spread<T>(size, from, to), *dst = bench::array<T>(size);
    const auto call = [=] { f(src, dst, int(size)); };
    auto w = workload(name, size);
    w.zors(call).bound(streams(sizeof(T), sizeof(T)));
    if constexpr (!std::is_null_pointer_v<Sleef>) w.peer("SLEEF", over(src, dst, size, sleef));
    if constexpr (!std::is_null_pointer_v<Mvec>) {
      auto beside = accuracy == Class::fewUlp ? w : workload(name + " beside 4 ulp", size).zors(call);
      beside.peer("libmvec", over(src, dst, size, mvec));
    }
  }
}

#ifdef HAVE_SLEEF
#define SLEEF(name) name
#else
#define SLEEF(name) nullptr
#endif
#ifdef HAVE_MVEC
#define MVEC(name) name
#else
#define MVEC(name) nullptr
#endif

[[gnu::noinline]] void rootLoop(const float* src, float* dst, long size) {
  for (long i = 0; i + 8 <= size; i += 8) _mm256_storeu_ps(dst + i, _mm256_sqrt_ps(_mm256_loadu_ps(src + i)));
}
[[gnu::noinline]] void rootLoop(const double* src, double* dst, long size) {
  for (long i = 0; i + 4 <= size; i += 4) _mm256_storeu_pd(dst + i, _mm256_sqrt_pd(_mm256_loadu_pd(src + i)));
}
// The bound of square roots is the divider: a loop of nothing but the instruction.
template <class T> void roots(const char* name, ZorStatus (*f)(const T*, T*, Zor32s)) {
  for (long size : sizes) {
    T *src = spread<T>(size, 0.5, 100), *dst = bench::array<T>(size);
    workload(name, size).zors([=] { f(src, dst, int(size)); }).bound([=] { rootLoop(src, dst, size); });
  }
}

void functions() {
  roots("zorsSqrt_32f", zorsSqrt_32f);
  roots("zorsSqrt_64f", zorsSqrt_64f);
  row("zorsExp_32f", zorsExp_32f, Class::fewUlp, -20, 20, SLEEF(Sleef_expf8_u10avx2), MVEC(_ZGVdN8v_expf));
  row("zorsExp_64f", zorsExp_64f, Class::oneUlp, -20, 20, SLEEF(Sleef_expd4_u10avx2), MVEC(_ZGVdN4v_exp));
  row("zorsLn_32f", zorsLn_32f, Class::fewUlp, 0.01, 100, SLEEF(Sleef_logf8_u35avx2), MVEC(_ZGVdN8v_logf));
  row("zorsLn_64f", zorsLn_64f, Class::oneUlp, 0.01, 100, SLEEF(Sleef_logd4_u10avx2), MVEC(_ZGVdN4v_log));
  row("zorsArctan_32f", zorsArctan_32f, Class::fewUlp, -5, 5, SLEEF(Sleef_atanf8_u35avx2), MVEC(_ZGVdN8v_atanf));
  row("zorsArctan_64f", zorsArctan_64f, Class::oneUlp, -5, 5, SLEEF(Sleef_atand4_u10avx2), MVEC(_ZGVdN4v_atan));
  row("zorsCubrt_32f", zorsCubrt_32f, Class::oneUlp, -100, 100, SLEEF(Sleef_cbrtf8_u10avx2), MVEC(_ZGVdN8v_cbrtf));
}

// The other shapes: sums, complex roots, integers.
void integers() {
  constexpr long size = 1000;
  constexpr int len = int(size);
  auto *x8 = spread<Zor8u>(size, 0, 255), *d8 = bench::array<Zor8u>(size);
  auto *x16 = spread<Zor16s>(size, 1, 30000), *d16 = bench::array<Zor16s>(size);
  auto *u16 = spread<Zor16u>(size, 1, 60000), *e16 = bench::array<Zor16u>(size);
  auto *x32 = spread<Zor32s>(size, 1, 2e9), *d32 = bench::array<Zor32s>(size);
  auto *x64 = spread<Zor64s>(size, 1, 9e18), *d64 = bench::array<Zor64s>(size);
  auto* small16 = spread<Zor16s>(size, -5, 30);
  auto *f32 = spread<Zor32f>(size, 0.5, 9), *sum = bench::array<Zor32f>(1);
  auto* small32 = spread<Zor32s>(size, -5, 25);
  auto* small64 = spread<Zor64s>(size, -5, 45);
  auto *f64 = spread<Zor64f>(size, 0.5, 9), *g64 = bench::array<Zor64f>(size), *wideSum = bench::array<Zor64f>(1);
  auto* g32 = bench::array<Zor32f>(size);
  auto *c16 = bench::array<Zor16sc>(size), *cd16 = bench::array<Zor16sc>(size);
  auto *c32 = bench::array<Zor32fc>(size), *cd32 = bench::array<Zor32fc>(size);
  auto *c64 = bench::array<Zor64fc>(size), *cd64 = bench::array<Zor64fc>(size);
  for (long i = 0; i < size; ++i) {
    c16[i] = {x16[i], x16[size - 1 - i]};
    c32[i] = {f32[i] - 5, f32[size - 1 - i] - 5};
    c64[i] = {f64[i] - 5, f64[size - 1 - i] - 5};
  }
  workload("zorsSqr_8u_Sfs", size).zors([=] { zorsSqr_8u_Sfs(x8, d8, len, 7); }).bound(streams(1, 1));
  workload("zorsSqr_16s_Sfs", size).zors([=] { zorsSqr_16s_Sfs(x16, d16, len, 14); }).bound(streams(2, 2));
  workload("zorsSqr_16u_Sfs", size).zors([=] { zorsSqr_16u_Sfs(u16, e16, len, 15); }).bound(streams(2, 2));
  workload("zorsSqr_16sc_Sfs", size).zors([=] { zorsSqr_16sc_Sfs(c16, cd16, len, 14); }).bound(streams(4, 4));
  workload("zorsSqr_32f", size).zors([=] { zorsSqr_32f(f32, g32, len); }).bound(streams(4, 4));
  workload("zorsSqr_32fc", size).zors([=] { zorsSqr_32fc(c32, cd32, len); }).bound(streams(8, 8));
  workload("zorsAbs_16s", size).zors([=] { zorsAbs_16s(x16, d16, len); }).bound(streams(2, 2));
  workload("zorsAbs_32s", size).zors([=] { zorsAbs_32s(x32, d32, len); }).bound(streams(4, 4));
  workload("zorsAbs_64f", size).zors([=] { zorsAbs_64f(f64, g64, len); }).bound(streams(8, 8));
  workload("zorsSqrt_32fc", size).zors([=] { zorsSqrt_32fc(c32, cd32, len); }).bound(streams(8, 8));
  workload("zorsSqrt_64fc", size).zors([=] { zorsSqrt_64fc(c64, cd64, len); }).bound(streams(16, 16));
  workload("zorsSqrt_8u_Sfs", size).zors([=] { zorsSqrt_8u_Sfs(x8, d8, len, 0); }).bound(streams(1, 1));
  workload("zorsSqrt_16s_Sfs", size).zors([=] { zorsSqrt_16s_Sfs(x16, d16, len, 0); }).bound(streams(2, 2));
  workload("zorsSqrt_16sc_Sfs", size).zors([=] { zorsSqrt_16sc_Sfs(c16, cd16, len, 0); }).bound(streams(4, 4));
  workload("zorsSqrt_32s16s_Sfs", size).zors([=] { zorsSqrt_32s16s_Sfs(x32, d16, len, 1); }).bound(streams(4, 2));
  workload("zorsSqrt_64s16s_Sfs", size).zors([=] { zorsSqrt_64s16s_Sfs(x64, d16, len, 17); }).bound(streams(8, 2));
  workload("zorsSqrt_64s_Sfs", size).zors([=] { zorsSqrt_64s_Sfs(x64, d64, len, 0); }).bound(streams(8, 8));
  workload("zorsSqrt_64s_Sfs/-5", size).zors([=] { zorsSqrt_64s_Sfs(x64, d64, len, -5); }).bound(streams(8, 8));
  workload("zorsExp_16s_Sfs", size).zors([=] { zorsExp_16s_Sfs(small16, d16, len, 2); }).bound(streams(2, 2));
  workload("zorsExp_16s_Sfs/-3", size).zors([=] { zorsExp_16s_Sfs(small16, d16, len, -3); }).bound(streams(2, 2));
  workload("zorsExp_32s_Sfs", size).zors([=] { zorsExp_32s_Sfs(small32, d32, len, 0); }).bound(streams(4, 4));
  workload("zorsExp_64s_Sfs", size).zors([=] { zorsExp_64s_Sfs(small64, d64, len, 0); }).bound(streams(8, 8));
  workload("zorsExp_32f64f", size).zors([=] { zorsExp_32f64f(f32, g64, len); }).bound(streams(4, 8));
  workload("zorsLn_64f32f", size).zors([=] { zorsLn_64f32f(f64, g32, len); }).bound(streams(8, 4));
  workload("zorsLn_16s_Sfs", size).zors([=] { zorsLn_16s_Sfs(x16, d16, len, 0); }).bound(streams(2, 2));
  workload("zorsLn_32s_Sfs", size).zors([=] { zorsLn_32s_Sfs(x32, d32, len, 0); }).bound(streams(4, 4));
  workload("zorsLn_32s_Sfs/-10", size).zors([=] { zorsLn_32s_Sfs(x32, d32, len, -10); }).bound(streams(4, 4));
  workload("zorsLn_32s16s_Sfs", size).zors([=] { zorsLn_32s16s_Sfs(x32, d16, len, 0); }).bound(streams(4, 2));
  workload("zors10Log10_32s_Sfs", size).zors([=] { zors10Log10_32s_Sfs(x32, d32, len, 0); }).bound(streams(4, 4));
  workload("zorsCubrt_32s16s_Sfs", size).zors([=] { zorsCubrt_32s16s_Sfs(x32, d16, len, 0); }).bound(streams(4, 2));
  workload("zorsSumLn_32f", size).zors([=] { zorsSumLn_32f(f32, len, sum); }).bound(streams(4, 0));
  workload("zorsSumLn_32f64f", size).zors([=] { zorsSumLn_32f64f(f32, len, wideSum); }).bound(streams(4, 0));
  workload("zorsSumLn_64f", size).zors([=] { zorsSumLn_64f(f64, len, wideSum); }).bound(streams(8, 0));
  workload("zorsSumLn_16s32f", size).zors([=] { zorsSumLn_16s32f(x16, len, sum); }).bound(streams(2, 0));
}

const bench::Registration registeredFunctions(functions), registeredIntegers(integers);

}  // namespace
