#include <algorithm>
#include <limits>

#include "kit/bench.h"
#include "zors/arithmetic.h"
#include "zors/memory.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::streams;
using bench::workload;

// The quotient as plain C++ writes it: to nearest, ties to even, at a scale of 0 or above.
template <class D, class T> D quotient(T n, T divisor, int scale) {
  using L = std::numeric_limits<D>;
  if (divisor == 0) return n == 0 ? D(0) : n > 0 ? L::max() : L::min();
  divisor = T(divisor << scale);
  T q = T(n / divisor);
  const T rest = T(n % divisor), twice = T(rest < 0 ? -2 * rest : 2 * rest), size = T(divisor < 0 ? -divisor : divisor);
  if (twice > size || (twice == size && q % 2 != 0)) q = T((n < 0) != (divisor < 0) ? q - 1 : q + 1);
  return D(std::clamp<T>(q, L::min(), L::max()));
}
// In the type that holds dividend and scaled divisor.
template <class Wide, class D, class S1, class S2>
[[gnu::noinline]] void loop(const S1* divisors, const S2* dividends, D* d, int len, int scale) {
  for (int i = 0; i < len; ++i) d[i] = quotient<D, Wide>(dividends[i], divisors[i], scale);
}
template <class Wide, class T> [[gnu::noinline]] void loopByConstant(const T* src, T val, T* d, int len, int scale) {
  for (int i = 0; i < len; ++i) d[i] = quotient<T, Wide>(src[i], val, scale);
}
template <class T> [[gnu::noinline]] void loopComplex(const T* divisors, const T* dividends, T* d, int len) {
  for (int i = 0; i < len; ++i) {
    const Zor64s a = dividends[i].re, b = dividends[i].im, c = divisors[i].re, e = divisors[i].im, norm = c * c + e * e;
    d[i] = {quotient<Zor16s, Zor64s>(a * c + b * e, norm, 0), quotient<Zor16s, Zor64s>(b * c - a * e, norm, 0)};
  }
}
template <class T> [[gnu::noinline]] void loopFloats(const T* divisors, const T* dividends, T* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = dividends[i] / divisors[i];
}

// Elements of many sizes, none zero.
template <class T> T* varied(long size, Zor64u seed) {
  T* data = bench::array<T>(size);
  for (long i = 0; i < size; ++i) {
    seed = seed * 6364136223846793005u + 1442695040888963407u;
    const auto part = [&](int shift) { return static_cast<Zor32s>(seed >> shift) | 1; };
    if constexpr (requires { data[i].re; })
      data[i] = {decltype(T::re)(part(32)), decltype(T::im)(part(16))};
    else if constexpr (sizeof(T) == 8)
      data[i] = T(static_cast<Zor64s>(seed));
    else
      data[i] = T(part(32));
  }
  return data;
}

template <class Wide, class D, class S1, class S2>
void pairs(const char* name, ZorStatus (*div)(const S1*, const S2*, D*, Zor32s, Zor32s), long size, int scale) {
  const int len = int(size);
  const auto* a = varied<S1>(size, 1);
  const auto* b = varied<S2>(size, 2);
  auto* d = bench::array<D>(size);
  workload(std::string(name) + (scale == 0 ? "" : " at " + std::to_string(scale)), size)
      .zors([=] { div(a, b, d, len, scale); })
      .peer("loop", [=] { loop<Wide>(a, b, d, len, std::max(scale, 0)); })
      .bound(streams(int(sizeof(S1) + sizeof(S2)), int(sizeof(D))));
}
template <class Wide, class T>
void constants(const char* name, ZorStatus (*div)(const T*, T, T*, Zor32s, Zor32s), long size, T val) {
  const int len = int(size);
  const auto* a = varied<T>(size, 1);
  auto* d = bench::array<T>(size);
  workload(name, size)
      .zors([=] { div(a, val, d, len, 1); })
      .peer("loop", [=] { loopByConstant<Wide>(a, val, d, len, 1); })
      .bound(streams(int(sizeof(T)), int(sizeof(T))));
}

void integers() {
  for (long size : bench::passSizes) {
    const int len = int(size);
    for (int scale : {0, 1, 7, -2}) pairs<Zor32s>("zorsDiv_8u_Sfs", zorsDiv_8u_Sfs, size, scale);
    for (int scale : {0, 1, 7, -2, -9}) pairs<Zor32s>("zorsDiv_16s_Sfs", zorsDiv_16s_Sfs, size, scale);
    pairs<Zor32s>("zorsDiv_16u_Sfs", zorsDiv_16u_Sfs, size, 0);
    for (int scale : {0, 1, 7, -2, -21}) pairs<Zor64s>("zorsDiv_32s_Sfs", zorsDiv_32s_Sfs, size, scale);
    pairs<Zor64s>("zorsDiv_32s16s_Sfs", zorsDiv_32s16s_Sfs, size, 0);
    const auto *a = varied<Zor16sc>(size, 1), *b = varied<Zor16sc>(size, 2);
    auto* d = bench::array<Zor16sc>(size);
    workload("zorsDiv_16sc_Sfs", size)
        .zors([=] { zorsDiv_16sc_Sfs(a, b, d, len, 0); })
        .peer("loop", [=] { loopComplex(a, b, d, len); })
        .bound(streams(8, 4));
    pairs<Zor32s>(
        "zorsDiv_Round_16s_Sfs half away",
        +[](const Zor16s* x, const Zor16s* y, Zor16s* z, Zor32s n, Zor32s scale) {
          return zorsDiv_Round_16s_Sfs(x, y, z, n, zorRoundHalfAway, scale);
        },
        size, 0);
    constants<Zor32s>("zorsDivC_8u_Sfs", zorsDivC_8u_Sfs, size, Zor8u{7});
    constants<Zor32s>("zorsDivC_16s_Sfs", zorsDivC_16s_Sfs, size, Zor16s{-7});
    const auto* longs = varied<Zor64s>(size, 1);  // copied first, as quotients of quotients would soon be zeros
    auto* quotients = bench::array<Zor64s>(size);
    workload("zorsDivC_64s_ISfs", size)
        .zors([=] {
          zorsCopy_64s(longs, quotients, len);
          zorsDivC_64s_ISfs(7, quotients, len, 1);
        })
        .peer("loop",
              [=] {
                zorsCopy_64s(longs, quotients, len);
                loopByConstant<Zor64s>(quotients, Zor64s{7}, quotients, len, 1);
              })
        .bound(streams(8, 8));
    const auto* words = varied<Zor16u>(size, 1);
    auto* inverses = bench::array<Zor16u>(size);
    workload("zorsDivCRev_16u", size).zors([=] { zorsDivCRev_16u(words, 50000, inverses, len); }).bound(streams(2, 2));
  }
}

void floats() {
  for (long size : bench::passSizes) {
    const int len = int(size);
    const auto *a = varied<Zor32f>(size, 1), *b = varied<Zor32f>(size, 2);
    auto* d = bench::array<Zor32f>(size);
    workload("zorsDiv_32f", size)
        .zors([=] { zorsDiv_32f(a, b, d, len); })
        .peer("loop", [=] { loopFloats(a, b, d, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_32f_x2_divide_32f(d, b, a, unsigned(len)); })
#endif
        .bound(streams(8, 4));
    workload("zorsDivC_32f", size).zors([=] { zorsDivC_32f(a, 3.0f, d, len); }).bound(streams(4, 4));
    workload("zorsDivCRev_32f", size).zors([=] { zorsDivCRev_32f(a, 3.0f, d, len); }).bound(streams(4, 4));
    const auto *a64 = varied<Zor64f>(size, 1), *b64 = varied<Zor64f>(size, 2);
    auto* d64 = bench::array<Zor64f>(size);
    workload("zorsDiv_64f", size)
        .zors([=] { zorsDiv_64f(a64, b64, d64, len); })
        .peer("loop", [=] { loopFloats(a64, b64, d64, len); })
        .bound(streams(16, 8));
    const auto *z1 = varied<Zor32fc>(size, 1), *z2 = varied<Zor32fc>(size, 2);
    auto* z = bench::array<Zor32fc>(size);
    workload("zorsDiv_32fc", size)
        .zors([=] { zorsDiv_32fc(z1, z2, z, len); })
#ifdef HAVE_VOLK
        .peer("VOLK",
              [=] {
                volk_32fc_x2_divide_32fc(reinterpret_cast<lv_32fc_t*>(z), reinterpret_cast<const lv_32fc_t*>(z2),
                                         reinterpret_cast<const lv_32fc_t*>(z1), unsigned(len));
              })
#endif
        .bound(streams(16, 8));
  }
}

const bench::Registration registeredIntegers(integers);
const bench::Registration registeredFloats(floats);

}  // namespace
