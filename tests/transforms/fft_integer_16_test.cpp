// Transforms of 16-bit integers: in fixed point against a model of its arithmetic and against the exact transform, in
// floating point against the float model.
#include <complex>
#include <numbers>

#include "transforms/fft_integer_kinds.h"

namespace {

using kinds::allChecks, kinds::BuiltInteger, kinds::IntegerKind, kinds::rounded;
using kinds::ccs, kinds::pack, kinds::perm;
using kinds::Format, kinds::packed;
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

// ---- The arithmetic of the fixed-point path, in 64 bits
// ---------------------------------------------------------------

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

// ---- Specifications
// -----------------------------------------------------------------------------------------------------

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
  forEach([](const auto& kind) {
    using Spec = typename std::remove_cvref_t<decltype(kind)>::Spec;
    Zor32s a = 7, b = 7, c = 7;
    EXPECT_EQ(kind.getSize(31, 0, 0, nullptr, &b, &c), zorStatusBadOrder) << kind.name;
    EXPECT_EQ(kind.getSize(-1, 0, 0, &a, &b, &c), zorStatusBadOrder) << kind.name;
    EXPECT_EQ(kind.getSize(30, 0, 0, &a, &b, nullptr), zorStatusNullPointer) << kind.name;
    for (int order : {0, 2, 30}) EXPECT_EQ(kind.getSize(order, 3, 0, &a, &b, &c), zorStatusBadFlag) << kind.name;
    EXPECT_EQ(kind.getSize(kind.largestOrder + 1, 8, 0, &a, &b, &c), zorStatusBadOrder) << kind.name;
    EXPECT_TRUE(a == 7 && b == 7 && c == 7) << kind.name;
    alignas(64) Zor8u block[8192];
    Spec *const untouched = reinterpret_cast<Spec*>(block + 8), *out = untouched;
    const auto tag = [&] { return *reinterpret_cast<Zor32u*>(block); };
    std::memset(block, 0xAA, sizeof block);
    EXPECT_EQ(kind.init(nullptr, 31, 0, 0, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.init(&out, 31, 0, 0, nullptr, nullptr), zorStatusBadOrder);
    EXPECT_EQ(kind.init(&out, 30, 0, 0, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(tag(), 0xAAAAAAAAu);
    EXPECT_EQ(kind.init(&out, 2, 0, 0, block, nullptr), zorStatusBadFlag);
    EXPECT_EQ(tag(), 0u);
    EXPECT_EQ(kind.init(&out, 30, 8, 0, block, nullptr), zorStatusBadOrder);  // of the float kind
    EXPECT_EQ(kind.init(&out, 11, 8, 0, block, nullptr), zorStatusNullPointer);
    EXPECT_EQ(tag(), 0u);
    EXPECT_EQ(out, untouched) << kind.name;
    EXPECT_EQ(kind.init(&out, 4, 8, 5, block + 1, nullptr), zorStatusOk);
    EXPECT_NE(reinterpret_cast<Zor8u*>(out), block + 1);
    EXPECT_EQ(*reinterpret_cast<Zor32u*>(out), kind.tag) << kind.name;
    EXPECT_EQ(kind.getBufSize(nullptr, &a), zorStatusNullPointer);
    EXPECT_EQ(kind.getBufSize(out, nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.free(out), zorStatusOk);
    EXPECT_EQ(kind.free(out), zorStatusBadContext) << kind.name;
    EXPECT_EQ(kind.getBufSize(out, &a), zorStatusBadContext) << kind.name;
    EXPECT_EQ(kind.initAlloc(nullptr, 4, 8, 0), zorStatusNullPointer);
    EXPECT_EQ(kind.initAlloc(&out, kind.largestOrder + 1, 8, 0), zorStatusBadOrder);
    for (int order : {0, 3, 4, 12}) {
      Spec* made = nullptr;
      const int allocations = kit::failEachAllocation([&] { return kind.initAlloc(&made, order, 8, 0); },
                                                      [&](int failed, ZorStatus status) {
                                                        EXPECT_EQ(status, failed < 0 ? zorStatusOk : zorStatusNoMemory);
                                                        EXPECT_EQ(made == nullptr, failed >= 0);
                                                        if (made != nullptr) kind.free(made);
                                                        EXPECT_EQ(kit::services().live, 0) << kind.name << ": leaked";
                                                      });
      EXPECT_EQ(allocations, order == 0 ? 1 : 2) << kind.name << " order " << order;
    }
  });
}

// ---- Transforms
// ---------------------------------------------------------------------------------------------------------

constexpr int orders[] = {0, 1, 2, 3, 4, 5, 7, 8, 11, 12};
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
  kit::Random random(21);
  for (int order : orders)
    for (int hint : {0, fast, accurate})
      for (int flag : kinds::flags)
        for (bool inverse : {false, true})
          for (int scaleFactor : scaleFactors) {
            const bool fixed = fixedPath(order, hint);
            if (!fixed && std::abs(long{scaleFactor}) > 16) continue;  // the factor of the conversion wraps
            for (int repeat = 0; repeat < (fixed ? 20 : 1); ++repeat) {
              const std::size_t n = std::size_t{1} << order;
              const auto x = kit::anyValues<Zor16sc>(n, random);
              const auto wanted = (fixed ? complexModel : complexFloatModel)(x, order, flag, inverse, scaleFactor);
              std::vector<Zor16s> re, im, wantedRe, wantedIm;
              for (Zor16sc z : x) re.push_back(z.re), im.push_back(z.im);
              for (Zor16sc z : wanted) wantedRe.push_back(z.re), wantedIm.push_back(z.im);
              const std::string what = "order " + std::to_string(order) + " flag " + std::to_string(flag) + " hint " +
                                       std::to_string(hint) + " scale " + std::to_string(scaleFactor);
              const BuiltInteger built(c16sc, order, flag, 12, hint);
              const BuiltInteger splitBuilt(c16s, order, flag, 4, hint);
              const kit::Guarded<Zor16sc> src(x, kit::Edge::end), dst(n, kit::Edge::begin);
              ASSERT_EQ((inverse ? zorsFFTInv_CToC_16sc_Sfs : zorsFFTFwd_CToC_16sc_Sfs)(
                            src.data(), dst.data(), built.spec, scaleFactor, built.work->data()),
                        zorStatusOk);
              ASSERT_EQ(kit::firstDifference<Zor16sc>(dst.span(), wanted), "") << what;
              ASSERT_EQ((inverse ? zorsFFTInv_CToC_16sc_ISfs : zorsFFTFwd_CToC_16sc_ISfs)(src.data(), built.spec,
                                                                                          scaleFactor, nullptr),
                        zorStatusOk);
              ASSERT_EQ(kit::firstDifference<Zor16sc>(src.span(), wanted), "") << what << " in place";
              const kit::Guarded<Zor16s> srcRe(re, kit::Edge::end), srcIm(im, kit::Edge::end), dstRe(n, kit::Edge::end),
                  dstIm(n, kit::Edge::end);
              ASSERT_EQ((inverse ? zorsFFTInv_CToC_16s_Sfs : zorsFFTFwd_CToC_16s_Sfs)(
                            srcRe.data(), srcIm.data(), dstRe.data(), dstIm.data(), splitBuilt.spec, scaleFactor,
                            splitBuilt.work->data()),
                        zorStatusOk);
              ASSERT_EQ(kit::firstDifference<Zor16s>(dstRe.span(), wantedRe), "") << what << " split";
              ASSERT_EQ(kit::firstDifference<Zor16s>(dstIm.span(), wantedIm), "") << what << " split";
              ASSERT_EQ((inverse ? zorsFFTInv_CToC_16s_ISfs : zorsFFTFwd_CToC_16s_ISfs)(
                            srcRe.data(), srcIm.data(), splitBuilt.spec, scaleFactor, nullptr),
                        zorStatusOk);
              ASSERT_EQ(kit::firstDifference<Zor16s>(srcRe.span(), wantedRe), "") << what << " split in place";
              ASSERT_EQ(kit::firstDifference<Zor16s>(srcIm.span(), wantedIm), "") << what << " split in place";
              ASSERT_TRUE(built.intact() && splitBuilt.intact() && src.intact() && dst.intact() && dstRe.intact() &&
                          dstIm.intact() && srcRe.intact() && srcIm.intact())
                  << what << ": wrote outside";
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
  constexpr std::array outOfPlace = {zorsFFTFwd_RToPerm_16s_Sfs, zorsFFTInv_PermToR_16s_Sfs, zorsFFTFwd_RToPack_16s_Sfs,
                                     zorsFFTInv_PackToR_16s_Sfs, zorsFFTFwd_RToCCS_16s_Sfs,  zorsFFTInv_CCSToR_16s_Sfs};
  constexpr std::array inPlace = {zorsFFTFwd_RToPerm_16s_ISfs, zorsFFTInv_PermToR_16s_ISfs, zorsFFTFwd_RToPack_16s_ISfs,
                                  zorsFFTInv_PackToR_16s_ISfs, zorsFFTFwd_RToCCS_16s_ISfs,  zorsFFTInv_CCSToR_16s_ISfs};
  kit::Random random(22);
  for (int order : orders)
    for (int hint : {0, fast, accurate})
      for (int flag : kinds::flags)
        for (int scaleFactor : scaleFactors) {
          const bool fixed = fixedPath(order, hint);
          if (!fixed && std::abs(long{scaleFactor}) > 16) continue;
          for (int repeat = 0; repeat < (fixed ? 10 : 1); ++repeat) {
            const std::size_t n = std::size_t{1} << order;
            const auto x = kit::anyValues<Zor16s>(n, random);
            const auto modelOf = fixed ? realModel : realFloatModel;
            const auto spectrum = modelOf(x, order, flag, false, scaleFactor);
            const auto signal = modelOf(x, order, flag, true, scaleFactor);
            const BuiltInteger built(r16s, order, flag, 4, hint);
            for (Format format : {perm, pack, ccs})
              for (bool inverse : {false, true}) {
                auto input = inverse ? packed(x, format) : x;
                if (inverse && format == ccs) input[1] = 99;  // the places of zeros are not looked at
                const auto wanted = inverse ? signal : packed(spectrum, format);
                const std::string what = "order " + std::to_string(order) + " flag " + std::to_string(flag) + " hint " +
                                         std::to_string(hint) + " scale " + std::to_string(scaleFactor) + " format " +
                                         std::to_string(format) + (inverse ? " inverse" : "");
                const auto at = static_cast<std::size_t>(2 * format + inverse);
                const kit::Guarded<Zor16s> src(input, kit::Edge::end), dst(wanted.size(), kit::Edge::end),
                    both(std::max(input.size(), wanted.size()), kit::Edge::begin);
                ASSERT_EQ(outOfPlace[at](src.data(), dst.data(), built.spec, scaleFactor, built.work->data()),
                          zorStatusOk);
                ASSERT_EQ(kit::firstDifference<Zor16s>(dst.span(), wanted), "") << what;
                std::copy(input.begin(), input.end(), both.data());
                ASSERT_EQ(inPlace[at](both.data(), built.spec, scaleFactor, nullptr), zorStatusOk);
                ASSERT_EQ(kit::firstDifference<Zor16s>(both.span().first(wanted.size()), wanted), "")
                    << what << " in place";
                ASSERT_TRUE(dst.intact() && both.intact() && built.intact()) << what << ": wrote outside";
              }
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
  allChecks(c16sc, zorsFFTFwd_CToC_16sc_Sfs, zorsFFTInv_CToC_16sc_Sfs, zorsFFTFwd_CToC_16sc_ISfs,
            zorsFFTInv_CToC_16sc_ISfs);
  allChecks(c16s, zorsFFTFwd_CToC_16s_Sfs, zorsFFTInv_CToC_16s_Sfs, zorsFFTFwd_CToC_16s_ISfs, zorsFFTInv_CToC_16s_ISfs);
  allChecks(r16s, zorsFFTFwd_RToPerm_16s_Sfs, zorsFFTInv_PermToR_16s_Sfs, zorsFFTFwd_RToPack_16s_Sfs,
            zorsFFTInv_PackToR_16s_Sfs, zorsFFTFwd_RToCCS_16s_Sfs, zorsFFTInv_CCSToR_16s_Sfs,
            zorsFFTFwd_RToPerm_16s_ISfs, zorsFFTInv_PermToR_16s_ISfs, zorsFFTFwd_RToPack_16s_ISfs,
            zorsFFTInv_PackToR_16s_ISfs, zorsFFTFwd_RToCCS_16s_ISfs, zorsFFTInv_CCSToR_16s_ISfs);
}

TEST(FFTInteger16, WithoutMemoryNothingIsWritten) {
  for (int order : {3, 5}) {
    ZorsFFTSpec_R_16s* spec = nullptr;
    ASSERT_EQ(zorsFFTInitAlloc_R_16s(&spec, order, 8, 0), zorStatusOk);
    const std::vector<Zor16s> src(32, 5);
    std::vector<Zor16s> dst(34, 1);
    const int allocations =
        kit::failEachAllocation([&] { return zorsFFTFwd_RToCCS_16s_Sfs(src.data(), dst.data(), spec, 0, nullptr); },
                                [&](int failed, ZorStatus status) {
                                  EXPECT_EQ(status, failed < 0 ? zorStatusOk : zorStatusNoMemory);
                                  EXPECT_EQ(dst[0], failed < 0 ? 5 << order : 1);
                                  EXPECT_EQ(kit::services().live, 0);
                                });
    EXPECT_EQ(allocations, 1);
    EXPECT_EQ(zorsFFTFree_R_16s(spec), zorStatusOk);
  }
}

TEST(FFTInteger16, OneIsDividedByFifteenBitsAtOrderEightPoints) {
  // Of eight points divided by 8, sums come back as they were.
  const BuiltInteger built(c16sc, 3, ZOR_FFT_DIVIDE_FORWARD);
  const std::vector<Zor16sc> x(8, Zor16sc{-32768, 32767});
  std::vector<Zor16sc> y(8);
  ASSERT_EQ(zorsFFTFwd_CToC_16sc_Sfs(x.data(), y.data(), built.spec, 0, nullptr), zorStatusOk);
  EXPECT_EQ(y[0].re, -32768);
  EXPECT_EQ(y[0].im, 32767);
}

}  // namespace
