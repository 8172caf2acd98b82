#include "rate_change.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "failure.hpp"

namespace tool {

namespace {

constexpr Quality qualities[] = {{"quick", 0.80, 80}, {"good", 0.91, 100}, {"high", 0.95, 125}, {"best", 0.98, 140}};
constexpr double mostPoints = 1 << 24;

// A low pass from passBand to stopBand, in cycles a sample, whose stop band is so many dB down. The window of the
// library is exact to 6e-6, which is too little here.
std::vector<double> lowPass(double passBand, double stopBand, double decibels) {
  const double taps = (decibels - 7.95) / (14.36 * (stopBand - passBand));
  if (taps > mostPoints / 8) throw Failure(Exit::usage, "the rates are too far apart");
  const auto half = std::size_t(std::ceil(taps / 2));
  const double beta = 0.1102 * (decibels - 8.7), middle = (passBand + stopBand) / 2;
  std::vector<double> response(2 * half + 1);
  double sum = 0;
  for (std::size_t i = 0; i < response.size(); ++i) {
    const double at = double(i) - double(half), x = at / double(half);
    const double sinc = at == 0 ? 2 * middle : std::sin(2 * std::numbers::pi * middle * at) / (std::numbers::pi * at);
    response[i] = sinc * std::cyl_bessel_i(0.0, beta * std::sqrt(std::max(0.0, 1 - x * x)));
    sum += response[i];
  }
  for (double& tap : response) tap /= sum;
  return response;
}

}  // namespace

const Quality* qualityOf(const std::string& name) {
  for (const Quality& quality : qualities) {
    if (name == quality.name) return &quality;
  }
  return nullptr;
}

RatePlan::RatePlan(int inRate, int outRate, const Quality& quality) {
  const int common = std::gcd(inRate, outRate);
  up_ = outRate / common, down_ = inRate / common;
  const double stop = 0.5 * std::min(1.0, double(outRate) / inRate);
  const auto filter = lowPass(stop * quality.passBand, stop, quality.stopBand);
  taps_ = filter.size();
  // A block has 2^k times down inputs, and as many times up outputs: most of it between the edges, and some thousand
  // points.
  const std::size_t reach = taps_ / 2;
  const auto edge = (reach + std::size_t(down_) - 1) / std::size_t(down_);
  std::size_t times = 4;
  const auto larger = std::size_t(std::max(up_, down_));
  while (times < 3 * edge || (times * larger < 8192)) times *= 2;
  if (double(times) * double(larger) > mostPoints) throw Failure(Exit::usage, "the rates are too far apart");
  inPoints_ = times * std::size_t(down_), outPoints_ = times * std::size_t(up_);
  inEdge_ = edge * std::size_t(down_), outEdge_ = edge * std::size_t(up_);

  std::vector<double> around(inPoints_);
  for (std::size_t i = 0; i < taps_; ++i) around[(i + inPoints_ - reach) % inPoints_] = filter[i];
  zors::Dft<double> dft({.length = int(inPoints_), .divide = zors::Divide::none});
  std::vector<std::complex<double>> spectrum(dft.spectrumSize());
  dft.forward(around, spectrum);
  response_.resize(std::min(inPoints_, outPoints_) / 2 + 1);
  for (std::size_t k = 0; k < response_.size(); ++k) response_[k] = float(spectrum[k].real() / double(inPoints_));
}

RateChange::RateChange(const RatePlan& plan)
    : plan_(&plan),
      forward_({.length = int(plan.in()), .divide = zors::Divide::none}),
      inverse_({.length = int(plan.out()), .divide = zors::Divide::none}),
      line_(plan.in()),
      block_(plan.out()),
      held_(plan.inEdge()),
      spectrum_(std::max(plan.in(), plan.out()) / 2 + 1) {}

void RateChange::process(std::span<const float> samples, std::vector<float>& made) {
  while (!samples.empty()) {
    const std::size_t now = std::min(samples.size(), line_.size() - held_);
    zors::copy(samples.first(now), std::span(line_).subspan(held_, now));
    samples = samples.subspan(now);
    held_ += now;
    if (held_ == line_.size()) transform(made);
  }
}

void RateChange::transform(std::vector<float>& made) {
  // Bins beyond the lower half rate are zeros from the beginning, and stay so.
  forward_.forward(line_, std::span(spectrum_).first(forward_.spectrumSize()));
  const auto passed = std::span(spectrum_).first(plan_->response().size());
  zors::multiply(plan_->response(), passed, passed);
  inverse_.inverse(std::span(spectrum_).first(inverse_.spectrumSize()), block_);
  const std::size_t edge = plan_->outEdge();
  made.insert(made.end(), block_.begin() + std::ptrdiff_t(edge), block_.end() - std::ptrdiff_t(edge));
  const std::size_t keep = 2 * plan_->inEdge();
  std::copy(line_.end() - std::ptrdiff_t(keep), line_.end(), line_.begin());
  held_ = keep;
}

void RateChange::flush(std::vector<float>& made) {
  std::fill(line_.begin() + std::ptrdiff_t(held_), line_.end(), 0.0f);
  transform(made);
}

}  // namespace tool
