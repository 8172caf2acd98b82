// Products of two vectors, of a vector and a constant, and products added to a vector.
#include <cfenv>

#include "kit/scale_model.h"
#include "zors/arithmetic.h"

namespace {

using scale::contract;
using scale::Exact;
using scale::First;
using scale::members;
using scale::membersInPlace;
using scale::membersWithConstant;
using scale::ruleAt;
using scale::ruleWith;

constexpr std::size_t longCount = 1 << 14;
const scale::Times times;

// (a * 2^-s) * b in binary64, limited, rounded to nearest even whatever the caller's direction.
Zor32s inDouble(Zor32s a, Zor32s b, Zor32s s) {
  const kit::Direction nearest(_MM_ROUND_NEAREST);
  volatile double product = std::ldexp(double(a), -std::clamp(s, -70, 70)) * double(b);
  return Zor32s(std::nearbyint(std::clamp(double(product), -2147483648.0, 2147483647.0)));
}
auto inDoubleAt(Zor32s s) {
  return [s](Zor32s a, Zor32s b) { return inDouble(a, b, s); };
}

// The shifted product's low half; bounds below -31, zeros above 62.
auto lowAt(Zor32s s) {
  return [s](Zor32s a, Zor32s b) -> Zor32s {
    const Zor64s product = Zor64s{a} * b;
    if (s > 62) return 0;
    if (s < -31) return scale::scaled<Zor32s>(product, s);
    const auto shifted = s >= 0 ? Zor64u(product >> s) : Zor64u(product) << -s;
    return Zor32s(Zor32u(shifted));
  };
}

TEST(Mul, FollowsTheScaleRule) {
  members("zorsMul_8u_Sfs", zorsMul_8u_Sfs, ruleAt<Zor8u>(times));
  members("zorsMul_16s_Sfs", zorsMul_16s_Sfs, ruleAt<Zor16s>(times));
  members("zorsMul_16u_Sfs", zorsMul_16u_Sfs, ruleAt<Zor16u>(times));
  members("zorsMul_16u16s_Sfs", zorsMul_16u16s_Sfs, ruleAt<Zor16s>(times));
  members("zorsMul_16s32s_Sfs", zorsMul_16s32s_Sfs, ruleAt<Zor32s>(times));
  members("zorsMul_16sc_Sfs", zorsMul_16sc_Sfs, ruleAt<Zor16sc>(times));
  members("zorsMul_32s32sc_Sfs", zorsMul_32s32sc_Sfs, ruleAt<Zor32sc>(times));
  members("zorsMul_32sc_Sfs", zorsMul_32sc_Sfs, ruleAt<Zor32sc>(times));
  membersInPlace("zorsMul_8u_ISfs", zorsMul_8u_ISfs, ruleAt<Zor8u>(times));
  membersInPlace("zorsMul_16s_ISfs", zorsMul_16s_ISfs, ruleAt<Zor16s>(times));
  membersInPlace("zorsMul_16u_ISfs", zorsMul_16u_ISfs, ruleAt<Zor16u>(times));
  membersInPlace("zorsMul_16sc_ISfs", zorsMul_16sc_ISfs, ruleAt<Zor16sc>(times));
  membersInPlace("zorsMul_32s32sc_ISfs", zorsMul_32s32sc_ISfs, ruleAt<Zor32sc>(times));
  membersInPlace("zorsMul_32sc_ISfs", zorsMul_32sc_ISfs, ruleAt<Zor32sc>(times));
}
TEST(Mul, LongVectorsAtEveryScale) {
  scale::allPairs("zorsMul_8u_Sfs", zorsMul_8u_Sfs, ruleAt<Zor8u>(times));
  scale::longVectors<Zor16s, Zor16s, Zor16s>("zorsMul_16s_Sfs", zorsMul_16s_Sfs, ruleAt<Zor16s>(times), longCount);
  scale::longVectors<Zor16u, Zor16u, Zor16u>("zorsMul_16u_Sfs", zorsMul_16u_Sfs, ruleAt<Zor16u>(times), longCount);
  scale::longVectors<Zor16s, Zor16u, Zor16s>("zorsMul_16u16s_Sfs", zorsMul_16u16s_Sfs, ruleAt<Zor16s>(times),
                                             longCount);
  scale::longVectors<Zor32s, Zor16s, Zor16s>("zorsMul_16s32s_Sfs", zorsMul_16s32s_Sfs, ruleAt<Zor32s>(times),
                                             longCount);
  scale::longVectors<Zor16sc, Zor16sc, Zor16sc>("zorsMul_16sc_Sfs", zorsMul_16sc_Sfs, ruleAt<Zor16sc>(times),
                                                longCount);
  scale::longVectors<Zor32sc, Zor32s, Zor32sc>("zorsMul_32s32sc_Sfs", zorsMul_32s32sc_Sfs, ruleAt<Zor32sc>(times),
                                               longCount);
  scale::longVectors<Zor32sc, Zor32sc, Zor32sc>("zorsMul_32sc_Sfs", zorsMul_32sc_Sfs, ruleAt<Zor32sc>(times),
                                                longCount);
}
TEST(Mul, ThirtyTwoBitProductsGoThroughBinary64) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    scale::longVectors<Zor32s, Zor32s, Zor32s>("zorsMul_32s_Sfs", zorsMul_32s_Sfs, inDoubleAt, 2000);
    EXPECT_EQ(_mm_getcsr() & _MM_ROUND_MASK, direction);
  }
  members("zorsMul_32s_Sfs", zorsMul_32s_Sfs, inDoubleAt);
  membersInPlace("zorsMul_32s_ISfs", zorsMul_32s_ISfs, inDoubleAt);
  membersWithConstant("zorsMulC_32s_Sfs, zorsMulC_32s_ISfs", zorsMulC_32s_Sfs, zorsMulC_32s_ISfs, [](Zor32s val) {
    return [=](Zor32s s) { return [=](Zor32s x) { return inDouble(x, val, s); }; };
  });
}
TEST(Mul, LowHalvesAreNeitherRoundedNorSaturated) {
  members("zorsMul_Low_32s_Sfs", zorsMul_Low_32s_Sfs, lowAt);
  scale::longVectors<Zor32s, Zor32s, Zor32s>("zorsMul_Low_32s_Sfs", zorsMul_Low_32s_Sfs, lowAt, 2000);
}
TEST(MulC, FollowsTheScaleRule) {
  membersWithConstant("zorsMulC_8u_Sfs, zorsMulC_8u_ISfs", zorsMulC_8u_Sfs, zorsMulC_8u_ISfs, ruleWith<Zor8u>(times));
  membersWithConstant("zorsMulC_16s_Sfs, zorsMulC_16s_ISfs", zorsMulC_16s_Sfs, zorsMulC_16s_ISfs,
                      ruleWith<Zor16s>(times));
  membersWithConstant("zorsMulC_16u_Sfs, zorsMulC_16u_ISfs", zorsMulC_16u_Sfs, zorsMulC_16u_ISfs,
                      ruleWith<Zor16u>(times));
  membersWithConstant("zorsMulC_16sc_Sfs, zorsMulC_16sc_ISfs", zorsMulC_16sc_Sfs, zorsMulC_16sc_ISfs,
                      ruleWith<Zor16sc>(times));
  membersWithConstant("zorsMulC_32sc_Sfs, zorsMulC_32sc_ISfs", zorsMulC_32sc_Sfs, zorsMulC_32sc_ISfs,
                      ruleWith<Zor32sc>(times));
}

TEST(Mul, MembersWithoutScaleSaturateOrWiden) {
  const auto product = [](Zor16s a, Zor16s b) { return scale::saturated<Zor16s>(Exact{a} * b); };
  kit::sweep<Zor16s, Zor16s, Zor16s>("zorsMul_16s", zorsMul_16s, product);
  kit::sweepInPlace<Zor16s, Zor16s>("zorsMul_16s_I", zorsMul_16s_I, product);
  kit::sweep<Zor16u, Zor8u, Zor8u>("zorsMul_8u16u", zorsMul_8u16u, [](Zor8u a, Zor8u b) { return Zor16u(a * b); });
  for (Zor16s val : scale::constants<Zor16s>())
    kit::sweepInPlace<Zor16s>(
        "zorsMulC_16s_I", [=](Zor16s* d, Zor32s len) { return zorsMulC_16s_I(val, d, len); },
        [=](Zor16s x) { return product(x, val); });
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor32f, Zor16s, Zor16s>("zorsMul_16s32f", zorsMul_16s32f, [](Zor16s a, Zor16s b) {
      volatile Zor32s exact = a * b;
      return Zor32f(exact);
    });
  }
}

// The exact product of 64-bit integers, or with the mantissa of a binary64 number, by magnitudes.
Zor64s wideProduct(Zor64s x, Zor64s factor, long long s) {
  using Wide = unsigned __int128;
  const auto magnitude = [](Zor64s v) { return v < 0 ? Wide(-Exact{v}) : Wide(v); };
  const Wide t = magnitude(x) * magnitude(factor);
  const bool negative = (x < 0) != (factor < 0);
  const Wide bound = (Wide{1} << 63) - !negative;
  Wide scaled;
  if (t == 0 || s > 127)
    scaled = 0;
  else if (s > 0) {
    const Wide quotient = t >> s, rest = t - (quotient << s), half = Wide{1} << (s - 1);
    scaled = quotient + (rest > half || (rest == half && (quotient & 1) != 0));
  } else if (s < -63 || t > bound >> -s)
    scaled = bound;
  else
    scaled = t << -s;
  if (scaled > bound) scaled = bound;
  return negative ? Zor64s(-Exact(scaled)) : Zor64s(scaled);
}
TEST(MulC, SixtyFourBitProductsAreExactBeforeRounding) {
  std::vector<Zor32s> scales = scale::allScales();
  for (Zor32s s = 71; s < 130; ++s) scales.push_back(s);
  for (Zor64s val : scale::constants<Zor64s>())
    for (Zor32s s : scales)
      kit::sweepInPlace<Zor64s>(
          scale::at("zorsMulC_64s_ISfs", s),
          [=](Zor64s* d, Zor32s len) { return zorsMulC_64s_ISfs(val, d, Zor32u(len), s); },
          [=](Zor64s x) { return wideProduct(x, val, s); }, {1, 70});
}
TEST(MulC, TheExponentOfABinary64FactorJoinsTheScale) {
  for (double val : {0.0, -0.0, 1.0, 1.5, -0.1, 3e300, -5e-324, 2.2250738585072009e-308, 1e-300, HUGE_VAL, -HUGE_VAL})
    for (Zor32s s : {0, 1, 2, 7, -2, -1100, 1100, 1000, -1000, INT32_MIN, INT32_MAX})
      kit::sweepInPlace<Zor64s>(
          scale::at("zorsMulC_64f64s_ISfs", s),
          [=](Zor64s* d, Zor32s len) { return zorsMulC_64f64s_ISfs(val, d, Zor32u(len), s); },
          [=](Zor64s x) -> Zor64s {
            if (std::isinf(val)) return x == 0 ? 0 : (x < 0) != (val < 0) ? INT64_MIN : INT64_MAX;
            int exponent;
            const double fraction = std::frexp(val, &exponent);
            return wideProduct(x, Zor64s(std::ldexp(fraction, 53)), 0LL + s - exponent + 53);
          },
          {1, 70});
}

TEST(MulC, ANanFactorCountsAsTheNumberOfItsFields) {
  for (Zor64u bits : {0x7FF8000000000000u, 0xFFF8000000000000u, 0x7FF0000000000001u})
    for (Zor32s s : {0, 1010, 1023, 1076, 1100, -5}) {
      const auto magnitude = static_cast<Zor64s>((bits & 0xFFFFFFFFFFFFF) | 0x10000000000000);
      const Zor64s factor = bits >> 63 != 0 ? -magnitude : magnitude;
      kit::sweepInPlace<Zor64s>(
          scale::at("zorsMulC_64f64s_ISfs", s),
          [=](Zor64s* d, Zor32s len) { return zorsMulC_64f64s_ISfs(std::bit_cast<double>(bits), d, Zor32u(len), s); },
          [=](Zor64s x) { return wideProduct(x, factor, 0LL + s - 2047 + 1075); }, {1, 70});
    }
}

TEST(MulC, FloatsTo16BitsRoundTheFactorAndTheProduct) {
  const auto factorOf = [](Zor32f val, Zor32s s) { return float(std::ldexp(double(val), -std::clamp(s, -600, 600))); };
  const auto narrowed = [](Zor32f y) {
    return std::isnan(y) || y <= -32768 ? Zor16s(-32768) : y >= 32767 ? Zor16s(32767) : Zor16s(std::nearbyint(y));
  };
  for (Zor32f val : {0.0f, 1.0f, -0.1f, 1e30f, 3e-40f, HUGE_VALF, NAN})
    for (Zor32s s : scale::allScales()) {
      const Zor32f factor = factorOf(val, s);
      kit::sweep<Zor16s, Zor32f>(
          scale::at("zorsMulC_32f16s_Sfs", s),
          [=](const Zor32f* x, Zor16s* d, Zor32s len) { return zorsMulC_32f16s_Sfs(x, val, d, len, s); },
          [=](Zor32f x) { return narrowed(x * factor); }, s == 1 ? kit::sweepLengths() : std::vector<int>{203});
    }
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor16s, Zor32f>(
        "zorsMulC_32f16s_Sfs",
        [=](const Zor32f* x, Zor16s* d, Zor32s len) { return zorsMulC_32f16s_Sfs(x, 0.3f, d, len, 3); },
        [=](Zor32f x) {
          const kit::Direction nearest(_MM_ROUND_NEAREST);
          volatile float y = x * factorOf(0.3f, 3);
          return narrowed(y);
        });
    kit::sweep<Zor16s, Zor32f>(
        "zorsMulC_Low_32f16s",
        [=](const Zor32f* x, Zor16s* d, Zor32s len) { return zorsMulC_Low_32f16s(x, 100.7f, d, len); },
        [=](Zor32f x) {
          volatile float y = x * 100.7f;
          return std::isnan(y) || !(std::fabs(y) < 2147483648.0f)
                     ? Zor16s(-32768)
                     : scale::saturated<Zor16s>(Exact(std::nearbyint(float(y))));
        });
  }
}

template <class T> T product(T a, T b) { return a * b; }
// re = fma(b.re, a.re, -round(b.im * a.im)), im = fma(b.re, a.im, round(b.im * a.re)).
template <class C> C complexProduct(C a, C b) {
  volatile auto t1 = b.im * a.im, t2 = b.im * a.re;  // clang would negate a factor instead, which rounds the other way
  return {std::fma(b.re, a.re, -t1), std::fma(b.re, a.im, t2)};
}
Zor32fc partProducts(Zor32f a, Zor32fc b) { return {a * b.re, a * b.im}; }
TEST(Mul, FloatsRoundInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweep<Zor32f, Zor32f, Zor32f>("zorsMul_32f", zorsMul_32f, product<Zor32f>);
    kit::sweep<Zor64f, Zor64f, Zor64f>("zorsMul_64f", zorsMul_64f, product<Zor64f>);
    kit::sweep<Zor32fc, Zor32fc, Zor32fc>("zorsMul_32fc", zorsMul_32fc, complexProduct<Zor32fc>);
    kit::sweep<Zor64fc, Zor64fc, Zor64fc>("zorsMul_64fc", zorsMul_64fc, complexProduct<Zor64fc>);
    kit::sweep<Zor32fc, Zor32f, Zor32fc>("zorsMul_32f32fc", zorsMul_32f32fc, partProducts);
    kit::sweepInPlace<Zor32f, Zor32f>("zorsMul_32f_I", zorsMul_32f_I, product<Zor32f>);
    kit::sweepInPlace<Zor64f, Zor64f>("zorsMul_64f_I", zorsMul_64f_I, product<Zor64f>);
    kit::sweepInPlace<Zor32fc, Zor32fc>("zorsMul_32fc_I", zorsMul_32fc_I, complexProduct<Zor32fc>);
    kit::sweepInPlace<Zor64fc, Zor64fc>("zorsMul_64fc_I", zorsMul_64fc_I, complexProduct<Zor64fc>);
    kit::sweepInPlace<Zor32fc, Zor32f>("zorsMul_32f32fc_I", zorsMul_32f32fc_I, partProducts);
  }
}

template <class T, class Op>
void constants(const char* name, const std::vector<T>& values, ZorStatus (*f)(const T*, T, T*, Zor32s),
               ZorStatus (*inPlace)(T, T*, Zor32s), Op op) {
  for (T val : values)
    scale::sweepOverOne<T>(
        name, [=](const T* src, T* dst, Zor32s len) { return f(src, val, dst, len); },
        [=](T* srcDst, Zor32s len) { return inPlace(val, srcDst, len); }, [=](T x) { return op(x, val); },
        kit::sweepLengths());
}
TEST(MulC, FloatsRoundInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    constants<Zor32f>("zorsMulC_32f, zorsMulC_32f_I", {0, -0.0f, 1, -0.1f, 1e-45f, 3e38f, HUGE_VALF, NAN}, zorsMulC_32f,
                      zorsMulC_32f_I, product<Zor32f>);
    constants<Zor64f>("zorsMulC_64f, zorsMulC_64f_I", {0, -0.0, 1, -0.1, 5e-324, 1e308, HUGE_VAL, NAN}, zorsMulC_64f,
                      zorsMulC_64f_I, product<Zor64f>);
    constants<Zor32fc>("zorsMulC_32fc, zorsMulC_32fc_I", {{0, -0.0f}, {1, 0}, {-0.1f, 0.7f}, {HUGE_VALF, 1}},
                       zorsMulC_32fc, zorsMulC_32fc_I, complexProduct<Zor32fc>);
    constants<Zor64fc>("zorsMulC_64fc, zorsMulC_64fc_I", {{0, -0.0}, {1, 0}, {-0.1, 0.7}, {HUGE_VAL, 1}}, zorsMulC_64fc,
                       zorsMulC_64fc_I, complexProduct<Zor64fc>);
  }
}

// ---- Products added to a vector -----------------------------------------------------------------

template <class D, class S> using AddProductScaled = ZorStatus (*)(const S*, const S*, D*, Zor32s, Zor32s);
template <class D, class S> void addProducts(const char* name, AddProductScaled<D, S> f, Zor32s clearsAbove) {
  scale::forScales([&](Zor32s s, const std::vector<int>& lengths) {
    kit::sweepInPlace<D, S, S>(
        scale::at(name, s), [=](const S* a, const S* b, D* d, Zor32s len) { return f(a, b, d, len, s); },
        [=](S a, S b, D c) {
          return s > clearsAbove ? D{0} : scale::saturated<D>(Exact{c} + scale::scaled<D>(Exact{a} * b, s));
        },
        lengths);
  });
}
TEST(AddProduct, RoundsTheProductBeforeTheSum) {
  addProducts("zorsAddProduct_16s_Sfs", zorsAddProduct_16s_Sfs, 31);
  addProducts("zorsAddProduct_16s32s_Sfs", zorsAddProduct_16s32s_Sfs, INT32_MAX);
  addProducts("zorsAddProduct_32s_Sfs", zorsAddProduct_32s_Sfs, INT32_MAX);
}
template <class T> T fused(T a, T b, T c) {
  if constexpr (kit::ComplexPair<T>) {
    volatile auto minusC = -c.re;
    volatile auto t = std::fma(b.im, a.im, minusC);
    return {std::fma(b.re, a.re, -t), std::fma(b.re, a.im, std::fma(b.im, a.re, c.im))};
  } else {
    return std::fma(a, b, c);
  }
}
TEST(AddProduct, FloatsAreFused) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    kit::sweepInPlace<Zor32f, Zor32f, Zor32f>("zorsAddProduct_32f", zorsAddProduct_32f, fused<Zor32f>);
    kit::sweepInPlace<Zor64f, Zor64f, Zor64f>("zorsAddProduct_64f", zorsAddProduct_64f, fused<Zor64f>);
    kit::sweepInPlace<Zor32fc, Zor32fc, Zor32fc>("zorsAddProduct_32fc", zorsAddProduct_32fc, fused<Zor32fc>);
    kit::sweepInPlace<Zor64fc, Zor64fc, Zor64fc>("zorsAddProduct_64fc", zorsAddProduct_64fc, fused<Zor64fc>);
    for (Zor32f val : {0.0f, -0.3f, HUGE_VALF})
      kit::sweepInPlace<Zor32f, Zor32f>(
          "zorsAddProductC_32f",
          [=](const Zor32f* a, Zor32f* d, Zor32s len) { return zorsAddProductC_32f(a, val, d, len); },
          [=](Zor32f a, Zor32f c) { return std::fma(a, val, c); });
  }
}

// ---- Named cases --------------------------------------------------------------------------------

template <class T> T one(ZorStatus (*f)(const T*, const T*, T*, Zor32s, Zor32s), T a, T b, Zor32s s) {
  T d{};
  EXPECT_EQ(f(&a, &b, &d, 1, s), zorStatusOk);
  return d;
}
TEST(Mul, TheGreatestSixteenBitProductRoundsToOneAtScaleThirty) {
  EXPECT_EQ(one<Zor16s>(zorsMul_16s_Sfs, -32768, -32768, 30), 1);
  EXPECT_EQ(one<Zor16s>(zorsMul_16s_Sfs, -32768, -32768, 31), 0);
}
TEST(Mul, NegativeScalesEnlargeAndSaturate) {
  EXPECT_EQ(one<Zor8u>(zorsMul_8u_Sfs, 1, 1, -8), 255);
  EXPECT_EQ(one<Zor8u>(zorsMul_8u_Sfs, 1, 1, -7), 128);
  EXPECT_EQ(one<Zor32s>(zorsMul_32s_Sfs, INT32_MAX, INT32_MAX, 1), INT32_MAX);
}
TEST(Mul, TheOneSumOf32BitProductsThatOverflows) {
  const Zor32sc least = {INT32_MIN, INT32_MIN};
  const Zor32sc at63 = one<Zor32sc>(zorsMul_32sc_Sfs, least, least, 63);
  EXPECT_EQ(at63.re, 0);
  EXPECT_EQ(at63.im, 1);
}
TEST(Mul, TheOneSumOf16BitProductsThatOverflows) {
  const Zor16sc least = {-32768, -32768};
  for (Zor32s s : scale::allScales()) {
    const Zor16sc got = one<Zor16sc>(zorsMul_16sc_Sfs, least, least, s);
    EXPECT_EQ(got.re, 0) << s;
    EXPECT_EQ(got.im, scale::scaled<Zor16s>(Exact{1} << 31, s)) << s;
  }
}
TEST(Mul, LowHalvesWrap) { EXPECT_EQ(one<Zor32s>(zorsMul_Low_32s_Sfs, 0x10000, 0x10000, 0), 0); }
TEST(MulC, AZeroFactorGivesZerosAtEveryScale) {
  const Zor16s x = 12345;
  for (Zor32s s : scale::allScales()) {
    Zor16s d = 1;
    EXPECT_EQ(zorsMulC_16s_Sfs(&x, 0, &d, 1, s), zorStatusOk);
    EXPECT_EQ(d, 0);
  }
}
TEST(MulC, OneAndAHalfTimesTwoIsThree) {
  Zor64s x = 2;
  EXPECT_EQ(zorsMulC_64f64s_ISfs(1.5, &x, 1, 0), zorStatusOk);
  EXPECT_EQ(x, 3);
}
TEST(AddProduct, SixteenBitsAreClearedAtScaleThirtyTwo) {
  const Zor16s a = 3;
  Zor16s d = 5;
  EXPECT_EQ(zorsAddProduct_16s_Sfs(&a, &a, &d, 1, 32), zorStatusOk);
  EXPECT_EQ(d, 0);
}

TEST(Mul, ChecksPointersThenLength) {
#define CHECK(...) [](auto... f) { (contract(First::pointers, #__VA_ARGS__, f), ...); }(__VA_ARGS__)
  CHECK(zorsMul_8u_Sfs, zorsMul_16s_Sfs, zorsMul_16u_Sfs, zorsMul_16u16s_Sfs, zorsMul_16s32s_Sfs, zorsMul_32s_Sfs,
        zorsMul_16sc_Sfs, zorsMul_32s32sc_Sfs, zorsMul_32sc_Sfs, zorsMul_Low_32s_Sfs, zorsMul_16s, zorsMul_8u16u,
        zorsMul_16s32f, zorsMul_32f, zorsMul_64f, zorsMul_32fc, zorsMul_64fc, zorsMul_32f32fc, zorsMul_8u_ISfs,
        zorsMul_16s_ISfs, zorsMul_16u_ISfs, zorsMul_32s_ISfs, zorsMul_16sc_ISfs, zorsMul_32s32sc_ISfs,
        zorsMul_32sc_ISfs, zorsMul_16s_I, zorsMul_32f_I, zorsMul_64f_I, zorsMul_32fc_I, zorsMul_64fc_I,
        zorsMul_32f32fc_I);
  CHECK(zorsMulC_8u_Sfs, zorsMulC_16s_Sfs, zorsMulC_16u_Sfs, zorsMulC_32s_Sfs, zorsMulC_16sc_Sfs, zorsMulC_32sc_Sfs,
        zorsMulC_32f16s_Sfs, zorsMulC_Low_32f16s, zorsMulC_32f, zorsMulC_64f, zorsMulC_32fc, zorsMulC_64fc,
        zorsMulC_8u_ISfs, zorsMulC_16s_ISfs, zorsMulC_16u_ISfs, zorsMulC_32s_ISfs, zorsMulC_16sc_ISfs,
        zorsMulC_32sc_ISfs, zorsMulC_16s_I, zorsMulC_64s_ISfs, zorsMulC_64f64s_ISfs, zorsMulC_32f_I, zorsMulC_64f_I,
        zorsMulC_32fc_I, zorsMulC_64fc_I);
  CHECK(zorsAddProduct_16s_Sfs, zorsAddProduct_16s32s_Sfs, zorsAddProduct_32s_Sfs, zorsAddProduct_32f,
        zorsAddProduct_64f, zorsAddProduct_32fc, zorsAddProduct_64fc, zorsAddProductC_32f);
#undef CHECK
}

}  // namespace
