// zors resample: another sample rate.
#include <fmt/format.h>

#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "rate_change.hpp"
#include "sound.hpp"
#include "workers.hpp"

namespace tool {

namespace {

struct Options {
  std::string in, out, quality = "high";
  int rate = 0, jobs = 1;
  bool partial = false, quiet = false;
};

// Writes of each channel's samples at most `most`; returns how many.
std::int64_t writeOut(std::vector<std::vector<float>>& made, Planes& block, SoundWriter& out, std::int64_t most) {
  const auto frames = std::size_t(std::min<std::int64_t>(most, std::int64_t(made[0].size())));
  block.setFrames(frames);
  for (std::size_t c = 0; c < made.size(); ++c) {
    std::copy_n(made[c].begin(), frames, block[c].begin());
    made[c].clear();
  }
  out.write(block);
  return std::int64_t(frames);
}

void work(const Options& o) {
  const Quality& quality = *qualityOf(o.quality);
  SoundReader in(o.in, o.partial);
  const std::size_t channelCount = in.channels();
  const RatePlan plan(in.rate(), o.rate, quality);
  Planes block(channelCount, blockFrames(channelCount)), outBlock(channelCount, 0);
  bool more = in.read(block);
  in.requireSound();
  SoundWriter out(o.out, {.rate = o.rate,
                          .channels = channelCount,
                          .encoding = in.encoding(),
                          .frames = in.frames() ? plan.outputs(in.frames()) : 0});
  std::vector<RateChange> channels;
  for (std::size_t c = 0; c < channelCount; ++c) channels.emplace_back(plan);
  std::vector<std::vector<float>> made(channelCount);
  Workers workers(std::min(o.jobs, int(channelCount)));
  std::int64_t inputs = 0, written = 0;
  {
    Progress progress("resample", in.frames(), in.rate());
    for (; more; more = in.read(block)) {
      workers.forEach(channelCount, [&](std::size_t c) { channels[c].process(block[c], made[c]); });
      inputs += std::int64_t(block.frames());
      written += writeOut(made, outBlock, out, plan.outputs(inputs) - written);
      progress.advance(std::int64_t(block.frames()));
    }
    while (written < plan.outputs(inputs)) {
      workers.forEach(channelCount, [&](std::size_t c) { channels[c].flush(made[c]); });
      written += writeOut(made, outBlock, out, plan.outputs(inputs) - written);
    }
    out.finish();
  }
  if (out.clipped() > 0) fmt::print(stderr, "zors: {} samples were limited to full scale\n", out.clipped());
  if (o.quiet) return;
  const double lower = 0.5 * std::min(in.rate(), o.rate);
  fmt::print(out.words(),
             "{} Hz to {} Hz ({}/{}), {} frames\npass band to {:.0f} Hz, stop band {:.0f} dB from {:.0f} Hz on\n"
             "delay 0: the filter is symmetric and reaches {:.2f} ms to both sides\n",
             in.rate(), o.rate, plan.up(), plan.down(), plan.outputs(inputs), lower * quality.passBand,
             quality.stopBand, lower, 1000 * double(plan.taps() / 2) / in.rate());
}

}  // namespace

void addResample(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "resample", "Bring a recording to another sample rate", o, work);
  command->add_option("IN", o->in, "The recording")->required();
  command->add_option("OUT", o->out, "The recording at the other rate")->required();
  command->add_option("-r,--rate", o->rate, "The other rate, Hz")->required()->check(between(1, 12288000));
  command
      ->add_option("--quality", o->quality,
                   "quick (80 dB, 80 % of the band), good (100, 91), high (125, 95; the default), best (140, 98)")
      ->check(CLI::IsMember({"quick", "good", "high", "best"}));
  command->add_flag("-q,--quiet", o->quiet, "Say nothing of the stop band and the delay");
  addPartial(command, o->partial);
  addJobs(command, o->jobs);
  command->footer("Example:\n  zors resample speech.wav speech16.wav --rate 16000");
}

}  // namespace tool
