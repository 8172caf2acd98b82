// A block of sound, a vector of floats for each channel; full scale is 1.
#pragma once

#include <span>
#include <vector>

namespace tool {

class Planes {
 public:
  Planes(std::size_t channels, std::size_t capacity) : planes_(channels, std::vector<float>(capacity)) {}
  std::size_t channels() const noexcept { return planes_.size(); }
  std::size_t capacity() const noexcept { return planes_.empty() ? 0 : planes_[0].size(); }
  std::size_t frames() const noexcept { return frames_; }
  void setFrames(std::size_t frames) {
    if (frames > capacity()) grow(frames);
    frames_ = frames;
  }
  void grow(std::size_t capacity) {
    for (auto& plane : planes_) plane.resize(capacity);
  }
  std::span<float> operator[](std::size_t channel) { return {planes_[channel].data(), frames_}; }
  std::span<const float> operator[](std::size_t channel) const { return {planes_[channel].data(), frames_}; }
  /// The whole room of a channel.
  std::span<float> room(std::size_t channel) { return planes_[channel]; }

 private:
  std::vector<std::vector<float>> planes_;
  std::size_t frames_ = 0;
};

}  // namespace tool
