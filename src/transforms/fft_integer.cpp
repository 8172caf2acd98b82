// zorsFFTGetSize_*, zorsFFTInit_*, zorsFFTInitAlloc_*, zorsFFTFree_*, zorsFFTGetBufSize_*, zorsFFTFwd_*, zorsFFTInv_*
// of the 32-bit integer kinds: conversion to floating point, a float transform in the work buffer, conversion back.
#include <new>

#include "transforms/fft_spec.h"

namespace zors::fft {

// A float kind by its operations.
template <class S, decltype(&zors::zorsFFTGetSize_C_64fc) sizes,
          ZorStatus (*build)(S**, Zor32s, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*)>
struct FloatKind {
  using Spec = S;
  static constexpr auto getSize = sizes;
  static constexpr auto init = build;
};
using Complex64 = FloatKind<ZorsFFTSpec_C_64fc, zors::zorsFFTGetSize_C_64fc, zors::zorsFFTInit_C_64fc>;
using SplitComplex64 = FloatKind<ZorsFFTSpec_C_64f, zors::zorsFFTGetSize_C_64f, zors::zorsFFTInit_C_64f>;
using Real64 = FloatKind<ZorsFFTSpec_R_64f, zors::zorsFFTGetSize_R_64f, zors::zorsFFTInit_R_64f>;
using Real32 = FloatKind<ZorsFFTSpec_R_32f, zors::zorsFFTGetSize_R_32f, zors::zorsFFTInit_R_32f>;

// An integer kind stands before the float specification that does its work. headBytes is the room of the converted
// data.
template <class Float> struct Wrapper {
  using Inner = Float;
  Zor32u tag;
  Zor32s order, hint, workSize, ownsBlock;
  void* block;
  typename Float::Spec* inner;
};

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

// ---- Specifications
// -----------------------------------------------------------------------------------------------------

constexpr Zor32s wrapped(Zor64s bytes) {
  return static_cast<Zor32s>(static_cast<Zor64u>(bytes));
}  // as 32-bit arithmetic does

struct WrapperSizes {
  Zor64s spec, init, work;
};  // work without the slack for aligning
template <class S> ZorStatus innerSizes(Zor32s order, Zor32s flag, WrapperSizes& sizes) {
  Zor32s spec = 0, init = 0, work = 0;
  const ZorStatus status = S::Inner::getSize(order, flag, zorAlgHintNone, &spec, &init, &work);
  sizes = {.spec = Zor64s{spec} + 128,
           .init = init > 0 ? Zor64s{init} + 64 : 0,
           .work = work + S::headBytes(Zor64s{1} << order)};
  return status;
}

template <class S> ZorStatus getSize(Zor32s order, Zor32s flag, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  constexpr Zor32u largestOfAll = 30;
  return check()
      .require(static_cast<Zor32u>(order) <= largestOfAll, zorStatusBadOrder)
      .pointers(specSize, initSize, workSize)
      .then([&] {
        WrapperSizes sizes{};
        const ZorStatus status = innerSizes<S>(order, flag, sizes);
        if (status != zorStatusOk) return status;
        *specSize = wrapped(sizes.spec);
        *initSize = wrapped(sizes.init);
        *workSize = wrapped(withSlack(sizes.work));
        return status;
      });
}

template <class S>
ZorStatus init(S** specOut, Zor32s order, Zor32s flag, Zor32s hint, Zor8u* specBlock, Zor8u* initBuffer) {
  return check()
      .pointers(specOut)
      .require(order >= 0 && order <= 30, zorStatusBadOrder)
      .pointers(specBlock)
      .then([&]() -> ZorStatus {
        S& spec = *new (alignUp(specBlock, Scratch::alignment)) S{};
        static_assert(sizeof(S) <= Scratch::alignment);
        WrapperSizes sizes{};
        ZorStatus status = innerSizes<S>(order, flag, sizes);
        if (status == zorStatusOk)
          status = S::Inner::init(&spec.inner, order, flag, hint, reinterpret_cast<Zor8u*>(&spec) + Scratch::alignment,
                                  initBuffer);
        if (status != zorStatusOk) {
          spec = {};
          return status;
        }
        spec.order = order;
        spec.hint = hint;
        spec.workSize = wrapped(sizes.work);
        spec.tag = S::kind;
        *specOut = &spec;
        return zorStatusOk;
      });
}

template <class S> ZorStatus initAlloc(S** specOut, Zor32s order, Zor32s flag, Zor32s hint) {
  Zor32s specSize = 0, initSize = 0, workSize = 0;
  if (specOut == nullptr) return zorStatusNullPointer;
  if (const ZorStatus status = getSize<S>(order, flag, &specSize, &initSize, &workSize); status != zorStatusOk)
    return status;
  return allocated(specOut, specSize, initSize, [&](Zor8u* block, Zor8u* initBuffer) {
    return init(specOut, order, flag, hint, block, initBuffer);
  });
}

// ---- Transforms
// ---------------------------------------------------------------------------------------------------------

// spec, its kind, data; then run(head, rest of the work memory), which returns a status.
template <class T, class S, class Run, class... P>
ZorStatus throughFloat(const S* spec, Zor8u* buffer, Run run, P*... data) {
  return check().pointers(spec).state(spec, S::kind).pointers(data...).then([&]() -> ZorStatus {
    const Scratch work(buffer, static_cast<std::size_t>(spec->workSize));
    if (!work) return zorStatusNoMemory;
    const auto n = Zor64s{1} << spec->order;
    return run(work.as<T>(), alignUp(work.data() + S::headBytes(n), Scratch::alignment), static_cast<Zor32s>(n));
  });
}
// A status of several steps, the first that fails.
template <class... Step> ZorStatus inTurn(Step... step) {
  ZorStatus status = zorStatusOk;
  (void)((status = step(), status == zorStatusOk) && ...);
  return status;
}

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

enum class Spectrum { packed, ccs };
constexpr Zor32s spectrumLen(Spectrum spectrum, Zor32s n) {
  return spectrum == Spectrum::packed ? n : n == 1 ? 2 : n + 2;
}
using RealInPlace = ZorStatus (*)(Zor64f*, const ZorsFFTSpec_R_64f*, Zor8u*);

ZorStatus real(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
               Zor8u* buffer, Spectrum from, Spectrum to) {
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
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Spectrum::packed, Spectrum::packed);
}
ZorStatus toCcs(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec, Zor32s scaleFactor,
                Zor8u* buffer) {
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Spectrum::packed, Spectrum::ccs);
}
ZorStatus fromCcs(RealInPlace inPlace, const Zor32s* src, Zor32s* dst, const ZorsFFTSpec_R_32s* spec,
                  Zor32s scaleFactor, Zor8u* buffer) {
  return real(inPlace, src, dst, spec, scaleFactor, buffer, Spectrum::ccs, Spectrum::packed);
}

}  // namespace

// clang-format off
ZorStatus zorsFFTGetSize_C_32sc(Zor32s order, Zor32s flag, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_32sc>(order, flag, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_C_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_32s>(order, flag, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_R_32s(Zor32s order, Zor32s flag, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_R_32s>(order, flag, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_R_16s32s(Zor32s order, Zor32s flag, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_R_16s32s>(order, flag, specSize, initSize, workSize); }
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
                      [&] { return zors::zorsFFTFwd_RToCCS_32f_I(head, spec->inner, rest); },
                      [&] {
                        return zors::zorsConvert_32f32s_Sfs(head, dst, spectrumLen(Spectrum::ccs, n),
                                                            zorRoundNearestEven, scaleFactor);
                      });
      },
      src, dst);
}
ZorStatus zorsFFTInv_CCSToR_32s16s_Sfs(const Zor32s* src, Zor16s* dst, const ZorsFFTSpec_R_16s32s* spec,
                                       Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) {
        return inTurn([&] { return zors::zorsConvert_32s32f(src, head, spectrumLen(Spectrum::ccs, n)); },
                      [&] { return zors::zorsFFTInv_CCSToR_32f_I(head, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(head, dst, n, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}

}  // namespace zors
