// zorsMax*, zorsMin*, zorsMinMax*, with and without index, of elements and magnitudes.
#include "kit/elementwise.h"
#include "zors/statistics.h"

namespace {

using kit::Edge;

// The element that a scan from the front keeps: it is replaced by what compares better.
template <class T> std::size_t scan(std::span<const T> x, bool max, T (*read)(T)) {
  std::size_t at = 0;
  for (std::size_t i = 1; i < x.size(); ++i)
    if (max ? read(x[i]) > read(x[at]) : read(x[i]) < read(x[at])) at = i;
  return at;
}
template <class T> T asIs(T x) { return x; }
template <class T> T magnitude(T x) {
  return x == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max() : T(std::abs(x));
}

template <class T> struct Data {
  std::vector<T> values;
  const char* what;
};
// Any values; values of few kinds, so that extremes tie; all the same; late extremes; NaN first or elsewhere.
template <class T> std::vector<Data<T>> dataOf(std::size_t len, kit::Random& random) {
  std::vector<Data<T>> out;
  std::vector<T> x = kit::anyValues<T>(len, random);
  out.push_back({x, "any"});
  for (T& v : x) v = T(random() % 3);
  out.push_back({x, "ties"});
  out.push_back({std::vector<T>(len, T(5)), "constant"});
  for (std::size_t i = 0; i < len; ++i) x[i] = T(std::numeric_limits<T>::lowest() + T(i % 100));
  x[len - 1] = std::numeric_limits<T>::max();
  out.push_back({x, "last"});
  if constexpr (std::floating_point<T>) {
    for (T& v : x) v = random() % 2 ? T(0) : T(-0.0);
    out.push_back({x, "zeros"});
    for (T& v : x) v = T(random() % 100);
    x[0] = std::numeric_limits<T>::quiet_NaN();
    out.push_back({x, "NaN first"});
    std::fill(x.begin() + 1, x.end(), x[0]);
    x[0] = 1;
    out.push_back({x, "NaN elsewhere"});
  }
  return out;
}

std::vector<int> lengths() {
  auto out = kit::sweepLengths();
  for (int len : {2047, 2048, 2049, 4095, 4096, 4097, 5000, 9000}) out.push_back(len);
  return out;
}

template <class T, class F> void forAll(const char* name, F f) {
  kit::Random random(9);
  for (int len : lengths())
    for (auto& data : dataOf<T>(std::size_t(len), random)) {
      const Edge edge = len % 2 == 0 ? Edge::begin : Edge::end;
      const kit::Guarded<T> src(data.values, edge, random() % 32 * sizeof(T));
      f(src, len, std::string(name) + ", " + data.what + ", len " + std::to_string(len));
      if (testing::Test::HasFatalFailure()) return;
    }
}

template <class T> using Plain = ZorStatus (*)(const T*, Zor32s, T*);
template <class T> using Indexed = ZorStatus (*)(const T*, Zor32s, T*, Zor32s*);

template <class T>
void checkOne(const char* name, Plain<T> plain, Indexed<T> indexed, bool max, T (*read)(T) = asIs<T>) {
  forAll<T>(name, [&](const kit::Guarded<T>& src, int len, const std::string& where) {
    const std::size_t wanted = scan<T>(src.span(), max, read);
    T val{};
    ASSERT_EQ(plain(src.data(), len, &val), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(val, read(src[wanted]))) << where << ": " << kit::text(val);
    Zor32s index = -1;
    val = {};
    ASSERT_EQ(indexed(src.data(), len, &val, &index), zorStatusOk);
    ASSERT_EQ(index, Zor32s(wanted)) << where;
    ASSERT_TRUE(kit::sameBits(val, read(src[wanted]))) << where << ": " << kit::text(val);
    val = {};
    ASSERT_EQ(indexed(src.data(), len, &val, nullptr), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(val, read(src[wanted]))) << where << ", null index";
  });
  const std::vector<T> src(8, T(1));
  T val = 7;
  Zor32s index = 7;
  kit::Contract(plain, src.data(), 8, &val)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(&val, sizeof val)
      .verify(name);
  kit::Contract(indexed, src.data(), 8, &val, &index)
      .template null<0>()
      .template null<2>()
      .template bad<1>({0, -1}, zorStatusBadSize)
      .untouched(&val, sizeof val)
      .untouched(&index, 4)
      .verify(name);
  EXPECT_EQ(indexed(nullptr, 0, &val, nullptr), zorStatusNullPointer) << name;
  EXPECT_EQ(indexed(src.data(), 0, &val, nullptr), zorStatusBadSize) << name;
}

TEST(Extremes, MaxAndMinKeepTheFirstOfEqualsAndANanInFront) {
  checkOne<Zor16s>("zorsMax_16s, zorsMaxIndx_16s", zorsMax_16s, zorsMaxIndx_16s, true);
  checkOne<Zor32s>("zorsMax_32s, zorsMaxIndx_32s", zorsMax_32s, zorsMaxIndx_32s, true);
  checkOne<Zor32f>("zorsMax_32f, zorsMaxIndx_32f", zorsMax_32f, zorsMaxIndx_32f, true);
  checkOne<Zor64f>("zorsMax_64f, zorsMaxIndx_64f", zorsMax_64f, zorsMaxIndx_64f, true);
  checkOne<Zor16s>("zorsMin_16s, zorsMinIndx_16s", zorsMin_16s, zorsMinIndx_16s, false);
  checkOne<Zor32s>("zorsMin_32s, zorsMinIndx_32s", zorsMin_32s, zorsMinIndx_32s, false);
  checkOne<Zor32f>("zorsMin_32f, zorsMinIndx_32f", zorsMin_32f, zorsMinIndx_32f, false);
  checkOne<Zor64f>("zorsMin_64f, zorsMinIndx_64f", zorsMin_64f, zorsMinIndx_64f, false);
}
TEST(Extremes, MagnitudesTakeTheLowestIntegerAsTheHighest) {
  checkOne<Zor16s>("zorsMaxAbs_16s, zorsMaxAbsIndx_16s", zorsMaxAbs_16s, zorsMaxAbsIndx_16s, true, magnitude<Zor16s>);
  checkOne<Zor32s>("zorsMaxAbs_32s, zorsMaxAbsIndx_32s", zorsMaxAbs_32s, zorsMaxAbsIndx_32s, true, magnitude<Zor32s>);
  checkOne<Zor16s>("zorsMinAbs_16s, zorsMinAbsIndx_16s", zorsMinAbs_16s, zorsMinAbsIndx_16s, false, magnitude<Zor16s>);
  checkOne<Zor32s>("zorsMinAbs_32s, zorsMinAbsIndx_32s", zorsMinAbs_32s, zorsMinAbsIndx_32s, false, magnitude<Zor32s>);
  const Zor16s lowest = INT16_MIN;
  Zor16s val = 0;
  EXPECT_EQ(zorsMinAbs_16s(&lowest, 1, &val), zorStatusOk);
  EXPECT_EQ(val, INT16_MAX);
}

template <class T>
void checkBoth(const char* name, ZorStatus (*minMax)(const T*, Zor32s, T*, T*),
               ZorStatus (*indexed)(const T*, Zor32s, T*, Zor32s*, T*, Zor32s*)) {
  forAll<T>(name, [&](const kit::Guarded<T>& src, int len, const std::string& where) {
    const std::size_t wantedMin = scan<T>(src.span(), false, asIs<T>), wantedMax = scan<T>(src.span(), true, asIs<T>);
    T min{}, max{};
    ASSERT_EQ(minMax(src.data(), len, &min, &max), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(min, src[wantedMin]) && kit::sameBits(max, src[wantedMax])) << where;
    Zor32s minIndex = -1, maxIndex = -1;
    min = max = {};
    ASSERT_EQ(indexed(src.data(), len, &min, &minIndex, &max, &maxIndex), zorStatusOk);
    ASSERT_TRUE(kit::sameBits(min, src[wantedMin]) && kit::sameBits(max, src[wantedMax])) << where;
    ASSERT_EQ(minIndex, Zor32s(wantedMin)) << where;
    ASSERT_EQ(maxIndex, Zor32s(wantedMax)) << where;
  });
  const std::vector<T> src(8, T(1));
  T min = 7, max = 8;
  Zor32s minIndex = 7, maxIndex = 8;
  kit::Contract(minMax, src.data(), 8, &min, &max)
      .template null<0>()
      .template null<2>()
      .template null<3>()
      .template bad<1>({0, -1}, zorStatusBadSize)
      .untouched(&min, sizeof min)
      .untouched(&max, sizeof max)
      .verify(name);
  kit::Contract(indexed, src.data(), 8, &min, &minIndex, &max, &maxIndex)
      .template null<0>()
      .template null<2>()
      .template null<3>()
      .template null<4>()
      .template null<5>()
      .template bad<1>({0, -1}, zorStatusBadSize)
      .untouched(&min, sizeof min)
      .untouched(&max, sizeof max)
      .untouched(&minIndex, 4)
      .untouched(&maxIndex, 4)
      .verify(name);
}

TEST(Extremes, BothInOnePass) {
  checkBoth<Zor8u>("zorsMinMax_8u, zorsMinMaxIndx_8u", zorsMinMax_8u, zorsMinMaxIndx_8u);
  checkBoth<Zor16u>("zorsMinMax_16u, zorsMinMaxIndx_16u", zorsMinMax_16u, zorsMinMaxIndx_16u);
  checkBoth<Zor16s>("zorsMinMax_16s, zorsMinMaxIndx_16s", zorsMinMax_16s, zorsMinMaxIndx_16s);
  checkBoth<Zor32u>("zorsMinMax_32u, zorsMinMaxIndx_32u", zorsMinMax_32u, zorsMinMaxIndx_32u);
  checkBoth<Zor32s>("zorsMinMax_32s, zorsMinMaxIndx_32s", zorsMinMax_32s, zorsMinMaxIndx_32s);
  checkBoth<Zor32f>("zorsMinMax_32f, zorsMinMaxIndx_32f", zorsMinMax_32f, zorsMinMaxIndx_32f);
  checkBoth<Zor64f>("zorsMinMax_64f, zorsMinMaxIndx_64f", zorsMinMax_64f, zorsMinMaxIndx_64f);
}

TEST(Extremes, TiesGiveTheFirstIndex) {
  const Zor32f x[] = {1, 3, 3};
  Zor32f val = 0;
  Zor32s index = -1;
  ASSERT_EQ(zorsMaxIndx_32f(x, 3, &val, &index), zorStatusOk);
  EXPECT_EQ(index, 1);
  const std::vector<Zor16s> constant(100, 4);
  Zor16s min = 0, max = 0;
  Zor32s minIndex = -1, maxIndex = -1;
  ASSERT_EQ(zorsMinMaxIndx_16s(constant.data(), 100, &min, &minIndex, &max, &maxIndex), zorStatusOk);
  EXPECT_EQ(minIndex, 0);
  EXPECT_EQ(maxIndex, 0);
}

}  // namespace
