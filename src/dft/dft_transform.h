// One transform of any length, complex or real.
#pragma once

#include "dft/dft_convolved.h"
#include "dft/parting.h"

namespace zors::dft {

// ---- Straight lines -----------------------------------------------------------------------------

template <int points, class T, class Source, class Target> [[gnu::flatten]] void straightLine(Source src, Target dst) {
  Pairs<T, 1> x[points];
  simd::unrolled<points>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = src.template load<1>(i); });
  butterfly<points>(x);
  simd::unrolled<points>([&](auto i) ZORS_INLINE_LAMBDA { dst.template store<1>(i, x[i]); });
}
template <class Run> ZORS_INLINE void withSmall(Zor32s n, Run run) {
  withConstant<1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16>(n, run);
}

// ---- Complex ------------------------------------------------------------------------------------

// Any method but powers of two above largestSmall. Sources and targets conjugate for an inverse where conjugates()
// holds.
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
template <class T>
ZorStatus splitTransform(const Engine<T>& engine, bool inverse, Split<const T> src, Split<T> dst, T factor,
                         Zor8u* work) {
  const bool exchange = conjugates(engine, inverse);
  const auto source = exchange ? SplitSource<T>{src.im, src.re} : SplitSource<T>{src.re, src.im};
  const auto target = exchange ? SplitTarget<T>{dst.im, dst.re, factor} : SplitTarget<T>{dst.re, dst.im, factor};
  return transform(engine, inverse, source, target, reinterpret_cast<T*>(work), work);
}

// ---- Real ---------------------------------------------------------------------------------------

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
    simd::unrolled<n>([&](auto i)
                          ZORS_INLINE_LAMBDA { x[i] = PermSource<T>(src, n, Sign::changed).template load<1>(i); });
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
    simd::unrolled<half>([&](auto i) ZORS_INLINE_LAMBDA { storePairs(dst + 2 * i, x[i] * both<P>(factor, -factor)); });
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
    return transform(spec.engine, false, RealSource<T>{src}, PermTarget<T>{dst, len, factor},
                     reinterpret_cast<T*>(work), work);
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
