// The passes of a staged transform. Work arrays (WorkPoints, or SplitPoints, which serve as well) hold blocks of parts,
// the parts of a butterfly in the order of their bit-reversed residues; a stage turns `radix` parts of `span` points
// into one.
#pragma once

#include <algorithm>

#include "fft/fft_butterfly.h"
#include "fft/fft_tables.h"

namespace zors::fft {

// Of four rows, row(k) for term k, the half registers there: interleaved points of one sequence, or of two of 32 bits.
// All terms in a register, in an order of its own: in 32 bits both sequences of the terms 0, 1 | 2, 3, in 64 bits the
// terms 0, 2 | 1, 3, which is lane order. storeTerms knows it.
template <class Row> ZORS_INLINE auto loadTerms(Row row) {
  if constexpr (std::is_same_v<std::remove_cvref_t<decltype(*row(0))>, Zor32f>) {
    const auto both = [&](int k) ZORS_INLINE_LAMBDA {
      return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(row(k))), _mm_loadu_ps(row(k + 2)), 1);
    };
    const __m256 a = both(0), b = both(1);
    return Points<Zor32f, 8>{{_mm256_shuffle_ps(a, b, 0x88)}, {_mm256_shuffle_ps(a, b, 0xDD)}};
  } else {
    const auto both = [&](int k) ZORS_INLINE_LAMBDA {
      return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(row(k))), _mm_loadu_pd(row(k + 1)), 1);
    };
    const __m256d a = both(0), b = both(2);
    return Points<Zor64f, 4>{{_mm256_unpacklo_pd(a, b)}, {_mm256_unpackhi_pd(a, b)}};
  }
}
// The results of a sequence, y.at[m] its terms 4m to 4m + 3, to 16 points of a work array; of 32 bits sequence i of the
// two.
template <int i, class Work> ZORS_INLINE void storeTerms(Work work, const Parts<Zor32f, 8, 4>& y) {
  constexpr int select = i == 0 ? 0x88 : 0xDD;
  simd::unrolled<2>([&](auto m) ZORS_INLINE_LAMBDA {
    const auto &a = y.at[2 * m], &b = y.at[2 * m + 1];
    storeLanes<8>(work.re(std::size_t(8 * m)), Lanes<Zor32f, 8>{_mm256_shuffle_ps(a.re.r, b.re.r, select)});
    storeLanes<8>(work.im(std::size_t(8 * m)), Lanes<Zor32f, 8>{_mm256_shuffle_ps(a.im.r, b.im.r, select)});
  });
}
template <int, class Work> ZORS_INLINE void storeTerms(Work work, const Parts<Zor64f, 4, 4>& y) {
  simd::unrolled<4>([&](auto m) ZORS_INLINE_LAMBDA {
    storeLanes<4>(work.re(std::size_t(4 * m)), y.at[m].re);
    storeLanes<4>(work.im(std::size_t(4 * m)), y.at[m].im);
  });
}

// Two radix-4 stages of the points j, j + step, ... j + 15 step of sequences j, j + 1, ..., the first without twiddles,
// the second with those of 16 points (firstPassTwiddles). The 16 results of sequence j + i go to work from place(i) on.
//
// The first stage has no twiddles, so it runs on interleaved points as they are; lanes are sequences. Its results wait
// in memory as rows, one for each term and residue, and the second stage, whose lanes are the four terms, takes a
// sequence (two of 32 bits) out of the rows by loads of half registers. So points are parted and transposed at once.
template <bool inverse, int registers, class T, class Work, class Place, template <class> class Source>
ZORS_INLINE void firstPass(Source<const T> src, std::size_t j, std::size_t step, const T* twiddles, Work work,
                           Place place) {
  constexpr int L = fullLanes<T>;
  alignas(32) T rows[16 * registers * L];
  const auto row = [&](int u, int k) ZORS_INLINE_LAMBDA { return rows + registers * L * (4 * u + k); };
  src = src.from(j);
  simd::unrolled<4>([&](auto u) ZORS_INLINE_LAMBDA {
    Registers<T, registers> x[4];
    simd::unrolled<4>(
        [&](auto q) ZORS_INLINE_LAMBDA { x[q] = src.template loadRegisters<registers>(4 * step * std::size_t(q)); });
    src = src.from(step);
    simd::unrolled<registers>([&](auto i) ZORS_INLINE_LAMBDA {
      const auto y = butterfly4<inverse>(x[0].at[i], x[1].at[i], x[2].at[i], x[3].at[i]);
      simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA { storeLanes<L>(row(u, k) + L * i, y.at[k]); });
    });
  });
  keepInMemory(rows);
  constexpr int halves = 2 * registers, together = 16 / (2 * int{sizeof(T)});  // sequences in half a register
  simd::unrolled<halves>([&](auto half) ZORS_INLINE_LAMBDA {
    const auto y = butterfly<4, inverse, L, T>([&](auto u) ZORS_INLINE_LAMBDA {
      const auto x = loadTerms([&](int k) ZORS_INLINE_LAMBDA { return row(u, k) + L / 2 * half; });
      if constexpr (u == 0)
        return x;
      else
        return twiddle<inverse>(loadPoints<L>(twiddles + 2 * L * (u - 1)), x);
    });
    simd::unrolled<together>([&](auto i) ZORS_INLINE_LAMBDA {
      const auto column = work.from(place(Source<const T>::registerPoint(together * half + i, registers)));
      storeTerms<i>(column, y);
    });
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
  const T* const first = twiddles + firstPassTwiddleValues<T>;
  int done = firstPassBits;
  for (std::size_t at = begin; at < begin + n; at += block) {
    twiddles = first;
    done = runStages<inverse>(work, at, at + block, order, firstPassBits, blockBits, twiddles);
  }
  return runStages<inverse>(work, begin, begin + n, order, done, lastBits, twiddles);
}

}  // namespace zors::fft
