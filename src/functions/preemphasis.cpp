// zorsPreemphasize_*: y[n] = x[n] - val * x[n - 1].
#include "exports/functions.h"
#include "frame/convert_round.h"

namespace zors {
namespace {

using namespace simd;

// In place from the end, so that each step finds the elements before it unchanged; the first vector is computed before
// all, with 0 before element 0. kernel(x, previous).
template <class T, class Kernel> [[gnu::flatten]] void fromTheEnd(T* srcDst, std::ptrdiff_t len, Kernel kernel) {
  constexpr int L = lanesOf<T>;
  if (len < L) {
    const auto x = loadPart<L>(srcDst, int(len));
    return storePart(srcDst, kernel(x, movedUp(x)), int(len));
  }
  const auto first = load<L>(srcDst), begin = kernel(first, movedUp(first));
  for (std::ptrdiff_t i = len - L; i > 0; i -= L)
    store(srcDst + i, kernel(load<L>(srcDst + i), load<L>(srcDst + i - 1)));
  store(srcDst, begin);
}

}  // namespace

ZorStatus zorsPreemphasize_32f(Zor32f* srcDst, Zor32s len, Zor32f val) {
  return check().pointers(srcDst).size(len).then([&] {
    fromTheEnd(srcDst, len,
               [=](auto x, auto previous) ZORS_INLINE_LAMBDA { return sub(x, mul(previous, same(previous, val))); });
  });
}

ZorStatus zorsPreemphasize_16s(Zor16s* srcDst, Zor32s len, Zor32f val) {
  return check().pointers(srcDst).size(len).then([&] {
    const RoundingScope nearest(RoundingScope::nearest);
    fromTheEnd(srcDst, len, [=](auto x, auto previous) ZORS_INLINE_LAMBDA {
      const auto before = toFloat(previous);
      return to16s<Rounding::nearestEven>(sub(toFloat(x), mul(before, same(before, val))));
    });
  });
}

}  // namespace zors
