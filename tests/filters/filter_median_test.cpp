#include "zors/filters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"

namespace {

using kit::Edge;
using kit::Guarded;

template <class T> using Median = ZorStatus (*)(const T*, T*, Zor32s, Zor32s);
template <class T> using MedianInPlace = ZorStatus (*)(T*, Zor32s, Zor32s);

// The middle element of each window, sorted.
template <class T> std::vector<T> model(const std::vector<T>& src, int mask) {
  const auto h = std::ptrdiff_t((mask - 1) | 1) / 2, len = std::ptrdiff_t(src.size());
  std::vector<T> out;
  if (len < 3) return src;
  for (std::ptrdiff_t i = 0; i < len; ++i) {
    std::vector<T> window;
    for (std::ptrdiff_t k = i - h; k <= i + h; ++k)
      window.push_back(src[std::size_t(std::clamp<std::ptrdiff_t>(k, 0, len - 1))]);
    std::nth_element(window.begin(), window.begin() + h, window.end());
    out.push_back(window[std::size_t(h)]);
  }
  return out;
}

template <class T> T value(kit::Random& random) {
  T x;
  do x = kit::anyValue<T>(random);
  while (x != x);
  return x;
}

template <class T> void check(const char* name, Median<T> median, MedianInPlace<T> inPlace) {
  kit::Random random(3);
  const auto one = [&](int len, int mask, Edge edge) {
    std::vector<T> src(static_cast<std::size_t>(len));
    const int levels = int(random() % 3) == 0 ? 3 : 0;  // many ties, or few
    for (T& x : src) x = levels ? T(random() % 3) : value<T>(random);
    const auto wanted = model(src, mask);
    const Guarded<T> from(src, edge, edge == Edge::end ? 0 : sizeof(T)), to(src.size(), edge), both(src, edge);
    const ZorStatus status = mask % 2 == 0 ? zorStatusEvenMedianMaskSize : zorStatusOk;
    const std::string where = std::string(name) + ", len " + std::to_string(len) + ", mask " + std::to_string(mask);
    ASSERT_EQ(median(from.data(), to.data(), len, mask), status) << where;
    ASSERT_EQ(inPlace(both.data(), len, mask), status) << where;
    for (std::size_t i = 0; i < src.size(); ++i) {  // values: of zeros either may come
      ASSERT_EQ(to[i], wanted[i]) << where << " at " << i;
      ASSERT_EQ(both[i], wanted[i]) << where << " in place, at " << i;
    }
    ASSERT_EQ(kit::firstDifference<T>(from.span(), src), "") << where << ": source changed";
    ASSERT_TRUE(to.intact() && both.intact()) << where << ": wrote outside";
  };
  for (int mask = 1; mask <= 11; ++mask)
    for (int len = 1; len <= 70; ++len)
      for (Edge edge : kit::bothEdges) ASSERT_NO_FATAL_FAILURE(one(len, mask, edge));
  for (int mask : {3, 5, 7, 9})  // pieces of the in-place way
    for (int len : {511, 512, 513, 1023, 1024, 1025, 2048, 2051, 4095, 4096, 4097, 8199})
      ASSERT_NO_FATAL_FAILURE(one(len, mask, Edge::end));
  for (int mask : {12, 13, 15, 16, 17, 29, 31, 32, 33, 35, 61, 63, 65, 67, 101, 127, 129, 253, 255, 257, 300, 1001})
    for (int len : {3, 4, 17, 31, 32, 33, 130, 301, 517}) ASSERT_NO_FATAL_FAILURE(one(len, mask, Edge::end));
}

TEST(FilterMedian, TakesTheMiddleOfEachWindow) {
  check<Zor8u>("zorsFilterMedian_8u", zorsFilterMedian_8u, zorsFilterMedian_8u_I);
  check<Zor16s>("zorsFilterMedian_16s", zorsFilterMedian_16s, zorsFilterMedian_16s_I);
  check<Zor32s>("zorsFilterMedian_32s", zorsFilterMedian_32s, zorsFilterMedian_32s_I);
  check<Zor32f>("zorsFilterMedian_32f", zorsFilterMedian_32f, zorsFilterMedian_32f_I);
  check<Zor64f>("zorsFilterMedian_64f", zorsFilterMedian_64f, zorsFilterMedian_64f_I);
}

TEST(FilterMedian, AMaskOfTwoWarnsAndLeavesTheDataAsCopied) {
  const Zor32f src[] = {5, 1, 4, 2};
  Zor32f dst[4] = {};
  EXPECT_EQ(zorsFilterMedian_32f(src, dst, 4, 2), zorStatusEvenMedianMaskSize);
  EXPECT_TRUE(std::equal(src, src + 4, dst));
}

TEST(FilterMedian, AMaskLongerThanTheVectorReadsThePaddingAtBothEnds) {
  const Zor16s src[] = {9, 1, 5};
  Zor16s dst[3] = {};
  EXPECT_EQ(zorsFilterMedian_16s(src, dst, 3, 7), zorStatusOk);  // 9 9 9 9 1 5 5 | 9 9 9 1 5 5 5 | 9 9 1 5 5 5 5
  EXPECT_EQ(dst[0], 9);
  EXPECT_EQ(dst[1], 5);
  EXPECT_EQ(dst[2], 5);
  EXPECT_EQ(zorsFilterMedian_16s_I(dst, 3, 1001), zorStatusOk);
  EXPECT_EQ(dst[0], 9);
  EXPECT_EQ(dst[1], 5);
  EXPECT_EQ(dst[2], 5);
}

TEST(FilterMedian, BytesCompareWithoutASign) {
  const Zor8u src[] = {0x80, 0x7F, 0x80, 0x7F, 0xFF};
  Zor8u dst[5];
  for (int mask : {3, 13}) {
    EXPECT_EQ(zorsFilterMedian_8u(src, dst, 5, mask), zorStatusOk);
    EXPECT_EQ(dst[1], 0x80);
  }
}

TEST(FilterMedian, ANanSpoilsNoWindowWithoutIt) {
  for (int mask : {3, 5, 7, 9, 11, 31, 127}) {
    std::vector<Zor64f> src(400);
    kit::Random random(8);
    for (auto& x : src) x = double(random() % 1000);
    const auto wanted = model(src, mask);
    src[200] = std::numeric_limits<Zor64f>::quiet_NaN();
    std::vector<Zor64f> dst(src.size());
    std::vector<Zor32f> narrow(src.begin(), src.end()), narrowDst(src.size());
    EXPECT_EQ(zorsFilterMedian_64f(src.data(), dst.data(), 400, mask), zorStatusOk);
    EXPECT_EQ(zorsFilterMedian_32f(narrow.data(), narrowDst.data(), 400, mask), zorStatusOk);
    for (int i = 0; i < 400; ++i)
      if (std::abs(i - 200) > mask / 2) {
        ASSERT_EQ(dst[std::size_t(i)], wanted[std::size_t(i)]) << mask << " at " << i;
        ASSERT_EQ(narrowDst[std::size_t(i)], Zor32f(wanted[std::size_t(i)])) << mask << " at " << i;
      }
  }
}

template <class T> void checkContract(const char* name, Median<T> median, MedianInPlace<T> inPlace) {
  const std::vector<T> src(8, T(1)), dst(8, T(2));
  auto* to = const_cast<T*>(dst.data());
  kit::Contract(median, src.data(), to, 8, 3)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, to, 8, 3)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  // An allocation that fails, or would be of more bytes than a 32-bit count holds.
  std::vector<T> data = {T(3), T(1), T(2), T(5), T(4)};
  const auto before = data;
  const int allocations = kit::failEachAllocation([&] { return inPlace(data.data(), 5, 11); },
                                                  [&](int n, ZorStatus status) {
                                                    EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
                                                    EXPECT_EQ(kit::services().live, 0);
                                                    if (n >= 0) {
                                                      EXPECT_EQ(data, before) << name;
                                                    }
                                                  });
  EXPECT_GE(allocations, 1);
  data = before;
  EXPECT_EQ(inPlace(data.data(), 5, INT32_MAX), zorStatusNoMemory) << name;
  EXPECT_EQ(data, before) << name;
}

TEST(FilterMedian, ChecksItsArgumentsInOrder) {
  checkContract<Zor8u>("zorsFilterMedian_8u", zorsFilterMedian_8u, zorsFilterMedian_8u_I);
  checkContract<Zor16s>("zorsFilterMedian_16s", zorsFilterMedian_16s, zorsFilterMedian_16s_I);
  checkContract<Zor32s>("zorsFilterMedian_32s", zorsFilterMedian_32s, zorsFilterMedian_32s_I);
  checkContract<Zor32f>("zorsFilterMedian_32f", zorsFilterMedian_32f, zorsFilterMedian_32f_I);
  checkContract<Zor64f>("zorsFilterMedian_64f", zorsFilterMedian_64f, zorsFilterMedian_64f_I);
}

}  // namespace
