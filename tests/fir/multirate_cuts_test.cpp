// Multi-rate filters give the same bits for an output whatever the length of a call, where a stream is cut and where
// the arrays lie: every kernel, its beginnings and its ends against one long run.
#include "zors/multirate.h"

#include <gtest/gtest.h>

#include <cstring>

#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/fir.h"

namespace {

using kit::Edge;
using kit::Guarded;

struct Shape {
  Zor32s taps, up, upPhase, down, downPhase;
};
std::string text(const Shape& s) {
  return std::to_string(s.taps) + " taps, " + std::to_string(s.up) + "/" + std::to_string(s.down) + ", phases " +
         std::to_string(s.upPhase) + " and " + std::to_string(s.downPhase);
}
// Rows of whole registers and of broken ones, windows that share loads, phases without taps, both kinds of phases.
const Shape shapes[] = {{32, 1, 0, 2, 0},  {33, 1, 0, 2, 1},  {31, 1, 0, 4, 3},     {64, 1, 0, 4, 0},
                        {9, 1, 0, 8, 5},   {40, 1, 0, 16, 0}, {5, 1, 0, 3, 2},      {70, 1, 0, 3, 0},
                        {1, 1, 0, 2, 0},   {20, 4, 0, 1, 0},  {43, 3, 2, 1, 0},     {9, 8, 3, 1, 0},
                        {130, 2, 0, 1, 0}, {50, 16, 0, 1, 0}, {3, 5, 4, 1, 0},      {64, 3, 0, 2, 0},
                        {21, 2, 1, 3, 2},  {130, 5, 2, 7, 6}, {40, 147, 5, 160, 9}, {300, 21, 20, 20, 0}};

template <class T> T sampleOf(kit::Random& random) {
  const auto part = [&] { return Zor64f(int(random() % 65536) - 32768); };
  if constexpr (requires(T x) { x.re; })
    return {static_cast<decltype(T::re)>(part()), static_cast<decltype(T::im)>(part())};
  else
    return static_cast<T>(part());
}
template <class T> std::vector<T> samples(std::size_t count, kit::Random& random) {
  std::vector<T> x(count);
  for (T& s : x) s = sampleOf<T>(random);
  return x;
}

// A filter as a function of a stream: make() starts one, run(src, dst, numIters) goes on, src may be dst.
template <class T> struct Filter {
  std::function<void()> make;
  std::function<ZorStatus(const T*, T*, Zor32s)> run;
};

constexpr Zor32s longest = 150;

template <class T> void check(const std::string& name, const Shape& s, const Filter<T>& filter, kit::Random& random) {
  const std::string where = name + ", " + text(s);
  const auto up = std::size_t(s.up), down = std::size_t(s.down);
  const Zor32s total = up * down > 1000 ? 40 : longest;
  const auto src = samples<T>(std::size_t(total) * down, random);
  std::vector<T> wanted(std::size_t(total) * up);
  filter.make();
  ASSERT_EQ(filter.run(src.data(), wanted.data(), total), zorStatusOk) << where;
  const auto piece = [&](Zor32s done, Zor32s count, Edge edge, bool inPlace) {
    const auto at = src.begin() + std::ptrdiff_t(done) * s.down;
    const std::vector<T> in(at, at + std::ptrdiff_t(count) * s.down);
    const auto first = wanted.begin() + std::ptrdiff_t(done) * s.up;
    const std::vector<T> out(first, first + std::ptrdiff_t(count) * s.up);
    const Guarded<T> from(in, edge), to(inPlace ? std::max(in.size(), out.size()) : out.size(), edge);
    if (inPlace) std::copy(in.begin(), in.end(), to.data());
    ASSERT_EQ(filter.run(inPlace ? to.data() : from.data(), to.data(), count), zorStatusOk) << where;
    ASSERT_EQ(std::memcmp(to.data(), out.data(), out.size() * sizeof(T)), 0)
        << where << ", iterations " << done << " to " << done + count << (inPlace ? " in place" : "");
    ASSERT_TRUE(to.intact()) << where;
  };
  for (Zor32s count = 1; count <= std::min<Zor32s>(70, total); ++count)
    for (Edge edge : kit::bothEdges) {
      filter.make();
      ASSERT_NO_FATAL_FAILURE(piece(0, count, edge, false));
      filter.make();
      ASSERT_NO_FATAL_FAILURE(piece(0, count, edge, true));
    }
  for (Zor32s most : {1, 3, 9, 20, 70}) {
    filter.make();
    for (Zor32s done = 0; done < total;) {
      const Zor32s count = std::min<Zor32s>(total - done, 1 + Zor32s(random() % std::size_t(most)));
      ASSERT_NO_FATAL_FAILURE(piece(done, count, random() % 2 ? Edge::begin : Edge::end, random() % 2 == 1));
      done += count;
    }
  }
}

// A state of a kind, made anew for each stream.
template <class Tap, class T, class Init, class Run>
void checkState(const char* name, Init init, Run run, ZorStatus (*free)(ZorFIRState*)) {
  kit::Random random(17);
  for (const Shape& s : shapes) {
    const auto taps = samples<Tap>(std::size_t(s.taps), random);
    ZorFIRState* state = nullptr;
    Filter<T> filter;
    filter.make = [&] {
      if (state != nullptr) free(state);
      ASSERT_EQ(init(&state, taps.data(), s), zorStatusOk);
    };
    filter.run = [&](const T* src, T* dst, Zor32s count) { return run(src, dst, count, state); };
    ASSERT_NO_FATAL_FAILURE(check(name, s, filter, random));
    free(state);
  }
}

TEST(MultiRateCuts, StatesGiveTheSameBitsForAnyCut) {
  checkState<Zor32f, Zor32f>(
      "zorsFIR_32f",
      [](ZorFIRState** state, const Zor32f* taps, const Shape& s) {
        return zorsFIRMRInitAlloc_32f(state, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      zorsFIR_32f, zorsFIRFree_32f);
  checkState<Zor32fc, Zor32fc>(
      "zorsFIR_32fc",
      [](ZorFIRState** state, const Zor32fc* taps, const Shape& s) {
        return zorsFIRMRInitAlloc_32fc(state, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      zorsFIR_32fc, zorsFIRFree_32fc);
  checkState<Zor64f, Zor64f>(
      "zorsFIR_64f",
      [](ZorFIRState** state, const Zor64f* taps, const Shape& s) {
        return zorsFIRMRInitAlloc_64f(state, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      zorsFIR_64f, zorsFIRFree_64f);
  checkState<Zor64fc, Zor64fc>(
      "zorsFIR_64fc",
      [](ZorFIRState** state, const Zor64fc* taps, const Shape& s) {
        return zorsFIRMRInitAlloc_64fc(state, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      zorsFIR_64fc, zorsFIRFree_64fc);
  checkState<Zor32f, Zor16s>(
      "zorsFIR32f_16s_Sfs",
      [](ZorFIRState** state, const Zor32f* taps, const Shape& s) {
        return zorsFIRMRInitAlloc32f_16s(state, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      [](const Zor16s* src, Zor16s* dst, Zor32s count, ZorFIRState* state) {
        return zorsFIR32f_16s_Sfs(src, dst, count, state, 18);
      },
      zorsFIRFree32f_16s);
  checkState<Zor16s, Zor16s>(
      "zorsFIR_16s_Sfs",
      [](ZorFIRState** state, const Zor16s* taps, const Shape& s) {
        return zorsFIRMRInitAlloc_16s(state, taps, s.taps, 0, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      [](const Zor16s* src, Zor16s* dst, Zor32s count, ZorFIRState* state) {
        return zorsFIR_16s_Sfs(src, dst, count, state, 17);
      },
      zorsFIRFree_16s);
  checkState<Zor32sc, Zor16sc>(
      "zorsFIR32sc_16sc_Sfs",
      [](ZorFIRState** state, const Zor32sc* taps, const Shape& s) {
        return zorsFIRMRInitAlloc32sc_16sc(state, taps, s.taps, 0, s.up, s.upPhase, s.down, s.downPhase, nullptr);
      },
      [](const Zor16sc* src, Zor16sc* dst, Zor32s count, ZorFIRState* state) {
        return zorsFIR32sc_16sc_Sfs(src, dst, count, state, 17);
      },
      zorsFIRFree32sc_16sc);
}

template <class Tap, class T, class Run> void checkDirect(const char* name, Run run) {
  kit::Random random(18);
  for (const Shape& s : shapes) {
    const auto taps = samples<Tap>(std::size_t(s.taps), random);
    std::vector<T> dly;
    Filter<T> filter;
    filter.make = [&] { dly.assign(std::size_t((s.taps + s.up - 1) / s.up), T{}); };
    filter.run = [&](const T* src, T* dst, Zor32s count) { return run(src, dst, count, taps.data(), s, dly.data()); };
    ASSERT_NO_FATAL_FAILURE(check(name, s, filter, random));
  }
}

TEST(MultiRateCuts, StatelessFormsGiveTheSameBitsForAnyCut) {
  checkDirect<Zor32f, Zor32f>("zorsFIRMR_Direct_32f", [](const auto* src, auto* dst, Zor32s count, const auto* taps,
                                                         const Shape& s, auto* dly) {
    return zorsFIRMR_Direct_32f(src, dst, count, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, dly);
  });
  checkDirect<Zor64fc, Zor32fc>("zorsFIRMR64fc_Direct_32fc", [](const auto* src, auto* dst, Zor32s count,
                                                                const auto* taps, const Shape& s, auto* dly) {
    return zorsFIRMR64fc_Direct_32fc(src, dst, count, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, dly);
  });
  checkDirect<Zor64f, Zor32s>("zorsFIRMR64f_Direct_32s_Sfs", [](const auto* src, auto* dst, Zor32s count,
                                                                const auto* taps, const Shape& s, auto* dly) {
    return zorsFIRMR64f_Direct_32s_Sfs(src, dst, count, taps, s.taps, s.up, s.upPhase, s.down, s.downPhase, dly, 4);
  });
  checkDirect<Zor32s, Zor16s>("zorsFIRMR32s_Direct_16s_Sfs", [](const auto* src, auto* dst, Zor32s count,
                                                                const auto* taps, const Shape& s, auto* dly) {
    return zorsFIRMR32s_Direct_16s_Sfs(src, dst, count, taps, s.taps, 0, s.up, s.upPhase, s.down, s.downPhase, dly, 17);
  });
}

// A filter too large for the stack is filtered output by output; its answer is that of the state.
TEST(MultiRateCuts, ALargeStatelessFilterAgreesWithItsState) {
  kit::Random random(19);
  constexpr Zor32s n = 9000, numIters = 20;
  const auto taps = samples<Zor16s>(n, random), src = samples<Zor16s>(3 * numIters, random);
  const std::vector<Zor32s> wide(taps.begin(), taps.end());
  std::vector<Zor16s> dst(2 * numIters), wanted(2 * numIters), dly(n / 2, Zor16s{});
  ZorFIRState* state = nullptr;
  ASSERT_EQ(zorsFIRMRInitAlloc32s_16s(&state, wide.data(), n, 0, 2, 0, 3, 1, nullptr), zorStatusOk);
  Zor32s tapsFactor = 0;
  std::vector<Zor32s> kept(n);
  ASSERT_EQ(zorsFIRGetTaps32s_16s(state, kept.data(), &tapsFactor), zorStatusOk);
  ASSERT_EQ(zorsFIR32s_16s_Sfs(src.data(), wanted.data(), numIters, state, 17), zorStatusOk);
  ASSERT_EQ(zorsFIRFree32s_16s(state), zorStatusOk);
  ASSERT_EQ(zorsFIRMR32s_Direct_16s_Sfs(src.data(), dst.data(), numIters, kept.data(), n, tapsFactor, 2, 0, 3, 1,
                                        dly.data(), 17),
            zorStatusOk);
  EXPECT_EQ(dst, wanted);
}

// ---- Complex products of stateless forms --------------------------------------------------------

// Each product is rounded by itself, then their sum or difference, then the running sum.
Zor64f rounded(Zor64f x) {
  volatile Zor64f kept = x;
  return kept;
}
Zor64fc plusTerm(Zor64fc sum, Zor64fc tap, Zor64fc x) {
  const Zor64f re = rounded(rounded(tap.re * x.re) - rounded(tap.im * x.im)),
               im = rounded(rounded(tap.re * x.im) + rounded(tap.im * x.re));
  return {rounded(sum.re + re), rounded(sum.im + im)};
}

TEST(DirectFir, ComplexProductsAreNotFused) {
  kit::Random random(20);
  const auto part = [&] { return 1 + Zor64f(random() % (1u << 30)) * 0x1p-30 + Zor64f(random() % 1024) * 0x1p-52; };
  for (Zor32s n = 1; n < 16; ++n) {
    constexpr Zor32s len = 70;
    std::vector<Zor64fc> taps(std::size_t(n), Zor64fc{}), dly(std::size_t(2 * n), Zor64fc{});
    for (auto& tap : taps) tap = {part(), part()};
    std::vector<Zor32fc> src(len), dst(len), narrowDly(std::size_t(2 * n), Zor32fc{}), oneDly = narrowDly;
    for (auto& x : src) x = {static_cast<Zor32f>(part()), static_cast<Zor32f>(part())};
    Zor32s index = 0, narrowIndex = 0, oneIndex = 0;
    ASSERT_EQ(zorsFIR64fc_Direct_32fc(src.data(), dst.data(), len, taps.data(), n, narrowDly.data(), &narrowIndex),
              zorStatusOk);
    for (Zor32s i = 0; i < len; ++i) {
      Zor64fc wanted{};
      for (Zor32s j = n - 1; j >= 0; --j)
        wanted = plusTerm(wanted, taps[std::size_t(j)],
                          i >= j ? Zor64fc{src[std::size_t(i - j)].re, src[std::size_t(i - j)].im} : Zor64fc{});
      Zor64fc wide;
      ASSERT_EQ(zorsFIROne_Direct_64fc({src[std::size_t(i)].re, src[std::size_t(i)].im}, &wide, taps.data(), n,
                                       dly.data(), &index),
                zorStatusOk);
      EXPECT_TRUE(wide.re == wanted.re && wide.im == wanted.im) << n << " taps, sample " << i;
      Zor32fc one;
      ASSERT_EQ(zorsFIROne64fc_Direct_32fc(src[std::size_t(i)], &one, taps.data(), n, oneDly.data(), &oneIndex),
                zorStatusOk);
      for (const Zor32fc& narrow : {one, dst[std::size_t(i)]})
        EXPECT_TRUE(narrow.re == Zor32f(wanted.re) && narrow.im == Zor32f(wanted.im)) << n << " taps, sample " << i;
    }
  }
}

}  // namespace
