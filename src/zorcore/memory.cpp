// zorMalloc, zorFree, zorAlignPtr.
#include <cstdlib>

#include "zorcore.h"

#define EXPORTED extern "C" [[gnu::visibility("default")]]

EXPORTED void* zorMalloc(int32_t size) {
  if (size < 0) return nullptr;
  void* block = nullptr;
  return posix_memalign(&block, 64, static_cast<std::size_t>(size)) == 0 ? block : nullptr;
}

EXPORTED void zorFree(void* ptr) { std::free(ptr); }

EXPORTED void* zorAlignPtr(void* ptr, int32_t alignment) {
  const auto mask = static_cast<uintptr_t>(alignment) - 1;
  const auto address = reinterpret_cast<uintptr_t>(ptr);
  return static_cast<char*>(ptr) + (((address + mask) & ~mask) - address);
}
