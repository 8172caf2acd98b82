// Delay lines: the newest samples of a stream, oldest first, in memory that holds a block behind them.
#pragma once

#include <algorithm>
#include <iterator>

#include "frame/by_type.h"

namespace zors {

// A value of another type, part by part; toward zero where it is an integer's.
template <class To, class From> To valueAs(From x) {
  if constexpr (Complex<To>)
    return {static_cast<decltype(To::re)>(x.re), static_cast<decltype(To::im)>(x.im)};
  else
    return static_cast<To>(x);
}
template <class To, class From> void reverseInto(To* to, const From* from, Zor32s count) {
  std::transform(from, from + count, std::make_reverse_iterator(to + count), valueAs<To, From>);
}

// `count` samples of history in line[*start .. *start + count - 1]. Block calls find the room for a block's samples
// behind it and leave *start at 0; single samples enter as into a doubled ring and advance *start below count. So the
// line holds count - 1 + count samples and the longest block.
template <class T> class DelayLine {
 public:
  DelayLine(T* line, Zor32s count, Zor32s* start) : line_(line), count_(count), start_(start) {}

  T* history() const { return line_ + *start_; }
  T* room() const { return history() + count_; }

  // The newest samples of a block end at `end`, in the line or elsewhere: they become the history.
  void keep(const T* end) const {
    by_type::move(end - count_, line_, count_);
    *start_ = 0;
  }

  // One sample. It stands at two places, so that the window that comes back, the newest `count` samples, never wraps.
  const T* put(T value) const {
    const Zor32s at = *start_;
    line_[at + count_] = value;
    line_[at] = value;
    *start_ = at + 1 < count_ ? at + 1 : 0;
    return history();
  }

  // To and from the caller's order, newest first; null sets zeros.
  template <class Sample> void get(Sample* dly) const { reverseInto(dly, history(), count_); }
  template <class Sample> void set(const Sample* dly) const {
    if (dly == nullptr)
      std::fill_n(line_, count_, T{});
    else
      reverseInto(line_, dly, count_);
    *start_ = 0;
  }

 private:
  T* line_;
  Zor32s count_;
  Zor32s* start_;
};

}  // namespace zors
