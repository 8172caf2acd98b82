// Transforms of up to 8 points in 32-bit integers, with weights of 14 fraction bits. Lengths this small want no
// vectors: a transform is a dozen additions and at most three weights.
#pragma once

#include <algorithm>

#include "frame/scale.h"
#include "zors/types.h"

namespace zors::fft::fixed {

inline constexpr int largestOrder = 3;

struct Point {
  Zor32s re, im;
};
ZORS_INLINE Point operator+(Point a, Point b) { return {a.re + b.re, a.im + b.im}; }
ZORS_INLINE Point operator-(Point a, Point b) { return {a.re - b.re, a.im - b.im}; }
ZORS_INLINE Point timesMinusI(Point a) { return {a.im, -a.re}; }
ZORS_INLINE Point conjugate(Point a) { return {a.re, -a.im}; }

struct Weight {
  Zor32s cosine, sine;
};  // of an angle, times 2^14
inline constexpr Weight eighths[] = {{16384, 0}, {11585, 11585}, {0, 16384}, {-11585, 11585}};

// x * wx + y * wy in two halves: the low 16 bits without the lowest, rounded, and the high 16 bits.
ZORS_INLINE Zor32s weighted(Zor32s x, Zor32s wx, Zor32s y, Zor32s wy) {
  const auto low = [](Zor32s v) { return (v & 0xFFFF) >> 1; };
  return ((low(x) * wx + low(y) * wy + 4096) >> 13) + ((x >> 16) * wx + (y >> 16) * wy) * 4;
}
// x times exp(-i angle).
ZORS_INLINE Point turned(Point x, Weight w) {
  return {weighted(x.re, w.cosine, x.im, w.sine), weighted(x.re, -w.sine, x.im, w.cosine)};
}

// The forward transform of 2^order points, natural order.
inline void forward(Point* x, int order) {
  if (order == 1) {
    const Point sum = x[0] + x[1], difference = x[0] - x[1];
    x[0] = sum;
    x[1] = difference;
  } else if (order >= 2) {
    Point y[4][2];  // of each residue, a transform of n / 4 points
    const int quarter = 1 << (order - 2);
    for (int k = 0; k < quarter; ++k) {
      const Point a = x[k], b = x[k + quarter], c = x[k + 2 * quarter], d = x[k + 3 * quarter];
      const Point even = a + c, odd = b + d, left = a - c, right = timesMinusI(b - d);
      const Point terms[4] = {even + odd, left + right, even - odd, left - right};
      for (int q = 0; q < 4; ++q) y[q][k] = quarter == 1 ? terms[q] : turned(terms[q], eighths[q * k]);
    }
    for (int q = 0; q < 4; ++q) {
      x[q] = quarter == 1 ? y[q][0] : y[q][0] + y[q][1];
      if (quarter == 2) x[q + 4] = y[q][0] - y[q][1];
    }
  }
}
// The inverse is the forward one of the points in mirrored order.
inline void transform(Point* x, int order, bool inverse) {
  if (inverse) std::reverse(x + 1, x + (1 << order));
  forward(x, order);
}

// From the spectrum of re = x[2n], im = x[2n+1], 2^order values x, to Perm. Sums and differences are halved.
inline void unpack(Point* z, int order) {
  const int half = 1 << (order - 1), step = 1 << (3 - order);
  z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
  for (int k = 1; 2 * k <= half; ++k) {
    const Point p = z[k], q = conjugate(z[half - k]), sum = p + q, difference = p - q;
    const Point e = {sum.re >> 1, sum.im >> 1}, d = {difference.re >> 1, difference.im >> 1};
    const Weight w = eighths[k * step];
    const Point t = timesMinusI(turned(d, w));
    z[k] = e + t;
    z[half - k] = conjugate(e - t);
  }
}
// The way back; nothing is halved, so that the inverse without division gives 2^order times the signal.
inline void pack(Point* z, int order) {
  const int half = 1 << (order - 1), step = 1 << (3 - order);
  z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
  for (int k = 1; 2 * k <= half; ++k) {
    const Point p = z[k], q = conjugate(z[half - k]), u = p + q, d = p - q;
    const Weight w = eighths[k * step];
    const Point t = timesMinusI(turned(Point{-d.re, -d.im}, {w.cosine, -w.sine}));  // i times conj(W) times d
    z[k] = u + t;
    z[half - k] = conjugate(u - t);
  }
}

// x divided by the root of 2.
ZORS_INLINE Zor32s overRootOfTwo(Zor32s x) { return ((x & 0xFFFF) * 23170 >> 15) + (x >> 16) * 46340; }

// x / 2^shift, halves up, saturated; negative shifts enlarge.
inline Zor16s narrowed(Zor32s x, Zor64s shift) {
  constexpr Zor64s low = INT16_MIN, high = INT16_MAX;
  if (shift >= 32) return 0;
  if (shift > 0) return static_cast<Zor16s>(std::clamp((x + (Zor64s{1} << (shift - 1))) >> shift, low, high));
  const int up = static_cast<int>(std::min<Zor64s>(-shift, 16));
  return static_cast<Zor16s>(std::clamp(std::clamp<Zor64s>(x, 2 * low, 2 * high) << up, low, high));
}

}  // namespace zors::fft::fixed
