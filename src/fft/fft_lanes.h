// Complex points in vector registers: L real parts in one register, L imaginary parts in another. Kernels of small
// orders have fewer points than a 256-bit register has lanes, so registers of 128 bits serve here too.
//
// Interleaved points are taken apart and put together within 128-bit halves, which leaves them in "lane order": lane l
// of a 256-bit register holds point lanePoint<T>(l). The order is its own inverse. Work arrays and twiddle tables keep
// it, so that values cross from one half to the other in the one transposition of a transform and nowhere else.
#pragma once

#include "frame/simd.h"
#include "zors/types.h"

namespace zors::fft {

template <class T, int L> struct LaneRegister;
template <> struct LaneRegister<Zor32f, 8> { using type = __m256; };
template <> struct LaneRegister<Zor32f, 4> { using type = __m128; };
template <> struct LaneRegister<Zor64f, 4> { using type = __m256d; };
template <> struct LaneRegister<Zor32f, 1> { using type = Zor32f; };
template <> struct LaneRegister<Zor64f, 1> { using type = Zor64f; };

template <class T> inline constexpr int fullLanes = 32 / int{sizeof(T)};

// The two middle quarters of a register change places.
template <class T> constexpr int lanePoint(int lane) {
  constexpr int quarter = fullLanes<T> / 4;
  const int at = lane / quarter;
  return lane % quarter + quarter * (at == 1 ? 2 : at == 2 ? 1 : at);
}

// Operators round once each; nothing is fused but by fma and fnma.
template <class T, int L> struct Lanes {
  using Register = typename LaneRegister<T, L>::type;
  Register r;
  ZORS_INLINE friend Lanes operator+(Lanes a, Lanes b) { return {a.r + b.r}; }
  ZORS_INLINE friend Lanes operator-(Lanes a, Lanes b) { return {a.r - b.r}; }
  ZORS_INLINE friend Lanes operator*(Lanes a, Lanes b) { return {a.r * b.r}; }
  ZORS_INLINE friend Lanes operator-(Lanes a) { return {-a.r}; }
};

// -x as an operand of its own: of (-c) * d the compiler would make -(c * d), which is not the same where results are
// rounded up or down.
template <class T, int L> ZORS_INLINE Lanes<T, L> negated(Lanes<T, L> x) {
  Lanes<T, L> y = -x;
  __asm__("" : "+x"(y.r));
  return y;
}

// round(a * b + c) and round(c - a * b)
#define ZORS_FUSED(T, L, plus, minus)                                                                        \
  ZORS_INLINE Lanes<T, L> fma(Lanes<T, L> a, Lanes<T, L> b, Lanes<T, L> c) { return {plus(a.r, b.r, c.r)}; } \
  ZORS_INLINE Lanes<T, L> fnma(Lanes<T, L> a, Lanes<T, L> b, Lanes<T, L> c) { return {minus(a.r, b.r, c.r)}; }
ZORS_FUSED(Zor32f, 8, _mm256_fmadd_ps, _mm256_fnmadd_ps)
ZORS_FUSED(Zor32f, 4, _mm_fmadd_ps, _mm_fnmadd_ps)
ZORS_FUSED(Zor64f, 4, _mm256_fmadd_pd, _mm256_fnmadd_pd)
#undef ZORS_FUSED
#define ZORS_FUSED(T, fused)                                                                                  \
  ZORS_INLINE Lanes<T, 1> fma(Lanes<T, 1> a, Lanes<T, 1> b, Lanes<T, 1> c) { return {fused(a.r, b.r, c.r)}; } \
  ZORS_INLINE Lanes<T, 1> fnma(Lanes<T, 1> a, Lanes<T, 1> b, Lanes<T, 1> c) { return {fused(-a.r, b.r, c.r)}; }
ZORS_FUSED(Zor32f, __builtin_fmaf)
ZORS_FUSED(Zor64f, __builtin_fma)
#undef ZORS_FUSED

template <int L, class T> ZORS_INLINE Lanes<T, L> loadLanes(const T* p) {
  if constexpr (L == 1)
    return {*p};
  else if constexpr (sizeof(T) == 8)
    return {_mm256_loadu_pd(p)};
  else if constexpr (L == 8)
    return {_mm256_loadu_ps(p)};
  else
    return {_mm_loadu_ps(p)};
}
// The same, and the value stays in its register: g++ would rather load it again for each use, and loads are what limits
// a stage.
template <int L, class T> ZORS_INLINE Lanes<T, L> loadOnce(const T* p) {
  auto x = loadLanes<L>(p);
  __asm__("" : "+x"(x.r));
  return x;
}
template <int L, class T> ZORS_INLINE void storeLanes(T* p, Lanes<T, L> x) {
  if constexpr (L == 1)
    *p = x.r;
  else if constexpr (sizeof(T) == 8)
    _mm256_storeu_pd(p, x.r);
  else if constexpr (L == 8)
    _mm256_storeu_ps(p, x.r);
  else
    _mm_storeu_ps(p, x.r);
}
template <int L, class T> ZORS_INLINE Lanes<T, L> allLanes(T value) {
  if constexpr (L == 1)
    return {value};
  else if constexpr (sizeof(T) == 8)
    return {_mm256_set1_pd(value)};
  else if constexpr (L == 8)
    return {_mm256_set1_ps(value)};
  else
    return {_mm_set1_ps(value)};
}

// Between lane order and memory order, either way.
template <class T, int L> ZORS_INLINE Lanes<T, L> reorder(Lanes<T, L> x) {
  if constexpr (L < fullLanes<T>)
    return x;
  else if constexpr (sizeof(T) == 8)
    return {_mm256_permute4x64_pd(x.r, 0xD8)};
  else
    return {_mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(x.r), 0xD8))};
}

// The lanes backwards; lane order stays lane order.
template <class T, int L> ZORS_INLINE Lanes<T, L> reversed(Lanes<T, L> x) {
  if constexpr (L == 1)
    return x;
  else if constexpr (sizeof(T) == 8)
    return {_mm256_permute4x64_pd(x.r, 0x1B)};
  else if constexpr (L == 4)
    return {_mm_permute_ps(x.r, 0x1B)};
  else
    return {_mm256_permutevar8x32_ps(x.r, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0))};
}

// Several of a kind.
template <class X, int n> struct Group { X at[n]; };
template <class T, int n> using Registers = Group<Lanes<T, fullLanes<T>>, n>;

// L complex points.
template <class T, int L> struct Points {
  Lanes<T, L> re, im;
  ZORS_INLINE friend Points operator+(Points a, Points b) { return {a.re + b.re, a.im + b.im}; }
  ZORS_INLINE friend Points operator-(Points a, Points b) { return {a.re - b.re, a.im - b.im}; }
  ZORS_INLINE friend Points operator*(Points a, Lanes<T, L> factor) { return {a.re * factor, a.im * factor}; }
};

// L real parts, then L imaginary parts.
template <int L, class T> ZORS_INLINE Points<T, L> loadPoints(const T* p) {
  return {loadOnce<L>(p), loadOnce<L>(p + L)};
}
template <int L, class T> ZORS_INLINE void storePoints(T* p, Points<T, L> x) {
  storeLanes<L>(p, x.re);
  storeLanes<L>(p + L, x.im);
}

// Two registers of interleaved points as reals and imaginaries. Full registers are in lane order, 128-bit ones in
// memory order.
ZORS_INLINE Points<Zor64f, 4> parted(Lanes<Zor64f, 4> a, Lanes<Zor64f, 4> b) {
  return {{_mm256_unpacklo_pd(a.r, b.r)}, {_mm256_unpackhi_pd(a.r, b.r)}};
}
ZORS_INLINE Points<Zor32f, 8> parted(Lanes<Zor32f, 8> a, Lanes<Zor32f, 8> b) {
  return {{_mm256_shuffle_ps(a.r, b.r, 0x88)}, {_mm256_shuffle_ps(a.r, b.r, 0xDD)}};
}
ZORS_INLINE Points<Zor32f, 4> parted(Lanes<Zor32f, 4> a, Lanes<Zor32f, 4> b) {
  return {{_mm_shuffle_ps(a.r, b.r, 0x88)}, {_mm_shuffle_ps(a.r, b.r, 0xDD)}};
}
// The way back.
ZORS_INLINE Group<Lanes<Zor64f, 4>, 2> interleaved(Points<Zor64f, 4> x) {
  return {{{_mm256_unpacklo_pd(x.re.r, x.im.r)}, {_mm256_unpackhi_pd(x.re.r, x.im.r)}}};
}
ZORS_INLINE Group<Lanes<Zor32f, 8>, 2> interleaved(Points<Zor32f, 8> x) {
  return {{{_mm256_unpacklo_ps(x.re.r, x.im.r)}, {_mm256_unpackhi_ps(x.re.r, x.im.r)}}};
}
ZORS_INLINE Group<Lanes<Zor32f, 4>, 2> interleaved(Points<Zor32f, 4> x) {
  return {{{_mm_unpacklo_ps(x.re.r, x.im.r)}, {_mm_unpackhi_ps(x.re.r, x.im.r)}}};
}

// Interleaved points from and to memory, in the same orders.
template <int L, class T> ZORS_INLINE Points<T, L> loadInterleaved(const T* p) {
  if constexpr (L == 1) {
    return {{p[0]}, {p[1]}};
  } else {
    return parted(loadOnce<L>(p), loadOnce<L>(p + L));
  }
}
template <int L, class T> ZORS_INLINE void storeInterleaved(T* p, Points<T, L> x) {
  if constexpr (L == 1) {
    p[0] = x.re.r;
    p[1] = x.im.r;
  } else {
    const auto pair = interleaved(x);
    storeLanes<L>(p, pair.at[0]);
    storeLanes<L>(p + L, pair.at[1]);
  }
}

// An address that the compiler cannot derive again: it would keep a pointer for every stream of a pass, in memory.
template <class T> ZORS_INLINE T* inRegister(T* p) {
  __asm__("" : "+r"(p));
  return p;
}

// A work array between the stages: full registers of real and of imaginary parts by turns, in lane order.
template <class T> struct WorkPoints {
  T* points;
  ZORS_INLINE WorkPoints from(std::size_t k) const { return {inRegister(points + 2 * k)}; }
  ZORS_INLINE T* re(std::size_t k) const { return points + 2 * k; }
  ZORS_INLINE T* im(std::size_t k) const { return points + 2 * k + fullLanes<T>; }
};
// One register of a work array, k a multiple of its lanes.
template <class Work> ZORS_INLINE auto loadWork(Work work, std::size_t k) {
  using T = std::remove_cvref_t<decltype(*work.re(0))>;
  return Points<T, fullLanes<T>>{loadOnce<fullLanes<T>>(work.re(k)), loadOnce<fullLanes<T>>(work.im(k))};
}
template <class Work, class T, int L> ZORS_INLINE void storeWork(Work work, std::size_t k, Points<T, L> x) {
  storeLanes<L>(work.re(k), x.re);
  storeLanes<L>(work.im(k), x.im);
}

// Reals and imaginaries of four points by turns, in order.
ZORS_INLINE Lanes<Zor32f, 8> interleavedHalves(Lanes<Zor32f, 4> re, Lanes<Zor32f, 4> im) {
  return {_mm256_set_m128(_mm_unpackhi_ps(re.r, im.r), _mm_unpacklo_ps(re.r, im.r))};
}

// Where a transform reads and writes: interleaved points, or real and imaginary parts in arrays of their own. Full
// registers come in the order that sourcePoint tells, and are given in lane order.
template <class T> struct Interleaved {
  using Value = std::remove_const_t<T>;
  T* points;
  ZORS_INLINE Interleaved from(std::size_t k) const { return {inRegister(points + 2 * k)}; }
  template <int L> ZORS_INLINE Points<Value, L> load(std::size_t j) const { return loadInterleaved<L>(points + 2 * j); }
  template <int L> ZORS_INLINE void store(std::size_t k, Points<Value, L> x) const {
    storeInterleaved<L>(points + 2 * k, x);
  }
  static constexpr int sourcePoint(int lane, int lanes) {
    return lanes == fullLanes<Value> ? lanePoint<Value>(lane) : lane;
  }
  template <int n> ZORS_INLINE Registers<Value, n> loadRegisters(std::size_t j) const {
    Registers<Value, n> x;
    simd::unrolled<n>([&](auto i) ZORS_INLINE_LAMBDA {
      x.at[i] = loadOnce<fullLanes<Value>>(points + 2 * j + std::size_t(fullLanes<Value> * i));
    });
    return x;
  }
  static constexpr int registerPoint(int place, int) { return place; }
};
template <class T> struct SplitPoints {
  using Value = std::remove_const_t<T>;
  T *reals, *imaginaries;
  ZORS_INLINE SplitPoints from(std::size_t k) const { return {inRegister(reals + k), inRegister(imaginaries + k)}; }
  ZORS_INLINE T* re(std::size_t k) const { return reals + k; }
  ZORS_INLINE T* im(std::size_t k) const { return imaginaries + k; }
  template <int L> ZORS_INLINE Points<Value, L> load(std::size_t j) const {
    return {loadLanes<L>(re(j)), loadLanes<L>(im(j))};
  }
  template <int L> ZORS_INLINE void store(std::size_t k, Points<Value, L> x) const {
    storeLanes<L>(re(k), reorder(x.re));
    storeLanes<L>(im(k), reorder(x.im));
  }
  static constexpr int sourcePoint(int lane, int) { return lane; }
  template <int n> ZORS_INLINE Registers<Value, n> loadRegisters(std::size_t j) const {
    constexpr int L = fullLanes<Value>;
    if constexpr (n == 1)
      return {{interleavedHalves(loadLanes<L / 2>(re(j)), loadLanes<L / 2>(im(j)))}};
    else
      return interleaved(load<L>(j));
  }
  static constexpr int registerPoint(int place, int registers) {
    return registers == 1 ? place : lanePoint<Value>(place);
  }
};

// Four rows of four lanes become columns, in each half of eight.
ZORS_INLINE void transpose4(Lanes<Zor32f, 4> (&x)[4]) { _MM_TRANSPOSE4_PS(x[0].r, x[1].r, x[2].r, x[3].r); }
ZORS_INLINE void transpose4(Lanes<Zor32f, 8> (&x)[4]) {
  const __m256 low01 = _mm256_shuffle_ps(x[0].r, x[1].r, 0x44), high01 = _mm256_shuffle_ps(x[0].r, x[1].r, 0xEE);
  const __m256 low23 = _mm256_shuffle_ps(x[2].r, x[3].r, 0x44), high23 = _mm256_shuffle_ps(x[2].r, x[3].r, 0xEE);
  x[0].r = _mm256_shuffle_ps(low01, low23, 0x88);
  x[1].r = _mm256_shuffle_ps(low01, low23, 0xDD);
  x[2].r = _mm256_shuffle_ps(high01, high23, 0x88);
  x[3].r = _mm256_shuffle_ps(high01, high23, 0xDD);
}
// Four lanes of eight, or of four.
template <int which> ZORS_INLINE Lanes<Zor32f, 4> half(Lanes<Zor32f, 4> x) { return x; }
template <int which> ZORS_INLINE Lanes<Zor32f, 4> half(Lanes<Zor32f, 8> x) {
  return {_mm256_extractf128_ps(x.r, which)};
}

// Of registers of two interleaved points: a point of one, then a point of the other.
template <int ofA, int ofB> ZORS_INLINE Lanes<Zor32f, 4> joined(Lanes<Zor32f, 4> a, Lanes<Zor32f, 4> b) {
  return {_mm_shuffle_ps(a.r, b.r, (ofA ? 0xE : 0x4) | (ofB ? 0xE0 : 0x40))};
}
template <int ofA, int ofB> ZORS_INLINE Lanes<Zor64f, 4> joined(Lanes<Zor64f, 4> a, Lanes<Zor64f, 4> b) {
  return {_mm256_permute2f128_pd(a.r, b.r, ofA | (2 + ofB) << 4)};
}

}  // namespace zors::fft
