// zors design: a filter's taps and its response.
#include <fmt/format.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "chart.hpp"
#include "command.hpp"
#include "failure.hpp"
#include "filter_design.hpp"
#include "zors.hpp"

namespace tool {

namespace {

struct Options {
  std::string kind, plot, scale = "linear";
  std::vector<double> edges;
  FilterOptions filter;
  double rate = 48000, range = 120;
  int bits = 0;
  bool json = false, quiet = false;
};

// The edges as filter takes them.
FilterOptions withEdges(const Options& o) {
  FilterOptions filter = o.filter;
  const std::size_t wanted = o.kind.rfind("band", 0) == 0 ? 2 : 1;
  if (o.edges.size() != wanted)
    throw Failure(Exit::usage, fmt::format("{} has {} edge{}, in Hz", o.kind, wanted, wanted == 1 ? "" : "s"));
  if (o.kind == "low-pass") filter.lowPass = o.edges[0];
  if (o.kind == "high-pass") filter.highPass = o.edges[0];
  if (wanted == 2) {
    if (!(o.edges[0] < o.edges[1])) throw Failure(Exit::usage, "the lower edge comes first");
    filter.highPass = o.edges[o.kind == "band-pass" ? 0 : 1];
    filter.lowPass = o.edges[o.kind == "band-pass" ? 1 : 0];
  }
  return filter;
}

double decibels(std::complex<double> response) { return 20 * std::log10(std::abs(response) + 1e-15); }

void draw(const Options& o, const Filter& filter) {
  constexpr int width = 1000, height = 480, points = 4001;
  Picture picture(Chart::left + width + Chart::right, Chart::top + height + Chart::bottom);
  const double half = o.rate / 2;
  const FrequencyUnit unit = frequencyUnit(half);
  const bool logarithmic = o.scale == "log";
  const Axis horizontal{.from = logarithmic ? std::min(20.0, half / 100) / unit.hertz : 0,
                        .to = half / unit.hertz,
                        .label = fmt::format("frequency, {}", unit.name),
                        .logarithmic = logarithmic};
  std::vector<double> xs, levels;
  double most = 0;
  for (int i = 0; i < points; ++i) {
    xs.push_back(horizontal.valueAt(double(i) / (points - 1)));
    levels.push_back(decibels(filter.response(xs.back() * unit.hertz / o.rate)));
    most = std::max(most, levels.back());
  }
  const double top = 10 * std::ceil((most + 1) / 10);
  Chart chart(picture, Chart::left, Chart::top, width, height, horizontal,
              {.from = top - o.range, .to = top, .label = "gain, dB"});
  chart.grid();
  chart.line(xs, levels, lineColours[0]);
  chart.frame();
  std::string title = o.kind;
  for (std::size_t i = 0; i < o.edges.size(); ++i) title += fmt::format("{}{:g}", i ? " to " : " ", o.edges[i]);
  chart.title(title + (filter.isFir() ? fmt::format(" Hz, {} taps, {}", filter.taps.size(), o.filter.window)
                                      : fmt::format(" Hz, {} of order {}", o.filter.iir[0], o.filter.iir[1])));
  picture.save(o.plot);
}

void work(const Options& o) {
  Filter filter = designFilter(withEdges(o), o.rate);
  nlohmann::json json{{"kind", o.kind}, {"edges", o.edges}, {"rate", o.rate}};
  if (o.bits > 0) {
    if (!filter.isFir()) throw Failure(Exit::usage, "--bits is for FIR filters");
    const IntegerTaps rounded = roundTaps(filter.taps, o.bits);
    json["integer_taps"] = rounded.taps, json["taps_factor"] = rounded.factor;
    for (std::size_t i = 0; i < filter.taps.size(); ++i)
      filter.taps[i] = std::ldexp(double(rounded.taps[i]), rounded.factor);
  }
  if (filter.isFir()) {
    json["taps"] = filter.taps;
  } else {
    json["sections"] = filter.sections;
  }
  if (!o.plot.empty()) draw(o, filter);
  if (o.quiet) return;
  if (o.json) {
    fmt::print("{}\n", json.dump());
  } else if (o.bits > 0) {
    fmt::print("# times 2^{}\n", json["taps_factor"].get<int>());
    for (const int tap : json["integer_taps"]) fmt::print("{}\n", tap);
  } else if (filter.isFir()) {
    for (const double tap : filter.taps) fmt::print("{:.17g}\n", tap);
  } else {
    fmt::print("# b0 b1 b2 a0 a1 a2 of each section\n");
    for (std::size_t i = 0; i < filter.sections.size(); ++i)
      fmt::print("{:.17g}{}", filter.sections[i], i % 6 == 5 ? "\n" : " ");
  }
}

}  // namespace

void addDesign(CLI::App& app, Run& run) {
  std::shared_ptr<Options> o;
  CLI::App* command =
      addCommand(app, run, "design", "Design a filter: its taps and a picture of its response", o, work);
  command->add_option("KIND", o->kind, "low-pass, high-pass, band-pass or band-stop")
      ->required()
      ->check(CLI::IsMember({"low-pass", "high-pass", "band-pass", "band-stop"}));
  command->add_option("EDGE", o->edges, "One frequency, or two, in Hz")->required()->expected(1, 2);
  command->add_option("-r,--rate", o->rate, "Sample rate, Hz (default 48000)")->check(between(1e-6, 1e12));
  addFilterOptions(command, o->filter);
  for (const char* name : {"--low-pass", "--high-pass"}) command->remove_option(command->get_option(name));
  command->add_option("--bits", o->bits, "Round the taps to so many bits, 4 to 16")->check(between(4, 16));
  command->add_flag("--json", o->json, "Print JSON, which zors filter --taps takes");
  command->add_flag("-q,--quiet", o->quiet, "Print no taps");
  command->add_option("--plot", o->plot, "A picture of the response, PNG");
  command->add_option("--scale", o->scale, "Of the picture's frequency: linear or log (default linear)")
      ->check(CLI::IsMember({"linear", "log"}));
  command->add_option("--range", o->range, "Of the picture, in dB (default 120)")->check(between(1, 300));
  command->footer("Example:\n  zors design band-pass 300 3400 --rate 8000 --fir 101 --plot telephone.png");
}

}  // namespace tool
