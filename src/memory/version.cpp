// zorsGetLibVersion, and what the library does when it is loaded.
#include "exports/memory.h"
#include "zorcore.h"

namespace zors {
namespace {

constexpr ZorLibraryVersion version = {
    8, 2, 3, 48108, {'l', '9', 0, 0}, "zorSP AVX2 (l9)", "8.2.3 (r48108)", "Jul 23 2015"};

// Whether the processor has what this build is made for. Kept for debuggers: no operation reads it.
volatile int processorFits;

[[gnu::constructor]] void onLoad() {
  constexpr uint64_t needed = ZOR_CPU_AVX2 | ZOR_CPU_FMA;
  processorFits = (zorGetEnabledCpuFeatures() & needed) == needed;
}

}  // namespace

const ZorLibraryVersion* zorsGetLibVersion() { return &version; }

}  // namespace zors
