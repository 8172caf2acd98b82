// zorsSumWindow_*: sums of a moving window.
#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/partial_sums.h"

namespace zors {
namespace {

using namespace sums;

ZORS_INLINE __m256i toIntegers(const Zor8u* p) {
  return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
}
ZORS_INLINE __m256i toIntegers(const Zor16s* p) {
  return _mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}
template <class T> ZORS_INLINE __m256 toFloats(const T* p) { return _mm256_cvtepi32_ps(toIntegers(p)); }

// One by one; from 64 elements on in 16 sums, seeded by what stands before the 32-byte boundary if the source meets it.
template <class T> Zor32f firstWindow(const T* src, std::ptrdiff_t n) {
  Zor32f total = 0;
  const auto addSingly = [&](std::ptrdiff_t count) ZORS_INLINE_LAMBDA {
    for (std::ptrdiff_t i = 0; i < count; ++i) total += Zor32f(readAt(src + i));
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

// The running value gains what enters less what leaves.
template <class T> void carryFloat(const T* src, const T* entering, Zor32f* dst, std::ptrdiff_t len, Zor32f sum) {
  dst[0] = sum;
  for (std::ptrdiff_t i = 1; i < len; ++i)
    dst[i] = sum += Zor32f(Zor32s{readAt(entering + i - 1)} - Zor32s{readAt(src + i - 1)});
}

// The same where no sum exceeds 2^24 and so none rounds: eight at a time, by the running sums of the differences.
template <class T> void carryInteger(const T* src, const T* entering, Zor32f* dst, std::ptrdiff_t len, Zor32s sum) {
  dst[0] = Zor32f(sum);
  __m256i before = _mm256_set1_epi32(sum);
  std::ptrdiff_t i = 1;
  for (; i + 8 <= len; i += 8) {
    __m256i x = _mm256_sub_epi32(toIntegers(entering + i - 1), toIntegers(src + i - 1));
    x = _mm256_add_epi32(x, _mm256_slli_si256(x, 4));
    x = _mm256_add_epi32(x, _mm256_slli_si256(x, 8));  // running sums within halves
    const __m256i lowTotal = _mm256_shuffle_epi32(_mm256_permute2x128_si256(x, x, 0x08), 0xFF);  // for the upper half
    const __m256i sums = _mm256_add_epi32(before, _mm256_add_epi32(x, lowTotal));
    _mm256_storeu_ps(dst + i, _mm256_cvtepi32_ps(sums));
    before = _mm256_permutevar8x32_epi32(sums, _mm256_set1_epi32(7));
  }
  sum = _mm256_cvtsi256_si32(before);
  for (; i < len; ++i) dst[i] = Zor32f(sum += Zor32s{readAt(entering + i - 1)} - Zor32s{readAt(src + i - 1)});
}

template <class T> void sumWindows(const T* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  constexpr Zor64s largest = sizeof(T) == 1 ? 255 : 32768;
  const Zor32f first = firstWindow(src, maskSize);
  if (maskSize * largest <= Zor64s{1} << 24)
    carryInteger(src, src + maskSize, dst, len, Zor32s(first));
  else
    carryFloat(src, src + maskSize, dst, len, first);
}

template <class T> ZorStatus sumWindow(const T* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  return check().pointers(src, dst).size(len).require(maskSize >= 1, zorStatusBadMaskSize).then([&] {
    sumWindows(src, dst, len, maskSize);
  });
}

}  // namespace

ZorStatus zorsSumWindow_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  return sumWindow(src, dst, len, maskSize);
}
ZorStatus zorsSumWindow_16s32f(const Zor16s* src, Zor32f* dst, Zor32s len, Zor32s maskSize) {
  return sumWindow(src, dst, len, maskSize);
}

}  // namespace zors
