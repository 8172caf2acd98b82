// One transform of any length, complex or real.
#pragma once

#include "dft/dft_convolved.h"

namespace zors::dft {

// ---- Straight lines -----------------------------------------------------------------------------

template <int points, class T, class Source, class Target> [[gnu::flatten]] void straightLine(Source src, Target dst) {
  Pairs<T, 1> x[points];
  simd::unrolled<points>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = src.template load<1>(i); });
  butterfly<points>(x);
  simd::unrolled<points>([&](auto i) ZORS_INLINE_LAMBDA { dst.template store<1>(i, x[i]); });
}
// run.operator()<n>() with n as a constant, from 1 to 16.
template <class Run> ZORS_INLINE void withSmall(Zor32s n, Run run) {
  [&]<int... i>(std::integer_sequence<int, i...>) ZORS_INLINE_LAMBDA {
    static_cast<void>(((n == i + 1 && (run.template operator()<i + 1>(), true)) || ...));
  }
  (std::make_integer_sequence<int, largestSmall>{});
}

// ---- Complex ------------------------------------------------------------------------------------

// Any method but powers of two above largestSmall. Sources and targets conjugate for an inverse where conjugates() holds.
template <class T> bool conjugates(const Engine<T>& engine, bool inverse) {
  return inverse && engine.method != Method::chirp;
}
template <class T, class Source, class Target>
ZorStatus transform(const Engine<T>& engine, bool inverse, Source src, Target dst, T* chainWork, Zor8u* work) {
  switch (engine.method) {
    case Method::chain:
      chainTransform(engine, src, dst, chainWork);
      return zorStatusOk;
    case Method::direct:
      directTransform(engine, src, dst);
      return zorStatusOk;
    case Method::chirp:
      return chirpTransform(engine, inverse, src, dst, work);
    default:
      if constexpr (!requires { Source::oddAlone; })  // real data have straight lines of their own
        withSmall(engine.points, [&]<int n>() ZORS_INLINE_LAMBDA { straightLine<n, T>(src, dst); });
      return zorStatusOk;
  }
}
template <class T>
ZorStatus interleavedTransform(const Engine<T>& engine, bool inverse, const T* src, T* dst, T factor, Zor8u* work) {
  const Sign sign = conjugates(engine, inverse) ? Sign::changed : Sign::kept;
  return transform(engine, inverse, InterleavedSource<T>(src, sign), InterleavedTarget<T>(dst, factor, sign),
                   src == dst ? reinterpret_cast<T*>(work) : dst, work);
}
template <class T> struct Split { T *re, *im; };
template <class T>
ZorStatus splitTransform(const Engine<T>& engine, bool inverse, Split<const T> src, Split<T> dst, T factor, Zor8u* work) {
  const bool exchange = conjugates(engine, inverse);
  const auto source = exchange ? SplitSource<T>{src.im, src.re} : SplitSource<T>{src.re, src.im};
  const auto target = exchange ? SplitTarget<T>{dst.im, dst.re, factor} : SplitTarget<T>{dst.re, dst.im, factor};
  return transform(engine, inverse, source, target, reinterpret_cast<T*>(work), work);
}

// ---- Real ---------------------------------------------------------------------------------------

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

// Straight lines: the same steps in registers; each final sum is scaled.
template <int n, class T> [[gnu::flatten]] void straightLineForward(const T* src, T* dst, T factor) {
  using P = Pairs<T, 1>;
  const P scale = all<P>(factor);
  if constexpr (n % 2 == 1) {
    P x[n];
    simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = RealSource<T>{src}.template load<1>(i); });
    butterfly<n>(x);
    dst[0] = (x[0] * scale).r[0];
    simd::unrolled<n / 2>([&](auto i) ZORS_INLINE_LAMBDA { storePairs(dst + 2 * i + 1, x[i + 1] * scale); });
  } else {
    constexpr int half = n / 2;
    constexpr const auto& unit = units<T, n>;
    P x[half];
    simd::unrolled<half>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = loadPairs<1>(src + 2 * i); });
    butterfly<half>(x);
    storePairs(dst, sumAndDifference(x[0]) * scale);
    simd::unrolled<(half - 1) / 2>([&](auto i) ZORS_INLINE_LAMBDA {
      constexpr int k = i + 1;
      const P factorOf = both<P>(unit.cosine[k] / 2, static_cast<T>(0.5 - 0.5 * static_cast<double>(unit.sine[k])));
      const auto out = partForward(Mirrored<P>{x[k], x[half - k]}, factorOf);
      storePairs(dst + 2 * k, out.low * scale);
      storePairs(dst + 2 * (half - k), out.high * scale);
    });
    if constexpr (half % 2 == 0) storePairs(dst + half, conjugate(x[half / 2]) * scale);
  }
}
template <int n, class T> [[gnu::flatten]] void straightLineInverse(const T* src, T* dst, T factor) {
  using P = Pairs<T, 1>;
  if constexpr (n % 2 == 1) {
    P x[n];
    simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = PermSource<T>(src, n, Sign::changed).template load<1>(i); });
    butterfly<n>(x);
    simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA { dst[i] = x[i].r[0] * factor; });
  } else {
    constexpr int half = n / 2;
    constexpr const auto& unit = units<T, n>;
    P x[half];
    x[0] = loadPairs<1>(src);
    x[0] = sumAndDifference(x[0]);
    simd::unrolled<(half - 1) / 2>([&](auto i) ZORS_INLINE_LAMBDA {
      constexpr int k = i + 1;
      const Mirrored<P> in = {loadPairs<1>(src + 2 * k), loadPairs<1>(src + 2 * (half - k))};
      const auto out = partInverse(in, both<P>(unit.cosine[k], -unit.sine[k]));
      x[k] = out.low;
      x[half - k] = out.high;
    });
    if constexpr (half % 2 == 0) x[half / 2] = loadPairs<1>(src + half) * both<P>(T(2), T(-2));
    simd::unrolled<half>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = conjugate(x[i]); });
    butterfly<half>(x);
    simd::unrolled<half>(
        [&](auto i) ZORS_INLINE_LAMBDA { storePairs(dst + 2 * i, x[i] * both<P>(factor, -factor)); });
  }
}

// Of any real length but powers of two above largestSmall. src may be dst.
template <class T> ZorStatus toPermSpectrum(const Spec<T>& spec, const T* src, T* dst, Zor8u* work) {
  const T factor = spec.factor(false);
  const auto len = static_cast<std::size_t>(spec.len);
  if (spec.len <= largestSmall) {
    withSmall(spec.len, [&]<int n>() ZORS_INLINE_LAMBDA { straightLineForward<n>(src, dst, factor); });
    return zorStatusOk;
  }
  if (len % 2 == 1)
    return transform(spec.engine, false, RealSource<T>{src}, PermTarget<T>{dst, len, factor}, reinterpret_cast<T*>(work), work);
  const ZorStatus status = interleavedTransform(spec.engine, false, src, dst, factor, work);
  if (status == zorStatusOk) part<false>(dst, dst, len / 2, spec.realForward);
  return status;
}
template <class T> ZorStatus fromPermSpectrum(const Spec<T>& spec, const T* src, T* dst, Zor8u* work) {
  const T factor = spec.factor(true);
  const auto len = static_cast<std::size_t>(spec.len);
  if (spec.len <= largestSmall) {
    withSmall(spec.len, [&]<int n>() ZORS_INLINE_LAMBDA { straightLineInverse<n>(src, dst, factor); });
    return zorStatusOk;
  }
  if (len % 2 == 1) {
    const Sign sign = conjugates(spec.engine, true) ? Sign::changed : Sign::kept;
    return transform(spec.engine, true, PermSource<T>(src, len, sign), RealTarget<T>{dst, factor},
                     reinterpret_cast<T*>(work), work);
  }
  part<true>(src, dst, len / 2, spec.realInverse);
  return interleavedTransform(spec.engine, true, dst, dst, factor, work);
}

}  // namespace zors::dft
