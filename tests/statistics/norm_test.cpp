#include "statistics/models.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;
using kit::Sums;

// ---- Floats -------------------------------------------------------------------------------------

template <class T> constexpr std::size_t lanesOf = 32 / sizeof(T);

// Running maxima of L lanes: a maximum stays where it compares greater than the next value; joined the same way.
template <class T> T greatest(const std::vector<T>& x) {
  std::vector<T> lanes(lanesOf<T>);
  for (std::size_t k = 0; k < x.size(); ++k) {
    T& best = lanes[k % lanes.size()];
    best = best > x[k] ? best : x[k];
  }
  for (std::size_t half = lanes.size() / 2; half > 0; half /= 2)
    for (std::size_t j = 0; j < half; ++j) lanes[j] = lanes[j] > lanes[j + half] ? lanes[j] : lanes[j + half];
  return lanes[0];
}
template <class T> Sums<T> sums(std::size_t n, const std::vector<T>& x) {
  Sums<T> out(n);
  for (std::size_t k = 0; k < x.size(); ++k) out.add(k, x[k]);
  return out;
}
template <class T, class F> auto each(const std::vector<T>& x, F f) {
  std::vector<decltype(f(x[0]))> out;
  for (const T& v : x) out.push_back(f(v));
  return out;
}

template <class T> T inf(const std::vector<T>& x) {
  return greatest(each(x, [](T v) { return std::abs(v); }));
}
template <class T> T l1(const std::vector<T>& x) {
  return sums(lanesOf<T>, each(x, [](T v) { return std::abs(v); })).folded();
}
template <class T> T l2(const std::vector<T>& x) {
  return std::sqrt(sums(lanesOf<T>, each(x, [](T v) { return v * v; })).folded());
}
template <class C> auto squares(const std::vector<C>& x) {
  return each(x, [](C z) { return z.re * z.re + z.im * z.im; });
}
template <class C> auto infOfPairs(const std::vector<C>& x) { return std::sqrt(greatest(squares(x))); }
template <class C> Zor64f l1OfPairs(const std::vector<C>& x) {
  using T = decltype(C::re);
  return sums(lanesOf<T>, each(squares(x), [](T v) { return std::sqrt(v); })).template widened<Zor64f>().folded();
}
template <class C> Zor64f l2OfPairs(const std::vector<C>& x) {
  using T = decltype(C::re);
  std::vector<T> components;
  for (const C& z : x) components.push_back(z.re * z.re), components.push_back(z.im * z.im);
  return std::sqrt(sums(2 * lanesOf<T>, components).template widened<Zor64f>().folded());
}

template <class T> T difference(T a, T b) {
  if constexpr (kit::ComplexPair<T>)
    return {a.re - b.re, a.im - b.im};
  else
    return a - b;
}

template <class T, class R>
void check(const char* name, ZorStatus (*norm)(const T*, Zor32s, R*),
           ZorStatus (*normDiff)(const T*, const T*, Zor32s, R*), R (*model)(const std::vector<T>&)) {
  kit::Random random(21);
  std::vector<int> lengths = kit::sweepLengths();
  lengths.push_back(5003);
  for (int len : lengths)
    for (int kind : {0, 1, 2}) {
      const auto make = [&] {
        auto x = kind == 0 ? kit::anyValues<T>(std::size_t(len), random) : kit::spread<T>(std::size_t(len), random);
        if (kind == 2) std::memcpy(&x[random() % x.size()], &std::as_const(kit::anyValues<T>(1, random)[0]), sizeof(T));
        return x;
      };
      const auto a = make(), b = make();
      std::vector<T> differences;
      for (std::size_t i = 0; i < a.size(); ++i) differences.push_back(difference(a[i], b[i]));
      const Edge edge = random() % 2 ? Edge::begin : Edge::end;
      const kit::Placed<T> src1(a, edge, random() % 33), src2(b, edge, random() % 33);
      R result{};
      ASSERT_EQ(norm(src1.data(), len, &result), zorStatusOk);
      ASSERT_TRUE(kit::sameBits(result, model(a)))
          << name << ", len " << len << ": " << kit::text(result) << ", wanted " << kit::text(model(a));
      ASSERT_EQ(normDiff(src1.data(), src2.data(), len, &result), zorStatusOk);
      ASSERT_TRUE(kit::sameBits(result, model(differences)))
          << name << " of a difference, len " << len << ": " << kit::text(result);
    }
  const std::vector<T> x(4), y(4);
  R result{};
  kit::Contract(norm, x.data(), 4, &result)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
  kit::Contract(normDiff, x.data(), y.data(), 4, &result)
      .template null<0>()
      .template null<1>()
      .template null<3>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
}

TEST(Norm, FloatsInTheStatedLanesUnderEveryDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    check<Zor32f, Zor32f>("zorsNorm_Inf_32f, zorsNormDiff_Inf_32f", zorsNorm_Inf_32f, zorsNormDiff_Inf_32f, inf);
    check<Zor64f, Zor64f>("zorsNorm_Inf_64f, zorsNormDiff_Inf_64f", zorsNorm_Inf_64f, zorsNormDiff_Inf_64f, inf);
    check<Zor32fc, Zor32f>("zorsNorm_Inf_32fc32f, zorsNormDiff_Inf_32fc32f", zorsNorm_Inf_32fc32f,
                           zorsNormDiff_Inf_32fc32f, infOfPairs);
    check<Zor64fc, Zor64f>("zorsNorm_Inf_64fc64f, zorsNormDiff_Inf_64fc64f", zorsNorm_Inf_64fc64f,
                           zorsNormDiff_Inf_64fc64f, infOfPairs);
    check<Zor32f, Zor32f>("zorsNorm_L1_32f, zorsNormDiff_L1_32f", zorsNorm_L1_32f, zorsNormDiff_L1_32f, l1);
    check<Zor64f, Zor64f>("zorsNorm_L1_64f, zorsNormDiff_L1_64f", zorsNorm_L1_64f, zorsNormDiff_L1_64f, l1);
    check<Zor32fc, Zor64f>("zorsNorm_L1_32fc64f, zorsNormDiff_L1_32fc64f", zorsNorm_L1_32fc64f, zorsNormDiff_L1_32fc64f,
                           l1OfPairs);
    check<Zor64fc, Zor64f>("zorsNorm_L1_64fc64f, zorsNormDiff_L1_64fc64f", zorsNorm_L1_64fc64f, zorsNormDiff_L1_64fc64f,
                           l1OfPairs);
    check<Zor32f, Zor32f>("zorsNorm_L2_32f, zorsNormDiff_L2_32f", zorsNorm_L2_32f, zorsNormDiff_L2_32f, l2);
    check<Zor64f, Zor64f>("zorsNorm_L2_64f, zorsNormDiff_L2_64f", zorsNorm_L2_64f, zorsNormDiff_L2_64f, l2);
    check<Zor32fc, Zor64f>("zorsNorm_L2_32fc64f, zorsNormDiff_L2_32fc64f", zorsNorm_L2_32fc64f, zorsNormDiff_L2_32fc64f,
                           l2OfPairs);
    check<Zor64fc, Zor64f>("zorsNorm_L2_64fc64f, zorsNormDiff_L2_64fc64f", zorsNorm_L2_64fc64f, zorsNormDiff_L2_64fc64f,
                           l2OfPairs);
  }
}

TEST(Norm, ANanGivesWayToTheNextElementOfItsLane) {
  std::vector<Zor32f> x(16, 1);
  x[3] = std::numeric_limits<Zor32f>::quiet_NaN();
  Zor32f norm = 0;
  ASSERT_EQ(zorsNorm_Inf_32f(x.data(), 16, &norm), zorStatusOk);
  EXPECT_EQ(norm, 1);
  ASSERT_EQ(zorsNorm_Inf_32f(x.data(), 8, &norm), zorStatusOk);
  EXPECT_FALSE(norm > 0 && norm < 1);
  x[15] = x[3];
  ASSERT_EQ(zorsNorm_Inf_32f(x.data(), 16, &norm), zorStatusOk);
  EXPECT_TRUE(std::isnan(norm));
}

// ---- Integers -----------------------------------------------------------------------------------

struct Exact {
  __int128 inf = 0, l1 = 0, l2 = 0;
};
template <class Get> Exact exactNorms(std::size_t len, Get get) {
  Exact out;
  for (std::size_t i = 0; i < len; ++i) {
    const __int128 x = get(i), magnitude = x < 0 ? -x : x;
    out.inf = std::max(out.inf, magnitude), out.l1 += magnitude, out.l2 += x * x;
  }
  return out;
}

__int128 shifted(__int128 x, long s, __int128 top) {
  if (s > 0) x = s > 63 ? 0 : x >> s;
  for (; s < 0 && x <= top && x != 0; ++s) x *= 2;
  return std::min(x, top);
}
Zor32s scaled32(__int128 x, int s) { return Zor32s(shifted(x, s, INT32_MAX)); }
Zor64s scaled64(__int128 x, int s) { return Zor64s(shifted(x, s, INT64_MAX)); }
Zor32s scaledRoot(__int128 squares, int s) {
  const auto power = [](unsigned count) { return double(std::bit_cast<Zor32s>(Zor32u{1} << count % 32)); };
  double root = std::sqrt(double(squares));
  if (s > 0) root /= power(unsigned(s));
  if (s < 0) root *= power(0u - unsigned(s));
  return root > 2147483647.0 ? INT32_MAX : root < -2147483648.0 ? INT32_MIN : Zor32s(root);
}

void checkIntegers(const std::vector<Zor16s>& a, const std::vector<Zor16s>& b, std::span<const int> factors) {
  const int len = int(a.size());
  const Edge edge = len % 2 ? Edge::begin : Edge::end;
  const kit::Placed<Zor16s> x(a, edge, a.size() % 32), y(b, edge, a.size() % 7);
  const Exact one = exactNorms(a.size(), [&](std::size_t i) { return a[i]; });
  const Exact diff = exactNorms(a.size(), [&](std::size_t i) { return a[i] - b[i]; });
  const std::string where = ", len " + std::to_string(len);
  const auto floats = [&](const char* name, ZorStatus (*norm)(const Zor16s*, Zor32s, Zor32f*),
                          ZorStatus (*normDiff)(const Zor16s*, const Zor16s*, Zor32s, Zor32f*), __int128 Exact::*member,
                          bool root) {
    const auto wanted = [&](const Exact& exact) {
      return root ? Zor32f(std::sqrt(double(exact.*member))) : Zor32f(Zor64s(exact.*member));
    };
    Zor32f result = -1;
    ASSERT_EQ(norm(x.data(), len, &result), zorStatusOk);
    ASSERT_EQ(result, wanted(one)) << name << where;
    ASSERT_EQ(normDiff(x.data(), y.data(), len, &result), zorStatusOk);
    ASSERT_EQ(result, wanted(diff)) << name << " of a difference" << where;
  };
  floats("zorsNorm_Inf_16s32f, zorsNormDiff_Inf_16s32f", zorsNorm_Inf_16s32f, zorsNormDiff_Inf_16s32f, &Exact::inf,
         false);
  floats("zorsNorm_L1_16s32f, zorsNormDiff_L1_16s32f", zorsNorm_L1_16s32f, zorsNormDiff_L1_16s32f, &Exact::l1, false);
  floats("zorsNorm_L2_16s32f, zorsNormDiff_L2_16s32f", zorsNorm_L2_16s32f, zorsNormDiff_L2_16s32f, &Exact::l2, true);
  const auto scaled = [&]<class R>(const char* name, ZorStatus (*norm)(const Zor16s*, Zor32s, R*, Zor32s),
                                   ZorStatus (*normDiff)(const Zor16s*, const Zor16s*, Zor32s, R*, Zor32s),
                                   __int128 Exact::*member, R (*model)(__int128, int)) {
    for (int s : factors) {
      R result = -1;
      ASSERT_EQ(norm(x.data(), len, &result, s), zorStatusOk);
      ASSERT_EQ(result, model(one.*member, s)) << name << where << ", scale " << s;
      ASSERT_EQ(normDiff(x.data(), y.data(), len, &result, s), zorStatusOk);
      ASSERT_EQ(result, model(diff.*member, s)) << name << " of a difference" << where << ", scale " << s;
    }
  };
  scaled("zorsNorm_Inf_16s32s_Sfs, zorsNormDiff_Inf_16s32s_Sfs", zorsNorm_Inf_16s32s_Sfs, zorsNormDiff_Inf_16s32s_Sfs,
         &Exact::inf, scaled32);
  scaled("zorsNorm_L1_16s32s_Sfs, zorsNormDiff_L1_16s32s_Sfs", zorsNorm_L1_16s32s_Sfs, zorsNormDiff_L1_16s32s_Sfs,
         &Exact::l1, scaled32);
  scaled("zorsNorm_L2_16s32s_Sfs, zorsNormDiff_L2_16s32s_Sfs", zorsNorm_L2_16s32s_Sfs, zorsNormDiff_L2_16s32s_Sfs,
         &Exact::l2, scaledRoot);
  scaled("zorsNorm_L1_16s64s_Sfs, zorsNormDiff_L1_16s64s_Sfs", zorsNorm_L1_16s64s_Sfs, zorsNormDiff_L1_16s64s_Sfs,
         &Exact::l1, scaled64);
  scaled("zorsNorm_L2Sqr_16s64s_Sfs, zorsNormDiff_L2Sqr_16s64s_Sfs", zorsNorm_L2Sqr_16s64s_Sfs,
         zorsNormDiff_L2Sqr_16s64s_Sfs, &Exact::l2, scaled64);
}

TEST(Norm, IntegersAreExactAndScaledByTruncation) {
  kit::Random random(22);
  const auto factors = kit::scaleFactors();
  const int few[] = {-64, -31, -1, 0, 1, 31, 32, 63, 64};
  for (std::size_t len = 1; len <= 200; ++len)
    checkIntegers(kit::anyValues<Zor16s>(len, random), kit::anyValues<Zor16s>(len, random), few);
  for (std::size_t len : {1u, 2u, 17u, 65535u, 65536u, 65537u, 131080u}) {
    checkIntegers(kit::anyValues<Zor16s>(len, random), kit::anyValues<Zor16s>(len, random), factors);
    checkIntegers(std::vector<Zor16s>(len, INT16_MIN), std::vector<Zor16s>(len, INT16_MAX), factors);
    checkIntegers(std::vector<Zor16s>(len, INT16_MAX), std::vector<Zor16s>(len, INT16_MIN), factors);
    checkIntegers(std::vector<Zor16s>(len, 0), std::vector<Zor16s>(len, 0), factors);
    checkIntegers(std::vector<Zor16s>(len, -1), std::vector<Zor16s>(len, 1), factors);
  }
}
TEST(Norm, TheLowestIntegerHasAMagnitude) {
  const Zor16s x[] = {5, INT16_MIN, 7};
  Zor32s norm = 0;
  ASSERT_EQ(zorsNorm_Inf_16s32s_Sfs(x, 3, &norm, 0), zorStatusOk);
  EXPECT_EQ(norm, 32768);
  ASSERT_EQ(zorsNorm_Inf_16s32s_Sfs(x, 3, &norm, 1), zorStatusOk);
  EXPECT_EQ(norm, 16384);
}
TEST(Norm, AFactorOf31TurnsTheRootsSignAndOneOf32DoesNothing) {
  const std::vector<Zor16s> x(70000, 32767);
  const double root = 32767 * std::sqrt(70000.0);
  Zor32s norm = 0;
  ASSERT_EQ(zorsNorm_L2_16s32s_Sfs(x.data(), 70000, &norm, 31), zorStatusOk);
  EXPECT_EQ(norm, Zor32s(-root / 2147483648.0));
  ASSERT_EQ(zorsNorm_L2_16s32s_Sfs(x.data(), 70000, &norm, 32), zorStatusOk);
  EXPECT_EQ(norm, Zor32s(root));
  ASSERT_EQ(zorsNorm_L2_16s32s_Sfs(x.data(), 70000, &norm, -31), zorStatusOk);
  EXPECT_EQ(norm, INT32_MIN);
}

template <class R, class... More>
void contract(const char* name, ZorStatus (*norm)(const Zor16s*, Zor32s, R*, More...),
              ZorStatus (*normDiff)(const Zor16s*, const Zor16s*, Zor32s, R*, More...), More... more) {
  const std::vector<Zor16s> x(4), y(4);
  R result{};
  kit::Contract(norm, x.data(), 4, &result, more...)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
  kit::Contract(normDiff, x.data(), y.data(), 4, &result, more...)
      .template null<0>()
      .template null<1>()
      .template null<3>()
      .template bad<2>({0, -1}, zorStatusBadSize)
      .untouched(&result, sizeof result)
      .verify(name);
}
TEST(Norm, IntegerFormsCheckPointersThenLength) {
  contract("Inf_16s32f", zorsNorm_Inf_16s32f, zorsNormDiff_Inf_16s32f);
  contract("L1_16s32f", zorsNorm_L1_16s32f, zorsNormDiff_L1_16s32f);
  contract("L2_16s32f", zorsNorm_L2_16s32f, zorsNormDiff_L2_16s32f);
  contract("Inf_16s32s_Sfs", zorsNorm_Inf_16s32s_Sfs, zorsNormDiff_Inf_16s32s_Sfs, 1);
  contract("L1_16s32s_Sfs", zorsNorm_L1_16s32s_Sfs, zorsNormDiff_L1_16s32s_Sfs, 1);
  contract("L2_16s32s_Sfs", zorsNorm_L2_16s32s_Sfs, zorsNormDiff_L2_16s32s_Sfs, 1);
  contract("L1_16s64s_Sfs", zorsNorm_L1_16s64s_Sfs, zorsNormDiff_L1_16s64s_Sfs, 1);
  contract("L2Sqr_16s64s_Sfs", zorsNorm_L2Sqr_16s64s_Sfs, zorsNormDiff_L2Sqr_16s64s_Sfs, 1);
}

}  // namespace
