// Vectors: Vec<T, L> is L elements of type T in as many 256-bit registers as they need, so that one kernel serves a
// type and the wider type that it computes in; a larger L is the unrolled kernel. Every operation is one line that
// names its instruction, with what is not obvious beside it. Floating-point operations round in the current direction.
#pragma once

#include <immintrin.h>

#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "zors/types.h"

#define ZORS_INLINE [[gnu::always_inline]] inline
#define ZORS_INLINE_LAMBDA __attribute__((always_inline))  // between the parameters and the body

namespace zors::simd {

// ---- Registers ----------------------------------------------------------------------------------

template <class T> struct RegisterOf { using type = __m256i; };
template <> struct RegisterOf<Zor32f> { using type = __m256; };
template <> struct RegisterOf<Zor32fc> { using type = __m256; };
template <> struct RegisterOf<Zor64f> { using type = __m256d; };
template <> struct RegisterOf<Zor64fc> { using type = __m256d; };

// The type of a complex element's parts; of a real element, its own.
template <class T> struct PartOf { using type = T; };
template <class T>
requires requires(T z) { z.re; }
struct PartOf<T> {
  using type = decltype(T::re);
};
template <class T> using Part = typename PartOf<T>::type;

// Elements in memory order, or in the order that unpacking within 128-bit halves leaves: of two registers with elements
// 0 to 15, the first holds 0-3 and 8-11, the second 4-7 and 12-15. Packing undoes it.
enum class Order { memory, split };

template <class T, int L, Order O = Order::memory> struct Vec {
  using Element = T;
  using Register = typename RegisterOf<T>::type;
  static constexpr int lanes = L;
  static constexpr int registers = L * int{sizeof(T)} / 32;
  static_assert(registers >= 1 && registers * 32 == L * int{sizeof(T)}, "a vector fills whole registers");
  Register r[registers];
};
template <class T, int L> using Split = Vec<T, L, Order::split>;

template <class T> inline constexpr int lanesOf = 32 / int{sizeof(T)};  // in one register

// f(0), f(1), ... f(n - 1) with constants as arguments: the only register loop, unrolled by construction.
template <int n, class F> ZORS_INLINE void unrolled(F&& f) {
  [&]<int... i>(std::integer_sequence<int, i...>) ZORS_INLINE_LAMBDA { (f(std::integral_constant<int, i>{}), ...); }
  (std::make_integer_sequence<int, n>{});
}
// A vector of type V whose register i is f(i).
template <class V, class F> ZORS_INLINE V build(F&& f) {
  return [&]<int... i>(std::integer_sequence<int, i...>) ZORS_INLINE_LAMBDA {
    return V{{f(std::integral_constant<int, i>{})...}};
  }
  (std::make_integer_sequence<int, V::registers>{});
}

// ---- Loads, stores, constants -------------------------------------------------------------------

template <int L, class T> ZORS_INLINE Vec<T, L> load(const T* p) {
  return build<Vec<T, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const void* at = reinterpret_cast<const char*>(p) + 32 * i;
    if constexpr (std::is_same_v<typename RegisterOf<T>::type, __m256>)
      return _mm256_loadu_ps(static_cast<const float*>(at));
    else if constexpr (std::is_same_v<typename RegisterOf<T>::type, __m256d>)
      return _mm256_loadu_pd(static_cast<const double*>(at));
    else
      return _mm256_loadu_si256(static_cast<const __m256i*>(at));
  });
}
template <class T, int L> ZORS_INLINE void store(T* p, Vec<T, L> x) {
  unrolled<Vec<T, L>::registers>([&](auto i) ZORS_INLINE_LAMBDA {
    void* at = reinterpret_cast<char*>(p) + 32 * i;
    if constexpr (std::is_same_v<typename RegisterOf<T>::type, __m256>)
      _mm256_storeu_ps(static_cast<float*>(at), x.r[i]);
    else if constexpr (std::is_same_v<typename RegisterOf<T>::type, __m256d>)
      _mm256_storeu_pd(static_cast<double*>(at), x.r[i]);
    else
      _mm256_storeu_si256(static_cast<__m256i*>(at), x.r[i]);
  });
}

// A loaded vector that has several uses: g++ would otherwise load it anew as an operand of each.
template <class V> ZORS_INLINE V held(V x) {
  for (auto& r : x.r) __asm__("" : "+x"(r));
  return x;
}

ZORS_INLINE __m256i splatRegister(std::integral auto value) {
  if constexpr (sizeof value == 1)
    return _mm256_set1_epi8(static_cast<char>(value));
  else if constexpr (sizeof value == 2)
    return _mm256_set1_epi16(static_cast<short>(value));
  else if constexpr (sizeof value == 4)
    return _mm256_set1_epi32(static_cast<int>(value));
  else
    return _mm256_set1_epi64x(static_cast<long long>(value));
}
ZORS_INLINE __m256 splatRegister(Zor32f value) { return _mm256_set1_ps(value); }
ZORS_INLINE __m256d splatRegister(Zor64f value) { return _mm256_set1_pd(value); }
ZORS_INLINE __m256i splatRegister(Zor16sc value) { return _mm256_set1_epi32(std::bit_cast<int>(value)); }
ZORS_INLINE __m256i splatRegister(Zor32sc value) { return _mm256_set1_epi64x(std::bit_cast<long long>(value)); }
ZORS_INLINE __m256 splatRegister(Zor32fc value) {
  return _mm256_castpd_ps(_mm256_set1_pd(std::bit_cast<double>(value)));
}
ZORS_INLINE __m256d splatRegister(Zor64fc value) {
  // By registers: g++ would store the parts of an argument apart, and wait for both when it loads them as one.
  __asm__("" : "+x"(value.re), "+x"(value.im));
  return _mm256_setr_pd(value.re, value.im, value.re, value.im);
}

// All lanes val.
template <class V> ZORS_INLINE V splat(typename V::Element val) {
  const auto r = splatRegister(val);
  return build<V>([&](auto) ZORS_INLINE_LAMBDA { return r; });
}
template <class T, int L, Order O> ZORS_INLINE Vec<T, L, O> same(Vec<T, L, O>, std::type_identity_t<T> val) {
  return splat<Vec<T, L, O>>(val);
}

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

// ---- Widening and narrowing ---------------------------------------------------------------------

// Two registers for one, unpacked within 128-bit halves: the signed by their sign, the unsigned by zeros.
#define ZORS_WIDEN(N, W, suffix, highPart)                                                           \
  template <int L> ZORS_INLINE Split<W, L> widen(Vec<N, L> x) {                                      \
    return build<Split<W, L>>([&](auto i) ZORS_INLINE_LAMBDA {                                       \
      const __m256i low = x.r[i / 2], high = highPart;                                               \
      return i % 2 == 0 ? _mm256_unpacklo_##suffix(low, high) : _mm256_unpackhi_##suffix(low, high); \
    });                                                                                              \
  }
ZORS_WIDEN(Zor8u, Zor16s, epi8, _mm256_setzero_si256())
ZORS_WIDEN(Zor8s, Zor16s, epi8, _mm256_cmpgt_epi8(_mm256_setzero_si256(), low))
ZORS_WIDEN(Zor16u, Zor32s, epi16, _mm256_setzero_si256())
ZORS_WIDEN(Zor16s, Zor32s, epi16, _mm256_srai_epi16(low, 15))
ZORS_WIDEN(Zor32u, Zor64s, epi32, _mm256_setzero_si256())
ZORS_WIDEN(Zor32s, Zor64s, epi32, _mm256_srai_epi32(low, 31))
#undef ZORS_WIDEN

// Two registers for one, brought to memory order.
template <class T, int L> ZORS_INLINE Vec<T, L> inOrder(Split<T, L> x) {
  return build<Vec<T, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_permute2x128_si256(x.r[i / 2 * 2], x.r[i / 2 * 2 + 1], i % 2 == 0 ? 0x20 : 0x31);
  });
}

// Back to one register for two, saturated, memory order again.
#define ZORS_SATURATE(W, N, instruction)                                                                         \
  template <class D, int L>                                                                                      \
  requires std::is_same_v<D, N> ZORS_INLINE Vec<N, L> saturate(Split<W, L> x) {                                  \
    return build<Vec<N, L>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(x.r[2 * i], x.r[2 * i + 1]); }); \
  }
ZORS_SATURATE(Zor16s, Zor8u, _mm256_packus_epi16)
ZORS_SATURATE(Zor16s, Zor8s, _mm256_packs_epi16)
ZORS_SATURATE(Zor32s, Zor16s, _mm256_packs_epi32)
ZORS_SATURATE(Zor32s, Zor16u, _mm256_packus_epi32)
#undef ZORS_SATURATE

// From unsigned elements, which the instructions read as signed ones.
template <class D, class W, int L>
requires(std::is_unsigned_v<W> && sizeof(W) == 2 * sizeof(D)) ZORS_INLINE Vec<D, L> saturate(Split<W, L> x) {
  using S = std::make_signed_t<W>;
  return saturate<D>(as<S>(min(x, same(x, W{std::numeric_limits<D>::max()}))));
}

// The same from memory order.
template <class D, class W, int L>
requires(sizeof(W) == 2 * sizeof(D)) ZORS_INLINE Vec<D, L> saturate(Vec<W, L> x) {
  const Vec<D, L> halves =
      saturate<D>(Split<W, L>(build<Split<W, L>>([&](auto i) ZORS_INLINE_LAMBDA { return x.r[i]; })));
  return build<Vec<D, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute4x64_epi64(halves.r[i], 0xD8); });
}
template <class D, int L>
requires std::is_same_v<D, Zor32s> ZORS_INLINE Vec<Zor32s, L> saturate(Vec<Zor64u, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto limited = [&](__m256i r) ZORS_INLINE_LAMBDA {
      const __m256i over = _mm256_cmpgt_epi64(_mm256_srli_epi64(r, 31), _mm256_setzero_si256());
      return _mm256_castsi256_ps(_mm256_blendv_epi8(r, _mm256_set1_epi32(INT32_MAX), over));
    };
    const __m256 halves = _mm256_shuffle_ps(limited(x.r[2 * i]), limited(x.r[2 * i + 1]), 0x88);
    return _mm256_permute4x64_epi64(_mm256_castps_si256(halves), 0xD8);
  });
}
// Two steps down: 32 to 8 bits.
template <class D, int L>
requires(sizeof(D) == 1) ZORS_INLINE Vec<D, L> saturate(Vec<Zor32s, L> x) { return saturate<D>(saturate<Zor16s>(x)); }

// Elements i * 32 / sizeof(W) on, for register i of a vector of the wider type W: they stand at the bottom.
template <class W, class N, int L> ZORS_INLINE __m128i lowPart(Vec<N, L> x, int i) {
  constexpr int ratio = int{sizeof(W)} / int{sizeof(N)};
  const __m256i r = x.r[i / ratio];
  const int part = i % ratio;
  const __m128i half = part < ratio / 2 ? _mm256_castsi256_si128(r) : _mm256_extracti128_si256(r, 1);
  switch (part % (ratio / 2) * 8 / (ratio / 2)) {  // quarters of the half that is left, in 2 bytes
    case 0:
      return half;
    case 2:
      return _mm_srli_si128(half, 4);
    case 4:
      return _mm_srli_si128(half, 8);
    default:
      return _mm_srli_si128(half, 12);
  }
}
// Wider elements in memory order: the signed by their sign, the unsigned by zeros.
#define ZORS_EXTEND(N, W, instruction)                                                                 \
  template <class D, int L>                                                                            \
  requires std::is_same_v<D, W> ZORS_INLINE Vec<W, L> extend(Vec<N, L> x) {                            \
    return build<Vec<W, L>>([&](auto i) ZORS_INLINE_LAMBDA { return instruction(lowPart<W>(x, i)); }); \
  }
ZORS_EXTEND(Zor8u, Zor16u, _mm256_cvtepu8_epi16)
ZORS_EXTEND(Zor8s, Zor16s, _mm256_cvtepi8_epi16)
ZORS_EXTEND(Zor8s, Zor32s, _mm256_cvtepi8_epi32)
ZORS_EXTEND(Zor8u, Zor32s, _mm256_cvtepu8_epi32)
ZORS_EXTEND(Zor16s, Zor32s, _mm256_cvtepi16_epi32)
ZORS_EXTEND(Zor16u, Zor32s, _mm256_cvtepu16_epi32)
ZORS_EXTEND(Zor32s, Zor64s, _mm256_cvtepi32_epi64)
#undef ZORS_EXTEND

// ---- Across lanes -------------------------------------------------------------------------------

// The sum of a register's lanes, by halves: lanes half a register apart first.
ZORS_INLINE Zor32f sumOfLanes(Vec<Zor32f, 8> x) {
  const __m128 four = _mm_add_ps(_mm256_castps256_ps128(x.r[0]), _mm256_extractf128_ps(x.r[0], 1));
  const __m128 two = _mm_add_ps(four, _mm_movehl_ps(four, four));
  return _mm_cvtss_f32(_mm_add_ss(two, _mm_movehdup_ps(two)));
}
ZORS_INLINE Zor64f sumOfLanes(Vec<Zor64f, 4> x) {
  const __m128d two = _mm_add_pd(_mm256_castpd256_pd128(x.r[0]), _mm256_extractf128_pd(x.r[0], 1));
  return _mm_cvtsd_f64(_mm_add_sd(two, _mm_unpackhi_pd(two, two)));
}

// ---- Complex elements ---------------------------------------------------------------------------

// The real parts of two registers' pairs, or the imaginary ones, memory order.
template <int part, int L> ZORS_INLINE Vec<Zor32f, L> partOf(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 halves = _mm256_shuffle_ps(z.r[2 * i], z.r[2 * i + 1], part == 0 ? 0x88 : 0xDD);
    return _mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(halves), 0xD8));
  });
}
template <int part, int L> ZORS_INLINE Vec<Zor64f, L> partOf(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_permute4x64_pd(_mm256_shuffle_pd(z.r[2 * i], z.r[2 * i + 1], part == 0 ? 0x0 : 0xF), 0xD8);
  });
}
template <int part, int L> ZORS_INLINE Vec<Zor16s, L> partOf(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const auto words = [&](__m256i x) ZORS_INLINE_LAMBDA {
      return part == 0 ? _mm256_srai_epi32(_mm256_slli_epi32(x, 16), 16) : _mm256_srai_epi32(x, 16);
    };
    return _mm256_permute4x64_epi64(_mm256_packs_epi32(words(z.r[2 * i]), words(z.r[2 * i + 1])), 0xD8);
  });
}
template <class V> ZORS_INLINE auto realPart(V z) { return partOf<0>(z); }
template <class V> ZORS_INLINE auto imagPart(V z) { return partOf<1>(z); }

// Pairs from two vectors.
template <int L> ZORS_INLINE Vec<Zor32fc, L> toComplex(Vec<Zor32f, L> re, Vec<Zor32f, L> im) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 low = _mm256_unpacklo_ps(re.r[i / 2], im.r[i / 2]),
                 high = _mm256_unpackhi_ps(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2f128_ps(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> toComplex(Vec<Zor64f, L> re, Vec<Zor64f, L> im) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d low = _mm256_unpacklo_pd(re.r[i / 2], im.r[i / 2]),
                  high = _mm256_unpackhi_pd(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2f128_pd(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
template <int L> ZORS_INLINE Vec<Zor16sc, L> toComplex(Vec<Zor16s, L> re, Vec<Zor16s, L> im) {
  return build<Vec<Zor16sc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i low = _mm256_unpacklo_epi16(re.r[i / 2], im.r[i / 2]),
                  high = _mm256_unpackhi_epi16(re.r[i / 2], im.r[i / 2]);
    return _mm256_permute2x128_si256(low, high, i % 2 == 0 ? 0x20 : 0x31);
  });
}
// The parts of 16-bit pairs in 32 bits.
template <int L> ZORS_INLINE Vec<Zor32s, L> wideReal(Vec<Zor16sc, L> z) {
  return shiftRight(shiftLeft(as<Zor32s>(z), 16), 16);
}
template <int L> ZORS_INLINE Vec<Zor32s, L> wideImag(Vec<Zor16sc, L> z) { return shiftRight(as<Zor32s>(z), 16); }

// Pairwise products: t1 = round(b.im * a.im), t2 = round(b.im * a.re), re = fma(b.re, a.re, -t1), im = fma(b.re, a.im,
// t2).
template <int L> ZORS_INLINE Vec<Zor32fc, L> mul(Vec<Zor32fc, L> a, Vec<Zor32fc, L> b) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256 swapped = _mm256_permute_ps(a.r[i], 0xB1);
    return _mm256_fmaddsub_ps(_mm256_moveldup_ps(b.r[i]), a.r[i], _mm256_mul_ps(_mm256_movehdup_ps(b.r[i]), swapped));
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> mul(Vec<Zor64fc, L> a, Vec<Zor64fc, L> b) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d swapped = _mm256_permute_pd(a.r[i], 0x5);
    return _mm256_fmaddsub_pd(_mm256_movedup_pd(b.r[i]), a.r[i],
                              _mm256_mul_pd(_mm256_permute_pd(b.r[i], 0xF), swapped));
  });
}

// (im, re).
template <int L> ZORS_INLINE Vec<Zor16sc, L> swappedParts(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16sc, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_shufflehi_epi16(_mm256_shufflelo_epi16(z.r[i], 0xB1), 0xB1); });
}
template <int L> ZORS_INLINE Vec<Zor32fc, L> swappedParts(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute_ps(z.r[i], 0xB1); });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> swappedParts(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64fc, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute_pd(z.r[i], 0x5); });
}

// Floats change the sign bit, of zeros and NaN too; 16-bit parts negate with saturation.
template <int L> ZORS_INLINE Vec<Zor32fc, L> conjugate(Vec<Zor32fc, L> z) {
  return build<Vec<Zor32fc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_xor_ps(z.r[i], _mm256_castsi256_ps(_mm256_set1_epi64x(INT64_MIN)));
  });
}
template <int L> ZORS_INLINE Vec<Zor64fc, L> conjugate(Vec<Zor64fc, L> z) {
  return build<Vec<Zor64fc, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_xor_pd(z.r[i], _mm256_setr_pd(0.0, -0.0, 0.0, -0.0)); });
}
template <int L> ZORS_INLINE Vec<Zor16sc, L> conjugate(Vec<Zor16sc, L> z) {
  return build<Vec<Zor16sc, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_blend_epi16(z.r[i], _mm256_subs_epi16(_mm256_setzero_si256(), z.r[i]), 0xAA);
  });
}

// The elements in reverse.
template <class T, int L> ZORS_INLINE Vec<T, L> reversed(Vec<T, L> x) {
  using V = Vec<T, L>;
  return build<V>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i r = bits(x.r[V::registers - 1 - i]);
    if constexpr (sizeof(T) == 4)
      return fromBits<typename V::Register>(_mm256_permutevar8x32_epi32(r, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0)));
    else if constexpr (sizeof(T) == 8)
      return fromBits<typename V::Register>(_mm256_permute4x64_epi64(r, 0x1B));
    else {
      static_assert(sizeof(T) == 16);
      return fromBits<typename V::Register>(_mm256_permute4x64_epi64(r, 0x4E));
    }
  });
}

// The elements of one register moved up by one, with zero below them.
template <class T, int L> ZORS_INLINE Vec<T, L> movedUp(Vec<T, L> x) {
  static_assert(Vec<T, L>::registers == 1);
  const __m256i r = bits(x.r[0]), lowUp = _mm256_permute2x128_si256(r, r, 0x08);
  return {{fromBits<typename Vec<T, L>::Register>(_mm256_alignr_epi8(r, lowUp, 16 - int{sizeof(T)}))}};
}

// table[index] for indices below 16, and 0 for those with the top bit set.
template <int L> ZORS_INLINE Vec<Zor8u, L> lookUp(const Zor8u (&table)[16], Vec<Zor8u, L> index) {
  const __m256i entries = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table)));
  return build<Vec<Zor8u, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_shuffle_epi8(entries, index.r[i]); });
}

// ---- Integer and float --------------------------------------------------------------------------

template <int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> toFloat(Vec<Zor32s, L, O> x) {
  return build<Vec<Zor32f, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvtepi32_ps(x.r[i]); });
}
template <class N, int L>
requires(sizeof(N) < 4) ZORS_INLINE Vec<Zor32f, L> toFloat(Vec<N, L> x) { return toFloat(extend<Zor32s>(x)); }
template <int L> ZORS_INLINE Vec<Zor32f, L> toFloat(Vec<Zor64f, L> x) {
  return build<Vec<Zor32f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128(_mm256_cvtpd_ps(x.r[2 * i + 1]), _mm256_cvtpd_ps(x.r[2 * i]));
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32f, L> x) {  // exact
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_cvtps_pd(i % 2 == 0 ? _mm256_castps256_ps128(x.r[i / 2]) : _mm256_extractf128_ps(x.r[i / 2], 1));
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32s, L> x) {  // exact
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_cvtepi32_pd(i % 2 == 0 ? _mm256_castsi256_si128(x.r[i / 2])
                                         : _mm256_extracti128_si256(x.r[i / 2], 1));
  });
}
// Unsigned, exact: 2^52 + x, less 2^52. Zero is +0 in every direction.
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor32u, L> x) {
  const __m256d bias = _mm256_set1_pd(0x1p52);
  return magnitude(build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256i wide = _mm256_cvtepu32_epi64(lowPart<Zor64u>(x, i));
    return _mm256_sub_pd(_mm256_or_pd(_mm256_castsi256_pd(wide), bias), bias);
  }));
}
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor16s, L> x) { return toDouble(extend<Zor32s>(x)); }
// Two exact halves, 2^52 + low and high - 2^52, and their sum: one rounding. Zero is +0 in every direction.
template <int L> ZORS_INLINE Vec<Zor64f, L> toDouble(Vec<Zor64s, L> x) {
  const __m256i lowBias = _mm256_set1_epi64x(0x4330000000000000), highBias = _mm256_set1_epi64x(0x4530000080000000);
  const __m256d bias = _mm256_set1_pd(0x1p84 + 0x1p63 + 0x1p52);
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    const __m256d low = _mm256_castsi256_pd(_mm256_blend_epi32(x.r[i], lowBias, 0xAA));
    const __m256d high = _mm256_castsi256_pd(_mm256_xor_si256(_mm256_srli_epi64(x.r[i], 32), highBias));
    const __m256d zero = _mm256_castsi256_pd(_mm256_cmpeq_epi64(x.r[i], _mm256_setzero_si256()));
    return _mm256_andnot_pd(zero, _mm256_add_pd(_mm256_sub_pd(high, bias), low));
  });
}
// To integers that stay floats: to nearest, ties to even, in every direction.
template <int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> nearestIntegral(Vec<Zor32f, L, O> x) {
  return build<Vec<Zor32f, L, O>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_round_ps(x.r[i], _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> nearestIntegral(Vec<Zor64f, L> x) {
  return build<Vec<Zor64f, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_round_pd(x.r[i], _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  });
}
template <int L> ZORS_INLINE Vec<Zor64f, L> integralTowardZero(Vec<Zor64f, L> x) {
  return build<Vec<Zor64f, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_round_pd(x.r[i], _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC); });
}
// Of integral values from -2^63 to below 2^63, by halves that the mantissa holds; exact in every direction.
template <int L> ZORS_INLINE Vec<Zor64s, L> integralToInteger(Vec<Zor64f, L> x) {
  const auto bias = same(x, 0x1.8p52);
  const auto high = nearestIntegral(mul(x, same(x, 0x1p-32)));
  const auto low = fnma(high, same(x, 0x1p32), x);
  return add(shiftLeft(as<Zor64s>(add(high, bias)), 32), sub(as<Zor64s>(add(low, bias)), as<Zor64s>(bias)));
}
// NaN and values out of range give 0x80000000.
template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerCurrent(Vec<Zor32f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvtps_epi32(x.r[i]); });
}
template <int L, Order O> ZORS_INLINE Vec<Zor32s, L, O> toIntegerTowardZero(Vec<Zor32f, L, O> x) {
  return build<Vec<Zor32s, L, O>>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_cvttps_epi32(x.r[i]); });
}

template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerCurrent(Vec<Zor64f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128i(_mm256_cvtpd_epi32(x.r[2 * i + 1]), _mm256_cvtpd_epi32(x.r[2 * i]));
  });
}
template <int L> ZORS_INLINE Vec<Zor32s, L> toIntegerTowardZero(Vec<Zor64f, L> x) {
  return build<Vec<Zor32s, L>>([&](auto i) ZORS_INLINE_LAMBDA {
    return _mm256_set_m128i(_mm256_cvttpd_epi32(x.r[2 * i + 1]), _mm256_cvttpd_epi32(x.r[2 * i]));
  });
}

}  // namespace zors::simd
