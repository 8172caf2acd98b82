// Correlation sums in extended precision, and what results of a type may differ from them.
#pragma once

#include <cmath>
#include <complex>
#include <string>
#include <vector>

#include "kit/values.h"

namespace sums {

using Wide = std::complex<long double>;

template <class T> Wide wide(T x) {
  if constexpr (kit::ComplexPair<T>)
    return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
  else
    return static_cast<long double>(x);
}
template <class T> struct PartType { using type = T; };
template <kit::ComplexPair T> struct PartType<T> { using type = decltype(T::re); };

// A sum, the sum of its magnitudes, and how many products it has.
struct Sum {
  Wide value = 0;
  long double magnitude = 0;
  long products = 0;
};

// Of conj(a[k]) * b[k + lag] over all k with both there.
template <class T> Sum correlation(const std::vector<T>& a, const std::vector<T>& b, long lag) {
  Sum sum;
  const long end = std::min(long(a.size()), long(b.size()) - lag);
  for (long k = std::max(0L, -lag); k < end; ++k) {
    const Wide product = std::conj(wide(a[std::size_t(k)])) * wide(b[std::size_t(k + lag)]);
    sum.value += product;
    sum.magnitude += std::abs(product);
    ++sum.products;
  }
  return sum;
}
// Element n of the convolution.
template <class T> Sum convolution(const std::vector<T>& a, const std::vector<T>& b, long n) {
  Sum sum;
  for (long k = std::max(0L, n - long(b.size()) + 1); k <= n && k < long(a.size()); ++k) {
    const Wide product = wide(a[std::size_t(k)]) * wide(b[std::size_t(n - k)]);
    sum.value += product;
    sum.magnitude += std::abs(product);
    ++sum.products;
  }
  return sum;
}

// The energy of a vector: transforms spread errors over all results, in proportion to the norms of their operands.
template <class T> long double norm(const std::vector<T>& a) {
  long double sum = 0;
  for (const T& x : a) sum += std::norm(wide(x));
  return std::sqrt(sum);
}

// What roundings of partial sums in a row come to, which err in both directions.
inline long double roundings(const Sum& sum) { return 4 + 0.3L * std::sqrt(static_cast<long double>(sum.products)); }

// "" or what is wrong with a result: further from the sum, divided by `divisor`, than `spread` epsilons of the type
// allow.
template <class T> std::string fault(T got, const Sum& sum, long double divisor, long double spread) {
  using P = typename PartType<T>::type;
  const Wide wanted = sum.value / divisor;
  const long double error = std::abs(wide(got) - wanted),
                    allowed = spread / divisor * std::numeric_limits<P>::epsilon();
  if (error <= allowed || (sum.products == 0 && error == 0)) return "";
  return "got " + kit::text(got) + ", wanted " + std::to_string(double(wanted.real())) + " " +
         std::to_string(double(wanted.imag())) + ", error " + std::to_string(double(error)) + ", allowed " +
         std::to_string(double(allowed));
}

}  // namespace sums
