// The functions of zorcore as the tests see them: the test programs define their own, which the library then calls.
// They pass on to the real ones, count, and answer otherwise where a test asks for it.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace kit {

struct Services {
  long allocations = 0;  // zorMalloc calls that gave memory
  long live = 0;         // blocks not yet freed
  long failAt = -1;      // the n-th zorMalloc call from now fails (0: the next one); -1: none
  long cacheQueries = 0;
  std::optional<int32_t> cacheStatus, cacheSize;  // what zorGetMaxCacheSizeB answers instead
  std::optional<int32_t> feature;                 // what ownGetFeature answers instead
  long featureQueries = 0;
  int32_t lastSize = 0;     // of the last zorMalloc call
  bool keepFreed = false;   // freed memory stands, as it was left, until the end of the scope
  std::vector<void*> kept;  // such memory
};

Services& services();
void releaseKept();

// Fresh services for the length of a scope; at its end the scope before is back. leaked() counts blocks of this scope.
class ServicesScope {
 public:
  ServicesScope() : saved_(services()) { services() = {}; }
  ~ServicesScope() {
    releaseKept();
    services() = std::move(saved_);
  }
  ServicesScope(const ServicesScope&) = delete;
  ServicesScope& operator=(const ServicesScope&) = delete;
  Services* operator->() const { return &services(); }
  long leaked() const { return services().live; }

 private:
  Services saved_;
};

// Calls operation() with the first allocation failing, then the second, ... until it makes fewer. after(n, status) is
// told each outcome; the last call, with no failure, is told with n = -1. Returns how many allocations the operation
// makes.
template <class Operation, class After> int failEachAllocation(Operation operation, After after) {
  for (int n = 0;; ++n) {
    ServicesScope scope;
    scope->failAt = n;
    const auto status = operation();
    const bool failed = scope->failAt < 0;
    after(failed ? n : -1, status);
    if (!failed) return n;
  }
}

}  // namespace kit
