#include "progress.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>

#include "interrupt.hpp"

namespace tool {

using namespace std::chrono_literals;

Progress::Progress(std::string what, std::int64_t total, double perSecond)
    : what_(std::move(what)),
      total_(total),
      perSecond_(perSecond),
      terminal_(isatty(STDERR_FILENO)),
      start_(Clock::now()),
      next_(start_ + 200ms) {}

Progress::~Progress() {
  if (shown_) fmt::print(stderr, "\r\033[K");
}

void Progress::advance(std::int64_t count) {
  stopIfInterrupted();
  done_ += count;
  if (!terminal_) return;
  const auto now = Clock::now();
  if (now < next_) return;
  next_ = now + 100ms;
  show(now);
}

void Progress::show(Clock::time_point now) {
  const double elapsed = std::chrono::duration<double>(now - start_).count();
  const double rate = double(done_) / elapsed;
  std::string line = fmt::format("\r{}  ", what_);
  if (total_ > 0) line += fmt::format("{:.0f} %  ", 100 * double(done_) / double(total_));
  line += fmt::format("{:.0f} s of sound, {:.0f} times real time", double(done_) / perSecond_, rate / perSecond_);
  if (total_ > done_ && rate > 0) {
    const auto left = std::int64_t(double(total_ - done_) / rate + 0.5);
    line += fmt::format(", {}:{:02} left", left / 60, left % 60);
  }
  fmt::print(stderr, "{}\033[K", line);
  std::fflush(stderr);
  shown_ = true;
}

}  // namespace tool
