// zors spectrogram: a recording's spectrum over time.
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
  std::string in, out, scale = "linear", title;
  SpectrumOptions spectrum;
  int width = 1000, height = 0, jobs = 1;
  double range = 100, top = NAN;
  bool partial = false;
};

/// Powers of the rows of a channel's field, column by column. A column is the mean of so many windows; where there
/// would be more than twice as many columns as dots, pairs become one, so that a longer recording takes no more memory.
class Map {
 public:
  Map(std::size_t bins, std::size_t columns, const Axis& frequencies, double hertzPerBin, std::size_t rows,
      std::size_t windowsPerColumn)
      : sum_(bins), mostColumns_(2 * columns), perColumn_(windowsPerColumn), edges_(rows + 1) {
    for (std::size_t row = 0; row <= rows; ++row) {
      edges_[row] = frequencies.valueAt((double(row) - 0.5) / double(rows - 1)) / hertzPerBin;
    }
  }
  void add(std::span<const float> power) {
    zors::add(power, sum_, sum_);
    if (++windows_ == perColumn_) endColumn();
  }
  void finish() {
    if (windows_ > 0) endColumn();
  }
  std::size_t columns() const { return powers_.size() / rows(); }
  std::size_t rows() const { return edges_.size() - 1; }
  /// Row 0 is the lowest frequency.
  float power(std::size_t column, std::size_t row) const { return powers_[column * rows() + row]; }
  float most() const { return powers_.empty() ? 0 : zors::max(powers_); }

 private:
  void endColumn() {
    zors::multiply(sum_, 1 / float(windows_), sum_);
    for (std::size_t row = 0; row < rows(); ++row) powers_.push_back(rowPower(edges_[row], edges_[row + 1]));
    zors::zero(sum_);
    windows_ = 0;
    if (columns() == mostColumns_) halve();
  }
  // The greatest of the bins inside; where there is none, the value between neighbours.
  float rowPower(double low, double high) const {
    const double last = double(sum_.size() - 1);
    const auto first = std::size_t(std::clamp(std::ceil(low), 0.0, last)),
               end = std::size_t(std::clamp(std::ceil(high), 0.0, last + 1));
    if (first < end) return zors::max(std::span(sum_).subspan(first, end - first));
    const double middle = std::clamp((low + high) / 2, 0.0, last);
    const auto below = std::min(std::size_t(middle), sum_.size() - 2);
    const double part = middle - double(below);
    return float((1 - part) * double(sum_[below]) + part * double(sum_[below + 1]));
  }
  void halve() {
    const std::size_t half = columns() / 2, rowCount = rows();
    for (std::size_t column = 0; column < half; ++column) {
      for (std::size_t row = 0; row < rowCount; ++row) {
        powers_[column * rowCount + row] = (power(2 * column, row) + power(2 * column + 1, row)) / 2;
      }
    }
    powers_.resize(half * rowCount);
    perColumn_ *= 2;
  }

  std::vector<float> sum_, powers_;
  std::size_t windows_ = 0, mostColumns_, perColumn_;
  std::vector<double> edges_;  // of the rows, in bins
};

struct Channel {
  WindowedSpectra spectra;
  Map map;
};

// Rows of dots for each channel.
int fieldHeight(const Options& o, std::size_t channels) {
  if (o.height) return o.height;
  return std::max(60, int(480 / channels));
}

void draw(const Options& o, const SoundReader& in, std::vector<Channel>& channels, const Axis& frequencies,
          double seconds) {
  constexpr int gap = 16;
  const int height = fieldHeight(o, channels.size()), count = int(channels.size());
  const int allHeight = count * height + (count - 1) * gap;
  Picture picture(Chart::left + o.width + Chart::barRoom, Chart::top + allHeight + Chart::bottom);
  float most = 0;
  for (const Channel& channel : channels) most = std::max(most, channel.map.most());
  // The top of the scale: the next ten decibels above what there is.
  const double top = std::isfinite(o.top) ? o.top
                     : most > 0           ? std::min(200.0, 10 * std::ceil(std::log10(double(most)) - 1e-6))
                                          : 0;
  const double bottom = top - o.range;
  const FrequencyUnit unit = frequencyUnit(frequencies.to);
  const bool minutes = seconds >= 180;
  const Axis time{.from = 0, .to = minutes ? seconds / 60 : seconds, .label = minutes ? "time, min" : "time, s"};
  const Axis shown{.from = frequencies.from / unit.hertz,
                   .to = frequencies.to / unit.hertz,
                   .label = fmt::format("frequency, {}", unit.name),
                   .logarithmic = frequencies.logarithmic};
  for (int c = 0; c < count; ++c) {
    const Map& map = channels[std::size_t(c)].map;
    const int y = Chart::top + c * (height + gap);
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < o.width; ++column) {
        const std::size_t from = std::size_t(column) * map.columns() / std::size_t(o.width);
        const double level = 10 * std::log10(double(map.power(from, std::size_t(row))) + 1e-30);
        picture.set(Chart::left + column, y + height - 1 - row, heat((level - bottom) / o.range));
      }
    }
    Chart chart(picture, Chart::left, y, o.width, height, time, shown);
    chart.frame(c == count - 1);
    if (c == 0) chart.title(o.title.empty() ? in.name() : o.title);
  }
  drawColourBar(picture, Chart::left + o.width + 24, Chart::top, allHeight, bottom, top, "dB");
  picture.save(o.out);
}

void work(const Options& o) {
  SoundReader in(o.in, o.partial);
  if (in.channels() > 16)
    throw Failure(Exit::usage, fmt::format("{} channels are too many for a picture", in.channels()));
  Planes block(in.channels(), blockFrames(in.channels()));
  bool more = in.read(block);
  in.requireSound();
  // 20 ms and more; short recordings get hops as small as a dot.
  const int size =
      o.spectrum.size ? o.spectrum.size : int(std::bit_ceil(unsigned(std::clamp(in.rate() / 47, 64, 65536))));
  const std::int64_t dots = in.frames() ? std::max<std::int64_t>(1, in.frames() / o.width) : size;
  const int hop = o.spectrum.overlap >= 0 ? std::max(1, int(size * (1 - o.spectrum.overlap / 100)))
                                          : int(std::clamp<std::int64_t>(dots, 1, size / 2));
  const std::int64_t windows = in.frames() / hop;
  const auto perColumn = std::size_t(std::max<std::int64_t>(1, windows / o.width));
  const bool logarithmic = o.scale == "log";
  const double half = in.rate() / 2.0, hertzPerBin = double(in.rate()) / size;
  const Axis frequencies{
      .from = logarithmic ? std::min(20.0, half / 100) : 0, .to = half, .label = "", .logarithmic = logarithmic};
  const auto rows = std::size_t(fieldHeight(o, in.channels()));
  std::vector<Channel> channels;
  for (std::size_t c = 0; c < in.channels(); ++c) {
    WindowedSpectra spectra(size, hop, o.spectrum.window);
    Map map(spectra.bins(), std::size_t(o.width), frequencies, hertzPerBin, rows, perColumn);
    channels.push_back({std::move(spectra), std::move(map)});
  }
  Workers workers(std::min(o.jobs, int(in.channels())));
  std::int64_t frames = 0;
  {
    Progress progress("spectrogram", in.frames(), in.rate());
    for (; more; more = in.read(block)) {
      workers.forEach(channels.size(), [&](std::size_t c) {
        channels[c].spectra.add(block[c], [&](std::span<const float> power) { channels[c].map.add(power); });
      });
      frames += std::int64_t(block.frames());
      progress.advance(std::int64_t(block.frames()));
    }
  }
  for (Channel& channel : channels) {
    channel.spectra.finish(frames < size, [&](std::span<const float> power) { channel.map.add(power); });
    channel.map.finish();
  }
  draw(o, in, channels, frequencies, double(frames) / in.rate());
}

}  // namespace

void addSpectrogram(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "spectrogram", "A picture of a recording's spectrum over time", o, work);
  command->add_option("IN", o->in, "The recording")->required();
  command->add_option("OUT", o->out, "The picture, PNG")->required();
  addSpectrumOptions(command, o->spectrum);
  command->add_option("--scale", o->scale, "Of the frequency: linear or log (default linear)")
      ->check(CLI::IsMember({"linear", "log"}));
  command->add_option("--width", o->width, "Dots of the field (default 1000)")->check(between(50, 10000));
  command->add_option("--height", o->height, "Dots of a channel's field (default 480 over the channels)")
      ->check(between(30, 4000));
  command->add_option("--range", o->range, "From black to the brightest, in dB (default 100)")->check(between(1, 300));
  command->add_option("--top", o->top, "The brightest, in dB below a sine of full scale (default: the recording's)")
      ->check(between(-300, 300));
  command->add_option("--title", o->title, "Above the field (default: the recording's name)");
  addPartial(command, o->partial);
  addJobs(command, o->jobs);
  command->footer("Example:\n  zors spectrogram speech.wav speech.png --scale log --range 80");
}

}  // namespace tool
