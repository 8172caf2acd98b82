// What states and specifications share. An object lies in one block, the caller's or one of its own; its first word is
// its tag, tested by every operation after the null pointers (check().state). One function takes the object's parts
// from a Layout: Init gives it the block, size queries give it none.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "frame/check.h"
#include "frame/memory.h"
#include "frame/tags.h"

namespace zors {

// What every state and specification has: its tag, first, and the block that InitAlloc allocated for it, null in a
// caller's block.
template <class S>
concept Object = requires(S object) {
  { object.tag } -> std::same_as<Tag&>;
  { object.owned } -> std::same_as<Zor8u*&>;
};

// For size queries: a size that 32 bits do not hold is refused, and *size stays.
inline ZorStatus tellSize(std::size_t bytes, Zor32s* size) {
  if (bytes > INT32_MAX) return zorStatusNoMemory;
  *size = static_cast<Zor32s>(bytes);
  return zorStatusOk;
}

// Memory for an object, released with the scope unless it is given away.
class OwnMemory {
 public:
  explicit OwnMemory(std::size_t bytes)
      : block_(bytes <= INT32_MAX ? zors::zorsMalloc_8u(static_cast<Zor32s>(bytes)) : nullptr) {}
  ~OwnMemory() {
    if (block_ != nullptr) zors::zorsFree(block_);
  }
  OwnMemory(const OwnMemory&) = delete;
  OwnMemory& operator=(const OwnMemory&) = delete;

  explicit operator bool() const { return block_ != nullptr; }
  Zor8u* data() const { return block_; }
  Zor8u* giveAway() { return std::exchange(block_, nullptr); }

 private:
  Zor8u* block_;
};

// InitAlloc: build(block, &object) builds the object in a block of so many bytes and returns a status; what it takes
// besides it releases where it fails. *out is written on success alone.
template <Object S, class Build> ZorStatus initAllocated(S** out, std::size_t bytes, Build&& build) {
  OwnMemory memory(bytes);
  if (!memory) return zorStatusNoMemory;
  S* object = nullptr;
  const ZorStatus status = build(memory.data(), &object);
  if (status != zorStatusOk) return status;
  object->owned = memory.giveAway();
  *out = object;
  return zorStatusOk;
}

// Releases the block that InitAlloc allocated, with its tag cleared, so that a stale pointer is refused while the
// memory lasts; an object in a caller's block stays as it is.
template <Object S> void releaseOwned(S* object) {
  if (object->owned == nullptr) return;
  object->tag = 0;
  zors::zorsFree(object->owned);
}

// Free: pointer, tag, release.
template <Object S, class... Tags> ZorStatus freeObject(S* object, Tags... accepted) {
  return check().pointers(object).state(object, accepted...).then([&] { releaseOwned(object); });
}

}  // namespace zors
