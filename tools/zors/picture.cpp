#include "picture.hpp"

#include <png.h>

#include <algorithm>
#include <cmath>

#include "failure.hpp"
#include "font.hpp"
#include "output_file.hpp"

namespace tool {

Colour heat(double value) {
  static constexpr Colour steps[] = {{0, 0, 4},     {31, 12, 72},   {85, 15, 109},  {136, 34, 106}, {186, 54, 85},
                                     {227, 89, 51}, {249, 140, 10}, {249, 201, 50}, {252, 255, 164}};
  constexpr int last = int(std::size(steps)) - 1;
  const double at = std::clamp(std::isnan(value) ? 0 : value, 0.0, 1.0) * last;
  const int low = std::min(int(at), last - 1);
  const double part = at - low;
  const auto between = [part](int a, int b) { return std::uint8_t(std::lround(a + part * (b - a))); };
  const Colour &a = steps[low], &b = steps[low + 1];
  return {between(a.red, b.red), between(a.green, b.green), between(a.blue, b.blue)};
}

Picture::Picture(int width, int height)
    : width_(width), height_(height), dots_(std::size_t(width) * std::size_t(height), white) {}

void Picture::mix(int x, int y, Colour colour, double weight) {
  if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
  Colour& dot = dots_[std::size_t(y) * std::size_t(width_) + std::size_t(x)];
  const auto between = [weight](int a, int b) { return std::uint8_t(std::lround(a + weight * (b - a))); };
  dot = {between(dot.red, colour.red), between(dot.green, colour.green), between(dot.blue, colour.blue)};
}

void Picture::fill(int x, int y, int width, int height, Colour colour) {
  for (int i = std::max(0, y); i < std::min(height_, y + height); ++i) {
    for (int k = std::max(0, x); k < std::min(width_, x + width); ++k) {
      dots_[std::size_t(i) * std::size_t(width_) + std::size_t(k)] = colour;
    }
  }
}

void Picture::line(double x0, double y0, double x1, double y1, Colour colour, const Clip& clip) {
  constexpr double half = 0.8;
  const double dx = x1 - x0, dy = y1 - y0, square = dx * dx + dy * dy;
  const auto bound = [](double a, int low, int high) { return int(std::clamp(a, double(low), double(high))); };
  const int left = bound(std::floor(std::min(x0, x1) - 1), clip.left, clip.right),
            right = bound(std::ceil(std::max(x0, x1) + 2), clip.left, clip.right);
  const int top = bound(std::floor(std::min(y0, y1) - 1), clip.top, clip.bottom),
            bottom = bound(std::ceil(std::max(y0, y1) + 2), clip.top, clip.bottom);
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const double t = square > 0 ? std::clamp(((x - x0) * dx + (y - y0) * dy) / square, 0.0, 1.0) : 0;
      const double distance = std::hypot(x - x0 - t * dx, y - y0 - t * dy);
      const double weight = std::clamp(half + 0.5 - distance, 0.0, 1.0);
      if (weight > 0) mix(x, y, colour, weight);
    }
  }
}

namespace {

// Calls dot(column, row) for each dot of a text, doubled.
template <class Dot> void eachDot(const std::string& text, Dot dot) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int letter = text[i] >= ' ' && text[i] <= '~' ? text[i] - ' ' : '?' - ' ';
    for (int column = 0; column < 10; ++column) {
      for (int row = 0; row < 16; ++row) {
        if (glyphs[letter][column / 2] >> (row / 2) & 1) dot(12 * int(i) + column, row);
      }
    }
  }
}

}  // namespace

void Picture::text(int x, int y, const std::string& text, Colour colour) {
  eachDot(text, [&](int column, int row) { set(x + column, y + row, colour); });
}
void Picture::textUpwards(int x, int y, const std::string& text, Colour colour) {
  eachDot(text, [&](int column, int row) { set(x + row, y - column, colour); });
}

void Picture::save(const std::string& path) const {
  OutputFile out(path);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = png_uint_32(width_), image.height = png_uint_32(height_);
  image.format = PNG_FORMAT_RGB;
  image.flags = PNG_IMAGE_FLAG_FAST;
  std::vector<std::uint8_t> bytes(PNG_IMAGE_PNG_SIZE_MAX(image));
  png_alloc_size_t size = bytes.size();
  if (!png_image_write_to_memory(&image, bytes.data(), &size, 0, dots_.data(), 0, nullptr)) {
    throw Failure(Exit::output, path + ": " + image.message);
  }
  out.write(bytes.data(), size);
  out.finish();
}

}  // namespace tool
