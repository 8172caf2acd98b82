#include "kit/elementwise.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;

template <class T> T product(T a, T b) { return a * b; }

TEST(Mul, OneRoundingInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor32f, Zor32f, Zor32f>("zorsMul_32f", zorsMul_32f, product<Zor32f>);
    sweep<Zor64f, Zor64f, Zor64f>("zorsMul_64f", zorsMul_64f, product<Zor64f>);
    sweepInPlace<Zor32f, Zor32f>("zorsMul_32f_I", zorsMul_32f_I, product<Zor32f>);
    sweepInPlace<Zor64f, Zor64f>("zorsMul_64f_I", zorsMul_64f_I, product<Zor64f>);
  }
}

// re = fma(b.re, a.re, -round(b.im * a.im)), im = fma(b.re, a.im, round(b.im * a.re)).
template <class C> C complexProduct(C a, C b) {
  volatile auto t1 = b.im * a.im, t2 = b.im * a.re;  // clang would negate a factor instead, which rounds the other way
  return {std::fma(b.re, a.re, -t1), std::fma(b.re, a.im, t2)};
}
TEST(Mul, ComplexProductsRoundTwoProductsAndFuseTheOthers) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    sweep<Zor32fc, Zor32fc, Zor32fc>("zorsMul_32fc", zorsMul_32fc, complexProduct<Zor32fc>);
    sweep<Zor64fc, Zor64fc, Zor64fc>("zorsMul_64fc", zorsMul_64fc, complexProduct<Zor64fc>);
    sweepInPlace<Zor32fc, Zor32fc>("zorsMul_32fc_I", zorsMul_32fc_I, complexProduct<Zor32fc>);
    sweepInPlace<Zor64fc, Zor64fc>("zorsMul_64fc_I", zorsMul_64fc_I, complexProduct<Zor64fc>);
  }
}

template <class T>
void constants(const char* name, ZorStatus (*outOfPlace)(const T*, T, T*, Zor32s),
               ZorStatus (*inPlace)(T, T*, Zor32s)) {
  using L = std::numeric_limits<T>;
  for (T val : {T(0), T(-0.0), T(1), T(-0.1), L::denorm_min(), L::max(), L::infinity(), L::quiet_NaN()}) {
    const auto model = [val](T x) { return x * val; };
    sweep<T, T>(
        name, [=](const T* src, T* dst, Zor32s len) { return outOfPlace(src, val, dst, len); }, model);
    sweepInPlace<T>(
        name, [=](T* srcDst, Zor32s len) { return inPlace(val, srcDst, len); }, model);
  }
}

TEST(MulC, OneRoundingInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    constants<Zor32f>("zorsMulC_32f, zorsMulC_32f_I", zorsMulC_32f, zorsMulC_32f_I);
    constants<Zor64f>("zorsMulC_64f, zorsMulC_64f_I", zorsMulC_64f, zorsMulC_64f_I);
  }
}

template <class T>
void contracts(ZorStatus (*mul)(const T*, const T*, T*, Zor32s), ZorStatus (*mulI)(const T*, T*, Zor32s),
               ZorStatus (*mulC)(const T*, T, T*, Zor32s), ZorStatus (*mulCI)(T, T*, Zor32s), const char* name) {
  const std::vector<T> a(8, T(1)), b(8, T(2));
  std::vector<T> dst(8, T(3));
  kit::Contract(mul, a.data(), b.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(mulI, a.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(mulC, a.data(), T(2), dst.data(), 8)
      .template null<0>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(mulCI, T(2), dst.data(), 8)
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

TEST(Mul, ChecksPointersThenLength) {
  contracts<Zor32f>(zorsMul_32f, zorsMul_32f_I, zorsMulC_32f, zorsMulC_32f_I, "32f");
  contracts<Zor64f>(zorsMul_64f, zorsMul_64f_I, zorsMulC_64f, zorsMulC_64f_I, "64f");
}

}  // namespace
