// find_sound RECORDING.wav [SOUND.wav]: where a recording holds a known sound.
// At every place the sound's correlation with the recording is divided by both energies: 1 is the sound itself, at any
// volume. Without SOUND.wav the program cuts a third of a second out of the recording, turns it down, adds noise of the
// same energy, and looks for that.
#include <sndfile.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

namespace {

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "find_sound: %s\n", message.c_str());
  std::exit(1);
}
void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}

struct CloseSound {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
struct Sound {
  std::vector<Zor32f> samples;  // of the first channel
  double sampleRate;
  Zor32s len() const { return Zor32s(samples.size()); }
};
Sound load(const std::string& from) {
  SF_INFO info{};
  const std::unique_ptr<SNDFILE, CloseSound> file(sf_open(from.c_str(), SFM_READ, &info));
  if (file == nullptr) fail(from + ": " + sf_strerror(nullptr));
  const auto channels = std::size_t(info.channels);
  std::vector<Zor32f> frames(std::size_t(info.frames) * channels);
  frames.resize(std::size_t(sf_readf_float(file.get(), frames.data(), info.frames)) * channels);
  Sound sound{{}, double(info.samplerate)};
  for (std::size_t i = 0; i < frames.size(); i += channels) sound.samples.push_back(frames[i]);
  if (sound.samples.empty() || sound.samples.size() > 100'000'000) fail(from + ": holds no sound, or too much");
  return sound;
}

Sound disguised(const Sound& recording, Zor32s from, Zor32s len) {
  Sound sound{{recording.samples.begin() + from, recording.samples.begin() + from + len}, recording.sampleRate};
  Zor32f energy = 0;
  require(zorsNorm_L2_32f(sound.samples.data(), len, &energy), "zorsNorm_L2_32f");
  std::mt19937 random(1);
  std::normal_distribution<float> noise(0, energy / std::sqrt(float(len)));
  for (Zor32f& x : sound.samples) x = 0.2F * (x + noise(random));
  return sound;
}

// The correlation at every place where the sound lies wholly in the recording, by the energies there.
std::vector<Zor32f> likeness(const Sound& recording, const Sound& sound) {
  const Zor32s places = recording.len() - sound.len() + 1;
  constexpr Zor32s byTheBestMethod = 0, dataType32f = 13;
  Zor32s size = 0;
  require(zorsCrossCorrNormGetBufferSize(sound.len(), recording.len(), places, 0, dataType32f, byTheBestMethod, &size),
          "zorsCrossCorrNormGetBufferSize");
  std::vector<Zor8u> buffer(static_cast<std::size_t>(size));
  std::vector<Zor32f> result(static_cast<std::size_t>(places));
  require(zorsCrossCorrNorm_32f(sound.samples.data(), sound.len(), recording.samples.data(), recording.len(),
                                result.data(), places, 0, byTheBestMethod, buffer.data()),
          "zorsCrossCorrNorm_32f");
  std::vector<Zor32f> squares(recording.samples.size());
  require(zorsSqr_32f(recording.samples.data(), squares.data(), recording.len()), "zorsSqr_32f");
  Zor32f soundNorm = 0;
  require(zorsNorm_L2_32f(sound.samples.data(), sound.len(), &soundNorm), "zorsNorm_L2_32f");
  double energy = 0, total = 0;
  for (Zor32f square : squares) total += square;
  const double silence = 1e-3 * total * sound.len() / recording.len();  // quieter places are like nothing
  for (std::size_t i = 0; i < squares.size(); ++i) {
    const std::size_t len = sound.samples.size();
    energy += squares[i];
    if (i >= len) energy -= squares[i - len];
    if (i + 1 >= len) {
      Zor32f& place = result[i + 1 - len];
      place = energy > silence ? Zor32f(place / (soundNorm * std::sqrt(energy))) : 0;
    }
  }
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) fail("usage: find_sound RECORDING.wav [SOUND.wav]");
  const Sound recording = load(argv[1]);
  const Zor32s cut = Zor32s(recording.sampleRate / 3),
               cutFrom = recording.len() * 2LL / 3 > cut ? recording.len() / 2 : 0;
  if (argc == 2 && recording.len() - cutFrom <= cut)
    fail(std::string(argv[1]) + ": too short to cut a sound out of it");
  const Sound sound = argc == 3 ? load(argv[2]) : disguised(recording, cutFrom, cut);
  if (sound.len() > recording.len()) fail("the sound is longer than the recording");
  if (sound.sampleRate != recording.sampleRate) fail("the sound and the recording have different sample rates");

  const auto start = std::chrono::steady_clock::now();
  const std::vector<Zor32f> places = likeness(recording, sound);
  const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
  Zor32f best = 0;
  Zor32s at = 0;
  require(zorsMaxIndx_32f(places.data(), Zor32s(places.size()), &best, &at), "zorsMaxIndx_32f");
  std::printf("%s: %.2f s; the sound: %.2f s", argv[1], recording.len() / recording.sampleRate,
              sound.len() / sound.sampleRate);
  if (argc == 2) std::printf(", cut at %.3f s, with noise of its own energy", cutFrom / recording.sampleRate);
  std::printf("\nfound at %.3f s, likeness %.2f, after %.1f ms\n", at / recording.sampleRate, double(best),
              spent.count() * 1e3);
  return 0;
}
