#include <algorithm>
#include <cmath>

#include "functions/complex_forms.h"
#include "zors/functions.h"

namespace {

using complexForms::contractPlanes;
using kit::fewLengths;
using kit::sweepLengths;

template <class T> using Guarded = kit::Guarded<T>;

// ---- To polar form ------------------------------------------------------------------------------

// Magnitudes and phases in one pass have the bits of those apart.
template <class C, class R>
void toPolar(const char* name, ZorStatus (*call)(const C*, R*, R*, Zor32s),
             ZorStatus (*ofPlanes)(const R*, const R*, R*, R*, Zor32s), ZorStatus (*magnitude)(const C*, R*, Zor32s),
             ZorStatus (*phase)(const C*, R*, Zor32s)) {
  kit::Random random(1);
  for (int len : sweepLengths())
    for (kit::Edge edge : kit::bothEdges) {
      const auto n = std::size_t(len);
      const Guarded<C> src(kit::anyValues<C>(n, random), edge);
      const Guarded<R> re(n, edge), im(n, edge), magn(n, edge), angle(n, edge);
      for (std::size_t i = 0; i < n; ++i) re[i] = src[i].re, im[i] = src[i].im;
      std::vector<R> wantedMagn(n), wantedPhase(n);
      ASSERT_EQ(magnitude(src.data(), wantedMagn.data(), len), zorStatusOk);
      ASSERT_EQ(phase(src.data(), wantedPhase.data(), len), zorStatusOk);
      ASSERT_EQ(call(src.data(), magn.data(), angle.data(), len), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<R>(magn.span(), wantedMagn), "") << name << " " << len;
      ASSERT_EQ(kit::firstDifference<R>(angle.span(), wantedPhase), "") << name << " " << len;
      ASSERT_EQ(ofPlanes(re.data(), im.data(), re.data(), im.data(), len), zorStatusOk);  // in place
      ASSERT_EQ(kit::firstDifference<R>(re.span(), wantedMagn), "") << name << " " << len;
      ASSERT_EQ(kit::firstDifference<R>(im.span(), wantedPhase), "") << name << " " << len;
      ASSERT_TRUE(magn.intact() && angle.intact() && re.intact() && im.intact());
    }
  const std::vector<C> src(8);
  const std::vector<R> a(8), b(8);
  std::vector<R> magn(8), angle(8);
  kit::Contract(call, src.data(), magn.data(), angle.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1}, zorStatusBadSize)
      .untouched(magn)
      .untouched(angle)
      .verify(name);
  kit::Contract(ofPlanes, a.data(), b.data(), magn.data(), angle.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template null<3>()
      .template bad<4>({0, -1}, zorStatusBadSize)
      .untouched(magn)
      .untouched(angle)
      .verify(name);
}
TEST(CartToPolar, OnePassGivesTheBitsOfTwo) {
  toPolar("zorsCartToPolar_32fc, zorsCartToPolar_32f", zorsCartToPolar_32fc, zorsCartToPolar_32f, zorsMagnitude_32fc,
          zorsPhase_32fc);
  toPolar("zorsCartToPolar_64fc, zorsCartToPolar_64f", zorsCartToPolar_64fc, zorsCartToPolar_64f, zorsMagnitude_64fc,
          zorsPhase_64fc);
}
TEST(CartToPolar, IntegersHaveAScaleForEach) {
  kit::Random random(2);
  for (auto [magnScale, phaseScale] : {std::pair{0, 0}, {1, -13}, {-3, -30}, {20, 2}})
    for (int len : fewLengths()) {
      const auto n = std::size_t(len);
      const auto src = kit::anyValues<Zor16sc>(n, random);
      std::vector<Zor16s> magn(n), angle(n), wantedMagn(n), wantedPhase(n);
      ASSERT_EQ(zorsMagnitude_16sc_Sfs(src.data(), wantedMagn.data(), len, magnScale), zorStatusOk);
      ASSERT_EQ(zorsPhase_16sc_Sfs(src.data(), wantedPhase.data(), len, phaseScale), zorStatusOk);
      ASSERT_EQ(zorsCartToPolar_16sc_Sfs(src.data(), magn.data(), angle.data(), len, magnScale, phaseScale),
                zorStatusOk);
      EXPECT_EQ(magn, wantedMagn);
      EXPECT_EQ(angle, wantedPhase);
    }
  const std::vector<Zor16sc> src(8);
  std::vector<Zor16s> magn(8), angle(8);
  kit::Contract(zorsCartToPolar_16sc_Sfs, src.data(), magn.data(), angle.data(), 8, 0, 0)
      .null<0>()
      .null<1>()
      .null<2>()
      .bad<3>({0, -1}, zorStatusBadSize)
      .untouched(magn)
      .untouched(angle)
      .verify("zorsCartToPolar_16sc_Sfs");
}

// ---- And back -----------------------------------------------------------------------------------

struct Cartesian {
  long double re, im;
};
Cartesian exact(long double magnitude, long double phase) {
  return {magnitude * std::cos(phase), magnitude * std::sin(phase)};
}
// One element alone; a product of a rounded sine (most ulp) and a magnitude, rounded.
template <class C, class R>
std::function<C(R, R)> alone(ZorStatus (*call)(const R*, const R*, C*, Zor32s), double most) {
  return [=](R magnitude, R phase) {
    C z;
    call(&magnitude, &phase, &z, 1);
    const Cartesian wanted = exact(magnitude, phase);
    EXPECT_LE(kit::ulps(z.re, wanted.re), 2 * most + 0.51) << kit::text(magnitude) << ", " << kit::text(phase);
    EXPECT_LE(kit::ulps(z.im, wanted.im), 2 * most + 0.51) << kit::text(magnitude) << ", " << kit::text(phase);
    return z;
  };
}
template <class C, class R>
void toCartesian(const char* name, ZorStatus (*call)(const R*, const R*, C*, Zor32s),
                 ZorStatus (*toPlanes)(const R*, const R*, R*, R*, Zor32s), double most) {
  std::function<ZorStatus(const R*, const R*, C*, Zor32s)> pairs = call;
  kit::sweep<C, R, R>(name, pairs, alone<C, R>(call, most));
  kit::Random random(3);
  for (int len : sweepLengths())
    for (kit::Edge edge : kit::bothEdges) {
      const auto n = std::size_t(len);
      const Guarded<R> magn(kit::anyValues<R>(n, random), edge), phase(kit::anyValues<R>(n, random), edge), re(n, edge),
          im(n, edge);
      std::vector<C> together(n);
      std::vector<R> wantedRe(n), wantedIm(n);
      ASSERT_EQ(call(magn.data(), phase.data(), together.data(), len), zorStatusOk);
      for (std::size_t i = 0; i < n; ++i) wantedRe[i] = together[i].re, wantedIm[i] = together[i].im;
      ASSERT_EQ(toPlanes(magn.data(), phase.data(), re.data(), im.data(), len), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<R>(re.span(), wantedRe), "") << name << " " << len;
      ASSERT_EQ(kit::firstDifference<R>(im.span(), wantedIm), "") << name << " " << len;
      ASSERT_EQ(toPlanes(magn.data(), phase.data(), magn.data(), phase.data(), len), zorStatusOk);  // in place
      ASSERT_EQ(kit::firstDifference<R>(magn.span(), wantedRe), "") << name << " " << len;
      ASSERT_EQ(kit::firstDifference<R>(phase.span(), wantedIm), "") << name << " " << len;
      ASSERT_TRUE(re.intact() && im.intact() && magn.intact() && phase.intact());
    }
  contractPlanes(name, call);
  const std::vector<R> magn(8), phase(8);
  std::vector<R> re(8), im(8);
  kit::Contract(toPlanes, magn.data(), phase.data(), re.data(), im.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template null<3>()
      .template bad<4>({0, -1}, zorStatusBadSize)
      .untouched(re)
      .untouched(im)
      .verify(name);
}
TEST(PolarToCart, PairsAndPlanesHaveTheSameBits) {
  toCartesian("zorsPolarToCart_32fc, zorsPolarToCart_32f", zorsPolarToCart_32fc, zorsPolarToCart_32f, 0.8);
  toCartesian("zorsPolarToCart_64fc, zorsPolarToCart_64f", zorsPolarToCart_64fc, zorsPolarToCart_64f, 0.8);
}

template <class D, class R>
std::function<D(R, R)> aloneRounded(std::function<ZorStatus(const R*, const R*, D*, Zor32s)> call,
                                    std::function<Cartesian(R, R)> wanted, long double precision) {
  return [=](R magnitude, R phase) {
    using P = decltype(D::re);
    using L = std::numeric_limits<P>;
    D z;
    call(&magnitude, &phase, &z, 1);
    const auto [re, im] = wanted(magnitude, phase);
    const auto check = [&](P got, long double part) {
      if (std::isnan(part)) {
        EXPECT_EQ(got, L::min());
      } else {
        const long double error = std::min(std::fabs(part) * precision, 1e9L);
        EXPECT_LE(std::fabs(got - std::clamp<long double>(part, L::min(), L::max())), 0.5L + error)
            << kit::text(magnitude) << ", " << kit::text(phase);
      }
    };
    check(z.re, re);
    check(z.im, im);
    return z;
  };
}
TEST(PolarToCart, IntegersAreRoundedToNearestInEveryDirection) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    const auto& lengths = direction == _MM_ROUND_NEAREST ? sweepLengths() : fewLengths();
    std::function<Cartesian(Zor32f, Zor32f)> wanted = [](Zor32f m, Zor32f p) { return exact(m, p); };
    std::function<ZorStatus(const Zor32f*, const Zor32f*, Zor16sc*, Zor32s)> to16 = zorsPolarToCart_16sc;
    std::function<ZorStatus(const Zor32f*, const Zor32f*, Zor32sc*, Zor32s)> to32 = zorsPolarToCart_32sc;
    kit::sweep<Zor16sc, Zor32f, Zor32f>("zorsPolarToCart_16sc", to16,
                                        aloneRounded<Zor16sc, Zor32f>(to16, wanted, 0x1p-22L), lengths);
    kit::sweep<Zor32sc, Zor32f, Zor32f>("zorsPolarToCart_32sc", to32,
                                        aloneRounded<Zor32sc, Zor32f>(to32, wanted, 0x1p-22L), lengths);
    for (auto [magnScale, phaseScale] : {std::pair{0, 13},
                                         {0, 0},
                                         {-3, 14},
                                         {4, 2},
                                         {-31, -900},
                                         {0, -500},
                                         {0, -1003},
                                         {2, -1008},
                                         {40, 10},
                                         {INT32_MIN, 0},
                                         {INT32_MAX, INT32_MAX},
                                         {1, 1100}}) {
      const int down = std::clamp(magnScale, -1000, 1000), turns = std::clamp(phaseScale, -1008, 1100);
      std::function<ZorStatus(const Zor16s*, const Zor16s*, Zor16sc*, Zor32s)> scaled =
          [m = magnScale, p = phaseScale](const Zor16s* magn, const Zor16s* phase, Zor16sc* dst, Zor32s len) {
            return zorsPolarToCart_16sc_Sfs(magn, phase, dst, len, m, p);
          };
      std::function<Cartesian(Zor16s, Zor16s)> wantedScaled = [=](Zor16s m, Zor16s p) {
        return exact(std::ldexp(static_cast<long double>(m), -down), std::ldexp(static_cast<long double>(p), -turns));
      };
      kit::sweep<Zor16sc, Zor16s, Zor16s>("zorsPolarToCart_16sc_Sfs", scaled,
                                          aloneRounded<Zor16sc, Zor16s>(scaled, wantedScaled, 0x1p-50L), fewLengths());
    }
  }
  contractPlanes("zorsPolarToCart_16sc", zorsPolarToCart_16sc);
  contractPlanes("zorsPolarToCart_32sc", zorsPolarToCart_32sc);
  contractPlanes("zorsPolarToCart_16sc_Sfs", zorsPolarToCart_16sc_Sfs, 0, 0);
}
TEST(PolarToCart, AMagnitudeOfOneAtPhaseZeroIsOne) {
  const Zor32f one = 1, zero = 0;
  Zor32fc z = {7, 7};
  EXPECT_EQ(zorsPolarToCart_32fc(&one, &zero, &z, 1), zorStatusOk);
  EXPECT_EQ(z.re, 1);
  EXPECT_EQ(z.im, 0);
}
TEST(PolarToCart, ANanPhaseGivesNanParts) {
  const Zor32f one = 1, nan = NAN;
  Zor32fc z = {7, 7};
  EXPECT_EQ(zorsPolarToCart_32fc(&one, &nan, &z, 1), zorStatusOk);
  EXPECT_TRUE(std::isnan(z.re) && std::isnan(z.im));
}

}  // namespace
