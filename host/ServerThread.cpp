#include "host/ServerThread.h"

#include <pthread.h>

#include <csignal>
#include <cstdlib>
#include <set>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "host/PrintServer.h"

namespace cardpanels::host {
namespace {

constexpr auto kFarewell = std::chrono::milliseconds(500);

struct Thread {
  std::function<void(Abandonment&)> work;
  ServerSettings settings;
  Abandonment abandonment;
  std::thread handle;
};

/// The threads that run, and those that have done their work and are about to be gone.
class Running {
 public:
  static Running& all() {
    // Never destroyed: threads may outlive static objects.
    static auto* const running = new Running;
    return *running;
  }

  void start(const std::shared_ptr<Thread>& thread, void (*run)(const std::shared_ptr<Thread>&)) {
    joinDone();
    const std::lock_guard lock(mutex_);
    thread->handle = std::thread(run, thread);
    threads_.insert(thread.get());
  }

  /// For the thread itself, as its last step.
  void remove(Thread& thread) {
    const std::lock_guard lock(mutex_);
    threads_.erase(&thread);
    done_.push_back(std::move(thread.handle));
    changed_.notify_all();
  }

 private:
  Running() {
    std::atexit([] { all().end(); });
  }

  void end() {
    {
      std::unique_lock lock(mutex_);
      for (Thread* each : threads_) each->abandonment.declare();
      changed_.wait_for(lock, kFarewell, [this] { return threads_.empty(); });
    }
    joinDone();
  }

  void joinDone() {
    std::vector<std::thread> done;
    {
      const std::lock_guard lock(mutex_);
      done.swap(done_);
    }
    for (std::thread& each : done) each.join();
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<Thread*> threads_;
  std::vector<std::thread> done_;
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

void run(const std::shared_ptr<Thread>& thread) {
  thread->settings.apply();
  std::exchange(thread->work, nullptr)(thread->abandonment);
  Running::all().remove(*thread);
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
  const BlockedSignals blocked;
  Running::all().start(thread, run);
  return {thread.get(), [thread](Thread* each) { each->abandonment.declare(); }};
}

}  // namespace cardpanels::host
