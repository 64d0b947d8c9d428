#include <gtk/gtk.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <string>

#include "tests/support/Display.h"

// What the module adds to the start of a GTK program: processor time until its first window shows,
// and memory that is the process' own then.

namespace {

constexpr const char* kModule = CARDPANELS_BUILD_DIR "/lib/libcardpanels-gtk3-module.so";
constexpr int kRuns = 41;
constexpr double kMilliseconds = 1;
constexpr double kKibibytes = 200;

struct Cost {
  double milliseconds = 0;
  double kibibytes = 0;
};

double ownMemory() {
  std::ifstream rollup("/proc/self/smaps_rollup");
  double sum = 0;
  for (std::string name; rollup >> name;) {
    double value = 0;
    if (name.starts_with("Private_") && rollup >> value) sum += value;
  }
  return sum;
}

/// A program with a window of many widgets, up to the window's first appearance.
int start() {
  gtk_init(nullptr, nullptr);
  GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* const grid = gtk_grid_new();
  gtk_container_add(GTK_CONTAINER(window), grid);
  for (int i = 0; i < 200; ++i) {
    gtk_grid_attach(GTK_GRID(grid), gtk_button_new_with_label("Button"), i % 10, i / 10, 1, 1);
  }
  gtk_widget_show_all(window);
  while (gtk_events_pending() != 0) gtk_main_iteration();
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  std::printf("%f %f\n",
              static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6,
              ownMemory());
  return 0;
}

Cost costOf(const std::string& program, bool withModule) {
  const std::string modules = withModule ? std::string("GTK_MODULES=") + kModule : "GTK_MODULES=";
  FILE* const output = popen((modules + " " + program + " --start").c_str(), "r");
  Cost cost;
  const int read = std::fscanf(output, "%lf %lf", &cost.milliseconds, &cost.kibibytes);
  if (pclose(output) != 0 || read != 2) throw std::runtime_error("the program does not start");
  return cost;
}

/// The least disturbed of several starts.
struct Least {
  Cost cost{1e9, 1e9};

  void add(const Cost& each) {
    cost.milliseconds = std::min(cost.milliseconds, each.milliseconds);
    cost.kibibytes = std::min(cost.kibibytes, each.kibibytes);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--start") == 0) return start();
  const cardpanels::test::Display display;
  Least without;
  Least with;
  for (int i = 0; i < kRuns; ++i) {
    without.add(costOf(argv[0], false));
    with.add(costOf(argv[0], true));
  }
  const double milliseconds = with.cost.milliseconds - without.cost.milliseconds;
  const double kibibytes = with.cost.kibibytes - without.cost.kibibytes;
  std::printf("the module at a program's start: %.3f ms (at most %g), %.0f KiB (at most %g)\n",
              milliseconds, kMilliseconds, kibibytes, kKibibytes);
  return milliseconds <= kMilliseconds && kibibytes <= kKibibytes ? 0 : 1;
}
