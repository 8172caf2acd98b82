#include "kit/services.h"

#include <dlfcn.h>

#include <algorithm>
#include <mutex>

#include "zorcore.h"

namespace kit {
namespace {

std::mutex guard;  // threads of a test may allocate at once

template <class F> F* real(F*, const char* name) { return reinterpret_cast<F*>(dlsym(RTLD_NEXT, name)); }

}  // namespace

Services& services() {
  static Services all;
  return all;
}

void releaseKept() {
  auto& s = services();
  s.keepFreed = false;
  for (void* block : s.kept) real(&zorFree, "zorFree")(block);
  s.kept.clear();
}

}  // namespace kit

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED void* zorMalloc(int32_t size) {
  static auto* const next = kit::real(&zorMalloc, "zorMalloc");
  const std::lock_guard lock(kit::guard);
  kit::Services& s = kit::services();
  s.lastSize = size;
  if (s.failAt >= 0 && s.failAt-- == 0) return nullptr;
  void* block = next(size);
  if (block != nullptr) ++s.allocations, ++s.live;
  return block;
}
EXPORTED void zorFree(void* ptr) {
  static auto* const next = kit::real(&zorFree, "zorFree");
  const std::lock_guard lock(kit::guard);
  kit::Services& s = kit::services();
  if (ptr != nullptr) --s.live;
  if (ptr == nullptr || !s.keepFreed)
    next(ptr);
  else if (std::find(s.kept.begin(), s.kept.end(), ptr) == s.kept.end())
    s.kept.push_back(ptr);
}
EXPORTED int32_t ownGetFeature(uint64_t mask) {
  static auto* const next = kit::real(&ownGetFeature, "ownGetFeature");
  kit::Services& s = kit::services();
  ++s.featureQueries;
  return s.feature ? *s.feature : next(mask);
}
EXPORTED int32_t zorGetMaxCacheSizeB(int32_t* size) {
  static auto* const next = kit::real(&zorGetMaxCacheSizeB, "zorGetMaxCacheSizeB");
  kit::Services& s = kit::services();
  ++s.cacheQueries;
  const int32_t status = next(size);
  if (s.cacheSize) *size = *s.cacheSize;
  return s.cacheStatus ? *s.cacheStatus : s.cacheSize ? 0 : status;
}
