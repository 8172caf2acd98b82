#include "kit/blocks.h"
#include "zors/memory.h"

namespace {

using kit::BlockMember;
using kit::Bytes;

const BlockMember members[] = {
    {"zorsSwapBytes_16u", zorsSwapBytes_16u},
    {"zorsSwapBytes_24u", 3, zorsSwapBytes_24u},
    {"zorsSwapBytes_32u", zorsSwapBytes_32u},
    {"zorsSwapBytes_64u", zorsSwapBytes_64u},
};
const BlockMember inPlace[] = {
    {"zorsSwapBytes_16u_I", zorsSwapBytes_16u_I},
    {"zorsSwapBytes_24u_I", 3, zorsSwapBytes_24u_I},
    {"zorsSwapBytes_32u_I", zorsSwapBytes_32u_I},
    {"zorsSwapBytes_64u_I", zorsSwapBytes_64u_I},
};

auto swapped(int size) {
  return [step = std::size_t(size)](const Bytes& bytes) {
    Bytes out(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) out[i / step * step + step - 1 - i % step] = bytes[i];
    return out;
  };
}

TEST(SwapBytes, EveryLengthAndAlignment) {
  for (const auto& member : members)
    kit::checkBlocks(member, kit::blockLengths(member.size), {0, 1, 8, 16, 31}, swapped(member.size));
}
TEST(SwapBytes, InPlaceByEitherMember) {
  for (const auto& member : inPlace)
    kit::checkBlocksInPlace(member, kit::blockLengths(member.size), {0, 1, 16, 31}, swapped(member.size));
  for (const auto& member : members)
    kit::checkBlocksInPlace(member, kit::blockLengths(member.size), {0, 1}, swapped(member.size));
}
TEST(SwapBytes, ChecksPointersThenLength) {
  for (const auto& member : members) kit::checkBlockContract(member, true);
  for (const auto& member : inPlace) kit::checkBlockContract(member, false);
}

}  // namespace
