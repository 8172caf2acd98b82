// zorsDotProd_* of floats. Products and sums round apart.
#include "exports/statistics.h"
#include "frame/check.h"
#include "statistics/complex_products.h"

namespace zors {
namespace {

using namespace sums;

// Sixteen sums, joined to eight for the groups of the rest. The prefix ends at src2's 32-byte boundary.
Zor32f dot(const Zor32f* src1, const Zor32f* src2, std::ptrdiff_t n) {
  Zor32f total = 0;
  const auto addSingly = [&](std::ptrdiff_t count) ZORS_INLINE_LAMBDA {
    for (std::ptrdiff_t i = 0; i < count; ++i) total += readAt(src1 + i) * readAt(src2 + i);
    src1 += count, src2 += count, n -= count;
  };
  const bool isLong = n >= 57;
  if (n < 16 || (isLong && !aligned(src2, sizeof *src2))) {
    addSingly(n);
    return total;
  }
  if (isLong) addSingly(elementsToBoundary(src2, 32));
  auto sixteen = seeded<Zor32f, 16>(total);
  for (; n >= 16; src1 += 16, src2 += 16, n -= 16)
    sixteen = add(sixteen, mul(simd::load<16>(src1), simd::load<16>(src2)));
  auto eight = halved(sixteen);
  if (n >= 8) {
    eight = add(eight, mul(simd::load<8>(src1), simd::load<8>(src2)));
    src1 += 8, src2 += 8, n -= 8;
  }
  total = folded(eight);
  addSingly(n);
  return total;
}

// Six sums in three narrow registers.
Zor64f dotOfSix(const Zor64f* src1, const Zor64f* src2, std::ptrdiff_t n) {
  __m128d sums[3] = {};
  const auto addTo = [&](int j, __m128d x, __m128d y)
                         ZORS_INLINE_LAMBDA { sums[j] = _mm_add_pd(sums[j], _mm_mul_pd(x, y)); };
  for (; n >= 6; src1 += 6, src2 += 6, n -= 6)
    simd::unrolled<3>([&](auto j)
                          ZORS_INLINE_LAMBDA { addTo(j, _mm_loadu_pd(src1 + 2 * j), _mm_loadu_pd(src2 + 2 * j)); });
  int j = 0;
  for (; n >= 2; src1 += 2, src2 += 2, n -= 2) addTo(j++, _mm_loadu_pd(src1), _mm_loadu_pd(src2));
  if (n > 0) addTo(j, _mm_set_sd(readAt(src1)), _mm_set_sd(readAt(src2)));
  const __m128d both = _mm_add_pd(_mm_add_pd(sums[0], sums[1]), sums[2]);
  return _mm_cvtsd_f64(both) + _mm_cvtsd_f64(_mm_unpackhi_pd(both, both));
}

// Eight sums of products in binary64.
template <class A> Zor64f dotOfEight(const A* src1, const A* src2, std::ptrdiff_t n) {
  auto sums = simd::splat<Vec<Zor64f, 8>>(0);
  rows<8>([&](auto x, auto y) ZORS_INLINE_LAMBDA { sums = add(sums, mul(widened(x), widened(y))); }, n, src1, src2);
  return folded(sums);
}

// A real vector by pairs: sums of components, 16 in binary32 and 8 in binary64.
template <class Real, class Pair> auto dotWithPairs(const Real* src1, const Pair* src2, std::ptrdiff_t n) {
  constexpr int L = 32 / sizeof(Real);
  auto sums = simd::splat<Vec<Real, 2 * L>>(0);
  rows<L>([&](auto x, auto y)
              ZORS_INLINE_LAMBDA { sums = add(sums, mul(simd::as<Real>(simd::toComplex(x, x)), simd::as<Real>(y))); },
          n, src1, src2);
  return joined(sums);
}
sums::Pair<Zor64f> dotWithPairsWide(const Zor32f* src1, const Zor32fc* src2, std::ptrdiff_t n) {
  auto sums = simd::splat<Vec<Zor64f, 8>>(0);
  rows<8>(
      [&](auto x, auto y) ZORS_INLINE_LAMBDA {
        const auto products = mul(widened(simd::as<Zor32f>(simd::toComplex(x, x))), widened(simd::as<Zor32f>(y)));
        sums = add(sums, Vec<Zor64f, 8>{{products.r[0], products.r[1]}});
        sums = add(sums, Vec<Zor64f, 8>{{products.r[2], products.r[3]}});
      },
      n, src1, src2);
  return joined(sums);
}

// Pairs by pairs in binary32: the sums of re1 * src2 and of im1 * src2 in four lanes each, together in one register.
sums::Pair<Zor32f> dotOfPairs(const Zor32fc* src1, const Zor32fc* src2, std::ptrdiff_t n) {
  const __m256i reThenIm = _mm256_setr_epi32(0, 0, 2, 2, 1, 1, 3, 3);
  __m256 sums = _mm256_setzero_ps();
  const auto take = [&](__m128 x, __m128 y) ZORS_INLINE_LAMBDA {
    const __m256 parts = _mm256_permutevar_ps(_mm256_set_m128(x, x), reThenIm);
    sums = _mm256_add_ps(sums, _mm256_mul_ps(parts, _mm256_set_m128(y, y)));
  };
  const auto load = [](const Zor32fc* p) ZORS_INLINE_LAMBDA { return _mm_loadu_ps(reinterpret_cast<const float*>(p)); };
  const auto loadOne = [](const Zor32fc* p) ZORS_INLINE_LAMBDA {
    return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
  };
  for (; n >= 2; src1 += 2, src2 += 2, n -= 2) take(load(src1), load(src2));
  if (n > 0) take(loadOne(src1), loadOne(src2));
  const auto [rr, ri] = joinedFour(_mm256_castps256_ps128(sums));
  const auto [ir, ii] = joinedFour(_mm256_extractf128_ps(sums, 1));
  return {rr - ii, ri + ir};
}

template <class R, class A, class B, class Dot>
ZorStatus dotProduct(const A* src1, const B* src2, Zor32s len, R* dotProd, Dot&& dotOf) {
  return check().pointers(src1, src2, dotProd).size(len).then([&] {
    if constexpr (requires { R::re; }) {
      const auto [re, im] = dotOf(src1, src2, std::ptrdiff_t{len});
      *dotProd = {re, im};
    } else {
      *dotProd = dotOf(src1, src2, std::ptrdiff_t{len});
    }
  });
}

}  // namespace

ZorStatus zorsDotProd_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dot);
}
ZorStatus zorsDotProd_32f64f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor64f* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotOfEight<Zor32f>);
}
ZorStatus zorsDotProd_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* dotProd) {
  return dotProduct(src1, src2, len, dotProd, aligned(src1, 16) && aligned(src2, 16) ? dotOfEight<Zor64f> : dotOfSix);
}
ZorStatus zorsDotProd_32f32fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotWithPairs<Zor32f, Zor32fc>);
}
ZorStatus zorsDotProd_32f32fc64fc(const Zor32f* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotWithPairsWide);
}
ZorStatus zorsDotProd_64f64fc(const Zor64f* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotWithPairs<Zor64f, Zor64fc>);
}
ZorStatus zorsDotProd_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotOfPairs);
}
ZorStatus zorsDotProd_32fc64fc(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotOfPairsWide<Zor32fc>);
}
ZorStatus zorsDotProd_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64fc* dotProd) {
  return dotProduct(src1, src2, len, dotProd, dotOfPairsWide<Zor64fc>);
}

}  // namespace zors
