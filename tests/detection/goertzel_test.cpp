// Single bins against sums in long double, and their integer and two-bin forms.
#include <cmath>
#include <functional>
#include <numbers>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/detection.h"

namespace {

using kit::Edge;

struct Wide {
  long double re, im;
};
struct Sum {
  Wide value;
  long double magnitudes;
};
template <class S> Wide wide(S x) {
  if constexpr (kit::ComplexPair<S>)
    return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
  else
    return {static_cast<long double>(x), 0};
}
template <class S> Sum model(const std::vector<S>& src, long double rFreq) {
  Sum sum{};
  for (std::size_t n = 0; n < src.size(); ++n) {
    const long double turns = rFreq * static_cast<long double>(n);
    const long double angle = -2 * std::numbers::pi_v<long double> * (turns - std::floor(turns));
    const Wide x = wide(src[n]), w = {std::cos(angle), std::sin(angle)};
    sum.value.re += x.re * w.re - x.im * w.im;
    sum.value.im += x.re * w.im + x.im * w.re;
    sum.magnitudes += std::abs(x.re) + std::abs(x.im);
  }
  return sum;
}

// Values of a bin, in binary64, whatever the member.
template <class S> using BinOf = std::function<ZorStatus(const S*, Zor32s, Zor64fc*, double)>;
template <class S, class V, class F> BinOf<S> one(ZorStatus (*f)(const S*, Zor32s, V*, F)) {
  return [f](const S* src, Zor32s len, Zor64fc* out, double rFreq) {
    V val{};
    const ZorStatus status = f(src, len, &val, static_cast<F>(rFreq));
    *out = {static_cast<double>(val.re), static_cast<double>(val.im)};
    return status;
  };
}
// One of two bins; the other is at another frequency.
template <class S, class V, class F> BinOf<S> two(ZorStatus (*f)(const S*, Zor32s, V*, const F*), int place) {
  return [f, place](const S* src, Zor32s len, Zor64fc* out, double rFreq) {
    V val[2] = {};
    F frequencies[2] = {F(0.123), F(0.123)};
    frequencies[place] = static_cast<F>(rFreq);
    const ZorStatus status = f(src, len, val, frequencies);
    *out = {static_cast<double>(val[place].re), static_cast<double>(val[place].im)};
    return status;
  };
}
template <class S> struct Member {
  const char* name;
  BinOf<S> bin;
  double epsilon;
};
const double frequencies[] = {0, 1e-6, 0.0625, 0.25, 0.333, 0.5, 0.697 / 8, 0.75, 0.999};
const int lengths[] = {1, 2, 3, 4, 5, 7, 8, 15, 16, 17, 31, 32, 33, 63, 64, 65, 127, 205, 1000, 4096};

constexpr double single = 0x1p-24, full = 0x1p-53;

template <class S> void checkMembers(const std::vector<Member<S>>& members) {
  kit::Random random(11);
  for (const auto& member : members)
    for (int len : lengths)
      for (double wanted : frequencies)
        for (Edge edge : kit::bothEdges) {
          const double rFreq = member.epsilon > 1e-10 ? static_cast<double>(static_cast<float>(wanted)) : wanted;
          const auto data = kit::signal<S>(std::size_t(len), random);
          const kit::Guarded<S> src(data, edge, std::size_t(len) % 5);
          Zor64fc out{};
          ASSERT_EQ(member.bin(src.data(), len, &out, rFreq), zorStatusOk) << member.name;
          const Sum sum = model(data, rFreq);
          // 2 pi rFreq is rounded before it is multiplied by n, and its doublings double the error
          const double bound =
              (member.epsilon * (4 + len / 12.0) + full * (16 + 16 * len)) * static_cast<double>(sum.magnitudes);
          ASSERT_NEAR(out.re, static_cast<double>(sum.value.re), bound) << member.name << " " << len << " " << rFreq;
          ASSERT_NEAR(out.im, static_cast<double>(sum.value.im), bound) << member.name << " " << len << " " << rFreq;
        }
}

TEST(Goertzel, BinsOfFloatsAreThoseOfTheSum) {
  checkMembers<Zor32f>({{"zorsGoertz_32f", one(zorsGoertz_32f), single},
                        {"zorsGoertzTwo_32f, first", two(zorsGoertzTwo_32f, 0), single},
                        {"zorsGoertzTwo_32f, second", two(zorsGoertzTwo_32f, 1), single}});
  checkMembers<Zor32fc>({{"zorsGoertz_32fc", one(zorsGoertz_32fc), single},
                         {"zorsGoertzTwo_32fc, first", two(zorsGoertzTwo_32fc, 0), single},
                         {"zorsGoertzTwo_32fc, second", two(zorsGoertzTwo_32fc, 1), single}});
  checkMembers<Zor64f>({{"zorsGoertz_64f", one(zorsGoertz_64f), full},
                        {"zorsGoertzTwo_64f, first", two(zorsGoertzTwo_64f, 0), full},
                        {"zorsGoertzTwo_64f, second", two(zorsGoertzTwo_64f, 1), full}});
  checkMembers<Zor64fc>({{"zorsGoertz_64fc", one(zorsGoertz_64fc), full},
                         {"zorsGoertzTwo_64fc, first", two(zorsGoertzTwo_64fc, 0), full},
                         {"zorsGoertzTwo_64fc, second", two(zorsGoertzTwo_64fc, 1), full}});
}

// The integer forms by one signature: the result, of either place where there are two.
template <class S> using Integer = std::function<ZorStatus(const S*, Zor32s, Zor16sc*, double, Zor32s)>;
const Integer<Zor16sc> complexIntegers[] = {
    [](const Zor16sc* src, Zor32s len, Zor16sc* val, double f, Zor32s s) {
      return zorsGoertz_16sc_Sfs(src, len, val, static_cast<float>(f), s);
    },
    [](const Zor16sc* src, Zor32s len, Zor16sc* val, double f, Zor32s s) {
      return zorsGoertzQ15_16sc_Sfs(src, len, val, static_cast<Zor16s>(f * 32768), s);
    },
    [](const Zor16sc* src, Zor32s len, Zor16sc* val, double f, Zor32s s) {
      const float both[] = {0.3f, static_cast<float>(f)};
      Zor16sc out[2];
      const ZorStatus status = zorsGoertzTwo_16sc_Sfs(src, len, out, both, s);
      *val = out[1];
      return status;
    },
    [](const Zor16sc* src, Zor32s len, Zor16sc* val, double f, Zor32s s) {
      const Zor16s both[] = {static_cast<Zor16s>(f * 32768), 100};
      Zor16sc out[2];
      const ZorStatus status = zorsGoertzTwoQ15_16sc_Sfs(src, len, out, both, s);
      *val = out[0];
      return status;
    }};
const Integer<Zor16s> realInteger = [](const Zor16s* src, Zor32s len, Zor16sc* val, double f, Zor32s s) {
  return zorsGoertz_16s_Sfs(src, len, val, static_cast<float>(f), s);
};

void checkNear(Zor16s found, long double sum, long double error, int scaleFactor) {
  const auto limited = [&](long double x) {
    return std::clamp(std::nearbyint(std::ldexp(x, -std::clamp(scaleFactor, -3000, 3000))), -32768.0L, 32767.0L);
  };
  ASSERT_GE(static_cast<long double>(found), limited(sum - error)) << "scale factor " << scaleFactor;
  ASSERT_LE(static_cast<long double>(found), limited(sum + error)) << "scale factor " << scaleFactor;
}
template <class S> void checkInteger(const Integer<S>& function) {
  kit::Random random(12);
  for (int len : lengths)
    for (double rFreq : {0.0, 0.25, 0.5, 1 / 32768.0, 5000 / 32768.0, 32767 / 32768.0})
      for (int scaleFactor : {INT_MIN, -40, -3, 0, 1, 7, 12, 40, INT_MAX}) {
        const auto data = kit::anyValues<S>(std::size_t(len), random);
        const kit::Guarded<S> src(data, Edge::end, 0);
        Zor16sc out{};
        ASSERT_EQ(function(src.data(), len, &out, rFreq, scaleFactor), zorStatusOk);
        const Sum sum = model(data, rFreq);
        const long double error =
            rFreq == 0 && sum.magnitudes < 0x1p24 ? 0 : single * (4 + len / 12.0L) * sum.magnitudes;
        checkNear(out.re, sum.value.re, error, scaleFactor);
        checkNear(out.im, sum.value.im, error, scaleFactor);
      }
}
TEST(Goertzel, IntegerBinsAreTheSumByTheScaleRule) {
  for (const auto& function : complexIntegers) checkInteger(function);
  checkInteger(realInteger);
}
TEST(Goertzel, AtFrequencyZeroIntegersAreSummedExactlyWithTiesToEven) {
  for (unsigned direction : {0x0000u, 0x2000u, 0x4000u, 0x6000u}) {
    const unsigned before = _mm_getcsr();
    _mm_setcsr((before & ~0x6000u) | direction);
    const Zor16s ties[] = {1, 2, 3, 4};  // 10, of which a quarter is a tie
    Zor16sc out{};
    EXPECT_EQ(zorsGoertz_16s_Sfs(ties, 4, &out, 0, 2), zorStatusOk);
    EXPECT_EQ(out.re, 2);
    EXPECT_EQ(zorsGoertz_16s_Sfs(ties, 3, &out, 0, 2), zorStatusOk);
    EXPECT_EQ(out.re, 2);  // 6 / 4
    const Zor16s low[] = {-1, -2, -3, -4};
    EXPECT_EQ(zorsGoertz_16s_Sfs(low, 4, &out, 0, 2), zorStatusOk);
    EXPECT_EQ(out.re, -2);
    EXPECT_EQ(out.im, 0);
    _mm_setcsr(before);
  }
}

TEST(Goertzel, ATurnOfAQuarterForwardGivesTheBinOfThePositiveFrequency) {
  const Zor32fc turning[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
  Zor32fc out{};
  EXPECT_EQ(zorsGoertz_32fc(turning, 4, &out, 0.25f), zorStatusOk);
  EXPECT_NEAR(out.re, 4, 1e-6);
  EXPECT_NEAR(out.im, 0, 1e-6);
  const Zor32f impulse[] = {0, 1};
  EXPECT_EQ(zorsGoertz_32f(impulse, 2, &out, 0.25f), zorStatusOk);
  EXPECT_NEAR(out.re, 0, 1e-6);
  EXPECT_NEAR(out.im, -1, 1e-6);
}
TEST(Goertzel, NanAndInfinityComeThroughFromEveryPlace) {
  for (int at : {0, 1, 16, 30, 32, 34})
    for (float bad : {NAN, INFINITY}) {
      std::vector<Zor32f> data(35, 1.0f);
      data[std::size_t(at)] = bad;
      Zor32fc out{};
      EXPECT_EQ(zorsGoertz_32f(data.data(), 35, &out, 0.1f), zorStatusOk);
      EXPECT_FALSE(std::isfinite(out.re)) << at;
      EXPECT_FALSE(std::isfinite(out.im)) << at;
    }
}
TEST(Goertzel, ResultsDoNotDependOnAlignment) {
  kit::Random random(13);
  const auto data = kit::signal<Zor32fc>(77, random);
  std::vector<Zor8u> room(77 * 8 + 64);
  Zor32fc first{};
  zorsGoertz_32fc(data.data(), 77, &first, 0.3f);
  for (std::size_t offset = 0; offset < 64; ++offset) {
    std::memcpy(room.data() + offset, data.data(), 77 * 8);
    Zor32fc out{};
    ASSERT_EQ(zorsGoertz_32fc(reinterpret_cast<const Zor32fc*>(room.data() + offset), 77, &out, 0.3f), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(out, first)) << offset;
  }
}

TEST(Goertzel, FrequenciesFromOneOnAndNanAreRefusedAfterPointersAndLength) {
  const Zor32f src32[4] = {};
  const Zor64f src64[4] = {};
  const Zor32fc srcC[4] = {};
  const Zor64fc srcD[4] = {};
  const Zor16s src16[4] = {};
  const Zor16sc src16c[4] = {};
  Zor32fc v32[2] = {{5, 5}, {5, 5}};
  Zor64fc v64[2] = {{5, 5}, {5, 5}};
  Zor16sc v16[2] = {{5, 5}, {5, 5}};
  const auto verifyOne = [](const char* name, auto f, auto* src, auto* val, auto... scale) {
    using F = std::conditional_t<sizeof(*val) == 16, Zor64f, Zor32f>;
    kit::Contract(f, src, 4, val, F(0.5), scale...)
        .template null<0>()
        .template null<2>()
        .template bad<1>({0, -1, INT_MIN}, zorStatusBadSize)
        .template bad<3>({F(-1e-9), F(1), F(2), F(INFINITY), F(NAN), F(-INFINITY)}, zorStatusBadRelativeFrequency)
        .untouched(val, 2 * sizeof *val)
        .verify(name);
  };
  verifyOne("zorsGoertz_32f", zorsGoertz_32f, src32, v32);
  verifyOne("zorsGoertz_32fc", zorsGoertz_32fc, srcC, v32);
  verifyOne("zorsGoertz_64f", zorsGoertz_64f, src64, v64);
  verifyOne("zorsGoertz_64fc", zorsGoertz_64fc, srcD, v64);
  verifyOne("zorsGoertz_16s_Sfs", zorsGoertz_16s_Sfs, src16, v16, 0);
  verifyOne("zorsGoertz_16sc_Sfs", zorsGoertz_16sc_Sfs, src16c, v16, 0);
  const auto verifyTwo = [](const char* name, auto f, auto* src, auto* val, auto... scale) {
    using F = std::conditional_t<sizeof(*val) == 16, Zor64f, Zor32f>;
    static const F good[] = {F(0.1), F(0.2)}, first[] = {F(1), F(0.2)}, second[] = {F(0.1), F(-0.1)},
                   nan[] = {F(0.1), F(NAN)};
    kit::Contract(f, src, 4, val, good, scale...)
        .template null<0>()
        .template null<2>()
        .template null<3>()
        .template bad<1>({0, -1, INT_MIN}, zorStatusBadSize)
        .template bad<3>({first, second, nan}, zorStatusBadRelativeFrequency)
        .untouched(val, 2 * sizeof *val)
        .verify(name);
  };
  verifyTwo("zorsGoertzTwo_32f", zorsGoertzTwo_32f, src32, v32);
  verifyTwo("zorsGoertzTwo_32fc", zorsGoertzTwo_32fc, srcC, v32);
  verifyTwo("zorsGoertzTwo_64f", zorsGoertzTwo_64f, src64, v64);
  verifyTwo("zorsGoertzTwo_64fc", zorsGoertzTwo_64fc, srcD, v64);
  verifyTwo("zorsGoertzTwo_16sc_Sfs", zorsGoertzTwo_16sc_Sfs, src16c, v16, 0);
}
TEST(Goertzel, FixedPointFormsTestANegativeFrequencyFirst) {
  const Zor16sc src[4] = {};
  Zor16sc val[2] = {{5, 5}, {5, 5}};
  kit::Contract(zorsGoertzQ15_16sc_Sfs, src, 4, val, 100, 0)
      .bad<3>({-1, -32768}, zorStatusBadRelativeFrequency)
      .null<0>()
      .null<2>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .untouched(val, sizeof val)
      .verify("zorsGoertzQ15_16sc_Sfs");
  const Zor16s good[] = {1, 2}, first[] = {-1, 2}, second[] = {1, -1};
  kit::Contract(zorsGoertzTwoQ15_16sc_Sfs, src, 4, val, good, 0)
      .null<3>()
      .bad<3>({first, second}, zorStatusBadRelativeFrequency)
      .null<0>()
      .null<2>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .untouched(val, sizeof val)
      .verify("zorsGoertzTwoQ15_16sc_Sfs");
}

}  // namespace
