// All forms of the FIR filter by one set of tests: taps and samples of every type, against sums in long double or in
// integers.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "kit/contract.h"
#include "kit/guarded.h"
#include "kit/object.h"
#include "kit/services.h"
#include "kit/stream.h"
#include "kit/values.h"
#include "zors/fir.h"

namespace {

using kit::Edge;
using kit::Guarded;

Zor32s scaleNow = 0;  // of the scaled forms

template <class T> constexpr bool isComplex = kit::ComplexPair<T>;
template <class T> struct PartOf { using type = T; };
template <kit::ComplexPair T> struct PartOf<T> { using type = decltype(T::re); };
template <class T> using Part = typename PartOf<T>::type;

struct Wide {
  long double re = 0, im = 0;
};

// Taps and samples whose results stay within range at the scale in use.
template <class T> std::vector<T> someTaps(std::size_t n, kit::Random& random) {
  std::vector<T> taps(n);
  const auto part = [&]() -> Part<T> {
    const double x = double(std::int64_t(random() % 2001) - 1000) / 1000;
    if constexpr (std::is_integral_v<Part<T>>)
      return Part<T>(x * 300);
    else
      return Part<T>(x);
  };
  for (T& t : taps) {
    if constexpr (isComplex<T>)
      t = {part(), part()};
    else
      t = part();
  }
  return taps;
}
template <class T> std::vector<T> someSamples(std::size_t n, kit::Random& random) {
  if constexpr (std::is_integral_v<Part<T>>) {
    std::vector<T> out(n);
    for (T& x : out) {
      const auto part = [&] { return Part<T>(std::int64_t(random() % 65536) - 32768); };
      if constexpr (isComplex<T>)
        x = {part(), part()};
      else
        x = part();
    }
    return out;
  } else {
    return kit::signal<T>(n, random);
  }
}

// What the tests know of the type of taps or samples, so that they run over all forms in one compilation.
struct Type {
  std::size_t size;
  bool pair, integer;
  long double low, high, eps;  // of a part
  Wide (*at)(const void* values, std::size_t i);
  void (*taps)(void* to, std::size_t n, kit::Random& random);
  void (*samples)(void* to, std::size_t n, kit::Random& random);
};
template <class T> constexpr Type typeOf() {
  using P = Part<T>;
  using L = std::numeric_limits<P>;
  return {sizeof(T),
          isComplex<T>,
          std::is_integral_v<P>,
          static_cast<long double>(L::lowest()),
          static_cast<long double>(L::max()),
          sizeof(P) == 4 ? 0x1p-24L : 0x1p-53L,
          [](const void* values, std::size_t i) -> Wide {
            const T x = static_cast<const T*>(values)[i];
            if constexpr (isComplex<T>)
              return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
            else
              return {static_cast<long double>(x), 0};
          },
          [](void* to, std::size_t n, kit::Random& random) {
            const auto values = someTaps<T>(n, random);
            std::copy(values.begin(), values.end(), static_cast<T*>(to));
          },
          [](void* to, std::size_t n, kit::Random& random) {
            const auto values = someSamples<T>(n, random);
            std::copy(values.begin(), values.end(), static_cast<T*>(to));
          }};
}
template <class T> constexpr Type type = typeOf<T>();

// Values of a type known at run time.
class Array {
 public:
  Array(const Type& of, std::size_t count) : type_(&of), bytes_(count * of.size) {}
  template <class T> Array(const std::vector<T>& values) : Array(type<T>, values.size()) {
    std::copy(values.begin(), values.end(), reinterpret_cast<T*>(bytes_.data()));
  }
  std::size_t size() const { return bytes_.size() / type_->size; }
  Zor8u* at(std::size_t i) { return bytes_.data() + i * type_->size; }
  const Zor8u* at(std::size_t i) const { return bytes_.data() + i * type_->size; }
  Zor8u* data() { return bytes_.data(); }
  const Zor8u* data() const { return bytes_.data(); }
  Wide operator[](std::size_t i) const { return type_->at(bytes_.data(), i); }
  const std::vector<Zor8u>& bytes() const { return bytes_; }

 private:
  const Type* type_;
  std::vector<Zor8u> bytes_;
};
Array tapsOf(const Type& of, int n, kit::Random& random) {
  Array out(of, std::size_t(n));
  of.taps(out.data(), out.size(), random);
  return out;
}
Array samplesOf(const Type& of, int n, kit::Random& random) {
  Array out(of, std::size_t(n));
  of.samples(out.data(), out.size(), random);
  return out;
}

enum class Sums { binary32, binary64, wrapping };

struct Form {
  const char* name;
  Sums sums;
  int fftTaps, fftBlock;  // where the FFT path begins
  const Type &tap, &sample;
  ZorStatus (*stateSize)(Zor32s, Zor32s*);
  std::function<ZorStatus(ZorFIRState**, const void* taps, Zor32s, const void* dly, Zor8u*)> init;
  std::function<ZorStatus(ZorFIRState**, const void* taps, Zor32s, const void* dly)> initAlloc;
  ZorStatus (*free)(ZorFIRState*);
  std::function<ZorStatus(const ZorFIRState*, void* taps)> getTaps;
  std::function<ZorStatus(const void* taps, ZorFIRState*)> setTaps;
  std::function<ZorStatus(const ZorFIRState*, void* dly)> getDly;
  std::function<ZorStatus(ZorFIRState*, const void* dly)> setDly;
  std::function<ZorStatus(const void* src, void* dst, Zor32s, ZorFIRState*)> filter;
  std::function<ZorStatus(void* srcDst, Zor32s, ZorFIRState*)> filterInPlace;
  std::function<ZorStatus(const void* val, void* dst, ZorFIRState*)> filterOne;
};

struct Exact {
  std::vector<Wide> y;
  std::vector<long double> weight;
};
Exact convolve(const Array& taps, const Array* dly, const Array& x) {
  Exact out{std::vector<Wide>(x.size()), std::vector<long double>(x.size())};
  std::vector<Wide> stream, weights;  // the history, the oldest first, then the samples
  for (std::size_t k = taps.size(); k-- > 0;) stream.push_back(dly == nullptr ? Wide{} : (*dly)[k]);
  for (std::size_t i = 0; i < x.size(); ++i) stream.push_back(x[i]);
  for (std::size_t k = 0; k < taps.size(); ++k) weights.push_back(taps[k]);
  for (std::size_t i = 0; i < x.size(); ++i)
    for (std::size_t k = 0; k < taps.size(); ++k) {
      const Wide t = weights[k], s = stream[i + taps.size() - k];
      out.y[i].re += t.re * s.re - t.im * s.im;
      out.y[i].im += t.re * s.im + t.im * s.re;
      out.weight[i] += (std::fabs(t.re) + std::fabs(t.im)) * (std::fabs(s.re) + std::fabs(s.im));
    }
  return out;
}

// One output part of integer sums: 32 bits that wrap, shifted by -scale, saturated.
Zor16s wrapped(long double sum, Zor32s shift) {
  const auto exact = static_cast<__int128>(sum);
  const auto acc = static_cast<Zor32s>(static_cast<Zor32u>(exact));
  const int s = std::clamp(shift, -31, 31);
  Zor64s y = acc;
  if (s > 0) y = static_cast<Zor32s>(static_cast<Zor32u>(acc) << s);
  if (s < 0) y = (y + ((Zor64s{1} << (-s - 1)) - 1) + ((y >> -s) & 1)) >> -s;
  return Zor16s(std::clamp<Zor64s>(y, -32768, 32767));
}

void expectClose(const Form& form, const Zor8u* got, const Exact& exact, std::size_t tapsLen, bool byFft,
                 const std::string& what) {
  const long double eps = form.sums == Sums::binary32 ? 0x1p-24L : 0x1p-53L;
  const long double largest = *std::max_element(exact.weight.begin(), exact.weight.end());
  const auto check = [&](long double value, long double y, long double weight, std::size_t i) {
    if (form.sums == Sums::wrapping) {
      ASSERT_EQ(value, static_cast<long double>(wrapped(y, -scaleNow))) << what << " [" << i << "]";
      return;
    }
    long double tolerance = byFft ? 64 * eps * largest : static_cast<long double>(tapsLen + 4) * eps * weight;
    if (form.sample.integer) {
      y = std::clamp(std::ldexp(y, -scaleNow), form.sample.low, form.sample.high);
      tolerance = std::ldexp(tolerance, -scaleNow) + 0.5L;
    } else {
      tolerance += std::fabs(y) * form.sample.eps;
    }
    ASSERT_LE(std::fabs(value - y), tolerance + 1e-40L) << what << " [" << i << "]";
  };
  for (std::size_t i = 0; i < exact.y.size(); ++i) {
    const Wide value = form.sample.at(got, i);
    check(value.re, exact.y[i].re, exact.weight[i], i);
    if (form.sample.pair) check(value.im, exact.y[i].im, exact.weight[i], i);
    if (testing::Test::HasFatalFailure()) return;
  }
}

// A state in a block of exactly the reported size, whose end is unreadable.
class State {
 public:
  State(const Form& form, const Array& taps, const Array* dly, std::size_t away = 0)
      : block_(size(form, int(taps.size())), Edge::end, away) {
    EXPECT_EQ(form.init(&state_, taps.data(), int(taps.size()), dly == nullptr ? nullptr : dly->data(), block_.data()),
              zorStatusOk)
        << form.name;
  }
  operator ZorFIRState*() const { return state_; }
  bool intact() const { return block_.intact(); }
  static std::size_t size(const Form& form, int tapsLen) {
    Zor32s bytes = 0;
    EXPECT_EQ(form.stateSize(tapsLen, &bytes), zorStatusOk);
    return std::size_t(bytes);
  }

 private:
  Guarded<Zor8u> block_;
  ZorFIRState* state_ = nullptr;
};

void blocksOfEveryLength(const Form& form) {
  kit::Random random(3);
  for (int n : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 32, 33, 40, 63, 64, 65, 70, 127, 128, 129, 1025}) {
    const Array taps = tapsOf(form.tap, n, random), dly = samplesOf(form.sample, n, random);
    std::vector<int> lengths = {1, 2, 3, 5, 8, 15, 16, 17, 33, 97, 255, 256, 257, n + 1, n + 8, n + 20, 511, 512, 700};
    for (int rows : {4, 8, 16}) {
      const int row = (n + rows - 1) / rows * rows;
      for (int len = row - 1; len <= row + rows + 1; len += 2) lengths.push_back(len);
    }
    if (n > 100) lengths = {1, 16, 100, 512, n + 3, 1500};
    for (int len : lengths) {
      if (len < 1) continue;
      const Array x = samplesOf(form.sample, len, random);
      const Exact exact = convolve(taps, &dly, x);
      const std::string what =
          std::string(form.name) + ", " + std::to_string(n) + " taps, " + std::to_string(len) + " samples";
      const bool byFft = n >= form.fftTaps && len >= form.fftBlock;
      for (Edge edge : kit::bothEdges) {
        const State state(form, taps, &dly), other(form, taps, &dly);
        const Guarded<Zor8u> src(x.bytes(), edge), dst(x.bytes().size(), edge), both(x.bytes(), edge);
        ASSERT_EQ(form.filter(src.data(), dst.data(), len, state), zorStatusOk) << what;
        ASSERT_EQ(form.filterInPlace(both.data(), len, other), zorStatusOk) << what;
        ASSERT_TRUE(dst.intact() && both.intact() && state.intact() && other.intact()) << what;
        expectClose(form, dst.data(), exact, taps.size(), byFft, what);
        expectClose(form, both.data(), exact, taps.size(), byFft, what + ", in place");
        if (testing::Test::HasFatalFailure()) return;
      }
    }
  }
}

void streams(const Form& form) {
  kit::Random random(5);
  for (int n : {1, 2, 5, 16, 31, 64, 130}) {
    const Array taps = tapsOf(form.tap, n, random), x = samplesOf(form.sample, 12000, random);
    const Exact exact = convolve(taps, nullptr, x);
    const State state(form, taps, nullptr, std::size_t(n) % 64);
    Array y = x;
    for (std::size_t at = 0; at < x.size();) {
      const std::size_t kind = random() % 5, left = x.size() - at;
      const auto len = std::min<std::size_t>(left, kind == 0   ? 1
                                                   : kind == 1 ? random() % 20 + 1
                                                   : kind == 2 ? random() % 9000 + 1
                                                               : random() % 900 + 1);
      if (kind == 0)
        ASSERT_EQ(form.filterOne(x.at(at), y.at(at), state), zorStatusOk);
      else if (kind == 3)
        ASSERT_EQ(form.filterInPlace(y.at(at), int(len), state), zorStatusOk);
      else
        ASSERT_EQ(form.filter(x.at(at), y.at(at), int(len), state), zorStatusOk);
      at += len;
    }
    ASSERT_TRUE(state.intact());
    expectClose(form, y.data(), exact, taps.size(), n >= form.fftTaps, form.name);
    // The history: the last inputs, the newest first.
    Array kept(form.sample, std::size_t(n));
    ASSERT_EQ(form.getDly(state, kept.data()), zorStatusOk);
    for (std::size_t k = 0; k < kept.size(); ++k)
      ASSERT_EQ(std::memcmp(kept.at(k), x.at(x.size() - 1 - k), form.sample.size), 0) << form.name;
  }
}

// By the direct kernels, blocks of any length give the same bits; single samples do where sums are exact.
void cuts(const Form& form) {
  kit::Random random(12);
  const int step = int(form.sample.size);
  for (int n : {1, 2, 7, 16, 130}) {
    const Array taps = tapsOf(form.tap, n, random);
    kit::checkStream(kit::Stream<Zor8u, Zor8u>{
        .name = std::string(form.name) + ", " + std::to_string(n) + " taps",
        .input = samplesOf(form.sample, 700, random).bytes(),
        .open =
            [&] {
              const auto state = std::make_shared<State>(form, taps, nullptr, 3u);
              kit::Channel<Zor8u, Zor8u> calls;
              calls.process = [&, state](const Zor8u* src, Zor8u* dst, Zor32s len) {
                return form.filter(src, dst, len, *state);
              };
              calls.inPlace = [&, state](Zor8u* x, Zor32s len) { return form.filterInPlace(x, len, *state); };
              if (form.sums == Sums::wrapping)
                calls.one = [&, state](const Zor8u* src, Zor8u* dst) { return form.filterOne(src, dst, *state); };
              calls.history = [&, state] {
                Array dly(form.sample, taps.size());
                EXPECT_EQ(form.getDly(*state, dly.data()), zorStatusOk);
                return dly.bytes();
              };
              calls.intact = [state] { return state->intact(); };
              return calls;
            },
        .inPerStep = step,
        .outPerStep = step,
        .lengths = {n, n + 1, 15, 255, 500},
        .longest = form.fftTaps > n ? INT32_MAX : form.fftBlock - 1,
    });
  }
}

void getsAndSets(const Form& form) {
  kit::Random random(9);
  for (int n : {1, 5, 70}) {
    const Array taps = tapsOf(form.tap, n, random), others = tapsOf(form.tap, n, random);
    const Array dly = samplesOf(form.sample, n, random), x = samplesOf(form.sample, 600, random);
    const State state(form, taps, &dly), fresh(form, others, &dly);
    Array got(form.tap, taps.size()), kept(form.sample, taps.size()), a(form.sample, 600), b(form.sample, 600);
    ASSERT_EQ(form.getTaps(state, got.data()), zorStatusOk);
    ASSERT_EQ(got.bytes(), taps.bytes()) << form.name;
    ASSERT_EQ(form.getDly(state, kept.data()), zorStatusOk);
    ASSERT_EQ(kept.bytes(), dly.bytes()) << form.name;
    Array one(form.sample, 1);
    ASSERT_EQ(form.filterOne(x.data(), one.data(), state), zorStatusOk);
    ASSERT_EQ(form.filterOne(x.data(), one.data(), fresh), zorStatusOk);
    ASSERT_EQ(form.setTaps(others.data(), state), zorStatusOk);
    ASSERT_EQ(form.getTaps(state, got.data()), zorStatusOk);
    ASSERT_EQ(got.bytes(), others.bytes()) << form.name;
    ASSERT_EQ(form.filter(x.data(), a.data(), 600, state), zorStatusOk);
    if (std::string(form.name) == "32f_16s") {  // the layout of another kind is written over taps and history
      ASSERT_TRUE(state.intact());
      continue;
    }
    ASSERT_EQ(form.filter(x.data(), b.data(), 600, fresh), zorStatusOk);
    ASSERT_EQ(a.bytes(), b.bytes()) << form.name;
    ASSERT_EQ(form.setDly(state, nullptr), zorStatusOk);
    const State zeroed(form, others, nullptr);
    ASSERT_EQ(form.filter(x.data(), a.data(), 600, state), zorStatusOk);
    ASSERT_EQ(form.filter(x.data(), b.data(), 600, zeroed), zorStatusOk);
    ASSERT_EQ(a.bytes(), b.bytes()) << form.name;
  }
}

void livesAsAllObjectsDo(const Form& form) {
  kit::Random random(10);
  for (int n : {1, 10, 130}) {
    const Array taps = tapsOf(form.tap, n, random);
    const Array dly = samplesOf(form.sample, n, random), x = samplesOf(form.sample, 70, random);
    Array gotTaps = taps, gotDly = dly;
    kit::checkObject(kit::Object<ZorFIRState>{
        .name = std::string(form.name) + ", " + std::to_string(n) + " taps",
        .getSize = [&](Zor32s* block, Zor32s*, Zor32s*) { return form.stateSize(n, block); },
        .init = [&](ZorFIRState** s, Zor8u* block, Zor8u*) { return form.init(s, taps.data(), n, dly.data(), block); },
        .initAlloc = [&](ZorFIRState** s) { return form.initAlloc(s, taps.data(), n, dly.data()); },
        .free = form.free,
        .outBytes = x.bytes().size(),
        .run = [&](ZorFIRState* s, Zor8u*, Zor8u* out) { return form.filter(x.data(), out, int(x.size()), s); },
        .operations = {{"filterInPlace",
                        [&](ZorFIRState* s) {
                          Array samples = x;
                          return form.filterInPlace(samples.data(), int(x.size()), s);
                        }},
                       {"filterOne", [&](ZorFIRState* s) { return form.filterOne(x.data(), gotDly.data(), s); }},
                       {"getDly", [&](ZorFIRState* s) { return form.getDly(s, gotDly.data()); }},
                       {"setDly", [&](ZorFIRState* s) { return form.setDly(s, dly.data()); }},
                       {"getTaps", [&](ZorFIRState* s) { return form.getTaps(s, gotTaps.data()); }},
                       {"setTaps", [&](ZorFIRState* s) { return form.setTaps(taps.data(), s); }}},
        .vitalAllocations = 1,
    });
  }
}

void checks(const Form& form) {
  kit::Random random(10);
  const Array taps = tapsOf(form.tap, 3, random);
  const State state(form, taps, nullptr);
  std::vector<Zor8u> foreign(4000, 7), buffer(State::size(form, 3));
  auto* const stranger = reinterpret_cast<ZorFIRState*>(foreign.data());
  Array src(form.sample, 8), dst(form.sample, 8), got(form.tap, 3);
  ZorFIRState* out = nullptr;
  Zor32s size = 0;
  EXPECT_EQ(form.stateSize(0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.stateSize(0, &size), zorStatusBadTapsLength);
  EXPECT_EQ(form.init(nullptr, taps.data(), 0, nullptr, buffer.data()), zorStatusNullPointer);
  EXPECT_EQ(form.init(&out, nullptr, 0, nullptr, buffer.data()), zorStatusNullPointer);
  EXPECT_EQ(form.init(&out, taps.data(), 0, nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.init(&out, taps.data(), 0, nullptr, buffer.data()), zorStatusBadTapsLength);
  EXPECT_EQ(form.initAlloc(nullptr, taps.data(), 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.initAlloc(&out, nullptr, 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.initAlloc(&out, taps.data(), -1, nullptr), zorStatusBadTapsLength);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(form.free(nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.free(stranger), zorStatusBadContext);
  EXPECT_EQ(form.free(state), zorStatusOk);  // of a caller's block: nothing happens
  EXPECT_EQ(form.getTaps(nullptr, got.data()), zorStatusNullPointer);
  EXPECT_EQ(form.getTaps(stranger, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.getTaps(stranger, got.data()), zorStatusBadContext);
  EXPECT_EQ(form.setTaps(nullptr, stranger), zorStatusNullPointer);
  EXPECT_EQ(form.setTaps(taps.data(), nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.setTaps(taps.data(), stranger), zorStatusBadContext);
  EXPECT_EQ(form.getDly(state, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.getDly(stranger, dst.data()), zorStatusBadContext);
  EXPECT_EQ(form.setDly(nullptr, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.setDly(stranger, nullptr), zorStatusBadContext);
  EXPECT_EQ(form.filter(nullptr, dst.data(), 0, stranger), zorStatusNullPointer);
  EXPECT_EQ(form.filter(src.data(), nullptr, 0, stranger), zorStatusNullPointer);
  EXPECT_EQ(form.filter(src.data(), dst.data(), 0, nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.filter(src.data(), dst.data(), 0, stranger), zorStatusBadSize);
  EXPECT_EQ(form.filter(src.data(), dst.data(), 8, stranger), zorStatusBadContext);
  EXPECT_EQ(form.filterInPlace(nullptr, 0, stranger), zorStatusNullPointer);
  EXPECT_EQ(form.filterInPlace(dst.data(), 0, stranger), zorStatusBadSize);
  EXPECT_EQ(form.filterInPlace(dst.data(), 8, stranger), zorStatusBadContext);
  EXPECT_EQ(form.filterOne(src.data(), nullptr, stranger), zorStatusNullPointer);
  EXPECT_EQ(form.filterOne(src.data(), dst.data(), nullptr), zorStatusNullPointer);
  EXPECT_EQ(form.filterOne(src.data(), dst.data(), stranger), zorStatusBadContext);
}

// ---- The forms ----------------------------------------------------------------------------------

template <class Tap, class T, class Init, class InitAlloc, class GetTaps, class SetTaps, class Filter, class InPlace,
          class One>
Form form(const char* name, Sums sums, int fftTaps, int fftBlock, ZorStatus (*stateSize)(Zor32s, Zor32s*), Init init,
          InitAlloc initAlloc, ZorStatus (*free)(ZorFIRState*), GetTaps getTaps, SetTaps setTaps,
          ZorStatus (*getDly)(const ZorFIRState*, T*), ZorStatus (*setDly)(ZorFIRState*, const T*), Filter filter,
          InPlace inPlace, One one) {
  const auto taps = [](const void* p) { return static_cast<const Tap*>(p); };
  const auto in = [](const void* p) { return static_cast<const T*>(p); };
  const auto out = [](void* p) { return static_cast<T*>(p); };
  return {name,
          sums,
          fftTaps,
          fftBlock,
          type<Tap>,
          type<T>,
          stateSize,
          [=](ZorFIRState** s, const void* t, Zor32s n, const void* dly, Zor8u* buffer) {
            return init(s, taps(t), n, in(dly), buffer);
          },
          [=](ZorFIRState** s, const void* t, Zor32s n, const void* dly) { return initAlloc(s, taps(t), n, in(dly)); },
          free,
          [=](const ZorFIRState* s, void* t) { return getTaps(s, static_cast<Tap*>(t)); },
          [=](const void* t, ZorFIRState* s) { return setTaps(taps(t), s); },
          [=](const ZorFIRState* s, void* dly) { return getDly(s, out(dly)); },
          [=](ZorFIRState* s, const void* dly) { return setDly(s, in(dly)); },
          [=](const void* src, void* dst, Zor32s len, ZorFIRState* s) { return filter(in(src), out(dst), len, s); },
          [=](void* srcDst, Zor32s len, ZorFIRState* s) { return inPlace(out(srcDst), len, s); },
          [=](const void* val, void* dst, ZorFIRState* s) { return one(*in(val), out(dst), s); }};
}
#define PLAIN(name, sums, fftTaps, fftBlock, Tap, T, ...) form<Tap, T>(name, sums, fftTaps, fftBlock, __VA_ARGS__)
#define SCALED(name, sums, fftTaps, fftBlock, Tap, T, SIZE, INIT, ALLOC, FREE, GET_TAPS, SET_TAPS, GET_DLY, SET_DLY, \
               FIR, FIR_I, ONE)                                                                                      \
  form<Tap, T>(                                                                                                      \
      name, sums, fftTaps, fftBlock, SIZE, INIT, ALLOC, FREE, GET_TAPS, SET_TAPS, GET_DLY, SET_DLY,                  \
      [](const T* src, T* dst, Zor32s len, ZorFIRState* s) { return FIR(src, dst, len, s, scaleNow); },              \
      [](T* srcDst, Zor32s len, ZorFIRState* s) { return FIR_I(srcDst, len, s, scaleNow); },                         \
      [](T val, T* dst, ZorFIRState* s) { return ONE(val, dst, s, scaleNow); })
#define INTEGER(name, Tap, T, SIZE, INIT, ALLOC, FREE, GET_TAPS, SET_TAPS, GET_DLY, SET_DLY, FIR, FIR_I, ONE)        \
  SCALED(name, Sums::wrapping, INT32_MAX, INT32_MAX, Tap, T, SIZE,                                                   \
         ([](ZorFIRState** s, const Tap* taps, Zor32s n, const T* dly, Zor8u* buffer) {                              \
           return INIT(s, taps, n, 0, dly, buffer);                                                                  \
         }),                                                                                                         \
         ([](ZorFIRState** s, const Tap* taps, Zor32s n, const T* dly) { return ALLOC(s, taps, n, 0, dly); }), FREE, \
         ([](const ZorFIRState* s, Tap* taps) {                                                                      \
           Zor32s factor = 0;                                                                                        \
           return GET_TAPS(s, taps, &factor);                                                                        \
         }),                                                                                                         \
         ([](const Tap* taps, ZorFIRState* s) { return SET_TAPS(taps, s, 0); }), GET_DLY, SET_DLY, FIR, FIR_I, ONE)

void eachForm(const std::function<void(const Form& form, Zor32s scale)>& run) {
  constexpr auto b32 = Sums::binary32, b64 = Sums::binary64;
  run(PLAIN("32f", b32, 64, 512, Zor32f, Zor32f, zorsFIRGetStateSize_32f, zorsFIRInit_32f, zorsFIRInitAlloc_32f,
            zorsFIRFree_32f, zorsFIRGetTaps_32f, zorsFIRSetTaps_32f, zorsFIRGetDlyLine_32f, zorsFIRSetDlyLine_32f,
            zorsFIR_32f, zorsFIR_32f_I, zorsFIROne_32f),
      0);
  run(PLAIN("32fc", b32, 16, 256, Zor32fc, Zor32fc, zorsFIRGetStateSize_32fc, zorsFIRInit_32fc, zorsFIRInitAlloc_32fc,
            zorsFIRFree_32fc, zorsFIRGetTaps_32fc, zorsFIRSetTaps_32fc, zorsFIRGetDlyLine_32fc, zorsFIRSetDlyLine_32fc,
            zorsFIR_32fc, zorsFIR_32fc_I, zorsFIROne_32fc),
      0);
  run(PLAIN("64f", b64, 64, 512, Zor64f, Zor64f, zorsFIRGetStateSize_64f, zorsFIRInit_64f, zorsFIRInitAlloc_64f,
            zorsFIRFree_64f, zorsFIRGetTaps_64f, zorsFIRSetTaps_64f, zorsFIRGetDlyLine_64f, zorsFIRSetDlyLine_64f,
            zorsFIR_64f, zorsFIR_64f_I, zorsFIROne_64f),
      0);
  run(PLAIN("64fc", b64, 32, 256, Zor64fc, Zor64fc, zorsFIRGetStateSize_64fc, zorsFIRInit_64fc, zorsFIRInitAlloc_64fc,
            zorsFIRFree_64fc, zorsFIRGetTaps_64fc, zorsFIRSetTaps_64fc, zorsFIRGetDlyLine_64fc, zorsFIRSetDlyLine_64fc,
            zorsFIR_64fc, zorsFIR_64fc_I, zorsFIROne_64fc),
      0);
  run(PLAIN("64f_32f", b64, 64, 512, Zor64f, Zor32f, zorsFIRGetStateSize64f_32f, zorsFIRInit64f_32f,
            zorsFIRInitAlloc64f_32f, zorsFIRFree64f_32f, zorsFIRGetTaps64f_32f, zorsFIRSetTaps64f_32f,
            zorsFIRGetDlyLine64f_32f, zorsFIRSetDlyLine64f_32f, zorsFIR64f_32f, zorsFIR64f_32f_I, zorsFIROne64f_32f),
      0);
  run(PLAIN("64fc_32fc", b64, 32, 256, Zor64fc, Zor32fc, zorsFIRGetStateSize64fc_32fc, zorsFIRInit64fc_32fc,
            zorsFIRInitAlloc64fc_32fc, zorsFIRFree64fc_32fc, zorsFIRGetTaps64fc_32fc, zorsFIRSetTaps64fc_32fc,
            zorsFIRGetDlyLine64fc_32fc, zorsFIRSetDlyLine64fc_32fc, zorsFIR64fc_32fc, zorsFIR64fc_32fc_I,
            zorsFIROne64fc_32fc),
      0);
  run(SCALED("32f_16s", b32, 64, 512, Zor32f, Zor16s, zorsFIRGetStateSize32f_16s, zorsFIRInit32f_16s,
             zorsFIRInitAlloc32f_16s, zorsFIRFree32f_16s, zorsFIRGetTaps32f_16s, zorsFIRSetTaps32f_16s,
             zorsFIRGetDlyLine32f_16s, zorsFIRSetDlyLine32f_16s, zorsFIR32f_16s_Sfs, zorsFIR32f_16s_ISfs,
             zorsFIROne32f_16s_Sfs),
      3);
  run(SCALED("32fc_16sc", b32, 16, 256, Zor32fc, Zor16sc, zorsFIRGetStateSize32fc_16sc, zorsFIRInit32fc_16sc,
             zorsFIRInitAlloc32fc_16sc, zorsFIRFree32fc_16sc, zorsFIRGetTaps32fc_16sc, zorsFIRSetTaps32fc_16sc,
             zorsFIRGetDlyLine32fc_16sc, zorsFIRSetDlyLine32fc_16sc, zorsFIR32fc_16sc_Sfs, zorsFIR32fc_16sc_ISfs,
             zorsFIROne32fc_16sc_Sfs),
      3);
  run(SCALED("64f_16s", b64, 64, 512, Zor64f, Zor16s, zorsFIRGetStateSize64f_16s, zorsFIRInit64f_16s,
             zorsFIRInitAlloc64f_16s, zorsFIRFree64f_16s, zorsFIRGetTaps64f_16s, zorsFIRSetTaps64f_16s,
             zorsFIRGetDlyLine64f_16s, zorsFIRSetDlyLine64f_16s, zorsFIR64f_16s_Sfs, zorsFIR64f_16s_ISfs,
             zorsFIROne64f_16s_Sfs),
      2);
  run(SCALED("64f_32s", b64, 64, 512, Zor64f, Zor32s, zorsFIRGetStateSize64f_32s, zorsFIRInit64f_32s,
             zorsFIRInitAlloc64f_32s, zorsFIRFree64f_32s, zorsFIRGetTaps64f_32s, zorsFIRSetTaps64f_32s,
             zorsFIRGetDlyLine64f_32s, zorsFIRSetDlyLine64f_32s, zorsFIR64f_32s_Sfs, zorsFIR64f_32s_ISfs,
             zorsFIROne64f_32s_Sfs),
      -4);
  run(SCALED("64fc_16sc", b64, 32, 256, Zor64fc, Zor16sc, zorsFIRGetStateSize64fc_16sc, zorsFIRInit64fc_16sc,
             zorsFIRInitAlloc64fc_16sc, zorsFIRFree64fc_16sc, zorsFIRGetTaps64fc_16sc, zorsFIRSetTaps64fc_16sc,
             zorsFIRGetDlyLine64fc_16sc, zorsFIRSetDlyLine64fc_16sc, zorsFIR64fc_16sc_Sfs, zorsFIR64fc_16sc_ISfs,
             zorsFIROne64fc_16sc_Sfs),
      2);
  run(SCALED("64fc_32sc", b64, 32, 256, Zor64fc, Zor32sc, zorsFIRGetStateSize64fc_32sc, zorsFIRInit64fc_32sc,
             zorsFIRInitAlloc64fc_32sc, zorsFIRFree64fc_32sc, zorsFIRGetTaps64fc_32sc, zorsFIRSetTaps64fc_32sc,
             zorsFIRGetDlyLine64fc_32sc, zorsFIRSetDlyLine64fc_32sc, zorsFIR64fc_32sc_Sfs, zorsFIR64fc_32sc_ISfs,
             zorsFIROne64fc_32sc_Sfs),
      0);
  // A state of 32s is one of 64f_32s, and either family runs it. Its FFT comes with InitAlloc alone.
  run(SCALED("32s", b64, INT32_MAX, 512, Zor32s, Zor32s, zorsFIRGetStateSize_32s, zorsFIRInit_32s, zorsFIRInitAlloc_32s,
             zorsFIRFree_32s, zorsFIRGetTaps_32s, zorsFIRSetTaps_32s, zorsFIRGetDlyLine64f_32s,
             zorsFIRSetDlyLine64f_32s, zorsFIR_32s_Sfs, zorsFIR_32s_ISfs, zorsFIROne_32s_Sfs),
      4);
  run(INTEGER("16s", Zor16s, Zor16s, zorsFIRGetStateSize_16s, zorsFIRInit_16s, zorsFIRInitAlloc_16s, zorsFIRFree_16s,
              zorsFIRGetTaps_16s, zorsFIRSetTaps_16s, zorsFIRGetDlyLine_16s, zorsFIRSetDlyLine_16s, zorsFIR_16s_Sfs,
              zorsFIR_16s_ISfs, zorsFIROne_16s_Sfs),
      9);
  run(INTEGER("32s_16s", Zor32s, Zor16s, zorsFIRGetStateSize32s_16s, zorsFIRInit32s_16s, zorsFIRInitAlloc32s_16s,
              zorsFIRFree32s_16s, zorsFIRGetTaps32s_16s, zorsFIRSetTaps32s_16s, zorsFIRGetDlyLine32s_16s,
              zorsFIRSetDlyLine32s_16s, zorsFIR32s_16s_Sfs, zorsFIR32s_16s_ISfs, zorsFIROne32s_16s_Sfs),
      10);
  run(INTEGER("32sc_16sc", Zor32sc, Zor16sc, zorsFIRGetStateSize32sc_16sc, zorsFIRInit32sc_16sc,
              zorsFIRInitAlloc32sc_16sc, zorsFIRFree32sc_16sc, zorsFIRGetTaps32sc_16sc, zorsFIRSetTaps32sc_16sc,
              zorsFIRGetDlyLine32sc_16sc, zorsFIRSetDlyLine32sc_16sc, zorsFIR32sc_16sc_Sfs, zorsFIR32sc_16sc_ISfs,
              zorsFIROne32sc_16sc_Sfs),
      10);
}
#undef PLAIN
#undef SCALED
#undef INTEGER

TEST(FIRForms, BlocksOfEveryLengthAreTheConvolution) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    blocksOfEveryLength(form);
  });
}
TEST(FIRForms, AnySplitOfAStreamGivesTheStream) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    streams(form);
  });
}
TEST(FIRForms, AnyCutOfAStreamGivesTheWhole) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    cuts(form);
  });
}
TEST(FIRForms, TapsAndDelayLinesAreGotAndSet) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    getsAndSets(form);
  });
}
TEST(FIRForms, LiveAsAllObjectsDo) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    livesAsAllObjectsDo(form);
  });
}
TEST(FIRForms, ChecksComeInOrder) {
  eachForm([](const Form& form, Zor32s scale) {
    scaleNow = scale;
    checks(form);
  });
}
TEST(FIRForms, IntegerShiftsAreLimitedAndWrap) {
  eachForm([](const Form& form, Zor32s) {
    if (form.sums != Sums::wrapping) return;
    for (Zor32s scale : {-40, -31, -30, -16, -1, 0, 1, 2, 16, 30, 31, 32, INT32_MAX, INT32_MIN}) {
      scaleNow = scale == INT32_MIN ? -INT32_MAX : scale;
      streams(form);
    }
  });
}

// ---- Normalisation of integer taps --------------------------------------------------------------

TEST(FIRInteger, TheLowestTapHalvesAllAndRaisesTheFactor) {
  const std::vector<Zor16s> taps = {-32768, 5, -7};
  std::vector<Zor16s> got(3);
  ZorFIRState* state = nullptr;
  Zor32s factor = 0;
  ASSERT_EQ(zorsFIRInitAlloc_16s(&state, taps.data(), 3, 4, nullptr), zorStatusOk);
  ASSERT_EQ(zorsFIRGetTaps_16s(state, got.data(), &factor), zorStatusOk);
  EXPECT_EQ(got, (std::vector<Zor16s>{-16384, 2, -4}));
  EXPECT_EQ(factor, 5);
  EXPECT_EQ(zorsFIRFree_16s(state), zorStatusOk);
}
TEST(FIRInteger, WideTapsAreShiftedUntilTheLargestFits) {
  for (Zor32s largest : {1, 32766, 32767, 65532, 65533, 65534, 100000, INT32_MAX, INT32_MIN, -32767, -32766}) {
    const std::vector<Zor32s> taps = {largest, 3, -1000};
    int shift = 0;
    for (Zor64s m = std::max<Zor64s>(std::abs(Zor64s{largest}), 1000); m > 32766; m >>= 1) ++shift;
    std::vector<Zor32s> got(3);
    Zor32s factor = 0;
    ZorFIRState* state = nullptr;
    ASSERT_EQ(zorsFIRInitAlloc32s_16s(&state, taps.data(), 3, -2, nullptr), zorStatusOk);
    ASSERT_EQ(zorsFIRGetTaps32s_16s(state, got.data(), &factor), zorStatusOk);
    for (std::size_t k = 0; k < 3; ++k) EXPECT_EQ(got[k], taps[k] >> shift) << largest;
    EXPECT_EQ(factor, shift - 2);
    EXPECT_EQ(zorsFIRFree32s_16s(state), zorStatusOk);
    const std::vector<Zor32sc> pairs = {{3, largest}, {-1000, 1}};
    std::vector<Zor32sc> gotPairs(2);
    ASSERT_EQ(zorsFIRInitAlloc32sc_16sc(&state, pairs.data(), 2, 0, nullptr), zorStatusOk);
    ASSERT_EQ(zorsFIRGetTaps32sc_16sc(state, gotPairs.data(), &factor), zorStatusOk);
    EXPECT_EQ(gotPairs[0].im, largest >> shift);
    EXPECT_EQ(gotPairs[1].re, -1000 >> shift);
    EXPECT_EQ(factor, shift);
    EXPECT_EQ(zorsFIRFree32sc_16sc(state), zorStatusOk);
  }
}
TEST(FIRInteger, FloatTapsAreScaledIntoTheUpperHalf) {
  kit::Random random(4);
  for (Zor32f scale : {1.0f, 1e-3f, 1e-5f, 1000.0f, 40000.0f, 1e9f}) {
    auto taps = kit::signal<Zor32f>(9, random);
    for (auto& t : taps) t *= scale;
    Zor32s size = 0;
    ASSERT_EQ(zorsFIRGetStateSize32s_16s32f(9, &size), zorStatusOk);
    std::vector<Zor8u> block(static_cast<std::size_t>(size));
    ZorFIRState* state = nullptr;
    ASSERT_EQ(zorsFIRInit32s_16s32f(&state, taps.data(), 9, nullptr, block.data()), zorStatusOk);
    std::vector<Zor32s> stored(9);
    Zor32s factor = 0;
    ASSERT_EQ(zorsFIRGetTaps32s_16s(state, stored.data(), &factor), zorStatusOk);
    int largest = 0;
    for (std::size_t k = 0; k < 9; ++k) {
      largest = std::max(largest, std::abs(stored[k]));
      const double x = std::ldexp(double(taps[k]), -factor);
      EXPECT_EQ(stored[k], int(std::trunc(x + std::copysign(0.5, x))));
    }
    EXPECT_TRUE(largest >= 16384 && largest <= 32767) << scale << " " << largest;
    std::vector<Zor32f> floats(9), again(9);
    ASSERT_EQ(zorsFIRGetTaps32s_16s32f(state, floats.data()), zorStatusOk);
    for (std::size_t k = 0; k < 9; ++k) EXPECT_EQ(floats[k], std::ldexp(Zor32f(stored[k]), factor));
    ASSERT_EQ(zorsFIRSetTaps32s_16s32f(floats.data(), state), zorStatusOk);
    ASSERT_EQ(zorsFIRGetTaps32s_16s32f(state, again.data()), zorStatusOk);
    EXPECT_EQ(again, floats);

    std::vector<Zor32fc> pairs = {{taps[0], taps[1]}, {taps[2], taps[3]}}, gotPairs(2);
    ASSERT_EQ(zorsFIRGetStateSize32sc_16sc32fc(2, &size), zorStatusOk);
    std::vector<Zor8u> complexBlock(static_cast<std::size_t>(size));
    ASSERT_EQ(zorsFIRInit32sc_16sc32fc(&state, pairs.data(), 2, nullptr, complexBlock.data()), zorStatusOk);
    ASSERT_EQ(zorsFIRGetTaps32sc_16sc32fc(state, gotPairs.data()), zorStatusOk);
    ASSERT_EQ(zorsFIRSetTaps32sc_16sc32fc(gotPairs.data(), state), zorStatusOk);
    EXPECT_NEAR(gotPairs[0].re, taps[0], std::fabs(scale) * 1e-4);
    EXPECT_NEAR(gotPairs[1].im, taps[3], std::fabs(scale) * 1e-4);
    ASSERT_EQ(zorsFIRInitAlloc32s_16s32f(&state, taps.data(), 9, nullptr), zorStatusOk);
    EXPECT_EQ(zorsFIRFree32s_16s(state), zorStatusOk);
    ASSERT_EQ(zorsFIRInitAlloc32sc_16sc32fc(&state, pairs.data(), 2, nullptr), zorStatusOk);
    EXPECT_EQ(zorsFIRFree32sc_16sc(state), zorStatusOk);
  }
}

TEST(FIRInteger, FloatTapsAreScaledByAtMost33Steps) {
  for (auto [tap, factor] : {std::pair{0x1p-40f, -33}, {0.0f, -33}, {0x1p60f, 33}}) {
    ZorFIRState* state = nullptr;
    const Zor32f taps[1] = {tap};
    ASSERT_EQ(zorsFIRInitAlloc32s_16s32f(&state, taps, 1, nullptr), zorStatusOk);
    Zor32s stored = 0, got = 0;
    ASSERT_EQ(zorsFIRGetTaps32s_16s(state, &stored, &got), zorStatusOk);
    EXPECT_EQ(got, tap == 0 ? -33 : factor);
    EXPECT_EQ(zorsFIRFree32s_16s(state), zorStatusOk);
  }
}

TEST(FIR, AStateOf32sAndOneOf64f_32sRunInEitherFamily) {
  const std::vector<Zor32s> taps = {3, -2, 1}, x = {1, 10, 100, 1000};
  std::vector<Zor32s> a(4), b(4);
  ZorFIRState *one = nullptr, *other = nullptr;
  ASSERT_EQ(zorsFIRInitAlloc_32s(&one, taps.data(), 3, nullptr), zorStatusOk);
  ASSERT_EQ(zorsFIRInitAlloc_32s(&other, taps.data(), 3, nullptr), zorStatusOk);
  ASSERT_EQ(zorsFIR_32s_Sfs(x.data(), a.data(), 4, one, 0), zorStatusOk);
  ASSERT_EQ(zorsFIR64f_32s_Sfs(x.data(), b.data(), 4, other, 0), zorStatusOk);
  EXPECT_EQ(a, b);
  EXPECT_EQ(a, (std::vector<Zor32s>{3, 28, 281, 2810}));
  EXPECT_EQ(zorsFIRFree64f_32s(one), zorStatusOk);
  EXPECT_EQ(zorsFIRFree_32s(other), zorStatusOk);
}
TEST(FIR, AMultiRateTagIsFreedBy64f_32sAndNotBy32s) {
  alignas(8) Zor8u record[512] = {};
  const Zor32u multiRate = 0x46493233;  // nothing of it is owned
  std::memcpy(record, &multiRate, 4);
  auto* const state = reinterpret_cast<ZorFIRState*>(record);
  EXPECT_EQ(zorsFIRFree_32s(state), zorStatusBadContext);
  EXPECT_EQ(zorsFIRFree64f_32s(state), zorStatusOk);
}
TEST(FIR, TheFftOf32sComesWithInitAllocFrom32Taps) {
  kit::Random random(7);
  const auto taps = someTaps<Zor32s>(40, random);
  const auto x = someSamples<Zor32s>(3000, random);
  const auto exact = convolve(taps, nullptr, x);
  ZorFIRState* state = nullptr;
  std::vector<Zor32s> y(3000);
  ASSERT_EQ(zorsFIRInitAlloc_32s(&state, taps.data(), 40, nullptr), zorStatusOk);
  ASSERT_EQ(zorsFIR_32s_Sfs(x.data(), y.data(), 3000, state, 2), zorStatusOk);
  for (std::size_t i = 0; i < y.size(); ++i) ASSERT_LE(std::fabs(y[i] - exact.y[i].re / 4), 0.51L);
  EXPECT_EQ(zorsFIRFree_32s(state), zorStatusOk);
}
TEST(FIR, SettingTapsOf32f_16sStaysInsideItsBlock) {
  kit::Random random(8);
  for (int n : {1, 2, 7, 16, 63, 64, 500, 3000}) {
    const auto taps = kit::signal<Zor32f>(std::size_t(n), random);
    Zor32s size = 0;
    ASSERT_EQ(zorsFIRGetStateSize32f_16s(n, &size), zorStatusOk);
    const Guarded<Zor8u> block(std::size_t(size), Edge::end);
    ZorFIRState* state = nullptr;
    ASSERT_EQ(zorsFIRInit32f_16s(&state, taps.data(), n, nullptr, block.data()), zorStatusOk);
    ASSERT_EQ(zorsFIRSetTaps32f_16s(taps.data(), state), zorStatusOk);
    std::vector<Zor32f> got(taps.size());
    ASSERT_EQ(zorsFIRGetTaps32f_16s(state, got.data()), zorStatusOk);
    EXPECT_EQ(got, taps);
    // The direct kernels read rows of four where each tap now stands eight times: tap j / 2 serves as tap j.
    if (n < 500) {
      std::vector<Zor16s> x(300, 0), y(300);
      ASSERT_EQ(zorsFIRSetDlyLine32f_16s(state, nullptr), zorStatusOk);
      x[0] = 16384;
      ASSERT_EQ(zorsFIR32f_16s_Sfs(x.data(), y.data(), 300, state, 0), zorStatusOk);
      for (std::size_t j = 0; j < taps.size(); ++j)
        EXPECT_EQ(y[j], Zor16s(std::rint(16384 * taps[j / 2]))) << n << " " << j;
    }
    EXPECT_TRUE(block.intact());
  }
}
TEST(FIR, BlocksRoundToNearestWhateverTheDirection) {
  kit::Random random(11);
  const auto taps = kit::signal<Zor32f>(20, random), x = kit::signal<Zor32f>(300, random);
  std::vector<Zor32f> wanted(300), y(300);
  for (unsigned direction : {0u, 0x2000u, 0x4000u, 0x6000u}) {
    ZorFIRState* state = nullptr;
    ASSERT_EQ(zorsFIRInitAlloc_32f(&state, taps.data(), 20, nullptr), zorStatusOk);
    const unsigned saved = __builtin_ia32_stmxcsr();
    __builtin_ia32_ldmxcsr((saved & ~0x6000u) | direction);
    zorsFIR_32f(x.data(), y.data(), 300, state);
    const unsigned after = __builtin_ia32_stmxcsr();
    __builtin_ia32_ldmxcsr(saved);
    EXPECT_EQ(after & 0x6000u, direction);
    if (direction == 0) wanted = y;
    EXPECT_EQ(y, wanted);
    zorsFIRFree_32f(state);
  }
}

}  // namespace
