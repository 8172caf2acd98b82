// Specifications: sizes, places, checks in their order, lifecycles, and their use by many threads.
#include <thread>

#include "fft/fft_kinds.h"
#include "kit/contract.h"
#include "zors/fft.h"

namespace {

using kinds::Kind;

struct Sizes {
  long spec, init, work;
};
bool operator==(const Sizes& a, const Sizes& b) { return a.spec == b.spec && a.init == b.init && a.work == b.work; }

long down64(long x) { return x / 64 * 64; }
long power(int n) { return 1L << n; }
long reversal(int order) { return down64(power(order) + 67); }
long sines(int order, bool wide) {
  return order < 11 ? 0 : (wide ? down64(2 * power(order) + 71) : reversal(order)) + 64;
}

// The published formulas.
Sizes blocked(int order, bool wide) {
  const long e = wide ? 16 : 8;
  const int threshold = wide ? 18 : 19, bits = order < (wide ? 22 : 23) ? 4 : 8,
            c = wide ? (bits == 4 ? 9 : 13) : (bits == 4 ? 10 : 14);
  Sizes s = {0, 0, 0};
  const int m = order - bits;
  if (m < threshold)
    s = {down64(e * power(m) + e + 63), 0, down64(e * power(m) + 63)};
  else
    s = blocked(m, wide);
  return {s.spec + e * power(order - 1), 0, std::max(s.work, e * power(c))};
}
Sizes complexSizes(int order, bool wide) {
  const long e = wide ? 16 : 8;
  const int threshold = wide ? 18 : 19;
  if (order <= 6) return {208, 0, 0};
  if (order < threshold)
    return {down64(e * power(order) + e + 63) + reversal(order) + 256, sines(order, wide),
            down64(e * power(order) + 63) + 64};
  const Sizes s = blocked(order, wide);
  const long spec = s.spec + (wide ? 4 * power(order - 10) + 1088 : 4 * power(order - 12) + 4160),
             work = std::max(s.work, wide ? 32768L : 65536L);
  return {spec + 256, sines(order, wide), work + 64};
}
Sizes realSizes(int order, bool wide) {
  const long e = wide ? 16 : 8;
  if (order <= 4) return {208, 0, 0};
  const long factors = order < (wide ? 17 : 19) ? down64(e * power(order) / 4 + 63)
                       : wide                   ? down64(16 * power(order - 11) + 8255)
                                                : down64(8 * power(order - 12) + 8255);
  if (order <= 7) return {2 * factors + 256, 0, 0};
  const Sizes s = complexSizes(order - 1, wide);
  return {s.spec + 2 * factors, sines(order, wide), s.work};
}

TEST(FFTSpec, SizesFollowTheFormulasAtEveryOrder) {
  kinds::forEachKind([](const auto& kind) {
    const bool wide = sizeof(typename std::remove_cvref_t<decltype(kind)>::Element) == 8;
    for (int order = 0; order <= kind.largestOrder; ++order) {
      Zor32s spec = -1, init = -1, work = -1;
      ASSERT_EQ(kind.getSize(order, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work), zorStatusOk);
      EXPECT_EQ((Sizes{spec, init, work}), (kind.real ? realSizes(order, wide) : complexSizes(order, wide)))
          << kind.name << " order " << order;
    }
  });
}

TEST(FFTSpec, SomeSizesByHand) {
  Zor32s spec = 0, init = 0, work = 0;
  ASSERT_EQ(zorsFFTGetSize_C_32fc(6, 8, 0, &spec, &init, &work), zorStatusOk);
  EXPECT_EQ((Sizes{spec, init, work}), (Sizes{208, 0, 0}));  // no tables, no buffers
  ASSERT_EQ(zorsFFTGetSize_C_32fc(7, 8, 0, &spec, &init, &work), zorStatusOk);
  EXPECT_EQ((Sizes{spec, init, work}), (Sizes{1024 + 64 + 192 + 256, 0, 1024 + 64}));  // a work buffer, no init buffer
  ASSERT_EQ(zorsFFTGetSize_C_32fc(11, 8, 0, &spec, &init, &work), zorStatusOk);
  EXPECT_EQ(init, 2112 + 64);  // the first order that computes its sines
  ASSERT_EQ(zorsFFTGetSize_R_32f(5, 8, 0, &spec, &init, &work), zorStatusOk);
  EXPECT_EQ((Sizes{spec, init, work}), (Sizes{2 * 64 + 256, 0, 0}));
}

TEST(FFTSpec, GetSizeChecksTheOrderThenPointersThenTheFlagThenTheKindsOwnLimit) {
  kinds::forEachKind([](const auto& kind) {
    Zor32s a = 7, b = 7, c = 7;
    const auto status = [&](int order, int flag, bool pointers = true) {
      return kind.getSize(order, flag, 5, pointers ? &a : nullptr, &b, &c);
    };
    for (int order : {-1, 31, INT32_MIN, INT32_MAX}) {
      EXPECT_EQ(status(order, 0, false), zorStatusBadOrder) << kind.name;
      EXPECT_EQ(status(order, 8), zorStatusBadOrder) << kind.name;
    }
    EXPECT_EQ(status(30, 3, false), zorStatusNullPointer) << kind.name;
    EXPECT_EQ(status(30, 3), zorStatusBadFlag) << kind.name;
    EXPECT_EQ(status(30, 8), zorStatusBadOrder) << kind.name;
    EXPECT_EQ(status(kind.largestOrder + 1, 3), zorStatusBadFlag) << kind.name;
    EXPECT_EQ(status(kind.largestOrder + 1, 1), zorStatusBadOrder) << kind.name;
    for (int flag : {0, 3, 5, 6, 7, 9, 16, -1}) EXPECT_EQ(status(4, flag), zorStatusBadFlag) << kind.name;
    EXPECT_EQ(kind.getSize(4, 8, 0, &a, nullptr, &c), zorStatusNullPointer) << kind.name;
    EXPECT_EQ(kind.getSize(4, 8, 0, &a, &b, nullptr), zorStatusNullPointer) << kind.name;
    EXPECT_EQ(a == 7 && b == 7 && c == 7, true) << kind.name << ": wrote";
  });
}

TEST(FFTSpec, InitChecksInOrderAndLeavesSpecOutAlone) {
  kinds::forEachKind([](const auto& kind) {
    using Spec = typename std::remove_cvref_t<decltype(kind)>::Spec;
    alignas(64) Zor8u block[4096];
    std::memset(block, 0xAA, sizeof block);
    Spec* const untouched = reinterpret_cast<Spec*>(block + 1);
    Spec* out = untouched;
    EXPECT_EQ(kind.init(nullptr, -1, 0, 0, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.init(&out, -1, 0, 0, nullptr, nullptr), zorStatusBadOrder);
    EXPECT_EQ(kind.init(&out, kind.largestOrder + 1, 0, 0, nullptr, nullptr), zorStatusBadOrder);
    EXPECT_EQ(kind.init(&out, 4, 0, 0, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(block[0], 0xAA) << kind.name;
    EXPECT_EQ(kind.init(&out, 4, 0, 0, block, nullptr), zorStatusBadFlag);
    EXPECT_EQ(block[0] | block[1] | block[2] | block[3], 0) << kind.name << ": the tag of a failed Init is 0";
    EXPECT_EQ(kind.init(&out, 11, 8, 0, block, nullptr), zorStatusNullPointer);  // the sines need a buffer
    EXPECT_EQ(block[0] | block[1] | block[2] | block[3], 0) << kind.name;
    EXPECT_EQ(out, untouched) << kind.name;
    EXPECT_EQ(kind.init(&out, 6, 8, 12345, block, nullptr), zorStatusOk);  // a hint is never judged
    EXPECT_EQ(static_cast<void*>(out), block) << kind.name;
    EXPECT_EQ(kind.init(&out, 6, 8, 0, block + 1, nullptr), zorStatusOk);
    EXPECT_EQ(static_cast<void*>(out), block + 64) << kind.name << ": the specification lies on a line";
  });
}

TEST(FFTSpec, FreeAndGetBufSizeTestTheTag) {
  kinds::forEachKind([](const auto& kind) {
    using Spec = typename std::remove_cvref_t<decltype(kind)>::Spec;
    Spec* spec = nullptr;
    Zor32s size = -1, specSize = 0, initSize = 0, workSize = 0;
    ASSERT_EQ(kind.initAlloc(&spec, 6, 8, 0), zorStatusOk);
    EXPECT_EQ(kind.getBufSize(nullptr, &size), zorStatusNullPointer);
    EXPECT_EQ(kind.getBufSize(spec, nullptr), zorStatusNullPointer);
    ASSERT_EQ(kind.getBufSize(spec, &size), zorStatusOk);
    ASSERT_EQ(kind.getSize(6, 8, 0, &specSize, &initSize, &workSize), zorStatusOk);
    EXPECT_EQ(size, 0) << kind.name << ": none needed, so 0 and not 64";
    EXPECT_EQ(kind.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(kind.free(spec), zorStatusOk);

    ASSERT_EQ(kind.initAlloc(&spec, 12, 8, 0), zorStatusOk);
    ASSERT_EQ(kind.getBufSize(spec, &size), zorStatusOk);
    ASSERT_EQ(kind.getSize(12, 8, 0, &specSize, &initSize, &workSize), zorStatusOk);
    EXPECT_EQ(size, workSize) << kind.name;
    auto& tag = *reinterpret_cast<Zor32u*>(spec);
    const Zor32u kept = tag;
    for (Zor32u other = 0; other < 12; ++other) {
      if (other == kept) continue;
      tag = other;
      size = -1;
      EXPECT_EQ(kind.getBufSize(spec, &size), zorStatusBadContext) << kind.name << " tag " << other;
      EXPECT_EQ(size, -1);
      EXPECT_EQ(kind.free(spec), zorStatusBadContext) << kind.name << " tag " << other;
    }
    tag = kept;
    EXPECT_EQ(kind.free(spec), zorStatusOk);
  });
}

TEST(FFTSpec, TagsAreThoseOfTheKinds) {
  Zor32u wanted = 4;
  const auto tagOf = [](const auto& kind) {
    typename std::remove_cvref_t<decltype(kind)>::Spec* spec = nullptr;
    EXPECT_EQ(kind.initAlloc(&spec, 3, 8, 0), zorStatusOk);
    const Zor32u tag = *reinterpret_cast<Zor32u*>(spec);
    EXPECT_EQ(kind.free(spec), zorStatusOk);
    return tag;
  };
  kinds::forEachKind([&](const auto& kind) { EXPECT_EQ(tagOf(kind), wanted++) << kind.name; });
}

TEST(FFTSpec, LivesAsAllObjectsDo) {
  const auto interleaved = [](auto transform) {
    return [=](auto* x, auto* y, auto* spec, Zor8u* work) {
      using Z = std::conditional_t<sizeof *x == 4, Zor32fc, Zor64fc>;
      return transform(reinterpret_cast<const Z*>(x), reinterpret_cast<Z*>(y), spec, work);
    };
  };
  for (int order : {0, 3, 6, 7, 8, 11, 12}) {
    const auto split = [=](auto transform) {
      return [=](auto* x, auto* y, auto* spec, Zor8u* work) {
        const auto n = std::ptrdiff_t{1} << order;
        return transform(x, x + n, y, y + n, spec, work);
      };
    };
    kit::checkObject(kinds::asObject<Zor32f>(kinds::c32fc, order, 8, 0, interleaved(zorsFFTFwd_CToC_32fc)));
    kit::checkObject(kinds::asObject<Zor64f>(kinds::c64fc, order, 8, 0, interleaved(zorsFFTFwd_CToC_64fc)));
    kit::checkObject(kinds::asObject<Zor32f>(kinds::c32f, order, 8, 0, split(zorsFFTFwd_CToC_32f)));
    kit::checkObject(kinds::asObject<Zor64f>(kinds::c64f, order, 8, 0, split(zorsFFTFwd_CToC_64f)));
    kit::checkObject(kinds::asObject<Zor32f>(kinds::r32f, order, 8, 0, zorsFFTFwd_RToPerm_32f));
    kit::checkObject(kinds::asObject<Zor64f>(kinds::r64f, order, 8, 0, zorsFFTFwd_RToPerm_64f));
  }
}

TEST(FFTSpec, InitAllocChecksInOrder) {
  kinds::forEachKind([](const auto& kind) {
    using Spec = typename std::remove_cvref_t<decltype(kind)>::Spec;
    Spec* spec = nullptr;
    EXPECT_EQ(kind.initAlloc(nullptr, 50, 0, 0), zorStatusNullPointer);
    EXPECT_EQ(kind.initAlloc(&spec, 31, 0, 0), zorStatusBadOrder);
    EXPECT_EQ(kind.initAlloc(&spec, kind.largestOrder + 1, 0, 0), zorStatusBadFlag);
    EXPECT_EQ(kind.initAlloc(&spec, kind.largestOrder + 1, 8, 0), zorStatusBadOrder);
  });
}

// ---- Process functions: their checks ------------------------------------------------------------

TEST(FFTProcess, ChecksTheSpecificationThenItsKindThenTheData) {
  kinds::contracts(kinds::c32fc, zorsFFTFwd_CToC_32fc, zorsFFTInv_CToC_32fc, zorsFFTFwd_CToC_32fc_I,
                   zorsFFTInv_CToC_32fc_I);
  kinds::contracts(kinds::c64fc, zorsFFTFwd_CToC_64fc, zorsFFTInv_CToC_64fc, zorsFFTFwd_CToC_64fc_I,
                   zorsFFTInv_CToC_64fc_I);
  kinds::contracts(kinds::c32f, zorsFFTFwd_CToC_32f, zorsFFTInv_CToC_32f, zorsFFTFwd_CToC_32f_I, zorsFFTInv_CToC_32f_I);
  kinds::contracts(kinds::c64f, zorsFFTFwd_CToC_64f, zorsFFTInv_CToC_64f, zorsFFTFwd_CToC_64f_I, zorsFFTInv_CToC_64f_I);
  kinds::contracts(kinds::r32f, zorsFFTFwd_RToPerm_32f, zorsFFTFwd_RToPack_32f, zorsFFTFwd_RToCCS_32f,
                   zorsFFTInv_PermToR_32f, zorsFFTInv_PackToR_32f, zorsFFTInv_CCSToR_32f, zorsFFTFwd_RToPerm_32f_I,
                   zorsFFTFwd_RToPack_32f_I, zorsFFTFwd_RToCCS_32f_I, zorsFFTInv_PermToR_32f_I,
                   zorsFFTInv_PackToR_32f_I, zorsFFTInv_CCSToR_32f_I);
  kinds::contracts(kinds::r64f, zorsFFTFwd_RToPerm_64f, zorsFFTFwd_RToPack_64f, zorsFFTFwd_RToCCS_64f,
                   zorsFFTInv_PermToR_64f, zorsFFTInv_PackToR_64f, zorsFFTInv_CCSToR_64f, zorsFFTFwd_RToPerm_64f_I,
                   zorsFFTFwd_RToPack_64f_I, zorsFFTFwd_RToCCS_64f_I, zorsFFTInv_PermToR_64f_I,
                   zorsFFTInv_PackToR_64f_I, zorsFFTInv_CCSToR_64f_I);
}

TEST(FFTProcess, EightThreadsOnOneSpecificationGetTheBitsOfOne) {
  for (int order : {6, 11, 19}) {
    ZorsFFTSpec_C_32fc* spec = nullptr;
    ASSERT_EQ(zorsFFTInitAlloc_C_32fc(&spec, order, 8, 0), zorStatusOk);
    Zor32s size = 0;
    ASSERT_EQ(zorsFFTGetBufSize_C_32fc(spec, &size), zorStatusOk);
    kit::Random random(5);
    const auto x = kit::signal<Zor32fc>(std::size_t{1} << order, random);
    std::vector<Zor32fc> wanted(x.size());
    ASSERT_EQ(zorsFFTFwd_CToC_32fc(x.data(), wanted.data(), spec, nullptr), zorStatusOk);
    std::vector<std::thread> threads;
    std::vector<std::vector<Zor32fc>> results(8, std::vector<Zor32fc>(x.size()));
    for (auto& result : results)
      threads.emplace_back([&] {
        std::vector<Zor8u> buffer(static_cast<std::size_t>(size));
        for (int repeat = 0; repeat < (order < 12 ? 50 : 1); ++repeat)
          EXPECT_EQ(zorsFFTFwd_CToC_32fc(x.data(), result.data(), spec, buffer.data()), zorStatusOk);
      });
    for (auto& thread : threads) thread.join();
    for (auto& result : results) EXPECT_EQ(kit::firstDifference<Zor32fc>(result, wanted), "");
    EXPECT_EQ(zorsFFTFree_C_32fc(spec), zorStatusOk);
  }
}

}  // namespace
