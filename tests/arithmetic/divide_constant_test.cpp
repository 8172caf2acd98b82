#include "arithmetic/quotient_model.h"
#include "zors/arithmetic.h"

namespace {

using kit::sweep;
using kit::sweepInPlace;
using quotient::exact;

// Divisions by a constant, with the scale factors below which only the sign counts and above which all are zeros.
template <class T> struct Division {
  const char* name;
  int least, most;
  ZorStatus (*call)(const T*, T, T*, Zor32s, Zor32s);
  ZorStatus (*inPlace)(T, T*, Zor32s, Zor32s);
  T model(T n, T divisor, int scale) const {
    if (scale > most) return T{};
    if constexpr (kit::ComplexPair<T>)
      return exact(n, divisor, scale, least);
    else
      return exact<T>(n, divisor, scale, least);
  }
};
constexpr Division<Zor8u> division8u{"DivC 8u", -15, 8, zorsDivC_8u_Sfs, zorsDivC_8u_ISfs};
constexpr Division<Zor16s> division16s{"DivC 16s", -30, 15, zorsDivC_16s_Sfs, zorsDivC_16s_ISfs};
constexpr Division<Zor16u> division16u{"DivC 16u", -30, 15, zorsDivC_16u_Sfs, zorsDivC_16u_ISfs};
constexpr Division<Zor16sc> division16sc{"DivC 16sc", -16, 32, zorsDivC_16sc_Sfs, zorsDivC_16sc_ISfs};

template <class Test> void forEachDivision(Test test) {
  test(division8u);
  test(division16s);
  test(division16u);
  test(division16sc);
}

template <class T> void compare(const Division<T>& division, const std::vector<T>& src, T val, int scale) {
  std::vector<T> got(src.size());
  ASSERT_EQ(division.call(src.data(), val, got.data(), Zor32s(got.size()), scale), zorStatusOk);
  for (std::size_t i = 0; i < got.size(); ++i) {
    const T wanted = division.model(src[i], val, scale);
    ASSERT_TRUE(kit::sameBits(got[i], wanted))
        << division.name << ": " << kit::text(src[i]) << " / " << kit::text(val) << " at scale " << scale << ", got "
        << kit::text(got[i]) << ", wanted " << kit::text(wanted);
  }
}

template <class T> void everyElement(const Division<T>& division, const std::vector<T>& constants) {
  const auto all = quotient::everyValue<T>();
  for (int scale : quotient::narrowScales())
    for (T val : constants) {
      if (val != 0) compare(division, all, val, scale);
      if (testing::Test::HasFatalFailure()) return;
    }
}
TEST(DivC, EveryShortElementAtEveryScale) {
  everyElement(division8u, quotient::everyValue<Zor8u>());
  everyElement(division16s, quotient::tellingValues<Zor16s>());
  everyElement(division16u, quotient::tellingValues<Zor16u>());
}
TEST(DivC, AnyElementsAndConstantsInAnyRoundingDirection) {
  kit::Random random(2);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    forEachDivision([&]<class T>(const Division<T>& division) {
      for (int scale : quotient::allScales())
        for (int i = 0; i < 20; ++i) {
          const T val = kit::anyValue<T>(random);
          if (!quotient::isZero(val)) compare(division, kit::anyValues<T>(200, random), val, scale);
          if (testing::Test::HasFatalFailure()) return;
        }
    });
  }
}
TEST(DivC, AllLengthsAndPlaces) {
  forEachDivision([]<class T>(const Division<T>& division) {
    kit::Random random(3);
    for (int scale : {0, -9, 3, 40}) {
      T val{};
      while (quotient::isZero(val)) val = kit::anyValue<T>(random);
      const auto model = [&](T n) { return division.model(n, val, scale); };
      sweep<T, T>(
          division.name, [&](const T* src, T* dst, Zor32s len) { return division.call(src, val, dst, len, scale); },
          model);
      sweepInPlace<T>(
          division.name, [&](T* srcDst, Zor32s len) { return division.inPlace(val, srcDst, len, scale); }, model);
    }
  });
}

TEST(DivC, ChecksPointersThenLengthThenTheDivisor) {
  forEachDivision([]<class T>(const Division<T>& division) {
    for (Zor32s scale : {0, 100, -100}) {
      kit::Random random(4);
      const auto src = kit::anyValues<T>(8, random);
      auto dst = kit::anyValues<T>(8, random);
      T val{};
      while (quotient::isZero(val)) val = kit::anyValue<T>(random);
      kit::Contract(division.call, src.data(), val, dst.data(), 8, scale)
          .template null<0>()
          .template null<2>()
          .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
          .template bad<1>({T{}}, zorStatusDivideByZero)
          .untouched(dst)
          .verify(division.name);
      kit::Contract(division.inPlace, val, dst.data(), 8, scale)
          .template null<1>()
          .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
          .template bad<0>({T{}}, zorStatusDivideByZero)
          .untouched(dst)
          .verify(division.name);
    }
  });
}
TEST(DivC, A16uScaleOf16GivesZerosThough65535WouldRoundToOne) {
  const Zor16u src[] = {65535, 32769};
  Zor16u dst[] = {7, 7};
  EXPECT_EQ(zorsDivC_16u_Sfs(src, 1, dst, 2, 16), zorStatusOk);
  EXPECT_EQ(dst[0], 0);
  EXPECT_EQ(dst[1], 0);
}
TEST(DivC, BelowAScaleOfMinus30A16uElementSaturatesAndAZeroStays) {
  Zor16u srcDst[] = {1, 0};
  EXPECT_EQ(zorsDivC_16u_ISfs(65535, srcDst, 2, -31), zorStatusOk);
  EXPECT_EQ(srcDst[0], 65535);
  EXPECT_EQ(srcDst[1], 0);
}

// ---- 64 bits ------------------------------------------------------------------------------------

void compare64(const std::vector<Zor64s>& src, Zor64s val, int scale) {
  auto got = src;
  ASSERT_EQ(zorsDivC_64s_ISfs(val, got.data(), Zor32s(got.size()), scale),
            val == 0 ? zorWarningDivideByZero : zorStatusOk);
  for (std::size_t i = 0; i < got.size(); ++i)
    ASSERT_EQ(got[i], exact<Zor64s>(src[i], val, scale)) << src[i] << " / " << val << " at scale " << scale;
}
TEST(DivC64s, AnyElementsByAnyConstantAtEveryScale) {
  kit::Random random(5);
  auto scales = quotient::allScales();
  for (int scale = -140; scale < -70; ++scale) scales.push_back(scale);
  for (int scale : scales)
    for (int i = 0; i < 60; ++i) {
      const int bits = int(random() % 64);
      const auto val = i == 0 ? 0 : i == 1 ? INT64_MIN : kit::anyValue<Zor64s>(random) >> bits;
      auto src = kit::anyValues<Zor64s>(100, random);
      for (std::size_t k = 0; k < src.size(); k += 2) src[k] >>= random() % 64;
      compare64(src, val, scale);
      if (HasFatalFailure()) return;
    }
}
TEST(DivC64s, TiesAndTheirNeighbours) {
  kit::Random random(6);
  for (int scale = 0; scale < 63; ++scale)
    for (int i = 0; i < 200; ++i) {
      const auto val = Zor64s(1 + random() % (Zor64u{1} << (1 + random() % Zor64u(62 - std::min(scale, 61)))));
      const Zor64u divisor = Zor64u(val) << scale;
      std::vector<Zor64s> src;
      for (int k = 0; k < 30; ++k) {
        const Zor64u odd = random() % ((Zor64u{1} << 62) / divisor + 1) * 2 + 1;
        const auto n = Zor64s(std::min<Zor64u>(odd * (divisor / 2) + divisor % 2 * (odd / 2), INT64_MAX - 1));
        for (int off = -1; off <= 1; ++off) src.push_back(n + off), src.push_back(-n + off);
      }
      compare64(src, random() % 2 ? val : -val, scale);
      if (HasFatalFailure()) return;
    }
}
TEST(DivC64s, QuotientsAsCloseToAHalfAsThereAre) {
  kit::Random random(7);
  for (int scale = -127; scale < 0; ++scale)
    for (int i = 0; i < 300; ++i) {
      const auto d = random() >> (1 + random() % 62) | 1;
      std::vector<Zor64s> src;
      for (bool above : {false, true}) {
        const auto n = Zor64s(quotient::nearHalf(d, -scale, above));
        src.insert(src.end(), {n, -n, n / 3, n - 1});
      }
      compare64(src, random() % 2 ? Zor64s(d) : -Zor64s(d), scale);
      if (HasFatalFailure()) return;
    }
}
TEST(DivC64s, AllLengthsAndPlaces) {
  for (const auto& [val, scale] : {std::pair<Zor64s, int>{-7, 0}, {1, 0}, {-1, 0}, {3, -5}, {10, 64}})
    sweepInPlace<Zor64s>(
        "zorsDivC_64s_ISfs",
        [v = val, s = scale](Zor64s* srcDst, Zor32s len) { return zorsDivC_64s_ISfs(v, srcDst, len, s); },
        [v = val, s = scale](Zor64s x) { return exact<Zor64s>(x, v, s); });
}
TEST(DivC64s, ChecksThePointerThenLengthAndWarnsOfAZeroDivisor) {
  std::vector<Zor64s> data(8, 3);
  kit::Contract(zorsDivC_64s_ISfs, 0, data.data(), 8, 0)
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(data)
      .verify("zorsDivC_64s_ISfs");
  Zor64s srcDst[] = {5, -5, 0, INT64_MIN};
  EXPECT_EQ(zorsDivC_64s_ISfs(0, srcDst, 4, 70), zorWarningDivideByZero);
  EXPECT_EQ(srcDst[0], INT64_MAX);
  EXPECT_EQ(srcDst[1], INT64_MIN);
  EXPECT_EQ(srcDst[2], 0);
  EXPECT_EQ(srcDst[3], INT64_MIN);
}

// ---- Constants by elements ----------------------------------------------------------------------

TEST(DivCRev, EverySixteenBitElement) {
  auto all = quotient::everyValue<Zor16u>();
  std::vector<Zor16u> got(all.size());
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (Zor16u val : quotient::tellingValues<Zor16u>()) {
      ASSERT_EQ(zorsDivCRev_16u(all.data(), val, got.data(), 65536), zorWarningDivideByZero);
      for (std::size_t i = 0; i < all.size(); ++i)
        ASSERT_EQ(got[i], exact<Zor16u>(val, all[i], 0)) << val << " / " << i;
      ASSERT_EQ(zorsDivCRev_16u(all.data() + 1, val, got.data() + 1, 65535), zorStatusOk);
    }
  }
}
TEST(DivCRev, AllLengthsAndPlaces) {
  for (Zor16u val : std::initializer_list<Zor16u>{0, 1, 50000}) {
    const auto model = [val](Zor16u x) { return exact<Zor16u>(val, x, 0); };
    sweep<Zor16u, Zor16u>(
        "zorsDivCRev_16u",
        [val](const Zor16u* src, Zor16u* dst, Zor32s len) {
          const ZorStatus wanted = quotient::statusFor(src, len);
          return quotient::successIf(zorsDivCRev_16u(src, val, dst, len), wanted);
        },
        model);
    sweepInPlace<Zor16u>(
        "zorsDivCRev_16u_I",
        [val](Zor16u* srcDst, Zor32s len) {
          const ZorStatus wanted = quotient::statusFor(srcDst, len);
          return quotient::successIf(zorsDivCRev_16u_I(val, srcDst, len), wanted);
        },
        model);
  }
}
TEST(DivCRev, ChecksPointersThenLength) {
  const std::vector<Zor16u> src(8, 1);
  std::vector<Zor16u> dst(8, 3);
  kit::Contract(zorsDivCRev_16u, src.data(), 2, dst.data(), 8)
      .null<0>()
      .null<2>()
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsDivCRev_16u");
  kit::Contract(zorsDivCRev_16u_I, 2, dst.data(), 8)
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsDivCRev_16u_I");
}

}  // namespace
