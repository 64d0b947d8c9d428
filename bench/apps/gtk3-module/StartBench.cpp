#include <gmodule.h>
#include <gtk/gtk.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include "bench/support/Median.h"
#include "tests/support/Display.h"

// What the module costs a GTK program that never prints: processor time of loading it beside the
// whole start up to the first window, and memory that it makes the process' own.

namespace {

constexpr const char* kModule = CARDPANELS_BUILD_DIR "/lib/libcardpanels-gtk3-module.so";
constexpr int kRuns = 21;
constexpr double kRatio = 0.01;
constexpr double kKibibytes = 200;

double ownMemory() {
  std::ifstream rollup("/proc/self/smaps_rollup");
  double sum = 0;
  for (std::string name; rollup >> name;) {
    double value = 0;
    if (name.starts_with("Private_") && rollup >> value) sum += value;
  }
  return sum;
}

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

[[noreturn]] void fail(const char* why) {
  std::fprintf(stderr, "%s\n", why);
  std::exit(1);
}

/// Loads the module as GTK does.
void loadModule() {
  GModule* const module = g_module_open(kModule, G_MODULE_BIND_LOCAL);
  void (*start)(int*, char***) = nullptr;
  if (module == nullptr ||
      !g_module_symbol(module, "gtk_module_init", reinterpret_cast<gpointer*>(&start))) {
    fail(g_module_error());
  }
  start(nullptr, nullptr);
}

/// A program with a window of many widgets, up to the window's first appearance; prints the share
/// of the module's loading, and its memory.
int start() {
  gtk_init(nullptr, nullptr);
  const double memory = ownMemory();
  const double time = processorSeconds();
  loadModule();
  const double loading = processorSeconds() - time;
  const double kibibytes = ownMemory() - memory;
  GtkWidget* const window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* const grid = gtk_grid_new();
  gtk_container_add(GTK_CONTAINER(window), grid);
  for (int i = 0; i < 200; ++i) {
    gtk_grid_attach(GTK_GRID(grid), gtk_button_new_with_label("Button"), i % 10, i / 10, 1, 1);
  }
  gtk_widget_show_all(window);
  while (gtk_events_pending() != 0) gtk_main_iteration();
  std::printf("%f %f\n", loading / processorSeconds(), kibibytes);
  return 0;
}

struct Cost {
  double ratio = 0;
  double kibibytes = 0;
};

Cost costOf(const std::string& program) {
  FILE* const output = popen((program + " --start").c_str(), "r");
  Cost cost;
  const int read = std::fscanf(output, "%lf %lf", &cost.ratio, &cost.kibibytes);
  if (pclose(output) != 0 || read != 2) fail("the program does not start");
  return cost;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--start") == 0) return start();
  const cardpanels::test::Display display;
  std::vector<double> ratios;
  std::vector<double> kibibytes;
  for (int i = 0; i < kRuns; ++i) {
    const Cost cost = costOf(argv[0]);
    ratios.push_back(cost.ratio);
    kibibytes.push_back(cost.kibibytes);
  }
  const double ratio = cardpanels::bench::median(ratios);
  const double memory = cardpanels::bench::median(kibibytes);
  std::printf(
      "ratio loading the module / a program's start: %.4f (at most %.2f), %.0f KiB (at most %g)\n",
      ratio, kRatio, memory, kKibibytes);
  return ratio <= kRatio && memory <= kKibibytes ? 0 : 1;
}
