// The sums of auto- and cross-correlation, by the way that a plan names, and their normalisations.
#pragma once

#include <cmath>

#include "correlation/direct.h"
#include "correlation/spectral.h"

namespace zors {

enum class Method { automatic = 0, direct = 1, transforms = 2 };

// ---- Autocorrelation ----------------------------------------------------------------------------

template <class T> inline constexpr Zor32s autoThreshold = std::is_same_v<simd::Part<T>, Zor64f> ? 128 : 1200;

template <class T> Plan planAuto(Zor32s srcLen, Zor32s lags, Method method) {
  if (method == Method::direct || (method == Method::automatic && lags < autoThreshold<T>)) return {};
  // Complex spectra are multiplied by a conjugated copy.
  return {Plan::whole, orderOf(Zor64s{2} * srcLen, 1), Complex<T> ? 2 : 1};
}

template <class T> ZorStatus powerSpectrum(const Space<T>& space) {
  T* block = space.block(0);
  if constexpr (std::is_same_v<T, Zor32f>) {
    return zors::zorsMulPackConj_32f_I(block, block, space.len);
  } else if constexpr (std::is_same_v<T, Zor64f>) {
    return zors::zorsMulPackConj_64f_I(block, block, space.len);
  } else {
    T* copy = space.block(1);
    by_type::copy(block, copy, space.len);
    conjugate(copy, space.len);
    return FftOf<T>::multiply(copy, block, space.len);
  }
}
inline ZorStatus packed(Zor32f* block, const Space<Zor32f>& s) {
  return zors::zorsFFTFwd_RToPack_32f_I(block, s.spec, s.work);
}
inline ZorStatus packed(Zor64f* block, const Space<Zor64f>& s) {
  return zors::zorsFFTFwd_RToPack_64f_I(block, s.spec, s.work);
}
inline ZorStatus unpacked(Zor32f* block, const Space<Zor32f>& s) {
  return zors::zorsFFTInv_PackToR_32f_I(block, s.spec, s.work);
}
inline ZorStatus unpacked(Zor64f* block, const Space<Zor64f>& s) {
  return zors::zorsFFTInv_PackToR_64f_I(block, s.spec, s.work);
}
template <Complex T> ZorStatus packed(T* block, const Space<T>& s) {
  return FftOf<T>::forward(block, block, s.spec, s.work);
}
template <Complex T> ZorStatus unpacked(T* block, const Space<T>& s) {
  return FftOf<T>::inverse(block, block, s.spec, s.work);
}

// dst[k] = sum of conj(src[n]) * src[n + k], for lags values of k, at most srcLen.
template <class T> void autoDirect(const T* src, Zor32s srcLen, T* dst, Zor32s lags) {
  direct::correlate(ConjugateTaps<T>{src}, srcLen, src, srcLen, 0, dst, lags);
}
template <class T> ZorStatus autoByTransforms(const Space<T>& space, const T* src, Zor32s srcLen, T* dst, Zor32s lags) {
  T* block = space.block(0);
  window(src, srcLen, 0, block, space.len);
  ZorStatus status = packed(block, space);
  if (status == zorStatusOk) status = powerSpectrum(space);
  if (status == zorStatusOk) status = unpacked(block, space);
  if (status == zorStatusOk) by_type::copy(block, dst, lags);
  return status;
}

// ---- Cross-correlation --------------------------------------------------------------------------

// The outputs that have products: those behind `before` zeros, `count` of them, `after` zeros behind. `lag` is the
// first one's, and `skip` its place among all len1 + len2 - 1.
struct Lags {
  Zor32s before, count, after;
  Zor64s lag, skip;
};
inline Lags trimmed(Zor32s len1, Zor32s len2, Zor32s dstLen, Zor64s lowLag) {
  const Zor64s before = std::clamp<Zor64s>(1 - len1 - lowLag, 0, dstLen), lag = lowLag + before;
  const Zor64s count = std::clamp<Zor64s>(len2 - lag, 0, dstLen - before);
  return {Zor32s(before), Zor32s(count), Zor32s(dstLen - before - count), lag, lag + len1 - 1};
}
// Zeros around the sums; where the sums go.
template <class T> T* zeroOutside(const Lags& lags, T* dst) {
  zeros(dst, lags.before);
  zeros(dst + lags.before + lags.count, lags.after);
  return dst + lags.before;
}

template <class T>
inline constexpr Zor32f crossThreshold = std::is_same_v<simd::Part<T>, Zor64f> ? 511
                                         : Complex<T>                          ? 255
                                                                               : 383;

template <class T> Plan planCross(Zor32s len1, Zor32s len2, const Lags& lags, Method method) {
  if (lags.count == 0 || method == Method::direct) return {};
  const Zor32s shorter = std::min(len1, len2), longer = std::max(len1, len2);
  const Zor32f work = static_cast<Zor32f>(shorter) * static_cast<Zor32f>(lags.count) / static_cast<Zor32f>(longer);
  if (method == Method::automatic && !(std::trunc(work) > crossThreshold<T>)) return {};
  if (longer >= Zor64s{3} * shorter && lags.skip <= shorter) return planPieces(shorter);
  return planWhole(Zor64s{len1} + len2 - 1, 1);
}

// dst[n] = sum of conj(src1[k]) * src2[k + lag + n] for the outputs that have products.
template <class T> void crossDirect(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, const Lags& lags) {
  direct::correlate(ConjugateTaps<T>{src1}, len1, src2, len2, lags.lag, dst, lags.count);
}
template <class T>
ZorStatus crossByTransforms(const Space<T>& space, Plan::Way way, const T* src1, Zor32s len1, const T* src2,
                            Zor32s len2, T* dst, const Lags& lags) {
  constexpr auto turned = Taps::turnedAndConjugated;
  if (way == Plan::whole) return convolveWhole(space, src1, len1, turned, src2, len2, lags.skip, dst, lags.count);
  if (len1 <= len2) return convolvePieces(space, src1, len1, turned, src2, len2, lags.skip, dst, lags.count);
  // With src2 as the taps come the conjugates, in reverse.
  const Zor64s first = Zor64s{len1} + len2 - 1 - lags.skip - lags.count;
  const ZorStatus status = convolvePieces(space, src2, len2, turned, src1, len1, first, dst, lags.count);
  if (status != zorStatusOk) return status;
  flip(dst, lags.count);
  return conjugate(dst, lags.count);
}

// ---- 16-bit results -----------------------------------------------------------------------------

// Beyond these factors every sum saturates or becomes zero; the conversion forms its own factor in binary32.
inline void narrowSums(const Zor32f* sums, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  by_type::narrow(sums, dst, len, std::clamp(scaleFactor, -126, 126));
}

// ---- Normalisation ------------------------------------------------------------------------------

inline ZorStatus divide(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return zors::zorsDiv_32f_I(src, srcDst, len); }
inline ZorStatus divide(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return zors::zorsDiv_64f_I(src, srcDst, len); }

// dst[k] / (first + k * step), both parts of complex elements by the same number.
template <class T> ZorStatus divideByCounts(T* dst, Zor32s len, Zor32s first, Zor32s step) {
  constexpr Zor32s chunk = 256, parts = Complex<T> ? 2 : 1;
  simd::Part<T> counts[chunk * parts];
  ZorStatus status = zorStatusOk;
  for (Zor64s done = 0; status == zorStatusOk && done < len; done += chunk) {
    const auto count = static_cast<Zor32s>(std::min<Zor64s>(chunk, len - done));
    const auto base = static_cast<Zor32s>(first + done * step);
    for (Zor32s i = 0; i < count * parts; ++i) counts[i] = static_cast<simd::Part<T>>(base + i / parts * step);
    status = divide(counts, components(dst + done), count * parts);
  }
  return status;
}
template <class T> ZorStatus multiplyByInverse(T* dst, Zor32s len, Zor32s divisor) {
  using P = simd::Part<T>;
  constexpr Zor32s most = INT32_MAX / 2;  // parts are counted in 32 bits too
  ZorStatus status = zorStatusOk;
  for (Zor64s done = 0; status == zorStatusOk && done < len; done += most)
    status =
        by_type::multiplyBy(P(1) / static_cast<P>(divisor), dst + done, Zor32s(std::min<Zor64s>(most, len - done)));
  return status;
}

}  // namespace zors
