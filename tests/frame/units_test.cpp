// The pieces that all folders build on, alone.
#include <gtest/gtest.h>

#include <climits>

#include "frame/check.h"
#include "frame/tags.h"
#include "frame/memory.h"
#include "frame/rounding.h"
#include "kit/elementwise.h"
#include "kit/services.h"
#include "zors/types.h"

namespace {

using zors::check;
using zors::tag;

struct State {
  zors::Tag tag;
};

TEST(Check, TheFirstFaultInTheOrderWrittenWins) {
  const int x = 0;
  const int* const null = nullptr;
  const auto work = [] {};
  EXPECT_EQ(check().then(work), zorStatusOk);
  EXPECT_EQ(check().pointers(&x, null).size(0).then(work), zorStatusNullPointer);
  EXPECT_EQ(check().size(0).pointers(null).then(work), zorStatusBadSize);
  EXPECT_EQ(
      check().pointers(&x).size(1).require(false, zorStatusBadArgument).require(false, zorStatusBadFlag).then(work),
      zorStatusBadArgument);
}
TEST(Check, WorkIsDoneOnlyWhereAllHolds) {
  int calls = 0;
  check().size(-1).then([&] { ++calls; });
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(check().size(1).then([&] {
    ++calls;
    return zorWarningDivideByZero;
  }),
            zorWarningDivideByZero);
  EXPECT_EQ(calls, 1);
}
TEST(Check, AStateIsReadOnlyWhereItsPointerHeld) {
  const State state{tag("FI01")};
  const State* const null = nullptr;
  EXPECT_EQ(tag("FI01"), 0x46493031u);
  EXPECT_EQ(check().pointers(&state).state(&state, tag("FI01"), tag("FI03")).then([] {}), zorStatusOk);
  EXPECT_EQ(check().pointers(&state).state(&state, tag("FI03"), 4).size(0).then([] {}), zorStatusBadContext);
  EXPECT_EQ(check().pointers(null).state(null, tag("FI01")).then([] {}), zorStatusNullPointer);
}

TEST(Layout, GivesAlignedPiecesThatDoNotOverlapWithinTheSizeItReports) {
  const auto lay = [](zors::Layout& block) {
    return std::tuple{block.take<Zor8u>(1), block.take<Zor64f>(3), block.take<Zor32f>(17), block.take<Zor8u>(0),
                      block.take<Zor16s>(5)};
  };
  for (std::size_t alignment : {16u, 32u, 64u}) {
    zors::Layout sizes(alignment);
    EXPECT_EQ(std::get<0>(lay(sizes)), nullptr);
    std::vector<Zor8u> memory(sizes.size() + 64);
    for (std::size_t offset = 0; offset < 64; ++offset) {
      zors::Layout block(alignment, memory.data() + offset);
      const auto [a, b, c, d, e] = lay(block);
      for (auto address : {reinterpret_cast<std::uintptr_t>(a), reinterpret_cast<std::uintptr_t>(b),
                           reinterpret_cast<std::uintptr_t>(c), reinterpret_cast<std::uintptr_t>(e)})
        EXPECT_EQ(address % alignment, 0u);
      EXPECT_GE(a, memory.data() + offset);
      EXPECT_GE(reinterpret_cast<Zor8u*>(b), a + 1);
      EXPECT_GE(reinterpret_cast<Zor8u*>(c), reinterpret_cast<Zor8u*>(b + 3));
      EXPECT_EQ(d, reinterpret_cast<Zor8u*>(e));
      EXPECT_LE(reinterpret_cast<Zor8u*>(e + 5), memory.data() + offset + block.size());
      EXPECT_EQ(block.size(), sizes.size());
    }
  }
}

TEST(Scratch, IsTheCallersBufferAlignedOrOneThatGoesWithTheScope) {
  std::vector<Zor8u> memory(200);
  for (std::size_t offset = 0; offset < 64; ++offset) {
    const zors::Scratch work(memory.data() + offset, 64);
    EXPECT_TRUE(work);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(work.data()) % 64, 0u);
    EXPECT_GE(work.data(), memory.data() + offset);
    EXPECT_LT(work.data(), memory.data() + offset + 64);
  }
  const kit::ServicesScope services;
  {
    const zors::Scratch work(1000);
    ASSERT_TRUE(work);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(work.data()) % 64, 0u);
    std::memset(work.data(), 1, 1000);
    EXPECT_EQ(services.leaked(), 1);
  }
  EXPECT_EQ(services.leaked(), 0);
}
TEST(Scratch, OfNoBytesNeedsNoMemory) {
  const kit::ServicesScope services;
  EXPECT_TRUE(zors::Scratch(0));
  EXPECT_EQ(services->allocations, 0);
}
TEST(Scratch, IsFalseWhereMemoryIsExhaustedOrTheSizeBeyondAllReason) {
  const kit::ServicesScope services;
  services->failAt = 0;
  EXPECT_FALSE(zors::Scratch(1000));
  EXPECT_FALSE(zors::Scratch(std::size_t{1} << 31));
  EXPECT_EQ(services.leaked(), 0);
}

TEST(RoundingScope, SetsTheDirectionAndPutsTheWordBack) {
  const unsigned saved = _mm_getcsr();
  for (unsigned outer : kit::allDirections) {
    _mm_setcsr((saved & ~unsigned{_MM_ROUND_MASK | _MM_MASK_INVALID | _MM_EXCEPT_MASK}) | outer);
    const unsigned before = _mm_getcsr();
    for (auto direction : {zors::RoundingScope::nearest, zors::RoundingScope::down, zors::RoundingScope::up,
                           zors::RoundingScope::towardZero}) {
      const zors::RoundingScope scope(direction);
      EXPECT_EQ(_mm_getcsr(), (before & ~unsigned{_MM_ROUND_MASK}) | direction | _MM_MASK_INVALID);
    }
    EXPECT_EQ(_mm_getcsr(), before);
    {
      const zors::InvalidMaskedScope scope;
      EXPECT_EQ(_mm_getcsr(), before | _MM_MASK_INVALID);
    }
    EXPECT_EQ(_mm_getcsr(), before);
  }
  _mm_setcsr(saved);
}
TEST(RoundingScope, ExceptionsRaisedInsideStayRecorded) {
  const unsigned saved = _mm_getcsr();
  _mm_setcsr((saved | _MM_MASK_INVALID) & ~unsigned{_MM_EXCEPT_MASK});
  {
    const zors::RoundingScope scope(zors::RoundingScope::up);
    _mm_setcsr(_mm_getcsr() | _MM_EXCEPT_INEXACT);
  }
  EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, unsigned{_MM_EXCEPT_INEXACT});
  EXPECT_EQ(_mm_getcsr() & _MM_ROUND_MASK, saved & _MM_ROUND_MASK);
  _mm_setcsr(saved);
}

}  // namespace
