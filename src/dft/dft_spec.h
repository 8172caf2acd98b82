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
template <class T> std::size_t blockOf(const Stage<T>& stage) {
  return static_cast<std::size_t>(stage.radix) * static_cast<std::size_t>(stage.rest);
}

// What the complex transform of a specification holds. Immutable after it is made.
template <class T> struct Engine {
  Method method;
  Zor32s points;
  Zor32s stages;  // of a chain
  Stage<T> stage[Factors::capacity];
  Zor32s leaf, leaves;             // points of one, and how many there are
  const T* leafRoots;              // of a leaf without a kernel
  const Zor32u* places;            // of the leaves of a chain of one block
  const T* directRoots;            // cosines, then minus sines, of the powers of a generator
  Zor8u power[24], logarithm[24];  // of the generator; for j from 1 that whose power is j or -j
  Zor32s convolutionLength;
  const T *chirp, *chirpSpectrum;
  void* fft;              // of a power of two: of the kind, or complex within a chirp
  Engine* inner;          // of a chirp
  std::size_t workBytes;  // what a transform uses of aligned work memory
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

template <class T> using ComplexOf = std::conditional_t<sizeof(T) == 4, Zor32fc, Zor64fc>;

// Transforms of powers of two of split data.
template <class T> struct SplitFftOf;
template <> struct SplitFftOf<Zor32f> {
  using Spec = ZorsFFTSpec_C_32f;
  static constexpr auto getSize = &zors::zorsFFTGetSize_C_32f;
  static constexpr auto init = &zors::zorsFFTInit_C_32f;
  static constexpr auto forward = &zors::zorsFFTFwd_CToC_32f;
  static constexpr auto inverse = &zors::zorsFFTInv_CToC_32f;
};
template <> struct SplitFftOf<Zor64f> {
  using Spec = ZorsFFTSpec_C_64f;
  static constexpr auto getSize = &zors::zorsFFTGetSize_C_64f;
  static constexpr auto init = &zors::zorsFFTInit_C_64f;
  static constexpr auto forward = &zors::zorsFFTFwd_CToC_64f;
  static constexpr auto inverse = &zors::zorsFFTInv_CToC_64f;
};

// PowerOfTwo: the transforms that serve a power of two above largestSmall.
enum class Field { complex, real };
template <Tag number, class T, Field dataField, class PowerOfTwo> struct Kind : Spec<T> {
  using Element = T;
  using Fft = PowerOfTwo;
  static constexpr Tag kind = number;
  static constexpr Field field = dataField;
};

// ---- The engine ---------------------------------------------------------------------------------

inline constexpr Zor32s stageBlock = 2000;  // points of a chain that stay in the first-level cache

inline constexpr int largestDirectHalf = 24;  // (47 - 1) / 2, in full vectors
// Minus sines stand behind so many cosines: the powers 0 to 2 h - 2 of the generator, and what the last vector reads.
template <class T> constexpr std::size_t directRow(int h) {
  constexpr int L = 32 / int{sizeof(T)};
  return static_cast<std::size_t>(h - 1 + (h + L - 1) / L * L);
}

// Any method but powers of two above largestSmall. work: the engine's workBytes, aligned; src may be dst. The result is
// multiplied by factor.
template <class T> struct Split { T *re, *im; };
template <class T>
ZorStatus interleavedTransform(const Engine<T>& engine, bool inverse, const T* src, T* dst, T factor, Zor8u* work);
template <class T>
ZorStatus splitTransform(const Engine<T>& engine, bool inverse, Split<const T> src, Split<T> dst, T factor,
                         Zor8u* work);
template <class T> ZorStatus toPermSpectrum(const Spec<T>& spec, const T* src, T* dst, Zor8u* work);
template <class T> ZorStatus fromPermSpectrum(const Spec<T>& spec, const T* src, T* dst, Zor8u* work);

// The transform of a convolution's length, in place, unscaled; powers of two too.
template <class T> ZorStatus innerTransform(const Engine<T>& inner, bool inverse, T* points, Zor8u* work);

// InitAlloc by the chirp, whatever factors the length has; arguments have been checked.
template <class S> ZorStatus initAllocConvolved(S** specOut, Zor32s len, Zor32s flag, Zor32s hint);

// ---- Checks -------------------------------------------------------------------------------------

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

// The public kinds.
struct ZorsDFTSpec_C_32fc : zors::dft::Kind<zors::tag(13), Zor32f, zors::dft::Field::complex, zors::FftOf<Zor32fc>> {};
struct ZorsDFTSpec_C_32f
    : zors::dft::Kind<zors::tag(14), Zor32f, zors::dft::Field::complex, zors::dft::SplitFftOf<Zor32f>> {};
struct ZorsDFTSpec_R_32f : zors::dft::Kind<zors::tag(15), Zor32f, zors::dft::Field::real, zors::FftOf<Zor32f>> {};
struct ZorsDFTSpec_C_64fc : zors::dft::Kind<zors::tag(16), Zor64f, zors::dft::Field::complex, zors::FftOf<Zor64fc>> {};
struct ZorsDFTSpec_C_64f
    : zors::dft::Kind<zors::tag(17), Zor64f, zors::dft::Field::complex, zors::dft::SplitFftOf<Zor64f>> {};
struct ZorsDFTSpec_R_64f : zors::dft::Kind<zors::tag(18), Zor64f, zors::dft::Field::real, zors::FftOf<Zor64f>> {};
