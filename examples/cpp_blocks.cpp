// A stream through a filter, block by block as a sound card gives it: nothing is allocated and nothing thrown in the
// loop.
#include <cmath>
#include <cstdio>
#include <vector>

#include "zors.hpp"

int main() try {
  constexpr int rate = 48000, blockLen = 512;
  std::vector<double> designed(255);
  zors::designFirLowpass(designed, {.frequency = 3400.0 / rate});
  std::vector<float> taps(designed.size());
  zors::convert(designed, taps);

  zors::Fir<float> lowpass({.taps = taps});
  zors::Tone<float> voice({.frequency = 800.0f / rate}), hiss({.frequency = 9000.0f / rate});
  std::vector<float> block(blockLen), high(blockLen);
  double before = 0, after = 0;
  for (int i = 0; i < 100; ++i) {
    voice.generate(block);
    hiss.generate(high);
    zors::add(block, high, block);
    const float in = zors::normL2(block);
    if (const ZorStatus status = lowpass.process(std::nothrow, block, block); status < 0) {
      std::fprintf(stderr, "cpp_blocks: %s\n", zorsStatusText(status));
      return 1;
    }
    const float out = zors::normL2(block);
    before += double(in) * in, after += double(out) * out;
  }
  std::printf("two tones in, %.1f dB out: one is left\n", 10 * std::log10(after / before));
} catch (const zors::Error& error) {
  std::fprintf(stderr, "cpp_blocks: %s\n", error.what());
  return 1;
}
