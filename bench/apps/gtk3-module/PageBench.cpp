#include <benchmark/benchmark.h>
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>
#include <gtkmm/main.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "apps/gtk3-module/GtkPrintDialog.h"
#include "bench/support/Ratios.h"
#include "dialog/DialogSession.h"
#include "ports/gtk3/GtkBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/Display.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace {

using namespace cardpanels;
using Clock = std::chrono::steady_clock;

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
    gtk_widget_show(widget_);
    for (const char* queue : {"card", "plain"}) {
      select(queue);
      const auto start = Clock::now();
      while (!shows(queue)) {
        gtk_main_iteration_do(FALSE);
        if (secondsSince(start) > 20) throw std::runtime_error("the dialog shows no printer");
      }
    }
  }
  ~Dialog() { gtk_widget_destroy(widget_); }
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
    while (gtk_events_pending() != 0) gtk_main_iteration();
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
  gtk3module::GtkPrintDialog controls(dialog().get());
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
            test::builtBundle(), std::make_shared<gtk3::GtkBundle>(test::builtBundle()), job);
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
  gtk_init(&argc, &argv);
  Gtk::Main::init_gtkmm_internals();
  return bench::runWithRatios(argc, argv, {{"pageGetsReady", "dialogBuildsItsControls", 0.5}});
}
