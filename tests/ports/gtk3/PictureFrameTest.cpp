#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>
#include <gtkmm/drawingarea.h>
#include <gtkmm/grid.h>
#include <gtkmm/notebook.h>
#include <gtkmm/window.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <vector>

#include "dialog/PictureText.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/gtk/PictureKeys.h"
#include "ports/gtk3/CardPage.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/WidgetView.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"
#include "tests/support/BuiltFiles.h"

namespace cardpanels::gtk3 {
namespace {

/// The page on the sample printer, with the fields of the front's resin.
class PictureFrames : public testing::Test {
 protected:
  PictureFrames() {
    job_.mark("frontResin", "DefinedAreas");
    page_ = std::make_unique<CardPage>(panels_);
    window_.add(*page_);
    page_->show();
    window_.show();
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

  host::JobOptions job_{host::openPPD(test::duplexPPD())};
  host::PanelHost panels_{test::builtBundle(), std::make_shared<GtkBundle>(test::builtBundle()),
                          job_};
  Gtk::Window window_;
  std::unique_ptr<CardPage> page_;
};

/// An area of the picture as assistive technology holds it.
class Area {
 public:
  Area(AtkObject* group, int index) : object_(atk_object_ref_accessible_child(group, index)) {
    if (object_ == nullptr) throw std::logic_error("the picture has no such area");
  }
  Area(const Area&) = delete;
  Area& operator=(const Area&) = delete;
  ~Area() { g_object_unref(object_); }

  AtkObject* get() const { return object_; }
  bool has(AtkStateType state) const {
    AtkStateSet* const states = atk_object_ref_state_set(object_);
    const bool does = atk_state_set_contains_state(states, state) != FALSE;
    g_object_unref(states);
    return does;
  }

 private:
  AtkObject* object_;
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

TEST_F(PictureFrames, LeaveTheFieldsWhereTheyStoodWhenThePageEnds) {
  auto& panel = dynamic_cast<WidgetView&>(*panels_.view(panels_.panels().front())).widget();
  const auto before = test::all<Gtk::Notebook>(panel);
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(dynamic_cast<Gtk::Grid*>(before[0]->get_parent()), nullptr);
  page_.reset();
  EXPECT_EQ(test::all<Gtk::Notebook>(panel), before);
  for (Gtk::Widget* each : before) EXPECT_EQ(each->get_parent(), &panel);
}

TEST_F(PictureFrames, LetWhatAssistiveTechnologyHoldsOutliveThem) {
  auto* const picture = pictures().front();
  picture->picture().press(dialog::PictureKey::create);
  AtkObject* const group = gtk_widget_get_accessible(GTK_WIDGET(picture->gobj()));
  const Area area(group, 0);
  EXPECT_EQ(atk_object_get_parent(area.get()), group);
  page_.reset();
  EXPECT_TRUE(area.has(ATK_STATE_DEFUNCT));
  EXPECT_FALSE(atk_action_do_action(ATK_ACTION(area.get()), 0));
}

TEST_F(PictureFrames, TellAssistiveTechnologyOfEachArea) {
  auto* const view = pictures().front();
  view->picture().press(dialog::PictureKey::create);
  view->picture().press(dialog::PictureKey::create);
  AtkObject* const group = gtk_widget_get_accessible(GTK_WIDGET(view->gobj()));
  EXPECT_EQ(atk_object_get_n_accessible_children(group), 2);
  for (const int outside : {-1, 2}) {
    EXPECT_EQ(atk_object_ref_accessible_child(group, outside), nullptr) << outside;
  }
  for (const int index : {0, 1}) {
    const Area area(group, index);
    EXPECT_EQ(atk_object_get_index_in_parent(area.get()), index);
    EXPECT_EQ(atk_object_get_role(area.get()), ATK_ROLE_ICON);
    const dialog::CardShape& shape = view->picture().scene().shapes.at(std::size_t(index));
    EXPECT_EQ(atk_object_get_name(area.get()),
              dialog::shapeInWords(view->picture().scene(), shape));
    EXPECT_EQ(area.has(ATK_STATE_SELECTED), index == 1) << "the one that was made last";
    for (const auto state : {ATK_STATE_SHOWING, ATK_STATE_FOCUSABLE, ATK_STATE_ENABLED}) {
      EXPECT_TRUE(area.has(state)) << state;
    }
    EXPECT_FALSE(area.has(ATK_STATE_DEFUNCT));
  }
}

TEST_F(PictureFrames, TellWhereOnTheScreenAnAreaIs) {
  auto* const view = pictures().front();
  view->picture().press(dialog::PictureKey::create);
  AtkObject* const group = gtk_widget_get_accessible(GTK_WIDGET(view->gobj()));
  const Area area(group, 0);
  const dialog::PictureBox box =
      view->picture().layout().boxOf(view->picture().scene().shapes.at(0).place);
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  atk_component_get_extents(ATK_COMPONENT(group), &left, &top, &width, &height, ATK_XY_SCREEN);
  int x = -1;
  int y = -1;
  atk_component_get_extents(ATK_COMPONENT(area.get()), &x, &y, &width, &height, ATK_XY_SCREEN);
  EXPECT_EQ(x - left, static_cast<int>(box.left));
  EXPECT_EQ(y - top, static_cast<int>(box.top));
  EXPECT_EQ(width, static_cast<int>(std::ceil(box.width)));
  EXPECT_EQ(height, static_cast<int>(std::ceil(box.height)));
}

TEST_F(PictureFrames, LetAssistiveTechnologyEditAndClearAnArea) {
  auto* const view = pictures().front();
  view->picture().press(dialog::PictureKey::create);
  view->picture().press(dialog::PictureKey::create);
  AtkObject* const group = gtk_widget_get_accessible(GTK_WIDGET(view->gobj()));
  const Area area(group, 0);
  auto* const action = ATK_ACTION(area.get());
  ASSERT_EQ(atk_action_get_n_actions(action), 2);
  EXPECT_STREQ(atk_action_get_name(action, 0), "edit");
  EXPECT_STREQ(atk_action_get_localized_name(action, 0), "Go to its fields");
  EXPECT_STREQ(atk_action_get_name(action, 1), "clear");
  EXPECT_STREQ(atk_action_get_localized_name(action, 1), "Clear the area");
  for (const int outside : {-1, 2}) {
    EXPECT_EQ(atk_action_get_name(action, outside), nullptr);
    EXPECT_EQ(atk_action_get_localized_name(action, outside), nullptr);
    EXPECT_FALSE(atk_action_do_action(action, outside));
  }
  EXPECT_TRUE(atk_component_grab_focus(ATK_COMPONENT(area.get())));
  EXPECT_TRUE(area.has(ATK_STATE_SELECTED));
  EXPECT_TRUE(atk_action_do_action(action, 1));
  EXPECT_EQ(atk_object_get_n_accessible_children(group), 1);
  EXPECT_TRUE(area.has(ATK_STATE_DEFUNCT));
  EXPECT_EQ(atk_object_get_index_in_parent(area.get()), -1);
  EXPECT_FALSE(atk_component_grab_focus(ATK_COMPONENT(area.get())));
}

TEST_F(PictureFrames, LeaveKeysToOthersWhereTheyMeanSomethingElse) {
  dialog::CardPicture& picture = pictures().front()->picture();
  ASSERT_TRUE(gtk::pressKey(picture, GDK_KEY_Insert, 0));
  const auto place = [&picture] { return picture.scene().shapes.at(0).place; };
  const dialog::AreaRectangle before = place();
  EXPECT_FALSE(gtk::pressKey(picture, GDK_KEY_a, 0));
  EXPECT_FALSE(gtk::pressKey(picture, GDK_KEY_Right, GDK_MOD1_MASK)) << "a mnemonic";
  EXPECT_FALSE(gtk::pressKey(picture, GDK_KEY_Page_Up, GDK_CONTROL_MASK)) << "another panel";
  EXPECT_FALSE(gtk::pressKey(picture, GDK_KEY_Page_Down, GDK_CONTROL_MASK));
  EXPECT_EQ(place(), before);
  EXPECT_TRUE(gtk::pressKey(picture, GDK_KEY_KP_Right, 0));
  EXPECT_GT(place().x, before.x);
  EXPECT_EQ(place().width, before.width);
  EXPECT_TRUE(gtk::pressKey(picture, GDK_KEY_Left, GDK_SHIFT_MASK));
  EXPECT_LT(place().width, before.width);
}

}  // namespace
}  // namespace cardpanels::gtk3
