// Lengths without small factors: the direct sum, and the chirp, which turns a transform into a convolution.
#pragma once

#include <cstring>

#include "dft/dft_chain.h"
#include "frame/fft_by_type.h"

namespace zors::dft {

// ---- Direct: one butterfly of a prime length ----------------------------------------------------

// As genericButterfly, but in lanes of outputs, which go in the order of a generator's powers: then the roots that one
// term has in all outputs lie side by side, and so do those of the next term, some places further on.
template <class T, class Source, class Target>
[[gnu::flatten]] void directTransform(const Engine<T>& engine, Source src, Target dst) {
  using namespace simd;
  constexpr int L = lanesOf<T>;
  const int p = engine.points, h = p / 2;
  T x[4 * largestDirectHalf] = {}, y[4 * largestDirectHalf];
  overColumns<T>(static_cast<std::size_t>(p),
                 [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA { storePairs(x + 2 * k, src.template load<n>(k)); });
  T aRe[largestDirectHalf], aIm[largestDirectHalf], bRe[largestDirectHalf], bIm[largestDirectHalf];
  T sumRe = x[0], sumIm = x[1];
  for (int j = 1; j <= h; ++j) {
    const int u = engine.power[engine.logarithm[j - 1]], v = p - u;  // j and -j, or the other way about
    aRe[j - 1] = x[2 * u] + x[2 * v];
    aIm[j - 1] = x[2 * u + 1] + x[2 * v + 1];
    bRe[j - 1] = x[2 * u] - x[2 * v];
    bIm[j - 1] = x[2 * u + 1] - x[2 * v + 1];
    sumRe += aRe[j - 1];
    sumIm += aIm[j - 1];
  }
  y[0] = sumRe;
  y[1] = sumIm;
  using V = Vec<T, L>;
  struct Sums {
    V cRe, cIm, sRe, sIm;
  };
  for (int m = 0; m < h; m += L) {
    const auto products = [&](int j) ZORS_INLINE_LAMBDA {
      const T* const row = engine.directRoots + engine.logarithm[j] + m;
      const V c = held(load<L>(row)), s = held(load<L>(row + directRow<T>(h)));
      return Sums{mul(c, same(c, aRe[j])), mul(c, same(c, aIm[j])), mul(s, same(s, bRe[j])), mul(s, same(s, bIm[j]))};
    };
    const auto plus = [](Sums a, Sums b) ZORS_INLINE_LAMBDA {
      return Sums{add(a.cRe, b.cRe), add(a.cIm, b.cIm), add(a.sRe, b.sRe), add(a.sIm, b.sIm)};
    };
    Sums odd = products(0), even = products(1);
    odd.cRe = add(splat<V>(x[0]), odd.cRe);
    odd.cIm = add(splat<V>(x[1]), odd.cIm);
    for (int j = 2; j < h; j += 2) {
      odd = plus(odd, products(j));
      if (j + 1 < h) even = plus(even, products(j + 1));
    }
    const Sums all = plus(odd, even);
    T lowRe[L], lowIm[L], highRe[L], highIm[L];
    store(lowRe, sub(all.cRe, all.sIm));
    store(lowIm, add(all.cIm, all.sRe));
    store(highRe, add(all.cRe, all.sIm));
    store(highIm, sub(all.cIm, all.sRe));
    for (int i = 0; i < L && m + i < h; ++i) {
      const int k = engine.power[m + i];
      y[2 * k] = lowRe[i];
      y[2 * k + 1] = lowIm[i];
      y[2 * (p - k)] = highRe[i];
      y[2 * (p - k) + 1] = highIm[i];
    }
  }
  overColumns<T>(static_cast<std::size_t>(p),
                 [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA { dst.template store<n>(k, loadPairs<n>(y + 2 * k)); });
}

// ---- Chirp --------------------------------------------------------------------------------------

template <class T> ZorStatus innerTransform(const Engine<T>& inner, bool inverse, T* points, Zor8u* work) {
  if (inner.method == Method::fft) {
    using Fft = FftOf<ComplexOf<T>>;
    auto* const both = reinterpret_cast<ComplexOf<T>*>(points);
    const auto* const spec = static_cast<const typename Fft::Spec*>(inner.fft);
    return inverse ? Fft::inverse(both, both, spec, work) : Fft::forward(both, both, spec, work);
  }
  const Sign sign = inverse ? Sign::changed : Sign::kept;
  chainTransform(inner, InterleavedSource<T>(points, sign), InterleavedTarget<T>(points, 1, sign),
                 reinterpret_cast<T*>(work));
  return zorStatusOk;
}

// X[k] = w[k] (t * conj w)[k] of t[n] = w[n] x[n] and w[n] = exp(-pi i n^2 / N); an inverse is the same with X[1] to
// X[N - 1] in reverse.
template <class T, class Source, class Target>
ZorStatus chirpTransform(const Engine<T>& engine, bool inverse, Source src, Target dst, Zor8u* work) {
  const auto points = static_cast<std::size_t>(engine.points),
             length = static_cast<std::size_t>(engine.convolutionLength);
  T* const t = reinterpret_cast<T*>(work);
  Zor8u* const innerWork = work + length * 2 * sizeof(T);
  overColumns<T>(points, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    storePairs(t + 2 * k, product(loadPairs<n>(engine.chirp + 2 * k), src.template load<n>(k)));
  });
  std::memset(t + 2 * points, 0, (length - points) * 2 * sizeof(T));
  if (const ZorStatus status = innerTransform(*engine.inner, false, t, innerWork); status != zorStatusOk) return status;
  overColumns<T>(length, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    storePairs(t + 2 * k, product(loadPairs<n>(engine.chirpSpectrum + 2 * k), loadPairs<n>(t + 2 * k)));
  });
  if (const ZorStatus status = innerTransform(*engine.inner, true, t, innerWork); status != zorStatusOk) return status;
  const auto last = [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
    return product(loadPairs<n>(engine.chirp + 2 * k), loadPairs<n>(t + 2 * k));
  };
  if (!inverse) {
    overColumns<T>(points, [&]<int n>(std::size_t k)
                               ZORS_INLINE_LAMBDA { dst.template store<n>(k, last.template operator()<n>(k)); });
  } else {
    dst.template store<1>(0, last.template operator()<1>(0));
    overColumns<T>(points - 1, [&]<int n>(std::size_t i) ZORS_INLINE_LAMBDA {
      dst.template store<n>(points - 1 - i - (n - 1), reversed(last.template operator()<n>(i + 1)));
    });
  }
  return zorStatusOk;
}

}  // namespace zors::dft
