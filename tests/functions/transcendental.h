// What the tests of the transcendental families share: calls with a status foretold from the source.
#pragma once

#include <functional>
#include <span>

#include "kit/elementwise.h"
#include "zors/types.h"

namespace transcendental {

// For sweeps, which want zorStatusOk: f checked against the status that `foretell` derives from its source.
template <class S, class D, class Foretell, class... Rest>
auto withStatus(Foretell foretell, ZorStatus (*f)(const S*, D*, Zor32s, Rest...), std::type_identity_t<Rest>... rest) {
  return [=](const S* src, D* dst, Zor32s len) {
    const ZorStatus wanted = foretell(std::span<const S>(src, static_cast<std::size_t>(len)));
    return f(src, dst, len, rest...) == wanted ? zorStatusOk : zorStatusBadArgument;
  };
}
template <class T, class Foretell, class... Rest>
auto withStatusInPlace(Foretell foretell, ZorStatus (*f)(T*, Zor32s, Rest...), std::type_identity_t<Rest>... rest) {
  return [=](T* srcDst, Zor32s len) {
    const ZorStatus wanted = foretell(std::span<const T>(srcDst, static_cast<std::size_t>(len)));
    return f(srcDst, len, rest...) == wanted ? zorStatusOk : zorStatusBadArgument;
  };
}

inline constexpr auto noWarning = [](const auto&) { return zorStatusOk; };
inline constexpr auto negativeRoot = [](const auto& src) {
  for (auto x : src)
    if (x < 0) return zorWarningSqrtOfNegative;
  return zorStatusOk;
};
inline constexpr auto firstBadLogarithm = [](const auto& src) {
  for (auto x : src) {
    if (x == 0) return zorWarningLogOfZero;
    if (x < 0) return zorWarningLogOfNegative;
  }
  return zorStatusOk;
};

// The result of one element alone, held to `most` ulp of the exact value: a model for functions whose last bit is free,
// so that a sweep shows that neither place nor neighbours change a result.
template <class S, class D, class Exact>
std::function<D(S)> alone(ZorStatus (*f)(const S*, D*, Zor32s), Exact exact, double most) {
  return [=](S x) {
    D y;
    f(&x, &y, 1);
    EXPECT_LE(kit::ulps(y, exact(static_cast<long double>(x))), most) << kit::text(x) << " gives " << kit::text(y);
    return y;
  };
}

// Null pointers, then the length: for f(src, dst, len, rest...) and f(srcDst, len, rest...).
template <class S, class D, class... Rest>
void checksPointersThenLength(const char* name, ZorStatus (*f)(const S*, D*, Zor32s, Rest...),
                              std::type_identity_t<Rest>... rest) {
  const std::vector<S> src(8, S{});
  std::vector<D> dst(8, D{});
  kit::Contract(f, src.data(), dst.data(), 8, rest...)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class T, class... Rest>
void checksPointerThenLength(const char* name, ZorStatus (*f)(T*, Zor32s, Rest...),
                             std::type_identity_t<Rest>... rest) {
  std::vector<T> srcDst(8, T{});
  kit::Contract(f, srcDst.data(), 8, rest...)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(srcDst)
      .verify(name);
}

// All exceptions unmasked for a scope: one that a call lets through ends the test program.
class Unmasked {
 public:
  Unmasked() : saved_(_mm_getcsr()) { _mm_setcsr(saved_ & ~unsigned{_MM_MASK_MASK | _MM_EXCEPT_MASK}); }
  ~Unmasked() { _mm_setcsr(saved_); }
  Unmasked(const Unmasked&) = delete;
  Unmasked& operator=(const Unmasked&) = delete;

 private:
  unsigned saved_;
};

}  // namespace transcendental
