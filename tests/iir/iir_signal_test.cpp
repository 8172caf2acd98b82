// Filters as they are used: impulse, step and noise against long double, a long run, several channels, what is not
// finite.
#include <cmath>

#include "iir/iir_filters.h"
#include "kit/guarded.h"
#include "kit/object.h"
#include "kit/services.h"

namespace {

using namespace iir;

// Resonators inside the unit circle; of integer taps multiples of 2^-20, given as integers.
Numbers stableTaps(const Filter& f, int count, double radius) {
  Numbers taps;
  const auto round = [&](double x) { return f.integerTaps ? std::nearbyint(x * 0x1p20) : f.single ? float(x) : x; };
  const auto pole = [&](int s) { return std::pair{-2 * radius * std::cos(0.3 + 0.37 * s), radius * radius}; };
  if (f.form == Form::polynomial) {
    std::vector<double> a{1}, b{1};
    for (int s = 0; s < count; ++s) {  // radius^k on a circle: (1 - (r / z)^(n+1)) / (1 - r / z)
      a.push_back(a.back() * radius * 0.9);
      b.push_back(0.5 / (s + 1));
    }
    for (double v : b) taps.push_back({round(v), 0});
    for (double v : a) taps.push_back({round(v), 0});
    if (f.complex)  // turned by a right angle: tap k times i^k
      for (std::size_t k = 0; k < taps.size(); ++k) {
        const long double v = taps[k].re;
        const Number turned[] = {{v, 0}, {0, v}, {-v, 0}, {0, -v}};
        taps[k] = turned[k % std::size_t(count + 1) % 4];
      }
    return taps;
  }
  for (int s = 0; s < count; ++s) {
    const auto [a1, a2] = pole(s);
    for (double v : {0.4, -0.1, 0.2, 1.0, a1, a2}) taps.push_back({round(v), 0});
    if (f.complex) taps[std::size_t(6 * s)].im = round(0.1);
  }
  return taps;
}
long double largest(const Numbers& x) {
  long double most = 0;
  for (Number n : x) most = std::max(most, std::max(std::fabs(n.re), std::fabs(n.im)));
  return most;
}

TEST(IirSignal, ImpulseStepAndNoiseAreThoseOfTheModelWithinRoundings) {
  kit::Random random(1);
  for (const Filter& f : filters())
    for (int count : {1, 2, 3, 4, 7, 12})
      for (int kind = 0; kind < 3; ++kind) {
        const Numbers taps = stableTaps(f, count, 0.85);
        const Zor32s factor = f.integerTaps ? 20 : 0;
        const State state(f, taps, count, nullptr, factor);
        ASSERT_EQ(state.status, zorStatusOk);
        Numbers x(1500);
        const long double height = f.sampleBits == 0 ? 1 : 3000;
        for (std::size_t i = 0; i < x.size(); ++i) {
          const auto noise = [&] {
            return std::nearbyint((static_cast<long double>(random() % 2001) / 1000 - 1) * 3000);
          };
          x[i].re = (kind == 0 ? (i == 0) : kind == 1 ? 1 : noise() * (height / 3000)) * (kind == 2 ? 1 : height);
          if (f.complex && kind == 2) x[i].im = noise() * (height / 3000);
        }
        Model model(f.form, taps, count);
        Numbers exact;
        for (Number n : x) exact.push_back(model.step(n));
        const Numbers got = f.run(x, state, 0, kind == 1, 0);
        const long double rounding =
            f.single ? 0x1p-23L
            : f.sampleBits == 0 && f.valueBytes / (f.complex ? 2 : 1) == 8 && f.name.find("_32f") == std::string::npos
                ? 0x1p-52L
                : 0x1p-23L;
        const long double tolerance =
            (f.sampleBits == 0 ? 0 : 1.0L) + 100 * (count + 1) * rounding * std::max(largest(exact), height);
        for (std::size_t i = 0; i < x.size(); ++i) {
          ASSERT_LE(std::fabs(got[i].re - exact[i].re), tolerance) << f.name << ", count " << count << ", " << i;
          ASSERT_LE(std::fabs(got[i].im - exact[i].im), tolerance) << f.name << ", count " << count << ", " << i;
        }
      }
}

TEST(IirSignal, AMillionSamplesStayWithTheModel) {
  for (const char* name : {"zorsIIRGetStateSize_BiQuad_32f", "zorsIIRGetStateSize_BiQuad_64f",
                           "zorsIIRGetStateSize_BiQuad_DF1_32f", "zorsIIRGetStateSize_32f"})
    for (const Filter& f : filters()) {
      if (f.name != name) continue;
      const int count = f.form == Form::polynomial ? 2 : 3;
      const Numbers taps = stableTaps(f, count, 0.98);
      const State state(f, taps, count);
      Model model(f.form, taps, count);
      kit::Random random(2);
      Numbers x(1 << 16), y, exact(x.size());
      for (int block = 0; block < 16; ++block) {
        for (Number& n : x) n.re = float(static_cast<long double>(random() % 20001) / 10000 - 1);
        for (std::size_t i = 0; i < x.size(); ++i) exact[i] = model.step(x[i]);
        y = f.run(x, state, 0, false, 0);
      }
      const long double tolerance = (f.single ? 1e-4L : 1e-12L) * largest(exact);
      for (std::size_t i = 0; i < x.size(); ++i) ASSERT_LE(std::fabs(y[i].re - exact[i].re), tolerance) << name;
    }
}

TEST(IirSignal, WhatIsNotFiniteTouchesNoOutputBeforeIt) {
  for (const Filter& f : filters()) {
    if (f.sampleBits != 0) continue;
    for (int count : {1, 2, 3}) {
      for (long double bad : {HUGE_VALL, -HUGE_VALL, std::nanl("")})
        for (std::size_t at : {0u, 1u, 7u, 8u, 21u, 40u, 63u}) {
          const Numbers taps = stableTaps(f, count, 0.5);
          const State state(f, taps, count), same(f, taps, count);
          Numbers x(64);
          for (std::size_t i = 0; i < x.size(); ++i) x[i].re = static_cast<long double>(i % 7) - 3;
          const Numbers good = f.run(x, same, 0, false, 0);
          x[at].re = bad;
          const Numbers got = f.run(x, state, 0, true, 0);
          for (std::size_t i = 0; i < at; ++i)
            ASSERT_LE(std::fabs(got[i].re - good[i].re), 1e-5L) << f.name << " " << at << " " << i;
          for (std::size_t i = at; i < x.size(); ++i)
            ASSERT_FALSE(std::isfinite(got[i].re)) << f.name << " " << at << " " << i;
          // The registers hold what the steps leave: zeros from the caller heal the filter.
          f.setDly(state, nullptr);
          f.setDly(same, nullptr);
          x[at].re = 0;
          EXPECT_TRUE(f.run(x, state, 0, false, 0) == f.run(x, same, 0, false, 0)) << f.name;
        }
    }
  }
}

// A chunk with such a number is that of single samples, bit for bit: look-ahead would carry it to outputs before it.
TEST(IirSignal, WhatIsNotFiniteIsFilteredAsSingleSamplesAre) {
  for (const Filter& f : filters()) {
    if (f.sampleBits != 0) continue;
    for (int count : {1, 2, 3})
      for (std::size_t at = 0; at < 135; at += count == 1 ? 1 : 7) {
        const Numbers taps = stableTaps(f, count, 0.5);
        const State state(f, taps, count), single(f, taps, count);
        Numbers x(135);
        for (std::size_t i = 0; i < x.size(); ++i) x[i].re = static_cast<long double>(i % 7) - 3;
        (f.complex && at % 2 == 1 ? x[at].im : x[at].re) = at % 3 == 0 ? std::nanl("") : HUGE_VALL;
        const Numbers got = f.run(x, state, 0, at % 2 == 0, 0);
        const auto same = [](long double a, long double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
        for (std::size_t i = 0; i < x.size(); ++i) {
          const Number wanted = f.one(x[i], single, 0);
          ASSERT_TRUE(same(got[i].re, wanted.re) && same(got[i].im, wanted.im)) << f.name << " " << at << " " << i;
        }
        Numbers after(std::size_t(dlyLen(f.form, count))), wantedAfter = after;
        f.getDly(state, &after);
        f.getDly(single, &wantedAfter);
        for (std::size_t i = 0; i < after.size(); ++i)
          ASSERT_TRUE(same(after[i].re, wantedAfter[i].re) && same(after[i].im, wantedAfter[i].im)) << f.name;
      }
  }
}

// Poles near the unit circle, where what a block takes over from the one before it weighs most.
TEST(IirSignal, BlocksStayNearTheModelAsSingleSamplesDo) {
  for (const char* name : {"zorsIIRGetStateSize_BiQuad_32f", "zorsIIRGetStateSize_BiQuad_64f",
                           "zorsIIRGetStateSize_BiQuad_DF1_32f", "zorsIIRGetStateSize_32f", "zorsIIRGetStateSize_64f"})
    for (const Filter& f : filters()) {
      if (f.name != name) continue;
      for (double radius : {0.9, 0.99, 0.999})
        for (double angle : {0.0, 0.01, 0.1, 1.0, 2.0, 3.1}) {
          const int count = f.form == Form::polynomial ? 2 : 1;
          Numbers taps;
          const double gain = 1 - 2 * radius * std::cos(angle) + radius * radius;
          for (double v : {gain / 2, gain / 4, gain / 4, 1.0, -2 * radius * std::cos(angle), radius * radius})
            taps.push_back({f.single ? float(v) : v, 0});
          const State state(f, taps, count), single(f, taps, count);
          Model model(f.form, taps, count);
          kit::Random random(4);
          Numbers x(4096);
          for (Number& n : x) n.re = static_cast<long double>(random() % 2049) / 1024 - 1;
          const Numbers got = f.run(x, state, 0, false, 0);
          long double most = 0, blockError = 0, singleError = 0;
          for (std::size_t i = 0; i < x.size(); ++i) {
            const long double exact = model.step(x[i]).re;
            most = std::max(most, std::fabs(exact));
            blockError += std::pow(got[i].re - exact, 2);
            singleError += std::pow(f.one(x[i], single, 0).re - exact, 2);
          }
          const long double rounding = (f.single ? 0x1p-24L : 0x1p-53L) * most * std::sqrt(4096.0L);
          EXPECT_LE(std::sqrt(blockError), 60 * (std::sqrt(singleError) + rounding))
              << f.name << ", radius " << radius << ", angle " << angle;
        }
    }
}

// A filter that runs away overflows where the plain steps do.
TEST(IirSignal, AnUnstableFilterGrowsAsTheStepsDo) {
  for (const Filter& f : filters()) {
    if (f.sampleBits != 0 || f.complex || f.name.find("64f_32f") != std::string::npos ||
        f.name.find("64f_BiQuad_32f") != std::string::npos)
      continue;
    Numbers taps(std::size_t(tapsLen(f.form, f.form == Form::polynomial ? 2 : 1)));
    taps[0] = taps[3] = {1, 0};
    taps[4] = {f.single ? -0x1p40L : -0x1p300L, 0};
    const int count = f.form == Form::polynomial ? 2 : 1;
    const State state(f, taps, count), zeros(f, taps, count);
    Numbers x(64);
    const Numbers still = f.run(x, zeros, 0, false, 0);
    for (Number n : still) EXPECT_EQ(n.re, 0) << f.name;
    x[30].re = 1;
    const Numbers got = f.run(x, state, 0, false, 0);
    for (std::size_t i = 0; i < 30; ++i) EXPECT_EQ(got[i].re, 0) << f.name;
    for (std::size_t i = 30; i < 33; ++i) EXPECT_EQ(got[i].re, std::pow(-taps[4].re, int(i) - 30)) << f.name;
    EXPECT_EQ(got[34].re, HUGE_VALL) << f.name;
  }
}

// ---- Several channels ---------------------------------------------------------------------------

template <class T> struct Channels {
  std::vector<std::vector<T>> src, dst;
  std::vector<const T*> srcs;
  std::vector<T*> dsts;
  std::vector<ZorIIRState*> states;
  Channels(int count, int len) {
    kit::Random random(7);
    for (int c = 0; c < count; ++c) {
      src.emplace_back();
      for (int i = 0; i < len; ++i) src.back().push_back(T(int(random() % 7) - 3));
      dst.emplace_back(std::size_t(len), T(99));
    }
    for (auto& v : src) srcs.push_back(v.data());
    for (auto& v : dst) dsts.push_back(v.data());
  }
};
const Filter& byTag(Zor32u tag) {
  for (const Filter& f : filters())
    if (f.tag == tag) return f;
  std::abort();
}

template <class T, class Run, class RunInPlace, class Single>
void checkChannels(Zor32u tag, Run run, RunInPlace runInPlace, Single single, ZorStatus badCount) {
  kit::Random random(3);
  const Filter& f = byTag(tag);
  SCOPED_TRACE(f.name);
  const int sections = f.form == Form::polynomial ? 2 : 3;
  for (int count : {1, 2, 7, 8, 9, 17})
    for (int len : {1, 5, 13, 100, 1030}) {
      Channels<T> channels(count, len), alone(count, len);
      for (int c = 0; c < count; ++c) {
        const Numbers taps = integerTaps(f, sections, random);
        for (auto* to : {&channels, &alone}) {
          ZorIIRState* state = nullptr;
          f.initAlloc(&state, &taps, sections, nullptr, 0);
          to->states.push_back(state);
        }
      }
      ASSERT_EQ(run(channels, len, count), zorStatusOk);
      for (int c = 0; c < count; ++c) single(alone, c, len);
      EXPECT_TRUE(channels.dst == alone.dst) << count << " " << len;
      channels.dst = channels.src;
      for (std::size_t c = 0; c < channels.dst.size(); ++c) channels.dsts[c] = channels.dst[c].data();
      ASSERT_EQ(runInPlace(channels, len, count), zorStatusOk);
      for (int c = 0; c < count; ++c) single(alone, c, len);
      EXPECT_TRUE(channels.dst == alone.dst) << count << " " << len << ", in place";
      for (auto* all : {&channels, &alone})
        for (auto* state : all->states) f.free(state);
    }
  // A bad third channel: two are filtered, the third and the fourth are not.
  const Filter& g = byTag(f.form == Form::cascade && f.single ? 0x49493239 : f.single ? 0x49493032 : 0x49493231);
  const Filter& other = g.tag == f.tag ? byTag(0x49493232) : g;
  for (int fault = 0; fault < 4; ++fault) {
    constexpr int len = 20;
    Channels<T> channels(4, len);
    for (int c = 0; c < 4; ++c) {
      const Filter& kind = fault == 3 && c == 2 ? other : f;
      ZorIIRState* state = nullptr;
      const Numbers taps = integerTaps(kind, 2, random);
      kind.initAlloc(&state, &taps, 2, nullptr, 0);
      channels.states.push_back(state);
    }
    auto* third = channels.states[2];
    if (fault == 0) channels.states[2] = nullptr;
    if (fault == 1) channels.srcs[2] = nullptr;
    if (fault == 2) channels.dsts[2] = nullptr;
    const auto untouched = channels.dst[2];
    EXPECT_EQ(run(channels, len, 4), fault == 3 ? zorStatusBadContext : zorStatusNullPointer) << fault;
    EXPECT_TRUE(channels.dst[0] != untouched && channels.dst[1] != untouched) << fault;
    EXPECT_TRUE(channels.dst[2] == untouched && channels.dst[3] == untouched) << fault;
    channels.states[2] = third;
    // The call's own arguments, in their order.
    EXPECT_EQ(run(channels, 0, 0), zorStatusBadSize);
    EXPECT_EQ(runInPlace(channels, -1, 0), zorStatusBadSize);
    for (int none : {0, -1, INT32_MIN}) {
      EXPECT_EQ(run(channels, len, none), badCount);
      EXPECT_EQ(runInPlace(channels, len, none), badCount);
    }
    auto* first = channels.states[0];
    channels.states[0] = nullptr;
    EXPECT_EQ(run(channels, len, 4), zorStatusNullPointer);
    std::vector<Zor32u> foreign(64, 0x49493031 + (f.single ? 0 : 1));  // in 32f an order, elsewhere a stranger
    channels.states[0] = reinterpret_cast<ZorIIRState*>(foreign.data());
    channels.srcs[0] = nullptr;
    EXPECT_EQ(run(channels, len, 4), zorStatusBadContext) << "the first tag before the channels' pointers";
    channels.states[0] = first;
    for (int c = 0; c < 4; ++c) (fault == 3 && c == 2 ? other : f).free(channels.states[std::size_t(c)]);
  }
}

constexpr Zor32s channelScales[] = {0, 1, 2, -1, 0, 3, 0, 1, 2, 1, 1, 1, 1, 0, 0, 0, -2};

TEST(IirChannels, EachRunsAsByItself) {
  for (Zor32u tag : {0x49493032u, 0x49493239u})
    checkChannels<Zor32f>(
        tag,
        [](auto& c, int len, int n) { return zorsIIR_32f_P(c.srcs.data(), c.dsts.data(), len, n, c.states.data()); },
        [](auto& c, int len, int n) { return zorsIIR_32f_IP(c.dsts.data(), len, n, c.states.data()); },
        [](auto& c, int i, int len) {
          zorsIIR_32f(c.srcs[std::size_t(i)], c.dsts[std::size_t(i)], len, c.states[std::size_t(i)]);
        },
        zorStatusBadChannelCountFloat);
  for (Zor32u tag : {0x49493231u, 0x49493232u, 0x49493330u})
    checkChannels<Zor32s>(
        tag,
        [](auto& c, int len, int n) {
          return zorsIIR64f_32s_PSfs(c.srcs.data(), c.dsts.data(), len, n, c.states.data(), channelScales);
        },
        [](auto& c, int len, int n) {
          return zorsIIR64f_32s_IPSfs(c.dsts.data(), len, n, c.states.data(), channelScales);
        },
        [](auto& c, int i, int len) {
          zorsIIR64f_32s_Sfs(c.srcs[std::size_t(i)], c.dsts[std::size_t(i)], len, c.states[std::size_t(i)],
                             channelScales[i]);
        },
        zorStatusBadChannelCountScaled);
}

// Channels of equal cascades stand side by side, those that share memory do not: all as if one came after the other.
template <class T, class Run, class Single> void checkSideBySide(Zor32u tag, Run run, Single single) {
  kit::Random random(9);
  const Filter& f = byTag(tag);
  enum { apart, unequal, chain, oneState, oneDestination, kinds };
  for (int kind = 0; kind < kinds; ++kind)
    for (int count : {2, 3, 4, 5, 8, 11})
      for (int sections : {1, 2, 16, 17, 33})
        for (int len : {1, 7, 8, 9, 20, 1029}) {
          if (len > 20 && sections > 2) continue;
          Channels<T> channels(count, len), alone(count, len);
          const int odd = int(random() % unsigned(count - 1)) + 1;  // differs from the others
          for (int c = 0; c < count; ++c) {
            const int own = kind == unequal && c == odd ? sections + 1 : sections;
            const Numbers taps = integerTaps(f, own, random);
            for (auto* to : {&channels, &alone}) {
              ZorIIRState* state = nullptr;
              f.initAlloc(&state, &taps, own, nullptr, 0);
              to->states.push_back(state);
            }
          }
          for (auto* all : {&channels, &alone}) {
            const auto at = std::size_t(odd);
            if (kind == chain) all->srcs[at] = all->dsts[at - 1];
            if (kind == oneState) std::swap(all->states[at - 1], all->states.emplace_back(all->states[at]));
            if (kind == oneDestination) all->dsts[at] = all->dsts[at - 1];
          }
          ASSERT_EQ(run(channels, len, count), zorStatusOk);
          for (int c = 0; c < count; ++c) single(alone, c, len);
          ASSERT_TRUE(channels.dst == alone.dst)
              << f.name << " " << kind << " " << count << " " << sections << " " << len;
          for (int c = 0; c < count; ++c) {
            const int own = kind == unequal && c == odd ? sections + 1 : sections;
            Numbers after(std::size_t(dlyLen(f.form, own))), wanted = after;
            f.getDly(channels.states[std::size_t(c)], &after);
            f.getDly(alone.states[std::size_t(c)], &wanted);
            ASSERT_TRUE(after == wanted) << f.name << " " << kind << " " << count << " " << sections << " " << len;
          }
          for (auto* all : {&channels, &alone}) {
            if (kind == oneState)
              std::swap(all->states[std::size_t(odd - 1)], all->states.back()), all->states.pop_back();
            for (auto* state : all->states) f.free(state);
          }
        }
}
TEST(IirChannels, SideBySideAsOneAfterTheOther) {
  for (Zor32u tag : {0x49493032u, 0x49493239u})
    checkSideBySide<Zor32f>(
        tag,
        [](auto& c, int len, int n) { return zorsIIR_32f_P(c.srcs.data(), c.dsts.data(), len, n, c.states.data()); },
        [](auto& c, int i, int len) {
          zorsIIR_32f(c.srcs[std::size_t(i)], c.dsts[std::size_t(i)], len, c.states[std::size_t(i)]);
        });
  for (Zor32u tag : {0x49493232u, 0x49493330u})
    checkSideBySide<Zor32s>(
        tag,
        [](auto& c, int len, int n) {
          return zorsIIR64f_32s_PSfs(c.srcs.data(), c.dsts.data(), len, n, c.states.data(), channelScales);
        },
        [](auto& c, int i, int len) {
          zorsIIR64f_32s_Sfs(c.srcs[std::size_t(i)], c.dsts[std::size_t(i)], len, c.states[std::size_t(i)],
                             channelScales[i]);
        });
}

// From four channels on (two in binary64) each takes the steps of single samples.
TEST(IirChannels, SideBySideTheyTakeSingleSteps) {
  for (Zor32u tag : {0x49493032u, 0x49493239u}) {
    const Filter& f = byTag(tag);
    for (int count : {4, 7, 8, 9})
      for (int sections : {1, 3, 18}) {
        constexpr int len = 75;
        Channels<Zor32f> channels(count, len);
        std::vector<ZorIIRState*> single;
        for (int c = 0; c < count; ++c) {
          const Numbers taps = stableTaps(f, sections, 0.5 + 0.05 * c);
          for (auto* to : {&channels.states, &single}) {
            ZorIIRState* state = nullptr;
            f.initAlloc(&state, &taps, sections, nullptr, 0);
            to->push_back(state);
          }
        }
        ASSERT_EQ(zorsIIR_32f_P(channels.srcs.data(), channels.dsts.data(), len, count, channels.states.data()), 0);
        for (std::size_t c = 0; c < std::size_t(count); ++c)
          for (std::size_t i = 0; i < len; ++i) {
            Zor32f wanted = 0;
            zorsIIROne_32f(channels.src[c][i], &wanted, single[c]);
            ASSERT_EQ(channels.dst[c][i], wanted) << f.name << " " << count << " " << sections << " " << c << " " << i;
          }
        for (auto* all : {&channels.states, &single})
          for (auto* state : *all) f.free(state);
      }
  }
}

TEST(IirChannels, NullArraysComeFirst) {
  const Zor32f* srcs[1] = {};
  Zor32f* dsts[1] = {};
  ZorIIRState* states[1] = {};
  EXPECT_EQ(zorsIIR_32f_P(nullptr, dsts, 0, 0, states), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR_32f_P(srcs, nullptr, 0, 0, states), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR_32f_P(srcs, dsts, 0, 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR_32f_IP(nullptr, 0, 0, states), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR_32f_IP(dsts, 0, 0, nullptr), zorStatusNullPointer);
  const Zor32s* srcs32s[1] = {};
  Zor32s *dsts32s[1] = {}, scales[1] = {};
  EXPECT_EQ(zorsIIR64f_32s_PSfs(nullptr, dsts32s, 0, 0, states, scales), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_PSfs(srcs32s, nullptr, 0, 0, states, scales), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_PSfs(srcs32s, dsts32s, 0, 0, nullptr, scales), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_PSfs(srcs32s, dsts32s, 0, 0, states, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_IPSfs(nullptr, 0, 0, states, scales), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_IPSfs(dsts32s, 0, 0, nullptr, scales), zorStatusNullPointer);
  EXPECT_EQ(zorsIIR64f_32s_IPSfs(dsts32s, 0, 0, states, nullptr), zorStatusNullPointer);
}

// ---- The integers' first form -------------------------------------------------------------------

TEST(IirFirstForm, RegistersKeepTheirFractionsAndOnlyGetRounds) {
  const Zor64f taps[] = {0.5, 0.25, 0.125, 1, 0, 0};
  ZorIIRState *state = nullptr, *again = nullptr;
  ASSERT_EQ(zorsIIRInitAlloc64f_BiQuad_DF1_32s(&state, taps, 1, nullptr), zorStatusOk);
  Zor32s y = 0, dly[4];
  zorsIIROne64f_32s_Sfs(7, &y, state, 0);  // y = 3.5
  EXPECT_EQ(y, 4);
  ASSERT_EQ(zorsIIRGetDlyLine64f_DF1_32s(state, dly), zorStatusOk);
  EXPECT_EQ(dly[0], 7);
  EXPECT_EQ(dly[1], 0);
  EXPECT_EQ(dly[2], 4);
  zorsIIROne64f_32s_Sfs(1, &y, state, 0);  // 0.5 + 1.75: from the unrounded input either way
  EXPECT_EQ(y, 2);
  ASSERT_EQ(zorsIIRGetDlyLine64f_DF1_32s(state, dly), zorStatusOk);
  EXPECT_EQ(dly[2], 2);
  EXPECT_EQ(dly[3], 4);
  // A second section sees 3.5, not 4; only the last result is rounded, at 5 / 2^1 to even.
  const Zor64f two[] = {0.5, 0, 0, 1, 0, 0, 2, 0, 0, 1, 0, 0};
  ASSERT_EQ(zorsIIRInitAlloc64f_BiQuad_DF1_32s(&again, two, 2, nullptr), zorStatusOk);
  zorsIIROne64f_32s_Sfs(7, &y, again, 1);
  EXPECT_EQ(y, 4);
  zorsIIROne64f_32s_Sfs(5, &y, again, 1);
  EXPECT_EQ(y, 2);
  zorsIIRFree64f_32s(state);
  zorsIIRFree64f_32s(again);
}

}  // namespace
