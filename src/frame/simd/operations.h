// Operations of one instruction, and those on bits and saturating sums that need a few.
#pragma once

#include "frame/simd/vec.h"

namespace zors::simd {

// ---- Operations, one line each ------------------------------------------------------------------

// What the instruction set leaves out: shifts of bytes, and of signed 64-bit elements.
ZORS_INLINE __m256i shiftRight8(__m256i x, __m128i count) {
  const __m256i kept = _mm256_srl_epi16(_mm256_set1_epi16(0xFF), count);
  return _mm256_and_si256(_mm256_srl_epi16(x, count), _mm256_or_si256(kept, _mm256_slli_epi16(kept, 8)));
}
ZORS_INLINE __m256i shiftLeft8(__m256i x, __m128i count) {
  const __m256i kept = _mm256_and_si256(_mm256_sll_epi16(_mm256_set1_epi16(0xFF), count), _mm256_set1_epi16(0xFF));
  return _mm256_and_si256(_mm256_sll_epi16(x, count), _mm256_or_si256(kept, _mm256_slli_epi16(kept, 8)));
}
ZORS_INLINE __m256i shiftRight64(__m256i x, __m128i count) {
  const __m256i sign = _mm256_cmpgt_epi64(_mm256_setzero_si256(), x);
  return _mm256_xor_si256(_mm256_srl_epi64(_mm256_xor_si256(x, sign), count), sign);
}

#define ZORS_OP1(name, T, instruction)                                                          \
  template <int L, Order O> ZORS_INLINE Vec<T, L, O> name(Vec<T, L, O> a) {                     \
    return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(a.r[i]); }); \
  }
#define ZORS_OP(name, T, instruction)                                                                   \
  template <int L, Order O> ZORS_INLINE Vec<T, L, O> name(Vec<T, L, O> a, Vec<T, L, O> b) {             \
    return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(a.r[i], b.r[i]); }); \
  }
#define ZORS_OP3(name, T, instruction)                                                                          \
  template <int L, Order O> ZORS_INLINE Vec<T, L, O> name(Vec<T, L, O> a, Vec<T, L, O> b, Vec<T, L, O> c) {     \
    return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(a.r[i], b.r[i], c.r[i]); }); \
  }
#define ZORS_SHIFT(name, T, instruction)                                                                \
  template <int L, Order O> ZORS_INLINE Vec<T, L, O> name(Vec<T, L, O> a, int count) {                  \
    const __m128i counts = _mm_cvtsi32_si128(count);                                                    \
    return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(a.r[i], counts); }); \
  }

ZORS_OP(add, Zor8u, _mm256_add_epi8)  // integers: modular
ZORS_OP(add, Zor8s, _mm256_add_epi8)
ZORS_OP(add, Zor16s, _mm256_add_epi16)
ZORS_OP(add, Zor16u, _mm256_add_epi16)
ZORS_OP(add, Zor32s, _mm256_add_epi32)
ZORS_OP(add, Zor32u, _mm256_add_epi32)
ZORS_OP(add, Zor64s, _mm256_add_epi64)
ZORS_OP(add, Zor64u, _mm256_add_epi64)
ZORS_OP(add, Zor32f, _mm256_add_ps)
ZORS_OP(add, Zor64f, _mm256_add_pd)
ZORS_OP(add, Zor32fc, _mm256_add_ps)
ZORS_OP(add, Zor64fc, _mm256_add_pd)
ZORS_OP(sub, Zor8u, _mm256_sub_epi8)
ZORS_OP(sub, Zor8s, _mm256_sub_epi8)
ZORS_OP(sub, Zor16s, _mm256_sub_epi16)
ZORS_OP(sub, Zor16u, _mm256_sub_epi16)
ZORS_OP(sub, Zor32s, _mm256_sub_epi32)
ZORS_OP(sub, Zor32u, _mm256_sub_epi32)
ZORS_OP(sub, Zor64s, _mm256_sub_epi64)
ZORS_OP(sub, Zor64u, _mm256_sub_epi64)
ZORS_OP(sub, Zor32f, _mm256_sub_ps)
ZORS_OP(sub, Zor64f, _mm256_sub_pd)
ZORS_OP(sub, Zor32fc, _mm256_sub_ps)
ZORS_OP(sub, Zor64fc, _mm256_sub_pd)
ZORS_OP(addSub, Zor32f, _mm256_addsub_ps)  // a - b in even lanes, a + b in odd ones
ZORS_OP(addSub, Zor64f, _mm256_addsub_pd)
ZORS_OP(mul, Zor16s, _mm256_mullo_epi16)  // integers: the low half
ZORS_OP(mul, Zor16u, _mm256_mullo_epi16)
ZORS_OP(mulHigh, Zor16u, _mm256_mulhi_epu16)      // the high half
ZORS_OP(mulRounded, Zor16s, _mm256_mulhrs_epi16)  // a * b / 2^15 to nearest, ties up
ZORS_OP(mul, Zor32s, _mm256_mullo_epi32)
ZORS_OP(mul, Zor32u, _mm256_mullo_epi32)
ZORS_OP(mul, Zor32f, _mm256_mul_ps)
ZORS_OP(mul, Zor64f, _mm256_mul_pd)
ZORS_OP(div, Zor32f, _mm256_div_ps)
ZORS_OP(div, Zor64f, _mm256_div_pd)
ZORS_OP1(sqrt, Zor32f, _mm256_sqrt_ps)
ZORS_OP1(sqrt, Zor64f, _mm256_sqrt_pd)
ZORS_OP1(reciprocalEstimate, Zor32f, _mm256_rcp_ps)  // some 12 bits, not the same ones on all processors
ZORS_OP1(reciprocalRootEstimate, Zor32f, _mm256_rsqrt_ps)
ZORS_OP3(fma, Zor32f, _mm256_fmadd_ps)  // round(a * b + c)
ZORS_OP3(fma, Zor64f, _mm256_fmadd_pd)
ZORS_OP3(fms, Zor32f, _mm256_fmsub_ps)  // round(a * b - c)
ZORS_OP3(fms, Zor64f, _mm256_fmsub_pd)
ZORS_OP3(fnma, Zor32f, _mm256_fnmadd_ps)  // round(c - a * b)
ZORS_OP3(fnma, Zor64f, _mm256_fnmadd_pd)
ZORS_OP(addSaturated, Zor8u, _mm256_adds_epu8)
ZORS_OP(addSaturated, Zor8s, _mm256_adds_epi8)
ZORS_OP(addSaturated, Zor16s, _mm256_adds_epi16)
ZORS_OP(addSaturated, Zor16u, _mm256_adds_epu16)
ZORS_OP(subSaturated, Zor8u, _mm256_subs_epu8)
ZORS_OP(subSaturated, Zor8s, _mm256_subs_epi8)
ZORS_OP(subSaturated, Zor16s, _mm256_subs_epi16)
ZORS_OP(subSaturated, Zor16u, _mm256_subs_epu16)
ZORS_OP(average, Zor8u, _mm256_avg_epu8)  // (a + b + 1) / 2, rounded down
ZORS_OP(average, Zor16u, _mm256_avg_epu16)
ZORS_OP(min, Zor8u, _mm256_min_epu8)
ZORS_OP(min, Zor8s, _mm256_min_epi8)
ZORS_OP(min, Zor16s, _mm256_min_epi16)
ZORS_OP(min, Zor16u, _mm256_min_epu16)
ZORS_OP(min, Zor32s, _mm256_min_epi32)
ZORS_OP(min, Zor32u, _mm256_min_epu32)
ZORS_OP(min, Zor32f, _mm256_min_ps)  // the second where either is NaN, or both are zeros
ZORS_OP(min, Zor64f, _mm256_min_pd)
ZORS_OP(max, Zor8u, _mm256_max_epu8)
ZORS_OP(max, Zor8s, _mm256_max_epi8)
ZORS_OP(max, Zor16s, _mm256_max_epi16)
ZORS_OP(max, Zor16u, _mm256_max_epu16)
ZORS_OP(max, Zor32s, _mm256_max_epi32)
ZORS_OP(max, Zor32u, _mm256_max_epu32)
ZORS_OP(max, Zor32f, _mm256_max_ps)  // the second where either is NaN, or both are zeros
ZORS_OP(max, Zor64f, _mm256_max_pd)
ZORS_OP1(abs, Zor16s, _mm256_abs_epi16)  // the lowest stays
ZORS_OP1(abs, Zor32s, _mm256_abs_epi32)
ZORS_OP(above, Zor8s, _mm256_cmpgt_epi8)  // -1 where a > b, else 0
ZORS_OP(above, Zor16s, _mm256_cmpgt_epi16)
ZORS_OP(above, Zor32s, _mm256_cmpgt_epi32)
ZORS_OP(above, Zor64s, _mm256_cmpgt_epi64)
ZORS_OP(equal, Zor8u, _mm256_cmpeq_epi8)  // all ones where a = b, else 0
ZORS_OP(equal, Zor8s, _mm256_cmpeq_epi8)
ZORS_OP(equal, Zor16s, _mm256_cmpeq_epi16)
ZORS_OP(equal, Zor16u, _mm256_cmpeq_epi16)
ZORS_OP(equal, Zor32s, _mm256_cmpeq_epi32)
ZORS_OP(equal, Zor32u, _mm256_cmpeq_epi32)
ZORS_OP(equal, Zor64s, _mm256_cmpeq_epi64)
ZORS_OP(equal, Zor64u, _mm256_cmpeq_epi64)
ZORS_SHIFT(shiftRight, Zor8u, shiftRight8)  // signed: arithmetic; unsigned: zeros move in; any count
ZORS_SHIFT(shiftRight, Zor16s, _mm256_sra_epi16)
ZORS_SHIFT(shiftRight, Zor16u, _mm256_srl_epi16)
ZORS_SHIFT(shiftRight, Zor32s, _mm256_sra_epi32)
ZORS_SHIFT(shiftRight, Zor32u, _mm256_srl_epi32)
ZORS_SHIFT(shiftRight, Zor64s, shiftRight64)
ZORS_SHIFT(shiftRight, Zor64u, _mm256_srl_epi64)
ZORS_SHIFT(shiftLeft, Zor8s, shiftLeft8)
ZORS_SHIFT(shiftLeft, Zor8u, shiftLeft8)
ZORS_SHIFT(shiftLeft, Zor16s, _mm256_sll_epi16)
ZORS_SHIFT(shiftLeft, Zor16u, _mm256_sll_epi16)
ZORS_SHIFT(shiftLeft, Zor32s, _mm256_sll_epi32)
ZORS_SHIFT(shiftLeft, Zor32u, _mm256_sll_epi32)
ZORS_SHIFT(shiftLeft, Zor64s, _mm256_sll_epi64)
ZORS_SHIFT(shiftLeft, Zor64u, _mm256_sll_epi64)

#undef ZORS_OP1
#undef ZORS_OP
#undef ZORS_OP3
#undef ZORS_SHIFT

// ---- Bits ---------------------------------------------------------------------------------------

// The registers of a vector as bits, and back.
ZORS_INLINE __m256i bits(__m256i x) { return x; }
ZORS_INLINE __m256i bits(__m256 x) { return _mm256_castps_si256(x); }
ZORS_INLINE __m256i bits(__m256d x) { return _mm256_castpd_si256(x); }
template <class R> ZORS_INLINE R fromBits(__m256i x) {
  if constexpr (std::is_same_v<R, __m256>)
    return _mm256_castsi256_ps(x);
  else if constexpr (std::is_same_v<R, __m256d>)
    return _mm256_castsi256_pd(x);
  else
    return x;
}
// The same bits, taken as elements of type N.
template <class N, class T, int L, Order O> ZORS_INLINE auto as(Vec<T, L, O> x) {
  using V = Vec<N, L* int{sizeof(T)} / int{sizeof(N)}, O>;
  return build<V>([&](auto i) ZORS_INLINE_LAMBDA { return fromBits<typename V::Register>(bits(x.r[i])); });
}

#define ZORS_BITS(name, instruction)                                                                      \
  template <class T, int L, Order O> ZORS_INLINE Vec<T, L, O> name(Vec<T, L, O> a, Vec<T, L, O> b) {      \
    using R = typename Vec<T, L, O>::Register;                                                            \
    return build<Vec<T, L, O>>(                                                                           \
        [&](auto i) ZORS_INLINE_LAMBDA { return fromBits<R>(instruction(bits(a.r[i]), bits(b.r[i]))); }); \
  }
ZORS_BITS(both, _mm256_and_si256)
ZORS_BITS(either, _mm256_or_si256)
ZORS_BITS(differing, _mm256_xor_si256)
ZORS_BITS(without, _mm256_andnot_si256)  // the bits of b that are not in a
#undef ZORS_BITS

// All ones where a >= b, else 0.
template <class T, int L, Order O>
requires(sizeof(T) <= 4 && std::is_unsigned_v<T>) ZORS_INLINE Vec<T, L, O> atLeast(Vec<T, L, O> a, Vec<T, L, O> b) {
  return equal(max(a, b), a);
}
template <int L, Order O> ZORS_INLINE Vec<Zor64u, L, O> atLeast(Vec<Zor64u, L, O> a, Vec<Zor64u, L, O> b) {
  const auto top = same(a, Zor64u{1} << 63);
  return differing(as<Zor64u>(above(as<Zor64s>(differing(b, top)), as<Zor64s>(differing(a, top)))),
                   same(a, ~Zor64u{0}));
}

// All ones where a < b, else 0.
template <class T, int L, Order O>
requires(std::is_integral_v<T>&& std::is_signed_v<T>) ZORS_INLINE Vec<T, L, O> below(Vec<T, L, O> a, Vec<T, L, O> b) {
  return above(b, a);
}

// Comparisons of floats: all ones where they hold, else 0; no exception for a quiet NaN.
#define ZORS_COMPARE(name, predicate)                                                                             \
  template <int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> name(Vec<Zor32f, L, O> a, Vec<Zor32f, L, O> b) {        \
    return build<Vec<Zor32f, L, O>>([&](auto i)                                                                   \
                                        ZORS_INLINE_LAMBDA { return _mm256_cmp_ps(a.r[i], b.r[i], predicate); }); \
  }                                                                                                               \
  template <int L, Order O> ZORS_INLINE Vec<Zor64f, L, O> name(Vec<Zor64f, L, O> a, Vec<Zor64f, L, O> b) {        \
    return build<Vec<Zor64f, L, O>>([&](auto i)                                                                   \
                                        ZORS_INLINE_LAMBDA { return _mm256_cmp_pd(a.r[i], b.r[i], predicate); }); \
  }
ZORS_COMPARE(equal, _CMP_EQ_OQ)
ZORS_COMPARE(unequal, _CMP_NEQ_OQ)  // both are numbers and differ
ZORS_COMPARE(below, _CMP_LT_OQ)
ZORS_COMPARE(above, _CMP_GT_OQ)
ZORS_COMPARE(notBelow, _CMP_NLT_UQ)    // a >= b, or either is NaN
ZORS_COMPARE(notAtLeast, _CMP_NGE_UQ)  // a < b, or either is NaN
#undef ZORS_COMPARE

// Whether a mask has a lane that is all ones.
template <class T, int L, Order O> ZORS_INLINE bool any(Vec<T, L, O> mask) {
  __m256i seen = bits(mask.r[0]);
  for (int i = 1; i < Vec<T, L, O>::registers; ++i) seen = _mm256_or_si256(seen, bits(mask.r[i]));
  return !_mm256_testz_si256(seen, seen);
}

template <class V> ZORS_INLINE V magnitude(V x) {  // of floats: without the sign bit
  return without(same(x, typename V::Element(-0.0)), x);
}
template <class V> ZORS_INLINE V signOf(V x) {  // the sign bit alone
  return both(x, same(x, typename V::Element(-0.0)));
}

// All ones where x is not NaN, else 0.
template <int L> ZORS_INLINE Vec<Zor32f, L> ordered(Vec<Zor32f, L> x) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cmp_ps(x.r[i], x.r[i], _CMP_ORD_Q); });
}

// Where mask is all ones b, where it is 0 a; a mask lane is of the vector's width.
template <class T, class M, int L, Order O>
ZORS_INLINE Vec<T, L, O> select(Vec<M, L, O> mask, Vec<T, L, O> a, Vec<T, L, O> b) {
  static_assert(sizeof(T) == sizeof(M));
  using R = typename Vec<T, L, O>::Register;
  return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA {
    return fromBits<R>(_mm256_blendv_epi8(bits(a.r[i]), bits(b.r[i]), bits(mask.r[i])));
  });
}

// Where the sign bit of mask is set b, else a.
template <int L> ZORS_INLINE Vec<Zor32f, L> selectBySign(Vec<Zor32f, L> mask, Vec<Zor32f, L> a, Vec<Zor32f, L> b) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_blendv_ps(a.r[i], b.r[i], mask.r[i]); });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> selectBySign(Vec<Zor64f, L> mask, Vec<Zor64f, L> a, Vec<Zor64f, L> b) {
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_blendv_pd(a.r[i], b.r[i], mask.r[i]); });
}

// ---- Saturating sums without an instruction -----------------------------------------------------

// The sum, and where the sign bit of overflow is set the bound that the wrapped sum's sign has left.
template <class T, int L, Order O> ZORS_INLINE Vec<T, L, O> boundWhere(Vec<T, L, O> overflow, Vec<T, L, O> sum) {
  return build<Vec<T, L, O>>([&](auto i) ZORS_INLINE_LAMBDA {
    if constexpr (sizeof(T) == 4) {
      const __m256i bound = _mm256_xor_si256(_mm256_srai_epi32(sum.r[i], 31), _mm256_set1_epi32(INT32_MIN));
      return bits(_mm256_blendv_ps(_mm256_castsi256_ps(sum.r[i]), _mm256_castsi256_ps(bound),
                                   _mm256_castsi256_ps(overflow.r[i])));
    } else {
      const __m256i bound =
          _mm256_xor_si256(_mm256_cmpgt_epi64(_mm256_setzero_si256(), sum.r[i]), _mm256_set1_epi64x(INT64_MIN));
      return bits(_mm256_blendv_pd(_mm256_castsi256_pd(sum.r[i]), _mm256_castsi256_pd(bound),
                                   _mm256_castsi256_pd(overflow.r[i])));
    }
  });
}
template <class T, int L, Order O>
requires(sizeof(T) >= 4 && std::is_signed_v<T>) ZORS_INLINE Vec<T, L, O> addSaturated(Vec<T, L, O> a, Vec<T, L, O> b) {
  const auto sum = add(a, b);
  return boundWhere(both(differing(a, sum), differing(b, sum)), sum);
}
template <class T, int L, Order O>
requires(sizeof(T) >= 4 && std::is_signed_v<T>) ZORS_INLINE Vec<T, L, O> subSaturated(Vec<T, L, O> a, Vec<T, L, O> b) {
  const auto difference = sub(a, b);
  return boundWhere(both(differing(a, b), differing(a, difference)), difference);
}
template <class T, int L, Order O>
requires(sizeof(T) >= 4 && std::is_unsigned_v<T>) ZORS_INLINE Vec<T, L, O> addSaturated(Vec<T, L, O> a,
                                                                                        Vec<T, L, O> b) {
  const auto ones = same(a, std::numeric_limits<T>::max());
  if constexpr (sizeof(T) == 4)
    return add(a, min(b, differing(a, ones)));
  else  // the sum wrapped where it is below an operand
    return either(add(a, b), differing(atLeast(add(a, b), a), ones));
}

}  // namespace zors::simd
