// The integer kinds of specifications with their functions, and what their tests share.
#pragma once

#include "kit/contract.h"
#include "transforms/fft_kinds.h"

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

// ---- Checks
// -------------------------------------------------------------------------------------------------------------

template <class S, class A, class B>
void checks(const char* name, ZorStatus (*f)(const A*, B*, const S*, Zor32s, Zor8u*), const S* good, const S* foreign) {
  const std::vector<A> src(20);
  const std::vector<B> dst(20);
  kit::Contract(f, src.data(), const_cast<B*>(dst.data()), good, 0, nullptr)
      .template null<2>()
      .template bad<2>({foreign}, zorStatusBadContext)
      .template null<0>()
      .template null<1>()
      .untouched(dst)
      .verify(name);
}
template <class S, class A>
void checks(const char* name, ZorStatus (*f)(A*, const S*, Zor32s, Zor8u*), const S* good, const S* foreign) {
  std::vector<A> both(20);
  kit::Contract(f, both.data(), good, 0, nullptr)
      .template null<1>()
      .template bad<1>({foreign}, zorStatusBadContext)
      .template null<0>()
      .untouched(both)
      .verify(name);
}
template <class S, class A>
void checks(const char* name, ZorStatus (*f)(const A*, const A*, A*, A*, const S*, Zor32s, Zor8u*), const S* good,
            const S* foreign) {
  const std::vector<A> src(20);
  std::vector<A> dst(20), other(20);
  kit::Contract(f, src.data(), src.data(), dst.data(), other.data(), good, 0, nullptr)
      .template null<4>()
      .template bad<4>({foreign}, zorStatusBadContext)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template null<3>()
      .untouched(dst)
      .untouched(other)
      .verify(name);
}
template <class S, class A>
void checks(const char* name, ZorStatus (*f)(A*, A*, const S*, Zor32s, Zor8u*), const S* good, const S* foreign) {
  std::vector<A> dst(20), other(20);
  kit::Contract(f, dst.data(), other.data(), good, 0, nullptr)
      .template null<2>()
      .template bad<2>({foreign}, zorStatusBadContext)
      .template null<0>()
      .template null<1>()
      .untouched(dst)
      .untouched(other)
      .verify(name);
}
template <class K, class... F> void allChecks(const K& kind, F... functions) {
  typename K::Spec *good = nullptr, *foreign = nullptr;
  ASSERT_EQ(kind.initAlloc(&good, 4, 8, 0), zorStatusOk);
  ASSERT_EQ(kind.initAlloc(&foreign, 4, 8, 0), zorStatusOk);
  *reinterpret_cast<Zor32u*>(foreign) = 8;
  (checks(kind.name, functions, static_cast<const typename K::Spec*>(good),
          static_cast<const typename K::Spec*>(foreign)),
   ...);
  *reinterpret_cast<Zor32u*>(foreign) = kind.tag;
  EXPECT_EQ(kind.free(good), zorStatusOk);
  EXPECT_EQ(kind.free(foreign), zorStatusOk);
}

}  // namespace kinds
