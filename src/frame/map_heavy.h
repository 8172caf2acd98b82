// The loop of map() for heavy kernels: functions whose code is long and takes tens of cycles a vector. map() inlines a
// kernel some eight times, which for these is tens of kilobytes and seconds of compiling; here it stands once, out of
// line; docs/decisions/0006-heavy-kernels.md has what that costs.
#pragma once

#include "frame/part.h"

namespace zors {
namespace detail {

template <int L, class Kernel, class D, class... S>
[[gnu::flatten, gnu::noinline]] void heavyStep(const Kernel& kernel, D* dst, const S*... src) {
  simd::store(dst, simd::Vec<D, L>(kernel(simd::load<L>(src)...)));
}

// Fewer than L elements as L.
template <int L, class T> struct Filled {
  alignas(32) T elements[L];
  Filled(const T* p, int count) { simd::store(elements, simd::loadPart<L>(p, count)); }
};

}  // namespace detail

// dst[i] = kernel(src[i]...), as map() has it: the last vector is computed before anything is stored, so dst may be a
// src, and no element is rounded otherwise for its place.
template <int L, class Kernel, class D, class... S>
void mapHeavy(const Kernel& kernel, std::ptrdiff_t len, D* dst, const S*... src) {
  alignas(32) D end[L];
  if (len < L) {
    detail::heavyStep<L>(kernel, end, detail::Filled<L, S>(src, int(len)).elements...);
    simd::storePart(dst, simd::load<L>(static_cast<const D*>(end)), int(len));
    return;
  }
  const std::ptrdiff_t last = len - L;
  detail::heavyStep<L>(kernel, end, (src + last)...);
  for (std::ptrdiff_t i = 0; i < last; i += L) detail::heavyStep<L>(kernel, dst + i, (src + i)...);
  simd::store(dst + last, simd::load<L>(static_cast<const D*>(end)));
}

}  // namespace zors
