// The integer kinds: conversion to floating point, a float transform in the work buffer, conversion back.
#pragma once

#include <new>

#include "exports/fft.h"
#include "fft/fft_spec.h"
#include "fft/packed.h"

namespace zors::fft {

// A float kind by its operations.
template <class S, decltype(&zors::zorsFFTGetSize_C_64fc) sizes,
          ZorStatus (*build)(S**, Zor32s, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*)>
struct FloatKind {
  using Spec = S;
  static constexpr auto getSize = sizes;
  static constexpr auto init = build;
};

struct IntegerSizes {
  Zor64s spec, init, work;
};  // work without the slack for aligning

// An integer kind stands before the float specification that does its work.
template <class Float> struct Wrapper {
  using Inner = Float;
  static constexpr bool hasFixedPath = false;
  static constexpr Zor64s headerBytes = 64;
  static constexpr Zor64s initBytes(Zor64s inner) { return inner > 0 ? inner + 64 : 0; }

  Zor32u tag;
  Zor32s order, hint, workSize;
  Zor8u* owned;
  typename Float::Spec* inner;
};
// What a kind adds: its tag, `kind`; the room of the converted data, headBytes; and with a fixed-point path
//   bool usesFixed(order, hint), IntegerSizes fixedSizes(order), void setFlag(flag) for it.

// ---- Specifications -----------------------------------------------------------------------------

// As 32-bit arithmetic does.
constexpr Zor32s wrapped(Zor64s bytes) { return static_cast<Zor32s>(static_cast<Zor64u>(bytes)); }

template <class S> bool runsFixed(Zor32s order, Zor32s hint) {
  if constexpr (S::hasFixedPath)
    return S::usesFixed(order, hint);
  else
    return false;
}

template <class S> ZorStatus sizesOf(Zor32s order, Zor32s flag, Zor32s hint, IntegerSizes& sizes) {
  if constexpr (S::hasFixedPath) {
    if (runsFixed<S>(order, hint)) {
      sizes = S::fixedSizes(order);
      return isFlag(flag) ? zorStatusOk : zorStatusBadFlag;
    }
  }
  Zor32s spec = 0, init = 0, work = 0;
  const ZorStatus status = S::Inner::getSize(order, flag, zorAlgHintNone, &spec, &init, &work);
  sizes = {
      .spec = spec + S::headerBytes + 64, .init = S::initBytes(init), .work = work + S::headBytes(Zor64s{1} << order)};
  return status;
}

template <class S>
ZorStatus getSize(Zor32s order, Zor32s flag, Zor32s hint, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  constexpr Zor32u largestOfAll = 30;
  return check()
      .require(static_cast<Zor32u>(order) <= largestOfAll, zorStatusBadOrder)
      .pointers(specSize, initSize, workSize)
      .then([&] {
        IntegerSizes sizes{};
        const ZorStatus status = sizesOf<S>(order, flag, hint, sizes);
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
        static_assert(sizeof(S) <= S::headerBytes);
        IntegerSizes sizes{};
        ZorStatus status = sizesOf<S>(order, flag, hint, sizes);
        if (status == zorStatusOk && !runsFixed<S>(order, hint))
          status = S::Inner::init(&spec.inner, order, flag, hint, reinterpret_cast<Zor8u*>(&spec) + S::headerBytes,
                                  initBuffer);
        if (status != zorStatusOk) {
          spec = {};
          return status;
        }
        spec.order = order;
        spec.hint = hint;
        spec.workSize = wrapped(sizes.work);
        if constexpr (S::hasFixedPath) spec.setFlag(flag);
        spec.tag = S::kind;
        *specOut = &spec;
        return zorStatusOk;
      });
}

template <class S> ZorStatus initAlloc(S** specOut, Zor32s order, Zor32s flag, Zor32s hint) {
  Zor32s specSize = 0, initSize = 0, workSize = 0;
  if (specOut == nullptr) return zorStatusNullPointer;
  if (const ZorStatus status = getSize<S>(order, flag, hint, &specSize, &initSize, &workSize); status != zorStatusOk)
    return status;
  return allocated(specOut, specSize, initSize, [&](S** spec, Zor8u* block, Zor8u* initBuffer) {
    return init(spec, order, flag, hint, block, initBuffer);
  });
}

// ---- Transforms ---------------------------------------------------------------------------------

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

constexpr Zor32s spectrumLen(Packed format, Zor32s n) { return format != Packed::ccs ? n : n == 1 ? 2 : n + 2; }

}  // namespace zors::fft
