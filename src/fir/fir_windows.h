// Floating sums of windows as the stateless FIR forms make them: products in the type of the taps, added in Sum.
// Sixteen partial sums, of every sixteenth product each, are folded by halves; the products that fill no sixteen are
// added one by one. One sample and a block round alike.
#pragma once

#include "fir/fir_direct.h"
#include "frame/by_type.h"
#include "frame/simd.h"

namespace zors::fir {

using namespace simd;

inline constexpr int partialSums = 16;

// ---- One window ---------------------------------------------------------------------------------

// Samples in the type of the taps.
template <class F, class T, int L> ZORS_INLINE auto samplesAs(Vec<T, L> x) {
  if constexpr (std::is_same_v<F, T>)
    return x;
  else if constexpr (Complex<F>)
    return as<F>(samplesAs<decltype(F::re)>(as<decltype(T::re)>(x)));
  else if constexpr (sizeof(F) == 4)
    return toFloat(x);
  else
    return toDouble(x);
}
template <class Sum, class Tap, class Sample>
[[gnu::flatten]] Sum windowSum(const Tap* taps, Zor32s tapsLen, const Sample* window) {
  constexpr int lanes = partialSums;
  using Parts =
      std::conditional_t<Complex<Sum>, std::remove_pointer_t<decltype(components(static_cast<Sum*>(nullptr)))>, Sum>;
  Vec<Parts, Complex<Sum> ? 2 * lanes : lanes> sum = splat<decltype(sum)>(0);
  const Tap* tapsEnd = taps + tapsLen;
  Zor32s j = 0;
  for (; j + lanes <= tapsLen; j += lanes) {
    const auto product = mul(reversed(load<lanes>(tapsEnd - j - lanes)), samplesAs<Tap>(load<lanes>(window + j)));
    if constexpr (sizeof(Sum) > sizeof(Tap))
      sum = add(sum, toDouble(product));
    else
      sum = add(sum, as<Parts>(product));
  }
  Sum y{};
  if (j > 0) {
    constexpr int parts = decltype(sum)::lanes, step = Complex<Sum> ? 2 : 1;
    Parts lane[parts];
    store(lane, sum);
    for (int distance = parts / 2; distance >= step; distance /= 2)
      for (int i = 0; i < distance; ++i) lane[i] += lane[i + distance];
    if constexpr (Complex<Sum>)
      y = {lane[0], lane[1]};
    else
      y = lane[0];
  }
  for (; j < tapsLen; ++j) y = addTerm(y, tapsEnd[-1 - j], sampleAs<Tap>(window[j]));
  return y;
}

// ---- Windows side by side -----------------------------------------------------------------------

// Lanes are outputs: out[i] is the sum over j of taps[tapsLen - 1 - j] * in[i + j].
template <class Sum, class Tap> inline constexpr int windowsAtOnce = 4 * 32 / int{sizeof(Sum)};

template <class Sum, class Tap> struct Windows {
  static constexpr int lanes = windowsAtOnce<Sum, Tap>;
  using Sums = Vec<Sum, lanes>;

  const Tap* newestTap;
  Zor32s tapsLen;
  const Tap* in;

  ZORS_INLINE static Sums widened(Vec<Tap, lanes> product) {
    if constexpr (sizeof(Sum) > sizeof(Tap))
      return toDouble(product);
    else
      return product;
  }
  ZORS_INLINE Sums term(Zor32s j) const {
    return widened(mul(splat<Vec<Tap, lanes>>(newestTap[-j]), load<lanes>(in + j)));
  }
  // As addTerm has it.
  ZORS_INLINE Sums restTerm(Zor32s j) const {
    if constexpr (Complex<Tap>) {
      using Part = decltype(Tap::re);
      const Tap tap = newestTap[-j];
      const auto x = load<lanes>(in + j);
      const auto re = splat<Vec<Part, 2 * lanes>>(tap.re), parts = as<Part>(x);
      const auto byIm = mul(splat<Vec<Part, 2 * lanes>>(tap.im), as<Part>(swappedParts(x)));
      return as<Tap>(addSub(held(mul(re, parts)), byIm));
    } else {
      return term(j);
    }
  }
  // The partial sums first, first + step, ... as they are folded.
  template <int first, int step> ZORS_INLINE Sums folded(Zor32s whole) const {
    if constexpr (step < partialSums) {
      const Sums a = folded<first, 2 * step>(whole);
      return add(a, folded<first + step, 2 * step>(whole));
    } else {
      Sums sum = term(first);
      for (Zor32s j = first + partialSums; j < whole; j += partialSums) sum = add(sum, term(j));
      return sum;
    }
  }
  [[gnu::flatten]] void operator()(Sum* out) const {
    const Zor32s whole = tapsLen / partialSums * partialSums;
    // Sums start from +0. Where all products are -0 that decides the sign, and added last it does so too.
    Sums sum = splat<Sums>(Sum{});
    if (whole > 0) sum = add(folded<0, 1>(whole), sum);
    for (Zor32s j = whole; j < tapsLen; ++j) sum = add(sum, restTerm(j));
    store(out, sum);
  }
};

// len sums, then some that the caller does not look at: reads in[0 .. len + tapsLen + windowsAtOnce - 2], and writes as
// many sums as whole steps take.
template <class Sum, class Tap> void windowSums(const Tap* taps, Zor32s tapsLen, const Tap* in, Sum* out, Zor32s len) {
  for (Zor32s i = 0; i < len; i += windowsAtOnce<Sum, Tap>)
    Windows<Sum, Tap>{taps + tapsLen - 1, tapsLen, in + i}(out + i);
}

}  // namespace zors::fir
