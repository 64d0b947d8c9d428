#include "tests/support/Display.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace cardpanels::test {

Display::Display() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  const std::string end = std::to_string(ends[1]);
  server_ = fork();
  if (server_ == 0) {
    close(ends[0]);
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    execlp("Xvfb", "Xvfb", "-displayfd", end.c_str(), "-screen", "0", "1280x1024x24", "-noreset",
           "-nolisten", "tcp", nullptr);
    _exit(127);
  }
  close(ends[1]);
  std::string number;
  for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) number += c;
  close(ends[0]);
  if (number.empty()) throw std::runtime_error("Xvfb does not start");
  setenv("DISPLAY", (":" + number).c_str(), 1);
  setenv("GDK_BACKEND", "x11", 1);
}

Display::~Display() {
  kill(server_, SIGTERM);
  waitpid(server_, nullptr, 0);
}

}  // namespace cardpanels::test
