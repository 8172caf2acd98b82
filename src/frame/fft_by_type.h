// The Fourier transforms of a float type: of real vectors to and from Perm, of complex ones to and from complex ones,
// and the product of two spectra, through the exported operations.
#pragma once

#include "exports/arithmetic.h"
#include "exports/fft.h"

namespace zors {

template <class Value> struct FftOf;

template <> struct FftOf<Zor32f> {
  using Spec = ZorsFFTSpec_R_32f;
  static constexpr auto getSize = &zors::zorsFFTGetSize_R_32f;
  static constexpr auto init = &zors::zorsFFTInit_R_32f;
  static constexpr auto initAlloc = &zors::zorsFFTInitAlloc_R_32f;
  static constexpr auto free = &zors::zorsFFTFree_R_32f;
  static constexpr auto getBufSize = &zors::zorsFFTGetBufSize_R_32f;
  static constexpr auto forward = &zors::zorsFFTFwd_RToPerm_32f;
  static constexpr auto inverse = &zors::zorsFFTInv_PermToR_32f;
  static constexpr auto multiply = &zors::zorsMulPerm_32f_I;
};
template <> struct FftOf<Zor64f> {
  using Spec = ZorsFFTSpec_R_64f;
  static constexpr auto getSize = &zors::zorsFFTGetSize_R_64f;
  static constexpr auto init = &zors::zorsFFTInit_R_64f;
  static constexpr auto initAlloc = &zors::zorsFFTInitAlloc_R_64f;
  static constexpr auto free = &zors::zorsFFTFree_R_64f;
  static constexpr auto getBufSize = &zors::zorsFFTGetBufSize_R_64f;
  static constexpr auto forward = &zors::zorsFFTFwd_RToPerm_64f;
  static constexpr auto inverse = &zors::zorsFFTInv_PermToR_64f;
  static constexpr auto multiply = &zors::zorsMulPerm_64f_I;
};
template <> struct FftOf<Zor32fc> {
  using Spec = ZorsFFTSpec_C_32fc;
  static constexpr auto getSize = &zors::zorsFFTGetSize_C_32fc;
  static constexpr auto init = &zors::zorsFFTInit_C_32fc;
  static constexpr auto initAlloc = &zors::zorsFFTInitAlloc_C_32fc;
  static constexpr auto free = &zors::zorsFFTFree_C_32fc;
  static constexpr auto getBufSize = &zors::zorsFFTGetBufSize_C_32fc;
  static constexpr auto forward = &zors::zorsFFTFwd_CToC_32fc;
  static constexpr auto inverse = &zors::zorsFFTInv_CToC_32fc;
  static constexpr auto multiply = &zors::zorsMul_32fc_I;
};
template <> struct FftOf<Zor64fc> {
  using Spec = ZorsFFTSpec_C_64fc;
  static constexpr auto getSize = &zors::zorsFFTGetSize_C_64fc;
  static constexpr auto init = &zors::zorsFFTInit_C_64fc;
  static constexpr auto initAlloc = &zors::zorsFFTInitAlloc_C_64fc;
  static constexpr auto free = &zors::zorsFFTFree_C_64fc;
  static constexpr auto getBufSize = &zors::zorsFFTGetBufSize_C_64fc;
  static constexpr auto forward = &zors::zorsFFTFwd_CToC_64fc;
  static constexpr auto inverse = &zors::zorsFFTInv_CToC_64fc;
  static constexpr auto multiply = &zors::zorsMul_64fc_I;
};

}  // namespace zors
