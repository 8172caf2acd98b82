// The 16-bit kinds: conversion to floating point, a float transform in the work buffer, conversion back.
#include <new>

#include "dft/dft_spec.h"
#include "dft/narrowing.h"
#include "dft/packed_formats.h"
#include "frame/by_type.h"

namespace zors::dft {

// A float kind by its operations.
template <class S, ZorStatus (*build)(S**, Zor32s, Zor32s, ZorHintAlgorithm), ZorStatus (*release)(S*)>
struct FloatKind {
  using Spec = S;
  static constexpr auto initAlloc = build;
  static constexpr auto free = release;
};

// room: floats of a converted copy, for each element and beside them.
template <Tag number, class Float, int perElement, int beside> struct Wrapper {
  using Inner = Float;
  static constexpr Tag kind = zors::tag(number);
  static Zor64s copyBytes(Zor32s len) { return (Zor64s{4} * (Zor64s{perElement} * len + beside) + 63) & ~Zor64s{63}; }

  Tag tag;
  Zor32s len, hint, workSize;
  Zor8u* owned;
  typename Float::Spec* inner;
};

}  // namespace zors::dft

struct ZorsDFTSpec_C_16sc
    : zors::dft::Wrapper<
          10, zors::dft::FloatKind<ZorsDFTSpec_C_32fc, zors::zorsDFTInitAlloc_C_32fc, zors::zorsDFTFree_C_32fc>, 2, 0> {
};
struct ZorsDFTSpec_C_16s
    : zors::dft::Wrapper<
          11, zors::dft::FloatKind<ZorsDFTSpec_C_32f, zors::zorsDFTInitAlloc_C_32f, zors::zorsDFTFree_C_32f>, 2, 0> {};
struct ZorsDFTSpec_R_16s
    : zors::dft::Wrapper<
          12, zors::dft::FloatKind<ZorsDFTSpec_R_32f, zors::zorsDFTInitAlloc_R_32f, zors::zorsDFTFree_R_32f>, 1, 2> {};

namespace zors {
namespace {

using namespace dft;

template <class S> ZorStatus initAlloc(S** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) {
  return check().pointers(specOut).size(len).then([&]() -> ZorStatus {
    typename S::Inner::Spec* inner = nullptr;
    const ZorStatus status = S::Inner::initAlloc(&inner, len, flag, zorAlgHintFast);
    if (status != zorStatusOk) return status;
    const Zor64s work = len == 1 ? 0 : S::copyBytes(len) + aligned(inner)->workSize + 64;
    const ZorStatus made =
        initAllocated(specOut, sizeof(S) + Scratch::alignment, [&](Zor8u* block, S** spec) -> ZorStatus {
          if (work > INT32_MAX) return zorStatusNoMemory;
          *spec = new (alignUp(block, Scratch::alignment)) S{};
          (*spec)->tag = S::kind;
          (*spec)->len = len;
          (*spec)->hint = hint;
          (*spec)->workSize = static_cast<Zor32s>(work);
          (*spec)->inner = inner;
          return zorStatusOk;
        });
    if (made != zorStatusOk) S::Inner::free(inner);
    return made;
  });
}
template <class S> ZorStatus release(S* given) {
  S* const spec = aligned(given);
  return check().pointers(spec).state(spec, S::kind).then([&] {
    S::Inner::free(spec->inner);
    releaseOwned(spec);
  });
}
template <class S> ZorStatus getBufSize(const S* given, Zor32s* size) {
  const S* const spec = aligned(given);
  return check().pointers(spec, size).state(spec, S::kind).then([&] { *size = spec->workSize; });
}

// spec, its kind, data pointers; one point alone by narrowOne, others by run(spec, copy, buffer) in work memory.
template <class S, class One, class Run, class... P>
ZorStatus withCopy(const S* given, Zor8u* buffer, One narrowOne, Run run, P*... data) {
  const S* const spec = aligned(given);
  return check().pointers(spec).state(spec, S::kind).pointers(data...).then([&]() -> ZorStatus {
    if (spec->len == 1) {
      narrowOne();
      return zorStatusOk;
    }
    const auto copyBytes = static_cast<std::size_t>(S::copyBytes(spec->len));
    const Scratch work(buffer, static_cast<std::size_t>(spec->workSize) - 64);
    if (!work) return zorStatusNoMemory;
    return run(*spec, work.template as<Zor32f>(), work.data() + copyBytes);
  });
}

using Interleaved = decltype(zors::zorsDFTFwd_CToC_32fc);
ZorStatus interleaved(Interleaved transform, const Zor16sc* src, Zor16sc* dst, const ZorsDFTSpec_C_16sc* given,
                      Zor32s scaleFactor, Zor8u* buffer) {
  return withCopy(
      given, buffer,
      [&] {
        *dst = {narrowedHalfUp(src->re, scaleFactor), narrowedHalfUp(src->im, scaleFactor)};
      },
      [&](const ZorsDFTSpec_C_16sc& spec, Zor32f* floats, Zor8u* work) {
        auto* const points = reinterpret_cast<Zor32fc*>(floats);
        by_type::widen(src, points, spec.len);
        const ZorStatus status = transform(points, points, spec.inner, work);
        return status == zorStatusOk ? by_type::narrow(points, dst, spec.len, scaleFactor) : status;
      },
      src, dst);
}

using Split = decltype(zors::zorsDFTFwd_CToC_32f);
ZorStatus split(Split transform, const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm,
                const ZorsDFTSpec_C_16s* given, Zor32s scaleFactor, Zor8u* buffer) {
  return withCopy(
      given, buffer,
      [&] {
        const Zor16s re = narrowedHalfUp(*srcRe, scaleFactor), im = narrowedHalfUp(*srcIm, scaleFactor);
        *dstRe = re;
        *dstIm = im;
      },
      [&](const ZorsDFTSpec_C_16s& spec, Zor32f* re, Zor8u* work) {
        Zor32f* const im = re + spec.len;
        by_type::widen(srcRe, re, spec.len);
        by_type::widen(srcIm, im, spec.len);
        const ZorStatus status = transform(re, im, re, im, spec.inner, work);
        if (status != zorStatusOk) return status;
        by_type::narrow(re, dstRe, spec.len, scaleFactor);
        return by_type::narrow(im, dstIm, spec.len, scaleFactor);
      },
      srcRe, srcIm, dstRe, dstIm);
}

using Real = decltype(zors::zorsDFTFwd_RToPerm_32f);
enum class Toward { spectrum, values };
template <Packed format, Toward toward>
ZorStatus real(Real transform, const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* given, Zor32s scaleFactor,
               Zor8u* buffer) {
  return withCopy(
      given, buffer,
      [&] {
        *dst = narrowedHalfUp(*src, scaleFactor);
        if (format == Packed::ccs && toward == Toward::spectrum) dst[1] = 0;
      },
      [&](const ZorsDFTSpec_R_16s& spec, Zor32f* floats, Zor8u* work) {
        const auto packed = static_cast<Zor32s>(valuesOf<format>(static_cast<std::size_t>(spec.len)));
        by_type::widen(src, floats, toward == Toward::spectrum ? spec.len : packed);
        const ZorStatus status = transform(floats, floats, spec.inner, work);
        if (status != zorStatusOk) return status;
        return by_type::narrow(floats, dst, toward == Toward::spectrum ? packed : spec.len, scaleFactor);
      },
      src, dst);
}

}  // namespace

// clang-format off
ZorStatus zorsDFTInitAlloc_C_16sc(ZorsDFTSpec_C_16sc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, len, flag, hint); }
ZorStatus zorsDFTInitAlloc_C_16s(ZorsDFTSpec_C_16s** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, len, flag, hint); }
ZorStatus zorsDFTInitAlloc_R_16s(ZorsDFTSpec_R_16s** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, len, flag, hint); }
ZorStatus zorsDFTFree_C_16sc(ZorsDFTSpec_C_16sc* spec) { return release(spec); }
ZorStatus zorsDFTFree_C_16s(ZorsDFTSpec_C_16s* spec) { return release(spec); }
ZorStatus zorsDFTFree_R_16s(ZorsDFTSpec_R_16s* spec) { return release(spec); }
ZorStatus zorsDFTGetBufSize_C_16sc(const ZorsDFTSpec_C_16sc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDFTGetBufSize_C_16s(const ZorsDFTSpec_C_16s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDFTGetBufSize_R_16s(const ZorsDFTSpec_R_16s* spec, Zor32s* size) { return getBufSize(spec, size); }

ZorStatus zorsDFTFwd_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsDFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsDFTFwd_CToC_32fc, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsDFTInv_CToC_16sc_Sfs(const Zor16sc* src, Zor16sc* dst, const ZorsDFTSpec_C_16sc* spec, Zor32s scaleFactor, Zor8u* buffer) { return interleaved(zors::zorsDFTInv_CToC_32fc, src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsDFTFwd_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsDFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsDFTFwd_CToC_32f, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }
ZorStatus zorsDFTInv_CToC_16s_Sfs(const Zor16s* srcRe, const Zor16s* srcIm, Zor16s* dstRe, Zor16s* dstIm, const ZorsDFTSpec_C_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return split(zors::zorsDFTInv_CToC_32f, srcRe, srcIm, dstRe, dstIm, spec, scaleFactor, buffer); }

#define REAL(name, format, toward, transform) ZorStatus name(const Zor16s* src, Zor16s* dst, const ZorsDFTSpec_R_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return real<format, toward>(transform, src, dst, spec, scaleFactor, buffer); }
REAL(zorsDFTFwd_RToPack_16s_Sfs, Packed::pack, Toward::spectrum, zors::zorsDFTFwd_RToPack_32f)
REAL(zorsDFTFwd_RToPerm_16s_Sfs, Packed::perm, Toward::spectrum, zors::zorsDFTFwd_RToPerm_32f)
REAL(zorsDFTFwd_RToCCS_16s_Sfs, Packed::ccs, Toward::spectrum, zors::zorsDFTFwd_RToCCS_32f)
REAL(zorsDFTInv_PackToR_16s_Sfs, Packed::pack, Toward::values, zors::zorsDFTInv_PackToR_32f)
REAL(zorsDFTInv_PermToR_16s_Sfs, Packed::perm, Toward::values, zors::zorsDFTInv_PermToR_32f)
REAL(zorsDFTInv_CCSToR_16s_Sfs, Packed::ccs, Toward::values, zors::zorsDFTInv_CCSToR_32f)
#undef REAL
// clang-format on

}  // namespace zors
