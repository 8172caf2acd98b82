#include <cmath>
#include <memory>
#include <string>

#include "kit/bench.h"
#include "zors/resampling.h"

#ifdef HAVE_SAMPLERATE
#include <samplerate.h>
#endif
#ifdef HAVE_SOXR
#include <soxr.h>
#endif

namespace {

using bench::workload;

template <class T> [[gnu::noinline]] void loopUp(const T* x, int len, T* y, int factor) {
  for (int i = 0; i < len; ++i) {
    for (int k = 0; k < factor; ++k) y[i * factor + k] = T{};
    y[i * factor] = x[i];
  }
}
template <class T> [[gnu::noinline]] void loopDown(const T* x, int len, T* y, int factor) {
  for (int i = 0, k = 0; k < len; ++i, k += factor) y[i] = x[k];
}

void sampleRates() {
  constexpr int len = 4000;
  for (int factor : {2, 3, 4, 7, 20}) {
    auto *x = bench::array<Zor32f>(len * factor), *y = bench::array<Zor32f>(len * factor);
    const std::string by = " by " + std::to_string(factor);
    Zor32s* phase = bench::array<Zor32s>(2);
    workload("zorsSampleUp_32f" + by, len * factor)  // a written sample
        .zors([=] {
          phase[1] = 0;
          zorsSampleUp_32f(x, len, y, phase, factor, phase + 1);
        })
        .peer("loop", [=] { loopUp(x, len, y, factor); })
        .bound(bench::streams(0, 4));
    workload("zorsSampleDown_32f" + by, len * factor)  // a read sample
        .zors([=] {
          phase[1] = 0;
          zorsSampleDown_32f(x, len * factor, y, phase, factor, phase + 1);
        })
        .peer("loop", [=] { loopDown(x, len * factor, y, factor); })
        .bound(bench::streams(4, 0));
  }
}

// A swept sine, 44.1 to 48 kHz; the time of an output sample.
constexpr int inputs = 44100, reach = 256;
Zor32f* sweep() {
  auto* x = bench::array<Zor32f>(inputs + 2 * reach);
  for (int i = 0; i < inputs + 2 * reach; ++i) x[i] = 0.5f * std::sin(1e-5f * float(i) * float(i));
  return x;
}
// soxr resamples by a fixed ratio, libsamplerate by any.
void peerOfAnyRatio(bench::Workload& w, const Zor32f* x, Zor32f* y, double ratio) {
#ifdef HAVE_SAMPLERATE
  w.peer("libsamplerate medium", [=] {
    SRC_DATA data{x, y, inputs, long(inputs * ratio) + 8, 0, 0, 1, ratio};
    src_simple(&data, SRC_SINC_MEDIUM_QUALITY, 1);
  });
#endif
}
void peerOfFixedRatio(bench::Workload& w, const Zor32f* x, Zor32f* y, double ratio) {
#ifdef HAVE_SOXR
  w.peer("soxr HQ", [=] {
    const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
    soxr_oneshot(1, ratio, 1, x, inputs, nullptr, y, std::size_t(inputs * ratio) + 8, nullptr, nullptr, &quality,
                 nullptr);
  });
#endif
}

void resampling() {
  const Zor32f* x = sweep() + reach;
  auto* y = bench::array<Zor32f>(2 * inputs);
  for (int taps : {32, 64, 128})
    for (auto hint : {zorAlgHintFast, zorAlgHintAccurate}) {
      Zor32s size, lenOut, height;
      zorsResamplePolyphaseFixedGetSize_32f(44100, 48000, taps, &size, &lenOut, &height, hint);
      auto* state = reinterpret_cast<ZorResampleFixedState*>(bench::array<Zor8u>(size));
      zorsResamplePolyphaseFixedInit_32f(44100, 48000, taps, 0.95f, 9, state, hint);
      auto w = workload("zorsResamplePolyphaseFixed_32f 44.1 to 48 kHz, " + std::to_string(taps) + " taps" +
                            (hint == zorAlgHintAccurate ? ", accurate" : ""),
                        48000);
      w.zors([=] {
        Zor64f time = 0;
        Zor32s outLen;
        zorsResamplePolyphaseFixed_32f(x, inputs, y, 1, &time, &outLen, state);
      });
      peerOfFixedRatio(w, x, y, 48000.0 / 44100);
      w.bound(bench::fmas(taps, 8));
    }
  for (double ratio : {48000.0 / 44100, 0.7})
    for (auto hint : {zorAlgHintFast, zorAlgHintAccurate}) {
      Zor32s size;
      zorsResamplePolyphaseGetSize_32f(64, 256, &size);
      auto* state = reinterpret_cast<ZorResampleState*>(bench::array<Zor8u>(size));
      zorsResamplePolyphaseInit_32f(64, 256, 0.95f, 9, state, hint);
      auto w = workload("zorsResamplePolyphase_32f by " + std::to_string(ratio) + ", window 64" +
                            (hint == zorAlgHintAccurate ? ", accurate" : ""),
                        long(inputs * ratio));
      w.zors([=] {
        Zor64f time = 0;
        Zor32s outLen;
        zorsResamplePolyphase_32f(x, inputs, y, ratio, 1, &time, &outLen, state);
      });
      peerOfAnyRatio(w, x, y, ratio);
    }
}
const bench::Registration rates(sampleRates), resampled(resampling);

}  // namespace
