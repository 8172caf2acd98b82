// The specification of a power-of-two transform, and the engine that runs on it.
#pragma once

#include "exports/fft.h"
#include "exports/memory.h"
#include "fft/fft_lanes.h"
#include "frame/check.h"
#include "frame/object.h"

namespace zors::fft {

// What all float kinds hold. Immutable after Init, so any number of threads may share it.
template <class T> struct Spec {
  Zor32u tag;
  Zor32s order;
  Zor32s scaleForward, scaleInverse;  // 1 where that direction multiplies by scale
  T scale;
  Zor32s hint;
  Zor32s workSize;  // bytes, without the slack for aligning
  Zor8u* owned;
  Zor32u* bitReverse;  // places of groups of the first pass, or of its tiles
  T* twiddles;         // of the stages from the third on, in the order of use
  T* realForward;      // long transforms have one table for both directions
  T* realInverse;
  T* levelTwiddles[3];  // of the blocked path, outermost level first

  bool scales(bool inverse) const { return (inverse ? scaleInverse : scaleForward) != 0; }
};
template <class T> inline constexpr std::size_t pointBytes = 2 * sizeof(T);

constexpr bool isFlag(Zor32s flag) {
  return flag == ZOR_FFT_DIVIDE_FORWARD || flag == ZOR_FFT_DIVIDE_INVERSE || flag == ZOR_FFT_DIVIDE_BOTH_ROOT ||
         flag == ZOR_FFT_DIVIDE_NONE;
}

// ---- Plans --------------------------------------------------------------------------------------

// Orders up to this one are straight-line kernels without tables or work memory.
inline constexpr int largestSmallOrder = 6;
inline constexpr int largestSmallRealOrder = 4;
// From this order on a transform is split, because it outgrows the caches.
template <class T> inline constexpr int blockedOrder = sizeof(T) == 4 ? 19 : 18;
template <class T> inline constexpr int largestComplexOrder = sizeof(T) == 4 ? 28 : 27;
// From this order on the factors of a real transform are products of two table entries.
template <class T> inline constexpr int twoLevelOrder = sizeof(T) == 4 ? 19 : 17;
inline constexpr int firstPassBits = 4;  // two radix-4 stages
// The radix of the stage that follows `done` bits of an order from 5 on.
constexpr int stageBits(int order, int done) {
  const int left = order - done;
  return left == 3 || (left > 4 && done > 2 && order < 12) || (done == 4 && order % 2 == 1) ? 3 : 2;
}
constexpr int lastStageBits(int order) { return order == 7 || order == 10 ? 3 : 2; }
constexpr int reversedBits(int value, int bits) {
  int reversed = 0;
  for (int i = 0; i < bits; ++i) reversed |= (value >> i & 1) << (bits - 1 - i);
  return reversed;
}
// The bits of a blocked order that the tile stages consume, and the radix of the stage that follows `done` of them.
template <class T> constexpr int tileBits(int order) { return order < (sizeof(T) == 4 ? 23 : 22) ? 4 : 8; }
constexpr int tileStageBits(int bits, int done) {
  const int left = bits - done;
  return left == 2 || left == 4 || left == 6 ? 2 : 3;
}
template <class T> inline constexpr int tileColumns = sizeof(T) == 4 ? 64 : 32;
// The bits of the rows, and of the columns, of the tiles in which the first pass of a blocked order reverses indices.
template <class T> inline constexpr int tileSideBits = sizeof(T) == 4 ? 6 : 5;
// The bits that the table of reversals covers: groups of a full register of sequences, or tiles.
template <class T> constexpr int reversalBits(int order) {
  return order < blockedOrder<T> ? order - firstPassBits - (sizeof(T) == 4 ? 3 : 2) : order - 2 * tileSideBits<T>;
}
// The order of the innermost transforms of a blocked order.
template <class T> constexpr int innermostOrder(int order) {
  while (order >= blockedOrder<T>) order -= tileBits<T>(order);
  return order;
}

// ---- The engine ---------------------------------------------------------------------------------

// One transform of 2^order points; work is null or workSize bytes, aligned to 64. src may be dst.
template <class T>
void transform(const Spec<T>& spec, int order, bool inverse, Interleaved<const T> src, Interleaved<T> dst, Zor8u* work);
template <class T>
void transform(const Spec<T>& spec, int order, bool inverse, SplitPoints<const T> src, SplitPoints<T> dst, Zor8u* work);

// ---- Kinds --------------------------------------------------------------------------------------

enum class Field { complex, real };

template <Tag tag, class T, Field dataField> struct Kind : Spec<T> {
  using Element = T;
  static constexpr Tag kind = tag;
  static constexpr Field field = dataField;
  static constexpr int largestOrder = largestComplexOrder<T> + (dataField == Field::real ? 1 : 0);
};

// ---- Lifecycles, of float and integer kinds alike -----------------------------------------------

// Bytes to report: with room for aligning, where any are needed.
constexpr Zor64s withSlack(Zor64s bytes) { return bytes >= 1 ? bytes + 64 : 0; }

// A specification in memory of its own: init(&spec, block, initBuffer) builds it.
template <class S, class Init> ZorStatus allocated(S** specOut, Zor32s specSize, Zor32s initSize, Init init) {
  return initAllocated(specOut, static_cast<std::size_t>(specSize), [&](Zor8u* block, S** spec) -> ZorStatus {
    const Scratch initBuffer(static_cast<std::size_t>(initSize));
    return initBuffer ? init(spec, block, initBuffer.data()) : zorStatusNoMemory;
  });
}

// The tag is cleared wherever the specification lies.
template <class S> ZorStatus release(S* spec) {
  return check().pointers(spec).state(spec, S::kind).then([&] {
    spec->tag = 0;
    releaseOwned(spec);
  });
}

template <class S> ZorStatus getBufSize(const S* spec, Zor32s* size) {
  return check().pointers(spec, size).state(spec, S::kind).then([&] {
    *size = static_cast<Zor32s>(withSlack(spec->workSize));
  });
}

// ---- Checks -------------------------------------------------------------------------------------

// spec, its kind, data pointers, work memory; then run(work).
template <class S, class Run, class... P> ZorStatus withSpec(const S* spec, Zor8u* buffer, Run run, P*... data) {
  return check().pointers(spec).state(spec, S::kind).pointers(data...).then([&]() -> ZorStatus {
    const Scratch work(buffer, std::size_t(spec->workSize));
    if (!work) return zorStatusNoMemory;
    run(work.data());
    return zorStatusOk;
  });
}

}  // namespace zors::fft

// The public kinds.
struct ZorsFFTSpec_C_32fc : zors::fft::Kind<zors::tag(4), Zor32f, zors::fft::Field::complex> {};
struct ZorsFFTSpec_C_32f : zors::fft::Kind<zors::tag(5), Zor32f, zors::fft::Field::complex> {};
struct ZorsFFTSpec_R_32f : zors::fft::Kind<zors::tag(6), Zor32f, zors::fft::Field::real> {};
struct ZorsFFTSpec_C_64fc : zors::fft::Kind<zors::tag(7), Zor64f, zors::fft::Field::complex> {};
struct ZorsFFTSpec_C_64f : zors::fft::Kind<zors::tag(8), Zor64f, zors::fft::Field::complex> {};
struct ZorsFFTSpec_R_64f : zors::fft::Kind<zors::tag(9), Zor64f, zors::fft::Field::real> {};
