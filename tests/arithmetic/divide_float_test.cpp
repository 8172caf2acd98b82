#include "arithmetic/quotient_model.h"
#include "zors/arithmetic.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

template <class T> T divided(T divisor, T n) { return n / divisor; }
// The product of zorsMul with the conjugate, each part divided by the sum of two rounded squares.
template <class C> C dividedComplex(C d, C n) {
  const decltype(C::re) conj = -d.im;
  const volatile auto t1 = conj * n.im, t2 = conj * n.re, re2 = d.re * d.re, im2 = d.im * d.im;
  const auto norm = re2 + im2;
  return {std::fma(d.re, n.re, -t1) / norm, std::fma(d.re, n.im, t2) / norm};
}
template <class T> bool hasZero(const T* x, int len) {
  return std::any_of(x, x + len, [](T value) {
    if constexpr (kit::ComplexPair<T>)
      return value.re == 0 && value.im == 0;
    else
      return value == 0;
  });
}
template <class T> ZorStatus statusFor(const T* divisors, int len) {
  return hasZero(divisors, len) ? zorWarningDivideByZero : zorStatusOk;
}

template <class T>
void elements(const char* name, ZorStatus (*div)(const T*, const T*, T*, Zor32s),
              ZorStatus (*inPlace)(const T*, T*, Zor32s), T (*model)(T, T)) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<T, T, T>(
        name,
        [=](const T* src1, const T* src2, T* dst, Zor32s len) {
          const ZorStatus wanted = statusFor(src1, len);
          return quotient::successIf(div(src1, src2, dst, len), wanted);
        },
        model);
    sweepInPlace<T, T>(
        name,
        [=](const T* src, T* srcDst, Zor32s len) {
          const ZorStatus wanted = statusFor(src, len);
          return quotient::successIf(inPlace(src, srcDst, len), wanted);
        },
        model);
  }
  const std::vector<T> a(8), b(8);
  std::vector<T> dst(8);
  kit::Contract(div, a.data(), b.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, a.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
TEST(DivFloats, OneDivisionInTheCurrentDirection) {
  elements<Zor32f>("zorsDiv_32f", zorsDiv_32f, zorsDiv_32f_I, divided);
  elements<Zor64f>("zorsDiv_64f", zorsDiv_64f, zorsDiv_64f_I, divided);
}
TEST(DivFloats, ComplexOnesAreAProductAndADivision) {
  elements<Zor32fc>("zorsDiv_32fc", zorsDiv_32fc, zorsDiv_32fc_I, dividedComplex);
  elements<Zor64fc>("zorsDiv_64fc", zorsDiv_64fc, zorsDiv_64fc_I, dividedComplex);
}
TEST(DivFloats, ByZeroGivesAnInfinityAndWarns) {
  const Zor32f zeros[] = {0.0f, -0.0f}, ones[] = {1.0f, 1.0f};
  Zor32f dst[2];
  EXPECT_EQ(zorsDiv_32f(zeros, ones, dst, 2), zorWarningDivideByZero);
  EXPECT_EQ(dst[0], HUGE_VALF);
  EXPECT_EQ(dst[1], -HUGE_VALF);
}
TEST(DivFloats, AComplexDivisorWarnsIfBothItsPartsAreZero) {
  const Zor64fc n{1, 2};
  Zor64fc dst;
  for (const auto& [d, wanted] : {std::pair<Zor64fc, ZorStatus>{{0.0, -0.0}, zorWarningDivideByZero},
                                  {{0.0, 1.0}, zorStatusOk},
                                  {{-1.0, 0.0}, zorStatusOk},
                                  {{1e-300, 0.0}, zorStatusOk}})
    EXPECT_EQ(zorsDiv_64fc(&d, &n, &dst, 1), wanted) << d.re << ", " << d.im;
}

template <class T>
void constants(const char* name, ZorStatus (*divC)(const T*, T, T*, Zor32s), ZorStatus (*inPlace)(T, T*, Zor32s)) {
  using L = std::numeric_limits<T>;
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (T val : {T(1), T(-0.1), T(3), L::denorm_min(), L::max(), L::infinity(), L::quiet_NaN()}) {
      const volatile T reciprocal = 1 / val;
      const auto model = [r = T(reciprocal)](T x) { return x * r; };
      sweep<T, T>(
          name, [=](const T* src, T* dst, Zor32s len) { return divC(src, val, dst, len); }, model, kit::fewLengths());
      sweepInPlace<T>(
          name, [=](T* srcDst, Zor32s len) { return inPlace(val, srcDst, len); }, model, kit::fewLengths());
    }
  }
  const std::vector<T> src(8, T(1));
  std::vector<T> dst(8, T(3));
  kit::Contract(divC, src.data(), T(2), dst.data(), 8)
      .template null<0>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<1>({T(0), T(-0.0)}, zorStatusDivideByZero)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, T(2), dst.data(), 8)
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<0>({T(0), T(-0.0)}, zorStatusDivideByZero)
      .untouched(dst)
      .verify(name);
}
TEST(DivCFloats, MultiplyByTheRoundedReciprocal) {
  constants<Zor32f>("zorsDivC_32f", zorsDivC_32f, zorsDivC_32f_I);
  constants<Zor64f>("zorsDivC_64f", zorsDivC_64f, zorsDivC_64f_I);
}

// The product of zorsMul with conj(val) / |val|^2.
template <class C>
void complexConstants(const char* name, ZorStatus (*divC)(const C*, C, C*, Zor32s),
                      ZorStatus (*inPlace)(C, C*, Zor32s)) {
  using T = decltype(C::re);
  using L = std::numeric_limits<T>;
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (C val : {C{1, 0}, C{T(-0.1), 3}, C{0, -7}, C{L::max(), 1}, C{L::infinity(), 1}, C{L::quiet_NaN(), 1}}) {
      const volatile T re2 = val.re * val.re, im2 = val.im * val.im, norm = re2 + im2;
      const volatile T re = val.re / norm, im = -val.im / norm;
      const auto model = [b = C{re, im}](C a) -> C {
        const volatile T t1 = b.im * a.im, t2 = b.im * a.re;
        return {std::fma(b.re, a.re, -t1), std::fma(b.re, a.im, t2)};
      };
      sweep<C, C>(
          name, [=](const C* src, C* dst, Zor32s len) { return divC(src, val, dst, len); }, model, kit::fewLengths());
      sweepInPlace<C>(
          name, [=](C* srcDst, Zor32s len) { return inPlace(val, srcDst, len); }, model, kit::fewLengths());
    }
  }
  const std::vector<C> src(8, C{1, 1});
  std::vector<C> dst(8, C{3, 3});
  const C zero{0, T(-0.0)}, vanishing{L::min(), L::min()};  // the squares vanish
  kit::Contract(divC, src.data(), C{2, 1}, dst.data(), 8)
      .template null<0>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<1>({zero, vanishing}, zorStatusDivideByZero)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, C{2, 1}, dst.data(), 8)
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<0>({zero, vanishing}, zorStatusDivideByZero)
      .untouched(dst)
      .verify(name);
}
TEST(DivCFloats, ComplexOnesMultiplyByTheRoundedInverse) {
  complexConstants<Zor32fc>("zorsDivC_32fc", zorsDivC_32fc, zorsDivC_32fc_I);
  complexConstants<Zor64fc>("zorsDivC_64fc", zorsDivC_64fc, zorsDivC_64fc_I);
}

TEST(DivCRevFloats, OneDivisionInTheCurrentDirection) {
  using L = std::numeric_limits<Zor32f>;
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (Zor32f val : {0.0f, 1.0f, -0.1f, L::denorm_min(), L::max(), L::infinity(), L::quiet_NaN()}) {
      const auto model = [val](Zor32f x) { return val / x; };
      sweep<Zor32f, Zor32f>(
          "zorsDivCRev_32f",
          [=](const Zor32f* src, Zor32f* dst, Zor32s len) {
            const ZorStatus wanted = statusFor(src, len);
            return quotient::successIf(zorsDivCRev_32f(src, val, dst, len), wanted);
          },
          model, kit::fewLengths());
      sweepInPlace<Zor32f>(
          "zorsDivCRev_32f_I",
          [=](Zor32f* srcDst, Zor32s len) {
            const ZorStatus wanted = statusFor(srcDst, len);
            return quotient::successIf(zorsDivCRev_32f_I(val, srcDst, len), wanted);
          },
          model, kit::fewLengths());
    }
  }
  const std::vector<Zor32f> src(8, 1.0f);
  std::vector<Zor32f> dst(8, 3.0f);
  kit::Contract(zorsDivCRev_32f, src.data(), 2.0f, dst.data(), 8)
      .null<0>()
      .null<2>()
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsDivCRev_32f");
  kit::Contract(zorsDivCRev_32f_I, 2.0f, dst.data(), 8)
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsDivCRev_32f_I");
}

}  // namespace
