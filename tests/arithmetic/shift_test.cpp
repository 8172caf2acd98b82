#include "kit/elementwise.h"
#include "zors/arithmetic.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

template <class T> struct Shift {
  const char* name;
  ZorStatus (*function)(const T*, Zor32s, T*, Zor32s);
  ZorStatus (*inPlace)(Zor32s, T*, Zor32s);
  T (*model)(T, int);
};

template <class T> constexpr int width = 8 * sizeof(T);
template <class T> T left(T x, int count) { return count >= width<T> ? T(0) : T(std::uint64_t(x) << count); }
template <class T> T right(T x, int count) { return T(std::int64_t(x) >> std::min(count, 63)); }

constexpr Shift<Zor8u> shifts8u[] = {{"LShiftC 8u", zorsLShiftC_8u, zorsLShiftC_8u_I, left},
                                     {"RShiftC 8u", zorsRShiftC_8u, zorsRShiftC_8u_I, right}};
constexpr Shift<Zor16s> shifts16s[] = {{"LShiftC 16s", zorsLShiftC_16s, zorsLShiftC_16s_I, left},
                                       {"RShiftC 16s", zorsRShiftC_16s, zorsRShiftC_16s_I, right}};
constexpr Shift<Zor16u> shifts16u[] = {{"LShiftC 16u", zorsLShiftC_16u, zorsLShiftC_16u_I, left},
                                       {"RShiftC 16u", zorsRShiftC_16u, zorsRShiftC_16u_I, right}};
constexpr Shift<Zor32s> shifts32s[] = {{"LShiftC 32s", zorsLShiftC_32s, zorsLShiftC_32s_I, left},
                                       {"RShiftC 32s", zorsRShiftC_32s, zorsRShiftC_32s_I, right}};

template <class Test> void forEachShift(Test test) {
  for (const auto& shift : shifts8u) test(shift);
  for (const auto& shift : shifts16s) test(shift);
  for (const auto& shift : shifts16u) test(shift);
  for (const auto& shift : shifts32s) test(shift);
}

TEST(Shift, MovesBitsByAnyCount) {
  forEachShift([]<class T>(const Shift<T>& shift) {
    const auto by = [&](int count, const std::vector<int>& lengths) {
      const auto model = [&shift, count](T x) { return shift.model(x, count); };
      const std::string name = std::string(shift.name) + " by " + std::to_string(count);
      sweep<T, T>(
          name, [&](const T* src, T* dst, Zor32s len) { return shift.function(src, count, dst, len); }, model, lengths);
      sweepInPlace<T>(
          name, [&](T* srcDst, Zor32s len) { return shift.inPlace(count, srcDst, len); }, model, lengths);
    };
    by(3, kit::sweepLengths());
    for (int count = 0; count <= 40; ++count) by(count, kit::fewLengths());
    for (int count : {64, 65, 256, 1 << 30, INT32_MAX}) by(count, kit::fewLengths());
  });
}

TEST(Shift, EveryShortValueByEveryCount) {
  forEachShift([]<class T>(const Shift<T>& shift) {
    if constexpr (sizeof(T) <= 2) {
      std::vector<T> all(std::size_t{1} << width<T>), got(all.size());
      for (std::size_t i = 0; i < all.size(); ++i) all[i] = T(i);
      for (int count = 0; count <= width<T> + 1; ++count) {
        ASSERT_EQ(shift.function(all.data(), count, got.data(), Zor32s(all.size())), zorStatusOk);
        for (std::size_t i = 0; i < all.size(); ++i)
          ASSERT_EQ(got[i], shift.model(all[i], count)) << shift.name << " of " << i << " by " << count;
      }
    }
  });
}

TEST(Shift, ChecksPointersThenLengthThenTheCount) {
  forEachShift([]<class T>(const Shift<T>& shift) {
    const std::vector<T> src(8, T(1));
    std::vector<T> dst(8, T(3));
    for (Zor32s count : {0, 3, width<T>, 1000}) {
      kit::Contract(shift.function, src.data(), count, dst.data(), 8)
          .template null<0>()
          .template null<2>()
          .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
          .template bad<1>({-1, -8, INT32_MIN}, zorStatusBadShift)
          .untouched(dst)
          .verify(shift.name);
      kit::Contract(shift.inPlace, count, dst.data(), 8)
          .template null<1>()
          .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
          .template bad<0>({-1, -8, INT32_MIN}, zorStatusBadShift)
          .untouched(dst)
          .verify(shift.name);
    }
  });
}

TEST(Shift, ANegativeCountWithNoElementsIsABadSize) {
  Zor8u data[5] = {1, 2, 3, 4, 5};
  EXPECT_EQ(zorsLShiftC_8u(data, -1, data, 0), zorStatusBadSize);
  EXPECT_EQ(zorsLShiftC_8u(data, -1, data, 5), zorStatusBadShift);
}
TEST(Shift, TheWholeWidthToTheLeftGivesZeros) {
  Zor32s data[2] = {-1, 5};
  EXPECT_EQ(zorsLShiftC_32s_I(32, data, 2), zorStatusOk);
  EXPECT_EQ(data[0], 0);
  EXPECT_EQ(data[1], 0);
}
TEST(Shift, TheWholeWidthToTheRightLeavesTheSign) {
  Zor32s data[2] = {-5, 5};
  EXPECT_EQ(zorsRShiftC_32s_I(40, data, 2), zorStatusOk);
  EXPECT_EQ(data[0], -1);
  EXPECT_EQ(data[1], 0);
}
TEST(Shift, UnsignedElementsMoveZerosIn) {
  Zor16u data[1] = {0x8000};
  EXPECT_EQ(zorsRShiftC_16u_I(15, data, 1), zorStatusOk);
  EXPECT_EQ(data[0], 1);
}

}  // namespace
