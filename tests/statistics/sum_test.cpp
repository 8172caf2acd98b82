#include "statistics/models.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;
using kit::sameBits;
using kit::Sums;

template <class T> using Parts = std::pair<T, T>;

// Components as one stream; `parts` of them an element.
template <class T> void addSingly(Parts<T>& total, std::span<const float> x, std::size_t parts) {
  for (std::size_t i = 0; i < x.size(); ++i) (i % parts == 0 ? total.first : total.second) += x[i];
}
Parts<double> ended(const Sums<double>& sums, std::size_t parts) {
  return parts == 1 ? Parts<double>{sums.folded(), 0} : sums.joined();
}
std::size_t prefixOf(std::size_t n, std::uintptr_t address, std::size_t elementSize, std::size_t componentSize) {
  return address % elementSize != 0 ? 0 : std::min(n, std::size_t((32 - address % 32) % 32 / componentSize));
}

Parts<double> accurate(std::span<const float> x, std::uintptr_t address, std::size_t parts) {
  Parts<double> total{0, 0};
  if (x.size() < 32 || (x.size() >= 57 && address % 4 != 0)) {
    addSingly(total, x, parts);
    return total;
  }
  if (x.size() >= 57) {
    const std::size_t prefix = prefixOf(x.size(), address, 4 * parts, 4);
    addSingly(total, x.first(prefix), parts);
    x = x.subspan(prefix);
  }
  Sums<double> eight(8, total.first, total.second);
  const std::size_t whole = x.size() / 32 * 32;
  for (std::size_t k = 0; k < whole; ++k) eight.add(k, x[k]);
  total = ended(eight, parts);
  x = x.subspan(whole);
  if (x.size() >= 4) {
    Sums<double> four(4, total.first, total.second);
    const std::size_t groups = x.size() / 4 * 4;
    for (std::size_t k = 0; k < groups; ++k) four.add(k, x[k]);
    total = ended(four, parts);
    x = x.subspan(groups);
  }
  addSingly(total, x, parts);
  return total;
}
Parts<double> fast(std::span<const float> x, std::uintptr_t address, std::size_t parts) {
  if (address % 4 != 0) return accurate(x, address, parts);
  Parts<float> prefix{0, 0};
  const std::size_t before = prefixOf(x.size(), address, 4 * parts, 4);
  addSingly(prefix, x.first(before), parts);
  x = x.subspan(before);
  Sums<double> totals(4, prefix.first, prefix.second);
  while (!x.empty()) {
    const std::size_t block = std::min<std::size_t>(x.size(), 8192);
    Sums<float> lanes(32);
    for (std::size_t k = 0; k < block; ++k) lanes.add(k, x[k]);
    const Sums<double> four = lanes.halved().halved().widened<double>().halved();
    for (std::size_t j = 0; j < 4; ++j) totals.add(j, four.p[j]);
    x = x.subspan(block);
  }
  if (parts == 2) return totals.joined();
  return {(totals.p[0] + totals.p[1]) + (totals.p[2] + totals.p[3]), 0};
}
Parts<double> wide(std::span<const double> x, std::uintptr_t address, std::size_t parts) {
  Parts<double> total{0, 0};
  const auto singly = [&](std::span<const double> some) {
    for (std::size_t i = 0; i < some.size(); ++i) (i % parts == 0 ? total.first : total.second) += some[i];
  };
  if (address % 8 != 0) {
    singly(x);
    return total;
  }
  const std::size_t prefix = prefixOf(x.size(), address, 8 * parts, 8);
  singly(x.first(prefix));
  x = x.subspan(prefix);
  Sums<double> lanes(16, total.first, total.second);
  for (; x.size() >= 16; x = x.subspan(16))
    for (std::size_t k = 0; k < 16; ++k) lanes.add(k, x[k]);
  for (std::size_t group : {8u, 4u, 2u, 1u})
    if (x.size() >= group) {
      for (std::size_t k = 0; k < group; ++k) lanes.add(k, x[k]);
      x = x.subspan(group);
    }
  return ended(lanes, parts);
}

template <class T, class F> void forAll(std::size_t mostValues, F f) {
  kit::Random random(11);
  for (int len : kit::reductionLengths()) {
    if (std::size_t(len) > mostValues) continue;
    const auto values = kit::spread<T>(std::size_t(len), random);
    for (unsigned step : kit::addressSteps)
      for (Edge edge : kit::bothEdges) {
        const kit::Placed<T> src(values, edge, step);
        f(src, values, "len " + std::to_string(len) + ", address " + std::to_string(src.address() % 32));
        if (testing::Test::HasFatalFailure()) return;
      }
  }
}
template <class T> auto stream(const std::vector<T>& x) {
  if constexpr (kit::ComplexPair<T>)
    return std::span(&x[0].re, x.size() * 2);
  else
    return std::span(x);
}

TEST(Sum, FloatsAndTheirMeansInTheStatedPartialSums) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    forAll<Zor32f>(20000, [&](const auto& src, const auto& x, const std::string& where) {
      const int len = int(x.size());
      for (int hint : {0, 1, 2, -5}) {
        const auto model = hint == 1 ? fast(stream(x), src.address(), 1) : accurate(stream(x), src.address(), 1);
        Zor32f sum = 0, mean = 0;
        ASSERT_EQ(zorsSum_32f(src.data(), len, &sum, hint), zorStatusOk);
        ASSERT_TRUE(sameBits(sum, Zor32f(model.first))) << "zorsSum_32f, " << where << ", hint " << hint;
        ASSERT_EQ(zorsMean_32f(src.data(), len, &mean, hint), zorStatusOk);
        ASSERT_TRUE(sameBits(mean, Zor32f(double(Zor32f(model.first)) / len)))
            << "zorsMean_32f, " << where << ", hint " << hint;
      }
    });
    forAll<Zor32fc>(10000, [&](const auto& src, const auto& x, const std::string& where) {
      const int len = int(x.size());
      for (int hint : {0, 1}) {
        const auto [re, im] = hint == 1 ? fast(stream(x), src.address(), 2) : accurate(stream(x), src.address(), 2);
        Zor32fc sum{}, mean{};
        ASSERT_EQ(zorsSum_32fc(src.data(), len, &sum, hint), zorStatusOk);
        ASSERT_TRUE(sameBits(sum, {Zor32f(re), Zor32f(im)})) << "zorsSum_32fc, " << where << ", hint " << hint;
        ASSERT_EQ(zorsMean_32fc(src.data(), len, &mean, hint), zorStatusOk);
        ASSERT_TRUE(sameBits(mean, {Zor32f(re / len), Zor32f(im / len)}))
            << "zorsMean_32fc, " << where << ", hint " << hint;
      }
    });
    forAll<Zor64f>(1000, [&](const auto& src, const auto& x, const std::string& where) {
      const int len = int(x.size());
      const double wanted = wide(stream(x), src.address(), 1).first;
      Zor64f sum = 0, mean = 0;
      ASSERT_EQ(zorsSum_64f(src.data(), len, &sum), zorStatusOk);
      ASSERT_TRUE(sameBits(sum, wanted)) << "zorsSum_64f, " << where;
      ASSERT_EQ(zorsMean_64f(src.data(), len, &mean), zorStatusOk);
      ASSERT_TRUE(sameBits(mean, wanted / len)) << "zorsMean_64f, " << where;
    });
    forAll<Zor64fc>(1000, [&](const auto& src, const auto& x, const std::string& where) {
      const int len = int(x.size());
      const auto [re, im] = wide(stream(x), src.address(), 2);
      Zor64fc sum{}, mean{};
      ASSERT_EQ(zorsSum_64fc(src.data(), len, &sum), zorStatusOk);
      ASSERT_TRUE(sameBits(sum, {re, im})) << "zorsSum_64fc, " << where;
      ASSERT_EQ(zorsMean_64fc(src.data(), len, &mean), zorStatusOk);
      ASSERT_TRUE(sameBits(mean, {re * (1.0 / len), im * (1.0 / len)})) << "zorsMean_64fc, " << where;
    });
  }
}

TEST(Sum, InfinitiesAndNansReachTheResult) {
  for (const Zor32f special : {HUGE_VALF, -HUGE_VALF, std::numeric_limits<Zor32f>::quiet_NaN()})
    for (std::size_t at : {0u, 5u, 31u, 99u}) {
      std::vector<Zor32f> x(100, 1);
      x[at] = special;
      for (int hint : {0, 1}) {
        Zor32f sum = 0;
        ASSERT_EQ(zorsSum_32f(x.data(), 100, &sum, hint), zorStatusOk);
        EXPECT_TRUE(sameBits(sum, special));
      }
    }
}

TEST(Sum, TheMeanOfFloatsIsNarrowedBeforeTheDivisionThatOfPairsIsNot) {
  const Zor32f x[] = {16777216, 1, 1};  // the sum 2^24 + 2 is representable, with one more 1 it is not
  const Zor32f y[] = {16777216, 1, 0};
  const Zor32fc z[] = {{16777216, 0}, {1, 0}, {0, 0}};
  Zor32f mean = 0;
  Zor32fc pairMean{};
  ASSERT_EQ(zorsMean_32f(x, 3, &mean, 0), zorStatusOk);
  EXPECT_EQ(mean, Zor32f(16777218.0 / 3));
  ASSERT_EQ(zorsMean_32f(y, 3, &mean, 0), zorStatusOk);
  EXPECT_EQ(mean, Zor32f(16777216.0 / 3));
  ASSERT_EQ(zorsMean_32fc(z, 3, &pairMean, 0), zorStatusOk);
  EXPECT_EQ(pairMean.re, Zor32f(16777217.0 / 3));
}

// ---- Integers -----------------------------------------------------------------------------------

template <class T> std::vector<std::vector<T>> integerData() {
  kit::Random random(12);
  std::vector<std::vector<T>> out;
  for (std::size_t len = 1; len <= 70; ++len) out.push_back(kit::anyValues<T>(len, random));
  for (std::size_t len : {200u, 65535u, 65536u, 65537u, 70000u}) out.push_back(kit::anyValues<T>(len, random));
  using Part = decltype([] {
    if constexpr (kit::ComplexPair<T>)
      return decltype(T::re){};
    else
      return T{};
  }());
  for (Part extreme : {std::numeric_limits<Part>::min(), std::numeric_limits<Part>::max(), Part(0), Part(1), Part(-1)})
    for (std::size_t len : {1u, 2u, 3u, 7u, 32u, 70000u, 131073u}) {
      if constexpr (kit::ComplexPair<T>)
        out.push_back(std::vector<T>(len, T{extreme, Part(-1 - extreme)}));
      else
        out.push_back(std::vector<T>(len, extreme));
    }
  return out;
}
template <class T, class Get> __int128 exactSum(const std::vector<T>& x, Get get) {
  __int128 sum = 0;
  for (const T& v : x) sum += get(v);
  return sum;
}
// S / 2^s by a binary64 product.
template <class D> D floatScaled(double x, int s) { return kit::clampAndConvert<D>(x * kit::powerOfTwo(-long{s})); }
Zor16s narrowed(Zor32s x) { return Zor16s(std::clamp<Zor32s>(x, INT16_MIN, INT16_MAX)); }

TEST(Sum, SixteenBitSumsAreExactAndScaledInBinary64) {
  for (const auto& x : integerData<Zor16s>()) {
    const kit::Placed<Zor16s> src(x, x.size() % 2 ? Edge::begin : Edge::end, x.size() % 32);
    const double sum = double(exactSum(x, [](Zor16s v) { return v; }));
    const int len = int(x.size());
    for (int s : kit::scaleFactors())
      for (unsigned direction : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_UP}}) {
        const kit::Direction scope(direction);
        Zor32s wideSum = 0;
        Zor16s sum16 = 0, mean = 0;
        ASSERT_EQ(zorsSum_16s32s_Sfs(src.data(), len, &wideSum, s), zorStatusOk);
        ASSERT_EQ(wideSum, floatScaled<Zor32s>(sum, s)) << "zorsSum_16s32s_Sfs, len " << len << ", scale " << s;
        ASSERT_EQ(zorsSum_16s_Sfs(src.data(), len, &sum16, s), zorStatusOk);
        ASSERT_EQ(sum16, narrowed(floatScaled<Zor32s>(sum, s))) << "zorsSum_16s_Sfs, len " << len << ", scale " << s;
        ASSERT_EQ(zorsMean_16s_Sfs(src.data(), len, &mean, s), zorStatusOk);
        ASSERT_EQ(mean, floatScaled<Zor16s>(sum / len, s)) << "zorsMean_16s_Sfs, len " << len << ", scale " << s;
      }
  }
}
TEST(Sum, SixteenBitPairsComponentByComponent) {
  for (const auto& x : integerData<Zor16sc>()) {
    const kit::Placed<Zor16sc> src(x, x.size() % 2 ? Edge::begin : Edge::end, x.size() % 32);
    const double re = double(exactSum(x, [](Zor16sc v) { return v.re; })),
                 im = double(exactSum(x, [](Zor16sc v) { return v.im; }));
    const int len = int(x.size());
    for (int s : kit::scaleFactors()) {
      Zor32sc wideSum{};
      Zor16sc sum{}, mean{};
      ASSERT_EQ(zorsSum_16sc32sc_Sfs(src.data(), len, &wideSum, s), zorStatusOk);
      ASSERT_EQ(wideSum.re, floatScaled<Zor32s>(re, s)) << "zorsSum_16sc32sc_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(wideSum.im, floatScaled<Zor32s>(im, s)) << "zorsSum_16sc32sc_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(zorsSum_16sc_Sfs(src.data(), len, &sum, s), zorStatusOk);
      ASSERT_EQ(sum.re, narrowed(wideSum.re)) << "zorsSum_16sc_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(sum.im, narrowed(wideSum.im)) << "zorsSum_16sc_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(zorsMean_16sc_Sfs(src.data(), len, &mean, s), zorStatusOk);
      ASSERT_EQ(mean.re, floatScaled<Zor16s>(re / len, s)) << "zorsMean_16sc_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(mean.im, floatScaled<Zor16s>(im / len, s)) << "zorsMean_16sc_Sfs, len " << len << ", scale " << s;
    }
  }
}

// x / len to nearest, ties to even.
__int128 dividedToEven(__int128 x, __int128 len) {
  const __int128 magnitude = x < 0 ? -x : x, q = magnitude / len, r = magnitude % len;
  const __int128 rounded = q + (2 * r > len || (2 * r == len && q % 2 != 0));
  return x < 0 ? -rounded : rounded;
}
Zor32s mean32s(__int128 sum, int len, int s) {
  const auto saturate = [](__int128 x) { return Zor32s(x > INT32_MAX ? INT32_MAX : x < INT32_MIN ? INT32_MIN : x); };
  const __int128 q = dividedToEven(sum, len);
  if (s < -31) return q > 0 ? INT32_MAX : q < 0 ? INT32_MIN : 0;
  if (s < 0)
    return saturate(sum >= INT32_MIN && sum <= INT32_MAX ? dividedToEven(sum * (__int128{1} << -s), len)
                                                         : q * (__int128{1} << -s));
  if (s == 0) return Zor32s(q);
  const Zor64u magnitude = Zor64u(q < 0 ? -q : q), half = Zor64u{1} << (unsigned(s - 1) % 64);
  const Zor64u scaled = (magnitude + (magnitude & half)) >> (unsigned(s) % 64);
  return Zor32s(q < 0 ? -Zor64s(scaled) : Zor64s(scaled));
}
TEST(Sum, ThirtyTwoBitSumsRoundToEvenAndTheirMeansTwice) {
  for (const auto& x : integerData<Zor32s>()) {
    const kit::Placed<Zor32s> src(x, x.size() % 2 ? Edge::begin : Edge::end, x.size() % 32);
    const __int128 exact = exactSum(x, [](Zor32s v) { return v; });
    const int len = int(x.size());
    for (int s : kit::scaleFactors()) {
      Zor32s sum = 0, mean = 0;
      ASSERT_EQ(zorsSum_32s_Sfs(src.data(), len, &sum, s), zorStatusOk);
      ASSERT_EQ(sum, kit::nearestEven<Zor32s>(exact, std::clamp(s, -31, 63)))
          << "zorsSum_32s_Sfs, len " << len << ", scale " << s;
      ASSERT_EQ(zorsMean_32s_Sfs(src.data(), len, &mean, s), zorStatusOk);
      ASSERT_EQ(mean, mean32s(exact, len, s)) << "zorsMean_32s_Sfs, len " << len << ", scale " << s;
    }
  }
}
TEST(Sum, SevenHalvesRoundToFourAndThenToTwo) {
  const Zor32s x[] = {3, 4};
  Zor32s mean = 0;
  ASSERT_EQ(zorsMean_32s_Sfs(x, 2, &mean, 1), zorStatusOk);
  EXPECT_EQ(mean, 2);
}
TEST(Sum, ALongSumSaturatesAndZeroTimesInfinityIsTheLowestValue) {
  const std::vector<Zor16s> x(70000, 32767);
  Zor16s sum = 0;
  ASSERT_EQ(zorsSum_16s_Sfs(x.data(), 70000, &sum, 0), zorStatusOk);
  EXPECT_EQ(sum, 32767);
  const Zor16s zeros[] = {1, -1};
  Zor32s wideSum = 0;
  ASSERT_EQ(zorsSum_16s32s_Sfs(zeros, 2, &wideSum, -1024), zorStatusOk);
  EXPECT_EQ(wideSum, INT32_MIN);
  ASSERT_EQ(zorsSum_16s32s_Sfs(zeros, 2, &wideSum, -1023), zorStatusOk);
  EXPECT_EQ(wideSum, 0);
  ASSERT_EQ(zorsMean_16s_Sfs(zeros, 2, &sum, -1024), zorStatusOk);
  EXPECT_EQ(sum, INT16_MIN);
}

template <class S, class R, class... More>
void contract(const char* name, ZorStatus (*sum)(const S*, Zor32s, R*, More...), More... more) {
  const std::vector<S> src(4);
  R result{};
  kit::Contract(sum, src.data(), 4, &result, more...)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
}
TEST(Sum, ChecksPointersThenLength) {
  contract("zorsSum_32f", zorsSum_32f, 0);
  contract("zorsSum_32fc", zorsSum_32fc, 0);
  contract("zorsSum_64f", zorsSum_64f);
  contract("zorsSum_64fc", zorsSum_64fc);
  contract("zorsSum_16s_Sfs", zorsSum_16s_Sfs, 0);
  contract("zorsSum_16s32s_Sfs", zorsSum_16s32s_Sfs, 0);
  contract("zorsSum_16sc_Sfs", zorsSum_16sc_Sfs, 0);
  contract("zorsSum_16sc32sc_Sfs", zorsSum_16sc32sc_Sfs, 0);
  contract("zorsSum_32s_Sfs", zorsSum_32s_Sfs, 0);
  contract("zorsMean_32f", zorsMean_32f, 0);
  contract("zorsMean_32fc", zorsMean_32fc, 0);
  contract("zorsMean_64f", zorsMean_64f);
  contract("zorsMean_64fc", zorsMean_64fc);
  contract("zorsMean_16s_Sfs", zorsMean_16s_Sfs, 0);
  contract("zorsMean_16sc_Sfs", zorsMean_16sc_Sfs, 0);
  contract("zorsMean_32s_Sfs", zorsMean_32s_Sfs, 0);
}

}  // namespace
