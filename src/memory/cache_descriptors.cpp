// Holds no export: the cache descriptors of this processor.
#include <cpuid.h>

#include "memory/cache.h"
#include "zors/types.h"

namespace zors {

Zor64s largestDescribedCache() {
  unsigned leaves = 0, b = 0, c = 0, d = 0;
  __cpuid(0, leaves, b, c, d);
  if (leaves < 2 || b != signature_INTEL_ebx || d != signature_INTEL_edx || c != signature_INTEL_ecx) return 0;
  CacheDescriptors descriptors{};
  __cpuid(2, descriptors.a, descriptors.b, descriptors.c, descriptors.d);
  return largestCache(descriptors);
}

}  // namespace zors
