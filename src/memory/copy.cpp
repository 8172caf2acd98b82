// zorsCopy_*: copies of vectors that do not overlap.
#include "exports/memory.h"
#include "frame/check.h"
#include "memory/blocks.h"

namespace zors {
namespace {

// Sizes that a 32-bit byte count cannot say go out in rounds.
template <class T> ZorStatus copy(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    constexpr Zor32s size = sizeof(T), mostBytes = 0x7FFFFFE0, splitFrom = Zor32s(0x80000000u / size);
    auto from = reinterpret_cast<const Zor8u*>(src);
    auto to = reinterpret_cast<Zor8u*>(dst);
    for (; len >= splitFrom; len -= mostBytes / size, from += mostBytes, to += mostBytes)
      zors::zorsCopy_8u(from, to, mostBytes);
    return zors::zorsCopy_8u(from, to, len * size);
  });
}

}  // namespace

ZorStatus zorsCopy_8u(const Zor8u* src, Zor8u* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    if (len < blocks::stringMoveFrom)
      blocks::moveForward(src, dst, len);
    else
      blocks::stringMove(src, dst, static_cast<std::size_t>(len));
  });
}
ZorStatus zorsCopy_16s(const Zor16s* src, Zor16s* dst, Zor32s len) { return copy(src, dst, len); }
ZorStatus zorsCopy_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return copy(src, dst, len); }
ZorStatus zorsCopy_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return copy(src, dst, len); }
ZorStatus zorsCopy_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return copy(src, dst, len); }

}  // namespace zors
