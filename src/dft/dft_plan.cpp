// The choice of a transform's method, and the factors of a chain.
#include "dft/dft_plan.h"

#include <algorithm>
#include <utility>

namespace zors::dft {
namespace {

constexpr Zor32s largestLength = 0x7FFFFFF;
constexpr Zor32s largestDirect = 50;
constexpr Zor32s chirpLimit = 0x4000000;
constexpr Zor32s largestFactor = 50, largestLastFactor = 150;  // the latter where the length is divisible by 4

// The lengths 2^a * {1, 3, 5, 9, 25} in which convolutions run; powers of two beyond.
constexpr Zor32s convolutionLengths[] = {128,  144,  160,  192,  200,  256,  288,  320,  384,  400,  512,
                                         576,  640,  768,  800,  1024, 1152, 1280, 1536, 1600, 2048, 2304,
                                         2560, 3072, 3200, 4096, 4608, 5120, 6144, 6400, 8192};
Zor32s convolutionLengthOf(Zor32s n) {
  const Zor32s least = 2 * n - 1;
  const auto* const found = std::lower_bound(std::begin(convolutionLengths), std::end(convolutionLengths), least);
  if (found != std::end(convolutionLengths)) return *found;
  Zor32s length = 8192;
  while (length < least) length *= 2;
  return length;
}

class Factorisation {
 public:
  Factorisation(Zor32s n, bool keepPrimes) : keepPrimes_(keepPrimes), rest_(n) {
    while (rest_ % 4 == 0) divideBy(4);
    const bool byFour = found_.count > 0;
    if (rest_ % 2 == 0) {  // the two stands in front of the fours
      divideBy(2);
      std::swap(found_.f[0], found_.f[found_.count - 1]);
    }
    for (Zor32s p = 3; rest_ >= 9 && rest_ >= p * p; p += 2) {
      if (p > largestFactor) {
        found_.count = 0;
        return;
      }
      while (rest_ >= p * p && rest_ % p == 0) divideBy(p);
    }
    const Zor32s limit = byFour && !keepPrimes ? largestLastFactor : largestFactor;
    if (found_.count == 0 || rest_ > limit)
      found_.count = 0;
    else
      divideBy(rest_);
  }
  Factors found() const { return found_; }

 private:
  void divideBy(Zor32s p) {
    rest_ /= p;
    if (p == 3 && !keepPrimes_ && found_.f[0] == 2 && found_.f[1] != 4)
      found_.f[0] = 6;
    else
      found_.f[found_.count++] = p;
  }

  bool keepPrimes_;
  Factors found_;
  Zor32s rest_;
};

}  // namespace

Factors factorsOf(Zor32s n, bool keepPrimes) { return Factorisation(n, keepPrimes).found(); }

Factors chainOf(Zor32s n) {
  Factors factors = factorsOf(n, false);
  if (factors.count == 0) return factors;
  auto& f = factors.f;
  if (factors.count > 1 && f[1] == 4 && f[0] != 6) {
    f[0] *= 4;
    std::copy(f + 2, f + factors.count, f + 1);
    --factors.count;
  }
  if (f[0] % 2 == 0) std::swap(f[0], f[factors.count - 1]);
  return factors;
}

Plan convolutionOf(Zor32s n) {
  if (n >= chirpLimit) return {};
  return {.method = Method::chirp, .convolutionLength = convolutionLengthOf(n)};
}

Plan planOf(Zor32s n) {
  if (n <= largestSmall) return {.method = Method::small};
  if (isPowerOfTwo(n)) return {.method = Method::fft};
  if (n > largestLength) return {};
  if (const Factors factors = chainOf(n); factors.count > 1) return {.method = Method::chain, .factors = factors};
  if (n <= largestDirect) return {.method = Method::direct};
  return convolutionOf(n);
}

}  // namespace zors::dft
