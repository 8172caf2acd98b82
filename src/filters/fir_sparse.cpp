// zorsFIRSparse_32f, its state and delay line.
#include "exports/filters.h"
#include "filters/sparse.h"

struct ZorFIRSparseState {
  zors::sparse::Taps taps;  // the oldest sample's first
  zors::sparse::Line line;
};

namespace zors {
namespace {

Zor64s bytesOf(Zor64s nzTapsLen, Zor64s order) {
  return ((8 * order + 15) & ~15) + ((4 * nzTapsLen + 15) >> 4 << 5) + 48 + 16 * nzTapsLen + 16;
}

}  // namespace

ZorStatus zorsFIRSparseGetStateSize_32f(Zor32s nzTapsLen, Zor32s order, Zor32s* size) {
  return check().pointers(size).require(nzTapsLen >= 1 && order >= 1, zorStatusBadTapsLength).then([&]() -> ZorStatus {
    const Zor64s bytes = bytesOf(nzTapsLen, order);
    if (bytes > INT32_MAX) return zorStatusNoMemory;
    *size = static_cast<Zor32s>(bytes);
    return zorStatusOk;
  });
}

ZorStatus zorsFIRSparseInit_32f(ZorFIRSparseState** state, const Zor32f* nzTaps, const Zor32s* nzTapPos,
                                Zor32s nzTapsLen, const Zor32f* dly, Zor8u* buffer) {
  return check()
      .pointers(state, nzTaps, nzTapPos, buffer)
      .require(nzTapsLen >= 1, zorStatusBadTapsLength)
      .then([&]() -> ZorStatus {
        if (!sparse::risingFrom(nzTapPos, nzTapsLen, 0)) return zorStatusBadSparsePositions;
        const auto n = static_cast<std::size_t>(nzTapsLen);
        const Zor32s order = nzTapPos[n - 1];
        if (bytesOf(nzTapsLen, order) > INT32_MAX) return zorStatusNoMemory;
        Layout block(16, buffer);
        auto* built = block.take<ZorFIRSparseState>(1);
        built->taps = {block.take<Zor32f>(n), block.take<Zor32s>(n), nzTapsLen};
        built->line = {block.take<Zor32f>(2 * static_cast<std::size_t>(order)), order, 0};
        for (std::size_t k = 0; k < n; ++k) {
          built->taps.values[k] = nzTaps[n - 1 - k];
          built->taps.offsets[k] = order - nzTapPos[n - 1 - k];
        }
        built->line.set(dly);
        *state = built;
        return zorStatusOk;
      });
}

ZorStatus zorsFIRSparseGetDlyLine_32f(const ZorFIRSparseState* state, Zor32f* dly) {
  return check().pointers(state, dly).then([&] { state->line.get(dly); });
}
ZorStatus zorsFIRSparseSetDlyLine_32f(ZorFIRSparseState* state, const Zor32f* dly) {
  return check().pointers(state).then([&] { state->line.set(dly); });
}
ZorStatus zorsFIRSparse_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRSparseState* state) {
  return check().pointers(src, dst, state).size(len).then([&] {
    sparse::filterBlock(state->taps, state->line, src, dst, len);
  });
}

}  // namespace zors
