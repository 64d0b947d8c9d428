#include "tests/ports/gtk4/VirtualDisplay.h"

#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <gtkmm/init.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <optional>

#include "tests/support/Display.h"

namespace cardpanels::test {
namespace {

/// A display for the whole program, from its first test on.
class VirtualDisplay final : public testing::Environment {
 public:
  void SetUp() override {
    setenv("GDK_BACKEND", "x11", 1);
    setenv("GSK_RENDERER", "cairo",
           1);  // drivers that are unloaded at the end leave nameless leaks
    setenv("GDK_DEBUG", "gl-disable", 1);
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("GTK_A11Y", "none", 1);
    display_.emplace();
    g_log_set_always_fatal(
        static_cast<GLogLevelFlags>(G_LOG_FATAL_MASK | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING));
    ASSERT_TRUE(gtk_init_check());
    Gtk::init_gtkmm_internals();
  }

  void TearDown() override {
    if (GdkDisplay* const display = gdk_display_get_default()) gdk_display_close(display);
    display_.reset();
  }

 private:
  std::optional<Display> display_;
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new VirtualDisplay);

}  // namespace

void handleEvents() {
  while (g_main_context_pending(nullptr) != FALSE) g_main_context_iteration(nullptr, FALSE);
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
