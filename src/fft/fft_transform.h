// One transform: the small kernels, the ordinary staged path, or the blocked path.
#pragma once

#include "fft/fft_blocked.h"
#include "fft/fft_small.h"
#include "zors/types.h"

namespace zors::fft {

// The work array is dst's own memory where that is interleaved and on a vector boundary.
template <class T> WorkPoints<T> workArray(Interleaved<const T> src, Interleaved<T> dst, T* work) {
  return {src.points != dst.points && reinterpret_cast<std::uintptr_t>(dst.points) % 32 == 0 ? dst.points : work};
}
template <class T> WorkPoints<T> workArray(SplitPoints<const T>, SplitPoints<T>, T* work) { return {work}; }

template <bool inverse, class T, template <class> class Array>
void stagedTransform(const Spec<T>& spec, int order, Array<const T> src, Array<T> dst, T* buffer) {
  constexpr int L = fullLanes<T>;
  const std::size_t n = std::size_t{1} << order;
  const WorkPoints<T> work = workArray<T>(src, dst, buffer);

  // The reversal of j + i is that of j, plus that of i in front.
  for (std::size_t j = 0; j < n / 16; j += L) {
    const std::size_t place = 16 * std::size_t(spec.bitReverse[j / L]);
    firstPass<inverse, 2, T>(src, j, n / 16, spec.twiddles, work, [&](int i) ZORS_INLINE_LAMBDA {
      return place + std::size_t(residuePlace<L>(i)) * (n / L);
    });
  }

  const T* twiddles = spec.twiddles;
  const int lastBits = lastStageBits(order);
  runInnerStages<inverse>(work, 0, order, order - lastBits, twiddles);
  const std::size_t span = n >> lastBits;
  const bool scaled = spec.scales(inverse);
  if (lastBits == 3 && scaled)
    lastStage<8, inverse, true>(work, span, twiddles, dst, spec.scale);
  else if (lastBits == 3)
    lastStage<8, inverse, false>(work, span, twiddles, dst, spec.scale);
  else if (scaled)
    lastStage<4, inverse, true>(work, span, twiddles, dst, spec.scale);
  else
    lastStage<4, inverse, false>(work, span, twiddles, dst, spec.scale);
}

template <bool inverse, class T, template <class> class Array>
void transformOneWay(const Spec<T>& spec, int order, Array<const T> src, Array<T> dst, Zor8u* work) {
  if (order >= blockedOrder<T>)
    blockedTransform<inverse, T>(spec, order, src, dst, reinterpret_cast<T*>(work));
  else if (order > largestSmallOrder)
    stagedTransform<inverse, T>(spec, order, src, dst, reinterpret_cast<T*>(work));
  else if (spec.scales(inverse))
    smallTransform<inverse, true, T>(order, src, dst, spec.scale);
  else
    smallTransform<inverse, false, T>(order, src, dst, spec.scale);
}

}  // namespace zors::fft
