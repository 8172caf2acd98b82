// zorsAddProduct_*, zorsAddProductC_*: products added to a vector.
#include "exports/arithmetic.h"
#include "exports/memory.h"
#include "frame/products.h"

namespace zors {
namespace {

using namespace simd;

// a * b + c of pairs by two fused steps a part: the terms of b.im with c, then those of b.re.
ZORS_INLINE __m256 addProductOfPairs(__m256 a, __m256 b, __m256 c) {
  const __m256 t = _mm256_fmaddsub_ps(_mm256_movehdup_ps(b), _mm256_permute_ps(a, 0xB1), c);
  return _mm256_fmaddsub_ps(_mm256_moveldup_ps(b), a, t);
}
ZORS_INLINE __m256d addProductOfPairs(__m256d a, __m256d b, __m256d c) {
  const __m256d t = _mm256_fmaddsub_pd(_mm256_permute_pd(b, 0xF), _mm256_permute_pd(a, 0x5), c);
  return _mm256_fmaddsub_pd(_mm256_movedup_pd(b), a, t);
}

struct AddProduct {
  template <class V> ZORS_INLINE V operator()(V a, V b, V c) const {
    if constexpr (std::is_floating_point_v<typename V::Element>)
      return fma(a, b, c);
    else
      return build<V>([&](auto i) ZORS_INLINE_LAMBDA { return addProductOfPairs(a.r[i], b.r[i], c.r[i]); });
  }
};

template <class T> ZorStatus addProduct(const T* src1, const T* src2, T* srcDst, Zor32s len) {
  return check().pointers(src1, src2, srcDst).size(len).then([&] {
    map<mapStep<T>>(AddProduct{}, len, srcDst, src1, src2, static_cast<const T*>(srcDst));
  });
}

// The exact product is scaled and saturated, then added with saturation.
template <class Op, class D, class S>
void addScaledProduct(const S* src1, const S* src2, D* srcDst, Zor32s len, Zor32s scaleFactor) {
  constexpr int L = mapStep<D, S>;
  using Exact = decltype(Op{}(std::declval<Vec<S, L>>(), std::declval<Vec<S, L>>()));
  if (scaleFactor > largestShift<Exact>) return;  // every product rounds to 0
  withScale<D, Exact>(scaleFactor, [&](auto scale) {
    map<L>([=](auto a, auto b, auto c) ZORS_INLINE_LAMBDA { return addSaturated(c, scale(Op{}(a, b))); }, len, srcDst,
           src1, src2, static_cast<const D*>(srcDst));
  });
}

}  // namespace

// Above 31 the destination is cleared.
ZorStatus zorsAddProduct_16s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor16s* srcDst, Zor32s len,
                                 Zor32s scaleFactor) {
  return check().pointers(src1, src2, srcDst).size(len).then([&] {
    if (scaleFactor > 31)
      zors::zorsZero_16s(srcDst, len);
    else
      addScaledProduct<Times>(src1, src2, srcDst, len, scaleFactor);
  });
}
ZorStatus zorsAddProduct_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s* srcDst, Zor32s len,
                                    Zor32s scaleFactor) {
  return check().pointers(src1, src2, srcDst).size(len).then([&] {
    addScaledProduct<TimesWide>(src1, src2, srcDst, len, scaleFactor);
  });
}
ZorStatus zorsAddProduct_32s_Sfs(const Zor32s* src1, const Zor32s* src2, Zor32s* srcDst, Zor32s len,
                                 Zor32s scaleFactor) {
  return check().pointers(src1, src2, srcDst).size(len).then([&] {
    addScaledProduct<Times>(src1, src2, srcDst, len, scaleFactor);
  });
}

ZorStatus zorsAddProductC_32f(const Zor32f* src, Zor32f val, Zor32f* srcDst, Zor32s len) {
  return check().pointers(src, srcDst).size(len).then([&] {
    map<mapStep<Zor32f>>([=](auto x, auto y) ZORS_INLINE_LAMBDA { return fma(x, same(x, val), y); }, len, srcDst, src,
                       static_cast<const Zor32f*>(srcDst));
  });
}

// clang-format off
ZorStatus zorsAddProduct_32f(const Zor32f* src1, const Zor32f* src2, Zor32f* srcDst, Zor32s len) { return addProduct(src1, src2, srcDst, len); }
ZorStatus zorsAddProduct_64f(const Zor64f* src1, const Zor64f* src2, Zor64f* srcDst, Zor32s len) { return addProduct(src1, src2, srcDst, len); }
ZorStatus zorsAddProduct_32fc(const Zor32fc* src1, const Zor32fc* src2, Zor32fc* srcDst, Zor32s len) { return addProduct(src1, src2, srcDst, len); }
ZorStatus zorsAddProduct_64fc(const Zor64fc* src1, const Zor64fc* src2, Zor64fc* srcDst, Zor32s len) { return addProduct(src1, src2, srcDst, len); }
// clang-format on

}  // namespace zors
