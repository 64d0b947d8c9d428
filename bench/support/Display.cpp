#include "bench/support/Display.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace cardpanels::bench {
namespace {

std::string lineFrom(int file) {
  std::string line;
  for (char c = '\0'; read(file, &c, 1) == 1 && c != '\n';) line += c;
  return line;
}

}  // namespace

Display::Display() {
  if (std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr) return;
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  server_ = fork();
  if (server_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nothing, STDERR_FILENO);
    const std::string file = std::to_string(ends[1]);
    execlp("Xvfb", "Xvfb", "-displayfd", file.c_str(), "-nolisten", "tcp", nullptr);
    _exit(127);
  }
  close(ends[1]);
  const std::string number = lineFrom(ends[0]);
  close(ends[0]);
  if (number.empty()) throw std::runtime_error("Xvfb does not start");
  setenv("DISPLAY", (":" + number).c_str(), 1);
}

Display::~Display() {
  if (server_ == 0) return;
  kill(server_, SIGTERM);
  waitpid(server_, nullptr, 0);
}

}  // namespace cardpanels::bench
