// zorsMove_*: copies of vectors that may overlap.
#include "exports/memory.h"
#include "frame/check.h"
#include "memory/blocks.h"

namespace zors {
namespace {

void moveBytes(const Zor8u* src, Zor8u* dst, std::ptrdiff_t bytes) {
  if (reinterpret_cast<std::uintptr_t>(src) < reinterpret_cast<std::uintptr_t>(dst))
    blocks::moveBackward(src, dst, bytes);
  else if (bytes < blocks::stringMoveFrom)
    blocks::moveForward(src, dst, bytes);
  else
    blocks::stringMove(src, dst, static_cast<std::size_t>(bytes));
}

// The byte count is formed in 32 bits and wraps by contract.
template <class T> ZorStatus move(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const auto bytes = static_cast<Zor32s>(static_cast<Zor32u>(len) * Zor32u{sizeof(T)});
    moveBytes(reinterpret_cast<const Zor8u*>(src), reinterpret_cast<Zor8u*>(dst), bytes);
  });
}

}  // namespace

ZorStatus zorsMove_8u(const Zor8u* src, Zor8u* dst, Zor32s len) { return move(src, dst, len); }
ZorStatus zorsMove_16s(const Zor16s* src, Zor16s* dst, Zor32s len) { return move(src, dst, len); }
ZorStatus zorsMove_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return move(src, dst, len); }
ZorStatus zorsMove_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return move(src, dst, len); }
ZorStatus zorsMove_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return move(src, dst, len); }

}  // namespace zors
