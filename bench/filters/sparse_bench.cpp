#include "kit/bench.h"
#include "zors/filters.h"

namespace {

[[gnu::noinline]] void loop(const float* taps, const int* places, int count, const float* x, float* y, int len) {
  for (int i = 0; i < len; ++i) {
    float sum = 0;
    for (int k = 0; k < count; ++k) sum += taps[k] * x[i - places[k]];
    y[i] = sum;
  }
}

void sparse() {
  constexpr int count = 32, order = 4000;
  auto* taps = bench::array<Zor32f>(count);
  auto* places = bench::array<Zor32s>(count);
  for (int k = 0; k < count; ++k) places[k] = 1 + k * (order - 1) / (count - 1), taps[k] = 0.01f;
  for (int len : {160, 1024, 4096}) {
    auto *x = bench::array<Zor32f>(order + len) + order, *y = bench::array<Zor32f>(len);
    Zor32s size;
    zorsFIRSparseGetStateSize_32f(count, order, &size);
    ZorFIRSparseState* state = nullptr;
    zorsFIRSparseInit_32f(&state, taps, places, count, nullptr, bench::array<Zor8u>(size));
    bench::workload("zorsFIRSparse_32f 32 of 4,000 taps", len)
        .zors([=] { zorsFIRSparse_32f(x, y, len, state); })
        .peer("loop", [=] { loop(taps, places, count, x, y, len); })
        .bound(bench::fmas(count, 8));
    for (int nearest : {1, 64}) {
      auto* iirPlaces = bench::array<Zor32s>(count);
      for (int k = 0; k < 16; ++k) iirPlaces[k] = k * 250, iirPlaces[16 + k] = nearest + k * 250;
      zorsIIRSparseGetStateSize_32f(16, 16, iirPlaces[15], iirPlaces[31], &size);
      ZorIIRSparseState* iir = nullptr;
      zorsIIRSparseInit_32f(&iir, taps, iirPlaces, 16, 16, nullptr, bench::array<Zor8u>(size));
      bench::workload("zorsIIRSparse_32f 16 and 16 of 4,000 taps, nearest " + std::to_string(nearest), len)
          .zors([=] { zorsIIRSparse_32f(x, y, len, iir); })
          .bound(bench::fmas(count, 8));
    }
  }
}
const bench::Registration registration(sparse);

}  // namespace
