// zorsCrossCorr_*: cross-correlation.
#include "correlation/sums.h"
#include "exports/correlation.h"
#include "exports/statistics.h"
#include "frame/check.h"

namespace zors {
namespace {

template <class T> ZorStatus sums(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, const Lags& lags) {
  const Plan plan = planCross<T>(len1, len2, lags, Method::automatic);
  if (plan.way != Plan::direct)
    return inHeap<T>(plan, [&](const Space<T>& space) {
      return crossByTransforms(space, plan.way, src1, len1, src2, len2, dst, lags);
    });
  crossDirect(src1, len1, src2, len2, dst, lags);
  return zorStatusOk;
}

// work(where the sums go, lags), where there are any.
template <class S, class D, class Work>
ZorStatus crossCorr(const S* src1, Zor32s len1, const S* src2, Zor32s len2, D* dst, Zor32s dstLen, Zor32s lowLag,
                    Work work) {
  return check().pointers(src1, src2, dst).size(len1).size(len2).size(dstLen).then([&]() -> ZorStatus {
    const Lags lags = trimmed(len1, len2, dstLen, lowLag);
    D* to = zeroOutside(lags, dst);
    return lags.count == 0 ? ZorStatus{zorStatusOk} : work(to, lags);
  });
}
template <class T>
ZorStatus floatCrossCorr(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, Zor32s dstLen, Zor32s lowLag) {
  return crossCorr(src1, len1, src2, len2, dst, dstLen, lowLag,
                   [&](T* to, const Lags& lags) { return sums(src1, len1, src2, len2, to, lags); });
}

}  // namespace

// clang-format off
#define CROSS_CORR(name, T)                                                                                 \
  ZorStatus name(const T* src1, Zor32s len1, const T* src2, Zor32s len2, T* dst, Zor32s dstLen, Zor32s lowLag) { \
    return floatCrossCorr(src1, len1, src2, len2, dst, dstLen, lowLag);                                     \
  }
CROSS_CORR(zorsCrossCorr_32f,  Zor32f)
CROSS_CORR(zorsCrossCorr_32fc, Zor32fc)
CROSS_CORR(zorsCrossCorr_64f,  Zor64f)
CROSS_CORR(zorsCrossCorr_64fc, Zor64fc)
#undef CROSS_CORR
// clang-format on

ZorStatus zorsCrossCorr_16s_Sfs(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor16s* dst,
                                Zor32s dstLen, Zor32s lowLag, Zor32s scaleFactor) {
  return crossCorr(src1, len1, src2, len2, dst, dstLen, lowLag, [&](Zor16s* to, const Lags& lags) -> ZorStatus {
    const Scratch scratch((std::size_t(len1) + std::size_t(len2) + std::size_t(lags.count)) * sizeof(Zor32f));
    if (!scratch) return zorStatusNoMemory;
    auto *x1 = scratch.as<Zor32f>(), *x2 = x1 + len1, *results = x2 + len2;
    by_type::widen(src1, x1, len1);
    by_type::widen(src2, x2, len2);
    const ZorStatus status = sums(x1, len1, x2, len2, results, lags);
    if (status >= zorStatusOk) narrowSums(results, to, lags.count, scaleFactor);
    return status;
  });
}

// Exact, so each lag is a dot product of its own.
ZorStatus zorsCrossCorr_16s64s(const Zor16s* src1, Zor32s len1, const Zor16s* src2, Zor32s len2, Zor64s* dst,
                               Zor32s dstLen, Zor32s lowLag) {
  return crossCorr(src1, len1, src2, len2, dst, dstLen, lowLag, [&](Zor64s* to, const Lags& lags) -> ZorStatus {
    for (Zor64s i = 0; i < lags.count; ++i) {
      const Zor64s lag = lags.lag + i, from = std::max<Zor64s>(0, -lag), end = std::min<Zor64s>(len1, len2 - lag);
      zors::zorsDotProd_16s64s(src1 + from, src2 + (from + lag), static_cast<Zor32s>(end - from), to + i);
    }
    return zorStatusOk;
  });
}

}  // namespace zors
