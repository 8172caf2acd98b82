/** @file
 *  Fourier transforms, cosine transforms, analytic signals. */
#ifndef ZORS_HPP_TRANSFORMS_HPP
#define ZORS_HPP_TRANSFORMS_HPP

#include "zors/hpp/core.hpp"

namespace zors {

/// Which transforms of N points are divided, and by what.
enum class Divide : Zor32s {
  forward = ZOR_FFT_DIVIDE_FORWARD,   ///< the forward one by N
  inverse = ZOR_FFT_DIVIDE_INVERSE,   ///< the inverse one by N
  byRoot = ZOR_FFT_DIVIDE_BOTH_ROOT,  ///< both by the root of N
  none = ZOR_FFT_DIVIDE_NONE,
};

/// How N real values stand for the first half of a conjugate-symmetric spectrum, see zors/fft.h.
enum class Packing {
  pack,  ///< R[0], R[1] I[1], ..., R[N/2]: N values
  perm,  ///< R[0] R[N/2], R[1] I[1], ...: N values
  ccs,   ///< R[0] 0, R[1] I[1], ..., R[N/2] 0: 2 * (N/2 + 1) values
};

namespace detail {

/// The C functions of transforms of 2^order points, by element: complex data, or real data and packed spectra.
template <class T> struct FftCalls;
template <> struct FftCalls<std::complex<float>> {
  using Spec = ZorsFFTSpec_C_32fc;
  static constexpr auto build = zorsFFTInitAlloc_C_32fc;
  static constexpr auto release = zorsFFTFree_C_32fc;
  static constexpr auto workSize = zorsFFTGetBufSize_C_32fc;
  static constexpr auto forward = zorsFFTFwd_CToC_32fc, inverse = zorsFFTInv_CToC_32fc;
};
template <> struct FftCalls<std::complex<double>> {
  using Spec = ZorsFFTSpec_C_64fc;
  static constexpr auto build = zorsFFTInitAlloc_C_64fc;
  static constexpr auto release = zorsFFTFree_C_64fc;
  static constexpr auto workSize = zorsFFTGetBufSize_C_64fc;
  static constexpr auto forward = zorsFFTFwd_CToC_64fc, inverse = zorsFFTInv_CToC_64fc;
};
template <> struct FftCalls<Zor16sc> {
  using Spec = ZorsFFTSpec_C_16sc;
  static constexpr auto build = zorsFFTInitAlloc_C_16sc;
  static constexpr auto release = zorsFFTFree_C_16sc;
  static constexpr auto workSize = zorsFFTGetBufSize_C_16sc;
  static constexpr auto forward = zorsFFTFwd_CToC_16sc_Sfs, inverse = zorsFFTInv_CToC_16sc_Sfs;
};
template <> struct FftCalls<Zor32sc> {
  using Spec = ZorsFFTSpec_C_32sc;
  static constexpr auto build = zorsFFTInitAlloc_C_32sc;
  static constexpr auto release = zorsFFTFree_C_32sc;
  static constexpr auto workSize = zorsFFTGetBufSize_C_32sc;
  static constexpr auto forward = zorsFFTFwd_CToC_32sc_Sfs, inverse = zorsFFTInv_CToC_32sc_Sfs;
};
template <> struct FftCalls<float> {
  using Spec = ZorsFFTSpec_R_32f;
  static constexpr auto build = zorsFFTInitAlloc_R_32f;
  static constexpr auto release = zorsFFTFree_R_32f;
  static constexpr auto workSize = zorsFFTGetBufSize_R_32f;
  static constexpr auto toPack = zorsFFTFwd_RToPack_32f, fromPack = zorsFFTInv_PackToR_32f;
  static constexpr auto toPerm = zorsFFTFwd_RToPerm_32f, fromPerm = zorsFFTInv_PermToR_32f;
  static constexpr auto toCcs = zorsFFTFwd_RToCCS_32f, fromCcs = zorsFFTInv_CCSToR_32f;
};
template <> struct FftCalls<double> {
  using Spec = ZorsFFTSpec_R_64f;
  static constexpr auto build = zorsFFTInitAlloc_R_64f;
  static constexpr auto release = zorsFFTFree_R_64f;
  static constexpr auto workSize = zorsFFTGetBufSize_R_64f;
  static constexpr auto toPack = zorsFFTFwd_RToPack_64f, fromPack = zorsFFTInv_PackToR_64f;
  static constexpr auto toPerm = zorsFFTFwd_RToPerm_64f, fromPerm = zorsFFTInv_PermToR_64f;
  static constexpr auto toCcs = zorsFFTFwd_RToCCS_64f, fromCcs = zorsFFTInv_CCSToR_64f;
};
template <> struct FftCalls<Zor16s> {
  using Spec = ZorsFFTSpec_R_16s;
  static constexpr auto build = zorsFFTInitAlloc_R_16s;
  static constexpr auto release = zorsFFTFree_R_16s;
  static constexpr auto workSize = zorsFFTGetBufSize_R_16s;
  static constexpr auto toPack = zorsFFTFwd_RToPack_16s_Sfs, fromPack = zorsFFTInv_PackToR_16s_Sfs;
  static constexpr auto toPerm = zorsFFTFwd_RToPerm_16s_Sfs, fromPerm = zorsFFTInv_PermToR_16s_Sfs;
  static constexpr auto toCcs = zorsFFTFwd_RToCCS_16s_Sfs, fromCcs = zorsFFTInv_CCSToR_16s_Sfs;
};
template <> struct FftCalls<Zor32s> {
  using Spec = ZorsFFTSpec_R_32s;
  static constexpr auto build = zorsFFTInitAlloc_R_32s;
  static constexpr auto release = zorsFFTFree_R_32s;
  static constexpr auto workSize = zorsFFTGetBufSize_R_32s;
  static constexpr auto toPack = zorsFFTFwd_RToPack_32s_Sfs, fromPack = zorsFFTInv_PackToR_32s_Sfs;
  static constexpr auto toPerm = zorsFFTFwd_RToPerm_32s_Sfs, fromPerm = zorsFFTInv_PermToR_32s_Sfs;
  static constexpr auto toCcs = zorsFFTFwd_RToCCS_32s_Sfs, fromCcs = zorsFFTInv_CCSToR_32s_Sfs;
};

/// The same for any length.
template <class T> struct DftCalls;
template <> struct DftCalls<std::complex<float>> {
  using Spec = ZorsDFTSpec_C_32fc;
  static constexpr auto build = zorsDFTInitAlloc_C_32fc;
  static constexpr auto release = zorsDFTFree_C_32fc;
  static constexpr auto workSize = zorsDFTGetBufSize_C_32fc;
  static constexpr auto forward = zorsDFTFwd_CToC_32fc, inverse = zorsDFTInv_CToC_32fc;
};
template <> struct DftCalls<std::complex<double>> {
  using Spec = ZorsDFTSpec_C_64fc;
  static constexpr auto build = zorsDFTInitAlloc_C_64fc;
  static constexpr auto release = zorsDFTFree_C_64fc;
  static constexpr auto workSize = zorsDFTGetBufSize_C_64fc;
  static constexpr auto forward = zorsDFTFwd_CToC_64fc, inverse = zorsDFTInv_CToC_64fc;
};
template <> struct DftCalls<Zor16sc> {
  using Spec = ZorsDFTSpec_C_16sc;
  static constexpr auto build = zorsDFTInitAlloc_C_16sc;
  static constexpr auto release = zorsDFTFree_C_16sc;
  static constexpr auto workSize = zorsDFTGetBufSize_C_16sc;
  static constexpr auto forward = zorsDFTFwd_CToC_16sc_Sfs, inverse = zorsDFTInv_CToC_16sc_Sfs;
};
template <> struct DftCalls<float> {
  using Spec = ZorsDFTSpec_R_32f;
  static constexpr auto build = zorsDFTInitAlloc_R_32f;
  static constexpr auto release = zorsDFTFree_R_32f;
  static constexpr auto workSize = zorsDFTGetBufSize_R_32f;
  static constexpr auto toPack = zorsDFTFwd_RToPack_32f, fromPack = zorsDFTInv_PackToR_32f;
  static constexpr auto toPerm = zorsDFTFwd_RToPerm_32f, fromPerm = zorsDFTInv_PermToR_32f;
  static constexpr auto toCcs = zorsDFTFwd_RToCCS_32f, fromCcs = zorsDFTInv_CCSToR_32f;
};
template <> struct DftCalls<double> {
  using Spec = ZorsDFTSpec_R_64f;
  static constexpr auto build = zorsDFTInitAlloc_R_64f;
  static constexpr auto release = zorsDFTFree_R_64f;
  static constexpr auto workSize = zorsDFTGetBufSize_R_64f;
  static constexpr auto toPack = zorsDFTFwd_RToPack_64f, fromPack = zorsDFTInv_PackToR_64f;
  static constexpr auto toPerm = zorsDFTFwd_RToPerm_64f, fromPerm = zorsDFTInv_PermToR_64f;
  static constexpr auto toCcs = zorsDFTFwd_RToCCS_64f, fromCcs = zorsDFTInv_CCSToR_64f;
};
template <> struct DftCalls<Zor16s> {
  using Spec = ZorsDFTSpec_R_16s;
  static constexpr auto build = zorsDFTInitAlloc_R_16s;
  static constexpr auto release = zorsDFTFree_R_16s;
  static constexpr auto workSize = zorsDFTGetBufSize_R_16s;
  static constexpr auto toPack = zorsDFTFwd_RToPack_16s_Sfs, fromPack = zorsDFTInv_PackToR_16s_Sfs;
  static constexpr auto toPerm = zorsDFTFwd_RToPerm_16s_Sfs, fromPerm = zorsDFTInv_PermToR_16s_Sfs;
  static constexpr auto toCcs = zorsDFTFwd_RToCCS_16s_Sfs, fromCcs = zorsDFTInv_CCSToR_16s_Sfs;
};

/// Bytes for the work of a call; an empty span stands for the object's own.
using Work = std::span<Zor8u>;

/// A specification with a work buffer of its own. Calls that bring a buffer only read the object: threads may share it.
template <class Calls> class Spec {
 public:
  using C = typename Calls::Spec;
  const C* get() const noexcept { return spec_.get(); }
  Zor32s workSize() const noexcept { return workSize_; }
  Zor8u* work() const noexcept { return work_.get(); }
  template <class... Arguments> Outcome build(Arguments... arguments) noexcept {
    Spec made;
    Outcome outcome = detail::build(made.spec_, Calls::build, arguments...);
    if (!outcome.failed()) outcome = Calls::workSize(made.get(), &made.workSize_);
    if (!outcome.failed() && made.workSize_ > 0) outcome = allocate(made.work_, made.workSize_);
    if (!outcome.failed()) *this = std::move(made);
    return outcome;
  }
  Outcome enough(Work work) const noexcept {
    if (work.size() >= std::size_t(workSize_)) return zorStatusOk;
    return {zorStatusBadSize, "the work buffer is shorter than workSize()"};
  }

 private:
  Owned<C, Calls::release> spec_;
  Zor32s workSize_ = 0;
  Block work_;
};

/// What transforms of 2^order points and of any length share: N points, forward and inverse.
template <class T, class Calls> class Transform {
 public:
  /// N, the number of points.
  std::size_t size() const noexcept { return size_; }
  /// Bytes of a work buffer that a caller brings.
  std::size_t workSize() const noexcept { return std::size_t(spec_.workSize()); }
  /// The specification, for C functions that the layer leaves out.
  const typename Calls::Spec* get() const noexcept { return spec_.get(); }

 protected:
  Transform() = default;
  Outcome build(std::size_t size, Zor32s sizeArgument, Divide divide, ZorHintAlgorithm hint, Zor32s forwardScale,
                Zor32s inverseScale) noexcept {
    if (!Integer<T> && (forwardScale != 0 || inverseScale != 0)) return notScaled;
    const Outcome outcome = spec_.build(sizeArgument, Zor32s(divide), hint);
    if (!outcome.failed()) size_ = size, forwardScale_ = forwardScale, inverseScale_ = inverseScale;
    return outcome;
  }
  Outcome forward(In<T> src, Out<T> dst, Zor8u* work) const noexcept {
    return run(Calls::forward, src, dst, size_, size_, forwardScale_, work);
  }
  Outcome inverse(In<T> src, Out<T> dst, Zor8u* work) const noexcept {
    return run(Calls::inverse, src, dst, size_, size_, inverseScale_, work);
  }
  Outcome forward(In<T> src, Out<T> dst, Packing packing, Zor8u* work) const noexcept {
    const auto to = packing == Packing::pack ? Calls::toPack : packing == Packing::perm ? Calls::toPerm : Calls::toCcs;
    return run(to, src, dst, size_, packedSize(packing), forwardScale_, work);
  }
  Outcome inverse(In<T> src, Out<T> dst, Packing packing, Zor8u* work) const noexcept {
    const auto from = packing == Packing::pack   ? Calls::fromPack
                      : packing == Packing::perm ? Calls::fromPerm
                                                 : Calls::fromCcs;
    return run(from, src, dst, packedSize(packing), size_, inverseScale_, work);
  }
  Zor8u* own() noexcept { return spec_.work(); }
  Outcome enough(Work work) const noexcept { return spec_.enough(work); }
  std::size_t packedSize(Packing packing) const noexcept {
    return packing == Packing::ccs ? 2 * (size_ / 2 + 1) : size_;
  }

 private:
  template <class F>
  Outcome run(F f, In<T> src, Out<T> dst, std::size_t srcSize, std::size_t dstSize, Zor32s scaleFactor,
              Zor8u* work) const noexcept {
    if (get() != nullptr && (src.size() != srcSize || dst.size() != dstSize)) {
      return {zorStatusBadSize, "a vector has not the transform's length"};
    }
    if constexpr (Integer<T>) {
      return f(raw(src), raw(dst), get(), scaleFactor, work);
    } else {
      return f(raw(src), raw(dst), get(), work);
    }
  }

  Spec<Calls> spec_;
  std::size_t size_ = 0;
  Zor32s forwardScale_ = 0, inverseScale_ = 0;
};

/// Complex data: forward(src, dst) and inverse(src, dst) of N elements each.
template <class T, class Calls> class ComplexTransform : public Transform<T, Calls> {
  using Base = Transform<T, Calls>;

 public:
  void forward(In<T> src, Out<T> dst) { check(Base::forward(src, dst, this->own())); }
  void inverse(In<T> src, Out<T> dst) { check(Base::inverse(src, dst, this->own())); }
  [[nodiscard]] ZorStatus forward(std::nothrow_t, In<T> src, Out<T> dst) noexcept {
    return Base::forward(src, dst, this->own()).status;
  }
  [[nodiscard]] ZorStatus inverse(std::nothrow_t, In<T> src, Out<T> dst) noexcept {
    return Base::inverse(src, dst, this->own()).status;
  }
  // With a work buffer of workSize() bytes, from several threads at once if each brings its own.
  void forward(In<T> src, Out<T> dst, Work work) const { check(forwardWith(src, dst, work)); }
  void inverse(In<T> src, Out<T> dst, Work work) const { check(inverseWith(src, dst, work)); }
  [[nodiscard]] ZorStatus forward(std::nothrow_t, In<T> src, Out<T> dst, Work work) const noexcept {
    return forwardWith(src, dst, work).status;
  }
  [[nodiscard]] ZorStatus inverse(std::nothrow_t, In<T> src, Out<T> dst, Work work) const noexcept {
    return inverseWith(src, dst, work).status;
  }

 private:
  Outcome forwardWith(In<T> src, Out<T> dst, Work work) const noexcept {
    const Outcome outcome = this->enough(work);
    return outcome.failed() ? outcome : Base::forward(src, dst, work.data());
  }
  Outcome inverseWith(In<T> src, Out<T> dst, Work work) const noexcept {
    const Outcome outcome = this->enough(work);
    return outcome.failed() ? outcome : Base::inverse(src, dst, work.data());
  }
};

/// Real data and packed spectra; floats also as N/2 + 1 complex values, which is CCS.
template <class T, class Calls> class RealTransform : public Transform<T, Calls> {
  using Base = Transform<T, Calls>;
  using Pair = std::conditional_t<std::floating_point<T>, std::complex<T>, std::pair<T, T>>;

 public:
  /// Elements of a packed spectrum.
  std::size_t packedSize(Packing packing) const noexcept { return Base::packedSize(packing); }
  /// Elements of a spectrum of complex values, N/2 + 1.
  std::size_t spectrumSize() const noexcept { return this->size() / 2 + 1; }

  void forward(In<T> src, Out<T> dst, Packing packing) { check(Base::forward(src, dst, packing, this->own())); }
  void inverse(In<T> src, Out<T> dst, Packing packing) { check(Base::inverse(src, dst, packing, this->own())); }
  [[nodiscard]] ZorStatus forward(std::nothrow_t, In<T> src, Out<T> dst, Packing packing) noexcept {
    return Base::forward(src, dst, packing, this->own()).status;
  }
  [[nodiscard]] ZorStatus inverse(std::nothrow_t, In<T> src, Out<T> dst, Packing packing) noexcept {
    return Base::inverse(src, dst, packing, this->own()).status;
  }
  // With a work buffer of workSize() bytes, from several threads at once if each brings its own.
  void forward(In<T> src, Out<T> dst, Packing packing, Work work) const { check(forwardWith(src, dst, packing, work)); }
  void inverse(In<T> src, Out<T> dst, Packing packing, Work work) const { check(inverseWith(src, dst, packing, work)); }
  [[nodiscard]] ZorStatus forward(std::nothrow_t, In<T> src, Out<T> dst, Packing packing, Work work) const noexcept {
    return forwardWith(src, dst, packing, work).status;
  }
  [[nodiscard]] ZorStatus inverse(std::nothrow_t, In<T> src, Out<T> dst, Packing packing, Work work) const noexcept {
    return inverseWith(src, dst, packing, work).status;
  }

  /// To and from spectrumSize() complex values.
  void forward(In<T> src, Out<Pair> dst) requires std::floating_point<T> { forward(src, flat(dst), Packing::ccs); }
  void inverse(In<Pair> src, Out<T> dst) requires std::floating_point<T> { inverse(flat(src), dst, Packing::ccs); }
  [[nodiscard]] ZorStatus forward(std::nothrow_t, In<T> src, Out<Pair> dst) noexcept requires std::floating_point<T> {
    return forward(std::nothrow, src, flat(dst), Packing::ccs);
  }
  [[nodiscard]] ZorStatus inverse(std::nothrow_t, In<Pair> src, Out<T> dst) noexcept requires std::floating_point<T> {
    return inverse(std::nothrow, flat(src), dst, Packing::ccs);
  }

 private:
  static Out<T> flat(Out<Pair> v) noexcept { return {reinterpret_cast<T*>(v.data()), 2 * v.size()}; }
  static In<T> flat(In<Pair> v) noexcept { return {reinterpret_cast<const T*>(v.data()), 2 * v.size()}; }
  Outcome forwardWith(In<T> src, Out<T> dst, Packing packing, Work work) const noexcept {
    const Outcome outcome = this->enough(work);
    return outcome.failed() ? outcome : Base::forward(src, dst, packing, work.data());
  }
  Outcome inverseWith(In<T> src, Out<T> dst, Packing packing, Work work) const noexcept {
    const Outcome outcome = this->enough(work);
    return outcome.failed() ? outcome : Base::inverse(src, dst, packing, work.data());
  }
};

template <class T>
concept ComplexElement = ComplexFloat<T> || ComplexInteger<T>;
template <class T, class Calls>
using TransformOf = std::conditional_t<ComplexElement<T>, ComplexTransform<T, Calls>, RealTransform<T, Calls>>;

}  // namespace detail

/// A Fourier transform of 2^order points: Fft<std::complex<float>> fft({.order = 10}); fft.forward(src, dst).
/// T complex: complex data. T real: real data and spectra of real data.
template <class T> class Fft : public detail::TransformOf<T, detail::FftCalls<T>> {
 public:
  struct Options {
    int order;  ///< N = 2^order
    Divide divide = Divide::inverse;
    int forwardScale = 0, inverseScale = 0;  ///< integers: results are divided by 2^scale
    ZorHintAlgorithm hint = zorAlgHintNone;
  };
  Fft() = default;
  explicit Fft(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    const std::size_t size = o.order >= 0 && o.order < 31 ? std::size_t(1) << o.order : 0;
    return detail::Transform<T, detail::FftCalls<T>>::build(size, o.order, o.divide, o.hint, o.forwardScale,
                                                            o.inverseScale);
  }
};

/// A Fourier transform of any length: Dft<float> dft({.length = 480}); dft.forward(samples, spectrum).
template <class T> class Dft : public detail::TransformOf<T, detail::DftCalls<T>> {
 public:
  struct Options {
    int length;  ///< N
    Divide divide = Divide::inverse;
    int forwardScale = 0, inverseScale = 0;  ///< integers: results are divided by 2^scale
    ZorHintAlgorithm hint = zorAlgHintNone;
  };
  Dft() = default;
  explicit Dft(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }

 private:
  detail::Outcome make(const Options& o) noexcept {
    const std::size_t size = o.length > 0 ? std::size_t(o.length) : 0;
    return detail::Transform<T, detail::DftCalls<T>>::build(size, o.length, o.divide, o.hint, o.forwardScale,
                                                            o.inverseScale);
  }
};

/// Products of packed spectra, (src1, src2, dst); integers take a scale factor.
inline constexpr Operation<zorsMulPack_32f, zorsMulPack_64f, zorsMulPack_16s_Sfs> multiplyPack;
inline constexpr Operation<zorsMulPerm_32f, zorsMulPerm_64f, zorsMulPerm_16s_Sfs> multiplyPerm;

namespace detail {

template <class T> struct DctForwardCalls;
template <> struct DctForwardCalls<float> {
  using Spec = ZorsDCTFwdSpec_32f;
  static constexpr auto build = zorsDCTFwdInitAlloc_32f;
  static constexpr auto release = zorsDCTFwdFree_32f;
  static constexpr auto workSize = zorsDCTFwdGetBufSize_32f;
  static constexpr auto run = zorsDCTFwd_32f;
};
template <> struct DctForwardCalls<double> {
  using Spec = ZorsDCTFwdSpec_64f;
  static constexpr auto build = zorsDCTFwdInitAlloc_64f;
  static constexpr auto release = zorsDCTFwdFree_64f;
  static constexpr auto workSize = zorsDCTFwdGetBufSize_64f;
  static constexpr auto run = zorsDCTFwd_64f;
};
template <> struct DctForwardCalls<Zor16s> {
  using Spec = ZorsDCTFwdSpec_16s;
  static constexpr auto build = zorsDCTFwdInitAlloc_16s;
  static constexpr auto release = zorsDCTFwdFree_16s;
  static constexpr auto workSize = zorsDCTFwdGetBufSize_16s;
  static constexpr auto run = zorsDCTFwd_16s_Sfs;
};
template <class T> struct DctInverseCalls;
template <> struct DctInverseCalls<float> {
  using Spec = ZorsDCTInvSpec_32f;
  static constexpr auto build = zorsDCTInvInitAlloc_32f;
  static constexpr auto release = zorsDCTInvFree_32f;
  static constexpr auto workSize = zorsDCTInvGetBufSize_32f;
  static constexpr auto run = zorsDCTInv_32f;
};
template <> struct DctInverseCalls<double> {
  using Spec = ZorsDCTInvSpec_64f;
  static constexpr auto build = zorsDCTInvInitAlloc_64f;
  static constexpr auto release = zorsDCTInvFree_64f;
  static constexpr auto workSize = zorsDCTInvGetBufSize_64f;
  static constexpr auto run = zorsDCTInv_64f;
};
template <> struct DctInverseCalls<Zor16s> {
  using Spec = ZorsDCTInvSpec_16s;
  static constexpr auto build = zorsDCTInvInitAlloc_16s;
  static constexpr auto release = zorsDCTInvFree_16s;
  static constexpr auto workSize = zorsDCTInvGetBufSize_16s;
  static constexpr auto run = zorsDCTInv_16s_Sfs;
};

/// One direction of the cosine transform.
template <class T, class Calls> class Cosine {
 public:
  struct Options {
    int length;
    int scaleFactor = 0;  ///< integers: results are divided by 2^scaleFactor
    ZorHintAlgorithm hint = zorAlgHintNone;
  };
  Cosine() = default;
  explicit Cosine(const Options& options) { check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }
  std::size_t size() const noexcept { return size_; }

  void process(In<T> src, Out<T> dst) { check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<T> src, Out<T> dst) noexcept { return run(src, dst).status; }

 private:
  Outcome make(const Options& o) noexcept {
    if (!Integer<T> && o.scaleFactor != 0) return notScaled;
    const Outcome outcome = spec_.build(o.length, o.hint);
    if (!outcome.failed()) size_ = std::size_t(o.length), scaleFactor_ = o.scaleFactor;
    return outcome;
  }
  Outcome run(In<T> src, Out<T> dst) noexcept {
    if (spec_.get() != nullptr && (src.size() != size_ || dst.size() != size_)) {
      return {zorStatusBadSize, "a vector has not the transform's length"};
    }
    if constexpr (Integer<T>) {
      return Calls::run(src.data(), dst.data(), spec_.get(), scaleFactor_, spec_.work());
    } else {
      return Calls::run(src.data(), dst.data(), spec_.get(), spec_.work());
    }
  }

  Spec<Calls> spec_;
  std::size_t size_ = 0;
  Zor32s scaleFactor_ = 0;
};

}  // namespace detail

/// The orthonormal cosine transform and its inverse: DctForward<float> dct({.length = 64}); dct.process(src, dst).
template <class T> using DctForward = detail::Cosine<T, detail::DctForwardCalls<T>>;
template <class T> using DctInverse = detail::Cosine<T, detail::DctInverseCalls<T>>;

/// The analytic signal of real values: src + i times its Hilbert transform. Calls allocate, see zors/dft.h.
class Hilbert {
 public:
  struct Options {
    int length;
    ZorHintAlgorithm hint = zorAlgHintNone;
  };
  Hilbert() = default;
  explicit Hilbert(const Options& options) { detail::check(make(options)); }
  [[nodiscard]] ZorStatus build(std::nothrow_t, const Options& options) noexcept { return make(options).status; }
  std::size_t size() const noexcept { return size_; }

  void process(In<float> src, Out<std::complex<float>> dst) const { detail::check(run(src, dst)); }
  [[nodiscard]] ZorStatus process(std::nothrow_t, In<float> src, Out<std::complex<float>> dst) const noexcept {
    return run(src, dst).status;
  }

 private:
  detail::Outcome make(const Options& o) noexcept {
    const auto outcome = detail::build(spec_, zorsHilbertInitAlloc_32f32fc, o.length, o.hint);
    if (!outcome.failed()) size_ = std::size_t(o.length);
    return outcome;
  }
  detail::Outcome run(In<float> src, Out<std::complex<float>> dst) const noexcept {
    if (spec_ && (src.size() != size_ || dst.size() != size_)) {
      return {zorStatusBadSize, "a vector has not the transform's length"};
    }
    return zorsHilbert_32f32fc(src.data(), detail::raw(dst), spec_.get());
  }

  detail::Owned<ZorsHilbertSpec_32f32fc, zorsHilbertFree_32f32fc> spec_;
  std::size_t size_ = 0;
};

}  // namespace zors

#endif
