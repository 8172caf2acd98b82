#include <complex>
#include <string>

#include "kit/bench.h"
#include "zors/adaptive.h"
#include "zors/multirate.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

using bench::workload;

// taps reversed; the sums of the compiler's vectors
[[gnu::noinline]] void loopDown(const float* taps, int tapsLen, const float* x, float* y, int len, int down) {
  for (int i = 0; i < len; ++i) {
    float sum = 0;
    for (int k = 0; k < tapsLen; ++k) sum += taps[k] * x[i * down + k];
    y[i] = sum;
  }
}
[[gnu::noinline]] void loopRates(const float* taps, int tapsLen, const float* x, float* y, int len, int up, int down) {
  for (int i = 0; i < len; ++i) {
    const int p = i * down;
    float sum = 0;
    for (int j = p % up, m = p / up; j < tapsLen; j += up, --m) sum += taps[j] * x[m];
    y[i] = sum;
  }
}
[[gnu::noinline]] void loopStream(const short* taps, int tapsLen, const short* x, short* y, int len) {
  for (int i = 0; i < len; ++i) {
    int sum = 0;
    for (int k = 0; k < tapsLen; ++k) sum += taps[k] * x[i + k];
    y[i] = short(std::max(-32768, std::min(32767, sum >> 15)));
  }
}

void multirate() {
  struct Case {
    int taps, up, down;
  };
  for (auto [tapsLen, up, down] : {Case{32, 1, 2},
                                   {32, 1, 4},
                                   {128, 1, 2},
                                   {128, 1, 4},
                                   {128, 4, 1},
                                   {128, 8, 1},
                                   {128, 147, 160},
                                   {4096, 147, 160},
                                   {64, 3, 2}}) {
    const int numIters = std::max(8, 2000 / std::max(up, down)), in = numIters * down, out = numIters * up;
    auto *taps = bench::array<Zor32f>(tapsLen), *x = bench::array<Zor32f>(in + tapsLen) + tapsLen,
         *y = bench::array<Zor32f>(out);
    for (int i = 0; i < in; ++i) x[i] = float(i % 17) - 8;
    Zor32s specSize, bufSize;
    zorsFIRMRGetSize(tapsLen, up, down, 13, &specSize, &bufSize);
    auto *spec = bench::array<Zor8u>(specSize), *buffer = bench::array<Zor8u>(bufSize);
    zorsFIRMR_Init_32f(taps, tapsLen, up, 0, down, 0, spec);
    const std::string what =
        " " + std::to_string(tapsLen) + " taps, " + std::to_string(up) + "/" + std::to_string(down);
    auto w = workload("zorsFIRMR_32f" + what, out);
    w.zors([=] { zorsFIRMR_32f(x, y, numIters, spec, nullptr, nullptr, buffer); });
    if (up == 1)
      w.peer("loop", [=, tapsLen = tapsLen, down = down] { loopDown(taps, tapsLen, x - tapsLen, y, out, down); });
    else
      w.peer("loop", [=, tapsLen = tapsLen, up = up, down = down] { loopRates(taps, tapsLen, x, y, out, up, down); });
#ifdef HAVE_LIQUID
    if (up == 1) {
      firdecim_rrrf q = firdecim_rrrf_create(unsigned(down), taps, unsigned(tapsLen));
      w.peer("liquid-dsp", [=] { firdecim_rrrf_execute_block(q, x, unsigned(out), y); });
    } else if (down == 1) {
      firinterp_rrrf q = firinterp_rrrf_create(unsigned(up), taps, unsigned(tapsLen));
      w.peer("liquid-dsp", [=] { firinterp_rrrf_execute_block(q, x, unsigned(in), y); });
    } else if (tapsLen > 1000) {
      rresamp_rrrf q = rresamp_rrrf_create(unsigned(up), unsigned(down), unsigned(tapsLen / up / 2), taps);
      w.peer("liquid-dsp", [=] { rresamp_rrrf_execute_block(q, x, unsigned(numIters), y); });
    }
#endif
    w.bound(bench::fmas(double(tapsLen) / up, 8));
    auto* dly = bench::array<Zor32f>(tapsLen);
    workload("zorsFIRMR_Direct_32f" + what, out)
        .zors([=, tapsLen = tapsLen, up = up, down = down] {
          zorsFIRMR_Direct_32f(x, y, numIters, taps, tapsLen, up, 0, down, 0, dly);
        })
        .peer("with a specification", [=] { zorsFIRMR_32f(x, y, numIters, spec, nullptr, nullptr, buffer); })
        .bound(bench::fmas(double(tapsLen) / up, 8));
  }
  for (int tapsLen : {64}) {
    constexpr int len = 4000;
    auto *taps = bench::array<Zor16s>(tapsLen), *x = bench::array<Zor16s>(len + tapsLen),
         *y = bench::array<Zor16s>(len);
    ZorFIRState *single = nullptr, *stream = nullptr, *down2 = nullptr;
    zorsFIRInitAlloc_16s(&single, taps, tapsLen, -15, nullptr);
    zorsFIRStreamInitAlloc_16s(&stream, taps, tapsLen, -15, zorRoundNearestEven);
    zorsFIRMRInitAlloc_16s(&down2, taps, tapsLen, -15, 1, 0, 2, 0, nullptr);
    const auto loop = [=] { loopStream(taps, tapsLen, x, y, len); };
    workload("zorsFIR_16s_Sfs, stream, 64 taps", len)
        .zors([=] { zorsFIR_16s_Sfs(x, y, len, stream, 0); })
        .peer("loop", loop);
    workload("zorsFIR_16s_Sfs, 64 taps", len).zors([=] { zorsFIR_16s_Sfs(x, y, len, single, 0); }).peer("loop", loop);
    workload("zorsFIR_16s_Sfs, down 2, 64 taps", len / 2).zors([=] { zorsFIR_16s_Sfs(x, y, len / 2, down2, 0); });
  }
}

[[gnu::noinline]] void loopLms(float* taps, int tapsLen, const float* x, const float* ref, float* y, int len,
                               float mu) {
  for (int i = 0; i < len; ++i) {
    float sum = 0;
    for (int k = 0; k < tapsLen; ++k) sum += taps[k] * x[i + k];
    y[i] = sum;
    const float gain = 2 * mu * (ref[i] - sum);
    for (int k = 0; k < tapsLen; ++k) taps[k] += gain * x[i + k];
  }
}
void adaptive() {
  constexpr int len = 1000;
  for (int tapsLen : {16, 64, 256, 1024}) {
    auto *taps = bench::array<Zor32f>(tapsLen), *x = bench::array<Zor32f>(len + tapsLen),
         *ref = bench::array<Zor32f>(len), *y = bench::array<Zor32f>(len);
    unsigned seed = 1;
    for (int i = 0; i < len + tapsLen; ++i)
      x[i] = float(int((seed = seed * 1664525 + 1013904223) >> 16) - 32768) / 32768;
    ZorFIRLMSState* state = nullptr;
    zorsFIRLMSInitAlloc_32f(&state, taps, tapsLen, nullptr, 0);
    workload("zorsFIRLMS_32f " + std::to_string(tapsLen) + " taps", len)
        .zors([=] { zorsFIRLMS_32f(x, ref, y, len, 1e-5f, state); })
        .peer("loop", [=] { loopLms(taps, tapsLen, x, ref, y, len, 1e-5f); })
        .bound(bench::fmas(2 * tapsLen, 8));
    auto* dly = bench::array<Zor32f>(2 * tapsLen);
    auto* index = bench::array<Zor32s>(1);
    index[0] = 0;
    workload("zorsFIRLMSOne_Direct_32f", tapsLen).zors([=] {
      zorsFIRLMSOne_Direct_32f(0.5f, 1, y, taps, tapsLen, 1e-6f, dly, index);
    });
  }
}
const bench::Registration rates(multirate), lms(adaptive);

}  // namespace
