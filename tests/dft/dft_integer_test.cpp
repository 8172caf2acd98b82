// The 16-bit transforms of any length: a conversion, the float transform, a conversion back.
#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"
#include "zors/conversion.h"

namespace {

using namespace kit;

const Zor32s lengths[] = {2, 3, 8, 15, 16, 17, 18, 34, 53, 64, 100, 128, 255};
const Zor32s scaleFactors[] = {INT32_MIN, -3, 0, 1, 5, 40, INT32_MAX};

std::vector<Zor16s> narrowed(const std::vector<Zor32f>& x, Zor32s scaleFactor) {
  std::vector<Zor16s> out(x.size());
  zorsConvert_32f16s_Sfs(x.data(), out.data(), Zor32s(x.size()), zorRoundNearestEven, scaleFactor);
  return out;
}

TEST(DFTInteger, InterleavedPointsAreThoseOfTheFloatKind) {
  Random random(61);
  for (Zor32s len : lengths)
    for (bool inverse : {false, true}) {
      ZorsDFTSpec_C_16sc* spec = nullptr;
      ZorsDFTSpec_C_32fc* floats = nullptr;
      ASSERT_EQ(zorsDFTInitAlloc_C_16sc(&spec, len, ZOR_FFT_DIVIDE_BOTH_ROOT, zorAlgHintAccurate), zorStatusOk);
      ASSERT_EQ(zorsDFTInitAlloc_C_32fc(&floats, len, ZOR_FFT_DIVIDE_BOTH_ROOT, zorAlgHintFast), zorStatusOk);
      Zor32s size = 0;
      ASSERT_EQ(zorsDFTGetBufSize_C_16sc(spec, &size), zorStatusOk);
      ASSERT_GE(size, 8 * len);
      const Guarded<Zor8u> work(static_cast<std::size_t>(size), Edge::end, 1);
      for (Zor32s scaleFactor : scaleFactors) {
        const auto values = anyValues<Zor16s>(2 * std::size_t(len), random);
        std::vector<Zor32f> y(values.begin(), values.end());
        auto* points = reinterpret_cast<Zor32fc*>(y.data());
        (inverse ? zorsDFTInv_CToC_32fc : zorsDFTFwd_CToC_32fc)(points, points, floats, nullptr);
        const Guarded<Zor16s> src(values, Edge::end, 0), dst(values.size(), Edge::begin, 2);
        const auto f = inverse ? zorsDFTInv_CToC_16sc_Sfs : zorsDFTFwd_CToC_16sc_Sfs;
        const auto* from = reinterpret_cast<const Zor16sc*>(src.data());
        ASSERT_EQ(f(from, reinterpret_cast<Zor16sc*>(dst.data()), spec, scaleFactor, work.data()), zorStatusOk);
        ASSERT_EQ(dst.values(), narrowed(y, scaleFactor)) << len << ", scale factor " << scaleFactor;
        ASSERT_EQ(f(from, reinterpret_cast<Zor16sc*>(src.data()), spec, scaleFactor, nullptr), zorStatusOk);
        ASSERT_EQ(src.values(), dst.values()) << "in place";
      }
      ASSERT_TRUE(work.intact());
      EXPECT_EQ(zorsDFTFree_C_16sc(spec), zorStatusOk);
      zorsDFTFree_C_32fc(floats);
    }
}
TEST(DFTInteger, SplitPointsAreThoseOfTheFloatKind) {
  Random random(62);
  for (Zor32s len : lengths)
    for (bool inverse : {false, true}) {
      ZorsDFTSpec_C_16s* spec = nullptr;
      ZorsDFTSpec_C_32f* floats = nullptr;
      ASSERT_EQ(zorsDFTInitAlloc_C_16s(&spec, len, ZOR_FFT_DIVIDE_FORWARD, zorAlgHintNone), zorStatusOk);
      ASSERT_EQ(zorsDFTInitAlloc_C_32f(&floats, len, ZOR_FFT_DIVIDE_FORWARD, zorAlgHintFast), zorStatusOk);
      Zor32s size = 0;
      ASSERT_EQ(zorsDFTGetBufSize_C_16s(spec, &size), zorStatusOk);
      const Guarded<Zor8u> work(static_cast<std::size_t>(size), Edge::end, 3);
      const auto re = anyValues<Zor16s>(std::size_t(len), random), im = anyValues<Zor16s>(std::size_t(len), random);
      std::vector<Zor32f> yRe(re.begin(), re.end()), yIm(im.begin(), im.end());
      (inverse ? zorsDFTInv_CToC_32f : zorsDFTFwd_CToC_32f)(yRe.data(), yIm.data(), yRe.data(), yIm.data(), floats,
                                                            nullptr);
      auto outRe = re, outIm = im;
      const auto f = inverse ? zorsDFTInv_CToC_16s_Sfs : zorsDFTFwd_CToC_16s_Sfs;
      ASSERT_EQ(f(outRe.data(), outIm.data(), outRe.data(), outIm.data(), spec, 3, work.data()), zorStatusOk);
      ASSERT_EQ(outRe, narrowed(yRe, 3)) << len;
      ASSERT_EQ(outIm, narrowed(yIm, 3)) << len;
      ASSERT_TRUE(work.intact());
      EXPECT_EQ(zorsDFTFree_C_16s(spec), zorStatusOk);
      zorsDFTFree_C_32f(floats);
    }
}
using Real16 = ZorStatus (*)(const Zor16s*, Zor16s*, const ZorsDFTSpec_R_16s*, Zor32s, Zor8u*);
using Real32 = ZorStatus (*)(const Zor32f*, Zor32f*, const ZorsDFTSpec_R_32f*, Zor8u*);
struct RealMember {
  Real16 f;
  Real32 floats;
  bool ccs, toSpectrum;
};
const RealMember realMembers[] = {{zorsDFTFwd_RToPack_16s_Sfs, zorsDFTFwd_RToPack_32f, false, true},
                                  {zorsDFTFwd_RToPerm_16s_Sfs, zorsDFTFwd_RToPerm_32f, false, true},
                                  {zorsDFTFwd_RToCCS_16s_Sfs, zorsDFTFwd_RToCCS_32f, true, true},
                                  {zorsDFTInv_PackToR_16s_Sfs, zorsDFTInv_PackToR_32f, false, false},
                                  {zorsDFTInv_PermToR_16s_Sfs, zorsDFTInv_PermToR_32f, false, false},
                                  {zorsDFTInv_CCSToR_16s_Sfs, zorsDFTInv_CCSToR_32f, true, false}};
TEST(DFTInteger, RealValuesAreThoseOfTheFloatKind) {
  Random random(63);
  for (Zor32s len : lengths) {
    ZorsDFTSpec_R_16s* spec = nullptr;
    ZorsDFTSpec_R_32f* floats = nullptr;
    ASSERT_EQ(zorsDFTInitAlloc_R_16s(&spec, len, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone), zorStatusOk);
    ASSERT_EQ(zorsDFTInitAlloc_R_32f(&floats, len, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintFast), zorStatusOk);
    Zor32s size = 0;
    ASSERT_EQ(zorsDFTGetBufSize_R_16s(spec, &size), zorStatusOk);
    const Guarded<Zor8u> work(static_cast<std::size_t>(size), Edge::end, 5);
    for (const auto& member : realMembers) {
      const std::size_t n = std::size_t(len), packed = !member.ccs ? n : n % 2 == 0 ? n + 2 : n + 1;
      const auto x = anyValues<Zor16s>(member.toSpectrum ? n : packed, random);
      std::vector<Zor32f> y(x.begin(), x.end());
      y.resize(packed);
      member.floats(y.data(), y.data(), floats, nullptr);
      y.resize(member.toSpectrum ? packed : n);
      const Guarded<Zor16s> src(x, Edge::end, 0), dst(y.size(), Edge::end, 0);
      ASSERT_EQ(member.f(src.data(), dst.data(), spec, 6, work.data()), zorStatusOk);
      ASSERT_EQ(dst.values(), narrowed(y, 6)) << len;
    }
    ASSERT_TRUE(work.intact());
    EXPECT_EQ(zorsDFTFree_R_16s(spec), zorStatusOk);
    zorsDFTFree_R_32f(floats);
  }
}
TEST(DFTInteger, OnePointIsShiftedHalvesUp) {
  ZorsDFTSpec_C_16sc* points = nullptr;
  ZorsDFTSpec_C_16s* split = nullptr;
  ZorsDFTSpec_R_16s* real = nullptr;
  ASSERT_EQ(zorsDFTInitAlloc_C_16sc(&points, 1, 1, zorAlgHintNone), zorStatusOk);
  ASSERT_EQ(zorsDFTInitAlloc_C_16s(&split, 1, 1, zorAlgHintNone), zorStatusOk);
  ASSERT_EQ(zorsDFTInitAlloc_R_16s(&real, 1, 1, zorAlgHintNone), zorStatusOk);
  Zor32s size = -1;
  EXPECT_EQ(zorsDFTGetBufSize_C_16sc(points, &size), zorStatusOk);
  EXPECT_EQ(size, 0);
  struct {
    Zor16s x, y;
    Zor32s scaleFactor;
  } const cases[] = {{3, 2, 1},       {-3, -1, 1},       {7, 7, 0},          {20000, 32767, -1}, {-20000, -32768, -1},
                     {1, 32767, -16}, {0, 0, INT32_MIN}, {-1, -32768, -99},  {32767, 0, 31},     {32767, 1, 15},
                     {32767, 0, 32},  {1, 0, INT32_MAX}, {-32768, -16384, 1}};
  for (const auto& c : cases) {
    const Zor16sc x = {c.x, 3};
    Zor16sc y = {};
    Zor16s re = 9, im = 9, spectrum[2] = {9, 9};
    EXPECT_EQ(zorsDFTFwd_CToC_16sc_Sfs(&x, &y, points, c.scaleFactor, nullptr), zorStatusOk);
    EXPECT_EQ(y.re, c.y);
    EXPECT_EQ(zorsDFTInv_CToC_16s_Sfs(&x.im, &x.re, &im, &re, split, c.scaleFactor, nullptr), zorStatusOk);
    EXPECT_EQ(re, c.y);
    EXPECT_EQ(zorsDFTFwd_RToCCS_16s_Sfs(&x.re, spectrum, real, c.scaleFactor, nullptr), zorStatusOk);
    EXPECT_EQ(spectrum[0], c.y);
    EXPECT_EQ(spectrum[1], 0);
  }
  zorsDFTFree_C_16sc(points);
  zorsDFTFree_C_16s(split);
  zorsDFTFree_R_16s(real);
}

template <class S>
void checkLifecycle(ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm), ZorStatus (*free)(S*),
                    ZorStatus (*getBufSize)(const S*, Zor32s*)) {
  S* const untouched = reinterpret_cast<S*>(0x40);
  S* spec = untouched;
  EXPECT_EQ(initAlloc(nullptr, 0, 3, zorAlgHintNone), zorStatusNullPointer);
  EXPECT_EQ(initAlloc(&spec, 0, 3, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(initAlloc(&spec, 18, 3, zorAlgHintNone), zorStatusBadFlag);
  EXPECT_EQ(initAlloc(&spec, 1 << 30, 1, zorAlgHintNone), zorStatusBadOrder);
  EXPECT_EQ(initAlloc(&spec, 387420489, 1, zorAlgHintNone), zorStatusBadSize);
  for (Zor32s len : {1, 18, 53, 64})
    failEachAllocation(
        [&] {
          spec = untouched;
          const ZorStatus status = initAlloc(&spec, len, 1, zorAlgHintNone);
          if (status == zorStatusOk) {
            EXPECT_EQ(free(spec), zorStatusOk);
          } else {
            EXPECT_EQ(spec, untouched);
          }
          EXPECT_EQ(services().live, 0);
          return status;
        },
        [&](int n, ZorStatus status) { EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << len; });
  alignas(64) Zor32u foreign[64] = {13};
  Zor32s size = -7;
  EXPECT_EQ(free(nullptr), zorStatusNullPointer);
  EXPECT_EQ(free(reinterpret_cast<S*>(foreign)), zorStatusBadContext);
  EXPECT_EQ(getBufSize(reinterpret_cast<const S*>(foreign), nullptr), zorStatusNullPointer);
  EXPECT_EQ(getBufSize(reinterpret_cast<const S*>(foreign), &size), zorStatusBadContext);
  EXPECT_EQ(size, -7);
}
TEST(DFTInteger, SpecificationsTellEveryFault) {
  checkLifecycle(zorsDFTInitAlloc_C_16sc, zorsDFTFree_C_16sc, zorsDFTGetBufSize_C_16sc);
  checkLifecycle(zorsDFTInitAlloc_C_16s, zorsDFTFree_C_16s, zorsDFTGetBufSize_C_16s);
  checkLifecycle(zorsDFTInitAlloc_R_16s, zorsDFTFree_R_16s, zorsDFTGetBufSize_R_16s);
}
TEST(DFTInteger, WithoutMemoryNothingIsWritten) {
  ZorsDFTSpec_R_16s* spec = nullptr;
  ASSERT_EQ(zorsDFTInitAlloc_R_16s(&spec, 18, 1, zorAlgHintNone), zorStatusOk);
  const std::vector<Zor16s> x(18, 5);
  std::vector<Zor16s> y(18, 7);
  ServicesScope scope;
  scope->failAt = 0;
  EXPECT_EQ(zorsDFTFwd_RToPerm_16s_Sfs(x.data(), y.data(), spec, 0, nullptr), zorStatusNoMemory);
  EXPECT_EQ(y, std::vector<Zor16s>(18, 7));
  scope->failAt = -1;
  EXPECT_EQ(zorsDFTFwd_RToPerm_16s_Sfs(nullptr, y.data(), spec, 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsDFTFwd_RToPerm_16s_Sfs(x.data(), y.data(), spec, 0, nullptr), zorStatusOk);
  EXPECT_EQ(scope->allocations, 1);
  EXPECT_EQ(scope.leaked(), 0);
  zorsDFTFree_R_16s(spec);
}

}  // namespace
