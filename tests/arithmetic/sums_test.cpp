// Sums and differences of two vectors.
#include "kit/scale_model.h"
#include "zors/arithmetic.h"

namespace {

using scale::contract;
using scale::Exact;
using scale::First;
using scale::members;
using scale::membersInPlace;
using scale::ruleAt;

constexpr std::size_t longCount = 1 << 15;

// Ties of sums that are not negative, of operands that are not both positive, give 0 at 2 to 63; from 64 on all give 0.
auto add64At(Zor32s s) {
  return [s](Zor64s a, Zor64s b) -> Zor64s {
    const Exact sum = Exact{a} + b;
    if (s >= 64) return 0;
    if (s >= 2 && sum >= 0 && !(a > 0 && b > 0) && (sum & ((Exact{1} << s) - 1)) == Exact{1} << (s - 1)) return 0;
    return scale::scaled<Zor64s>(sum, s);
  };
}

TEST(Add, FollowsTheScaleRule) {
  const scale::Plus plus;
  members("zorsAdd_8u_Sfs", zorsAdd_8u_Sfs, ruleAt<Zor8u>(plus));
  members("zorsAdd_16s_Sfs", zorsAdd_16s_Sfs, ruleAt<Zor16s>(plus));
  members("zorsAdd_16u_Sfs", zorsAdd_16u_Sfs, ruleAt<Zor16u>(plus));
  members("zorsAdd_32s_Sfs", zorsAdd_32s_Sfs, ruleAt<Zor32s>(plus));
  members("zorsAdd_16sc_Sfs", zorsAdd_16sc_Sfs, ruleAt<Zor16sc>(plus));
  members("zorsAdd_32sc_Sfs", zorsAdd_32sc_Sfs, ruleAt<Zor32sc>(plus));
  members("zorsAdd_64s_Sfs", zorsAdd_64s_Sfs, add64At);
  membersInPlace("zorsAdd_8u_ISfs", zorsAdd_8u_ISfs, ruleAt<Zor8u>(plus));
  membersInPlace("zorsAdd_16s_ISfs", zorsAdd_16s_ISfs, ruleAt<Zor16s>(plus));
  membersInPlace("zorsAdd_16u_ISfs", zorsAdd_16u_ISfs, ruleAt<Zor16u>(plus));
  membersInPlace("zorsAdd_32s_ISfs", zorsAdd_32s_ISfs, ruleAt<Zor32s>(plus));
  membersInPlace("zorsAdd_16sc_ISfs", zorsAdd_16sc_ISfs, ruleAt<Zor16sc>(plus));
  membersInPlace("zorsAdd_32sc_ISfs", zorsAdd_32sc_ISfs, ruleAt<Zor32sc>(plus));
}
TEST(Sub, FollowsTheScaleRule) {
  const scale::SecondMinusFirst minus;
  members("zorsSub_8u_Sfs", zorsSub_8u_Sfs, ruleAt<Zor8u>(minus));
  members("zorsSub_16s_Sfs", zorsSub_16s_Sfs, ruleAt<Zor16s>(minus));
  members("zorsSub_16u_Sfs", zorsSub_16u_Sfs, ruleAt<Zor16u>(minus));
  members("zorsSub_32s_Sfs", zorsSub_32s_Sfs, ruleAt<Zor32s>(minus));
  members("zorsSub_16sc_Sfs", zorsSub_16sc_Sfs, ruleAt<Zor16sc>(minus));
  members("zorsSub_32sc_Sfs", zorsSub_32sc_Sfs, ruleAt<Zor32sc>(minus));
  membersInPlace("zorsSub_8u_ISfs", zorsSub_8u_ISfs, ruleAt<Zor8u>(minus));
  membersInPlace("zorsSub_16s_ISfs", zorsSub_16s_ISfs, ruleAt<Zor16s>(minus));
  membersInPlace("zorsSub_16u_ISfs", zorsSub_16u_ISfs, ruleAt<Zor16u>(minus));
  membersInPlace("zorsSub_32s_ISfs", zorsSub_32s_ISfs, ruleAt<Zor32s>(minus));
  membersInPlace("zorsSub_16sc_ISfs", zorsSub_16sc_ISfs, ruleAt<Zor16sc>(minus));
  membersInPlace("zorsSub_32sc_ISfs", zorsSub_32sc_ISfs, ruleAt<Zor32sc>(minus));
}

TEST(Add, AllPairsOfBytesAndLongVectorsAtEveryScale) {
  scale::allPairs("zorsAdd_8u_Sfs", zorsAdd_8u_Sfs, ruleAt<Zor8u>(scale::Plus{}));
  scale::longVectors<Zor16s, Zor16s, Zor16s>("zorsAdd_16s_Sfs", zorsAdd_16s_Sfs, ruleAt<Zor16s>(scale::Plus{}),
                                             longCount);
  scale::longVectors<Zor16u, Zor16u, Zor16u>("zorsAdd_16u_Sfs", zorsAdd_16u_Sfs, ruleAt<Zor16u>(scale::Plus{}),
                                             longCount);
  scale::longVectors<Zor32s, Zor32s, Zor32s>("zorsAdd_32s_Sfs", zorsAdd_32s_Sfs, ruleAt<Zor32s>(scale::Plus{}),
                                             longCount);
  scale::longVectors<Zor64s, Zor64s, Zor64s>("zorsAdd_64s_Sfs", zorsAdd_64s_Sfs, add64At, longCount);
}
TEST(Sub, AllPairsOfBytesAndLongVectorsAtEveryScale) {
  const scale::SecondMinusFirst minus;
  scale::allPairs("zorsSub_8u_Sfs", zorsSub_8u_Sfs, ruleAt<Zor8u>(minus));
  scale::longVectors<Zor16s, Zor16s, Zor16s>("zorsSub_16s_Sfs", zorsSub_16s_Sfs, ruleAt<Zor16s>(minus), longCount);
  scale::longVectors<Zor16u, Zor16u, Zor16u>("zorsSub_16u_Sfs", zorsSub_16u_Sfs, ruleAt<Zor16u>(minus), longCount);
  scale::longVectors<Zor32s, Zor32s, Zor32s>("zorsSub_32s_Sfs", zorsSub_32s_Sfs, ruleAt<Zor32s>(minus), longCount);
}

TEST(Add, MembersWithoutScaleSaturateOrWiden) {
  const auto plus = []<class D>(std::type_identity<D>) {
    return [](auto a, auto b) { return scale::saturated<D>(Exact{a} + b); };
  };
  kit::sweep<Zor16s, Zor16s, Zor16s>("zorsAdd_16s", zorsAdd_16s, plus(std::type_identity<Zor16s>{}));
  kit::sweep<Zor16u, Zor16u, Zor16u>("zorsAdd_16u", zorsAdd_16u, plus(std::type_identity<Zor16u>{}));
  kit::sweep<Zor32u, Zor32u, Zor32u>("zorsAdd_32u", zorsAdd_32u, plus(std::type_identity<Zor32u>{}));
  kit::sweep<Zor16u, Zor8u, Zor8u>("zorsAdd_8u16u", zorsAdd_8u16u, plus(std::type_identity<Zor16u>{}));
  kit::sweepInPlace<Zor16s, Zor16s>("zorsAdd_16s_I", zorsAdd_16s_I, plus(std::type_identity<Zor16s>{}));
  kit::sweepInPlace<Zor32s, Zor16s>("zorsAdd_16s32s_I", zorsAdd_16s32s_I, plus(std::type_identity<Zor32s>{}));
  kit::sweep<Zor32f, Zor16s, Zor16s>("zorsAdd_16s32f", zorsAdd_16s32f,
                                     [](Zor16s a, Zor16s b) { return Zor32f(a + b); });
}
TEST(Sub, MembersWithoutScaleSaturateOrWiden) {
  const auto minus = [](Zor16s a, Zor16s b) { return scale::saturated<Zor16s>(Exact{b} - a); };
  kit::sweep<Zor16s, Zor16s, Zor16s>("zorsSub_16s", zorsSub_16s, minus);
  kit::sweepInPlace<Zor16s, Zor16s>("zorsSub_16s_I", zorsSub_16s_I, minus);
  kit::sweep<Zor32f, Zor16s, Zor16s>("zorsSub_16s32f", zorsSub_16s32f,
                                     [](Zor16s a, Zor16s b) { return Zor32f(b - a); });
}

template <class T> T plus(T a, T b) {
  if constexpr (kit::ComplexPair<T>)
    return {a.re + b.re, a.im + b.im};
  else
    return a + b;
}
template <class T> T minus(T a, T b) {
  if constexpr (kit::ComplexPair<T>)
    return {b.re - a.re, b.im - a.im};
  else
    return b - a;
}
TEST(Add, FloatsRoundOnceInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor32f, Zor32f, Zor32f>("zorsAdd_32f", zorsAdd_32f, plus<Zor32f>);
    kit::sweep<Zor64f, Zor64f, Zor64f>("zorsAdd_64f", zorsAdd_64f, plus<Zor64f>);
    kit::sweep<Zor32fc, Zor32fc, Zor32fc>("zorsAdd_32fc", zorsAdd_32fc, plus<Zor32fc>);
    kit::sweep<Zor64fc, Zor64fc, Zor64fc>("zorsAdd_64fc", zorsAdd_64fc, plus<Zor64fc>);
    kit::sweepInPlace<Zor32f, Zor32f>("zorsAdd_32f_I", zorsAdd_32f_I, plus<Zor32f>);
    kit::sweepInPlace<Zor64f, Zor64f>("zorsAdd_64f_I", zorsAdd_64f_I, plus<Zor64f>);
    kit::sweepInPlace<Zor32fc, Zor32fc>("zorsAdd_32fc_I", zorsAdd_32fc_I, plus<Zor32fc>);
    kit::sweepInPlace<Zor64fc, Zor64fc>("zorsAdd_64fc_I", zorsAdd_64fc_I, plus<Zor64fc>);
  }
}
TEST(Sub, FloatsRoundOnceInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor32f, Zor32f, Zor32f>("zorsSub_32f", zorsSub_32f, minus<Zor32f>);
    kit::sweep<Zor64f, Zor64f, Zor64f>("zorsSub_64f", zorsSub_64f, minus<Zor64f>);
    kit::sweep<Zor32fc, Zor32fc, Zor32fc>("zorsSub_32fc", zorsSub_32fc, minus<Zor32fc>);
    kit::sweep<Zor64fc, Zor64fc, Zor64fc>("zorsSub_64fc", zorsSub_64fc, minus<Zor64fc>);
    kit::sweepInPlace<Zor32f, Zor32f>("zorsSub_32f_I", zorsSub_32f_I, minus<Zor32f>);
    kit::sweepInPlace<Zor64f, Zor64f>("zorsSub_64f_I", zorsSub_64f_I, minus<Zor64f>);
    kit::sweepInPlace<Zor32fc, Zor32fc>("zorsSub_32fc_I", zorsSub_32fc_I, minus<Zor32fc>);
    kit::sweepInPlace<Zor64fc, Zor64fc>("zorsSub_64fc_I", zorsSub_64fc_I, minus<Zor64fc>);
  }
}

template <class S, class D> D one(ZorStatus (*f)(const S*, const S*, D*, Zor32s, Zor32s), S a, S b, Zor32s s) {
  D d{};
  EXPECT_EQ(f(&a, &b, &d, 1, s), zorStatusOk);
  return d;
}
template <class T> T one(ZorStatus (*f)(const T*, const T*, T*, Zor32s), T a, T b) {
  T d{};
  EXPECT_EQ(f(&a, &b, &d, 1), zorStatusOk);
  return d;
}
TEST(Add, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(one<Zor16s>(zorsAdd_16s_Sfs, 3, 4, 1), 4);
  EXPECT_EQ(one<Zor16s>(zorsAdd_16s_Sfs, 2, 3, 1), 2);
  EXPECT_EQ(one<Zor16s>(zorsAdd_16s_Sfs, -2, -3, 1), -2);
}
TEST(Add, SixteenBitSumsVanishAtScaleSeventeen) {
  EXPECT_EQ(one<Zor16s>(zorsAdd_16s_Sfs, 32767, 32767, 17), 0);
  EXPECT_EQ(one<Zor16s>(zorsAdd_16s_Sfs, -32768, -32768, 17), 0);
}
TEST(Add, TiesOf64BitSumsThatAreNotBothPositiveGiveZero) {
  EXPECT_EQ(one<Zor64s>(zorsAdd_64s_Sfs, 3, 3, 2), 2);
  EXPECT_EQ(one<Zor64s>(zorsAdd_64s_Sfs, 0, 6, 2), 0);
  EXPECT_EQ(one<Zor64s>(zorsAdd_64s_Sfs, -3, 9, 2), 0);
  EXPECT_EQ(one<Zor64s>(zorsAdd_64s_Sfs, 0, 7, 2), 2);
}
TEST(Add, SixtyFourBitSumsVanishAtScaleSixtyFour) {
  const std::vector<Zor64s> a(11, INT64_MAX);
  std::vector<Zor64s> d(11, 5);
  EXPECT_EQ(zorsAdd_64s_Sfs(a.data(), a.data(), d.data(), 11, 64), zorStatusOk);
  EXPECT_EQ(d, std::vector<Zor64s>(11, 0));
}
TEST(Sub, TheSecondOperandComesFirst) {
  EXPECT_EQ(one<Zor8u>(zorsSub_8u_Sfs, 5, 3, 0), 0);
  EXPECT_EQ(one<Zor16s>(zorsSub_16s, -32768, 0), 32767);
}

TEST(Add, ChecksPointersThenLengthAndComplexMembersTheOtherWayRound) {
#define CHECK(first, ...) [](auto... f) { (contract(first, #__VA_ARGS__, f), ...); }(__VA_ARGS__)
  CHECK(First::pointers, zorsAdd_8u_Sfs, zorsAdd_16s_Sfs, zorsAdd_16u_Sfs, zorsAdd_32s_Sfs, zorsAdd_64s_Sfs,
        zorsAdd_16s, zorsAdd_16u, zorsAdd_32u, zorsAdd_8u16u, zorsAdd_16s32f, zorsAdd_32f, zorsAdd_64f, zorsAdd_8u_ISfs,
        zorsAdd_16s_ISfs, zorsAdd_16u_ISfs, zorsAdd_32s_ISfs, zorsAdd_16s_I, zorsAdd_16s32s_I, zorsAdd_32f_I,
        zorsAdd_64f_I);
  CHECK(First::length, zorsAdd_16sc_Sfs, zorsAdd_32sc_Sfs, zorsAdd_32fc, zorsAdd_64fc, zorsAdd_16sc_ISfs,
        zorsAdd_32sc_ISfs, zorsAdd_32fc_I, zorsAdd_64fc_I);
  CHECK(First::pointers, zorsSub_8u_Sfs, zorsSub_16s_Sfs, zorsSub_16u_Sfs, zorsSub_32s_Sfs, zorsSub_16s, zorsSub_16s32f,
        zorsSub_32f, zorsSub_64f, zorsSub_8u_ISfs, zorsSub_16s_ISfs, zorsSub_16u_ISfs, zorsSub_32s_ISfs, zorsSub_16s_I,
        zorsSub_32f_I, zorsSub_64f_I);
  CHECK(First::length, zorsSub_16sc_Sfs, zorsSub_32sc_Sfs, zorsSub_32fc, zorsSub_64fc, zorsSub_16sc_ISfs,
        zorsSub_32sc_ISfs, zorsSub_32fc_I, zorsSub_64fc_I);
#undef CHECK
}

}  // namespace
