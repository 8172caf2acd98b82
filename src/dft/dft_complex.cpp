// zorsDFTFwd_CToC_*, zorsDFTInv_CToC_* of float points.
#include "dft/dft_spec.h"

namespace zors {
namespace {

using namespace dft;

enum Direction : bool { forward = false, inverse = true };

template <class C, class S>
ZorStatus interleaved(Direction direction, const C* src, C* dst, const S* given, Zor8u* buffer) {
  return withSpec(
      given, buffer,
      [&](const S& spec, Zor8u* work) {
        if (spec.engine.method == Method::fft) {
          const auto* const fft = static_cast<const typename S::Fft::Spec*>(spec.engine.fft);
          return direction == inverse ? S::Fft::inverse(src, dst, fft, work) : S::Fft::forward(src, dst, fft, work);
        }
        return interleavedTransform(spec.engine, direction, &src->re, &dst->re, spec.factor(direction), work);
      },
      src, dst);
}
template <class T, class S>
ZorStatus split(Direction direction, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, const S* given,
                Zor8u* buffer) {
  return withSpec(
      given, buffer,
      [&](const S& spec, Zor8u* work) {
        if (spec.engine.method == Method::fft) {
          const auto* const fft = static_cast<const typename S::Fft::Spec*>(spec.engine.fft);
          return direction == inverse ? S::Fft::inverse(srcRe, srcIm, dstRe, dstIm, fft, work)
                                      : S::Fft::forward(srcRe, srcIm, dstRe, dstIm, fft, work);
        }
        return splitTransform(spec.engine, direction, Split<const T>{srcRe, srcIm}, Split<T>{dstRe, dstIm},
                              spec.factor(direction), work);
      },
      srcRe, srcIm, dstRe, dstIm);
}

}  // namespace

// clang-format off
ZorStatus zorsDFTFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(forward, src, dst, spec, buffer); }
ZorStatus zorsDFTFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(forward, src, dst, spec, buffer); }
ZorStatus zorsDFTInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(inverse, src, dst, spec, buffer); }
ZorStatus zorsDFTInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(inverse, src, dst, spec, buffer); }

ZorStatus zorsDFTFwd_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsDFTSpec_C_32f* spec, Zor8u* buffer) { return split(forward, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsDFTFwd_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsDFTSpec_C_64f* spec, Zor8u* buffer) { return split(forward, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsDFTInv_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsDFTSpec_C_32f* spec, Zor8u* buffer) { return split(inverse, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsDFTInv_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsDFTSpec_C_64f* spec, Zor8u* buffer) { return split(inverse, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
// clang-format on

}  // namespace zors
