// Transforms of 16-bit integers: in fixed point against a model of its arithmetic and against the exact transform, in
// floating point against the float model.
#include <complex>
#include <numbers>

#include "fft/fft_integer_kinds.h"
#include "zors/fft.h"

namespace {

using kinds::BuiltInteger, kinds::IntegerKind, kinds::rounded;
using kinds::scale, kinds::scales;

constexpr IntegerKind<ZorsFFTSpec_C_16sc> c16sc = {"C_16sc",
                                                   28,
                                                   1,
                                                   zorsFFTGetSize_C_16sc,
                                                   zorsFFTInit_C_16sc,
                                                   zorsFFTInitAlloc_C_16sc,
                                                   zorsFFTFree_C_16sc,
                                                   zorsFFTGetBufSize_C_16sc,
                                                   zorsFFTGetSize_C_32fc,
                                                   [](long n) { return 8 * n; }};
constexpr IntegerKind<ZorsFFTSpec_C_16s> c16s = {"C_16s",
                                                 28,
                                                 2,
                                                 zorsFFTGetSize_C_16s,
                                                 zorsFFTInit_C_16s,
                                                 zorsFFTInitAlloc_C_16s,
                                                 zorsFFTFree_C_16s,
                                                 zorsFFTGetBufSize_C_16s,
                                                 zorsFFTGetSize_C_32fc,
                                                 [](long n) { return 8 * n; }};
constexpr IntegerKind<ZorsFFTSpec_R_16s> r16s = {"R_16s",
                                                 29,
                                                 3,
                                                 zorsFFTGetSize_R_16s,
                                                 zorsFFTInit_R_16s,
                                                 zorsFFTInitAlloc_R_16s,
                                                 zorsFFTFree_R_16s,
                                                 zorsFFTGetBufSize_R_16s,
                                                 zorsFFTGetSize_R_32f,
                                                 [](long n) { return 4 * n + 8; }};
template <class F> void forEach(F f) { f(c16sc), f(c16s), f(r16s); }

constexpr int fast = zorAlgHintFast, accurate = zorAlgHintAccurate;
bool fixedPath(int order, int hint) { return order == 0 || (order < 4 && hint != accurate); }

// ---- The arithmetic of the fixed-point path, in 64 bits -----------------------------------------

struct Point {
  long re, im;
};
Point plus(Point a, Point b) { return {a.re + b.re, a.im + b.im}; }
Point minus(Point a, Point b) { return {a.re - b.re, a.im - b.im}; }
Point timesPowerOfMinusI(Point a, int power) {
  for (int i = 0; i < power % 4; ++i) a = {a.im, -a.re};
  return a;
}
// Of pi / 4 * eighth, times 2^14, rounded.
long cosine(int eighth) { return std::lround(16384 * std::cos(std::numbers::pi / 4 * eighth)); }
long sine(int eighth) { return std::lround(16384 * std::sin(std::numbers::pi / 4 * eighth)); }
long weighted(long x, long wx, long y, long wy) {
  const auto low = [](long v) { return (v & 65535) / 2; };
  const auto high = [](long v) { return v >> 16; };
  return ((wx * low(x) + wy * low(y) + 4096) >> 13) + 4 * (wx * high(x) + wy * high(y));
}
Point turned(Point x, int eighth) {
  return {weighted(x.re, cosine(eighth), x.im, sine(eighth)), weighted(x.re, -sine(eighth), x.im, cosine(eighth))};
}
std::vector<Point> transformed(std::vector<Point> x, bool inverse) {
  const int n = int(x.size());
  if (inverse) std::reverse(x.begin() + 1, x.end());
  std::vector<Point> out(x.size());
  for (int m = 0; m < n; ++m) {
    if (n < 4) {
      out[std::size_t(m)] = n == 1 ? x[0] : m == 0 ? plus(x[0], x[1]) : minus(x[0], x[1]);
      continue;
    }
    const int quarter = n / 4, q = m % 4;
    Point sum = {0, 0};
    for (int k = 0; k < quarter; ++k) {
      Point term = {0, 0};
      for (int j = 0; j < 4; ++j) term = plus(term, timesPowerOfMinusI(x[std::size_t(k + j * quarter)], q * j));
      if (quarter == 2) term = turned(term, q * k);
      sum = k == 1 && m >= 4 ? minus(sum, term) : plus(sum, term);
    }
    out[std::size_t(m)] = sum;
  }
  return out;
}
long overRoot(long x) { return ((x & 65535) * 23170 >> 15) + (x >> 16) * 46340; }
Zor16s narrowed(long x, long shift) {
  const auto saturated = [](long v) { return Zor16s(std::clamp(v, -32768L, 32767L)); };
  if (shift >= 32) return 0;
  if (shift > 0) return saturated((x + (1L << (shift - 1))) >> shift);
  return shift < -16 ? Zor16s(x == 0  ? 0
                              : x > 0 ? 32767
                                      : -32768)
                     : saturated(std::clamp(x, -70000L, 70000L) << -shift);
}
long downBy(int flag, int order, bool inverse) {
  return flag == ZOR_FFT_DIVIDE_BOTH_ROOT                                      ? order / 2
         : flag == (inverse ? ZOR_FFT_DIVIDE_INVERSE : ZOR_FFT_DIVIDE_FORWARD) ? order
                                                                               : 0;
}
std::vector<Point> normalised(std::vector<Point> x, int flag, int order) {
  if (flag == ZOR_FFT_DIVIDE_BOTH_ROOT && order % 2 == 1)
    for (Point& p : x) p = {overRoot(p.re), overRoot(p.im)};
  return x;
}

std::vector<Zor16sc> complexModel(const std::vector<Zor16sc>& x, int order, int flag, bool inverse, int scaleFactor) {
  const long up = order == 0 ? 0 : 15 - order;
  std::vector<Point> points;
  for (Zor16sc z : x) points.push_back({long{z.re} << up, long{z.im} << up});
  points = normalised(transformed(points, inverse), flag, order);
  const long down = up + downBy(flag, order, inverse) + scaleFactor;
  std::vector<Zor16sc> out;
  for (Point p : points) out.push_back({narrowed(p.re, down), narrowed(p.im, down)});
  return out;
}

// Perm from values, or values from Perm.
std::vector<Zor16s> realModel(const std::vector<Zor16s>& x, int order, int flag, bool inverse, int scaleFactor) {
  if (order == 0) return {narrowed(x[0], scaleFactor)};
  const std::size_t half = x.size() / 2;
  const long up = 15 - order + !inverse;
  std::vector<Point> z;
  for (std::size_t i = 0; i < half; ++i) z.push_back({long{x[2 * i]} << up, long{x[2 * i + 1]} << up});
  if (!inverse) z = transformed(z, false);
  const auto ends = Point{z[0].re + z[0].im, z[0].re - z[0].im};
  const auto spectrum = z;
  z[0] = ends;
  const int step = 8 >> order;
  for (std::size_t k = 1; 2 * k <= half; ++k) {
    const Point p = spectrum[k], b = spectrum[half - k];
    Point sum = {p.re + b.re, p.im - b.im}, difference = {p.re - b.re, p.im + b.im};
    const int angle = int(k) * step;
    Point t;
    if (inverse) {  // i conj(W) d
      const long re = weighted(-difference.re, cosine(angle), -difference.im, -sine(angle));
      const long im = weighted(-difference.re, sine(angle), -difference.im, cosine(angle));
      t = {im, -re};
    } else {  // -i W d, both halved
      sum = {sum.re >> 1, sum.im >> 1};
      t = timesPowerOfMinusI(turned({difference.re >> 1, difference.im >> 1}, angle), 1);
    }
    z[k] = plus(sum, t);
    const Point mirrored = minus(sum, t);
    z[half - k] = {mirrored.re, -mirrored.im};
  }
  if (inverse) z = transformed(z, true);
  z = normalised(z, flag, order);
  const long down = up + downBy(flag, order, inverse) + scaleFactor;
  std::vector<Zor16s> out;
  for (Point p : z) out.push_back(narrowed(p.re, down)), out.push_back(narrowed(p.im, down));
  return out;
}

// ---- Specifications -----------------------------------------------------------------------------

TEST(FFTInteger16, SizesOfTheFixedPathAndOfTheFloatPath) {
  const auto down64 = [](long x) { return x / 64 * 64; };
  forEach([&](const auto& kind) {
    const bool real = kind.tag == 3;
    for (int hint : {0, fast, accurate, 7})
      for (int order = 0; order <= kind.largestOrder; ++order) {
        Zor32s spec = 0, init = 0, work = 0, innerSpec = 0, innerInit = 0, innerWork = 0;
        ASSERT_EQ(kind.getSize(order, 2, hint, &spec, &init, &work), zorStatusOk);
        ASSERT_EQ(kind.innerSize(order, 2, 0, &innerSpec, &innerInit, &innerWork), zorStatusOk);
        const long n = 1L << order;
        if (order == 0) {
          EXPECT_TRUE(spec == 136 && init == 0 && work == 0) << kind.name;
        } else if (order < 4 && hint < 2) {
          EXPECT_EQ(spec, (real ? down64(4 * n + 63) + down64(n / 2 + 67) + down64(8 * n + 63)
                                : down64(8 * n + 63) + down64(n + 67)) +
                              192);
          EXPECT_EQ(init, down64(n / 2 + 65) + 64);
          EXPECT_EQ(work, (real ? 4 * n + 8 : kind.tag == 1 ? 8 * n : 12 * n) + 64) << kind.name;
        } else {
          EXPECT_EQ(spec, innerSpec + 192) << kind.name << " order " << order;
          EXPECT_EQ(init, innerInit + 64);
          EXPECT_EQ(work, Zor32s(Zor32u(innerWork + kind.head(n) + 64))) << kind.name << " order " << order;
        }
      }
  });
}

TEST(FFTInteger16, SpecificationsCheckInOrder) {
  forEach([](const auto& kind) { kinds::specificationChecksInOrder(kind); });
}
TEST(FFTInteger16, SpecificationsLiveAsAllObjectsDo) {
  for (int hint : {fast, accurate})
    for (int order : {0, 1, 3, 4, 7, 11}) {
      const auto n = std::ptrdiff_t{1} << order;
      kit::checkObject(kinds::asObject<Zor16sc>(c16sc, order, 8, hint,
                                                [](const Zor16sc* x, Zor16sc* y, const auto* spec, Zor8u* work) {
                                                  return zorsFFTFwd_CToC_16sc_Sfs(x, y, spec, 3, work);
                                                }));
      kit::checkObject(
          kinds::asObject<Zor16s>(c16s, order, 8, hint, [=](const Zor16s* x, Zor16s* y, const auto* spec, Zor8u* work) {
            return zorsFFTFwd_CToC_16s_Sfs(x, x + n, y, y + n, spec, 3, work);
          }));
      kit::checkObject(
          kinds::asObject<Zor16s>(r16s, order, 8, hint, [](const Zor16s* x, Zor16s* y, const auto* spec, Zor8u* work) {
            return zorsFFTFwd_RToPerm_16s_Sfs(x, y, spec, 3, work);
          }));
    }
}

// ---- Transforms ---------------------------------------------------------------------------------

constexpr int scaleFactors[] = {0, -2, 3, -16, -20, 17, 31, 32, INT32_MAX, INT32_MIN};

std::vector<Zor16sc> complexFloatModel(const std::vector<Zor16sc>& x, int order, int flag, bool inverse,
                                       int scaleFactor) {
  model::Signal<float> points(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) points[i] = {float(x[i].re), float(x[i].im)};
  const auto y = model::complexTransform(points, order, model::Twiddles<float>(std::max(order, 6)), inverse,
                                         scales(flag, inverse), scale<float>(flag, order));
  std::vector<Zor16sc> out;
  for (auto z : y) out.push_back({rounded<Zor16s>(z.re, scaleFactor), rounded<Zor16s>(z.im, scaleFactor)});
  return out;
}

TEST(FFTInteger16, ComplexTransforms) {
  const kinds::ComplexForms<Zor16sc, ZorsFFTSpec_C_16sc, ZorsFFTSpec_C_16s> forms = {
      c16sc,
      c16s,
      {zorsFFTFwd_CToC_16sc_Sfs, zorsFFTInv_CToC_16sc_Sfs},
      {zorsFFTFwd_CToC_16sc_ISfs, zorsFFTInv_CToC_16sc_ISfs},
      {zorsFFTFwd_CToC_16s_Sfs, zorsFFTInv_CToC_16s_Sfs},
      {zorsFFTFwd_CToC_16s_ISfs, zorsFFTInv_CToC_16s_ISfs}};
  kit::Random random(21);
  for (int order : kinds::orders)
    for (int hint : {0, fast, accurate})
      for (int flag : kinds::flags)
        for (bool inverse : {false, true})
          for (int scaleFactor : scaleFactors) {
            const bool fixed = fixedPath(order, hint);
            if (!fixed && std::abs(long{scaleFactor}) > 16) continue;  // the factor of the conversion wraps
            for (int repeat = 0; repeat < (fixed ? 20 : 1); ++repeat) {
              const auto x = kit::anyValues<Zor16sc>(std::size_t{1} << order, random);
              const auto wanted = (fixed ? complexModel : complexFloatModel)(x, order, flag, inverse, scaleFactor);
              forms.turn(x, wanted, order, flag, hint, inverse, scaleFactor);
              if (HasFatalFailure()) return;
            }
          }
}

std::vector<Zor16s> realFloatModel(const std::vector<Zor16s>& x, int order, int flag, bool inverse, int scaleFactor) {
  const std::vector<float> values(x.begin(), x.end());
  return rounded<Zor16s>(
      (inverse ? model::realInverse<float>
               : model::realForward<float>)(values, order, model::Twiddles<float>(std::max(order, 6)),
                                            scales(flag, inverse), scale<float>(flag, order)),
      scaleFactor);
}

TEST(FFTInteger16, RealTransforms) {
  const kinds::RealForms<Zor16s, ZorsFFTSpec_R_16s> forms = {
      r16s,
      {zorsFFTFwd_RToPerm_16s_Sfs, zorsFFTInv_PermToR_16s_Sfs, zorsFFTFwd_RToPack_16s_Sfs, zorsFFTInv_PackToR_16s_Sfs,
       zorsFFTFwd_RToCCS_16s_Sfs, zorsFFTInv_CCSToR_16s_Sfs},
      {zorsFFTFwd_RToPerm_16s_ISfs, zorsFFTInv_PermToR_16s_ISfs, zorsFFTFwd_RToPack_16s_ISfs,
       zorsFFTInv_PackToR_16s_ISfs, zorsFFTFwd_RToCCS_16s_ISfs, zorsFFTInv_CCSToR_16s_ISfs}};
  kit::Random random(22);
  for (int order : kinds::orders)
    for (int hint : {0, fast, accurate})
      for (int flag : kinds::flags)
        for (int scaleFactor : scaleFactors) {
          const bool fixed = fixedPath(order, hint);
          if (!fixed && std::abs(long{scaleFactor}) > 16) continue;
          for (int repeat = 0; repeat < (fixed ? 10 : 1); ++repeat) {
            const auto x = kit::anyValues<Zor16s>(std::size_t{1} << order, random);
            const auto modelOf = fixed ? realModel : realFloatModel;
            forms.turn(x, modelOf(x, order, flag, false, scaleFactor), modelOf(x, order, flag, true, scaleFactor),
                       order, flag, hint, scaleFactor);
            if (HasFatalFailure()) return;
          }
        }
}

// The fixed-point path is right to the last bit or its neighbour.
TEST(FFTInteger16, TheFixedPathIsCloseToTheExactTransform) {
  using Complex = std::complex<long double>;
  kit::Random random(23);
  for (int order : {1, 2, 3})
    for (bool inverse : {false, true}) {
      const int n = 1 << order;
      const BuiltInteger complex(c16sc, order, ZOR_FFT_DIVIDE_BOTH_ROOT);
      const BuiltInteger real(r16s, order, ZOR_FFT_DIVIDE_BOTH_ROOT);
      for (int repeat = 0; repeat < 200; ++repeat) {
        std::vector<Zor16sc> x(std::size_t(n), Zor16sc{}), y = x;
        for (auto& z : x) z = {Zor16s(random() % 8000), Zor16s(-Zor32s(random() % 8000))};
        ASSERT_EQ((inverse ? zorsFFTInv_CToC_16sc_Sfs : zorsFFTFwd_CToC_16sc_Sfs)(x.data(), y.data(), complex.spec, 0,
                                                                                  nullptr),
                  zorStatusOk);
        const auto term = [&](int k, auto at) {
          Complex sum = 0;
          for (int j = 0; j < n; ++j)
            sum += at(j) * std::polar(1.0L, (inverse ? 2 : -2) * std::numbers::pi_v<long double> * j * k / n);
          return sum / std::sqrt((long double)(n));
        };
        for (int k = 0; k < n; ++k) {
          const auto exact = term(k, [&](int j) { return Complex(x[std::size_t(j)].re, x[std::size_t(j)].im); });
          EXPECT_LE(std::abs((long double)(y[std::size_t(k)].re) - exact.real()), 1.01L) << order << " at " << k;
          EXPECT_LE(std::abs((long double)(y[std::size_t(k)].im) - exact.imag()), 1.01L) << order << " at " << k;
        }
        if (inverse) continue;
        std::vector<Zor16s> values, spectrum(std::size_t(n) + 2);
        for (auto z : x) values.push_back(z.re);
        ASSERT_EQ(zorsFFTFwd_RToCCS_16s_Sfs(values.data(), spectrum.data(), real.spec, 0, nullptr), zorStatusOk);
        for (int k = 0; k <= n / 2; ++k) {
          const auto exact = term(k, [&](int j) { return Complex(values[std::size_t(j)], 0); });
          EXPECT_LE(std::abs((long double)(spectrum[std::size_t(2 * k)]) - exact.real()), 1.01L);
          EXPECT_LE(std::abs((long double)(spectrum[std::size_t(2 * k) + 1]) - exact.imag()), 1.01L);
        }
        std::vector<Zor16s> back(std::size_t(n), 0);
        ASSERT_EQ(zorsFFTInv_CCSToR_16s_Sfs(spectrum.data(), back.data(), real.spec, 0, nullptr), zorStatusOk);
        for (std::size_t i = 0; i < back.size(); ++i) EXPECT_LE(std::abs(back[i] - values[i]), 3);
      }
    }
}

TEST(FFTInteger16, TransformsCheckTheSpecificationThenItsKindThenTheData) {
  kinds::contracts(c16sc, zorsFFTFwd_CToC_16sc_Sfs, zorsFFTInv_CToC_16sc_Sfs, zorsFFTFwd_CToC_16sc_ISfs,
                   zorsFFTInv_CToC_16sc_ISfs);
  kinds::contracts(c16s, zorsFFTFwd_CToC_16s_Sfs, zorsFFTInv_CToC_16s_Sfs, zorsFFTFwd_CToC_16s_ISfs,
                   zorsFFTInv_CToC_16s_ISfs);
  kinds::contracts(r16s, zorsFFTFwd_RToPerm_16s_Sfs, zorsFFTInv_PermToR_16s_Sfs, zorsFFTFwd_RToPack_16s_Sfs,
                   zorsFFTInv_PackToR_16s_Sfs, zorsFFTFwd_RToCCS_16s_Sfs, zorsFFTInv_CCSToR_16s_Sfs,
                   zorsFFTFwd_RToPerm_16s_ISfs, zorsFFTInv_PermToR_16s_ISfs, zorsFFTFwd_RToPack_16s_ISfs,
                   zorsFFTInv_PackToR_16s_ISfs, zorsFFTFwd_RToCCS_16s_ISfs, zorsFFTInv_CCSToR_16s_ISfs);
}

TEST(FFTInteger16, EightEqualPointsDividedByEightComeBack) {
  const BuiltInteger built(c16sc, 3, ZOR_FFT_DIVIDE_FORWARD);
  const std::vector<Zor16sc> x(8, Zor16sc{-32768, 32767});
  std::vector<Zor16sc> y(8);
  ASSERT_EQ(zorsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), built.spec, 0, nullptr), zorStatusOk);
  EXPECT_EQ(y[0].re, -32768);
  EXPECT_EQ(y[0].im, 32767);
}

}  // namespace
