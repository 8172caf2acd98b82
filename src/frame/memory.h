// Scratch memory of a call, and the layout of objects in one block.
#pragma once

#include <cstddef>
#include <cstdint>

#include "exports/memory.h"

namespace zors {

template <class T> T* alignUp(T* pointer, std::uintptr_t alignment) {
  const auto address = reinterpret_cast<std::uintptr_t>(pointer);
  const auto padding = ((address + alignment - 1) & ~(alignment - 1)) - address;
  return reinterpret_cast<T*>(reinterpret_cast<char*>(const_cast<std::remove_const_t<T>*>(pointer)) + padding);
}

// Work memory aligned to 64 bytes: the caller's buffer, or, where that is null, one that goes with the scope. No memory
// is needed for 0 bytes. A Scratch is false where the allocation failed.
class Scratch {
 public:
  static constexpr std::size_t alignment = 64;

  Scratch(Zor8u* buffer, std::size_t bytes) {
    if (bytes == 0) return;
    if (buffer == nullptr) {
      const std::size_t wanted = bytes + alignment - 1;  // zorMalloc promises no alignment
      owned_ = wanted <= INT32_MAX ? zors::zorsMalloc_8u(static_cast<Zor32s>(wanted)) : nullptr;
      valid_ = owned_ != nullptr;
      if (!valid_) return;
      buffer = owned_;
    }
    data_ = alignUp(buffer, alignment);
  }
  explicit Scratch(std::size_t bytes) : Scratch(nullptr, bytes) {}
  ~Scratch() {
    if (owned_ != nullptr) zors::zorsFree(owned_);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  explicit operator bool() const { return valid_; }
  Zor8u* data() const { return data_; }
  template <class T> T* as() const { return reinterpret_cast<T*>(data_); }

 private:
  Zor8u* owned_ = nullptr;
  Zor8u* data_ = nullptr;
  bool valid_ = true;
};

// The one account of what an object holds: a function that takes piece after piece from a Layout serves Init, which
// passes a block, and GetSize, which passes none and asks for size().
class Layout {
 public:
  explicit constexpr Layout(std::size_t alignment, Zor8u* block = nullptr)
      : base_(block == nullptr ? nullptr : alignUp(block, alignment)), alignment_(alignment) {}

  // Room for count elements; null where there is no block.
  template <class T> constexpr T* take(std::size_t count) {
    const std::size_t at = used_;
    used_ = (used_ + count * sizeof(T) + alignment_ - 1) & ~(alignment_ - 1);
    return base_ == nullptr ? nullptr : reinterpret_cast<T*>(base_ + at);
  }
  // The bytes that the block must have, wherever it starts.
  constexpr std::size_t size() const { return used_ + alignment_ - 1; }
  constexpr std::size_t used() const { return used_; }

 private:
  Zor8u* base_;
  std::size_t alignment_;
  std::size_t used_ = 0;
};

}  // namespace zors
