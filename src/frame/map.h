// The one loop of the element-wise families: dst[i] = kernel(src[i]...). A kernel takes and gives vectors of L
// elements. There is no second, scalar version of a kernel: a rest shorter than a vector is a vector that overlaps the
// one before, and fewer elements than a vector are a vector in part. So a result cannot depend on an element's
// position.
#pragma once

#include <algorithm>

#include "frame/part.h"

namespace zors {

// Elements per step such that the narrowest of the types fills one register.
template <class... T> inline constexpr int mapStep = 32 / int{std::min({sizeof(T)...})};

namespace detail {

template <int L, class Kernel, class D, class... S>
[[gnu::flatten, gnu::noinline]] void mapShort(Kernel& kernel, int len, D* dst, const S*... src) {
  simd::storePart(dst, simd::Vec<D, L>(kernel(simd::loadPart<L>(src, len)...)), len);
}

// How far the first store boundary is from dst, from 1 to L elements. A dst off the element's own size has none: L
// then.
template <int L, class D> ZORS_INLINE std::ptrdiff_t toBoundary(const D* dst) {
  constexpr std::size_t step = std::min<std::size_t>(32, L * sizeof(D));
  const auto past = reinterpret_cast<std::uintptr_t>(dst) % step;
  return past % sizeof(D) == 0 ? std::ptrdiff_t((step - past) / sizeof(D)) : L;
}

}  // namespace detail

// Returns the kernel with what it has seen, for families that warn; it may see an element twice. In place (dst is a
// src) the first and the last vector are computed before anything is stored.
template <int L, class Kernel, class D, class... S>
[[gnu::flatten]] Kernel map(const Kernel& given, std::ptrdiff_t len, D* dst, const S*... src) {
  using namespace simd;
  if (len < L) [[unlikely]] {
    if constexpr (requires { given(std::declval<Vec<S, L>>()...); }) {
      detail::mapShort<L>(given, int(len), dst, src...);
      return given;
    } else {
      Kernel kernel = given;
      detail::mapShort<L>(kernel, int(len), dst, src...);
      return kernel;
    }
  }
  Kernel kernel = given;  // no address of it is taken, so it lives in registers
  constexpr int widest = L * int{std::max({sizeof(D), sizeof(S)...})} / 32;  // registers
  constexpr int unroll = widest >= 4 ? 1 : 4 / widest;
  const std::ptrdiff_t last = len - L;
  const Vec<D, L> begin = kernel(load<L>(src)...);
  if (last == 0) {
    store(dst, begin);
    return kernel;
  }
  const Vec<D, L> end = kernel(load<L>(src + last)...);
  std::ptrdiff_t i = detail::toBoundary<L>(dst);
  if constexpr (unroll > 1) {
    for (; i <= last - unroll * L; i += unroll * L)
      unrolled<unroll>([&](auto step) ZORS_INLINE_LAMBDA {
        store(dst + i + step * L, Vec<D, L>(kernel(load<L>(src + i + step * L)...)));
      });
  }
  for (; i < last; i += L) store(dst + i, Vec<D, L>(kernel(load<L>(src + i)...)));
  store(dst, begin);
  store(dst + last, end);
  return kernel;
}

// The same in the order of the elements, for kernels that keep the first thing they meet.
template <int L, class Kernel, class D, class... S>
[[gnu::flatten]] Kernel mapInOrder(Kernel kernel, std::ptrdiff_t len, D* dst, const S*... src) {
  std::ptrdiff_t i = 0;
  for (; i <= len - L; i += L) simd::store(dst + i, simd::Vec<D, L>(kernel(simd::load<L>(src + i)...)));
  if (i < len) detail::mapShort<L>(kernel, int(len - i), dst + i, (src + i)...);
  return kernel;
}

// What a kernel gives that writes two vectors.
template <class A, class B> struct Both {
  A first;
  B second;
};
template <class A, class B> Both(A, B) -> Both<A, B>;

// The same with two destinations, each of which may be a source.
template <int L, class Kernel, class D1, class D2, class... S>
[[gnu::flatten]] void mapToTwo(Kernel kernel, std::ptrdiff_t len, D1* dst1, D2* dst2, const S*... src) {
  using namespace simd;
  if (len < L) [[unlikely]] {
    const auto [a, b] = kernel(loadPart<L>(src, int(len))...);
    storePart(dst1, a, int(len));
    storePart(dst2, b, int(len));
    return;
  }
  const std::ptrdiff_t last = len - L;
  const auto end = kernel(load<L>(src + last)...);
  for (std::ptrdiff_t i = 0; i < last; i += L) {
    const auto [a, b] = kernel(load<L>(src + i)...);
    store(dst1 + i, a);
    store(dst2 + i, b);
  }
  store(dst1 + last, end.first);
  store(dst2 + last, end.second);
}

}  // namespace zors
