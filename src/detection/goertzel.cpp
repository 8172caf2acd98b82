// zorsGoertz_*, zorsGoertzTwo_*, zorsGoertzQ15_*, zorsGoertzTwoQ15_*: single bins of the Fourier transform.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "exports/detection.h"
#include "frame/check.h"
#include "frame/scale.h"
#include "frame/simd.h"

namespace zors {
namespace {

using namespace simd;

template <class S> using Real = std::conditional_t<std::is_same_v<Part<S>, Zor64f>, Zor64f, Zor32f>;

// Two registers of lanes hide the latency of the rotation, and two bins fit beside each other.
template <class T> inline constexpr int goertzelLanes = 2 * lanesOf<T>;

// The parts of L samples as floats; real samples have one.
template <class T, int L> struct Samples { Vec<T, L> re, im; };
template <int L, class S> ZORS_INLINE auto loadSamples(const S* src) {
  const auto x = load<L>(src);
  if constexpr (std::is_same_v<S, Zor16s>)
    return toFloat(x);
  else if constexpr (std::is_same_v<S, Zor16sc>)
    return Samples<Zor32f, L>{toFloat(wideReal(x)), toFloat(wideImag(x))};
  else if constexpr (std::is_same_v<S, Part<S>>)
    return x;
  else
    return Samples<Part<S>, L>{realPart(x), imagPart(x)};
}

struct Rotation {  // cosine - i sine
  Zor64f cosine, sine;
  Rotation squared() const { return {1 - 2 * sine * sine, 2 * sine * cosine}; }
  Rotation times(Rotation r) const { return {cosine * r.cosine - sine * r.sine, sine * r.cosine + cosine * r.sine}; }
};

// Lane k sums the samples k, k + L, k + 2 L, ... by Horner's rule from the last one on.
template <class T> class Bin {
 public:
  static constexpr int L = goertzelLanes<T>;

  explicit Bin(Zor64f rFreq) {
    const Zor64f w = 6.283185307179586 * rFreq;
    one_ = {std::cos(w), std::sin(w)};
    Rotation step = one_;
    for (int turns = 1; turns < L; turns *= 2) step = step.squared();
    cosine_ = splat<Vec<T, L>>(static_cast<T>(step.cosine));
    sine_ = splat<Vec<T, L>>(static_cast<T>(step.sine));
    re_ = im_ = splat<Vec<T, L>>(0);
  }

  ZORS_INLINE void add(Vec<T, L> x) { set(fma(sine_, im_, fma(cosine_, re_, x)), fnma(sine_, re_, mul(cosine_, im_))); }
  ZORS_INLINE void add(Samples<T, L> x) {
    set(fma(sine_, im_, fma(cosine_, re_, x.re)), fnma(sine_, re_, fma(cosine_, im_, x.im)));
  }

  // The lanes joined, each with its own power of the rotation: the registers of four first, then the four.
  Zor64fc sum() const {
    const Rotation two = one_.squared(), three = two.times(one_), four = two.squared();
    const auto re = wide(re_), im = wide(im_);
    constexpr int last = Vec<Zor64f, L>::registers - 1;
    Vec<Zor64f, 4> sumRe = {{re.r[last]}}, sumIm = {{im.r[last]}};
    const auto cosine = same(sumRe, four.cosine), sine = same(sumRe, four.sine);
    for (int i = last - 1; i >= 0; --i) {
      const Vec<Zor64f, 4> nextRe = fma(sine, sumIm, fma(cosine, sumRe, Vec<Zor64f, 4>{{re.r[i]}}));
      sumIm = fnma(sine, sumRe, fma(cosine, sumIm, Vec<Zor64f, 4>{{im.r[i]}}));
      sumRe = nextRe;
    }
    const Vec<Zor64f, 4> cosines = {{_mm256_setr_pd(1, one_.cosine, two.cosine, three.cosine)}},
                         sines = {{_mm256_setr_pd(0, one_.sine, two.sine, three.sine)}};
    return {sumOfLanes(fma(sines, sumIm, mul(cosines, sumRe))), sumOfLanes(fnma(sines, sumRe, mul(cosines, sumIm)))};
  }

 private:
  ZORS_INLINE void set(Vec<T, L> re, Vec<T, L> im) {
    re_ = re;
    im_ = im;
  }
  static Vec<Zor64f, L> wide(Vec<Zor32f, L> x) { return toDouble(x); }
  static Vec<Zor64f, L> wide(Vec<Zor64f, L> x) { return x; }

  Rotation one_;
  Vec<T, L> cosine_, sine_, re_, im_;
};

// Samples past a multiple of L start the lanes, with zeros behind them.
template <class S, class... Bins> [[gnu::flatten]] void addAll(const S* src, Zor32s len, Bins&... bin) {
  constexpr Zor32s L = goertzelLanes<Real<S>>;
  const Zor32s whole = len - len % L;
  if (whole < len) {
    S rest[L] = {};
    std::memcpy(rest, src + whole, static_cast<std::size_t>(len - whole) * sizeof(S));
    const auto x = loadSamples<L>(rest);
    (bin.add(x), ...);
  }
  for (Zor32s at = whole - L; at >= 0; at -= L) {
    const auto x = loadSamples<L>(src + at);
    (bin.add(x), ...);
  }
}
template <class S> Zor64fc binOf(const S* src, Zor32s len, Zor64f rFreq) {
  Bin<Real<S>> bin(rFreq);
  addAll(src, len, bin);
  return bin.sum();
}
template <class S> std::array<Zor64fc, 2> binsOf(const S* src, Zor32s len, Zor64f rFreq0, Zor64f rFreq1) {
  Bin<Real<S>> first(rFreq0), second(rFreq1);
  addAll(src, len, first, second);
  return {first.sum(), second.sum()};
}

template <class T> bool isFrequency(T rFreq) { return rFreq >= 0 && rFreq < 1; }

// The joined value in the type of the result.
struct Narrow {
  Zor32fc to(Zor64fc x, const Zor32fc*) const { return {static_cast<Zor32f>(x.re), static_cast<Zor32f>(x.im)}; }
  Zor64fc to(Zor64fc x, const Zor64fc*) const { return x; }
};
struct Scaled {  // to nearest whatever the caller's direction, saturated
  Zor32s scaleFactor;
  Zor16sc to(Zor64fc x, const Zor16sc*) const { return {part(x.re), part(x.im)}; }
  Zor16s part(Zor64f x) const {
    const Zor64f scaled = std::clamp(x * exactPower(scaleFactor), -32768.0, 32767.0);
    return static_cast<Zor16s>(
        _mm_cvtsd_si32(_mm_round_pd(_mm_set_sd(scaled), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC)));
  }
};

template <class S, class V, class F, class Result>
ZorStatus goertzel(const S* src, Zor32s len, V* val, F rFreq, Result result) {
  return check().pointers(src, val).size(len).require(isFrequency(rFreq), zorStatusBadRelativeFrequency).then([&] {
    *val = result.to(binOf(src, len, static_cast<Zor64f>(rFreq)), val);
  });
}
template <class S, class V, class F, class Result>
ZorStatus goertzelTwo(const S* src, Zor32s len, V* val, const F* rFreq, Result result) {
  return check().pointers(src, val, rFreq).size(len).then([&]() -> ZorStatus {
    if (!isFrequency(rFreq[0]) || !isFrequency(rFreq[1])) return zorStatusBadRelativeFrequency;
    const auto sums = binsOf(src, len, static_cast<Zor64f>(rFreq[0]), static_cast<Zor64f>(rFreq[1]));
    val[0] = result.to(sums[0], val);
    val[1] = result.to(sums[1], val);
    return zorStatusOk;
  });
}

Zor32f fromQ15(Zor16s x) { return static_cast<Zor32f>(x) * 0x1p-15f; }

}  // namespace

// clang-format off
ZorStatus zorsGoertz_32f (const Zor32f*  src, Zor32s len, Zor32fc* val, Zor32f rFreq) { return goertzel(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertz_32fc(const Zor32fc* src, Zor32s len, Zor32fc* val, Zor32f rFreq) { return goertzel(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertz_64f (const Zor64f*  src, Zor32s len, Zor64fc* val, Zor64f rFreq) { return goertzel(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertz_64fc(const Zor64fc* src, Zor32s len, Zor64fc* val, Zor64f rFreq) { return goertzel(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertz_16s_Sfs (const Zor16s*  src, Zor32s len, Zor16sc* val, Zor32f rFreq, Zor32s scaleFactor) { return goertzel(src, len, val, rFreq, Scaled{scaleFactor}); }
ZorStatus zorsGoertz_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, Zor32f rFreq, Zor32s scaleFactor) { return goertzel(src, len, val, rFreq, Scaled{scaleFactor}); }

ZorStatus zorsGoertzTwo_32f (const Zor32f*  src, Zor32s len, Zor32fc* val, const Zor32f* rFreq) { return goertzelTwo(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertzTwo_32fc(const Zor32fc* src, Zor32s len, Zor32fc* val, const Zor32f* rFreq) { return goertzelTwo(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertzTwo_64f (const Zor64f*  src, Zor32s len, Zor64fc* val, const Zor64f* rFreq) { return goertzelTwo(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertzTwo_64fc(const Zor64fc* src, Zor32s len, Zor64fc* val, const Zor64f* rFreq) { return goertzelTwo(src, len, val, rFreq, Narrow{}); }
ZorStatus zorsGoertzTwo_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, const Zor32f* rFreq, Zor32s scaleFactor) { return goertzelTwo(src, len, val, rFreq, Scaled{scaleFactor}); }
// clang-format on

// A frequency below 0 comes before everything that the other forms test.
ZorStatus zorsGoertzQ15_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, Zor16s rFreqQ15, Zor32s scaleFactor) {
  return check().require(rFreqQ15 >= 0, zorStatusBadRelativeFrequency).then([&] {
    return zors::zorsGoertz_16sc_Sfs(src, len, val, fromQ15(rFreqQ15), scaleFactor);
  });
}
ZorStatus zorsGoertzTwoQ15_16sc_Sfs(const Zor16sc* src, Zor32s len, Zor16sc* val, const Zor16s* rFreqQ15,
                                    Zor32s scaleFactor) {
  return check().pointers(rFreqQ15).then([&]() -> ZorStatus {
    if (rFreqQ15[0] < 0 || rFreqQ15[1] < 0) return zorStatusBadRelativeFrequency;
    const Zor32f rFreq[2] = {fromQ15(rFreqQ15[0]), fromQ15(rFreqQ15[1])};
    return zors::zorsGoertzTwo_16sc_Sfs(src, len, val, rFreq, scaleFactor);
  });
}

}  // namespace zors
