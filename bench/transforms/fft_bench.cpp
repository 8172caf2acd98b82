// Power-of-two transforms beside FFTW. The bound counts 4 N log2 N multiplications and additions of a radix-4 transform
// as fused pairs, 2 N log2 N vector operations' lanes (half of it for real data); it is not reachable, since sums do
// not fuse.
#include <string>

#include "kit/bench.h"
#include "zors.h"

#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using bench::workload;

#ifdef HAVE_FFTW
// Planning long transforms by measurement takes minutes.
unsigned planning(int order) { return order <= 16 ? FFTW_MEASURE : FFTW_ESTIMATE; }
#endif

const int orders[] = {4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 20, 22};

template <class S, class Init, class BufSize> std::pair<S*, Zor8u*> prepare(Init init, BufSize bufSize, int order) {
  S* spec = nullptr;
  Zor32s size = 0;
  init(&spec, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
  bufSize(spec, &size);
  return {spec, bench::array<Zor8u>(size + 64)};
}

std::string name(const char* function, int order) { return std::string(function) + " order " + std::to_string(order); }

void complex32() {
  for (int order : orders) {
    const long n = 1L << order;
    const auto fmas = bench::fmas(2 * order, 8);
    auto *src = bench::array<Zor32fc>(n), *dst = bench::array<Zor32fc>(n), *both = bench::array<Zor32fc>(n);
    auto *re = bench::array<Zor32f>(n), *im = bench::array<Zor32f>(n), *outRe = bench::array<Zor32f>(n),
         *outIm = bench::array<Zor32f>(n);
    for (long i = 0; i < n; ++i) both[i] = {0, 0};  // repeated transforms in place would overflow
    const auto [spec, buffer] = prepare<ZorsFFTSpec_C_32fc>(zorsFFTInitAlloc_C_32fc, zorsFFTGetBufSize_C_32fc, order);
    const auto [splitSpec, splitBuffer] =
        prepare<ZorsFFTSpec_C_32f>(zorsFFTInitAlloc_C_32f, zorsFFTGetBufSize_C_32f, order);
    auto forward = workload(name("zorsFFTFwd_CToC_32fc", order), n),
         inverse = workload(name("zorsFFTInv_CToC_32fc", order), n);
    auto inPlace = workload(name("zorsFFTFwd_CToC_32fc_I", order), n),
         split = workload(name("zorsFFTFwd_CToC_32f", order), n);
    forward.zors([=] { zorsFFTFwd_CToC_32fc(src, dst, spec, buffer); }).bound(fmas);
    inverse.zors([=] { zorsFFTInv_CToC_32fc(src, dst, spec, buffer); }).bound(fmas);
    inPlace.zors([=] { zorsFFTFwd_CToC_32fc_I(both, spec, buffer); }).bound(fmas);
    split.zors([=] { zorsFFTFwd_CToC_32f(re, im, outRe, outIm, splitSpec, splitBuffer); }).bound(fmas);
#ifdef HAVE_FFTW
    auto *from = reinterpret_cast<fftwf_complex*>(src), *to = reinterpret_cast<fftwf_complex*>(dst),
         *at = reinterpret_cast<fftwf_complex*>(both);
    const auto plan = fftwf_plan_dft_1d(int(n), from, to, FFTW_FORWARD, planning(order)),
               back = fftwf_plan_dft_1d(int(n), from, to, FFTW_BACKWARD, planning(order));
    const auto planInPlace = fftwf_plan_dft_1d(int(n), at, at, FFTW_FORWARD, planning(order));
    forward.peer("FFTW", [=] { fftwf_execute(plan); });
    inverse.peer("FFTW", [=] { fftwf_execute(back); });
    inPlace.peer("FFTW", [=] { fftwf_execute(planInPlace); });
#endif
  }
}

void complex64() {
  for (int order : orders) {
    const long n = 1L << order;
    const auto fmas = bench::fmas(2 * order, 4);
    auto *src = bench::array<Zor64fc>(n), *dst = bench::array<Zor64fc>(n), *both = bench::array<Zor64fc>(n);
    auto *re = bench::array<Zor64f>(n), *im = bench::array<Zor64f>(n), *outRe = bench::array<Zor64f>(n),
         *outIm = bench::array<Zor64f>(n);
    for (long i = 0; i < n; ++i) both[i] = {0, 0};
    const auto [spec, buffer] = prepare<ZorsFFTSpec_C_64fc>(zorsFFTInitAlloc_C_64fc, zorsFFTGetBufSize_C_64fc, order);
    const auto [splitSpec, splitBuffer] =
        prepare<ZorsFFTSpec_C_64f>(zorsFFTInitAlloc_C_64f, zorsFFTGetBufSize_C_64f, order);
    auto forward = workload(name("zorsFFTFwd_CToC_64fc", order), n),
         inverse = workload(name("zorsFFTInv_CToC_64fc", order), n);
    auto inPlace = workload(name("zorsFFTFwd_CToC_64fc_I", order), n),
         split = workload(name("zorsFFTFwd_CToC_64f", order), n);
    forward.zors([=] { zorsFFTFwd_CToC_64fc(src, dst, spec, buffer); }).bound(fmas);
    inverse.zors([=] { zorsFFTInv_CToC_64fc(src, dst, spec, buffer); }).bound(fmas);
    inPlace.zors([=] { zorsFFTFwd_CToC_64fc_I(both, spec, buffer); }).bound(fmas);
    split.zors([=] { zorsFFTFwd_CToC_64f(re, im, outRe, outIm, splitSpec, splitBuffer); }).bound(fmas);
#ifdef HAVE_FFTW
    auto *from = reinterpret_cast<fftw_complex*>(src), *to = reinterpret_cast<fftw_complex*>(dst),
         *at = reinterpret_cast<fftw_complex*>(both);
    const auto plan = fftw_plan_dft_1d(int(n), from, to, FFTW_FORWARD, planning(order)),
               back = fftw_plan_dft_1d(int(n), from, to, FFTW_BACKWARD, planning(order));
    const auto planInPlace = fftw_plan_dft_1d(int(n), at, at, FFTW_FORWARD, planning(order));
    forward.peer("FFTW", [=] { fftw_execute(plan); });
    inverse.peer("FFTW", [=] { fftw_execute(back); });
    inPlace.peer("FFTW", [=] { fftw_execute(planInPlace); });
#endif
  }
}

void real32() {
  for (int order : orders) {
    const long n = 1L << order;
    const auto fmas = bench::fmas(order, 8);
    auto *values = bench::array<Zor32f>(n + 2), *spectrum = bench::array<Zor32f>(n + 2);
    const auto [spec, buffer] = prepare<ZorsFFTSpec_R_32f>(zorsFFTInitAlloc_R_32f, zorsFFTGetBufSize_R_32f, order);
    auto forward = workload(name("zorsFFTFwd_RToPerm_32f", order), n),
         inverse = workload(name("zorsFFTInv_PermToR_32f", order), n);
    forward.zors([=] { zorsFFTFwd_RToPerm_32f(values, spectrum, spec, buffer); }).bound(fmas);
    inverse.zors([=] { zorsFFTInv_PermToR_32f(values, spectrum, spec, buffer); }).bound(fmas);
#ifdef HAVE_FFTW
    auto* terms = reinterpret_cast<fftwf_complex*>(spectrum);
    auto* in = reinterpret_cast<fftwf_complex*>(values);
    const auto plan = fftwf_plan_dft_r2c_1d(int(n), values, terms, planning(order)),
               back = fftwf_plan_dft_c2r_1d(int(n), in, spectrum, planning(order) | FFTW_PRESERVE_INPUT);
    forward.peer("FFTW", [=] { fftwf_execute(plan); });
    inverse.peer("FFTW", [=] { fftwf_execute(back); });
#endif
  }
}

void real64() {
  for (int order : orders) {
    const long n = 1L << order;
    const auto fmas = bench::fmas(order, 4);
    auto *values = bench::array<Zor64f>(n + 2), *spectrum = bench::array<Zor64f>(n + 2);
    const auto [spec, buffer] = prepare<ZorsFFTSpec_R_64f>(zorsFFTInitAlloc_R_64f, zorsFFTGetBufSize_R_64f, order);
    auto forward = workload(name("zorsFFTFwd_RToPerm_64f", order), n),
         inverse = workload(name("zorsFFTInv_PermToR_64f", order), n);
    forward.zors([=] { zorsFFTFwd_RToPerm_64f(values, spectrum, spec, buffer); }).bound(fmas);
    inverse.zors([=] { zorsFFTInv_PermToR_64f(values, spectrum, spec, buffer); }).bound(fmas);
#ifdef HAVE_FFTW
    auto* terms = reinterpret_cast<fftw_complex*>(spectrum);
    auto* in = reinterpret_cast<fftw_complex*>(values);
    const auto plan = fftw_plan_dft_r2c_1d(int(n), values, terms, planning(order)),
               back = fftw_plan_dft_c2r_1d(int(n), in, spectrum, planning(order) | FFTW_PRESERVE_INPUT);
    forward.peer("FFTW", [=] { fftw_execute(plan); });
    inverse.peer("FFTW", [=] { fftw_execute(back); });
#endif
  }
}

const bench::Registration registrations[] = {bench::Registration(complex32), bench::Registration(complex64),
                                             bench::Registration(real32), bench::Registration(real64)};

}  // namespace
