#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>
#include <gtkmm/drawingarea.h>
#include <gtkmm/grid.h>
#include <gtkmm/notebook.h>
#include <gtkmm/window.h>

#include <memory>
#include <vector>

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
  AtkObject* const area = atk_object_ref_accessible_child(group, 0);
  ASSERT_NE(area, nullptr);
  EXPECT_EQ(atk_object_get_parent(area), group);
  page_.reset();
  AtkStateSet* const states = atk_object_ref_state_set(area);
  EXPECT_TRUE(atk_state_set_contains_state(states, ATK_STATE_DEFUNCT));
  EXPECT_FALSE(atk_action_do_action(ATK_ACTION(area), 0));
  g_object_unref(states);
  g_object_unref(area);
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
