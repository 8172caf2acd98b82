// One transform: the small kernels, or the staged path.
#pragma once

#include "transforms/fft_small.h"
#include "transforms/fft_stages.h"

namespace zors::fft {

// A block of so many points stays in the first-level cache while all stages that fit it run.
template <class T> inline constexpr int stageBlockOrder = sizeof(T) == 4 ? 11 : 10;

// The work array where there is none but dst's memory: interleaved points of a destination on a vector boundary.
template <class T> T* workInPlace(Interleaved<const T> src, Interleaved<T> dst) {
  return src.points != dst.points && reinterpret_cast<std::uintptr_t>(dst.points) % 32 == 0 ? dst.points : nullptr;
}
template <class T> T* workInPlace(SplitPoints<const T>, SplitPoints<T>) { return nullptr; }

// Stages of an array of 2^bits points while their spans fit, from `done` bits on; not the last stage of the order.
template <bool inverse, class T> int runStages(T* x, int bits, int order, int blockBits, int done, const T*& twiddles) {
  while (done + stageBits(order, done) < order && done + stageBits(order, done) <= blockBits) {
    const std::size_t span = std::size_t{1} << done, points = std::size_t{1} << bits;
    const int stage_ = stageBits(order, done);
    if (stage_ == 2) stage<4, inverse>(x, points, span, twiddles);
    else stage<8, inverse>(x, points, span, twiddles);
    twiddles += 2 * span * ((std::size_t{1} << stage_) - 1);
    done += stage_;
  }
  return done;
}

template <bool inverse, class T, template <class> class Array>
void stagedTransform(const Spec<T>& spec, int order, Array<const T> src, Array<T> dst, T* work) {
  constexpr int L = fullLanes<T>;
  const std::size_t n = std::size_t{1} << order, sequences = n / 16;
  if (T* const inPlace = workInPlace<T>(src, dst)) work = inPlace;

  // The reversal of j + i is that of j, plus that of i in front.
  for (std::size_t j = 0; j < sequences; j += L) {
    T* const place = work + 2 * 16 * std::size_t(spec.bitReverse[j / L]);
    firstPass<inverse, L, T>(src, j, sequences, spec.twiddles, [&](int i) ZORS_INLINE_LAMBDA {
      const int reversed = L == 8 ? residuePlace<8>(i) : residuePlace<4>(i);
      return place + 2 * std::size_t(reversed) * (n / L);
    });
  }

  const T* twiddles = nullptr;
  int done = firstPassBits;
  const int blockOrder = order < stageBlockOrder<T> ? order : stageBlockOrder<T>;
  const std::size_t block = std::size_t{1} << blockOrder;
  for (std::size_t at = 0; at < n; at += block) {
    twiddles = spec.twiddles + firstPassTwiddleValues;
    done = runStages<inverse>(work + 2 * at, blockOrder, order, blockOrder, firstPassBits, twiddles);
  }
  done = runStages<inverse>(work, order, order, order, done, twiddles);

  const std::size_t span = std::size_t{1} << done;
  const bool scaled = spec.scales(inverse), eight = order - done == 3;
  if (eight && scaled) lastStage<8, inverse, true>(work, span, twiddles, dst, spec.scale);
  else if (eight) lastStage<8, inverse, false>(work, span, twiddles, dst, spec.scale);
  else if (scaled) lastStage<4, inverse, true>(work, span, twiddles, dst, spec.scale);
  else lastStage<4, inverse, false>(work, span, twiddles, dst, spec.scale);
}

template <bool inverse, class T, template <class> class Array>
void transformOneWay(const Spec<T>& spec, int order, Array<const T> src, Array<T> dst, Zor8u* work) {
  if (order > largestSmallOrder) stagedTransform<inverse, T>(spec, order, src, dst, reinterpret_cast<T*>(work));
  else if (spec.scales(inverse)) smallTransform<inverse, true, T>(order, src, dst, spec.scale);
  else smallTransform<inverse, false, T>(order, src, dst, spec.scale);
}

}  // namespace zors::fft
