// Designs of filters: FIR beside a plain loop with a sine and a cosine a tap, IIR beside liquid-dsp's design.
#include <cmath>
#include <numbers>
#include <string>

#include "kit/bench.h"
#include "zors/design.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

using bench::workload;

// A lowpass with a Hamming window and a gain of 1, or the difference of two.
[[gnu::noinline]] void plainFir(double low, double high, double* taps, int len) {
  const double centre = (len - 1) / 2.0, pi = std::numbers::pi;
  double sum = 0;
  for (int i = 0; i < len; ++i) {
    const double m = i - centre;
    double tap = m == 0 ? 2 * (high - low) : (std::sin(2 * pi * high * m) - std::sin(2 * pi * low * m)) / (pi * m);
    tap *= 0.54 - 0.46 * std::cos(2 * pi * i / (len - 1));
    taps[i] = tap;
    sum += tap * (low > 0 ? std::cos(pi * (low + high) * m) : 1);
  }
  for (int i = 0; i < len; ++i) taps[i] /= sum;
}

void fir() {
  for (int len : {33, 128, 1000}) {
    auto* taps = bench::array<Zor64f>(len);
    const auto plain = [=](double low, double high) { return [=] { plainFir(low, high, taps, len); }; };
    workload("zorsFIRGenLowpass_64f", len)
        .zors([=] { zorsFIRGenLowpass_64f(0.1, taps, len, 2, 1); })
        .peer("loop", plain(0, 0.1));
    workload("zorsFIRGenHighpass_64f", len)
        .zors([=] { zorsFIRGenHighpass_64f(0.1, taps, len, 2, 1); })
        .peer("loop", plain(0.1, 0.5));
    workload("zorsFIRGenBandpass_64f", len)
        .zors([=] { zorsFIRGenBandpass_64f(0.1, 0.2, taps, len, 2, 1); })
        .peer("loop", plain(0.1, 0.2));
    workload("zorsFIRGenBandstop_64f", len).zors([=] { zorsFIRGenBandstop_64f(0.1, 0.2, taps, len, 2, 1); });
  }
}

void iir() {
  for (int order : {2, 6, 12})
    for (int type : {0, 1}) {
      auto* taps = bench::array<Zor64f>(2 * order + 2);
      const std::string kind = type == 0 ? " Butterworth" : " Chebyshev";
      auto low = workload("zorsIIRGenLowpass_64f" + kind, order);
      low.zors([=] { zorsIIRGenLowpass_64f(0.1, 1, order, taps, type); });
      auto high = workload("zorsIIRGenHighpass_64f" + kind, order);
      high.zors([=] { zorsIIRGenHighpass_64f(0.1, 1, order, taps, type); });
#ifdef HAVE_LIQUID
      const auto liquid = [=](liquid_iirdes_bandtype band) {
        return [=] {
          float b[13], a[13];
          liquid_iirdes(type == 0 ? LIQUID_IIRDES_BUTTER : LIQUID_IIRDES_CHEBY1, band, LIQUID_IIRDES_TF,
                        unsigned(order), 0.1f, 0, 1, 40, b, a);
          benchmark::DoNotOptimize(b[0] + a[0]);
        };
      };
      low.peer("liquid-dsp", liquid(LIQUID_IIRDES_LOWPASS));
      high.peer("liquid-dsp", liquid(LIQUID_IIRDES_HIGHPASS));
#endif
    }
}

const bench::Registration registered[] = {bench::Registration(fir), bench::Registration(iir)};

}  // namespace
