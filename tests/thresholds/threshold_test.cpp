#include <immintrin.h>

#include <algorithm>
#include <functional>

#include "kit/elementwise.h"
#include "zors/thresholds.h"

namespace {

template <class T> using Call = std::function<ZorStatus(const T*, T*, Zor32s)>;
template <class T> using CallInPlace = std::function<ZorStatus(T*, Zor32s)>;
template <class T> using Model = std::function<T(T)>;

// One export and its in-place form, with their levels and values bound.
template <class T>
void check(const std::string& name, const Call<T>& call, const CallInPlace<T>& inPlace, const Model<T>& model,
           bool allLengths = false) {
  const auto& lengths = allLengths ? kit::sweepLengths() : kit::fewLengths();
  kit::sweep<T, T>(name, call, model, lengths);
  kit::sweepInPlace<T>(name + "_I", inPlace, model, lengths);
}

// Bad arguments of an export and of its in-place form, after the length; extra... are good levels and values.
template <class T, class... Extra>
void contracts(const char* name, ZorStatus (*call)(const T*, T*, Zor32s, Extra...),
               ZorStatus (*inPlace)(T*, Zor32s, Extra...), std::type_identity_t<Extra>... extra) {
  const std::vector<T> src(8);
  std::vector<T> dst(8);
  kit::Contract(call, src.data(), dst.data(), 8, extra...)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, dst.data(), 8, extra...)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
// And the status of a fault among the levels, which comes last.
template <class T, class... Extra>
void fault(const char* name, ZorStatus (*call)(const T*, T*, Zor32s, Extra...),
           ZorStatus (*inPlace)(T*, Zor32s, Extra...), ZorStatus wanted, std::type_identity_t<Extra>... extra) {
  const std::vector<T> src(8);
  std::vector<T> dst(8), before(dst);
  EXPECT_EQ(call(src.data(), dst.data(), 8, extra...), wanted) << name;
  EXPECT_EQ(call(src.data(), dst.data(), 0, extra...), zorStatusBadSize) << name;
  EXPECT_EQ(call(nullptr, dst.data(), 8, extra...), zorStatusNullPointer) << name;
  EXPECT_EQ(inPlace(dst.data(), 8, extra...), wanted) << name;
  EXPECT_EQ(inPlace(dst.data(), 0, extra...), zorStatusBadSize) << name;
  EXPECT_EQ(inPlace(nullptr, 8, extra...), zorStatusNullPointer) << name;
  EXPECT_EQ(std::memcmp(dst.data(), before.data(), 8 * sizeof(T)), 0) << name << " wrote";
}

// ---- Real vectors -------------------------------------------------------------------------------

template <class T> T below(T x, T level) { return x > level ? x : level; }  // NaN becomes the level
template <class T> T above(T x, T level) { return x < level ? x : level; }
template <class T> T signedLike(T level, T x) {
  if constexpr (std::floating_point<T>)
    return std::copysign(level, x);
  else
    return T(x < 0 ? -level : level);
}
template <class T> auto magnitudeOf(T x) {
  if constexpr (std::floating_point<T>)
    return std::fabs(x);
  else
    return std::abs(Zor64s(x));
}
template <class T> T belowAbs(T x, T level) { return magnitudeOf(x) < level ? signedLike(level, x) : x; }
template <class T> T aboveAbs(T x, T level) { return magnitudeOf(x) > level ? signedLike(level, x) : x; }
template <class T> T belowValue(T x, T level, T value) { return x < level ? value : x; }
template <class T> T aboveValue(T x, T level, T value) { return level >= x ? x : value; }  // NaN becomes the value
template <class T> T betweenValues(T x, T levelLT, T valueLT, T levelGT, T valueGT) {
  return x < levelLT ? valueLT : x > levelGT ? valueGT : x;
}

template <class T> std::vector<T> levels() {
  using L = std::numeric_limits<T>;
  std::vector<T> out = {1, 0, -3, 100, L::max(), L::lowest()};
  if constexpr (std::floating_point<T>)
    for (T level : {T(-0.0), T(0.1), L::denorm_min(), L::infinity(), -L::infinity(), L::quiet_NaN()})
      out.push_back(level);
  return out;
}

template <class T, class... Extra> struct Row {
  const char* name;
  ZorStatus (*call)(const T*, T*, Zor32s, Extra...);
  ZorStatus (*inPlace)(T*, Zor32s, Extra...);
  T (*model)(T, Extra...);

  void run(bool allLengths, Extra... extra) const {
    check<T>(
        name, [=, this](const T* src, T* dst, Zor32s len) { return call(src, dst, len, extra...); },
        [=, this](T* srcDst, Zor32s len) { return inPlace(srcDst, len, extra...); },
        [=, this](T x) { return model(x, extra...); }, allLengths);
  }
};

template <class T> void checkLevels(std::initializer_list<Row<T, T>> rows, bool magnitudes) {
  for (const auto& row : rows) {
    contracts<T, T>(row.name, row.call, row.inPlace, T(1));
    if (magnitudes)
      for (T level : {T(-1), std::numeric_limits<T>::lowest()})
        fault<T, T>(row.name, row.call, row.inPlace, zorStatusNegativeThresholdLevel, level);
    bool first = true;
    for (T level : levels<T>()) {
      if (magnitudes && level < 0) continue;
      row.run(std::exchange(first, false), level);
    }
  }
}
TEST(Threshold, LtAndGtOfRealsAreMaximumAndMinimumWithTheLevelSecond) {
  checkLevels<Zor16s>({{"zorsThreshold_LT_16s", zorsThreshold_LT_16s, zorsThreshold_LT_16s_I, below},
                       {"zorsThreshold_GT_16s", zorsThreshold_GT_16s, zorsThreshold_GT_16s_I, above}},
                      false);
  checkLevels<Zor32s>({{"zorsThreshold_LT_32s", zorsThreshold_LT_32s, zorsThreshold_LT_32s_I, below},
                       {"zorsThreshold_GT_32s", zorsThreshold_GT_32s, zorsThreshold_GT_32s_I, above}},
                      false);
  checkLevels<Zor32f>({{"zorsThreshold_LT_32f", zorsThreshold_LT_32f, zorsThreshold_LT_32f_I, below},
                       {"zorsThreshold_GT_32f", zorsThreshold_GT_32f, zorsThreshold_GT_32f_I, above}},
                      false);
  checkLevels<Zor64f>({{"zorsThreshold_LT_64f", zorsThreshold_LT_64f, zorsThreshold_LT_64f_I, below},
                       {"zorsThreshold_GT_64f", zorsThreshold_GT_64f, zorsThreshold_GT_64f_I, above}},
                      false);
}
TEST(Threshold, MagnitudesTakeTheLevelWithTheSignOfTheElementAndKeepNan) {
  checkLevels<Zor16s>({{"zorsThreshold_LTAbs_16s", zorsThreshold_LTAbs_16s, zorsThreshold_LTAbs_16s_I, belowAbs},
                       {"zorsThreshold_GTAbs_16s", zorsThreshold_GTAbs_16s, zorsThreshold_GTAbs_16s_I, aboveAbs}},
                      true);
  checkLevels<Zor32s>({{"zorsThreshold_LTAbs_32s", zorsThreshold_LTAbs_32s, zorsThreshold_LTAbs_32s_I, belowAbs},
                       {"zorsThreshold_GTAbs_32s", zorsThreshold_GTAbs_32s, zorsThreshold_GTAbs_32s_I, aboveAbs}},
                      true);
  checkLevels<Zor32f>({{"zorsThreshold_LTAbs_32f", zorsThreshold_LTAbs_32f, zorsThreshold_LTAbs_32f_I, belowAbs},
                       {"zorsThreshold_GTAbs_32f", zorsThreshold_GTAbs_32f, zorsThreshold_GTAbs_32f_I, aboveAbs}},
                      true);
  checkLevels<Zor64f>({{"zorsThreshold_LTAbs_64f", zorsThreshold_LTAbs_64f, zorsThreshold_LTAbs_64f_I, belowAbs},
                       {"zorsThreshold_GTAbs_64f", zorsThreshold_GTAbs_64f, zorsThreshold_GTAbs_64f_I, aboveAbs}},
                      true);
}

template <class T> void checkValues(std::initializer_list<Row<T, T, T>> rows) {
  for (const auto& row : rows) {
    contracts<T, T, T>(row.name, row.call, row.inPlace, T(1), T(2));
    bool first = true;
    for (T level : levels<T>()) row.run(std::exchange(first, false), level, T(-7));
  }
}
TEST(Threshold, NanIsKeptBelowAndReplacedAbove) {
  checkValues<Zor16s>({{"zorsThreshold_LTVal_16s", zorsThreshold_LTVal_16s, zorsThreshold_LTVal_16s_I, belowValue},
                       {"zorsThreshold_GTVal_16s", zorsThreshold_GTVal_16s, zorsThreshold_GTVal_16s_I, aboveValue}});
  checkValues<Zor32f>({{"zorsThreshold_LTVal_32f", zorsThreshold_LTVal_32f, zorsThreshold_LTVal_32f_I, belowValue},
                       {"zorsThreshold_GTVal_32f", zorsThreshold_GTVal_32f, zorsThreshold_GTVal_32f_I, aboveValue}});
  checkValues<Zor64f>({{"zorsThreshold_LTVal_64f", zorsThreshold_LTVal_64f, zorsThreshold_LTVal_64f_I, belowValue},
                       {"zorsThreshold_GTVal_64f", zorsThreshold_GTVal_64f, zorsThreshold_GTVal_64f_I, aboveValue}});
}

template <class T> void checkBothValues(Row<T, T, T, T, T> row) {
  contracts<T, T, T, T, T>(row.name, row.call, row.inPlace, T(1), T(2), T(3), T(4));
  fault<T, T, T, T, T>(row.name, row.call, row.inPlace, zorStatusThresholdLevelsCrossed, T(2), T(0), T(1), T(0));
  bool first = true;
  for (T levelLT : levels<T>())
    for (T levelGT : levels<T>()) {
      if (levelLT > levelGT) continue;
      row.run(std::exchange(first, false), levelLT, T(50), levelGT, T(-50));  // values cross the other level
    }
}
TEST(Threshold, LtValGtValJudgesTheOriginalElement) {
  checkBothValues<Zor16s>(
      {"zorsThreshold_LTValGTVal_16s", zorsThreshold_LTValGTVal_16s, zorsThreshold_LTValGTVal_16s_I, betweenValues});
  checkBothValues<Zor32s>(
      {"zorsThreshold_LTValGTVal_32s", zorsThreshold_LTValGTVal_32s, zorsThreshold_LTValGTVal_32s_I, betweenValues});
  checkBothValues<Zor32f>(
      {"zorsThreshold_LTValGTVal_32f", zorsThreshold_LTValGTVal_32f, zorsThreshold_LTValGTVal_32f_I, betweenValues});
  checkBothValues<Zor64f>(
      {"zorsThreshold_LTValGTVal_64f", zorsThreshold_LTValGTVal_64f, zorsThreshold_LTValGTVal_64f_I, betweenValues});
}

// ---- Complex vectors ----------------------------------------------------------------------------

template <class C> using PartOf = decltype(C::re);

// Squares as they are compared: exact, or each operation rounded. Volatile values keep the compiler from moving an
// operation out of the direction that it is to be made in, and from changing the sign of operands instead of results.
auto square(Zor16sc z) { return Zor64s(z.re) * z.re + Zor64s(z.im) * z.im; }
template <class C> auto square(C z) {
  volatile auto re = z.re * z.re, im = z.im * z.im;
  return re + im;
}
auto square(Zor16s level) { return Zor64s(level) * level; }
template <std::floating_point F> F square(F level) {
  volatile F operand = level, product = operand * operand;
  return product;
}

template <class C> C belowMagnitude(C z, PartOf<C> level, C value) { return square(z) < square(level) ? value : z; }
template <class C> C aboveMagnitude(C z, PartOf<C> level, C value) { return square(level) >= square(z) ? z : value; }

template <class C> void checkComplexValues(std::initializer_list<Row<C, PartOf<C>, C>> rows) {
  using R = PartOf<C>;
  for (const auto& row : rows) {
    contracts<C, R, C>(row.name, row.call, row.inPlace, R(1), C{1, 2});
    fault<C, R, C>(row.name, row.call, row.inPlace, zorStatusNegativeThresholdLevel, R(-1), C{1, 2});
    bool first = true;
    for (R level : levels<R>())
      if (!(level < 0)) row.run(std::exchange(first, false), level, C{R(-7), R(9)});
  }
}
TEST(Threshold, ComplexElementsBecomeTheValueByTheSquareOfTheirMagnitude) {
  checkComplexValues<Zor16sc>(
      {{"zorsThreshold_LTVal_16sc", zorsThreshold_LTVal_16sc, zorsThreshold_LTVal_16sc_I, belowMagnitude},
       {"zorsThreshold_GTVal_16sc", zorsThreshold_GTVal_16sc, zorsThreshold_GTVal_16sc_I, aboveMagnitude}});
  checkComplexValues<Zor32fc>(
      {{"zorsThreshold_LTVal_32fc", zorsThreshold_LTVal_32fc, zorsThreshold_LTVal_32fc_I, belowMagnitude},
       {"zorsThreshold_GTVal_32fc", zorsThreshold_GTVal_32fc, zorsThreshold_GTVal_32fc_I, aboveMagnitude}});
  checkComplexValues<Zor64fc>(
      {{"zorsThreshold_LTVal_64fc", zorsThreshold_LTVal_64fc, zorsThreshold_LTVal_64fc_I, belowMagnitude},
       {"zorsThreshold_GTVal_64fc", zorsThreshold_GTVal_64fc, zorsThreshold_GTVal_64fc_I, aboveMagnitude}});
}

// Binary64: both parts times sqrt(level^2 / m).
Zor64fc atMagnitude(Zor64fc z, Zor64f level) {
  const Zor64f factor = std::sqrt(square(level) / square(z));
  return {z.re * factor, z.im * factor};
}
// 16 bits: the magnitude of each part times that factor, plus a bias, truncated.
Zor16sc atMagnitude(Zor16sc z, Zor16s level, Zor64f bias) {
  const Zor64f factor = std::sqrt(Zor64f(square(level)) / Zor64f(square(z)));
  const auto scaled = [&](int part) {
    volatile Zor64f product = std::abs(part) * factor;
    const int magnitude = int(product + bias);
    return Zor16s(std::clamp(part < 0 ? -magnitude : magnitude, -32768, 32767));
  };
  return {scaled(z.re), scaled(z.im)};
}
template <class C, class... Bias> C raised(C z, PartOf<C> level, Bias... bias) {
  if (level == 0 || square(level) <= square(z)) return z;
  return square(z) == 0 ? C{level, 0} : atMagnitude(z, level, bias...);
}
template <class C, class... Bias> C lowered(C z, PartOf<C> level, Bias... bias) {
  if (level == 0) return {0, 0};
  return square(level) < square(z) ? atMagnitude(z, level, bias...) : z;
}
Zor16sc raised16(Zor16sc z, Zor16s level) { return raised(z, level, 0.99999999999); }
Zor16sc lowered16(Zor16sc z, Zor16s level) { return lowered(z, level, 1.25e-11); }
Zor64fc raised64(Zor64fc z, Zor64f level) { return raised(z, level); }
Zor64fc lowered64(Zor64fc z, Zor64f level) { return lowered(z, level); }

template <class C> void checkMagnitudes(std::initializer_list<Row<C, PartOf<C>>> rows) {
  using R = PartOf<C>;
  for (const auto& row : rows) {
    contracts<C, R>(row.name, row.call, row.inPlace, R(1));
    fault<C, R>(row.name, row.call, row.inPlace, zorStatusNegativeThresholdLevel, R(-1));
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      bool first = direction == _MM_ROUND_NEAREST;
      for (R level : levels<R>())
        if (!(level < 0)) row.run(std::exchange(first, false), level);
    }
  }
}
TEST(Threshold, ComplexElementsAreDrawnToTheLevel) {
  checkMagnitudes<Zor16sc>({{"zorsThreshold_LT_16sc", zorsThreshold_LT_16sc, zorsThreshold_LT_16sc_I, raised16},
                            {"zorsThreshold_GT_16sc", zorsThreshold_GT_16sc, zorsThreshold_GT_16sc_I, lowered16}});
  checkMagnitudes<Zor64fc>({{"zorsThreshold_LT_64fc", zorsThreshold_LT_64fc, zorsThreshold_LT_64fc_I, raised64},
                            {"zorsThreshold_GT_64fc", zorsThreshold_GT_64fc, zorsThreshold_GT_64fc_I, lowered64}});
}

// Binary32: by the processor's estimate, and in groups of four from element 0 on.
Zor32f factor(Zor32f level, Zor32f m) {
  volatile Zor32f r = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(m)));
  volatile Zor32f half = 0.5f * level, left = half * r, mr = m * r, mrr = mr * r, right = 3.0f - mrr;
  return left * right;
}
template <bool lt> std::vector<Zor32fc> drawn(const std::vector<Zor32fc>& src, Zor32f level) {
  std::vector<Zor32fc> out = src;
  if (level == 0) {
    if (!lt) std::fill(out.begin(), out.end(), Zor32fc{0, 0});
    return out;
  }
  const auto replaced = [&](Zor32fc z) { return lt ? !(square(level) <= square(z)) : square(level) < square(z); };
  Zor32f kept = factor(level, square(level));
  if (!std::isfinite(kept)) kept = 1;
  for (std::size_t at = 0; at < src.size(); at += 4) {
    const std::size_t end = std::min(at + 4, src.size());
    if (std::none_of(&src[at], &src[0] + end, replaced)) continue;
    for (std::size_t i = at; i < end; ++i) {
      const Zor32f f = replaced(src[i]) ? factor(level, square(src[i])) : kept;
      out[i] =
          lt && replaced(src[i]) && square(src[i]) == 0 ? Zor32fc{level, 0} : Zor32fc{src[i].re * f, src[i].im * f};
    }
  }
  return out;
}
template <bool lt>
void checkGroups(const char* name, ZorStatus (*call)(const Zor32fc*, Zor32fc*, Zor32s, Zor32f),
                 ZorStatus (*inPlace)(Zor32fc*, Zor32s, Zor32f)) {
  contracts<Zor32fc, Zor32f>(name, call, inPlace, 1.0f);
  fault<Zor32fc, Zor32f>(name, call, inPlace, zorStatusNegativeThresholdLevel, -1.0f);
  kit::Random random(3);
  for (unsigned direction : kit::allDirections) {
    const kit::Direction scope(direction);
    for (Zor32f level : {1.0f, 0.3f, 0.0f, -0.0f, 7e-10f, 1e-19f, 1e-25f, 1e18f, 1e30f, HUGE_VALF, NAN})
      for (int len : kit::sweepLengths())
        for (kit::Edge edge : kit::bothEdges) {
          if (len > 70 && level != 1.0f) continue;
          const auto n = std::size_t(len);
          auto values = kit::anyValues<Zor32fc>(n, random);
          if (len % 3 == 0)
            for (auto& z : values)  // few replaced: some groups wholly kept
              if (random() % 6 != 0) z = {level * (lt ? 4.0f : 0.25f), 0.1f * level};
          const kit::Guarded<Zor32fc> src(values, edge, 8), dst(n, edge);
          const auto wanted = drawn<lt>(values, level);
          ASSERT_EQ(call(src.data(), dst.data(), len, level), zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32fc>(dst.span(), wanted), "") << name << ", len " << len << ", " << level;
          ASSERT_EQ(inPlace(src.data(), len, level), zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32fc>(src.span(), wanted), "") << name << "_I, " << len << ", " << level;
          ASSERT_TRUE(src.intact() && dst.intact()) << name;
        }
  }
}
TEST(Threshold, SingleComplexElementsGoInGroupsOfFourFromTheFirst) {
  checkGroups<true>("zorsThreshold_LT_32fc", zorsThreshold_LT_32fc, zorsThreshold_LT_32fc_I);
  checkGroups<false>("zorsThreshold_GT_32fc", zorsThreshold_GT_32fc, zorsThreshold_GT_32fc_I);
}
TEST(Threshold, SingleComplexMagnitudesComeWithinOneNewtonStep) {
  kit::Random random(4);
  auto src = kit::signal<Zor32fc>(1000, random);
  std::vector<Zor32fc> dst(src.size());
  for (Zor32f level : {0.5f, 1e-15f, 1e15f}) {
    ASSERT_EQ(zorsThreshold_LT_32fc(src.data(), dst.data(), 1000, level), zorStatusOk);
    for (std::size_t i = 0; i < src.size(); ++i) {
      const double was = std::hypot(double(src[i].re), src[i].im), is = std::hypot(double(dst[i].re), dst[i].im);
      const double wanted = std::max(was, double(level));
      ASSERT_NEAR(is / wanted, 1, 0x1p-20) << level;
      ASSERT_NEAR(dst[i].re / is, src[i].re / was, 0x1p-20) << level;
    }
  }
}
TEST(Threshold, MagnitudesOf16BitPairsNeverPassTheLevel) {
  kit::Random random(5);
  constexpr int len = 4000;
  std::vector<Zor16sc> src(len), low(len), high(len);
  for (int round = 0; round < 50; ++round) {
    const auto level = static_cast<Zor16s>(random() >> (round % 16) & 0x7FFF);
    for (auto& z : src) {
      z = kit::anyValue<Zor16sc>(random);
      const auto down = int(random() % 16);
      z = {Zor16s(z.re >> down), Zor16s(z.im >> down)};
    }
    ASSERT_EQ(zorsThreshold_LT_16sc(src.data(), low.data(), len, level), zorStatusOk);
    ASSERT_EQ(zorsThreshold_GT_16sc(src.data(), high.data(), len, level), zorStatusOk);
    for (std::size_t i = 0; i < len; ++i) {
      ASSERT_GE(square(low[i]), square(level)) << kit::text(src[i]) << " " << level;
      ASSERT_LE(square(high[i]), square(level)) << kit::text(src[i]) << " " << level;
    }
  }
}

// ---- By selector --------------------------------------------------------------------------------

template <class T, class R>
void checkSelector(const char* name, ZorStatus (*call)(const T*, T*, Zor32s, R, ZorCmpOp),
                   ZorStatus (*inPlace)(T*, Zor32s, R, ZorCmpOp), ZorStatus (*lt)(const T*, T*, Zor32s, R),
                   ZorStatus (*gt)(const T*, T*, Zor32s, R)) {
  contracts<T, R, ZorCmpOp>(name, call, inPlace, R(1), zorCmpLess);
  constexpr bool complex = !std::is_same_v<T, R>;
  for (ZorCmpOp bad : {1, 2, 3, 5, -1, INT32_MIN}) {
    fault<T, R, ZorCmpOp>(name, call, inPlace, zorStatusBadArgument, R(1), bad);
    fault<T, R, ZorCmpOp>(name, call, inPlace, zorStatusBadArgument, R(-1), bad);
  }
  if (complex)
    for (ZorCmpOp relOp : {zorCmpLess, zorCmpGreater})
      fault<T, R, ZorCmpOp>(name, call, inPlace, zorStatusNegativeThresholdLevel, R(-1), relOp);
  kit::Random random(6);
  const auto src = kit::anyValues<T>(203, random);
  for (ZorCmpOp relOp : {zorCmpLess, zorCmpGreater}) {
    std::vector<T> dst(203), wanted(203), both = src;
    ASSERT_EQ((relOp == zorCmpLess ? lt : gt)(src.data(), wanted.data(), 203, R(2)), zorStatusOk);
    ASSERT_EQ(call(src.data(), dst.data(), 203, R(2), relOp), zorStatusOk);
    ASSERT_EQ(inPlace(both.data(), 203, R(2), relOp), zorStatusOk);
    EXPECT_EQ(kit::firstDifference<T>(dst, wanted), "") << name;
    EXPECT_EQ(kit::firstDifference<T>(both, wanted), "") << name;
  }
}
TEST(Threshold, TheSelectorIsTestedAfterTheLengthAndBeforeTheLevel) {
  checkSelector("zorsThreshold_16s", zorsThreshold_16s, zorsThreshold_16s_I, zorsThreshold_LT_16s,
                zorsThreshold_GT_16s);
  checkSelector("zorsThreshold_32f", zorsThreshold_32f, zorsThreshold_32f_I, zorsThreshold_LT_32f,
                zorsThreshold_GT_32f);
  checkSelector("zorsThreshold_64f", zorsThreshold_64f, zorsThreshold_64f_I, zorsThreshold_LT_64f,
                zorsThreshold_GT_64f);
  checkSelector("zorsThreshold_16sc", zorsThreshold_16sc, zorsThreshold_16sc_I, zorsThreshold_LT_16sc,
                zorsThreshold_GT_16sc);
  checkSelector("zorsThreshold_32fc", zorsThreshold_32fc, zorsThreshold_32fc_I, zorsThreshold_LT_32fc,
                zorsThreshold_GT_32fc);
  checkSelector("zorsThreshold_64fc", zorsThreshold_64fc, zorsThreshold_64fc_I, zorsThreshold_LT_64fc,
                zorsThreshold_GT_64fc);
}

// ---- Reciprocals --------------------------------------------------------------------------------

// One Newton step on the processor's estimate. Below the normal numbers the estimate is of the 2^24-fold, and the
// result is limited.
Zor32f reciprocal(Zor32f m) {
  const bool tiny = m < 0x1p-126f;
  const Zor32f scale = tiny ? 0x1p24f : 1.0f;
  volatile Zor32f scaled = m * scale, r = _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(scaled))), product = scaled * r;
  volatile Zor32f rest = 2.0f - (std::isnan(product) ? 0.0f : product), stepped = r * rest;
  const Zor32f result = stepped * scale;
  return tiny && m != 0 && !(result <= 0x1.FFFFFEp127f) ? 0x1.FFFFFEp127f : result;
}
template <class F> F oneOver(F m) {
  volatile F operand = m, result = 1 / operand;
  return result;
}
Zor64f reciprocal(Zor64f m) { return oneOver(m); }
template <class F> F inverse(F x, F level) {
  const F m = std::fabs(x) > level ? std::fabs(x) : std::fabs(level);
  return std::copysign(reciprocal(m), x);
}
Zor32fc scaledConjugate(Zor32fc z, Zor32f m) {
  volatile Zor32f im = -z.im;
  return {z.re * reciprocal(m), im * reciprocal(m)};
}
Zor64fc scaledConjugate(Zor64fc z, Zor64f m) {
  volatile Zor64f im = -z.im;
  return {z.re / m, im / m};
}
template <class C> C complexInverse(C z, PartOf<C> level) {
  level = std::fabs(level);
  if (square(z) == 0) return {oneOver(level), 0};
  return scaledConjugate(z, square(z) > square(level) ? square(z) : square(level));
}

// Values that are not zeros, or the length of the sweep decides the status.
template <class T, class R>
void checkInverse(const char* name, ZorStatus (*call)(const T*, T*, Zor32s, R), ZorStatus (*inPlace)(T*, Zor32s, R),
                  T (*model)(T, R), bool (*isZero)(T)) {
  contracts<T, R>(name, call, inPlace, R(1));
  fault<T, R>(name, call, inPlace, zorStatusNegativeThresholdLevel, R(-1));
  kit::Random random(7);
  using L = std::numeric_limits<R>;
  for (unsigned direction : kit::allDirections)
    for (R level : {R(0), R(1), R(-0.0), R(0.1), L::denorm_min(), L::min(), std::sqrt(L::min()), R(1e-19), L::max(),
                    L::infinity()})
      for (int len : kit::sweepLengths())
        for (kit::Edge edge : kit::bothEdges) {
          if (len > 70 && level != 0) continue;
          const kit::Direction scope(direction);
          const auto n = std::size_t(len);
          const auto values = kit::anyValues<T>(n, random);
          const kit::Guarded<T> src(values, edge, sizeof(R)), dst(n, edge);
          std::vector<T> wanted(n);
          std::transform(values.begin(), values.end(), wanted.begin(), [&](T x) { return model(x, level); });
          const bool warns = level == 0 && std::any_of(values.begin(), values.end(), isZero);
          const ZorStatus status = warns ? zorWarningInverseOfZero : zorStatusOk;
          ASSERT_EQ(call(src.data(), dst.data(), len, level), status) << name << ", len " << len << ", " << level;
          ASSERT_EQ(kit::firstDifference<T>(dst.span(), wanted), "") << name << ", len " << len << ", " << level;
          ASSERT_EQ(inPlace(src.data(), len, level), status) << name << ", len " << len << ", " << level;
          ASSERT_EQ(kit::firstDifference<T>(src.span(), wanted), "") << name << "_I, " << len << ", " << level;
          ASSERT_TRUE(src.intact() && dst.intact()) << name;
        }
}
template <class F> bool isZero(F x) { return !(std::fabs(x) > 0); }  // NaN counts as the level
template <class C> bool isZeroSquare(C z) { return square(z) == 0; }
TEST(Threshold, ReciprocalsWarnOfZerosOnlyAtLevelZero) {
  checkInverse("zorsThreshold_LTInv_32f", zorsThreshold_LTInv_32f, zorsThreshold_LTInv_32f_I, inverse<Zor32f>,
               isZero<Zor32f>);
  checkInverse("zorsThreshold_LTInv_64f", zorsThreshold_LTInv_64f, zorsThreshold_LTInv_64f_I, inverse<Zor64f>,
               isZero<Zor64f>);
  checkInverse("zorsThreshold_LTInv_32fc", zorsThreshold_LTInv_32fc, zorsThreshold_LTInv_32fc_I,
               complexInverse<Zor32fc>, isZeroSquare<Zor32fc>);
  checkInverse("zorsThreshold_LTInv_64fc", zorsThreshold_LTInv_64fc, zorsThreshold_LTInv_64fc_I,
               complexInverse<Zor64fc>, isZeroSquare<Zor64fc>);
}
TEST(Threshold, ReciprocalsComeWithinOneNewtonStepDenormalsToo) {
  for (int exponent = -149; exponent <= 125; ++exponent)
    for (int k = 0; k < 64; ++k) {
      const Zor32f x = std::ldexp(1.0f + Zor32f(k) / 64, exponent);
      Zor32f y = 0;
      ASSERT_EQ(zorsThreshold_LTInv_32f(&x, &y, 1, 0), zorStatusOk);
      const double wanted = std::min(1 / double(x), 0x1.FFFFFEp127);
      ASSERT_NEAR(y / wanted, 1, 0x1p-21) << x;
    }
}
TEST(Threshold, ReciprocalsMaskAllExceptionsForTheCallAndRestoreTheWord) {
  const Zor32f x[] = {0, NAN, HUGE_VALF, 1e-40f, 3};
  const Zor64fc z[] = {{0, 0}, {HUGE_VAL, 1}, {1e-320, 0}};
  Zor32f y[5] = {};
  Zor64fc w[3] = {};
  const unsigned before = _mm_getcsr();
  const unsigned unmasked = before & ~unsigned{_MM_MASK_MASK | _MM_EXCEPT_MASK};
  _mm_setcsr(unmasked);
  const ZorStatus first = zorsThreshold_LTInv_32f(x, y, 5, 0);
  const unsigned between = _mm_getcsr();
  _mm_setcsr(unmasked);
  const ZorStatus second = zorsThreshold_LTInv_64fc(z, w, 3, 0);
  const unsigned after = _mm_getcsr();
  _mm_setcsr(before);
  EXPECT_EQ(first, zorWarningInverseOfZero);
  EXPECT_EQ(second, zorWarningInverseOfZero);
  EXPECT_EQ(between & ~unsigned{_MM_EXCEPT_MASK}, unmasked);
  EXPECT_EQ(after & ~unsigned{_MM_EXCEPT_MASK}, unmasked);
}

// ---- Single cases -------------------------------------------------------------------------------

template <class T> T one(ZorStatus (*call)(const T*, T*, Zor32s, PartOf<T>), T x, PartOf<T> level) {
  T y = {};
  EXPECT_EQ(call(&x, &y, 1, level), zorStatusOk);
  return y;
}
TEST(Threshold, ANanElementBecomesTheLevelBelowAndAbove) {
  const Zor32f x = NAN;
  Zor32f y = 0;
  EXPECT_EQ(zorsThreshold_LT_32f(&x, &y, 1, 1), zorStatusOk);
  EXPECT_EQ(y, 1);
  EXPECT_EQ(zorsThreshold_GT_32f(&x, &y, 1, 2), zorStatusOk);
  EXPECT_EQ(y, 2);
}
TEST(Threshold, AComparisonThatIsNeitherLessNorGreaterIsABadArgument) {
  const Zor32f x = 0;
  Zor32f y = 5;
  EXPECT_EQ(zorsThreshold_32f(&x, &y, 1, 1, 1), zorStatusBadArgument);
  EXPECT_EQ(y, 5);
}
TEST(Threshold, AZeroElementIsRaisedAlongTheRealAxis) {
  const Zor16sc z = one<Zor16sc>(zorsThreshold_LT_16sc, {0, 0}, 3);
  EXPECT_TRUE(z.re == 3 && z.im == 0);
  const Zor32fc w = one<Zor32fc>(zorsThreshold_LT_32fc, {0, -0.0f}, 3);
  EXPECT_TRUE(w.re == 3 && w.im == 0);
}
TEST(Threshold, AMagnitudeOfFiveIsLoweredToOne) {
  const Zor32fc z = one<Zor32fc>(zorsThreshold_GT_32fc, {3, 4}, 1);
  EXPECT_NEAR(z.re, 0.6, 1e-6);
  EXPECT_NEAR(z.im, 0.8, 1e-6);
}
TEST(Threshold, CrossedLevelsAreAnError) {
  const Zor32f x = 0;
  Zor32f y = 5;
  EXPECT_EQ(zorsThreshold_LTValGTVal_32f(&x, &y, 1, 2, 0, 1, 0), zorStatusThresholdLevelsCrossed);
  EXPECT_EQ(y, 5);
}
TEST(Threshold, AReciprocalOfZeroIsInfinityWithAWarning) {
  const Zor32f x[] = {0, -0.0f};
  Zor32f y[2] = {};
  EXPECT_EQ(zorsThreshold_LTInv_32f(x, y, 2, 0), zorWarningInverseOfZero);
  EXPECT_EQ(y[0], HUGE_VALF);
  EXPECT_EQ(y[1], -HUGE_VALF);
}
TEST(Threshold, AReciprocalBelowTheLevelIsThatOfTheLevel) {
  const Zor32f x[] = {-0.25f, 0.5f};
  Zor32f y[2] = {};
  EXPECT_EQ(zorsThreshold_LTInv_32f(x, y, 1, 1), zorStatusOk);
  EXPECT_NEAR(y[0], -1, 0x1p-22);
  EXPECT_EQ(zorsThreshold_LTInv_32f(x + 1, y, 1, 0.25f), zorStatusOk);
  EXPECT_NEAR(y[0], 2, 0x1p-21);
}
TEST(Threshold, AMagnitudeLevelTakesTheSignAndMayNotBeNegative) {
  const Zor16s x = -1;
  Zor16s y = 0;
  EXPECT_EQ(zorsThreshold_LTAbs_16s(&x, &y, 1, 3), zorStatusOk);
  EXPECT_EQ(y, -3);
  EXPECT_EQ(zorsThreshold_LTAbs_16s(&x, &y, 1, -1), zorStatusNegativeThresholdLevel);
}

}  // namespace
