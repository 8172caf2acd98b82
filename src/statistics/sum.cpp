// zorsSum_*, zorsMean_*.
#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/exact_sums.h"
#include "frame/sums/partial_sums.h"
#include "frame/sums/scaled_results.h"

namespace zors {
namespace {

using namespace sums;

// ---- Floats: streams of components, one an element or, interleaved, two -------------------------

// Components before the first 32-byte boundary that an element meets; none where none does.
template <int parts, class T> std::ptrdiff_t prefixOf(const T* p, std::ptrdiff_t n) {
  return aligned(p, parts * sizeof(T)) ? std::min(n, elementsToBoundary(p, 32)) : 0;
}

// Adds count components one by one and advances.
template <int parts, class Sum, class T>
ZORS_INLINE void addSingly(Pair<Sum>& total, const T*& p, std::ptrdiff_t& n, std::ptrdiff_t count) {
  for (std::ptrdiff_t i = 0; i < count; i += parts) {
    total.even += readAt(p + i);
    if constexpr (parts == 2) total.odd += readAt(p + i + 1);
  }
  p += count, n -= count;
}
template <int parts, int L> ZORS_INLINE Pair<Zor64f> totalOf(Vec<Zor64f, L> lanes) {
  if constexpr (parts == 1)
    return {folded(lanes), 0};
  else
    return joined(lanes);
}

// In binary64 throughout: eight sums, then four for the rest.
template <int parts> Pair<Zor64f> accurateSum(const Zor32f* p, std::ptrdiff_t n) {
  Pair<Zor64f> total{0, 0};
  const bool isLong = n >= 57;
  if (n < 32 || (isLong && !aligned(p, sizeof *p))) {
    addSingly<parts>(total, p, n, n);
    return total;
  }
  if (isLong) addSingly<parts>(total, p, n, prefixOf<parts>(p, n));
  auto eight = seeded<Zor64f, 8>(total.even, total.odd);
  for (const std::ptrdiff_t rest = n % 32; n > rest; p += 8, n -= 8) eight = add(eight, loadWide<8>(p));
  total = totalOf<parts>(eight);
  if (n >= 4) {
    auto four = seeded<Zor64f, 4>(total.even, total.odd);
    for (; n >= 4; p += 4, n -= 4) four = add(four, loadWide<4>(p));
    total = totalOf<parts>(four);
  }
  addSingly<parts>(total, p, n, n);
  return total;
}

// In binary32 within blocks, 32 sums each, and binary64 across them.
template <int parts> Pair<Zor64f> fastSum(const Zor32f* p, std::ptrdiff_t n) {
  if (!aligned(p, sizeof *p)) return accurateSum<parts>(p, n);
  Pair<Zor32f> prefix{0, 0};
  addSingly<parts>(prefix, p, n, prefixOf<parts>(p, n));
  auto totals = seeded<Zor64f, 4>(prefix.even, prefix.odd);
  constexpr std::ptrdiff_t block = 8192;
  for (; n > 0; p += block, n -= block) {
    auto lanes = simd::splat<Vec<Zor32f, 32>>(0);
    rows<32>([&](auto x) ZORS_INLINE_LAMBDA { lanes = add(lanes, x); }, std::min(n, block), p);
    totals = add(totals, halved(widened(halved(halved(lanes)))));
  }
  if constexpr (parts == 2) return joined(totals);
  const __m256d t = totals.r[0];
  return {(t[0] + t[1]) + (t[2] + t[3]), 0};
}

template <int parts> Pair<Zor64f> sumOf(const Zor32f* p, std::ptrdiff_t n, ZorHintAlgorithm hint) {
  return hint == zorAlgHintFast ? fastSum<parts>(p, n) : accurateSum<parts>(p, n);
}

// Sixteen sums; the rest in groups of 8, 4, 2 and 1 goes to the first ones.
template <int parts> Pair<Zor64f> sumOf(const Zor64f* p, std::ptrdiff_t n) {
  Pair<Zor64f> total{0, 0};
  if (!aligned(p, sizeof *p)) {
    addSingly<parts>(total, p, n, n);
    return total;
  }
  addSingly<parts>(total, p, n, prefixOf<parts>(p, n));
  auto lanes = seeded<Zor64f, 16>(total.even, total.odd);
  for (; n >= 16; p += 16, n -= 16) lanes = add(lanes, simd::load<16>(p));
  const auto addTo = [&](int i, __m256d x) ZORS_INLINE_LAMBDA { lanes.r[i] = _mm256_add_pd(lanes.r[i], x); };
  if (n & 8) addTo(0, _mm256_loadu_pd(p)), addTo(1, _mm256_loadu_pd(p + 4)), p += 8;
  if (n & 4) addTo(0, _mm256_loadu_pd(p)), p += 4;
  if (n & 2) addTo(0, loadFirst<4>(p, 2).r[0]), p += 2;
  if (n & 1) addTo(0, loadFirst<4>(p, 1).r[0]);
  return totalOf<parts>(lanes);
}

const Zor32f* components(const Zor32fc* p) { return reinterpret_cast<const Zor32f*>(p); }
const Zor64f* components(const Zor64fc* p) { return reinterpret_cast<const Zor64f*>(p); }
const Zor16s* components(const Zor16sc* p) { return reinterpret_cast<const Zor16s*>(p); }

// ---- Integers -----------------------------------------------------------------------------------

Zor64s exactSum(const Zor16s* src, Zor32s len) {
  exact::BlockSum sum;
  exact::blocks<16>([&](auto x) ZORS_INLINE_LAMBDA { sum.add(_mm256_madd_epi16(x.r[0], exact::ones())); },
                    [&] { sum.endBlock(); }, len, src);
  return sum.total();
}
struct Exact {
  Zor64s re, im;
};
Exact exactSum(const Zor16sc* src, Zor32s len) {
  exact::BlockSum re, im;
  const __m256i onlyRe = _mm256_set1_epi32(1), onlyIm = _mm256_set1_epi32(1 << 16);
  exact::blocks<16>(
      [&](auto x) ZORS_INLINE_LAMBDA {
        re.add(_mm256_madd_epi16(x.r[0], onlyRe));
        im.add(_mm256_madd_epi16(x.r[0], onlyIm));
      },
      [&] { re.endBlock(), im.endBlock(); }, std::ptrdiff_t{len} * 2, components(src));
  return {re.total(), im.total()};
}
Zor64s exactSum(const Zor32s* src, Zor32s len) {
  exact::WideSum sum;
  constexpr Zor32u bias = 0x80000000;
  rows<8>([&](auto x) ZORS_INLINE_LAMBDA { sum.add(x.r[0], bias); }, len, src);
  return sum.total();
}

Zor32s scaledSum(Zor64s sum, Zor32s scaleFactor) { return toInteger<Zor32s>(Zor64f(sum) * limitedPower(scaleFactor)); }
Zor16s scaledMean(Zor64s sum, Zor32s len, Zor32s scaleFactor) {
  return toInteger<Zor16s>(Zor64f(sum) / len * limitedPower(scaleFactor));
}

// |x| / len to nearest, ties to even, with the sign of x.
Zor64s dividedToEven(Zor64s x, Zor32s len) {
  const Zor64u magnitude = x < 0 ? -Zor64u(x) : Zor64u(x), divisor = Zor64u(len);
  const Zor64u quotient = magnitude / divisor, twice = magnitude % divisor * 2;
  const Zor64u rounded = quotient + (twice > divisor ? 1 : twice == divisor ? quotient & 1 : 0);
  return x < 0 ? -Zor64s(rounded) : Zor64s(rounded);
}

// Scaling down rounds a second time: halves of the quotient's magnitude away from zero, and nothing saturates. Scaling
// up multiplies the sum where it fits 32 bits, else the quotient.
Zor32s mean32s(Zor64s sum, Zor32s len, Zor32s scaleFactor) {
  if (scaleFactor < -31) {
    const Zor64s quotient = dividedToEven(sum, len);
    return quotient > 0 ? INT32_MAX : quotient < 0 ? INT32_MIN : 0;
  }
  if (scaleFactor < 0) {
    const bool fits = sum >= INT32_MIN && sum <= INT32_MAX;
    return saturated<Zor32s>(fits ? dividedToEven(sum << -scaleFactor, len) : dividedToEven(sum, len) << -scaleFactor);
  }
  const Zor64s quotient = dividedToEven(sum, len);
  if (scaleFactor == 0) return Zor32s(quotient);
  Zor64u magnitude = quotient < 0 ? -Zor64u(quotient) : Zor64u(quotient);
  magnitude = (magnitude + (magnitude & Zor64u{1} << ((scaleFactor - 1) & 63))) >> (scaleFactor & 63);
  return Zor32s(quotient < 0 ? -Zor64s(magnitude) : Zor64s(magnitude));
}

}  // namespace

ZorStatus zorsSum_32f(const Zor32f* src, Zor32s len, Zor32f* sum, ZorHintAlgorithm hint) {
  return check().pointers(src, sum).size(len).then([&] { *sum = Zor32f(sumOf<1>(src, len, hint).even); });
}
ZorStatus zorsSum_32fc(const Zor32fc* src, Zor32s len, Zor32fc* sum, ZorHintAlgorithm hint) {
  return check().pointers(src, sum).size(len).then([&] {
    const auto [re, im] = sumOf<2>(components(src), std::ptrdiff_t{len} * 2, hint);
    *sum = {Zor32f(re), Zor32f(im)};
  });
}
ZorStatus zorsSum_64f(const Zor64f* src, Zor32s len, Zor64f* sum) {
  return check().pointers(src, sum).size(len).then([&] { *sum = sumOf<1>(src, len).even; });
}
ZorStatus zorsSum_64fc(const Zor64fc* src, Zor32s len, Zor64fc* sum) {
  return check().pointers(src, sum).size(len).then([&] {
    const auto [re, im] = sumOf<2>(components(src), std::ptrdiff_t{len} * 2);
    *sum = {re, im};
  });
}

ZorStatus zorsSum_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor) {
  return check().pointers(src, sum).size(len).then([&] { *sum = scaledSum(exactSum(src, len), scaleFactor); });
}
ZorStatus zorsSum_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* sum, Zor32s scaleFactor) {
  return check().pointers(src, sum).size(len).then(
      [&] { *sum = saturated<Zor16s>(scaledSum(exactSum(src, len), scaleFactor)); });
}
ZorStatus zorsSum_16sc32sc_Sfs(const Zor16sc* src, Zor32s len, Zor32sc* sum, Zor32s scaleFactor) {
  return check().pointers(src, sum).size(len).then([&] {
    const auto [re, im] = exactSum(src, len);
    *sum = {scaledSum(re, scaleFactor), scaledSum(im, scaleFactor)};
  });
}
ZorStatus zorsSum_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* sum, Zor32s scaleFactor) {
  return check().pointers(src, sum).size(len).then([&] {
    const auto [re, im] = exactSum(src, len);
    *sum = {saturated<Zor16s>(scaledSum(re, scaleFactor)), saturated<Zor16s>(scaledSum(im, scaleFactor))};
  });
}
ZorStatus zorsSum_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* sum, Zor32s scaleFactor) {
  return check().pointers(src, sum).size(len).then(
      [&] { *sum = scaledToNearest<Zor32s>(exactSum(src, len), scaleFactor, 31, 63); });
}

// The sum is narrowed before the division; that of pairs is not.
ZorStatus zorsMean_32f(const Zor32f* src, Zor32s len, Zor32f* mean, ZorHintAlgorithm hint) {
  return check().pointers(src, mean).size(len).then(
      [&] { *mean = Zor32f(Zor64f(Zor32f(sumOf<1>(src, len, hint).even)) / len); });
}
ZorStatus zorsMean_32fc(const Zor32fc* src, Zor32s len, Zor32fc* mean, ZorHintAlgorithm hint) {
  return check().pointers(src, mean).size(len).then([&] {
    const auto [re, im] = sumOf<2>(components(src), std::ptrdiff_t{len} * 2, hint);
    *mean = {Zor32f(re / len), Zor32f(im / len)};
  });
}
ZorStatus zorsMean_64f(const Zor64f* src, Zor32s len, Zor64f* mean) {
  return check().pointers(src, mean).size(len).then([&] { *mean = sumOf<1>(src, len).even / len; });
}
ZorStatus zorsMean_64fc(const Zor64fc* src, Zor32s len, Zor64fc* mean) {
  return check().pointers(src, mean).size(len).then([&] {
    const auto [re, im] = sumOf<2>(components(src), std::ptrdiff_t{len} * 2);
    const Zor64f reciprocal = 1.0 / len;
    *mean = {re * reciprocal, im * reciprocal};
  });
}

ZorStatus zorsMean_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor32s scaleFactor) {
  return check().pointers(src, mean).size(len).then([&] { *mean = scaledMean(exactSum(src, len), len, scaleFactor); });
}
ZorStatus zorsMean_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* mean, Zor32s scaleFactor) {
  return check().pointers(src, mean).size(len).then([&] {
    const auto [re, im] = exactSum(src, len);
    *mean = {scaledMean(re, len, scaleFactor), scaledMean(im, len, scaleFactor)};
  });
}
ZorStatus zorsMean_32s_Sfs(const Zor32s* src, Zor32s len, Zor32s* mean, Zor32s scaleFactor) {
  return check().pointers(src, mean).size(len).then([&] { *mean = mean32s(exactSum(src, len), len, scaleFactor); });
}

}  // namespace zors
