// A picture's field of coordinates: frame, ticks, labels, lines, a bar of colours.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "picture.hpp"

namespace tool {

struct Axis {
  double from, to;
  std::string label;
  bool logarithmic = false;
  /// 0 at from, 1 at to.
  double place(double value) const;
  double valueAt(double place) const;
  /// Round values, about as many as wanted.
  std::vector<double> ticks(int wanted) const;
};

class Chart {
 public:
  // Room around a field for its numbers and labels.
  static constexpr int left = 100, right = 30, top = 44, bottom = 64, barRoom = 130;

  Chart(Picture& picture, int x, int y, int width, int height, Axis horizontal, Axis vertical);
  double x(double value) const { return x_ + horizontal_.place(value) * (width_ - 1); }
  double y(double value) const { return y_ + (1 - vertical_.place(value)) * (height_ - 1); }
  void grid();
  /// Frame, numbers and labels; the lower axis only where it is asked for.
  void frame(bool lowerAxis = true);
  void line(std::span<const double> xs, std::span<const double> ys, Colour colour);
  void title(const std::string& text);

 private:
  Picture& picture_;
  int x_, y_, width_, height_;
  Axis horizontal_, vertical_;
};

/// Beside a field: colours of the values between.
void drawColourBar(Picture& picture, int x, int y, int height, double from, double to, const std::string& label);
/// Frequencies up to `most` Hz in Hz or kHz: their divisor and name.
struct FrequencyUnit {
  double hertz;
  const char* name;
};
FrequencyUnit frequencyUnit(double most);

}  // namespace tool
