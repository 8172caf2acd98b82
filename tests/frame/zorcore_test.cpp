#include "zorcore.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

TEST(Zorcore, MemoryIsAlignedAndWritable) {
  for (int32_t size : {0, 1, 63, 64, 65, 4096, 1 << 20}) {
    void* const block = zorMalloc(size);
    ASSERT_NE(block, nullptr) << size;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 64, 0u) << size;
    std::memset(block, 1, static_cast<std::size_t>(size));
    zorFree(block);
  }
}
TEST(Zorcore, NegativeSizesGiveNull) {
  EXPECT_EQ(zorMalloc(-1), nullptr);
  EXPECT_EQ(zorMalloc(INT32_MIN), nullptr);
}
TEST(Zorcore, FreeOfNullDoesNothing) { zorFree(nullptr); }

TEST(Zorcore, AlignPtrRoundsUpAndNeverDown) {
  std::vector<char> block(256);
  for (int32_t alignment : {1, 2, 16, 32, 64})
    for (std::size_t i = 0; i < 128; ++i) {
      char* const aligned = static_cast<char*>(zorAlignPtr(&block[i], alignment));
      EXPECT_EQ(reinterpret_cast<uintptr_t>(aligned) % uintptr_t(alignment), 0u);
      EXPECT_GE(aligned, &block[i]);
      EXPECT_LT(aligned, &block[i] + alignment);
    }
}

TEST(Zorcore, FeaturesAgreeWithTheCompilersQuery) {
  const uint64_t features = zorGetEnabledCpuFeatures();
  EXPECT_EQ((features & ZOR_CPU_SSE42) != 0, __builtin_cpu_supports("sse4.2") != 0);
  EXPECT_EQ((features & ZOR_CPU_POPCNT) != 0, __builtin_cpu_supports("popcnt") != 0);
  EXPECT_EQ((features & ZOR_CPU_AVX) != 0, __builtin_cpu_supports("avx") != 0);
  EXPECT_EQ((features & ZOR_CPU_AVX2) != 0, __builtin_cpu_supports("avx2") != 0);
  EXPECT_EQ((features & ZOR_CPU_FMA) != 0, __builtin_cpu_supports("fma") != 0);
  EXPECT_EQ((features & ZOR_CPU_BMI2) != 0, __builtin_cpu_supports("bmi2") != 0);
}
TEST(Zorcore, AFeatureIsAvailableWhereAllOfItsBitsAre) {
  const uint64_t features = zorGetEnabledCpuFeatures();
  for (int bit = 0; bit < 64; ++bit)
    EXPECT_EQ(ownGetFeature(uint64_t{1} << bit) != 0, (features >> bit & 1) != 0) << bit;
  EXPECT_NE(ownGetFeature(features), 0);
  EXPECT_EQ(ownGetFeature(~uint64_t{0}), 0);
}

TEST(Zorcore, TheLargestCacheIsNoSmallerThanAFirstLevelOne) {
  int32_t size = 0;
  ASSERT_EQ(zorGetMaxCacheSizeB(&size), 0);
  EXPECT_GE(size, 16 * 1024);
  int32_t again = 0;
  ASSERT_EQ(zorGetMaxCacheSizeB(&again), 0);
  EXPECT_EQ(again, size);
}
TEST(Zorcore, ANullSizeIsRefused) { EXPECT_EQ(zorGetMaxCacheSizeB(nullptr), -8); }

}  // namespace
