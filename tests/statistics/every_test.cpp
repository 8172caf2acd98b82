#include "kit/elementwise.h"
#include "zors/statistics.h"

namespace {

template <class T> T greater(T a, T b) { return a > b ? a : b; }
template <class T> T smaller(T a, T b) { return a < b ? a : b; }

template <class T> void checkInPlace(const char* name, ZorStatus (*every)(const T*, T*, Zor32s), T (*model)(T, T)) {
  kit::sweepInPlace<T, T>(name, every, model);
  const std::vector<T> src(8, T(1));
  std::vector<T> dst(8, T(2));
  kit::Contract(every, src.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class T>
void checkOutOfPlace(const char* name, ZorStatus (*every)(const T*, const T*, T*, Zor32s), T (*model)(T, T)) {
  kit::sweep<T, T, T>(name, every, model);
  const std::vector<T> a(8, T(1)), b(8, T(3));
  std::vector<T> dst(8, T(2));
  kit::Contract(every, a.data(), b.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

TEST(Every, GreaterOrElseTheSecond) {
  checkOutOfPlace<Zor8u>("zorsMaxEvery_8u", zorsMaxEvery_8u, greater<Zor8u>);
  checkOutOfPlace<Zor16u>("zorsMaxEvery_16u", zorsMaxEvery_16u, greater<Zor16u>);
  checkOutOfPlace<Zor32f>("zorsMaxEvery_32f", zorsMaxEvery_32f, greater<Zor32f>);
  checkOutOfPlace<Zor64f>("zorsMaxEvery_64f", zorsMaxEvery_64f, greater<Zor64f>);
  checkInPlace<Zor8u>("zorsMaxEvery_8u_I", zorsMaxEvery_8u_I, greater<Zor8u>);
  checkInPlace<Zor16u>("zorsMaxEvery_16u_I", zorsMaxEvery_16u_I, greater<Zor16u>);
  checkInPlace<Zor16s>("zorsMaxEvery_16s_I", zorsMaxEvery_16s_I, greater<Zor16s>);
  checkInPlace<Zor32s>("zorsMaxEvery_32s_I", zorsMaxEvery_32s_I, greater<Zor32s>);
  checkInPlace<Zor32f>("zorsMaxEvery_32f_I", zorsMaxEvery_32f_I, greater<Zor32f>);
  checkInPlace<Zor64f>("zorsMaxEvery_64f_I", zorsMaxEvery_64f_I, greater<Zor64f>);
}
TEST(Every, SmallerOrElseTheSecond) {
  checkOutOfPlace<Zor8u>("zorsMinEvery_8u", zorsMinEvery_8u, smaller<Zor8u>);
  checkOutOfPlace<Zor16u>("zorsMinEvery_16u", zorsMinEvery_16u, smaller<Zor16u>);
  checkOutOfPlace<Zor32f>("zorsMinEvery_32f", zorsMinEvery_32f, smaller<Zor32f>);
  checkOutOfPlace<Zor64f>("zorsMinEvery_64f", zorsMinEvery_64f, smaller<Zor64f>);
  checkInPlace<Zor8u>("zorsMinEvery_8u_I", zorsMinEvery_8u_I, smaller<Zor8u>);
  checkInPlace<Zor16u>("zorsMinEvery_16u_I", zorsMinEvery_16u_I, smaller<Zor16u>);
  checkInPlace<Zor16s>("zorsMinEvery_16s_I", zorsMinEvery_16s_I, smaller<Zor16s>);
  checkInPlace<Zor32s>("zorsMinEvery_32s_I", zorsMinEvery_32s_I, smaller<Zor32s>);
  checkInPlace<Zor32f>("zorsMinEvery_32f_I", zorsMinEvery_32f_I, smaller<Zor32f>);
  checkInPlace<Zor64f>("zorsMinEvery_64f_I", zorsMinEvery_64f_I, smaller<Zor64f>);
}

}  // namespace
