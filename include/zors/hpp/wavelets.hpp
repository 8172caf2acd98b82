/** @file
 *  The Haar transform and two-band filter banks. */
#ifndef ZORS_HPP_WAVELETS_HPP
#define ZORS_HPP_WAVELETS_HPP

#include "zors/hpp/core.hpp"

namespace zors {

namespace detail {

template <class T> struct HaarCalls;
template <> struct HaarCalls<float> {
  static constexpr auto forward = zorsWTHaarFwd_32f;
  static constexpr auto inverse = zorsWTHaarInv_32f;
};
template <> struct HaarCalls<double> {
  static constexpr auto forward = zorsWTHaarFwd_64f;
  static constexpr auto inverse = zorsWTHaarInv_64f;
};
template <> struct HaarCalls<Zor16s> {
  static constexpr auto forward = zorsWTHaarFwd_16s;
  static constexpr auto inverse = zorsWTHaarInv_16s;
};
template <> struct HaarCalls<Zor32s> {
  static constexpr auto forward = zorsWTHaarFwd_32s;
  static constexpr auto inverse = zorsWTHaarInv_32s;
};

inline Outcome bandSizes(std::size_t whole, std::size_t low, std::size_t high) noexcept {
  if (low != (whole + 1) / 2 || high != whole / 2) {
    return {zorStatusBadSize, "the bands have not the upper and the lower half of the length"};
  }
  return sameSizes(whole);
}

// The C functions want a pointer for the upper band of one sample, too, which they leave alone.
template <class S, class L, class H> Outcome haarForward(const S& src, L& low, H& high) noexcept {
  using T = std::ranges::range_value_t<S>;
  const std::size_t size = std::ranges::size(src);
  if (const auto outcome = bandSizes(size, std::ranges::size(low), std::ranges::size(high)); outcome.failed()) {
    return outcome;
  }
  return HaarCalls<T>::forward(passed(src), Zor32s(size), passed(low), size == 1 ? passed(low) : passed(high));
}
template <class L, class H, class D> Outcome haarInverse(const L& low, const H& high, D& dst) noexcept {
  using T = std::ranges::range_value_t<L>;
  const std::size_t size = std::ranges::size(dst);
  if (const auto outcome = bandSizes(size, std::ranges::size(low), std::ranges::size(high)); outcome.failed()) {
    return outcome;
  }
  return HaarCalls<T>::inverse(passed(low), size == 1 ? passed(low) : passed(high), passed(dst), Zor32s(size));
}

}  // namespace detail

/// One level of the Haar transform: low has (n + 1) / 2 elements, high n / 2.
template <Vector S, Vector L, Vector H> void haarForward(const S& src, L&& low, H&& high) {
  detail::check(detail::haarForward(src, low, high));
}
template <Vector S, Vector L, Vector H>
[[nodiscard]] ZorStatus haarForward(std::nothrow_t, const S& src, L&& low, H&& high) noexcept {
  return detail::haarForward(src, low, high).status;
}
template <Vector L, Vector H, Vector D> void haarInverse(const L& low, const H& high, D&& dst) {
  detail::check(detail::haarInverse(low, high, dst));
}
template <Vector L, Vector H, Vector D>
[[nodiscard]] ZorStatus haarInverse(std::nothrow_t, const L& low, const H& high, D&& dst) noexcept {
  return detail::haarInverse(low, high, dst).status;
}

/// Taps and offsets of the two bands of a filter bank, see zors/wavelets.h.
struct FilterBank {
  In<float> low, high;
  int lowOffset = 0, highOffset = 0;
};

/// A stream into two bands, each of half its samples: WaveletForward bank({.low = l, .high = h}).
class WaveletForward {
 public:
  WaveletForward() = default;
  explicit WaveletForward(const FilterBank& bank) { detail::check(make(bank)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const FilterBank& bank) noexcept { return make(bank).status; }

  void process(In<float> src, Out<float> low, Out<float> high) { detail::check(run(src, low, high)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<float> src, Out<float> low, Out<float> high) noexcept {
    return run(src, low, high).status;
  }

 private:
  detail::Outcome make(const FilterBank& b) noexcept {
    for (const std::size_t size : {b.low.size(), b.high.size()}) {
      if (const auto outcome = detail::sameSizes(size); outcome.failed()) return outcome;
    }
    return detail::build(state_, zorsWTFwdInitAlloc_32f, b.low.data(), Zor32s(b.low.size()), b.lowOffset, b.high.data(),
                         Zor32s(b.high.size()), b.highOffset);
  }
  detail::Outcome run(In<float> src, Out<float> low, Out<float> high) noexcept {
    auto outcome = detail::sameSizes(low.size(), high.size());
    if (!outcome.failed()) outcome = detail::sameSizes(src.size(), 2 * low.size());
    if (outcome.failed()) return outcome;
    return zorsWTFwd_32f(src.data(), low.data(), high.data(), Zor32s(low.size()), state_.get());
  }
  detail::Owned<ZorWTFwdState, zorsWTFwdFree_32f> state_;
};

/// Two bands into the stream: twice as many samples as a band has.
class WaveletInverse {
 public:
  WaveletInverse() = default;
  explicit WaveletInverse(const FilterBank& bank) { detail::check(make(bank)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const FilterBank& bank) noexcept { return make(bank).status; }

  void process(In<float> low, In<float> high, Out<float> dst) { detail::check(run(low, high, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<float> low, In<float> high, Out<float> dst) noexcept {
    return run(low, high, dst).status;
  }

 private:
  detail::Outcome make(const FilterBank& b) noexcept {
    for (const std::size_t size : {b.low.size(), b.high.size()}) {
      if (const auto outcome = detail::sameSizes(size); outcome.failed()) return outcome;
    }
    return detail::build(state_, zorsWTInvInitAlloc_32f, b.low.data(), Zor32s(b.low.size()), b.lowOffset, b.high.data(),
                         Zor32s(b.high.size()), b.highOffset);
  }
  detail::Outcome run(In<float> low, In<float> high, Out<float> dst) noexcept {
    auto outcome = detail::sameSizes(low.size(), high.size());
    if (!outcome.failed()) outcome = detail::sameSizes(dst.size(), 2 * low.size());
    if (outcome.failed()) return outcome;
    return zorsWTInv_32f(low.data(), high.data(), Zor32s(low.size()), dst.data(), state_.get());
  }
  detail::Owned<ZorWTInvState, zorsWTInvFree_32f> state_;
};

}  // namespace zors

#endif
