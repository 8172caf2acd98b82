// zorsFFTGetSize_*, zorsFFTInit_*, zorsFFTInitAlloc_*, zorsFFTFree_*, zorsFFTGetBufSize_*, zorsFFTFwd_*, zorsFFTInv_*
// of the 16-bit kinds: in fixed point up to order 3 where the hint does not ask for accuracy, else in binary32.
#include "exports/conversion.h"
#include "exports/fft.h"
#include "fft/fft_fixed.h"
#include "fft/fft_integer.h"

namespace zors::fft {

using Complex32 = FloatKind<ZorsFFTSpec_C_32fc, zors::zorsFFTGetSize_C_32fc, zors::zorsFFTInit_C_32fc>;
using SplitComplex32 = FloatKind<ZorsFFTSpec_C_32f, zors::zorsFFTGetSize_C_32f, zors::zorsFFTInit_C_32f>;
using Real32 = FloatKind<ZorsFFTSpec_R_32f, zors::zorsFFTGetSize_R_32f, zors::zorsFFTInit_R_32f>;

constexpr Zor64s roundedDown64(Zor64s bytes) { return bytes / 64 * 64; }

template <class Float> struct Wrapper16 : Wrapper<Float> {
  static constexpr bool hasFixedPath = true;
  static constexpr Zor64s headerBytes = 128;
  static constexpr Zor64s initBytes(Zor64s inner) { return inner + 64; }
  // One point is a narrowing, whatever the hint.
  static constexpr bool usesFixed(Zor32s order, Zor32s hint) {
    return order == 0 || (order <= fixed::largestOrder && (hint == zorAlgHintNone || hint == zorAlgHintFast));
  }

  // Of the fixed-point path: the result is divided by 2^shift, and by the root of 2 where halfShift is set.
  Zor32s shiftForward, shiftInverse, halfShift, usesFloat;

  void setFlag(Zor32s flag) {
    const Zor32s whole = this->order, ofRoot = flag == ZOR_FFT_DIVIDE_BOTH_ROOT ? whole >> 1 : 0;
    usesFloat = usesFixed(whole, this->hint) ? 0 : 1;
    shiftForward = flag == ZOR_FFT_DIVIDE_FORWARD ? whole : ofRoot;
    shiftInverse = flag == ZOR_FFT_DIVIDE_INVERSE ? whole : ofRoot;
    halfShift = flag == ZOR_FFT_DIVIDE_BOTH_ROOT ? whole & 1 : 0;
  }
  Zor32s shift(bool inverse) const { return inverse ? shiftInverse : shiftForward; }
};
constexpr IntegerSizes fixedComplexSizes(Zor32s order, Zor64s workPerPoint) {
  if (order == 0) return {.spec = 136, .init = 0, .work = 0};
  const Zor64s n = Zor64s{1} << order;
  return {.spec = roundedDown64(8 * n + 63) + roundedDown64(n + 67) + 192,
          .init = roundedDown64(n / 2 + 65) + 64,
          .work = workPerPoint * n};
}

}  // namespace zors::fft

struct ZorsFFTSpec_C_16sc : zors::fft::Wrapper16<zors::fft::Complex32> {
  static constexpr zors::Tag kind = zors::tag(1);
  static constexpr Zor64s headBytes(Zor64s n) { return 8 * n; }
  static constexpr zors::fft::IntegerSizes fixedSizes(Zor32s order) { return zors::fft::fixedComplexSizes(order, 8); }
};
struct ZorsFFTSpec_C_16s : zors::fft::Wrapper16<zors::fft::SplitComplex32> {
  static constexpr zors::Tag kind = zors::tag(2);
  static constexpr Zor64s headBytes(Zor64s n) { return 8 * n; }
  static constexpr zors::fft::IntegerSizes fixedSizes(Zor32s order) { return zors::fft::fixedComplexSizes(order, 12); }
};
struct ZorsFFTSpec_R_16s : zors::fft::Wrapper16<zors::fft::Real32> {
  static constexpr zors::Tag kind = zors::tag(3);
  static constexpr Zor64s headBytes(Zor64s n) { return 4 * n + 8; }
  static constexpr zors::fft::IntegerSizes fixedSizes(Zor32s order) {
    if (order == 0) return zors::fft::fixedComplexSizes(0, 0);
    const Zor64s n = Zor64s{1} << order;
    return {.spec = zors::fft::roundedDown64(4 * n + 63) + zors::fft::roundedDown64(n / 2 + 67) +
                    zors::fft::roundedDown64(8 * n + 63) + 192,
            .init = zors::fft::roundedDown64(n / 2 + 65) + 64,
            .work = 4 * n + 8};
  }
};

namespace zors {
namespace {

using namespace fft;
using fixed::Point;

// The fixed-point arithmetic leaves this many bits above a value of 16 bits after `order` doublings.
constexpr int headroom(Zor32s order) { return 15 - order; }

template <class S> void divideByRoot(const S& spec, Point* x, int points) {
  if (spec.halfShift == 0) return;
  for (int i = 0; i < points; ++i) x[i] = {fixed::overRootOfTwo(x[i].re), fixed::overRootOfTwo(x[i].im)};
}

// read(i) and write(i, re, im) reach the points, all read before any is written.
template <class S, class Read, class Write>
void complexFixed(const S& spec, bool inverse, Zor32s scaleFactor, Read read, Write write) {
  const Zor32s order = spec.order;
  const int n = 1 << order, up = order == 0 ? 0 : headroom(order);
  Point x[1 << fixed::largestOrder];
  for (int i = 0; i < n; ++i) {
    const Point point = read(i);
    x[i] = {point.re * (1 << up), point.im * (1 << up)};
  }
  fixed::transform(x, order, inverse);
  divideByRoot(spec, x, n);
  const Zor64s down = Zor64s{up} + spec.shift(inverse) + scaleFactor;
  for (int i = 0; i < n; ++i) write(i, fixed::narrowed(x[i].re, down), fixed::narrowed(x[i].im, down));
}

ZorStatus interleaved(bool inverse, const Zor16sc* src, Zor16sc* dst, const ZorsFFTSpec_C_16sc* spec,
                      Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) -> ZorStatus {
        if (spec->usesFloat == 0) {
          complexFixed(
              *spec, inverse, scaleFactor,
              [&](int i) {
                return Point{src[i].re, src[i].im};
              },
              [&](int i, Zor16s re, Zor16s im) {
                dst[i] = {re, im};
              });
          return zorStatusOk;
        }
        const auto inPlace = inverse ? zors::zorsFFTInv_CToC_32fc_I : zors::zorsFFTFwd_CToC_32fc_I;
        return inTurn(
            [&] { return zors::zorsConvert_16s32f(&src->re, head, 2 * n); },
            [&] { return inPlace(reinterpret_cast<Zor32fc*>(head), spec->inner, rest); },
            [&] { return zors::zorsConvert_32f16s_Sfs(head, &dst->re, 2 * n, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}
ZorStatus split(bool inverse, const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm,
                const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* re, Zor8u* rest, Zor32s n) -> ZorStatus {
        if (spec->usesFloat == 0) {
          complexFixed(
              *spec, inverse, scaleFactor,
              [&](int i) {
                return Point{srcRe[i], srcIm[i]};
              },
              [&](int i, Zor16s outRe, Zor16s outIm) { dstRe[i] = outRe, dstIm[i] = outIm; });
          return zorStatusOk;
        }
        Zor32f* const im = re + n;
        const auto inPlace = inverse ? zors::zorsFFTInv_CToC_32f_I : zors::zorsFFTFwd_CToC_32f_I;
        return inTurn([&] { return zors::zorsConvert_16s32f(srcRe, re, n); },
                      [&] { return zors::zorsConvert_16s32f(srcIm, im, n); },
                      [&] { return inPlace(re, im, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(re, dstRe, n, zorRoundNearestEven, scaleFactor); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(im, dstIm, n, zorRoundNearestEven, scaleFactor); });
      },
      srcRe, srcIm, dstRe, dstIm);
}

// Values to Perm, or Perm to values, with one bit more of headroom on the way forward, where sums are halved.
void realFixed(const ZorsFFTSpec_R_16s& spec, bool inverse, Zor32s scaleFactor, const Zor16s* src, Zor16s* dst) {
  const Zor32s order = spec.order;
  if (order == 0) {
    dst[0] = fixed::narrowed(src[0], scaleFactor);
    return;
  }
  const int points = 1 << (order - 1), up = headroom(order) + (inverse ? 0 : 1);
  Point z[1 << fixed::largestOrder];
  for (int i = 0; i < points; ++i) z[i] = {src[2 * i] * (1 << up), src[2 * i + 1] * (1 << up)};
  if (inverse) fixed::pack(z, order);
  fixed::transform(z, order - 1, inverse);
  if (!inverse) fixed::unpack(z, order);
  divideByRoot(spec, z, points);
  const Zor64s down = Zor64s{up} + spec.shift(inverse) + scaleFactor;
  for (int i = 0; i < points; ++i) {
    dst[2 * i] = fixed::narrowed(z[i].re, down);
    dst[2 * i + 1] = fixed::narrowed(z[i].im, down);
  }
}

using RealInPlace = ZorStatus (*)(Zor32f*, const ZorsFFTSpec_R_32f*, Zor8u*);

template <Packed format>
ZorStatus forward(RealInPlace inPlace, const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec,
                  Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) -> ZorStatus {
        if (spec->usesFloat == 0) {
          realFixed(*spec, false, scaleFactor, src, dst);
          fromPerm<format>(dst, static_cast<std::size_t>(n));
          return zorStatusOk;
        }
        const Zor32s len = spectrumLen(format, n);
        return inTurn([&] { return zors::zorsConvert_16s32f(src, head, n); },
                      [&] { return inPlace(head, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(head, dst, len, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}
template <Packed format>
ZorStatus inverse(RealInPlace inPlace, const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec,
                  Zor32s scaleFactor, Zor8u* buffer) {
  return throughFloat<Zor32f>(
      spec, buffer,
      [&](Zor32f* head, Zor8u* rest, Zor32s n) -> ZorStatus {
        if (spec->usesFloat == 0) {
          Zor16s perm[1 << fixed::largestOrder];
          toPerm<format>(src, perm, static_cast<std::size_t>(n));
          realFixed(*spec, true, scaleFactor, perm, dst);
          return zorStatusOk;
        }
        const Zor32s len = spectrumLen(format, n);
        return inTurn([&] { return zors::zorsConvert_16s32f(src, head, len); },
                      [&] { return inPlace(head, spec->inner, rest); },
                      [&] { return zors::zorsConvert_32f16s_Sfs(head, dst, n, zorRoundNearestEven, scaleFactor); });
      },
      src, dst);
}

}  // namespace

// clang-format off
ZorStatus zorsFFTGetSize_C_16sc(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_16sc>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_C_16s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_C_16s>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTGetSize_R_16s(Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsFFTSpec_R_16s>(order, flag, hint, specSize, initSize, workSize); }
ZorStatus zorsFFTInit_C_16sc(ZorsFFTSpec_C_16sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInit_C_16s(ZorsFFTSpec_C_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInit_R_16s(ZorsFFTSpec_R_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
ZorStatus zorsFFTInitAlloc_C_16sc(ZorsFFTSpec_C_16sc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_C_16s(ZorsFFTSpec_C_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_R_16s(ZorsFFTSpec_R_16s** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTFree_C_16sc(ZorsFFTSpec_C_16sc* spec) { return release(spec); }
ZorStatus zorsFFTFree_C_16s(ZorsFFTSpec_C_16s* spec) { return release(spec); }
ZorStatus zorsFFTFree_R_16s(ZorsFFTSpec_R_16s* spec) { return release(spec); }
ZorStatus zorsFFTGetBufSize_C_16sc(const ZorsFFTSpec_C_16sc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_C_16s(const ZorsFFTSpec_C_16s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_R_16s(const ZorsFFTSpec_R_16s* spec, Zor32s* size) { return getBufSize(spec, size); }

ZorStatus zorsFFTFwd_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(false, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_16sc_ISfs(Zor16sc* srcDst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(false, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(false, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_CToC_16s_ISfs(Zor16s* srcDstRe, Zor16s* srcDstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(false, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(true, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_16sc_ISfs(Zor16sc* srcDst, const ZorsFFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(true, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(true, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CToC_16s_ISfs(Zor16s* srcDstRe, Zor16s* srcDstIm, const ZorsFFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(true, srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPack_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::pack>(zors::zorsFFTFwd_RToPack_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPack_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::pack>(zors::zorsFFTFwd_RToPack_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPerm_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::perm>(zors::zorsFFTFwd_RToPerm_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToPerm_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::perm>(zors::zorsFFTFwd_RToPerm_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToCCS_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::ccs>(zors::zorsFFTFwd_RToCCS_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTFwd_RToCCS_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return forward<Packed::ccs>(zors::zorsFFTFwd_RToCCS_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PackToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::pack>(zors::zorsFFTInv_PackToR_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PackToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::pack>(zors::zorsFFTInv_PackToR_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PermToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::perm>(zors::zorsFFTInv_PermToR_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_PermToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::perm>(zors::zorsFFTInv_PermToR_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CCSToR_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::ccs>(zors::zorsFFTInv_CCSToR_32f_I, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsFFTInv_CCSToR_16s_ISfs(Zor16s* srcDst, const ZorsFFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return inverse<Packed::ccs>(zors::zorsFFTInv_CCSToR_32f_I, srcDst, srcDst, spec, scaleFactor, buffer); }
// clang-format on

}  // namespace zors
