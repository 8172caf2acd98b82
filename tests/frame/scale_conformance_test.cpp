// The sentence of the headers on scale factors, held against every export that takes one: a result is t / 2^scaleFactor
// to the nearest integer, saturated, for one exact t. What t is stays with each family's tests. From the finest result
// that is not saturated follows where t lies, and so what every other scale factor may give.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>

#include "kit/contract.h"
#include "kit/elements.h"
#include "zors.h"

namespace {

using kit::detail::Argument, kit::detail::argument, kit::detail::Function, kit::detail::Invoke;
using Wide = __int128;

// ---- Every export by the types of its parameters --------------------------------------------------

enum class Role { source, destination, object, number };
struct Parameter {
  Role role;
  bool isFloat;      // of elements or of a number
  int parts;         // 2 for pairs
  std::size_t size;  // of a part
  bool isSigned;
  const void* type;  // of an object
  void (*fill)(void* to, std::size_t count, kit::Random& random);
  Argument (*number)(int value);
};
template <class T>
concept Complete = requires {
  sizeof(T);
};
template <class T> struct PartOf { using type = T; };
template <kit::ComplexPair T> struct PartOf<T> { using type = decltype(T::re); };
template <class T> constexpr char typeMark = 0;  // its address stands for the type

template <class P> constexpr Parameter parameterOf() {
  using T = std::remove_cv_t<std::remove_pointer_t<P>>;
  if constexpr (std::is_pointer_v<P> && (!Complete<T> || std::is_void_v<T> || std::is_pointer_v<T>)) {
    return {Role::object, false, 1, 0, false, &typeMark<T>, nullptr, nullptr};
  } else {
    using Part = typename PartOf<T>::type;
    const auto number = [](int value) {
      if constexpr (std::is_pointer_v<P>)
        return Argument{};
      else if constexpr (kit::ComplexPair<T>)
        return argument(T{Part(value), Part(value)});
      else
        return argument(T(value));
    };
    return {!std::is_pointer_v<P>                       ? Role::number
            : std::is_const_v<std::remove_pointer_t<P>> ? Role::source
                                                        : Role::destination,
            std::is_floating_point_v<Part>,
            kit::ComplexPair<T> ? 2 : 1,
            sizeof(Part),
            std::is_signed_v<Part>,
            nullptr,
            kit::element<T>.fill,
            number};
  }
}

struct Export {
  const char* name;
  Function function;
  Invoke invoke;
  std::vector<Parameter> parameters;
};
constexpr bool isScaled(std::string_view name) { return name.ends_with("_Sfs") || name.ends_with("_ISfs"); }
template <bool scaled, class R, class... P> void add(std::vector<Export>& all, const char* name, R (*f)(P...)) {
  if constexpr (scaled)
    all.push_back({name, reinterpret_cast<Function>(f), kit::detail::invoke<P...>, {parameterOf<P>()...}});
}
#define EXPORT(name) add<isScaled(#name)>(all, #name, name);
#define SHARED(name, as) EXPORT(name)
const std::vector<Export> exports = [] {
  std::vector<Export> all;
#include "frame/exports.def"
  return all;
}();
#undef EXPORT
#undef SHARED

// ---- What the headers say otherwise -----------------------------------------------------------------

struct Exception {
  const char* begin;  // of the name
  Zor32s from, to;    // the scale factors at which it holds
  const char* theHeaderSays;
};
constexpr Zor32s least = INT32_MIN, most = INT32_MAX;
// Families whose arguments are not read off their types, or whose results are no t / 2^scaleFactor: the scale factors
// are in their own tests.
constexpr Exception elsewhere[] = {
    {"zorsFIR", least, most, "states, and delay lines as arguments"},
    {"zorsIIR", least, most, "states, and delay lines as arguments"},
    {"zorsGoertz", least, most, "frequencies"},
    {"zorsConvCyclic", least, most, "operands of eight elements without a length"},
    {"zorsDFT", least, most, "specifications of other kinds"},
    {"zorsDCT", least, most, "specifications of other kinds"},
    {"zorsHilbert", least, most, "specifications of other kinds"},
    {"zorsAddProduct_", least, most, "the product is scaled before it is added"},
    {"zorsMul_Low_32s_Sfs", least, most, "the low half of the shifted product, neither rounded nor saturated"},
    {"zorsCartToPolar_16sc_Sfs", least, most, "two scale factors"},
    {"zorsPolarToCart_16sc_Sfs", least, most, "two scale factors"},
    {"zorsWinBlackmanQ15_16s_ISfs", least, most, "one factor scales the window"},
    {"zorsConvert_16f16s_Sfs", least, most, "sources of 16 bits that are floats"},
    {"zorsConvert_32f24", least, most, "elements of three bytes"},
    {"zorsConvert_32s24s_Sfs", least, most, "elements of three bytes"},
    {"zorsConvert_32u24u_Sfs", least, most, "elements of three bytes"},
};
constexpr Exception exceptions[] = {
    {"zors10Log10_", 0, most, "from 0 on an integer shifted by scaleFactor modulo 32"},
    {"zorsLn_", 0, most, "from 0 on an integer shifted by scaleFactor modulo 32"},
    {"zorsAddC_8u_", 9, 9, "0 at 9"},
    {"zorsAdd_64s_Sfs", 2, most, "some ties give 0, and from 64 on all do"},
    {"zorsAutoCorr_", 127, most, "a factor whose exponent bits wrap"},
    {"zorsAutoCorr_", least, -127, "a factor whose exponent bits wrap"},
    {"zorsCrossCorr_", 127, most, "a factor whose exponent bits wrap"},
    {"zorsCrossCorr_", least, -127, "a factor whose exponent bits wrap"},
    {"zorsConv_16s_Sfs", 127, most, "a factor whose exponent bits wrap"},
    {"zorsConv_16s_Sfs", least, -127, "a factor whose exponent bits wrap"},
    {"zorsConvert_32f", 127, most, "a factor whose exponent bits wrap"},
    {"zorsConvert_32f", least, -127, "a factor whose exponent bits wrap"},
    {"zorsConvert_32s16s_Sfs", 32, most, "as 31"},
    {"zorsConvert_64s32s_Sfs", 64, most, "as 63"},
    {"zorsConvert_64s32s_Sfs", least, -31, "as -30"},
    {"zorsCubrt_32s16s_Sfs", 127, most, "a factor whose exponent bits wrap"},
    {"zorsCubrt_32s16s_Sfs", least, -127, "a factor whose exponent bits wrap"},
    {"zorsDotProd_16s16sc", 32, most, "as 31"},
    {"zorsDotProd_16s32s_Sfs", 32, most, "as 31"},
    {"zorsDotProd_16s_Sfs", 32, most, "as 31"},
    {"zorsDotProd_16sc", 32, most, "as 31"},
    {"zorsExp_16s_", 17, most, "zeros above 16"},
    {"zorsFFTFwd_CToC_16s", 127, most, "a factor of binary32"},
    {"zorsFFTFwd_CToC_16s", least, -127, "a factor of binary32"},
    {"zorsFFTInv_CToC_16s", 127, most, "a factor of binary32"},
    {"zorsFFTInv_CToC_16s", least, -127, "a factor of binary32"},
    {"zorsMean_32s_Sfs", 64, most, "modulo 64"},
    {"zorsMean_32s_Sfs", least, -64, "modulo 64"},
    {"zorsNorm_L2_16s32s_Sfs", 31, most, "modulo 32"},
    {"zorsNorm_L2_16s32s_Sfs", least, -31, "modulo 32"},
    {"zorsNormDiff_L2_16s32s_Sfs", 31, most, "modulo 32"},
    {"zorsNormDiff_L2_16s32s_Sfs", least, -31, "modulo 32"},
    {"zorsNormalize_", 127, most, "a factor whose exponent bits wrap"},
    {"zorsNormalize_", least, -127, "a factor whose exponent bits wrap"},
    {"zorsPhase_32sc_Sfs", least, -29, "the binary64 angle in place of the binary32 one"},
    {"zorsPhase_32sc_Sfs", 2, most, "the binary64 angle in place of the binary32 one"},
};
// Real terms of the 16-bit transforms' formats: "_RTo" and "ToR_".
constexpr Exception binary32Transforms = {"ToR_ or _RTo of 16s", 127, most, "a factor of binary32"};

bool excepted(const std::string& name, Zor32s s) {
  const bool real16 = name.starts_with("zorsFFT") && name.find("16s") != std::string::npos;
  if (real16 && (s >= binary32Transforms.from || s <= -binary32Transforms.from)) return true;
  return std::any_of(std::begin(exceptions), std::end(exceptions),
                     [&](const Exception& e) { return name.starts_with(e.begin) && s >= e.from && s <= e.to; });
}

bool startsWithOneOf(const std::string& name, const std::vector<std::string>& starts) {
  return std::any_of(starts.begin(), starts.end(), [&](const std::string& s) { return name.starts_with(s); });
}
// t is an integer, so that one result to scale 0 or below gives all others exactly.
const std::vector<std::string> exact = {"zorsAdd_",        "zorsAddC_",       "zorsSub_",         "zorsSubC_",
                                        "zorsSubCRev_",    "zorsMul_",        "zorsSqr_",         "zorsSum_16s32s_",
                                        "zorsDotProd_16s", "zorsMagSquared_", "zorsPowerSpectr_", "zorsConvert_32s"};
// Scaled down they are cut, not rounded.
const std::vector<std::string> cut = {"zorsNorm_", "zorsNormDiff_", "zorsMulPack_16s", "zorsMulPerm_16s"};
// The greatest result, where it is not that of the type.
const std::map<std::string, Zor64s> greatest = {{"zors10Log10_32s", 2147483520}, {"zorsLn_32s_", 2147483520}};

// ---- Specifications of transforms, by type ------------------------------------------------------------

constexpr int order = 4;
const auto& specifications() {
  static const auto all = [] {
    std::map<const void*, std::shared_ptr<void>> made;
    const auto add = [&]<class S>(ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm), ZorStatus (*free)(S*)) {
      S* spec = nullptr;
      EXPECT_EQ(initAlloc(&spec, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintAccurate), zorStatusOk);
      made[&typeMark<S>] = {spec, [free](void* done) { free(static_cast<S*>(done)); }};
    };
    add(zorsFFTInitAlloc_C_16sc, zorsFFTFree_C_16sc);
    add(zorsFFTInitAlloc_C_16s, zorsFFTFree_C_16s);
    add(zorsFFTInitAlloc_R_16s, zorsFFTFree_R_16s);
    add(zorsFFTInitAlloc_C_32sc, zorsFFTFree_C_32sc);
    add(zorsFFTInitAlloc_C_32s, zorsFFTFree_C_32s);
    add(zorsFFTInitAlloc_R_32s, zorsFFTFree_R_32s);
    add(zorsFFTInitAlloc_R_16s32s, zorsFFTFree_R_16s32s);
    return made;
  }();
  return all;
}

// ---- One export ---------------------------------------------------------------------------------------

// t / 2^k of an integer t to nearest, ties to even.
Wide divided(Wide t, int k) {
  if (k <= 0) return t;
  if (k > 120) return 0;
  const Wide quotient = t >> k, twice = (t - (quotient << k)) * 2, one = Wide{1} << k;
  return quotient + (twice > one || (twice == one && (quotient & 1) != 0));
}

constexpr std::size_t count = 33, room = 64;  // elements of a vector, and of the memory behind a pointer
const std::vector<Zor32s> extremes = {127, 128, 1000, INT32_MAX, -1000, -1100, INT32_MIN + 1, INT32_MIN};

// The results of an export by scale factor and place.
class Results {
 public:
  Results(const Export& tested, unsigned seed) : tested_(tested) {
    kit::Random random(seed);
    const auto& parameters = tested.parameters;
    std::size_t lastPointer = 0, object = parameters.size(), scaleAt = 0;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (parameters[i].role == Role::object) object = i;
      if (parameters[i].role == Role::number) scaleAt = i;
    }
    for (std::size_t i = 0; i < object; ++i)
      if (parameters[i].role != Role::number) lastPointer = i;
    std::size_t lengthAt = parameters.size();
    if (object == parameters.size()) {
      lengthAt = lastPointer + 1;
      if (lengthAt == scaleAt) {  // results of one value stand behind the length
        const auto number = [](const Parameter& p) { return p.role == Role::number; };
        const auto last = std::find_if(parameters.rend() - std::ptrdiff_t(lastPointer), parameters.rend(), number);
        lengthAt = last == parameters.rend() ? parameters.size() : std::size_t(parameters.rend() - last) - 1;
      }
    }
    scaleAt_ = scaleAt;
    memory_.resize(parameters.size());
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      const Parameter& p = parameters[i];
      arguments_.push_back(i == lengthAt         ? p.number(int(count))
                           : p.number == nullptr ? Argument{}
                                                 : p.number(i < lengthAt ? 3 : 1));
      if (p.role == Role::object) {
        const auto spec = specifications().find(p.type);
        known_ = known_ && spec != specifications().end();
        if (known_) arguments_[i] = argument(spec->second.get());
      } else if (p.role != Role::number && i < object) {
        memory_[i].resize(room * p.size * std::size_t(p.parts));
        p.fill(memory_[i].data(), room / 2 + 8, random);
        tame(p, memory_[i]);
      } else if (p.role != Role::number) {
        arguments_[i] = argument<void*>(nullptr);  // a work buffer
      }
    }
    elements_ = object < parameters.size() ? std::size_t{1} << order : lengthAt < lastPointer ? 1 : count;
  }
  bool known() const { return known_; }

  // All integers that the destinations hold after a call.
  std::vector<Wide> at(Zor32s scaleFactor) {
    auto memory = memory_;
    auto arguments = arguments_;
    arguments[scaleAt_] = argument(scaleFactor);
    for (std::size_t i = 0; i < memory.size(); ++i)
      if (!memory[i].empty()) arguments[i] = argument<void*>(memory[i].data());
    EXPECT_GE(tested_.invoke(tested_.function, arguments.data()), 0) << tested_.name;
    std::vector<Wide> out;
    for (std::size_t i = 0; i < memory.size(); ++i) {
      const Parameter& p = tested_.parameters[i];
      if (p.role != Role::destination || memory[i].empty()) continue;
      const std::size_t parts = elements_ * std::size_t(p.parts);
      for (std::size_t k = 0; k < parts; ++k) out.push_back(part(p, memory[i].data() + k * p.size));
      range_ = p;
    }
    return out;
  }
  const Parameter& destination() const { return range_; }

 private:
  static Wide part(const Parameter& p, const Zor8u* at) {
    Zor64u bits = 0;
    std::memcpy(&bits, at, p.size);
    const int unused = 64 - 8 * int(p.size);
    return p.isSigned ? Wide{static_cast<Zor64s>(bits << unused) >> unused} : Wide{bits};
  }
  // Floats between 2^-10 and 2^20 in magnitude; no zero where a family divides or takes logarithms.
  void tame(const Parameter& p, std::vector<Zor8u>& bytes) const {
    const std::string name = tested_.name;
    const std::size_t parts = bytes.size() / p.size;
    const auto each = [&]<class T>(T, auto change) {
      for (std::size_t k = 0; k < parts; ++k) {
        T x;
        std::memcpy(&x, bytes.data() + k * sizeof x, sizeof x);
        x = change(x);
        std::memcpy(bytes.data() + k * sizeof x, &x, sizeof x);
      }
    };
    const auto finite = [](auto x) {
      return std::isfinite(x) && std::fabs(x) > 0x1p-10 && std::fabs(x) < 0x1p20 ? x : decltype(x)(1.25);
    };
    const auto integer = [&](auto x) {
      if (name.starts_with("zorsExp")) return decltype(x)(x % 20);
      if (name.starts_with("zorsLn") || name.starts_with("zors10Log") || name.starts_with("zorsDiv"))
        return decltype(x)(x == std::numeric_limits<decltype(x)>::min() || x == 0 ? 1
                           : name.starts_with("zorsDiv")                          ? x
                           : x < 0                                                ? -x
                                                                                  : x);
      return x;
    };
    if (p.isFloat)
      p.size == 4 ? each(Zor32f{}, finite) : each(Zor64f{}, finite);
    else if (p.isSigned)
      p.size == 1   ? each(Zor8s{}, integer)
      : p.size == 2 ? each(Zor16s{}, integer)
      : p.size == 4 ? each(Zor32s{}, integer)
                    : each(Zor64s{}, integer);
    else
      p.size == 1 ? each(Zor8u{}, integer) : p.size == 2 ? each(Zor16u{}, integer) : each(Zor32u{}, integer);
  }

  const Export& tested_;
  std::vector<Argument> arguments_;
  std::vector<std::vector<Zor8u>> memory_;
  std::size_t scaleAt_ = 0, elements_ = 0;
  bool known_ = true;
  Parameter range_ = {};
};

std::string text(Wide x) { return x < 0 ? std::to_string(Zor64s(x)) : std::to_string(Zor64u(x)); }

// "" where the results by scale factor are those of one t. Rounded down from the finest result that is not saturated, a
// result lies between what half a unit of that one to either side gives.
std::string inconsistency(const std::map<Zor32s, Wide>& results, Wide low, Wide high, bool integer, int slack) {
  auto finest = results.lower_bound(-70);
  while (finest != results.end() && (finest->second == high || (finest->second == low && low != 0))) ++finest;
  if (finest == results.end()) return "";  // saturated throughout
  const Wide r = finest->second;
  for (const auto& [s, got] : results) {
    const auto steps = Zor64s{s} - finest->first;
    const int k = int(std::min<Zor64s>(steps, 200));
    bool right;
    if (steps < 0)
      right = got == (r > 0 ? high : r < 0 ? low : 0);
    else if (integer && finest->first <= 0)
      right = got == divided(r, k);
    else
      right = steps == 0 || (got >= divided(2 * r - 1, k + 1) - slack && got <= divided(2 * r + 1, k + 1) + slack);
    if (!right)
      return "scale factor " + std::to_string(s) + ": " + text(got) + ", at " + std::to_string(finest->first) + ": " +
             text(r);
  }
  return "";
}

TEST(ScaleFactors, EveryExportGivesOneValueAtEveryScale) {
  int seen = 0;
  for (const Export& tested : exports) {
    const std::string name = tested.name;
    if (std::any_of(std::begin(elsewhere), std::end(elsewhere),
                    [&](const Exception& e) { return name.starts_with(e.begin); }))
      continue;
    ++seen;
    for (unsigned seed = 1; seed <= 6; ++seed) {
      Results results(tested, seed);
      ASSERT_TRUE(results.known()) << name << " takes an object that this test cannot make";
      std::map<Zor32s, std::vector<Wide>> all;
      const auto at = [&](Zor32s s) {
        if (!excepted(name, s)) all[s] = results.at(s);
      };
      for (Zor32s s = -70; s <= 70; ++s) at(s);
      for (Zor32s s : extremes) at(s);
      const Parameter& d = results.destination();
      if (d.isFloat) break;
      const int bits = 8 * int(d.size);
      Wide high = (Wide{1} << (d.isSigned ? bits - 1 : bits)) - 1;
      const Wide low = d.isSigned ? -high - 1 : 0;
      for (const auto& [begin, value] : greatest)
        if (name.starts_with(begin)) high = value;
      std::string first;
      for (std::size_t k = 0; k < all.begin()->second.size() && first.empty(); ++k) {
        std::map<Zor32s, Wide> one;
        for (const auto& [s, values] : all) one[s] = values[k];
        first = inconsistency(one, low, high, startsWithOneOf(name, exact), startsWithOneOf(name, cut) ? 1 : 0);
        if (!first.empty()) first = "seed " + std::to_string(seed) + " [" + std::to_string(k) + "] " + first;
      }
      EXPECT_EQ(first, "") << name;
      if (!first.empty()) break;
    }
  }
  EXPECT_GT(seen, 200);
}

// Integers to floats: the same value over 2^scaleFactor, to the bit.
TEST(ScaleFactors, FloatsAreDividedExactly) {
  const std::vector<Zor16s> x = {0, 1, -1, 12345, -32768, 32767};
  const std::vector<Zor32s> y(x.begin(), x.end());
  std::vector<Zor32f> single(x.size());
  std::vector<Zor64f> wide(x.size());
  const auto len = Zor32s(x.size());
  for (Zor32s s = -70; s <= 70; ++s) {
    ASSERT_EQ(zorsConvert_16s32f_Sfs(x.data(), single.data(), len, s), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) EXPECT_EQ(single[i], std::ldexp(Zor32f(x[i]), -s)) << s;
    ASSERT_EQ(zorsConvert_32s32f_Sfs(y.data(), single.data(), len, s), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) EXPECT_EQ(single[i], std::ldexp(Zor32f(y[i]), -s)) << s;
    ASSERT_EQ(zorsConvert_16s64f_Sfs(x.data(), wide.data(), len, s), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) EXPECT_EQ(wide[i], std::ldexp(x[i], -s)) << s;
    ASSERT_EQ(zorsConvert_32s64f_Sfs(y.data(), wide.data(), len, s), zorStatusOk);
    for (std::size_t i = 0; i < x.size(); ++i) EXPECT_EQ(wide[i], std::ldexp(y[i], -s)) << s;
  }
}

TEST(ScaleFactors, EachExceptionHasItsExport) {
  const auto stands = [](const Exception& e) {
    return std::any_of(exports.begin(), exports.end(),
                       [&](const Export& tested) { return std::string_view(tested.name).starts_with(e.begin); });
  };
  for (const Exception& e : elsewhere) EXPECT_TRUE(stands(e)) << e.begin << ": " << e.theHeaderSays;
  for (const Exception& e : exceptions) EXPECT_TRUE(stands(e)) << e.begin << ": " << e.theHeaderSays;
}

}  // namespace
