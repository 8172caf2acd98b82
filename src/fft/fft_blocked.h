// Transforms that outgrow the caches, N = M * N1 points: one first pass that reverses the bits tile by tile, M
// interleaved transforms of N1 points, one after the other in place, then the stages that join them, column group by
// column group through a work array. Three times the data goes through memory, once a step.
#pragma once

#include <cstring>

#include "fft/fft_stages.h"

namespace zors::fft {

// ---- The first pass -----------------------------------------------------------------------------

// An index is (a, m, b): tileSideBits, the middle, tileSideBits. The sixteen points of a sequence differ in the four
// highest bits, so a tile, which is all a and b of one m, gives all points of the reversed tile.
template <bool inverse, class T, class Work, template <class> class Source>
[[gnu::flatten]] void firstPassOfTile(Source<const T> src, std::size_t first, std::size_t rowStep, const T* twiddles,
                                      Work dst, std::size_t n, std::size_t reversedTile) {
  constexpr int L = fullLanes<T>, side = 1 << tileSideBits<T>, rowsApart = side / 16;
  for (int a = 0; a < rowsApart; ++a)
    for (int b = 0; b < side; b += L) {
      const std::size_t place = reversedTile * side + std::size_t(16 * reversedBits(a, tileSideBits<T> - 4)) +
                                n / side * std::size_t(reversedBits(b, tileSideBits<T>));
      firstPass<inverse, 2, T>(
          src, first + rowStep * std::size_t(a) + std::size_t(b), rowStep * rowsApart, twiddles, dst,
          [&](int i) ZORS_INLINE_LAMBDA { return place + n / L * std::size_t(residuePlace<L>(i)); });
    }
}

// A tile copied side by side, so that its places may be overwritten.
template <class T>
Interleaved<const T> gather(Interleaved<const T> src, std::size_t first, std::size_t rowStep, T* to) {
  constexpr std::size_t side = 1 << tileSideBits<T>;
  for (std::size_t a = 0; a < side; ++a)
    std::memcpy(to + 2 * side * a, src.points + 2 * (first + rowStep * a), 2 * side * sizeof(T));
  return {to};
}
template <class T>
SplitPoints<const T> gather(SplitPoints<const T> src, std::size_t first, std::size_t rowStep, T* to) {
  constexpr std::size_t side = 1 << tileSideBits<T>;
  for (std::size_t a = 0; a < side; ++a) {
    std::memcpy(to + side * a, src.re(first + rowStep * a), side * sizeof(T));
    std::memcpy(to + side * (side + a), src.im(first + rowStep * a), side * sizeof(T));
  }
  return {to, to + side * side};
}

template <class T> bool meets(Interleaved<const T> src, Interleaved<T> dst) { return src.points == dst.points; }
template <class T> bool meets(SplitPoints<const T> src, SplitPoints<T> dst) {
  return src.reals == dst.reals || src.imaginaries == dst.imaginaries || src.reals == dst.imaginaries ||
         src.imaginaries == dst.reals;
}
template <class T> WorkPoints<T> workIn(Interleaved<T> dst) { return {dst.points}; }
template <class T> SplitPoints<T> workIn(SplitPoints<T> dst) { return dst; }

template <bool inverse, class T, template <class> class Array>
void blockedFirstPass(const Spec<T>& spec, std::size_t n, Array<const T> src, Array<T> dst, T* buffer) {
  constexpr std::size_t side = 1 << tileSideBits<T>, tilePoints = side * side;
  const auto work = workIn(dst);
  const std::size_t rowStep = n / side;
  if (!meets(src, dst)) {
    for (std::size_t tile = 0; tile < n / tilePoints; ++tile)
      firstPassOfTile<inverse, T>(src, tile * side, rowStep, spec.twiddles, work, n, spec.bitReverse[tile]);
    return;
  }
  for (std::size_t tile = 0; tile < n / tilePoints; ++tile) {
    const std::size_t other = spec.bitReverse[tile];
    if (other < tile) continue;
    const auto first = gather<T>(src, tile * side, rowStep, buffer);
    const auto second = other == tile ? first : gather<T>(src, other * side, rowStep, buffer + 2 * tilePoints);
    firstPassOfTile<inverse, T>(first, 0, side, spec.twiddles, work, n, other);
    if (other != tile) firstPassOfTile<inverse, T>(second, 0, side, spec.twiddles, work, n, tile);
  }
}

// ---- Joining ------------------------------------------------------------------------------------

// One stage of a column group: radix parts of `span` rows become one, for all rows of the group. The rows of `from` and
// of `to` are so many points apart. The twiddles of a row and a register of columns serve all blocks of rows. Of the
// last stage's twiddles the table has the first powers; the others are products.
enum class TileStage { inner, last, outermost };  // outermost: the last one, whose results are the transform's
template <int radix, bool inverse, bool scaled, TileStage kind, class From, class To, class T>
[[gnu::flatten]] void joinRows(From from, std::size_t fromFirst, std::size_t fromStep, To to, std::size_t toFirst,
                               std::size_t toStep, std::size_t rows, std::size_t span, const T* twiddles, T scale) {
  constexpr int L = fullLanes<T>;
  const auto factor = allLanes<L>(scale);
  for (std::size_t row = 0; row < span; ++row)
    for (std::size_t column = 0; column < tileColumns<T>; column += L) {
      Parts<T, L, radix> w;  // the first is not used
      w.at[1] = loadPoints<L>(twiddles);
      if constexpr (kind != TileStage::inner) {
        w.at[2] = twiddle<false>(w.at[1], w.at[1]);
        w.at[3] = twiddle<false>(w.at[1], w.at[2]);
        twiddles += 2 * L;
      } else {
        simd::unrolled<radix - 2>([&](auto i)
                                      ZORS_INLINE_LAMBDA { w.at[i + 2] = loadPoints<L>(twiddles + 2 * L * (i + 1)); });
        twiddles += 2 * L * (radix - 1);
      }
      for (std::size_t block = row; block < rows; block += span * radix) {
        const std::size_t at = fromFirst + column + block * fromStep;
        Parts<T, L, radix> t;
        simd::unrolled<radix>([&](auto q) ZORS_INLINE_LAMBDA {
          t.at[q] = loadWork(from, at + fromStep * span * std::size_t(residuePlace<radix>(q)));
          if constexpr (scaled) t.at[q] = t.at[q] * factor;
          if constexpr (q > 0) t.at[q] = twiddle<inverse>(w.at[q], t.at[q]);
        });
        const auto y = butterfly<radix, inverse>(t);
        simd::unrolled<radix>([&](auto m) ZORS_INLINE_LAMBDA {
          const std::size_t k = toFirst + column + (block + span * std::size_t(m)) * toStep;
          if constexpr (kind == TileStage::outermost)
            to.template store<L>(k, y.at[m]);
          else
            storeWork(to, k, y.at[m]);
        });
      }
    }
}

// The tile stages of 2^order points from `begin` on. target is the work array itself, or, at the outermost level, dst.
template <bool inverse, bool scaled, TileStage last, class T, class Work, class Target>
void joinColumns(Work work, Target target, std::size_t begin, int order, const T* twiddles, T scale, T* buffer) {
  const int bits = tileBits<T>(order);
  const std::size_t rows = std::size_t{1} << bits, step = std::size_t{1} << (order - bits);
  constexpr std::size_t columns = tileColumns<T>;
  const WorkPoints<T> tile{buffer};
  for (std::size_t at = begin; at < begin + step; at += columns) {
    if (bits == 4) {
      joinRows<4, inverse, scaled, TileStage::inner>(work, at, step, tile, 0, columns, rows, 1, twiddles, scale);
      twiddles += 2 * 3 * columns;
      joinRows<4, inverse, false, last>(tile, 0, columns, target, at, step, rows, 4, twiddles, scale);
      twiddles += 2 * 4 * columns;
    } else {
      joinRows<8, inverse, scaled, TileStage::inner>(work, at, step, tile, 0, columns, rows, 1, twiddles, scale);
      twiddles += 2 * 7 * columns;
      joinRows<8, inverse, false, TileStage::inner>(tile, 0, columns, tile, 0, columns, rows, 8, twiddles, scale);
      twiddles += 2 * 7 * 8 * columns;
      joinRows<4, inverse, false, last>(tile, 0, columns, target, at, step, rows, 64, twiddles, scale);
      twiddles += 2 * 64 * columns;
    }
  }
}

// ---- All steps ----------------------------------------------------------------------------------

// Scaling comes right after the innermost transforms: their results are scaled as the first tile stage reads them.
template <bool inverse, TileStage last, class T, class Work, class Target>
[[gnu::noinline]] void blockedStages(const Spec<T>& spec, const T* const* levelTwiddles, int order, std::size_t begin,
                                     Work work, Target target, T* buffer) {
  const int rest = order - tileBits<T>(order);
  const bool innermost = rest < blockedOrder<T>;
  for (std::size_t at = begin; at < begin + (std::size_t{1} << order); at += std::size_t{1} << rest) {
    const T* twiddles = spec.twiddles;
    if (innermost)
      runInnerStages<inverse>(work, at, rest, rest, twiddles);
    else
      blockedStages<inverse, TileStage::last>(spec, levelTwiddles + 1, rest, at, work, work, buffer);
  }
  const bool scaled = innermost && spec.scales(inverse);
  if (scaled)
    joinColumns<inverse, true, last>(work, target, begin, order, *levelTwiddles, spec.scale, buffer);
  else
    joinColumns<inverse, false, last>(work, target, begin, order, *levelTwiddles, spec.scale, buffer);
}

template <bool inverse, class T, template <class> class Array>
void blockedTransform(const Spec<T>& spec, int order, Array<const T> src, Array<T> dst, T* buffer) {
  blockedFirstPass<inverse>(spec, std::size_t{1} << order, src, dst, buffer);
  blockedStages<inverse, TileStage::outermost>(spec, spec.levelTwiddles, order, 0, workIn(dst), dst, buffer);
}

}  // namespace zors::fft
