// Sums by transforms. A Space holds a transform and blocks of its length, from the heap or in a caller's buffer; the
// sums are convolutions with a shorter or equal operand, which correlation turns round and conjugates.
#pragma once

#include <algorithm>
#include <cstring>

#include "frame/by_type.h"
#include "frame/fft_by_type.h"
#include "frame/memory.h"

namespace zors {

// Which way sums go: direct ones, one transform of all, or transforms of pieces; and what the transforms need.
struct Plan {
  enum Way { direct, whole, pieces } way = direct;
  Zor32s order = 0;
  int blocks = 0;
};

inline Zor32s orderOf(Zor64s points, Zor32s least) {
  Zor32s order = least;
  while ((Zor64s{1} << order) < points) ++order;
  return order;
}
inline Plan planWhole(Zor64s points, Zor32s leastOrder) { return {Plan::whole, orderOf(points, leastOrder), 2}; }
// Blocks of at least four times the shorter operand.
inline Plan planPieces(Zor64s shorter) { return {Plan::pieces, orderOf(2 * shorter, 1) + 1, 3}; }

template <class T> struct Space {
  const typename FftOf<T>::Spec* spec;
  Zor8u* work;
  T* blocks;
  Zor32s len;
  T* block(int i) const { return blocks + std::ptrdiff_t{i} * len; }
};

constexpr Zor32s fftFlag = 2;  // the inverse divides

// run(Space) with memory from the heap, or NoMemory, or what the transform says of its order.
template <class T, class Run> ZorStatus inHeap(const Plan& plan, Run run) {
  using Fft = FftOf<T>;
  typename Fft::Spec* spec = nullptr;
  if (const ZorStatus status = Fft::initAlloc(&spec, plan.order, fftFlag, zorAlgHintNone); status != zorStatusOk)
    return status;
  Zor32s workSize = 0;
  ZorStatus status = Fft::getBufSize(spec, &workSize);
  if (status == zorStatusOk) {
    const Scratch work(static_cast<std::size_t>(workSize));
    const Scratch blocks((std::size_t(plan.blocks) << plan.order) * sizeof(T));
    status = work && blocks ? run(Space<T>{spec, work.data(), blocks.as<T>(), Zor32s{1} << plan.order})
                            : ZorStatus{zorStatusNoMemory};
  }
  Fft::free(spec);
  return status;
}

// What a caller's buffer holds for a plan. Every piece is a multiple of 64 bytes; 64 more align the first.
template <class T> struct BufferParts {
  Zor8u *spec, *init, *work;
  T* blocks;
  Zor64s size;
};
template <class T> ZorStatus layBuffer(const Plan& plan, Zor8u* buffer, BufferParts<T>& parts) {
  Zor32s specSize = 0, initSize = 0, workSize = 0;
  if (plan.way != Plan::direct) {
    const ZorStatus status = FftOf<T>::getSize(plan.order, fftFlag, zorAlgHintNone, &specSize, &initSize, &workSize);
    if (status != zorStatusOk) return status;
  }
  Layout layout(64, buffer);
  parts.spec = layout.take<Zor8u>(std::size_t(specSize));
  parts.init = layout.take<Zor8u>(std::size_t(initSize));
  parts.work = layout.take<Zor8u>(std::size_t(workSize));
  parts.blocks = layout.take<T>(std::size_t(plan.blocks) << plan.order);
  parts.size = Zor64s(layout.used()) + 64;
  return zorStatusOk;
}
template <class T> ZorStatus bufferSize(const Plan& plan, Zor32s* size) {
  BufferParts<T> parts;
  const ZorStatus status = layBuffer<T>(plan, nullptr, parts);
  if (status != zorStatusOk) return status;
  if (parts.size > INT32_MAX) return zorStatusNoMemory;
  *size = static_cast<Zor32s>(parts.size);
  return zorStatusOk;
}
// run(Space) in a buffer of that size. Nothing is allocated.
template <class T, class Run> ZorStatus inBuffer(const Plan& plan, Zor8u* buffer, Run run) {
  BufferParts<T> parts;
  ZorStatus status = layBuffer<T>(plan, buffer, parts);
  if (status != zorStatusOk) return status;
  if (parts.size > INT32_MAX) return zorStatusNoMemory;
  typename FftOf<T>::Spec* spec = nullptr;
  status = FftOf<T>::init(&spec, plan.order, fftFlag, zorAlgHintNone, parts.spec, parts.init);
  return status == zorStatusOk ? run(Space<T>{spec, parts.work, parts.blocks, Zor32s{1} << plan.order}) : status;
}

// The codes of element types in size queries: f(T{}) of the type, or the status for another, with a size of 0.
template <class F> ZorStatus withDataType(Zor32s dataType, Zor32s* size, F f) {
  switch (dataType) {
    case 13:
      return f(Zor32f{});
    case 14:
      return f(Zor32fc{});
    case 19:
      return f(Zor64f{});
    case 20:
      return f(Zor64fc{});
    default:
      *size = 0;
      return zorStatusBadDataType;
  }
}

// ---- Convolutions -------------------------------------------------------------------------------

enum class Taps { asTheyAre, turnedAndConjugated };

inline ZorStatus flip(const Zor32f* src, Zor32f* dst, Zor32s len) { return zors::zorsFlip_32f(src, dst, len); }
inline ZorStatus flip(const Zor64f* src, Zor64f* dst, Zor32s len) { return zors::zorsFlip_64f(src, dst, len); }
inline ZorStatus flip(const Zor32fc* src, Zor32fc* dst, Zor32s len) { return zors::zorsFlip_32fc(src, dst, len); }
inline ZorStatus flip(const Zor64fc* src, Zor64fc* dst, Zor32s len) { return zors::zorsFlip_64fc(src, dst, len); }
inline ZorStatus flip(Zor32f* srcDst, Zor32s len) { return zors::zorsFlip_32f_I(srcDst, len); }
inline ZorStatus flip(Zor64f* srcDst, Zor32s len) { return zors::zorsFlip_64f_I(srcDst, len); }
inline ZorStatus flip(Zor32fc* srcDst, Zor32s len) { return zors::zorsFlip_32fc_I(srcDst, len); }
inline ZorStatus flip(Zor64fc* srcDst, Zor32s len) { return zors::zorsFlip_64fc_I(srcDst, len); }
inline ZorStatus conjugate(Zor32fc* srcDst, Zor32s len) { return zors::zorsConj_32fc_I(srcDst, len); }
inline ZorStatus conjugate(Zor64fc* srcDst, Zor32s len) { return zors::zorsConj_64fc_I(srcDst, len); }
template <class T> ZorStatus conjugate(T*, Zor32s) { return zorStatusOk; }

template <class T> void zeros(T* dst, std::ptrdiff_t count) {
  if (count > 0) std::memset(static_cast<void*>(dst), 0, static_cast<std::size_t>(count) * sizeof(T));
}

// The elements from `from` on of a vector that goes on as zeros on both sides.
template <class T> void window(const T* x, Zor64s xLen, Zor64s from, T* block, Zor32s len) {
  const auto before = static_cast<Zor32s>(std::clamp<Zor64s>(-from, 0, len));
  const auto there = static_cast<Zor32s>(std::clamp<Zor64s>(xLen - from, before, len)) - before;
  zeros(block, before);
  if (there > 0) by_type::copy(x + (from + before), block + before, there);
  zeros(block + before + there, len - before - there);
}

template <class T> ZorStatus tapsSpectrum(const Space<T>& space, const T* taps, Zor32s tapsLen, Taps use, T* spectrum) {
  if (use == Taps::asTheyAre) {
    by_type::copy(taps, spectrum, tapsLen);
  } else {
    flip(taps, spectrum, tapsLen);
    conjugate(spectrum, tapsLen);
  }
  zeros(spectrum + tapsLen, space.len - tapsLen);
  return FftOf<T>::forward(spectrum, spectrum, space.spec, space.work);
}

// dst[n] = element first + n of taps * x, for count elements, where a transform holds all of the convolution.
template <class T>
ZorStatus convolveWhole(const Space<T>& space, const T* taps, Zor32s tapsLen, Taps use, const T* x, Zor32s xLen,
                        Zor64s first, T* dst, Zor32s count) {
  using Fft = FftOf<T>;
  T *spectrum = space.block(0), *block = space.block(1);
  ZorStatus status = tapsSpectrum(space, taps, tapsLen, use, spectrum);
  window(x, xLen, 0, block, space.len);
  if (status == zorStatusOk) status = Fft::forward(block, block, space.spec, space.work);
  if (status == zorStatusOk) status = Fft::multiply(spectrum, block, space.len);
  if (status == zorStatusOk) status = Fft::inverse(block, block, space.spec, space.work);
  if (status == zorStatusOk) by_type::copy(block + first, dst, count);
  return status;
}

// The same by overlap-save: of a block whose first tapsLen - 1 elements are the end of the one before, as many results
// have wrapped round.
template <class T>
ZorStatus convolvePieces(const Space<T>& space, const T* taps, Zor32s tapsLen, Taps use, const T* x, Zor32s xLen,
                         Zor64s first, T* dst, Zor32s count) {
  using Fft = FftOf<T>;
  T *spectrum = space.block(0), *block = space.block(1), *filled = space.block(2);
  const Zor32s overlap = tapsLen - 1, hop = space.len - overlap;
  ZorStatus status = tapsSpectrum(space, taps, tapsLen, use, spectrum);
  for (Zor64s done = 0; status == zorStatusOk && done < count; done += hop) {
    const Zor64s from = first + done - overlap;
    const T* source = filled;
    if (from >= 0 && from + space.len <= xLen)
      source = x + from;
    else
      window(x, xLen, from, filled, space.len);
    status = Fft::forward(source, block, space.spec, space.work);
    if (status == zorStatusOk) status = Fft::multiply(spectrum, block, space.len);
    if (status == zorStatusOk) status = Fft::inverse(block, block, space.spec, space.work);
    if (status == zorStatusOk)
      by_type::copy(block + overlap, dst + done, static_cast<Zor32s>(std::min<Zor64s>(hop, count - done)));
  }
  return status;
}

}  // namespace zors
