// Holds no export: the sizes of caches, as zorsZero_* and zorsSet_* ask for them.
#include "memory/cache.h"

#include <algorithm>
#include <array>

#include "zorcore.h"
#include "zors/types.h"

namespace zors {
namespace {

struct Described {
  Zor8u descriptor, packed;
  Zor64s size() const { return Zor64s{packed >> 4} << ((packed & 15) + 18); }
};
// The published descriptors of second and third level caches, from the largest size to the smallest.
// clang-format off
constexpr Described table[] = {
    {0xEC, 0xC3},                                                                            // 24 MiB
    {0xEB, 0x93},                                                                            // 18 MiB
    {0x4D, 0x16},                                                                            // 16 MiB
    {0x4C, 0xC2}, {0xEA, 0xC2},                                                              // 12 MiB
    {0x47, 0x15}, {0x4B, 0x15}, {0xE4, 0x15},                                                // 8 MiB
    {0x4A, 0x33}, {0x4E, 0x33}, {0xDE, 0x33},                                                // 6 MiB
    {0x29, 0x14}, {0x46, 0x14}, {0x49, 0x14}, {0xD8, 0x14}, {0xE3, 0x14},                    // 4 MiB
    {0x48, 0x32}, {0xDD, 0x32},                                                              // 3 MiB
    {0x25, 0x13}, {0x45, 0x13}, {0x7D, 0x13}, {0x85, 0x13}, {0xD2, 0x13}, {0xD7, 0x13}, {0xE2, 0x13},                // 2 MiB
    {0x23, 0x12}, {0x24, 0x12}, {0x44, 0x12}, {0x78, 0x12}, {0x7C, 0x12}, {0x84, 0x12}, {0x87, 0x12}, {0xD1, 0x12}, {0xD6, 0x12},  // 1 MiB
    {0x22, 0x11}, {0x3E, 0x11}, {0x7B, 0x11}, {0x7F, 0x11}, {0x80, 0x11}, {0x83, 0x11}, {0x86, 0x11}, {0xD0, 0x11}, {0x43, 0x11},  // 512 KiB
};
// clang-format on
static_assert(std::size(table) == 43);

}  // namespace

bool exceedsCache(std::ptrdiff_t bytes) {
  Zor32s size = 0;
  return bytes > askCacheAbove && zorGetMaxCacheSizeB(&size) == 0 && size > 0 && bytes > size;
}

Zor64s largestCache(const CacheDescriptors& descriptors) {
  const auto [a, b, c, d] = descriptors;
  if ((a & 0xFF) != 1) return 0;  // how often the leaf would have to be read; every processor says once
  std::array<Zor8u, 15> found{};
  std::size_t count = 0;
  const auto add = [&](Zor32u word, int firstByte) {
    if (word >> 31) return;  // the register holds no descriptors
    for (int byte = firstByte; byte < 4; ++byte) found[count++] = Zor8u(word >> 8 * byte);
  };
  add(a, 1), add(b, 0), add(c, 0), add(d, 0);
  for (const Described& cache : table)
    if (std::find(found.begin(), found.begin() + count, cache.descriptor) != found.begin() + count) return cache.size();
  return 0;
}

}  // namespace zors
