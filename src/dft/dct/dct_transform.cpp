// zorsDCTFwd_32f, zorsDCTFwd_64f, zorsDCTInv_32f, zorsDCTInv_64f, and in place: orthonormal cosine transforms.
#include <cmath>
#include <cstring>

#include "dft/dct/dct_short.h"
#include "dft/parting.h"

namespace zors {
namespace dct {
namespace {

using namespace simd;

// v[k] = x[2 k], v[N - 1 - k] = x[2 k + 1].
template <class T> void gatherEnds(const T* x, T* v, Zor32s n) {
  constexpr Zor32s L = lanesOf<T>;
  Zor32s k = 0;
  for (; k + L <= n / 2; k += L) {
    const auto both = load<L>(reinterpret_cast<const ComplexOf<T>*>(x + 2 * k));
    store(v + k, realPart(both));
    store(v + n - k - L, reversed(imagPart(both)));
  }
  for (; k < n / 2; ++k) {
    v[k] = x[2 * k];
    v[n - 1 - k] = x[2 * k + 1];
  }
  if (n % 2 == 1) v[k] = x[n - 1];
}
template <class T> void spreadEnds(const T* v, T* x, Zor32s n) {
  constexpr Zor32s L = lanesOf<T>;
  Zor32s k = 0;
  for (; k + L <= n / 2; k += L)
    store(reinterpret_cast<ComplexOf<T>*>(x + 2 * k), toComplex(load<L>(v + k), reversed(load<L>(v + n - k - L))));
  for (; k < n / 2; ++k) {
    x[2 * k] = v[k];
    x[2 * k + 1] = v[n - 1 - k];
  }
  if (n % 2 == 1) x[n - 1] = v[k];
}

// Runs group(k, lanes) over k from 1 to (N - 1) / 2: full registers, the last one ending with the last term.
template <class T, class Group> ZORS_INLINE void overTerms(Zor32s n, Group group) {
  constexpr Zor32s L = lanesOf<T>;
  const Zor32s last = (n - 1) / 2;
  if (last < L) {
    for (Zor32s k = 1; k <= last; ++k) group.one(k);
    return;
  }
  for (Zor32s k = 1; k + L <= last; k += L) group.many(k);
  group.many(last - L + 1);
}

// Terms V of the spectrum, in pairs from place 2 on, to y[k] and y[N - k], or the way back.
template <class T> struct TermsForward {
  static constexpr Zor32s L = lanesOf<T>;
  const T *spectrum, *re, *im;
  T* y;
  Zor32s n;
  ZORS_INLINE void one(Zor32s k) const {
    const T vRe = spectrum[2 * k], vIm = spectrum[2 * k + 1];
    y[k] = std::fma(vIm, im[k], -(vRe * re[k]));
    y[n - k] = std::fma(vIm, re[k], vRe * im[k]);
  }
  ZORS_INLINE void many(Zor32s k) const {
    const auto v = load<L>(reinterpret_cast<const ComplexOf<T>*>(spectrum + 2 * k));
    const auto vRe = realPart(v), vIm = imagPart(v), tRe = held(load<L>(re + k)), tIm = held(load<L>(im + k));
    store(y + k, fms(vIm, tIm, mul(vRe, tRe)));
    store(y + n - k - (L - 1), reversed(fma(vIm, tRe, mul(vRe, tIm))));
  }
};
template <class T> struct TermsInverse {
  static constexpr Zor32s L = lanesOf<T>;
  const T *y, *re, *im;
  T* spectrum;
  Zor32s n;
  ZORS_INLINE void one(Zor32s k) const {
    spectrum[2 * k] = std::fma(y[n - k], im[k], -(y[k] * re[k]));
    spectrum[2 * k + 1] = std::fma(y[n - k], re[k], y[k] * im[k]);
  }
  ZORS_INLINE void many(Zor32s k) const {
    const auto low = held(load<L>(y + k)), high = reversed(load<L>(y + n - k - (L - 1)));
    const auto tRe = held(load<L>(re + k)), tIm = held(load<L>(im + k));
    store(reinterpret_cast<ComplexOf<T>*>(spectrum + 2 * k),
          toComplex(fms(high, tIm, mul(low, tRe)), fma(high, tRe, mul(low, tIm))));
  }
};
// spectrum in Perm; of odd N in pairs from the first term on.
template <class T> void termsForward(const Spec<T>& spec, const T* spectrum, T* y) {
  const Zor32s n = spec.len;
  overTerms<T>(n, TermsForward<T>{spectrum, spec.factors, spec.factors + (n / 2 + n % 2), y, n});
  y[0] = spectrum[0] * spec.firstScale;
  if (n % 2 == 0) y[n / 2] = spectrum[1] * spec.firstScale;
}
template <class T> void termsInverse(const Spec<T>& spec, const T* y, T* spectrum) {
  const Zor32s n = spec.len;
  overTerms<T>(n, TermsInverse<T>{y, spec.factors, spec.factors + (n / 2 + n % 2), spectrum, n});
  spectrum[0] = y[0] * spec.firstScale;
  spectrum[1] = n % 2 == 0 ? y[n / 2] * spec.firstScale : T(0);
}

// The transform of the values runs from dst to the work memory, or back, where src lies elsewhere, and in place where
// it does not.
template <Direction direction, class T> ZorStatus byFft(const Spec<T>& spec, const T* src, T* dst, Zor8u* work) {
  using Fft = FftOf<T>;
  const auto* const fft = static_cast<const typename Fft::Spec*>(spec.fft);
  T *const v = reinterpret_cast<T*>(work), *const first = src == dst ? v : dst;
  Zor8u* const rest = work + static_cast<std::size_t>(spec.len) * sizeof(T);
  if constexpr (direction == Direction::forward) {
    gatherEnds(src, first, spec.len);
    const ZorStatus status = Fft::forward(first, v, fft, rest);
    if (status == zorStatusOk) termsForward(spec, v, dst);
    return status;
  } else {
    termsInverse(spec, src, first);
    const ZorStatus status = Fft::inverse(first, v, fft, rest);
    if (status == zorStatusOk) spreadEnds(v, dst, spec.len);
    return status;
  }
}

// The transform of t[0] to t[M - 1], in place, where t has room for the convolution's length: load<n>(k) gives the
// input.
template <class T, class Load> ZorStatus chirp(const Spec<T>& spec, T* t, Zor8u* rest, Load inputs) {
  using Fft = FftOf<ComplexOf<T>>;
  using dft::loadPairs, dft::storePairs, dft::product;
  const auto* const fft = static_cast<const typename Fft::Spec*>(spec.fft);
  const auto points = static_cast<std::size_t>(pointsOf(spec.len)),
             length = static_cast<std::size_t>(spec.convolutionLength);
  dft::overColumns<T>(points, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    storePairs(t + 2 * k, product(loadPairs<n>(spec.chirp + 2 * k), inputs.template load<n>(k)));
  });
  std::memset(t + 2 * points, 0, (length - points) * 2 * sizeof(T));
  auto* const both = reinterpret_cast<ComplexOf<T>*>(t);
  if (const ZorStatus status = Fft::forward(both, both, fft, rest); status != zorStatusOk) return status;
  dft::overColumns<T>(length, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    storePairs(t + 2 * k, product(loadPairs<n>(spec.chirpSpectrum + 2 * k), loadPairs<n>(t + 2 * k)));
  });
  if (const ZorStatus status = Fft::inverse(both, both, fft, rest); status != zorStatusOk) return status;
  dft::overColumns<T>(points, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    storePairs(t + 2 * k, product(loadPairs<n>(spec.chirp + 2 * k), loadPairs<n>(t + 2 * k)));
  });
  return zorStatusOk;
}

// Even lengths as half as many pairs, odd ones as they are. The reordered values lie behind the first M points, where
// the convolution's zeros will be.
template <Direction direction, class T> ZorStatus byChirp(const Spec<T>& spec, const T* src, T* dst, Zor8u* work) {
  const Zor32s n = spec.len;
  const auto points = static_cast<std::size_t>(pointsOf(n)), length = static_cast<std::size_t>(spec.convolutionLength);
  const bool even = n % 2 == 0;
  T *const t = reinterpret_cast<T*>(work), *const v = t + 2 * points;
  Zor8u* const rest = work + length * 2 * sizeof(T);
  if constexpr (direction == Direction::forward) {
    gatherEnds(src, v, n);
    const ZorStatus status = even ? chirp(spec, t, rest, dft::InterleavedSource<T>(v, dft::Sign::kept))
                                  : chirp(spec, t, rest, dft::RealSource<T>{v});
    if (status != zorStatusOk) return status;
    if (even) dft::part<false>(t, t, points, spec.unpack);
    termsForward(spec, t, dst);
    return zorStatusOk;
  } else {
    ZorStatus status;
    if (even) {
      termsInverse(spec, src, v);
      dft::part<true>(v, v, points, spec.unpack);
      status = chirp(spec, t, rest, dft::InterleavedSource<T>(v, dft::Sign::kept));
    } else {  // the first half of the terms; the others are their conjugates
      termsInverse(spec, src, v);
      v[1] = v[0];
      status = chirp(spec, t, rest, dft::PermSource<T>(v + 1, points, dft::Sign::kept));
    }
    if (status != zorStatusOk) return status;
    // The inverse transform is the forward one with all but its first point reversed.
    const auto reversedPoint = [&](std::size_t k) { return 2 * (k == 0 ? 0 : points - k); };
    for (std::size_t k = 0; k < points; ++k) {
      const T* const point = t + reversedPoint(k);
      if (even) {
        v[2 * k] = point[0];
        v[2 * k + 1] = point[1];
      } else {
        v[k] = point[0];
      }
    }
    spreadEnds(v, dst, n);
    return zorStatusOk;
  }
}

}  // namespace

template <Direction direction, class T> ZorStatus transform(const Spec<T>& spec, const T* src, T* dst, Zor8u* work) {
  switch (spec.method) {
    case Method::kernel:
      straightLine<direction>(spec.len, src, dst);
      return zorStatusOk;
    case Method::direct:
      if constexpr (direction == Direction::forward)
        directForward(spec, src, dst, reinterpret_cast<T*>(work));
      else
        directInverse(spec, src, dst, reinterpret_cast<T*>(work));
      return zorStatusOk;
    case Method::fft:
      return byFft<direction>(spec, src, dst, work);
    default:
      return byChirp<direction>(spec, src, dst, work);
  }
}

}  // namespace dct

namespace {

using namespace dct;

template <class S, class T> ZorStatus run(const T* src, T* dst, const S* spec, Zor8u* buffer) {
  return check().pointers(src, dst, spec).state(spec, S::kind).then([&]() -> ZorStatus {
    const Scratch work(buffer, static_cast<std::size_t>(spec->workSize));
    return work ? transform<S::direction, T>(*spec, src, dst, work.data()) : zorStatusNoMemory;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDCTFwd_32f(const Zor32f* src, Zor32f* dst, const ZorsDCTFwdSpec_32f* spec, Zor8u* buffer) { return run(src, dst, spec, buffer); }
ZorStatus zorsDCTFwd_64f(const Zor64f* src, Zor64f* dst, const ZorsDCTFwdSpec_64f* spec, Zor8u* buffer) { return run(src, dst, spec, buffer); }
ZorStatus zorsDCTInv_32f(const Zor32f* src, Zor32f* dst, const ZorsDCTInvSpec_32f* spec, Zor8u* buffer) { return run(src, dst, spec, buffer); }
ZorStatus zorsDCTInv_64f(const Zor64f* src, Zor64f* dst, const ZorsDCTInvSpec_64f* spec, Zor8u* buffer) { return run(src, dst, spec, buffer); }
ZorStatus zorsDCTFwd_32f_I(Zor32f* srcDst, const ZorsDCTFwdSpec_32f* spec, Zor8u* buffer) { return run<ZorsDCTFwdSpec_32f, Zor32f>(srcDst, srcDst, spec, buffer); }
ZorStatus zorsDCTFwd_64f_I(Zor64f* srcDst, const ZorsDCTFwdSpec_64f* spec, Zor8u* buffer) { return run<ZorsDCTFwdSpec_64f, Zor64f>(srcDst, srcDst, spec, buffer); }
ZorStatus zorsDCTInv_32f_I(Zor32f* srcDst, const ZorsDCTInvSpec_32f* spec, Zor8u* buffer) { return run<ZorsDCTInvSpec_32f, Zor32f>(srcDst, srcDst, spec, buffer); }
ZorStatus zorsDCTInv_64f_I(Zor64f* srcDst, const ZorsDCTInvSpec_64f* spec, Zor8u* buffer) { return run<ZorsDCTInvSpec_64f, Zor64f>(srcDst, srcDst, spec, buffer); }
// clang-format on

}  // namespace zors
