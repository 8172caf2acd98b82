// zors check: do the library's results on this processor have the bits that they should?
#include <fmt/format.h>

#include <functional>
#include <iterator>
#include <numeric>

#include "command.hpp"
#include "failure.hpp"
#include "zors.hpp"

namespace tool {

namespace {

struct Options {
  bool print = false;
};

/// FNV-1a over the bytes of results.
class Hash {
 public:
  template <class T> void add(const std::vector<T>& values) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(values.data());
    for (std::size_t i = 0; i < values.size() * sizeof(T); ++i) value_ = (value_ ^ bytes[i]) * 0x100000001b3;
  }
  template <class T> void addValue(T value) { add(std::vector<T>{value}); }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325;
};

constexpr std::size_t length = 1003;  // with a tail
using In = std::span<const float>;
using Out = std::span<float>;

// Numbers that are the same everywhere: floats of 24 bits between -1 and 1, integers of their whole range.
template <class T> std::vector<T> numbers(std::uint32_t seed, std::size_t count = length) {
  std::vector<T> values(count);
  std::uint32_t state = seed * 2654435761u + 1;
  for (T& value : values) {
    state = state * 1664525u + 1013904223u;
    if constexpr (std::is_floating_point_v<T>) {
      value = T(std::int32_t(state) >> 8) / T(1 << 23);
    } else {
      value = T(state >> (32 - std::min<std::size_t>(32, 8 * sizeof(T))));
    }
  }
  return values;
}
std::vector<std::complex<float>> complexNumbers(std::uint32_t seed, std::size_t count = length) {
  const auto parts = numbers<float>(seed, 2 * count);
  std::vector<std::complex<float>> values;
  for (std::size_t i = 0; i < count; ++i) values.emplace_back(parts[2 * i], parts[2 * i + 1]);
  return values;
}

void memory(Hash& hash) {
  const auto src = numbers<float>(1);
  std::vector<float> dst(length);
  zors::copy(src, dst);
  hash.add(dst);
  zors::flip(src, dst);
  hash.add(dst);
  zors::set(0.3f, dst);
  hash.add(dst);
}
void arithmetic(Hash& hash) {
  const auto a = numbers<float>(1), b = numbers<float>(2);
  std::vector<float> dst(length);
  for (const auto& run :
       {+[](In a1, In b1, Out d) { zors::add(a1, b1, d); }, +[](In a1, In b1, Out d) { zors::subtract(a1, b1, d); },
        +[](In a1, In b1, Out d) { zors::multiply(a1, b1, d); },
        +[](In a1, In b1, Out d) { zors::divide(a1, b1, d); }}) {
    run(a, b, dst);
    hash.add(dst);
  }
  const auto i = numbers<Zor16s>(3), k = numbers<Zor16s>(4);
  std::vector<Zor16s> integers(length);
  zors::add(i, k, integers, 1);
  hash.add(integers);
  zors::multiply(i, k, integers, 15);
  hash.add(integers);
}
void functions(Hash& hash) {
  auto src = numbers<float>(1);
  std::vector<float> dst(length);
  zors::exp(src, dst);
  hash.add(dst);
  zors::arctan(src, dst);
  hash.add(dst);
  zors::abs(src, src);
  zors::sqrt(src, dst);
  hash.add(dst);
  zors::ln(src, dst);
  hash.add(dst);
  const auto points = complexNumbers(2);
  zors::magnitude(points, dst);
  hash.add(dst);
  zors::phase(points, dst);
  hash.add(dst);
  std::vector<Zor8u> codes(length);
  zors::toALaw(numbers<Zor16s>(3), codes);
  hash.add(codes);
  zors::toMuLaw(numbers<Zor16s>(3), codes);
  hash.add(codes);
}
void thresholds(Hash& hash) {
  const auto src = numbers<float>(1);
  std::vector<float> dst(length);
  zors::atLeast(src, dst, -0.25f);
  hash.add(dst);
  zors::replaceAbove(src, dst, 0.5f, 0.75f);
  hash.add(dst);
}
void conversion(Hash& hash) {
  const auto src = numbers<float>(1);
  std::vector<Zor16s> shorts(length);
  zors::convert(src, shorts, {.scaleFactor = -15});
  hash.add(shorts);
  std::vector<float> back(length);
  zors::convert(shorts, back, {.scaleFactor = 15});
  hash.add(back);
}
void statistics(Hash& hash) {
  const auto a = numbers<float>(1), b = numbers<float>(2);
  hash.addValue(zors::sum(a));
  hash.addValue(zors::dotProduct(a, b));
  hash.addValue(zors::normL2(a));
  hash.addValue(zors::standardDeviation(a));
  const auto [most, at] = zors::maxIndex(a);
  hash.addValue(most);
  hash.addValue(at);
}
void fft(Hash& hash) {
  for (const int order : {3, 7, 12}) {
    const std::size_t size = std::size_t(1) << order;
    std::vector<std::complex<float>> points(size);
    zors::Fft<std::complex<float>>({.order = order}).forward(complexNumbers(1, size), points);
    hash.add(points);
    std::vector<double> packed(size);
    zors::Fft<double>({.order = order}).forward(numbers<double>(2, size), packed, zors::Packing::perm);
    hash.add(packed);
  }
}
void dft(Hash& hash) {
  for (const int size : {7, 60, 441, 1009}) {
    std::vector<std::complex<float>> points(static_cast<std::size_t>(size));
    zors::Dft<std::complex<float>>({.length = size}).forward(complexNumbers(1, points.size()), points);
    hash.add(points);
  }
  std::vector<float> cosines(96);
  zors::DctForward<float>({.length = 96}).process(numbers<float>(2, 96), cosines);
  hash.add(cosines);
}
void fir(Hash& hash) {
  const auto src = numbers<float>(1);
  std::vector<float> dst(length);
  for (const std::size_t taps : {5u, 33u, 200u}) {
    zors::Fir<float>({.taps = numbers<float>(2, taps)}).process(src, dst);
    hash.add(dst);
  }
  std::vector<Zor16s> integers(length);
  zors::Fir<Zor16s>({.taps = numbers<Zor16s>(3, 16), .tapsFactor = -17}).process(numbers<Zor16s>(4), integers);
  hash.add(integers);
}
void multiRate(Hash& hash) {
  std::vector<float> dst(200);
  zors::FirMultiRate<float>({.taps = numbers<float>(1, 24), .up = 2, .down = 3}).process(numbers<float>(2, 300), dst);
  hash.add(dst);
}
void adaptive(Hash& hash) {
  std::vector<float> dst(length);
  zors::Lms<float>({.tapCount = 16}).process(numbers<float>(1), numbers<float>(2), dst, 0.01f);
  hash.add(dst);
}
void iir(Hash& hash) {
  std::vector<double> taps(10);
  zors::designIirLowpass(taps, {.frequency = 0.1, .order = 4});
  std::vector<float> dst(length);
  zors::Iir<float, double>({.taps = taps}).process(numbers<float>(1), dst);
  hash.add(dst);
}
void design(Hash& hash) {
  std::vector<double> taps(63);
  zors::designFirLowpass(taps, {.frequency = 0.1});
  hash.add(taps);
  zors::designFirBandpass(taps, {.frequency = 0.1, .upperFrequency = 0.2, .window = zors::FirWindow::blackman});
  hash.add(taps);
  std::vector<double> recursive(8);
  zors::designIirHighpass(recursive, {.frequency = 0.2, .order = 3, .ripple = 1});
  hash.add(recursive);
}
void filters(Hash& hash) {
  std::vector<float> dst(length);
  zors::median(numbers<float>(1), dst, 7);
  hash.add(dst);
  const std::vector<Zor32s> positions{0, 17, 90};
  zors::SparseFir({.taps = numbers<float>(2, 3), .positions = positions}).process(numbers<float>(1), dst);
  hash.add(dst);
}
void resampling(Hash& hash) {
  zors::Resampler<float> resampler({.inRate = 44100, .outRate = 48000});
  std::vector<float> dst(resampler.mostOutputs(length));
  dst.resize(resampler.process(numbers<float>(1), dst));
  hash.add(dst);
}
void correlation(Hash& hash) {
  const auto a = numbers<float>(1), b = numbers<float>(2, 100);
  std::vector<float> dst(length + 99);
  zors::convolution(a, b, dst);
  hash.add(dst);
  zors::autoCorrelation(a, dst);
  hash.add(dst);
}
void windows(Hash& hash) {
  std::vector<float> dst(length);
  const std::vector<float> ones(length, 1.0f);
  zors::hann(ones, dst);
  hash.add(dst);
  zors::blackmanStandard(ones, dst);
  hash.add(dst);
  zors::kaiser(ones, dst, 0.01f);
  hash.add(dst);
}
void generators(Hash& hash) {
  std::vector<float> dst(length);
  zors::Tone<float>({.frequency = 0.1f}).generate(dst);
  hash.add(dst);
  zors::RandomGauss<float>({.mean = 0, .deviation = 1, .seed = 7}).generate(dst);
  hash.add(dst);
  zors::RandomUniform<float>({.low = -1, .high = 1, .seed = 7}).generate(dst);
  hash.add(dst);
}
void wavelets(Hash& hash) {
  std::vector<float> low((length + 1) / 2), high(length / 2);
  zors::haarForward(numbers<float>(1), low, high);
  hash.add(low);
  hash.add(high);
}
void sorting(Hash& hash) {
  auto values = numbers<float>(1);
  std::vector<Zor32s> index(length);
  zors::sortIndexAscending(values, index);
  hash.add(values);
  hash.add(index);
}
void detection(Hash& hash) {
  for (const float frequency : {0.0f, 0.1f, 0.37f}) hash.addValue(zors::goertzel(numbers<float>(1), frequency));
}

constexpr struct {
  const char* name;
  void (*run)(Hash&);
  std::uint64_t golden;
} families[] = {
#define FAMILY(name, golden) {#name, name, golden},
#include "golden.inc"
#undef FAMILY
};

void work(const Options& o) {
  int different = 0;
  for (const auto& family : families) {
    Hash hash;
    family.run(hash);
    if (o.print) {
      fmt::print("FAMILY({}, {:#018x})\n", family.name, hash.value());
      continue;
    }
    const bool same = hash.value() == family.golden;
    different += !same;
    fmt::print("{:<12} {}\n", family.name,
               same ? "ok" : fmt::format("differs: {:#018x}, not {:#018x}", hash.value(), family.golden));
  }
  if (different > 0)
    throw Failure(Exit::differs, fmt::format("{} of {} families differ", different, std::size(families)));
  if (!o.print) fmt::print("all {} families have the bits that they should\n", std::size(families));
}

}  // namespace

void addCheck(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "check", "Test this installation on this processor", o, work);
  command->add_flag("--print", o->print, "Print the table of results, golden.inc, instead");
  command->footer("A family's sample results are compared with recorded ones, bit for bit.\nExample:\n  zors check");
}

}  // namespace tool
