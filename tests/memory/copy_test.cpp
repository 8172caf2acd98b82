#include <sys/mman.h>
#include <x86intrin.h>

#include "kit/blocks.h"
#include "zors/memory.h"

namespace {

using kit::BlockMember;
using kit::Bytes;

const BlockMember members[] = {
    {"zorsCopy_8u", zorsCopy_8u},     {"zorsCopy_16s", zorsCopy_16s},   {"zorsCopy_16sc", zorsCopy_16sc},
    {"zorsCopy_32s", zorsCopy_32s},   {"zorsCopy_32sc", zorsCopy_32sc}, {"zorsCopy_32f", zorsCopy_32f},
    {"zorsCopy_32fc", zorsCopy_32fc}, {"zorsCopy_64s", zorsCopy_64s},   {"zorsCopy_64sc", zorsCopy_64sc},
    {"zorsCopy_64f", zorsCopy_64f},   {"zorsCopy_64fc", zorsCopy_64fc},
};
Bytes same(const Bytes& bytes) { return bytes; }

TEST(Copy, EveryLengthAndAlignment) {
  for (const auto& member : members)
    kit::checkBlocks(member, kit::blockLengths(member.size), {0, 1, 2, 4, 8, 15, 16, 31}, same);
}
TEST(Copy, FromThirtyTwoKibTheStringMoveServesAllRelativeAlignments) {
  for (int len : {32767, 32768, 32769, 32775, 100000})
    kit::checkBlocks(members[0], {len}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 12}, same);
  for (const auto& member : members)
    kit::checkBlocks(member, {32768 / member.size - 1, 32768 / member.size, 50000}, {0, 3}, same);
}
TEST(Copy, ChecksPointersThenLength) {
  for (const auto& member : members) kit::checkBlockContract(member, true);
}

// Virtual memory of 2 GiB and more over one small file, at an unreadable page.
class Tiled {
 public:
  static constexpr std::size_t tile = std::size_t{1} << 21;

  explicit Tiled(std::size_t bytes) : tiles_((bytes + tile - 1) / tile), file_(memfd_create("tile", 0)) {
    EXPECT_EQ(ftruncate(file_, tile), 0);
    begin_ = static_cast<Zor8u*>(
        mmap(nullptr, (tiles_ + 1) * tile, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    for (std::size_t i = 0; i < tiles_; ++i)
      EXPECT_NE(mmap(begin_ + i * tile, tile, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file_, 0), MAP_FAILED);
  }
  ~Tiled() {
    munmap(begin_, (tiles_ + 1) * tile);
    close(file_);
  }
  Tiled(const Tiled&) = delete;
  Tiled& operator=(const Tiled&) = delete;
  Zor8u* end() const { return begin_ + tiles_ * tile; }
  std::span<Zor8u> firstTile() const { return {begin_, tile}; }

 private:
  std::size_t tiles_;
  int file_;
  Zor8u* begin_;
};

TEST(Copy, VectorsBeyondTheLargestByteCountGoOutInRounds) {
  kit::Random random(3);
  for (const int i : {1, 5, 9, 10}) {  // 2, 4, 8 and 16 bytes
    const BlockMember& member = members[i];
    const auto size = std::size_t(member.size), len = (std::size_t{1} << 31) / size + 3, bytes = len * size;
    const Tiled src(bytes), dst(bytes);
    kit::fillAny(src.firstTile(), random);
    ASSERT_EQ(member.call(src.end() - bytes, dst.end() - bytes, Zor32s(len)), zorStatusOk);
    EXPECT_EQ(kit::firstDifference<Zor8u>(dst.firstTile(),
                                          std::vector<Zor8u>(src.firstTile().begin(), src.firstTile().end())),
              "")
        << member.name;
  }
}

#ifndef __SANITIZE_ADDRESS__  // whose own code in every function relies on the flag
TEST(Copy, ADirectionFlagThatIsSetStaysSetAndDoesNotTurnTheMove) {
  kit::Random random(4);
  const Bytes src = kit::anyBytes(40000, random);
  Bytes dst(40000);
  const Zor8u* const from = src.data();
  Zor8u* const to = dst.data();
  __asm__ volatile("std" ::: "cc");
  zorsCopy_8u(from, to, 40000);
  const auto flags = __readeflags();
  __asm__ volatile("cld" ::: "cc");
  EXPECT_NE(flags & 0x400, 0u);
  EXPECT_EQ(src, dst);
}
#endif

TEST(Copy, SignallingNansStayAndRaiseNoFlag) {
  const std::vector<Zor32u> src(1000, 0x7F800001u);
  std::vector<Zor32u> dst(1000);
  _mm_setcsr(_mm_getcsr() & ~unsigned{_MM_EXCEPT_MASK});
  zorsCopy_32f(reinterpret_cast<const Zor32f*>(src.data()), reinterpret_cast<Zor32f*>(dst.data()), 1000);
  EXPECT_EQ(_mm_getcsr() & _MM_EXCEPT_MASK, 0u);
  EXPECT_EQ(src, dst);
}

}  // namespace
