// The shapes of the element-wise families: checks, then one map over a kernel.
//
// An operation takes two vectors. For floats it gives their result, for integers the exact result in one of the forms
// of scale.h, which the scale-factor rule then brings to the destination's type.
#pragma once

#include "frame/check.h"
#include "frame/map.h"
#include "frame/scale.h"
#include "zors/types.h"

namespace zors {

// ---- Operations ---------------------------------------------------------------------------------

struct Plus {
  template <class V> ZORS_INLINE auto operator()(V a, V b) const {
    using P = simd::Part<typename V::Element>;
    if constexpr (std::is_integral_v<P>)
      return Sum{simd::as<P>(a), simd::as<P>(b)};
    else
      return simd::add(a, b);
  }
};
struct Minus {
  template <class V> ZORS_INLINE auto operator()(V a, V b) const {
    using P = simd::Part<typename V::Element>;
    if constexpr (!std::is_integral_v<P>)
      return simd::sub(a, b);
    else if constexpr (std::is_signed_v<P>)
      return Difference{simd::as<P>(a), simd::as<P>(b)};
    else
      return simd::subSaturated(a, b);  // a negative difference ends as 0 at every scale
  }
};
struct PlusSaturated {
  ZORS_INLINE auto operator()(auto a, auto b) const { return simd::addSaturated(a, b); }
};
struct MinusSaturated {
  ZORS_INLINE auto operator()(auto a, auto b) const { return simd::subSaturated(a, b); }
};
// Op with its operands exchanged: the second operand of a subtraction comes first.
template <class Op> struct Reversed {
  ZORS_INLINE auto operator()(auto a, auto b) const { return Op{}(b, a); }
};

// ---- Maps ---------------------------------------------------------------------------------------

// A second operand that is the same for all elements: a register that the caller fills once.
template <class T> class Constant {
 public:
  explicit Constant(T val) : lanes_(simd::splatRegister(val)) {}
  template <class V> ZORS_INLINE V like(V) const {
    return simd::build<V>([&](auto) ZORS_INLINE_LAMBDA { return lanes_; });
  }

 private:
  typename simd::RegisterOf<T>::type lanes_;
};
// Op with that operand, a kernel of one vector.
template <class Op, class T> auto withSecond(T val) {
  return [second = Constant<T>(val)](auto x) ZORS_INLINE_LAMBDA { return Op{}(x, second.like(x)); };
}

// The parts of complex elements.
template <class C> const simd::Part<C>* parts(const C* z) { return reinterpret_cast<const simd::Part<C>*>(z); }
template <class C> simd::Part<C>* parts(C* z) { return reinterpret_cast<simd::Part<C>*>(z); }

// dst[i] = exact(src[i]...) by the scale-factor rule, part for part.
template <class D, class Exact, class... S>
void mapScaled(Exact exact, Zor32s scaleFactor, std::ptrdiff_t len, D* dst, const S*... src) {
  using namespace simd;
  constexpr int L = mapStep<D, S...>;
  using Result = decltype(exact(std::declval<Vec<S, L>>()...));
  if (scaleFactor > largestShift<Result>) {
    return static_cast<void>(map<L>([]() ZORS_INLINE_LAMBDA { return splat<Vec<D, L>>(D{}); }, len, dst));
  }
  withScale<Part<D>, Result>(scaleFactor, [&](auto scale) {
    map<L>([=](Vec<S, L>... x) ZORS_INLINE_LAMBDA { return as<D>(scale(exact(x...))); }, len, dst, src...);
  });
}

// ---- Shapes -------------------------------------------------------------------------------------

// dst[i] = Op()(src1[i], src2[i]); in place the source-destination is the second operand.
template <class Op, class D, class S1, class S2> ZorStatus binary(const S1* src1, const S2* src2, D* dst, Zor32s len) {
  return check().pointers(src1, src2, dst).size(len).then([&] { map<mapStep<D, S1, S2>>(Op{}, len, dst, src1, src2); });
}
// dst[i] = Op()(src[i], val).
template <class Op, class T> ZorStatus withConstant(const T* src, T val, T* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<mapStep<T>>(withSecond<Op>(val), len, dst, src); });
}

// The same, scaled.
template <class Op, class D, class S1, class S2>
ZorStatus binaryScaled(const S1* src1, const S2* src2, D* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len).then([&] { mapScaled(Op{}, scaleFactor, len, dst, src1, src2); });
}
template <class Op, class T> ZorStatus withConstantScaled(const T* src, T val, T* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] { mapScaled(withSecond<Op>(val), scaleFactor, len, dst, src); });
}

// Complex vectors as real ones of twice the length; the length is tested first.
template <class Op, class C> ZorStatus binaryOfParts(const C* src1, const C* src2, C* dst, Zor32s len) {
  return check().size(len).pointers(src1, src2, dst).then([&] {
    map<mapStep<simd::Part<C>>>(Op{}, std::ptrdiff_t{2} * len, parts(dst), parts(src1), parts(src2));
  });
}
template <class Op, class C>
ZorStatus binaryOfPartsScaled(const C* src1, const C* src2, C* dst, Zor32s len, Zor32s scaleFactor) {
  return check().size(len).pointers(src1, src2, dst).then([&] {
    mapScaled(Op{}, scaleFactor, std::ptrdiff_t{2} * len, parts(dst), parts(src1), parts(src2));
  });
}

}  // namespace zors
