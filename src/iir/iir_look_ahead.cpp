// IIR filters several outputs at once. The recursion of y[i] = v[i] - a[1] y[i-1] - ... - a[N] y[i-N], v being the
// numerator's output, is solved for a register of outputs: each is a sum over the register's own v, weighted by the
// impulse response of 1/A, and over the N outputs before the register, weighted by rows made with the taps. So a
// register of outputs waits once for the one before it, not once for each of its outputs.
#include <algorithm>

#include "iir/iir_filter.h"
#include "iir/iir_scalar.h"
#include "iir/iir_vector.h"

namespace zors {
namespace {

using namespace iir;
using simd::load;

Zor32s padded(Zor32s len, int multiple) { return (len + multiple - 1) / multiple * multiple; }

// Whether all values are finite, up to the next pair of whole registers.
template <class T> bool allFinite(const T* data, Zor32s len) {
  using Real = simd::Vec<simd::Part<T>, 2 * row<T> * parts<T>>;
  const auto* p = components(data);
  auto seen = simd::splat<Real>(0);
  for (std::ptrdiff_t i = 0; i < len * parts<T>; i += Real::lanes)
    seen = simd::fma(load<Real::lanes>(p + i), simd::same(seen, 0), seen);
  return !simd::any(simd::notAtLeast(seen, simd::same(seen, 0)));
}

// ---- Sections of order 2 ------------------------------------------------------------------------

// len, a multiple of two registers, in place. taps: b0, b1, b2, ...; registers: what the past adds to the first two v.
// The outputs of a half register come from its own v, then the upper half takes the lower one's last two outputs, the
// second register the first one's; what two registers wait for is one product of each of the last two outputs before
// them. The register before data is written, with zeros.
template <class T> void section(const T* taps, const T* table, const T* registers, T* data, Zor32s len) {
  constexpr int n = row<T>, half = n / 2;
  const auto b0 = factor(taps[0]), b1 = factor(taps[1]), b2 = factor(taps[2]);
  const T *one = table, *two = table + half + 2 * n;  // what the outputs one and two back add
  const Block<T> upper1 = load<n>(one), upper2 = load<n>(two);
  const Block<T> first1 = load<n>(one + half), first2 = load<n>(two + half);
  const Block<T> second1 = load<n>(one + half + n), second2 = load<n>(two + half + n);
  const auto fromBefore = [](Block<T> before, Block<T> by1, Block<T> by2, Block<T> x) ZORS_INLINE_LAMBDA {
    return join<T>(addProduct(lane<n - 1>(before), by1, addProduct(lane<n - 2>(before), by2, sumOf(x))));
  };
  const auto within = [&](Products<T> v) ZORS_INLINE_LAMBDA {
    const Block<T> x = join<T>(v);
    auto sum = sumOf(x);
    simd::unrolled<half - 1>(
        [&](auto j) ZORS_INLINE_LAMBDA { sum = addProduct(inHalf<j>(x), loadTwice(one + half - 1 - j), sum); });
    const Block<T> halves = join<T>(sum);
    sum = addProduct(lane<half - 1>(halves), upper1, sumOf(halves));
    if constexpr (half > 1) sum = addProduct(lane<half - 2>(halves), upper2, sum);
    return join<T>(sum);
  };
  T start[n] = {registers[0], registers[1]};
  auto past = sumOf(load<n>(start));
  auto before = simd::splat<Block<T>>(zero<T>());
  simd::store(data - n, before);
  for (T* p = data; p < data + len; p += 2 * n) {
    const auto v = addProduct(b2, load<n>(p - 2), addProduct(b1, load<n>(p - 1), addProduct(b0, load<n>(p), past)));
    const auto vNext =
        addProduct(b2, load<n>(p + n - 2), addProduct(b1, load<n>(p + n - 1), product(b0, load<n>(p + n))));
    simd::store(p - n, before);  // not sooner: v has read its last two inputs
    past = simd::splat<Products<T>>(0);
    const Block<T> own = within(v), ownNext = fromBefore(own, first1, first2, within(vNext));
    simd::store(p, fromBefore(before, first1, first2, own));
    before = fromBefore(before, second1, second2, ownNext);
  }
  simd::store(data + len - n, before);
}

// The transposed registers after inputs ..., x2, x1 and outputs ..., y2, y1.
template <class T> void closeRegisters(const T* taps, T x1, T x2, T y1, T y2, T* registers) {
  registers[0] = mulAdd(taps[1], x1, mulAdd(taps[2], x2, mulAdd(negated(taps[3]), y1, mul(negated(taps[4]), y2))));
  registers[1] = mulAdd(taps[2], x1, mul(negated(taps[4]), y1));
}

template <class T> void sections(const ZorIIRState* state, Zor32s count, T* data, Zor32s len, T* registersAfter) {
  const auto *taps = static_cast<const T*>(state->taps), *table = static_cast<const T*>(state->tables);
  const auto* registers = static_cast<const T*>(state->dlyLine);
  const bool firstForm = state->form == IirForm::firstForm;
  const Zor32s paddedLen = padded(len, 2 * row<T>);
  std::fill(data + len, data + paddedLen, zero<T>());
  T ownTable[iirSectionTable<T>];
  for (Zor32s s = 0; s < count; ++s, taps += 5) {
    const T x1 = data[len - 1], x2 = data[len - 2];
    T transposed[2];
    if (firstForm) {
      closeRegisters(taps, registers[0], registers[1], registers[2], registers[3], transposed);
      registers += 4;
    } else {
      std::copy_n(registers, 2, transposed);
      registers += 2;
    }
    if (state->tables == nullptr) iirSectionRows(taps[3], taps[4], ownTable);
    section(taps, state->tables == nullptr ? ownTable : table + s * std::ptrdiff_t{iirSectionTable<T>}, transposed,
            data, paddedLen);
    const T y1 = data[len - 1], y2 = data[len - 2];
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

template <class T> void polynomial(const ZorIIRState* state, T* data, Zor32s len, T* registersAfter) {
  const Zor32s order = state->count, head = padded(order, row<T>), paddedLen = padded(len, 2 * row<T>);
  const auto *b = static_cast<const T*>(state->taps), *a = b + order + 1;
  const auto* registers = static_cast<const T*>(state->dlyLine);
  std::fill(data + len, data + paddedLen, zero<T>());
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

template <class Value> bool iirLookAhead(ZorIIRState* state, Value* data, Zor32s len) {
  Value registersAfter[iirChunk];
  if (state->form != IirForm::polynomial)
    sections(state, state->count, data, len, registersAfter);
  else if (state->count == 2)
    sections(state, 1, data, len, registersAfter);
  else
    polynomial(state, data, len, registersAfter);
  if (!allFinite(data, len)) return false;
  std::copy_n(registersAfter, state->dlyLen, static_cast<Value*>(state->dlyLine));
  return true;
}

template bool iirLookAhead<Zor32f>(ZorIIRState*, Zor32f*, Zor32s);
template bool iirLookAhead<Zor32fc>(ZorIIRState*, Zor32fc*, Zor32s);
template bool iirLookAhead<Zor64f>(ZorIIRState*, Zor64f*, Zor32s);
template bool iirLookAhead<Zor64fc>(ZorIIRState*, Zor64fc*, Zor32s);

}  // namespace zors
