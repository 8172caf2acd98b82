// What a specification reports: fixed formulas, which do not depend on what this implementation lays out.
#pragma once

#include <algorithm>

#include "dft/dft_spec.h"

namespace zors::dft {

struct Sizes {
  Zor64s spec = 0, init = 0, work = 0;
  Zor64s stored = 0;  // the work size that a specification keeps
};

constexpr Zor64s up64(Zor64s bytes) { return (bytes + 63) & ~Zor64s{63}; }
template <class T> inline constexpr Zor64s pairBytes = 2 * Zor64s{sizeof(T)};

// As GetSize reports them: with the record, and with room for aligning where there is anything.
inline constexpr Zor64s recordBytes = 768;
constexpr Sizes reported(const Sizes& sizes) {
  const auto withSlack = [](Zor64s bytes) { return bytes > 0 ? bytes + 64 : 0; };
  return {recordBytes + sizes.spec + 64, withSlack(sizes.init), withSlack(sizes.work), sizes.stored};
}

template <class Fft> ZorStatus fftSizes(Zor32s len, Zor32s flag, Zor32s hint, Sizes& sizes) {
  Zor32s spec = 0, init = 0, work = 0;
  const ZorStatus status = Fft::getSize(orderOf(len), flag, static_cast<ZorHintAlgorithm>(hint), &spec, &init, &work);
  sizes = {up64(spec), up64(init), up64(work), up64(work)};
  return status;
}

template <class T> Sizes chainSizes(const Factors& factors, Zor32s points) {
  Sizes sizes;
  Zor64s rest = factors.leaf(), leaves = 1, scratch = 0;
  const auto generic = [&](int at, Zor64s columns) {
    const Zor32s p = factors.f[at];
    if (hasKernel(p)) return;
    scratch = std::max<Zor64s>(scratch, columns % 4 == 0 ? 4 * p : p);
    if (std::count(factors.f + at, factors.f + factors.count, p) == 1) sizes.spec += up64(16 * p);
  };
  generic(factors.stages(), 1);
  for (int i = factors.stages() - 1; i >= 0; --i) {
    const Zor64s block = factors.f[i] * rest;
    sizes.spec += up64(pairBytes<T> * block);
    if (block <= stageBlock) leaves *= factors.f[i];
    generic(i, rest);
    rest = block;
  }
  sizes.spec += up64(4 * leaves);
  sizes.init = up64(pairBytes<T> * points);
  sizes.work = sizes.stored = up64(pairBytes<T> * (points + scratch) + 128);
  return sizes;
}

// Of the complex transform of a plan; ownRoots: no table of 2 N roots is there for a chirp.
template <class T> Sizes engineSizes(const Plan& plan, Zor32s points, bool ownRoots) {
  constexpr Zor64s bytes = pairBytes<T>;
  switch (plan.method) {
    case Method::chain:
      return chainSizes<T>(plan.factors, points);
    case Method::direct:
      return {up64(16 * points), up64(bytes * points), up64(bytes * points), bytes * points + 64};
    case Method::chirp: {
      const Zor64s length = plan.convolutionLength;
      Sizes inner;
      if (isPowerOfTwo(plan.convolutionLength))  // within every limit
        static_cast<void>(fftSizes<FftOf<ComplexOf<T>>>(plan.convolutionLength, ZOR_FFT_DIVIDE_NONE, 0, inner));
      else
        inner = chainSizes<T>(chainOf(plan.convolutionLength), plan.convolutionLength);
      inner = reported(inner);
      const Zor64s innerWork = up64(inner.work);
      return {up64(bytes * length) + up64(bytes * points) + up64(inner.spec),
              up64(bytes * points) + (ownRoots ? up64(2 * bytes * points) : 0) + up64(inner.init) + innerWork,
              innerWork + up64(innerWork + bytes * length + 127), innerWork + bytes * length + 64};
    }
    default:
      return {};
  }
}

}  // namespace zors::dft
