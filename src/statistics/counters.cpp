// zorsCountInRange_32s, zorsZeroCrossing_*: how many elements, or neighbours, satisfy a condition.
#include <algorithm>
#include <cmath>

#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/rows.h"

namespace zors {
namespace {

using namespace simd;

// What a pair of neighbours contributes, to be subtracted from the count: vectors and single elements alike. The
// three-valued sign of a NaN is 0.
struct ProductNegative {
  template <int L> ZORS_INLINE Vec<Zor16s, L> operator()(Vec<Zor16s, L> x, Vec<Zor16s, L> y) const {
    const auto zero = same(x, 0);
    return either(both(above(zero, x), above(y, zero)), both(above(x, zero), above(zero, y)));
  }
  template <int L> ZORS_INLINE Vec<Zor32s, L> operator()(Vec<Zor32f, L> x, Vec<Zor32f, L> y) const {
    return as<Zor32s>(below(mul(x, y), same(x, 0)));
  }
  int operator()(Zor16s x, Zor16s y) const { return -(x * y < 0); }
  int operator()(Zor32f x, Zor32f y) const { return -(x * y < 0); }
};
struct SignsDiffer {
  template <int L> ZORS_INLINE Vec<Zor16s, L> operator()(Vec<Zor16s, L> x, Vec<Zor16s, L> y) const {
    return shiftRight(differing(x, y), 15);
  }
  template <int L> ZORS_INLINE Vec<Zor32s, L> operator()(Vec<Zor32f, L> x, Vec<Zor32f, L> y) const {
    return shiftRight(as<Zor32s>(differing(x, y)), 31);
  }
  int operator()(Zor16s x, Zor16s y) const { return -((x ^ y) < 0); }
  int operator()(Zor32f x, Zor32f y) const { return -int(std::signbit(x) != std::signbit(y)); }
};
struct SignDistance {
  template <int L> ZORS_INLINE static Vec<Zor16s, L> sign(Vec<Zor16s, L> x) {
    return sub(above(same(x, 0), x), above(x, same(x, 0)));
  }
  template <int L> ZORS_INLINE static Vec<Zor32s, L> sign(Vec<Zor32f, L> x) {
    return sub(as<Zor32s>(below(x, same(x, 0))), as<Zor32s>(below(same(x, 0), x)));
  }
  template <class T> static int sign(T x) { return (x > 0) - (x < 0); }
  template <class T, int L> ZORS_INLINE auto operator()(Vec<T, L> x, Vec<T, L> y) const {
    const auto a = sign(x), b = sign(y);
    return sub(min(a, b), max(a, b));
  }
  template <class T> int operator()(T x, T y) const { return -std::abs(sign(x) - sign(y)); }
};

// The sum of the lanes: 16-bit counts below 2^15, 32-bit ones below 2^31.
ZORS_INLINE Zor64s total(Vec<Zor32s, 8> counts) {
  alignas(32) Zor32s lanes[8];
  store(lanes, counts);
  Zor64s sum = 0;
  for (const Zor32s lane : lanes) sum += lane;
  return sum;
}
ZORS_INLINE Zor64s total(Vec<Zor16s, 16> counts) {
  return total(Vec<Zor32s, 8>{{_mm256_madd_epi16(counts.r[0], _mm256_set1_epi16(1))}});
}

// The sum of -contribution(element...) over len elements, counted in lanes as wide as the contributions.
template <class Contribution, class T, class... More>
[[gnu::flatten]] Zor64s countOf(Contribution contribution, std::ptrdiff_t len, const T* src, const More*... more) {
  constexpr int L = lanesOf<T>;
  using Counts = decltype(contribution(load<L>(src), load<L>(more)...));
  constexpr std::ptrdiff_t block =
      L * std::ptrdiff_t{sizeof(T) == 2 ? 16000 : 1 << 29};  // a step adds at most 2 to a lane
  Zor64s count = 0;
  std::ptrdiff_t i = 0;
  while (i + L <= len) {
    Counts counts = splat<Counts>(0);
    for (const std::ptrdiff_t end = std::min(i + block, len - L + 1); i < end; i += L)
      counts = sub(counts, contribution(load<L>(src + i), load<L>(more + i)...));
    count += total(counts);
  }
  for (; i < len; ++i) count -= contribution(src[i], more[i]...);
  return count;
}

enum Mode : Zor32s { productNegative = 0, signsDiffer = 1, signDistance = 2 };

// halve(total) of the distances of signs; there are no pairs in a vector of negative length.
template <class T, class Halve>
ZorStatus zeroCrossing(const T* src, Zor32s len, Zor32f* result, Zor32s mode, Halve halve) {
  return check()
      .pointers(src, result)
      .require(len != 0, zorStatusBadSize)
      .require(mode >= productNegative && mode <= signDistance, zorStatusBadModeOption)
      .then([&] {
        const std::ptrdiff_t pairs = std::ptrdiff_t{len} - 1;
        if (mode == productNegative)
          *result = Zor32f(countOf(ProductNegative{}, pairs, src, src + 1));
        else if (mode == signsDiffer)
          *result = Zor32f(countOf(SignsDiffer{}, pairs, src, src + 1));
        else
          *result = halve(countOf(SignDistance{}, pairs, src, src + 1));
      });
}

}  // namespace

ZorStatus zorsCountInRange_32s(const Zor32s* src, Zor32s len, Zor32s* count, Zor32s lowerBound, Zor32s upperBound) {
  return check().pointers(src, count).size(len).then([&] {
    struct InRange {
      Zor32s lower, upper;
      ZORS_INLINE Vec<Zor32s, 8> operator()(Vec<Zor32s, 8> x) const {
        return both(above(x, same(x, lower)), above(same(x, upper), x));
      }
      int operator()(Zor32s x) const { return -(lower < x && x < upper); }
    };
    *count = Zor32s(countOf(InRange{lowerBound, upperBound}, len, src));
  });
}

ZorStatus zorsZeroCrossing_16s32f(const Zor16s* src, Zor32s len, Zor32f* result, Zor32s mode) {
  return zeroCrossing(src, len, result, mode, [](Zor64s total) { return Zor32f(total >> 1); });
}
ZorStatus zorsZeroCrossing_32f(const Zor32f* src, Zor32s len, Zor32f* result, Zor32s mode) {
  return zeroCrossing(src, len, result, mode, [](Zor64s total) { return Zor32f(total) * 0.5f; });
}

}  // namespace zors
