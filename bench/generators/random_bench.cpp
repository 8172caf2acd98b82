#include <memory>
#include <random>

#include "kit/bench.h"
#include "zors/generators.h"

namespace {

using bench::workload;

template <class T, class Distribution> auto standard(T* d, int len, Distribution distribution) {
  auto state = std::make_shared<std::pair<std::mt19937, Distribution>>(std::mt19937(1), distribution);
  return [=] {
    for (int i = 0; i < len; ++i) d[i] = static_cast<T>(state->second(state->first));
  };
}

void random() {
  for (long size : {8L, 63L, 1000L, 100'000L}) {
    const int len = int(size);
    auto* y8 = bench::array<Zor8u>(size);
    auto* y16 = bench::array<Zor16s>(size);
    auto* y32 = bench::array<Zor32f>(size);
    auto* y64 = bench::array<Zor64f>(size);
    ZorRandUniformState *u8 = nullptr, *u16 = nullptr, *u32 = nullptr;
    ZorRandGaussState *g8 = nullptr, *g16 = nullptr, *g32 = nullptr;
    zorsRandUniformInitAlloc_8u(&u8, 0, 255, 1);
    zorsRandUniformInitAlloc_16s(&u16, -1000, 1000, 1);
    zorsRandUniformInitAlloc_32f(&u32, -1, 1, 1);
    zorsRandGaussInitAlloc_8u(&g8, 128, 30, 1);
    zorsRandGaussInitAlloc_16s(&g16, 0, 3000, 1);
    zorsRandGaussInitAlloc_32f(&g32, 0, 1, 1);
    auto* seed = bench::array<Zor32u>(1);
    workload("zorsRandUniform_8u", size).zors([=] { zorsRandUniform_8u(y8, len, u8); });
    workload("zorsRandUniform_16s", size)
        .zors([=] { zorsRandUniform_16s(y16, len, u16); })
        .peer("mt19937", standard(y16, len, std::uniform_int_distribution<int>(-1000, 1000)));
    workload("zorsRandUniform_32f", size)
        .zors([=] { zorsRandUniform_32f(y32, len, u32); })
        .peer("mt19937", standard(y32, len, std::uniform_real_distribution<float>(-1, 1)));
    workload("zorsRandUniform_Direct_16s", size).zors([=] { zorsRandUniform_Direct_16s(y16, len, -99, 99, seed); });
    workload("zorsRandUniform_Direct_64f", size)
        .zors([=] { zorsRandUniform_Direct_64f(y64, len, -1, 1, seed); })
        .peer("mt19937", standard(y64, len, std::uniform_real_distribution<double>(-1, 1)));
    workload("zorsRandGauss_8u", size).zors([=] { zorsRandGauss_8u(y8, len, g8); });
    workload("zorsRandGauss_16s", size).zors([=] { zorsRandGauss_16s(y16, len, g16); });
    workload("zorsRandGauss_32f", size)
        .zors([=] { zorsRandGauss_32f(y32, len, g32); })
        .peer("mt19937", standard(y32, len, std::normal_distribution<float>(0, 1)));
    workload("zorsRandGauss_Direct_64f", size)
        .zors([=] { zorsRandGauss_Direct_64f(y64, len, 0, 1, seed); })
        .peer("mt19937", standard(y64, len, std::normal_distribution<double>(0, 1)));
  }
}

const bench::Registration registration(random);

}  // namespace
