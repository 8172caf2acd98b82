#include <cmath>

#include "kit/bench.h"
#include "zors.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::streams;
using bench::workload;

[[gnu::noinline]] void widen(const short* a, float* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = a[i];
}
[[gnu::noinline]] void narrow(const float* a, short* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = short(std::lrintf(std::fmin(std::fmax(a[i], -32768.0f), 32767.0f)));
}

void convert() {
  for (long size : bench::passSizes) {
    const int len = int(size);
    auto* s = bench::array<Zor16s>(size);
    auto* f = bench::array<Zor32f>(size);
    workload("zorsConvert_16s32f", size)
        .zors([=] { zorsConvert_16s32f(s, f, len); })
        .peer("loop", [=] { widen(s, f, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_16i_s32f_convert_32f(f, s, 1.0f, unsigned(len)); })
#endif
        .bound(streams(2, 4));
    for (int rnd : {0, 1, 2})
      workload("zorsConvert_32f16s_Sfs rnd " + std::to_string(rnd), size)
          .zors([=] { zorsConvert_32f16s_Sfs(f, s, len, rnd, 1); })
          .peer("loop", [=] { narrow(f, s, len); })
#ifdef HAVE_VOLK
          .peer("VOLK", [=] { volk_32f_s32f_convert_16i(s, f, 0.5f, unsigned(len)); })
#endif
          .bound(streams(4, 2));
  }
}

const bench::Registration registration(convert);

}  // namespace
