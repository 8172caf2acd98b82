// Power spectra of a stream's overlapping windows.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "command.hpp"
#include "zors.hpp"

namespace tool {

struct SpectrumOptions {
  int size = 0;  // 0: the command chooses
  std::string window = "hann";
  double overlap = -1;  // percent; below 0: the command chooses
};
void addSpectrumOptions(CLI::App* command, SpectrumOptions& options);

/// Windows of a stream, hop samples apart; a sine of full scale has the power 1 at its bin.
class WindowedSpectra {
 public:
  WindowedSpectra(int size, int hop, const std::string& window);
  std::size_t bins() const noexcept { return power_.size(); }

  /// Calls take(powers of the bins) for each window that is whole now.
  template <class Take> void add(std::span<const float> samples, Take take) {
    line_.insert(line_.end(), samples.begin(), samples.end());
    std::size_t at = 0;
    for (; at + size_ <= line_.size(); at += hop_) {
      transform(std::span(line_).subspan(at, size_));
      take(std::span<const float>(power_));
    }
    line_.erase(line_.begin(), line_.begin() + std::ptrdiff_t(std::min(at, line_.size())));
  }
  /// Where there was no whole window: the rest, with zeros behind it. Else its sudden end would be all that is seen.
  template <class Take> void finish(bool nothingYet, Take take) {
    if (line_.empty() || !nothingYet) return;
    line_.resize(size_);
    transform(line_);
    take(std::span<const float>(power_));
  }

 private:
  void transform(std::span<const float> samples);

  std::size_t size_, hop_;
  zors::Dft<float> dft_;
  std::vector<float> window_, windowed_, power_, line_;
  std::vector<std::complex<float>> spectrum_;
};

}  // namespace tool
