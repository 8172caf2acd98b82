// Frequency demodulation against the formula, one point at a time.
#include <xmmintrin.h>

#include <cmath>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/detection.h"

namespace {

using kit::Edge;

float arctangent(float t) {
  const float u = t * t;
  const float above = t + t * u * (1.120234f + u * (0.28050455f + u * 0.008561189f));
  const float below = 1.0f + u * (1.4535671f + u * (0.565031f + u * 0.04901759f));
  return above / below;
}
Zor16s model(Zor16sc last, Zor16sc now) {
  const long im64 = long{last.re} * now.im - long{last.im} * now.re;
  const long re64 = long{last.re} * now.re + long{last.im} * now.im;
  const float re = static_cast<float>(re64 == 2147483648 ? -2147483648 : re64), im = static_cast<float>(im64);
  const float absRe = std::fabs(re), absIm = std::fabs(im), larger = std::fmax(absRe, absIm);
  float angle = arctangent(std::fmin(absRe, absIm) / (larger == 0 ? 1 : larger));
  if (absIm > absRe) angle = 1.5707964f - angle;
  if (re < 0) angle = 3.1415927f - angle;
  if (im < 0) angle = -angle;
  const float scaled = angle * 10430.378f, rounded = scaled + (im < 0 ? -0.5f : 0.5f);
  return static_cast<Zor16s>(std::clamp(static_cast<int>(rounded), -32768, 32767));
}

TEST(DemodulateFM, EveryPointTurnsByTheFormula) {
  kit::Random random(21);
  for (unsigned direction : {_MM_ROUND_NEAREST, _MM_ROUND_DOWN, _MM_ROUND_UP, _MM_ROUND_TOWARD_ZERO})
    for (int len = 1; len <= 70; ++len)
      for (Edge edge : kit::bothEdges)
        for (int inPlace = 0; inPlace < 3; ++inPlace) {
          const auto size = std::size_t(len);
          const auto re = kit::anyValues<Zor16s>(size, random), im = kit::anyValues<Zor16s>(size, random);
          const kit::Guarded<Zor16s> srcRe(re, edge, 2 * (size % 7)), srcIm(im, edge, 1), own(size, edge, 3);
          const auto& dst = inPlace == 0 ? own : inPlace == 1 ? srcRe : srcIm;
          Zor16sc last = {kit::anyValue<Zor16s>(random), kit::anyValue<Zor16s>(random)}, delayed = last;
          const unsigned before = _mm_getcsr();
          _mm_setcsr((before & ~unsigned{_MM_ROUND_MASK}) | direction);
          const ZorStatus status = zorsDemodulateFM_CToR_16s(srcRe.data(), srcIm.data(), dst.data(), len, &delayed);
          std::vector<Zor16s> wanted;
          for (std::size_t i = 0; i < size; ++i) {
            wanted.push_back(model(last, {re[i], im[i]}));
            last = {re[i], im[i]};
          }
          _mm_setcsr(before);
          ASSERT_EQ(status, zorStatusOk);
          ASSERT_EQ(dst.values(), wanted) << "len " << len << ", direction " << direction << ", in place " << inPlace;
          ASSERT_TRUE(dst.intact() && srcRe.intact() && srcIm.intact());
          ASSERT_EQ(delayed.re, last.re);
          ASSERT_EQ(delayed.im, last.im);
        }
}
Zor16s turn(Zor16sc last, Zor16sc now) {
  Zor16s out = 77;
  EXPECT_EQ(zorsDemodulateFM_CToR_16s(&now.re, &now.im, &out, 1, &last), zorStatusOk);
  EXPECT_EQ(last.re, now.re);
  EXPECT_EQ(last.im, now.im);
  return out;
}
TEST(DemodulateFM, AConstantInputGivesZero) {
  EXPECT_EQ(turn({1000, -77}, {1000, -77}), 0);
  EXPECT_EQ(turn({0, 0}, {0, 0}), 0);
}
TEST(DemodulateFM, AQuarterTurnGivesAQuarterOfTheRange) {
  EXPECT_EQ(turn({1000, 0}, {0, 1000}), 16384);
  EXPECT_EQ(turn({0, 1000}, {1000, 0}), -16384);
}
TEST(DemodulateFM, HalfATurnIsTheLargestValue) { EXPECT_EQ(turn({1000, 0}, {-1000, 0}), 32767); }
TEST(DemodulateFM, FourPartsOfTheLowestValueCountAsHalfATurn) {
  EXPECT_EQ(turn({-32768, -32768}, {-32768, -32768}), 32767);
}
TEST(DemodulateFM, AStreamInPiecesIsTheSameAsInOneCall) {
  kit::Random random(22);
  const auto re = kit::anyValues<Zor16s>(200, random), im = kit::anyValues<Zor16s>(200, random);
  std::vector<Zor16s> whole(200), pieces(200);
  Zor16sc first = {3, -4}, second = first;
  zorsDemodulateFM_CToR_16s(re.data(), im.data(), whole.data(), 200, &first);
  for (int at = 0, piece = 1; at < 200; at += piece, piece = piece % 37 + 1) {
    piece = std::min(piece, 200 - at);
    zorsDemodulateFM_CToR_16s(re.data() + at, im.data() + at, pieces.data() + at, piece, &second);
  }
  EXPECT_EQ(whole, pieces);
  EXPECT_EQ(first.re, second.re);
}
TEST(DemodulateFM, ArgumentsAreTestedBeforeAnythingIsWritten) {
  const Zor16s re[4] = {}, im[4] = {};
  Zor16s dst[4] = {1, 2, 3, 4};
  Zor16sc delayed = {5, 6};
  kit::Contract(zorsDemodulateFM_CToR_16s, re, im, dst, 4, &delayed)
      .null<0>()
      .null<1>()
      .null<2>()
      .null<4>()
      .bad<3>({0, -1, INT_MIN}, zorStatusBadSize)
      .untouched(dst, sizeof dst)
      .untouched(&delayed, sizeof delayed)
      .verify("zorsDemodulateFM_CToR_16s");
}

}  // namespace
