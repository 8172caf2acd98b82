// zorsSqrt_* of floats: square roots, and principal roots of complex elements.
#include "exports/functions.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

struct Sqrt {
  template <class V> ZORS_INLINE V operator()(V x) const { return sqrt(x); }
};

// The invalid flag tells of a negative element; the caller's flags stay as they were.
template <class T> ZorStatus roots(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const FlagsScope flags;
    map<mapStep<T>>(Sqrt{}, len, dst, src);
    return flags.sawInvalid() ? zorWarningSqrtOfNegative : zorStatusOk;
  });
}

// The principal root of a + b i halved: r = sqrt(|a| + sqrt(a^2 + b^2)) is the greater part and |b| / r the other. The
// greater part is the real one where the real part is at or above 0; the imaginary part has the sign of b. No guard
// stands against overflow of the squares.
struct ComplexSqrt {
  template <class V> ZORS_INLINE V operator()(V z) const {
    const auto re = realPart(z), im = imagPart(z);
    using F = typename decltype(re)::Element;
    const auto half = same(re, F(0.5)), zero = same(re, F(0));
    const auto a = mul(re, half), b = mul(im, half);
    const auto r = sqrt(add(magnitude(a), sqrt(fma(a, a, mul(b, b)))));
    const auto other = div(magnitude(b), select(equal(r, zero), r, same(r, F(1))));
    const auto left = below(re, zero);
    return toComplex(select(left, r, other), either(select(left, other, r), signOf(im)));
  }
};

template <class T> ZorStatus complexRoots(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    map<2 * mapStep<T>>(ComplexSqrt{}, len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSqrt_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return roots(src, dst, len); }
ZorStatus zorsSqrt_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return roots(src, dst, len); }
ZorStatus zorsSqrt_32f_I(Zor32f* srcDst, Zor32s len) { return roots(srcDst, srcDst, len); }
ZorStatus zorsSqrt_64f_I(Zor64f* srcDst, Zor32s len) { return roots(srcDst, srcDst, len); }
ZorStatus zorsSqrt_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return complexRoots(src, dst, len); }
ZorStatus zorsSqrt_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return complexRoots(src, dst, len); }
ZorStatus zorsSqrt_32fc_I(Zor32fc* srcDst, Zor32s len) { return complexRoots(srcDst, srcDst, len); }
ZorStatus zorsSqrt_64fc_I(Zor64fc* srcDst, Zor32s len) { return complexRoots(srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
