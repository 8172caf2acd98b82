// The sentence of the headers on scale factors, held against every export that takes one: a result is t / 2^scaleFactor
// to the nearest integer, saturated, for one exact t. What t is stays with each family's tests. From the finest result
// that is not saturated follows where t lies, and so what every other scale factor may give.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

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

// By the begin of a name. A family whose arguments are not read off their types runs the scale factors in tests of its
// own, as does one whose results are no t / 2^scaleFactor.
const std::map<std::string, const char*> elsewhere = {
    {"zorsFIR", "states, and delay lines as arguments"},
    {"zorsIIR", "states, and delay lines as arguments"},
    {"zorsAddProduct_", "the product is scaled before it is added"},
    {"zorsMul_Low_32s_Sfs", "the low half of the shifted product, neither rounded nor saturated"},
    {"zorsCartToPolar_16sc_Sfs", "two scale factors"},
    {"zorsPolarToCart_16sc_Sfs", "two scale factors"},
    {"zorsWinBlackmanQ15_16s_ISfs", "rounds towards zero"},
    {"zorsConvert_16f16s_Sfs", "sources of 16 bits that are floats"},
    {"zorsConvert_32f24", "elements of three bytes"},
    {"zorsConvert_32s24s_Sfs", "elements of three bytes"},
    {"zorsConvert_32u24u_Sfs", "elements of three bytes"},
};
// t is an integer, so that one result to scale 0 or below gives all others exactly.
const std::vector<std::string> exact = {
    "zorsAdd_",        "zorsAddC_",        "zorsSub_",         "zorsSubC_",         "zorsSubCRev_",
    "zorsMul_",        "zorsSqr_",         "zorsSum_",         "zorsDotProd_",      "zorsNorm_L1_",
    "zorsNorm_Inf_",   "zorsNorm_L2Sqr_",  "zorsNormDiff_L1_", "zorsNormDiff_Inf_", "zorsNormDiff_L2Sqr_",
    "zorsMagSquared_", "zorsPowerSpectr_", "zorsMulPack_",     "zorsMulPerm_"};
// Further scale factors than -70 to 70 that do not follow, with what the headers say of them.
const std::map<std::string, const char*> onlyNear = {};

bool startsWithOneOf(const std::string& name, const std::vector<std::string>& starts) {
  return std::any_of(starts.begin(), starts.end(), [&](const std::string& s) { return name.starts_with(s); });
}

// ---- Specifications of transforms, by type ------------------------------------------------------------

constexpr int order = 4;
const std::map<const void*, void*>& specifications() {
  static const auto all = [] {
    std::map<const void*, void*> made;
    const auto add = [&]<class S>(ZorStatus (*initAlloc)(S**, Zor32s, Zor32s, ZorHintAlgorithm)) {
      S* spec = nullptr;
      EXPECT_EQ(initAlloc(&spec, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintAccurate), zorStatusOk);
      made[&typeMark<S>] = spec;
    };
    add(zorsFFTInitAlloc_C_16sc);
    add(zorsFFTInitAlloc_C_16s);
    add(zorsFFTInitAlloc_R_16s);
    add(zorsFFTInitAlloc_C_32sc);
    add(zorsFFTInitAlloc_C_32s);
    add(zorsFFTInitAlloc_R_32s);
    add(zorsFFTInitAlloc_R_16s32s);
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
      if (lengthAt == scaleAt)  // results of one value stand behind the length
        for (lengthAt = lastPointer; parameters[lengthAt].role != Role::number;) --lengthAt;
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
        if (known_) arguments_[i] = argument(spec->second);
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
  std::vector<Zor64s> at(Zor32s scaleFactor) {
    auto memory = memory_;
    auto arguments = arguments_;
    arguments[scaleAt_] = argument(scaleFactor);
    for (std::size_t i = 0; i < memory.size(); ++i)
      if (!memory[i].empty()) arguments[i] = argument<void*>(memory[i].data());
    EXPECT_GE(tested_.invoke(tested_.function, arguments.data()), 0) << tested_.name;
    std::vector<Zor64s> out;
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
  static Zor64s part(const Parameter& p, const Zor8u* at) {
    Zor64u bits = 0;
    std::memcpy(&bits, at, p.size);
    const int unused = 64 - 8 * int(p.size);
    return p.isSigned ? static_cast<Zor64s>(bits << unused) >> unused : static_cast<Zor64s>(bits);
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

// "" where the results by scale factor are those of one t.
std::string inconsistency(const std::map<Zor32s, Zor64s>& results, Zor64s low, Zor64s high, bool integer) {
  const auto bound = [&](Zor64s r) { return r == high || (r == low && low != 0); };
  Zor32s finest = -70;
  while (finest <= 70 && bound(results.at(finest))) ++finest;
  if (finest > 70) return "";  // saturated throughout
  const Wide r = results.at(finest);
  for (const auto& [s, got] : results) {
    const std::string what = "scale factor " + std::to_string(s) + ": " + std::to_string(got) + ", at " +
                             std::to_string(finest) + ": " + std::to_string(Zor64s(r));
    if (s < finest) {
      const bool right = r > 0   ? got == high
                         : r < 0 ? got == low
                                 : got == 0 || (finest == -70 && (got == low || got == high));
      if (!right) return what;
    } else if (integer && finest <= 0) {
      if (got != divided(r, s > 200 ? 200 : s - finest)) return what;
    } else {
      const int k = (s > 200 ? 200 : s - finest) + 1;
      if (s != finest && (got < divided(2 * r - 1, k) || got > divided(2 * r + 1, k))) return what;
    }
  }
  return "";
}

TEST(ScaleFactors, EveryExportGivesOneValueAtEveryScale) {
  std::set<std::string> used;
  int seen = 0;
  for (const Export& tested : exports) {
    const std::string name = tested.name;
    const auto other = std::find_if(elsewhere.begin(), elsewhere.end(),
                                    [&](const auto& entry) { return name.starts_with(entry.first); });
    if (other != elsewhere.end()) {
      used.insert(other->first);
      continue;
    }
    ++seen;
    for (unsigned seed = 1; seed <= 6; ++seed) {
      Results run(tested, seed);
      ASSERT_TRUE(run.known()) << name << " takes an object that this test cannot make";
      std::map<Zor32s, std::vector<Zor64s>> all;
      for (Zor32s s = -70; s <= 70; ++s) all[s] = run.at(s);
      if (!onlyNear.contains(name))
        for (Zor32s s : extremes) all[s] = run.at(s);
      const Parameter& d = run.destination();
      if (d.isFloat) continue;
      const int bits = 8 * int(d.size);
      const Zor64s high = d.isSigned ? Zor64s((Zor64u{1} << (bits - 1)) - 1) : Zor64s((Zor64u{1} << bits) - 1);
      const Zor64s low = d.isSigned ? -high - 1 : 0;
      std::string first;
      for (std::size_t k = 0; k < all[0].size() && first.empty(); ++k) {
        std::map<Zor32s, Zor64s> results;
        for (const auto& [s, values] : all) results[s] = values[k];
        first = inconsistency(results, low, high, startsWithOneOf(name, exact));
        if (!first.empty()) first = "[" + std::to_string(k) + "] " + first;
      }
      EXPECT_EQ(first, "") << name;
      if (!first.empty()) break;
    }
  }
  EXPECT_GT(seen, 200);
  for (const auto& [name, reason] : elsewhere) EXPECT_TRUE(used.contains(name)) << name << ": no such export";
}

}  // namespace
