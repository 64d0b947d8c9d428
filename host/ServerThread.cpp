#include "host/ServerThread.h"

#include <pthread.h>

#include <csignal>
#include <cstdlib>
#include <set>
#include <system_error>
#include <thread>
#include <utility>

#include "host/PrintServer.h"

namespace cardpanels::host {
namespace {

constexpr auto kFarewell = std::chrono::milliseconds(500);

/// The threads that run, by how they are abandoned.
class Running {
 public:
  static Running& all() {
    // Never destroyed: threads may outlive static objects.
    static auto* const running = new Running;
    return *running;
  }

  void add(Abandonment& thread) {
    const std::lock_guard lock(mutex_);
    threads_.insert(&thread);
  }

  void remove(Abandonment& thread) {
    const std::lock_guard lock(mutex_);
    threads_.erase(&thread);
    changed_.notify_all();
  }

 private:
  Running() {
    std::atexit([] { all().end(); });
  }

  void end() {
    std::unique_lock lock(mutex_);
    for (Abandonment* each : threads_) each->declare();
    changed_.wait_for(lock, kFarewell, [this] { return threads_.empty(); });
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<Abandonment*> threads_;
};

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

struct Thread {
  std::function<void(Abandonment&)> work;
  ServerSettings settings;
  Abandonment abandonment;
};

void run(const std::shared_ptr<Thread>& thread) {
  thread->settings.apply();
  std::exchange(thread->work, nullptr)(thread->abandonment);
  Running::all().remove(thread->abandonment);
}

}  // namespace

void Abandonment::declare() {
  const std::lock_guard lock(mutex_);
  flag_ = true;
  declared_.notify_all();
}

bool Abandonment::wait(std::chrono::milliseconds time) {
  std::unique_lock lock(mutex_);
  return declared_.wait_for(lock, time, [this] { return flag_.load(); });
}

std::shared_ptr<void> startServerThread(std::function<void(Abandonment&)> work) {
  auto thread = std::make_shared<Thread>();
  thread->work = std::move(work);
  Running::all().add(thread->abandonment);
  const BlockedSignals blocked;
  try {
    std::thread(run, thread).detach();
  } catch (const std::system_error&) {
    Running::all().remove(thread->abandonment);
    throw;
  }
  return {thread.get(), [thread](Thread* each) { each->abandonment.declare(); }};
}

}  // namespace cardpanels::host
