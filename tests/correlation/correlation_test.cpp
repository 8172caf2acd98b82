// Auto- and cross-correlation of floats, plain, normalised and in a caller's buffer, against sums in extended
// precision.
#include <gtest/gtest.h>

#include "correlation/sum_model.h"
#include "kit/contract.h"
#include "kit/elementwise.h"
#include "kit/guarded.h"
#include "kit/services.h"
#include "zors/correlation.h"
#include "zors/fft.h"

namespace {

enum Norm { none = 0, biased = 0x100, unbiased = 0x200 };
enum Method { automatic = 0, directly = 1, byTransforms = 2 };

template <class T> struct Members {
  using Auto = ZorStatus (*)(const T*, Zor32s, T*, Zor32s);
  using Cross = ZorStatus (*)(const T*, Zor32s, const T*, Zor32s, T*, Zor32s, Zor32s);
  using AutoNorm = ZorStatus (*)(const T*, Zor32s, T*, Zor32s, Zor32s, Zor8u*);
  using CrossNorm = ZorStatus (*)(const T*, Zor32s, const T*, Zor32s, T*, Zor32s, Zor32s, Zor32s, Zor8u*);
  const char* type;
  Auto plain, normA, normB;
  Cross cross;
  AutoNorm autoNorm;
  CrossNorm crossNorm;
  int autoThreshold, crossThreshold, dataType;
};
template <class T> Members<T> members();
template <> Members<Zor32f> members() {
  return {"32f",
          zorsAutoCorr_32f,
          zorsAutoCorr_NormA_32f,
          zorsAutoCorr_NormB_32f,
          zorsCrossCorr_32f,
          zorsAutoCorrNorm_32f,
          zorsCrossCorrNorm_32f,
          1200,
          383,
          13};
}
template <> Members<Zor32fc> members() {
  return {"32fc",
          zorsAutoCorr_32fc,
          zorsAutoCorr_NormA_32fc,
          zorsAutoCorr_NormB_32fc,
          zorsCrossCorr_32fc,
          zorsAutoCorrNorm_32fc,
          zorsCrossCorrNorm_32fc,
          1200,
          255,
          14};
}
template <> Members<Zor64f> members() {
  return {"64f",
          zorsAutoCorr_64f,
          zorsAutoCorr_NormA_64f,
          zorsAutoCorr_NormB_64f,
          zorsCrossCorr_64f,
          zorsAutoCorrNorm_64f,
          zorsCrossCorrNorm_64f,
          128,
          511,
          19};
}
template <> Members<Zor64fc> members() {
  return {"64fc",
          zorsAutoCorr_64fc,
          zorsAutoCorr_NormA_64fc,
          zorsAutoCorr_NormB_64fc,
          zorsCrossCorr_64fc,
          zorsAutoCorrNorm_64fc,
          zorsCrossCorrNorm_64fc,
          128,
          511,
          20};
}

// One call in any of its forms; method below 0 is the form that allocates.
template <class T> struct AutoCase {
  int srcLen, dstLen;
  Norm norm;
  int method;
};
template <class T> struct CrossCase {
  int len1, len2, dstLen, lowLag;
  Norm norm;
  int method;
};

// A buffer of the size that the library asks for and not a byte more.
kit::Guarded<Zor8u> bufferOf(Zor32s size, kit::Edge edge = kit::Edge::end) {
  return kit::Guarded<Zor8u>(std::size_t(size), edge, 0);
}

template <class T> ZorStatus run(const AutoCase<T>& c, const T* src, T* dst) {
  const auto m = members<T>();
  if (c.method < 0) {
    const auto f = c.norm == none ? m.plain : c.norm == biased ? m.normA : m.normB;
    return f(src, c.srcLen, dst, c.dstLen);
  }
  Zor32s size = -1;
  EXPECT_EQ(zorsAutoCorrNormGetBufferSize(c.srcLen, c.dstLen, m.dataType, c.norm + c.method, &size), zorStatusOk);
  const auto buffer = bufferOf(size);
  const kit::ServicesScope services;
  const ZorStatus status = m.autoNorm(src, c.srcLen, dst, c.dstLen, c.norm + c.method, buffer.data());
  EXPECT_EQ(services->allocations, 0);
  EXPECT_TRUE(buffer.intact());
  return status;
}
template <class T> ZorStatus run(const CrossCase<T>& c, const T* src1, const T* src2, T* dst) {
  const auto m = members<T>();
  if (c.method < 0) return m.cross(src1, c.len1, src2, c.len2, dst, c.dstLen, c.lowLag);
  Zor32s size = -1;
  EXPECT_EQ(zorsCrossCorrNormGetBufferSize(c.len1, c.len2, c.dstLen, c.lowLag, m.dataType, c.norm + c.method, &size),
            zorStatusOk);
  const auto buffer = bufferOf(size);
  const kit::ServicesScope services;
  const ZorStatus status =
      m.crossNorm(src1, c.len1, src2, c.len2, dst, c.dstLen, c.lowLag, c.norm + c.method, buffer.data());
  EXPECT_EQ(services->allocations, 0);
  EXPECT_TRUE(buffer.intact());
  return status;
}

template <class T> void check(const AutoCase<T>& c, kit::Edge edge = kit::Edge::end) {
  kit::Random random{unsigned(c.srcLen + 7 * c.dstLen)};
  const auto source = kit::signal<T>(std::size_t(c.srcLen), random);
  const kit::Guarded<T> src(source, edge, 0), dst(std::size_t(c.dstLen), edge, 0);
  const std::string where = std::string(members<T>().type) + ", srcLen " + std::to_string(c.srcLen) + ", dstLen " +
                            std::to_string(c.dstLen) + ", norm " + std::to_string(c.norm) + ", method " +
                            std::to_string(c.method);
  ASSERT_EQ(run(c, src.data(), dst.data()), zorStatusOk) << where;
  ASSERT_TRUE(dst.intact()) << where;
  const long double energy = sums::norm(source) * sums::norm(source);
  const int step = c.dstLen > 300 ? 37 : 1;
  for (int k = 0; k < c.dstLen; k += k + step < c.dstLen || k == c.dstLen - 1 ? step : c.dstLen - 1 - k) {
    const T got = dst[std::size_t(k)];
    if (k >= c.srcLen) {
      ASSERT_TRUE(kit::sameBits(got, T{})) << where << " [" << k << "]";
      continue;
    }
    const auto sum = sums::correlation(source, source, k);
    const long double divisor = c.norm == none ? 1 : c.norm == biased ? c.srcLen : c.srcLen - k;
    ASSERT_EQ(sums::fault(got, sum, divisor, sums::roundings(sum) * energy), "") << where << " [" << k << "]";
  }
}

template <class T> void check(const CrossCase<T>& c, kit::Edge edge = kit::Edge::end) {
  kit::Random random{unsigned(c.len1 + 7 * c.len2 + 31 * c.dstLen)};
  const auto a = kit::signal<T>(std::size_t(c.len1), random), b = kit::signal<T>(std::size_t(c.len2), random);
  const kit::Guarded<T> src1(a, edge, 0), src2(b, edge, 0), dst(std::size_t(c.dstLen), edge, 0);
  const std::string where = std::string(members<T>().type) + ", len1 " + std::to_string(c.len1) + ", len2 " +
                            std::to_string(c.len2) + ", dstLen " + std::to_string(c.dstLen) + ", lowLag " +
                            std::to_string(c.lowLag) + ", norm " + std::to_string(c.norm) + ", method " +
                            std::to_string(c.method);
  ASSERT_EQ(run(c, src1.data(), src2.data(), dst.data()), zorStatusOk) << where;
  ASSERT_TRUE(dst.intact()) << where;
  const long double energy = sums::norm(a) * sums::norm(b);
  const int step = c.dstLen > 300 ? 41 : 1;
  for (int n = 0; n < c.dstLen; n += n + step < c.dstLen || n == c.dstLen - 1 ? step : c.dstLen - 1 - n) {
    const long lag = long{c.lowLag} + n;
    const T got = dst[std::size_t(n)];
    if (lag <= -c.len1 || lag >= c.len2) {
      ASSERT_TRUE(kit::sameBits(got, T{})) << where << " [" << n << "]";
      continue;
    }
    const auto sum = sums::correlation(a, b, lag);
    const long double divisor = c.norm == none ? 1 : c.norm == biased ? std::min(c.len1, c.len2) : sum.products;
    ASSERT_EQ(sums::fault(got, sum, divisor, sums::roundings(sum) * energy), "") << where << " [" << n << "]";
  }
}

// ---- Sweeps -------------------------------------------------------------------------------------

template <class T> class Correlation : public testing::Test {};
using Types = testing::Types<Zor32f, Zor32fc, Zor64f, Zor64fc>;
TYPED_TEST_SUITE(Correlation, Types);

TYPED_TEST(Correlation, OfAVectorWithItselfAtAllShortLengths) {
  for (int srcLen = 1; srcLen <= 40; ++srcLen)
    for (int dstLen : {1, 2, 3, 5, 8, 11, 16, 23, 33, 40, 47})
      for (int method : {-1, 1, 2})
        for (kit::Edge edge : kit::bothEdges)
          ASSERT_NO_FATAL_FAILURE(check(AutoCase<TypeParam>{srcLen, dstLen, none, method}, edge));
  for (int srcLen : {64, 100, 127, 129, 161, 300})
    for (int dstLen : {1, 10, 12, 24, 40, 64, 65, 100, 127, 310})
      for (Norm norm : {none, biased, unbiased})
        for (int method : {-1, 0, 1, 2})
          ASSERT_NO_FATAL_FAILURE(check(AutoCase<TypeParam>{srcLen, dstLen, norm, method}));
}

TYPED_TEST(Correlation, OfAVectorWithItselfOnBothSidesOfTheThreshold) {
  const int t = members<TypeParam>().autoThreshold;
  for (int lags : {t - 1, t})
    for (Norm norm : {none, biased, unbiased})
      for (int method : {-1, 0}) {
        ASSERT_NO_FATAL_FAILURE(check(AutoCase<TypeParam>{lags, lags + 9, norm, method}));
        ASSERT_NO_FATAL_FAILURE(check(AutoCase<TypeParam>{lags + 500, lags, norm, method}));
      }
  for (int srcLen : {1, 2, 3, 512, 513}) ASSERT_NO_FATAL_FAILURE(check(AutoCase<TypeParam>{srcLen, srcLen, none, 2}));
}

TYPED_TEST(Correlation, OfTwoVectorsAtAllShortLengths) {
  for (int len1 : {1, 2, 3, 7, 8, 9, 16, 17, 31})
    for (int len2 : {1, 2, 4, 8, 15, 16, 33, 40})
      for (int lowLag : {-len1 - 3, -len1, 1 - len1, -len1 / 2, 0, 1, len2 / 2, len2 - 1, len2, len2 + 2})
        for (int dstLen : {1, 2, 9, 20, 90})
          for (int method : {-1, 1, 2})
            ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, dstLen, lowLag, none, method},
                                          (lowLag & 1) != 0 ? kit::Edge::begin : kit::Edge::end));
}

TYPED_TEST(Correlation, OfTwoVectorsByEveryMethodAndNormalisation) {
  const int lengths[][2] = {{100, 100}, {64, 300}, {300, 64}, {100, 1000}, {1000, 100}, {150, 449}, {150, 450},
                            {450, 150}, {1, 500},  {500, 1},  {65, 64},    {129, 128},  {33, 700},  {700, 33}};
  for (const auto& [len1, len2] : lengths)
    for (Norm norm : {none, biased, unbiased})
      for (int method : {0, 1, 2}) {
        const int all = len1 + len2 - 1, shorter = std::min(len1, len2);
        ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, all, 1 - len1, norm, method}));
        ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, all + 20, 1 - len1 - 10, norm, method}));
        ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, 50, shorter - len1 + 1, norm, method}));
        ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, 70, 3, norm, method}));
        ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, all - shorter, shorter - len1, norm, method}));
      }
}

TYPED_TEST(Correlation, OfLongVectorsWithTheirHeap) {
  const int lengths[][2] = {{3000, 2000}, {2000, 3000}, {700, 5000}, {5000, 700}, {512, 513}, {513, 512}, {1025, 1024}};
  for (const auto& [len1, len2] : lengths) {
    ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, len1 + len2 + 5, -len1 - 2, none, -1}));
    ASSERT_NO_FATAL_FAILURE(check(CrossCase<TypeParam>{len1, len2, len1 + len2, 1, none, -1}));
  }
}

// ---- Which way ----------------------------------------------------------------------------------

template <class T> bool allocates(int len1, int len2, int dstLen, int lowLag) {
  const std::vector<T> a(std::size_t(len1), T{}), b(std::size_t(len2), T{});
  std::vector<T> dst(static_cast<std::size_t>(dstLen));
  const kit::ServicesScope services;
  EXPECT_EQ(members<T>().cross(a.data(), len1, b.data(), len2, dst.data(), dstLen, lowLag), zorStatusOk);
  EXPECT_EQ(services.leaked(), 0);
  return services->allocations > 0;
}

TYPED_TEST(Correlation, GoesByTransformsAboveItsThreshold) {
  const auto m = members<TypeParam>();
  const int t = m.crossThreshold;
  // The quantity is len * count / len for equal lengths: the count of outputs that have products.
  EXPECT_FALSE(allocates<TypeParam>(1000, 1000, t, 0));
  EXPECT_TRUE(allocates<TypeParam>(1000, 1000, t + 1, 0));
  EXPECT_FALSE(allocates<TypeParam>(1000, 1000, t + 1, 1000 - t)) << "only the outputs that have products count";
  EXPECT_FALSE(allocates<TypeParam>(10, 1000, 1009, -9));
  EXPECT_FALSE(allocates<TypeParam>(1000, 1000, 5000, 1000)) << "no output has products";
  EXPECT_FALSE(allocates<TypeParam>(1000, 1000, 500, -1500));
  const auto autoAllocates = [&](int srcLen, int dstLen) {
    const std::vector<TypeParam> src(std::size_t(srcLen), TypeParam{});
    std::vector<TypeParam> dst(static_cast<std::size_t>(dstLen));
    const kit::ServicesScope services;
    EXPECT_EQ(m.plain(src.data(), srcLen, dst.data(), dstLen), zorStatusOk);
    EXPECT_EQ(services.leaked(), 0);
    return services->allocations > 0;
  };
  EXPECT_FALSE(autoAllocates(5000, 10));
  EXPECT_FALSE(autoAllocates(5000, m.autoThreshold - 1));
  EXPECT_TRUE(autoAllocates(5000, m.autoThreshold));
  EXPECT_FALSE(autoAllocates(m.autoThreshold - 1, 5000));
}

TYPED_TEST(Correlation, AtLagsOutOfEveryRangeIsZero) {
  const std::vector<TypeParam> a(20, TypeParam{}), b(30, TypeParam{});
  for (int lowLag : {INT_MIN, INT_MIN + 1, -1'000'000, -40, 30, 31, 1'000'000, INT_MAX - 5, INT_MAX}) {
    std::vector<TypeParam> dst(20);
    std::memset(static_cast<void*>(dst.data()), 0x55, dst.size() * sizeof(TypeParam));
    EXPECT_EQ(members<TypeParam>().cross(a.data(), 20, b.data(), 30, dst.data(), 20, lowLag), zorStatusOk);
    for (const auto& x : dst) EXPECT_TRUE(kit::sameBits(x, TypeParam{})) << lowLag;
  }
}

TYPED_TEST(Correlation, AnInfinityReachesOnlyTheSumsThatItIsPartOf) {
  using P = typename sums::PartType<TypeParam>::type;
  for (int len1 : {5, 40, 100})
    for (int at : {0, 2, len1 - 1}) {
      std::vector<TypeParam> a(std::size_t(len1), TypeParam{}), b(60, TypeParam{});
      a[std::size_t(at)] = [] {
        if constexpr (kit::ComplexPair<TypeParam>)
          return TypeParam{std::numeric_limits<P>::infinity(), 0};
        else
          return std::numeric_limits<P>::infinity();
      }();
      std::vector<TypeParam> dst(std::size_t(len1) + 59);
      ASSERT_EQ(members<TypeParam>().cross(a.data(), len1, b.data(), 60, dst.data(), Zor32s(dst.size()), 1 - len1),
                zorStatusOk);
      for (std::size_t n = 0; n < dst.size(); ++n) {  // infinity times zero, where element `at` has a partner
        const long partner = at + 1 - len1 + long(n);
        const bool met = partner >= 0 && partner < 60;
        ASSERT_EQ(std::isnan(sums::wide(dst[n]).real()), met) << len1 << " " << at << " " << n;
      }
    }
}

// ---- Failures -----------------------------------------------------------------------------------

TYPED_TEST(Correlation, ReportsEveryRefusedAllocationAndWritesNoSums) {
  const auto m = members<TypeParam>();
  const std::vector<TypeParam> a(1500, TypeParam{}), b(6000, TypeParam{});
  std::vector<TypeParam> dst(1600);
  const auto fill = [&] { std::memset(static_cast<void*>(dst.data()), 0x55, dst.size() * sizeof(TypeParam)); };
  const auto isFilled = [&](std::size_t from, std::size_t to) {
    const auto* bytes = reinterpret_cast<const char*>(dst.data());
    return std::all_of(bytes + from * sizeof(TypeParam), bytes + to * sizeof(TypeParam),
                       [](char c) { return c == 0x55; });
  };
  for (auto f : {m.plain, m.normA, m.normB}) {
    const int made = kit::failEachAllocation(
        [&] {
          fill();
          return f(a.data(), 1500, dst.data(), 1600);
        },
        [&](int n, ZorStatus status) {
          EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
          EXPECT_EQ(kit::services().live, 0);
          if (n >= 0) {
            EXPECT_TRUE(isFilled(0, 1500));
          }
        });
    EXPECT_GE(made, 2);
  }
  for (const auto& [len1, len2] : {std::pair{1500, 1500}, std::pair{1500, 6000}, std::pair{6000, 1500}}) {
    const auto* one = len1 == 6000 ? b.data() : a.data();
    const auto* two = len2 == 6000 ? b.data() : a.data();
    kit::failEachAllocation(
        [&, len1 = len1, len2 = len2] {
          fill();
          return m.cross(one, len1, two, len2, dst.data(), 1600, -100);
        },
        [&](int n, ZorStatus status) {
          EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory);
          EXPECT_EQ(kit::services().live, 0);
          if (n >= 0) {
            EXPECT_TRUE(isFilled(0, 1600));
          }
        });
  }
}

TYPED_TEST(Correlation, ChecksPointersThenLengthsThenTheSelector) {
  const auto m = members<TypeParam>();
  std::vector<TypeParam> a(8, TypeParam{}), b(8, TypeParam{}), d(8, TypeParam{});
  std::vector<Zor8u> buffer(4096);
  for (auto f : {m.plain, m.normA, m.normB}) {
    kit::Contract contract(f, a.data(), 8, d.data(), 8);
    contract.template null<0>().template null<2>();
    contract.template bad<1>({0, -1, INT_MIN}, zorStatusBadSize).template bad<3>({0, INT_MIN}, zorStatusBadSize);
    contract.untouched(d).verify(m.type);
  }
  kit::Contract cross(m.cross, a.data(), 8, b.data(), 8, d.data(), 8, 0);
  cross.template null<0>().template null<2>().template null<4>();
  cross.template bad<1>({0, -1, INT_MIN}, zorStatusBadSize).template bad<3>({0, INT_MIN}, zorStatusBadSize);
  cross.template bad<5>({0, INT_MIN}, zorStatusBadSize);
  cross.untouched(d).verify(m.type);
  kit::Contract autoNorm(m.autoNorm, a.data(), 8, d.data(), 8, 0, buffer.data());
  autoNorm.template null<0>().template null<2>().template null<5>();
  autoNorm.template bad<1>({0, -1}, zorStatusBadSize).template bad<3>({0, -1}, zorStatusBadSize);
  autoNorm.template bad<4>({3, 0x300, 0xFF, 0x400, 0x8000, 0x203, -1}, zorStatusBadAlgorithmType);
  autoNorm.untouched(d).verify(m.type);
  kit::Contract crossNorm(m.crossNorm, a.data(), 8, b.data(), 8, d.data(), 8, 0, 0, buffer.data());
  crossNorm.template null<0>().template null<2>().template null<4>().template null<8>();
  crossNorm.template bad<1>({0, -1}, zorStatusBadSize).template bad<3>({0, -1}, zorStatusBadSize);
  crossNorm.template bad<5>({0, -1}, zorStatusBadSize)
      .template bad<7>({3, 0x300, 0xFF, 0x400, 0x203, -1}, zorStatusBadAlgorithmType);
  crossNorm.untouched(d).verify(m.type);
  // The upper half of the selector has no meaning.
  EXPECT_EQ(m.autoNorm(a.data(), 8, d.data(), 8, 0x7FFF0101, buffer.data()), zorStatusOk);
}

// ---- Buffer sizes -------------------------------------------------------------------------------

TEST(CorrNormGetBufferSize, ChecksItsArgumentsInOrder) {
  Zor32s size = 77;
  kit::Contract autoSize(zorsAutoCorrNormGetBufferSize, 8, 8, 13, 0, &size);
  autoSize.null<4>().bad<0>({0, -1}, zorStatusBadSize).bad<1>({0, -1}, zorStatusBadSize);
  autoSize.bad<3>({3, 0x300, -1}, zorStatusBadAlgorithmType).untouched(&size, sizeof size);
  autoSize.verify("zorsAutoCorrNormGetBufferSize");
  kit::Contract crossSize(zorsCrossCorrNormGetBufferSize, 8, 8, 8, 0, 13, 0, &size);
  crossSize.null<6>().bad<0>({0, -1}, zorStatusBadSize).bad<1>({0, -1}, zorStatusBadSize);
  crossSize.bad<2>({0, -1}, zorStatusBadSize).bad<5>({3, 0x300, -1}, zorStatusBadAlgorithmType);
  crossSize.untouched(&size, sizeof size).verify("zorsCrossCorrNormGetBufferSize");
  for (Zor32s dataType : {15, 0, -1, 12, 16, 18, 21}) {
    size = 77;
    EXPECT_EQ(zorsAutoCorrNormGetBufferSize(8, 8, dataType, 1, &size), zorStatusBadDataType);
    EXPECT_EQ(size, 0);
    size = 77;
    EXPECT_EQ(zorsCrossCorrNormGetBufferSize(8, 8, 8, 0, dataType, 2, &size), zorStatusBadDataType);
    EXPECT_EQ(size, 0);
  }
  EXPECT_EQ(zorsAutoCorrNormGetBufferSize(8, 8, 15, 3, &size), zorStatusBadAlgorithmType);
}

TEST(CorrNormGetBufferSize, Is64ForDirectSumsOfAnyLength) {
  for (Zor32s length : {1, 1000, INT_MAX})
    for (Zor32s dataType : {13, 14, 19, 20})
      for (Zor32s norm : {0, 0x100, 0x200}) {
        Zor32s size = 0;
        EXPECT_EQ(zorsAutoCorrNormGetBufferSize(length, length, dataType, 1 + norm, &size), zorStatusOk);
        EXPECT_EQ(size, 64);
        size = 0;
        EXPECT_EQ(zorsCrossCorrNormGetBufferSize(length, length, length, -length, dataType, 1 + norm, &size),
                  zorStatusOk);
        EXPECT_EQ(size, 64);
      }
  Zor32s size = 0;
  EXPECT_EQ(zorsCrossCorrNormGetBufferSize(100, 100, 50, 100, 13, 2, &size), zorStatusOk);
  EXPECT_EQ(size, 64) << "no output has products";
}

Zor32s up64(Zor32s bytes) { return (bytes + 63) / 64 * 64; }
TEST(CorrNormGetBufferSize, IsTheTransformsPiecesAndTheData) {
  for (int srcLen : {1, 2, 3, 100, 1024, 1025, 5000}) {
    int order = 1;
    while ((1 << order) < 2 * srcLen) ++order;
    Zor32s spec, init, work, size = 0;
    ASSERT_EQ(zorsFFTGetSize_R_32f(order, 2, zorAlgHintNone, &spec, &init, &work), zorStatusOk);
    ASSERT_EQ(zorsAutoCorrNormGetBufferSize(srcLen, 5, 13, 2, &size), zorStatusOk);
    EXPECT_EQ(size, up64(spec) + up64(init) + up64(work) + up64(4 << order) + 64) << srcLen;
    ASSERT_EQ(zorsFFTGetSize_R_64f(order, 2, zorAlgHintNone, &spec, &init, &work), zorStatusOk);
    ASSERT_EQ(zorsAutoCorrNormGetBufferSize(srcLen, 5, 19, 0x202, &size), zorStatusOk);
    EXPECT_EQ(size, up64(spec) + up64(init) + up64(work) + up64(8 << order) + 64) << srcLen;
  }
}

TEST(CorrNormGetBufferSize, TellsOfSizesBeyond32Bits) {
  Zor32s size = 77;
  EXPECT_NE(zorsAutoCorrNormGetBufferSize(INT_MAX, INT_MAX, 20, 2, &size), zorStatusOk);
  EXPECT_NE(zorsCrossCorrNormGetBufferSize(INT_MAX, INT_MAX, INT_MAX, 0, 20, 2, &size), zorStatusOk);
  EXPECT_EQ(size, 77);
}

// ---- Cases --------------------------------------------------------------------------------------

TEST(CrossCorr, FirstLagWithAProductIsTheLastElementTimesTheFirst) {
  const std::vector<Zor32fc> a = {{1, 1}, {2, -1}, {3, 5}}, b = {{7, -2}, {1, 0}};
  std::vector<Zor32fc> d(2, {9, 9});
  ASSERT_EQ(zorsCrossCorr_32fc(a.data(), 3, b.data(), 2, d.data(), 2, -3), zorStatusOk);
  EXPECT_TRUE(kit::sameBits(d[0], Zor32fc{0, 0}));
  EXPECT_EQ(d[1].re, 3 * 7 + 5 * -2);  // (3 - 5i)(7 - 2i)
  EXPECT_EQ(d[1].im, 3 * -2 - 5 * 7);
}

TEST(AutoCorrNormB, DividesTheLastLagByOne) {
  kit::Random random(2);
  const auto x = kit::signal<Zor32f>(50, random);
  std::vector<Zor32f> plain(50), divided(50);
  zorsAutoCorr_32f(x.data(), 50, plain.data(), 50);
  zorsAutoCorr_NormB_32f(x.data(), 50, divided.data(), 50);
  EXPECT_EQ(plain[49], divided[49]);
  for (std::size_t k = 0; k < 50; ++k) EXPECT_EQ(divided[k], plain[k] / float(50 - k));
}

TEST(AutoCorrNormA, MultipliesByTheInverseOfTheLength) {
  kit::Random random(2);
  const auto x = kit::signal<Zor64fc>(49, random);
  std::vector<Zor64fc> plain(60), divided(60);
  zorsAutoCorr_64fc(x.data(), 49, plain.data(), 60);
  zorsAutoCorr_NormA_64fc(x.data(), 49, divided.data(), 60);
  for (std::size_t k = 0; k < 60; ++k) {
    EXPECT_EQ(divided[k].re, plain[k].re * (1 / 49.0));
    EXPECT_EQ(divided[k].im, plain[k].im * (1 / 49.0));
  }
}

}  // namespace
