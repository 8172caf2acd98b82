// zorsSqr_*: squares.
#include <cstring>
#include <limits>

#include "arithmetic/elementwise.h"

namespace zors {
namespace {

using namespace simd;

struct Sqr {
  template <class V> ZORS_INLINE V operator()(V x) const { return mul(x, x); }
};
template <class T> ZorStatus squares(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<block<T>>(Sqr{}, len, dst, src); });
}

// Exact squares in twice the width, in the order of unpacking.
ZORS_INLINE auto exactSquare(Vec<Zor8u, 32> x) { return as<Zor16u>(Sqr{}(widen(x))); }
ZORS_INLINE auto exactSquare(Vec<Zor16u, 16> x) { return as<Zor32u>(Sqr{}(widen(x))); }
ZORS_INLINE auto exactSquare(Vec<Zor16s, 16> x) { return Sqr{}(widen(x)); }
// re^2 - im^2 and 2 re im. An imaginary part of 2^31 stands as 2^31 - 1, which scales to the same.
ZORS_INLINE auto exactSquare(Vec<Zor16sc, 8> z) {
  const __m256i re = _mm256_blend_epi16(z.r[0], _mm256_setzero_si256(), 0xAA), im = _mm256_srli_epi32(z.r[0], 16);
  const __m256i real = _mm256_sub_epi32(_mm256_madd_epi16(re, re), _mm256_madd_epi16(im, im));
  const __m256i twice = _mm256_slli_epi32(_mm256_madd_epi16(re, im), 1);
  const __m256i imaginary = _mm256_add_epi32(twice, _mm256_cmpeq_epi32(twice, _mm256_set1_epi32(INT32_MIN)));
  return Split<Zor32s, 16>{{_mm256_unpacklo_epi32(real, imaginary), _mm256_unpackhi_epi32(real, imaginary)}};
}

// The square over 2^w, w its width, to nearest: its top bit, since no square is 2^(w-1).
template <class D> struct TopBit {
  template <class V> ZORS_INLINE auto operator()(V t) const {
    return saturate<D>(shiftRight(t, int{sizeof(typename V::Element)} * 8 - 1));
  }
};

// D is the type of a destination's component. Above zeroAbove every result is 0.
template <class D, int zeroAbove, class T> ZorStatus squares(const T* src, T* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    if (scaleFactor > zeroAbove) {
      std::memset(dst, 0, std::size_t(len) * sizeof(T));
      return;
    }
    const auto run = [&](auto scale) {
      map<block<T>>([=](auto x) ZORS_INLINE_LAMBDA { return as<T>(scale(exactSquare(x))); }, len, dst, src);
    };
    if (std::is_unsigned_v<D> && scaleFactor == 2 * std::numeric_limits<D>::digits)
      run(TopBit<D>{});
    else
      withScale<D>(scaleFactor, run);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSqr_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return squares(src, dst, len); }
ZorStatus zorsSqr_32f_I(Zor32f* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_64f_I(Zor64f* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_32fc_I(Zor32fc* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_64fc_I(Zor64fc* srcDst, Zor32s len) { return squares(srcDst, srcDst, len); }
ZorStatus zorsSqr_8u_Sfs(const Zor8u* src, Zor8u* dst, Zor32s len, Zor32s scaleFactor) { return squares<Zor8u, 16>(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16u_Sfs(const Zor16u* src, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16u, 32>(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16s, 30>(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16s, 31>(src, dst, len, scaleFactor); }
ZorStatus zorsSqr_8u_ISfs(Zor8u* srcDst, Zor32s len, Zor32s scaleFactor) { return squares<Zor8u, 16>(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16u_ISfs(Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16u, 32>(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16s, 30>(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsSqr_16sc_ISfs(Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return squares<Zor16s, 31>(srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
