// One sample through a filter.
#pragma once

#include "frame/simd.h"
#include "iir/iir_scalar.h"
#include "iir/iir_state.h"

namespace zors::iir {

// The transposed second form; d[order] is zero.
template <class T> ZORS_INLINE T polynomialStep(const T* taps, T* d, Zor32s order, T x) {
  const T *b = taps, *a = taps + order;
  const T y = mulAdd(b[0], x, d[0]), minusY = negated(y);
  for (Zor32s i = 0; i < order; ++i) d[i] = mulAdd(a[i + 1], minusY, mulAdd(b[i + 1], x, d[i + 1]));
  return y;
}

template <class T> ZORS_INLINE T cascadeStep(const T* taps, T* d, Zor32s sections, T x) {
  for (; sections > 0; --sections, taps += 5, d += 2) {
    const T y = mulAdd(taps[0], x, d[0]), minusY = negated(y);
    d[0] = mulAdd(taps[3], minusY, mulAdd(taps[1], x, d[1]));
    d[1] = mulAdd(taps[4], minusY, mul(taps[2], x));
    x = y;
  }
  return x;
}

// The newest two inputs and outputs of a section are its registers.
template <class T> ZORS_INLINE T firstFormStep(const T* taps, T* d, Zor32s sections, T x) {
  for (; sections > 0; --sections, taps += 5, d += 4) {
    const T past = mulAdd(taps[1], d[0], mulAdd(taps[2], d[1], negated(mulAdd(taps[3], d[2], mul(taps[4], d[3])))));
    const T y = mulAdd(taps[0], x, past);
    d[1] = d[0];
    d[0] = x;
    d[3] = d[2];
    d[2] = y;
    x = y;
  }
  return x;
}

template <class T> ZORS_INLINE T step(ZorIIRState* state, T x) {
  const auto* taps = static_cast<const T*>(state->taps);
  auto* d = static_cast<T*>(state->dlyLine);
  switch (state->form) {
    case IirForm::cascade:
      return cascadeStep(taps, d, state->count, x);
    case IirForm::firstForm:
      return firstFormStep(taps, d, state->count, x);
    default:
      return polynomialStep(taps, d, state->count, x);
  }
}

}  // namespace zors::iir
