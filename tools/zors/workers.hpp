// Threads that share the channels of a block, or files.
#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace tool {

/// forEach(n, f) calls f(0), ..., f(n - 1) from as many threads as there are jobs, the caller's among them, and passes
/// on the first exception. One job has no threads.
class Workers {
 public:
  explicit Workers(int jobs) {
    for (int i = 1; i < jobs; ++i) threads_.emplace_back([this] { serve(); });
  }
  ~Workers() {
    {
      const std::lock_guard lock(mutex_);
      ending_ = true;
    }
    wake_.notify_all();
    for (auto& thread : threads_) thread.join();
  }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  void forEach(std::size_t count, const std::function<void(std::size_t)>& f) {
    if (threads_.empty() || count < 2) {
      for (std::size_t i = 0; i < count; ++i) f(i);
      return;
    }
    std::unique_lock lock(mutex_);
    work_ = &f, next_ = 0, count_ = count, open_ = count, error_ = nullptr;
    wake_.notify_all();
    take(lock);
    done_.wait(lock, [this] { return open_ == 0; });
    if (error_) std::rethrow_exception(error_);
  }

 private:
  void serve() {
    std::unique_lock lock(mutex_);
    for (;;) {
      wake_.wait(lock, [this] { return ending_ || next_ < count_; });
      if (ending_) return;
      take(lock);
    }
  }
  void take(std::unique_lock<std::mutex>& lock) {
    while (next_ < count_) {
      const std::size_t i = next_++;
      const auto& f = *work_;
      lock.unlock();
      std::exception_ptr error;
      try {
        f(i);
      } catch (...) {
        error = std::current_exception();
      }
      lock.lock();
      if (error && !error_) error_ = error;
      if (--open_ == 0) done_.notify_all();
    }
  }

  std::vector<std::thread> threads_;
  std::mutex mutex_;
  std::condition_variable wake_, done_;
  const std::function<void(std::size_t)>* work_ = nullptr;
  std::size_t next_ = 0, count_ = 0, open_ = 0;
  std::exception_ptr error_;
  bool ending_ = false;
};

}  // namespace tool
