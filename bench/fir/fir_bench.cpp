#include <vector>

#include "kit/bench.h"
#include "zors/fir.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#include <complex>
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
  for (auto [tapsLen, len] :
       {std::pair{8, 1000}, {16, 1000}, {32, 1000}, {64, 500}, {64, 1000}, {128, 100'000}, {1024, 100'000}}) {
    auto *taps = bench::array<Zor32f>(tapsLen), *x = bench::array<Zor32f>(len + tapsLen),
         *y = bench::array<Zor32f>(len);
    for (int i = 0; i < tapsLen; ++i) taps[i] = 1.0f / float(i + 1);
    for (int i = 0; i < len; ++i) x[i] = float(i % 17) - 8;
    ZorFIRState* state = nullptr;
    zorsFIRInitAlloc_32f(&state, taps, tapsLen, nullptr);
    auto w = workload("zorsFIR_32f " + std::to_string(tapsLen) + " taps", len);
    w.zors([=, len = len] { zorsFIR_32f(x, y, len, state); }).peer("loop", [=, tapsLen = tapsLen, len = len] {
      loop(taps, tapsLen, x, y, len);
    });
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

// One form: taps and samples of ones, the direct path at 1,000 samples (or just below its FFT's least block).
template <class Tap, class T, class Make, class Run>
bench::Workload form(const char* name, int tapsLen, int len, Make make, Run run) {
  auto* taps = bench::array<Tap>(tapsLen);
  auto *x = bench::array<T>(len), *y = bench::array<T>(len);
  ZorFIRState* state = nullptr;
  make(&state, taps, tapsLen);
  return workload(std::string(name) + " " + std::to_string(tapsLen) + " taps", len).zors([=] {
    run(x, y, len, state);
  });
}
template <class Tap, class T> void loopOf(const Tap* taps, int tapsLen, const T* x, T* y, int len) {
  for (int i = 0; i < len; ++i) {
    Tap sum{};
    for (int k = 0; k < tapsLen; ++k) sum += taps[k] * static_cast<Tap>(x[i + k]);
    y[i] = static_cast<T>(sum);
  }
}
template <class Tap, class T> auto loopPeer(int tapsLen, int len) {
  auto* taps = bench::array<Tap>(tapsLen);
  auto *x = bench::array<T>(len + tapsLen), *y = bench::array<T>(len);
  return [=] { loopOf(taps, tapsLen, x, y, len); };
}

void forms() {
  for (int tapsLen : {8, 16, 32, 63}) {
    constexpr int len = 1000, complexLen = 255;
    form<Zor64f, Zor64f>(
        "zorsFIR_64f", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_64f(s, t, n, nullptr); },
        zorsFIR_64f)
        .peer("loop", loopPeer<double, double>(tapsLen, len))
        .bound(bench::fmas(tapsLen, 4));
    auto complex32 = form<Zor32fc, Zor32fc>(
        "zorsFIR_32fc", tapsLen, complexLen, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_32fc(s, t, n, nullptr); },
        zorsFIR_32fc);
    complex32.bound(bench::fmas(4 * tapsLen, 8));
#ifdef HAVE_LIQUID
    {
      auto* taps = bench::array<Zor32fc>(tapsLen);
      auto *x = bench::array<Zor32fc>(complexLen), *y = bench::array<Zor32fc>(complexLen);
      firfilt_cccf liquid = firfilt_cccf_create(reinterpret_cast<liquid_float_complex*>(taps), unsigned(tapsLen));
      complex32.peer("liquid-dsp", [=] {
        firfilt_cccf_execute_block(liquid, reinterpret_cast<liquid_float_complex*>(x), complexLen,
                                   reinterpret_cast<liquid_float_complex*>(y));
      });
    }
#endif
    form<Zor64fc, Zor64fc>(
        "zorsFIR_64fc", tapsLen, complexLen, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_64fc(s, t, n, nullptr); },
        zorsFIR_64fc)
        .bound(bench::fmas(4 * tapsLen, 4));
    // Two products a multiply-add of 16-bit pairs, and one addition: the bound counts the multiply-adds.
    form<Zor16s, Zor16s>(
        "zorsFIR_16s_Sfs", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_16s(s, t, n, 0, nullptr); },
        [](auto* x, auto* y, int n, ZorFIRState* s) { zorsFIR_16s_Sfs(x, y, n, s, 8); })
        .peer("loop", loopPeer<int, short>(tapsLen, len))
        .bound(bench::fmas(tapsLen / 2.0, 8));
    form<Zor32sc, Zor16sc>(
        "zorsFIR32sc_16sc_Sfs", tapsLen, len,
        [](auto** s, auto* t, int n) { zorsFIRInitAlloc32sc_16sc(s, t, n, 0, nullptr); },
        [](auto* x, auto* y, int n, ZorFIRState* s) { zorsFIR32sc_16sc_Sfs(x, y, n, s, 8); })
        .bound(bench::fmas(2 * tapsLen, 8));
    form<Zor32f, Zor16s>(
        "zorsFIR32f_16s_Sfs", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc32f_16s(s, t, n, nullptr); },
        [](auto* x, auto* y, int n, ZorFIRState* s) { zorsFIR32f_16s_Sfs(x, y, n, s, 0); })
        .peer("loop", loopPeer<float, short>(tapsLen, len))
        .bound(bench::fmas(tapsLen, 8));
    form<Zor64f, Zor32s>(
        "zorsFIR64f_32s_Sfs", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc64f_32s(s, t, n, nullptr); },
        [](auto* x, auto* y, int n, ZorFIRState* s) { zorsFIR64f_32s_Sfs(x, y, n, s, 0); })
        .peer("loop", loopPeer<double, int>(tapsLen, len))
        .bound(bench::fmas(tapsLen, 4));
    form<Zor64f, Zor32f>(
        "zorsFIR64f_32f", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc64f_32f(s, t, n, nullptr); },
        zorsFIR64f_32f)
        .peer("loop", loopPeer<double, float>(tapsLen, len))
        .bound(bench::fmas(tapsLen, 4));
  }
  for (int tapsLen : {128, 1024}) {
    constexpr int len = 100'000;
    form<Zor64f, Zor64f>(
        "zorsFIR_64f", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_64f(s, t, n, nullptr); },
        zorsFIR_64f)
        .bound(bench::fmas(tapsLen, 4));
    form<Zor32fc, Zor32fc>(
        "zorsFIR_32fc", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc_32fc(s, t, n, nullptr); },
        zorsFIR_32fc)
        .bound(bench::fmas(4 * tapsLen, 8));
    form<Zor32f, Zor16s>(
        "zorsFIR32f_16s_Sfs", tapsLen, len, [](auto** s, auto* t, int n) { zorsFIRInitAlloc32f_16s(s, t, n, nullptr); },
        [](auto* x, auto* y, int n, ZorFIRState* s) { zorsFIR32f_16s_Sfs(x, y, n, s, 0); })
        .bound(bench::fmas(tapsLen, 8));
  }
}

// The stateless forms beside the state that they do without.
template <class Tap, class T, class Make, class Direct, class Run>
void directForm(const char* name, Make make, Direct direct, Run run) {
  for (int tapsLen : {8, 16, 32, 63})
    for (int len : {64, 1000}) {
      auto* taps = bench::array<Tap>(tapsLen);
      auto *x = bench::array<T>(len), *y = bench::array<T>(len), *dly = bench::array<T>(2 * tapsLen);
      auto* index = bench::array<Zor32s>(1);
      *index = 0;
      ZorFIRState* state = nullptr;
      make(&state, taps, tapsLen);
      workload(std::string(name) + " " + std::to_string(tapsLen) + " taps", len)
          .zors([=] { direct(x, y, len, taps, tapsLen, dly, index); })
          .peer("state", [=] { run(x, y, len, state); });
    }
}
void directForms() {
#define FLOAT(DIRECT, INIT, RUN, Tap, T) \
  directForm<Tap, T>(                    \
      #DIRECT, [](auto** s, auto* t, int n) { INIT(s, t, n, nullptr); }, DIRECT, RUN);
#define SCALED(DIRECT, INIT, RUN, Tap, T)                                                                       \
  directForm<Tap, T>(                                                                                           \
      #DIRECT, [](auto** s, auto* t, int n) { INIT(s, t, n, nullptr); },                                        \
      [](auto* x, auto* y, int len, auto* t, int n, auto* dly, int* i) { DIRECT(x, y, len, t, n, dly, i, 0); }, \
      [](auto* x, auto* y, int len, auto* s) { RUN(x, y, len, s, 0); });
#define INTEGER(DIRECT, INIT, RUN, Tap, T)                                                                          \
  directForm<Tap, T>(                                                                                               \
      #DIRECT, [](auto** s, auto* t, int n) { INIT(s, t, n, -4, nullptr); },                                        \
      [](auto* x, auto* y, int len, auto* t, int n, auto* dly, int* i) { DIRECT(x, y, len, t, n, -4, dly, i, 0); }, \
      [](auto* x, auto* y, int len, auto* s) { RUN(x, y, len, s, 0); });
  FLOAT(zorsFIR_Direct_32f, zorsFIRInitAlloc_32f, zorsFIR_32f, Zor32f, Zor32f)
  FLOAT(zorsFIR_Direct_32fc, zorsFIRInitAlloc_32fc, zorsFIR_32fc, Zor32fc, Zor32fc)
  FLOAT(zorsFIR_Direct_64f, zorsFIRInitAlloc_64f, zorsFIR_64f, Zor64f, Zor64f)
  FLOAT(zorsFIR_Direct_64fc, zorsFIRInitAlloc_64fc, zorsFIR_64fc, Zor64fc, Zor64fc)
  FLOAT(zorsFIR64f_Direct_32f, zorsFIRInitAlloc64f_32f, zorsFIR64f_32f, Zor64f, Zor32f)
  FLOAT(zorsFIR64fc_Direct_32fc, zorsFIRInitAlloc64fc_32fc, zorsFIR64fc_32fc, Zor64fc, Zor32fc)
  SCALED(zorsFIR32f_Direct_16s_Sfs, zorsFIRInitAlloc32f_16s, zorsFIR32f_16s_Sfs, Zor32f, Zor16s)
  SCALED(zorsFIR32fc_Direct_16sc_Sfs, zorsFIRInitAlloc32fc_16sc, zorsFIR32fc_16sc_Sfs, Zor32fc, Zor16sc)
  SCALED(zorsFIR64f_Direct_16s_Sfs, zorsFIRInitAlloc64f_16s, zorsFIR64f_16s_Sfs, Zor64f, Zor16s)
  SCALED(zorsFIR64f_Direct_32s_Sfs, zorsFIRInitAlloc64f_32s, zorsFIR64f_32s_Sfs, Zor64f, Zor32s)
  SCALED(zorsFIR64fc_Direct_16sc_Sfs, zorsFIRInitAlloc64fc_16sc, zorsFIR64fc_16sc_Sfs, Zor64fc, Zor16sc)
  SCALED(zorsFIR64fc_Direct_32sc_Sfs, zorsFIRInitAlloc64fc_32sc, zorsFIR64fc_32sc_Sfs, Zor64fc, Zor32sc)
  INTEGER(zorsFIR32s_Direct_16s_Sfs, zorsFIRInitAlloc32s_16s, zorsFIR32s_16s_Sfs, Zor32s, Zor16s)
  INTEGER(zorsFIR32sc_Direct_16sc_Sfs, zorsFIRInitAlloc32sc_16sc, zorsFIR32sc_16sc_Sfs, Zor32sc, Zor16sc)
#undef FLOAT
#undef SCALED
#undef INTEGER
}

const bench::Registration registration(fir), registrationOfForms(forms), registrationOfDirect(directForms);

}  // namespace
