// Odd primes without a kernel of their own.
#pragma once

#include "dft/dft_arrays.h"

namespace zors::dft {

inline constexpr int largestGeneric = 149;  // the largest prime that a chain may end with

// One butterfly of p points in each of the columns of x, with the roots exp(-2 pi i k / p): with a_j and b_j as in
// butterflyOdd, X_0 = x_0 + a_1 + a_2 + ...; the sums of cos(j k) a_j and sin(j k) b_j run in two, of odd j, from x_0
// on for the cosines, and of even j, products and sums rounded each; first plus second. The result is in x.
template <int vectors, class P>
ZORS_INLINE void genericButterfly(int p, const typename P::Value* roots, P (*x)[vectors]) {
  const int h = p / 2;
  P y[largestGeneric][vectors];
  const auto each = [](auto f) ZORS_INLINE_LAMBDA { simd::unrolled<vectors>(f); };
  each([&](auto v) ZORS_INLINE_LAMBDA { y[0][v] = x[0][v]; });
  for (int j = 1; j <= h; ++j)
    each([&](auto v) ZORS_INLINE_LAMBDA {
      const P a = x[j][v] + x[p - j][v], b = x[j][v] - x[p - j][v];
      x[j][v] = a;
      x[p - j][v] = b;
      y[0][v] = y[0][v] + a;
    });
  for (int k = 1; k <= h; ++k) {
    P c[2][vectors], s[2][vectors];
    int i = 0;
    const auto term = [&](int j, auto add) ZORS_INLINE_LAMBDA {
      i += k;
      i -= i >= p ? p : 0;
      const P cosine = all<P>(roots[2 * i]), minusSine = all<P>(roots[2 * i + 1]);
      each([&](auto v) ZORS_INLINE_LAMBDA { add(v, cosine * x[j][v], minusSine * x[p - j][v]); });
    };
    term(1, [&](auto v, P ac, P bs) ZORS_INLINE_LAMBDA {
      c[0][v] = x[0][v] + ac;
      s[0][v] = bs;
    });
    term(2, [&](auto v, P ac, P bs) ZORS_INLINE_LAMBDA {
      c[1][v] = ac;
      s[1][v] = bs;
    });
    int j = 3;
    for (; j < h; j += 2) {
      term(j, [&](auto v, P ac, P bs) ZORS_INLINE_LAMBDA {
        c[0][v] = c[0][v] + ac;
        s[0][v] = s[0][v] + bs;
      });
      term(j + 1, [&](auto v, P ac, P bs) ZORS_INLINE_LAMBDA {
        c[1][v] = c[1][v] + ac;
        s[1][v] = s[1][v] + bs;
      });
    }
    if (j == h)
      term(j, [&](auto v, P ac, P bs) ZORS_INLINE_LAMBDA {
        c[0][v] = c[0][v] + ac;
        s[0][v] = s[0][v] + bs;
      });
    each([&](auto v) ZORS_INLINE_LAMBDA {
      const P cosines = c[0][v] + c[1][v], minusSines = s[0][v] + s[1][v];
      y[k][v] = plusI(cosines, minusSines);
      y[p - k][v] = minusI(cosines, minusSines);
    });
  }
  for (int k = 0; k < p; ++k) each([&](auto v) ZORS_INLINE_LAMBDA { x[k][v] = y[k][v]; });
}

}  // namespace zors::dft
