// The 16-bit cosine transforms: conversion to floating point, a float transform in the work buffer, conversion back.
#include <algorithm>
#include <new>

#include "dft/dct/dct_spec.h"
#include "dft/narrowing.h"

namespace zors::dct {

// Its float specification lies behind it. One value alone needs none.
template <Tag number, class Float> struct Wrapper {
  static constexpr Tag kind = number;
  using Inner = Float;
  Tag tag;
  Zor32s len, hint, workSize;  // bytes, without the slack for aligning
  Zor8u* owned;
  Float* inner;
};
// The float kind by its operations.
template <auto sizes, auto build, auto convert> struct FloatOperations {
  static constexpr auto getSize = sizes;
  static constexpr auto init = build;
  static constexpr auto transform = convert;
};

}  // namespace zors::dct

struct ZorsDCTFwdSpec_16s : zors::dct::Wrapper<zors::tag(19), ZorsDCTFwdSpec_32f> {
  using Operations =
      zors::dct::FloatOperations<&zors::zorsDCTFwdGetSize_32f, &zors::zorsDCTFwdInit_32f, &zors::zorsDCTFwd_32f>;
};
struct ZorsDCTInvSpec_16s : zors::dct::Wrapper<zors::tag(20), ZorsDCTInvSpec_32f> {
  using Operations =
      zors::dct::FloatOperations<&zors::zorsDCTInvGetSize_32f, &zors::zorsDCTInvInit_32f, &zors::zorsDCTInv_32f>;
};

namespace zors {
namespace {

using namespace dct;

constexpr Zor32s headerBytes = 96;  // the record, and room for aligning it
constexpr Zor32s floatBytes = sizeof(Zor32f);

template <class S> ZorStatus getSize(Zor32s len, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  static_assert(sizeof(S) == 32);
  return check().size(len).pointers(specSize, initSize, workSize).then([&]() -> ZorStatus {
    Zor32s spec = 0, init = 0, work = 0;
    if (len > 1) {
      const ZorStatus status = S::Operations::getSize(len, zorAlgHintFast, &spec, &init, &work);
      if (status != zorStatusOk) return status;
      const Zor64s all = Zor64s{work} + Zor64s{floatBytes} * len + 64;
      if (all > INT32_MAX || spec > INT32_MAX - headerBytes) return zorStatusNoMemory;
      work = static_cast<Zor32s>(all);
    }
    *specSize = spec + headerBytes;
    *initSize = init;
    *workSize = work;
    return zorStatusOk;
  });
}
template <class S> ZorStatus init(S** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) {
  return check().size(len).pointers(specOut, specBlock).then([&]() -> ZorStatus {
    S made{};
    if (len > 1) {
      Zor32s floatWork = 0;
      Zor8u* const inner = reinterpret_cast<Zor8u*>(alignUp(reinterpret_cast<S*>(specBlock), Scratch::alignment) + 1);
      ZorStatus status = S::Operations::init(&made.inner, len, zorAlgHintFast, inner, initBuffer);
      if (status != zorStatusOk) return status;
      floatWork = made.inner->workSize > 0 ? made.inner->workSize + 64 : 0;
      const Zor64s work = Zor64s{floatWork} + Zor64s{floatBytes} * len;
      if (work > INT32_MAX - 64) return zorStatusNoMemory;
      made.workSize = static_cast<Zor32s>(work);
    }
    made.tag = S::kind;
    made.len = len;
    made.hint = hint;
    *specOut = new (alignUp(specBlock, Scratch::alignment)) S(made);
    return zorStatusOk;
  });
}
template <class S> ZorStatus initAlloc(S** specOut, Zor32s len, ZorHintAlgorithm hint) {
  return check().size(len).pointers(specOut).then([&]() -> ZorStatus {
    Zor32s specSize = 0, initSize = 0, workSize = 0;
    if (const ZorStatus status = getSize<S>(len, &specSize, &initSize, &workSize); status != zorStatusOk) return status;
    return initAllocated(specOut, static_cast<std::size_t>(specSize), [&](Zor8u* block, S** spec) -> ZorStatus {
      const Scratch initBuffer(static_cast<std::size_t>(initSize));
      return initBuffer ? init(spec, len, hint, block, initBuffer.data()) : zorStatusNoMemory;
    });
  });
}
template <class S> ZorStatus release(S* spec) {
  return check().pointers(spec).state(spec, S::kind).then([&] {
    spec->tag = 0;
    releaseOwned(spec);
  });
}
template <class S> ZorStatus getBufSize(const S* spec, Zor32s* size) {
  return check().pointers(spec, size).state(spec, S::kind).then([&] {
    *size = spec->workSize > 0 ? spec->workSize + 64 : 0;
  });
}

template <class S> ZorStatus run(const Zor16s* src, Zor16s* dst, const S* spec, Zor32s scaleFactor, Zor8u* buffer) {
  return check().pointers(src, dst, spec).state(spec, S::kind).then([&]() -> ZorStatus {
    const Zor32s len = spec->len;
    if (len == 1) {
      *dst = narrowedHalfUp(*src, scaleFactor);
      return zorStatusOk;
    }
    const Scratch work(buffer, static_cast<std::size_t>(spec->workSize));
    if (!work) return zorStatusNoMemory;
    auto* const floats = work.as<Zor32f>();
    by_type::widen(src, floats, len);
    const ZorStatus status =
        S::Operations::transform(floats, floats, spec->inner, reinterpret_cast<Zor8u*>(floats + len));
    return status == zorStatusOk ? by_type::narrow(floats, dst, len, scaleFactor) : status;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDCTFwdGetSize_16s(Zor32s len, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsDCTFwdSpec_16s>(len, specSize, initSize, workSize); }
ZorStatus zorsDCTInvGetSize_16s(Zor32s len, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<ZorsDCTInvSpec_16s>(len, specSize, initSize, workSize); }
ZorStatus zorsDCTFwdInit_16s(ZorsDCTFwdSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, len, hint, specBlock, initBuffer); }
ZorStatus zorsDCTInvInit_16s(ZorsDCTInvSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, len, hint, specBlock, initBuffer); }
ZorStatus zorsDCTFwdInitAlloc_16s(ZorsDCTFwdSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
ZorStatus zorsDCTInvInitAlloc_16s(ZorsDCTInvSpec_16s** specOut, Zor32s len, ZorHintAlgorithm hint) { return initAlloc(specOut, len, hint); }
ZorStatus zorsDCTFwdFree_16s(ZorsDCTFwdSpec_16s* spec) { return release(spec); }
ZorStatus zorsDCTInvFree_16s(ZorsDCTInvSpec_16s* spec) { return release(spec); }
ZorStatus zorsDCTFwdGetBufSize_16s(const ZorsDCTFwdSpec_16s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDCTInvGetBufSize_16s(const ZorsDCTInvSpec_16s* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDCTFwd_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDCTFwdSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return run(src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsDCTInv_16s_Sfs(const Zor16s* src, Zor16s* dst, const ZorsDCTInvSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return run(src, dst, spec, scaleFactor, buffer); }
ZorStatus zorsDCTFwd_16s_ISfs(Zor16s* srcDst, const ZorsDCTFwdSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return run(srcDst, srcDst, spec, scaleFactor, buffer); }
ZorStatus zorsDCTInv_16s_ISfs(Zor16s* srcDst, const ZorsDCTInvSpec_16s* spec, Zor32s scaleFactor, Zor8u* buffer) { return run(srcDst, srcDst, spec, scaleFactor, buffer); }
// clang-format on

}  // namespace zors
