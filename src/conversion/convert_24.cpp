// zorsConvert_24*, zorsConvert_*24*: elements of three bytes, least significant first, without gaps.
#include <algorithm>
#include <bit>

#include "exports/conversion.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

constexpr int group = 8;               // elements in a register once they are widened; 24 bytes when packed
constexpr std::ptrdiff_t overrun = 3;  // elements that a whole register of packed bytes reaches beyond its eight

// Packed bytes to 32-bit words whose low three bytes are the element, times 256.
ZORS_INLINE Vec<Zor32u, group> spread(__m256i packed) {
  const __m256i halves = _mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 1, 2, 2, 3, 4, 5, 5));
  const __m256i toTop = _mm256_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1, 0, 1, 2, -1, 3, 4, 5,
                                         -1, 6, 7, 8, -1, 9, 10, 11);
  return {{_mm256_shuffle_epi8(halves, toTop)}};
}
ZORS_INLINE Vec<Zor32s, group> from24s(__m256i packed) { return shiftRight(as<Zor32s>(spread(packed)), 8); }
ZORS_INLINE Vec<Zor32u, group> from24u(__m256i packed) { return shiftRight(spread(packed), 8); }

// The low three bytes of each word together at the bottom.
ZORS_INLINE __m256i pack24(__m256i words) {
  const __m256i low3 = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1, 0, 1, 2, 4, 5, 6, 8, 9,
                                        10, 12, 13, 14, -1, -1, -1, -1);
  return _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(words, low3), _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7));
}

// dst[i] = kernel(24-bit element i): kernel takes the packed register and gives eight elements.
template <class Kernel, class D>
[[gnu::flatten]] void mapFrom24(Kernel kernel, std::ptrdiff_t len, D* dst, const Zor8u* src) {
  std::ptrdiff_t i = 0;
  for (; i + group + overrun <= len; i += group) store(dst + i, kernel(load<32>(src + 3 * i).r[0]));
  for (; i < len; i += group) {
    const int rest = static_cast<int>(std::min<std::ptrdiff_t>(len - i, group));
    storePart(dst + i, kernel(loadPart<32>(src + 3 * i, 3 * rest).r[0]), rest);
  }
}
// 24-bit element i = kernel(src[i]): kernel takes eight elements and gives words of which three bytes count.
template <class Kernel, class S>
[[gnu::flatten]] void mapTo24(Kernel kernel, std::ptrdiff_t len, Zor8u* dst, const S* src) {
  std::ptrdiff_t i = 0;
  for (; i + group + overrun <= len; i += group)
    store(dst + 3 * i, Vec<Zor8u, 32>{{pack24(kernel(load<group>(src + i)).r[0])}});
  for (; i < len; i += group) {
    const int rest = static_cast<int>(std::min<std::ptrdiff_t>(len - i, group));
    storePart(dst + 3 * i, Vec<Zor8u, 32>{{pack24(kernel(loadPart<group>(src + i, rest)).r[0])}}, 3 * rest);
  }
}

constexpr Zor32s low24s = -8388608, high24s = 8388607, high24u = 16777215;

ZORS_INLINE Vec<Zor32s, group> limit24s(Vec<Zor32s, group> x) { return min(max(x, same(x, low24s)), same(x, high24s)); }
ZORS_INLINE Vec<Zor32u, group> limit24u(Vec<Zor32u, group> x) { return min(x, same(x, Zor32u{high24u})); }

template <class S, class Limit>
void narrow24(const S* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor, Limit limit, Zor32s low, Zor32s high) {
  if (scaleFactor == 0) {
    mapTo24(limit, len, dst, src);
  } else if (scaleFactor > 0) {
    const int down = std::min(scaleFactor, 31);
    mapTo24([=](auto x) ZORS_INLINE_LAMBDA { return limit(roundedShift(x, down)); }, len, dst, src);
  } else {  // drawn in to the nearest value that still saturates, so that the shift does not overflow
    const int up = std::min(-std::max(scaleFactor, -30), 24);
    const auto lowest = static_cast<S>((low >> up) - (low < 0)), highest = static_cast<S>((high >> up) + 1);
    mapTo24([=](auto x)
                ZORS_INLINE_LAMBDA { return limit(shiftLeft(min(max(x, same(x, lowest)), same(x, highest)), up)); },
            len, dst, src);
  }
}

// Limited in floating point, NaN to the lower bound, rounded to nearest even.
ZorStatus floatTo24(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor, Zor32f low, Zor32f high) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    const auto kernel = [=](auto x) ZORS_INLINE_LAMBDA { return toIntegerCurrent(limitNanToLow(x, low, high)); };
    if (scaleFactor == 0) {
      mapTo24(kernel, len, dst, src);
    } else {
      const auto factor = std::bit_cast<Zor32f>(static_cast<Zor32u>(127 - std::clamp(scaleFactor, -127, 127)) << 23);
      mapTo24([=](auto x) ZORS_INLINE_LAMBDA { return kernel(mul(x, same(x, factor))); }, len, dst, src);
    }
  });
}

template <class Kernel, class D> ZorStatus widen24(Kernel kernel, const Zor8u* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { mapFrom24(kernel, len, dst, src); });
}

}  // namespace

ZorStatus zorsConvert_24s32s(const Zor8u* src, Zor32s* dst, Zor32s len) {
  return widen24([](__m256i packed) ZORS_INLINE_LAMBDA { return from24s(packed); }, src, dst, len);
}
ZorStatus zorsConvert_24u32u(const Zor8u* src, Zor32u* dst, Zor32s len) {
  return widen24([](__m256i packed) ZORS_INLINE_LAMBDA { return from24u(packed); }, src, dst, len);
}
ZorStatus zorsConvert_24s32f(const Zor8u* src, Zor32f* dst, Zor32s len) {
  return widen24([](__m256i packed) ZORS_INLINE_LAMBDA { return toFloat(from24s(packed)); }, src, dst, len);
}
ZorStatus zorsConvert_24u32f(const Zor8u* src, Zor32f* dst, Zor32s len) {
  return widen24([](__m256i packed) ZORS_INLINE_LAMBDA { return toFloat(as<Zor32s>(from24u(packed))); }, src, dst, len);
}
ZorStatus zorsConvert_32s24s_Sfs(const Zor32s* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    narrow24(
        src, dst, len, scaleFactor, [](auto x) ZORS_INLINE_LAMBDA { return limit24s(x); }, low24s, high24s);
  });
}
ZorStatus zorsConvert_32u24u_Sfs(const Zor32u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    narrow24(
        src, dst, len, scaleFactor, [](auto x) ZORS_INLINE_LAMBDA { return limit24u(x); }, 0, high24u);
  });
}
ZorStatus zorsConvert_32f24s_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return floatTo24(src, dst, len, scaleFactor, Zor32f(low24s), Zor32f(high24s));
}
ZorStatus zorsConvert_32f24u_Sfs(const Zor32f* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) {
  return floatTo24(src, dst, len, scaleFactor, 0, Zor32f(high24u));
}

}  // namespace zors
