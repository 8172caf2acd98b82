// zorsSampleUp_*, zorsSampleDown_*: rate changes by an integer factor.
#include <algorithm>
#include <cstring>
#include <numeric>

#include "exports/resampling.h"
#include "frame/check.h"
#include "frame/simd.h"

namespace zors {
namespace {

// Elements are so many bytes that move; a size that an element has is one of 2, 4, 8, 16.
template <int size> void copyElement(Zor8u* to, const Zor8u* from) { std::memcpy(to, from, size); }

ZORS_INLINE __m128i load16(const Zor8u* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
ZORS_INLINE __m256i load32(const Zor8u* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
ZORS_INLINE void store32(Zor8u* p, __m256i x) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), x); }
constexpr Zor8u zeroByte = 0x80;  // in the control of a byte shuffle

// ---- Up -----------------------------------------------------------------------------------------

// 32 bytes of output hold at most 16 of input: one shuffle makes them. The shuffles repeat after so many outputs as are
// both whole registers and whole factors.
template <int size> class SpreadingShuffles {
 public:
  static constexpr int largestFactor = 16, lanes = 32 / size;

  SpreadingShuffles(int factor, int phase) : vectors_(factor / std::gcd(factor, lanes)) {
    for (int v = 0; v < vectors_; ++v) {
      int first = -1;  // the sample that the vector's 16 bytes of input begin with
      for (int lane = 0; lane < lanes; ++lane) {
        const int at = v * lanes + lane - phase;
        const bool sample = at >= 0 && at % factor == 0;
        if (sample && first < 0) first = at / factor;
        for (int byte = 0; byte < size; ++byte)
          control_[v][lane * size + byte] = sample ? Zor8u((at / factor - first) * size + byte) : zeroByte;
      }
      start_[v] = (first < 0 ? 0 : first) * size;
      reach_ = std::max<std::ptrdiff_t>(reach_, start_[v] + 16);
    }
    samples_ = vectors_ * lanes / factor;
  }
  // Whole rounds as far as the input allows; returns how many samples are done.
  std::ptrdiff_t run(const Zor8u* src, std::ptrdiff_t srcLen, Zor8u* dst) const {
    switch (vectors_) {
      case 1:
        return runOf<1>(src, srcLen, dst);
      case 3:
        return runOf<3>(src, srcLen, dst);
      case 5:
        return runOf<5>(src, srcLen, dst);
      case 7:
        return runOf<7>(src, srcLen, dst);
      default:
        return runOf<0>(src, srcLen, dst);
    }
  }

 private:
  // vectors: their number where that is known, so that their shuffles stay in registers.
  template <int vectors> std::ptrdiff_t runOf(const Zor8u* src, std::ptrdiff_t srcLen, Zor8u* dst) const {
    const auto spreadOne = [](Zor8u* to, const Zor8u* from, __m256i control) ZORS_INLINE_LAMBDA {
      store32(to, _mm256_shuffle_epi8(_mm256_broadcastsi128_si256(load16(from)), control));
    };
    const std::ptrdiff_t rounds = srcLen * size < reach_ ? 0 : (srcLen * size - reach_) / (samples_ * size) + 1;
    if constexpr (vectors > 0) {
      simd::Vec<Zor8u, 32 * vectors> controls;
      std::ptrdiff_t starts[vectors];
      for (int v = 0; v < vectors; ++v) controls.r[v] = load32(control_[v]), starts[v] = start_[v];
      for (std::ptrdiff_t round = 0; round < rounds; ++round, src += samples_ * size, dst += 32 * vectors)
        simd::unrolled<vectors>([&](auto v)
                                    ZORS_INLINE_LAMBDA { spreadOne(dst + 32 * v, src + starts[v], controls.r[v]); });
    } else {
      for (std::ptrdiff_t round = 0; round < rounds; ++round, src += samples_ * size)
        for (int v = 0; v < vectors_; ++v, dst += 32) spreadOne(dst, src + start_[v], load32(control_[v]));
    }
    return rounds * samples_;
  }

  alignas(32) Zor8u control_[largestFactor][32];
  std::ptrdiff_t start_[largestFactor];
  int vectors_;
  std::ptrdiff_t samples_, reach_ = 0;
};

template <int size>
void spread(const Zor8u* src, std::ptrdiff_t srcLen, Zor8u* dst, std::ptrdiff_t factor, std::ptrdiff_t phase) {
  if (factor == 1) return static_cast<void>(std::memmove(dst, src, std::size_t(srcLen * size)));
  std::ptrdiff_t done = 0;
  if (factor <= SpreadingShuffles<size>::largestFactor)
    done = SpreadingShuffles<size>(int(factor), int(phase)).run(src, srcLen, dst);
  constexpr std::ptrdiff_t tile = 8192;  // bytes that are set to zero before samples go in
  while (done < srcLen) {
    const std::ptrdiff_t count = std::clamp<std::ptrdiff_t>(tile / (factor * size), 1, srcLen - done);
    Zor8u* to = dst + done * factor * size;
    std::memset(to, 0, std::size_t(count * factor * size));
    for (std::ptrdiff_t k = 0; k < count; ++k)
      copyElement<size>(to + (k * factor + phase) * size, src + (done + k) * size);
    done += count;
  }
}

// ---- Down ---------------------------------------------------------------------------------------

// A register of outputs from factor registers' bytes of input: from each piece of 16 bytes the elements at their
// places.
template <int size, int factor> std::ptrdiff_t gatherByShuffles(const Zor8u* src, std::ptrdiff_t count, Zor8u* dst) {
  constexpr int lanes = 32 / size;
  alignas(32) Zor8u control[factor][32];
  std::memset(control, zeroByte, sizeof control);
  for (int lane = 0; lane < lanes / 2; ++lane)
    for (int byte = 0; byte < size; ++byte) {
      const int at = lane * factor * size + byte;
      control[at / 16][lane * size + byte] = control[at / 16][16 + lane * size + byte] = Zor8u(at % 16);
    }
  std::ptrdiff_t done = 0;
  for (; done + lanes < count; done += lanes) {  // reads up to the element that the next output is, or before it
    const Zor8u* from = src + done * factor * size;
    __m256i out = _mm256_setzero_si256();
    for (int piece = 0; piece < factor; ++piece)
      out = _mm256_or_si256(
          out, _mm256_shuffle_epi8(_mm256_set_m128i(load16(from + 16 * (factor + piece)), load16(from + 16 * piece)),
                                   load32(control[piece])));
    store32(dst + done * size, out);
  }
  return done;
}

// Lane k of a load that begins k elements before output k's.
template <int size>
std::ptrdiff_t gatherByLanes(const Zor8u* src, std::ptrdiff_t factor, std::ptrdiff_t count, Zor8u* dst) {
  constexpr int lanes = 32 / size;
  const std::ptrdiff_t step = (factor - 1) * size;
  std::ptrdiff_t done = 0;
  for (; done + lanes <= count; done += lanes) {
    const Zor8u* from = src + done * factor * size;
    __m256i out = load32(from);
    simd::unrolled<lanes - 1>([&](auto k) ZORS_INLINE_LAMBDA {
      constexpr int lane = k + 1, mask = size == 4 ? 1 << lane : 3 << 2 * lane;
      out = _mm256_blend_epi32(out, load32(from + lane * step), mask);
    });
    store32(dst + done * size, out);
  }
  return done;
}

template <int size> void gather(const Zor8u* src, std::ptrdiff_t factor, std::ptrdiff_t count, Zor8u* dst) {
  std::ptrdiff_t done = 0;
  switch (factor <= 16 / size ? factor : 0) {  // two loads of 16 bytes for each factor, or one load for each output
    case 1:
      return static_cast<void>(std::memmove(dst, src, std::size_t(count * size)));
    case 2:
      done = gatherByShuffles<size, 2>(src, count, dst);
      break;
    case 3:
      done = gatherByShuffles<size, 3>(src, count, dst);
      break;
    case 4:
      done = gatherByShuffles<size, 4>(src, count, dst);
      break;
    case 5:
      done = gatherByShuffles<size, 5>(src, count, dst);
      break;
    case 6:
      done = gatherByShuffles<size, 6>(src, count, dst);
      break;
    case 7:
      done = gatherByShuffles<size, 7>(src, count, dst);
      break;
    case 8:
      done = gatherByShuffles<size, 8>(src, count, dst);
      break;
    default:
      if constexpr (size == 4 || size == 8) done = gatherByLanes<size>(src, factor, count, dst);
  }
  for (; done < count; ++done) copyElement<size>(dst + done * size, src + done * factor * size);
}

// ---- Checks -------------------------------------------------------------------------------------

template <class T>
Checks checked(const T* src, Zor32s srcLen, const T* dst, const Zor32s* dstLen, Zor32s factor, const Zor32s* phase) {
  const Checks checks =
      check().pointers(src, dst, dstLen, phase).size(srcLen).require(factor >= 1, zorStatusBadSampleFactor);
  return checks.then([] {}) == zorStatusOk ? checks.require(*phase >= 0 && *phase < factor, zorStatusBadPhase) : checks;
}
template <class T> const Zor8u* bytes(const T* p) { return reinterpret_cast<const Zor8u*>(p); }
template <class T> Zor8u* bytes(T* p) { return reinterpret_cast<Zor8u*>(p); }

template <class T>
ZorStatus sampleUp(const T* src, Zor32s srcLen, T* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase) {
  const Zor64s len = Zor64s{srcLen} * factor;
  return checked(src, srcLen, dst, dstLen, factor, phase).require(len <= INT32_MAX, zorStatusNoMemory).then([&] {
    spread<sizeof(T)>(bytes(src), srcLen, bytes(dst), factor, *phase);
    *dstLen = static_cast<Zor32s>(len);
  });
}
template <class T>
ZorStatus sampleDown(const T* src, Zor32s srcLen, T* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase) {
  return checked(src, srcLen, dst, dstLen, factor, phase).then([&] {
    const Zor64s first = *phase, count = first < srcLen ? (srcLen - first - 1) / factor + 1 : 0;
    gather<sizeof(T)>(bytes(src + first), factor, count, bytes(dst));
    *dstLen = static_cast<Zor32s>(count);
    *phase = static_cast<Zor32s>(first + count * factor - srcLen);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsSampleUp_16s (const Zor16s* src,  Zor32s srcLen, Zor16s* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleUp(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleUp_32f (const Zor32f* src,  Zor32s srcLen, Zor32f* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleUp(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleUp_64f (const Zor64f* src,  Zor32s srcLen, Zor64f* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleUp(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleUp_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleUp(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleDown_16s (const Zor16s* src,  Zor32s srcLen, Zor16s* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleDown(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleDown_32f (const Zor32f* src,  Zor32s srcLen, Zor32f* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleDown(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleDown_64f (const Zor64f* src,  Zor32s srcLen, Zor64f* dst,  Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleDown(src, srcLen, dst, dstLen, factor, phase); }
ZorStatus zorsSampleDown_64fc(const Zor64fc* src, Zor32s srcLen, Zor64fc* dst, Zor32s* dstLen, Zor32s factor, Zor32s* phase) { return sampleDown(src, srcLen, dst, dstLen, factor, phase); }
// clang-format on

}  // namespace zors
