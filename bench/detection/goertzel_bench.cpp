// Single bins and frequency demodulation beside plain loops of the same operations.
#include <cmath>
#include <string>

#include "kit/bench.h"
#include "zors/detection.h"

namespace {

using bench::workload;

volatile float frequency = 0.0871f;

// The second-order recursion, one sample after the other.
template <class S> Zor32fc recursion(const S* src, int len, float rFreq) {
  const float c = 2 * std::cos(6.2831853f * rFreq);
  float s1 = 0, s2 = 0;
  for (int n = 0; n < len; ++n) {
    const float s = float(src[n]) + c * s1 - s2;
    s2 = s1;
    s1 = s;
  }
  return {s1, s2};
}

void goertzel() {
  for (long n : {20L, 205L, 1000L, 4096L}) {
    auto* src = bench::array<Zor32f>(n);
    auto* src64 = bench::array<Zor64f>(n);
    auto* srcC = bench::array<Zor32fc>(n);
    auto* src16 = bench::array<Zor16s>(n);
    auto* src16c = bench::array<Zor16sc>(n);
    auto* val = bench::array<Zor32fc>(2);
    auto* val64 = bench::array<Zor64fc>(2);
    auto* val16 = bench::array<Zor16sc>(2);
    const int len = int(n);
    workload("zorsGoertz_32f", n).zors([=] { zorsGoertz_32f(src, len, val, frequency); }).peer("loop", [=] {
      *val = recursion(src, len, frequency);
    });
    workload("zorsGoertzTwo_32f", n)
        .zors([=] {
          const float both[] = {frequency, 0.2f};
          zorsGoertzTwo_32f(src, len, val, both);
        })
        .peer("one bin", [=] { zorsGoertz_32f(src, len, val, frequency); });
    workload("zorsGoertz_32fc", n).zors([=] { zorsGoertz_32fc(srcC, len, val, frequency); });
    workload("zorsGoertz_64f", n).zors([=] { zorsGoertz_64f(src64, len, val64, double(frequency)); });
    workload("zorsGoertz_16s_Sfs", n)
        .zors([=] { zorsGoertz_16s_Sfs(src16, len, val16, frequency, 3); })
        .peer("loop", [=] { *val = recursion(src16, len, frequency); });
    workload("zorsGoertz_16sc_Sfs", n).zors([=] { zorsGoertz_16sc_Sfs(src16c, len, val16, frequency, 3); });
  }
}

void demodulate() {
  for (long n : {16L, 160L, 1000L, 100'000L}) {
    auto *re = bench::array<Zor16s>(n), *im = bench::array<Zor16s>(n), *dst = bench::array<Zor16s>(n);
    for (long i = 0; i < n; ++i) {
      re[i] = Zor16s(10000 * std::cos(0.01 * double(i * i % 1000)));
      im[i] = Zor16s(10000 * std::sin(0.01 * double(i * i % 1000)));
    }
    auto* last = bench::array<Zor16sc>(1);
    workload("zorsDemodulateFM_CToR_16s", n)
        .zors([=] { zorsDemodulateFM_CToR_16s(re, im, dst, int(n), last); })
        .peer("loop", [=] {
          Zor16sc p = *last;
          for (long i = 0; i < n; ++i) {
            const float y = float(p.re * im[i] - p.im * re[i]), x = float(p.re * re[i] + p.im * im[i]);
            dst[i] = Zor16s(std::lrintf(std::atan2(y, x) * 10430.378f));
            p = {re[i], im[i]};
          }
        });
  }
}

const bench::Registration registrations[] = {bench::Registration(goertzel), bench::Registration(demodulate)};

}  // namespace
