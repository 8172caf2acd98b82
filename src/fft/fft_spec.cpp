// zorsFFTGetSize_*, zorsFFTInit_*, zorsFFTInitAlloc_*, zorsFFTFree_*, zorsFFTGetBufSize_*: specifications of the float
// kinds.
#include "fft/fft_spec.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "exports/fft.h"
#include "fft/fft_tables.h"

namespace zors {
namespace {

using namespace fft;

// ---- Sizes: fixed formulas, which do not depend on what this implementation lays out ------------

struct Sizes {
  std::size_t spec = 0, init = 0, work = 0;  // without slack for the header, the init buffer and the work buffer
};

constexpr std::size_t down64(std::size_t bytes) { return bytes & ~std::size_t{63}; }
constexpr std::size_t power(int exponent) { return std::size_t{1} << exponent; }
constexpr std::size_t reversalBytes(int order) { return down64(power(order) + 67); }
template <class T> constexpr std::size_t sineBytes(int order) {
  if (order <= largestStaticOrder) return 0;
  return sizeof(T) == 4 ? reversalBytes(order) : down64(2 * power(order) + 71);
}

template <class T> constexpr Sizes blockedSizes(int order) {
  constexpr std::size_t bytes = pointBytes<T>;
  const int bits = tileBits<T>(order), rest = order - bits;
  Sizes sizes;
  if (rest < blockedOrder<T>)
    sizes = {.spec = down64(bytes * power(rest) + bytes + 63), .work = down64(bytes * power(rest) + 63)};
  else
    sizes = blockedSizes<T>(rest);
  sizes.spec += bytes * power(order - 1);
  sizes.work = std::max(sizes.work, bytes * power(bits + (sizeof(T) == 4 ? 6 : 5)));
  return sizes;
}
template <class T> constexpr Sizes complexSizes(int order) {
  constexpr std::size_t bytes = pointBytes<T>;
  if (order <= largestSmallOrder) return {};
  if (order < blockedOrder<T>)
    return {.spec = down64(bytes * power(order) + bytes + 63) + reversalBytes(order),
            .init = sineBytes<T>(order),
            .work = down64(bytes * power(order) + 63)};
  Sizes sizes = blockedSizes<T>(order);
  sizes.spec += sizeof(T) == 4 ? 4 * power(order - 12) + 4160 : 4 * power(order - 10) + 1088;
  sizes.work = std::max<std::size_t>(sizes.work, sizeof(T) == 4 ? 65536 : 32768);
  sizes.init = sineBytes<T>(order);
  return sizes;
}
template <class T> constexpr std::size_t factorBytes(int order) {
  constexpr std::size_t bytes = pointBytes<T>;
  if (order < twoLevelOrder<T>) return down64(bytes * power(order - 2) + 63);
  return down64(bytes * power(order - (sizeof(T) == 4 ? 12 : 11)) + 8255);
}
template <class T> constexpr Sizes realSizes(int order) {
  if (order <= largestSmallRealOrder) return {};
  Sizes sizes = complexSizes<T>(order - 1);
  sizes.spec += 2 * factorBytes<T>(order);
  sizes.init = sineBytes<T>(order);
  return sizes;
}
template <class S> constexpr Sizes sizesOf(int order) {
  using T = typename S::Element;
  return S::field == Field::real ? realSizes<T>(order) : complexSizes<T>(order);
}
// The header with its slack, or the slack of a buffer.
constexpr std::size_t headerBytes = 144;
constexpr std::size_t specBytes(const Sizes& sizes) { return sizes.spec + (sizes.spec == 0 ? headerBytes + 64 : 256); }
constexpr std::size_t bufferBytes(std::size_t bytes) { return bytes == 0 ? 0 : bytes + 64; }

// ---- What a specification holds -----------------------------------------------------------------

// The one account of it. Without a block it counts.
template <class S> constexpr void lay(Layout& block, S& spec, int order) {
  using T = typename S::Element;
  constexpr bool real = S::field == Field::real;
  int engine = real ? order - 1 : order;
  block.take<Spec<T>>(1);
  if (engine > largestSmallOrder) {
    spec.bitReverse = block.take<Zor32u>(power(reversalBits<T>(engine)));
    spec.twiddles = block.take<T>(stageTwiddleValues<T>(innermostOrder<T>(engine)));
    for (int level = 0; engine >= blockedOrder<T>; ++level, engine -= tileBits<T>(engine))
      spec.levelTwiddles[level] = block.take<T>(levelTwiddleValues<T>(engine));
  }
  if (real && order > largestSmallRealOrder) {
    spec.realForward = block.take<T>(factorValues<T>(order));
    spec.realInverse = order < twoLevelOrder<T> ? block.take<T>(factorValues<T>(order)) : spec.realForward;
  }
}
template <class S> consteval bool fits() {
  for (int order = 0; order <= S::largestOrder; ++order) {
    S spec{};
    Layout layout(Scratch::alignment);
    lay(layout, spec, order);
    if (layout.size() > specBytes(sizesOf<S>(order))) return false;
  }
  return true;
}

// ---- The operations -----------------------------------------------------------------------------

template <class S> constexpr bool isOrder(Zor32s order) { return order >= 0 && order <= S::largestOrder; }

template <class S> ZorStatus getSize(Zor32s order, Zor32s flag, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) {
  static_assert(fits<S>());
  constexpr Zor32u largestOfAll = 30;
  return check()
      .require(static_cast<Zor32u>(order) <= largestOfAll, zorStatusBadOrder)
      .pointers(specSize, initSize, workSize)
      .require(isFlag(flag), zorStatusBadFlag)
      .require(isOrder<S>(order), zorStatusBadOrder)
      .then([&] {
        const Sizes sizes = sizesOf<S>(order);
        *specSize = static_cast<Zor32s>(specBytes(sizes));
        *initSize = static_cast<Zor32s>(bufferBytes(sizes.init));
        *workSize = static_cast<Zor32s>(bufferBytes(sizes.work));
      });
}

// Division by N or by its root, in the precision of the kind.
template <class T> void setScale(Spec<T>& spec, Zor32s flag, int order) {
  const double n = static_cast<double>(power(order));
  spec.scaleForward = flag == ZOR_FFT_DIVIDE_FORWARD || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
  spec.scaleInverse = flag == ZOR_FFT_DIVIDE_INVERSE || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
  if (flag == ZOR_FFT_DIVIDE_BOTH_ROOT)
    spec.scale = static_cast<T>(1 / std::sqrt(n));
  else if (flag != ZOR_FFT_DIVIDE_NONE)
    spec.scale = 1 / static_cast<T>(n);
}

template <class S> void buildTables(S& spec, Zor8u* initBuffer) {
  using T = typename S::Element;
  constexpr bool real = S::field == Field::real;
  int engine = real ? spec.order - 1 : spec.order;
  if (engine <= largestSmallOrder && !(real && spec.order > largestSmallRealOrder)) return;
  const auto sines = sineTable(spec.order, reinterpret_cast<T*>(alignUp(initBuffer, Scratch::alignment)));
  if (engine > largestSmallOrder) {
    fillReversal(reversalBits<T>(engine), spec.bitReverse);
    fillStageTwiddles(innermostOrder<T>(engine), sines, spec.twiddles);
    for (int level = 0; engine >= blockedOrder<T>; ++level, engine -= tileBits<T>(engine))
      fillLevelTwiddles(engine, sines, spec.levelTwiddles[level]);
  }
  if constexpr (real) {
    if (spec.order < twoLevelOrder<T>)
      fillFactors(spec.order, sines, spec.realForward, spec.realInverse);
    else
      fillTwoLevelFactors(spec.order, sines, spec.realForward);
  }
}

template <class S>
ZorStatus init(S** specOut, Zor32s order, Zor32s flag, Zor32s hint, Zor8u* specBlock, Zor8u* initBuffer) {
  return check()
      .pointers(specOut)
      .require(isOrder<S>(order), zorStatusBadOrder)
      .pointers(specBlock)
      .then([&]() -> ZorStatus {
        S& spec = *new (alignUp(specBlock, Scratch::alignment)) S{};
        if (!isFlag(flag)) return zorStatusBadFlag;
        const Sizes sizes = sizesOf<S>(order);
        if (sizes.init != 0 && initBuffer == nullptr) return zorStatusNullPointer;
        spec.order = order;
        spec.hint = hint;
        spec.workSize = static_cast<Zor32s>(sizes.work);
        setScale(spec, flag, order);
        Layout layout(Scratch::alignment, specBlock);
        lay(layout, spec, order);
        buildTables(spec, initBuffer);
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
  return allocated(specOut, specSize, initSize, [&](S** spec, Zor8u* block, Zor8u* initBuffer) {
    return init(spec, order, flag, hint, block, initBuffer);
  });
}

}  // namespace

// clang-format off
#define GET_SIZE(name, Spec) ZorStatus name(Zor32s order, Zor32s flag, ZorHintAlgorithm, Zor32s* specSize, Zor32s* initSize, Zor32s* workSize) { return getSize<Spec>(order, flag, specSize, initSize, workSize); }
GET_SIZE(zorsFFTGetSize_C_32fc, ZorsFFTSpec_C_32fc)
GET_SIZE(zorsFFTGetSize_C_32f, ZorsFFTSpec_C_32f)
GET_SIZE(zorsFFTGetSize_R_32f, ZorsFFTSpec_R_32f)
GET_SIZE(zorsFFTGetSize_C_64fc, ZorsFFTSpec_C_64fc)
GET_SIZE(zorsFFTGetSize_C_64f, ZorsFFTSpec_C_64f)
GET_SIZE(zorsFFTGetSize_R_64f, ZorsFFTSpec_R_64f)
#undef GET_SIZE

#define INIT(name, Spec) ZorStatus name(Spec** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint, Zor8u* specBlock, Zor8u* initBuffer) { return init(specOut, order, flag, hint, specBlock, initBuffer); }
INIT(zorsFFTInit_C_32fc, ZorsFFTSpec_C_32fc)
INIT(zorsFFTInit_C_32f, ZorsFFTSpec_C_32f)
INIT(zorsFFTInit_R_32f, ZorsFFTSpec_R_32f)
INIT(zorsFFTInit_C_64fc, ZorsFFTSpec_C_64fc)
INIT(zorsFFTInit_C_64f, ZorsFFTSpec_C_64f)
INIT(zorsFFTInit_R_64f, ZorsFFTSpec_R_64f)
#undef INIT

ZorStatus zorsFFTInitAlloc_C_32fc(ZorsFFTSpec_C_32fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_C_32f(ZorsFFTSpec_C_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_R_32f(ZorsFFTSpec_R_32f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_C_64fc(ZorsFFTSpec_C_64fc** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_C_64f(ZorsFFTSpec_C_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }
ZorStatus zorsFFTInitAlloc_R_64f(ZorsFFTSpec_R_64f** specOut, Zor32s order, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, order, flag, hint); }

ZorStatus zorsFFTFree_C_32fc(ZorsFFTSpec_C_32fc* spec) { return release(spec); }
ZorStatus zorsFFTFree_C_32f(ZorsFFTSpec_C_32f* spec) { return release(spec); }
ZorStatus zorsFFTFree_R_32f(ZorsFFTSpec_R_32f* spec) { return release(spec); }
ZorStatus zorsFFTFree_C_64fc(ZorsFFTSpec_C_64fc* spec) { return release(spec); }
ZorStatus zorsFFTFree_C_64f(ZorsFFTSpec_C_64f* spec) { return release(spec); }
ZorStatus zorsFFTFree_R_64f(ZorsFFTSpec_R_64f* spec) { return release(spec); }

ZorStatus zorsFFTGetBufSize_C_32fc(const ZorsFFTSpec_C_32fc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_C_32f(const ZorsFFTSpec_C_32f* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_R_32f(const ZorsFFTSpec_R_32f* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_C_64fc(const ZorsFFTSpec_C_64fc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_C_64f(const ZorsFFTSpec_C_64f* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsFFTGetBufSize_R_64f(const ZorsFFTSpec_R_64f* spec, Zor32s* size) { return getBufSize(spec, size); }
// clang-format on

}  // namespace zors
