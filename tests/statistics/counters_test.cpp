// zorsCountInRange_32s, zorsZeroCrossing_*, zorsFindNearest*.
#include <algorithm>

#include "kit/elementwise.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;

TEST(CountInRange, NeitherBoundCounts) {
  kit::Random random(1);
  for (int len : kit::sweepLengths())
    for (int round = 0; round < 10; ++round) {
      const kit::Guarded<Zor32s> src(kit::anyValues<Zor32s>(std::size_t(len), random),
                                     round % 2 ? Edge::begin : Edge::end, 4 * (random() % 8));
      const Zor32s lower = kit::anyValue<Zor32s>(random), upper = kit::anyValue<Zor32s>(random);
      const auto wanted = std::count_if(src.data(), src.data() + len, [&](Zor32s x) { return x > lower && x < upper; });
      Zor32s count = -1;
      ASSERT_EQ(zorsCountInRange_32s(src.data(), len, &count, lower, upper), zorStatusOk);
      ASSERT_EQ(count, wanted) << len << ", bounds " << lower << " and " << upper;
    }
  const Zor32s x[] = {1, 2, 3};
  Zor32s count = -1;
  ASSERT_EQ(zorsCountInRange_32s(x, 3, &count, 1, 3), zorStatusOk);
  EXPECT_EQ(count, 1);
  ASSERT_EQ(zorsCountInRange_32s(x, 3, &count, 3, 1), zorStatusOk);
  EXPECT_EQ(count, 0);
  kit::Contract(zorsCountInRange_32s, x, 3, &count, 1, 3)
      .null<0>()
      .null<2>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&count, 4)
      .verify("zorsCountInRange_32s");
}

template <class T> int sign(T x) { return (x > 0) - (x < 0); }
template <class T> bool negative(T x) { return std::signbit(double(x)); }
template <class T> Zor32f crossings(std::span<const T> x, int mode) {
  Zor64s total = 0;
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    const auto product = x[i] * x[i + 1];  // integers exact, floats rounded
    if (mode == 0) total += product < 0;
    if (mode == 1) total += negative(x[i]) != negative(x[i + 1]);
    if (mode == 2) total += std::abs(sign(x[i]) - sign(x[i + 1]));
  }
  if (mode != 2) return Zor32f(total);
  return std::is_integral_v<T> ? Zor32f(total / 2) : Zor32f(total) * 0.5f;
}
template <class T> void checkCrossings(const char* name, ZorStatus (*zeroCrossing)(const T*, Zor32s, Zor32f*, Zor32s)) {
  kit::Random random(2);
  auto lengths = kit::sweepLengths();
  lengths.push_back(600000);  // more than 16-bit lanes count in one go
  for (int len : lengths)
    for (int mode : {0, 1, 2})
      for (int kind : {0, 1, 2}) {
        std::vector<T> values = kit::anyValues<T>(std::size_t(len), random);
        for (std::size_t i = 0; kind > 0 && i < values.size(); ++i)
          values[i] = kind == 1 ? T(int(random() % 3) - 1) : T(i % 2 ? 1 : -1);
        const kit::Guarded<T> src(values, len % 2 ? Edge::begin : Edge::end, sizeof(T) * (random() % 8));
        Zor32f result = -1;
        ASSERT_EQ(zeroCrossing(src.data(), len, &result, mode), zorStatusOk);
        ASSERT_EQ(result, crossings<T>(src.span(), mode))
            << name << ", len " << len << ", mode " << mode << ", kind " << kind;
      }
  const std::vector<T> x(4, T(1));
  Zor32f result = 3;
  kit::Contract(zeroCrossing, x.data(), 4, &result, 0)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0}, zorStatusBadSize)
      .template bad<3>({-1, 3, INT32_MAX, INT32_MIN}, zorStatusBadModeOption)
      .untouched(&result, 4)
      .verify(name);
  EXPECT_EQ(zeroCrossing(x.data(), -5, &result, 2), zorStatusOk) << name;
  EXPECT_EQ(result, 0) << name;
}
TEST(ZeroCrossing, ThreeModes) {
  checkCrossings<Zor16s>("zorsZeroCrossing_16s32f", zorsZeroCrossing_16s32f);
  checkCrossings<Zor32f>("zorsZeroCrossing_32f", zorsZeroCrossing_32f);
}
TEST(ZeroCrossing, AZeroBetweenTwoSignsIsNoNegativeProductButAChangeOfSignBits) {
  const Zor16s x[] = {1, 0, -1};
  Zor32f result = -1;
  ASSERT_EQ(zorsZeroCrossing_16s32f(x, 3, &result, 0), zorStatusOk);
  EXPECT_EQ(result, 0);
  ASSERT_EQ(zorsZeroCrossing_16s32f(x, 3, &result, 1), zorStatusOk);
  EXPECT_EQ(result, 1);
  ASSERT_EQ(zorsZeroCrossing_16s32f(x, 3, &result, 2), zorStatusOk);
  EXPECT_EQ(result, 1);
}
TEST(ZeroCrossing, HalvesAreCutForIntegersAndKeptForFloats) {
  const Zor16s x[] = {1, 0};
  const Zor32f y[] = {1, 0};
  Zor32f result = -1;
  ASSERT_EQ(zorsZeroCrossing_16s32f(x, 2, &result, 2), zorStatusOk);
  EXPECT_EQ(result, 0);
  ASSERT_EQ(zorsZeroCrossing_32f(y, 2, &result, 2), zorStatusOk);
  EXPECT_EQ(result, 0.5f);
}

// By a scan: the last entry not above val, or the next one if that is nearer.
Zor32s nearest(Zor16u val, const std::vector<Zor16u>& table) {
  const Zor32s top = Zor32s(table.size()) - 1;
  if (top < 1 || val <= table.front()) return 0;
  if (val >= table.back()) return top;
  Zor32s i = 0;
  while (!(table[std::size_t(i)] <= val && val < table[std::size_t(i) + 1])) ++i;
  return val - table[std::size_t(i)] > table[std::size_t(i) + 1] - val ? i + 1 : i;
}
TEST(FindNearest, TheLowerEntryWinsTies) {
  kit::Random random(3);
  for (int tableLen : {1, 2, 3, 4, 5, 7, 8, 9, 31, 100, 1000})
    for (int spread : {5, 100, 65536}) {
      std::vector<Zor16u> table(static_cast<std::size_t>(tableLen));
      for (auto& entry : table) entry = Zor16u(random() % unsigned(spread));
      std::sort(table.begin(), table.end());
      const kit::Guarded<Zor16u> entries(table, Edge::end, 0);
      const kit::Guarded<Zor16u> src(kit::anyValues<Zor16u>(200, random), Edge::end, 0);
      for (std::size_t i = 0; i < 200; i += 2) src[i] = Zor16u(random() % unsigned(spread));
      const kit::Guarded<Zor16u> dst(200);
      const kit::Guarded<Zor32s> index(200);
      ASSERT_EQ(zorsFindNearest_16u(src.data(), dst.data(), index.data(), 200, entries.data(), tableLen), zorStatusOk);
      for (std::size_t i = 0; i < 200; ++i) {
        const Zor32s wanted = nearest(src[i], table);
        ASSERT_EQ(index[i], wanted) << src[i];
        ASSERT_EQ(dst[i], table[std::size_t(wanted)]);
        Zor16u one = 0;
        Zor32s at = -1;
        ASSERT_EQ(zorsFindNearestOne_16u(src[i], &one, &at, entries.data(), tableLen), zorStatusOk);
        ASSERT_EQ(at, wanted);
        ASSERT_EQ(one, dst[i]);
      }
    }
  const Zor16u table[] = {10, 20};
  Zor16u one = 0;
  Zor32s at = -1;
  ASSERT_EQ(zorsFindNearestOne_16u(15, &one, &at, table, 2), zorStatusOk);
  EXPECT_EQ(at, 0);
  EXPECT_EQ(one, 10);
}
TEST(FindNearest, ChecksPointersThenLengths) {
  const Zor16u table[] = {10, 20}, src[] = {1, 2};
  Zor16u dst[] = {7, 7};
  Zor32s index[] = {8, 8};
  kit::Contract(zorsFindNearestOne_16u, Zor16u(3), dst, index, table, 2)
      .null<1>()
      .null<2>()
      .null<3>()
      .bad<4>({0, -1}, zorStatusBadSize)
      .untouched(dst, 4)
      .untouched(index, 8)
      .verify("zorsFindNearestOne_16u");
  kit::Contract(zorsFindNearest_16u, src, dst, index, 2, table, 2)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<4>()
      .bad<3>({0, -1}, zorStatusBadSize)
      .bad<5>({0, -1}, zorStatusBadSize)
      .untouched(dst, 4)
      .untouched(index, 8)
      .verify("zorsFindNearest_16u");
}

}  // namespace
