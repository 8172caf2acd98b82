// Where a transform reads and writes. An inverse transform conjugates on the way in and on the way out: sources change
// signs, targets have a negative factor of imaginary parts; of split arrays the two change places instead, since
// exchanging the parts of all numbers does the same.
#pragma once

#include <algorithm>

#include "dft/complex_pairs.h"

namespace zors::dft {

enum class Sign : bool { kept, changed };  // of imaginary parts

template <class T> struct InterleavedSource {
  const T* points;
  T sign;
  InterleavedSource(const T* p, Sign change) : points(p), sign(change == Sign::changed ? T(-0.0) : T(0.0)) {}
  template <int n> ZORS_INLINE Pairs<T, n> load(std::size_t i) const {
    return signsOf(loadPairs<n>(points + 2 * i), both<Pairs<T, n>>(0, sign));
  }
};
template <class T> struct SplitSource {
  const T *re, *im;
  template <int n> ZORS_INLINE Pairs<T, n> load(std::size_t i) const { return loadParts<n>(re + i, im + i); }
};
// Real numbers of odd count.
template <class T> struct RealSource {
  static constexpr bool oddAlone = true;
  const T* values;
  template <int n> ZORS_INLINE Pairs<T, n> load(std::size_t i) const {
    return loadParts<n>(values + i, static_cast<const T*>(nullptr));
  }
};
// All n points, n odd, of a spectrum of which Perm holds the first half.
template <class T> struct PermSource {
  static constexpr bool oddAlone = true;
  const T* spectrum;
  std::size_t points;
  T sign, mirrorSign;
  PermSource(const T* p, std::size_t n, Sign change)
      : spectrum(p),
        points(n),
        sign(change == Sign::changed ? T(-0.0) : T(0.0)),
        mirrorSign(change == Sign::changed ? T(0.0) : T(-0.0)) {}
  template <int n> ZORS_INLINE Pairs<T, n> load(std::size_t i) const {
    using P = Pairs<T, n>;
    if (i > points / 2) return signsOf(reversed(loadPairs<n>(at(points - i - (n - 1)))), both<P>(0, mirrorSign));
    if (i > 0 && i + n - 1 <= points / 2) return signsOf(loadPairs<n>(at(i)), both<P>(0, sign));
    if constexpr (n == 1) {
      return loadParts<1>(spectrum, static_cast<const T*>(nullptr));
    } else {
      T numbers[2 * n];
      for (std::size_t k = 0; k < n; ++k) storePairs(numbers + 2 * k, load<1>(i + k));
      return loadPairs<n>(numbers);
    }
  }

 private:
  ZORS_INLINE const T* at(std::size_t k) const { return spectrum + 2 * k - 1; }
};

template <class T> struct InterleavedTarget {
  T* points;
  Pairs<T, 1> factors;  // in one register: parts stored one by one would stall the load of both
  InterleavedTarget(T* p, T factor, Sign change)
      : points(p), factors(both<Pairs<T, 1>>(factor, change == Sign::changed ? -factor : factor)) {}
  template <int n> ZORS_INLINE void store(std::size_t k, Pairs<T, n> x) const {
    storePairs(points + 2 * k, x * repeated<Pairs<T, n>>(factors));
  }
};
template <class T> struct SplitTarget {
  T *re, *im;
  T factor;
  template <int n> ZORS_INLINE void store(std::size_t k, Pairs<T, n> x) const {
    storeParts(re + k, im + k, x * all<Pairs<T, n>>(factor));
  }
};
// The first half of a spectrum of real numbers of odd count, as Perm holds it.
template <class T> struct PermTarget {
  static constexpr bool oddAlone = true;
  T* spectrum;
  std::size_t points;
  T factor;
  template <int n> ZORS_INLINE void store(std::size_t k, Pairs<T, n> x) const {
    if (k > points / 2) return;
    const auto scaled = x * all<Pairs<T, n>>(factor);
    if (k > 0 && k + n - 1 <= points / 2) {
      storePairs(spectrum + 2 * k - 1, scaled);
    } else if constexpr (n == 1) {
      *spectrum = scaled.r[0];
    } else {
      T numbers[2 * n];
      storePairs(numbers, x);
      for (std::size_t i = 0; i < n; ++i) store(k + i, loadPairs<1>(numbers + 2 * i));
    }
  }
};
// Real parts alone.
template <class T> struct RealTarget {
  static constexpr bool oddAlone = true;
  T* values;
  T factor;
  template <int n> ZORS_INLINE void store(std::size_t k, Pairs<T, n> x) const {
    T imaginaries[n];
    storeParts(values + k, imaginaries, x * all<Pairs<T, n>>(factor));
  }
};
// Between the passes.
template <class T> struct WorkTarget {
  T* points;
  template <int n> ZORS_INLINE void store(std::size_t k, Pairs<T, n> x) const { storePairs(points + 2 * k, x); }
};

// run.operator()<n>(k) for k from 0 to count in steps of n columns: full vectors, then halves of them.
template <class T, class Run> ZORS_INLINE void overColumns(std::size_t count, Run run) {
  constexpr int full = fullPairs<T>;
  std::size_t k = 0;
  for (; k + full <= count; k += full) run.template operator()<full>(k);
  if constexpr (full == 4) {
    if (k + 2 <= count) {
      run.template operator()<2>(k);
      k += 2;
    }
  }
  if (k < count) run.template operator()<1>(k);
}

// The same for passes that do not overwrite what they read: the last full vector reaches back where columns are short.
template <class T, class Run> ZORS_INLINE void overColumnsApart(std::size_t count, Run run) {
  constexpr std::size_t full = fullPairs<T>;
  if (count < full) return overColumns<T>(count, run);
  for (std::size_t k = 0; k < count; k += full) run.template operator()<full>(std::min(k, count - full));
}

// run.operator()<n>() where value is n, one of the values; whether it is.
template <int... values, class Run> ZORS_INLINE bool withConstant(Zor32s value, Run run) {
  return ((value == values && (run.template operator()<values>(), true)) || ...);
}

}  // namespace zors::dft
