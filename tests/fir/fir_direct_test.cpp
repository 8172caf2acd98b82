// The stateless FIR forms of every type, against sums in long double or in 32-bit integers that wrap.
#include <gtest/gtest.h>

#include <algorithm>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"
#include "zors/fir.h"

namespace {

using kit::Edge;
using kit::Guarded;

struct Wide {
  long double re = 0, im = 0;
};
template <class T> Wide wide(T x) {
  if constexpr (kit::ComplexPair<T>)
    return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
  else
    return {static_cast<long double>(x), 0};
}
template <class T> std::vector<T> some(std::size_t n, kit::Random& random, double integerScale) {
  std::vector<T> out(n);
  const auto part = [&]<class P>(P) -> P {
    const double x = double(std::int64_t(random() % 4001) - 2000) / 2000;
    if constexpr (std::is_integral_v<P>)
      return P(x * integerScale);
    else
      return P(x);
  };
  for (T& x : out) {
    if constexpr (kit::ComplexPair<T>)
      x = {part(x.re), part(x.im)};
    else
      x = part(x);
  }
  return out;
}

constexpr Zor32s scale = 2, tapsFactor = -4;

// One result part within rounding of the exact sum: floats by their precision, integers to nearest.
template <class P> void expectPart(P got, long double y, long double error, const std::string& what) {
  if constexpr (std::is_integral_v<P>) {
    const long double limited = std::clamp(y / (1 << scale), static_cast<long double>(std::numeric_limits<P>::min()),
                                           static_cast<long double>(std::numeric_limits<P>::max()));
    ASSERT_LE(std::fabs(got - limited), 0.5L + error) << what;
  } else {
    ASSERT_LE(std::fabs(got - y), error + std::fabs(y) * (sizeof(P) == 4 ? 0x1p-24L : 0x1p-53L)) << what;
  }
}
Zor16s wrapped(long double y, Zor32s shift) {
  const auto acc = static_cast<Zor32s>(static_cast<Zor32u>(static_cast<__int128>(y)));
  Zor64s r = shift > 0 ? static_cast<Zor32s>(static_cast<Zor32u>(acc) << shift) : acc;
  if (shift < 0) r = (r + ((Zor64s{1} << (-shift - 1)) - 1) + ((r >> -shift) & 1)) >> -shift;
  return Zor16s(std::clamp<Zor64s>(r, -32768, 32767));
}

// block, blockI, one, oneI as calls without scale and factor; shift: of integer sums, 99 for float ones.
template <class Tap, class T, class Block, class BlockI, class One, class OneI>
void ring(const char* name, Block block, BlockI blockI, One one, OneI oneI, long double eps, bool byState,
          Zor32s shift = 99) {
  kit::Random random(3);
  for (int n : {1, 2, 3, 7, 8, 15, 16, 17, 31, 32, 33, 40, 70})
    for (int len : {1, 2, 5, 8, 16, 33, 100, 300}) {
      const auto taps = some<Tap>(std::size_t(n), random, 900);
      const auto x = some<T>(std::size_t(len), random, 20000);
      const std::string what =
          std::string(name) + ", " + std::to_string(n) + " taps, " + std::to_string(len) + " samples";
      for (Edge edge : kit::bothEdges) {
        const Guarded<Tap> t(taps, edge);
        const Guarded<T> src(x, edge), dst(x.size(), edge), both(x, edge), dly(std::vector<T>(2 * taps.size()), edge),
            dly2(std::vector<T>(2 * taps.size()), edge), dly3(std::vector<T>(2 * taps.size()), edge);
        Zor32s index = 0, index2 = 0, index3 = 0;
        ASSERT_EQ(block(src.data(), dst.data(), len, t.data(), n, dly.data(), &index), zorStatusOk) << what;
        ASSERT_EQ(blockI(both.data(), len, t.data(), n, dly2.data(), &index2), zorStatusOk) << what;
        for (int i = 0; i < len; ++i) {
          Wide y;
          long double weight = 0;
          for (int k = 0; k < n && k <= i; ++k) {
            const Wide a = wide(taps[std::size_t(k)]), b = wide(x[std::size_t(i - k)]);
            y.re += a.re * b.re - a.im * b.im;
            y.im += a.re * b.im + a.im * b.re;
            weight += (std::fabs(a.re) + std::fabs(a.im)) * (std::fabs(b.re) + std::fabs(b.im));
          }
          const auto at = std::size_t(i);
          const long double error = (n + 4) * eps * weight + (byState ? 64 * eps * 4 * n : 0);
          T single = x[at], singleInPlace = x[at];
          auto line = dly3.values();
          Zor32s lineIndex = index3;
          ASSERT_EQ(oneI(&singleInPlace, t.data(), n, line.data(), &lineIndex), zorStatusOk);
          ASSERT_EQ(one(x[at], &single, t.data(), n, dly3.data(), &index3), zorStatusOk);
          ASSERT_TRUE(kit::sameBits(single, singleInPlace)) << what;
          for (T got : {dst[at], both[at], single}) {
            if (shift != 99) {
              if constexpr (kit::ComplexPair<T>) {
                ASSERT_EQ(Zor16s(got.re), wrapped(y.re, shift)) << what;
                ASSERT_EQ(Zor16s(got.im), wrapped(y.im, shift)) << what;
              } else {
                ASSERT_EQ(Zor16s(got), wrapped(y.re, shift)) << what << " " << i;
              }
            } else if constexpr (kit::ComplexPair<T>) {
              expectPart(got.re, y.re, error, what);
              expectPart(got.im, y.im, error, what);
            } else {
              expectPart(got, y.re, error, what);
            }
            if (testing::Test::HasFatalFailure()) return;
          }
        }
        ASSERT_TRUE(dst.intact() && both.intact() && dly.intact() && dly2.intact() && dly3.intact()) << what;
        // The line goes on: one more sample by the one-sample form gives the same from either history.
        T a = x[0], b = x[0];
        ASSERT_EQ(one(x[0], &a, t.data(), n, dly.data(), &index), zorStatusOk);
        ASSERT_EQ(one(x[0], &b, t.data(), n, dly3.data(), &index3), zorStatusOk);
        ASSERT_TRUE(kit::sameBits(a, b)) << what << ": history";
      }
    }
}

#define SCALED(FIR, FIR_I, ONE, ONE_I, Tap, T, eps)                                                                   \
  ring<Tap, T>(                                                                                                       \
      #FIR ", " #FIR_I ", " #ONE ", " #ONE_I,                                                                         \
      [](const T* s, T* d, Zor32s len, const Tap* t, Zor32s n, T* dly, Zor32s* i) {                                   \
        return FIR(s, d, len, t, n, dly, i, scale);                                                                   \
      },                                                                                                              \
      [](T* d, Zor32s len, const Tap* t, Zor32s n, T* dly, Zor32s* i) { return FIR_I(d, len, t, n, dly, i, scale); }, \
      [](T v, T* d, const Tap* t, Zor32s n, T* dly, Zor32s* i) { return ONE(v, d, t, n, dly, i, scale); },            \
      [](T* d, const Tap* t, Zor32s n, T* dly, Zor32s* i) { return ONE_I(d, t, n, dly, i, scale); }, eps, false)
#define FACTOR(FIR, FIR_I, ONE, ONE_I, Tap, T)                                                                         \
  ring<Tap, T>(                                                                                                        \
      #FIR ", " #FIR_I ", " #ONE ", " #ONE_I,                                                                          \
      [](const T* s, T* d, Zor32s len, const Tap* t, Zor32s n, T* dly, Zor32s* i) {                                    \
        return FIR(s, d, len, t, n, tapsFactor, dly, i, scale);                                                        \
      },                                                                                                               \
      [](T* d, Zor32s len, const Tap* t, Zor32s n, T* dly, Zor32s* i) {                                                \
        return FIR_I(d, len, t, n, tapsFactor, dly, i, scale);                                                         \
      },                                                                                                               \
      [](T v, T* d, const Tap* t, Zor32s n, T* dly, Zor32s* i) { return ONE(v, d, t, n, tapsFactor, dly, i, scale); }, \
      [](T* d, const Tap* t, Zor32s n, T* dly, Zor32s* i) { return ONE_I(d, t, n, tapsFactor, dly, i, scale); }, 0,    \
      false, tapsFactor - scale)

TEST(FIRDirectForms, SumTheRing) {
  constexpr long double e32 = 0x1p-24L, e64 = 0x1p-53L;
  ring<Zor32f, Zor32f>("32f", zorsFIR_Direct_32f, zorsFIR_Direct_32f_I, zorsFIROne_Direct_32f, zorsFIROne_Direct_32f_I,
                       e32, false);
  ring<Zor32fc, Zor32fc>("32fc", zorsFIR_Direct_32fc, zorsFIR_Direct_32fc_I, zorsFIROne_Direct_32fc,
                         zorsFIROne_Direct_32fc_I, e32, true);
  ring<Zor64f, Zor64f>("64f", zorsFIR_Direct_64f, zorsFIR_Direct_64f_I, zorsFIROne_Direct_64f, zorsFIROne_Direct_64f_I,
                       e64, true);
  ring<Zor64fc, Zor64fc>("64fc", zorsFIR_Direct_64fc, zorsFIR_Direct_64fc_I, zorsFIROne_Direct_64fc,
                         zorsFIROne_Direct_64fc_I, e64, true);
  ring<Zor64f, Zor32f>("64f_32f", zorsFIR64f_Direct_32f, zorsFIR64f_Direct_32f_I, zorsFIROne64f_Direct_32f,
                       zorsFIROne64f_Direct_32f_I, e64, false);
  ring<Zor64fc, Zor32fc>("64fc_32fc", zorsFIR64fc_Direct_32fc, zorsFIR64fc_Direct_32fc_I, zorsFIROne64fc_Direct_32fc,
                         zorsFIROne64fc_Direct_32fc_I, e64, false);
  SCALED(zorsFIR32f_Direct_16s_Sfs, zorsFIR32f_Direct_16s_ISfs, zorsFIROne32f_Direct_16s_Sfs,
         zorsFIROne32f_Direct_16s_ISfs, Zor32f, Zor16s, e32);
  SCALED(zorsFIR32fc_Direct_16sc_Sfs, zorsFIR32fc_Direct_16sc_ISfs, zorsFIROne32fc_Direct_16sc_Sfs,
         zorsFIROne32fc_Direct_16sc_ISfs, Zor32fc, Zor16sc, e32);
  SCALED(zorsFIR64f_Direct_16s_Sfs, zorsFIR64f_Direct_16s_ISfs, zorsFIROne64f_Direct_16s_Sfs,
         zorsFIROne64f_Direct_16s_ISfs, Zor64f, Zor16s, e64);
  SCALED(zorsFIR64f_Direct_32s_Sfs, zorsFIR64f_Direct_32s_ISfs, zorsFIROne64f_Direct_32s_Sfs,
         zorsFIROne64f_Direct_32s_ISfs, Zor64f, Zor32s, e64);
  SCALED(zorsFIR64fc_Direct_16sc_Sfs, zorsFIR64fc_Direct_16sc_ISfs, zorsFIROne64fc_Direct_16sc_Sfs,
         zorsFIROne64fc_Direct_16sc_ISfs, Zor64fc, Zor16sc, e64);
  SCALED(zorsFIR64fc_Direct_32sc_Sfs, zorsFIR64fc_Direct_32sc_ISfs, zorsFIROne64fc_Direct_32sc_Sfs,
         zorsFIROne64fc_Direct_32sc_ISfs, Zor64fc, Zor32sc, e64);
  FACTOR(zorsFIR32s_Direct_16s_Sfs, zorsFIR32s_Direct_16s_ISfs, zorsFIROne32s_Direct_16s_Sfs,
         zorsFIROne32s_Direct_16s_ISfs, Zor32s, Zor16s);
  FACTOR(zorsFIR32sc_Direct_16sc_Sfs, zorsFIR32sc_Direct_16sc_ISfs, zorsFIROne32sc_Direct_16sc_Sfs,
         zorsFIROne32sc_Direct_16sc_ISfs, Zor32sc, Zor16sc);
}
#undef SCALED
#undef FACTOR

TEST(FIRDirectForms, IntegerResultsRoundTiesAwayAndSaturate) {
  const Zor32f tap[1] = {1};
  Zor16s dly[2] = {}, y = 0;
  Zor32s index = 0;
  for (auto [x, scaleFactor, wanted] : {std::array<int, 3>{3, 1, 2},
                                        {-3, 1, -2},
                                        {1, 1, 1},
                                        {0, 1, 0},
                                        {20000, -1, 32767},
                                        {-20000, -1, -32768},
                                        {5, 2, 1}}) {
    ASSERT_EQ(zorsFIROne32f_Direct_16s_Sfs(Zor16s(x), &y, tap, 1, dly, &index, scaleFactor), zorStatusOk);
    EXPECT_EQ(y, wanted) << x << " " << scaleFactor;
  }
}

TEST(FIRDirectForms, SixteenBitTapsHave15FractionalBitsAndTheTwoFormsRunInOppositeOrders) {
  const Zor16s taps[3] = {16384, 8192, -32768}, x[5] = {100, -200, 300, 1000, -32768};
  Zor16s dly[6] = {}, y[5], one = 0;
  Zor32s index = 0;
  for (int i = 0; i < 5; ++i) {
    Zor64s sum = 0;
    for (int k = 0; k < 3 && k <= i; ++k) sum += Zor64s{taps[k]} * x[i - k];
    ASSERT_EQ(zorsFIROne_Direct_16s_Sfs(x[i], &one, taps, 3, dly, &index, 0), zorStatusOk);
    EXPECT_EQ(one, wrapped(static_cast<long double>(sum), -15));
    Zor16s inPlace = x[i], line[6] = {};
    Zor32s lineIndex = 0;
    ASSERT_EQ(zorsFIROne_Direct_16s_ISfs(&inPlace, taps, 3, line, &lineIndex, 0), zorStatusOk);
    EXPECT_EQ(inPlace, wrapped(static_cast<long double>(Zor64s{taps[0]} * x[i]), -15));
  }
  // A block takes the line from the index on as newest first, and leaves it so from place 0 on.
  Zor16s line[6] = {9, 7, 5, 3, 1, 0}, inPlace[5];
  Zor32s lineIndex = 1;
  std::copy(x, x + 5, inPlace);
  ASSERT_EQ(zorsFIR_Direct_16s_Sfs(x, y, 5, taps, 3, line, &lineIndex, 0), zorStatusOk);
  EXPECT_EQ(y[0],
            wrapped(static_cast<long double>(Zor64s{taps[0]} * x[0] + Zor64s{taps[1]} * 7 + Zor64s{taps[2]} * 5), -15));
  EXPECT_EQ(lineIndex, 0);
  EXPECT_TRUE(line[0] == x[4] && line[1] == x[3] && line[2] == x[2] && line[3] == 3);
  Zor16s again[6] = {9, 7, 5, 3, 1, 0};
  lineIndex = 1;
  ASSERT_EQ(zorsFIR_Direct_16s_ISfs(inPlace, 5, taps, 3, again, &lineIndex, 0), zorStatusOk);
  EXPECT_TRUE(std::equal(inPlace, inPlace + 5, y));
}

TEST(FIRDirectForms, OnlySixteenBitTapsTestTheIndexLastOfAll) {
  const Zor16s taps[2] = {1, 2}, src[2] = {};
  Zor16s dly[4] = {}, dst[2] = {};
  for (Zor32s bad : {2, -1}) {
    Zor32s index = bad;
    EXPECT_EQ(zorsFIROne_Direct_16s_Sfs(0, dst, taps, 2, dly, &index, 0), zorStatusBadDelayIndex);
    EXPECT_EQ(zorsFIROne_Direct_16s_ISfs(dst, taps, 2, dly, &index, 0), zorStatusBadDelayIndex);
    EXPECT_EQ(zorsFIR_Direct_16s_Sfs(src, dst, 2, taps, 2, dly, &index, 0), zorStatusBadDelayIndex);
    EXPECT_EQ(zorsFIR_Direct_16s_ISfs(dst, 2, taps, 2, dly, &index, 0), zorStatusBadDelayIndex);
    EXPECT_EQ(zorsFIR_Direct_16s_Sfs(src, dst, 0, taps, 2, dly, &index, 0), zorStatusBadSize);
    EXPECT_EQ(zorsFIR_Direct_16s_Sfs(src, dst, 2, taps, 0, dly, &index, 0), zorStatusBadTapsLength);
  }
  const Zor32f floats[1] = {1};
  Zor16s line[4] = {};
  Zor32s index = 1;  // at tapsLen: written where the ring's formula says, and nowhere else
  EXPECT_EQ(zorsFIROne32f_Direct_16s_Sfs(5, dst, floats, 1, line, &index, 0), zorStatusOk);
  EXPECT_TRUE(line[1] == 5 && line[2] == 5 && line[3] == 0);
}

TEST(FIRDirectForms, ChecksInOrder) {
  const std::vector<Zor64f> taps(3), src(8);
  std::vector<Zor64f> dst(8), dly(6);
  const std::vector<Zor32s> wideTaps(3);
  std::vector<Zor16s> shorts(8), shortDly(6);
  Zor32s index = 0;
  const auto lengths = {0, -1};
  kit::Contract(zorsFIR_Direct_64f, src.data(), dst.data(), 8, taps.data(), 3, dly.data(), &index)
      .null<0>()
      .null<1>()
      .bad<2>(lengths, zorStatusBadSize)
      .null<3>()
      .bad<4>(lengths, zorStatusBadTapsLength)
      .null<5>()
      .null<6>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIR_Direct_64f");
  kit::Contract(zorsFIR_Direct_64f_I, dst.data(), 8, taps.data(), 3, dly.data(), &index)
      .null<0>()
      .bad<1>(lengths, zorStatusBadSize)
      .null<2>()
      .bad<3>(lengths, zorStatusBadTapsLength)
      .null<4>()
      .null<5>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIR_Direct_64f_I");
  kit::Contract(zorsFIR32s_Direct_16s_Sfs, shorts.data(), shorts.data(), 8, wideTaps.data(), 3, 0, shortDly.data(),
                &index, 0)
      .null<0>()
      .null<1>()
      .bad<2>(lengths, zorStatusBadSize)
      .null<3>()
      .bad<4>(lengths, zorStatusBadTapsLength)
      .null<6>()
      .null<7>()
      .untouched(shorts)
      .verify("zorsFIR32s_Direct_16s_Sfs");
  kit::Contract(zorsFIROne32s_Direct_16s_Sfs, Zor16s{1}, shorts.data(), wideTaps.data(), 3, 0, shortDly.data(), &index,
                0)
      .null<1>()
      .null<2>()
      .bad<3>(lengths, zorStatusBadTapsLength)
      .null<5>()
      .null<6>()
      .untouched(shorts)
      .verify("zorsFIROne32s_Direct_16s_Sfs");
}

// Two calls from a ring in use, once with arrays of their own and once with dst = src.
template <class T>
void sourceIsDestination(const char* name, ZorStatus (*block)(const T*, T*, Zor32s, const T*, Zor32s, T*, Zor32s*)) {
  kit::Random random(11);
  const auto same = [](const T& a, const T& b) { return kit::sameBits(a, b); };
  for (int n : {1, 2, 9, 16, 31, 32, 40, 70})
    for (int len : {1, 5, 16, 33, 300, 700}) {
      const auto taps = some<T>(std::size_t(n), random, 1);
      const auto history = some<T>(std::size_t(n), random, 1);
      std::vector<T> dly(history);
      dly.insert(dly.end(), history.begin(), history.end());
      auto dlyInPlace = dly;
      Zor32s index = n / 3, indexInPlace = index;
      const std::string what =
          std::string(name) + ", " + std::to_string(n) + " taps, " + std::to_string(len) + " samples";
      for (int call = 0; call < 2; ++call) {
        const auto x = some<T>(std::size_t(len), random, 1);
        std::vector<T> dst(x.size()), both = x;
        ASSERT_EQ(block(x.data(), dst.data(), len, taps.data(), n, dly.data(), &index), zorStatusOk) << what;
        ASSERT_EQ(block(both.data(), both.data(), len, taps.data(), n, dlyInPlace.data(), &indexInPlace), zorStatusOk);
        ASSERT_TRUE(std::equal(dst.begin(), dst.end(), both.begin(), same)) << what << ", call " << call;
        ASSERT_TRUE(std::equal(dly.begin(), dly.end(), dlyInPlace.begin(), same)) << what << ": line";
        ASSERT_EQ(index, indexInPlace) << what;
      }
    }
}

TEST(FIRDirectForms, WithTheSourceAsDestinationOutputsLineAndIndexAreThoseOfSeparateArrays) {
  sourceIsDestination("32f", zorsFIR_Direct_32f);
  sourceIsDestination("32fc", zorsFIR_Direct_32fc);
  sourceIsDestination("64f", zorsFIR_Direct_64f);
  sourceIsDestination("64fc", zorsFIR_Direct_64fc);
}

TEST(FIRDirectForms, WithoutMemoryForACopyOfTheSourceNothingHappens) {
  std::vector<Zor64f> taps(8, 1), both(100, 5), dly(16, 3);
  kit::ServicesScope services;
  services->failAt = 0;
  Zor32s index = 3;
  EXPECT_EQ(zorsFIR_Direct_64f(both.data(), both.data(), 100, taps.data(), 8, dly.data(), &index), zorStatusNoMemory);
  EXPECT_TRUE(both == std::vector<Zor64f>(100, 5) && dly == std::vector<Zor64f>(16, 3));
  EXPECT_EQ(index, 3);
}

// The line's two halves may disagree: a window is what stands in the line, as the single samples show it.
TEST(FIRDirectForms, ABlockIsARunOfSingleSamplesFromAnyLineAndIndex) {
  kit::Random random(12);
  for (int n : {1, 2, 5, 16, 31, 33, 70, 600})
    for (int len : {1, 2, 5, 40, 1000})
      for (bool whole : {true, false}) {
        const auto taps = some<Zor64f>(std::size_t(n), random, 1);
        const auto x = some<Zor32f>(std::size_t(len), random, 1);
        auto dly = some<Zor32f>(2 * std::size_t(n), random, 1);
        if (whole) std::copy_n(dly.begin(), n, dly.begin() + n);
        auto dlyOfOne = dly;
        Zor32s index = Zor32s(random() % unsigned(n)), indexOfOne = index;
        std::vector<Zor32f> y(x.size());
        ASSERT_EQ(zorsFIR64f_Direct_32f(x.data(), y.data(), len, taps.data(), n, dly.data(), &index), zorStatusOk);
        for (int i = 0; i < len; ++i) {
          Zor32f one = 0;
          ASSERT_EQ(zorsFIROne64f_Direct_32f(x[std::size_t(i)], &one, taps.data(), n, dlyOfOne.data(), &indexOfOne),
                    zorStatusOk);
          ASSERT_TRUE(kit::sameBits(one, y[std::size_t(i)])) << n << " taps, sample " << i << " of " << len;
        }
        ASSERT_TRUE(dly == dlyOfOne && index == indexOfOne) << n << " taps, " << len << " samples";
      }
}

TEST(FIRDirectForms, AFailedAllocationLeavesTheSpanFlipped) {
  std::vector<Zor64f> taps(40, 1), src(100, 1), dst(100, 5), dly(80);
  for (std::size_t i = 0; i < dly.size(); ++i) dly[i] = Zor64f(i);
  kit::ServicesScope services;
  services->failAt = 0;
  Zor32s index = 3;
  EXPECT_EQ(zorsFIR_Direct_64f(src.data(), dst.data(), 100, taps.data(), 40, dly.data(), &index), zorStatusNoMemory);
  EXPECT_EQ(dly[3], 42);
  EXPECT_EQ(dly[42], 3);
  EXPECT_EQ(dly[43], 43);
  EXPECT_EQ(dst[0], 5);
  EXPECT_EQ(index, 3);
  services->failAt = 0;
  std::vector<Zor16s> t(3, 1), x(4, 1), y(4, 7), line(6);
  index = 0;
  EXPECT_EQ(zorsFIR_Direct_16s_Sfs(x.data(), y.data(), 4, t.data(), 3, line.data(), &index, 0), zorStatusNoMemory);
  EXPECT_EQ(y[0], 7);
  EXPECT_EQ(services->live, 0);
}

}  // namespace
