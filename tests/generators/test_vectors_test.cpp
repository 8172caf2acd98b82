#include "generators/places.h"
#include "zors/generators.h"

namespace {

// ---- Jaehne -------------------------------------------------------------------------------------

template <class T> using Chirp = ZorStatus (*)(T*, Zor32s, T);

double chirpAngle(int n, int len) {
  const double factor = 1.5707963267948966 / len;
  return double(n) * double(n) * factor;
}
// Cut toward zero; unsigned types keep the low bits.
template <class T> std::vector<T> chirpModel(int len, T magn) {
  std::vector<T> y(static_cast<std::size_t>(len));
  for (int n = 0; n < len; ++n) {
    const double product = double(magn) * std::sin(chirpAngle(n, len));
    if constexpr (std::is_integral_v<T>)
      y[std::size_t(n)] = T(static_cast<long long>(product));
    else
      y[std::size_t(n)] = T(product);
  }
  if (len == 1) y[0] = 0;
  return y;
}
template <class T> void checkChirp(const char* name, Chirp<T> function, std::vector<T> magnitudes) {
  for (T magn : magnitudes) {
    for (int len : kit::sweepLengths())
      generators::checkPlaces<T>(name, [=](T* dst, Zor32s n) { return function(dst, n, magn); }, chirpModel(len, magn),
                                 {len});
    for (int len : {65'536, 100'003}) {
      std::vector<T> y(static_cast<std::size_t>(len));
      ASSERT_EQ(function(y.data(), len, magn), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<T>(y, chirpModel(len, magn)), "") << name << ", " << len;
    }
  }
}
TEST(VectorJaehne, ElementsHaveTheBitsThatTheLibrarySineGives) {
  checkChirp<Zor8u>("zorsVectorJaehne_8u", zorsVectorJaehne_8u, {255, 1, 0, 100});
  checkChirp<Zor8s>("zorsVectorJaehne_8s", zorsVectorJaehne_8s, {127, 1, 0, 99});
  checkChirp<Zor16u>("zorsVectorJaehne_16u", zorsVectorJaehne_16u, {65535, 1, 0});
  checkChirp<Zor16s>("zorsVectorJaehne_16s", zorsVectorJaehne_16s, {32767, 1, 0});
  checkChirp<Zor32u>("zorsVectorJaehne_32u", zorsVectorJaehne_32u, {UINT32_MAX, 1, 0, 3'000'000'000});
  checkChirp<Zor32s>("zorsVectorJaehne_32s", zorsVectorJaehne_32s, {INT32_MAX, 1, 0, 1'000'000});
  checkChirp<Zor32f>("zorsVectorJaehne_32f", zorsVectorJaehne_32f, {1, 0, 0.3f, 3e38f, 1e-44f, 1e-38f});
}
TEST(VectorJaehne, DirectionsOfRoundingCountForTheProductAlone) {
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    checkChirp<Zor32f>("zorsVectorJaehne_32f", zorsVectorJaehne_32f, {0.7f});
    checkChirp<Zor32s>("zorsVectorJaehne_32s", zorsVectorJaehne_32s, {INT32_MAX});
  }
}
TEST(VectorJaehne, DoublesAreWithinUnitsInTheLastPlace) {
  for (double magn : {1.0, 0.3, 1e300, 0.0})
    for (int len : {2, 3, 4, 5, 7, 8, 63, 64, 65, 1000, 100'003}) {
      const kit::Guarded<Zor64f> y(std::size_t(len), kit::Edge::end);
      ASSERT_EQ(zorsVectorJaehne_64f(y.data(), len, magn), zorStatusOk);
      for (int n = 0; n < len; ++n) {
        const long double wanted = static_cast<long double>(magn) * sinl(chirpAngle(n, len));
        ASSERT_LE(kit::ulps(y[std::size_t(n)], wanted), magn == 1 ? 1.6 : 3.7) << len << ", " << n;
      }
    }
}
TEST(VectorJaehne, AMillionSamplesReachHalfTheSampleRate) {
  constexpr int len = 1'000'000;
  std::vector<Zor64f> y(len);
  ASSERT_EQ(zorsVectorJaehne_64f(y.data(), len, 1), zorStatusOk);
  for (int n = 0; n < len; ++n) {
    ASSERT_LE(kit::ulps(y[std::size_t(n)], sinl(chirpAngle(n, len))), 1.6) << n;
    ASSERT_LE(std::fabs(y[std::size_t(n)]), 1);
  }
}
TEST(VectorJaehne, ASingleElementIsZeroForAnyMagnitude) {
  for (Zor32f magn : {0.0f, -0.0f, 1.0f, HUGE_VALF, NAN}) {
    Zor32f y = 5;
    EXPECT_EQ(zorsVectorJaehne_32f(&y, 1, magn), zorStatusOk);
    EXPECT_TRUE(kit::sameBits(y, 0.0f));
  }
  Zor64f y = 5;
  EXPECT_EQ(zorsVectorJaehne_64f(&y, 1, 7), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(y, 0.0));
}
template <class T> void checkChirpContract(const char* name, Chirp<T> function) {
  std::vector<T> dst(40, T(3));
  kit::Contract contract(function, dst.data(), 40, T(1));
  contract.template null<0>().template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize).untouched(dst);
  if constexpr (std::is_signed_v<T>)
    contract.template bad<2>({T(-1), std::numeric_limits<T>::lowest()}, zorStatusBadMagnitude);
  contract.verify(name);
}
TEST(VectorJaehne, ANullDestinationBeatsABadLengthBeatsANegativeMagnitude) {
  checkChirpContract("zorsVectorJaehne_8u", zorsVectorJaehne_8u);
  checkChirpContract("zorsVectorJaehne_8s", zorsVectorJaehne_8s);
  checkChirpContract("zorsVectorJaehne_16u", zorsVectorJaehne_16u);
  checkChirpContract("zorsVectorJaehne_16s", zorsVectorJaehne_16s);
  checkChirpContract("zorsVectorJaehne_32u", zorsVectorJaehne_32u);
  checkChirpContract("zorsVectorJaehne_32s", zorsVectorJaehne_32s);
  checkChirpContract("zorsVectorJaehne_32f", zorsVectorJaehne_32f);
  checkChirpContract("zorsVectorJaehne_64f", zorsVectorJaehne_64f);
}

// ---- Ramp, Slope --------------------------------------------------------------------------------

template <class T, class A> T lineModel(std::int64_t n, A offset, A slope) {
  if constexpr (std::is_same_v<T, Zor32f> && std::is_same_v<A, Zor32f>)
    if (n < 1 << 24) return std::fma(slope, Zor32f(n), offset);
  const double y = std::fma(double(slope), double(n), double(offset));
  using L = std::numeric_limits<T>;
  if constexpr (std::is_integral_v<T>)
    return T(static_cast<std::int64_t>(std::clamp(y, double(L::min()), double(L::max()))));
  else
    return T(y);
}
template <class T, class A> struct LineCall {
  const char* name;
  ZorStatus (*function)(T*, Zor32s, A, A);
};
template <class T, class A> void checkLines(LineCall<T, A> member) {
  struct Arguments {
    double offset, slope;
  };
  const double inf = HUGE_VAL;
  const std::vector<Arguments> all = {
      {0, 0.1},         {0, 1},          {-5.5, 0.37},      {250, 1},           {-100.75, -0.999}, {32000.5, 11.3},
      {-32700, -0.7},   {65000, 3.3},    {2147483000, 0.7}, {-2147483000, -.7}, {4294967000, 0.9}, {2147483647.5, -1},
      {2147483648, -1}, {-3e9, 4.2e7},   {3e9, -4.2e7},     {1e30, 0},          {-1e30, 0},        {0, 1e30},
      {0, -1e30},       {inf, 1},        {-inf, 1},         {0.5, 0},           {-0.0, -0.0},      {1e-40, 1e-42},
      {255.999, 0.001}, {-0.999, 1e-3},  {32767, 0.0625},   {-128, -0.125},     {1e300, 1e290},    {127.5, -0.5},
      {2147483647, 1},  {-2147483649, 1}};
  for (const Arguments& raw : all)
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      const A offset = A(raw.offset), slope = A(raw.slope);
      if (!std::isfinite(slope)) continue;
      std::vector<T> wanted(1025);
      for (std::size_t n = 0; n < wanted.size(); ++n) wanted[n] = lineModel<T>(std::int64_t(n), offset, slope);
      const bool nearest = direction == _MM_ROUND_NEAREST;
      generators::checkPlaces<T>(
          std::string(member.name) + ", " + std::to_string(raw.offset) + " + n * " + std::to_string(raw.slope),
          [&](T* dst, Zor32s len) { return member.function(dst, len, offset, slope); }, wanted,
          nearest ? kit::sweepLengths() : kit::fewLengths());
    }
  const A slope = A(0.1);  // not by repeated sums
  std::vector<T> y(100'000);
  ASSERT_EQ(member.function(y.data(), 100'000, 0, slope), zorStatusOk);
  for (std::size_t n = 0; n < y.size(); ++n)
    ASSERT_TRUE(kit::sameBits(y[n], lineModel<T>(std::int64_t(n), A(0), slope))) << member.name << ", " << n;
  std::vector<T> dst(40, T(3));
  kit::Contract(member.function, dst.data(), 40, A(1), A(1))
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(member.name);
}
TEST(VectorRamp, EachElementIsOneFusedStepFromItsIndex) {
  checkLines<Zor8u, Zor32f>({"zorsVectorRamp_8u", zorsVectorRamp_8u});
  checkLines<Zor8s, Zor32f>({"zorsVectorRamp_8s", zorsVectorRamp_8s});
  checkLines<Zor16u, Zor32f>({"zorsVectorRamp_16u", zorsVectorRamp_16u});
  checkLines<Zor16s, Zor32f>({"zorsVectorRamp_16s", zorsVectorRamp_16s});
  checkLines<Zor32u, Zor32f>({"zorsVectorRamp_32u", zorsVectorRamp_32u});
  checkLines<Zor32s, Zor32f>({"zorsVectorRamp_32s", zorsVectorRamp_32s});
  checkLines<Zor32f, Zor32f>({"zorsVectorRamp_32f", zorsVectorRamp_32f});
  checkLines<Zor64f, Zor32f>({"zorsVectorRamp_64f", zorsVectorRamp_64f});
}
TEST(VectorSlope, EachElementIsOneFusedStepFromItsIndex) {
  checkLines<Zor8u, Zor64f>({"zorsVectorSlope_8u", zorsVectorSlope_8u});
  checkLines<Zor8s, Zor64f>({"zorsVectorSlope_8s", zorsVectorSlope_8s});
  checkLines<Zor16u, Zor64f>({"zorsVectorSlope_16u", zorsVectorSlope_16u});
  checkLines<Zor16s, Zor64f>({"zorsVectorSlope_16s", zorsVectorSlope_16s});
  checkLines<Zor32u, Zor64f>({"zorsVectorSlope_32u", zorsVectorSlope_32u});
  checkLines<Zor32s, Zor64f>({"zorsVectorSlope_32s", zorsVectorSlope_32s});
  checkLines<Zor32f, Zor64f>({"zorsVectorSlope_32f", zorsVectorSlope_32f});
  checkLines<Zor64f, Zor64f>({"zorsVectorSlope_64f", zorsVectorSlope_64f});
}
TEST(VectorRamp, BytesSaturateWhereTheSlopeCarriesThemOver) {
  Zor8u y[300];
  ASSERT_EQ(zorsVectorRamp_8u(y, 300, 0, 1), zorStatusOk);
  for (int n = 0; n < 300; ++n) ASSERT_EQ(y[n], std::min(n, 255));
}
// From 2^24 on not every index is a binary32 number.
TEST(VectorRamp, FloatsBeyondTheExactIndicesAreComputedInBinary64) {
  constexpr int limit = 1 << 24;
  for (int len : {limit - 1, limit, limit + 1, limit + 75}) {
    std::vector<Zor32f> y(static_cast<std::size_t>(len) + 1, -1.0f);
    ASSERT_EQ(zorsVectorRamp_32f(y.data(), len, 0.25f, 0.7f), zorStatusOk);
    for (int n = limit - 100; n < len; ++n)
      ASSERT_TRUE(kit::sameBits(y[std::size_t(n)], lineModel<Zor32f>(n, 0.25f, 0.7f))) << n;
    ASSERT_EQ(y.back(), -1.0f);
  }
}

}  // namespace
