#include "spectra.hpp"

#include <algorithm>

namespace tool {

void addSpectrumOptions(CLI::App* command, SpectrumOptions& o) {
  command->add_option("--size", o.size, "Samples in a window, 16 to 1048576 (default: a power of two for the rate)")
      ->check(between(16, 1 << 20));
  command->add_option("--window", o.window, "hann, hamming, blackman, bartlett, kaiser or none (default hann)")
      ->check(CLI::IsMember({"hann", "hamming", "blackman", "bartlett", "kaiser", "none"}));
  command->add_option("--overlap", o.overlap, "Of neighbouring windows, in percent")->check(between(0, 99));
}

WindowedSpectra::WindowedSpectra(int size, int hop, const std::string& window)
    : size_(std::size_t(size)),
      hop_(std::size_t(hop)),
      dft_({.length = size, .divide = zors::Divide::none}),
      window_(size_, 1.0f),
      windowed_(size_),
      power_(dft_.spectrumSize()),
      spectrum_(dft_.spectrumSize()) {
  if (window == "hann") zors::hann(window_, window_);
  if (window == "hamming") zors::hamming(window_, window_);
  if (window == "blackman") zors::blackmanStandard(window_, window_);
  if (window == "bartlett") zors::bartlett(window_, window_);
  if (window == "kaiser") zors::kaiser(window_, window_, 2 * 9.0f / float(size - 1));  // side lobes of -66 dB
  zors::multiply(window_, 2 / zors::sum(window_), window_);
}

void WindowedSpectra::transform(std::span<const float> samples) {
  zors::multiply(samples, window_, windowed_);
  dft_.forward(windowed_, spectrum_);
  zors::power(spectrum_, power_);
}

}  // namespace tool
