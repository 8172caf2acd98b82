// Records of generators: of fixed size, without pointers, at any byte address of the caller's. Operations work on a
// copy and write it back.
#pragma once

#include <cstring>
#include <type_traits>

#include "frame/object.h"

namespace zors::generators {

template <class Record, class State> Record loadRecord(const State* state) {
  static_assert(std::is_trivially_copyable_v<Record>);
  Record record;
  std::memcpy(static_cast<void*>(&record), state, sizeof record);
  return record;
}
template <class Record, class State> void storeRecord(const Record& record, State* state) {
  std::memcpy(static_cast<void*>(state), &record, sizeof record);
}

// The end of an InitAlloc: *out is written on success alone.
template <class Record, class State>
ZorStatus storeInNewMemory(const Record& record, State** out, std::size_t bytes = sizeof(Record)) {
  OwnMemory memory(bytes);
  if (!memory) return zorStatusNoMemory;
  storeRecord(record, memory.data());
  *out = reinterpret_cast<State*>(memory.giveAway());
  return zorStatusOk;
}

// Releases a record that InitAlloc allocated, its tag cleared so that a stale pointer is refused while the memory
// lasts.
template <class State> void releaseRecord(State* state) {
  storeRecord(Tag{0}, state);
  zors::zorsFree(state);
}

}  // namespace zors::generators
