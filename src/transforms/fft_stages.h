// The passes of a staged transform. Work arrays hold blocks of parts, the parts of a butterfly in the order of their
// bit-reversed residues; a stage turns `radix` parts of `span` points into one.
#pragma once

#include "transforms/fft_butterfly.h"
#include "transforms/fft_tables.h"

namespace zors::fft {

// Two radix-4 stages of the points j, j + step, ... j + 15 step of L sequences, the first without twiddles, the second with
// those of 16 points (single pairs). The 16 results of sequence j + i go to place(i), in the layout of work arrays.
template <bool inverse, int L, class T, class Place, template <class> class Source>
ZORS_INLINE void firstPass(Source<const T> src, std::size_t j, std::size_t step, const T* twiddles, Place place) {
  alignas(32) T rows[16 * 2 * L];
  const auto row = [&](int i) ZORS_INLINE_LAMBDA { return rows + 2 * L * i; };
  simd::unrolled<4>([&](auto u) ZORS_INLINE_LAMBDA {
    Parts<T, L, 4> x;
    simd::unrolled<4>([&](auto q) ZORS_INLINE_LAMBDA { x.at[q] = src.template load<L>(j + step * std::size_t(u + 4 * q)); });
    const auto y = butterfly<4, inverse>(x);
    simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA { storePoints<L>(row(4 * u + k), y.at[k]); });
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
  });
  constexpr int full = fullLanes<T>, columns = unitColumns<T>;
  simd::unrolled<L / columns>([&](auto unit) ZORS_INLINE_LAMBDA {
    simd::unrolled<2 * 16 / full>([&](auto half) ZORS_INLINE_LAMBDA {  // real and imaginary parts by turns
      const T* from = rows + columns * unit + L * (half % 2) + 2 * L * full * (half / 2);
      transposeUnit(std::type_identity<T>{}, [&](int i) ZORS_INLINE_LAMBDA { return from + 2 * L * i; },
                    [&](int column, auto x) ZORS_INLINE_LAMBDA {
                      storeLanes<full>(place(Source<const T>::sourcePoint(columns * unit + column, L)) + full * half, x);
                    });
    });
  });
}

// The parts of a butterfly at k, turned by their twiddles.
template <int radix, bool inverse, class T> ZORS_INLINE Parts<T, fullLanes<T>, radix> turnedParts(const T* at, std::size_t span, const T* twiddles) {
  constexpr int L = fullLanes<T>;
  Parts<T, L, radix> t;
  t.at[0] = loadPoints<L>(at);
  simd::unrolled<radix - 1>([&](auto i) ZORS_INLINE_LAMBDA {
    constexpr int q = i + 1;
    t.at[q] = twiddle<inverse>(loadPoints<L>(twiddles + 2 * L * i), loadPoints<L>(at + 2 * span * std::size_t(residuePlace<radix>(q))));
  });
  return t;
}

// One stage over an array, in place.
template <int radix, bool inverse, class T> [[gnu::flatten]] void stage(T* x, std::size_t points, std::size_t span, const T* twiddles) {
  constexpr int L = fullLanes<T>;
  for (T* const end = x + 2 * points; x != end; x += 2 * span * radix) {
    const T* w = twiddles;
    for (std::size_t k = 0; k < span; k += L, w += 2 * L * (radix - 1)) {
      T* const at = x + 2 * k;
      const auto y = butterfly<radix, inverse>(turnedParts<radix, inverse>(at, span, w));
      simd::unrolled<radix>([&](auto m) ZORS_INLINE_LAMBDA { storePoints<L>(at + 2 * span * std::size_t(m), y.at[m]); });
    }
  }
}

// The last stage: from the work array, which may be dst's memory, to points in natural order, scaled on the way.
template <int radix, bool inverse, bool scaled, class T, class Target>
[[gnu::flatten]] void lastStage(const T* x, std::size_t span, const T* twiddles, Target dst, T scale) {
  constexpr int L = fullLanes<T>;
  const auto factor = allLanes<L>(scale);
  for (std::size_t k = 0; k < span; k += L, twiddles += 2 * L * (radix - 1)) {
    const auto y = butterfly<radix, inverse>(turnedParts<radix, inverse>(x + 2 * k, span, twiddles));
    simd::unrolled<radix>([&](auto m) ZORS_INLINE_LAMBDA { dst.template store<L>(k + span * std::size_t(m), scaled ? y.at[m] * factor : y.at[m]); });
  }
}

}  // namespace zors::fft
