#include <cmath>
#include <cstdlib>
#include <numeric>

#include "kit/bench.h"
#include "zors/statistics.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef HAVE_OPENBLAS
#include <cblas.h>
#endif
#ifdef HAVE_EIGEN
#include <Eigen/Core>
#endif

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {64, 1000, 10'000, 100'000, 10'000'000};

// Where results go; nobody reads them.
template <class T> T result;

#ifdef HAVE_EIGEN
template <class T> using Mapped = Eigen::Map<const Eigen::Array<T, Eigen::Dynamic, 1>>;
template <class T> auto mapped(const T* a, long size) { return Mapped<T>(a, size); }
#endif

template <class S, class A, class F> [[gnu::noinline]] A fold(const S* a, long len, A start, F f) {
  for (long i = 0; i < len; ++i) start = f(start, a[i]);
  return start;
}
template <class A, class S, class F> auto loop(const S* a, long size, A start, F f) {
  return [=] { benchmark::DoNotOptimize(fold(a, size, start, f)); };
}

void sums() {
  for (long size : sizes) {
    const int len = int(size);
    auto* f = bench::array<Zor32f>(size);
    auto* d = bench::array<Zor64f>(size);
    auto* c = bench::array<Zor32fc>(size);
    auto* s = bench::array<Zor16s>(size);
    auto* i = bench::array<Zor32s>(size);
    for (int hint : {0, 1})
      workload("zorsSum_32f hint " + std::to_string(hint), size)
          .zors([=] { zorsSum_32f(f, len, &result<Zor32f>, hint); })
          .peer("loop", loop(f, size, 0.0f, [](float a, float b) { return a + b; }))
#ifdef HAVE_VOLK
          .peer("VOLK", [=] { volk_32f_accumulator_s32f(&result<Zor32f>, f, unsigned(len)); })
#endif
#ifdef HAVE_EIGEN
          .peer("Eigen", [=] { result<Zor32f> = mapped(f, size).sum(); })
#endif
          .bound(streams(4, 0));
    workload("zorsSum_64f", size)
        .zors([=] { zorsSum_64f(d, len, &result<Zor64f>); })
        .peer("loop", loop(d, size, 0.0, [](double a, double b) { return a + b; }))
#ifdef HAVE_EIGEN
        .peer("Eigen", [=] { result<Zor64f> = mapped(d, size).sum(); })
#endif
        .bound(streams(8, 0));
    workload("zorsSum_32fc hint 1", size).zors([=] { zorsSum_32fc(c, len, &result<Zor32fc>, 1); }).bound(streams(8, 0));
    workload("zorsSum_16s32s_Sfs", size)
        .zors([=] { zorsSum_16s32s_Sfs(s, len, &result<Zor32s>, 2); })
        .peer("loop", loop(s, size, 0L, [](long a, short b) { return a + b; }))
        .bound(streams(2, 0));
    workload("zorsSum_32s_Sfs", size)
        .zors([=] { zorsSum_32s_Sfs(i, len, &result<Zor32s>, 2); })
        .peer("loop", loop(i, size, 0L, [](long a, int b) { return a + b; }))
        .bound(streams(4, 0));
    workload("zorsMean_32f hint 1", size).zors([=] { zorsMean_32f(f, len, &result<Zor32f>, 1); }).bound(streams(4, 0));
    for (int hint : {0, 1})
      workload("zorsStdDev_32f hint " + std::to_string(hint), size)
          .zors([=] { zorsStdDev_32f(f, len, &result<Zor32f>, hint); })
          .bound(streams(4, 0));
    workload("zorsMeanStdDev_64f", size)
        .zors([=] { zorsMeanStdDev_64f(d, len, &result<Zor64f>, &result<Zor64f>); })
        .bound(streams(8, 0));
    workload("zorsStdDev_16s32s_Sfs", size)
        .zors([=] { zorsStdDev_16s32s_Sfs(s, len, &result<Zor32s>, 0); })
        .bound(streams(2, 0));
  }
}

void norms() {
  for (long size : sizes) {
    const int len = int(size);
    auto *f = bench::array<Zor32f>(size), *g = bench::array<Zor32f>(size);
    auto* d = bench::array<Zor64f>(size);
    auto* c = bench::array<Zor32fc>(size);
    auto *s = bench::array<Zor16s>(size), *t = bench::array<Zor16s>(size);
    workload("zorsNorm_Inf_32f", size)
        .zors([=] { zorsNorm_Inf_32f(f, len, &result<Zor32f>); })
#ifdef HAVE_EIGEN
        .peer("Eigen", [=] { result<Zor32f> = mapped(f, size).abs().maxCoeff(); })
#endif
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS", [=] { result<Zor32f> = f[cblas_isamax(len, f, 1)]; })
#endif
        .bound(streams(4, 0));
    workload("zorsNorm_L1_32f", size)
        .zors([=] { zorsNorm_L1_32f(f, len, &result<Zor32f>); })
        .peer("loop", loop(f, size, 0.0f, [](float a, float b) { return a + std::fabs(b); }))
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS", [=] { result<Zor32f> = cblas_sasum(len, f, 1); })
#endif
#ifdef HAVE_EIGEN
        .peer("Eigen", [=] { result<Zor32f> = mapped(f, size).abs().sum(); })
#endif
        .bound(streams(4, 0));
    workload("zorsNorm_L2_32f", size)
        .zors([=] { zorsNorm_L2_32f(f, len, &result<Zor32f>); })
        .peer("loop", loop(f, size, 0.0f, [](float a, float b) { return a + b * b; }))
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS", [=] { result<Zor32f> = cblas_snrm2(len, f, 1); })
#endif
#ifdef HAVE_EIGEN
        .peer("Eigen", [=] { result<Zor32f> = std::sqrt(mapped(f, size).square().sum()); })
#endif
        .bound(streams(4, 0));
    workload("zorsNorm_L2_64f", size).zors([=] { zorsNorm_L2_64f(d, len, &result<Zor64f>); }).bound(streams(8, 0));
    workload("zorsNorm_L1_32fc64f", size)
        .zors([=] { zorsNorm_L1_32fc64f(c, len, &result<Zor64f>); })
        .bound(streams(8, 0));
    workload("zorsNorm_Inf_32fc32f", size)
        .zors([=] { zorsNorm_Inf_32fc32f(c, len, &result<Zor32f>); })
        .bound(streams(8, 0));
    workload("zorsNormDiff_L2_32f", size)
        .zors([=] { zorsNormDiff_L2_32f(f, g, len, &result<Zor32f>); })
        .bound(streams(8, 0));
    workload("zorsNorm_Inf_16s32s_Sfs", size)
        .zors([=] { zorsNorm_Inf_16s32s_Sfs(s, len, &result<Zor32s>, 0); })
        .bound(streams(2, 0));
    workload("zorsNorm_L1_16s32s_Sfs", size)
        .zors([=] { zorsNorm_L1_16s32s_Sfs(s, len, &result<Zor32s>, 0); })
        .peer("loop", loop(s, size, 0L, [](long a, short b) { return a + std::abs(int{b}); }))
        .bound(streams(2, 0));
    workload("zorsNorm_L2_16s32f", size)
        .zors([=] { zorsNorm_L2_16s32f(s, len, &result<Zor32f>); })
        .peer("loop", loop(s, size, 0L, [](long a, short b) { return a + b * b; }))
        .bound(streams(2, 0));
    workload("zorsNormDiff_L1_16s64s_Sfs", size)
        .zors([=] { zorsNormDiff_L1_16s64s_Sfs(s, t, len, &result<Zor64s>, 0); })
        .bound(streams(4, 0));
    workload("zorsNormDiff_L2Sqr_16s64s_Sfs", size)
        .zors([=] { zorsNormDiff_L2Sqr_16s64s_Sfs(s, t, len, &result<Zor64s>, 0); })
        .bound(streams(4, 0));
  }
}

void dotProducts() {
  for (long size : sizes) {
    const int len = int(size);
    auto *f = bench::array<Zor32f>(size), *g = bench::array<Zor32f>(size);
    auto *d = bench::array<Zor64f>(size), *e = bench::array<Zor64f>(size);
    auto *c = bench::array<Zor32fc>(size), *k = bench::array<Zor32fc>(size);
    auto *s = bench::array<Zor16s>(size), *t = bench::array<Zor16s>(size);
    auto *z = bench::array<Zor16sc>(size), *y = bench::array<Zor16sc>(size);
    auto *i = bench::array<Zor32s>(size), *j = bench::array<Zor32s>(size);
    workload("zorsDotProd_32f", size)
        .zors([=] { zorsDotProd_32f(f, g, len, &result<Zor32f>); })
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS", [=] { result<Zor32f> = cblas_sdot(len, f, 1, g, 1); })
#endif
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_x2_dot_prod_32f(&result<Zor32f>, f, g, unsigned(len)); })
#endif
#ifdef HAVE_EIGEN
        .peer("Eigen", [=] { result<Zor32f> = mapped(f, size).matrix().dot(mapped(g, size).matrix()); })
#endif
        .bound(streams(8, 0));
    workload("zorsDotProd_64f", size)
        .zors([=] { zorsDotProd_64f(d, e, len, &result<Zor64f>); })
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS", [=] { result<Zor64f> = cblas_ddot(len, d, 1, e, 1); })
#endif
        .bound([=] {
          result<Zor64f> = fold(d, 0, 0.0, [](double a, double) { return a; }), zorsMax_64f(d, len, &result<Zor64f>),
          zorsMax_64f(e, len, &result<Zor64f>);
        });
    workload("zorsDotProd_32f64f", size)
        .zors([=] { zorsDotProd_32f64f(f, g, len, &result<Zor64f>); })
        .bound(streams(8, 0));
    workload("zorsDotProd_32fc", size)
        .zors([=] { zorsDotProd_32fc(c, k, len, &result<Zor32fc>); })
#ifdef HAVE_VOLK
        .peer("VOLK",
              [=] {
                volk_32fc_x2_dot_prod_32fc(reinterpret_cast<lv_32fc_t*>(&result<Zor32fc>),
                                           reinterpret_cast<const lv_32fc_t*>(c), reinterpret_cast<const lv_32fc_t*>(k),
                                           unsigned(len));
              })
#endif
#ifdef HAVE_OPENBLAS
        .peer("OpenBLAS",
              [=] { cblas_cdotu_sub(len, c, 1, k, 1, reinterpret_cast<openblas_complex_float*>(&result<Zor32fc>)); })
#endif
        ;
    workload("zorsDotProd_32fc64fc", size).zors([=] { zorsDotProd_32fc64fc(c, k, len, &result<Zor64fc>); });
    workload("zorsDotProd_32f32fc", size).zors([=] { zorsDotProd_32f32fc(f, c, len, &result<Zor32fc>); });
    workload("zorsDotProd_16s64s", size)
        .zors([=] { zorsDotProd_16s64s(s, t, len, &result<Zor64s>); })
        .bound(streams(4, 0));
    workload("zorsDotProd_16sc_Sfs", size)
        .zors([=] { zorsDotProd_16sc_Sfs(z, y, len, &result<Zor16sc>, 3); })
        .bound(streams(8, 0));
    workload("zorsDotProd_16s16sc_Sfs", size)
        .zors([=] { zorsDotProd_16s16sc_Sfs(s, y, len, &result<Zor16sc>, 3); })
        .bound(streams(6, 0));
    workload("zorsDotProd_32s_Sfs", size)
        .zors([=] { zorsDotProd_32s_Sfs(i, j, len, &result<Zor32s>, 3); })
        .bound(streams(8, 0));
  }
}

template <class T> [[gnu::noinline]] void windowLoop(const T* a, float* d, long len, long mask) {
  float sum = 0;
  for (long i = 0; i < mask; ++i) sum += a[i];
  for (long i = 0; i < len; ++i) d[i] = sum, sum += float(a[i + mask] - a[i]);
}
void windows() {
  for (long size : {64L, 1000L, 100'000L}) {
    auto* a = bench::array<Zor16s>(size + 3000);
    auto* d = bench::array<Zor32f>(size);
    for (int mask : {16, 200, 2000})
      workload("zorsSumWindow_16s32f mask " + std::to_string(mask), size)
          .zors([=] { zorsSumWindow_16s32f(a, d, int(size), mask); })
          .peer("loop", [=] { windowLoop(a, d, size, mask); });
  }
}

const bench::Registration registrations[] = {bench::Registration(sums), bench::Registration(norms),
                                             bench::Registration(dotProducts), bench::Registration(windows)};

}  // namespace
