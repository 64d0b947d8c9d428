#include "dialog/QueueReading.h"

#include <cups/cups.h>
#include <pthread.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

#include "host/Queue.h"

namespace cardpanels::dialog {
namespace {

constexpr int kLimitSeconds = 10;
constexpr auto kFarewell = std::chrono::milliseconds(500);

/// What the thread and the main loop share.
struct Reading {
  std::string queue;
  std::string server;  // libcups' settings are each thread's own
  std::string user;
  std::function<void(QueueRead)> done;  // the main loop's
  QueueRead read;                       // the thread's, then the main loop's
  std::atomic<bool> abandoned = false;
};

/// The readings whose threads run.
class Running {
 public:
  static Running& all() {
    // Never destroyed: threads may outlive static objects.
    static auto* const running = new Running;
    return *running;
  }

  void add(Reading& reading) {
    const std::lock_guard lock(mutex_);
    readings_.insert(&reading);
  }

  void remove(Reading& reading) {
    const std::lock_guard lock(mutex_);
    readings_.erase(&reading);
    changed_.notify_all();
  }

 private:
  Running() {
    std::atexit([] { all().end(); });
  }

  void end() {
    std::unique_lock lock(mutex_);
    for (Reading* each : readings_) each->abandoned = true;
    changed_.wait_for(lock, kFarewell, [this] { return readings_.empty(); });
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<Reading*> readings_;
};

QueueRead read(const Reading& reading) {
  cupsSetServer(reading.server.c_str());
  cupsSetUser(reading.user.c_str());
  try {
    return {host::openQueue({reading.queue, ""}, kLimitSeconds, reading.abandoned).ppd, {}};
  } catch (const std::exception& error) {
    return {nullptr, error.what()};
  }
}

using Shared = std::shared_ptr<Reading>;

void deliver(Reading& reading) {
  if (!reading.abandoned) std::exchange(reading.done, nullptr)(std::move(reading.read));
}

void runThread(const Shared& reading, const Post& post) {
  reading->read = read(*reading);
  if (!reading->abandoned) post([reading] { deliver(*reading); });
  Running::all().remove(*reading);
}

/// The program's signals are none of the new thread's business.
class BlockedSignals {
 public:
  BlockedSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  BlockedSignals(const BlockedSignals&) = delete;
  BlockedSignals& operator=(const BlockedSignals&) = delete;

 private:
  sigset_t before_{};
};

std::shared_ptr<void> start(const std::string& queue, std::function<void(QueueRead)> done,
                            const Post& post) {
  auto reading = std::make_shared<Reading>();
  reading->queue = queue;
  reading->server = cupsServer();
  reading->user = cupsUser();
  reading->done = std::move(done);
  Running::all().add(*reading);
  const BlockedSignals blocked;
  std::thread(runThread, reading, post).detach();
  // Dropping the answer abandons the reading, which the thread still holds.
  return {reading.get(), [reading](Reading* each) { each->abandoned = true; }};
}

}  // namespace

ReadQueue readQueueOnThread(Post post) {
  return [post = std::move(post)](const std::string& queue, std::function<void(QueueRead)> done) {
    return start(queue, std::move(done), post);
  };
}

}  // namespace cardpanels::dialog
