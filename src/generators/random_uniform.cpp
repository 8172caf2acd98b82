// zorsRandUniform_*, zorsRandUniform_Direct_* and their states: uniform random vectors.
#include "exports/generators.h"
#include "generators/indexed.h"
#include "generators/random.h"
#include "generators/record.h"

struct ZorRandUniformState {
  zors::Tag tag;
};

namespace zors {
namespace {

using namespace simd;
using namespace generators;

template <class T>
inline constexpr Tag tagOf = std::is_same_v<T, Zor8u>    ? tag(35)
                             : std::is_same_v<T, Zor16s> ? tag(36)
                                                         : tag(37);

// fma(scale, r, mean) covers low to high for r of 32 bits. Sum and difference of the bounds are formed in 32 bits, of
// doubles in 64. The constant is not 2^-32, and is part of every element's bits.
struct Range {
  Zor64f mean, scale;

  template <class T> static Range of(T low, T high) {
    return {Zor64f(low + high) * 0.5, Zor64f(high - low) * 2.3283064365387e-10};
  }
};

template <class T> struct Uniform {
  Tag tag;
  Zor32u seed;
  T low, high;
  Range range;
  RandomWords words;

  Uniform() = default;
  Uniform(T from, T to, Zor32u start)
      : tag(tagOf<T>), seed(start), low(from), high(to), range(Range::of(from, to)), words(start) {}
};
static_assert(sizeof(Uniform<Zor8u>) == 56 && sizeof(Uniform<Zor16s>) == 56 && sizeof(Uniform<Zor32f>) == 56);

enum class ToInteger { truncated, byDirection };

template <ToInteger rule = ToInteger::truncated, class D>
[[gnu::flatten]] void fill(RandomWords& words, Range range, D* dst, std::ptrdiff_t len) {
  constexpr int L = randomStep<D>;
  RandomWords local = words;  // in registers
  for (std::ptrdiff_t at = 0; at < len; at += RandomWords::chunk) {
    const int count = int(std::min<std::ptrdiff_t>(RandomWords::chunk, len - at));
    local.draw<L>(count, [&](int i, Vec<Zor32s, L> r) ZORS_INLINE_LAMBDA {
      const auto x = toDouble(r), v = fma(x, same(x, range.scale), same(x, range.mean));
      const auto y = [&]() ZORS_INLINE_LAMBDA {
        if constexpr (std::is_same_v<D, Zor64f>)
          return v;
        else if constexpr (std::is_same_v<D, Zor32f>)
          return toFloat(v);
        else
          return lowBits<D>(rule == ToInteger::truncated ? toIntegerTowardZero(v) : toIntegerCurrent(v));
      }();
      if (i + L <= count)
        store(dst + at + i, y);
      else
        storePart(dst + at + i, y, count - i);
    });
  }
  words = local;
}

template <class T> ZorStatus init(ZorRandUniformState* state, T low, T high, Zor32u seed) {
  return check().pointers(state).then([&] { storeRecord(Uniform<T>(low, high, seed), state); });
}
template <class T> ZorStatus initAlloc(ZorRandUniformState** stateOut, T low, T high, Zor32u seed) {
  return check().pointers(stateOut).then([&] { return storeInNewMemory(Uniform<T>(low, high, seed), stateOut); });
}
template <class T> ZorStatus release(ZorRandUniformState* state) {
  return check().pointers(state).state(state, tagOf<T>).then([&] { releaseRecord(state); });
}
template <class T> ZorStatus uniform(T* dst, Zor32s len, ZorRandUniformState* state) {
  return check().pointers(dst, state).size(len).state(state, tagOf<T>).then([&] {
    auto record = loadRecord<Uniform<T>>(state);
    fill(record.words, record.range, dst, len);
    storeRecord(record, state);
  });
}

template <class T> ZorStatus uniformDirect(T* dst, Zor32s len, T low, T high, Zor32u* seed) {
  return check().pointers(dst, seed).size(len).then([&] {
    RandomWords words(*seed);
    const Range range = Range::of(low, high);
    if constexpr (std::is_integral_v<T>) {  // Deviation, kept: a last odd element is cut, those before it are rounded.
      const Zor32s even = len & ~1;
      fill<ToInteger::byDirection>(words, range, dst, even);
      fill(words, range, dst + even, len - even);
    } else {
      fill(words, range, dst, len);
    }
    *seed = words.newest();
  });
}

}  // namespace

ZorStatus zorsRandUniformGetSize_8u(Zor32s* size) {
  return check().pointers(size).then([&] { *size = sizeof(Uniform<Zor8u>); });
}

// clang-format off
#define UNIFORM_STATE(T, initName, initAllocName, freeName, name)                                                                \
  ZorStatus initName(ZorRandUniformState* state, T low, T high, Zor32u seed) { return init(state, low, high, seed); }            \
  ZorStatus initAllocName(ZorRandUniformState** stateOut, T low, T high, Zor32u seed) { return initAlloc(stateOut, low, high, seed); } \
  ZorStatus freeName(ZorRandUniformState* state) { return release<T>(state); }                                                   \
  ZorStatus name(T* dst, Zor32s len, ZorRandUniformState* state) { return uniform(dst, len, state); }
UNIFORM_STATE(Zor8u, zorsRandUniformInit_8u, zorsRandUniformInitAlloc_8u, zorsRandUniformFree_8u, zorsRandUniform_8u)
UNIFORM_STATE(Zor16s, zorsRandUniformInit_16s, zorsRandUniformInitAlloc_16s, zorsRandUniformFree_16s, zorsRandUniform_16s)
UNIFORM_STATE(Zor32f, zorsRandUniformInit_32f, zorsRandUniformInitAlloc_32f, zorsRandUniformFree_32f, zorsRandUniform_32f)
#undef UNIFORM_STATE

ZorStatus zorsRandUniform_Direct_16s(Zor16s* dst, Zor32s len, Zor16s low, Zor16s high, Zor32u* seed) { return uniformDirect(dst, len, low, high, seed); }
ZorStatus zorsRandUniform_Direct_32f(Zor32f* dst, Zor32s len, Zor32f low, Zor32f high, Zor32u* seed) { return uniformDirect(dst, len, low, high, seed); }
ZorStatus zorsRandUniform_Direct_64f(Zor64f* dst, Zor32s len, Zor64f low, Zor64f high, Zor32u* seed) { return uniformDirect(dst, len, low, high, seed); }
// clang-format on

}  // namespace zors
