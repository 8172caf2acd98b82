#include "zors/multirate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numeric>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "kit/values.h"

namespace {

using kit::Edge;
using kit::Guarded;
using std::size_t;

// ---- The filter by its definition ---------------------------------------------------------------

struct Rates {
  Zor32s up, upPhase, down, downPhase;
};
std::string text(Zor32s n, const Rates& r) {
  return std::to_string(n) + " taps, up " + std::to_string(r.up) + " phase " + std::to_string(r.upPhase) + ", down " +
         std::to_string(r.down) + " phase " + std::to_string(r.downPhase);
}
struct Point {
  long double re = 0, im = 0;
};
Point operator*(Point a, Point b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
template <class T> Point point(T x) {
  if constexpr (kit::ComplexPair<T>)
    return {(long double)x.re, (long double)x.im};
  else
    return {(long double)x, 0};
}
// Sums and the sums of magnitudes, for samples whose history stands in front. A stream's windows begin at an output's
// place, the others' end there.
struct Model {
  std::vector<Point> sums;
  std::vector<long double> masses;
  template <class Tap, class T>
  Model(const std::vector<Tap>& taps, const std::vector<T>& history, const T* src, Zor32s numIters, const Rates& r,
        bool stream = false) {
    const auto n = std::int64_t(taps.size());
    for (std::int64_t k = 0; k < std::int64_t(numIters) * r.up; ++k) {
      const std::int64_t p = r.downPhase + k * r.down;
      Point sum;
      long double mass = 0;
      for (std::int64_t j = 0; j < n; ++j) {
        const std::int64_t place = (stream ? p + n - 1 - j : p - j) - r.upPhase;
        if (place % r.up != 0) continue;
        const std::int64_t m = place / r.up;  // exact
        const Point x = point(m >= 0 ? src[m] : history[size_t(-1 - m)]), t = point(taps[size_t(j)]), term = t * x;
        sum.re += term.re, sum.im += term.im;
        mass += (std::fabs(t.re) + std::fabs(t.im)) * (std::fabs(x.re) + std::fabs(x.im));
      }
      sums.push_back(sum);
      masses.push_back(mass);
    }
  }
};
// The last t inputs, newest first.
template <class T> std::vector<T> after(const std::vector<T>& history, const T* src, std::int64_t count) {
  std::vector<T> dly;
  for (std::int64_t k = 0; k < std::int64_t(history.size()); ++k)
    dly.push_back(k < count ? src[count - 1 - k] : history[size_t(k - count)]);
  return dly;
}

enum class Ties { even, away, towardZero };
Zor64s wrap32(long double x) { return Zor32s(Zor32u(Zor64u(Zor64s(x)))); }
// The rule of integer sums.
long double shifted(Zor64s sum, Zor64s shift, Ties ties = Ties::even) {
  shift = std::min<Zor64s>(31, std::max<Zor64s>(-31, shift));
  if (shift >= 0) return (long double)Zor32s(Zor32u(Zor64u(sum) << shift));
  const long double x = std::ldexp((long double)sum, int(shift));
  return ties == Ties::towardZero ? std::trunc(x) : ties == Ties::away ? std::round(x) : std::rint(x);
}
template <class T> T saturated(long double x) {
  return T(
      std::min<long double>(std::numeric_limits<T>::max(), std::max<long double>(std::numeric_limits<T>::min(), x)));
}

std::vector<Rates> someRates(kit::Random& random) {
  std::vector<Rates> rates;
  for (auto [up, down] :
       {std::pair{1, 2}, {1, 3}, {1, 4}, {1, 7}, {2, 1}, {3, 1},   {4, 1}, {5, 1},  {8, 1},  {9, 1},  {16, 1},
        {2, 3},          {3, 2}, {4, 4}, {6, 4}, {7, 5}, {13, 11}, {8, 3}, {1, 40}, {40, 1}, {21, 34}}) {
    rates.push_back({up, 0, down, 0});
    rates.push_back({up, up - 1, down, down - 1});
    rates.push_back({up, Zor32s(random() % size_t(up)), down, Zor32s(random() % size_t(down))});
  }
  return rates;
}

// ---- Kinds with a state -------------------------------------------------------------------------

// What tells a form from another, behind one signature, so that the sweep is compiled once for each sample type.
template <class Tap, class T> struct Form {
  const char* name;
  ZorStatus (*getSize)(Zor32s, Zor32s, Zor32s, Zor32s*);
  std::function<ZorStatus(ZorFIRState**, const Tap*, Zor32s, const Rates&, const T*, Zor8u*)>
      init;                                                          // null buffer: InitAlloc
  std::function<ZorStatus(const T*, T*, Zor32s, ZorFIRState*)> run;  // src = dst: the in-place member
  ZorStatus (*free)(ZorFIRState*);
  ZorStatus (*getDly)(const ZorFIRState*, T*);
  ZorStatus (*setDly)(ZorFIRState*, const T*);
  std::function<ZorStatus(const ZorFIRState*, Tap*)> getTaps;
  std::function<ZorStatus(const Tap*, ZorFIRState*)> setTaps;
  std::function<void(const Model&, size_t, T, const std::string&)> expect;
  int scaleFactor;
};

template <class T> std::vector<T> samplesOf(size_t count, kit::Random& random) {
  std::vector<T> x(count);
  const auto part = [&](auto& p) {
    if constexpr (std::is_integral_v<std::remove_reference_t<decltype(p)>>)
      p = std::remove_reference_t<decltype(p)>(random() >> 20);
    else
      p = std::remove_reference_t<decltype(p)>(double(std::int64_t(random() >> 10)) / 0x1p53 - 1);
  };
  for (T& v : x) {
    if constexpr (kit::ComplexPair<T>)
      part(v.re), part(v.im);
    else
      part(v);
  }
  return x;
}

template <class Tap, class T>
void checkForm(const Form<Tap, T>& form, std::vector<Tap> (*makeTaps)(size_t, kit::Random&)) {
  kit::Random random(11);
  size_t round = 0;
  for (const Rates& r : someRates(random))
    for (Zor32s n : {1, 2, 5, 8, 17, 31, 64}) {
      if (++round % 3 != 0 && n > 8) continue;
      const std::string where = std::string(form.name) + ", " + text(n, r);
      const auto t = size_t((n + r.up - 1) / r.up);
      auto taps = makeTaps(size_t(n), random);
      auto history = samplesOf<T>(t, random);
      Zor32s size = 0;
      ASSERT_EQ(form.getSize(n, r.up, r.down, &size), zorStatusOk) << where;
      const Guarded<Zor8u> block(size_t(size), Edge::end, round % 33);
      ZorFIRState* state = nullptr;
      const bool zeros = round % 4 == 0;
      if (zeros) history.assign(t, T{});
      ASSERT_EQ(form.init(&state, taps.data(), n, r, zeros ? nullptr : history.data(),
                          round % 5 == 0 ? nullptr : block.data()),
                zorStatusOk)
          << where;
      for (int numIters : {1, 2, 3, 7, 8, 9, 16, 21, 700}) {
        if (numIters == 700 && (round % 7 != 0 || r.up * r.down > 400)) continue;
        const size_t in = size_t(numIters) * size_t(r.down), out = size_t(numIters) * size_t(r.up);
        const bool inPlace = random() % 3 == 0;
        const Guarded<T> src(samplesOf<T>(inPlace ? std::max(in, out) : in, random),
                             numIters % 2 ? Edge::end : Edge::begin);
        const auto before = src.values();
        const Model model(taps, history, before.data(), numIters, r);
        const Guarded<T> separate(out, Edge::end);
        T* dst = inPlace ? src.data() : separate.data();
        {
          kit::ServicesScope services;
          ASSERT_EQ(form.run(src.data(), dst, numIters, state), zorStatusOk) << where;
          ASSERT_EQ(services->allocations, inPlace && r.up > r.down ? 1 : 0) << where << ", in place " << inPlace;
          ASSERT_EQ(services.leaked(), 0);
        }
        for (size_t k = 0; k < out; ++k) {
          form.expect(model, k, dst[k], where);
          if (testing::Test::HasFatalFailure()) return;
        }
        ASSERT_TRUE(src.intact() && separate.intact()) << where;
        history = after(history, before.data(), std::int64_t(in));
        std::vector<T> dly(t + 1, T{});
        ASSERT_EQ(form.getDly(state, dly.data()), zorStatusOk);
        dly.resize(t);
        ASSERT_EQ(kit::firstDifference<T>(dly, history), "") << where;
        if (numIters == 3) {
          history = samplesOf<T>(t, random);
          ASSERT_EQ(form.setDly(state, history.data()), zorStatusOk);
        } else if (numIters == 8) {
          taps = makeTaps(size_t(n), random);
          ASSERT_EQ(form.setTaps(taps.data(), state), zorStatusOk);
          std::vector<Tap> got(taps.size());
          ASSERT_EQ(form.getTaps(state, got.data()), zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Tap>(got, taps), "") << where;
        }
      }
      ASSERT_EQ(form.free(state), zorStatusOk) << where;
      ASSERT_TRUE(block.intact()) << where;
    }
}

// Results of floating arithmetic: within rounding of the sums; integers also of the result.
template <class T> auto near(long double unit, int scaleFactor) {
  return [=](const Model& model, size_t k, T got, const std::string& where) {
    const long double scale = std::ldexp(1.0L, -scaleFactor), error = model.masses[k] * unit * scale;
    const auto part = [&](auto x, long double wanted) {
      using P = decltype(x);
      wanted *= scale;
      if constexpr (std::is_integral_v<P>)
        ASSERT_LE(std::fabs(x - (long double)saturated<Zor64s>(std::min<long double>(
                                    std::numeric_limits<P>::max(),
                                    std::max<long double>(std::numeric_limits<P>::min(), std::rint(wanted))))),
                  1 + error)
            << where << " at " << k;
      else
        ASSERT_LE(std::fabs(x - wanted), error + 1e-30L)
            << where << " at " << k << ": " << (double)x << " " << (double)wanted;
    };
    if constexpr (kit::ComplexPair<T>)
      part(got.re, model.sums[k].re), part(got.im, model.sums[k].im);
    else
      part(got, model.sums[k].re);
  };
}
// Sums that wrap, shifted: to the bit.
template <class T> auto exact(Zor64s shift, Ties ties = Ties::even) {
  return [=](const Model& model, size_t k, T got, const std::string& where) {
    const auto part = [&](long double sum) { return saturated<Zor16s>(shifted(wrap32(sum), shift, ties)); };
    if constexpr (kit::ComplexPair<T>) {
      ASSERT_EQ(got.re, part(model.sums[k].re)) << where << " at " << k;
      ASSERT_EQ(got.im, part(model.sums[k].im)) << where << " at " << k;
    } else {
      ASSERT_EQ(got, part(model.sums[k].re)) << where << " at " << k;
    }
  };
}

template <class Tap> std::vector<Tap> floatTaps(size_t n, kit::Random& random) { return samplesOf<Tap>(n, random); }
// Taps that no normalisation changes.
template <class Tap> std::vector<Tap> integerTaps(size_t n, kit::Random& random) {
  std::vector<Tap> taps(n);
  const auto part = [&] { return Zor16s(random() % 65533 - 32766); };
  for (Tap& t : taps) {
    if constexpr (kit::ComplexPair<Tap>)
      t = {part(), part()};
    else
      t = part();
  }
  return taps;
}

#define FORM(Tap, T, SIZE, INIT, ALLOC, RUN, RUN_I, FREE, GET_DLY, SET_DLY, GET_TAPS, SET_TAPS, unit)        \
  checkForm(Form<Tap, T>{#INIT, SIZE,                                                                        \
                         [](ZorFIRState** s, const Tap* t, Zor32s n, const Rates& r, const T* d, Zor8u* b) { \
                           return b != nullptr ? INIT(s, t, n, r.up, r.upPhase, r.down, r.downPhase, d, b)   \
                                               : ALLOC(s, t, n, r.up, r.upPhase, r.down, r.downPhase, d);    \
                         },                                                                                  \
                         [](const T* src, T* dst, Zor32s n, ZorFIRState* s) {                                \
                           return src == dst ? RUN_I(dst, n, s) : RUN(src, dst, n, s);                       \
                         },                                                                                  \
                         FREE, GET_DLY, SET_DLY, GET_TAPS, SET_TAPS, near<T>(unit, 0), 0},                   \
            floatTaps<Tap>)
#define SCALED(Tap, T, SIZE, INIT, ALLOC, RUN, RUN_I, FREE, GET_DLY, SET_DLY, GET_TAPS, SET_TAPS, unit)      \
  checkForm(Form<Tap, T>{#INIT, SIZE,                                                                        \
                         [](ZorFIRState** s, const Tap* t, Zor32s n, const Rates& r, const T* d, Zor8u* b) { \
                           return b != nullptr ? INIT(s, t, n, r.up, r.upPhase, r.down, r.downPhase, d, b)   \
                                               : ALLOC(s, t, n, r.up, r.upPhase, r.down, r.downPhase, d);    \
                         },                                                                                  \
                         [](const T* src, T* dst, Zor32s n, ZorFIRState* s) {                                \
                           return src == dst ? RUN_I(dst, n, s, 1) : RUN(src, dst, n, s, 1);                 \
                         },                                                                                  \
                         FREE, GET_DLY, SET_DLY, GET_TAPS, SET_TAPS, near<T>(unit, 1), 1},                   \
            floatTaps<Tap>)

TEST(MultiRate, FiltersBetweenARiseAndAFallOfTheRate) {
  FORM(Zor32f, Zor32f, zorsFIRMRGetStateSize_32f, zorsFIRMRInit_32f, zorsFIRMRInitAlloc_32f, zorsFIR_32f, zorsFIR_32f_I,
       zorsFIRFree_32f, zorsFIRGetDlyLine_32f, zorsFIRSetDlyLine_32f, zorsFIRGetTaps_32f, zorsFIRSetTaps_32f, 1e-6L);
  FORM(Zor32fc, Zor32fc, zorsFIRMRGetStateSize_32fc, zorsFIRMRInit_32fc, zorsFIRMRInitAlloc_32fc, zorsFIR_32fc,
       zorsFIR_32fc_I, zorsFIRFree_32fc, zorsFIRGetDlyLine_32fc, zorsFIRSetDlyLine_32fc, zorsFIRGetTaps_32fc,
       zorsFIRSetTaps_32fc, 1e-6L);
  FORM(Zor64f, Zor64f, zorsFIRMRGetStateSize_64f, zorsFIRMRInit_64f, zorsFIRMRInitAlloc_64f, zorsFIR_64f, zorsFIR_64f_I,
       zorsFIRFree_64f, zorsFIRGetDlyLine_64f, zorsFIRSetDlyLine_64f, zorsFIRGetTaps_64f, zorsFIRSetTaps_64f, 2e-15L);
  FORM(Zor64fc, Zor64fc, zorsFIRMRGetStateSize_64fc, zorsFIRMRInit_64fc, zorsFIRMRInitAlloc_64fc, zorsFIR_64fc,
       zorsFIR_64fc_I, zorsFIRFree_64fc, zorsFIRGetDlyLine_64fc, zorsFIRSetDlyLine_64fc, zorsFIRGetTaps_64fc,
       zorsFIRSetTaps_64fc, 2e-15L);
}
TEST(MultiRate, ComputesInTheWiderTypeOfTapsAndSamples) {
  FORM(Zor64f, Zor32f, zorsFIRMRGetStateSize64f_32f, zorsFIRMRInit64f_32f, zorsFIRMRInitAlloc64f_32f, zorsFIR64f_32f,
       zorsFIR64f_32f_I, zorsFIRFree64f_32f, zorsFIRGetDlyLine64f_32f, zorsFIRSetDlyLine64f_32f, zorsFIRGetTaps64f_32f,
       zorsFIRSetTaps64f_32f, 1e-7L);
  FORM(Zor64fc, Zor32fc, zorsFIRMRGetStateSize64fc_32fc, zorsFIRMRInit64fc_32fc, zorsFIRMRInitAlloc64fc_32fc,
       zorsFIR64fc_32fc, zorsFIR64fc_32fc_I, zorsFIRFree64fc_32fc, zorsFIRGetDlyLine64fc_32fc,
       zorsFIRSetDlyLine64fc_32fc, zorsFIRGetTaps64fc_32fc, zorsFIRSetTaps64fc_32fc, 1e-7L);
  SCALED(Zor32f, Zor16s, zorsFIRMRGetStateSize32f_16s, zorsFIRMRInit32f_16s, zorsFIRMRInitAlloc32f_16s,
         zorsFIR32f_16s_Sfs, zorsFIR32f_16s_ISfs, zorsFIRFree32f_16s, zorsFIRGetDlyLine32f_16s,
         zorsFIRSetDlyLine32f_16s, zorsFIRGetTaps32f_16s, zorsFIRSetTaps32f_16s, 1e-6L);
  SCALED(Zor32fc, Zor16sc, zorsFIRMRGetStateSize32fc_16sc, zorsFIRMRInit32fc_16sc, zorsFIRMRInitAlloc32fc_16sc,
         zorsFIR32fc_16sc_Sfs, zorsFIR32fc_16sc_ISfs, zorsFIRFree32fc_16sc, zorsFIRGetDlyLine32fc_16sc,
         zorsFIRSetDlyLine32fc_16sc, zorsFIRGetTaps32fc_16sc, zorsFIRSetTaps32fc_16sc, 1e-6L);
  SCALED(Zor64f, Zor16s, zorsFIRMRGetStateSize64f_16s, zorsFIRMRInit64f_16s, zorsFIRMRInitAlloc64f_16s,
         zorsFIR64f_16s_Sfs, zorsFIR64f_16s_ISfs, zorsFIRFree64f_16s, zorsFIRGetDlyLine64f_16s,
         zorsFIRSetDlyLine64f_16s, zorsFIRGetTaps64f_16s, zorsFIRSetTaps64f_16s, 2e-15L);
  SCALED(Zor64f, Zor32s, zorsFIRMRGetStateSize64f_32s, zorsFIRMRInit64f_32s, zorsFIRMRInitAlloc64f_32s,
         zorsFIR64f_32s_Sfs, zorsFIR64f_32s_ISfs, zorsFIRFree64f_32s, zorsFIRGetDlyLine64f_32s,
         zorsFIRSetDlyLine64f_32s, zorsFIRGetTaps64f_32s, zorsFIRSetTaps64f_32s, 2e-15L);
  SCALED(Zor64fc, Zor16sc, zorsFIRMRGetStateSize64fc_16sc, zorsFIRMRInit64fc_16sc, zorsFIRMRInitAlloc64fc_16sc,
         zorsFIR64fc_16sc_Sfs, zorsFIR64fc_16sc_ISfs, zorsFIRFree64fc_16sc, zorsFIRGetDlyLine64fc_16sc,
         zorsFIRSetDlyLine64fc_16sc, zorsFIRGetTaps64fc_16sc, zorsFIRSetTaps64fc_16sc, 2e-15L);
  SCALED(Zor64fc, Zor32sc, zorsFIRMRGetStateSize64fc_32sc, zorsFIRMRInit64fc_32sc, zorsFIRMRInitAlloc64fc_32sc,
         zorsFIR64fc_32sc_Sfs, zorsFIR64fc_32sc_ISfs, zorsFIRFree64fc_32sc, zorsFIRGetDlyLine64fc_32sc,
         zorsFIRSetDlyLine64fc_32sc, zorsFIRGetTaps64fc_32sc, zorsFIRSetTaps64fc_32sc, 2e-15L);
}
#undef FORM
#undef SCALED

// tapsFactor -12 at the build and as set again, scaleFactor 2.
#define INTEGER(Tap, T, SIZE, INIT, ALLOC, RUN, RUN_I, FREE, GET_DLY, SET_DLY, GET_TAPS, SET_TAPS)              \
  checkForm(Form<Tap, T>{#INIT, SIZE,                                                                           \
                         [](ZorFIRState** s, const Tap* t, Zor32s n, const Rates& r, const T* d, Zor8u* b) {    \
                           return b != nullptr ? INIT(s, t, n, -12, r.up, r.upPhase, r.down, r.downPhase, d, b) \
                                               : ALLOC(s, t, n, -12, r.up, r.upPhase, r.down, r.downPhase, d);  \
                         },                                                                                     \
                         [](const T* src, T* dst, Zor32s n, ZorFIRState* s) {                                   \
                           return src == dst ? RUN_I(dst, n, s, 2) : RUN(src, dst, n, s, 2);                    \
                         },                                                                                     \
                         FREE, GET_DLY, SET_DLY,                                                                \
                         [](const ZorFIRState* s, Tap* t) {                                                     \
                           Zor32s factor = 0;                                                                   \
                           const ZorStatus status = GET_TAPS(s, t, &factor);                                    \
                           EXPECT_EQ(factor, -12);                                                              \
                           return status;                                                                       \
                         },                                                                                     \
                         [](const Tap* t, ZorFIRState* s) { return SET_TAPS(t, s, -12); }, exact<T>(-14), 2},   \
            integerTaps<Tap>)

TEST(MultiRate, IntegerSumsWrapAndAreShifted) {
  INTEGER(Zor16s, Zor16s, zorsFIRMRGetStateSize_16s, zorsFIRMRInit_16s, zorsFIRMRInitAlloc_16s, zorsFIR_16s_Sfs,
          zorsFIR_16s_ISfs, zorsFIRFree_16s, zorsFIRGetDlyLine_16s, zorsFIRSetDlyLine_16s, zorsFIRGetTaps_16s,
          zorsFIRSetTaps_16s);
  INTEGER(Zor32s, Zor16s, zorsFIRMRGetStateSize32s_16s, zorsFIRMRInit32s_16s, zorsFIRMRInitAlloc32s_16s,
          zorsFIR32s_16s_Sfs, zorsFIR32s_16s_ISfs, zorsFIRFree32s_16s, zorsFIRGetDlyLine32s_16s,
          zorsFIRSetDlyLine32s_16s, zorsFIRGetTaps32s_16s, zorsFIRSetTaps32s_16s);
  INTEGER(Zor32sc, Zor16sc, zorsFIRMRGetStateSize32sc_16sc, zorsFIRMRInit32sc_16sc, zorsFIRMRInitAlloc32sc_16sc,
          zorsFIR32sc_16sc_Sfs, zorsFIR32sc_16sc_ISfs, zorsFIRFree32sc_16sc, zorsFIRGetDlyLine32sc_16sc,
          zorsFIRSetDlyLine32sc_16sc, zorsFIRGetTaps32sc_16sc, zorsFIRSetTaps32sc_16sc);
}
#undef INTEGER

TEST(MultiRate, FloatTapsOfIntegerStatesAreNormalised) {
  const Zor32f taps[] = {1, -0.5f, 0.25f};  // 16,384, -8,192, 4,096 times 2^-14
  const Zor32fc complexTaps[] = {{1, 0}, {0, -0.5f}, {0.25f, 0}};
  Zor32s size = 0, complexSize = 0;
  ASSERT_EQ(zorsFIRMRGetStateSize32s_16s32f(3, 2, 1, &size), zorStatusOk);
  ASSERT_EQ(zorsFIRMRGetStateSize32sc_16sc32fc(3, 2, 1, &complexSize), zorStatusOk);
  std::vector<Zor8u> block(size_t(size + complexSize));
  const Zor16s src[2] = {8, 100};
  const Zor16sc complexSrc[2] = {{8, 0}, {100, 4}};
  for (bool alloc : {false, true}) {
    ZorFIRState *state = nullptr, *complexState = nullptr;
    ASSERT_EQ(alloc ? zorsFIRMRInitAlloc32s_16s32f(&state, taps, 3, 2, 0, 1, 0, nullptr)
                    : zorsFIRMRInit32s_16s32f(&state, taps, 3, 2, 0, 1, 0, nullptr, block.data()),
              zorStatusOk);
    ASSERT_EQ(alloc
                  ? zorsFIRMRInitAlloc32sc_16sc32fc(&complexState, complexTaps, 3, 2, 0, 1, 0, nullptr)
                  : zorsFIRMRInit32sc_16sc32fc(&complexState, complexTaps, 3, 2, 0, 1, 0, nullptr, block.data() + size),
              zorStatusOk);
    Zor16s dst[4];
    Zor16sc complexDst[4];
    ASSERT_EQ(zorsFIR32s_16s_Sfs(src, dst, 2, state, 0), zorStatusOk);
    ASSERT_EQ(zorsFIR32sc_16sc_Sfs(complexSrc, complexDst, 2, complexState, 0), zorStatusOk);
    const Zor16s wanted[4] = {8, -4, 102, -50};
    const Zor16sc complexWanted[4] = {{8, 0}, {0, -4}, {102, 4}, {2, -50}};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(dst[i], wanted[i]);
      EXPECT_TRUE(kit::sameBits(complexDst[i], complexWanted[i])) << i;
    }
    Zor32f got[3];
    ASSERT_EQ(zorsFIRGetTaps32s_16s32f(state, got), zorStatusOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(got[i], taps[i]);
    EXPECT_EQ(zorsFIRFree32s_16s(state), zorStatusOk);
    EXPECT_EQ(zorsFIRFree32sc_16sc(complexState), zorStatusOk);
  }
}

TEST(MultiRate, ALowestTapHalvesAllTapsBeforeTheyAreSplit) {
  const Zor16s taps[] = {INT16_MIN, 100, -7}, src[2] = {16384, 20};
  ZorFIRState* state = nullptr;
  ASSERT_EQ(zorsFIRMRInitAlloc_16s(&state, taps, 3, -15, 3, 0, 1, 0, nullptr), zorStatusOk);
  Zor16s dst[6], got[3];
  Zor32s factor;
  ASSERT_EQ(zorsFIR_16s_Sfs(src, dst, 2, state, 0), zorStatusOk);
  ASSERT_EQ(zorsFIRGetTaps_16s(state, got, &factor), zorStatusOk);
  EXPECT_EQ(got[0], -16384);
  EXPECT_EQ(got[2], -4);
  EXPECT_EQ(factor, -14);
  EXPECT_EQ(dst[0], -16384);
  EXPECT_EQ(dst[1], 50);
  EXPECT_EQ(dst[2], -4);
  EXPECT_EQ(zorsFIRFree_16s(state), zorStatusOk);
}

TEST(MultiRate, FactorsOfOneBuildASingleRateState) {
  const std::vector<Zor32f> taps(80, 0.5f);
  Zor32s size = 0, single = 0;
  ASSERT_EQ(zorsFIRMRGetStateSize_32f(80, 1, 1, &size), zorStatusOk);
  ASSERT_EQ(zorsFIRGetStateSize_32f(80, &single), zorStatusOk);
  EXPECT_EQ(size, single);
  std::vector<Zor8u> block(static_cast<size_t>(size));
  ZorFIRState* state = nullptr;
  ASSERT_EQ(zorsFIRMRInit_32f(&state, taps.data(), 80, 1, 0, 1, 0, nullptr, block.data()), zorStatusOk);
  Zor32f y = 0;
  EXPECT_EQ(zorsFIROne_32f(2, &y, state), zorStatusOk);  // which multi-rate states refuse
  EXPECT_EQ(y, 1);
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
  ASSERT_EQ(zorsFIRMRInitAlloc_32f(&state, taps.data(), 80, 2, 0, 1, 0, nullptr), zorStatusOk);
  EXPECT_EQ(zorsFIROne_32f(2, &y, state), zorStatusBadContext);
  EXPECT_EQ(zorsFIRFree_64f(state), zorStatusBadContext);
  EXPECT_EQ(zorsFIR32f_16s_Sfs(nullptr, nullptr, 0, state, 0), zorStatusNullPointer);
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
}

TEST(MultiRate, PhasesWithoutATapGiveZeros) {
  const Zor32f taps[] = {2};
  ZorFIRState* state = nullptr;
  ASSERT_EQ(zorsFIRMRInitAlloc_32f(&state, taps, 1, 3, 1, 1, 0, nullptr), zorStatusOk);
  const Zor32f src[2] = {5, std::numeric_limits<Zor32f>::infinity()};
  Zor32f dst[6];
  ASSERT_EQ(zorsFIR_32f(src, dst, 2, state), zorStatusOk);
  const Zor32f wanted[6] = {0, 10, 0, 0, src[1], 0};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(dst[i], wanted[i]) << i;
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
}

TEST(MultiRate, AnInfiniteSampleReachesItsOwnOutputsAlone) {
  kit::Random random(3);
  for (int n : {7, 8, 20, 33}) {
    std::vector<Zor32f> taps(size_t(n), 1.0f);
    ZorFIRState* state = nullptr;
    ASSERT_EQ(zorsFIRMRInitAlloc_32f(&state, taps.data(), n, 2, 0, 3, 0, nullptr), zorStatusOk);
    std::vector<Zor32f> src(120, 1), dst(80);
    src[60] = std::numeric_limits<Zor32f>::infinity();
    ASSERT_EQ(zorsFIR_32f(src.data(), dst.data(), 40, state), zorStatusOk);
    for (int k = 0; k < 80; ++k) {
      const int p = 3 * k;  // the sample stands at 120
      EXPECT_EQ(std::isfinite(dst[size_t(k)]), p < 120 || p - 120 >= n) << n << ", " << k;
    }
    EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
  }
}

TEST(MultiRate, StateSizesOfBinary32FollowTheirFormula) {
  for (std::int64_t n : {1, 8, 33, 128, 1000})
    for (std::int64_t u : {1, 2, 4, 147})
      for (std::int64_t d : {1, 2, 4, 160}) {
        if (u == 1 && d == 1) continue;
        Zor32s size = 0;
        ASSERT_EQ(zorsFIRMRGetStateSize_32f(Zor32s(n), Zor32s(u), Zor32s(d), &size), zorStatusOk);
        std::int64_t l = n + 3 * d;
        while (l % u != 0) ++l;
        const std::int64_t t = (n + u - 1) / u;
        const double r = float(n) / float(n + 3 * d);
        const bool first = u == 1 ? r > 0.5 : r > 0.3;
        const std::int64_t x = first ? l / u : t;
        std::int64_t m = 4 * d;
        while (m <= x) m += 4 * d;
        ++m;
        for (std::int64_t w = u * ((d + t - 1) / d); w % (4 * u) != 0; w += u) m += d;
        const std::int64_t wanted =
            ((4 * n + 15) & ~15) + 16 * l + 4 * std::max<std::int64_t>((first ? 4 : 8) * l, 4096) +
            (first ? ((4 * u + 19) & ~15) + 176 : ((16 * u + 19) & ~15) + 160) + (((t + m) * 4 + 19) & ~15);
        EXPECT_EQ(size, wanted) << n << ", " << u << ", " << d;
        Zor32s stream = 0;
        ASSERT_EQ(zorsFIRMRStreamGetStateSize_32f(Zor32s(n), Zor32s(u), Zor32s(d), &stream), zorStatusOk);
        EXPECT_EQ(stream, size);
      }
}

TEST(MultiRate, SizesBeyondThirtyTwoBitsAreRefused) {
  Zor32s size = 5, other = 6;
  EXPECT_EQ(zorsFIRMRGetStateSize_32f(INT32_MAX, 2, 1, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRMRGetStateSize_16s(3, INT32_MAX, INT32_MAX, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRMRGetStateSize64fc_32sc(1, 1, INT32_MAX, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRMRStreamGetStateSize_16s(INT32_MAX, 3, 4, &size), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRMRGetSize(INT32_MAX, 3, 4, 20, &size, &other), zorStatusNoMemory);
  EXPECT_EQ(zorsFIRSRGetSize(INT32_MAX, 13, &size, &other), zorStatusNoMemory);
  EXPECT_EQ(size, 5);
  EXPECT_EQ(other, 6);
  const Zor32f tap = 1;
  ZorFIRState* state = nullptr;
  EXPECT_EQ(zorsFIRMRInitAlloc_32f(&state, &tap, 1, 1, 0, INT32_MAX, 0, nullptr), zorStatusNoMemory);
  EXPECT_EQ(state, nullptr);
}

// ---- Streams ------------------------------------------------------------------------------------

void checkStream32f(Zor32s n, const Rates& r, bool rates, kit::Random& random) {
  const std::string where = text(n, r);
  const auto taps = kit::signal<Zor32f>(size_t(n), random);
  Zor32s size = 0;
  ASSERT_EQ(rates ? zorsFIRMRStreamGetStateSize_32f(n, r.up, r.down, &size) : zorsFIRStreamGetStateSize_32f(n, &size),
            zorStatusOk);
  const Guarded<Zor8u> block(size_t(size), Edge::end, size_t(n) % 17);
  ZorFIRState* state = nullptr;
  const bool alloc = n % 2 == 0;
  if (rates) {
    ASSERT_EQ(alloc
                  ? zorsFIRMRStreamInitAlloc_32f(&state, taps.data(), n, r.up, r.upPhase, r.down, r.downPhase)
                  : zorsFIRMRStreamInit_32f(&state, taps.data(), n, r.up, r.upPhase, r.down, r.downPhase, block.data()),
              zorStatusOk);
  } else {
    ASSERT_EQ(alloc ? zorsFIRStreamInitAlloc_32f(&state, taps.data(), n)
                    : zorsFIRStreamInit_32f(&state, taps.data(), n, block.data()),
              zorStatusOk);
  }
  for (int numIters : {1, 2, 7, 8, 9, 25}) {
    const std::int64_t last = r.downPhase + (std::int64_t(numIters) * r.up - 1) * r.down + n - 1 - r.upPhase;
    const size_t needed = last < 0 ? 0 : size_t(last / r.up) + 1, out = size_t(numIters) * size_t(r.up);
    for (Edge edge : kit::bothEdges) {
      const Guarded<Zor32f> src(kit::signal<Zor32f>(needed, random), edge), dst(out, edge);
      const Model model(taps, std::vector<Zor32f>(), src.data(), numIters, r, true);
      ASSERT_EQ(zorsFIR_32f(src.data(), dst.data(), numIters, state), zorStatusOk) << where;
      for (size_t k = 0; k < out; ++k) ASSERT_NO_FATAL_FAILURE(near<Zor32f>(1e-6L, 0)(model, k, dst[k], where));
      ASSERT_TRUE(dst.intact()) << where;
      if (r.up <= r.down) {  // in place the windows stay ahead of the outputs
        const auto whole = dst.values();
        const Guarded<Zor32f> both(std::max(needed, out), edge);
        std::copy_n(src.data(), needed, both.data());
        ASSERT_EQ(zorsFIR_32f_I(both.data(), numIters, state), zorStatusOk);
        for (size_t k = 0; k < out; ++k) ASSERT_TRUE(kit::sameBits(both[k], whole[k])) << where << " in place at " << k;
      }
    }
  }
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
  EXPECT_TRUE(block.intact());
}
void checkStream16s(Zor32s n, const Rates& r, bool rates, ZorRoundMode mode, kit::Random& random) {
  const std::string where = text(n, r) + ", mode " + std::to_string(mode);
  const auto taps = integerTaps<Zor16s>(size_t(n), random);
  Zor32s size = 0;
  ASSERT_EQ(rates ? zorsFIRMRStreamGetStateSize_16s(n, r.up, r.down, &size) : zorsFIRStreamGetStateSize_16s(n, &size),
            zorStatusOk);
  if (!rates) {
    ASSERT_EQ(size, ((2 * n + 15) & ~15) + 128);
  }
  const Guarded<Zor8u> block(size_t(size), Edge::end, size_t(n) % 17);
  ZorFIRState* state = nullptr;
  const bool alloc = n % 2 == 0;
  if (rates) {
    ASSERT_EQ(alloc
                  ? zorsFIRMRStreamInitAlloc_16s(&state, taps.data(), n, -3, r.up, r.upPhase, r.down, r.downPhase, mode)
                  : zorsFIRMRStreamInit_16s(&state, taps.data(), n, -3, r.up, r.upPhase, r.down, r.downPhase, mode,
                                            block.data()),
              zorStatusOk);
  } else {
    ASSERT_EQ(alloc ? zorsFIRStreamInitAlloc_16s(&state, taps.data(), n, -3, mode)
                    : zorsFIRStreamInit_16s(&state, taps.data(), n, -3, mode, block.data()),
              zorStatusOk);
  }
  const Ties ties = mode == 0 ? Ties::towardZero : mode == 1 ? Ties::even : Ties::away;
  for (int numIters : {1, 2, 8, 9, 25})
    for (int scaleFactor : {-40, -3, 12, 13, 28, 60}) {
      const std::int64_t last = r.downPhase + (std::int64_t(numIters) * r.up - 1) * r.down + n - 1 - r.upPhase;
      const size_t needed = last < 0 ? 0 : size_t(last / r.up) + 1, out = size_t(numIters) * size_t(r.up);
      const Edge edge = scaleFactor % 2 ? Edge::begin : Edge::end;
      const Guarded<Zor16s> src(samplesOf<Zor16s>(needed, random), edge), dst(out, edge);
      const Model model(taps, std::vector<Zor16s>(), src.data(), numIters, r, true);
      ASSERT_EQ(zorsFIR_16s_Sfs(src.data(), dst.data(), numIters, state, scaleFactor), zorStatusOk) << where;
      for (size_t k = 0; k < out; ++k)
        ASSERT_NO_FATAL_FAILURE(exact<Zor16s>(-3 - scaleFactor, ties)(model, k, dst[k], where));
      ASSERT_TRUE(dst.intact()) << where;
      if (r.up <= r.down) {
        const Guarded<Zor16s> both(std::max(needed, out), edge);
        std::copy_n(src.data(), needed, both.data());
        ASSERT_EQ(zorsFIR_16s_ISfs(both.data(), numIters, state, scaleFactor), zorStatusOk);
        for (size_t k = 0; k < out; ++k) ASSERT_EQ(both[k], dst[k]) << where << " in place at " << k;
      }
    }
  EXPECT_EQ(zorsFIRFree_16s(state), zorStatusOk);
  EXPECT_TRUE(block.intact());
}
TEST(Streams, ReadAheadInTheirSource) {
  kit::Random random(5);
  for (Zor32s n : {1, 2, 7, 8, 16, 31, 40}) {
    ASSERT_NO_FATAL_FAILURE(checkStream32f(n, {1, 0, 1, 0}, false, random));
    for (ZorRoundMode mode : {0, 1, 2}) ASSERT_NO_FATAL_FAILURE(checkStream16s(n, {1, 0, 1, 0}, false, mode, random));
    for (const Rates& r : someRates(random)) {
      ASSERT_NO_FATAL_FAILURE(checkStream32f(n, r, true, random));
      ASSERT_NO_FATAL_FAILURE(checkStream16s(n, r, true, n % 3, random));
    }
  }
}
TEST(Streams, InPlaceOutputsGoInOrder) {
  const Zor32f taps[] = {1, 10};
  ZorFIRState* state = nullptr;
  ASSERT_EQ(zorsFIRMRStreamInitAlloc_32f(&state, taps, 2, 2, 0, 1, 0), zorStatusOk);
  Zor32f x[8] = {1, 2, 3, 4, 5, 6, 7, 8}, y[8];
  std::copy_n(x, 8, y);
  for (int k = 0; k < 8; ++k) {  // v = x0 0 x1 0 ...: outputs 10 v[k] + v[k+1]
    const int even = k % 2 == 0;
    y[k] = even ? 10 * y[k / 2] : y[(k + 1) / 2];
  }
  ASSERT_EQ(zorsFIR_32f_I(x, 4, state), zorStatusOk);
  for (int k = 0; k < 8; ++k) EXPECT_EQ(x[k], y[k]) << k;
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);
}

// ---- Specifications -----------------------------------------------------------------------------

template <class Tap, class T> struct SpecForm {
  const char* name;
  Zor32s tapsType;
  ZorStatus (*init)(const Tap*, Zor32s, Zor32s, Zor8u*);
  ZorStatus (*initRates)(const Tap*, Zor32s, Zor32s, Zor32s, Zor32s, Zor32s, Zor8u*);
  ZorStatus (*run)(const T*, T*, Zor32s, const Zor8u*, const T*, T*, Zor8u*);
  ZorStatus (*runRates)(const T*, T*, Zor32s, const Zor8u*, const T*, T*, Zor8u*);
  long double unit;
};
template <class Tap, class T>
void checkSpec(const SpecForm<Tap, T>& form, Zor32s n, const Rates& r, bool rates, kit::Random& random) {
  const std::string where = std::string(form.name) + ", " + text(n, r) + (rates ? "" : ", one rate");
  const auto taps = samplesOf<Tap>(size_t(n), random);
  Zor32s specSize = 0, bufSize = 0;
  ASSERT_EQ(rates ? zorsFIRMRGetSize(n, r.up, r.down, form.tapsType, &specSize, &bufSize)
                  : zorsFIRSRGetSize(n, form.tapsType, &specSize, &bufSize),
            zorStatusOk);
  const Guarded<Zor8u> spec(size_t(specSize), Edge::end, size_t(n) % 66),
      buffer(size_t(bufSize), Edge::end, size_t(n) % 13);
  ASSERT_EQ(rates ? form.initRates(taps.data(), n, r.up, r.upPhase, r.down, r.downPhase, spec.data())
                  : form.init(taps.data(), n, n % 3, spec.data()),
            zorStatusOk);
  const auto specBefore = spec.values();
  const size_t t = rates ? size_t((n + r.up - 1) / r.up) : size_t(n - 1);
  auto history = samplesOf<T>(t, random);  // newest first
  bool given = false;
  for (int numIters : {1, 2, 3, 8, 9, 30, 600}) {
    if (numIters == 600 && r.up * r.down > 40) continue;
    const size_t in = size_t(numIters) * size_t(r.down), out = size_t(numIters) * size_t(r.up);
    const bool inPlace = numIters % 2 == 0;
    const Guarded<T> src(samplesOf<T>(inPlace ? std::max(in, out) : in, random), Edge::end), separate(out, Edge::begin);
    const auto before = src.values();
    const Guarded<T> dly(std::vector<T>(history.rbegin(), history.rend()), Edge::end), other(t, Edge::begin);
    if (!given) history.assign(t, T{});
    const Model model(taps, history, before.data(), numIters, r);
    T* dst = inPlace ? src.data() : separate.data();
    T* dlyDst = numIters == 3 ? nullptr : numIters == 8 ? dly.data() : other.data();
    ASSERT_EQ((rates ? form.runRates : form.run)(src.data(), dst, numIters, spec.data(), given ? dly.data() : nullptr,
                                                 dlyDst, buffer.data()),
              zorStatusOk)
        << where;
    for (size_t k = 0; k < out; ++k) ASSERT_NO_FATAL_FAILURE(near<T>(form.unit, 0)(model, k, dst[k], where));
    history = after(history, before.data(), std::int64_t(in));
    if (dlyDst != nullptr) {
      const std::vector<T> oldestFirst(history.rbegin(), history.rend());
      ASSERT_EQ(kit::firstDifference<T>({dlyDst, t}, oldestFirst), "") << where << ", " << numIters;
    }
    given = true;
    ASSERT_TRUE(src.intact() && separate.intact() && dly.intact() && other.intact() && buffer.intact()) << where;
  }
  ASSERT_EQ(spec.values(), specBefore) << where << ": a run wrote the specification";
  ASSERT_TRUE(spec.intact());
}
TEST(Specifications, FilterWithTheCallersHistory) {
  kit::Random random(6);
  const auto check = [&](const auto& form) {
    for (Zor32s n : {1, 2, 7, 8, 33, 50}) {
      ASSERT_NO_FATAL_FAILURE(checkSpec(form, n, {1, 0, 1, 0}, false, random));
      ASSERT_NO_FATAL_FAILURE(checkSpec(form, n, {1, 0, 1, 0}, true, random));
      for (const Rates& r : someRates(random)) ASSERT_NO_FATAL_FAILURE(checkSpec(form, n, r, true, random));
    }
  };
  check(SpecForm<Zor32f, Zor32f>{"zorsFIRSR_32f", 13, zorsFIRSRInit_32f, zorsFIRMR_Init_32f, zorsFIRSR_32f,
                                 zorsFIRMR_32f, 1e-6L});
  check(SpecForm<Zor32fc, Zor32fc>{"zorsFIRSR_32fc", 14, zorsFIRSRInit_32fc, zorsFIRMR_Init_32fc, zorsFIRSR_32fc,
                                   zorsFIRMR_32fc, 1e-6L});
  check(SpecForm<Zor64f, Zor64f>{"zorsFIRSR_64f", 19, zorsFIRSRInit_64f, zorsFIRMR_Init_64f, zorsFIRSR_64f,
                                 zorsFIRMR_64f, 2e-15L});
  check(SpecForm<Zor64fc, Zor64fc>{"zorsFIRSR_64fc", 20, zorsFIRSRInit_64fc, zorsFIRMR_Init_64fc, zorsFIRSR_64fc,
                                   zorsFIRMR_64fc, 2e-15L});
  check(SpecForm<Zor32f, Zor16s>{"zorsFIRSR_16s", 13, zorsFIRSRInit_32f, zorsFIRMR_Init_32f, zorsFIRSR_16s,
                                 zorsFIRMR_16s, 1e-6L});
  check(SpecForm<Zor32fc, Zor16sc>{"zorsFIRSR_16sc", 14, zorsFIRSRInit_32fc, zorsFIRMR_Init_32fc, zorsFIRSR_16sc,
                                   zorsFIRMR_16sc, 1e-6L});
}

// ---- Without a state ----------------------------------------------------------------------------

template <class Tap, class T> struct DirectForm {
  const char* name;
  // src = dst: the in-place member
  std::function<ZorStatus(const T*, T*, Zor32s, const Tap*, Zor32s, const Rates&, T*)> run;
  std::vector<Tap> (*makeTaps)(size_t, kit::Random&);
  std::function<void(const Model&, size_t, T, const std::string&)> expect;
};
template <class Tap, class T> void checkDirect(const DirectForm<Tap, T>& form) {
  kit::Random random(7);
  for (const Rates& r : someRates(random))
    for (Zor32s n : {1, 2, 6, 17, 40}) {
      const std::string where = std::string(form.name) + ", " + text(n, r);
      const auto taps = form.makeTaps(size_t(n), random);
      const auto t = size_t((n + r.up - 1) / r.up);
      const Guarded<Tap> tapsAtEdge(taps, Edge::end);
      const Guarded<T> dly(samplesOf<T>(t, random), Edge::end);
      auto history = dly.values();
      for (int numIters : {1, 2, 5, 12}) {
        const size_t in = size_t(numIters) * size_t(r.down), out = size_t(numIters) * size_t(r.up);
        const bool inPlace = numIters % 2 == 0;
        const Guarded<T> src(samplesOf<T>(inPlace ? std::max(in, out) : in, random), Edge::end),
            separate(out, Edge::begin);
        const auto before = src.values();
        const Model model(taps, history, before.data(), numIters, r);
        T* dst = inPlace ? src.data() : separate.data();
        {
          kit::ServicesScope services;
          ASSERT_EQ(form.run(src.data(), dst, numIters, tapsAtEdge.data(), n, r, dly.data()), zorStatusOk) << where;
          ASSERT_EQ(services->allocations, inPlace ? 1 : 0) << where;
          ASSERT_EQ(services.leaked(), 0);
        }
        for (size_t k = 0; k < out; ++k) {
          form.expect(model, k, dst[k], where);
          if (testing::Test::HasFatalFailure()) return;
        }
        history = after(history, before.data(), std::int64_t(in));
        ASSERT_EQ(kit::firstDifference<T>(dly.span(), history), "") << where;
        ASSERT_TRUE(src.intact() && separate.intact() && dly.intact()) << where;
        if (inPlace) {  // no memory: nothing changes
          const auto data = src.values();
          kit::ServicesScope services;
          services->failAt = 0;
          ASSERT_EQ(form.run(src.data(), src.data(), numIters, taps.data(), n, r, dly.data()), zorStatusNoMemory)
              << where;
          ASSERT_EQ(kit::firstDifference<T>(src.span(), data), "");
          ASSERT_EQ(kit::firstDifference<T>(dly.span(), history), "");
        }
      }
    }
}
#define PLAIN(FIR, FIR_I, Tap, T, unit)                                                                              \
  checkDirect(                                                                                                       \
      DirectForm<Tap, T>{#FIR,                                                                                       \
                         [](const T* src, T* dst, Zor32s m, const Tap* taps, Zor32s n, const Rates& r, T* dly) {     \
                           return src == dst ? FIR_I(dst, m, taps, n, r.up, r.upPhase, r.down, r.downPhase, dly)     \
                                             : FIR(src, dst, m, taps, n, r.up, r.upPhase, r.down, r.downPhase, dly); \
                         },                                                                                          \
                         floatTaps<Tap>, near<T>(unit, 0)})
#define SCALED(FIR, FIR_I, Tap, T, unit)                                                             \
  checkDirect(DirectForm<Tap, T>{                                                                    \
      #FIR,                                                                                          \
      [](const T* src, T* dst, Zor32s m, const Tap* taps, Zor32s n, const Rates& r, T* dly) {        \
        return src == dst ? FIR_I(dst, m, taps, n, r.up, r.upPhase, r.down, r.downPhase, dly, 1)     \
                          : FIR(src, dst, m, taps, n, r.up, r.upPhase, r.down, r.downPhase, dly, 1); \
      },                                                                                             \
      floatTaps<Tap>, near<T>(unit, 1)})
#define INTEGER(FIR, FIR_I, Tap, T)                                                                       \
  checkDirect(DirectForm<Tap, T>{                                                                         \
      #FIR,                                                                                               \
      [](const T* src, T* dst, Zor32s m, const Tap* taps, Zor32s n, const Rates& r, T* dly) {             \
        return src == dst ? FIR_I(dst, m, taps, n, -12, r.up, r.upPhase, r.down, r.downPhase, dly, 2)     \
                          : FIR(src, dst, m, taps, n, -12, r.up, r.upPhase, r.down, r.downPhase, dly, 2); \
      },                                                                                                  \
      integerTaps<Tap>, exact<T>(-14)})
TEST(MultiRateDirect, FiltersWithTheCallersDelayLine) {
  PLAIN(zorsFIRMR_Direct_32f, zorsFIRMR_Direct_32f_I, Zor32f, Zor32f, 1e-6L);
  PLAIN(zorsFIRMR_Direct_32fc, zorsFIRMR_Direct_32fc_I, Zor32fc, Zor32fc, 1e-6L);
  PLAIN(zorsFIRMR_Direct_64f, zorsFIRMR_Direct_64f_I, Zor64f, Zor64f, 2e-15L);
  PLAIN(zorsFIRMR_Direct_64fc, zorsFIRMR_Direct_64fc_I, Zor64fc, Zor64fc, 2e-15L);
  PLAIN(zorsFIRMR64f_Direct_32f, zorsFIRMR64f_Direct_32f_I, Zor64f, Zor32f, 1e-7L);
  PLAIN(zorsFIRMR64fc_Direct_32fc, zorsFIRMR64fc_Direct_32fc_I, Zor64fc, Zor32fc, 1e-7L);
  SCALED(zorsFIRMR32f_Direct_16s_Sfs, zorsFIRMR32f_Direct_16s_ISfs, Zor32f, Zor16s, 1e-6L);
  SCALED(zorsFIRMR32fc_Direct_16sc_Sfs, zorsFIRMR32fc_Direct_16sc_ISfs, Zor32fc, Zor16sc, 1e-6L);
  SCALED(zorsFIRMR64f_Direct_16s_Sfs, zorsFIRMR64f_Direct_16s_ISfs, Zor64f, Zor16s, 2e-15L);
  SCALED(zorsFIRMR64f_Direct_32s_Sfs, zorsFIRMR64f_Direct_32s_ISfs, Zor64f, Zor32s, 2e-15L);
  SCALED(zorsFIRMR64fc_Direct_16sc_Sfs, zorsFIRMR64fc_Direct_16sc_ISfs, Zor64fc, Zor16sc, 2e-15L);
  SCALED(zorsFIRMR64fc_Direct_32sc_Sfs, zorsFIRMR64fc_Direct_32sc_ISfs, Zor64fc, Zor32sc, 2e-15L);
  INTEGER(zorsFIRMR32s_Direct_16s_Sfs, zorsFIRMR32s_Direct_16s_ISfs, Zor32s, Zor16s);
  INTEGER(zorsFIRMR32sc_Direct_16sc_Sfs, zorsFIRMR32sc_Direct_16sc_ISfs, Zor32sc, Zor16sc);
}
#undef PLAIN
#undef SCALED
#undef INTEGER

TEST(MultiRateDirect, ScaledResultsRoundHalvesAwayFromZero) {
  const Zor32f tap = 0.5f;
  const Zor16s src[4] = {1, -1, 5, -32768};
  Zor16s dst[4], dly[1] = {0};
  ASSERT_EQ(zorsFIRMR32f_Direct_16s_Sfs(src, dst, 4, &tap, 1, 1, 0, 1, 0, dly, 0), zorStatusOk);
  EXPECT_EQ(dst[0], 1);
  EXPECT_EQ(dst[1], -1);
  EXPECT_EQ(dst[2], 3);
  EXPECT_EQ(dst[3], -16384);
  EXPECT_EQ(dly[0], -32768);
}

// ---- Contracts ----------------------------------------------------------------------------------

TEST(MultiRate, ChecksItsArgumentsInOrder) {
  static const Zor32f taps[4] = {1, 2, 3, 4}, dly[4] = {};
  alignas(64) static Zor8u buffer[65536];
  ZorFIRState* state = nullptr;
  Zor32s size = 3;
  kit::Contract(zorsFIRMRGetStateSize_32f, 4, 3, 2, &size)
      .null<3>()
      .bad<0>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<1>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .untouched(&size, sizeof size)
      .verify("zorsFIRMRGetStateSize_32f");
  kit::Contract(zorsFIRMRInit_32f, &state, taps, 4, 3, 1, 2, 1, dly, buffer)
      .null<0>()
      .null<1>()
      .null<8>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<5>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<4>({3, -1, INT32_MAX}, zorStatusBadMultiRatePhase)
      .bad<6>({2, -1, INT32_MIN}, zorStatusBadMultiRatePhase)
      .untouched(&state, sizeof state)
      .untouched(buffer, 4096)
      .verify("zorsFIRMRInit_32f");
  kit::Contract(zorsFIRMRInitAlloc_32f, &state, taps, 4, 3, 1, 2, 1, dly)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<3>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<5>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<4>({3, -1, INT32_MAX}, zorStatusBadMultiRatePhase)
      .bad<6>({2, -1, INT32_MIN}, zorStatusBadMultiRatePhase)
      .untouched(&state, sizeof state)
      .verify("zorsFIRMRInitAlloc_32f");
  kit::failEachAllocation([&] { return zorsFIRMRInitAlloc_32f(&state, taps, 4, 3, 1, 2, 1, dly); },
                          [&](int n, ZorStatus status) {
                            EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
                            if (n >= 0) {
                              EXPECT_EQ(state, nullptr);
                              EXPECT_EQ(kit::services().live, 0);
                            }
                          });
  // A run in place that takes memory: without it data, delay line and state stay.
  Zor32f data[6] = {1, 2, 3, 4, 5, 6}, history[2];
  const Zor32f kept[2] = {7, 8};
  ASSERT_EQ(zorsFIRSetDlyLine_32f(state, kept), zorStatusOk);
  {
    kit::ServicesScope services;
    services->failAt = 0;
    EXPECT_EQ(zorsFIR_32f_I(data, 2, state), zorStatusNoMemory);
  }
  for (int i = 0; i < 6; ++i) EXPECT_EQ(data[i], Zor32f(i + 1));
  ASSERT_EQ(zorsFIRGetDlyLine_32f(state, history), zorStatusOk);
  EXPECT_EQ(history[0], 7);
  EXPECT_EQ(history[1], 8);
  Zor32f dst[6];
  kit::Contract(zorsFIR_32f, static_cast<const Zor32f*>(data), dst, 2, state)
      .null<0>()
      .null<1>()
      .null<3>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .verify("zorsFIR_32f with two rates");
  EXPECT_EQ(zorsFIRFree_32f(state), zorStatusOk);

  static const Zor16s taps16[4] = {1, 2, 3, 4};
  state = nullptr;
  kit::Contract(zorsFIRMRStreamInit_16s, &state, taps16, 4, 0, 3, 1, 2, 1, zorRoundNearestEven, buffer)
      .null<0>()
      .null<1>()
      .null<9>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<4>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<6>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<5>({3, -1}, zorStatusBadMultiRatePhase)
      .bad<7>({2, -1}, zorStatusBadMultiRatePhase)
      .bad<8>({-1, 3, INT32_MAX}, zorStatusBadRoundMode)
      .untouched(&state, sizeof state)
      .verify("zorsFIRMRStreamInit_16s");
  kit::Contract(zorsFIRMRStreamInitAlloc_16s, &state, taps16, 4, 0, 3, 1, 2, 1, zorRoundNearestEven)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<4>({0, -1, INT32_MIN}, zorStatusBadMultiRateFactor)
      .bad<5>({3, -1}, zorStatusBadMultiRatePhase)
      .bad<8>({-1, 3, INT32_MAX}, zorStatusBadRoundMode)
      .verify("zorsFIRMRStreamInitAlloc_16s");
  kit::Contract(zorsFIRStreamInit_16s, &state, taps16, 4, 0, zorRoundNearestEven, buffer)
      .null<0>()
      .null<1>()
      .null<5>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<4>({-1, 3, INT32_MAX}, zorStatusBadRoundMode)
      .verify("zorsFIRStreamInit_16s");
  kit::Contract(zorsFIRStreamInit_32f, &state, taps, 4, buffer)
      .null<0>()
      .null<1>()
      .null<3>()
      .bad<2>({0, -1}, zorStatusBadTapsLength)
      .verify("zorsFIRStreamInit_32f");
  kit::Contract(zorsFIRStreamGetStateSize_16s, 4, &size)
      .null<1>()
      .bad<0>({0, -1}, zorStatusBadTapsLength)
      .verify("zorsFIRStreamGetStateSize_16s");
  kit::Contract(zorsFIRMRStreamGetStateSize_16s, 4, 3, 2, &size)
      .null<3>()
      .bad<0>({0, -1}, zorStatusBadTapsLength)
      .bad<1>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<2>({0, -1}, zorStatusBadMultiRateFactor)
      .verify("zorsFIRMRStreamGetStateSize_16s");
  Zor32s other = 4;
  kit::Contract(zorsFIRSRGetSize, 4, 13, &size, &other)
      .bad<0>({0, -1}, zorStatusBadSize)
      .bad<1>({0, 12, 15, 21, -1}, zorStatusBadDataType)
      .null<2>()
      .null<3>()
      .untouched(&size, sizeof size)
      .untouched(&other, sizeof other)
      .verify("zorsFIRSRGetSize");
  kit::Contract(zorsFIRMRGetSize, 4, 3, 2, 13, &size, &other)
      .bad<0>({0, -1}, zorStatusBadTapsLength)
      .bad<3>({0, 12, 15, 21, -1}, zorStatusBadDataType)
      .null<4>()
      .null<5>()
      .bad<1>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<2>({0, -1}, zorStatusBadMultiRateFactor)
      .untouched(&size, sizeof size)
      .untouched(&other, sizeof other)
      .verify("zorsFIRMRGetSize");
  kit::Contract(zorsFIRSRInit_32f, taps, 4, 0, buffer)
      .bad<1>({0, -1}, zorStatusBadSize)
      .null<0>()
      .null<3>()
      .bad<2>({-1, 3}, zorStatusBadAlgorithmType)
      .verify("zorsFIRSRInit_32f");
  kit::Contract(zorsFIRMR_Init_32f, taps, 4, 3, 1, 2, 1, buffer)
      .bad<1>({0, -1}, zorStatusBadTapsLength)
      .bad<2>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<4>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<3>({3, -1}, zorStatusBadMultiRatePhase)
      .bad<5>({2, -1}, zorStatusBadMultiRatePhase)
      .null<0>()
      .null<6>()
      .verify("zorsFIRMR_Init_32f");
  ASSERT_EQ(zorsFIRSRInit_32f(taps, 4, 0, buffer), zorStatusOk);
  for (auto run : {zorsFIRSR_32f, zorsFIRMR_32f})
    kit::Contract(run, static_cast<const Zor32f*>(data), dst, 2, static_cast<const Zor8u*>(buffer), dly, nullptr,
                  buffer + 8192)
        .null<0>()
        .null<1>()
        .null<3>()
        .null<6>()
        .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(dst, sizeof dst)
        .verify("zorsFIRSR_32f, zorsFIRMR_32f");
  Zor32f line[4] = {};
  kit::Contract(zorsFIRMR_Direct_32f, static_cast<const Zor32f*>(data), dst, 2, taps, 4, 3, 1, 2, 1, line)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .null<3>()
      .bad<4>({0, -1, INT32_MIN}, zorStatusBadTapsLength)
      .bad<5>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<7>({0, -1}, zorStatusBadMultiRateFactor)
      .bad<6>({3, -1}, zorStatusBadMultiRatePhase)
      .bad<8>({2, -1}, zorStatusBadMultiRatePhase)
      .null<9>()
      .untouched(dst, sizeof dst)
      .untouched(line, sizeof line)
      .verify("zorsFIRMR_Direct_32f");
}

}  // namespace
