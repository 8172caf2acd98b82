// The passes of a staged transform. Work arrays (WorkPoints, or SplitPoints, which serve as well) hold blocks of parts,
// the parts of a butterfly in the order of their bit-reversed residues; a stage turns `radix` parts of `span` points
// into one.
#pragma once

#include <algorithm>

#include "fft/fft_butterfly.h"
#include "fft/fft_tables.h"

namespace zors::fft {

// Two radix-4 stages of the points j, j + step, ... j + 15 step of L sequences, the first without twiddles, the second
// with those of 16 points (single pairs). The 16 results of sequence j + i go to work from place(i) on.
template <bool inverse, int L, class T, class Work, class Place, template <class> class Source>
ZORS_INLINE void firstPass(Source<const T> src, std::size_t j, std::size_t step, const T* twiddles, Work work,
                           Place place) {
  alignas(32) T rows[16 * 2 * L];
  const auto row = [&](int i) ZORS_INLINE_LAMBDA { return rows + 2 * L * i; };
  src = src.from(j);
  simd::unrolled<4>([&](auto u) ZORS_INLINE_LAMBDA {
    Parts<T, L, 4> x;
    simd::unrolled<4>([&](auto q) ZORS_INLINE_LAMBDA { x.at[q] = src.template load<L>(4 * step * std::size_t(q)); });
    src = src.from(step);
    const auto y = butterfly<4, inverse>(x);
    simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA { storePoints<L>(row(4 * u + k), y.at[k]); });
    keepInMemory(rows);
  });
  simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA {
    Parts<T, L, 4> x;
    x.at[0] = loadPoints<L>(row(k));
    simd::unrolled<3>([&](auto i) ZORS_INLINE_LAMBDA {
      constexpr int q = i + 1;
      const T* const w = twiddles + 2 * (3 * k + i);
      x.at[q] = twiddle<inverse>(Points<T, L>{allLanes<L>(w[0]), allLanes<L>(w[1])}, loadPoints<L>(row(4 * q + k)));
    });
    const auto y = butterfly<4, inverse>(x);
    simd::unrolled<4>([&](auto m) ZORS_INLINE_LAMBDA { storePoints<L>(row(4 * m + k), y.at[m]); });
    keepInMemory(rows);
  });
  constexpr int full = fullLanes<T>;
  Work column[L] = {};
  simd::unrolled<L>([&](auto lane)
                        ZORS_INLINE_LAMBDA { column[lane] = work.from(place(Source<const T>::sourcePoint(lane, L))); });
  simd::unrolled<16 / full>([&](auto part) ZORS_INLINE_LAMBDA {
    const T* const from = row(full * part);
    transposeRows<L>([&](int i) ZORS_INLINE_LAMBDA { return from + 2 * L * i; },
                     [&](int at, auto x)
                         ZORS_INLINE_LAMBDA { storeLanes<full>(column[at].re(std::size_t(full * part)), x); });
    transposeRows<L>([&](int i) ZORS_INLINE_LAMBDA { return from + 2 * L * i + L; },
                     [&](int at, auto x)
                         ZORS_INLINE_LAMBDA { storeLanes<full>(column[at].im(std::size_t(full * part)), x); });
  });
}

// A butterfly at k: its parts turned by their twiddles.
template <int radix, bool inverse, class Work, class T>
ZORS_INLINE auto turnedButterfly(Work work, std::size_t k, std::size_t span, const T* twiddles) {
  constexpr int L = fullLanes<T>;
  return butterfly<radix, inverse, L, T>([&](auto q) ZORS_INLINE_LAMBDA {
    const auto x = loadWork(work, k + span * std::size_t(residuePlace<radix>(q)));
    if constexpr (q == 0)
      return x;
    else
      return twiddle<inverse>(loadPoints<L>(twiddles + 2 * L * (q - 1)), x);
  });
}

// One stage over the points from begin to end, in place.
template <int radix, bool inverse, class Work, class T>
[[gnu::flatten]] void stage(Work work, std::size_t begin, std::size_t end, std::size_t span, const T* twiddles) {
  constexpr int L = fullLanes<T>;
  for (; begin != end; begin += span * radix) {
    const T* w = twiddles;
    for (std::size_t k = begin; k < begin + span; k += L, w += 2 * L * (radix - 1)) {
      const auto y = turnedButterfly<radix, inverse>(work, k, span, w);
      simd::unrolled<radix>([&](auto m) ZORS_INLINE_LAMBDA { storeWork(work, k + span * std::size_t(m), y.at[m]); });
    }
  }
}

// The last stage: from the work array, which may be dst's memory, to points in natural order, scaled on the way.
template <int radix, bool inverse, bool scaled, class Work, class T, class Target>
[[gnu::flatten]] void lastStage(Work work, std::size_t span, const T* twiddles, Target dst, T scale) {
  constexpr int L = fullLanes<T>;
  const auto factor = allLanes<L>(scale);
  for (std::size_t k = 0; k < span; k += L, twiddles += 2 * L * (radix - 1)) {
    const auto y = turnedButterfly<radix, inverse>(work, k, span, twiddles);
    simd::unrolled<radix>([&](auto m) ZORS_INLINE_LAMBDA {
      dst.template store<L>(k + span * std::size_t(m), scaled ? y.at[m] * factor : y.at[m]);
    });
  }
}

// A block of so many points stays in the first-level cache while all stages that fit it run.
template <class T> inline constexpr int stageBlockOrder = sizeof(T) == 4 ? 11 : 10;

// The stages that follow `done` bits of an order and leave at most lastBits done, over the points from begin to end.
// Returns the bits done; twiddles moves on.
template <bool inverse, class Work, class T>
int runStages(Work work, std::size_t begin, std::size_t end, int order, int done, int lastBits, const T*& twiddles) {
  for (int bits = 0; done < order && done + (bits = stageBits(order, done)) <= lastBits; done += bits) {
    const std::size_t span = std::size_t{1} << done;
    if (bits == 2)
      stage<4, inverse>(work, begin, end, span, twiddles);
    else
      stage<8, inverse>(work, begin, end, span, twiddles);
    twiddles += 2 * span * ((std::size_t{1} << bits) - 1);
  }
  return done;
}

// The stages of a transform of 2^order points from `begin` on, between the first pass and lastBits; block by block
// while they fit a block.
template <bool inverse, class Work, class T>
int runInnerStages(Work work, std::size_t begin, int order, int lastBits, const T*& twiddles) {
  const std::size_t n = std::size_t{1} << order;
  const int blockBits = std::min(lastBits, stageBlockOrder<T>);
  const std::size_t block = std::size_t{1} << std::min(order, stageBlockOrder<T>);
  const T* const first = twiddles + firstPassTwiddleValues;
  int done = firstPassBits;
  for (std::size_t at = begin; at < begin + n; at += block) {
    twiddles = first;
    done = runStages<inverse>(work, at, at + block, order, firstPassBits, blockBits, twiddles);
  }
  return runStages<inverse>(work, begin, begin + n, order, done, lastBits, twiddles);
}

}  // namespace zors::fft
