#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/resampling.h"

namespace {

using kit::Guarded;
using std::size_t;

const ZorHintAlgorithm hints[] = {zorAlgHintNone, zorAlgHintFast, zorAlgHintAccurate};
bool accurate(ZorHintAlgorithm hint) { return hint == zorAlgHintAccurate; }

long double besselI0(long double x) {
  long double sum = 1, term = 1;
  for (int i = 1; term > sum * 1e-22L; ++i) term *= x / 2 / i * (x / 2 / i), sum += term;
  return sum;
}
long double sinc(long double place, long double delta, long double rollf, long double alpha, long double last) {
  if (place == 0) return rollf;
  const long double c = place / last, window = besselI0(alpha * std::sqrt(std::max(0.0L, 1 - c * c))) / besselI0(alpha);
  return std::sin(place * delta * rollf) / (place * delta) * window;
}
const long double pi = std::acos(-1.0L);

template <class T> std::vector<T> anySignal(size_t count, kit::Random& random) {
  std::vector<T> x(count);
  if constexpr (std::is_integral_v<T>)
    for (T& v : x) v = T(random() >> 20);
  else
    x = kit::signal<T>(count, random);
  return x;
}
// How far a result may be from the model's: the widest weights times samples, in units of the sums' type; for integers
// one unit, and for 16-bit results that saturate none.
template <class T>
void expectNear(T got, long double wanted, long double mass, ZorHintAlgorithm hint, const std::string& where) {
  if constexpr (std::is_integral_v<T>) {
    const long double limited = std::min(32767.0L, std::max(-32768.0L, wanted));
    ASSERT_LE(std::fabs(got - limited), 0.501L + mass * 4e-7L) << where;
  } else {
    ASSERT_LE(std::fabs(got - wanted), mass * (accurate(hint) ? 2e-7L : 2e-6L) + 1e-9L) << where;
  }
}

// ---- Any factor ---------------------------------------------------------------------------------

struct Table {
  std::vector<long double> response;
  Zor32s nStep, len;
  long double scale = 1;
  Table(Zor32f window, Zor32s step, Zor32f rollf, Zor32f alpha, bool integers) : nStep(step) {
    len = Zor32s(window / 2 * Zor32f(step)) + 1;
    long double sum = 0;
    for (int k = 0; k < len; ++k) {
      response.push_back(sinc(k, pi / nStep, rollf, alpha, len - 1));
      if (k % nStep == 0) sum += (k == 0 ? 1 : 2) * response.back();
    }
    for (auto& f : response) f /= sum;
    if (integers) {
      long double largest = 0;
      for (auto f : response) largest = std::max(largest, std::fabs(f));
      scale = largest / 16383;
      for (auto& f : response) f = std::round(f / scale);
    }
    response.push_back(response.back());
  }
};

template <class T> struct Free {
  static constexpr bool integers = std::is_integral_v<T>;
  static ZorStatus getSize(Zor32f window, Zor32s nStep, Zor32s* size, ZorHintAlgorithm hint) {
    if constexpr (integers)
      return zorsResamplePolyphaseGetSize_16s(window, nStep, size, hint);
    else
      return zorsResamplePolyphaseGetSize_32f(window, nStep, size);
  }
  static constexpr auto init = [] {
    if constexpr (integers)
      return zorsResamplePolyphaseInit_16s;
    else
      return zorsResamplePolyphaseInit_32f;
  }();
  static constexpr auto run = [] {
    if constexpr (integers)
      return zorsResamplePolyphase_16s;
    else
      return zorsResamplePolyphase_32f;
  }();
};

template <class T>
void checkFree(Zor32f window, Zor32s nStep, Zor32f rollf, Zor32f alpha, double factor, double start, int len,
               ZorHintAlgorithm hint, size_t away, kit::Random& random) {
  const std::string where = "window " + std::to_string(window) + ", nStep " + std::to_string(nStep) + ", factor " +
                            std::to_string(factor) + ", start " + std::to_string(start) + ", hint " +
                            std::to_string(hint);
  Zor32s size = 0;
  ASSERT_EQ(Free<T>::getSize(window, nStep, &size, hint), zorStatusOk);
  const Guarded<Zor8u> block(size_t(size), kit::Edge::end, away);
  auto* state = reinterpret_cast<ZorResampleState*>(block.data());
  ASSERT_EQ(Free<T>::init(window, nStep, rollf, alpha, state, hint), zorStatusOk);
  const Table table(window, nStep, rollf, alpha, std::is_integral_v<T> && !accurate(hint));
  const double s = factor < 1 ? factor * nStep : nStep;
  const auto reach = std::ptrdiff_t(std::ceil(table.len / s)), first = std::ptrdiff_t(start);
  // src is readable from first - reach to first + len - 1 + reach, and nowhere else.
  const auto count = size_t(len + 2 * reach);
  for (kit::Edge edge : kit::bothEdges) {
    const Guarded<T> readable(anySignal<T>(count, random), edge);
    const T* src = readable.data() + reach - first;
    std::vector<long double> wanted, mass;
    double t = start;
    for (; t < double(len + first); t += 1 / factor) {
      const auto i = std::ptrdiff_t(t);
      const double frac = t - double(i);
      long double sum = 0, sumOfMagnitudes = 0;
      const auto walk = [&](double pos, std::ptrdiff_t at, int step) {
        for (; pos < table.len - 1e-5; pos += s, at += step) {
          const auto k = size_t(pos);
          const long double w = table.response[k] + (pos - double(k)) * (table.response[k + 1] - table.response[k]);
          sum += w * src[at];
          sumOfMagnitudes += (std::fabs(table.response[k]) + std::fabs(table.response[k + 1])) * std::fabs(src[at]);
        }
      };
      walk(frac * s, i, -1);
      walk(s - frac * s, i + 1, 1);
      const long double gain = (factor < 1 ? factor : 1) * 0.75L * table.scale;
      wanted.push_back(sum * gain), mass.push_back(sumOfMagnitudes * gain);
    }
    const Guarded<T> dst(wanted.size());
    Zor64f time = start;
    Zor32s outLen = -1;
    ASSERT_EQ(Free<T>::run(src, len, dst.data(), factor, 0.75f, &time, &outLen, state), zorStatusOk) << where;
    ASSERT_EQ(size_t(outLen), wanted.size()) << where;
    ASSERT_EQ(time, t) << where;
    for (size_t k = 0; k < wanted.size(); ++k)
      ASSERT_NO_FATAL_FAILURE(expectNear(dst[k], wanted[k], mass[k], hint, where + ", output " + std::to_string(k)));
    ASSERT_TRUE(dst.intact());
  }
  ASSERT_TRUE(block.intact()) << where;
}

TEST(ResamplePolyphase, InterpolatesTheWindowedSinc) {
  kit::Random random(1);
  size_t away = 0;
  for (auto hint : hints)
    for (auto [window, nStep] :
         {std::pair{10.0f, 10}, {2.0f, 1}, {1.0f, 2}, {6.5f, 7}, {32.0f, 64}, {33.3f, 5}, {64.0f, 3}})
      for (double factor : {1.0, 1.088435374, 0.5, 0.31, 2.0, 0.9999, 7.3, 0.0371})
        for (double start : {0.0, 3.25, 17.999999}) {
          ASSERT_NO_FATAL_FAILURE(checkFree<Zor32f>(window, nStep, 0.9f, 6, factor, start, 23, hint, away, random));
          ASSERT_NO_FATAL_FAILURE(checkFree<Zor16s>(window, nStep, 1, 1, factor, start, 23, hint, away, random));
          away = (away + 1) % 17;
        }
}

TEST(ResamplePolyphase, PiecesOfAStreamGiveWhatOneCallGives) {
  kit::Random random(2);
  Zor32s size;
  ASSERT_EQ(zorsResamplePolyphaseGetSize_32f(16, 32, &size), zorStatusOk);
  std::vector<Zor64f> block(size_t(size) / 8 + 1);
  auto* state = reinterpret_cast<ZorResampleState*>(block.data());
  ASSERT_EQ(zorsResamplePolyphaseInit_32f(16, 32, 0.9f, 5, state, zorAlgHintAccurate), zorStatusOk);
  const auto src = kit::signal<Zor32f>(300, random);
  std::vector<Zor32f> whole(400), pieces(400);
  Zor64f time = 20;
  Zor32s outLen, done = 0;
  ASSERT_EQ(zorsResamplePolyphase_32f(src.data(), 250, whole.data(), 1.3, 1, &time, &outLen, state), zorStatusOk);
  time = 20;
  for (int i = 0; i < 25; ++i) {
    Zor32s count;
    const int until = 30 + 10 * i;  // the call ends there
    ASSERT_EQ(
        zorsResamplePolyphase_32f(src.data(), until - int(time), pieces.data() + done, 1.3, 1, &time, &count, state),
        zorStatusOk);
    done += count;
  }
  EXPECT_EQ(done, outLen);
  EXPECT_EQ(pieces, whole);
}

TEST(ResamplePolyphase, AWindowOfOneStepOfTwoIsTheLeastAllowed) {
  Zor32s size = 5;
  EXPECT_EQ(zorsResamplePolyphaseGetSize_32f(0.2f, 10, &size), zorStatusOk);
  EXPECT_EQ(size, ((4 * 2 + 67) & ~63) + 64 + ((8 * 2 + 71) & ~63));
  EXPECT_EQ(zorsResamplePolyphaseGetSize_32f(10, 10, &size), zorStatusOk);
  EXPECT_EQ(size, ((4 * 51 + 67) & ~63) + 64 + ((8 * 51 + 71) & ~63));
  EXPECT_EQ(zorsResamplePolyphaseGetSize_16s(10, 10, &size, zorAlgHintFast), zorStatusOk);
  EXPECT_EQ(size, ((2 * 51 + 65) & ~63) + 64 + ((8 * 51 + 71) & ~63));
  EXPECT_EQ(zorsResamplePolyphaseGetSize_16s(10, 10, &size, zorAlgHintAccurate), zorStatusOk);
  EXPECT_EQ(size, ((4 * 51 + 67) & ~63) + 64 + ((8 * 51 + 71) & ~63));
  EXPECT_EQ(zorsResamplePolyphaseGetSize_32f(0.19f, 10, &size), zorStatusBadArgument);
}

TEST(ResamplePolyphase, ATimeBehindTheBlockGivesNothingAndStays) {
  Zor32s size;
  ASSERT_EQ(zorsResamplePolyphaseGetSize_32f(4, 4, &size), zorStatusOk);
  std::vector<Zor64f> block(size_t(size) / 8 + 1);
  auto* state = reinterpret_cast<ZorResampleState*>(block.data());
  ASSERT_EQ(zorsResamplePolyphaseInit_32f(4, 4, 1, 1, state, zorAlgHintNone), zorStatusOk);
  const Zor32f src[1] = {};
  Zor32f dst[1] = {3};
  for (Zor64f far : {1e300, std::numeric_limits<Zor64f>::quiet_NaN(), -1e300}) {
    Zor64f time = far;
    Zor32s outLen = 9;
    ASSERT_EQ(zorsResamplePolyphase_32f(src, 1, dst, 1, 1, &time, &outLen, state), zorStatusOk);
    EXPECT_EQ(outLen, 0);
    EXPECT_TRUE(kit::sameBits(time, far));
    EXPECT_EQ(dst[0], 3);
  }
}

// ---- A rational factor --------------------------------------------------------------------------

template <class T> struct Fixed {
  static constexpr bool integers = std::is_integral_v<T>;
  static constexpr auto choose = [](auto wide, auto narrow) {
    if constexpr (integers)
      return narrow;
    else
      return wide;
  };
  static constexpr auto getSize = choose(zorsResamplePolyphaseFixedGetSize_32f, zorsResamplePolyphaseFixedGetSize_16s);
  static constexpr auto init = choose(zorsResamplePolyphaseFixedInit_32f, zorsResamplePolyphaseFixedInit_16s);
  static constexpr auto run = choose(zorsResamplePolyphaseFixed_32f, zorsResamplePolyphaseFixed_16s);
  static constexpr auto get = choose(zorsResamplePolyphaseGetFixedFilter_32f, zorsResamplePolyphaseGetFixedFilter_16s);
  static constexpr auto set = choose(zorsResamplePolyphaseSetFixedFilter_32f, zorsResamplePolyphaseSetFixedFilter_16s);
};

struct Rows {
  Zor32s in, out, h;
  std::vector<std::vector<long double>> taps;
  long double scale = 1;
  Rows(Zor32s inRate, Zor32s outRate, Zor32s len, Zor32f rollf, Zor32f alpha, bool quantised) {
    const Zor32s common = std::gcd(inRate, outRate);
    in = inRate / common, out = outRate / common, h = ((len + 3) & ~3) / 2;
    const long double last = (long double)h * out, wanted = std::max(1.0L, (long double)in / out);
    long double largest = 0;
    for (Zor32s p = 0; p < out; ++p) {
      std::vector<long double> row;
      for (Zor32s j = 0; j < 2 * h + (p == 0); ++j) {
        const long double m = std::abs((long double)(p == 0 ? (j - h) : (1 - h + j)) * out - p);
        row.push_back(sinc(m, pi / std::max(in, out), rollf, alpha, last));
      }
      const long double sum = std::accumulate(row.begin(), row.end(), 0.0L);
      for (auto& tap : row) tap *= wanted / sum, largest = std::max(largest, std::fabs(tap));
      taps.push_back(row);
    }
    if (quantised) {
      scale = largest / 16383;
      for (auto& row : taps)
        for (auto& tap : row) tap = std::round(tap / scale);
    }
  }
};

template <class T>
void checkFixed(Zor32s inRate, Zor32s outRate, Zor32s taps, double start, int len, ZorHintAlgorithm hint, size_t away,
                kit::Random& random) {
  const std::string where = std::to_string(inRate) + " to " + std::to_string(outRate) + ", taps " +
                            std::to_string(taps) + ", start " + std::to_string(start) + ", hint " +
                            std::to_string(hint);
  Zor32s size = 0, lenOut = 0, height = 0;
  ASSERT_EQ(Fixed<T>::getSize(inRate, outRate, taps, &size, &lenOut, &height, hint), zorStatusOk);
  const Rows rows(inRate, outRate, taps, 0.92f, 7, std::is_integral_v<T> && !accurate(hint));
  ASSERT_EQ(lenOut, 2 * rows.h) << where;
  ASSERT_EQ(height, rows.out) << where;
  const Guarded<Zor8u> block(size_t(size), kit::Edge::end, away);
  auto* state = reinterpret_cast<ZorResampleFixedState*>(block.data());
  ASSERT_EQ(Fixed<T>::init(inRate, outRate, taps, 0.92f, 7, state, hint), zorStatusOk);
  const auto i0 = std::int64_t(start);
  const auto q = std::int64_t(double(rows.out) * (start - double(i0)) + 0.5);
  for (kit::Edge edge : kit::bothEdges) {
    const Guarded<T> readable(anySignal<T>(size_t(len + 2 * rows.h), random), edge);
    const T* src = readable.data() + rows.h - i0;
    std::vector<long double> wanted, mass;
    std::int64_t c = i0 * rows.out + q;
    for (; c < rows.out * (len + i0); c += rows.in) {
      const auto p = std::ptrdiff_t(c % rows.out), i = std::ptrdiff_t(c / rows.out);
      const T* x = src + i + (p == 0 ? 0 : 1) - rows.h;
      long double sum = 0, magnitudes = 0;
      for (size_t j = 0; j < rows.taps[size_t(p)].size(); ++j)
        sum += rows.taps[size_t(p)][j] * x[j], magnitudes += std::fabs(rows.taps[size_t(p)][j] * x[j]);
      const long double gain = std::min(1.0L, (long double)rows.out / rows.in) * rows.scale * 0.75L;
      wanted.push_back(sum * gain), mass.push_back(magnitudes * gain);
    }
    const Guarded<T> dst(wanted.size());
    Zor64f time = start;
    Zor32s outLen = -1;
    ASSERT_EQ(Fixed<T>::run(src, len, dst.data(), 0.75f, &time, &outLen, state), zorStatusOk) << where;
    ASSERT_EQ(size_t(outLen), wanted.size()) << where;
    ASSERT_EQ(time, start - double(i0) + double(c - q) / double(rows.out)) << where;
    for (size_t k = 0; k < wanted.size(); ++k)
      ASSERT_NO_FATAL_FAILURE(expectNear(dst[k], wanted[k], mass[k], hint, where + ", output " + std::to_string(k)));
    ASSERT_TRUE(dst.intact());
  }
  ASSERT_TRUE(block.intact()) << where;
}

TEST(ResampleFixed, HasARowOfTapsForEachPhase) {
  kit::Random random(3);
  size_t away = 0;
  for (auto hint : hints)
    for (auto [in, out] : {std::pair{44100, 48000},
                           {48000, 44100},
                           {1, 1},
                           {7, 7},
                           {2, 1},
                           {1, 2},
                           {3, 2},
                           {8, 1},
                           {5, 13},
                           {4000, 12000}})
      for (Zor32s taps : {1, 3, 4, 5, 8, 9, 17, 30, 61})
        for (double start : {0.0, 2.5, 9.999999}) {
          if (out > 100 && taps != 9 && taps != 61) continue;
          ASSERT_NO_FATAL_FAILURE(checkFixed<Zor32f>(in, out, taps, start, 19, hint, away, random));
          ASSERT_NO_FATAL_FAILURE(checkFixed<Zor16s>(in, out, taps, start, 19, hint, away, random));
          away = (away + 1) % 17;
        }
}

TEST(ResampleFixed, RatesLoseTheirCommonFactors) {
  Zor32s size, lenOut, height;
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_32f(44100, 48000, 64, &size, &lenOut, &height, zorAlgHintFast),
            zorStatusOk);
  EXPECT_EQ(height, 160);
  EXPECT_EQ(lenOut, 64);
  EXPECT_EQ(size, 164 * 8 + 68 * 160 * 4 + 160 * 2 + 8 * 5121 + 48);
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_16s(44100, 48000, 64, &size, &lenOut, &height, zorAlgHintFast),
            zorStatusOk);
  EXPECT_EQ(size, 164 * 8 + 160 * 2 + 8 * 5121 + 58 + 2 * (72 * 160 + 5121));
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_16s(44100, 48000, 64, &size, &lenOut, &height, zorAlgHintAccurate),
            zorStatusOk);
  EXPECT_EQ(size, 164 * 8 + 68 * 160 * 4 + 160 * 2 + 8 * 5121 + 48);
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_32f(7, 5, 64, &size, &lenOut, &height, zorAlgHintFast), zorStatusOk);
  EXPECT_EQ(height, 5);
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_32f(44100, 44100, 64, &size, &lenOut, &height, zorAlgHintFast),
            zorStatusOk);
  EXPECT_EQ(height, 1);
}

template <class T> void checkFilters(ZorHintAlgorithm hint) {
  kit::Random random(4);
  Zor32s size, lenOut, height;
  ASSERT_EQ(Fixed<T>::getSize(3, 5, 10, &size, &lenOut, &height, hint), zorStatusOk);  // 12 taps a row
  std::vector<Zor64f> block(size_t(size) / 8 + 1);
  auto* state = reinterpret_cast<ZorResampleFixedState*>(block.data());
  ASSERT_EQ(Fixed<T>::init(3, 5, 10, 1, 5, state, hint), zorStatusOk);
  const Rows rows(3, 5, 10, 1, 5, std::is_integral_v<T>);
  const auto built = block;
  for (int step : {1, 7, 12, 16, 20}) {  // less than a row, a row, more: what lies between rows stays
    std::vector<T> filter(size_t(step) * 5, T(77));
    ASSERT_EQ(Fixed<T>::get(filter.data(), step, 5, state), zorStatusOk);
    for (int p = 0; p < 5; ++p)
      for (int k = 0; k < step; ++k) {
        const auto& row = rows.taps[size_t(p)];
        const long double wanted = k >= 16 ? 77 : size_t(k) < row.size() ? row[size_t(k)] : 0;
        ASSERT_NEAR(double(filter[size_t(p * step + k)]), double(wanted), std::is_integral_v<T> ? 0.0 : 1e-6)
            << p << ", " << k;
      }
    ASSERT_EQ(Fixed<T>::set(filter.data(), step, 5, state), zorStatusOk);
    if (step <= 16) {
      ASSERT_EQ(block, built) << "set what was got";
    }
    block = built;
  }
  // Rows as they are set, with no scaling, over the samples of their phases.
  const auto filter = anySignal<T>(16 * 5, random), src = anySignal<T>(40, random);
  ASSERT_EQ(Fixed<T>::set(filter.data(), 16, 5, state), zorStatusOk);
  std::vector<T> again(16 * 5), dst(20);
  ASSERT_EQ(Fixed<T>::get(again.data(), 16, 5, state), zorStatusOk);
  EXPECT_EQ(again, filter);
  Zor64f time = 0;
  Zor32s outLen;
  ASSERT_EQ(Fixed<T>::run(src.data() + 10, 6, dst.data(), 1, &time, &outLen, state), zorStatusOk);
  long double unit = 1;
  if (std::is_integral_v<T>) {
    const Rows exact(3, 5, 10, 1, 5, false);
    unit = 0;
    for (auto& row : exact.taps)
      for (auto tap : row) unit = std::max(unit, std::fabs(tap) / 16383);
  }
  ASSERT_EQ(outLen, 10);
  for (int k = 0; k < outLen; ++k) {
    const int p = 3 * k % 5, i = 3 * k / 5;
    long double sum = 0, mass = 0;
    for (int j = 0; j < 12 + (p == 0); ++j) {
      const long double term = unit * filter[size_t(p * 16 + j)] * src[size_t(10 + i + (p == 0 ? 0 : 1) - 6 + j)];
      sum += term, mass += std::fabs(term);
    }
    ASSERT_NO_FATAL_FAILURE(expectNear(dst[size_t(k)], sum, mass, hint, "set rows"));
  }
}
TEST(ResampleFixed, GivesAndTakesItsRows) {
  for (auto hint : hints) {
    ASSERT_NO_FATAL_FAILURE(checkFilters<Zor32f>(hint));
    ASSERT_NO_FATAL_FAILURE(checkFilters<Zor16s>(hint));
  }
}

TEST(ResampleFixed, CountersGoBeyondThirtyTwoBits) {
  Zor32s size, lenOut, height;
  ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_32f(9999, 10000, 4, &size, &lenOut, &height, zorAlgHintFast),
            zorStatusOk);
  std::vector<Zor64f> block(size_t(size) / 8 + 1);
  auto* state = reinterpret_cast<ZorResampleFixedState*>(block.data());
  ASSERT_EQ(zorsResamplePolyphaseFixedInit_32f(9999, 10000, 4, 1, 1, state, zorAlgHintFast), zorStatusOk);
  std::vector<Zor32f> src(40), dst(20), wanted(20);
  for (size_t i = 0; i < src.size(); ++i) src[i] = Zor32f(i % 7);
  Zor64f time = 0.5;
  Zor32s wantedLen, outLen;
  ASSERT_EQ(zorsResamplePolyphaseFixed_32f(src.data() + 4, 10, wanted.data(), 1, &time, &wantedLen, state),
            zorStatusOk);
  constexpr int far = 100'000'000;
  const Zor64f moved = time + far;
  time = far + 0.5;
  ASSERT_EQ(zorsResamplePolyphaseFixed_32f(src.data() + 4 - far, 10, dst.data(), 1, &time, &outLen, state),
            zorStatusOk);
  EXPECT_EQ(outLen, wantedLen);
  EXPECT_EQ(dst, wanted);
  EXPECT_NEAR(time, moved, 1e-6);
}

// ---- Contracts ----------------------------------------------------------------------------------

constexpr Zor32f nan32 = std::numeric_limits<Zor32f>::quiet_NaN();

template <class Init> void checkInit(const char* name, Init init) {
  std::vector<Zor8u> block(4096, 9);
  auto* state = reinterpret_cast<ZorResampleState*>(block.data());
  kit::Contract(init, 4.0f, 4, 1.0f, 2.0f, state, zorAlgHintFast)
      .template null<4>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<0>({0.1f, 0.0f, -4.0f, nan32, 1e9f}, zorStatusBadArgument)
      .template bad<2>({0.0f, -1.0f, 1.0001f, nan32}, zorStatusBadArgument)
      .template bad<3>({0.9f, 0.0f, -2.0f, nan32}, zorStatusBadArgument)
      .untouched(block)
      .verify(name);
}
template <class Init> void checkFixedInit(const char* name, Init init) {
  std::vector<Zor8u> block(4096, 9);
  auto* state = reinterpret_cast<ZorResampleFixedState*>(block.data());
  kit::Contract(init, 3, 2, 8, 1.0f, 2.0f, state, zorAlgHintFast)
      .template null<5>()
      .template bad<0>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<3>({0.0f, -1.0f, 1.0001f, nan32}, zorStatusBadArgument)
      .template bad<4>({0.9f, 0.0f, -2.0f, nan32}, zorStatusBadArgument)
      .untouched(block)
      .verify(name);
}
template <class GetSize> void checkFixedGetSize(const char* name, GetSize getSize) {
  Zor32s size = 1, lenOut = 2, height = 3;
  kit::Contract(getSize, 3, 2, 8, &size, &lenOut, &height, zorAlgHintFast)
      .template null<3>()
      .template null<4>()
      .template null<5>()
      .template bad<0>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<2>(
          {
              0,
              -1,
              INT32_MIN,
          },
          zorStatusBadSize)
      .template bad<2>({INT32_MAX, 1 << 30}, zorStatusBadArgument)
      .untouched(&size, sizeof size)
      .untouched(&lenOut, sizeof lenOut)
      .untouched(&height, sizeof height)
      .verify(name);
  EXPECT_EQ(getSize(INT32_MAX, INT32_MAX - 1, INT32_MAX, &size, &lenOut, &height, zorAlgHintFast),
            zorStatusBadArgument);
  EXPECT_EQ(size, 1);
}
template <class T> void checkRuns(const char* free, const char* fixed, const char* get, const char* set) {
  alignas(8) static Zor8u freeBlock[4096], fixedBlock[4096];
  auto* freeState = reinterpret_cast<ZorResampleState*>(freeBlock);
  auto* fixedState = reinterpret_cast<ZorResampleFixedState*>(fixedBlock);
  ASSERT_EQ(Free<T>::init(4, 4, 1, 1, freeState, zorAlgHintFast), zorStatusOk);
  ASSERT_EQ(Fixed<T>::init(1, 1, 4, 1, 1, fixedState, zorAlgHintFast), zorStatusOk);
  static T src[16], dst[16];
  Zor64f time = 8.5;
  Zor32s outLen = 5;
  constexpr Zor64f nan64 = nan32, infinity = std::numeric_limits<Zor64f>::infinity();
  kit::Contract(Free<T>::run, src, 2, dst, 1.0, 1.0f, &time, &outLen, freeState)
      .template null<0>()
      .template null<2>()
      .template null<5>()
      .template null<6>()
      .template null<7>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<3>({0.0, -1.0, nan64, infinity}, zorStatusBadSize)
      .untouched(&time, sizeof time)
      .untouched(&outLen, sizeof outLen)
      .untouched(dst, sizeof dst)
      .verify(free);
  kit::Contract(Fixed<T>::run, src, 2, dst, 1.0f, &time, &outLen, fixedState)
      .template null<0>()
      .template null<2>()
      .template null<4>()
      .template null<5>()
      .template null<6>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&time, sizeof time)
      .untouched(&outLen, sizeof outLen)
      .untouched(dst, sizeof dst)
      .verify(fixed);
  kit::Contract(Fixed<T>::get, dst, 8, 1, fixedState)
      .template null<0>()
      .template null<3>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst, sizeof dst)
      .verify(get);
  kit::Contract(Fixed<T>::set, dst, 8, 1, fixedState)
      .template null<0>()
      .template null<3>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(fixedBlock, sizeof fixedBlock)
      .verify(set);
}

TEST(Resample, AWindowBeyondItsSeriesIsBuiltAllTheSame) {
  for (Zor32f alpha :
       {700.0f, 2000.0f, 1e10f, std::numeric_limits<Zor32f>::max(), std::numeric_limits<Zor32f>::infinity()}) {
    Zor32s size = 0, len = 0, height = 0;
    ASSERT_EQ(zorsResamplePolyphaseGetSize_32f(8, 16, &size), zorStatusOk);
    std::vector<Zor8u> general(static_cast<std::size_t>(size));
    EXPECT_EQ(zorsResamplePolyphaseInit_32f(8, 16, .9f, alpha, reinterpret_cast<ZorResampleState*>(general.data()),
                                            zorAlgHintFast),
              zorStatusOk);
    ASSERT_EQ(zorsResamplePolyphaseFixedGetSize_32f(2, 3, 16, &size, &len, &height, zorAlgHintFast), zorStatusOk);
    std::vector<Zor8u> fixed(static_cast<std::size_t>(size));
    EXPECT_EQ(zorsResamplePolyphaseFixedInit_32f(
                  2, 3, 16, .9f, alpha, reinterpret_cast<ZorResampleFixedState*>(fixed.data()), zorAlgHintFast),
              zorStatusOk);
  }
}

TEST(Resample, InitRefusesWhatItsSizeCallRefuses) {
  Zor32s size = 7, len = 7, height = 7;
  alignas(64) Zor8u block[64];
  std::fill(std::begin(block), std::end(block), Zor8u{3});
  auto* fixed = reinterpret_cast<ZorResampleFixedState*>(block);
  auto* general = reinterpret_cast<ZorResampleState*>(block);
  struct Rates {
    Zor32s in, out, len;
  };
  for (const Rates& r : {Rates{INT32_MAX, INT32_MAX - 1, 4},
                         {1, 1 << 20, 4096},
                         {1, 1, INT32_MAX},
                         {147, 160, INT32_MAX},
                         {3, INT32_MAX, 4}})
    for (ZorHintAlgorithm hint : {zorAlgHintFast, zorAlgHintAccurate}) {
      EXPECT_EQ(zorsResamplePolyphaseFixedGetSize_32f(r.in, r.out, r.len, &size, &len, &height, hint),
                zorStatusBadArgument);
      EXPECT_EQ(zorsResamplePolyphaseFixedInit_32f(r.in, r.out, r.len, .9f, 8, fixed, hint), zorStatusBadArgument);
      EXPECT_EQ(zorsResamplePolyphaseFixedGetSize_16s(r.in, r.out, r.len, &size, &len, &height, hint),
                zorStatusBadArgument);
      EXPECT_EQ(zorsResamplePolyphaseFixedInit_16s(r.in, r.out, r.len, .9f, 8, fixed, hint), zorStatusBadArgument);
    }
  for (Zor32f window : {1.8e8f, 2.2e8f, 2.6e8f}) {
    EXPECT_EQ(zorsResamplePolyphaseGetSize_32f(window, 2, &size), zorStatusNoMemory);
    EXPECT_EQ(zorsResamplePolyphaseInit_32f(window, 2, .9f, 8, general, zorAlgHintFast), zorStatusNoMemory);
    const ZorStatus wanted = zorsResamplePolyphaseGetSize_16s(window, 2, &size, zorAlgHintAccurate);
    EXPECT_EQ(wanted, zorStatusNoMemory);
    EXPECT_EQ(zorsResamplePolyphaseInit_16s(window, 2, .9f, 8, general, zorAlgHintAccurate), wanted);
  }
  EXPECT_TRUE(size == 7 && len == 7 && height == 7);
  EXPECT_TRUE(std::all_of(std::begin(block), std::end(block), [](Zor8u x) { return x == 3; }));
}

TEST(Resample, ChecksItsArgumentsInOrder) {
  Zor32s size = 5;
  kit::Contract(zorsResamplePolyphaseGetSize_32f, 4.0f, 4, &size)
      .null<2>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .bad<0>({0.1f, -4.0f, nan32, 1e9f}, zorStatusBadArgument)
      .untouched(&size, sizeof size)
      .verify("zorsResamplePolyphaseGetSize_32f");
  kit::Contract(zorsResamplePolyphaseGetSize_16s, 4.0f, 4, &size, zorAlgHintFast)
      .null<2>()
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .bad<0>({0.1f, -4.0f, nan32, 1e9f}, zorStatusBadArgument)
      .untouched(&size, sizeof size)
      .verify("zorsResamplePolyphaseGetSize_16s");
  EXPECT_EQ(zorsResamplePolyphaseGetSize_32f(5e8f, 1, &size), zorStatusNoMemory);
  EXPECT_EQ(size, 5);
  checkInit("zorsResamplePolyphaseInit_32f", zorsResamplePolyphaseInit_32f);
  checkInit("zorsResamplePolyphaseInit_16s", zorsResamplePolyphaseInit_16s);
  checkFixedInit("zorsResamplePolyphaseFixedInit_32f", zorsResamplePolyphaseFixedInit_32f);
  checkFixedInit("zorsResamplePolyphaseFixedInit_16s", zorsResamplePolyphaseFixedInit_16s);
  checkFixedGetSize("zorsResamplePolyphaseFixedGetSize_32f", zorsResamplePolyphaseFixedGetSize_32f);
  checkFixedGetSize("zorsResamplePolyphaseFixedGetSize_16s", zorsResamplePolyphaseFixedGetSize_16s);
  checkRuns<Zor32f>("zorsResamplePolyphase_32f", "zorsResamplePolyphaseFixed_32f",
                    "zorsResamplePolyphaseGetFixedFilter_32f", "zorsResamplePolyphaseSetFixedFilter_32f");
  checkRuns<Zor16s>("zorsResamplePolyphase_16s", "zorsResamplePolyphaseFixed_16s",
                    "zorsResamplePolyphaseGetFixedFilter_16s", "zorsResamplePolyphaseSetFixedFilter_16s");
}

}  // namespace
