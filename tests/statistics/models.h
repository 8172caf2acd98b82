// What the tests of the reductions share: plain partial sums, and sweeps over lengths and addresses.
#pragma once

#include <functional>

#include "kit/elementwise.h"
#include "zors/types.h"

namespace kit {

// n sums of type T, joined as ((p0 + p4) + (p2 + p6)) + ((p1 + p5) + (p3 + p7)), or even and odd ones apart.
template <class T> struct Sums {
  std::vector<T> p;
  explicit Sums(std::size_t n, T first = 0, T second = 0) : p(n) {
    p[0] = first;
    if (n > 1) p[1] = second;
  }
  void add(std::size_t k, T x) { p[k % p.size()] += x; }
  Sums halved() const {
    Sums out(p.size() / 2);
    for (std::size_t j = 0; j < out.p.size(); ++j) out.p[j] = p[j] + p[j + out.p.size()];
    return out;
  }
  template <class W> Sums<W> widened() const {
    Sums<W> out(p.size());
    for (std::size_t j = 0; j < p.size(); ++j) out.p[j] = p[j];
    return out;
  }
  std::pair<T, T> joined() const { return p.size() > 2 ? halved().joined() : std::pair(p[0], p[1]); }
  T folded() const { return joined().first + joined().second; }
};

// Elements at any byte address next to an unreadable page.
template <class T> class Placed {
 public:
  Placed(const std::vector<T>& values, Edge edge, std::size_t away) : bytes_(values.size() * sizeof(T), edge, away) {
    std::memcpy(bytes_.data(), values.data(), values.size() * sizeof(T));
  }
  const T* data() const { return reinterpret_cast<const T*>(bytes_.data()); }
  std::uintptr_t address() const { return reinterpret_cast<std::uintptr_t>(bytes_.data()); }

 private:
  Guarded<Zor8u> bytes_;
};

// Lengths 1 to 200 and both sides of the block sizes of the float reductions.
inline std::vector<int> reductionLengths() {
  std::vector<int> out;
  for (int len = 1; len <= 200; ++len) out.push_back(len);
  for (int len : {1000, 4095, 4096, 4097, 4200, 8191, 8192, 8193, 8200, 8224, 8230, 16384, 17000}) out.push_back(len);
  return out;
}
inline constexpr unsigned addressSteps[] = {0, 1, 2, 4, 8, 12, 16, 20, 24, 28, 32};

// Finite values of all signs and some spread, such that sums round.
template <class T> std::vector<T> spread(std::size_t count, Random& random) {
  std::vector<T> out = signal<T>(count, random);
  for (T& x : out) {
    const double factor = std::ldexp(1.0, int(random() % 12) - 6);
    if constexpr (ComplexPair<T>)
      x = {decltype(T::re)(x.re * factor), decltype(T::im)(x.im * factor)};
    else
      x = T(x * factor);
  }
  return out;
}

inline double powerOfTwo(long exponent) {
  return exponent > 1023 ? HUGE_VAL : exponent <= -1023 ? 0 : std::ldexp(1.0, int(exponent));
}
inline std::vector<int> scaleFactors() {
  std::vector<int> out{INT32_MIN, INT32_MIN + 1, -1100, -1025, -1024, -1023, -1022,    -100,
                       100,       1021,          1022,  1023,  1024,  1100,  INT32_MAX};
  for (int s = -66; s <= 66; ++s) out.push_back(s);
  return out;
}

// x limited to D's range and converted in the current direction; NaN: the lowest value.
template <class D> D clampAndConvert(double x) {
  if (std::isnan(x) || x <= double(std::numeric_limits<D>::min())) return std::numeric_limits<D>::min();
  if (x >= double(std::numeric_limits<D>::max())) return std::numeric_limits<D>::max();
  return D(std::llrint(x));
}
// x / 2^s to nearest, ties to even, saturated.
template <class D> D nearestEven(__int128 x, int s) {
  if (s <= 0) {
    for (; s < 0 && x <= std::numeric_limits<D>::max() && x >= std::numeric_limits<D>::min(); ++s) x *= 2;
  } else {
    const __int128 unit = __int128{1} << s, floor = x >> s, rest = x - floor * unit;
    x = floor + (rest * 2 > unit || (rest * 2 == unit && floor % 2 != 0));
  }
  if (x > std::numeric_limits<D>::max()) return std::numeric_limits<D>::max();
  if (x < std::numeric_limits<D>::min()) return std::numeric_limits<D>::min();
  return D(x);
}

}  // namespace kit
