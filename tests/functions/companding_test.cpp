#include <algorithm>
#include <array>
#include <numeric>

#include "kit/elementwise.h"
#include "zors/functions.h"

namespace {

// ---- The standard's definition ------------------------------------------------------------------

// Table 1 of G.711: A-law segments by their last decision value, in steps of 1/4096 of the range. A code without its
// inverted bits is the number of the interval; its value is the middle.
struct ALaw {
  static int interval(int m) {  // m below 4096
    if (m < 64) return m / 2;
    int segment = 2;
    while (m >= 32 << segment) ++segment;
    return 16 * segment + (m - (16 << segment)) / (1 << segment);
  }
  static int steps(int magnitude) { return magnitude / 8; }
  static int value(int interval) {
    const int segment = interval / 16, place = interval % 16;
    return segment == 0 ? 8 * (2 * place + 1) : 8 * ((2 * place + 33) << (segment - 1));
  }
  static int code(int interval, bool negative) { return (interval | (negative ? 0 : 0x80)) ^ 0x55; }
};
// Table 2 of G.711: mu-law decision values 0, 1, 3, 5 ... 31, 35 ... 95, 103 ... 8159, in steps of 1/8159 of the range;
// a 16-bit sample is four steps. Values are the middles, of the first interval 0.
struct MuLaw {
  static int decision(int interval) {  // where the interval begins
    if (interval == 0) return 0;
    const int segment = interval / 16, place = interval % 16;
    return (33 << segment) - 33 + (2 * place - 1) * (1 << segment);
  }
  static int value(int interval) {
    const int segment = interval / 16, place = interval % 16;
    return 4 * (((2 * place + 33) << segment) - 33);
  }
  static int interval(int steps) {  // of 14 bits
    int found = 0;
    while (found < 127 && steps >= decision(found + 1)) ++found;
    return found;
  }
  static int steps(int magnitude) { return magnitude / 4; }
  static int code(int interval, bool negative) { return (interval | (negative ? 0 : 0x80)) ^ 0x7F; }
};
// One's complement, as both laws treat the two zeros.
template <class Law> Zor8u encoded(Zor16s x) {
  const int magnitude = x < 0 ? ~x : x;
  return Zor8u(Law::code(Law::interval(Law::steps(magnitude)), x < 0));
}
template <class Law> Zor16s decoded(Zor8u code) {
  for (int interval = 0; interval < 128; ++interval)
    for (bool negative : {false, true})
      if (Law::code(interval, negative) == code) return Zor16s(negative ? -Law::value(interval) : Law::value(interval));
  ADD_FAILURE();
  return 0;
}
template <class Law> int intervalOf(Zor8u code) {
  for (int interval = 0; interval < 128; ++interval)
    if (Law::code(interval, true) == (code & 0x7F)) return interval;
  ADD_FAILURE();
  return 0;
}

template <class T, class F> std::array<T, 256> tabulated(F entry) {
  std::array<T, 256> table;
  for (int code = 0; code < 256; ++code) table[std::size_t(code)] = entry(Zor8u(code));
  return table;
}
std::vector<Zor8u> allCodes() {
  std::vector<Zor8u> codes(256);
  std::iota(codes.begin(), codes.end(), Zor8u(0));
  return codes;
}
std::vector<Zor16s> allSamples() {
  std::vector<Zor16s> samples(65536);
  std::iota(samples.begin(), samples.end(), Zor16s(-32768));
  return samples;
}

template <class Law>
void decodes(const char* name, ZorStatus (*to16s)(const Zor8u*, Zor16s*, Zor32s),
             ZorStatus (*to32f)(const Zor8u*, Zor32f*, Zor32s)) {
  const auto table = tabulated<Zor16s>(decoded<Law>);
  const auto codes = allCodes();
  std::vector<Zor16s> samples(256);
  ASSERT_EQ(to16s(codes.data(), samples.data(), 256), zorStatusOk);
  EXPECT_TRUE(std::equal(table.begin(), table.end(), samples.begin())) << name;
  kit::sweep<Zor16s, Zor8u>(name, to16s, [&](Zor8u code) { return table[code]; });
  kit::sweep<Zor32f, Zor8u>(name, to32f, [&](Zor8u code) { return Zor32f(table[code]) / 32768; });
}
TEST(Companding, CodesDecodeToTheValuesOfTheStandard) {
  decodes<ALaw>("zorsALawToLin_8u16s, zorsALawToLin_8u32f", zorsALawToLin_8u16s, zorsALawToLin_8u32f);
  decodes<MuLaw>("zorsMuLawToLin_8u16s, zorsMuLawToLin_8u32f", zorsMuLawToLin_8u16s, zorsMuLawToLin_8u32f);
}

Zor16s sampleOf(Zor32f x) {
  volatile Zor32f y = 32768 * x, rounded = y + std::copysign(0.5f, y);
  if (std::isnan(rounded)) return -32768;
  return Zor16s(std::clamp(Zor32f{rounded}, -32768.0f, 32767.0f));
}
template <class Law>
void encodes(const char* name, ZorStatus (*from16s)(const Zor16s*, Zor8u*, Zor32s),
             ZorStatus (*from32f)(const Zor32f*, Zor8u*, Zor32s)) {
  const auto samples = allSamples();
  std::vector<Zor8u> codes(65536), wanted(65536);
  std::transform(samples.begin(), samples.end(), wanted.begin(), encoded<Law>);
  ASSERT_EQ(from16s(samples.data(), codes.data(), 65536), zorStatusOk);
  EXPECT_EQ(kit::firstDifference<Zor8u>(codes, wanted), "") << name;
  kit::sweep<Zor8u, Zor16s>(name, from16s, encoded<Law>);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor8u, Zor32f>(
        name, from32f, [](Zor32f x) { return encoded<Law>(sampleOf(x)); },
        direction == _MM_ROUND_NEAREST ? kit::sweepLengths() : kit::fewLengths());
  }
  for (Zor32f fraction : {0.0f, 0.25f, 0.499f, 0.5f, 0.75f}) {
    std::vector<Zor32f> floats(65536);
    std::transform(samples.begin(), samples.end(), floats.begin(),
                   [=](Zor16s x) { return (Zor32f(x) + std::copysign(fraction, Zor32f(x))) / 32768; });
    std::transform(floats.begin(), floats.end(), wanted.begin(), [](Zor32f x) { return encoded<Law>(sampleOf(x)); });
    ASSERT_EQ(from32f(floats.data(), codes.data(), 65536), zorStatusOk);
    EXPECT_EQ(kit::firstDifference<Zor8u>(codes, wanted), "") << name << " " << fraction;
  }
}
TEST(Companding, AllSamplesEncodeToTheIntervalsOfTheStandard) {
  encodes<ALaw>("zorsLinToALaw_16s8u, zorsLinToALaw_32f8u", zorsLinToALaw_16s8u, zorsLinToALaw_32f8u);
  encodes<MuLaw>("zorsLinToMuLaw_16s8u, zorsLinToMuLaw_32f8u", zorsLinToMuLaw_16s8u, zorsLinToMuLaw_32f8u);
}
TEST(Companding, DecodedCodesEncodeToThemselves) {
  const auto codes = allCodes();
  std::vector<Zor16s> samples(256);
  std::vector<Zor32f> floats(256);
  std::vector<Zor8u> back(256);
  zorsALawToLin_8u16s(codes.data(), samples.data(), 256);
  zorsLinToALaw_16s8u(samples.data(), back.data(), 256);
  EXPECT_EQ(back, codes);
  zorsALawToLin_8u32f(codes.data(), floats.data(), 256);
  zorsLinToALaw_32f8u(floats.data(), back.data(), 256);
  EXPECT_EQ(back, codes);
  auto wanted = codes;
  wanted[0x7F] = 0xFF;  // the negative zero
  zorsMuLawToLin_8u16s(codes.data(), samples.data(), 256);
  zorsLinToMuLaw_16s8u(samples.data(), back.data(), 256);
  EXPECT_EQ(back, wanted);
}

// Tables 3 and 4 of G.711, by the number of the interval: where they go on by ones the table holds the first only.
struct Run {
  int from, to, count, step = 1;
};
std::array<int, 128> expanded(std::initializer_list<Run> runs) {
  std::array<int, 128> table{};
  int next = 0;
  for (const Run& run : runs) {
    EXPECT_EQ(run.from, next);
    for (int i = 0; i < run.count; ++i) table[std::size_t(next++)] = run.to + i / run.step;
  }
  EXPECT_EQ(next, 128);
  return table;
}
TEST(Companding, LawsConvertByTheTablesOfTheStandard) {
  const auto muToA = expanded({{0, 1, 16, 2},  // each twice
                               {16, 9, 16},
                               {32, 25, 1},
                               {33, 27, 1},
                               {34, 29, 1},
                               {35, 31, 1},
                               {36, 33, 12},
                               {48, 46, 1},
                               {49, 48, 15},
                               {64, 64, 16},
                               {80, 80, 1},
                               {81, 82, 47}});
  const auto aToMu = expanded({{0, 1, 1},
                               {1, 3, 1},
                               {2, 5, 1},
                               {3, 7, 1},
                               {4, 9, 1},
                               {5, 11, 1},
                               {6, 13, 1},
                               {7, 15, 1},
                               {8, 16, 16},
                               {24, 32, 8, 2},
                               {32, 36, 12},
                               {44, 48, 4, 2},
                               {48, 50, 14},
                               {62, 64, 2, 2},
                               {64, 65, 16},
                               {80, 80, 48}});
  const auto toA = tabulated<Zor8u>([&](Zor8u code) {  // A-law intervals count from 1
    return Zor8u(ALaw::code(muToA[std::size_t(intervalOf<MuLaw>(code))] - 1, (code & 0x80) == 0));
  });
  const auto toMu = tabulated<Zor8u>(
      [&](Zor8u code) { return Zor8u(MuLaw::code(aToMu[std::size_t(intervalOf<ALaw>(code))], (code & 0x80) == 0)); });
  const auto codes = allCodes();
  std::vector<Zor8u> out(256);
  ASSERT_EQ(zorsMuLawToALaw_8u(codes.data(), out.data(), 256), zorStatusOk);
  EXPECT_EQ(kit::firstDifference<Zor8u>(out, toA), "");
  ASSERT_EQ(zorsALawToMuLaw_8u(codes.data(), out.data(), 256), zorStatusOk);
  EXPECT_EQ(kit::firstDifference<Zor8u>(out, toMu), "");
  kit::sweep<Zor8u, Zor8u>("zorsMuLawToALaw_8u", zorsMuLawToALaw_8u, [&](Zor8u code) { return toA[code]; });
  kit::sweep<Zor8u, Zor8u>("zorsALawToMuLaw_8u", zorsALawToMuLaw_8u, [&](Zor8u code) { return toMu[code]; });
}

TEST(Companding, TheLeastMagnitudesOfBothSigns) {
  const Zor8u a[] = {0xD5, 0x55}, mu = 0xFF;
  Zor16s x[2] = {};
  EXPECT_EQ(zorsALawToLin_8u16s(a, x, 2), zorStatusOk);
  EXPECT_EQ(x[0], 8);
  EXPECT_EQ(x[1], -8);
  EXPECT_EQ(zorsMuLawToLin_8u16s(&mu, x, 1), zorStatusOk);
  EXPECT_EQ(x[0], 0);
}
TEST(Companding, ZeroEncodesAsThePositiveLeastMagnitude) {
  const Zor16s x = 0;
  Zor8u code = 0;
  EXPECT_EQ(zorsLinToALaw_16s8u(&x, &code, 1), zorStatusOk);
  EXPECT_EQ(code, 0xD5);
  const Zor32f y = -1e-6f;  // rounds to a zero sample, which has no sign
  EXPECT_EQ(zorsLinToMuLaw_32f8u(&y, &code, 1), zorStatusOk);
  EXPECT_EQ(code, 0xFF);
}

template <class S, class D> void contract(const char* name, ZorStatus (*function)(const S*, D*, Zor32s)) {
  const std::vector<S> src(8);
  std::vector<D> dst(8, D(3));
  kit::Contract(function, src.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
TEST(Companding, ChecksPointersThenLength) {
  contract("zorsALawToLin_8u16s", zorsALawToLin_8u16s);
  contract("zorsALawToLin_8u32f", zorsALawToLin_8u32f);
  contract("zorsMuLawToLin_8u16s", zorsMuLawToLin_8u16s);
  contract("zorsMuLawToLin_8u32f", zorsMuLawToLin_8u32f);
  contract("zorsLinToALaw_16s8u", zorsLinToALaw_16s8u);
  contract("zorsLinToALaw_32f8u", zorsLinToALaw_32f8u);
  contract("zorsLinToMuLaw_16s8u", zorsLinToMuLaw_16s8u);
  contract("zorsLinToMuLaw_32f8u", zorsLinToMuLaw_32f8u);
  contract("zorsALawToMuLaw_8u", zorsALawToMuLaw_8u);
  contract("zorsMuLawToALaw_8u", zorsMuLawToALaw_8u);
}

}  // namespace
