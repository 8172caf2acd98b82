// Transforms of 32-bit integers: the model's transform in floating point, then the scale rule.
#include "transforms/fft_integer_kinds.h"

namespace {

using kinds::allChecks, kinds::BuiltInteger, kinds::IntegerKind, kinds::rounded;
using kinds::ccs, kinds::pack, kinds::perm;
using kinds::Format, kinds::packed;
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
  forEach([](const auto& kind) {
    using Spec = typename std::remove_cvref_t<decltype(kind)>::Spec;
    Zor32s a = 7, b = 7, c = 7;
    EXPECT_EQ(kind.getSize(31, 0, 0, nullptr, &b, &c), zorStatusBadOrder) << kind.name;
    EXPECT_EQ(kind.getSize(-1, 0, 0, nullptr, &b, &c), zorStatusBadOrder) << kind.name;
    EXPECT_EQ(kind.getSize(30, 0, 0, &a, nullptr, &c), zorStatusNullPointer) << kind.name;
    EXPECT_EQ(kind.getSize(30, 0, 0, &a, &b, &c), zorStatusBadFlag) << kind.name;
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
    EXPECT_EQ(kind.init(&out, 30, 0, 0, block, nullptr), zorStatusBadFlag);
    EXPECT_EQ(tag(), 0u);
    EXPECT_EQ(kind.init(&out, 30, 8, 0, block, nullptr), zorStatusBadOrder);  // of the float kind
    EXPECT_EQ(kind.init(&out, 11, 8, 0, block, nullptr), zorStatusNullPointer);
    EXPECT_EQ(tag(), 0u);
    EXPECT_EQ(out, untouched) << kind.name;
    EXPECT_EQ(kind.init(&out, 4, 8, 5, block, nullptr), zorStatusOk);
    EXPECT_EQ(tag(), kind.tag) << kind.name;
    EXPECT_EQ(kind.getBufSize(nullptr, &a), zorStatusNullPointer);
    EXPECT_EQ(kind.getBufSize(out, nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.free(out), zorStatusOk);
    EXPECT_EQ(kind.free(out), zorStatusBadContext) << kind.name;
    EXPECT_EQ(kind.getBufSize(out, &a), zorStatusBadContext) << kind.name;
    EXPECT_EQ(kind.initAlloc(nullptr, 4, 8, 0), zorStatusNullPointer);
    EXPECT_EQ(kind.initAlloc(&out, kind.largestOrder + 1, 8, 0), zorStatusBadOrder);
    for (int order : {4, 12}) {
      Spec* made = nullptr;
      const int allocations = kit::failEachAllocation([&] { return kind.initAlloc(&made, order, 8, 0); },
                                                      [&](int failed, ZorStatus status) {
                                                        EXPECT_EQ(status, failed < 0 ? zorStatusOk : zorStatusNoMemory)
                                                            << kind.name;
                                                        EXPECT_EQ(made == nullptr, failed >= 0);
                                                        if (made != nullptr) kind.free(made);
                                                        EXPECT_EQ(kit::services().live, 0) << kind.name << ": leaked";
                                                      });
      EXPECT_EQ(allocations, order < 11 ? 1 : 2);
    }
  });
}

constexpr int orders[] = {0, 1, 2, 3, 4, 5, 7, 8, 11, 12};

TEST(FFTInteger, ComplexTransformsAreTheFloatOnesRounded) {
  kit::Random random(12);
  for (int order : orders)
    for (int flag : kinds::flags)
      for (bool inverse : {false, true})
        for (int scaleFactor : {-2, 0, 5, 40}) {
          const std::size_t n = std::size_t{1} << order;
          const auto x = kit::anyValues<Zor32sc>(n, random);
          model::Signal<double> points(n);
          for (std::size_t i = 0; i < n; ++i) points[i] = {static_cast<double>(x[i].re), static_cast<double>(x[i].im)};
          const auto y = model::complexTransform(points, order, model::Twiddles<double>(std::max(order, 6)), inverse,
                                                 scales(flag, inverse), scale<double>(flag, order));
          std::vector<Zor32sc> wanted(n);
          std::vector<Zor32s> re(n), im(n), wantedRe(n), wantedIm(n);
          for (std::size_t i = 0; i < n; ++i) {
            wantedRe[i] = rounded<Zor32s>(y[i].re, scaleFactor), wantedIm[i] = rounded<Zor32s>(y[i].im, scaleFactor);
            wanted[i] = {wantedRe[i], wantedIm[i]};
            re[i] = x[i].re, im[i] = x[i].im;
          }
          const std::string what = "order " + std::to_string(order) + " flag " + std::to_string(flag) + " scale " +
                                   std::to_string(scaleFactor);
          const BuiltInteger built(c32sc, order, flag, 12);
          const BuiltInteger splitBuilt(c32s, order, flag, 12);
          const kit::Guarded<Zor32sc> src(x, kit::Edge::end), dst(n, kit::Edge::begin);
          ASSERT_EQ((inverse ? zorsFFTInv_CToC_32sc_Sfs : zorsFFTFwd_CToC_32sc_Sfs)(src.data(), dst.data(), built.spec,
                                                                                    scaleFactor, built.work->data()),
                    zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32sc>(dst.span(), wanted), "") << what;
          ASSERT_EQ((inverse ? zorsFFTInv_CToC_32sc_ISfs : zorsFFTFwd_CToC_32sc_ISfs)(src.data(), built.spec,
                                                                                      scaleFactor, nullptr),
                    zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32sc>(src.span(), wanted), "") << what << " in place";
          const kit::Guarded<Zor32s> srcRe(re, kit::Edge::end), srcIm(im, kit::Edge::end), dstRe(n, kit::Edge::end),
              dstIm(n, kit::Edge::end);
          ASSERT_EQ((inverse ? zorsFFTInv_CToC_32s_Sfs : zorsFFTFwd_CToC_32s_Sfs)(
                        srcRe.data(), srcIm.data(), dstRe.data(), dstIm.data(), splitBuilt.spec, scaleFactor,
                        splitBuilt.work->data()),
                    zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32s>(dstRe.span(), wantedRe), "") << what << " split";
          ASSERT_EQ(kit::firstDifference<Zor32s>(dstIm.span(), wantedIm), "") << what << " split";
          ASSERT_EQ((inverse ? zorsFFTInv_CToC_32s_ISfs : zorsFFTFwd_CToC_32s_ISfs)(
                        srcRe.data(), srcIm.data(), splitBuilt.spec, scaleFactor, nullptr),
                    zorStatusOk);
          ASSERT_EQ(kit::firstDifference<Zor32s>(srcRe.span(), wantedRe), "") << what << " split in place";
          ASSERT_EQ(kit::firstDifference<Zor32s>(srcIm.span(), wantedIm), "") << what << " split in place";
          ASSERT_TRUE(built.intact() && splitBuilt.intact() && src.intact() && dst.intact() && dstRe.intact() &&
                      dstIm.intact())
              << what << ": wrote outside";
        }
}

TEST(FFTInteger, RealTransformsAreTheFloatOnesRounded) {
  constexpr std::array outOfPlace = {zorsFFTFwd_RToPerm_32s_Sfs, zorsFFTInv_PermToR_32s_Sfs, zorsFFTFwd_RToPack_32s_Sfs,
                                     zorsFFTInv_PackToR_32s_Sfs, zorsFFTFwd_RToCCS_32s_Sfs,  zorsFFTInv_CCSToR_32s_Sfs};
  constexpr std::array inPlace = {zorsFFTFwd_RToPerm_32s_ISfs, zorsFFTInv_PermToR_32s_ISfs, zorsFFTFwd_RToPack_32s_ISfs,
                                  zorsFFTInv_PackToR_32s_ISfs, zorsFFTFwd_RToCCS_32s_ISfs,  zorsFFTInv_CCSToR_32s_ISfs};
  kit::Random random(13);
  for (int order : orders)
    for (int flag : kinds::flags)
      for (int scaleFactor : {-1, 0, 7}) {
        const std::size_t n = std::size_t{1} << order;
        const auto x = kit::anyValues<Zor32s>(n, random);
        const std::vector<double> values(x.begin(), x.end());
        const model::Twiddles<double> twiddles(std::max(order, 6));
        const auto spectrum = rounded<Zor32s>(
            model::realForward(values, order, twiddles, scales(flag, false), scale<double>(flag, order)), scaleFactor);
        const auto signal = rounded<Zor32s>(
            model::realInverse(values, order, twiddles, scales(flag, true), scale<double>(flag, order)), scaleFactor);
        const BuiltInteger built(r32s, order, flag, 4);
        for (Format format : {perm, pack, ccs})
          for (bool inverse : {false, true}) {
            auto input = inverse ? packed(x, format) : x;
            if (inverse && format == ccs) input[1] = 99;  // the places of zeros are not looked at
            const auto wanted = inverse ? signal : packed(spectrum, format);
            const std::string what = "order " + std::to_string(order) + " flag " + std::to_string(flag) + " format " +
                                     std::to_string(format) + (inverse ? " inverse" : "");
            const auto at = static_cast<std::size_t>(2 * format + inverse);
            const kit::Guarded<Zor32s> src(input, kit::Edge::end), dst(wanted.size(), kit::Edge::end),
                both(std::max(input.size(), wanted.size()), kit::Edge::begin);
            ASSERT_EQ(outOfPlace[at](src.data(), dst.data(), built.spec, scaleFactor, built.work->data()), zorStatusOk);
            ASSERT_EQ(kit::firstDifference<Zor32s>(dst.span(), wanted), "") << what;
            std::copy(input.begin(), input.end(), both.data());
            ASSERT_EQ(inPlace[at](both.data(), built.spec, scaleFactor, nullptr), zorStatusOk);
            ASSERT_EQ(kit::firstDifference<Zor32s>(both.span().first(wanted.size()), wanted), "")
                << what << " in place";
            ASSERT_TRUE(dst.intact() && both.intact() && built.intact()) << what << ": wrote outside";
          }
      }
}

TEST(FFTInteger, SixteenBitValuesAndThirtyTwoBitSpectra) {
  kit::Random random(14);
  for (int order : orders)
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
        const std::string what = "order " + std::to_string(order) + " flag " + std::to_string(flag) + " scale " +
                                 std::to_string(scaleFactor);
        ASSERT_EQ(zorsFFTFwd_RToCCS_16s32s_Sfs(x.data(), dst.data(), built.spec, scaleFactor, built.work->data()),
                  zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor32s>(dst.span(), spectrum), "") << what;
        ASSERT_EQ(zorsFFTInv_CCSToR_32s16s_Sfs(input.data(), back.data(), built.spec, scaleFactor, nullptr),
                  zorStatusOk);
        ASSERT_EQ(kit::firstDifference<Zor16s>(back.span(), signal), "") << what;
        ASSERT_TRUE(dst.intact() && back.intact() && built.intact()) << what << ": wrote outside";
      }
}

TEST(FFTInteger, TransformsCheckTheSpecificationThenItsKindThenTheData) {
  allChecks(c32sc, zorsFFTFwd_CToC_32sc_Sfs, zorsFFTInv_CToC_32sc_Sfs, zorsFFTFwd_CToC_32sc_ISfs,
            zorsFFTInv_CToC_32sc_ISfs);
  allChecks(c32s, zorsFFTFwd_CToC_32s_Sfs, zorsFFTInv_CToC_32s_Sfs, zorsFFTFwd_CToC_32s_ISfs, zorsFFTInv_CToC_32s_ISfs);
  allChecks(r32s, zorsFFTFwd_RToPerm_32s_Sfs, zorsFFTInv_PermToR_32s_Sfs, zorsFFTFwd_RToPack_32s_Sfs,
            zorsFFTInv_PackToR_32s_Sfs, zorsFFTFwd_RToCCS_32s_Sfs, zorsFFTInv_CCSToR_32s_Sfs,
            zorsFFTFwd_RToPerm_32s_ISfs, zorsFFTInv_PermToR_32s_ISfs, zorsFFTFwd_RToPack_32s_ISfs,
            zorsFFTInv_PackToR_32s_ISfs, zorsFFTFwd_RToCCS_32s_ISfs, zorsFFTInv_CCSToR_32s_ISfs);
  allChecks(r16s32s, zorsFFTFwd_RToCCS_16s32s_Sfs, zorsFFTInv_CCSToR_32s16s_Sfs);
}

TEST(FFTInteger, WithoutMemoryNothingIsWritten) {
  ZorsFFTSpec_C_32sc* spec = nullptr;
  ASSERT_EQ(zorsFFTInitAlloc_C_32sc(&spec, 0, 8, 0), zorStatusOk);  // even one point needs a buffer
  const Zor32sc src = {5, 6};
  Zor32sc dst = {1, 2};
  const int allocations =
      kit::failEachAllocation([&] { return zorsFFTFwd_CToC_32sc_Sfs(&src, &dst, spec, 0, nullptr); },
                              [&](int failed, ZorStatus status) {
                                EXPECT_EQ(status, failed < 0 ? zorStatusOk : zorStatusNoMemory);
                                EXPECT_EQ(dst.re, failed < 0 ? 5 : 1);
                                EXPECT_EQ(kit::services().live, 0);
                              });
  EXPECT_EQ(allocations, 1);
  EXPECT_EQ(zorsFFTFree_C_32sc(spec), zorStatusOk);
}

}  // namespace
