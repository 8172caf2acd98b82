// ownGetFeature, zorGetEnabledCpuFeatures, zorGetMaxCacheSizeB. A virtual machine may take 10 microseconds for each
// question to the processor: its features are asked for at load, its caches at the first call.
#include <cpuid.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <limits>

#include "zorcore.h"

#define EXPORTED extern "C" [[gnu::visibility("default")]]

namespace {

constexpr int32_t statusUnknown = -5, statusNullPointer = -8;

// The largest data or unified cache by the deterministic cache parameters, or 0. Intel's leaf is 4, AMD's 0x8000001D.
int64_t largestCache(unsigned leaf) {
  int64_t largest = 0;
  for (unsigned level = 0; level < 16; ++level) {
    unsigned a = 0, b = 0, c = 0, d = 0;
    if (!__get_cpuid_count(leaf, level, &a, &b, &c, &d)) return largest;
    const unsigned type = a & 31;
    if (type == 0) return largest;
    constexpr unsigned instructionCache = 2;
    if (type == instructionCache) continue;
    const int64_t ways = (b >> 22) + 1, partitions = ((b >> 12) & 1023) + 1, line = (b & 4095) + 1,
                  sets = int64_t{c} + 1;
    largest = std::max(largest, ways * partitions * line * sets);
  }
  return largest;
}

int64_t largestCacheOfSystem() {
  return std::max({sysconf(_SC_LEVEL4_CACHE_SIZE), sysconf(_SC_LEVEL3_CACHE_SIZE), sysconf(_SC_LEVEL2_CACHE_SIZE),
                   sysconf(_SC_LEVEL1_DCACHE_SIZE)});
}

uint64_t enabledStates() {  // which register sets the operating system saves
  unsigned low = 0, high = 0;
  __asm__("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
  return uint64_t{high} << 32 | low;
}

uint64_t askFeatures() {
  unsigned a = 0, b = 0, c = 0, d = 0;
  if (!__get_cpuid(1, &a, &b, &c, &d)) return 0;
  uint64_t features = 0;
  const auto add = [&](bool available, uint64_t bit) { features |= available ? bit : 0; };
  add(d & bit_SSE2, ZOR_CPU_SSE2);
  add(c & bit_SSE4_2, ZOR_CPU_SSE42);
  add(c & bit_POPCNT, ZOR_CPU_POPCNT);
  constexpr uint64_t sseAndAvxStates = 6;
  const bool avx = (c & bit_OSXSAVE) && (c & bit_AVX) && (enabledStates() & sseAndAvxStates) == sseAndAvxStates;
  add(avx, ZOR_CPU_AVX);
  add(avx && (c & bit_FMA), ZOR_CPU_FMA);
  add(avx && (c & bit_F16C), ZOR_CPU_F16C);
  if (__get_cpuid_count(7, 0, &a, &b, &c, &d)) {
    add(avx && (b & bit_AVX2), ZOR_CPU_AVX2);
    add(b & bit_BMI, ZOR_CPU_BMI1);
    add(b & bit_BMI2, ZOR_CPU_BMI2);
  }
  return features;
}

const uint64_t enabledFeatures = askFeatures();

}  // namespace

EXPORTED uint64_t zorGetEnabledCpuFeatures() { return enabledFeatures; }

EXPORTED int32_t ownGetFeature(uint64_t mask) { return (enabledFeatures & mask) == mask ? 1 : 0; }

EXPORTED int32_t zorGetMaxCacheSizeB(int32_t* size) {
  if (size == nullptr) return statusNullPointer;
  static constexpr int64_t notAsked = -1;
  static std::atomic<int64_t> kept{notAsked};  // threads that ask at once find the same
  int64_t largest = kept.load(std::memory_order_relaxed);
  if (largest == notAsked) {
    largest = std::max(largestCache(4), largestCache(0x8000001D));
    if (largest <= 0) largest = std::max<int64_t>(largestCacheOfSystem(), 0);
    kept.store(largest, std::memory_order_relaxed);
  }
  if (largest <= 0) return statusUnknown;
  *size = static_cast<int32_t>(std::min<int64_t>(largest, std::numeric_limits<int32_t>::max()));
  return 0;
}
