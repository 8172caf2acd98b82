// zorsConv_*, zorsConvBiased_32f, zorsConvolve_*, zorsConvolveGetBufferSize: linear convolution.
#include "correlation/sums.h"
#include "exports/correlation.h"
#include "frame/check.h"

namespace zors {
namespace {

// The longer operand first.
template <class T> struct Operands {
  const T* x;
  Zor32s xLen;
  const T* taps;
  Zor32s tapsLen;

  Operands(const T* src1, Zor32s len1, const T* src2, Zor32s len2) : x(src1), xLen(len1), taps(src2), tapsLen(len2) {
    if (len1 < len2) std::swap(x, taps), std::swap(xLen, tapsLen);
  }
  Zor64s all() const { return Zor64s{xLen} + tapsLen - 1; }
};

inline Plan planConvolution(Zor32s longer, Zor32s shorter, Method method) {
  const Zor64s all = Zor64s{longer} + shorter - 1;
  if (method == Method::direct || (method == Method::automatic && (all < 512 || shorter < 64))) return {};
  return longer < Zor64s{3} * shorter ? planWhole(all, 2) : planPieces(shorter);
}

// dst[n] = element first + n of the convolution.
template <class T> void convolveDirect(const Operands<T>& of, std::ptrdiff_t first, T* dst, std::ptrdiff_t count) {
  const std::ptrdiff_t older = of.tapsLen - 1;
  direct::correlate(ReversedTaps<T>{of.taps + older}, of.tapsLen, of.x, of.xLen, first - older, dst, count);
}
template <class T> ZorStatus convolveByTransforms(const Space<T>& space, Plan::Way way, const Operands<T>& of, T* dst) {
  const auto by = way == Plan::whole ? convolveWhole<T> : convolvePieces<T>;
  return by(space, of.taps, of.tapsLen, Taps::asTheyAre, of.x, of.xLen, 0, dst, static_cast<Zor32s>(of.all()));
}

template <class T> ZorStatus convolution(const Plan& plan, const Operands<T>& of, T* dst) {
  if (plan.way != Plan::direct)
    return inHeap<T>(plan, [&](const Space<T>& space) { return convolveByTransforms(space, plan.way, of, dst); });
  convolveDirect(of, 0, dst, of.all());
  return zorStatusOk;
}

template <class T> ZorStatus conv(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst) {
  return check().pointers(src1, src2, dst).size(len1).size(len2).then([&] {
    const Operands of(src1, len1, src2, len2);
    return convolution(planConvolution(of.xLen, of.tapsLen, Method::automatic), of, dst);
  });
}

template <class T>
ZorStatus convolve(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, Zor32s algType, Zor8u* buffer) {
  return check()
      .pointers(src1, src2, dst, buffer)
      .size(len1)
      .size(len2)
      .require(algType >= 0 && algType <= 2, zorStatusBadAlgorithmType)
      .then([&]() -> ZorStatus {
        const Operands of(src1, len1, src2, len2);
        const Plan plan = planConvolution(of.xLen, of.tapsLen, static_cast<Method>(algType));
        if (plan.way != Plan::direct)
          return inBuffer<T>(plan, buffer,
                             [&](const Space<T>& space) { return convolveByTransforms(space, plan.way, of, dst); });
        convolveDirect(of, 0, dst, of.all());
        return zorStatusOk;
      });
}

// Direct sums of 16-bit vectors, a piece of the results at a time, so that what is widened stays in the cache.
ZorStatus convolvePiecewise(const Operands<Zor16s>& of, Zor16s* dst, Zor32s scaleFactor) {
  constexpr Zor32s piece = 4096;
  const std::size_t older = std::size_t(of.tapsLen) - 1;
  const Scratch scratch((std::size_t(of.tapsLen) + (piece + older) + piece) * sizeof(Zor32f));
  if (!scratch) return zorStatusNoMemory;
  auto *taps = scratch.as<Zor32f>(), *x = taps + of.tapsLen, *results = x + (piece + older);
  by_type::widen(of.taps, taps, of.tapsLen);
  for (Zor64s done = 0; done < of.all(); done += piece) {
    const auto count = static_cast<Zor32s>(std::min<Zor64s>(piece, of.all() - done));
    const Zor64s from = std::max<Zor64s>(0, done - Zor64s(older)), to = std::min<Zor64s>(of.xLen, done + count);
    by_type::widen(of.x + from, x, static_cast<Zor32s>(to - from));
    direct::correlate(ReversedTaps<Zor32f>{taps + older}, of.tapsLen, x, to - from, done - std::ptrdiff_t(older) - from,
                      results, count);
    narrowSums(results, dst + done, count, scaleFactor);
  }
  return zorStatusOk;
}

}  // namespace

ZorStatus zorsConv_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst) {
  return conv(src1, len1, src2, len2, dst);
}
ZorStatus zorsConv_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst) {
  return conv(src1, len1, src2, len2, dst);
}
ZorStatus zorsConv_16s_Sfs(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor16s* dst,
                           Zor32s scaleFactor) {
  return check().pointers(src1, src2, dst).size(len1).size(len2).then([&]() -> ZorStatus {
    const Operands of(src1, len1, src2, len2);
    const Plan plan = planConvolution(of.xLen, of.tapsLen, Method::automatic);
    if (plan.way == Plan::direct) return convolvePiecewise(of, dst, scaleFactor);
    const auto all = static_cast<std::size_t>(of.all());
    const Scratch scratch((std::size_t(of.xLen) + std::size_t(of.tapsLen) + all) * sizeof(Zor32f));
    if (!scratch) return zorStatusNoMemory;
    auto *x = scratch.as<Zor32f>(), *taps = x + of.xLen, *results = taps + of.tapsLen;
    by_type::widen(of.x, x, of.xLen);
    by_type::widen(of.taps, taps, of.tapsLen);
    const ZorStatus status = convolution(plan, Operands(x, of.xLen, taps, of.tapsLen), results);
    if (status >= zorStatusOk) narrowSums(results, dst, static_cast<Zor32s>(all), scaleFactor);
    return status;
  });
}

ZorStatus zorsConvBiased_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                             Zor32s dstLen, Zor32s bias) {
  return check().pointers(src1, src2, dst).size(len1).size(len2).size(dstLen).then([&] {
    const Operands of(src1, len1, src2, len2);
    // Element n of a convolution is the product sum of the turned taps at lag n - (tapsLen - 1).
    const Lags lags = trimmed(of.tapsLen, of.xLen, dstLen, Zor64s{bias} - (of.tapsLen - 1));
    Zor32f* to = zeroOutside(lags, dst);
    convolveDirect(of, lags.skip, to, lags.count);
  });
}

ZorStatus zorsConvolve_32f(const Zor32f* src1, Zor32s len1, const Zor32f* src2, Zor32s len2, Zor32f* dst,
                           Zor32s algType, Zor8u* buffer) {
  return convolve(src1, len1, src2, len2, dst, algType, buffer);
}
ZorStatus zorsConvolve_64f(const Zor64f* src1, Zor32s len1, const Zor64f* src2, Zor32s len2, Zor64f* dst,
                           Zor32s algType, Zor8u* buffer) {
  return convolve(src1, len1, src2, len2, dst, algType, buffer);
}
ZorStatus zorsConvolveGetBufferSize(Zor32s len1, Zor32s len2, Zor32s dataType, Zor32s algType, Zor32s* size) {
  return check()
      .pointers(size)
      .size(len1)
      .size(len2)
      .require(algType >= 0 && algType <= 2, zorStatusBadAlgorithmType)
      .then([&] {
        const Plan plan = planConvolution(std::max(len1, len2), std::min(len1, len2), static_cast<Method>(algType));
        return withDataType(dataType, size, [&]<class T>(T) -> ZorStatus {
          if constexpr (Complex<T>) {
            *size = 0;
            return zorStatusBadDataType;
          } else {
            return bufferSize<T>(plan, size);
          }
        });
      });
}

}  // namespace zors
