// zorsFIR_*, zorsFIROne_*: filtering with a state.
#include <algorithm>

#include "filters/fir_kernels.h"
#include "filters/fir_state.h"

namespace zors {
namespace {

// The newest tapsLen samples, which the next call starts from. They end at `end`.
template <class Kind> void keepHistory(ZorFIRState* state, const typename Kind::Sample* end) {
  Kind::move(end - state->tapsLen, firDlyLine<Kind>(state), state->tapsLen);
}

template <class Kind> void filterDirect(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len) {
  const auto* taps = firTaps<Kind>(state);
  const Zor32s n = state->tapsLen;
  auto* history = firDlyLine<Kind>(state) + state->dlyIndex;
  state->dlyIndex = 0;
  if (len <= firDirectBlock<Kind>(n)) {
    Kind::copy(src, history + n, len);
    fir::block(taps, n, history + 1, dst, len);
    keepHistory<Kind>(state, history + n + len);
    return;
  }
  // Outputs that need history come by way of the delay line, the others straight from the source.
  const Zor32s first = firRows<Kind>(n);
  Kind::copy(src, history + n, first);
  fir::block(taps, n, history + 1, dst, first);
  keepHistory<Kind>(state, src + len);
  fir::block(taps, n, src + (first - n + 1), dst + first, len - first);
}

// Overlap-save. A block is tapsLen - 1 samples of history and up to fftLen - tapsLen + 1 new ones.
template <class Kind> ZorStatus filterByFft(ZorFIRState* state, const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len) {
  using Sample = typename Kind::Sample;
  const Zor32s n = state->tapsLen, fftLen = state->fftLen, outputs = fftLen - n + 1;
  auto* buffer = static_cast<Sample*>(state->fftBuffer);
  const auto* spectrum = static_cast<const Sample*>(state->tapsSpectrum);
  const auto* spec = firFftSpec<Kind>(state);
  const auto* history = firDlyLine<Kind>(state) + state->dlyIndex;
  // from is the buffer itself or a stretch of the source; the results for `count` outputs end in `to`.
  const auto convolve = [&](const Sample* from, Sample* to, Zor32s count) {
    ZorStatus status = Kind::fftForward(from, buffer, spec, state->fftWork);
    if (status == zorStatusOk) status = Kind::multiplySpectra(spectrum, buffer, fftLen);
    if (status == zorStatusOk) status = Kind::fftInverse(buffer, buffer, spec, state->fftWork);
    if (status == zorStatusOk) status = Kind::copy(buffer + n - 1, to, count);
    return status;
  };
  state->dlyIndex = 0;
  if (n > 1) Kind::copy(history + 1, buffer, n - 1);
  const Zor32s count = std::min(len, outputs), used = n - 1 + count;
  Kind::copy(src, buffer + n - 1, count);
  if (len <= outputs) keepHistory<Kind>(state, buffer + n - 1 + len);
  if (used < fftLen) Kind::zero(buffer + used, fftLen - used);
  ZorStatus status = convolve(buffer, dst, count);
  if (status != zorStatusOk || len <= outputs) return status;

  keepHistory<Kind>(state, src + len);
  for (Zor32s done = outputs; done < len; done += outputs) {
    const Zor32s left = len - done;
    const Sample* window = src + done - n + 1;
    if (left >= fftLen) {
      status = convolve(window, dst + done, outputs);
    } else {
      const Zor32s taken = std::min(n + left - 1, fftLen);
      Kind::copy(window, buffer, taken);
      if (taken < fftLen) Kind::zero(buffer + taken, fftLen - taken);
      status = convolve(buffer, dst + done, std::min(left, outputs));
    }
    if (status != zorStatusOk) return status;
  }
  return zorStatusOk;
}

// samples: those that the test for the FFT path counts.
template <class Kind> bool takesFft(const ZorFIRState* state, Zor32s samples) { return samples >= Kind::leastBlockForFft && state->fftLen >= 1; }

// A chunk is filtered into scratch memory and copied back. Deviation, kept: the path is chosen by the samples that are left
// behind the chunk, so up to 4,224 samples, and the last chunk of any call, are filtered directly.
template <class Kind> ZorStatus filterInPlace(ZorFIRState* state, typename Kind::Sample* srcDst, Zor32s len) {
  auto* scratch = static_cast<typename Kind::Sample*>(state->blockScratch);
  for (Zor32s left = len; left > 0;) {
    const Zor32s chunk = std::min(left, firBlockScratch);
    left -= chunk;
    if (takesFft<Kind>(state, left)) {
      const ZorStatus status = filterByFft<Kind>(state, srcDst, scratch, chunk);
      if (status != zorStatusOk) return status;
    } else {
      filterDirect<Kind>(state, srcDst, scratch, chunk);
    }
    Kind::copy(scratch, srcDst, chunk);
    srcDst += chunk;
  }
  return zorStatusOk;
}

template <class Kind> ZorStatus filter(const typename Kind::Sample* src, typename Kind::Sample* dst, Zor32s len, ZorFIRState* state) {
  return check().pointers(state, src, dst).size(len).state(state, Kind::singleRate).then([&]() -> ZorStatus {
    if (src == dst) return filterInPlace<Kind>(state, dst, len);
    if (takesFft<Kind>(state, len)) return filterByFft<Kind>(state, src, dst, len);
    filterDirect<Kind>(state, src, dst, len);
    return zorStatusOk;
  });
}

// The delay line is a doubled ring: each sample stands at two places, so that the window never wraps.
template <class Kind> ZorStatus filterOne(typename Kind::Sample val, typename Kind::Sample* dst, ZorFIRState* state) {
  return check().pointers(state, dst).state(state, Kind::singleRate).then([&] {
    auto* line = firDlyLine<Kind>(state);
    const Zor32s n = state->tapsLen, at = state->dlyIndex;
    line[at + n] = val;
    line[at] = val;
    state->dlyIndex = at + 1 < n ? at + 1 : 0;
    *dst = fir::dotNewest(firTaps<Kind>(state), n, line + state->dlyIndex, val);
  });
}

}  // namespace

// clang-format off
ZorStatus zorsFIR_32f(const Zor32f* src, Zor32f* dst, Zor32s len, ZorFIRState* state) { return filter<Fir32f>(src, dst, len, state); }
ZorStatus zorsFIR_32f_I(Zor32f* srcDst, Zor32s len, ZorFIRState* state) { return filter<Fir32f>(srcDst, srcDst, len, state); }
ZorStatus zorsFIROne_32f(Zor32f val, Zor32f* dst, ZorFIRState* state) { return filterOne<Fir32f>(val, dst, state); }
// clang-format on

}  // namespace zors
