// Full spectra from packed ones, against the definition.
#include "kit/contract.h"
#include "kit/elementwise.h"
#include "zors/fft.h"

namespace {

enum class Format { pack, perm, ccs };

template <class T> T negated(T x) {
  if constexpr (std::is_integral_v<T>)
    return x == INT16_MIN ? INT16_MAX : static_cast<T>(-x);
  else
    return -x;
}

template <class T, class Pair> std::vector<Pair> model(Format format, const std::vector<T>& packed, std::size_t len) {
  std::vector<Pair> out(len);
  const bool even = len % 2 == 0;
  for (std::size_t k = 0; k <= len / 2; ++k) {
    const bool real = k == 0 || 2 * k == len;
    Pair z{};
    if (format == Format::ccs)
      z = {packed[2 * k], packed[2 * k + 1]};
    else if (k == 0)
      z = {packed[0], 0};
    else if (real)
      z = {packed[format == Format::perm ? 1 : len - 1], 0};
    else if (format == Format::perm && even)
      z = {packed[2 * k], packed[2 * k + 1]};
    else
      z = {packed[2 * k - 1], packed[2 * k]};
    out[k] = z;
    if (!real) out[len - k] = {z.re, negated(z.im)};
  }
  return out;
}

template <class T, class Pair>
void expands(const char* name, Format format, ZorStatus (*call)(const T*, Pair*, Zor32s),
             ZorStatus (*inPlace)(Pair*, Zor32s)) {
  kit::Random random(6);
  for (int length : kit::sweepLengths())
    for (std::size_t off = 0; off < 3; ++off) {
      const auto len = static_cast<std::size_t>(length);
      const std::size_t values = format == Format::ccs ? 2 * (len / 2 + 1) : len;
      const auto packed = kit::anyValues<T>(values, random);
      const auto wanted = model<T, Pair>(format, packed, len);
      const kit::Guarded<T> src(packed, kit::Edge::end, off * sizeof(T));
      const kit::Guarded<Pair> dst(len, kit::Edge::end, off * sizeof(T)),
          both(std::max(len, (values + 1) / 2), kit::Edge::begin, off * sizeof(T));
      ASSERT_EQ(call(src.data(), dst.data(), length), zorStatusOk);
      ASSERT_EQ(kit::firstDifference<Pair>(dst.span(), wanted), "") << name << " len " << len << " off " << off;
      for (bool through : {false, true}) {
        std::memcpy(both.data(), packed.data(), values * sizeof(T));
        ASSERT_EQ(
            through ? call(reinterpret_cast<const T*>(both.data()), both.data(), length) : inPlace(both.data(), length),
            zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Pair>(both.span().first(len), wanted), "")
            << name << " in place, len " << len << " off " << off;
      }
      ASSERT_TRUE(dst.intact() && both.intact() && src.intact()) << name << " len " << len << ": wrote outside";
    }
  std::vector<T> src(32, T(1));
  std::vector<Pair> dst(16, Pair{3, 4});
  kit::Contract(call, src.data(), dst.data(), 16)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
  kit::Contract(inPlace, dst.data(), 16)
      .template null<0>()
      .template bad<1>({0, -1, INT32_MIN}, zorStatusBadSize)
      .untouched(dst)
      .verify(name);
}

TEST(ConjugateSpectra, AllTermsFollowFromThePackedOnes) {
  expands<Zor16s, Zor16sc>("zorsConjPack_16sc", Format::pack, zorsConjPack_16sc, zorsConjPack_16sc_I);
  expands<Zor32f, Zor32fc>("zorsConjPack_32fc", Format::pack, zorsConjPack_32fc, zorsConjPack_32fc_I);
  expands<Zor64f, Zor64fc>("zorsConjPack_64fc", Format::pack, zorsConjPack_64fc, zorsConjPack_64fc_I);
  expands<Zor16s, Zor16sc>("zorsConjPerm_16sc", Format::perm, zorsConjPerm_16sc, zorsConjPerm_16sc_I);
  expands<Zor32f, Zor32fc>("zorsConjPerm_32fc", Format::perm, zorsConjPerm_32fc, zorsConjPerm_32fc_I);
  expands<Zor64f, Zor64fc>("zorsConjPerm_64fc", Format::perm, zorsConjPerm_64fc, zorsConjPerm_64fc_I);
  expands<Zor16s, Zor16sc>("zorsConjCcs_16sc", Format::ccs, zorsConjCcs_16sc, zorsConjCcs_16sc_I);
  expands<Zor32f, Zor32fc>("zorsConjCcs_32fc", Format::ccs, zorsConjCcs_32fc, zorsConjCcs_32fc_I);
  expands<Zor64f, Zor64fc>("zorsConjCcs_64fc", Format::ccs, zorsConjCcs_64fc, zorsConjCcs_64fc_I);
}

TEST(ConjugateSpectra, PermOfTwoValuesIsTwoRealTerms) {
  const Zor32f src[] = {3, 5};
  Zor32fc dst[2];
  ASSERT_EQ(zorsConjPerm_32fc(src, dst, 2), zorStatusOk);
  EXPECT_EQ(dst[0].re, 3);
  EXPECT_EQ(dst[0].im, 0);
  EXPECT_EQ(dst[1].re, 5);
  EXPECT_EQ(dst[1].im, 0);
}

}  // namespace
