// The complex transform of N / 2 pairs of real values and that of the N values, one made from the other.
#pragma once

#include "dft/dft_arrays.h"

namespace zors::dft {

template <class P> struct Mirrored { P low, high; };  // the terms k and N / 2 - k

// The spectrum of pairs of values to that of the values: with p = Z[k], q = conj Z[N/2 - k], d = p - q and
// t = (1/2 - sin/2 - i cos/2) d it is q + t and conj(p - t). factor: (cos / 2, 1/2 - sin/2).
template <class P> ZORS_INLINE Mirrored<P> partForward(Mirrored<P> z, P factor) {
  using T = typename P::Value;
  const P p = z.low, q = conjugate(z.high), d = p - q;
  const P halfCosine = signsOf(realParts(factor), both<P>(T(0.0), T(-0.0)));
  const P t = fma(imaginaryParts(factor), d, halfCosine * exchanged(d));
  return {q + t, conjugate(p - t)};
}
// The way back, to twice the spectrum of pairs: with p = X[k], q = conj X[N/2 - k], u = p + q, d = p - q and
// t = i (cos + i sin) d it is u + t and conj(u - t). factor: (cos, -sin).
template <class P> ZORS_INLINE Mirrored<P> partInverse(Mirrored<P> x, P factor) {
  using T = typename P::Value;
  const P p = x.low, q = conjugate(x.high), u = p + q, d = p - q;
  const P cosine = signsOf(realParts(factor), both<P>(T(-0.0), T(0.0)));
  const P t = fma(imaginaryParts(factor), d, cosine * exchanged(d));
  return {u + t, conjugate(u - t)};
}

template <class P> ZORS_INLINE P sumAndDifference(P x) { return realParts(x) + conjugate(imaginaryParts(x)); }

// src may be dst; Perm on the side of the spectrum.
template <bool inverse, class T> [[gnu::flatten]] void part(const T* src, T* dst, std::size_t half, const T* factors) {
  const T first = src[0], second = src[1];
  dst[0] = first + second;
  dst[1] = first - second;
  overColumns<T>((half - 1) / 2, [&]<int n>(std::size_t i) ZORS_INLINE_LAMBDA {
    const std::size_t k = i + 1, mirror = half - k - (n - 1);
    const auto factor = loadPairs<n>(factors + 2 * i);
    const Mirrored<Pairs<T, n>> in = {loadPairs<n>(src + 2 * k), reversed(loadPairs<n>(src + 2 * mirror))};
    const auto out = inverse ? partInverse(in, factor) : partForward(in, factor);
    storePairs(dst + 2 * k, out.low);
    storePairs(dst + 2 * mirror, reversed(out.high));
  });
  if (half % 2 == 0) {  // the term that is its own mirror
    const T twice = inverse ? T(2) : T(1), re = src[half], im = src[half + 1];
    dst[half] = twice * re;
    dst[half + 1] = -twice * im;
  }
}

}  // namespace zors::dft
