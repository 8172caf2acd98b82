#include "generators/places.h"
#include "zors/generators.h"

namespace {

constexpr double twoPi = 6.283185307179586;

template <class T> struct PartOf { using type = T; };
template <kit::ComplexPair T> struct PartOf<T> { using type = decltype(T::re); };
template <class T> using Part = typename PartOf<T>::type;
// The types of magnitude and of angles beside elements of type T.
template <class T> using Magnitude = Part<T>;
template <class T> using Angle = std::conditional_t<std::is_same_v<Part<T>, Zor64f>, Zor64f, Zor32f>;
template <class T> using Tone = ZorStatus (*)(T*, Zor32s, Magnitude<T>, Angle<T>, Angle<T>*, ZorHintAlgorithm);

struct Wave {
  double magnitude, w, phase;
  bool sine;
  double at(double angle) const { return magnitude * (sine ? std::sin(angle) : std::cos(angle)); }
};
// The recurrences as they are told, one element after the other.
std::vector<double> accurateModel(const Wave& wave, std::size_t len) {
  std::vector<double> x(len + 4);
  const double k = 2 * std::cos(wave.w), k2 = std::fma(k, k, -2.0);
  x[0] = wave.at(wave.phase);
  x[1] = wave.at(wave.phase + wave.w);
  x[2] = std::fma(k, x[1], -x[0]);
  x[3] = std::fma(k, x[2], -x[1]);
  for (std::size_t n = 4; n < len; ++n) x[n] = std::fma(k2, x[n - 2], -x[n - 4]);
  x.resize(len);
  return x;
}
template <class F> std::vector<F> fastModel(const Wave& wave, std::size_t len) {
  constexpr std::size_t step = sizeof(F) == 4 ? 8 : 4, block = sizeof(F) == 4 ? 1024 : 2048;
  const double k = 2 * std::cos(wave.w), k2 = std::fma(k, k, -2.0), k4 = std::fma(k2, k2, -2.0);
  const F factor = F(step == 4 ? k4 : std::fma(k4, k4, -2.0));
  std::vector<F> y(len + block);
  for (std::size_t b = 0; b < len; b += block) {
    double x[16];
    x[0] = wave.at(std::fma(double(b), wave.w, wave.phase));
    x[1] = wave.at(std::fma(double(b + 1), wave.w, wave.phase));
    x[2] = std::fma(k, x[1], -x[0]);
    x[3] = std::fma(k, x[2], -x[1]);
    for (std::size_t n = 4; n < 2 * step; ++n) x[n] = std::fma(k2, x[n - 2], -x[n - 4]);
    for (std::size_t n = 0; n < 2 * step; ++n) y[b + n] = F(x[n]);
    for (std::size_t n = 2 * step; n < block; ++n) y[b + n] = std::fma(factor, y[b + n - step], -y[b + n - 2 * step]);
  }
  y.resize(len);
  return y;
}
template <class T, class X> T element(X re, X im) {
  const auto part = [](X x) {
    if constexpr (std::is_integral_v<Part<T>>)
      return Part<T>(std::clamp(std::trunc(double(x)), -32768.0, 32767.0));
    else
      return Part<T>(x);
  };
  if constexpr (kit::ComplexPair<T>)
    return {part(re), part(im)};
  else
    return part(re);
}
template <class T, class X> std::vector<T> elements(const std::vector<X>& re, const std::vector<X>& im) {
  std::vector<T> y(re.size());
  for (std::size_t n = 0; n < y.size(); ++n) y[n] = element<T>(re[n], im[n]);
  return y;
}
template <class T> std::vector<T> model(Wave wave, std::size_t len, ZorHintAlgorithm hint) {
  Wave sine = wave;
  sine.sine = true;
  if (hint != zorAlgHintFast) return elements<T, double>(accurateModel(wave, len), accurateModel(sine, len));
  using F = std::conditional_t<std::is_same_v<Part<T>, Zor64f>, Zor64f, Zor32f>;
  return elements<T, F>(fastModel<F>(wave, len), fastModel<F>(sine, len));
}
template <class F> F phaseAfter(F phase, double w, Zor32s len) {
  const double x = len * w + double(phase);
  const F narrowed = F(x - std::floor(x * 0.15915494309189535) * twoPi);
  return narrowed < 0 || !(double(narrowed) < twoPi) ? F(0) : narrowed;
}

struct Arguments {
  double magnitude, rFreq, phase;
};
const Arguments allArguments[] = {{1, 0, 0},          {1000, 0.01, 0.5},    {250.5, 0.123, 6.28}, {32767, 0.4999, 1},
                                  {100, 1e-5, 3},     {1, 0.25, 0},         {7, 1.0 / 3, 2},      {32767, 0.001, 0},
                                  {30000, 0.0625, 5}, {12345, 0.2718, 3.14}};

std::vector<int> toneLengths() {
  std::vector<int> lengths;
  for (int len = 1; len <= 70; ++len) lengths.push_back(len);
  for (int blocks : {1024, 2048, 4096, 8192, 9216, 10240, 11264})
    for (int more : {-9, -8, -1, 0, 1, 2, 3, 7, 8, 9, 15, 16, 17, 24, 25}) lengths.push_back(blocks + more);
  return lengths;
}

template <class T> void check(const char* name, Tone<T> function) {
  const auto lengths = toneLengths();
  for (const Arguments& raw : allArguments)
    for (ZorHintAlgorithm hint : {0, 1, 2, 3, -1}) {
      const auto magnitude = Magnitude<T>(raw.magnitude);
      const auto rFreq = Angle<T>(raw.rFreq), phase = Angle<T>(raw.phase);
      const Wave wave{double(magnitude), twoPi * double(rFreq), double(phase), false};
      generators::checkPlaces<T>(
          std::string(name) + ", hint " + std::to_string(hint) + ", rFreq " + std::to_string(raw.rFreq),
          [&](T* dst, Zor32s len) {
            auto at = phase;
            const auto status = function(dst, len, magnitude, rFreq, &at, hint);
            EXPECT_EQ(at, phaseAfter(phase, wave.w, len)) << name << ", " << len;
            return status;
          },
          model<T>(wave, 12'000, hint), hint == 0 || hint == 1 ? lengths : kit::fewLengths());
    }
}
TEST(ToneDirect, AccurateAndFastElementsFollowTheirRecurrencesToTheBit) {
  check<Zor16s>("zorsTone_Direct_16s", zorsTone_Direct_16s);
  check<Zor16sc>("zorsTone_Direct_16sc", zorsTone_Direct_16sc);
  check<Zor32f>("zorsTone_Direct_32f", zorsTone_Direct_32f);
  check<Zor32fc>("zorsTone_Direct_32fc", zorsTone_Direct_32fc);
  check<Zor64f>("zorsTone_Direct_64f", zorsTone_Direct_64f);
  check<Zor64fc>("zorsTone_Direct_64fc", zorsTone_Direct_64fc);
}

// Against cosines of long double, over a million samples in one piece and in several.
template <class T> void checkWave(const char* name, Tone<T> function, ZorHintAlgorithm hint, double tolerance) {
  constexpr int len = 1'000'000;
  kit::Random random(3);
  for (bool whole : {true, false}) {
    const Angle<T> rFreq = Angle<T>(0.0371);
    Angle<T> phase = 1;
    std::vector<T> y(len);
    for (int at = 0; at < len;) {
      const int count = whole ? len : std::min(len - at, int(1 + random() % 100'000));
      ASSERT_EQ(function(y.data() + at, count, Magnitude<T>(10'000), rFreq, &phase, hint), zorStatusOk);
      at += count;
    }
    const long double w = static_cast<long double>(twoPi * double(rFreq));
    double worst = 0;
    for (int n = 0; n < len; ++n) {
      const long double angle = 1 + n * w;
      if constexpr (kit::ComplexPair<T>) {
        worst = std::max(worst, std::fabs(double(y[std::size_t(n)].re - 10'000 * cosl(angle))));
        worst = std::max(worst, std::fabs(double(y[std::size_t(n)].im - 10'000 * sinl(angle))));
      } else {
        worst = std::max(worst, std::fabs(double(y[std::size_t(n)] - 10'000 * cosl(angle))));
      }
    }
    // In pieces the binary32 phase is rounded at each seam.
    EXPECT_LE(worst, whole || sizeof(Part<T>) == 8 ? tolerance : tolerance + 0.2) << name << ", hint " << hint;
  }
}
TEST(ToneDirect, AMillionSamplesStayOnTheWave) {
  checkWave<Zor64f>("zorsTone_Direct_64f", zorsTone_Direct_64f, 0, 1e-5);
  checkWave<Zor64f>("zorsTone_Direct_64f", zorsTone_Direct_64f, 1, 1e-5);
  checkWave<Zor64fc>("zorsTone_Direct_64fc", zorsTone_Direct_64fc, 1, 1e-5);
  checkWave<Zor32f>("zorsTone_Direct_32f", zorsTone_Direct_32f, 0, 1e-3);
  checkWave<Zor32f>("zorsTone_Direct_32f", zorsTone_Direct_32f, 1, 1);
  checkWave<Zor32fc>("zorsTone_Direct_32fc", zorsTone_Direct_32fc, 1, 1);
  checkWave<Zor16s>("zorsTone_Direct_16s", zorsTone_Direct_16s, 0, 1.001);
  checkWave<Zor16sc>("zorsTone_Direct_16sc", zorsTone_Direct_16sc, 1, 2);
}
TEST(ToneDirect, FrequencyZeroIsAConstant) {
  for (ZorHintAlgorithm hint : {0, 1}) {
    std::vector<Zor32f> y(5000);
    Zor32f phase = 1;
    ASSERT_EQ(zorsTone_Direct_32f(y.data(), 5000, 3, 0, &phase, hint), zorStatusOk);
    EXPECT_EQ(y, std::vector<Zor32f>(5000, Zor32f(3 * std::cos(1.0))));
    EXPECT_EQ(phase, 1);
  }
}
TEST(ToneDirect, APhaseThatRoundsToAWholeTurnIsStoredAsZero) {
  Zor32f y[8], phase = std::nextafter(Zor32f(twoPi / 8), 0.0f);
  ASSERT_EQ(zorsTone_Direct_32f(y, 7, 1, 0.125f, &phase, 0), zorStatusOk);
  EXPECT_EQ(phase, 0);
  Zor64f z[4], turn = 0;
  ASSERT_EQ(zorsTone_Direct_64f(z, 4, 1, 0.25, &turn, 0), zorStatusOk);
  EXPECT_EQ(turn, 0);
  kit::Random random(1);
  for (int i = 0; i < 20'000; ++i) {
    Zor64f from = twoPi * double(random() >> 11) / 0x1p53, one = 0;
    ASSERT_EQ(zorsTone_Direct_64f(&one, 1, 1, double(random() >> 12) / 0x1p53, &from, 0), zorStatusOk);
    ASSERT_TRUE(from >= 0 && from < twoPi);
  }
}
TEST(ToneDirect, SamplesWinOverAPhaseThatLiesAmongThem) {
  for (ZorHintAlgorithm hint : {0, 1}) {
    Zor32f apart[40], y[40] = {}, phase = 1;
    ASSERT_EQ(zorsTone_Direct_32f(apart, 40, 2, 0.1f, &phase, hint), zorStatusOk);
    y[3] = 1;
    ASSERT_EQ(zorsTone_Direct_32f(y, 40, 2, 0.1f, &y[3], hint), zorStatusOk);
    EXPECT_EQ(std::memcmp(y, apart, sizeof y), 0);
  }
}
template <class T> void checkToneContract(const char* name, Tone<T> function) {
  using M = Magnitude<T>;
  using F = Angle<T>;
  std::vector<T> dst(40);
  F phase = 1, negative = F(-0.1), turn = F(twoPi), far = 100;
  if (double(turn) < twoPi) turn = std::nextafter(turn, F(10));
  kit::Contract contract(function, dst.data(), 40, M(5), F(0.1), &phase, zorAlgHintFast);
  contract.template null<4>().template bad<2>({M(0), M(-1)}, zorStatusBadToneMagnitude);
  if constexpr (std::is_floating_point_v<M>) contract.template bad<2>({M(NAN)}, zorStatusBadToneMagnitude);
  contract.template bad<3>({F(0.5), F(-1e-9), F(7)}, zorStatusBadToneFrequency)
      .template bad<4>({&negative, &turn, &far}, zorStatusBadTonePhase)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(&phase, sizeof phase)
      .verify(name);
}
TEST(ToneDirect, ThePhaseIsTestedFirstAndTheLengthLast) {
  checkToneContract<Zor16s>("zorsTone_Direct_16s", zorsTone_Direct_16s);
  checkToneContract<Zor16sc>("zorsTone_Direct_16sc", zorsTone_Direct_16sc);
  checkToneContract<Zor32f>("zorsTone_Direct_32f", zorsTone_Direct_32f);
  checkToneContract<Zor32fc>("zorsTone_Direct_32fc", zorsTone_Direct_32fc);
  checkToneContract<Zor64f>("zorsTone_Direct_64f", zorsTone_Direct_64f);
  checkToneContract<Zor64fc>("zorsTone_Direct_64fc", zorsTone_Direct_64fc);
}

// ---- Fixed-point arguments ----------------------------------------------------------------------

Zor16s fixedSample(std::int64_t n, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  const double w = twoPi * (rFreqQ15 / 32768.0);
  const double y = magnitude * std::cos(std::fma(w, double(n), phaseQ15 / 32768.0));
  return Zor16s(y + (y > 0 ? 0.5 : -0.5));
}
std::vector<Zor16s> fixedModel(std::size_t len, Zor16s magnitude, Zor16s rFreqQ15, Zor32u phaseQ15) {
  std::vector<Zor16s> y(len);
  for (std::size_t n = 0; n < len; ++n) y[n] = fixedSample(std::int64_t(n), magnitude, rFreqQ15, phaseQ15);
  return y;
}
struct FixedArguments {
  Zor16s magnitude, rFreqQ15;
  Zor32u phaseQ15;
};
const FixedArguments fixedArguments[] = {{32767, 16383, 205886}, {1, 1, 0},       {32767, 0, 0},
                                         {32767, 8192, 0},       {1000, 4096, 1}, {20000, 12345, 102943}};

TEST(ToneQ15, EachSampleHasTheBitsOfItsOwnCosine) {
  for (const auto& [magnitude, rFreq, phase] : fixedArguments)
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      generators::checkPlaces<Zor16s>(
          "zorsToneQ15_Direct_16s",
          [magnitude = magnitude, rFreq = rFreq, phase = phase](Zor16s* dst, Zor32s len) {
            return zorsToneQ15_Direct_16s(dst, len, magnitude, rFreq, phase);
          },
          fixedModel(1025, magnitude, rFreq, phase));
    }
}
TEST(ToneQ15, PiecesOfAnySizeGiveTheSamplesOfOneCall) {
  kit::Random random(1);
  for (const auto& [magnitude, rFreq, phase] : fixedArguments) {
    const auto wanted = fixedModel(1'000'000, magnitude, rFreq, phase);
    const kit::Guarded<Zor8u> record(48, kit::Edge::end, std::size_t(rFreq % 3));
    auto* state = reinterpret_cast<ZorToneState*>(record.data());
    for (std::size_t most : std::initializer_list<std::size_t>{std::size_t{100}, std::size_t{200'000}, wanted.size()}) {
      ASSERT_EQ(zorsToneInitQ15_16s(state, magnitude, rFreq, phase), zorStatusOk);
      std::vector<Zor16s> y(wanted.size());
      for (std::size_t at = 0; at < y.size();) {
        const std::size_t len = most == y.size() ? most : std::min(y.size() - at, 1 + random() % most);
        ASSERT_EQ(zorsToneQ15_16s(y.data() + at, Zor32s(len), state), zorStatusOk);
        at += len;
      }
      ASSERT_EQ(kit::firstDifference<Zor16s>(y, wanted), "") << rFreq << ", " << most;
    }
    ASSERT_TRUE(record.intact());
  }
}
TEST(ToneQ15, TwoCallsOfFiftyAreOneOfAHundred) {
  alignas(8) Zor8u record[48];
  auto* state = reinterpret_cast<ZorToneState*>(record);
  Zor16s apart[100], whole[100];
  ASSERT_EQ(zorsToneInitQ15_16s(state, 3000, 777, 5), zorStatusOk);
  ASSERT_EQ(zorsToneQ15_16s(apart, 50, state), zorStatusOk);
  ASSERT_EQ(zorsToneQ15_16s(apart + 50, 50, state), zorStatusOk);
  ASSERT_EQ(zorsToneQ15_Direct_16s(whole, 100, 3000, 777, 5), zorStatusOk);
  EXPECT_EQ(std::memcmp(apart, whole, sizeof whole), 0);
}
TEST(ToneQ15, TheSampleCountWraps) {
  alignas(8) Zor8u record[48];
  auto* state = reinterpret_cast<ZorToneState*>(record);
  Zor16s y[100];
  ASSERT_EQ(zorsToneInitQ15_16s(state, 30000, 16383, 5), zorStatusOk);
  ASSERT_EQ(zorsToneQ15_16s(y, 1, state), zorStatusOk);
  const Zor32s start = INT32_MAX - 40;  // the second word of the record
  std::memcpy(record + 4, &start, 4);
  ASSERT_EQ(zorsToneQ15_16s(y, 100, state), zorStatusOk);
  for (int n = 0; n < 100; ++n) ASSERT_EQ(y[n], fixedSample(Zor32s(Zor32u(start) + Zor32u(n)), 30000, 16383, 5)) << n;
}
TEST(ToneQ15, ArgumentsOfDirectCallsAreTestedInOrder) {
  std::vector<Zor16s> dst(40);
  kit::Contract(zorsToneQ15_Direct_16s, dst.data(), 40, Zor16s{5}, Zor16s{7}, Zor32u{9})
      .null<0>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .bad<2>({0, -1, INT16_MIN}, zorStatusBadToneMagnitude)
      .bad<3>({-1, 16384, INT16_MIN, INT16_MAX}, zorStatusBadToneFrequency)
      .bad<4>({205887, 0x80000000, UINT32_MAX}, zorStatusBadTonePhase)
      .untouched(dst)
      .verify("zorsToneQ15_Direct_16s");
}
TEST(ToneQ15, RecordsAreBuiltAllocatedAndReleased) {
  Zor32s size = 0;
  EXPECT_EQ(zorsToneGetStateSizeQ15_16s(&size), zorStatusOk);
  EXPECT_EQ(size, 48);
  EXPECT_EQ(zorsToneGetStateSizeQ15_16s(nullptr), zorStatusNullPointer);
  std::vector<Zor8u> record(48, 0xAA);
  auto* state = reinterpret_cast<ZorToneState*>(record.data());
  kit::Contract(zorsToneInitQ15_16s, state, Zor16s{5}, Zor16s{7}, Zor32u{9})
      .null<0>()
      .bad<1>({0, -1}, zorStatusBadToneMagnitude)
      .bad<2>({-1, 16384}, zorStatusBadToneFrequency)
      .bad<3>({205887, 0x80000000}, zorStatusBadTonePhase)
      .untouched(record)
      .verify("zorsToneInitQ15_16s");
  ZorToneState* out = state;
  {
    const kit::ServicesScope services;
    kit::Contract(zorsToneInitAllocQ15_16s, &out, Zor16s{5}, Zor16s{7}, Zor32u{9})
        .null<0>()
        .bad<1>({0, -1}, zorStatusBadToneMagnitude)
        .bad<2>({-1, 16384}, zorStatusBadToneFrequency)
        .bad<3>({205887, 0x80000000}, zorStatusBadTonePhase)
        .untouched(&out, sizeof out)
        .verify("zorsToneInitAllocQ15_16s");
    EXPECT_EQ(services->allocations, 0);
  }
  EXPECT_EQ(kit::failEachAllocation(
                [&] {
                  out = state;
                  const auto status = zorsToneInitAllocQ15_16s(&out, 5, 7, 9);
                  if (status == zorStatusOk) {
                    Zor16s y[9], z[9];
                    EXPECT_EQ(kit::services().lastSize, 48);
                    EXPECT_EQ(zorsToneQ15_16s(y, 9, out), zorStatusOk);
                    EXPECT_EQ(zorsToneQ15_Direct_16s(z, 9, 5, 7, 9), zorStatusOk);
                    EXPECT_EQ(std::memcmp(y, z, sizeof y), 0);
                    EXPECT_EQ(zorsToneFree(out), zorStatusOk);
                  } else {
                    EXPECT_EQ(out, state);
                  }
                  return status;
                },
                [&](int n, ZorStatus status) {
                  EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
                  EXPECT_EQ(kit::services().live, 0);
                }),
            1);
  // A caller's record is left alone.
  ASSERT_EQ(zorsToneInitQ15_16s(state, 5, 7, 9), zorStatusOk);
  const auto before = record;
  EXPECT_EQ(zorsToneFree(state), zorStatusOk);
  EXPECT_EQ(record, before);
  EXPECT_EQ(zorsToneFree(nullptr), zorStatusNullPointer);
  EXPECT_EQ(std::memcmp(record.data(), "HAMC", 4), 0);
  std::vector<Zor16s> dst(8);
  kit::Contract(zorsToneQ15_16s, dst.data(), 8, state)
      .null<0>()
      .null<2>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(record)
      .verify("zorsToneQ15_16s");
  record[0] ^= 1;  // a triangle's tag
  const auto foreign = record;
  EXPECT_EQ(zorsToneQ15_16s(dst.data(), 0, state), zorStatusBadSize);
  EXPECT_EQ(zorsToneQ15_16s(dst.data(), 8, state), zorStatusBadContext);
  EXPECT_EQ(zorsToneFree(state), zorStatusBadContext);
  EXPECT_EQ(record, foreign);
  EXPECT_EQ(dst, std::vector<Zor16s>(8));
}

}  // namespace
