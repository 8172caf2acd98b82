// zorsArctan_*: arc tangents.
#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

struct Arctan {
  // t N(t^2) / D(t^2) with t = |x| or, above 1, 1 / |x| and the result taken from pi / 2.
  template <int L> ZORS_INLINE Vec<Zor32f, L> operator()(Vec<Zor32f, L> x) const {
    static constexpr Zor32f n[] = {1.0f, 1.1202340126037598f, 0.2805045545101166f, 0.008561189286410809f};
    static constexpr Zor32f d[] = {1.0f, 1.4535671472549438f, 0.5650309920310974f, 0.049017589539289474f};
    const auto ax = magnitude(x), one = same(x, 1.0f), steep = below(one, ax);
    const auto t = select(steep, ax, div(one, ax)), z = mul(t, t);
    const auto angle = div(mul(t, horner(z, n)), horner(z, d));
    return either(select(steep, angle, sub(same(x, 1.5707963705062866f), angle)), signOf(x));
  }
  template <int L> ZORS_INLINE Vec<Zor64f, L> operator()(Vec<Zor64f, L> x) const { return arcTangent(x); }
};

template <class T> ZorStatus arctangents(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    map<mapStep<T>>(Arctan{}, len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsArctan_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return arctangents(src, dst, len); }
ZorStatus zorsArctan_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return arctangents(src, dst, len); }
ZorStatus zorsArctan_32f_I(Zor32f* srcDst, Zor32s len) { return arctangents(srcDst, srcDst, len); }
ZorStatus zorsArctan_64f_I(Zor64f* srcDst, Zor32s len) { return arctangents(srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
