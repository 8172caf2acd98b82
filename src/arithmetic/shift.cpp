// zorsLShiftC_*, zorsRShiftC_*: shifts by a constant count. zorsLShiftC_16s is zorsLShiftC_16u.
#include "arithmetic/known_results.h"
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

struct Left {
  template <class T> static constexpr bool fillsWithZeros = true;
  template <class V> ZORS_INLINE V operator()(V x, int count) const { return simd::shiftLeft(x, count); }
};
struct Right {
  template <class T> static constexpr bool fillsWithZeros = std::is_unsigned_v<T>;
  // Signed: a count beyond the width fills with the sign, as the instruction does.
  template <class V> ZORS_INLINE V operator()(V x, int count) const { return simd::shiftRight(x, count); }
};

// Counts whose result is known decide before the checks.
template <class Shift, class T> ZorStatus shifted(const T* src, Zor32s val, T* dst, Zor32s len) {
  if (val == 0) return copied(src, dst, len);
  if (Shift::template fillsWithZeros<T> && val >= int{8 * sizeof(T)}) return zeroed(src, dst, len);
  return check().pointers(src, dst).size(len).require(val > 0, zorStatusBadShift).then([&] {
    map<mapStep<T>>([=](auto x) ZORS_INLINE_LAMBDA { return Shift{}(x, val); }, len, dst, src);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsLShiftC_8u (const Zor8u*  src, Zor32s val, Zor8u*  dst, Zor32s len) { return shifted<Left>(src, val, dst, len); }
ZorStatus zorsLShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len) { return shifted<Left>(src, val, dst, len); }
ZorStatus zorsLShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len) { return shifted<Left>(src, val, dst, len); }
ZorStatus zorsLShiftC_8u_I (Zor32s val, Zor8u*  srcDst, Zor32s len) { return shifted<Left>(srcDst, val, srcDst, len); }
ZorStatus zorsLShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len) { return shifted<Left>(srcDst, val, srcDst, len); }
ZorStatus zorsLShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len) { return shifted<Left>(srcDst, val, srcDst, len); }

ZorStatus zorsRShiftC_8u (const Zor8u*  src, Zor32s val, Zor8u*  dst, Zor32s len) { return shifted<Right>(src, val, dst, len); }
ZorStatus zorsRShiftC_16s(const Zor16s* src, Zor32s val, Zor16s* dst, Zor32s len) { return shifted<Right>(src, val, dst, len); }
ZorStatus zorsRShiftC_16u(const Zor16u* src, Zor32s val, Zor16u* dst, Zor32s len) { return shifted<Right>(src, val, dst, len); }
ZorStatus zorsRShiftC_32s(const Zor32s* src, Zor32s val, Zor32s* dst, Zor32s len) { return shifted<Right>(src, val, dst, len); }
ZorStatus zorsRShiftC_8u_I (Zor32s val, Zor8u*  srcDst, Zor32s len) { return shifted<Right>(srcDst, val, srcDst, len); }
ZorStatus zorsRShiftC_16s_I(Zor32s val, Zor16s* srcDst, Zor32s len) { return shifted<Right>(srcDst, val, srcDst, len); }
ZorStatus zorsRShiftC_16u_I(Zor32s val, Zor16u* srcDst, Zor32s len) { return shifted<Right>(srcDst, val, srcDst, len); }
ZorStatus zorsRShiftC_32s_I(Zor32s val, Zor32s* srcDst, Zor32s len) { return shifted<Right>(srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
