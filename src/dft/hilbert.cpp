// zorsHilbert_*, zorsHilbertInitAlloc_*, zorsHilbertFree_*: analytic signals.
#include <algorithm>
#include <cmath>
#include <new>

#include "exports/dft.h"
#include "frame/by_type.h"
#include "frame/object.h"
#include "frame/scale.h"

namespace zors::dft {

// Two transforms of the length; the inverse one divides by it.
template <Tag number> struct Hilbert {
  static constexpr Tag kind = number;
  Tag tag;
  Zor32s len, workSize, hint;
  Zor8u* owned;
  ZorsDFTSpec_C_32fc* complexDFT;
  ZorsDFTSpec_R_32f* realDFT;
};

}  // namespace zors::dft

struct ZorsHilbertSpec_32f32fc : zors::dft::Hilbert<zors::tag("CMAE")> {};
struct ZorsHilbertSpec_16s32fc : zors::dft::Hilbert<zors::tag("CMAF")> {};
struct ZorsHilbertSpec_16s16sc : zors::dft::Hilbert<zors::tag("CMAG")> {};

namespace zors {
namespace {

template <class S> constexpr Tag kindOf(const S*) { return S::kind; }

constexpr Zor32s smallest = 3;  // below, a signal is its own analytic signal

template <class S> ZorStatus buildTransforms(S& spec) {
  ZorStatus status = zors::zorsDFTInitAlloc_C_32fc(&spec.complexDFT, spec.len, ZOR_FFT_DIVIDE_INVERSE, spec.hint);
  if (status != zorStatusOk) return status;
  status = zors::zorsDFTInitAlloc_R_32f(&spec.realDFT, spec.len, ZOR_FFT_DIVIDE_INVERSE, spec.hint);
  if (status != zorStatusOk) {
    zors::zorsDFTFree_C_32fc(spec.complexDFT);
    return status;
  }
  Zor32s complexWork = 0, realWork = 0;
  zors::zorsDFTGetBufSize_C_32fc(spec.complexDFT, &complexWork);
  zors::zorsDFTGetBufSize_R_32f(spec.realDFT, &realWork);
  spec.workSize = std::max(complexWork, realWork);
  return zorStatusOk;
}
template <class S> ZorStatus initAlloc(S** specOut, Zor32s len, ZorHintAlgorithm hint) {
  return check().pointers(specOut).size(len).then([&] {
    return initAllocated(specOut, sizeof(S) + alignof(S), [&](Zor8u* block, S** spec) -> ZorStatus {
      *spec = new (alignUp(block, alignof(S))) S{};
      (*spec)->tag = S::kind;
      (*spec)->len = len;
      (*spec)->hint = hint;
      return buildTransforms(**spec);
    });
  });
}
template <class S> ZorStatus release(S* spec) {
  return check().pointers(spec).state(spec, S::kind).then([&] {
    zors::zorsDFTFree_C_32fc(spec->complexDFT);
    zors::zorsDFTFree_R_32f(spec->realDFT);
    releaseOwned(spec);
  });
}

// The positive frequencies doubled, the negative ones cleared; work may be null.
template <class S> ZorStatus analytic(const S& spec, const Zor32f* src, Zor32fc* dst, Zor8u* work) {
  const Zor32s half = spec.len >> 1, positive = half + (spec.len & 1) - 1;
  ZorStatus status = zors::zorsDFTFwd_RToCCS_32f(src, &dst->re, spec.realDFT, work);
  if (status != zorStatusOk) return status;
  by_type::add(dst + 1, dst + 1, positive);
  by_type::zero(dst + half + 1, positive);
  return zors::zorsDFTInv_CToC_32fc(dst, dst, spec.complexDFT, work);
}

// Work memory of the transforms, then so many floats and complex numbers; run(work, floats, points).
template <class S, class Run> ZorStatus withFloats(const S& spec, Zor32s bytesEach, Run run) {
  const auto len = static_cast<std::size_t>(spec.len), work = static_cast<std::size_t>(spec.workSize);
  const OwnMemory memory(work + static_cast<std::size_t>(bytesEach) * len + 30);
  if (!memory) return zorStatusNoMemory;
  auto* const floats = reinterpret_cast<Zor32f*>(alignUp(memory.data() + work, 16));
  return run(memory.data(), floats, reinterpret_cast<Zor32fc*>(alignUp(floats + len, 16)));
}

}  // namespace

// clang-format off
ZorStatus zorsHilbertInitAlloc_32f32fc(ZorsHilbertSpec_32f32fc** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
ZorStatus zorsHilbertInitAlloc_16s32fc(ZorsHilbertSpec_16s32fc** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
ZorStatus zorsHilbertInitAlloc_16s16sc(ZorsHilbertSpec_16s16sc** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
ZorStatus zorsHilbertFree_32f32fc(ZorsHilbertSpec_32f32fc* spec) { return release(spec); }
ZorStatus zorsHilbertFree_16s32fc(ZorsHilbertSpec_16s32fc* spec) { return release(spec); }
ZorStatus zorsHilbertFree_16s16sc(ZorsHilbertSpec_16s16sc* spec) { return release(spec); }
// clang-format on

ZorStatus zorsHilbert_32f32fc(const Zor32f* src, Zor32fc* dst, const ZorsHilbertSpec_32f32fc* spec) {
  return check().pointers(src, dst, spec).state(spec, kindOf(spec)).then([&]() -> ZorStatus {
    if (spec->len >= smallest) return analytic(*spec, src, dst, nullptr);
    for (Zor32s k = spec->len - 1; k >= 0; --k) dst[k] = {src[k], 0};
    return zorStatusOk;
  });
}

ZorStatus zorsHilbert_16s32fc(const Zor16s* src, Zor32fc* dst, const ZorsHilbertSpec_16s32fc* spec) {
  return check().pointers(src, dst, spec).state(spec, kindOf(spec)).then([&]() -> ZorStatus {
    if (spec->len >= smallest)
      return withFloats(*spec, sizeof(Zor32f), [&](Zor8u* work, Zor32f* floats, Zor32fc*) {
        by_type::widen(src, floats, spec->len);
        return analytic(*spec, floats, dst, work);
      });
    for (Zor32s k = spec->len - 1; k >= 0; --k) dst[k] = {static_cast<Zor32f>(src[k]), 0};
    return zorStatusOk;
  });
}

// Signals too short for a transform are cut, not rounded.
ZorStatus zorsHilbert_16s16sc_Sfs(const Zor16s* src, Zor16sc* dst, const ZorsHilbertSpec_16s16sc* spec,
                                  Zor32s scaleFactor) {
  return check().pointers(src, dst, spec).state(spec, kindOf(spec)).then([&]() -> ZorStatus {
    if (spec->len >= smallest)
      return withFloats(*spec, sizeof(Zor32f) + sizeof(Zor32fc),
                        [&](Zor8u* work, Zor32f* floats, Zor32fc* points) -> ZorStatus {
                          by_type::widen(src, floats, spec->len);
                          const ZorStatus status = analytic(*spec, floats, points, work);
                          return status == zorStatusOk ? by_type::narrow(points, dst, spec->len, scaleFactor) : status;
                        });
    for (Zor32s k = spec->len - 1; k >= 0; --k) {
      const Zor64f scaled = std::trunc(src[k] * exactPower(scaleFactor));
      dst[k] = {static_cast<Zor16s>(std::clamp(scaled, -32768.0, 32767.0)), 0};
    }
    return zorStatusOk;
  });
}

}  // namespace zors
