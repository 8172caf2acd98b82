// zorsFFTGetSize_*, zorsFFTInit_*, zorsFFTInitAlloc_*, zorsFFTFree_*, zorsFFTGetBufSize_*, zorsFFTFwd_*, zorsFFTInv_*
// of the 32-bit integer kinds.
#include "fft/fft_integer.h"
#include "exports/conversion.h"
#include "exports/fft.h"

namespace zors::fft {

using Complex64 = FloatKind<ZorsFFTSpec_C_64fc, zors::zorsFFTGetSize_C_64fc, zors::zorsFFTInit_C_64fc>;
using SplitComplex64 = FloatKind<ZorsFFTSpec_C_64f, zors::zorsFFTGetSize_C_64f, zors::zorsFFTInit_C_64f>;
using Real64 = FloatKind<ZorsFFTSpec_R_64f, zors::zorsFFTGetSize_R_64f, zors::zorsFFTInit_R_64f>;
using Real32 = FloatKind<ZorsFFTSpec_R_32f, zors::zorsFFTGetSize_R_32f, zors::zorsFFTInit_R_32f>;

}  // namespace zors::fft

struct ZorsFFTSpec_C_32sc : zors::fft::Wrapper<zors::fft::Complex64> {
  static constexpr zors::Tag kind = zors::tag("CMAL");
  static constexpr Zor64s headBytes(Zor64s n) { return 16 * n; }
};
struct ZorsFFTSpec_C_32s : zors::fft::Wrapper<zors::fft::SplitComplex64> {
  static constexpr zors::Tag kind = zors::tag("CMAM");
  static constexpr Zor64s headBytes(Zor64s n) { return 16 * n; }
};
struct ZorsFFTSpec_R_32s : zors::fft::Wrapper<zors::fft::Real64> {
  static constexpr zors::Tag kind = zors::tag("CMAN");
  static constexpr Zor64s headBytes(Zor64s n) { return 8 * n + 16; }
};
struct ZorsFFTSpec_R_16s32s : zors::fft::Wrapper<zors::fft::Real32> {
  static constexpr zors::Tag kind = zors::tag("CMAO");
  static constexpr Zor64s headBytes(Zor64s n) { return 4 * n + 8; }
};

namespace zors {
namespace {

using namespace fft;

ZorStatus interleaved(ZorStatus (*inPlace)(Zor64fc*, const ZorsFFTSpec_C_64fc*, Zor8u*), const Zor32sc* src,
                      Zor32sc* dst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor64f>(
      spec, buffer,
      [&](Zor64f* head, Zor8u* rest, Zor32s n) {
        return inTurn(
            [&] { return zors::zorsConvert_32s64f(&src->re, head, 2 * n); },
            [&] { return inPlace(reinterpret_cast<Zor64fc*>(head), spec->inner, rest); },
            [&] { return zors::zorsConvert_64f32s_Sfs(head, &dst->re, 2 * n, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}
ZorStatus split(ZorStatus (*inPlace)(Zor64f*, Zor64f*, const ZorsFFTSpec_C_64f*, Zor8u*), const Zor32s* srcRe,
                const Zor32s* srcIm, Zor32s* dstRe, Zor32s* dstIm, const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor,
                Zor8u* buffer) {
  return throughFloat<Zor64f>(
      spec, buffer,
      [&](Zor64f* re, Zor8u* rest, Zor32s n) {
        Zor64f* const im = re + n;
        return inTurn([&] { return zors::zorsConvert_32s64f(srcRe, re, n); },
                      [&] { return zors::zorsConvert_32s64f(srcIm, im, n); },
                      [&] { return inPlace(re, im, spec->inner, rest); },
                      [&] { return zors::zorsConvert_64f32s_Sfs(re, dstRe, n, zorRoundNearestEven, scaleFactor); },
                      [&] { return zors::zorsConvert_64f32s_Sfs(im, dstIm, n, zorRoundNearestEven, scaleFactor); });
      },
      srcRe, srcIm, dstRe, dstIm);
}

using RealInPlace = ZorStatus (*)(Zor64f*, const ZorsFFTSpec_R_64f*, Zor8u*);

ZorStatus real(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
               Zor8u* buffer, Packed from, Packed to) {
  return throughFloat<Zor64f>(
      spec, buffer,
      [&](Zor64f* head, Zor8u* rest, Zor32s n) {
        return inTurn([&] { return zors::zorsConvert_32s64f(src, head, spectrumLen(from, n)); },
                      [&] { return inPlace(head, spec->inner, rest); },
                      [&] {
                        return zors::zorsConvert_64f32s_Sfs(head, dst, spectrumLen(to, n), zorRoundNearestEven,
                                                            scaleFactor);
                      });
      },
      src, dst);
}

ZorStatus packed(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                 Zor8u* buffer) {
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Packed::perm, Packed::perm);
}
ZorStatus toCcs(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                Zor8u* buffer) {
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Packed::perm, Packed::ccs);
}
ZorStatus fromCcs(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec,
                  Zor32s scaleFactor, Zor8u* buffer) {
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Packed::ccs, Packed::perm);
}

}  // namespace

// clang-format off
ZorStatus zorsFFTGetSize_C_32sc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_32sc>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_C_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_32s>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_R_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_R_32s>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_R_16s32s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_R_16s32s>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTInit_C_32sc(ZorsFFTSpec_C_32sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInit_C_32s(ZorsFFTSpec_C_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInit_R_32s(ZorsFFTSpec_R_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInit_R_16s32s(ZorsFFTSpec_R_16s32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInitAlloc_C_32sc(ZorsFFTSpec_C_32sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_C_32s(ZorsFFTSpec_C_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_R_32s(ZorsFFTSpec_R_32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_R_16s32s(ZorsFFTSpec_R_16s32s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTFree_C_32sc(ZorsFFTSpec_C_32sc* spec) { return release(spec); }
ZorStatus zorsFFTFree_C_32s(ZorsFFTSpec_C_32s* spec) { return release(spec); }
ZorStatus zorsFFTFree_R_32s(ZorsFFTSpec_R_32s* spec) { return release(spec); }
ZorStatus zorsFFTFree_R_16s32s(ZorsFFTSpec_R_16s32s* spec) { return release(spec); }
ZorStatus zorsFFTGetBufSize_C_32sc(const ZorsFFTSpec_C_32sc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_C_32s(const ZorsFFTSpec_C_32s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_R_32s(const ZorsFFTSpec_R_32s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_R_16s32s(const ZorsFFTSpec_R_16s32s* spec, Zor32s* size) { return getBufSize(spec, size); }

ZorStatus zorsFFTFwd_CToC_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsFFTFwd_CToC_64fc_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_32sc_ISfs(Zor32sc* srcDst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsFFTFwd_CToC_64fc_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_32s_Sfs(const Zor32s* srcRe, const Zor32s* srcIm, Zor32s* dstRe, Zor32s* dstIm, const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsFFTFwd_CToC_64f_I, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_32s_ISfs(Zor32s* srcDstRe, Zor32s* srcDstIm, const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsFFTFwd_CToC_64f_I, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_32sc_Sfs(const Zor32sc* src, Zor32sc* dst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsFFTInv_CToC_64fc_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_32sc_ISfs(Zor32sc* srcDst, const ZorsFFTSpec_C_32sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsFFTInv_CToC_64fc_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_32s_Sfs(const Zor32s* srcRe, const Zor32s* srcIm, Zor32s* dstRe, Zor32s* dstIm, const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsFFTInv_CToC_64f_I, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_32s_ISfs(Zor32s* srcDstRe, Zor32s* srcDstIm, const ZorsFFTSpec_C_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsFFTInv_CToC_64f_I, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPack_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTFwd_RToPack_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPack_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTFwd_RToPack_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPerm_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTFwd_RToPerm_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPerm_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTFwd_RToPerm_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToCCS_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return toCcs(zors::zorsFFTFwd_RToCCS_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToCCS_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return toCcs(zors::zorsFFTFwd_RToCCS_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PackToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTInv_PackToR_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PackToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTInv_PackToR_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PermToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTInv_PermToR_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PermToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return packed(zors::zorsFFTInv_PermToR_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CCSToR_32s_Sfs(const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return fromCcs(zors::zorsFFTInv_CCSToR_64f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CCSToR_32s_ISfs(Zor32s* srcDst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor, Zor8u* buffer) { return fromCcs(zors::zorsFFTInv_CCSToR_64f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
// clang-format on

// 16-bit values and a 32-bit spectrum, in binary32.
ZorStatus zorsFFTFwd_RToCCS_16s32s_Sfs(const Zor16s* src, Zor32s* dst, const ZorsFFTSpec_R_16s32s* spec,
                                       Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) {
        return inTurn([&] { return zors::zorsConvert_16s32f(src, head, n); },
                      [&] { return zors::zorsFFTFwd_RToPerm_32f_I(head, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f32s_Sfs(head, dst, n, zorRoundNearestEven, scaleFactor); },
                      [&] {  // the zeros of the format stay zeros whatever the factor
                        fromPerm<Packed::ccs>(dst, static_cast<std::size_t>(n));
                        return zorStatusOk;
                      });
      },
      src, dst);
}
ZorStatus zorsFFTInv_CCSToR_32s16s_Sfs(const Zor32s* src, Zor16s* dst, const ZorsFFTSpec_R_16s32s* spec,
                                       Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) {
        return inTurn([&] { return zors::zorsConvert_32s32f(src, head, spectrumLen(Packed::ccs, n)); },
                      [&] { return zors::zorsFFTInv_CCSToR_32f_I(head, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(head, dst, n, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}

}  // namespace zors
