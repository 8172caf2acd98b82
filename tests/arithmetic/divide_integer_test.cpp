#include "arithmetic/quotient_model.h"
#include "zors/arithmetic.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using quotient::exact;

// A division by its type of operands, with the scale factor below which only the sign counts. Those with a rounding
// mode are three divisions.
template <class D, class S1, class S2> struct Division {
  std::string name;
  int least;
  ZorRoundMode rnd;
  std::function<ZorStatus(const S1*, const S2*, D*, Zor32s, Zor32s)> call;
  std::function<ZorStatus(const S1*, D*, Zor32s, Zor32s)> inPlace;
  D model(S1 divisor, S2 n, int scale) const {
    if constexpr (kit::ComplexPair<D>)
      return exact(n, divisor, scale, least);
    else
      return exact<D>(n, divisor, scale, least, rnd);
  }
};
template <class T> using Alike = Division<T, T, T>;

template <class T>
std::vector<Alike<T>> withRoundingModes(Alike<T> plain,
                                        ZorStatus (*call)(const T*, const T*, T*, Zor32s, ZorRoundMode, Zor32s),
                                        ZorStatus (*inPlace)(const T*, T*, Zor32s, ZorRoundMode, Zor32s)) {
  std::vector<Alike<T>> divisions{plain};
  for (ZorRoundMode rnd : {zorRoundTowardZero, zorRoundNearestEven, zorRoundHalfAway})
    divisions.push_back(
        {plain.name + ", mode " + std::to_string(rnd), -30, rnd,
         [=](const T* a, const T* b, T* d, Zor32s len, Zor32s scale) { return call(a, b, d, len, rnd, scale); },
         [=](const T* a, T* d, Zor32s len, Zor32s scale) { return inPlace(a, d, len, rnd, scale); }});
  return divisions;
}
std::vector<Alike<Zor8u>> divisions8u() {
  return withRoundingModes<Zor8u>({"Div 8u", -15, 1, zorsDiv_8u_Sfs, zorsDiv_8u_ISfs}, zorsDiv_Round_8u_Sfs,
                                  zorsDiv_Round_8u_ISfs);
}
std::vector<Alike<Zor16s>> divisions16s() {
  return withRoundingModes<Zor16s>({"Div 16s", -29, 1, zorsDiv_16s_Sfs, zorsDiv_16s_ISfs}, zorsDiv_Round_16s_Sfs,
                                   zorsDiv_Round_16s_ISfs);
}
std::vector<Alike<Zor16u>> divisions16u() {
  return withRoundingModes<Zor16u>({"Div 16u", -15, 1, zorsDiv_16u_Sfs, zorsDiv_16u_ISfs}, zorsDiv_Round_16u_Sfs,
                                   zorsDiv_Round_16u_ISfs);
}
const Alike<Zor32s> division32s{"Div 32s", -62, 1, zorsDiv_32s_Sfs, zorsDiv_32s_ISfs};
const Division<Zor16s, Zor16s, Zor32s> division32s16s{"Div 32s16s", -29, 1, zorsDiv_32s16s_Sfs, nullptr};
const Alike<Zor16sc> division16sc{"Div 16sc", -32, 1, zorsDiv_16sc_Sfs, zorsDiv_16sc_ISfs};

template <class Test> void forEachDivision(Test test) {
  for (const auto& division : divisions8u()) test(division);
  for (const auto& division : divisions16s()) test(division);
  for (const auto& division : divisions16u()) test(division);
  test(division32s);
  test(division32s16s);
  test(division16sc);
}

template <class D, class S1, class S2>
void compare(const Division<D, S1, S2>& division, const std::vector<S1>& divisors, const std::vector<S2>& dividends,
             int scale) {
  std::vector<D> got(divisors.size());
  ASSERT_EQ(division.call(divisors.data(), dividends.data(), got.data(), Zor32s(got.size()), scale),
            quotient::statusFor(divisors.data(), int(got.size())));
  for (std::size_t i = 0; i < got.size(); ++i) {
    const D wanted = division.model(divisors[i], dividends[i], scale);
    ASSERT_TRUE(kit::sameBits(got[i], wanted))
        << division.name << ": " << kit::text(dividends[i]) << " / " << kit::text(divisors[i]) << " at scale " << scale
        << ", got " << kit::text(got[i]) << ", wanted " << kit::text(wanted);
  }
}

TEST(DivIntegers, EveryPairOfBytesAtEveryScale) {
  std::vector<Zor8u> divisors, dividends;
  for (int d = 0; d < 256; ++d)
    for (int n = 0; n < 256; ++n) divisors.push_back(Zor8u(d)), dividends.push_back(Zor8u(n));
  for (const auto& division : divisions8u())
    for (int scale : quotient::narrowScales()) {
      compare(division, divisors, dividends, scale);
      if (HasFatalFailure()) return;
    }
}

// All values of one operand with telling values of the other, both ways round.
template <class T> void everyValueOfOneOperand(const Alike<T>& division, const std::vector<int>& scales) {
  const auto all = quotient::everyValue<T>();
  for (int scale : scales)
    for (T other : quotient::tellingValues<T>()) {
      const std::vector<T> others(all.size(), other);
      compare(division, others, all, scale);
      if (scale % 5 == 0) compare(division, all, others, scale);
      if (testing::Test::HasFatalFailure()) return;
    }
}
template <class T> void everyValueOfOneOperand(const std::vector<Alike<T>>& divisions) {
  everyValueOfOneOperand(divisions[0], quotient::narrowScales());
  for (std::size_t i = 1; i < divisions.size(); ++i)
    everyValueOfOneOperand(divisions[i], {-31, -30, -29, -16, -15, -7, -6, -1, 0, 1, 2, 8, 14, 15, 16, 17});
}
TEST(DivIntegers, EverySixteenBitValueOfOneOperand) {
  everyValueOfOneOperand(divisions16s());
  everyValueOfOneOperand(divisions16u());
}

TEST(DivIntegers, AnyPairsAtEveryScale) {
  kit::Random random(2);
  forEachDivision([&]<class D, class S1, class S2>(const Division<D, S1, S2>& division) {
    for (int scale : quotient::allScales()) {
      compare(division, kit::anyValues<S1>(20'000, random), kit::anyValues<S2>(20'000, random), scale);
      if (testing::Test::HasFatalFailure()) return;
    }
  });
}

TEST(DivIntegers, QuotientsAsCloseToAHalfAsThereAre) {
  kit::Random random(3);
  constexpr std::size_t count = 100'000;
  for (int scale = -62; scale <= 32; ++scale) {
    std::vector<Zor32s> divisors(count), dividends(count);
    for (std::size_t i = 0; i < count; ++i) {
      const int bits = 1 + int(random() % 31);
      const auto d = Zor32s((random() & ((Zor64u{1} << bits) - 1)) | 1);
      if (scale < 0) {
        dividends[i] = Zor32s(quotient::nearHalf(Zor64u(d), -scale, random() % 2));
      } else {
        const Zor64u step = Zor64u(d) << scale;  // (2k + 1) * step / 2 and its neighbours
        const Zor64u n = (2 * (random() % ((Zor64u{1} << 31) / step + 1)) + 1) * step / 2 + random() % 3 - 1;
        dividends[i] = Zor32s(std::min<Zor64u>(n, INT32_MAX));
      }
      divisors[i] = random() % 2 ? d : -d;
      if (random() % 2) dividends[i] = -dividends[i];
    }
    compare(division32s, divisors, dividends, scale);
    std::vector<Zor16s> narrow(count);
    for (std::size_t i = 0; i < count; ++i) narrow[i] = Zor16s(divisors[i]);
    compare(division32s16s, narrow, dividends, scale);
    if (HasFatalFailure()) return;
  }
}

TEST(DivIntegers, ComplexQuotientsOfExtremeParts) {
  constexpr Zor16s parts[] = {-32768, -32767, -1, 0, 1, 2, 3, 181, 32767};
  std::vector<Zor16sc> values, divisors, dividends;
  for (Zor16s re : parts)
    for (Zor16s im : parts) values.push_back({re, im});
  for (auto d : values)
    for (auto n : values) divisors.push_back(d), dividends.push_back(n);
  for (int scale : quotient::allScales()) {
    compare(division16sc, divisors, dividends, scale);
    if (HasFatalFailure()) return;
  }
}

TEST(DivIntegers, NoResultDependsOnTheRoundingDirection) {
  kit::Random random(4);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    forEachDivision([&]<class D, class S1, class S2>(const Division<D, S1, S2>& division) {
      for (int scale = -40; scale <= 20; ++scale)
        compare(division, kit::anyValues<S1>(5000, random), kit::anyValues<S2>(5000, random), scale);
    });
    everyValueOfOneOperand(divisions16u()[3], {-6, 0, 5});
    if (HasFatalFailure()) return;
  }
}

TEST(DivIntegers, NoZeroDivisorRaisesAFloatingPointException) {
  const unsigned saved = _mm_getcsr();
  _mm_setcsr((saved & ~unsigned{_MM_MASK_DIV_ZERO | _MM_MASK_INVALID | _MM_MASK_OVERFLOW | _MM_EXCEPT_MASK}));
  forEachDivision([]<class D, class S1, class S2>(const Division<D, S1, S2>& division) {
    const std::vector<S1> zeros(100);
    kit::Random random(5);
    const auto dividends = kit::anyValues<S2>(100, random);
    for (int scale : quotient::allScales()) compare(division, zeros, dividends, scale);
  });
  EXPECT_EQ(_mm_getcsr() & (_MM_EXCEPT_DIV_ZERO | _MM_EXCEPT_INVALID | _MM_EXCEPT_OVERFLOW), 0u);
  _mm_setcsr(saved);
}

TEST(DivIntegers, AllLengthsAndPlaces) {
  forEachDivision([]<class D, class S1, class S2>(const Division<D, S1, S2>& division) {
    for (int scale : {0, -9, 3}) {
      const auto model = [&](S1 d, S2 n) { return division.model(d, n, scale); };
      const auto lengths = scale == 0 ? kit::sweepLengths() : kit::fewLengths();
      sweep<D, S1, S2>(
          division.name,
          [&](const S1* src1, const S2* src2, D* dst, Zor32s len) {
            const ZorStatus wanted = quotient::statusFor(src1, len);
            return quotient::successIf(division.call(src1, src2, dst, len, scale), wanted);
          },
          model, lengths);
      if constexpr (std::is_same_v<S2, D>)
        sweepInPlace<D, S1>(
            division.name + " in place",
            [&](const S1* src, D* srcDst, Zor32s len) {
              const ZorStatus wanted = quotient::statusFor(src, len);
              return quotient::successIf(division.inPlace(src, srcDst, len, scale), wanted);
            },
            model, lengths);
    }
  });
}

template <class T> T of(int re) {
  if constexpr (kit::ComplexPair<T>)
    return {static_cast<decltype(T::re)>(re), 0};
  else
    return static_cast<T>(re);
}

// One zero among the divisors, at each place.
TEST(DivIntegers, WarnsOfAZeroDivisorWhereverItIs) {
  forEachDivision([]<class D, class S1, class S2>(const Division<D, S1, S2>& division) {
    for (int len : {1, 7, 40, 201}) {
      std::vector<S1> divisors(std::size_t(len), of<S1>(3));
      const std::vector<S2> dividends(std::size_t(len), of<S2>(7));
      std::vector<D> dst(divisors.size());
      EXPECT_EQ(division.call(divisors.data(), dividends.data(), dst.data(), len, 0), zorStatusOk) << division.name;
      for (auto& d : divisors) {
        d = S1{};
        EXPECT_EQ(division.call(divisors.data(), dividends.data(), dst.data(), len, 0), zorWarningDivideByZero);
        d = of<S1>(3);
      }
    }
  });
}

template <class T, class D> void contracts(const char* name, ZorStatus (*div)(const T*, const D*, T*, Zor32s, Zor32s)) {
  const std::vector<T> a(8, of<T>(1));
  const std::vector<D> b(8, of<D>(2));
  std::vector<T> dst(8, of<T>(3));
  kit::Contract(div, a.data(), b.data(), dst.data(), 8, 0)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class T> void contracts(const char* name, ZorStatus (*div)(const T*, T*, Zor32s, Zor32s)) {
  const std::vector<T> a(8, of<T>(1));
  std::vector<T> dst(8, of<T>(3));
  kit::Contract(div, a.data(), dst.data(), 8, 0)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class T>
void contracts(const char* name, ZorStatus (*div)(const T*, const T*, T*, Zor32s, ZorRoundMode, Zor32s),
               ZorStatus (*inPlace)(const T*, T*, Zor32s, ZorRoundMode, Zor32s)) {
  const std::vector<T> a(8, of<T>(1)), b(8, of<T>(2));
  std::vector<T> dst(8, of<T>(3));
  kit::Contract(div, a.data(), b.data(), dst.data(), 8, 1, 0)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<4>({-1, 3, INT32_MAX, INT32_MIN}, zorStatusBadRoundMode)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, a.data(), dst.data(), 8, 1, 0)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .template bad<3>({-1, 3, INT32_MAX, INT32_MIN}, zorStatusBadRoundMode)
      .untouched(dst)
      .verify(name);
}
TEST(DivIntegers, ChecksPointersThenLengthThenTheRoundingMode) {
  contracts("zorsDiv_8u_Sfs", zorsDiv_8u_Sfs);
  contracts("zorsDiv_16s_Sfs", zorsDiv_16s_Sfs);
  contracts("zorsDiv_16u_Sfs", zorsDiv_16u_Sfs);
  contracts("zorsDiv_32s_Sfs", zorsDiv_32s_Sfs);
  contracts("zorsDiv_32s16s_Sfs", zorsDiv_32s16s_Sfs);
  contracts("zorsDiv_16sc_Sfs", zorsDiv_16sc_Sfs);
  contracts("zorsDiv_8u_ISfs", zorsDiv_8u_ISfs);
  contracts("zorsDiv_16s_ISfs", zorsDiv_16s_ISfs);
  contracts("zorsDiv_16u_ISfs", zorsDiv_16u_ISfs);
  contracts("zorsDiv_32s_ISfs", zorsDiv_32s_ISfs);
  contracts("zorsDiv_16sc_ISfs", zorsDiv_16sc_ISfs);
  contracts("zorsDiv_Round_8u_Sfs", zorsDiv_Round_8u_Sfs, zorsDiv_Round_8u_ISfs);
  contracts("zorsDiv_Round_16s_Sfs", zorsDiv_Round_16s_Sfs, zorsDiv_Round_16s_ISfs);
  contracts("zorsDiv_Round_16u_Sfs", zorsDiv_Round_16u_Sfs, zorsDiv_Round_16u_ISfs);
}

TEST(DivIntegers, AZeroDivisorSaturatesByTheSignOfTheDividend) {
  const Zor16s src1[] = {0, 0, 0}, src2[] = {5, -5, 0};
  Zor16s dst[3];
  EXPECT_EQ(zorsDiv_16s_Sfs(src1, src2, dst, 3, 0), zorWarningDivideByZero);
  EXPECT_EQ(dst[0], 32767);
  EXPECT_EQ(dst[1], -32768);
  EXPECT_EQ(dst[2], 0);
}
TEST(DivIntegers, AZeroDivisorSaturatesWhereAllOtherQuotientsVanish) {
  const Zor8u divisors[] = {1, 0}, dividends[] = {255, 3};
  Zor8u dst[2];
  EXPECT_EQ(zorsDiv_8u_Sfs(divisors, dividends, dst, 2, 9), zorWarningDivideByZero);
  EXPECT_EQ(dst[0], 0);
  EXPECT_EQ(dst[1], 255);
}
TEST(DivIntegers, TiesGoToTheEvenNeighbourOrAwayFromZero) {
  const Zor16s src1[] = {2, 2}, src2[] = {5, 7};
  Zor16s dst[2];
  EXPECT_EQ(zorsDiv_16s_Sfs(src1, src2, dst, 2, 0), zorStatusOk);
  EXPECT_EQ(dst[0], 2);
  EXPECT_EQ(dst[1], 4);
  EXPECT_EQ(zorsDiv_Round_16s_Sfs(src1, src2, dst, 2, zorRoundHalfAway, 0), zorStatusOk);
  EXPECT_EQ(dst[0], 3);
  EXPECT_EQ(zorsDiv_Round_16s_Sfs(src1, src2, dst, 2, zorRoundTowardZero, 0), zorStatusOk);
  EXPECT_EQ(dst[0], 2);
}
TEST(DivIntegers, BelowItsRangeA16uScaleSaturatesQuotientsOfOne) {
  const Zor16u src1[] = {65535}, src2[] = {1};
  Zor16u dst[1];
  EXPECT_EQ(zorsDiv_16u_Sfs(src1, src2, dst, 1, -15), zorStatusOk);
  EXPECT_EQ(dst[0], 1);
  EXPECT_EQ(zorsDiv_16u_Sfs(src1, src2, dst, 1, -16), zorStatusOk);
  EXPECT_EQ(dst[0], 65535);
}

}  // namespace
