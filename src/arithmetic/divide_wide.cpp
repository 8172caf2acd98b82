// zorsDivC_64s_ISfs: quotients of 64 bits by a constant.
#include <algorithm>

#include "arithmetic/signed_64.h"
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;
using Zor128u = unsigned __int128;

// ---- In vectors ---------------------------------------------------------------------------------

// The low halves of a and b multiplied to 64 bits.
template <class V> ZORS_INLINE V mulLowHalves(V a, V b) {
  return build<V>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_mul_epu32(a.r[i], b.r[i]); });
}
// The upper and the lower 64 bits of a * b.
template <class V> ZORS_INLINE V mulHigh(V a, V b) {
  const V aHigh = shiftRight(a, 32), bHigh = shiftRight(b, 32);
  const V middle = add(mulLowHalves(aHigh, b), shiftRight(mulLowHalves(a, b), 32));
  const V other = add(mulLowHalves(a, bHigh), both(middle, same(middle, 0xFFFFFFFF)));
  return add(mulLowHalves(aHigh, bHigh), add(shiftRight(middle, 32), shiftRight(other, 32)));
}
template <class V> ZORS_INLINE V mulLow(V a, V b) {
  const V crossed = add(mulLowHalves(shiftRight(a, 32), b), mulLowHalves(a, shiftRight(b, 32)));
  return add(mulLowHalves(a, b), shiftLeft(crossed, 32));
}

// By divisors from 2 to 2^63. With 2^(shift - 1) < divisor <= 2^shift and multiplier = ceil(2^(63 + shift) / divisor),
// which fits 64 bits, floor(a / divisor) = floor(a * multiplier / 2^(63 + shift)) for all a up to 2^63. The quotient
// rounds up if the remainder is above half the divisor, or is half an even divisor and the quotient is odd.
class QuotientBy {
 public:
  QuotientBy(Zor64u divisor, bool isNegative)
      : divisor_(divisor),
        shift_(64 - __builtin_clzll(divisor - 1)),
        multiplier_(static_cast<Zor64u>(((Zor128u{1} << (63 + shift_)) + (divisor - 1)) / divisor)),
        isEven_(1 - static_cast<Zor64s>(divisor & 1)),
        sign_(isNegative ? -1 : 0) {}

  template <int L> ZORS_INLINE Vec<Zor64s, L> operator()(Vec<Zor64s, L> n) const {
    const auto negative = above(same(n, 0), n), sign = differing(negative, same(n, sign_));
    const auto a = as<Zor64u>(sub(differing(n, negative), negative));
    const auto q = shiftRight(mulHigh(a, same(a, multiplier_)), shift_ - 1);
    const auto remainder = as<Zor64s>(sub(a, mulLow(q, same(a, divisor_))));
    const auto atTie = both(as<Zor64s>(q), same(n, isEven_));
    const auto up = above(add(remainder, atTie), same(n, static_cast<Zor64s>(divisor_ / 2)));
    return sub(differing(sub(as<Zor64s>(q), up), sign), sign);
  }

 private:
  Zor64u divisor_;
  int shift_;
  Zor64u multiplier_;
  Zor64s isEven_, sign_;
};

// ---- In general registers -----------------------------------------------------------------------

// a * 2^shift / divisor for shifts up to 127, by the reciprocal of the normalised divisor d >= 2^63 (Moeller and
// Granlund, Improved division by invariant integers, 2011). The dividend is shifted in two steps, the second to 128
// bits by a multiplication, as shifts of two registers are slow.
class EnlargedQuotientBy {
 public:
  EnlargedQuotientBy(Zor64u divisor, int shift) {
    const int zeros = __builtin_clzll(divisor), enlarged = std::min(shift + zeros, 127);
    d_ = divisor << zeros;
    reciprocal_ = static_cast<Zor64u>(~Zor128u{0} / d_);  // less 2^64
    most_ = static_cast<Zor64u>(std::min(~Zor128u{0} >> 1 >> enlarged, Zor128u{~Zor64u{0}}));
    power_ = Zor64u{1} << std::min(enlarged, 63);
    shift_ = std::clamp(enlarged - 63, 0, 63);  // at 127 there is only zero to shift
  }

  Zor64u operator()(Zor64u a) const {
    if (a > most_) return ~Zor64u{0};  // the quotient is 2^63 or more
    const Zor128u n = Zor128u{a << shift_} * power_;
    const Zor128u estimate = (n >> 64) * reciprocal_ + n;
    auto q = static_cast<Zor64u>(estimate >> 64) + 1;
    Zor64u remainder = static_cast<Zor64u>(n) - q * d_;
    const Zor64u tooMuch = remainder > static_cast<Zor64u>(estimate) ? ~Zor64u{0} : 0;  // as often as not
    q += tooMuch;
    remainder += tooMuch & d_;
    if (remainder >= d_) [[unlikely]]
      ++q, remainder -= d_;
    return q >> 63 != 0 ? q : q + (remainder + (q & 1) > d_ - remainder);
  }

 private:
  int shift_;  // a * 2^shift_ * power_ is below 2^127 for a up to most_
  Zor64u d_, reciprocal_, most_, power_;
};

}  // namespace

ZorStatus zorsDivC_64s_ISfs(Zor64s val, Zor64s* srcDst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(srcDst).size(len).then([&]() -> ZorStatus {
    const Zor64u divisor = magnitudeOf(val);
    if (divisor == 0) {
      mapMagnitudes([](Zor64u a) { return a == 0 ? a : ~Zor64u{0}; }, val, srcDst, len);
      return zorWarningDivideByZero;
    }
    if (scaleFactor >= 64 || (scaleFactor > 0 && divisor >> (64 - scaleFactor) != 0)) {
      std::fill_n(srcDst, len, 0);  // divisor * 2^scaleFactor is 2^64 or more: the quotients are at most one half
      return zorStatusOk;
    }
    const Zor64u scaled = scaleFactor < 0 ? divisor : divisor << scaleFactor;
    if (scaleFactor >= 0 && scaled >= 2 && scaled <= Zor64u{1} << 63)
      map<4>(QuotientBy(scaled, val < 0), len, srcDst, srcDst);
    else
      mapMagnitudes(EnlargedQuotientBy(scaled, -std::clamp(scaleFactor, -127, 0)), val, srcDst, len);
    return zorStatusOk;
  });
}

}  // namespace zors
