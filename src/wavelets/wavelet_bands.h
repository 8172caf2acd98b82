// The two-band filter bank in polyphase form. A band's filter is two sub-filters, of every second tap each. Forward,
// one meets the stream's samples of even number, the other those of odd number, and both add up to an output; inverse,
// both meet the band's samples, and give the outputs of even and of odd number. So zeros are neither stored nor
// multiplied, and the kernel of both directions is one: two sliding dot products that add up.
#pragma once

#include <algorithm>

#include "frame/object.h"
#include "frame/part.h"
#include "zors/types.h"

namespace zors::wavelets {

using simd::lanesOf;

inline constexpr std::ptrdiff_t blockLen = 512;  // outputs of a band, or pairs of samples, at a time

// out[n] = sum over j of taps[j] * line[n + start + j].
struct SubFilter {
  const Zor32f* taps;
  std::ptrdiff_t tapsLen, start;
};

// Samples, oldest first: a history, then room for a block and for the last vector that reads over its end.
struct Line {
  Zor32f* samples;
  std::ptrdiff_t history;

  static std::ptrdiff_t size(std::ptrdiff_t history) { return history + blockLen + lanesOf<Zor32f>; }
  static Line lay(Layout& block, std::ptrdiff_t history) {
    const Line line{block.take<Zor32f>(std::size_t(size(history))), history};
    if (line.samples != nullptr) std::fill_n(line.samples, size(history), 0.0f);
    return line;
  }
  Zor32f* room() const { return samples + history; }
  void clear() const { std::fill_n(samples, history, 0.0f); }
  // After count samples in the room: the newest become the history. A vector's read is ahead of all stores.
  void advance(std::ptrdiff_t count) const {
    constexpr int lanes = lanesOf<Zor32f>;
    for (std::ptrdiff_t i = 0; i < history; i += lanes)
      simd::store(samples + i, simd::load<lanes>(samples + count + i));
  }
};

// Every second tap from `first`, 0 or 1, on, the last of them first.
inline SubFilter everySecond(Layout& block, const Zor32f* taps, std::ptrdiff_t tapsLen, std::ptrdiff_t first,
                             std::ptrdiff_t start) {
  const std::ptrdiff_t count = (tapsLen - first + 1) / 2;
  auto* const own = block.take<Zor32f>(std::size_t(count));
  for (std::ptrdiff_t j = 0; own != nullptr && j < count; ++j) own[j] = taps[first + 2 * (count - 1 - j)];
  return {own, count, start};
}

template <int registers> using Outputs = simd::Vec<Zor32f, registers * lanesOf<Zor32f>>;

// registers of outputs from the place `at` on, added to `sum`, tap by tap.
template <int registers>
ZORS_INLINE Outputs<registers> outputsAt(std::ptrdiff_t at, const SubFilter& f, const Line& line,
                                         Outputs<registers> sum = simd::splat<Outputs<registers>>(0)) {
  constexpr int lanes = lanesOf<Zor32f>;
  using One = simd::Vec<Zor32f, lanes>;
  const Zor32f *const taps = f.taps, *const in = line.samples + at + f.start;
  for (std::ptrdiff_t j = 0; j < f.tapsLen; ++j) {
    const One tap = simd::held(simd::splat<One>(taps[j]));
    simd::unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
      sum.r[r] = simd::fma(tap, simd::load<lanes>(in + j + r * lanes), One{{sum.r[r]}}).r[0];
    });
  }
  return sum;
}

// run(registers, at, count) over n outputs: count is what the registers hold, but less in the last one.
template <int widest, class Run> ZORS_INLINE void inTiles(std::ptrdiff_t n, Run run) {
  constexpr int lanes = lanesOf<Zor32f>;
  std::ptrdiff_t at = 0;
  const auto one = [&](auto registers) ZORS_INLINE_LAMBDA {
    run(registers, at, std::min<std::ptrdiff_t>(n - at, registers * lanes));
    at += registers * lanes;
  };
  while (n - at >= widest * lanes) one(std::integral_constant<int, widest>{});
  if (n - at >= 4 * lanes) one(std::integral_constant<int, 4>{});
  if (n - at >= 2 * lanes) one(std::integral_constant<int, 2>{});
  while (n > at) one(std::integral_constant<int, 1>{});
}

// ---- States -------------------------------------------------------------------------------------

struct BandSpec {
  const Zor32f* taps;
  Zor32s tapsLen, offset;
};

// What both directions' states are. A Band has
//   lay(block, spec)   the one account of its memory, built where there is a block; lines start with zeros,
//   delayLen           how many samples get and set of its delay line transfer,
//   delayed(i)         those samples, oldest first,
//   clear()            zeros for all the history.
template <class Band> struct Bank {
  Tag tag = 0;
  Zor8u* owned = nullptr;
  Band low, high;
};

template <Tag tag, class State>
ZorStatus initAllocBank(State** stateOut, const Zor32f* tapsLow, Zor32s lenLow, Zor32s offsLow, const Zor32f* tapsHigh,
                        Zor32s lenHigh, Zor32s offsHigh) {
  return check()
      .pointers(stateOut, tapsLow)
      .size(lenLow)
      .pointers(tapsHigh)
      .size(lenHigh)
      .require(offsLow >= -1 && offsHigh >= -1, zorStatusBadWaveletFilter)
      .then([&] {
        const auto lay = [&](Layout& block) {
          auto* const state = block.take<State>(1);
          auto low = decltype(State::low)::lay(block, {tapsLow, lenLow, offsLow});
          auto high = decltype(State::high)::lay(block, {tapsHigh, lenHigh, offsHigh});
          if (state != nullptr) {
            *state = {};
            state->tag = tag;
            state->low = low;
            state->high = high;
          }
          return state;
        };
        Layout account(Scratch::alignment);
        lay(account);
        const ZorStatus status = initAllocated(stateOut, account.size(), [&](Zor8u* memory, State** built) {
          Layout block(Scratch::alignment, memory);
          *built = lay(block);
          return zorStatusOk;
        });
        if (status != zorStatusOk) *stateOut = nullptr;
        return status;
      });
}

template <Tag tag, class State> ZorStatus getDelayLines(const State* state, Zor32f* dlyLow, Zor32f* dlyHigh) {
  return check().pointers(state).state(state, tag).pointers(dlyLow, dlyHigh).then([&] {
    const auto get = [](const auto& band, Zor32f* dly) {
      for (std::ptrdiff_t i = 0; i < band.delayLen; ++i) dly[i] = band.delayed(i);
    };
    get(state->low, dlyLow);
    get(state->high, dlyHigh);
  });
}
template <Tag tag, class State>
ZorStatus setDelayLines(const State* state, const Zor32f* dlyLow, const Zor32f* dlyHigh) {
  return check().pointers(state).state(state, tag).pointers(dlyLow, dlyHigh).then([&] {
    const auto set = [](const auto& band, const Zor32f* dly) {
      band.clear();
      for (std::ptrdiff_t i = 0; i < band.delayLen; ++i) band.delayed(i) = dly[i];
    };
    set(state->low, dlyLow);
    set(state->high, dlyHigh);
  });
}

}  // namespace zors::wavelets
