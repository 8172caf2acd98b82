// zorsNorm_*, zorsNormDiff_* of floats.
#include <cmath>

#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/partial_sums.h"
#include "statistics/extremes.h"

namespace zors {
namespace {

using namespace sums;

template <class V> ZORS_INLINE V squared(V x) { return mul(x, x); }

// The elements of one vector, or the differences of two.
template <class V> ZORS_INLINE V element(V x) { return x; }
template <class V> ZORS_INLINE V element(V x, V y) { return sub(x, y); }

// round(round(re^2) + round(im^2)) of one register's worth of pairs, in the order that restored() undoes.
ZORS_INLINE Vec<Zor32f, 8> squaredPairs(Vec<Zor32f, 16> x) {
  return {{_mm256_hadd_ps(squared(x).r[0], squared(x).r[1])}};
}
ZORS_INLINE Vec<Zor64f, 4> squaredPairs(Vec<Zor64f, 8> x) {
  return {{_mm256_hadd_pd(squared(x).r[0], squared(x).r[1])}};
}
template <class V> ZORS_INLINE V restored(V x) {
  return {{simd::fromBits<typename V::Register>(_mm256_permute4x64_epi64(simd::bits(x.r[0]), 0xD8))}};
}

// How elements become the lanes that are summed or compared; `parts` components an element, one register of lanes.
template <class T> struct Magnitudes {
  static constexpr int parts = 1, lanes = simd::lanesOf<T>;
  ZORS_INLINE static Vec<T, lanes> of(Vec<T, lanes> x) { return magnitude(x); }
  ZORS_INLINE static Vec<T, lanes> inOrder(Vec<T, lanes> x) { return x; }
};
template <class T> struct SquaredPairs {
  static constexpr int parts = 2, lanes = simd::lanesOf<T>;
  ZORS_INLINE static Vec<T, lanes> of(Vec<T, 2 * lanes> x) { return squaredPairs(x); }
  ZORS_INLINE static Vec<T, lanes> inOrder(Vec<T, lanes> x) { return restored(x); }
};

template <class V> ZORS_INLINE V unordered(V a, V b) {  // all ones where either is NaN
  if constexpr (std::is_same_v<typename V::Element, Zor32f>)
    return {{_mm256_cmp_ps(a.r[0], b.r[0], _CMP_UNORD_Q)}};
  else
    return {{_mm256_cmp_pd(a.r[0], b.r[0], _CMP_UNORD_Q)}};
}
template <class T>
ZORS_INLINE T greatest(Vec<T, simd::lanesOf<T>> x) {  // of two lanes the later, unless the earlier is greater
  alignas(32) T lanes[simd::lanesOf<T>];
  simd::store(lanes, x);
  for (int half = simd::lanesOf<T> / 2; half > 0; half /= 2)
    for (int j = 0; j < half; ++j) lanes[j] = lanes[j] > lanes[j + half] ? lanes[j] : lanes[j + half];
  return lanes[0];
}

// The greatest lane, of one register of running maxima: a maximum stays only where it compares greater than the next
// element, so a NaN gives way to the element after it in its lane.
template <class Lanes, class T, class... S>
[[gnu::noinline]] T greatestWithNans(std::ptrdiff_t len, const T* src, const S*... more) {
  constexpr int row = Lanes::lanes * Lanes::parts;
  const std::ptrdiff_t n = len * Lanes::parts, whole = n / row * row;
  auto best = simd::splat<Vec<T, Lanes::lanes>>(0);
  rows<row>([&](auto... x) ZORS_INLINE_LAMBDA { best = max(best, Lanes::of(element(x...))); }, whole, src, more...);
  if (whole < n) {
    const std::ptrdiff_t rest = (n - whole) / Lanes::parts;
    const auto next =
        max(Lanes::inOrder(best), Lanes::inOrder(Lanes::of(element(loadFirst<row>(src + whole, n - whole),
                                                                   loadFirst<row>(more + whole, n - whole)...))));
    const Vec<std::conditional_t<sizeof(T) == 4, Zor32s, Zor64s>, Lanes::lanes> present{
        {detail::firstLanes<sizeof(T)>(rest)}};
    return greatest(select(present, Lanes::inOrder(best), next));
  }
  return greatest(Lanes::inOrder(best));
}
// Without NaNs any number of lanes gives the same.
template <class Lanes, class T, class... S>
[[gnu::flatten]] T greatestOf(std::ptrdiff_t len, const T* src, const S*... more) {
  constexpr int row = Lanes::lanes * Lanes::parts;
  constexpr std::ptrdiff_t round = 4 * row;
  const std::ptrdiff_t n = len * Lanes::parts;
  using V = Vec<T, Lanes::lanes>;
  V best[4], nan = simd::splat<V>(0);
  for (V& lanes : best) lanes = nan;
  const auto take = [&](std::ptrdiff_t i, auto load) ZORS_INLINE_LAMBDA {
    V x[4];
    simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA {
      best[k] = max(best[k], x[k] = Lanes::of(element(load(src + i + k * row), load(more + i + k * row)...)));
    });
    nan = either(nan, either(unordered(x[0], x[1]), unordered(x[2], x[3])));
  };
  std::ptrdiff_t i = 0;
  for (; i + round <= n; i += round) take(i, [](const T* p) ZORS_INLINE_LAMBDA { return simd::load<row>(p); });
  rows<row>(
      [&](auto... x) ZORS_INLINE_LAMBDA {
        const V lanes = Lanes::of(element(x...));
        best[0] = max(best[0], lanes);
        nan = either(nan, unordered(lanes, lanes));
      },
      n - i, src + i, more + i...);
  if (const __m256i bits = simd::bits(nan.r[0]); !_mm256_testz_si256(bits, bits)) [[unlikely]]
    return greatestWithNans<Lanes>(len, src, more...);
  const auto later = [](V next, V sofar) ZORS_INLINE_LAMBDA { return max(next, sofar); };
  return extremes::foldLanes<T>(max(max(best[0], best[1]), max(best[2], best[3])), later);
}

// One register of sums of f(lanes), in the order of the elements.
template <class Lanes, class F, class T, class... S>
ZORS_INLINE Vec<T, Lanes::lanes> sumsOf(F f, std::ptrdiff_t len, const T* src, const S*... more) {
  auto sums = simd::splat<Vec<T, Lanes::lanes>>(0);
  rows<Lanes::lanes * Lanes::parts>([&](auto... x)
                                        ZORS_INLINE_LAMBDA { sums = add(sums, f(Lanes::of(element(x...)))); },
                                    len * Lanes::parts, src, more...);
  return Lanes::inOrder(sums);
}
// The sum of squares of n components in L sums, still apart.
template <int L, class T, class... S>
ZORS_INLINE Vec<T, L> squaresOf(std::ptrdiff_t n, const T* src, const S*... more) {
  auto sums = simd::splat<Vec<T, L>>(0);
  rows<L>([&](auto... x) ZORS_INLINE_LAMBDA { sums = add(sums, squared(element(x...))); }, n, src, more...);
  return sums;
}

constexpr auto asIs = [](auto lanes) ZORS_INLINE_LAMBDA { return lanes; };
constexpr auto rooted = [](auto lanes) ZORS_INLINE_LAMBDA { return simd::sqrt(lanes); };

struct Inf {
  template <class T, class... S> static T of(Zor32s len, const T* src, const S*... more) {
    return greatestOf<Magnitudes<T>>(len, src, more...);
  }
};
struct L1 {
  template <class T, class... S> static T of(Zor32s len, const T* src, const S*... more) {
    return folded(sumsOf<Magnitudes<T>>(asIs, len, src, more...));
  }
};
struct L2 {
  template <class T, class... S> static T of(Zor32s len, const T* src, const S*... more) {
    return std::sqrt(folded(squaresOf<simd::lanesOf<T>>(len, src, more...)));
  }
};
// Of pairs: the maximum is rooted once, the other sums are widened when they are complete.
struct InfOfPairs {
  template <class T, class... S> static T of(Zor32s len, const T* src, const S*... more) {
    return std::sqrt(greatestOf<SquaredPairs<T>>(len, src, more...));
  }
};
struct L1OfPairs {
  template <class T, class... S> static Zor64f of(Zor32s len, const T* src, const S*... more) {
    return folded(widened(sumsOf<SquaredPairs<T>>(rooted, len, src, more...)));
  }
};
struct L2OfPairs {
  template <class T, class... S> static Zor64f of(Zor32s len, const T* src, const S*... more) {
    return std::sqrt(folded(widened(squaresOf<2 * simd::lanesOf<T>>(std::ptrdiff_t{len} * 2, src, more...))));
  }
};

template <class T> const T* components(const T* p) { return p; }
const Zor32f* components(const Zor32fc* p) { return reinterpret_cast<const Zor32f*>(p); }
const Zor64f* components(const Zor64fc* p) { return reinterpret_cast<const Zor64f*>(p); }

template <class Norm, class R, class... S> [[gnu::flatten]] ZorStatus reduce(R* norm, Zor32s len, const S*... src) {
  return check().pointers(src..., norm).size(len).then([&] { *norm = Norm::of(len, components(src)...); });
}

}  // namespace

// clang-format off
ZorStatus zorsNorm_Inf_32f(const Zor32f* src, Zor32s len, Zor32f* norm) { return reduce<Inf>(norm, len, src); }
ZorStatus zorsNorm_Inf_64f(const Zor64f* src, Zor32s len, Zor64f* norm) { return reduce<Inf>(norm, len, src); }
ZorStatus zorsNorm_Inf_32fc32f(const Zor32fc* src, Zor32s len, Zor32f* norm) { return reduce<InfOfPairs>(norm, len, src); }
ZorStatus zorsNorm_Inf_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm) { return reduce<InfOfPairs>(norm, len, src); }
ZorStatus zorsNorm_L1_32f(const Zor32f* src, Zor32s len, Zor32f* norm) { return reduce<L1>(norm, len, src); }
ZorStatus zorsNorm_L1_64f(const Zor64f* src, Zor32s len, Zor64f* norm) { return reduce<L1>(norm, len, src); }
ZorStatus zorsNorm_L1_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm) { return reduce<L1OfPairs>(norm, len, src); }
ZorStatus zorsNorm_L1_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm) { return reduce<L1OfPairs>(norm, len, src); }
ZorStatus zorsNorm_L2_32f(const Zor32f* src, Zor32s len, Zor32f* norm) { return reduce<L2>(norm, len, src); }
ZorStatus zorsNorm_L2_64f(const Zor64f* src, Zor32s len, Zor64f* norm) { return reduce<L2>(norm, len, src); }
ZorStatus zorsNorm_L2_32fc64f(const Zor32fc* src, Zor32s len, Zor64f* norm) { return reduce<L2OfPairs>(norm, len, src); }
ZorStatus zorsNorm_L2_64fc64f(const Zor64fc* src, Zor32s len, Zor64f* norm) { return reduce<L2OfPairs>(norm, len, src); }

ZorStatus zorsNormDiff_Inf_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm) { return reduce<Inf>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_Inf_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm) { return reduce<Inf>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_Inf_32fc32f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor32f* norm) { return reduce<InfOfPairs>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_Inf_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm) { return reduce<InfOfPairs>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm) { return reduce<L1>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm) { return reduce<L1>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm) { return reduce<L1OfPairs>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm) { return reduce<L1OfPairs>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_32f(const Zor32f* src1, const Zor32f* src2, Zor32s len, Zor32f* norm) { return reduce<L2>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_64f(const Zor64f* src1, const Zor64f* src2, Zor32s len, Zor64f* norm) { return reduce<L2>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_32fc64f(const Zor32fc* src1, const Zor32fc* src2, Zor32s len, Zor64f* norm) { return reduce<L2OfPairs>(norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_64fc64f(const Zor64fc* src1, const Zor64fc* src2, Zor32s len, Zor64f* norm) { return reduce<L2OfPairs>(norm, len, src1, src2); }
// clang-format on

}  // namespace zors
