/** @file
 *  Single bins of a spectrum, frequency demodulation. */
#ifndef ZORS_HPP_DETECTION_HPP
#define ZORS_HPP_DETECTION_HPP

#include <array>

#include "zors/hpp/core.hpp"

namespace zors {

namespace detail {

/// One bin, and two in one pass, by samples. Integers: results are divided by 2^scaleFactor.
template <class T> struct GoertzelCalls;
template <> struct GoertzelCalls<float> {
  using Frequency = float;
  static constexpr auto one = zorsGoertz_32f;
  static constexpr auto two = zorsGoertzTwo_32f;
};
template <> struct GoertzelCalls<double> {
  using Frequency = double;
  static constexpr auto one = zorsGoertz_64f;
  static constexpr auto two = zorsGoertzTwo_64f;
};
template <> struct GoertzelCalls<std::complex<float>> {
  using Frequency = float;
  static constexpr auto one = zorsGoertz_32fc;
  static constexpr auto two = zorsGoertzTwo_32fc;
};
template <> struct GoertzelCalls<std::complex<double>> {
  using Frequency = double;
  static constexpr auto one = zorsGoertz_64fc;
  static constexpr auto two = zorsGoertzTwo_64fc;
};

template <class S> using GoertzelOf = GoertzelCalls<std::ranges::range_value_t<S>>;
template <class S> using FrequencyOf = typename GoertzelOf<S>::Frequency;
template <class S> using Bin = std::complex<FrequencyOf<S>>;

template <class S> std::pair<Outcome, Bin<S>> goertzel(const S& src, FrequencyOf<S> frequency) noexcept {
  Raw<Bin<S>> bin{};
  Zor32s len = 0;
  Outcome outcome = lengthOf(len, src);
  if (!outcome.failed()) outcome = GoertzelOf<S>::one(passed(src), len, &bin, frequency);
  return {outcome, result(bin)};
}
template <class S>
std::pair<Outcome, std::array<Bin<S>, 2>> goertzel(const S& src, FrequencyOf<S> f1, FrequencyOf<S> f2) noexcept {
  Raw<Bin<S>> bins[2] = {};
  const FrequencyOf<S> frequencies[2] = {f1, f2};
  Zor32s len = 0;
  Outcome outcome = lengthOf(len, src);
  if (!outcome.failed()) outcome = GoertzelOf<S>::two(passed(src), len, bins, frequencies);
  return {outcome, {result(bins[0]), result(bins[1])}};
}

}  // namespace detail

/// One bin of the Fourier transform of src, at any frequency from 0 to below 1, in cycles a sample.
template <Vector S> detail::Bin<S> goertzel(const S& src, detail::FrequencyOf<S> frequency) {
  const auto [outcome, bin] = detail::goertzel(src, frequency);
  detail::check(outcome);
  return bin;
}
template <Vector S>
[[nodiscard]] Result<detail::Bin<S>> goertzel(std::nothrow_t, const S& src, detail::FrequencyOf<S> frequency) noexcept {
  const auto [outcome, bin] = detail::goertzel(src, frequency);
  return {outcome.status, bin};
}
/// Two bins in one pass.
template <Vector S>
std::array<detail::Bin<S>, 2> goertzel(const S& src, detail::FrequencyOf<S> f1, detail::FrequencyOf<S> f2) {
  const auto [outcome, bins] = detail::goertzel(src, f1, f2);
  detail::check(outcome);
  return bins;
}

template <Vector S>
[[nodiscard]] Result<std::array<detail::Bin<S>, 2>> goertzel(std::nothrow_t, const S& src, detail::FrequencyOf<S> f1,
                                                             detail::FrequencyOf<S> f2) noexcept {
  const auto [outcome, bins] = detail::goertzel(src, f1, f2);
  return {outcome.status, bins};
}

/// The turn from each point of a stream to the next, 2^15 for half a turn.
class FmDemodulator {
 public:
  void process(In<Zor16s> re, In<Zor16s> im, Out<Zor16s> dst) { detail::check(run(re, im, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<Zor16s> re, In<Zor16s> im, Out<Zor16s> dst) noexcept {
    return run(re, im, dst).status;
  }

 private:
  detail::Outcome run(In<Zor16s> re, In<Zor16s> im, Out<Zor16s> dst) noexcept {
    const auto outcome = detail::sameSizes(re.size(), im.size(), dst.size());
    if (outcome.failed()) return outcome;
    return zorsDemodulateFM_CToR_16s(re.data(), im.data(), dst.data(), Zor32s(dst.size()), &last_);
  }
  Zor16sc last_ = {};
};

}  // namespace zors

#endif
