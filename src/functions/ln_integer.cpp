// zorsLn_* of integers, zors10Log10_*: scaled logarithms. Zero and negative elements give the lowest value of the
// destination, at every scale, and the first of them decides the warning.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "exports/functions.h"
#include "frame/elementary.h"
#include "frame/elementwise.h"
#include "frame/rounding.h"

namespace zors {
namespace {

using namespace simd;

// ---- Scales from 0 on: the logarithm rounded to an integer k, by comparison with the boundaries of k

// last[k]: the greatest element whose logarithm rounds to k, for the logarithm with e^(k ratio) its inverse.
template <int count> struct Levels {
  Zor32s last[count];
  Zor32f perOctave;  // logarithm of 2
};
// The boundary of k is the integer ceiling of the inverse of k - 1/2; root is the inverse of 1/2, step that of 1.
template <int count> consteval Levels<count> makeLevels(long double root, long double step, Zor32f perOctave) {
  Levels<count> levels{{}, perOctave};
  long double boundary = root;
  for (Zor32s& last : levels.last) {
    last = boundary >= 2147483647 ? INT32_MAX : static_cast<Zor32s>(boundary);
    boundary *= step;
  }
  return levels;
}

struct NaturalLog {
  // sqrt(e), e, ln 2; k runs to 21.
  static constexpr auto levels =
      makeLevels<22>(1.648721270700128146848650787814163572L, 2.718281828459045235360287471352662498L, 0.69314718f);
  template <class V> ZORS_INLINE static V fromNatural(V y) { return y; }
};
struct Decibels {
  // 10^(1/20), 10^(1/10), 10 lg 2; k runs to 93.
  static constexpr auto levels =
      makeLevels<94>(1.122018454301963435591038946477905736L, 1.258925411794167210423954106395800606L, 3.0103f);
  template <class V> ZORS_INLINE static V fromNatural(V y) { return mul(y, same(y, 4.3429446f)); }
};

// k for elements from 1 on. The bits of a float, taken as an integer, are a logarithm to base 2 that is low by at most
// 0.0861: the k that it gives is right or one too low.
template <class Log, int L> ZORS_INLINE Vec<Zor32s, L> roundedLog(Vec<Zor32s, L> x) {
  const auto bits = toFloat(as<Zor32s>(toFloat(x)));
  constexpr Zor32f perOctave = Log::levels.perOctave, slack = 0.001f;
  const auto estimate = fma(bits, same(bits, perOctave * 0x1p-23f), same(bits, 0.5f - slack - 127 * perOctave));
  const auto k = toIntegerTowardZero(estimate);
  const auto last = build<Vec<Zor32s, L>>(
      [&](auto i) ZORS_INLINE_LAMBDA { return _mm256_i32gather_epi32(Log::levels.last, k.r[i], 4); });
  return sub(k, above(x, last));
}

// ---- Scales below 0: the logarithm in binary32 --------------------------------------------------

// x = m 2^e with m in [sqrt(1/2), sqrt(2)), s = (m - 1) / (m + 1): e ln 2 + s (2 + s^2 (...)).
template <int L> ZORS_INLINE Vec<Zor32f, L> naturalLog(Vec<Zor32s, L> x) {
  static constexpr Zor32f c[] = {2.0f, 0.6666666269302368f, 0.400005966424942f, 0.2852538228034973f,
                                 0.23762455582618713f};
  const auto lowest = same(x, 0x3F3504F3);
  const auto above = sub(as<Zor32s>(toFloat(x)), lowest);
  const auto e = toFloat(shiftRight(above, 23));
  const auto m = as<Zor32f>(add(both(above, same(above, 0x7FFFFF)), lowest)), one = same(m, 1.0f);
  const auto s = div(sub(m, one), add(m, one));
  return fma(e, same(e, 0.6931471824645996f), mul(s, horner(mul(s, s), c)));
}

// ---- Both ---------------------------------------------------------------------------------------

template <int L> ZORS_INLINE Vec<Zor32s, L> in32(Vec<Zor32s, L> x) { return x; }
template <int L> ZORS_INLINE Vec<Zor32s, L> in32(Vec<Zor16s, L> x) { return extend<Zor32s>(x); }

// log(x) for elements from 1 on, in 32 bits.
template <class D, class Log> struct Kernel {
  Log log;
  ZorStatus warning = zorStatusOk;

  template <class V> ZORS_INLINE auto operator()(V narrow) {
    const auto x = in32(narrow), one = same(x, 1), bad = above(one, x);
    if (any(bad)) [[unlikely]]
      note(x);
    const auto y = select(bad, log(max(x, one)), same(x, INT32_MIN));
    if constexpr (std::is_same_v<D, Zor32s>)
      return y;
    else
      return saturate<D>(y);
  }

 private:
  template <class V> void note(V x) {
    if (warning != zorStatusOk) return;
    for (const Zor32s element : Lanes<V>(x).lane)
      if (element <= 0) {
        warning = element == 0 ? zorWarningLogOfZero : zorWarningLogOfNegative;
        return;
      }
  }
};
template <class D, class Log, class S> ZorStatus run(Log log, const S* src, D* dst, Zor32s len) {
  return mapInOrder<mapStep<S, D>>(Kernel<D, Log>{log}, len, dst, src).warning;
}

template <class Log, class S, class D> ZorStatus logarithms(const S* src, D* dst, Zor32s len, Zor32s scaleFactor) {
  return check().pointers(src, dst).size(len).then([&] {
    const RoundingScope scope(RoundingScope::nearest, _MM_MASK_MASK);
    if (scaleFactor >= 0) {
      const int shift = scaleFactor & 31;
      return run([=](auto x) ZORS_INLINE_LAMBDA { return shiftRight(roundedLog<Log>(x), shift); }, src, dst, len);
    }
    const Zor32f factor = std::ldexp(1.0f, -std::max(scaleFactor, -127));  // 0 stays 0, ln 2 and up saturate
    return run(
        [=](auto x) ZORS_INLINE_LAMBDA {
          const auto y = Log::fromNatural(naturalLog(x));
          return toIntegerCurrent(min(mul(y, same(y, factor)), same(y, 2147483520.0f)));
        },
        src, dst, len);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsLn_16s_Sfs(const Zor16s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return logarithms<NaturalLog>(src, dst, len, scaleFactor); }
ZorStatus zorsLn_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return logarithms<NaturalLog>(src, dst, len, scaleFactor); }
ZorStatus zorsLn_32s16s_Sfs(const Zor32s* src, Zor16s* dst, Zor32s len, Zor32s scaleFactor) { return logarithms<NaturalLog>(src, dst, len, scaleFactor); }
ZorStatus zors10Log10_32s_Sfs(const Zor32s* src, Zor32s* dst, Zor32s len, Zor32s scaleFactor) { return logarithms<Decibels>(src, dst, len, scaleFactor); }
ZorStatus zorsLn_16s_ISfs(Zor16s* srcDst, Zor32s len, Zor32s scaleFactor) { return logarithms<NaturalLog>(srcDst, srcDst, len, scaleFactor); }
ZorStatus zorsLn_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return logarithms<NaturalLog>(srcDst, srcDst, len, scaleFactor); }
ZorStatus zors10Log10_32s_ISfs(Zor32s* srcDst, Zor32s len, Zor32s scaleFactor) { return logarithms<Decibels>(srcDst, srcDst, len, scaleFactor); }
// clang-format on

}  // namespace zors
