#include "kit/bench.h"
#include "zors/detection.h"

namespace {

using bench::workload;

[[gnu::noinline]] void calcStatesLoop(const Zor16u* pathError, const Zor8u* nextState, Zor16u* newPathError,
                                      const Zor16sc* table, Zor32u* survivors, int states) {
  for (int s = 0; s < states; ++s)
    for (int k = 0; k < 16; ++k) {
      const int t = nextState[16 * s + k];
      const Zor16sc entry = table[2 * k + (s & 1)];
      const unsigned sum = unsigned(pathError[s]) + Zor16u(entry.im);
      if (sum < newPathError[t]) {
        newPathError[t] = Zor16u(sum);
        survivors[t] = Zor16u(entry.re) | unsigned(s) << 16;
      }
    }
}

void viterbi() {
  static Zor16sc point = {1000, -700}, nearest;
  static Zor32u variance[16], survivors[64];
  static Zor8u labels[16], nextState[32 * 16], minState;
  static Zor16sc table[32];
  static Zor16u pathError[32], newPathError[32], least;
  unsigned random = 1;
  const auto next = [&random] { return (random = random * 1664525u + 1013904223u) >> 8; };
  for (auto& x : labels) x = Zor8u(next() % 8);
  for (auto& x : variance) x = next() % 30000;
  for (auto& x : pathError) x = Zor16u(next() % 20000);
  for (int s = 0; s < 32; ++s)
    for (int k = 0; k < 16; ++k) nextState[16 * s + k] = Zor8u((s * 16 + k * 5) % 32);
  zorsBuildSymblTableDV4D_16sc(variance, table, 32, 0);
  const auto prefill = [] {
    for (auto& x : newPathError) x = 0xFFFF;
  };
  workload("zorsGetVarPointDV_16sc", 1).zors([] { zorsGetVarPointDV_16sc(&point, &nearest, variance, labels, 32); });
  workload("zorsBuildSymblTableDV4D_16sc", 32).zors([] { zorsBuildSymblTableDV4D_16sc(variance, table, 32, 0); });
  workload("zorsCalcStatesDV_16sc", 32)
      .zors([=] {
        prefill();
        zorsCalcStatesDV_16sc(pathError, nextState, newPathError, table, survivors, 32, 0);
      })
      .peer("loop", [=] {
        prefill();
        calcStatesLoop(pathError, nextState, newPathError, table, survivors, 32);
      });
  workload("zorsUpdatePathMetricsDV_16u", 32).zors([] {
    zorsUpdatePathMetricsDV_16u(pathError, &least, &minState, newPathError, 32);
  });
}
const bench::Registration viterbiRows(viterbi);

}  // namespace
