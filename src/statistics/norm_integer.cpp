// zorsNorm_*, zorsNormDiff_* of 16-bit integers: exact, then converted to a float or scaled. Scaling down truncates.
#include <bit>
#include <cmath>

#include "exports/statistics.h"
#include "frame/check.h"
#include "frame/sums/exact_sums.h"
#include "frame/sums/scaled_results.h"
#include "statistics/extremes.h"

namespace zors {
namespace {

using simd::Vec;
using Row = Vec<Zor16s, 16>;

// |a - b|, up to 65,535.
ZORS_INLINE Vec<Zor16u, 16> distance(Row a, Row b) { return simd::as<Zor16u>(sub(max(a, b), min(a, b))); }
// |a - b| - 32768, signed. All lanes of the rest count, so that a total takes back what it took from each.
ZORS_INLINE Row centred(Row a, Row b) {
  return simd::as<Zor16s>(differing(distance(a, b), same(Vec<Zor16u, 16>{}, 0x8000)));
}
Zor64s lanesOfRows(Zor32s len) { return (Zor64s{len} + 15) / 16 * 16; }

struct Inf {
  static Zor64s of(Zor32s len, const Zor16s* src) {
    const auto [low, high] = extremes::values<extremes::AsIs, extremes::Min, extremes::Max>(src, len);
    return std::max(-Zor64s{low}, Zor64s{high});
  }
  static Zor64s of(Zor32s len, const Zor16s* src1, const Zor16s* src2) {
    Vec<Zor16u, 16> best{};
    rows<16>([&](Row a, Row b) ZORS_INLINE_LAMBDA { best = max(best, distance(a, b)); }, len, src1, src2);
    return extremes::foldLanes<Zor16u>(best, [](auto next, auto sofar) ZORS_INLINE_LAMBDA { return max(next, sofar); });
  }
};
struct L1 {
  static Zor64s of(Zor32s len, const Zor16s* src) {
    exact::BlockSum sum;
    exact::blocks<16>(
        [&](Row x) ZORS_INLINE_LAMBDA { sum.add(_mm256_madd_epi16(x.r[0], _mm256_sign_epi16(exact::ones(), x.r[0]))); },
        [&] { sum.endBlock(); }, len, src);
    return sum.total();
  }
  static Zor64s of(Zor32s len, const Zor16s* src1, const Zor16s* src2) {
    exact::BlockSum sum;
    exact::blocks<16>([&](Row a, Row b)
                          ZORS_INLINE_LAMBDA { sum.add(_mm256_madd_epi16(centred(a, b).r[0], exact::ones())); },
                      [&] { sum.endBlock(); }, len, src1, src2);
    return sum.total() + 32768 * lanesOfRows(len);
  }
};
struct L2Sqr {
  static Zor64s of(Zor32s len, const Zor16s* src) {
    exact::WideSum sum;
    rows<16>([&](Row x) ZORS_INLINE_LAMBDA { sum.add(_mm256_madd_epi16(x.r[0], x.r[0])); }, len, src);
    return sum.total();
  }
  static Zor64s of(Zor32s len, const Zor16s* src1, const Zor16s* src2) {  // d^2 = c^2 + 2^16 c + 2^30 for d = c + 2^15
    exact::WideSum squares;
    exact::BlockSum sum;
    exact::blocks<16>(
        [&](Row a, Row b) ZORS_INLINE_LAMBDA {
          const Row c = centred(a, b);
          squares.add(_mm256_madd_epi16(c.r[0], c.r[0]));
          sum.add(_mm256_madd_epi16(c.r[0], exact::ones()));
        },
        [&] { sum.endBlock(); }, len, src1, src2);
    return Zor64s(Zor64u(squares.total()) + 65536 * Zor64u(sum.total()) + (Zor64u(lanesOfRows(len)) << 30));
  }
};

Zor32f asFloat(Zor64s norm) { return Zor32f(norm); }
Zor32f rootAsFloat(Zor64s norm) { return Zor32f(std::sqrt(Zor64f(norm))); }

Zor32s scaled32(Zor64s norm, Zor32s scaleFactor) {
  if (scaleFactor >= 0) return scaleFactor > 63 ? 0 : saturated<Zor32s>(norm >> scaleFactor);
  if (norm > INT32_MAX) return INT32_MAX;
  return saturated<Zor32s>(norm << (scaleFactor < -32 ? 32 : -scaleFactor));
}
Zor64s scaled64(Zor64s norm, Zor32s scaleFactor) {
  if (scaleFactor >= 0) return scaleFactor > 63 ? 0 : norm >> scaleFactor;
  const int shift = scaleFactor < -63 ? 63 : -scaleFactor;
  return int(std::bit_width(Zor64u(norm))) + shift >= 64 ? INT64_MAX : norm << shift;
}
// Deviation, kept: the divisor is a 32-bit 1 shifted by the factor modulo 32, so 31 turns the sign and 32 does nothing.
Zor32s scaledRoot32(Zor64s norm, Zor32s scaleFactor) {
  const auto shifted = [](Zor32u count) { return Zor64f(Zor32s(Zor32u{1} << (count % 32))); };
  Zor64f root = std::sqrt(Zor64f(norm));
  if (scaleFactor > 0)
    root /= shifted(Zor32u(scaleFactor));
  else if (scaleFactor < 0)
    root *= shifted(-Zor32u(scaleFactor));
  if (root > 2147483647.0) return INT32_MAX;
  if (root < -2147483648.0) return INT32_MIN;
  return static_cast<Zor32s>(root);
}

template <class Norm, class R, class... S> ZorStatus reduce(R (*finish)(Zor64s), R* norm, Zor32s len, const S*... src) {
  return check().pointers(src..., norm).size(len).then([&] { *norm = finish(Norm::of(len, src...)); });
}
template <class Norm, class R, class... S>
ZorStatus reduceSfs(R (*finish)(Zor64s, Zor32s), Zor32s scaleFactor, R* norm, Zor32s len, const S*... src) {
  return check().pointers(src..., norm).size(len).then([&] { *norm = finish(Norm::of(len, src...), scaleFactor); });
}

}  // namespace

// clang-format off
ZorStatus zorsNorm_Inf_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm) { return reduce<Inf>(asFloat, norm, len, src); }
ZorStatus zorsNorm_L1_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm) { return reduce<L1>(asFloat, norm, len, src); }
ZorStatus zorsNorm_L2_16s32f(const Zor16s* src, Zor32s len, Zor32f* norm) { return reduce<L2Sqr>(rootAsFloat, norm, len, src); }
ZorStatus zorsNorm_Inf_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<Inf>(scaled32, scaleFactor, norm, len, src); }
ZorStatus zorsNorm_L1_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<L1>(scaled32, scaleFactor, norm, len, src); }
ZorStatus zorsNorm_L2_16s32s_Sfs(const Zor16s* src, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<L2Sqr>(scaledRoot32, scaleFactor, norm, len, src); }
ZorStatus zorsNorm_L1_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor) { return reduceSfs<L1>(scaled64, scaleFactor, norm, len, src); }
ZorStatus zorsNorm_L2Sqr_16s64s_Sfs(const Zor16s* src, Zor32s len, Zor64s* norm, Zor32s scaleFactor) { return reduceSfs<L2Sqr>(scaled64, scaleFactor, norm, len, src); }

ZorStatus zorsNormDiff_Inf_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm) { return reduce<Inf>(asFloat, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm) { return reduce<L1>(asFloat, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_16s32f(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32f* norm) { return reduce<L2Sqr>(rootAsFloat, norm, len, src1, src2); }
ZorStatus zorsNormDiff_Inf_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<Inf>(scaled32, scaleFactor, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<L1>(scaled32, scaleFactor, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2_16s32s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor32s* norm, Zor32s scaleFactor) { return reduceSfs<L2Sqr>(scaledRoot32, scaleFactor, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L1_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm, Zor32s scaleFactor) { return reduceSfs<L1>(scaled64, scaleFactor, norm, len, src1, src2); }
ZorStatus zorsNormDiff_L2Sqr_16s64s_Sfs(const Zor16s* src1, const Zor16s* src2, Zor32s len, Zor64s* norm, Zor32s scaleFactor) { return reduceSfs<L2Sqr>(scaled64, scaleFactor, norm, len, src1, src2); }
// clang-format on

}  // namespace zors
