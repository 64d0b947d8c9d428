// The dialog at its default size, with text that is half as large again.
#include <gtest/gtest.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/listbox.h>
#include <gtkmm/notebook.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <string>
#include <vector>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/GtkWindows.h"
#include "apps/cardprint/CardJob.h"
#include "platform/Messages.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels::cardprint {
namespace {

// GTK reads it when it starts.
const int kLargeText = setenv("GDK_DPI_SCALE", "1.5", 1);

using test::all;

std::vector<Gtk::Widget*> shown(Gtk::Window& window) {
  auto found = all<Gtk::Label, Gtk::ComboBox, Gtk::Entry, Gtk::Notebook>(window);
  std::erase_if(found, [](const Gtk::Widget* each) { return !each->get_mapped(); });
  return found;
}

/// The width that the widget asks for, without its margins.
int wantedWidth(const Gtk::Widget& widget) {
  int least = 0;
  int natural = 0;
  widget.get_preferred_width(least, natural);
  return natural - widget.get_margin_start() - widget.get_margin_end();
}

/// Expects that all that shows has the width that it asks for, inside the window, once each has got
/// its place.
void expectUncut(Gtk::Window& window) {
  test::handleEventsUntil([&] {
    const auto widgets = shown(window);
    return std::all_of(widgets.begin(), widgets.end(), [](const Gtk::Widget* each) {
      return each->get_allocated_width() > 1 && each->get_allocated_width() >= wantedWidth(*each);
    });
  });
  for (auto* widget : shown(window)) {
    EXPECT_GE(widget->get_allocated_width(), wantedWidth(*widget))
        << widget->get_accessible()->get_name() << ", " << widget->get_name();
    int x = 0;
    int y = 0;
    ASSERT_TRUE(widget->translate_coordinates(window, widget->get_allocated_width(), 0, x, y));
    EXPECT_LE(x, window.get_allocated_width()) << widget->get_accessible()->get_name();
  }
}

class LargeText : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    ASSERT_EQ(kLargeText, 0);
    unsetenv("LANGUAGE");
    setenv("CARDPANELS_BUNDLE", test::builtBundle().c_str(), 1);
    ASSERT_NE(std::setlocale(LC_ALL, GetParam()), nullptr);
    platform::useCatalogues(CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle");
  }
  void TearDown() override {
    test::handleEvents();
    std::setlocale(LC_ALL, "C");
  }

  test::RecordedLog log_;
};

TEST_P(LargeText, IsCutNowhereAtTheDefaultSizeWhateverThePanelsShow) {
  Arguments arguments;
  arguments.ppd = test::duplexPPD();
  GtkWindows windows;
  CardJob job(arguments, windows);
  CardDialog dialog(job, windows.waiter());
  dialog.show();
  ASSERT_TRUE(test::handleEventsUntil([&] { return dialog.get_mapped(); }));
  auto& sidebar = dynamic_cast<Gtk::ListBox&>(*all<Gtk::ListBox>(dialog).front());
  for (std::size_t panel = 0; panel < job.panels().panels().size(); ++panel) {
    sidebar.select_row(*sidebar.get_row_at_index(static_cast<int>(panel)));
    // The areas open while the window is there.
    for (const std::string side : {"front", "back"}) {
      job.panels().change(side + "Ribbon", "YMCK");
      job.panels().change(side + "Resin", "DefinedAreas");
      job.panels().change(side + "PO", "DefinedAreas");
    }
    for (const int page : {0, 1}) {
      for (auto* tabs : all<Gtk::Notebook>(dialog)) {
        dynamic_cast<Gtk::Notebook&>(*tabs).set_current_page(page);
      }
      SCOPED_TRACE("panel " + std::to_string(panel) + ", page " + std::to_string(page));
      expectUncut(dialog);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, LargeText,
                         testing::Values("en_US.UTF-8", "de_DE.UTF-8", "ja_JP.UTF-8"),
                         [](const auto& locale) { return std::string(locale.param).substr(0, 2); });

}  // namespace
}  // namespace cardpanels::cardprint
