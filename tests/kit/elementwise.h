// Element-wise exports against a model of one element: all lengths, edges and alignments, in place and out of place.
#pragma once

#include <gtest/gtest.h>
#include <xmmintrin.h>

#include "kit/contract.h"
#include "kit/elements.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/types.h"

namespace kit {

// Lengths at which drivers change their path, and some that are just odd.
const std::vector<int>& sweepLengths();

// For a case beside others that sweep all lengths: another scale factor, another constant.
const std::vector<int>& fewLengths();

// The caller's rounding direction for a scope, and further bits of the control word.
class Direction {
 public:
  explicit Direction(unsigned direction) : saved_(_mm_getcsr()) {
    _mm_setcsr((saved_ & ~unsigned{_MM_ROUND_MASK}) | direction);
  }
  ~Direction() { _mm_setcsr(saved_); }
  Direction(const Direction&) = delete;
  Direction& operator=(const Direction&) = delete;

 private:
  unsigned saved_;
};
inline constexpr unsigned allDirections[] = {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO};

namespace detail {

// A sweep as one loop over all types sees it: sources and destination by address, a call and a model of whole vectors
// through one signature each.
struct Sweep {
  std::string name;
  std::vector<const Element*> sources;  // in place the last is the destination, which the call gets once
  const Element* destination;
  bool inPlace;
  void* callContext;
  ZorStatus (*call)(void* context, const void* const* src, void* dst, Zor32s len);
  void* modelContext;
  void (*model)(void* context, const void* const* src, void* wanted, std::size_t count);
  Nan nan = Nan::anyPayload;
};
void sweep(const Sweep& sweep, const std::vector<int>& lengths);

template <class Call, class D, class... S>
ZorStatus callOn(void* context, const void* const* src, void* dst, Zor32s len) {
  return [&]<std::size_t... k>([[maybe_unused]] std::index_sequence<k...> all) {
    return (*static_cast<Call*>(context))(static_cast<const S*>(src[k])..., static_cast<D*>(dst), len);
  }
  (std::index_sequence_for<S...>{});
}
template <class Model, class D, class... S>
void modelOf(void* context, const void* const* src, void* wanted, std::size_t count) {
  [&]<std::size_t... k>([[maybe_unused]] std::index_sequence<k...> all) {
    for (std::size_t i = 0; i < count; ++i)
      static_cast<D*>(wanted)[i] = (*static_cast<Model*>(context))(static_cast<const S*>(src[k])[i]...);
  }
  (std::index_sequence_for<S...>{});
}

}  // namespace detail

// call(const S*..., D* dst, len) against model(S...); each source of the destination's type is tried as the destination
// too, and all of them at once.
template <class D, class... S, class Call, class Model>
void sweep(const std::string& name, Call call, Model model, const std::vector<int>& lengths = sweepLengths(),
           Nan nan = Nan::anyPayload) {
  detail::sweep({name,
                 {&element<S>...},
                 &element<D>,
                 false,
                 &call,
                 detail::callOn<Call, D, S...>,
                 &model,
                 detail::modelOf<Model, D, S...>,
                 nan},
                lengths);
}
// call(const S*..., D* srcDst, len) against model(S..., D).
template <class D, class... S, class Call, class Model>
void sweepInPlace(const std::string& name, Call call, Model model, const std::vector<int>& lengths = sweepLengths(),
                  Nan nan = Nan::anyPayload) {
  detail::sweep({name,
                 {&element<S>..., &element<D>},
                 &element<D>,
                 true,
                 &call,
                 detail::callOn<Call, D, S...>,
                 &model,
                 detail::modelOf<Model, D, S..., D>,
                 nan},
                lengths);
}

}  // namespace kit
