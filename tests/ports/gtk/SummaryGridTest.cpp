// The grid of the port to the GTK that this is compiled for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtk/gtk.h>
#include <gtkmm/label.h>
#include <gtkmm/window.h>

#include <string>
#include <utility>
#include <vector>

#if GTK_CHECK_VERSION(4, 0, 0)
#include "ports/gtk4/SummaryGrid.h"
#include "tests/ports/gtk4/VirtualDisplay.h"
#include "tests/ports/gtk4/Widgets.h"
#else
#include "ports/gtk3/SummaryGrid.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"
#endif

namespace cardpanels::gtk {
namespace {

#if GTK_CHECK_VERSION(4, 0, 0)
namespace port = gtk4;
#else
namespace port = gtk3;
#endif
using test::across;
using test::down;
using test::Place;
using testing::ElementsAre;

class SummaryGridTest : public testing::Test {
 protected:
  void show(const dialog::Summary& summary) {
    grid_.display(summary);
#if GTK_CHECK_VERSION(4, 0, 0)
    window_.set_child(grid_);
    window_.set_visible();
#else
    window_.add(grid_);
    window_.show_all();
#endif
    ASSERT_TRUE(test::handleEventsUntil([this] { return grid_.get_mapped(); }));
  }

  std::vector<std::string> texts() {
    std::vector<std::string> all;
    for (Gtk::Widget* each : test::all<Gtk::Label>(grid_)) {
      all.push_back(dynamic_cast<Gtk::Label&>(*each).get_text());
    }
    return all;
  }

  /// Where the text starts inside its label; in GTK 3, inside the window.
  std::pair<int, int> textOf(const std::string& text) {
    std::pair<int, int> offsets;
    test::labelled(grid_, text).get_layout_offsets(offsets.first, offsets.second);
    return offsets;
  }

  Place placeOf(const std::string& text) { return test::placeOf(test::labelled(grid_, text)); }

  Gtk::Window window_;
  port::SummaryGrid grid_;
};

TEST_F(SummaryGridTest, AnEntryMayHaveATitleAValueOrARemarkAlone) {
  show({{"Laminate",
         {{.title = "Title"},
          {.value = "Value"},
          {.remark = "Remark"},
          {"Both", "Too", false, "More"}}}});
  EXPECT_THAT(texts(),
              ElementsAre("Laminate", "Title", "", "", "Value", "Remark", "Both", "Too", "More"));
}

TEST_F(SummaryGridTest, AGroupWithoutEntriesIsLeftOut) {
  show({{"Laminate", {}}, {"Ribbon", {{"Front Ribbon", "YMCK"}}}});
  EXPECT_THAT(texts(), ElementsAre("Ribbon", "Front Ribbon", "YMCK"));
}

TEST_F(SummaryGridTest, EntriesStandBelowTheirHeadingInColumns) {
  show({{"Laminate", {{"Thermal Laminate", "Back", false, "A remark"}, {"Size", "Small"}}},
        {"Ribbon", {{"Front Ribbon", "YMCK"}}}});
  const Place heading = placeOf("Laminate");
  const Place title = placeOf("Thermal Laminate");
  const Place remark = placeOf("A remark");
  EXPECT_EQ(title.left - heading.left, 12);
  EXPECT_EQ(down(heading, title), 6);
  EXPECT_EQ(across(title, placeOf("Back")), 12);
  EXPECT_EQ(down(title, remark), 6);
  EXPECT_EQ(remark.left, title.left);
  EXPECT_EQ(down(remark, placeOf("Size")), 6);
  EXPECT_EQ(placeOf("Small").left, placeOf("Back").left);
  EXPECT_EQ(down(placeOf("Size"), placeOf("Ribbon")), 12 + 6);
  EXPECT_EQ(placeOf("Ribbon").left, heading.left);
}

TEST_F(SummaryGridTest, AssistiveTechnologyIsToldWhatIsAHeading) {
  show({{"Laminate", {{"Thermal Laminate", "Back"}}}});
#if GTK_CHECK_VERSION(4, 0, 0)
  const auto roleOf = [this](const std::string& text) {
    return test::labelled(grid_, text).property_accessible_role().get_value();
  };
  const auto heading = Gtk::Accessible::Role::HEADING;
#else
  const auto roleOf = [this](const std::string& text) {
    return test::labelled(grid_, text).get_accessible()->get_role();
  };
  const auto heading = Atk::ROLE_HEADING;
#endif
  EXPECT_EQ(roleOf("Laminate"), heading);
  EXPECT_NE(roleOf("Thermal Laminate"), heading);
  EXPECT_NE(roleOf("Back"), heading);
}

TEST_F(SummaryGridTest, TextsStartAtTheTopLeftOfTheirCells) {
  show({{"Laminate", {{"Thermal Laminate", "Back"}, {"Size", "Small\nOr large"}}}});
  EXPECT_EQ(textOf("Size").first, textOf("Thermal Laminate").first);
  EXPECT_EQ(textOf("Back").first, textOf("Small\nOr large").first);
  EXPECT_EQ(textOf("Size").second, textOf("Small\nOr large").second);
}

}  // namespace
}  // namespace cardpanels::gtk
