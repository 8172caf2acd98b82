// zorsWTFwd*, zorsWTInv*: the two-band filter bank.
#include <numeric>

#include "zors/conversion.h"
#include "zors/wavelets.h"

namespace {

using kit::Edge;
using kit::Guarded;

struct BandFilter {
  std::vector<Zor32f> taps;
  Zor32s offset;
  Zor32s len() const { return Zor32s(taps.size()); }
};

template <class State> using Init = ZorStatus(State**, const Zor32f*, Zor32s, Zor32s, const Zor32f*, Zor32s, Zor32s);

template <class S> struct Forward {
  using Sample = S;
  const char* name;
  Init<ZorWTFwdState>* init;
  ZorStatus (*run)(const S*, Zor32f*, Zor32f*, Zor32s, ZorWTFwdState*);
  ZorStatus (*get)(const ZorWTFwdState*, Zor32f*, Zor32f*);
  ZorStatus (*set)(ZorWTFwdState*, const Zor32f*, const Zor32f*);
  ZorStatus (*free)(ZorWTFwdState*);
};
template <class S> struct Inverse {
  using Sample = S;
  const char* name;
  Init<ZorWTInvState>* init;
  ZorStatus (*run)(const Zor32f*, const Zor32f*, Zor32s, S*, ZorWTInvState*);
  ZorStatus (*get)(const ZorWTInvState*, Zor32f*, Zor32f*);
  ZorStatus (*set)(ZorWTInvState*, const Zor32f*, const Zor32f*);
  ZorStatus (*free)(ZorWTInvState*);
};

const Forward<Zor32f> forward32f{"zorsWTFwd_32f",         zorsWTFwdInitAlloc_32f,  zorsWTFwd_32f,
                                 zorsWTFwdGetDlyLine_32f, zorsWTFwdSetDlyLine_32f, zorsWTFwdFree_32f};
const Forward<Zor8u> forward8u{"zorsWTFwd_8u32f",         zorsWTFwdInitAlloc_8u32f,  zorsWTFwd_8u32f,
                               zorsWTFwdGetDlyLine_8u32f, zorsWTFwdSetDlyLine_8u32f, zorsWTFwdFree_8u32f};
const Forward<Zor8s> forward8s{"zorsWTFwd_8s32f",         zorsWTFwdInitAlloc_8s32f,  zorsWTFwd_8s32f,
                               zorsWTFwdGetDlyLine_8s32f, zorsWTFwdSetDlyLine_8s32f, zorsWTFwdFree_8s32f};
const Forward<Zor16u> forward16u{"zorsWTFwd_16u32f",         zorsWTFwdInitAlloc_16u32f,  zorsWTFwd_16u32f,
                                 zorsWTFwdGetDlyLine_16u32f, zorsWTFwdSetDlyLine_16u32f, zorsWTFwdFree_16u32f};
const Forward<Zor16s> forward16s{"zorsWTFwd_16s32f",         zorsWTFwdInitAlloc_16s32f,  zorsWTFwd_16s32f,
                                 zorsWTFwdGetDlyLine_16s32f, zorsWTFwdSetDlyLine_16s32f, zorsWTFwdFree_16s32f};
const Inverse<Zor32f> inverse32f{"zorsWTInv_32f",         zorsWTInvInitAlloc_32f,  zorsWTInv_32f,
                                 zorsWTInvGetDlyLine_32f, zorsWTInvSetDlyLine_32f, zorsWTInvFree_32f};
const Inverse<Zor8u> inverse8u{"zorsWTInv_32f8u",         zorsWTInvInitAlloc_32f8u,  zorsWTInv_32f8u,
                               zorsWTInvGetDlyLine_32f8u, zorsWTInvSetDlyLine_32f8u, zorsWTInvFree_32f8u};
const Inverse<Zor8s> inverse8s{"zorsWTInv_32f8s",         zorsWTInvInitAlloc_32f8s,  zorsWTInv_32f8s,
                               zorsWTInvGetDlyLine_32f8s, zorsWTInvSetDlyLine_32f8s, zorsWTInvFree_32f8s};
const Inverse<Zor16u> inverse16u{"zorsWTInv_32f16u",         zorsWTInvInitAlloc_32f16u,  zorsWTInv_32f16u,
                                 zorsWTInvGetDlyLine_32f16u, zorsWTInvSetDlyLine_32f16u, zorsWTInvFree_32f16u};
const Inverse<Zor16s> inverse16s{"zorsWTInv_32f16s",         zorsWTInvInitAlloc_32f16s,  zorsWTInv_32f16s,
                                 zorsWTInvGetDlyLine_32f16s, zorsWTInvSetDlyLine_32f16s, zorsWTInvFree_32f16s};
template <class F> void forEachForward(F f) {
  f(forward32f);
  f(forward8u);
  f(forward8s);
  f(forward16u);
  f(forward16s);
}
template <class F> void forEachInverse(F f) {
  f(inverse32f);
  f(inverse8u);
  f(inverse8s);
  f(inverse16u);
  f(inverse16s);
}

template <class Member> auto make(const Member& member, const BandFilter& low, const BandFilter& high) {
  auto state = [&]<class State>(Init<State>* init) {
    State* made = nullptr;
    auto lowTaps = low.taps, highTaps = high.taps;
    EXPECT_EQ(init(&made, lowTaps.data(), low.len(), low.offset, highTaps.data(), high.len(), high.offset),
              zorStatusOk);
    std::fill(lowTaps.begin(), lowTaps.end(), 1e30f);  // the state has taps of its own
    std::fill(highTaps.begin(), highTaps.end(), 1e30f);
    return made;
  };
  return state(member.init);
}

// ---- Models, by the letter: whole streams with the past in front ---------------------------------

// x[i] for i below 0 are the past's samples, x[-1] the newest.
template <class T> double at(const std::vector<T>& past, const std::vector<T>& x, long i) {
  if (i >= 0) return double(x[std::size_t(i)]);
  const long back = long(past.size()) + i;
  return back >= 0 ? double(past[std::size_t(back)]) : 0;
}
std::vector<Zor32f> forwardModel(const BandFilter& f, const std::vector<Zor32f>& past, const std::vector<Zor32f>& x) {
  const long p = f.offset == -1 ? 1 : 0, o = std::max(f.offset, 0);
  std::vector<Zor32f> out;
  for (long k = 0; k < long(x.size() / 2); ++k) {
    double sum = 0;
    for (long i = 0; i < f.len(); ++i) sum += double(f.taps[std::size_t(i)]) * at(past, x, 2 * k + p - i - o);
    out.push_back(Zor32f(sum));
  }
  return out;
}
std::vector<double> inverseModel(const BandFilter& f, const std::vector<Zor32f>& past, const std::vector<Zor32f>& x) {
  const long d = f.offset == -1 ? 1 : f.offset;
  std::vector<double> out;
  for (long m = 0; m < long(2 * x.size()); ++m) {
    double sum = 0;
    for (long i = 0; i < f.len(); ++i) {
      const long place = m - i - d;
      if (place % 2 == 0) sum += double(f.taps[std::size_t(i)]) * at(past, x, place / 2);
    }
    out.push_back(sum);
  }
  return out;
}
std::size_t forwardDelay(const BandFilter& f) {
  return std::size_t(std::max(0, f.len() - 1 - (f.offset == -1) + std::max(f.offset, 0)));
}
std::size_t inverseDelay(const BandFilter& f) { return std::size_t((f.len() + f.offset - 1) / 2); }

// Integers, so small that every order of summation is exact.
std::vector<Zor32f> wholeNumbers(std::size_t n, int below, kit::Random& random) {
  std::vector<Zor32f> x(n);
  for (auto& v : x) v = Zor32f(int(random() % std::size_t(2 * below - 1)) - below + 1);
  return x;
}
BandFilter anyFilter(kit::Random& random) {
  const int len = random() % 8 == 0 ? 20 + int(random() % 60) : 1 + int(random() % 12);
  return {wholeNumbers(std::size_t(len), 5, random), int(random() % (random() % 4 == 0 ? 40 : 7)) - 1};
}
template <class T> std::vector<T> samples(std::size_t n, kit::Random& random) {
  std::vector<T> x(n);
  for (auto& v : x) v = T(int(random() % 200) - (std::is_signed_v<T> ? 100 : 0));
  return x;
}
template <class To, class From> std::vector<To> converted(const std::vector<From>& x) {
  return std::vector<To>(x.begin(), x.end());
}
std::vector<Zor32f> newest(const std::vector<Zor32f>& past, const std::vector<Zor32f>& x, std::size_t n) {
  std::vector<Zor32f> out;
  for (long i = long(x.size()) - long(n); i < long(x.size()); ++i) out.push_back(Zor32f(at(past, x, i)));
  return out;
}
template <class T> T rounded(double x) {
  if constexpr (std::is_floating_point_v<T>)
    return T(x);
  else
    return T(
        std::clamp(std::nearbyint(x), double(std::numeric_limits<T>::min()), double(std::numeric_limits<T>::max())));
}
std::vector<Zor32s> pieces(Zor32s total, kit::Random& random) {
  const int longest = std::array{1, 3, 20, 600, 2000}[random() % 5];
  std::vector<Zor32s> out;
  for (Zor32s left = total; left > 0; left -= out.back())
    out.push_back(std::min(left, 1 + Zor32s(random() % unsigned(longest))));
  return out;
}

// ---- Streams in pieces --------------------------------------------------------------------------

TEST(Wavelet, ForwardStreamsInPieces) {
  forEachForward([]<class S>(const Forward<S>& member) {
    kit::Random random(1);
    for (int round = 0; round < 250; ++round) {
      const BandFilter low = anyFilter(random), high = anyFilter(random);
      const Zor32s outputs = round % 10 == 0 ? 1100 + Zor32s(random() % 500) : 1 + Zor32s(random() % 100);
      const auto x = samples<S>(std::size_t(2 * outputs), random);
      const auto values = converted<Zor32f>(x);
      std::vector<Zor32f> pastLow, pastHigh;
      auto* state = make(member, low, high);
      const Edge edge = round % 2 ? Edge::begin : Edge::end;
      if (round % 3 == 0) {  // with a past of its own for each band
        pastLow = wholeNumbers(forwardDelay(low), 100, random);
        pastHigh = wholeNumbers(forwardDelay(high), 100, random);
        const Guarded<Zor32f> dlyLow(pastLow, edge), dlyHigh(pastHigh, edge);
        ASSERT_EQ(member.set(state, dlyLow.data(), dlyHigh.data()), zorStatusOk);
      }
      std::vector<Zor32f> gotLow, gotHigh;
      std::size_t done = 0;
      for (Zor32s count : pieces(outputs, random)) {
        const std::size_t n = std::size_t(count);
        const Guarded<S> src(std::vector<S>(x.begin() + long(2 * done), x.begin() + long(2 * (done + n))), edge);
        const Guarded<Zor32f> dstLow(n, edge, 4 * (random() % 8)), dstHigh(n, edge, 4 * (random() % 8));
        ASSERT_EQ(member.run(src.data(), dstLow.data(), dstHigh.data(), count, state), zorStatusOk);
        ASSERT_TRUE(dstLow.intact() && dstHigh.intact()) << member.name << ": wrote outside";
        for (std::size_t k = 0; k < n; ++k) {
          gotLow.push_back(dstLow[k]);
          gotHigh.push_back(dstHigh[k]);
        }
        done += n;
      }
      const std::string where = std::string(member.name) + ", taps " + std::to_string(low.len()) + " and " +
                                std::to_string(high.len()) + ", offsets " + std::to_string(low.offset) + " and " +
                                std::to_string(high.offset);
      ASSERT_EQ(kit::firstDifference<Zor32f>(gotLow, forwardModel(low, pastLow, values)), "") << where << ", low";
      ASSERT_EQ(kit::firstDifference<Zor32f>(gotHigh, forwardModel(high, pastHigh, values)), "") << where << ", high";
      const Guarded<Zor32f> dlyLow(forwardDelay(low), edge), dlyHigh(forwardDelay(high), edge);
      ASSERT_EQ(member.get(state, dlyLow.data(), dlyHigh.data()), zorStatusOk);
      ASSERT_TRUE(dlyLow.intact() && dlyHigh.intact()) << where;
      ASSERT_EQ(dlyLow.values(), newest(pastLow, values, dlyLow.size())) << where;
      ASSERT_EQ(dlyHigh.values(), newest(pastHigh, values, dlyHigh.size())) << where;

      auto* other = make(member, low, high);  // takes over: the same results from here on
      ASSERT_EQ(member.set(other, dlyLow.data(), dlyHigh.data()), zorStatusOk);
      std::vector<Zor32f> l1(20), h1(20), l2(20), h2(20);
      const auto more = samples<S>(40, random);
      ASSERT_EQ(member.run(more.data(), l1.data(), h1.data(), 20, state), zorStatusOk);
      ASSERT_EQ(member.run(more.data(), l2.data(), h2.data(), 20, other), zorStatusOk);
      ASSERT_EQ(l1, l2) << where;
      ASSERT_EQ(h1, h2) << where;
      ASSERT_EQ(member.free(state), zorStatusOk);
      ASSERT_EQ(member.free(other), zorStatusOk);
    }
  });
}

TEST(Wavelet, InverseStreamsInPieces) {
  forEachInverse([]<class S>(const Inverse<S>& member) {
    kit::Random random(2);
    for (int round = 0; round < 250; ++round) {
      const BandFilter low = anyFilter(random), high = anyFilter(random);
      const Zor32s len = round % 10 == 0 ? 1100 + Zor32s(random() % 500) : 1 + Zor32s(random() % 100);
      auto bandLow = wholeNumbers(std::size_t(len), 100, random),
           bandHigh = wholeNumbers(std::size_t(len), 100, random);
      for (auto* band : {&bandLow, &bandHigh})
        for (auto& v : *band) v /= 8;  // halves among the results
      std::vector<Zor32f> pastLow, pastHigh;
      auto* state = make(member, low, high);
      const Edge edge = round % 2 ? Edge::begin : Edge::end;
      if (round % 3 == 0) {
        if (round % 2 == 0) {  // a used state: nothing of its past may stay
          const std::vector<Zor32f> some(300, 3.0f);
          std::vector<S> out(600);
          ASSERT_EQ(member.run(some.data(), some.data(), 300, out.data(), state), zorStatusOk);
        }
        pastLow = wholeNumbers(inverseDelay(low), 100, random);
        pastHigh = wholeNumbers(inverseDelay(high), 100, random);
        const Guarded<Zor32f> dlyLow(pastLow, edge), dlyHigh(pastHigh, edge);
        ASSERT_EQ(member.set(state, dlyLow.data(), dlyHigh.data()), zorStatusOk);
      }
      std::vector<S> got;
      std::size_t done = 0;
      for (Zor32s count : pieces(len, random)) {
        const std::size_t n = std::size_t(count);
        const auto piece = [&](const std::vector<Zor32f>& band) {
          return std::vector<Zor32f>(band.begin() + long(done), band.begin() + long(done + n));
        };
        const Guarded<Zor32f> srcLow(piece(bandLow), edge), srcHigh(piece(bandHigh), edge);
        const Guarded<S> dst(2 * n, edge, sizeof(S) * (random() % 8));
        ASSERT_EQ(member.run(srcLow.data(), srcHigh.data(), count, dst.data(), state), zorStatusOk);
        ASSERT_TRUE(dst.intact()) << member.name << ": wrote outside";
        for (std::size_t k = 0; k < 2 * n; ++k) got.push_back(dst[k]);
        done += n;
      }
      const auto a = inverseModel(low, pastLow, bandLow), b = inverseModel(high, pastHigh, bandHigh);
      std::vector<S> wanted(a.size());
      for (std::size_t m = 0; m < a.size(); ++m) wanted[m] = rounded<S>(a[m] + b[m]);
      const std::string where = std::string(member.name) + ", taps " + std::to_string(low.len()) + " and " +
                                std::to_string(high.len()) + ", offsets " + std::to_string(low.offset) + " and " +
                                std::to_string(high.offset);
      ASSERT_EQ(kit::firstDifference<S>(got, wanted), "") << where;
      const Guarded<Zor32f> dlyLow(inverseDelay(low), edge), dlyHigh(inverseDelay(high), edge);
      ASSERT_EQ(member.get(state, dlyLow.data(), dlyHigh.data()), zorStatusOk);
      ASSERT_TRUE(dlyLow.intact() && dlyHigh.intact()) << where;
      ASSERT_EQ(dlyLow.values(), newest(pastLow, bandLow, dlyLow.size())) << where;
      ASSERT_EQ(dlyHigh.values(), newest(pastHigh, bandHigh, dlyHigh.size())) << where;
      ASSERT_EQ(member.free(state), zorStatusOk);
    }
  });
}

TEST(Wavelet, PiecesOfThreeAndFiveGiveTheBitsOfEight) {
  kit::Random random(3);
  for (int round = 0; round < 100; ++round) {
    const BandFilter low{kit::signal<Zor32f>(1 + random() % 40, random), Zor32s(random() % 6) - 1};
    const BandFilter high{kit::signal<Zor32f>(1 + random() % 40, random), Zor32s(random() % 6) - 1};
    const auto x = kit::signal<Zor32f>(16, random);
    std::vector<Zor32f> l1(8), h1(8), l2(8), h2(8), y1(16), y2(16);
    auto *whole = make(forward32f, low, high), *parts = make(forward32f, low, high);
    zorsWTFwd_32f(x.data(), l1.data(), h1.data(), 8, whole);
    zorsWTFwd_32f(x.data(), l2.data(), h2.data(), 3, parts);
    zorsWTFwd_32f(x.data() + 6, l2.data() + 3, h2.data() + 3, 5, parts);
    EXPECT_EQ(l1, l2);
    EXPECT_EQ(h1, h2);
    zorsWTFwdFree_32f(whole);
    zorsWTFwdFree_32f(parts);
    auto *wholeBack = make(inverse32f, low, high), *partsBack = make(inverse32f, low, high);
    zorsWTInv_32f(l1.data(), h1.data(), 8, y1.data(), wholeBack);
    zorsWTInv_32f(l1.data(), h1.data(), 3, y2.data(), partsBack);
    zorsWTInv_32f(l1.data() + 3, h1.data() + 3, 5, y2.data() + 6, partsBack);
    EXPECT_EQ(y1, y2);
    zorsWTInvFree_32f(wholeBack);
    zorsWTInvFree_32f(partsBack);
  }
}

TEST(Wavelet, IntegersGiveTheBitsOfTheirConvertedValuesInEveryBlock) {
  kit::Random random(4);
  for (Zor32s len : {511, 512, 513, 1024, 1025, 1500}) {
    const std::size_t n = std::size_t(len);
    const BandFilter low{kit::signal<Zor32f>(9, random), 3}, high{kit::signal<Zor32f>(7, random), -1};
    const auto x = kit::anyValues<Zor16s>(2 * n, random);
    const auto values = converted<Zor32f>(x);
    std::vector<Zor32f> l1(n), h1(n), l2(n), h2(n);
    auto* integers = make(forward16s, low, high);
    auto* floats = make(forward32f, low, high);
    zorsWTFwd_16s32f(x.data(), l1.data(), h1.data(), len, integers);
    zorsWTFwd_32f(values.data(), l2.data(), h2.data(), len, floats);
    EXPECT_EQ(l1, l2) << len;
    EXPECT_EQ(h1, h2) << len;
    zorsWTFwdFree_16s32f(integers);
    zorsWTFwdFree_32f(floats);
    std::vector<Zor16s> back(2 * n), wanted(2 * n);
    std::vector<Zor32f> backValues(2 * n);
    auto* toIntegers = make(inverse16s, low, high);
    auto* toFloats = make(inverse32f, low, high);
    zorsWTInv_32f16s(l1.data(), h1.data(), len, back.data(), toIntegers);
    zorsWTInv_32f(l1.data(), h1.data(), len, backValues.data(), toFloats);
    zorsConvert_32f16s_Sfs(backValues.data(), wanted.data(), 2 * len, zorRoundNearestEven, 0);
    EXPECT_EQ(back, wanted) << len;
    zorsWTInvFree_32f16s(toIntegers);
    zorsWTInvFree_32f(toFloats);
  }
}

// ---- Reconstruction -----------------------------------------------------------------------------

// An analysis pair and the synthesis pair that cancels its aliases, from an orthogonal low-pass.
struct FilterBank {
  std::vector<Zor32f> low, high, backLow, backHigh;
};
FilterBank orthogonal(const std::vector<double>& h) {
  FilterBank bank;
  const std::size_t n = h.size();
  for (std::size_t i = 0; i < n; ++i) {
    const double sign = i % 2 ? -1 : 1;
    bank.low.push_back(Zor32f(h[i]));
    bank.high.push_back(Zor32f(sign * h[n - 1 - i]));
    bank.backLow.push_back(Zor32f(h[n - 1 - i]));
    bank.backHigh.push_back(Zor32f(-sign * h[i]));
  }
  return bank;
}
std::vector<double> daubechies(int taps) {
  const double s = std::sqrt(2.0), t = std::sqrt(3.0);
  if (taps == 2) return {1 / s, 1 / s};
  if (taps == 4) return {(1 + t) / (4 * s), (3 + t) / (4 * s), (3 - t) / (4 * s), (1 - t) / (4 * s)};
  return {0.23037781330885523,  0.71484657055254153,  0.63088076792959036,  -0.027983769416983849,
          -0.18703481171888114, 0.030841381835986965, 0.032883011666982945, -0.010597401784997278};
}

TEST(Wavelet, MatchingFiltersRestoreTheStreamWithOneDelayThroughPiecesOfAnyLength) {
  kit::Random random(5);
  for (int taps : {2, 4, 8})
    for (Zor32s offset : {-1, 0, 1, 2, 5})
      for (Zor32s backOffset : {-1, 0, 1, 4, 7}) {
        const FilterBank bank = orthogonal(daubechies(taps));
        const auto x = kit::signal<Zor32f>(2400, random);
        std::vector<Zor32f> low(1200), high(1200), y(2400);
        auto* state = make(forward32f, {bank.low, offset}, {bank.high, offset});
        auto* back = make(inverse32f, {bank.backLow, backOffset}, {bank.backHigh, backOffset});
        Zor32s done = 0;
        for (Zor32s count : pieces(1200, random)) {
          ASSERT_EQ(
              zorsWTFwd_32f(&x[std::size_t(2 * done)], &low[std::size_t(done)], &high[std::size_t(done)], count, state),
              zorStatusOk);
          ASSERT_EQ(
              zorsWTInv_32f(&low[std::size_t(done)], &high[std::size_t(done)], count, &y[std::size_t(2 * done)], back),
              zorStatusOk);
          done += count;
        }
        const int delay = taps - 1 + offset + (backOffset < 0 ? 1 : backOffset);
        for (int m = 0; m < 2400; ++m)
          ASSERT_NEAR(y[std::size_t(m)], m < delay ? 0 : x[std::size_t(m - delay)], 2e-6)
              << taps << " taps, offsets " << offset << ", " << backOffset << ", sample " << m;
        zorsWTFwdFree_32f(state);
        zorsWTInvFree_32f(back);
      }
}

TEST(Wavelet, BandsThatLeaveTheRangeComeBackBeforeTheySaturate) {
  const BandFilter one{{1.0f}, 0};
  auto* state = make(inverse16s, one, one);
  const Zor32f low[] = {40000, -40000, 1.5f, 40000}, high[] = {-10000, 10000, 1, 1};
  Zor16s y[8];
  ASSERT_EQ(zorsWTInv_32f16s(low, high, 4, y, state), zorStatusOk);
  EXPECT_EQ(std::vector(y, y + 8), (std::vector<Zor16s>{30000, 0, -30000, 0, 2, 0, 32767, 0}));
  zorsWTInvFree_32f16s(state);
}

TEST(Wavelet, ANanReachesTheOutputsWhoseWindowHoldsItAndNoOther) {
  const Zor32f nan = std::numeric_limits<Zor32f>::quiet_NaN();
  for (int taps = 1; taps <= 20; ++taps)
    for (Zor32s offset : {-1, 0, 1, 2, 3}) {
      const BandFilter f{std::vector<Zor32f>(std::size_t(taps), 1.0f), offset};
      for (int place : {0, 1, 2, 37, 38, 98, 99}) {
        std::vector<Zor32f> x(100, 1.0f), low(50), high(50), y(200);
        x[std::size_t(place)] = nan;
        auto* state = make(forward32f, f, {{1.0f}, 0});
        zorsWTFwd_32f(x.data(), low.data(), high.data(), 50, state);
        for (int k = 0; k < 50; ++k) {
          const int newestSeen = 2 * k + (offset == -1) - std::max(offset, 0);
          EXPECT_EQ(std::isnan(low[std::size_t(k)]), place <= newestSeen && place > newestSeen - taps)
              << taps << " taps, offset " << offset << ", output " << k;
        }
        zorsWTFwdFree_32f(state);
        const std::vector<Zor32f> ones(100, 1.0f);
        auto* back = make(inverse32f, f, {{1.0f}, 0});
        zorsWTInv_32f(x.data(), ones.data(), 100, y.data(), back);
        for (int m = 0; m < 200; ++m) {
          const int tap = m - (offset == -1 ? 1 : offset) - 2 * place;
          EXPECT_EQ(std::isnan(y[std::size_t(m)]), tap >= 0 && tap < taps)
              << taps << " taps, offset " << offset << ", sample " << m;
        }
        zorsWTInvFree_32f(back);
      }
    }
}

TEST(Wavelet, AtOffsetMinusOneTheInverseDelayLineLacksTheOldestSample) {
  const BandFilter f{{1, 2, 3, 4}, -1}, one{{1.0f}, 0};
  auto* state = make(inverse32f, f, one);
  const Zor32f band[] = {10, 20}, zeros[] = {0, 0};
  Zor32f y[4], dly[1] = {0}, none = 7;
  ASSERT_EQ(zorsWTInv_32f(band, zeros, 2, y, state), zorStatusOk);
  ASSERT_EQ(zorsWTInvGetDlyLine_32f(state, dly, &none), zorStatusOk);
  EXPECT_EQ(dly[0], 20);
  EXPECT_EQ(none, 7);
  ASSERT_EQ(zorsWTInvSetDlyLine_32f(state, dly, &none), zorStatusOk);
  ASSERT_EQ(zorsWTInv_32f(zeros, zeros, 1, y, state), zorStatusOk);
  EXPECT_EQ(y[0], 2 * 20);  // the sample before, 10, met 4 here; Set cleared it
  EXPECT_EQ(y[1], 3 * 20);
  zorsWTInvFree_32f(state);
}

// ---- Life of a state ----------------------------------------------------------------------------

TEST(Wavelet, InitAllocChecksInOrderAndReportsRefusedMemory) {
  const auto check = [](const auto& member, auto* state) {
    using State = std::remove_pointer_t<decltype(state)>;
    const std::vector<Zor32f> taps(8, 1.0f);
    State* const before = reinterpret_cast<State*>(0x1234);
    State* out = before;
    kit::Contract(member.init, &out, taps.data(), 8, 0, taps.data(), 8, 0)
        .template null<0>()
        .template null<1>()
        .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .template null<4>()
        .template bad<5>({0, -1, INT32_MIN}, zorStatusBadSize)
        .template bad<3>({-2, INT32_MIN}, zorStatusBadWaveletFilter)
        .template bad<6>({-2, INT32_MIN}, zorStatusBadWaveletFilter)
        .untouched(&out, sizeof out)
        .verify(member.name);
    const int allocations = kit::failEachAllocation(
        [&] {
          out = before;
          return member.init(&out, taps.data(), 8, 3, taps.data(), 5, -1);
        },
        [&](int failed, ZorStatus status) {
          EXPECT_EQ(status, failed < 0 ? zorStatusOk : zorStatusNoMemory);
          if (failed >= 0) {
            EXPECT_EQ(out, nullptr) << member.name;
            EXPECT_EQ(kit::services().live, 0) << member.name;
          } else {
            EXPECT_EQ(member.free(out), zorStatusOk);
            EXPECT_EQ(kit::services().live, 0) << member.name;
          }
        });
    EXPECT_GE(allocations, 1) << member.name;
    const std::pair<Zor32s, Zor32s> tooLarge[] = {
        {INT32_MAX, 0}, {8, INT32_MAX}, {INT32_MAX, INT32_MAX}, {1 << 29, -1}};
    for (const auto& [len, offset] : tooLarge) {
      out = before;
      EXPECT_EQ(member.init(&out, taps.data(), len, offset, taps.data(), 8, 0), zorStatusNoMemory) << len;
      EXPECT_EQ(out, nullptr);
      out = before;
      EXPECT_EQ(member.init(&out, taps.data(), 8, 0, taps.data(), len, offset), zorStatusNoMemory) << len;
      EXPECT_EQ(out, nullptr);
    }
  };
  forEachForward([&](const auto& member) { check(member, static_cast<ZorWTFwdState*>(nullptr)); });
  forEachInverse([&](const auto& member) { check(member, static_cast<ZorWTInvState*>(nullptr)); });
}

template <class State> Zor32u tagOf(const State* state) {
  Zor32u tag;
  std::memcpy(&tag, state, sizeof tag);
  return tag;
}

TEST(Wavelet, StatesHaveTheTagsOfTheirKind) {
  const BandFilter f{{1, 2, 3}, 1};
  Zor32u wanted = 41;
  const auto check = [&](const auto& member) {
    auto* state = make(member, f, f);
    EXPECT_EQ(tagOf(state), wanted++) << member.name;
    member.free(state);
  };
  forEachForward(check);
  wanted = 50;
  forEachInverse(check);
}

TEST(Wavelet, EveryOtherTagIsRefusedBeforeDataAndLengths) {
  const BandFilter f{{1, 2, 3, 4}, 2};
  forEachForward([&]<class S>(const Forward<S>& member) {
    auto* state = make(member, f, f);
    const Zor32u own = tagOf(state);
    std::vector<S> x(8, S(1));
    std::vector<Zor32f> low(8, 5.0f), high(8, 6.0f);
    for (Zor32u tag : {0u, 1u, 41u, 42u, 43u, 44u, 45u, 46u, 50u, 51u, 52u, 53u, 54u, 0x46493031u, ~0u}) {
      if (tag == own) continue;
      std::memcpy(static_cast<void*>(state), &tag, sizeof tag);
      for (Zor32s len : {4, 0}) {
        EXPECT_EQ(member.run(x.data(), low.data(), high.data(), len, state), zorStatusBadContext) << member.name;
        EXPECT_EQ(member.run(nullptr, nullptr, nullptr, len, state), zorStatusBadContext) << member.name;
      }
      EXPECT_EQ(member.get(state, nullptr, nullptr), zorStatusBadContext) << member.name;
      EXPECT_EQ(member.set(state, nullptr, nullptr), zorStatusBadContext) << member.name;
      EXPECT_EQ(member.free(state), zorStatusBadContext) << member.name;
    }
    std::memcpy(static_cast<void*>(state), &own, sizeof own);
    kit::Contract(member.run, x.data(), low.data(), high.data(), 4, state)
        .template null<4>()
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(low)
        .untouched(high)
        .verify(member.name);
    kit::Contract(member.get, state, low.data(), high.data())
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .untouched(low)
        .untouched(high)
        .verify(member.name);
    kit::Contract(member.set, state, low.data(), high.data())
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .verify(member.name);
    std::vector<Zor32f> after(8), other(8);
    EXPECT_EQ(member.get(state, after.data(), other.data()), zorStatusOk);
    EXPECT_EQ(after, std::vector<Zor32f>(8, 0.0f)) << member.name << ": a refused call changed the state";
    EXPECT_EQ(member.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(member.free(state), zorStatusOk);
  });
  forEachInverse([&]<class S>(const Inverse<S>& member) {
    auto* state = make(member, f, f);
    const Zor32u own = tagOf(state);
    std::vector<S> x(8, S(1));
    std::vector<Zor32f> low(8, 5.0f), high(8, 6.0f);
    for (Zor32u tag : {0u, 1u, 41u, 42u, 43u, 44u, 45u, 50u, 51u, 52u, 53u, 54u, 55u, 0x46493031u, ~0u}) {
      if (tag == own) continue;
      std::memcpy(static_cast<void*>(state), &tag, sizeof tag);
      for (Zor32s len : {4, 0}) {
        EXPECT_EQ(member.run(low.data(), high.data(), len, x.data(), state), zorStatusBadContext) << member.name;
        EXPECT_EQ(member.run(nullptr, nullptr, len, nullptr, state), zorStatusBadContext) << member.name;
      }
      EXPECT_EQ(member.get(state, nullptr, nullptr), zorStatusBadContext) << member.name;
      EXPECT_EQ(member.set(state, nullptr, nullptr), zorStatusBadContext) << member.name;
      EXPECT_EQ(member.free(state), zorStatusBadContext) << member.name;
    }
    std::memcpy(static_cast<void*>(state), &own, sizeof own);
    kit::Contract(member.run, low.data(), high.data(), 4, x.data(), state)
        .template null<4>()
        .template null<0>()
        .template null<1>()
        .template null<3>()
        .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(x)
        .verify(member.name);
    kit::Contract(member.get, state, low.data(), high.data())
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .untouched(low)
        .untouched(high)
        .verify(member.name);
    kit::Contract(member.set, state, low.data(), high.data())
        .template null<0>()
        .template null<1>()
        .template null<2>()
        .verify(member.name);
    EXPECT_EQ(member.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(member.free(state), zorStatusOk);
  });
}

}  // namespace
