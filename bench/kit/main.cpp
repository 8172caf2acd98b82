#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <numeric>
#include <regex>
#include <vector>

#include "kit/bench.h"

namespace bench {
namespace {

std::vector<std::string>& rowOrder() {
  static std::vector<std::string> rows;
  return rows;
}
std::vector<void (*)()>& registrations() {
  static std::vector<void (*)()> all;
  return all;
}

// Reads R and writes W vectors a step, through buffers of the workload's size, so that they live in the same level of
// memory.
template <int R, int W> [[gnu::noinline]] void runStreams(const char* from, char* to, long steps) {
  __m256i sums[4] = {};
  const auto read = [](const char* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); };
  const __m256i value = _mm256_set1_epi32(steps & 1);
#pragma GCC unroll 4
  for (long i = 0; i < steps; ++i) {
#pragma GCC unroll 16
    for (int k = 0; k < R; ++k) sums[k % 4] = _mm256_or_si256(sums[k % 4], read(from + 32 * (i * R + k)));
#pragma GCC unroll 16
    for (int k = 0; k < W; ++k) _mm256_storeu_si256(reinterpret_cast<__m256i*>(to + 32 * (i * W + k)), value);
  }
  for (auto& sum : sums) benchmark::DoNotOptimize(sum);
}
constexpr int mostStreams = 8;
using StreamRunner = void (*)(const char*, char*, long);
template <int... i> constexpr std::array<StreamRunner, sizeof...(i)> streamRunners(std::integer_sequence<int, i...>) {
  return {runStreams<i / (mostStreams + 1), i % (mostStreams + 1)>...};
}

// Ten independent chains saturate two pipes of latency four or five.
[[gnu::noinline]] void runFmas(long vectors) {
  __m256 x[10];
  for (auto& v : x) v = _mm256_set1_ps(1.0f);
  const __m256 a = _mm256_set1_ps(0.999f), b = _mm256_set1_ps(0.001f);
  for (long i = 0; i < vectors; i += 10)
#pragma GCC unroll 10
    for (auto& v : x) v = _mm256_fmadd_ps(v, a, b);
  __m256 sum = x[0];
  for (auto& v : x) sum = _mm256_add_ps(sum, v);
  benchmark::DoNotOptimize(sum);
}

// Collects the least time of each benchmark and prints the table at the end.
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const std::string name = run.run_name.function_name + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
      const auto cut = name.rfind('/');
      const std::string row = name.substr(0, cut), who = name.substr(cut + 1);
      const double time = run.real_accumulated_time / double(run.iterations) * 1e9;
      auto [at, fresh] = rows_[row].try_emplace(who, time);
      if (!fresh) at->second = std::min(at->second, time);
    }
  }
  void Finalize() override {
    std::printf(
        "| name | size | ns | ns/element | zors / best peer | peer | zors / bound |\n|---|---|---|---|---|---|---|\n");
    for (const std::string& row : rowOrder()) {
      const auto& times = rows_[row];
      const auto cut = row.rfind('/');
      const long size = std::atol(row.c_str() + cut + 1);
      const auto zors = times.find("zors");
      if (zors == times.end()) continue;
      std::string peer = "-", peerRatio = "-", boundRatio = "-";
      double best = 0;
      for (const auto& [who, time] : times) {
        if (who == "bound")
          boundRatio = fixed(zors->second / time);
        else if (who != "zors" && (best == 0 || time < best))
          best = time, peer = who;
      }
      if (best > 0) peerRatio = fixed(zors->second / best);
      std::printf("| `%s` | %ld | %.1f | %.4f | %s | %s | %s |\n", row.substr(0, cut).c_str(), size, zors->second,
                  zors->second / double(size), peerRatio.c_str(), peer.c_str(), boundRatio.c_str());
    }
  }

 private:
  static std::string fixed(double x) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", x);
    return text;
  }
  std::map<std::string, std::map<std::string, double>> rows_;  // nanoseconds by row and by who
};

}  // namespace

Registration::Registration(void (*define)()) { registrations().push_back(define); }

Workload::Workload(std::string name, long size)
    : prefix_(std::move(name) + "/" + std::to_string(size) + "/"), size_(size) {
  rowOrder().push_back(prefix_.substr(0, prefix_.size() - 1));
}

bool wanted(const std::string& name) {
  const std::string filter = benchmark::GetBenchmarkFilter();
  return filter.empty() || filter == "all" || std::regex_search(name + "/", std::regex(filter));
}

void announce(const std::string& what) { std::fprintf(stderr, "%s ...\n", what.c_str()); }

// Arrays start at different places of their pages: a store and a load 4 KiB apart would stand in each other's way.
void* arrayBytes(std::size_t bytes) {
  static std::size_t count = 0;
  constexpr std::size_t page = 4096;
  auto* data = static_cast<char*>(std::aligned_alloc(page, (bytes / page + 2) * page));
  if (data == nullptr) std::abort();
  return data + count++ * 1344 % page;  // 21 lines further each time
}

Workload& Workload::bound(Streams s) {
  const long size = size_;
  auto* from = static_cast<char*>(arrayBytes(std::size_t(size * s.readBytes + 512)));
  auto* to = static_cast<char*>(arrayBytes(std::size_t(size * s.writtenBytes + 512)));
  std::memset(from, 1, std::size_t(size * s.readBytes + 512));
  std::memset(to, 1, std::size_t(size * s.writtenBytes + 512));
  static constexpr auto runners =
      streamRunners(std::make_integer_sequence<int, (mostStreams + 1) * (mostStreams + 1)>{});
  const int common = std::gcd(s.readBytes, s.writtenBytes), r = s.readBytes / common, w = s.writtenBytes / common;
  if (r > mostStreams || w > mostStreams) std::abort();
  const StreamRunner run = runners[std::size_t(r * (mostStreams + 1) + w)];
  const long steps = (size * common + 31) / 32;
  return add("bound", [=] { run(from, to, steps); });
}
Workload& Workload::bound(Fmas f) {
  const long vectors = long(double(size_) * f.vectorsPerElement);
  return add("bound", [=] { runFmas(vectors); });
}

}  // namespace bench

int main(int argc, char** argv) {
  std::vector<std::string> words(argv, argv + argc);
  const auto setDefault = [&](const char* flag, const char* value) {
    for (const auto& word : words)
      if (word.starts_with(flag)) return;
    words.push_back(std::string(flag) + value);
  };
  setDefault("--benchmark_min_time=", "0.01");
  setDefault("--benchmark_repetitions=", "7");
  setDefault("--benchmark_enable_random_interleaving=", "true");
  std::vector<char*> arguments;
  for (auto& word : words) arguments.push_back(word.data());
  int count = int(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  for (const auto define : bench::registrations()) define();
  const auto& rows = bench::rowOrder();
  if (std::none_of(rows.begin(), rows.end(), bench::wanted)) return 0;
  bench::Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  return 0;
}
