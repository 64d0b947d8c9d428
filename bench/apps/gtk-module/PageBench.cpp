#include <benchmark/benchmark.h>
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/support/Ratios.h"
#include "dialog/DialogSession.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/Display.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

#if GTK_CHECK_VERSION(4, 0, 0)
#include <gtkmm/init.h>

#include "apps/gtk4-module/GtkPrintDialog.h"
#include "ports/gtk4/GtkBundle.h"
#else
#include <gtkmm/main.h>

#include "apps/gtk3-module/GtkPrintDialog.h"
#include "ports/gtk3/GtkBundle.h"
#endif

// The page in the print dialog of GTK 3 or GTK 4, beside what the dialog does for the same printer.

namespace {

using namespace cardpanels;
using Clock = std::chrono::steady_clock;

#if GTK_CHECK_VERSION(4, 0, 0)
using gtk4::GtkBundle;
using gtk4module::GtkPrintDialog;
void startToolkit(int& /*argc*/, char**& /*argv*/) {
  gtk_init();
  Gtk::init_gtkmm_internals();
}
void destroyWindow(GtkWidget* window) { gtk_window_destroy(GTK_WINDOW(window)); }
#else
using gtk3::GtkBundle;
using gtk3module::GtkPrintDialog;
void startToolkit(int& argc, char**& argv) {
  gtk_init(&argc, &argv);
  Gtk::Main::init_gtkmm_internals();
}
void destroyWindow(GtkWidget* window) { gtk_widget_destroy(window); }
#endif

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// GTK's print dialog with the queues `card` and `plain`, both known to it.
class Dialog {
 public:
  Dialog() {
    server_.addQueue("card", test::fileContent(test::duplexPPD()));
    server_.addQueue("plain", test::testPPD({test::testOption("toner", "Toner", 2)}));
    widget_ = gtk_print_unix_dialog_new(nullptr, nullptr);
    gtk_widget_set_visible(widget_, TRUE);
    for (const char* queue : {"card", "plain"}) {
      select(queue);
      const auto start = Clock::now();
      while (!shows(queue)) {
        g_main_context_iteration(nullptr, FALSE);
        if (secondsSince(start) > 20) throw std::runtime_error("the dialog shows no printer");
      }
    }
  }
  ~Dialog() { destroyWindow(widget_); }
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  GtkPrintUnixDialog* get() { return GTK_PRINT_UNIX_DIALOG(widget_); }

  void select(const char* queue) {
    GtkPrintSettings* const settings = gtk_print_settings_new();
    gtk_print_settings_set_printer(settings, queue);
    gtk_print_unix_dialog_set_settings(get(), settings);
    g_object_unref(settings);
  }

  void rest() {
    while (g_main_context_pending(nullptr) != FALSE) g_main_context_iteration(nullptr, FALSE);
  }

 private:
  bool shows(const char* queue) {
    GtkPrinter* const printer = gtk_print_unix_dialog_get_selected_printer(get());
    return printer != nullptr && std::strcmp(gtk_printer_get_name(printer), queue) == 0;
  }

  test::PrivatePrintServer server_;
  GtkWidget* widget_;
};

Dialog& dialog() {
  static auto* const shared = new Dialog;
  return *shared;
}

/// What the dialog spends on its own controls for the card printer.
void dialogBuildsItsControls(benchmark::State& state) {
  for (auto _ : state) {
    dialog().select("plain");
    dialog().rest();
    const auto start = Clock::now();
    dialog().select("card");
    state.SetIterationTime(secondsSince(start));
  }
}
BENCHMARK(dialogBuildsItsControls)->UseManualTime();

/// From there to the page being ready, without the fetch.
void pageGetsReady(benchmark::State& state) {
  GtkPrintDialog controls(dialog().get());
  std::function<void(dialog::QueueRead)> done;
  dialog::DialogSession session(
      controls,
      [&done](const std::string&, std::function<void(dialog::QueueRead)> then) {
        done = std::move(then);
        return std::make_shared<int>();
      },
      [](const std::string&, const std::function<void(const dialog::StateRead&)>&) {
        return nullptr;
      },
      [](host::JobOptions& job) {
        return std::make_unique<host::PanelHost>(
            test::builtBundle(), std::make_shared<GtkBundle>(test::builtBundle()), job);
      },
      [](const dialog::PresetTask&, const std::function<void(dialog::PresetsRead)>&) {
        return nullptr;
      });
  for (auto _ : state) {
    dialog().select("plain");
    controls.controlsReplaced();
    session.selectPrinter("");
    dialog().rest();
    dialog().select("card");
    host::PPDFile ppd = host::openPPD(test::duplexPPD());
    const auto start = Clock::now();
    controls.controlsReplaced();
    session.selectPrinter("card");
    done({std::move(ppd), {}});
    state.SetIterationTime(secondsSince(start));
  }
}
BENCHMARK(pageGetsReady)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
  const test::Display display;
  startToolkit(argc, argv);
  return bench::runWithRatios(argc, argv, {{"pageGetsReady", "dialogBuildsItsControls", 0.5}});
}
