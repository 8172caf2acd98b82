#include "kit/bench.h"
#include "zors/wavelets.h"

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {64, 1000, 10'000, 1'000'000};

template <class T> [[gnu::noinline]] void forwardLoop(const T* x, long pairs, T* low, T* high) {
  for (long k = 0; k < pairs; ++k) {
    if constexpr (std::is_floating_point_v<T>) {
      high[k] = (x[2 * k + 1] - x[2 * k]) * T(0.5);
      low[k] = x[2 * k] + high[k];
    } else {
      const long sum = long(x[2 * k]) + x[2 * k + 1], difference = long(x[2 * k + 1]) - x[2 * k];
      low[k] = T((sum + (sum >> 1 & 1)) >> 1);
      high[k] = T((difference + (difference >> 1 & 1)) >> 1);
    }
  }
}
template <class T> [[gnu::noinline]] void inverseLoop(const T* low, const T* high, T* x, long pairs) {
  for (long k = 0; k < pairs; ++k) {
    if constexpr (sizeof(T) < 4) {
      const int a = low[k] - high[k], b = low[k] + high[k];
      x[2 * k] = T(a < -32768 ? -32768 : a > 32767 ? 32767 : a);
      x[2 * k + 1] = T(b < -32768 ? -32768 : b > 32767 ? 32767 : b);
    } else {
      x[2 * k] = low[k] - high[k];
      x[2 * k + 1] = low[k] + high[k];
    }
  }
}

template <class T>
void rows(const std::string& type, ZorStatus (*forward)(const T*, Zor32s, T*, T*),
          ZorStatus (*inverse)(const T*, const T*, T*, Zor32s)) {
  for (long size : sizes) {
    auto *x = bench::array<T>(size), *low = bench::array<T>(size / 2), *high = bench::array<T>(size / 2);
    workload("zorsWTHaarFwd_" + type, size)
        .zors([=] { forward(x, Zor32s(size), low, high); })
        .peer("loop", [=] { forwardLoop(x, size / 2, low, high); })
        .bound(streams(sizeof(T), sizeof(T)));
    workload("zorsWTHaarInv_" + type, size)
        .zors([=] { inverse(low, high, x, Zor32s(size)); })
        .peer("loop", [=] { inverseLoop(low, high, x, size / 2); })
        .bound(streams(sizeof(T), sizeof(T)));
  }
}

void haar() {
  rows<Zor8s>("8s", zorsWTHaarFwd_8s, zorsWTHaarInv_8s);
  rows<Zor16s>("16s", zorsWTHaarFwd_16s, zorsWTHaarInv_16s);
  rows<Zor32s>("32s", zorsWTHaarFwd_32s, zorsWTHaarInv_32s);
  rows<Zor64s>("64s", zorsWTHaarFwd_64s, zorsWTHaarInv_64s);
  rows<Zor32f>("32f", zorsWTHaarFwd_32f, zorsWTHaarInv_32f);
  rows<Zor64f>("64f", zorsWTHaarFwd_64f, zorsWTHaarInv_64f);
  for (long size : sizes) {
    auto *x = bench::array<Zor16s>(size), *low = bench::array<Zor16s>(size), *high = bench::array<Zor16s>(size);
    workload("zorsWTHaarFwd_16s_Sfs by 3", size)
        .zors([=] { zorsWTHaarFwd_16s_Sfs(x, Zor32s(size), low, high, 3); })
        .bound(streams(2, 2));
  }
}
const bench::Registration haarRows(haar);

}  // namespace
