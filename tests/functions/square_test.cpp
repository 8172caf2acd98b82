#include "functions/transcendental.h"
#include "kit/scale_model.h"
#include "zors/functions.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

TEST(Abs, ClearsTheSignBitOfFloats) {
  const auto magnitude = [](auto x) { return std::fabs(x); };
  sweep<Zor32f, Zor32f>("zorsAbs_32f", zorsAbs_32f, magnitude, kit::sweepLengths(), kit::Nan::samePayload);
  sweep<Zor64f, Zor64f>("zorsAbs_64f", zorsAbs_64f, magnitude, kit::sweepLengths(), kit::Nan::samePayload);
  sweepInPlace<Zor32f>("zorsAbs_32f_I", zorsAbs_32f_I, magnitude, kit::sweepLengths(), kit::Nan::samePayload);
  sweepInPlace<Zor64f>("zorsAbs_64f_I", zorsAbs_64f_I, magnitude, kit::sweepLengths(), kit::Nan::samePayload);
}
TEST(Abs, NegatesIntegersWithSaturation) {
  const auto magnitude = [](auto x) { return scale::saturated<decltype(x)>(x < 0 ? -static_cast<__int128>(x) : x); };
  sweep<Zor16s, Zor16s>("zorsAbs_16s", zorsAbs_16s, magnitude);
  sweep<Zor32s, Zor32s>("zorsAbs_32s", zorsAbs_32s, magnitude);
  sweepInPlace<Zor16s>("zorsAbs_16s_I", zorsAbs_16s_I, magnitude);
  sweepInPlace<Zor32s>("zorsAbs_32s_I", zorsAbs_32s_I, magnitude);
}
TEST(Abs, TheLowestIntegerGivesTheHighest) {
  Zor16s narrow[] = {-32768};
  Zor32s wide[] = {INT32_MIN};
  zorsAbs_16s_I(narrow, 1);
  zorsAbs_32s_I(wide, 1);
  EXPECT_EQ(narrow[0], 32767);
  EXPECT_EQ(wide[0], INT32_MAX);
}

TEST(Sqr, FloatsAreOneMultiplicationInTheCurrentDirection) {
  const auto square = [](auto x) { return x * x; };
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor32f, Zor32f>("zorsSqr_32f", zorsSqr_32f, square, kit::fewLengths());
    sweep<Zor64f, Zor64f>("zorsSqr_64f", zorsSqr_64f, square, kit::fewLengths());
    sweepInPlace<Zor32f>("zorsSqr_32f_I", zorsSqr_32f_I, square, kit::fewLengths());
    sweepInPlace<Zor64f>("zorsSqr_64f_I", zorsSqr_64f_I, square, kit::fewLengths());
  }
  sweep<Zor32f, Zor32f>("zorsSqr_32f", zorsSqr_32f, square);
  sweep<Zor64f, Zor64f>("zorsSqr_64f", zorsSqr_64f, square);
}

// re = fma(re, re, -round(im * im)), im = fma(re, im, round(im * re)).
template <class C> C complexSquare(C z) {
  volatile auto t1 = z.im * z.im, t2 = z.im * z.re;
  return {std::fma(z.re, z.re, -t1), std::fma(z.re, z.im, t2)};
}
TEST(Sqr, ComplexFloatsRoundTwoProductsAndFuseTheOthers) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto& lengths = direction == _MM_ROUND_NEAREST ? kit::sweepLengths() : kit::fewLengths();
    sweep<Zor32fc, Zor32fc>("zorsSqr_32fc", zorsSqr_32fc, complexSquare<Zor32fc>, lengths);
    sweep<Zor64fc, Zor64fc>("zorsSqr_64fc", zorsSqr_64fc, complexSquare<Zor64fc>, lengths);
    sweepInPlace<Zor32fc>("zorsSqr_32fc_I", zorsSqr_32fc_I, complexSquare<Zor32fc>, kit::fewLengths());
    sweepInPlace<Zor64fc>("zorsSqr_64fc_I", zorsSqr_64fc_I, complexSquare<Zor64fc>, kit::fewLengths());
  }
}

template <class T> T scaledSquare(T x, Zor32s scaleFactor) {
  if constexpr (kit::ComplexPair<T>) {
    const __int128 re = x.re, im = x.im;
    return {scale::scaled<Zor16s>(re * re - im * im, scaleFactor), scale::scaled<Zor16s>(2 * re * im, scaleFactor)};
  } else {
    return scale::scaled<T>(static_cast<__int128>(x) * x, scaleFactor);
  }
}
template <class T>
void scaledSquares(const char* name, ZorStatus (*outOfPlace)(const T*, T*, Zor32s, Zor32s),
                   ZorStatus (*inPlace)(T*, Zor32s, Zor32s)) {
  for (Zor32s scale = -35; scale <= 35; ++scale) {
    const auto& lengths = scale == 0 || scale == 3 || scale == -2 ? kit::sweepLengths() : kit::fewLengths();
    const auto square = [scale](T x) { return scaledSquare(x, scale); };
    sweep<T, T>(name, transcendental::withStatus(transcendental::noWarning, outOfPlace, scale), square, lengths);
    sweepInPlace<T>(name, transcendental::withStatusInPlace(transcendental::noWarning, inPlace, scale), square,
                    kit::fewLengths());
  }
  for (Zor32s scale : {INT32_MIN, INT32_MIN + 1, -65, -64, 63, 64, 65, INT32_MAX})
    sweep<T, T>(
        name, transcendental::withStatus(transcendental::noWarning, outOfPlace, scale),
        [scale](T x) { return scaledSquare(x, scale); }, kit::fewLengths());
}
TEST(Sqr, IntegersFollowTheScaleRule) {
  scaledSquares("zorsSqr_8u_Sfs, zorsSqr_8u_ISfs", zorsSqr_8u_Sfs, zorsSqr_8u_ISfs);
  scaledSquares("zorsSqr_16u_Sfs, zorsSqr_16u_ISfs", zorsSqr_16u_Sfs, zorsSqr_16u_ISfs);
  scaledSquares("zorsSqr_16s_Sfs, zorsSqr_16s_ISfs", zorsSqr_16s_Sfs, zorsSqr_16s_ISfs);
  scaledSquares("zorsSqr_16sc_Sfs, zorsSqr_16sc_ISfs", zorsSqr_16sc_Sfs, zorsSqr_16sc_ISfs);
}
TEST(Sqr, EveryIntegerAtEveryScale) {
  std::vector<Zor16u> all(65536), got(65536);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<Zor16u>(i);
  for (Zor32s scale = -17; scale <= 34; ++scale) {
    ASSERT_EQ(zorsSqr_16u_Sfs(all.data(), got.data(), 65536, scale), zorStatusOk);
    for (std::size_t i = 0; i < all.size(); ++i) ASSERT_EQ(got[i], scaledSquare(all[i], scale)) << i << " " << scale;
    const auto* signedAll = reinterpret_cast<const Zor16s*>(all.data());
    auto* signedGot = reinterpret_cast<Zor16s*>(got.data());
    ASSERT_EQ(zorsSqr_16s_Sfs(signedAll, signedGot, 65536, scale), zorStatusOk);
    for (std::size_t i = 0; i < all.size(); ++i)
      ASSERT_EQ(signedGot[i], scaledSquare(static_cast<Zor16s>(i), scale)) << i << " " << scale;
  }
}

TEST(Square, ChecksPointersThenLength) {
  using transcendental::checksPointersThenLength, transcendental::checksPointerThenLength;
  checksPointersThenLength("zorsAbs_16s", zorsAbs_16s);
  checksPointersThenLength("zorsAbs_32s", zorsAbs_32s);
  checksPointersThenLength("zorsAbs_32f", zorsAbs_32f);
  checksPointersThenLength("zorsAbs_64f", zorsAbs_64f);
  checksPointerThenLength("zorsAbs_16s_I", zorsAbs_16s_I);
  checksPointerThenLength("zorsAbs_32s_I", zorsAbs_32s_I);
  checksPointerThenLength("zorsAbs_32f_I", zorsAbs_32f_I);
  checksPointerThenLength("zorsAbs_64f_I", zorsAbs_64f_I);
  checksPointersThenLength("zorsSqr_32f", zorsSqr_32f);
  checksPointersThenLength("zorsSqr_64f", zorsSqr_64f);
  checksPointersThenLength("zorsSqr_32fc", zorsSqr_32fc);
  checksPointersThenLength("zorsSqr_64fc", zorsSqr_64fc);
  checksPointerThenLength("zorsSqr_32f_I", zorsSqr_32f_I);
  checksPointerThenLength("zorsSqr_64f_I", zorsSqr_64f_I);
  checksPointerThenLength("zorsSqr_32fc_I", zorsSqr_32fc_I);
  checksPointerThenLength("zorsSqr_64fc_I", zorsSqr_64fc_I);
  for (Zor32s scale : {0, 40}) {  // results that are all zero are no exception
    checksPointersThenLength("zorsSqr_8u_Sfs", zorsSqr_8u_Sfs, scale);
    checksPointersThenLength("zorsSqr_16u_Sfs", zorsSqr_16u_Sfs, scale);
    checksPointersThenLength("zorsSqr_16s_Sfs", zorsSqr_16s_Sfs, scale);
    checksPointersThenLength("zorsSqr_16sc_Sfs", zorsSqr_16sc_Sfs, scale);
    checksPointerThenLength("zorsSqr_8u_ISfs", zorsSqr_8u_ISfs, scale);
    checksPointerThenLength("zorsSqr_16u_ISfs", zorsSqr_16u_ISfs, scale);
    checksPointerThenLength("zorsSqr_16s_ISfs", zorsSqr_16s_ISfs, scale);
    checksPointerThenLength("zorsSqr_16sc_ISfs", zorsSqr_16sc_ISfs, scale);
  }
}

}  // namespace
