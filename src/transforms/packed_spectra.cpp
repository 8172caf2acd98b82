// zorsMulPack_*, zorsMulPerm_*, zorsMulPackConj_* of float values: products of packed spectra.
#include "frame/check.h"
#include "frame/map.h"
#include "transforms/packed.h"

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

template <class T> struct PairOf;
template <> struct PairOf<Zor32f> { using type = Zor32fc; };
template <> struct PairOf<Zor64f> { using type = Zor64fc; };

// Real terms by one product, pairs by Op.
template <class Op, Packed format, class T> ZorStatus multiply(const T* src1, const T* src2, T* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    using Pair = typename PairOf<T>::type;
    const std::size_t n = std::size_t(len), pairs = (n - 1) / 2, start = format == Packed::perm && n % 2 == 0 ? 2 : 1;
    dst[0] = src1[0] * src2[0];
    if (n % 2 == 0) {
      const std::size_t last = format == Packed::perm ? 1 : n - 1;
      dst[last] = src1[last] * src2[last];
    }
    const auto pairsOf = [&](auto* x) {
      return reinterpret_cast<
          std::conditional_t<std::is_const_v<std::remove_pointer_t<decltype(x)>>, const Pair, Pair>*>(x + start);
    };
    if (pairs > 0) map<block<Pair>>(Op{}, std::ptrdiff_t(pairs), pairsOf(dst), pairsOf(src1), pairsOf(src2));
  });
}
// The operand that is overwritten is the second one.
template <Packed format, class T> ZorStatus multiplied(const T* src1, const T* src2, T* dst, Zor32s len) {
  return src1 == dst ? multiply<Product, format>(src2, src1, dst, len)
                     : multiply<Product, format>(src1, src2, dst, len);
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
// clang-format on

}  // namespace zors
