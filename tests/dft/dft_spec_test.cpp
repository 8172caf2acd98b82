// Specifications of the transforms of any length: statuses in their order, sizes, memory.
#include <algorithm>

#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"

namespace {

using namespace kit;

using GetSize = ZorStatus (*)(Zor32s, Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*);
using Init = ZorStatus (*)(Zor32s, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*);
// The functions of a kind, by pointers without its type.
struct Kind {
  const char* name;
  GetSize getSize;
  Init init;
  std::function<ZorStatus(void**, Zor32s, Zor32s)> initAlloc;
  std::function<ZorStatus(void*)> free;
  std::function<ZorStatus(const void*, Zor32s*)> getBufSize;
  std::function<ZorStatus(const void*, const void*, void*, Zor8u*)> transform;  // one array each way
  Zor32u tag;
  bool real;
  int part;
};
template <class S>
Kind kind(const char* name, GetSize getSize, Init init, ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm),
          ZorStatus (*free)(S*), ZorStatus (*getBufSize)(const S*, Zor32s*),
          std::function<ZorStatus(const S*, const void*, void*, Zor8u*)> transform, Zor32u tag, bool real, int part) {
  return {name,
          getSize,
          init,
          [=](void** out, Zor32s len, Zor32s flag) {
            return initAlloc(reinterpret_cast<S**>(out), len, flag, zorAlgHintNone);
          },
          [=](void* spec) { return free(static_cast<S*>(spec)); },
          [=](const void* spec, Zor32s* size) { return getBufSize(static_cast<const S*>(spec), size); },
          [=](const void* spec, const void* src, void* dst, Zor8u* buffer) {
            return transform(static_cast<const S*>(spec), src, dst, buffer);
          },
          tag,
          real,
          part};
}
template <class C, class S> auto one(ZorStatus (*f)(const C*, C*, const S*, Zor8u*)) {
  return [f](const S* spec, const void* src, void* dst, Zor8u* buffer) {
    return f(static_cast<const C*>(src), static_cast<C*>(dst), spec, buffer);
  };
}
template <class T, class S> auto two(ZorStatus (*f)(const T*, const T*, T*, T*, const S*, Zor8u*)) {
  return [f](const S* spec, const void* src, void* dst, Zor8u* buffer) {
    return f(static_cast<const T*>(src), static_cast<const T*>(src), static_cast<T*>(dst), static_cast<T*>(dst), spec,
             buffer);
  };
}
const std::vector<Kind>& kinds() {
  static const std::vector<Kind> all = {
      kind<ZorsDFTSpec_C_32fc>("C_32fc", zorsDFTGetSize_C_32fc, zorsDFTInit_C_32fc, zorsDFTInitAlloc_C_32fc,
                               zorsDFTFree_C_32fc, zorsDFTGetBufSize_C_32fc, one(zorsDFTFwd_CToC_32fc), 13, false, 4),
      kind<ZorsDFTSpec_C_32f>("C_32f", zorsDFTGetSize_C_32f, zorsDFTInit_C_32f, zorsDFTInitAlloc_C_32f,
                              zorsDFTFree_C_32f, zorsDFTGetBufSize_C_32f, two(zorsDFTFwd_CToC_32f), 14, false, 4),
      kind<ZorsDFTSpec_R_32f>("R_32f", zorsDFTGetSize_R_32f, zorsDFTInit_R_32f, zorsDFTInitAlloc_R_32f,
                              zorsDFTFree_R_32f, zorsDFTGetBufSize_R_32f, one(zorsDFTFwd_RToPerm_32f), 15, true, 4),
      kind<ZorsDFTSpec_C_64fc>("C_64fc", zorsDFTGetSize_C_64fc, zorsDFTInit_C_64fc, zorsDFTInitAlloc_C_64fc,
                               zorsDFTFree_C_64fc, zorsDFTGetBufSize_C_64fc, one(zorsDFTFwd_CToC_64fc), 16, false, 8),
      kind<ZorsDFTSpec_C_64f>("C_64f", zorsDFTGetSize_C_64f, zorsDFTInit_C_64f, zorsDFTInitAlloc_C_64f,
                              zorsDFTFree_C_64f, zorsDFTGetBufSize_C_64f, two(zorsDFTFwd_CToC_64f), 17, false, 8),
      kind<ZorsDFTSpec_R_64f>("R_64f", zorsDFTGetSize_R_64f, zorsDFTInit_R_64f, zorsDFTInitAlloc_R_64f,
                              zorsDFTFree_R_64f, zorsDFTGetBufSize_R_64f, one(zorsDFTFwd_RToPerm_64f), 18, true, 8)};
  return all;
}

struct Sizes {
  ZorStatus status;
  Zor32s spec = -7, init = -7, work = -7;
  friend bool operator==(const Sizes&, const Sizes&) = default;
};
Sizes sizesOf(const Kind& k, Zor32s len, Zor32s flag = ZOR_FFT_DIVIDE_NONE) {
  Sizes s{};
  s.status = k.getSize(len, flag, zorAlgHintNone, &s.spec, &s.init, &s.work);
  return s;
}
const Kind& kindOf(const std::string& name) {
  return *std::find_if(kinds().begin(), kinds().end(), [&](const Kind& k) { return k.name == name; });
}

TEST(DFTSpec, SizesAreTheStatedFormulas) {
  const auto& c = kindOf("C_32fc");
  EXPECT_EQ(sizesOf(c, 1), (Sizes{zorStatusOk, 832, 0, 0}));
  EXPECT_EQ(sizesOf(c, 16), (Sizes{zorStatusOk, 832, 0, 0}));
  // direct: 16 N = 272 -> 320, 8 N = 136 -> 192
  EXPECT_EQ(sizesOf(c, 17), (Sizes{zorStatusOk, 768 + 320 + 64, 192 + 64, 192 + 64}));
  // radix 3 over a leaf of 6: twiddles 144 -> 192, one line of places; 18 points and 128
  EXPECT_EQ(sizesOf(c, 18), (Sizes{zorStatusOk, 768 + 192 + 64 + 64, 192 + 64, 320 + 64}));
  // radix 3 over a generic leaf of 17: twiddles 408 -> 448, roots 272 -> 320, places; work of 51 + 17 points and 128
  EXPECT_EQ(sizesOf(c, 51), (Sizes{zorStatusOk, 768 + 448 + 320 + 64 + 64, 448 + 64, 704 + 64}));
  // chirp over 128 points, order 7
  Zor32s fftSpec = 0, fftInit = 0, fftWork = 0;
  ASSERT_EQ(zorsFFTGetSize_C_32fc(7, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &fftSpec, &fftInit, &fftWork), zorStatusOk);
  const auto up = [](Zor32s x) { return (x + 63) / 64 * 64; };
  const Zor32s innerSpec = up(768 + up(fftSpec) + 64), innerWork = up(up(fftWork) + 64);
  EXPECT_EQ(sizesOf(c, 53), (Sizes{zorStatusOk, 768 + 1024 + 448 + innerSpec + 64, 448 + 896 + innerWork + 64,
                                   innerWork + up(innerWork + 1024 + 127) + 64}));
  ASSERT_EQ(zorsFFTGetSize_C_32fc(5, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &fftSpec, &fftInit, &fftWork), zorStatusOk);
  EXPECT_EQ(sizesOf(c, 32), (Sizes{zorStatusOk, 768 + up(fftSpec) + 64, 0, 0}));
}
TEST(DFTSpec, SizeQueriesTestPointersLengthFlagAndLimitsInThisOrder) {
  for (const auto& k : kinds()) {
    Zor32s a = -7, b = -7, c = -7;
    EXPECT_EQ(k.getSize(0, 3, zorAlgHintNone, nullptr, &b, &c), zorStatusNullPointer);
    EXPECT_EQ(k.getSize(0, 3, zorAlgHintNone, &a, nullptr, &c), zorStatusNullPointer);
    EXPECT_EQ(k.getSize(0, 3, zorAlgHintNone, &a, &b, nullptr), zorStatusNullPointer);
    for (Zor32s len : {0, -1, INT32_MIN}) EXPECT_EQ(sizesOf(k, len, 3), (Sizes{zorStatusBadSize}));
    for (Zor32s flag : {0, 3, 5, 16, -1, INT32_MIN}) EXPECT_EQ(sizesOf(k, 1 << 30, flag), (Sizes{zorStatusBadFlag}));
    EXPECT_EQ(sizesOf(k, 1 << 30, 1), (Sizes{zorStatusBadOrder})) << k.name;
    EXPECT_EQ(sizesOf(k, 387420489, 1), (Sizes{zorStatusBadSize})) << k.name;  // 3^18
    EXPECT_EQ(sizesOf(k, INT32_MAX, 1), (Sizes{zorStatusBadSize})) << k.name;
    EXPECT_EQ(sizesOf(k, 0x7FFFFFF, 1).status, zorStatusBadSize) << k.name;  // 7 * 73 * 262657: no chain, no chirp
  }
  EXPECT_EQ(sizesOf(kindOf("C_32fc"), 1 << 29, 1), (Sizes{zorStatusBadOrder}));
  EXPECT_EQ(sizesOf(kindOf("C_64fc"), 1 << 28, 1), (Sizes{zorStatusBadOrder}));
  EXPECT_EQ(sizesOf(kindOf("C_64fc"), 129140163, 1), (Sizes{zorStatusNoMemory}));  // 3^17 would take 3 GB of twiddles
}
TEST(DFTSpec, InitTellsWhatItRefusesAndHowFarItCame) {
  for (const auto& k : kinds()) {
    std::vector<Zor8u> block(4096, 0x5A);
    const auto before = block;
    EXPECT_EQ(k.init(0, 3, zorAlgHintNone, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(k.init(0, 3, zorAlgHintNone, block.data(), nullptr), zorStatusBadSize);
    EXPECT_EQ(k.init(-5, 1, zorAlgHintNone, block.data(), nullptr), zorStatusBadSize);
    EXPECT_EQ(block, before) << k.name;
    EXPECT_EQ(k.init(18, 3, zorAlgHintNone, block.data(), nullptr), zorStatusBadFlag);
    auto* aligned =
        reinterpret_cast<Zor32u*>((reinterpret_cast<std::uintptr_t>(block.data()) + 63) & ~std::uintptr_t{63});
    EXPECT_EQ(*aligned, k.tag) << k.name;
    EXPECT_EQ(k.init(1 << 30, 1, zorAlgHintNone, block.data(), nullptr), zorStatusBadOrder);
    EXPECT_EQ(k.init(387420489, 1, zorAlgHintNone, block.data(), nullptr), zorStatusBadSize);
    for (Zor32s len : {17, 18, 53})
      EXPECT_EQ(k.init(len, 1, zorAlgHintNone, block.data(), nullptr), zorStatusNullPointer) << k.name << len;
    EXPECT_EQ(k.init(5, 1, zorAlgHintNone, block.data(), nullptr), zorStatusOk);
  }
}
TEST(DFTSpec, InitAllocReportsAndReleasesAtEachFailingAllocation) {
  for (const auto& k : kinds())
    for (Zor32s len : {5, 17, 18, 34, 53, 64, 106, 128, 604, 2048}) {
      void* const untouched = reinterpret_cast<void*>(0x1234);
      const int count = failEachAllocation(
          [&] {
            void* spec = untouched;
            const ZorStatus status = k.initAlloc(&spec, len, ZOR_FFT_DIVIDE_FORWARD);
            if (status == zorStatusOk) {
              EXPECT_EQ(k.free(spec), zorStatusOk);
            } else {
              EXPECT_EQ(spec, untouched);
            }
            EXPECT_EQ(services().live, 0) << k.name << " " << len;
            return status;
          },
          [&](int n, ZorStatus status) {
            EXPECT_EQ(status, n < 0 ? zorStatusOk : zorStatusNoMemory) << k.name << " " << len;
          });
      EXPECT_GE(count, 1);
    }
}
TEST(DFTSpec, InitAllocTestsAsSizeQueriesDo) {
  for (const auto& k : kinds()) {
    EXPECT_EQ(k.initAlloc(nullptr, 0, 3), zorStatusNullPointer);
    void* spec = reinterpret_cast<void*>(0x1234);
    EXPECT_EQ(k.initAlloc(&spec, 0, 3), zorStatusBadSize);
    EXPECT_EQ(k.initAlloc(&spec, 1 << 30, 3), zorStatusBadFlag);
    EXPECT_EQ(k.initAlloc(&spec, 1 << 30, 1), zorStatusBadOrder);
    EXPECT_EQ(k.initAlloc(&spec, 387420489, 1), zorStatusBadSize);
    EXPECT_EQ(spec, reinterpret_cast<void*>(0x1234));
  }
}
TEST(DFTSpec, ForeignAndFreedSpecificationsAreRefused) {
  for (const auto& k : kinds()) {
    alignas(64) Zor32u foreign[192] = {k.tag == 13 ? 16u : 13u};
    const Zor32u before = foreign[0];
    Zor32s size = -7;
    std::vector<Zor64f> data(64, 1.0), dst(64, 2.0);
    const auto unchanged = dst;
    EXPECT_EQ(k.free(nullptr), zorStatusNullPointer);
    EXPECT_EQ(k.free(foreign), zorStatusBadContext);
    EXPECT_EQ(foreign[0], before);
    EXPECT_EQ(k.getBufSize(nullptr, &size), zorStatusNullPointer);
    EXPECT_EQ(k.getBufSize(foreign, nullptr), zorStatusNullPointer);
    EXPECT_EQ(k.getBufSize(foreign, &size), zorStatusBadContext);
    EXPECT_EQ(size, -7);
    EXPECT_EQ(k.transform(nullptr, nullptr, nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(k.transform(foreign, nullptr, nullptr, nullptr), zorStatusBadContext);
    EXPECT_EQ(k.transform(foreign, data.data(), dst.data(), nullptr), zorStatusBadContext);
    void* spec = nullptr;
    ASSERT_EQ(k.initAlloc(&spec, 18, 1), zorStatusOk);
    EXPECT_EQ(k.transform(spec, nullptr, dst.data(), nullptr), zorStatusNullPointer);
    EXPECT_EQ(k.transform(spec, data.data(), nullptr, nullptr), zorStatusNullPointer);
    EXPECT_EQ(dst, unchanged);
    EXPECT_EQ(k.free(spec), zorStatusOk);
  }
}
TEST(DFTSpec, ABufferOfTheCallersAndShortLengthsAllocateNothing) {
  for (const auto& k : kinds())
    for (Zor32s len : {1, 3, 16, 17, 18, 22, 32, 34, 53, 106, 128, 256}) {
      void* spec = nullptr;
      ASSERT_EQ(k.initAlloc(&spec, len, 1), zorStatusOk);
      Zor32s size = 0;
      ASSERT_EQ(k.getBufSize(spec, &size), zorStatusOk);
      std::vector<Zor64f> data(2 * std::size_t(len) + 2, 1.0), dst(2 * std::size_t(len) + 2, 2.0);
      std::vector<Zor8u> buffer(std::size_t(size) + 1);
      ServicesScope scope;
      // Without need of memory the pointer is never followed.
      EXPECT_EQ(k.transform(spec, data.data(), dst.data(), size == 0 ? reinterpret_cast<Zor8u*>(64) : buffer.data()),
                zorStatusOk);
      EXPECT_EQ(scope->allocations, 0) << k.name << " " << len;
      const auto before = dst;
      scope->failAt = 0;
      const ZorStatus status = k.transform(spec, data.data(), dst.data(), nullptr);
      EXPECT_EQ(status, size == 0 ? zorStatusOk : zorStatusNoMemory) << k.name << " " << len;
      if (size > 0) {
        EXPECT_EQ(dst, before);
      }
      if (len <= 16) {
        EXPECT_EQ(size, 0);
      }
      scope->failAt = -1;
      EXPECT_EQ(k.transform(spec, data.data(), dst.data(), nullptr), zorStatusOk);
      EXPECT_EQ(scope.leaked(), 0);
      EXPECT_EQ(k.free(spec), zorStatusOk);
    }
}
// Formats that are packed anew in dst: not before the work memory is there.
template <class T, class Spec>
void inversesLeaveDst(const char* name, ZorStatus (*initAlloc)(Spec**, Zor32s, Zor32s, ZorHintAlgorithm),
                      ZorStatus (*free)(Spec*), ZorStatus (*inverse)(const T*, T*, const Spec*, Zor8u*)) {
  for (Zor32s len : {34, 53, 63, 256, 1000, 1024, 2048, 4096}) {
    Spec* spec = nullptr;
    ASSERT_EQ(initAlloc(&spec, len, ZOR_FFT_DIVIDE_INVERSE, zorAlgHintNone), zorStatusOk);
    const std::vector<T> before(std::size_t(len) + 2, T(7));
    std::vector<T> src(std::size_t(len) + 2, T(1)), dst = before, inPlace = before;
    ServicesScope scope;
    scope->failAt = 0;
    if (inverse(src.data(), dst.data(), spec, nullptr) == zorStatusNoMemory) {
      EXPECT_EQ(dst, before) << name << " " << len;
    } else {
      EXPECT_EQ(scope->allocations, 0) << name << " " << len;
    }
    scope->failAt = 0;
    if (inverse(inPlace.data(), inPlace.data(), spec, nullptr) == zorStatusNoMemory) {
      EXPECT_EQ(inPlace, before) << name << " in place, " << len;
    }
    EXPECT_EQ(free(spec), zorStatusOk);
  }
}
TEST(DFTSpec, WithoutMemoryInversesLeaveTheirDestination) {
  const auto check32 = [](const char* name, auto inverse) {
    inversesLeaveDst<Zor32f, ZorsDFTSpec_R_32f>(name, zorsDFTInitAlloc_R_32f, zorsDFTFree_R_32f, inverse);
  };
  const auto check64 = [](const char* name, auto inverse) {
    inversesLeaveDst<Zor64f, ZorsDFTSpec_R_64f>(name, zorsDFTInitAlloc_R_64f, zorsDFTFree_R_64f, inverse);
  };
  check32("zorsDFTInv_PackToR_32f", zorsDFTInv_PackToR_32f);
  check32("zorsDFTInv_PermToR_32f", zorsDFTInv_PermToR_32f);
  check32("zorsDFTInv_CCSToR_32f", zorsDFTInv_CCSToR_32f);
  check64("zorsDFTInv_PackToR_64f", zorsDFTInv_PackToR_64f);
  check64("zorsDFTInv_PermToR_64f", zorsDFTInv_PermToR_64f);
  check64("zorsDFTInv_CCSToR_64f", zorsDFTInv_CCSToR_64f);
}
TEST(DFTSpec, PowersOfTwoAreTheBitsOfTheirOwnTransforms) {
  Random random(7);
  for (int order = 5; order <= 12; ++order) {
    const auto n = std::size_t{1} << order;
    const auto x = signal<Zor32fc>(n, random);
    std::vector<Zor32fc> a(n), b(n);
    ZorsDFTSpec_C_32fc* dft = nullptr;
    ZorsFFTSpec_C_32fc* fft = nullptr;
    ASSERT_EQ(zorsDFTInitAlloc_C_32fc(&dft, int(n), ZOR_FFT_DIVIDE_BOTH_ROOT, zorAlgHintNone), zorStatusOk);
    ASSERT_EQ(zorsFFTInitAlloc_C_32fc(&fft, order, ZOR_FFT_DIVIDE_BOTH_ROOT, zorAlgHintNone), zorStatusOk);
    zorsDFTFwd_CToC_32fc(x.data(), a.data(), dft, nullptr);
    zorsFFTFwd_CToC_32fc(x.data(), b.data(), fft, nullptr);
    for (std::size_t i = 0; i < n; ++i) ASSERT_TRUE(kit::sameBits(a[i], b[i]));
    zorsDFTFree_C_32fc(dft);
    zorsFFTFree_C_32fc(fft);
  }
}

}  // namespace
