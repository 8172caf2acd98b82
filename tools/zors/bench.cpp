// zors bench: this machine's speeds, beside what it could do.
#include <fmt/format.h>
#include <immintrin.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "command.hpp"
#include "failure.hpp"
#include "interrupt.hpp"
#include "zors.hpp"

namespace tool {

namespace {

struct Options {
  std::string pattern, compare;
  int size = 1000;
  double tolerance = 25;
  bool json = false;
};

/// The least time of a call, in ns: the best of some runs of a few ms.
double measure(const std::function<void()>& call) {
  using Clock = std::chrono::steady_clock;
  const auto time = [&](int calls) {
    const auto start = Clock::now();
    for (int i = 0; i < calls; ++i) call();
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
  };
  call();
  int calls = 1;
  while (calls < 1 << 24 && time(calls) < 4e6) calls *= 2;
  double best = 1e300;
  for (int run = 0; run < 9; ++run) {
    stopIfInterrupted();
    best = std::min(best, time(calls) / calls);
  }
  return best;
}

// Twelve chains of multiply-adds, which hide their latency, in one loop: 8 floats each.
__attribute__((target("avx2,fma"))) float multiplyAdds(int rounds) {
  __m256 sum[12];
  for (int i = 0; i < 12; ++i) sum[i] = _mm256_set1_ps(float(i));
  const __m256 a = _mm256_set1_ps(0.5f), b = _mm256_set1_ps(1.0f);
  for (int round = 0; round < rounds; ++round) {
#pragma GCC unroll 12
    for (auto& s : sum) s = _mm256_fmadd_ps(s, a, b);
  }
  for (int i = 1; i < 12; ++i) sum[0] = _mm256_add_ps(sum[0], sum[i]);
  return _mm_cvtss_f32(_mm256_castps256_ps128(sum[0]));
}

struct Bounds {
  double copyBytes;     // a ns, read and written, at the size of the rows
  double memoryBytes;   // the same beyond the caches
  double multiplyAdds;  // a ns
};
Bounds measureBounds(std::size_t elements) {
  const auto copy = [](std::size_t size) {
    std::vector<char> from(size, 1), to(size);
    return 2 * double(size) / measure([&] {
             std::memcpy(to.data(), from.data(), size);
             asm volatile("" : : "r"(to.data()) : "memory");
           });
  };
  volatile float sink = 0;
  const double peak = 1000 * 12 * 8 / measure([&] { sink = multiplyAdds(1000); });
  return {copy(4 * elements), copy(std::size_t(64) << 20), peak};
}

/// A call, the bytes that it must read and write and the multiply-adds that it must do at least.
struct Row {
  std::string name;
  double elements, bytes, multiplyAdds;
  std::function<void()> call;
};

std::vector<Row> makeRows(std::size_t n) {
  std::vector<Row> rows;
  const auto vector = [](std::size_t size, float first = 0.5f) {
    auto v = std::make_shared<std::vector<float>>(size);
    for (std::size_t i = 0; i < size; ++i) (*v)[i] = first + float(i % 97) / 97;
    return v;
  };
  const auto a = vector(n), b = vector(n, 0.7f), d = vector(n);
  const auto shorts = std::make_shared<std::vector<Zor16s>>(n, Zor16s(1000)),
             moreShorts = std::make_shared<std::vector<Zor16s>>(n);
  const auto points = std::make_shared<std::vector<std::complex<float>>>(n, std::complex<float>(0.6f, 0.8f)),
             morePoints = std::make_shared<std::vector<std::complex<float>>>(n);
  const double count = double(n), four = 4 * count;
  const auto row = [&](const char* name, double bytes, double work, std::function<void()> call) {
    rows.push_back({name, count, bytes, work, std::move(call)});
  };
  row("copy 32f", 2 * four, 0, [=] { zors::copy(*a, *d); });
  row("add 32f", 3 * four, 0, [=] { zors::add(*a, *b, *d); });
  row("multiply 32f", 3 * four, 0, [=] { zors::multiply(*a, *b, *d); });
  row("divide 32f", 3 * four, 0, [=] { zors::divide(*a, *b, *d); });
  row("multiply 32fc", 6 * four, 2 * count, [=] { zors::multiply(*points, *points, *morePoints); });
  row("add 16s, scaled", 1.5 * four, 0, [=] { zors::add(*shorts, *shorts, *moreShorts, 1); });
  row("square root 32f", 2 * four, 0, [=] { zors::sqrt(*a, *d); });
  row("exponential 32f", 2 * four, 0, [=] { zors::exp(*a, *d); });
  row("logarithm 32f", 2 * four, 0, [=] { zors::ln(*a, *d); });
  row("magnitude 32fc", 3 * four, 0, [=] { zors::magnitude(*points, *d); });
  row("phase 32fc", 3 * four, 0, [=] { zors::phase(*points, *d); });
  row("convert 32f to 16s", 1.5 * four, 0, [=] { zors::convert(*a, *moreShorts, {.scaleFactor = -15}); });
  row("convert 16s to 32f", 1.5 * four, 0, [=] { zors::convert(*shorts, *d, {.scaleFactor = 15}); });
  row("threshold 32f", 2 * four, 0, [=] { zors::atLeast(*a, *d, 0.8f); });
  row("sum 32f", four, 0, [=] { (*d)[0] = zors::sum(*a); });
  row("dot product 32f", 2 * four, count, [=] { (*d)[0] = zors::dotProduct(*a, *b); });
  row("maximum 32f", four, 0, [=] { (*d)[0] = zors::max(*a); });
  row("Hann window 32f", 2 * four, 0, [=] { zors::hann(*a, *d); });
  row("tone 32f", four, 0,
      [tone =
           std::make_shared<zors::Tone<float>>(zors::Tone<float>::Options{.frequency = 0.1f, .hint = zorAlgHintFast}),
       d] { tone->generate(*d); });
  for (const int taps : {32, 255}) {
    std::vector<float> weights(std::size_t(taps), 0.01f);
    auto fir = std::make_shared<zors::Fir<float>>(zors::Fir<float>::Options{.taps = weights});
    row(taps == 32 ? "FIR, 32 taps" : "FIR, 255 taps", 2 * four, taps * count, [=] { fir->process(*a, *d); });
  }
  {
    const double taps[] = {0.2, 0.4, 0.2, 1, -0.3, 0.1};
    auto iir =
        std::make_shared<zors::IirCascade<float, double>>(zors::IirCascade<float, double>::Options{.taps = taps});
    row("IIR section 32f", 2 * four, 5 * count, [=] { iir->process(*a, *d); });
  }
  for (const int order : {8, 10, 14}) {
    const std::size_t size = std::size_t(1) << order;
    auto fft = std::make_shared<zors::Fft<float>>(zors::Fft<float>::Options{.order = order});
    auto from = vector(size), to = vector(size);
    // 2.5 N log2 N operations, two of which are a multiply-add.
    rows.push_back({fmt::format("real FFT, {} points", size), double(size), 8.0 * double(size),
                    1.25 * double(size) * order, [=] { fft->forward(*from, *to, zors::Packing::perm); }});
  }
  row("sort 32f", 2 * four, 0, [=] {
    zors::copy(*a, *d);
    zors::sortAscending(*d);
  });
  row("Goertzel bin 32f", four, count, [=] { (*d)[0] = zors::goertzel(*a, 0.1f).real(); });
  return rows;
}

nlohmann::json readOld(const std::string& path) {
  std::ifstream in(path);
  if (!in.is_open()) throw Failure(Exit::input, path + ": " + std::strerror(errno));
  auto json = nlohmann::json::parse(in, nullptr, false);
  if (!json.is_object() || !json.contains("rows") || !json["rows"].is_array()) {
    throw Failure(Exit::input, path + ": is no result of zors bench --json");
  }
  return json;
}
// The earlier time of a row; 0 where it had none.
double oldTime(const nlohmann::json& old, const std::string& name) {
  if (!old.is_object()) return 0;
  for (const auto& row : old["rows"]) {
    if (row.is_object() && row.value("name", nlohmann::json()) == name && row.contains("ns") && row["ns"].is_number())
      return row["ns"];
  }
  return 0;
}

void work(const Options& o) {
  std::regex pattern;
  try {
    pattern = std::regex(o.pattern, std::regex::icase);
  } catch (const std::regex_error&) {
    throw Failure(Exit::usage, o.pattern + ": is no regular expression");
  }
  const nlohmann::json old = o.compare.empty() ? nlohmann::json() : readOld(o.compare);
  auto rows = makeRows(std::size_t(o.size));
  std::erase_if(rows, [&](const Row& row) { return !std::regex_search(row.name, pattern); });
  if (rows.empty()) throw Failure(Exit::usage, o.pattern + ": no row has this in its name");
  const Bounds bounds = measureBounds(std::size_t(o.size));
  nlohmann::json json{{"elements", o.size},
                      {"copy_gb_s", bounds.copyBytes},
                      {"memory_copy_gb_s", bounds.memoryBytes},
                      {"multiply_adds_per_ns", bounds.multiplyAdds},
                      {"rows", nlohmann::json::array()}};
  if (!o.json) {
    fmt::print("copy: {:.1f} GB/s at {} floats, {:.1f} GB/s in memory; multiply-adds: {:.1f} a ns\n\n",
               bounds.copyBytes, o.size, bounds.memoryBytes, bounds.multiplyAdds);
    fmt::print("{:<24} {:>12} {:>10} {:>8} {:>10}{}\n", "", "ns a call", "ns/element", "GB/s", "over bound",
               old.is_object() ? "  over old" : "");
  }
  std::string slower;
  for (const Row& row : rows) {
    const double ns = measure(row.call), before = oldTime(old, row.name);
    const double bound = std::max(row.bytes / bounds.copyBytes, row.multiplyAdds / bounds.multiplyAdds);
    json["rows"].push_back({{"name", row.name},
                            {"ns", ns},
                            {"ns_per_element", ns / row.elements},
                            {"gb_s", row.bytes / ns},
                            {"over_bound", ns / bound}});
    if (before > 0) json["rows"].back()["over_old"] = ns / before;
    if (before > 0 && ns > before * (1 + o.tolerance / 100)) slower += (slower.empty() ? "" : ", ") + row.name;
    if (o.json) continue;
    fmt::print("{:<24} {:>12.1f} {:>10.3f} {:>8.1f} {:>10.2f}{}\n", row.name, ns, ns / row.elements, row.bytes / ns,
               ns / bound, before > 0 ? fmt::format("{:>10.2f}", ns / before) : "");
    std::fflush(stdout);
  }
  if (o.json) fmt::print("{}\n", json.dump(2));
  if (!slower.empty()) {
    throw Failure(Exit::differs, fmt::format("slower by more than {:g} %: {}", o.tolerance, slower));
  }
}

}  // namespace

void addBench(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "bench", "The library's speed on this machine, on one core", o, work);
  command->add_option("REGEX", o->pattern, "Only rows with this in their name");
  command->add_option("--size", o->size, "Elements of a vector (default 1000)")->check(between(16, 1 << 24));
  command->add_flag("--json", o->json, "Print JSON");
  command->add_option("--compare", o->compare, "An earlier result, JSON: slower rows give exit status 1");
  command->add_option("--tolerance", o->tolerance, "How much slower a row may be, in percent (default 25)")
      ->check(between(0, 10000));
  command->footer(
      "Bound: the time of as many bytes copied by memcpy at this size, or of the multiply-adds, whichever is longer.\n"
      "Example:\n  zors bench --json > before.json; zors bench FIR --compare before.json");
}

}  // namespace tool
