// zors filter: designs a filter and applies it.
#include <fmt/format.h>

#include <cmath>

#include "command.hpp"
#include "failure.hpp"
#include "filter_design.hpp"
#include "progress.hpp"
#include "sound.hpp"
#include "workers.hpp"

namespace tool {

namespace {

struct Options {
  FilterOptions filter;
  std::string in, out;
  int bits = 0, jobs = 1;
  double gain = 0;  // dB
  bool causal = false, partial = false;
};

/// A channel's filter, in the arithmetic that was asked for.
class Channel {
 public:
  Channel(const Filter& filter, double gain, int bits) : bits_(bits) {
    if (!filter.isFir()) {
      auto sections = filter.sections;
      for (std::size_t i = 0; i < 3; ++i) sections[i] *= gain;
      cascade_ = zors::IirCascade<float, double>({.taps = sections});
      return;
    }
    std::vector<double> taps = filter.taps;
    for (double& tap : taps) tap *= gain;
    if (bits > 0) {
      const IntegerTaps rounded = roundTaps(taps, bits);
      fixed_ = zors::Fir<Zor16s>({.taps = rounded.taps, .tapsFactor = rounded.factor});
    } else {
      const std::vector<float> narrow(taps.begin(), taps.end());
      fir_ = zors::Fir<float>({.taps = narrow});
    }
    isFir_ = true;
  }
  void process(std::span<float> samples) {
    if (!isFir_) {
      cascade_.process(samples);
    } else if (bits_ == 0) {
      filtered_.resize(samples.size());
      fir_.process(samples, filtered_);
      zors::copy(filtered_, samples);
    } else {
      integers_.resize(samples.size());
      zors::convert(samples, integers_, {.scaleFactor = -15});
      fixed_.process(integers_);
      zors::convert(integers_, samples, {.scaleFactor = 15});
    }
  }

 private:
  int bits_;
  bool isFir_ = false;
  zors::Fir<float> fir_;
  zors::Fir<Zor16s> fixed_;
  zors::IirCascade<float, double> cascade_;
  std::vector<float> filtered_;
  std::vector<Zor16s> integers_;
};

// Leaves out the first `skip` frames of a stream.
void leaveOut(std::size_t& skip, Planes& block) {
  const std::size_t now = std::min(skip, block.frames());
  if (now == 0) return;
  for (std::size_t c = 0; c < block.channels(); ++c) {
    std::ranges::copy(block[c].subspan(now), block[c].begin());
  }
  block.setFrames(block.frames() - now);
  skip -= now;
}

void work(const Options& o) {
  SoundReader in(o.in, o.partial);
  const Filter filter = designFilter(o.filter, in.rate());
  if (o.bits > 0 && !filter.isFir()) throw Failure(Exit::usage, "--bits is for FIR filters");
  const std::size_t delay = o.causal ? 0 : filter.delay();
  Encoding encoding = in.encoding();
  if (o.bits > 0) encoding = Encoding::pcm16;
  Planes block(in.channels(), blockFrames(in.channels()));
  bool more = in.read(block);
  in.requireSound();
  SoundWriter out(o.out, {.rate = in.rate(), .channels = in.channels(), .encoding = encoding, .frames = in.frames()});
  std::vector<Channel> channels;
  for (std::size_t c = 0; c < in.channels(); ++c) channels.emplace_back(filter, std::pow(10, o.gain / 20), o.bits);
  Workers workers(std::min(o.jobs, int(in.channels())));
  Progress progress("filter", in.frames(), in.rate());

  std::size_t skip = delay;
  const auto pass = [&] {
    workers.forEach(in.channels(), [&](std::size_t c) { channels[c].process(block[c]); });
    progress.advance(std::int64_t(block.frames()));
    leaveOut(skip, block);
    out.write(block);
  };
  for (; more; more = in.read(block)) pass();
  for (std::size_t left = delay; left > 0;) {  // what the filter still holds
    const std::size_t now = std::min(left, block.capacity());
    block.setFrames(now);
    for (std::size_t c = 0; c < in.channels(); ++c) zors::zero(block[c]);
    pass();
    left -= now;
  }
  out.finish();
  if (out.clipped() > 0) fmt::print(stderr, "zors: {} samples were limited to full scale\n", out.clipped());
}

}  // namespace

void addFilter(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "filter", "Design a filter and apply it to a recording", o, work);
  command->add_option("IN", o->in, "The recording")->required();
  command->add_option("OUT", o->out, "The filtered recording")->required();
  addFilterOptions(command, o->filter);
  command->add_option("--taps", o->filter.tapsFile, "Taps from a file: numbers, or the JSON of zors design");
  command->add_option("--bits", o->bits, "Fixed-point arithmetic: 16-bit samples, taps of so many bits, 4 to 16")
      ->check(between(4, 16));
  command->add_option("--gain", o->gain, "In dB")->check(between(-200, 200));
  command->add_flag("--causal", o->causal, "Let a symmetric FIR filter delay the sound by half its length");
  addPartial(command, o->partial);
  addJobs(command, o->jobs);
  command->footer(
      "Without --fir or --iir it is a FIR filter of 255 taps.\nExample:\n"
      "  zors filter speech.wav telephone.wav --high-pass 300 --low-pass 3400 --fir 255");
}

}  // namespace tool
