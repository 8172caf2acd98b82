// zorsThreshold_LTInv_*: reciprocals of elements whose magnitude is first raised to a level.
#include <cmath>
#include <limits>

#include "exports/thresholds.h"
#include "frame/complex_squares.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// 1 / m for m >= 0, of a zero infinity. Binary32: r * (2 - round(m * r)) with the estimate r, which is 0 for the
// largest m. Where m may be below the normal numbers it is multiplied by 2^24 for the estimate, and the result, which
// may be beyond all finite numbers, is limited.
template <bool normal, int L, Order O> ZORS_INLINE Vec<Zor32f, L, O> reciprocal(Vec<Zor32f, L, O> m) {
  using Limits = std::numeric_limits<Zor32f>;
  const auto newton = [](auto x) ZORS_INLINE_LAMBDA {
    const auto r = reciprocalEstimate(x), product = mul(x, r);
    return mul(r, sub(same(x, 2.0f), max(product, same(x, 0.0f))));  // infinity times 0, a NaN, counts as 0
  };
  if constexpr (normal) {
    return newton(m);
  } else {
    const auto scale = select(below(m, same(m, Limits::min())), same(m, 1.0f), same(m, 0x1p24f));
    const auto limit = select(equal(m, same(m, 0.0f)), same(m, Limits::max()), same(m, Limits::infinity()));
    return min(mul(newton(mul(m, scale)), scale), limit);
  }
}
template <bool normal, int L, Order O> ZORS_INLINE Vec<Zor64f, L, O> reciprocal(Vec<Zor64f, L, O> m) {
  return div(same(m, 1.0), m);
}

// Keeps in mind whether a zero was met. normal: no lower bound is below the normal numbers, nor zero.
template <class T, class, bool normal> struct LTInv {
  static constexpr int lanes = mapStep<T>;
  T level;
  Vec<T, lanes> zeros = splat<Vec<T, lanes>>(0);

  explicit LTInv(T l) : level(l) {}
  ZORS_INLINE Vec<T, lanes> operator()(Vec<T, lanes> x) {
    const auto m = max(magnitude(x), same(x, level));
    if constexpr (!normal) zeros = either(zeros, equal(m, same(m, T(0))));
    return either(reciprocal<normal>(m), signOf(x));
  }
};
template <class C, class R, bool normal> struct LTInvComplex {
  static constexpr int lanes = 2 * mapStep<C>;
  R bound;
  C ofZero;
  Pairwise<R, lanes> zeros = splat<Pairwise<R, lanes>>(0);

  explicit LTInvComplex(R level) : bound(level * level), ofZero{1 / level, 0} {}
  ZORS_INLINE Vec<C, lanes> operator()(Vec<C, lanes> z) {
    const auto square = squares(z), m = max(square, same(square, bound)), zero = equal(square, same(square, R(0)));
    const auto numerator = as<R>(conjugate(z));
    zeros = either(zeros, zero);
    if constexpr (std::is_same_v<R, Zor32f>)
      return select(spread(zero), as<C>(mul(numerator, as<R>(spread(reciprocal<normal>(m))))), same(z, ofZero));
    else
      return select(spread(zero), as<C>(div(numerator, as<R>(spread(m)))), same(z, ofZero));
  }
};

template <template <class, class, bool> class Kernel, class T, class R>
ZorStatus invert(const T* src, T* dst, Zor32s len, R level) {
  return check().pointers(src, dst).size(len).require(!(level < 0), zorStatusNegativeThresholdLevel).then([&] {
    const ExceptionsMaskedScope masked;
    const R raise = std::fabs(inScope(level));  // a level of -0 is 0
    const auto run = [&](auto kernel) { return any(map<decltype(kernel)::lanes>(kernel, len, dst, src).zeros); };
    const R bound = std::is_same_v<T, R> ? raise : raise * raise;
    if (bound >= std::numeric_limits<R>::min()) {
      run(Kernel<T, R, true>(raise));
      return zorStatusOk;
    }
    const bool metZero = run(Kernel<T, R, false>(raise));
    return metZero && raise == 0 ? zorWarningInverseOfZero : zorStatusOk;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsThreshold_LTInv_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32f level) { return invert<LTInv>(src, dst, len, level); }
ZorStatus zorsThreshold_LTInv_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor64f level) { return invert<LTInv>(src, dst, len, level); }
ZorStatus zorsThreshold_LTInv_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len, Zor32f level) { return invert<LTInvComplex>(src, dst, len, level); }
ZorStatus zorsThreshold_LTInv_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len, Zor64f level) { return invert<LTInvComplex>(src, dst, len, level); }
ZorStatus zorsThreshold_LTInv_32f_I(Zor32f* srcDst, Zor32s len, Zor32f level) { return invert<LTInv>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_LTInv_64f_I(Zor64f* srcDst, Zor32s len, Zor64f level) { return invert<LTInv>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_LTInv_32fc_I(Zor32fc* srcDst, Zor32s len, Zor32f level) { return invert<LTInvComplex>(srcDst, srcDst, len, level); }
ZorStatus zorsThreshold_LTInv_64fc_I(Zor64fc* srcDst, Zor32s len, Zor64f level) { return invert<LTInvComplex>(srcDst, srcDst, len, level); }
// clang-format on

}  // namespace zors
