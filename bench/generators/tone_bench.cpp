#include <cmath>
#include <complex>
#include <utility>

#include "kit/bench.h"
#include "zors/generators.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

using bench::streams;
using bench::workload;

template <class T> [[gnu::noinline]] void cosines(T* d, int len, double magnitude, double w) {
  for (int n = 0; n < len; ++n) d[n] = static_cast<T>(magnitude * std::cos(w * n));
}

void tones() {
  for (long size : {63L, 1000L, 10'000L, 100'000L, 1'000'000L}) {
    const int len = int(size);
    auto* y16 = bench::array<Zor16s>(size);
    auto* y32 = bench::array<Zor32f>(size);
    auto* z32 = bench::array<Zor32fc>(size);
    auto* y64 = bench::array<Zor64f>(size);
    auto* z64 = bench::array<Zor64fc>(size);
    auto* z16 = bench::array<Zor16sc>(size);
    const auto tone = [=](ZorHintAlgorithm hint) {
      return [=] {
        Zor32f phase = 1;
        zorsTone_Direct_32f(y32, len, 1, 0.0371f, &phase, hint);
      };
    };
    bench::Workload fast = workload("zorsTone_Direct_32f", size)
                               .zors(tone(zorAlgHintFast))
                               .peer("loop", [=] { cosines(y32, len, 1, 0.2); })
                               .bound(streams(0, 4));
#ifdef HAVE_LIQUID
    auto oscillator = nco_crcf_create(LIQUID_NCO);
    nco_crcf_set_frequency(oscillator, 0.2f);
    fast.peer("liquid-dsp", [=] {
      for (int n = 0; n < len; ++n) {
        y32[n] = nco_crcf_cos(oscillator);
        nco_crcf_step(oscillator);
      }
    });
#endif
    workload("zorsTone_Direct_32f, accurate", size).zors(tone(zorAlgHintAccurate));
    workload("zorsTone_Direct_32fc", size)
        .zors([=] {
          Zor32f phase = 1;
          zorsTone_Direct_32fc(z32, len, 1, 0.0371f, &phase, zorAlgHintFast);
        })
        .bound(streams(0, 8));
    workload("zorsTone_Direct_32fc, accurate", size).zors([=] {
      Zor32f phase = 1;
      zorsTone_Direct_32fc(z32, len, 1, 0.0371f, &phase, zorAlgHintAccurate);
    });
    workload("zorsTone_Direct_64f", size)
        .zors([=] {
          Zor64f phase = 1;
          zorsTone_Direct_64f(y64, len, 1, 0.0371, &phase, zorAlgHintFast);
        })
        .bound(streams(0, 8));
    workload("zorsTone_Direct_64fc", size)
        .zors([=] {
          Zor64f phase = 1;
          zorsTone_Direct_64fc(z64, len, 1, 0.0371, &phase, zorAlgHintFast);
        })
        .bound(streams(0, 16));
    workload("zorsTone_Direct_16s", size)
        .zors([=] {
          Zor32f phase = 1;
          zorsTone_Direct_16s(y16, len, 30000, 0.0371f, &phase, zorAlgHintFast);
        })
        .bound(streams(0, 2));
    workload("zorsToneQ15_Direct_16s", size)
        .zors([=] { zorsToneQ15_Direct_16s(y16, len, 30000, 1234, 99); })
        .peer("loop", [=] { cosines(y16, len, 30000, 0.2); });
    for (const auto& [name, rFreq] :
         {std::pair{"zorsTriangle_Direct_32f", 0.001f}, std::pair{"zorsTriangle_Direct_32f, rFreq 0.0371", 0.0371f},
          std::pair{"zorsTriangle_Direct_32f, rFreq 0.3", 0.3f}})
      workload(name, size)
          .zors([=, frequency = rFreq] {
            Zor32f phase = 1;
            zorsTriangle_Direct_32f(y32, len, 1, frequency, 0.5f, &phase);
          })
          .peer("loop", [=] { cosines(y32, len, 1, 0.2); });
    workload("zorsTriangle_Direct_16sc", size)
        .zors([=] {
          Zor32f phase = 1;
          zorsTriangle_Direct_16sc(z16, len, 30000, 0.001f, 0.5f, &phase);
        })
        .bound(streams(0, 4));
  }
}

const bench::Registration registration(tones);

}  // namespace
