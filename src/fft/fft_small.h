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

// The first pass of 64 points of 32 bits. Four sequences fill half a register: a register has two parts of one term
// after the first stage, and two terms, k and k + 2, of one part for the second.
template <class T>
constexpr auto pairedTwiddles = [] {
  std::array<T, 2 * 3 * 16> table{};
  const auto sines = staticSineTable<T>(largestSmallOrder);
  for (std::size_t pair = 0; pair < 2; ++pair)
    for (std::size_t q = 1; q < 4; ++q)
      for (std::size_t lane = 0; lane < 8; ++lane) {
        const auto w = sines.rotation(q * (pair + lane / 4 * 2), 16);
        table[16 * (3 * pair + q - 1) + lane] = w.re;
        table[16 * (3 * pair + q - 1) + lane + 8] = w.im;
      }
  return table;
}();
template <bool inverse, class Source> ZORS_INLINE void firstPass64(Source src, WorkPoints<Zor32f> work) {
  using Terms = Parts<Zor32f, 8, 4>;
  Terms terms[2], joined[2];
  simd::unrolled<2>([&](auto half) ZORS_INLINE_LAMBDA {
    terms[half] = butterfly<4, inverse, 8, Zor32f>(
        [&](auto q) ZORS_INLINE_LAMBDA { return src.loadInOrder(std::size_t(8 * half + 16 * q)); });
  });
  simd::unrolled<2>([&](auto k) ZORS_INLINE_LAMBDA {
    joined[k] = butterfly<4, inverse, 8, Zor32f>([&](auto q) ZORS_INLINE_LAMBDA {
      constexpr int select = q % 2 == 0 ? 0x20 : 0x31;
      const auto &a = terms[q / 2].at[k], &b = terms[q / 2].at[k + 2];
      const Points<Zor32f, 8> x = {{_mm256_permute2f128_ps(a.re.r, b.re.r, select)},
                                   {_mm256_permute2f128_ps(a.im.r, b.im.r, select)}};
      if constexpr (q == 0)
        return x;
      else
        return twiddle<inverse>(loadPoints<8>(pairedTwiddles<Zor32f>.data() + 16 * (3 * k + q - 1)), x);
    });
  });
  simd::unrolled<2>([&](auto half) ZORS_INLINE_LAMBDA {
    const auto &r0 = joined[0].at[2 * half], &r1 = joined[1].at[2 * half], &r2 = joined[0].at[2 * half + 1],
               &r3 = joined[1].at[2 * half + 1];
    const auto place = [&](int j) ZORS_INLINE_LAMBDA { return std::size_t(16 * residuePlace<4>(j) + 8 * half); };
    transposeHalves<0>(r0.re.r, r1.re.r, r2.re.r, r3.re.r,
                       [&](int j, auto x) ZORS_INLINE_LAMBDA { storeLanes<8>(work.re(place(j)), x); });
    transposeHalves<0>(r0.im.r, r1.im.r, r2.im.r, r3.im.r,
                       [&](int j, auto x) ZORS_INLINE_LAMBDA { storeLanes<8>(work.im(place(j)), x); });
  });
}

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
      if constexpr (sizeof(T) == 4)
        firstPass64<inverse>(src, work);
      else
        firstPass<inverse, 4>(src, 0, 4, stageConstants<T, 1, 4, 4>.data(), work,
                              [](int j) ZORS_INLINE_LAMBDA { return std::size_t(16 * residuePlace<4>(j)); });
      lastStage<4, inverse, scaled>(work, 16, stageConstants<T, fullLanes<T>, 16, 4>.data(), dst, scale);
    }
  }
}

}  // namespace zors::fft
