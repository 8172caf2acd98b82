#include <gtest/gtest.h>

#include <cstring>

#include "kit/services.h"
#include "zors/memory.h"

namespace {

struct Member {
  const char* name;
  void* (*allocate)(Zor32s len);
  std::size_t size;
};
#define MEMBER(name, T)                                                        \
  {                                                                            \
#name, [](Zor32s len) { return static_cast<void*>(name(len)); }, sizeof(T) \
  }
const Member members[] = {
    MEMBER(zorsMalloc_8u, Zor8u),     MEMBER(zorsMalloc_8s, Zor8s),     MEMBER(zorsMalloc_8sc, Zor8sc),
    MEMBER(zorsMalloc_16u, Zor16u),   MEMBER(zorsMalloc_16s, Zor16s),   MEMBER(zorsMalloc_16sc, Zor16sc),
    MEMBER(zorsMalloc_32u, Zor32u),   MEMBER(zorsMalloc_32s, Zor32s),   MEMBER(zorsMalloc_32sc, Zor32sc),
    MEMBER(zorsMalloc_32f, Zor32f),   MEMBER(zorsMalloc_32fc, Zor32fc), MEMBER(zorsMalloc_64s, Zor64s),
    MEMBER(zorsMalloc_64sc, Zor64sc), MEMBER(zorsMalloc_64f, Zor64f),   MEMBER(zorsMalloc_64fc, Zor64fc),
};
#undef MEMBER

TEST(Allocators, GiveAlignedMemoryThatFreeTakesBack) {
  for (const Member& member : members) {
    const kit::ServicesScope services;
    for (int len : {1, 3, 1000}) {
      void* const block = member.allocate(len);
      ASSERT_NE(block, nullptr) << member.name;
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 64, 0u) << member.name;
      EXPECT_EQ(std::size_t(services->lastSize), std::size_t(len) * member.size) << member.name;
      std::memset(block, 1, std::size_t(len) * member.size);
      zorsFree(block);
    }
    EXPECT_EQ(services.leaked(), 0) << member.name;
  }
}

TEST(Allocators, LengthsBelowOneGiveNullWithoutACall) {
  for (const Member& member : members) {
    const kit::ServicesScope services;
    services->lastSize = 77;
    for (int len : {0, -1, INT32_MIN}) EXPECT_EQ(member.allocate(len), nullptr) << member.name;
    EXPECT_EQ(services->lastSize, 77) << member.name;
  }
}

TEST(Allocators, ExhaustedMemoryGivesNull) {
  for (const Member& member : members) {
    const kit::ServicesScope services;
    services->failAt = 0;
    EXPECT_EQ(member.allocate(5), nullptr) << member.name;
    EXPECT_EQ(services->failAt, -1) << member.name;
  }
}

// The bytes that zorMalloc is asked for, without their being given.
Zor32s requested(const char* name, Zor32s len) {
  for (const Member& member : members)
    if (std::strcmp(member.name, name) == 0) {
      const kit::ServicesScope services;
      services->lastSize = 77;
      services->failAt = 0;
      member.allocate(len);
      return services->lastSize;
    }
  return -1;
}

TEST(Allocators, TheByteCountWrapsInThirtyTwoBits) {
  EXPECT_EQ(requested("zorsMalloc_64fc", 0x10000000), 0);
  EXPECT_EQ(requested("zorsMalloc_64fc", 0x10000001), 16);
  EXPECT_EQ(requested("zorsMalloc_64fc", 0x08000000), INT32_MIN);
  EXPECT_EQ(requested("zorsMalloc_64f", 0x20000001), 8);
  EXPECT_EQ(requested("zorsMalloc_32f", 0x40000001), 4);
  EXPECT_EQ(requested("zorsMalloc_16s", INT32_MAX), -2);
  EXPECT_EQ(requested("zorsMalloc_8u", INT32_MAX), INT32_MAX);
  EXPECT_EQ(zorsMalloc_16s(INT32_MAX), nullptr);  // a negative count
}

TEST(Allocators, FreeOfNullDoesNothing) {
  const kit::ServicesScope services;
  zorsFree(nullptr);
  EXPECT_EQ(services.leaked(), 0);
}

}  // namespace
