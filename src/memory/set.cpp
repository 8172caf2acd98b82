// zorsSet_*: vectors of one value.
#include <bit>

#include "exports/memory.h"
#include "frame/check.h"
#include "memory/blocks.h"
#include "memory/cache.h"
#include "zorcore.h"

namespace zors {
namespace {

using blocks::pastBoundary;

// 8-byte items compare items with the size shifted, so that a size of 0 or less counts as exceeded.
bool itemsExceedCache(Zor32s len) {
  constexpr Zor32s askAbove = askCacheAbove / 8;
  Zor32s size = 0;
  return len > askAbove && zorGetMaxCacheSizeB(&size) == 0 && len > size >> 3;
}

// A destination off its item's boundary never asks for the cache: past the caches only aligned items can go.
template <class Bits, class T> ZorStatus set(Bits val, T* dst, Zor32s len) {
  static_assert(sizeof(Bits) == sizeof(T));
  return check().pointers(dst).size(len).then([&] {
    constexpr unsigned size = sizeof(T);
    const std::ptrdiff_t bytes = std::ptrdiff_t{len} * size;
    const blocks::Pattern pattern{{simd::splatRegister(val)}};
    const auto to = reinterpret_cast<Zor8u*>(dst);
    if (pastBoundary(dst, size) == 0 && (size == 8 ? itemsExceedCache(len) : exceedsCache(bytes)))
      blocks::fillStreaming(to, pattern, bytes);
    else
      blocks::fill(to, pattern, bytes);
  });
}

// 16-byte items know the caches of one vendor only and do not use the service library. From a destination at half an
// item the halves of the pattern change places and one item fewer is aligned.
void setPairs(__m128i val, Zor8u* dst, Zor32s len) {
  constexpr Zor32s askAbove = 0x10000;
  const std::ptrdiff_t past = pastBoundary(dst, 16), bytes = std::ptrdiff_t{len} * 16;
  const blocks::Pattern pattern{{_mm256_broadcastsi128_si256(val)}};
  const Zor32s aligned = past == 0 ? len : past == 8 ? len - 1 : 0;
  const Zor64s cache = aligned > askAbove ? largestDescribedCache() : 0;
  if (cache == 0 || aligned <= cache / 16) {
    blocks::fill(dst, pattern, bytes);
    return;
  }
  const auto first = blocks::advanced(pattern, past);
  blocks::storePiece(dst, blocks::piece<8>(pattern));
  blocks::storePiece(dst + bytes - 8, blocks::piece<8>(blocks::advanced(pattern, 8)));
  blocks::fillStreaming(dst + past, first, std::ptrdiff_t{aligned} * 16);
}

}  // namespace

ZorStatus zorsSet_8u(Zor8u val, Zor8u* dst, Zor32s len) { return set(val, dst, len); }
ZorStatus zorsSet_16s(Zor16s val, Zor16s* dst, Zor32s len) { return set(val, dst, len); }
ZorStatus zorsSet_32s(Zor32s val, Zor32s* dst, Zor32s len) { return set(val, dst, len); }
ZorStatus zorsSet_64s(Zor64s val, Zor64s* dst, Zor32s len) { return set(val, dst, len); }
ZorStatus zorsSet_32f(Zor32f val, Zor32f* dst, Zor32s len) { return set(std::bit_cast<Zor32u>(val), dst, len); }
ZorStatus zorsSet_64f(Zor64f val, Zor64f* dst, Zor32s len) { return set(std::bit_cast<Zor64u>(val), dst, len); }

ZorStatus zorsSet_64fc(const Zor64fc* val, Zor64fc* dst, Zor32s len) {
  return check().pointers(val, dst).size(len).then([&] {
    setPairs(blocks::loadPiece<16>(reinterpret_cast<const Zor8u*>(val)), reinterpret_cast<Zor8u*>(dst), len);
  });
}

}  // namespace zors
