// Products, exact where the elements are integers.
#pragma once

#include "frame/elementwise.h"
#include "zors/types.h"

namespace zors {

// ---- Widening -----------------------------------------------------------------------------------

namespace products {

using namespace simd;

// The low and high halves of 16-bit products, joined.
template <class W, int L, class N, class High> ZORS_INLINE Split<W, L> joinHalves(Vec<N, L> low, High high) {
  return build<Split<W, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return i % 2 == 0 ? _mm256_unpacklo_epi16(low.r[i / 2], high(i / 2))
                      : _mm256_unpackhi_epi16(low.r[i / 2], high(i / 2));
  });
}

// Products of 32-bit elements at the even places of a and b.
template <class V> ZORS_INLINE auto mulEven(V a, V b) {
  return build<Vec<Zor64s, V::registers * 4>>([&](auto i)
                                                  ZORS_INLINE_LAMBDA { return _mm256_mul_epi32(a.r[i], b.r[i]); });
}
// The odd places moved to the even ones.
template <class V> ZORS_INLINE V oddToEven(V x) {
  return build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_srli_epi64(x.r[i], 32); });
}

}  // namespace products

// ---- The operation ------------------------------------------------------------------------------

struct Times {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::mul(a, b); }  // floats

  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor8u, L> a, simd::Vec<Zor8u, L> b) const {
    using namespace simd;
    return mul(as<Zor16u>(widen(a)), as<Zor16u>(widen(b)));
  }
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor16s, L> a, simd::Vec<Zor16s, L> b) const {
    return Roomy{products::joinHalves<Zor32s>(
        simd::mul(a, b), [&](int i) ZORS_INLINE_LAMBDA { return _mm256_mulhi_epi16(a.r[i], b.r[i]); })};
  }
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor16u, L> a, simd::Vec<Zor16u, L> b) const {
    return products::joinHalves<Zor32u>(simd::mul(a, b),
                                        [&](int i) ZORS_INLINE_LAMBDA { return _mm256_mulhi_epu16(a.r[i], b.r[i]); });
  }
  // The high half of a * b is that of an unsigned product, less a where b is negative.
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor16u, L> a, simd::Vec<Zor16s, L> b) const {
    return products::joinHalves<Zor32s>(simd::mul(simd::as<Zor16s>(a), b), [&](int i) ZORS_INLINE_LAMBDA {
      const __m256i excess = _mm256_and_si256(a.r[i], _mm256_srai_epi16(b.r[i], 15));
      return _mm256_sub_epi16(_mm256_mulhi_epu16(a.r[i], b.r[i]), excess);
    });
  }

  // re = a.re * b.re - a.im * b.im: the multiply-add of pairs takes -b.im - 1 for -b.im, which cannot overflow, and
  // a.im is added. im = a.re * b.im + a.im * b.re wraps in one place only, four parts of -32768: 2^31 there becomes
  // 2^31 - 1, which every shift rounds as 2^31.
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor16sc, L> a, simd::Vec<Zor16sc, L> b) const {
    using V = simd::Vec<Zor32s, L>;
    const __m256i oddOnes = _mm256_set1_epi32(int(0xFFFF0000)), wrapped = _mm256_set1_epi32(INT32_MIN);
    const __m256i exchange =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13));
    return Parts{simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
                   const __m256i t = _mm256_madd_epi16(a.r[i], _mm256_xor_si256(b.r[i], oddOnes));
                   return _mm256_add_epi32(t, _mm256_srai_epi32(a.r[i], 16));
                 }),
                 simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA {
                   const __m256i exchanged = _mm256_shuffle_epi8(b.r[i], exchange);
                   const __m256i t = _mm256_madd_epi16(a.r[i], exchanged);
                   return _mm256_add_epi32(t, _mm256_cmpeq_epi32(t, wrapped));
                 })};
  }

  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor32s, L> a, simd::Vec<Zor32s, L> b) const {
    using namespace products;
    return Parts{mulEven(a, b), mulEven(oddToEven(a), oddToEven(b))};
  }
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor32s, L> a, simd::Vec<Zor32sc, L> b) const {
    using namespace products;
    const auto wide = extend<Zor64s>(a);
    return Parts{mulEven(wide, as<Zor64s>(b)), mulEven(wide, oddToEven(as<Zor64s>(b)))};
  }
  // As with 16 bits: the only sum past the range is 2^63, and 2^63 - 1 rounds as it.
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor32sc, L> a, simd::Vec<Zor32sc, L> b) const {
    using namespace products;
    const auto aRe = as<Zor64s>(a), bRe = as<Zor64s>(b), aIm = oddToEven(aRe), bIm = oddToEven(bRe);
    const auto im = add(mulEven(aRe, bIm), mulEven(aIm, bRe));
    return Parts{sub(mulEven(aRe, bRe), mulEven(aIm, bIm)), add(im, equal(im, same(im, INT64_MIN)))};
  }
};

// 16-bit elements, products in 32 bits and memory order.
struct TimesWide {
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor16s, L> a, simd::Vec<Zor16s, L> b) const {
    return Roomy{simd::inOrder(Times{}(a, b).t)};
  }
};

struct TimesSaturated {  // 16s
  ZORS_INLINE auto operator()(auto a, auto b) const { return saturated<Zor16s>(Times{}(a, b)); }
};

// Limited to 32 bits, then rounded in the current direction.
template <int L> ZORS_INLINE auto toSaturated32s(simd::Vec<Zor64f, L> y) {
  using namespace simd;
  return toIntegerCurrent(min(max(y, same(y, -2147483648.0)), same(y, 2147483647.0)));
}

// 32-bit products by the rule of binary64: y = (a * factor) * b rounds once to 53 bits, is limited and rounded to
// an integer. For a RoundingScope of nearest.
struct TimesInDouble {
  Zor64f factor;
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor32s, L> a, simd::Vec<Zor32s, L> b) const {
    using namespace simd;
    const auto x = toDouble(a);
    return toSaturated32s(mul(mul(x, same(x, factor)), toDouble(b)));
  }
};
// 2^-scaleFactor; scale factors beyond the clamps give the same results, bounds of the sign and zeros.
inline Zor64f productFactor(Zor32s scaleFactor) { return exactPower(scaleFactor, -33, 64); }

// Real times complex: each part by one multiplication.
struct TimesParts {
  template <int L> ZORS_INLINE auto operator()(simd::Vec<Zor32f, L> a, simd::Vec<Zor32fc, L> b) const {
    using namespace simd;
    return as<Zor32fc>(mul(as<Zor32f>(toComplex(a, a)), as<Zor32f>(b)));
  }
};

}  // namespace zors
