#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/notebook.h>
#include <gtkmm/window.h>

#include <memory>
#include <string>

#include "ports/gtk3/Controls.h"
#include "ports/gtk3/GtkBundle.h"
#include "tests/ports/gtk3/TestOwner.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::gtk3 {
namespace {

using platform::MenuItem;
using test::TestOwner;

template <class Widget, class Interface>
Widget& widgetOf(const std::shared_ptr<Interface>& view) {
  return dynamic_cast<Widget&>(dynamic_cast<WidgetView&>(*view).widget());
}

class ControlsTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("resources/ui/Test.ui", test::kTestFile);
    view_ = GtkBundle(folder_.path()).loadNibNamed_owner("Test", owner_);
    ASSERT_TRUE(view_);
  }

  void fillPopUp() {
    owner_->popUp->removeAllItems();
    for (const char* title : {"None", "Front", "Back"}) {
      owner_->popUp->menu()->addItem(
          MenuItem::initWithTitle_action_keyEquivalent(std::string(title), std::nullopt, ""));
    }
  }

  void fillPopUp(int count) {
    owner_->popUp->removeAllItems();
    for (int i = 0; i < count; ++i) {
      owner_->popUp->menu()->addItem(MenuItem::initWithTitle_action_keyEquivalent(
          "Choice " + std::to_string(i), std::nullopt, ""));
    }
  }

  Gtk::ComboBoxText& comboBox() { return widgetOf<Gtk::ComboBoxText>(owner_->popUp); }
  Gtk::Entry& entry() { return widgetOf<Gtk::Entry>(owner_->field); }

  /// Shows the view in a window.
  void show() {
    window_.add(widgetOf<Gtk::Widget>(view_));
    window_.show_all();
    test::handleEvents();
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<TestOwner> owner_ = std::make_shared<TestOwner>();
  std::shared_ptr<platform::View> view_;
  Gtk::Window window_;
};

TEST_F(ControlsTest, APopUpShowsTheTitlesOfItsItems) {
  fillPopUp();
  ASSERT_EQ(comboBox().get_model()->children().size(), 3U);
  owner_->popUp->selectItemAtIndex(1);
  EXPECT_EQ(comboBox().get_active_text(), "Front");
}

TEST_F(ControlsTest, APopUpKeepsItemsWithTheSameTitleApart) {
  fillPopUp();
  fillPopUp();
  owner_->popUp->menu()->addItem(
      MenuItem::initWithTitle_action_keyEquivalent(std::string("None"), std::nullopt, ""));
  owner_->popUp->selectItemAtIndex(3);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 3);
}

TEST_F(ControlsTest, AnItemWithoutTitleIsAnItem) {
  owner_->popUp->menu()->addItem(
      MenuItem::initWithTitle_action_keyEquivalent(std::nullopt, std::nullopt, ""));
  owner_->popUp->selectItemAtIndex(0);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 0);
}

TEST_F(ControlsTest, AnAbsentItemIsNotAdded) {
  owner_->popUp->menu()->addItem(nullptr);
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(0));
}

TEST_F(ControlsTest, AMenuAnswersItsItemsByIndex) {
  fillPopUp();
  EXPECT_EQ(owner_->popUp->menu()->itemAtIndex(2)->title(), "Back");
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(3));
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(-1));
}

TEST_F(ControlsTest, NothingIsSelectedAfterTheItemsChange) {
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
  fillPopUp();
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
  owner_->popUp->selectItemAtIndex(2);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 2);
  fillPopUp();
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
}

TEST_F(ControlsTest, AnIndexWithoutAnItemSelectsNone) {
  fillPopUp();
  for (const std::int64_t index : {std::int64_t{3}, std::int64_t{-2}, std::int64_t{1} << 32}) {
    owner_->popUp->selectItemAtIndex(1);
    owner_->popUp->selectItemAtIndex(index);
    EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1) << index;
  }
}

TEST_F(ControlsTest, TheUserFiresTheActionWithThePopUpAsSender) {
  fillPopUp();
  comboBox().set_active(1);
  EXPECT_EQ(owner_->changes, 1);
  EXPECT_EQ(owner_->sender, owner_->popUp);
}

TEST_F(ControlsTest, TheProgramFiresNoAction) {
  fillPopUp();
  owner_->popUp->selectItemAtIndex(1);
  owner_->popUp->selectItemAtIndex(-1);
  owner_->popUp->selectItemAtIndex(2);
  owner_->popUp->setEnabled(false);
  owner_->popUp->removeAllItems();
  EXPECT_EQ(owner_->changes, 0);
}

TEST_F(ControlsTest, AnActionThatSelectsAnotherItemFiresOnce) {
  fillPopUp();
  owner_->onChange = [this] { owner_->popUp->selectItemAtIndex(0); };
  comboBox().set_active(1);
  EXPECT_EQ(owner_->changes, 1);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 0);
  comboBox().set_active(2);
  EXPECT_EQ(owner_->changes, 2);
}

TEST_F(ControlsTest, AnActionMayLetTheViewGo) {
  fillPopUp();
  show();
  Gtk::ComboBoxText& shown = comboBox();
  owner_->onChange = [this] {
    window_.remove();
    view_.reset();
    owner_->view.reset();
    owner_->popUp.reset();
    owner_->sender.reset();
  };
  shown.set_active(1);
  EXPECT_EQ(owner_->changes, 1);
}

TEST_F(ControlsTest, TheActionOfAnOwnerThatIsGoneDoesNothing) {
  fillPopUp();
  Gtk::ComboBoxText& shown = comboBox();
  const std::weak_ptr<TestOwner> gone = owner_;
  owner_.reset();
  EXPECT_TRUE(gone.expired());
  shown.set_active(1);
  EXPECT_EQ(shown.get_active_row_number(), 1);
}

TEST_F(ControlsTest, AControlOutlivesItsView) {
  fillPopUp();
  show();
  window_.remove();
  view_.reset();
  owner_->view.reset();
  fillPopUp();
  owner_->popUp->selectItemAtIndex(1);
  owner_->popUp->setEnabled(false);
  owner_->popUp->setHidden(true);
  owner_->field->setStringValue("1in");
  EXPECT_EQ(owner_->popUp->menu()->itemAtIndex(1)->title(), "Front");
  EXPECT_EQ(owner_->changes, 0);
}

bool opensAsList(Gtk::ComboBoxText& comboBox) {
  return GTK_IS_TREE_VIEW(gtk_accessible_get_widget(
      GTK_ACCESSIBLE(gtk_combo_box_get_popup_accessible(GTK_COMBO_BOX(comboBox.gobj())))));
}

TEST_F(ControlsTest, APopUpWithManyItemsOpensAsAList) {
  fillPopUp();
  EXPECT_FALSE(opensAsList(comboBox()));
  fillPopUp(1000);
  EXPECT_TRUE(opensAsList(comboBox()));
  show();
  EXPECT_TRUE(opensAsList(comboBox()));
  owner_->popUp->selectItemAtIndex(998);
  EXPECT_EQ(comboBox().get_active_text(), "Choice 998");
  EXPECT_EQ(owner_->changes, 0);
}

TEST_F(ControlsTest, TheKeyboardChoosesFromAList) {
  fillPopUp(1000);
  owner_->popUp->selectItemAtIndex(500);
  show();
  comboBox().grab_focus();
  g_signal_emit_by_name(comboBox().gobj(), "move-active", GTK_SCROLL_STEP_DOWN);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 501);
  EXPECT_EQ(owner_->changes, 1);
  comboBox().popup();
  ASSERT_TRUE(
      test::handleEventsUntil([&] { return comboBox().property_popup_shown().get_value(); }));
  comboBox().popdown();
}

TEST_F(ControlsTest, ADisabledPopUpTakesNoInput) {
  owner_->popUp->setEnabled(false);
  EXPECT_FALSE(comboBox().get_sensitive());
  owner_->popUp->setEnabled(true);
  EXPECT_TRUE(comboBox().get_sensitive());
}

TEST_F(ControlsTest, TheWheelOverAPopUpChangesNothing) {
  fillPopUp();
  owner_->popUp->selectItemAtIndex(0);
  show();
  GdkEvent* const event = gdk_event_new(GDK_SCROLL);
  event->scroll.window = GDK_WINDOW(g_object_ref(comboBox().get_window()->gobj()));
  event->scroll.direction = GDK_SCROLL_DOWN;
  gdk_event_set_device(
      event, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
  EXPECT_FALSE(gtk_widget_event(GTK_WIDGET(comboBox().gobj()), event));
  gdk_event_free(event);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 0);
  EXPECT_EQ(owner_->changes, 0);
}

TEST_F(ControlsTest, AHiddenViewStaysHiddenWhenAllIsShown) {
  owner_->popUp->setHidden(true);
  show();
  EXPECT_FALSE(comboBox().get_visible());
  EXPECT_TRUE(entry().get_mapped());
  owner_->popUp->setHidden(false);
  test::handleEvents();
  EXPECT_TRUE(comboBox().get_mapped());
}

TEST_F(ControlsTest, HidingAViewHidesWhatIsInside) {
  show();
  owner_->tabs->setHidden(true);
  test::handleEvents();
  EXPECT_FALSE(entry().get_mapped());
}

/// What assistive technology does with each page that changes. A critical warning ends the test.
void readState(AtkObject* page, gpointer /*values*/, gpointer count) {
  g_object_unref(atk_object_ref_state_set(page));
  ++*static_cast<int*>(count);
}

TEST_F(ControlsTest, ATabViewEndsQuietlyWhileAssistiveTechnologyListens) {
  AtkObject* const tabs = widgetOf<Gtk::Notebook>(owner_->tabs).get_accessible()->gobj();
  AtkObject* const page = atk_object_ref_accessible_child(tabs, 0);
  int count = 0;
  g_signal_connect(page, "property-change", G_CALLBACK(readState), &count);
  view_.reset();
  owner_.reset();
  EXPECT_GT(count, 0);
  g_object_unref(page);
}

TEST_F(ControlsTest, ViewsAreFoundByTagAtAnyDepth) {
  EXPECT_EQ(view_->viewWithTag(7), owner_->tabs);
  EXPECT_EQ(view_->viewWithTag(3), owner_->label);
  EXPECT_EQ(owner_->tabs->viewWithTag(3), owner_->label);
  EXPECT_EQ(owner_->label->viewWithTag(3), owner_->label);
}

TEST_F(ControlsTest, ATagThatIsNotInsideAnswersNothing) {
  EXPECT_FALSE(view_->viewWithTag(4));
  EXPECT_FALSE(view_->viewWithTag(0));
  EXPECT_FALSE(view_->viewWithTag(-1));
  EXPECT_FALSE(owner_->label->viewWithTag(7));
}

TEST_F(ControlsTest, ALabelShowsTextAndNothingForAbsence) {
  EXPECT_EQ(owner_->label->stringValue(), "Area 1");
  owner_->label->setStringValue("A & <B> _C");
  EXPECT_EQ(owner_->label->stringValue(), "A & <B> _C");
  owner_->label->setStringValue(std::nullopt);
  EXPECT_EQ(owner_->label->stringValue(), "");
}

TEST_F(ControlsTest, AFieldShowsTextAndNothingForAbsence) {
  owner_->field->setStringValue("0.5in");
  EXPECT_EQ(entry().get_text(), "0.5in");
  owner_->field->setStringValue(std::nullopt);
  EXPECT_EQ(owner_->field->stringValue(), "");
}

TEST_F(ControlsTest, EachIsDescribedByItsKind) {
  const auto kind = [](const platform::Object& control) {
    const std::string text = control.description();
    return text.substr(0, text.find(": 0x"));
  };
  EXPECT_EQ(kind(*owner_->label), "<TextField");
  EXPECT_EQ(kind(*owner_->field), "<TextField");
  EXPECT_EQ(kind(*owner_->popUp), "<PopUpButton");
  EXPECT_EQ(kind(*owner_->popUp->menu()), "<Menu");
  EXPECT_EQ(kind(*owner_->tabs), "<TabView");
  EXPECT_EQ(kind(*view_), "<View");
}

TEST_F(ControlsTest, AFieldTakesTwentyCharacters) {
  entry().set_text("123456789012345678901");
  EXPECT_EQ(owner_->field->stringValue(), "12345678901234567890");
}

TEST_F(ControlsTest, AFieldMarksWhatIsNoMeasurementAndSaysWhatIs) {
  const auto style = entry().get_style_context();
  entry().set_text("abc");
  EXPECT_TRUE(style->has_class("error"));
  EXPECT_THAT(entry().get_tooltip_text().raw(), testing::HasSubstr("mm"));
  EXPECT_EQ(entry().get_accessible()->get_description(), entry().get_tooltip_text());
  EXPECT_FALSE(entry().get_icon_name(Gtk::ENTRY_ICON_SECONDARY).empty());
  for (const char* fine : {"1.5 IN", ""}) {
    entry().set_text("abc");
    entry().set_text(fine);
    EXPECT_FALSE(style->has_class("error")) << fine;
    EXPECT_EQ(entry().get_tooltip_text(), "Left edge") << fine;
    EXPECT_TRUE(entry().get_icon_name(Gtk::ENTRY_ICON_SECONDARY).empty()) << fine;
  }
}

TEST_F(ControlsTest, AFieldMarksWhatTheProgramSetsToo) {
  owner_->field->setStringValue("1inch");
  EXPECT_TRUE(entry().get_style_context()->has_class("error"));
}

/// What a field tells of the user.
class WatchTest : public ControlsTest, public dialog::FieldWatcher {
 protected:
  void SetUp() override {
    ControlsTest::SetUp();
    field().setWatcher(this);
    show();
    entry().grab_focus();
  }
  void TearDown() override {
    if (owner_->field) field().setWatcher(nullptr);
    ControlsTest::TearDown();
  }

  void typed(dialog::MeasurementField& /*field*/) override { told_.emplace_back("typed"); }
  void left(dialog::MeasurementField& /*field*/) override {
    told_.emplace_back("left");
    if (onLeft_) onLeft_();
  }
  void entered(dialog::MeasurementField& /*field*/) override { told_.emplace_back("entered"); }

  EntryField& field() { return dynamic_cast<EntryField&>(*owner_->field); }

  void leaveField() {
    window_.unset_focus();
    GdkEvent* const event = gdk_event_new(GDK_FOCUS_CHANGE);
    event->focus_change.window = GDK_WINDOW(g_object_ref(entry().get_window()->gobj()));
    event->focus_change.in = FALSE;
    gtk_widget_event(GTK_WIDGET(entry().gobj()), event);
    gdk_event_free(event);
  }

  std::vector<std::string> told_;
  std::function<void()> onLeft_;
};

TEST_F(WatchTest, TellsWhenTheUserTypesEntersAndLeaves) {
  entry().set_text("1in");
  EXPECT_THAT(told_, testing::ElementsAre("typed"));
  EXPECT_TRUE(field().isEdited());
  EXPECT_TRUE(field().hasFocus());
  entry().activate();
  leaveField();
  EXPECT_THAT(told_, testing::ElementsAre("typed", "entered", "left"));
  EXPECT_FALSE(field().hasFocus());
}

TEST_F(WatchTest, WhatTheProgramSetsIsNotTyped) {
  entry().set_text("1in");
  owner_->field->setStringValue("2in");
  EXPECT_FALSE(field().isEdited());
  owner_->field->setStringValue("2in");
  EXPECT_THAT(told_, testing::ElementsAre("typed"));
}

TEST_F(WatchTest, ACommaBecomesThePointBeforeTheFieldIsSaidToBeLeft) {
  entry().set_text("1,5cm");
  std::string atLeaving;
  onLeft_ = [&] { atLeaving = field().text(); };
  leaveField();
  EXPECT_EQ(atLeaving, "1.5cm");
  EXPECT_TRUE(field().isEdited());
  EXPECT_FALSE(entry().get_style_context()->has_class("error"));
}

TEST_F(WatchTest, TheFieldMayBeSetWhileItIsLeft) {
  onLeft_ = [this] { owner_->field->setStringValue("2in"); };
  entry().set_text("1in");
  leaveField();
  EXPECT_EQ(owner_->field->stringValue(), "2in");
}

TEST_F(WatchTest, HelpIsTheTooltipWhileTheTextIsGood) {
  field().setUnitHelp("One px is 1 mm.");
  EXPECT_EQ(entry().get_tooltip_text(), "One px is 1 mm.");
  entry().set_text("abc");
  EXPECT_THAT(entry().get_tooltip_text().raw(), testing::EndsWith(" One px is 1 mm."));
  entry().set_text("1");
  field().reject("The printer refuses this.");
  EXPECT_EQ(entry().get_tooltip_text(), "The printer refuses this.");
  field().judge();
  EXPECT_EQ(entry().get_tooltip_text(), "One px is 1 mm.");
}

}  // namespace
}  // namespace cardpanels::gtk3
