// IIR filters beside a plain loop of the transposed form and liquid-dsp's iirfilt. The bound is the arithmetic of that
// loop, 5 multiply-adds a section or 2 N + 1 of an order, in whole vectors: what no recursion allows within one stream.
#include <cmath>
#include <string>
#include <vector>

#include "kit/bench.h"
#include "zors/iir.h"

#ifdef HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

using bench::workload;
constexpr int len = 1000;

// Resonators of a gentle kind, different from each other.
template <class T> std::vector<T> sectionTaps(int sections) {
  std::vector<T> taps;
  for (int s = 0; s < sections; ++s) {
    const double angle = 0.2 + 0.4 * s, radius = 0.9;
    for (double tap : {0.5, 0.2, 0.1, 1.0, -2 * radius * std::cos(angle), radius * radius}) taps.push_back(T(tap));
  }
  return taps;
}
// A product of such sections as one polynomial.
template <class T> std::vector<T> polynomialTaps(int order) {
  std::vector<double> b{1}, a{1};
  for (int s = 0; s < order / 2; ++s) {
    const double angle = 0.2 + 0.4 * s, radius = 0.8;
    const auto times = [](std::vector<double>& p, double c1, double c2) {
      p.resize(p.size() + 2);
      for (std::size_t i = p.size() - 1; i > 0; --i) p[i] += c1 * p[i - 1] + (i > 1 ? c2 * p[i - 2] : 0);
    };
    times(b, 0.4, 0.2);
    times(a, -2 * radius * std::cos(angle), radius * radius);
  }
  std::vector<T> taps(b.begin(), b.end());
  taps.insert(taps.end(), a.begin(), a.end());
  return taps;
}
template <class T> T* noise(long count) {
  T* x = bench::array<T>(count);
  unsigned seed = 1;
  const auto next = [&] { return (seed = seed * 1664525 + 1013904223) >> 16; };
  for (long i = 0; i < count; ++i) {
    if constexpr (requires { x[i].re; })
      x[i] = {decltype(T::re)(int(next() % 2001) - 1000), decltype(T::re)(int(next() % 2001) - 1000)};
    else
      x[i] = T(int(next() % 2001) - 1000);
  }
  return x;
}

// Complex numbers as the plain loop multiplies them.
template <class T> struct Pair {
  T re, im;
  friend Pair operator+(Pair a, Pair b) { return {a.re + b.re, a.im + b.im}; }
  friend Pair operator-(Pair a, Pair b) { return {a.re - b.re, a.im - b.im}; }
  friend Pair operator*(Pair a, Pair b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
};

// The plain loop: the transposed form, section by section for each sample.
template <class T> [[gnu::noinline]] void loop(const T* taps, int sections, T* d, const T* x, T* y, int n) {
  for (int i = 0; i < n; ++i) {
    T v = x[i];
    for (int s = 0; s < sections; ++s) {
      const T *t = taps + 6 * s, out = t[0] * v + d[2 * s];
      d[2 * s] = t[1] * v - t[4] * out + d[2 * s + 1];
      d[2 * s + 1] = t[2] * v - t[5] * out;
      v = out;
    }
    y[i] = v;
  }
}
template <class T> [[gnu::noinline]] void polynomialLoop(const T* taps, int order, T* d, const T* x, T* y, int n) {
  const T *b = taps, *a = taps + order + 1;
  for (int i = 0; i < n; ++i) {
    const T out = b[0] * x[i] + d[0];
    for (int k = 0; k < order; ++k) d[k] = d[k + 1] + b[k + 1] * x[i] - a[k + 1] * out;
    y[i] = out;
  }
}

template <class T> T* copied(const std::vector<T>& values) {
  T* p = bench::array<T>(long(values.size()));
  std::copy(values.begin(), values.end(), p);
  return p;
}
template <class T> T* zeros(int count) {
  T* p = bench::array<T>(count);
  std::fill_n(p, count, T{});
  return p;
}

template <class T, class InitAlloc, class Run>
bench::Workload cascade(const char* name, int sections, int n, InitAlloc initAlloc, Run run) {
  const T *taps = copied(sectionTaps<T>(sections)), *x = noise<T>(n);
  T* y = bench::array<T>(n);
  T* d = zeros<T>(2 * sections);
  ZorIIRState* state = nullptr;
  initAlloc(&state, taps, sections, nullptr);
  auto w = workload(std::string(name) + " " + std::to_string(sections) + " sections", n);
  w.zors([=] { run(x, y, n, state); }).peer("loop", [=] { loop(taps, sections, d, x, y, n); });
  w.bound(bench::fmas(5.0 * sections, 32 / int{sizeof(T)}));
  return w;
}
void cascades() {
  for (int sections : {1, 2, 4, 8})
    for (int n : {64, len, 100'000}) {
      if (n != len && sections != 1 && sections != 4) continue;
      auto w = cascade<Zor32f>("zorsIIR_32f", sections, n, zorsIIRInitAlloc_BiQuad_32f, zorsIIR_32f);
#ifdef HAVE_LIQUID
      const auto taps = sectionTaps<float>(sections);
      std::vector<float> b, a;
      for (int s = 0; s < sections; ++s)
        for (int k = 0; k < 3; ++k) {
          b.push_back(taps[std::size_t(6 * s + k)]);
          a.push_back(taps[std::size_t(6 * s + 3 + k)]);
        }
      iirfilt_rrrf liquid = iirfilt_rrrf_create_sos(b.data(), a.data(), unsigned(sections));
      float *x = noise<float>(n), *y = bench::array<float>(n);
      w.peer("liquid-dsp", [=] { iirfilt_rrrf_execute_block(liquid, x, unsigned(n), y); });
#endif
    }
  for (int sections : {1, 4}) {
    cascade<Zor32f>("zorsIIR_32f first form", sections, len, zorsIIRInitAlloc_BiQuad_DF1_32f, zorsIIR_32f);
    cascade<Zor64f>("zorsIIR_64f", sections, len, zorsIIRInitAlloc_BiQuad_64f, zorsIIR_64f);
  }
}

void polynomials() {
  for (int order : {1, 2, 4, 8, 16}) {
    const auto values = polynomialTaps<Zor32f>(std::max(order, 2));
    Zor32f* taps = copied(order > 1 ? values : std::vector<Zor32f>{1, 0.5f, 1, -0.5f});
    const Zor32f* x = noise<Zor32f>(len);
    Zor32f* y = bench::array<Zor32f>(len);
    Zor32f* d = zeros<Zor32f>(order + 1);
    ZorIIRState* state = nullptr;
    zorsIIRInitAlloc_32f(&state, taps, order, nullptr);
    workload("zorsIIR_32f order " + std::to_string(order), len)
        .zors([=] { zorsIIR_32f(x, y, len, state); })
        .peer("loop", [=] { polynomialLoop(taps, order, d, x, y, len); })
        .bound(bench::fmas(2 * order + 1, 8));
  }
}

constexpr Zor32s scales[8] = {};
template <class T, class InitAlloc, class Run>
void channels(const char* name, int count, int sections, InitAlloc initAlloc, Run run) {
  const auto real = sectionTaps<Zor64f>(sections);
  auto** srcs = new const T*[std::size_t(count)];
  auto** dsts = new T*[std::size_t(count)];
  auto** states = new ZorIIRState*[std::size_t(count)];
  for (int c = 0; c < count; ++c) {
    srcs[c] = noise<T>(len);
    dsts[c] = bench::array<T>(len);
    initAlloc(&states[c], real, sections);
  }
  const Zor32f *taps = copied(sectionTaps<Zor32f>(sections)), *x = noise<Zor32f>(len);
  Zor32f *d = zeros<Zor32f>(2 * sections), *y = bench::array<Zor32f>(len);
  workload(std::string(name) + " " + std::to_string(count) + " channels, " + std::to_string(sections) + " sections",
           count * len)
      .zors([=] { run(srcs, dsts, count, states); })
      .peer("loop in 32f",
            [=] {
              for (int c = 0; c < count; ++c) loop(taps, sections, d, x, y, len);
            })
      .bound(bench::fmas(5.0 * sections, sizeof(T) == 4 && std::is_floating_point_v<T> ? 8 : 4));
}
void channels() {
  const auto init32f = [](auto initAlloc) {
    return [=](ZorIIRState** state, const std::vector<Zor64f>& real, int sections) {
      const std::vector<Zor32f> taps(real.begin(), real.end());
      initAlloc(state, taps.data(), sections, nullptr);
    };
  };
  const auto init64f = [](ZorIIRState** state, const std::vector<Zor64f>& taps, int sections) {
    zorsIIRInitAlloc64f_BiQuad_32s(state, taps.data(), sections, nullptr);
  };
  const auto run32f = [](auto srcs, auto dsts, int count, auto states) {
    zorsIIR_32f_P(srcs, dsts, len, count, states);
  };
  for (int count : {2, 4, 8, 12})
    channels<Zor32f>("zorsIIR_32f_P", count, 4, init32f(zorsIIRInitAlloc_BiQuad_32f), run32f);
  channels<Zor32f>("zorsIIR_32f_P first form", 8, 4, init32f(zorsIIRInitAlloc_BiQuad_DF1_32f), run32f);
  channels<Zor32s>("zorsIIR64f_32s_PSfs", 8, 4, init64f, [](auto srcs, auto dsts, int count, auto states) {
    zorsIIR64f_32s_PSfs(srcs, dsts, len, count, states, scales);
  });
}

// Other forms with four sections, beside the plain loop in their arithmetic and the same taps in that arithmetic's own
// samples.
template <class Tap, class Sample, class InitAlloc, class Run, class OwnInitAlloc, class OwnRun>
void form(const char* name, InitAlloc initAlloc, Run run, OwnInitAlloc ownInitAlloc, OwnRun ownRun) {
  constexpr int sections = 4;
  const auto real = sectionTaps<double>(sections);
  auto* taps = bench::array<Tap>(long(real.size()));
  for (std::size_t i = 0; i < real.size(); ++i) {
    if constexpr (requires { taps[i].re; })
      taps[i] = {decltype(Tap::re)(real[i]), 0};
    else
      taps[i] = Tap(real[i]);
  }
  const Sample* x = noise<Sample>(len);
  Sample* y = bench::array<Sample>(len);
  const Tap* ownX = noise<Tap>(len);
  Tap* ownY = bench::array<Tap>(len);
  ZorIIRState *state = nullptr, *own = nullptr;
  initAlloc(&state, taps, sections, nullptr);
  ownInitAlloc(&own, taps, sections, nullptr);
  auto w = workload(std::string(name) + " 4 sections", len);
  w.zors([=] { run(x, y, len, state); });
  if constexpr (!std::is_same_v<Tap, Sample>) w.peer("its arithmetic's form", [=] { ownRun(ownX, ownY, len, own); });
  if constexpr (requires { taps->re; }) {
    using Z = Pair<decltype(Tap::re)>;
    Z* d = reinterpret_cast<Z*>(zeros<Tap>(2 * sections));
    w.peer("loop", [=] {
      loop(reinterpret_cast<const Z*>(taps), sections, d, reinterpret_cast<const Z*>(ownX), reinterpret_cast<Z*>(ownY),
           len);
    });
    w.bound(bench::fmas(20.0 * sections, 64 / int{sizeof(Tap)}));
  } else {
    Tap* d = zeros<Tap>(2 * sections);
    w.peer("loop", [=] { loop(taps, sections, d, ownX, ownY, len); });
    w.bound(bench::fmas(5.0 * sections, 32 / int{sizeof(Tap)}));
  }
}
void forms() {
  const auto scaled = [](auto run) { return [=](auto* x, auto* y, int n, auto* s) { return run(x, y, n, s, 2); }; };
  const auto in32f = [&]<class Sample>(Sample, const char* name, auto initAlloc, auto run) {
    form<Zor32f, Sample>(name, initAlloc, run, zorsIIRInitAlloc_BiQuad_32f, zorsIIR_32f);
  };
  const auto in64f = [&]<class Sample>(Sample, const char* name, auto initAlloc, auto run) {
    form<Zor64f, Sample>(name, initAlloc, run, zorsIIRInitAlloc_BiQuad_64f, zorsIIR_64f);
  };
  const auto in32fc = [&]<class Sample>(Sample, const char* name, auto initAlloc, auto run) {
    form<Zor32fc, Sample>(name, initAlloc, run, zorsIIRInitAlloc_BiQuad_32fc, zorsIIR_32fc);
  };
  in32f(Zor16s{}, "zorsIIR32f_16s_Sfs", zorsIIRInitAlloc32f_BiQuad_16s, scaled(zorsIIR32f_16s_Sfs));
  in64f(Zor16s{}, "zorsIIR64f_16s_Sfs", zorsIIRInitAlloc64f_BiQuad_16s, scaled(zorsIIR64f_16s_Sfs));
  in64f(Zor32s{}, "zorsIIR64f_32s_Sfs", zorsIIRInitAlloc64f_BiQuad_32s, scaled(zorsIIR64f_32s_Sfs));
  in64f(Zor32f{}, "zorsIIR64f_32f", zorsIIRInitAlloc64f_BiQuad_32f, zorsIIR64f_32f);
  in32fc(Zor32fc{}, "zorsIIR_32fc", zorsIIRInitAlloc_BiQuad_32fc, zorsIIR_32fc);
  in32fc(Zor16sc{}, "zorsIIR32fc_16sc_Sfs", zorsIIRInitAlloc32fc_BiQuad_16sc, scaled(zorsIIR32fc_16sc_Sfs));
  form<Zor64fc, Zor64fc>("zorsIIR_64fc", zorsIIRInitAlloc_BiQuad_64fc, zorsIIR_64fc, zorsIIRInitAlloc_BiQuad_64fc,
                         zorsIIR_64fc);
}

void single() {
  for (int sections : {1, 4}) {
    const Zor32f* taps = copied(sectionTaps<Zor32f>(sections));
    Zor32f *d = zeros<Zor32f>(2 * sections), *y = bench::array<Zor32f>(1);
    ZorIIRState* state = nullptr;
    zorsIIRInitAlloc_BiQuad_32f(&state, taps, sections, nullptr);
    workload("zorsIIROne_32f " + std::to_string(sections) + " sections", 1)
        .zors([=] { zorsIIROne_32f(*y, y, state); })
        .peer("loop", [=] { loop(taps, sections, d, y, y, 1); });
    workload("zorsIIRSetTaps_32f " + std::to_string(sections) + " sections", sections).zors([=] {
      zorsIIRSetTaps_32f(taps, state);
    });
  }
  const Zor16s* taps = copied(std::vector<Zor16s>{8192, 4096, 2048, 14, -8192, 4096});
  const Zor16s* x = noise<Zor16s>(len);
  Zor16s* y = bench::array<Zor16s>(len);
  Zor32s* dly = zeros<Zor32s>(2);
  workload("zorsIIR_BiQuadDirect_16s 1 section", len).zors([=] { zorsIIR_BiQuadDirect_16s(x, y, len, taps, 1, dly); });
  workload("zorsIIROne_BiQuadDirect_16s 1 section", 1).zors([=] { zorsIIROne_BiQuadDirect_16s(5, y, taps, 1, dly); });
}

const bench::Registration registered[] = {bench::Registration(cascades), bench::Registration(polynomials),
                                          bench::Registration([] { channels(); }), bench::Registration(forms),
                                          bench::Registration(single)};

}  // namespace
