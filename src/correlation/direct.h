// Direct sums: out[i] = sum over k of taps(k) * x[k + lag + i], over those k from 0 to tapsLen - 1 for which the
// element of x is there. Elements that are not in the sum are not read, and nothing is padded: an infinity meets only
// its partners. Correlation and convolution differ in the order of their taps alone.
#pragma once

#include <array>

#include "frame/dot_kernels.h"

namespace zors {

// ---- Taps ---------------------------------------------------------------------------------------

template <class T> ZORS_INLINE T conjugateOf(T x) {
  if constexpr (Complex<T>)
    return {x.re, -x.im};
  else
    return x;
}
template <class T> struct ConjugateTaps {
  const T* first;
  ZORS_INLINE T operator()(std::ptrdiff_t k) const { return conjugateOf(first[k]); }
  ZORS_INLINE ConjugateTaps from(std::ptrdiff_t k) const { return {first + k}; }
};
template <class T> struct ReversedTaps {
  const T* last;
  ZORS_INLINE T operator()(std::ptrdiff_t k) const { return last[-k]; }
  ZORS_INLINE ReversedTaps from(std::ptrdiff_t k) const { return {last - k}; }
};

namespace direct {

using std::ptrdiff_t;

// ---- Sums of a tile -----------------------------------------------------------------------------

// The words of a register that `count` points at its low end fill, or all but those.
template <class T> ZORS_INLINE __m256i pointMask(int count, bool low) {
  alignas(64) static constexpr Zor32s window[24] = {-1, -1, -1, -1, -1, -1, -1, -1, 0,  0,  0,  0,
                                                    0,  0,  0,  0,  -1, -1, -1, -1, -1, -1, -1, -1};
  const int words = count * int{sizeof(T)} / 4;
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(window + (low ? 8 : 16) - words));
}

template <class T> using Register = simd::Vec<simd::Part<T>, simd::lanesOf<simd::Part<T>>>;
template <class T> ZORS_INLINE Register<T> loadPoints(const T* x) {
  return simd::load<Register<T>::lanes>(components(x));
}
template <class T> ZORS_INLINE Register<T> loadPoints(const T* x, __m256i mask) {
  return {
      {simd::fromBits<typename Register<T>::Register>(_mm256_maskload_epi32(reinterpret_cast<const int*>(x), mask))}};
}
template <class R> ZORS_INLINE R masked(R x, __m256i mask) {
  return {{simd::fromBits<typename R::Register>(_mm256_and_si256(simd::bits(x.r[0]), mask))}};
}

// `registers` of outputs: real ones, or complex ones as their sums with the real and with the imaginary parts of taps.
template <int registers, class T> struct Sums {
  using R = Register<T>;
  using Tap = R;
  R sum[registers];
  ZORS_INLINE Sums() {
    simd::unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA { sum[r] = simd::splat<R>(0); });
  }
  ZORS_INLINE static Tap spread(T tap) { return simd::splat<R>(tap); }
  ZORS_INLINE static Tap masked(Tap tap, __m256i mask) { return direct::masked(tap, mask); }
  template <class I> ZORS_INLINE void add(I r, Tap tap, R x) { sum[r] = fma(tap, x, sum[r]); }
  template <class V> ZORS_INLINE V plus(V full) const {
    return simd::build<V>([&](auto r) ZORS_INLINE_LAMBDA { return simd::add(R{{full.r[r]}}, sum[r]).r[0]; });
  }
};
template <int registers, Complex C> struct Sums<registers, C> {
  using R = Register<C>;
  struct Tap {
    R re, im;
  };
  R byRe[registers], byIm[registers];
  ZORS_INLINE Sums() {
    simd::unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA { byRe[r] = byIm[r] = simd::splat<R>(0); });
  }
  ZORS_INLINE static Tap spread(C tap) { return {simd::splat<R>(tap.re), simd::splat<R>(tap.im)}; }
  ZORS_INLINE static Tap masked(Tap tap, __m256i mask) {
    return {direct::masked(tap.re, mask), direct::masked(tap.im, mask)};
  }
  template <class I> ZORS_INLINE void add(I r, Tap tap, R x) {
    byRe[r] = fma(tap.re, x, byRe[r]);
    byIm[r] = fma(tap.im, x, byIm[r]);
  }
  template <class V> ZORS_INLINE V plus(V full) const {
    return simd::build<V>([&](auto r) ZORS_INLINE_LAMBDA {
      const auto edges = dot::ComplexArithmetic<C>::join(byRe[r].r[0], byIm[r].r[0]);
      return simd::add(R{{full.r[r]}}, R{{edges}}).r[0];
    });
  }
};

// ---- A tile -------------------------------------------------------------------------------------

// What a tile sums. x points at the element that tap 0 and output 0 meet; elements from xBegin to before xEnd are
// there.
template <class T, class Taps> struct Problem {
  Taps taps;
  ptrdiff_t tapsLen;
  const T* x;
  ptrdiff_t xBegin, xEnd;
};

// Few registers leave multiply-adds waiting for each other: two halves of the taps, side by side.
template <int registers, class T, class Taps>
ZORS_INLINE simd::Vec<T, registers * simd::lanesOf<T>> allMeet(Taps taps, ptrdiff_t count, const T* x) {
  if constexpr (Complex<T> || registers > 5) {
    return dot::outputs<registers>(taps, count, x);
  } else {
    using V = simd::Vec<T, registers * simd::lanesOf<T>>;
    constexpr int lanes = simd::lanesOf<T>;
    Sums<registers, T> near, far;
    ptrdiff_t k = 0;
    for (; k + 2 * lanes <= count; k += 2 * lanes) {
      for (ptrdiff_t lane = k; lane < k + lanes; ++lane) {
        const auto nearTap = near.spread(taps(lane)), farTap = far.spread(taps(lane + lanes));
        near.add(std::integral_constant<int, 0>{}, nearTap, loadPoints(x + lane));
        simd::unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
          const auto points = simd::held(loadPoints(x + lane + (r + 1) * lanes));
          if constexpr (r + 1 < registers) near.add(std::integral_constant<int, r + 1>{}, nearTap, points);
          far.add(r, farTap, points);
        });
      }
    }
    for (; k < count; ++k) {
      const auto tap = near.spread(taps(k));
      simd::unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA { near.add(r, tap, loadPoints(x + k + r * lanes)); });
    }
    return near.plus(simd::build<V>([&](auto r) ZORS_INLINE_LAMBDA { return far.sum[r].r[0]; }));
  }
}

// Outputs that all have taps in common: those taps go to all; before and behind them a staircase, where every tap has
// one output more or less.
template <int registers, class T, class Taps>
[[gnu::flatten]] void tile(const Problem<T, Taps>& p, T* out, ptrdiff_t count) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>, width = registers * lanes;
  const ptrdiff_t begin = std::max<ptrdiff_t>(0, p.xBegin), end = std::min(p.tapsLen, p.xEnd - width + 1);
  Sums<registers, T> edges;
  // Tap begin - m misses the first m outputs: in register s it meets those above.
  unrolled<registers>([&](auto down) ZORS_INLINE_LAMBDA {
    constexpr int s = registers - 1 - down;
    for (ptrdiff_t missed = lanes; missed > 0; --missed) {
      const ptrdiff_t k = begin - s * lanes - missed;
      if (k < 0) continue;
      const auto tap = edges.spread(p.taps(k));
      const __m256i mask = pointMask<T>(int(missed), false);
      edges.add(std::integral_constant<int, s>{}, edges.masked(tap, mask), loadPoints(p.x + k + s * lanes, mask));
      unrolled<registers - 1 - s>([&](auto r) ZORS_INLINE_LAMBDA {
        edges.add(std::integral_constant<int, s + 1 + r>{}, tap, loadPoints(p.x + k + (s + 1 + r) * lanes));
      });
    }
  });
  // Tap end + m has lost the last m + 1 outputs: in register s it meets those below.
  unrolled<registers>([&](auto down) ZORS_INLINE_LAMBDA {
    constexpr int s = registers - 1 - down;
    for (int m = 0; m < lanes; ++m) {
      const ptrdiff_t k = end + down * lanes + m;
      if (k >= p.tapsLen) break;
      const auto tap = edges.spread(p.taps(k));
      unrolled<s>([&](auto r) ZORS_INLINE_LAMBDA { edges.add(r, tap, loadPoints(p.x + k + r * lanes)); });
      const __m256i mask = pointMask<T>(lanes - 1 - m, true);
      edges.add(std::integral_constant<int, s>{}, edges.masked(tap, mask), loadPoints(p.x + k + s * lanes, mask));
    }
  });
  const auto sums = edges.plus(allMeet<registers>(p.taps.from(begin), end - begin, p.x + begin));
  if (count >= width)
    store(out, sums);
  else
    storePart(out, sums, int(count));
}

// A register of outputs of which no tap needs to meet all.
template <class T, class Taps> [[gnu::noinline]] void sparseTile(const Problem<T, Taps>& p, T* out, ptrdiff_t count) {
  using namespace simd;
  constexpr int lanes = lanesOf<T>;
  Sums<1, T> sums;
  const ptrdiff_t last = std::min(p.tapsLen, p.xEnd);
  for (ptrdiff_t k = std::max<ptrdiff_t>(0, p.xBegin - lanes + 1); k < last; ++k) {
    const auto missed = std::max<ptrdiff_t>(0, p.xBegin - k), met = std::min<ptrdiff_t>(lanes, p.xEnd - k);
    const __m256i mask = _mm256_and_si256(pointMask<T>(int(missed), false), pointMask<T>(int(met), true));
    sums.add(std::integral_constant<int, 0>{}, sums.masked(sums.spread(p.taps(k)), mask), loadPoints(p.x + k, mask));
  }
  storePart(out, sums.plus(splat<Vec<T, lanes>>(T{})), int(count));
}

// ---- A few lags ---------------------------------------------------------------------------------

inline constexpr int mostTogether = 12;

// `lags` outputs of which every tap meets an element from the first one on, each the sum of a register's lanes. A tile
// of so few would leave most of its lanes idle.
template <int lags, class T>
[[gnu::flatten]] void together(const T* taps, ptrdiff_t tapsLen, const T* x, ptrdiff_t xEnd, T* out) {
  using R = Register<T>;
  constexpr int lanes = R::lanes, sets = lags <= 6 ? 2 : 1;  // chains enough to fill the multiply-adds' latency
  R sum[sets][lags];
  simd::unrolled<sets * lags>([&](auto i) ZORS_INLINE_LAMBDA { sum[i / lags][i % lags] = simd::splat<R>(0); });
  const ptrdiff_t common = std::min(tapsLen, xEnd - lags + 1);
  ptrdiff_t k = 0;
  for (; k + sets * lanes <= common; k += sets * lanes) {
    simd::unrolled<sets>([&](auto set) ZORS_INLINE_LAMBDA {
      const R a = simd::held(simd::load<lanes>(taps + k + set * lanes));
      simd::unrolled<lags>([&](auto i) ZORS_INLINE_LAMBDA {
        sum[set][i] = fma(a, simd::load<lanes>(x + k + set * lanes + i), sum[set][i]);
      });
    });
  }
  simd::unrolled<lags>([&](auto i) ZORS_INLINE_LAMBDA {
    R all = sum[0][i];
    if constexpr (sets == 2) all = add(all, sum[1][i]);
    for (ptrdiff_t j = k; j < std::min(tapsLen, xEnd - i); j += lanes) {
      const auto left = std::min<ptrdiff_t>(lanes, std::min(tapsLen, xEnd - i) - j);
      const __m256i mask = pointMask<T>(int(left), true);
      all = fma(loadPoints(taps + j, mask), loadPoints(x + j + i, mask), all);
    }
    out[i] = sumOfLanes(all);
  });
}

template <class T>
void correlateFew(const T* taps, ptrdiff_t tapsLen, const T* x, ptrdiff_t xEnd, T* out, ptrdiff_t count) {
  using Group = void (*)(const T*, ptrdiff_t, const T*, ptrdiff_t, T*);
  static constexpr auto groups = []<int... i>(std::integer_sequence<int, i...>) {
    return std::array<Group, mostTogether>{together<i + 1, T>...};
  }
  (std::make_integer_sequence<int, mostTogether>{});
  for (ptrdiff_t left = (count + mostTogether - 1) / mostTogether, i = 0; left > 0; --left) {
    const ptrdiff_t lags = (count - i + left - 1) / left;
    groups[std::size_t(lags - 1)](taps, tapsLen, x + i, xEnd - i, out + i);
    i += lags;
  }
}

// ---- All ----------------------------------------------------------------------------------------

template <class T> inline constexpr int widest = Complex<T> ? 6 : 8;

template <class T, class Taps>
void correlate(Taps taps, ptrdiff_t tapsLen, const T* x, ptrdiff_t xLen, ptrdiff_t lag, T* out, ptrdiff_t count) {
  constexpr int lanes = simd::lanesOf<T>;
  if constexpr (std::is_same_v<Taps, ConjugateTaps<T>> && !Complex<T>) {
    if (lag >= 0 && count <= 2 * mostTogether)
      return correlateFew(taps.first, tapsLen, x + lag, xLen - lag, out, count);
  }
  using Tile = void (*)(const Problem<T, Taps>&, T*, ptrdiff_t);
  static constexpr auto tiles = []<int... i>(std::integer_sequence<int, i...>) {
    return std::array<Tile, widest<T>>{tile<i + 1, T, Taps>...};
  }
  (std::make_integer_sequence<int, widest<T>>{});
  for (ptrdiff_t i = 0; i < count;) {
    const ptrdiff_t at = lag + i;
    const Problem<T, Taps> problem{taps, tapsLen, x + at, -at, xLen - at};
    // As few tiles as there must be, of equal widths: a narrow one left over would wait for its multiply-adds.
    const ptrdiff_t left = (count - i + lanes - 1) / lanes, tilesLeft = (left + widest<T> - 1) / widest<T>;
    ptrdiff_t registers = (left + tilesLeft - 1) / tilesLeft;
    // The taps that all outputs have in common start and end so; too wide a tile has none.
    const auto someMeet = [&](ptrdiff_t n) {
      return std::max<ptrdiff_t>(0, -at) <= std::min(tapsLen, xLen - at - n * lanes + 1);
    };
    while (registers > 0 && !someMeet(registers)) registers /= 2;
    const ptrdiff_t width = std::min(count - i, std::max<ptrdiff_t>(1, registers) * lanes);
    if (registers == 0)
      sparseTile(problem, out + i, width);
    else
      tiles[std::size_t(registers - 1)](problem, out + i, width);
    i += width;
  }
}

}  // namespace direct
}  // namespace zors
