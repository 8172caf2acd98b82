// zorsDiv_*, zorsDiv_Round_* of integers: exact quotients of two vectors.
#include "arithmetic/divide.h"
#include "exports/arithmetic.h"

namespace zors {
namespace {

// Below its range 8u needs no scale that is far below: from -16 on all quotients but zero saturate by the rule.
constexpr ScaleRange range8u{-16, 8, -16}, range16s{-29, 15, -96}, range16u{-15, 16, -96}, range32s{-62, 32, -96},
    range32s16s{-29, 31, -96};

template <ZorRoundMode rnd, class D, class S1, class S2>
[[gnu::flatten, gnu::noinline]] ZorStatus quotients(const S1* src1, const S2* src2, D* dst, Zor32s len, int scale) {
  return withDivision<D, S2, rnd>(scale, [&](auto division) ZORS_INLINE_LAMBDA {
    return map<mapStep<D, S1, S2>>(division, len, dst, src1, src2).status();
  });
}

template <class D, class S1, class S2>
ZorStatus divided(const S1* src1, const S2* src2, D* dst, Zor32s len, Zor32s scaleFactor, ScaleRange range) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    return quotients<zorRoundNearestEven>(src1, src2, dst, len, range.drawnIn(scaleFactor));
  });
}
[[gnu::flatten, gnu::noinline]] ZorStatus divided(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len,
                                                  Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    const int scale = ScaleRange{-32, 32, -96}.drawnIn(scaleFactor);
    return map<mapStep<Zor16sc>>(ComplexIntegerDivision(scale), len, dst, src1, src2).status();
  });
}

template <class T>
ZorStatus dividedRound(const T* src1, const T* src2, T* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  const bool isKnown = rnd == zorRoundTowardZero || rnd == zorRoundNearestEven || rnd == zorRoundHalfAway;
  return check().pointers(src1, src2, dst).size(len).require(isKnown, zorStatusBadRoundMode).then([&] {
    const int scale = (sizeof(T) == 1 ? range8u : ScaleRange{-30, 16, -96}).drawnIn(scaleFactor);
    return rnd == zorRoundTowardZero    ? quotients<zorRoundTowardZero>(src1, src2, dst, len, scale)
           : rnd == zorRoundNearestEven ? quotients<zorRoundNearestEven>(src1, src2, dst, len, scale)
                                        : quotients<zorRoundHalfAway>(src1, src2, dst, len, scale);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDiv_8u_Sfs (const Zor8u*  src1, const Zor8u*  src2, Zor8u*  dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor, range8u); }
ZorStatus zorsDiv_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor, range16s); }
ZorStatus zorsDiv_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor, range16u); }
ZorStatus zorsDiv_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor, range32s); }
ZorStatus zorsDiv_32s16s_Sfs(const Zor16s* src1, const Zor32s* src2, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor, range32s16s); }
ZorStatus zorsDiv_16sc_Sfs(const Zor16sc* src1, const Zor16sc* src2, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return divided(src1, src2, dst, len, scaleFactor); }
ZorStatus zorsDiv_8u_ISfs (const Zor8u*  src, Zor8u*  srcDst, Zor32s len, Zor32s scaleFactor) { return divided(src, srcDst, srcDst, len, scaleFactor, range8u); }
ZorStatus zorsDiv_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return divided(src, srcDst, srcDst, len, scaleFactor, range16s); }
ZorStatus zorsDiv_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return divided(src, srcDst, srcDst, len, scaleFactor, range16u); }
ZorStatus zorsDiv_32s_ISfs(const Zor32s* src, Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return divided(src, srcDst, srcDst, len, scaleFactor, range32s); }
ZorStatus zorsDiv_16sc_ISfs(const Zor16sc* src, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return divided(src, srcDst, srcDst, len, scaleFactor); }

ZorStatus zorsDiv_Round_8u_Sfs (const Zor8u*  src1, const Zor8u*  src2, Zor8u*  dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src1, src2, dst, len, rnd, scaleFactor); }
ZorStatus zorsDiv_Round_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src1, src2, dst, len, rnd, scaleFactor); }
ZorStatus zorsDiv_Round_16u_Sfs(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src1, src2, dst, len, rnd, scaleFactor); }
ZorStatus zorsDiv_Round_8u_ISfs (const Zor8u*  src, Zor8u*  srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src, srcDst, srcDst, len, rnd, scaleFactor); }
ZorStatus zorsDiv_Round_16s_ISfs(const Zor16s* src, Zor16s* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src, srcDst, srcDst, len, rnd, scaleFactor); }
ZorStatus zorsDiv_Round_16u_ISfs(const Zor16u* src, Zor16u* srcDst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) { return dividedRound(src, srcDst, srcDst, len, rnd, scaleFactor); }
// clang-format on

}  // namespace zors
