#include <numeric>

#include "generators/places.h"
#include "zors/generators.h"

namespace {

// ---- The generator, word by word ----------------------------------------------------------------

struct Words {
  Zor32u lcg = 1131199209, a, b, c, borrow = 0xFFFFFFFF;

  explicit Words(Zor32u seed) : a(seed), b(a * 69069u + 1013904243u), c(b * 69069u + 1013904243u) {}
  Zor32s step() {
    Zor32u t = b - c + borrow;
    if ((t & 0x80000000u) != 0) {
      borrow = 0xFFFFFFFF;
      t -= 18;
    } else {
      borrow = 0;
    }
    lcg = lcg * 69069u + 1013904243u;
    c = b;
    b = a;
    a = t;
    return Zor32s(t + lcg);
  }
};

template <class T> struct Range {
  double mean, scale;
  Range(T low, T high) : mean(double(low + high) * 0.5), scale(double(high - low) * 2.3283064365387e-10) {}
  double at(Zor32s r) const { return std::fma(scale, double(r), mean); }
};
template <class T> T cut(double v) {
  if constexpr (std::is_integral_v<T>)
    return T(Zor32s(v));
  else
    return T(v);
}

struct Pair {
  double factor, u1, u2;
  explicit Pair(Words& words) {
    for (;;) {
      u1 = 4.656612873077e-10 * double(words.step());
      u2 = 4.656612873077e-10 * double(words.step());
      const double square = u2 * u2, s = std::fma(u1, u1, square);
      if (s >= 1 || s == 0) continue;
      factor = std::sqrt(-2 * std::log(s) / s);
      return;
    }
  }
};
template <class T> T stateElement(double u, double factor, T mean, T stdDev) {
  const double deviation = double(stdDev) * factor;
  if constexpr (std::is_same_v<T, Zor32f>) {
    const Zor32f v = Zor32f(deviation * u);
    return mean + v;
  } else {
    using L = std::numeric_limits<T>;
    return T(std::clamp(std::trunc(std::fma(u, deviation, double(mean))), double(L::min()), double(L::max())));
  }
}
template <class T> T directElement(double u, double factor, T mean, T stdDev) {
  const double deviation = u * double(stdDev);
  if constexpr (std::is_same_v<T, Zor16s>)
    return T(std::clamp(std::trunc(std::fma(factor, deviation, double(mean))), -32768.0, 32767.0));
  else
    return mean + T(deviation * factor);
}

// ---- Members ------------------------------------------------------------------------------------

template <class T, class State> struct StateForm {
  const char* name;
  Zor32s bytes;
  ZorStatus (*getSize)(Zor32s*);
  ZorStatus (*init)(State*, T, T, Zor32u);
  ZorStatus (*initAlloc)(State**, T, T, Zor32u);
  ZorStatus (*release)(State*);
  ZorStatus (*generate)(T*, Zor32s, State*);
};
template <class T> using Uniform = StateForm<T, ZorRandUniformState>;
template <class T> using Gauss = StateForm<T, ZorRandGaussState>;
template <class T> using Direct = ZorStatus (*)(T*, Zor32s, T, T, Zor32u*);

const Uniform<Zor8u> uniform8u{"zorsRandUniform_8u",        56,
                               zorsRandUniformGetSize_8u,   zorsRandUniformInit_8u,
                               zorsRandUniformInitAlloc_8u, zorsRandUniformFree_8u,
                               zorsRandUniform_8u};
const Uniform<Zor16s> uniform16s{"zorsRandUniform_16s",        56,
                                 zorsRandUniformGetSize_16s,   zorsRandUniformInit_16s,
                                 zorsRandUniformInitAlloc_16s, zorsRandUniformFree_16s,
                                 zorsRandUniform_16s};
const Uniform<Zor32f> uniform32f{"zorsRandUniform_32f",        56,
                                 zorsRandUniformGetSize_32f,   zorsRandUniformInit_32f,
                                 zorsRandUniformInitAlloc_32f, zorsRandUniformFree_32f,
                                 zorsRandUniform_32f};
const Gauss<Zor8u> gauss8u{"zorsRandGauss_8u",        64,
                           zorsRandGaussGetSize_8u,   zorsRandGaussInit_8u,
                           zorsRandGaussInitAlloc_8u, zorsRandGaussFree_8u,
                           zorsRandGauss_8u};
const Gauss<Zor16s> gauss16s{"zorsRandGauss_16s",        64,
                             zorsRandGaussGetSize_16s,   zorsRandGaussInit_16s,
                             zorsRandGaussInitAlloc_16s, zorsRandGaussFree_16s,
                             zorsRandGauss_16s};
const Gauss<Zor32f> gauss32f{"zorsRandGauss_32f",        72,
                             zorsRandGaussGetSize_32f,   zorsRandGaussInit_32f,
                             zorsRandGaussInitAlloc_32f, zorsRandGaussFree_32f,
                             zorsRandGauss_32f};

template <class Visit> void forStates(Visit visit) {
  visit(uniform8u);
  visit(uniform16s);
  visit(uniform32f);
  visit(gauss8u);
  visit(gauss16s);
  visit(gauss32f);
}
template <class T> std::vector<T> model(const Uniform<T>&, T low, T high, Zor32u seed, std::size_t count) {
  Words words(seed);
  const Range<T> range(low, high);
  std::vector<T> y(count);
  for (T& x : y) x = cut<T>(range.at(words.step()));
  return y;
}
template <class T> std::vector<T> model(const Gauss<T>&, T mean, T stdDev, Zor32u seed, std::size_t count) {
  Words words(seed);
  std::vector<T> y;
  while (y.size() < count) {
    const Pair pair(words);
    y.push_back(stateElement(pair.u2, pair.factor, mean, stdDev));
    y.push_back(stateElement(pair.u1, pair.factor, mean, stdDev));
  }
  y.resize(count);
  return y;
}
struct Arguments {
  double first, second;
  Zor32u seed;
};
template <class T> std::vector<Arguments> arguments() {
  using L = std::numeric_limits<T>;
  if constexpr (std::is_integral_v<T>)
    return {{L::min(), L::max(), 0}, {L::max(), L::min(), 1}, {5, 5, 77}, {10, 0, 0xFFFFFFFF}, {3, 90, 0x80000000}};
  else
    return {{-1, 1, 0},        {1, -1, 1},         {0, 0, 77},     {3e38, -3e38, 5},
            {1e-40, 3e-39, 9}, {-1e-44, 1e-44, 3}, {100, 1e-3, 4}, {1e10, 1, 0x80000000}};
}

// ---- States -------------------------------------------------------------------------------------

template <class T, class State> void checkBits(const StateForm<T, State>& form) {
  for (const Arguments& raw : arguments<T>())
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      const T first = T(raw.first), second = T(raw.second);
      const auto wanted = model(form, first, second, raw.seed, 9000);
      // A record off its boundary, directly at an unreadable page.
      const kit::Guarded<Zor8u> record(std::size_t(form.bytes), kit::Edge::end, raw.seed % 2);
      auto* state = reinterpret_cast<State*>(record.data());
      const auto restarted = [&](T* dst, Zor32s len) {
        EXPECT_EQ(form.init(state, first, second, raw.seed), zorStatusOk);
        return form.generate(dst, len, state);
      };
      const std::string name = std::string(form.name) + ", " + std::to_string(raw.first);
      generators::checkPlaces<T>(name, restarted, wanted,
                                 direction == _MM_ROUND_NEAREST ? kit::sweepLengths() : std::vector<int>{1, 9000});
      kit::Random random(raw.seed);
      for (int turn = 0; turn < 4; ++turn) {  // pieces
        EXPECT_EQ(form.init(state, first, second, raw.seed), zorStatusOk);
        std::vector<T> y(wanted.size());
        for (std::size_t at = 0; at < y.size();) {
          const std::size_t most = turn == 0 ? 1 : turn == 1 ? 3 : turn == 2 ? 130 : 1100;
          const std::size_t len = std::min(y.size() - at, 1 + random() % most);
          ASSERT_EQ(form.generate(y.data() + at, Zor32s(len), state), zorStatusOk);
          at += len;
        }
        ASSERT_EQ(kit::firstDifference<T>(y, wanted), "") << name << ", in pieces " << turn;
      }
      ASSERT_TRUE(record.intact()) << name;
    }
}
TEST(RandomStates, PiecesOfAnySizeGiveTheBitsOfOneSequence) {
  forStates([](const auto& form) { checkBits(form); });
}
TEST(RandomStates, AMillionValuesHaveTheBitsOfTheModel) {
  forStates([](const auto& form) {
    using T =
        std::remove_pointer_t<decltype([]<class A, class S>(const StateForm<A, S>*) -> A* { return nullptr; }(&form))>;
    std::vector<Zor8u> record(std::size_t(form.bytes));
    auto* state =
        reinterpret_cast<decltype([]<class A, class S>(const StateForm<A, S>*) -> S* { return nullptr; }(&form))>(
            record.data());
    std::vector<T> y(1'000'000);
    ASSERT_EQ(form.init(state, T(20), T(70), 12345), zorStatusOk);
    ASSERT_EQ(form.generate(y.data(), Zor32s(y.size()), state), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(y, model(form, T(20), T(70), 12345, y.size())), "") << form.name;
  });
}
TEST(RandomStates, ANewInitForgetsTheHeldVariate) {
  std::vector<Zor8u> record(72);
  auto* state = reinterpret_cast<ZorRandGaussState*>(record.data());
  Zor32f once[3], again[3];
  ASSERT_EQ(zorsRandGaussInit_32f(state, 0, 1, 9), zorStatusOk);
  ASSERT_EQ(zorsRandGauss_32f(once, 3, state), zorStatusOk);
  ASSERT_EQ(zorsRandGaussInit_32f(state, 0, 1, 9), zorStatusOk);
  ASSERT_EQ(zorsRandGauss_32f(again, 3, state), zorStatusOk);
  EXPECT_EQ(std::memcmp(once, again, sizeof once), 0);
}
TEST(RandomStates, SeedZeroStartsFromTheFixedWords) {
  Words words(0);
  EXPECT_EQ(words.b, 1013904243u);
  EXPECT_EQ(words.c, 1013904243u * 69069u + 1013904243u);
  words.step();
  EXPECT_EQ(words.lcg, 2061989128u);
  words.step();
  EXPECT_EQ(words.lcg, 0xDDC112DBu);
  Words fresh(0);
  const Zor32s r = fresh.step();
  Zor64f y = 0;
  Zor32u seed = 0;
  EXPECT_EQ(zorsRandUniform_Direct_64f(&y, 1, -1, 1, &seed), zorStatusOk);
  EXPECT_EQ(y, 2 * 2.3283064365387e-10 * double(r));
  EXPECT_EQ(seed, fresh.a);
}
TEST(RandomStates, EqualBoundsGiveThatValue) {
  std::vector<Zor8u> record(56);
  auto* state = reinterpret_cast<ZorRandUniformState*>(record.data());
  std::vector<Zor16s> y(100);
  ASSERT_EQ(zorsRandUniformInit_16s(state, -77, -77, 4), zorStatusOk);
  ASSERT_EQ(zorsRandUniform_16s(y.data(), 100, state), zorStatusOk);
  EXPECT_EQ(y, std::vector<Zor16s>(100, -77));
}

template <class T, class State> void checkLifecycle(const StateForm<T, State>& form) {
  Zor32s size = 0;
  EXPECT_EQ(form.getSize(&size), zorStatusOk);
  EXPECT_EQ(size, form.bytes) << form.name;
  EXPECT_EQ(form.getSize(nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.init(nullptr, T(1), T(2), 3), zorStatusNullPointer);
  EXPECT_EQ(form.initAlloc(nullptr, T(1), T(2), 3), zorStatusNullPointer);
  EXPECT_EQ(form.release(nullptr), zorStatusNullPointer);
  State* const before = reinterpret_cast<State*>(&size);
  State* state = before;
  const int allocations = kit::failEachAllocation(
      [&] {
        state = before;
        const auto status = form.initAlloc(&state, T(1), T(9), 3);
        if (status == zorStatusOk) {
          std::vector<T> y(100);
          EXPECT_EQ(kit::services().lastSize, form.bytes);
          EXPECT_EQ(form.generate(y.data(), 100, state), zorStatusOk);
          EXPECT_EQ(y, model(form, T(1), T(9), 3, 100)) << form.name;
          EXPECT_EQ(form.release(state), zorStatusOk);
        } else {
          EXPECT_EQ(state, before) << form.name;
        }
        return status;
      },
      [&](int n, ZorStatus status) {
        EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << form.name;
        EXPECT_EQ(kit::services().live, 0) << form.name;
      });
  EXPECT_EQ(allocations, 1);

  std::vector<Zor8u> record(std::size_t(form.bytes));
  auto* own = reinterpret_cast<State*>(record.data());
  ASSERT_EQ(form.init(own, T(1), T(9), 3), zorStatusOk);
  std::vector<T> dst(8, T(3));
  kit::Contract(form.generate, dst.data(), 8, own)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(record)
      .verify(form.name);
  for (Zor32u tag = 0; tag < 50; ++tag) {  // only one is its own
    Zor32u own32 = 0;
    std::memcpy(&own32, record.data(), 4);
    if (tag == own32) continue;
    auto other = record;
    std::memcpy(other.data(), &tag, 4);
    const auto was = other;
    auto* foreign = reinterpret_cast<State*>(other.data());
    const kit::ServicesScope scope;
    EXPECT_EQ(form.generate(dst.data(), 8, foreign), zorStatusBadContext) << form.name << ", " << tag;
    EXPECT_EQ(form.generate(dst.data(), 0, foreign), zorStatusBadSize);
    EXPECT_EQ(form.generate(nullptr, 8, foreign), zorStatusNullPointer);
    EXPECT_EQ(form.release(foreign), zorStatusBadContext);
    EXPECT_EQ(scope.leaked(), 0);
    EXPECT_EQ(other, was);
  }
  EXPECT_EQ(dst, std::vector<T>(8, T(3)));
}
TEST(RandomStates, RecordsOfFixedSizeAreAllocatedAndReleased) {
  forStates([](const auto& form) { checkLifecycle(form); });
}
TEST(RandomStates, AllSixTagsDiffer) {
  std::vector<Zor32u> tags;
  forStates([&](const auto& form) {
    std::vector<Zor8u> record(std::size_t(form.bytes));
    Zor32u tag = 0;
    form.init(reinterpret_cast<decltype([]<class A, class S>(const StateForm<A, S>*) -> S* { return nullptr; }(&form))>(
                  record.data()),
              1, 2, 3);
    std::memcpy(&tag, record.data(), 4);
    tags.push_back(tag);
  });
  EXPECT_EQ(tags, (std::vector<Zor32u>{35, 36, 37, 38, 39, 40}));
}

// ---- Direct forms -------------------------------------------------------------------------------

template <class T> std::vector<T> directUniform(T low, T high, Zor32u& seed, std::size_t count) {
  Words words(seed);
  const Range<T> range(low, high);
  std::vector<T> y(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double v = range.at(words.step());
    const bool rounded = std::is_integral_v<T> && i < (count & ~std::size_t{1});
    y[i] = cut<T>(rounded ? std::nearbyint(v) : v);
  }
  seed = words.a;
  return y;
}
template <class T> std::vector<T> directGauss(T mean, T stdDev, Zor32u& seed, std::size_t count) {
  Words words(seed);
  std::vector<T> y;
  while (y.size() < count) {
    const Pair pair(words);
    y.push_back(directElement(pair.u2, pair.factor, mean, stdDev));
    y.push_back(directElement(pair.u1, pair.factor, mean, stdDev));
  }
  y.resize(count);
  seed = words.a;
  return y;
}
template <class T, class Model> void checkDirect(const char* name, Direct<T> function, Model modelOf) {
  for (const Arguments& raw : arguments<T>())
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      const T first = T(raw.first), second = T(raw.second);
      auto lengths = direction == _MM_ROUND_NEAREST ? kit::sweepLengths() : kit::fewLengths();
      lengths.push_back(10'001);
      for (int len : lengths) {
        Zor32u wantedSeed = raw.seed;
        const auto wanted = modelOf(first, second, wantedSeed, std::size_t(len));
        generators::checkPlaces<T>(name,
                                   [&](T* dst, Zor32s n) {
                                     Zor32u seed = raw.seed;
                                     const auto status = function(dst, n, first, second, &seed);
                                     EXPECT_EQ(seed, wantedSeed) << name << ", " << n;
                                     return status;
                                   },
                                   wanted, {len});
      }
    }
  std::vector<T> dst(8, T(3));
  Zor32u seed = 5;
  kit::Contract(function, dst.data(), 8, T(1), T(2), &seed)
      .template null<0>()
      .template null<4>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .untouched(&seed, sizeof seed)
      .verify(name);
}
TEST(RandomDirect, EveryCallStartsFromTheSeedAndLeavesTheNewestWord) {
  checkDirect<Zor16s>("zorsRandUniform_Direct_16s", zorsRandUniform_Direct_16s, directUniform<Zor16s>);
  checkDirect<Zor32f>("zorsRandUniform_Direct_32f", zorsRandUniform_Direct_32f, directUniform<Zor32f>);
  checkDirect<Zor64f>("zorsRandUniform_Direct_64f", zorsRandUniform_Direct_64f, directUniform<Zor64f>);
  checkDirect<Zor16s>("zorsRandGauss_Direct_16s", zorsRandGauss_Direct_16s, directGauss<Zor16s>);
  checkDirect<Zor32f>("zorsRandGauss_Direct_32f", zorsRandGauss_Direct_32f, directGauss<Zor32f>);
  checkDirect<Zor64f>("zorsRandGauss_Direct_64f", zorsRandGauss_Direct_64f, directGauss<Zor64f>);
}
TEST(RandomDirect, OneElementUsesAWholePairOfWords) {
  Zor32u one = 7, two = 7;
  Zor32f y = 0, z[2];
  ASSERT_EQ(zorsRandGauss_Direct_32f(&y, 1, 0, 1, &one), zorStatusOk);
  ASSERT_EQ(zorsRandGauss_Direct_32f(z, 2, 0, 1, &two), zorStatusOk);
  EXPECT_NE(one, 7u);
  EXPECT_EQ(one, two);
  EXPECT_EQ(y, z[0]);
}
TEST(RandomDirect, TwoCallsAreNotOneOfTwiceTheLength) {
  Zor32u apart = 7, whole = 7;
  Zor32f y[20], z[20];
  ASSERT_EQ(zorsRandUniform_Direct_32f(y, 10, 0, 1, &apart), zorStatusOk);
  ASSERT_EQ(zorsRandUniform_Direct_32f(y + 10, 10, 0, 1, &apart), zorStatusOk);
  ASSERT_EQ(zorsRandUniform_Direct_32f(z, 20, 0, 1, &whole), zorStatusOk);
  EXPECT_EQ(std::memcmp(y, z, 10 * sizeof *y), 0);
  EXPECT_NE(std::memcmp(y, z, sizeof y), 0);
}

// ---- The numbers as random ones -----------------------------------------------------------------

TEST(RandomNumbers, MomentsAndCorrelationsAreThoseOfIndependentValues) {
  constexpr int n = 1 << 20;
  std::vector<Zor64f> uniform(n), normal(n);
  Zor32u seed = 2024;
  ASSERT_EQ(zorsRandUniform_Direct_64f(uniform.data(), n, -1, 1, &seed), zorStatusOk);
  seed = 2024;
  ASSERT_EQ(zorsRandGauss_Direct_64f(normal.data(), n, 0, 1, &seed), zorStatusOk);
  const auto moment = [&](const std::vector<Zor64f>& x, int k) {
    return std::accumulate(x.begin(), x.end(), 0.0, [&](double sum, double v) { return sum + std::pow(v, k); }) / n;
  };
  const double limit = 5 / std::sqrt(double(n));  // five standard deviations
  EXPECT_NEAR(moment(uniform, 1), 0, limit);
  EXPECT_NEAR(moment(uniform, 2), 1.0 / 3, limit);
  EXPECT_NEAR(moment(uniform, 4), 1.0 / 5, limit);
  EXPECT_NEAR(moment(normal, 1), 0, limit);
  EXPECT_NEAR(moment(normal, 2), 1, 1.5 * limit);
  EXPECT_NEAR(moment(normal, 3), 0, 4 * limit);
  EXPECT_NEAR(moment(normal, 4), 3, 10 * limit);
  // A flat spectrum: no autocorrelation at any lag.
  for (const auto& x : {uniform, normal})
    for (int lag = 1; lag <= 32; ++lag) {
      double sum = 0;
      for (int i = 0; i + lag < n; ++i) sum += x[std::size_t(i)] * x[std::size_t(i + lag)];
      EXPECT_NEAR(sum / n, 0, limit) << lag;
    }
}

}  // namespace
