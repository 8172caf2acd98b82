// A tone from 44,100 to 48,000 samples a second, block by block, and how far it is from the tone made at that rate.
#include <cstdio>
#include <vector>

#include "zors.hpp"

int main() try {
  constexpr int inRate = 44100, outRate = 48000, blockLen = 1000;
  constexpr float frequency = 997;
  zors::Tone<float> tone({.frequency = frequency / inRate});
  zors::Resampler<float> resampler({.inRate = inRate, .outRate = outRate});
  std::vector<float> block(blockLen), made(resampler.mostOutputs(blockLen)), all;
  for (int i = 0; i < 44; ++i) {
    tone.generate(block);
    const std::size_t count = resampler.process(block, made);
    all.insert(all.end(), made.begin(), made.begin() + std::ptrdiff_t(count));
  }
  const std::size_t count = resampler.finish(made);
  all.insert(all.end(), made.begin(), made.begin() + std::ptrdiff_t(count));

  std::vector<float> wanted(all.size());
  zors::Tone<float>({.frequency = frequency / outRate}).generate(wanted);
  const std::size_t edge = 2 * resampler.reach();  // the tone begins and ends suddenly there
  const auto middle = [&](std::vector<float>& v) { return std::span(v).subspan(edge, v.size() - 2 * edge); };
  std::printf("44000 samples in, %zu out; error %.1e\n", all.size(),
              double(zors::peakDifference(middle(all), middle(wanted))));
} catch (const zors::Error& error) {
  std::fprintf(stderr, "cpp_rate: %s\n", error.what());
  return 1;
}
