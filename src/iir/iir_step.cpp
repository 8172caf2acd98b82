// IIR filters sample by sample.
#include "iir/iir_filter.h"
#include "iir/iir_scalar.h"

namespace zors {
namespace {

using namespace iir;

// The transposed second form; d[order] is zero.
template <class Value> void polynomialSteps(const Value* taps, Value* d, Zor32s order, Value* data, Zor32s len) {
  const Value *b = taps, *a = taps + order;
  for (Zor32s n = 0; n < len; ++n) {
    const Value x = data[n], y = mulAdd(b[0], x, d[0]), minusY = negated(y);
    for (Zor32s i = 0; i < order; ++i) d[i] = mulAdd(a[i + 1], minusY, mulAdd(b[i + 1], x, d[i + 1]));
    data[n] = y;
  }
}

template <class Value> void cascadeSteps(const Value* taps, Value* dlyLine, Zor32s sections, Value* data, Zor32s len) {
  for (Zor32s n = 0; n < len; ++n) {
    Value x = data[n];
    const Value* t = taps;
    Value* d = dlyLine;
    for (Zor32s s = 0; s < sections; ++s, t += 5, d += 2) {
      const Value y = mulAdd(t[0], x, d[0]), minusY = negated(y);
      d[0] = mulAdd(t[3], minusY, mulAdd(t[1], x, d[1]));
      d[1] = mulAdd(t[4], minusY, mul(t[2], x));
      x = y;
    }
    data[n] = x;
  }
}

// The newest two inputs and outputs of a section are its registers.
template <class Value>
void firstFormSteps(const Value* taps, Value* dlyLine, Zor32s sections, Value* data, Zor32s len) {
  for (Zor32s n = 0; n < len; ++n) {
    Value x = data[n];
    const Value* t = taps;
    Value* d = dlyLine;
    for (Zor32s s = 0; s < sections; ++s, t += 5, d += 4) {
      Value y = mulAdd(t[0], x, mulAdd(t[1], d[0], mul(t[2], d[1])));
      y = mulAdd(negated(t[3]), d[2], mulAdd(negated(t[4]), d[3], y));
      d[1] = d[0];
      d[0] = x;
      d[3] = d[2];
      d[2] = y;
      x = y;
    }
    data[n] = x;
  }
}

}  // namespace

template <class Value> void iirStep(ZorIIRState* state, Value* data, Zor32s len) {
  const auto* taps = static_cast<const Value*>(state->taps);
  auto* dlyLine = static_cast<Value*>(state->dlyLine);
  switch (state->form) {
    case IirForm::polynomial:
      return polynomialSteps(taps, dlyLine, state->count, data, len);
    case IirForm::cascade:
      return cascadeSteps(taps, dlyLine, state->count, data, len);
    case IirForm::firstForm:
      return firstFormSteps(taps, dlyLine, state->count, data, len);
  }
}

template void iirStep<Zor32f>(ZorIIRState*, Zor32f*, Zor32s);
template void iirStep<Zor32fc>(ZorIIRState*, Zor32fc*, Zor32s);
template void iirStep<Zor64f>(ZorIIRState*, Zor64f*, Zor32s);
template void iirStep<Zor64fc>(ZorIIRState*, Zor64fc*, Zor32s);

}  // namespace zors
