// States: sizes, lifecycles, registers, taps and their normalisation, bad arguments in their order.
#include <cmath>

#include "iir/iir_filters.h"
#include "kit/guarded.h"
#include "kit/object.h"
#include "kit/services.h"

namespace {

using namespace iir;
using kit::Edge;
using kit::Guarded;

Numbers ones(std::size_t len) { return Numbers(len, Number{1, 0}); }

// The stated sizes once more, by the name of the query: the form, and 1,024 or 2,048 elements of scratch.
long statedSize(const Filter& f, long n) {
  const auto down = [](long x, long multiple) { return x & -multiple; };
  const bool biquad = f.form != Form::polynomial, plain = f.sampleBits == 0 &&
                                                          f.name.find("64f_32f") == std::string::npos &&
                                                          f.name.find("64f_BiQuad_32f") == std::string::npos &&
                                                          f.name.find("64fc_32fc") == std::string::npos &&
                                                          f.name.find("64fc_BiQuad_32fc") == std::string::npos;
  const long s = plain ? 1024 : 2048;
  if (f.tag == 0x49493239) return 16 * (n + ((20 * n + 15) >> 4)) + 128;
  if (f.tag == 0x49493330 || f.tag == 0x49493232) return down(40 * n + 15, 16) + 256 * n + 16480 + 48 * n;
  if (f.single && !f.complex) {
    if (biquad) return down(20 * n + 15, 16) + down(8 * n + 15, 16) + (s + 40 * n) * 4 + 40 + 128;
    const long v = plain && n == 2 ? 120 : 4 * n + 12;
    return down(8 * n + 19, 16) + down(4 * n + 19, 16) + (v + 4 * n + 4 + s) * 4 + 40 + 128;
  }
  if (f.single) {
    if (biquad) return 32 * (((40 * n + 31) >> 5) + ((16 * n + 31) >> 5)) + (148 * n + s) * 8 + 160;
    return down(16 * n + 39, 32) + down(8 * n + 39, 32) + (8 * n + 24 + 4 * n + 8 + 2 * (4 * n + 4) + s) * 8 + 80 + 128;
  }
  if (!f.complex) {
    if (biquad) return 16 * n + (32 * n + s) * 8 + down(40 * n + 15, 16) + 96;
    return down(8 * n + 23, 16) + down(16 * n + 23, 16) + 96 + (4 * n + 12 + 2 * n + 2 + s) * 8 + 32;
  }
  if (biquad) return 112 * n + 96 + (64 * n + s) * 16 + 32;
  return 48 * n + 128 + (12 * n + 2 * n + 10 + (n + 1024) * (plain ? 1 : 2)) * 16 + 32;
}

TEST(IirState, SizesAreTheStatedOnes) {
  for (const Filter& f : filters())
    for (Zor32s count : {1, 2, 3, 4, 5, 6, 7, 8, 9, 17, 100, 255, 256, 1001, 100000, 1 << 24, INT32_MAX}) {
      Zor32s size = -1;
      const long wanted = statedSize(f, count);
      EXPECT_EQ(f.size(count, &size), wanted <= INT32_MAX ? zorStatusOk : zorStatusNoMemory) << f.name << " " << count;
      EXPECT_EQ(size, wanted <= INT32_MAX ? wanted : -1) << f.name << " " << count;
    }
}

TEST(IirState, BadCountsAndPointersInTheirOrder) {
  for (const Filter& f : filters()) {
    SCOPED_TRACE(f.name);
    const Numbers taps = ones(12), dly = ones(8);
    std::vector<Zor8u> buffer(100000);
    auto* const untouched = reinterpret_cast<ZorIIRState*>(0x55);
    ZorIIRState* state = untouched;
    Zor32s size = 77;
    for (Zor32s bad : {0, -1, INT32_MIN}) {
      EXPECT_EQ(f.size(bad, nullptr), zorStatusNullPointer);
      EXPECT_EQ(f.size(bad, &size), zorStatusBadFilterOrder);
      EXPECT_EQ(f.init(&state, &taps, bad, &dly, buffer.data(), 0), zorStatusBadFilterOrder);
      EXPECT_EQ(f.init(nullptr, &taps, bad, &dly, buffer.data(), 0), zorStatusNullPointer);
      EXPECT_EQ(f.init(&state, nullptr, bad, &dly, buffer.data(), 0), zorStatusNullPointer);
      EXPECT_EQ(f.init(&state, &taps, bad, &dly, nullptr, 0), zorStatusNullPointer);
      EXPECT_EQ(f.initAlloc(&state, &taps, bad, &dly, 0), zorStatusBadFilterOrder);
      EXPECT_EQ(f.initAlloc(nullptr, &taps, bad, &dly, 0), zorStatusNullPointer);
      EXPECT_EQ(f.initAlloc(&state, nullptr, bad, &dly, 0), zorStatusNullPointer);
    }
    EXPECT_EQ(f.init(nullptr, &taps, 1, &dly, buffer.data(), 0), zorStatusNullPointer);
    EXPECT_EQ(f.init(&state, &taps, INT32_MAX, nullptr, buffer.data(), 0), zorStatusNoMemory);
    EXPECT_EQ(f.initAlloc(&state, &taps, INT32_MAX, nullptr, 0), zorStatusNoMemory);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(state, untouched);
    EXPECT_TRUE(std::all_of(buffer.begin(), buffer.end(), [](Zor8u byte) { return byte == 0; }));
    EXPECT_EQ(f.free(nullptr), zorStatusNullPointer);
    Numbers got(dlyLen(f.form, 1) > 0 ? 1 : 0);
    EXPECT_EQ(f.getDly(nullptr, &got), zorStatusNullPointer);
    EXPECT_EQ(f.setDly(nullptr, &got), zorStatusNullPointer);
    EXPECT_EQ(f.setTaps(&taps, nullptr, 0), zorStatusNullPointer);
    const State good(f, taps, 1);
    EXPECT_EQ(f.getDly(good, nullptr), zorStatusNullPointer);
    EXPECT_EQ(f.setTaps(nullptr, good, 0), zorStatusNullPointer);
  }
}

TEST(IirState, RunsCheckPointersThenLengthThenTag) {
  for (const Filter& f : filters()) {
    SCOPED_TRACE(f.name);
    const State state(f, ones(std::size_t(tapsLen(f.form, 2))), 2);
    ASSERT_EQ(state.status, zorStatusOk);
    ZorIIRState* const good = state;
    std::vector<Zor8u> src(8 * 16, 1), dst(8 * 16, 2), before = dst;
    std::vector<Zor32u> foreign(64, 0x49493939);
    auto* const bad = reinterpret_cast<ZorIIRState*>(foreign.data());
    const auto foreignBefore = foreign;
    for (Zor32s len : {8, 0, -1, INT32_MIN})
      for (ZorIIRState* s : {good, bad}) {
        EXPECT_EQ(f.call(nullptr, dst.data(), len, s), zorStatusNullPointer);
        EXPECT_EQ(f.call(src.data(), nullptr, len, s), zorStatusNullPointer);
        EXPECT_EQ(f.callInPlace(nullptr, len, s), zorStatusNullPointer);
        if (len >= 1) continue;
        EXPECT_EQ(f.call(src.data(), dst.data(), len, s), zorStatusBadSize);
        EXPECT_EQ(f.callInPlace(dst.data(), len, s), zorStatusBadSize);
      }
    EXPECT_EQ(f.call(src.data(), dst.data(), 0, nullptr), zorStatusNullPointer);
    EXPECT_EQ(f.callInPlace(dst.data(), 0, nullptr), zorStatusNullPointer);
    EXPECT_EQ(f.callOne(dst.data(), nullptr), zorStatusNullPointer);
    EXPECT_EQ(f.callOne(nullptr, bad), zorStatusNullPointer);
    EXPECT_EQ(f.call(src.data(), dst.data(), 8, bad), zorStatusBadContext);
    EXPECT_EQ(f.callInPlace(dst.data(), 8, bad), zorStatusBadContext);
    EXPECT_EQ(f.callOne(dst.data(), bad), zorStatusBadContext);
    EXPECT_EQ(dst, before);
    EXPECT_EQ(foreign, foreignBefore);
  }
}

// Which tags a kind's functions take: the row's own, and that of the other forms of the same types.
TEST(IirState, ForeignTagsAreRefusedByEveryFunction) {
  for (const Filter& f : filters()) {
    for (const Filter& g : filters()) {
      const Numbers taps = ones(12);
      const State state(g, taps, 1);
      const bool sameKind = f.free == g.free;
      SCOPED_TRACE(f.name + " with a state of " + g.name);
      alignas(16) Zor8u dst[16] = {}, src[16] = {};
      const ZorStatus wanted = sameKind ? zorStatusOk : zorStatusBadContext;
      EXPECT_EQ(f.call(src, dst, 1, state), wanted);
      EXPECT_EQ(f.callInPlace(dst, 1, state), wanted);
      EXPECT_EQ(f.callOne(dst, state), wanted);
      EXPECT_EQ(f.setTaps(&taps, state, 0), wanted);
      // The integers' first form alone has registers of its own.
      const bool ownRegisters = f.tag == 0x49493330 || g.tag == 0x49493330;
      const ZorStatus dlyWanted = ownRegisters && f.tag != g.tag ? zorStatusBadContext : wanted;
      Numbers dly(8);
      EXPECT_EQ(f.getDly(state, &dly), dlyWanted);
      EXPECT_EQ(f.setDly(state, nullptr), dlyWanted);
      if (!sameKind) {
        EXPECT_EQ(f.free(state), zorStatusBadContext);
      }
      EXPECT_EQ(*reinterpret_cast<const Zor32u*>(static_cast<ZorIIRState*>(state)), g.tag);
    }
  }
}

TEST(IirState, EveryKindIsAnObject) {
  kit::Random random(1);
  for (const Filter& f : filters())
    for (int count : {1, 2, 3, 7}) {
      if (count == 7 && f.complex) continue;
      const Numbers taps = integerTaps(f, count, random),
                    dly = integerSamples(f, std::size_t(dlyLen(f.form, count)), 3, random),
                    x = integerSamples(f, 70, 1, random);
      kit::Object<ZorIIRState> object{
          .name = f.name + ", count " + std::to_string(count),
          .getSize = [&](Zor32s* block, Zor32s*, Zor32s*) { return f.size(count, block); },
          .init = [&](ZorIIRState** state, Zor8u* block,
                      Zor8u*) { return f.init(state, &taps, count, &dly, block, 0); },
          .initAlloc = [&](ZorIIRState** state) { return f.initAlloc(state, &taps, count, &dly, 0); },
          .free = f.free,
          .outBytes = 8 * 16,
          .run =
              [&](ZorIIRState* state, Zor8u*, Zor8u* out) {
                alignas(16) Zor8u src[8 * 16] = {};
                for (std::size_t i = 0; i < sizeof src; ++i) src[i] = f.sampleBits != 0 ? Zor8u(i * 37) : 0;
                return f.call(src, out, 8, state);
              },
          .operations = {{"SetTaps", [&](ZorIIRState* state) { return f.setTaps(&taps, state, 0); }},
                         {"SetDlyLine", [&](ZorIIRState* state) { return f.setDly(state, &dly); }},
                         {"GetDlyLine",
                          [&](ZorIIRState* state) {
                            Numbers d = dly;
                            return f.getDly(state, &d);
                          }}},
      };
      for (const Filter& g : filters())
        if (g.free == f.free && g.tag != f.tag) object.tags.push_back(g.tag);
      if (f.integerTaps) object.init = nullptr;  // it allocates; see below
      kit::checkObject(object);
    }
}

TEST(IirState, TheStatedSizeIsEnoughAtEveryAlignment) {
  kit::Random random(2);
  for (const Filter& f : filters())
    for (int count : {1, 2, 3, 4, 5, 8, 33}) {
      Zor32s size = 0;
      ASSERT_EQ(f.size(count, &size), zorStatusOk);
      const Numbers taps = integerTaps(f, count, random), x = integerSamples(f, 200, 1, random);
      for (std::size_t away = 0; away < (count < 4 ? 33 : 3); ++away) {
        const Guarded<Zor8u> buffer(std::size_t(size), Edge::end, away);
        ZorIIRState* state = nullptr;
        ASSERT_EQ(f.init(&state, &taps, count, nullptr, buffer.data(), 0), zorStatusOk);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(state),
                  (reinterpret_cast<std::uintptr_t>(buffer.data()) + 31) & ~std::uintptr_t{31});
        Model model(f.form, taps, count);
        EXPECT_TRUE(f.run(x, state, 0, true, 1) == expected(f, model, x, count, 0)) << f.name << " " << away;
        EXPECT_TRUE(buffer.intact()) << f.name << " " << away;
      }
    }
}

TEST(IirState, IntegerTapsTakeOneArrayAndGiveItBack) {
  kit::Random random(3);
  for (const Filter& f : filters()) {
    Zor32s size = 0;
    f.size(3, &size);
    const Numbers taps = integerTaps(f, 3, random), other = integerTaps(f, 3, random);
    const std::vector<Zor8u> blank(std::size_t(size), 9);
    std::vector<Zor8u> buffer = blank;
    auto* const untouched = reinterpret_cast<ZorIIRState*>(0x55);
    ZorIIRState* state = untouched;
    const int taken = kit::failEachAllocation([&] { return f.init(&state, &taps, 3, nullptr, buffer.data(), 0); },
                                              [&](int n, ZorStatus status) {
                                                EXPECT_EQ(status, n >= 0 ? zorStatusNoMemory : zorStatusOk) << f.name;
                                                EXPECT_EQ(state == untouched, n >= 0) << f.name;
                                                EXPECT_TRUE(n < 0 || buffer == blank) << f.name;
                                                EXPECT_EQ(kit::services().live, 0) << f.name;
                                              });
    EXPECT_EQ(taken, f.integerTaps ? 1 : 0) << f.name;
    const std::vector<Zor8u> before = buffer;
    kit::failEachAllocation([&] { return f.setTaps(&other, state, 0); },
                            [&](int n, ZorStatus status) {
                              EXPECT_EQ(status, n >= 0 ? zorStatusNoMemory : zorStatusOk) << f.name;
                              EXPECT_TRUE(n < 0 || buffer == before) << f.name;
                              EXPECT_EQ(kit::services().live, 0) << f.name;
                            });
    EXPECT_NE(buffer, before) << f.name;
    const std::vector<Zor8u> kept = buffer;
    EXPECT_EQ(f.free(state), zorStatusOk);
    EXPECT_EQ(buffer, kept) << f.name << ": Free of a caller's block wrote";
  }
}

TEST(IirState, NullRegistersAreZerosAndSetTapsKeepsRegisters) {
  kit::Random random(4);
  for (const Filter& f : filters())
    for (int count : {1, 2, 5}) {
      const std::size_t len = std::size_t(dlyLen(f.form, count));
      const Numbers dly = integerSamples(f, len, 1000, random), zeros(len);
      const State state(f, integerTaps(f, count, random), count, &dly);
      Numbers got(len);
      f.getDly(state, &got);
      EXPECT_TRUE(got == dly) << f.name;
      const Numbers taps = integerTaps(f, count, random);
      EXPECT_EQ(f.setTaps(&taps, state, 0), zorStatusOk);
      f.getDly(state, &got);
      EXPECT_TRUE(got == dly) << f.name;
      const Numbers x = integerSamples(f, 300, 1, random);
      Model model(f.form, taps, count);
      model.setRegisters(dly);
      EXPECT_TRUE(f.run(x, state, 0, false, 0) == expected(f, model, x, count, 0)) << f.name;
      EXPECT_EQ(f.setDly(state, nullptr), zorStatusOk);
      f.getDly(state, &got);
      EXPECT_TRUE(got == zeros) << f.name;
      EXPECT_EQ(f.setDly(state, &dly), zorStatusOk);
      f.getDly(state, &got);
      EXPECT_TRUE(got == dly) << f.name;
    }
}

TEST(IirState, ZeroA0OrB0IsADivisionByZero) {
  for (const Filter& f : filters()) {
    const int count = 3;
    const Numbers good = ones(std::size_t(tapsLen(f.form, count)));
    const State state(f, good, count);
    Zor32s size = 0;
    f.size(count, &size);
    std::vector<Zor8u> buffer(static_cast<std::size_t>(size));
    const auto attempt = [&](const Numbers& taps, ZorStatus wanted, const std::string& what) {
      auto* const untouched = reinterpret_cast<ZorIIRState*>(0x55);
      ZorIIRState* made = untouched;
      std::fill(buffer.begin(), buffer.end(), Zor8u{0xA5});
      EXPECT_EQ(f.init(&made, &taps, count, nullptr, buffer.data(), 0), wanted) << f.name << what;
      EXPECT_EQ(std::all_of(buffer.begin(), buffer.end(), [](Zor8u x) { return x == 0xA5; }), wanted != zorStatusOk)
          << f.name << what << ": the block, which may hold a state in use";
      EXPECT_EQ(made == untouched, wanted != zorStatusOk) << f.name << what;
      kit::ServicesScope services;
      ZorIIRState* allocated = untouched;
      EXPECT_EQ(f.initAlloc(&allocated, &taps, count, nullptr, 0), wanted) << f.name << what;
      EXPECT_EQ(allocated == untouched, wanted != zorStatusOk) << f.name << what;
      if (wanted == zorStatusOk) f.free(allocated);
      EXPECT_EQ(services.leaked(), 0) << f.name << what;
      const Numbers dly(std::size_t(dlyLen(f.form, count)), Number{5, 0});
      f.setDly(state, &dly);
      EXPECT_EQ(f.setTaps(&taps, state, 0), wanted) << f.name << what;
      Numbers kept = dly;
      f.getDly(state, &kept);
      EXPECT_TRUE(kept == dly) << f.name << what;
    };
    const int sections = f.form == Form::polynomial ? 1 : count;
    const std::size_t per = f.form == Form::polynomial ? 2 * count + 2 : 6, a0 = per / 2;
    for (int s = 0; s < sections; ++s)
      for (long double zero : {0.0L, -0.0L}) {
        Numbers taps = good;
        taps[std::size_t(s) * per + a0] = {zero, -zero};
        attempt(taps, zorStatusDivideByZero, ", a0");
        taps = good;
        taps[std::size_t(s) * per] = {zero, zero};
        const bool refused = f.form == Form::cascade || f.tag == 0x49493330;
        attempt(taps, refused ? zorStatusDivideByZero : zorStatusOk, ", b0");
      }
    if (f.complex) {
      Numbers taps = good;
      taps[0] = {0, 1};
      taps[a0] = {0, 1};
      attempt(taps, zorStatusOk, ", imaginary");
    }
    if (!f.integerTaps) {
      Numbers taps = good;
      taps[0].re = std::nanl("");
      taps[a0].re = std::nanl("");
      attempt(taps, zorStatusOk, ", NaN");
    }
  }
}

// The reciprocal of a0 is rounded, then every product: x = 0 and d = (1, 0) leave -a1 r, -a2 r in the registers.
TEST(IirState, TapsAreMultipliedByTheRoundedReciprocal) {
  kit::Random random(5);
  for (const Filter& f : filters()) {
    if (f.complex || f.integerTaps || f.integerDly || f.form == Form::firstForm) continue;
    for (int attempt = 0; attempt < 200; ++attempt) {
      const auto value = [&] {
        const double x = double(random() >> 11) / 0x1p53 * 4 + 0.25;
        return static_cast<long double>(f.single ? float(x) : x);
      };
      const Numbers taps{{value(), 0}, {value(), 0}, {value(), 0}, {value(), 0}, {value(), 0}, {value(), 0}};
      const int count = f.form == Form::polynomial ? 2 : 1;
      const Numbers start{{1, 0}, {0, 0}};
      const State state(f, taps, count, &start);
      f.one({0, 0}, state, 0);
      Numbers got(2);
      f.getDly(state, &got);
      const auto wanted = [&](long double a) -> long double {
        if (f.single) {
          const volatile float r = 1 / float(taps[3].re);
          return -(float(a) * r);
        }
        const volatile double r = 1 / double(taps[3].re);
        return -(double(a) * r);
      };
      ASSERT_EQ(got[0].re, wanted(taps[4].re)) << f.name;
      ASSERT_EQ(got[1].re, wanted(taps[5].re)) << f.name;
    }
  }
}

// The common power of two goes with a0, but at the ends: factors are drawn in to -96..126, and a large factor makes the
// reciprocal a denormal.
TEST(IirState, TheFactorOfIntegerTapsIsADivisorAndDrawnIn) {
  for (const Filter& f : filters()) {
    if (!f.integerTaps || f.complex) continue;
    for (Zor32s factor : {0, 1, -1, 30, -60, 126, 127, 1000, INT32_MAX, -95, -96, -97, INT32_MIN})
      for (long double size : {3.0L, 0x1p30L + 65, 2147483647.0L}) {
        const Numbers taps{{size, 0}, {7, 0}, {-9, 0}, {size, 0}, {-1000003, 0}, {1e9L, 0}};
        const Numbers start{{1, 0}, {0, 0}};
        const State state(f, taps, f.form == Form::polynomial ? 2 : 1, &start, factor);
        ASSERT_EQ(state.status, zorStatusOk);
        f.one({0, 0}, state, 0);
        Numbers got(2);
        f.getDly(state, &got);
        const int drawnIn = std::clamp(factor, -96, 126);
        const auto scaled = [&](long double tap) {
          const volatile float product = float(tap) * std::ldexp(1.0f, -drawnIn);
          return float(product);
        };
        const volatile float r = 1 / scaled(size);
        const volatile float d0 = scaled(-1000003) * r, d1 = scaled(1e9L) * r;
        EXPECT_EQ(got[0].re, -static_cast<long double>(d0)) << f.name << " " << factor << " " << double(size);
        EXPECT_EQ(got[1].re, -static_cast<long double>(d1)) << f.name << " " << factor << " " << double(size);
      }
  }
}

}  // namespace
