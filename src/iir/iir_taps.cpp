// Taps of IIR states: normalised, and the tables of the block kernels.
#include "iir/iir_filter.h"
#include "iir/iir_scalar.h"

#include <algorithm>

namespace zors {
namespace {

using namespace iir;

template <class Value> void normalise(const Value* taps, Value r, Zor32s count, Value* to) {
  for (Zor32s i = 0; i < count; ++i) to[i] = mul(taps[i], r);
}

// h[0] = 1, h[1], ... h[len - 1]: the response of 1 / (1 + a[1]/z + ... + a[order]/z^order) to an impulse.
template <class Value> void impulseResponse(const Value* a, Zor32s order, Wide<Value>* h, Zor32s len) {
  for (Zor32s k = 0; k < len; ++k) {
    auto sum = zero<Wide<Value>>();
    if (k == 0) *components(&sum) = 1;
    for (Zor32s j = 1; j <= std::min(k, order); ++j) sum = mulAdd(negated(wide(a[j - 1])), h[k - j], sum);
    h[k] = sum;
  }
}

// What the output m samples back adds to each output of a register, for m = 1 to order, and the response.
template <class Value> void polynomialRows(const Value* a, Zor32s order, Value* table) {
  constexpr auto row = static_cast<Zor32s>(iirRow<Value>);
  Wide<Value> h[row];
  impulseResponse(a, order, h, row);
  for (Zor32s m = 1; m <= order; ++m)
    for (Zor32s i = 0; i < row; ++i) {
      auto sum = zero<Wide<Value>>();
      for (Zor32s k = 0; k <= std::min(i, order - m); ++k) sum = mulAdd(negated(h[i - k]), wide(a[m + k - 1]), sum);
      *table++ = narrowed<Value>(sum);
    }
  table = std::fill_n(table, row, zero<Value>());
  for (Zor32s i = 1; i < row; ++i) *table++ = narrowed<Value>(h[i]);
  *table = zero<Value>();
}

}  // namespace

template <class Value> void iirSectionTableOf(Value a1, Value a2, Value* table) {
  constexpr int lanes = iirLanes<Value>, parts = iirParts<Value>;
  const Value a[] = {a1, a2};
  Wide<Value> h[iirRun + 1];
  impulseResponse(a, 2, h, iirRun + 1);
  for (int k = 0; k < iirRun; ++k) *table++ = narrowed<Value>(h[k]);
  const auto minusA2 = negated(wide(a2));
  auto* p = components(table);
  // The last two of the response before a run give those of the run. The first run is preceded by the pair before the
  // block itself.
  auto one = h[0], two = zero<Wide<Value>>(), fromPair = h[0];
  for (int lane = 0; lane < lanes; ++lane, ++p) {
    const Value rows[] = {narrowed<Value>(one), narrowed<Value>(two), narrowed<Value>(fromPair)};
    for (int row = 0; row < 3; ++row)
      for (int part = 0; part < parts; ++part) p[(row * parts + part) * lanes] = components(&rows[row])[part];
    const auto next = [&](int k) { return mulAdd(h[k], one, mul(mul(minusA2, h[k - 1]), two)); };
    const auto nextOne = next(iirRun), nextTwo = next(iirRun - 1);
    fromPair = mul(minusA2, next(iirRun - 2));
    one = nextOne;
    two = nextTwo;
  }
}

template <class Value> ZorStatus iirStoreTaps(ZorIIRState* state, const Value* taps) {
  const Zor32s count = state->count;
  auto* stored = static_cast<Value*>(state->taps);
  auto* tables = static_cast<Value*>(state->tables);
  if (state->form == IirForm::polynomial) {
    const Value a0 = taps[count + 1];
    if (isZero(a0)) return zorStatusDivideByZero;
    const Value r = reciprocal(a0);
    normalise(taps, r, count + 1, stored);
    normalise(taps + count + 2, r, count, stored + count + 1);
    const Value* a = stored + count + 1;
    if (iirIsSection(static_cast<std::size_t>(count)))
      iirSectionTableOf(a[0], count == 2 ? a[1] : zero<Value>(), tables);
    else
      polynomialRows(a, count, tables);
    return zorStatusOk;
  }
  // Deviation, kept: a section whose b0 is 0 is refused as if its a0 were, but in single precision's first form.
  const bool zerosRefused = state->form == IirForm::cascade || sizeof(Value) > sizeof(Zor32f);
  for (Zor32s s = 0; s < count; ++s)
    if (const Value* section = taps + 6 * std::ptrdiff_t{s}; isZero(section[3]) || (zerosRefused && isZero(section[0])))
      return zorStatusDivideByZero;
  for (Zor32s s = 0; s < count; ++s, taps += 6, stored += 5) {
    const Value r = reciprocal(taps[3]);
    normalise(taps, r, 3, stored);
    normalise(taps + 4, r, 2, stored + 3);
    if (tables != nullptr)
      iirSectionTableOf(stored[3], stored[4], tables + static_cast<std::size_t>(s) * iirSectionTable<Value>);
  }
  return zorStatusOk;
}

#define FOR_VALUE(Value)                                        \
  template void iirSectionTableOf<Value>(Value, Value, Value*); \
  template ZorStatus iirStoreTaps<Value>(ZorIIRState*, const Value*);
FOR_VALUE(Zor32f)
FOR_VALUE(Zor32fc)
FOR_VALUE(Zor64f)
FOR_VALUE(Zor64fc)
#undef FOR_VALUE

}  // namespace zors
