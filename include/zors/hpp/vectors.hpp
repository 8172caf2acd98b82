/** @file
 *  Operations on vectors. Each lists the C functions behind it, by element type; their headers have the formulas, the
 *  roundings, the meaning of scale factors. */
#ifndef ZORS_HPP_VECTORS_HPP
#define ZORS_HPP_VECTORS_HPP

#include "zors/hpp/core.hpp"

namespace zors {

// Arithmetic. A vector may be a number instead: add(src, 2.0f, dst). Integers take a scale factor behind dst.

/// dst = src1 + src2.
inline constexpr Operation<zorsAdd_32f, zorsAdd_64f, zorsAdd_32fc, zorsAdd_64fc, zorsAdd_8u_Sfs, zorsAdd_16s_Sfs,
                           zorsAdd_16u_Sfs, zorsAdd_32s_Sfs, zorsAdd_64s_Sfs, zorsAdd_16sc_Sfs, zorsAdd_32sc_Sfs,
                           zorsAddC_32f, zorsAddC_64f, zorsAddC_32fc, zorsAddC_64fc, zorsAddC_8u_Sfs, zorsAddC_16s_Sfs,
                           zorsAddC_16u_Sfs, zorsAddC_32s_Sfs, zorsAddC_16sc_Sfs, zorsAddC_32sc_Sfs>
    add;
/// dst = src2 - src1, as in C; with a number, dst = src - number.
inline constexpr Operation<zorsSub_32f, zorsSub_64f, zorsSub_32fc, zorsSub_64fc, zorsSub_8u_Sfs, zorsSub_16s_Sfs,
                           zorsSub_16u_Sfs, zorsSub_32s_Sfs, zorsSub_16sc_Sfs, zorsSub_32sc_Sfs, zorsSubC_32f,
                           zorsSubC_64f, zorsSubC_32fc, zorsSubC_64fc, zorsSubC_8u_Sfs, zorsSubC_16s_Sfs,
                           zorsSubC_16u_Sfs, zorsSubC_32s_Sfs, zorsSubC_16sc_Sfs, zorsSubC_32sc_Sfs>
    subtract;
/// dst = number - src.
inline constexpr Operation<zorsSubCRev_32f, zorsSubCRev_64f, zorsSubCRev_32fc, zorsSubCRev_64fc, zorsSubCRev_8u_Sfs,
                           zorsSubCRev_16s_Sfs, zorsSubCRev_16u_Sfs, zorsSubCRev_32s_Sfs, zorsSubCRev_16sc_Sfs,
                           zorsSubCRev_32sc_Sfs>
    subtractFrom;
/// dst = src1 * src2.
inline constexpr Operation<zorsMul_32f, zorsMul_64f, zorsMul_32fc, zorsMul_64fc, zorsMul_32f32fc, zorsMul_8u_Sfs,
                           zorsMul_16s_Sfs, zorsMul_16u_Sfs, zorsMul_32s_Sfs, zorsMul_16sc_Sfs, zorsMul_32sc_Sfs,
                           zorsMulC_32f, zorsMulC_64f, zorsMulC_32fc, zorsMulC_64fc, zorsMulC_8u_Sfs, zorsMulC_16s_Sfs,
                           zorsMulC_16u_Sfs, zorsMulC_32s_Sfs, zorsMulC_16sc_Sfs, zorsMulC_32sc_Sfs>
    multiply;
/// dst = src2 / src1, as in C; with a number, dst = src / number.
inline constexpr Operation<zorsDiv_32f, zorsDiv_64f, zorsDiv_32fc, zorsDiv_64fc, zorsDiv_8u_Sfs, zorsDiv_16s_Sfs,
                           zorsDiv_16u_Sfs, zorsDiv_32s_Sfs, zorsDiv_16sc_Sfs, zorsDivC_32f, zorsDivC_64f,
                           zorsDivC_32fc, zorsDivC_64fc, zorsDivC_8u_Sfs, zorsDivC_16s_Sfs, zorsDivC_16u_Sfs,
                           zorsDivC_16sc_Sfs>
    divide;
/// srcDst += src1 * src2.
inline constexpr Operation<zorsAddProduct_32f, zorsAddProduct_64f, zorsAddProduct_32fc, zorsAddProduct_64fc,
                           zorsAddProduct_16s_Sfs, zorsAddProduct_16s32s_Sfs, zorsAddProduct_32s_Sfs,
                           zorsAddProductC_32f>
    addProduct;
inline constexpr Operation<zorsMaxEvery_8u, zorsMaxEvery_16u, zorsMaxEvery_32f, zorsMaxEvery_64f> greaterOf;
inline constexpr Operation<zorsMinEvery_8u, zorsMinEvery_16u, zorsMinEvery_32f, zorsMinEvery_64f> lesserOf;

// Functions of one vector: abs(src, dst).

inline constexpr Operation<zorsAbs_32f, zorsAbs_64f, zorsAbs_16s, zorsAbs_32s> abs;
inline constexpr Operation<zorsSqr_32f, zorsSqr_64f, zorsSqr_32fc, zorsSqr_64fc, zorsSqr_8u_Sfs, zorsSqr_16u_Sfs,
                           zorsSqr_16s_Sfs, zorsSqr_16sc_Sfs>
    square;
inline constexpr Operation<zorsSqrt_32f, zorsSqrt_64f, zorsSqrt_32fc, zorsSqrt_64fc, zorsSqrt_8u_Sfs, zorsSqrt_16u_Sfs,
                           zorsSqrt_16s_Sfs, zorsSqrt_64s_Sfs, zorsSqrt_16sc_Sfs, zorsSqrt_32s16s_Sfs,
                           zorsSqrt_64s16s_Sfs>
    sqrt;
inline constexpr Operation<zorsExp_32f, zorsExp_64f, zorsExp_32f64f, zorsExp_16s_Sfs, zorsExp_32s_Sfs, zorsExp_64s_Sfs>
    exp;
inline constexpr Operation<zorsLn_32f, zorsLn_64f, zorsLn_64f32f, zorsLn_16s_Sfs, zorsLn_32s_Sfs, zorsLn_32s16s_Sfs> ln;
inline constexpr Operation<zorsArctan_32f, zorsArctan_64f> arctan;

// Complex vectors and their parts.

inline constexpr Operation<zorsMagnitude_32fc, zorsMagnitude_64fc, zorsMagnitude_32f, zorsMagnitude_64f,
                           zorsMagnitude_16sc32f, zorsMagnitude_16s32f, zorsMagnitude_16sc_Sfs, zorsMagnitude_16s_Sfs,
                           zorsMagnitude_32sc_Sfs>
    magnitude;
/// re * re + im * im.
inline constexpr Operation<zorsPowerSpectr_32fc, zorsPowerSpectr_64fc, zorsPowerSpectr_32f, zorsPowerSpectr_64f,
                           zorsPowerSpectr_16sc32f, zorsPowerSpectr_16s32f, zorsPowerSpectr_16sc_Sfs,
                           zorsPowerSpectr_16s_Sfs>
    power;
inline constexpr Operation<zorsPhase_32fc, zorsPhase_64fc, zorsPhase_32f, zorsPhase_64f, zorsPhase_16sc32f,
                           zorsPhase_16s32f, zorsPhase_16sc_Sfs, zorsPhase_16s_Sfs, zorsPhase_32sc_Sfs>
    phase;
/// (src, magnitude, phase).
inline constexpr Operation<zorsCartToPolar_32fc, zorsCartToPolar_64fc, zorsCartToPolar_32f, zorsCartToPolar_64f>
    toPolar;
/// (magnitude, phase, dst).
inline constexpr Operation<zorsPolarToCart_32fc, zorsPolarToCart_64fc, zorsPolarToCart_32f, zorsPolarToCart_64f>
    fromPolar;
inline constexpr Operation<zorsReal_32fc, zorsReal_64fc, zorsReal_16sc> real;
inline constexpr Operation<zorsImag_32fc, zorsImag_64fc, zorsImag_16sc> imag;
/// (src, re, im).
inline constexpr Operation<zorsCplxToReal_32fc, zorsCplxToReal_64fc, zorsCplxToReal_16sc> toParts;
/// (re, im, dst).
inline constexpr Operation<zorsRealToCplx_32f, zorsRealToCplx_64f, zorsRealToCplx_16s> fromParts;
inline constexpr Operation<zorsConj_32fc, zorsConj_64fc, zorsConj_16sc> conj;

// Whole vectors.

inline constexpr Operation<zorsZero_32f, zorsZero_64f, zorsZero_32fc, zorsZero_64fc, zorsZero_8u, zorsZero_16s,
                           zorsZero_32s, zorsZero_64s, zorsZero_16sc, zorsZero_32sc>
    zero;
/// (number, dst).
inline constexpr Operation<zorsSet_32f, zorsSet_64f, zorsSet_32fc, zorsSet_8u, zorsSet_16s, zorsSet_32s, zorsSet_64s,
                           zorsSet_16sc, zorsSet_32sc>
    set;
inline constexpr Operation<zorsCopy_32f, zorsCopy_64f, zorsCopy_32fc, zorsCopy_64fc, zorsCopy_8u, zorsCopy_16s,
                           zorsCopy_32s, zorsCopy_64s, zorsCopy_16sc, zorsCopy_32sc>
    copy;
inline constexpr Operation<zorsFlip_32f, zorsFlip_64f, zorsFlip_32fc, zorsFlip_64fc, zorsFlip_8u, zorsFlip_16u> flip;
/// (src, dst, level): what is below (above) the level becomes the level.
inline constexpr Operation<zorsThreshold_LT_32f, zorsThreshold_LT_64f, zorsThreshold_LT_16s, zorsThreshold_LT_32s,
                           zorsThreshold_LT_32fc, zorsThreshold_LT_64fc, zorsThreshold_LT_16sc>
    atLeast;
inline constexpr Operation<zorsThreshold_GT_32f, zorsThreshold_GT_64f, zorsThreshold_GT_16s, zorsThreshold_GT_32s,
                           zorsThreshold_GT_32fc, zorsThreshold_GT_64fc, zorsThreshold_GT_16sc>
    atMost;
/// (src, dst, level, value): what is below (above) the level becomes the value.
inline constexpr Operation<zorsThreshold_LTVal_32f, zorsThreshold_LTVal_64f, zorsThreshold_LTVal_16s,
                           zorsThreshold_LTVal_32fc, zorsThreshold_LTVal_64fc, zorsThreshold_LTVal_16sc>
    replaceBelow;
inline constexpr Operation<zorsThreshold_GTVal_32f, zorsThreshold_GTVal_64f, zorsThreshold_GTVal_16s,
                           zorsThreshold_GTVal_32fc, zorsThreshold_GTVal_64fc, zorsThreshold_GTVal_16sc>
    replaceAbove;
/// (src, dst, size): the running median; an even size is a warning.
inline constexpr Operation<zorsFilterMedian_32f, zorsFilterMedian_64f, zorsFilterMedian_8u, zorsFilterMedian_16s,
                           zorsFilterMedian_32s>
    median;

// Windows: hann(src, dst). Blackman and Kaiser take alpha behind dst.

inline constexpr Operation<zorsWinBartlett_32f, zorsWinBartlett_64f, zorsWinBartlett_32fc, zorsWinBartlett_64fc,
                           zorsWinBartlett_16s, zorsWinBartlett_16sc>
    bartlett;
inline constexpr Operation<zorsWinHann_32f, zorsWinHann_64f, zorsWinHann_32fc, zorsWinHann_64fc, zorsWinHann_16s,
                           zorsWinHann_16sc>
    hann;
inline constexpr Operation<zorsWinHamming_32f, zorsWinHamming_64f, zorsWinHamming_32fc, zorsWinHamming_64fc,
                           zorsWinHamming_16s, zorsWinHamming_16sc>
    hamming;
inline constexpr Operation<zorsWinBlackman_32f, zorsWinBlackman_64f, zorsWinBlackman_32fc, zorsWinBlackman_64fc,
                           zorsWinBlackman_16s, zorsWinBlackman_16sc>
    blackman;
inline constexpr Operation<zorsWinBlackmanStd_32f, zorsWinBlackmanStd_64f, zorsWinBlackmanStd_32fc,
                           zorsWinBlackmanStd_64fc, zorsWinBlackmanStd_16s, zorsWinBlackmanStd_16sc>
    blackmanStandard;
inline constexpr Operation<zorsWinKaiser_32f, zorsWinKaiser_64f, zorsWinKaiser_32fc, zorsWinKaiser_64fc,
                           zorsWinKaiser_16s, zorsWinKaiser_16sc>
    kaiser;

// Companding after G.711.

inline constexpr Operation<zorsALawToLin_8u32f, zorsALawToLin_8u16s> fromALaw;
inline constexpr Operation<zorsLinToALaw_32f8u, zorsLinToALaw_16s8u> toALaw;
inline constexpr Operation<zorsMuLawToLin_8u32f, zorsMuLawToLin_8u16s> fromMuLaw;
inline constexpr Operation<zorsLinToMuLaw_32f8u, zorsLinToMuLaw_16s8u> toMuLaw;

// Sorts: sortAscending(srcDst), sortIndexAscending(srcDst, index).

inline constexpr Operation<zorsSortAscend_32f_I, zorsSortAscend_64f_I, zorsSortAscend_8u_I, zorsSortAscend_16s_I,
                           zorsSortAscend_16u_I, zorsSortAscend_32s_I>
    sortAscending;
inline constexpr Operation<zorsSortDescend_32f_I, zorsSortDescend_64f_I, zorsSortDescend_8u_I, zorsSortDescend_16s_I,
                           zorsSortDescend_16u_I, zorsSortDescend_32s_I>
    sortDescending;
inline constexpr Operation<zorsSortIndexAscend_32f_I, zorsSortIndexAscend_64f_I, zorsSortIndexAscend_8u_I,
                           zorsSortIndexAscend_16s_I, zorsSortIndexAscend_16u_I, zorsSortIndexAscend_32s_I>
    sortIndexAscending;
inline constexpr Operation<zorsSortIndexDescend_32f_I, zorsSortIndexDescend_64f_I, zorsSortIndexDescend_8u_I,
                           zorsSortIndexDescend_16s_I, zorsSortIndexDescend_16u_I, zorsSortIndexDescend_32s_I>
    sortIndexDescending;

// Statistics: sum(src), dotProduct(src1, src2). 16-bit integers give 32-bit or float results.

inline constexpr Reduction<zorsSum_32f, zorsSum_64f, zorsSum_32fc, zorsSum_64fc, zorsSum_16s32s_Sfs,
                           zorsSum_16sc32sc_Sfs, zorsSum_32s_Sfs>
    sum;
inline constexpr Reduction<zorsMean_32f, zorsMean_64f, zorsMean_32fc, zorsMean_64fc, zorsMean_16s_Sfs,
                           zorsMean_16sc_Sfs, zorsMean_32s_Sfs>
    mean;
inline constexpr Reduction<zorsStdDev_32f, zorsStdDev_64f, zorsStdDev_16s32s_Sfs> standardDeviation;
/// (mean, standard deviation).
inline constexpr Reduction<zorsMeanStdDev_32f, zorsMeanStdDev_64f, zorsMeanStdDev_16s32s_Sfs> meanAndDeviation;
inline constexpr Reduction<zorsMax_32f, zorsMax_64f, zorsMax_16s, zorsMax_32s> max;
inline constexpr Reduction<zorsMin_32f, zorsMin_64f, zorsMin_16s, zorsMin_32s> min;
/// (minimum, maximum).
inline constexpr Reduction<zorsMinMax_32f, zorsMinMax_64f, zorsMinMax_8u, zorsMinMax_16u, zorsMinMax_16s,
                           zorsMinMax_32u, zorsMinMax_32s>
    minMax;
/// (extreme, its index).
inline constexpr Reduction<zorsMaxIndx_32f, zorsMaxIndx_64f, zorsMaxIndx_16s, zorsMaxIndx_32s> maxIndex;
inline constexpr Reduction<zorsMinIndx_32f, zorsMinIndx_64f, zorsMinIndx_16s, zorsMinIndx_32s> minIndex;
/// The greatest magnitude.
inline constexpr Reduction<zorsNorm_Inf_32f, zorsNorm_Inf_64f, zorsNorm_Inf_32fc32f, zorsNorm_Inf_64fc64f,
                           zorsNorm_Inf_16s32f>
    peak;
/// The sum of the magnitudes.
inline constexpr Reduction<zorsNorm_L1_32f, zorsNorm_L1_64f, zorsNorm_L1_32fc64f, zorsNorm_L1_64fc64f,
                           zorsNorm_L1_16s32f>
    normL1;
/// The root of the sum of squares.
inline constexpr Reduction<zorsNorm_L2_32f, zorsNorm_L2_64f, zorsNorm_L2_32fc64f, zorsNorm_L2_64fc64f,
                           zorsNorm_L2_16s32f>
    normL2;
/// Norms of src1 - src2.
inline constexpr Reduction<zorsNormDiff_Inf_32f, zorsNormDiff_Inf_64f, zorsNormDiff_Inf_32fc32f,
                           zorsNormDiff_Inf_64fc64f, zorsNormDiff_Inf_16s32f>
    peakDifference;
inline constexpr Reduction<zorsNormDiff_L2_32f, zorsNormDiff_L2_64f, zorsNormDiff_L2_32fc64f, zorsNormDiff_L2_64fc64f,
                           zorsNormDiff_L2_16s32f>
    normL2Difference;
/// The sum of src1 * src2; no operand is conjugated.
inline constexpr Reduction<zorsDotProd_32f, zorsDotProd_64f, zorsDotProd_32fc, zorsDotProd_64fc, zorsDotProd_32f32fc,
                           zorsDotProd_64f64fc, zorsDotProd_16s64s, zorsDotProd_16sc64sc, zorsDotProd_32s_Sfs>
    dotProduct;

// Conversion.

/// How floats become integers: divided by 2^scaleFactor, rounded, saturated.
struct Rounding {
  int scaleFactor = 0;
  ZorRoundMode mode = zorRoundNearestEven;
};

namespace detail {

/// The C function that converts From to To: exact, or under a Rounding.
template <class From, class To> inline constexpr auto conversion = nullptr;
template <> inline constexpr auto conversion<Zor8s, Zor16s> = zorsConvert_8s16s;
template <> inline constexpr auto conversion<Zor16s, Zor32s> = zorsConvert_16s32s;
template <> inline constexpr auto conversion<Zor8s, float> = zorsConvert_8s32f;
template <> inline constexpr auto conversion<Zor8u, float> = zorsConvert_8u32f;
template <> inline constexpr auto conversion<Zor16u, float> = zorsConvert_16u32f;
template <> inline constexpr auto conversion<float, double> = zorsConvert_32f64f;
template <> inline constexpr auto conversion<double, float> = zorsConvert_64f32f;
template <> inline constexpr auto conversion<Zor64s, double> = zorsConvert_64s64f;
template <> inline constexpr auto conversion<Zor16s, float> = zorsConvert_16s32f_Sfs;
template <> inline constexpr auto conversion<Zor32s, float> = zorsConvert_32s32f_Sfs;
template <> inline constexpr auto conversion<Zor16s, double> = zorsConvert_16s64f_Sfs;
template <> inline constexpr auto conversion<Zor32s, double> = zorsConvert_32s64f_Sfs;
template <> inline constexpr auto conversion<Zor32s, Zor16s> = zorsConvert_32s16s_Sfs;
template <> inline constexpr auto conversion<Zor16s, Zor8s> = zorsConvert_16s8s_Sfs;
template <> inline constexpr auto conversion<Zor64s, Zor32s> = zorsConvert_64s32s_Sfs;
template <> inline constexpr auto conversion<float, Zor8s> = zorsConvert_32f8s_Sfs;
template <> inline constexpr auto conversion<float, Zor8u> = zorsConvert_32f8u_Sfs;
template <> inline constexpr auto conversion<float, Zor16s> = zorsConvert_32f16s_Sfs;
template <> inline constexpr auto conversion<float, Zor16u> = zorsConvert_32f16u_Sfs;
template <> inline constexpr auto conversion<float, Zor32s> = zorsConvert_32f32s_Sfs;
template <> inline constexpr auto conversion<double, Zor16s> = zorsConvert_64f16s_Sfs;
template <> inline constexpr auto conversion<double, Zor32s> = zorsConvert_64f32s_Sfs;
template <> inline constexpr auto conversion<double, Zor64s> = zorsConvert_64f64s_Sfs;

template <class S, class D>
concept Convertible = Vector<S> && Vector<D> &&
    !std::same_as<decltype(conversion<std::ranges::range_value_t<S>, std::ranges::range_value_t<D>>),
                  const std::nullptr_t>;
template <class S, class D> Outcome convert(const S& src, D& dst, Rounding rounding) noexcept {
  constexpr auto function = conversion<std::ranges::range_value_t<S>, std::ranges::range_value_t<D>>;
  using F = Signature<std::remove_const_t<decltype(function)>>;
  Zor32s len = 0;
  if (const auto outcome = lengthOf(len, src, dst); outcome.failed()) return outcome;
  const auto size = static_cast<typename F::template At<2>>(len);
  if constexpr (F::count == 5) {
    return function(passed(src), passed(dst), size, rounding.mode, rounding.scaleFactor);
  } else if constexpr (F::count == 4) {
    return function(passed(src), passed(dst), size, rounding.scaleFactor);
  } else {
    return rounding.scaleFactor ? notScaled : function(passed(src), passed(dst), size);
  }
}

}  // namespace detail

/// Elements of another type. The mode counts where floats become integers (else the C functions tell what holds).
template <class S, class D>
requires detail::Convertible<S, std::remove_reference_t<D>> ZorStatus convert(const S& src, D&& dst,
                                                                              Rounding rounding = {}) {
  return detail::check(detail::convert(src, dst, rounding));
}
template <class S, class D>
requires detail::Convertible<S, std::remove_reference_t<D>>
[[nodiscard]] ZorStatus convert(std::nothrow_t, const S& src, D&& dst, Rounding rounding = {}) noexcept {
  return detail::convert(src, dst, rounding).status;
}

// Correlation and convolution: lengths of their own.

namespace detail {

/// (src, dst), each with its length.
template <auto... functions> struct Correlation {
  template <Vector S, Vector D> void operator()(const S& src, D&& dst, int scaleFactor = 0) const {
    check(run<functions...>(src, dst, scaleFactor));
  }
  template <Vector S, Vector D>
  [[nodiscard]] ZorStatus operator()(std::nothrow_t, const S& src, D&& dst, int scaleFactor = 0) const noexcept {
    return run<functions...>(src, dst, scaleFactor).status;
  }

 private:
  template <auto function, auto... others, class S, class D>
  static Outcome run(const S& src, D& dst, int scaleFactor) noexcept {
    using F = decltype(function);
    if constexpr (fits<F, Passed<const S>, Zor32s, Passed<D>, Zor32s>()) {
      for (const std::size_t size : {std::ranges::size(src), std::ranges::size(dst)}) {
        if (const auto outcome = sameSizes(size); outcome.failed()) return outcome;
      }
      const auto srcLen = Zor32s(std::ranges::size(src)), dstLen = Zor32s(std::ranges::size(dst));
      if constexpr (Signature<F>::count == 5) {
        return function(passed(src), srcLen, passed(dst), dstLen, scaleFactor);
      } else {
        return scaleFactor ? notScaled : function(passed(src), srcLen, passed(dst), dstLen);
      }
    } else {
      static_assert(sizeof...(others) > 0, "no C function of the family takes these elements");
      return run<others...>(src, dst, scaleFactor);
    }
  }
};

/// (src1, src2, dst, arguments...), each vector with its length; wholeResult: dst has len1 + len2 - 1 elements.
template <bool wholeResult, auto... functions> struct TwoOperands {
  template <Vector S1, Vector S2, Vector D>
  void operator()(const S1& src1, const S2& src2, D&& dst, std::integral auto... arguments) const {
    check(run<functions...>(src1, src2, dst, arguments...));
  }
  template <Vector S1, Vector S2, Vector D>
  [[nodiscard]] ZorStatus operator()(std::nothrow_t, const S1& src1, const S2& src2, D&& dst,
                                     std::integral auto... arguments) const noexcept {
    return run<functions...>(src1, src2, dst, arguments...).status;
  }

 private:
  template <auto function, auto... others, class S1, class S2, class D, class... A>
  static Outcome run(const S1& src1, const S2& src2, D& dst, A... arguments) noexcept {
    using F = decltype(function);
    const std::size_t size1 = std::ranges::size(src1), size2 = std::ranges::size(src2), size = std::ranges::size(dst);
    const auto len1 = Zor32s(size1), len2 = Zor32s(size2), len = Zor32s(size);
    if constexpr (fits<F, Passed<const S1>, Zor32s, Passed<const S2>, Zor32s, Passed<D>>()) {
      for (const std::size_t s : {size1, size2, size}) {
        if (const auto outcome = sameSizes(s); outcome.failed()) return outcome;
      }
      if constexpr (wholeResult) {
        if (size != size1 + size2 - 1) return {zorStatusBadSize, "a convolution has len1 + len2 - 1 elements"};
        return called(function, std::tuple(passed(src1), len1, passed(src2), len2, passed(dst), Zor32s(arguments)...));
      } else {
        return called(function,
                      std::tuple(passed(src1), len1, passed(src2), len2, passed(dst), len, Zor32s(arguments)...));
      }
    } else {
      static_assert(sizeof...(others) > 0, "no C function of the family takes these elements");
      return run<others...>(src1, src2, dst, arguments...);
    }
  }
  // What is left out at the end, lag or scale factor, is 0.
  template <class F, class Arguments> static Outcome called(F f, const Arguments& given) noexcept {
    constexpr std::size_t count = std::tuple_size_v<Arguments>, all = Signature<F>::count;
    static_assert(count <= all, "more arguments than the C function has");
    if constexpr (count < all) {
      return called(f, std::tuple_cat(given, std::tuple(Zor32s(0))));
    } else {
      return std::apply(f, given);
    }
  }
};

}  // namespace detail

/// dst[k] = sum over n of conj(src[n]) * src[n + k], for k below dst's length; biased and unbiased: divided by the
/// number of samples, by that of an element's products.
inline constexpr detail::Correlation<zorsAutoCorr_32f, zorsAutoCorr_64f, zorsAutoCorr_32fc, zorsAutoCorr_64fc,
                                     zorsAutoCorr_16s_Sfs>
    autoCorrelation;
inline constexpr detail::Correlation<zorsAutoCorr_NormA_32f, zorsAutoCorr_NormA_64f, zorsAutoCorr_NormA_32fc,
                                     zorsAutoCorr_NormA_64fc, zorsAutoCorr_NormA_16s_Sfs>
    autoCorrelationBiased;
inline constexpr detail::Correlation<zorsAutoCorr_NormB_32f, zorsAutoCorr_NormB_64f, zorsAutoCorr_NormB_32fc,
                                     zorsAutoCorr_NormB_64fc, zorsAutoCorr_NormB_16s_Sfs>
    autoCorrelationUnbiased;
/// (src1, src2, dst, lowLag, scaleFactor): dst[n] = sum over k of conj(src1[k]) * src2[k + lowLag + n].
inline constexpr detail::TwoOperands<false, zorsCrossCorr_32f, zorsCrossCorr_64f, zorsCrossCorr_32fc,
                                     zorsCrossCorr_64fc, zorsCrossCorr_16s64s, zorsCrossCorr_16s_Sfs>
    crossCorrelation;
/// (src1, src2, dst, scaleFactor): dst[n] = sum over k of src1[k] * src2[n - k].
inline constexpr detail::TwoOperands<true, zorsConv_32f, zorsConv_64f, zorsConv_16s_Sfs> convolution;

}  // namespace zors

#endif
