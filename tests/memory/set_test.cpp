#include "memory/cache.h"
#include "kit/blocks.h"
#include "kit/contract.h"
#include "kit/services.h"
#include "exports/memory.h"

namespace zors {
// This program's set.cpp asks here.
static Zor64s describedCache = 0;
Zor64s largestDescribedCache() { return describedCache; }
}  // namespace zors

namespace {

using kit::Bytes;

struct Member {
  std::string name;
  Bytes value;
  std::function<ZorStatus(void* dst, Zor32s len)> call;
  std::size_t size() const { return value.size(); }
};
template <class T, class Call> Member member(const char* name, T val, Call call) {
  Bytes value(sizeof(T));
  std::memcpy(value.data(), &val, sizeof(T));
  return {name, value, [=](void* dst, Zor32s len) { return call(static_cast<T*>(dst), len); }};
}
template <class T> Member byValue(const char* name, ZorStatus (*set)(T, T*, Zor32s), T val) {
  return member<T>(name, val, [=](T* dst, Zor32s len) { return set(val, dst, len); });
}
template <class T> Member byPointer(const char* name, ZorStatus (*set)(const T*, T*, Zor32s), T val) {
  return member<T>(name, val, [=](T* dst, Zor32s len) { return set(&val, dst, len); });
}

const Member members[] = {
    byValue<Zor8u>("zorsSet_8u", zorsSet_8u, 0xA1),
    byValue<Zor16s>("zorsSet_16s", zorsSet_16s, 0x1234),
    byValue<Zor16sc>("zorsSet_16sc", zorsSet_16sc, {0x1234, -2}),
    byValue<Zor32s>("zorsSet_32s", zorsSet_32s, 0x12345678),
    byValue<Zor32sc>("zorsSet_32sc", zorsSet_32sc, {0x12345678, -2}),
    byValue<Zor32f>("zorsSet_32f", zorsSet_32f, 1.1f),
    byValue<Zor32fc>("zorsSet_32fc", zorsSet_32fc, {1.1f, 2.2f}),
    byValue<Zor64s>("zorsSet_64s", zorsSet_64s, 0x123456789ABCDEF0),
    byPointer<Zor64sc>("zorsSet_64sc", zorsSet_64sc, {0x123456789ABCDEF0, -3}),
    byValue<Zor64f>("zorsSet_64f", zorsSet_64f, 1.1),
    byPointer<Zor64fc>("zorsSet_64fc", zorsSet_64fc, {1.1, 2.2}),
};

std::string wrong(const Member& set, std::span<const Zor8u> dst) {
  for (std::size_t i = 0; i < dst.size(); ++i)
    if (dst[i] != set.value[i % set.size()])
      return set.name + ": byte " + std::to_string(i) + " of " + std::to_string(dst.size());
  return "";
}
void checkSet(const Member& set, int len, kit::Edge edge, std::size_t offset) {
  const kit::Guarded<Zor8u> dst(std::size_t(len) * set.size(), edge, offset);
  ASSERT_EQ(set.call(dst.data(), len), zorStatusOk);
  ASSERT_EQ(wrong(set, dst.span()), "") << "offset " << offset;
  ASSERT_TRUE(dst.intact()) << set.name;
}

TEST(Set, EveryLengthAndAlignment) {
  for (const Member& set : members)
    for (int len : kit::blockLengths(int(set.size())))
      for (kit::Edge edge : kit::bothEdges)
        for (std::size_t offset : {0u, 1u, 2u, 3u, 4u, 8u, 12u, 16u, 31u}) checkSet(set, len, edge, offset);
}

TEST(Set, ChecksPointersThenLength) {
  for (const Member& set : members) {
    const Bytes before(64, 7);
    Bytes dst = before;
    for (int len : {0, -1, INT32_MIN}) EXPECT_EQ(set.call(dst.data(), len), zorStatusBadSize);
    EXPECT_EQ(set.call(nullptr, 0), zorStatusNullPointer);
    EXPECT_EQ(set.call(nullptr, 1), zorStatusNullPointer);
    EXPECT_EQ(dst, before);
  }
  const Zor64fc one{1, 1};
  std::vector<Zor64fc> dst(2, Zor64fc{3, 4});
  kit::Contract(zorsSet_64fc, &one, dst.data(), 2)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsSet_64fc");
}

// How often the call asks for the cache's size.
long queries(const Member& set, std::size_t len, std::size_t offset = 0) {
  const kit::ServicesScope services;
  Bytes dst(len * set.size() + offset + 64);
  Zor8u* const start = dst.data() + (64 - reinterpret_cast<std::uintptr_t>(dst.data()) % 64) % 64 + offset;
  set.call(start, Zor32s(len));
  return services->cacheQueries;
}

TEST(Set, TheCacheIsAskedForAboveTwoMebibytesOfAlignedItemsOnly) {
  for (const Member& set : members) {
    const std::size_t most = 0x200000 / set.size();
    EXPECT_EQ(queries(set, most), 0) << set.name;
    EXPECT_EQ(queries(set, most + 1), set.size() == 16 ? 0 : 1) << set.name;
    for (std::size_t offset = 1; offset < 9; ++offset)
      EXPECT_EQ(queries(set, most + 1, offset), set.size() == 16 || offset % set.size() != 0 ? 0 : 1)
          << set.name << ", " << offset;
  }
}

TEST(Set, WhateverTheCacheAnswersTheVectorIsSet) {
  struct Answer {
    int status, size;
  };
  for (const Member& set : members)
    for (const Answer answer : {Answer{0, 1}, {0, 0}, {0, -1}, {0, INT32_MIN}, {0, INT32_MAX}, {-1, 1}, {1, 1}}) {
      const kit::ServicesScope services;
      services->cacheStatus = answer.status;
      services->cacheSize = answer.size;
      for (std::size_t offset : {0u, 8u, 16u, 40u})
        checkSet(set, 0x200000 / int(set.size()) + 3, kit::Edge::begin, offset);
    }
}

TEST(Set, PairsAtHalfAnItemAreSplitAroundTheAlignedRest) {
  const Member set = byPointer<Zor64fc>("zorsSet_64fc", zors::zorsSet_64fc, {1.1, 2.2});
  for (Zor64s cache : {Zor64s{0}, Zor64s{1} << 19, Zor64s{1} << 20, (Zor64s{1} << 20) + 16, Zor64s{1} << 24}) {
    zors::describedCache = cache;
    for (int len : {1, 2, 3, 5, 0x10000, 0x10001, 0x10002, 0x10003, 0x10010})
      for (kit::Edge edge : kit::bothEdges)
        for (std::size_t offset : {0u, 8u, 16u, 24u, 4u, 1u}) checkSet(set, len, edge, offset);
  }
}

TEST(Set, SignallingNansStayAndRaiseNoFlag) {
  const auto val = std::bit_cast<Zor32f>(0x7F800001u);
  std::vector<Zor32u> dst(100);
  _mm_setcsr(_mm_getcsr() & ~unsigned{_MM_EXCEPT_MASK});
  zorsSet_32f(val, reinterpret_cast<Zor32f*>(dst.data()), 100);
  EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, 0u);
  EXPECT_EQ(dst, std::vector<Zor32u>(100, 0x7F800001u));
}

TEST(CacheDescriptors, TheLargestDescribedCacheWins) {
  using zors::largestCache;
  constexpr Zor64s kib = 1024, mib = 1024 * kib;
  EXPECT_EQ(largestCache({0x01, 0, 0, 0}), 0);  // none named
  EXPECT_EQ(largestCache({0x4301, 0, 0, 0}), 512 * kib);
  EXPECT_EQ(largestCache({0x01, 0, 0x00EC0000, 0x43}), 24 * mib);
  EXPECT_EQ(largestCache({0x01, 0xEB, 0x4D, 0}), 18 * mib);
  EXPECT_EQ(largestCache({0x01, 0, 0x4D4C0000, 0}), 16 * mib);
  EXPECT_EQ(largestCache({0x01, 0x4C, 0, 0}), 12 * mib);
  EXPECT_EQ(largestCache({0x01, 0xE4, 0, 0}), 8 * mib);
  EXPECT_EQ(largestCache({0x01, 0x4E, 0, 0}), 6 * mib);
  EXPECT_EQ(largestCache({0x01, 0x29, 0, 0}), 4 * mib);
  EXPECT_EQ(largestCache({0x01, 0x48, 0, 0}), 3 * mib);
  EXPECT_EQ(largestCache({0x01, 0x7D, 0, 0}), 2 * mib);
  EXPECT_EQ(largestCache({0x01, 0x78, 0, 0}), 1 * mib);
  EXPECT_EQ(largestCache({0x02, 0xEC, 0, 0}), 0);                   // the leaf would have to be read twice
  EXPECT_EQ(largestCache({0x01, 0x800000EC, 0x43, 0}), 512 * kib);  // a register that holds no descriptors
  EXPECT_EQ(largestCache({0x80004301, 0, 0, 0}), 0);
  EXPECT_EQ(largestCache({0x01, 0x12345678 & 0x7FFFFFFF, 0, 0}), 1 * mib);  // 0x78
  EXPECT_EQ(largestCache({0x01, 0xFF, 0, 0}), 0);                           // told elsewhere
}

}  // namespace
