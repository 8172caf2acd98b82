// Registers of values, real and complex alike, and sums of products of scalars and registers. A complex product takes
// the scalar's parts apart: the sums of re * column and of im * column are kept, and joined at the end.
#pragma once

#include "frame/simd.h"
#include "iir/iir_state.h"

namespace zors::iir {

template <class T> inline constexpr int row = int{iirRow<T>};
template <class T, int W = 1> using Block = simd::Vec<T, W * row<T>>;  // W registers of values in sequence
template <class T> using Factor = simd::Vec<simd::Part<T>, row<T> * iirParts<T> * iirParts<T>>;
template <class T, int W = 1> using Products = simd::Vec<simd::Part<T>, row<T> * iirParts<T> * iirParts<T> * W>;

ZORS_INLINE __m256 fmaRegister(__m256 a, __m256 b, __m256 c) { return _mm256_fmadd_ps(a, b, c); }
ZORS_INLINE __m256d fmaRegister(__m256d a, __m256d b, __m256d c) { return _mm256_fmadd_pd(a, b, c); }
ZORS_INLINE __m256 mulRegister(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
ZORS_INLINE __m256d mulRegister(__m256d a, __m256d b) { return _mm256_mul_pd(a, b); }
ZORS_INLINE __m256 joinRegister(__m256 re, __m256 im) { return _mm256_addsub_ps(re, _mm256_permute_ps(im, 0xB1)); }
ZORS_INLINE __m256d joinRegister(__m256d re, __m256d im) { return _mm256_addsub_pd(re, _mm256_permute_pd(im, 0x5)); }

// A scalar in all lanes.
template <class T> ZORS_INLINE Factor<T> factor(T x) {
  if constexpr (Complex<T>)
    return {{simd::splatRegister(x.re), simd::splatRegister(x.im)}};
  else
    return {{simd::splatRegister(x)}};
}

template <class T, int L> ZORS_INLINE Products<T, L / row<T>> sumOf(simd::Vec<T, L> x) {
  constexpr int W = L / row<T>;
  return simd::build<Products<T, W>>([&](auto i) ZORS_INLINE_LAMBDA {
    if constexpr (i < W)
      return x.r[i];
    else
      return typename simd::Vec<T, L>::Register{};
  });
}
template <class T, int L> ZORS_INLINE Products<T, L / row<T>> product(Factor<T> f, simd::Vec<T, L> x) {
  constexpr int W = L / row<T>;
  return simd::build<Products<T, W>>([&](auto i) ZORS_INLINE_LAMBDA { return mulRegister(f.r[i / W], x.r[i % W]); });
}
template <class T, int L>
ZORS_INLINE Products<T, L / row<T>> addProduct(Factor<T> f, simd::Vec<T, L> x, Products<T, L / row<T>> sum) {
  constexpr int W = L / row<T>;
  return simd::build<Products<T, W>>([&](auto i)
                                         ZORS_INLINE_LAMBDA { return fmaRegister(f.r[i / W], x.r[i % W], sum.r[i]); });
}
template <class T, int W = 1> ZORS_INLINE Block<T, W> join(Products<T, W> sum) {
  return simd::build<Block<T, W>>([&](auto i) ZORS_INLINE_LAMBDA {
    if constexpr (Complex<T>)
      return joinRegister(sum.r[i], sum.r[i + W]);
    else
      return sum.r[i];
  });
}

}  // namespace zors::iir
