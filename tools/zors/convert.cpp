// zors convert: other samples, other channels, another kind of file.
#include <fmt/format.h>

#include <cmath>

#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "sound.hpp"

namespace tool {

namespace {

struct Options {
  std::string in, out, bits, law;
  std::vector<int> pick;
  int channels = 0;
  double gain = 0;  // dB
  bool dither = false, partial = false;
};

std::optional<Encoding> encodingOf(const Options& o) {
  if (o.law == "a") return Encoding::aLaw;
  if (o.law == "mu") return Encoding::muLaw;
  if (o.bits == "8") return Encoding::pcm8;
  if (o.bits == "16") return Encoding::pcm16;
  if (o.bits == "24") return Encoding::pcm24;
  if (o.bits == "32") return Encoding::pcm32;
  if (o.bits == "float") return Encoding::float32;
  if (o.bits == "double") return Encoding::float64;
  return std::nullopt;
}

/// Which inputs make each output: their mean.
using Mix = std::vector<std::vector<std::size_t>>;
Mix mixOf(const Options& o, std::size_t channels) {
  Mix mix;
  for (const int channel : o.pick) {
    if (channel < 1 || channel > int(channels)) {
      throw Failure(Exit::usage, fmt::format("--pick {}: the recording has {} channels", channel, channels));
    }
    mix.push_back({std::size_t(channel) - 1});
  }
  if (!mix.empty()) return mix;
  const std::size_t wanted = o.channels ? std::size_t(o.channels) : channels;
  mix.resize(wanted);
  if (wanted == 1) {
    for (std::size_t c = 0; c < channels; ++c) mix[0].push_back(c);
  } else if (channels == 1) {
    for (auto& sources : mix) sources = {0};
  } else if (wanted == channels) {
    for (std::size_t c = 0; c < channels; ++c) mix[c] = {c};
  } else {
    throw Failure(Exit::usage, fmt::format("--channels {}: of {} channels --pick says which", wanted, channels));
  }
  return mix;
}

void work(const Options& o) {
  SoundReader in(o.in, o.partial);
  const Mix mix = mixOf(o, in.channels());
  const auto encoding = encodingOf(o);
  Planes block(in.channels(), blockFrames(in.channels())), mixed(mix.size(), block.capacity());
  bool more = in.read(block);
  in.requireSound();
  SoundWriter out(o.out, {.rate = in.rate(),
                          .channels = mix.size(),
                          .encoding = encoding.value_or(in.encoding()),
                          .frames = in.frames(),
                          .strictEncoding = encoding.has_value(),
                          .dither = o.dither});
  const auto gain = float(std::pow(10, o.gain / 20));
  Progress progress("convert", in.frames(), in.rate());
  for (; more; more = in.read(block)) {
    mixed.setFrames(block.frames());
    for (std::size_t c = 0; c < mix.size(); ++c) {
      const auto to = mixed[c];
      zors::copy(block[mix[c][0]], to);
      for (std::size_t i = 1; i < mix[c].size(); ++i) zors::add(block[mix[c][i]], to, to);
      const float weight = gain / float(mix[c].size());
      if (weight != 1) zors::multiply(to, weight, to);
    }
    out.write(mixed);
    progress.advance(std::int64_t(block.frames()));
  }
  out.finish();
  if (out.clipped() > 0) fmt::print(stderr, "zors: {} samples were limited to full scale\n", out.clipped());
}

}  // namespace

void addConvert(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "convert", "Other sample formats, channels, kinds of file", o, work);
  command->add_option("IN", o->in, "The recording")->required();
  command->add_option("OUT", o->out, "The new one; its name tells the kind of file")->required();
  auto* bits = command->add_option("--bits", o->bits, "8, 16, 24, 32, float or double (default: as in IN)")
                   ->check(CLI::IsMember({"8", "16", "24", "32", "float", "double"}));
  command->add_option("--g711", o->law, "Companded to 8 bits after G.711: a or mu")
      ->check(CLI::IsMember({"a", "mu"}))
      ->excludes(bits);
  command->add_flag("--dither", o->dither, "Triangular noise of two steps before rounding");
  auto* channels = command->add_option("--channels", o->channels, "1: the mean of all; more: copies of the only one")
                       ->check(between(1, 256));
  command->add_option("--pick", o->pick, "Channels to keep, in this order, from 1 on")
      ->delimiter(',')
      ->excludes(channels);
  command->add_option("--gain", o->gain, "In dB")->check(between(-200, 200));
  addPartial(command, o->partial);
  command->footer("Example:\n  zors convert speech.wav telephone.au --g711 a --channels 1");
}

}  // namespace tool
