#include <cmath>

#include "kit/bench.h"
#include "zors/generators.h"

namespace {

using bench::streams;
using bench::workload;

template <class T> [[gnu::noinline]] void chirp(T* d, int len, double magn) {
  const double factor = 1.5707963267948966 / len;
  for (int n = 0; n < len; ++n) d[n] = static_cast<T>(magn * std::sin(factor * (double(n) * n)));
}
template <class T, class A> [[gnu::noinline]] void line(T* d, int len, A offset, A slope) {
  for (int n = 0; n < len; ++n) d[n] = static_cast<T>(std::fma(slope, A(n), offset));
}

void testVectors() {
  for (long size : {1000L, 100'000L, 1'000'000L}) {
    const int len = int(size);
    auto* y8 = bench::array<Zor8u>(size);
    auto* y16 = bench::array<Zor16s>(size);
    auto* y32 = bench::array<Zor32s>(size);
    auto* yu = bench::array<Zor32u>(size);
    auto* y32f = bench::array<Zor32f>(size);
    auto* y64f = bench::array<Zor64f>(size);
    workload("zorsVectorJaehne_16s", size).zors([=] { zorsVectorJaehne_16s(y16, len, 30000); }).peer("loop", [=] {
      chirp(y16, len, 30000);
    });
    workload("zorsVectorJaehne_32u", size).zors([=] { zorsVectorJaehne_32u(yu, len, 30000); });
    workload("zorsVectorJaehne_32f", size).zors([=] { zorsVectorJaehne_32f(y32f, len, 1); }).peer("loop", [=] {
      chirp(y32f, len, 1);
    });
    workload("zorsVectorJaehne_64f", size).zors([=] { zorsVectorJaehne_64f(y64f, len, 1); }).peer("loop", [=] {
      chirp(y64f, len, 1);
    });
    const auto slope = static_cast<Zor32f>(200.0 / len);
    workload("zorsVectorRamp_8u", size)
        .zors([=] { zorsVectorRamp_8u(y8, len, 3, slope); })
        .peer("loop", [=] { line<Zor8u, double>(y8, len, 3, slope); })
        .bound(streams(0, 1));
    workload("zorsVectorRamp_16s", size)
        .zors([=] { zorsVectorRamp_16s(y16, len, 3, slope); })
        .peer("loop", [=] { line<Zor16s, double>(y16, len, 3, slope); })
        .bound(streams(0, 2));
    workload("zorsVectorSlope_32s", size)
        .zors([=] { zorsVectorSlope_32s(y32, len, 3, slope); })
        .peer("loop", [=] { line<Zor32s, double>(y32, len, 3, slope); })
        .bound(streams(0, 4));
    workload("zorsVectorSlope_32u", size).zors([=] { zorsVectorSlope_32u(yu, len, 3, slope); }).bound(streams(0, 4));
    workload("zorsVectorRamp_32f", size)
        .zors([=] { zorsVectorRamp_32f(y32f, len, 3, slope); })
        .peer("loop", [=] { line<Zor32f, float>(y32f, len, 3, slope); })
        .bound(streams(0, 4));
    workload("zorsVectorSlope_32f", size).zors([=] { zorsVectorSlope_32f(y32f, len, 3, slope); }).bound(streams(0, 4));
    workload("zorsVectorSlope_64f", size)
        .zors([=] { zorsVectorSlope_64f(y64f, len, 3, slope); })
        .peer("loop", [=] { line<Zor64f, double>(y64f, len, 3, slope); })
        .bound(streams(0, 8));
  }
}

const bench::Registration registration(testVectors);

}  // namespace
