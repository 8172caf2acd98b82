// Benchmarks: a workload is one export at one size, with its peers and its bound measured in the same run.
//   workload("zorsMul_32f", 1000)
//       .zors([&] { zorsMul_32f(a, b, d, n); })
//       .peer("volk", [&] { volk_32f_x2_multiply_32f(d, a, b, n); })
//       .bound(streams(2 * 4, 4));
// The program prints a table: the least time of all repetitions, its ratio to the best peer and to the bound.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <utility>

namespace bench {

// The bound of a one-pass operation: so many bytes read and written an element, in full vectors, with nothing in
// between.
struct Streams {
  int readBytes, writtenBytes;
};
inline Streams streams(int readBytes, int writtenBytes) { return {readBytes, writtenBytes}; }
// The bound of arithmetic: so many fused multiply-adds in 256-bit vectors of 8 (or 4) lanes an element, at the
// machine's peak.
struct Fmas {
  double vectorsPerElement;
};
inline Fmas fmas(double perElement, int lanes) { return {perElement / lanes}; }

class Workload {
 public:
  Workload(std::string name, long size);

  template <class F> Workload& zors(F f) { return add("zors", f); }
  template <class F> Workload& peer(const std::string& name, F f) { return add(name, f); }
  template <class F> Workload& bound(F f) { return add("bound", f); }  // a function that does only what must be done
  Workload& bound(Streams s);
  Workload& bound(Fmas f);

 private:
  template <class F> Workload& add(const std::string& who, F f) {
    benchmark::RegisterBenchmark((prefix_ + who).c_str(), [f](benchmark::State& state) {
      for (auto _ : state) {
        f();
        benchmark::ClobberMemory();
      }
    });
    return *this;
  }
  std::string prefix_;
  long size_;
};
inline Workload workload(std::string name, long size) { return {std::move(name), size}; }

// Whether the filter of the command line may pick a row of this name: peers that plan for seconds ask first, and say so.
bool wanted(const std::string& name);
void announce(const std::string& what);

// Sizes of the one-pass families: a call's cost, small, in the first-level cache, in the last-level cache, in memory.
inline constexpr long passSizes[] = {8, 63, 1000, 100'000, 10'000'000};

// size elements, 64-byte aligned, kept until the program ends; ones, so that no arithmetic meets denormals.
template <class T> T* array(long size);

void* arrayBytes(std::size_t bytes);
template <class T> T* array(long size) {
  T* data = static_cast<T*>(arrayBytes(std::size_t(size) * sizeof(T)));
  for (long i = 0; i < size; ++i) {
    if constexpr (requires { data[i].re; })
      data[i] = {1, 1};
    else
      data[i] = T(1);
  }
  return data;
}

// Every bench file defines workloads in functions and names them here: static bench::Registration mul(registerMul);
struct Registration {
  explicit Registration(void (*define)());
};

}  // namespace bench
