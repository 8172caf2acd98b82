// Correlation and convolution beside plain loops, Eigen and convolutions by FFTW.
#include <algorithm>
#include <complex>
#include <cstring>
#include <memory>
#include <vector>

#include "kit/bench.h"
#include "zors/correlation.h"
#include "zors/fft.h"
#ifdef HAVE_EIGEN
#include <Eigen/Core>
#endif
#ifdef HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using bench::array, bench::workload;

template <class T> T product(T a, T b) { return a * b; }
inline Zor32fc product(Zor32fc a, Zor32fc b) { return {a.re * b.re + a.im * b.im, a.re * b.im - a.im * b.re}; }
inline Zor32fc operator+(Zor32fc a, Zor32fc b) { return {a.re + b.re, a.im + b.im}; }

template <class T> void correlateByLoop(const T* a, long len1, const T* b, long len2, T* d, long count, long lag) {
  for (long n = 0; n < count; ++n) {
    T sum{};
    const long from = std::max(0L, -lag - n), to = std::min(len1, len2 - lag - n);
    for (long k = from; k < to; ++k) sum = sum + product(a[k], b[k + lag + n]);
    d[n] = sum;
  }
}
double products(long len1, long len2, long count, long lag) {
  double sum = 0;
  for (long n = lag; n < lag + count; ++n) sum += double(std::max(0L, std::min(len1, len2 - n) - std::max(0L, -n)));
  return sum;
}

#ifdef HAVE_FFTW
// Overlap-save with blocks of the power of two from `least` on, planned beforehand.
class FftwBlocks {
 public:
  FftwBlocks(long least, const float* taps, long tapsLen) : tapsLen_(tapsLen) {
    while (len_ < least) len_ *= 2;
    time_ = fftwf_alloc_real(std::size_t(len_));
    spectrum_ = fftwf_alloc_complex(std::size_t(len_ / 2 + 1));
    taps_ = fftwf_alloc_complex(std::size_t(len_ / 2 + 1));
    forward_ = fftwf_plan_dft_r2c_1d(int(len_), time_, spectrum_, FFTW_MEASURE);
    inverse_ = fftwf_plan_dft_c2r_1d(int(len_), spectrum_, time_, FFTW_MEASURE);
    takeTaps(taps);
  }
  void takeTaps(const float* taps) {
    std::memset(time_, 0, sizeof(float) * std::size_t(len_));
    std::memcpy(time_, taps, sizeof(float) * std::size_t(tapsLen_));
    fftwf_execute_dft_r2c(forward_, time_, taps_);
  }
  void convolve(const float* x, long xLen, float* y) {
    const long all = xLen + tapsLen_ - 1, overlap = tapsLen_ - 1, hop = len_ - overlap;
    for (long done = 0; done < all; done += hop) {
      const long from = done - overlap, begin = std::max(0L, from), end = std::min(xLen, from + len_);
      std::memset(time_, 0, sizeof(float) * std::size_t(len_));
      if (end > begin) std::memcpy(time_ + (begin - from), x + begin, sizeof(float) * std::size_t(end - begin));
      fftwf_execute(forward_);
      for (long k = 0; k <= len_ / 2; ++k) {
        const float re = spectrum_[k][0] * taps_[k][0] - spectrum_[k][1] * taps_[k][1];
        spectrum_[k][1] = (spectrum_[k][0] * taps_[k][1] + spectrum_[k][1] * taps_[k][0]) / float(len_);
        spectrum_[k][0] = re / float(len_);
      }
      fftwf_execute(inverse_);
      std::memcpy(y + done, time_ + overlap, sizeof(float) * std::size_t(std::min(hop, all - done)));
    }
  }

 private:
  long tapsLen_, len_ = 1;
  float* time_;
  fftwf_complex *spectrum_, *taps_;
  fftwf_plan forward_, inverse_;
};
#endif

template <class T, class Call>
void crossRow(const char* name, long len1, long len2, long count, long lag, double fmasPerProduct, int lanes,
              Call call) {
  const T *a = array<T>(len1), *b = array<T>(len2);
  T* d = array<T>(count);
  auto row = workload(name, count);
  row.zors([=] { call(a, int(len1), b, int(len2), d, int(count), int(lag)); })
      .peer("loop", [=] { correlateByLoop(a, len1, b, len2, d, count, lag); })
      .bound(bench::fmas(products(len1, len2, count, lag) / double(count) * fmasPerProduct, lanes));
#ifdef HAVE_EIGEN
  if constexpr (std::is_same_v<T, Zor32f>) {
    row.peer("eigen", [=] {
      for (long n = 0; n < count; ++n) {
        const long from = std::max(0L, -lag - n), to = std::min(len1, len2 - lag - n);
        const Eigen::Map<const Eigen::VectorXf> x(a + from, to - from), y(b + from + lag + n, to - from);
        d[n] = x.dot(y);
      }
    });
  }
#endif
}
void cross() {
  for (long count : {100, 400}) {
    crossRow<Zor32f>("zorsCrossCorr_32f", 100, 1000, count, 0, 1, 8, zorsCrossCorr_32f);
    crossRow<Zor64f>("zorsCrossCorr_64f", 100, 1000, count, 0, 1, 4, zorsCrossCorr_64f);
    crossRow<Zor32fc>("zorsCrossCorr_32fc", 100, 1000, count, 0, 4, 8, zorsCrossCorr_32fc);
  }
  crossRow<Zor32f>("zorsCrossCorr_32f", 100, 1000, 1099, -99, 1, 8, zorsCrossCorr_32f);
}
bench::Registration registerCross(cross);

void automatic() {
  for (long len : {160, 1024, 4096})
    for (long lags : {10, 20, 40}) {
      const auto* x = array<Zor32f>(len);
      auto* d = array<Zor32f>(lags);
      workload("zorsAutoCorr_32f/" + std::to_string(lags), len)
          .zors([=] { zorsAutoCorr_32f(x, int(len), d, int(lags)); })
          .peer("loop", [=] { correlateByLoop(x, len, x, len, d, lags, 0); })
          .bound(bench::fmas(products(len, len, lags, 0) / double(len), 8));
    }
}
bench::Registration registerAutomatic(automatic);

// The bound of sums by transforms: the transforms themselves, with a specification that is there already.
template <class Call> void transformRow(const std::string& name, long size, int order, int transforms, Call call) {
  const long len = 1L << order;
  auto* x = array<Zor32f>(len);
  std::memset(x, 0, sizeof(float) * std::size_t(len));
  ZorsFFTSpec_R_32f* spec = nullptr;
  zorsFFTInitAlloc_R_32f(&spec, order, 2, zorAlgHintNone);
  Zor32s workSize = 0;
  zorsFFTGetBufSize_R_32f(spec, &workSize);
  auto* work = array<Zor8u>(workSize + 64);
  workload(name, size).zors(call).bound([=] {
    for (int i = 0; i < transforms; ++i) zorsFFTFwd_RToPerm_32f_I(x, spec, work);
  });
}
void byTransforms() {
  for (long len : {4096L, 65536L, 1'000'000L}) {
    int order = 0;
    while ((1L << order) < 2 * len) ++order;
    const auto *x = array<Zor32f>(len), *y = array<Zor32f>(len);
    auto* d = array<Zor32f>(2 * len);
    transformRow("zorsAutoCorr_32f/full", len, order, 2, [=] { zorsAutoCorr_32f(x, int(len), d, int(len)); });
    transformRow("zorsCrossCorr_32f/full", len, order, 3,
                 [=] { zorsCrossCorr_32f(x, int(len), y, int(len), d, int(2 * len - 1), int(1 - len)); });
  }
}
bench::Registration registerByTransforms(byTransforms);

void convolutions() {
  for (const auto& [taps, len] : {std::pair{16L, 10'000L}, {63, 10'000}}) {
    const auto *h = array<Zor32f>(taps), *x = array<Zor32f>(len);
    auto* y = array<Zor32f>(len + taps);
    const auto *h64 = array<Zor64f>(taps), *x64 = array<Zor64f>(len);
    auto* y64 = array<Zor64f>(len + taps);
    const auto *h16 = array<Zor16s>(taps), *x16 = array<Zor16s>(len);
    auto* y16 = array<Zor16s>(len + taps);
    const auto loop = [taps = taps, len = len](const auto* a, const auto* b, auto* out, auto zero) {
      for (long n = 0; n < len + taps - 1; ++n) {
        auto sum = zero;
        for (long k = std::max(0L, n - len + 1); k <= std::min(n, taps - 1); ++k) sum += a[k] * b[n - k];
        out[n] = static_cast<std::remove_reference_t<decltype(out[n])>>(sum);
      }
    };
    workload("zorsConv_32f/" + std::to_string(taps), len)
        .zors([=, len = len, taps = taps] { zorsConv_32f(x, int(len), h, int(taps), y); })
        .peer("loop", [=] { loop(h, x, y, 0.0F); })
        .bound(bench::fmas(double(taps), 8));
    workload("zorsConv_64f/" + std::to_string(taps), len)
        .zors([=, len = len, taps = taps] { zorsConv_64f(x64, int(len), h64, int(taps), y64); })
        .peer("loop", [=] { loop(h64, x64, y64, 0.0); })
        .bound(bench::fmas(double(taps), 4));
    workload("zorsConv_16s_Sfs/" + std::to_string(taps), len)
        .zors([=, len = len, taps = taps] { zorsConv_16s_Sfs(x16, int(len), h16, int(taps), y16, 2); })
        .peer("loop", [=] { loop(h16, x16, y16, 0L); });
    Zor32s size = 0;
    zorsConvolveGetBufferSize(int(len), int(taps), 13, 0, &size);
    auto* buffer = array<Zor8u>(size);
    workload("zorsConvolve_32f/" + std::to_string(taps), len)
        .zors([=, len = len, taps = taps] { zorsConvolve_32f(x, int(len), h, int(taps), y, 0, buffer); })
        .bound([=, len = len, taps = taps] { zorsConv_32f(x, int(len), h, int(taps), y); });
  }
  for (long taps : {128L, 1024L, 10'000L}) {
    constexpr long len = 1'000'000;
    const std::string name = "zorsConv_32f/" + std::to_string(taps);
    if (!bench::wanted(name + "/" + std::to_string(len))) continue;
    const auto *h = array<Zor32f>(taps), *x = array<Zor32f>(len);
    auto* y = array<Zor32f>(len + taps);
    auto row = workload(name, len);
    row.zors([=] { zorsConv_32f(x, int(len), h, int(taps), y); });
#ifdef HAVE_FFTW
    const auto blocks = std::make_shared<FftwBlocks>(4 * taps, h, taps);
    row.peer("fftw", [=] {
      blocks->takeTaps(h);
      blocks->convolve(x, len, y);
    });
#endif
  }
}
bench::Registration registerConvolutions(convolutions);

void exactSums() {
  constexpr long len = 1000;
  const auto *a = array<Zor16s>(len), *b = array<Zor16s>(len);
  auto* d = array<Zor64s>(400);
  workload("zorsCrossCorr_16s64s", len)
      .zors([=] { zorsCrossCorr_16s64s(a, int(len), b, int(len), d, 400, -200); })
      .peer("loop", [=] {
        for (long n = 0; n < 400; ++n) {
          const long lag = n - 200, from = std::max(0L, -lag), to = std::min(len, len - lag);
          Zor64s sum = 0;
          for (long k = from; k < to; ++k) sum += Zor64s{a[k]} * b[k + lag];
          d[n] = sum;
        }
      });
}
bench::Registration registerExactSums(exactSums);

}  // namespace
