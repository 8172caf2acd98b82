#include "statistics/models.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;
using kit::Sums;

struct Moments {
  double sum, squares, n;
  double v() const { return std::max(squares * n - sum * sum, 0.0); }
  double degrees() const { return n * (n - 1); }
  double deviation() const { return std::sqrt(v() / degrees()); }
};
template <class T> Moments accurate(const std::vector<T>& x) {
  Sums<double> sum(8), squares(8);
  for (std::size_t k = 0; k < x.size(); ++k) sum.add(k, x[k]), squares.add(k, double(x[k]) * double(x[k]));
  return {sum.folded(), squares.folded(), double(x.size())};
}
Moments fast(const std::vector<Zor32f>& x) {
  Sums<double> sum(8), squares(8);
  for (std::size_t begin = 0; begin < x.size(); begin += 8192) {
    Sums<Zor32f> blockSum(16), blockSquares(16);
    for (std::size_t k = 0; k < std::min<std::size_t>(8192, x.size() - begin); ++k) {
      const Zor32f v = x[begin + k];
      blockSum.add(k, v), blockSquares.add(k, v * v);
    }
    for (std::size_t k = 0; k < 16; ++k) sum.add(k, blockSum.p[k]), squares.add(k, blockSquares.p[k]);
  }
  return {sum.folded(), squares.folded(), double(x.size())};
}

TEST(StdDev, FloatsInTheStatedPartialSums) {
  kit::Random random(41);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (int len : kit::reductionLengths()) {
      if (len < 2) continue;
      const Edge edge = len % 2 ? Edge::begin : Edge::end;
      const auto x = kit::spread<Zor32f>(std::size_t(len), random);
      const kit::Placed<Zor32f> src(x, edge, random() % 33);
      for (int hint : {0, 1, 2, -1}) {
        const Moments narrow = hint == 1 ? fast(x) : accurate(x), wide = accurate(x);
        Zor32f stdDev = -1, mean = -1, both = -1;
        ASSERT_EQ(zorsStdDev_32f(src.data(), len, &stdDev, hint), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(stdDev, std::sqrt(Zor32f(narrow.v()) / Zor32f(narrow.degrees()))))
            << "zorsStdDev_32f, len " << len << ", hint " << hint;
        ASSERT_EQ(zorsMeanStdDev_32f(src.data(), len, &mean, &both, hint), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(both, Zor32f(wide.deviation())))
            << "zorsMeanStdDev_32f, len " << len << ", hint " << hint;
        ASSERT_TRUE(kit::sameBits(mean, Zor32f(wide.sum / wide.n)))
            << "zorsMeanStdDev_32f, len " << len << ", hint " << hint;
      }
      const auto y = kit::spread<Zor64f>(std::size_t(len), random);
      const kit::Placed<Zor64f> src64(y, edge, random() % 33);
      const Moments wide = accurate(y);
      Zor64f stdDev = -1, mean = -1;
      ASSERT_EQ(zorsStdDev_64f(src64.data(), len, &stdDev), zorStatusOk);
      ASSERT_TRUE(kit::sameBits(stdDev, wide.deviation())) << "zorsStdDev_64f, len " << len;
      stdDev = -1;
      ASSERT_EQ(zorsMeanStdDev_64f(src64.data(), len, &mean, &stdDev), zorStatusOk);
      ASSERT_TRUE(kit::sameBits(stdDev, wide.deviation()) && kit::sameBits(mean, wide.sum / wide.n))
          << "zorsMeanStdDev_64f, len " << len;
    }
  }
}

TEST(StdDev, OfTwoElementsIsTheirDistanceOverTheRootOfTwo) {
  const Zor32f x[] = {1, 4};
  const Zor64f y[] = {1, 4};
  Zor32f narrow = 0;
  Zor64f wide = 0;
  ASSERT_EQ(zorsStdDev_32f(x, 2, &narrow, 0), zorStatusOk);
  EXPECT_FLOAT_EQ(narrow, Zor32f(3 / std::sqrt(2.0)));
  ASSERT_EQ(zorsStdDev_64f(y, 2, &wide), zorStatusOk);
  EXPECT_DOUBLE_EQ(wide, 3 / std::sqrt(2.0));
}
TEST(StdDev, OfEqualElementsIsZeroAndNeverARootOfLessThanZero) {
  for (int len : {2, 3, 10, 100, 1001}) {
    const std::vector<Zor32f> exact(std::size_t(len), 0.375f), rounding(std::size_t(len), 0.1f);
    for (int hint : {0, 1}) {
      Zor32f stdDev = -1;
      ASSERT_EQ(zorsStdDev_32f(exact.data(), len, &stdDev, hint), zorStatusOk);
      EXPECT_EQ(stdDev, 0);
      ASSERT_EQ(zorsStdDev_32f(rounding.data(), len, &stdDev, hint), zorStatusOk);
      EXPECT_GE(stdDev, 0);
    }
    const std::vector<Zor16s> integers(std::size_t(len), -32768);
    Zor16s stdDev = -1;
    ASSERT_EQ(zorsStdDev_16s_Sfs(integers.data(), len, &stdDev, -3), zorStatusOk);
    EXPECT_EQ(stdDev, 0);
  }
}

TEST(StdDev, SixteenBitIntegersFromExactSums) {
  kit::Random random(42);
  std::vector<std::vector<Zor16s>> data;
  for (std::size_t len = 2; len <= 70; ++len) data.push_back(kit::anyValues<Zor16s>(len, random));
  for (std::size_t len : {2u, 200u, 65535u, 65536u, 65537u, 140000u}) {
    data.push_back(kit::anyValues<Zor16s>(len, random));
    data.push_back(std::vector<Zor16s>(len, INT16_MIN));
    data.push_back(std::vector<Zor16s>(len, 0));
    for (std::size_t i = 0; i < len / 2; ++i) data.back()[i] = i % 2 ? INT16_MIN : INT16_MAX;
  }
  for (const auto& x : data) {
    const int len = int(x.size());
    const kit::Placed<Zor16s> src(x, len % 2 ? Edge::begin : Edge::end, x.size() % 33);
    Zor64s sum = 0, squares = 0;
    for (Zor16s v : x) sum += v, squares += v * v;
    const Moments moments{double(sum), double(squares), double(len)};
    for (int s : kit::scaleFactors())
      for (unsigned direction : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_UP}}) {
        const kit::Direction scope(direction);
        const double scale = kit::powerOfTwo(-long{s});
        const Zor32s wantedDev = kit::clampAndConvert<Zor32s>(moments.deviation() * scale),
                     wantedMean = kit::clampAndConvert<Zor32s>(moments.sum / moments.n * scale);
        const auto narrow = [](Zor32s v) { return Zor16s(std::clamp<Zor32s>(v, INT16_MIN, INT16_MAX)); };
        Zor32s dev = -1, mean = -1;
        Zor16s dev16 = -1, mean16 = -1;
        ASSERT_EQ(zorsStdDev_16s32s_Sfs(src.data(), len, &dev, s), zorStatusOk);
        ASSERT_EQ(dev, wantedDev) << "zorsStdDev_16s32s_Sfs, len " << len << ", scale " << s;
        ASSERT_EQ(zorsStdDev_16s_Sfs(src.data(), len, &dev16, s), zorStatusOk);
        ASSERT_EQ(dev16, narrow(wantedDev)) << "zorsStdDev_16s_Sfs, len " << len << ", scale " << s;
        dev = dev16 = -1;
        ASSERT_EQ(zorsMeanStdDev_16s32s_Sfs(src.data(), len, &mean, &dev, s), zorStatusOk);
        ASSERT_TRUE(dev == wantedDev && mean == wantedMean)
            << "zorsMeanStdDev_16s32s_Sfs, len " << len << ", scale " << s;
        ASSERT_EQ(zorsMeanStdDev_16s_Sfs(src.data(), len, &mean16, &dev16, s), zorStatusOk);
        ASSERT_TRUE(dev16 == narrow(wantedDev) && mean16 == narrow(wantedMean))
            << "zorsMeanStdDev_16s_Sfs, len " << len << ", scale " << s;
      }
  }
}

template <class S, class R, class... More>
void contract(const char* name, ZorStatus (*stdDev)(const S*, Zor32s, R*, More...), More... more) {
  const std::vector<S> x(4);
  R result{};
  kit::Contract(stdDev, x.data(), 4, &result, more...)
      .template null<0>()
      .template null<2>()
      .template bad<1>({1, 0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
}
template <class S, class R, class... More>
void contract(const char* name, ZorStatus (*meanStdDev)(const S*, Zor32s, R*, R*, More...), More... more) {
  const std::vector<S> x(4);
  R mean{}, dev{};
  kit::Contract(meanStdDev, x.data(), 4, &mean, &dev, more...)
      .template null<0>()
      .template null<2>()
      .template null<3>()
      .template bad<1>({1, 0, -1}, zorStatusBadSize)
      .untouched(&mean, sizeof mean)
      .untouched(&dev, sizeof dev)
      .verify(name);
}
TEST(StdDev, ChecksPointersThenALengthBelowTwo) {
  contract("zorsStdDev_32f", zorsStdDev_32f, 0);
  contract("zorsStdDev_64f", zorsStdDev_64f);
  contract("zorsStdDev_16s_Sfs", zorsStdDev_16s_Sfs, 0);
  contract("zorsStdDev_16s32s_Sfs", zorsStdDev_16s32s_Sfs, 0);
  contract("zorsMeanStdDev_32f", zorsMeanStdDev_32f, 0);
  contract("zorsMeanStdDev_64f", zorsMeanStdDev_64f);
  contract("zorsMeanStdDev_16s_Sfs", zorsMeanStdDev_16s_Sfs, 0);
  contract("zorsMeanStdDev_16s32s_Sfs", zorsMeanStdDev_16s32s_Sfs, 0);
}

}  // namespace
