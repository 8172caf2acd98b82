// Sparse filters: taps with their places, and delay lines with room behind the history.
#pragma once

#include <cstring>

#include "frame/check.h"
#include "frame/memory.h"
#include "frame/part.h"

namespace zors::sparse {

// The order newest samples, oldest first, in an array of twice as many. They stay where they are, and new ones follow
// them, until the array ends.
struct Line {
  Zor32f* samples;
  Zor32s order;
  Zor32s start;

  // The history, with room for count samples behind it, which may be at most order.
  Zor32f* withRoom(Zor32s count) {
    if (start > order - count) {
      std::memmove(samples, samples + start, bytes(order));
      start = 0;
    }
    return samples + start;
  }
  void restart(const Zor32f* newest) {
    start = 0;
    std::memcpy(samples, newest, bytes(order));
  }
  // A caller's delay line has the newest sample first; null stands for zeros.
  void set(const Zor32f* dly) {
    start = 0;
    for (Zor32s k = 0; k < order; ++k) samples[order - 1 - k] = dly == nullptr ? 0.0f : dly[k];
  }
  void get(Zor32f* dly) const {
    for (Zor32s k = 0; k < order; ++k) dly[k] = samples[start + order - 1 - k];
  }
  static std::size_t bytes(Zor32s count) { return static_cast<std::size_t>(count) * sizeof(Zor32f); }
};

// Taps in the order in which products are added, and where their samples stand.
struct Taps {
  Zor32f* values;
  Zor32s* offsets;
  Zor32s count;
};

// sum(i) = start(i) + the products of the taps and in[i + offset], each one fused multiply-add in the order of the
// taps; registers of sums at once.
template <int registers, class Start> ZORS_INLINE auto sums(const Taps& taps, const Zor32f* in, const Start& start) {
  using namespace simd;
  constexpr int lanes = 8 * registers;
  Vec<Zor32f, lanes> sum = start;
  for (Zor32s k = 0; k < taps.count; ++k) sum = fma(same(sum, taps.values[k]), load<lanes>(in + taps.offsets[k]), sum);
  return sum;
}
// The same for less than a register of sums.
ZORS_INLINE simd::Vec<Zor32f, 8> sums(const Taps& taps, const Zor32f* in, simd::Vec<Zor32f, 8> start, int count) {
  for (Zor32s k = 0; k < taps.count; ++k)
    start = fma(simd::same(start, taps.values[k]), simd::loadThenZeros(in + taps.offsets[k], count), start);
  return start;
}

// dst[i] for i < len; reads in[i + offset] of these alone.
[[gnu::flatten]] inline void convolve(const Taps& taps, const Zor32f* in, Zor32f* dst, Zor32s len) {
  using namespace simd;
  const auto tile = [&]<int registers>(std::integral_constant<int, registers>, std::ptrdiff_t i) ZORS_INLINE_LAMBDA {
    store(dst + i, sums<registers>(taps, in + i, splat<Vec<Zor32f, 8 * registers>>(0)));
  };
  std::ptrdiff_t i = 0;
  for (; i + 64 <= len; i += 64) tile(std::integral_constant<int, 8>{}, i);
  for (; i + 8 <= len; i += 8) tile(std::integral_constant<int, 1>{}, i);
  if (i < len) storePart(dst + i, sums(taps, in + i, splat<Vec<Zor32f, 8>>(0), int(len - i)), int(len - i));
}

// The filter of a block: behind the history as far as windows reach into it, then straight from the source.
inline void filterBlock(const Taps& taps, Line& line, const Zor32f* src, Zor32f* dst, Zor32s len) {
  const Zor32s order = line.order, first = len <= order ? len : order;
  Zor32f* history = line.withRoom(first);
  std::memcpy(history + order, src, Line::bytes(first));
  convolve(taps, history, dst, first);
  if (len <= order) {
    line.start += len;
  } else {
    line.restart(src + len - order);
    convolve(taps, src, dst + order, len - order);
  }
}

// Positions rise strictly from at least `lowest`.
inline bool risingFrom(const Zor32s* positions, Zor32s count, Zor32s lowest) {
  if (positions[0] < lowest) return false;
  for (Zor32s k = 1; k < count; ++k)
    if (positions[k] <= positions[k - 1]) return false;
  return true;
}

}  // namespace zors::sparse
