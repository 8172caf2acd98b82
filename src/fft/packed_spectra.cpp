// zorsMulPack_*, zorsMulPerm_*, zorsMulPackConj_*: products of packed spectra.
#include <algorithm>

#include "exports/arithmetic.h"
#include "exports/fft.h"
#include "fft/packed.h"
#include "frame/check.h"
#include "frame/map.h"

namespace zors {
namespace {

// Complex values in one register, real and imaginary parts by turns.
ZORS_INLINE __m256 realParts(__m256 x) { return _mm256_moveldup_ps(x); }
ZORS_INLINE __m256d realParts(__m256d x) { return _mm256_movedup_pd(x); }
ZORS_INLINE __m256 imaginaryParts(__m256 x) { return _mm256_movehdup_ps(x); }
ZORS_INLINE __m256d imaginaryParts(__m256d x) { return _mm256_permute_pd(x, 0xF); }
ZORS_INLINE __m256 exchanged(__m256 x) { return _mm256_permute_ps(x, 0xB1); }
ZORS_INLINE __m256d exchanged(__m256d x) { return _mm256_permute_pd(x, 0x5); }
ZORS_INLINE __m256 times(__m256 a, __m256 b) { return _mm256_mul_ps(a, b); }
ZORS_INLINE __m256d times(__m256d a, __m256d b) { return _mm256_mul_pd(a, b); }
ZORS_INLINE __m256 fmaMinusPlus(__m256 a, __m256 b, __m256 c) {
  return _mm256_fmaddsub_ps(a, b, c);
}  // minus c in real parts
ZORS_INLINE __m256d fmaMinusPlus(__m256d a, __m256d b, __m256d c) { return _mm256_fmaddsub_pd(a, b, c); }
ZORS_INLINE __m256 fmaPlusMinus(__m256 a, __m256 b, __m256 c) { return _mm256_fmsubadd_ps(a, b, c); }
ZORS_INLINE __m256d fmaPlusMinus(__m256d a, __m256d b, __m256d c) { return _mm256_fmsubadd_pd(a, b, c); }

// re = fma(a.re, b.re, -round(a.im * b.im)), im = fma(b.im, a.re, round(a.im * b.re))
struct Product {
  template <class V> ZORS_INLINE V operator()(V a, V b) const {
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
      return fmaMinusPlus(realParts(a.r[i]), b.r[i], times(imaginaryParts(a.r[i]), exchanged(b.r[i])));
    });
  }
};
// s conj(d): re = fma(d.re, s.re, round(s.im * d.im)), im = fma(d.re, s.im, -round(s.re * d.im))
struct ProductWithConjugate {
  template <class V> ZORS_INLINE V operator()(V s, V d) const {
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
      return fmaPlusMinus(realParts(d.r[i]), s.r[i], times(imaginaryParts(d.r[i]), exchanged(s.r[i])));
    });
  }
};

// Where the terms of a packed spectrum of len values stand: the second real term, if there is one, and the pairs.
template <Packed format> struct Places {
  std::size_t len, pairs = (len - 1) / 2;
  bool hasLast = len % 2 == 0;
  std::size_t last = format == Packed::perm ? 1 : len - 1, firstPair = format == Packed::perm && hasLast ? 2 : 1;
};

template <class T> struct PairOf;
template <> struct PairOf<Zor32f> { using type = Zor32fc; };
template <> struct PairOf<Zor64f> { using type = Zor64fc; };

// Real terms by one product, pairs by Op.
template <class Op, Packed format, class T> ZorStatus multiply(const T* src1, const T* src2, T* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    using Pair = typename PairOf<T>::type;
    const Places<format> at{std::size_t(len)};
    dst[0] = src1[0] * src2[0];
    if (at.hasLast) dst[at.last] = src1[at.last] * src2[at.last];
    const auto pairsOf = [&](auto* x) {
      return reinterpret_cast<
          std::conditional_t<std::is_const_v<std::remove_pointer_t<decltype(x)>>, const Pair, Pair>*>(x + at.firstPair);
    };
    if (at.pairs > 0) map<mapStep<Pair>>(Op{}, std::ptrdiff_t(at.pairs), pairsOf(dst), pairsOf(src1), pairsOf(src2));
  });
}
// The operand that is overwritten is the second one.
template <Packed format, class T> ZorStatus multiplied(const T* src1, const T* src2, T* dst, Zor32s len) {
  return src1 == dst ? multiply<Product, format>(src2, src1, dst, len)
                     : multiply<Product, format>(src1, src2, dst, len);
}

// Real terms of 16 bits: scaling down cuts, scaling up saturates.
Zor16s realProduct(Zor16s a, Zor16s b, Zor32s scaleFactor) {
  constexpr Zor32s low = INT16_MIN, high = INT16_MAX;
  const Zor32s product = a * b;
  if (scaleFactor >= 0) return static_cast<Zor16s>(std::clamp(product >> std::min(scaleFactor, 31), low, high));
  const int up = std::min(-std::max(scaleFactor, -16), 16);
  return static_cast<Zor16s>(std::clamp<Zor64s>(Zor64s{std::clamp(product, low, high)} * (1 << up), low, high));
}
template <Packed format>
ZorStatus multiplyScaled(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    const Places<format> at{std::size_t(len)};
    dst[0] = realProduct(src1[0], src2[0], scaleFactor);
    if (at.hasLast) dst[at.last] = realProduct(src1[at.last], src2[at.last], scaleFactor);
    if (at.pairs > 0)
      zors::zorsMul_16sc_Sfs(
          reinterpret_cast<const Zor16sc*>(src1 + at.firstPair), reinterpret_cast<const Zor16sc*>(src2 + at.firstPair),
          reinterpret_cast<Zor16sc*>(dst + at.firstPair), static_cast<Zor32s>(at.pairs), scaleFactor);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsMulPack_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return multiplied<Packed::pack>(src1, src2, dst, len); }
ZorStatus zorsMulPack_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return multiplied<Packed::pack>(src1, src2, dst, len); }
ZorStatus zorsMulPerm_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* dst, Zor32s len) { return multiplied<Packed::perm>(src1, src2, dst, len); }
ZorStatus zorsMulPerm_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* dst, Zor32s len) { return multiplied<Packed::perm>(src1, src2, dst, len); }
ZorStatus zorsMulPack_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return multiply<Product, Packed::pack>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPack_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return multiply<Product, Packed::pack>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPerm_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return multiply<Product, Packed::perm>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPerm_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return multiply<Product, Packed::perm>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPackConj_32f_I(const Zor32f* src, Zor32f* srcDst, Zor32s len) { return multiply<ProductWithConjugate, Packed::pack>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPackConj_64f_I(const Zor64f* src, Zor64f* srcDst, Zor32s len) { return multiply<ProductWithConjugate, Packed::pack>(src, srcDst, srcDst, len); }
ZorStatus zorsMulPack_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return multiplyScaled<Packed::pack>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMulPerm_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return multiplyScaled<Packed::perm>(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsMulPack_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return multiplyScaled<Packed::pack>(src, srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsMulPerm_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return multiplyScaled<Packed::perm>(src, srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
