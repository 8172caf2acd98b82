#include "kit/blocks.h"
#include "zors/memory.h"

namespace {

using kit::BlockMember;
using kit::Bytes;

const BlockMember members[] = {
    {"zorsFlip_8u", zorsFlip_8u},     {"zorsFlip_16u", zorsFlip_16u}, {"zorsFlip_32f", zorsFlip_32f},
    {"zorsFlip_32fc", zorsFlip_32fc}, {"zorsFlip_64f", zorsFlip_64f}, {"zorsFlip_64fc", zorsFlip_64fc},
};
const BlockMember inPlace[] = {
    {"zorsFlip_8u_I", zorsFlip_8u_I},     {"zorsFlip_16u_I", zorsFlip_16u_I}, {"zorsFlip_32f_I", zorsFlip_32f_I},
    {"zorsFlip_32fc_I", zorsFlip_32fc_I}, {"zorsFlip_64f_I", zorsFlip_64f_I}, {"zorsFlip_64fc_I", zorsFlip_64fc_I},
};

auto reversed(int size) {
  return [step = std::size_t(size)](const Bytes& bytes) {
    Bytes out(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) out[bytes.size() - step - i / step * step + i % step] = bytes[i];
    return out;
  };
}

TEST(Flip, EveryLengthAndAlignment) {
  for (const auto& member : members)
    kit::checkBlocks(member, kit::blockLengths(member.size), {0, 1, 8, 16, 31}, reversed(member.size));
}
TEST(Flip, InPlaceByEitherMember) {
  for (const auto& member : inPlace)
    kit::checkBlocksInPlace(member, kit::blockLengths(member.size), {0, 1, 16, 31}, reversed(member.size));
  for (const auto& member : members)
    kit::checkBlocksInPlace(member, kit::blockLengths(member.size), {0, 1}, reversed(member.size));
}
TEST(Flip, ChecksPointersThenLength) {
  for (const auto& member : members) kit::checkBlockContract(member, true);
  for (const auto& member : inPlace) kit::checkBlockContract(member, false);
}
TEST(Flip, PairsKeepTheirOrder) {
  const Zor32fc src[] = {{1, 2}, {3, 4}};
  Zor32fc dst[2];
  ASSERT_EQ(zorsFlip_32fc(src, dst, 2), zorStatusOk);
  EXPECT_EQ(dst[0].re, 3);
  EXPECT_EQ(dst[0].im, 4);
  EXPECT_EQ(dst[1].re, 1);
  EXPECT_EQ(dst[1].im, 2);
}
TEST(Flip, RaisesNoFlagForSignallingNans) {
  std::vector<Zor32u> data(101, 0x7F800001u);
  _mm_setcsr(_mm_getcsr() & ~unsigned{_MM_EXCEPT_MASK});
  zorsFlip_32f_I(reinterpret_cast<Zor32f*>(data.data()), 101);
  EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, 0u);
  EXPECT_EQ(data, std::vector<Zor32u>(101, 0x7F800001u));
}

}  // namespace
