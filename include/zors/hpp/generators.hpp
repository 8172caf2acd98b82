/** @file
 *  Tones, triangles, random numbers, test vectors. */
#ifndef ZORS_HPP_GENERATORS_HPP
#define ZORS_HPP_GENERATORS_HPP

#include "zors/hpp/core.hpp"

namespace zors {

namespace detail {

template <class T> struct ToneCalls;
template <> struct ToneCalls<float> {
  using Real = float;
  static constexpr auto tone = zorsTone_Direct_32f;
  static constexpr auto triangle = zorsTriangle_Direct_32f;
};
template <> struct ToneCalls<double> {
  using Real = double;
  static constexpr auto tone = zorsTone_Direct_64f;
  static constexpr auto triangle = zorsTriangle_Direct_64f;
};
template <> struct ToneCalls<std::complex<float>> {
  using Real = float;
  static constexpr auto tone = zorsTone_Direct_32fc;
  static constexpr auto triangle = zorsTriangle_Direct_32fc;
};
template <> struct ToneCalls<std::complex<double>> {
  using Real = double;
  static constexpr auto tone = zorsTone_Direct_64fc;
  static constexpr auto triangle = zorsTriangle_Direct_64fc;
};
template <> struct ToneCalls<Zor16s> {
  using Real = float;
  static constexpr auto tone = zorsTone_Direct_16s;
  static constexpr auto triangle = zorsTriangle_Direct_16s;
};
template <> struct ToneCalls<Zor16sc> {
  using Real = float;
  static constexpr auto tone = zorsTone_Direct_16sc;
  static constexpr auto triangle = zorsTriangle_Direct_16sc;
};
template <class T> using Magnitude = std::conditional_t<Integer<T>, Zor16s, typename ToneCalls<T>::Real>;

}  // namespace detail

/// A sinusoid that goes on from call to call: Tone<float> tone({.frequency = 440.0f / 48000}); tone.generate(dst).
template <class T> class Tone {
 public:
  using Real = typename detail::ToneCalls<T>::Real;
  struct Options {
    Real frequency;  ///< in cycles a sample, from 0 to below 0.5
    detail::Magnitude<T> magnitude = 1;
    Real phase = 0;  ///< of the first sample, from 0 to below 2 pi
    ZorHintAlgorithm hint = zorAlgHintAccurate;
  };
  explicit Tone(const Options& options) noexcept : options_(options) {}
  Real phase() const noexcept { return options_.phase; }

  void generate(Out<T> dst) { detail::check(run(dst)); }
  [[nodiscard]] ZorStatus generate(std::nothrow_t, Out<T> dst) noexcept { return run(dst).status; }

 private:
  detail::Outcome run(Out<T> dst) noexcept {
    if (const auto outcome = detail::sameSizes(dst.size()); outcome.failed()) return outcome;
    return detail::ToneCalls<T>::tone(detail::raw(dst), Zor32s(dst.size()), options_.magnitude, options_.frequency,
                                      &options_.phase, options_.hint);
  }
  Options options_;
};

/// A triangular wave that goes on from call to call.
template <class T> class Triangle {
 public:
  using Real = typename detail::ToneCalls<T>::Real;
  struct Options {
    Real frequency;  ///< in cycles a sample, from 0 to below 0.5
    detail::Magnitude<T> magnitude = 1;
    Real phase = 0;      ///< of the first sample, from 0 to below 2 pi
    Real asymmetry = 0;  ///< the fall takes pi + asymmetry, the rise pi - asymmetry
  };
  explicit Triangle(const Options& options) noexcept : options_(options) {}
  Real phase() const noexcept { return options_.phase; }

  void generate(Out<T> dst) { detail::check(run(dst)); }
  [[nodiscard]] ZorStatus generate(std::nothrow_t, Out<T> dst) noexcept { return run(dst).status; }

 private:
  detail::Outcome run(Out<T> dst) noexcept {
    if (const auto outcome = detail::sameSizes(dst.size()); outcome.failed()) return outcome;
    return detail::ToneCalls<T>::triangle(detail::raw(dst), Zor32s(dst.size()), options_.magnitude, options_.frequency,
                                          options_.asymmetry, &options_.phase);
  }
  Options options_;
};

namespace detail {

template <class T> struct UniformCalls;
template <> struct UniformCalls<float> {
  static constexpr auto build = zorsRandUniformInitAlloc_32f;
  static constexpr auto release = zorsRandUniformFree_32f;
  static constexpr auto run = zorsRandUniform_32f;
};
template <> struct UniformCalls<Zor16s> {
  static constexpr auto build = zorsRandUniformInitAlloc_16s;
  static constexpr auto release = zorsRandUniformFree_16s;
  static constexpr auto run = zorsRandUniform_16s;
};
template <> struct UniformCalls<Zor8u> {
  static constexpr auto build = zorsRandUniformInitAlloc_8u;
  static constexpr auto release = zorsRandUniformFree_8u;
  static constexpr auto run = zorsRandUniform_8u;
};
template <class T> struct GaussCalls;
template <> struct GaussCalls<float> {
  static constexpr auto build = zorsRandGaussInitAlloc_32f;
  static constexpr auto release = zorsRandGaussFree_32f;
  static constexpr auto run = zorsRandGauss_32f;
};
template <> struct GaussCalls<Zor16s> {
  static constexpr auto build = zorsRandGaussInitAlloc_16s;
  static constexpr auto release = zorsRandGaussFree_16s;
  static constexpr auto run = zorsRandGauss_16s;
};
template <> struct GaussCalls<Zor8u> {
  static constexpr auto build = zorsRandGaussInitAlloc_8u;
  static constexpr auto release = zorsRandGaussFree_8u;
  static constexpr auto run = zorsRandGauss_8u;
};

}  // namespace detail

/// Uniform random numbers between two bounds: RandomUniform<float> noise({.low = -1, .high = 1, .seed = 7}).
template <class T> class RandomUniform {
 public:
  struct Options {
    T low, high;
    Zor32u seed = 1;
  };
  RandomUniform() = default;
  explicit RandomUniform(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  void generate(Out<T> dst) { detail::check(run(dst)); }
  [[nodiscard]] ZorStatus generate(std::nothrow_t, Out<T> dst) noexcept { return run(dst).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    return detail::build(state_, detail::UniformCalls<T>::build, o.low, o.high, o.seed);
  }
  detail::Outcome run(Out<T> dst) noexcept {
    if (const auto outcome = detail::sameSizes(dst.size()); outcome.failed()) return outcome;
    return detail::UniformCalls<T>::run(dst.data(), Zor32s(dst.size()), state_.get());
  }
  detail::Owned<ZorRandUniformState, detail::UniformCalls<T>::release> state_;
};

/// Normal random numbers: RandomGauss<float> noise({.mean = 0, .deviation = 0.1f, .seed = 7}).
template <class T> class RandomGauss {
 public:
  struct Options {
    T mean, deviation;
    Zor32u seed = 1;
  };
  RandomGauss() = default;
  explicit RandomGauss(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  void generate(Out<T> dst) { detail::check(run(dst)); }
  [[nodiscard]] ZorStatus generate(std::nothrow_t, Out<T> dst) noexcept { return run(dst).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    return detail::build(state_, detail::GaussCalls<T>::build, o.mean, o.deviation, o.seed);
  }
  detail::Outcome run(Out<T> dst) noexcept {
    if (const auto outcome = detail::sameSizes(dst.size()); outcome.failed()) return outcome;
    return detail::GaussCalls<T>::run(dst.data(), Zor32s(dst.size()), state_.get());
  }
  detail::Owned<ZorRandGaussState, detail::GaussCalls<T>::release> state_;
};

/// (dst, offset, slope): a straight line.
inline constexpr Operation<zorsVectorSlope_32f, zorsVectorSlope_64f, zorsVectorSlope_8u, zorsVectorSlope_8s,
                           zorsVectorSlope_16u, zorsVectorSlope_16s, zorsVectorSlope_32u, zorsVectorSlope_32s>
    ramp;
/// (dst, magnitude): from frequency 0 to half the sample rate.
inline constexpr Operation<zorsVectorJaehne_32f, zorsVectorJaehne_64f, zorsVectorJaehne_8u, zorsVectorJaehne_8s,
                           zorsVectorJaehne_16u, zorsVectorJaehne_16s, zorsVectorJaehne_32u, zorsVectorJaehne_32s>
    chirp;

}  // namespace zors

#endif
