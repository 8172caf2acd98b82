// zorsGetVarPointDV_16sc, zorsBuildSymblTableDV4D_16sc, zorsCalcStatesDV_16sc, zorsUpdatePathMetricsDV_16u.
#include <array>

#include "zors/detection.h"

namespace {

using kit::Edge;
using kit::Guarded;

// ---- Measures of a point ------------------------------------------------------------------------

using Variance = std::vector<Zor32u>;

void pointModel(Zor16sc point, Zor16sc& nearest, Variance& variance, const std::vector<Zor8u>& labels, int states) {
  const int re = point.re, im = point.im;
  const int fr = (re ^ 128) & 255, fi = (im ^ 128) & 255;
  nearest = {Zor16s(re - fr), Zor16s(im - fi)};
  const int i = (((re - fr - 128) >> 8) + 2) & 3, j = (((im - fi - 128) >> 8) + 2) & 3;
  const int a[4] = {fr * fr >> 4, (256 - fr) * (256 - fr) >> 4, (512 - fr) * (512 - fr) >> 4,
                    (fr + 256) * (fr + 256) >> 4};
  const int b[4] = {fi * fi >> 4, (256 - fi) * (256 - fi) >> 4, (512 - fi) * (512 - fi) >> 4,
                    (fi + 256) * (fi + 256) >> 4};
  const auto put = [&](int column, int row, int distance, int tag) {
    const int label = labels[std::size_t(4 * (row & 3) + (column & 3))] & (states == 16 ? 3 : 7);
    variance[std::size_t(label)] = Zor32u(distance + (tag << 16));
  };
  put(i, j, a[0] + b[0], 0);
  put(i + 1, j, a[1] + b[0], 1);
  put(i + 1, j + 1, a[1] + b[1], 2);
  put(i, j + 1, a[0] + b[1], 3);
  if (states == 16) return;
  const auto nearer = [&](int column, int row, int first, int firstTag, int second, int secondTag) {
    put(column, row, second <= first ? second : first, second <= first ? secondTag : firstTag);
  };
  nearer(i, j + 2, a[0] + b[2], 4, b[0] + a[2], 8);
  nearer(i + 1, j + 2, a[1] + b[2], 5, b[0] + a[3], 9);
  nearer(i + 1, j + 3, a[2] + b[1], 6, a[0] + b[3], 10);
  nearer(i, j + 3, a[1] + b[3], 7, a[3] + b[1], 11);
}

TEST(Viterbi, MeasuresOfPointsEverywhere) {
  kit::Random random(1);
  for (int round = 0; round < 200'000; ++round) {
    const int counts[] = {16, 32, 8, 64, 0, -16, INT32_MIN, INT32_MAX};
    const int states = round % 2 ? counts[random() % 8] : 32;
    std::vector<Zor8u> table(16);
    for (std::size_t k = 0; k < 16; ++k) table[k] = round % 3 ? Zor8u(random()) : Zor8u((k % 4 + 2 * (k / 4)) % 8);
    Zor16sc point = kit::anyValue<Zor16sc>(random);
    if (round % 5 == 0) point = {Zor16s(128 * int(random() % 9) - 512), Zor16s(128 * int(random() % 9) - 512)};
    const Guarded<Zor8u> labels(table, round % 2 ? Edge::begin : Edge::end);
    const Variance before(states == 16 ? 4 : 8, 0xDEADBEEF);
    const Guarded<Zor32u> variance(before, Edge::end);
    Variance wanted = before;
    Zor16sc nearest{}, wantedNearest{};
    pointModel(point, wantedNearest, wanted, table, states);
    ASSERT_EQ(zorsGetVarPointDV_16sc(&point, &nearest, variance.data(), labels.data(), states), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(nearest, wantedNearest)) << kit::text(point);
    ASSERT_EQ(variance.values(), wanted) << kit::text(point) << ", " << states;
  }
}

// Rows of labels such that the eight cells around a point have eight labels.
std::vector<Zor8u> gridLabels() {
  std::vector<Zor8u> labels(16);
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) labels[std::size_t(4 * row + column)] = Zor8u(column % 2 + 2 * row);
  return labels;
}

TEST(Viterbi, OnAGridPointTheFirstDistanceIsZero) {
  const auto labels = gridLabels();
  Zor32u variance[8];
  Zor16sc nearest;
  Zor16sc point = {128, 128};
  ASSERT_EQ(zorsGetVarPointDV_16sc(&point, &nearest, variance, labels.data(), 32), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(nearest, point));
  EXPECT_EQ(variance[labels[4 * 2 + 2]], 0u);
  point = {384, 128};  // one column on
  ASSERT_EQ(zorsGetVarPointDV_16sc(&point, &nearest, variance, labels.data(), 32), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(nearest, point));
  EXPECT_EQ(variance[labels[4 * 2 + 3]], 0u);
}

TEST(Viterbi, OfTwoFarNeighboursAtOneDistanceTheSecondIsTaken) {
  const auto labels = gridLabels();
  Zor32u variance[8];
  Zor16sc nearest;
  const Zor16sc point = {128, 128};  // both candidates lie 512 away
  ASSERT_EQ(zorsGetVarPointDV_16sc(&point, &nearest, variance, labels.data(), 32), zorStatusOk);
  EXPECT_EQ(variance[labels[4 * ((2 + 2) & 3) + 2]], 16384u | 8u << 16);
}

// ---- Branch metrics -----------------------------------------------------------------------------

std::vector<Zor16sc> tableModel(const Variance& variance, int states, int inversion) {
  std::vector<Zor16sc> table;
  for (int e = 0; e < (states == 16 ? 16 : 32); ++e) {
    const Zor32u x = Zor32u(e ^ inversion), p = x >> 2 & 15, q = (x + (x >> 2)) & 3;
    const auto word = [&](Zor32u at) { return variance[at]; };
    const Zor32u metric1 = (word(p) & 0xFFFF) + (word(q + 8) & 0xFFFF);
    const Zor32u metric2 = (word((p + 4) & 7) & 0xFFFF) + (word(q + 12) & 0xFFFF);
    const bool other = metric1 > metric2;
    const Zor32u first = other ? word((p + 4) & 7) : word(p), second = other ? word(q + 12) : word(q + 8);
    table.push_back({Zor16s((first >> 16 & 0xFF) | (second >> 16 & 0xFF) << 8), Zor16s(other ? metric2 : metric1)});
  }
  return table;
}

TEST(Viterbi, TablesOfBranchMetrics) {
  kit::Random random(2);
  for (int round = 0; round < 20'000; ++round) {
    Variance words(16);
    for (auto& w : words)
      w = round % 3 == 0 ? Zor32u(random())
                         : Zor32u(random() % 12 << 16 | random() % (round % 3 == 1 ? 4 : 32768));  // ties; usual ones
    const int states = std::array{16, 32, 8, 0, -1}[random() % 5];
    const int inversion = round % 2 ? int(random() % 64) : round % 4 ? kit::anyValue<Zor32s>(random) : 0;
    const Guarded<Zor32u> variance(words, round % 2 ? Edge::begin : Edge::end);
    const auto wanted = tableModel(words, states, inversion);
    const Guarded<Zor16sc> table(wanted.size(), Edge::end);
    ASSERT_EQ(zorsBuildSymblTableDV4D_16sc(variance.data(), table.data(), states, inversion), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Zor16sc>(table.span(), wanted), "") << states << ", inversion " << inversion;
    ASSERT_TRUE(table.intact());
  }
}

// ---- The trellis --------------------------------------------------------------------------------

TEST(Viterbi, StepsThroughAnyTrellis) {
  kit::Random random(3);
  for (int round = 0; round < 3'000; ++round) {
    const int states = std::array{16, 32, 1, 7, 8, 64}[random() % 6], limit = round % 2 ? 4 : 65536;
    const int offset = std::array{0, 5, -3}[random() % 3];
    const std::size_t n = std::size_t(states);
    std::vector<Zor16u> errors(n), targets(n, Zor16u(round % 5 ? 0xFFFF : random()));
    std::vector<Zor8u> next(16 * n);
    std::vector<Zor16sc> entries(32);
    for (auto& x : errors) x = Zor16u(random() % unsigned(limit));
    for (auto& x : next) x = Zor8u(random() % n);
    for (auto& x : entries) x = {Zor16s(random()), Zor16s(random() % unsigned(limit))};
    std::vector<Zor32u> survivors(n, 77);
    auto wanted = targets;
    auto wantedSurvivors = survivors;
    for (std::size_t s = 0; s < n; ++s)
      for (std::size_t k = 0; k < 16; ++k) {
        const auto t = next[16 * s + k];
        const auto entry = entries[2 * k + (s & 1)];
        const Zor32u sum = Zor32u(errors[s]) + Zor16u(entry.im);
        if (sum < wanted[t]) {
          wanted[t] = Zor16u(sum);
          wantedSurvivors[t] = Zor16u(entry.re) | Zor32u(s) << 16;
        }
      }
    const Edge edge = round % 2 ? Edge::begin : Edge::end;
    const Guarded<Zor16u> pathError(errors, edge), newPathError(targets, edge);
    const Guarded<Zor8u> nextState(next, edge);
    const Guarded<Zor16sc> table(entries, edge);
    const Guarded<Zor32u> survivor(survivors, edge);
    ASSERT_EQ(zorsCalcStatesDV_16sc(pathError.data(), nextState.data(), newPathError.data(), table.data(),
                                    survivor.data() - offset, states, offset),
              zorStatusOk);
    ASSERT_EQ(newPathError.values(), wanted) << states;
    ASSERT_EQ(survivor.values(), wantedSurvivors) << states;
  }
}

TEST(Viterbi, OfEqualPathsTheOneFromTheLowerStateStays) {
  const std::vector<Zor16u> errors(16, 9);
  const std::vector<Zor8u> next(256, 3);
  const std::vector<Zor16sc> table(32, Zor16sc{0x0102, 5});
  std::vector<Zor16u> newErrors(16, 0xFFFF);
  std::vector<Zor32u> survivors(16, 1);
  ASSERT_EQ(zorsCalcStatesDV_16sc(errors.data(), next.data(), newErrors.data(), table.data(), survivors.data(), 16, 0),
            zorStatusOk);
  EXPECT_EQ(newErrors[3], 14);
  EXPECT_EQ(survivors[3], 0x0102u);
  EXPECT_EQ(newErrors[4], 0xFFFF);
  EXPECT_EQ(survivors[4], 1u);
}

TEST(Viterbi, TheBestPathHasMetricZeroAndTheFirstOfEqualsIsBest) {
  kit::Random random(4);
  for (int round = 0; round < 4'000; ++round) {
    const int counts[] = {16, 32, 1, 7, 8, 9, 31, 64, 256, 300};
    const int states = counts[random() % 10];
    std::vector<Zor16u> errors(static_cast<std::size_t>(states));
    for (auto& x : errors) x = round % 2 ? Zor16u(0x7FFE + random() % 4) : Zor16u(random());
    const Guarded<Zor16u> branch(errors, round % 2 ? Edge::begin : Edge::end);
    const Guarded<Zor16u> path(errors.size(), Edge::end);
    const bool inPlace = round % 4 == 3;
    const auto best = std::min_element(errors.begin(), errors.end());
    Zor16u least = 1;
    Zor8u state = 1;
    const Zor16u* const result = inPlace ? branch.data() : path.data();
    ASSERT_EQ(zorsUpdatePathMetricsDV_16u(branch.data(), &least, &state, const_cast<Zor16u*>(result), states),
              zorStatusOk);
    ASSERT_EQ(least, *best);
    ASSERT_EQ(state, Zor8u(best - errors.begin())) << states;
    for (int s = 0; s < states; ++s) ASSERT_EQ(result[s], errors[std::size_t(s)] - *best) << states;
  }
}

TEST(Viterbi, CountsBelowOneDoNothing) {
  const std::vector<Zor16u> errors(16, 9);
  const std::vector<Zor8u> next(256, 3);
  const std::vector<Zor16sc> table(32, Zor16sc{1, 5});
  std::vector<Zor16u> other(16, 0xFFFF);
  std::vector<Zor32u> survivors(16, 1);
  Zor16u least = 7;
  Zor8u state = 8;
  for (Zor32s count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(zorsCalcStatesDV_16sc(errors.data(), next.data(), other.data(), table.data(), survivors.data(), count, 0),
              zorStatusOk);
    EXPECT_EQ(zorsUpdatePathMetricsDV_16u(errors.data(), &least, &state, other.data(), count), zorStatusOk);
  }
  EXPECT_EQ(other, std::vector<Zor16u>(16, 0xFFFF));
  EXPECT_EQ(survivors, std::vector<Zor32u>(16, 1));
  EXPECT_EQ(least, 7);
  EXPECT_EQ(state, 8);
}

TEST(Viterbi, EveryNullPointerIsRefused) {
  const Zor16sc point = {1, 2};
  Zor16sc nearest = {3, 4};
  std::vector<Zor32u> words(16, 5), survivors(32, 6);
  std::vector<Zor8u> bytes(512, 0);
  std::vector<Zor16sc> table(32);
  std::vector<Zor16u> errors(32, 7), newErrors(32, 0xFFFF);
  Zor16u least = 1;
  Zor8u state = 2;
  kit::Contract(zorsGetVarPointDV_16sc, &point, &nearest, words.data(), bytes.data(), 32)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<3>()
      .untouched(words)
      .untouched(&nearest, sizeof nearest)
      .verify("zorsGetVarPointDV_16sc");
  kit::Contract(zorsBuildSymblTableDV4D_16sc, words.data(), table.data(), 32, 0)
      .null<0>()
      .null<1>()
      .untouched(table)
      .verify("zorsBuildSymblTableDV4D_16sc");
  kit::Contract(zorsCalcStatesDV_16sc, errors.data(), bytes.data(), newErrors.data(), table.data(), survivors.data(),
                32, 0)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<3>()
      .null<4>()
      .untouched(newErrors)
      .untouched(survivors)
      .verify("zorsCalcStatesDV_16sc");
  kit::Contract(zorsUpdatePathMetricsDV_16u, errors.data(), &least, &state, newErrors.data(), 32)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<3>()
      .untouched(newErrors)
      .untouched(&least, sizeof least)
      .untouched(&state, sizeof state)
      .verify("zorsUpdatePathMetricsDV_16u");
}

}  // namespace
