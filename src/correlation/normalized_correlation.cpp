// zorsAutoCorrNorm_*, zorsCrossCorrNorm_* and their buffer sizes: correlation in a caller's memory, by a method and
// with a normalisation of the caller's choice.
#include "correlation/sums.h"
#include "exports/correlation.h"
#include "frame/check.h"

namespace zors {
namespace {

// The low byte is the method, the second one the normalisation; the others have no meaning.
constexpr Zor32s biased = 0x100, unbiased = 0x200;
constexpr bool isKnown(Zor32s algType) {
  const Zor32s norm = algType & 0xFF00;
  return (algType & 0xFF) <= 2 && (norm == 0 || norm == biased || norm == unbiased);
}
constexpr Method methodOf(Zor32s algType) { return static_cast<Method>(algType & 0xFF); }

template <class T>
ZorStatus autoCorrNorm(const T* src, Zor32s srcLen, T* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer) {
  return check()
      .pointers(src, dst, buffer)
      .size(srcLen)
      .size(dstLen)
      .require(isKnown(algType), zorStatusBadAlgorithmType)
      .then([&]() -> ZorStatus {
        const Zor32s lags = std::min(srcLen, dstLen);
        const Plan plan = planAuto<T>(srcLen, lags, methodOf(algType));
        ZorStatus status = zorStatusOk;
        if (plan.way == Plan::direct)
          autoDirect(src, srcLen, dst, lags);
        else
          status = inBuffer<T>(plan, buffer,
                               [&](const Space<T>& space) { return autoByTransforms(space, src, srcLen, dst, lags); });
        if (status < zorStatusOk) return status;
        zeros(dst + lags, dstLen - lags);
        ZorStatus after = zorStatusOk;
        if ((algType & biased) != 0) after = multiplyByInverse(dst, lags, srcLen);
        if ((algType & unbiased) != 0) after = divideByCounts(dst, lags, srcLen, -1);
        return after < zorStatusOk ? after : status;
      });
}

// By the products that each output has: their number rises, stays at the shorter length, falls.
template <class T> ZorStatus divideByOverlaps(T* dst, Zor32s len1, Zor32s len2, const Lags& lags) {
  const Zor64s shorter = std::min(len1, len2), all = Zor64s{len1} + len2 - 1;
  const auto part = [&](Zor64s from, Zor64s to) {  // of the places from .. to among all, those that are outputs
    const Zor64s begin = std::clamp<Zor64s>(from - lags.skip, 0, lags.count);
    return std::pair{begin, std::clamp<Zor64s>(to - lags.skip, begin, lags.count)};
  };
  const auto [rise, riseEnd] = part(0, shorter - 1);
  const auto [full, fullEnd] = part(shorter - 1, all - shorter + 1);
  const auto [fall, fallEnd] = part(all - shorter + 1, all);
  ZorStatus status = divideByCounts(dst + rise, Zor32s(riseEnd - rise), Zor32s(std::min(lags.skip + 1, shorter)), 1);
  if (status >= zorStatusOk) status = multiplyByInverse(dst + full, Zor32s(fullEnd - full), Zor32s(shorter));
  if (status >= zorStatusOk)
    status = divideByCounts(dst + fall, Zor32s(fallEnd - fall), Zor32s(std::min(all - lags.skip - fall, shorter)), -1);
  return status;
}

template <class T>
ZorStatus crossCorrNorm(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, Zor32s dstLen, Zor32s lowLag,
                        Zor32s algType, Zor8u* buffer) {
  return check()
      .pointers(src1, src2, dst, buffer)
      .size(len1)
      .size(len2)
      .size(dstLen)
      .require(isKnown(algType), zorStatusBadAlgorithmType)
      .then([&]() -> ZorStatus {
        const Lags lags = trimmed(len1, len2, dstLen, lowLag);
        T* to = zeroOutside(lags, dst);
        if (lags.count == 0) return zorStatusOk;
        const Plan plan = planCross<T>(len1, len2, lags, methodOf(algType));
        ZorStatus status = zorStatusOk;
        if (plan.way == Plan::direct)
          crossDirect(src1, len1, src2, len2, to, lags);
        else
          status = inBuffer<T>(plan, buffer, [&](const Space<T>& space) {
            return crossByTransforms(space, plan.way, src1, len1, src2, len2, to, lags);
          });
        if (status < zorStatusOk) return status;
        ZorStatus after = zorStatusOk;
        if ((algType & biased) != 0) after = multiplyByInverse(to, lags.count, std::min(len1, len2));
        if ((algType & unbiased) != 0) after = divideByOverlaps(to, len1, len2, lags);
        return after < zorStatusOk ? after : status;
      });
}

}  // namespace

ZorStatus zorsAutoCorrNormGetBufferSize(Zor32s srcLen, Zor32s dstLen, Zor32s dataType, Zor32s algType, Zor32s* size) {
  return check()
      .pointers(size)
      .size(srcLen)
      .size(dstLen)
      .require(isKnown(algType), zorStatusBadAlgorithmType)
      .then([&] {
        return withDataType(dataType, size, [&]<class T>(T) {
          return bufferSize<T>(planAuto<T>(srcLen, std::min(srcLen, dstLen), methodOf(algType)), size);
        });
      });
}
ZorStatus zorsCrossCorrNormGetBufferSize(Zor32s len1, Zor32s len2, Zor32s dstLen, Zor32s lowLag, Zor32s dataType,
                                         Zor32s algType, Zor32s* size) {
  return check()
      .pointers(size)
      .size(len1)
      .size(len2)
      .size(dstLen)
      .require(isKnown(algType), zorStatusBadAlgorithmType)
      .then([&] {
        return withDataType(dataType, size, [&]<class T>(T) {
          return bufferSize<T>(planCross<T>(len1, len2, trimmed(len1, len2, dstLen, lowLag), methodOf(algType)), size);
        });
      });
}

// clang-format off
#define AUTO_CORR_NORM(name, T)                                                                             \
  ZorStatus name(const T* src, Zor32s srcLen, T* dst, Zor32s dstLen, Zor32s algType, Zor8u* buffer) {       \
    return autoCorrNorm(src, srcLen, dst, dstLen, algType, buffer);                                         \
  }
AUTO_CORR_NORM(zorsAutoCorrNorm_32f,  Zor32f)
AUTO_CORR_NORM(zorsAutoCorrNorm_32fc, Zor32fc)
AUTO_CORR_NORM(zorsAutoCorrNorm_64f,  Zor64f)
AUTO_CORR_NORM(zorsAutoCorrNorm_64fc, Zor64fc)
#undef AUTO_CORR_NORM
#define CROSS_CORR_NORM(name, T)                                                                            \
  ZorStatus name(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, Zor32s dstLen, Zor32s lowLag, \
                 Zor32s algType, Zor8u* buffer) {                                                           \
    return crossCorrNorm(src1, len1, src2, len2, dst, dstLen, lowLag, algType, buffer);                     \
  }
CROSS_CORR_NORM(zorsCrossCorrNorm_32f,  Zor32f)
CROSS_CORR_NORM(zorsCrossCorrNorm_32fc, Zor32fc)
CROSS_CORR_NORM(zorsCrossCorrNorm_64f,  Zor64f)
CROSS_CORR_NORM(zorsCrossCorrNorm_64fc, Zor64fc)
#undef CROSS_CORR_NORM
// clang-format on

}  // namespace zors
