#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <string>
#include <utility>

namespace cardpanels::test {

/// A process of its own that does something as this one would.
class ChildProcess {
 public:
  template <typename Action>
  explicit ChildProcess(Action action) : process_(fork()) {
    if (process_ != 0) return;
    try {
      action();
      _exit(0);
    } catch (const std::exception&) {
      _exit(1);
    }
  }
  ~ChildProcess() { succeeds(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Waits for its end: whether nothing was thrown there.
  bool succeeds() {
    int status = 0;
    if (process_ > 0 && waitpid(std::exchange(process_, 0), &status, 0) > 0) status_ = status;
    return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
  }

 private:
  pid_t process_;
  int status_ = -1;
};

}  // namespace cardpanels::test
