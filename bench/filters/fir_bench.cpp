#include <vector>

#include "kit/bench.h"
#include "zors.h"

#ifdef HAVE_LIQUID
#include <complex>
#include <liquid/liquid.h>
#endif
#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::workload;

[[gnu::noinline]] void loop(const float* taps, int tapsLen, const float* x, float* y, int len) {
  for (int i = 0; i < len; ++i) {
    float sum = 0;
    for (int k = 0; k < tapsLen; ++k) sum += taps[k] * x[i + k];
    y[i] = sum;
  }
}

void fir() {
  for (auto [tapsLen, len] : {std::pair{8, 1000}, {16, 1000}, {32, 1000}, {64, 500}, {64, 1000}, {128, 100'000}, {1024, 100'000}}) {
    auto *taps = bench::array<Zor32f>(tapsLen), *x = bench::array<Zor32f>(len + tapsLen), *y = bench::array<Zor32f>(len);
    for (int i = 0; i < tapsLen; ++i) taps[i] = 1.0f / float(i + 1);
    for (int i = 0; i < len; ++i) x[i] = float(i % 17) - 8;
    ZorFIRState* state = nullptr;
    zorsFIRInitAlloc_32f(&state, taps, tapsLen, nullptr);
    auto w = workload("zorsFIR_32f " + std::to_string(tapsLen) + " taps", len);
    w.zors([=, len = len] { zorsFIR_32f(x, y, len, state); }).peer("loop", [=, tapsLen = tapsLen, len = len] { loop(taps, tapsLen, x, y, len); });
#ifdef HAVE_LIQUID
    firfilt_rrrf liquid = firfilt_rrrf_create(taps, unsigned(tapsLen));
    w.peer("liquid-dsp", [=, len = len] { firfilt_rrrf_execute_block(liquid, x, unsigned(len), y); });
    if (tapsLen >= 128) {
      fftfilt_rrrf byFft = fftfilt_rrrf_create(taps, unsigned(tapsLen), 4096);
      w.peer("liquid-dsp fftfilt", [=, len = len] {
        for (int i = 0; i + 4096 <= len; i += 4096) fftfilt_rrrf_execute(byFft, x + i, y + i);
      });
    }
#endif
#ifdef HAVE_VOLK
    w.peer("VOLK", [=, tapsLen = tapsLen, len = len] {
      for (int i = 0; i < len; ++i) volk_32f_x2_dot_prod_32f(y + i, x + i, taps, unsigned(tapsLen));
    });
#endif
    w.bound(bench::fmas(tapsLen, 8));
  }
  for (int tapsLen : {16, 64, 256}) {
    auto* taps = bench::array<Zor32f>(tapsLen);
    ZorFIRState* state = nullptr;
    zorsFIRInitAlloc_32f(&state, taps, tapsLen, nullptr);
    auto *x = bench::array<Zor32f>(tapsLen), *y = bench::array<Zor32f>(1);
    auto w = workload("zorsFIROne_32f", tapsLen);
    w.zors([=] { zorsFIROne_32f(1.0f, y, state); });
#ifdef HAVE_VOLK
    w.peer("VOLK dot product", [=] { volk_32f_x2_dot_prod_32f(y, x, taps, unsigned(tapsLen)); });
#endif
  }
}

const bench::Registration registration(fir);

}  // namespace
