#include <algorithm>
#include <bit>
#include <cmath>

#include "kit/elementwise.h"
#include "zors/conversion.h"

namespace {

using kit::Nan;
using kit::sweep;
using kit::sweepInPlace;

template <class C> using PartOf = decltype(C::re);

template <class C>
void parts(const char* type, ZorStatus (*real)(const C*, PartOf<C>*, Zor32s),
           ZorStatus (*imag)(const C*, PartOf<C>*, Zor32s)) {
  using R = PartOf<C>;
  sweep<R, C>(
      std::string("zorsReal ") + type, real, [](C z) { return z.re; }, kit::sweepLengths(), Nan::samePayload);
  sweep<R, C>(
      std::string("zorsImag ") + type, imag, [](C z) { return z.im; }, kit::sweepLengths(), Nan::samePayload);
}
TEST(Planes, RealAndImagArePlainMoves) {
  parts<Zor16sc>("zorsReal_16sc, zorsImag_16sc", zorsReal_16sc, zorsImag_16sc);
  parts<Zor32fc>("zorsReal_32fc, zorsImag_32fc", zorsReal_32fc, zorsImag_32fc);
  parts<Zor64fc>("zorsReal_64fc, zorsImag_64fc", zorsReal_64fc, zorsImag_64fc);
}

template <class C, class R>
void splitAndJoin(ZorStatus (*split)(const C*, R*, R*, Zor32s), ZorStatus (*join)(const R*, const R*, C*, Zor32s)) {
  kit::Random random(1);
  for (int len : kit::sweepLengths())
    for (kit::Edge edge : kit::bothEdges) {
      const auto n = std::size_t(len);
      const kit::Guarded<C> src(kit::anyValues<C>(n, random), edge), back(n, edge), onlyRe(n, edge), onlyIm(n, edge);
      const kit::Guarded<R> re(n, edge, sizeof(R)), im(n, edge);
      ASSERT_EQ(split(src.data(), re.data(), im.data(), len), zorStatusOk);
      ASSERT_EQ(join(re.data(), im.data(), back.data(), len), zorStatusOk);
      ASSERT_EQ(join(re.data(), nullptr, onlyRe.data(), len), zorStatusOk);
      ASSERT_EQ(join(nullptr, im.data(), onlyIm.data(), len), zorStatusOk);
      for (std::size_t i = 0; i < n; ++i) {
        ASSERT_TRUE(kit::sameBits(re[i], src[i].re, Nan::samePayload) &&
                    kit::sameBits(im[i], src[i].im, Nan::samePayload))
            << len;
        ASSERT_TRUE(kit::sameBits(back[i], src[i], Nan::samePayload)) << len;
        ASSERT_TRUE(kit::sameBits(onlyRe[i], C{src[i].re, R{}}, Nan::samePayload) &&
                    kit::sameBits(onlyIm[i], C{R{}, src[i].im}, Nan::samePayload))
            << len;
      }
      ASSERT_TRUE(re.intact() && im.intact() && back.intact() && onlyRe.intact() && onlyIm.intact());
    }
  C z[8] = {};
  std::vector<R> a(8), b(8);
  std::vector<C> dst(8);
  kit::Contract(split, z, a.data(), b.data(), 8)
      .template null<0>()
      .template null<1>()
      .template null<2>()
      .template bad<3>({0, -1}, zorStatusBadSize)
      .untouched(a)
      .untouched(b)
      .verify("zorsCplxToReal");
  kit::Contract(join, a.data(), b.data(), dst.data(), 8)
      .template null<2>()
      .template bad<3>({0, -1}, zorStatusBadSize)
      .untouched(dst)
      .verify("zorsRealToCplx");
  EXPECT_EQ(join(nullptr, nullptr, dst.data(), 0), zorStatusNullPointer);  // both missing comes before the length
  EXPECT_EQ(join(nullptr, nullptr, dst.data(), 8), zorStatusNullPointer);
  EXPECT_EQ(join(a.data(), nullptr, dst.data(), 0), zorStatusBadSize);
}
TEST(Planes, CplxToRealAndRealToCplx) {
  splitAndJoin<Zor16sc, Zor16s>(zorsCplxToReal_16sc, zorsRealToCplx_16s);
  splitAndJoin<Zor32fc, Zor32f>(zorsCplxToReal_32fc, zorsRealToCplx_32f);
  splitAndJoin<Zor64fc, Zor64f>(zorsCplxToReal_64fc, zorsRealToCplx_64f);
}

template <class T> T negated(T x) {
  if constexpr (std::is_same_v<T, Zor16s>)
    return x == -32768 ? Zor16s(32767) : Zor16s(-x);
  else
    return std::copysign(x, std::signbit(x) ? T(1) : T(-1));
}
template <class C>
void conjugates(const char* type, ZorStatus (*conj)(const C*, C*, Zor32s), ZorStatus (*conjI)(C*, Zor32s),
                ZorStatus (*flip)(const C*, C*, Zor32s)) {
  const auto model = [](C z) { return C{z.re, negated(z.im)}; };
  sweep<C, C>(type, conj, model, kit::sweepLengths(), Nan::samePayload);
  sweepInPlace<C>(type, conjI, model, kit::sweepLengths(), Nan::samePayload);
  kit::Random random(2);
  for (int len : kit::sweepLengths())
    for (kit::Edge edge : kit::bothEdges) {
      const kit::Guarded<C> src(kit::anyValues<C>(std::size_t(len), random), edge), dst(std::size_t(len), edge);
      ASSERT_EQ(flip(src.data(), dst.data(), len), zorStatusOk);
      for (std::size_t i = 0; i < dst.size(); ++i)
        ASSERT_TRUE(kit::sameBits(dst[i], model(src[dst.size() - 1 - i]), Nan::samePayload)) << type << " " << len;
      ASSERT_TRUE(dst.intact());
    }
  const std::vector<C> src(8);
  std::vector<C> dst(8);
  for (auto function : {conj, flip})
    kit::Contract(function, src.data(), dst.data(), 8)
        .template null<0>()
        .template null<1>()
        .template bad<2>({0, -1}, zorStatusBadSize)
        .untouched(dst)
        .verify(type);
  kit::Contract(conjI, dst.data(), 8)
      .template null<0>()
      .template bad<1>({0, -1}, zorStatusBadSize)
      .untouched(dst)
      .verify(type);
}
TEST(Planes, ConjugatesFlipTheSignOfZerosAndNanToo) {
  conjugates<Zor16sc>("zorsConj_16sc, zorsConj_16sc_I, zorsConjFlip_16sc", zorsConj_16sc, zorsConj_16sc_I,
                      zorsConjFlip_16sc);
  conjugates<Zor32fc>("zorsConj_32fc, zorsConj_32fc_I, zorsConjFlip_32fc", zorsConj_32fc, zorsConj_32fc_I,
                      zorsConjFlip_32fc);
  conjugates<Zor64fc>("zorsConj_64fc, zorsConj_64fc_I, zorsConjFlip_64fc", zorsConj_64fc, zorsConj_64fc_I,
                      zorsConjFlip_64fc);
  const Zor16sc z = {0, -32768};
  Zor16sc out = {};
  EXPECT_EQ(zorsConj_16sc(&z, &out, 1), zorStatusOk);
  EXPECT_EQ(out.im, 32767);
}

template <class F> void normalizeReal(ZorStatus (*function)(const F*, F*, Zor32s, F, F)) {
  for (auto [vSub, vDiv] :
       {std::pair{F(0), F(1)}, {F(1.5), F(3)}, {F(-2), F(-0.1)}, {F(0.1), std::numeric_limits<F>::min()}}) {
    const F reciprocal = 1 / vDiv;
    sweep<F, F>(
        "zorsNormalize",
        [=, s = vSub, d = vDiv](const F* src, F* dst, Zor32s len) { return function(src, dst, len, s, d); },
        [=, s = vSub](F x) { return (x - s) * reciprocal; });
  }
  const std::vector<F> src(8);
  std::vector<F> dst(8);
  const F small = std::numeric_limits<F>::min() / 10;
  kit::Contract(function, src.data(), dst.data(), 8, F(1), F(1))
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1}, zorStatusBadSize)
      .template bad<4>({0, F(-0.0), small, -small}, zorStatusDivideByZero)
      .untouched(dst)
      .verify("zorsNormalize");
}
template <class C, class F> void normalizeComplex(ZorStatus (*function)(const C*, C*, Zor32s, C, F)) {
  const C vSub = {F(0.25), F(-7)};
  const F vDiv = F(3), reciprocal = 1 / vDiv;
  sweep<C, C>(
      "zorsNormalize", [=](const C* src, C* dst, Zor32s len) { return function(src, dst, len, vSub, vDiv); },
      [=](C x) {
        return C{(x.re - vSub.re) * reciprocal, (x.im - vSub.im) * reciprocal};
      });
  const std::vector<C> src(8);
  std::vector<C> dst(8);
  kit::Contract(function, src.data(), dst.data(), 8, vSub, vDiv)
      .template null<0>()
      .template null<1>()
      .template bad<2>({0, -1}, zorStatusBadSize)
      .template bad<4>({0, std::numeric_limits<F>::denorm_min()}, zorStatusDivideByZero)
      .untouched(dst)
      .verify("zorsNormalize");
}
TEST(Normalize, FloatsMultiplyByTheReciprocal) {
  normalizeReal(zorsNormalize_32f);
  normalizeReal(zorsNormalize_64f);
  normalizeComplex(zorsNormalize_32fc);
  normalizeComplex(zorsNormalize_64fc);
  Zor32f x = 1;
  EXPECT_EQ(zorsNormalize_32f(&x, &x, 1, 0, 1e-39f), zorStatusDivideByZero);
}
TEST(Normalize, IntegersTakeTheScaleModulo128) {
  const auto model = [](Zor16s x, Zor16s vSub, Zor32s vDiv, Zor32s scale) {
    const Zor32u e = Zor32u(scale) & 127;
    const auto factor = std::bit_cast<Zor32f>(scale >= 0 ? 0x3F800000 - (e << 23) : 0x3F800000 + ((-e & 127) << 23));
    const Zor32f y = Zor32f(x - vSub) * (1.0f / Zor32f(vDiv)) * factor;
    return Zor16s(std::clamp<double>(std::rint(double(y)), -32768, 32767));
  };
  EXPECT_EQ(model(1000, 0, 1, 200), model(1000, 0, 1, 72));
  std::vector<std::array<Zor32s, 3>> cases = {
      {0, 1, 0},  {5, 3, 0},   {-32768, -7, 1}, {32767, 123456789, -12}, {100, 16777217, -20}, {7, 2, 200},
      {7, 2, -1}, {7, 2, 127}, {1, 1, -5},      {3, 1, INT32_MIN},       {3, 1, INT32_MAX}};
  for (auto [vSub, vDiv, scale] : cases) {
    const Zor16s s = Zor16s(vSub);
    const Zor16sc sc = {s, Zor16s(~vSub)};
    const Zor32s d = vDiv, f = scale;
    std::vector<Zor16s> wanted;
    for (unsigned direction : kit::allDirections) {
      const kit::Direction scope(direction);
      // The model runs to nearest, whatever the caller's direction.
      const auto nearest = [&](Zor16s x, Zor16s from) {
        const kit::Direction inside(_MM_ROUND_NEAREST);
        volatile Zor16s opaque = x;
        volatile Zor16s y = model(opaque, from, d, f);
        return Zor16s(y);
      };
      sweep<Zor16s, Zor16s>(
          "zorsNormalize_16s_Sfs",
          [=](const Zor16s* src, Zor16s* dst, Zor32s len) { return zorsNormalize_16s_Sfs(src, dst, len, s, d, f); },
          [&](Zor16s x) { return nearest(x, s); }, kit::fewLengths());
      sweep<Zor16sc, Zor16sc>(
          "zorsNormalize_16sc_Sfs",
          [=](const Zor16sc* src, Zor16sc* dst, Zor32s len) { return zorsNormalize_16sc_Sfs(src, dst, len, sc, d, f); },
          [&](Zor16sc x) {
            return Zor16sc{nearest(x.re, sc.re), nearest(x.im, sc.im)};
          },
          kit::fewLengths());
    }
  }
  const std::vector<Zor16s> src(8);
  std::vector<Zor16s> dst(8);
  kit::Contract(zorsNormalize_16s_Sfs, src.data(), dst.data(), 8, 0, 1, 0)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<4>({0}, zorStatusDivideByZero)
      .untouched(dst)
      .verify("zorsNormalize_16s_Sfs");
  const std::vector<Zor16sc> pairs(8);
  std::vector<Zor16sc> out(8);
  kit::Contract(zorsNormalize_16sc_Sfs, pairs.data(), out.data(), 8, Zor16sc{}, 1, 0)
      .null<0>()
      .null<1>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<4>({0}, zorStatusDivideByZero)
      .untouched(out)
      .verify("zorsNormalize_16sc_Sfs");
}

// ---- Channels -----------------------------------------------------------------------------------

TEST(Channels, JoinAndSplitInterleaveScaledSamples) {
  kit::Random random(3);
  for (unsigned direction : kit::allDirections)
    for (int channels : {1, 2, 3, 5})
      for (int len : {1, 2, 7, 15, 16, 17, 100, 511, 512, 513, 1100}) {
        const auto n = std::size_t(len), c = std::size_t(channels);
        std::vector<kit::Guarded<Zor32f>> in, out16, out24;
        std::vector<const Zor32f*> src;
        std::vector<Zor32f*> dst16, dst24;
        for (std::size_t k = 0; k < c; ++k) {
          auto values = kit::signal<Zor32f>(n, random);
          for (auto& x : values) x *= 1.25f;
          values[n / 2] = std::numeric_limits<Zor32f>::quiet_NaN();
          src.push_back(in.emplace_back(values, kit::Edge::end).data());
          dst16.push_back(out16.emplace_back(n, kit::Edge::begin).data());
          dst24.push_back(out24.emplace_back(n, kit::Edge::end).data());
        }
        const kit::Guarded<Zor16s> joined16(n * c, kit::Edge::end);
        const kit::Guarded<Zor8u> joined24(n * c * 3, kit::Edge::begin);
        ASSERT_EQ(([&] {
                    const kit::Direction scope(direction);
                    return zorsJoinScaled_32f16s_D2L(src.data(), channels, len, joined16.data());
                  }()),
                  zorStatusOk);
        ASSERT_EQ(([&] {
                    const kit::Direction scope(direction);
                    return zorsJoinScaled_32f24s_D2L(src.data(), channels, len, joined24.data());
                  }()),
                  zorStatusOk);
        ASSERT_EQ(zorsSplitScaled_16s32f_D2L(joined16.data(), dst16.data(), channels, len), zorStatusOk);
        ASSERT_EQ(zorsSplitScaled_24s32f_D2L(joined24.data(), dst24.data(), channels, len), zorStatusOk);
        for (std::size_t i = 0; i < n; ++i)
          for (std::size_t k = 0; k < c; ++k) {
            const Zor32f x = std::isnan(in[k][i]) ? -1 : std::clamp(in[k][i], -1.0f, 1.0f);
            const Zor32f product = x * 32767.5f, y = product - 0.5f;
            const Zor64f product24 = Zor64f(x) * 8388607.5, y24 = product24 - 0.5;
            const Zor8u* b = joined24.data() + 3 * (i * c + k);
            const Zor32s word = Zor32s(Zor32u(b[0]) << 8 | Zor32u(b[1]) << 16 | Zor32u(b[2]) << 24) >> 8;
            ASSERT_EQ(joined16[i * c + k], Zor16s(std::rint(y)));
            ASSERT_EQ(word, Zor32s(std::rint(y24)));
            const Zor32f back = Zor32f(joined16[i * c + k]) * std::bit_cast<Zor32f>(0x38000080);
            ASSERT_EQ(out16[k][i], back + std::bit_cast<Zor32f>(0x37800080));
            const Zor64f back24 = Zor64f(word) * (1 / 8388607.5);
            ASSERT_EQ(out24[k][i], Zor32f(back24 + 0.5 / 8388607.5));
          }
        ASSERT_TRUE(joined16.intact() && joined24.intact());
      }
}
TEST(Channels, LimitsAndZero) {
  const Zor32f x[] = {1.5f, -1.0f, 0.0f};
  const Zor32f* src[] = {x};
  Zor16s y[3];
  ASSERT_EQ(zorsJoinScaled_32f16s_D2L(src, 1, 3, y), zorStatusOk);
  EXPECT_EQ(y[0], 32767);
  EXPECT_EQ(y[1], -32768);
  EXPECT_EQ(y[2], 0);
}
TEST(Channels, ChecksOutputThenSizesThenListThenChannels) {
  Zor32f x[4] = {}, y[4] = {};
  const Zor32f *src[] = {x, x}, *broken[] = {x, nullptr};
  Zor32f *dst[] = {y, y}, *brokenDst[] = {y, nullptr};
  std::vector<Zor16s> s(8, 3);
  std::vector<Zor8u> b(24, 3);
  kit::Contract(zorsJoinScaled_32f16s_D2L, src, 2, 4, s.data())
      .null<3>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<0>({nullptr, broken}, zorStatusNullPointer)
      .untouched(s)
      .verify("zorsJoinScaled_32f16s_D2L");
  kit::Contract(zorsJoinScaled_32f24s_D2L, src, 2, 4, b.data())
      .null<3>()
      .bad<1>({0, -1}, zorStatusBadSize)
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<0>({nullptr, broken}, zorStatusNullPointer)
      .untouched(b)
      .verify("zorsJoinScaled_32f24s_D2L");
  kit::Contract(zorsSplitScaled_16s32f_D2L, s.data(), dst, 2, 4)
      .null<0>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<3>({0, -1}, zorStatusBadSize)
      .bad<1>({nullptr, brokenDst}, zorStatusNullPointer)
      .untouched(y, sizeof y)
      .verify("zorsSplitScaled_16s32f_D2L");
  kit::Contract(zorsSplitScaled_24s32f_D2L, b.data(), dst, 2, 4)
      .null<0>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<3>({0, -1}, zorStatusBadSize)
      .bad<1>({nullptr, brokenDst}, zorStatusNullPointer)
      .untouched(y, sizeof y)
      .verify("zorsSplitScaled_24s32f_D2L");
}

// ---- Bit packing --------------------------------------------------------------------------------

TEST(PackBits, FieldsFollowEachOtherFromTheTopBit) {
  kit::Random random(4);
  for (int round = 0; round < 3000; ++round) {
    const int len = 1 + int(random() % 40), offset = int(random() % 24);
    std::vector<Zor32u> src(static_cast<std::size_t>(len));
    std::vector<Zor32s> widths(src.size());
    std::vector<bool> bits;
    bool clamped = false;
    for (std::size_t i = 0; i < src.size(); ++i) {
      src[i] = Zor32u(random());
      widths[i] = round % 3 == 0   ? Zor32s(random() % 33)
                  : round % 3 == 1 ? Zor32s(random() % 5) - 1
                                   : Zor32s(random() % 40);
      const int width = std::clamp(widths[i], 0, 32);
      clamped |= width != widths[i];
      for (int bit = width - 1; bit >= 0; --bit) bits.push_back(src[i] >> bit & 1);
    }
    const std::size_t at = std::size_t(offset & 7), bytes = bits.empty() ? 0 : (at + bits.size() + 7) / 8;
    const kit::Guarded<Zor8u> dst(kit::anyValues<Zor8u>(bytes, random), round % 2 ? kit::Edge::end : kit::Edge::begin);
    auto wanted = dst.values();
    for (std::size_t i = 0; i < bits.size(); ++i) {
      const Zor8u mask = Zor8u(0x80 >> ((at + i) % 8));
      wanted[(at + i) / 8] = Zor8u(bits[i] ? wanted[(at + i) / 8] | mask : wanted[(at + i) / 8] & ~mask);
    }
    Zor32s written = -1;
    ASSERT_EQ(zorsPackBits_32u8u(src.data(), widths.data(), len, dst.data(), offset, &written),
              clamped ? zorWarningBitWidthClamped : zorStatusOk);
    ASSERT_EQ(written, Zor32s(bits.size()));
    ASSERT_EQ(dst.values(), wanted);
    ASSERT_TRUE(dst.intact());
  }
}
TEST(PackBits, WidthsOfZeroTouchNothing) {
  const Zor32u src[2] = {~0u, ~0u};
  const Zor32s widths[2] = {0, -5};
  Zor8u dst = 0x5A;
  Zor32s written = -1;
  EXPECT_EQ(zorsPackBits_32u8u(src, widths, 2, &dst, 3, &written), zorWarningBitWidthClamped);
  EXPECT_EQ(dst, 0x5A);
  EXPECT_EQ(written, 0);
}
TEST(PackBits, AWidthAbove32CountsAs32AndWarns) {
  const Zor32u src[2] = {1, 2};
  const Zor32s widths[2] = {3, 33};
  Zor8u dst[5] = {};
  Zor32s written = 0;
  EXPECT_EQ(zorsPackBits_32u8u(src, widths, 2, dst, 0, &written), zorWarningBitWidthClamped);
  EXPECT_EQ(written, 35);
}
TEST(PackBits, ChecksPointersThenSizes) {
  const Zor32u src[2] = {1, 2};
  const Zor32s widths[2] = {3, 3};
  std::vector<Zor8u> dst(4, 9);
  Zor32s written = 7;
  kit::Contract(zorsPackBits_32u8u, src, widths, 2, dst.data(), 0, &written)
      .null<0>()
      .null<1>()
      .null<3>()
      .null<5>()
      .bad<2>({0, -1}, zorStatusBadSize)
      .bad<4>({-1, -8}, zorStatusBadSize)
      .untouched(dst)
      .untouched(&written, 4)
      .verify("zorsPackBits_32u8u");
}

}  // namespace
