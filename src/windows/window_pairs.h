// A window weighs the elements n and len - 1 - n alike: the loop over such pairs, for all windows and element types.
// Weights are a generator: next() gives those of the following `lanes` pairs.
#pragma once

#include "frame/by_type.h"
#include "frame/part.h"
#include "zors/types.h"

namespace zors {

template <class T> inline constexpr bool isInteger = std::is_integral_v<simd::Part<T>>;
// The type that an element is multiplied in.
template <class T> using Weight = std::conditional_t<isInteger<T>, Zor32f, simd::Part<T>>;
// Pairs at once: recurrences then have four chains to run, or two and pairs of parts that fill the registers.
template <class T> inline constexpr int pairsAtOnce = Complex<T> ? 8 : 16;

// Integers are rounded in the current direction and saturated; what 32 bits do not hold has its sign's bound.
template <class T, class W, int L> ZORS_INLINE simd::Vec<T, L> weighed(simd::Vec<T, L> x, simd::Vec<W, L> w) {
  using namespace simd;
  if constexpr (Complex<T>) {
    using P = Part<T>;
    return as<T>(weighed(as<P>(x), as<W>(toComplex(w, w))));
  } else if constexpr (isInteger<T>) {
    const auto product = mul(toFloat(x), w);
    return saturate<T>(toIntegerCurrent(min(same(product, 32767.0f), product)));
  } else {
    return mul(x, w);
  }
}

// dst[n] = src[n] * w[n - first] at n and at len - 1 - n, for count values of n from first on; the pairs do not meet.
template <class T, class Weights>
[[gnu::flatten]] void weighPairs(const T* src, T* dst, std::ptrdiff_t len, std::ptrdiff_t first, std::ptrdiff_t count,
                                 Weights weights) {
  using namespace simd;
  constexpr int L = Weights::lanes;
  std::ptrdiff_t near = first, far = len - first;  // the next pairs: from near on, and up to far
  for (; count >= L; count -= L) {
    const auto w = weights.next();
    far -= L;
    store(dst + near, weighed(load<L>(src + near), w));
    store(dst + far, weighed(load<L>(src + far), reversed(w)));
    near += L;
  }
  if (count > 0) {
    const int rest = int(count);
    const auto w = weights.next();
    using W = typename decltype(w)::Element;
    W mirrored[L];
    store(mirrored, reversed(w));
    const auto weighPart = [&](std::ptrdiff_t at, auto some) ZORS_INLINE_LAMBDA {
      storePart(dst + at, weighed(loadPart<L>(src + at, rest), some), rest);
    };
    weighPart(near, w);
    weighPart(far - rest, loadPart<L>(mirrored + L - rest, rest));
  }
}

}  // namespace zors
