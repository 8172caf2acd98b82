// zorsDotProd_32s_Sfs, zorsDotProd_32s32sc_Sfs, zorsDotProd_32sc_Sfs, zorsDotProd_16s32s32s_Sfs: through binary64,
// always to nearest, whatever the caller's direction is.
#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/rounding.h"
#include "frame/sums/scaled_results.h"
#include "statistics/complex_products.h"

namespace zors {
namespace {

using namespace sums;

// Four sums; vectors of 8 or 16 products go to them a register after the other.
template <class A, class B> Zor64f dotOfFour(const A* src1, const B* src2, std::ptrdiff_t n) {
  auto sums = simd::splat<Vec<Zor64f, 4>>(0);
  constexpr int L = 32 / std::min(sizeof(A), sizeof(B));
  rows<L>(
      [&](auto x, auto y) ZORS_INLINE_LAMBDA {
        const auto products = mul(widened(x), widened(y));
        simd::unrolled<decltype(products)::registers>(
            [&](auto i) ZORS_INLINE_LAMBDA { sums = add(sums, Vec<Zor64f, 4>{{products.r[i]}}); });
      },
      n, src1, src2);
  return folded(sums);
}

// A real vector by pairs: eight sums of components.
Pair<Zor64f> dotWithPairs(const Zor32s* src1, const Zor32sc* src2, std::ptrdiff_t n) {
  auto sums = simd::splat<Vec<Zor64f, 8>>(0);
  rows<8>(
      [&](auto x, auto y) ZORS_INLINE_LAMBDA {
        const auto reals = widened(x);
        const auto products = mul(simd::as<Zor64f>(simd::toComplex(reals, reals)), widened(simd::as<Zor32s>(y)));
        simd::unrolled<2>([&](auto i) ZORS_INLINE_LAMBDA {
          sums = add(sums, Vec<Zor64f, 8>{{products.r[2 * i], products.r[2 * i + 1]}});
        });
      },
      n, src1, src2);
  return joined(sums);
}

// From memory to memory, as it runs under a direction of its own.
template <class A, class B, class R, class Dot>
[[gnu::noinline]] void computeScaled(const A* src1, const B* src2, Zor32s len, R* dotProd, Zor32s scaleFactor,
                                     Dot dot) {
  const Zor64f scale = limitedPower(std::clamp(scaleFactor, -31, 93));
  if constexpr (requires { R::re; }) {
    const auto [re, im] = dot(src1, src2, std::ptrdiff_t{len});
    *dotProd = {toInteger<Zor32s>(re * scale), toInteger<Zor32s>(im * scale)};
  } else {
    *dotProd = toInteger<Zor32s>(dot(src1, src2, std::ptrdiff_t{len}) * scale);
  }
}
template <class A, class B, class R, class Dot>
ZorStatus scaledProduct(const A* src1, const B* src2, Zor32s len, R* dotProd, Zor32s scaleFactor, Dot dot) {
  return check().pointers(src1, src2, dotProd).size(len).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    computeScaled(src1, src2, len, dotProd, scaleFactor, dot);
  });
}

}  // namespace

ZorStatus zorsDotProd_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd, Zor32s scaleFactor) {
  return scaledProduct(src1, src2, len, dotProd, scaleFactor, dotOfFour<Zor32s, Zor32s>);
}
ZorStatus zorsDotProd_16s32s32s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor32s len, Zor32s* dotProd,
                                    Zor32s scaleFactor) {
  return scaledProduct(src1, src2, len, dotProd, scaleFactor, dotOfFour<Zor16s, Zor32s>);
}
ZorStatus zorsDotProd_32s32sc_Sfs(const Zor32s* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                                  Zor32s scaleFactor) {
  return scaledProduct(src1, src2, len, dotProd, scaleFactor, dotWithPairs);
}
ZorStatus zorsDotProd_32sc_Sfs(const Zor32sc* src1, const Zor32sc* src2, Zor32s len, Zor32sc* dotProd,
                               Zor32s scaleFactor) {
  return scaledProduct(src1, src2, len, dotProd, scaleFactor,
                       [](const Zor32sc* a, const Zor32sc* b, std::ptrdiff_t n) { return dotOfPairsWide(a, b, n); });
}

}  // namespace zors
