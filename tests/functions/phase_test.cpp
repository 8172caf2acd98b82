#include <algorithm>
#include <cmath>

#include "functions/complex_forms.h"
#include "zors/functions.h"

namespace {

using complexForms::contractInterleaved;
using complexForms::contractPlanes;
using complexForms::interleaved;
using complexForms::planes;
using kit::fewLengths;
using kit::sweepLengths;

template <class C> using PartOf = decltype(C::re);
template <class C> long double exactPhase(C z) {
  return std::atan2(static_cast<long double>(z.im), static_cast<long double>(z.re));
}

// The result of one element alone, held to `most` ulp: sweeps show that neither place, form nor neighbours change it.
template <class C, class D> std::function<D(C)> alone(ZorStatus (*call)(const C*, D*, Zor32s), double most) {
  return [=](C z) {
    D y;
    call(&z, &y, 1);
    EXPECT_LE(kit::ulps(y, exactPhase(z)), most) << kit::text(z) << " gives " << kit::text(y);
    EXPECT_TRUE(y != 0 || std::signbit(y) == std::signbit(z.im)) << kit::text(z);
    return y;
  };
}
TEST(Phase, FormsGiveTheSameBits) {
  const auto single = alone<Zor32fc>(zorsPhase_32fc, 0.7);
  const auto twice = alone<Zor64fc>(zorsPhase_64fc, 0.8);
  interleaved<Zor32fc, Zor32f>("zorsPhase_32fc", zorsPhase_32fc, single, sweepLengths());
  planes<Zor32fc, Zor32f>("zorsPhase_32f", zorsPhase_32f, single, sweepLengths());
  interleaved<Zor64fc, Zor64f>("zorsPhase_64fc", zorsPhase_64fc, twice, sweepLengths());
  planes<Zor64fc, Zor64f>("zorsPhase_64f", zorsPhase_64f, twice, sweepLengths());
  const auto converted = [=](Zor16sc z) { return single({Zor32f(z.re), Zor32f(z.im)}); };
  interleaved<Zor16sc, Zor32f>("zorsPhase_16sc32f", zorsPhase_16sc32f, converted, sweepLengths());
  planes<Zor16sc, Zor32f>("zorsPhase_16s32f", zorsPhase_16s32f, converted, sweepLengths());
}
TEST(Phase, LongVectorsGoOnAfterEachBlock) {
  kit::Random random(2);
  const auto src = kit::signal<Zor32fc>(1000, random);
  std::vector<Zor32f> dst(1000);
  ASSERT_EQ(zorsPhase_32fc(src.data(), dst.data(), 1000), zorStatusOk);
  for (std::size_t i = 0; i < src.size(); ++i) ASSERT_LE(kit::ulps(dst[i], exactPhase(src[i])), 0.7) << i;
}
TEST(Phase, ZerosKeepTheirAnglesInEveryDirectionAndWhereDenormalsCountAsZeros) {
  constexpr unsigned denormalsAreZeros = 0x8040;  // and results are flushed
  for (unsigned direction : kit::allDirections)
    for (unsigned more : {0u, denormalsAreZeros})
      for (double re : {0.0, -0.0, 1.0, -1.0})
        for (double im : {0.0, -0.0}) {
          const Zor32fc z = {Zor32f(re), Zor32f(im)};
          const Zor64fc w = {re, im};
          Zor32f y = 0;
          Zor64f x = 0;
          {
            const kit::Direction scope(direction | more);
            EXPECT_EQ(zorsPhase_32fc(&z, &y, 1), zorStatusOk);
            EXPECT_EQ(zorsPhase_64fc(&w, &x, 1), zorStatusOk);
          }
          EXPECT_EQ(std::signbit(y), std::signbit(im)) << re << ", " << im;
          EXPECT_EQ(std::signbit(x), std::signbit(im)) << re << ", " << im;
          EXPECT_LE(kit::ulps(y, exactPhase(z)), 1.0) << re << ", " << im;
          EXPECT_LE(kit::ulps(x, exactPhase(w)), 1.0) << re << ", " << im;
        }
}
TEST(Phase, ZerosAndInfinitiesAreThoseOfAtan2) {
  for (double re : {0.0, -0.0, 1.0, -1.0, HUGE_VAL, -HUGE_VAL})
    for (double im : {0.0, -0.0, 1.0, -1.0, HUGE_VAL, -HUGE_VAL}) {
      const Zor32fc z = {Zor32f(re), Zor32f(im)};
      const Zor64fc w = {re, im};
      Zor32f y = 0;
      Zor64f x = 0;
      EXPECT_EQ(zorsPhase_32fc(&z, &y, 1), zorStatusOk);
      EXPECT_EQ(zorsPhase_64fc(&w, &x, 1), zorStatusOk);
      EXPECT_TRUE(kit::sameBits(y, std::atan2(z.im, z.re))) << re << ", " << im;
      EXPECT_TRUE(kit::sameBits(x, std::atan2(im, re))) << re << ", " << im;
    }
}

// Held to half a unit beyond what the float type of the scale rounds.
template <class C, class D> std::function<D(C)> aloneScaled(ZorStatus (*call)(const C*, D*, Zor32s, Zor32s), Zor32s s) {
  return [=](C z) {
    using L = std::numeric_limits<D>;
    D y;
    call(&z, &y, 1, s);
    const bool single = s >= -28 && s <= 1;
    const kit::Direction nearest(_MM_ROUND_NEAREST);  // of the conversion too
    const long double re = single ? static_cast<long double>(Zor32f(z.re)) : z.re,
                      im = single ? static_cast<long double>(Zor32f(z.im)) : z.im;
    const long double angle = std::atan2(im, re), factor = std::ldexp(1.0L, -std::clamp(s, -1000, 1000));
    const long double bounded = std::clamp<long double>(angle * factor, L::min(), L::max());
    const long double error = std::fabs(angle) * (single ? 0x1.08p-24L : 0x1p-52L) * factor;
    EXPECT_LE(std::fabs(y - bounded), 0.5L + std::min(error, 1e9L)) << kit::text(z) << " at " << s;
    EXPECT_TRUE(z.im != 0 || z.re < 0 || y == 0) << kit::text(z) << " at " << s;
    return y;
  };
}
TEST(Phase, ScaledAnglesAreRoundedToNearestAndSaturated) {
  for (unsigned direction : kit::allDirections)
    for (Zor32s s : {0, 1, -1, -10, -13, -14, -20, -28, -29, -30, -31, -40, -1100, INT32_MIN, 2, 3, 30, INT32_MAX}) {
      const kit::Direction scope(direction);
      const auto& lengths = direction == _MM_ROUND_NEAREST && s == 0 ? sweepLengths() : fewLengths();
      const auto of16 = aloneScaled<Zor16sc>(zorsPhase_16sc_Sfs, s);
      interleaved<Zor16sc, Zor16s>("zorsPhase_16sc_Sfs", zorsPhase_16sc_Sfs, of16, lengths, s);
      planes<Zor16sc, Zor16s>("zorsPhase_16s_Sfs", zorsPhase_16s_Sfs, of16, lengths, s);
      interleaved<Zor32sc, Zor32s>("zorsPhase_32sc_Sfs", zorsPhase_32sc_Sfs,
                                   aloneScaled<Zor32sc>(zorsPhase_32sc_Sfs, s), lengths, s);
    }
}
TEST(Phase, ZeroIsZeroAndANegativeRealIsPi) {
  const Zor32fc z[] = {{0, 0}, {-1, 0}};
  Zor32f y[2] = {1, 1};
  EXPECT_EQ(zorsPhase_32fc(z, y, 2), zorStatusOk);
  EXPECT_EQ(y[0], 0);
  EXPECT_EQ(y[1], 3.14159274f);
}

TEST(Phase, ChecksPointersThenLength) {
  contractInterleaved("zorsPhase_32fc", zorsPhase_32fc);
  contractInterleaved("zorsPhase_64fc", zorsPhase_64fc);
  contractInterleaved("zorsPhase_16sc32f", zorsPhase_16sc32f);
  contractInterleaved("zorsPhase_16sc_Sfs", zorsPhase_16sc_Sfs, 0);
  contractInterleaved("zorsPhase_32sc_Sfs", zorsPhase_32sc_Sfs, 5);
  contractPlanes("zorsPhase_32f", zorsPhase_32f);
  contractPlanes("zorsPhase_64f", zorsPhase_64f);
  contractPlanes("zorsPhase_16s32f", zorsPhase_16s32f);
  contractPlanes("zorsPhase_16s_Sfs", zorsPhase_16s_Sfs, -40);
}

}  // namespace
