// zorsUpdateLinear_16s32s_I, zorsUpdatePower_16s32s_I: s = alpha * s + (1 - alpha) * x over a vector.
#include <algorithm>
#include <cmath>
#include <limits>

#include "exports/functions.h"
#include "frame/elementwise.h"

namespace zors {
namespace {

using namespace simd;

struct Linear {
  static constexpr int mostShift = 15;
  static constexpr Zor64f greatest = 0x1p15;
  template <class V> ZORS_INLINE static V of(V x) { return x; }
};
struct Power {
  static constexpr int mostShift = 31;
  static constexpr Zor64f greatest = 0x1p30;
  template <class V> ZORS_INLINE static V of(V x) { return mul(x, x); }
};

// Eight samples in front of the state: s = alpha^8 s + sum of (1 - alpha) alpha^(7 - k) x[k].
constexpr int group = 8;
template <class F> ZORS_INLINE auto toType(Vec<Zor32s, group> x) {
  if constexpr (sizeof(F) == 4)
    return toFloat(x);
  else
    return toDouble(x);
}
ZORS_INLINE Zor32f sum(Vec<Zor32f, group> x) { return sumOfLanes(x); }
ZORS_INLINE Zor64f sum(Vec<Zor64f, group> x) {
  return sumOfLanes(add(Vec<Zor64f, 4>{{x.r[0]}}, Vec<Zor64f, 4>{{x.r[1]}}));
}

// The state after all samples. Samples are taken in groups where no term of a group's sum is rounded, one by one
// otherwise: a group that rounds would lose states that do not grow, as s = x for any alpha.
template <class Form, class F>
[[gnu::flatten]] F average(const Zor16s* src, std::ptrdiff_t len, F state, int shift, Zor16s alpha) {
  const F rest = F(1 - alpha);
  std::ptrdiff_t i = 0;
  F weight[group], power = 1;
  Zor64f terms = 0;
  for (int k = group - 1; k >= 0; --k, power *= alpha) {
    weight[k] = rest * power;
    terms += std::fabs(Zor64f(weight[k])) * std::ldexp(Form::greatest, -shift);
  }
  if (terms <= std::ldexp(1.0, std::numeric_limits<F>::digits)) {
    const auto weights = load<group>(weight);
    for (; i + group <= len; i += group) {
      const Vec<Zor32s, group> x{{_mm256_cvtepi16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i)))}};
      state = std::fma(power, state, sum(mul(toType<F>(shiftRight(Form::of(x), shift)), weights)));
    }
  }
  for (; i < len; ++i) {
    const int x = src[i], sample = (std::is_same_v<Form, Power> ? x * x : x) >> shift;
    state = std::fma(F(alpha), state, rest * F(sample));
  }
  return state;
}

// To the nearest integer, ties to even, in every direction of the control word.
Zor32s rounded(Zor64f state, Zor64f greatest) {
  const __m128d limited = _mm_set_sd(std::clamp(state, -2147483648.0, greatest));
  return _mm_cvttsd_si32(_mm_round_sd(limited, limited, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

template <class Form>
ZorStatus update(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha, bool single) {
  return check().pointers(src, srcDst).size(len).then([&] {
    const int count = std::clamp(shift, 0, Form::mostShift);
    if (single)
      *srcDst = rounded(average<Form>(src, len, static_cast<Zor32f>(*srcDst), count, alpha), 2147483520.0);
    else
      *srcDst = rounded(average<Form>(src, len, static_cast<Zor64f>(*srcDst), count, alpha), 2147483647.0);
  });
}

}  // namespace

ZorStatus zorsUpdateLinear_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                    ZorHintAlgorithm hint) {
  return update<Linear>(src, len, srcDst, shift, alpha, hint == zorAlgHintFast && alpha >= -6 && alpha <= 8);
}
ZorStatus zorsUpdatePower_16s32s_I(const Zor16s* src, Zor32s len, Zor32s* srcDst, Zor32s shift, Zor16s alpha,
                                   ZorHintAlgorithm hint) {
  return update<Power>(src, len, srcDst, shift, alpha, hint == zorAlgHintFast);
}

}  // namespace zors
