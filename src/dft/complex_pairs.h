// Vectors of complex numbers, the parts of each side by side as in memory: Pairs<T, n> holds n of them in one register,
// 256 or 128 bits wide, or a single number at the bottom of 128. So odd strides and short ends need no masks: four, two
// and one column run the same kernel, and round alike.
#pragma once

#include "frame/simd.h"
#include "zors/types.h"

namespace zors::dft {

template <class T, int n> struct PairRegister;
template <> struct PairRegister<Zor32f, 4> { using type = __m256; };
template <> struct PairRegister<Zor32f, 2> { using type = __m128; };
template <> struct PairRegister<Zor32f, 1> { using type = __m128; };
template <> struct PairRegister<Zor64f, 2> { using type = __m256d; };
template <> struct PairRegister<Zor64f, 1> { using type = __m128d; };

template <class T> inline constexpr int fullPairs = 16 / int{sizeof(T)};  // of 256 bits

// Operators round once each; nothing is fused but by fma.
template <class T, int n> struct Pairs {
  using Value = T;
  using Register = typename PairRegister<T, n>::type;
  static constexpr int count = n;
  static constexpr bool wide = n == fullPairs<T>;
  Register r;
  ZORS_INLINE friend Pairs operator+(Pairs a, Pairs b) { return {a.r + b.r}; }
  ZORS_INLINE friend Pairs operator-(Pairs a, Pairs b) { return {a.r - b.r}; }
  ZORS_INLINE friend Pairs operator*(Pairs a, Pairs b) { return {a.r * b.r}; }  // part by part
};

// The instruction of the register's type.
#define ZORS_PICK(P, f32w, f32, f64w, f64)                   \
  if constexpr (sizeof(typename P::Value) == 4 && P::wide) { \
    return P{f32w};                                          \
  } else if constexpr (sizeof(typename P::Value) == 4) {     \
    return P{f32};                                           \
  } else if constexpr (P::wide) {                            \
    return P{f64w};                                          \
  } else {                                                   \
    return P{f64};                                           \
  }
// clang-format off
template <class P> ZORS_INLINE P fma(P a, P b, P c) {  // round(a * b + c), part by part
  ZORS_PICK(P, _mm256_fmadd_ps(a.r, b.r, c.r), _mm_fmadd_ps(a.r, b.r, c.r), _mm256_fmadd_pd(a.r, b.r, c.r), _mm_fmadd_pd(a.r, b.r, c.r))
}
template <class P> ZORS_INLINE P fmaAddSub(P a, P b, P c) {  // round(a * b - c) of real parts, round(a * b + c) of imaginary ones
  ZORS_PICK(P, _mm256_fmaddsub_ps(a.r, b.r, c.r), _mm_fmaddsub_ps(a.r, b.r, c.r), _mm256_fmaddsub_pd(a.r, b.r, c.r), _mm_fmaddsub_pd(a.r, b.r, c.r))
}
template <class P> ZORS_INLINE P fmaSubAdd(P a, P b, P c) {
  ZORS_PICK(P, _mm256_fmsubadd_ps(a.r, b.r, c.r), _mm_fmsubadd_ps(a.r, b.r, c.r), _mm256_fmsubadd_pd(a.r, b.r, c.r), _mm_fmsubadd_pd(a.r, b.r, c.r))
}
template <class P> ZORS_INLINE P addSub(P a, P b) {
  ZORS_PICK(P, _mm256_addsub_ps(a.r, b.r), _mm_addsub_ps(a.r, b.r), _mm256_addsub_pd(a.r, b.r), _mm_addsub_pd(a.r, b.r))
}
template <class P> ZORS_INLINE P exchanged(P a) {  // (im, re)
  ZORS_PICK(P, _mm256_permute_ps(a.r, 0xB1), _mm_permute_ps(a.r, 0xB1), _mm256_permute_pd(a.r, 0x5), _mm_permute_pd(a.r, 0x1))
}
template <class P> ZORS_INLINE P realParts(P a) {  // (re, re)
  ZORS_PICK(P, _mm256_moveldup_ps(a.r), _mm_moveldup_ps(a.r), _mm256_movedup_pd(a.r), _mm_movedup_pd(a.r))
}
template <class P> ZORS_INLINE P imaginaryParts(P a) {
  ZORS_PICK(P, _mm256_movehdup_ps(a.r), _mm_movehdup_ps(a.r), _mm256_permute_pd(a.r, 0xF), _mm_permute_pd(a.r, 0x3))
}
template <class P> ZORS_INLINE P signsOf(P a, P signs) {  // the signs of a changed where those of signs are set
  ZORS_PICK(P, _mm256_xor_ps(a.r, signs.r), _mm_xor_ps(a.r, signs.r), _mm256_xor_pd(a.r, signs.r), _mm_xor_pd(a.r, signs.r))
}
template <class P> ZORS_INLINE P all(typename P::Value x) {
  ZORS_PICK(P, _mm256_set1_ps(x), _mm_set1_ps(x), _mm256_set1_pd(x), _mm_set1_pd(x))
}
template <class P> ZORS_INLINE P both(typename P::Value re, typename P::Value im) {  // (re, im) in all places
  ZORS_PICK(P, _mm256_setr_ps(re, im, re, im, re, im, re, im), _mm_setr_ps(re, im, re, im), _mm256_setr_pd(re, im, re, im), _mm_setr_pd(re, im))
}
template <class P> ZORS_INLINE P repeated(Pairs<typename P::Value, 1> x) {  // one number in all places
  ZORS_PICK(P, _mm256_castpd_ps(_mm256_broadcastsd_pd(_mm_castps_pd(x.r))), _mm_castpd_ps(_mm_movedup_pd(_mm_castps_pd(x.r))), _mm256_set_m128d(x.r, x.r), x.r)
}
// clang-format on
#undef ZORS_PICK

// ---- Memory -------------------------------------------------------------------------------------

template <int n, class T> ZORS_INLINE Pairs<T, n> loadPairs(const T* p) {
  if constexpr (sizeof(T) == 4 && n == 4)
    return {_mm256_loadu_ps(p)};
  else if constexpr (sizeof(T) == 4 && n == 2)
    return {_mm_loadu_ps(p)};
  else if constexpr (sizeof(T) == 4)
    return {_mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)))};
  else if constexpr (n == 2)
    return {_mm256_loadu_pd(p)};
  else
    return {_mm_loadu_pd(p)};
}
template <class T, int n> ZORS_INLINE void storePairs(T* p, Pairs<T, n> x) {
  if constexpr (sizeof(T) == 4 && n == 4)
    _mm256_storeu_ps(p, x.r);
  else if constexpr (sizeof(T) == 4 && n == 2)
    _mm_storeu_ps(p, x.r);
  else if constexpr (sizeof(T) == 4)
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm_castps_si128(x.r));
  else if constexpr (n == 2)
    _mm256_storeu_pd(p, x.r);
  else
    _mm_storeu_pd(p, x.r);
}

// n numbers from arrays of their parts; a null array of imaginary parts stands for zeros.
template <int n, class T> ZORS_INLINE Pairs<T, n> loadParts(const T* re, const T* im) {
  if constexpr (n == 1 && sizeof(T) == 4) {
    return {_mm_setr_ps(*re, im == nullptr ? 0 : *im, 0, 0)};
  } else if constexpr (n == 1) {
    return {_mm_setr_pd(*re, im == nullptr ? 0 : *im)};
  } else if constexpr (sizeof(T) == 8) {
    const __m128d a = _mm_loadu_pd(re), b = im == nullptr ? _mm_setzero_pd() : _mm_loadu_pd(im);
    return {_mm256_set_m128d(_mm_unpackhi_pd(a, b), _mm_unpacklo_pd(a, b))};
  } else {
    const auto part = [](const T* p) ZORS_INLINE_LAMBDA {
      if (p == nullptr) return _mm_setzero_ps();
      return n == 4 ? _mm_loadu_ps(p) : _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
    };
    const __m128 a = part(re), b = part(im);
    if constexpr (n == 4)
      return {_mm256_set_m128(_mm_unpackhi_ps(a, b), _mm_unpacklo_ps(a, b))};
    else
      return {_mm_unpacklo_ps(a, b)};
  }
}
template <class T, int n> ZORS_INLINE void storeParts(T* re, T* im, Pairs<T, n> x) {
  if constexpr (n == 1 && sizeof(T) == 4) {
    *re = x.r[0];
    *im = x.r[1];
  } else if constexpr (n == 1) {
    *re = x.r[0];
    *im = x.r[1];
  } else if constexpr (sizeof(T) == 8) {
    const __m128d a = _mm256_castpd256_pd128(x.r), b = _mm256_extractf128_pd(x.r, 1);
    _mm_storeu_pd(re, _mm_unpacklo_pd(a, b));
    _mm_storeu_pd(im, _mm_unpackhi_pd(a, b));
  } else if constexpr (n == 4) {
    const __m128 a = _mm256_castps256_ps128(x.r), b = _mm256_extractf128_ps(x.r, 1);
    _mm_storeu_ps(re, _mm_shuffle_ps(a, b, 0x88));
    _mm_storeu_ps(im, _mm_shuffle_ps(a, b, 0xDD));
  } else {
    const __m128 parts = _mm_shuffle_ps(x.r, x.r, 0xD8);
    _mm_storel_pi(reinterpret_cast<__m64*>(re), parts);
    _mm_storeh_pi(reinterpret_cast<__m64*>(im), parts);
  }
}

// The numbers in reverse.
template <class T, int n> ZORS_INLINE Pairs<T, n> reversed(Pairs<T, n> x) {
  if constexpr (n == 1)
    return x;
  else if constexpr (sizeof(T) == 8)
    return {_mm256_permute2f128_pd(x.r, x.r, 0x01)};
  else if constexpr (n == 4)
    return {_mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(x.r), 0x1B))};
  else
    return {_mm_permute_ps(x.r, 0x4E)};
}

// Number i of each of the vectors x[0], ... x[rows - 1], which are the columns of a matrix, goes to to[i], to[i] + 1,
// ..., in whole vectors as far as there are rows: the next pass loads such, and would wait for halves.
template <class T, int n> ZORS_INLINE void storeTransposed(const Pairs<T, n>* x, int rows, T* const* to) {
  if constexpr (n == 1) {
    for (int q = 0; q < rows; ++q) storePairs(to[0] + 2 * q, x[q]);
  } else if constexpr (sizeof(T) == 8) {
    int q = 0;
    for (; q + 1 < rows; q += 2) {
      _mm256_storeu_pd(to[0] + 2 * q, _mm256_permute2f128_pd(x[q].r, x[q + 1].r, 0x20));
      _mm256_storeu_pd(to[1] + 2 * q, _mm256_permute2f128_pd(x[q].r, x[q + 1].r, 0x31));
    }
    if (q < rows) {
      _mm_storeu_pd(to[0] + 2 * q, _mm256_castpd256_pd128(x[q].r));
      _mm_storeu_pd(to[1] + 2 * q, _mm256_extractf128_pd(x[q].r, 1));
    }
  } else {
    const auto single = [](T* p, __m128 low) ZORS_INLINE_LAMBDA { _mm_storel_pi(reinterpret_cast<__m64*>(p), low); };
    const auto second = [](T* p, __m128 high) ZORS_INLINE_LAMBDA { _mm_storeh_pi(reinterpret_cast<__m64*>(p), high); };
    int q = 0;
    if constexpr (n == 4) {
      for (; q + 3 < rows; q += 4) {
        const auto column = [&](int i) ZORS_INLINE_LAMBDA { return _mm256_castps_pd(x[q + i].r); };
        const auto whole = [](T* p, __m256d v) ZORS_INLINE_LAMBDA { _mm256_storeu_ps(p, _mm256_castpd_ps(v)); };
        const __m256d even = _mm256_unpacklo_pd(column(0), column(1)), odd = _mm256_unpackhi_pd(column(0), column(1)),
                      even2 = _mm256_unpacklo_pd(column(2), column(3)), odd2 = _mm256_unpackhi_pd(column(2), column(3));
        whole(to[0] + 2 * q, _mm256_permute2f128_pd(even, even2, 0x20));
        whole(to[1] + 2 * q, _mm256_permute2f128_pd(odd, odd2, 0x20));
        whole(to[2] + 2 * q, _mm256_permute2f128_pd(even, even2, 0x31));
        whole(to[3] + 2 * q, _mm256_permute2f128_pd(odd, odd2, 0x31));
      }
      for (; q + 1 < rows; q += 2) {
        const __m256d a = _mm256_castps_pd(x[q].r), b = _mm256_castps_pd(x[q + 1].r);
        const __m256 even = _mm256_castpd_ps(_mm256_unpacklo_pd(a, b)),
                     odd = _mm256_castpd_ps(_mm256_unpackhi_pd(a, b));
        _mm_storeu_ps(to[0] + 2 * q, _mm256_castps256_ps128(even));
        _mm_storeu_ps(to[1] + 2 * q, _mm256_castps256_ps128(odd));
        _mm_storeu_ps(to[2] + 2 * q, _mm256_extractf128_ps(even, 1));
        _mm_storeu_ps(to[3] + 2 * q, _mm256_extractf128_ps(odd, 1));
      }
      if (q < rows) {
        const __m128 low = _mm256_castps256_ps128(x[q].r), high = _mm256_extractf128_ps(x[q].r, 1);
        single(to[0] + 2 * q, low);
        second(to[1] + 2 * q, low);
        single(to[2] + 2 * q, high);
        second(to[3] + 2 * q, high);
      }
    } else {
      for (; q < rows; ++q) {
        single(to[0] + 2 * q, x[q].r);
        second(to[1] + 2 * q, x[q].r);
      }
    }
  }
}

// The way back: number i of x[q] from place q of from[i].
template <class T, int n> ZORS_INLINE void loadTransposed(Pairs<T, n>* x, int rows, const T* const* from) {
  if constexpr (n == 1) {
    for (int q = 0; q < rows; ++q) x[q] = loadPairs<1>(from[0] + 2 * q);
  } else if constexpr (sizeof(T) == 8) {
    for (int q = 0; q < rows; ++q)
      x[q] = {_mm256_set_m128d(_mm_loadu_pd(from[1] + 2 * q), _mm_loadu_pd(from[0] + 2 * q))};
  } else {
    const auto two = [](const T* low, const T* high) ZORS_INLINE_LAMBDA {
      return _mm_loadh_pi(loadPairs<1>(low).r, reinterpret_cast<const __m64*>(high));
    };
    int q = 0;
    if constexpr (n == 4) {
      for (; q + 1 < rows; q += 2) {
        const auto row = [&](int i) ZORS_INLINE_LAMBDA { return _mm_loadu_ps(from[i] + 2 * q); };
        const __m256d even = _mm256_castps_pd(_mm256_set_m128(row(2), row(0))),
                      odd = _mm256_castps_pd(_mm256_set_m128(row(3), row(1)));
        x[q] = {_mm256_castpd_ps(_mm256_unpacklo_pd(even, odd))};
        x[q + 1] = {_mm256_castpd_ps(_mm256_unpackhi_pd(even, odd))};
      }
      if (q < rows)
        x[q] = {_mm256_set_m128(two(from[2] + 2 * q, from[3] + 2 * q), two(from[0] + 2 * q, from[1] + 2 * q))};
    } else {
      for (; q < rows; ++q) x[q] = {two(from[0] + 2 * q, from[1] + 2 * q)};
    }
  }
}

// ---- Complex arithmetic -------------------------------------------------------------------------

// a - i b and a + i b.
template <class P> ZORS_INLINE P plusI(P a, P b) { return addSub(a, exchanged(b)); }
template <class P> ZORS_INLINE P minusI(P a, P b) { return fmaSubAdd(a, all<P>(1), exchanged(b)); }

template <class P> ZORS_INLINE P conjugate(P x) {
  using T = typename P::Value;
  return signsOf(x, both<P>(T(0.0), T(-0.0)));
}

// x turned by w = (cos, -sin): re = fma(-w.im, x.im, round(w.re * x.re)), im = fma(w.im, x.re, round(w.re * x.im)).
template <class P> ZORS_INLINE P turned(P w, P x) {
  using T = typename P::Value;
  const P sines = signsOf(imaginaryParts(w), both<P>(T(-0.0), T(0.0)));
  return fma(sines, exchanged(x), realParts(w) * x);
}
// The product a * b of convolutions: re = fma(b.re, a.re, -round(b.im * a.im)), im = fma(b.re, a.im, round(b.im *
// a.re)).
template <class P> ZORS_INLINE P product(P a, P b) {
  return fmaAddSub(realParts(b), a, imaginaryParts(b) * exchanged(a));
}

}  // namespace zors::dft
