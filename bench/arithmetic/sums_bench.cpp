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

void sums() {
  const auto plus = [](auto a, auto b) { return a + b; };
  const auto minus = [](auto a, auto b) { return b - a; };
  scaledRows<int, Zor8u, Zor8u, Zor8u>("zorsAdd_8u_Sfs", zorsAdd_8u_Sfs, plus);
  scaledRows<int, Zor16s, Zor16s, Zor16s>("zorsAdd_16s_Sfs", zorsAdd_16s_Sfs, plus);
  scaledRows<int, Zor16u, Zor16u, Zor16u>("zorsAdd_16u_Sfs", zorsAdd_16u_Sfs, plus);
  scaledRows<Zor64s, Zor32s, Zor32s, Zor32s>("zorsAdd_32s_Sfs", zorsAdd_32s_Sfs, plus);
  scaledRows<__int128, Zor64s, Zor64s, Zor64s>("zorsAdd_64s_Sfs", zorsAdd_64s_Sfs, plus);
  scaledRows<int, Zor8u, Zor8u, Zor8u>("zorsSub_8u_Sfs", zorsSub_8u_Sfs, minus);
  scaledRows<int, Zor16s, Zor16s, Zor16s>("zorsSub_16s_Sfs", zorsSub_16s_Sfs, minus);
  scaledRows<int, Zor16u, Zor16u, Zor16u>("zorsSub_16u_Sfs", zorsSub_16u_Sfs, minus);
  scaledRows<Zor64s, Zor32s, Zor32s, Zor32s>("zorsSub_32s_Sfs", zorsSub_32s_Sfs, minus);
  scaledRowsWithConstant<int, Zor8u>("zorsAddC_8u_Sfs", zorsAddC_8u_Sfs, plus);
  scaledRowsWithConstant<int, Zor16s>("zorsAddC_16s_Sfs", zorsAddC_16s_Sfs, plus);
  scaledRowsWithConstant<Zor64s, Zor32s>("zorsAddC_32s_Sfs", zorsAddC_32s_Sfs, plus);
  scaledRowsWithConstant<int, Zor16s>("zorsSubC_16s_Sfs", zorsSubC_16s_Sfs, [](auto a, auto b) { return a - b; });
  scaledRowsWithConstant<int, Zor16s>("zorsSubCRev_16s_Sfs", zorsSubCRev_16s_Sfs, minus);

  binaryRow<Zor16s, Zor16s, Zor16s>("zorsAdd_16s", zorsAdd_16s, 1000);
  binaryRow<Zor16u, Zor8u, Zor8u>("zorsAdd_8u16u", zorsAdd_8u16u, 1000);
  binaryRow<Zor32u, Zor32u, Zor32u>("zorsAdd_32u", zorsAdd_32u, 1000);
  binaryRow<Zor32f, Zor16s, Zor16s>("zorsAdd_16s32f", zorsAdd_16s32f, 1000);
  binaryRow<Zor32fc, Zor32fc, Zor32fc>("zorsAdd_32fc", zorsAdd_32fc, 1000);
  binaryRow<Zor64f, Zor64f, Zor64f>("zorsAdd_64f", zorsAdd_64f, 1000);
  binaryRow<Zor32f, Zor32f, Zor32f>("zorsSub_32f", zorsSub_32f, 1000);
  for (long size : bench::passSizes) {
    const int len = int(size);
    auto *a = bench::array<Zor32f>(size), *b = bench::array<Zor32f>(size), *d = bench::array<Zor32f>(size);
    workload("zorsAdd_32f", size)
        .zors([=] { zorsAdd_32f(a, b, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_x2_add_32f(d, a, b, unsigned(len)); })
#endif
        .bound(streams(8, 4));
  }
}

const bench::Registration registration(sums);

}  // namespace
