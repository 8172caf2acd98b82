#include <gtest/gtest.h>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"
#include "zors/fft.h"
#include "zors/fir.h"

namespace {

using kit::Edge;
using kit::Guarded;
using Floats = std::vector<Zor32f>;

// y[i] = sum of taps[k] * x[i - k]; before the stream stand the samples of dly, newest first. Sums are all but exact,
// and `weight` is the sum of magnitudes that a rounding error is measured by.
struct Exact {
  std::vector<long double> y, weight;
};
Exact convolve(const Floats& taps, const Floats& dly, const Floats& x) {
  Exact out{std::vector<long double>(x.size()), std::vector<long double>(x.size())};
  for (std::size_t i = 0; i < x.size(); ++i)
    for (std::size_t k = 0; k < taps.size(); ++k) {
      const std::size_t back = k - i - 1;  // where k > i: so many samples before the stream's first
      const long double sample = k <= i ? x[i - k] : back < dly.size() ? dly[back] : 0;
      out.y[i] += taps[k] * sample;
      out.weight[i] += std::fabs(taps[k] * sample);
    }
  return out;
}
constexpr long double eps = 0x1p-24L;

// Direct sums of n terms err by at most n half-ulps of the sum of magnitudes.
void expectDirect(const Floats& got, const Exact& exact, std::size_t tapsLen, const std::string& what) {
  for (std::size_t i = 0; i < got.size(); ++i)
    ASSERT_LE(std::fabs(got[i] - exact.y[i]), (tapsLen + 1) * eps * exact.weight[i] + 1e-38L)
        << what << " [" << i << "]";
}
// An FFT's error is spread over its block: some ulps of the largest possible output.
void expectByFft(const Floats& got, const Exact& exact, const std::string& what) {
  const long double largest = *std::max_element(exact.weight.begin(), exact.weight.end());
  for (std::size_t i = 0; i < got.size(); ++i)
    ASSERT_LE(std::fabs(got[i] - exact.y[i]), 32 * eps * largest) << what << " [" << i << "]";
}

// A state in a block of exactly the reported size, whose end is unreadable.
class State {
 public:
  State(const Floats& taps, const Zor32f* dly, std::size_t away = 0) : block_(size(int(taps.size())), Edge::end, away) {
    EXPECT_EQ(zorsFIRInit_32f(&state_, taps.data(), int(taps.size()), dly, block_.data()), zorStatusOk);
  }
  operator ZorFIRState*() const { return state_; }
  bool intact() const { return block_.intact(); }
  static std::size_t size(int tapsLen) {
    Zor32s bytes = 0;
    EXPECT_EQ(zorsFIRGetStateSize_32f(tapsLen, &bytes), zorStatusOk);
    return std::size_t(bytes);
  }

 private:
  Guarded<Zor8u> block_;
  ZorFIRState* state_ = nullptr;
};

Floats run(ZorFIRState* state, const Floats& x) {
  Floats y(x.size());
  EXPECT_EQ(zorsFIR_32f(x.data(), y.data(), int(x.size()), state), zorStatusOk);
  return y;
}
Floats runInPlace(ZorFIRState* state, Floats x) {
  EXPECT_EQ(zorsFIR_32f_I(x.data(), int(x.size()), state), zorStatusOk);
  return x;
}
Floats slice(const Floats& x, std::size_t from, std::size_t count) {
  return {x.begin() + long(from), x.begin() + long(from + count)};
}
Floats joined(Floats a, const Floats& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}
// The whole stream by the direct kernels, whatever its length: blocks stay below the FFT's least.
Floats runDirect(ZorFIRState* state, const Floats& x) {
  Floats y;
  for (std::size_t i = 0; i < x.size(); i += 500)
    y = joined(y, run(state, slice(x, i, std::min<std::size_t>(500, x.size() - i))));
  return y;
}
bool sameFloats(const Floats& a, const Floats& b) {
  return kit::firstDifference<Zor32f>(std::span(a), std::span(b)) == "";
}

const std::vector<int> tapCounts = [] {
  std::vector<int> counts;
  for (int n = 1; n <= 70; ++n) counts.push_back(n);
  for (int n : {127, 128, 129, 1023, 1024, 1025, 4096}) counts.push_back(n);
  return counts;
}();

TEST(FIRGetStateSize, HasTheStatedSizes) {
  const auto formula = [](int n) {
    Zor32s spec = 0, init = 0, work = 0, fftLen = 0;
    if (n >= 64) {
      int o = 2;
      while ((1 << o) <= n) ++o;
      EXPECT_EQ(zorsFFTGetSize_R_32f(o + 1, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone, &spec, &init, &work), zorStatusOk);
      fftLen = 1 << (o + 1);
    }
    return ((n + 16) & ~7) * 36 + ((32 * n + 63) & ~31) + ((32 * n + 120) & ~127) + spec + init +
           ((4 * fftLen + 15) >> 4 << 5) + work + 17104;
  };
  for (int n : tapCounts) EXPECT_EQ(State::size(n), std::size_t(formula(n))) << n;
  EXPECT_EQ(formula(1), 16 * 36 + 64 + 128 + 17104);
}

TEST(FIRInit, FitsTheReportedSizeAtEveryMisalignment) {
  kit::Random random(2);
  for (int n : {1, 2, 7, 8, 31, 63, 64, 100, 128, 1024}) {
    const Floats taps = kit::signal<Zor32f>(std::size_t(n), random), x = kit::signal<Zor32f>(1100, random);
    const State reference(taps, nullptr);
    const Floats wanted = run(reference, x);
    for (std::size_t away = 0; away<64; away += n> 100 ? 7 : 1) {
      const State state(taps, nullptr, away);
      EXPECT_TRUE(sameFloats(run(state, x), wanted)) << n << " taps, " << away << " bytes away";
      Zor32f one;
      for (int i = 0; i < n; ++i) EXPECT_EQ(zorsFIROne_32f(1, &one, state), zorStatusOk);
      run(state, slice(x, 0, 13));  // a ring that does not start at its begin
      runInPlace(state, x);
      EXPECT_TRUE(state.intact());
    }
  }
}

TEST(FIR, IsTheConvolutionForEveryTapCountAndLength) {
  kit::Random random(3);
  for (int n : tapCounts) {
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random), dly = kit::signal<Zor32f>(std::size_t(n), random);
    const int rows = (n + 7) / 8 * 8;
    std::vector<int> lengths = {1,    2,        7,        8,        9,        97,    511, rows - 1,
                                rows, rows + 1, rows + 7, rows + 8, rows + 9, n - 1, n};
    if (n <= 70)
      for (int len = 3; len <= 70; len += n % 5 + 1) lengths.push_back(len);
    for (int len : lengths) {
      if (len < 1 || len > 2000) continue;
      const auto x = kit::signal<Zor32f>(std::size_t(len), random);
      for (Edge edge : kit::bothEdges) {
        const State state(taps, dly.data());
        const Guarded<Zor32f> src(x, edge), dst(x.size(), edge);
        ASSERT_EQ(zorsFIR_32f(src.data(), dst.data(), len, state), zorStatusOk);
        ASSERT_TRUE(dst.intact() && state.intact());
        const auto exact = convolve(taps, dly, x);
        const std::string what = std::to_string(n) + " taps, " + std::to_string(len) + " samples";
        if (n >= 64 && len >= 512)
          expectByFft(dst.values(), exact, what);
        else
          expectDirect(dst.values(), exact, taps.size(), what);
        if (edge == Edge::end) {
          const State other(taps, dly.data());
          const Guarded<Zor32f> both(x, edge);
          ASSERT_EQ(zorsFIR_32f_I(both.data(), len, other), zorStatusOk);
          expectDirect(both.values(), exact, taps.size(), what + ", in place");
        }
      }
    }
  }
}

TEST(FIR, OverlapSaveIsTheConvolutionAroundItsBlockLengths) {
  kit::Random random(4);
  for (int n : {64, 65, 127, 128, 1000, 1024}) {
    int fftLen = 8;
    while (fftLen <= 2 * n) fftLen *= 2;
    const int outputs = fftLen - n + 1;
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random), dly = kit::signal<Zor32f>(std::size_t(n), random);
    for (int len : {512, 513, outputs - 1, outputs, outputs + 1, outputs + n, outputs + fftLen - 1, outputs + fftLen,
                    2 * outputs, 2 * outputs + 1, 3 * fftLen + 5, 3 * outputs + fftLen}) {
      if (len < 512) continue;
      const auto x = kit::signal<Zor32f>(std::size_t(len), random);
      const State state(taps, dly.data());
      const Guarded<Zor32f> src(x, Edge::end), dst(x.size(), Edge::begin);
      ASSERT_EQ(zorsFIR_32f(src.data(), dst.data(), len, state), zorStatusOk);
      ASSERT_TRUE(dst.intact() && state.intact());
      expectByFft(dst.values(), convolve(taps, dly, x),
                  std::to_string(n) + " taps, " + std::to_string(len) + " samples");
      // The history is that of the direct path.
      Floats kept(static_cast<std::size_t>(n)), wanted = joined(Floats(dly.rbegin(), dly.rend()), x);
      ASSERT_EQ(zorsFIRGetDlyLine_32f(state, kept.data()), zorStatusOk);
      wanted = slice(wanted, wanted.size() - std::size_t(n), std::size_t(n));
      std::reverse(wanted.begin(), wanted.end());
      EXPECT_TRUE(sameFloats(kept, wanted)) << n << " taps, " << len << " samples";
    }
  }
}

TEST(FIR, AnySplitOfAStreamIntoBlocksAndSingleSamplesGivesTheStream) {
  kit::Random random(5);
  for (int n : {1, 2, 5, 16, 63, 64, 128, 300}) {
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random), x = kit::signal<Zor32f>(6000, random);
    const auto exact = convolve(taps, {}, x);
    const State state(taps, nullptr);
    Floats y;
    while (y.size() < x.size()) {
      const std::size_t left = x.size() - y.size(), kind = random() % 4;
      const auto len = std::min(left, kind == 0 ? 1 : kind == 1 ? random() % 20 + 1 : random() % 900 + 1);
      const Floats part = slice(x, y.size(), len);
      if (kind == 0) {
        Floats one(1);
        ASSERT_EQ(zorsFIROne_32f(part[0], one.data(), state), zorStatusOk);
        y = joined(y, one);
      } else {
        y = joined(y, kind == 2 ? runInPlace(state, part) : run(state, part));
      }
    }
    EXPECT_TRUE(state.intact());
    if (n >= 64)
      expectByFft(y, exact, std::to_string(n));
    else
      expectDirect(y, exact, taps.size(), std::to_string(n));
  }
}

TEST(FIR, DirectResultsDoNotDependOnTheSplit) {
  kit::Random random(6);
  for (int n : {1, 3, 8, 15, 16, 17, 40, 64, 130}) {
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random), x = kit::signal<Zor32f>(2000, random);
    const State whole(taps, nullptr), split(taps, nullptr);
    const Floats wanted = runDirect(whole, x);
    Floats y;
    for (std::size_t len = 1; y.size() + len <= x.size(); len = len % 61 + 3)
      y = joined(y, run(split, slice(x, y.size(), len)));
    EXPECT_TRUE(sameFloats(y, slice(wanted, 0, y.size()))) << n;
  }
}

TEST(FIR, From512SamplesAnd64TapsOnTheFftPathRuns) {
  kit::Random random(7);
  const auto taps = kit::signal<Zor32f>(64, random), x = kit::signal<Zor32f>(512, random);
  const State reference(taps, nullptr), direct(taps, nullptr), byFft(taps, nullptr);
  const Floats wanted = runDirect(reference, x);
  EXPECT_TRUE(sameFloats(run(direct, slice(x, 0, 511)), slice(wanted, 0, 511)));
  const Floats y = run(byFft, x);
  EXPECT_FALSE(sameFloats(y, wanted));  // other roundings
  expectByFft(y, convolve(taps, {}, x), "512 samples");
  const auto fewer = slice(taps, 0, 63);
  const State short1(fewer, nullptr), short2(fewer, nullptr);
  EXPECT_TRUE(sameFloats(run(short1, x), runDirect(short2, x)));
}

TEST(FIR, InPlaceTheSamplesBehindAChunkChooseItsPath) {
  kit::Random random(8);
  const auto taps = kit::signal<Zor32f>(1024, random), x = kit::signal<Zor32f>(4736, random);
  const State reference(taps, nullptr), a(taps, nullptr), b(taps, nullptr), c(taps, nullptr), d(taps, nullptr);
  const Floats direct = runDirect(reference, x);
  EXPECT_TRUE(sameFloats(runInPlace(a, slice(x, 0, 4224)), slice(direct, 0, 4224)));  // up to 4,224 samples: direct
  EXPECT_TRUE(sameFloats(runInPlace(b, slice(x, 0, 4735)), slice(direct, 0, 4735)));  // 511 left behind: direct too
  const Floats y = runInPlace(c, x);  // 512 left behind: the FFT, then direct
  EXPECT_TRUE(sameFloats(slice(y, 0, 4224), run(d, slice(x, 0, 4224))));
  EXPECT_TRUE(sameFloats(slice(y, 4224, 512), slice(direct, 4224, 512)));
  EXPECT_FALSE(sameFloats(slice(y, 0, 4224), slice(direct, 0, 4224)));
  const State e(taps, nullptr);
  Floats same = x;
  ASSERT_EQ(zorsFIR_32f(same.data(), same.data(), 4736, e), zorStatusOk);  // equal pointers go the same way
  EXPECT_TRUE(sameFloats(same, y));
}

TEST(FIR, OneTapKeepsASampleThatWeighsNothing) {
  const State state({0.5f}, Floats{7}.data());
  EXPECT_EQ(run(state, {1, 2, 3}), (Floats{0.5f, 1, 1.5f}));
  Zor32f kept = 0;
  ASSERT_EQ(zorsFIRGetDlyLine_32f(state, &kept), zorStatusOk);
  EXPECT_EQ(kept, 3);
}

TEST(FIR, TheOldestSampleOfTheDelayLineIsStoredAndReturnedButWeighsNothing) {
  const Floats taps = {1, 10, 100}, dly = {1, 2, 3};  // newest first
  const State state(taps, dly.data());
  Floats got(3);
  ASSERT_EQ(zorsFIRGetDlyLine_32f(state, got.data()), zorStatusOk);
  EXPECT_EQ(got, dly);
  EXPECT_EQ(run(state, {5}), (Floats{5 + 10 * 1 + 100 * 2}));
  ASSERT_EQ(zorsFIRGetDlyLine_32f(state, got.data()), zorStatusOk);
  EXPECT_EQ(got, (Floats{5, 1, 2}));
}

TEST(FIR, GetAndSetOfTapsAndDelayLine) {
  kit::Random random(9);
  for (int n : {1, 5, 64, 200}) {
    const auto count = std::size_t(n);
    const auto taps = kit::signal<Zor32f>(count, random), others = kit::signal<Zor32f>(count, random),
               dly = kit::signal<Zor32f>(count, random);
    const auto x = kit::signal<Zor32f>(600, random);
    const State state(taps, dly.data()), fresh(others, dly.data());
    Floats got(count);
    ASSERT_EQ(zorsFIRGetTaps_32f(state, got.data()), zorStatusOk);
    EXPECT_EQ(got, taps);
    Zor32f one = 0, oneFresh = 0;  // leaves an index that the change of taps keeps
    ASSERT_EQ(zorsFIROne_32f(0.25f, &one, state), zorStatusOk);
    ASSERT_EQ(zorsFIROne_32f(0.25f, &oneFresh, fresh), zorStatusOk);
    ASSERT_EQ(zorsFIRSetTaps_32f(others.data(), state), zorStatusOk);
    ASSERT_EQ(zorsFIRGetTaps_32f(state, got.data()), zorStatusOk);
    EXPECT_EQ(got, others);
    EXPECT_TRUE(sameFloats(run(state, x), run(fresh, x))) << n;  // the spectrum is new too
    ASSERT_EQ(zorsFIROne_32f(0.25f, &one, state), zorStatusOk);
    ASSERT_EQ(zorsFIRSetDlyLine_32f(state, dly.data()), zorStatusOk);
    ASSERT_EQ(zorsFIRGetDlyLine_32f(state, got.data()), zorStatusOk);
    EXPECT_EQ(got, dly);
    ASSERT_EQ(zorsFIRSetDlyLine_32f(state, nullptr), zorStatusOk);
    const State zeroed(others, nullptr);
    EXPECT_TRUE(sameFloats(run(state, x), run(zeroed, x))) << n;
    EXPECT_TRUE(state.intact());
  }
}

TEST(FIRInitAlloc, FailuresReleaseAllAndLeaveTheCallersPointer) {
  kit::Random random(10);
  const auto x = kit::signal<Zor32f>(700, random);
  for (int n : {10, 100, 1500}) {
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random);
    const State direct(taps, nullptr);
    const Floats wanted = runDirect(direct, x);
    auto* const untouched = reinterpret_cast<ZorFIRState*>(std::uintptr_t{64});
    kit::failEachAllocation(
        [&] {
          ZorFIRState* state = untouched;
          const ZorStatus status = zorsFIRInitAlloc_32f(&state, taps.data(), n, nullptr);
          if (status == zorStatusOk) {
            const Floats y = run(state, x);
            if (kit::services().failAt < 0) {
              EXPECT_TRUE(n >= 64 && sameFloats(y, wanted)) << "without its FFT a filter is a direct one";
            }
            EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
          } else {
            EXPECT_EQ(state, untouched);
          }
          return status;
        },
        [&](int failed, ZorStatus status) {
          EXPECT_EQ(status, failed == 0 ? zorStatusNoMemory : zorStatusOk) << n << " taps, allocation " << failed;
          EXPECT_EQ(kit::services().live, 0);
        });
  }
}

TEST(FIR, NoBlockCallAllocates) {
  kit::Random random(11);
  const auto taps = kit::signal<Zor32f>(1500, random), x = kit::signal<Zor32f>(20000, random);
  const State state(taps, nullptr);
  kit::ServicesScope services;
  run(state, x);
  runInPlace(state, x);
  EXPECT_EQ(services->allocations, 0);
}

TEST(FIR, ChecksInOrder) {
  const Floats taps = {1, 2, 3};
  const State state(taps, nullptr);
  struct {
    Zor32u tag = 0x12345678;
    char rest[1000] = {};
  } foreign;
  auto* const stranger = reinterpret_cast<ZorFIRState*>(&foreign);
  Floats src(8), dst(8), dly(6);
  Zor32s size = 7, index = 0;
  ZorFIRState* out = nullptr;
  std::vector<Zor8u> buffer(State::size(3));
  const auto lengths = {0, -1, INT32_MIN};
  kit::Contract(zorsFIRGetStateSize_32f, 3, &size)
      .null<1>()
      .bad<0>(lengths, zorStatusBadTapsLength)
      .untouched(&size, 4)
      .verify("zorsFIRGetStateSize_32f");
  kit::Contract(zorsFIRInit_32f, &out, taps.data(), 3, src.data(), buffer.data())
      .null<0>()
      .null<1>()
      .null<4>()
      .bad<2>(lengths, zorStatusBadTapsLength)
      .untouched(buffer)
      .untouched(&out, 8)
      .verify("zorsFIRInit_32f");
  kit::Contract(zorsFIRInitAlloc_32f, &out, taps.data(), 3, src.data())
      .null<0>()
      .null<1>()
      .bad<2>(lengths, zorStatusBadTapsLength)
      .untouched(&out, 8)
      .verify("zorsFIRInitAlloc_32f");
  kit::Contract(zorsFIRFree_32f, state).null<0>().bad<0>({stranger}, zorStatusBadContext).verify("zorsFIRFree_32f");
  kit::Contract(zorsFIRGetTaps_32f, state, dst.data())
      .null<0>()
      .null<1>()
      .bad<0>({stranger}, zorStatusBadContext)
      .untouched(dst)
      .verify("zorsFIRGetTaps_32f");
  kit::Contract(zorsFIRSetTaps_32f, taps.data(), state)
      .null<0>()
      .null<1>()
      .bad<1>({stranger}, zorStatusBadContext)
      .verify("zorsFIRSetTaps_32f");
  kit::Contract(zorsFIRGetDlyLine_32f, state, dst.data())
      .null<0>()
      .null<1>()
      .bad<0>({stranger}, zorStatusBadContext)
      .untouched(dst)
      .verify("zorsFIRGetDlyLine_32f");
  kit::Contract(zorsFIRSetDlyLine_32f, state, src.data())
      .null<0>()
      .bad<0>({stranger}, zorStatusBadContext)
      .verify("zorsFIRSetDlyLine_32f");
  kit::Contract(zorsFIR_32f, src.data(), dst.data(), 8, state)
      .null<0>()
      .null<1>()
      .null<3>()
      .bad<2>(lengths, zorStatusBadSize)
      .bad<3>({stranger}, zorStatusBadContext)
      .untouched(dst)
      .verify("zorsFIR_32f");
  kit::Contract(zorsFIR_32f_I, dst.data(), 8, state)
      .null<0>()
      .null<2>()
      .bad<1>(lengths, zorStatusBadSize)
      .bad<2>({stranger}, zorStatusBadContext)
      .untouched(dst)
      .verify("zorsFIR_32f_I");
  kit::Contract(zorsFIROne_32f, 1.0f, dst.data(), state)
      .null<1>()
      .null<2>()
      .bad<2>({stranger}, zorStatusBadContext)
      .untouched(dst)
      .verify("zorsFIROne_32f");
  kit::Contract(zorsFIR_Direct_32f, src.data(), dst.data(), 8, taps.data(), 3, dly.data(), &index)
      .null<0>()
      .null<1>()
      .bad<2>(lengths, zorStatusBadSize)
      .null<3>()
      .bad<4>(lengths, zorStatusBadTapsLength)
      .null<5>()
      .null<6>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIR_Direct_32f");
  kit::Contract(zorsFIR_Direct_32f_I, dst.data(), 8, taps.data(), 3, dly.data(), &index)
      .null<0>()
      .bad<1>(lengths, zorStatusBadSize)
      .null<2>()
      .bad<3>(lengths, zorStatusBadTapsLength)
      .null<4>()
      .null<5>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIR_Direct_32f_I");
  kit::Contract(zorsFIROne_Direct_32f, 1.0f, dst.data(), taps.data(), 3, dly.data(), &index)
      .null<1>()
      .null<2>()
      .bad<3>(lengths, zorStatusBadTapsLength)
      .null<4>()
      .null<5>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIROne_Direct_32f");
  kit::Contract(zorsFIROne_Direct_32f_I, dst.data(), taps.data(), 3, dly.data(), &index)
      .null<0>()
      .null<1>()
      .bad<2>(lengths, zorStatusBadTapsLength)
      .null<3>()
      .null<4>()
      .untouched(dst)
      .untouched(dly)
      .verify("zorsFIROne_Direct_32f_I");
}

TEST(FIRFree, OfACallersBlockDoesNothing) {
  const State state({1, 2}, nullptr);
  kit::ServicesScope services;
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
  EXPECT_EQ(services->live, 0);
  EXPECT_EQ(run(state, {1, 0}), (Floats{1, 2}));
}

TEST(FIRDirect, RingAndSums) {
  kit::Random random(12);
  for (int n : {1, 2, 7, 8, 9, 16, 33, 70}) {
    const auto count = std::size_t(n);
    const auto taps = kit::signal<Zor32f>(count, random), x = kit::signal<Zor32f>(200, random);
    const auto exact = convolve(taps, {}, x);
    for (Edge edge : kit::bothEdges) {
      const Guarded<Zor32f> t(taps, edge), src(x, edge), dst(x.size(), edge), dly(Floats(2 * count), edge),
          dlyOnes(Floats(2 * count), edge), both(x, edge), dlyBoth(Floats(2 * count), edge);
      Zor32s index = 0, indexOnes = 0, indexBoth = 0;
      ASSERT_EQ(zorsFIR_Direct_32f(src.data(), dst.data(), 200, t.data(), n, dly.data(), &index), zorStatusOk);
      ASSERT_EQ(zorsFIR_Direct_32f_I(both.data(), 200, t.data(), n, dlyBoth.data(), &indexBoth), zorStatusOk);
      EXPECT_EQ(both.values(), dst.values());
      EXPECT_EQ(index, 200 % n);
      for (std::size_t i = 0; i < x.size(); ++i) {
        // Products round to binary32, their sum to binary32 at its end.
        ASSERT_LE(std::fabs(dst[i] - exact.y[i]), 2.5L * eps * exact.weight[i] + 1e-38L) << n;
        Zor32f one = 0, oneInPlace = x[i];
        Floats copyOfLine = dlyOnes.values();
        Zor32s copyOfIndex = indexOnes;
        ASSERT_EQ(zorsFIROne_Direct_32f_I(&oneInPlace, t.data(), n, copyOfLine.data(), &copyOfIndex), zorStatusOk);
        ASSERT_EQ(zorsFIROne_Direct_32f(x[i], &one, t.data(), n, dlyOnes.data(), &indexOnes), zorStatusOk);
        ASSERT_EQ(one, oneInPlace);
        ASSERT_LE(std::fabs(one - exact.y[i]), (n + 1) * eps * exact.weight[i] + 1e-38L) << n;
      }
      EXPECT_EQ(dlyOnes.values(), dly.values());
      EXPECT_EQ(indexOnes, index);
      for (std::size_t j = 0; j < count; ++j) EXPECT_EQ(dly[j], dly[j + count]);
      EXPECT_TRUE(dst.intact() && dly.intact() && both.intact());
    }
  }
}

TEST(FIRDirect, ProductsRoundToBinary32AndSumInBinary64) {
  const Floats taps = {1 + 0x1p-12f, 1}, x = {1 + 0x1p-12f, -1};  // the product's last bit is cut before the sum
  Floats dly(4), y(2);
  Zor32s index = 0;
  ASSERT_EQ(zorsFIR_Direct_32f(x.data(), y.data(), 2, taps.data(), 2, dly.data(), &index), zorStatusOk);
  EXPECT_EQ(y[0], (1 + 0x1p-12f) * (1 + 0x1p-12f));
  const Floats large = {0x1p30f, 1, -0x1p30f}, one = {1, 1, 1};
  Floats line(6), sums(3);
  index = 0;
  ASSERT_EQ(zorsFIR_Direct_32f(one.data(), sums.data(), 3, large.data(), 3, line.data(), &index), zorStatusOk);
  EXPECT_EQ(sums[2], 1);  // lost in a binary32 sum
}

}  // namespace
