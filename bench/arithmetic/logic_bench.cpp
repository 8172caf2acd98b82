#include "kit/bench.h"
#include "zors/arithmetic.h"

namespace {

using bench::streams;
using bench::workload;

[[gnu::noinline]] void loopAnd(const Zor8u* a, const Zor8u* b, Zor8u* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = a[i] & b[i];
}
[[gnu::noinline]] void loopLeft(const Zor8u* a, int count, Zor8u* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = Zor8u(a[i] << count);
}
[[gnu::noinline]] void loopRight(const Zor16s* a, int count, Zor16s* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = Zor16s(a[i] >> count);
}

void logic() {
  for (long size : bench::passSizes) {
    const int len = int(size);
    auto *a = bench::array<Zor8u>(size), *b = bench::array<Zor8u>(size), *d = bench::array<Zor8u>(size);
    auto *words = bench::array<Zor16s>(size), *shifted = bench::array<Zor16s>(size);
    auto *longs = bench::array<Zor32u>(size), *masked = bench::array<Zor32u>(size);
    workload("zorsAnd_8u", size)
        .zors([=] { zorsAnd_8u(a, b, d, len); })
        .peer("loop", [=] { loopAnd(a, b, d, len); })
        .bound(streams(2, 1));
    workload("zorsXorC_32u", size).zors([=] { zorsXorC_32u(longs, 5, masked, len); }).bound(streams(4, 4));
    workload("zorsNot_8u", size).zors([=] { zorsNot_8u(a, d, len); }).bound(streams(1, 1));
    workload("zorsLShiftC_8u", size)
        .zors([=] { zorsLShiftC_8u(a, 3, d, len); })
        .peer("loop", [=] { loopLeft(a, 3, d, len); })
        .bound(streams(1, 1));
    workload("zorsRShiftC_16s", size)
        .zors([=] { zorsRShiftC_16s(words, 3, shifted, len); })
        .peer("loop", [=] { loopRight(words, 3, shifted, len); })
        .bound(streams(2, 2));
  }
}

const bench::Registration registration(logic);

}  // namespace
