// zorsAnd_*, zorsOr_*, zorsXor_*, zorsAndC_*, zorsOrC_*, zorsXorC_*, zorsNot_*: bitwise logic.
#include "arithmetic/known_results.h"
#include "exports/arithmetic.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

struct And {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::both(a, b); }
};
struct Or {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::either(a, b); }
};
struct Xor {
  template <class V> ZORS_INLINE V operator()(V a, V b) const { return simd::differing(a, b); }
};

// A zero constant decides before the checks: it clears, or leaves what it meets.
template <class T> ZorStatus andC(const T* src, T val, T* dst, Zor32s len) {
  return val == 0 ? zeroed(src, dst, len) : withConstant<And>(src, val, dst, len);
}
template <class T> ZorStatus orC(const T* src, T val, T* dst, Zor32s len) {
  return val == 0 ? copied(src, dst, len) : withConstant<Or>(src, val, dst, len);
}
template <class T> ZorStatus xorC(const T* src, T val, T* dst, Zor32s len) {
  return val == 0 ? copied(src, dst, len) : withConstant<Xor>(src, val, dst, len);
}

template <class T> ZorStatus complement(const T* src, T* dst, Zor32s len) {
  return withConstant<Xor>(src, T(~T{0}), dst, len);
}

}  // namespace

// clang-format off
ZorStatus zorsAnd_8u (const Zor8u*  src1, const Zor8u*  src2, Zor8u*  dst, Zor32s len) { return binary<And>(src1, src2, dst, len); }
ZorStatus zorsAnd_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return binary<And>(src1, src2, dst, len); }
ZorStatus zorsAnd_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len) { return binary<And>(src1, src2, dst, len); }
ZorStatus zorsAnd_8u_I (const Zor8u*  src, Zor8u*  srcDst, Zor32s len) { return binary<And>(src, srcDst, srcDst, len); }
ZorStatus zorsAnd_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len) { return binary<And>(src, srcDst, srcDst, len); }
ZorStatus zorsAnd_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len) { return binary<And>(src, srcDst, srcDst, len); }

ZorStatus zorsOr_8u (const Zor8u*  src1, const Zor8u*  src2, Zor8u*  dst, Zor32s len) { return binary<Or>(src1, src2, dst, len); }
ZorStatus zorsOr_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return binary<Or>(src1, src2, dst, len); }
ZorStatus zorsOr_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len) { return binary<Or>(src1, src2, dst, len); }
ZorStatus zorsOr_8u_I (const Zor8u*  src, Zor8u*  srcDst, Zor32s len) { return binary<Or>(src, srcDst, srcDst, len); }
ZorStatus zorsOr_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len) { return binary<Or>(src, srcDst, srcDst, len); }
ZorStatus zorsOr_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len) { return binary<Or>(src, srcDst, srcDst, len); }

ZorStatus zorsXor_8u (const Zor8u*  src1, const Zor8u*  src2, Zor8u*  dst, Zor32s len) { return binary<Xor>(src1, src2, dst, len); }
ZorStatus zorsXor_16u(const Zor16u* src1, const Zor16u* src2, Zor16u* dst, Zor32s len) { return binary<Xor>(src1, src2, dst, len); }
ZorStatus zorsXor_32u(const Zor32u* src1, const Zor32u* src2, Zor32u* dst, Zor32s len) { return binary<Xor>(src1, src2, dst, len); }
ZorStatus zorsXor_8u_I (const Zor8u*  src, Zor8u*  srcDst, Zor32s len) { return binary<Xor>(src, srcDst, srcDst, len); }
ZorStatus zorsXor_16u_I(const Zor16u* src, Zor16u* srcDst, Zor32s len) { return binary<Xor>(src, srcDst, srcDst, len); }
ZorStatus zorsXor_32u_I(const Zor32u* src, Zor32u* srcDst, Zor32s len) { return binary<Xor>(src, srcDst, srcDst, len); }

ZorStatus zorsAndC_8u (const Zor8u*  src, Zor8u  val, Zor8u*  dst, Zor32s len) { return andC(src, val, dst, len); }
ZorStatus zorsAndC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) { return andC(src, val, dst, len); }
ZorStatus zorsAndC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len) { return andC(src, val, dst, len); }
ZorStatus zorsAndC_8u_I (Zor8u  val, Zor8u*  srcDst, Zor32s len) { return andC(srcDst, val, srcDst, len); }
ZorStatus zorsAndC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len) { return andC(srcDst, val, srcDst, len); }
ZorStatus zorsAndC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len) { return andC(srcDst, val, srcDst, len); }

ZorStatus zorsOrC_8u (const Zor8u*  src, Zor8u  val, Zor8u*  dst, Zor32s len) { return orC(src, val, dst, len); }
ZorStatus zorsOrC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) { return orC(src, val, dst, len); }
ZorStatus zorsOrC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len) { return orC(src, val, dst, len); }
ZorStatus zorsOrC_8u_I (Zor8u  val, Zor8u*  srcDst, Zor32s len) { return orC(srcDst, val, srcDst, len); }
ZorStatus zorsOrC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len) { return orC(srcDst, val, srcDst, len); }
ZorStatus zorsOrC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len) { return orC(srcDst, val, srcDst, len); }

ZorStatus zorsXorC_8u (const Zor8u*  src, Zor8u  val, Zor8u*  dst, Zor32s len) { return xorC(src, val, dst, len); }
ZorStatus zorsXorC_16u(const Zor16u* src, Zor16u val, Zor16u* dst, Zor32s len) { return xorC(src, val, dst, len); }
ZorStatus zorsXorC_32u(const Zor32u* src, Zor32u val, Zor32u* dst, Zor32s len) { return xorC(src, val, dst, len); }
ZorStatus zorsXorC_8u_I (Zor8u  val, Zor8u*  srcDst, Zor32s len) { return xorC(srcDst, val, srcDst, len); }
ZorStatus zorsXorC_16u_I(Zor16u val, Zor16u* srcDst, Zor32s len) { return xorC(srcDst, val, srcDst, len); }
ZorStatus zorsXorC_32u_I(Zor32u val, Zor32u* srcDst, Zor32s len) { return xorC(srcDst, val, srcDst, len); }

ZorStatus zorsNot_8u (const Zor8u*  src, Zor8u*  dst, Zor32s len) { return complement(src, dst, len); }
ZorStatus zorsNot_16u(const Zor16u* src, Zor16u* dst, Zor32s len) { return complement(src, dst, len); }
ZorStatus zorsNot_32u(const Zor32u* src, Zor32u* dst, Zor32s len) { return complement(src, dst, len); }
ZorStatus zorsNot_8u_I (Zor8u*  srcDst, Zor32s len) { return complement(srcDst, srcDst, len); }
ZorStatus zorsNot_16u_I(Zor16u* srcDst, Zor32s len) { return complement(srcDst, srcDst, len); }
ZorStatus zorsNot_32u_I(Zor32u* srcDst, Zor32s len) { return complement(srcDst, srcDst, len); }
// clang-format on

}  // namespace zors
