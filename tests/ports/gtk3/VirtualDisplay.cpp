#include "tests/ports/gtk3/VirtualDisplay.h"

#include <gtest/gtest.h>
#include <gtkmm/main.h>
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
    setenv("GDK_GL", "disable", 1);  // drivers that are unloaded at the end leave nameless leaks
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("NO_AT_BRIDGE", "1", 1);
    display_.emplace();
    g_log_set_always_fatal(
        static_cast<GLogLevelFlags>(G_LOG_FATAL_MASK | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING));
    ASSERT_TRUE(gtk_init_check(nullptr, nullptr));
    Gtk::Main::init_gtkmm_internals();
    // GTK 3 cannot close a display on which a tooltip has shown: the pointer goes into a corner.
    GdkSeat* const seat = gdk_display_get_default_seat(gdk_display_get_default());
    gdk_device_warp(gdk_seat_get_pointer(seat), gdk_screen_get_default(), 1279, 1023);
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
