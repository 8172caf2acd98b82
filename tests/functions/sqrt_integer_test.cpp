#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::negativeRoot;
using transcendental::noWarning;
using transcendental::withStatus;
using transcendental::withStatusInPlace;

using Wide = unsigned __int128;
constexpr Zor64s highest = INT64_MAX;

// sqrt(x) / 2^scale to nearest, ties to even, at most 2^63 - 1: the first n whose upper midpoint x does not pass.
Zor64s roundedRoot(Zor64s x, Zor32s scale) {
  if (x <= 0 || scale > 32) return 0;
  const long double root = sqrtl(static_cast<long double>(x)) * std::ldexp(1.0L, -std::max(scale, -70));
  if (root > 0x1.0001p63L) return highest;
  const auto start = static_cast<Zor64u>(root);
  for (Wide n = start < 2 ? 0 : start - 2;; ++n) {
    const Wide middle = scale > 0 ? (2 * n + 1) * (2 * n + 1) << (2 * (scale - 1)) : n * n + n;
    const Wide square = scale > 0 ? static_cast<Wide>(x) : static_cast<Wide>(x) << (-2 * scale);
    const bool tie = scale > 0 && square == middle;  // unscaled midpoints have a quarter that no integer has
    if (tie ? n % 2 == 0 : square <= middle) return n > static_cast<Wide>(highest) ? highest : static_cast<Zor64s>(n);
  }
}
template <class D, class S> auto rootModel(Zor32s scale) {
  return [scale](S x) {
    return static_cast<D>(std::min<Zor64s>(roundedRoot(static_cast<Zor64s>(x), scale), std::numeric_limits<D>::max()));
  };
}

const std::vector<Zor32s> scales = {INT_MIN, -64, -63, -62, -32, -31, -22, -21, -16, -15, -14, -9, -8, -3, -1,     0,
                                    1,       2,   3,   7,   8,   15,  16,  17,  30,  31,  32,  33, 34, 64, INT_MAX};

template <class S, class D> void roots(const char* name, ZorStatus (*f)(const S*, D*, Zor32s, Zor32s)) {
  const auto foretell = [](const auto& src) { return std::is_signed_v<S> ? negativeRoot(src) : zorStatusOk; };
  for (Zor32s scale : scales)
    sweep<D, S>(name, withStatus(foretell, f, scale), rootModel<D, S>(scale),
                scale == 0 || scale == 1 ? kit::sweepLengths() : kit::fewLengths());
}
template <class T> void rootsInPlace(const char* name, ZorStatus (*f)(T*, Zor32s, Zor32s)) {
  const auto foretell = [](const auto& src) { return std::is_signed_v<T> ? negativeRoot(src) : zorStatusOk; };
  for (Zor32s scale : scales)
    sweepInPlace<T>(name, withStatusInPlace(foretell, f, scale), rootModel<T, T>(scale), kit::fewLengths());
}
TEST(SqrtOfIntegers, IsExactlyRoundedAndNegativesGiveZeroAndWarn) {
  roots("zorsSqrt_8u_Sfs", zorsSqrt_8u_Sfs);
  roots("zorsSqrt_16u_Sfs", zorsSqrt_16u_Sfs);
  roots("zorsSqrt_16s_Sfs", zorsSqrt_16s_Sfs);
  roots("zorsSqrt_32s16s_Sfs", zorsSqrt_32s16s_Sfs);
  roots("zorsSqrt_64s16s_Sfs", zorsSqrt_64s16s_Sfs);
  roots("zorsSqrt_64s_Sfs", zorsSqrt_64s_Sfs);
  rootsInPlace("zorsSqrt_8u_ISfs", zorsSqrt_8u_ISfs);
  rootsInPlace("zorsSqrt_16u_ISfs", zorsSqrt_16u_ISfs);
  rootsInPlace("zorsSqrt_16s_ISfs", zorsSqrt_16s_ISfs);
  rootsInPlace("zorsSqrt_64s_ISfs", zorsSqrt_64s_ISfs);
}
TEST(SqrtOfIntegers, EverySixteenBitElementAtEveryScale) {
  std::vector<Zor16u> all(65536), got(65536);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<Zor16u>(i);
  for (Zor32s scale = -18; scale <= 10; ++scale) {
    ASSERT_EQ(zorsSqrt_16u_Sfs(all.data(), got.data(), 65536, scale), zorStatusOk);
    const auto model = rootModel<Zor16u, Zor16u>(scale);
    for (std::size_t i = 0; i < all.size(); ++i) ASSERT_EQ(got[i], model(all[i])) << i << " " << scale;
  }
}
TEST(SqrtOfIntegers, BesidePerfectSquaresAndMidpoints) {
  kit::Random random(7);
  std::vector<Zor64s> x;
  for (int k = 0; k < 3000; ++k) {
    const Zor64u r = random() % 3037000499u >> (random() % 31);
    const int scale = static_cast<int>(random() % 32) + 1;
    const Wide middle = static_cast<Wide>(2 * (r >> scale) + 1) * (2 * (r >> scale) + 1) << (2 * (scale - 1));
    for (int d = -1; d <= 1; ++d) {
      x.push_back(static_cast<Zor64s>(r * r) + d);
      x.push_back(static_cast<Zor64s>(r * r + r) + d);
      if (middle < static_cast<Wide>(highest)) x.push_back(static_cast<Zor64s>(middle) + d);
    }
  }
  x.insert(x.end(), {highest, highest - 1, INT64_MIN, Zor64s{1} << 62, (Zor64s{1} << 62) + 1, 0});
  std::vector<Zor64s> got(x.size());
  std::vector<Zor16s> narrow(x.size());
  const auto len = static_cast<Zor32s>(x.size());
  for (Zor32s scale = -64; scale <= 34; ++scale) {
    ASSERT_EQ(zorsSqrt_64s_Sfs(x.data(), got.data(), len, scale), zorWarningSqrtOfNegative);
    ASSERT_EQ(zorsSqrt_64s16s_Sfs(x.data(), narrow.data(), len, scale), zorWarningSqrtOfNegative);
    for (std::size_t i = 0; i < x.size(); ++i) {
      const Zor64s wanted = roundedRoot(x[i], scale);
      ASSERT_EQ(got[i], wanted) << x[i] << " " << scale;
      ASSERT_EQ(narrow[i], std::min<Zor64s>(wanted, 32767)) << x[i] << " " << scale;
    }
  }
}
TEST(SqrtOfIntegers, OfMinusOneIsZeroWithTheWarning) {
  Zor16s x[] = {-1};
  EXPECT_EQ(zorsSqrt_16s_ISfs(x, 1, 0), zorWarningSqrtOfNegative);
  EXPECT_EQ(x[0], 0);
}
TEST(SqrtOfIntegers, AtScalesThatZeroEverythingTheWarningIsStillTold) {
  const Zor32s x[] = {4, -1, INT32_MAX};
  Zor16s y[] = {7, 7, 7};
  EXPECT_EQ(zorsSqrt_32s16s_Sfs(x, y, 3, 17), zorWarningSqrtOfNegative);
  for (Zor16s v : y) EXPECT_EQ(v, 0);
  Zor64s wide[] = {4, INT64_MIN, INT64_MAX};
  EXPECT_EQ(zorsSqrt_64s_ISfs(wide, 3, 33), zorWarningSqrtOfNegative);
  for (Zor64s v : wide) EXPECT_EQ(v, 0);
}

Zor16s part(long double value, Zor32s scale) {
  const long double scaled = rintl(std::ldexp(value, -std::clamp(scale, -60, 60)));
  return static_cast<Zor16s>(std::clamp(scaled, -32768.0L, 32767.0L));
}
Zor16sc complexRoot(Zor16sc z, Zor32s scale) {
  const long double re = z.re, im = z.im;
  const long double r = sqrtl((sqrtl(re * re + im * im) + fabsl(re)) / 2), other = r == 0 ? 0 : fabsl(im) / (2 * r);
  const long double sign = z.im < 0 ? -1 : 1;
  return re < 0 ? Zor16sc{part(other, scale), part(sign * r, scale)}
                : Zor16sc{part(r, scale), part(sign * other, scale)};
}
TEST(SqrtOfIntegers, ComplexElementsGiveThePrincipalRoot) {
  for (Zor32s scale : scales) {
    const auto model = [scale](Zor16sc z) { return complexRoot(z, scale); };
    sweep<Zor16sc, Zor16sc>("zorsSqrt_16sc_Sfs", withStatus(noWarning, zorsSqrt_16sc_Sfs, scale), model,
                            scale == 0 ? kit::sweepLengths() : kit::fewLengths());
    sweepInPlace<Zor16sc>("zorsSqrt_16sc_ISfs", withStatusInPlace(noWarning, zorsSqrt_16sc_ISfs, scale), model,
                          kit::fewLengths());
  }
  Zor16sc x[] = {{3, 4}, {-3, 4}, {-3, -4}, {-4, 0}, {0, 0}, {-32768, 0}, {-9, 0}};
  const Zor16sc wanted[] = {{2, 1}, {1, 2}, {1, -2}, {0, 2}, {0, 0}, {0, 181}, {0, 3}};
  ASSERT_EQ(zorsSqrt_16sc_ISfs(x, 7, 0), zorStatusOk);
  for (int i = 0; i < 7; ++i) EXPECT_TRUE(kit::sameBits(x[i], wanted[i])) << kit::text(x[i]);
}

TEST(SqrtOfIntegers, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  for (Zor32s scale : {-70, -3, 0, 5, 40}) {
    checksPointersThenLength("zorsSqrt_8u_Sfs", zorsSqrt_8u_Sfs, scale);
    checksPointersThenLength("zorsSqrt_16u_Sfs", zorsSqrt_16u_Sfs, scale);
    checksPointersThenLength("zorsSqrt_16s_Sfs", zorsSqrt_16s_Sfs, scale);
    checksPointersThenLength("zorsSqrt_16sc_Sfs", zorsSqrt_16sc_Sfs, scale);
    checksPointersThenLength("zorsSqrt_32s16s_Sfs", zorsSqrt_32s16s_Sfs, scale);
    checksPointersThenLength("zorsSqrt_64s16s_Sfs", zorsSqrt_64s16s_Sfs, scale);
    checksPointersThenLength("zorsSqrt_64s_Sfs", zorsSqrt_64s_Sfs, scale);
    checksPointerThenLength("zorsSqrt_8u_ISfs", zorsSqrt_8u_ISfs, scale);
    checksPointerThenLength("zorsSqrt_16u_ISfs", zorsSqrt_16u_ISfs, scale);
    checksPointerThenLength("zorsSqrt_16s_ISfs", zorsSqrt_16s_ISfs, scale);
    checksPointerThenLength("zorsSqrt_16sc_ISfs", zorsSqrt_16sc_ISfs, scale);
    checksPointerThenLength("zorsSqrt_64s_ISfs", zorsSqrt_64s_ISfs, scale);
  }
}

}  // namespace
