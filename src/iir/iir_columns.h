// Samples in columns: of runs of consecutive samples, one to a lane, the first samples, then the second ones, ... What
// is sequential within a run goes on in all runs at once. A column of complex values is one of real parts and one of
// imaginary parts.
#pragma once

#include "frame/simd.h"
#include "iir/iir_state.h"

namespace zors::iir {

template <class T> using Column = simd::Vec<simd::Part<T>, iirLanes<T> * iirParts<T>>;

// ---- Arithmetic ---------------------------------------------------------------------------------

ZORS_INLINE __m256 minusProduct(__m256 a, __m256 b, __m256 c) { return _mm256_fnmadd_ps(a, b, c); }
ZORS_INLINE __m256d minusProduct(__m256d a, __m256d b, __m256d c) { return _mm256_fnmadd_pd(a, b, c); }

// a b + sum; complex: each part in two fused steps.
template <class P, int L>
ZORS_INLINE simd::Vec<P, L> plusProduct(simd::Vec<P, L> a, simd::Vec<P, L> b, simd::Vec<P, L> sum) {
  if constexpr (L == simd::lanesOf<P>) {
    return simd::fma(a, b, sum);
  } else {
    using Part = simd::Vec<P, L / 2>;
    const Part re{{a.r[0]}}, im{{a.r[1]}}, bRe{{b.r[0]}}, bIm{{b.r[1]}}, sumRe{{sum.r[0]}}, sumIm{{sum.r[1]}};
    return {{minusProduct(im.r[0], bIm.r[0], simd::fma(re, bRe, sumRe).r[0]),
             simd::fma(im, bRe, simd::fma(re, bIm, sumIm)).r[0]}};
  }
}

template <class P, int L> ZORS_INLINE simd::Vec<P, L> product(simd::Vec<P, L> a, simd::Vec<P, L> b) {
  if constexpr (L == simd::lanesOf<P>) {
    return simd::mul(a, b);
  } else {
    using Part = simd::Vec<P, L / 2>;
    const Part re{{a.r[0]}}, im{{a.r[1]}}, bRe{{b.r[0]}}, bIm{{b.r[1]}};
    return {{minusProduct(im.r[0], bIm.r[0], simd::mul(re, bRe).r[0]), simd::fma(im, bRe, simd::mul(re, bIm)).r[0]}};
  }
}

// The value in all lanes.
template <class T> ZORS_INLINE Column<T> column(const T& x) {
  return simd::build<Column<T>>([&](auto part)
                                    ZORS_INLINE_LAMBDA { return simd::splatRegister(components(&x)[part]); });
}

// ---- Across lanes -------------------------------------------------------------------------------

// Lane l takes that of lane l - distance, the first ones those of the last.
template <int distance> ZORS_INLINE __m256 turned(__m256 x) {
  constexpr auto from = [](int lane) { return (lane + 8 - distance) % 8; };
  return _mm256_permutevar8x32_ps(
      x, _mm256_setr_epi32(from(0), from(1), from(2), from(3), from(4), from(5), from(6), from(7)));
}
template <int distance> ZORS_INLINE __m256d turned(__m256d x) {
  constexpr auto from = [](int lane) { return (lane + 4 - distance) % 4; };
  return _mm256_permute4x64_pd(x, from(0) | from(1) << 2 | from(2) << 4 | from(3) << 6);
}
template <int distance, class P, int L> ZORS_INLINE simd::Vec<P, L> turned(simd::Vec<P, L> x) {
  return simd::build<simd::Vec<P, L>>([&](auto part) ZORS_INLINE_LAMBDA { return turned<distance>(x.r[part]); });
}

ZORS_INLINE __m256 lastLane(__m256 x) { return _mm256_permutevar8x32_ps(x, _mm256_set1_epi32(7)); }
ZORS_INLINE __m256d lastLane(__m256d x) { return _mm256_permute4x64_pd(x, 0xFF); }
template <class P, int L> ZORS_INLINE simd::Vec<P, L> lastLane(simd::Vec<P, L> x) {  // in all lanes
  return simd::build<simd::Vec<P, L>>([&](auto part) ZORS_INLINE_LAMBDA { return lastLane(x.r[part]); });
}

ZORS_INLINE __m256 withFirstLane(__m256 x, __m256 first) { return _mm256_blend_ps(x, first, 1); }
ZORS_INLINE __m256d withFirstLane(__m256d x, __m256d first) { return _mm256_blend_pd(x, first, 1); }
template <class P, int L> ZORS_INLINE simd::Vec<P, L> withFirstLane(simd::Vec<P, L> x, simd::Vec<P, L> first) {
  return simd::build<simd::Vec<P, L>>([&](auto part)
                                          ZORS_INLINE_LAMBDA { return withFirstLane(x.r[part], first.r[part]); });
}

// ---- To columns and back ------------------------------------------------------------------------

// Rows and columns of the squares that halves of registers make change places.
ZORS_INLINE void transposeHalves(simd::Vec<Zor32f, 8>* x) {
  const auto low = [](__m256 a, __m256 b) ZORS_INLINE_LAMBDA {  // by integers: these have two ports
    return _mm256_castsi256_ps(_mm256_unpacklo_epi32(_mm256_castps_si256(a), _mm256_castps_si256(b)));
  };
  const auto high = [](__m256 a, __m256 b) ZORS_INLINE_LAMBDA {
    return _mm256_castsi256_ps(_mm256_unpackhi_epi32(_mm256_castps_si256(a), _mm256_castps_si256(b)));
  };
  const __m256 a = low(x[0].r[0], x[1].r[0]), b = high(x[0].r[0], x[1].r[0]);
  const __m256 c = low(x[2].r[0], x[3].r[0]), d = high(x[2].r[0], x[3].r[0]);
  x[0].r[0] = _mm256_shuffle_ps(a, c, 0x44);
  x[1].r[0] = _mm256_shuffle_ps(a, c, 0xEE);
  x[2].r[0] = _mm256_shuffle_ps(b, d, 0x44);
  x[3].r[0] = _mm256_shuffle_ps(b, d, 0xEE);
}
ZORS_INLINE void transposeHalves(simd::Vec<Zor64f, 4>* x) {
  const __m256d a = x[0].r[0], b = x[1].r[0];
  x[0].r[0] = _mm256_shuffle_pd(a, b, 0x0);
  x[1].r[0] = _mm256_shuffle_pd(a, b, 0xF);
}

ZORS_INLINE simd::Vec<Zor32f, 8> loadHalves(const Zor32f* low, const Zor32f* high) {
  return {{_mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(low)), _mm_loadu_ps(high), 1)}};
}
ZORS_INLINE simd::Vec<Zor64f, 4> loadHalves(const Zor64f* low, const Zor64f* high) {
  return {{_mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(low)), _mm_loadu_pd(high), 1)}};
}
ZORS_INLINE void storeHalves(Zor32f* low, Zor32f* high, simd::Vec<Zor32f, 8> x) {
  _mm_storeu_ps(low, _mm256_castps256_ps128(x.r[0]));
  _mm_storeu_ps(high, _mm256_extractf128_ps(x.r[0], 1));
}
ZORS_INLINE void storeHalves(Zor64f* low, Zor64f* high, simd::Vec<Zor64f, 4> x) {
  _mm_storeu_pd(low, _mm256_castpd256_pd128(x.r[0]));
  _mm_storeu_pd(high, _mm256_extractf128_pd(x.r[0], 1));
}

// A square whose row k stands at row(k), as columns.
template <class P> using Square = simd::Vec<P, simd::lanesOf<P>>[simd::lanesOf<P>];
template <class P, class Row> ZORS_INLINE void loadRows(Square<P>& x, Row row) {
  constexpr int half = simd::lanesOf<P> / 2;
  simd::unrolled<half>([&](auto k) ZORS_INLINE_LAMBDA {
    x[k] = loadHalves(row(k), row(k + half));
    x[k + half] = loadHalves(row(k) + half, row(k + half) + half);
  });
  transposeHalves(x);
  transposeHalves(x + half);
}
template <class P, class Row> ZORS_INLINE void storeRows(Square<P>& x, Row row) {
  constexpr int half = simd::lanesOf<P> / 2;
  transposeHalves(x);
  transposeHalves(x + half);
  simd::unrolled<half>([&](auto k) ZORS_INLINE_LAMBDA {
    storeHalves(row(k), row(k + half), x[k]);
    storeHalves(row(k) + half, row(k + half) + half, x[k + half]);
  });
}

template <class T> inline constexpr Zor32s blockLen = Zor32s{iirRun} * iirLanes<T>;

// A block of samples as columns, loaded and stored as they are or as rows: runs are the rows of squares side by side,
// which become columns one below the other.
template <class T> struct ColumnBlock {
  static constexpr int lanes = iirLanes<T>, parts = iirParts<T>, squares = iirRun * parts / lanes;
  Column<T> at[iirRun];

  template <bool rows> ZORS_INLINE static ColumnBlock load(const T* block) {
    const auto* p = components(block);
    ColumnBlock columns;
    if constexpr (rows) {
      simd::unrolled<squares>([&](auto s) ZORS_INLINE_LAMBDA {
        Square<simd::Part<T>> x;
        loadRows<simd::Part<T>>(x, [&](int k) ZORS_INLINE_LAMBDA { return p + (k * squares + s) * lanes; });
        simd::unrolled<lanes>([&](auto k) ZORS_INLINE_LAMBDA {
          columns.at[(s * lanes + k) / parts].r[(s * lanes + k) % parts] = x[k].r[0];
        });
      });
    } else {
      simd::unrolled<iirRun>(
          [&](auto k) ZORS_INLINE_LAMBDA { columns.at[k] = simd::load<lanes * parts>(p + k * lanes * parts); });
    }
    return columns;
  }
  template <bool rows> ZORS_INLINE void store(T* block) const {
    auto* p = components(block);
    if constexpr (rows) {
      simd::unrolled<squares>([&](auto s) ZORS_INLINE_LAMBDA {
        Square<simd::Part<T>> x;
        simd::unrolled<lanes>(
            [&](auto k) ZORS_INLINE_LAMBDA { x[k].r[0] = at[(s * lanes + k) / parts].r[(s * lanes + k) % parts]; });
        storeRows<simd::Part<T>>(x, [&](int k) ZORS_INLINE_LAMBDA { return p + (k * squares + s) * lanes; });
      });
    } else {
      simd::unrolled<iirRun>([&](auto k) ZORS_INLINE_LAMBDA { simd::store(p + k * lanes * parts, at[k]); });
    }
  }
};

// Sample i of blocks in columns.
template <class T> T sampleAt(const T* blocks, Zor32s i) {
  const auto* p = components(blocks + i / blockLen<T> * blockLen<T>);
  const Zor32s at = i % iirRun * iirParts<T> * iirLanes<T> + i % blockLen<T> / iirRun;
  if constexpr (Complex<T>)
    return {p[at], p[at + iirLanes<T>]};
  else
    return p[at];
}

}  // namespace zors::iir
