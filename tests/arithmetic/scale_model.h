// The scale rule in a width where everything fits: t / 2^s to nearest, ties to even, saturated to D.
#pragma once

#include <limits>

#include "zors.h"

namespace model {

template <class D> D saturated(__int128 t) {
  using L = std::numeric_limits<D>;
  return t < L::min() ? L::min() : t > L::max() ? L::max() : static_cast<D>(t);
}
// |t| is below 2^64.
template <class D> D scaled(__int128 t, Zor32s s) {
  if (s > 66) return 0;
  if (s <= 0) return saturated<D>(t * (static_cast<__int128>(1) << (s < -62 ? 62 : -s)));
  const __int128 half = static_cast<__int128>(1) << (s - 1);
  return saturated<D>((t + half - 1 + ((t >> s) & 1)) >> s);
}

}  // namespace model
