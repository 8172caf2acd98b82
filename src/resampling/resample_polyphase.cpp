// zorsResamplePolyphaseGetSize_*, zorsResamplePolyphaseInit_*, zorsResamplePolyphase_*: resampling by any factor.
#include "exports/resampling.h"
#include "resampling/resample.h"

// The state begins at the next multiple of 8 bytes of the caller's block.
struct ZorResampleState {
  Zor32s nStep;
  Zor32s tableLen;
  Zor32s accurate;  // sums in binary64
  Zor32f tableScale;
  Zor32f* table;  // half of the impulse response at a spacing of 1/nStep, and the last value once more
  Zor32f* rows;   // the same by phase: row p holds table[p], table[p + nStep], ...
};

namespace zors {
namespace {

using namespace resample;

// ---- Table --------------------------------------------------------------------------------------

constexpr Zor64f largestTable = 0xFFFFFFE;
Zor64f tableLenOf(Zor32f window, Zor32s nStep) { return std::trunc(window / 2 * static_cast<Zor32f>(nStep)) + 1.0; }
Checks tableChecks(Checks checks, Zor32f window, Zor32s nStep) {
  return checks.size(nStep)
      .require(nStep < 1 || 2.0f / static_cast<Zor32f>(nStep) <= window, zorStatusBadArgument)
      .require(nStep < 1 || tableLenOf(window, nStep) <= largestTable, zorStatusBadArgument);
}

Zor64s bytesOf(Zor64s len, bool integers) {
  return ((integers ? 2 * len + 65 : 4 * len + 67) & ~63) + 64 + ((8 * len + 71) & ~63);
}

ZorStatus getSize(Zor32f window, Zor32s nStep, Zor32s* size, bool integers) {
  return tableChecks(check().pointers(size), window, nStep).then([&]() -> ZorStatus {
    const Zor64s bytes = bytesOf(static_cast<Zor64s>(tableLenOf(window, nStep)), integers);
    if (bytes > INT32_MAX) return zorStatusNoMemory;
    *size = static_cast<Zor32s>(bytes);
    return zorStatusOk;
  });
}

ZorResampleState* recordOf(const ZorResampleState* state) { return alignUp(const_cast<ZorResampleState*>(state), 8); }

// The response is computed in binary64 and narrowed in place; the second half of its memory then takes the rows.
ZorStatus init(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, ZorResampleState* state, bool accurate,
               bool integers) {
  return tableChecks(check().pointers(state), window, nStep)
      .require(rollf > 0 && rollf <= 1 && alpha >= 1, zorStatusBadArgument)
      .then([&]() -> ZorStatus {
        const auto len = static_cast<Zor32s>(tableLenOf(window, nStep));
        if (bytesOf(len, integers) > INT32_MAX) return zorStatusNoMemory;
        ZorResampleState* record = recordOf(state);
        auto* response = reinterpret_cast<Zor64f*>(record + 1);
        const WindowedSinc sinc(std::numbers::pi / nStep, rollf, alpha, len - 1);
        Zor64f sum = -rollf;
        for (Zor32s k = 0; k < len; ++k) {
          response[k] = sinc(k);
          if (k % nStep == 0) sum += 2 * response[k];
        }
        Zor64f scale = 1 / sum;
        *record = {
            .nStep = nStep, .tableLen = len, .accurate = accurate, .tableScale = 1, .table = nullptr, .rows = nullptr};
        if (integers) {
          Zor64f largest = 0;
          for (Zor32s k = 0; k < len; ++k) largest = std::max(largest, std::fabs(response[k] * scale));
          record->tableScale = static_cast<Zor32f>(largest / largestTap);
          scale *= largestTap / largest;
        }
        auto* table = record->table = reinterpret_cast<Zor32f*>(response);
        for (Zor32s k = 0; k < len; ++k) {
          const Zor64f value = response[k] * scale;
          table[k] = static_cast<Zor32f>(integers ? halfAway(value) : value);
        }
        table[len] = table[len - 1];
        Zor32f* to = record->rows = table + len + 1;
        for (Zor32s phase = 0; phase < nStep; ++phase)
          for (Zor64s k = phase; k <= len; k += nStep) *to++ = table[k];
        return zorStatusOk;
      });
}

// ---- Runs ---------------------------------------------------------------------------------------

// Row p begins behind the rows before it, of which the first (len + 1) % nStep are longer by one.
const Zor32f* rowOf(const ZorResampleState* state, Zor32s p) {
  const Zor32s elements = state->tableLen + 1;
  if (p == state->nStep) return state->rows + 1;  // row 0 from its second element on
  return state->rows + std::ptrdiff_t{p} * (elements / state->nStep) + std::min(p, elements % state->nStep);
}

// Weights a whole number of table steps apart: all lie at one fraction between two rows.
template <class Sum> class RowWeights {
 public:
  RowWeights(const ZorResampleState* state, Zor64f pos) {
    const auto index = static_cast<Zor32s>(pos);
    const Zor32s p = index % state->nStep, skipped = index / state->nStep;
    near_ = rowOf(state, p) + skipped;
    far_ = rowOf(state, p + 1) + skipped;
    fraction_ = static_cast<Sum>(pos - index);
  }
  ZORS_INLINE auto operator()(std::ptrdiff_t k) const {
    return between(simd::load<8>(near_ + k), simd::load<8>(far_ + k));
  }
  ZORS_INLINE auto some(std::ptrdiff_t k, int count) const {
    return between(simd::loadThenZeros(near_ + k, count), simd::loadThenZeros(far_ + k, count));
  }

 private:
  ZORS_INLINE Vec<Sum, 8> between(Vec<Zor32f, 8> a, Vec<Zor32f, 8> b) const {
    if constexpr (sizeof(Sum) == 8) {
      const auto wide = toDouble(a);
      return fma(simd::same(wide, fraction_), sub(toDouble(b), wide), wide);
    } else {
      return fma(simd::same(a, fraction_), sub(b, a), a);
    }
  }
  const Zor32f *near_, *far_;
  Sum fraction_;
};

// Weights at any spacing: pairs of neighbours are gathered, four at a time.
template <class Sum> class GatheredWeights {
 public:
  GatheredWeights(const ZorResampleState* state, Zor64f pos, Zor64f spacing)
      : table_(state->table), lastIndex_(state->tableLen - 1), pos_(pos), spacing_(spacing) {}
  ZORS_INLINE Vec<Sum, 8> operator()(std::ptrdiff_t k) const {
    const __m256d from = _mm256_set1_pd(pos_ + static_cast<Zor64f>(k) * spacing_), spacing = _mm256_set1_pd(spacing_);
    const __m256d a = _mm256_fmadd_pd(_mm256_setr_pd(0, 1, 4, 5), spacing, from),
                  b = _mm256_fmadd_pd(_mm256_setr_pd(2, 3, 6, 7), spacing, from);
    const __m128i last = _mm_set1_epi32(lastIndex_);  // for what stands behind the table; it meets no sample
    const __m128i indexA = _mm_min_epu32(_mm256_cvttpd_epi32(a), last),
                  indexB = _mm_min_epu32(_mm256_cvttpd_epi32(b), last);
    const __m256 pairsA = pairs(indexA), pairsB = pairs(indexB);
    const Vec<Zor32f, 8> near{{_mm256_shuffle_ps(pairsA, pairsB, 0x88)}},
        far{{_mm256_shuffle_ps(pairsA, pairsB, 0xDD)}};
    const __m256d fractionA = _mm256_sub_pd(a, _mm256_cvtepi32_pd(indexA)),
                  fractionB = _mm256_sub_pd(b, _mm256_cvtepi32_pd(indexB));
    const Vec<Zor64f, 8> fraction{
        {_mm256_permute2f128_pd(fractionA, fractionB, 0x20), _mm256_permute2f128_pd(fractionA, fractionB, 0x31)}};
    if constexpr (sizeof(Sum) == 8) {
      const auto wide = toDouble(near);
      return fma(fraction, sub(toDouble(far), wide), wide);
    } else {
      return fma(toFloat(fraction), sub(far, near), near);
    }
  }
  ZORS_INLINE auto some(std::ptrdiff_t k, int) const { return (*this)(k); }

 private:
  ZORS_INLINE __m256 pairs(__m128i index) const {
    const __m256d all = _mm256_castsi256_pd(_mm256_set1_epi64x(-1));
    return _mm256_castpd_ps(
        _mm256_mask_i32gather_pd(_mm256_setzero_pd(), reinterpret_cast<const double*>(table_), index, all, 4));
  }
  const Zor32f* table_;
  Zor32s lastIndex_;
  Zor64f pos_, spacing_;
};

// count products with samples x[0], x[1], ... or x[0], x[-1], ...
template <class Sum, class Sample, class Weights>
ZORS_INLINE void addForward(Products<Sum>& sum, const Weights& weights, const Sample* x, std::ptrdiff_t count) {
  std::ptrdiff_t k = 0;
  for (; k + 8 <= count; k += 8) sum.add(weights(k), simd::floatsAt(x + k));
  if (k < count) sum.add(weights.some(k, int(count - k)), simd::floatsThenZeros(x + k, int(count - k)));
}
template <class Sum, class Sample, class Weights>
ZORS_INLINE void addBackward(Products<Sum>& sum, const Weights& weights, const Sample* x, std::ptrdiff_t count) {
  std::ptrdiff_t k = 0;
  for (; k + 8 <= count; k += 8) sum.add(weights(k), reversed(simd::floatsAt(x - k - 7)));
  if (k >= count) return;
  const int some = int(count - k);  // turned about so that the first lanes are the samples and the others zeros
  const __m256i turned = _mm256_sub_epi32(_mm256_set1_epi32(some - 1), _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
  sum.add(weights.some(k, some),
          Vec<Zor32f, 8>{{_mm256_permutevar8x32_ps(simd::floatsThenZeros(x - count + 1, some).r[0], turned)}});
}

template <class Sum, class Sample>
[[gnu::flatten]] void run(const ZorResampleState* state, const Sample* src, Zor32s len, Sample* dst, Zor64f factor,
                          Zor32f norm, Zor64f* time, Zor32s* outLen) {
  constexpr Ties ties = sizeof(Sum) == 8 ? Ties::away : Ties::even;
  Zor64f t = *time;
  Zor32s count = 0;
  if (t > INT32_MIN && t < INT32_MAX) {
    const Zor64f end = std::trunc(t) + len, advance = 1 / factor;
    const bool lowers = factor < 1;
    const Zor64f spacing = lowers ? factor * state->nStep : state->nStep;
    const Zor64f gain = (lowers ? factor : 1.0) * norm * state->tableScale;
    const Zor64f limit = state->tableLen - 1e-5;
    const auto taps = [&](Zor64f pos) {
      return pos < limit ? static_cast<std::ptrdiff_t>(std::ceil((limit - pos) / spacing)) : 0;
    };
    for (; t < end; t += advance) {
      const Zor64f whole = std::floor(t), back = (t - whole) * spacing, ahead = spacing - back;
      const Sample* x = src + static_cast<std::ptrdiff_t>(whole);
      Products<Sum> sum;
      if (lowers) {
        addBackward(sum, GatheredWeights<Sum>(state, back, spacing), x, taps(back));
        addForward(sum, GatheredWeights<Sum>(state, ahead, spacing), x + 1, taps(ahead));
      } else {
        addBackward(sum, RowWeights<Sum>(state, back), x, taps(back));
        addForward(sum, RowWeights<Sum>(state, ahead), x + 1, taps(ahead));
      }
      dst[count++] = result<Sample, ties>(static_cast<Sum>(sum.total() * static_cast<Sum>(gain)));
    }
  }
  *time = t;
  *outLen = count;
}

template <class Sample>
ZorStatus resampleFreely(const Sample* src, Zor32s len, Sample* dst, Zor64f factor, Zor32f norm, Zor64f* time,
                         Zor32s* outLen, const ZorResampleState* state) {
  return check()
      .pointers(state, time, src, dst, outLen)
      .require(factor > 0 && factor <= std::numeric_limits<Zor64f>::max(), zorStatusBadSize)
      .size(len)
      .then([&] {
        const ZorResampleState* record = recordOf(state);
        if (record->accurate)
          run<Zor64f>(record, src, len, dst, factor, norm, time, outLen);
        else
          run<Zor32f>(record, src, len, dst, factor, norm, time, outLen);
      });
}

}  // namespace

// clang-format off
ZorStatus zorsResamplePolyphaseGetSize_32f(Zor32f window, Zor32s nStep, Zor32s* size) { return getSize(window, nStep, size, false); }
ZorStatus zorsResamplePolyphaseGetSize_16s(Zor32f window, Zor32s nStep, Zor32s* size, ZorHintAlgorithm hint) { return getSize(window, nStep, size, hint != zorAlgHintAccurate); }
ZorStatus zorsResamplePolyphaseInit_32f(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, ZorResampleState* state, ZorHintAlgorithm hint) { return init(window, nStep, rollf, alpha, state, hint == zorAlgHintAccurate, false); }
ZorStatus zorsResamplePolyphaseInit_16s(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, ZorResampleState* state, ZorHintAlgorithm hint) { return init(window, nStep, rollf, alpha, state, hint == zorAlgHintAccurate, hint != zorAlgHintAccurate); }
ZorStatus zorsResamplePolyphase_32f(const Zor32f* src, Zor32s len, Zor32f* dst, Zor64f factor, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleState* state) { return resampleFreely(src, len, dst, factor, norm, time, outLen, state); }
ZorStatus zorsResamplePolyphase_16s(const Zor16s* src, Zor32s len, Zor16s* dst, Zor64f factor, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleState* state) { return resampleFreely(src, len, dst, factor, norm, time, outLen, state); }
// clang-format on

}  // namespace zors
