/** @file
 *  A stream at another sample rate. */
#ifndef ZORS_HPP_RESAMPLING_HPP
#define ZORS_HPP_RESAMPLING_HPP

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "zors/hpp/core.hpp"

namespace zors {

namespace detail {

template <class T> struct ResamplerCalls;
template <> struct ResamplerCalls<float> {
  static constexpr auto rowsSize = zorsResamplePolyphaseFixedGetSize_32f;
  static constexpr auto rowsInit = zorsResamplePolyphaseFixedInit_32f;
  static constexpr auto rowsRun = zorsResamplePolyphaseFixed_32f;
  static Outcome tableSize(float window, Zor32s steps, Zor32s* size, ZorHintAlgorithm) noexcept {
    return zorsResamplePolyphaseGetSize_32f(window, steps, size);
  }
  static constexpr auto tableInit = zorsResamplePolyphaseInit_32f;
  static constexpr auto tableRun = zorsResamplePolyphase_32f;
};
template <> struct ResamplerCalls<Zor16s> {
  static constexpr auto rowsSize = zorsResamplePolyphaseFixedGetSize_16s;
  static constexpr auto rowsInit = zorsResamplePolyphaseFixedInit_16s;
  static constexpr auto rowsRun = zorsResamplePolyphaseFixed_16s;
  static constexpr auto tableSize = zorsResamplePolyphaseGetSize_16s;
  static constexpr auto tableInit = zorsResamplePolyphaseInit_16s;
  static constexpr auto tableRun = zorsResamplePolyphase_16s;
};

}  // namespace detail

/// A stream at another rate, in blocks of any length, by windowed sinc:
///   Resampler<float> resampler({.inRate = 44100, .outRate = 48000});
///   std::size_t made = resampler.process(src, dst);  // dst.size() >= resampler.mostOutputs(src.size())
///   made = resampler.finish(dst);                    // what the last inputs still give
/// Output k lies at input k * inRate / outRate; n inputs give ceil(n * outRate / inRate) outputs in all. One row of
/// taps for each place between inputs where there are up to 1,000, a table with linear interpolation else.
template <class T> class Resampler {
  using Calls = detail::ResamplerCalls<T>;
  static constexpr int mostRows = 1000, tableSteps = 256;

 public:
  struct Options {
    int inRate, outRate;
    int taps = 64;          ///< at the lower of the rates
    float rollOff = 0.95f;  ///< the cut-off over half the lower rate
    float alpha = 9;        ///< of the Kaiser window
    float gain = 1;
    ZorHintAlgorithm hint = zorAlgHintFast;  ///< zorAlgHintAccurate: sums in binary64
  };
  Resampler() = default;
  explicit Resampler(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  /// Inputs on both sides that an output takes part of: how far outputs lag behind.
  std::size_t reach() const noexcept { return reach_; }
  /// Room that process(src, dst) wants for src.size() = inputs; finish(dst) that for 0.
  std::size_t mostOutputs(std::size_t inputs) const noexcept {
    return std::size_t(std::ceil(double(inputs + reach_ + 1) * factor_)) + 2;
  }

  /// Takes all of src; returns how many outputs dst received.
  std::size_t process(In<T> src, Out<T> dst) { return checked(run(src, dst)); }
  [[nodiscard]] Result<std::size_t> process(std::nothrow_t, In<T> src, Out<T> dst) noexcept {
    const auto [outcome, made] = run(src, dst);
    return {outcome.status, made};
  }
  /// The outputs up to the last input, zeros behind it; the next input begins a new stream.
  std::size_t finish(Out<T> dst) { return checked(end(dst)); }
  [[nodiscard]] Result<std::size_t> finish(std::nothrow_t, Out<T> dst) noexcept {
    const auto [outcome, made] = end(dst);
    return {outcome.status, made};
  }

 private:
  using Made = std::pair<detail::Outcome, std::size_t>;
  static std::size_t checked(const Made& made) {
    detail::check(made.first);
    return made.second;
  }

  detail::Outcome make(const Options& o) noexcept {
    if (o.inRate < 1 || o.outRate < 1) return {zorStatusBadSize, "a rate is below 1"};
    if (o.taps < 1) return zorStatusBadTapsLength;
    const double factor = double(o.outRate) / o.inRate, fall = std::min(1.0, factor);
    const double length = o.taps / fall;
    if (length > 1e8) return {zorStatusBadSize, "the rates are too far apart"};
    const bool rows = o.outRate / std::gcd(o.inRate, o.outRate) <= mostRows;
    Zor32s size = 0, rowTaps = 0, rowCount = 0;
    detail::Block block;
    detail::Outcome outcome =
        rows ? detail::Outcome(Calls::rowsSize(o.inRate, o.outRate, Zor32s(length), &size, &rowTaps, &rowCount, o.hint))
             : detail::Outcome(Calls::tableSize(float(o.taps), tableSteps, &size, o.hint));
    if (!outcome.failed()) outcome = detail::allocate(block, size);
    if (outcome.failed()) return outcome;
    outcome = rows ? Calls::rowsInit(o.inRate, o.outRate, Zor32s(length), o.rollOff, o.alpha,
                                     reinterpret_cast<ZorResampleFixedState*>(block.get()), o.hint)
                   : Calls::tableInit(float(o.taps), tableSteps, o.rollOff, o.alpha,
                                      reinterpret_cast<ZorResampleState*>(block.get()), o.hint);
    if (outcome.failed()) return outcome;
    Resampler made;
    made.reach_ = rows ? std::size_t(rowTaps) / 2 + 1 : std::size_t(std::ceil((o.taps / 2.0 + 2) / fall)) + 1;
    made.block_ = std::move(block), made.rows_ = rows, made.factor_ = factor, made.gain_ = o.gain;
    if (!made.begin()) return zorStatusNoMemory;
    *this = std::move(made);
    return zorStatusOk;
  }
  bool begin() noexcept {
    time_ = double(reach_);
    return resized(reach_) && (std::fill(line_.begin(), line_.end(), T()), true);
  }
  bool resized(std::size_t size) noexcept {
#ifdef __cpp_exceptions
    try {
      line_.resize(size);
    } catch (...) {
      return false;
    }
#else
    line_.resize(size);
#endif
    return true;
  }

  Made run(In<T> src, Out<T> dst) noexcept {
    if (const auto outcome = detail::sameSizes(src.size()); outcome.failed()) return {outcome, 0};
    if (detail::sameSizes(src.size() + 3 * reach_).failed()) return {detail::tooLong, 0};
    return advance(src, src.size(), dst);
  }
  Made end(Out<T> dst) noexcept {
    const Made made = advance({}, reach_, dst);
    return made.first.failed() || begin() ? made : Made(zorStatusNoMemory, 0);
  }

  // The line holds `reach_` inputs before the next output's, and all from there on; time_ is the output's place in it.
  // `added` inputs enter, zeros where src has none.
  Made advance(In<T> src, std::size_t added, Out<T> dst) noexcept {
    if (!block_) return {zorStatusNullPointer, 0};
    if (dst.size() < mostOutputs(src.size())) return {{zorStatusBadSize, "dst has not room for mostOutputs()"}, 0};
    const std::size_t held = line_.size();
    if (!resized(held + added)) return {zorStatusNoMemory, 0};
    std::fill(std::copy(src.begin(), src.end(), line_.begin() + std::ptrdiff_t(held)), line_.end(), T());
    const auto at = std::size_t(time_);
    const std::size_t size = line_.size();
    Zor32s made = 0;
    if (size > at + reach_) {
      const auto len = Zor32s(size - reach_ - at);
      const ZorStatus status = rows_ ? Calls::rowsRun(line_.data(), len, dst.data(), gain_, &time_, &made,
                                                      reinterpret_cast<const ZorResampleFixedState*>(block_.get()))
                                     : Calls::tableRun(line_.data(), len, dst.data(), factor_, gain_, &time_, &made,
                                                       reinterpret_cast<const ZorResampleState*>(block_.get()));
      if (status < 0) {
        line_.resize(held);
        return {status, 0};
      }
    }
    const std::size_t past = std::min(line_.size(), std::size_t(time_) - reach_);
    line_.erase(line_.begin(), line_.begin() + std::ptrdiff_t(past));
    time_ -= double(past);
    return {zorStatusOk, std::size_t(made)};
  }

  detail::Block block_;
  std::vector<T> line_;
  std::size_t reach_ = 0;
  double factor_ = 1, time_ = 0;
  float gain_ = 1;
  bool rows_ = false;
};

}  // namespace zors

#endif
