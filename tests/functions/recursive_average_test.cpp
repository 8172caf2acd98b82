#include <algorithm>
#include <string>

#include "kit/contract.h"
#include "kit/elementwise.h"
#include "kit/guarded.h"
#include "kit/values.h"
#include "zors/functions.h"

namespace {

// The recursion in wide integers; beyond 2^100 only the sign matters, and the state keeps growing.
Zor32s recursion(const std::vector<Zor16s>& src, Zor32s state, bool power, int shift, int alpha, Zor32s greatest) {
  __int128 s = state;
  const auto limit = __int128{1} << 100;
  for (Zor16s x : src) {
    const Zor64s sample = power ? Zor64s(x) * x >> shift : x >> shift;
    s = std::clamp(alpha * s + (1 - alpha) * sample, -limit, limit);
  }
  return Zor32s(std::clamp<__int128>(s, INT32_MIN, greatest));
}
using Update = ZorStatus (*)(const Zor16s*, Zor32s, Zor32s*, Zor32s, Zor16s, ZorHintAlgorithm);

void check(const char* name, Update function, bool power, std::initializer_list<int> alphas) {
  kit::Random random(1);
  const int most = power ? 31 : 15;
  for (int alpha : alphas)
    for (int shift : {0, 1, 7, 15, 31, -3, 40, INT32_MIN, INT32_MAX})
      for (int len : kit::sweepLengths())
        for (ZorHintAlgorithm hint : {0, 2, 7}) {
          if (len > 40 && shift != 1) continue;
          const kit::Guarded<Zor16s> src(kit::anyValues<Zor16s>(std::size_t(len), random),
                                         len % 2 == 0 ? kit::Edge::begin : kit::Edge::end, 2);
          const auto before = kit::anyValue<Zor32s>(random);
          Zor32s state = before;
          ASSERT_EQ(function(src.data(), len, &state, shift, Zor16s(alpha), hint), zorStatusOk);
          ASSERT_EQ(state, recursion(src.values(), before, power, std::clamp(shift, 0, most), alpha, INT32_MAX))
              << name << ", alpha " << alpha << ", shift " << shift << ", len " << len << ", from " << before;
        }
}
TEST(Update, StatesThatFitComeExactAndOthersSaturate) {
  check("zorsUpdateLinear_16s32s_I", zorsUpdateLinear_16s32s_I, false, {0, 1, -1, 2, -2, 3, 8, 26, 181, -180});
  check("zorsUpdatePower_16s32s_I", zorsUpdatePower_16s32s_I, true, {0, 1, -1, 2, -2, 3, 7, 8});
}
TEST(Update, GrowingStatesSaturateWithTheirSign) {
  std::vector<Zor16s> src(1000, 0);
  for (int alpha : {32767, -32768, 2, -3})
    for (int len : {1, 2, 7, 8, 9, 15, 500, 999, 1000})
      for (Update function : {zorsUpdateLinear_16s32s_I, zorsUpdatePower_16s32s_I})
        for (ZorHintAlgorithm hint : {0, 1}) {
          Zor32s state = 65536;
          ASSERT_EQ(function(src.data(), len, &state, 0, Zor16s(alpha), hint), zorStatusOk);
          const double s = 65536 * std::pow(double(alpha), len);
          const bool single = hint == 1 && (function == zorsUpdatePower_16s32s_I || (alpha >= -6 && alpha <= 8));
          ASSERT_EQ(state, Zor32s(std::clamp(s, -0x1p31, single ? 2147483520.0 : 0x1p31 - 1))) << alpha << " " << len;
        }
}
TEST(Update, AStateEqualToAllSamplesStays) {
  for (int alpha : {2, 5, 26, 27, 100, -100, 30000})
    for (int len : {8, 9, 64, 1000})
      for (int hint : {0, 1}) {
        const std::vector<Zor16s> src(std::size_t(len), 5);
        Zor32s state = 5;
        ASSERT_EQ(zorsUpdateLinear_16s32s_I(src.data(), len, &state, 0, Zor16s(alpha), hint), zorStatusOk);
        EXPECT_EQ(state, 5) << alpha << " " << len << " " << hint;
      }
}
TEST(Update, TheFastHintTakesBinary32) {
  kit::Random random(3);
  for (int alpha : {-6, -1, 0, 1, 2, 8})
    for (int len : {1, 7, 8, 9, 30, 100}) {
      std::vector<Zor16s> src(std::size_t(len), 0);
      for (auto& x : src) x = Zor16s(random() % 256);
      for (bool power : {false, true}) {
        Zor32s state = 0;
        const Update function = power ? zorsUpdatePower_16s32s_I : zorsUpdateLinear_16s32s_I;
        ASSERT_EQ(function(src.data(), len, &state, power ? 8 : 0, Zor16s(alpha), 1), zorStatusOk);
        const double wanted = recursion(src, 0, power, power ? 8 : 0, alpha, 2147483520);
        EXPECT_NEAR(state, wanted, std::fabs(wanted) * 1e-5) << alpha << " " << len;
      }
    }
  const std::vector<Zor16s> zeros(1);
  Zor32s state = 16777217;  // not a binary32 number
  EXPECT_EQ(zorsUpdateLinear_16s32s_I(zeros.data(), 1, &state, 0, 1, 1), zorStatusOk);
  EXPECT_EQ(state, 16777216);
  state = 16777217;
  EXPECT_EQ(zorsUpdateLinear_16s32s_I(zeros.data(), 1, &state, 0, 9, 1), zorStatusOk);
  EXPECT_EQ(state, 150994953);
}
TEST(Update, ChecksPointersThenLength) {
  const std::vector<Zor16s> src(8);
  std::vector<Zor32s> state(1, 7);
  for (Update function : {zorsUpdateLinear_16s32s_I, zorsUpdatePower_16s32s_I})
    kit::Contract(function, src.data(), 8, state.data(), 0, Zor16s(1), 0)
        .null<0>()
        .null<2>()
        .bad<1>({0, -1}, zorStatusBadSize)
        .untouched(state)
        .verify("zorsUpdate");
}

}  // namespace
