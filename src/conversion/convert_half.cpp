// zorsConvert_16f32f, zorsConvert_32f16f, zorsConvert_16s16f, zorsConvert_16f16s_Sfs: binary16.
// Every call asks whether the processor has the conversion instructions; without them the same values come from integer
// operations.
#include <algorithm>
#include <bit>

#include "exports/conversion.h"
#include "frame/convert_round.h"
#include "zorcore.h"

namespace zors {
namespace {

using namespace simd;

constexpr int lanes = 16;  // one register of binary16
using Halves = Vec<Zor16f, lanes>;
using Floats = Vec<Zor32f, lanes>;

// The instructions stand in assembly, so that the library is compiled for processors without them. The rounding of the
// narrowing one is in its operand, not in the control word.
struct ByInstruction {
  ZORS_INLINE static Floats toFloat(Halves x) {
    return build<Floats>([&](auto i) ZORS_INLINE_LAMBDA {
      __m256 wide;
      __asm__("vcvtph2ps %1, %0" : "=x"(wide) : "x"(lowPart<Zor32f>(x, i)));
      return wide;
    });
  }
  template <Rounding rounding> ZORS_INLINE static Halves toHalf(Floats x) {
    __m128i half[2];
    for (int i = 0; i < 2; ++i) {
      if constexpr (rounding == Rounding::nearestEven)
        __asm__("vcvtps2ph $0, %1, %0" : "=x"(half[i]) : "x"(x.r[i]));
      else
        __asm__("vcvtps2ph $3, %1, %0" : "=x"(half[i]) : "x"(x.r[i]));
    }
    return {{_mm256_set_m128i(half[1], half[0])}};
  }
};

struct ByIntegers {
  using Bits = Vec<Zor32s, lanes>;

  ZORS_INLINE static Floats toFloat(Halves x) {
    const Bits h = extend<Zor32s>(x);
    const Bits rest = shiftLeft(both(h, same(h, 0x7FFF)), 13), sign = shiftLeft(both(h, same(h, 0x8000)), 16);
    const Bits special = above(rest, same(h, 0x0F7FFFFF)), denormal = above(same(h, 0x00800000), rest);
    const Bits rebias = same(h, 112 << 23);
    Bits wide = add(add(rest, rebias), both(special, rebias));
    const Bits notANumber = above(rest, same(h, 0x0F800000));
    wide = either(wide, both(notANumber, same(h, 0x00400000)));  // quiet
    // 2^-14 and the fraction below it, less 2^-14: exact. A difference of zero has no sign of its own.
    const auto least = same(as<Zor32f>(h), 0x1p-14f);
    const Bits small = both(as<Zor32s>(sub(as<Zor32f>(add(rest, as<Zor32s>(least))), least)), same(h, 0x7FFFFFFF));
    return as<Zor32f>(either(select(denormal, wide, small), sign));
  }

  template <Rounding rounding> ZORS_INLINE static Halves toHalf(Floats x) {
    constexpr bool nearest = rounding == Rounding::nearestEven;
    const Bits bits = as<Zor32s>(x), a = both(bits, same(bits, 0x7FFFFFFF));
    const Bits one = same(bits, 1);
    // Normal results: the exponent moves, 13 bits are cut; a carry runs into the exponent, up to infinity.
    const Bits moved = sub(a, same(bits, 112 << 23));
    const Bits bias = nearest ? add(same(bits, 0xFFF), both(shiftRight(moved, 13), one)) : same(bits, 0);
    Bits half = min(shiftRight(add(moved, bias), 13), same(bits, nearest ? 0x7C00 : 0x7BFF));
    // Below 2^-14: the significand, shifted to units of 2^-24; shifts of 32 and more give 0.
    const Bits significand = either(both(a, same(bits, 0x7FFFFF)), same(bits, 0x800000));
    const Bits shift = sub(same(bits, 126), shiftRight(a, 23));
    Bits small = shiftRightEach(significand, shift);
    if constexpr (nearest) {
      const Bits belowHalf = sub(shiftLeftEach(one, sub(shift, one)), one);
      small = shiftRightEach(add(significand, add(belowHalf, both(small, one))), shift);
    }
    half = select(above(same(bits, 0x38800000), a), half, small);
    const Bits special = same(bits, 0x7C00),
               quiet = either(same(bits, 0x7E00), both(shiftRight(a, 13), same(bits, 0x3FF)));
    half = select(above(a, same(bits, 0x7F7FFFFF)), half, special);
    half = select(above(a, same(bits, 0x7F800000)), half, quiet);
    return saturate<Zor16u>(either(half, both(shiftRight(bits, 16), same(bits, 0x8000))));
  }

 private:
  ZORS_INLINE static Bits shiftRightEach(Bits x, Bits count) {
    return build<Bits>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_srlv_epi32(x.r[i], count.r[i]); });
  }
  ZORS_INLINE static Bits shiftLeftEach(Bits x, Bits count) {
    return build<Bits>([&](auto i) ZORS_INLINE_LAMBDA { return _mm256_sllv_epi32(x.r[i], count.r[i]); });
  }
};

template <class Run> void withConversion(Run&& run) {
  if (ownGetFeature(ZOR_CPU_F16C) != 0)
    run(ByInstruction{});
  else
    run(ByIntegers{});
}

template <class S> ZorStatus toHalf(const S* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd) {
  return check().pointers(src, dst).size(len).require(rnd != zorRoundHalfAway, zorStatusBadRoundMode).then([&] {
    withConversion([&]<class Conversion>(Conversion) {
      const auto run = [&]<Rounding rounding>() {
        map<lanes>(
            [](auto x) ZORS_INLINE_LAMBDA {
              if constexpr (std::is_same_v<S, Zor16s>)
                return Conversion::template toHalf<rounding>(simd::toFloat(x));
              else
                return Conversion::template toHalf<rounding>(x);
            },
            len, dst, src);
      };
      if (rnd == zorRoundNearestEven)
        run.template operator()<Rounding::nearestEven>();
      else
        run.template operator()<Rounding::towardZero>();
    });
  });
}

}  // namespace

ZorStatus zorsConvert_16f32f(const Zor16f* src, Zor32f* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    withConversion([&]<class Conversion>(Conversion) {
      map<lanes>([](auto x) ZORS_INLINE_LAMBDA { return Conversion::toFloat(x); }, len, dst, src);
    });
  });
}

ZorStatus zorsConvert_32f16f(const Zor32f* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd) {
  return toHalf(src, dst, len, rnd);
}
ZorStatus zorsConvert_16s16f(const Zor16s* src, Zor16f* dst, Zor32s len, ZorRoundMode rnd) {
  return toHalf(src, dst, len, rnd);
}

// NaN gives 0, an infinity the bound of its sign. Beyond the clamp every value but 0 saturates, or every value rounds
// to 0.
ZorStatus zorsConvert_16f16s_Sfs(const Zor16f* src, Zor16s* dst, Zor32s len, ZorRoundMode rnd, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).require(rnd != zorRoundHalfAway, zorStatusBadRoundMode).then([&] {
    const auto factor = std::bit_cast<Zor32f>(static_cast<Zor32u>(127 - std::clamp(scaleFactor, -60, 60)) << 23);
    withConversion([&]<class Conversion>(Conversion) {
      const auto run = [&]<Rounding rounding>() {
        map<lanes>(
            [factor](auto x) ZORS_INLINE_LAMBDA {
              Floats y = Conversion::toFloat(x);
              y = both(y, ordered(y));
              return saturate<Zor16s>(toInteger<rounding>(limitAboveKeepNan(mul(y, same(y, factor)), 32767.0f)));
            },
            len, dst, src);
      };
      if (rnd == zorRoundNearestEven) {
        const RoundingScope scope(RoundingScope::nearest);
        run.template operator()<Rounding::nearestEven>();
      } else {
        const InvalidMaskedScope scope;
        run.template operator()<Rounding::towardZero>();
      }
    });
  });
}

}  // namespace zors
