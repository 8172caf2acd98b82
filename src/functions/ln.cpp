// zorsLn_*, zorsSumLn_* of floats, zorsSumLn_16s32f: natural logarithms and their sums.
#include <algorithm>
#include <bit>
#include <limits>

#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;
using Kind = LogArguments::Kind;

struct Ln {
  LogArguments arguments;
  template <class V> ZORS_INLINE V operator()(V x) { return logarithm(x, arguments); }
};
struct LnNarrowed : Ln {
  template <class V> ZORS_INLINE auto operator()(V x) { return toFloat(logarithm(x, arguments)); }
};

ZorStatus warningOf(Kind kind) {
  return kind == Kind::zero ? zorWarningLogOfZero : kind == Kind::negative ? zorWarningLogOfNegative : zorStatusOk;
}

template <class Op, class S, class D> ZorStatus logarithms(const S* src, D* dst, Zor32s len) {
  return check().pointers(src, dst).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    return warningOf(mapInOrder<mapStep<S, D>>(Op{}, len, dst, src).arguments.first);
  });
}

// The logarithms of a block are summed in binary64 lanes, and so are those of all blocks. A zero, negative or NaN
// element ends the sum with its block; the first one of the block decides.
constexpr int sumBlock = 512, sumLanes = 16;

template <class S> ZORS_INLINE auto operandOfLog(Vec<S, sumLanes> x) {
  if constexpr (std::is_same_v<S, Zor16s>)
    return toFloat(x);
  else
    return x;
}
ZORS_INLINE Vec<Zor64f, sumLanes> termsOf(Vec<Zor64f, sumLanes> y) { return y; }
ZORS_INLINE Vec<Zor64f, sumLanes> termsOf(Vec<Zor32f, sumLanes> y) { return toDouble(y); }

template <class S, class D> ZorStatus sumOfLogarithms(const S* src, Zor32s len, D* sum) {
  return check().pointers(src, sum).size(len).then([&] {
    const ExceptionsMaskedScope scope;
    LogArguments arguments{Kind::zero | Kind::negative | Kind::notANumber};
    auto lanes = splat<Vec<Zor64f, sumLanes>>(0.0);
    Zor64f rest = 0;
    for (Zor32s at = 0, end = 0; at < len && arguments.first == Kind::ordinary; at = end) {
      end = at + std::min(sumBlock, len - at);
      Zor32s i = at;
      for (; i <= end - sumLanes; i += sumLanes)
        lanes = add(lanes, termsOf(logarithm(operandOfLog<S>(load<sumLanes>(src + i)), arguments)));
      if (i < end) {
        const Lanes last(termsOf(logarithm(operandOfLog<S>(loadPart<sumLanes>(src + i, end - i)), arguments)));
        for (int k = 0; k < end - i; ++k) rest += last.lane[k];
      }
    }
    if (arguments.first == Kind::zero)
      *sum = -std::numeric_limits<D>::infinity();
    else if (arguments.first != Kind::ordinary)
      *sum = -std::numeric_limits<D>::quiet_NaN();
    else {
      const auto four = add(add(Vec<Zor64f, 4>{{lanes.r[0]}}, Vec<Zor64f, 4>{{lanes.r[1]}}),
                            add(Vec<Zor64f, 4>{{lanes.r[2]}}, Vec<Zor64f, 4>{{lanes.r[3]}}));
      *sum = static_cast<D>(sumOfLanes(four) + rest);
    }
    return warningOf(arguments.first);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsLn_32f(const Zor32f* src, Zor32f* dst, Zor32s len) { return logarithms<Ln>(src, dst, len); }
ZorStatus zorsLn_64f(const Zor64f* src, Zor64f* dst, Zor32s len) { return logarithms<Ln>(src, dst, len); }
ZorStatus zorsLn_32f_I(Zor32f* srcDst, Zor32s len) { return logarithms<Ln>(srcDst, srcDst, len); }
ZorStatus zorsLn_64f_I(Zor64f* srcDst, Zor32s len) { return logarithms<Ln>(srcDst, srcDst, len); }
ZorStatus zorsLn_64f32f(const Zor64f* src, Zor32f* dst, Zor32s len) { return logarithms<LnNarrowed>(src, dst, len); }

ZorStatus zorsSumLn_32f(const Zor32f* src, Zor32s len, Zor32f* sum) { return sumOfLogarithms(src, len, sum); }
ZorStatus zorsSumLn_64f(const Zor64f* src, Zor32s len, Zor64f* sum) { return sumOfLogarithms(src, len, sum); }
ZorStatus zorsSumLn_32f64f(const Zor32f* src, Zor32s len, Zor64f* sum) { return sumOfLogarithms(src, len, sum); }
ZorStatus zorsSumLn_16s32f(const Zor16s* src, Zor32s len, Zor32f* sum) { return sumOfLogarithms(src, len, sum); }
// clang-format on

}  // namespace zors
