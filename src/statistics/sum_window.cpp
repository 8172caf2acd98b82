// zorsSumWindow_*: sums of a moving window.
#include "frame/check.h"
#include "statistics/partial_sums.h"

namespace zors {
namespace {

using namespace sums;

ZORS_INLINE __m256 toFloats(const Zor8u* p) { return _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)))); }
ZORS_INLINE __m256 toFloats(const Zor16s* p) { return _mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)))); }

// One by one; from 64 elements on in 16 sums, seeded by what stands before the 32-byte boundary if the source meets it.
template <class T> Zor32f firstWindow(const T* src, std::ptrdiff_t n) {
  Zor32f total = 0;
  const auto addSingly = [&](std::ptrdiff_t count) ZORS_INLINE_LAMBDA {
    for (std::ptrdiff_t i = 0; i < count; ++i) total += Zor32f(at(src + i));
    src += count, n -= count;
  };
  if (n >= 64) {
    if (aligned(src, sizeof *src)) addSingly(elementsToBoundary(src, 32));
    auto lanes = seeded<Zor32f, 16>(total);
    for (; n >= 16; src += 16, n -= 16) lanes = add(lanes, Vec<Zor32f, 16>{{toFloats(src), toFloats(src + 8)}});
    total = folded(lanes);
  }
  addSingly(n);
  return total;
}

// The running value gains what enters less what leaves. While no window can exceed 2^24 all of them are exact, and an integer
// is the faster one to carry along.
template <class T> void sumWindows(const T* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  constexpr Zor64s largest = sizeof(T) == 1 ? 255 : 32768;
  const T* const entering = src + maskSize;
  const auto run = [&](auto sum) {
    for (std::ptrdiff_t i = 0; i < len - 1; ++i) {
      dst[i] = Zor32f(sum);
      sum += static_cast<decltype(sum)>(Zor32s{at(entering + i)} - Zor32s{at(src + i)});
    }
    dst[len - 1] = Zor32f(sum);
  };
  const Zor32f first = firstWindow(src, maskSize);
  if (maskSize * largest <= Zor64s{1} << 24) run(Zor32s(first));
  else run(first);
}

template <class T> ZorStatus sumWindow(const T* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  return check().pointers(src, dst).size(len).require(maskSize >= 1, zorStatusBadMaskSize).then([&] { sumWindows(src, dst, len, maskSize); });
}

}  // namespace

ZorStatus zorsSumWindow_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len, Zor32s maskSize) { return sumWindow(src, dst, len, maskSize); }
ZorStatus zorsSumWindow_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s maskSize) { return sumWindow(src, dst, len, maskSize); }

}  // namespace zors
