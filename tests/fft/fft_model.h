// A plain scalar model of the staged transforms, to the bit: every sum and product rounds once where it stands,
// std::fma fuses. It recurses from the last stage to the first and knows nothing of memory layouts.
#pragma once

#include <cmath>
#include <complex>
#include <cstddef>
#include <vector>


#include "kit/elementwise.h"

namespace model {

template <class T> struct Point { T re, im; };
template <class T> using Signal = std::vector<Point<T>>;

// ---- Twiddles -----------------------------------------------------------------------------------

// S[i] = sin(2 pi i / 2^order) as the library's tables have it: up to order 10 correctly rounded, above it the value at
// an angle that was rounded to T.
template <class T> T sine(int order, std::size_t i) {
  const std::size_t turn = std::size_t{1} << order;
  if (order <= 10) {
    const long double angle = 2 * std::acos(-1.0L) / static_cast<long double>(turn);
    return static_cast<T>(i <= turn / 8 ? std::sin(angle * static_cast<long double>(i))
                                        : std::cos(angle * static_cast<long double>(turn / 4 - i)));
  }
  const double step = 6.283185307179586 / static_cast<double>(turn);
  const auto angle = [&](std::size_t j) { return static_cast<double>(static_cast<T>(step * static_cast<double>(j))); };
  return static_cast<T>(i <= turn / 8 ? std::sin(angle(i)) : std::cos(angle(turn / 4 - i)));
}

template <class T> class Twiddles {
 public:
  explicit Twiddles(int order) : order_(order) {
    for (std::size_t i = 0; i <= turn() / 4; ++i) sines_.push_back(sine<T>(order, i));
  }
  // (cos, -sin) of k turns in n.
  Point<T> at(std::size_t k, std::size_t n) const {
    std::size_t i = k * (turn() / n);
    const bool second = i > turn() / 2;  // half turn
    if (second) i -= turn() / 2;
    const bool mirrored = i > turn() / 4;
    if (mirrored) i = turn() / 2 - i;
    T cosine = sines_[turn() / 4 - i], minusSine = -sines_[i];
    if (mirrored) cosine = -cosine;
    if (second) cosine = -cosine, minusSine = -minusSine;
    return {cosine, minusSine};
  }

 private:
  std::size_t turn() const { return std::size_t{1} << order_; }
  int order_;
  std::vector<T> sines_;
};

// ---- Butterflies --------------------------------------------------------------------------------

template <class T> Point<T> operator+(Point<T> a, Point<T> b) { return {a.re + b.re, a.im + b.im}; }
template <class T> Point<T> operator-(Point<T> a, Point<T> b) { return {a.re - b.re, a.im - b.im}; }
template <class T> Point<T> scaled(Point<T> a, T factor) { return {a.re * factor, a.im * factor}; }

template <class T> Point<T> turned(Point<T> w, Point<T> x, bool inverse) {
  const T re = w.re * x.re, im = w.re * x.im;
  if (inverse) return {std::fma(w.im, x.im, re), std::fma(-w.im, x.re, im)};
  return {std::fma(-w.im, x.im, re), std::fma(w.im, x.re, im)};
}

template <class T> Signal<T> butterfly(const Signal<T>& t, bool inverse) {
  if (t.size() == 1) return t;
  if (t.size() == 2) return {t[0] + t[1], t[0] - t[1]};
  if (t.size() == 4) {
    const auto s = t[0] + t[2], d = t[0] - t[2], s13 = t[1] + t[3], d13 = t[1] - t[3];
    const Point<T> plain = {d.re + d13.im, d.im - d13.re}, other = {d.re - d13.im, d.im + d13.re};
    return {s + s13, inverse ? other : plain, s - s13, inverse ? plain : other};
  }
  const Signal<T> even = butterfly<T>({t[0], t[2], t[4], t[6]}, inverse),
                  odd = butterfly<T>({t[1], t[3], t[5], t[7]}, inverse);
  const T root = static_cast<T>(std::sqrt(0.5L));
  Signal<T> out(8);
  for (std::size_t m = 0; m < 4; ++m) {
    const Point<T> o = odd[m];
    Point<T> part{};  // odd[m], m eighths of a turn back (forward)
    if (m == 0) part = o;
    if (m == 1)
      part = inverse ? Point<T>{root * (o.re - o.im), root * (o.im + o.re)}
                     : Point<T>{root * (o.re + o.im), root * (o.im - o.re)};
    if (m == 2) part = inverse ? Point<T>{-o.im, o.re} : Point<T>{o.im, -o.re};
    if (m == 3)
      part = inverse ? Point<T>{-root * (o.re + o.im), root * (o.re - o.im)}
                     : Point<T>{root * (o.im - o.re), -root * (o.re + o.im)};
    out[m] = even[m] + part;
    out[m + 4] = even[m] - part;
  }
  return out;
}

// ---- Stages -------------------------------------------------------------------------------------

// The radices of an order, as a table.
inline std::vector<std::size_t> plan(int order) {
  switch (order) {
    case 0:
      return {};
    case 1:
      return {2};
    case 2:
      return {4};
    case 3:
      return {8};
    case 4:
      return {4, 4};
    case 5:
      return {4, 8};
    case 6:
      return {4, 4, 4};
    case 7:
      return {4, 4, 8};
    case 8:
      return {4, 4, 4, 4};
    case 9:
      return {4, 4, 8, 4};
    case 10:
      return {4, 4, 8, 8};
    case 11:
      return {4, 4, 8, 4, 4};
    default: {
      std::vector<std::size_t> radices = {4, 4};
      if (order % 2 == 1) radices.push_back(8);
      while (radices.size() < static_cast<std::size_t>(order / 2)) radices.push_back(4);
      return radices;
    }
  }
}

// One stage from its parts: part q is the transform of the points of residue q. The twiddles of a stage may all be
// those of the table, or powers of the first.
enum class Powers { fromTable, byProducts };
template <class T>
Signal<T> join(const std::vector<Signal<T>>& parts, const Twiddles<T>& twiddles, bool inverse,
               Powers powers = Powers::fromTable) {
  const std::size_t radix = parts.size(), span = parts[0].size();
  Signal<T> out(radix * span);
  for (std::size_t k = 0; k < span; ++k) {
    Signal<T> t(radix);
    t[0] = parts[0][k];
    Point<T> w{};
    for (std::size_t q = 1; q < radix; ++q) {
      if (powers == Powers::byProducts && q > 1)
        w = turned(twiddles.at(k, radix * span), w, false);
      else
        w = twiddles.at(q * k, radix * span);
      t[q] = turned(w, parts[q][k], inverse);
    }
    const auto y = butterfly(t, inverse);
    for (std::size_t m = 0; m < radix; ++m) out[k + span * m] = y[m];
  }
  return out;
}

template <class T> std::vector<Signal<T>> residues(const Signal<T>& x, std::size_t radix) {
  std::vector<Signal<T>> parts(radix);
  for (std::size_t i = 0; i < x.size(); ++i) parts[i % radix].push_back(x[i]);
  return parts;
}

// The transform by the given radices, the first without twiddles.
template <class T>
Signal<T> staged(const Signal<T>& x, std::vector<std::size_t> radices, const Twiddles<T>& twiddles, bool inverse) {
  if (radices.empty()) return x;
  const std::size_t last = radices.back();
  if (radices.size() == 1) return butterfly(x, inverse);
  radices.pop_back();
  auto parts = residues(x, last);
  for (auto& part : parts) part = staged(part, radices, twiddles, inverse);
  return join(parts, twiddles, inverse);
}

template <class T> inline constexpr int blockedOrder = sizeof(T) == 4 ? 19 : 18;

// Any order: above the blocked order 2^bits interleaved sub-transforms, scaled, then the tile's stages.
template <class T>
Signal<T> complexTransform(const Signal<T>& x, int order, const Twiddles<T>& twiddles, bool inverse, bool scales,
                           T scale) {
  if (order < blockedOrder<T>) {
    auto out = staged(x, plan(order), twiddles, inverse);
    if (scales)
      for (auto& point : out) point = scaled(point, scale);
    return out;
  }
  const int bits = order < (sizeof(T) == 4 ? 23 : 22) ? 4 : 8;
  auto parts = residues(x, std::size_t{1} << bits);
  for (auto& part : parts) part = complexTransform(part, order - bits, twiddles, inverse, scales, scale);
  for (std::size_t radix : bits == 4 ? std::vector<std::size_t>{4, 4} : std::vector<std::size_t>{8, 8, 4}) {
    const std::size_t joined = parts.size() / radix;  // part i holds residue i; i + joined * q make one
    std::vector<Signal<T>> next(joined);
    for (std::size_t i = 0; i < joined; ++i) {
      std::vector<Signal<T>> group;
      for (std::size_t q = 0; q < radix; ++q) group.push_back(std::move(parts[i + joined * q]));
      next[i] = join(group, twiddles, inverse, joined == 1 ? Powers::byProducts : Powers::fromTable);
    }
    parts = std::move(next);
  }
  return parts[0];
}

// ---- Real transforms ----------------------------------------------------------------------------

template <class T> inline constexpr int twoLevelOrder = sizeof(T) == 4 ? 19 : 17;

// (cos, -sin) of k turns in N where tables have two levels: a fine entry times a coarse one.
template <class T> Point<T> factor(std::size_t k, int order, const Twiddles<T>& twiddles) {
  const std::size_t n = std::size_t{1} << order, fine = sizeof(T) == 4 ? 1024 : 512;
  if (order < twoLevelOrder<T>) return twiddles.at(k, n);
  return turned(twiddles.at((k - 1) / fine * fine, n), twiddles.at((k - 1) % fine + 1, n), false);
}

// 1/2 - sin / 2, which a table holds: rounded to nearest in every direction.
template <class T> T restOf(T minusSine) {
  const kit::Direction scope(_MM_ROUND_NEAREST);
  const volatile double half = 0.5 * static_cast<double>(minusSine), sum = 0.5 + half;
  const volatile T rest = static_cast<T>(sum);
  return rest;
}

// Perm order, from and to.
template <class T>
std::vector<T> realForward(const std::vector<T>& x, int order, const Twiddles<T>& twiddles, bool scales, T scale) {
  const std::size_t n = x.size(), h = n / 2;
  std::vector<T> out(n);
  if (order <= 2) {
    if (order == 0) out = x;
    if (order == 1) out = {x[0] + x[1], x[0] - x[1]};
    if (order == 2) out = {(x[0] + x[2]) + (x[3] + x[1]), (x[0] + x[2]) - (x[3] + x[1]), x[0] - x[2], x[3] - x[1]};
    if (scales)
      for (T& value : out) value *= scale;
    return out;
  }
  const bool early = order >= 5;  // where scale enters: before the parting or after it
  Signal<T> pairs(h);
  for (std::size_t i = 0; i < h; ++i) pairs[i] = {x[2 * i], x[2 * i + 1]};
  const auto z = complexTransform(pairs, order - 1, twiddles, false, scales && early, scale);
  out[0] = z[0].re + z[0].im;
  out[1] = z[0].re - z[0].im;
  for (std::size_t k = 1; k <= h / 2; ++k) {
    const auto w = factor(k, order, twiddles);
    const Point<T> p = z[k], q = {z[h - k].re, -z[h - k].im}, d = p - q;
    Point<T> t{}, low{}, mirror{};
    const volatile T negativeHalf = T(-0.5) * w.re;  // of its own: directions tell (-c) * d from -(c * d)
    const T halfCosine = T(0.5) * w.re, rest = restOf(w.im);
    if (order < twoLevelOrder<T>) {
      t = {std::fma(rest, d.re, halfCosine * d.im), std::fma(rest, d.im, negativeHalf * d.re)};
      low = q + t;
      mirror = p - t;
    } else {
      const Point<T> mean = {std::fma(T(0.5), p.re, T(0.5) * q.re), std::fma(T(0.5), p.im, T(0.5) * q.im)};
      t = {std::fma(T(0.5) * w.im, d.re, halfCosine * d.im), std::fma(T(0.5) * w.im, d.im, negativeHalf * d.re)};
      low = mean + t;
      mirror = mean - t;
    }
    out[2 * k] = low.re;
    out[2 * k + 1] = low.im;
    out[2 * (h - k)] = mirror.re;
    out[2 * (h - k) + 1] = -mirror.im;
  }
  if (scales && !early)
    for (T& value : out) value *= scale;
  return out;
}

template <class T>
std::vector<T> realInverse(const std::vector<T>& x, int order, const Twiddles<T>& twiddles, bool scales, T scale) {
  const std::size_t n = x.size(), h = n / 2;
  std::vector<T> out(n);
  if (order <= 2) {
    if (order == 0) out = x;
    if (order == 1) out = {x[0] + x[1], x[0] - x[1]};
    if (order == 2)
      out = {(x[0] + x[1]) + 2 * x[2], (x[0] - x[1]) - 2 * x[3], (x[0] + x[1]) - 2 * x[2], (x[0] - x[1]) + 2 * x[3]};
  } else {
    Signal<T> z(h);
    z[0] = {x[0] + x[1], x[0] - x[1]};
    for (std::size_t k = 1; k <= h / 2; ++k) {
      const auto w = factor(k, order, twiddles);
      const Point<T> p = {x[2 * k], x[2 * k + 1]}, q = {x[2 * (h - k)], -x[2 * (h - k) + 1]};
      const auto u = p + q, d = p - q;
      const Point<T> t = {std::fma(w.im, d.re, -(w.re * d.im)), std::fma(w.im, d.im, w.re * d.re)};
      const auto mirror = u - t;
      z[k] = u + t;
      z[h - k] = {mirror.re, -mirror.im};
    }
    const bool early = order >= 5;
    const auto y = complexTransform(z, order - 1, twiddles, true, scales && early, scale);
    for (std::size_t i = 0; i < h; ++i) out[2 * i] = y[i].re, out[2 * i + 1] = y[i].im;
    scales = scales && !early;
  }
  if (scales)
    for (T& value : out) value *= scale;
  return out;
}

}  // namespace model
