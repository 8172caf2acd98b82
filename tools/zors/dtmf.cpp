// zors dtmf: the digits that a telephone's tones dial.
#include <fmt/format.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "command.hpp"
#include "failure.hpp"
#include "progress.hpp"
#include "sound.hpp"

namespace tool {

namespace {

struct Options {
  std::string in;
  bool json = false, partial = false;
};

constexpr double tones[8] = {697, 770, 852, 941, 1209, 1336, 1477, 1633};  // four rows, four columns
constexpr char keys[4][5] = {"123A", "456B", "789C", "*0#D"};

struct Digit {
  char key;
  double from, to;               // s
  double rowLevel, columnLevel;  // dB, the loudest block's
};

/// Blocks of 25.6 ms, which part neighbouring tones, half overlapped.
class Detector {
 public:
  explicit Detector(int rate) : rate_(rate), size_(std::size_t(rate * 205.0 / 8000)) {}

  void add(std::span<const float> samples) {
    line_.insert(line_.end(), samples.begin(), samples.end());
    std::size_t at = 0;
    for (; at + size_ <= line_.size(); at += size_ / 2) block(std::span(line_).subspan(at, size_));
    line_.erase(line_.begin(), line_.begin() + std::ptrdiff_t(at));
  }
  // The rest is followed by silence.
  std::vector<Digit> finish() {
    line_.resize(size_);
    block(line_);
    end();
    return digits_;
  }

 private:
  struct Found {
    char key = ' ';
    double row = 0, column = 0;  // powers
  };
  Found analyse(std::span<const float> samples) const {
    double power[8];
    for (std::size_t tone = 0; tone < 8; tone += 2) {
      const auto bins = zors::goertzel(samples, float(tones[tone] / rate_), float(tones[tone + 1] / rate_));
      for (std::size_t i = 0; i < 2; ++i) power[tone + i] = std::norm(bins[i]) * 2 / double(size_) / double(size_);
    }
    const double norm = zors::normL2(samples), whole = norm * norm / double(size_);
    const double* const row = std::max_element(power, power + 4);
    const double* const column = std::max_element(power + 4, power + 8);
    // A key is two tones of like strength, which hold most of the power.
    const bool loud = whole > 1e-6, alike = *row < 8 * *column && *column < 8 * *row;
    if (!loud || !alike || *row + *column < 0.55 * whole) return {};
    return {keys[row - power][column - power - 4], *row, *column};
  }
  // A digit begins with two blocks that agree and ends with one that does not.
  void block(std::span<const float> samples) {
    const Found found = analyse(samples);
    const double from = blocks_ * double(size_ / 2) / rate_, to = from + double(size_) / rate_;
    ++blocks_;
    if (open_ && found.key == digits_.back().key) {
      widen(found, to);
      last_ = found;
      return;
    }
    end();
    if (found.key != ' ' && found.key == last_.key) {
      open_ = true;
      digits_.push_back({found.key, from - double(size_ / 2) / rate_, to, -INFINITY, -INFINITY});
      widen(last_, to);
      widen(found, to);
    }
    last_ = found;
  }
  void widen(const Found& found, double to) {
    Digit& digit = digits_.back();
    digit.to = to;
    // A sine's peak: twice its power.
    digit.rowLevel = std::max(digit.rowLevel, 10 * std::log10(2 * found.row));
    digit.columnLevel = std::max(digit.columnLevel, 10 * std::log10(2 * found.column));
  }
  void end() { open_ = false; }

  int rate_;
  std::size_t size_;
  std::vector<float> line_;
  std::vector<Digit> digits_;
  Found last_;
  double blocks_ = 0;
  bool open_ = false;
};

void work(const Options& o) {
  SoundReader in(o.in, o.partial);
  if (in.rate() < 3400)
    throw Failure(Exit::input, fmt::format("{}: {} Hz is too low a rate for these tones", in.name(), in.rate()));
  Detector detector(in.rate());
  Planes block(in.channels(), blockFrames(in.channels()));
  {
    Progress progress("dtmf", in.frames(), in.rate());
    while (in.read(block)) {
      for (std::size_t c = 1; c < in.channels(); ++c) zors::add(block[c], block[0], block[0]);
      detector.add(block[0]);
      progress.advance(std::int64_t(block.frames()));
    }
  }
  in.requireSound();
  const auto digits = detector.finish();
  std::string number;
  for (const Digit& digit : digits) number += digit.key;
  if (o.json) {
    nlohmann::json list = nlohmann::json::array();
    for (const Digit& d : digits) {
      list.push_back({{"digit", std::string(1, d.key)},
                      {"from", d.from},
                      {"to", d.to},
                      {"row_db", d.rowLevel},
                      {"column_db", d.columnLevel}});
    }
    fmt::print("{}\n", nlohmann::json{{"number", number}, {"digits", list}}.dump(2));
    return;
  }
  if (!digits.empty()) fmt::print("digit  from, s    to, s   row, dB  column, dB\n");
  for (const Digit& d : digits) {
    fmt::print("{:>5} {:>8.3f} {:>8.3f} {:>9.1f} {:>11.1f}\n", d.key, d.from, d.to, d.rowLevel, d.columnLevel);
  }
  fmt::print("number: {}\n", number.empty() ? "none" : number);
}

}  // namespace

void addDtmf(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command = addCommand(app, run, "dtmf", "The digits that a telephone's tones dial", o, work);
  command->add_option("IN", o->in, "The recording; its channels are added")->required();
  command->add_flag("--json", o->json, "Print JSON");
  addPartial(command, o->partial);
  command->footer("Example:\n  zors dtmf call.wav");
}

}  // namespace tool
