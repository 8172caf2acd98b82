// Streams of any kind: filters, generators, resamplers whose calls go on where the last one stopped. A test tells how a
// fresh one is opened; checkStream() then runs the input whole and cut in many ways, by all forms of the call, and
// holds every cut to the whole: outputs, and what a caller can read of the state at the end.
//
//   kit::checkStream(kit::Stream<Zor32f, Zor32f>{
//       .name = "zorsFIR_32f, 10 taps",
//       .input = x,
//       .open = [&] {
//         const auto state = std::make_shared<State>(taps);   // what the calls share
//         return kit::Channel<Zor32f, Zor32f>{
//             .process = [=](const Zor32f* src, Zor32f* dst, Zor32s len) { return zorsFIR_32f(src, dst, len, *state);
//             }, .inPlace = [=](Zor32f* srcDst, Zor32s len) { return zorsFIR_32f_I(srcDst, len, *state); }, .one =
//             [=](const Zor32f* src, Zor32f* dst) { return zorsFIROne_32f(*src, dst, *state); }, .history = [=] {
//             return kit::bytesOf(delayLineOf(*state)); }};
//       },
//   });
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "kit/values.h"
#include "zors/types.h"

namespace kit {

// The calls on one state. All but `process` or `produce` may be empty.
template <class In, class Out> struct Channel {
  std::function<ZorStatus(const In* src, Out* dst, Zor32s steps)> process = {};
  std::function<ZorStatus(Out* srcDst, Zor32s steps)> inPlace = {};
  std::function<ZorStatus(const In* src, Out* dst)> one = {};  // a single step
  // Where the number of outputs varies, in place of `process`: appends them.
  std::function<ZorStatus(const In* src, Zor32s steps, std::vector<Out>& out)> produce = {};
  std::function<std::vector<Zor8u>()> history = {};  // what a caller can read of the state
  std::function<bool()> intact = {};                 // nothing written outside the state
};

template <class In, class Out> struct Stream {
  std::string name = {};
  std::vector<In> input = {};
  std::function<Channel<In, Out>()> open = {};
  // A step takes and gives so many elements: a sample, or a round of a filter that changes the rate. A generator takes
  // 0.
  int inPerStep = 1, outPerStep = 1;
  Zor32s steps = 0;  // of a generator
  std::vector<Zor32s> lengths =
      {};                      // of pieces that the stream is cut into besides: those around the kind's thresholds
  Zor32s longest = INT32_MAX;  // steps of a call: longer ones go by another path, with other roundings
  // Holds the outputs of a cut to those of the whole where they need not be the same to the bit.
  std::function<void(const std::vector<Out>& got, const std::vector<Out>& whole, const std::string& what)> expect = {};
};

namespace detail {
void checkStream(const Stream<Zor8u, Zor8u>& stream);
}

template <class T> std::vector<Zor8u> bytesOf(const std::vector<T>& values) {
  std::vector<Zor8u> bytes(values.size() * sizeof(T));
  if (!bytes.empty()) std::memcpy(bytes.data(), values.data(), bytes.size());
  return bytes;
}
template <class T> std::vector<T> fromBytes(const std::vector<Zor8u>& bytes) {
  std::vector<T> values(bytes.size() / sizeof(T));
  if (!values.empty()) std::memcpy(values.data(), bytes.data(), values.size() * sizeof(T));
  return values;
}

// Every stream runs through one loop over bytes.
template <class In, class Out> void checkStream(const Stream<In, Out>& typed) {
  Stream<Zor8u, Zor8u> stream;
  stream.name = typed.name;
  stream.input = bytesOf(typed.input);
  stream.inPerStep = typed.inPerStep * int(sizeof(In));
  stream.outPerStep = typed.outPerStep * int(sizeof(Out));
  stream.steps = typed.steps;
  stream.lengths = typed.lengths;
  stream.longest = typed.longest;
  stream.open = [open = typed.open] {
    const auto in = [](const Zor8u* p) { return reinterpret_cast<const In*>(p); };
    const auto out = [](Zor8u* p) { return reinterpret_cast<Out*>(p); };
    const Channel<In, Out> calls = open();
    Channel<Zor8u, Zor8u> erased{.history = calls.history, .intact = calls.intact};
    if (calls.process)
      erased.process = [=, f = calls.process](const Zor8u* src, Zor8u* dst, Zor32s steps) {
        return f(in(src), out(dst), steps);
      };
    if (calls.inPlace)
      erased.inPlace = [=, f = calls.inPlace](Zor8u* srcDst, Zor32s steps) { return f(out(srcDst), steps); };
    if (calls.one) erased.one = [=, f = calls.one](const Zor8u* src, Zor8u* dst) { return f(in(src), out(dst)); };
    if (calls.produce)
      erased.produce = [=, f = calls.produce](const Zor8u* src, Zor32s steps, std::vector<Zor8u>& dst) {
        std::vector<Out> made;
        const ZorStatus status = f(in(src), steps, made);
        const auto bytes = bytesOf(made);
        dst.insert(dst.end(), bytes.begin(), bytes.end());
        return status;
      };
    return erased;
  };
  stream.expect = [expect = typed.expect](const auto& got, const auto& whole, const std::string& what) {
    const auto a = fromBytes<Out>(got), b = fromBytes<Out>(whole);
    if (expect)
      expect(a, b, what);
    else
      EXPECT_EQ(firstDifference<Out>(std::span(a), std::span(b)), "") << what;
  };
  detail::checkStream(stream);
}

}  // namespace kit
