// The largest error of each transcendental function in units in the last place, and where it stands. Functions of one
// binary32 number are tried on all 2^32 of them: the standard library's binary64 function finds the worst, MPFR
// measures it. Functions of a binary64 number are tried on 10^7 stratified inputs, each against MPFR. The output is a
// table for docs/numerics.md. An argument n tries every n-th input alone, a
// second one names the functions to try, in part.
#include <mpfr.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "zors.h"

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

struct Worst {
  double ulp = -1, at = 0;
  void see(double error, double x) {
    if (error > ulp) *this = {error, x};
  }
};

// work(k) for k below count, on all cores.
template <class Work> void inParallel(long count, Work work) {
  std::atomic<long> next = 0;
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < std::max(1u, std::thread::hardware_concurrency()); ++i)
    threads.emplace_back([&] {
      for (long k; (k = next++) < count;) work(k);
    });
  for (auto& thread : threads) thread.join();
}

// ---- Distances ----------------------------------------------------------------------------------

// The exponent of the last place of T at a number of this exponent (as of ilogb).
template <class T> int lastPlace(long exponent) {
  using L = std::numeric_limits<T>;
  return static_cast<int>(std::max<long>(exponent, L::min_exponent - 1)) - L::digits + 1;
}

using Exact = int (*)(mpfr_t, mpfr_srcptr, mpfr_rnd_t);

class Number {
 public:
  Number() { mpfr_init2(value, 160); }
  ~Number() { mpfr_clear(value); }
  Number(const Number&) = delete;
  Number& operator=(const Number&) = delete;
  mpfr_t value;
};

template <class T> double distance(T got, double x, Exact function) {
  thread_local Number argument, exact;
  mpfr_set_d(argument.value, x, MPFR_RNDN);
  function(exact.value, argument.value, MPFR_RNDN);
  if (mpfr_nan_p(exact.value)) return std::isnan(got) ? 0 : infinite;
  if (std::isnan(got)) return infinite;
  if (mpfr_inf_p(exact.value) || mpfr_zero_p(exact.value)) {
    const double wanted = mpfr_get_d(exact.value, MPFR_RNDN);
    return static_cast<double>(got) == wanted && std::signbit(got) == std::signbit(wanted) ? 0 : infinite;
  }
  const long exponent = mpfr_get_exp(exact.value) - 1;
  if (std::isinf(got)) {  // the place after the greatest number
    got = std::copysign(std::numeric_limits<T>::max(), got);
    thread_local Number step;
    mpfr_set_si_2exp(step.value, got < 0 ? 1 : -1, lastPlace<T>(std::numeric_limits<T>::max_exponent - 1), MPFR_RNDN);
    mpfr_add(exact.value, exact.value, step.value, MPFR_RNDN);
    if ((got < 0) == (mpfr_cmp_d(exact.value, static_cast<double>(got)) < 0)) return 0;
  }
  mpfr_sub_d(exact.value, exact.value, static_cast<double>(got), MPFR_RNDN);
  mpfr_mul_2si(exact.value, exact.value, -lastPlace<T>(exponent), MPFR_RNDN);
  return std::fabs(mpfr_get_d(exact.value, MPFR_RNDN));
}

// The same against a binary64 value that is good to some 2^-28 of a binary32 place.
double roughDistance(float got, double exact) {
  if (std::isnan(exact)) return std::isnan(got) ? 0 : infinite;
  if (std::isinf(got) && std::fabs(exact) >= 0x1.ffffffp127)
    return std::signbit(got) == std::signbit(exact) ? 0 : infinite;
  if (exact == 0) return got == 0 && std::signbit(got) == std::signbit(exact) ? 0 : infinite;
  const auto exponent = static_cast<int>(std::bit_cast<std::uint64_t>(exact) >> 52 & 0x7FF) - 1023;
  const auto scale = std::bit_cast<double>(static_cast<std::uint64_t>(1023 - lastPlace<float>(exponent)) << 52);
  const double error = std::fabs(static_cast<double>(got) - exact) * scale;
  return error < infinite ? error : infinite;  // NaN too
}

// ---- Functions of one binary32 number -----------------------------------------------------------

struct Single {
  const char* name;
  ZorStatus (*run)(const Zor32f*, Zor32f*, Zor32s);
  double (*reference)(double);
  Exact exact;
};
// The sine and the cosine, as parts of a complex number of magnitude 1.
template <bool sine> ZorStatus partOfTurn(const Zor32f* src, Zor32f* dst, Zor32s len) {
  const std::vector<Zor32f> ones(static_cast<std::size_t>(len), 1.0f);
  std::vector<Zor32f> other(ones.size());
  return zorsPolarToCart_32f(ones.data(), src, sine ? other.data() : dst, sine ? dst : other.data(), len);
}
template <bool sine> ZorStatus partOfTurn(const Zor64f* src, Zor64f* dst, Zor32s len) {
  const std::vector<Zor64f> ones(static_cast<std::size_t>(len), 1.0);
  std::vector<Zor64f> other(ones.size());
  return zorsPolarToCart_64f(ones.data(), src, sine ? other.data() : dst, sine ? dst : other.data(), len);
}

const Single singles[] = {
    {"zorsSqrt_32f", zorsSqrt_32f, [](double x) { return std::sqrt(x); }, mpfr_sqrt},
    {"zorsCubrt_32f", zorsCubrt_32f, [](double x) { return std::cbrt(x); }, mpfr_cbrt},
    {"zorsExp_32f", zorsExp_32f, [](double x) { return std::exp(x); }, mpfr_exp},
    {"zorsLn_32f", zorsLn_32f, [](double x) { return std::log(x); }, mpfr_log},
    {"zorsArctan_32f", zorsArctan_32f, [](double x) { return std::atan(x); }, mpfr_atan},
    {"zorsPolarToCart_32f, sine", partOfTurn<true>, [](double x) { return std::sin(x); }, mpfr_sin},
    {"zorsPolarToCart_32f, cosine", partOfTurn<false>, [](double x) { return std::cos(x); }, mpfr_cos},
};

Worst worstOf(const Single& function, long stride) {
  constexpr long block = 1 << 16;
  Worst worst;
  std::mutex mutex;
  inParallel((1L << 32) / block, [&](long part) {
    std::vector<Zor32f> x, y;
    for (long bits = (part * block + stride - 1) / stride * stride; bits < (part + 1) * block; bits += stride)
      x.push_back(std::bit_cast<Zor32f>(static_cast<std::uint32_t>(bits)));
    if (x.empty()) return;
    y.resize(x.size());
    function.run(x.data(), y.data(), static_cast<Zor32s>(x.size()));
    Worst mine;
    for (std::size_t i = 0; i < x.size(); ++i)
      mine.see(roughDistance(y[i], function.reference(static_cast<double>(x[i]))), static_cast<double>(x[i]));
    const std::lock_guard lock(mutex);
    worst.see(mine.ulp, mine.at);
  });
  const auto at = static_cast<Zor32f>(worst.at);
  Zor32f y;
  function.run(&at, &y, 1);
  return {distance(y, worst.at, function.exact), worst.at};
}

// ---- Functions of one binary64 number, or with a binary64 result --------------------------------

// A range of inputs, spread evenly, or evenly by their bits: so that every exponent has as many.
struct Stratum {
  double from, to;
  bool byBits;
};
double place(const Stratum& stratum, double t) {  // t from 0 to 1
  if (!stratum.byBits) return stratum.from + (stratum.to - stratum.from) * t;
  const auto low = static_cast<double>(std::bit_cast<std::int64_t>(stratum.from)),
             high = static_cast<double>(std::bit_cast<std::int64_t>(stratum.to));
  return std::bit_cast<double>(static_cast<std::int64_t>(low + (high - low) * t));
}

template <class S, class D> struct Double {
  const char* name;
  ZorStatus (*run)(const S*, D*, Zor32s);
  Exact exact;
  std::vector<Stratum> strata;
  bool bothSigns;
};

template <class S, class D> Worst worstOf(const Double<S, D>& function, long stride) {
  const long count = 10'000'000 / stride, block = 4096, strata = static_cast<long>(function.strata.size());
  Worst worst;
  std::mutex mutex;
  inParallel((count + block - 1) / block, [&](long part) {
    std::mt19937_64 random(static_cast<std::uint64_t>(part));
    std::vector<S> x;
    for (long k = part * block; k < std::min(count, (part + 1) * block); ++k) {
      const double jitter = static_cast<double>(random() >> 11) * 0x1p-53;
      const double t = (static_cast<double>(k / strata) + jitter) / static_cast<double>(count / strata + 1);
      const double at = place(function.strata[static_cast<std::size_t>(k % strata)], t);
      x.push_back(static_cast<S>(function.bothSigns && random() % 2 == 1 ? -at : at));
    }
    std::vector<D> y(x.size());
    function.run(x.data(), y.data(), static_cast<Zor32s>(x.size()));
    Worst mine;
    for (std::size_t i = 0; i < x.size(); ++i)
      mine.see(distance(y[i], static_cast<double>(x[i]), function.exact), static_cast<double>(x[i]));
    const std::lock_guard lock(mutex);
    worst.see(mine.ulp, mine.at);
  });
  return worst;
}

// The angle of pairs: any bits, quotients around 1, and around every other.
template <class T> Worst worstAngle(ZorStatus (*phase)(const T*, const T*, T*, Zor32s), long stride) {
  const long count = 10'000'000 / stride, block = 4096;
  Worst worst;
  std::mutex mutex;
  inParallel((count + block - 1) / block, [&](long part) {
    std::mt19937_64 random(static_cast<std::uint64_t>(part));
    std::vector<T> re, im;
    for (long k = part * block; k < std::min(count, (part + 1) * block); ++k) {
      const auto unit = [&] { return static_cast<double>(random() >> 11) * 0x1p-53; };
      const auto sign = [&] { return random() % 2 == 1 ? -1.0 : 1.0; };
      const double x = std::exp2(unit() * 200 - 100), quotient = k % 2 == 0 ? 2 * unit() : std::exp2(unit() * 80 - 40);
      re.push_back(static_cast<T>(sign() * x));
      im.push_back(static_cast<T>(sign() * x * quotient));
    }
    std::vector<T> y(re.size());
    phase(re.data(), im.data(), y.data(), static_cast<Zor32s>(re.size()));
    Worst mine;
    for (std::size_t i = 0; i < re.size(); ++i) {
      thread_local Number second;
      mpfr_set_d(second.value, static_cast<double>(re[i]), MPFR_RNDN);
      const auto exact = [](mpfr_t to, mpfr_srcptr from, mpfr_rnd_t direction) {
        return mpfr_atan2(to, from, second.value, direction);
      };
      mine.see(distance(y[i], static_cast<double>(im[i]), exact),
               static_cast<double>(im[i]) / static_cast<double>(re[i]));
    }
    const std::lock_guard lock(mutex);
    worst.see(mine.ulp, mine.at);
  });
  return worst;
}

// The rows of the table that are asked for.
struct Table {
  long stride = 1;
  const char* wanted = "";

  template <class Measure> void row(const char* name, const char* inputs, Measure measure) const {
    if (std::strstr(name, wanted) == nullptr) return;
    const Worst worst = measure();
    const std::string every = stride == 1 ? "" : ", every " + std::to_string(stride) + ".";
    std::printf("| `%s` | %s%s | %.4f | %a |\n", name, inputs, every.c_str(), worst.ulp, worst.at);
    std::fflush(stdout);
  }
  template <class Function> void sampled(const Function& function) const {
    row(function.name, "10^7", [&] { return worstOf(function, stride); });
  }
};

}  // namespace

int main(int argc, char** argv) {
  Table table;
  if (argc > 1) table.stride = std::max(1L, std::atol(argv[1]));
  if (argc > 2) table.wanted = argv[2];
  std::printf("| function | inputs | largest error, ulp | at |\n|---|---|---|---|\n");
  for (const Single& function : singles)
    table.row(function.name, "all 2^32", [&] { return worstOf(function, table.stride); });

  using Double64 = Double<Zor64f, Zor64f>;
  const double tiny = 0x1p-1074, huge = std::numeric_limits<double>::max();
  const std::vector<Stratum> exponential = {{0x1p-60, 746, true}, {0, 746, false}, {0, 1, false}},
                             logarithmic = {{tiny, huge, true}, {0.5, 2, false}, {0.99, 1.01, false}},
                             angular = {{0x1p-60, 0x1p60, true}, {0, 4, false}, {tiny, huge, true}},
                             circular = {{0x1p-60, 0x1p60, true}, {0, 8, false}, {0, 1e6, false}, {tiny, huge, true}};
  table.sampled(Double64{"zorsSqrt_64f", zorsSqrt_64f, mpfr_sqrt, {{tiny, huge, true}, {1, 4, false}}, false});
  table.sampled(Double64{"zorsExp_64f", zorsExp_64f, mpfr_exp, exponential, true});
  table.sampled(Double<Zor32f, Zor64f>{"zorsExp_32f64f", zorsExp_32f64f, mpfr_exp, exponential, true});
  table.sampled(Double64{"zorsLn_64f", zorsLn_64f, mpfr_log, logarithmic, false});
  table.sampled(Double<Zor64f, Zor32f>{"zorsLn_64f32f", zorsLn_64f32f, mpfr_log, logarithmic, false});
  table.sampled(Double64{"zorsArctan_64f", zorsArctan_64f, mpfr_atan, angular, true});
  table.sampled(Double64{"zorsPolarToCart_64f, sine", partOfTurn<true>, mpfr_sin, circular, true});
  table.sampled(Double64{"zorsPolarToCart_64f, cosine", partOfTurn<false>, mpfr_cos, circular, true});
  table.row("zorsPhase_32f, at im / re", "10^7", [&] { return worstAngle(zorsPhase_32f, table.stride); });
  table.row("zorsPhase_64f, at im / re", "10^7", [&] { return worstAngle(zorsPhase_64f, table.stride); });
}
