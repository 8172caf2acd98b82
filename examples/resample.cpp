// resample IN.wav OUT.wav RATE: a recording at another sample rate.
// Mono or stereo, any rates: by rows of taps where the reduced rate has up to 1,000 of them, else by interpolation.
#include <sndfile.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

namespace {

constexpr int taps = 64, reach = 2 * taps, blockLen = 1 << 16, mostRows = 1000;
constexpr float rollOff = 0.95f, alpha = 9;

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "resample: %s\n", message.c_str());
  std::exit(1);
}
void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}
struct CloseSound {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using Sound = std::unique_ptr<SNDFILE, CloseSound>;

// One filter for all channels: its state is only read.
class Resampler {
 public:
  Resampler(int inRate, int outRate)
      : factor_(double(outRate) / inRate), fixed_(outRate / std::gcd(inRate, outRate) <= mostRows) {
    Zor32s size = 0, rowLen, rows;
    if (fixed_) {
      require(
          zorsResamplePolyphaseFixedGetSize_32f(inRate, outRate, filterLen(), &size, &rowLen, &rows, zorAlgHintFast),
          "size");
      block_.resize(std::size_t(size));
      require(zorsResamplePolyphaseFixedInit_32f(inRate, outRate, filterLen(), rollOff, alpha, fixedState(),
                                                 zorAlgHintFast),
              "init");
    } else {
      require(zorsResamplePolyphaseGetSize_32f(taps, 256, &size), "size");
      block_.resize(std::size_t(size));
      require(zorsResamplePolyphaseInit_32f(taps, 256, rollOff, alpha, freeState(), zorAlgHintFast), "init");
    }
  }
  // Input samples that an output may lie away from those that it needs.
  int reachOf() const { return fixed_ ? filterLen() / 2 + 4 : int(taps / std::min(1.0, factor_)) + 2; }
  int run(const Zor32f* src, int len, Zor32f* dst, double* time) {
    Zor32s count = 0;
    require(fixed_ ? zorsResamplePolyphaseFixed_32f(src, len, dst, 1, time, &count, fixedState())
                   : zorsResamplePolyphase_32f(src, len, dst, factor_, 1, time, &count, freeState()),
            "run");
    return count;
  }

 private:
  int filterLen() const { return int(taps / std::min(1.0, factor_)); }  // a fall of the rate takes a longer filter
  ZorResampleFixedState* fixedState() { return reinterpret_cast<ZorResampleFixedState*>(block_.data()); }
  ZorResampleState* freeState() { return reinterpret_cast<ZorResampleState*>(block_.data()); }

  double factor_;
  bool fixed_;
  std::vector<Zor8u> block_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) fail("usage: resample IN.wav OUT.wav RATE");
  SF_INFO info{};
  const Sound in(sf_open(argv[1], SFM_READ, &info));
  if (in == nullptr) fail(std::string(argv[1]) + ": " + sf_strerror(nullptr));
  const int rate = std::atoi(argv[3]), channels = info.channels;
  if (rate < 1) fail("a rate of at least 1 is needed");
  SF_INFO outInfo = info;
  outInfo.samplerate = rate;
  const Sound out(sf_open(argv[2], SFM_WRITE, &outInfo));
  if (out == nullptr) fail(std::string(argv[2]) + ": " + sf_strerror(nullptr));

  Resampler resampler(info.samplerate, rate);
  const int edge = resampler.reachOf();
  const double factor = double(rate) / info.samplerate;
  // A channel's samples: `edge` before the block, the block, `edge` behind it, at first zeros.
  std::vector<std::vector<Zor32f>> lines(std::size_t(channels), std::vector<Zor32f>(std::size_t(blockLen + 2 * edge)));
  std::vector<Zor32f> frames(std::size_t(blockLen) * std::size_t(channels)),
      made(std::size_t((blockLen + 2) * factor) + 16), interleaved(made.size() * std::size_t(channels));
  std::vector<double> times(std::size_t(channels), 0);
  double seconds = 0;
  long long written = 0, wanted = (long long)(double(info.frames) * factor);
  std::fill(times.begin(), times.end(), edge);  // where the recording begins in the first line
  while (written < wanted) {
    const auto got = std::max<sf_count_t>(0, sf_readf_float(in.get(), frames.data(), blockLen));
    std::fill(frames.begin() + got * channels, frames.end(), 0.0f);
    const auto start = std::chrono::steady_clock::now();
    int count = 0;
    for (int c = 0; c < channels; ++c) {
      auto& line = lines[std::size_t(c)];
      std::copy(line.end() - 2 * edge, line.end(), line.begin());
      for (int i = 0; i < blockLen; ++i) line[std::size_t(2 * edge + i)] = frames[std::size_t(i * channels + c)];
      double& time = times[std::size_t(c)];
      count = resampler.run(line.data() + edge, blockLen - int(time), made.data(), &time);
      time -= blockLen;
      for (int i = 0; i < count; ++i) interleaved[std::size_t(i * channels + c)] = made[std::size_t(i)];
    }
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const auto kept = std::min<long long>(count, wanted - written);
    if (sf_writef_float(out.get(), interleaved.data(), kept) != kept) fail(std::string(argv[2]) + ": cannot write");
    written += kept;
    std::fprintf(stderr, "\r%3.0f%%", 100.0 * double(written) / double(std::max(1LL, wanted)));
  }
  std::fprintf(stderr, "\r");
  std::printf("%s: %lld frames at %d Hz, %d channel%s, %.1f million samples a second\n", argv[2], written, rate,
              channels, channels == 1 ? "" : "s", double(written) * channels / std::max(seconds, 1e-9) / 1e6);
  return 0;
}
