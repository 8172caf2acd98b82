// zors info: what a recording is, and its levels.
#include <fmt/format.h>

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "sound.hpp"
#include "workers.hpp"

namespace tool {

namespace {

struct Options {
  std::vector<std::string> files;
  bool json = false, partial = false;
  int jobs = 1;
};

double decibels(double amplitude) { return 20 * std::log10(amplitude); }

/// Levels of a channel, or of all, from sums that need no more memory for a longer recording.
class Level {
 public:
  void add(std::span<const float> samples, double step) {
    const auto [least, most] = zors::minMax(samples);
    least_ = std::min(least_, double(least)), most_ = std::max(most_, double(most));
    sum_ += double(zors::sum(samples));
    const double norm = zors::normL2(samples);
    squares_ += norm * norm;
    count_ += double(samples.size());
    // Two neighbours at full scale are taken for clipping: a peak that just touches it is one sample.
    const float top = float(1 - step), bottom = -1;
    if (most < top && least > bottom) {
      atTop_ = false;
      return;
    }
    for (const float x : samples) {
      const bool at = x >= top || x <= bottom;
      clipped_ += at && atTop_;
      atTop_ = at;
    }
  }
  /// The power of a window of 50 ms.
  void addWindow(double power) {
    const double level = power > 0 ? 10 * std::log10(power) : -lowest;
    ++windows_[std::size_t(std::clamp((level + lowest) * 10, 0.0, double(windows_.size() - 1)))];
    ++windowCount_;
  }
  void join(const Level& other) {
    least_ = std::min(least_, other.least_), most_ = std::max(most_, other.most_);
    sum_ += other.sum_, squares_ += other.squares_, count_ += other.count_, clipped_ += other.clipped_;
    for (std::size_t i = 0; i < windows_.size(); ++i) windows_[i] += other.windows_[i];
    windowCount_ += other.windowCount_;
  }

  double peak() const { return std::max(most_, -least_); }
  double rms() const { return count_ > 0 ? std::sqrt(squares_ / count_) : 0; }
  double dc() const { return count_ > 0 ? sum_ / count_ : 0; }
  std::int64_t clipped() const { return clipped_; }
  /// In dB: below it lies a tenth of the windows of 50 ms.
  double floor() const {
    std::int64_t below = 0;
    for (std::size_t i = 0; i < windows_.size(); ++i) {
      below += windows_[i];
      if (10 * below >= windowCount_ && below > 0) return i == 0 ? -INFINITY : double(i) / 10 - lowest + 0.05;
    }
    return -INFINITY;
  }

 private:
  static constexpr double lowest = 200;  // dB
  double least_ = 0, most_ = 0, sum_ = 0, squares_ = 0, count_ = 0;
  std::int64_t clipped_ = 0, windowCount_ = 0;
  bool atTop_ = false;
  std::array<std::int64_t, 2201> windows_{};  // by tenths of a decibel
};

struct Report {
  std::string name, format;
  int rate;
  std::int64_t frames = 0, notNumbers = 0;
  std::vector<Level> channels;
  Level all;
};

// Infinite and no numbers are counted and become zeros.
std::int64_t removeNotNumbers(std::span<float> samples) {
  std::int64_t count = 0;
  for (float& x : samples) {
    if (std::isfinite(x)) continue;
    x = 0;
    ++count;
  }
  return count;
}

Report measure(const std::string& file, const Options& options) {
  SoundReader in(file, options.partial, SoundReader::NaN::pass);
  Report report{.name = in.name(), .format = in.formatName(), .rate = in.rate(), .channels = {}, .all = {}};
  report.channels.resize(in.channels());
  // A block is so many windows of 50 ms.
  const auto window = std::size_t(std::max(1, in.rate() / 20));
  Planes block(in.channels(), std::max<std::size_t>(1, blockFrames(in.channels()) / window) * window);
  Progress progress(in.name(), in.frames(), in.rate());
  const double step = bitsOf(in.encoding()) ? std::ldexp(1.0, 1 - bitsOf(in.encoding())) : 0;
  while (in.read(block)) {
    for (std::size_t c = 0; c < in.channels(); ++c) {
      if (in.encoding() >= Encoding::float32) report.notNumbers += removeNotNumbers(block[c]);
      report.channels[c].add(block[c], step);
      for (std::size_t at = 0; at + window <= block.frames(); at += window) {
        const double norm = zors::normL2(block[c].subspan(at, window));
        report.channels[c].addWindow(norm * norm / double(window));
      }
    }
    report.frames += std::int64_t(block.frames());
    progress.advance(std::int64_t(block.frames()));
  }
  for (const Level& level : report.channels) report.all.join(level);
  return report;
}

// Silence has no level in decibels: null.
nlohmann::json number(double value) { return std::isfinite(value) ? nlohmann::json(value) : nlohmann::json(); }
nlohmann::json toJson(const Level& level) {
  return {{"peak_db", number(decibels(level.peak()))},
          {"rms_db", number(decibels(level.rms()))},
          {"crest_db", number(decibels(level.peak() / level.rms()))},
          {"dc", level.dc()},
          {"clipped", level.clipped()},
          {"noise_floor_db", number(level.floor())}};
}
nlohmann::json toJson(const Report& report) {
  nlohmann::json channels = nlohmann::json::array();
  for (const Level& level : report.channels) channels.push_back(toJson(level));
  return {{"file", report.name},       {"format", report.format},
          {"rate", report.rate},       {"channels", channels},
          {"frames", report.frames},   {"seconds", double(report.frames) / report.rate},
          {"all", toJson(report.all)}, {"not_numbers", report.notNumbers}};
}

void print(const Report& report) {
  const double seconds = double(report.frames) / report.rate;
  fmt::print("{}\n  {}, {} Hz, {} channel{}\n", report.name, report.format, report.rate, report.channels.size(),
             report.channels.size() == 1 ? "" : "s");
  fmt::print("  {}:{:02}:{:06.3f}, {} frames\n", std::int64_t(seconds) / 3600, std::int64_t(seconds) / 60 % 60,
             std::fmod(seconds, 60), report.frames);
  if (report.notNumbers > 0) fmt::print("  {} samples are no finite numbers, counted as 0\n", report.notNumbers);
  if (report.frames == 0) return;
  fmt::print("  {:<8} {:>9} {:>9} {:>9} {:>10} {:>9} {:>12}\n", "channel", "peak, dB", "RMS, dB", "crest, dB", "DC",
             "clipped", "floor, dB");
  const auto line = [](const std::string& name, const Level& level) {
    fmt::print("  {:<8} {:>9.2f} {:>9.2f} {:>9.2f} {:>10.6f} {:>9} {:>12.1f}\n", name, decibels(level.peak()),
               decibels(level.rms()), decibels(level.peak() / level.rms()), level.dc(), level.clipped(), level.floor());
  };
  for (std::size_t c = 0; c < report.channels.size(); ++c) line(std::to_string(c + 1), report.channels[c]);
  if (report.channels.size() > 1) line("all", report.all);
}

// A file that cannot be read does not keep the others' results back.
void work(const Options& options) {
  std::vector<std::optional<Report>> reports(options.files.size());
  std::vector<std::string> failures(options.files.size());
  Workers workers(std::min(options.jobs, int(options.files.size())));
  workers.forEach(options.files.size(), [&](std::size_t i) {
    try {
      reports[i] = measure(options.files[i], options);
    } catch (const Failure& failure) {
      if (failure.exit() != Exit::input) throw;
      failures[i] = failure.what();
    }
  });
  nlohmann::json all = nlohmann::json::array();
  for (const auto& report : reports) {
    if (!report) continue;
    if (options.json) {
      all.push_back(toJson(*report));
    } else {
      print(*report);
    }
  }
  if (options.json) fmt::print("{}\n", all.dump(2));
  std::string why;
  for (const auto& failure : failures) why += (why.empty() || failure.empty() ? "" : "; ") + failure;
  if (!why.empty()) throw Failure(Exit::input, why);
}

}  // namespace

void addInfo(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "info", "Format, length and levels of recordings", o, work);
  command->add_option("FILE", o->files, "Recordings; - is the standard input")->required();
  command->add_flag("--json", o->json, "Print JSON");
  addPartial(command, o->partial);
  addJobs(command, o->jobs);
  command->footer(
      "Levels are relative to full scale. Clipped: samples at full scale whose neighbour is there too. Floor: a tenth "
      "of\n"
      "the windows of 50 ms lies below it.\nExample:\n  zors info --json speech.wav");
}

}  // namespace tool
