// The integer kinds of specifications with their functions, and what their tests share.
#pragma once

#include "fft/fft_kinds.h"
#include "zors/types.h"

namespace kinds {

// x / 2^scaleFactor to nearest, ties to even, saturated; the division by a power of two rounds in T.
template <class D, class T> D rounded(T x, int scaleFactor) {
  const T value = std::nearbyint(x * std::ldexp(T(1), -scaleFactor));
  if (value >= static_cast<T>(std::numeric_limits<D>::max())) return std::numeric_limits<D>::max();
  if (value <= static_cast<T>(std::numeric_limits<D>::min())) return std::numeric_limits<D>::min();
  return static_cast<D>(value);
}

template <class S> struct IntegerKind {
  using Spec = S;
  const char* name;
  int largestOrder;
  Zor32u tag;
  ZorStatus (*getSize)(Zor32s, Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*);
  ZorStatus (*init)(S**, Zor32s, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*);
  ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm);
  ZorStatus (*free)(S*);
  ZorStatus (*getBufSize)(const S*, Zor32s*);
  ZorStatus (*innerSize)(Zor32s, Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*);
  long (*head)(long n);
};
// In memory of exactly the reported sizes.
template <class K> struct BuiltInteger {
  BuiltInteger(const K& kind, int order, int flag, std::size_t off = 0, int hint = 0) {
    Zor32s specSize = 0, initSize = 0, workSize = 0;
    EXPECT_EQ(kind.getSize(order, flag, hint, &specSize, &initSize, &workSize), zorStatusOk);
    block.emplace(static_cast<std::size_t>(specSize), kit::Edge::end, off);
    const kit::Guarded<Zor8u> init(static_cast<std::size_t>(initSize), kit::Edge::end, off);
    EXPECT_EQ(kind.init(&spec, order, flag, hint, block->data(), initSize == 0 ? nullptr : init.data()), zorStatusOk);
    work.emplace(static_cast<std::size_t>(workSize), kit::Edge::end, off);
    Zor32s reported = 0;
    EXPECT_EQ(kind.getBufSize(spec, &reported), zorStatusOk);
    EXPECT_EQ(reported, workSize) << kind.name;
  }
  bool intact() const { return block->intact() && work->intact(); }
  std::optional<kit::Guarded<Zor8u>> block, work;
  typename K::Spec* spec = nullptr;
};

template <class D, class T> std::vector<D> rounded(const std::vector<T>& x, int scaleFactor) {
  std::vector<D> out;
  for (T value : x) out.push_back(rounded<D>(value, scaleFactor));
  return out;
}

// ---- Specifications -----------------------------------------------------------------------------

template <class K> void specificationChecksInOrder(const K& kind) {
  using Spec = typename K::Spec;
  Zor32s a = 7, b = 7, c = 7;
  EXPECT_EQ(kind.getSize(31, 0, 0, nullptr, &b, &c), zorStatusBadOrder) << kind.name;
  EXPECT_EQ(kind.getSize(-1, 0, 0, &a, &b, &c), zorStatusBadOrder) << kind.name;
  EXPECT_EQ(kind.getSize(30, 0, 0, nullptr, &b, &c), zorStatusNullPointer) << kind.name;
  EXPECT_EQ(kind.getSize(30, 0, 0, &a, nullptr, &c), zorStatusNullPointer) << kind.name;
  EXPECT_EQ(kind.getSize(30, 0, 0, &a, &b, nullptr), zorStatusNullPointer) << kind.name;
  for (int order : {0, 2, 30})
    for (int flag : {0, 3}) EXPECT_EQ(kind.getSize(order, flag, 0, &a, &b, &c), zorStatusBadFlag) << kind.name;
  EXPECT_EQ(kind.getSize(kind.largestOrder + 1, 8, 0, &a, &b, &c), zorStatusBadOrder) << kind.name;
  EXPECT_TRUE(a == 7 && b == 7 && c == 7) << kind.name;
  alignas(64) Zor8u block[8192];
  Spec *const untouched = reinterpret_cast<Spec*>(block + 8), *out = untouched;
  const auto tag = [&] { return *reinterpret_cast<Zor32u*>(block); };
  std::memset(block, 0xAA, sizeof block);
  EXPECT_EQ(kind.init(nullptr, 31, 0, 0, nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(kind.init(&out, 31, 0, 0, nullptr, nullptr), zorStatusBadOrder);
  EXPECT_EQ(kind.init(&out, 30, 0, 0, nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(tag(), 0xAAAAAAAAu);
  for (int order : {2, 30}) EXPECT_EQ(kind.init(&out, order, 0, 0, block, nullptr), zorStatusBadFlag);
  EXPECT_EQ(tag(), 0u);
  EXPECT_EQ(kind.init(&out, 30, 8, 0, block, nullptr), zorStatusBadOrder);  // of the float kind
  EXPECT_EQ(kind.init(&out, 11, 8, 0, block, nullptr), zorStatusNullPointer);
  EXPECT_EQ(tag(), 0u);
  EXPECT_EQ(out, untouched) << kind.name;
  EXPECT_EQ(kind.init(&out, 4, 8, 5, block + 1, nullptr), zorStatusOk);
  EXPECT_NE(reinterpret_cast<Zor8u*>(out), block + 1);
  EXPECT_EQ(*reinterpret_cast<Zor32u*>(out), kind.tag) << kind.name;
  EXPECT_EQ(kind.getBufSize(nullptr, &a), zorStatusNullPointer);
  EXPECT_EQ(kind.getBufSize(out, nullptr), zorStatusNullPointer);
  EXPECT_EQ(kind.free(nullptr), zorStatusNullPointer);
  EXPECT_EQ(kind.free(out), zorStatusOk);
  EXPECT_EQ(kind.free(out), zorStatusBadContext) << kind.name;
  EXPECT_EQ(kind.getBufSize(out, &a), zorStatusBadContext) << kind.name;
  EXPECT_EQ(kind.initAlloc(nullptr, 4, 8, 0), zorStatusNullPointer);
  EXPECT_EQ(kind.initAlloc(&out, kind.largestOrder + 1, 8, 0), zorStatusBadOrder);
}

// ---- Transforms ---------------------------------------------------------------------------------

inline constexpr int orders[] = {0, 1, 2, 3, 4, 5, 7, 8, 11, 12};

inline std::string described(int order, int flag, int hint, int scaleFactor) {
  return "order " + std::to_string(order) + " flag " + std::to_string(flag) + " hint " + std::to_string(hint) +
         " scale " + std::to_string(scaleFactor);
}

// The complex transforms of an element type: forward and inverse of each form.
template <class Z, class Spec, class SplitSpec> struct ComplexForms {
  using T = decltype(Z::re);
  IntegerKind<Spec> kind;
  IntegerKind<SplitSpec> splitKind;
  ZorStatus (*outOfPlace[2])(const Z*, Z*, const Spec*, Zor32s, Zor8u*);
  ZorStatus (*inPlace[2])(Z*, const Spec*, Zor32s, Zor8u*);
  ZorStatus (*split[2])(const T*, const T*, T*, T*, const SplitSpec*, Zor32s, Zor8u*);
  ZorStatus (*splitInPlace[2])(T*, T*, const SplitSpec*, Zor32s, Zor8u*);

  // All forms turn x into wanted, out of place with the caller's buffer and in place with one of their own.
  void turn(const std::vector<Z>& x, const std::vector<Z>& wanted, int order, int flag, int hint, bool inverse,
            int scaleFactor) const {
    const std::string what = described(order, flag, hint, scaleFactor);
    const std::size_t n = x.size();
    std::vector<T> re, im, wantedRe, wantedIm;
    for (Z z : x) re.push_back(z.re), im.push_back(z.im);
    for (Z z : wanted) wantedRe.push_back(z.re), wantedIm.push_back(z.im);
    const BuiltInteger built(kind, order, flag, 12, hint);
    const BuiltInteger splitBuilt(splitKind, order, flag, 4, hint);
    const kit::Guarded<Z> src(x, kit::Edge::end), dst(n, kit::Edge::begin);
    ASSERT_EQ(outOfPlace[inverse](src.data(), dst.data(), built.spec, scaleFactor, built.work->data()), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Z>(dst.span(), wanted), "") << what;
    ASSERT_EQ(inPlace[inverse](src.data(), built.spec, scaleFactor, nullptr), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<Z>(src.span(), wanted), "") << what << " in place";
    const kit::Guarded<T> srcRe(re, kit::Edge::end), srcIm(im, kit::Edge::end), dstRe(n, kit::Edge::end),
        dstIm(n, kit::Edge::end);
    ASSERT_EQ(split[inverse](srcRe.data(), srcIm.data(), dstRe.data(), dstIm.data(), splitBuilt.spec, scaleFactor,
                             splitBuilt.work->data()),
              zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(dstRe.span(), wantedRe), "") << what << " split";
    ASSERT_EQ(kit::firstDifference<T>(dstIm.span(), wantedIm), "") << what << " split";
    ASSERT_EQ(splitInPlace[inverse](srcRe.data(), srcIm.data(), splitBuilt.spec, scaleFactor, nullptr), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(srcRe.span(), wantedRe), "") << what << " split in place";
    ASSERT_EQ(kit::firstDifference<T>(srcIm.span(), wantedIm), "") << what << " split in place";
    ASSERT_TRUE(built.intact() && splitBuilt.intact() && src.intact() && dst.intact() && srcRe.intact() &&
                srcIm.intact() && dstRe.intact() && dstIm.intact())
        << what << ": wrote outside";
  }
};

// The real transforms of an element type: forward and inverse of the formats Perm, Pack and CCS.
template <class T, class Spec> struct RealForms {
  IntegerKind<Spec> kind;
  ZorStatus (*outOfPlace[6])(const T*, T*, const Spec*, Zor32s, Zor8u*);
  ZorStatus (*inPlace[6])(T*, const Spec*, Zor32s, Zor8u*);

  // All forms turn x into spectrum, and x, taken as a spectrum, into signal.
  void turn(const std::vector<T>& x, const std::vector<T>& spectrum, const std::vector<T>& signal, int order, int flag,
            int hint, int scaleFactor) const {
    const BuiltInteger built(kind, order, flag, 4, hint);
    for (Format format : {perm, pack, ccs})
      for (bool inverse : {false, true}) {
        auto input = inverse ? packed(x, format) : x;
        if (inverse && format == ccs) input[1] = 99;  // the places of zeros are not looked at
        const auto wanted = inverse ? signal : packed(spectrum, format);
        const std::string what = described(order, flag, hint, scaleFactor) + " format " + std::to_string(format) +
                                 (inverse ? " inverse" : "");
        const auto at = 2 * format + inverse;
        const kit::Guarded<T> src(input, kit::Edge::end), dst(wanted.size(), kit::Edge::end),
            both(std::max(input.size(), wanted.size()), kit::Edge::begin);
        ASSERT_EQ(outOfPlace[at](src.data(), dst.data(), built.spec, scaleFactor, built.work->data()), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(dst.span(), wanted), "") << what;
        std::copy(input.begin(), input.end(), both.data());
        ASSERT_EQ(inPlace[at](both.data(), built.spec, scaleFactor, nullptr), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(both.span().first(wanted.size()), wanted), "") << what << " in place";
        ASSERT_TRUE(src.intact() && dst.intact() && both.intact() && built.intact()) << what << ": wrote outside";
      }
  }
};

}  // namespace kinds
