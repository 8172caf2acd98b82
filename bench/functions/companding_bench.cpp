#include <algorithm>
#include <array>
#include <cmath>

#include "kit/bench.h"
#include "zors/functions.h"

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {63, 1000, 100'000};

// A table of 256 entries, one code after the other. It is filled, or the compiler would know it.
std::array<short, 256> table;
[[gnu::noinline]] void lookUp(const unsigned char* a, short* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = table[a[i]];
}
[[gnu::noinline]] void lookUp(const unsigned char* a, unsigned char* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = static_cast<unsigned char>(table[a[i]]);
}
[[gnu::noinline]] void encode(const short* a, unsigned char* d, int len) {
  for (int i = 0; i < len; ++i) {
    const int m = (a[i] ^ (a[i] >> 15)) >> 3;
    const int k = std::max(27 - __builtin_clz(unsigned(m) | 1), 0);
    d[i] = static_cast<unsigned char>(((k << 4) | ((m >> std::max(k, 1)) & 15)) ^ (a[i] >= 0 ? 0xD5 : 0x55));
  }
}

void companding() {
  for (std::size_t i = 0; i < table.size(); ++i) {
    const auto code = static_cast<Zor8u>(i);
    zorsALawToLin_8u16s(&code, &table[i], 1);
  }
  for (long size : sizes) {
    const int len = int(size);
    auto *codes = bench::array<Zor8u>(size), *others = bench::array<Zor8u>(size);
    auto* samples = bench::array<Zor16s>(size);
    auto* floats = bench::array<Zor32f>(size);
    for (int i = 0; i < len; ++i) codes[i] = static_cast<Zor8u>(i * 37);
    workload("zorsALawToLin_8u16s", size)
        .zors([=] { zorsALawToLin_8u16s(codes, samples, len); })
        .peer("table", [=] { lookUp(codes, samples, len); })
        .bound(streams(1, 2));
    workload("zorsMuLawToLin_8u32f", size).zors([=] { zorsMuLawToLin_8u32f(codes, floats, len); }).bound(streams(1, 4));
    workload("zorsLinToALaw_16s8u", size)
        .zors([=] { zorsLinToALaw_16s8u(samples, codes, len); })
        .peer("loop", [=] { encode(samples, codes, len); })
        .bound(streams(2, 1));
    workload("zorsLinToMuLaw_16s8u", size)
        .zors([=] { zorsLinToMuLaw_16s8u(samples, codes, len); })
        .bound(streams(2, 1));
    workload("zorsLinToMuLaw_32f8u", size).zors([=] { zorsLinToMuLaw_32f8u(floats, codes, len); }).bound(streams(4, 1));
    workload("zorsALawToMuLaw_8u", size)
        .zors([=] { zorsALawToMuLaw_8u(codes, others, len); })
        .peer("table", [=] { lookUp(codes, others, len); })
        .bound(streams(1, 1));
  }
}

void small() {
  for (long size : sizes) {
    const int len = int(size);
    auto *x = bench::array<Zor32f>(size), *y = bench::array<Zor32f>(size);
    auto* s = bench::array<Zor16s>(size);
    workload("zorsPreemphasize_32f", size).zors([=] { zorsPreemphasize_32f(x, len, 0.0f); }).bound(streams(4, 4));
    workload("zorsPreemphasize_16s", size).zors([=] { zorsPreemphasize_16s(s, len, 0.0f); }).bound(streams(2, 2));
    workload("zorsCauchyDD2_32f_I", size).zors([=] { zorsCauchyDD2_32f_I(x, y, len, 1.0f); }).bound(streams(4, 8));
    workload("zorsUpdateLinear_16s32s_I", size)
        .zors([=] {
          Zor32s state = 1;
          zorsUpdateLinear_16s32s_I(s, len, &state, 0, 2, zorAlgHintNone);
        })
        .bound(streams(2, 0));
    auto* d = bench::array<Zor64f>(size);
    workload("zorsMaxOrder_16s", size)
        .zors([=] {
          Zor32s order = 0;
          zorsMaxOrder_16s(s, len, &order);
        })
        .bound(streams(2, 0));
    workload("zorsMaxOrder_64f", size)
        .zors([=] {
          Zor32s order = 0;
          zorsMaxOrder_64f(d, len, &order);
        })
        .bound(streams(8, 0));
  }
}

const bench::Registration registrations[] = {bench::Registration(companding), bench::Registration(small)};

}  // namespace
