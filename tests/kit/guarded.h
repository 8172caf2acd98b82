// Arrays that lie directly at an unreadable page, so that one byte too many is a fault.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

namespace kit {

enum class Edge { begin, end };  // which end of the array touches the unreadable page
inline constexpr Edge bothEdges[] = {Edge::begin, Edge::end};

// Mapped regions with an unreadable page at both ends, kept for reuse.
class Pages {
 public:
  explicit Pages(std::size_t bytes) : pages_((bytes + size() - 1) / size() + (bytes == 0)) {
    for (auto& region : free())
      if (region.pages == pages_ && region.start != nullptr) {
        start_ = region.start;
        region.start = nullptr;
        return;
      }
    auto* mapped =
        static_cast<std::byte*>(mmap(nullptr, (pages_ + 2) * size(), PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (mapped == MAP_FAILED) std::abort();
    start_ = mapped + size();
    if (mprotect(start_, pages_ * size(), PROT_READ | PROT_WRITE) != 0) std::abort();
  }
  ~Pages() {
    if (start_ == nullptr) return;
    constexpr std::size_t worthKeeping = 1024;
    if (pages_ > worthKeeping) {
      munmap(start_ - size(), (pages_ + 2) * size());
      return;
    }
    for (auto& region : free())
      if (region.start == nullptr) {
        region = {start_, pages_};
        return;
      }
    free().push_back({start_, pages_});
  }
  Pages(Pages&& other) noexcept : pages_(other.pages_), start_(std::exchange(other.start_, nullptr)) {}
  Pages& operator=(Pages&&) = delete;

  std::byte* begin() const { return start_; }
  std::byte* end() const { return start_ + pages_ * size(); }

 private:
  struct Region {
    std::byte* start;
    std::size_t pages;
  };
  static std::size_t size() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }
  static std::vector<Region>& free() {
    thread_local std::vector<Region> regions;
    return regions;
  }
  std::size_t pages_;
  std::byte* start_;
};

// count elements at the begin or the end of the pages, `away` bytes from the very edge; the bytes between the array and
// the far edge hold a pattern, and intact() tells whether they still do.
template <class T> class Guarded {
 public:
  explicit Guarded(std::size_t count, Edge edge = Edge::end, std::size_t away = 0)
      : pages_(count * sizeof(T) + away + slack), count_(count) {
    std::memset(pages_.begin(), pattern, static_cast<std::size_t>(pages_.end() - pages_.begin()));
    data_ = reinterpret_cast<T*>(edge == Edge::begin ? pages_.begin() + away : pages_.end() - away - count * sizeof(T));
  }
  Guarded(const std::vector<T>& values, Edge edge, std::size_t away = 0) : Guarded(values.size(), edge, away) {
    if (!values.empty()) std::memcpy(data_, values.data(), values.size() * sizeof(T));
  }

  T* data() const { return data_; }
  std::size_t size() const { return count_; }
  T& operator[](std::size_t i) const { return data_[i]; }
  std::span<T> span() const { return {data_, count_}; }
  std::vector<T> values() const { return {data_, data_ + count_}; }

  bool intact() const {
    return untouched(pages_.begin(), reinterpret_cast<std::byte*>(data_)) &&
           untouched(reinterpret_cast<std::byte*>(data_ + count_), pages_.end());
  }

 private:
  static constexpr int pattern = 0xA5;
  static constexpr std::size_t slack = 64;  // so that intact() has something to see
  // The first byte holds the pattern and each other what the one before it holds.
  static bool untouched(const std::byte* from, const std::byte* end) {
    return from == end ||
           (*from == std::byte{pattern} && std::memcmp(from, from + 1, static_cast<std::size_t>(end - from) - 1) == 0);
  }
  Pages pages_;
  std::size_t count_;
  T* data_;
};

}  // namespace kit
