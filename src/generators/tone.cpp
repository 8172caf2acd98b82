// zorsTone_Direct_*: sinusoids by recurrence.
#include <algorithm>
#include <cstring>

#include "exports/conversion.h"
#include "exports/generators.h"
#include "frame/by_type.h"
#include "frame/check.h"
#include "generators/indexed.h"
#include "generators/periodic.h"

namespace zors {
namespace {

using namespace simd;
using namespace generators;

// magnitude * cos(phase + n * w); of complex elements that is the real part, with the sine in the imaginary one.
struct Sinusoid {
  Zor64f magnitude, w, phase;
};
template <class D> inline constexpr int partsOf = Complex<D> ? 2 : 1;

// ---- Accurate -----------------------------------------------------------------------------------

// Two elements from lanes that hold them in memory order, cut toward zero and saturated to integers.
template <class D> ZORS_INLINE void storeTwo(D* dst, Vec<Zor64f, 4> x) {
  const auto stored = [&](auto y) ZORS_INLINE_LAMBDA { std::memcpy(dst, &y, 2 * sizeof(D)); };
  if constexpr (std::is_same_v<Part<D>, Zor64f>)
    stored(x.r[0]);
  else if constexpr (std::is_same_v<Part<D>, Zor32f>)
    stored(_mm256_cvtpd_ps(x.r[0]));
  else {
    const __m128i integers = _mm256_cvttpd_epi32(x.r[0]);
    stored(_mm_packs_epi32(integers, integers));
  }
}

// From the first two elements x[n] = 2 cos(w) x[n - 1] - x[n - 2] gives two more, and two chains of every other element
// all others: x[n] = 2 cos(2 w) x[n - 2] - x[n - 4]. One vector holds two elements, of which real ones use half.
template <class D> [[gnu::flatten]] void accurateTone(const Sinusoid& s, D* dst, Zor32s len) {
  using V = Vec<Zor64f, 4>;
  const auto at = [&](Zor64f angle) {
    return Zor64fc{s.magnitude * std::cos(angle), Complex<D> ? s.magnitude * std::sin(angle) : 0.0};
  };
  const auto pair = [](Zor64fc a, Zor64fc b) {
    return V{{Complex<D> ? _mm256_setr_pd(a.re, a.im, b.re, b.im) : _mm256_setr_pd(a.re, b.re, 0.0, 0.0)}};
  };
  const Zor64f k = 2 * std::cos(s.w);
  const auto next = [&](Zor64fc a, Zor64fc b) {
    return Zor64fc{std::fma(k, b.re, -a.re), Complex<D> ? std::fma(k, b.im, -a.im) : 0.0};
  };
  const Zor64fc x0 = at(s.phase), x1 = at(s.phase + s.w), x2 = next(x0, x1), x3 = next(x1, x2);
  const V factor = splat<V>(std::fma(k, k, -2.0));
  V x = pair(x0, x1), ahead = pair(x2, x3);
  for (; len >= 2; len -= 2, dst += 2) {
    storeTwo(dst, x);
    const V further = fms(factor, ahead, x);
    x = ahead;
    ahead = further;
  }
  if (len == 1) {
    D last[2];
    storeTwo(last, x);
    *dst = last[0];
  }
}

// ---- Fast ---------------------------------------------------------------------------------------

// Blocks of elements whose parts are computed in F. A block restarts from cosines; binary64 recurrences give its first
// two vectors, and x[n] = 2 cos(step * w) x[n - step] - x[n - 2 step] all others, a vector at a time. That chain has
// the latency of a multiply-add, so four registers of independent blocks run side by side.
template <class F, int parts> class FastTone {
 public:
  static constexpr int step = lanesOf<F>, block = sizeof(F) == 4 ? 1024 : 2048, group = 4 / parts;

  explicit FastTone(const Sinusoid& sinusoid) : s_(sinusoid), k_(2 * std::cos(s_.w)), k2_(doubled(k_)) {
    const Zor64f k4 = doubled(k2_);
    factor_ = static_cast<F>(step == 4 ? k4 : doubled(k4));
  }

  // len elements from index `first` on, which starts a block.
  void run(Zor32s first, F* dst, std::ptrdiff_t len) {
    std::ptrdiff_t at = 0;
    for (; len - at >= group * block; at += group * block) {
      seed(first + at);
      blocks<group>(dst + at * parts, block);
    }
    for (; at < len; at += block) {
      seed(first + at);
      blocks<1>(dst + at * parts, int(std::min<std::ptrdiff_t>(block, len - at)));
    }
  }

 private:
  using V = Vec<Zor64f, 4>;  // an element of each block of a group, part beside part
  static constexpr int seeds = 2 * step;

  static Zor64f doubled(Zor64f k) { return std::fma(k, k, -2.0); }  // 2 cos(2 a) from 2 cos(a)

  // The C library's cosines where their bits show.
  ZORS_INLINE V start(V angle) const {
    V cosines, sines;
    if constexpr (sizeof(F) == 4) {
      cosines = circular<Circular::cosine>(angle);
      sines = parts == 2 ? circular<Circular::sine>(angle) : cosines;
    } else {
      const auto all = same(angle, -1.0);
      cosines = replaceLanes(
          angle, all, [](Zor64f a) { return std::cos(a); }, angle);
      sines = parts == 2 ? replaceLanes(
                               angle, all, [](Zor64f a) { return std::sin(a); }, angle)
                         : cosines;
    }
    return mul(V{{_mm256_blend_pd(cosines.r[0], sines.r[0], 0xA)}}, same(angle, s_.magnitude));
  }
  [[gnu::flatten]] void seed(std::ptrdiff_t first) {
    const auto n = static_cast<Zor64f>(first);
    const V index{{parts == 2 ? _mm256_setr_pd(n, n, n + block, n + block)
                              : _mm256_setr_pd(n, n + block, n + 2 * block, n + 3 * block)}};
    const auto w = same(index, s_.w), phase = same(index, s_.phase);
    const auto k = same(index, k_), k2 = same(index, k2_);
    V x[4];
    x[0] = start(fma(index, w, phase));
    x[1] = start(fma(add(index, same(index, 1.0)), w, phase));
    x[2] = fms(k, x[1], x[0]);
    x[3] = fms(k, x[2], x[1]);
    for (int i = 0;; i += 4) {
      distribute(x, i);
      if (i + 4 == seeds) return;
      x[0] = fms(k2, x[2], x[0]);
      x[1] = fms(k2, x[3], x[1]);
      x[2] = fms(k2, x[0], x[2]);
      x[3] = fms(k2, x[1], x[3]);
    }
  }
  // Four elements of each block to its seeds.
  ZORS_INLINE void distribute(const V (&x)[4], int i) {
    const auto halves = [](V a, V b, auto which)
                            ZORS_INLINE_LAMBDA { return V{{_mm256_permute2f128_pd(a.r[0], b.r[0], which)}}; };
    const std::integral_constant<int, 0x20> low;
    const std::integral_constant<int, 0x31> high;
    if constexpr (parts == 2) {
      keep(0, 2 * i, halves(x[0], x[1], low));
      keep(0, 2 * i + 4, halves(x[2], x[3], low));
      keep(1, 2 * i, halves(x[0], x[1], high));
      keep(1, 2 * i + 4, halves(x[2], x[3], high));
    } else {
      const V even01{{_mm256_unpacklo_pd(x[0].r[0], x[1].r[0])}}, odd01{{_mm256_unpackhi_pd(x[0].r[0], x[1].r[0])}};
      const V even23{{_mm256_unpacklo_pd(x[2].r[0], x[3].r[0])}}, odd23{{_mm256_unpackhi_pd(x[2].r[0], x[3].r[0])}};
      keep(0, i, halves(even01, even23, low));
      keep(1, i, halves(odd01, odd23, low));
      keep(2, i, halves(even01, even23, high));
      keep(3, i, halves(odd01, odd23, high));
    }
  }
  ZORS_INLINE void keep(int ofBlock, int at, V x) {
    if constexpr (sizeof(F) == 4)
      _mm_store_ps(&seeds_[ofBlock][at], _mm256_cvtpd_ps(x.r[0]));
    else
      store(&seeds_[ofBlock][at], x);
  }

  // n elements of each of `count` blocks; several blocks are whole ones.
  template <int count> [[gnu::flatten]] void blocks(F* dst, int n) const {
    using W = Vec<F, count * parts * step>;  // register i belongs to block i / parts
    if (n < seeds) {
      std::copy_n(seeds_[0], n * parts, dst);
      return;
    }
    const auto load2 = [&](int from) ZORS_INLINE_LAMBDA {
      return build<W>([&](auto i)
                          ZORS_INLINE_LAMBDA { return load<step>(&seeds_[i / parts][from + i % parts * step]).r[0]; });
    };
    const auto store2 = [&](int at, W x) ZORS_INLINE_LAMBDA {
      unrolled<W::registers>([&](auto i) ZORS_INLINE_LAMBDA {
        store(dst + (i / parts * block + at) * parts + i % parts * step, Vec<F, step>{{x.r[i]}});
      });
    };
    W x = load2(0), ahead = load2(step * parts);
    store2(0, x);
    store2(step, ahead);
    const W factor = splat<W>(factor_);
    int i = seeds;
    for (; i <= n - step; i += step) {
      const W further = fms(factor, ahead, x);
      store2(i, further);
      x = ahead;
      ahead = further;
    }
    if constexpr (count == 1) {
      if (i < n) storePart(dst + i * parts, fms(factor, ahead, x), (n - i) * parts);
    }
  }

  Sinusoid s_;
  Zor64f k_, k2_;
  F factor_;
  alignas(32) F seeds_[group][seeds * parts];
};

template <class D> void fastTone(const Sinusoid& s, D* dst, Zor32s len) {
  constexpr int parts = partsOf<D>;
  if constexpr (std::is_floating_point_v<Part<D>>) {
    FastTone<Part<D>, parts>(s).run(0, components(dst), len);
  } else {  // in pieces through binary32
    FastTone<Zor32f, parts> tone(s);
    constexpr Zor32s piece = tone.group * tone.block;
    alignas(32) Zor32f samples[piece * parts];
    for (Zor32s at = 0; at < len;) {
      const Zor32s count = std::min(piece, len - at);
      tone.run(at, samples, count);
      zors::zorsConvert_32f16s_Sfs(samples, components(dst + at), count * parts, zorRoundTowardZero, 0);
      at += count;
    }
  }
}

// ---- Shapes -------------------------------------------------------------------------------------

// The phase is tested before dst and len, and written before the samples.
template <class D, class M, class F>
ZorStatus tone(D* dst, Zor32s len, M magnitude, F rFreq, F* phase, ZorHintAlgorithm hint) {
  return check()
      .pointers(phase)
      .require(magnitude > 0, zorStatusBadToneMagnitude)
      .require(!outsideBand(rFreq), zorStatusBadToneFrequency)
      .then([&] {
        const F from = *phase;
        return check().require(!outsideCircle(from), zorStatusBadTonePhase).pointers(dst).size(len).then([&] {
          const Sinusoid sinusoid{static_cast<Zor64f>(magnitude), twoPi * Zor64f{rFreq}, Zor64f{from}};
          *phase = advancedPhase(from, sinusoid.w, len);
          if (hint == zorAlgHintFast)
            fastTone(sinusoid, dst, len);
          else
            accurateTone(sinusoid, dst, len);
        });
      });
}

}  // namespace

// clang-format off
#define TONE(name, T, M, F) ZorStatus name(T* dst, Zor32s len, M magnitude, F rFreq, F* phase, ZorHintAlgorithm hint) { return tone(dst, len, magnitude, rFreq, phase, hint); }
TONE(zorsTone_Direct_16s, Zor16s, Zor16s, Zor32f)
TONE(zorsTone_Direct_16sc, Zor16sc, Zor16s, Zor32f)
TONE(zorsTone_Direct_32f, Zor32f, Zor32f, Zor32f)
TONE(zorsTone_Direct_32fc, Zor32fc, Zor32f, Zor32f)
TONE(zorsTone_Direct_64f, Zor64f, Zor64f, Zor64f)
TONE(zorsTone_Direct_64fc, Zor64fc, Zor64f, Zor64f)
#undef TONE
// clang-format on

}  // namespace zors
