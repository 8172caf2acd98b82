// Correlation and convolution of 16-bit vectors.
#include <gtest/gtest.h>

#include "correlation/sum_model.h"
#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/scale_model.h"
#include "kit/services.h"
#include "zors/correlation.h"

namespace {

using Vector = std::vector<Zor16s>;

Vector values(std::size_t count, int range, unsigned seed) {
  kit::Random random{seed};
  Vector x(count);
  for (auto& value : x) value = Zor16s(int(random() % unsigned(2 * range + 1)) - range);
  return x;
}
std::int64_t exact(const Vector& a, const Vector& b, long lag) {
  std::int64_t sum = 0;
  for (long k = std::max(0L, -lag); k < std::min(long(a.size()), long(b.size()) - lag); ++k)
    sum += std::int64_t{a[std::size_t(k)]} * b[std::size_t(k + lag)];
  return sum;
}
std::int64_t exactConvolution(const Vector& a, const Vector& b, long n) {
  std::int64_t sum = 0;
  for (long k = std::max(0L, n - long(b.size()) + 1); k <= n && k < long(a.size()); ++k)
    sum += std::int64_t{a[std::size_t(k)]} * b[std::size_t(n - k)];
  return sum;
}
constexpr int scales[] = {INT_MIN, -127, -20, -3, -1, 0, 1, 2, 5, 8, 12, 20, 40, 126, 127, 1000, INT_MAX};

TEST(AutoCorr16s, IsExactWhereSumsAreSmall) {
  for (int srcLen : {1, 2, 15, 16, 17, 100, 400})
    for (int dstLen : {1, 8, 33, 500})
      for (int scale : scales) {
        const Vector x = values(std::size_t(srcLen), 30, unsigned(srcLen));
        const kit::Guarded<Zor16s> src(x, kit::Edge::end), dst(std::size_t(dstLen), kit::Edge::end);
        ASSERT_EQ(zorsAutoCorr_16s_Sfs(src.data(), srcLen, dst.data(), dstLen, scale), zorStatusOk);
        ASSERT_TRUE(dst.intact());
        for (int k = 0; k < dstLen; ++k)
          ASSERT_EQ(dst[std::size_t(k)], k < srcLen ? scale::scaled<Zor16s>(exact(x, x, k), scale) : 0)
              << srcLen << " " << dstLen << " " << scale << " [" << k << "]";
      }
}

TEST(AutoCorr16s, NormalisesBeforeTheConversion) {
  const Vector x = values(100, 300, 4);
  Vector a(120), b(120);
  ASSERT_EQ(zorsAutoCorr_NormA_16s_Sfs(x.data(), 100, a.data(), 120, 3), zorStatusOk);
  ASSERT_EQ(zorsAutoCorr_NormB_16s_Sfs(x.data(), 100, b.data(), 120, 3), zorStatusOk);
  for (int k = 0; k < 120; ++k) {
    const float sum = k < 100 ? float(exact(x, x, k)) : 0;
    EXPECT_EQ(a[std::size_t(k)], std::nearbyint(sum * (1.0F / 100) / 8)) << k;
    EXPECT_EQ(b[std::size_t(k)], k < 100 ? std::nearbyint(sum / float(100 - k) / 8) : 0) << k;
  }
}

TEST(AutoCorr16s, ByTransformsIsNearTheSums) {
  for (int lags : {1199, 1200}) {
    const Vector x = values(3000, 100, 8);
    Vector d(static_cast<std::size_t>(lags));
    ASSERT_EQ(zorsAutoCorr_16s_Sfs(x.data(), 3000, d.data(), lags, 10), zorStatusOk);
    for (int k = 0; k < lags; ++k) EXPECT_NEAR(d[std::size_t(k)], double(exact(x, x, k)) / 1024, 0.52) << k;
  }
}

TEST(AutoCorr16s, WritesItsZerosAlsoWhereMemoryIsExhausted) {
  const Vector x = values(1500, 100, 1);
  for (auto f : {zorsAutoCorr_16s_Sfs, zorsAutoCorr_NormA_16s_Sfs, zorsAutoCorr_NormB_16s_Sfs})
    for (int srcLen : {50, 1500}) {
      Vector d;
      const int made = kit::failEachAllocation(
          [&] {
            d.assign(1600, 77);
            return f(x.data(), srcLen, d.data(), 1600, 4);
          },
          [&](int n, ZorStatus status) {
            EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
            EXPECT_EQ(kit::services().live, 0);
            const auto sums = d.begin() + srcLen;
            if (n >= 0) {
              EXPECT_EQ(std::count(d.begin(), sums, 77), srcLen);
            }
            EXPECT_EQ(std::count(sums, d.end(), 0), 1600 - srcLen);
          });
      EXPECT_GE(made, 1);
    }
}

TEST(CrossCorr16s, IsExactWhereSumsAreSmall) {
  for (const auto& [len1, len2] : {std::pair{1, 1}, {5, 40}, {40, 5}, {17, 16}, {100, 300}, {30, 2000}})
    for (int scale : scales)
      for (int lowLag : {INT_MIN, -len1 - 5, -len1 / 2, 0, len2 - 3, INT_MAX}) {
        const Vector a = values(std::size_t(len1), 60, 1), b = values(std::size_t(len2), 60, 2);
        const kit::Guarded<Zor16s> one(a, kit::Edge::begin), two(b, kit::Edge::end), dst(90, kit::Edge::end);
        ASSERT_EQ(zorsCrossCorr_16s_Sfs(one.data(), len1, two.data(), len2, dst.data(), 90, lowLag, scale),
                  zorStatusOk);
        ASSERT_TRUE(dst.intact());
        for (long n = 0; n < 90; ++n)
          ASSERT_EQ(dst[std::size_t(n)], scale::scaled<Zor16s>(exact(a, b, lowLag + n), scale))
              << len1 << " " << len2 << " " << lowLag << " " << scale << " [" << n << "]";
      }
}

TEST(CrossCorr16s, ReportsEveryRefusedAllocationAndKeepsItsZeros) {
  const Vector a = values(1500, 100, 1);
  Vector d;
  kit::failEachAllocation(
      [&] {
        d.assign(1600, 77);
        return zorsCrossCorr_16s_Sfs(a.data(), 1500, a.data(), 1500, d.data(), 1600, 0, 4);
      },
      [&](int n, ZorStatus status) {
        EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
        EXPECT_EQ(kit::services().live, 0);
        if (n >= 0) {
          EXPECT_EQ(std::count(d.begin(), d.begin() + 1500, 77), 1500);
        }
        EXPECT_EQ(std::count(d.begin() + 1500, d.end(), 0), 100);
      });
}

TEST(CrossCorr16s64s, IsExactAtAnyLengthAndNeverAllocates) {
  for (const auto& [len1, len2] : {std::pair{1, 1}, {3, 70}, {70, 3}, {255, 256}, {257, 1000}, {9000, 9000}})
    for (int lowLag : {-len1 - 1, -len1 + 1, 0, len2 - 2}) {
      kit::Random random(5);
      Vector a = kit::anyValues<Zor16s>(std::size_t(len1), random),
             b = kit::anyValues<Zor16s>(std::size_t(len2), random);
      const kit::Guarded<Zor16s> one(a, kit::Edge::end), two(b, kit::Edge::begin);
      const kit::Guarded<Zor64s> dst(50, kit::Edge::end);
      const kit::ServicesScope services;
      ASSERT_EQ(zorsCrossCorr_16s64s(one.data(), len1, two.data(), len2, dst.data(), 50, lowLag), zorStatusOk);
      EXPECT_EQ(services->allocations, 0);
      ASSERT_TRUE(dst.intact());
      for (long n = 0; n < 50; ++n) ASSERT_EQ(dst[std::size_t(n)], exact(a, b, lowLag + n)) << n;
    }
  const Vector low(200'000, -32768);
  Zor64s sum[2] = {};
  ASSERT_EQ(zorsCrossCorr_16s64s(low.data(), 200'000, low.data(), 200'000, sum, 2, 0), zorStatusOk);
  EXPECT_EQ(sum[0], 200'000LL << 30);
  EXPECT_EQ(sum[1], 199'999LL << 30);
  ASSERT_EQ(zorsCrossCorr_16s64s(low.data(), 20, low.data(), 20, sum, 2, INT_MIN), zorStatusOk);
  EXPECT_EQ(sum[0], 0);
}

TEST(Conv16s, IsExactWhereSumsAreSmall) {
  const int lengths[][2] = {{1, 1},     {3, 40},    {40, 3},   {64, 64},  {63, 9000},
                            {9000, 63}, {5000, 30}, {4097, 1}, {40, 8192}};
  for (const auto& [len1, len2] : lengths)
    for (int scale : {INT_MIN, -3, 0, 1, 2, 5, 12, 40, INT_MAX}) {
      const Vector a = values(std::size_t(len1), 90, 1), b = values(std::size_t(len2), 90, 2);
      const auto all = std::size_t(len1 + len2 - 1);
      const kit::Guarded<Zor16s> one(a, kit::Edge::begin), two(b, kit::Edge::end), dst(all, kit::Edge::end);
      ASSERT_EQ(zorsConv_16s_Sfs(one.data(), len1, two.data(), len2, dst.data(), scale), zorStatusOk);
      ASSERT_TRUE(dst.intact());
      for (std::size_t n = 0; n < all; ++n)
        ASSERT_EQ(dst[n], scale::scaled<Zor16s>(exactConvolution(a, b, long(n)), scale))
            << len1 << " " << len2 << " " << scale << " [" << n << "]";
    }
}

TEST(Conv16s, ByTransformsIsNearTheSums) {
  for (const auto& [len1, len2] : {std::pair{449, 64}, {300, 300}, {100, 3000}, {4000, 70}}) {
    const Vector a = values(std::size_t(len1), 200, 1), b = values(std::size_t(len2), 200, 2);
    Vector d(std::size_t(len1 + len2 - 1));
    ASSERT_EQ(zorsConv_16s_Sfs(a.data(), len1, b.data(), len2, d.data(), 8), zorStatusOk);
    for (std::size_t n = 0; n < d.size(); ++n)
      ASSERT_NEAR(d[n], double(exactConvolution(a, b, long(n))) / 256, 0.52) << n;
  }
}

TEST(Conv16s, WritesNothingWhereMemoryIsRefused) {
  const Vector a = values(3000, 100, 1);
  for (const auto& [len1, len2] : {std::pair{3000, 20}, {500, 400}, {3000, 100}}) {
    Vector d;
    const int made = kit::failEachAllocation(
        [&, len1 = len1, len2 = len2] {
          d.assign(std::size_t(len1 + len2 - 1), 77);
          return zorsConv_16s_Sfs(a.data(), len1, a.data(), len2, d.data(), 4);
        },
        [&](int n, ZorStatus status) {
          EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
          EXPECT_EQ(kit::services().live, 0);
          if (n >= 0) {
            EXPECT_EQ(std::count(d.begin(), d.end(), 77), long(d.size()));
          }
        });
    EXPECT_GE(made, 1);
  }
}

TEST(Scaled16s, CheckPointersThenLengths) {
  Vector x(8, 1), d(8, 5);
  for (auto f : {zorsAutoCorr_16s_Sfs, zorsAutoCorr_NormA_16s_Sfs, zorsAutoCorr_NormB_16s_Sfs}) {
    kit::Contract contract(f, x.data(), 8, d.data(), 8, 0);
    contract.null<0>().null<2>().bad<1>({0, -1, INT_MIN}, zorStatusBadSize).bad<3>({0, INT_MIN}, zorStatusBadSize);
    contract.untouched(d).verify("zorsAutoCorr_16s_Sfs");
  }
  kit::Contract cross(zorsCrossCorr_16s_Sfs, x.data(), 8, x.data(), 8, d.data(), 8, 0, 0);
  cross.null<0>().null<2>().null<4>().bad<1>({0, -1}, zorStatusBadSize).bad<3>({0, -1}, zorStatusBadSize);
  cross.bad<5>({0, -1}, zorStatusBadSize).untouched(d).verify("zorsCrossCorr_16s_Sfs");
  std::vector<Zor64s> wide(8, 5);
  kit::Contract exactSums(zorsCrossCorr_16s64s, x.data(), 8, x.data(), 8, wide.data(), 8, 0);
  exactSums.null<0>().null<2>().null<4>().bad<1>({0, -1}, zorStatusBadSize).bad<3>({0, -1}, zorStatusBadSize);
  exactSums.bad<5>({0, -1}, zorStatusBadSize).untouched(wide).verify("zorsCrossCorr_16s64s");
  Vector all(15, 5);
  kit::Contract conv(zorsConv_16s_Sfs, x.data(), 8, x.data(), 8, all.data(), 0);
  conv.null<0>().null<2>().null<4>().bad<1>({0, -1}, zorStatusBadSize).bad<3>({0, -1}, zorStatusBadSize);
  conv.untouched(all).verify("zorsConv_16s_Sfs");
}

}  // namespace
