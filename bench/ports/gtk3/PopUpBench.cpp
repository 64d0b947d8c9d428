#include <benchmark/benchmark.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/main.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include <chrono>
#include <memory>
#include <string>

#include "bench/support/Ratios.h"
#include "platform/MenuItem.h"
#include "ports/gtk3/Controls.h"
#include "tests/support/Display.h"

// What a pop-up of many choices costs until it shows, beside GTK's own list of so many rows.

namespace {

using namespace cardpanels;
using Clock = std::chrono::steady_clock;

constexpr int kChoices = 1000;

std::string title(int choice) { return "Choice " + std::to_string(choice); }

/// Has the window show `widget`, with all that waits to be drawn.
void show(Gtk::Window& window, Gtk::Widget& widget) {
  window.add(widget);
  window.show_all();
  while (!widget.get_mapped() || gtk_events_pending() != 0) gtk_main_iteration_do(FALSE);
}

template <typename Fill>
void measure(benchmark::State& state, Fill fillAndShow) {
  for (auto _ : state) {
    Gtk::Window window;
    const auto start = Clock::now();
    fillAndShow(window);
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
}

void popUpOf1000(benchmark::State& state) {
  measure(state, [](Gtk::Window& window) {
    auto* const comboBox = Gtk::make_managed<Gtk::ComboBoxText>();
    comboBox->reference();
    gtk3::PopUpButton popUp{Glib::RefPtr<Gtk::Widget>(comboBox)};
    for (int i = 0; i < kChoices; ++i) {
      popUp.menu()->addItem(
          platform::MenuItem::initWithTitle_action_keyEquivalent(title(i), std::nullopt, ""));
    }
    popUp.selectItemAtIndex(kChoices / 2);
    show(window, *comboBox);
    window.remove();
  });
}
BENCHMARK(popUpOf1000)->UseManualTime();

void listOf1000(benchmark::State& state) {
  struct Columns : Gtk::TreeModel::ColumnRecord {
    Columns() { add(text); }
    Gtk::TreeModelColumn<Glib::ustring> text;
  };
  static const Columns columns;
  measure(state, [](Gtk::Window& window) {
    const auto rows = Gtk::ListStore::create(columns);
    auto* const list = Gtk::make_managed<Gtk::TreeView>(rows);
    list->append_column("", columns.text);
    for (int i = 0; i < kChoices; ++i) (*rows->append())[columns.text] = title(i);
    show(window, *list);
    window.remove();
  });
}
BENCHMARK(listOf1000)->UseManualTime();

}  // namespace

int main(int argc, char** argv) {
  const test::Display display;
  gtk_init(&argc, &argv);
  Gtk::Main::init_gtkmm_internals();
  return bench::runWithRatios(argc, argv, {{"popUpOf1000", "listOf1000", 0.25}});
}
