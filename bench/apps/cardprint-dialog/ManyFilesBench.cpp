#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/support/Median.h"
#include "bench/support/StartedProgram.h"
#include "tests/support/Display.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

// How long many files take from Print until the server has them, beside the same from the command
// line, and for how long the window then answers nobody. Print is clicked: a button that a key
// presses is shown as pressed for a quarter of a second by GTK, before anybody hears of it.

namespace {

using namespace cardpanels;
using Clock = std::chrono::steady_clock;

constexpr int kRuns = 5;
constexpr int kFiles = 500;
constexpr double kBesideEach = 1.3;
constexpr double kAnswer = 100;  // milliseconds
constexpr std::chrono::seconds kLimit(60);
constexpr std::chrono::milliseconds kBetweenKeys(20);
constexpr std::chrono::seconds kLostClick(2);  // far more than the window takes to come
constexpr int kFromCorner = 25;                // pixels, within the last button
constexpr std::chrono::milliseconds kBetweenPings(3);

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Sees windows come and go, and asks them whether they answer, as a window manager does; there is
/// no other.
class WindowManager {
 public:
  WindowManager() : display_(XOpenDisplay(nullptr)) {
    if (display_ == nullptr) throw std::runtime_error("the display does not open");
    // Of a window that goes while it is looked at.
    XSetErrorHandler([](::Display* /*display*/, XErrorEvent* /*error*/) { return 0; });
    root_ = DefaultRootWindow(display_);
    protocols_ = XInternAtom(display_, "WM_PROTOCOLS", False);
    ping_ = XInternAtom(display_, "_NET_WM_PING", False);
    XSelectInput(display_, root_, SubstructureNotifyMask);
  }
  ~WindowManager() { XCloseDisplay(display_); }
  WindowManager(const WindowManager&) = delete;
  WindowManager& operator=(const WindowManager&) = delete;

  /// The window of that title if it shows; `None` else.
  Window shown(const std::string& title) const {
    for (const auto& [window, each] : titles_) {
      if (each == title) return window;
    }
    return None;
  }

  void focus(Window window) const { XSetInputFocus(display_, window, RevertToNone, CurrentTime); }

  void press(KeySym key) const {
    const KeyCode code = XKeysymToKeycode(display_, key);
    XTestFakeKeyEvent(display_, code, True, CurrentTime);
    XTestFakeKeyEvent(display_, code, False, CurrentTime);
    XFlush(display_);
  }

  /// Clicks the button in the lower right corner of `window`.
  void clickLastButton(Window window) const {
    Window root = None;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(display_, window, &root, &x, &y, &width, &height, &border, &depth);
    XTestFakeMotionEvent(display_, -1, x + static_cast<int>(width) - kFromCorner,
                         y + static_cast<int>(height) - kFromCorner, CurrentTime);
    XTestFakeButtonEvent(display_, 1, True, CurrentTime);
    XTestFakeButtonEvent(display_, 1, False, CurrentTime);
    XFlush(display_);
  }

  /// Asks `window`, and answers the milliseconds until it answers, or until `isOver`.
  double ping(Window window, const std::function<bool()>& isOver) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = protocols_;
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(ping_);
    event.xclient.data.l[1] = ++asked_;
    event.xclient.data.l[2] = static_cast<long>(window);
    const auto start = Clock::now();
    XSendEvent(display_, window, False, NoEventMask, &event);
    waitUntil([&] { return answered_ == asked_ || isOver(); });
    return 1e3 * secondsSince(start);
  }

  /// Looks at what happens until `isOver`.
  void waitUntil(const std::function<bool()>& isOver) {
    const auto start = Clock::now();
    while (!isOver()) {
      if (Clock::now() - start > kLimit) throw std::runtime_error("the window does not come on");
      XFlush(display_);
      pollfd connection{ConnectionNumber(display_), POLLIN, 0};
      if (XPending(display_) == 0) poll(&connection, 1, 10);
      while (XPending(display_) > 0) handle();
    }
  }

 private:
  void handle() {
    XEvent event{};
    XNextEvent(display_, &event);
    if (event.type == MapNotify) {
      char* title = nullptr;
      if (XFetchName(display_, event.xmap.window, &title) == 0) return;
      titles_[event.xmap.window] = title;
      XFree(title);
    } else if (event.type == UnmapNotify) {
      titles_.erase(event.xunmap.window);
    } else if (event.type == DestroyNotify) {
      titles_.erase(event.xdestroywindow.window);
    } else if (event.type == ClientMessage && event.xclient.data.l[0] == static_cast<long>(ping_)) {
      answered_ = event.xclient.data.l[1];
    }
  }

  ::Display* display_;
  Window root_ = None;
  Atom protocols_ = None;
  Atom ping_ = None;
  long asked_ = 0;
  long answered_ = 0;
  std::map<Window, std::string> titles_;  // of those that show
};

struct Sending {
  double seconds = 0;
  double longestAnswer = 0;  // milliseconds
};

/// Clicks Print in the dialog, then presses Return until the window that sends is closed by it:
/// that is Close, which comes and has the focus when all is sent.
Sending sentByWindow(WindowManager& manager, const test::PrivatePrintServer& server, int lastJob,
                     const std::vector<std::string>& command) {
  bench::StartedProgram program(command);
  manager.waitUntil([&] { return manager.shown("Print on card") != None; });
  const Window dialog = manager.shown("Print on card");
  for (int i = 0; i < 10; ++i) {  // until what comes behind is done
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    manager.ping(dialog, [] { return false; });
  }
  manager.focus(dialog);
  Window sending = None;
  const auto isOver = [&] {
    const Window now = manager.shown("Printing on card");
    if (sending == None && now != None) manager.focus(sending = now);
    return sending != None && now == None;
  };
  Sending measured;
  auto start = Clock::now();
  auto lastKey = start;
  manager.clickLastButton(dialog);
  while (!isOver()) {
    if (sending == None && Clock::now() - start > kLostClick) {
      start = Clock::now();
      manager.clickLastButton(dialog);
    }
    const double answer = manager.ping(dialog, isOver);
    if (measured.seconds == 0 && server.hasFile(lastJob)) measured.seconds = secondsSince(start);
    if (isOver()) break;
    measured.longestAnswer = std::max(measured.longestAnswer, answer);
    if (sending != None && Clock::now() - lastKey > kBetweenKeys) {
      manager.press(XK_Return);
      lastKey = Clock::now();
    }
    std::this_thread::sleep_for(kBetweenPings);
  }
  if (!program.succeeds() || measured.seconds == 0)
    throw std::runtime_error("the window has not sent all");
  manager.waitUntil([&] { return manager.shown("Print on card") == None; });
  return measured;
}

double secondsOf(const std::vector<std::string>& command) {
  const auto start = Clock::now();
  if (!bench::StartedProgram(command).succeeds()) throw std::runtime_error(command[0] + " fails");
  return secondsSince(start);
}

int run() {
  const test::Display display;
  setenv("NO_AT_BRIDGE", "1", 1);  // nobody listens
  test::PrivatePrintServer server;
  server.addQueue("card",
                  test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"));
  const test::TemporaryFolder folder;
  std::vector<std::string> window{CARDPANELS_BUILD_DIR "/bin/cardprint"};
  std::vector<std::string> each{window[0], "--no-dialog", "--each"};
  for (auto* command : {&window, &each}) {
    command->insert(command->end(), {"-s", "-d", "card", "-o", "cardLaminate=Both"});
    for (int i = 0; i < kFiles; ++i)
      command->push_back(folder.write("badge" + std::to_string(i) + ".txt", "Ada Lovelace\n"));
  }
  WindowManager manager;
  std::vector<double> ratios;
  std::vector<double> answers;
  for (int i = 0; i < kRuns; ++i) {
    const double base = secondsOf(each);
    const Sending sending = sentByWindow(manager, server, 2 * kFiles * (i + 1), window);
    ratios.push_back(sending.seconds / base);
    answers.push_back(sending.longestAnswer);
    test::runCommand("cancel -a -x");
  }
  const double ratio = bench::median(ratios);
  const double answer = bench::median(answers);
  std::printf("ratio 500 files by the window / by --each: %.2f (at most %.2f)\n", ratio,
              kBesideEach);
  std::printf("the window's longest time to answer meanwhile: %.0f ms (at most %.0f)\n", answer,
              kAnswer);
  return ratio <= kBesideEach && answer <= kAnswer ? 0 : 1;
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
