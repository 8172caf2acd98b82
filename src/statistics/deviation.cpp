// zorsStdDev_*, zorsMeanStdDev_*: the root of V / (n (n - 1)) with V = n * sum of squares - (sum)^2, not below 0.
#include <cmath>

#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/exact_sums.h"
#include "frame/sums/partial_sums.h"
#include "frame/sums/scaled_results.h"

namespace zors {
namespace {

using namespace sums;

struct Moments {
  Zor64f sum, squares, n;
  Zor64f mean() const { return sum / n; }
  Zor64f spread() const {
    const Zor64f v = squares * n - sum * sum;
    return v < 0 ? 0 : v;
  }
  Zor64f degrees() const { return n * (n - 1); }
  Zor64f deviation() const { return std::sqrt(spread() / degrees()); }
};

// Eight sums each, of widened elements.
template <class T> Moments accurateMoments(const T* src, Zor32s len) {
  auto sum = simd::splat<Vec<Zor64f, 8>>(0), squares = sum;
  rows<8>(
      [&](auto x) ZORS_INLINE_LAMBDA {
        const auto wide = widened(x);
        sum = add(sum, wide);
        squares = add(squares, mul(wide, wide));
      },
      len, src);
  return {folded(sum), folded(squares), Zor64f(len)};
}
// Sixteen sums each in binary32 within a block; at its end lane j goes to binary64 total j mod 8.
Moments fastMoments(const Zor32f* src, Zor32s len) {
  auto sum = simd::splat<Vec<Zor64f, 8>>(0), squares = sum;
  const auto endBlock = [](Vec<Zor64f, 8>& total, Vec<Zor32f, 16> lanes) ZORS_INLINE_LAMBDA {
    simd::unrolled<2>([&](auto i) ZORS_INLINE_LAMBDA { total = add(total, widened(Vec<Zor32f, 8>{{lanes.r[i]}})); });
  };
  constexpr std::ptrdiff_t block = 8192;
  for (std::ptrdiff_t at = 0; at < len; at += block) {
    auto blockSum = simd::splat<Vec<Zor32f, 16>>(0), blockSquares = blockSum;
    rows<16>(
        [&](auto x) ZORS_INLINE_LAMBDA {
          blockSum = add(blockSum, x);
          blockSquares = add(blockSquares, mul(x, x));
        },
        std::min(block, len - at), src + at);
    endBlock(sum, blockSum);
    endBlock(squares, blockSquares);
  }
  return {folded(sum), folded(squares), Zor64f(len)};
}
Moments exactMoments(const Zor16s* src, Zor32s len) {
  exact::BlockSum sum;
  exact::WideSum squares;
  exact::blocks<16>(
      [&](auto x) ZORS_INLINE_LAMBDA {
        sum.add(_mm256_madd_epi16(x.r[0], exact::ones()));
        squares.add(_mm256_madd_epi16(x.r[0], x.r[0]));
      },
      [&] { sum.endBlock(); }, len, src);
  return {Zor64f(sum.total()), Zor64f(squares.total()), Zor64f(len)};
}

struct Scaled {
  Zor32s mean, deviation;
};
Scaled scaledMoments(const Zor16s* src, Zor32s len, Zor32s scaleFactor) {
  const Moments moments = exactMoments(src, len);
  const Zor64f scale = limitedPower(scaleFactor);
  return {toInteger<Zor32s>(moments.mean() * scale), toInteger<Zor32s>(moments.deviation() * scale)};
}

template <class... P> Checks checked(Zor32s len, const P*... pointer) {
  return check().pointers(pointer...).require(len >= 2, zorStatusBadSize);
}

}  // namespace

// Both parts of the quotient are narrowed before the division and the root.
ZorStatus zorsStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* stdDev, ZorHintAlgorithm hint) {
  return checked(len, src, stdDev).then([&] {
    const Moments moments = hint == zorAlgHintFast ? fastMoments(src, len) : accurateMoments(src, len);
    *stdDev = std::sqrt(Zor32f(moments.spread()) / Zor32f(moments.degrees()));
  });
}
ZorStatus zorsStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* stdDev) {
  return checked(len, src, stdDev).then([&] { *stdDev = accurateMoments(src, len).deviation(); });
}
ZorStatus zorsStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* stdDev, Zor32s scaleFactor) {
  return checked(len, src, stdDev).then([&] { *stdDev = scaledMoments(src, len, scaleFactor).deviation; });
}
ZorStatus zorsStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* stdDev, Zor32s scaleFactor) {
  return checked(len, src, stdDev).then([&] {
    *stdDev = saturated<Zor16s>(scaledMoments(src, len, scaleFactor).deviation);
  });
}

// There is no fast path here: the hint has no effect.
ZorStatus zorsMeanStdDev_32f(const Zor32f* src, Zor32s len, Zor32f* mean, Zor32f* stdDev, ZorHintAlgorithm) {
  return checked(len, src, mean, stdDev).then([&] {
    const Moments moments = accurateMoments(src, len);
    *mean = Zor32f(moments.mean()), *stdDev = Zor32f(moments.deviation());
  });
}
ZorStatus zorsMeanStdDev_64f(const Zor64f* src, Zor32s len, Zor64f* mean, Zor64f* stdDev) {
  return checked(len, src, mean, stdDev).then([&] {
    const Moments moments = accurateMoments(src, len);
    *mean = moments.mean(), *stdDev = moments.deviation();
  });
}
ZorStatus zorsMeanStdDev_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* mean, Zor32s* stdDev, Zor32s scaleFactor) {
  return checked(len, src, mean, stdDev).then([&] {
    const Scaled result = scaledMoments(src, len, scaleFactor);
    *mean = result.mean, *stdDev = result.deviation;
  });
}
ZorStatus zorsMeanStdDev_16s_Sfs(const Zor16s* src, Zor32s len, Zor16s* mean, Zor16s* stdDev, Zor32s scaleFactor) {
  return checked(len, src, mean, stdDev).then([&] {
    const Scaled result = scaledMoments(src, len, scaleFactor);
    *mean = saturated<Zor16s>(result.mean), *stdDev = saturated<Zor16s>(result.deviation);
  });
}

}  // namespace zors
