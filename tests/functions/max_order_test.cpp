#include <algorithm>

#include "kit/elementwise.h"
#include "zors/functions.h"

namespace {

template <class T> int orderOf(T x) {
  if constexpr (std::floating_point<T>) {
    if (std::isinf(x)) return std::numeric_limits<T>::max_exponent + 1;
    return x == 0 ? 0 : std::ilogb(x) + 1;
  } else {
    int order = 0;
    for (Zor64s magnitude = std::abs(Zor64s(x)); magnitude != 0; magnitude >>= 1) ++order;
    return order;
  }
}
template <class T> void check(const char* name, ZorStatus (*function)(const T*, Zor32s, Zor32s*)) {
  kit::Random random(1);
  for (int len : kit::sweepLengths())
    for (kit::Edge edge : kit::bothEdges)
      for (int round = 0; round < 8; ++round) {
        auto values = kit::anyValues<T>(std::size_t(len), random);
        bool nan = false;
        for (T& x : values) {
          if constexpr (std::floating_point<T>) {
            x *= std::ldexp(T(1), -round * 40);  // the greatest is not always infinity
            if (round > 0 && !std::isfinite(x)) x = 0;
            nan |= std::isnan(x);
          } else {
            x = T(x >> (2 * round));
          }
        }
        const kit::Guarded<T> src(values, edge, sizeof(T));
        Zor32s order = -1;
        ASSERT_EQ(function(src.data(), len, &order), nan ? zorWarningNotANumber : zorStatusOk) << name;
        if (nan) continue;
        int wanted = 0;
        T greatest = 0;
        for (T x : values) {
          if constexpr (std::floating_point<T>)
            greatest = std::max(greatest, std::fabs(x));
          else
            wanted = std::max(wanted, orderOf(x));
        }
        if (std::floating_point<T>) wanted = orderOf(greatest);
        ASSERT_EQ(order, wanted) << name << ", len " << len << ", round " << round;
      }
  const std::vector<T> src(8);
  std::vector<Zor32s> order(1, 7);
  kit::Contract(function, src.data(), 8, order.data())
      .template bad<1>({0, -1}, zorStatusBadSize)
      .template null<0>()
      .template null<2>()
      .untouched(order)
      .verify(name);
}
TEST(MaxOrder, TheWidthOfTheGreatestMagnitude) {
  check("zorsMaxOrder_16s", zorsMaxOrder_16s);
  check("zorsMaxOrder_32s", zorsMaxOrder_32s);
  check("zorsMaxOrder_32f", zorsMaxOrder_32f);
  check("zorsMaxOrder_64f", zorsMaxOrder_64f);
}
TEST(MaxOrder, ZerosHaveNoneOneHasOneTheLowestHasAll) {
  Zor32s order = -1;
  const Zor16s zeros[] = {0, 0}, one = 1, lowest = -32768;
  EXPECT_EQ(zorsMaxOrder_16s(zeros, 2, &order), zorStatusOk);
  EXPECT_EQ(order, 0);
  EXPECT_EQ(zorsMaxOrder_16s(&one, 1, &order), zorStatusOk);
  EXPECT_EQ(order, 1);
  EXPECT_EQ(zorsMaxOrder_16s(&lowest, 1, &order), zorStatusOk);
  EXPECT_EQ(order, 16);
  const Zor32f zero = -0.0f, two = -2;
  EXPECT_EQ(zorsMaxOrder_32f(&zero, 1, &order), zorStatusOk);
  EXPECT_EQ(order, 0);
  EXPECT_EQ(zorsMaxOrder_32f(&two, 1, &order), zorStatusOk);
  EXPECT_EQ(order, 2);
}

}  // namespace
