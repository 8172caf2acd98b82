// zorsDivC_* of integers, zorsDivCRev_16u.
#include "arithmetic/divide.h"
#include "arithmetic/known_results.h"

namespace zors {
namespace {

template <class T>
[[gnu::flatten, gnu::noinline]] ZorStatus quotients(const T* src, T val, T* dst, Zor32s len, int scale) {
  return withDivision<T, T, zorRoundNearestEven>(scale, [&](auto division) {
    return map<block<T>>(DivisionBy{division, val}, len, dst, src).division.status();
  });
}
// Above the range all elements are zeros, also the one that for 16u would round to 1.
template <class T> ZorStatus dividedBy(const T* src, T val, T* dst, Zor32s len, Zor32s scaleFactor, ScaleRange range) {
  return check().pointers(src, dst).size(len).require(val != 0, zorStatusDivideByZero).then([&] {
    if (scaleFactor > range.most) return zeroed(dst, len);
    return quotients(src, val, dst, len, range.drawnIn(scaleFactor));
  });
}
[[gnu::flatten]] ZorStatus dividedBy(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) {
  const bool isZero = val.re == 0 && val.im == 0;
  return check().pointers(src, dst).size(len).require(!isZero, zorStatusDivideByZero).then([&] {
    const ComplexIntegerDivision division(ScaleRange{-16, 32, -96}.drawnIn(scaleFactor));
    return map<16>(DivisionBy{division, val}, len, dst, src).division.status();
  });
}

[[gnu::flatten]] ZorStatus dividedOf(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    return withDivision<Zor16u, Zor16u, zorRoundNearestEven>(0, [&](auto division) {
      return map<16>(DivisionOf{division, val}, len, dst, src).division.status();
    });
  });
}

constexpr ScaleRange range8u{-16, 8, -16}, range16{-30, 15, -96};

// ---- 64 bits: in general registers, which multiply to 128

using Zor128u = unsigned __int128;

constexpr Zor64u magnitude(Zor64s x) { return x < 0 ? -static_cast<Zor64u>(x) : static_cast<Zor64u>(x); }
// Whether a quotient with this remainder rounds up: remainder / divisor above one half, or one half and q odd.
constexpr bool roundsUp(Zor64u q, Zor64u remainder, Zor64u divisor) {
  return remainder + (q & 1) > divisor - remainder;
}

// Quotients of magnitudes up to 2^63 by a constant of 2 and more: with 2^(shift - 1) < divisor <= 2^shift and
// multiplier = ceil(2^(63 + shift) / divisor), floor(a / divisor) = floor(a * multiplier / 2^(63 + shift)).
class InverseOf {
 public:
  explicit InverseOf(Zor64u divisor)
      : divisor_(divisor),
        shift_(64 - __builtin_clzll(divisor - 1)),
        multiplier_(static_cast<Zor64u>(((Zor128u{1} << (63 + shift_)) + (divisor - 1)) / divisor)) {}

  Zor64u rounded(Zor64u a) const {
    const auto q = static_cast<Zor64u>(Zor128u{a} * multiplier_ >> 64) >> (shift_ - 1);
    return q + roundsUp(q, a - q * divisor_, divisor_);
  }

 private:
  Zor64u divisor_;
  int shift_;
  Zor64u multiplier_;
};

// a * 2^shift / divisor, for shifts up to 127.
constexpr Zor64u overflow = ~Zor64u{0};
Zor64u roundedShifted(Zor64u a, int shift, Zor64u divisor) {
  if (Zor128u{a} >> (127 - shift) != 0) return overflow;
  const Zor128u n = Zor128u{a} << shift, q = n / divisor;
  if (q >> 63 != 0) return overflow;
  const auto quotient = static_cast<Zor64u>(q);
  return quotient + roundsUp(quotient, static_cast<Zor64u>(n) - quotient * divisor, divisor);
}

ZorStatus dividedBy64(Zor64s val, Zor64s* srcDst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(srcDst).size(len).then([&]() -> ZorStatus {
    // quotient() gives magnitudes; signs go by masks, as signs of a signal cannot be predicted.
    const auto each = [&](auto quotient) {
      for (Zor32s i = 0; i < len; ++i) {
        const auto sign = static_cast<Zor64u>((srcDst[i] ^ val) >> 63);  // 0 or all ones
        const Zor64u q = quotient(magnitude(srcDst[i])), bound = (~Zor64u{0} >> 1) - sign;
        srcDst[i] = static_cast<Zor64s>(((q < bound ? q : bound) ^ sign) - sign);
      }
    };
    const Zor64u divisor = magnitude(val);
    const bool isWide = scaleFactor >= 64 || (scaleFactor > 0 && divisor >> (64 - scaleFactor) != 0);
    if (divisor == 0) {
      each([](Zor64u a) { return a == 0 ? 0 : overflow; });
      return zorWarningDivideByZero;
    } else if (isWide) {  // divisor * 2^scaleFactor is 2^64 or more: the quotients are at most one half
      each([](Zor64u) { return Zor64u{0}; });
    } else if (scaleFactor < 0 || divisor << scaleFactor == 1) {
      const int shift = scaleFactor < -127 ? 127 : -scaleFactor;
      each([=](Zor64u a) { return roundedShifted(a, shift, divisor); });
    } else {
      const InverseOf inverse(divisor << scaleFactor);
      each([=](Zor64u a) { return inverse.rounded(a); });
    }
    return zorStatusOk;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDivC_8u_Sfs (const Zor8u*  src, Zor8u  val, Zor8u*  dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range8u); }
ZorStatus zorsDivC_16s_Sfs(const Zor16s* src, Zor16s val, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16u_Sfs(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16sc_Sfs(const Zor16sc* src, Zor16sc val, Zor16sc* dst, Zor32s len, Zor32s scaleFactor) { return dividedBy(src, val, dst, len, scaleFactor); }
ZorStatus zorsDivC_8u_ISfs (Zor8u  val, Zor8u*  srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range8u); }
ZorStatus zorsDivC_16s_ISfs(Zor16s val, Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16u_ISfs(Zor16u val, Zor16u* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor, range16); }
ZorStatus zorsDivC_16sc_ISfs(Zor16sc val, Zor16sc* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy(srcDst, val, srcDst, len, scaleFactor); }
ZorStatus zorsDivC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32s len, Zor32s scaleFactor) { return dividedBy64(val, srcDst, len, scaleFactor); }

ZorStatus zorsDivCRev_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) { return dividedOf(src, val, dst, len); }
ZorStatus zorsDivCRev_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len) { return dividedOf(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
