// zorsDotProd_* of 16-bit integers: exact sums, scaled to nearest or converted.
#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/exact_sums.h"
#include "frame/sums/scaled_results.h"

namespace zors {
namespace {

using exact::productsBias;
using exact::WideSum;

struct Exact {
  Zor64s re, im;
};

Zor64s dot(const Zor16s* src1, const Zor16s* src2, Zor32s len) {
  WideSum sum;
  rows<16>([&](auto x, auto y) ZORS_INLINE_LAMBDA { sum.add(_mm256_madd_epi16(x.r[0], y.r[0]), productsBias); }, len,
           src1, src2);
  return sum.total();
}

// A real element stands in a pair with a zero; the products of two pairs make one sum of two products.
Exact dot(const Zor16s* src1, const Zor16sc* src2, Zor32s len) {
  WideSum re, im;
  rows<16>(
      [&](auto x, auto y) ZORS_INLINE_LAMBDA {
        const __m256i low = _mm256_cvtepu16_epi32(_mm256_castsi256_si128(x.r[0])),
                      high = _mm256_cvtepu16_epi32(_mm256_extracti128_si256(x.r[0], 1));
        re.add(_mm256_add_epi32(_mm256_madd_epi16(low, y.r[0]), _mm256_madd_epi16(high, y.r[1])), productsBias);
        im.add(_mm256_add_epi32(_mm256_madd_epi16(_mm256_slli_epi32(low, 16), y.r[0]),
                                _mm256_madd_epi16(_mm256_slli_epi32(high, 16), y.r[1])),
               productsBias);
      },
      len, src1, src2);
  return {re.total(), im.total()};
}

// re1 * re2 + im1 * im2 less twice im1 * im2, as -im2 need not fit 16 bits; re1 * im2 + im1 * re2.
Exact dot(const Zor16sc* src1, const Zor16sc* src2, Zor32s len) {
  WideSum both, imaginary, cross;
  const __m256i onlyIm = _mm256_set1_epi32(int(0xFFFF0000u));
  const __m256i swap = _mm256_broadcastsi128_si256(_mm_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13));
  rows<8>(
      [&](auto x, auto y) ZORS_INLINE_LAMBDA {
        both.add(_mm256_madd_epi16(x.r[0], y.r[0]), productsBias);
        imaginary.add(_mm256_madd_epi16(_mm256_and_si256(x.r[0], onlyIm), y.r[0]), productsBias);
        cross.add(_mm256_madd_epi16(x.r[0], _mm256_shuffle_epi8(y.r[0], swap)), productsBias);
      },
      len, src1, src2);
  return {both.total() - 2 * imaginary.total(), cross.total()};
}

// The stored result of an exact sum: converted, or scaled with the factor limited to -15 (of 16 bits), -31 and 31.
Zor32f converted(Zor64s sum, Zor32f*) { return Zor32f(sum); }
Zor64s converted(Zor64s sum, Zor64s*) { return sum; }
Zor16s scaled(Zor64s sum, Zor32s scaleFactor, Zor16s*) { return scaledToNearest<Zor16s>(sum, scaleFactor, 15, 31); }
Zor32s scaled(Zor64s sum, Zor32s scaleFactor, Zor32s*) { return scaledToNearest<Zor32s>(sum, scaleFactor, 31, 31); }

template <class A, class B, class R, class Finish>
ZorStatus dotProduct(const A* src1, const B* src2, Zor32s len, R* dotProd, Finish finish) {
  return check().pointers(src1, src2, dotProd).size(len).then([&] {
    if constexpr (requires { R::re; }) {
      const auto [re, im] = dot(src1, src2, len);
      *dotProd = {finish(re, &dotProd->re), finish(im, &dotProd->im)};
    } else {
      *dotProd = finish(dot(src1, src2, len), dotProd);
    }
  });
}
template <class A, class B, class R> ZorStatus convertedProduct(const A* src1, const B* src2, Zor32s len, R* dotProd) {
  return dotProduct(src1, src2, len, dotProd, [](Zor64s sum, auto* result) { return converted(sum, result); });
}
template <class A, class B, class R>
ZorStatus scaledProduct(const A* src1, const B* src2, Zor32s len, R* dotProd, Zor32s scaleFactor) {
  return dotProduct(src1, src2, len, dotProd,
                    [=](Zor64s sum, auto* result) { return scaled(sum, scaleFactor, result); });
}

}  // namespace

// clang-format off
ZorStatus zorsDotProd_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* dotProd) { return convertedProduct(src1, src2, len, dotProd); }
ZorStatus zorsDotProd_16s64s(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* dotProd) { return convertedProduct(src1, src2, len, dotProd); }
ZorStatus zorsDotProd_16s16sc32fc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd) { return convertedProduct(src1, src2, len, dotProd); }
ZorStatus zorsDotProd_16s16sc64sc(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd) { return convertedProduct(src1, src2, len, dotProd); }
ZorStatus zorsDotProd_16sc32fc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32fc* dotProd) { return convertedProduct(src1, src2, len, dotProd); }
ZorStatus zorsDotProd_16sc64sc(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor64sc* dotProd) { return convertedProduct(src1, src2, len, dotProd); }

ZorStatus zorsDotProd_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor16s* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
ZorStatus zorsDotProd_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
ZorStatus zorsDotProd_16s16sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
ZorStatus zorsDotProd_16s16sc32sc_Sfs(const Zor16s* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
ZorStatus zorsDotProd_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor16sc* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
ZorStatus zorsDotProd_16sc32sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor32s len, Zor32sc* dotProd, Zor32s scaleFactor) { return scaledProduct(src1, src2, len, dotProd, scaleFactor); }
// clang-format on

}  // namespace zors
