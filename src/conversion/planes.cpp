// zorsReal_*, zorsImag_*, zorsCplxToReal_*, zorsRealToCplx_*, zorsConj_*, zorsConjFlip_*: complex vectors and their
// parts.
#include "exports/conversion.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

struct Real {
  template <class V> ZORS_INLINE auto operator()(V z) const { return realPart(z); }
};
struct Imag {
  template <class V> ZORS_INLINE auto operator()(V z) const { return imagPart(z); }
};
struct Conj {
  template <class V> ZORS_INLINE auto operator()(V z) const { return conjugate(z); }
};

template <class Op, class D, class S> ZorStatus convert(const S* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<mapStep<D, S>>(Op{}, len, dst, src); });
}

template <class R, class C> ZorStatus split(const C* src, R* dstRe, R* dstIm, Zor32s len) {
  return check().pointers(src, dstRe, dstIm).size(len).then([&] {
    mapToTwo<mapStep<R>>(
        [](auto z) ZORS_INLINE_LAMBDA {
          return Both{realPart(z), imagPart(z)};
        },
        len, dstRe, dstIm, src);
  });
}

// Either source may be null, and the part is zero then.
template <class R, class C> ZorStatus join(const R* srcRe, const R* srcIm, C* dst, Zor32s len) {
  return check().pointers(dst).require(srcRe != nullptr || srcIm != nullptr, zorStatusNullPointer).size(len).then([&] {
    constexpr int lanes = mapStep<R>;
    if (srcIm == nullptr)
      map<lanes>([](auto re) ZORS_INLINE_LAMBDA { return toComplex(re, same(re, R{})); }, len, dst, srcRe);
    else if (srcRe == nullptr)
      map<lanes>([](auto im) ZORS_INLINE_LAMBDA { return toComplex(same(im, R{}), im); }, len, dst, srcIm);
    else
      map<lanes>([](auto re, auto im) ZORS_INLINE_LAMBDA { return toComplex(re, im); }, len, dst, srcRe, srcIm);
  });
}

// dst[i] = conj(src[len - 1 - i]); the last vector of dst overlaps the one before.
template <class C> [[gnu::flatten]] void flipConjugate(const C* src, C* dst, std::ptrdiff_t len) {
  constexpr int lanes = 2 * lanesOf<C>;
  if (len < lanes) {
    C flipped[lanes];
    store(flipped, conjugate(reversed(loadPart<lanes>(src, int(len)))));
    storePart(dst, loadPart<lanes>(flipped + lanes - len, int(len)), int(len));
    return;
  }
  for (std::ptrdiff_t i = 0; i < len - lanes; i += lanes)
    store(dst + i, conjugate(reversed(load<lanes>(src + len - lanes - i))));
  store(dst + len - lanes, conjugate(reversed(load<lanes>(src))));
}
template <class C> ZorStatus conjFlip(const C* src, C* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { flipConjugate(src, dst, len); });
}

}  // namespace

// clang-format off
ZorStatus zorsReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor32s len) { return convert<Real>(src, dstRe, len); }
ZorStatus zorsReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32s len) { return convert<Real>(src, dstRe, len); }
ZorStatus zorsReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor32s len) { return convert<Real>(src, dstRe, len); }
ZorStatus zorsImag_16sc(const Zor16sc* src, Zor16s* dstIm, Zor32s len) { return convert<Imag>(src, dstIm, len); }
ZorStatus zorsImag_32fc(const Zor32fc* src, Zor32f* dstIm, Zor32s len) { return convert<Imag>(src, dstIm, len); }
ZorStatus zorsImag_64fc(const Zor64fc* src, Zor64f* dstIm, Zor32s len) { return convert<Imag>(src, dstIm, len); }

ZorStatus zorsCplxToReal_16sc(const Zor16sc* src, Zor16s* dstRe, Zor16s* dstIm, Zor32s len) { return split(src, dstRe, dstIm, len); }
ZorStatus zorsCplxToReal_32fc(const Zor32fc* src, Zor32f* dstRe, Zor32f* dstIm, Zor32s len) { return split(src, dstRe, dstIm, len); }
ZorStatus zorsCplxToReal_64fc(const Zor64fc* src, Zor64f* dstRe, Zor64f* dstIm, Zor32s len) { return split(src, dstRe, dstIm, len); }
ZorStatus zorsRealToCplx_16s(const Zor16s* srcRe, const Zor16s* srcIm, Zor16sc* dst, Zor32s len) { return join(srcRe, srcIm, dst, len); }
ZorStatus zorsRealToCplx_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32fc* dst, Zor32s len) { return join(srcRe, srcIm, dst, len); }
ZorStatus zorsRealToCplx_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64fc* dst, Zor32s len) { return join(srcRe, srcIm, dst, len); }

ZorStatus zorsConj_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len) { return convert<Conj>(src, dst, len); }
ZorStatus zorsConj_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return convert<Conj>(src, dst, len); }
ZorStatus zorsConj_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return convert<Conj>(src, dst, len); }
ZorStatus zorsConj_16sc_I(Zor16sc* srcDst, Zor32s len) { return convert<Conj>(srcDst, srcDst, len); }
ZorStatus zorsConj_32fc_I(Zor32fc* srcDst, Zor32s len) { return convert<Conj>(srcDst, srcDst, len); }
ZorStatus zorsConj_64fc_I(Zor64fc* srcDst, Zor32s len) { return convert<Conj>(srcDst, srcDst, len); }
ZorStatus zorsConjFlip_16sc(const Zor16sc* src, Zor16sc* dst, Zor32s len) { return conjFlip(src, dst, len); }
ZorStatus zorsConjFlip_32fc(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return conjFlip(src, dst, len); }
ZorStatus zorsConjFlip_64fc(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return conjFlip(src, dst, len); }
// clang-format on

}  // namespace zors
