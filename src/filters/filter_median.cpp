// zorsFilterMedian_*: running median over an odd mask.
#include "exports/filters.h"
#include "filters/median_window.h"
#include "frame/check.h"
#include "frame/memory.h"

namespace zors {
namespace {

using namespace median;

// Windows over [begin, end) of a vector with its first and last elements repeated outside: a copy, with a register of
// elements more, so that a network may read it whatever its length.
template <class T>
void copyRepeated(const T* src, std::ptrdiff_t len, std::ptrdiff_t begin, std::ptrdiff_t end, T* to) {
  const std::ptrdiff_t from = std::clamp<std::ptrdiff_t>(begin, 0, len),
                       until = std::clamp<std::ptrdiff_t>(end, 0, len);
  to = std::fill_n(to, std::min(end, from) - begin, src[0]);
  to = std::copy(src + from, src + until, to);
  std::fill_n(to, std::max<std::ptrdiff_t>(end - std::max(until, begin), 0) + simd::lanesOf<T>, src[len - 1]);
}

// In place a piece of the vector is copied before its medians replace it; the copy's last elements begin the next one.
template <int mask, class T> void byNetwork(const T* src, T* dst, std::ptrdiff_t len) {
  constexpr std::ptrdiff_t h = mask / 2, piece = 4096 / sizeof(T), lanes = simd::lanesOf<T>;
  T window[piece + 2 * h + lanes];
  if (src != dst && len >= 2 * h + lanes) {
    copyRepeated(src, len, -h, 2 * h, window);
    network<mask>(window, dst, h);
    network<mask>(src, dst + h, len - 2 * h);
    copyRepeated(src, len, len - 2 * h, len + h, window);
    network<mask>(window, dst + len - h, h);
    return;
  }
  T before[h];
  std::fill_n(before, h, src[0]);
  for (std::ptrdiff_t i = 0; i < len; i += piece) {
    const std::ptrdiff_t count = std::min(piece, len - i);
    std::copy_n(before, h, window);
    copyRepeated(src, len, i, i + count + h, window + h);
    std::copy_n(window + count, h, before);
    network<mask>(window, dst + i, count);
  }
}

// A stretch of outputs on its way, at output i: the window's keys in order of time, from the oldest at
// `oldest` round, and sorted.
template <class T, class Keys> struct Stretch {
  using K = Key<T>;
  Stretch(const T* src, std::ptrdiff_t len, std::ptrdiff_t mask, std::ptrdiff_t first, K* memory)
      : ring(memory), size(mask), oldest(0), i(first), keys(sorted(src, len, mask, first, memory), mask) {}

  void put(T* dst) const { dst[i] = valueOf<T>(keys.median()); }
  ZORS_INLINE void next(K entering) {
    keys.replace(ring[oldest], entering);
    ring[oldest] = entering;
    oldest = oldest + 1 < size ? oldest + 1 : 0;
    ++i;
  }

  K* ring;
  std::ptrdiff_t size, oldest, i;
  Keys keys;

 private:
  static K* sorted(const T* src, std::ptrdiff_t len, std::ptrdiff_t mask, std::ptrdiff_t first, K* memory) {
    for (std::ptrdiff_t k = 0; k < mask; ++k)
      memory[k] = keyOf(src[std::clamp<std::ptrdiff_t>(first + k - mask / 2, 0, len - 1)]);
    std::copy_n(memory, mask, memory + mask);
    std::sort(memory + mask, memory + 2 * mask);
    return memory + mask;
  }
};

// Steps wait for each other, so two stretches go on side by side. In place the second one overwrites what the first one
// has still to read, which is kept.
template <class T, class Keys> ZorStatus slide(const T* src, T* dst, std::ptrdiff_t len, std::ptrdiff_t mask) {
  using K = Key<T>;
  const std::ptrdiff_t h = mask / 2, middle = len > 4 * mask ? len / 2 : len;
  const Scratch work((5 * std::size_t(mask)) * sizeof(K));
  if (!work) return zorStatusNoMemory;
  const K last = keyOf(src[len - 1]);
  const auto enteringAt = [=](std::ptrdiff_t i) ZORS_INLINE_LAMBDA { return i + h < len ? keyOf(src[i + h]) : last; };
  K* ahead = work.as<K>() + 4 * mask;  // what follows the first stretch
  if (middle < len) std::transform(src + middle, src + middle + h, ahead, keyOf<T>);
  Stretch<T, Keys> first(src, len, mask, 0, work.as<K>());
  const auto finish = [&](auto& stretch, std::ptrdiff_t end) {
    while (stretch.i + 1 < end) stretch.next(enteringAt(stretch.i + 1)), stretch.put(dst);
  };
  if (middle == len) {
    first.put(dst);
    finish(first, len);
    return zorStatusOk;
  }
  Stretch<T, Keys> second(src, len, mask, middle, work.as<K>() + 2 * mask);
  first.put(dst);
  second.put(dst);
  for (std::ptrdiff_t step = 1; step < middle; ++step) {
    first.next(step + h < middle ? keyOf(src[step + h]) : ahead[step + h - middle]);
    second.next(enteringAt(middle + step));
    first.put(dst);
    second.put(dst);
  }
  finish(second, len);
  return zorStatusOk;
}

template <class T> ZorStatus bySorting(const T* src, T* dst, std::ptrdiff_t len, std::ptrdiff_t mask) {
  using K = Key<T>;
  constexpr std::ptrdiff_t lanes = simd::lanesOf<K>;
  if (mask < lanes) return slide<T, KeysInRegisters<K, 1>>(src, dst, len, mask);
  if (mask < 2 * lanes) return slide<T, KeysInRegisters<K, 2>>(src, dst, len, mask);
  if (mask < 4 * lanes) return slide<T, KeysInRegisters<K, 4>>(src, dst, len, mask);
  if (mask < 8 * lanes) return slide<T, KeysInRegisters<K, 8>>(src, dst, len, mask);
  if (mask < 16 * lanes) return slide<T, KeysInRegisters<K, 16>>(src, dst, len, mask);
  return slide<T, KeysInMemory<K>>(src, dst, len, mask);
}

template <class T> ZorStatus filterMedian(const T* src, T* dst, Zor32s len, Zor32s mask) {
  return check().pointers(src, dst).size(len).size(mask).then([&]() -> ZorStatus {
    const ZorStatus done = mask % 2 == 0 ? zorStatusEvenMedianMaskSize : zorStatusOk;
    const Zor32s odd = (mask - 1) | 1;
    if (odd == 1 || len < 3) {
      if (src != dst) std::memmove(dst, src, std::size_t(len) * sizeof(T));
      return done;
    }
    switch (odd) {
      case 3:
        return byNetwork<3>(src, dst, len), done;
      case 5:
        return byNetwork<5>(src, dst, len), done;
      case 7:
        return byNetwork<7>(src, dst, len), done;
      case 9:
        return byNetwork<9>(src, dst, len), done;
      default: {
        const ZorStatus status = bySorting(src, dst, len, odd);
        return status == zorStatusOk ? done : status;
      }
    }
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFilterMedian_8u (const Zor8u* src,  Zor8u* dst,  Zor32s len, Zor32s mask) { return filterMedian(src, dst, len, mask); }
ZorStatus zorsFilterMedian_16s(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s mask) { return filterMedian(src, dst, len, mask); }
ZorStatus zorsFilterMedian_32s(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s mask) { return filterMedian(src, dst, len, mask); }
ZorStatus zorsFilterMedian_32f(const Zor32f* src, Zor32f* dst, Zor32s len, Zor32s mask) { return filterMedian(src, dst, len, mask); }
ZorStatus zorsFilterMedian_64f(const Zor64f* src, Zor64f* dst, Zor32s len, Zor32s mask) { return filterMedian(src, dst, len, mask); }
ZorStatus zorsFilterMedian_8u_I (Zor8u* srcDst,  Zor32s len, Zor32s mask) { return filterMedian(srcDst, srcDst, len, mask); }
ZorStatus zorsFilterMedian_16s_I(Zor16s* srcDst, Zor32s len, Zor32s mask) { return filterMedian(srcDst, srcDst, len, mask); }
ZorStatus zorsFilterMedian_32s_I(Zor32s* srcDst, Zor32s len, Zor32s mask) { return filterMedian(srcDst, srcDst, len, mask); }
ZorStatus zorsFilterMedian_32f_I(Zor32f* srcDst, Zor32s len, Zor32s mask) { return filterMedian(srcDst, srcDst, len, mask); }
ZorStatus zorsFilterMedian_64f_I(Zor64f* srcDst, Zor32s len, Zor32s mask) { return filterMedian(srcDst, srcDst, len, mask); }
// clang-format on

}  // namespace zors
