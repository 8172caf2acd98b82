#include <immintrin.h>

#include <algorithm>
#include <cmath>

#include "kit/bench.h"
#include "zors/thresholds.h"

namespace {

using bench::streams;
using bench::workload;

template <class T> [[gnu::noinline]] void loop(const T* a, T* d, T level, int len) {
  for (int i = 0; i < len; ++i) d[i] = std::max(a[i], level);
}
[[gnu::noinline]] void loopComplex(const Zor32fc* a, Zor32fc* d, float level, int len) {
  for (int i = 0; i < len; ++i) {
    const float m = a[i].re * a[i].re + a[i].im * a[i].im, f = m > level * level ? level / std::sqrt(m) : 1;
    d[i] = {a[i].re * f, a[i].im * f};
  }
}
[[gnu::noinline]] void loopInverse(const float* a, float* d, float level, int len) {
  for (int i = 0; i < len; ++i) d[i] = std::copysign(1 / std::max(std::fabs(a[i]), level), a[i]);
}

constexpr long sizes[] = {63, 1000, 100'000};

// What members that divide cannot be faster than.
[[gnu::noinline]] void divisions(const double* a, double* d, long len) {
  for (long i = 0; i < len; i += 4) _mm256_storeu_pd(d + i, _mm256_div_pd(_mm256_set1_pd(1), _mm256_loadu_pd(a + i)));
}
[[gnu::noinline]] void rootsOfQuotients(const double* a, double* d, long len) {
  for (long i = 0; i < len; i += 4)
    _mm256_storeu_pd(d + i, _mm256_sqrt_pd(_mm256_div_pd(_mm256_set1_pd(1), _mm256_loadu_pd(a + i))));
}

// Elements of which some are below a level of 10 and some above, without pattern.
template <class T> T* mixed(long size) {
  T* data = bench::array<T>(size);
  unsigned seed = 1;
  const auto next = [&] { return int((seed = seed * 1664525 + 1013904223) >> 27) - 16; };
  for (long i = 0; i < size; ++i) {
    if constexpr (requires { data[i].re; })
      data[i] = {decltype(data[i].re)(next()), decltype(data[i].re)(next())};
    else
      data[i] = T(next());
  }
  return data;
}

template <class T>
void real(const char* lt, const char* ltAbs, const char* gtAbs, const char* ltVal, const char* both,
          ZorStatus (*callLT)(const T*, T*, Zor32s, T), ZorStatus (*callLTAbs)(const T*, T*, Zor32s, T),
          ZorStatus (*callGTAbs)(const T*, T*, Zor32s, T), ZorStatus (*callLTVal)(const T*, T*, Zor32s, T, T),
          ZorStatus (*callBoth)(const T*, T*, Zor32s, T, T, T, T)) {
  for (long size : sizes) {
    const int len = int(size);
    auto *a = mixed<T>(size), *d = bench::array<T>(size);
    const auto bound = streams(sizeof(T), sizeof(T));
    workload(lt, size)
        .zors([=] { callLT(a, d, len, T(10)); })
        .peer("loop", [=] { loop(a, d, T(10), len); })
        .bound(bound);
    workload(ltAbs, size).zors([=] { callLTAbs(a, d, len, T(10)); }).bound(bound);
    workload(gtAbs, size).zors([=] { callGTAbs(a, d, len, T(10)); }).bound(bound);
    if (callLTVal != nullptr) workload(ltVal, size).zors([=] { callLTVal(a, d, len, T(10), T(3)); }).bound(bound);
    workload(both, size).zors([=] { callBoth(a, d, len, T(-10), T(3), T(10), T(4)); }).bound(bound);
  }
}
void reals() {
  real<Zor16s>("zorsThreshold_LT_16s", "zorsThreshold_LTAbs_16s", "zorsThreshold_GTAbs_16s", "zorsThreshold_LTVal_16s",
               "zorsThreshold_LTValGTVal_16s", zorsThreshold_LT_16s, zorsThreshold_LTAbs_16s, zorsThreshold_GTAbs_16s,
               zorsThreshold_LTVal_16s, zorsThreshold_LTValGTVal_16s);
  real<Zor32s>("zorsThreshold_LT_32s", "zorsThreshold_LTAbs_32s", "zorsThreshold_GTAbs_32s", "",
               "zorsThreshold_LTValGTVal_32s", zorsThreshold_LT_32s, zorsThreshold_LTAbs_32s, zorsThreshold_GTAbs_32s,
               nullptr, zorsThreshold_LTValGTVal_32s);
  real<Zor32f>("zorsThreshold_LT_32f", "zorsThreshold_LTAbs_32f", "zorsThreshold_GTAbs_32f", "zorsThreshold_LTVal_32f",
               "zorsThreshold_LTValGTVal_32f", zorsThreshold_LT_32f, zorsThreshold_LTAbs_32f, zorsThreshold_GTAbs_32f,
               zorsThreshold_LTVal_32f, zorsThreshold_LTValGTVal_32f);
  real<Zor64f>("zorsThreshold_LT_64f", "zorsThreshold_LTAbs_64f", "zorsThreshold_GTAbs_64f", "zorsThreshold_LTVal_64f",
               "zorsThreshold_LTValGTVal_64f", zorsThreshold_LT_64f, zorsThreshold_LTAbs_64f, zorsThreshold_GTAbs_64f,
               zorsThreshold_LTVal_64f, zorsThreshold_LTValGTVal_64f);
}

void complexes() {
  for (long size : sizes) {
    const int len = int(size);
    auto *s = mixed<Zor16sc>(size), *sd = bench::array<Zor16sc>(size);
    auto *f = mixed<Zor32fc>(size), *fd = bench::array<Zor32fc>(size);
    auto *g = mixed<Zor64fc>(size), *gd = bench::array<Zor64fc>(size);
    workload("zorsThreshold_GTVal_16sc", size)
        .zors([=] {
          zorsThreshold_GTVal_16sc(s, sd, len, 10, {1, 2});
        })
        .bound(streams(4, 4));
    workload("zorsThreshold_GTVal_32fc", size)
        .zors([=] {
          zorsThreshold_GTVal_32fc(f, fd, len, 10, {1, 2});
        })
        .bound(streams(8, 8));
    workload("zorsThreshold_GTVal_64fc", size)
        .zors([=] {
          zorsThreshold_GTVal_64fc(g, gd, len, 10, {1, 2});
        })
        .bound(streams(16, 16));
    auto *quotients = bench::array<Zor64f>(2 * size + 4), *results = bench::array<Zor64f>(2 * size + 4);
    const auto roots = [=] { rootsOfQuotients(quotients, results, size); };
    workload("zorsThreshold_GT_16sc", size).zors([=] { zorsThreshold_GT_16sc(s, sd, len, 10); }).bound(roots);
    workload("zorsThreshold_GT_16sc none above", size)
        .zors([=] { zorsThreshold_GT_16sc(s, sd, len, 100); })
        .bound(streams(4, 4));
    workload("zorsThreshold_GT_32fc", size)
        .zors([=] { zorsThreshold_GT_32fc(f, fd, len, 10); })
        .peer("loop", [=] { loopComplex(f, fd, 10, len); })
        .bound(streams(8, 8));
    workload("zorsThreshold_LT_32fc", size).zors([=] { zorsThreshold_LT_32fc(f, fd, len, 10); }).bound(streams(8, 8));
    workload("zorsThreshold_GT_64fc", size).zors([=] { zorsThreshold_GT_64fc(g, gd, len, 10); }).bound(roots);
    workload("zorsThreshold_GT_64fc none above", size)
        .zors([=] { zorsThreshold_GT_64fc(g, gd, len, 100); })
        .bound(streams(16, 16));
  }
}

void inverses() {
  for (long size : sizes) {
    const int len = int(size);
    auto *a = mixed<Zor32f>(size), *d = bench::array<Zor32f>(size);
    auto *g = mixed<Zor64f>(size), *gd = bench::array<Zor64f>(size);
    auto *z = mixed<Zor32fc>(size), *zd = bench::array<Zor32fc>(size);
    auto *w = mixed<Zor64fc>(size), *wd = bench::array<Zor64fc>(size);
    auto *quotients = bench::array<Zor64f>(2 * size + 4), *results = bench::array<Zor64f>(2 * size + 4);
    workload("zorsThreshold_LTInv_32f", size)
        .zors([=] { zorsThreshold_LTInv_32f(a, d, len, 0.1f); })
        .peer("loop", [=] { loopInverse(a, d, 0.1f, len); })
        .bound(streams(4, 4));
    workload("zorsThreshold_LTInv_32f level 0", size)
        .zors([=] { zorsThreshold_LTInv_32f(a, d, len, 0); })
        .bound(streams(4, 4));
    workload("zorsThreshold_LTInv_64f", size).zors([=] { zorsThreshold_LTInv_64f(g, gd, len, 0.1); }).bound([=] {
      divisions(quotients, results, size);
    });
    workload("zorsThreshold_LTInv_32fc", size)
        .zors([=] { zorsThreshold_LTInv_32fc(z, zd, len, 0.1f); })
        .bound(streams(8, 8));
    workload("zorsThreshold_LTInv_64fc", size).zors([=] { zorsThreshold_LTInv_64fc(w, wd, len, 0.1); }).bound([=] {
      divisions(quotients, results, 2 * size);
    });
  }
}

const bench::Registration registrations[] = {bench::Registration(reals), bench::Registration(complexes),
                                             bench::Registration(inverses)};

}  // namespace
