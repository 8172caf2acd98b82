#include <bit>
#include <cmath>

#include "kit/elementwise.h"
#include "kit/services.h"
#include "zors/conversion.h"

namespace {

using kit::sweep;

constexpr Zor32s ordinaryScales[] = {0, 1, -1, 2, -2, 7, -7, 15, -15, 16, 31, -31};
constexpr Zor32s extremeScales[] = {17,   18,   19,   -6,   -8,    24,    -24,  30,        -30,      32,    -32,
                                    40,   62,   63,   64,   -62,   -63,   -64,  96,        -96,      -97,   112,
                                    -112, -113, 126,  127,  128,   -126,  -127, -128,      149,      150,   -149,
                                    200,  255,  256,  -255, -256,  992,   -992, -993,      1008,     -1008, -1009,
                                    1022, 1023, 1074, 1075, -1023, -1024, 5000, INT32_MAX, INT32_MIN};
std::vector<Zor32s> allScales() {
  std::vector<Zor32s> scales(std::begin(ordinaryScales), std::end(ordinaryScales));
  scales.insert(scales.end(), std::begin(extremeScales), std::end(extremeScales));
  return scales;
}

// ---- Models. The x87 unit, in which long double computes, keeps rounding to nearest whatever the tests set.

template <class D> D saturated(long double x) {
  using L = std::numeric_limits<D>;
  return x >= static_cast<long double>(L::max()) ? L::max() : x <= static_cast<long double>(L::min()) ? L::min() : D(x);
}
long double rounded(long double x, ZorRoundMode rnd) {
  if (rnd == zorRoundNearestEven) return std::rint(x);
  if (rnd == zorRoundTowardZero) return std::trunc(x);
  return std::isinf(x) ? x : std::trunc(x + std::copysign(0.5L, x));
}
long double wrapping32(Zor32s scale) { return std::bit_cast<Zor32f>(Zor32u{0x3F800000} - (Zor32u(scale) << 23)); }
long double power(Zor32s scale, Zor32s low, Zor32s high) { return std::ldexp(1.0L, -std::clamp(scale, low, high)); }
long double from24(const Zor8u* b, bool isSigned) {
  const Zor32s u = b[0] | b[1] << 8 | b[2] << 16;
  return isSigned && u >= 0x800000 ? u - 0x1000000 : u;
}
__int128 roundedShift(__int128 t, int s) {  // to nearest, ties to even
  return s == 0 ? t : (t + ((__int128{1} << (s - 1)) - 1) + ((t >> s) & 1)) >> s;
}
template <class D> D limited(__int128 t) {
  using L = std::numeric_limits<D>;
  return t > L::max() ? L::max() : t < L::min() ? L::min() : D(t);
}
template <class D> D byRule(__int128 t, int s) {
  return limited<D>(s >= 0 ? roundedShift(t, s) : t * (__int128{1} << -s));
}
template <class D> D byMagnitude(__int128 t, int s, ZorRoundMode rnd) {
  const __int128 m = t < 0 ? -t : t;
  const __int128 q = rnd == 1 ? roundedShift(m, s) : rnd == 0 ? m >> s : (m + (__int128{1} << (s - 1))) >> s;
  return limited<D>(t < 0 ? -q : q);
}

long double halfValue(Zor16f h) {
  const int e = h >> 10 & 31, m = h & 1023;
  const long double sign = h & 0x8000 ? -1 : 1;
  if (e == 31)
    return m ? std::numeric_limits<long double>::quiet_NaN() : sign * std::numeric_limits<long double>::infinity();
  return sign * (e == 0 ? std::ldexp(m, -24) : std::ldexp(m + 1024, e - 25));
}
Zor16f toHalf(Zor32f x, ZorRoundMode rnd) {
  const Zor32u bits = std::bit_cast<Zor32u>(x);
  const Zor16u sign = Zor16u(bits >> 16 & 0x8000);
  if (std::isnan(x)) return Zor16f(sign | 0x7E00 | (bits >> 13 & 0x3FF));
  if (std::isinf(x)) return Zor16f(sign | 0x7C00);
  const long double a = std::fabs(static_cast<long double>(x));
  const int e = a == 0 ? -14 : std::max(std::ilogb(a), -14);
  long double units = rounded(std::ldexp(a, 10 - e), rnd);
  const long double value = std::ldexp(units, e - 10);
  if (value > 65504) return Zor16f(sign | (rnd == 1 ? 0x7C00 : 0x7BFF));
  if (value < 0x1p-14L) return Zor16f(sign | Zor16u(std::ldexp(value, 24)));
  const int ve = std::ilogb(value);
  return Zor16f(sign | (ve + 15) << 10 | (Zor16u(std::ldexp(value, 10 - ve)) & 1023));
}

// ---- Widening -----------------------------------------------------------------------------------

TEST(Convert, WidensExactly) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor16s, Zor8s>("zorsConvert_8s16s", zorsConvert_8s16s, [](Zor8s x) { return Zor16s(x); });
    sweep<Zor32s, Zor16s>("zorsConvert_16s32s", zorsConvert_16s32s, [](Zor16s x) { return Zor32s(x); });
    sweep<Zor32f, Zor8s>("zorsConvert_8s32f", zorsConvert_8s32f, [](Zor8s x) { return Zor32f(x); });
    sweep<Zor32f, Zor8u>("zorsConvert_8u32f", zorsConvert_8u32f, [](Zor8u x) { return Zor32f(x); });
    sweep<Zor32f, Zor16s>("zorsConvert_16s32f", zorsConvert_16s32f, [](Zor16s x) { return Zor32f(x); });
    sweep<Zor32f, Zor16u>("zorsConvert_16u32f", zorsConvert_16u32f, [](Zor16u x) { return Zor32f(x); });
    sweep<Zor64f, Zor32f>("zorsConvert_32f64f", zorsConvert_32f64f, [](Zor32f x) { return Zor64f(x); });
    sweep<Zor64f, Zor32s>("zorsConvert_32s64f", zorsConvert_32s64f, [](Zor32s x) { return Zor64f(x); });
    sweep<Zor16s, Zor32s>("zorsConvert_32s16s", zorsConvert_32s16s, [](Zor32s x) { return limited<Zor16s>(x); });
  }
}

TEST(Convert, RoundsInTheCurrentDirectionWhereTheTypeIsTooNarrow) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor32f, Zor32s>("zorsConvert_32s32f", zorsConvert_32s32f, [](Zor32s x) {
      volatile Zor32s v = x;
      return Zor32f(v);
    });
    sweep<Zor32f, Zor64f>("zorsConvert_64f32f", zorsConvert_64f32f, [](Zor64f x) {
      volatile Zor64f v = x;
      return Zor32f(v);
    });
    sweep<Zor64f, Zor64s>(
        "zorsConvert_64s64f",
        [](const Zor64s* s, Zor64f* d, Zor32s len) { return zorsConvert_64s64f(s, d, Zor32u(len)); },
        [](Zor64s x) {
          volatile Zor64s v = x;
          return Zor64f(v);
        });
  }
}

TEST(Convert, IntegerToFloatIsThenMultipliedByALimitedPowerOfTwo) {
  for (Zor32s s : allScales()) {
    const auto lengths = s == 0 || s == 1 ? kit::sweepLengths() : kit::fewLengths();
    const auto f = [s](Zor32s low, Zor32s high) { return power(s, low, high); };
    sweep<Zor32f, Zor16s>(
        "zorsConvert_16s32f_Sfs",
        [s](const Zor16s* a, Zor32f* d, Zor32s n) { return zorsConvert_16s32f_Sfs(a, d, n, s); },
        [=](Zor16s x) { return Zor32f(x) * Zor32f(f(-112, 126)); }, lengths);
    sweep<Zor32f, Zor32s>(
        "zorsConvert_32s32f_Sfs",
        [s](const Zor32s* a, Zor32f* d, Zor32s n) { return zorsConvert_32s32f_Sfs(a, d, n, s); },
        [=](Zor32s x) { return Zor32f(x) * Zor32f(f(-96, 126)); }, lengths);
    sweep<Zor64f, Zor16s>(
        "zorsConvert_16s64f_Sfs",
        [s](const Zor16s* a, Zor64f* d, Zor32s n) { return zorsConvert_16s64f_Sfs(a, d, n, s); },
        [=](Zor16s x) { return Zor64f(x) * Zor64f(f(-1008, 1022)); }, lengths);
    sweep<Zor64f, Zor32s>(
        "zorsConvert_32s64f_Sfs",
        [s](const Zor32s* a, Zor64f* d, Zor32s n) { return zorsConvert_32s64f_Sfs(a, d, n, s); },
        [=](Zor32s x) { return Zor64f(x) * Zor64f(f(-992, 1022)); }, lengths);
  }
}

// ---- Float to integer ---------------------------------------------------------------------------

template <class S, class D> struct FloatMember {
  const char* name;
  ZorStatus (*function)(const S*, D*, Zor32s, ZorRoundMode, Zor32s);
  long double (*factor)(Zor32s);
  D (*notANumber)(bool negative);
};

template <class S, class D> void floatMember(const FloatMember<S, D>& member, ZorRoundMode rnd, Zor32s scale) {
  const long double factor = scale == 0 ? 1 : member.factor(scale);
  const auto model = [&](S x) {
    const long double product = x * factor;
    if (std::isnan(product)) return member.notANumber(std::isnan(x) ? std::signbit(x) : true);
    return saturated<D>(rounded(product, rnd));
  };
  sweep<D, S>(
      std::string(member.name) + " rnd " + std::to_string(rnd) + " scale " + std::to_string(scale),
      [&](const S* src, D* dst, Zor32s len) { return member.function(src, dst, len, rnd, scale); }, model,
      scale == 0 ? kit::sweepLengths() : kit::fewLengths());
}

template <class S, class D> void floatMembers(const FloatMember<S, D>& member) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (ZorRoundMode rnd : {0, 1, 2, 7})
      for (Zor32s scale : {0, 1, -3}) floatMember(member, rnd, scale);
    EXPECT_EQ(_MM_GET_ROUNDING_MODE(), direction) << "the control word is the caller's again";
  }
  for (ZorRoundMode rnd : {0, 1, 2})
    for (Zor32s scale : extremeScales) floatMember(member, rnd, scale);
  // Around every tie and both limits.
  std::vector<S> values;
  for (long double centre : {0.0L,     1.0L,        2.0L,     126.0L,        127.0L,   128.0L,           254.0L,
                             255.0L,   256.0L,      32766.0L, 32767.0L,      32768.0L, 65534.0L,         65535.0L,
                             65536.0L, 0x1p31L - 1, 0x1p31L,  0x1p31L - 128, 0x1p63L,  0x1p63L - 0x1p39L})
    for (long double offset : {-0.5L, 0.0L, 0.5L})
      for (S sign : {S(1), S(-1)}) {
        const S x = sign * S(centre + offset);
        values.insert(values.end(),
                      {x, std::nextafter(x, S(0)), std::nextafter(x, sign * std::numeric_limits<S>::infinity())});
      }
  std::vector<D> got(values.size());
  for (ZorRoundMode rnd : {0, 1, 2}) {
    ASSERT_EQ(member.function(values.data(), got.data(), Zor32s(got.size()), rnd, 0), zorStatusOk);
    for (std::size_t i = 0; i < got.size(); ++i)
      ASSERT_EQ(got[i], saturated<D>(rounded(values[i], rnd)))
          << member.name << " of " << kit::text(values[i]) << " rnd " << rnd;
  }
}

template <class D> D lowest(bool) { return std::numeric_limits<D>::min(); }
long double loop8s(Zor32s scale) {
  long double f = 1;
  for (Zor32s i = 0; i < std::min(scale, 200); ++i) f *= 0.5L;
  for (Zor32s i = 0; i > std::max(scale, -200); --i) f *= 2;
  return f < 0x1p-149L ? 0 : f > 0x1p127L ? std::numeric_limits<long double>::infinity() : f;
}
long double double64(Zor32s scale) { return power(scale, -1008, 1022); }

TEST(Convert, FloatToIntegerRoundsByModeAndSaturates) {
  floatMembers<Zor32f, Zor8s>({"zorsConvert_32f8s_Sfs", zorsConvert_32f8s_Sfs, loop8s, lowest<Zor8s>});
  floatMembers<Zor32f, Zor8u>({"zorsConvert_32f8u_Sfs", zorsConvert_32f8u_Sfs, wrapping32, lowest<Zor8u>});
  floatMembers<Zor32f, Zor16s>({"zorsConvert_32f16s_Sfs", zorsConvert_32f16s_Sfs, wrapping32, lowest<Zor16s>});
  floatMembers<Zor32f, Zor16u>({"zorsConvert_32f16u_Sfs", zorsConvert_32f16u_Sfs, wrapping32, lowest<Zor16u>});
  floatMembers<Zor32f, Zor32s>({"zorsConvert_32f32s_Sfs", zorsConvert_32f32s_Sfs, wrapping32,
                                [](bool negative) { return negative ? INT32_MIN : INT32_MAX; }});
  floatMembers<Zor64f, Zor16s>({"zorsConvert_64f16s_Sfs", zorsConvert_64f16s_Sfs, double64, lowest<Zor16s>});
  floatMembers<Zor64f, Zor32s>({"zorsConvert_64f32s_Sfs", zorsConvert_64f32s_Sfs, double64, lowest<Zor32s>});
}

TEST(Convert, DoubleTo64Bits) {
  const auto call = [](ZorRoundMode rnd, Zor32s scale) {
    return [=](const Zor64f* src, Zor64s* dst, Zor32s len) {
      return zorsConvert_64f64s_Sfs(src, dst, Zor32u(len), rnd, scale);
    };
  };
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (ZorRoundMode rnd : {0, 1, 2})
      for (Zor32s scale : allScales())
        sweep<Zor64s, Zor64f>(
            "zorsConvert_64f64s_Sfs scale " + std::to_string(scale), call(rnd, scale),
            [=](Zor64f x) {
              if (std::isnan(x)) return INT64_MIN;
              if (scale > 1074) return Zor64s{0};  // a factor of 0
              if (scale < -1023) return x == 0 ? Zor64s{0} : x > 0 ? INT64_MAX : INT64_MIN;
              return saturated<Zor64s>(rounded(std::ldexp(static_cast<long double>(x), -scale), rnd));
            },
            scale == 0 ? kit::sweepLengths() : kit::fewLengths());
  }
}

struct Bytes24 {
  Zor8u bytes[3];
  bool operator==(const Bytes24&) const = default;
};
Bytes24 to24(Zor32s x) { return {{Zor8u(x), Zor8u(x >> 8), Zor8u(x >> 16)}}; }
const Zor8u* bytes(const Bytes24* p) { return p->bytes; }
Zor8u* bytes(Bytes24* p) { return p->bytes; }

TEST(Convert, ThreeByteElements) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor32s, Bytes24>(
        "zorsConvert_24s32s", [](const Bytes24* s, Zor32s* d, Zor32s n) { return zorsConvert_24s32s(bytes(s), d, n); },
        [](Bytes24 x) { return Zor32s(from24(x.bytes, true)); });
    sweep<Zor32u, Bytes24>(
        "zorsConvert_24u32u", [](const Bytes24* s, Zor32u* d, Zor32s n) { return zorsConvert_24u32u(bytes(s), d, n); },
        [](Bytes24 x) { return Zor32u(from24(x.bytes, false)); });
    sweep<Zor32f, Bytes24>(
        "zorsConvert_24s32f", [](const Bytes24* s, Zor32f* d, Zor32s n) { return zorsConvert_24s32f(bytes(s), d, n); },
        [](Bytes24 x) { return Zor32f(from24(x.bytes, true)); });
    sweep<Zor32f, Bytes24>(
        "zorsConvert_24u32f", [](const Bytes24* s, Zor32f* d, Zor32s n) { return zorsConvert_24u32f(bytes(s), d, n); },
        [](Bytes24 x) { return Zor32f(from24(x.bytes, false)); });
  }
  for (Zor32s scale : allScales()) {
    const int s = std::clamp(scale, -30, 31);
    const auto lengths = scale == 0 || scale == 1 || scale == -2 ? kit::sweepLengths() : kit::fewLengths();
    const auto limit24 = [](__int128 t, Zor32s low, Zor32s high) {
      return to24(Zor32s(t < low ? low : t > high ? high : t));
    };
    const auto scaled = [s](__int128 t) { return s >= 0 ? roundedShift(t, s) : t * (__int128{1} << -s); };
    sweep<Bytes24, Zor32s>(
        "zorsConvert_32s24s_Sfs " + std::to_string(scale),
        [scale](const Zor32s* a, Bytes24* d, Zor32s n) { return zorsConvert_32s24s_Sfs(a, bytes(d), n, scale); },
        [=](Zor32s x) { return limit24(scaled(x), -8388608, 8388607); }, lengths);
    sweep<Bytes24, Zor32u>(
        "zorsConvert_32u24u_Sfs " + std::to_string(scale),
        [scale](const Zor32u* a, Bytes24* d, Zor32s n) { return zorsConvert_32u24u_Sfs(a, bytes(d), n, scale); },
        [=](Zor32u x) { return limit24(scaled(x), 0, 16777215); }, lengths);
    // The largest clamp's factor has no exponent left: it is 0.
    const long double f = scale >= 127 ? 0 : power(scale, -127, 127);
    const auto byFloat = [=](Zor32f x, long double low, long double high) {
      const long double product = scale == 0 ? x : x * f;
      return to24(Zor32s(std::isnan(product) ? low : std::rint(std::clamp(product, low, high))));
    };
    for (unsigned direction : {unsigned{_MM_ROUND_NEAREST}, unsigned{_MM_ROUND_UP}}) {
      const kit::Direction scope(direction);
      sweep<Bytes24, Zor32f>(
          "zorsConvert_32f24s_Sfs " + std::to_string(scale),
          [scale](const Zor32f* a, Bytes24* d, Zor32s n) { return zorsConvert_32f24s_Sfs(a, bytes(d), n, scale); },
          [=](Zor32f x) { return byFloat(x, -8388608, 8388607); }, lengths);
      sweep<Bytes24, Zor32f>(
          "zorsConvert_32f24u_Sfs " + std::to_string(scale),
          [scale](const Zor32f* a, Bytes24* d, Zor32s n) { return zorsConvert_32f24u_Sfs(a, bytes(d), n, scale); },
          [=](Zor32f x) { return byFloat(x, 0, 16777215); }, lengths);
    }
  }
}

// ---- Integer to narrower integer ----------------------------------------------------------------

TEST(Convert, IntegerToNarrowerInteger) {
  for (Zor32s scale : allScales()) {
    const std::string at = " scale " + std::to_string(scale);
    const auto lengths = scale == 0 || scale == 1 || scale == -2 ? kit::sweepLengths() : kit::fewLengths();
    sweep<Zor16s, Zor32s>(
        "zorsConvert_32s16s_Sfs" + at,
        [scale](const Zor32s* a, Zor16s* d, Zor32s n) { return zorsConvert_32s16s_Sfs(a, d, n, scale); },
        [=](Zor32s x) { return byRule<Zor16s>(x, std::clamp(scale, -15, 31)); }, lengths);
    for (ZorRoundMode rnd : {0, 1, 2, -1}) {
      sweep<Zor8s, Zor16s>(
          "zorsConvert_16s8s_Sfs" + at,
          [=](const Zor16s* a, Zor8s* d, Zor32s n) { return zorsConvert_16s8s_Sfs(a, d, Zor32u(n), rnd, scale); },
          [=](Zor16s x) {
            if (scale >= 18) return Zor8s{0};
            if (scale < -6) return Zor8s(x == 0 ? 0 : x > 0 ? 127 : -128);
            return scale > 0 ? byMagnitude<Zor8s>(x, scale, rnd) : byRule<Zor8s>(x, scale);
          },
          lengths);
      sweep<Zor32s, Zor64s>(
          "zorsConvert_64s32s_Sfs" + at,
          [=](const Zor64s* a, Zor32s* d, Zor32s n) { return zorsConvert_64s32s_Sfs(a, d, n, rnd, scale); },
          [=](Zor64s x) {
            return scale > 0 ? byMagnitude<Zor32s>(x, std::min(scale, 63), rnd)
                             : byRule<Zor32s>(x, std::max(scale, -30));
          },
          lengths);
    }
  }
  std::vector<Zor16s> all(65536);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = Zor16s(i);
  std::vector<Zor8s> got(all.size());
  for (Zor32s scale = 1; scale <= 17; ++scale)
    for (ZorRoundMode rnd : {0, 1, 2}) {
      ASSERT_EQ(zorsConvert_16s8s_Sfs(all.data(), got.data(), 65536, rnd, scale), zorStatusOk);
      for (std::size_t i = 0; i < all.size(); ++i)
        ASSERT_EQ(got[i], byMagnitude<Zor8s>(all[i], scale, rnd)) << all[i] << " " << scale << " " << rnd;
    }
}

// ---- Binary16 -----------------------------------------------------------------------------------

TEST(Convert, Binary16IsTheSameWithAndWithoutTheInstructions) {
  std::vector<Zor16f> halves(65536);
  std::vector<Zor16s> integers(65536);
  for (std::size_t i = 0; i < 65536; ++i) halves[i] = Zor16f(i), integers[i] = Zor16s(i);
  std::vector<Zor32f> floats;
  for (Zor16f h : halves)  // every binary16 value, what lies halfway to the next, and their neighbours
    if (const auto x = Zor32f(halfValue(h)); std::isfinite(x)) {
      const Zor32u bits = std::bit_cast<Zor32u>(x);
      for (Zor32u near : {bits - 1, bits, bits + 1, bits + 0xFFF, bits + 0x1000, bits + 0x1001})
        floats.push_back(std::bit_cast<Zor32f>(near));
    }
  kit::Random random(5);
  for (int i = 0; i < 100000; ++i) floats.push_back(kit::anyValue<Zor32f>(random));
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (int32_t feature : {1, 0}) {
      kit::ServicesScope services;
      services->feature = feature;
      std::vector<Zor32f> wide(65536);
      ASSERT_EQ(zorsConvert_16f32f(halves.data(), wide.data(), 65536), zorStatusOk);
      EXPECT_EQ(services->featureQueries, 1);
      for (std::size_t i = 0; i < wide.size(); ++i) {
        const Zor32u nan = Zor32u(halves[i] & 0x8000) << 16 | 0x7FC00000 | Zor32u(halves[i] & 1023) << 13;
        const Zor32f wanted =
            std::isnan(halfValue(halves[i])) ? std::bit_cast<Zor32f>(nan) : Zor32f(halfValue(halves[i]));
        ASSERT_TRUE(kit::sameBits(wide[i], wanted, kit::Nan::samePayload)) << i;
      }
      for (ZorRoundMode rnd : {0, 1}) {
        std::vector<Zor16f> narrow(floats.size()), fromIntegers(65536);
        ASSERT_EQ(zorsConvert_32f16f(floats.data(), narrow.data(), Zor32s(floats.size()), rnd), zorStatusOk);
        for (std::size_t i = 0; i < floats.size(); ++i)
          ASSERT_EQ(narrow[i], toHalf(floats[i], rnd)) << kit::text(floats[i]) << " rnd " << rnd;
        ASSERT_EQ(zorsConvert_16s16f(integers.data(), fromIntegers.data(), 65536, rnd), zorStatusOk);
        for (std::size_t i = 0; i < 65536; ++i) ASSERT_EQ(fromIntegers[i], toHalf(integers[i], rnd)) << integers[i];
        for (Zor32s scale : {0,   1,   -1,  5,  -5, 10, -10, -13, -14, -15,  -16,       -24,
                             -39, -40, -41, 15, 16, 17, 18,  30,  126, -126, INT32_MAX, INT32_MIN}) {
          std::vector<Zor16s> got(65536);
          ASSERT_EQ(zorsConvert_16f16s_Sfs(halves.data(), got.data(), 65536, rnd, scale), zorStatusOk);
          for (std::size_t i = 0; i < 65536; ++i) {
            const long double x = std::ldexp(halfValue(halves[i]), -std::clamp(scale, -1000, 1000));
            ASSERT_EQ(got[i], std::isnan(x) ? 0 : saturated<Zor16s>(rounded(x, rnd)))
                << halves[i] << " scale " << scale << " rnd " << rnd;
          }
        }
      }
    }
  }
  kit::ServicesScope services;
  services->feature = 0;
  sweep<Zor32f, Zor16f>("zorsConvert_16f32f", zorsConvert_16f32f, [](Zor16f x) { return Zor32f(halfValue(x)); });
  sweep<Zor16f, Zor32f>(
      "zorsConvert_32f16f", [](const Zor32f* s, Zor16f* d, Zor32s n) { return zorsConvert_32f16f(s, d, n, 1); },
      [](Zor32f x) { return toHalf(x, 1); });
}

TEST(Convert, HalfAwayIsRefusedForBinary16) {
  for (int32_t feature : {1, 0}) {
    kit::ServicesScope services;
    services->feature = feature;
    Zor32f f[4] = {};
    Zor16s s[4] = {};
    std::vector<Zor16f> h(4, 7);
    kit::Contract(zorsConvert_32f16f, f, h.data(), 4, 1)
        .null<0>()
        .null<1>()
        .bad<2>({0, -1}, zorStatusBadSize)
        .bad<3>({2}, zorStatusBadRoundMode)
        .untouched(h)
        .verify("zorsConvert_32f16f");
    kit::Contract(zorsConvert_16s16f, s, h.data(), 4, 1)
        .null<0>()
        .null<1>()
        .bad<2>({0, -1}, zorStatusBadSize)
        .bad<3>({2}, zorStatusBadRoundMode)
        .untouched(h)
        .verify("zorsConvert_16s16f");
    kit::Contract(zorsConvert_16f16s_Sfs, h.data(), s, 4, 1, 0)
        .null<0>()
        .null<1>()
        .bad<2>({0, -1}, zorStatusBadSize)
        .bad<3>({2}, zorStatusBadRoundMode)
        .verify("zorsConvert_16f16s_Sfs");
  }
}

// ---- Edge cases ---------------------------------------------------------------------------------

template <class D, class S, class... Rest> D one(ZorStatus (*function)(const S*, D*, Rest...), S x, auto... arguments) {
  D y{};
  EXPECT_EQ(function(&x, &y, 1, arguments...), zorStatusOk);
  return y;
}

TEST(Convert, TiesByMode) {
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, 2.5f, 1, 0), 2);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, 3.5f, 1, 0), 4);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, -2.9f, 0, 0), -2);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, 2.5f, 2, 0), 3);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, -2.5f, 2, 0), -3);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, 0.49999997f, 2, 0), 0);
}
TEST(Convert, NanAndInfinities) {
  const Zor32f inf = std::numeric_limits<Zor32f>::infinity(), nan = std::numeric_limits<Zor32f>::quiet_NaN();
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, nan, 1, 0), -32768);
  EXPECT_EQ(one(zorsConvert_32f16s_Sfs, inf, 1, 0), 32767);
  EXPECT_EQ(one(zorsConvert_32f32s_Sfs, inf, 1, 0), INT32_MAX);
  EXPECT_EQ(one(zorsConvert_32f32s_Sfs, -inf, 1, 0), INT32_MIN);
  EXPECT_EQ(one(zorsConvert_32f32s_Sfs, -1e30f, 1, 0), INT32_MIN);
  EXPECT_EQ(one(zorsConvert_32f32s_Sfs, nan, 1, 0), INT32_MAX);
  EXPECT_EQ(one(zorsConvert_32f32s_Sfs, -nan, 1, 0), INT32_MIN);
  EXPECT_EQ(one(zorsConvert_32f8u_Sfs, -1.0f, 1, 0), 0);
  Zor64f d = std::numeric_limits<Zor64f>::quiet_NaN();
  Zor64s q = 0;
  EXPECT_EQ(zorsConvert_64f64s_Sfs(&d, &q, 1, 1, 0), zorStatusOk);
  EXPECT_EQ(q, INT64_MIN);
}
TEST(Convert, SixteenBitsToEightAtScale18AndAtATie) {
  Zor16s x = 1;
  Zor8s y = 5;
  EXPECT_EQ(zorsConvert_16s8s_Sfs(&x, &y, 1, 1, 18), zorStatusOk);
  EXPECT_EQ(y, 0);
  x = -1;
  y = 5;
  EXPECT_EQ(zorsConvert_16s8s_Sfs(&x, &y, 1, 1, 1), zorStatusOk);
  EXPECT_EQ(y, 0);
}

// ---- Contracts ----------------------------------------------------------------------------------

template <class S, class D> void plain(const char* name, ZorStatus (*function)(const S*, D*, Zor32s)) {
  const std::vector<S> src(8);
  std::vector<D> dst(24, D(1));
  kit::Contract(function, src.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class S, class D> void scaled(const char* name, ZorStatus (*function)(const S*, D*, Zor32s, Zor32s)) {
  const std::vector<S> src(8);
  std::vector<D> dst(24, D(1));
  kit::Contract(function, src.data(), dst.data(), 8, 0)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class S, class D>
void roundedMember(const char* name, ZorStatus (*function)(const S*, D*, Zor32s, ZorRoundMode, Zor32s)) {
  const std::vector<S> src(8);
  std::vector<D> dst(8, D(1));
  kit::Contract(function, src.data(), dst.data(), 8, 1, 0)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

TEST(Convert, ChecksPointersThenLength) {
  plain("zorsConvert_8s16s", zorsConvert_8s16s);
  plain("zorsConvert_16s32s", zorsConvert_16s32s);
  plain("zorsConvert_8s32f", zorsConvert_8s32f);
  plain("zorsConvert_8u32f", zorsConvert_8u32f);
  plain("zorsConvert_16s32f", zorsConvert_16s32f);
  plain("zorsConvert_16u32f", zorsConvert_16u32f);
  plain("zorsConvert_32s32f", zorsConvert_32s32f);
  plain("zorsConvert_32f64f", zorsConvert_32f64f);
  plain("zorsConvert_32s64f", zorsConvert_32s64f);
  plain("zorsConvert_64f32f", zorsConvert_64f32f);
  plain("zorsConvert_32s16s", zorsConvert_32s16s);
  plain("zorsConvert_16f32f", zorsConvert_16f32f);
  plain("zorsConvert_24s32s", zorsConvert_24s32s);
  plain("zorsConvert_24u32u", zorsConvert_24u32u);
  plain("zorsConvert_24s32f", zorsConvert_24s32f);
  plain("zorsConvert_24u32f", zorsConvert_24u32f);
  scaled("zorsConvert_16s32f_Sfs", zorsConvert_16s32f_Sfs);
  scaled("zorsConvert_32s32f_Sfs", zorsConvert_32s32f_Sfs);
  scaled("zorsConvert_16s64f_Sfs", zorsConvert_16s64f_Sfs);
  scaled("zorsConvert_32s64f_Sfs", zorsConvert_32s64f_Sfs);
  scaled("zorsConvert_32s16s_Sfs", zorsConvert_32s16s_Sfs);
  scaled("zorsConvert_32s24s_Sfs", zorsConvert_32s24s_Sfs);
  scaled("zorsConvert_32u24u_Sfs", zorsConvert_32u24u_Sfs);
  scaled("zorsConvert_32f24s_Sfs", zorsConvert_32f24s_Sfs);
  scaled("zorsConvert_32f24u_Sfs", zorsConvert_32f24u_Sfs);
  roundedMember("zorsConvert_32f8s_Sfs", zorsConvert_32f8s_Sfs);
  roundedMember("zorsConvert_32f8u_Sfs", zorsConvert_32f8u_Sfs);
  roundedMember("zorsConvert_32f16s_Sfs", zorsConvert_32f16s_Sfs);
  roundedMember("zorsConvert_32f16u_Sfs", zorsConvert_32f16u_Sfs);
  roundedMember("zorsConvert_32f32s_Sfs", zorsConvert_32f32s_Sfs);
  roundedMember("zorsConvert_64f16s_Sfs", zorsConvert_64f16s_Sfs);
  roundedMember("zorsConvert_64f32s_Sfs", zorsConvert_64f32s_Sfs);
  roundedMember("zorsConvert_64s32s_Sfs", zorsConvert_64s32s_Sfs);
}

TEST(Convert, AnUnsignedLengthIsBadOnlyAtZero) {
  const std::vector<Zor16s> s(8);
  const std::vector<Zor64f> d(8);
  const std::vector<Zor64s> q(8);
  std::vector<Zor8s> b(8, 1);
  std::vector<Zor64s> to(8, 1);
  std::vector<Zor64f> f(8, 1);
  kit::Contract(zorsConvert_16s8s_Sfs, s.data(), b.data(), 8u, 1, 0)
      .null<0>()
      .null<1>()
      .bad<2>({0}, zorStatusBadSize)
      .untouched(b)
      .verify("zorsConvert_16s8s_Sfs");
  kit::Contract(zorsConvert_64f64s_Sfs, d.data(), to.data(), 8u, 1, 0)
      .null<0>()
      .null<1>()
      .bad<2>({0}, zorStatusBadSize)
      .untouched(to)
      .verify("zorsConvert_64f64s_Sfs");
  kit::Contract(zorsConvert_64s64f, q.data(), f.data(), 8u)
      .null<0>()
      .null<1>()
      .bad<2>({0}, zorStatusBadSize)
      .untouched(f)
      .verify("zorsConvert_64s64f");
}

}  // namespace
