// Transforms of any length against their definition, in every form and place; specifications and their sizes.
#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"

namespace {

using namespace kit;

// One transform of a kind: x is what the forward transform takes (a whole spectrum for the inverse).
using Run = std::function<Points(const Points& x, int flag, const Setting&)>;

template <class C> Guarded<C> toArray(const Points& x, const Setting& at) {
  Guarded<C> out(x.size(), at.edge, at.offset);
  using T = decltype(C::re);
  for (std::size_t i = 0; i < x.size(); ++i) out[i] = {static_cast<T>(x[i].real()), static_cast<T>(x[i].imag())};
  return out;
}
// Calls f(work) with a buffer of exactly the size that the specification names, or null.
template <class S, class GetBufSize, class F>
void withBuffer(const S* spec, GetBufSize getBufSize, const Setting& at, Zor32s largest, F f) {
  Zor32s size = -1;
  ASSERT_EQ(getBufSize(spec, &size), zorStatusOk);
  ASSERT_LE(size, largest);
  ASSERT_GE(size, 0);
  if (at.buffer == Buffer::null) return f(static_cast<Zor8u*>(nullptr));
  const Guarded<Zor8u> work(static_cast<std::size_t>(size), at.edge, at.offset % 3);
  f(work.data());
  ASSERT_TRUE(work.intact());
}

template <class C, class S, class GetSize, class Init, class BufSize>
Run interleaved(GetSize getSize, Init init, BufSize bufSize, ZorStatus (*f)(const C*, C*, const S*, Zor8u*)) {
  return [=](const Points& x, int flag, const Setting& at) {
    const Built<S, GetSize, Init> built(getSize, init, static_cast<int>(x.size()), flag, at.edge);
    EXPECT_EQ(built.status, zorStatusOk);
    const auto src = toArray<C>(x, at);
    const Guarded<C> apart(x.size(), at.edge, at.offset);
    const auto& dst = at.place == Place::same ? src : apart;
    withBuffer(built.spec(), bufSize, at, built.largestWork,
               [&](Zor8u* work) { EXPECT_EQ(f(src.data(), dst.data(), built.spec(), work), zorStatusOk); });
    EXPECT_TRUE(src.intact() && dst.intact() && built.intact());
    Points out;
    for (const C& y : dst.span()) out.emplace_back(static_cast<long double>(y.re), static_cast<long double>(y.im));
    return out;
  };
}
template <class T, class S, class GetSize, class Init, class BufSize>
Run split(GetSize getSize, Init init, BufSize bufSize, ZorStatus (*f)(const T*, const T*, T*, T*, const S*, Zor8u*)) {
  return [=](const Points& x, int flag, const Setting& at) {
    const Built<S, GetSize, Init> built(getSize, init, static_cast<int>(x.size()), flag, at.edge);
    EXPECT_EQ(built.status, zorStatusOk);
    const Guarded<T> re(x.size(), at.edge, at.offset), im(x.size(), at.edge, at.offset / 2), re2(x.size(), at.edge),
        im2(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
      re[i] = static_cast<T>(x[i].real());
      im[i] = static_cast<T>(x[i].imag());
    }
    const auto &outRe = at.place == Place::same ? re : re2, &outIm = at.place == Place::same ? im : im2;
    withBuffer(built.spec(), bufSize, at, built.largestWork, [&](Zor8u* work) {
      EXPECT_EQ(f(re.data(), im.data(), outRe.data(), outIm.data(), built.spec(), work), zorStatusOk);
    });
    EXPECT_TRUE(outRe.intact() && outIm.intact() && built.intact());
    Points out;
    for (std::size_t i = 0; i < x.size(); ++i)
      out.emplace_back(static_cast<long double>(outRe[i]), static_cast<long double>(outIm[i]));
    return out;
  };
}

// Packed spectra.
enum class Format { pack, perm, ccs };
std::size_t valuesOf(Format format, std::size_t n) { return format != Format::ccs ? n : n % 2 == 0 ? n + 2 : n + 1; }
// Places of the parts of term k: -1 where it is an implied zero.
std::pair<long, long> placeOf(Format format, long k, long n) {
  if (format == Format::ccs) return {2 * k, 2 * k + 1};
  if (k == 0) return {0, -1};
  if (2 * k == n) return {format == Format::perm ? 1 : n - 1, -1};
  const long first = format == Format::perm && n % 2 == 0 ? 2 * k : 2 * k - 1;
  return {first, first + 1};
}
template <class T, class S, class GetSize, class Init, class BufSize>
Run toSpectrum(GetSize getSize, Init init, BufSize bufSize, Format format,
               ZorStatus (*f)(const T*, T*, const S*, Zor8u*)) {
  return [=](const Points& x, int flag, const Setting& at) {
    const std::size_t n = x.size(), values = valuesOf(format, n);
    const Built<S, GetSize, Init> built(getSize, init, static_cast<int>(n), flag, at.edge);
    EXPECT_EQ(built.status, zorStatusOk);
    const Guarded<T> src(at.place == Place::same ? values : n, at.edge, at.offset), apart(values, at.edge, at.offset);
    for (std::size_t i = 0; i < n; ++i) src[i] = static_cast<T>(x[i].real());
    const auto& dst = at.place == Place::same ? src : apart;
    withBuffer(built.spec(), bufSize, at, built.largestWork,
               [&](Zor8u* work) { EXPECT_EQ(f(src.data(), dst.data(), built.spec(), work), zorStatusOk); });
    EXPECT_TRUE(src.intact() && dst.intact() && built.intact());
    Points out(n);
    for (std::size_t k = 0; k <= n / 2; ++k) {
      const auto [re, im] = placeOf(format, static_cast<long>(k), static_cast<long>(n));
      if (im >= 0 && (k == 0 || 2 * k == n)) {
        EXPECT_EQ(dst[std::size_t(im)], 0);
      }
      out[k] = {static_cast<long double>(dst[std::size_t(re)]),
                im < 0 ? 0 : static_cast<long double>(dst[std::size_t(im)])};
      if (k > 0) out[n - k] = std::conj(out[k]);
    }
    return out;
  };
}
template <class T, class S, class GetSize, class Init, class BufSize>
Run fromSpectrum(GetSize getSize, Init init, BufSize bufSize, Format format,
                 ZorStatus (*f)(const T*, T*, const S*, Zor8u*)) {
  return [=](const Points& x, int flag, const Setting& at) {
    const std::size_t n = x.size(), values = valuesOf(format, n);
    const Built<S, GetSize, Init> built(getSize, init, static_cast<int>(n), flag, at.edge);
    EXPECT_EQ(built.status, zorStatusOk);
    const Guarded<T> src(values, at.edge, at.offset), apart(n, at.edge, at.offset);
    for (std::size_t k = 0; k <= n / 2; ++k) {
      const auto [re, im] = placeOf(format, static_cast<long>(k), static_cast<long>(n));
      src[std::size_t(re)] = static_cast<T>(x[k].real());
      const bool zero = k == 0 || 2 * k == n;  // not read: any value does
      if (im >= 0) src[std::size_t(im)] = zero ? std::numeric_limits<T>::quiet_NaN() : static_cast<T>(x[k].imag());
    }
    const auto& dst = at.place == Place::same ? src : apart;
    withBuffer(built.spec(), bufSize, at, built.largestWork,
               [&](Zor8u* work) { EXPECT_EQ(f(src.data(), dst.data(), built.spec(), work), zorStatusOk); });
    EXPECT_TRUE(src.intact() && dst.intact() && built.intact());
    Points out;
    for (std::size_t i = 0; i < n; ++i) out.emplace_back(static_cast<long double>(dst[i]), 0);
    return out;
  };
}

enum class Data { complex, real, spectrum };
struct Member {
  const char* name;
  bool inverse;
  Data data;
  double epsilon;
  Run run;
};
constexpr double single = 0x1p-24, full = 0x1p-53;

const std::vector<Member>& members() {
  static const auto C32 = std::tuple(&zorsDFTGetSize_C_32fc, &zorsDFTInit_C_32fc, &zorsDFTGetBufSize_C_32fc);
  static const auto C64 = std::tuple(&zorsDFTGetSize_C_64fc, &zorsDFTInit_C_64fc, &zorsDFTGetBufSize_C_64fc);
  static const auto P32 = std::tuple(&zorsDFTGetSize_C_32f, &zorsDFTInit_C_32f, &zorsDFTGetBufSize_C_32f);
  static const auto P64 = std::tuple(&zorsDFTGetSize_C_64f, &zorsDFTInit_C_64f, &zorsDFTGetBufSize_C_64f);
  static const auto R32 = std::tuple(&zorsDFTGetSize_R_32f, &zorsDFTInit_R_32f, &zorsDFTGetBufSize_R_32f);
  static const auto R64 = std::tuple(&zorsDFTGetSize_R_64f, &zorsDFTInit_R_64f, &zorsDFTGetBufSize_R_64f);
  const auto c = [](auto kind, auto f) { return std::apply([&](auto... g) { return interleaved(g..., f); }, kind); };
  const auto p = [](auto kind, auto f) { return std::apply([&](auto... g) { return split(g..., f); }, kind); };
  const auto to = [](auto kind, Format format, auto f) {
    return std::apply([&](auto... g) { return toSpectrum(g..., format, f); }, kind);
  };
  const auto from = [](auto kind, Format format, auto f) {
    return std::apply([&](auto... g) { return fromSpectrum(g..., format, f); }, kind);
  };
  using enum Format;
  static const std::vector<Member> all = {
      {"zorsDFTFwd_CToC_32fc", false, Data::complex, single, c(C32, zorsDFTFwd_CToC_32fc)},
      {"zorsDFTInv_CToC_32fc", true, Data::complex, single, c(C32, zorsDFTInv_CToC_32fc)},
      {"zorsDFTFwd_CToC_64fc", false, Data::complex, full, c(C64, zorsDFTFwd_CToC_64fc)},
      {"zorsDFTInv_CToC_64fc", true, Data::complex, full, c(C64, zorsDFTInv_CToC_64fc)},
      {"zorsDFTFwd_CToC_32f", false, Data::complex, single, p(P32, zorsDFTFwd_CToC_32f)},
      {"zorsDFTInv_CToC_32f", true, Data::complex, single, p(P32, zorsDFTInv_CToC_32f)},
      {"zorsDFTFwd_CToC_64f", false, Data::complex, full, p(P64, zorsDFTFwd_CToC_64f)},
      {"zorsDFTInv_CToC_64f", true, Data::complex, full, p(P64, zorsDFTInv_CToC_64f)},
      {"zorsDFTFwd_RToPack_32f", false, Data::real, single, to(R32, pack, zorsDFTFwd_RToPack_32f)},
      {"zorsDFTFwd_RToPerm_32f", false, Data::real, single, to(R32, perm, zorsDFTFwd_RToPerm_32f)},
      {"zorsDFTFwd_RToCCS_32f", false, Data::real, single, to(R32, ccs, zorsDFTFwd_RToCCS_32f)},
      {"zorsDFTFwd_RToPack_64f", false, Data::real, full, to(R64, pack, zorsDFTFwd_RToPack_64f)},
      {"zorsDFTFwd_RToPerm_64f", false, Data::real, full, to(R64, perm, zorsDFTFwd_RToPerm_64f)},
      {"zorsDFTFwd_RToCCS_64f", false, Data::real, full, to(R64, ccs, zorsDFTFwd_RToCCS_64f)},
      {"zorsDFTInv_PackToR_32f", true, Data::spectrum, single, from(R32, pack, zorsDFTInv_PackToR_32f)},
      {"zorsDFTInv_PermToR_32f", true, Data::spectrum, single, from(R32, perm, zorsDFTInv_PermToR_32f)},
      {"zorsDFTInv_CCSToR_32f", true, Data::spectrum, single, from(R32, ccs, zorsDFTInv_CCSToR_32f)},
      {"zorsDFTInv_PackToR_64f", true, Data::spectrum, full, from(R64, pack, zorsDFTInv_PackToR_64f)},
      {"zorsDFTInv_PermToR_64f", true, Data::spectrum, full, from(R64, perm, zorsDFTInv_PermToR_64f)},
      {"zorsDFTInv_CCSToR_64f", true, Data::spectrum, full, from(R64, ccs, zorsDFTInv_CCSToR_64f)}};
  return all;
}

Points dataOf(Data data, std::size_t n, Random& random) {
  const auto values = signal<Zor32fc>(n, random);  // exact in both precisions
  Points x(n);
  for (std::size_t i = 0; i < n; ++i) {
    x[i] = {static_cast<long double>(values[i].re), data == Data::real ? 0 : static_cast<long double>(values[i].im)};
    if (data == Data::spectrum && (i == 0 || 2 * i == n)) x[i] = x[i].real();
    if (data == Data::spectrum && 2 * i > n) x[i] = std::conj(x[n - i]);
  }
  return x;
}
long double scaleOf(int flag, bool inverse, std::size_t n) {
  const auto len = static_cast<long double>(n);
  if (flag == ZOR_FFT_DIVIDE_BOTH_ROOT) return 1 / std::sqrt(len);
  return flag == (inverse ? ZOR_FFT_DIVIDE_INVERSE : ZOR_FFT_DIVIDE_FORWARD) ? 1 / len : 1;
}
bool sameBits(const Points& a, const Points& b) {
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i]) return false;
  return true;
}

std::vector<std::size_t> someLengths() {
  std::vector<std::size_t> lengths;
  for (std::size_t n = 1; n <= 130; ++n) lengths.push_back(n);
  for (std::size_t n : std::initializer_list<std::size_t>{144, 150, 160, 200, 212, 240, 255, 256, 300, 343, 480, 596, 604, 606, 1000, 1001, 1009, 1152})
    lengths.push_back(n);
  return lengths;
}

TEST(DFT, EveryLengthFormPlaceAndBufferGivesTheDefinition) {
  Random random(31);
  const int flags[] = {ZOR_FFT_DIVIDE_NONE, ZOR_FFT_DIVIDE_FORWARD, ZOR_FFT_DIVIDE_INVERSE, ZOR_FFT_DIVIDE_BOTH_ROOT};
  for (std::size_t n : someLengths()) {
    Points wanted[3][2];
    for (const auto& member : members()) {
      Random same(n);
      const Points x = dataOf(member.data, n, same);
      auto& model = wanted[static_cast<int>(member.data)][member.inverse];
      if (model.empty()) model = dftModel(x, member.inverse);
      const int flag = flags[random() % 4];
      const long double scale = scaleOf(flag, member.inverse, n);
      Points first;
      for (int variant = 0; variant < 4; ++variant) {
        const Setting at = {.edge = variant % 2 == 0 ? Edge::end : Edge::begin,
                            .offset = variant == 0 ? 0 : random() % 64,
                            .buffer = variant == 2 ? Buffer::null : Buffer::exact,
                            .place = variant == 1 || variant == 2 ? Place::same : Place::apart};
        const Points y = member.run(x, flag, at);
        if (variant > 0) {
          ASSERT_TRUE(sameBits(y, first)) << member.name << ", " << n << " points, variant " << variant;
          continue;
        }
        first = y;
        long double errors = 0, squares = 0;
        for (std::size_t k = 0; k < n; ++k) {
          errors += std::norm(y[k] - model[k] * scale);
          squares += std::norm(model[k] * scale);
        }
        const long double bound = member.epsilon * (3 + 2 * std::log2(static_cast<long double>(n + 1)));
        ASSERT_LE(std::sqrt(errors), bound * std::sqrt(squares))
            << member.name << ", " << n << " points, flag " << flag;
      }
    }
  }
}

}  // namespace
