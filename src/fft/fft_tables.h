// The tables of a specification. All twiddles are entries of one quarter-wave sine table, folded.
#pragma once

#include <array>

#include "fft/fft_lanes.h"
#include "fft/fft_spec.h"
#include "zors/types.h"

namespace zors::fft {

// The static table serves up to this order.
inline constexpr int largestStaticOrder = 10;

namespace detail {

// The series of the sine (first = 1) or the cosine (first = 0) for x from 0 to pi / 4, to the last bits of a long
// double.
consteval long double sineSeries(long double x, int first) {
  long double term = first == 1 ? x : 1, sum = 0;
  for (int n = first; n < first + 30; n += 2) {
    sum += term;
    term *= -x * x / ((n + 1) * (n + 2));
  }
  return sum;
}

template <class T> consteval auto tabulateSines() {
  constexpr int turn = 1 << largestStaticOrder;
  constexpr long double pi = 3.14159265358979323846264338327950288L;
  std::array<T, turn / 4 + 1> table{};
  for (int i = 0; i <= turn / 4; ++i) {
    const bool rising = i <= turn / 8;
    const long double angle = 2 * pi * static_cast<long double>(rising ? i : turn / 4 - i) / turn;
    table[std::size_t(i)] = static_cast<T>(sineSeries(angle, rising ? 1 : 0));
  }
  return table;
}

}  // namespace detail

template <class T> inline constexpr auto staticSines = detail::tabulateSines<T>();
static_assert(staticSines<Zor32f>.back() == 1 && staticSines<Zor64f>.back() == 1);

// S[i] = sin(2 pi i / turn) for i from 0 to turn / 4, in every stride-th place of a table.
template <class T> class SineTable {
 public:
  constexpr SineTable(const T* table, std::size_t turn, std::size_t stride)
      : table_(table), turn_(turn), stride_(stride) {}

  // (cos, -sin) of k turns in n, where n divides the turn of the table: a half turn changes both signs, and within a
  // half turn the second quarter mirrors the first.
  struct Rotation {
    T re, im;
  };
  constexpr Rotation rotation(std::size_t k, std::size_t n) const {
    const std::size_t quarter = turn_ / 4, half = turn_ / 2, at = k * (turn_ / n);
    const bool beyondHalf = at > half, beyondQuarter = (beyondHalf ? at - half : at) > quarter;
    const std::size_t inHalf = beyondHalf ? at - half : at, inQuarter = beyondQuarter ? half - inHalf : inHalf;
    const T cosine = sine(quarter - inQuarter), minusSine = -sine(inQuarter);
    return {beyondHalf != beyondQuarter ? -cosine : cosine, beyondHalf ? -minusSine : minusSine};
  }
  constexpr T sine(std::size_t i) const { return table_[i * stride_]; }

 private:
  const T* table_;
  std::size_t turn_, stride_;
};
template <class T> constexpr SineTable<T> staticSineTable(int order) {
  return {staticSines<T>.data(), std::size_t{1} << order, std::size_t{1} << (largestStaticOrder - order)};
}
// The table of an order: the static one, or computed in memory for 2^order / 4 + 1 values.
template <class T> SineTable<T> sineTable(int order, T* memory);

// A record of one register of rotations and more: L cosines and L minus sines, of point(0), point(1), ... in the order
// that registers of L lanes have.
template <int L, class T, class Point> constexpr T* record(T* out, Point point) {
  for (int lane = 0; lane < L; ++lane) {
    const auto w = point(static_cast<std::size_t>(L == fullLanes<T> ? lanePoint<T>(lane) : lane));
    out[lane] = w.re;
    out[lane + L] = w.im;
  }
  return out + 2 * L;
}
// The records of one stage: of `radix` parts of `span` points.
template <int L, class T>
constexpr T* stageRecords(std::size_t span, std::size_t radix, const SineTable<T>& sines, T* out) {
  for (std::size_t k = 0; k < span; k += L)
    for (std::size_t q = 1; q < radix; ++q)
      out = record<L>(out, [&](std::size_t point) { return sines.rotation(q * (k + point), span * radix); });
  return out;
}

// ---- Twiddles: three records for the second stage, whose lanes are terms, then records of full registers of cosines
// and of minus sines in lane order, one after another as the stages use them

// The term that lane l of the second stage holds, and the records of the powers 1 to 3.
template <class T> constexpr int laneTerm(int lane) { return sizeof(T) == 4 ? lane / 2 : lanePoint<T>(lane); }
template <class T> inline constexpr std::size_t firstPassTwiddleValues = 3 * 2 * fullLanes<T>;
template <class T> constexpr T* firstPassRecords(const SineTable<T>& sines, T* out) {
  for (std::size_t q = 1; q < 4; ++q, out += 2 * fullLanes<T>)
    for (int lane = 0; lane < fullLanes<T>; ++lane) {
      const auto w = sines.rotation(q * static_cast<std::size_t>(laneTerm<T>(lane)), 16);
      out[lane] = w.re;
      out[lane + fullLanes<T>] = w.im;
    }
  return out;
}

template <class T> constexpr std::size_t stageTwiddleValues(int order) {
  std::size_t values = firstPassTwiddleValues<T>;
  for (int done = firstPassBits; done < order; done += stageBits(order, done)) {
    const std::size_t span = std::size_t{1} << done, radix = std::size_t{1} << stageBits(order, done);
    values += 2 * span * (radix - 1);
  }
  return values;
}
template <class T> void fillStageTwiddles(int order, const SineTable<T>& sines, T* out);

// Of a level of the blocked path: for each group of columns the records of each tile stage, of the last stage those of
// the first powers alone.
template <class T> constexpr std::size_t levelTwiddleValues(int order) {
  const int bits = tileBits<T>(order);
  std::size_t rows = 0;
  for (int done = 0; done < bits; done += tileStageBits(bits, done)) {
    const int stage = tileStageBits(bits, done);
    rows += (std::size_t{1} << done) * (done + stage == bits ? 1 : (std::size_t{1} << stage) - 1);
  }
  return 2 * rows << (order - bits);
}
template <class T> void fillLevelTwiddles(int order, const SineTable<T>& sines, T* out);

// ---- Bit reversal: entry j is the reversal of j in so many bits ---------------------------------

void fillReversal(int bits, Zor32u* out);

// ---- Factors of the real transforms, for k from 1 to N / 4: forward (cos / 2, 1 / 2 - sin / 2), inverse (cos, -sin),
// in records like the twiddles'. Long transforms have one table instead, of fine factors (cos, -sin) for k up to
// fineFactors and then coarse ones, single pairs for multiples of fineFactors; k = coarse + fine is a product of two.

template <class T> inline constexpr std::size_t fineFactors = sizeof(T) == 4 ? 1024 : 512;
template <class T> constexpr std::size_t factorValues(int order) {
  const std::size_t factors = std::size_t{1} << (order - 2);
  return 2 * (order < twoLevelOrder<T> ? factors : fineFactors<T> + factors / fineFactors<T>);
}
template <int L, class T> constexpr void factorRecords(int order, const SineTable<T>& sines, T* forward, T* inverse) {
  const std::size_t n = std::size_t{1} << order;
  for (std::size_t k = 1; k <= n / 4; k += L) {
    inverse = record<L>(inverse, [&](std::size_t point) { return sines.rotation(k + point, n); });
    forward = record<L>(forward, [&](std::size_t point) {
      const auto w = sines.rotation(k + point, n);
      return typename SineTable<T>::Rotation{
          T(0.5) * w.re, static_cast<T>(0.5 + 0.5 * static_cast<double>(w.im))};  // halves are exact
    });
  }
}
template <class T> void fillFactors(int order, const SineTable<T>& sines, T* forward, T* inverse);
template <class T> void fillTwoLevelFactors(int order, const SineTable<T>& sines, T* out);

}  // namespace zors::fft
