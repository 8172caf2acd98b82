// Linear and cyclic convolution of floats.
#include <gtest/gtest.h>

#include "correlation/sum_model.h"
#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/scale_model.h"
#include "kit/services.h"
#include "zors/correlation.h"
#include "zors/fft.h"

namespace {

template <class T> struct Members {
  ZorStatus (*conv)(const T*, Zor32s, const T*, Zor32s, T*);
  ZorStatus (*convolve)(const T*, Zor32s, const T*, Zor32s, T*, Zor32s, Zor8u*);
  int dataType;
};
template <class T> Members<T> members();
template <> Members<Zor32f> members() { return {zorsConv_32f, zorsConvolve_32f, 13}; }
template <> Members<Zor64f> members() { return {zorsConv_64f, zorsConvolve_64f, 19}; }

// method below 0: the form that allocates.
template <class T> void check(int len1, int len2, int method, kit::Edge edge) {
  kit::Random random{unsigned(len1 * 3 + len2)};
  const auto a = kit::signal<T>(std::size_t(len1), random), b = kit::signal<T>(std::size_t(len2), random);
  const auto all = std::size_t(len1 + len2 - 1);
  const kit::Guarded<T> src1(a, edge, 0), src2(b, edge, 0), dst(all, edge, 0);
  const std::string where =
      std::to_string(len1) + " and " + std::to_string(len2) + ", method " + std::to_string(method);
  const auto m = members<T>();
  if (method < 0) {
    ASSERT_EQ(m.conv(src1.data(), len1, src2.data(), len2, dst.data()), zorStatusOk) << where;
  } else {
    Zor32s size = 0;
    ASSERT_EQ(zorsConvolveGetBufferSize(len1, len2, m.dataType, method, &size), zorStatusOk) << where;
    const kit::Guarded<Zor8u> buffer(std::size_t(size), edge, 0);
    const kit::ServicesScope services;
    ASSERT_EQ(m.convolve(src1.data(), len1, src2.data(), len2, dst.data(), method, buffer.data()), zorStatusOk)
        << where;
    EXPECT_EQ(services->allocations, 0);
    EXPECT_TRUE(buffer.intact());
  }
  ASSERT_TRUE(dst.intact()) << where;
  const long double energy = sums::norm(a) * sums::norm(b);
  const std::size_t step = all > 1500 ? 17 : 1;
  for (std::size_t n = 0; n < all; n += n + step < all || n == all - 1 ? step : all - 1 - n) {
    const auto sum = sums::convolution(a, b, long(n));
    ASSERT_EQ(sums::fault(dst[n], sum, 1, sums::roundings(sum) * energy), "") << where << " [" << n << "]";
  }
}

template <class T> class Convolution : public testing::Test {};
using Types = testing::Types<Zor32f, Zor64f>;
TYPED_TEST_SUITE(Convolution, Types);

TYPED_TEST(Convolution, AtAllShortLengths) {
  for (int len1 = 1; len1 <= 36; ++len1)
    for (int len2 : {1, 2, 3, 7, 8, 9, 15, 17, 32, 33})
      for (int method : {-1, 1, 2})
        for (kit::Edge edge : kit::bothEdges) ASSERT_NO_FATAL_FAILURE(check<TypeParam>(len1, len2, method, edge));
}

TYPED_TEST(Convolution, OnBothSidesOfItsThresholds) {
  const int lengths[][2] = {{448, 64},  {449, 64},   {64, 449},      {63, 5000}, {5000, 63},  {200, 599},
                            {200, 600}, {600, 200},  {450, 63},      {257, 256}, {257, 257},  {64, 3000},
                            {65, 2050}, {127, 4000}, {128, 512 * 5}, {129, 900}, {1000, 1025}};
  for (const auto& [len1, len2] : lengths)
    for (int method : {-1, 0, 1, 2}) ASSERT_NO_FATAL_FAILURE(check<TypeParam>(len1, len2, method, kit::Edge::end));
}

TYPED_TEST(Convolution, ByTransformsInBlocksEndsAtEveryPlaceOfABlock) {
  constexpr int taps = 64, hop = 4 * 64 - 63;
  for (int all : {4 * hop - 1, 4 * hop, 4 * hop + 1})
    ASSERT_NO_FATAL_FAILURE(check<TypeParam>(all - taps + 1, taps, -1, kit::Edge::end));
}

TYPED_TEST(Convolution, AllocatesOnlyForItsTransforms) {
  const std::vector<TypeParam> a(5000, TypeParam(1));
  std::vector<TypeParam> d(9999);
  const auto allocates = [&](int len1, int len2) {
    const kit::ServicesScope services;
    EXPECT_EQ(members<TypeParam>().conv(a.data(), len1, a.data(), len2, d.data()), zorStatusOk);
    EXPECT_EQ(services.leaked(), 0);
    return services->allocations > 0;
  };
  EXPECT_FALSE(allocates(448, 64));  // 511 results
  EXPECT_TRUE(allocates(449, 64));   // 512
  EXPECT_TRUE(allocates(64, 449));
  EXPECT_FALSE(allocates(5000, 63));
  EXPECT_FALSE(allocates(1, 1));
}

TYPED_TEST(Convolution, ReportsEveryRefusedAllocationAndWritesNothing) {
  const std::vector<TypeParam> a(3000, TypeParam(1));
  for (const auto& [len1, len2] : {std::pair{500, 400}, {3000, 100}}) {
    std::vector<TypeParam> d;
    const int made = kit::failEachAllocation(
        [&, len1 = len1, len2 = len2] {
          d.assign(std::size_t(len1 + len2 - 1), TypeParam(77));
          return members<TypeParam>().conv(a.data(), len1, a.data(), len2, d.data());
        },
        [&](int n, ZorStatus status) {
          EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
          EXPECT_EQ(kit::services().live, 0);
          if (n >= 0) {
            EXPECT_EQ(std::count(d.begin(), d.end(), TypeParam(77)), long(d.size()));
          }
        });
    EXPECT_GE(made, 2);
  }
}

TYPED_TEST(Convolution, ANotANumberReachesOnlyTheDirectSumsThatItIsPartOf) {
  for (int at : {0, 5, 99}) {
    std::vector<TypeParam> a(100, TypeParam(1)), b(30, TypeParam(1)), d(129);
    a[std::size_t(at)] = std::numeric_limits<TypeParam>::quiet_NaN();
    ASSERT_EQ(members<TypeParam>().conv(a.data(), 100, b.data(), 30, d.data()), zorStatusOk);
    for (int n = 0; n < 129; ++n) ASSERT_EQ(std::isnan(d[std::size_t(n)]), n >= at && n < at + 30) << at << " " << n;
  }
}

TYPED_TEST(Convolution, IsTheSameWithItsOperandsExchanged) {
  kit::Random random(1);
  const auto a = kit::signal<TypeParam>(70, random), b = kit::signal<TypeParam>(20, random);
  std::vector<TypeParam> one(89), two(89);
  members<TypeParam>().conv(a.data(), 70, b.data(), 20, one.data());
  members<TypeParam>().conv(b.data(), 20, a.data(), 70, two.data());
  EXPECT_EQ(kit::firstDifference<TypeParam>(one, two), "");
}

TYPED_TEST(Convolution, ChecksPointersThenLengthsThenTheSelector) {
  const auto m = members<TypeParam>();
  std::vector<TypeParam> a(8, TypeParam(1)), d(15, TypeParam(5));
  std::vector<Zor8u> buffer(4096);
  kit::Contract conv(m.conv, a.data(), 8, a.data(), 8, d.data());
  conv.template null<0>().template null<2>().template null<4>();
  conv.template bad<1>({0, -1, INT_MIN}, zorStatusBadSize).template bad<3>({0, INT_MIN}, zorStatusBadSize);
  conv.untouched(d).verify("zorsConv");
  kit::Contract convolve(m.convolve, a.data(), 8, a.data(), 8, d.data(), 0, buffer.data());
  convolve.template null<0>().template null<2>().template null<4>().template null<6>();
  convolve.template bad<1>({0, -1}, zorStatusBadSize).template bad<3>({0, -1}, zorStatusBadSize);
  convolve.template bad<5>({3, -1, INT_MIN, 0x100}, zorStatusBadAlgorithmType);
  convolve.untouched(d).verify("zorsConvolve");
}

TEST(ConvolveGetBufferSize, ChecksItsArgumentsAndIsTheTransformsPieces) {
  Zor32s size = 77;
  kit::Contract contract(zorsConvolveGetBufferSize, 8, 8, 13, 0, &size);
  contract.null<4>().bad<0>({0, -1}, zorStatusBadSize).bad<1>({0, -1}, zorStatusBadSize);
  contract.bad<3>({3, -1}, zorStatusBadAlgorithmType).untouched(&size, sizeof size).verify("zorsConvolveGetBufferSize");
  for (Zor32s dataType : {14, 20, 15, 0, -1}) {
    size = 77;
    EXPECT_EQ(zorsConvolveGetBufferSize(8, 8, dataType, 0, &size), zorStatusBadDataType);
    EXPECT_EQ(size, 0);
  }
  for (Zor32s dataType : {13, 19}) {
    EXPECT_EQ(zorsConvolveGetBufferSize(448, 64, dataType, 0, &size), zorStatusOk);
    EXPECT_EQ(size, 64);
    EXPECT_EQ(zorsConvolveGetBufferSize(INT_MAX, INT_MAX, dataType, 1, &size), zorStatusOk);
    EXPECT_EQ(size, 64);
    EXPECT_EQ(zorsConvolveGetBufferSize(449, 64, dataType, 0, &size), zorStatusOk);
    EXPECT_GT(size, 64);
    size = 77;
    EXPECT_NE(zorsConvolveGetBufferSize(INT_MAX, INT_MAX, dataType, 2, &size), zorStatusOk);
    EXPECT_EQ(size, 77);
  }
}

// ---- Part of a convolution ----------------------------------------------------------------------

TEST(ConvBiased, IsTheConvolutionFromAnyIndexOnWithZerosAround) {
  const int shapes[][4] = {{4, 41, 4, 45},   {11, 40, 10, 50}, {16, 40, 16, 56}, {31, 40, 30, 70},   {50, 60, 30, 110},
                           {11, 40, 10, 45}, {20, 5, 40, -9},  {5, 20, 40, 3},   {3, 3, 4, INT_MIN}, {3, 3, 4, INT_MAX},
                           {1, 1, 1, 0},     {1, 1, 3, -1},    {60, 70, 129, 0}, {60, 70, 200, -30}};
  for (const auto& [len1, len2, dstLen, bias] : shapes)
    for (kit::Edge edge : kit::bothEdges) {
      kit::Random random(3);
      const auto a = kit::signal<Zor32f>(std::size_t(len1), random), b = kit::signal<Zor32f>(std::size_t(len2), random);
      const kit::Guarded<Zor32f> one(a, edge, 0), two(b, edge, 0), dst(std::size_t(dstLen), edge, 0);
      ASSERT_EQ(zorsConvBiased_32f(one.data(), len1, two.data(), len2, dst.data(), dstLen, bias), zorStatusOk);
      ASSERT_TRUE(dst.intact());
      for (long n = 0; n < dstLen; ++n) {
        const long at = long{bias} + n;
        const Zor32f got = dst[std::size_t(n)];
        if (at < 0 || at >= len1 + len2 - 1) {
          ASSERT_TRUE(kit::sameBits(got, 0.0F)) << bias << " [" << n << "]";
        } else {
          const auto sum = sums::convolution(a, b, at);
          ASSERT_EQ(sums::fault(got, sum, 1, 4 * sum.magnitude), "") << bias << " [" << n << "]";
        }
      }
    }
  std::vector<Zor32f> x(4, 1.0F), d(4, 5.0F);
  kit::Contract contract(zorsConvBiased_32f, x.data(), 4, x.data(), 4, d.data(), 4, 0);
  contract.null<0>().null<2>().null<4>().bad<1>({0, -1}, zorStatusBadSize).bad<3>({0, -1}, zorStatusBadSize);
  contract.bad<5>({0, -1}, zorStatusBadSize).untouched(d).verify("zorsConvBiased_32f");
}

// ---- Cyclic -------------------------------------------------------------------------------------

TEST(ConvCyclic, OfFloatsIsTheCyclicSum) {
  kit::Random random(6);
  for (int turn = 0; turn < 50; ++turn) {
    const auto x = kit::signal<Zor32f>(8, random), h = kit::signal<Zor32f>(8, random);
    const auto hc = kit::signal<Zor32fc>(4, random);
    const kit::Guarded<Zor32f> xs(x, kit::Edge::end, 0), hs(h, kit::Edge::begin, 0), y(8, kit::Edge::end, 0);
    const kit::Guarded<Zor32f> x4({x.begin(), x.begin() + 4}, kit::Edge::end, 0);
    const kit::Guarded<Zor32fc> h4(hc, kit::Edge::end, 0), y4(4, kit::Edge::end, 0);
    ASSERT_EQ(zorsConvCyclic8x8_32f(xs.data(), hs.data(), y.data()), zorStatusOk);
    ASSERT_EQ(zorsConvCyclic4x4_32f32fc(x4.data(), h4.data(), y4.data()), zorStatusOk);
    ASSERT_TRUE(y.intact() && y4.intact());
    for (std::size_t n = 0; n < 8; ++n) {
      double sum = 0;
      for (std::size_t k = 0; k < 8; ++k) sum += double(x[k]) * double(h[(n + 8 - k) % 8]);
      EXPECT_NEAR(y[n], sum, 2e-6) << n;
    }
    for (std::size_t n = 0; n < 4; ++n) {
      std::complex<double> sum = 0;
      for (std::size_t k = 0; k < 4; ++k)
        sum += double(x[k]) * std::complex<double>(hc[(n + 4 - k) % 4].re, hc[(n + 4 - k) % 4].im);
      EXPECT_NEAR(y4[n].re, sum.real(), 1e-6) << n;
      EXPECT_NEAR(y4[n].im, sum.imag(), 1e-6) << n;
    }
  }
}

TEST(ConvCyclic, Of16BitElementsWrapsIn32BitsAndLimitsItsScale) {
  kit::Random random(7);
  for (int scale : {INT_MIN, -32, -31, -30, -3, 0, 1, 8, 16, 17, 30, 31, 32, 40, INT_MAX})
    for (int turn = 0; turn < 20; ++turn) {
      std::vector<Zor16s> x = kit::anyValues<Zor16s>(8, random), h = kit::anyValues<Zor16s>(8, random);
      if (turn == 0) x.assign(8, -32768), h = x;
      const kit::Guarded<Zor16s> xs(x, kit::Edge::end, 0), hs(h, kit::Edge::begin, 0), y(8, kit::Edge::end, 0);
      ASSERT_EQ(zorsConvCyclic8x8_16s_Sfs(xs.data(), hs.data(), y.data(), scale), zorStatusOk);
      ASSERT_TRUE(y.intact());
      for (std::size_t n = 0; n < 8; ++n) {
        std::uint32_t sum = 0;
        for (std::size_t k = 0; k < 8; ++k) sum += std::uint32_t(int{x[k]} * int{h[(n + 8 - k) % 8]});
        ASSERT_EQ(y[n], scale::scaled<Zor16s>(std::int32_t(sum), std::clamp(scale, -31, 31)))
            << scale << " [" << n << "]";
      }
    }
}

}  // namespace
