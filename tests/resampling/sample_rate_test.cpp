#include "zors/resampling.h"

#include <gtest/gtest.h>

#include <bit>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"

namespace {

using kit::Edge;
using kit::Guarded;

// A member with its elements as bytes, so that all run through one loop.
struct Member {
  std::string name;
  int size;
  std::function<ZorStatus(const Zor8u* src, Zor32s srcLen, Zor8u* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase)>
      call;
  template <class T>
  Member(const char* exportName, ZorStatus (*f)(const T*, Zor32s, T*, Zor32s*, Zor32s, Zor32s*))
      : name(exportName),
        size(sizeof(T)),
        call([f](const Zor8u* src, Zor32s srcLen, Zor8u* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase) {
          return f(reinterpret_cast<const T*>(src), srcLen, reinterpret_cast<T*>(dst), dstLen, factor, phase);
        }) {}
};
const Member ups[] = {{"zorsSampleUp_16s", zorsSampleUp_16s}, {"zorsSampleUp_16sc", zorsSampleUp_16sc},
                      {"zorsSampleUp_32f", zorsSampleUp_32f}, {"zorsSampleUp_32fc", zorsSampleUp_32fc},
                      {"zorsSampleUp_64f", zorsSampleUp_64f}, {"zorsSampleUp_64fc", zorsSampleUp_64fc}};
const Member downs[] = {{"zorsSampleDown_16s", zorsSampleDown_16s}, {"zorsSampleDown_16sc", zorsSampleDown_16sc},
                        {"zorsSampleDown_32f", zorsSampleDown_32f}, {"zorsSampleDown_32fc", zorsSampleDown_32fc},
                        {"zorsSampleDown_64f", zorsSampleDown_64f}, {"zorsSampleDown_64fc", zorsSampleDown_64fc}};

std::vector<Zor8u> anyBytes(std::size_t count, kit::Random& random) {
  std::vector<Zor8u> bytes(count);  // of any bits: signalling NaN among them
  for (auto& byte : bytes) byte = Zor8u(random() >> 5);
  return bytes;
}

void checkUp(const Member& member, int len, int factor, int phase, Edge edge, kit::Random& random) {
  const auto size = std::size_t(member.size);
  const Guarded<Zor8u> src(anyBytes(std::size_t(len) * size, random), edge),
      dst(std::size_t(len) * std::size_t(factor) * size, edge);
  std::vector<Zor8u> wanted(dst.size());
  for (int i = 0; i < len; ++i)
    std::copy_n(src.data() + std::size_t(i) * size, size,
                wanted.data() + (std::size_t(i) * std::size_t(factor) + std::size_t(phase)) * size);
  Zor32s dstLen = -5, newPhase = phase;
  const std::string where = member.name + ", len " + std::to_string(len) + ", factor " + std::to_string(factor) +
                            ", phase " + std::to_string(phase);
  ASSERT_EQ(member.call(src.data(), len, dst.data(), &dstLen, factor, &newPhase), zorStatusOk) << where;
  ASSERT_EQ(dstLen, len * factor) << where;
  ASSERT_EQ(newPhase, phase) << where;
  ASSERT_EQ(kit::firstDifference<Zor8u>(dst.span(), wanted), "") << where;
  ASSERT_TRUE(dst.intact()) << where;
}

TEST(SampleUp, PutsZerosAroundEachSample) {
  kit::Random random(1);
  for (const Member& member : ups)
    for (int factor : {1, 2, 3, 4, 5, 6, 7, 8, 12, 15, 16, 17, 31, 100})
      for (int phase : {0, 1, factor / 2, factor - 1}) {
        if (phase >= factor) continue;
        for (int len : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 33, 64, 70, 203})
          for (Edge edge : kit::bothEdges) ASSERT_NO_FATAL_FAILURE(checkUp(member, len, factor, phase, edge, random));
      }
  for (const Member& member : ups) ASSERT_NO_FATAL_FAILURE(checkUp(member, 3, 5000, 4999, Edge::end, random));
}

void checkDown(const Member& member, int len, int factor, int phase, Edge edge, kit::Random& random) {
  const auto size = std::size_t(member.size);
  const Guarded<Zor8u> src(anyBytes(std::size_t(len) * size, random), edge);
  std::vector<Zor8u> wanted;
  int next = phase;
  for (; next < len; next += factor)
    wanted.insert(wanted.end(), src.data() + std::size_t(next) * size, src.data() + std::size_t(next + 1) * size);
  const Guarded<Zor8u> dst(wanted.size(), edge);
  Zor32s dstLen = -5, newPhase = phase;
  const std::string where = member.name + ", len " + std::to_string(len) + ", factor " + std::to_string(factor) +
                            ", phase " + std::to_string(phase);
  ASSERT_EQ(member.call(src.data(), len, dst.data(), &dstLen, factor, &newPhase), zorStatusOk) << where;
  ASSERT_EQ(std::size_t(dstLen) * size, wanted.size()) << where;
  ASSERT_EQ(newPhase, next - len) << where;
  ASSERT_EQ(kit::firstDifference<Zor8u>(dst.span(), wanted), "") << where;
  ASSERT_TRUE(dst.intact()) << where;
}

TEST(SampleDown, TakesEverySoManyth) {
  kit::Random random(2);
  for (const Member& member : downs)
    for (int factor : {1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 100})
      for (int phase : {0, 1, factor / 2, factor - 1}) {
        if (phase >= factor) continue;
        for (int len : {1, 2, 3, 5, 8, 9, 15, 16, 17, 31, 32, 33, 47, 48, 63, 64, 65, 100, 203, 517})
          for (Edge edge : kit::bothEdges) ASSERT_NO_FATAL_FAILURE(checkDown(member, len, factor, phase, edge, random));
      }
}

TEST(SampleDown, TwoFiveEightOfTenAndThePhaseIsOne) {
  const Zor32f src[10] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  Zor32f dst[3];
  Zor32s dstLen, phase = 2;
  ASSERT_EQ(zorsSampleDown_32f(src, 10, dst, &dstLen, 3, &phase), zorStatusOk);
  EXPECT_EQ(dstLen, 3);
  EXPECT_EQ(phase, 1);
  EXPECT_EQ(dst[0], 2);
  EXPECT_EQ(dst[1], 5);
  EXPECT_EQ(dst[2], 8);
}

TEST(SampleDown, APhaseBehindTheBlockTakesNothingAndShrinks) {
  const Zor16s src[4] = {1, 2, 3, 4};
  Zor16s dst[1] = {7};
  Zor32s dstLen = 9, phase = 6;
  ASSERT_EQ(zorsSampleDown_16s(src, 4, dst, &dstLen, 8, &phase), zorStatusOk);
  EXPECT_EQ(dstLen, 0);
  EXPECT_EQ(phase, 2);
  EXPECT_EQ(dst[0], 7);
}

TEST(SampleDown, IndexesBeyondThirtyTwoBitsDoNotWrap) {
  const Zor16s src[10] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  Zor16s dst[1];
  Zor32s dstLen, phase = 3;
  ASSERT_EQ(zorsSampleDown_16s(src, 10, dst, &dstLen, INT32_MAX, &phase), zorStatusOk);
  EXPECT_EQ(dstLen, 1);
  EXPECT_EQ(dst[0], 3);
  EXPECT_EQ(phase, 2147483640);
}

TEST(SampleDown, PiecesOfAStreamGiveWhatOneCallGives) {
  kit::Random random(4);
  for (int factor : {2, 3, 4, 5, 7, 11}) {
    const auto src = kit::signal<Zor32f>(1000, random);
    std::vector<Zor32f> whole(src.size()), pieces(src.size());
    Zor32s wholeLen, phase = factor - 1, done = 0;
    ASSERT_EQ(zorsSampleDown_32f(src.data(), 1000, whole.data(), &wholeLen, factor, &phase), zorStatusOk);
    phase = factor - 1;
    for (int at = 0; at < 1000;) {
      const int len = std::min(1000 - at, 1 + int(random() % 90));
      Zor32s count;
      ASSERT_EQ(zorsSampleDown_32f(src.data() + at, len, pieces.data() + done, &count, factor, &phase), zorStatusOk);
      at += len, done += count;
    }
    EXPECT_EQ(done, wholeLen);
    EXPECT_EQ(pieces, whole);
  }
}

TEST(SampleUp, AFactorOfOneCopiesAndKnowsNoPhaseButZero) {
  const Zor32f src[3] = {1, 2, 3};
  Zor32f dst[3] = {};
  Zor32s dstLen = 77, phase = 1;
  EXPECT_EQ(zorsSampleUp_32f(src, 3, dst, &dstLen, 1, &phase), zorStatusBadPhase);
  EXPECT_EQ(dstLen, 77);
  phase = 0;
  EXPECT_EQ(zorsSampleUp_32f(src, 3, dst, &dstLen, 1, &phase), zorStatusOk);
  EXPECT_EQ(dstLen, 3);
  EXPECT_TRUE(std::equal(src, src + 3, dst));
}

TEST(SampleUp, MoreSamplesThanACountHoldsAreRefused) {
  for (const Member& member : ups) {
    alignas(16) Zor8u src[64] = {}, dst[64];
    std::fill(dst, dst + 64, Zor8u{3});
    Zor32s dstLen = 5, phase = 1;
    for (Zor32s factor : {1 << 29, (1 << 29) + 1, INT32_MAX})
      EXPECT_EQ(member.call(src, 4, dst, &dstLen, factor, &phase), zorStatusNoMemory) << member.name;
    EXPECT_TRUE(dstLen == 5 && phase == 1) << member.name;
    EXPECT_TRUE(std::all_of(dst, dst + 64, [](Zor8u x) { return x == 3; })) << member.name;
  }
}

TEST(SampleRate, ChecksItsArgumentsInOrder) {
  const auto check = [](const Member& member) {
    alignas(16) Zor8u src[64] = {}, dst[256];
    std::fill(dst, dst + 256, Zor8u{3});
    static Zor32s dstLen, phase, badPhase[] = {2, 3, -1, INT32_MIN, INT32_MAX};
    dstLen = 5;
    const auto expect = [&](ZorStatus wanted, const Zor8u* s, Zor32s len, Zor8u* d, Zor32s* dl, Zor32s f, Zor32s* p) {
      phase = 1;
      EXPECT_EQ(member.call(s, len, d, dl, f, p), wanted) << member.name;
      EXPECT_EQ(dstLen, 5) << member.name;
      EXPECT_EQ(phase, 1) << member.name;
    };
    for (Zor32s len : {2, 0, -1})
      for (Zor32s factor : {2, 0}) {
        expect(zorStatusNullPointer, nullptr, len, dst, &dstLen, factor, &phase);
        expect(zorStatusNullPointer, src, len, nullptr, &dstLen, factor, &phase);
        expect(zorStatusNullPointer, src, len, dst, nullptr, factor, &phase);
        expect(zorStatusNullPointer, src, len, dst, &dstLen, factor, nullptr);
        if (len < 1) {
          expect(zorStatusBadSize, src, len, dst, &dstLen, factor, &phase);
          expect(zorStatusBadSize, src, len, dst, &dstLen, factor, badPhase);
        } else if (factor < 1) {
          expect(zorStatusBadSampleFactor, src, len, dst, &dstLen, factor, &phase);
          expect(zorStatusBadSampleFactor, src, len, dst, &dstLen, INT32_MIN, badPhase);
        } else {
          for (auto& bad : badPhase) expect(zorStatusBadPhase, src, len, dst, &dstLen, factor, &bad);
        }
      }
    EXPECT_TRUE(std::all_of(dst, dst + 256, [](Zor8u x) { return x == 3; })) << member.name;
  };
  for (const Member& member : ups) check(member);
  for (const Member& member : downs) check(member);
}

}  // namespace
