// Plain loops of the scaled families, as a user would write them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <type_traits>

#include "kit/bench.h"

namespace bench {

// t / 2^scale to nearest, ties to even, saturated to D.
template <class D, class W> inline D scaled(W t, int scale) {
  if (scale > 0)
    t = (t + (W{1} << (scale - 1)) - 1 + ((t >> scale) & 1)) >> scale;
  else if (scale < 0)
    t = t * (W{1} << -scale);
  return D(std::clamp<W>(t, std::numeric_limits<D>::min(), std::numeric_limits<D>::max()));
}
// d[i] = op(a[i], b[i]) scaled, computed in W.
template <class W, class D, class A, class B, class Op>
[[gnu::noinline]] void scaledLoop(const A* a, const B* b, D* d, int len, int scale, Op op) {
  if (scale == 0)
    for (int i = 0; i < len; ++i) d[i] = scaled<D>(op(W(a[i]), W(b[i])), 0);
  else if (scale > 0)
    for (int i = 0; i < len; ++i) d[i] = scaled<D>(op(W(a[i]), W(b[i])), scale);
  else
    for (int i = 0; i < len; ++i) d[i] = scaled<D>(op(W(a[i]), W(b[i])), scale);
}

inline constexpr int benchedScales[] = {0, 1, 7, -2};

inline std::string atScale(const std::string& name, int scale) {
  return std::string(name).append(" scale ").append(std::to_string(scale));
}

// A scaled member beside its loop in W: at 1,000 elements for every scale, at all sizes for scale 0.
template <class W, class D, class A, class B, class F, class Op> void scaledRows(const char* name, F f, Op op) {
  for (int scale : benchedScales)
    for (long size : passSizes) {
      if (size != 1000 && scale != 0) continue;
      const int len = int(size);
      auto* a = array<A>(size);
      auto* b = array<B>(size);
      auto* d = array<D>(size);
      workload(atScale(name, scale), size)
          .zors([=] { f(a, b, d, len, scale); })
          .peer("loop", [=] { scaledLoop<W>(a, b, d, len, scale, op); })
          .bound(streams(sizeof(A) + sizeof(B), sizeof(D)));
    }
}
// With a constant of 3.
template <class W, class T, class F, class Op> void scaledRowsWithConstant(const char* name, F f, Op op) {
  for (int scale : benchedScales) {
    constexpr long size = 1000;
    auto* a = array<T>(size);
    auto* d = array<T>(size);
    workload(atScale(name, scale), size)
        .zors([=] { f(a, T(3), d, int(size), scale); })
        .peer("loop", [=] { scaledLoop<W>(a, a, d, int(size), scale, [=](W x, W) { return op(x, W(3)); }); })
        .bound(streams(sizeof(T), sizeof(T)));
  }
}
// A member without peer, at all sizes or at 1,000 elements.
template <class D, class A, class B, class F> void binaryRow(const std::string& name, F f, long size) {
  auto* a = array<A>(size);
  auto* b = array<B>(size);
  auto* d = array<D>(size);
  workload(name, size).zors([=] { f(a, b, d, int(size)); }).bound(streams(sizeof(A) + sizeof(B), sizeof(D)));
}

}  // namespace bench
