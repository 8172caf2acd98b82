#include <cmath>

#include "kit/bench.h"
#include "zors/conversion.h"

#ifdef HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

using bench::streams;
using bench::workload;

[[gnu::noinline]] void widen(const short* a, float* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = a[i];
}
[[gnu::noinline]] void narrow(const float* a, short* d, int len) {
  for (int i = 0; i < len; ++i) d[i] = short(std::lrintf(std::fmin(std::fmax(a[i], -32768.0f), 32767.0f)));
}

void mostUsed() {
  for (long size : bench::passSizes) {
    const int len = int(size);
    auto* s = bench::array<Zor16s>(size);
    auto* f = bench::array<Zor32f>(size);
    workload("zorsConvert_16s32f", size)
        .zors([=] { zorsConvert_16s32f(s, f, len); })
        .peer("loop", [=] { widen(s, f, len); })
#ifdef HAVE_VOLK
        .peer("VOLK", [=] { volk_16i_s32f_convert_32f(f, s, 1.0f, unsigned(len)); })
#endif
        .bound(streams(2, 4));
    for (int rnd : {0, 1, 2})
      workload("zorsConvert_32f16s_Sfs rnd " + std::to_string(rnd), size)
          .zors([=] { zorsConvert_32f16s_Sfs(f, s, len, rnd, 1); })
          .peer("loop", [=] { narrow(f, s, len); })
#ifdef HAVE_VOLK
          .peer("VOLK", [=] { volk_32f_s32f_convert_16i(s, f, 0.5f, unsigned(len)); })
#endif
          .bound(streams(4, 2));
  }
}

// One row for each of the others; bytes are what an element takes where it is packed in three.
constexpr long rowSize = 1000;
constexpr int scale = 1;

template <class S, class D, class Len>
void row(const std::string& name, ZorStatus (*f)(const S*, D*, Len), int readBytes = sizeof(S),
         int writtenBytes = sizeof(D)) {
  auto* src = bench::array<S>(rowSize * readBytes / long{sizeof(S)});
  auto* dst = bench::array<D>(rowSize * writtenBytes / long{sizeof(D)});
  workload(name, rowSize).zors([=] { f(src, dst, Len(rowSize)); }).bound(streams(readBytes, writtenBytes));
}
template <class S, class D>
void row(const std::string& name, ZorStatus (*f)(const S*, D*, Zor32s, Zor32s), int readBytes = sizeof(S),
         int writtenBytes = sizeof(D)) {
  auto* src = bench::array<S>(rowSize * readBytes / long{sizeof(S)});
  auto* dst = bench::array<D>(rowSize * writtenBytes / long{sizeof(D)});
  workload(name, rowSize).zors([=] { f(src, dst, int(rowSize), scale); }).bound(streams(readBytes, writtenBytes));
}
template <class S, class D, class Len>
void row(const std::string& name, ZorStatus (*f)(const S*, D*, Len, Zor32s, Zor32s)) {
  auto* src = bench::array<S>(rowSize);
  auto* dst = bench::array<D>(rowSize);
  for (int rnd : {0, 1, 2}) {
    workload(std::string(name).append(" rnd ").append(std::to_string(rnd)), rowSize)
        .zors([=] { f(src, dst, Len(rowSize), rnd, scale); })
        .bound(streams(sizeof(S), sizeof(D)));
    if (std::is_same_v<S, Zor16f>) break;  // binary16 members round in two modes alike
  }
}
template <class C, class T> void splitRow(const std::string& name, ZorStatus (*f)(const C*, T*, T*, Zor32s)) {
  auto* src = bench::array<C>(rowSize);
  auto *re = bench::array<T>(rowSize), *im = bench::array<T>(rowSize);
  workload(name, rowSize).zors([=] { f(src, re, im, int(rowSize)); }).bound(streams(sizeof(C), sizeof(C)));
}
template <class C, class T> void joinRow(const std::string& name, ZorStatus (*f)(const T*, const T*, C*, Zor32s)) {
  auto* dst = bench::array<C>(rowSize);
  auto *re = bench::array<T>(rowSize), *im = bench::array<T>(rowSize);
  workload(name, rowSize).zors([=] { f(re, im, dst, int(rowSize)); }).bound(streams(sizeof(C), sizeof(C)));
}

#define ROW(name, ...) row(#name, name __VA_OPT__(, ) __VA_ARGS__)
void others() {
  ROW(zorsConvert_8s16s);
  ROW(zorsConvert_8s32f);
  ROW(zorsConvert_8u32f);
  ROW(zorsConvert_16s32s);
  ROW(zorsConvert_16u32f);
  ROW(zorsConvert_32s32f);
  ROW(zorsConvert_32s64f);
  ROW(zorsConvert_32f64f);
  ROW(zorsConvert_64f32f);
  ROW(zorsConvert_64s64f);
  ROW(zorsConvert_32s16s);
  ROW(zorsConvert_24s32f, 3);
  ROW(zorsConvert_24s32s, 3);
  ROW(zorsConvert_24u32f, 3);
  ROW(zorsConvert_24u32u, 3);
  ROW(zorsConvert_16s32f_Sfs);
  ROW(zorsConvert_16s64f_Sfs);
  ROW(zorsConvert_32s32f_Sfs);
  ROW(zorsConvert_32s64f_Sfs);
  ROW(zorsConvert_32s16s_Sfs);
  ROW(zorsConvert_32f24s_Sfs, 4, 3);
  ROW(zorsConvert_32f24u_Sfs, 4, 3);
  ROW(zorsConvert_32s24s_Sfs, 4, 3);
  ROW(zorsConvert_32u24u_Sfs, 4, 3);
  ROW(zorsConvert_32f8s_Sfs);
  ROW(zorsConvert_32f8u_Sfs);
  ROW(zorsConvert_32f16u_Sfs);
  ROW(zorsConvert_32f32s_Sfs);
  ROW(zorsConvert_64f16s_Sfs);
  ROW(zorsConvert_64f32s_Sfs);
  ROW(zorsConvert_64f64s_Sfs);
  ROW(zorsConvert_64s32s_Sfs);
  ROW(zorsConvert_16s8s_Sfs);
  ROW(zorsConvert_16f32f);
  ROW(zorsConvert_16f16s_Sfs);
  row(
      "zorsConvert_32f16f", +[](const Zor32f* s, Zor16f* d, Zor32s len) { return zorsConvert_32f16f(s, d, len, 1); });
  row(
      "zorsConvert_16s16f", +[](const Zor16s* s, Zor16f* d, Zor32s len) { return zorsConvert_16s16f(s, d, len, 1); });
  ROW(zorsReal_16sc);
  ROW(zorsReal_32fc);
  ROW(zorsImag_64fc);
  ROW(zorsConj_16sc);
  ROW(zorsConj_32fc);
  ROW(zorsConjFlip_32fc);
  ROW(zorsConjFlip_64fc);
  splitRow("zorsCplxToReal_16sc", zorsCplxToReal_16sc);
  splitRow("zorsCplxToReal_32fc", zorsCplxToReal_32fc);
  splitRow("zorsCplxToReal_64fc", zorsCplxToReal_64fc);
  joinRow("zorsRealToCplx_16s", zorsRealToCplx_16s);
  joinRow("zorsRealToCplx_32f", zorsRealToCplx_32f);
  joinRow("zorsRealToCplx_64f", zorsRealToCplx_64f);
  row(
      "zorsNormalize_32f", +[](const Zor32f* s, Zor32f* d, Zor32s len) { return zorsNormalize_32f(s, d, len, 1, 2); });
  row(
      "zorsNormalize_64fc", +[](const Zor64fc* s, Zor64fc* d, Zor32s len) {
        return zorsNormalize_64fc(s, d, len, {1, 1}, 2);
      });
  row(
      "zorsNormalize_16s_Sfs",
      +[](const Zor16s* s, Zor16s* d, Zor32s len) { return zorsNormalize_16s_Sfs(s, d, len, 1, 2, 0); });
}
#undef ROW

// Two channels to and from interleaved samples, and bits packed 7 an element.
void channels() {
  static Zor32f* planes[2] = {bench::array<Zor32f>(rowSize), bench::array<Zor32f>(rowSize)};
  auto* samples = bench::array<Zor16s>(2 * rowSize);
  workload("zorsJoinScaled_32f16s_D2L, 2 channels", rowSize)
      .zors([=] { zorsJoinScaled_32f16s_D2L(planes, 2, int(rowSize), samples); })
      .bound(streams(8, 4));
  workload("zorsSplitScaled_16s32f_D2L, 2 channels", rowSize)
      .zors([=] { zorsSplitScaled_16s32f_D2L(samples, planes, 2, int(rowSize)); })
      .bound(streams(4, 8));
}

const bench::Registration registrations[] = {bench::Registration(mostUsed), bench::Registration(others),
                                             bench::Registration(channels)};

}  // namespace
