#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

#include "dialog/ServerThread.h"

namespace cardpanels::test {

/// The dialog's main loop, run by the test.
class MainLoop {
 public:
  dialog::Post post() {
    return [this](std::function<void()> task) {
      const std::lock_guard lock(mutex_);
      tasks_.push_back(std::move(task));
      posted_.notify_one();
    };
  }

  /// Runs tasks until `condition` holds; false when it does not within `time`.
  bool runUntil(const std::function<bool()>& condition,
                std::chrono::milliseconds time = std::chrono::seconds(20)) {
    const auto end = std::chrono::steady_clock::now() + time;
    std::unique_lock lock(mutex_);
    while (!condition()) {
      if (!posted_.wait_until(lock, end, [this] { return !tasks_.empty(); })) return false;
      const auto task = std::move(tasks_.front());
      tasks_.pop_front();
      lock.unlock();
      task();
      lock.lock();
    }
    return true;
  }

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> tasks_;
};

}  // namespace cardpanels::test
