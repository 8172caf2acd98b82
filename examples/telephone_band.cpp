// telephone_band IN.wav OUT.wav: what a telephone line leaves of a recording.
// A 128-tap band-pass, 300 to 3,400 Hz, filters the recording in blocks of 1,000 samples; OUT.png shows the spectra.
#include <algorithm>
#include <chrono>

#include "recording.h"

namespace {

constexpr int tapsLen = 128, blockLen = 1000;
constexpr double lowCut = 300, highCut = 3400;

// The difference of two windowed low-passes.
std::vector<Zor32f> bandPass(double sampleRate) {
  const double low = lowCut / sampleRate, high = std::min(highCut / sampleRate, 0.45);
  std::vector<Zor32f> taps(tapsLen);
  for (int k = 0; k < tapsLen; ++k) {
    const double t = k - (tapsLen - 1) / 2.0, turn = 2 * std::numbers::pi * k / (tapsLen - 1);
    const double blackman = 0.42 - 0.5 * std::cos(turn) + 0.08 * std::cos(2 * turn);
    const auto lowPass = [t](double cut) { return std::sin(2 * std::numbers::pi * cut * t) / (std::numbers::pi * t); };
    taps[std::size_t(k)] = Zor32f((lowPass(high) - lowPass(low)) * blackman);
  }
  return taps;
}

// One channel's filter, in a block of our own.
class Filter {
 public:
  explicit Filter(const std::vector<Zor32f>& taps) {
    Zor32s size = 0;
    require(zorsFIRGetStateSize_32f(tapsLen, &size), "zorsFIRGetStateSize_32f");
    memory_.reset(zorsMalloc_8u(size));
    if (memory_ == nullptr) fail("out of memory");
    require(zorsFIRInit_32f(&state_, taps.data(), tapsLen, nullptr, memory_.get()), "zorsFIRInit_32f");
  }
  void run(const Zor16s* in, Zor16s* out, Zor32s len) {
    require(zorsConvert_16s32f(in, samples_, len), "zorsConvert_16s32f");
    require(zorsFIR_32f(samples_, filtered_, len, state_), "zorsFIR_32f");
    require(zorsConvert_32f16s_Sfs(filtered_, out, len, zorRoundNearestEven, 0), "zorsConvert_32f16s_Sfs");
  }

 private:
  Buffer<Zor8u> memory_;
  ZorFIRState* state_ = nullptr;
  alignas(64) Zor32f samples_[blockLen], filtered_[blockLen];
};

void draw(const Spectrum& before, const Spectrum& after, double sampleRate, const std::string& picture) {
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) fail("gnuplot does not start");
  std::fprintf(plot,
               "set terminal pngcairo size 1000,500\nset output '%s'\nset title 'Through a telephone line'\nset grid\n"
               "set xlabel 'Hz'\nset ylabel 'dB per bin'\nset xrange [0:%g]\nset yrange [-130:*]\n"
               "plot '-' with lines lw 1.5 title 'before', '-' with lines lw 1.5 title 'after'\n",
               picture.c_str(), sampleRate / 2);
  for (const Spectrum* spectrum : {&before, &after}) {
    for (int bin = 0; bin <= Spectrum::length / 2; ++bin)
      std::fprintf(plot, "%g %g\n", bin * sampleRate / Spectrum::length, 10 * std::log10(spectrum->power(bin) + 1e-13));
    std::fprintf(plot, "e\n");
  }
  if (pclose(plot) != 0) fail("gnuplot could not draw " + picture);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) fail("usage: telephone_band IN.wav OUT.wav");
  const std::string from = argv[1], to = argv[2];
  SF_INFO info;
  const Sound in = openSound(from, info), out = createSound(to, info);

  const double sampleRate = info.samplerate;
  const auto channels = std::size_t(info.channels);
  const std::vector<Zor32f> taps = bandPass(sampleRate);
  std::vector<std::unique_ptr<Filter>> filters;
  for (std::size_t c = 0; c < channels; ++c) filters.push_back(std::make_unique<Filter>(taps));
  Spectrum before, after;
  std::vector<Zor16s> frames(blockLen * channels), channel(blockLen), filtered(blockLen);
  sf_count_t total = 0;
  std::chrono::steady_clock::duration spent{};
  while (const sf_count_t got = sf_readf_short(in.get(), frames.data(), blockLen)) {
    const int len = int(got);
    for (std::size_t c = 0; c < channels; ++c) {
      for (std::size_t i = 0; i < std::size_t(len); ++i) channel[i] = frames[i * channels + c];
      const auto start = std::chrono::steady_clock::now();
      filters[c]->run(channel.data(), filtered.data(), len);
      spent += std::chrono::steady_clock::now() - start;
      for (std::size_t i = 0; i < std::size_t(len); ++i) frames[i * channels + c] = filtered[i];
      if (c == 0) {  // the spectra show the first channel
        before.add(channel.data(), len);
        after.add(filtered.data(), len);
      }
    }
    if (sf_writef_short(out.get(), frames.data(), got) != got) fail(to + ": " + sf_strerror(out.get()));
    total += got;
  }
  if (total == 0) fail(from + ": holds no sound");
  before.finish();
  after.finish();

  const double seconds = double(total) / sampleRate, busy = std::chrono::duration<double>(spent).count();
  std::printf("%s: %.2f s, %d channel%s at %d Hz\n\n", from.c_str(), seconds, info.channels,
              info.channels == 1 ? "" : "s", info.samplerate);
  std::printf("  band            before     after\n");
  const double edges[] = {0, lowCut, highCut, 8000, sampleRate / 2 + 1};
  for (int band = 0; band < 4; ++band) {
    if (edges[band] >= sampleRate / 2) break;
    const double top = std::min(edges[band + 1], sampleRate / 2 + 1);
    std::printf("  %5.0f-%5.0f Hz %7.1f dB %7.1f dB\n", edges[band], std::min(top, sampleRate / 2),
                before.bandPower(edges[band], top, sampleRate), after.bandPower(edges[band], top, sampleRate));
  }
  const double samples = double(total) * double(channels);
  std::printf("\n  %.0f million samples a second, %.0f times real time, on one core\n", samples / busy / 1e6,
              seconds / busy);
  const std::string picture = pictureOf(to);
  draw(before, after, sampleRate, picture);
  std::printf("  sound: %s, spectra: %s\n", to.c_str(), picture.c_str());
  return 0;
}
