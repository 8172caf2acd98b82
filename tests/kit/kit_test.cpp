// The kit notices what it is there to notice.
#include <gtest/gtest-spi.h>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "kit/object.h"
#include "kit/services.h"
#include "kit/stream.h"
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

// What a check says of something with a fault: all failures in one text.
template <class Check> std::string failuresOf(Check check) {
  testing::TestPartResultArray results;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
    check();
  }
  std::string text;
  for (int i = 0; i < results.size(); ++i) text.append(results.GetTestPartResult(i).message()).append("\n");
  return text;
}

enum class Fault {
  none,
  writesPastTheBlock,
  keepsTheInitBuffer,
  readsStaleMemory,
  leaksOnFailure,
  writesThePointerOnFailure,
  ignoresTheTag,
  keepsTheTag,
  writesOnFailure,
  leaksWork,
};
struct Toy {
  Zor32u tag;
  Zor32s owns, stale;
  const Zor8u* start;
};
constexpr Zor32u toyTag = 0x544F5931;
Toy* placed(Zor8u* block) {
  return reinterpret_cast<Toy*>((reinterpret_cast<std::uintptr_t>(block) + 15) & ~std::uintptr_t{15});
}
std::vector<void*> lost;  // by the toy's faults, on purpose
kit::Object<Toy> toy(Fault fault) {
  const auto build = [=](Toy** out, Zor8u* block, Zor8u* start, Zor32s owns) {
    Toy* const made = placed(block);
    made->tag = toyTag;
    made->owns = owns;
    if (fault != Fault::readsStaleMemory) made->stale = 7;
    start[0] = 9;
    made->start = fault == Fault::keepsTheInitBuffer ? start : nullptr;
    if (fault == Fault::writesPastTheBlock) block[48] = 1;
    *out = made;
    return zorStatusOk;
  };
  const auto bad = [=](Toy* made) { return fault != Fault::ignoresTheTag && made->tag != toyTag; };
  return {
      .name = "a toy",
      .getSize =
          [](Zor32s* block, Zor32s* init, Zor32s* work) {
            *block = 48;
            *init = 8;
            *work = 4;
            return zorStatusOk;
          },
      .init = [=](Toy** out, Zor8u* block, Zor8u* start) { return build(out, block, start, 0); },
      .initAlloc =
          [=](Toy** out) {
            Zor8u* const block = zorsMalloc_8u(64);
            if (fault == Fault::writesThePointerOnFailure) *out = nullptr;
            if (block == nullptr) return zorStatusNoMemory;
            Zor8u* const start = zorsMalloc_8u(8);
            if (start == nullptr) {
              if (fault == Fault::leaksOnFailure)
                lost.push_back(block);
              else
                zorsFree(block);
              return zorStatusNoMemory;
            }
            build(out, block, start, 1);
            if (fault == Fault::keepsTheInitBuffer)
              lost.push_back(start);
            else
              zorsFree(start);
            return zorStatusOk;
          },
      .free =
          [=](Toy* made) {
            if (made == nullptr) return zorStatusNullPointer;
            if (bad(made)) return zorStatusBadContext;
            if (made->owns == 1) {
              if (fault != Fault::keepsTheTag) made->tag = 0;
              zorsFree(made);
            }
            return zorStatusOk;
          },
      .outBytes = 4,
      .run =
          [=](Toy* made, Zor8u* work, Zor8u* out) {
            if (bad(made)) return zorStatusBadContext;
            if (fault == Fault::writesOnFailure) out[0] = 1;
            Zor8u* const own = work == nullptr ? zorsMalloc_8u(4) : nullptr;
            if (work == nullptr && own == nullptr) return zorStatusNoMemory;
            std::memset(out, made->start == nullptr ? made->stale : made->start[0], 4);
            if (fault == Fault::leaksWork)
              lost.push_back(own);
            else
              zorsFree(own);
            return zorStatusOk;
          },
  };
}
TEST(Object, NoticesEachFaultOfAnObject) {
  const auto said = [](Fault fault) { return failuresOf([=] { kit::checkObject(toy(fault)); }); };
  using testing::IsSubstring;
  EXPECT_EQ(said(Fault::none), "");
  EXPECT_PRED_FORMAT2(IsSubstring, "wrote outside", said(Fault::writesPastTheBlock));
  EXPECT_PRED_FORMAT2(IsSubstring, "other results", said(Fault::readsStaleMemory));
  EXPECT_PRED_FORMAT2(IsSubstring, "Free kept memory", said(Fault::keepsTheInitBuffer));
  EXPECT_PRED_FORMAT2(IsSubstring, "memory kept", said(Fault::leaksOnFailure));
  EXPECT_PRED_FORMAT2(IsSubstring, "wrote the pointer", said(Fault::writesThePointerOnFailure));
  EXPECT_PRED_FORMAT2(IsSubstring, "run, tag", said(Fault::ignoresTheTag));
  EXPECT_PRED_FORMAT2(IsSubstring, "a second Free", said(Fault::keepsTheTag));
  EXPECT_PRED_FORMAT2(IsSubstring, "outputs written", said(Fault::writesOnFailure));
  EXPECT_PRED_FORMAT2(IsSubstring, "a call kept memory", said(Fault::leaksWork));
  for (void* block : lost) zorsFree(block);
  lost.clear();
}

// Running sums; `fault` is the number of pieces after which the sum is lost, or the piece's length at which it is.
kit::Stream<Zor16s, Zor32s> sums(int lostAfterPieces, int lostAtLength) {
  struct State {
    Zor32s sum = 0;
    int pieces = 0;
  };
  std::vector<Zor16s> input(200);
  for (std::size_t i = 0; i < input.size(); ++i) input[i] = Zor16s(i * i % 77);
  return {.name = "running sums",
          .input = input,
          .open =
              [=] {
                const auto state = std::make_shared<State>();
                return kit::Channel<Zor16s, Zor32s>{
                    .process =
                        [=](const Zor16s* src, Zor32s* dst, Zor32s steps) {
                          for (Zor32s i = 0; i < steps; ++i) dst[i] = state->sum += src[i];
                          if (++state->pieces == lostAfterPieces || steps == lostAtLength) state->sum = 0;
                          return zorStatusOk;
                        },
                    .history = [=] { return kit::bytesOf(std::vector<Zor32s>{state->sum}); }};
              },
          .lengths = {50}};
}
TEST(Stream, NoticesAStateThatOneOfItsPiecesLoses) {
  const auto said = [](int pieces, int length) { return failuresOf([=] { kit::checkStream(sums(pieces, length)); }); };
  EXPECT_EQ(said(-1, -1), "");
  EXPECT_PRED_FORMAT2(testing::IsSubstring, "cut into 1s", said(3, -1));
  EXPECT_PRED_FORMAT2(testing::IsSubstring, "cut into 50s", said(-1, 50));
  EXPECT_PRED_FORMAT2(testing::IsSubstring, "another history", said(1, -1));
}

}  // namespace
