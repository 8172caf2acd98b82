// zorsCauchy_32f_I, zorsCauchyD_32f_I, zorsCauchyDD2_32f_I: the Cauchy function ln(1 + (x / C)^2) / 2 and the factors
// of its derivatives.
#include <algorithm>

#include "exports/arithmetic.h"
#include "exports/functions.h"
#include "frame/elementwise.h"

namespace zors {

using namespace simd;

ZorStatus zorsCauchy_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C) {
  return check().pointers(srcDst).size(len).require(C > 0, zorStatusBadCauchyConstant).then([&] {
    constexpr Zor32s block = 4096;  // stays in the cache for all three passes
    const Zor32f reciprocal = 1 / C;
    for (Zor32s at = 0; at < len; at += std::min(block, len - at)) {
      const Zor32s count = std::min(block, len - at);
      map<lanesOf<Zor32f>>(
          [=](auto x) ZORS_INLINE_LAMBDA {
            const auto u = mul(x, same(x, reciprocal));
            return fma(u, u, same(x, 1.0f));
          },
          count, srcDst + at, srcDst + at);
      zors::zorsLn_32f_I(srcDst + at, count);
      zors::zorsMulC_32f_I(0.5f, srcDst + at, count);
    }
  });
}

ZorStatus zorsCauchyD_32f_I(Zor32f* srcDst, Zor32s len, Zor32f C) {
  return check().pointers(srcDst).size(len).require(C > 0, zorStatusBadCauchyConstant).then([&] {
    const Zor32f squareOfC = C * C;
    map<mapStep<Zor32f>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto d = add(mul(x, x), same(x, squareOfC)), r = reciprocalEstimate(d);
          return mul(x, sub(add(r, r), mul(mul(r, d), r)));
        },
        len, srcDst, srcDst);
  });
}

ZorStatus zorsCauchyDD2_32f_I(Zor32f* srcDst, Zor32f* dst2, Zor32s len, Zor32f C) {
  return check().pointers(srcDst, dst2).size(len).require(C > 0, zorStatusBadCauchyConstant).then([&] {
    const Zor32f squareOfC = C * C;
    mapToTwo<mapStep<Zor32f>>(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto c2 = same(x, squareOfC), r = div(same(x, 1.0f), fma(x, x, c2));
          const auto negated = differing(fms(x, x, c2), same(x, -0.0f));
          return Both{mul(x, r), mul(mul(negated, r), r)};
        },
        len, srcDst, dst2, srcDst);
  });
}

}  // namespace zors
