// Transforms of 32-bit integers: the model's transform in floating point, then the scale rule.
#include "fft/fft_integer_kinds.h"
#include "zors/fft.h"

namespace {

using kinds::BuiltInteger, kinds::IntegerKind, kinds::rounded;
using kinds::ccs, kinds::packed;
using kinds::scale, kinds::scales;

constexpr IntegerKind<ZorsFFTSpec_C_32sc> c32sc = {"C_32sc",
                                                   27,
                                                   0x434D414C,
                                                   zorsFFTGetSize_C_32sc,
                                                   zorsFFTInit_C_32sc,
                                                   zorsFFTInitAlloc_C_32sc,
                                                   zorsFFTFree_C_32sc,
                                                   zorsFFTGetBufSize_C_32sc,
                                                   zorsFFTGetSize_C_64fc,
                                                   [](long n) { return 16 * n; }};
constexpr IntegerKind<ZorsFFTSpec_C_32s> c32s = {"C_32s",
                                                 27,
                                                 0x434D414D,
                                                 zorsFFTGetSize_C_32s,
                                                 zorsFFTInit_C_32s,
                                                 zorsFFTInitAlloc_C_32s,
                                                 zorsFFTFree_C_32s,
                                                 zorsFFTGetBufSize_C_32s,
                                                 zorsFFTGetSize_C_64f,
                                                 [](long n) { return 16 * n; }};
constexpr IntegerKind<ZorsFFTSpec_R_32s> r32s = {"R_32s",
                                                 28,
                                                 0x434D414E,
                                                 zorsFFTGetSize_R_32s,
                                                 zorsFFTInit_R_32s,
                                                 zorsFFTInitAlloc_R_32s,
                                                 zorsFFTFree_R_32s,
                                                 zorsFFTGetBufSize_R_32s,
                                                 zorsFFTGetSize_R_64f,
                                                 [](long n) { return 8 * n + 16; }};
constexpr IntegerKind<ZorsFFTSpec_R_16s32s> r16s32s = {"R_16s32s",           29,
                                                       0x434D414F,           zorsFFTGetSize_R_16s32s,
                                                       zorsFFTInit_R_16s32s, zorsFFTInitAlloc_R_16s32s,
                                                       zorsFFTFree_R_16s32s, zorsFFTGetBufSize_R_16s32s,
                                                       zorsFFTGetSize_R_32f, [](long n) { return 4 * n + 8; }};
template <class F> void forEach(F f) { f(c32sc), f(c32s), f(r32s), f(r16s32s); }

TEST(FFTInteger, SizesAreThoseOfTheFloatKindAndMore) {
  forEach([](const auto& kind) {
    for (int order = 0; order <= kind.largestOrder; ++order) {
      Zor32s spec = 0, init = 0, work = 0, innerSpec = 0, innerInit = 0, innerWork = 0;
      ASSERT_EQ(kind.innerSize(order, 2, 0, &innerSpec, &innerInit, &innerWork), zorStatusOk);
      ASSERT_EQ(kind.getSize(order, 2, 77, &spec, &init, &work), zorStatusOk);
      EXPECT_EQ(spec, innerSpec + 128) << kind.name << " order " << order;
      EXPECT_EQ(init, innerInit > 0 ? innerInit + 64 : 0) << kind.name << " order " << order;
      EXPECT_EQ(work, static_cast<Zor32s>(static_cast<Zor32u>(innerWork + kind.head(1L << order) + 64)))
          << kind.name << " order " << order;
    }
  });
}

TEST(FFTInteger, SpecificationsCheckInOrder) {
  forEach([](const auto& kind) { kinds::specificationChecksInOrder(kind); });
}
TEST(FFTInteger, SpecificationsLiveAsAllObjectsDo) {
  for (int order : {0, 3, 6, 7, 11}) {
    const auto n = std::ptrdiff_t{1} << order;
    kit::checkObject(
        kinds::asObject<Zor32sc>(c32sc, order, 8, 0, [](const Zor32sc* x, Zor32sc* y, const auto* spec, Zor8u* work) {
          return zorsFFTFwd_CToC_32sc_Sfs(x, y, spec, 3, work);
        }));
    kit::checkObject(
        kinds::asObject<Zor32s>(c32s, order, 8, 0, [=](const Zor32s* x, Zor32s* y, const auto* spec, Zor8u* work) {
          return zorsFFTFwd_CToC_32s_Sfs(x, x + n, y, y + n, spec, 3, work);
        }));
    kit::checkObject(
        kinds::asObject<Zor32s>(r32s, order, 8, 0, [](const Zor32s* x, Zor32s* y, const auto* spec, Zor8u* work) {
          return zorsFFTFwd_RToPerm_32s_Sfs(x, y, spec, 3, work);
        }));
    kit::checkObject(
        kinds::asObject<Zor16s>(r16s32s, order, 8, 0, [](const Zor16s* x, Zor16s* y, const auto* spec, Zor8u* work) {
          return zorsFFTInv_CCSToR_32s16s_Sfs(reinterpret_cast<const Zor32s*>(x), y, spec, 3, work);
        }));
  }
}

TEST(FFTInteger, ComplexTransformsAreTheFloatOnesRounded) {
  const kinds::ComplexForms<Zor32sc, ZorsFFTSpec_C_32sc, ZorsFFTSpec_C_32s> forms = {
      c32sc,
      c32s,
      {zorsFFTFwd_CToC_32sc_Sfs, zorsFFTInv_CToC_32sc_Sfs},
      {zorsFFTFwd_CToC_32sc_ISfs, zorsFFTInv_CToC_32sc_ISfs},
      {zorsFFTFwd_CToC_32s_Sfs, zorsFFTInv_CToC_32s_Sfs},
      {zorsFFTFwd_CToC_32s_ISfs, zorsFFTInv_CToC_32s_ISfs}};
  kit::Random random(12);
  for (int order : kinds::orders)
    for (int flag : kinds::flags)
      for (bool inverse : {false, true})
        for (int scaleFactor : {-2, 0, 5, 40}) {
          const auto x = kit::anyValues<Zor32sc>(std::size_t{1} << order, random);
          model::Signal<double> points;
          for (Zor32sc z : x) points.push_back({static_cast<double>(z.re), static_cast<double>(z.im)});
          const auto y = model::complexTransform(points, order, model::Twiddles<double>(std::max(order, 6)), inverse,
                                                 scales(flag, inverse), scale<double>(flag, order));
          std::vector<Zor32sc> wanted;
          for (auto z : y) wanted.push_back({rounded<Zor32s>(z.re, scaleFactor), rounded<Zor32s>(z.im, scaleFactor)});
          forms.turn(x, wanted, order, flag, 0, inverse, scaleFactor);
          if (HasFatalFailure()) return;
        }
}

TEST(FFTInteger, RealTransformsAreTheFloatOnesRounded) {
  const kinds::RealForms<Zor32s, ZorsFFTSpec_R_32s> forms = {
      r32s,
      {zorsFFTFwd_RToPerm_32s_Sfs, zorsFFTInv_PermToR_32s_Sfs, zorsFFTFwd_RToPack_32s_Sfs, zorsFFTInv_PackToR_32s_Sfs,
       zorsFFTFwd_RToCCS_32s_Sfs, zorsFFTInv_CCSToR_32s_Sfs},
      {zorsFFTFwd_RToPerm_32s_ISfs, zorsFFTInv_PermToR_32s_ISfs, zorsFFTFwd_RToPack_32s_ISfs,
       zorsFFTInv_PackToR_32s_ISfs, zorsFFTFwd_RToCCS_32s_ISfs, zorsFFTInv_CCSToR_32s_ISfs}};
  kit::Random random(13);
  for (int order : kinds::orders)
    for (int flag : kinds::flags)
      for (int scaleFactor : {-1, 0, 7}) {
        const auto x = kit::anyValues<Zor32s>(std::size_t{1} << order, random);
        const std::vector<double> values(x.begin(), x.end());
        const model::Twiddles<double> twiddles(std::max(order, 6));
        const auto spectrum =
            model::realForward(values, order, twiddles, scales(flag, false), scale<double>(flag, order));
        const auto signal = model::realInverse(values, order, twiddles, scales(flag, true), scale<double>(flag, order));
        forms.turn(x, rounded<Zor32s>(spectrum, scaleFactor), rounded<Zor32s>(signal, scaleFactor), order, flag, 0,
                   scaleFactor);
        if (HasFatalFailure()) return;
      }
}

TEST(FFTInteger, SixteenBitValuesAndThirtyTwoBitSpectra) {
  kit::Random random(14);
  for (int order : kinds::orders)
    for (int flag : kinds::flags)
      for (int scaleFactor : {-3, 0, 4}) {
        const std::size_t n = std::size_t{1} << order;
        const auto x = kit::anyValues<Zor16s>(n, random);
        const auto terms = kit::anyValues<Zor16s>(n, random);
        const model::Twiddles<float> twiddles(std::max(order, 6));
        const std::vector<float> values(x.begin(), x.end()), spectrumIn(terms.begin(), terms.end());
        const auto spectrum = packed(
            rounded<Zor32s>(model::realForward(values, order, twiddles, scales(flag, false), scale<float>(flag, order)),
                            scaleFactor),
            ccs);
        const auto signal = rounded<Zor16s>(
            model::realInverse(spectrumIn, order, twiddles, scales(flag, true), scale<float>(flag, order)),
            scaleFactor);
        const auto input = packed(std::vector<Zor32s>(terms.begin(), terms.end()), ccs);
        const BuiltInteger built(r16s32s, order, flag, 4);
        const kit::Guarded<Zor32s> dst(spectrum.size(), kit::Edge::end);
        const kit::Guarded<Zor16s> back(n, kit::Edge::end);
        const std::string what = kinds::described(order, flag, 0, scaleFactor);
        ASSERT_EQ(zorsFFTFwd_RToCCS_16s32s_Sfs(x.data(), dst.data(), built.spec, scaleFactor, built.work->data()),
                  zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor32s>(dst.span(), spectrum), "") << what;
        ASSERT_EQ(zorsFFTInv_CCSToR_32s16s_Sfs(input.data(), back.data(), built.spec, scaleFactor, nullptr),
                  zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor16s>(back.span(), signal), "") << what;
        ASSERT_TRUE(dst.intact() && back.intact() && built.intact()) << what << ": wrote outside";
      }
}

// At these scale factors the conversion's factor is an infinity, of either sign, and zeros become NaN.
TEST(FFTInteger, TheZerosOfTheFormatStayZerosWhateverTheFactor) {
  for (int order : {0, 1, 3, 6})
    for (int scaleFactor : {128, -128}) {
      const auto n = std::size_t{1} << order;
      const BuiltInteger built(r16s32s, order, 8);
      const std::vector<Zor16s> x(n, 3);
      std::vector<Zor32s> dst(n + 2, 7);
      ASSERT_EQ(zorsFFTFwd_RToCCS_16s32s_Sfs(x.data(), dst.data(), built.spec, scaleFactor, nullptr), zorStatusOk);
      EXPECT_EQ(dst[1], 0) << order;
      EXPECT_EQ(dst[n + 1], order == 0 ? 7 : 0) << order;
    }
}

TEST(FFTInteger, TransformsCheckTheSpecificationThenItsKindThenTheData) {
  kinds::contracts(c32sc, zorsFFTFwd_CToC_32sc_Sfs, zorsFFTInv_CToC_32sc_Sfs, zorsFFTFwd_CToC_32sc_ISfs,
                   zorsFFTInv_CToC_32sc_ISfs);
  kinds::contracts(c32s, zorsFFTFwd_CToC_32s_Sfs, zorsFFTInv_CToC_32s_Sfs, zorsFFTFwd_CToC_32s_ISfs,
                   zorsFFTInv_CToC_32s_ISfs);
  kinds::contracts(r32s, zorsFFTFwd_RToPerm_32s_Sfs, zorsFFTInv_PermToR_32s_Sfs, zorsFFTFwd_RToPack_32s_Sfs,
                   zorsFFTInv_PackToR_32s_Sfs, zorsFFTFwd_RToCCS_32s_Sfs, zorsFFTInv_CCSToR_32s_Sfs,
                   zorsFFTFwd_RToPerm_32s_ISfs, zorsFFTInv_PermToR_32s_ISfs, zorsFFTFwd_RToPack_32s_ISfs,
                   zorsFFTInv_PackToR_32s_ISfs, zorsFFTFwd_RToCCS_32s_ISfs, zorsFFTInv_CCSToR_32s_ISfs);
  kinds::contracts(r16s32s, zorsFFTFwd_RToCCS_16s32s_Sfs, zorsFFTInv_CCSToR_32s16s_Sfs);
}

}  // namespace
