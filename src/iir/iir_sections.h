// Sections of order 2 over samples in columns (iir_columns.h). A block is filtered in each of its runs as if nothing
// came before the run. Then what the last two outputs before a run add to its outputs is known of all runs: from run to
// run these pairs of outputs are multiplied by one matrix, so they are summed in steps of 1, 2, 4, ... runs. So blocks
// wait for each other only for the pair before them.
#pragma once

#include "iir/iir_columns.h"
#include "iir/iir_scalar.h"

namespace zors::iir {

// A register of zeros, then one of ones.
template <class P> struct ZerosThenOnes {
  P at[2 * simd::lanesOf<P>] = {};
  constexpr ZerosThenOnes() {
    for (int lane = 0; lane < simd::lanesOf<P>; ++lane) at[simd::lanesOf<P> + lane] = 1;
  }
};
template <class P> inline constexpr ZerosThenOnes<P> zerosThenOnes;

// A section's taps and what follows from them, in columns.
template <class T> struct SectionColumns {
  static constexpr int lanes = iirLanes<T>, parts = iirParts<T>, steps = lanes == 8 ? 3 : 2;
  // What the outputs one and two before add: the entries of a matrix for the pair of outputs before.
  struct Pairs {
    Column<T> oneToOne, twoToOne, oneToTwo, twoToTwo;
  };
  Column<T> b0, b1, b2, minusA1, minusA2;
  Column<T> one[iirRun], two[iirRun];  // to each output of a run
  Pairs across[steps];                 // from 1, 2, 4 runs before
  Pairs before;                        // from the pair before the block to that before each run

  // table: h[0] to h[iirRun - 1], h being the impulse response of 1 / (1 + a1/z + a2/z^2); then for the runs of a
  // block, from their first sample k on, h[k], h[k - 1] and -a2 h[k - 2], each a column.
  SectionColumns(const T* taps, const T* table)
      : b0(column(taps[0])),
        b1(column(taps[1])),
        b2(column(taps[2])),
        minusA1(column(negated(taps[3]))),
        minusA2(column(negated(taps[4]))) {
    const auto* rows = components(table + iirRun);
    const auto row = [&](int k) ZORS_INLINE_LAMBDA { return simd::load<lanes * parts>(rows + k * lanes * parts); };
    before = {row(0), product(minusA2, row(1)), row(1), row(2)};
    const T next = laneOf(before.oneToOne, 1);  // h[iirRun]
    for (int k = 0; k < iirRun; ++k) {
      one[k] = column(k + 1 < iirRun ? table[k + 1] : next);
      two[k] = product(minusA2, column(table[k]));
    }
    simd::unrolled<steps>([&](auto step) ZORS_INLINE_LAMBDA {
      constexpr int distance = 1 << step;
      const auto from = [&](const Column<T>& all) ZORS_INLINE_LAMBDA {
        const auto shown = simd::load<lanes>(zerosThenOnes<simd::Part<T>>.at + lanes - distance);
        const Column<T> same = column(laneOf(all, distance));
        return simd::build<Column<T>>([&](auto part) ZORS_INLINE_LAMBDA {
          return simd::mul(simd::Vec<simd::Part<T>, lanes>{{same.r[part]}}, shown).r[0];
        });
      };
      across[step] = {from(before.oneToOne), from(before.twoToOne), from(before.oneToTwo), from(before.twoToTwo)};
    });
  }

 private:
  static T laneOf(const Column<T>& x, int lane) {
    const auto* p = reinterpret_cast<const simd::Part<T>*>(&x) + lane;
    if constexpr (Complex<T>)
      return {p[0], p[lanes]};
    else
      return p[0];
  }
};

// Blocks from rows or columns to columns in data: each run as if no outputs came before it. All blocks but the last are
// read from src, that one from data, where it has been completed. registers: what the past adds to the numerator's
// first two outputs.
template <bool fromRows, class T>
void filterRuns(const SectionColumns<T>& c, const T* registers, const T* src, T* data, Zor32s blocks) {
  using Col = Column<T>;
  const auto none = simd::splat<Col>(0);
  Col past[2] = {withFirstLane(none, column(registers[0])), withFirstLane(none, column(registers[1]))};
  Col x1 = none, x2 = none;  // inputs before the block, in the first lane
  for (; blocks > 0; --blocks, src += blockLen<T>, data += blockLen<T>) {
    const auto x = ColumnBlock<T>::template load<fromRows>(blocks > 1 ? src : data);
    ColumnBlock<T> y;
    const Col last1 = turned<1>(x.at[iirRun - 1]), last2 = turned<1>(x.at[iirRun - 2]);
    const Col before1 = withFirstLane(last1, x1), before2 = withFirstLane(last2, x2);
    x1 = last1;
    x2 = last2;
    simd::unrolled<iirRun>([&](auto k) ZORS_INLINE_LAMBDA {
      const Col one = k >= 1 ? x.at[(k + iirRun - 1) % iirRun] : before1;
      const Col two = k >= 2 ? x.at[(k + iirRun - 2) % iirRun] : k == 1 ? before1 : before2;
      Col sum = k < 2 ? plusProduct(c.b0, x.at[k], past[k % 2]) : product(c.b0, x.at[k]);
      sum = plusProduct(c.b2, two, plusProduct(c.b1, one, sum));
      if constexpr (k >= 2) sum = plusProduct(c.minusA2, y.at[k - 2], sum);
      if constexpr (k >= 1) sum = plusProduct(c.minusA1, y.at[k - 1], sum);
      y.at[k] = sum;
    });
    past[0] = past[1] = none;
    y.template store<false>(data);
  }
}

// Adds to each run what the outputs before it leave; from columns to rows or columns.
template <bool toRows, class T> void joinRuns(const SectionColumns<T>& c, T* data, Zor32s blocks) {
  using Col = Column<T>;
  const auto none = simd::splat<Col>(0);
  const auto add = [](const typename SectionColumns<T>::Pairs& by, Col one, Col two, Col& toOne, Col& toTwo)
                       ZORS_INLINE_LAMBDA {
                         toOne = plusProduct(by.oneToOne, one, plusProduct(by.twoToOne, two, toOne));
                         toTwo = plusProduct(by.oneToTwo, one, plusProduct(by.twoToTwo, two, toTwo));
                       };
  Col y1 = none, y2 = none;  // before the block, in all lanes
  for (; blocks > 0; --blocks, data += blockLen<T>) {
    auto y = ColumnBlock<T>::template load<false>(data);
    Col one = withFirstLane(turned<1>(y.at[iirRun - 1]), none), two = withFirstLane(turned<1>(y.at[iirRun - 2]), none);
    simd::unrolled<SectionColumns<T>::steps>([&](auto step) ZORS_INLINE_LAMBDA {
      add(c.across[step], turned<(1 << step)>(one), turned<(1 << step)>(two), one, two);
    });
    add(c.before, y1, y2, one, two);
    simd::unrolled<iirRun>(
        [&](auto k) ZORS_INLINE_LAMBDA { y.at[k] = plusProduct(c.one[k], one, plusProduct(c.two[k], two, y.at[k])); });
    y1 = lastLane(y.at[iirRun - 1]);
    y2 = lastLane(y.at[iirRun - 2]);
    y.template store<toRows>(data);
  }
}

}  // namespace zors::iir
