#include <algorithm>
#include <cstring>
#include <numeric>
#include <vector>

#include "kit/bench.h"
#include "zors/sorting.h"

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {9, 100, 1000, 100'000, 1'000'000};

template <class T> T* randomArray(long size) {
  T* const data = bench::array<T>(size);
  unsigned long long state = 1;
  for (long i = 0; i < size; ++i) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    const auto bits = static_cast<long long>(state) >> 32;
    data[i] = T(bits);
  }
  return data;
}

// All rows sort a fresh copy: the copy is in every row's time. A few different inputs in turn, so that no branch is
// learned by heart.
template <class T> struct Inputs {
  static constexpr int count = 16;
  T *all, *work, *tmp;
  long size, distinct;
  int turn = 0;

  explicit Inputs(long n) : size(n), distinct(n <= 1000 ? count : 1) {
    all = randomArray<T>(n * distinct);
    work = bench::array<T>(n);
    tmp = bench::array<T>(n);
  }
  T* fresh() {
    turn = (turn + 1) % int(distinct);
    std::memcpy(work, all + turn * size, size_t(size) * sizeof(T));
    return work;
  }
};
template <class T> struct Pair {
  T key;
  Zor32s index;
};

template <class T>
void rows(const std::string& type, ZorStatus (*sort)(T*, Zor32s), ZorStatus (*sortIndex)(T*, Zor32s*, Zor32s),
          ZorStatus (*radix)(T*, T*, Zor32s), ZorStatus (*radixIndex)(const T*, Zor32s, Zor32s*, Zor32s*, Zor32s)) {
  for (long size : sizes) {
    static std::vector<Inputs<T>*> kept;
    auto* const in = kept.emplace_back(new Inputs<T>(size));
    const int len = int(size);
    auto *index = bench::array<Zor32s>(size), *spare = bench::array<Zor32s>(size);
    auto* pairs = new std::vector<Pair<T>>(size_t(size));
    const auto freshPairs = [=] {
      const T* const x = in->fresh();
      for (int i = 0; i < len; ++i) (*pairs)[size_t(i)] = {x[i], i};
      return pairs;
    };
    const auto byKey = [](const Pair<T>& a, const Pair<T>& b) { return a.key < b.key; };
    workload("zorsSortAscend_" + type, size)
        .zors([=] { sort(in->fresh(), len); })
        .peer("std::sort",
              [=] {
                T* const x = in->fresh();
                std::sort(x, x + len);
              })
        .bound(streams(2 * sizeof(T), 2 * sizeof(T)));
    workload("zorsSortIndexAscend_" + type, size)
        .zors([=] { sortIndex(in->fresh(), index, len); })
        .peer("std::sort pairs", [=] {
          auto& p = *freshPairs();
          std::sort(p.begin(), p.end(), byKey);
        });
    workload("zorsSortRadixAscend_" + type, size)
        .zors([=] { radix(in->fresh(), in->tmp, len); })
        .peer("std::stable_sort", [=] {
          T* const x = in->fresh();
          std::stable_sort(x, x + len);
        });
    if (radixIndex != nullptr)
      workload("zorsSortRadixIndexAscend_" + type, size)
          .zors([=] { radixIndex(in->fresh(), sizeof(T), index, spare, len); })
          .peer("std::stable_sort pairs", [=] {
            auto& p = *freshPairs();
            std::stable_sort(p.begin(), p.end(), byKey);
          });
  }
}

// Inputs with a pattern beside random ones: zors must not take longer for any.
void patterns() {
  constexpr long size = 100'000;
  constexpr int len = int(size);
  auto* const random = randomArray<Zor32f>(size);
  static Zor32f *pattern[5], *work = bench::array<Zor32f>(size);
  static Zor32s* index = bench::array<Zor32s>(size);
  for (auto& p : pattern) p = bench::array<Zor32f>(size);
  for (long i = 0; i < size; ++i) {
    pattern[0][i] = Zor32f(i);
    pattern[1][i] = Zor32f(size - i);
    pattern[2][i] = 1;
    pattern[3][i] = Zor32f(i % 1000);
    pattern[4][i] = Zor32f(std::min(i, size - i));
  }
  const char* const names[] = {"sorted", "reversed", "equal", "sawTooth", "organPipe"};
  for (int k = 0; k < 5; ++k) {
    const auto* const from = pattern[k];
    workload(std::string("zorsSortAscend_32f ") + names[k], size)
        .zors([=] {
          std::memcpy(work, from, size * 4);
          zorsSortAscend_32f_I(work, len);
        })
        .peer("random",
              [=] {
                std::memcpy(work, random, size * 4);
                zorsSortAscend_32f_I(work, len);
              })
        .peer("std::sort", [=] {
          std::memcpy(work, from, size * 4);
          std::sort(work, work + size);
        });
    workload(std::string("zorsSortIndexAscend_32f ") + names[k], size)
        .zors([=] {
          std::memcpy(work, from, size * 4);
          zorsSortIndexAscend_32f_I(work, index, len);
        })
        .peer("random", [=] {
          std::memcpy(work, random, size * 4);
          zorsSortIndexAscend_32f_I(work, index, len);
        });
  }
}

void sorts() {
  rows<Zor8u>("8u", zorsSortAscend_8u_I, zorsSortIndexAscend_8u_I, zorsSortRadixAscend_8u_I,
              zorsSortRadixIndexAscend_8u);
  rows<Zor16s>("16s", zorsSortAscend_16s_I, zorsSortIndexAscend_16s_I, zorsSortRadixAscend_16s_I,
               zorsSortRadixIndexAscend_16s);
  rows<Zor32s>("32s", zorsSortAscend_32s_I, zorsSortIndexAscend_32s_I, zorsSortRadixAscend_32s_I,
               zorsSortRadixIndexAscend_32s);
  rows<Zor32f>("32f", zorsSortAscend_32f_I, zorsSortIndexAscend_32f_I, zorsSortRadixAscend_32f_I,
               zorsSortRadixIndexAscend_32f);
  rows<Zor64f>("64f", zorsSortAscend_64f_I, zorsSortIndexAscend_64f_I, zorsSortRadixAscend_64f_I, nullptr);
  patterns();
}
const bench::Registration sortRows(sorts);

}  // namespace
