// IIR filters sample by sample.
#include "iir/iir_step.h"

#include "iir/iir_filter.h"

namespace zors {

template <class Value> void iirStep(ZorIIRState* state, Value* data, Zor32s len) {
  for (Zor32s i = 0; i < len; ++i) data[i] = iir::step(state, data[i]);
}

template void iirStep<Zor32f>(ZorIIRState*, Zor32f*, Zor32s);
template void iirStep<Zor32fc>(ZorIIRState*, Zor32fc*, Zor32s);
template void iirStep<Zor64f>(ZorIIRState*, Zor64f*, Zor32s);
template void iirStep<Zor64fc>(ZorIIRState*, Zor64fc*, Zor32s);

}  // namespace zors
