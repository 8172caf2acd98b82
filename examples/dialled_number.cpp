// dialled_number OUT.wav [IN.wav]: the digits that a telephone's tones dial, by eight Goertzel bins.
// Without IN a number is dialled here, tones of 70 ms and pauses of 50 ms in noise, and written to OUT; OUT.png shows
// the bins over time.
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

#include "zors.h"
#include "zors_status.h"

namespace {

constexpr double tones[8] = {697, 770, 852, 941, 1209, 1336, 1477, 1633};  // four rows, four columns
constexpr char keys[4][5] = {"123A", "456B", "789C", "*0#D"};
const std::string number = "0123456789*#ABCD";
constexpr double signalToNoise = 10;  // dB
constexpr int ownRate = 8000;

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "dialled_number: %s\n", message.c_str());
  std::exit(1);
}
void require(ZorStatus status, const char* what) {
  if (status < 0) fail(std::string(what) + ": " + zorsStatusText(status));
}
struct CloseSound {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using Sound = std::unique_ptr<SNDFILE, CloseSound>;

struct Recording {
  std::vector<Zor32f> samples;
  double rate;
};
Recording read(const std::string& path) {
  SF_INFO info{};
  const Sound in(sf_open(path.c_str(), SFM_READ, &info));
  if (in == nullptr) fail(path + ": " + sf_strerror(nullptr));
  std::vector<Zor32f> frames(std::size_t(info.frames) * std::size_t(info.channels)), first;
  frames.resize(std::size_t(std::max<sf_count_t>(sf_readf_float(in.get(), frames.data(), info.frames), 0)) *
                std::size_t(info.channels));
  for (std::size_t i = 0; i < frames.size(); i += std::size_t(info.channels)) first.push_back(frames[i]);
  if (first.empty()) fail(path + ": holds no sound");
  return {first, double(info.samplerate)};
}
Recording dial() {
  Recording out{{}, ownRate};
  const auto pause = [&](double seconds) { out.samples.resize(out.samples.size() + std::size_t(seconds * ownRate)); };
  pause(0.1);
  for (char digit : number)
    for (int row = 0; row < 4; ++row)
      for (int column = 0; column < 4; ++column) {
        if (keys[row][column] != digit) continue;
        for (int i = 0; i < ownRate * 70 / 1000; ++i) {
          const double turn = 2 * std::numbers::pi * i / ownRate;
          out.samples.push_back(Zor32f(0.2 * (std::sin(turn * tones[row]) + std::sin(turn * tones[4 + column]))));
        }
        pause(0.05);
      }
  std::mt19937 random(1);
  std::normal_distribution<float> noise(0, float(0.2 / std::pow(10, signalToNoise / 20)));
  for (Zor32f& sample : out.samples) sample += noise(random);
  return out;
}
void write(const std::string& path, const Recording& recording) {
  SF_INFO info{.frames = 0,
               .samplerate = int(recording.rate),
               .channels = 1,
               .format = SF_FORMAT_WAV | SF_FORMAT_PCM_16,
               .sections = 0,
               .seekable = 0};
  const Sound out(sf_open(path.c_str(), SFM_WRITE, &info));
  if (out == nullptr) fail(path + ": " + sf_strerror(nullptr));
  const auto count = sf_count_t(recording.samples.size());
  if (sf_writef_float(out.get(), recording.samples.data(), count) != count) fail(path + ": " + sf_strerror(out.get()));
}

// Powers of the eight tones, relative to the block's, two tones to a pass.
struct Block {
  double seconds;
  double share[8];
  char digit;  // or a space
};
Block analyse(const Zor32f* samples, Zor32s len, double rate, double seconds) {
  Block block{seconds, {}, ' '};
  Zor32f power = 0;
  require(zorsNorm_L2_32f(samples, len, &power), "zorsNorm_L2_32f");
  const double energy = double(power) * double(power) + 1e-12;
  for (int tone = 0; tone < 8; tone += 2) {
    const Zor32f frequencies[2] = {Zor32f(tones[tone] / rate), Zor32f(tones[tone + 1] / rate)};
    Zor32fc bins[2];
    require(zorsGoertzTwo_32f(samples, len, bins, frequencies), "zorsGoertzTwo_32f");
    for (int i = 0; i < 2; ++i)
      block.share[tone + i] = 2 * (double(bins[i].re) * bins[i].re + double(bins[i].im) * bins[i].im) / (len * energy);
  }
  const double* const row = std::max_element(block.share, block.share + 4);
  const double* const column = std::max_element(block.share + 4, block.share + 8);
  // A key is two tones of like strength that hold most of the power.
  const bool loud = energy / len > 1e-5, alike = *row < 6 * *column && *column < 6 * *row;
  if (loud && alike && *row + *column > 0.6) block.digit = keys[row - block.share][column - block.share - 4];
  return block;
}

void draw(const std::vector<Block>& blocks, const std::string& picture) {
  FILE* plot = popen("gnuplot", "w");
  if (plot == nullptr) fail("gnuplot does not start");
  std::fprintf(
      plot,
      "set terminal pngcairo size 1200,400\nset output '%s'\nset title 'Eight bins over time'\nset xlabel 's'\n"
      "set ytics ('697' 0, '770' 1, '852' 2, '941' 3, '1209' 4, '1336' 5, '1477' 6, '1633' 7)\nset cbrange [0:0.6]\n"
      "set cblabel 'share of the power'\nset yrange [-0.5:7.5]\nset xrange [%g:%g]\nplot '-' with image notitle\n",
      picture.c_str(), blocks.front().seconds, blocks.back().seconds);
  for (const Block& block : blocks)
    for (int tone = 0; tone < 8; ++tone) std::fprintf(plot, "%g %d %g\n", block.seconds, tone, block.share[tone]);
  std::fprintf(plot, "e\n");
  if (pclose(plot) != 0) fail("gnuplot could not draw " + picture);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) fail("usage: dialled_number OUT.wav [IN.wav]");
  const std::string to = argv[1];
  const Recording recording = argc == 3 ? read(argv[2]) : dial();
  if (recording.rate < 2 * tones[7]) fail("a rate of at least 3,300 Hz is wanted");
  if (argc == 2) write(to, recording);

  // 205 samples at 8 kHz part neighbouring tones; blocks overlap by half.
  const auto len = Zor32s(recording.rate * 205 / 8000);
  std::vector<Block> blocks;
  for (std::size_t at = 0; at + std::size_t(len) <= recording.samples.size(); at += std::size_t(len) / 2)
    blocks.push_back(analyse(recording.samples.data() + at, len, recording.rate, double(at) / recording.rate));
  if (blocks.empty()) fail("shorter than a block");

  if (argc == 2) std::printf("dialled:  %s, noise %g dB below each tone's peak\n", number.c_str(), signalToNoise);
  std::string dialled;
  std::printf("\n  time, s   digit\n");
  for (std::size_t i = 1; i < blocks.size(); ++i) {  // two blocks that agree, after one that does not
    const bool starts = blocks[i].digit != ' ' && blocks[i - 1].digit == blocks[i].digit &&
                        (i == 1 || blocks[i - 2].digit != blocks[i].digit);
    if (!starts) continue;
    std::printf("  %7.3f   %c\n", blocks[i - 1].seconds, blocks[i].digit);
    dialled += blocks[i].digit;
  }
  std::printf("\ndetected: %s\n", dialled.empty() ? "no digits" : dialled.c_str());
  draw(blocks, to + ".png");
  std::printf("written:  %s%s.png\n", argc == 2 ? (to + ", ").c_str() : "", to.c_str());
  return argc == 2 && dialled != number ? 1 : 0;
}
