// Straight-line transforms of orders 0 to 6. All work is in registers of four lanes, or one by one below 16 points.
#pragma once

#include <array>

#include "fft/fft_stages.h"
#include "zors/types.h"

namespace zors::fft {

// The records of one stage as constants of the code.
template <class T, int L, int span, int radix>
constexpr auto stageConstants = [] {
  std::array<T, std::size_t(2 * span * (radix - 1))> table{};
  stageRecords<L>(span, radix, staticSineTable<T>(largestSmallOrder), table.data());
  return table;
}();

// x[first + step * q] for q = 0, 1, ...
template <int n, int L, class T, class Source>
ZORS_INLINE Parts<T, L, n> loadParts(Source src, std::size_t first, std::size_t step) {
  Parts<T, L, n> parts;
  simd::unrolled<n>([&](auto q)
                        ZORS_INLINE_LAMBDA { parts.at[q] = src.template load<L>(first + step * std::size_t(q)); });
  return parts;
}
template <bool scaled, int n, int L, class T, class Target>
ZORS_INLINE void storeParts(Target dst, std::size_t first, std::size_t step, const Parts<T, L, n>& parts, T scale) {
  simd::unrolled<n>([&](auto q) ZORS_INLINE_LAMBDA {
    dst.template store<L>(first + step * std::size_t(q), scaled ? parts.at[q] * allLanes<L>(scale) : parts.at[q]);
  });
}

// Eight points. Register i has the points 2i and 2i + 1, so one butterfly of four makes the terms of both residues;
// then terms that end in the same operation are paired. The results are in registers likewise.
template <bool inverse, class T> ZORS_INLINE Group<Lanes<T, 4>, 4> eightPoints(const Group<Lanes<T, 4>, 4>& x) {
  const auto y = butterfly4<inverse>(x.at[0], x.at[1], x.at[2], x.at[3]);
  const auto odd13 = joined<1, 1>(y.at[1], y.at[3]);
  const auto turned13 = minusI<false>(odd13, odd13) * allLanes<4>(halfRoot<T>);
  constexpr int a = inverse ? 3 : 1, b = 4 - a;  // the terms beside 0 and 2
  const auto even0a = joined<0, 0>(y.at[0], y.at[a]), odd0a = joined<1, inverse>(y.at[0], turned13);
  const auto even2b = joined<0, 0>(y.at[2], y.at[b]), odd2b = joined<1, !inverse>(y.at[2], turned13);
  const auto sum = even0a + odd0a, difference = even0a - odd0a, minus = minusI<inverse>(even2b, odd2b),
             plus = plusI<inverse>(even2b, odd2b);
  if constexpr (inverse)  // terms 0 and 7, 4 and 3, 2 and 1, 6 and 5
    return {{joined<0, 1>(sum, minus), joined<0, 1>(minus, difference), joined<0, 1>(difference, plus),
             joined<0, 1>(plus, sum)}};
  else
    return {{sum, minus, difference, plus}};
}
template <class T> ZORS_INLINE Group<Lanes<T, 4>, 4> loadEight(const T* p) {
  return {{loadLanes<4>(p), loadLanes<4>(p + 4), loadLanes<4>(p + 8), loadLanes<4>(p + 12)}};
}
template <bool scaled, class T> ZORS_INLINE void storeEight(T* p, const Group<Lanes<T, 4>, 4>& x, T scale) {
  simd::unrolled<4>(
      [&](auto i) ZORS_INLINE_LAMBDA { storeLanes<4>(p + 4 * i, scaled ? x.at[i] * allLanes<4>(scale) : x.at[i]); });
}

// A radix-4 stage of `columns` interleaved sequences: of each the four terms, in registers.
template <int columns, bool inverse, class T, class Source> ZORS_INLINE Parts<T, 4, columns> firstStage(Source src) {
  constexpr int L = 4;
  Parts<T, L, columns> parts;
  if constexpr (sizeof(T) == 8) {  // as in firstPass
    alignas(32) T rows[4 * 2 * columns];
    simd::unrolled<columns / 4>([&](auto group) ZORS_INLINE_LAMBDA {
      Registers<T, 2> x[4];
      simd::unrolled<4>([&](auto q) ZORS_INLINE_LAMBDA {
        x[q] = src.template loadRegisters<2>(std::size_t(4 * group + columns * q));
      });
      simd::unrolled<2>([&](auto i) ZORS_INLINE_LAMBDA {
        const auto y = butterfly4<inverse>(x[0].at[i], x[1].at[i], x[2].at[i], x[3].at[i]);
        simd::unrolled<4>(
            [&](auto k) ZORS_INLINE_LAMBDA { storeLanes<L>(rows + 2 * columns * k + 8 * group + 4 * i, y.at[k]); });
      });
    });
    keepInMemory(rows);
    simd::unrolled<columns>([&](auto i) ZORS_INLINE_LAMBDA {
      parts.at[i / 4 * 4 + Source::registerPoint(i % 4, 2)] =
          loadTerms([&](int k) ZORS_INLINE_LAMBDA { return rows + 2 * columns * k + 2 * i; });
    });
  } else {
    const auto y = butterfly<4, inverse>(loadParts<4, columns, T>(src, 0, columns));
    Lanes<T, columns> re[4] = {y.at[0].re, y.at[1].re, y.at[2].re, y.at[3].re},
                      im[4] = {y.at[0].im, y.at[1].im, y.at[2].im, y.at[3].im};
    transpose4(re);
    transpose4(im);
    simd::unrolled<columns>([&](auto i) ZORS_INLINE_LAMBDA {
      parts.at[Source::sourcePoint(i, columns)] = {half<i / 4>(re[i % 4]), half<i / 4>(im[i % 4])};
    });
  }
  return parts;
}

// The same, then a stage of radix `columns`; 4 * columns points.
template <int columns, bool inverse, bool scaled, class T, class Source, class Target>
ZORS_INLINE void twoStages(Source src, Target dst, T scale) {
  constexpr int L = 4;
  auto parts = firstStage<columns, inverse, T>(src);
  simd::unrolled<columns - 1>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto w = loadPoints<L>(stageConstants<T, L, 4, columns>.data() + 2 * L * i);
    parts.at[i + 1] = twiddle<inverse>(w, parts.at[i + 1]);
  });
  storeParts<scaled>(dst, 0, 4, butterfly<columns, inverse>(parts), scale);
}

// The first pass's twiddles of 64 points.
template <class T>
constexpr auto firstPassConstants = [] {
  std::array<T, firstPassTwiddleValues<T>> table{};
  firstPassRecords(staticSineTable<T>(largestSmallOrder), table.data());
  return table;
}();

template <bool inverse, bool scaled, class T, class Source, class Target>
[[gnu::flatten]] void smallTransform(int order, Source src, Target dst, T scale) {
  switch (order) {
    case 0:
      return storeParts<scaled>(dst, 0, 1, loadParts<1, 1, T>(src, 0, 1), scale);
    case 1: {
      const auto x = loadParts<2, 1, T>(src, 0, 1);
      return storeParts<scaled>(dst, 0, 1, Parts<T, 1, 2>{{x.at[0] + x.at[1], x.at[0] - x.at[1]}}, scale);
    }
    case 2:
      return storeParts<scaled>(dst, 0, 1, butterfly<4, inverse>(loadParts<4, 1, T>(src, 0, 1)), scale);
    case 3:
      if constexpr (std::is_same_v<Target, Interleaved<T>>)
        return storeEight<scaled>(dst.points, eightPoints<inverse>(loadEight(src.points)), scale);
      else
        return storeParts<scaled>(dst, 0, 1, butterfly<8, inverse>(loadParts<8, 1, T>(src, 0, 1)), scale);
    case 4:
      return twoStages<4, inverse, scaled>(src, dst, scale);
    case 5:
      return twoStages<8, inverse, scaled>(src, dst, scale);
    default: {
      alignas(32) T points[2 * 64];
      const WorkPoints<T> work{points};
      firstPass<inverse, 8 / fullLanes<T>>(src, 0, 4, firstPassConstants<T>.data(), work, [](int j) ZORS_INLINE_LAMBDA {
        return std::size_t(16 * residuePlace<4>(j));
      });
      lastStage<4, inverse, scaled>(work, 16, stageConstants<T, fullLanes<T>, 16, 4>.data(), dst, scale);
    }
  }
}

}  // namespace zors::fft
