// How far long work is: on a terminal only.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tool {

/// One line on the standard error, where that is a terminal: part done, rate, time left. It goes when the work ends.
class Progress {
 public:
  /// total in frames, or what is counted; 0 where it is unknown. A second of the recording has perSecond of them.
  Progress(std::string what, std::int64_t total, double perSecond);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Counts, shows now and then, and stops interrupted work.
  void advance(std::int64_t count);

 private:
  using Clock = std::chrono::steady_clock;
  void show(Clock::time_point now);

  std::string what_;
  std::int64_t total_, done_ = 0;
  double perSecond_;
  bool terminal_, shown_ = false;
  Clock::time_point start_, next_;
};

}  // namespace tool
