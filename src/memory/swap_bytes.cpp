// zorsSwapBytes_*: the bytes of each element in reverse.
#include <utility>

#include "exports/memory.h"
#include "frame/check.h"
#include "frame/map.h"
#include "memory/blocks.h"

namespace zors {
namespace {

template <int size> struct SwapBytes {
  template <class V> ZORS_INLINE V operator()(V x) const {
    const __m256i lane =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    const __m256i control =
        _mm256_xor_si256(lane, _mm256_set1_epi8(size - 1));  // within an element i becomes size - 1 - i
    return simd::build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_shuffle_epi8(x.r[i], control); });
  }
};

template <class T> ZorStatus swapBytes(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<mapStep<T>>(SwapBytes<sizeof(T)>{}, len, dst, src); });
}

// Groups of 20 elements, each in four 15-byte parts. The first three are stored with a byte too many, which the next
// part overwrites; the last is read one byte before its start and written in two pieces. So a group touches its 60
// bytes only.
constexpr std::ptrdiff_t group = 60;
struct Group {
  __m128i part[4];
};

ZORS_INLINE Group loadSwapped(const Zor8u* p) {
  const __m128i swap = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
  const __m128i swapLast = _mm_setr_epi8(3, 2, 1, 6, 5, 4, 9, 8, 7, 12, 11, 10, 15, 14, 13, 0);
  const auto load = [p](int at) ZORS_INLINE_LAMBDA { return blocks::loadPiece<16>(p + at); };
  return {{_mm_shuffle_epi8(load(0), swap), _mm_shuffle_epi8(load(15), swap), _mm_shuffle_epi8(load(30), swap),
           _mm_shuffle_epi8(load(44), swapLast)}};
}
ZORS_INLINE void storeGroup(Zor8u* p, const Group& x) {
  for (int i = 0; i < 3; ++i) blocks::storePiece(p + 15 * i, x.part[i]);
  blocks::storePiece(p + 45, Zor64u(_mm_cvtsi128_si64(x.part[3])));
  blocks::storePiece(p + 52, Zor64u(_mm_cvtsi128_si64(_mm_bsrli_si128(x.part[3], 7))));
}

ZorStatus swapBytes24(const Zor8u* src, Zor8u* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const std::ptrdiff_t bytes = std::ptrdiff_t{len} * 3;
    if (bytes < group) {
      for (std::ptrdiff_t i = 0; i < bytes; i += 3) {
        const Zor8u first = src[i], middle = src[i + 1];
        dst[i] = src[i + 2], dst[i + 1] = middle, dst[i + 2] = first;
      }
      return;
    }
    const Group end = loadSwapped(src + bytes - group);  // before the loop, which in place overwrites it
    for (std::ptrdiff_t i = 0; i < bytes - group; i += group) storeGroup(dst + i, loadSwapped(src + i));
    storeGroup(dst + bytes - group, end);
  });
}

}  // namespace

ZorStatus zorsSwapBytes_16u(const Zor16u* src, Zor16u* dst, Zor32s len) { return swapBytes(src, dst, len); }
ZorStatus zorsSwapBytes_24u(const Zor8u* src, Zor8u* dst, Zor32s len) { return swapBytes24(src, dst, len); }
ZorStatus zorsSwapBytes_32u(const Zor32u* src, Zor32u* dst, Zor32s len) { return swapBytes(src, dst, len); }
ZorStatus zorsSwapBytes_64u(const Zor64u* src, Zor64u* dst, Zor32s len) { return swapBytes(src, dst, len); }
ZorStatus zorsSwapBytes_16u_I(Zor16u* srcDst, Zor32s len) { return swapBytes(srcDst, srcDst, len); }
ZorStatus zorsSwapBytes_24u_I(Zor8u* srcDst, Zor32s len) { return swapBytes24(srcDst, srcDst, len); }
ZorStatus zorsSwapBytes_32u_I(Zor32u* srcDst, Zor32s len) { return swapBytes(srcDst, srcDst, len); }
ZorStatus zorsSwapBytes_64u_I(Zor64u* srcDst, Zor32s len) { return swapBytes(srcDst, srcDst, len); }

}  // namespace zors
