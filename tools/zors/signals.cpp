// zors tone, noise, sweep: test signals.
#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "sound.hpp"

namespace tool {

namespace {

struct Options {
  std::string out, bits = "16", colour = "white", shape = "sine", scale = "log";
  double seconds = 1, frequency = 1000, from = 20, to = 0, level = -6;
  int rate = 48000, channels = 1;
  unsigned seed = 1;
  bool dither = false;
};

double amplitude(const Options& o) { return std::pow(10, o.level / 20); }

Encoding encodingOf(const std::string& bits) {
  if (bits == "float") return Encoding::float32;
  return bits == "8"    ? Encoding::pcm8
         : bits == "24" ? Encoding::pcm24
         : bits == "32" ? Encoding::pcm32
                        : Encoding::pcm16;
}

double checkFrequency(const Options& o, double frequency) {
  if (frequency > 0 && frequency < o.rate / 2.0) return frequency;
  throw Failure(Exit::usage,
                fmt::format("{:g} Hz is not between 0 and half the sample rate, {:g} Hz", frequency, o.rate / 2.0));
}

// Writes the blocks that fill(block, first frame) makes.
template <class Fill> void generate(const Options& o, const char* what, Fill fill) {
  const auto total = std::int64_t(std::llround(o.seconds * o.rate));
  if (total < 1) throw Failure(Exit::usage, "--seconds: shorter than a sample");
  SoundWriter out(o.out, {.rate = o.rate,
                          .channels = std::size_t(o.channels),
                          .encoding = encodingOf(o.bits),
                          .frames = total,
                          .strictEncoding = true,
                          .dither = o.dither});
  Planes block(std::size_t(o.channels), blockFrames(std::size_t(o.channels)));
  Progress progress(what, total, o.rate);
  for (std::int64_t at = 0; at < total;) {
    block.setFrames(std::size_t(std::min<std::int64_t>(total - at, std::int64_t(block.capacity()))));
    fill(block, at);
    out.write(block);
    at += std::int64_t(block.frames());
    progress.advance(std::int64_t(block.frames()));
  }
  out.finish();
  if (out.clipped() > 0) fmt::print(stderr, "zors: {} samples were limited to full scale\n", out.clipped());
}
void copyToAll(Planes& block) {
  for (std::size_t c = 1; c < block.channels(); ++c) zors::copy(block[0], block[c]);
}

void tone(const Options& o) {
  const double relative = checkFrequency(o, o.frequency) / o.rate;
  // A cosine from a quarter turn before its top is a sine.
  const double start = 1.5 * std::numbers::pi;
  zors::Tone<double> sine({.frequency = relative, .magnitude = amplitude(o), .phase = start});
  zors::Triangle<double> triangle({.frequency = relative, .magnitude = amplitude(o), .phase = start});
  std::vector<double> wide;
  generate(o, "tone", [&](Planes& block, std::int64_t) {
    wide.resize(block.frames());
    if (o.shape == "triangle") {
      triangle.generate(wide);
    } else {
      sine.generate(wide);
    }
    zors::convert(wide, block[0]);
    copyToAll(block);
  });
}

void noise(const Options& o) {
  const auto level = float(amplitude(o));
  std::vector<zors::RandomGauss<float>> gauss;
  std::vector<zors::RandomUniform<float>> uniform;
  std::vector<zors::IirCascade<float, double>> pink;
  // 3 dB an octave: poles and zeros in turn, two an octave from 10 Hz to half the rate, kept in sections. Gain 1 in
  // power is put in below.
  std::vector<double> sections;
  for (double frequency = 10; frequency < o.rate / 2.0; frequency *= 4) {
    const double pole = std::exp(-2 * std::numbers::pi * frequency / o.rate);
    const double zero = std::exp(-2 * std::numbers::pi * std::min(2 * frequency, o.rate / 2.0) / o.rate);
    sections.insert(sections.end(), {1, -zero, 0, 1, -pole, 0});
  }
  double power = 0;  // of the response to white noise of power 1
  {
    zors::IirCascade<float, double> filter({.taps = sections});
    std::vector<float> impulse(std::size_t(o.rate) + 1);
    impulse[0] = 1;
    filter.process(impulse);
    const double norm = zors::normL2(impulse);
    power = norm * norm;
  }
  for (std::size_t i = 0; i < 3; ++i) sections[i] /= std::sqrt(power);
  for (int c = 0; c < o.channels; ++c) {
    const Zor32u seed = o.seed + Zor32u(c);
    gauss.emplace_back(zors::RandomGauss<float>::Options{.mean = 0, .deviation = level, .seed = seed});
    const float half = level * std::sqrt(3.0f);  // the same power
    uniform.emplace_back(zors::RandomUniform<float>::Options{.low = -half, .high = half, .seed = seed});
    pink.emplace_back(zors::IirCascade<float, double>::Options{.taps = sections});
  }
  generate(o, "noise", [&](Planes& block, std::int64_t) {
    for (std::size_t c = 0; c < block.channels(); ++c) {
      if (o.colour == "uniform") {
        uniform[c].generate(block[c]);
      } else {
        gauss[c].generate(block[c]);
      }
      if (o.colour == "pink") pink[c].process(block[c]);
    }
  });
}

void sweep(const Options& o) {
  const double from = checkFrequency(o, o.from), to = o.to ? checkFrequency(o, o.to) : o.rate * 0.45;
  const double total = o.seconds;
  const bool logarithmic = o.scale == "log" && from != to;
  const double growth = std::log(to / from) / total;
  std::vector<double> magnitude, turns;
  std::vector<std::complex<double>> points;
  generate(o, "sweep", [&](Planes& block, std::int64_t at) {
    const std::size_t frames = block.frames();
    magnitude.assign(frames, amplitude(o)), turns.resize(frames), points.resize(frames);
    for (std::size_t i = 0; i < frames; ++i) {
      const double t = double(at + std::int64_t(i)) / o.rate;
      const double cycles =
          logarithmic ? from * std::expm1(growth * t) / growth : t * (from + (to - from) * t / (2 * total));
      turns[i] = 2 * std::numbers::pi * (cycles - std::floor(cycles));
    }
    zors::fromPolar(magnitude, turns, points);
    zors::imag(points, magnitude);
    zors::convert(magnitude, block[0]);
    copyToAll(block);
  });
}

void addCommon(CLI::App* command, Options& o) {
  command->add_option("OUT", o.out, "The sound")->required();
  command->add_option("--seconds", o.seconds, "Its length (default 1)")->check(between(0, 1e7));
  command->add_option("-r,--rate", o.rate, "Sample rate, Hz (default 48000)")->check(between(1, 12288000));
  command->add_option("--channels", o.channels, "Channels (default 1)")->check(between(1, 256));
  command->add_option("--bits", o.bits, "8, 16, 24, 32 or float (default 16)")
      ->check(CLI::IsMember({"8", "16", "24", "32", "float"}));
  command->add_flag("--dither", o.dither, "Triangular noise of two steps before rounding");
}

}  // namespace

void addSignals(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "tone", "A tone", o, tone);
  addCommon(command, *o);
  command->add_option("-f,--frequency", o->frequency, "Hz (default 1000)");
  command->add_option("--shape", o->shape, "sine or triangle (default sine)")
      ->check(CLI::IsMember({"sine", "triangle"}));
  command->add_option("--level", o->level, "Of the peak, in dB (default -6)")->check(between(-200, 20));
  command->footer("Example:\n  zors tone a4.wav --frequency 440 --seconds 2");

  command = addCommand(app, run, "noise", "Noise", o, noise);
  addCommon(command, *o);
  o->level = -20;
  command->add_option("--level", o->level, "RMS, in dB (default -20)")->check(between(-200, 20));
  command->add_option("--colour", o->colour, "white, uniform (white too, evenly spread) or pink (default white)")
      ->check(CLI::IsMember({"white", "uniform", "pink"}));
  command->add_option("--seed", o->seed, "Another seed, another noise (default 1)");
  command->footer("Example:\n  zors noise hiss.wav --colour pink --seconds 10");

  command = addCommand(app, run, "sweep", "A sine from one frequency to another", o, sweep);
  addCommon(command, *o);
  command->add_option("--from", o->from, "Hz (default 20)");
  command->add_option("--to", o->to, "Hz (default 0.45 of the rate)");
  command->add_option("--scale", o->scale, "log or linear (default log)")->check(CLI::IsMember({"log", "linear"}));
  command->add_option("--level", o->level, "Of the peak, in dB (default -6)")->check(between(-200, 20));
  command->footer("Example:\n  zors sweep room.wav --from 20 --to 20000 --seconds 10");
}

}  // namespace tool
