#include "kit/blocks.h"
#include "zors/memory.h"

namespace {

using kit::BlockMember;
using kit::Bytes;

const BlockMember members[] = {
    {"zorsMove_8u", zorsMove_8u},     {"zorsMove_16s", zorsMove_16s},   {"zorsMove_16sc", zorsMove_16sc},
    {"zorsMove_32s", zorsMove_32s},   {"zorsMove_32sc", zorsMove_32sc}, {"zorsMove_32f", zorsMove_32f},
    {"zorsMove_32fc", zorsMove_32fc}, {"zorsMove_64s", zorsMove_64s},   {"zorsMove_64sc", zorsMove_64sc},
    {"zorsMove_64f", zorsMove_64f},   {"zorsMove_64fc", zorsMove_64fc},
};
Bytes same(const Bytes& bytes) { return bytes; }

TEST(Move, WithoutOverlapEveryLengthAndAlignment) {
  for (const auto& member : members)
    kit::checkBlocks(member, kit::blockLengths(member.size), {0, 1, 2, 8, 16, 31}, same);
}
TEST(Move, ChecksPointersThenLength) {
  for (const auto& member : members) kit::checkBlockContract(member, true);
}

// One array in which the source starts at `from` and the destination at `to`.
void checkOverlap(const BlockMember& member, int len, std::size_t from, std::size_t to) {
  kit::Random random(from * 1000 + to);
  const std::size_t bytes = std::size_t(len) * std::size_t(member.size);
  const kit::Guarded<Zor8u> array(kit::anyBytes(bytes + std::max(from, to), random), kit::Edge::end, 0);
  Bytes wanted = array.values();
  std::memmove(wanted.data() + to, wanted.data() + from, bytes);
  ASSERT_EQ(member.call(array.data() + from, array.data() + to, len), zorStatusOk);
  ASSERT_EQ(kit::firstDifference<Zor8u>(array.span(), wanted), "")
      << member.name << ", len " << len << ", from " << from << " to " << to;
  ASSERT_TRUE(array.intact());
}

TEST(Move, OverlapGivesWhatACopyPutAsideWouldGive) {
  for (const auto& member : members)
    for (int len : {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 33, 63, 65, 100, 127, 128, 129, 255, 256, 257, 300, 513, 2000})
      for (std::size_t distance :
           {0u, 1u, 2u, 3u, 4u, 8u, 16u, 31u, 32u, 33u, 64u, 127u, 128u, 129u, 255u, 256u, 257u, 300u}) {
        checkOverlap(member, len, 0, distance);
        checkOverlap(member, len, distance, 0);
        checkOverlap(member, len, 5, distance + 5);
      }
}
TEST(Move, BothSidesOfEachThresholdAndAByteApart) {
  for (int len : {16383, 16384, 32767, 32768, 32769, 100000})
    for (std::size_t distance : {0u, 1u, 2u, 3u, 4u, 6u, 8u, 16u, 32u, 63u, 64u, 256u, 257u, 5000u, 40000u}) {
      checkOverlap(members[0], len, 0, distance);
      checkOverlap(members[0], len, distance, 0);
      checkOverlap(members[0], len, distance + 3, 3);
    }
}
TEST(Move, AByteUpOverAHundredThousandBytesShiftsByOne) {
  kit::Random random(1);
  const Bytes before = kit::anyBytes(100001, random);
  Bytes array = before;
  ASSERT_EQ(zorsMove_8u(array.data(), array.data() + 1, 100000), zorStatusOk);
  EXPECT_EQ(array[0], before[0]);
  EXPECT_TRUE(std::equal(before.begin(), before.end() - 1, array.begin() + 1));
}

}  // namespace
