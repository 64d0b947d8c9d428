#include "tests/ports/gtk3/VirtualDisplay.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <gtkmm/main.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>

namespace cardpanels::test {
namespace {

/// A display in memory for the whole program, started when its first test is.
class VirtualDisplay final : public testing::Environment {
 public:
  void SetUp() override {
    setenv("GDK_BACKEND", "x11", 1);
    setenv("GDK_GL", "disable", 1);  // drivers that are unloaded at the end leave nameless leaks
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("NO_AT_BRIDGE", "1", 1);
    setenv("DISPLAY", (":" + startServer()).c_str(), 1);
    g_log_set_always_fatal(
        static_cast<GLogLevelFlags>(G_LOG_FATAL_MASK | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING));
    ASSERT_TRUE(gtk_init_check(nullptr, nullptr));
    Gtk::Main::init_gtkmm_internals();
  }

  void TearDown() override {
    if (server_ <= 0) return;
    gdk_display_close(gdk_display_get_default());
    kill(server_, SIGTERM);
    waitpid(server_, nullptr, 0);
  }

 private:
  /// Answers the display's number.
  std::string startServer() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return {};
    const std::string descriptor = std::to_string(ends[1]);
    server_ = fork();
    if (server_ == 0) {
      close(ends[0]);
      prctl(PR_SET_PDEATHSIG, SIGTERM);
      const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
      dup2(nowhere, STDOUT_FILENO);
      dup2(nowhere, STDERR_FILENO);
      execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", "1280x1024x24",
             "-noreset", "-nolisten", "tcp", nullptr);
      _exit(127);
    }
    close(ends[1]);
    std::string number;
    for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';) number += c;
    close(ends[0]);
    return number;
  }

  pid_t server_ = -1;
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new VirtualDisplay);

}  // namespace

void handleEvents() {
  while (gtk_events_pending()) gtk_main_iteration_do(FALSE);
}

bool handleEventsUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (handleEvents(); !condition(); handleEvents()) {
    if (std::chrono::steady_clock::now() > end) return false;
    usleep(1000);
  }
  return true;
}

}  // namespace cardpanels::test
