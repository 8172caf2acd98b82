// Channels of equal cascades, one to a lane: each lane takes the steps of a single sample (iir_step.h), in the same
// roundings.
#pragma once

#include <algorithm>

#include "iir/iir_columns.h"
#include "iir/iir_step.h"

namespace zors::iir {

// From as many channels on they are filtered together; fewer look ahead, each by itself.
template <class T> inline constexpr Zor32s fewestTogether = iirLanes<T> / 2;

// Sections of all lanes as they are kept during a call: taps and registers.
template <class T, IirForm form> class SectionsTogether {
 public:
  static constexpr Zor32s most = 16;

  // Of lane l those of states[l]; idle lanes repeat the last one.
  SectionsTogether(ZorIIRState* const* states, Zor32s channels, Zor32s first, Zor32s count)
      : states_(states), channels_(channels), first_(first), count_(count) {
    eachLane([&](int lane, const T* taps, const T* registers) {
      for (Zor32s s = 0; s < count_; ++s) {
        for (int k = 0; k < 5; ++k) sections_[s].taps[k][lane] = k < 3 ? taps[5 * s + k] : -taps[5 * s + k];
        for (int k = 0; k < registersEach; ++k) sections_[s].registers[k][lane] = registers[registersEach * s + k];
      }
    });
  }
  void giveRegisters() const {
    eachLane([&](int lane, const T*, T* registers) {
      for (Zor32s s = 0; s < count_; ++s)
        for (int k = 0; k < registersEach; ++k) registers[registersEach * s + k] = sections_[s].registers[k][lane];
    });
  }

  // One sample a lane in each register.
  ZORS_INLINE void filter(Square<T>& x) {
    for (Zor32s s = 0; s < count_; ++s) {
      Section& section = sections_[s];
      const auto taps = [&](int k) ZORS_INLINE_LAMBDA { return simd::load<lanes>(section.taps[k]); };
      const auto b0 = taps(0), b1 = taps(1), b2 = taps(2), minusA1 = taps(3), minusA2 = taps(4);
      simd::Vec<T, lanes> d[registersEach];
      simd::unrolled<registersEach>([&](auto k) ZORS_INLINE_LAMBDA { d[k] = simd::load<lanes>(section.registers[k]); });
      simd::unrolled<lanes>([&](auto k) ZORS_INLINE_LAMBDA {
        if constexpr (form == IirForm::cascade) {
          const auto y = simd::fma(b0, x[k], d[0]);
          d[0] = simd::fma(minusA1, y, simd::fma(b1, x[k], d[1]));
          d[1] = simd::fma(minusA2, y, simd::mul(b2, x[k]));
          x[k] = y;
        } else {
          const auto past = simd::fma(minusA1, d[2], simd::mul(minusA2, d[3]));
          const auto y = simd::fma(b0, x[k], simd::fma(b1, d[0], simd::fma(b2, d[1], past)));
          d[1] = d[0];
          d[0] = x[k];
          d[3] = d[2];
          d[2] = y;
          x[k] = y;
        }
      });
      simd::unrolled<registersEach>([&](auto k) ZORS_INLINE_LAMBDA { simd::store(section.registers[k], d[k]); });
    }
  }

 private:
  static constexpr int lanes = iirLanes<T>, registersEach = form == IirForm::cascade ? 2 : 4;
  struct Section {
    alignas(32) T taps[5][lanes];
    alignas(32) T registers[registersEach][lanes];
  };

  template <class F> void eachLane(F&& f) const {
    for (int lane = 0; lane < lanes; ++lane) {
      const ZorIIRState& state = *states_[std::min(lane, channels_ - 1)];
      f(lane, static_cast<const T*>(state.taps) + 5 * std::ptrdiff_t{first_},
        static_cast<T*>(state.dlyLine) + registersEach * std::ptrdiff_t{first_});
    }
  }

  ZorIIRState* const* states_;
  Zor32s channels_, first_, count_;
  Section sections_[most];
};

// At most a lane's worth of channels.
template <class T, IirForm form>
void filterTogether(const T* const* srcs, T* const* dsts, Zor32s len, Zor32s channels, ZorIIRState* const* states) {
  using Sections = SectionsTogether<T, form>;
  constexpr int lanes = iirLanes<T>;
  const Zor32s count = states[0]->count, whole = len - len % lanes;
  for (Zor32s first = 0; first < count; first += Sections::most) {
    Sections sections(states, channels, first, std::min(count - first, Sections::most));
    const T* const* from = first == 0 ? srcs : dsts;
    for (Zor32s i = 0; i < whole; i += lanes) {
      Square<T> x;
      loadRows<T>(x, [&](int c) ZORS_INLINE_LAMBDA { return from[std::min(c, channels - 1)] + i; });
      sections.filter(x);
      storeRows<T>(x, [&](int c) ZORS_INLINE_LAMBDA { return dsts[std::min(c, channels - 1)] + i; });
    }
    sections.giveRegisters();
  }
  for (Zor32s c = 0; c < channels; ++c)
    for (Zor32s i = whole; i < len; ++i) dsts[c][i] = step(states[c], srcs[c][i]);
}

}  // namespace zors::iir
