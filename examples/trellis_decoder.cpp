// trellis_decoder: a modem's trellis-coded symbols, each two points of a constellation, through noise and back.
// The four steps of a decoder are four calls; the errors left are counted beside those of a receiver that takes the
// nearest points.
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "zors.h"

namespace {

constexpr int states = 32, branches = 16, symbols = 20'000;
constexpr double noise = 62;  // points lie 256 apart

// Eight labels, each at two places of the four by four that repeat; neighbours differ in the last bit.
int labelAt(int column, int row) {
  const int c = column + (row & 2);
  return (row & 1) == 0 ? c & 3 : 4 + ((c + 1) & 3);
}
int cellOf(int coordinate) { return ((coordinate - 128) >> 8) + 2; }
int labelOf(Zor16sc point) { return labelAt(cellOf(point.re), cellOf(point.im)); }

// The entry of the branch table that a pair of labels belongs to; each entry has two pairs.
int entryOf(int first, int second) {
  const int q = second & 3, p = second >= 4 ? (first + 4) & 7 : first;
  return 4 * p + ((q - p) & 3);
}
int nextOf(int state, int branch) { return state >> 1 | (branch & 1) << 4; }

struct Symbol {
  Zor16sc point[2];
  int entry() const { return entryOf(labelOf(point[0]), labelOf(point[1])); }
};
bool same(const Symbol& a, const Symbol& b) {
  const auto equal = [](Zor16sc x, Zor16sc y) { return x.re == y.re && x.im == y.im; };
  return equal(a.point[0], b.point[0]) && equal(a.point[1], b.point[1]);
}

// Random data: of all symbols those whose entry belongs to the state.
std::vector<Symbol> encode(std::mt19937& random) {
  const auto anyPoint = [&] {
    const auto coordinate = [&] { return Zor16s(128 + 256 * (int(random() % 8) - 4)); };
    const Zor16s re = coordinate(), im = coordinate();
    return Zor16sc{re, im};
  };
  std::vector<Symbol> sent;
  for (int state = 0; int(sent.size()) < symbols;) {
    const Symbol symbol{{anyPoint(), anyPoint()}};
    const int entry = symbol.entry();
    if (entry % 2 != state % 2) continue;
    sent.push_back(symbol);
    state = nextOf(state, entry / 2);
  }
  return sent;
}

// A neighbour's place from the number that the measure of a point gave it.
Zor16sc neighbour(Zor16sc nearest, unsigned number) {
  static constexpr int offsets[12][2] = {{0, 0}, {1, 0},  {1, 1}, {0, 1},  {0, 2},  {1, 2},
                                         {2, 1}, {1, -1}, {2, 0}, {-1, 0}, {0, -1}, {-1, 1}};
  return {Zor16s(nearest.re + 256 * offsets[number][0]), Zor16s(nearest.im + 256 * offsets[number][1])};
}

}  // namespace

int main() {
  std::mt19937 random(1);
  std::normal_distribution<double> gauss(0, noise);
  const std::vector<Symbol> sent = encode(random);

  Zor8u labels[16], nextState[states * branches];
  for (int row = 0; row < 4; ++row)
    for (int column = 0; column < 4; ++column) labels[4 * row + column] = Zor8u(labelAt(column, row));
  for (int s = 0; s < states; ++s)
    for (int k = 0; k < branches; ++k) nextState[branches * s + k] = Zor8u(nextOf(s, k));

  std::vector<Symbol> nearest(symbols), sliced(symbols);
  std::vector<Zor32u> survivors(std::size_t(symbols) * states);
  Zor16u pathError[states], newPathError[states], least = 0;
  Zor8u best = 0;
  for (int s = 0; s < states; ++s) pathError[s] = s == 0 ? 0 : 0xFFFF;
  for (int n = 0; n < symbols; ++n) {
    const auto i = std::size_t(n);
    Zor32u variance[16];
    for (int half = 0; half < 2; ++half) {
      const Zor16sc point = sent[i].point[half];
      const Zor16sc received = {Zor16s(std::lrint(point.re + gauss(random))),
                                Zor16s(std::lrint(point.im + gauss(random)))};
      zorsGetVarPointDV_16sc(&received, &nearest[i].point[half], variance + 8 * half, labels, states);
      const auto slice = [](int x) { return Zor16s((x & ~255) + 128); };
      sliced[i].point[half] = {slice(received.re), slice(received.im)};
    }
    Zor16sc table[2 * branches];
    zorsBuildSymblTableDV4D_16sc(variance, table, states, 0);
    for (auto& error : newPathError) error = 0xFFFF;
    zorsCalcStatesDV_16sc(pathError, nextState, newPathError, table, survivors.data(), states, n * states);
    zorsUpdatePathMetricsDV_16u(newPathError, &least, &best, pathError, states);
  }

  int decodedErrors = 0, slicedErrors = 0;
  unsigned state = best;
  for (int n = symbols - 1; n >= 0; --n) {
    const auto i = std::size_t(n);
    const Zor32u survivor = survivors[i * states + state];
    const Symbol decoded{
        {neighbour(nearest[i].point[0], survivor & 0xFF), neighbour(nearest[i].point[1], survivor >> 8 & 0xFF)}};
    decodedErrors += !same(decoded, sent[i]);
    slicedErrors += !same(sliced[i], sent[i]);
    state = survivor >> 16;
  }
  std::printf("%d symbols, noise %.0f: %d errors of the decoder, %d of nearest points\n", symbols, noise, decodedErrors,
              slicedErrors);
  return state == 0 && 4 * decodedErrors < slicedErrors ? 0 : 1;
}
