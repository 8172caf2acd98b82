// The kit notices what it is there to notice.
#include <gtest/gtest-spi.h>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "kit/services.h"
#include "zors/memory.h"

namespace {

TEST(Guarded, NoticesABytePastEitherEnd) {
  for (kit::Edge edge : kit::bothEdges)
    for (int offset : {-1, 5}) {
      const kit::Guarded<Zor8u> array(5, edge, 3);
      EXPECT_TRUE(array.intact());
      array.data()[offset] = 0;
      EXPECT_FALSE(array.intact());
    }
}
TEST(GuardedDeathTest, FaultsBeyondThePage) {
  const kit::Guarded<Zor8u> atEnd(5, kit::Edge::end), atBegin(5, kit::Edge::begin);
  EXPECT_DEATH(*const_cast<volatile Zor8u*>(atEnd.data() + 5) = 1, "");
  EXPECT_DEATH(*const_cast<volatile Zor8u*>(atBegin.data() - 1) = 1, "");
}

TEST(Values, BitsAreCompared) {
  EXPECT_FALSE(kit::sameBits(0.0, -0.0));
  EXPECT_TRUE(kit::sameBits(std::bit_cast<Zor32f>(0x7FC00001u), std::bit_cast<Zor32f>(0x7FC00002u)));
  EXPECT_FALSE(
      kit::sameBits(std::bit_cast<Zor32f>(0x7FC00001u), std::bit_cast<Zor32f>(0x7FC00002u), kit::Nan::samePayload));
  const std::vector<int> a{1, 2, 3}, b{1, 5, 3};
  EXPECT_EQ(kit::firstDifference<int>(a, a), "");
  EXPECT_EQ(kit::firstDifference<int>(a, b), "[1]: got 2, wanted 5");
}
TEST(Values, UlpsCountFromTheExactValue) {
  EXPECT_EQ(kit::ulps(1.0f, 1.0L), 0);
  EXPECT_EQ(kit::ulps(std::nextafter(1.0f, 2.0f), 1.0L), 1);
  EXPECT_EQ(kit::ulps(std::nextafter(0.0f, 1.0f), 0.0L), 1);
  EXPECT_EQ(kit::ulps(HUGE_VALF, 1.0L), std::numeric_limits<double>::infinity());
}

// Tests the length before the pointer, and writes before it tests.
ZorStatus disorderly(const int* src, int* dst, Zor32s len) {
  if (len < 1) return zorStatusBadSize;
  *dst = 5;
  return src == nullptr ? zorStatusNullPointer : zorStatusOk;
}
TEST(Contract, NoticesAWrongOrderAndAnEarlyWrite) {
  const auto order = [] {
    int src = 1, dst = 2;
    kit::Contract(disorderly, &src, &dst, 1).null<0>().bad<2>({0}, zorStatusBadSize).verify("disorderly");
  };
  const auto write = [] {
    int src = 1, dst = 2;
    kit::Contract(disorderly, &src, &dst, 1).null<0>().untouched(&dst, sizeof dst).verify("disorderly");
  };
  EXPECT_NONFATAL_FAILURE(order(), "bad argument 0, bad argument 2");
  EXPECT_NONFATAL_FAILURE(write(), "wrote");
}

TEST(Services, CountAndRefuseAllocations) {
  const int made = kit::failEachAllocation(
      [] {
        Zor8u* const first = zorsMalloc_8u(10);
        Zor8u* const second = first == nullptr ? nullptr : zorsMalloc_8u(10);
        zorsFree(second);
        zorsFree(first);
        return second == nullptr ? zorStatusNoMemory : zorStatusOk;
      },
      [](int n, int status) {
        EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
        EXPECT_EQ(kit::services().live, 0);
      });
  EXPECT_EQ(made, 2);
}
TEST(Services, TellLeaks) {
  const kit::ServicesScope services;
  Zor8u* const block = zorsMalloc_8u(10);
  EXPECT_EQ(services.leaked(), 1);
  zorsFree(block);
  EXPECT_EQ(services.leaked(), 0);
}

}  // namespace
