// What the families of the IIR folder share about the filters themselves, by type of arithmetic.
#pragma once

#include "iir/iir_state.h"

namespace zors {

// Stores taps, normalised, and the tables made from them; registers stay. zorStatusDivideByZero leaves all as it was.
template <class Value> ZorStatus iirStoreTaps(ZorIIRState* state, const Value* taps);

// The table of one section with the normalised a1, a2.
template <class Value> void iirSectionTableOf(Value a1, Value a2, Value* table);

// len samples in place, one by one.
template <class Value> void iirStep(ZorIIRState* state, Value* data, Zor32s len);

// A chunk of at most iirChunk samples in place, several outputs at once. data is aligned to a register and has room for
// iirChunk values. False where an output is not a finite number: such a number would reach
// outputs before it, so nothing is claimed about data; registers are as they were.
template <class Value> bool iirLookAhead(ZorIIRState* state, Value* data, Zor32s len);

// The shortest chunk that looks ahead is one longer.
inline bool iirIsShort(const ZorIIRState* state, Zor32s len) { return len <= 4 * std::int64_t{state->count}; }

}  // namespace zors
