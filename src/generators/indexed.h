// Elements that follow from their index alone, and results of library functions that go to the bit.
#pragma once

#include <array>
#include <limits>

#include "frame/elementary.h"
#include "frame/part.h"

namespace zors::generators {

// dst[i] = kernel(first + i), with the indices counted in F, where all of them are exact. In the last vector the lanes
// beyond the end repeat the last index.
template <int L, class F, class D, class Kernel>
[[gnu::flatten]] void fromIndices(Zor64s first, std::ptrdiff_t len, D* dst, Kernel kernel) {
  using namespace simd;
  static constexpr auto counts = [] {
    std::array<F, L> n{};
    for (int i = 0; i < L; ++i) n[std::size_t(i)] = F(i);
    return n;
  }();
  auto n = load<L>(counts.data());
  n = add(n, same(n, static_cast<F>(first)));
  std::ptrdiff_t i = 0;
  for (; i <= len - L; i += L) {
    store(dst + i, kernel(n));
    n = add(n, same(n, F(L)));
  }
  if (i < len) storePart(dst + i, kernel(min(n, same(n, static_cast<F>(first + len - 1)))), int(len - i));
}

// All ones where some units in the last place of x decide which binary32 number it is narrowed to, in any direction.
// Wherever such a number or the middle of two stands, the last 28 bits of x are zeros.
template <int L> ZORS_INLINE simd::Vec<Zor64f, L> nearNarrowing(simd::Vec<Zor64f, L> x) {
  constexpr Zor64s units = 16, mask = (1 << 28) - 1;
  const auto bits = simd::as<Zor64s>(x), past = simd::both(simd::add(bits, simd::same(bits, units)), simd::same(bits, mask));
  return simd::as<Zor64f>(simd::above(simd::same(bits, 2 * units + 1), past));
}
// All ones where they decide the integer that x is cut to.
template <int L> ZORS_INLINE simd::Vec<Zor64f, L> nearInteger(simd::Vec<Zor64f, L> x) {
  using namespace simd;
  return below(magnitude(sub(x, nearestIntegral(x))), mul(magnitude(x), same(x, 0x1p-48)));
}

// x, which the vector functions have computed to some units in the last place, such that its element of type D is the
// one that the C library's functions give: lanes where those units decide are again(argument...) of that lane.
template <class D, class V, class Again, class... A> ZORS_INLINE V settled(V x, Again again, A... argument) {
  if constexpr (std::is_same_v<D, Zor64f>) {
    return x;
  } else {
    V open;
    if constexpr (std::is_same_v<D, Zor32f>)
      open = nearNarrowing(x);
    else
      open = nearInteger(x);
    return simd::any(open) ? simd::replaceLanes(x, open, again, argument...) : x;
  }
}

// Integers of 32 bits in elements of type D that hold them, or their low bits.
template <class D, int L> ZORS_INLINE simd::Vec<D, L> lowBits(simd::Vec<Zor32s, L> x) {
  using namespace simd;
  if constexpr (sizeof(D) == 4)
    return as<D>(x);
  else if constexpr (std::is_signed_v<D>)
    return saturate<D>(x);
  else
    return saturate<D>(both(x, same(x, std::numeric_limits<D>::max())));
}

}  // namespace zors::generators
