// Argument checks, written in the order in which they are made:
//   return check().pointers(src, dst).size(len).then([&] { ... });
// Each step does nothing once one has failed. Arguments are evaluated regardless, so none may read through a pointer;
// state() reads the tag itself, and only if all before it held.
#pragma once

#include <type_traits>
#include <utility>

#include "zors/types.h"

namespace zors {

using Tag = Zor32u;  // the first word of a state or specification; tags.h lists them

class Checks {
 public:
  constexpr Checks() = default;

  constexpr Checks require(bool holds, ZorStatus otherwise) const {
    return status_ == zorStatusOk && !holds ? Checks(otherwise) : *this;
  }
  template <class... T> constexpr Checks pointers(const T*... pointer) const {
    return require(((pointer != nullptr) && ...), zorStatusNullPointer);
  }
  constexpr Checks size(Zor32s len) const { return require(len >= 1, zorStatusBadSize); }

  // The first word of a state or specification is its tag. The pointer has been checked before.
  template <class State, class... Tags> constexpr Checks state(const State* state, Tags... accepted) const {
    if (status_ != zorStatusOk) return *this;
    const Tag found = state->tag;
    return require(((found == Tag(accepted)) || ...), zorStatusBadContext);
  }

  // work() returns a status, or nothing for success.
  template <class Work> constexpr ZorStatus then(Work&& work) const {
    if (status_ != zorStatusOk) [[unlikely]]
      return status_;
    if constexpr (std::is_void_v<decltype(work())>) {
      std::forward<Work>(work)();
      return zorStatusOk;
    } else {
      return std::forward<Work>(work)();
    }
  }

 private:
  explicit constexpr Checks(ZorStatus status) : status_(status) {}
  ZorStatus status_ = zorStatusOk;
};

constexpr Checks check() { return {}; }

}  // namespace zors
