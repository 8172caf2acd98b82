// Sums and differences of a vector and a constant.
#include "kit/scale_model.h"
#include "zors/arithmetic.h"

namespace {

using scale::contract;
using scale::Exact;
using scale::First;
using scale::membersWithConstant;
using scale::ruleWith;

struct FromConstant {
  auto operator()(auto x, auto val) const { return scale::Minus{}(val, x); }
};

TEST(AddC, FollowsTheScaleRule) {
  const scale::Plus plus;
  // One scale factor earlier than the rule, bytes give nothing but 0.
  membersWithConstant("zorsAddC_8u_Sfs, zorsAddC_8u_ISfs", zorsAddC_8u_Sfs, zorsAddC_8u_ISfs, [](Zor8u val) {
    return
        [=](Zor32s s) { return [=](Zor8u x) { return s > 8 ? Zor8u{0} : scale::scaled<Zor8u>(Exact{x} + val, s); }; };
  });
  membersWithConstant("zorsAddC_16s_Sfs, zorsAddC_16s_ISfs", zorsAddC_16s_Sfs, zorsAddC_16s_ISfs,
                      ruleWith<Zor16s>(plus));
  membersWithConstant("zorsAddC_16u_Sfs, zorsAddC_16u_ISfs", zorsAddC_16u_Sfs, zorsAddC_16u_ISfs,
                      ruleWith<Zor16u>(plus));
  membersWithConstant("zorsAddC_32s_Sfs, zorsAddC_32s_ISfs", zorsAddC_32s_Sfs, zorsAddC_32s_ISfs,
                      ruleWith<Zor32s>(plus));
  membersWithConstant("zorsAddC_16sc_Sfs, zorsAddC_16sc_ISfs", zorsAddC_16sc_Sfs, zorsAddC_16sc_ISfs,
                      ruleWith<Zor16sc>(plus));
  membersWithConstant("zorsAddC_32sc_Sfs, zorsAddC_32sc_ISfs", zorsAddC_32sc_Sfs, zorsAddC_32sc_ISfs,
                      ruleWith<Zor32sc>(plus));
}
TEST(SubC, FollowsTheScaleRule) {
  const scale::Minus minus;
  membersWithConstant("zorsSubC_8u_Sfs, zorsSubC_8u_ISfs", zorsSubC_8u_Sfs, zorsSubC_8u_ISfs, ruleWith<Zor8u>(minus));
  membersWithConstant("zorsSubC_16s_Sfs, zorsSubC_16s_ISfs", zorsSubC_16s_Sfs, zorsSubC_16s_ISfs,
                      ruleWith<Zor16s>(minus));
  membersWithConstant("zorsSubC_16u_Sfs, zorsSubC_16u_ISfs", zorsSubC_16u_Sfs, zorsSubC_16u_ISfs,
                      ruleWith<Zor16u>(minus));
  membersWithConstant("zorsSubC_32s_Sfs, zorsSubC_32s_ISfs", zorsSubC_32s_Sfs, zorsSubC_32s_ISfs,
                      ruleWith<Zor32s>(minus));
  membersWithConstant("zorsSubC_16sc_Sfs, zorsSubC_16sc_ISfs", zorsSubC_16sc_Sfs, zorsSubC_16sc_ISfs,
                      ruleWith<Zor16sc>(minus));
  membersWithConstant("zorsSubC_32sc_Sfs, zorsSubC_32sc_ISfs", zorsSubC_32sc_Sfs, zorsSubC_32sc_ISfs,
                      ruleWith<Zor32sc>(minus));
}
TEST(SubCRev, FollowsTheScaleRule) {
  const FromConstant minus;
  membersWithConstant("zorsSubCRev_8u_Sfs, zorsSubCRev_8u_ISfs", zorsSubCRev_8u_Sfs, zorsSubCRev_8u_ISfs,
                      ruleWith<Zor8u>(minus));
  membersWithConstant("zorsSubCRev_16s_Sfs, zorsSubCRev_16s_ISfs", zorsSubCRev_16s_Sfs, zorsSubCRev_16s_ISfs,
                      ruleWith<Zor16s>(minus));
  membersWithConstant("zorsSubCRev_16u_Sfs, zorsSubCRev_16u_ISfs", zorsSubCRev_16u_Sfs, zorsSubCRev_16u_ISfs,
                      ruleWith<Zor16u>(minus));
  membersWithConstant("zorsSubCRev_32s_Sfs, zorsSubCRev_32s_ISfs", zorsSubCRev_32s_Sfs, zorsSubCRev_32s_ISfs,
                      ruleWith<Zor32s>(minus));
  membersWithConstant("zorsSubCRev_16sc_Sfs, zorsSubCRev_16sc_ISfs", zorsSubCRev_16sc_Sfs, zorsSubCRev_16sc_ISfs,
                      ruleWith<Zor16sc>(minus));
  membersWithConstant("zorsSubCRev_32sc_Sfs, zorsSubCRev_32sc_ISfs", zorsSubCRev_32sc_Sfs, zorsSubCRev_32sc_ISfs,
                      ruleWith<Zor32sc>(minus));
}

// Every element of 16 bits, with extreme constants.
template <class T, class Op>
void allElements(const char* name, ZorStatus (*f)(const T*, T, T*, Zor32s, Zor32s), Op op) {
  std::vector<T> src(65536), got(65536), wanted(65536);
  for (std::size_t i = 0; i < src.size(); ++i) src[i] = T(i);
  for (T val : scale::constants<T>())
    for (Zor32s s = -17; s <= 18; ++s) {
      for (std::size_t i = 0; i < src.size(); ++i) wanted[i] = scale::scaled<T>(op(src[i], val), s);
      ASSERT_EQ(f(src.data(), val, got.data(), 65536, s), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<T>(got, wanted), "") << scale::at(name, s);
    }
}
TEST(AddC, EveryElementOf16Bits) {
  allElements("zorsAddC_16s_Sfs", zorsAddC_16s_Sfs, scale::Plus{});
  allElements("zorsAddC_16u_Sfs", zorsAddC_16u_Sfs, scale::Plus{});
  allElements("zorsSubC_16s_Sfs", zorsSubC_16s_Sfs, scale::Minus{});
  allElements("zorsSubC_16u_Sfs", zorsSubC_16u_Sfs, scale::Minus{});
  allElements("zorsSubCRev_16s_Sfs", zorsSubCRev_16s_Sfs, FromConstant{});
  allElements("zorsSubCRev_16u_Sfs", zorsSubCRev_16u_Sfs, FromConstant{});
}

// t / 2^s for s of 1 to 100, rounded as rnd says.
Exact rounded(Exact t, Zor32s s, ZorRoundMode rnd) {
  const Exact magnitude = t < 0 ? -t : t, quotient = magnitude >> s, rest = magnitude - (quotient << s),
              half = Exact{1} << (s - 1);
  const bool up = rnd == zorRoundTowardZero    ? false
                  : rnd == zorRoundNearestEven ? rest > half || (rest == half && (quotient & 1) != 0)
                                               : rest >= half;
  return (t < 0 ? -1 : 1) * (quotient + up);
}
template <class T> void roundedSums(const char* name, ZorStatus (*f)(const T*, T, T*, Zor32u, ZorRoundMode, Zor32s)) {
  kit::Random random(1);
  std::vector<T> src = kit::anyValues<T>(1000, random);
  src.push_back(std::numeric_limits<T>::min());
  src.push_back(std::numeric_limits<T>::max());
  for (T val : scale::constants<T>())
    for (ZorRoundMode rnd : {0, 1, 2, 3, -1})
      for (Zor32s s : scale::allScales()) {
        const auto model = [=](T x) {
          const Exact t = Exact{x} + val;
          return s > 100 ? T{0} : s > 0 ? scale::saturated<T>(rounded(t, s, rnd)) : scale::scaled<T>(t, s);
        };
        std::vector<T> got(src.size()), wanted;
        for (T x : src) wanted.push_back(model(x));
        ASSERT_EQ(f(src.data(), val, got.data(), Zor32u(src.size()), rnd, s), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(got, wanted), "") << scale::at(name, s) << ", rnd " << rnd << ", val " << val;
        if (s == 3 && val == 3)
          kit::sweep<T, T>(
              name, [=](const T* x, T* d, Zor32s len) { return f(x, val, d, Zor32u(len), rnd, s); }, model);
      }
}
TEST(AddC, SixtyFourBitSumsRoundInEveryMode) {
  roundedSums("zorsAddC_64s_Sfs", zorsAddC_64s_Sfs);
  roundedSums("zorsAddC_64u_Sfs", zorsAddC_64u_Sfs);
}

TEST(AddC, MembersWithoutScaleSaturate) {
  for (Zor16s val : scale::constants<Zor16s>()) {
    kit::sweepInPlace<Zor16s>(
        "zorsAddC_16s_I", [=](Zor16s* d, Zor32s len) { return zorsAddC_16s_I(val, d, len); },
        [=](Zor16s x) { return scale::saturated<Zor16s>(Exact{x} + val); });
    kit::sweepInPlace<Zor16s>(
        "zorsSubC_16s_I", [=](Zor16s* d, Zor32s len) { return zorsSubC_16s_I(val, d, len); },
        [=](Zor16s x) { return scale::saturated<Zor16s>(Exact{x} - val); });
  }
}

template <class T> std::vector<T> floatConstants() {
  if constexpr (kit::ComplexPair<T>) {
    std::vector<T> out;
    for (auto re : floatConstants<decltype(T::re)>()) out.push_back({re, decltype(T::re)(-0.75)});
    return out;
  } else {
    using L = std::numeric_limits<T>;
    return {T(0), T(-0.0), T(1), T(-0.1), L::denorm_min(), L::max(), L::infinity(), L::quiet_NaN()};
  }
}
template <class T, class Op>
void floats(const char* name, ZorStatus (*f)(const T*, T, T*, Zor32s), ZorStatus (*inPlace)(T, T*, Zor32s), Op op) {
  for (T val : floatConstants<T>())
    scale::sweepOverOne<T>(
        name, [=](const T* x, T* d, Zor32s len) { return f(x, val, d, len); },
        [=](T* d, Zor32s len) { return inPlace(val, d, len); }, [=](T x) { return op(x, val); }, kit::sweepLengths());
}
const auto plus = []<class T>(T a, T b) -> T {
  if constexpr (kit::ComplexPair<T>)
    return {a.re + b.re, a.im + b.im};
  else
    return a + b;
};
const auto minus = []<class T>(T a, T b) -> T {
  if constexpr (kit::ComplexPair<T>)
    return {a.re - b.re, a.im - b.im};
  else
    return a - b;
};
const auto reverseMinus = []<class T>(T a, T b) { return minus(b, a); };

TEST(AddC, FloatsRoundOnceInTheCurrentDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    floats("zorsAddC_32f, zorsAddC_32f_I", zorsAddC_32f, zorsAddC_32f_I, plus);
    floats("zorsAddC_64f, zorsAddC_64f_I", zorsAddC_64f, zorsAddC_64f_I, plus);
    floats("zorsAddC_32fc, zorsAddC_32fc_I", zorsAddC_32fc, zorsAddC_32fc_I, plus);
    floats("zorsAddC_64fc, zorsAddC_64fc_I", zorsAddC_64fc, zorsAddC_64fc_I, plus);
    floats("zorsSubC_32f, zorsSubC_32f_I", zorsSubC_32f, zorsSubC_32f_I, minus);
    floats("zorsSubC_64f, zorsSubC_64f_I", zorsSubC_64f, zorsSubC_64f_I, minus);
    floats("zorsSubC_32fc, zorsSubC_32fc_I", zorsSubC_32fc, zorsSubC_32fc_I, minus);
    floats("zorsSubC_64fc, zorsSubC_64fc_I", zorsSubC_64fc, zorsSubC_64fc_I, minus);
    floats("zorsSubCRev_32f, zorsSubCRev_32f_I", zorsSubCRev_32f, zorsSubCRev_32f_I, reverseMinus);
    floats("zorsSubCRev_64f, zorsSubCRev_64f_I", zorsSubCRev_64f, zorsSubCRev_64f_I, reverseMinus);
    floats("zorsSubCRev_32fc, zorsSubCRev_32fc_I", zorsSubCRev_32fc, zorsSubCRev_32fc_I, reverseMinus);
    floats("zorsSubCRev_64fc, zorsSubCRev_64fc_I", zorsSubCRev_64fc, zorsSubCRev_64fc_I, reverseMinus);
  }
}

template <class T> T one(ZorStatus (*f)(const T*, T, T*, Zor32s, Zor32s), T x, T val, Zor32s s) {
  T d{};
  EXPECT_EQ(f(&x, val, &d, 1, s), zorStatusOk);
  return d;
}
TEST(AddC, BytesVanishAtScaleNine) { EXPECT_EQ(one<Zor8u>(zorsAddC_8u_Sfs, 255, 255, 9), 0); }
TEST(AddC, EveryUnsignedSumSaturatesAtScaleMinusSixteen) {
  EXPECT_EQ(one<Zor16u>(zorsAddC_16u_Sfs, 0, 1, -16), 65535);
  EXPECT_EQ(one<Zor16u>(zorsAddC_16u_Sfs, 7, 1, -16), 65535);
}
TEST(SubC, TheReverseSubtractsFromTheConstant) {
  EXPECT_EQ(one<Zor8u>(zorsSubCRev_8u_Sfs, 5, 3, 0), 0);
  EXPECT_EQ(one<Zor8u>(zorsSubC_8u_Sfs, 5, 3, 0), 2);
}

TEST(AddC, ChecksPointersThenLength) {
#define CHECK(...) [](auto... f) { (contract(First::pointers, #__VA_ARGS__, f), ...); }(__VA_ARGS__)
  CHECK(zorsAddC_8u_Sfs, zorsAddC_16s_Sfs, zorsAddC_16u_Sfs, zorsAddC_32s_Sfs, zorsAddC_16sc_Sfs, zorsAddC_32sc_Sfs,
        zorsAddC_8u_ISfs, zorsAddC_16s_ISfs, zorsAddC_16u_ISfs, zorsAddC_32s_ISfs, zorsAddC_16sc_ISfs,
        zorsAddC_32sc_ISfs, zorsAddC_16s_I, zorsAddC_64s_Sfs, zorsAddC_64u_Sfs, zorsAddC_32f, zorsAddC_64f,
        zorsAddC_32fc, zorsAddC_64fc, zorsAddC_32f_I, zorsAddC_64f_I, zorsAddC_32fc_I, zorsAddC_64fc_I);
  CHECK(zorsSubC_8u_Sfs, zorsSubC_16s_Sfs, zorsSubC_16u_Sfs, zorsSubC_32s_Sfs, zorsSubC_16sc_Sfs, zorsSubC_32sc_Sfs,
        zorsSubC_8u_ISfs, zorsSubC_16s_ISfs, zorsSubC_16u_ISfs, zorsSubC_32s_ISfs, zorsSubC_16sc_ISfs,
        zorsSubC_32sc_ISfs, zorsSubC_16s_I, zorsSubC_32f, zorsSubC_64f, zorsSubC_32fc, zorsSubC_64fc, zorsSubC_32f_I,
        zorsSubC_64f_I, zorsSubC_32fc_I, zorsSubC_64fc_I);
  CHECK(zorsSubCRev_8u_Sfs, zorsSubCRev_16s_Sfs, zorsSubCRev_16u_Sfs, zorsSubCRev_32s_Sfs, zorsSubCRev_16sc_Sfs,
        zorsSubCRev_32sc_Sfs, zorsSubCRev_8u_ISfs, zorsSubCRev_16s_ISfs, zorsSubCRev_16u_ISfs, zorsSubCRev_32s_ISfs,
        zorsSubCRev_16sc_ISfs, zorsSubCRev_32sc_ISfs, zorsSubCRev_32f, zorsSubCRev_64f, zorsSubCRev_32fc,
        zorsSubCRev_64fc, zorsSubCRev_32f_I, zorsSubCRev_64f_I, zorsSubCRev_32fc_I, zorsSubCRev_64fc_I);
#undef CHECK
}

}  // namespace
