// Power-of-two transforms beside FFTW. The bound counts 4 N log2 N multiplications and additions of a radix-4 transform
// as fused pairs, 2 N log2 N vector operations' lanes (half of it for real data); it is not reachable, since sums do
// not fuse. Transforms in place are repeated on their own results: each waits for the last one's stores.
#include <string>

#include "kit/bench.h"
#include "zors/fft.h"

#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using bench::workload;

const int orders[] = {4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 20, 22};

#ifdef HAVE_FFTW
unsigned planning(int order) { return order <= 14 ? FFTW_PATIENT : FFTW_MEASURE; }

struct Fftw32 {
  static fftwf_plan complex(int order, Zor32fc* from, Zor32fc* to, int sign) {
    return fftwf_plan_dft_1d(1 << order, reinterpret_cast<fftwf_complex*>(from), reinterpret_cast<fftwf_complex*>(to),
                             sign, planning(order));
  }
  static fftwf_plan toSpectrum(int order, Zor32f* values, Zor32f* spectrum) {
    return fftwf_plan_dft_r2c_1d(1 << order, values, reinterpret_cast<fftwf_complex*>(spectrum), planning(order));
  }
  static fftwf_plan fromSpectrum(int order, Zor32f* spectrum, Zor32f* values) {
    return fftwf_plan_dft_c2r_1d(1 << order, reinterpret_cast<fftwf_complex*>(spectrum), values,
                                 planning(order) | FFTW_PRESERVE_INPUT);
  }
  static void execute(fftwf_plan plan) { fftwf_execute(plan); }
};
struct Fftw64 {
  static fftw_plan complex(int order, Zor64fc* from, Zor64fc* to, int sign) {
    return fftw_plan_dft_1d(1 << order, reinterpret_cast<fftw_complex*>(from), reinterpret_cast<fftw_complex*>(to),
                            sign, planning(order));
  }
  static fftw_plan toSpectrum(int order, Zor64f* values, Zor64f* spectrum) {
    return fftw_plan_dft_r2c_1d(1 << order, values, reinterpret_cast<fftw_complex*>(spectrum), planning(order));
  }
  static fftw_plan fromSpectrum(int order, Zor64f* spectrum, Zor64f* values) {
    return fftw_plan_dft_c2r_1d(1 << order, reinterpret_cast<fftw_complex*>(spectrum), values,
                                planning(order) | FFTW_PRESERVE_INPUT);
  }
  static void execute(fftw_plan plan) { fftw_execute(plan); }
};
constexpr int forwardSign = FFTW_FORWARD, inverseSign = FFTW_BACKWARD;
#else
struct Fftw32 {};
struct Fftw64 {};
constexpr int forwardSign = -1, inverseSign = 1;
#endif

// Plans only what is to be run.
template <class Fftw, class Plan> void addPeer(bench::Workload& row, const std::string& name, Plan plan) {
#ifdef HAVE_FFTW
  if (!bench::wanted(name)) return;
  bench::announce("FFTW plans for " + name);
  row.peer("FFTW", [made = plan()] { Fftw::execute(made); });
#else
  (void)row, (void)name, (void)plan;
#endif
}

template <class S, class Init, class BufSize> std::pair<S*, Zor8u*> prepare(Init init, BufSize bufSize, int order) {
  S* spec = nullptr;
  Zor32s size = 0;
  init(&spec, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
  bufSize(spec, &size);
  return {spec, bench::array<Zor8u>(size + 64)};
}
std::string name(const char* function, int order) { return std::string(function) + " order " + std::to_string(order); }

template <class Fftw, class C, class S>
void complexRow(const char* function, int order, ZorStatus (*f)(const C*, C*, const S*, Zor8u*), const S* spec,
                Zor8u* buffer, int sign) {
  const long n = 1L << order;
  auto *src = bench::array<C>(n), *dst = bench::array<C>(n);
  auto row = workload(name(function, order), n);
  row.zors([=] { f(src, dst, spec, buffer); }).bound(bench::fmas(2 * order, 32 / int{sizeof(C::re)}));
  addPeer<Fftw>(row, name(function, order), [=] { return Fftw::complex(order, src, dst, sign); });
}
template <class Fftw, class C, class S>
void complexRow(const char* function, int order, ZorStatus (*f)(C*, const S*, Zor8u*), const S* spec, Zor8u* buffer,
                int sign) {
  const long n = 1L << order;
  auto* both = bench::array<C>(n);
  for (long i = 0; i < n; ++i) both[i] = {0, 0};  // repeated transforms would overflow
  auto row = workload(name(function, order), n);
  row.zors([=] { f(both, spec, buffer); }).bound(bench::fmas(2 * order, 32 / int{sizeof(C::re)}));
  addPeer<Fftw>(row, name(function, order), [=] { return Fftw::complex(order, both, both, sign); });
}
template <class T, class S>
void splitRow(const char* function, int order, ZorStatus (*f)(const T*, const T*, T*, T*, const S*, Zor8u*),
              const S* spec, Zor8u* buffer) {
  const long n = 1L << order;
  auto *re = bench::array<T>(n), *im = bench::array<T>(n), *outRe = bench::array<T>(n), *outIm = bench::array<T>(n);
  workload(name(function, order), n)
      .zors([=] { f(re, im, outRe, outIm, spec, buffer); })
      .bound(bench::fmas(2 * order, 32 / int{sizeof(T)}));
}
enum class Toward { spectrum, values };
template <class Fftw, class T, class S>
void realRow(const char* function, int order, ZorStatus (*f)(const T*, T*, const S*, Zor8u*), const S* spec,
             Zor8u* buffer, Toward toward) {
  const long n = 1L << order;
  auto *src = bench::array<T>(n + 2), *dst = bench::array<T>(n + 2);
  auto row = workload(name(function, order), n);
  row.zors([=] { f(src, dst, spec, buffer); }).bound(bench::fmas(order, 32 / int{sizeof(T)}));
  addPeer<Fftw>(row, name(function, order), [=] {
    return toward == Toward::spectrum ? Fftw::toSpectrum(order, src, dst) : Fftw::fromSpectrum(order, src, dst);
  });
}

void complex() {
  for (int order : orders) {
    const auto [s32, b32] = prepare<ZorsFFTSpec_C_32fc>(zorsFFTInitAlloc_C_32fc, zorsFFTGetBufSize_C_32fc, order);
    const auto [s64, b64] = prepare<ZorsFFTSpec_C_64fc>(zorsFFTInitAlloc_C_64fc, zorsFFTGetBufSize_C_64fc, order);
    const auto [p32, q32] = prepare<ZorsFFTSpec_C_32f>(zorsFFTInitAlloc_C_32f, zorsFFTGetBufSize_C_32f, order);
    const auto [p64, q64] = prepare<ZorsFFTSpec_C_64f>(zorsFFTInitAlloc_C_64f, zorsFFTGetBufSize_C_64f, order);
    complexRow<Fftw32>("zorsFFTFwd_CToC_32fc", order, zorsFFTFwd_CToC_32fc, s32, b32, forwardSign);
    complexRow<Fftw32>("zorsFFTInv_CToC_32fc", order, zorsFFTInv_CToC_32fc, s32, b32, inverseSign);
    complexRow<Fftw32>("zorsFFTFwd_CToC_32fc_I", order, zorsFFTFwd_CToC_32fc_I, s32, b32, forwardSign);
    splitRow("zorsFFTFwd_CToC_32f", order, zorsFFTFwd_CToC_32f, p32, q32);
    complexRow<Fftw64>("zorsFFTFwd_CToC_64fc", order, zorsFFTFwd_CToC_64fc, s64, b64, forwardSign);
    complexRow<Fftw64>("zorsFFTInv_CToC_64fc", order, zorsFFTInv_CToC_64fc, s64, b64, inverseSign);
    complexRow<Fftw64>("zorsFFTFwd_CToC_64fc_I", order, zorsFFTFwd_CToC_64fc_I, s64, b64, forwardSign);
    splitRow("zorsFFTFwd_CToC_64f", order, zorsFFTFwd_CToC_64f, p64, q64);
  }
}

void real() {
  for (int order : orders) {
    const auto [s32, b32] = prepare<ZorsFFTSpec_R_32f>(zorsFFTInitAlloc_R_32f, zorsFFTGetBufSize_R_32f, order);
    const auto [s64, b64] = prepare<ZorsFFTSpec_R_64f>(zorsFFTInitAlloc_R_64f, zorsFFTGetBufSize_R_64f, order);
    realRow<Fftw32>("zorsFFTFwd_RToPerm_32f", order, zorsFFTFwd_RToPerm_32f, s32, b32, Toward::spectrum);
    realRow<Fftw32>("zorsFFTInv_PermToR_32f", order, zorsFFTInv_PermToR_32f, s32, b32, Toward::values);
    realRow<Fftw64>("zorsFFTFwd_RToPerm_64f", order, zorsFFTFwd_RToPerm_64f, s64, b64, Toward::spectrum);
    realRow<Fftw64>("zorsFFTInv_PermToR_64f", order, zorsFFTInv_PermToR_64f, s64, b64, Toward::values);
  }
}

// The integer kinds: a conversion, a float transform, a conversion. Their peer is the float transform alone.
void integers() {
  for (int order : {2, 3, 4, 6, 8, 10, 12, 14, 16}) {
    const long n = 1L << order;
    const auto [f32, fb32] = prepare<ZorsFFTSpec_C_32fc>(zorsFFTInitAlloc_C_32fc, zorsFFTGetBufSize_C_32fc, order);
    const auto [f64, fb64] = prepare<ZorsFFTSpec_C_64fc>(zorsFFTInitAlloc_C_64fc, zorsFFTGetBufSize_C_64fc, order);
    const auto [s16, b16] = prepare<ZorsFFTSpec_C_16sc>(zorsFFTInitAlloc_C_16sc, zorsFFTGetBufSize_C_16sc, order);
    const auto [s32, b32] = prepare<ZorsFFTSpec_C_32sc>(zorsFFTInitAlloc_C_32sc, zorsFFTGetBufSize_C_32sc, order);
    const auto [r16, rb16] = prepare<ZorsFFTSpec_R_16s>(zorsFFTInitAlloc_R_16s, zorsFFTGetBufSize_R_16s, order);
    const auto [rf, rfb] = prepare<ZorsFFTSpec_R_32f>(zorsFFTInitAlloc_R_32f, zorsFFTGetBufSize_R_32f, order);
    auto *x16 = bench::array<Zor16sc>(n), *y16 = bench::array<Zor16sc>(n);
    auto *x32 = bench::array<Zor32sc>(n), *y32 = bench::array<Zor32sc>(n);
    auto *xf = bench::array<Zor32fc>(n), *yf = bench::array<Zor32fc>(n);
    auto *xd = bench::array<Zor64fc>(n), *yd = bench::array<Zor64fc>(n);
    auto *v16 = &x16->re, *w16 = &y16->re;
    auto *vf = &xf->re, *wf = &yf->re;
    workload(name("zorsFFTFwd_CToC_16sc_Sfs", order), n)
        .zors([=] { zorsFFTFwd_CToC_16sc_Sfs(x16, y16, s16, 3, b16); })
        .peer("float kind", [=] { zorsFFTFwd_CToC_32fc(xf, yf, f32, fb32); });
    workload(name("zorsFFTFwd_CToC_32sc_Sfs", order), n)
        .zors([=] { zorsFFTFwd_CToC_32sc_Sfs(x32, y32, s32, 3, b32); })
        .peer("float kind", [=] { zorsFFTFwd_CToC_64fc(xd, yd, f64, fb64); });
    workload(name("zorsFFTFwd_RToPerm_16s_Sfs", order), n)
        .zors([=] { zorsFFTFwd_RToPerm_16s_Sfs(v16, w16, r16, 3, rb16); })
        .peer("float kind", [=] { zorsFFTFwd_RToPerm_32f(vf, wf, rf, rfb); });
  }
}

// Operations on packed spectra.
template <class T, class F> void productRow(const char* function, long size, F f) {
  auto *a = bench::array<T>(size), *b = bench::array<T>(size), *d = bench::array<T>(size);
  workload(function, size).zors([=] { f(a, b, d, int(size)); }).bound(bench::streams(2 * sizeof(T), sizeof(T)));
}
template <class T, class C> void conjRow(const char* function, long size, ZorStatus (*f)(const T*, C*, Zor32s)) {
  auto* packed = bench::array<T>(size + 2);
  auto* all = bench::array<C>(size);
  workload(function, size).zors([=] { f(packed, all, int(size)); }).bound(bench::streams(sizeof(T), sizeof(C)));
}
void packedSpectra() {
  for (long size : {64L, 1024L, 100'000L}) {
    productRow<Zor32f>("zorsMulPack_32f", size, zorsMulPack_32f);
    productRow<Zor64f>("zorsMulPack_64f", size, zorsMulPack_64f);
    productRow<Zor32f>("zorsMulPerm_32f", size, zorsMulPerm_32f);
    productRow<Zor32f>("zorsMulPackConj_32f_I", size, [](const Zor32f* a, const Zor32f*, Zor32f* d, Zor32s len) {
      return zorsMulPackConj_32f_I(a, d, len);
    });
    productRow<Zor16s>("zorsMulPack_16s_Sfs", size, [](const Zor16s* a, const Zor16s* b, Zor16s* d, Zor32s len) {
      return zorsMulPack_16s_Sfs(a, b, d, len, 3);
    });
    conjRow("zorsConjPack_32fc", size, zorsConjPack_32fc);
    conjRow("zorsConjPerm_64fc", size, zorsConjPerm_64fc);
    conjRow("zorsConjPerm_16sc", size, zorsConjPerm_16sc);
  }
}

const bench::Registration registrations[] = {bench::Registration(complex), bench::Registration(real),
                                             bench::Registration(integers), bench::Registration(packedSpectra)};

}  // namespace
