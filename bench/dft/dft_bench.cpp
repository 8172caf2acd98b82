// Transforms of any length, cosine transforms and analytic signals beside FFTW. Lengths up to 1,024 are planned
// patiently.
#include <string>

#include "kit/bench.h"
#include "zors/dft.h"

#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using bench::workload;

const int lengths[] = {12,   15,   20,    60,    100,     120, 240, 480,  960,  1000, 1152,
                       1920, 4800, 44100, 48000, 1000000, 17,  101, 1009, 1999, 10007};

#ifdef HAVE_FFTW
unsigned planning(int n) { return n <= 1024 ? FFTW_PATIENT : FFTW_MEASURE; }
struct Fftw32 {
  static fftwf_plan complex(int n, Zor32fc* from, Zor32fc* to, int sign) {
    return fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(from), reinterpret_cast<fftwf_complex*>(to), sign,
                             planning(n));
  }
  static fftwf_plan toSpectrum(int n, Zor32f* values, Zor32f* spectrum) {
    return fftwf_plan_dft_r2c_1d(n, values, reinterpret_cast<fftwf_complex*>(spectrum), planning(n));
  }
  static fftwf_plan fromSpectrum(int n, Zor32f* spectrum, Zor32f* values) {
    return fftwf_plan_dft_c2r_1d(n, reinterpret_cast<fftwf_complex*>(spectrum), values,
                                 planning(n) | FFTW_PRESERVE_INPUT);
  }
  static fftwf_plan cosine(int n, Zor32f* from, Zor32f* to) {
    return fftwf_plan_r2r_1d(n, from, to, FFTW_REDFT10, planning(n));
  }
  static void execute(fftwf_plan plan) { fftwf_execute(plan); }
};
struct Fftw64 {
  static fftw_plan complex(int n, Zor64fc* from, Zor64fc* to, int sign) {
    return fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(from), reinterpret_cast<fftw_complex*>(to), sign,
                            planning(n));
  }
  static fftw_plan toSpectrum(int n, Zor64f* values, Zor64f* spectrum) {
    return fftw_plan_dft_r2c_1d(n, values, reinterpret_cast<fftw_complex*>(spectrum), planning(n));
  }
  static fftw_plan fromSpectrum(int n, Zor64f* spectrum, Zor64f* values) {
    return fftw_plan_dft_c2r_1d(n, reinterpret_cast<fftw_complex*>(spectrum), values,
                                planning(n) | FFTW_PRESERVE_INPUT);
  }
  static fftw_plan cosine(int n, Zor64f* from, Zor64f* to) {
    return fftw_plan_r2r_1d(n, from, to, FFTW_REDFT10, planning(n));
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
  if (bench::wanted(name)) row.peer("FFTW", [made = plan()] { Fftw::execute(made); });
#else
  (void)row, (void)name, (void)plan;
#endif
}
std::string name(const char* function, int n) { return std::string(function) + " " + std::to_string(n) + " points"; }

template <class Fftw, class C, class S>
void complexRow(const char* function, int n, ZorStatus (*init)(S**, Zor32s, Zor32s, ZorHintAlgorithm),
                ZorStatus (*bufSize)(const S*, Zor32s*), ZorStatus (*f)(const C*, C*, const S*, Zor8u*), int sign) {
  if (!bench::wanted(name(function, n))) return;
  S* spec = nullptr;
  Zor32s size = 0;
  init(&spec, n, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
  bufSize(spec, &size);
  auto* buffer = bench::array<Zor8u>(size + 64);
  auto *src = bench::array<C>(n), *dst = bench::array<C>(n);
  auto row = workload(name(function, n), n);
  row.zors([=] { f(src, dst, spec, buffer); });
  addPeer<Fftw>(row, name(function, n), [=] { return Fftw::complex(n, src, dst, sign); });
}
enum class Toward { spectrum, values };
template <class Fftw, class T, class S>
void realRow(const char* function, int n, ZorStatus (*init)(S**, Zor32s, Zor32s, ZorHintAlgorithm),
             ZorStatus (*bufSize)(const S*, Zor32s*), ZorStatus (*f)(const T*, T*, const S*, Zor8u*), Toward toward) {
  if (!bench::wanted(name(function, n))) return;
  S* spec = nullptr;
  Zor32s size = 0;
  init(&spec, n, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
  bufSize(spec, &size);
  auto* buffer = bench::array<Zor8u>(size + 64);
  auto *src = bench::array<T>(n + 2), *dst = bench::array<T>(n + 2);
  auto row = workload(name(function, n), n);
  row.zors([=] { f(src, dst, spec, buffer); });
  addPeer<Fftw>(row, name(function, n), [=] {
    return toward == Toward::spectrum ? Fftw::toSpectrum(n, src, dst) : Fftw::fromSpectrum(n, src, dst);
  });
}

void transforms() {
  for (int n : lengths) {
    complexRow<Fftw32>("zorsDFTFwd_CToC_32fc", n, zorsDFTInitAlloc_C_32fc, zorsDFTGetBufSize_C_32fc,
                       zorsDFTFwd_CToC_32fc, forwardSign);
    complexRow<Fftw32>("zorsDFTInv_CToC_32fc", n, zorsDFTInitAlloc_C_32fc, zorsDFTGetBufSize_C_32fc,
                       zorsDFTInv_CToC_32fc, inverseSign);
    complexRow<Fftw64>("zorsDFTFwd_CToC_64fc", n, zorsDFTInitAlloc_C_64fc, zorsDFTGetBufSize_C_64fc,
                       zorsDFTFwd_CToC_64fc, forwardSign);
    complexRow<Fftw64>("zorsDFTInv_CToC_64fc", n, zorsDFTInitAlloc_C_64fc, zorsDFTGetBufSize_C_64fc,
                       zorsDFTInv_CToC_64fc, inverseSign);
    realRow<Fftw32>("zorsDFTFwd_RToPerm_32f", n, zorsDFTInitAlloc_R_32f, zorsDFTGetBufSize_R_32f,
                    zorsDFTFwd_RToPerm_32f, Toward::spectrum);
    realRow<Fftw32>("zorsDFTFwd_RToCCS_32f", n, zorsDFTInitAlloc_R_32f, zorsDFTGetBufSize_R_32f, zorsDFTFwd_RToCCS_32f,
                    Toward::spectrum);
    realRow<Fftw32>("zorsDFTInv_PermToR_32f", n, zorsDFTInitAlloc_R_32f, zorsDFTGetBufSize_R_32f,
                    zorsDFTInv_PermToR_32f, Toward::values);
    realRow<Fftw64>("zorsDFTFwd_RToPerm_64f", n, zorsDFTInitAlloc_R_64f, zorsDFTGetBufSize_R_64f,
                    zorsDFTFwd_RToPerm_64f, Toward::spectrum);
    realRow<Fftw64>("zorsDFTInv_PermToR_64f", n, zorsDFTInitAlloc_R_64f, zorsDFTGetBufSize_R_64f,
                    zorsDFTInv_PermToR_64f, Toward::values);
  }
}

// The ordered transform is the peer.
void outOfOrder() {
  for (int n : {2016, 10000, 48000, 1000000}) {
    if (!bench::wanted(name("zorsDFTOutOrdFwd_CToC_32fc", n)) && !bench::wanted(name("zorsDFTOutOrdInv_CToC_32fc", n)))
      continue;
    ZorsDFTOutOrdSpec_C_32fc* spec = nullptr;
    ZorsDFTSpec_C_32fc* ordered = nullptr;
    Zor32s size = 0, orderedSize = 0;
    zorsDFTOutOrdInitAlloc_C_32fc(&spec, n, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTInitAlloc_C_32fc(&ordered, n, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTOutOrdGetBufSize_C_32fc(spec, &size);
    zorsDFTGetBufSize_C_32fc(ordered, &orderedSize);
    auto *work = bench::array<Zor8u>(size + 64), *orderedWork = bench::array<Zor8u>(orderedSize + 64);
    auto *src = bench::array<Zor32fc>(n), *dst = bench::array<Zor32fc>(n);
    workload(name("zorsDFTOutOrdFwd_CToC_32fc", n), n)
        .zors([=] { zorsDFTOutOrdFwd_CToC_32fc(src, dst, spec, work); })
        .peer("ordered", [=] { zorsDFTFwd_CToC_32fc(src, dst, ordered, orderedWork); });
    workload(name("zorsDFTOutOrdInv_CToC_32fc", n), n)
        .zors([=] { zorsDFTOutOrdInv_CToC_32fc(src, dst, spec, work); })
        .peer("ordered", [=] { zorsDFTInv_CToC_32fc(src, dst, ordered, orderedWork); });
  }
}

template <class Fftw, class T, class S>
void cosineRow(const char* function, int n, ZorStatus (*init)(S**, Zor32s, ZorHintAlgorithm),
               ZorStatus (*bufSize)(const S*, Zor32s*), ZorStatus (*f)(const T*, T*, const S*, Zor8u*)) {
  if (!bench::wanted(name(function, n))) return;
  S* spec = nullptr;
  Zor32s size = 0;
  init(&spec, n, zorAlgHintNone);
  bufSize(spec, &size);
  auto* buffer = bench::array<Zor8u>(size + 64);
  auto *src = bench::array<T>(n), *dst = bench::array<T>(n + 2);
  auto row = workload(name(function, n), n);
  row.zors([=] { f(src, dst, spec, buffer); });
  if constexpr (sizeof(T) == 4) {
    ZorsDFTSpec_R_32f* real = nullptr;
    zorsDFTInitAlloc_R_32f(&real, n, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone);
    zorsDFTGetBufSize_R_32f(real, &size);
    auto* realBuffer = bench::array<Zor8u>(size + 64);
    row.peer("RToPerm", [=] { zorsDFTFwd_RToPerm_32f(src, dst, real, realBuffer); });
  }
  addPeer<Fftw>(row, name(function, n), [=] { return Fftw::cosine(n, src, dst); });
}
void cosines() {
  for (int n : {2, 4, 8, 13, 20, 35, 16, 32, 36, 64, 100, 256, 1024, 4096, 65536}) {
    cosineRow<Fftw32>("zorsDCTFwd_32f", n, zorsDCTFwdInitAlloc_32f, zorsDCTFwdGetBufSize_32f, zorsDCTFwd_32f);
    cosineRow<Fftw64>("zorsDCTFwd_64f", n, zorsDCTFwdInitAlloc_64f, zorsDCTFwdGetBufSize_64f, zorsDCTFwd_64f);
    cosineRow<Fftw32>("zorsDCTInv_32f", n, zorsDCTInvInitAlloc_32f, zorsDCTInvGetBufSize_32f, zorsDCTInv_32f);
  }
}

// The two transforms that it is made of are the peer.
void hilbert() {
  for (int n : {256, 1000, 1024, 4096}) {
    if (!bench::wanted(name("zorsHilbert_32f32fc", n))) continue;
    ZorsHilbertSpec_32f32fc* spec = nullptr;
    ZorsDFTSpec_C_32fc* complex = nullptr;
    ZorsDFTSpec_R_32f* real = nullptr;
    zorsHilbertInitAlloc_32f32fc(&spec, n, zorAlgHintNone);
    zorsDFTInitAlloc_C_32fc(&complex, n, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone);
    zorsDFTInitAlloc_R_32f(&real, n, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone);
    auto* src = bench::array<Zor32f>(n);
    auto* dst = bench::array<Zor32fc>(n);
    workload(name("zorsHilbert_32f32fc", n), n)
        .zors([=] { zorsHilbert_32f32fc(src, dst, spec); })
        .peer("two transforms", [=] {
          zorsDFTFwd_RToCCS_32f(src, &dst->re, real, nullptr);
          zorsDFTInv_CToC_32fc(dst, dst, complex, nullptr);
        });
  }
}

const bench::Registration registrations[] = {bench::Registration(transforms), bench::Registration(outOfOrder),
                                             bench::Registration(cosines), bench::Registration(hilbert)};

}  // namespace
