// The filters that filter applies and design shows.
#pragma once

#include <complex>
#include <string>
#include <vector>

#include "command.hpp"

namespace tool {

struct FilterOptions {
  double lowPass = 0, highPass = 0;  // Hz; 0: none. Both: a band, passed or, where low is below high, stopped
  int firTaps = 0;
  std::vector<std::string> iir;  // kind and order
  double ripple = 1;             // dB, of cheby
  std::string window = "hamming";
  std::string tapsFile;
};

/// Taps of a FIR filter, or sections of order 2 (b0 b1 b2 a0 a1 a2 each) of an IIR filter.
struct Filter {
  std::vector<double> taps, sections;
  bool isFir() const { return sections.empty(); }
  /// Samples by which a symmetric FIR filter delays; 0 of others.
  std::size_t delay() const;
  /// At a frequency in cycles a sample.
  std::complex<double> response(double frequency) const;
};

void addFilterOptions(CLI::App* command, FilterOptions& options);
Filter designFilter(const FilterOptions& options, double rate);
Filter readTaps(const std::string& path);

/// 16-bit taps that count times 2^factor.
struct IntegerTaps {
  std::vector<short> taps;
  int factor;
};
IntegerTaps roundTaps(const std::vector<double>& taps, int bits);

}  // namespace tool
