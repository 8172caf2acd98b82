// Sine tables, twiddles, bit reversal: what a specification computes once.
#include "fft/fft_tables.h"
#include "zors/types.h"

#include <cmath>

namespace zors::fft {
namespace {

// The angle is rounded to T, then its sine or cosine. Of a 32-bit angle binary64 holds enough for one correct rounding.
template <class T> void computeSines(int order, T* table) {
  const std::size_t turn = std::size_t{1} << order;
  const double step = 6.283185307179586 / static_cast<double>(turn);
  for (std::size_t i = 0; i <= turn / 8; ++i) {
    const T angle = static_cast<T>(step * static_cast<double>(i));
    table[i] = static_cast<T>(std::sin(static_cast<double>(angle)));
    table[turn / 4 - i] = static_cast<T>(std::cos(static_cast<double>(angle)));
  }
  const T middle = static_cast<T>(step * static_cast<double>(turn / 8));  // belongs to the rising half
  table[turn / 8] = static_cast<T>(std::sin(static_cast<double>(middle)));
}

}  // namespace

template <class T> SineTable<T> sineTable(int order, T* memory) {
  if (order <= largestStaticOrder) return staticSineTable<T>(order);
  computeSines(order, memory);
  return {memory, std::size_t{1} << order, 1};
}

template <class T> void fillStageTwiddles(int order, const SineTable<T>& sines, T* out) {
  out = firstPassRecords(sines, out);
  for (int done = firstPassBits; done < order; done += stageBits(order, done)) {
    const std::size_t span = std::size_t{1} << done, radix = std::size_t{1} << stageBits(order, done);
    out = stageRecords<fullLanes<T>>(span, radix, sines, out);
  }
}

template <class T> void fillLevelTwiddles(int order, const SineTable<T>& sines, T* out) {
  const int bits = tileBits<T>(order);
  const std::size_t columns = std::size_t{1} << (order - bits);
  for (std::size_t group = 0; group < columns; group += tileColumns<T>)
    for (int done = 0; done < bits; done += tileStageBits(bits, done)) {
      const int stage = tileStageBits(bits, done);
      const std::size_t rows = std::size_t{1} << done, radix = std::size_t{1} << stage,
                        powers = done + stage == bits ? 1 : radix - 1;
      for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t k = group + columns * row, end = k + tileColumns<T>; k < end; k += fullLanes<T>)
          for (std::size_t q = 1; q <= powers; ++q)
            out = record<fullLanes<T>>(
                out, [&](std::size_t point) { return sines.rotation(q * (k + point), columns * rows * radix); });
    }
}

void fillReversal(int bits, Zor32u* out) {
  const Zor32u count = Zor32u{1} << bits;
  for (Zor32u j = 0, reversed = 0; j < count; ++j) {
    out[j] = reversed;
    Zor32u bit = count >> 1;
    for (; (reversed & bit) != 0; bit >>= 1) reversed &= ~bit;  // the carry of a reversed increment
    reversed |= bit;
  }
}

template <class T> void fillFactors(int order, const SineTable<T>& sines, T* forward, T* inverse) {
  factorRecords<fullLanes<T>>(order, sines, forward, inverse);
}

template <class T> void fillTwoLevelFactors(int order, const SineTable<T>& sines, T* out) {
  const std::size_t n = std::size_t{1} << order;
  for (std::size_t k = 1; k <= fineFactors<T>; k += fullLanes<T>)
    out = record<fullLanes<T>>(out, [&](std::size_t point) { return sines.rotation(k + point, n); });
  for (std::size_t k = 0; k < n / 4; k += fineFactors<T>)
    out = record<1>(out, [&](std::size_t) { return sines.rotation(k, n); });
}

template SineTable<Zor32f> sineTable(int, Zor32f*);
template SineTable<Zor64f> sineTable(int, Zor64f*);
template void fillStageTwiddles(int, const SineTable<Zor32f>&, Zor32f*);
template void fillStageTwiddles(int, const SineTable<Zor64f>&, Zor64f*);
template void fillLevelTwiddles(int, const SineTable<Zor32f>&, Zor32f*);
template void fillLevelTwiddles(int, const SineTable<Zor64f>&, Zor64f*);
template void fillFactors(int, const SineTable<Zor32f>&, Zor32f*, Zor32f*);
template void fillFactors(int, const SineTable<Zor64f>&, Zor64f*, Zor64f*);
template void fillTwoLevelFactors(int, const SineTable<Zor32f>&, Zor32f*);
template void fillTwoLevelFactors(int, const SineTable<Zor64f>&, Zor64f*);

}  // namespace zors::fft
