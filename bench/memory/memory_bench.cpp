#include <cstring>

#include "kit/bench.h"
#include "zors/memory.h"

namespace {

using bench::streams;
using bench::workload;

constexpr long sizes[] = {8,    63,      1000,      8191,
                          8192, 100'000, 10'000'000};  // 8,192 elements of 4 bytes: the string move begins

void blocks() {
  for (long size : sizes) {
    const int len = int(size);
    const auto bytes = std::size_t(size) * sizeof(Zor32f);
    auto *a = bench::array<Zor32f>(size), *d = bench::array<Zor32f>(size);
    workload("zorsZero_32f", size)
        .zors([=] { zorsZero_32f(d, len); })
        .peer("memset", [=] { std::memset(d, 0, bytes); })
        .bound(streams(0, 4));
    workload("zorsSet_32f", size)
        .zors([=] { zorsSet_32f(1.0f, d, len); })
        .peer("memset", [=] { std::memset(d, 1, bytes); })
        .bound(streams(0, 4));
    workload("zorsCopy_32f", size)
        .zors([=] { zorsCopy_32f(a, d, len); })
        .peer("memcpy", [=] { std::memcpy(d, a, bytes); })
        .bound(streams(4, 4));
    workload("zorsMove_32f", size)
        .zors([=] { zorsMove_32f(a, d, len); })
        .peer("memmove", [=] { std::memmove(d, a, bytes); })
        .bound(streams(4, 4));
    if (size < 63) continue;
    workload("zorsMove_32f 4 down", size).zors([=] { zorsMove_32f(d + 4, d, len - 4); }).peer("memmove", [=] {
      std::memmove(d, d + 4, bytes - 16);
    });
    workload("zorsMove_32f 1 up", size).zors([=] { zorsMove_32f(d, d + 1, len - 1); }).peer("memmove", [=] {
      std::memmove(d + 1, d, bytes - 4);
    });
    auto* odd = reinterpret_cast<Zor8u*>(d);
    auto* source = reinterpret_cast<Zor8u*>(a);
    workload("zorsCopy_8u 1 off", 4 * size - 1)
        .zors([=] { zorsCopy_8u(source, odd + 1, int(bytes) - 1); })
        .peer("memcpy", [=] { std::memcpy(odd + 1, source, bytes - 1); });
    workload("zorsMove_8u 1 down", 4 * size - 1)
        .zors([=] { zorsMove_8u(odd + 1, odd, int(bytes) - 1); })
        .peer("memmove", [=] { std::memmove(odd, odd + 1, bytes - 1); });
    auto* z = bench::array<Zor64fc>(size);
    const Zor64fc one{1, 1};
    workload("zorsSet_64fc", size).zors([=] { zorsSet_64fc(&one, z, len); }).peer("memset", [=] {
      std::memset(z, 1, bytes * 4);
    });
  }
}

template <class T> [[gnu::noinline]] void flipLoop(const T* __restrict a, T* __restrict d, long len) {
  for (long i = 0; i < len; ++i) d[i] = a[len - 1 - i];
}
template <class T>
void flip(const char* name, ZorStatus (*flip)(const T*, T*, Zor32s), const char* nameInPlace,
          ZorStatus (*flipInPlace)(T*, Zor32s)) {
  for (long size : bench::passSizes) {
    auto *a = bench::array<T>(size), *d = bench::array<T>(size);
    constexpr int bytes = int{sizeof(T)} > 8 ? 1 : int{sizeof(T)};
    auto row = workload(name, size);
    row.zors([=] { flip(a, d, int(size)); }).peer("loop", [=] { flipLoop(a, d, size); });
    if (bytes > 1 || sizeof(T) == 1) row.bound(streams(bytes, bytes));
    workload(nameInPlace, size).zors([=] { flipInPlace(d, int(size)); });
  }
}
void flips() {
  flip("zorsFlip_8u", zorsFlip_8u, "zorsFlip_8u_I", zorsFlip_8u_I);
  flip("zorsFlip_16u", zorsFlip_16u, "zorsFlip_16u_I", zorsFlip_16u_I);
  flip("zorsFlip_32f", zorsFlip_32f, "zorsFlip_32f_I", zorsFlip_32f_I);
  flip("zorsFlip_32fc", zorsFlip_32fc, "zorsFlip_32fc_I", zorsFlip_32fc_I);
  flip("zorsFlip_64f", zorsFlip_64f, "zorsFlip_64f_I", zorsFlip_64f_I);
  flip("zorsFlip_64fc", zorsFlip_64fc, "zorsFlip_64fc_I", zorsFlip_64fc_I);
}

template <int size> [[gnu::noinline]] void swapLoop(const Zor8u* __restrict a, Zor8u* __restrict d, long len) {
  for (long i = 0; i < len; ++i)
    for (int k = 0; k < size; ++k) d[i * size + k] = a[i * size + size - 1 - k];
}
template <int bytes, class T>
void swap(const char* name, ZorStatus (*swap)(const T*, T*, Zor32s), const char* nameInPlace,
          ZorStatus (*swapInPlace)(T*, Zor32s)) {
  for (long size : bench::passSizes) {
    auto *a = bench::array<T>(size * 3), *d = bench::array<T>(size * 3);
    workload(name, size)
        .zors([=] { swap(a, d, int(size)); })
        .peer("loop", [=] { swapLoop<bytes>(reinterpret_cast<const Zor8u*>(a), reinterpret_cast<Zor8u*>(d), size); })
        .bound(streams(bytes, bytes));
    workload(nameInPlace, size).zors([=] { swapInPlace(d, int(size)); });
  }
}
void swaps() {
  swap<2>("zorsSwapBytes_16u", zorsSwapBytes_16u, "zorsSwapBytes_16u_I", zorsSwapBytes_16u_I);
  swap<3>("zorsSwapBytes_24u", zorsSwapBytes_24u, "zorsSwapBytes_24u_I", zorsSwapBytes_24u_I);
  swap<4>("zorsSwapBytes_32u", zorsSwapBytes_32u, "zorsSwapBytes_32u_I", zorsSwapBytes_32u_I);
  swap<8>("zorsSwapBytes_64u", zorsSwapBytes_64u, "zorsSwapBytes_64u_I", zorsSwapBytes_64u_I);
}

// Words of 64 bits; the destination starts at a word.
[[gnu::noinline]] void bitLoop(const Zor8u* a, int offset, Zor8u* d, long len) {
  for (long i = 0; i < len / 64; ++i) {
    Zor64u word, next;
    std::memcpy(&word, a + 8 * i, 8);
    std::memcpy(&next, a + 8 * i + 1, 8);
    word = __builtin_bswap64(word) << offset | __builtin_bswap64(next) >> (8 - offset);
    word = __builtin_bswap64(word);
    std::memcpy(d + 8 * i, &word, 8);
  }
}
void bitCopies() {
  for (long size : {8L, 40L, 63L, 1000L, 100'000L, 10'000'000L}) {
    auto *a = bench::array<Zor8u>(size), *d = bench::array<Zor8u>(size);
    workload("zorsCopy_1u", size).zors([=] { zorsCopy_1u(a, 3, d, 0, int(size)); }).peer("loop", [=] {
      bitLoop(a, 3, d, size);
    });
    workload("zorsCopyBE_1u", size).zors([=] { zorsCopyBE_1u(a, 3, d, 5, int(size)); });
  }
}

const bench::Registration registrations[] = {bench::Registration(blocks), bench::Registration(flips),
                                             bench::Registration(swaps), bench::Registration(bitCopies)};

}  // namespace
