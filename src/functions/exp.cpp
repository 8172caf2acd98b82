// zorsExp_* of floats: e^src[i].
#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

struct Exp {
  template <class V> ZORS_INLINE V operator()(V x) const { return simd::exponential(x); }
};
struct ExpOfWidened {
  template <class V> ZORS_INLINE auto operator()(V x) const { return simd::exponential(simd::toDouble(x)); }
};

template <class Op, class S, class D> ZorStatus exponentials(const S* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    map<8>(Op{}, len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsExp_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return exponentials<Exp>(src, dst, len); }
ZorStatus zorsExp_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return exponentials<Exp>(src, dst, len); }
ZorStatus zorsExp_32f_I(Zor32f* srcDst, Zor32s len) { return exponentials<Exp>(srcDst, srcDst, len); }
ZorStatus zorsExp_64f_I(Zor64f* srcDst, Zor32s len) { return exponentials<Exp>(srcDst, srcDst, len); }
ZorStatus zorsExp_32f64f(const Zor32f* src, Zor64f* dst, Zor32s len) { return exponentials<ExpOfWidened>(src, dst, len); }
// clang-format on

}  // namespace zors
