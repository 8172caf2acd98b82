#include <immintrin.h>

#include "kit/elementwise.h"
#include "zors/functions.h"

namespace {

// Volatile values keep the compiler from moving an operation out of its rounding direction.
Zor32f square(Zor32f c) {
  volatile Zor32f operand = c, product = operand * operand;
  return product;
}
Zor32f derivative(Zor32f x, Zor32f c) {
  volatile Zor32f xx = x * x, d = xx + square(c), r = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(d)));
  volatile Zor32f twice = r + r, rd = r * d, rdr = rd * r, reciprocal = twice - rdr;
  return x * reciprocal;
}
Zor32f reciprocal(Zor32f x, Zor32f c) {
  volatile Zor32f d = std::fma(x, x, square(c)), r = 1 / d;
  return r;
}
Zor32f second(Zor32f x, Zor32f c) {
  volatile Zor32f f = std::fma(x, x, -square(c)), negated = -f, r = reciprocal(x, c), once = negated * r;
  return once * r;
}
constexpr Zor32f constants[] = {1.0f, 0.3f, 1e10f, 1e-15f, 1e30f, HUGE_VALF};

TEST(Cauchy, FirstDerivativeByOneNewtonStep) {
  for (unsigned direction : kit::allDirections)
    for (Zor32f c : constants) {
      const kit::Direction scope(direction);
      kit::sweepInPlace<Zor32f>(
          "zorsCauchyD_32f_I", [=](Zor32f* srcDst, Zor32s len) { return zorsCauchyD_32f_I(srcDst, len, c); },
          [=](Zor32f x) { return derivative(x, c); }, c == 1 ? kit::sweepLengths() : kit::fewLengths());
    }
}
TEST(Cauchy, BothDerivativesByOneDivision) {
  kit::Random random(2);
  for (unsigned direction : kit::allDirections)
    for (Zor32f c : constants)
      for (int len : kit::sweepLengths())
        for (kit::Edge edge : kit::bothEdges) {
          const kit::Direction scope(direction);
          const auto n = std::size_t(len);
          const auto values = kit::anyValues<Zor32f>(n, random);
          const kit::Guarded<Zor32f> srcDst(values, edge), dst2(n, edge, 4);
          std::vector<Zor32f> wanted(n), wanted2(n);
          for (std::size_t i = 0; i < n; ++i) {
            wanted[i] = values[i] * reciprocal(values[i], c);
            wanted2[i] = second(values[i], c);
          }
          ASSERT_EQ(zorsCauchyDD2_32f_I(srcDst.data(), dst2.data(), len, c), zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32f>(srcDst.span(), wanted), "") << len << ", " << c;
          ASSERT_EQ(kit::firstDifference<Zor32f>(dst2.span(), wanted2), "") << len << ", " << c;
          ASSERT_TRUE(srcDst.intact() && dst2.intact());
        }
}
TEST(Cauchy, TheFunctionIsHalfTheLogarithm) {
  // One element alone, held to a few ulp; near 0 the sum with 1 has lost the last bits.
  for (Zor32f c : {1.0f, 0.3f, 7.0f}) {
    const auto call = [=](Zor32f* srcDst, Zor32s len) { return zorsCauchy_32f_I(srcDst, len, c); };
    auto lengths = kit::sweepLengths();
    lengths.insert(lengths.end(), {4095, 4096, 4097, 9000});
    kit::sweepInPlace<Zor32f>(
        "zorsCauchy_32f_I", call,
        [=](Zor32f x) {
          volatile Zor32f u = x * (1 / c);
          const Zor32f sum = std::fma(u, u, 1.0f);
          Zor32f y = x;
          EXPECT_EQ(call(&y, 1), zorStatusOk);
          EXPECT_LE(kit::ulps(y, std::log(static_cast<long double>(sum)) / 2), 6) << x;
          return y;
        },
        c == 1 ? lengths : kit::fewLengths());
  }
  Zor32f x = 1;
  EXPECT_EQ(zorsCauchy_32f_I(&x, 1, 0), zorStatusBadCauchyConstant);
  EXPECT_EQ(x, 1);
}
TEST(Cauchy, TheConstantIsTestedLastAndMustBeAboveZero) {
  std::vector<Zor32f> x(8, 1.0f), y(8, 2.0f);
  kit::Contract(zorsCauchy_32f_I, x.data(), 8, 1.0f)
      .null<0>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .bad<2>({0.0f, -1.0f, -0.0f, NAN}, zorStatusBadCauchyConstant)
      .untouched(x)
      .verify("zorsCauchy_32f_I");
  kit::Contract(zorsCauchyD_32f_I, x.data(), 8, 1.0f)
      .null<0>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .bad<2>({0.0f, -1.0f, -0.0f, NAN}, zorStatusBadCauchyConstant)
      .untouched(x)
      .verify("zorsCauchyD_32f_I");
  kit::Contract(zorsCauchyDD2_32f_I, x.data(), y.data(), 8, 1.0f)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<3>({0.0f, -1.0f, -0.0f, NAN}, zorStatusBadCauchyConstant)
      .untouched(x)
      .untouched(y)
      .verify("zorsCauchyDD2_32f_I");
}

}  // namespace
