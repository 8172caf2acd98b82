// zorsDFTOutOrd*: transforms that leave the spectrum in the order of reversed digits, and take it so.
#include <cmath>
#include <new>

#include "dft/dft_chain.h"
#include "dft/dft_sizes.h"
#include "dft/dft_tables.h"
#include "frame/by_type.h"

namespace zors::dft {

// A plain specification serves lengths that have no chain of this kind; their spectra are in natural order.
template <Tag number, class T, class P> struct OutOfOrder {
  using Element = T;
  using Plain = P;
  static constexpr Tag kind = number;
  Tag tag;
  Zor32s len;
  Zor8u* owned;
  Zor32s scaleForward, scaleInverse;
  T scale;
  Zor32s workSize;
  P* plain;
  Zor32s passes;  // from the deepest on, with blocks of radix points, to the whole
  Stage<T> stages[Factors::capacity];

  T factor(bool inverse) const { return (inverse ? scaleInverse : scaleForward) != 0 ? scale : T(1); }
};

// The plain kind by its operations.
template <class S> struct PlainOperations;
template <> struct PlainOperations<ZorsDFTSpec_C_32fc> {
  static constexpr auto initAlloc = &zors::zorsDFTInitAlloc_C_32fc;
  static constexpr auto free = &zors::zorsDFTFree_C_32fc;
  static constexpr auto getBufSize = &zors::zorsDFTGetBufSize_C_32fc;
  static constexpr auto forward = &zors::zorsDFTFwd_CToC_32fc;
  static constexpr auto inverse = &zors::zorsDFTInv_CToC_32fc;
};
template <> struct PlainOperations<ZorsDFTSpec_C_64fc> {
  static constexpr auto initAlloc = &zors::zorsDFTInitAlloc_C_64fc;
  static constexpr auto free = &zors::zorsDFTFree_C_64fc;
  static constexpr auto getBufSize = &zors::zorsDFTGetBufSize_C_64fc;
  static constexpr auto forward = &zors::zorsDFTFwd_CToC_64fc;
  static constexpr auto inverse = &zors::zorsDFTInv_CToC_64fc;
};

}  // namespace zors::dft

struct ZorsDFTOutOrdSpec_C_32fc : zors::dft::OutOfOrder<zors::tag("CMAJ"), Zor32f, ZorsDFTSpec_C_32fc> {};
struct ZorsDFTOutOrdSpec_C_64fc : zors::dft::OutOfOrder<zors::tag("CMAK"), Zor64f, ZorsDFTSpec_C_64fc> {};

namespace zors {
namespace {

using namespace dft;

constexpr Zor32s shortest = 2000;  // shorter lengths are in natural order

// ---- Passes -------------------------------------------------------------------------------------

// A block of radix parts of rest points each: butterflies across the parts, then part q turned by W^(q k).
template <int radix, class T>
[[gnu::flatten]] void partPass(const Stage<T>& stage, const T* src, std::size_t blocks, T* dst) {
  const auto rest = static_cast<std::size_t>(stage.rest);
  for (std::size_t at = 0; at < blocks * radix * rest; at += radix * rest) {
    const T* w = stage.twiddles;
    overColumns<T>(rest, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
      Pairs<T, n> x[radix];
      simd::unrolled<radix>([&](auto q) ZORS_INLINE_LAMBDA { x[q] = loadPairs<n>(src + 2 * (at + k + q * rest)); });
      butterfly<radix>(x);
      storePairs(dst + 2 * (at + k), x[0]);
      simd::unrolled<radix - 1>([&](auto i) ZORS_INLINE_LAMBDA {
        storePairs(dst + 2 * (at + k + (i + 1) * rest), turned(loadPairs<n>(w + 2 * n * i), x[i + 1]));
      });
      w += 2 * n * (radix - 1);
    });
  }
}
template <class T>
[[gnu::flatten]] void genericPartPass(const Stage<T>& stage, const T* src, std::size_t blocks, T* dst) {
  const auto rest = static_cast<std::size_t>(stage.rest), radix = static_cast<std::size_t>(stage.radix);
  for (std::size_t at = 0; at < blocks * radix * rest; at += radix * rest) {
    const T* w = stage.twiddles;
    overColumns<T>(rest, [&]<int n>(std::size_t k) ZORS_INLINE_LAMBDA {
      Pairs<T, n> x[largestGeneric][1];
      for (std::size_t q = 0; q < radix; ++q) x[q][0] = loadPairs<n>(src + 2 * (at + k + q * rest));
      genericButterfly<1>(stage.radix, stage.roots, x);
      storePairs(dst + 2 * (at + k), x[0][0]);
      for (std::size_t q = 1; q < radix; ++q, w += 2 * n)
        storePairs(dst + 2 * (at + k + q * rest), turned(loadPairs<n>(w), x[q][0]));
    });
  }
}
// The deepest pass: blocks of radix points, which need no turns; lanes are blocks.
template <int radix, class T> [[gnu::flatten]] void unitPass(const T* src, Sign change, std::size_t blocks, T* dst) {
  const T sign = change == Sign::changed ? T(-0.0) : T(0.0);
  overColumns<T>(blocks, [&]<int n>(std::size_t b) ZORS_INLINE_LAMBDA {
    const T* from[n];
    T* to[n];
    for (std::size_t i = 0; i < n; ++i) {
      from[i] = src + 2 * radix * (b + i);
      to[i] = dst + 2 * radix * (b + i);
    }
    Pairs<T, n> x[radix];
    loadTransposed(x, radix, from);
    simd::unrolled<radix>([&](auto q) ZORS_INLINE_LAMBDA { x[q] = signsOf(x[q], both<Pairs<T, n>>(0, sign)); });
    butterfly<radix>(x);
    storeTransposed(x, radix, to);
  });
}
template <class T> void genericUnitPass(const Stage<T>& stage, const T* src, Sign change, std::size_t blocks, T* dst) {
  const InterleavedSource<T> source(src, change);
  const auto radix = static_cast<std::size_t>(stage.radix);
  for (std::size_t at = 0; at < blocks * radix; at += radix) {
    Pairs<T, 1> x[largestGeneric][1];
    for (std::size_t q = 0; q < radix; ++q) x[q][0] = source.template load<1>(at + q);
    genericButterfly<1>(stage.radix, stage.roots, x);
    for (std::size_t q = 0; q < radix; ++q) storePairs(dst + 2 * (at + q), x[q][0]);
  }
}
template <class T> void unit(const Stage<T>& stage, const T* src, Sign change, std::size_t blocks, T* dst) {
  const auto kernel = [&]<int radix>() { unitPass<radix>(src, change, blocks, dst); };
  if (!withConstant<2, 3, 4, 5, 7, 11, 13>(stage.radix, kernel)) genericUnitPass(stage, src, change, blocks, dst);
}
// The two deepest passes at once, of radix 4 over 2 or 4: the same steps on blocks that stay in registers. Inverse: on
// conjugates.
template <int radix, bool inverse, class T>
[[gnu::flatten]] void unitPairPass(const Stage<T>& wide, const T* src, std::size_t blocks, T* dst) {
  constexpr int points = 4 * radix, group = std::min(radix, fullPairs<T>);
  overColumns<T>(blocks, [&]<int n>(std::size_t b) ZORS_INLINE_LAMBDA {
    using P = Pairs<T, n>;
    const T* from[n];
    T* to[n];
    for (std::size_t i = 0; i < n; ++i) {
      from[i] = src + 2 * points * (b + i);
      to[i] = dst + 2 * points * (b + i);
    }
    P x[points];
    loadTransposed(x, points, from);
    const auto turn = [&](P v, int j, int k) ZORS_INLINE_LAMBDA {
      const T* const w = wide.twiddles + 2 * (group * (3 * (k / group) + j - 1) + k % group);
      return turned(both<P>(w[0], w[1]), v);
    };
    const auto across = [&]() ZORS_INLINE_LAMBDA {
      simd::unrolled<radix>([&](auto k) ZORS_INLINE_LAMBDA {
        P y[] = {x[k], x[k + radix], x[k + 2 * radix], x[k + 3 * radix]};
        if (inverse) simd::unrolled<3>([&](auto i) ZORS_INLINE_LAMBDA { y[i + 1] = turn(y[i + 1], i + 1, k); });
        butterfly<4>(y);
        x[k] = y[0];
        simd::unrolled<3>(
            [&](auto i) ZORS_INLINE_LAMBDA { x[k + (i + 1) * radix] = inverse ? y[i + 1] : turn(y[i + 1], i + 1, k); });
      });
    };
    const auto within = [&]() ZORS_INLINE_LAMBDA {
      simd::unrolled<4>([&](auto q) ZORS_INLINE_LAMBDA {
        P y[radix];
        simd::unrolled<radix>([&](auto k) ZORS_INLINE_LAMBDA { y[k] = x[q * radix + k]; });
        butterfly<radix>(y);
        simd::unrolled<radix>([&](auto k) ZORS_INLINE_LAMBDA { x[q * radix + k] = y[k]; });
      });
    };
    if constexpr (inverse) {
      simd::unrolled<points>([&](auto i) ZORS_INLINE_LAMBDA { x[i] = conjugate(x[i]); });
      within();
      across();
    } else {
      across();
      within();
    }
    storeTransposed(x, points, to);
  });
}
// Of so many passes at hand, the deepest that run as one.
template <class T> int passesInUnits(const Stage<T>* stages, int count) {
  return count > 1 && stages[1].radix == 4 && (stages[0].radix == 2 || stages[0].radix == 4) ? 2 : 1;
}
template <bool inverse, class T>
void units(const Stage<T>* stages, int count, const T* src, std::size_t points, T* dst) {
  const auto pair = [&]<int radix>() {
    unitPairPass<radix, inverse>(stages[1], src, points / blockOf(stages[1]), dst);
  };
  if (passesInUnits(stages, count) == 2)
    withConstant<2, 4>(stages[0].radix, pair);
  else
    unit(stages[0], src, inverse ? Sign::changed : Sign::kept, points / blockOf(stages[0]), dst);
}

template <class T> void part(const Stage<T>& stage, const T* src, std::size_t blocks, T* dst) {
  const auto kernel = [&]<int radix>() { partPass<radix>(stage, src, blocks, dst); };
  if (!withConstant<3, 4, 5, 7, 11, 13>(stage.radix, kernel)) genericPartPass(stage, src, blocks, dst);
}

// Part q of a block.
template <class T> std::size_t partAt(const Stage<T>& stage, Zor32s q) {
  return 2 * static_cast<std::size_t>(q) * static_cast<std::size_t>(stage.rest);
}

// The passes from `top` down on one block, widest first; a block that outgrows the cache goes part by part.
template <class T> void partAll(const Stage<T>* stages, int top, const T* src, T* block) {
  part(stages[top], src, 1, block);
  const std::size_t points = static_cast<std::size_t>(stages[top].rest);
  if (points <= stageBlock) {
    for (int i = top - 1; i >= passesInUnits(stages, top); --i)
      part<T>(stages[i], block, blockOf(stages[top]) / blockOf(stages[i]), block);
    return units<false, T>(stages, top, block, blockOf(stages[top]), block);
  }
  for (Zor32s q = 0; q < stages[top].radix; ++q)
    partAll<T>(stages, top - 1, block + partAt(stages[top], q), block + partAt(stages[top], q));
}
// The way back, on conjugates: the passes up to `top`, deepest first.
template <class T> void joinAll(const Stage<T>* stages, int top, const T* src, T* block) {
  const std::size_t points = blockOf(stages[top]);
  if (points > stageBlock && top > 0) {
    for (Zor32s q = 0; q < stages[top].radix; ++q)
      joinAll(stages, top - 1, src + partAt(stages[top], q), block + partAt(stages[top], q));
    return pass(stages[top], block, 1, WorkTarget<T>{block});
  }
  units<true>(stages, top + 1, src, points, block);
  for (int i = passesInUnits(stages, top + 1); i <= top; ++i)
    pass(stages[i], block, points / blockOf(stages[i]), WorkTarget<T>{block});
}

template <class S, class T> void chainForward(const S& spec, const T* src, T* dst) {
  partAll(spec.stages, spec.passes - 1, src, dst);
  if (spec.scaleForward != 0) by_type::multiplyBy(spec.scale, reinterpret_cast<ComplexOf<T>*>(dst), spec.len);
}
template <class S, class T> void chainInverse(const S& spec, const T* src, T* dst) {
  const int top = spec.passes - 1;
  const auto& last = spec.stages[top];
  for (Zor32s q = 0; q < last.radix; ++q) joinAll(spec.stages, top - 1, src + partAt(last, q), dst + partAt(last, q));
  pass(last, dst, 1, InterleavedTarget<T>(dst, spec.factor(true), Sign::changed));
}

// ---- Specifications -----------------------------------------------------------------------------

template <class S> void layPasses(Layout& block, S& spec, const Factors& factors) {
  using T = typename S::Element;
  spec.passes = factors.count;
  Zor32s rest = 1, largest = 0;
  for (int i = 0; i < factors.count; ++i) {
    auto& stage = spec.stages[i];
    stage = {factors.f[i], rest, nullptr, nullptr};
    stage.twiddles = block.take<T>(2 * static_cast<std::size_t>(stage.radix - 1) * static_cast<std::size_t>(rest));
    if (!hasKernel(stage.radix)) {
      const bool known = i > 0 && spec.stages[i - 1].radix == stage.radix;
      stage.roots = known ? spec.stages[i - 1].roots : block.take<T>(2 * static_cast<std::size_t>(stage.radix));
      largest = std::max(largest, stage.radix);
    }
    rest *= stage.radix;
  }
  spec.workSize = largest > 0 ? static_cast<Zor32s>(pairBytes<T>) * largest + 128 : 0;
}

template <class S> ZorStatus buildChain(S** specOut, Zor32s len, const Factors& factors) {
  using T = typename S::Element;
  S counted{};
  Layout counter(Scratch::alignment);
  counter.take<S>(1);
  layPasses(counter, counted, factors);
  return initAllocated(specOut, counter.size(), [&](Zor8u* memory, S** made) -> ZorStatus {
    const auto n = static_cast<std::size_t>(len);
    const Scratch roots(2 * sizeof(T) * n);
    if (!roots) return zorStatusNoMemory;
    Layout block(Scratch::alignment, memory);
    S& spec = *new (block.template take<S>(1)) S{};
    layPasses(block, spec, factors);
    fillStages(spec.stages, spec.passes, fillRoots(n, roots.template as<T>()));
    *made = &spec;
    return zorStatusOk;
  });
}
template <class S> ZorStatus buildPlain(S** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) {
  using Operations = PlainOperations<typename S::Plain>;
  typename S::Plain* plain = nullptr;
  const bool mayChain = len < shortest || isPowerOfTwo(len);
  const ZorStatus status = mayChain ? Operations::initAlloc(&plain, len, flag, hint)
                                    : initAllocConvolved(&plain, len, flag, static_cast<Zor32s>(hint));
  if (status != zorStatusOk) return status;
  const ZorStatus made = initAllocated(specOut, sizeof(S) + Scratch::alignment, [&](Zor8u* memory, S** spec) {
    *spec = new (alignUp(memory, Scratch::alignment)) S{};
    (*spec)->plain = plain;
    Operations::getBufSize(plain, &(*spec)->workSize);
    return ZorStatus{zorStatusOk};
  });
  if (made != zorStatusOk) Operations::free(plain);
  return made;
}
template <class S> ZorStatus initAlloc(S** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) {
  using T = typename S::Element;
  constexpr Zor32s longest = 0x7FFFFFF;
  return check().pointers(specOut).size(len).require(isFlag(flag), zorStatusBadFlag).then([&]() -> ZorStatus {
    if (len > longest && !isPowerOfTwo(len)) return zorStatusBadSize;
    const bool reorders = len >= shortest && !isPowerOfTwo(len);
    const Factors factors = reorders ? factorsOf(len, true) : Factors{};
    S* spec = nullptr;
    const ZorStatus status = factors.count > 1 ? buildChain(&spec, len, factors) : buildPlain(&spec, len, flag, hint);
    if (status != zorStatusOk) return status;
    spec->tag = S::kind;
    spec->len = len;
    spec->scaleForward = flag == ZOR_FFT_DIVIDE_FORWARD || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
    spec->scaleInverse = flag == ZOR_FFT_DIVIDE_INVERSE || flag == ZOR_FFT_DIVIDE_BOTH_ROOT;
    spec->scale = flag == ZOR_FFT_DIVIDE_BOTH_ROOT ? static_cast<T>(1 / std::sqrt(static_cast<double>(len)))
                                                   : 1 / static_cast<T>(len);
    *specOut = spec;
    return zorStatusOk;
  });
}
template <class S> ZorStatus release(S* given) {
  S* const spec = aligned(given);
  return check().pointers(spec).state(spec, S::kind).then([&] {
    if (spec->plain != nullptr) PlainOperations<typename S::Plain>::free(spec->plain);
    releaseOwned(spec);
  });
}
template <class S> ZorStatus getBufSize(const S* given, Zor32s* size) {
  const S* const spec = aligned(given);
  return check().pointers(spec, size).state(spec, S::kind).then([&] { *size = spec->workSize; });
}

enum Direction : bool { forward = false, inverse = true };
template <class S, class C> ZorStatus run(Direction direction, const C* src, C* dst, const S* given, Zor8u* buffer) {
  using Operations = PlainOperations<typename S::Plain>;
  const S* const spec = aligned(given);
  return check().pointers(spec).state(spec, S::kind).pointers(src, dst).then([&]() -> ZorStatus {
    if (spec->plain != nullptr)
      return direction == inverse ? Operations::inverse(src, dst, spec->plain, buffer)
                                  : Operations::forward(src, dst, spec->plain, buffer);
    const Scratch work(buffer, spec->workSize > 0 ? static_cast<std::size_t>(spec->workSize) - 64 : 0);
    if (!work) return zorStatusNoMemory;
    if (direction == inverse)
      chainInverse(*spec, &src->re, &dst->re);
    else
      chainForward(*spec, &src->re, &dst->re);
    return zorStatusOk;
  });
}

}  // namespace

// clang-format off
ZorStatus zorsDFTOutOrdInitAlloc_C_32fc(ZorsDFTOutOrdSpec_C_32fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, len, flag, hint); }
ZorStatus zorsDFTOutOrdInitAlloc_C_64fc(ZorsDFTOutOrdSpec_C_64fc** specOut, Zor32s len, Zor32s flag, ZorHintAlgorithm hint) { return initAlloc(specOut, len, flag, hint); }
ZorStatus zorsDFTOutOrdFree_C_32fc(ZorsDFTOutOrdSpec_C_32fc* spec) { return release(spec); }
ZorStatus zorsDFTOutOrdFree_C_64fc(ZorsDFTOutOrdSpec_C_64fc* spec) { return release(spec); }
ZorStatus zorsDFTOutOrdGetBufSize_C_32fc(const ZorsDFTOutOrdSpec_C_32fc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDFTOutOrdGetBufSize_C_64fc(const ZorsDFTOutOrdSpec_C_64fc* spec, Zor32s* size) { return getBufSize(spec, size); }
ZorStatus zorsDFTOutOrdFwd_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTOutOrdSpec_C_32fc* spec, Zor8u* buffer) { return run(forward, src, dst, spec, buffer); }
ZorStatus zorsDFTOutOrdFwd_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTOutOrdSpec_C_64fc* spec, Zor8u* buffer) { return run(forward, src, dst, spec, buffer); }
ZorStatus zorsDFTOutOrdInv_CToC_32fc(const Zor32fc* src, Zor32fc* dst, const ZorsDFTOutOrdSpec_C_32fc* spec, Zor8u* buffer) { return run(inverse, src, dst, spec, buffer); }
ZorStatus zorsDFTOutOrdInv_CToC_64fc(const Zor64fc* src, Zor64fc* dst, const ZorsDFTOutOrdSpec_C_64fc* spec, Zor8u* buffer) { return run(inverse, src, dst, spec, buffer); }
// clang-format on

}  // namespace zors
