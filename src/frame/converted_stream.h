// Streams whose samples have another type than the arithmetic: widened a chunk at a time, processed, narrowed.
#pragma once

#include <algorithm>

#include "frame/by_type.h"

namespace zors {

// A chunk that stays in the first-level cache with its source and its results.
inline constexpr Zor32s convertedChunk = 1024;

// process(chunk, count) works in place on count samples in `chunk`, memory for chunkLen samples of the arithmetic's
// type. Results are narrowed with the scale of integers. A chunk of the source is read whole before its results are
// written, so dst may be src.
template <class S, class Value, class D, class Process>
void throughChunks(const S* src, D* dst, Zor32s len, Value* chunk, Zor32s chunkLen, Zor32s scaleFactor,
                   Process&& process) {
  for (Zor32s done = 0; done < len;) {
    const Zor32s count = std::min(len - done, chunkLen);
    by_type::widen(src + done, chunk, count);
    process(chunk, count);
    by_type::narrow(chunk, dst + done, count, scaleFactor);
    done += count;
  }
}

// The same with the chunk on the stack.
template <class Value, class S, class D, class Process>
void throughStackChunks(const S* src, D* dst, Zor32s len, Zor32s scaleFactor, Process&& process) {
  constexpr Zor32s chunkLen = convertedChunk * 4 / Zor32s{sizeof(Value)};
  alignas(32) Value chunk[chunkLen];
  throughChunks(src, dst, len, chunk, chunkLen, scaleFactor, process);
}

// One sample.
template <class Value, class S, class D, class Process>
void throughValue(S src, D* dst, Zor32s scaleFactor, Process&& process) {
  Value value;
  by_type::widen(&src, &value, 1);
  value = process(value);
  by_type::narrow(&value, dst, 1, scaleFactor);
}

}  // namespace zors
