// FIR filters of 16-bit integers: 16-bit taps and samples, 32-bit sums that wrap, one scaled and saturated result.
#pragma once

#include <algorithm>
#include <cstring>

#include "exports/fir.h"
#include "fir/fir_state.h"
#include "frame/part.h"
#include "frame/scale.h"

namespace zors::fir {

// Sums are shifted left, or right to nearest with ties to even, by tapsFactor - scaleFactor limited to -31 .. 31, then
// saturated.
inline int integerShift(Zor32s tapsFactor, Zor32s scaleFactor) {
  return static_cast<int>(std::clamp<Zor64s>(Zor64s{tapsFactor} - scaleFactor, -31, 31));
}
inline Zor16s scaledResult(Zor32s sum, int shift) {
  Zor64s result = sum;
  if (shift > 0)
    result = static_cast<Zor32s>(static_cast<Zor32u>(sum) << shift);
  else if (shift < 0)
    result = (result + ((Zor64s{1} << (-shift - 1)) - 1) + ((result >> -shift) & 1)) >> -shift;
  return static_cast<Zor16s>(std::clamp<Zor64s>(result, INT16_MIN, INT16_MAX));
}

using Sums = simd::Vec<Zor32s, 8>;
ZORS_INLINE Sums scaledResults(Sums sum, int shift) {
  using namespace simd;
  if (shift > 0)
    sum = shiftLeft(sum, shift);
  else if (shift < 0)
    sum = roundedShift(sum, -shift);
  return min(max(sum, same(sum, INT16_MIN)), same(sum, INT16_MAX));
}

// What becomes of sums. Streams choose the mode of a shift to the right.
struct Finish {
  int shift = 0;
  ZorRoundMode roundMode = zorRoundNearestEven;
};
ZORS_INLINE Sums finished(Sums sum, Finish finish) {
  using namespace simd;
  if (finish.shift >= 0 || finish.roundMode == zorRoundNearestEven) return scaledResults(sum, finish.shift);
  const int shift = -finish.shift;
  sum = finish.roundMode == zorRoundHalfAway ? roundedShiftBy<zorRoundHalfAway>(sum, shift)
                                             : roundedShiftBy<zorRoundTowardZero>(sum, shift);
  return min(max(sum, same(sum, INT16_MIN)), same(sum, INT16_MAX));
}

// The low halves of a, then of b, in turn.
ZORS_INLINE __m256i interleaveLow(Sums a, Sums b) {
  return _mm256_blend_epi16(a.r[0], _mm256_slli_epi32(b.r[0], 16), 0xAA);
}

ZORS_INLINE __m256i loadSamples(const void* p) { return _mm256_loadu_si256(static_cast<const __m256i*>(p)); }
ZORS_INLINE __m256i splatPair(const Zor16s* p) {
  int pair;
  std::memcpy(&pair, p, sizeof pair);
  return _mm256_set1_epi32(pair);
}

// One multiply-add of 16-bit pairs. The sum is held in its register: g++ would collect the products of all sums first.
template <class V> ZORS_INLINE void accumulate(V& sum, auto r, __m256i pair, __m256i x) {
  sum.r[r] = simd::held(Sums{{_mm256_add_epi32(sum.r[r], _mm256_madd_epi16(pair, x))}}).r[0];
}

// Real taps go in pairs. Outputs 0, 2, ... of 16 take their pairs of samples from an even place, outputs 1, 3, ... from
// an odd one.
struct RealKernel {
  static constexpr int lanes = 16, widest = 4;
  template <int registers>
  ZORS_INLINE static simd::Vec<Zor16s, lanes * registers> outputs(const Zor16s* taps, std::ptrdiff_t tapsLen,
                                                                  const Zor16s* in, Finish finish) {
    using namespace simd;
    Vec<Zor32s, 8 *registers> even = splat<Vec<Zor32s, 8 * registers>>(0), odd = even;
    std::ptrdiff_t j = 0;
    // Pairs a vector of outputs apart, so that a vector of samples, once loaded, serves two.
    for (; j + 2 * lanes <= tapsLen; j += 2 * lanes)
      for (int lane = 0; lane < lanes; lane += 2) {
        const __m256i near = splatPair(taps + j + lane), far = splatPair(taps + j + lanes + lane);
        const Zor16s* at = in + j + lane;
        accumulate(even, std::integral_constant<int, 0>{}, near, loadSamples(at));
        accumulate(odd, std::integral_constant<int, 0>{}, near, loadSamples(at + 1));
        unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
          const auto x = held(Sums{{loadSamples(at + lanes * (r + 1))}}),
                     x1 = held(Sums{{loadSamples(at + lanes * (r + 1) + 1)}});
          if constexpr (r + 1 < registers) {
            accumulate(even, std::integral_constant<int, r + 1>{}, near, x.r[0]);
            accumulate(odd, std::integral_constant<int, r + 1>{}, near, x1.r[0]);
          }
          accumulate(even, r, far, x.r[0]);
          accumulate(odd, r, far, x1.r[0]);
        });
      }
    for (; j < tapsLen; j += 2) {
      const __m256i pair = splatPair(taps + j);
      unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
        accumulate(even, r, pair, loadSamples(in + j + lanes * r));
        accumulate(odd, r, pair, loadSamples(in + j + lanes * r + 1));
      });
    }
    return build<Vec<Zor16s, lanes * registers>>([&](auto r) ZORS_INLINE_LAMBDA {
      return interleaveLow(finished(Sums{{even.r[r]}}, finish), finished(Sums{{odd.r[r]}}, finish));
    });
  }
};

// A complex tap is stored as (re, -im), (im, re): one multiply-add each for the two parts of a product.
struct ComplexKernel {
  static constexpr int lanes = 8, widest = 4;
  template <int registers>
  ZORS_INLINE static simd::Vec<Zor16sc, lanes * registers> outputs(const Zor16sc* taps, std::ptrdiff_t tapsLen,
                                                                   const Zor16sc* in, Finish finish) {
    using namespace simd;
    Vec<Zor32s, 8 *registers> re = splat<Vec<Zor32s, 8 * registers>>(0), im = re;
    for (std::ptrdiff_t j = 0; j < tapsLen; ++j) {
      const __m256i forRe = splatPair(&taps[2 * j].re), forIm = splatPair(&taps[2 * j + 1].re);
      unrolled<registers>([&](auto r) ZORS_INLINE_LAMBDA {
        const __m256i x = held(Sums{{loadSamples(in + j + lanes * r)}}).r[0];
        accumulate(re, r, forRe, x);
        accumulate(im, r, forIm, x);
      });
    }
    return build<Vec<Zor16sc, lanes * registers>>([&](auto r) ZORS_INLINE_LAMBDA {
      return interleaveLow(finished(Sums{{re.r[r]}}, finish), finished(Sums{{im.r[r]}}, finish));
    });
  }
};

// Reversed tap j of tapsLen as the kernels take them. An odd number of real ones stands behind a zero, whose sample
// lies ahead of the first window.
template <class Sample> constexpr Zor32s zerosAhead(Zor32s tapsLen) { return Complex<Sample> ? 0 : tapsLen & 1; }
inline void storeTap(Zor16s* stored, Zor32s tapsLen, Zor32s j, Zor16s tap) {
  const Zor32s ahead = zerosAhead<Zor16s>(tapsLen);
  if (ahead != 0) stored[0] = 0;
  stored[j + ahead] = tap;
}
inline void storeTap(Zor16sc* stored, Zor32s, Zor32s j, Zor16sc tap) {
  stored[2 * j] = {tap.re, static_cast<Zor16s>(-tap.im)};
  stored[2 * j + 1] = {tap.im, tap.re};
}

template <class Sample> using IntegerKernel = std::conditional_t<Complex<Sample>, ComplexKernel, RealKernel>;

template <int registers, class Sample>
[[gnu::flatten]] void integerTile(const Sample* taps, std::ptrdiff_t tapsLen, const Sample* in, Sample* out,
                                  Finish finish) {
  simd::store(out, IntegerKernel<Sample>::template outputs<registers>(taps, tapsLen, in, finish));
}

// len outputs; reads in[0 .. len + tapsLen - 2], or, where len is less than a vector's lanes, as if it were those.
template <class Sample>
void integerBlock(const Sample* taps, std::ptrdiff_t tapsLen, const Sample* in, Sample* out, std::ptrdiff_t len,
                  Finish finish) {
  using Kernel = IntegerKernel<Sample>;
  constexpr int lanes = Kernel::lanes, step = lanes * Kernel::widest;
  if (len < lanes) {
    simd::storePart(out, Kernel::template outputs<1>(taps, tapsLen, in, finish), int(len));
    return;
  }
  std::ptrdiff_t i = 0;
  for (; i + step <= len; i += step) integerTile<Kernel::widest>(taps, tapsLen, in + i, out + i, finish);
  for (; i + 2 * lanes <= len; i += 2 * lanes) integerTile<2>(taps, tapsLen, in + i, out + i, finish);
  if (i + lanes <= len) integerTile<1>(taps, tapsLen, in + i, out + i, finish), i += lanes;
  if (i < len) integerTile<1>(taps, tapsLen, in + len - lanes, out + len - lanes, finish);
}

}  // namespace zors::fir

namespace zors {

// Stored taps: real ones reversed behind a zero where their number is odd, complex ones reversed in the kernel's two
// forms.
template <class Kind>
Zor16s firStoredTap(const ZorFIRState* state, Zor32s j) requires(!Complex<typename Kind::Sample>) {
  return firTaps<Kind>(state)[j + (state->tapsLen & 1)];
}
template <class Kind> Zor16sc firStoredTap(const ZorFIRState* state, Zor32s j) requires Complex<typename Kind::Sample> {
  return {firTaps<Kind>(state)[2 * j].re, firTaps<Kind>(state)[2 * j + 1].re};
}
template <class Kind> void firStoreTap(ZorFIRState* state, Zor32s j, typename Kind::Sample tap) {
  fir::storeTap(firTaps<Kind>(state), state->tapsLen, j, tap);
}

// Lays an integer record in a block and fills its delay line; the taps are stored by the caller.
template <class Kind> ZorFIRState* firBuildInteger(Zor8u* memory, Zor32s tapsLen) {
  Layout block = firLayout<Kind>(memory);
  const FirParts parts = layFirInteger<Kind>(block, tapsLen);
  const auto dlyBlock = static_cast<Zor32s>(firDirectBlock<Kind>(tapsLen));
  *parts.state = {.tag = Kind::tags[0],
                  .tapsLen = tapsLen,
                  .dlyLen = tapsLen,
                  .dlyBlock = dlyBlock,
                  .tapsReversed = parts.tapsReversed,
                  .dlyLine = parts.dlyLine,
                  .blockScratch = parts.blockScratch};
  std::fill_n(firDlyLine<Kind>(parts.state), firDlyLineLen<Kind>(tapsLen, dlyBlock), typename Kind::Sample{});
  return parts.state;
}

// The direct filter of one block; src and dst do not overlap.
template <class Kind>
void firFilterInteger(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                      int shift) {
  const Zor32s n = state->tapsLen;
  // An odd number of real taps starts one sample earlier, at its zero.
  const Zor32s ahead = fir::zerosAhead<typename Kind::Sample>(n);
  const auto* taps = firTaps<Kind>(state);
  const auto delay = firDelay<Kind>(state);
  const auto* history = delay.history();
  const Zor32s first = len <= state->dlyBlock ? len : static_cast<Zor32s>(firRows<Kind>(n));
  by_type::copy(src, delay.room(), first);
  fir::integerBlock(taps, n + ahead, history + 1 - ahead, dst, first, {shift});
  delay.keep(first == len ? history + n + len : src + len);
  if (first == len) return;
  fir::integerBlock(taps, n + ahead, src + (first - n + 1 - ahead), dst + first, len - first, {shift});
}

}  // namespace zors
