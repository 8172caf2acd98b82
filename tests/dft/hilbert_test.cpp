// Analytic signals against the definition: the spectrum with positive frequencies doubled and negative ones cleared.
#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"
#include "zors/conversion.h"

namespace {

using namespace kit;

Points analytic(const std::vector<Zor32f>& x) {
  const std::size_t n = x.size();
  Points spectrum(n);
  for (std::size_t i = 0; i < n; ++i) spectrum[i] = static_cast<long double>(x[i]);
  if (n < 3) return spectrum;
  spectrum = dftModel(spectrum, false);
  for (std::size_t k = 1; k < n; ++k) spectrum[k] *= 2 * k < n ? 2 : 2 * k == n ? 1 : 0;
  spectrum = dftModel(spectrum, true);
  for (auto& v : spectrum) v /= static_cast<long double>(n);
  return spectrum;
}
std::vector<std::size_t> lengths() {
  std::vector<std::size_t> all;
  for (std::size_t n = 1; n <= 70; ++n) all.push_back(n);
  for (std::size_t n : std::initializer_list<std::size_t>{100, 101, 127, 128, 255, 256, 480, 1000}) all.push_back(n);
  return all;
}

TEST(Hilbert, TheSpectrumHasNoNegativeFrequencies) {
  Random random(71);
  for (std::size_t n : lengths()) {
    ZorsHilbertSpec_32f32fc* spec = nullptr;
    ASSERT_EQ(zorsHilbertInitAlloc_32f32fc(&spec, Zor32s(n), zorAlgHintNone), zorStatusOk);
    for (Edge edge : bothEdges) {
      const auto x = signal<Zor32f>(n, random);
      const Guarded<Zor32f> src(x, edge, n % 9);
      const Guarded<Zor32fc> dst(n, edge, n % 13);
      ASSERT_EQ(zorsHilbert_32f32fc(src.data(), dst.data(), spec), zorStatusOk);
      ASSERT_TRUE(dst.intact());
      const Points wanted = analytic(x);
      for (std::size_t i = 0; i < n; ++i) {
        ASSERT_NEAR(dst[i].re, x[i], 4e-6) << n;
        ASSERT_NEAR(dst[i].im, double(wanted[i].imag()), 4e-6) << n;
      }
    }
    EXPECT_EQ(zorsHilbertFree_32f32fc(spec), zorStatusOk);
  }
}
TEST(Hilbert, SixteenBitSamplesGoThroughTheSameSteps) {
  Random random(72);
  for (std::size_t n : lengths()) {
    ZorsHilbertSpec_32f32fc* floats = nullptr;
    ZorsHilbertSpec_16s32fc* toFloat = nullptr;
    ZorsHilbertSpec_16s16sc* spec = nullptr;
    ASSERT_EQ(zorsHilbertInitAlloc_32f32fc(&floats, Zor32s(n), zorAlgHintNone), zorStatusOk);
    ASSERT_EQ(zorsHilbertInitAlloc_16s32fc(&toFloat, Zor32s(n), zorAlgHintNone), zorStatusOk);
    ASSERT_EQ(zorsHilbertInitAlloc_16s16sc(&spec, Zor32s(n), zorAlgHintNone), zorStatusOk);
    const auto x = anyValues<Zor16s>(n, random);
    const std::vector<Zor32f> values(x.begin(), x.end());
    std::vector<Zor32fc> wanted(n);
    zorsHilbert_32f32fc(values.data(), wanted.data(), floats);
    const Guarded<Zor16s> src(x, Edge::end, 0);
    const Guarded<Zor32fc> dst(n, Edge::end, 0);
    const Guarded<Zor16sc> dst16(n, Edge::end, 0);
    ASSERT_EQ(zorsHilbert_16s32fc(src.data(), dst.data(), toFloat), zorStatusOk);
    for (std::size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(dst[i], wanted[i])) << n;
    for (Zor32s scaleFactor : {INT32_MIN, -2, 0, 1, 4, INT32_MAX}) {
      ASSERT_EQ(zorsHilbert_16s16sc_Sfs(src.data(), dst16.data(), spec, scaleFactor), zorStatusOk);
      std::vector<Zor16s> narrowed(2 * n);
      zorsConvert_32f16s_Sfs(&wanted[0].re, narrowed.data(), Zor32s(2 * n), zorRoundNearestEven, scaleFactor);
      for (std::size_t i = 0; n >= 3 && i < n; ++i) {
        ASSERT_EQ(dst16[i].re, narrowed[2 * i]) << n;
        ASSERT_EQ(dst16[i].im, narrowed[2 * i + 1]) << n;
      }
    }
    zorsHilbertFree_32f32fc(floats);
    EXPECT_EQ(zorsHilbertFree_16s32fc(toFloat), zorStatusOk);
    EXPECT_EQ(zorsHilbertFree_16s16sc(spec), zorStatusOk);
  }
}
TEST(Hilbert, OneOrTwoValuesAreCopiedAndCut) {
  for (Zor32s len : {1, 2}) {
    ZorsHilbertSpec_16s16sc* spec = nullptr;
    ASSERT_EQ(zorsHilbertInitAlloc_16s16sc(&spec, len, zorAlgHintNone), zorStatusOk);
    const auto cut = [&](Zor16s x, Zor32s scaleFactor) {
      const Zor16s src[2] = {x, x};
      Zor16sc dst[2] = {{9, 9}, {9, 9}};
      ServicesScope scope;
      EXPECT_EQ(zorsHilbert_16s16sc_Sfs(src, dst, spec, scaleFactor), zorStatusOk);
      EXPECT_EQ(scope->allocations, 0);
      EXPECT_EQ(dst[len - 1].im, 0);
      EXPECT_EQ(dst[0].re, dst[len - 1].re);
      return dst[0].re;
    };
    EXPECT_EQ(cut(3, 1), 1);
    EXPECT_EQ(cut(-3, 1), -1);
    EXPECT_EQ(cut(-3, 0), -3);
    EXPECT_EQ(cut(32767, -20), 32767);
    EXPECT_EQ(cut(-32768, INT32_MIN), -32768);
    EXPECT_EQ(cut(0, INT32_MIN), 0);
    EXPECT_EQ(cut(32767, INT32_MAX), 0);
    zorsHilbertFree_16s16sc(spec);
  }
}
template <class S, class Call>
void checkLifecycle(ZorStatus (*initAlloc)(S**, Zor32s, ZorHintAlgorithm), ZorStatus (*free)(S*), Call call,
                    Zor32u tag) {
  S* const untouched = reinterpret_cast<S*>(0x40);
  S* spec = untouched;
  EXPECT_EQ(initAlloc(nullptr, 0, zorAlgHintNone), zorStatusNullPointer);
  for (Zor32s len : {0, -1, INT32_MIN}) EXPECT_EQ(initAlloc(&spec, len, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(initAlloc(&spec, 1 << 30, zorAlgHintNone), zorStatusBadOrder);
  EXPECT_EQ(initAlloc(&spec, 387420489, zorAlgHintNone), zorStatusBadSize);
  for (Zor32s len : {1, 18, 53, 64, 101})
    failEachAllocation(
        [&] {
          spec = untouched;
          const ZorStatus status = initAlloc(&spec, len, zorAlgHintNone);
          if (status == zorStatusOk) {
            EXPECT_EQ(free(spec), zorStatusOk);
          } else {
            EXPECT_EQ(spec, untouched);
          }
          EXPECT_EQ(services().live, 0);
          return status;
        },
        [&](int n, ZorStatus status) { EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << len; });
  alignas(64) Zor32u foreign[64] = {tag};
  EXPECT_EQ(free(nullptr), zorStatusNullPointer);
  EXPECT_EQ(free(reinterpret_cast<S*>(foreign)), zorStatusBadContext);
  EXPECT_EQ(call(true, true, nullptr), zorStatusNullPointer);
  EXPECT_EQ(call(false, true, reinterpret_cast<S*>(foreign)), zorStatusNullPointer);
  EXPECT_EQ(call(true, false, reinterpret_cast<S*>(foreign)), zorStatusNullPointer);
  EXPECT_EQ(call(true, true, reinterpret_cast<S*>(foreign)), zorStatusBadContext);
  ASSERT_EQ(initAlloc(&spec, 53, zorAlgHintNone), zorStatusOk);
  failEachAllocation([&] { return call(true, true, spec); },
                     [&](int n, ZorStatus status) { EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory); });
  ServicesScope scope;
  EXPECT_EQ(call(true, true, spec), zorStatusOk);
  EXPECT_EQ(scope.leaked(), 0);
  EXPECT_EQ(free(spec), zorStatusOk);
}
TEST(Hilbert, EveryFaultIsToldAndNothingLeaks) {
  static Zor32f src[64];
  static Zor16s src16[64];
  static Zor32fc dst[64];
  static Zor16sc dst16[64];
  checkLifecycle(
      zorsHilbertInitAlloc_32f32fc, zorsHilbertFree_32f32fc,
      [](bool s, bool d, const ZorsHilbertSpec_32f32fc* spec) {
        return zorsHilbert_32f32fc(s ? src : nullptr, d ? dst : nullptr, spec);
      },
      0x434D4146);
  checkLifecycle(
      zorsHilbertInitAlloc_16s32fc, zorsHilbertFree_16s32fc,
      [](bool s, bool d, const ZorsHilbertSpec_16s32fc* spec) {
        return zorsHilbert_16s32fc(s ? src16 : nullptr, d ? dst : nullptr, spec);
      },
      0x434D4147);
  checkLifecycle(
      zorsHilbertInitAlloc_16s16sc, zorsHilbertFree_16s16sc,
      [](bool s, bool d, const ZorsHilbertSpec_16s16sc* spec) {
        return zorsHilbert_16s16sc_Sfs(s ? src16 : nullptr, d ? dst16 : nullptr, spec, 0);
      },
      0x434D4145);
}

}  // namespace
