// Streams of small integers, exact in every arithmetic: all kinds, all paths, all cuts give the model's values bit for
// bit.
#include <algorithm>

#include "iir/iir_filters.h"

namespace {

using namespace iir;

std::string where(const Filter& f, int count, const std::string& more) {
  return f.name + ", count " + std::to_string(count) + ", " + more;
}
std::string difference(const Numbers& got, const Numbers& wanted) {
  for (std::size_t i = 0; i < wanted.size(); ++i)
    if (!(got[i] == wanted[i]))
      return "[" + std::to_string(i) + "]: got " + std::to_string(got[i].re) + ", " + std::to_string(got[i].im) +
             ", wanted " + std::to_string(wanted[i].re) + ", " + std::to_string(wanted[i].im);
  return "";
}
Numbers registersOf(const Filter& f, const ZorIIRState* state, int count) {
  Numbers d(std::size_t(dlyLen(f.form, count)));
  EXPECT_EQ(f.getDly(state, &d), zorStatusOk);
  return d;
}

// One stream in pieces of these lengths; 0 stands for a single sample by the call for one.
void checkStream(const Filter& f, int count, const std::vector<int>& pieces, Zor32s scaleFactor, kit::Random& random) {
  const Numbers taps = integerTaps(f, count, random);
  const Numbers start = integerSamples(f, std::size_t(dlyLen(f.form, count)), 3, random);
  const State state(f, taps, count, &start);
  ASSERT_EQ(state.status, zorStatusOk) << f.name;
  Model model(f.form, taps, count);
  model.setRegisters(start);
  ASSERT_EQ(difference(registersOf(f, state, count), start), "") << f.name;
  std::size_t at = 0;
  for (int len : pieces) {
    const Numbers x = integerSamples(f, std::size_t(std::max(len, 1)), 1, random);
    const std::string what =
        where(f, count,
              "at " + std::to_string(at) + ", len " + std::to_string(len) + ", scale " + std::to_string(scaleFactor));
    if (len == 0) {
      Numbers wanted{model.step(x[0])};
      if (f.sampleBits != 0)
        wanted[0] = {toSample(wanted[0].re, f.sampleBits, scaleFactor, false),
                     f.complex ? toSample(wanted[0].im, f.sampleBits, scaleFactor, false) : 0};
      ASSERT_EQ(difference({f.one(x[0], state, scaleFactor)}, wanted), "") << what;
    } else {
      const Numbers wanted = expected(f, model, x, count, scaleFactor);
      ASSERT_EQ(difference(f.run(x, state, scaleFactor, random() % 2 == 0, random() % 8), wanted), "") << what;
    }
    at += x.size();
    ASSERT_EQ(difference(registersOf(f, state, count), model.registers()), "") << what << ", registers";
  }
}

TEST(IirExact, EveryLengthFromOneSampleOn) {
  kit::Random random(1);
  for (const Filter& f : filters())
    for (int count : {1, 2, 3})
      for (int len = 1; len <= 70; ++len) checkStream(f, count, {len}, f.sampleBits == 0 ? 0 : 1, random);
}

TEST(IirExact, BothSidesOfEveryThreshold) {
  kit::Random random(2);
  for (const Filter& f : filters()) {
    for (int count : {4, 5, 7, 8, 9, 16, 31, 64}) {
      for (int len : {4 * count - 1, 4 * count, 4 * count + 1, 4 * count + 17}) checkStream(f, count, {len}, 0, random);
    }
    for (int len : {1023, 1024, 1025, 1028, 1029, 2047, 2048, 2050})
      for (int count : {1, 2}) checkStream(f, count, {len}, 0, random);
    for (int count : {255, 256, 300}) checkStream(f, count, {1024, 1024 + 1021}, 0, random);
  }
}

// Runs of 8 samples, blocks of 32 and 64, chunks that steps are faster for; each followed by another one.
TEST(IirExact, BothSidesOfEveryRunAndBlock) {
  kit::Random random(5);
  for (const Filter& f : filters())
    for (int count = 1; count <= 9; ++count)
      for (int block : {12 + 4 * count, 32, 36, 64, 96, 128, 192, 256, 960})
        for (int len = block - 1; len <= block + 1; ++len)
          checkStream(f, count, {len, int(random() % 90) + 1}, 0, random);
}

TEST(IirExact, AStreamCutAnywhereIsOneStream) {
  kit::Random random(3);
  for (const Filter& f : filters())
    for (int count : {1, 2, 3, 4, 6, 11}) {
      std::vector<int> pieces;
      for (int k = 0; k < 25; ++k) {
        static constexpr int usual[] = {0, 0, 1, 2, 3, 5, 8, 13, 16, 31, 48, 49, 64, 100};
        pieces.push_back(usual[random() % std::size(usual)]);
      }
      checkStream(f, count, pieces, 0, random);
    }
}

TEST(IirExact, ScaledResultsRoundToEvenAndTheFirstTwoOfACascadesChunkAreCut) {
  kit::Random random(4);
  for (const Filter& f : filters()) {
    if (f.sampleBits == 0) continue;
    for (Zor32s scale : {-2000, -200, -127, -16, -15, -2,  -1,   1,         2,         3,         5,
                         20,    31,   33,   126, 127, 150, 2000, INT32_MAX, INT32_MIN, -INT32_MAX})
      for (int count : {1, 2, 3}) checkStream(f, count, {40, 0, 5, 1030, 8, 4, 12, 13}, scale, random);
  }
}

// Scales at the end of the exponents of normal numbers, and results that need them.
TEST(IirExact, TinyResultsAreScaledUpByTheWholeFactor) {
  for (const Filter& f : filters()) {
    if (f.sampleBits == 0 || f.integerTaps) continue;
    const int exponent = f.single ? 124 : 1019;
    Numbers taps(std::size_t(tapsLen(f.form, 1)));
    taps[0] = {std::ldexp(1.0L, -exponent), 0};
    taps[f.form == Form::polynomial ? 2 : 3] = {1, 0};
    for (int len : {1, 4, 30, 70}) {
      const State state(f, taps, 1);
      Numbers x(static_cast<std::size_t>(len));
      for (std::size_t i = 0; i < x.size(); ++i) x[i].re = static_cast<long double>(i) - 20;
      Model model(f.form, taps, 1);
      EXPECT_EQ(difference(f.run(x, state, -exponent - 2, false, 0), expected(f, model, x, 1, -exponent - 2)), "")
          << f.name << " " << len;
      EXPECT_EQ(f.one({7, 0}, state, -exponent - 2).re, 28) << f.name;
    }
  }
}

TEST(IirExact, LargeResultsSaturateBeforeTheyAreConverted) {
  for (const Filter& f : filters()) {
    if (f.sampleBits == 0) continue;
    // A gain of 2^20 (16 bits) or 2^40.
    const long double gain = f.sampleBits == 16 ? 0x1p20L : 0x1p30L;
    Numbers taps(std::size_t(tapsLen(f.form, 1)));
    taps[0] = {gain, 0};
    taps[f.form == Form::polynomial ? 2 : 3] = {1, 0};
    for (int len : {1, 30}) {
      const State state(f, taps, 1);
      Numbers x(static_cast<std::size_t>(len), {f.sampleBits == 16 ? 32767.0L : 0x1p31L - 1, 0});
      for (std::size_t i = 1; i < x.size(); i += 2) x[i].re = -x[i].re;
      Model model(f.form, taps, 1);
      EXPECT_EQ(difference(f.run(x, state, 0, false, 0), expected(f, model, x, 1, 0)), "") << f.name;
      EXPECT_EQ(f.one(x[0], state, 0).re, std::ldexp(1.0L, f.sampleBits - 1) - 1) << f.name;
    }
  }
}

}  // namespace
