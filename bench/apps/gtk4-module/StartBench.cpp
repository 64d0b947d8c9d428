#include <gtk/gtk.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include "bench/support/Median.h"
#include "tests/support/Display.h"

// What the module costs a GTK 4 program that never prints: processor time up to the first window,
// with GTK 4 led to the module and without, in turn, and pages of the module in the process. The
// noise is what lies between the quarters of the starts without it.

namespace {

constexpr const char* kModules = CARDPANELS_BUILD_DIR "/lib/gtk-4.0";
constexpr int kRuns = 21;

[[noreturn]] void fail(const char* why) {
  std::fprintf(stderr, "%s\n", why);
  std::exit(1);
}

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// How many of the process' pages are mapped from a file of ours.
int ownPages() {
  std::ifstream maps("/proc/self/maps");
  long bytes = 0;
  for (std::string line; std::getline(maps, line);) {
    if (line.find("/libcardpanels-gtk4") == std::string::npos) continue;
    unsigned long from = 0;
    unsigned long to = 0;
    if (std::sscanf(line.c_str(), "%lx-%lx", &from, &to) != 2) fail("/proc/self/maps is odd");
    bytes += static_cast<long>(to - from);
  }
  return static_cast<int>(bytes / 4096);
}

/// A program with a window of many widgets, up to the window's first appearance; prints its
/// processor time and our pages.
int start() {
  gtk_init();
  GtkWidget* const window = gtk_window_new();
  GtkWidget* const grid = gtk_grid_new();
  gtk_window_set_child(GTK_WINDOW(window), grid);
  for (int i = 0; i < 200; ++i) {
    gtk_grid_attach(GTK_GRID(grid), gtk_button_new_with_label("Button"), i % 10, i / 10, 1, 1);
  }
  gtk_window_present(GTK_WINDOW(window));
  while (gtk_widget_get_mapped(window) == FALSE || g_main_context_pending(nullptr) != FALSE) {
    g_main_context_iteration(nullptr, FALSE);
  }
  std::printf("%f %d\n", processorSeconds(), ownPages());
  return 0;
}

struct Cost {
  double seconds = 0;
  int pages = 0;
};

Cost costOf(const std::string& program, bool withModule) {
  if (withModule) {
    setenv("GTK_PATH", kModules, 1);
  } else {
    unsetenv("GTK_PATH");
  }
  FILE* const output = popen((program + " --start").c_str(), "r");
  Cost cost;
  const int read = std::fscanf(output, "%lf %d", &cost.seconds, &cost.pages);
  if (pclose(output) != 0 || read != 2) fail("the program does not start");
  return cost;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--start") == 0) return start();
  const cardpanels::test::Display display;
  setenv("GTK_A11Y", "none", 1);  // no session bus is there
  using cardpanels::bench::median;
  std::vector<double> with;
  std::vector<double> without;
  int pages = 0;
  for (int i = 0; i < kRuns; ++i) {
    without.push_back(costOf(argv[0], false).seconds);
    const Cost cost = costOf(argv[0], true);
    with.push_back(cost.seconds);
    pages = std::max(pages, cost.pages);
  }
  std::sort(without.begin(), without.end());
  const double noise = without[kRuns * 3 / 4] - without[kRuns / 4];
  const double usual = median(without);
  const double ratio = median(with) / usual;
  const double atMost = 1 + noise / usual;
  std::printf(
      "ratio a program's start with the module / without: %.3f (at most %.3f, the noise), %d pages "
      "(at most 0)\n",
      ratio, atMost, pages);
  return ratio <= atMost && pages == 0 ? 0 : 1;
}
