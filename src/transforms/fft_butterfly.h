// The butterflies of the Fourier transforms. Their roundings are what docs/numerics.md promises: each parenthesis one, each
// fma one. The inverse is the forward butterfly with every sine negated.
#pragma once

#include "transforms/fft_lanes.h"

namespace zors::fft {

// x times the twiddle w = (cos, -sin), or its conjugate for the inverse: one product of each part is rounded, the other fused.
template <bool inverse, class T, int L> ZORS_INLINE Points<T, L> twiddle(Points<T, L> w, Points<T, L> x) {
  if constexpr (inverse) return {fma(w.im, x.im, w.re * x.re), fnma(w.im, x.re, w.re * x.im)};
  else return {fnma(w.im, x.im, w.re * x.re), fma(w.im, x.re, w.re * x.im)};
}

// a - i b, or a + i b for the inverse; and the other way about.
template <bool inverse, class T, int L> ZORS_INLINE Points<T, L> minusI(Points<T, L> a, Points<T, L> b) {
  if constexpr (inverse) return {a.re - b.im, a.im + b.re};
  else return {a.re + b.im, a.im - b.re};
}
template <bool inverse, class T, int L> ZORS_INLINE Points<T, L> plusI(Points<T, L> a, Points<T, L> b) { return minusI<!inverse>(a, b); }

template <class T, int L, int n> struct Parts { Points<T, L> at[n]; };

// Four points: t[q] is the part of residue q, the result is in natural order.
template <bool inverse, class T, int L>
ZORS_INLINE Parts<T, L, 4> butterfly4(Points<T, L> a, Points<T, L> t1, Points<T, L> t2, Points<T, L> t3) {
  const auto sum02 = a + t2, difference02 = a - t2, sum13 = t1 + t3, difference13 = t1 - t3;
  return {{sum02 + sum13, minusI<inverse>(difference02, difference13), sum02 - sum13, plusI<inverse>(difference02, difference13)}};
}

// Eight points: four of the even residues and four of the odd ones, then four pairs with eighth turns between, of which a
// diagonal one is a sum, times the root of one half.
template <class T> inline constexpr T halfRoot = T(0.70710678118654752440L);
template <bool inverse, class T, int L> ZORS_INLINE Parts<T, L, 8> butterfly8(const Parts<T, L, 8>& t) {
  const auto e = butterfly4<inverse>(t.at[0], t.at[2], t.at[4], t.at[6]);
  const auto o = butterfly4<inverse>(t.at[1], t.at[3], t.at[5], t.at[7]);
  const auto root = allLanes<L>(halfRoot<T>);
  const auto sum1 = (o.at[1].re + o.at[1].im) * root, difference1 = (o.at[1].im - o.at[1].re) * root;
  const auto sum3 = (o.at[3].re + o.at[3].im) * root, difference3 = (o.at[3].im - o.at[3].re) * root;
  Parts<T, L, 8> out;
  out.at[0] = e.at[0] + o.at[0];
  out.at[4] = e.at[0] - o.at[0];
  out.at[2] = minusI<inverse>(e.at[2], o.at[2]);
  out.at[6] = plusI<inverse>(e.at[2], o.at[2]);
  if constexpr (inverse) {  // o1 (1 + i) / root 2, o3 (-1 + i) / root 2
    out.at[1] = {e.at[1].re - difference1, e.at[1].im + sum1};
    out.at[5] = {e.at[1].re + difference1, e.at[1].im - sum1};
    out.at[3] = {e.at[3].re - sum3, e.at[3].im - difference3};
    out.at[7] = {e.at[3].re + sum3, e.at[3].im + difference3};
  } else {  // o1 (1 - i) / root 2, o3 (-1 - i) / root 2
    out.at[1] = {e.at[1].re + sum1, e.at[1].im + difference1};
    out.at[5] = {e.at[1].re - sum1, e.at[1].im - difference1};
    out.at[3] = {e.at[3].re + difference3, e.at[3].im - sum3};
    out.at[7] = {e.at[3].re - difference3, e.at[3].im + sum3};
  }
  return out;
}

// Parts in memory stand in the order of their bit-reversed residues.
template <int radix> constexpr int residuePlace(int q) {
  if constexpr (radix == 4) return (q & 1) << 1 | q >> 1;
  else return (q & 1) << 2 | (q & 2) | q >> 2;
}
template <int radix, bool inverse, class T, int L> ZORS_INLINE Parts<T, L, radix> butterfly(const Parts<T, L, radix>& t) {
  if constexpr (radix == 4) return butterfly4<inverse>(t.at[0], t.at[1], t.at[2], t.at[3]);
  else return butterfly8<inverse>(t);
}

}  // namespace zors::fft
