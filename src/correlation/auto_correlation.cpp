// zorsAutoCorr_*, zorsAutoCorr_NormA_*, zorsAutoCorr_NormB_*: autocorrelation.
#include "correlation/sums.h"
#include "exports/correlation.h"
#include "frame/check.h"

namespace zors {
namespace {

enum class Norm { none, biased, unbiased };

template <class T> ZorStatus sums(const T* src, Zor32s srcLen, T* dst, Zor32s lags) {
  const Plan plan = planAuto<T>(srcLen, lags, Method::automatic);
  if (plan.way != Plan::direct)
    return inHeap<T>(plan, [&](const Space<T>& space) { return autoByTransforms(space, src, srcLen, dst, lags); });
  autoDirect(src, srcLen, dst, lags);
  return zorStatusOk;
}
template <Norm norm, class T> ZorStatus normalizedSums(const T* src, Zor32s srcLen, T* dst, Zor32s lags) {
  const ZorStatus status = sums(src, srcLen, dst, lags);
  if (status < zorStatusOk) return status;
  ZorStatus after = zorStatusOk;
  if constexpr (norm == Norm::biased) after = multiplyByInverse(dst, lags, srcLen);
  if constexpr (norm == Norm::unbiased) after = divideByCounts(dst, lags, srcLen, -1);
  return after < zorStatusOk ? after : status;
}

template <Norm norm, class T> ZorStatus autoCorr(const T* src, Zor32s srcLen, T* dst, Zor32s dstLen) {
  return check().pointers(src, dst).size(srcLen).size(dstLen).then([&]() -> ZorStatus {
    const Zor32s lags = std::min(srcLen, dstLen);
    const ZorStatus status = normalizedSums<norm>(src, srcLen, dst, lags);
    if (status >= zorStatusOk) zeros(dst + lags, dstLen - lags);
    return status;
  });
}

// Sums and their normalisation in binary32; the zeros behind them are written whatever happens.
template <Norm norm>
ZorStatus autoCorrScaled(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(srcLen).size(dstLen).then([&]() -> ZorStatus {
    const Zor32s lags = std::min(srcLen, dstLen);
    const Scratch scratch((std::size_t(srcLen) + std::size_t(lags)) * sizeof(Zor32f));
    ZorStatus status = zorStatusNoMemory;
    if (scratch) {
      auto *results = scratch.as<Zor32f>(), *widened = results + lags;
      by_type::widen(src, widened, srcLen);
      status = normalizedSums<norm>(widened, srcLen, results, lags);
      if (status >= zorStatusOk) narrowSums(results, dst, lags, scaleFactor);
    }
    zeros(dst + lags, dstLen - lags);
    return status;
  });
}

}  // namespace

// clang-format off
#define AUTO_CORR(name, T, norm)                                                                            \
  ZorStatus name(const T* src, Zor32s srcLen, T* dst, Zor32s dstLen) {                                      \
    return autoCorr<norm>(src, srcLen, dst, dstLen);                                                        \
  }
AUTO_CORR(zorsAutoCorr_32f,        Zor32f,  Norm::none)
AUTO_CORR(zorsAutoCorr_32fc,       Zor32fc, Norm::none)
AUTO_CORR(zorsAutoCorr_64f,        Zor64f,  Norm::none)
AUTO_CORR(zorsAutoCorr_64fc,       Zor64fc, Norm::none)
AUTO_CORR(zorsAutoCorr_NormA_32f,  Zor32f,  Norm::biased)
AUTO_CORR(zorsAutoCorr_NormA_32fc, Zor32fc, Norm::biased)
AUTO_CORR(zorsAutoCorr_NormA_64f,  Zor64f,  Norm::biased)
AUTO_CORR(zorsAutoCorr_NormA_64fc, Zor64fc, Norm::biased)
AUTO_CORR(zorsAutoCorr_NormB_32f,  Zor32f,  Norm::unbiased)
AUTO_CORR(zorsAutoCorr_NormB_32fc, Zor32fc, Norm::unbiased)
AUTO_CORR(zorsAutoCorr_NormB_64f,  Zor64f,  Norm::unbiased)
AUTO_CORR(zorsAutoCorr_NormB_64fc, Zor64fc, Norm::unbiased)
#undef AUTO_CORR
// clang-format on

ZorStatus zorsAutoCorr_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor) {
  return autoCorrScaled<Norm::none>(src, srcLen, dst, dstLen, scaleFactor);
}
ZorStatus zorsAutoCorr_NormA_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor) {
  return autoCorrScaled<Norm::biased>(src, srcLen, dst, dstLen, scaleFactor);
}
ZorStatus zorsAutoCorr_NormB_16s_Sfs(const Zor16s* src, Zor32s srcLen, Zor16s* dst, Zor32s dstLen, Zor32s scaleFactor) {
  return autoCorrScaled<Norm::unbiased>(src, srcLen, dst, dstLen, scaleFactor);
}

}  // namespace zors
