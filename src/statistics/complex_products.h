// Sums of products of pairs in binary64.
#pragma once

#include "frame/sums/partial_sums.h"
#include "zors/types.h"

namespace zors::sums {

// Pairs by pairs: the sums of re1 * src2 and of im1 * src2 are kept apart, in eight lanes each over four pairs, and
// joined at the end: re = the first's even lanes less the second's odd ones, im = the first's odd lanes and the
// second's even ones.
template <class C> ZORS_INLINE Pair<Zor64f> dotOfPairsWide(const C* src1, const C* src2, std::ptrdiff_t n) {
  using T = simd::Part<C>;
  auto byRe = simd::splat<Vec<Zor64f, 8>>(0), byIm = byRe;
  rows<4>(
      [&](auto a, auto b) ZORS_INLINE_LAMBDA {
        const auto x = widened(simd::as<T>(a)), y = widened(simd::as<T>(b));
        using V = Vec<Zor64f, 8>;
        byRe = add(byRe, mul(simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_movedup_pd(x.r[i]); }), y));
        byIm = add(byIm,
                   mul(simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_permute_pd(x.r[i], 0xF); }), y));
      },
      n, src1, src2);
  const auto [rr, ri] = joined(byRe);
  const auto [ir, ii] = joined(byIm);
  return {rr - ii, ri + ir};
}

}  // namespace zors::sums
