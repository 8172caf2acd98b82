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

// A radix-4 stage of `columns` interleaved sequences, then one of radix `columns`; 4 * columns points.
template <int columns, bool inverse, bool scaled, class T, class Source, class Target>
ZORS_INLINE void twoStages(Source src, Target dst, T scale) {
  constexpr int L = 4;
  Parts<T, L, columns> parts;
  simd::unrolled<columns / L>([&](auto group) ZORS_INLINE_LAMBDA {
    const auto x = loadParts<4, L, T>(src, std::size_t(L * group), columns);
    const auto y = butterfly<4, inverse>(x);
    Lanes<T, L> re[4] = {y.at[0].re, y.at[1].re, y.at[2].re, y.at[3].re},
                im[4] = {y.at[0].im, y.at[1].im, y.at[2].im, y.at[3].im};
    transpose4(re);
    transpose4(im);
    simd::unrolled<4>([&](auto i) ZORS_INLINE_LAMBDA {
      parts.at[L * group + Source::sourcePoint(i, L)] = {re[i], im[i]};
    });
  });
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
