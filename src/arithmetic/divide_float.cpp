// zorsDiv_* of floats, zorsDivC_* of floats, zorsDivCRev_32f.
#include "arithmetic/divide.h"
#include "exports/arithmetic.h"

namespace zors {
namespace {

class Division {
 public:
  template <class V> ZORS_INLINE V operator()(V divisor, V n) {
    zeros_.see(simd::equal(divisor, simd::same(divisor, 0)));
    return simd::div(n, divisor);
  }
  ZorStatus status() const { return zeros_.status(); }

 private:
  ZeroDivisors zeros_;
};

// n * conj(d), the product of zorsMul, each part divided by |d|^2 = round(re * re) + round(im * im).
template <class Part> class ComplexDivision {
 public:
  template <class V> ZORS_INLINE V operator()(V divisor, V n) {
    using namespace simd;
    using C = typename V::Element;
    const auto parts = as<Part>(divisor);
    const auto isZero = as<C>(equal(parts, same(parts, 0)));
    zeros_.see(both(isZero, swappedParts(isZero)));
    const auto squares = mul(parts, parts);
    const auto norm = add(squares, as<Part>(swappedParts(as<C>(squares))));
    return as<C>(div(as<Part>(mul(n, conjugate(divisor))), norm));
  }
  ZorStatus status() const { return zeros_.status(); }

 private:
  ZeroDivisors zeros_;
};

template <class Division, class T>
[[gnu::flatten, gnu::noinline]] ZorStatus divided(const T* src1, const T* src2, T* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] {
    return map<mapStep<T>>(Division{}, len, dst, src1, src2).status();
  });
}

[[gnu::flatten, gnu::noinline]] ZorStatus dividedOf(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    return map<8>(DivisionOf{Division{}, val}, len, dst, src).division.status();
  });
}

// The elements are multiplied by the rounded reciprocal of val.
template <class T>
ZorStatus dividedBy(ZorStatus mulC(const T*, T, T*, Zor32s), const T* src, T val, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).require(val != 0, zorStatusDivideByZero).then([&] {
    return mulC(src, 1 / val, dst, len);
  });
}

// By conj(val) / |val|^2, the norm in the precision of the elements.
template <class C>
ZorStatus dividedByComplex(ZorStatus mulC(const C*, C, C*, Zor32s), const C* src, C val, C* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&]() -> ZorStatus {
    const auto norm = val.re * val.re + val.im * val.im;
    if (norm == 0) return zorStatusDivideByZero;
    return mulC(src, {val.re / norm, -val.im / norm}, dst, len);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDiv_32f (const Zor32f*  src1, const Zor32f*  src2, Zor32f*  dst, Zor32s len) { return divided<Division>(src1, src2, dst, len); }
ZorStatus zorsDiv_64f (const Zor64f*  src1, const Zor64f*  src2, Zor64f*  dst, Zor32s len) { return divided<Division>(src1, src2, dst, len); }
ZorStatus zorsDiv_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* dst, Zor32s len) { return divided<ComplexDivision<Zor32f>>(src1, src2, dst, len); }
ZorStatus zorsDiv_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* dst, Zor32s len) { return divided<ComplexDivision<Zor64f>>(src1, src2, dst, len); }
ZorStatus zorsDiv_32f_I (const Zor32f*  src, Zor32f*  srcDst, Zor32s len) { return divided<Division>(src, srcDst, srcDst, len); }
ZorStatus zorsDiv_64f_I (const Zor64f*  src, Zor64f*  srcDst, Zor32s len) { return divided<Division>(src, srcDst, srcDst, len); }
ZorStatus zorsDiv_32fc_I(const Zor32fc* src, Zor32fc* srcDst, Zor32s len) { return divided<ComplexDivision<Zor32f>>(src, srcDst, srcDst, len); }
ZorStatus zorsDiv_64fc_I(const Zor64fc* src, Zor64fc* srcDst, Zor32s len) { return divided<ComplexDivision<Zor64f>>(src, srcDst, srcDst, len); }

ZorStatus zorsDivCRev_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return dividedOf(src, val, dst, len); }
ZorStatus zorsDivCRev_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return dividedOf(srcDst, val, srcDst, len); }

ZorStatus zorsDivC_32f(const Zor32f* src, Zor32f val, Zor32f* dst, Zor32s len) { return dividedBy(zors::zorsMulC_32f, src, val, dst, len); }
ZorStatus zorsDivC_64f(const Zor64f* src, Zor64f val, Zor64f* dst, Zor32s len) { return dividedBy(zors::zorsMulC_64f, src, val, dst, len); }
ZorStatus zorsDivC_32f_I(Zor32f val, Zor32f* srcDst, Zor32s len) { return dividedBy(zors::zorsMulC_32f, srcDst, val, srcDst, len); }
ZorStatus zorsDivC_64f_I(Zor64f val, Zor64f* srcDst, Zor32s len) { return dividedBy(zors::zorsMulC_64f, srcDst, val, srcDst, len); }
ZorStatus zorsDivC_32fc(const Zor32fc* src, Zor32fc val, Zor32fc* dst, Zor32s len) { return dividedByComplex(zors::zorsMulC_32fc, src, val, dst, len); }
ZorStatus zorsDivC_64fc(const Zor64fc* src, Zor64fc val, Zor64fc* dst, Zor32s len) { return dividedByComplex(zors::zorsMulC_64fc, src, val, dst, len); }
ZorStatus zorsDivC_32fc_I(Zor32fc val, Zor32fc* srcDst, Zor32s len) { return dividedByComplex(zors::zorsMulC_32fc, srcDst, val, srcDst, len); }
ZorStatus zorsDivC_64fc_I(Zor64fc val, Zor64fc* srcDst, Zor32s len) { return dividedByComplex(zors::zorsMulC_64fc, srcDst, val, srcDst, len); }
// clang-format on

}  // namespace zors
