#include "kit/bench.h"
#include "zors.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::streams;
using bench::workload;

[[gnu::noinline]] void loop(const float* a, const float* b, float* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = a[i] * b[i];
}

void mul() {
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
    workload("zorsMulC_32f", size).zors([=] { zorsMulC_32f(a, 3.0f, d, len); }).bound(streams(4, 4));
  }
}

const bench::Registration registration(mul);

}  // namespace
