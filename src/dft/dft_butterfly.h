// The butterflies of the transforms of any length, forward: exp(-2 pi i n k / N). Their roundings are what
// docs/numerics.md promises. An inverse transform is a forward one between two conjugations.
#pragma once

#include <array>
#include <numeric>

#include "dft/complex_pairs.h"

namespace zors::dft {

// ---- Constants ----------------------------------------------------------------------------------

namespace detail {
inline constexpr long double pi = 3.14159265358979323846264338327950288L;

// The series of the sine (first = 1) or the cosine (first = 0) for x from 0 to pi / 4.
constexpr long double series(long double x, int first) {
  long double term = first == 1 ? x : 1, sum = 0;
  for (int n = first; n < first + 30; n += 2) {
    sum += term;
    term *= -x * x / ((n + 1) * (n + 2));
  }
  return sum;
}
// cos and sin of 2 pi i / n, by eighths of a turn.
struct Unit {
  long double re, im;
};
constexpr Unit unit(int i, int n) {
  const int turn = 8 * (i % n), eighth = turn / n, rest = turn - eighth * n;  // (eighth + rest / n) eighths
  const bool odd = eighth % 2 == 1;
  const long double x = pi / 4 * static_cast<long double>(odd ? n - rest : rest) / n;
  const long double c = series(x, 0), s = series(x, 1);
  const long double a = odd ? s : c, b = odd ? c : s;  // within the quarter
  switch (eighth / 2) {
    case 0:
      return {a, b};
    case 1:
      return {-b, a};
    case 2:
      return {-a, -b};
    default:
      return {b, -a};
  }
}
}  // namespace detail

// (cos, sin) of 2 pi i / n for all i.
template <class T, int n>
inline constexpr auto units = [] {
  struct {
    std::array<T, n> cosine{}, sine{};
  } table;
  for (int i = 0; i < n; ++i) {
    const detail::Unit u = detail::unit(i, n);
    table.cosine[std::size_t(i)] = static_cast<T>(u.re);
    table.sine[std::size_t(i)] = static_cast<T>(u.im);
  }
  return table;
}();

// ---- Butterflies of one radix, in place, in natural order ---------------------------------------

template <class P> ZORS_INLINE void butterfly4(P& x0, P& x1, P& x2, P& x3) {
  const P sum02 = x0 + x2, difference02 = x0 - x2, sum13 = x1 + x3, difference13 = x1 - x3;
  x0 = sum02 + sum13;
  x1 = minusI(difference02, difference13);
  x2 = sum02 - sum13;
  x3 = plusI(difference02, difference13);
}

// An odd prime: with a_j = x_j + x_(p-j) and b_j = x_j - x_(p-j), X_0 is x_0 + (a_1 + a_2 + ...), and X_k, X_(p-k) are
// c - i s, c + i s with c = fma(cos k, a_1, fma(cos 2k, a_2, ... x_0)) and s = fma(sin k, b_1, ... round(sin hk *
// b_h)).
template <int p, class P> ZORS_INLINE void butterflyOdd(P (&x)[p]) {
  constexpr int h = p / 2;
  constexpr const auto& unit = units<typename P::Value, p>;
  const auto cosine = [](int i) ZORS_INLINE_LAMBDA { return all<P>(unit.cosine[std::size_t(i % p)]); };
  const auto sine = [](int i) ZORS_INLINE_LAMBDA { return all<P>(unit.sine[std::size_t(i % p)]); };
  P a[h], b[h];
  simd::unrolled<h>([&](auto i) ZORS_INLINE_LAMBDA {
    a[i] = x[i + 1] + x[p - 1 - i];
    b[i] = x[i + 1] - x[p - 1 - i];
  });
  const P first = x[0];
  P sum = a[0];
  simd::unrolled<h - 1>([&](auto i) ZORS_INLINE_LAMBDA { sum = sum + a[i + 1]; });
  x[0] = first + sum;
  simd::unrolled<h>([&](auto at) ZORS_INLINE_LAMBDA {
    constexpr int k = at + 1;
    P c = fma(cosine(h * k), a[h - 1], first), s = sine(h * k) * b[h - 1];
    simd::unrolled<h - 1>([&](auto i) ZORS_INLINE_LAMBDA {
      constexpr int j = h - 1 - i;
      c = fma(cosine(j * k), a[j - 1], c);
      s = fma(sine(j * k), b[j - 1], s);
    });
    x[k] = minusI(c, s);
    x[p - k] = plusI(c, s);
  });
}

// Eight points: four of the even residues, four of the odd ones, then four pairs with eighth turns between, of which a
// diagonal one is a sum times the root of one half.
template <class P> ZORS_INLINE void butterfly8(P (&x)[8]) {
  const P root = all<P>(typename P::Value(0.70710678118654752440L));
  butterfly4(x[1], x[3], x[5], x[7]);
  butterfly4(x[0], x[2], x[4], x[6]);
  const P e0 = x[0], e1 = x[2], e2 = x[4], e3 = x[6], o0 = x[1], o2 = x[5];
  const P o1 = minusI(x[3], x[3]) * root, o3 = minusI(x[7], x[7]) * root;
  x[0] = e0 + o0;
  x[4] = e0 - o0;
  x[1] = e1 + o1;
  x[5] = e1 - o1;
  x[2] = minusI(e2, o2);
  x[6] = plusI(e2, o2);
  x[3] = minusI(e3, o3);
  x[7] = plusI(e3, o3);
}

template <int radix, class P> ZORS_INLINE void butterfly(P (&x)[radix]);

// Length outer * inner: butterflies of the residues, turned, then across them.
template <int outer, int inner, class P> ZORS_INLINE void nested(P (&x)[outer * inner]) {
  constexpr int n = outer * inner;
  constexpr const auto& unit = units<typename P::Value, n>;
  P part[outer][inner];
  simd::unrolled<outer>([&](auto q) ZORS_INLINE_LAMBDA {
    simd::unrolled<inner>([&](auto i) ZORS_INLINE_LAMBDA { part[q][i] = x[q + outer * i]; });
    butterfly<inner>(part[q]);
    simd::unrolled<inner>([&](auto k) ZORS_INLINE_LAMBDA {
      if constexpr (q * k != 0)
        part[q][k] = turned(both<P>(unit.cosine[std::size_t(q * k)], -unit.sine[std::size_t(q * k)]), part[q][k]);
    });
  });
  simd::unrolled<inner>([&](auto k) ZORS_INLINE_LAMBDA {
    P across[outer];
    simd::unrolled<outer>([&](auto q) ZORS_INLINE_LAMBDA { across[q] = part[q][k]; });
    butterfly<outer>(across);
    simd::unrolled<outer>([&](auto q) ZORS_INLINE_LAMBDA { x[k + inner * q] = across[q]; });
  });
}

// Length a * b of coprime factors, without turns: input b i + a j, output of residues (i, j).
template <int a, int b, class P> ZORS_INLINE void coprime(P (&x)[a * b]) {
  constexpr int n = a * b;
  constexpr auto place = [](int i, int j) {
    int k = i;
    while (k % b != j) k += a;
    return k;
  };
  P part[b][a];
  simd::unrolled<b>([&](auto j) ZORS_INLINE_LAMBDA {
    simd::unrolled<a>([&](auto i) ZORS_INLINE_LAMBDA { part[j][i] = x[(b * i + a * j) % n]; });
    butterfly<a>(part[j]);
  });
  simd::unrolled<a>([&](auto i) ZORS_INLINE_LAMBDA {
    P across[b];
    simd::unrolled<b>([&](auto j) ZORS_INLINE_LAMBDA { across[j] = part[j][i]; });
    butterfly<b>(across);
    simd::unrolled<b>([&](auto j) ZORS_INLINE_LAMBDA { x[place(i, j)] = across[j]; });
  });
}

template <int radix, class P> ZORS_INLINE void butterfly(P (&x)[radix]) {
  if constexpr (radix == 2) {
    const P sum = x[0] + x[1];
    x[1] = x[0] - x[1];
    x[0] = sum;
  } else if constexpr (radix == 4) {
    butterfly4(x[0], x[1], x[2], x[3]);
  } else if constexpr (radix == 8) {
    butterfly8(x);
  } else if constexpr (radix == 6) {
    nested<2, 3>(x);
  } else if constexpr (radix == 9) {
    nested<3, 3>(x);
  } else if constexpr (radix == 16) {
    nested<4, 4>(x);
  } else if constexpr (radix == 10) {
    coprime<2, 5>(x);
  } else if constexpr (radix == 12) {
    coprime<3, 4>(x);
  } else if constexpr (radix == 14) {
    coprime<2, 7>(x);
  } else if constexpr (radix == 15) {
    coprime<3, 5>(x);
  } else if constexpr (radix > 1) {
    butterflyOdd<radix>(x);
  }
}

}  // namespace zors::dft
