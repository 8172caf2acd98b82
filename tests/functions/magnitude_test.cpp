#include <algorithm>
#include <cmath>

#include "functions/complex_forms.h"
#include "kit/scale_model.h"
#include "zors/functions.h"

namespace {

using complexForms::contractInterleaved;
using complexForms::contractPlanes;
using complexForms::interleaved;
using complexForms::planes;
using kit::fewLengths;
using kit::sweepLengths;

constexpr Zor32s scales[] = {0,  1,         2,  7,  15,  16,  17,  30,  31,  32,       33,
                             64, INT32_MAX, -1, -7, -15, -16, -30, -31, -32, INT32_MIN};

template <class C> scale::Exact squaresOf(C z) { return scale::Exact{z.re} * z.re + scale::Exact{z.im} * z.im; }
template <class C> auto fused(C z) {
  volatile auto im = z.im * z.im;  // or the compiler would fuse the other product
  return std::fma(z.re, z.re, im);
}

// ---- Squares ------------------------------------------------------------------------------------

TEST(PowerSpectr, OneSquareIsRoundedTheOtherFused) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto& lengths = direction == _MM_ROUND_NEAREST ? sweepLengths() : fewLengths();
    interleaved<Zor32fc, Zor32f>("zorsPowerSpectr_32fc", zorsPowerSpectr_32fc, fused<Zor32fc>, lengths);
    interleaved<Zor64fc, Zor64f>("zorsPowerSpectr_64fc", zorsPowerSpectr_64fc, fused<Zor64fc>, lengths);
    planes<Zor32fc, Zor32f>("zorsPowerSpectr_32f", zorsPowerSpectr_32f, fused<Zor32fc>, lengths);
    planes<Zor64fc, Zor64f>("zorsPowerSpectr_64f", zorsPowerSpectr_64f, fused<Zor64fc>, lengths);
    interleaved<Zor32fc, Zor64f>(
        "zorsMagSquared_32fc64f", zorsMagSquared_32fc64f,
        [](Zor32fc z) {
          return fused(Zor64fc{z.re, z.im});
        },
        lengths);
  }
}
TEST(PowerSpectr, IntegersAreExact) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto toFloat = [](Zor16sc z) {
      volatile Zor64u exact = Zor64u(squaresOf(z));
      return static_cast<Zor32f>(exact);
    };
    interleaved<Zor16sc, Zor32f>("zorsPowerSpectr_16sc32f", zorsPowerSpectr_16sc32f, toFloat, fewLengths());
    planes<Zor16sc, Zor32f>("zorsPowerSpectr_16s32f", zorsPowerSpectr_16s32f, toFloat, fewLengths());
  }
  for (Zor32s s : scales) {
    const auto& lengths = s == 0 ? sweepLengths() : fewLengths();
    const auto to16 = [=](Zor16sc z) { return scale::scaled<Zor16s>(squaresOf(z), s); };
    interleaved<Zor16sc, Zor16s>("zorsPowerSpectr_16sc_Sfs", zorsPowerSpectr_16sc_Sfs, to16, lengths, s);
    planes<Zor16sc, Zor16s>("zorsPowerSpectr_16s_Sfs", zorsPowerSpectr_16s_Sfs, to16, lengths, s);
    interleaved<Zor32sc, Zor32s>(
        "zorsMagSquared_32sc32s_Sfs", zorsMagSquared_32sc32s_Sfs,
        [=](Zor32sc z) { return scale::scaled<Zor32s>(squaresOf(z), s); }, lengths, s);
  }
}
TEST(PowerSpectr, TheGreatestSquareIsUnsigned) {
  const Zor32sc z = {INT32_MIN, INT32_MIN};
  Zor32s y = 0;
  EXPECT_EQ(zorsMagSquared_32sc32s_Sfs(&z, &y, 1, 33), zorStatusOk);
  EXPECT_EQ(y, 1 << 30);
  const Zor16s re = 1, im = 1;
  Zor16s x = 0;
  EXPECT_EQ(zorsPowerSpectr_16s_Sfs(&re, &im, &x, 1, 1), zorStatusOk);  // 2 / 2
  EXPECT_EQ(x, 1);
}

// ---- Roots --------------------------------------------------------------------------------------

template <class C> auto rootOfFused(C z) {
  volatile auto square = fused(z);
  return std::sqrt(square);
}
// sqrt(square) / 2^scaleFactor to nearest, ties to even.
template <class D> D rootScaled(scale::Exact square, Zor32s scaleFactor) {
  using U = unsigned __int128;
  constexpr D highest = std::numeric_limits<D>::max();
  if (square == 0 || scaleFactor > 40) return 0;
  if (scaleFactor < -31) return highest;
  const int up = std::max(-scaleFactor, 0), down = std::max(scaleFactor, 0);
  const U m = U(square) << (2 * up);
  const auto squareOfScaled = [&](U k) { return (k * k) << (2 * down); };
  U k = U(std::sqrt(static_cast<long double>(m)) / std::ldexp(1.0L, down));
  while (k > 0 && squareOfScaled(k) > m) --k;
  while (squareOfScaled(k + 1) <= m) ++k;
  const U half = squareOfScaled(2 * k + 1);  // four times that of k + 1/2
  if (m > half / 4 || (4 * m == half && k % 2 != 0)) ++k;
  return k > U(highest) ? highest : D(k);
}

TEST(Magnitude, FloatsAreTheRootOfTheFusedSquares) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto& lengths = direction == _MM_ROUND_NEAREST ? sweepLengths() : fewLengths();
    interleaved<Zor32fc, Zor32f>("zorsMagnitude_32fc", zorsMagnitude_32fc, rootOfFused<Zor32fc>, lengths);
    interleaved<Zor64fc, Zor64f>("zorsMagnitude_64fc", zorsMagnitude_64fc, rootOfFused<Zor64fc>, lengths);
    planes<Zor32fc, Zor32f>("zorsMagnitude_32f", zorsMagnitude_32f, rootOfFused<Zor32fc>, lengths);
    planes<Zor64fc, Zor64f>("zorsMagnitude_64f", zorsMagnitude_64f, rootOfFused<Zor64fc>, lengths);
  }
}
TEST(Magnitude, RootsOfIntegersAreExactlyRounded) {
  const auto toFloat = [](Zor16sc z) { return Zor32f(std::sqrt(static_cast<long double>(squaresOf(z)))); };
  interleaved<Zor16sc, Zor32f>("zorsMagnitude_16sc32f", zorsMagnitude_16sc32f, toFloat, sweepLengths());
  planes<Zor16sc, Zor32f>("zorsMagnitude_16s32f", zorsMagnitude_16s32f, toFloat, sweepLengths());
  for (unsigned direction : kit::allDirections)
    for (Zor32s s : scales) {
      const kit::Direction scope(direction);
      const auto& lengths = direction == _MM_ROUND_NEAREST && s >= 0 && s < 2 ? sweepLengths() : fewLengths();
      const auto to16 = [=](Zor16sc z) { return rootScaled<Zor16s>(squaresOf(z), s); };
      interleaved<Zor16sc, Zor16s>("zorsMagnitude_16sc_Sfs", zorsMagnitude_16sc_Sfs, to16, lengths, s);
      planes<Zor16sc, Zor16s>("zorsMagnitude_16s_Sfs", zorsMagnitude_16s_Sfs, to16, lengths, s);
      interleaved<Zor32sc, Zor32s>(
          "zorsMagnitude_32sc_Sfs", zorsMagnitude_32sc_Sfs,
          [=](Zor32sc z) { return rootScaled<Zor32s>(squaresOf(z), s); }, lengths, s);
    }
}
// All sums of squares at the sides of a half: m = r^2 + r and m = r^2 + r + 1.
TEST(Magnitude, RootsBesideAHalfFallOnTheirSide) {
  std::vector<Zor16sc> src;
  for (int re = 0; re < 1500; ++re)
    for (int im = 0; im <= re; ++im) {
      const int m = re * re + im * im, r = int(std::sqrt(double(m)));
      if (m == r * r + r || m == r * r + r + 1) src.push_back({Zor16s(re), Zor16s(-im)});
    }
  ASSERT_GT(src.size(), 500u);
  std::vector<Zor16s> dst(src.size());
  ASSERT_EQ(zorsMagnitude_16sc_Sfs(src.data(), dst.data(), Zor32s(src.size()), 0), zorStatusOk);
  for (std::size_t i = 0; i < src.size(); ++i)
    ASSERT_EQ(dst[i], rootScaled<Zor16s>(squaresOf(src[i]), 0)) << kit::text(src[i]);
}
TEST(Magnitude, WideRootsAreExactWhereBinary64IsInDoubt) {
  kit::Random random(9);
  std::vector<Zor32sc> src(200'000);
  for (Zor32s s : {0, 1, 5, -1}) {
    for (auto& z : src) {
      z = {Zor32s(random()) >> (s == -1), Zor32s(random()) >> (s == -1)};
      if (random() % 16 == 0) z = {3 * (z.re / 8), 4 * (z.re / 8)};  // exact roots, and ties of them
    }
    std::vector<Zor32s> dst(src.size());
    ASSERT_EQ(zorsMagnitude_32sc_Sfs(src.data(), dst.data(), Zor32s(src.size()), s), zorStatusOk);
    for (std::size_t i = 0; i < src.size(); ++i)
      ASSERT_EQ(dst[i], rootScaled<Zor32s>(squaresOf(src[i]), s)) << kit::text(src[i]) << " " << s;
  }
}
TEST(Magnitude, ThreeAndFourGiveFiveAndTheLowestPairSaturates) {
  const Zor16sc z[] = {{3, 4}, {-32768, -32768}};
  Zor16s y[2] = {};
  EXPECT_EQ(zorsMagnitude_16sc_Sfs(z, y, 2, 0), zorStatusOk);
  EXPECT_EQ(y[0], 5);
  EXPECT_EQ(y[1], 32767);
}
TEST(Magnitude, SquaresMayOverflow) {
  const Zor32f re = 3e30f, im = 4e30f;
  Zor32f y = 0;
  EXPECT_EQ(zorsMagnitude_32f(&re, &im, &y, 1), zorStatusOk);
  EXPECT_EQ(y, HUGE_VALF);
}

TEST(Magnitude, ChecksPointersThenLength) {
  contractInterleaved("zorsMagnitude_32fc", zorsMagnitude_32fc);
  contractInterleaved("zorsMagnitude_64fc", zorsMagnitude_64fc);
  contractInterleaved("zorsMagnitude_16sc32f", zorsMagnitude_16sc32f);
  contractInterleaved("zorsMagnitude_16sc_Sfs", zorsMagnitude_16sc_Sfs, 0);
  contractInterleaved("zorsMagnitude_16sc_Sfs", zorsMagnitude_16sc_Sfs, 3);
  contractInterleaved("zorsMagnitude_32sc_Sfs", zorsMagnitude_32sc_Sfs, 0);
  contractPlanes("zorsMagnitude_32f", zorsMagnitude_32f);
  contractPlanes("zorsMagnitude_64f", zorsMagnitude_64f);
  contractPlanes("zorsMagnitude_16s32f", zorsMagnitude_16s32f);
  contractPlanes("zorsMagnitude_16s_Sfs", zorsMagnitude_16s_Sfs, 0);
  contractPlanes("zorsMagnitude_16s_Sfs", zorsMagnitude_16s_Sfs, 3);
  contractInterleaved("zorsPowerSpectr_32fc", zorsPowerSpectr_32fc);
  contractInterleaved("zorsPowerSpectr_64fc", zorsPowerSpectr_64fc);
  contractInterleaved("zorsPowerSpectr_16sc32f", zorsPowerSpectr_16sc32f);
  contractInterleaved("zorsPowerSpectr_16sc_Sfs", zorsPowerSpectr_16sc_Sfs, 40);
  contractPlanes("zorsPowerSpectr_32f", zorsPowerSpectr_32f);
  contractPlanes("zorsPowerSpectr_64f", zorsPowerSpectr_64f);
  contractPlanes("zorsPowerSpectr_16s32f", zorsPowerSpectr_16s32f);
  contractPlanes("zorsPowerSpectr_16s_Sfs", zorsPowerSpectr_16s_Sfs, 40);
  contractInterleaved("zorsMagSquared_32fc64f", zorsMagSquared_32fc64f);
  contractInterleaved("zorsMagSquared_32sc32s_Sfs", zorsMagSquared_32sc32s_Sfs, 0);
}

}  // namespace
