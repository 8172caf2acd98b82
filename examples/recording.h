// What the demos share: recordings, memory of the library, mean spectra.
#pragma once

#include <sndfile.h>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

[[noreturn]] inline void fail(const std::string& message) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, message.c_str());
  std::exit(1);
}
inline void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}

struct CloseSound {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using Sound = std::unique_ptr<SNDFILE, CloseSound>;
template <class T> struct ZorsFree {
  void operator()(T* memory) const { zorsFree(memory); }
};
template <class T> using Buffer = std::unique_ptr<T[], ZorsFree<T>>;

// Opens a recording that holds sound.
inline Sound openSound(const std::string& from, SF_INFO& info) {
  info = {};
  Sound in(sf_open(from.c_str(), SFM_READ, &info));
  if (in == nullptr) fail(from + ": " + sf_strerror(nullptr));
  if (info.frames == 0) fail(from + ": holds no sound");
  return in;
}
// A 16-bit recording of the same rate and channels.
inline Sound createSound(const std::string& to, const SF_INFO& like) {
  SF_INFO info{.frames = 0,
               .samplerate = like.samplerate,
               .channels = like.channels,
               .format = SF_FORMAT_WAV | SF_FORMAT_PCM_16,
               .sections = 0,
               .seekable = 0};
  Sound out(sf_open(to.c_str(), SFM_WRITE, &info));
  if (out == nullptr) fail(to + ": " + sf_strerror(nullptr));
  return out;
}
inline std::string pictureOf(const std::string& sound) { return sound.substr(0, sound.rfind('.')) + ".png"; }

// Mean power spectrum of a signal that comes in blocks: Hann windows, half overlapped.
class Spectrum {
 public:
  static constexpr int order = 11, length = 1 << order;

  Spectrum() : power_(length / 2 + 1) {
    require(zorsFFTInitAlloc_R_32f(&spec_, order, ZOR_FFT_DIVIDE_NONE, zorAlgHintNone), "zorsFFTInitAlloc_R_32f");
    Zor32s size = 0;
    require(zorsFFTGetBufSize_R_32f(spec_, &size), "zorsFFTGetBufSize_R_32f");
    work_.reset(zorsMalloc_8u(size));
    for (int i = 0; i < length; ++i) window_.push_back(Zor32f(0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / length)));
  }
  ~Spectrum() { zorsFFTFree_R_32f(spec_); }
  Spectrum(const Spectrum&) = delete;
  Spectrum& operator=(const Spectrum&) = delete;

  void add(const Zor16s* samples, int len) {
    for (int i = 0; i < len; ++i) {
      waiting_.push_back(Zor32f(samples[i]) / 32768);
      if (waiting_.size() == length) transform();
    }
  }
  void finish() {  // a rest, or a recording shorter than a window, counts too
    if (windows_ > 0 && waiting_.size() <= length / 2) return;
    waiting_.resize(length);
    transform();
  }
  double power(int bin) const { return power_[std::size_t(bin)] / windows_; }
  double bandPower(double from, double to, double sampleRate) const {  // in dB
    double sum = 1e-12;
    for (int bin = 0; bin <= length / 2; ++bin) {
      const double frequency = bin * sampleRate / length;
      if (frequency >= from && frequency < to) sum += power(bin);
    }
    return 10 * std::log10(sum);
  }

 private:
  void transform() {
    std::vector<Zor32f> spectrum(length);
    require(zorsMul_32f(waiting_.data(), window_.data(), spectrum.data(), length), "zorsMul_32f");
    require(zorsFFTFwd_RToPerm_32f_I(spectrum.data(), spec_, work_.get()), "zorsFFTFwd_RToPerm_32f_I");
    const double unit = 8.0 / 3 / (double(length) * length);  // a Hann window keeps 3/8 of the power
    power_[0] += unit * spectrum[0] * spectrum[0];
    power_[length / 2] += unit * spectrum[1] * spectrum[1];
    for (std::size_t k = 1; k < length / 2; ++k)
      power_[k] += 2 * unit * (spectrum[2 * k] * spectrum[2 * k] + spectrum[2 * k + 1] * spectrum[2 * k + 1]);
    ++windows_;
    waiting_.erase(waiting_.begin(), waiting_.begin() + length / 2);
  }
  ZorsFFTSpec_R_32f* spec_ = nullptr;
  Buffer<Zor8u> work_;
  std::vector<Zor32f> window_, waiting_;
  std::vector<double> power_;
  int windows_ = 0;
};
