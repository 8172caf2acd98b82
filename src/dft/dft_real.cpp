// zorsDFTFwd_RToPack_*, zorsDFTFwd_RToPerm_*, zorsDFTFwd_RToCCS_*, zorsDFTInv_PackToR_*, zorsDFTInv_PermToR_*,
// zorsDFTInv_CCSToR_* of float values.
#include "dft/dft_spec.h"
#include "dft/packed_formats.h"

namespace zors {
namespace {

using namespace dft;

template <Packed format, class S, class T> ZorStatus forward(const T* src, T* dst, const S* given, Zor8u* buffer) {
  return withSpec(
      given, buffer,
      [&](const S& spec, Zor8u* work) {
        const ZorStatus status =
            spec.engine.method == Method::fft
                ? S::Fft::forward(src, dst, static_cast<const typename S::Fft::Spec*>(spec.engine.fft), work)
                : toPermSpectrum(spec, src, dst, work);
        if (status == zorStatusOk) fromPerm<format>(dst, static_cast<std::size_t>(spec.len));
        return status;
      },
      src, dst);
}
// The FFT's own ways from each format: they take their work memory before they write.
template <Packed format>
ZorStatus fftToValues(const Zor32f* src, Zor32f* dst, const ZorsFFTSpec_R_32f* spec, Zor8u* work) {
  if constexpr (format == Packed::pack) return zors::zorsFFTInv_PackToR_32f(src, dst, spec, work);
  if constexpr (format == Packed::perm) return zors::zorsFFTInv_PermToR_32f(src, dst, spec, work);
  if constexpr (format == Packed::ccs) return zors::zorsFFTInv_CCSToR_32f(src, dst, spec, work);
}
template <Packed format>
ZorStatus fftToValues(const Zor64f* src, Zor64f* dst, const ZorsFFTSpec_R_64f* spec, Zor8u* work) {
  if constexpr (format == Packed::pack) return zors::zorsFFTInv_PackToR_64f(src, dst, spec, work);
  if constexpr (format == Packed::perm) return zors::zorsFFTInv_PermToR_64f(src, dst, spec, work);
  if constexpr (format == Packed::ccs) return zors::zorsFFTInv_CCSToR_64f(src, dst, spec, work);
}

template <Packed format, class S, class T> ZorStatus inverse(const T* src, T* dst, const S* given, Zor8u* buffer) {
  return withSpec(
      given, buffer,
      [&](const S& spec, Zor8u* work) {
        if (spec.engine.method == Method::fft)
          return fftToValues<format>(src, dst, static_cast<const typename S::Fft::Spec*>(spec.engine.fft), work);
        const T* perm = src;
        if constexpr (format != Packed::perm) {
          toPerm<format>(src, dst, static_cast<std::size_t>(spec.len));
          perm = dst;
        }
        return fromPermSpectrum(spec, perm, dst, work);
      },
      src, dst);
}

}  // namespace

// clang-format off
#define FORWARD(name, T, Spec, format) ZorStatus name(const T* src, T* dst, const Spec* spec, Zor8u* buffer) { return forward<format>(src, dst, spec, buffer); }
FORWARD(zorsDFTFwd_RToPack_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::pack)
FORWARD(zorsDFTFwd_RToPack_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::pack)
FORWARD(zorsDFTFwd_RToPerm_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::perm)
FORWARD(zorsDFTFwd_RToPerm_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::perm)
FORWARD(zorsDFTFwd_RToCCS_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::ccs)
FORWARD(zorsDFTFwd_RToCCS_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::ccs)
#undef FORWARD

#define INVERSE(name, T, Spec, format) ZorStatus name(const T* src, T* dst, const Spec* spec, Zor8u* buffer) { return inverse<format>(src, dst, spec, buffer); }
INVERSE(zorsDFTInv_PackToR_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::pack)
INVERSE(zorsDFTInv_PackToR_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::pack)
INVERSE(zorsDFTInv_PermToR_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::perm)
INVERSE(zorsDFTInv_PermToR_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::perm)
INVERSE(zorsDFTInv_CCSToR_32f, Zor32f, ZorsDFTSpec_R_32f, Packed::ccs)
INVERSE(zorsDFTInv_CCSToR_64f, Zor64f, ZorsDFTSpec_R_64f, Packed::ccs)
#undef INVERSE
// clang-format on

}  // namespace zors
