// A stream at another sample rate, by transforms: every rate, every stop band, at the cost of two transforms a block.
#pragma once

#include <complex>
#include <span>
#include <vector>

#include "zors.hpp"

namespace tool {

/// How much of the lower half rate passes, and how much is left of what lies beyond it.
struct Quality {
  const char* name;
  double passBand;  // of half the lower rate
  double stopBand;  // dB
};
const Quality* qualityOf(const std::string& name);

/// What all channels share: the filter's response and the lengths. The filter is a Kaiser-windowed sinc, symmetric:
/// nothing is delayed. A block of in() inputs is transformed, multiplied by the response, and transformed back with as
/// many points as the new rate has in its time; its edges, which the filter mixes with what lies outside, are left out.
class RatePlan {
 public:
  RatePlan(int inRate, int outRate, const Quality& quality);

  std::size_t in() const noexcept { return inPoints_; }
  std::size_t out() const noexcept { return outPoints_; }
  /// Inputs and outputs left out at each edge of a block.
  std::size_t inEdge() const noexcept { return inEdge_; }
  std::size_t outEdge() const noexcept { return outEdge_; }
  /// Taps of the filter at the input's rate.
  std::size_t taps() const noexcept { return taps_; }
  int up() const noexcept { return up_; }
  int down() const noexcept { return down_; }
  std::span<const float> response() const noexcept { return response_; }
  /// Outputs of a number of inputs: those whose time is before the end.
  std::int64_t outputs(std::int64_t inputs) const noexcept { return (inputs * up_ + down_ - 1) / down_; }

 private:
  int up_, down_;
  std::size_t taps_, inPoints_, outPoints_, inEdge_, outEdge_;
  std::vector<float> response_;
};

/// One channel.
class RateChange {
 public:
  explicit RateChange(const RatePlan& plan);
  /// Takes samples; what comes out is appended to made.
  void process(std::span<const float> samples, std::vector<float>& made);
  /// Fills a block up with zeros: until as many came out as the inputs give.
  void flush(std::vector<float>& made);

 private:
  void transform(std::vector<float>& made);

  const RatePlan* plan_;
  zors::Dft<float> forward_, inverse_;
  std::vector<float> line_, block_;
  std::size_t held_;
  std::vector<std::complex<float>> spectrum_;
};

}  // namespace tool
