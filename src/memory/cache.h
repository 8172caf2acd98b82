// When a block is so large that it is written past the caches.
#pragma once

#include <cstddef>

#include "zors/types.h"


namespace zors {

inline constexpr std::ptrdiff_t askCacheAbove =
    0x200000;  // bytes; smaller blocks are written through the caches unasked

// Whether a block exceeds the largest cache, which may be unknown.
bool exceedsCache(std::ptrdiff_t bytes);

// The four registers that CPUID leaf 2 gives.
struct CacheDescriptors {
  Zor32u a, b, c, d;
};

// Bytes of the largest cache that the descriptors name, or 0 where they name none.
Zor64s largestCache(const CacheDescriptors& descriptors);

// The same of this processor; 0 where its vendor gives no descriptors.
Zor64s largestDescribedCache();

}  // namespace zors
