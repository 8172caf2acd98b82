// 16-bit filters without a state: single samples in wrapping integers, blocks in single precision.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"
#include "zors/iir.h"

namespace {

using kit::Edge;
using kit::Guarded;

// One filter of the transposed form in integers modulo 2^32, written out.
Zor32s modelStep(Zor32s x, const Zor16s* taps, int order, Zor32s* d) {
  const auto wrap = [](std::int64_t v) { return static_cast<Zor32s>(static_cast<Zor32u>(v)); };
  const int s = taps[order + 1] % 32;
  const Zor32s v = wrap(std::int64_t{taps[0]} * x + d[0]);
  const std::int64_t half = std::int64_t{1} << ((s + 31) % 32);
  const Zor32s y = wrap(std::int64_t{v} + ((v >> s) & 1) + half - 1) >> s;
  for (int i = 0; i < order; ++i) {
    const std::int64_t next = i + 1 < order ? d[i + 1] : 0;
    d[i] = wrap(std::int64_t{wrap(std::int64_t{taps[i + 1]} * x)} - wrap(std::int64_t{taps[order + 2 + i]} * y) + next);
  }
  return y;
}
Zor16s clamped(Zor32s y) { return Zor16s(std::clamp(y, -32768, 32767)); }

std::vector<Zor16s> randomTaps(int order, int sections, kit::Random& random) {
  std::vector<Zor16s> taps;
  for (int s = 0; s < sections; ++s)
    for (int i = 0; i < 2 * order + 2; ++i)
      taps.push_back(i == order + 1 ? Zor16s(random() % 17) : kit::anyValue<Zor16s>(random));
  return taps;
}

TEST(IirDirect, SingleSamplesAreExactIntegersOfAnyValue) {
  kit::Random random(1);
  for (int order = 1; order <= 20; ++order)
    for (int attempt = 0; attempt < 40; ++attempt) {
      const Guarded<Zor16s> taps(randomTaps(order, 1, random), Edge::end);
      const Guarded<Zor32s> dly(kit::anyValues<Zor32s>(std::size_t(order), random), Edge::end),
          inPlace(dly.values(), Edge::begin);
      auto model = dly.values();
      for (int n = 0; n < 10; ++n) {
        const auto x = kit::anyValue<Zor16s>(random);
        const Zor16s wanted = clamped(modelStep(x, taps.data(), order, model.data()));
        Zor16s got = 0, srcDst = x;
        ASSERT_EQ(zorsIIROne_Direct_16s(x, &got, taps.data(), order, dly.data()), zorStatusOk);
        ASSERT_EQ(zorsIIROne_Direct_16s_I(&srcDst, taps.data(), order, inPlace.data()), zorStatusOk);
        ASSERT_EQ(got, wanted) << "order " << order << ", shift " << taps[std::size_t(order) + 1];
        ASSERT_EQ(srcDst, wanted);
        ASSERT_EQ(dly.values(), model);
        ASSERT_EQ(inPlace.values(), model);
      }
    }
}

TEST(IirDirect, SectionsTakeTheUnsaturatedResultAndTheirOwnShift) {
  kit::Random random(2);
  for (int sections = 1; sections <= 9; ++sections)
    for (int attempt = 0; attempt < 40; ++attempt) {
      const Guarded<Zor16s> taps(randomTaps(2, sections, random), Edge::end);
      const Guarded<Zor32s> dly(kit::anyValues<Zor32s>(std::size_t(2 * sections), random), Edge::end),
          inPlace(dly.values(), Edge::end);
      auto model = dly.values();
      for (int n = 0; n < 10; ++n) {
        const auto x = kit::anyValue<Zor16s>(random);
        Zor32s y = x;
        for (int s = 0; s < sections; ++s) y = modelStep(y, taps.data() + 6 * s, 2, model.data() + 2 * s);
        Zor16s got = 0, srcDst = x;
        ASSERT_EQ(zorsIIROne_BiQuadDirect_16s(x, &got, taps.data(), sections, dly.data()), zorStatusOk);
        ASSERT_EQ(zorsIIROne_BiQuadDirect_16s_I(&srcDst, taps.data(), sections, inPlace.data()), zorStatusOk);
        ASSERT_EQ(got, clamped(y));
        ASSERT_EQ(srcDst, clamped(y));
        ASSERT_EQ(dly.values(), model);
        ASSERT_EQ(inPlace.values(), model);
      }
    }
}

TEST(IirDirect, AShiftOfZeroWrapsThroughTheLargestInteger) {
  const Zor16s taps[] = {1, 0, 0, 0};  // v = x; y = v + (v & 1) + 2^31 - 1, wrapped
  for (int x : {0, 1, 2, -1, 100, -100}) {
    Zor32s dly[] = {0};
    Zor16s y = 0;
    ASSERT_EQ(zorsIIROne_Direct_16s(Zor16s(x), &y, taps, 1, dly), zorStatusOk);
    const auto wrapped = static_cast<Zor32s>(static_cast<Zor32u>(x + (x & 1)) + 0x7FFFFFFFu);
    EXPECT_EQ(y, wrapped < 0 ? -32768 : 32767) << x;
  }
}

TEST(IirDirect, TiesGoToTheEvenNeighbour) {
  const Zor16s taps[] = {1, 0, 1, 0};
  const int wanted[][2] = {{1, 0}, {3, 2}, {5, 2}, {-1, 0}, {-3, -2}, {7, 4}, {2, 1}};
  for (auto [x, y] : wanted) {
    Zor32s dly[] = {0};
    Zor16s got = 99;
    ASSERT_EQ(zorsIIROne_Direct_16s(Zor16s(x), &got, taps, 1, dly), zorStatusOk);
    EXPECT_EQ(got, y) << x;
  }
}

TEST(IirDirect, ANegativeShiftInTheSecondSectionLeavesTheFirstUpdated) {
  const Zor16s taps[] = {4, 3, 2, 1, 1, 1, 4, 3, 2, -1, 1, 1};
  Zor32s dly[] = {10, 20, 30, 40}, model[] = {10, 20, 30, 40};
  Zor16s y = 7;
  EXPECT_EQ(zorsIIROne_BiQuadDirect_16s(5, &y, taps, 2, dly), zorStatusNegativeTapShift);
  modelStep(5, taps, 2, model);
  EXPECT_EQ(y, 7);
  EXPECT_TRUE(std::equal(std::begin(dly), std::end(dly), model));
}

// ---- Blocks -------------------------------------------------------------------------------------

// In long double, with rounding as told; no value comes near what single precision cannot hold.
struct BlockModel {
  std::vector<long double> b, a, d;
  BlockModel(const Zor16s* taps, int order, const Zor32s* dly) {
    const long double scale = std::ldexp(1.0L, -taps[order + 1]);
    for (int i = 0; i <= order; ++i) b.push_back(taps[i] * scale);
    for (int i = 1; i <= order; ++i) a.push_back(taps[order + 1 + i] * scale);
    for (int i = 0; i < order; ++i) d.push_back(dly[i] * scale);
    d.push_back(0);
  }
  long double step(long double x) {
    const long double y = b[0] * x + d[0];
    for (std::size_t i = 0; i < a.size(); ++i) d[i] = d[i + 1] + b[i + 1] * x - a[i] * y;
    return y;
  }
};

// Taps of a dyadic filter without recursion but by whole numbers: exact in single precision.
TEST(IirDirect, BlocksAreExactWhereSinglePrecisionIs) {
  kit::Random random(3);
  for (int sections : {0, 1, 2, 3})  // 0: by order
    for (int order : {1, 2, 3, 5})
      for (int shift : {0, 1, 2, 3, 8}) {
        if (sections > 1 && shift > 2) continue;  // more fraction than 24 bits hold
        const int filters = std::max(sections, 1), n = sections > 0 ? 2 : order;
        if (sections > 0 && order > 1) continue;
        std::vector<Zor16s> taps;
        for (int s = 0; s < filters; ++s)
          for (int i = 0; i < 2 * n + 2; ++i) {
            const int one = 1 << shift;
            if (i <= n)
              taps.push_back(Zor16s(int(random() % 5) - 2));
            else if (i == n + 1)
              taps.push_back(Zor16s(shift));
            else
              taps.push_back(Zor16s(sections == 0 ? one : i == n + 3 ? one : s == 0 ? one : s == 1 ? -one : 0));
            if (i == 0) taps.back() = Zor16s(random() % 2 ? 1 << std::min(shift, 14) : 3);
          }
        for (int len : {1, 3, 8, 9, 12, 13, 40, 1024, 1030}) {
          std::vector<Zor16s> x(static_cast<std::size_t>(len));
          for (auto& v : x) v = Zor16s(int(random() % 7) - 3);
          std::vector<Zor32s> dly(std::size_t(filters * n));
          for (auto& v : dly) v = int(random() % 201) - 100;
          std::vector<BlockModel> models;
          for (int s = 0; s < filters; ++s) models.emplace_back(taps.data() + s * (2 * n + 2), n, dly.data() + s * n);
          std::vector<Zor16s> wanted;
          for (int i = 0; i < len; ++i) {
            long double y = x[std::size_t(i)];
            for (auto& model : models) y = model.step(y);
            const int chunk = std::min(1024, len - i / 1024 * 1024);
            const bool cut = sections > 0 && i % 1024 < 2 && chunk > 4 * sections;
            wanted.push_back(Zor16s(std::clamp(cut ? std::trunc(y) : std::nearbyint(y), -32768.0L, 32767.0L)));
          }
          std::vector<Zor32s> after;
          for (int s = 0; s < filters; ++s)
            for (int i = 0; i < n; ++i) {
              const long double r = std::ldexp(models[std::size_t(s)].d[std::size_t(i)], shift);
              after.push_back(Zor32s(sections > 0 ? std::nearbyint(r) : std::round(r)));
            }
          const Guarded<Zor16s> src(x, Edge::end), dst(x.size(), Edge::end), srcDst(x, Edge::begin, 2);
          const Guarded<Zor32s> d(dly, Edge::end), dI(dly, Edge::end);
          if (sections == 0) {
            ASSERT_EQ(zorsIIR_Direct_16s(src.data(), dst.data(), len, taps.data(), n, d.data()), zorStatusOk);
            ASSERT_EQ(zorsIIR_Direct_16s_I(srcDst.data(), len, taps.data(), n, dI.data()), zorStatusOk);
          } else {
            ASSERT_EQ(zorsIIR_BiQuadDirect_16s(src.data(), dst.data(), len, taps.data(), sections, d.data()), 0);
            ASSERT_EQ(zorsIIR_BiQuadDirect_16s_I(srcDst.data(), len, taps.data(), sections, dI.data()), zorStatusOk);
          }
          const std::string what = "sections " + std::to_string(sections) + ", order " + std::to_string(n) +
                                   ", shift " + std::to_string(shift) + ", len " + std::to_string(len);
          ASSERT_EQ(kit::firstDifference<Zor16s>(dst.span(), wanted), "") << what;
          ASSERT_EQ(kit::firstDifference<Zor16s>(srcDst.span(), wanted), "") << what;
          ASSERT_EQ(kit::firstDifference<Zor32s>(d.span(), after), "") << what;
          ASSERT_EQ(dI.values(), d.values()) << what;
        }
      }
}

TEST(IirDirect, RegistersGoBackHalfAwayFromZeroOrToEvenAndSaturate) {
  // With a shift of 1 the output is d / 2, and a1 = 1, a half in the filter, leaves -d / 4; shifted back, -d / 2.
  for (int d : {1, 3, 5, -1, -3, 7}) {
    const Zor16s taps[] = {0, 0, 1, 1}, sections[] = {1, 0, 0, 1, 1, 0};
    Zor32s dly[] = {d}, dlySections[] = {d, 0};
    const Zor16s x[] = {0};
    Zor16s y[1];
    ASSERT_EQ(zorsIIR_Direct_16s(x, y, 1, taps, 1, dly), zorStatusOk);
    ASSERT_EQ(zorsIIR_BiQuadDirect_16s(x, y, 1, sections, 1, dlySections), zorStatusOk);
    EXPECT_EQ(dly[0], Zor32s(std::round(-d / 2.0))) << d;
    EXPECT_EQ(dlySections[0], Zor32s(std::nearbyint(-d / 2.0))) << d;
  }
  for (Zor16s x : {Zor16s(32767), Zor16s(-32768)}) {
    // d'[0] = b1 x - a1 y, with y = b0 x and everything as large as it gets.
    const Zor16s taps[] = {32767, 32767, 0, -32768}, sections[] = {32767, 32767, 32767, 0, -32768, -32768};
    Zor32s dly[] = {0}, dlySections[] = {0, 0};
    Zor16s y[1];
    ASSERT_EQ(zorsIIR_Direct_16s(&x, y, 1, taps, 1, dly), zorStatusOk);
    ASSERT_EQ(zorsIIR_BiQuadDirect_16s(&x, y, 1, sections, 1, dlySections), zorStatusOk);
    const Zor32s bound = x > 0 ? INT32_MAX : INT32_MIN;
    EXPECT_EQ(dly[0], bound);
    EXPECT_EQ(dlySections[0], bound);
    EXPECT_EQ(dlySections[1], bound);
    EXPECT_EQ(y[0], x > 0 ? 32767 : -32768);
  }
}

TEST(IirDirect, ChecksInTheirOrder) {
  const std::vector<Zor16s> goodTaps{1, 1, 1, 1, 1, 1};
  std::vector<Zor16s> badTaps{1, 1, 1, -1, 1, 1}, src(8, 5), dst(8, 9);
  std::vector<Zor32s> dly{3, 4};
  const auto srcBefore = src, dstBefore = dst;
  const auto dlyBefore = dly;
  const auto expect = [&](ZorStatus got, ZorStatus wanted, const char* what) {
    EXPECT_EQ(got, wanted) << what;
    EXPECT_TRUE(src == srcBefore && dst == dstBefore && dly == dlyBefore) << what;
  };
  for (int order : {0, -1, INT32_MIN}) {
    expect(zorsIIROne_Direct_16s(1, nullptr, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIROne_Direct_16s_I(nullptr, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIROne_BiQuadDirect_16s(1, nullptr, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIROne_BiQuadDirect_16s_I(nullptr, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIR_Direct_16s(nullptr, nullptr, 0, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIR_Direct_16s_I(nullptr, 0, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIR_BiQuadDirect_16s(nullptr, nullptr, 0, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
    expect(zorsIIR_BiQuadDirect_16s_I(nullptr, 0, nullptr, order, nullptr), zorStatusBadFilterOrder, "order");
  }
  const Zor16s* t = badTaps.data();
  expect(zorsIIROne_Direct_16s(1, nullptr, t, 2, dly.data()), zorStatusNullPointer, "dst");
  expect(zorsIIROne_Direct_16s(1, dst.data(), nullptr, 2, dly.data()), zorStatusNullPointer, "taps");
  expect(zorsIIROne_Direct_16s(1, dst.data(), t, 2, nullptr), zorStatusNullPointer, "dly");
  expect(zorsIIROne_Direct_16s_I(nullptr, t, 2, dly.data()), zorStatusNullPointer, "dst");
  expect(zorsIIROne_BiQuadDirect_16s(1, nullptr, t, 1, dly.data()), zorStatusNullPointer, "dst");
  expect(zorsIIROne_BiQuadDirect_16s(1, dst.data(), nullptr, 1, dly.data()), zorStatusNullPointer, "taps");
  expect(zorsIIROne_BiQuadDirect_16s(1, dst.data(), t, 1, nullptr), zorStatusNullPointer, "dly");
  expect(zorsIIROne_BiQuadDirect_16s_I(nullptr, t, 1, dly.data()), zorStatusNullPointer, "dst");
  expect(zorsIIROne_Direct_16s(1, dst.data(), t, 2, dly.data()), zorStatusNegativeTapShift, "shift");
  expect(zorsIIROne_Direct_16s_I(dst.data(), t, 2, dly.data()), zorStatusNegativeTapShift, "shift");
  expect(zorsIIROne_BiQuadDirect_16s(1, dst.data(), t, 1, dly.data()), zorStatusNegativeTapShift, "shift");
  expect(zorsIIROne_BiQuadDirect_16s_I(dst.data(), t, 1, dly.data()), zorStatusNegativeTapShift, "shift");
  for (bool sections : {false, true}) {
    const auto run = sections ? zorsIIR_BiQuadDirect_16s : zorsIIR_Direct_16s;
    const auto runInPlace = sections ? zorsIIR_BiQuadDirect_16s_I : zorsIIR_Direct_16s_I;
    const int n = sections ? 1 : 2;
    expect(run(nullptr, dst.data(), 0, t, n, dly.data()), zorStatusNullPointer, "src");
    expect(run(src.data(), nullptr, 0, t, n, dly.data()), zorStatusNullPointer, "dst");
    expect(run(src.data(), dst.data(), 0, nullptr, n, dly.data()), zorStatusNullPointer, "taps");
    expect(run(src.data(), dst.data(), 0, t, n, nullptr), zorStatusNullPointer, "dly");
    expect(runInPlace(nullptr, 0, t, n, dly.data()), zorStatusNullPointer, "srcDst");
    // An order's shift is seen before the length, sections' after the memory.
    const ZorStatus both = sections ? zorStatusBadSize : zorStatusNegativeTapShift;
    expect(run(src.data(), dst.data(), 0, t, n, dly.data()), both, "shift and len");
    expect(runInPlace(dst.data(), -5, t, n, dly.data()), both, "shift and len");
    expect(run(src.data(), dst.data(), 0, goodTaps.data(), n, dly.data()), zorStatusBadSize, "len");
    expect(run(src.data(), dst.data(), 8, t, n, dly.data()), zorStatusNegativeTapShift, "shift");
    const int taken =
        kit::failEachAllocation([&] { return run(src.data(), dst.data(), 8, t, n, dly.data()); },
                                [&](int failed, ZorStatus status) {
                                  expect(status, failed >= 0 ? zorStatusNoMemory : zorStatusNegativeTapShift, "memory");
                                  EXPECT_EQ(kit::services().live, 0);
                                });
    EXPECT_EQ(taken, sections ? 1 : 0);
    kit::failEachAllocation([&] { return run(src.data(), src.data(), 8, goodTaps.data(), n, dly.data()); },
                            [&](int failed, ZorStatus status) {
                              if (failed >= 0) expect(status, zorStatusNoMemory, "memory");
                              EXPECT_EQ(status, failed >= 0 ? zorStatusNoMemory : zorStatusOk);
                              EXPECT_EQ(kit::services().live, 0);
                            });
    src = srcBefore;
    dly = dlyBefore;
  }
  expect(zorsIIR_BiQuadDirect_16s(src.data(), dst.data(), 8, goodTaps.data(), INT32_MAX, dly.data()), zorStatusNoMemory,
         "more sections than memory holds");
  const std::vector<Zor16s> zeroB0{0, 1, 1, 1, 1, 1};
  expect(zorsIIR_BiQuadDirect_16s(src.data(), dst.data(), 8, zeroB0.data(), 1, dly.data()), zorStatusDivideByZero,
         "b0");
}

}  // namespace
