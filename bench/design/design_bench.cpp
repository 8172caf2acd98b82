#include "kit/bench.h"
#include "zors/design.h"

namespace {

using bench::workload;

void designs() {
  auto* taps = bench::array<Zor64f>(1000);
  for (int order : {2, 6, 12}) {
    workload("zorsIIRGenLowpass_64f Butterworth", order).zors([=] { zorsIIRGenLowpass_64f(0.1, 0, order, taps, 0); });
    workload("zorsIIRGenHighpass_64f Chebyshev", order).zors([=] { zorsIIRGenHighpass_64f(0.1, 1, order, taps, 1); });
  }
  for (int len : {33, 128, 1000}) {
    workload("zorsFIRGenLowpass_64f", len).zors([=] { zorsFIRGenLowpass_64f(0.1, taps, len, 2, 1); });
    workload("zorsFIRGenBandpass_64f", len).zors([=] { zorsFIRGenBandpass_64f(0.1, 0.2, taps, len, 2, 1); });
  }
}

const bench::Registration registered(designs);

}  // namespace
