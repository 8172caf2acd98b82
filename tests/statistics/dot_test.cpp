#include "statistics/models.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;
using kit::Sums;

template <class R> struct PartsOf { using type = R; };
template <kit::ComplexPair R> struct PartsOf<R> { using type = decltype(R::re); };
template <class R> using Part = typename PartsOf<R>::type;

struct Place {
  std::uintptr_t src1, src2;
};  // addresses

// Runs dotProd over random data at all alignments of both sources; model(a, b, place).
template <class A, class B, class R, class Model>
void checkFloats(const char* name, ZorStatus (*dotProd)(const A*, const B*, Zor32s, R*), Model model) {
  kit::Random random(31);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (int len : kit::sweepLengths()) {
      const auto a = kit::spread<A>(std::size_t(len), random);
      const auto b = kit::spread<B>(std::size_t(len), random);
      for (unsigned step : kit::addressSteps) {
        const Edge edge = step % 3 ? Edge::begin : Edge::end;
        const kit::Placed<A> src1(a, edge, random() % 5 * 8 + random() % 4);
        const kit::Placed<B> src2(b, edge, step);
        R result{};
        ASSERT_EQ(dotProd(src1.data(), src2.data(), len, &result), zorStatusOk);
        const R wanted = model(a, b, Place{src1.address(), src2.address()});
        ASSERT_TRUE(kit::sameBits(result, wanted))
            << name << ", len " << len << ", addresses " << src1.address() % 32 << " and " << src2.address() % 32
            << ": " << kit::text(result) << ", wanted " << kit::text(wanted);
      }
    }
  }
  const std::vector<A> a(4);
  const std::vector<B> b(4);
  R result{};
  kit::Contract(dotProd, a.data(), b.data(), 4, &result)
      .template null<0>()
      .template null<1>()
      .template null<3>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
}

Zor32f dot32f(const std::vector<Zor32f>& a, const std::vector<Zor32f>& b, Place place) {
  Zor32f total = 0;
  std::size_t k = 0;
  const auto singly = [&](std::size_t until) {
    for (; k < until; ++k) total += a[k] * b[k];
  };
  const std::size_t n = a.size();
  if (n < 16 || (n >= 57 && place.src2 % 4 != 0)) {
    singly(n);
    return total;
  }
  if (n >= 57) singly((32 - place.src2 % 32) % 32 / 4);
  Sums<Zor32f> sixteen(16, total);
  for (; n - k >= 16;)
    for (std::size_t j = 0; j < 16; ++j, ++k) sixteen.add(j, a[k] * b[k]);
  Sums<Zor32f> eight = sixteen.halved();
  if (n - k >= 8)
    for (std::size_t j = 0; j < 8; ++j, ++k) eight.add(j, a[k] * b[k]);
  total = eight.folded();
  singly(n);
  return total;
}
template <class A> Zor64f dotOfEight(const std::vector<A>& a, const std::vector<A>& b) {
  Sums<Zor64f> sums(8);
  for (std::size_t k = 0; k < a.size(); ++k) sums.add(k, Zor64f(a[k]) * Zor64f(b[k]));
  return sums.folded();
}
Zor64f dot64f(const std::vector<Zor64f>& a, const std::vector<Zor64f>& b, Place place) {
  if (place.src1 % 16 == 0 && place.src2 % 16 == 0) return dotOfEight(a, b);
  Sums<Zor64f> s(6);
  for (std::size_t k = 0; k < a.size(); ++k) s.add(k, a[k] * b[k]);
  return ((s.p[0] + s.p[2]) + s.p[4]) + ((s.p[1] + s.p[3]) + s.p[5]);
}
// Sums of components of a real vector by pairs, in type T.
template <class T, class A, class B> auto withPairs(std::size_t n, const std::vector<A>& a, const std::vector<B>& b) {
  Sums<T> sums(n);
  for (std::size_t k = 0; k < a.size(); ++k)
    sums.add(2 * k, T(a[k]) * T(b[k].re)), sums.add(2 * k + 1, T(a[k]) * T(b[k].im));
  return sums.joined();
}
template <class T, class C> std::pair<T, T> ofPairs(std::size_t n, const std::vector<C>& a, const std::vector<C>& b) {
  Sums<T> byRe(n), byIm(n);
  for (std::size_t k = 0; k < a.size(); ++k) {
    byRe.add(2 * k, T(a[k].re) * T(b[k].re)), byRe.add(2 * k + 1, T(a[k].re) * T(b[k].im));
    byIm.add(2 * k, T(a[k].im) * T(b[k].re)), byIm.add(2 * k + 1, T(a[k].im) * T(b[k].im));
  }
  return {byRe.joined().first - byIm.joined().second, byRe.joined().second + byIm.joined().first};
}

TEST(DotProd, FloatsInTheStatedPartialSums) {
  checkFloats<Zor32f, Zor32f, Zor32f>("zorsDotProd_32f", zorsDotProd_32f, dot32f);
  checkFloats<Zor32f, Zor32f, Zor64f>("zorsDotProd_32f64f", zorsDotProd_32f64f,
                                      [](const auto& a, const auto& b, Place) { return dotOfEight(a, b); });
  checkFloats<Zor64f, Zor64f, Zor64f>("zorsDotProd_64f", zorsDotProd_64f, dot64f);
  checkFloats<Zor32f, Zor32fc, Zor32fc>("zorsDotProd_32f32fc", zorsDotProd_32f32fc,
                                        [](const auto& a, const auto& b, Place) {
                                          const auto [re, im] = withPairs<Zor32f>(16, a, b);
                                          return Zor32fc{re, im};
                                        });
  checkFloats<Zor32f, Zor32fc, Zor64fc>("zorsDotProd_32f32fc64fc", zorsDotProd_32f32fc64fc,
                                        [](const auto& a, const auto& b, Place) {
                                          const auto [re, im] = withPairs<Zor64f>(8, a, b);
                                          return Zor64fc{re, im};
                                        });
  checkFloats<Zor64f, Zor64fc, Zor64fc>("zorsDotProd_64f64fc", zorsDotProd_64f64fc,
                                        [](const auto& a, const auto& b, Place) {
                                          const auto [re, im] = withPairs<Zor64f>(8, a, b);
                                          return Zor64fc{re, im};
                                        });
  checkFloats<Zor32fc, Zor32fc, Zor32fc>("zorsDotProd_32fc", zorsDotProd_32fc, [](const auto& a, const auto& b, Place) {
    const auto [re, im] = ofPairs<Zor32f>(4, a, b);
    return Zor32fc{re, im};
  });
  const auto wide = [](const auto& a, const auto& b, Place) {
    const auto [re, im] = ofPairs<Zor64f>(8, a, b);
    return Zor64fc{re, im};
  };
  checkFloats<Zor32fc, Zor32fc, Zor64fc>("zorsDotProd_32fc64fc", zorsDotProd_32fc64fc, wide);
  checkFloats<Zor64fc, Zor64fc, Zor64fc>("zorsDotProd_64fc", zorsDotProd_64fc, wide);
}

TEST(DotProd, NoOperandIsConjugated) {
  const Zor32fc i{0, 1};
  Zor32fc result{};
  ASSERT_EQ(zorsDotProd_32fc(&i, &i, 1, &result), zorStatusOk);
  EXPECT_EQ(result.re, -1);
  EXPECT_EQ(result.im, 0);
}

TEST(DotProd, ProductsAndSumsAreNotFused) {
  const Zor32f x[] = {1 + 0x1p-12f, 1}, y[] = {1 + 0x1p-12f, -1};  // the square rounds; fused, a trace of it would stay
  Zor32f result = 7;
  ASSERT_EQ(zorsDotProd_32f(x, y, 2, &result), zorStatusOk);
  EXPECT_EQ(result, 0x1p-11f);
  const std::vector<Zor32f> a(40, 1 + 0x1p-12f);
  ASSERT_EQ(zorsDotProd_32f(a.data(), a.data(), 40, &result), zorStatusOk);
  EXPECT_EQ(result, 40 * (1 + 0x1p-11f));
}

// ---- Integers -----------------------------------------------------------------------------------

struct Exact {
  __int128 re, im;
};
template <class T> Exact exact(T x) {
  if constexpr (kit::ComplexPair<T>)
    return {x.re, x.im};
  else
    return {x, 0};
}
template <class A, class B> Exact exactDot(const std::vector<A>& a, const std::vector<B>& b) {
  Exact sum{0, 0};
  for (std::size_t k = 0; k < a.size(); ++k) {
    const Exact x = exact(a[k]), y = exact(b[k]);
    sum.re += x.re * y.re - x.im * y.im, sum.im += x.re * y.im + x.im * y.re;
  }
  return sum;
}
template <class T> std::vector<T> constant(std::size_t len, Part<T> value, Part<T> other) {
  if constexpr (kit::ComplexPair<T>)
    return std::vector<T>(len, T{value, other});
  else
    return std::vector<T>(len, value);
}

// f(a, b) over random data, extremes and long vectors.
template <class A, class B, class F> void forIntegers(F f) {
  kit::Random random(32);
  for (std::size_t len = 1; len <= 70; ++len) f(kit::anyValues<A>(len, random), kit::anyValues<B>(len, random), true);
  using L1 = std::numeric_limits<Part<A>>;
  using L2 = std::numeric_limits<Part<B>>;
  for (std::size_t len : {1u, 2u, 16u, 256u, 257u, 300u, 70000u}) {
    const bool few = len < 300;
    f(kit::anyValues<A>(len, random), kit::anyValues<B>(len, random), few);
    f(constant<A>(len, L1::min(), L1::min()), constant<B>(len, L2::min(), L2::min()), few);
    f(constant<A>(len, L1::min(), L1::min()), constant<B>(len, L2::max(), L2::min()), few);
    f(constant<A>(len, L1::max(), L1::min()), constant<B>(len, L2::max(), L2::max()), few);
  }
}
template <class R> R result(Part<R> re, Part<R> im) {
  if constexpr (kit::ComplexPair<R>)
    return {re, im};
  else
    return re;
}
template <class A, class B> struct Sources {
  kit::Placed<A> src1;
  kit::Placed<B> src2;
  Sources(const std::vector<A>& a, const std::vector<B>& b)
      : src1(a, a.size() % 2 ? Edge::begin : Edge::end, a.size() % 33),
        src2(b, a.size() % 3 ? Edge::begin : Edge::end, a.size() % 29) {}
};

template <class A, class B, class R>
void checkConverted(const char* name, ZorStatus (*dotProd)(const A*, const B*, Zor32s, R*)) {
  forIntegers<A, B>([&](const auto& a, const auto& b, bool) {
    const Exact sum = exactDot(a, b);
    const Sources<A, B> at(a, b);
    R got{};
    ASSERT_EQ(dotProd(at.src1.data(), at.src2.data(), int(a.size()), &got), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(got, result<R>(Part<R>(Zor64s(sum.re)), Part<R>(Zor64s(sum.im)))))
        << name << ", len " << a.size();
  });
  const std::vector<A> a(4);
  const std::vector<B> b(4);
  R got{};
  kit::Contract(dotProd, a.data(), b.data(), 4, &got)
      .template null<0>()
      .template null<1>()
      .template null<3>()
      .template bad<2>({0, -1}, zorStatusBadSize)
      .untouched(&got, sizeof got)
      .verify(name);
}
template <class A, class B, class R>
void scaledContract(const char* name, ZorStatus (*dotProd)(const A*, const B*, Zor32s, R*, Zor32s)) {
  const std::vector<A> a(4);
  const std::vector<B> b(4);
  R got{};
  kit::Contract(dotProd, a.data(), b.data(), 4, &got, 0)
      .template null<0>()
      .template null<1>()
      .template null<3>()
      .template bad<2>({0, -1}, zorStatusBadSize)
      .untouched(&got, sizeof got)
      .verify(name);
}
template <class A, class B, class R>
void checkScaled(const char* name, ZorStatus (*dotProd)(const A*, const B*, Zor32s, R*, Zor32s)) {
  constexpr int mostUp = sizeof(Part<R>) == 2 ? 15 : 31;
  forIntegers<A, B>([&](const auto& a, const auto& b, bool all) {
    const Exact sum = exactDot(a, b);
    const Sources<A, B> at(a, b);
    for (int s : kit::scaleFactors()) {
      if (!all && s % 7 != 0) continue;
      const int limited = std::clamp(s, -mostUp, 31);
      R got{};
      ASSERT_EQ(dotProd(at.src1.data(), at.src2.data(), int(a.size()), &got, s), zorStatusOk);
      ASSERT_TRUE(kit::sameBits(
          got, result<R>(kit::nearestEven<Part<R>>(sum.re, limited), kit::nearestEven<Part<R>>(sum.im, limited))))
          << name << ", len " << a.size() << ", scale " << s;
    }
  });
  scaledContract(name, dotProd);
}

TEST(DotProd, SixteenBitIntegersAreExact) {
  checkConverted<Zor16s, Zor16s, Zor32f>("zorsDotProd_16s32f", zorsDotProd_16s32f);
  checkConverted<Zor16s, Zor16s, Zor64s>("zorsDotProd_16s64s", zorsDotProd_16s64s);
  checkConverted<Zor16s, Zor16sc, Zor32fc>("zorsDotProd_16s16sc32fc", zorsDotProd_16s16sc32fc);
  checkConverted<Zor16s, Zor16sc, Zor64sc>("zorsDotProd_16s16sc64sc", zorsDotProd_16s16sc64sc);
  checkConverted<Zor16sc, Zor16sc, Zor32fc>("zorsDotProd_16sc32fc", zorsDotProd_16sc32fc);
  checkConverted<Zor16sc, Zor16sc, Zor64sc>("zorsDotProd_16sc64sc", zorsDotProd_16sc64sc);
}
TEST(DotProd, ScaledFormsRoundToEvenWithinTheirLimits) {
  checkScaled<Zor16s, Zor16s, Zor16s>("zorsDotProd_16s_Sfs", zorsDotProd_16s_Sfs);
  checkScaled<Zor16s, Zor16s, Zor32s>("zorsDotProd_16s32s_Sfs", zorsDotProd_16s32s_Sfs);
  checkScaled<Zor16s, Zor16sc, Zor16sc>("zorsDotProd_16s16sc_Sfs", zorsDotProd_16s16sc_Sfs);
  checkScaled<Zor16s, Zor16sc, Zor32sc>("zorsDotProd_16s16sc32sc_Sfs", zorsDotProd_16s16sc32sc_Sfs);
  checkScaled<Zor16sc, Zor16sc, Zor16sc>("zorsDotProd_16sc_Sfs", zorsDotProd_16sc_Sfs);
  checkScaled<Zor16sc, Zor16sc, Zor32sc>("zorsDotProd_16sc32sc_Sfs", zorsDotProd_16sc32sc_Sfs);
}
TEST(DotProd, TwoProductsOfTheLowestIntegersDoNotFit32BitsAndCount) {
  const std::vector<Zor16s> x(2, INT16_MIN);
  Zor64s result = 0;
  ASSERT_EQ(zorsDotProd_16s64s(x.data(), x.data(), 2, &result), zorStatusOk);
  EXPECT_EQ(result, Zor64s{1} << 31);
}

// Through binary64, under every direction of the caller.
template <class A, class B, class R, class Model>
void checkWide(const char* name, ZorStatus (*dotProd)(const A*, const B*, Zor32s, R*, Zor32s), Model model) {
  forIntegers<A, B>([&](const auto& a, const auto& b, bool all) {
    const std::pair<double, double> sum = model(a, b);
    const Sources<A, B> at(a, b);
    for (int s : kit::scaleFactors()) {
      if (!all && s % 7 != 0) continue;
      const double scale = kit::powerOfTwo(-std::clamp(s, -31, 93));
      const R wanted =
          result<R>(kit::clampAndConvert<Zor32s>(sum.first * scale), kit::clampAndConvert<Zor32s>(sum.second * scale));
      for (unsigned direction : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_DOWN}}) {
        const kit::Direction scope(direction);
        R got{};
        ASSERT_EQ(dotProd(at.src1.data(), at.src2.data(), int(a.size()), &got, s), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(got, wanted)) << name << ", len " << a.size() << ", scale " << s;
        ASSERT_EQ(_mm_getcsr() & _MM_ROUND_MASK, direction) << name;
      }
    }
  });
  scaledContract(name, dotProd);
}
template <class A> std::pair<double, double> dotOfFour(const std::vector<A>& a, const std::vector<Zor32s>& b) {
  Sums<Zor64f> sums(4);
  for (std::size_t k = 0; k < a.size(); ++k) sums.add(k, Zor64f(a[k]) * Zor64f(b[k]));
  return {sums.folded(), 0};
}
TEST(DotProd, ThirtyTwoBitIntegersGoThroughBinary64ToNearest) {
  checkWide<Zor32s, Zor32s, Zor32s>("zorsDotProd_32s_Sfs", zorsDotProd_32s_Sfs, dotOfFour<Zor32s>);
  checkWide<Zor16s, Zor32s, Zor32s>("zorsDotProd_16s32s32s_Sfs", zorsDotProd_16s32s32s_Sfs, dotOfFour<Zor16s>);
  checkWide<Zor32s, Zor32sc, Zor32sc>("zorsDotProd_32s32sc_Sfs", zorsDotProd_32s32sc_Sfs,
                                      [](const auto& a, const auto& b) { return withPairs<Zor64f>(8, a, b); });
  checkWide<Zor32sc, Zor32sc, Zor32sc>("zorsDotProd_32sc_Sfs", zorsDotProd_32sc_Sfs,
                                       [](const auto& a, const auto& b) { return ofPairs<Zor64f>(8, a, b); });
}

}  // namespace
