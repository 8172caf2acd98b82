// Specifications and states of any kind through one contract. A test tells how its kind is sized, built, run and freed;
// checkObject() then holds it to what all objects share:
//   - a block of exactly the reported size is enough at any address, with an unreadable page before or behind it,
//   whatever
//     the block, the init buffer and the work buffer held before; Init needs its buffer no longer than its call lasts;
//   - objects built by Init and by InitAlloc give the same results; Init allocates nothing, nor does a call with its
//   work
//     buffer; without one a call takes what it needs and gives it back;
//   - each failing allocation is zorStatusNoMemory with nothing written and nothing kept;
//   - an object with a foreign tag is refused by every operation, which changes neither it nor the outputs;
//   - Free releases what InitAlloc took, and a second Free finds no tag; of a caller's block it releases nothing.
//
//   kit::checkObject(kit::Object<ZorFIRState>{
//       .name = "zorsFIR_32f, 10 taps",
//       .getSize = [](Zor32s* block, Zor32s*, Zor32s*) { return zorsFIRGetStateSize_32f(10, block); },
//       .init = [&](ZorFIRState** state, Zor8u* block, Zor8u*) { return zorsFIRInit_32f(state, taps, 10, dly, block);
//       }, .initAlloc = [&](ZorFIRState** state) { return zorsFIRInitAlloc_32f(state, taps, 10, dly); }, .free =
//       zorsFIRFree_32f, .outBytes = 64 * sizeof(Zor32f), .run = [&](ZorFIRState* state, Zor8u*, Zor8u* out) { return
//       zorsFIR_32f(x, as<Zor32f>(out), 64, state); }, .operations = {{"zorsFIRSetDlyLine_32f", [](ZorFIRState* state)
//       { return zorsFIRSetDlyLine_32f(state, nullptr); }}},
//   });
#pragma once

#include <climits>
#include <functional>
#include <string>
#include <vector>

#include "zors/types.h"

namespace kit {

// What Free makes of an object in the caller's block: it clears the tag, or does nothing.
enum class FreeInCallersBlock { clearsTheTag, doesNothing };

// The object is an S; as Object<void> it is what the checks see. Members that a kind does not have stay empty.
template <class S> struct Object {
  std::string name = {};
  // Bytes of the block, of the init buffer and of the work buffer; those that the kind does not have stay 0.
  std::function<ZorStatus(Zor32s* block, Zor32s* init, Zor32s* work)> getSize = {};
  std::function<ZorStatus(S** object, Zor8u* block, Zor8u* initBuffer)> init = {};
  std::function<ZorStatus(S** object)> initAlloc = {};
  std::function<ZorStatus(S* object)> free = {};

  // One call, or several, on inputs that the test keeps. `work` is null, or as large as getSize says.
  std::size_t outBytes = 0;
  std::function<ZorStatus(S* object, Zor8u* work, Zor8u* out)> run = {};

  // All that take the object with their other arguments good, Free and run() aside: each is called with foreign tags.
  struct Operation {
    std::string name = {};
    std::function<ZorStatus(S* object)> call = {};
  };
  std::vector<Operation> operations = {};
  std::vector<Zor32u> tags = {};  // further tags that one of them accepts

  bool immutable = false;             // run() changes no byte of the object
  bool runAllocates = false;          // even with a work buffer
  int vitalAllocations = INT_MAX;     // of InitAlloc; without the later ones the object works in another way
  FreeInCallersBlock freeInCallersBlock = FreeInCallersBlock::doesNothing;
};

namespace detail {
void checkObject(const Object<void>& object);

template <class S> Object<void> withoutType(const Object<S>& typed) {
  Object<void> object;
  object.name = typed.name;
  object.getSize = typed.getSize;
  if (typed.init)
    object.init = [init = typed.init](void** out, Zor8u* block, Zor8u* initBuffer) {
      S* made = static_cast<S*>(*out);
      const ZorStatus status = init(&made, block, initBuffer);
      *out = made;
      return status;
    };
  if (typed.initAlloc)
    object.initAlloc = [initAlloc = typed.initAlloc](void** out) {
      S* made = static_cast<S*>(*out);
      const ZorStatus status = initAlloc(&made);
      *out = made;
      return status;
    };
  if (typed.free) object.free = [free = typed.free](void* made) { return free(static_cast<S*>(made)); };
  object.outBytes = typed.outBytes;
  object.run = [run = typed.run](void* made, Zor8u* work, Zor8u* out) { return run(static_cast<S*>(made), work, out); };
  for (const auto& operation : typed.operations)
    object.operations.push_back(
        {operation.name, [call = operation.call](void* made) { return call(static_cast<S*>(made)); }});
  object.tags = typed.tags;
  object.immutable = typed.immutable;
  object.runAllocates = typed.runAllocates;
  object.vitalAllocations = typed.vitalAllocations;
  object.freeInCallersBlock = typed.freeInCallersBlock;
  return object;
}
}  // namespace detail

template <class S> void checkObject(const Object<S>& object) { detail::checkObject(detail::withoutType(object)); }

// Outputs of run() as elements.
template <class T> T* as(Zor8u* out) { return reinterpret_cast<T*>(out); }

}  // namespace kit
