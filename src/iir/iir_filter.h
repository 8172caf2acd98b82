// What the families of the IIR folder share about the filters themselves, by type of arithmetic.
#pragma once

#include <algorithm>

#include "iir/iir_state.h"

namespace zors {

// Stores taps, normalised, and the tables made from them; registers stay. zorStatusDivideByZero leaves all as it was.
template <class Value> ZorStatus iirStoreTaps(ZorIIRState* state, const Value* taps);

// The table of one section with the normalised a1, a2.
template <class Value> void iirSectionTableOf(Value a1, Value a2, Value* table);

// len samples in place, one by one.
template <class Value> void iirStep(ZorIIRState* state, Value* data, Zor32s len);

// A chunk of at most iirChunk samples to data, several outputs at once. data is aligned to a register and has room for
// iirChunk values; src may be data. False where an output is not a finite number: such a number would reach outputs
// before it, so nothing is claimed about data; registers are as they were.
template <class Value> bool iirLookAhead(ZorIIRState* state, const Value* src, Value* data, Zor32s len);

// Chunks up to this length take steps.
inline bool iirIsShort(const ZorIIRState* state, Zor32s len) { return len <= 4 * std::int64_t{state->count}; }
// So do, of sections, those that are faster by steps than by a block that they hardly fill.
inline bool iirTakesSteps(const ZorIIRState* state, Zor32s len) {
  const bool sections = state->form != IirForm::polynomial || iirIsSection(static_cast<std::size_t>(state->count));
  return iirIsShort(state, len) || (sections && len <= std::min(12 + 4 * std::int64_t{state->count}, std::int64_t{36}));
}

}  // namespace zors
