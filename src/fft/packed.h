// Packed spectra of N real values, R[k] and I[k] for k from 0 to N / 2:
//   Pack  R[0]  R[1] I[1] ... R[N/2]          N values
//   Perm  R[0] R[N/2]  R[1] I[1] ...          N values
//   CCS   R[0] 0  R[1] I[1] ... R[N/2] 0      N + 2 values
// The transforms work on Perm; these bring the others to it and from it. N is a power of two here.
#pragma once

#include <cstring>

namespace zors {

enum class Packed { pack, perm, ccs };

template <Packed format, class T> void fromPerm(T* spectrum, std::size_t n) {
  if constexpr (format == Packed::pack) {
    if (n < 2) return;
    const T last = spectrum[1];
    std::memmove(spectrum + 1, spectrum + 2, (n - 2) * sizeof(T));
    spectrum[n - 1] = last;
  } else if constexpr (format == Packed::ccs) {
    if (n >= 2) {
      spectrum[n] = spectrum[1];
      spectrum[n + 1] = 0;
    }
    spectrum[1] = 0;
  }
}

// src may be dst.
template <Packed format, class T> void toPerm(const T* src, T* dst, std::size_t n) {
  constexpr std::size_t pairs = format == Packed::pack ? 1 : 2;  // where R[1] stands
  const T first = src[0];
  if (n >= 2) {
    const T last = src[format == Packed::pack ? n - 1 : format == Packed::ccs ? n : 1];
    if (format != Packed::ccs || src != dst) std::memmove(dst + 2, src + pairs, (n - 2) * sizeof(T));
    dst[1] = last;
  }
  dst[0] = first;
}

}  // namespace zors
