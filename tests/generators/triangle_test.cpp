#include "generators/places.h"
#include "zors/generators.h"

namespace {

constexpr double pi = 3.141592653589793, twoPi = 6.283185307179586;

template <class T> struct PartOf { using type = T; };
template <kit::ComplexPair T> struct PartOf<T> { using type = decltype(T::re); };
template <class T> using Part = typename PartOf<T>::type;
template <class T> using Magnitude = Part<T>;
template <class T> using Angle = std::conditional_t<std::is_same_v<Part<T>, Zor64f>, Zor64f, Zor32f>;
template <class T> using Triangle = ZorStatus (*)(T*, Zor32s, Magnitude<T>, Angle<T>, Angle<T>, Angle<T>*);

struct Wave {
  double magnitude, rFreq, asym, phase;
  // The wave itself, at an angle of any size.
  long double at(long double n) const {
    const long double turn = 2 * 3.14159265358979323846264338327950288L;
    const long double h1 = turn / 2 + asym, h2 = turn / 2 - asym;
    long double angle = phase + n * turn * rFreq;
    angle -= floorl(angle / turn) * turn;
    return angle < h1 ? magnitude * (1 - 2 * angle / h1) : magnitude * (2 * (angle - h1) / h2 - 1);
  }
  Wave imaginary() const {
    Wave other = *this;
    other.phase = phase + (twoPi + (pi + asym)) / 2;
    if (other.phase >= twoPi) other.phase -= twoPi;
    return other;
  }
  // How far a sample may be off: the slope times what angle and position lose over n samples.
  double tolerance(double n) const {
    const double steepest = 2 * magnitude / std::min(pi + asym, pi - asym);
    return steepest * (n + 10) * 1e-15 + magnitude * 1e-14;
  }
};
template <class P> void expectNear(P got, const Wave& wave, double n, const std::string& where) {
  const long double wanted = wave.at(n);
  const double off = std::fabs(double(static_cast<long double>(got) - wanted)), exact = wave.tolerance(n);
  const double rounding = std::is_integral_v<P> ? 0.5 : std::is_same_v<P, Zor32f> ? wave.magnitude * 6e-8 : 0;
  ASSERT_LE(off, exact + rounding) << where << ", n " << n;
  ASSERT_LE(std::fabs(double(got)), wave.magnitude * (1 + 1e-14)) << where;
}
template <class T> void expectWave(const T* y, int len, const Wave& wave, const std::string& where) {
  for (int n = 0; n < len; ++n) {
    if constexpr (kit::ComplexPair<T>) {
      expectNear(y[n].re, wave, n, where);
      expectNear(y[n].im, wave.imaginary(), n, where);
    } else {
      expectNear(y[n], wave, n, where);
    }
    if (testing::Test::HasFatalFailure()) return;
  }
}

struct Arguments {
  double magnitude, rFreq, asym, phase;
};
const Arguments allArguments[] = {{1, 0, 0, 0.5},           {1000, 0.01, 0, 0},       {32767, 0.001, 1, 6.28},
                                  {100, 0.123, -2.5, 3},    {7, 0.4999, 3, 1},        {12345, 0.499, -3.1, 2},
                                  {500, 0.0703125, 3.1, 5}, {32767, 1e-5, -1, 4},     {30000, 0.3, 0.1, 0},
                                  {2000, 0.0625, 0, 1},     {32767, 0.2, -3.14159, 0}};

template <class T> void check(const char* name, Triangle<T> function) {
  for (const Arguments& raw : allArguments) {
    const auto magnitude = Magnitude<T>(raw.magnitude);
    const auto rFreq = Angle<T>(raw.rFreq), asym = Angle<T>(raw.asym), from = Angle<T>(raw.phase);
    const Wave wave{double(magnitude), double(rFreq), double(asym), double(from)};
    const std::string where =
        std::string(name) + ", rFreq " + std::to_string(raw.rFreq) + ", asym " + std::to_string(raw.asym);
    std::vector<T> y(3000);
    auto phase = from;
    ASSERT_EQ(function(y.data(), 3000, magnitude, rFreq, asym, &phase), zorStatusOk) << where;
    expectWave(y.data(), 3000, wave, where);
    if (testing::Test::HasFatalFailure()) return;
    // Any shorter call gives the same elements.
    generators::checkPlaces<T>(
        where,
        [&](T* dst, Zor32s len) {
          auto at = from;
          const auto status = function(dst, len, magnitude, rFreq, asym, &at);
          const double x = len * (twoPi * double(rFreq)) + double(from);
          const auto wanted = Angle<T>(x - std::floor(x * 0.15915494309189535) * twoPi);
          EXPECT_EQ(at, wanted < 0 || double(wanted) >= twoPi ? 0 : wanted) << where;
          return status;
        },
        y);
  }
}
TEST(TriangleDirect, SamplesLieOnTheWave) {
  check<Zor16s>("zorsTriangle_Direct_16s", zorsTriangle_Direct_16s);
  check<Zor16sc>("zorsTriangle_Direct_16sc", zorsTriangle_Direct_16sc);
  check<Zor32f>("zorsTriangle_Direct_32f", zorsTriangle_Direct_32f);
  check<Zor32fc>("zorsTriangle_Direct_32fc", zorsTriangle_Direct_32fc);
  check<Zor64f>("zorsTriangle_Direct_64f", zorsTriangle_Direct_64f);
  check<Zor64fc>("zorsTriangle_Direct_64fc", zorsTriangle_Direct_64fc);
}
TEST(TriangleDirect, RandomWavesOfEveryShape) {
  kit::Random random(1);
  const auto uniform = [&](double low, double high) { return low + (high - low) * double(random() >> 11) / 0x1p53; };
  for (int turn = 0; turn < 2000; ++turn) {
    const double reach = turn % 2 == 0 ? pi - 1e-6 : 1;
    const Wave wave{uniform(0.1, 10), uniform(0, turn % 3 == 0 ? 0.4999 : 0.02), uniform(-reach, reach),
                    uniform(0, twoPi - 1e-9)};
    Zor64fc y[200];
    Zor64f phase = wave.phase;
    ASSERT_EQ(zorsTriangle_Direct_64fc(y, 200, wave.magnitude, wave.rFreq, wave.asym, &phase), zorStatusOk);
    expectWave(y, 200, wave, "turn " + std::to_string(turn));
    if (HasFatalFailure()) return;
  }
}
TEST(TriangleDirect, AMillionSamplesStayOnTheWave) {
  constexpr int len = 1'000'000;
  std::vector<Zor64f> y(len);
  for (const Wave& wave : {Wave{1000, 0.0123, 0.7, 1}, Wave{1000, 1e-6, -0.7, 2}}) {
    Zor64f phase = wave.phase;
    ASSERT_EQ(zorsTriangle_Direct_64f(y.data(), len, wave.magnitude, wave.rFreq, wave.asym, &phase), zorStatusOk);
    for (int n = 0; n < len; ++n) ASSERT_NEAR(y[std::size_t(n)], double(wave.at(n)), wave.magnitude * 1e-9) << n;
  }
}
TEST(TriangleDirect, WithoutAsymmetryItFallsFromTheTopToTheBottomInHalfATurn) {
  Zor32f y[17], phase = 0;
  ASSERT_EQ(zorsTriangle_Direct_32f(y, 17, 4, 1.0f / 16, 0, &phase), zorStatusOk);
  for (int n = 0; n <= 16; ++n) EXPECT_NEAR(y[n], n <= 8 ? 4 - n : n - 12, 1e-5);
  EXPECT_EQ(y[0], 4);
}
// The imaginary part is three quarters of a turn ahead.
TEST(TriangleDirect, TheImaginaryPartOfASymmetricWaveIsThreeQuartersAhead) {
  Zor64fc z[100];
  Zor64f y[100], phase = 0, ahead = 3 * pi / 2;
  ASSERT_EQ(zorsTriangle_Direct_64fc(z, 100, 5, 0.013, 0, &phase), zorStatusOk);
  ASSERT_EQ(zorsTriangle_Direct_64f(y, 100, 5, 0.013, 0, &ahead), zorStatusOk);
  for (int n = 0; n < 100; ++n) EXPECT_NEAR(z[n].im, y[n], 1e-13);
}
TEST(TriangleDirect, AFallThatTakesNoTimeIsAccepted) {
  std::vector<Zor64f> y(100);
  Zor64f phase = 0;
  EXPECT_EQ(zorsTriangle_Direct_64f(y.data(), 100, 1, 0.01, -pi, &phase), zorStatusOk);
  for (std::size_t n = 0; n < 99; ++n) EXPECT_NEAR(y[n], -1 + 0.02 * double(n), 1e-12) << n;
}
TEST(TriangleDirect, SamplesWinOverAPhaseThatLiesAmongThem) {
  Zor32f apart[40], y[40] = {}, phase = 1;
  ASSERT_EQ(zorsTriangle_Direct_32f(apart, 40, 2, 0.1f, 0.5f, &phase), zorStatusOk);
  y[3] = 1;
  ASSERT_EQ(zorsTriangle_Direct_32f(y, 40, 2, 0.1f, 0.5f, &y[3]), zorStatusOk);
  EXPECT_EQ(std::memcmp(y, apart, sizeof y), 0);
}
template <class T> void checkContract(const char* name, Triangle<T> function) {
  using M = Magnitude<T>;
  using F = Angle<T>;
  std::vector<T> dst(40);
  F phase = 1, negative = F(-0.1), turn = F(twoPi), far = 100;
  if (double(turn) < twoPi) turn = std::nextafter(turn, F(10));
  const F below = std::nextafter(F(-pi), F(-4)), atPi = std::max(F(pi), std::nextafter(F(pi), F(4)));
  kit::Contract contract(function, dst.data(), 40, M(5), F(0.1), F(0.3), &phase);
  contract.template null<5>().template bad<2>({M(0), M(-1)}, zorStatusBadTriangleMagnitude);
  if constexpr (std::is_floating_point_v<M>) contract.template bad<2>({M(NAN)}, zorStatusBadTriangleMagnitude);
  contract.template bad<3>({F(0.5), F(-1e-9), F(7)}, zorStatusBadTriangleFrequency)
      .template bad<4>({below, atPi, F(100)}, zorStatusBadTriangleAsym)
      .template bad<5>({&negative, &turn, &far}, zorStatusBadTrianglePhase)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(&phase, sizeof phase)
      .verify(name);
}
TEST(TriangleDirect, ThePhaseIsTestedFirstAndTheLengthLast) {
  checkContract<Zor16s>("zorsTriangle_Direct_16s", zorsTriangle_Direct_16s);
  checkContract<Zor16sc>("zorsTriangle_Direct_16sc", zorsTriangle_Direct_16sc);
  checkContract<Zor32f>("zorsTriangle_Direct_32f", zorsTriangle_Direct_32f);
  checkContract<Zor32fc>("zorsTriangle_Direct_32fc", zorsTriangle_Direct_32fc);
  checkContract<Zor64f>("zorsTriangle_Direct_64f", zorsTriangle_Direct_64f);
  checkContract<Zor64fc>("zorsTriangle_Direct_64fc", zorsTriangle_Direct_64fc);
}

// ---- Fixed-point arguments ----------------------------------------------------------------------

struct FixedArguments {
  Zor16s magnitude, rFreqQ15;
  Zor32u phaseQ15;
  Zor32s asymQ15;
};
const FixedArguments fixedArguments[] = {{32767, 16383, 205886, 0}, {1, 1, 0, 0},
                                         {32767, 0, 7, 99},         {32767, 8192, 0, 102943},
                                         {1000, 4096, 1, -7},       {20000, 12345, 102943, -102943},
                                         {32767, 33, 100, 50000},   {31000, 1500, 9, -90000}};

TEST(TriangleQ15, PiecesOfAnySizeGiveTheSamplesOfOneDirectCall) {
  kit::Random random(1);
  for (const auto& [magnitude, rFreq, phase, asym] : fixedArguments) {
    std::vector<Zor16s> wanted(100'000), real(wanted.size());
    ASSERT_EQ(zorsTriangleQ15_Direct_16s(wanted.data(), 100'000, magnitude, rFreq, phase, asym), zorStatusOk);
    auto from = Zor32f(phase) * 0x1p-15f;
    ASSERT_EQ(
        zorsTriangle_Direct_16s(real.data(), 100'000, magnitude, rFreq * 0x1p-15f, Zor32f(asym) * 0x1p-15f, &from),
        zorStatusOk);
    ASSERT_EQ(wanted, real);
    expectWave(wanted.data(), 1000, {double(magnitude), rFreq / 32768.0, asym / 32768.0, phase / 32768.0}, "Q15");
    const kit::Guarded<Zor8u> record(136, kit::Edge::end, std::size_t(rFreq % 3));
    auto* state = reinterpret_cast<ZorTriangleState*>(record.data());
    for (std::size_t most : std::initializer_list<std::size_t>{1, 7, 100, 2000, 100'000}) {
      ASSERT_EQ(zorsTriangleInitQ15_16s(state, magnitude, rFreq, phase, asym), zorStatusOk);
      std::vector<Zor16s> y(wanted.size());
      for (std::size_t at = 0; at < y.size();) {
        const std::size_t len = most == y.size() ? most : std::min(y.size() - at, 1 + random() % most);
        ASSERT_EQ(zorsTriangleQ15_16s(y.data() + at, Zor32s(len), state), zorStatusOk);
        at += len;
      }
      ASSERT_EQ(kit::firstDifference<Zor16s>(y, wanted), "") << rFreq << ", " << most;
    }
    ASSERT_TRUE(record.intact());
  }
}
TEST(TriangleQ15, ArgumentsOfDirectCallsAreTestedInOrder) {
  std::vector<Zor16s> dst(40);
  kit::Contract(zorsTriangleQ15_Direct_16s, dst.data(), 40, Zor16s{5}, Zor16s{7}, Zor32u{9}, Zor32s{11})
      .null<0>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .bad<2>({0, -1, INT16_MIN}, zorStatusBadTriangleMagnitude)
      .bad<3>({-1, 16384, INT16_MIN, INT16_MAX}, zorStatusBadTriangleFrequency)
      .bad<4>({205887, 0x80000000, UINT32_MAX}, zorStatusBadTrianglePhase)
      .bad<5>({-102944, 102944, INT32_MIN, INT32_MAX}, zorStatusBadTriangleAsym)
      .untouched(dst)
      .verify("zorsTriangleQ15_Direct_16s");
  for (Zor32s asym : {-102943, 102943})
    EXPECT_EQ(zorsTriangleQ15_Direct_16s(dst.data(), 40, 5, 7, 205886, asym), zorStatusOk);
}
TEST(TriangleQ15, RecordsAreBuiltAllocatedAndReleased) {
  Zor32s size = 0;
  EXPECT_EQ(zorsTriangleGetStateSizeQ15_16s(&size), zorStatusOk);
  EXPECT_EQ(size, 136);
  EXPECT_EQ(zorsTriangleGetStateSizeQ15_16s(nullptr), zorStatusNullPointer);
  std::vector<Zor8u> record(136, 0xAA);
  auto* state = reinterpret_cast<ZorTriangleState*>(record.data());
  kit::Contract(zorsTriangleInitQ15_16s, state, Zor16s{5}, Zor16s{7}, Zor32u{9}, Zor32s{11})
      .null<0>()
      .bad<1>({0, -1}, zorStatusBadTriangleMagnitude)
      .bad<2>({-1, 16384}, zorStatusBadTriangleFrequency)
      .bad<3>({205887, 0x80000000}, zorStatusBadTrianglePhase)
      .bad<4>({-102944, 102944}, zorStatusBadTriangleAsym)
      .untouched(record)
      .verify("zorsTriangleInitQ15_16s");
  ZorTriangleState* out = state;
  {
    const kit::ServicesScope services;
    kit::Contract(zorsTriangleInitAllocQ15_16s, &out, Zor16s{5}, Zor16s{7}, Zor32u{9}, Zor32s{11})
        .null<0>()
        .bad<1>({0, -1}, zorStatusBadTriangleMagnitude)
        .bad<2>({-1, 16384}, zorStatusBadTriangleFrequency)
        .bad<3>({205887, 0x80000000}, zorStatusBadTrianglePhase)
        .bad<4>({-102944, 102944}, zorStatusBadTriangleAsym)
        .untouched(&out, sizeof out)
        .verify("zorsTriangleInitAllocQ15_16s");
    EXPECT_EQ(services->allocations, 0);
  }
  EXPECT_EQ(kit::failEachAllocation(
                [&] {
                  out = state;
                  const auto status = zorsTriangleInitAllocQ15_16s(&out, 5, 7, 9, 11);
                  if (status == zorStatusOk) {
                    Zor16s y[9], z[9];
                    EXPECT_EQ(kit::services().lastSize, 136);
                    EXPECT_EQ(zorsTriangleQ15_16s(y, 9, out), zorStatusOk);
                    EXPECT_EQ(zorsTriangleQ15_Direct_16s(z, 9, 5, 7, 9, 11), zorStatusOk);
                    EXPECT_EQ(std::memcmp(y, z, sizeof y), 0);
                    EXPECT_EQ(zorsTriangleFree(out), zorStatusOk);
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
  ASSERT_EQ(zorsTriangleInitQ15_16s(state, 5, 7, 9, 11), zorStatusOk);
  const auto before = record;
  EXPECT_EQ(zorsTriangleFree(state), zorStatusOk);
  EXPECT_EQ(record, before);
  EXPECT_EQ(zorsTriangleFree(nullptr), zorStatusNullPointer);
  EXPECT_EQ(std::memcmp(record.data(), "IAMC", 4), 0);
  std::vector<Zor16s> dst(8);
  kit::Contract(zorsTriangleQ15_16s, dst.data(), 8, state)
      .null<0>()
      .null<2>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(record)
      .verify("zorsTriangleQ15_16s");
  record[0] ^= 1;  // a tone's tag
  const auto foreign = record;
  EXPECT_EQ(zorsTriangleQ15_16s(dst.data(), 0, state), zorStatusBadSize);
  EXPECT_EQ(zorsTriangleQ15_16s(dst.data(), 8, state), zorStatusBadContext);
  EXPECT_EQ(zorsTriangleFree(state), zorStatusBadContext);
  EXPECT_EQ(record, foreign);
  EXPECT_EQ(dst, std::vector<Zor16s>(8));
}

}  // namespace
