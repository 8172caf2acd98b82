#include <algorithm>
#include <complex>
#include <string>
#include <vector>

#include "kit/bench.h"
#include "zors/filters.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

using bench::workload;

// Masks 3 and 5 as a compiler vectorises them; the others by insertion into a sorted window.
template <class T> T middle(T a, T b, T c) { return std::max(std::min(a, b), std::min(std::max(a, b), c)); }
template <class T> [[gnu::noinline]] void loop3(const T* x, T* y, int len) {
  for (int i = 0; i < len - 2; ++i) y[i] = middle(x[i], x[i + 1], x[i + 2]);
}
template <class T> [[gnu::noinline]] void loop5(const T* x, T* y, int len) {
  for (int i = 0; i < len - 4; ++i)
    y[i] = middle(std::max(std::min(x[i], x[i + 1]), std::min(x[i + 2], x[i + 3])),
                  std::min(std::max(x[i], x[i + 1]), std::max(x[i + 2], x[i + 3])), x[i + 4]);
}
template <class T> [[gnu::noinline]] void loop(const T* x, T* y, int len, int mask) {
  std::vector<T> sorted(x, x + mask);
  std::sort(sorted.begin(), sorted.end());
  for (int i = 0; i + mask < len; ++i) {
    y[i] = sorted[std::size_t(mask / 2)];
    sorted.erase(std::lower_bound(sorted.begin(), sorted.end(), x[i]));
    sorted.insert(std::upper_bound(sorted.begin(), sorted.end(), x[i + mask]), x[i + mask]);
  }
}

template <class T> void member(const char* name, ZorStatus (*median)(const T*, T*, Zor32s, Zor32s)) {
  constexpr int len = 4000;
  auto *x = bench::array<T>(len), *y = bench::array<T>(len);
  unsigned seed = 1;
  for (int i = 0; i < len; ++i) x[i] = T(int((seed = seed * 1664525 + 1013904223) >> 8) % 20000 - 10000);
  for (int mask : {3, 5, 7, 9, 15, 31, 101}) {
    auto w = workload(std::string(name) + " mask " + std::to_string(mask), len);
    w.zors([=] { median(x, y, len, mask); });
    if (mask == 3)
      w.peer("loop", [=] { loop3(x, y, len); });
    else if (mask == 5)
      w.peer("loop", [=] { loop5(x, y, len); });
    else
      w.peer("loop", [=] { loop(x, y, len, mask); });
#ifdef HAVE_LIQUID
    if constexpr (std::is_same_v<T, Zor32f>) {
      ordfilt_rrrf liquid = ordfilt_rrrf_create_medfilt(unsigned(mask / 2));
      w.peer("liquid-dsp", [=] { ordfilt_rrrf_execute_block(liquid, x, len, y); });
    }
#endif
    w.bound(bench::streams(sizeof(T), sizeof(T)));
  }
}

void medians() {
  member<Zor32f>("zorsFilterMedian_32f", zorsFilterMedian_32f);
  member<Zor16s>("zorsFilterMedian_16s", zorsFilterMedian_16s);
  member<Zor8u>("zorsFilterMedian_8u", zorsFilterMedian_8u);
}
const bench::Registration registration(medians);

}  // namespace
