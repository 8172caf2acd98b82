#include "statistics/models.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;
using kit::Sums;

template <class T> Zor32f firstWindow(std::span<const T> x, std::uintptr_t address) {
  Zor32f total = 0;
  std::size_t k = 0;
  if (x.size() >= 64) {
    if (address % sizeof(T) == 0)
      for (; (address + k * sizeof(T)) % 32 != 0; ++k) total += Zor32f(x[k]);
    Sums<Zor32f> sums(16, total);
    for (; x.size() - k >= 16;)
      for (std::size_t j = 0; j < 16; ++j, ++k) sums.add(j, Zor32f(x[k]));
    total = sums.folded();
  }
  for (; k < x.size(); ++k) total += Zor32f(x[k]);
  return total;
}

template <class T> void check(const char* name, ZorStatus (*sumWindow)(const T*, Zor32f*, Zor32s, Zor32s)) {
  kit::Random random(51);
  for (unsigned direction : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_UP}}) {
    const kit::Direction scope(direction);
    for (int maskSize :
         {1, 2, 3, 31, 63, 64, 65, 95, 96, 97, 100, 511, 512, 513, 514, 2000, 65792, 65793, 65794, 70000})
      for (int len : {1, 2, 3, 16, 99}) {
        auto x = kit::anyValues<T>(std::size_t(len + maskSize - 1), random);
        if (len == 99) std::fill(x.begin(), x.end() - 50, std::numeric_limits<T>::max());  // sums beyond 2^24
        const kit::Placed<T> src(x, len % 2 ? Edge::begin : Edge::end, random() % 33);
        const kit::Guarded<Zor32f> dst{std::size_t(len)};
        ASSERT_EQ(sumWindow(src.data(), dst.data(), len, maskSize), zorStatusOk);
        Zor32f running = firstWindow(std::span<const T>(x).first(std::size_t(maskSize)), src.address());
        for (std::size_t i = 0;; ++i) {
          ASSERT_EQ(dst[i], running) << name << ", mask " << maskSize << ", len " << len << ", i " << i;
          if (i + 1 == std::size_t(len)) break;
          running += Zor32f(Zor32s{x[i + std::size_t(maskSize)]} - Zor32s{x[i]});
        }
        ASSERT_TRUE(dst.intact());
      }
  }
  const std::vector<T> x(20);
  std::vector<Zor32f> dst(8, 3);
  kit::Contract(sumWindow, x.data(), dst.data(), 8, 4)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadMaskSize)
      .untouched(dst)
      .verify(name);
}

TEST(SumWindow, RunsInBinary32AndReadsNothingPastTheLastWindow) {
  check<Zor8u>("zorsSumWindow_8u32f", zorsSumWindow_8u32f);
  check<Zor16s>("zorsSumWindow_16s32f", zorsSumWindow_16s32f);
}
TEST(SumWindow, OfOneElementConverts) {
  const Zor8u x[] = {0, 1, 128, 255};
  Zor32f dst[4];
  ASSERT_EQ(zorsSumWindow_8u32f(x, dst, 4, 1), zorStatusOk);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(dst[i], x[i]);
}

}  // namespace
