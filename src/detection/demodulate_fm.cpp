// zorsDemodulateFM_CToR_16s: frequency demodulation.
#include <cstring>

#include "exports/detection.h"
#include "frame/check.h"
#include "frame/simd.h"

namespace zors {
namespace {

using namespace simd;

constexpr int L = lanesOf<Zor16s>;
using Words = Vec<Zor16s, L>;
using Angles = Vec<Zor32f, L>;

// The points one place earlier: last is the last register of them.
ZORS_INLINE Words delayed(Words points, Words last) {
  const __m256i seam = _mm256_permute2x128_si256(last.r[0], points.r[0], 0x21);
  return {{_mm256_alignr_epi8(points.r[0], seam, 14)}};
}

// a * x + b * y in 32 bits, of pairs; wraps where all four are -32768.
ZORS_INLINE Vec<Zor32s, L> dot(Vec<Zor16sc, L> p, Vec<Zor16sc, L> q) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_madd_epi16(p.r[i], q.r[i]); });
}
// p * conj(q): the imaginary part is p.im * q.re + p.re * (-q.im - 1) + p.re, since -q.im may overflow.
ZORS_INLINE Vec<Zor32s, L> crossed(Vec<Zor16sc, L> p, Words qRe, Words qIm) {
  const auto q = toComplex(differing(qIm, same(qIm, -1)), qRe);
  return add(dot(p, q), wideReal(p));
}

ZORS_INLINE Angles rational(Angles t) {
  const auto c = [&](Zor32f value) ZORS_INLINE_LAMBDA { return same(t, value); };
  const auto u = mul(t, t);
  const auto numerator =
      add(t, mul(mul(t, u), add(c(1.120234f), mul(u, add(c(0.28050455f), mul(u, c(0.008561189f)))))));
  const auto denominator = add(c(1), mul(u, add(c(1.4535671f), mul(u, add(c(0.565031f), mul(u, c(0.04901759f)))))));
  return div(numerator, denominator);
}

// The angle of re + i im over pi / 32768.
ZORS_INLINE Words turn(Angles re, Angles im) {
  const auto absRe = magnitude(re), absIm = magnitude(im), zero = same(re, 0);
  const auto larger = max(absRe, absIm), divisor = select(equal(larger, zero), larger, same(re, 1));
  const auto atan = rational(div(min(absRe, absIm), divisor));
  const auto steep = select(above(absIm, absRe), atan, sub(same(re, 1.5707964f), atan));
  const auto angle = selectBySign(re, steep, sub(same(re, 3.1415927f), steep));
  const auto sign = signOf(im);
  const auto scaled = mul(either(angle, sign), same(re, 10430.378f));
  return saturate<Zor16s>(toIntegerTowardZero(add(scaled, either(same(re, 0.5f), sign))));
}
ZORS_INLINE Words turns(Words re, Words im, Words lastRe, Words lastIm) {
  const auto p = toComplex(re, im);
  const auto qRe = delayed(re, lastRe), qIm = delayed(im, lastIm);
  return turn(toFloat(dot(p, toComplex(qRe, qIm))), toFloat(crossed(p, qRe, qIm)));
}

}  // namespace

ZorStatus zorsDemodulateFM_CToR_16s(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dst, Zor32s len,
                                    Zor16sc* dlyPoint) {
  return check().pointers(srcRe, srcIm, dst, dlyPoint).size(len).then([&] {
    Words lastRe = splat<Words>(dlyPoint->re), lastIm = splat<Words>(dlyPoint->im);
    *dlyPoint = {srcRe[len - 1], srcIm[len - 1]};
    Zor32s at = 0;
    for (; at + L <= len; at += L) {
      const auto re = held(load<L>(srcRe + at)), im = held(load<L>(srcIm + at));
      store(dst + at, turns(re, im, lastRe, lastIm));
      lastRe = re;
      lastIm = im;
    }
    if (at < len) {
      const auto bytes = static_cast<std::size_t>(len - at) * sizeof(Zor16s);
      Zor16s re[L] = {}, im[L] = {}, out[L];
      std::memcpy(re, srcRe + at, bytes);
      std::memcpy(im, srcIm + at, bytes);
      store(out, turns(load<L>(re), load<L>(im), lastRe, lastIm));
      std::memcpy(dst + at, out, bytes);
    }
  });
}

}  // namespace zors
