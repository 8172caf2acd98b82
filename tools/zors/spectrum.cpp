// zors spectrum: a recording's mean spectrum.
#include <fmt/format.h>

#include <bit>
#include <cmath>

#include "chart.hpp"
#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "sound.hpp"
#include "spectra.hpp"
#include "workers.hpp"

namespace tool {

namespace {

struct Options {
  std::string in, out, scale = "log", title;
  SpectrumOptions spectrum;
  int width = 1000, height = 480, jobs = 1;
  double range = 120, top = NAN;
  bool partial = false;
};

/// The mean powers of a channel's windows.
struct Channel {
  WindowedSpectra spectra;
  std::vector<double> sum, wide;
  double windows = 0;
  void add(std::span<const float> power) {
    zors::convert(power, wide);
    zors::add(wide, sum, sum);
    ++windows;
  }
};

void draw(const Options& o, const SoundReader& in, const std::vector<Channel>& channels, int size) {
  Picture picture(Chart::left + o.width + Chart::right, Chart::top + o.height + Chart::bottom);
  const double half = in.rate() / 2.0;
  const FrequencyUnit unit = frequencyUnit(half);
  const bool logarithmic = o.scale == "log";
  const double lowest = logarithmic ? std::max(std::min(20.0, half / 100), half / double(size)) : 0;
  std::vector<double> xs;
  std::vector<std::vector<double>> levels(channels.size());
  double most = -300;
  for (std::size_t bin = logarithmic; bin <= std::size_t(size) / 2; ++bin) {
    const double frequency = double(bin) * in.rate() / size;
    if (frequency < lowest) continue;
    xs.push_back(frequency / unit.hertz);
    for (std::size_t c = 0; c < channels.size(); ++c) {
      levels[c].push_back(10 * std::log10(channels[c].sum[bin] / channels[c].windows + 1e-30));
      most = std::max(most, levels[c].back());
    }
  }
  const double top = std::isfinite(o.top) ? o.top : 10 * std::ceil(most / 10 + 0.01);
  Chart chart(picture, Chart::left, Chart::top, o.width, o.height,
              {.from = lowest / unit.hertz,
               .to = half / unit.hertz,
               .label = fmt::format("frequency, {}", unit.name),
               .logarithmic = logarithmic},
              {.from = top - o.range, .to = top, .label = "level, dB"});
  chart.grid();
  for (std::size_t c = channels.size(); c-- > 0;) chart.line(xs, levels[c], lineColours[c % std::size(lineColours)]);
  chart.frame();
  chart.title(o.title.empty() ? in.name() : o.title);
  for (std::size_t c = 0; channels.size() > 1 && c < channels.size() && c < 16; ++c) {
    const std::string name = std::to_string(c + 1);
    picture.text(Chart::left + o.width - 40, Chart::top + 10 + 22 * int(c), name,
                 lineColours[c % std::size(lineColours)]);
  }
  picture.save(o.out);
}

void work(const Options& o) {
  SoundReader in(o.in, o.partial);
  Planes block(in.channels(), blockFrames(in.channels()));
  bool more = in.read(block);
  in.requireSound();
  const int size =
      o.spectrum.size ? o.spectrum.size : int(std::bit_ceil(unsigned(std::clamp(in.rate() / 12, 256, 65536))));
  const double overlap = o.spectrum.overlap >= 0 ? o.spectrum.overlap : 50;
  std::vector<Channel> channels;
  for (std::size_t c = 0; c < in.channels(); ++c) {
    WindowedSpectra spectra(size, std::max(1, int(size * (1 - overlap / 100))), o.spectrum.window);
    const std::size_t bins = spectra.bins();
    channels.push_back({std::move(spectra), std::vector<double>(bins), std::vector<double>(bins)});
  }
  Workers workers(std::min(o.jobs, int(in.channels())));
  {
    Progress progress("spectrum", in.frames(), in.rate());
    for (; more; more = in.read(block)) {
      workers.forEach(channels.size(), [&](std::size_t c) {
        channels[c].spectra.add(block[c], [&](std::span<const float> power) { channels[c].add(power); });
      });
      progress.advance(std::int64_t(block.frames()));
    }
  }
  for (Channel& channel : channels) {
    channel.spectra.finish(channel.windows == 0, [&](std::span<const float> power) { channel.add(power); });
  }
  draw(o, in, channels, size);
}

}  // namespace

void addSpectrum(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "spectrum", "A picture of a recording's mean spectrum", o, work);
  command->add_option("IN", o->in, "The recording")->required();
  command->add_option("OUT", o->out, "The picture, PNG")->required();
  addSpectrumOptions(command, o->spectrum);
  command->add_option("--scale", o->scale, "Of the frequency: linear or log (default log)")
      ->check(CLI::IsMember({"linear", "log"}));
  command->add_option("--width", o->width, "Dots of the field (default 1000)")->check(between(50, 10000));
  command->add_option("--height", o->height, "Dots of the field (default 480)")->check(between(30, 4000));
  command->add_option("--range", o->range, "Of the levels, in dB (default 120)")->check(between(1, 300));
  command->add_option("--top", o->top, "The highest level, dB; a sine of full scale has 0 (default: the recording's)")
      ->check(between(-300, 300));
  command->add_option("--title", o->title, "Above the field (default: the recording's name)");
  addPartial(command, o->partial);
  addJobs(command, o->jobs);
  command->footer("Example:\n  zors spectrum speech.wav speech.png --size 4096");
}

}  // namespace tool
