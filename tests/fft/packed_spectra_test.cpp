// Products of packed spectra against the stated formula: all lengths, edges, places and aliases.
#include <cmath>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "zors/fft.h"

namespace {

enum class Format { pack, perm };

template <class T> using Pair = std::pair<T, T>;
template <class T> Pair<T> product(Pair<T> a, Pair<T> b) {
  const T re = a.second * b.second, im = a.second * b.first;
  return {std::fma(a.first, b.first, -re), std::fma(b.second, a.first, im)};
}
template <class T> Pair<T> productWithConjugate(Pair<T> s, Pair<T> d) {
  const T re = s.second * d.second, im = s.first * d.second;
  return {std::fma(d.first, s.first, re), std::fma(d.first, s.second, -im)};
}

template <class T, class Op>
std::vector<T> model(Format format, const std::vector<T>& a, const std::vector<T>& b, Op op) {
  const std::size_t n = a.size();
  std::vector<T> out(n);
  std::vector<bool> real(n, false);
  real[0] = true;
  if (n % 2 == 0) real[format == Format::perm ? 1 : n - 1] = true;
  for (std::size_t i = 0; i < n;) {
    if (real[i]) {
      out[i] = a[i] * b[i];
      ++i;
    } else {
      const auto z = op(Pair<T>{a[i], a[i + 1]}, Pair<T>{b[i], b[i + 1]});
      out[i] = z.first, out[i + 1] = z.second;
      i += 2;
    }
  }
  return out;
}

template <class T, class Call>
void inPlace(const char* name, Format format, Call call, Pair<T> (*op)(Pair<T>, Pair<T>)) {
  kit::Random random(2);
  for (int len : kit::sweepLengths())
    for (kit::Edge edge : kit::bothEdges)
      for (std::size_t off = 0; off < (len > 40 && len < 50 ? 8 : 2); ++off) {
        const auto n = static_cast<std::size_t>(len);
        const auto a = kit::anyValues<T>(n, random), b = kit::anyValues<T>(n, random);
        const kit::Guarded<T> src(a, edge, off * sizeof(T)), srcDst(b, edge, off * sizeof(T));
        ASSERT_EQ(call(src.data(), srcDst.data(), len), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<T>(srcDst.span(), model(format, a, b, op)), "")
            << name << " len " << len << " off " << off;
        ASSERT_EQ(kit::firstDifference<T>(src.span(), a), "") << name << ": the source changed";
        ASSERT_TRUE(srcDst.intact()) << name << " len " << len << ": wrote outside";
      }
}
template <class T, class Call> void outOfPlace(const char* name, Format format, Call call) {
  inPlace<T>(
      name, format, [call](const T* src, T* srcDst, Zor32s len) { return call(src, srcDst, srcDst, len); }, product<T>);
  kit::Random random(3);
  for (int len : kit::sweepLengths()) {
    const auto n = static_cast<std::size_t>(len);
    const auto a = kit::anyValues<T>(n, random), b = kit::anyValues<T>(n, random);
    const kit::Guarded<T> src1(a, kit::Edge::end), src2(b, kit::Edge::end, sizeof(T)), dst(n, kit::Edge::begin);
    ASSERT_EQ(call(src1.data(), src2.data(), dst.data(), len), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(dst.span(), model(format, a, b, product<T>)), "") << name << " len " << len;
    ASSERT_TRUE(dst.intact()) << name << " len " << len << ": wrote outside";
    // The operand that is overwritten counts as the second one.
    ASSERT_EQ(call(src1.data(), src2.data(), src1.data(), len), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(src1.span(), model(format, b, a, product<T>)), "")
        << name << ", the first operand overwritten, len " << len;
    ASSERT_EQ(call(src2.data(), src2.data(), src2.data(), len), zorStatusOk);
    ASSERT_EQ(kit::firstDifference<T>(src2.span(), model(format, b, b, product<T>)), "")
        << name << ", squared in place, len " << len;
  }
}

TEST(PackedSpectra, ProductsAreThoseOfTheFormula) {
  outOfPlace<Zor32f>("zorsMulPack_32f", Format::pack, zorsMulPack_32f);
  outOfPlace<Zor64f>("zorsMulPack_64f", Format::pack, zorsMulPack_64f);
  outOfPlace<Zor32f>("zorsMulPerm_32f", Format::perm, zorsMulPerm_32f);
  outOfPlace<Zor64f>("zorsMulPerm_64f", Format::perm, zorsMulPerm_64f);
  inPlace<Zor32f>("zorsMulPack_32f_I", Format::pack, zorsMulPack_32f_I, product);
  inPlace<Zor64f>("zorsMulPack_64f_I", Format::pack, zorsMulPack_64f_I, product);
  inPlace<Zor32f>("zorsMulPerm_32f_I", Format::perm, zorsMulPerm_32f_I, product);
  inPlace<Zor64f>("zorsMulPerm_64f_I", Format::perm, zorsMulPerm_64f_I, product);
}

TEST(PackedSpectra, TheOverwrittenOperandIsConjugated) {
  inPlace<Zor32f>("zorsMulPackConj_32f_I", Format::pack, zorsMulPackConj_32f_I, productWithConjugate);
  inPlace<Zor64f>("zorsMulPackConj_64f_I", Format::pack, zorsMulPackConj_64f_I, productWithConjugate);
}

TEST(PackedSpectra, ASpectrumTimesItsOwnConjugateIsThePowerWithZeroImaginaryParts) {
  kit::Random random(4);
  const auto spectrum = kit::signal<Zor32f>(64, random);
  auto power = spectrum;
  ASSERT_EQ(zorsMulPackConj_32f_I(spectrum.data(), power.data(), 64), zorStatusOk);
  for (std::size_t i = 1; i < 63; i += 2) {
    EXPECT_EQ(power[i], std::fma(spectrum[i], spectrum[i], spectrum[i + 1] * spectrum[i + 1]));
    EXPECT_NEAR(power[i + 1], 0, 1e-7);
  }
}

TEST(PackedSpectra, PermOfOneAndTwoValuesIsAllReal) {
  const Zor32f a[] = {3, 5}, b[] = {-2, 7};
  Zor32f dst[] = {0, 0};
  ASSERT_EQ(zorsMulPerm_32f(a, b, dst, 1), zorStatusOk);
  EXPECT_EQ(dst[0], -6);
  EXPECT_EQ(dst[1], 0);
  ASSERT_EQ(zorsMulPerm_32f(a, b, dst, 2), zorStatusOk);
  EXPECT_EQ(dst[1], 35);
}

// 16-bit terms: exact products, pairs by the scale rule, real terms cut when scaled down.
Zor16s saturated(__int128 t) { return Zor16s(t > 32767 ? 32767 : t < -32768 ? -32768 : t); }
Zor16s cutProduct(Zor16s a, Zor16s b, int s) {
  const __int128 product = __int128{a} * b;
  if (s >= 0) return saturated(product >> std::min(s, 100));
  return saturated(__int128{saturated(product)} * (__int128{1} << std::min(-std::max(s, -60), 60)));
}
Zor16s roundedTerm(__int128 t, int s) {
  if (s <= 0) return saturated(t * (__int128{1} << std::min(-std::max(s, -60), 60)));
  if (s > 60) return 0;
  const __int128 quotient = t >> s, twice = (t - (quotient << s)) * 2, one = __int128{1} << s;
  return saturated(quotient + (twice > one || (twice == one && quotient % 2 != 0)));
}
TEST(PackedSpectra, SixteenBitProducts) {
  struct Member {
    const char* name;
    Format format;
    decltype(&zorsMulPack_16s_Sfs) three;
    decltype(&zorsMulPack_16s_ISfs) two;
  };
  kit::Random random(6);
  for (const Member& member :
       {Member{"zorsMulPack_16s_Sfs, zorsMulPack_16s_ISfs", Format::pack, zorsMulPack_16s_Sfs, zorsMulPack_16s_ISfs},
        Member{"zorsMulPerm_16s_Sfs, zorsMulPerm_16s_ISfs", Format::perm, zorsMulPerm_16s_Sfs, zorsMulPerm_16s_ISfs}})
    for (int scale : {0, 1, 7, 15, 31, 32, 100, INT32_MAX, -1, -5, -15, -16, -17, -40, INT32_MIN})
      for (int len : kit::sweepLengths()) {
        const auto n = static_cast<std::size_t>(len);
        auto a = kit::anyValues<Zor16s>(n, random), b = kit::anyValues<Zor16s>(n, random);
        if (len % 3 == 0) std::fill(a.begin(), a.end(), Zor16s(-32768)), b = a;
        std::vector<Zor16s> wanted(n);
        for (std::size_t i = 0; i < n; ++i) wanted[i] = cutProduct(a[i], b[i], scale);
        const std::size_t start = member.format == Format::perm && len % 2 == 0 ? 2 : 1;
        for (std::size_t k = 0; k < (n - 1) / 2; ++k) {
          const std::size_t re = start + 2 * k, im = re + 1;
          wanted[re] = roundedTerm(__int128{a[re]} * b[re] - __int128{a[im]} * b[im], scale);
          wanted[im] = roundedTerm(__int128{a[re]} * b[im] + __int128{a[im]} * b[re], scale);
        }
        const kit::Guarded<Zor16s> src1(a, kit::Edge::end), src2(b, kit::Edge::begin), dst(n, kit::Edge::end);
        ASSERT_EQ(member.three(src1.data(), src2.data(), dst.data(), len, scale), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor16s>(dst.span(), wanted), "")
            << member.name << " len " << len << " scale " << scale;
        ASSERT_EQ(member.two(src1.data(), src2.data(), len, scale), zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor16s>(src2.span(), wanted), "")
            << member.name << " len " << len << " in place";
        ASSERT_EQ(member.three(src1.data(), dst.data(), src1.data(), 1, scale),
                  zorStatusOk);  // the first one overwritten
        ASSERT_EQ(src1.data()[0], cutProduct(a[0], wanted[0], scale));
        ASSERT_TRUE(dst.intact() && src2.intact()) << member.name << " len " << len << ": wrote outside";
      }
}
TEST(PackedSpectra, SixteenBitProductsCheckPointersThenLength) {
  const std::vector<Zor16s> a(8, 1), b(8, 2);
  std::vector<Zor16s> dst(8, 3);
  for (auto three : {zorsMulPack_16s_Sfs, zorsMulPerm_16s_Sfs})
    kit::Contract(three, a.data(), b.data(), dst.data(), 8, 0)
        .null<0>()
        .null<1>()
        .null<2>()
        .bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(dst)
        .verify("zorsMulPack_16s_Sfs, zorsMulPerm_16s_Sfs");
  for (auto two : {zorsMulPack_16s_ISfs, zorsMulPerm_16s_ISfs})
    kit::Contract(two, a.data(), dst.data(), 8, 0)
        .null<0>()
        .null<1>()
        .bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
        .untouched(dst)
        .verify("zorsMulPack_16s_ISfs, zorsMulPerm_16s_ISfs");
}

template <class T> void contracts(ZorStatus (*three)(const T*, const T*, T*, Zor32s), const char* name) {
  const std::vector<T> a(8, T(1)), b(8, T(2));
  std::vector<T> dst(8, T(3));
  kit::Contract(three, a.data(), b.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}
template <class T> void contracts(ZorStatus (*two)(const T*, T*, Zor32s), const char* name) {
  const std::vector<T> a(8, T(1));
  std::vector<T> dst(8, T(3));
  kit::Contract(two, a.data(), dst.data(), 8)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

TEST(PackedSpectra, ChecksPointersThenLength) {
  contracts(zorsMulPack_32f, "zorsMulPack_32f"), contracts(zorsMulPack_64f, "zorsMulPack_64f");
  contracts(zorsMulPerm_32f, "zorsMulPerm_32f"), contracts(zorsMulPerm_64f, "zorsMulPerm_64f");
  contracts(zorsMulPack_32f_I, "zorsMulPack_32f_I"), contracts(zorsMulPack_64f_I, "zorsMulPack_64f_I");
  contracts(zorsMulPerm_32f_I, "zorsMulPerm_32f_I"), contracts(zorsMulPerm_64f_I, "zorsMulPerm_64f_I");
  contracts(zorsMulPackConj_32f_I, "zorsMulPackConj_32f_I"), contracts(zorsMulPackConj_64f_I, "zorsMulPackConj_64f_I");
}

}  // namespace
