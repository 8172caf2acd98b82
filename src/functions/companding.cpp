// zorsALawToLin_*, zorsMuLawToLin_*, zorsLinToALaw_*, zorsLinToMuLaw_*, zorsALawToMuLaw_8u, zorsMuLawToALaw_8u: the two
// laws of ITU-T G.711.
#include <algorithm>
#include <array>
#include <bit>

#include "exports/functions.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

// A code is a sign bit, set from 0 up, a chord of three bits and a place q of four, with some bits inverted. As 16-bit
// samples magnitudes are step * (first + 2 q) * factor - offset, with first and factor of the chord.
struct ALaw {
  static constexpr Zor8u inverted = 0x55;
  static constexpr int stepShift = 3, offset = 0;
  static constexpr int first(int chord) { return chord == 0 ? 1 : 33; }
  static constexpr int factor(int chord) { return chord == 0 ? 1 : 1 << (chord - 1); }

  // Encoding: the place stands below the leading bit of steps(), at position 4, or higher by shift().
  template <class V> ZORS_INLINE static V steps(V magnitude) { return shiftRight(magnitude, 3); }
  static constexpr int chord(int bitsAbove) { return bitsAbove; }
  static constexpr int shift(int bitsAbove) { return std::max(bitsAbove, 1); }
};
struct MuLaw {
  static constexpr Zor8u inverted = 0x7F;
  static constexpr int stepShift = 2, offset = 4 * 33;
  static constexpr int first(int) { return 33; }
  static constexpr int factor(int chord) { return 1 << chord; }

  template <class V> ZORS_INLINE static V steps(V magnitude) {
    const V x = add(shiftRight(magnitude, 2), same(magnitude, 33));
    return min(x, same(x, 8191));
  }
  static constexpr int chord(int bitsAbove) { return bitsAbove - 1; }
  static constexpr int shift(int bitsAbove) { return bitsAbove; }
};

// entry(0) to entry(15), in the low eight bits.
template <class F> struct Table16 {
  Zor8u entries[16];
  consteval explicit Table16(F entry) : entries{} {
    for (int i = 0; i < 16; ++i) entries[i] = static_cast<Zor8u>(entry(i) & 0xFF);
  }
};

constexpr int lanes = 32;  // codes in a register
using Codes = Vec<Zor8u, lanes>;
using Samples = Vec<Zor16s, lanes>;

// ---- To samples ---------------------------------------------------------------------------------

template <class Law> ZORS_INLINE Samples samplesOf(Codes codes) {
  static constexpr Table16 firsts([](int chord) { return Law::first(chord & 7); });
  static constexpr Table16 factors([](int chord) { return Law::factor(chord & 7); });
  const Codes plain = differing(codes, same(codes, Law::inverted)), fifteen = same(codes, 15);
  const Codes place = both(plain, fifteen), chord = both(shiftRight(plain, 4), fifteen);  // tables repeat for the sign
  const Codes odd = add(add(place, place), lookUp(firsts.entries, chord)), factor = lookUp(factors.entries, chord);
  const auto scaled = as<Zor16s>(mul(extend<Zor16u>(odd), extend<Zor16u>(factor)));
  const Samples magnitude = sub(shiftLeft(scaled, Law::stepShift), same(scaled, Law::offset));
  const Samples negative = extend<Zor16s>(above(as<Zor8s>(codes), same(as<Zor8s>(codes), -1)));
  return sub(differing(magnitude, negative), negative);
}

template <class Law> struct ToSamples {
  ZORS_INLINE Samples operator()(Codes codes) const { return samplesOf<Law>(codes); }
};
template <class Law> struct ToFloats {
  ZORS_INLINE auto operator()(Codes codes) const {
    const auto x = toFloat(samplesOf<Law>(codes));
    return mul(x, same(x, 0x1p-15f));
  }
};

// ---- To codes -----------------------------------------------------------------------------------

template <class Law> ZORS_INLINE Codes codesOf(Samples samples) {
  static constexpr Table16 widths([](int i) { return std::bit_width(unsigned(i)); });
  static constexpr Table16 widthsAbove([](int i) { return i == 0 ? 0 : 4 + std::bit_width(unsigned(i)); });
  static constexpr Table16 chords([](int width) { return Law::chord(width) << 4; });
  static constexpr Table16 shifts([](int width) { return 256 >> Law::shift(width); });
  const Split<Zor16s, lanes> x{{samples.r[0], samples.r[1]}};  // as if unpacked: one move across halves at the end
  const auto sign = shiftRight(x, 15), steps = Law::steps(differing(x, sign));
  const Codes top = saturate<Zor8u>(shiftRight(steps, 5)), low = both(top, same(top, 15));
  const Codes width = max(lookUp(widths.entries, low), lookUp(widthsAbove.entries, shiftRight(top, 4)));
  // The right shift is the high half of a product.
  const auto power = shiftLeft(as<Zor16u>(widen(lookUp(shifts.entries, width))), 8);
  const Codes place = saturate<Zor8u>(as<Zor16s>(mulHigh(as<Zor16u>(steps), power)));
  const Codes plain = either(lookUp(chords.entries, width), both(place, same(place, 15)));
  const Codes negative = both(as<Zor8u>(saturate<Zor8s>(sign)), same(plain, 0x80));
  const Codes code = differing(differing(plain, negative), same(plain, Law::inverted | 0x80));
  return {{_mm256_permute4x64_epi64(code.r[0], 0xD8)}};
}

template <class Law> struct FromSamples {
  ZORS_INLINE Codes operator()(Samples samples) const { return codesOf<Law>(samples); }
};
// 32768 x, half away from zero; NaN is the lowest sample.
template <class Law> struct FromFloats {
  ZORS_INLINE Codes operator()(Vec<Zor32f, lanes> x) const {
    const auto y = mul(x, same(x, 32768.0f)), rounded = add(y, either(signOf(y), same(y, 0.5f)));
    return codesOf<Law>(saturate<Zor16s>(toIntegerTowardZero(limitNanToLow(rounded, -32768.0f, 32767.0f))));
  }
};

// ---- From law to law ----------------------------------------------------------------------------

template <class Law> constexpr int magnitudeOf(int level) {  // level = 16 * chord + q
  const int chord = level >> 4, q = level & 15;
  return (Law::first(chord) + 2 * q) * Law::factor(chord) * (1 << Law::stepShift) - Law::offset;
}
// How much of a mu-law magnitude an A-law magnitude of the same power is: a sine of peak 4096 steps of 8 has 3.14 dBm0,
// one of 8159 steps of 4 has 3.17 dBm0, and 10^-0.0015 is the difference.
constexpr double muOfA = 0.99655208118 * (8159 * 4) / (4096 * 8);

// By the low seven bits of a code, those of the nearest magnitude in the other law: the conversion tables of G.711.
template <class From, class To> consteval auto conversionTable(double ratio) {
  std::array<Zor8u, 128> table{};
  for (int level = 0; level < 128; ++level) {
    const auto distance = [&](int other) {
      const double difference = magnitudeOf<From>(level) * ratio - magnitudeOf<To>(other);
      return difference < 0 ? -difference : difference;
    };
    int nearest = 0;
    for (int other = 1; other < 128; ++other)
      if (distance(other) < distance(nearest)) nearest = other;
    table[std::size_t(level ^ (From::inverted & 0x7F))] = static_cast<Zor8u>(nearest ^ (To::inverted & 0x7F));
  }
  return table;
}
alignas(64) constexpr auto aToMu = conversionTable<ALaw, MuLaw>(muOfA), muToA = conversionTable<MuLaw, ALaw>(1 / muOfA);

template <const std::array<Zor8u, 128>& table> struct Converted {
  ZORS_INLINE Codes operator()(Codes codes) const {
    const Codes sign = both(codes, same(codes, 0x80)), level = differing(codes, sign);
    Codes out = sign;
    unrolled<8>([&](auto part) ZORS_INLINE_LAMBDA {
      // Indices of this part stay below 0x80, all others reach it.
      const Codes index = addSaturated(differing(level, same(level, Zor8u(16 * part))), same(level, 0x70));
      out = either(out, lookUp(reinterpret_cast<const Zor8u(&)[16]>(table[16 * part]), index));
    });
    return out;
  }
};

template <class Op, class D, class S> ZorStatus compand(const S* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] { map<lanes>(Op{}, len, dst, src); });
}

}  // namespace

// clang-format off
ZorStatus zorsALawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len) { return compand<ToSamples<ALaw>>(src, dst, len); }
ZorStatus zorsALawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len) { return compand<ToFloats<ALaw>>(src, dst, len); }
ZorStatus zorsMuLawToLin_8u16s(const Zor8u* src, Zor16s* dst, Zor32s len) { return compand<ToSamples<MuLaw>>(src, dst, len); }
ZorStatus zorsMuLawToLin_8u32f(const Zor8u* src, Zor32f* dst, Zor32s len) { return compand<ToFloats<MuLaw>>(src, dst, len); }
ZorStatus zorsLinToALaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len) { return compand<FromSamples<ALaw>>(src, dst, len); }
ZorStatus zorsLinToALaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len) { return compand<FromFloats<ALaw>>(src, dst, len); }
ZorStatus zorsLinToMuLaw_16s8u(const Zor16s* src, Zor8u* dst, Zor32s len) { return compand<FromSamples<MuLaw>>(src, dst, len); }
ZorStatus zorsLinToMuLaw_32f8u(const Zor32f* src, Zor8u* dst, Zor32s len) { return compand<FromFloats<MuLaw>>(src, dst, len); }
ZorStatus zorsALawToMuLaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len) { return compand<Converted<aToMu>>(src, dst, len); }
ZorStatus zorsMuLawToALaw_8u(const Zor8u* src, Zor8u* dst, Zor32s len) { return compand<Converted<muToA>>(src, dst, len); }
// clang-format on

}  // namespace zors
