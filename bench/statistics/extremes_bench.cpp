#include <algorithm>

#include "kit/bench.h"
#include "zors/statistics.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {64, 1000, 10'000, 100'000, 10'000'000};

// Random elements, so that the place of an extreme is any.
template <class T> T* randomArray(long size) {
  T* const data = bench::array<T>(size);
  unsigned state = 1;
  for (long i = 0; i < size; ++i) {
    state = state * 1664525u + 1013904223u;
    data[i] = T(int(state >> 8) % 30000 - (std::is_signed_v<T> ? 15000 : 0));
  }
  return data;
}

template <class T> [[gnu::noinline]] T maxLoop(const T* a, long len) {
  T best = a[0];
  for (long i = 1; i < len; ++i) best = a[i] > best ? a[i] : best;
  return best;
}
template <class T> [[gnu::noinline]] long maxIndexLoop(const T* a, long len) {
  long best = 0;
  for (long i = 1; i < len; ++i) best = a[i] > a[best] ? i : best;
  return best;
}

template <class T>
void rows(const char* type, ZorStatus (*max)(const T*, Zor32s, T*),
          ZorStatus (*maxIndex)(const T*, Zor32s, T*, Zor32s*), ZorStatus (*minMax)(const T*, Zor32s, T*, T*),
          ZorStatus (*minMaxIndex)(const T*, Zor32s, T*, Zor32s*, T*, Zor32s*)) {
  static T low, high;
  static Zor32s lowAt, highAt;
  for (long size : sizes) {
    const T* const a = randomArray<T>(size);
    const int len = int(size);
    const auto name = [&](const char* operation) { return std::string(operation) + type; };
    constexpr int bytes = sizeof(T);
    auto row = workload(name("zorsMax_"), size);
    row.zors([=] { max(a, len, &high); })
        .peer("loop", [=] { benchmark::DoNotOptimize(maxLoop(a, size)); })
        .bound(streams(bytes, 0));
    auto indexed = workload(name("zorsMaxIndx_"), size);
    indexed.zors([=] { maxIndex(a, len, &high, &highAt); })
        .peer("loop", [=] { benchmark::DoNotOptimize(maxIndexLoop(a, size)); })
        .bound([=] { max(a, len, &high); });
#ifdef HAVE_VOLK
    if constexpr (std::is_same_v<T, float>)
      indexed.peer("VOLK", [=] {
        volk_32f_index_max_32u(reinterpret_cast<uint32_t*>(&highAt), const_cast<float*>(a), uint32_t(len));
      });
#endif
    workload(name("zorsMinMax_"), size)
        .zors([=] { minMax(a, len, &low, &high); })
        .peer("minmax_element", [=] { benchmark::DoNotOptimize(std::minmax_element(a, a + size)); })
        .bound(streams(bytes, 0));
    workload(name("zorsMinMaxIndx_"), size).zors([=] { minMaxIndex(a, len, &low, &lowAt, &high, &highAt); }).bound([=] {
      minMax(a, len, &low, &high);
    });
  }
}

void extremes() {
  rows<Zor16s>("16s", zorsMax_16s, zorsMaxIndx_16s, zorsMinMax_16s, zorsMinMaxIndx_16s);
  rows<Zor32s>("32s", zorsMax_32s, zorsMaxIndx_32s, zorsMinMax_32s, zorsMinMaxIndx_32s);
  rows<Zor32f>("32f", zorsMax_32f, zorsMaxIndx_32f, zorsMinMax_32f, zorsMinMaxIndx_32f);
  rows<Zor64f>("64f", zorsMax_64f, zorsMaxIndx_64f, zorsMinMax_64f, zorsMinMaxIndx_64f);
  for (long size : sizes) {
    const int len = int(size);
    auto* a = randomArray<Zor16s>(size);
    static Zor16s val;
    static Zor32s at;
    workload("zorsMaxAbs_16s", size).zors([=] { zorsMaxAbs_16s(a, len, &val); }).bound(streams(2, 0));
    workload("zorsMinAbsIndx_16s", size).zors([=] { zorsMinAbsIndx_16s(a, len, &val, &at); });
    auto *x = bench::array<Zor32f>(size), *y = bench::array<Zor32f>(size), *d = bench::array<Zor32f>(size);
    workload("zorsMaxEvery_32f", size)
        .zors([=] { zorsMaxEvery_32f(x, y, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_x2_max_32f(d, x, y, unsigned(len)); })
#endif
        .bound(streams(8, 4));
  }
}

void counters() {
  static Zor32s count;
  static Zor32f crossings;
  for (long size : sizes) {
    const int len = int(size);
    auto* a = randomArray<Zor32s>(size);
    auto* s = randomArray<Zor16s>(size);
    auto* f = randomArray<Zor32f>(size);
    workload("zorsCountInRange_32s", size)
        .zors([=] { zorsCountInRange_32s(a, len, &count, -100, 5000); })
        .peer("count_if",
              [=] { benchmark::DoNotOptimize(std::count_if(a, a + size, [](int x) { return x > -100 && x < 5000; })); })
        .bound(streams(4, 0));
    for (int mode : {0, 1, 2}) {
      workload("zorsZeroCrossing_16s32f mode " + std::to_string(mode), size).zors([=] {
        zorsZeroCrossing_16s32f(s, len, &crossings, mode);
      });
      workload("zorsZeroCrossing_32f mode " + std::to_string(mode), size).zors([=] {
        zorsZeroCrossing_32f(f, len, &crossings, mode);
      });
    }
  }
  auto *table = bench::array<Zor16u>(256), *src = randomArray<Zor16u>(10'000), *dst = bench::array<Zor16u>(10'000);
  auto* index = bench::array<Zor32s>(10'000);
  for (int i = 0; i < 256; ++i) table[i] = Zor16u(i * 100);
  workload("zorsFindNearest_16u", 10'000)
      .zors([=] { zorsFindNearest_16u(src, dst, index, 10'000, table, 256); })
      .peer("lower_bound", [=] {
        for (int i = 0; i < 10'000; ++i) index[i] = int(std::lower_bound(table, table + 256, src[i]) - table);
      });
}

const bench::Registration registrations[] = {bench::Registration(extremes), bench::Registration(counters)};

}  // namespace
