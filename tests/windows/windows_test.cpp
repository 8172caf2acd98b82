// All windows against their formulas in extended precision, by one sweep per element type.
#include <gtest/gtest.h>

#include <functional>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "windows/window_model.h"
#include "zors/windows.h"

namespace {

using windows::Curve;

template <class T> struct PartType { using type = T; };
template <kit::ComplexPair T> struct PartType<T> { using type = decltype(T::re); };
template <class T> using PartOf = typename PartType<T>::type;

template <class T> struct Window {
  std::string name;
  Curve curve;
  std::function<ZorStatus(const T*, T*, Zor32s, double)> call;
  std::function<ZorStatus(T*, Zor32s, double)> inPlace;
  std::vector<double> alphas;                           // to try; one for those without alpha
  std::function<long double(double, long)> alphaInUse;  // from the argument and the length
  int shortest;
};

const std::vector<double> blackmanAlphas = {0, -0.16, 0.5, -3, 100}, kaiserAlphas = {0, 0.03, -0.05, 0.4};
bool isKaiser(Curve curve) { return curve == Curve::kaiserCoarse || curve == Curve::kaiserFine; }

long double none(double, long) { return 0; }
template <class T> long double standardAlpha(double, long) {
  return std::is_same_v<PartOf<T>, double> ? -0.16 : static_cast<double>(-0.16F);
}
template <class T> long double optimalAlpha(double, long len) {
  const double root = 0.5 / std::cos(std::numbers::pi / double(len - 1)), alpha = -(root * root);
  return std::is_same_v<PartOf<T>, double> ? alpha : static_cast<double>(float(alpha));
}

template <class T>
Window<T> plain(const char* name, Curve curve, ZorStatus (*f)(const T*, T*, Zor32s), ZorStatus (*inPlace)(T*, Zor32s),
                long double (*alpha)(double, long) = none) {
  return {name,
          curve,
          [f](const T* src, T* dst, Zor32s len, double) { return f(src, dst, len); },
          [inPlace](T* srcDst, Zor32s len, double) { return inPlace(srcDst, len); },
          {0},
          alpha,
          alpha == optimalAlpha<T> ? 4 : 3};
}
template <class T, class A>
Window<T> withAlpha(const char* name, Curve curve, ZorStatus (*f)(const T*, T*, Zor32s, A),
                    ZorStatus (*inPlace)(T*, Zor32s, A)) {
  return {name,
          curve,
          [f](const T* src, T* dst, Zor32s len, double alpha) { return f(src, dst, len, A(alpha)); },
          [inPlace](T* srcDst, Zor32s len, double alpha) { return inPlace(srcDst, len, A(alpha)); },
          isKaiser(curve) ? kaiserAlphas : blackmanAlphas,
          [](double alpha, long) { return static_cast<long double>(A(alpha)); },
          isKaiser(curve) ? 1 : 3};
}
template <class T>
Window<T> withQ15(const char* name, Curve curve, ZorStatus (*f)(const T*, T*, Zor32s, Zor32s),
                  ZorStatus (*inPlace)(T*, Zor32s, Zor32s)) {
  auto window = withAlpha<T, Zor32s>(name, curve, f, inPlace);
  const auto call = window.call;
  const auto callInPlace = window.inPlace;
  const auto q15 = [](double alpha) { return std::round(alpha * 32768); };
  window.call = [=](const T* src, T* dst, Zor32s len, double alpha) { return call(src, dst, len, q15(alpha)); };
  window.inPlace = [=](T* srcDst, Zor32s len, double alpha) { return callInPlace(srcDst, len, q15(alpha)); };
  window.alphaInUse = [=](double alpha, long) { return static_cast<long double>(q15(alpha)) / 32768; };
  return window;
}

template <class T> std::vector<Window<T>> members();
// clang-format off
template <> std::vector<Window<Zor16s>> members<Zor16s>() {
  return {plain<Zor16s>("zorsWinBartlett_16s", Curve::bartlett, zorsWinBartlett_16s, zorsWinBartlett_16s_I),
          plain<Zor16s>("zorsWinHann_16s", Curve::hann, zorsWinHann_16s, zorsWinHann_16s_I),
          plain<Zor16s>("zorsWinHamming_16s", Curve::hamming, zorsWinHamming_16s, zorsWinHamming_16s_I),
          withAlpha<Zor16s>("zorsWinBlackman_16s", Curve::blackman, zorsWinBlackman_16s, zorsWinBlackman_16s_I),
          plain<Zor16s>("zorsWinBlackmanStd_16s", Curve::blackman, zorsWinBlackmanStd_16s, zorsWinBlackmanStd_16s_I, standardAlpha<Zor16s>),
          plain<Zor16s>("zorsWinBlackmanOpt_16s", Curve::blackman, zorsWinBlackmanOpt_16s, zorsWinBlackmanOpt_16s_I, optimalAlpha<Zor16s>),
          withAlpha<Zor16s>("zorsWinKaiser_16s", Curve::kaiserCoarse, zorsWinKaiser_16s, zorsWinKaiser_16s_I),
          withQ15<Zor16s>("zorsWinBlackmanQ15_16s", Curve::blackman, zorsWinBlackmanQ15_16s, zorsWinBlackmanQ15_16s_I),
          withQ15<Zor16s>("zorsWinKaiserQ15_16s", Curve::kaiserCoarse, zorsWinKaiserQ15_16s, zorsWinKaiserQ15_16s_I)};
}
template <> std::vector<Window<Zor16sc>> members<Zor16sc>() {
  return {plain<Zor16sc>("zorsWinBartlett_16sc", Curve::bartlett, zorsWinBartlett_16sc, zorsWinBartlett_16sc_I),
          plain<Zor16sc>("zorsWinHann_16sc", Curve::hann, zorsWinHann_16sc, zorsWinHann_16sc_I),
          plain<Zor16sc>("zorsWinHamming_16sc", Curve::hamming, zorsWinHamming_16sc, zorsWinHamming_16sc_I),
          withAlpha<Zor16sc>("zorsWinBlackman_16sc", Curve::blackman, zorsWinBlackman_16sc, zorsWinBlackman_16sc_I),
          plain<Zor16sc>("zorsWinBlackmanStd_16sc", Curve::blackman, zorsWinBlackmanStd_16sc, zorsWinBlackmanStd_16sc_I, standardAlpha<Zor16sc>),
          plain<Zor16sc>("zorsWinBlackmanOpt_16sc", Curve::blackman, zorsWinBlackmanOpt_16sc, zorsWinBlackmanOpt_16sc_I, optimalAlpha<Zor16sc>),
          withAlpha<Zor16sc>("zorsWinKaiser_16sc", Curve::kaiserCoarse, zorsWinKaiser_16sc, zorsWinKaiser_16sc_I),
          withQ15<Zor16sc>("zorsWinBlackmanQ15_16sc", Curve::blackman, zorsWinBlackmanQ15_16sc, zorsWinBlackmanQ15_16sc_I),
          withQ15<Zor16sc>("zorsWinKaiserQ15_16sc", Curve::kaiserCoarse, zorsWinKaiserQ15_16sc, zorsWinKaiserQ15_16sc_I)};
}
template <> std::vector<Window<Zor32f>> members<Zor32f>() {
  return {plain<Zor32f>("zorsWinBartlett_32f", Curve::bartlett, zorsWinBartlett_32f, zorsWinBartlett_32f_I),
          plain<Zor32f>("zorsWinHann_32f", Curve::hann, zorsWinHann_32f, zorsWinHann_32f_I),
          plain<Zor32f>("zorsWinHamming_32f", Curve::hamming, zorsWinHamming_32f, zorsWinHamming_32f_I),
          withAlpha<Zor32f>("zorsWinBlackman_32f", Curve::blackman, zorsWinBlackman_32f, zorsWinBlackman_32f_I),
          plain<Zor32f>("zorsWinBlackmanStd_32f", Curve::blackman, zorsWinBlackmanStd_32f, zorsWinBlackmanStd_32f_I, standardAlpha<Zor32f>),
          plain<Zor32f>("zorsWinBlackmanOpt_32f", Curve::blackman, zorsWinBlackmanOpt_32f, zorsWinBlackmanOpt_32f_I, optimalAlpha<Zor32f>),
          withAlpha<Zor32f>("zorsWinKaiser_32f", Curve::kaiserCoarse, zorsWinKaiser_32f, zorsWinKaiser_32f_I)};
}
template <> std::vector<Window<Zor32fc>> members<Zor32fc>() {
  return {plain<Zor32fc>("zorsWinBartlett_32fc", Curve::bartlett, zorsWinBartlett_32fc, zorsWinBartlett_32fc_I),
          plain<Zor32fc>("zorsWinHann_32fc", Curve::hann, zorsWinHann_32fc, zorsWinHann_32fc_I),
          plain<Zor32fc>("zorsWinHamming_32fc", Curve::hamming, zorsWinHamming_32fc, zorsWinHamming_32fc_I),
          withAlpha<Zor32fc>("zorsWinBlackman_32fc", Curve::blackman, zorsWinBlackman_32fc, zorsWinBlackman_32fc_I),
          plain<Zor32fc>("zorsWinBlackmanStd_32fc", Curve::blackman, zorsWinBlackmanStd_32fc, zorsWinBlackmanStd_32fc_I, standardAlpha<Zor32fc>),
          plain<Zor32fc>("zorsWinBlackmanOpt_32fc", Curve::blackman, zorsWinBlackmanOpt_32fc, zorsWinBlackmanOpt_32fc_I, optimalAlpha<Zor32fc>),
          withAlpha<Zor32fc>("zorsWinKaiser_32fc", Curve::kaiserCoarse, zorsWinKaiser_32fc, zorsWinKaiser_32fc_I)};
}
template <> std::vector<Window<Zor64f>> members<Zor64f>() {
  return {plain<Zor64f>("zorsWinBartlett_64f", Curve::bartlett, zorsWinBartlett_64f, zorsWinBartlett_64f_I),
          plain<Zor64f>("zorsWinHann_64f", Curve::hann, zorsWinHann_64f, zorsWinHann_64f_I),
          plain<Zor64f>("zorsWinHamming_64f", Curve::hamming, zorsWinHamming_64f, zorsWinHamming_64f_I),
          withAlpha<Zor64f>("zorsWinBlackman_64f", Curve::blackman, zorsWinBlackman_64f, zorsWinBlackman_64f_I),
          plain<Zor64f>("zorsWinBlackmanStd_64f", Curve::blackman, zorsWinBlackmanStd_64f, zorsWinBlackmanStd_64f_I, standardAlpha<Zor64f>),
          plain<Zor64f>("zorsWinBlackmanOpt_64f", Curve::blackman, zorsWinBlackmanOpt_64f, zorsWinBlackmanOpt_64f_I, optimalAlpha<Zor64f>),
          withAlpha<Zor64f>("zorsWinKaiser_64f", Curve::kaiserFine, zorsWinKaiser_64f, zorsWinKaiser_64f_I)};
}
template <> std::vector<Window<Zor64fc>> members<Zor64fc>() {
  return {plain<Zor64fc>("zorsWinBartlett_64fc", Curve::bartlett, zorsWinBartlett_64fc, zorsWinBartlett_64fc_I),
          plain<Zor64fc>("zorsWinHann_64fc", Curve::hann, zorsWinHann_64fc, zorsWinHann_64fc_I),
          plain<Zor64fc>("zorsWinHamming_64fc", Curve::hamming, zorsWinHamming_64fc, zorsWinHamming_64fc_I),
          withAlpha<Zor64fc>("zorsWinBlackman_64fc", Curve::blackman, zorsWinBlackman_64fc, zorsWinBlackman_64fc_I),
          plain<Zor64fc>("zorsWinBlackmanStd_64fc", Curve::blackman, zorsWinBlackmanStd_64fc, zorsWinBlackmanStd_64fc_I, standardAlpha<Zor64fc>),
          plain<Zor64fc>("zorsWinBlackmanOpt_64fc", Curve::blackman, zorsWinBlackmanOpt_64fc, zorsWinBlackmanOpt_64fc_I, optimalAlpha<Zor64fc>),
          withAlpha<Zor64fc>("zorsWinKaiser_64fc", Curve::kaiserFine, zorsWinKaiser_64fc, zorsWinKaiser_64fc_I)};
}
// clang-format on

// ---- Sweeps -------------------------------------------------------------------------------------

// How far a part may be from x * w: the rounding of weight and product, the fit's arithmetic for Kaiser.
template <class P> long double allowed(Curve curve, long double x, long double w, long len, long double alpha) {
  const long double eps = std::numeric_limits<P>::epsilon(), one = std::numeric_limits<P>::denorm_min();
  const long double size = curve == Curve::blackman ? 1 + 3 * std::fabs(alpha) : 1;
  if (isKaiser(curve)) return std::fabs(x * w) * eps * (8 + 6 * std::fabs(alpha) * static_cast<long double>(len)) + one;
  if (sizeof(P) == 4) {  // the weight, a ramp's two products, and the multiplication
    const long double roundings = curve == Curve::bartlett ? 1.6L : 1.05L;
    return std::fabs(x) * eps * roundings * size * std::max(std::fabs(w), 1e-6L) + one;
  }
  return std::fabs(x) * eps * size * (2 + 0.02L * static_cast<long double>(len)) + one;
}

template <class P> std::string partFault(Curve curve, long n, long len, long double alpha, int shortest, P x, P got) {
  const bool end = n == 0 || n == len - 1, centre = 2 * n == len - 1;
  const auto wrong = [&](long double wanted) {
    return "[" + std::to_string(n) + "] of " + kit::text(x) + ": got " + kit::text(got) + ", wanted " +
           std::to_string(double(wanted));
  };
  const auto exactly = [&](P wanted) {
    return kit::sameBits(got, wanted) ? "" : wrong(static_cast<long double>(wanted));
  };
  if (len == 1 || (centre && !isKaiser(curve))) return exactly(x);
  const bool zeroEnds = curve == Curve::bartlett || (curve == Curve::blackman && len == 3 && shortest == 3);
  if (end && zeroEnds) return exactly(0);
  const long double w = windows::weight(curve, n, len, alpha), wanted = static_cast<long double>(x) * w;
  if constexpr (std::is_integral_v<P>) {
    if (end && !isKaiser(curve)) return exactly(curve == Curve::hamming ? P(float(x) * (0.54F - 0.46F)) : P(0));
    const long double held = std::clamp(wanted, -32768.0L, 32767.0L);
    const long double slack =
        std::fabs(wanted) * 3e-7L + std::fabs(static_cast<long double>(x)) * 2e-7L * (1 + 2 * std::fabs(alpha));
    return std::fabs(static_cast<long double>(got) - held) <= 0.5L + slack ? "" : wrong(wanted);
  } else {
    if (std::isnan(x)) return std::isnan(got) ? "" : wrong(wanted);
    return std::fabs(static_cast<long double>(got) - wanted) <=
                   allowed<P>(curve, static_cast<long double>(x), w, len, alpha)
               ? ""
               : wrong(wanted);
  }
}

template <class T> T sample(kit::Random& random) {
  using P = PartOf<T>;
  const auto part = [&]() -> P {
    if constexpr (std::is_integral_v<P>) {
      return kit::anyValue<P>(random);
    } else {
      if (random() % 40 == 0) return std::numeric_limits<P>::quiet_NaN();
      return static_cast<P>(std::ldexp(double(random() >> 11) * 0x1p-53 - 0.5, int(random() % 20)));
    }
  };
  if constexpr (kit::ComplexPair<T>)
    return {part(), part()};
  else
    return part();
}

template <class T> void checkWindow(const Window<T>& window, int len, double alpha, kit::Edge edge, std::size_t away) {
  kit::Random random{unsigned(len)};
  const auto count = std::size_t(len);
  std::vector<T> source(count);
  for (T& x : source) x = sample<T>(random);
  const kit::Guarded<T> src(source, edge, away), dst(count, edge, (away + sizeof(T)) % 32), both(source, edge, away);
  const std::string where = window.name + ", len " + std::to_string(len) + ", alpha " + std::to_string(alpha);
  ASSERT_EQ(window.call(src.data(), dst.data(), len, alpha), zorStatusOk) << where;
  ASSERT_EQ(window.inPlace(both.data(), len, alpha), zorStatusOk) << where;
  ASSERT_EQ(kit::firstDifference<T>(both.span(), dst.values()), "") << where << ", in place";
  ASSERT_EQ(kit::firstDifference<T>(src.span(), source, kit::Nan::samePayload), "") << where;
  ASSERT_TRUE(dst.intact() && both.intact()) << where << ": wrote outside";
  const long double used = window.alphaInUse(alpha, len);
  for (long n = 0; n < len; ++n) {
    const T x = source[std::size_t(n)], got = dst[std::size_t(n)];
    std::string fault;
    if constexpr (kit::ComplexPair<T>)
      fault = partFault(window.curve, n, len, used, window.shortest, x.re, got.re) +
              partFault(window.curve, n, len, used, window.shortest, x.im, got.im);
    else
      fault = partFault(window.curve, n, len, used, window.shortest, x, got);
    ASSERT_EQ(fault, "") << where;
  }
}

template <class T> void sweepWindows() {
  for (const Window<T>& window : members<T>())
    for (int len : kit::sweepLengths()) {
      if (len < window.shortest) continue;
      for (double alpha : window.alphas) {
        if (isKaiser(window.curve) && std::fabs(alpha) * (len - 1) > 70) continue;
        for (kit::Edge edge : kit::bothEdges)
          for (std::size_t steps : std::initializer_list<std::size_t>{0, 1, 3}) {
            checkWindow(window, len, alpha, edge, steps * sizeof(PartOf<T>));
            if (testing::Test::HasFatalFailure()) return;
          }
      }
    }
  for (const Window<T>& window : members<T>())
    for (int len : {4096, 32767, 65536}) {
      checkWindow(window, len, isKaiser(window.curve) ? 2e-4 : -0.16, kit::Edge::end, 0);
      if (testing::Test::HasFatalFailure()) return;
    }
}

TEST(Windows, Of16BitElements) { sweepWindows<Zor16s>(); }
TEST(Windows, OfComplex16BitElements) { sweepWindows<Zor16sc>(); }
TEST(Windows, OfFloats) { sweepWindows<Zor32f>(); }
TEST(Windows, OfComplexFloats) { sweepWindows<Zor32fc>(); }
TEST(Windows, OfDoubles) { sweepWindows<Zor64f>(); }
TEST(Windows, OfComplexDoubles) { sweepWindows<Zor64fc>(); }

template <class T> void mirroredAlike() {
  for (const Window<T>& window : members<T>())
    for (int len : {4, 5, 33, 64, 131, 1000}) {
      kit::Random random(3);
      std::vector<T> x(static_cast<std::size_t>(len)), y(x.size());
      for (std::size_t i = 0; i < x.size(); ++i) x[i] = i < x.size() / 2 ? sample<T>(random) : x[x.size() - 1 - i];
      ASSERT_EQ(window.call(x.data(), y.data(), len, 0.01), zorStatusOk);
      for (std::size_t i = 0; i < y.size() / 2; ++i)
        ASSERT_TRUE(kit::sameBits(y[i], y[y.size() - 1 - i])) << window.name << " [" << i << "] of " << len;
    }
}
TEST(Windows, WeighBothHalvesAlikeToTheBit) {
  mirroredAlike<Zor16s>();
  mirroredAlike<Zor16sc>();
  mirroredAlike<Zor32f>();
  mirroredAlike<Zor32fc>();
  mirroredAlike<Zor64f>();
  mirroredAlike<Zor64fc>();
}

// ---- Arguments ----------------------------------------------------------------------------------

template <class T> void checkArguments() {
  for (const Window<T>& window : members<T>()) {
    const bool lengthFirst = window.shortest == 4;
    std::vector<T> src(8, T{}), dst(8);
    std::memset(static_cast<void*>(dst.data()), 0x5A, dst.size() * sizeof(T));
    const auto before = dst;
    const double beyond = isKaiser(window.curve) ? 60000 : 0;  // a bad alpha as well, where there is one
    for (int len : {window.shortest - 1, 0, -1, INT_MIN}) {
      const ZorStatus ofNull = lengthFirst ? zorStatusBadSize : zorStatusNullPointer;
      EXPECT_EQ(window.call(src.data(), dst.data(), len, beyond), zorStatusBadSize) << window.name << len;
      EXPECT_EQ(window.call(nullptr, dst.data(), len, beyond), ofNull) << window.name << len;
      EXPECT_EQ(window.call(src.data(), nullptr, len, beyond), ofNull) << window.name << len;
      EXPECT_EQ(window.inPlace(nullptr, len, beyond), ofNull) << window.name << len;
      EXPECT_EQ(window.inPlace(dst.data(), len, beyond), zorStatusBadSize) << window.name << len;
    }
    EXPECT_EQ(window.call(nullptr, dst.data(), 8, beyond), zorStatusNullPointer) << window.name;
    EXPECT_EQ(window.call(src.data(), nullptr, 8, beyond), zorStatusNullPointer) << window.name;
    EXPECT_EQ(window.inPlace(nullptr, 8, beyond), zorStatusNullPointer) << window.name;
    if (isKaiser(window.curve)) {
      EXPECT_EQ(window.call(src.data(), dst.data(), 8, beyond), zorStatusBadAlpha) << window.name;
      EXPECT_EQ(window.call(src.data(), dst.data(), 8, -beyond), zorStatusBadAlpha) << window.name;
      EXPECT_EQ(window.inPlace(dst.data(), 8, beyond), zorStatusBadAlpha) << window.name;
    }
    EXPECT_EQ(std::memcmp(dst.data(), before.data(), dst.size() * sizeof(T)), 0) << window.name << " wrote";
  }
}
TEST(Windows, CheckPointersThenLengthThenAlphaAndWriteNothing) {
  checkArguments<Zor16s>();
  checkArguments<Zor16sc>();
  checkArguments<Zor32f>();
  checkArguments<Zor32fc>();
  checkArguments<Zor64f>();
  checkArguments<Zor64fc>();
  kit::Contract contract(zorsWinBlackmanQ15_16s_ISfs, std::vector<Zor16s>(8).data(), 8, 0, 0);
  contract.null<0>().bad<1>({2, 0, -1, INT_MIN}, zorStatusBadSize).verify("zorsWinBlackmanQ15_16s_ISfs");
}

TEST(WinBlackmanOpt, TellsOfALengthOf3EvenWithNullPointers) {
  EXPECT_EQ(zorsWinBlackmanOpt_64f(nullptr, nullptr, 3), zorStatusBadSize);
  EXPECT_EQ(zorsWinBlackmanOpt_64f_I(nullptr, 3), zorStatusBadSize);
  EXPECT_EQ(zorsWinBlackmanOpt_16s(nullptr, nullptr, 4), zorStatusNullPointer);
}

// ---- Cases --------------------------------------------------------------------------------------

TEST(WinHamming, CopiesAnOddCentreBitForBit) {
  for (Zor32f centre : {-0.0F, std::bit_cast<Zor32f>(0x7FA12345U), 1e-42F, 3.0F}) {
    std::vector<Zor32f> x(33, 1.0F), y(33);
    std::memcpy(&x[16], &centre, sizeof centre);
    ASSERT_EQ(zorsWinHamming_32f(x.data(), y.data(), 33), zorStatusOk);
    EXPECT_EQ(std::memcmp(&x[16], &y[16], sizeof centre), 0);
  }
}

TEST(WinBartlett, Of3ElementsKeepsTheMiddleOne) {
  const Zor16s x[] = {-5, 32767, 9};
  Zor16s y[3] = {1, 1, 1};
  ASSERT_EQ(zorsWinBartlett_16s(x, y, 3), zorStatusOk);
  EXPECT_EQ(std::vector<Zor16s>(y, y + 3), (std::vector<Zor16s>{0, 32767, 0}));
}

TEST(WinBlackman, Of3ElementsWritesZerosOverAnyEnds) {
  const Zor64f nan = std::numeric_limits<Zor64f>::quiet_NaN();
  Zor64f x[] = {nan, nan, -INFINITY};
  ASSERT_EQ(zorsWinBlackman_64f_I(x, 3, 7), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(x[0], 0.0) && std::isnan(x[1]) && kit::sameBits(x[2], 0.0));
}

TEST(WinBartlett, EndsAreZeroWhateverTheSourceHolds) {
  std::vector<Zor32f> x(10, std::numeric_limits<Zor32f>::infinity());
  ASSERT_EQ(zorsWinBartlett_32f_I(x.data(), 10), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(x.front(), 0.0F) && kit::sameBits(x.back(), 0.0F));
  EXPECT_TRUE(std::isinf(x[1]));
}

TEST(WinKaiser, HasALimitOf38InSinglePrecisionOf308Otherwise) {
  std::vector<Zor32f> x(617, 1.0F);
  std::vector<Zor32fc> xc(617, {1, 1});
  std::vector<Zor64f> d(617, 1.0);
  std::vector<Zor64fc> dc(617, {1, 1});
  std::vector<Zor16s> s(618, 100);
  std::vector<Zor16sc> sc(618, {100, 100});
  EXPECT_EQ(zorsWinKaiser_32f_I(x.data(), 77, 1), zorStatusOk);  // 38 exactly
  EXPECT_EQ(zorsWinKaiser_32f_I(x.data(), 78, 1), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_32f_I(x.data(), 5, 19.0F), zorStatusOk);
  EXPECT_EQ(zorsWinKaiser_32f_I(x.data(), 5, std::nextafter(19.0F, 20.0F)), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_32fc_I(xc.data(), 77, -1), zorStatusOk);
  EXPECT_EQ(zorsWinKaiser_32fc_I(xc.data(), 78, -1), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_64f_I(d.data(), 78, 1), zorStatusOk);
  EXPECT_EQ(zorsWinKaiser_64f_I(d.data(), 617, 1), zorStatusOk);  // 308 exactly
  EXPECT_EQ(zorsWinKaiser_64f_I(d.data(), 617, std::nextafter(1.0, 2.0)), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_64fc_I(dc.data(), 617, 1.01), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_16s_I(s.data(), 617, 1), zorStatusOk);
  EXPECT_EQ(zorsWinKaiser_16s_I(s.data(), 618, 1), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiser_16sc_I(sc.data(), 617, 1), zorStatusOk);
  EXPECT_EQ(zorsWinKaiser_16sc_I(sc.data(), 618, 1), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiserQ15_16s_I(s.data(), 617, 32768), zorStatusOk);
  EXPECT_EQ(zorsWinKaiserQ15_16s_I(s.data(), 617, 32769), zorStatusBadAlpha);
  EXPECT_EQ(zorsWinKaiserQ15_16sc_I(sc.data(), 617, -32769), zorStatusBadAlpha);
  for (Zor64f value : d) ASSERT_TRUE(value >= 0 && value <= 1.000001) << value;
}

TEST(WinKaiser, CopiesASingleElementForAnyAlpha) {
  for (Zor32f alpha : {0.0F, 1e30F, -INFINITY, NAN}) {
    const Zor32f x = -7.25F;
    Zor32f y = 0;
    EXPECT_EQ(zorsWinKaiser_32f(&x, &y, 1, alpha), zorStatusOk) << alpha;
    EXPECT_EQ(y, x);
  }
  Zor16s one = -32768;
  EXPECT_EQ(zorsWinKaiserQ15_16s_I(&one, 1, INT_MIN), zorStatusOk);
  EXPECT_EQ(one, -32768);
}

TEST(WinKaiser, IsTheSameForAnAlphaAndItsNegative) {
  std::vector<Zor32f> x(100, 1.5F), a(100), b(100);
  zorsWinKaiser_32f(x.data(), a.data(), 100, 0.3F);
  zorsWinKaiser_32f(x.data(), b.data(), 100, -0.3F);
  EXPECT_EQ(kit::firstDifference<Zor32f>(a, b), "");
}

TEST(WinKaiser, IsNearTheBesselFunctionItself) {
  std::vector<Zor64f> w(501, 1.0);
  ASSERT_EQ(zorsWinKaiser_64f_I(w.data(), 501, 0.04), zorStatusOk);
  for (std::size_t n = 0; n < w.size(); ++n) {
    const auto inside = std::sqrt(static_cast<long double>(n) * static_cast<long double>(500 - n));
    const long double wanted = windows::besselSeries(0.04L * inside) / windows::besselSeries(10);
    ASSERT_LE(std::fabs(static_cast<long double>(w[n]) - wanted), 7e-6L * wanted) << n;  // the fits' own error
  }
}

TEST(Windows, AreNotReadBeyondANotANumber) {  // a NaN stays at its place
  std::vector<Zor32f> x(67, 1.0F);
  x[5] = x[60] = NAN;
  ASSERT_EQ(zorsWinHann_32f_I(x.data(), 67), zorStatusOk);
  for (std::size_t n = 0; n < 67; ++n) EXPECT_EQ(std::isnan(x[n]), n == 5 || n == 60) << n;
}

TEST(Windows, KeepTheirAccuracyInLongVectors) {
  const int len = 1'000'003;
  std::vector<Zor64f> x(len, 1.0);
  ASSERT_EQ(zorsWinHann_64f_I(x.data(), len), zorStatusOk);
  std::vector<Zor16s> s(len, 30000);
  ASSERT_EQ(zorsWinBlackmanStd_16s_I(s.data(), len), zorStatusOk);
  for (int n = 0; n < len; n += 997) {
    EXPECT_NEAR(x[std::size_t(n)], double(windows::weight(Curve::hann, n, len, 0)), 1e-11) << n;
    EXPECT_NEAR(s[std::size_t(n)], double(30000 * windows::weight(Curve::blackman, n, len, -0.16L)), 0.52) << n;
  }
}

TEST(Windows, RoundIntegersInTheCurrentDirectionAndTruncateHammingsEnds) {
  const int len = 101;
  std::vector<Zor16s> x(len);
  kit::Random random(1);
  for (auto& value : x) value = kit::anyValue<Zor16s>(random);
  for (unsigned direction : kit::allDirections) {
    std::vector<Zor16s> y(len);
    {
      const kit::Direction scope(direction);
      ASSERT_EQ(zorsWinHamming_16s(x.data(), y.data(), len), zorStatusOk);
    }
    EXPECT_EQ(y[0], Zor16s(float(x[0]) * (0.54F - 0.46F)));
    EXPECT_EQ(y[100], Zor16s(float(x[100]) * (0.54F - 0.46F)));
    for (long n = 1; n < len - 1; ++n) {
      const double exact = double(windows::weight(Curve::hamming, n, len, 0) * x[std::size_t(n)]);
      const double got = y[std::size_t(n)];
      const double slack = 0.02, below = direction == _MM_ROUND_UP ? 0 : 1, above = direction == _MM_ROUND_DOWN ? 0 : 1;
      EXPECT_TRUE(got > exact - below - slack && got < exact + above + slack) << n;
      if (direction == _MM_ROUND_TOWARD_ZERO) {
        EXPECT_LE(std::fabs(got), std::fabs(exact) + slack) << n;
      } else if (direction == _MM_ROUND_NEAREST) {
        EXPECT_NEAR(got, exact, 0.5 + slack) << n;
      }
    }
  }
}

TEST(WinBlackman, SaturatesBySignAtLargeAlpha) {
  for (Zor32f alpha : {1e9F, -1e9F}) {
    std::vector<Zor16s> x(40, -32768), y(40);
    ASSERT_EQ(zorsWinBlackman_16s(x.data(), y.data(), 40, alpha), zorStatusOk);
    for (std::size_t n = 1; n + 1 < y.size(); ++n) EXPECT_EQ(y[n], alpha > 0 ? -32768 : 32767) << n;
  }
  std::vector<Zor16s> wide(40, 1);
  ASSERT_EQ(zorsWinBlackmanQ15_16s_I(wide.data(), 40, 1 << 30), zorStatusOk);  // alpha 32768
  EXPECT_NEAR(wide[10], double(windows::weight(Curve::blackman, 10, 40, 32768)), 1.0);
}

// ---- The scaled form ----------------------------------------------------------------------------

TEST(WinBlackmanQ15_16s_ISfs, ScalesBeforeItsOneRoundingTheCentreToo) {
  kit::Random random(9);
  for (int len : {3, 4, 5, 17, 64, 101, 1000})
    for (int scale : {-20, -3, -1, 0, 1, 2, 7, 15, 16, 17, 40})
      for (Zor32s alphaQ15 : {-5243, 0, 20000, -100000}) {
        std::vector<Zor16s> x(static_cast<std::size_t>(len));
        for (auto& value : x) value = kit::anyValue<Zor16s>(random);
        const kit::Guarded<Zor16s> y(x, kit::Edge::end);
        ASSERT_EQ(zorsWinBlackmanQ15_16s_ISfs(y.data(), len, alphaQ15, scale), zorStatusOk);
        ASSERT_TRUE(y.intact());
        for (long n = 0; n < len; ++n) {
          const long double value = x[std::size_t(n)],
                            w = windows::weight(Curve::blackman, n, len, alphaQ15 / 32768.0L);
          const long double exact =
              n == 0 || n == len - 1 ? 0 : std::ldexp(2 * n == len - 1 ? value : value * w, -scale);
          const long double slack =
              2 * n == len - 1 ? 0
                               : std::ldexp(1e-6L * std::fabs(value) * (1 + std::fabs(alphaQ15 / 32768.0L)), -scale);
          ASSERT_LE(std::fabs(y[std::size_t(n)] - std::clamp(exact, -32768.0L, 32767.0L)), 0.5L + slack)
              << n << " of " << len << ", scale " << scale << ", alpha " << alphaQ15;
        }
      }
}

TEST(WinBlackmanQ15_16s_ISfs, AtExtremeFactorsSaturatesOrZeroes) {
  for (int scale : {INT_MIN, INT_MIN + 1, -1000, -128, -127, 127, 149, 150, 1000, INT_MAX}) {
    std::vector<Zor16s> x = {5, 100, -100, 0, 7, -7, 0, 100, -3};
    ASSERT_EQ(zorsWinBlackmanQ15_16s_ISfs(x.data(), 9, -5243, scale), zorStatusOk);
    const std::vector<Zor16s> large = {0, 32767, -32768, 0, 32767, -32768, 0, 32767, 0}, zeros(9, 0);
    EXPECT_EQ(x, scale < 0 ? large : zeros) << scale;
  }
}

TEST(WinBlackmanQ15_16s_ISfs, RoundsTiesToTheEvenNumber) {
  std::vector<Zor16s> x = {0, 0, 5, 0, 0}, y = {0, 0, 7, 0, 0};
  zorsWinBlackmanQ15_16s_ISfs(x.data(), 5, 0, 1);
  zorsWinBlackmanQ15_16s_ISfs(y.data(), 5, 0, 1);
  EXPECT_EQ(x[2], 2);
  EXPECT_EQ(y[2], 4);
}

}  // namespace
