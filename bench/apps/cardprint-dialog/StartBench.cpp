#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <sys/types.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/support/Median.h"
#include "bench/support/StartedProgram.h"
#include "tests/support/Display.h"

// What the dialog costs from the start of cardprint until it is drawn, and memory that is then its
// own, beside an empty window of gtkmm.

namespace {

using namespace cardpanels;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 15;
constexpr double kTime = 1.5;
constexpr double kMemory = 1.4;
constexpr std::chrono::seconds kLimit(20);

/// Watches a place where both windows are, and nothing is without one.
class Watch {
 public:
  Watch() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr) throw std::runtime_error("the display does not open");
    nothing_ = colour();
  }
  ~Watch() { XCloseDisplay(display_); }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Waits until something is drawn there, or nothing any more.
  void waitUntil(bool isDrawn) const {
    const auto start = Clock::now();
    while ((colour() != nothing_) != isDrawn) {
      if (Clock::now() - start > kLimit) throw std::runtime_error("no window comes, or goes");
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
  }

 private:
  unsigned long colour() const {
    XImage* const image =
        XGetImage(display_, DefaultRootWindow(display_), 3, 3, 1, 1, AllPlanes, ZPixmap);
    if (image == nullptr) throw std::runtime_error("the display cannot be read");
    const unsigned long colour = XGetPixel(image, 0, 0);
    XDestroyImage(image);
    return colour;
  }

  ::Display* display_;
  unsigned long nothing_ = 0;
};

/// KiB that no other process has.
double ownMemory(pid_t process) {
  std::ifstream rollup("/proc/" + std::to_string(process) + "/smaps_rollup");
  double sum = 0;
  for (std::string name; rollup >> name;) {
    double value = 0;
    if (name.starts_with("Private_") && rollup >> value) sum += value;
  }
  return sum;
}

struct Cost {
  double seconds = 0;
  double memory = 0;
};

Cost costOf(const Watch& watch, const std::vector<std::string>& command) {
  const auto start = Clock::now();
  Cost cost;
  {
    const bench::StartedProgram program(command);
    watch.waitUntil(true);
    cost.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::this_thread::sleep_for(std::chrono::milliseconds(500));  // what comes behind
    cost.memory = ownMemory(program.process());
  }
  watch.waitUntil(false);
  return cost;
}

bool tell(const char* what, const std::vector<double>& ratios, double bound) {
  const double ratio = bench::median(ratios);
  std::printf("ratio %s: %.2f (at most %.2f)\n", what, ratio, bound);
  return ratio <= bound;
}

int run() {
  const test::Display display;
  setenv("NO_AT_BRIDGE", "1", 1);  // nobody listens
  const Watch watch;
  const std::vector<std::string> dialog = {CARDPANELS_BUILD_DIR "/bin/cardprint", "--ppd",
                                           CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"};
  const std::vector<std::string> empty = {CARDPANELS_BUILD_DIR "/bench/empty-window"};
  costOf(watch, empty);  // fills the caches
  costOf(watch, dialog);
  std::vector<double> times;
  std::vector<double> memories;
  for (int i = 0; i < kRuns; ++i) {
    const Cost base = costOf(watch, empty);
    const Cost cost = costOf(watch, dialog);
    times.push_back(cost.seconds / base.seconds);
    memories.push_back(cost.memory / base.memory);
  }
  const bool isFast = tell("the dialog until it is drawn / an empty window", times, kTime);
  const bool isSmall = tell("the dialog's own memory / an empty window's", memories, kMemory);
  return isFast && isSmall ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
