// zorsMalloc_*, zorsFree.
#include "exports/memory.h"
#include "zorcore.h"

namespace zors {
namespace {

// The byte count is formed in 32 bits and wraps by contract.
template <class T> T* allocate(Zor32s len) {
  if (len < 1) return nullptr;
  return static_cast<T*>(zorMalloc(static_cast<Zor32s>(static_cast<Zor32u>(len) * Zor32u{sizeof(T)})));
}

}  // namespace

Zor8u* zorsMalloc_8u(Zor32s len) { return allocate<Zor8u>(len); }
Zor16u* zorsMalloc_16u(Zor32s len) { return allocate<Zor16u>(len); }
Zor32f* zorsMalloc_32f(Zor32s len) { return allocate<Zor32f>(len); }
Zor64f* zorsMalloc_64f(Zor32s len) { return allocate<Zor64f>(len); }
Zor64fc* zorsMalloc_64fc(Zor32s len) { return allocate<Zor64fc>(len); }

void zorsFree(void* ptr) { zorFree(ptr); }

}  // namespace zors
