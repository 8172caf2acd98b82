/** @file
 *  FIR filters of one rate and of two, adaptive and sparse ones, IIR filters and cascades, their design. */
#ifndef ZORS_HPP_FILTERS_HPP
#define ZORS_HPP_FILTERS_HPP

#include "zors/hpp/core.hpp"

namespace zors {

namespace detail {

/// The C functions of FIR filters by samples and taps.
template <class Sample, class Taps> struct FirCalls;
template <> struct FirCalls<float, float> {
  static constexpr auto build = zorsFIRInitAlloc_32f;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc_32f;
  static constexpr auto release = zorsFIRFree_32f;
  static constexpr auto run = zorsFIR_32f;
  static constexpr auto runInPlace = zorsFIR_32f_I;
  static constexpr auto one = zorsFIROne_32f;
  static constexpr auto getTaps = zorsFIRGetTaps_32f;
  static constexpr auto setTaps = zorsFIRSetTaps_32f;
  static constexpr auto getHistory = zorsFIRGetDlyLine_32f;
  static constexpr auto setHistory = zorsFIRSetDlyLine_32f;
};
template <> struct FirCalls<double, double> {
  static constexpr auto build = zorsFIRInitAlloc_64f;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc_64f;
  static constexpr auto release = zorsFIRFree_64f;
  static constexpr auto run = zorsFIR_64f;
  static constexpr auto runInPlace = zorsFIR_64f_I;
  static constexpr auto one = zorsFIROne_64f;
  static constexpr auto getTaps = zorsFIRGetTaps_64f;
  static constexpr auto setTaps = zorsFIRSetTaps_64f;
  static constexpr auto getHistory = zorsFIRGetDlyLine_64f;
  static constexpr auto setHistory = zorsFIRSetDlyLine_64f;
};
template <> struct FirCalls<std::complex<float>, std::complex<float>> {
  static constexpr auto build = zorsFIRInitAlloc_32fc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc_32fc;
  static constexpr auto release = zorsFIRFree_32fc;
  static constexpr auto run = zorsFIR_32fc;
  static constexpr auto runInPlace = zorsFIR_32fc_I;
  static constexpr auto one = zorsFIROne_32fc;
  static constexpr auto getTaps = zorsFIRGetTaps_32fc;
  static constexpr auto setTaps = zorsFIRSetTaps_32fc;
  static constexpr auto getHistory = zorsFIRGetDlyLine_32fc;
  static constexpr auto setHistory = zorsFIRSetDlyLine_32fc;
};
template <> struct FirCalls<std::complex<double>, std::complex<double>> {
  static constexpr auto build = zorsFIRInitAlloc_64fc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc_64fc;
  static constexpr auto release = zorsFIRFree_64fc;
  static constexpr auto run = zorsFIR_64fc;
  static constexpr auto runInPlace = zorsFIR_64fc_I;
  static constexpr auto one = zorsFIROne_64fc;
  static constexpr auto getTaps = zorsFIRGetTaps_64fc;
  static constexpr auto setTaps = zorsFIRSetTaps_64fc;
  static constexpr auto getHistory = zorsFIRGetDlyLine_64fc;
  static constexpr auto setHistory = zorsFIRSetDlyLine_64fc;
};
template <> struct FirCalls<float, double> {
  static constexpr auto build = zorsFIRInitAlloc64f_32f;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64f_32f;
  static constexpr auto release = zorsFIRFree64f_32f;
  static constexpr auto run = zorsFIR64f_32f;
  static constexpr auto runInPlace = zorsFIR64f_32f_I;
  static constexpr auto one = zorsFIROne64f_32f;
  static constexpr auto getTaps = zorsFIRGetTaps64f_32f;
  static constexpr auto setTaps = zorsFIRSetTaps64f_32f;
  static constexpr auto getHistory = zorsFIRGetDlyLine64f_32f;
  static constexpr auto setHistory = zorsFIRSetDlyLine64f_32f;
};
template <> struct FirCalls<std::complex<float>, std::complex<double>> {
  static constexpr auto build = zorsFIRInitAlloc64fc_32fc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64fc_32fc;
  static constexpr auto release = zorsFIRFree64fc_32fc;
  static constexpr auto run = zorsFIR64fc_32fc;
  static constexpr auto runInPlace = zorsFIR64fc_32fc_I;
  static constexpr auto one = zorsFIROne64fc_32fc;
  static constexpr auto getTaps = zorsFIRGetTaps64fc_32fc;
  static constexpr auto setTaps = zorsFIRSetTaps64fc_32fc;
  static constexpr auto getHistory = zorsFIRGetDlyLine64fc_32fc;
  static constexpr auto setHistory = zorsFIRSetDlyLine64fc_32fc;
};
template <> struct FirCalls<Zor16s, Zor16s> {
  static constexpr auto build = zorsFIRInitAlloc_16s;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc_16s;
  static constexpr auto release = zorsFIRFree_16s;
  static constexpr auto run = zorsFIR_16s_Sfs;
  static constexpr auto runInPlace = zorsFIR_16s_ISfs;
  static constexpr auto one = zorsFIROne_16s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps_16s;
  static constexpr auto setTaps = zorsFIRSetTaps_16s;
  static constexpr auto getHistory = zorsFIRGetDlyLine_16s;
  static constexpr auto setHistory = zorsFIRSetDlyLine_16s;
};
template <> struct FirCalls<Zor16s, Zor32s> {
  static constexpr auto build = zorsFIRInitAlloc32s_16s;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc32s_16s;
  static constexpr auto release = zorsFIRFree32s_16s;
  static constexpr auto run = zorsFIR32s_16s_Sfs;
  static constexpr auto runInPlace = zorsFIR32s_16s_ISfs;
  static constexpr auto one = zorsFIROne32s_16s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps32s_16s;
  static constexpr auto setTaps = zorsFIRSetTaps32s_16s;
  static constexpr auto getHistory = zorsFIRGetDlyLine32s_16s;
  static constexpr auto setHistory = zorsFIRSetDlyLine32s_16s;
};
template <> struct FirCalls<Zor16s, float> {
  static constexpr auto build = zorsFIRInitAlloc32f_16s;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc32f_16s;
  static constexpr auto release = zorsFIRFree32f_16s;
  static constexpr auto run = zorsFIR32f_16s_Sfs;
  static constexpr auto runInPlace = zorsFIR32f_16s_ISfs;
  static constexpr auto one = zorsFIROne32f_16s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps32f_16s;
  static constexpr auto getHistory = zorsFIRGetDlyLine32f_16s;
  static constexpr auto setHistory = zorsFIRSetDlyLine32f_16s;
};
template <> struct FirCalls<Zor16s, double> {
  static constexpr auto build = zorsFIRInitAlloc64f_16s;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64f_16s;
  static constexpr auto release = zorsFIRFree64f_16s;
  static constexpr auto run = zorsFIR64f_16s_Sfs;
  static constexpr auto runInPlace = zorsFIR64f_16s_ISfs;
  static constexpr auto one = zorsFIROne64f_16s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps64f_16s;
  static constexpr auto setTaps = zorsFIRSetTaps64f_16s;
  static constexpr auto getHistory = zorsFIRGetDlyLine64f_16s;
  static constexpr auto setHistory = zorsFIRSetDlyLine64f_16s;
};
template <> struct FirCalls<Zor16sc, Zor32sc> {
  static constexpr auto build = zorsFIRInitAlloc32sc_16sc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc32sc_16sc;
  static constexpr auto release = zorsFIRFree32sc_16sc;
  static constexpr auto run = zorsFIR32sc_16sc_Sfs;
  static constexpr auto runInPlace = zorsFIR32sc_16sc_ISfs;
  static constexpr auto one = zorsFIROne32sc_16sc_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps32sc_16sc;
  static constexpr auto setTaps = zorsFIRSetTaps32sc_16sc;
  static constexpr auto getHistory = zorsFIRGetDlyLine32sc_16sc;
  static constexpr auto setHistory = zorsFIRSetDlyLine32sc_16sc;
};
template <> struct FirCalls<Zor16sc, std::complex<float>> {
  static constexpr auto build = zorsFIRInitAlloc32fc_16sc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc32fc_16sc;
  static constexpr auto release = zorsFIRFree32fc_16sc;
  static constexpr auto run = zorsFIR32fc_16sc_Sfs;
  static constexpr auto runInPlace = zorsFIR32fc_16sc_ISfs;
  static constexpr auto one = zorsFIROne32fc_16sc_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps32fc_16sc;
  static constexpr auto setTaps = zorsFIRSetTaps32fc_16sc;
  static constexpr auto getHistory = zorsFIRGetDlyLine32fc_16sc;
  static constexpr auto setHistory = zorsFIRSetDlyLine32fc_16sc;
};
template <> struct FirCalls<Zor16sc, std::complex<double>> {
  static constexpr auto build = zorsFIRInitAlloc64fc_16sc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64fc_16sc;
  static constexpr auto release = zorsFIRFree64fc_16sc;
  static constexpr auto run = zorsFIR64fc_16sc_Sfs;
  static constexpr auto runInPlace = zorsFIR64fc_16sc_ISfs;
  static constexpr auto one = zorsFIROne64fc_16sc_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps64fc_16sc;
  static constexpr auto setTaps = zorsFIRSetTaps64fc_16sc;
  static constexpr auto getHistory = zorsFIRGetDlyLine64fc_16sc;
  static constexpr auto setHistory = zorsFIRSetDlyLine64fc_16sc;
};
template <> struct FirCalls<Zor32s, double> {
  static constexpr auto build = zorsFIRInitAlloc64f_32s;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64f_32s;
  static constexpr auto release = zorsFIRFree64f_32s;
  static constexpr auto run = zorsFIR64f_32s_Sfs;
  static constexpr auto runInPlace = zorsFIR64f_32s_ISfs;
  static constexpr auto one = zorsFIROne64f_32s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps64f_32s;
  static constexpr auto setTaps = zorsFIRSetTaps64f_32s;
  static constexpr auto getHistory = zorsFIRGetDlyLine64f_32s;
  static constexpr auto setHistory = zorsFIRSetDlyLine64f_32s;
};
template <> struct FirCalls<Zor32sc, std::complex<double>> {
  static constexpr auto build = zorsFIRInitAlloc64fc_32sc;
  static constexpr auto buildMultiRate = zorsFIRMRInitAlloc64fc_32sc;
  static constexpr auto release = zorsFIRFree64fc_32sc;
  static constexpr auto run = zorsFIR64fc_32sc_Sfs;
  static constexpr auto runInPlace = zorsFIR64fc_32sc_ISfs;
  static constexpr auto one = zorsFIROne64fc_32sc_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps64fc_32sc;
  static constexpr auto setTaps = zorsFIRSetTaps64fc_32sc;
  static constexpr auto getHistory = zorsFIRGetDlyLine64fc_32sc;
  static constexpr auto setHistory = zorsFIRSetDlyLine64fc_32sc;
};
template <> struct FirCalls<Zor32s, Zor32s> {
  static constexpr auto build = zorsFIRInitAlloc_32s;
  static constexpr auto release = zorsFIRFree_32s;
  static constexpr auto run = zorsFIR_32s_Sfs;
  static constexpr auto runInPlace = zorsFIR_32s_ISfs;
  static constexpr auto one = zorsFIROne_32s_Sfs;
  static constexpr auto getTaps = zorsFIRGetTaps_32s;
  static constexpr auto setTaps = zorsFIRSetTaps_32s;
  static constexpr auto getHistory = zorsFIRGetDlyLine64f_32s;
  static constexpr auto setHistory = zorsFIRSetDlyLine64f_32s;
};

/// What the filters of one rate and of two share: a state, its taps and its history.
template <class Sample, class Taps> class FirState {
  using Calls = FirCalls<Sample, Taps>;
  static constexpr bool integerTaps = Integer<Taps>, replaceable = requires { Calls::setTaps; };

 public:
  std::size_t tapCount() const noexcept { return tapCount_; }
  /// Inputs that the filter remembers.
  std::size_t historySize() const noexcept { return historySize_; }
  /// The state, for C functions that the layer leaves out.
  ZorFIRState* get() const noexcept { return state_.get(); }

  /// Other taps, as many as before; the history stays. Integer taps bring their factor. Not of 16-bit samples with
  /// float taps, whose C function spoils the state: build a new one.
  void setTaps(In<Taps> taps, int tapsFactor = 0) requires replaceable { check(replace(taps, tapsFactor)); }
  [[nodiscard]] ZorStatus setTaps(std::nothrow_t, In<Taps> taps, int tapsFactor = 0) noexcept requires replaceable {
    return replace(taps, tapsFactor).status;
  }
  /// The last inputs, the newest first.
  void history(Out<Sample> to) const { check(remembered(to)); }
  [[nodiscard]] ZorStatus history(std::nothrow_t, Out<Sample> to) const noexcept { return remembered(to).status; }
  void setHistory(In<Sample> from) { check(remember(from)); }
  [[nodiscard]] ZorStatus setHistory(std::nothrow_t, In<Sample> from) noexcept { return remember(from).status; }

 protected:
  FirState() = default;

  /// Builds by initAlloc(state, taps, count, [tapsFactor,] rates..., history).
  template <class InitAlloc, class... Rates>
  Outcome build(InitAlloc initAlloc, In<Taps> taps, int tapsFactor, int scaleFactor, In<Sample> history,
                std::size_t historySize, Rates... rates) noexcept {
    if ((!integerTaps && tapsFactor != 0) || (!Integer<Sample> && scaleFactor != 0)) return notScaled;
    if (taps.empty()) return zorStatusBadTapsLength;
    if (const auto outcome = sameSizes(taps.size()); outcome.failed()) return outcome;
    if (!history.empty() && history.size() != historySize) return wrongHistory;
    const auto* past = history.empty() ? nullptr : raw(history);
    const auto count = Zor32s(taps.size());
    Outcome outcome{zorStatusOk};
    if constexpr (std::is_invocable_v<InitAlloc, ZorFIRState**, const Raw<Taps>*, Zor32s, Rates...,
                                      const Raw<Sample>*>) {
      if (tapsFactor != 0) return {zorStatusBadArgument, "these taps have no factor"};
      outcome = detail::build(state_, initAlloc, raw(taps), count, rates..., past);
    } else {
      outcome = detail::build(state_, initAlloc, raw(taps), count, tapsFactor, rates..., past);
    }
    if (!outcome.failed()) tapCount_ = taps.size(), historySize_ = historySize, scaleFactor_ = scaleFactor;
    return outcome;
  }
  Outcome filter(In<Sample> src, Out<Sample> dst, Zor32s count) noexcept {
    if constexpr (Integer<Sample>) {
      if (raw(src) == raw(dst)) return Calls::runInPlace(raw(dst), count, get(), scaleFactor_);
      return Calls::run(raw(src), raw(dst), count, get(), scaleFactor_);
    } else {
      if (raw(src) == raw(dst)) return Calls::runInPlace(raw(dst), count, get());
      return Calls::run(raw(src), raw(dst), count, get());
    }
  }
  std::pair<Outcome, Sample> filterOne(Sample src) noexcept {
    Raw<Sample> dst{};
    Outcome outcome{zorStatusOk};
    if constexpr (Integer<Sample>) {
      outcome = Calls::one(value(src), &dst, get(), scaleFactor_);
    } else {
      outcome = Calls::one(value(src), &dst, get());
    }
    return {outcome, result(dst)};
  }

 private:
  static constexpr Outcome wrongHistory{zorStatusBadSize, "a history of another length than historySize()"};

  Outcome replace(In<Taps> taps, int tapsFactor) noexcept {
    if (get() != nullptr && taps.size() != tapCount_) return {zorStatusBadTapsLength, "another number of taps"};
    if constexpr (std::is_invocable_v<decltype(Calls::setTaps), const Raw<Taps>*, ZorFIRState*>) {
      return tapsFactor ? Outcome(zorStatusBadArgument, "these taps have no factor") : Calls::setTaps(raw(taps), get());
    } else {
      return Calls::setTaps(raw(taps), get(), tapsFactor);
    }
  }
  Outcome remembered(Out<Sample> to) const noexcept {
    if (get() != nullptr && to.size() != historySize_) return wrongHistory;
    return Calls::getHistory(get(), raw(to));
  }
  Outcome remember(In<Sample> from) noexcept {
    if (get() != nullptr && from.size() != historySize_) return wrongHistory;
    return Calls::setHistory(get(), raw(from));
  }

  Owned<ZorFIRState, Calls::release> state_;
  std::size_t tapCount_ = 0, historySize_ = 0;
  Zor32s scaleFactor_ = 0;
};

}  // namespace detail

/// A FIR filter of a stream, in blocks of any length: Fir<float> fir({.taps = taps}); fir.process(src, dst).
/// Samples and taps: see zors/fir.h; Fir<float, double> computes in binary64.
template <class Sample, class Taps = Sample> class Fir : public detail::FirState<Sample, Taps> {
  using Base = detail::FirState<Sample, Taps>;

 public:
  struct Options {
    In<Taps> taps;            ///< copied
    In<Sample> history = {};  ///< the inputs before the first, as many as taps, the newest first; none: zeros
    int tapsFactor = 0;       ///< integer taps: they count times 2^tapsFactor
    int scaleFactor = 0;      ///< integer samples: results are divided by 2^scaleFactor
  };
  Fir() = default;
  explicit Fir(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  void process(In<Sample> src, Out<Sample> dst) { detail::check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<Sample> src, Out<Sample> dst) noexcept {
    return run(src, dst).status;
  }
  void process(Out<Sample> srcDst) { process(srcDst, srcDst); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, Out<Sample> srcDst) noexcept {
    return process(std::nothrow, srcDst, srcDst);
  }
  /// One sample.
  Sample process(Sample src) {
    const auto [outcome, dst] = this->filterOne(src);
    detail::check(outcome);
    return dst;
  }
  [[nodiscard]] Result<Sample> process(std::nothrow_t, Sample src) noexcept {
    const auto [outcome, dst] = this->filterOne(src);
    return {outcome.status, dst};
  }

 private:
  detail::Outcome make(const Options& o) noexcept {
    return Base::build(detail::FirCalls<Sample, Taps>::build, o.taps, o.tapsFactor, o.scaleFactor, o.history,
                       o.taps.size());
  }
  detail::Outcome run(In<Sample> src, Out<Sample> dst) noexcept {
    const auto outcome = detail::sameSizes(src.size(), dst.size());
    return outcome.failed() ? outcome : this->filter(src, dst, Zor32s(src.size()));
  }
};

/// A FIR filter between a rise and a fall of the rate. A call takes a multiple of `down` samples and gives `up` for
/// each `down` of them: FirMultiRate<float> half({.taps = taps, .down = 2}).
template <class Sample, class Taps = Sample> class FirMultiRate : public detail::FirState<Sample, Taps> {
  using Base = detail::FirState<Sample, Taps>;

 public:
  struct Options {
    In<Taps> taps;  ///< at the risen rate; copied
    int up = 1, down = 1;
    int upPhase = 0, downPhase = 0;
    In<Sample> history = {};  ///< ceil(taps / up) inputs, the newest first; none: zeros
    int tapsFactor = 0;       ///< integer taps: they count times 2^tapsFactor
    int scaleFactor = 0;      ///< integer samples: results are divided by 2^scaleFactor
  };
  FirMultiRate() = default;
  explicit FirMultiRate(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  /// Outputs of a number of inputs.
  std::size_t outputs(std::size_t inputs) const noexcept { return inputs / down_ * up_; }
  void process(In<Sample> src, Out<Sample> dst) { detail::check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<Sample> src, Out<Sample> dst) noexcept {
    return run(src, dst).status;
  }

 private:
  detail::Outcome make(const Options& o) noexcept {
    const std::size_t up = o.up > 0 ? std::size_t(o.up) : 1;
    const auto outcome = Base::build(detail::FirCalls<Sample, Taps>::buildMultiRate, o.taps, o.tapsFactor,
                                     o.scaleFactor, o.history, (o.taps.size() + up - 1) / up, Zor32s(o.up),
                                     Zor32s(o.upPhase), Zor32s(o.down), Zor32s(o.downPhase));
    if (!outcome.failed()) up_ = up, down_ = std::size_t(o.down);
    return outcome;
  }
  detail::Outcome run(In<Sample> src, Out<Sample> dst) noexcept {
    for (const std::size_t size : {src.size(), dst.size()}) {
      if (const auto outcome = detail::sameSizes(size); outcome.failed()) return outcome;
    }
    if (src.size() % down_ != 0 || dst.size() != outputs(src.size())) {
      return {zorStatusBadSize, "src has no multiple of `down` samples, or dst not `up` for each of them"};
    }
    return this->filter(src, dst, Zor32s(src.size() / down_));
  }

  std::size_t up_ = 1, down_ = 1;
};

namespace detail {

template <class Sample> struct LmsCalls;
template <> struct LmsCalls<float> {
  static constexpr auto build = zorsFIRLMSInitAlloc_32f;
  static constexpr auto release = zorsFIRLMSFree_32f;
  static constexpr auto run = zorsFIRLMS_32f;
  static constexpr auto getTaps = zorsFIRLMSGetTaps_32f;
};
template <> struct LmsCalls<Zor16s> {
  static constexpr auto build = zorsFIRLMSInitAlloc32f_16s;
  static constexpr auto release = zorsFIRLMSFree32f_16s;
  static constexpr auto run = zorsFIRLMS32f_16s;
  static constexpr auto getTaps = zorsFIRLMSGetTaps32f_16s;
};

}  // namespace detail

/// An adaptive FIR filter, least mean squares: Lms<float> lms({.tapCount = 64}); lms.process(src, reference, dst, mu).
template <class Sample> class Lms {
  using Calls = detail::LmsCalls<Sample>;

 public:
  struct Options {
    int tapCount;
    In<float> taps = {};  ///< to begin with, tapCount of them; none: zeros
  };
  Lms() = default;
  explicit Lms(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  std::size_t tapCount() const noexcept { return tapCount_; }
  /// dst = the filtered src; the taps move by mu toward what makes it the reference.
  void process(In<Sample> src, In<Sample> reference, Out<Sample> dst, float mu) {
    detail::check(run(src, reference, dst, mu));
  }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<Sample> src, In<Sample> reference, Out<Sample> dst,
                                  float mu) noexcept {
    return run(src, reference, dst, mu).status;
  }
  void taps(Out<float> to) const { detail::check(learnt(to)); }
  [[nodiscard]] ZorStatus taps(std::nothrow_t, Out<float> to) const noexcept { return learnt(to).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    const auto count = std::size_t(o.tapCount > 0 ? o.tapCount : 0);
    if (!o.taps.empty() && o.taps.size() != count) return {zorStatusBadTapsLength, "another number of taps"};
    const auto outcome = detail::build(state_, Calls::build, o.taps.empty() ? nullptr : o.taps.data(), o.tapCount,
                                       static_cast<const Sample*>(nullptr), 0);
    if (!outcome.failed()) tapCount_ = count;
    return outcome;
  }
  detail::Outcome run(In<Sample> src, In<Sample> reference, Out<Sample> dst, float mu) noexcept {
    const auto outcome = detail::sameSizes(src.size(), reference.size(), dst.size());
    if (outcome.failed()) return outcome;
    return Calls::run(src.data(), reference.data(), dst.data(), Zor32s(src.size()), mu, state_.get());
  }
  detail::Outcome learnt(Out<float> to) const noexcept {
    if (state_ && to.size() != tapCount_) return {zorStatusBadTapsLength, "another number of taps"};
    return Calls::getTaps(state_.get(), to.data());
  }

  detail::Owned<ZorFIRLMSState, Calls::release> state_;
  std::size_t tapCount_ = 0;
};

/// A FIR filter of few, far taps: taps[k] at positions[k], which rise strictly. src and dst may not overlap.
class SparseFir {
 public:
  struct Options {
    In<float> taps;
    In<Zor32s> positions;
  };
  SparseFir() = default;
  explicit SparseFir(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

  void process(In<float> src, Out<float> dst) { detail::check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<float> src, Out<float> dst) noexcept {
    return run(src, dst).status;
  }

 private:
  detail::Outcome make(const Options& o) noexcept {
    detail::Outcome outcome = detail::sameSizes(o.taps.size(), o.positions.size());
    if (outcome.failed()) return outcome;
    const auto count = Zor32s(o.taps.size());
    Zor32s size = 0;
    detail::Block block;
    ZorFIRSparseState* state = nullptr;
    outcome = zorsFIRSparseGetStateSize_32f(count, o.positions.back(), &size);
    if (!outcome.failed()) outcome = detail::allocate(block, size);
    if (!outcome.failed()) {
      outcome = zorsFIRSparseInit_32f(&state, o.taps.data(), o.positions.data(), count, nullptr, block.get());
    }
    if (!outcome.failed()) block_ = std::move(block), state_ = state;
    return outcome;
  }
  detail::Outcome run(In<float> src, Out<float> dst) noexcept {
    const auto outcome = detail::sameSizes(src.size(), dst.size());
    if (outcome.failed()) return outcome;
    return zorsFIRSparse_32f(src.data(), dst.data(), Zor32s(src.size()), block_ ? state_ : nullptr);
  }

  detail::Block block_;
  ZorFIRSparseState* state_ = nullptr;  // inside the block
};

namespace detail {

/// The C functions of IIR filters by samples and taps.
template <class Sample, class Taps> struct IirCalls;
template <> struct IirCalls<float, float> {
  using Register = float;
  static constexpr auto build = zorsIIRInitAlloc_32f;
  static constexpr auto buildSections = zorsIIRInitAlloc_BiQuad_32f;
  static constexpr auto release = zorsIIRFree_32f;
  static constexpr auto run = zorsIIR_32f;
  static constexpr auto runInPlace = zorsIIR_32f_I;
  static constexpr auto one = zorsIIROne_32f;
  static constexpr auto setTaps = zorsIIRSetTaps_32f;
  static constexpr auto getRegisters = zorsIIRGetDlyLine_32f;
  static constexpr auto setRegisters = zorsIIRSetDlyLine_32f;
};
template <> struct IirCalls<double, double> {
  using Register = double;
  static constexpr auto build = zorsIIRInitAlloc_64f;
  static constexpr auto buildSections = zorsIIRInitAlloc_BiQuad_64f;
  static constexpr auto release = zorsIIRFree_64f;
  static constexpr auto run = zorsIIR_64f;
  static constexpr auto runInPlace = zorsIIR_64f_I;
  static constexpr auto one = zorsIIROne_64f;
  static constexpr auto setTaps = zorsIIRSetTaps_64f;
  static constexpr auto getRegisters = zorsIIRGetDlyLine_64f;
  static constexpr auto setRegisters = zorsIIRSetDlyLine_64f;
};
template <> struct IirCalls<std::complex<float>, std::complex<float>> {
  using Register = std::complex<float>;
  static constexpr auto build = zorsIIRInitAlloc_32fc;
  static constexpr auto buildSections = zorsIIRInitAlloc_BiQuad_32fc;
  static constexpr auto release = zorsIIRFree_32fc;
  static constexpr auto run = zorsIIR_32fc;
  static constexpr auto runInPlace = zorsIIR_32fc_I;
  static constexpr auto one = zorsIIROne_32fc;
  static constexpr auto setTaps = zorsIIRSetTaps_32fc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine_32fc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine_32fc;
};
template <> struct IirCalls<std::complex<double>, std::complex<double>> {
  using Register = std::complex<double>;
  static constexpr auto build = zorsIIRInitAlloc_64fc;
  static constexpr auto buildSections = zorsIIRInitAlloc_BiQuad_64fc;
  static constexpr auto release = zorsIIRFree_64fc;
  static constexpr auto run = zorsIIR_64fc;
  static constexpr auto runInPlace = zorsIIR_64fc_I;
  static constexpr auto one = zorsIIROne_64fc;
  static constexpr auto setTaps = zorsIIRSetTaps_64fc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine_64fc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine_64fc;
};
template <> struct IirCalls<float, double> {
  using Register = double;
  static constexpr auto build = zorsIIRInitAlloc64f_32f;
  static constexpr auto buildSections = zorsIIRInitAlloc64f_BiQuad_32f;
  static constexpr auto release = zorsIIRFree64f_32f;
  static constexpr auto run = zorsIIR64f_32f;
  static constexpr auto runInPlace = zorsIIR64f_32f_I;
  static constexpr auto one = zorsIIROne64f_32f;
  static constexpr auto setTaps = zorsIIRSetTaps64f_32f;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64f_32f;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64f_32f;
};
template <> struct IirCalls<std::complex<float>, std::complex<double>> {
  using Register = std::complex<double>;
  static constexpr auto build = zorsIIRInitAlloc64fc_32fc;
  static constexpr auto buildSections = zorsIIRInitAlloc64fc_BiQuad_32fc;
  static constexpr auto release = zorsIIRFree64fc_32fc;
  static constexpr auto run = zorsIIR64fc_32fc;
  static constexpr auto runInPlace = zorsIIR64fc_32fc_I;
  static constexpr auto one = zorsIIROne64fc_32fc;
  static constexpr auto setTaps = zorsIIRSetTaps64fc_32fc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64fc_32fc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64fc_32fc;
};
template <> struct IirCalls<Zor16s, Zor32s> {
  using Register = float;
  static constexpr auto build = zorsIIRInitAlloc32s_16s;
  static constexpr auto buildSections = zorsIIRInitAlloc32s_BiQuad_16s;
  static constexpr auto release = zorsIIRFree32s_16s;
  static constexpr auto run = zorsIIR32s_16s_Sfs;
  static constexpr auto runInPlace = zorsIIR32s_16s_ISfs;
  static constexpr auto one = zorsIIROne32s_16s_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps32s_16s;
  static constexpr auto getRegisters = zorsIIRGetDlyLine32s_16s;
  static constexpr auto setRegisters = zorsIIRSetDlyLine32s_16s;
};
template <> struct IirCalls<Zor16s, float> {
  using Register = float;
  static constexpr auto build = zorsIIRInitAlloc32f_16s;
  static constexpr auto buildSections = zorsIIRInitAlloc32f_BiQuad_16s;
  static constexpr auto release = zorsIIRFree32f_16s;
  static constexpr auto run = zorsIIR32f_16s_Sfs;
  static constexpr auto runInPlace = zorsIIR32f_16s_ISfs;
  static constexpr auto one = zorsIIROne32f_16s_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps32f_16s;
  static constexpr auto getRegisters = zorsIIRGetDlyLine32f_16s;
  static constexpr auto setRegisters = zorsIIRSetDlyLine32f_16s;
};
template <> struct IirCalls<Zor16s, double> {
  using Register = double;
  static constexpr auto build = zorsIIRInitAlloc64f_16s;
  static constexpr auto buildSections = zorsIIRInitAlloc64f_BiQuad_16s;
  static constexpr auto release = zorsIIRFree64f_16s;
  static constexpr auto run = zorsIIR64f_16s_Sfs;
  static constexpr auto runInPlace = zorsIIR64f_16s_ISfs;
  static constexpr auto one = zorsIIROne64f_16s_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps64f_16s;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64f_16s;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64f_16s;
};
template <> struct IirCalls<Zor16sc, Zor32sc> {
  using Register = std::complex<float>;
  static constexpr auto build = zorsIIRInitAlloc32sc_16sc;
  static constexpr auto buildSections = zorsIIRInitAlloc32sc_BiQuad_16sc;
  static constexpr auto release = zorsIIRFree32sc_16sc;
  static constexpr auto run = zorsIIR32sc_16sc_Sfs;
  static constexpr auto runInPlace = zorsIIR32sc_16sc_ISfs;
  static constexpr auto one = zorsIIROne32sc_16sc_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps32sc_16sc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine32sc_16sc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine32sc_16sc;
};
template <> struct IirCalls<Zor16sc, std::complex<float>> {
  using Register = std::complex<float>;
  static constexpr auto build = zorsIIRInitAlloc32fc_16sc;
  static constexpr auto buildSections = zorsIIRInitAlloc32fc_BiQuad_16sc;
  static constexpr auto release = zorsIIRFree32fc_16sc;
  static constexpr auto run = zorsIIR32fc_16sc_Sfs;
  static constexpr auto runInPlace = zorsIIR32fc_16sc_ISfs;
  static constexpr auto one = zorsIIROne32fc_16sc_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps32fc_16sc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine32fc_16sc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine32fc_16sc;
};
template <> struct IirCalls<Zor16sc, std::complex<double>> {
  using Register = std::complex<double>;
  static constexpr auto build = zorsIIRInitAlloc64fc_16sc;
  static constexpr auto buildSections = zorsIIRInitAlloc64fc_BiQuad_16sc;
  static constexpr auto release = zorsIIRFree64fc_16sc;
  static constexpr auto run = zorsIIR64fc_16sc_Sfs;
  static constexpr auto runInPlace = zorsIIR64fc_16sc_ISfs;
  static constexpr auto one = zorsIIROne64fc_16sc_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps64fc_16sc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64fc_16sc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64fc_16sc;
};
template <> struct IirCalls<Zor32s, double> {
  using Register = double;
  static constexpr auto build = zorsIIRInitAlloc64f_32s;
  static constexpr auto buildSections = zorsIIRInitAlloc64f_BiQuad_32s;
  static constexpr auto release = zorsIIRFree64f_32s;
  static constexpr auto run = zorsIIR64f_32s_Sfs;
  static constexpr auto runInPlace = zorsIIR64f_32s_ISfs;
  static constexpr auto one = zorsIIROne64f_32s_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps64f_32s;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64f_32s;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64f_32s;
};
template <> struct IirCalls<Zor32sc, std::complex<double>> {
  using Register = std::complex<double>;
  static constexpr auto build = zorsIIRInitAlloc64fc_32sc;
  static constexpr auto buildSections = zorsIIRInitAlloc64fc_BiQuad_32sc;
  static constexpr auto release = zorsIIRFree64fc_32sc;
  static constexpr auto run = zorsIIR64fc_32sc_Sfs;
  static constexpr auto runInPlace = zorsIIR64fc_32sc_ISfs;
  static constexpr auto one = zorsIIROne64fc_32sc_Sfs;
  static constexpr auto setTaps = zorsIIRSetTaps64fc_32sc;
  static constexpr auto getRegisters = zorsIIRGetDlyLine64fc_32sc;
  static constexpr auto setRegisters = zorsIIRSetDlyLine64fc_32sc;
};

template <class Sample, class Taps> class IirState {
  using Calls = IirCalls<Sample, Taps>;

 public:
  using Register = typename Calls::Register;

  std::size_t registerCount() const noexcept { return registerCount_; }
  /// The state, for C functions that the layer leaves out.
  ZorIIRState* get() const noexcept { return state_.get(); }

  void process(In<Sample> src, Out<Sample> dst) { check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<Sample> src, Out<Sample> dst) noexcept {
    return run(src, dst).status;
  }
  void process(Out<Sample> srcDst) { process(srcDst, srcDst); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, Out<Sample> srcDst) noexcept {
    return process(std::nothrow, srcDst, srcDst);
  }
  /// One sample.
  Sample process(Sample src) {
    const auto [outcome, dst] = runOne(src);
    check(outcome);
    return dst;
  }
  [[nodiscard]] Result<Sample> process(std::nothrow_t, Sample src) noexcept {
    const auto [outcome, dst] = runOne(src);
    return {outcome.status, dst};
  }

  /// Other taps of the same order; the registers stay. Integer taps bring their factor.
  void setTaps(In<Taps> taps, int tapsFactor = 0) { check(replace(taps, tapsFactor)); }
  [[nodiscard]] ZorStatus setTaps(std::nothrow_t, In<Taps> taps, int tapsFactor = 0) noexcept {
    return replace(taps, tapsFactor).status;
  }
  /// The registers of the transposed second form.
  void registers(Out<Register> to) const { check(read(to)); }
  [[nodiscard]] ZorStatus registers(std::nothrow_t, Out<Register> to) const noexcept { return read(to).status; }
  void setRegisters(In<Register> from) { check(write(from)); }
  [[nodiscard]] ZorStatus setRegisters(std::nothrow_t, In<Register> from) noexcept { return write(from).status; }

 protected:
  struct Parts {
    In<Taps> taps;
    In<Register> registers;
    int tapsFactor, scaleFactor;
  };
  IirState() = default;

  /// Builds by initAlloc(state, taps, number, [tapsFactor,] registers); number is the order, or that of sections.
  template <class InitAlloc>
  Outcome build(InitAlloc initAlloc, const Parts& o, std::size_t number, std::size_t registerCount) noexcept {
    if ((!Integer<Taps> && o.tapsFactor != 0) || (!Integer<Sample> && o.scaleFactor != 0)) return notScaled;
    if (!o.registers.empty() && o.registers.size() != registerCount) return wrongRegisters;
    const auto* start = o.registers.empty() ? nullptr : raw(o.registers);
    Outcome outcome{zorStatusOk};
    if constexpr (Integer<Taps>) {
      outcome = detail::build(state_, initAlloc, raw(o.taps), Zor32s(number), o.tapsFactor, start);
    } else {
      outcome = detail::build(state_, initAlloc, raw(o.taps), Zor32s(number), start);
    }
    if (!outcome.failed()) tapCount_ = o.taps.size(), registerCount_ = registerCount, scaleFactor_ = o.scaleFactor;
    return outcome;
  }

 private:
  static constexpr Outcome wrongRegisters{zorStatusBadSize, "registers of another number than registerCount()"};

  Outcome run(In<Sample> src, Out<Sample> dst) noexcept {
    const auto outcome = sameSizes(src.size(), dst.size());
    if (outcome.failed()) return outcome;
    const auto len = Zor32s(src.size());
    if constexpr (Integer<Sample>) {
      if (raw(src) == raw(dst)) return Calls::runInPlace(raw(dst), len, get(), scaleFactor_);
      return Calls::run(raw(src), raw(dst), len, get(), scaleFactor_);
    } else {
      if (raw(src) == raw(dst)) return Calls::runInPlace(raw(dst), len, get());
      return Calls::run(raw(src), raw(dst), len, get());
    }
  }
  std::pair<Outcome, Sample> runOne(Sample src) noexcept {
    Raw<Sample> dst{};
    Outcome outcome{zorStatusOk};
    if constexpr (Integer<Sample>) {
      outcome = Calls::one(value(src), &dst, get(), scaleFactor_);
    } else {
      outcome = Calls::one(value(src), &dst, get());
    }
    return {outcome, result(dst)};
  }
  Outcome replace(In<Taps> taps, int tapsFactor) noexcept {
    if (get() != nullptr && taps.size() != tapCount_) return {zorStatusBadTapsLength, "another number of taps"};
    if constexpr (Integer<Taps>) {
      return Calls::setTaps(raw(taps), get(), tapsFactor);
    } else {
      return tapsFactor ? notScaled : Calls::setTaps(raw(taps), get());
    }
  }
  Outcome read(Out<Register> to) const noexcept {
    if (get() != nullptr && to.size() != registerCount_) return wrongRegisters;
    return Calls::getRegisters(get(), raw(to));
  }
  Outcome write(In<Register> from) noexcept {
    if (get() != nullptr && from.size() != registerCount_) return wrongRegisters;
    return Calls::setRegisters(get(), raw(from));
  }

  Owned<ZorIIRState, Calls::release> state_;
  std::size_t tapCount_ = 0, registerCount_ = 0;
  Zor32s scaleFactor_ = 0;
};

}  // namespace detail

/// A recursive filter of any order: Iir<float> iir({.taps = taps}), taps b[0], ..., b[N], a[0], ..., a[N].
template <class Sample, class Taps = Sample> class Iir : public detail::IirState<Sample, Taps> {
  using Base = detail::IirState<Sample, Taps>;

 public:
  struct Options {
    In<Taps> taps;                               ///< copied
    In<typename Base::Register> registers = {};  ///< N to begin with; none: zeros
    int tapsFactor = 0;                          ///< integer taps: they are divided by 2^tapsFactor
    int scaleFactor = 0;                         ///< integer samples: results are divided by 2^scaleFactor
  };
  Iir() = default;
  explicit Iir(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    if (o.taps.size() % 2 != 0 || o.taps.size() < 4) {
      return {zorStatusBadFilterOrder, "an IIR filter of order N has 2 N + 2 taps, N from 1 on"};
    }
    const std::size_t order = o.taps.size() / 2 - 1;
    return Base::build(detail::IirCalls<Sample, Taps>::build, {o.taps, o.registers, o.tapsFactor, o.scaleFactor}, order,
                       order);
  }
};

/// A cascade of sections of order 2, b0 b1 b2 a0 a1 a2 each: IirCascade<float> eq({.taps = taps}).
template <class Sample, class Taps = Sample> class IirCascade : public detail::IirState<Sample, Taps> {
  using Base = detail::IirState<Sample, Taps>;

 public:
  struct Options {
    In<Taps> taps;                               ///< six a section; copied
    In<typename Base::Register> registers = {};  ///< two a section to begin with; none: zeros
    int tapsFactor = 0;                          ///< integer taps: they are divided by 2^tapsFactor
    int scaleFactor = 0;                         ///< integer samples: results are divided by 2^scaleFactor
  };
  IirCascade() = default;
  explicit IirCascade(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    if (o.taps.size() % 6 != 0 || o.taps.empty()) return {zorStatusBadFilterOrder, "a section has six taps"};
    const std::size_t sections = o.taps.size() / 6;
    return Base::build(detail::IirCalls<Sample, Taps>::buildSections,
                       {o.taps, o.registers, o.tapsFactor, o.scaleFactor}, sections, 2 * sections);
  }
};

// Design. Frequencies are relative to the sample rate, between 0 and 0.5.

enum class FirWindow : Zor32s { bartlett = 0, blackman = 1, hamming = 2, hann = 3, none = 4 };

struct FirDesign {
  double frequency;           ///< of the edge; of bands the lower one
  double upperFrequency = 0;  ///< of bands
  FirWindow window = FirWindow::hamming;
  bool normalise = true;  ///< a gain of 1 in the pass band's middle
};
struct IirDesign {
  double frequency;   ///< of the edge of the pass band
  int order;          ///< 1 to 12
  double ripple = 0;  ///< in dB; 0: Butterworth, above: Chebyshev of the first kind
};

namespace detail {

inline Outcome designFir(auto function, Out<double> taps, const FirDesign& d) noexcept {
  const auto outcome = sameSizes(taps.size());
  if (outcome.failed()) return outcome;
  const auto len = Zor32s(taps.size());
  if constexpr (Signature<decltype(function)>::count == 5) {
    return function(d.frequency, taps.data(), len, Zor32s(d.window), d.normalise);
  } else {
    return function(d.frequency, d.upperFrequency, taps.data(), len, Zor32s(d.window), d.normalise);
  }
}
inline Outcome designIir(auto function, Out<double> taps, const IirDesign& d) noexcept {
  if (d.order >= 1 && d.order <= 12 && taps.size() != 2 * std::size_t(d.order) + 2) {
    return {zorStatusBadSize, "an IIR filter of order N has 2 N + 2 taps"};
  }
  return function(d.frequency, d.ripple, d.order, taps.data(), d.ripple != 0);
}

}  // namespace detail

/// Taps of a FIR filter, as many as there is room for (at least 5): designFirLowpass(taps, {.frequency = 0.1}).
inline void designFirLowpass(Out<double> taps, const FirDesign& design) {
  detail::check(detail::designFir(zorsFIRGenLowpass_64f, taps, design));
}
inline void designFirHighpass(Out<double> taps, const FirDesign& design) {
  detail::check(detail::designFir(zorsFIRGenHighpass_64f, taps, design));
}
inline void designFirBandpass(Out<double> taps, const FirDesign& design) {
  detail::check(detail::designFir(zorsFIRGenBandpass_64f, taps, design));
}
inline void designFirBandstop(Out<double> taps, const FirDesign& design) {
  detail::check(detail::designFir(zorsFIRGenBandstop_64f, taps, design));
}
/// Taps of an Iir: designIirLowpass(taps, {.frequency = 0.1, .order = 4}) fills 2 * order + 2.
inline void designIirLowpass(Out<double> taps, const IirDesign& design) {
  detail::check(detail::designIir(zorsIIRGenLowpass_64f, taps, design));
}
inline void designIirHighpass(Out<double> taps, const IirDesign& design) {
  detail::check(detail::designIir(zorsIIRGenHighpass_64f, taps, design));
}
[[nodiscard]] inline ZorStatus designFirLowpass(std::nothrow_t, Out<double> taps, const FirDesign& design) noexcept {
  return detail::designFir(zorsFIRGenLowpass_64f, taps, design).status;
}
[[nodiscard]] inline ZorStatus designFirHighpass(std::nothrow_t, Out<double> taps, const FirDesign& design) noexcept {
  return detail::designFir(zorsFIRGenHighpass_64f, taps, design).status;
}
[[nodiscard]] inline ZorStatus designFirBandpass(std::nothrow_t, Out<double> taps, const FirDesign& design) noexcept {
  return detail::designFir(zorsFIRGenBandpass_64f, taps, design).status;
}
[[nodiscard]] inline ZorStatus designFirBandstop(std::nothrow_t, Out<double> taps, const FirDesign& design) noexcept {
  return detail::designFir(zorsFIRGenBandstop_64f, taps, design).status;
}
[[nodiscard]] inline ZorStatus designIirLowpass(std::nothrow_t, Out<double> taps, const IirDesign& design) noexcept {
  return detail::designIir(zorsIIRGenLowpass_64f, taps, design).status;
}
[[nodiscard]] inline ZorStatus designIirHighpass(std::nothrow_t, Out<double> taps, const IirDesign& design) noexcept {
  return detail::designIir(zorsIIRGenHighpass_64f, taps, design).status;
}

}  // namespace zors

#endif
