#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

/// Threads that wait for the print server in somebody's place.
namespace cardpanels::host {

/// How a thread learns that nobody waits for it any more.
class Abandonment {
 public:
  const std::atomic<bool>& flag() const { return flag_; }

  void declare();

  /// Waits for that; false when `time` has passed in vain.
  bool wait(std::chrono::milliseconds time);

 private:
  std::atomic<bool> flag_ = false;
  std::mutex mutex_;
  std::condition_variable declared_;
};

/// Runs `work` on a thread of its own, with this thread's settings of libcups and without the
/// program's signals. Dropping the answer abandons the thread and does not wait for it; so does the
/// program's end, which gives it a moment. Throws `std::system_error` when there is no thread to be
/// had.
std::shared_ptr<void> startServerThread(std::function<void(Abandonment& abandonment)> work);

}  // namespace cardpanels::host
