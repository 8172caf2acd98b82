#include "filter_design.hpp"

#include <fmt/format.h>

#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <sstream>

#include "failure.hpp"
#include "zors.hpp"

namespace tool {

namespace {

constexpr int mostTaps = 1 << 20;

zors::FirWindow windowOf(const std::string& name) {
  if (name == "bartlett") return zors::FirWindow::bartlett;
  if (name == "blackman") return zors::FirWindow::blackman;
  if (name == "hann") return zors::FirWindow::hann;
  if (name == "none") return zors::FirWindow::none;
  return zors::FirWindow::hamming;
}

double relative(double frequency, double rate, const char* option) {
  if (frequency > 0 && frequency < rate / 2) return frequency / rate;
  throw Failure(Exit::usage, fmt::format("{} {:g}: is not between 0 and half the sample rate, {:g} Hz", option,
                                         frequency, rate / 2));
}

std::vector<double> designFir(const FilterOptions& o, double rate) {
  const double low = o.lowPass ? relative(o.lowPass, rate, "--low-pass") : 0;
  const double high = o.highPass ? relative(o.highPass, rate, "--high-pass") : 0;
  if (o.firTaps < 5 || o.firTaps > mostTaps) {
    throw Failure(Exit::usage, fmt::format("--fir {}: a FIR filter has 5 to {} taps", o.firTaps, mostTaps));
  }
  if (low == high) throw Failure(Exit::usage, "--low-pass and --high-pass are the same frequency");
  std::vector<double> taps(std::size_t(o.firTaps));
  const zors::FirWindow window = windowOf(o.window);
  if (high == 0) {
    zors::designFirLowpass(taps, {.frequency = low, .window = window});
  } else if (low == 0) {
    zors::designFirHighpass(taps, {.frequency = high, .window = window});
  } else if (high < low) {
    zors::designFirBandpass(taps, {.frequency = high, .upperFrequency = low, .window = window});
  } else {
    zors::designFirBandstop(taps, {.frequency = low, .upperFrequency = high, .window = window});
  }
  return taps;
}

// A cascade keeps its poles where a polynomial of high order cannot. Poles of the analogue low pass with an edge of 1
// lie on an ellipse (a circle: Butterworth); the bilinear transform brings them, or those of the high pass, to z.
std::vector<double> designSections(bool highPass, double frequency, int order, double ripple) {
  using Complex = std::complex<double>;
  const double edge = std::tan(std::numbers::pi * frequency);
  const double e = ripple > 0 ? std::sqrt(std::pow(10, ripple / 10) - 1) : 0;
  const double spread = ripple > 0 ? std::asinh(1 / e) / order : 0;
  const double across = ripple > 0 ? std::sinh(spread) : 1, along = ripple > 0 ? std::cosh(spread) : 1;
  std::vector<double> sections;
  for (int k = 0; k < (order + 1) / 2; ++k) {
    const double angle = std::numbers::pi * (2 * k + 1) / (2.0 * order);
    const Complex analogue(-across * std::sin(angle), along * std::cos(angle));
    const Complex s = highPass ? edge / analogue : edge * analogue;
    const Complex pole = (1.0 + s) / (1.0 - s);
    const double zero = highPass ? 1 : -1, pass = -zero;
    const bool single = 2 * k + 1 == order;
    const double a1 = single ? -pole.real() : -2 * pole.real(), a2 = single ? 0 : std::norm(pole);
    const double b1 = single ? -zero : -2 * zero, b2 = single ? 0 : 1;
    const double gain = (1 + a1 * pass + a2) / (1 + b1 * pass + b2);  // z = pass is 1 or -1
    const double whole = k == 0 && order % 2 == 0 && ripple > 0 ? std::pow(10, -ripple / 20) : 1;
    sections.insert(sections.end(), {gain * whole, b1 * gain * whole, b2 * gain * whole, 1, a1, a2});
  }
  return sections;
}

std::vector<double> designIir(const FilterOptions& o, double rate) {
  if (o.iir.size() != 2 || (o.iir[0] != "butter" && o.iir[0] != "cheby")) {
    throw Failure(Exit::usage, "--iir takes butter or cheby, and an order");
  }
  int order = 0;
  if (!CLI::detail::lexical_cast(o.iir[1], order) || order < 1 || order > 24) {
    throw Failure(Exit::usage, fmt::format("--iir {} {}: the order is 1 to 24", o.iir[0], o.iir[1]));
  }
  if (o.lowPass && o.highPass && o.lowPass <= o.highPass) {
    throw Failure(Exit::usage, "a band stop is a FIR filter: use --fir");
  }
  const double ripple = o.iir[0] == "cheby" ? o.ripple : 0;
  std::vector<double> sections;
  if (o.lowPass) sections = designSections(false, relative(o.lowPass, rate, "--low-pass"), order, ripple);
  if (o.highPass) {
    const auto more = designSections(true, relative(o.highPass, rate, "--high-pass"), order, ripple);
    sections.insert(sections.end(), more.begin(), more.end());
  }
  return sections;
}

}  // namespace

std::size_t Filter::delay() const {
  if (!isFir() || taps.size() % 2 == 0) return 0;
  for (std::size_t i = 0; i < taps.size() / 2; ++i) {
    if (std::abs(taps[i] - taps[taps.size() - 1 - i]) > 1e-9 * (1e-30 + std::abs(taps[i]))) return 0;
  }
  return taps.size() / 2;
}

std::complex<double> Filter::response(double frequency) const {
  const std::complex<double> back = std::polar(1.0, -2 * std::numbers::pi * frequency);
  std::complex<double> sum = 0;
  for (std::size_t i = taps.size(); i-- > 0;) sum = sum * back + taps[i];
  if (isFir()) return sum;
  std::complex<double> product = 1;
  for (std::size_t i = 0; i < sections.size(); i += 6) {
    const double* t = &sections[i];
    product *= (t[0] + back * (t[1] + back * t[2])) / (t[3] + back * (t[4] + back * t[5]));
  }
  return product;
}

void addFilterOptions(CLI::App* command, FilterOptions& o) {
  command->add_option("--low-pass", o.lowPass, "Pass below this frequency, Hz")->check(between(1e-9, 1e9));
  command
      ->add_option(
          "--high-pass", o.highPass,
          "Pass above this frequency, Hz; with --low-pass a band, or, if it is the higher one, all but the band")
      ->check(between(1e-9, 1e9));
  auto* fir = command->add_option("--fir", o.firTaps, "A windowed FIR filter of so many taps");
  auto* iir = command->add_option("--iir", o.iir, "A recursive filter: butter or cheby, and its order")->expected(2);
  fir->excludes(iir);
  command->add_option("--ripple", o.ripple, "Of cheby, in dB (default 1)")->check(between(1e-6, 29));
  command->add_option("--window", o.window, "bartlett, blackman, hamming, hann or none (default hamming)")
      ->check(CLI::IsMember({"bartlett", "blackman", "hamming", "hann", "none"}));
}

Filter designFilter(const FilterOptions& o, double rate) {
  if (!o.tapsFile.empty()) return readTaps(o.tapsFile);
  if (!o.lowPass && !o.highPass) throw Failure(Exit::usage, "--low-pass, --high-pass or --taps is missing");
  if (!o.iir.empty()) return {{}, designIir(o, rate)};
  FilterOptions withTaps = o;
  if (o.firTaps == 0) withTaps.firTaps = 255;
  return {designFir(withTaps, rate), {}};
}

Filter readTaps(const std::string& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  if (!in.is_open() || in.bad()) throw Failure(Exit::input, path + ": " + std::strerror(errno));
  Filter filter;
  const auto json = nlohmann::json::parse(text.str(), nullptr, false);
  if (json.is_object()) {
    const auto read = [&](const char* key) {
      std::vector<double> values;
      for (const auto& value : json.value(key, nlohmann::json::array())) {
        if (!value.is_number()) throw Failure(Exit::input, path + ": a value of " + key + " is no number");
        values.push_back(value);
      }
      return values;
    };
    filter.taps = read("taps"), filter.sections = read("sections");
  } else {
    std::string line;
    while (std::getline(text, line)) {
      std::istringstream words(line.substr(0, line.find('#')));
      for (std::string word; words >> word;) {
        double value = 0;
        if (!CLI::detail::lexical_cast(word, value))
          throw Failure(Exit::input, fmt::format("{}: {} is no number", path, word));
        filter.taps.push_back(value);
      }
    }
  }
  const auto& values = filter.isFir() ? filter.taps : filter.sections;
  if (values.empty()) throw Failure(Exit::input, path + ": holds no taps");
  if (values.size() > mostTaps) throw Failure(Exit::input, path + ": holds too many taps");
  if (filter.sections.size() % 6 != 0) throw Failure(Exit::input, path + ": a section has six values");
  for (const double value : values) {
    if (!std::isfinite(value)) throw Failure(Exit::input, path + ": a tap is no finite number");
  }
  return filter;
}

IntegerTaps roundTaps(const std::vector<double>& taps, int bits) {
  double peak = 0;
  for (const double tap : taps) peak = std::max(peak, std::abs(tap));
  if (peak == 0) throw Failure(Exit::usage, "all taps are 0");
  IntegerTaps rounded{{}, 0};
  rounded.factor = std::ilogb(peak) + 2 - bits;
  const double most = std::ldexp(1, bits - 1) - 1;
  if (std::round(std::ldexp(peak, -rounded.factor)) > most) ++rounded.factor;
  for (const double tap : taps) rounded.taps.push_back(short(std::lround(std::ldexp(tap, -rounded.factor))));
  return rounded;
}

}  // namespace tool
