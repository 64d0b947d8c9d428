#include <gtest/gtest.h>
#include <gtkmm/drawingarea.h>
#include <gtkmm/grid.h>
#include <gtkmm/notebook.h>
#include <gtkmm/settings.h>
#include <gtkmm/window.h>

#include <memory>
#include <vector>

#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/gtk/PictureStyle.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/CardPage.h"
#include "ports/gtk4/Children.h"
#include "ports/gtk4/GtkBundle.h"
#include "ports/gtk4/WidgetView.h"
#include "tests/ports/gtk4/VirtualDisplay.h"
#include "tests/ports/gtk4/Widgets.h"
#include "tests/support/BuiltFiles.h"

namespace cardpanels::gtk4 {
namespace {

/// The page on the sample printer, with the fields of the front's resin.
class PictureFrames : public testing::Test {
 protected:
  PictureFrames() {
    job_.mark("frontResin", "DefinedAreas");
    page_ = std::make_unique<CardPage>(panels_);
    window_.set_child(*page_);
    window_.set_visible();
    test::handleEventsUntil([this] { return page_->get_mapped(); });
  }

  ~PictureFrames() override { page_.reset(); }

  std::vector<CardView*> pictures() {
    std::vector<CardView*> all;
    for (Gtk::Widget* each : test::all<Gtk::DrawingArea>(*page_)) {
      if (each->get_mapped()) all.push_back(dynamic_cast<CardView*>(each));
    }
    return all;
  }

  static std::vector<Gtk::Widget*> areasOf(CardView& view) {
    std::vector<Gtk::Widget*> all;
    forEachChild(view, [&all](Gtk::Widget& each) { all.push_back(&each); });
    return all;
  }

  host::JobOptions job_{host::openPPD(test::duplexPPD())};
  host::PanelHost panels_{test::builtBundle(), std::make_shared<GtkBundle>(test::builtBundle()),
                          job_};
  Gtk::Window window_;
  std::unique_ptr<CardPage> page_;
};

TEST_F(PictureFrames, ShowThePictureWhereThereIsSomethingToShow) {
  EXPECT_EQ(pictures().size(), 1U);
  panels_.change("frontResin", "WholeCard");
  page_->page().optionsChanged();
  EXPECT_TRUE(test::handleEventsUntil([this] { return pictures().empty(); }));
  panels_.change("backRibbon", "YMCK");
  panels_.change("backResin", "LeftHalf");
  page_->page().optionsChanged();
  EXPECT_TRUE(test::handleEventsUntil([this] { return pictures().size() == 1; }));
  ASSERT_FALSE(pictures().empty());
  EXPECT_TRUE(pictures().front()->picture().scene().isBack);
}

TEST_F(PictureFrames, StandBesideTheFieldsWhereThereIsRoom) {
  const auto isBeside = [this] {
    Gtk::Widget* const fields = test::all<Gtk::Notebook>(*page_).front();
    double x = 0;
    double y = 0;
    return pictures().front()->translate_coordinates(*fields, 0, 0, x, y) &&
           x >= fields->get_width();
  };
  window_.set_default_size(1000, 700);
  EXPECT_TRUE(test::handleEventsUntil(isBeside));
  window_.set_default_size(500, 700);
  EXPECT_TRUE(test::handleEventsUntil([&] { return !isBeside(); }));
}

TEST_F(PictureFrames, LeaveTheFieldsWhereTheyStoodWhenThePageEnds) {
  auto& panel = dynamic_cast<WidgetView&>(*panels_.view(panels_.panels().front())).widget();
  const auto before = test::all<Gtk::Notebook>(panel);
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(dynamic_cast<Gtk::Grid*>(before[0]->get_parent()), nullptr);
  page_.reset();
  EXPECT_EQ(test::all<Gtk::Notebook>(panel), before);
  for (Gtk::Widget* each : before) EXPECT_EQ(each->get_parent(), &panel);
}

TEST_F(PictureFrames, HaveTheColoursOfTheThemeOrOfPaper) {
  auto theme = Gtk::Settings::get_default()->property_gtk_theme_name();
  const Glib::ustring before = theme.get_value();
  theme.set_value("Empty");
  Gtk::Widget& picture = *pictures().front();
  const cairo::CardColours colours = gtk::themeColours(picture.gobj(), false);
  theme.set_value("Default-dark");
  const cairo::CardColours ofTheme = gtk::themeColours(picture.gobj(), false);
  const cairo::CardColours ofPage = gtk::themeColours(picture.gobj(), true);
  theme.set_value(before);
  const cairo::Colour black;
  EXPECT_EQ(colours.card, (cairo::Colour{1, 1, 1}));
  EXPECT_EQ(colours.ink, black);
  EXPECT_EQ(colours.onCard, black);
  EXPECT_EQ(colours.area, cairo::readable({0, 0, 1}, black));
  EXPECT_EQ(colours.error, cairo::readable({1, 0, 0}, black));
  EXPECT_NE(ofTheme.ink, black);
  EXPECT_EQ(ofTheme.onCard, ofTheme.ink);
  EXPECT_EQ(ofPage.card, (cairo::Colour{1, 1, 1})) << "a page is as white as paper";
  EXPECT_EQ(ofPage.onCard, black);
}

TEST_F(PictureFrames, HaveAWidgetForEachAreaWhereItIs) {
  CardView& view = *pictures().front();
  view.picture().press(dialog::PictureKey::create);
  view.picture().press(dialog::PictureKey::create);
  const auto areas = areasOf(view);
  ASSERT_EQ(areas.size(), 2U);
  EXPECT_EQ(accessibleName(*areas[0]),
            "Include area 1, 38 mm from left, 22 mm from top, 10 by 10 mm");
  EXPECT_TRUE(test::handleEventsUntil([&areas] { return areas[1]->get_width() > 1; }));
  const auto place = areas[1]->get_allocation();
  const auto box = view.picture().layout().boxOf(view.picture().chosenShape()->place);
  EXPECT_EQ(place.get_x(), static_cast<int>(box.left));
  EXPECT_EQ(place.get_y(), static_cast<int>(box.top));
}

TEST_F(PictureFrames, GiveTheFocusToTheChosenArea) {
  CardView& view = *pictures().front();
  view.grab_focus();
  EXPECT_TRUE(view.is_focus());
  view.picture().press(dialog::PictureKey::create);
  view.picture().press(dialog::PictureKey::create);
  const auto areas = areasOf(view);
  ASSERT_EQ(areas.size(), 2U);
  EXPECT_TRUE(areas[1]->is_focus());
  view.picture().press(dialog::PictureKey::first);
  EXPECT_TRUE(areas[0]->is_focus());
  EXPECT_EQ(areasOf(view), areas);
  view.picture().press(dialog::PictureKey::clear);
  EXPECT_TRUE(view.is_focus());
  EXPECT_EQ(areasOf(view).size(), 1U);
}

TEST_F(PictureFrames, LetTheFocusGoWhenThePageEnds) {
  CardView& view = *pictures().front();
  view.grab_focus();
  EXPECT_EQ(window_.get_focus(), &view);
  bool isGone = false;
  g_object_weak_ref(
      G_OBJECT(static_cast<Gtk::Widget&>(view).gobj()),
      [](gpointer gone, GObject* /*view*/) { *static_cast<bool*>(gone) = true; }, &isGone);
  page_.reset();
  EXPECT_TRUE(isGone);
  EXPECT_EQ(window_.get_focus(), nullptr);
}

TEST_F(PictureFrames, ChooseTheAreaThatIsGivenTheFocus) {
  CardView& view = *pictures().front();
  view.picture().press(dialog::PictureKey::create);
  const std::string first = view.picture().chosen();
  view.picture().press(dialog::PictureKey::create);
  areasOf(view).front()->grab_focus();
  EXPECT_TRUE(test::handleEventsUntil([&] { return view.picture().chosen() == first; }));
}

TEST_F(PictureFrames, AreOneStopOfTab) {
  CardView& view = *pictures().front();
  view.picture().press(dialog::PictureKey::create);
  view.picture().press(dialog::PictureKey::create);
  EXPECT_TRUE(view.child_focus(Gtk::DirectionType::TAB_FORWARD));
  EXPECT_TRUE(areasOf(view)[1]->is_focus());
  EXPECT_FALSE(view.child_focus(Gtk::DirectionType::TAB_FORWARD));
}

TEST_F(PictureFrames, HaveTheActionsOfAnArea) {
  CardView& view = *pictures().front();
  view.grab_focus();
  view.picture().press(dialog::PictureKey::create);
  EXPECT_TRUE(areasOf(view).front()->activate_action("area.edit"));
  const auto hasFocus = [this] {
    const auto* const focus = window_.get_focus();
    return focus != nullptr && focus->get_ancestor(GTK_TYPE_ENTRY) != nullptr;
  };
  EXPECT_TRUE(test::handleEventsUntil(hasFocus));
  EXPECT_TRUE(areasOf(view).front()->activate_action("area.clear"));
  EXPECT_TRUE(areasOf(view).empty());
}

}  // namespace
}  // namespace cardpanels::gtk4
