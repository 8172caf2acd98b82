// zorsAbs_*: magnitudes.
#include "exports/functions.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

// Floats lose the sign bit; the lowest integer gives the highest.
struct Abs {
  template <class V> ZORS_INLINE V operator()(V x) const {
    using T = typename V::Element;
    if constexpr (std::is_floating_point_v<T>)
      return magnitude(x);
    else if constexpr (std::is_same_v<T, Zor16s>)
      return max(x, subSaturated(same(x, 0), x));
    else {
      const auto y = max(x, sub(same(x, 0), x));
      return add(y, shiftRight(y, 31));  // -2^31 less 1 wraps to the highest
    }
  }
};

template <class T> ZorStatus absolute(const T* src, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<mapStep<T>>(Abs{}, len, dst, src); });
}

}  // namespace

// clang-format off
ZorStatus zorsAbs_16s(const Zor16s* src, Zor16s* dst, Zor32s len) { return absolute(src, dst, len); }
ZorStatus zorsAbs_32s(const Zor32s* src, Zor32s* dst, Zor32s len) { return absolute(src, dst, len); }
ZorStatus zorsAbs_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return absolute(src, dst, len); }
ZorStatus zorsAbs_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return absolute(src, dst, len); }
ZorStatus zorsAbs_16s_I(Zor16s* srcDst, Zor32s len) { return absolute(srcDst, srcDst, len); }
ZorStatus zorsAbs_32s_I(Zor32s* srcDst, Zor32s len) { return absolute(srcDst, srcDst, len); }
ZorStatus zorsAbs_32f_I(Zor32f* srcDst, Zor32s len) { return absolute(srcDst, srcDst, len); }
ZorStatus zorsAbs_64f_I(Zor64f* srcDst, Zor32s len) { return absolute(srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
