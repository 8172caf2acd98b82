// zorsConjPack_*, zorsConjPerm_*, zorsConjCcs_*: packed spectra to full ones.
#include <cstring>

#include "exports/fft.h"
#include "fft/packed.h"
#include "frame/check.h"
#include "frame/simd.h"

namespace zors {
namespace {

ZORS_INLINE Zor32fc conjugate(Zor32fc z) { return {z.re, -z.im}; }
ZORS_INLINE Zor64fc conjugate(Zor64fc z) { return {z.re, -z.im}; }
ZORS_INLINE Zor16sc conjugate(Zor16sc z) { return {z.re, static_cast<Zor16s>(z.im == INT16_MIN ? INT16_MAX : -z.im)}; }

// The pairs of one register backwards and conjugated; the integers saturate.
ZORS_INLINE __m256i mirrored(std::type_identity<Zor32fc>, __m256i x) {
  return _mm256_xor_si256(_mm256_permute4x64_epi64(x, 0x1B), _mm256_set1_epi64x(INT64_MIN));
}
ZORS_INLINE __m256i mirrored(std::type_identity<Zor64fc>, __m256i x) {
  return _mm256_xor_si256(_mm256_permute4x64_epi64(x, 0x4E), _mm256_setr_epi64x(0, INT64_MIN, 0, INT64_MIN));
}
ZORS_INLINE __m256i mirrored(std::type_identity<Zor16sc>, __m256i x) {
  const __m256i back = _mm256_permutevar8x32_epi32(x, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
  return _mm256_blend_epi16(back, _mm256_subs_epi16(_mm256_setzero_si256(), back), 0xAA);
}

// z[len - k] = conj z[k] for k from 1 to (len - 1) / 2. The halves do not meet, so the last step may repeat pairs.
template <class Pair> void mirror(Pair* z, std::size_t len) {
  constexpr std::size_t step = 32 / sizeof(Pair);
  const std::size_t count = (len - 1) / 2;
  if (count < step) {
    for (std::size_t k = 1; k <= count; ++k) z[len - k] = conjugate(z[k]);
    return;
  }
  const auto at = [&](std::size_t k) {
    const auto x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(z + k));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(z + len - k - (step - 1)), mirrored(std::type_identity<Pair>{}, x));
  };
  for (std::size_t k = 1; k + step <= count; k += step) at(k);
  at(count - (step - 1));
}

// src may be dst: its values lie before or at their places, and move together.
template <Packed format, class T, class Pair> ZorStatus expand(const T* src, Pair* dst, Zor32s length) {
  return check().pointers(src, dst).size(length).then([&] {
    const auto len = static_cast<std::size_t>(length), pairs = (len - 1) / 2;
    const bool even = len % 2 == 0;
    if constexpr (format == Packed::ccs) {
      if (static_cast<const void*>(src) != dst) std::memmove(dst, src, (len / 2 + 1) * sizeof(Pair));
    } else {
      const std::size_t start = format == Packed::perm && even ? 2 : 1;
      const T first = src[0], last = src[format == Packed::perm && even ? 1 : len - 1];
      if (pairs > 0) std::memmove(dst + 1, src + start, pairs * sizeof(Pair));
      dst[0] = {first, T(0)};
      if (even) dst[len / 2] = {last, T(0)};
    }
    mirror(dst, len);
  });
}
template <Packed format, class T, class Pair> ZorStatus expandInPlace(Pair* srcDst, Zor32s len) {
  return expand<format>(reinterpret_cast<const T*>(srcDst), srcDst, len);
}

}  // namespace

// clang-format off
ZorStatus zorsConjPack_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len) { return expand<Packed::pack>(src, dst, len); }
ZorStatus zorsConjPack_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len) { return expand<Packed::pack>(src, dst, len); }
ZorStatus zorsConjPack_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len) { return expand<Packed::pack>(src, dst, len); }
ZorStatus zorsConjPerm_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len) { return expand<Packed::perm>(src, dst, len); }
ZorStatus zorsConjPerm_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len) { return expand<Packed::perm>(src, dst, len); }
ZorStatus zorsConjPerm_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len) { return expand<Packed::perm>(src, dst, len); }
ZorStatus zorsConjCcs_16sc(const Zor16s* src, Zor16sc* dst, Zor32s len) { return expand<Packed::ccs>(src, dst, len); }
ZorStatus zorsConjCcs_32fc(const Zor32f* src, Zor32fc* dst, Zor32s len) { return expand<Packed::ccs>(src, dst, len); }
ZorStatus zorsConjCcs_64fc(const Zor64f* src, Zor64fc* dst, Zor32s len) { return expand<Packed::ccs>(src, dst, len); }

ZorStatus zorsConjPack_16sc_I(Zor16sc* srcDst, Zor32s len) { return expandInPlace<Packed::pack, Zor16s>(srcDst, len); }
ZorStatus zorsConjPack_32fc_I(Zor32fc* srcDst, Zor32s len) { return expandInPlace<Packed::pack, Zor32f>(srcDst, len); }
ZorStatus zorsConjPack_64fc_I(Zor64fc* srcDst, Zor32s len) { return expandInPlace<Packed::pack, Zor64f>(srcDst, len); }
ZorStatus zorsConjPerm_16sc_I(Zor16sc* srcDst, Zor32s len) { return expandInPlace<Packed::perm, Zor16s>(srcDst, len); }
ZorStatus zorsConjPerm_32fc_I(Zor32fc* srcDst, Zor32s len) { return expandInPlace<Packed::perm, Zor32f>(srcDst, len); }
ZorStatus zorsConjPerm_64fc_I(Zor64fc* srcDst, Zor32s len) { return expandInPlace<Packed::perm, Zor64f>(srcDst, len); }
ZorStatus zorsConjCcs_16sc_I(Zor16sc* srcDst, Zor32s len) { return expandInPlace<Packed::ccs, Zor16s>(srcDst, len); }
ZorStatus zorsConjCcs_32fc_I(Zor32fc* srcDst, Zor32s len) { return expandInPlace<Packed::ccs, Zor32f>(srcDst, len); }
ZorStatus zorsConjCcs_64fc_I(Zor64fc* srcDst, Zor32s len) { return expandInPlace<Packed::ccs, Zor64f>(srcDst, len); }
// clang-format on

}  // namespace zors
