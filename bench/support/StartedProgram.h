#pragma once

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace cardpanels::bench {

/// A program that runs beside this one, ended with this where it has not ended by itself.
class StartedProgram {
 public:
  /// Starts `command`, whose first word is the program's path. Throws when it does not start.
  explicit StartedProgram(std::vector<std::string> command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (std::string& each : command) arguments.push_back(each.data());
    arguments.push_back(nullptr);
    if (posix_spawn(&process_, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
      throw std::runtime_error(command[0] + " does not start");
  }
  ~StartedProgram() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  StartedProgram(const StartedProgram&) = delete;
  StartedProgram& operator=(const StartedProgram&) = delete;

  pid_t process() const { return process_; }

  /// Waits for its end: whether it did what it was to do.
  bool succeeds() {
    int status = 0;
    return waitpid(std::exchange(process_, 0), &status, 0) > 0 && status == 0;
  }

 private:
  pid_t process_ = 0;
};

}  // namespace cardpanels::bench
