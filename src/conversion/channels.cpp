// zorsJoinScaled_*_D2L, zorsSplitScaled_*_D2L: float channels to interleaved samples and back.
// Samples stand in the middle of their steps: n steps of one 2n-th each from -1 to 1.
#include <algorithm>
#include <bit>
#include <cstring>

#include "exports/conversion.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

constexpr auto step16 = std::bit_cast<Zor32f>(0x38000080);  // 1 / 32767.5
constexpr Zor64f step24 = 1 / 8388607.5;
constexpr Zor32s blockLen = 512;  // samples of a channel between conversion and interleaving

// No channel of the list may be null.
Checks channelsGiven(Checks checks, const auto* const* channels, Zor32s nChannels) {
  if (checks.then([] {}) != zorStatusOk) return checks;
  return checks.require(
      std::all_of(channels, channels + nChannels, [](const auto* channel) { return channel != nullptr; }),
      zorStatusNullPointer);
}

Checks joinChecks(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, const void* dst) {
  const bool sizes = nChannels >= 1 && chanLen >= 1;
  return channelsGiven(check().pointers(dst).require(sizes, zorStatusBadSize).pointers(src), src, nChannels);
}
Checks splitChecks(const void* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen) {
  const bool sizes = nChannels >= 1 && chanLen >= 1;
  return channelsGiven(check().pointers(src).require(sizes, zorStatusBadSize).pointers(dst), dst, nChannels);
}

// A sample of `size` bytes is the low bytes of a word.
template <int size, class Word> void interleave(const Word* words, Zor8u* dst, std::ptrdiff_t stride, Zor32s count) {
  for (Zor32s i = 0; i < count; ++i) std::memcpy(dst + i * stride, words + i, size);
}

// convert(channel + i, words, count) makes the words of a block.
template <int size, class Word, class Convert>
ZorStatus join(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, void* dst, Convert convert) {
  return joinChecks(src, nChannels, chanLen, dst).then([&] {
    const RoundingScope scope(RoundingScope::nearest);
    const std::ptrdiff_t stride = std::ptrdiff_t{nChannels} * size;
    Word words[blockLen];
    for (std::ptrdiff_t i = 0; i < chanLen; i += blockLen)
      for (Zor32s c = 0; c < nChannels; ++c) {
        const auto count = static_cast<Zor32s>(std::min<std::ptrdiff_t>(blockLen, chanLen - i));
        convert(src[c] + i, words, count);
        interleave<size>(words, static_cast<Zor8u*>(dst) + i * stride + c * size, stride, count);
      }
  });
}

// load(sample) gives its integer.
template <int size, class Load, class Convert>
ZorStatus split(const void* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen, Load load, Convert convert) {
  return splitChecks(src, dst, nChannels, chanLen).then([&] {
    const std::ptrdiff_t stride = std::ptrdiff_t{nChannels} * size;
    Zor32s words[blockLen];
    for (std::ptrdiff_t i = 0; i < chanLen; i += blockLen)
      for (Zor32s c = 0; c < nChannels; ++c) {
        const auto count = static_cast<Zor32s>(std::min<std::ptrdiff_t>(blockLen, chanLen - i));
        const Zor8u* sample = static_cast<const Zor8u*>(src) + i * stride + c * size;
        for (Zor32s k = 0; k < count; ++k, sample += stride) words[k] = load(sample);
        convert(words, dst[c] + i, count);
      }
  });
}

// x * scale - 0.5 for x limited to [-1, 1]; NaN becomes -1.
template <class F> struct ToSteps {
  F scale;
  template <class V> ZORS_INLINE auto operator()(V x) const {
    return toIntegerCurrent(sub(mul(x, same(x, scale)), same(x, F(0.5))));
  }
};
template <class V> ZORS_INLINE V limitToOne(V x) { return limitNanToLow(x, -1, 1); }

}  // namespace

// Two channels, the most usual, are the parts of complex elements.
ZorStatus zorsJoinScaled_32f16s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor16s* dst) {
  const auto toWords = [](auto v)
                           ZORS_INLINE_LAMBDA { return saturate<Zor16s>(ToSteps<Zor32f>{32767.5f}(limitToOne(v))); };
  if (nChannels == 2)
    return joinChecks(src, nChannels, chanLen, dst).then([&] {
      const RoundingScope scope(RoundingScope::nearest);
      map<16>([=](auto left, auto right) ZORS_INLINE_LAMBDA { return toComplex(toWords(left), toWords(right)); },
              chanLen, reinterpret_cast<Zor16sc*>(dst), src[0], src[1]);
    });
  return join<2, Zor16s>(src, nChannels, chanLen, dst, [=](const Zor32f* x, Zor16s* words, Zor32s count) {
    map<mapStep<Zor16s>>(toWords, count, words, x);
  });
}

ZorStatus zorsJoinScaled_32f24s_D2L(const Zor32f* const* src, Zor32s nChannels, Zor32s chanLen, Zor8u* dst) {
  return join<3, Zor32s>(src, nChannels, chanLen, dst, [](const Zor32f* x, Zor32s* words, Zor32s count) {
    map<mapStep<Zor32s>>([](auto v) ZORS_INLINE_LAMBDA { return ToSteps<Zor64f>{8388607.5}(toDouble(limitToOne(v))); },
                         count, words, x);
  });
}

ZorStatus zorsSplitScaled_16s32f_D2L(const Zor16s* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen) {
  const auto toFloats = [](auto x) ZORS_INLINE_LAMBDA {
    const auto f = toFloat(x);
    return add(mul(f, same(f, step16)), same(f, step16 / 2));
  };
  if (nChannels == 2)
    return splitChecks(src, dst, nChannels, chanLen).then([&] {
      mapToTwo<16>(
          [=](auto z) ZORS_INLINE_LAMBDA {
            return Both{toFloats(realPart(z)), toFloats(imagPart(z))};
          },
          chanLen, dst[0], dst[1], reinterpret_cast<const Zor16sc*>(src));
    });
  const auto load = [](const Zor8u* sample) {
    Zor16s x;
    std::memcpy(&x, sample, sizeof x);
    return Zor32s{x};
  };
  return split<2>(src, dst, nChannels, chanLen, load, [=](const Zor32s* words, Zor32f* y, Zor32s count) {
    map<mapStep<Zor32f>>(toFloats, count, y, words);
  });
}

ZorStatus zorsSplitScaled_24s32f_D2L(const Zor8u* src, Zor32f* const* dst, Zor32s nChannels, Zor32s chanLen) {
  const auto load = [](const Zor8u* sample) {
    return static_cast<Zor32s>(Zor32u{sample[0]} << 8 | Zor32u{sample[1]} << 16 | Zor32u{sample[2]} << 24) >> 8;
  };
  return split<3>(src, dst, nChannels, chanLen, load, [](const Zor32s* words, Zor32f* y, Zor32s count) {
    map<mapStep<Zor32f>>(
        [](auto x) ZORS_INLINE_LAMBDA {
          const auto f = toDouble(x);
          return toFloat(add(mul(f, same(f, step24)), same(f, step24 / 2)));
        },
        count, y, words);
  });
}

}  // namespace zors
