// Pictures of dots, with text, as PNG.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tool {

struct Colour {
  std::uint8_t red, green, blue;
};
inline constexpr Colour black{20, 20, 24}, white{255, 255, 255}, grey{222, 222, 228};
/// Of lines, in turn.
inline constexpr Colour lineColours[] = {{31, 99, 180},  {214, 84, 24}, {44, 140, 70},
                                         {140, 70, 160}, {120, 90, 70}, {200, 60, 120}};
/// From black over violet and orange to pale yellow; 0 to 1, limited.
Colour heat(double value);

class Picture {
 public:
  Picture(int width, int height);
  int width() const noexcept { return width_; }
  int height() const noexcept { return height_; }
  void set(int x, int y, Colour colour) { mix(x, y, colour, 1); }
  void fill(int x, int y, int width, int height, Colour colour);
  /// A line 1.6 dots wide, with smooth edges, inside [clipLeft, clipRight) x [clipTop, clipBottom).
  struct Clip {
    int left, top, right, bottom;
  };
  void line(double x0, double y0, double x1, double y1, Colour colour, const Clip& clip);
  /// Text, 12 dots a letter, 16 high; (x, y) is the upper left corner.
  void text(int x, int y, const std::string& text, Colour colour = black);
  /// Upwards; (x, y) is the lower left corner of the turned text's box.
  void textUpwards(int x, int y, const std::string& text, Colour colour = black);
  static int textWidth(const std::string& text) { return 12 * int(text.size()) - 2; }
  void save(const std::string& path) const;

 private:
  void mix(int x, int y, Colour colour, double weight);

  int width_, height_;
  std::vector<Colour> dots_;
};

}  // namespace tool
