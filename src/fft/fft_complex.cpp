// zorsFFTFwd_CToC_*, zorsFFTInv_CToC_* of float points: complex transforms, interleaved and split.
#include "exports/fft.h"
#include "fft/fft_spec.h"

namespace zors {
namespace {

using namespace fft;

enum Direction : bool { forward = false, inverse = true };

template <class P, class S>
ZorStatus interleaved(Direction direction, const P* src, P* dst, const S* spec, Zor8u* buffer) {
  using T = typename S::Element;
  return withSpec(
      spec, buffer,
      [&](Zor8u* work) {
        transform<T>(*spec, spec->order, direction, Interleaved<const T>{&src->re}, Interleaved<T>{&dst->re}, work);
      },
      src, dst);
}
template <class T, class S>
ZorStatus split(Direction direction, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, const S* spec, Zor8u* buffer) {
  return withSpec(
      spec, buffer,
      [&](Zor8u* work) {
        transform<T>(*spec, spec->order, direction, SplitPoints<const T>{srcRe, srcIm}, SplitPoints<T>{dstRe, dstIm},
                     work);
      },
      srcRe, srcIm, dstRe, dstIm);
}

}  // namespace

// clang-format off
ZorStatus zorsFFTFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(forward, src, dst, spec, buffer); }
ZorStatus zorsFFTFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(forward, src, dst, spec, buffer); }
ZorStatus zorsFFTInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(inverse, src, dst, spec, buffer); }
ZorStatus zorsFFTInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(inverse, src, dst, spec, buffer); }

ZorStatus zorsFFTFwd_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(forward, srcDst, srcDst, spec, buffer); }
ZorStatus zorsFFTFwd_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(forward, srcDst, srcDst, spec, buffer); }
ZorStatus zorsFFTInv_CToC_32fc_I(Zor32fc* srcDst, const ZorsFFTSpec_C_32fc* spec, Zor8u* buffer) { return interleaved(inverse, srcDst, srcDst, spec, buffer); }
ZorStatus zorsFFTInv_CToC_64fc_I(Zor64fc* srcDst, const ZorsFFTSpec_C_64fc* spec, Zor8u* buffer) { return interleaved(inverse, srcDst, srcDst, spec, buffer); }

ZorStatus zorsFFTFwd_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer) { return split(forward, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsFFTFwd_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer) { return split(forward, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsFFTInv_CToC_32f(const Zor32f* srcRe, const Zor32f* srcIm, Zor32f* dstRe, Zor32f* dstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer) { return split(inverse, srcRe, srcIm, dstRe, dstIm, spec, buffer); }
ZorStatus zorsFFTInv_CToC_64f(const Zor64f* srcRe, const Zor64f* srcIm, Zor64f* dstRe, Zor64f* dstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer) { return split(inverse, srcRe, srcIm, dstRe, dstIm, spec, buffer); }

ZorStatus zorsFFTFwd_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer) { return split(forward, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer); }
ZorStatus zorsFFTFwd_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer) { return split(forward, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer); }
ZorStatus zorsFFTInv_CToC_32f_I(Zor32f* srcDstRe, Zor32f* srcDstIm, const ZorsFFTSpec_C_32f* spec, Zor8u* buffer) { return split(inverse, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer); }
ZorStatus zorsFFTInv_CToC_64f_I(Zor64f* srcDstRe, Zor64f* srcDstIm, const ZorsFFTSpec_C_64f* spec, Zor8u* buffer) { return split(inverse, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer); }
// clang-format on

}  // namespace zors
