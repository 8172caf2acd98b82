// The most used conversions over all 2^32 inputs, against the definition evaluated one by one: how many differ.
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <thread>
#include <vector>

#include "zors.h"

namespace {

// x rounded to an integer as rnd says, saturated; NaN is the lowest.
template <class D> D rounded(double x, ZorRoundMode rnd) {
  using L = std::numeric_limits<D>;
  if (std::isnan(x)) return L::min();
  const double whole = rnd == zorRoundTowardZero    ? std::trunc(x)
                       : rnd == zorRoundNearestEven ? std::nearbyint(x)
                                                    : std::round(x);
  return whole >= double(L::max()) ? L::max() : whole <= double(L::min()) ? L::min() : D(whole);
}

// IEEE binary16 of a binary32 number, ties to even: through the step of its binade.
Zor16f toHalf(Zor32f x) {
  const Zor16f sign = Zor16f(std::bit_cast<Zor32u>(x) >> 16 & 0x8000);
  const double magnitude = std::fabs(double(x));
  if (std::isnan(x)) return Zor16f(sign | 0x7E00 | (std::bit_cast<Zor32u>(x) >> 13 & 0x3FF));
  if (magnitude >= 65520) return Zor16f(sign | 0x7C00);
  int exponent = magnitude == 0 ? -14 : std::max(std::ilogb(magnitude), -14);
  double places = std::nearbyint(std::ldexp(magnitude, 10 - exponent));
  if (places >= 2048) places /= 2, ++exponent;
  return Zor16f(sign | (places < 1024 ? int(places) : (exponent + 15) << 10 | (int(places) - 1024)));
}

// f(inputs, outputs, count) over all bit patterns of S, against model(input).
template <class S, class D, class F, class Model> void check(const char* name, F f, Model model) {
  constexpr std::size_t block = 1 << 16;
  constexpr unsigned threads = 2;
  std::atomic<long> differing{0};
  const auto work = [&](unsigned which) {
    std::vector<S> src(block);
    std::vector<D> dst(block);
    for (Zor64u first = which * block; first < Zor64u{1} << 32; first += threads * block) {
      for (std::size_t i = 0; i < block; ++i) src[i] = std::bit_cast<S>(Zor32u(first + i));
      f(src.data(), dst.data(), Zor32s(block));
      for (std::size_t i = 0; i < block; ++i)
        if (const D wanted = model(src[i]); !(dst[i] == wanted)) ++differing;
    }
  };
  std::vector<std::thread> pool;
  for (unsigned t = 0; t < threads; ++t) pool.emplace_back(work, t);
  for (auto& thread : pool) thread.join();
  std::printf("| `%s` | %ld |\n", name, differing.load());
  std::fflush(stdout);
}

}  // namespace

int main() {
  std::puts("| conversion, all 2^32 inputs | results that differ |\n|---|---|");
  for (int rnd : {0, 1, 2}) {
    char name[64];
    std::snprintf(name, sizeof name, "zorsConvert_32f16s_Sfs rnd %d", rnd);
    check<Zor32f, Zor16s>(
        name, [=](const Zor32f* s, Zor16s* d, Zor32s n) { zorsConvert_32f16s_Sfs(s, d, n, rnd, 0); },
        [=](Zor32f x) { return rounded<Zor16s>(double{x}, rnd); });
  }
  check<Zor32f, Zor16f>(
      "zorsConvert_32f16f rnd 1", [](const Zor32f* s, Zor16f* d, Zor32s n) { zorsConvert_32f16f(s, d, n, 1); }, toHalf);
  check<Zor32s, Zor32f>(
      "zorsConvert_32s32f", [](const Zor32s* s, Zor32f* d, Zor32s n) { zorsConvert_32s32f(s, d, n); },
      [](Zor32s x) { return Zor32f(double(x)); });
}
