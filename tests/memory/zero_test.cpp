#include "kit/blocks.h"
#include "kit/services.h"
#include "zors/memory.h"

namespace {

using kit::BlockMember;
using kit::Bytes;

const BlockMember members[] = {
    {"zorsZero_8u", zorsZero_8u},     {"zorsZero_16s", zorsZero_16s},   {"zorsZero_16sc", zorsZero_16sc},
    {"zorsZero_32s", zorsZero_32s},   {"zorsZero_32sc", zorsZero_32sc}, {"zorsZero_32f", zorsZero_32f},
    {"zorsZero_32fc", zorsZero_32fc}, {"zorsZero_64s", zorsZero_64s},   {"zorsZero_64sc", zorsZero_64sc},
    {"zorsZero_64f", zorsZero_64f},   {"zorsZero_64fc", zorsZero_64fc},
};
Bytes zeros(const Bytes& bytes) { return Bytes(bytes.size()); }

TEST(Zero, EveryLengthAndAlignment) {
  for (const auto& member : members)
    kit::checkBlocks(member, kit::blockLengths(member.size), {0, 1, 2, 4, 8, 15, 16, 31}, zeros);
}
TEST(Zero, ChecksPointerThenLength) {
  for (const auto& member : members) kit::checkBlockContract(member, false);
}

TEST(Zero, UpToTwoMebibytesTheCacheIsNotAskedFor) {
  for (const auto& member : members) {
    const kit::ServicesScope services;
    const int len = 0x200000 / member.size;
    Bytes dst(0x200010);
    member.call(nullptr, dst.data(), len);
    EXPECT_EQ(services->cacheQueries, 0) << member.name;
    member.call(nullptr, dst.data(), len + 1);
    EXPECT_EQ(services->cacheQueries, 1) << member.name;
  }
}

TEST(Zero, BothPathsClearTheSameBytes) {
  for (int size : {1, 0x200001, 0x200002, INT32_MAX})
    for (int tail : {0, 1, 7, 15, 31, 48, 63})
      for (std::size_t offset : {0u, 1u, 24u, 63u}) {
        const kit::ServicesScope services;
        services->cacheSize = size;
        const std::size_t bytes = std::size_t(0x200001 + tail);
        const kit::Guarded<Zor8u> dst(bytes, kit::Edge::begin, offset);
        ASSERT_EQ(zorsZero_8u(dst.data(), Zor32s(bytes)), zorStatusOk);
        EXPECT_EQ(services->cacheQueries, 1);
        ASSERT_TRUE(std::all_of(dst.data(), dst.data() + bytes, [](Zor8u x) { return x == 0; }))
            << size << ", " << tail << ", " << offset;
        ASSERT_TRUE(dst.intact());
      }
}

TEST(Zero, AFailedCacheQueryIsNoError) {
  for (int status : {-1, 1}) {
    const kit::ServicesScope services;
    services->cacheStatus = status;
    services->cacheSize = 1;
    Bytes dst(0x200001, 1);
    EXPECT_EQ(zorsZero_8u(dst.data(), 0x200001), zorStatusOk);
    EXPECT_EQ(dst, Bytes(dst.size()));
  }
}

TEST(Zero, AByteCountThatWrapsIsTakenAsItIs) {
  std::vector<Zor64f> dst(4, 1.0);
  EXPECT_EQ(zorsZero_64f(dst.data(), 0x20000001), zorStatusOk);  // 2^32 + 8 bytes
  EXPECT_EQ(dst, (std::vector<Zor64f>{0, 1, 1, 1}));
  EXPECT_EQ(zorsZero_64f(dst.data(), 0x10000000), zorStatusOk);  // -2^31 bytes
  EXPECT_EQ(dst, (std::vector<Zor64f>{0, 1, 1, 1}));
}

}  // namespace
