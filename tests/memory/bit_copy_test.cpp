#include <algorithm>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/memory.h"

namespace {

using Bytes = std::vector<Zor8u>;
using Copy = ZorStatus (*)(const Zor8u*, Zor32s, Zor8u*, Zor32s, Zor32s);

struct Member {
  const char* name;
  Copy copy;
  int (*position)(int bit);  // of a bit of the string within its byte, from the 0x01 bit up
};
int fromTop(int bit) { return 7 - bit % 8; }
int fromBottom(int bit) { return bit % 8; }
const Member members[] = {
    {"zorsCopy_1u", zorsCopy_1u, fromTop},
    {"zorsCopyLE_1u", zorsCopyLE_1u, fromTop},
    {"zorsCopyBE_1u", zorsCopyBE_1u, fromBottom},
};

// The arrays hold the bytes of wanted bits and no more, next to unreadable pages.
void checkCopy(const Member& member, int srcOffset, int dstOffset, int len, kit::Edge edge, kit::Random& random) {
  const auto bytes = [len](int offset) { return std::size_t((offset % 8 + len + 7) / 8); };
  const kit::Guarded<Zor8u> src(kit::anyValues<Zor8u>(bytes(srcOffset), random), edge, 0);
  const kit::Guarded<Zor8u> dst(kit::anyValues<Zor8u>(bytes(dstOffset), random), edge, 0);
  Bytes wanted = dst.values();
  for (int i = 0; i < len; ++i) {
    const int from = srcOffset % 8 + i, to = dstOffset % 8 + i;
    const int bit = src[std::size_t(from / 8)] >> member.position(from) & 1;
    Zor8u& byte = wanted[std::size_t(to / 8)];
    byte = Zor8u((byte & ~(1 << member.position(to))) | bit << member.position(to));
  }
  ASSERT_EQ(member.copy(src.data(), srcOffset, dst.data(), dstOffset, len), zorStatusOk);
  ASSERT_EQ(kit::firstDifference<Zor8u>(dst.span(), wanted), "")
      << member.name << ", from " << srcOffset << " to " << dstOffset << ", len " << len;
  ASSERT_TRUE(dst.intact()) << member.name;
}

TEST(BitCopy, AllOffsetsAndLengths) {
  kit::Random random(2);
  std::vector<int> lengths{383, 384, 385, 511, 512, 513, 1000, 2049, 4111};
  for (int len = 1; len <= 330; ++len) lengths.push_back(len);
  for (const Member& member : members)
    for (int len : lengths)
      for (int srcOffset = 0; srcOffset < 8; ++srcOffset)
        for (int dstOffset = 0; dstOffset < 8; ++dstOffset)
          checkCopy(member, srcOffset, dstOffset, len, len % 2 == 0 ? kit::Edge::begin : kit::Edge::end, random);
}
TEST(BitCopy, OnlyTheLowThreeBitsOfAnOffsetCount) {
  kit::Random random(3);
  for (const Member& member : members)
    for (int offset : {8, 9, 10, 15, 16, 1000003, INT32_MAX, INT32_MAX - 3}) {
      checkCopy(member, offset, 2, 100, kit::Edge::end, random);
      checkCopy(member, 2, offset, 100, kit::Edge::end, random);
      checkCopy(member, offset, offset, 7, kit::Edge::begin, random);
    }
}
TEST(BitCopy, TheFirstBitIsTheTopOneOrTheBottomOne) {
  const Zor8u src = 0xFF;
  Zor8u dst = 0;
  ASSERT_EQ(zorsCopyBE_1u(&src, 0, &dst, 0, 1), zorStatusOk);
  EXPECT_EQ(dst, 0x01);
  dst = 0;
  ASSERT_EQ(zorsCopyLE_1u(&src, 0, &dst, 0, 1), zorStatusOk);
  EXPECT_EQ(dst, 0x80);
}
TEST(BitCopy, LongStringsFromTheLastByteCount) {
  const std::size_t bytes = std::size_t{1} << 28;  // the longest string has 2^31 - 1 bits
  Bytes src(bytes, 0x55), dst(bytes);
  ASSERT_EQ(zorsCopy_1u(src.data(), 0, dst.data(), 1, INT32_MAX), zorStatusOk);
  EXPECT_EQ(dst.front(), 0x2A);
  EXPECT_TRUE(std::all_of(dst.begin() + 1, dst.end(), [](Zor8u x) { return x == 0xAA; }));
}
TEST(BitCopy, ChecksPointersThenLengthAndOffsets) {
  for (const Member& member : members) {
    Bytes src(8, 1), dst(8, 2);
    kit::Contract(member.copy, src.data(), 1, dst.data(), 2, 20)
        .null<0>()
        .null<2>()
        .bad<4>({0, -1, INT32_MIN}, zorStatusBadSize)
        .bad<1>({-1, -8, INT32_MIN}, zorStatusBadSize)
        .bad<3>({-1, -8, INT32_MIN}, zorStatusBadSize)
        .untouched(dst)
        .verify(member.name);
  }
}

}  // namespace
