// Samples of either type as binary32 values, eight at a time.
#pragma once

#include "frame/part.h"

namespace zors::simd {

ZORS_INLINE Vec<Zor32f, 8> floatsAt(const Zor32f* p) { return load<8>(p); }
ZORS_INLINE Vec<Zor32f, 8> floatsAt(const Zor16s* p) {
  return toFloat(Vec<Zor32s, 8>{{_mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)))}});
}
// count of them, from 0 to 7, and zeros behind them.
ZORS_INLINE Vec<Zor32f, 8> floatsThenZeros(const Zor32f* p, int count) { return loadThenZeros(p, count); }
ZORS_INLINE Vec<Zor32f, 8> floatsThenZeros(const Zor16s* p, int count) {
  Zor16s some[8] = {};
  for (int i = 0; i < count; ++i) some[i] = p[i];
  return floatsAt(some);
}

}  // namespace zors::simd
