// IIR filters several outputs at once. Sections: iir_sections.h. Longer polynomials: the recursion
// y[i] = v[i] - a[1] y[i-1] - ... - a[N] y[i-N], v being the numerator's output, is solved for a register of outputs:
// each is a sum over the register's own v, weighted by the impulse response of 1/A, and over the N outputs before the
// register, weighted by rows made with the taps. So a register of outputs waits once for the one before it, not once
// for each of its outputs.
#include <algorithm>

#include "iir/iir_filter.h"
#include "iir/iir_scalar.h"
#include "iir/iir_sections.h"
#include "iir/iir_vector.h"

namespace zors {
namespace {

using namespace iir;
using simd::load;

Zor32s padded(Zor32s len, int multiple) { return (len + multiple - 1) / multiple * multiple; }

// The samples from `from` on to data, and zeros behind them.
template <class T> void complete(const T* src, T* data, Zor32s from, Zor32s len, Zor32s paddedLen) {
  if (src != data) std::copy(src + from, src + len, data + from);
  std::fill(data + len, data + paddedLen, zero<T>());
}

// Whether all values up to the next whole block are finite.
template <class T> bool allFinite(const T* data, Zor32s len) {
  using Real = simd::Vec<simd::Part<T>, iirRun * iirLanes<T>>;
  const auto* p = components(data);
  auto seen = simd::splat<Real>(0);
  for (std::ptrdiff_t i = 0; i < len * iirParts<T>; i += Real::lanes)
    seen = simd::fma(load<Real::lanes>(p + i), simd::same(seen, 0), seen);
  return !simd::any(simd::notAtLeast(seen, simd::same(seen, 0)));
}

// ---- Sections of order 2 ------------------------------------------------------------------------

// The transposed registers after inputs ..., x2, x1 and outputs ..., y2, y1.
template <class T> void closeRegisters(const T* taps, T x1, T x2, T y1, T y2, T* registers) {
  registers[0] = mulAdd(taps[1], x1, mulAdd(taps[2], x2, mulAdd(negated(taps[3]), y1, mul(negated(taps[4]), y2))));
  registers[1] = mulAdd(taps[2], x1, mul(negated(taps[4]), y1));
}

template <class T>
void sections(const ZorIIRState* state, Zor32s count, const T* taps, const T* src, T* data, Zor32s len,
              T* registersAfter) {
  const auto *registers = static_cast<const T*>(state->dlyLine), *table = static_cast<const T*>(state->tables);
  const bool firstForm = state->form == IirForm::firstForm;
  const Zor32s blocks = padded(len, blockLen<T>) / blockLen<T>, lastBlock = (blocks - 1) * blockLen<T>;
  complete(src, data, lastBlock, len, blocks * blockLen<T>);
  T ownTable[iirSectionTable<T>];
  for (Zor32s s = 0; s < count; ++s, taps += 5) {
    const bool first = s == 0, last = s + 1 == count;
    const T x1 = first ? src[len - 1] : sampleAt(data, len - 1), x2 = first ? src[len - 2] : sampleAt(data, len - 2);
    T before[2];
    if (firstForm) {
      closeRegisters(taps, registers[0], registers[1], registers[2], registers[3], before);
      registers += 4;
    } else {
      std::copy_n(registers, 2, before);
      registers += 2;
    }
    if (table == nullptr) iirSectionTableOf(taps[3], taps[4], ownTable);
    const SectionColumns<T> columns(taps, table == nullptr ? ownTable : table);
    if (table != nullptr) table += iirSectionTable<T>;
    first ? filterRuns<true>(columns, before, src, data, blocks)
          : filterRuns<false>(columns, before, data, data, blocks);
    last ? joinRuns<true>(columns, data, blocks) : joinRuns<false>(columns, data, blocks);
    const T y1 = last ? data[len - 1] : sampleAt(data, len - 1), y2 = last ? data[len - 2] : sampleAt(data, len - 2);
    if (firstForm) {
      for (T value : {x1, x2, y1, y2}) *registersAfter++ = value;
    } else {
      closeRegisters(taps, x1, x2, y1, y2, registersAfter);
      registersAfter += 2;
    }
  }
}

// ---- Any order ----------------------------------------------------------------------------------

// out[i] = sum of b[k] x[i-k], k from 0 to order, for len values, a multiple of a register, from the last one down: out
// may be x.
template <class T> void numerator(const T* b, Zor32s order, const T* x, T* out, Zor32s len) {
  const auto run = [&]<int W>(std::ptrdiff_t i) ZORS_INLINE_LAMBDA {
    auto sum = product(factor(b[0]), load<W * row<T>>(x + i));
    for (Zor32s k = 1; k <= order; ++k) sum = addProduct(factor(b[k]), load<W * row<T>>(x + i - k), sum);
    simd::store(out + i, join<T, W>(sum));
  };
  constexpr int wide = 4;
  std::ptrdiff_t i = len;
  while (i >= wide * row<T>) run.template operator()<wide>(i -= wide * row<T>);
  while (i > 0) run.template operator()<1>(i -= row<T>);
}

// In place, from v to y; len is a multiple of a register. No output comes before the first.
template <class T> void recursion(const T* table, Zor32s order, T* data, Zor32s len) {
  constexpr int n = row<T>;
  const T* response = table + std::ptrdiff_t{order} * n + n - 1;  // at h[0], which stands as 0
  for (Zor32s i = 0; i < len; i += n) {
    const T* p = data + i;
    Products<T> sums[4] = {sumOf(load<n>(p)), simd::splat<Products<T>>(0), simd::splat<Products<T>>(0),
                           simd::splat<Products<T>>(0)};
    simd::unrolled<n - 1>(
        [&](auto j) ZORS_INLINE_LAMBDA { sums[j % 4] = addProduct(factor(p[j]), load<n>(response - j), sums[j % 4]); });
    Zor32s m = std::min(order, i);
    for (; m % 4 != 0; --m) sums[0] = addProduct(factor(p[-m]), load<n>(table + (m - 1) * n), sums[0]);
    for (; m > 0; m -= 4)
      simd::unrolled<4>([&](auto k) ZORS_INLINE_LAMBDA {
        sums[k] = addProduct(factor(p[k - m]), load<n>(table + (m - 1 - k) * n), sums[k]);
      });
    simd::store(data + i, join<T>(simd::add(simd::add(sums[3], sums[2]), simd::add(sums[1], sums[0]))));
  }
}

// registers[i] += sum of taps[i + j] newest[-j]: what values leave in the registers.
template <class T> void leaveInRegisters(const T* taps, Zor32s order, const T* newest, bool negative, T* registers) {
  for (Zor32s j = 0; j < order; ++j) {
    const T value = negative ? negated(newest[-j]) : newest[-j];
    for (Zor32s i = 0; i < order - j; ++i) registers[i] = mulAdd(taps[i + j], value, registers[i]);
  }
}

inline constexpr Zor32s maxOrder = iirChunk / 4;  // longer filters never look ahead

template <class T> void polynomial(const ZorIIRState* state, const T* src, T* data, Zor32s len, T* registersAfter) {
  const Zor32s order = state->count, head = padded(order, row<T>), paddedLen = padded(len, 2 * row<T>);
  const auto *b = static_cast<const T*>(state->taps), *a = b + order + 1;
  const auto* registers = static_cast<const T*>(state->dlyLine);
  complete(src, data, 0, len, padded(len, blockLen<T>));
  std::fill_n(registersAfter, order, zero<T>());
  leaveInRegisters(b + 1, order, data + len - 1, false, registersAfter);

  T start[2 * maxOrder];  // zeros before the first inputs
  std::copy_n(data, head, std::fill_n(start, order, zero<T>()));
  numerator(b, order, data + head, data + head, paddedLen - head);
  numerator(b, order, start + order, data, head);
  by_type::add(registers, data, order);
  recursion(static_cast<const T*>(state->tables), order, data, paddedLen);
  leaveInRegisters(a, order, data + len - 1, true, registersAfter);
}

}  // namespace

template <class Value> bool iirLookAhead(ZorIIRState* state, const Value* src, Value* data, Zor32s len) {
  Value registersAfter[iirChunk];
  const auto* taps = static_cast<const Value*>(state->taps);
  const Value none = zero<Value>();
  if (state->form != IirForm::polynomial) {
    sections(state, state->count, taps, src, data, len, registersAfter);
  } else if (state->count == 1) {
    const Value section[] = {taps[0], taps[1], none, taps[2], none};
    sections(state, 1, section, src, data, len, registersAfter);
  } else if (state->count == 2) {
    sections(state, 1, taps, src, data, len, registersAfter);
  } else {
    polynomial(state, src, data, len, registersAfter);
  }
  if (!allFinite(data, len)) return false;
  std::copy_n(registersAfter, state->dlyLen, static_cast<Value*>(state->dlyLine));
  return true;
}

template bool iirLookAhead<Zor32f>(ZorIIRState*, const Zor32f*, Zor32f*, Zor32s);
template bool iirLookAhead<Zor32fc>(ZorIIRState*, const Zor32fc*, Zor32fc*, Zor32s);
template bool iirLookAhead<Zor64f>(ZorIIRState*, const Zor64f*, Zor64f*, Zor32s);
template bool iirLookAhead<Zor64fc>(ZorIIRState*, const Zor64fc*, Zor64fc*, Zor32s);

}  // namespace zors
