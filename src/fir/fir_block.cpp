// zorsFIR_*, zorsFIROne_* and kin of the kinds with floating arithmetic: filtering with a state.
#include <algorithm>

#include "exports/fir.h"
#include "fir/fir_state.h"
#include "frame/converted_stream.h"
#include "frame/dot_kernels.h"
#include "frame/rounding.h"

namespace zors {
namespace {

template <class Kind>
void runKernel(const ZorFIRState* state, const typename Kind::Value* in, typename Kind::Value* out, Zor32s len) {
  using Value = typename Kind::Value;
  const std::ptrdiff_t n = state->tapsLen;
  if constexpr (Kind::fourLaneRows)
    dot::slide(dot::TapRowsOfFour<Value>{static_cast<const Value*>(state->tapsRows) + 4 * (n - 1)}, n, in, out, len);
  else
    dot::slide(dot::TapRow<Value>{firTaps<Kind>(state)}, n, in, out, len);
}

// At most dlyBlock samples, by way of the delay line.
template <class Kind>
void filterTile(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                Zor32s scaleFactor) {
  const auto delay = firDelay<Kind>(state);
  const auto* history = delay.history();
  by_type::widen(src, delay.room(), len);
  if constexpr (Kind::converts) {
    auto* results = static_cast<typename Kind::Value*>(state->blockScratch);
    runKernel<Kind>(state, history + 1, results, len);
    by_type::narrow(results, dst, len, scaleFactor);
  } else {
    runKernel<Kind>(state, history + 1, dst, len);
  }
  delay.keep(history + state->tapsLen + len);
}

template <class Kind>
void filterDirect(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                  Zor32s scaleFactor) {
  if constexpr (Kind::converts) {
    for (Zor32s done = 0; done < len;) {
      const Zor32s count = std::min(len - done, state->dlyBlock);
      filterTile<Kind>(state, src + done, dst + done, count, scaleFactor);
      done += count;
    }
  } else {
    if (len <= state->dlyBlock) return filterTile<Kind>(state, src, dst, len, scaleFactor);
    // Outputs that need history come by way of the delay line, the others straight from the source.
    const Zor32s n = state->tapsLen, first = static_cast<Zor32s>(firRows<Kind>(n));
    filterTile<Kind>(state, src, dst, first, scaleFactor);
    firDelay<Kind>(state).keep(src + len);
    runKernel<Kind>(state, src + (first - n + 1), dst + first, len - first);
  }
}

// Overlap-save. A block is tapsLen - 1 samples of history and up to fftLen - tapsLen + 1 new ones.
template <class Kind>
ZorStatus filterByFft(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len,
                      Zor32s scaleFactor) {
  using Value = typename Kind::Value;
  using Fft = typename Kind::Fft;
  const Zor32s n = state->tapsLen, fftLen = state->fftLen, outputs = fftLen - n + 1;
  auto* buffer = static_cast<Value*>(state->fftBuffer);
  const auto* spectrum = static_cast<const Value*>(state->tapsSpectrum);
  const auto* spec = firFftSpec<Kind>(state);
  const auto delay = firDelay<Kind>(state);
  // from is the buffer itself or a stretch of the source; the results for `count` outputs end in `to`.
  const auto convolve = [&](const Value* from, typename Kind::Sample* to, Zor32s count) {
    ZorStatus status = Fft::forward(from, buffer, spec, state->fftWork);
    if (status == zorStatusOk) status = Fft::multiply(spectrum, buffer, fftLen);
    if (status == zorStatusOk) status = Fft::inverse(buffer, buffer, spec, state->fftWork);
    if (status == zorStatusOk) by_type::narrow(buffer + n - 1, to, count, scaleFactor);
    return status;
  };
  if (n > 1) by_type::copy(delay.history() + 1, buffer, n - 1);
  const Zor32s count = std::min(len, outputs);
  by_type::widen(src, buffer + n - 1, count);
  if (len <= outputs) delay.keep(buffer + n - 1 + len);
  std::fill(buffer + n - 1 + count, buffer + fftLen, Value{});
  ZorStatus status = convolve(buffer, dst, count);
  if (status != zorStatusOk || len <= outputs) return status;

  state->dlyIndex = 0;
  by_type::widen(src + len - n, delay.history(), n);
  for (Zor32s done = outputs; done < len; done += outputs) {
    const Zor32s left = len - done;
    const auto* window = src + done - n + 1;
    if (!Kind::converts && left >= fftLen) {
      if constexpr (!Kind::converts) status = convolve(window, dst + done, outputs);
    } else {
      const Zor32s taken = left >= fftLen ? fftLen : std::min(n + left - 1, fftLen);
      by_type::widen(window, buffer, taken);
      std::fill(buffer + taken, buffer + fftLen, Value{});
      status = convolve(buffer, dst + done, std::min(left, outputs));
    }
    if (status != zorStatusOk) return status;
  }
  return zorStatusOk;
}

// samples: those that the test for the FFT path counts.
template <class Kind> bool takesFft(const ZorFIRState* state, Zor32s samples) {
  return samples >= Kind::leastBlock && state->fftLen >= 1;
}

// A chunk is filtered into scratch memory and copied back. Deviation, kept: where nothing is converted the path is
// chosen by the samples that are left behind the chunk, so up to 4,224 samples, and the last chunk of any call, are
// filtered directly.
template <class Kind>
ZorStatus filterInPlace(ZorFIRState* state, typename Kind::Sample* srcDst, Zor32s len, Zor32s scaleFactor) {
  if constexpr (Kind::converts) {
    if (!takesFft<Kind>(state, len)) {
      filterDirect<Kind>(state, srcDst, srcDst, len, scaleFactor);  // a tile is read whole before it is written
      return zorStatusOk;
    }
  }
  auto* scratch = static_cast<typename Kind::Sample*>(state->blockScratch);
  for (Zor32s left = len; left > 0;) {
    const Zor32s chunk = std::min(left, Kind::converts ? firConvertedChunk : firChunk);
    left -= chunk;
    if (Kind::converts || takesFft<Kind>(state, left)) {
      const ZorStatus status = filterByFft<Kind>(state, srcDst, scratch, chunk, scaleFactor);
      if (status != zorStatusOk) return status;
    } else {
      filterDirect<Kind>(state, srcDst, scratch, chunk, scaleFactor);
    }
    by_type::copy(scratch, srcDst, chunk);
    srcDst += chunk;
  }
  return zorStatusOk;
}

template <class Kind>
ZorStatus filter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorFIRState* state,
                 Zor32s scaleFactor = 0) {
  return firState<Kind>(check().pointers(state, src, dst).size(len), state).then([&]() -> ZorStatus {
    const RoundingScope nearest(RoundingScope::nearest);
    if (state->tag != Kind::tags[0]) return firRunRates<Kind>(state, src, dst, len, scaleFactor);
    if (src == dst) return filterInPlace<Kind>(state, dst, len, scaleFactor);
    if (takesFft<Kind>(state, len)) return filterByFft<Kind>(state, src, dst, len, scaleFactor);
    filterDirect<Kind>(state, src, dst, len, scaleFactor);
    return zorStatusOk;
  });
}

// The delay line is a doubled ring: each sample stands at two places, so that the window never wraps.
template <class Kind>
ZorStatus filterOne(typename Kind::Sample val, typename Kind::Sample* dst, ZorFIRState* state, Zor32s scaleFactor = 0) {
  return check().pointers(state, dst).state(state, Kind::tags[0]).then([&] {
    const auto result = [&](typename Kind::Value value) {
      return dot::dotNewest(firTaps<Kind>(state), state->tapsLen, firDelay<Kind>(state).put(value), value);
    };
    if constexpr (Kind::converts)
      throughValue<typename Kind::Value>(val, dst, scaleFactor, result);
    else
      *dst = result(val);
  });
}

}  // namespace

// clang-format off
#define ROWS(FIR, FIR_I, ONE, Kind)                                                                                                                          \
  ZorStatus FIR(const Kind::Sample* src, Kind::Sample* dst, Zor32s len, ZorFIRState* state) { return filter<Kind>(src, dst, len, state); }                   \
  ZorStatus FIR_I(Kind::Sample* srcDst, Zor32s len, ZorFIRState* state) { return filter<Kind>(srcDst, srcDst, len, state); }                                 \
  ZorStatus ONE(Kind::Sample val, Kind::Sample* dst, ZorFIRState* state) { return filterOne<Kind>(val, dst, state); }
#define ROWS_SFS(FIR, FIR_I, ONE, Kind)                                                                                                                      \
  ZorStatus FIR(const Kind::Sample* src, Kind::Sample* dst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Kind>(src, dst, len, state, scaleFactor); } \
  ZorStatus FIR_I(Kind::Sample* srcDst, Zor32s len, ZorFIRState* state, Zor32s scaleFactor) { return filter<Kind>(srcDst, srcDst, len, state, scaleFactor); } \
  ZorStatus ONE(Kind::Sample val, Kind::Sample* dst, ZorFIRState* state, Zor32s scaleFactor) { return filterOne<Kind>(val, dst, state, scaleFactor); }
ROWS(zorsFIR_32f, zorsFIR_32f_I, zorsFIROne_32f, Fir32f)
ROWS(zorsFIR_32fc, zorsFIR_32fc_I, zorsFIROne_32fc, Fir32fc)
ROWS(zorsFIR_64f, zorsFIR_64f_I, zorsFIROne_64f, Fir64f)
ROWS(zorsFIR_64fc, zorsFIR_64fc_I, zorsFIROne_64fc, Fir64fc)
ROWS(zorsFIR64f_32f, zorsFIR64f_32f_I, zorsFIROne64f_32f, Fir64f_32f)
ROWS(zorsFIR64fc_32fc, zorsFIR64fc_32fc_I, zorsFIROne64fc_32fc, Fir64fc_32fc)
ROWS_SFS(zorsFIR_32s_Sfs, zorsFIR_32s_ISfs, zorsFIROne_32s_Sfs, Fir64f_32s)
ROWS_SFS(zorsFIR32f_16s_Sfs, zorsFIR32f_16s_ISfs, zorsFIROne32f_16s_Sfs, Fir32f_16s)
ROWS_SFS(zorsFIR32fc_16sc_Sfs, zorsFIR32fc_16sc_ISfs, zorsFIROne32fc_16sc_Sfs, Fir32fc_16sc)
ROWS_SFS(zorsFIR64f_16s_Sfs, zorsFIR64f_16s_ISfs, zorsFIROne64f_16s_Sfs, Fir64f_16s)
ROWS_SFS(zorsFIR64f_32s_Sfs, zorsFIR64f_32s_ISfs, zorsFIROne64f_32s_Sfs, Fir64f_32s)
ROWS_SFS(zorsFIR64fc_16sc_Sfs, zorsFIR64fc_16sc_ISfs, zorsFIROne64fc_16sc_Sfs, Fir64fc_16sc)
ROWS_SFS(zorsFIR64fc_32sc_Sfs, zorsFIR64fc_32sc_ISfs, zorsFIROne64fc_32sc_Sfs, Fir64fc_32sc)
#undef ROWS
#undef ROWS_SFS
// clang-format on

}  // namespace zors
