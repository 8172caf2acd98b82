// equaliser IN.wav OUT.wav [five gains in dB]: an equaliser of five bands over a recording, five sections of one
// filter. OUT.png shows the filter's response and the spectra before and after.
#include <algorithm>
#include <chrono>
#include <complex>

#include "recording.h"

namespace {

constexpr int blockLen = 1000, bands = 5;
constexpr double centres[bands] = {120, 400, 1000, 2500, 5500};
constexpr double defaultGains[bands] = {-12, 3, 0, 9, -9};

// The two-pole shelves and peaks that audio engineers use: b0, b1, b2, a0, a1, a2, at a quality of 0.7 for the shelves
// at both ends and of 1 for the peaks between them.
std::vector<Zor32f> section(int band, double gain, double sampleRate) {
  const double w = 2 * std::numbers::pi * std::min(centres[band] / sampleRate, 0.45);
  const double a = std::pow(10, gain / 40), cosine = std::cos(w);
  if (band > 0 && band < bands - 1) {
    const double alpha = std::sin(w) / 2;
    return {Zor32f(1 + alpha * a), Zor32f(-2 * cosine), Zor32f(1 - alpha * a),
            Zor32f(1 + alpha / a), Zor32f(-2 * cosine), Zor32f(1 - alpha / a)};
  }
  const double root = std::sqrt(a) * std::sin(w) / 0.7;
  const double plus = a + 1, minus = band == 0 ? a - 1 : 1 - a;
  return {Zor32f(a * (plus - minus * cosine + root)), Zor32f(2 * a * (minus - plus * cosine)),
          Zor32f(a * (plus - minus * cosine - root)), Zor32f(plus + minus * cosine + root),
          Zor32f(-2 * (minus + plus * cosine)),       Zor32f(plus + minus * cosine - root)};
}

double responseInDecibels(const std::vector<Zor32f>& taps, double frequency) {
  const std::complex<double> z = std::polar(1.0, -2 * std::numbers::pi * frequency);
  double sum = 0;
  for (std::size_t s = 0; s < taps.size(); s += 6) {
    const auto at = [&](std::size_t k) {
      return double(taps[s + k]) + z * (double(taps[s + k + 1]) + z * double(taps[s + k + 2]));
    };
    sum += 20 * std::log10(std::abs(at(0) / at(3)));
  }
  return sum;
}

struct FreeState {
  void operator()(ZorIIRState* state) const { zorsIIRFree32f_16s(state); }
};
using State = std::unique_ptr<ZorIIRState, FreeState>;
State makeState(const std::vector<Zor32f>& taps) {
  ZorIIRState* state = nullptr;
  require(zorsIIRInitAlloc32f_BiQuad_16s(&state, taps.data(), bands, nullptr), "zorsIIRInitAlloc32f_BiQuad_16s");
  return State(state);
}

void draw(const Spectrum& before, const Spectrum& after, const std::vector<Zor32f>& taps, double sampleRate,
          const std::string& picture) {
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) fail("gnuplot does not start");
  std::fprintf(
      plot,
      "set terminal pngcairo size 1000,800\nset output '%s'\nset multiplot layout 2,1 title 'Equaliser of five "
      "bands'\nset grid\nset logscale x\nset xlabel 'Hz'\nset xrange [50:%g]\nset ylabel 'gain, dB'\n"
      "plot '-' with lines lw 2 title 'response', '-' with points pt 7 title 'bands'\n",
      picture.c_str(), sampleRate / 2);
  for (double frequency = 50; frequency < sampleRate / 2; frequency *= 1.01)
    std::fprintf(plot, "%g %g\n", frequency, responseInDecibels(taps, frequency / sampleRate));
  std::fprintf(plot, "e\n");
  for (double centre : centres)
    if (centre < sampleRate / 2) std::fprintf(plot, "%g %g\n", centre, responseInDecibels(taps, centre / sampleRate));
  std::fprintf(plot,
               "e\nset ylabel 'dB per bin'\nset yrange [-130:*]\n"
               "plot '-' with lines lw 1.5 title 'before', '-' with lines lw 1.5 title 'after'\n");
  for (const Spectrum* spectrum : {&before, &after}) {
    for (int bin = 1; bin <= Spectrum::length / 2; ++bin)
      std::fprintf(plot, "%g %g\n", bin * sampleRate / Spectrum::length, 10 * std::log10(spectrum->power(bin) + 1e-13));
    std::fprintf(plot, "e\n");
  }
  if (pclose(plot) != 0) fail("gnuplot could not draw " + picture);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 3 + bands) fail("usage: equaliser IN.wav OUT.wav [five gains in dB]");
  const std::string from = argv[1], to = argv[2];
  SF_INFO info;
  const Sound in = openSound(from, info), out = createSound(to, info);
  const double sampleRate = info.samplerate;
  const auto channels = std::size_t(info.channels);

  std::vector<Zor32f> taps;
  double gains[bands];
  for (int band = 0; band < bands; ++band) {
    gains[band] = argc > 3 ? std::atof(argv[3 + band]) : defaultGains[band];
    const auto six = section(band, gains[band], sampleRate);
    taps.insert(taps.end(), six.begin(), six.end());
  }
  std::vector<State> states;
  for (std::size_t c = 0; c < channels; ++c) states.push_back(makeState(taps));

  Spectrum before, after;
  std::vector<Zor16s> frames(blockLen * channels), channel(blockLen);
  sf_count_t total = 0;
  std::chrono::steady_clock::duration spent{};
  while (const sf_count_t got = sf_readf_short(in.get(), frames.data(), blockLen)) {
    const int len = int(got);
    for (std::size_t c = 0; c < channels; ++c) {
      for (std::size_t i = 0; i < std::size_t(len); ++i) channel[i] = frames[i * channels + c];
      if (c == 0) before.add(channel.data(), len);  // the spectra show the first channel
      const auto start = std::chrono::steady_clock::now();
      require(zorsIIR32f_16s_ISfs(channel.data(), len, states[c].get(), 0), "zorsIIR32f_16s_ISfs");
      spent += std::chrono::steady_clock::now() - start;
      if (c == 0) after.add(channel.data(), len);
      for (std::size_t i = 0; i < std::size_t(len); ++i) frames[i * channels + c] = channel[i];
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
  std::printf("  band           gain   response    before     after\n");
  for (int band = 0; band < bands; ++band) {
    const double centre = centres[band];
    if (centre >= sampleRate / 2) break;
    std::printf("  %6.0f Hz %8.1f dB %7.1f dB %6.1f dB %6.1f dB\n", centre, gains[band],
                responseInDecibels(taps, centre / sampleRate), before.bandPower(centre / 1.4, centre * 1.4, sampleRate),
                after.bandPower(centre / 1.4, centre * 1.4, sampleRate));
  }
  std::printf("\n  %.0f million samples a second, %.0f times real time, on one core\n",
              double(total) * double(channels) / busy / 1e6, seconds / busy);
  const std::string picture = pictureOf(to);
  draw(before, after, taps, sampleRate, picture);
  std::printf("  sound: %s, response and spectra: %s\n", to.c_str(), picture.c_str());
  return 0;
}
