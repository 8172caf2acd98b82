#include "arithmetic/scaled_loops.h"
#include "zors/arithmetic.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::binaryRow;
using bench::scaledRows;
using bench::scaledRowsWithConstant;
using bench::streams;
using bench::workload;

[[gnu::noinline]] void loop(const float* a, const float* b, float* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = a[i] * b[i];
}
template <class C, class W> [[gnu::noinline]] void complexLoop(const C* a, const C* b, C* d, int len, int scale) {
  using P = decltype(C::re);
  for (int i = 0; i < len; ++i) {
    d[i].re = bench::scaled<P>(W(a[i].re) * b[i].re - W(a[i].im) * b[i].im, scale);
    d[i].im = bench::scaled<P>(W(a[i].re) * b[i].im + W(a[i].im) * b[i].re, scale);
  }
}
template <class C, class W, class F> void complexRows(const char* name, F f) {
  for (int scale : bench::benchedScales) {
    constexpr int len = 1000;
    auto *a = bench::array<C>(len), *b = bench::array<C>(len), *d = bench::array<C>(len);
    workload(bench::atScale(name, scale), len)
        .zors([=] { f(a, b, d, len, scale); })
        .peer("loop", [=] { complexLoop<C, W>(a, b, d, len, scale); })
        .bound(streams(2 * sizeof(C), sizeof(C)));
  }
}

void products() {
  const auto times = [](auto a, auto b) { return a * b; };
  scaledRows<int, Zor8u, Zor8u, Zor8u>("zorsMul_8u_Sfs", zorsMul_8u_Sfs, times);
  scaledRows<int, Zor16s, Zor16s, Zor16s>("zorsMul_16s_Sfs", zorsMul_16s_Sfs, times);
  scaledRows<Zor64s, Zor16u, Zor16u, Zor16u>("zorsMul_16u_Sfs", zorsMul_16u_Sfs, times);
  scaledRows<Zor64s, Zor16s, Zor16u, Zor16s>("zorsMul_16u16s_Sfs", zorsMul_16u16s_Sfs, times);
  scaledRows<Zor64s, Zor32s, Zor16s, Zor16s>("zorsMul_16s32s_Sfs", zorsMul_16s32s_Sfs, times);
  scaledRows<Zor64s, Zor32s, Zor32s, Zor32s>("zorsMul_32s_Sfs", zorsMul_32s_Sfs, times);
  scaledRowsWithConstant<int, Zor16s>("zorsMulC_16s_Sfs", zorsMulC_16s_Sfs, times);
  scaledRowsWithConstant<Zor64s, Zor32s>("zorsMulC_32s_Sfs", zorsMulC_32s_Sfs, times);
  complexRows<Zor16sc, Zor64s>("zorsMul_16sc_Sfs", zorsMul_16sc_Sfs);
  complexRows<Zor32sc, __int128>("zorsMul_32sc_Sfs", zorsMul_32sc_Sfs);

  for (long size : bench::passSizes) {
    const int len = int(size);
    auto *a = bench::array<Zor32f>(size), *b = bench::array<Zor32f>(size), *d = bench::array<Zor32f>(size);
    workload("zorsMul_32f", size)
        .zors([=] { zorsMul_32f(a, b, d, len); })
        .peer("loop", [=] { loop(a, b, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_x2_multiply_32f(d, a, b, unsigned(len)); })
#endif
        .bound(streams(8, 4));
    workload("zorsMulC_32f", size)
        .zors([=] { zorsMulC_32f(a, 3.0f, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_s32f_multiply_32f(d, a, 3.0f, unsigned(len)); })
#endif
        .bound(streams(4, 4));
    auto *p = bench::array<Zor32fc>(size), *q = bench::array<Zor32fc>(size), *r = bench::array<Zor32fc>(size);
    workload("zorsMul_32fc", size)
        .zors([=] { zorsMul_32fc(p, q, r, len); })
#ifdef HAVE_VOLK
        .peer("VOLK",
              [=] {
                volk_32fc_x2_multiply_32fc(reinterpret_cast<lv_32fc_t*>(r), reinterpret_cast<lv_32fc_t*>(p),
                                           reinterpret_cast<lv_32fc_t*>(q), unsigned(len));
              })
#endif
        .bound(streams(16, 8));
  }
  binaryRow<Zor64fc, Zor64fc, Zor64fc>("zorsMul_64fc", zorsMul_64fc, 1000);
  binaryRow<Zor32fc, Zor32f, Zor32fc>("zorsMul_32f32fc", zorsMul_32f32fc, 1000);
  binaryRow<Zor32f, Zor16s, Zor16s>("zorsMul_16s32f", zorsMul_16s32f, 1000);
  binaryRow<Zor16u, Zor8u, Zor8u>("zorsMul_8u16u", zorsMul_8u16u, 1000);
  binaryRow<Zor32f, Zor32f, Zor32f>("zorsAddProduct_32f", zorsAddProduct_32f, 1000);
  binaryRow<Zor32fc, Zor32fc, Zor32fc>("zorsAddProduct_32fc", zorsAddProduct_32fc, 1000);
  binaryRow<Zor32s, Zor16s, Zor16s>(
      "zorsAddProduct_16s32s_Sfs scale 7",
      [](auto a, auto b, auto d, int len) { zorsAddProduct_16s32s_Sfs(a, b, d, len, 7); }, 1000);
  auto* wide = bench::array<Zor64s>(1000);
  workload("zorsMulC_64s_ISfs scale 7", 1000).zors([=] { zorsMulC_64s_ISfs(127, wide, 1000, 7); }).bound(streams(8, 8));
}

const bench::Registration registration(products);

}  // namespace
