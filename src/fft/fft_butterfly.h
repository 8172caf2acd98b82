// The butterflies of the Fourier transforms. Their roundings are what docs/numerics.md promises: each parenthesis one,
// each fma one. The inverse is the forward butterfly with every sine negated.
#pragma once

#include "fft/fft_lanes.h"

namespace zors::fft {

// x times the twiddle w = (cos, -sin), or its conjugate for the inverse: one product of each part is rounded, the other
// fused.
template <bool inverse, class T, int L> ZORS_INLINE Points<T, L> twiddle(Points<T, L> w, Points<T, L> x) {
  if constexpr (inverse)
    return {fma(w.im, x.im, w.re * x.re), fnma(w.im, x.re, w.re * x.im)};
  else
    return {fnma(w.im, x.im, w.re * x.re), fma(w.im, x.re, w.re * x.im)};
}

// a - i b, or a + i b for the inverse; and the other way about.
template <bool inverse, class T, int L> ZORS_INLINE Points<T, L> minusI(Points<T, L> a, Points<T, L> b) {
  if constexpr (inverse)
    return {a.re - b.im, a.im + b.re};
  else
    return {a.re + b.im, a.im - b.re};
}
// The same of interleaved points. A product with one is exact, so here too each result is rounded once.
template <bool inverse> ZORS_INLINE Lanes<Zor32f, 8> minusI(Lanes<Zor32f, 8> a, Lanes<Zor32f, 8> b) {
  const __m256 turned = _mm256_permute_ps(b.r, 0xB1);
  return {inverse ? _mm256_addsub_ps(a.r, turned) : _mm256_fmsubadd_ps(a.r, _mm256_set1_ps(1), turned)};
}
template <bool inverse> ZORS_INLINE Lanes<Zor32f, 4> minusI(Lanes<Zor32f, 4> a, Lanes<Zor32f, 4> b) {
  const __m128 turned = _mm_permute_ps(b.r, 0xB1);
  return {inverse ? _mm_addsub_ps(a.r, turned) : _mm_fmsubadd_ps(a.r, _mm_set1_ps(1), turned)};
}
template <bool inverse> ZORS_INLINE Lanes<Zor64f, 4> minusI(Lanes<Zor64f, 4> a, Lanes<Zor64f, 4> b) {
  const __m256d turned = _mm256_permute_pd(b.r, 0x5);
  return {inverse ? _mm256_addsub_pd(a.r, turned) : _mm256_fmsubadd_pd(a.r, _mm256_set1_pd(1), turned)};
}
template <bool inverse, class X> ZORS_INLINE X plusI(X a, X b) { return minusI<!inverse>(a, b); }

template <class T, int L, int n> using Parts = Group<Points<T, L>, n>;

// Four points: t[q] is the part of residue q, the result is in natural order.
template <bool inverse, class X> ZORS_INLINE Group<X, 4> butterfly4(X a, X t1, X t2, X t3) {
  const auto sum02 = a + t2, difference02 = a - t2, sum13 = t1 + t3, difference13 = t1 - t3;
  return {{sum02 + sum13, minusI<inverse>(difference02, difference13), sum02 - sum13,
           plusI<inverse>(difference02, difference13)}};
}

// The compilers would schedule a long pass all at once and spill most of it; what goes through keepInMemory ends in
// memory.
ZORS_INLINE void keepInMemory(const void* p) { __asm__ volatile("" : : "r"(p) : "memory"); }

// Eight points: four of the odd residues and four of the even ones, then four pairs with eighth turns between, of which
// a diagonal one is a sum, times the root of one half. part(q) gives the part of residue q.
template <class T> inline constexpr T halfRoot = T(0.70710678118654752440L);
template <int q> using Residue = std::integral_constant<int, q>;
template <bool inverse, int L, class T, class Part> ZORS_INLINE Parts<T, L, 8> butterfly8(Part part) {
  alignas(32) T odd[4 * 2 * L];
  {
    const auto o = butterfly4<inverse>(part(Residue<1>{}), part(Residue<3>{}), part(Residue<5>{}), part(Residue<7>{}));
    const auto root = allLanes<L>(halfRoot<T>);
    storePoints<L>(odd, o.at[0]);
    storePoints<L>(odd + 2 * L, Points<T, L>{o.at[1].re + o.at[1].im, o.at[1].im - o.at[1].re} * root);
    storePoints<L>(odd + 4 * L, o.at[2]);
    storePoints<L>(odd + 6 * L, Points<T, L>{o.at[3].re + o.at[3].im, o.at[3].im - o.at[3].re} * root);
    if constexpr (L > 1) keepInMemory(odd);
  }
  const auto e = butterfly4<inverse>(part(Residue<0>{}), part(Residue<2>{}), part(Residue<4>{}), part(Residue<6>{}));
  const auto o0 = loadPoints<L>(odd), o1 = loadPoints<L>(odd + 2 * L), o2 = loadPoints<L>(odd + 4 * L),
             o3 = loadPoints<L>(odd + 6 * L);
  Parts<T, L, 8> out;
  out.at[0] = e.at[0] + o0;
  out.at[4] = e.at[0] - o0;
  out.at[2] = minusI<inverse>(e.at[2], o2);
  out.at[6] = plusI<inverse>(e.at[2], o2);
  if constexpr (inverse) {  // the odd ones turned by (1 + i) / root 2 and (-1 + i) / root 2
    out.at[1] = minusI<true>(e.at[1], {o1.re, o1.im});
    out.at[5] = plusI<true>(e.at[1], {o1.re, o1.im});
    out.at[3] = e.at[3] - o3;
    out.at[7] = e.at[3] + o3;
  } else {  // by (1 - i) / root 2 and (-1 - i) / root 2
    out.at[1] = e.at[1] + o1;
    out.at[5] = e.at[1] - o1;
    out.at[3] = minusI<false>(e.at[3], o3);
    out.at[7] = plusI<false>(e.at[3], o3);
  }
  return out;
}

// Parts in memory stand in the order of their bit-reversed residues.
template <int radix> constexpr int residuePlace(int q) {
  if constexpr (radix == 4)
    return (q & 1) << 1 | q >> 1;
  else
    return (q & 1) << 2 | (q & 2) | q >> 2;
}
template <int radix, bool inverse, int L, class T, class Part> ZORS_INLINE Parts<T, L, radix> butterfly(Part part) {
  if constexpr (radix == 4)
    return butterfly4<inverse>(part(Residue<0>{}), part(Residue<1>{}), part(Residue<2>{}), part(Residue<3>{}));
  else
    return butterfly8<inverse, L, T>(part);
}
template <int radix, bool inverse, class T, int L>
ZORS_INLINE Parts<T, L, radix> butterfly(const Parts<T, L, radix>& t) {
  return butterfly<radix, inverse, L, T>([&](auto q) ZORS_INLINE_LAMBDA { return t.at[q]; });
}

}  // namespace zors::fft
