// zorsFIR_Direct_*, zorsFIROne_Direct_*: filtering with the caller's taps and delay line.
#include "frame/check.h"
#include "frame/simd.h"

namespace zors {
namespace {

using namespace simd;

// The delay line is a doubled ring of 2 * tapsLen samples. Puts in val and returns the window of the newest tapsLen ones,
// oldest first.
template <class T> const T* push(T val, T* dly, Zor32s* dlyIndex, Zor32s tapsLen) {
  const Zor32s at = *dlyIndex;
  dly[at + tapsLen] = val;
  dly[at] = val;
  *dlyIndex = at + 1 < tapsLen ? at + 1 : 0;
  return dly + *dlyIndex;
}

Vec<Zor32f, 8> reversed(Vec<Zor32f, 8> x) {
  return {{_mm256_permutevar8x32_ps(x.r[0], _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0))}};
}

// Products in binary32, each widened and summed in Sum.
template <class Sum> [[gnu::flatten]] Sum dotReversed(const Zor32f* taps, Zor32s tapsLen, const Zor32f* window) {
  Vec<Sum, 8> sum = splat<Vec<Sum, 8>>(0);
  const Zor32f* tapsEnd = taps + tapsLen;
  Zor32s j = 0;
  for (; j + 8 <= tapsLen; j += 8) {
    const Vec<Zor32f, 8> product = mul(reversed(load<8>(tapsEnd - j - 8)), load<8>(window + j));
    if constexpr (sizeof(Sum) == sizeof(Zor64f)) sum = add(sum, toDouble(product));
    else sum = add(sum, product);
  }
  using One = Vec<Sum, lanesOf<Sum>>;
  One folded = {{sum.r[0]}};
  if constexpr (Vec<Sum, 8>::registers == 2) folded = add(folded, One{{sum.r[1]}});
  Sum y = sumOfLanes(folded);
  for (; j < tapsLen; ++j) {
    const Zor32f product = tapsEnd[-1 - j] * window[j];
    y += Sum(product);
  }
  return y;
}

ZorStatus block(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) {
  return check().pointers(src, dst).size(len).pointers(taps).require(tapsLen >= 1, zorStatusBadTapsLength).pointers(dly, dlyIndex).then([&] {
    for (Zor32s i = 0; i < len; ++i) dst[i] = Zor32f(dotReversed<Zor64f>(taps, tapsLen, push(src[i], dly, dlyIndex, tapsLen)));
  });
}

// val is read after the checks.
ZorStatus one(const Zor32f* val, Zor32f* dst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) {
  return check().pointers(dst, taps).require(tapsLen >= 1, zorStatusBadTapsLength).pointers(dly, dlyIndex).then([&] {
    *dst = dotReversed<Zor32f>(taps, tapsLen, push(*val, dly, dlyIndex, tapsLen));
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIR_Direct_32f(const Zor32f* src, Zor32f* dst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block(src, dst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIR_Direct_32f_I(Zor32f* srcDst, Zor32s len, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return block(srcDst, srcDst, len, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIROne_Direct_32f(Zor32f val, Zor32f* dst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return one(&val, dst, taps, tapsLen, dly, dlyIndex); }
ZorStatus zorsFIROne_Direct_32f_I(Zor32f* srcDst, const Zor32f* taps, Zor32s tapsLen, Zor32f* dly, Zor32s* dlyIndex) { return one(srcDst, srcDst, taps, tapsLen, dly, dlyIndex); }
// clang-format on

}  // namespace zors
