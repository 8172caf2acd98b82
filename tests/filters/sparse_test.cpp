#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/filters.h"

namespace {

using kit::Guarded;
using std::size_t;

struct Filter {
  std::vector<Zor32f> taps;
  std::vector<Zor32s> places;
  Zor32s iirTaps = 0;  // of the taps, so many last ones are recursive

  size_t firTaps() const { return taps.size() - size_t(iirTaps); }
  Zor32s order1() const { return places[firTaps() - 1]; }
  Zor32s order2() const { return iirTaps == 0 ? 0 : places.back(); }
};

// Inputs and outputs of the past stand in front; one fused multiply-add a tap.
struct Model {
  Filter filter;
  std::vector<Zor32f> x, y;
  Model(Filter f, const std::vector<Zor32f>& dly) : filter(std::move(f)) {
    for (Zor32s k = filter.order1(); k-- > 0;) x.push_back(dly[size_t(k)]);
    for (Zor32s k = filter.order2(); k-- > 0;) y.push_back(dly[size_t(filter.order1() + k)]);
  }
  Zor32f next(Zor32f sample) {
    x.push_back(sample);
    const size_t n = filter.firTaps();
    Zor32f sum = 0;
    const auto add = [&](size_t k) { sum = std::fma(filter.taps[k], x[x.size() - 1 - size_t(filter.places[k])], sum); };
    if (filter.iirTaps == 0)
      for (size_t k = n; k-- > 0;) add(k);
    else
      for (size_t k = 0; k < n; ++k) add(k);
    for (size_t k = filter.taps.size(); k-- > n;)
      sum = std::fma(filter.taps[k], y[y.size() - size_t(filter.places[k])], sum);
    if (filter.iirTaps > 0) y.push_back(sum);
    return sum;
  }
};

std::vector<Zor32f> history(const Filter& filter, kit::Random& random) {
  return kit::signal<Zor32f>(size_t(filter.order1() + filter.order2()), random);
}

// Blocks of the given lengths, one after another, each array at an unreadable page; the state in a block of exact size.
void checkBlocks(const Filter& filter, const std::vector<int>& lengths, kit::Random& random, size_t away) {
  const auto dly = history(filter, random);
  Model model(filter, dly);
  Zor32s size = 0;
  const bool fir = filter.iirTaps == 0;
  if (fir) {
    ASSERT_EQ(zorsFIRSparseGetStateSize_32f(Zor32s(filter.taps.size()), std::max(1, filter.order1()), &size),
              zorStatusOk);
  } else {
    ASSERT_EQ(zorsIIRSparseGetStateSize_32f(Zor32s(filter.firTaps()), filter.iirTaps, filter.order1(), filter.order2(),
                                            &size),
              zorStatusOk);
  }
  const Guarded<Zor8u> block(size_t(size), kit::Edge::end, away);
  ZorFIRSparseState* firState = nullptr;
  ZorIIRSparseState* iirState = nullptr;
  {
    Filter given = filter;  // copied by Init
    if (fir) {
      ASSERT_EQ(zorsFIRSparseInit_32f(&firState, given.taps.data(), given.places.data(), Zor32s(given.taps.size()),
                                      dly.data(), block.data()),
                zorStatusOk);
    } else {
      ASSERT_EQ(zorsIIRSparseInit_32f(&iirState, given.taps.data(), given.places.data(), Zor32s(given.firTaps()),
                                      given.iirTaps, dly.data(), block.data()),
                zorStatusOk);
    }
  }
  for (int len : lengths) {
    const Guarded<Zor32f> src(kit::signal<Zor32f>(size_t(len), random), len % 2 ? kit::Edge::begin : kit::Edge::end);
    const Guarded<Zor32f> dst(size_t(len), len % 2 ? kit::Edge::begin : kit::Edge::end);
    std::vector<Zor32f> wanted;
    for (Zor32f x : src.span()) wanted.push_back(model.next(x));
    ASSERT_EQ(fir ? zorsFIRSparse_32f(src.data(), dst.data(), len, firState)
                  : zorsIIRSparse_32f(src.data(), dst.data(), len, iirState),
              zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Zor32f>(dst.span(), wanted), "")
        << "len " << len << ", orders " << filter.order1() << ", " << filter.order2();
    ASSERT_TRUE(dst.intact());
    if (fir) {
      std::vector<Zor32f> got(size_t(filter.order1()) + 1, 99),
          newest(model.x.rbegin(), model.x.rbegin() + filter.order1());
      ASSERT_EQ(zorsFIRSparseGetDlyLine_32f(firState, got.data()), zorStatusOk);
      newest.push_back(99);
      ASSERT_EQ(got, newest) << "len " << len;
    }
  }
  ASSERT_TRUE(block.intact());
}

std::vector<int> blocksAround(int order, kit::Random& random) {
  std::vector<int> lengths;
  for (int len : {1, 2, 3, 7, 8, 9, order - 1, order, order + 1, 1, order, 2 * order + 3, 5, order / 2, 64, 65, 133})
    if (len >= 1) lengths.push_back(len);
  for (int i = 0; i < 12; ++i) lengths.push_back(1 + int(random() % size_t(order + 40)));
  return lengths;
}
std::vector<Zor32s> risingPlaces(size_t count, Zor32s first, Zor32s most, kit::Random& random) {
  std::vector<Zor32s> places = {first};
  while (places.size() < count) places.push_back(places.back() + 1 + Zor32s(random() % size_t(most)));
  return places;
}

TEST(SparseFir, SumsItsTapsOverBlocksOfAnyLength) {
  kit::Random random(1);
  for (int round = 0; round < 60; ++round) {
    const size_t count = 1 + random() % 9;
    Filter filter{kit::signal<Zor32f>(count, random),
                  risingPlaces(count, Zor32s(random() % 3), round % 3 ? 40 : 2, random)};
    ASSERT_NO_FATAL_FAILURE(checkBlocks(filter, blocksAround(filter.order1(), random), random, size_t(round % 17)));
  }
}
TEST(SparseIir, AddsItsRecursiveTapsAsTheyAre) {
  kit::Random random(2);
  for (int round = 0; round < 90; ++round) {
    const size_t count1 = 1 + random() % 5, count2 = 1 + random() % 4;
    Filter filter{kit::signal<Zor32f>(count1 + count2, random), risingPlaces(count1, Zor32s(random() % 3), 30, random),
                  Zor32s(count2)};
    for (size_t k = count1; k < filter.taps.size(); ++k) filter.taps[k] *= 0.2f;
    const int nearest[] = {1, 2, 7, 8, 9, 63, 64, 65, 100};
    for (Zor32s place : risingPlaces(count2, nearest[round % 9], 50, random)) filter.places.push_back(place);
    ASSERT_NO_FATAL_FAILURE(checkBlocks(filter, blocksAround(std::max(filter.order1(), filter.order2()), random),
                                        random, size_t(round % 17)));
    ASSERT_NO_FATAL_FAILURE(
        checkBlocks(filter, blocksAround(std::min(filter.order1(), filter.order2()), random), random, 3));
  }
}

TEST(SparseFir, ASingleTapAtPlaceZeroIsAPlainGain) {
  const Zor32f tap = 3;
  const Zor32s place = 0;
  alignas(16) Zor8u block[256];
  ZorFIRSparseState* state = nullptr;
  ASSERT_EQ(zorsFIRSparseInit_32f(&state, &tap, &place, 1, nullptr, block), zorStatusOk);
  const Zor32f src[3] = {1, 2, 3};
  Zor32f dst[3], none[1] = {5};
  ASSERT_EQ(zorsFIRSparse_32f(src, dst, 3, state), zorStatusOk);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(dst[i], 3 * src[i]);
  EXPECT_EQ(zorsFIRSparseGetDlyLine_32f(state, none), zorStatusOk);
  EXPECT_EQ(zorsFIRSparseSetDlyLine_32f(state, none), zorStatusOk);
  EXPECT_EQ(none[0], 5);
  Zor32s size;
  EXPECT_EQ(zorsFIRSparseGetStateSize_32f(1, 0, &size), zorStatusBadTapsLength);
}

TEST(SparseFir, ANanReachesItsOwnOutputsAlone) {
  const Zor32f taps[] = {1, 2}, nan = std::numeric_limits<Zor32f>::quiet_NaN();
  const Zor32s places[] = {3, 20};
  alignas(16) Zor8u block[1024];
  ZorFIRSparseState* state = nullptr;
  for (int at : {0, 5, 17, 39}) {
    ASSERT_EQ(zorsFIRSparseInit_32f(&state, taps, places, 2, nullptr, block), zorStatusOk);
    std::vector<Zor32f> src(40, 1), dst(40);
    src[size_t(at)] = nan;
    ASSERT_EQ(zorsFIRSparse_32f(src.data(), dst.data(), 13, state), zorStatusOk);
    ASSERT_EQ(zorsFIRSparse_32f(src.data() + 13, dst.data() + 13, 27, state), zorStatusOk);
    for (int i = 0; i < 40; ++i) EXPECT_EQ(std::isnan(dst[size_t(i)]), i == at + 3 || i == at + 20) << at << ", " << i;
  }
}

TEST(SparseFir, SettingTheDelayLineStartsAgain) {
  kit::Random random(5);
  const Filter filter{{1, -2, 0.5f}, {0, 4, 11}};
  alignas(16) Zor8u block[1024];
  ZorFIRSparseState* state = nullptr;
  ASSERT_EQ(zorsFIRSparseInit_32f(&state, filter.taps.data(), filter.places.data(), 3, nullptr, block), zorStatusOk);
  const auto src = kit::signal<Zor32f>(9, random);
  std::vector<Zor32f> dst(9);
  for (bool zeros : {false, true}) {
    ASSERT_EQ(zorsFIRSparse_32f(src.data(), dst.data(), 9, state), zorStatusOk);
    const auto dly = zeros ? std::vector<Zor32f>(11) : history(filter, random);
    ASSERT_EQ(zorsFIRSparseSetDlyLine_32f(state, zeros ? nullptr : dly.data()), zorStatusOk);
    Model model(filter, dly);
    std::vector<Zor32f> wanted;
    for (Zor32f x : src) wanted.push_back(model.next(x));
    ASSERT_EQ(zorsFIRSparse_32f(src.data(), dst.data(), 9, state), zorStatusOk);
    EXPECT_EQ(dst, wanted);
  }
}

TEST(SparseFilters, StateSizesFollowTheirFormula) {
  for (Zor64s n : {1, 2, 3, 4, 5, 8, 31})
    for (Zor64s order : {1, 2, 15, 16, 17, 1000}) {
      Zor32s size;
      ASSERT_EQ(zorsFIRSparseGetStateSize_32f(Zor32s(n), Zor32s(order), &size), zorStatusOk);
      EXPECT_EQ(size, ((8 * order + 15) & ~15) + ((4 * n + 15) >> 4 << 5) + 48 + 16 * n + 16);
    }
  Zor32s size = 7;
  EXPECT_EQ(zorsFIRSparseGetStateSize_32f(1, INT32_MAX, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRSparseGetStateSize_32f(INT32_MAX, 1, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsIIRSparseGetStateSize_32f(1, 1, INT32_MAX, 1, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsIIRSparseGetStateSize_32f(INT32_MAX, INT32_MAX, 1, INT32_MAX, &size), zorStatusNoMemory);
  EXPECT_EQ(size, 7);
  EXPECT_EQ(zorsIIRSparseGetStateSize_32f(1, 0, 0, 0, &size), zorStatusOk);
  EXPECT_GT(size, 0);
}

TEST(SparseFilters, InitRefusesPlacesThatNoStateHasRoomFor) {
  const Zor32f taps[] = {1, 1, 1, 1};
  const Zor32s fir[] = {0, INT32_MAX}, iir[] = {0, INT32_MAX, 1, INT32_MAX}, far[] = {0, 1, 1, INT32_MAX};
  alignas(16) Zor8u block[64] = {};
  ZorFIRSparseState* firState = nullptr;
  ZorIIRSparseState* iirState = nullptr;
  EXPECT_EQ(zorsFIRSparseInit_32f(&firState, taps, fir, 2, nullptr, block), zorStatusNoMemory);
  EXPECT_EQ(zorsIIRSparseInit_32f(&iirState, taps, iir, 2, 2, nullptr, block), zorStatusNoMemory);
  EXPECT_EQ(zorsIIRSparseInit_32f(&iirState, taps, far, 2, 2, nullptr, block), zorStatusNoMemory);
  EXPECT_TRUE(firState == nullptr && iirState == nullptr);
  EXPECT_TRUE(std::all_of(std::begin(block), std::end(block), [](Zor8u x) { return x == 0; }));
}

TEST(SparseFilters, CheckTheirArgumentsInOrder) {
  Zor32s size = 5;
  kit::Contract(zorsFIRSparseGetStateSize_32f, 2, 9, &size)
      .null<2>()
      .bad<0>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .untouched(&size, sizeof size)
      .verify("zorsFIRSparseGetStateSize_32f");
  kit::Contract(zorsIIRSparseGetStateSize_32f, 2, 2, 9, 9, &size)
      .null<4>()
      .bad<0>({0, -1, INT32_MIN}, zorStatusBadFilterOrder)
      .bad<1>({-1, INT32_MIN}, zorStatusBadFilterOrder)
      .bad<2>({-1, INT32_MIN}, zorStatusBadSparsePositions)
      .bad<3>({-1, INT32_MIN}, zorStatusBadSparsePositions)
      .untouched(&size, sizeof size)
      .verify("zorsIIRSparseGetStateSize_32f");
  alignas(16) Zor8u block[1024] = {1, 2, 3};
  static const Zor32f taps[] = {1, 2, 3, 4}, src[8] = {};
  static const Zor32s places[] = {0, 3, 1, 2}, same[] = {1, 1, 1, 2}, falling[] = {3, 2, 1, 2},
                      negative[] = {-1, 2, 1, 2}, itself[] = {0, 3, 0, 2}, negativeIir[] = {0, 3, -1, 2},
                      sameIir[] = {0, 3, 2, 2};
  Zor32f dst[8] = {6};
  ZorFIRSparseState* fir = nullptr;
  kit::Contract(zorsFIRSparseInit_32f, &fir, taps, places, 2, nullptr, block)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<5>()
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<2>({same, falling, negative}, zorStatusBadSparsePositions)
      .untouched(&fir, sizeof fir)
      .untouched(block, sizeof block)
      .verify("zorsFIRSparseInit_32f");
  ZorIIRSparseState* iir = nullptr;
  kit::Contract(zorsIIRSparseInit_32f, &iir, taps, places, 2, 2, nullptr, block)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<6>()
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadFilterOrder)
      .bad<4>({0, -1, INT32_MIN}, zorStatusBadFilterOrder)
      .bad<2>({same, falling, negative, itself, negativeIir, sameIir}, zorStatusBadSparsePositions)
      .untouched(&iir, sizeof iir)
      .untouched(block, sizeof block)
      .verify("zorsIIRSparseInit_32f");
  alignas(16) static Zor8u firBlock[512], iirBlock[512];
  ASSERT_EQ(zorsFIRSparseInit_32f(&fir, taps, places, 2, nullptr, firBlock), zorStatusOk);
  ASSERT_EQ(zorsIIRSparseInit_32f(&iir, taps, places, 2, 2, nullptr, iirBlock), zorStatusOk);
  kit::Contract(zorsFIRSparse_32f, src, dst, 8, fir)
      .null<0>()
      .null<1>()
      .null<3>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst, sizeof dst)
      .untouched(firBlock, sizeof firBlock)
      .verify("zorsFIRSparse_32f");
  kit::Contract(zorsIIRSparse_32f, src, dst, 8, iir)
      .null<0>()
      .null<1>()
      .null<3>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst, sizeof dst)
      .untouched(iirBlock, sizeof iirBlock)
      .verify("zorsIIRSparse_32f");
  kit::Contract(zorsFIRSparseGetDlyLine_32f, fir, dst)
      .null<0>()
      .null<1>()
      .untouched(dst, sizeof dst)
      .verify("zorsFIRSparseGetDlyLine_32f");
  kit::Contract(zorsFIRSparseSetDlyLine_32f, fir, dst).null<0>().verify("zorsFIRSparseSetDlyLine_32f");
}

}  // namespace
