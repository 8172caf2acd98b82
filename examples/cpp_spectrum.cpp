// Finds two tones in noise: generators, a window, a real Fourier transform of any length, the greatest bins.
#include <cstdio>
#include <vector>

#include "zors.hpp"

int main() try {
  constexpr int rate = 48000, length = 48000;
  std::vector<float> signal(length), noise(length), tone(length);
  zors::RandomGauss<float>({.mean = 0, .deviation = 1, .seed = 3}).generate(noise);
  zors::Tone<float>({.frequency = 1000.0f / rate}).generate(signal);
  zors::Tone<float>({.frequency = 3330.0f / rate, .magnitude = 0.3f}).generate(tone);
  zors::add(signal, tone, signal);
  zors::add(signal, noise, signal);

  zors::Dft<float> dft({.length = length});
  std::vector<std::complex<float>> spectrum(dft.spectrumSize());
  std::vector<float> level(spectrum.size());
  zors::hann(signal, signal);
  dft.forward(signal, spectrum);
  zors::magnitude(spectrum, level);
  zors::multiply(level, 4.0f / length, level);  // a tone of magnitude 1 gives 1, the window's mean of 1/2 included

  for (int i = 0; i < 2; ++i) {
    const auto [peak, bin] = zors::maxIndex(level);
    std::printf("%.0f Hz at %.2f\n", double(bin) * rate / length, double(peak));
    zors::zero(std::span(level).subspan(std::size_t(bin) - 2, 5));
  }
} catch (const zors::Error& error) {
  std::fprintf(stderr, "cpp_spectrum: %s\n", error.what());
  return 1;
}
