// zorsWTHaarFwd_*, zorsWTHaarInv_*.
#include "kit/scale_model.h"
#include "zors/wavelets.h"

namespace {

using kit::Edge;
using scale::Exact;

// Forms with and without a scale factor in one shape.
template <class T> struct Haar {
  const char *forwardName, *inverseName;
  std::function<ZorStatus(const T*, Zor32s, T*, T*, Zor32s)> forward;
  std::function<ZorStatus(const T*, const T*, T*, Zor32s, Zor32s)> inverse;
  std::vector<Zor32s> scales;  // 0 alone: no scale factor
};
template <class T>
Haar<T> plain(const char* forwardName, const char* inverseName, ZorStatus (*forward)(const T*, Zor32s, T*, T*),
              ZorStatus (*inverse)(const T*, const T*, T*, Zor32s)) {
  return {forwardName,
          inverseName,
          [=](const T* x, Zor32s len, T* low, T* high, Zor32s) { return forward(x, len, low, high); },
          [=](const T* low, const T* high, T* x, Zor32s len, Zor32s) { return inverse(low, high, x, len); },
          {0}};
}
template <class T>
Haar<T> scaled(const char* forwardName, const char* inverseName, ZorStatus (*forward)(const T*, Zor32s, T*, T*, Zor32s),
               ZorStatus (*inverse)(const T*, const T*, T*, Zor32s, Zor32s)) {
  return {forwardName, inverseName, forward, inverse, scale::allScales()};
}

template <class T> void transformModel(const std::vector<T>& x, Zor32s s, std::vector<T>& low, std::vector<T>& high) {
  low.resize((x.size() + 1) / 2);
  high.resize(x.size() / 2);
  for (std::size_t k = 0; k < low.size(); ++k) {
    const bool alone = 2 * k + 1 == x.size();
    const T x0 = x[2 * k], x1 = alone ? x0 : x[2 * k + 1];
    if constexpr (std::is_floating_point_v<T>) {
      low[k] = x0;  // no choice of a term 0: its sign depends on the rounding direction
      if (alone) break;
      high[k] = (x1 - x0) * T(0.5);
      low[k] += high[k];
    } else {
      const Zor32s shift = s == INT32_MAX ? s : s + 1;
      low[k] = scale::scaled<T>(Exact{x0} + x1, shift);
      if (!alone) high[k] = scale::scaled<T>(Exact{x1} - x0, shift);
    }
  }
}
template <class T>
void inverseModel(const std::vector<T>& low, const std::vector<T>& high, Zor32s s, std::vector<T>& x) {
  for (std::size_t k = 0; k < low.size(); ++k) {
    const bool alone = 2 * k + 1 == x.size();
    if constexpr (std::is_floating_point_v<T>) {
      x[2 * k] = alone ? low[k] : low[k] - high[k];
      if (!alone) x[2 * k + 1] = low[k] + high[k];
    } else {
      x[2 * k] = scale::scaled<T>(alone ? Exact{low[k]} : Exact{low[k]} - high[k], s);
      if (!alone) x[2 * k + 1] = scale::scaled<T>(Exact{low[k]} + high[k], s);
    }
  }
}

template <class T> void checkOnce(const Haar<T>& haar, Zor32s len, Zor32s s, Edge edge, kit::Random& random) {
  const std::string where = scale::at(haar.forwardName, s) + ", len " + std::to_string(len);
  const std::size_t n = std::size_t(len), lows = (n + 1) / 2, highs = n / 2;
  const auto away = [&] { return random() % 8 * sizeof(T); };
  const auto x = kit::anyValues<T>(n, random);
  std::vector<T> wantedLow, wantedHigh, wanted(n);
  const kit::Guarded<T> src(x, edge, away()), low(lows, edge, away()), high(highs, edge, away());
  transformModel(x, s, wantedLow, wantedHigh);
  ASSERT_EQ(haar.forward(src.data(), len, low.data(), high.data(), s), zorStatusOk) << where;
  ASSERT_EQ(kit::firstDifference<T>(low.span(), wantedLow), "") << where << ", low";
  ASSERT_EQ(kit::firstDifference<T>(high.span(), wantedHigh), "") << where << ", high";
  ASSERT_TRUE(low.intact() && high.intact()) << where;

  const auto bandLow = kit::anyValues<T>(lows, random), bandHigh = kit::anyValues<T>(highs, random);
  const kit::Guarded<T> srcLow(bandLow, edge, away()), srcHigh(bandHigh, edge, away()), dst(n, edge, away());
  inverseModel(bandLow, bandHigh, s, wanted);
  ASSERT_EQ(haar.inverse(srcLow.data(), srcHigh.data(), dst.data(), len, s), zorStatusOk) << where;
  ASSERT_EQ(kit::firstDifference<T>(dst.span(), wanted), "") << where << ", inverse";
  ASSERT_TRUE(dst.intact()) << where << ", inverse";
}
template <class T> void check(const Haar<T>& haar) {
  kit::Random random(1);
  for (Zor32s len : kit::sweepLengths())
    for (Edge edge : kit::bothEdges)
      for (Zor32s s : {0, 1, -1, 2}) {
        checkOnce(haar, len, haar.scales.size() == 1 ? 0 : s, edge, random);
        if (testing::Test::HasFatalFailure()) return;
      }
  for (Zor32s s : haar.scales)
    for (Zor32s len : {1, 2, 3, 70, 131}) {
      checkOnce(haar, len, s, Edge::end, random);
      if (testing::Test::HasFatalFailure()) return;
    }
  T x[4] = {1, 2, 3, 4}, y[4] = {5, 6, 7, 8}, z[4] = {9, 10, 11, 12};
  const auto refused = [&](ZorStatus wanted, const T* a, const T* b, const T* c, Zor32s len) {
    const std::vector<T> beforeY(y, y + 4), beforeZ(z, z + 4);
    EXPECT_EQ(haar.forward(a, len, const_cast<T*>(b), const_cast<T*>(c), 0), wanted) << haar.forwardName;
    EXPECT_EQ(haar.inverse(a, b, const_cast<T*>(c), len, 0), wanted) << haar.inverseName;
    EXPECT_EQ(std::vector<T>(y, y + 4), beforeY);
    EXPECT_EQ(std::vector<T>(z, z + 4), beforeZ);
  };
  for (Zor32s len : {4, 1, 0, -1, INT32_MIN}) {
    refused(zorStatusNullPointer, nullptr, y, z, len);
    refused(zorStatusNullPointer, x, nullptr, z, len);
    refused(zorStatusNullPointer, x, y, nullptr, len);
    if (len < 1) refused(zorStatusBadSize, x, y, z, len);
  }
}

TEST(Haar, EveryForm) {
  check(plain("zorsWTHaarFwd_8s", "zorsWTHaarInv_8s", zorsWTHaarFwd_8s, zorsWTHaarInv_8s));
  check(plain("zorsWTHaarFwd_16s", "zorsWTHaarInv_16s", zorsWTHaarFwd_16s, zorsWTHaarInv_16s));
  check(plain("zorsWTHaarFwd_32s", "zorsWTHaarInv_32s", zorsWTHaarFwd_32s, zorsWTHaarInv_32s));
  check(plain("zorsWTHaarFwd_64s", "zorsWTHaarInv_64s", zorsWTHaarFwd_64s, zorsWTHaarInv_64s));
  check(scaled("zorsWTHaarFwd_8s_Sfs", "zorsWTHaarInv_8s_Sfs", zorsWTHaarFwd_8s_Sfs, zorsWTHaarInv_8s_Sfs));
  check(scaled("zorsWTHaarFwd_16s_Sfs", "zorsWTHaarInv_16s_Sfs", zorsWTHaarFwd_16s_Sfs, zorsWTHaarInv_16s_Sfs));
  check(scaled("zorsWTHaarFwd_32s_Sfs", "zorsWTHaarInv_32s_Sfs", zorsWTHaarFwd_32s_Sfs, zorsWTHaarInv_32s_Sfs));
  check(scaled("zorsWTHaarFwd_64s_Sfs", "zorsWTHaarInv_64s_Sfs", zorsWTHaarFwd_64s_Sfs, zorsWTHaarInv_64s_Sfs));
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    check(plain("zorsWTHaarFwd_32f", "zorsWTHaarInv_32f", zorsWTHaarFwd_32f, zorsWTHaarInv_32f));
    check(plain("zorsWTHaarFwd_64f", "zorsWTHaarInv_64f", zorsWTHaarFwd_64f, zorsWTHaarInv_64f));
  }
}

TEST(Haar, OfOneSampleTheHighBandStaysUntouched) {
  const Zor32f src = 7;
  Zor32f low = 0, high = 5;
  ASSERT_EQ(zorsWTHaarFwd_32f(&src, 1, &low, &high), zorStatusOk);
  EXPECT_EQ(low, 7);
  EXPECT_EQ(high, 5);
}

TEST(Haar, AtScaleMinusOneSumsSaturate) {
  const Zor16s src[] = {32767, 32767};
  Zor16s low = 0, high = 5;
  ASSERT_EQ(zorsWTHaarFwd_16s_Sfs(src, 2, &low, &high, -1), zorStatusOk);
  EXPECT_EQ(low, 32767);
  EXPECT_EQ(high, 0);
}

TEST(Haar, HalvesGoToTheEvenNeighbour) {
  const Zor16s src[] = {1, 2};
  Zor16s low = 0, high = 5;
  ASSERT_EQ(zorsWTHaarFwd_16s(src, 2, &low, &high), zorStatusOk);
  EXPECT_EQ(low, 2);
  EXPECT_EQ(high, 0);
}

TEST(Haar, Extremes64ByTheirExactSums) {
  const Zor64s top = INT64_MAX, bottom = INT64_MIN;
  const Zor64s src[] = {bottom, top, top, top, bottom, bottom, Zor64s{1} << 62, Zor64s{1} << 62, top, 2, top};
  Zor64s low[6], high[5];
  ASSERT_EQ(zorsWTHaarFwd_64s(src, 11, low, high), zorStatusOk);
  EXPECT_EQ(low[0], 0);  // the sum is -1
  EXPECT_EQ(high[0], top);
  ASSERT_EQ(zorsWTHaarFwd_64s_Sfs(src, 11, low, high, 62), zorStatusOk);
  EXPECT_EQ(low[1], 2);
  ASSERT_EQ(zorsWTHaarFwd_64s_Sfs(src, 11, low, high, 63), zorStatusOk);
  EXPECT_EQ(low[1], 1);
  EXPECT_EQ(low[2], -1);
  EXPECT_EQ(low[3], 0);  // 2^63 is a tie
  EXPECT_EQ(low[4], 1);
  ASSERT_EQ(zorsWTHaarFwd_64s_Sfs(src, 11, low, high, 64), zorStatusOk);
  EXPECT_EQ(std::vector(low, low + 6), std::vector<Zor64s>(6, 0));
}

TEST(Haar, LowIsNotHalfTheSum) {
  const Zor32f top = std::numeric_limits<Zor32f>::max(), tiny = std::numeric_limits<Zor32f>::denorm_min();
  const Zor32f src[] = {-top, top, 0, tiny};
  Zor32f low[2], high[2];
  ASSERT_EQ(zorsWTHaarFwd_32f(src, 4, low, high), zorStatusOk);
  EXPECT_TRUE(std::isinf(low[0]) && std::isinf(high[0]));
  EXPECT_EQ(high[1], 0);  // half of the smallest rounds to even
  EXPECT_EQ(low[1], 0);
}

TEST(Haar, ForwardThenInverseRestoresFloatsToOneRounding) {
  kit::Random random(3);
  const auto x = kit::signal<Zor32f>(1001, random);
  std::vector<Zor32f> low(501), high(500), y(1001);
  ASSERT_EQ(zorsWTHaarFwd_32f(x.data(), 1001, low.data(), high.data()), zorStatusOk);
  ASSERT_EQ(zorsWTHaarInv_32f(low.data(), high.data(), y.data(), 1001), zorStatusOk);
  for (std::size_t i = 0; i < x.size(); ++i) EXPECT_NEAR(y[i], x[i], 1.2e-7);
}

}  // namespace
