// The roundings of the transforms of any length: scalar code that follows them one by one, compared bit for bit.
#include <array>
#include <numbers>

#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "zors/arithmetic.h"

namespace {

using namespace kit;

template <class T> struct Number {
  T re, im;
  friend Number operator+(Number a, Number b) { return {a.re + b.re, a.im + b.im}; }
  friend Number operator-(Number a, Number b) { return {a.re - b.re, a.im - b.im}; }
  friend Number operator*(T a, Number b) { return {a * b.re, a * b.im}; }
};
template <class T> Number<T> fma(T a, Number<T> b, Number<T> c) {
  return {std::fma(a, b.re, c.re), std::fma(a, b.im, c.im)};
}
template <class T> Number<T> minusI(Number<T> a, Number<T> b) { return {a.re + b.im, a.im - b.re}; }
template <class T> Number<T> plusI(Number<T> a, Number<T> b) { return {a.re - b.im, a.im + b.re}; }
template <class T> Number<T> conj(Number<T> a) { return {a.re, -a.im}; }
template <class T> Number<T> turned(Number<T> w, Number<T> x) {
  return {std::fma(-w.im, x.im, w.re * x.re), std::fma(w.im, x.re, w.re * x.im)};
}
template <class T> using Numbers = std::vector<Number<T>>;

// Root j of n as the tables hold it: evaluated over an eighth, a quarter or a half of the turn, and mirrored.
template <class T> Number<T> root(std::size_t j, std::size_t n) {
  if (2 * j > n) return conj(root<T>(n - j, n));
  if (n % 2 == 0 && 4 * j > n) {
    const auto mirror = root<T>(n / 2 - j, n);
    return {-mirror.re, mirror.im};
  }
  if (n % 4 == 0 && 8 * j > n) {
    const auto mirror = root<T>(n / 4 - j, n);
    return {-mirror.im, -mirror.re};
  }
  const double angle = 6.283185307179586 / static_cast<double>(n) * static_cast<double>(j);
  return {static_cast<T>(std::cos(angle)), static_cast<T>(-std::sin(angle))};
}
long double turnOf(std::size_t j, std::size_t n) {
  return 2 * std::numbers::pi_v<long double> * static_cast<long double>(j % n) / static_cast<long double>(n);
}
template <class T> T cosine(std::size_t j, std::size_t n) { return static_cast<T>(std::cos(turnOf(j, n))); }
template <class T> T sine(std::size_t j, std::size_t n) { return static_cast<T>(std::sin(turnOf(j, n))); }

template <class T> Numbers<T> butterfly(Numbers<T> x, std::size_t n = 0);

// A constant turn of a straight line.
template <class T> Number<T> constantRoot(std::size_t j, std::size_t n) {
  const auto clean = [](long double v) { return std::abs(v) < 1e-18L ? 0 : v; };
  return {static_cast<T>(clean(std::cos(turnOf(j, n)))), static_cast<T>(clean(-std::sin(turnOf(j, n))))};
}
template <class T> Numbers<T> nested(const Numbers<T>& x, std::size_t outer) {
  const std::size_t n = x.size(), inner = n / outer;
  Numbers<T> out(n);
  std::vector<Numbers<T>> part(outer);
  for (std::size_t q = 0; q < outer; ++q) {
    for (std::size_t i = 0; i < inner; ++i) part[q].push_back(x[q + outer * i]);
    part[q] = butterfly(part[q]);
    for (std::size_t k = 1; q > 0 && k < inner; ++k) part[q][k] = turned(constantRoot<T>(q * k, n), part[q][k]);
  }
  for (std::size_t k = 0; k < inner; ++k) {
    Numbers<T> across;
    for (std::size_t q = 0; q < outer; ++q) across.push_back(part[q][k]);
    across = butterfly(across);
    for (std::size_t q = 0; q < outer; ++q) out[k + inner * q] = across[q];
  }
  return out;
}
template <class T> Numbers<T> oddKernel(const Numbers<T>& x) {
  const std::size_t p = x.size(), h = p / 2;
  Numbers<T> a(h + 1), b(h + 1), out(p);
  for (std::size_t j = 1; j <= h; ++j) {
    a[j] = x[j] + x[p - j];
    b[j] = x[j] - x[p - j];
  }
  auto sum = a[1];
  for (std::size_t j = 2; j <= h; ++j) sum = sum + a[j];
  out[0] = x[0] + sum;
  for (std::size_t k = 1; k <= h; ++k) {
    auto c = x[0], s = sine<T>(h * k, p) * b[h];
    for (std::size_t j = h; j >= 1; --j) c = fma(cosine<T>(j * k, p), a[j], c);
    for (std::size_t j = h - 1; j >= 1; --j) s = fma(sine<T>(j * k, p), b[j], s);
    out[k] = minusI(c, s);
    out[p - k] = plusI(c, s);
  }
  return out;
}
// Of a transform of n points, whose table its roots come from.
template <class T> Numbers<T> generic(const Numbers<T>& x, std::size_t n) {
  const std::size_t p = x.size(), h = p / 2;
  Numbers<T> out(p);
  out[0] = x[0];
  for (std::size_t j = 1; j <= h; ++j) out[0] = out[0] + (x[j] + x[p - j]);
  for (std::size_t k = 1; k <= h; ++k) {
    Number<T> c[2] = {x[0], {0, 0}}, s[2] = {};
    for (std::size_t j = 1; j <= h; ++j) {
      const auto w = root<T>(j * k % p * (n / p), n);
      auto &cosines = c[(j + 1) % 2], &sines = s[(j + 1) % 2];
      cosines = cosines + w.re * (x[j] + x[p - j]);
      sines = sines + (-w.im) * (x[j] - x[p - j]);
    }
    out[k] = minusI(c[0] + c[1], s[0] + s[1]);
    out[p - k] = plusI(c[0] + c[1], s[0] + s[1]);
  }
  return out;
}
template <class T> Numbers<T> butterfly(Numbers<T> x, std::size_t n) {
  switch (x.size()) {
    case 2:
      return {x[0] + x[1], x[0] - x[1]};
    case 4: {
      const auto sum02 = x[0] + x[2], difference02 = x[0] - x[2], sum13 = x[1] + x[3], difference13 = x[1] - x[3];
      return {sum02 + sum13, minusI(difference02, difference13), sum02 - sum13, plusI(difference02, difference13)};
    }
    case 6:
      return nested(x, 2);
    case 8: {
      const auto e = butterfly(Numbers<T>{x[0], x[2], x[4], x[6]}), o = butterfly(Numbers<T>{x[1], x[3], x[5], x[7]});
      const T half = static_cast<T>(std::sqrt(0.5L));
      const auto o1 = half * minusI(o[1], o[1]), o3 = half * minusI(o[3], o[3]);
      return {e[0] + o[0], e[1] + o1, minusI(e[2], o[2]), minusI(e[3], o3),
              e[0] - o[0], e[1] - o1, plusI(e[2], o[2]),  plusI(e[3], o3)};
    }
    case 16:
      return nested(x, 4);
    default:
      return x.size() < 14 ? oddKernel(x) : generic(x, n);
  }
}
template <class T>
Numbers<T> chain(const Numbers<T>& x, const std::vector<std::size_t>& factors, std::size_t all, std::size_t at = 0) {
  if (at + 1 == factors.size()) return butterfly(x, all);
  const std::size_t n = x.size(), radix = factors[at], rest = n / radix;
  std::vector<Numbers<T>> part(radix);
  for (std::size_t q = 0; q < radix; ++q) {
    for (std::size_t i = 0; i < rest; ++i) part[q].push_back(x[q + radix * i]);
    part[q] = chain(part[q], factors, all, at + 1);
  }
  Numbers<T> out(n);
  for (std::size_t k = 0; k < rest; ++k) {
    Numbers<T> across;
    for (std::size_t q = 0; q < radix; ++q)
      across.push_back(q == 0 ? part[q][k] : turned(root<T>(q * k * (all / n), all), part[q][k]));
    across = butterfly(across, all);
    for (std::size_t q = 0; q < radix; ++q) out[k + rest * q] = across[q];
  }
  return out;
}

template <class T> struct Exports;
template <> struct Exports<Zor32f> {
  using Complex = Zor32fc;
  using Spec = ZorsDFTSpec_C_32fc;
  using RealSpec = ZorsDFTSpec_R_32f;
  static constexpr auto init = zorsDFTInitAlloc_C_32fc;
  static constexpr auto free = zorsDFTFree_C_32fc;
  static constexpr auto forward = zorsDFTFwd_CToC_32fc, inverse = zorsDFTInv_CToC_32fc;
  static constexpr auto initReal = zorsDFTInitAlloc_R_32f;
  static constexpr auto freeReal = zorsDFTFree_R_32f;
  static constexpr auto toPerm = zorsDFTFwd_RToPerm_32f, fromPerm = zorsDFTInv_PermToR_32f;
  using OutOfOrder = ZorsDFTOutOrdSpec_C_32fc;
  static constexpr auto initOutOfOrder = zorsDFTOutOrdInitAlloc_C_32fc;
  static constexpr auto freeOutOfOrder = zorsDFTOutOrdFree_C_32fc;
  static constexpr auto toDigits = zorsDFTOutOrdFwd_CToC_32fc, fromDigits = zorsDFTOutOrdInv_CToC_32fc;
};
template <> struct Exports<Zor64f> {
  using Complex = Zor64fc;
  using Spec = ZorsDFTSpec_C_64fc;
  using RealSpec = ZorsDFTSpec_R_64f;
  static constexpr auto init = zorsDFTInitAlloc_C_64fc;
  static constexpr auto free = zorsDFTFree_C_64fc;
  static constexpr auto forward = zorsDFTFwd_CToC_64fc, inverse = zorsDFTInv_CToC_64fc;
  static constexpr auto initReal = zorsDFTInitAlloc_R_64f;
  static constexpr auto freeReal = zorsDFTFree_R_64f;
  static constexpr auto toPerm = zorsDFTFwd_RToPerm_64f, fromPerm = zorsDFTInv_PermToR_64f;
  using OutOfOrder = ZorsDFTOutOrdSpec_C_64fc;
  static constexpr auto initOutOfOrder = zorsDFTOutOrdInitAlloc_C_64fc;
  static constexpr auto freeOutOfOrder = zorsDFTOutOrdFree_C_64fc;
  static constexpr auto toDigits = zorsDFTOutOrdFwd_CToC_64fc, fromDigits = zorsDFTOutOrdInv_CToC_64fc;
};
enum class Way { forward, inverse };
template <class T> Numbers<T> transformed(const Numbers<T>& x, Way way, int flag = ZOR_FFT_DIVIDE_NONE) {
  using E = Exports<T>;
  typename E::Spec* spec = nullptr;
  EXPECT_EQ(E::init(&spec, static_cast<int>(x.size()), flag, zorAlgHintNone), zorStatusOk);
  Numbers<T> out(x.size());
  const auto* src = reinterpret_cast<const typename E::Complex*>(x.data());
  auto* dst = reinterpret_cast<typename E::Complex*>(out.data());
  EXPECT_EQ((way == Way::forward ? E::forward : E::inverse)(src, dst, spec, nullptr), zorStatusOk);
  EXPECT_EQ(E::free(spec), zorStatusOk);
  return out;
}
template <class T> Numbers<T> conjugated(Numbers<T> x) {
  for (auto& v : x) v = conj(v);
  return x;
}
template <class T> void expectEqual(const Numbers<T>& found, const Numbers<T>& wanted, const std::string& what) {
  for (std::size_t k = 0; k < wanted.size(); ++k)
    ASSERT_TRUE(found[k].re == wanted[k].re && found[k].im == wanted[k].im)
        << what << ", term " << k << ": " << found[k].re << " + i " << found[k].im << ", wanted " << wanted[k].re
        << " + i " << wanted[k].im;
}
template <class T> Numbers<T> randomNumbers(std::size_t n, Random& random) {
  const auto values = signal<typename Exports<T>::Complex>(n, random);
  Numbers<T> x;
  for (const auto& v : values) x.push_back({v.re, v.im});
  return x;
}

struct Chain {
  std::size_t n;
  std::vector<std::size_t> factors;
};
const Chain chains[] = {{18, {3, 6}},           {20, {5, 4}},
                        {24, {3, 8}},           {34, {17, 2}},
                        {36, {3, 3, 4}},        {48, {3, 16}},
                        {51, {3, 17}},          {54, {3, 3, 6}},
                        {60, {5, 3, 4}},        {68, {17, 4}},
                        {77, {7, 11}},          {91, {7, 13}},
                        {119, {7, 17}},         {120, {5, 3, 8}},
                        {212, {53, 4}},         {240, {5, 3, 16}},
                        {289, {17, 17}},        {480, {5, 4, 3, 8}},
                        {596, {149, 4}},        {1001, {7, 11, 13}},
                        {2002, {13, 7, 11, 2}}, {4800, {5, 4, 3, 5, 16}}};

template <class T> void checkChains() {
  Random random(41);
  for (const auto& [n, factors] : chains) {
    const auto x = randomNumbers<T>(n, random);
    const auto wanted = chain(x, factors, n);
    expectEqual(transformed(x, Way::forward), wanted, std::to_string(n) + " points");
    expectEqual(transformed(conjugated(x), Way::inverse), conjugated(wanted), std::to_string(n) + " points, inverse");
    auto scaled = wanted;
    for (auto& v : scaled) v = (1 / static_cast<T>(n)) * v;
    expectEqual(transformed(x, Way::forward, ZOR_FFT_DIVIDE_FORWARD), scaled, std::to_string(n) + " points, scaled");
  }
}
TEST(DFTBits, ChainsRoundAsTheirButterfliesSay) {
  checkChains<Zor32f>();
  checkChains<Zor64f>();
}
template <class T> void checkDirect() {
  Random random(42);
  for (std::size_t n : std::initializer_list<std::size_t>{17, 19, 23, 29, 31, 37, 41, 43, 47}) {
    const auto x = randomNumbers<T>(n, random);
    const auto wanted = generic(x, n);
    expectEqual(transformed(x, Way::forward), wanted, std::to_string(n) + " points");
    expectEqual(transformed(conjugated(x), Way::inverse), conjugated(wanted), std::to_string(n) + " points, inverse");
  }
}
TEST(DFTBits, DirectSumsRunInTwoUnfusedSums) {
  checkDirect<Zor32f>();
  checkDirect<Zor64f>();
}

template <class T> Number<T> product(Number<T> a, Number<T> b) {
  return {std::fma(b.re, a.re, -(b.im * a.im)), std::fma(b.re, a.im, b.im * a.re)};
}
template <class T> void checkChirps() {
  Random random(43);
  const std::pair<std::size_t, std::size_t> lengths[] = {{53, 128},    {67, 144},    {73, 160},   {83, 192},
                                                         {97, 200},    {101, 256},   {604, 1280}, {606, 1280},
                                                         {1009, 2048}, {4099, 16384}};
  for (const auto& [n, length] : lengths) {
    Numbers<T> chirp(n), spectrum(length), t(length);
    const auto x = randomNumbers<T>(n, random);
    for (std::size_t i = 0; i < n; ++i) {
      chirp[i] = root<T>(i * i % (2 * n), 2 * n);
      spectrum[i] = spectrum[(length - i) % length] = conj(chirp[i]);
      t[i] = product(chirp[i], x[i]);
    }
    spectrum = transformed(spectrum, Way::forward);
    t = transformed(t, Way::forward);
    for (std::size_t i = 0; i < length; ++i) t[i] = product((1 / static_cast<T>(length)) * spectrum[i], t[i]);
    t = transformed(t, Way::inverse);
    Numbers<T> wanted(n), reversed(n);
    for (std::size_t i = 0; i < n; ++i) wanted[i] = reversed[(n - i) % n] = product(chirp[i], t[i]);
    expectEqual(transformed(x, Way::forward), wanted, std::to_string(n) + " points");
    expectEqual(transformed(x, Way::inverse), reversed, std::to_string(n) + " points, inverse");
  }
}
TEST(DFTBits, ChirpsAreConvolutionsOfTheStatedLength) {
  checkChirps<Zor32f>();
  checkChirps<Zor64f>();
}

// Even real lengths: the transform of pairs, parted.
template <class T> void checkRealEven() {
  using E = Exports<T>;
  Random random(44);
  for (std::size_t n :
       std::initializer_list<std::size_t>{18, 20, 22, 24, 30, 34, 36, 50, 54, 100, 106, 212, 250, 1000}) {
    const std::size_t half = n / 2;
    const auto z = randomNumbers<T>(half, random);
    typename E::RealSpec* spec = nullptr;
    ASSERT_EQ(E::initReal(&spec, static_cast<int>(n), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone), zorStatusOk);
    auto wanted = transformed(z, Way::forward);
    const auto first = wanted[0];
    wanted[0] = {first.re + first.im, first.re - first.im};
    for (std::size_t k = 1; 2 * k < half; ++k) {
      const auto p = wanted[k], q = conj(wanted[half - k]), d = p - q, w = root<T>(k, n);
      const T c = T(0.5) * w.re, s = static_cast<T>(0.5 + 0.5 * static_cast<double>(w.im));
      const Number<T> u = {std::fma(s, d.re, c * d.im), std::fma(s, d.im, -c * d.re)};
      wanted[k] = q + u;
      wanted[half - k] = conj(p - u);
    }
    if (half % 2 == 0) wanted[half / 2].im = -wanted[half / 2].im;
    Numbers<T> out(half), back(half);
    ASSERT_EQ(E::toPerm(&z[0].re, &out[0].re, spec, nullptr), zorStatusOk);
    expectEqual(out, wanted, std::to_string(n) + " values");

    auto pairs = z;
    pairs[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    for (std::size_t k = 1; 2 * k < half; ++k) {
      const auto p = z[k], q = conj(z[half - k]), u = p + q, d = p - q, w = root<T>(k, n);
      const Number<T> t = {std::fma(w.im, d.re, -(w.re * d.im)), std::fma(w.im, d.im, w.re * d.re)};
      pairs[k] = u + t;
      pairs[half - k] = conj(u - t);
    }
    if (half % 2 == 0) pairs[half / 2] = {2 * z[half / 2].re, -2 * z[half / 2].im};
    ASSERT_EQ(E::fromPerm(&z[0].re, &back[0].re, spec, nullptr), zorStatusOk);
    expectEqual(back, transformed(pairs, Way::inverse), std::to_string(n) + " values, inverse");
    E::freeReal(spec);
  }
}
TEST(DFTBits, EvenRealLengthsPartTheTransformOfPairs) {
  checkRealEven<Zor32f>();
  checkRealEven<Zor64f>();
}

// Out of order: butterflies of the last factor across the parts, turned but for parts of one point, then each part by
// the factors before it; and the way back.
template <class T>
Numbers<T> parted(const Numbers<T>& x, const std::vector<std::size_t>& factors, std::size_t at, bool join) {
  const std::size_t n = x.size(), radix = factors[at], rest = n / radix;
  std::size_t all = 1;
  for (const std::size_t f : factors) all *= f;
  std::vector<Numbers<T>> part(radix, Numbers<T>(rest));
  for (std::size_t q = 0; q < radix; ++q) std::copy_n(x.begin() + std::ptrdiff_t(q * rest), rest, part[q].begin());
  const auto deeper = [&] {
    for (auto& p : part)
      if (rest > 1) p = parted(p, factors, at - 1, join);
  };
  const auto turn = [&](std::size_t q, std::size_t k, Number<T> v) {
    return q == 0 || rest == 1 ? v : turned(root<T>(q * k * (all / n), all), v);
  };
  if (join) deeper();
  for (std::size_t k = 0; k < rest; ++k) {
    Numbers<T> across;
    for (std::size_t q = 0; q < radix; ++q) across.push_back(join ? turn(q, k, part[q][k]) : part[q][k]);
    across = butterfly(across, all);
    for (std::size_t q = 0; q < radix; ++q) part[q][k] = join ? across[q] : turn(q, k, across[q]);
  }
  if (!join) deeper();
  Numbers<T> out;
  for (const auto& p : part) out.insert(out.end(), p.begin(), p.end());
  return out;
}
template <class T> void checkOutOfOrder() {
  using E = Exports<T>;
  using C = typename E::Complex;
  Random random(45);
  for (const auto& [n, factors] : {Chain{2000, {4, 4, 5, 5, 5}}, Chain{2001, {3, 23, 29}}, Chain{2002, {2, 7, 11, 13}},
                                   Chain{2016, {2, 4, 4, 3, 3, 7}}, Chain{2100, {4, 3, 5, 5, 7}},
                                   Chain{2184, {2, 4, 3, 7, 13}}, Chain{9600, {2, 4, 4, 4, 3, 5, 5}}}) {
    const auto x = randomNumbers<T>(n, random);
    typename E::OutOfOrder* spec = nullptr;
    ASSERT_EQ(E::initOutOfOrder(&spec, static_cast<int>(n), ZOR_FFT_DIVIDE_NONE, zorAlgHintNone), zorStatusOk);
    Numbers<T> out(n);
    const auto* const src = reinterpret_cast<const C*>(x.data());
    ASSERT_EQ(E::toDigits(src, reinterpret_cast<C*>(out.data()), spec, nullptr), zorStatusOk);
    expectEqual(out, parted(x, factors, factors.size() - 1, false), std::to_string(n) + " points");
    ASSERT_EQ(E::fromDigits(src, reinterpret_cast<C*>(out.data()), spec, nullptr), zorStatusOk);
    expectEqual(out, conjugated(parted(conjugated(x), factors, factors.size() - 1, true)),
                std::to_string(n) + " points, inverse");
    E::freeOutOfOrder(spec);
  }
}
TEST(DFTBits, OutOfOrderPassesTurnBetweenTheirButterflies) {
  checkOutOfOrder<Zor32f>();
  checkOutOfOrder<Zor64f>();
}

template <class T> void checkImpulse() {
  for (std::size_t n : std::initializer_list<std::size_t>{17, 18, 34, 47, 51, 60, 91, 120, 289, 480, 1001}) {
    Numbers<T> x(n);
    x[0] = {T(0.3), T(-0.7)};
    for (const auto& y : transformed(x, Way::forward)) {
      ASSERT_EQ(y.re, x[0].re) << n;
      ASSERT_EQ(y.im, x[0].im) << n;
    }
  }
}
TEST(DFTBits, AnImpulseAtZeroIsExactByChainAndByDirectSum) {
  checkImpulse<Zor32f>();
  checkImpulse<Zor64f>();
}
TEST(DFTBits, NanAndInfinityInTheFirstPlaceReachEveryTerm) {
  for (std::size_t n : std::initializer_list<std::size_t>{3, 12, 15, 17, 18, 34, 51, 53, 60, 120, 480})
    for (float bad : {NAN, INFINITY}) {
      Random random(n);
      auto x = randomNumbers<Zor32f>(n, random);
      x[0] = {bad, bad};
      for (const auto& y : transformed(x, Way::forward)) {
        ASSERT_FALSE(std::isfinite(y.re)) << n;
        ASSERT_FALSE(std::isfinite(y.im)) << n;
      }
    }
}

}  // namespace
