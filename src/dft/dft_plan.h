// How a transform of a length runs. The plan alone decides: sizes and tables follow from it.
#pragma once

#include <cstddef>

#include "exports/fft.h"
#include "zors/types.h"

namespace zors::dft {

enum class Method { none, small, fft, chain, direct, chirp };

inline constexpr Zor32s largestSmall = 16;  // straight-line kernels, without tables or work memory

constexpr bool isFlag(Zor32s flag) {
  return flag == ZOR_FFT_DIVIDE_FORWARD || flag == ZOR_FFT_DIVIDE_INVERSE || flag == ZOR_FFT_DIVIDE_BOTH_ROOT ||
         flag == ZOR_FFT_DIVIDE_NONE;
}
constexpr bool isPowerOfTwo(Zor32s n) { return n > 0 && (n & (n - 1)) == 0; }
constexpr int orderOf(Zor32s powerOfTwo) {
  int order = 0;
  while (powerOfTwo >> order > 1) ++order;
  return order;
}

// Factors of a chain: stages of radices f[0], f[1], ... over leaves of f[count - 1] points; count 0 where there are
// none.
struct Factors {
  static constexpr int capacity = 20;
  int count = 0;
  Zor32s f[capacity] = {};

  Zor32s leaf() const { return f[count - 1]; }
  int stages() const { return count - 1; }
};
// The factors in the order in which division finds them. Twos and threes join to sixes unless keepPrimes.
Factors factorsOf(Zor32s n, bool keepPrimes);
// The same in the order of a chain: powers of two gather in the leaf.
Factors chainOf(Zor32s n);

// Radices with kernels of their own; others are odd primes above 13.
constexpr bool hasKernel(Zor32s radix) { return radix < 17; }

struct Plan {
  Method method = Method::none;
  Factors factors = {};          // of a chain
  Zor32s convolutionLength = 0;  // of a chirp
};
Plan convolutionOf(Zor32s n);
// Of n complex points. A power of two above largestSmall is Method::fft at any size; a length beyond all is none.
Plan planOf(Zor32s n);

}  // namespace zors::dft
