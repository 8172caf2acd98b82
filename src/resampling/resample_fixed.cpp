// zorsResamplePolyphaseFixed*, zorsResamplePolyphaseGetFixedFilter_*, zorsResamplePolyphaseSetFixedFilter_*: resampling
// by a rational factor, one row of taps for each phase of the output.
#include "exports/resampling.h"
#include "resampling/resample.h"

// The state begins at the next multiple of 8 bytes of the caller's block. Row p of the taps serves outputs that stand
// p / outRate of an input sample behind an input; row 0 is symmetrical and has a tap more.
struct ZorResampleFixedState {
  Zor32s inRate, outRate;  // without common factors
  Zor32s halfLen;
  Zor32s accurate;  // sums in binary64
  Zor32f scale;     // what a tap of 1 weighs
  Zor32f unit;      // of 16-bit rows as a caller sees them, in taps
  Zor32f* rows;     // 2 * halfLen + 4 taps apart
};

namespace zors {
namespace {

using namespace resample;

// ---- Sizes --------------------------------------------------------------------------------------

struct Plan {
  Zor64s in, out, len, entries;  // entries: of the half response at a spacing of 1/out
  Zor64s halfLen() const { return ((len + 3) & ~Zor64s{3}) / 2; }
  Zor64s stride() const { return 2 * halfLen() + 4; }
};
Plan planOf(Zor32s inRate, Zor32s outRate, Zor32s len) {
  Zor32s in = inRate, out = outRate;
  for (Zor32s b = out; b != 0;) {  // the greatest common factor
    in %= b;
    std::swap(in, b);
  }
  Plan plan{inRate / in, outRate / in, len, 0};
  const auto taps = static_cast<Zor32f>(2 * plan.halfLen()), inF = static_cast<Zor32f>(plan.in),
             outF = static_cast<Zor32f>(plan.out);
  const Zor32f half = plan.out < plan.in ? (1e-5f + taps * (outF / inF)) * 0.5f * inF : (1e-5f + taps) * 0.5f * outF;
  plan.entries = static_cast<Zor64s>(half) + 1;
  return plan;
}

// The stated size of a state; 0 where it is beyond 0x7FFFFFFE.
Zor32s bytesOf(const Plan& plan, bool integers) {
  const Zor64s out = plan.out, n = plan.len;
  const Zor64s pointers = ((out + 4) & ~3) * 8, steps = ((out + 7) & ~7) * 2;
  // In binary64 first: lengths and rates near 2^31 give products beyond 64 bits.
  const Zor64f rows = integers ? 2.0 * (Zor64f((n + 8) & ~7) * Zor64f(out) + Zor64f(plan.entries))
                               : 4.0 * Zor64f((n + 4) & ~3) * Zor64f(out);
  constexpr Zor64s largest = 0x7FFFFFFE;
  if (rows + Zor64f(pointers + steps) + 8 * Zor64f(plan.entries) + 58 > Zor64f(largest) + 64) return 0;
  const Zor64s response = 8 * plan.entries;
  const Zor64s bytes = integers ? pointers + steps + response + 58 + 2 * (((n + 8) & ~7) * out + plan.entries)
                                : pointers + ((n + 4) & ~3) * out * 4 + steps + response + 48;
  return bytes > largest ? 0 : static_cast<Zor32s>(bytes);
}

ZorStatus getSize(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32s* size, Zor32s* lenOut, Zor32s* height,
                  bool integers) {
  return check().pointers(size, lenOut, height).size(inRate).size(outRate).size(len).then([&]() -> ZorStatus {
    const Plan plan = planOf(inRate, outRate, len);
    const Zor32s bytes = bytesOf(plan, integers);
    if (bytes == 0) return zorStatusBadArgument;
    *size = bytes;
    *lenOut = static_cast<Zor32s>(2 * plan.halfLen());
    *height = static_cast<Zor32s>(plan.out);
    return zorStatusOk;
  });
}

// ---- Rows ---------------------------------------------------------------------------------------

ZorResampleFixedState* recordOf(const ZorResampleFixedState* state) {
  return alignUp(const_cast<ZorResampleFixedState*>(state), 8);
}
Zor64s tapsOf(const Plan& plan, Zor64s row) { return 2 * plan.halfLen() + (row == 0 ? 1 : 0); }
Zor64s placeOf(const Plan& plan, Zor64s row, Zor64s tap) {
  const Zor64s h = plan.halfLen();
  return std::abs(row == 0 ? (tap - h) * plan.out : (1 - h + tap) * plan.out - row);
}

// The rows, whose taps sum to one value, as Tap: first one behind the other, in front of the response that they are
// taken from, then apart, as floats. Integer taps are scaled by the largest magnitude, which is returned.
template <class Tap> Zor64f makeRows(const Plan& plan, const WindowedSinc& sinc, Zor32f* rows) {
  auto* taps = reinterpret_cast<Tap*>(rows);
  constexpr Zor64s tapsInEight = 8 / sizeof(Tap);
  const Zor64s inAll = 2 * plan.halfLen() * plan.out + 1;
  auto* response = reinterpret_cast<Zor64f*>(taps + (inAll + tapsInEight - 1) / tapsInEight * tapsInEight);
  for (Zor64s m = 0; m < plan.entries; ++m) response[m] = sinc(static_cast<Zor64f>(m));
  const auto at = [&](Zor64s row, Zor64s tap) {
    const Zor64s m = placeOf(plan, row, tap);
    return m < plan.entries ? response[m] : sinc(static_cast<Zor64f>(m));
  };
  const auto forTaps = [&](auto&& visit) {
    const Zor64f wanted = plan.out < plan.in ? static_cast<Zor64f>(plan.in) / static_cast<Zor64f>(plan.out) : 1.0;
    for (Zor64s row = 0; row < plan.out; ++row) {
      Zor64f sum = 0;
      for (Zor64s j = 0; j < tapsOf(plan, row); ++j) sum += at(row, j);
      for (Zor64s j = 0; j < tapsOf(plan, row); ++j) visit(at(row, j) * (wanted / sum));
    }
  };
  Zor64f largest = 0;
  forTaps([&](Zor64f tap) { largest = std::max(largest, std::fabs(tap)); });
  Tap* to = taps;
  forTaps([&](Zor64f tap) {
    *to++ = static_cast<Tap>(std::is_integral_v<Tap> ? halfAway(tap * (largestTap / largest)) : tap);
  });
  for (Zor64s row = plan.out - 1; row >= 0; --row) {
    Zor32f* apart = rows + row * plan.stride();
    const Zor64s count = tapsOf(plan, row);
    for (Zor64s j = count - 1; j >= 0; --j) {
      const auto tap = static_cast<Zor32f>(*--to);
      apart[j] = tap;
    }
    std::fill(apart + count, apart + plan.stride(), 0.0f);
  }
  return largest;
}

ZorStatus init(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, ZorResampleFixedState* state,
               bool accurate, bool quantised) {
  return check()
      .pointers(state)
      .size(inRate)
      .size(outRate)
      .size(len)
      .require(rollf > 0 && rollf <= 1 && alpha >= 1, zorStatusBadArgument)
      .then([&]() -> ZorStatus {
        const Plan plan = planOf(inRate, outRate, len);
        if (bytesOf(plan, quantised) == 0) return zorStatusBadArgument;
        ZorResampleFixedState* record = recordOf(state);
        auto* rows = reinterpret_cast<Zor32f*>(record + 1);
        const WindowedSinc sinc(std::numbers::pi / static_cast<Zor64f>(std::max(plan.in, plan.out)), rollf, alpha,
                                static_cast<Zor64f>(plan.entries - 1));
        const auto unit = static_cast<Zor32f>(
            (quantised ? makeRows<Zor16s>(plan, sinc, rows) : makeRows<Zor32f>(plan, sinc, rows)) / largestTap);
        *record = {.inRate = static_cast<Zor32s>(plan.in),
                   .outRate = static_cast<Zor32s>(plan.out),
                   .halfLen = static_cast<Zor32s>(plan.halfLen()),
                   .accurate = accurate,
                   .scale = quantised ? unit : 1,
                   .unit = quantised ? 1 : unit,
                   .rows = rows};
        return zorStatusOk;
      });
}

// A caller's rows: 32f the taps; 16s the taps in units, where a tap that shows as the value given stays as it is.
void toCaller(Zor32f tap, Zor32f, Zor32f& value) { value = tap; }
void toCaller(Zor32f tap, Zor32f unit, Zor16s& value) {
  value = static_cast<Zor16s>(std::clamp(halfAway(Zor64f(tap) / unit), Zor64f(INT16_MIN), Zor64f(INT16_MAX)));
}
void fromCaller(Zor32f value, Zor32f, Zor32f& tap) { tap = value; }
void fromCaller(Zor16s value, Zor32f unit, Zor32f& tap) {
  Zor16s shown;
  toCaller(tap, unit, shown);
  if (shown != value) tap = static_cast<Zor32f>(value) * unit;
}
// Rows of min(2 * halfLen + 4, step) elements, step apart in the caller's array; no more rows than there are.
template <class T, class Move>
ZorStatus forRows(T* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state, Move move) {
  return check().pointers(filter, state).size(step).size(height).then([&] {
    const ZorResampleFixedState* record = recordOf(state);
    const std::ptrdiff_t stride = 2 * std::ptrdiff_t{record->halfLen} + 4;
    for (std::ptrdiff_t row = 0; row < std::min(height, record->outRate); ++row)
      for (std::ptrdiff_t k = 0; k < std::min<std::ptrdiff_t>(stride, step); ++k)
        move(filter[row * step + k], record->unit, record->rows[row * stride + k]);
  });
}
template <class T> ZorStatus getFilter(T* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state) {
  return forRows(filter, step, height, state, [](T& value, Zor32f unit, Zor32f tap) { toCaller(tap, unit, value); });
}
template <class T> ZorStatus setFilter(const T* filter, Zor32s step, Zor32s height, ZorResampleFixedState* state) {
  return forRows(filter, step, height, state, [](T value, Zor32f unit, Zor32f& tap) { fromCaller(value, unit, tap); });
}

// ---- Runs ---------------------------------------------------------------------------------------

// Outputs at once, so that multiply-adds and the sums across lanes of one do not wait for those of another.
constexpr int outputsAtOnce = 4;

// Sums of registers' lanes, as sumOfLanes has them.
ZORS_INLINE __m128 laneSums(const Vec<Zor32f, 8 * outputsAtOnce>& s) {
  const auto halves = [](__m256 x) ZORS_INLINE_LAMBDA {
    return _mm_add_ps(_mm256_castps256_ps128(x), _mm256_extractf128_ps(x, 1));
  };
  const __m128 a = halves(s.r[0]), b = halves(s.r[1]), c = halves(s.r[2]), d = halves(s.r[3]);
  const __m128 ab = _mm_add_ps(_mm_movelh_ps(a, b), _mm_movehl_ps(b, a)),
               cd = _mm_add_ps(_mm_movelh_ps(c, d), _mm_movehl_ps(d, c));
  return _mm_add_ps(_mm_shuffle_ps(ab, cd, 0x88), _mm_shuffle_ps(ab, cd, 0xDD));
}
ZORS_INLINE __m256d laneSums(const Vec<Zor64f, 4 * outputsAtOnce>& s) {
  const auto halves = [](__m256d a, __m256d b) ZORS_INLINE_LAMBDA {  // of a below, of b above
    return _mm256_add_pd(_mm256_permute2f128_pd(a, b, 0x20), _mm256_permute2f128_pd(a, b, 0x31));
  };
  const __m256d ac = halves(s.r[0], s.r[2]), bd = halves(s.r[1], s.r[3]);
  return _mm256_add_pd(_mm256_unpacklo_pd(ac, bd), _mm256_unpackhi_pd(ac, bd));
}

ZORS_INLINE Vec<Zor32f, 8> fourThenZeros(const Zor32f* p) { return {{_mm256_zextps128_ps256(_mm_loadu_ps(p))}}; }
ZORS_INLINE Vec<Zor32f, 8> fourThenZeros(const Zor16s* p) {
  const __m128i four = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
  return {{_mm256_zextps128_ps256(_mm_cvtepi32_ps(_mm_cvtepi16_epi32(four)))}};
}

template <class Sum, class Sample> struct Dots {
  const Zor32f* rows[outputsAtOnce];
  const Sample* x[outputsAtOnce];

  // The dot products of `taps` taps each, a multiple of 4; all may be of the first row.
  template <bool oneRow> ZORS_INLINE void operator()(std::bool_constant<oneRow>, std::ptrdiff_t taps, Sum* sums) const {
    // Binary32 sums in two registers each, of every second eight; those of binary64 fill two anyway.
    constexpr int ways = sizeof(Sum) == 4 ? 2 : 1;
    constexpr int step = 8 * ways;
    Products<Sum> parts[outputsAtOnce][ways];
    const auto rowOf = [](int o) { return oneRow ? 0 : o; };
    const auto add = [&](auto o, auto way, std::ptrdiff_t k) ZORS_INLINE_LAMBDA {
      parts[o][way].add(simd::load<8>(rows[rowOf(o)] + k), simd::floatsAt(x[o] + k));
    };
    std::ptrdiff_t k = 0;
    for (; k + step <= taps; k += step)
      simd::unrolled<outputsAtOnce>([&](auto o) ZORS_INLINE_LAMBDA {
        simd::unrolled<ways>([&](auto way) ZORS_INLINE_LAMBDA { add(o, way, k + 8 * way); });
      });
    using First = std::integral_constant<int, 0>;
    if (k + 8 <= taps) {
      simd::unrolled<outputsAtOnce>([&](auto o) ZORS_INLINE_LAMBDA { add(o, First{}, k); });
      k += 8;
    }
    if (k < taps)
      simd::unrolled<outputsAtOnce>([&](auto o) ZORS_INLINE_LAMBDA {
        parts[o][ways - 1].add(fourThenZeros(rows[rowOf(o)] + k), fourThenZeros(x[o] + k));
      });
    using One = Vec<Sum, simd::lanesOf<Sum>>;
    const auto folded = simd::build<Vec<Sum, outputsAtOnce * One::lanes>>([&](auto o) ZORS_INLINE_LAMBDA {
      if constexpr (ways == 2) {
        return simd::add(parts[o][0].lanes(), parts[o][1].lanes()).r[0];
      } else {
        const auto both = parts[o][0].lanes();
        return simd::add(One{{both.r[0]}}, One{{both.r[1]}}).r[0];
      }
    });
    if constexpr (sizeof(Sum) == 4)
      _mm_storeu_ps(sums, laneSums(folded));
    else
      _mm256_storeu_pd(sums, laneSums(folded));
  }
};

template <class Sum, class Sample>
[[gnu::flatten]] void run(const ZorResampleFixedState* state, const Sample* src, Zor32s len, Sample* dst, Zor32f norm,
                          Zor64f* time, Zor32s* outLen) {
  const Zor64s in = state->inRate, out = state->outRate, h = state->halfLen;
  const Zor64f t = *time, whole = std::floor(t), fraction = t - whole;
  *outLen = 0;
  if (!(t > INT32_MIN && t < INT32_MAX)) return;
  const auto i0 = static_cast<Zor64s>(whole), q = static_cast<Zor64s>(static_cast<Zor64f>(out) * fraction + 0.5);
  const Zor64s first = i0 * out + q, limit = out * (len + i0), count = first < limit ? (limit - first - 1) / in + 1 : 0;
  const auto gain = static_cast<Sum>(std::min(1.0, Zor64f(out) / Zor64f(in)) * state->scale * norm);
  // Output c stands at c / out: the sample before it, and the phase behind that.
  Zor64s sample = q == out ? i0 + 1 : i0, phase = q == out ? 0 : q;
  const auto advance = [&, samples = in / out, phases = in % out]() ZORS_INLINE_LAMBDA {
    phase += phases;
    sample += samples + (phase >= out ? 1 : 0);
    phase -= phase >= out ? out : 0;
  };
  Dots<Sum, Sample> dots;
  Sum sums[outputsAtOnce], beyond[outputsAtOnce];
  // Row 0 is symmetrical about the sample itself: it begins a sample earlier and has a tap more.
  const auto set = [&](int o, Zor64s shift) ZORS_INLINE_LAMBDA {
    dots.rows[o] = state->rows + phase * (2 * h + 4);
    dots.x[o] = src + sample + shift - h + (phase == 0 ? 0 : 1);
    beyond[o] = phase == 0 ? static_cast<Sum>(dots.rows[o][2 * h]) * static_cast<Sum>(dots.x[o][2 * h]) : 0;
  };
  const auto put = [&](Sample* to, int o)
                       ZORS_INLINE_LAMBDA { *to = result<Sample, Ties::even>((sums[o] + beyond[o]) * gain); };
  // Every out-th output is of the same row: those of so many rounds together, so that the rows, which may leave the
  // first-level cache, are read once for all of them.
  Zor64s done = 0;
  for (; done + outputsAtOnce * out <= count; done += outputsAtOnce * out) {
    for (Zor64s k = 0; k < out; ++k, advance()) {
      for (int o = 0; o < outputsAtOnce; ++o) set(o, o * in);
      dots(std::true_type{}, 2 * h, sums);
      for (int o = 0; o < outputsAtOnce; ++o) put(dst + done + k + o * out, o);
    }
    sample += (outputsAtOnce - 1) * in;
  }
  for (; done < count; done += outputsAtOnce) {
    const int made = static_cast<int>(std::min<Zor64s>(count - done, outputsAtOnce));
    for (int o = 0; o < outputsAtOnce; ++o) {  // the last one again where there are no more
      if (o > 0 && o < made) advance();
      set(o, 0);
    }
    dots(std::false_type{}, 2 * h, sums);
    for (int o = 0; o < made; ++o) put(dst + done + o, o);
    advance();
  }
  *time = fraction + static_cast<Zor64f>(first + count * in - q) / static_cast<Zor64f>(out);
  *outLen = static_cast<Zor32s>(count);
}

template <class Sample>
ZorStatus resampleFixed(const Sample* src, Zor32s len, Sample* dst, Zor32f norm, Zor64f* time, Zor32s* outLen,
                        const ZorResampleFixedState* state) {
  return check().pointers(src, dst, time, outLen, state).size(len).then([&] {
    const ZorResampleFixedState* record = recordOf(state);
    if (record->accurate)
      run<Zor64f>(record, src, len, dst, norm, time, outLen);
    else
      run<Zor32f>(record, src, len, dst, norm, time, outLen);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsResamplePolyphaseFixedGetSize_32f(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32s* size, Zor32s* lenOut, Zor32s* height, ZorHintAlgorithm) { return getSize(inRate, outRate, len, size, lenOut, height, false); }
ZorStatus zorsResamplePolyphaseFixedGetSize_16s(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32s* size, Zor32s* lenOut, Zor32s* height, ZorHintAlgorithm hint) { return getSize(inRate, outRate, len, size, lenOut, height, hint != zorAlgHintAccurate); }
ZorStatus zorsResamplePolyphaseFixedInit_32f(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, ZorResampleFixedState* state, ZorHintAlgorithm hint) { return init(inRate, outRate, len, rollf, alpha, state, hint == zorAlgHintAccurate, false); }
ZorStatus zorsResamplePolyphaseFixedInit_16s(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, ZorResampleFixedState* state, ZorHintAlgorithm hint) { return init(inRate, outRate, len, rollf, alpha, state, hint == zorAlgHintAccurate, hint != zorAlgHintAccurate); }
ZorStatus zorsResamplePolyphaseFixed_32f(const Zor32f* src, Zor32s len, Zor32f* dst, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleFixedState* state) { return resampleFixed(src, len, dst, norm, time, outLen, state); }
ZorStatus zorsResamplePolyphaseFixed_16s(const Zor16s* src, Zor32s len, Zor16s* dst, Zor32f norm, Zor64f* time, Zor32s* outLen, const ZorResampleFixedState* state) { return resampleFixed(src, len, dst, norm, time, outLen, state); }
ZorStatus zorsResamplePolyphaseGetFixedFilter_32f(Zor32f* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state) { return getFilter(filter, step, height, state); }
ZorStatus zorsResamplePolyphaseGetFixedFilter_16s(Zor16s* filter, Zor32s step, Zor32s height, const ZorResampleFixedState* state) { return getFilter(filter, step, height, state); }
ZorStatus zorsResamplePolyphaseSetFixedFilter_32f(const Zor32f* filter, Zor32s step, Zor32s height, ZorResampleFixedState* state) { return setFilter(filter, step, height, state); }
ZorStatus zorsResamplePolyphaseSetFixedFilter_16s(const Zor16s* filter, Zor32s step, Zor32s height, ZorResampleFixedState* state) { return setFilter(filter, step, height, state); }
// clang-format on

}  // namespace zors
