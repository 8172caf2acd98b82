#include "functions/transcendental.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using transcendental::negativeRoot;
using transcendental::withStatus;
using transcendental::withStatusInPlace;

template <class T> T root(T x) { return std::sqrt(x); }

TEST(Sqrt, FloatsAreCorrectlyRoundedAndNegativesWarn) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto& lengths = direction == _MM_ROUND_NEAREST ? kit::sweepLengths() : kit::fewLengths();
    sweep<Zor32f, Zor32f>("zorsSqrt_32f", withStatus(negativeRoot, zorsSqrt_32f), root<Zor32f>, lengths);
    sweep<Zor64f, Zor64f>("zorsSqrt_64f", withStatus(negativeRoot, zorsSqrt_64f), root<Zor64f>, lengths);
    sweepInPlace<Zor32f>("zorsSqrt_32f_I", withStatusInPlace(negativeRoot, zorsSqrt_32f_I), root<Zor32f>, lengths);
    sweepInPlace<Zor64f>("zorsSqrt_64f_I", withStatusInPlace(negativeRoot, zorsSqrt_64f_I), root<Zor64f>, lengths);
  }
}
TEST(Sqrt, OfMinusOneGivesNanAndTheWarningAndLeavesTheOthersExact) {
  for (std::size_t at = 0; at < 20; ++at) {
    std::vector<Zor32f> narrow(20, 4.0f);
    std::vector<Zor64f> wide(20, 9.0);
    narrow[at] = -1;
    wide[at] = -1;
    EXPECT_EQ(zorsSqrt_32f_I(narrow.data(), 20), zorWarningSqrtOfNegative);
    EXPECT_EQ(zorsSqrt_64f_I(wide.data(), 20), zorWarningSqrtOfNegative);
    for (std::size_t i = 0; i < 20; ++i) {
      if (i == at) {
        EXPECT_EQ(std::bit_cast<Zor32u>(narrow[i]), 0xFFC00000u);
        EXPECT_EQ(std::bit_cast<Zor64u>(wide[i]), 0xFFF8000000000000u);
      } else {
        EXPECT_EQ(narrow[i], 2.0f);
        EXPECT_EQ(wide[i], 3.0);
      }
    }
  }
}
TEST(Sqrt, OfNegativeZeroAndNanDoesNotWarn) {
  Zor32f narrow[] = {-0.0f, NAN};
  Zor64f wide[] = {-0.0, NAN};
  EXPECT_EQ(zorsSqrt_32f_I(narrow, 2), zorStatusOk);
  EXPECT_EQ(zorsSqrt_64f_I(wide, 2), zorStatusOk);
  EXPECT_TRUE(std::signbit(narrow[0]) && std::isnan(narrow[1]));
  EXPECT_TRUE(std::signbit(wide[0]) && std::isnan(wide[1]));
}
TEST(Sqrt, LeavesTheControlWordAndTheStickyFlagsAsTheyWere) {
  const unsigned saved = _mm_getcsr();
  for (unsigned flags : {0u, unsigned{_MM_EXCEPT_INVALID}, unsigned{_MM_EXCEPT_INEXACT | _MM_EXCEPT_DENORM}}) {
    const unsigned word = (saved & ~unsigned{_MM_EXCEPT_MASK}) | flags;
    Zor32f narrow[] = {2, -1, 1e-40f};
    Zor64f wide[] = {2, -1, 1e-310};
    _mm_setcsr(word);
    zorsSqrt_32f_I(narrow, 3);
    EXPECT_EQ(_mm_getcsr(), word);
    zorsSqrt_64f_I(wide, 3);
    EXPECT_EQ(_mm_getcsr(), word);
  }
  _mm_setcsr(saved);
  Zor32f narrow[] = {2, -1};
  Zor64f wide[] = {2, -1};
  {
    const transcendental::Unmasked scope;
    zorsSqrt_32f_I(narrow, 2);
    zorsSqrt_64f_I(wide, 2);
  }
  EXPECT_TRUE(std::isnan(narrow[1]) && std::isnan(wide[1]));
}

// With a and b half the parts: r = sqrt(|a| + sqrt(fma(a, a, round(b^2)))), the other part |b| / r.
template <class C> C principalRoot(C z) {
  const auto a = z.re / 2, b = z.im / 2;
  const auto r = std::sqrt(std::fabs(a) + std::sqrt(std::fma(a, a, b * b)));
  const auto other = std::fabs(b) / (r == 0 ? decltype(r)(1) : r);
  return z.re < 0 ? C{other, std::copysign(r, z.im)} : C{r, std::copysign(other, z.im)};
}
TEST(Sqrt, ComplexRootsTakeTheGreaterPartFirst) {
  sweep<Zor32fc, Zor32fc>("zorsSqrt_32fc", zorsSqrt_32fc, principalRoot<Zor32fc>);
  sweep<Zor64fc, Zor64fc>("zorsSqrt_64fc", zorsSqrt_64fc, principalRoot<Zor64fc>);
  sweepInPlace<Zor32fc>("zorsSqrt_32fc_I", zorsSqrt_32fc_I, principalRoot<Zor32fc>);
  sweepInPlace<Zor64fc>("zorsSqrt_64fc_I", zorsSqrt_64fc_I, principalRoot<Zor64fc>);
}
TEST(Sqrt, ComplexRootsSquareToTheElement) {
  kit::Random random(3);
  const auto z = kit::signal<Zor64fc>(1000, random);
  std::vector<Zor64fc> roots(1000);
  ASSERT_EQ(zorsSqrt_64fc(z.data(), roots.data(), 1000), zorStatusOk);
  for (std::size_t i = 0; i < z.size(); ++i) {
    const auto [re, im] = roots[i];
    EXPECT_GE(re, 0);
    EXPECT_NEAR(re * re - im * im, z[i].re, 1e-15);
    EXPECT_NEAR(2 * re * im, z[i].im, 1e-15);
  }
}
TEST(Sqrt, ComplexRootsOnTheAxesKeepSigns) {
  Zor32fc z[] = {{0, 0}, {0, -0.0f}, {4, 0}, {4, -0.0f}, {-4, 0}, {-4, -0.0f}, {0, 8}, {0, -8}};
  const Zor32fc wanted[] = {{0, 0}, {0, -0.0f}, {2, 0}, {2, -0.0f}, {0, 2}, {0, -2}, {2, 2}, {2, -2}};
  ASSERT_EQ(zorsSqrt_32fc_I(z, 8), zorStatusOk);
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(kit::sameBits(z[i], wanted[i])) << kit::text(z[i]);
}

TEST(Sqrt, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  checksPointersThenLength("zorsSqrt_32f", zorsSqrt_32f);
  checksPointersThenLength("zorsSqrt_64f", zorsSqrt_64f);
  checksPointersThenLength("zorsSqrt_32fc", zorsSqrt_32fc);
  checksPointersThenLength("zorsSqrt_64fc", zorsSqrt_64fc);
  checksPointerThenLength("zorsSqrt_32f_I", zorsSqrt_32f_I);
  checksPointerThenLength("zorsSqrt_64f_I", zorsSqrt_64f_I);
  checksPointerThenLength("zorsSqrt_32fc_I", zorsSqrt_32fc_I);
  checksPointerThenLength("zorsSqrt_64fc_I", zorsSqrt_64fc_I);
}

}  // namespace
