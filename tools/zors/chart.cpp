#include "chart.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace tool {

double Axis::place(double value) const {
  return logarithmic ? std::log(value / from) / std::log(to / from) : (value - from) / (to - from);
}
double Axis::valueAt(double place) const {
  return logarithmic ? from * std::pow(to / from, place) : from + place * (to - from);
}

std::vector<double> Axis::ticks(int wanted) const {
  std::vector<double> values;
  const double slack = 1e-9 * (to - from);
  if (logarithmic) {
    const bool few = std::log10(to / from) > 0.6 * wanted;
    for (double decade = std::pow(10, std::floor(std::log10(from))); decade <= to; decade *= 10) {
      for (const double step : {1, 2, 5}) {
        if ((step == 1 || !few) && step * decade >= from - slack && step * decade <= to + slack)
          values.push_back(step * decade);
      }
    }
    return values;
  }
  const double rough = (to - from) / wanted, power = std::pow(10, std::floor(std::log10(rough)));
  double step = 10 * power;
  for (const double factor : {5, 2, 1}) {
    if (factor * power >= rough) step = factor * power;
  }
  for (double k = std::ceil((from - slack) / step); k * step <= to + slack; ++k) values.push_back(k * step + 0.0);
  return values;
}

Chart::Chart(Picture& picture, int x, int y, int width, int height, Axis horizontal, Axis vertical)
    : picture_(picture),
      x_(x),
      y_(y),
      width_(width),
      height_(height),
      horizontal_(std::move(horizontal)),
      vertical_(std::move(vertical)) {}

void Chart::grid() {
  for (const double value : horizontal_.ticks(width_ / 110))
    picture_.fill(int(std::lround(x(value))), y_, 1, height_, grey);
  for (const double value : vertical_.ticks(std::max(2, height_ / 50)))
    picture_.fill(x_, int(std::lround(y(value))), width_, 1, grey);
}

void Chart::frame(bool lowerAxis) {
  for (const int edge : {x_ - 1, x_ + width_}) picture_.fill(edge, y_ - 1, 1, height_ + 2, black);
  for (const int edge : {y_ - 1, y_ + height_}) picture_.fill(x_ - 1, edge, width_ + 2, 1, black);
  for (const double value : vertical_.ticks(std::max(2, height_ / 50))) {
    const int at = int(std::lround(y(value)));
    const std::string number = fmt::format("{:g}", value);
    picture_.fill(x_ - 7, at, 6, 1, black);
    picture_.text(x_ - 12 - Picture::textWidth(number), at - 7, number);
  }
  picture_.textUpwards(8, y_ + (height_ + Picture::textWidth(vertical_.label)) / 2, vertical_.label);
  if (!lowerAxis) return;
  const int below = y_ + height_;
  for (const double value : horizontal_.ticks(width_ / 110)) {
    const int at = int(std::lround(x(value)));
    const std::string number = fmt::format("{:g}", value);
    picture_.fill(at, below + 1, 1, 6, black);
    picture_.text(at - Picture::textWidth(number) / 2, below + 12, number);
  }
  picture_.text(x_ + (width_ - Picture::textWidth(horizontal_.label)) / 2, below + 38, horizontal_.label);
}

void Chart::line(std::span<const double> xs, std::span<const double> ys, Colour colour) {
  const Picture::Clip clip{x_, y_, x_ + width_, y_ + height_};
  const double under = 2 * vertical_.from - vertical_.to;  // below the field: what is minus infinite
  for (std::size_t i = 1; i < xs.size(); ++i) {
    picture_.line(x(xs[i - 1]), y(std::max(ys[i - 1], under)), x(xs[i]), y(std::max(ys[i], under)), colour, clip);
  }
}

void Chart::title(const std::string& text) {
  const auto fits = std::size_t(std::max(4, (picture_.width() - x_) / 12));
  picture_.text(x_, y_ - 30, text.size() > fits ? text.substr(0, fits - 3) + "..." : text);
}

void drawColourBar(Picture& picture, int x, int y, int height, double from, double to, const std::string& label) {
  constexpr int width = 20;
  const Axis axis{.from = from, .to = to, .label = label};
  picture.fill(x - 1, y - 1, width + 2, height + 2, black);
  for (int i = 0; i < height; ++i) picture.fill(x, y + i, width, 1, heat(1 - double(i) / std::max(1, height - 1)));
  for (const double value : axis.ticks(std::max(2, height / 50))) {
    const int at = y + int(std::lround((1 - axis.place(value)) * (height - 1)));
    picture.fill(x + width + 1, at, 5, 1, black);
    picture.text(x + width + 10, at - 7, fmt::format("{:g}", value));
  }
  picture.text(x, y - 30, label);
}

FrequencyUnit frequencyUnit(double most) { return most >= 2000 ? FrequencyUnit{1000, "kHz"} : FrequencyUnit{1, "Hz"}; }

}  // namespace tool
