// Cosine transforms against their definition, forward then inverse, and their specifications.
#include <algorithm>
#include <numbers>

#include "dft/dft_kinds.h"
#include "kit/contract.h"
#include "kit/services.h"
#include "zors/conversion.h"
#include "zors/fft.h"

namespace {

using namespace kit;

using Values = std::vector<long double>;
Values model(const Values& x, bool inverse) {
  const std::size_t n = x.size();
  Values out(n);
  const auto len = static_cast<long double>(n);
  std::vector<long double> cosines(4 * n);
  for (std::size_t i = 0; i < 4 * n; ++i)
    cosines[i] = std::cos(2 * std::numbers::pi_v<long double> * static_cast<long double>(i) / (4 * len));
  const auto scale = [&](std::size_t m) { return m == 0 ? 1 / std::sqrt(len) : std::sqrt(2 / len); };
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < n; ++j) {
      const std::size_t value = inverse ? i : j, term = inverse ? j : i;
      out[i] += scale(term) * x[j] * cosines[(2 * value + 1) * term % (4 * n)];
    }
  return out;
}

// The functions of a kind without its type.
using Run = std::function<Values(const Values&, const Setting&)>;
template <class T, class S>
Run runner(ZorStatus (*getSize)(Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*),
           ZorStatus (*init)(S**, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*), ZorStatus (*getBufSize)(const S*, Zor32s*),
           ZorStatus (*f)(const T*, T*, const S*, Zor8u*), ZorStatus (*inPlace)(T*, const S*, Zor8u*)) {
  return [=](const Values& x, const Setting& at) {
    const auto len = static_cast<Zor32s>(x.size());
    Zor32s specSize = 0, initSize = 0, workSize = 0, bufSize = -1;
    EXPECT_EQ(getSize(len, zorAlgHintNone, &specSize, &initSize, &workSize), zorStatusOk);
    const Guarded<Zor8u> block(std::size_t(specSize), at.edge, at.offset % 7),
        initBuffer(static_cast<std::size_t>(initSize), at.edge),
        work(static_cast<std::size_t>(workSize), at.edge, at.offset % 5);
    S* spec = nullptr;
    EXPECT_EQ(init(&spec, len, zorAlgHintNone, block.data(), initSize == 0 ? nullptr : initBuffer.data()), zorStatusOk);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(spec) % 64, 0u);
    EXPECT_EQ(getBufSize(spec, &bufSize), zorStatusOk);
    EXPECT_EQ(bufSize, workSize);
    const Guarded<T> src(x.size(), at.edge, at.offset), apart(x.size(), at.edge, at.offset);
    for (std::size_t i = 0; i < x.size(); ++i) src[i] = static_cast<T>(x[i]);
    Zor8u* const buffer = at.buffer == Buffer::null ? nullptr : work.data();
    if (at.place == Place::same) {
      EXPECT_EQ(inPlace(src.data(), spec, buffer), zorStatusOk);
    } else {
      EXPECT_EQ(f(src.data(), apart.data(), spec, buffer), zorStatusOk);
    }
    EXPECT_TRUE(block.intact() && initBuffer.intact() && work.intact() && src.intact() && apart.intact());
    const auto& dst = at.place == Place::same ? src : apart;
    return Values(dst.span().begin(), dst.span().end());
  };
}
struct Member {
  const char* name;
  bool inverse;
  long double epsilon;
  Run run;
};
const std::vector<Member>& members() {
  static const std::vector<Member> all = {
      {"zorsDCTFwd_32f", false, 0x1p-24L,
       runner(zorsDCTFwdGetSize_32f, zorsDCTFwdInit_32f, zorsDCTFwdGetBufSize_32f, zorsDCTFwd_32f, zorsDCTFwd_32f_I)},
      {"zorsDCTInv_32f", true, 0x1p-24L,
       runner(zorsDCTInvGetSize_32f, zorsDCTInvInit_32f, zorsDCTInvGetBufSize_32f, zorsDCTInv_32f, zorsDCTInv_32f_I)},
      {"zorsDCTFwd_64f", false, 0x1p-53L,
       runner(zorsDCTFwdGetSize_64f, zorsDCTFwdInit_64f, zorsDCTFwdGetBufSize_64f, zorsDCTFwd_64f, zorsDCTFwd_64f_I)},
      {"zorsDCTInv_64f", true, 0x1p-53L,
       runner(zorsDCTInvGetSize_64f, zorsDCTInvInit_64f, zorsDCTInvGetBufSize_64f, zorsDCTInv_64f, zorsDCTInv_64f_I)}};
  return all;
}
Values randomValues(std::size_t n, Random& random) {
  Values x;
  for (Zor32f v : signal<Zor32f>(n, random)) x.push_back(static_cast<long double>(v));
  return x;
}

TEST(DCT, EveryLengthPlaceAndBufferGivesTheDefinition) {
  Random random(51);
  std::vector<std::size_t> lengths;
  for (std::size_t n = 1; n <= 140; ++n) lengths.push_back(n);
  for (std::size_t n : std::initializer_list<std::size_t>{256, 257, 500, 512, 999, 1000, 1024, 2048}) lengths.push_back(n);
  for (std::size_t n : lengths) {
    const Values x = randomValues(n, random), wanted[] = {model(x, false), model(x, true)};
    for (const auto& member : members()) {
      Values first;
      for (int variant = 0; variant < 4; ++variant) {
        const Setting at = {.edge = variant % 2 == 0 ? Edge::end : Edge::begin,
                            .offset = variant == 0 ? 0 : random() % 64,
                            .buffer = variant == 2 ? Buffer::null : Buffer::exact,
                            .place = variant == 1 || variant == 2 ? Place::same : Place::apart};
        const Values y = member.run(x, at);
        if (variant > 0) {
          ASSERT_EQ(y, first) << member.name << ", " << n << " values, variant " << variant;
          continue;
        }
        first = y;
        long double errors = 0, squares = 0;
        for (std::size_t i = 0; i < n; ++i) {
          errors += (y[i] - wanted[member.inverse][i]) * (y[i] - wanted[member.inverse][i]);
          squares += wanted[member.inverse][i] * wanted[member.inverse][i];
        }
        const long double bound = member.epsilon * (4 + 2 * std::log2(static_cast<long double>(n)));
        ASSERT_LE(std::sqrt(errors), bound * std::sqrt(squares)) << member.name << ", " << n << " values";
      }
    }
  }
}
TEST(DCT, ForwardThenInverseIsTheIdentity) {
  Random random(52);
  for (std::size_t n : std::initializer_list<std::size_t>{1, 2, 3, 4, 7, 8, 9, 16, 35, 36, 37, 45, 46, 64, 100, 1000})
    for (std::size_t pair : std::initializer_list<std::size_t>{0, 2}) {
      const Values x = randomValues(n, random);
      const Values back = members()[pair + 1].run(members()[pair].run(x, {}), {});
      for (std::size_t i = 0; i < n; ++i)
        ASSERT_NEAR(double(back[i]), double(x[i]), double(members()[pair].epsilon) * 64) << n;
    }
}
TEST(DCT, OneValueIsItself) {
  for (const auto& member : members())
    EXPECT_EQ(member.run({0.3L}, {})[0],
              member.epsilon > 1e-10L ? static_cast<long double>(0.3f) : static_cast<long double>(0.3));
}

// Direct sums: folded, two running sums, nothing fused.
template <class T> std::vector<T> directModel(const std::vector<T>& x) {
  const std::size_t n = x.size(), h = n / 2;
  std::vector<T> y(n), cosines(4 * n);
  for (std::size_t i = 0; i < 4 * n; ++i)
    cosines[i] = static_cast<T>(std::cos(6.283185307179586 / (4.0 * double(n)) * double(i)));
  for (std::size_t m = 0; m < n; ++m) {
    T sum[2] = {};
    for (std::size_t k = 0; k < h; ++k) {
      const T folded = m % 2 == 0 ? x[k] + x[n - 1 - k] : x[k] - x[n - 1 - k];
      sum[k % 2] = sum[k % 2] + folded * cosines[(2 * k + 1) * m % (4 * n)];
    }
    T total = sum[0] + sum[1];
    if (n % 2 == 1 && m % 2 == 0) total = m % 4 == 0 ? total + x[h] : total - x[h];
    const T scale =
        m == 0 ? static_cast<T>(1 / std::sqrt(double(n))) : static_cast<T>(1.4142135623730951 / std::sqrt(double(n)));
    y[m] = total * scale;
  }
  return y;
}
TEST(DCT, DirectSumsRunInTwoUnfusedSums) {
  Random random(53);
  for (std::size_t n : std::initializer_list<std::size_t>{3, 5, 6, 7, 9, 12, 20, 33, 35}) {
    const auto x = signal<Zor32f>(n, random);
    const auto y = members()[0].run(Values(x.begin(), x.end()), {});
    const auto wanted = directModel(x);
    for (std::size_t m = 0; m < n; ++m) ASSERT_EQ(static_cast<Zor32f>(y[m]), wanted[m]) << n << ", term " << m;
  }
  for (std::size_t n : std::initializer_list<std::size_t>{3, 9, 36, 44, 45}) {
    const auto x = signal<Zor64f>(n, random);
    const auto y = members()[2].run(Values(x.begin(), x.end()), {});
    const auto wanted = directModel(x);
    for (std::size_t m = 0; m < n; ++m) ASSERT_EQ(static_cast<Zor64f>(y[m]), wanted[m]) << n << ", term " << m;
  }
}

// ---- Specifications -----------------------------------------------------------------------------

struct Sizes {
  Zor32s spec = -7, init = -7, work = -7;
  friend bool operator==(const Sizes&, const Sizes&) = default;
};
using GetSize = ZorStatus (*)(Zor32s, ZorHintAlgorithm, Zor32s*, Zor32s*, Zor32s*);
Sizes sizesOf(GetSize getSize, Zor32s len, ZorStatus wanted = zorStatusOk) {
  Sizes s;
  EXPECT_EQ(getSize(len, zorAlgHintNone, &s.spec, &s.init, &s.work), wanted) << len;
  return s;
}
TEST(DCTSpec, SizesAreTheStatedFormulas) {
  for (Zor32s len : {1, 2, 4, 8}) {
    EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, len), (Sizes{160, 0, 0}));
    EXPECT_EQ(sizesOf(zorsDCTInvGetSize_64f, len), (Sizes{168, 0, 0}));
  }
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, 9), (Sizes{16 * 9 + 192, 0, 36 + 64}));
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, 35), (Sizes{16 * 35 + 192, 0, 140 + 64}));
  EXPECT_EQ(sizesOf(zorsDCTInvGetSize_64f, 45), (Sizes{32 * 45 + 192, 0, 360 + 64}));
  Zor32s spec = 0, init = 0, work = 0;
  zorsFFTGetSize_R_32f(11, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, 2048), (Sizes{spec + 8192 + 192, init + 64, work + 8192 + 64}));
  zorsFFTGetSize_C_32fc(6, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, 36), (Sizes{spec + (3 * 18 + 64) * 8 + 192, 0, 64 * 8 + 64}));
  zorsFFTGetSize_C_32fc(7, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_32f, 37),
            (Sizes{spec + (3 * 37 + 128) * 8 + 192, std::max(init, work) + 64, work + 128 * 8 + 64}));
  zorsFFTGetSize_C_64fc(7, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone, &spec, &init, &work);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_64f, 47),
            (Sizes{spec + (3 * 47 + 128) * 16 + 192, std::max(init, work) + 64, work + 128 * 16 + 64}));
  const Sizes floats = sizesOf(zorsDCTFwdGetSize_32f, 36);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_16s, 36), (Sizes{96 + floats.spec, floats.init, floats.work + 4 * 36 + 64}));
  EXPECT_EQ(sizesOf(zorsDCTInvGetSize_16s, 1), (Sizes{96, 0, 0}));
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_16s, 8), (Sizes{256, 0, 96}));
}
TEST(DCTSpec, LengthsAreTestedBeforePointersAndLimitsAfter) {
  for (GetSize getSize : {zorsDCTFwdGetSize_16s, zorsDCTFwdGetSize_32f, zorsDCTFwdGetSize_64f, zorsDCTInvGetSize_16s,
                          zorsDCTInvGetSize_32f, zorsDCTInvGetSize_64f}) {
    Zor32s a = -7, b = -7, c = -7;
    for (Zor32s len : {0, -1, INT32_MIN})
      EXPECT_EQ(getSize(len, zorAlgHintNone, nullptr, nullptr, nullptr), zorStatusBadSize);
    for (Zor32s len : {8, INT32_MAX}) {
      EXPECT_EQ(getSize(len, zorAlgHintNone, nullptr, &b, &c), zorStatusNullPointer);
      EXPECT_EQ(getSize(len, zorAlgHintNone, &a, nullptr, &c), zorStatusNullPointer);
      EXPECT_EQ(getSize(len, zorAlgHintNone, &a, &b, nullptr), zorStatusNullPointer);
    }
    EXPECT_EQ(sizesOf(getSize, INT32_MAX, zorStatusBadSize), Sizes{});
    EXPECT_EQ(sizesOf(getSize, 1 << 28, zorStatusBadSize), Sizes{});
    EXPECT_EQ(sizesOf(getSize, 0x2000001, zorStatusBadSize), Sizes{});
  }
  EXPECT_EQ(zorsDCTFwdGetSize_64f(1 << 27, zorAlgHintNone, nullptr, nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_64f, 1 << 27, zorStatusBadSize), Sizes{});
  EXPECT_EQ(sizesOf(zorsDCTFwdGetSize_64f, 0x1000001, zorStatusBadSize), Sizes{});
  EXPECT_NE(sizesOf(zorsDCTFwdGetSize_32f, 0x1000001).spec, -7);
}
template <class S>
void checkInit(ZorStatus (*init)(S**, Zor32s, ZorHintAlgorithm, Zor8u*, Zor8u*),
               ZorStatus (*initAlloc)(S**, Zor32s, ZorHintAlgorithm), ZorStatus (*free)(S*),
               ZorStatus (*getBufSize)(const S*, Zor32s*), Zor32u tag, Zor32s tooLong) {
  S* const untouched = reinterpret_cast<S*>(0x40);
  S* spec = untouched;
  std::vector<Zor8u> block(8192, 0x5A);
  EXPECT_EQ(init(nullptr, 0, zorAlgHintNone, nullptr, nullptr), zorStatusBadSize);
  EXPECT_EQ(init(nullptr, 9, zorAlgHintNone, block.data(), nullptr), zorStatusNullPointer);
  EXPECT_EQ(init(&spec, tooLong, zorAlgHintNone, nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(init(&spec, tooLong, zorAlgHintNone, block.data(), nullptr), zorStatusBadSize);
  EXPECT_EQ(init(&spec, 129, zorAlgHintNone, block.data(), nullptr), zorStatusNullPointer);
  EXPECT_EQ(initAlloc(nullptr, 0, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(initAlloc(nullptr, tooLong, zorAlgHintNone), zorStatusNullPointer);
  EXPECT_EQ(initAlloc(&spec, tooLong, zorAlgHintNone), zorStatusBadSize);
  EXPECT_EQ(spec, untouched);
  for (Zor32s len : {1, 8, 9, 64, 100, 129}) {
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
  }
  EXPECT_EQ(init(&spec, 9, zorAlgHintNone, block.data(), nullptr), zorStatusOk);
  EXPECT_EQ(*reinterpret_cast<Zor32u*>(spec), tag);
  EXPECT_EQ(free(nullptr), zorStatusNullPointer);
  ServicesScope scope;
  EXPECT_EQ(free(spec), zorStatusOk);
  EXPECT_EQ(free(spec), zorStatusBadContext);
  Zor32s size = -7;
  EXPECT_EQ(getBufSize(spec, nullptr), zorStatusNullPointer);
  EXPECT_EQ(getBufSize(nullptr, &size), zorStatusNullPointer);
  EXPECT_EQ(getBufSize(spec, &size), zorStatusBadContext);
  EXPECT_EQ(size, -7);
}
TEST(DCTSpec, InitAndInitAllocTellEveryFault) {
  checkInit(zorsDCTFwdInit_16s, zorsDCTFwdInitAlloc_16s, zorsDCTFwdFree_16s, zorsDCTFwdGetBufSize_16s, 19, INT32_MAX);
  checkInit(zorsDCTInvInit_16s, zorsDCTInvInitAlloc_16s, zorsDCTInvFree_16s, zorsDCTInvGetBufSize_16s, 20, INT32_MAX);
  checkInit(zorsDCTFwdInit_32f, zorsDCTFwdInitAlloc_32f, zorsDCTFwdFree_32f, zorsDCTFwdGetBufSize_32f, 21, 0x4000001);
  checkInit(zorsDCTInvInit_32f, zorsDCTInvInitAlloc_32f, zorsDCTInvFree_32f, zorsDCTInvGetBufSize_32f, 22, 0x4000001);
  checkInit(zorsDCTFwdInit_64f, zorsDCTFwdInitAlloc_64f, zorsDCTFwdFree_64f, zorsDCTFwdGetBufSize_64f, 23, 0x2000001);
  checkInit(zorsDCTInvInit_64f, zorsDCTInvInitAlloc_64f, zorsDCTInvFree_64f, zorsDCTInvGetBufSize_64f, 24, 0x2000001);
}
TEST(DCTSpec, TransformsTestAllPointersThenTheKindThenMemory) {
  ZorsDCTFwdSpec_32f* forward = nullptr;
  ZorsDCTFwdSpec_16s* forward16 = nullptr;
  ASSERT_EQ(zorsDCTFwdInitAlloc_32f(&forward, 20, zorAlgHintNone), zorStatusOk);
  ASSERT_EQ(zorsDCTFwdInitAlloc_16s(&forward16, 8, zorAlgHintNone), zorStatusOk);
  auto* const foreign = reinterpret_cast<ZorsDCTInvSpec_32f*>(forward);
  auto* const foreign16 = reinterpret_cast<ZorsDCTInvSpec_16s*>(forward16);
  std::vector<Zor32f> x(20, 1.0f), y(20, 2.0f);
  std::vector<Zor16s> x16(8, 1), y16(8, 2);
  const auto before = y;
  const auto before16 = y16;
  EXPECT_EQ(zorsDCTInv_32f(nullptr, y.data(), foreign, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsDCTInv_32f(x.data(), nullptr, foreign, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsDCTInv_32f(x.data(), y.data(), nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsDCTInv_32f(x.data(), y.data(), foreign, nullptr), zorStatusBadContext);
  EXPECT_EQ(zorsDCTInvFree_32f(foreign), zorStatusBadContext);
  EXPECT_EQ(zorsDCTInv_16s_Sfs(nullptr, y16.data(), foreign16, 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(zorsDCTInv_16s_Sfs(x16.data(), y16.data(), foreign16, 0, nullptr), zorStatusBadContext);
  EXPECT_EQ(zorsDCTInv_16s_ISfs(y16.data(), foreign16, 0, nullptr), zorStatusBadContext);
  {
    ServicesScope scope;
    scope->failAt = 0;
    EXPECT_EQ(zorsDCTFwd_32f(x.data(), y.data(), forward, nullptr), zorStatusNoMemory);
    scope->failAt = 0;
    EXPECT_EQ(zorsDCTFwd_16s_Sfs(x16.data(), y16.data(), forward16, 0, nullptr), zorStatusNoMemory);
    scope->failAt = -1;
    EXPECT_EQ(zorsDCTFwd_16s_Sfs(x16.data(), y16.data(), forward16, 0, nullptr), zorStatusOk);
    EXPECT_EQ(scope->allocations, 1);
    EXPECT_EQ(scope.leaked(), 0);
    y16 = before16;
  }
  EXPECT_EQ(y, before);
  EXPECT_EQ(y16, before16);
  EXPECT_EQ(zorsDCTFwdFree_32f(forward), zorStatusOk);
  EXPECT_EQ(zorsDCTFwdFree_16s(forward16), zorStatusOk);
}

// ---- 16 bits ------------------------------------------------------------------------------------

template <class S, class F, class Float, class InitFloat, class InitInteger>
void checkInteger(InitInteger initInteger, ZorStatus (*f)(const Zor16s*, Zor16s*, const S*, Zor32s, Zor8u*),
                  ZorStatus (*inPlace)(Zor16s*, const S*, Zor32s, Zor8u*), ZorStatus (*free)(S*), InitFloat initFloat,
                  F transform, ZorStatus (*freeFloat)(Float*)) {
  Random random(54);
  for (std::size_t n : std::initializer_list<std::size_t>{2, 3, 8, 16, 35, 36, 37, 64, 200}) {
    S* spec = nullptr;
    Float* floats = nullptr;
    ASSERT_EQ(initInteger(&spec, Zor32s(n), zorAlgHintNone), zorStatusOk);
    ASSERT_EQ(initFloat(&floats, Zor32s(n), zorAlgHintNone), zorStatusOk);
    for (Zor32s scaleFactor : {INT32_MIN, -3, 0, 1, 5, 40, INT32_MAX}) {
      const auto x = anyValues<Zor16s>(n, random);
      std::vector<Zor32f> y(x.begin(), x.end());
      ASSERT_EQ(transform(y.data(), y.data(), floats, nullptr), zorStatusOk);
      std::vector<Zor16s> wanted(n), found(n), same = x;
      zorsConvert_32f16s_Sfs(y.data(), wanted.data(), Zor32s(n), zorRoundNearestEven, scaleFactor);
      ASSERT_EQ(f(x.data(), found.data(), spec, scaleFactor, nullptr), zorStatusOk);
      ASSERT_EQ(inPlace(same.data(), spec, scaleFactor, nullptr), zorStatusOk);
      ASSERT_EQ(found, wanted) << n;
      ASSERT_EQ(same, wanted) << n;
    }
    free(spec);
    freeFloat(floats);
  }
  S* spec = nullptr;
  ASSERT_EQ(initInteger(&spec, 1, zorAlgHintNone), zorStatusOk);
  const auto narrowed = [&](Zor16s x, Zor32s scaleFactor) {
    Zor16s y = 99;
    EXPECT_EQ(f(&x, &y, spec, scaleFactor, nullptr), zorStatusOk);
    return y;
  };
  EXPECT_EQ(narrowed(3, 1), 2);  // halves up
  EXPECT_EQ(narrowed(-3, 1), -1);
  EXPECT_EQ(narrowed(5, 0), 5);
  EXPECT_EQ(narrowed(20000, -1), 32767);
  EXPECT_EQ(narrowed(-20000, -1), -32768);
  EXPECT_EQ(narrowed(0, INT32_MIN), 0);
  EXPECT_EQ(narrowed(-1, INT32_MIN), -32768);
  EXPECT_EQ(narrowed(32767, INT32_MAX), 0);
  free(spec);
}
TEST(DCT, SixteenBitKindsConvertTransformAndRoundToNearest) {
  checkInteger(zorsDCTFwdInitAlloc_16s, zorsDCTFwd_16s_Sfs, zorsDCTFwd_16s_ISfs, zorsDCTFwdFree_16s,
               zorsDCTFwdInitAlloc_32f, zorsDCTFwd_32f, zorsDCTFwdFree_32f);
  checkInteger(zorsDCTInvInitAlloc_16s, zorsDCTInv_16s_Sfs, zorsDCTInv_16s_ISfs, zorsDCTInvFree_16s,
               zorsDCTInvInitAlloc_32f, zorsDCTInv_32f, zorsDCTInvFree_32f);
}

}  // namespace
