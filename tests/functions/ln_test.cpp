#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::firstBadLogarithm;
using transcendental::withStatus;
using transcendental::withStatusInPlace;

// x = m 2^e with m in [2/3, 4/3): e ln 2 + (y + y^2 q(y)), y = m - 1; every step is fused.
Zor32f logarithm(Zor32f x) {
  if (!(x >= std::numeric_limits<Zor32f>::min() && x < std::numeric_limits<Zor32f>::infinity()))
    return static_cast<Zor32f>(std::log(static_cast<Zor64f>(x)));
  int e = 0;
  Zor32f m = std::frexp(x, &e);
  if (m < 0.6666666865348816f) {
    m *= 2;
    --e;
  }
  const Zor32f y = m - 1;
  Zor32f q = -0.15177205204963684f;
  for (Zor32f c : {0.16964881122112274f, -0.16462457180023193f, 0.19822503626346588f, -0.25004664063453674f,
                   0.33336564898490906f, -0.5f})
    q = std::fma(q, y, c);
  return std::fma(static_cast<Zor32f>(e), 0.6931471824645996f, std::fma(y * y, q, y));
}
TEST(Ln, Binary32IsTheStatedPolynomial) {
  sweep<Zor32f, Zor32f>("zorsLn_32f", withStatus(firstBadLogarithm, zorsLn_32f), logarithm);
  sweepInPlace<Zor32f>("zorsLn_32f_I", withStatusInPlace(firstBadLogarithm, zorsLn_32f_I), logarithm);
}
TEST(Ln, Binary32StaysWithinFourUlp) {
  kit::Random random(4);
  std::vector<Zor32f> x(100000), y(x.size());
  for (Zor32f& a : x) a = std::bit_cast<Zor32f>(static_cast<Zor32u>(random() % 0x7F800000 + 1));
  for (std::size_t i = 0; i < x.size(); i += 2) x[i] = 1 + (x[i] - 1) * 0x1p-140f;  // around 1
  ASSERT_EQ(zorsLn_32f(x.data(), y.data(), static_cast<Zor32s>(x.size())), zorStatusOk);
  for (std::size_t i = 0; i < x.size(); ++i)
    ASSERT_LE(kit::ulps(y[i], logl(static_cast<long double>(x[i]))), 4.0) << kit::text(x[i]);
}

TEST(Ln, Binary64StaysWithinOneUlpWhateverTheNeighbours) {
  const auto exact = [](long double x) { return logl(x); };
  const auto wide = transcendental::alone(zorsLn_64f, exact, 1.0);
  const auto narrowed = transcendental::alone(zorsLn_64f32f, exact, 0.51);
  sweep<Zor64f, Zor64f>("zorsLn_64f", withStatus(firstBadLogarithm, zorsLn_64f), wide);
  sweepInPlace<Zor64f>("zorsLn_64f_I", withStatusInPlace(firstBadLogarithm, zorsLn_64f_I), wide);
  sweep<Zor32f, Zor64f>("zorsLn_64f32f", withStatus(firstBadLogarithm, zorsLn_64f32f), narrowed);
  for (Zor64f x = 0x1p-1070; x < 1e308; x *= 1.37) wide(x);
}
TEST(Ln, ArgumentsJustBesideOneDoNotCancel) {
  const auto wide = transcendental::alone(
      zorsLn_64f, [](long double x) { return logl(x); }, 1.0);
  for (int k = 1; k <= 53; ++k) {
    wide(1 - std::ldexp(1.0, -k));
    wide(1 + std::ldexp(1.0, 1 - k));
  }
  EXPECT_TRUE(kit::sameBits(wide(1.0), 0.0));
  Zor32f x[] = {1.0f};
  zorsLn_32f_I(x, 1);
  EXPECT_TRUE(kit::sameBits(x[0], 0.0f));
}
TEST(Ln, OfZeroAndOfMinusOneWarn) {
  for (Zor64f zero : {0.0, -0.0}) {
    Zor64f wide[] = {zero};
    Zor32f narrow[] = {static_cast<Zor32f>(zero)}, narrowed[1];
    EXPECT_EQ(zorsLn_64f32f(wide, narrowed, 1), zorWarningLogOfZero);
    EXPECT_EQ(zorsLn_64f_I(wide, 1), zorWarningLogOfZero);
    EXPECT_EQ(zorsLn_32f_I(narrow, 1), zorWarningLogOfZero);
    EXPECT_TRUE(std::isinf(wide[0]) && wide[0] < 0 && narrow[0] == wide[0] && narrowed[0] == wide[0]);
  }
  Zor64f wide[] = {-1};
  Zor32f narrow[] = {-1}, narrowed[1];
  EXPECT_EQ(zorsLn_64f32f(wide, narrowed, 1), zorWarningLogOfNegative);
  EXPECT_EQ(zorsLn_64f_I(wide, 1), zorWarningLogOfNegative);
  EXPECT_EQ(zorsLn_32f_I(narrow, 1), zorWarningLogOfNegative);
  EXPECT_TRUE(std::isnan(wide[0]) && std::isnan(narrow[0]) && std::isnan(narrowed[0]));
}
TEST(Ln, TheFirstZeroOrNegativeElementDecidesWhereverItStands) {
  for (std::size_t zero = 0; zero < 40; ++zero)
    for (std::size_t negative = 0; negative < 40; ++negative) {
      if (zero == negative) continue;
      std::vector<Zor32f> narrow(40, 2.0f), target(40);
      narrow[zero] = 0;
      narrow[negative] = -3;
      narrow[39 - std::min<std::size_t>(39, zero + negative)] += NAN;
      std::vector<Zor64f> wide(narrow.begin(), narrow.end()), wideTarget(40);
      const ZorStatus wanted = firstBadLogarithm(narrow);
      ASSERT_EQ(zorsLn_32f(narrow.data(), target.data(), 40), wanted) << zero << " " << negative;
      ASSERT_EQ(zorsLn_64f(wide.data(), wideTarget.data(), 40), wanted) << zero << " " << negative;
    }
}
TEST(Ln, DenormalsThatCountAsZerosGiveTheLogarithmOfZero) {
  const kit::Direction scope(0x8040);
  Zor32f x[] = {1.0f, 1e-40f};
  Zor64f y[] = {1.0, -1e-310};
  EXPECT_EQ(zorsLn_32f_I(x, 2), zorWarningLogOfZero);
  EXPECT_EQ(zorsLn_64f_I(y, 2), zorWarningLogOfZero);
  EXPECT_EQ(x[1], -HUGE_VALF);
  EXPECT_EQ(y[1], -HUGE_VAL);
}
TEST(Ln, UnmaskedExceptionsDoNotFireInside) {
  std::vector<Zor32f> narrow = {1, 0, -1, NAN, 1e-40f, 0.1f, 2, 3, 4}, narrowed(9);
  std::vector<Zor64f> wide(narrow.begin(), narrow.end()), target(9);
  Zor64f sum;
  {
    const transcendental::Unmasked scope;
    zorsLn_64f32f(wide.data(), narrowed.data(), 9);
    zorsSumLn_64f(wide.data(), 9, &sum);
    zorsLn_32f_I(narrow.data(), 9);
    zorsLn_64f_I(wide.data(), 9);
  }
  EXPECT_TRUE(std::isinf(narrow[1]) && std::isinf(wide[1]) && std::isinf(narrowed[1]) && std::isinf(sum));
}

// Terms of the element's own logarithm, summed exactly enough; the sums of the library are in binary64.
template <class S, class D> void sums(const char* name, ZorStatus (*f)(const S*, Zor32s, D*), Zor64f (*term)(S)) {
  kit::Random random(5);
  auto lengths = kit::sweepLengths();
  lengths.insert(lengths.end(), {510, 511, 512, 513, 527, 528, 529, 1023, 1024, 1537, 20000});
  for (int len : lengths)
    for (kit::Edge edge : kit::bothEdges) {
      const kit::Guarded<S> src(static_cast<std::size_t>(len), edge);
      long double exact = 0, magnitudes = 0;
      for (S& x : src.span()) {
        if constexpr (std::is_floating_point_v<S>)
          x = static_cast<S>(std::exp2(static_cast<double>(random() % 4000) / 100 - 15));
        else
          x = static_cast<S>(random() % 32767 + 1);
        exact += static_cast<long double>(term(x));
        magnitudes += fabsl(static_cast<long double>(term(x)));
      }
      D sum = 0;
      ASSERT_EQ(f(src.data(), len, &sum), zorStatusOk) << name;
      const long double bound = magnitudes * 0x1p-50L + std::ldexp(fabsl(exact), -std::numeric_limits<D>::digits);
      ASSERT_LE(fabsl(static_cast<long double>(sum) - exact), bound) << name << " " << len;
    }
}
TEST(SumLn, AddsTheLogarithmsInBinary64) {
  sums<Zor32f, Zor32f>("zorsSumLn_32f", zorsSumLn_32f, [](Zor32f x) { return Zor64f{logarithm(x)}; });
  sums<Zor32f, Zor64f>("zorsSumLn_32f64f", zorsSumLn_32f64f, [](Zor32f x) { return Zor64f{logarithm(x)}; });
  sums<Zor16s, Zor32f>("zorsSumLn_16s32f", zorsSumLn_16s32f,
                       [](Zor16s x) { return Zor64f{logarithm(static_cast<Zor32f>(x))}; });
  sums<Zor64f, Zor64f>("zorsSumLn_64f", zorsSumLn_64f, [](Zor64f x) { return std::log(x); });
}

template <class S, class D> void sumsEndAtTheFirst(const char* name, ZorStatus (*f)(const S*, Zor32s, D*)) {
  const auto check = [&](const std::vector<S>& src, ZorStatus wanted) {
    D sum = 0;
    EXPECT_EQ(f(src.data(), static_cast<Zor32s>(src.size()), &sum), wanted) << name;
    if (wanted == zorWarningLogOfZero) {
      EXPECT_TRUE(std::isinf(sum) && sum < 0) << name;
    }
    if (wanted == zorWarningLogOfNegative) {
      EXPECT_TRUE(std::isnan(sum) && std::signbit(sum)) << name;
      if constexpr (sizeof(D) == 4) {
        EXPECT_EQ(std::bit_cast<Zor32u>(sum), 0xFFC00000u) << name;
      }
    }
  };
  check({2, 0, S(-1)}, zorWarningLogOfZero);
  check({2, S(-1), 0}, zorWarningLogOfNegative);
  for (const std::size_t first : {0u, 3u, 20u, 511u, 512u, 1030u})
    for (std::size_t second : {first + 1, first + 17, first + 600}) {
      std::vector<S> src(2000, S(3));
      src[first] = 0;
      src[second] = S(-5);
      check(src, zorWarningLogOfZero);
      std::swap(src[first], src[second]);
      check(src, zorWarningLogOfNegative);
      if constexpr (std::is_floating_point_v<S>) {
        src[first] = std::numeric_limits<S>::quiet_NaN();
        D sum = 0;
        EXPECT_EQ(f(src.data(), 2000, &sum), zorStatusOk) << name;
        EXPECT_TRUE(std::isnan(sum)) << name;
      }
    }
}
TEST(SumLn, TheFirstZeroNegativeOrNanElementDecides) {
  sumsEndAtTheFirst("zorsSumLn_32f", zorsSumLn_32f);
  sumsEndAtTheFirst("zorsSumLn_32f64f", zorsSumLn_32f64f);
  sumsEndAtTheFirst("zorsSumLn_64f", zorsSumLn_64f);
  sumsEndAtTheFirst("zorsSumLn_16s32f", zorsSumLn_16s32f);
}
TEST(SumLn, InfinitiesAndDenormalsAreOrdinaryTerms) {
  const Zor32f infinite[] = {2, std::numeric_limits<Zor32f>::infinity()}, small[] = {1e-40f, 1};
  Zor32f sum = 0;
  EXPECT_EQ(zorsSumLn_32f(infinite, 2, &sum), zorStatusOk);
  EXPECT_TRUE(std::isinf(sum) && sum > 0);
  EXPECT_EQ(zorsSumLn_32f(small, 2, &sum), zorStatusOk);
  EXPECT_EQ(sum, logarithm(small[0]));
}

template <class S, class D> void sumContract(const char* name, ZorStatus (*f)(const S*, Zor32s, D*)) {
  const std::vector<S> src(8, S(1));
  std::vector<D> sum(1, D(7));
  kit::Contract(f, src.data(), 8, sum.data())
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(sum)
      .verify(name);
}
TEST(Ln, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  checksPointersThenLength("zorsLn_32f", zorsLn_32f);
  checksPointersThenLength("zorsLn_64f", zorsLn_64f);
  checksPointersThenLength("zorsLn_64f32f", zorsLn_64f32f);
  checksPointerThenLength("zorsLn_32f_I", zorsLn_32f_I);
  checksPointerThenLength("zorsLn_64f_I", zorsLn_64f_I);
  sumContract("zorsSumLn_32f", zorsSumLn_32f);
  sumContract("zorsSumLn_64f", zorsSumLn_64f);
  sumContract("zorsSumLn_32f64f", zorsSumLn_32f64f);
  sumContract("zorsSumLn_16s32f", zorsSumLn_16s32f);
}

}  // namespace
