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

}  // namespace zors::simd
