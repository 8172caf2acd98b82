// The specification of a transform of any length, and the engine that runs on it.
#pragma once

#include "dft/dft_plan.h"
#include "exports/dft.h"
#include "exports/fft.h"
#include "frame/fft_by_type.h"
#include "frame/object.h"

namespace zors::dft {

// One pass of a chain: blocks of radix * rest points, of which the parts of rest points are done, become one. twiddles:
// W^(j k) for j from 1 to radix - 1 of W = exp(-2 pi i / (radix * rest)), in the order of use; roots: those of a radix
// without a kernel of its own.
template <class T> struct Stage {
  Zor32s radix, rest;
  const T* twiddles;
  const T* roots;
};

// What the complex transform of a specification holds. Immutable after it is made.
template <class T> struct Engine {
  Method method;
  Zor32s points;
  Zor32s stages;                         // of a chain
  Stage<T> stage[Factors::capacity];
  Zor32s leaf;
  const T* leafRoots;                    // of a leaf without a kernel
  const T* directRoots;                  // cosines, then minus sines, of the powers of a generator
  Zor8u logarithm[24], power[24];        // of the direct method, for j from 1: the generator's power that is j or -j; its j-th power
  Zor32s convolutionLength;
  const T *chirp, *chirpSpectrum;
  void* fft;                             // of a power of two: of the kind, or complex within a chirp
  Engine* inner;                         // of a chirp
  std::size_t workBytes;                 // what a transform uses of aligned work memory
};

template <class T> struct Spec {
  Tag tag;
  Zor32s len;
  Zor8u* owned;
  Zor32s scaleForward, scaleInverse;  // 1 where that direction multiplies by scale
  T scale;
  Zor32s hint;
  Zor32s workSize;
  const T *realForward, *realInverse;  // factors of even real lengths
  Engine<T> engine;

  T factor(bool inverse) const { return (inverse ? scaleInverse : scaleForward) != 0 ? scale : T(1); }
};

enum class Field { complex, real };
// C: the complex kind's element, whose transforms of powers of two serve; R: of real kinds.
template <Tag number, class T, Field dataField, class FftElement> struct Kind : Spec<T> {
  using Element = T;
  using Fft = FftOf<FftElement>;
  static constexpr Tag kind = zors::tag(number);
  static constexpr Field field = dataField;
};

// Every function rounds the pointer that it is given up to the specification by itself.
template <class S> S* aligned(S* spec) { return spec == nullptr ? nullptr : alignUp(spec, Scratch::alignment); }

// spec, its kind, data pointers, work memory; then run(spec, work).
template <class S, class Run, class... P> ZorStatus withSpec(const S* given, Zor8u* buffer, Run run, P*... data) {
  const S* const spec = aligned(given);
  return check().pointers(spec).state(spec, S::kind).pointers(data...).then([&]() -> ZorStatus {
    if (spec->engine.method == Method::fft) return run(*spec, buffer);
    const Scratch work(buffer, spec->workSize > 0 ? spec->engine.workBytes : 0);
    return work ? run(*spec, work.data()) : zorStatusNoMemory;
  });
}

}  // namespace zors::dft
