// The specification of a cosine transform.
#pragma once

#include "dft/dft_plan.h"
#include "exports/dft.h"
#include "frame/by_type.h"
#include "frame/fft_by_type.h"
#include "frame/object.h"

namespace zors::dct {

template <class T> using ComplexOf = std::conditional_t<sizeof(T) == 4, Zor32fc, Zor64fc>;

enum class Method : Zor32s { kernel, fft, direct, chirp };

template <class T> inline constexpr Zor32s directLimit = sizeof(T) == 4 ? 36 : 46;  // shorter lengths sum directly
template <class T> constexpr Method methodOf(Zor32s len) {
  if (len <= 8 && dft::isPowerOfTwo(len)) return Method::kernel;
  if (dft::isPowerOfTwo(len)) return Method::fft;
  return len < directLimit<T> ? Method::direct : Method::chirp;
}
// The points of a chirp's transform, and the power of two in which it is convolved.
constexpr Zor32s pointsOf(Zor32s len) { return len % 2 == 0 ? len / 2 : len; }
constexpr Zor32s convolutionOf(Zor32s len) {
  Zor32s length = 1;
  while (length < 2 * pointsOf(len) - 1) length *= 2;
  return length;
}

template <class T> struct Spec {
  Tag tag;
  Zor32s len, hint, workSize;  // bytes, without the slack for aligning
  Zor8u* owned;
  T firstScale, otherScale;
  Method method;
  Zor32s convolutionLength;
  const T* cosines;  // of all 4 N parts of a turn
  const T* factors;  // the real parts for k from 0, then the imaginary ones
  const T* unpack;
  const T *chirp, *chirpSpectrum;
  void* fft;  // of real values, or complex within a chirp
};

enum class Direction : bool { forward, inverse };

template <Tag number, class T, Direction way> struct Kind : Spec<T> {
  using Element = T;
  static constexpr Tag kind = number;
  static constexpr Direction direction = way;
};

// One transform; work: workSize bytes, aligned, or null where that is 0. src may be dst.
template <Direction direction, class T> ZorStatus transform(const Spec<T>& spec, const T* src, T* dst, Zor8u* work);

}  // namespace zors::dct

// The public kinds.
struct ZorsDCTFwdSpec_32f : zors::dct::Kind<zors::tag(21), Zor32f, zors::dct::Direction::forward> {};
struct ZorsDCTInvSpec_32f : zors::dct::Kind<zors::tag(22), Zor32f, zors::dct::Direction::inverse> {};
struct ZorsDCTFwdSpec_64f : zors::dct::Kind<zors::tag(23), Zor64f, zors::dct::Direction::forward> {};
struct ZorsDCTInvSpec_64f : zors::dct::Kind<zors::tag(24), Zor64f, zors::dct::Direction::inverse> {};
