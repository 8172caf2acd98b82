#include <vector>

#include "kit/bench.h"
#include "zors/wavelets.h"

namespace {

using bench::fmas;
using bench::workload;

constexpr int mostTaps = 20;
constexpr long lengths[] = {16, 512, 4096};

// Both bands from a stream that has its past in front.
[[gnu::noinline]] void forwardLoop(const Zor32f* x, const Zor32f* taps, int tapsLen, Zor32f* low, Zor32f* high,
                                   long len) {
  for (long k = 0; k < len; ++k) {
    Zor32f a = 0, b = 0;
    for (int i = 0; i < tapsLen; ++i) {
      a += taps[i] * x[2 * k - i];
      b += taps[i] * x[2 * k - i];
    }
    low[k] = a;
    high[k] = b;
  }
}
[[gnu::noinline]] void inverseLoop(const Zor32f* low, const Zor32f* high, const Zor32f* taps, int tapsLen, Zor32f* x,
                                   long len) {
  for (long n = 0; n < len; ++n)
    for (int phase = 0; phase < 2; ++phase) {
      Zor32f sum = 0;
      for (int i = phase; i < tapsLen; i += 2) sum += taps[i] * low[n - i / 2] + taps[i] * high[n - i / 2];
      x[2 * n + phase] = sum;
    }
}

void wavelets() {
  for (int taps : {2, 8, 12, 20})
    for (long len : lengths) {
      auto *x = bench::array<Zor32f>(2 * len + mostTaps) + mostTaps,
           *low = bench::array<Zor32f>(len + mostTaps) + mostTaps,
           *high = bench::array<Zor32f>(len + mostTaps) + mostTaps, *filter = bench::array<Zor32f>(mostTaps);
      auto* integers = bench::array<Zor16s>(2 * len);
      for (int i = 0; i < mostTaps; ++i) filter[i] = 0.1f;
      ZorWTFwdState *forward, *forward16;
      ZorWTInvState *inverse, *inverse16;
      zorsWTFwdInitAlloc_32f(&forward, filter, taps, 0, filter, taps, 0);
      zorsWTFwdInitAlloc_16s32f(&forward16, filter, taps, 0, filter, taps, 0);
      zorsWTInvInitAlloc_32f(&inverse, filter, taps, 0, filter, taps, 0);
      zorsWTInvInitAlloc_32f16s(&inverse16, filter, taps, 0, filter, taps, 0);
      const int n = int(len);
      const std::string with = " " + std::to_string(taps) + " taps";
      workload("zorsWTFwd_32f" + with, len)
          .zors([=] { zorsWTFwd_32f(x, low, high, n, forward); })
          .peer("loop", [=] { forwardLoop(x, filter, taps, low, high, len); })
          .bound(fmas(2 * taps, 8));
      workload("zorsWTInv_32f" + with, len)
          .zors([=] { zorsWTInv_32f(low, high, n, x, inverse); })
          .peer("loop", [=] { inverseLoop(low, high, filter, taps, x, len); })
          .bound(fmas(2 * taps, 8));
      workload("zorsWTFwd_16s32f" + with, len)
          .zors([=] { zorsWTFwd_16s32f(integers, low, high, n, forward16); })
          .bound(fmas(2 * taps, 8));
      workload("zorsWTInv_32f16s" + with, len)
          .zors([=] { zorsWTInv_32f16s(low, high, n, integers, inverse16); })
          .bound(fmas(2 * taps, 8));
    }
}
const bench::Registration waveletRows(wavelets);

}  // namespace
