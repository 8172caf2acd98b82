#include <algorithm>

#include "kit/elementwise.h"
#include "zors/functions.h"

namespace {

Zor32f stepped(Zor32f x, Zor32f previous, Zor32f val) {
  volatile Zor32f product = val * previous, difference = x - product;
  return difference;
}
Zor16s stepped(Zor16s x, Zor16s previous, Zor32f val) {  // to nearest in every direction
  const kit::Direction nearest(_MM_ROUND_NEAREST);
  volatile Zor32f factor = val, product = factor * previous, difference = x - product;
  if (std::isnan(difference)) return -32768;
  return Zor16s(std::nearbyint(std::clamp(Zor32f{difference}, -32768.0f, 32767.0f)));
}
template <class T> void check(const char* name, ZorStatus (*function)(T*, Zor32s, Zor32f)) {
  kit::Random random(1);
  for (unsigned direction : kit::allDirections)
    for (Zor32f val : {0.97f, 0.0f, -1.5f, 1.0f, 1e-3f, 3e38f, HUGE_VALF, NAN})
      for (int len : kit::sweepLengths())
        for (kit::Edge edge : kit::bothEdges) {
          if (len > 70 && val != 0.97f) continue;
          const kit::Direction scope(direction);
          const auto values = kit::anyValues<T>(std::size_t(len), random);
          const kit::Guarded<T> srcDst(values, edge, sizeof(T));
          std::vector<T> wanted(values.size());
          for (std::size_t i = 0; i < values.size(); ++i)
            wanted[i] = stepped(values[i], i == 0 ? T(0) : values[i - 1], val);
          ASSERT_EQ(function(srcDst.data(), len, val), zorStatusOk);
          ASSERT_EQ(kit::firstDifference<T>(srcDst.span(), wanted), "") << name << ", len " << len << ", " << val;
          ASSERT_TRUE(srcDst.intact());
        }
  std::vector<T> srcDst(8);
  kit::Contract(function, srcDst.data(), 8, 0.5f)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(srcDst)
      .verify(name);
}
TEST(Preemphasize, TheProductIsRoundedThenTheDifference) {
  check("zorsPreemphasize_32f", zorsPreemphasize_32f);
  check("zorsPreemphasize_16s", zorsPreemphasize_16s);
}
TEST(Preemphasize, EachElementLosesAPartOfTheOneBefore) {
  Zor32f x[] = {1, 1, 1};
  EXPECT_EQ(zorsPreemphasize_32f(x, 3, 0.5f), zorStatusOk);
  EXPECT_EQ(x[0], 1);
  EXPECT_EQ(x[1], 0.5f);
  EXPECT_EQ(x[2], 0.5f);
}

}  // namespace
