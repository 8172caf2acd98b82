#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"
#include "zors/adaptive.h"

namespace {

using kit::Edge;
using kit::Guarded;
using std::size_t;

constexpr Zor32f infinity = std::numeric_limits<Zor32f>::infinity();

template <class T> std::vector<T> samples(size_t count, kit::Random& random) {
  std::vector<T> x(count);
  if constexpr (std::is_integral_v<T>)
    for (T& v : x) v = T(random() >> 20);
  else
    x = kit::signal<T>(count, random);
  return x;
}
Zor16s rounded(long double x) { return Zor16s(std::rint(std::min(32767.0L, std::max(-32768.0L, x)))); }

// ---- Blocks -------------------------------------------------------------------------------------

template <class T> struct Block {
  static constexpr bool integers = std::is_integral_v<T>;
  static constexpr auto choose = [](auto wide, auto narrow) {
    if constexpr (integers)
      return narrow;
    else
      return wide;
  };
  static constexpr auto initAlloc = choose(zorsFIRLMSInitAlloc_32f, zorsFIRLMSInitAlloc32f_16s);
  static constexpr auto free = choose(zorsFIRLMSFree_32f, zorsFIRLMSFree32f_16s);
  static constexpr auto getTaps = choose(zorsFIRLMSGetTaps_32f, zorsFIRLMSGetTaps32f_16s);
  static constexpr auto getDly = choose(zorsFIRLMSGetDlyLine_32f, zorsFIRLMSGetDlyLine32f_16s);
  static constexpr auto setDly = choose(zorsFIRLMSSetDlyLine_32f, zorsFIRLMSSetDlyLine32f_16s);
  static constexpr auto run = choose(zorsFIRLMS_32f, zorsFIRLMS32f_16s);
};

// In extended precision; taps[0] meets the newest sample.
template <class T> struct Adapting {
  std::vector<long double> taps;
  std::vector<T> history;  // oldest first
  long double next(T x, T ref, long double mu) {
    const size_t n = taps.size();
    history.push_back(x);
    const T* newest = &history.back();
    long double y = 0;
    for (size_t k = 0; k < n; ++k) y += taps[k] * newest[-std::ptrdiff_t(k)];
    const long double gain = 2 * mu * (ref - y);
    for (size_t k = 0; k < n; ++k) taps[k] += gain * newest[-std::ptrdiff_t(k)];
    return y;
  }
};

template <class T> void checkBlocks() {
  kit::Random random(1);
  const long double scale = Block<T>::integers ? 32768 : 1;
  for (Zor32s n : {1, 2, 3, 7, 8, 9, 15, 16, 31, 33, 64, 100, 1500}) {
    const auto taps = kit::signal<Zor32f>(size_t(n), random);
    const auto ring = samples<T>(size_t(n), random);
    const Zor32s index = Zor32s(random() % size_t(n));
    const auto mu = Zor32f(0.02L / (n * scale * scale));
    ZorFIRLMSState* state = nullptr;
    ASSERT_EQ(Block<T>::initAlloc(&state, taps.data(), n, ring.data(), index), zorStatusOk);
    Adapting<T> model;
    model.taps.assign(taps.begin(), taps.end());
    for (Zor32s k = 0; k < n; ++k) model.history.push_back(ring[size_t((index + k) % n)]);
    std::vector<T> got(static_cast<size_t>(n));
    Zor32s gotIndex = -1;
    ASSERT_EQ(Block<T>::getDly(state, got.data(), &gotIndex), zorStatusOk);
    EXPECT_EQ(got, ring);
    EXPECT_EQ(gotIndex, index);
    for (int len : {1, 2, n - 1, n, n + 1, 5, 1023, 1024, 1025, 2100}) {
      if (len < 1 || (n > 1000 && len > 1100)) continue;
      const bool inPlace = len % 2 == 0;
      const Guarded<T> src(samples<T>(size_t(len), random), Edge::end),
          ref(samples<T>(size_t(len), random), Edge::begin), separate(static_cast<size_t>(len), Edge::end);
      const auto before = src.values(), wantedRef = ref.values();
      T* dst = !inPlace ? separate.data() : len % 4 == 0 ? src.data() : ref.data();
      ASSERT_EQ(Block<T>::run(src.data(), ref.data(), dst, len, mu, state), zorStatusOk);
      for (int i = 0; i < len; ++i) {
        const long double y = model.next(before[size_t(i)], wantedRef[size_t(i)], mu);
        if constexpr (Block<T>::integers)
          ASSERT_LE(std::abs(dst[i] - rounded(y)), 1 + n / 300) << n << " taps, " << len << " at " << i;
        else
          ASSERT_NEAR(dst[i], double(y), 2e-5 * std::max<double>(1, std::sqrt(n)))
              << n << " taps, " << len << " at " << i;
      }
      ASSERT_TRUE(src.intact() && ref.intact() && separate.intact());
      ASSERT_EQ(Block<T>::getDly(state, got.data(), &gotIndex), zorStatusOk);
      ASSERT_EQ(gotIndex, 0);
      ASSERT_EQ(got, std::vector<T>(model.history.end() - n, model.history.end())) << n << ", " << len;
      std::vector<Zor32f> gotTaps(static_cast<size_t>(n));
      ASSERT_EQ(Block<T>::getTaps(state, gotTaps.data()), zorStatusOk);
      for (size_t k = 0; k < gotTaps.size(); ++k)
        ASSERT_NEAR(gotTaps[k], double(model.taps[k]), 3e-5) << n << ", " << k;
    }
    EXPECT_EQ(Block<T>::free(state), zorStatusOk);
  }
}
TEST(Lms, AdaptsOverBlocksOfAnyLength) {
  checkBlocks<Zor32f>();
  checkBlocks<Zor16s>();
}

TEST(Lms, FindsTheEchoPath) {
  kit::Random random(2);
  const std::vector<Zor32f> path = {0.5f, -0.25f, 0, 0.125f, 0.3f};
  const auto src = kit::signal<Zor32f>(8000, random);
  std::vector<Zor32f> ref(src.size()), dst(src.size()), taps(5);
  for (size_t i = 0; i < src.size(); ++i)
    for (size_t k = 0; k < path.size() && k <= i; ++k) ref[i] += path[k] * src[i - k];
  ZorFIRLMSState* state = nullptr;
  ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, nullptr, 5, nullptr, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRLMS_32f(src.data(), ref.data(), dst.data(), 8000, 0.05f, state), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetTaps_32f(state, taps.data()), zorStatusOk);
  for (size_t k = 0; k < path.size(); ++k) EXPECT_NEAR(taps[k], path[k], 1e-5);
  EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
}

TEST(Lms, AStepOfZeroLeavesTheTapsAndStillFilters) {
  const Zor32f taps[3] = {1, 2, 3}, src[4] = {1, 0, 0, 0}, ref[4] = {9, 9, 9, 9};
  Zor32f dst[4], got[3];
  ZorFIRLMSState* state = nullptr;
  ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, taps, 3, nullptr, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRLMS_32f(src, ref, dst, 4, 0, state), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetTaps_32f(state, got), zorStatusOk);
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(dst[k], taps[k]);
    EXPECT_EQ(got[k], taps[k]);
  }
  EXPECT_EQ(dst[3], 0);
  EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
}

TEST(Lms, TheOldestSampleAndLaterOnesTakeNoPart) {
  for (Zor32s n : {3, 8, 13}) {
    std::vector<Zor32f> taps(size_t(n), 1), dly(size_t(n), 0), src(5, 1), ref(5, 0), dst(5);
    dly[2] = infinity;  // the oldest, at the index
    src[4] = infinity;
    ZorFIRLMSState* state = nullptr;
    ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, taps.data(), n, dly.data(), 2), zorStatusOk);
    ASSERT_EQ(zorsFIRLMS_32f(src.data(), ref.data(), dst.data(), 5, 0.01f, state), zorStatusOk);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(std::isfinite(dst[size_t(i)])) << n << ", " << i;
    EXPECT_FALSE(std::isfinite(dst[4]));
    EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
  }
}

TEST(Lms, TheStepIsDoubledOnceInSinglePrecision) {
  ZorFIRLMSState* state = nullptr;
  const Zor32f tap = 0, src = 1, ref = 1e-30f;
  Zor32f dst, got;
  ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, &tap, 1, nullptr, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRLMS_32f(&src, &ref, &dst, 1, 2e38f, state), zorStatusOk);  // doubled it is infinite
  ASSERT_EQ(zorsFIRLMSGetTaps_32f(state, &got), zorStatusOk);
  EXPECT_EQ(got, infinity);
  EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
}

TEST(Lms, SixteenBitResultsSaturateAndTheErrorHasTheSumAsItWas) {
  ZorFIRLMSState* state = nullptr;
  const Zor32f tap = 1e6f;
  const Zor16s src[2] = {10000, 1}, ref[2] = {0, 0};
  Zor16s dst[2];
  ASSERT_EQ(zorsFIRLMSInitAlloc32f_16s(&state, &tap, 1, nullptr, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRLMS32f_16s(src, ref, dst, 1, 1e-9f, state), zorStatusOk);
  EXPECT_EQ(dst[0], 32767);  // of 1e10
  Zor32f got;
  ASSERT_EQ(zorsFIRLMSGetTaps32f_16s(state, &got), zorStatusOk);
  EXPECT_FLOAT_EQ(got, 1e6f - 2e-9f * 1e10f * 1e4f);
  EXPECT_EQ(zorsFIRLMSFree32f_16s(state), zorStatusOk);
  const Zor32f half = 0.5f;
  ASSERT_EQ(zorsFIRLMSInitAlloc32f_16s(&state, &half, 1, nullptr, 0), zorStatusOk);
  const Zor16s ties[2] = {1, 3};
  ASSERT_EQ(zorsFIRLMS32f_16s(ties, ref, dst, 2, 0, state), zorStatusOk);
  EXPECT_EQ(dst[0], 0);
  EXPECT_EQ(dst[1], 2);
  EXPECT_EQ(zorsFIRLMSFree32f_16s(state), zorStatusOk);
}

TEST(Lms, SettingTheDelayLineStoresTheIndexAlsoForZeros) {
  ZorFIRLMSState* state = nullptr;
  const Zor32f dly[4] = {1, 2, 3, 4};
  Zor32f got[4];
  Zor32s index;
  ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, nullptr, 4, nullptr, 3), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSSetDlyLine_32f(state, dly, 2), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetDlyLine_32f(state, got, &index), zorStatusOk);
  EXPECT_EQ(index, 2);
  for (int k = 0; k < 4; ++k) EXPECT_EQ(got[k], dly[k]);
  ASSERT_EQ(zorsFIRLMSSetDlyLine_32f(state, nullptr, 1), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetDlyLine_32f(state, got, &index), zorStatusOk);
  EXPECT_EQ(index, 1);
  for (Zor32f x : got) EXPECT_EQ(x, 0);
  // An index outside the ring is kept, and reads nothing outside.
  for (Zor32s bad : {4, -1, INT32_MAX, INT32_MIN}) {
    ASSERT_EQ(zorsFIRLMSSetDlyLine_32f(state, dly, bad), zorStatusOk);
    ASSERT_EQ(zorsFIRLMSGetDlyLine_32f(state, got, &index), zorStatusOk);
    EXPECT_EQ(index, bad);
    Zor32f y;
    EXPECT_EQ(zorsFIRLMS_32f(dly, dly, &y, 1, 0, state), zorStatusOk);
  }
  EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
}

// ---- One sample ---------------------------------------------------------------------------------

template <class T> void checkOne(ZorStatus (*one)(T, T, T*, Zor32f*, Zor32s, Zor32f, T*, Zor32s*)) {
  kit::Random random(3);
  const Zor32f scale = std::is_integral_v<T> ? 32768 : 1;
  for (Zor32s n = 1; n <= 70; ++n) {
    const Guarded<Zor32f> taps(kit::signal<Zor32f>(size_t(n), random), n % 2 ? Edge::end : Edge::begin);
    const Guarded<T> dly(samples<T>(2 * size_t(n), random), Edge::end);
    std::copy_n(dly.data(), n, dly.data() + n);
    Zor32s index = n / 2;
    for (int i = 0; i < 3 * n; ++i) {
      const T x = samples<T>(1, random)[0], ref = samples<T>(1, random)[0];
      auto wantedDly = dly.values();
      std::vector<long double> wantedTaps(taps.data(), taps.data() + n);
      wantedDly[size_t(index)] = wantedDly[size_t(index + n)] = x;
      const Zor32s next = (index + 1) % n;
      long double y = 0, mass = 0;
      for (Zor32s k = 0; k < n; ++k) {
        y += wantedTaps[size_t(k)] * wantedDly[size_t(next + k)];
        mass += std::fabs(wantedTaps[size_t(k)] * wantedDly[size_t(next + k)]);
      }
      const Zor32f mu = 0.1f / (Zor32f(n) * scale * scale);
      T dst{};
      ASSERT_EQ(one(x, ref, &dst, taps.data(), n, mu, dly.data(), &index), zorStatusOk);
      ASSERT_EQ(index, next);
      ASSERT_EQ(kit::firstDifference<T>(dly.span(), wantedDly), "");
      if constexpr (std::is_integral_v<T>)
        ASSERT_LE(std::fabs(dst - std::min(32767.0L, std::max(-32768.0L, y))), 0.5L + mass * 1e-6L);
      else
        ASSERT_NEAR(dst, double(y), double(mass) * 1e-6);
      for (Zor32s k = 0; k < n; ++k)
        ASSERT_NEAR(taps[size_t(k)],
                    double(wantedTaps[size_t(k)] + 2 * (long double)mu * (ref - y) * wantedDly[size_t(next + k)]),
                    1e-5);
      ASSERT_TRUE(taps.intact() && dly.intact());
    }
  }
}
TEST(LmsOne, TapsStandInTheOrderOfTheWindow) {
  checkOne<Zor32f>(zorsFIRLMSOne_Direct_32f);
  checkOne<Zor16s>(zorsFIRLMSOne_Direct32f_16s);
  Zor32f taps[2] = {1, 10}, dly[4] = {7, 0, 7, 0}, dst;
  Zor32s index = 1;
  ASSERT_EQ(zorsFIRLMSOne_Direct_32f(2, 0, &dst, taps, 2, 0, dly, &index), zorStatusOk);
  EXPECT_EQ(dst, 27);  // the oldest sample times the first tap
}

TEST(LmsOne, TheNormalisedFormDividesByTheEnergyOfTheWindow) {
  kit::Random random(4);
  for (Zor32s n : {1, 2, 3, 7, 8, 15, 16, 17, 31, 100, 127, 128, 129, 200})
    for (int round = 0; round < 30; ++round) {
      std::vector<Zor32s> start(static_cast<size_t>(n));
      for (auto& t : start) t = round % 3 == 0 ? kit::anyValue<Zor32s>(random) : Zor32s(random() % 65536) - 32768;
      const Guarded<Zor32s> taps(start, round % 2 ? Edge::end : Edge::begin);
      const Guarded<Zor16s> dly(samples<Zor16s>(2 * size_t(n), random), Edge::end);
      std::copy_n(dly.data(), n, dly.data() + n);
      Zor32s index = Zor32s(random() % size_t(n));
      const auto x = Zor16s(random()), ref = Zor16s(random());
      const Zor32s mu = round % 5 == 0 ? kit::anyValue<Zor32s>(random) : Zor32s(random() % 32768);
      std::vector<Zor16s> window = dly.values();
      window[size_t(index)] = window[size_t(index + n)] = x;
      const Zor32s next = (index + 1) % n;
      double s = 0, p = 0;  // exact for these sizes, or nearly
      for (Zor32s k = 0; k < n; ++k) {
        const double w = window[size_t(next + k)];
        s += w * start[size_t(k)], p += w * w;
      }
      Zor16s dst = 77;
      ASSERT_EQ(zorsFIRLMSOne_DirectQ15_16s(x, ref, &dst, taps.data(), n, mu, dly.data(), &index), zorStatusOk);
      ASSERT_EQ(index, next);
      if (p == 0) {
        EXPECT_EQ(dst, 77);
        continue;
      }
      const double y = s * 0x1p-15, g = mu * (ref - y) / p;
      ASSERT_LE(std::abs(dst - rounded(y)), std::fabs(y) < 40000 && n > 128 ? 1 : 0);
      for (Zor32s k = 0; k < n; ++k) {
        const double moved = start[size_t(k)] + window[size_t(next + k)] * g;
        const double wanted = std::rint(std::max(-2147483648.0, std::min(2147483647.0, moved)));
        ASSERT_LE(std::fabs(taps[size_t(k)] - wanted), std::fabs(moved) * 1e-13 > 1e-6 ? 1 : 0) << n << ", " << k;
      }
      ASSERT_TRUE(taps.intact() && dly.intact());
    }
}
TEST(LmsOne, AWindowOfZerosWritesNothingAndLeavesTheTaps) {
  Zor32s taps[2] = {5, 6}, index = 0;
  Zor16s dly[4] = {}, dst = 9;
  EXPECT_EQ(zorsFIRLMSOne_DirectQ15_16s(0, 100, &dst, taps, 2, 32767, dly, &index), zorStatusOk);
  EXPECT_EQ(dst, 9);
  EXPECT_EQ(taps[0], 5);
  EXPECT_EQ(taps[1], 6);
  EXPECT_EQ(index, 1);
}

// ---- Integer, multi-rate ------------------------------------------------------------------------

Zor32s wrap(Zor64s x) { return Zor32s(Zor32u(Zor64u(x))); }
Zor32s quantised(Zor32s mu, Zor32s err) {
  return wrap(Zor64s(wrap(Zor64s(Zor64u(Zor64s(mu)) * Zor64u(Zor64s(err))))) + 16384) >> 15;
}

struct RealForm {
  using Tap = Zor32s;
  using Sample = Zor16s;
  static constexpr auto initAlloc = zorsFIRLMSMRInitAlloc32s_16s;
  static constexpr auto free = zorsFIRLMSMRFree32s_16s;
  static constexpr auto setMu = zorsFIRLMSMRSetMu32s_16s;
  static constexpr auto setTaps = zorsFIRLMSMRSetTaps32s_16s;
  static constexpr auto getTaps = zorsFIRLMSMRGetTaps32s_16s;
  static constexpr auto getTapsPointer = zorsFIRLMSMRGetTapsPointer32s_16s;
  static constexpr auto setDly = zorsFIRLMSMRSetDlyLine32s_16s;
  static constexpr auto getDly = zorsFIRLMSMRGetDlyLine32s_16s;
  static constexpr auto getVal = zorsFIRLMSMRGetDlyVal32s_16s;
  static constexpr auto put = zorsFIRLMSMRPutVal32s_16s;
  static constexpr auto one = zorsFIRLMSMROne32s_16s;
  static constexpr auto oneVal = zorsFIRLMSMROneVal32s_16s;
  static constexpr auto update = zorsFIRLMSMRUpdateTaps32s_16s;
  static Tap add(Tap sum, Tap t, Sample x) { return wrap(sum + Zor64s(wrap(Zor64s(t) * x))); }
  static Tap move(Tap t, Tap e, Sample x) { return add(t, e, x); }
  static Tap error(Zor32s mu, Tap err) { return quantised(mu, err); }
};
struct PairForm {
  using Tap = Zor32sc;
  using Sample = Zor16sc;
  static constexpr auto initAlloc = zorsFIRLMSMRInitAlloc32sc_16sc;
  static constexpr auto free = zorsFIRLMSMRFree32sc_16sc;
  static constexpr auto setMu = zorsFIRLMSMRSetMu32sc_16sc;
  static constexpr auto setTaps = zorsFIRLMSMRSetTaps32sc_16sc;
  static constexpr auto getTaps = zorsFIRLMSMRGetTaps32sc_16sc;
  static constexpr auto getTapsPointer = zorsFIRLMSMRGetTapsPointer32sc_16sc;
  static constexpr auto setDly = zorsFIRLMSMRSetDlyLine32sc_16sc;
  static constexpr auto getDly = zorsFIRLMSMRGetDlyLine32sc_16sc;
  static constexpr auto getVal = zorsFIRLMSMRGetDlyVal32sc_16sc;
  static constexpr auto put = zorsFIRLMSMRPutVal32sc_16sc;
  static constexpr auto one = zorsFIRLMSMROne32sc_16sc;
  static constexpr auto oneVal = zorsFIRLMSMROneVal32sc_16sc;
  static constexpr auto update = zorsFIRLMSMRUpdateTaps32sc_16sc;
  static Tap add(Tap sum, Tap t, Sample x) {
    return {wrap(sum.re + Zor64s(t.re) * x.re - Zor64s(t.im) * x.im),
            wrap(sum.im + Zor64s(t.re) * x.im + Zor64s(t.im) * x.re)};
  }
  static Tap move(Tap t, Tap e, Sample x) {  // by the conjugate sample
    return {wrap(t.re + Zor64s(x.re) * e.re + Zor64s(x.im) * e.im),
            wrap(t.im + Zor64s(x.re) * e.im - Zor64s(x.im) * e.re)};
  }
  static Tap error(Zor32s mu, Tap err) { return {quantised(mu, err.re), quantised(mu, err.im)}; }
};

template <class Form> void checkMultiRate() {
  using Tap = typename Form::Tap;
  using Sample = typename Form::Sample;
  kit::Random random(5);
  for (Zor32s n : {1, 2, 7, 8, 16, 33})
    for (Zor32s step : {1, 2, 5})
      for (Zor32s delay : {0, 1, 4}) {
        const Zor32s len = n * step + delay;
        auto forward = kit::anyValues<Tap>(size_t(n), random);
        const auto ring = kit::anyValues<Sample>(size_t(len), random);
        const Zor32s index = Zor32s(random() % size_t(len));
        Zor32s mu = kit::anyValue<Zor32s>(random);
        ZorFIRLMSMRState* state = nullptr;
        ASSERT_EQ(Form::initAlloc(&state, forward.data(), n, ring.data(), index, step, delay, mu), zorStatusOk);
        std::vector<Sample> line;  // oldest first
        for (Zor32s k = 0; k < len; ++k) line.push_back(ring[size_t((index + k) % len)]);
        std::vector<Tap> stored(forward.rbegin(), forward.rend());
        const auto expected = [&] {
          Tap sum{};
          for (Zor32s k = 0; k < n; ++k)
            sum = Form::add(sum, stored[size_t(k)], line[line.size() - 1 - size_t(k * step)]);
          return sum;
        };
        for (int i = 0; i < 2 * len + 3; ++i) {
          const Sample x = kit::anyValue<Sample>(random);
          Tap got{};
          if (i % 3 == 0) {
            ASSERT_EQ(Form::put(x, state), zorStatusOk);
            line.push_back(x);
            ASSERT_EQ(Form::one(&got, state), zorStatusOk);
          } else {
            ASSERT_EQ(Form::oneVal(x, &got, state), zorStatusOk);
            line.push_back(x);
          }
          ASSERT_TRUE(kit::sameBits(got, expected())) << n << ", " << step << ", " << delay << ", " << i;
          for (Zor32s at = 0; at < step; ++at) {
            Sample val{};
            ASSERT_EQ(Form::getVal(state, &val, at), zorStatusOk);
            const Sample wanted = at == 0 ? line.back() : line[line.size() - size_t(len) + size_t(at - 1)];
            ASSERT_TRUE(kit::sameBits(val, wanted));
          }
          if (i % 2 == 0) {
            if (i % 4 == 0) {
              ASSERT_EQ(Form::setMu(state, mu = i % 8 == 0 ? 32768 : kit::anyValue<Zor32s>(random)), zorStatusOk);
            }
            const Tap err = kit::anyValue<Tap>(random), e = Form::error(mu, err);
            ASSERT_EQ(Form::update(err, state), zorStatusOk);
            for (Zor32s k = 0; k < n; ++k)
              stored[size_t(k)] = Form::move(stored[size_t(k)], e, line[line.size() - 1 - size_t(delay + k * step)]);
            std::vector<Tap> taps(static_cast<size_t>(n));
            ASSERT_EQ(Form::getTaps(state, taps.data()), zorStatusOk);
            ASSERT_EQ(kit::firstDifference<Tap>(taps, std::vector<Tap>(stored.rbegin(), stored.rend())), "");
          }
        }
        // The ring and its index; the live taps; new ones.
        std::vector<Sample> got(static_cast<size_t>(len));
        Zor32s gotIndex = -1;
        ASSERT_EQ(Form::getDly(state, got.data(), &gotIndex), zorStatusOk);
        for (Zor32s k = 0; k < len; ++k)
          ASSERT_TRUE(kit::sameBits(got[size_t((gotIndex + k) % len)], line[line.size() - size_t(len) + size_t(k)]));
        Tap* live = nullptr;
        ASSERT_EQ(Form::getTapsPointer(state, &live), zorStatusOk);
        live[0] = stored[0] = kit::anyValue<Tap>(random);
        Tap result{};
        ASSERT_EQ(Form::one(&result, state), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(result, expected()));
        ASSERT_EQ(Form::setTaps(state, nullptr), zorStatusOk);
        ASSERT_EQ(Form::one(&result, state), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(result, Tap{}));
        ASSERT_EQ(Form::setTaps(state, forward.data()), zorStatusOk);
        ASSERT_EQ(Form::setDly(state, nullptr, len - 1), zorStatusOk);
        ASSERT_EQ(Form::one(&result, state), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(result, Tap{}));
        ASSERT_EQ(Form::getDly(state, got.data(), &gotIndex), zorStatusOk);
        ASSERT_EQ(gotIndex, len - 1);
        for (Zor32s bad : {len, -1, INT32_MAX, INT32_MIN}) {  // kept, and reads nothing outside
          Sample val;
          ASSERT_EQ(Form::setDly(state, ring.data(), bad), zorStatusOk);
          ASSERT_EQ(Form::getVal(state, &val, 0), zorStatusOk);
          ASSERT_EQ(Form::one(&result, state), zorStatusOk);
          ASSERT_EQ(Form::update(Tap{}, state), zorStatusOk);
          ASSERT_EQ(Form::put(Sample{}, state), zorStatusOk);
        }
        ASSERT_EQ(Form::free(state), zorStatusOk);
      }
}
TEST(LmsMultiRate, OutputFeedAndUpdateAreCallsOfTheirOwn) {
  checkMultiRate<RealForm>();
  checkMultiRate<PairForm>();
}
TEST(LmsMultiRate, TheStepRoundsTiesUp) {
  for (auto [err, moved] : {std::pair{-16385, -1}, {-16384, 0}, {16383, 0}, {16384, 1}}) {
    ZorFIRLMSMRState* state = nullptr;
    const Zor16s dly = 1;
    ASSERT_EQ(zorsFIRLMSMRInitAlloc32s_16s(&state, nullptr, 1, &dly, 0, 1, 0, 1), zorStatusOk);
    ASSERT_EQ(zorsFIRLMSMRUpdateTaps32s_16s(err, state), zorStatusOk);
    Zor32s tap;
    ASSERT_EQ(zorsFIRLMSMRGetTaps32s_16s(state, &tap), zorStatusOk);
    EXPECT_EQ(tap, moved) << err;
    EXPECT_EQ(zorsFIRLMSMRFree32s_16s(state), zorStatusOk);
  }
}

// ---- Contracts ----------------------------------------------------------------------------------

template <class T> void checkBlockContract(const char* initAlloc, const char* run) {
  static const Zor32f taps[4] = {1, 2, 3, 4};
  static T dly[4], src[4], ref[4], dst[4];
  ZorFIRLMSState* state = nullptr;
  kit::Contract(Block<T>::initAlloc, &state, taps, 4, dly, 0)
      .template null<0>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&state, sizeof state)
      .verify(initAlloc);
  EXPECT_EQ(Block<T>::initAlloc(&state, nullptr, INT32_MAX, nullptr, 0), zorStatusNoMemory);
  kit::failEachAllocation([&] { return Block<T>::initAlloc(&state, taps, 4, dly, 0); },
                          [&](int n, ZorStatus status) {
                            EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
                            if (n >= 0) {
                              EXPECT_EQ(state, nullptr);
                              EXPECT_EQ(kit::services().live, 0);
                            }
                          });
  kit::Contract(Block<T>::run, static_cast<const T*>(src), static_cast<const T*>(ref), dst, 4, 0.5f, state)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template null<5>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst, sizeof dst)
      .verify(run);
  Zor32s index;
  Zor32f got[4];
  EXPECT_EQ(Block<T>::getTaps(nullptr, got), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::getTaps(state, nullptr), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::getDly(nullptr, dly, &index), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::getDly(state, nullptr, &index), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::getDly(state, dly, nullptr), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::setDly(nullptr, dly, 0), zorStatusNullPointer);
  EXPECT_EQ(Block<T>::free(nullptr), zorStatusNullPointer);
  // A state of the other kind.
  using Other = std::conditional_t<std::is_integral_v<T>, Zor32f, Zor16s>;
  static Other otherData[4];
  EXPECT_EQ(Block<Other>::run(otherData, otherData, otherData, 4, 0, state), zorStatusBadContext);
  EXPECT_EQ(Block<Other>::run(otherData, otherData, otherData, 0, 0, state), zorStatusBadSize);
  EXPECT_EQ(Block<Other>::getTaps(state, got), zorStatusBadContext);
  EXPECT_EQ(Block<Other>::getDly(state, otherData, &index), zorStatusBadContext);
  EXPECT_EQ(Block<Other>::setDly(state, otherData, 0), zorStatusBadContext);
  EXPECT_EQ(Block<Other>::free(state), zorStatusBadContext);
  EXPECT_EQ(Block<T>::free(state), zorStatusOk);
}
template <class Tap, class T, class Mu>
void checkOneContract(const char* name, ZorStatus (*one)(T, T, T*, Tap*, Zor32s, Mu, T*, Zor32s*)) {
  static Tap taps[4] = {1, 2, 3, 4};
  static T dly[8] = {5, 6, 7}, dst;
  static Zor32s index = 1, badIndex[] = {4, -1, INT32_MAX, INT32_MIN};
  dst = 3;
  kit::Contract(one, T(1), T(2), &dst, taps, 4, Mu(1), dly, &index)
      .template null<2>()
      .template null<3>()
      .template null<6>()
      .template null<7>()
      .template bad<4>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<7>({&badIndex[0], &badIndex[1], &badIndex[2], &badIndex[3]}, zorStatusBadDelayIndex)
      .untouched(&dst, sizeof dst)
      .untouched(taps, sizeof taps)
      .untouched(dly, sizeof dly)
      .untouched(&index, sizeof index)
      .verify(name);
}
template <class Form, class Other> void checkMultiRateContract(const char* name) {
  using Tap = typename Form::Tap;
  using Sample = typename Form::Sample;
  static const Tap taps[3] = {};
  static const Sample dly[7] = {};
  ZorFIRLMSMRState* state = nullptr;
  kit::Contract(Form::initAlloc, &state, taps, 3, dly, 0, 2, 1, 100)
      .template null<0>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<5>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<4>({7, -1, INT32_MAX, INT32_MIN}, zorStatusBadSize)
      .untouched(&state, sizeof state)
      .verify(name);
  EXPECT_EQ(Form::initAlloc(&state, taps, INT32_MAX, nullptr, 0, INT32_MAX, INT32_MAX, 0), zorStatusNoMemory);
  EXPECT_EQ(Form::initAlloc(&state, taps, 3, dly, 0, 2, -1, 0), zorStatusBadSize);
  const int allocations = kit::failEachAllocation([&] { return Form::initAlloc(&state, taps, 3, dly, 0, 2, 1, 100); },
                                                  [&](int n, ZorStatus status) {
                                                    EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
                                                    if (n >= 0) {
                                                      EXPECT_EQ(state, nullptr);
                                                      EXPECT_EQ(kit::services().live, 0);
                                                    }
                                                  });
  EXPECT_EQ(allocations, 3);
  Sample sample{};
  Zor32s index = 5;
  const auto everyCall = [&](ZorFIRLMSMRState* s, ZorStatus wanted, auto form) {
    using F = decltype(form);
    typename F::Tap t{}, *pointer = nullptr;
    typename F::Sample x{};
    EXPECT_EQ(F::setMu(s, 1), wanted);
    EXPECT_EQ(F::setTaps(s, nullptr), wanted);
    EXPECT_EQ(F::getTaps(s, &t), wanted);
    EXPECT_EQ(F::getTapsPointer(s, &pointer), wanted);
    EXPECT_EQ(F::setDly(s, nullptr, 0), wanted);
    EXPECT_EQ(F::getDly(s, &x, &index), wanted);
    EXPECT_EQ(F::getVal(s, &x, -1), wanted);
    EXPECT_EQ(F::put(x, s), wanted);
    EXPECT_EQ(F::one(&t, s), wanted);
    EXPECT_EQ(F::oneVal(x, &t, s), wanted);
    EXPECT_EQ(F::update(t, s), wanted);
    EXPECT_EQ(F::free(s), wanted);
  };
  everyCall(nullptr, zorStatusNullPointer, Form{});
  everyCall(state, zorStatusBadContext, Other{});
  EXPECT_EQ(Form::getTaps(state, nullptr), zorStatusNullPointer);
  EXPECT_EQ(Form::getTapsPointer(state, nullptr), zorStatusNullPointer);
  EXPECT_EQ(Form::getDly(state, nullptr, &index), zorStatusNullPointer);
  EXPECT_EQ(Form::getDly(state, &sample, nullptr), zorStatusNullPointer);
  EXPECT_EQ(Form::getVal(state, nullptr, 0), zorStatusNullPointer);
  EXPECT_EQ(Form::one(nullptr, state), zorStatusNullPointer);
  EXPECT_EQ(Form::oneVal(sample, nullptr, state), zorStatusNullPointer);
  for (Zor32s bad : {2, -1, INT32_MAX, INT32_MIN}) EXPECT_EQ(Form::getVal(state, &sample, bad), zorStatusBadArgument);
  EXPECT_EQ(Form::getVal(state, &sample, 1), zorStatusOk);
  EXPECT_EQ(index, 5);
  kit::ServicesScope services;
  EXPECT_EQ(Form::free(state), zorStatusOk);
  EXPECT_EQ(services.leaked(), -3);
}

TEST(Lms, ChecksItsArgumentsInOrder) {
  checkBlockContract<Zor32f>("zorsFIRLMSInitAlloc_32f", "zorsFIRLMS_32f");
  checkBlockContract<Zor16s>("zorsFIRLMSInitAlloc32f_16s", "zorsFIRLMS32f_16s");
  checkOneContract("zorsFIRLMSOne_Direct_32f", zorsFIRLMSOne_Direct_32f);
  checkOneContract("zorsFIRLMSOne_Direct32f_16s", zorsFIRLMSOne_Direct32f_16s);
  checkOneContract("zorsFIRLMSOne_DirectQ15_16s", zorsFIRLMSOne_DirectQ15_16s);
  checkMultiRateContract<RealForm, PairForm>("zorsFIRLMSMRInitAlloc32s_16s");
  checkMultiRateContract<PairForm, RealForm>("zorsFIRLMSMRInitAlloc32sc_16sc");
}
TEST(Lms, ANullTapsOrDelayLineIsZeros) {
  ZorFIRLMSState* state = nullptr;
  Zor32f taps[3] = {1, 1, 1}, dly[3] = {1, 1, 1};
  Zor32s index = 9;
  ASSERT_EQ(zorsFIRLMSInitAlloc_32f(&state, nullptr, 3, nullptr, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetTaps_32f(state, taps), zorStatusOk);
  ASSERT_EQ(zorsFIRLMSGetDlyLine_32f(state, dly, &index), zorStatusOk);
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(taps[k], 0);
    EXPECT_EQ(dly[k], 0);
  }
  EXPECT_EQ(zorsFIRLMSFree_32f(state), zorStatusOk);
}

}  // namespace
