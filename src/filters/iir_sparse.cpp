// zorsIIRSparse_32f and its state.
#include <cmath>

#include "exports/filters.h"
#include "filters/sparse.h"

struct ZorIIRSparseState {
  zors::sparse::Taps fir;  // in the caller's order
  zors::sparse::Taps iir;  // the oldest output's first; offsets lead back from an output
  zors::sparse::Line inputs, outputs;
};

namespace zors {
namespace {

using namespace sparse;

ZorIIRSparseState* lay(Layout& block, Zor32s firLen, Zor32s iirLen, Zor32s order1, Zor32s order2) {
  const auto n1 = static_cast<std::size_t>(firLen), n2 = static_cast<std::size_t>(iirLen);
  auto* state = block.take<ZorIIRSparseState>(1);
  const Taps fir = {block.take<Zor32f>(n1), block.take<Zor32s>(n1), firLen};
  const Taps iir = {block.take<Zor32f>(n2), block.take<Zor32s>(n2), iirLen};
  const Line inputs = {block.take<Zor32f>(2 * static_cast<std::size_t>(order1)), order1, 0};
  const Line outputs = {block.take<Zor32f>(2 * static_cast<std::size_t>(order2)), order2, 0};
  if (state != nullptr) *state = {fir, iir, inputs, outputs};
  return state;
}

// y[i] = x[i] + the products of the taps and y[i + offset]. Outputs that are nearer than the nearest tap reaches do not
// depend on each other: a register of them, or eight, at once.
[[gnu::flatten]] void recurse(const Taps& taps, const Zor32f* x, Zor32f* y, Zor32s len) {
  using namespace simd;
  const Zor32s nearest = -taps.offsets[taps.count - 1];
  std::ptrdiff_t i = 0;
  if (nearest >= 64)
    for (; i + 64 <= len; i += 64) store(y + i, sums<8>(taps, y + i, load<64>(x + i)));
  if (nearest >= 8) {
    for (; i + 8 <= len; i += 8) store(y + i, sums<1>(taps, y + i, load<8>(x + i)));
    if (i < len) storePart(y + i, sums(taps, y + i, loadThenZeros(x + i, int(len - i)), int(len - i)), int(len - i));
    return;
  }
  for (; i < len; ++i) {
    Zor32f sum = x[i];
    for (Zor32s k = 0; k < taps.count; ++k) sum = std::fma(taps.values[k], y[i + taps.offsets[k]], sum);
    y[i] = sum;
  }
}

}  // namespace

ZorStatus zorsIIRSparseGetStateSize_32f(Zor32s nzTapsLen1, Zor32s nzTapsLen2, Zor32s order1, Zor32s order2,
                                        Zor32s* size) {
  return check()
      .pointers(size)
      .require(nzTapsLen1 >= 1 && nzTapsLen2 >= 0, zorStatusBadFilterOrder)
      .require(order1 >= 0 && order2 >= 0, zorStatusBadSparsePositions)
      .then([&]() -> ZorStatus {
        Layout block(16);
        lay(block, nzTapsLen1, nzTapsLen2, order1, order2);
        if (block.size() > INT32_MAX) return zorStatusNoMemory;
        *size = static_cast<Zor32s>(block.size());
        return zorStatusOk;
      });
}

ZorStatus zorsIIRSparseInit_32f(ZorIIRSparseState** state, const Zor32f* nzTaps, const Zor32s* nzTapPos,
                                Zor32s nzTapsLen1, Zor32s nzTapsLen2, const Zor32f* dly, Zor8u* buffer) {
  return check()
      .pointers(state, nzTaps, nzTapPos, buffer)
      .require(nzTapsLen1 >= 1 && nzTapsLen2 >= 1, zorStatusBadFilterOrder)
      .then([&]() -> ZorStatus {
        const Zor32s* iirPos = nzTapPos + nzTapsLen1;
        if (!risingFrom(nzTapPos, nzTapsLen1, 0) || !risingFrom(iirPos, nzTapsLen2, 1))
          return zorStatusBadSparsePositions;
        const Zor32s order1 = iirPos[-1], order2 = iirPos[nzTapsLen2 - 1];
        Layout account(16), block(16, buffer);
        lay(account, nzTapsLen1, nzTapsLen2, order1, order2);
        if (account.size() > INT32_MAX) return zorStatusNoMemory;
        ZorIIRSparseState* built = lay(block, nzTapsLen1, nzTapsLen2, order1, order2);
        for (Zor32s k = 0; k < nzTapsLen1; ++k) {
          built->fir.values[k] = nzTaps[k];
          built->fir.offsets[k] = order1 - nzTapPos[k];
        }
        for (Zor32s k = 0; k < nzTapsLen2; ++k) {
          const Zor32s from = nzTapsLen2 - 1 - k;
          built->iir.values[k] = nzTaps[nzTapsLen1 + from];
          built->iir.offsets[k] = -iirPos[from];
        }
        built->inputs.set(dly);
        built->outputs.set(dly == nullptr ? nullptr : dly + order1);
        *state = built;
        return zorStatusOk;
      });
}

// The recursion runs behind the history of the outputs as far as it reaches into it, then in dst.
ZorStatus zorsIIRSparse_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorIIRSparseState* state) {
  return check().pointers(src, dst, state).size(len).then([&] {
    filterBlock(state->fir, state->inputs, src, dst, len);
    Line& outputs = state->outputs;
    const Zor32s order = outputs.order, first = len <= order ? len : order;
    Zor32f* y = outputs.withRoom(first) + order;
    recurse(state->iir, dst, y, first);
    std::memcpy(dst, y, Line::bytes(first));
    if (len <= order) {
      outputs.start += len;
    } else {
      recurse(state->iir, dst + order, dst + order, len - order);
      outputs.restart(dst + len - order);
    }
  });
}

}  // namespace zors
