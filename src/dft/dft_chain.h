// The mixed-radix chain: leaves, read from all over the source and written one after the other, then stages that join
// them, block by block while a block stays in the first-level cache.
#pragma once

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "dft/dft_arrays.h"
#include "dft/dft_butterfly.h"
#include "dft/dft_generic.h"
#include "dft/dft_spec.h"

namespace zors::dft {

// ---- Leaves -------------------------------------------------------------------------------------

// Where the leaves go: leaf n, of the numbers n, n + N / leaf, ..., to the place with the digits of n in reverse.
template <class T> class LeafPlaces {
 public:
  explicit LeafPlaces(const Engine<T>& engine) : engine_(engine) {}
  // The places of the next leaves.
  void fill(Zor32u* places, std::size_t count) {
    const auto top = engine_.stage[0];
    for (std::size_t k = 0; k < count; ++k) {
      places[k] = place_;
      place_ += static_cast<Zor32u>(top.rest);
      if (++digit_[0] == top.radix) carry();
    }
  }

 private:
  void carry() {
    for (int i = 0; digit_[i] == engine_.stage[i].radix; ++i) {
      digit_[i] = 0;
      place_ -= static_cast<Zor32u>(blockOf(engine_.stage[i]));
      if (i + 1 == engine_.stages) return;
      ++digit_[i + 1];
      place_ += static_cast<Zor32u>(engine_.stage[i + 1].rest);
    }
  }

  const Engine<T>& engine_;
  Zor32u place_ = 0;
  Zor32s digit_[Factors::capacity] = {};
};

// Places come from the table of a chain of one block; those of more are counted some at a time.
template <class T, class Transform, class Source>
ZORS_INLINE void forLeaves(const Engine<T>& engine, Source src, T* to, Transform transform) {
  const auto leaves = static_cast<std::size_t>(engine.leaves);
  LeafPlaces<T> counter(engine);
  Zor32u counted[128];
  for (std::size_t from = 0, count = leaves; from < leaves; from += count) {
    const Zor32u* places = engine.places;
    if (places == nullptr) {
      count = std::min(std::size(counted), leaves - from);
      counter.fill(counted, count);
      places = counted;
    }
    overColumnsApart<T>(count, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
      T* place[n];
      for (std::size_t i = 0; i < n; ++i) place[i] = to + 2 * std::size_t{places[k + i]};
      transform.template operator()<n>(
          [&](int q)
              ZORS_INLINE_LAMBDA { return src.template load<n>(from + k + leaves * static_cast<std::size_t>(q)); },
          place);
    });
  }
}
template <int leaf, class T, class Source> [[gnu::flatten]] void leafPass(const Engine<T>& engine, Source src, T* to) {
  forLeaves(engine, src, to, [&]<int n>(auto load, T* const(&place)[n]) ZORS_INLINE_LAMBDA {
    Pairs<T, n> x[leaf];
    simd::unrolled<leaf>([&](auto q) ZORS_INLINE_LAMBDA { x[q] = load(q); });
    butterfly<leaf>(x);
    storeTransposed(x, leaf, place);
  });
}
template <class T, class Source> [[gnu::flatten]] void genericLeafPass(const Engine<T>& engine, Source src, T* to) {
  forLeaves(engine, src, to, [&]<int n>(auto load, T* const(&place)[n]) ZORS_INLINE_LAMBDA {
    using P = Pairs<T, n>;
    P x[largestGeneric][1];
    for (int q = 0; q < engine.leaf; ++q) x[q][0] = load(q);
    genericButterfly<1>(engine.leaf, engine.leafRoots, x);
    storeTransposed(&x[0][0], engine.leaf, place);
  });
}
template <class T, class Source> void leaves(const Engine<T>& engine, Source src, T* to) {
  const auto kernel = [&]<int leaf>() { leafPass<leaf>(engine, src, to); };
  if constexpr (!requires { Source::oddAlone; })
    if (withConstant<2, 4, 6, 8, 16>(engine.leaf, kernel)) return;
  if (!withConstant<3, 5, 7, 11, 13>(engine.leaf, kernel)) genericLeafPass(engine, src, to);
}

// ---- Stages -------------------------------------------------------------------------------------

// Columns of `blocks` blocks from `from` on; out gets block after block. columns: the stage's rest, where it is known
// to be so short that a loop over it would cost more than its work.
template <int radix, int columns, class T, class Target>
[[gnu::flatten]] void stagePass(const Stage<T>& stage, const T* from, std::size_t blocks, Target out) {
  const auto rest = static_cast<std::size_t>(columns > 0 ? columns : stage.rest);
  const T* const twiddles = stage.twiddles;
  for (std::size_t at = 0; at < blocks * radix * rest; at += radix * rest) {
    const T* w = twiddles;
    overColumns<T>(rest, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
      Pairs<T, n> x[radix];
      x[0] = loadPairs<n>(from + 2 * (at + k));
      simd::unrolled<radix - 1>([&](auto i) ZORS_INLINE_LAMBDA {
        x[i + 1] = turned(loadPairs<n>(w + 2 * n * i), loadPairs<n>(from + 2 * (at + k + (i + 1) * rest)));
      });
      w += 2 * n * (radix - 1);
      butterfly<radix>(x);
      simd::unrolled<radix>([&](auto q) ZORS_INLINE_LAMBDA { out.template store<n>(at + k + q * rest, x[q]); });
    });
  }
}
template <class T, class Target>
[[gnu::flatten]] void genericStagePass(const Stage<T>& stage, const T* from, std::size_t blocks, Target out) {
  const auto rest = static_cast<std::size_t>(stage.rest), radix = static_cast<std::size_t>(stage.radix);
  for (std::size_t at = 0; at < blocks * radix * rest; at += radix * rest) {
    const T* w = stage.twiddles;
    overColumns<T>(rest, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
      Pairs<T, n> x[largestGeneric][1];
      x[0][0] = loadPairs<n>(from + 2 * (at + k));
      for (std::size_t q = 1; q < radix; ++q, w += 2 * n)
        x[q][0] = turned(loadPairs<n>(w), loadPairs<n>(from + 2 * (at + k + q * rest)));
      genericButterfly<1>(stage.radix, stage.roots, x);
      for (std::size_t q = 0; q < radix; ++q) out.template store<n>(at + k + q * rest, x[q][0]);
    });
  }
}
template <class T, class Target> void pass(const Stage<T>& stage, const T* from, std::size_t blocks, Target out) {
  const auto kernel = [&]<int radix>() {
    if constexpr (radix <= 5 && std::is_same_v<Target, WorkTarget<T>>)
      if (withConstant<2, 4, 6, 8, 16>(stage.rest,
                                       [&]<int columns>() { stagePass<radix, columns>(stage, from, blocks, out); }))
        return;
    stagePass<radix, 0>(stage, from, blocks, out);
  };
  if constexpr (!requires { Target::oddAlone; })
    if (withConstant<4>(stage.radix, kernel)) return;
  if (!withConstant<3, 5, 7, 11, 13>(stage.radix, kernel)) genericStagePass(stage, from, blocks, out);
}

// All stages from `first` to the last on one block of stage `first`, deepest first.
template <class T> void joinBlock(const Engine<T>& engine, int first, T* block) {
  if (first == engine.stages) return;
  const auto& stage = engine.stage[first];
  if (blockOf(stage) > stageBlock) {
    for (Zor32s q = 0; q < stage.radix; ++q)
      joinBlock(engine, first + 1, block + 2 * static_cast<std::size_t>(q) * static_cast<std::size_t>(stage.rest));
    return pass(stage, block, 1, WorkTarget<T>{block});
  }
  for (int i = engine.stages - 1; i >= first; --i)
    pass(engine.stage[i], block, blockOf(stage) / blockOf(engine.stage[i]), WorkTarget<T>{block});
}

// work: room for all points, dst's own memory where that is interleaved and src lies elsewhere.
template <class T, class Source, class Target>
void chainTransform(const Engine<T>& engine, Source src, Target dst, T* work) {
  leaves(engine, src, work);
  const auto& top = engine.stage[0];
  if (blockOf(top) > stageBlock) {
    for (Zor32s q = 0; q < top.radix; ++q)
      joinBlock(engine, 1, work + 2 * static_cast<std::size_t>(q) * static_cast<std::size_t>(top.rest));
  } else {
    for (int i = engine.stages - 1; i > 0; --i)
      pass(engine.stage[i], work, blockOf(top) / blockOf(engine.stage[i]), WorkTarget<T>{work});
  }
  pass(top, work, 1, dst);
}

}  // namespace zors::dft
