// zorsTriangle_Direct_*, zorsTriangleQ15_*: triangles whose falling and rising slopes may differ.
#include <algorithm>

#include "exports/generators.h"
#include "frame/by_type.h"
#include "frame/check.h"
#include "frame/map.h"
#include "generators/periodic.h"
#include "generators/record.h"

namespace zors {
namespace {

using namespace simd;
using namespace generators;

// The wave falls from A to -A over h1 = pi + asym radians and rises over h2 = pi - asym. A fold mirrors what goes
// beyond an end, with the other side's slope.
struct Slopes {
  Zor64f fallStep, riseStep, riseToFall, fallToRise, riseSpan, fallSpan, foldAtTop, foldAtBottom;

  Slopes() = default;
  Slopes(Zor64f a, Zor64f f, Zor64f asym) {
    const Zor64f h1 = pi + asym, h2 = pi - asym;
    fallStep = -4 * pi * a * f / h1;
    riseStep = 4 * pi * a * f / h2;
    riseSpan = 4 * pi * a / h2;
    fallSpan = 4 * pi * a / h1;
    riseToFall = -h2 / h1;
    fallToRise = -h1 / h2;
    foldAtTop = a - a * riseToFall;
    foldAtBottom = a * fallToRise - a;
  }
};

// A place in the wave: `position` steps from `value` on a straight run. Counting steps, not adding them up, keeps each
// sample within a rounding of its line, and the same whether it is reached in one call or in several.
struct Place {
  Zor64f step, value;
  Zor32s rising, position;

  Place() = default;
  Place(const Slopes& s, Zor64f a, Zor64f asym, Zor64f phase) {
    const Zor64f h1 = pi + asym, h2 = pi - asym;
    const bool falls = phase < h1;
    step = falls ? s.fallStep : s.riseStep;
    value = falls ? a * (1 - 2 * phase / h1) : a * (2 * (phase - h1) / h2 - 1);
    rising = step > 0 ? 1 : 0;
    position = 0;
  }

  Zor64f at(Zor32s n) const { return std::fma(n, step, value); }
  bool beyond(Zor64f y, Zor64f a) const { return rising != 0 ? y > a : y < -a; }

  // From y beyond an end: onto the other slope, or, where a step has crossed all of that one, onto the same slope
  // again.
  void fold(const Slopes& s, Zor64f y, Zor64f a) {
    position = 0;
    if (rising != 0) {
      value = std::fma(s.riseToFall, y, s.foldAtTop);
      if (value >= -a) {
        step = s.fallStep;
        rising = 0;
      } else {
        value = y - s.riseSpan;
      }
    } else {
      value = std::fma(s.fallToRise, y, s.foldAtBottom);
      if (value <= a) {
        step = s.riseStep;
        rising = 1;
      } else {
        value = y + s.fallSpan;
      }
    }
  }

  // Whole vectors are stored: behind len elements there is room for L more.
  static constexpr int L = 8;
  void generate(const Slopes& s, Zor64f a, Zor64f* dst, Zor32s len) {
    static constexpr Zor64f firstCounts[L] = {0, 1, 2, 3, 4, 5, 6, 7};
    constexpr int few = 8;
    while (len > 0) {
      Zor64f y = at(position);
      if (beyond(y, a)) {
        fold(s, y, a);
        y = value;
      }
      if (std::fabs(step) * few > 2 * a) {  // runs too short for vectors
        do {
          *dst++ = y;
          --len;
          y = at(++position);
        } while (len > 0 && !beyond(y, a));
        continue;
      }
      const Zor64f steps =
          std::fabs(((rising != 0 ? a : -a) - y) / step);  // to the end of the run; a flat one has none
      Zor32s count = steps < len - 1 ? static_cast<Zor32s>(steps) + 1 : len;
      while (count > 1 && beyond(at(position + count - 1), a)) --count;
      auto n = add(load<L>(firstCounts), splat<Vec<Zor64f, L>>(position));
      for (Zor32s i = 0; i < count; i += L) {
        store(dst + i, fma(n, same(n, step), same(n, value)));
        n = add(n, same(n, Zor64f{L}));
      }
      if (step != 0) position += count;
      dst += count;
      len -= count;
    }
  }
};

// ---- Elements -----------------------------------------------------------------------------------

template <class P, int L> ZORS_INLINE Vec<P, L> narrowed(Vec<Zor64f, L> x) {
  if constexpr (std::is_same_v<P, Zor64f>)
    return x;
  else if constexpr (std::is_same_v<P, Zor32f>)
    return toFloat(x);
  else
    return saturate<P>(toIntegerTowardZero(halfFurther(x)));
}

constexpr Zor32s piece = 512;

template <class D> void realTriangle(const Slopes& s, Zor64f a, Place& place, D* dst, Zor32s len) {
  alignas(32) Zor64f y[piece + Place::L];
  for (Zor32s at = 0, count = 0; at < len; at += count) {
    count = std::min(piece, len - at);
    place.generate(s, a, y, count);
    map<16>([](auto x) ZORS_INLINE_LAMBDA { return narrowed<D>(x); }, count, dst + at, y);
  }
}
template <class D> void complexTriangle(const Slopes& s, Zor64f a, Place re, Place im, D* dst, Zor32s len) {
  alignas(32) Zor64f parts[2][piece + Place::L];
  for (Zor32s at = 0, count = 0; at < len; at += count) {
    count = std::min(piece, len - at);
    re.generate(s, a, parts[0], count);
    im.generate(s, a, parts[1], count);
    map<16>([](auto x, auto y) ZORS_INLINE_LAMBDA { return toComplex(narrowed<Part<D>>(x), narrowed<Part<D>>(y)); },
            count, dst + at, parts[0], parts[1]);
  }
}

// The phase is tested before dst and len, and written before the samples.
template <class D, class M, class F> ZorStatus triangle(D* dst, Zor32s len, M magnitude, F rFreq, F asym, F* phase) {
  return check()
      .pointers(phase)
      .require(magnitude > 0, zorStatusBadTriangleMagnitude)
      .require(!outsideBand(rFreq), zorStatusBadTriangleFrequency)
      .require(!(Zor64f{asym} < -pi || Zor64f{asym} >= pi), zorStatusBadTriangleAsym)
      .then([&] {
        const F from = *phase;
        return check().require(!outsideCircle(from), zorStatusBadTrianglePhase).pointers(dst).size(len).then([&] {
          const auto a = static_cast<Zor64f>(magnitude);
          const Slopes slopes(a, rFreq, asym);
          Place place(slopes, a, asym, from);
          *phase = advancedPhase(from, twoPi * Zor64f{rFreq}, len);
          if constexpr (Complex<D>) {
            const Zor64f ahead = Zor64f{from} + (twoPi + (pi + Zor64f{asym})) / 2;
            const Place imaginary(slopes, a, asym, ahead >= twoPi ? ahead - twoPi : ahead);
            complexTriangle(slopes, a, place, imaginary, dst, len);
          } else {
            realTriangle(slopes, a, place, dst, len);
          }
        });
      });
}

}  // namespace
}  // namespace zors

struct ZorTriangleState {
  zors::Tag tag;
  Zor64f magnitude, rFreq, phase, asym;
  zors::Slopes slopes;
  zors::Place place;
  Zor32s allocated, started;
};
static_assert(sizeof(ZorTriangleState) == 136);

namespace zors {
namespace {

constexpr Tag triangleTag = tag("CMAI");

// The arguments, in the order in which they are tested.
Checks arguments(Checks before, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15, Zor32s asymQ15) {
  return before.require(magnitude >= 1, zorStatusBadTriangleMagnitude)
      .require(rFreqQ15 >= 0 && rFreqQ15 <= frequencyLimitQ15, zorStatusBadTriangleFrequency)
      .require(phaseQ15 <= phaseLimitQ15, zorStatusBadTrianglePhase)
      .require(asymQ15 >= -asymLimitQ15 && asymQ15 <= asymLimitQ15, zorStatusBadTriangleAsym);
}
ZorTriangleState stateOf(Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15, Zor32s asymQ15, Zor32s allocated) {
  ZorTriangleState state{};
  state.tag = triangleTag;
  state.magnitude = magnitude;
  state.rFreq = rFreqQ15 * unitQ15;
  state.phase = phaseQ15 * unitQ15;
  state.asym = asymQ15 * unitQ15;
  state.allocated = allocated;
  return state;
}

}  // namespace

// clang-format off
#define TRIANGLE(name, T, M, F) ZorStatus name(T* dst, Zor32s len, M magnitude, F rFreq, F asym, F* phase) { return triangle(dst, len, magnitude, rFreq, asym, phase); }
TRIANGLE(zorsTriangle_Direct_16s, Zor16s, Zor16s, Zor32f)
TRIANGLE(zorsTriangle_Direct_16sc, Zor16sc, Zor16s, Zor32f)
TRIANGLE(zorsTriangle_Direct_32f, Zor32f, Zor32f, Zor32f)
TRIANGLE(zorsTriangle_Direct_32fc, Zor32fc, Zor32f, Zor32f)
TRIANGLE(zorsTriangle_Direct_64f, Zor64f, Zor64f, Zor64f)
TRIANGLE(zorsTriangle_Direct_64fc, Zor64fc, Zor64f, Zor64f)
#undef TRIANGLE
// clang-format on

ZorStatus zorsTriangleQ15_Direct_16s(Zor16s* dst, Zor32s len, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                     Zor32s asymQ15) {
  return arguments(check().pointers(dst).size(len), magnitude, rFreqQ15, phaseQ15, asymQ15).then([&] {
    constexpr auto unit = static_cast<Zor32f>(unitQ15);  // products are exact
    auto phase = static_cast<Zor32f>(phaseQ15) * unit;
    return zors::zorsTriangle_Direct_16s(dst, len, magnitude, rFreqQ15 * unit, static_cast<Zor32f>(asymQ15) * unit,
                                         &phase);
  });
}

ZorStatus zorsTriangleGetStateSizeQ15_16s(Zor32s* size) {
  return check().pointers(size).then([&] { *size = sizeof(ZorTriangleState); });
}
ZorStatus zorsTriangleInitQ15_16s(ZorTriangleState* state, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                  Zor32s asymQ15) {
  return arguments(check().pointers(state), magnitude, rFreqQ15, phaseQ15, asymQ15).then([&] {
    storeRecord(stateOf(magnitude, rFreqQ15, phaseQ15, asymQ15, 0), state);
  });
}
ZorStatus zorsTriangleInitAllocQ15_16s(ZorTriangleState** stateOut, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15,
                                       Zor32s asymQ15) {
  return arguments(check().pointers(stateOut), magnitude, rFreqQ15, phaseQ15, asymQ15).then([&] {
    return storeInNewMemory(stateOf(magnitude, rFreqQ15, phaseQ15, asymQ15, 1), stateOut);
  });
}
ZorStatus zorsTriangleFree(ZorTriangleState* state) {
  return check().pointers(state).state(state, triangleTag).then([&] {
    if (loadRecord<ZorTriangleState>(state).allocated == 1) releaseRecord(state);
  });
}

ZorStatus zorsTriangleQ15_16s(Zor16s* dst, Zor32s len, ZorTriangleState* state) {
  return check().pointers(dst, state).size(len).state(state, triangleTag).then([&] {
    auto record = loadRecord<ZorTriangleState>(state);
    if (record.started == 0) {
      record.slopes = Slopes(record.magnitude, record.rFreq, record.asym);
      record.place = Place(record.slopes, record.magnitude, record.asym, record.phase);
      record.started = 1;
    }
    realTriangle(record.slopes, record.magnitude, record.place, dst, len);
    storeRecord(record, state);
  });
}

}  // namespace zors
