// zorsFIRGenLowpass_64f, zorsFIRGenHighpass_64f, zorsFIRGenBandpass_64f, zorsFIRGenBandstop_64f: windowed ideal
// filters.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "exports/design.h"
#include "exports/generators.h"
#include "exports/windows.h"
#include "frame/check.h"
#include "frame/object.h"

namespace zors {
namespace {

constexpr Zor64f pi = std::numbers::pi;

enum class Wave { sine, minusSine, cosine };
enum class Band { lowpass, highpass, bandpass, bandstop };

// The half of the taps on the left of the centre. Tap k from the centre is m = k + 1 samples away, of an even length
// m = k + 1/2.
struct Half {
  Zor64f* taps;
  Zor32s tapsLen;

  Zor32s len() const { return tapsLen >> 1; }
  bool odd() const { return (tapsLen & 1) != 0; }
  Zor64f distance(Zor32s k) const { return k + (odd() ? 1 : 0.5); }
  Zor64f& tap(Zor32s k) const { return taps[len() - 1 - k]; }
};

// A wave of frequency f at the distances of the taps, as a tone: cos(2 pi f k + phase).
void wave(Wave kind, Zor64f f, const Half& half, Zor64f* dst, Zor32s len) {
  const auto phase = [&] {
    switch (kind) {
      case Wave::sine:
        return half.odd() ? 2 * pi * (f >= 0.25 ? f - 0.25 : f + 0.75) : pi * (f + 1.5);
      case Wave::minusSine:
        return half.odd() ? 2 * pi * (f + 0.25) : pi * (f + 0.5);
      default:
        return half.odd() ? 2 * pi * f : pi * f;
    }
  };
  Zor64f start = phase();
  if (zors::zorsTone_Direct_64f(dst, len, 1, f, &start, zorAlgHintAccurate) == zorStatusOk) return;
  // The phase was rounded up to 2 pi.
  for (Zor32s k = 0; k < len; ++k) {
    const Zor64f angle = 2 * pi * f * half.distance(k);
    dst[k] = kind == Wave::cosine ? std::cos(angle) : kind == Wave::sine ? std::sin(angle) : -std::sin(angle);
  }
}

void applyWindow(Zor32s window, Zor64f* taps, Zor32s tapsLen) {
  switch (window) {
    case 0:
      zors::zorsWinBartlett_64f_I(taps, tapsLen);
      break;
    case 1:
      zors::zorsWinBlackmanOpt_64f_I(taps, tapsLen);
      break;
    case 2:
      zors::zorsWinHamming_64f_I(taps, tapsLen);
      break;
    case 3:
      zors::zorsWinHann_64f_I(taps, tapsLen);
      break;
    default:
      break;
  }
}

// The gain at zero, at half the sampling rate, or, with the wave of its frequency, in the middle of the band: of the
// left half and its mirror.
Zor64f gain(Band band, const Half& half, const Zor64f* middle) {
  const Zor32s h = half.len();
  Zor64f sum = 0, centre = half.odd() ? half.taps[h] : 0;
  for (Zor32s k = 0; k < h; ++k) {
    if (band == Band::bandpass)
      sum += half.tap(k) * middle[k];
    else if (band == Band::highpass)
      sum += k % 2 == 0 ? -half.tap(k) : half.tap(k);
    else
      sum += half.tap(k);
  }
  return 2 * sum + centre;
}

// A temporary array that is refused is zorStatusNullPointer here.
ZorStatus design(Band band, Zor64f low, Zor64f high, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) {
  const Half half{taps, tapsLen};
  const Zor32s h = half.len();
  const bool twoWaves = band == Band::bandpass || band == Band::bandstop;
  const std::size_t bytes = (static_cast<std::size_t>(h) + 1) * sizeof(Zor64f);
  const OwnMemory first(bytes);
  if (!first) return zorStatusNullPointer;
  const OwnMemory second(twoWaves ? bytes : 0);
  if (twoWaves && !second) return zorStatusNullPointer;
  auto* t = reinterpret_cast<Zor64f*>(first.data());
  auto* u = reinterpret_cast<Zor64f*>(second.data());

  // A band is what an ideal lowpass at its upper edge lets through, less that at its lower edge; the others are the
  // whole, one tap of 1, less a band or a lowpass. An even length has no middle tap: its highpass is antisymmetric.
  const bool falls = band == Band::lowpass || band == Band::bandstop;
  if (band == Band::highpass && !half.odd())
    wave(Wave::cosine, low, half, t, h + 1);
  else
    wave(falls ? Wave::sine : Wave::minusSine, low, half, t, h + 1);
  if (twoWaves) wave(falls ? Wave::minusSine : Wave::sine, high, half, u, h + 1);
  for (Zor32s k = 0; k < h; ++k) half.tap(k) = (twoWaves ? t[k] + u[k] : t[k]) / (pi * half.distance(k));
  if (half.odd()) {
    const Zor64f width = twoWaves ? high - low : low;
    taps[h] = band == Band::lowpass || band == Band::bandpass ? 2 * width : 1 - 2 * width;
  }

  // The window sees zeros on the right, which the mirror fills.
  const Zor32s shown = tapsLen - h;
  std::fill_n(taps + shown, h, 0.0);
  applyWindow(window, taps, tapsLen);
  if (normalise != 0) {
    if (band == Band::bandpass) wave(Wave::cosine, (low + high) / 2, half, t, h + 1);
    const Zor64f scale = 1 / std::fabs(gain(band, half, t));
    for (Zor32s i = 0; i < shown; ++i) taps[i] *= scale;
  }
  const bool antisymmetric = band == Band::highpass && !half.odd();
  for (Zor32s i = 0; i < h; ++i) taps[tapsLen - 1 - i] = antisymmetric ? -taps[i] : taps[i];
  return zorStatusOk;
}

bool inside(Zor64f freq) { return freq > 0 && freq < 0.5; }

ZorStatus onePoint(Band band, Zor64f freq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) {
  return check().pointers(taps).require(tapsLen >= 5 && inside(freq), zorStatusBadSize).then([&] {
    return design(band, freq, freq, taps, tapsLen, window, normalise);
  });
}
ZorStatus twoPoints(Band band, Zor64f low, Zor64f high, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) {
  return check()
      .pointers(taps)
      .require(tapsLen >= 5 && inside(low) && inside(high) && low < high, zorStatusBadSize)
      .then([&] { return design(band, low, high, taps, tapsLen, window, normalise); });
}

}  // namespace

// clang-format off
ZorStatus zorsFIRGenLowpass_64f(Zor64f freq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) { return onePoint(Band::lowpass, freq, taps, tapsLen, window, normalise); }
ZorStatus zorsFIRGenHighpass_64f(Zor64f freq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) { return onePoint(Band::highpass, freq, taps, tapsLen, window, normalise); }
ZorStatus zorsFIRGenBandpass_64f(Zor64f lowFreq, Zor64f highFreq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) { return twoPoints(Band::bandpass, lowFreq, highFreq, taps, tapsLen, window, normalise); }
ZorStatus zorsFIRGenBandstop_64f(Zor64f lowFreq, Zor64f highFreq, Zor64f* taps, Zor32s tapsLen, Zor32s window, Zor32s normalise) { return twoPoints(Band::bandstop, lowFreq, highFreq, taps, tapsLen, window, normalise); }
// clang-format on

}  // namespace zors
