// Packed spectra of N real values, N of any kind; transforms work on Perm, these bring the others to it and from it.
//   Pack  R[0]  R[1] I[1] ... R[N/2]          N values; the last one where N is even
//   Perm  R[0] R[N/2]  R[1] I[1] ...          N values; as Pack where N is odd
//   CCS   R[0] 0  R[1] I[1] ... R[N/2] 0      N + 2 values, N + 1 where N is odd
#pragma once

#include <cstring>

#include "zors/types.h"

namespace zors::dft {

enum class Packed { pack, perm, ccs };

// Values of a packed spectrum.
template <Packed format> constexpr std::size_t valuesOf(std::size_t n) {
  return format != Packed::ccs ? n : n % 2 == 0 ? n + 2 : n + 1;
}

template <Packed format, class T> void fromPerm(T* spectrum, std::size_t n) {
  const bool even = n % 2 == 0;
  if constexpr (format == Packed::pack) {
    if (!even) return;
    const T last = spectrum[1];
    std::memmove(spectrum + 1, spectrum + 2, (n - 2) * sizeof(T));
    spectrum[n - 1] = last;
  } else if constexpr (format == Packed::ccs) {
    if (even) {
      spectrum[n] = spectrum[1];
      spectrum[n + 1] = 0;
    } else {
      std::memmove(spectrum + 2, spectrum + 1, (n - 1) * sizeof(T));
    }
    spectrum[1] = 0;
  }
}

// src may be dst. The imaginary parts that are zeros are not read.
template <Packed format, class T> void toPerm(const T* src, T* dst, std::size_t n) {
  const bool even = n % 2 == 0;
  const std::size_t pairs = format == Packed::pack ? 1 : 2;  // where R[1] stands
  const T first = src[0];
  if (even) {
    const T last = src[format == Packed::pack ? n - 1 : format == Packed::ccs ? n : 1];
    std::memmove(dst + 2, src + pairs, (n - 2) * sizeof(T));
    dst[1] = last;
  } else {
    std::memmove(dst + 1, src + (format == Packed::ccs ? 2 : 1), (n - 1) * sizeof(T));
  }
  dst[0] = first;
}

}  // namespace zors::dft
