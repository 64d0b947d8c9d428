#include "host/Question.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>

#include "host/ServerThread.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;

constexpr auto kGlance = std::chrono::milliseconds(20);
constexpr int kGlancesBehind = 10;  // for a thread that was cut off to end

/// What the thread that waits and the one that talks share.
class Question {
 public:
  explicit Question(const Terms& terms) : talk_(terms) {}

  void talk(const std::function<void(Talk&)>& talking) {
    std::exception_ptr failure;
    try {
      talk_.begin();
      talking(talk_);
    } catch (...) {
      failure = std::current_exception();
    }
    talk_.end();
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    isDone_ = true;
    done_.notify_all();
  }

  void await(const std::atomic<bool>* abandoned) {
    std::string reason;
    while (reason.empty() && !isDoneSoon()) {
      if (abandoned != nullptr && *abandoned) reason = _("Nobody waits for it any more.");
      if (reason.empty() && talk_.isLate()) reason = talk_.lateness();
    }
    if (!reason.empty()) cut(reason);
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

 private:
  bool isDoneSoon() {
    std::unique_lock lock(mutex_);
    return done_.wait_for(lock, kGlance, [this] { return isDone_; });
  }

  /// Returns when the thread was done all the same.
  void cut(const std::string& reason) {
    for (int i = 0; i < kGlancesBehind; ++i) {
      talk_.cut();
      if (isDoneSoon()) break;
    }
    const std::lock_guard lock(mutex_);
    if (!isDone_ || failure_) failAtServer(reason);
  }

  Talk talk_;
  std::mutex mutex_;
  std::condition_variable done_;
  bool isDone_ = false;
  std::exception_ptr failure_;
};

}  // namespace

void askServer(const Terms& terms, std::function<void(Talk& talk)> talking) {
  const auto question = std::make_shared<Question>(terms);
  std::shared_ptr<void> thread;
  try {
    thread = startServerThread(
        [question, talking = std::move(talking)](Abandonment&) { question->talk(talking); });
  } catch (const std::system_error& error) {
    failAtServer(error.what());
  }
  question->await(terms.abandoned);
}

}  // namespace cardpanels::host
